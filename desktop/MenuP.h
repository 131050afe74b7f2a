#pragma once

#include <QWidget>
#include <memory>

#include "ui_MenuP.h"

/// The main menu: the system's own entries and the forms of other programs. What is not there yet is
/// disabled.
class MenuP {
 public:
    MenuP();
    void TomarFoco();

    Ui::MenuP ui;
    std::unique_ptr<QWidget> ventana;

 private:
    void Form_Load();
    void Conectar();
};
