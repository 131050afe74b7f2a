#pragma once

#include <QMainWindow>
#include <memory>

#include "ui_FrmPrincipal.h"

/// The frame: a window of fixed size around the main menu, that its own controls neither close nor maximize.
class FrmPrincipal {
 public:
    FrmPrincipal();
    ~FrmPrincipal();
    FrmPrincipal(const FrmPrincipal &) = delete;
    FrmPrincipal &operator=(const FrmPrincipal &) = delete;

    /// Puts the main menu inside, and shows the frame.
    void Mostrar();

    Ui::FrmPrincipal ui;
    std::unique_ptr<QMainWindow> ventana;

 private:
    void Form_Load();
    void Conectar();
    void Form_Unload();
    void mnuinternos_Click();
};
