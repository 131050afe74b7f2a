#pragma once

#include <QDialog>
#include <memory>

#include "frame/ui/ListaConBusqueda.h"
#include "header/parties.h"
#include "ui_FrmLstVendedores.h"

/// The book of sellers: pick one, add, change and delete.
class FrmLstVendedores {
 public:
    FrmLstVendedores();

    /// Shows the list and waits; the chosen seller is in VendedorElegido(), which ESC empties.
    void Elegir();
    /// Fills the list in the order of the options, with this seller in hand.
    void CargarLst(const QString &codigo = {});

    Ui::FrmLstVendedores ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void ArmarMenu();
    void Conectar();
    void LstC();
    void Agregar();
    void Modificar();
    void Eliminar();

    ListaConBusqueda lista_;
    std::vector<Vendedor> vendedores_;
};

/// Opens the list of sellers; true when one was chosen.
bool ListarVendedores(QString &codigo, QString &nombre);
