#pragma once

#include <QDialog>
#include <memory>

#include "frame/ui/ListaConBusqueda.h"
#include "liquidation/itemlist.h"
#include "ui_frmListadoItem.h"

/// The items of an operation, to go to one by what it is.
class frmListadoItem {
 public:
    frmListadoItem();

    /// Shows the items and waits, with `actual` in hand. The chosen item's number ("7"), or empty when the
    /// list was left with ESC.
    QString Elegir(const QString &interno, const QString &actual);
    /// Fills the list without showing it.
    void CargarLista(const QString &interno, const QString &actual);

    Ui::frmListadoItem ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void Conectar();

    ListaConBusqueda lista_;
    std::vector<ItemDeLista> items_;
};
