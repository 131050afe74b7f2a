#pragma once

#include <QDialog>
#include <memory>
#include <optional>

#include "outputs/FrmListaMaestra.h"
#include "ui_FrmReferencias.h"

/// The master list of references of quotes: take one, add and delete.
class FrmReferencias {
 public:
    FrmReferencias();

    /// Shows the list and waits; the reference taken, or nothing when the user left.
    std::optional<QString> Elegir();
    /// Fills the list.
    void Cargar();

    Ui::FrmReferencias ui;
    std::unique_ptr<QDialog> ventana;

 private:
    ListaMaestra lista_;
};
