#pragma once

#include <QDialog>
#include <memory>

#include "ui_FrmLstDiv.h"

/// The free comment of an operation; saved when the screen closes.
class FrmLstDiv {
 public:
    FrmLstDiv();
    /// Shows the comment and waits until the screen is closed.
    void Mostrar(const QString &interno);

    Ui::FrmLstDiv ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void Conectar();
    void Form_Escape();

    QString interno_;
};
