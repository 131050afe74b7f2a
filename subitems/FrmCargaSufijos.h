#pragma once

#include <QDialog>
#include <memory>

#include "frame/dialogs.h"
#include "ui_FrmCargaSufijos.h"

class QKeyEvent;

/// The options of a coded suffix family: ENTER confirms, ESC cancels the whole process of suffixes.
class FrmCargaSufijos {
 public:
    FrmCargaSufijos();

    /// Shows the list and waits. The confirmed row; -1 for ESC; -2 for a window that was closed without
    /// either.
    int Elegir(const Eleccion &eleccion);
    /// Fills the list, without showing the screen.
    void Cargar(const Eleccion &eleccion);

    Ui::FrmCargaSufijos ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void Conectar();
    bool Form_KeyDown(const QKeyEvent *tecla);
    void Confirmar();

    int resultado_ = 0;
};
