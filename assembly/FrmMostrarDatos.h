#pragma once

#include <QDialog>
#include <memory>

#include "frame/dialogs.h"
#include "ui_FrmMostrarDatos.h"

/// A report as read-only text in a fixed-pitch font.
class FrmMostrarDatos {
 public:
    FrmMostrarDatos();
    /// Shows the text and waits until the user closes it.
    void Mostrar(const Informe &informe);
    /// The same without waiting.
    void Cargar(const Informe &informe);

    Ui::FrmMostrarDatos ui;
    std::unique_ptr<QDialog> ventana;
    QAction *mnucopiar = nullptr;
    QAction *mnucerrar = nullptr;

 private:
    void Conectar();
    void mnucopiar_Click();
};
