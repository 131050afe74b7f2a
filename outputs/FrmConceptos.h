#pragma once

#include <QDialog>
#include <memory>
#include <optional>

#include "outputs/FrmListaMaestra.h"
#include "ui_FrmConceptos.h"

/// The master list of concepts of quotes: take one, add and delete.
class FrmConceptos {
 public:
    FrmConceptos();

    /// Shows the list and waits; the concept taken, or nothing when the user left.
    std::optional<QString> Elegir();
    /// Fills the list.
    void Cargar();

    Ui::FrmConceptos ui;
    std::unique_ptr<QDialog> ventana;

 private:
    ListaMaestra lista_;
};
