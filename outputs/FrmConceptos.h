#pragma once

#include <QDialog>
#include <memory>
#include <optional>

#include "ui_FrmConceptos.h"

/// The master list of concepts of quotes: take one, add and delete.
class FrmConceptos {
 public:
    FrmConceptos();

    /// Shows the list and waits; the concept taken, or nothing when the user left.
    std::optional<QString> Elegir();
    /// Fills the list, with this entry in hand.
    void Cargar(const QString &actual = {});

    Ui::FrmConceptos ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void Conectar();
    bool LstConceptos_KeyDown(const QKeyEvent *tecla);
    bool TxtConcepto_KeyDown(const QKeyEvent *tecla);
    void Tomar();
};
