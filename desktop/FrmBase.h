#pragma once

#include <QDialog>
#include <array>
#include <memory>

#include "ui_FrmBase.h"

/// The folders of the stores, as the closed libraries find them.
class FrmBase {
 public:
    FrmBase();
    void Mostrar();

    Ui::FrmBase ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void Form_Load();
    void Conectar();
    bool campo_KeyDown(QLineEdit *campo, const QKeyEvent *tecla);
    void Form_Unload();

    std::array<QLineEdit *, 5> campos_{};
};
