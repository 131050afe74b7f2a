#pragma once

#include <QDialog>
#include <memory>

#include "frame/ui/ListaConBusqueda.h"
#include "ui_FrmSufijos.h"

/// What the catalogue demands of a position, what a line holds of it, and the licence behind the position.
class FrmSufijos {
 public:
    FrmSufijos();

    /// Fills the screen, without showing it; `sufijos` is the line's text, or empty. Raises Falla.
    void Cargar(const QString &posicion, const QString &sufijos);

    Ui::FrmSufijos ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void Form_Load();

    ListaConBusqueda catalogo_;
    ListaConBusqueda linea_;
};

/// Shows the suffixes of the position and of a line's text until the screen is closed.
void VerSufijos(const QString &posicion, const QString &sufijos);
