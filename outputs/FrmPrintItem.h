#pragma once

#include <QDialog>
#include <memory>

#include "ui_FrmPrintItem.h"

struct AvanceDeHoja;
class QKeyEvent;

/// Asks for a range of items and prints the sheet of their liquidation, or shows it; ESC stops a run, and
/// leaves the screen when there is none.
class FrmPrintItem {
 public:
    FrmPrintItem();

    /// Shows the screen and waits. `item` is the one in hand: its page alone is offered, or for "0" the whole
    /// operation.
    void Mostrar(const QString &interno, const QString &item);
    /// Fills the screen without showing it; false when the operation's items could not be read, which was
    /// told.
    bool Cargar(const QString &interno, const QString &item);

    Ui::FrmPrintItem ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void Conectar();
    bool Form_KeyDown(const QKeyEvent *tecla);
    void Form_Escape();
    void CmdPrint_Click();
    bool Avanzar(const AvanceDeHoja &avance);
    void Correr(bool corriendo);

    QString interno_;
    bool corriendo_ = false;
    bool detener_ = false;
};
