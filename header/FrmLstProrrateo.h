#pragma once

#include <QDialog>
#include <memory>

#include "ui_FrmLstProrrateo.h"

/// The pick list of an operation's proration codes, as the entry of lines opens it.
class FrmLstProrrateo {
 public:
    FrmLstProrrateo();
    /// The chosen code; empty when the list is empty or was left.
    QString Elegir(const QString &interno);
    void CargarList(const QString &interno);

    Ui::FrmLstProrrateo ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void Conectar();
};
