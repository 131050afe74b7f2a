#pragma once

#include <QDialog>
#include <QElapsedTimer>
#include <memory>

#include "ui_FrmPrintItem.h"

struct AvanceDeHoja;
class QComboBox;
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
    bool Item_KeyDown(QComboBox *combo, const QKeyEvent *tecla);
    void Form_Escape();
    void CmdPrint_Click();
    bool Avanzar(const AvanceDeHoja &avance);
    void Correr(bool corriendo);

    QString interno_;
    QString cifras_;               ///< what was typed so far over a list of items
    QElapsedTimer desdeLaUltima_;  ///< since the last of them
    bool corriendo_ = false;
    bool detener_ = false;
};
