#pragma once

#include <QDialog>
#include <memory>

#include "ui_FrmConfig.h"

/// The door to the two option screens.
class FrmConfig {
 public:
    FrmConfig();
    void Mostrar();

    Ui::FrmConfig ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void Conectar();
    bool Form_KeyDown(const QKeyEvent *tecla);
};
