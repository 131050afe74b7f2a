#pragma once

#include <QDialog>
#include <memory>

#include "frame/ui/ListaConBusqueda.h"
#include "ui_FrmListadoeX.h"

/// A row of the general list.
struct FilaDeListado {
    QString id;
    QString descripcion;
};

/// The general list, with a toolbar that searches for a text anywhere in the codes or in the descriptions.
class FrmListadoeX {
 public:
    FrmListadoeX();

    /// Shows the rows and waits. The chosen code, or empty when the list was left with ESC.
    QString Elegir(const QString &titulo, const std::vector<FilaDeListado> &filas);
    /// Fills the list without showing it.
    void Cargar(const QString &titulo, const std::vector<FilaDeListado> &filas);

    Ui::FrmListadoeX ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void ArmarMenu();
    void Conectar();
    void Buscar(int columna);

    ListaConBusqueda lista_;
    std::vector<FilaDeListado> filas_;
};
