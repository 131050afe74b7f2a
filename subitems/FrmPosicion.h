#pragma once

#include <QDialog>
#include <memory>

#include "frame/ui/ListaConBusqueda.h"
#include "subitems/positions.h"
#include "ui_FrmPosicion.h"

class QKeyEvent;

/// Picks a tariff position by its beginning; the choice and what goes with it stay in the context.
class FrmPosicion {
 public:
    FrmPosicion();

    /// Shows the screen and waits; a text is searched first, as if typed. The chosen position, empty when
    /// the screen was left.
    QString Elegir(const QString &buscado = {});
    /// The search from outside: false, and told, when no position begins so.
    bool BuscarNCM(const QString &texto);

    Ui::FrmPosicion ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void Form_Load();
    void Conectar();
    bool Buscar(const QString &texto, OrigenDeBusqueda origen);
    bool TxtNcm_KeyDown(const QKeyEvent *tecla);
    bool LstNCM_KeyDown(const QKeyEvent *tecla);
    void Vaciar();
    void MostrarFila();
    void Seleccionar();

    ListaConBusqueda sufijos_;
};

/// Opens the search of positions; the chosen one, or empty. Its units and flags are in `ctx.posicion`.
QString ElegirPosicion(const QString &buscado = {});
