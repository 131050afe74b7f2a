#pragma once

#include <QDialog>
#include <QPoint>
#include <memory>
#include <optional>

#include "frame/picklist.h"
#include "frame/ui/ListaConBusqueda.h"
#include "ui_FrmListadoeX.h"

/// The general list, with a toolbar that searches for a text anywhere in the codes or in the descriptions.
class FrmListadoeX {
 public:
    FrmListadoeX();

    /// Shows the rows and waits. The chosen code, or empty when the list was left with ESC. `lugar` is where
    /// its corner stands, from the frame's corner, as far as the screen has room; none: where the desktop
    /// puts it.
    QString Elegir(const QString &titulo, const std::vector<FilaDeListado> &filas,
                   std::optional<QPoint> lugar = {});
    /// Fills the list without showing it.
    void Cargar(const QString &titulo, const std::vector<FilaDeListado> &filas);

    Ui::FrmListadoeX ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void ArmarMenu();
    void Conectar();
    void Buscar(int columna);
    void Colocar(QPoint lugar);

    ListaConBusqueda lista_;
    std::vector<FilaDeListado> filas_;
};
