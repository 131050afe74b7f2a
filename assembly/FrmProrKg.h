#pragma once

#include <QDialog>
#include <memory>

#include "ui_FrmProrKg.h"

struct Avance;

/// Asks for the total of net kilos and spreads it, over the declaration or over one item; ESC leaves.
class FrmProrKg {
 public:
    FrmProrKg();

    /// Shows the screen with `kilos` in its field and waits. `item` "0" is the whole declaration. True when a
    /// spread ran, so that what shows the operation reads it again.
    bool Mostrar(const QString &interno, const QString &item, const QString &kilos);

    Ui::FrmProrKg ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void Conectar();
    void CmdPror_Click();
    void Pintar(const Avance &avance);

    QString interno_;
    bool corriendo_ = false;
    bool prorrateo_ = false;
};
