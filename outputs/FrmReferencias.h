#pragma once

#include <QDialog>
#include <memory>
#include <optional>

#include "ui_FrmReferencias.h"

/// The master list of references of quotes: take one, add and delete.
class FrmReferencias {
 public:
    FrmReferencias();

    /// Shows the list and waits; the reference taken, or nothing when the user left.
    std::optional<QString> Elegir();
    /// Fills the list, with this entry in hand.
    void Cargar(const QString &actual = {});

    Ui::FrmReferencias ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void Conectar();
    bool LstReferencias_KeyDown(const QKeyEvent *tecla);
    bool TxtRefencia_KeyDown(const QKeyEvent *tecla);
    void Tomar();
};
