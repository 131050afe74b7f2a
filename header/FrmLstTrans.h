#pragma once

#include <QDialog>
#include <memory>
#include <vector>

#include "frame/ui/ListaConBusqueda.h"
#include "header/transportagents.h"
#include "ui_FrmLstTrans.h"

/// The book of transport agents: pick one, add, change and delete.
class FrmLstTrans {
 public:
    FrmLstTrans();

    /// Shows the list and waits; the chosen agent is in AgenteElegido(), which ESC empties.
    void Elegir();
    /// Fills the list, with this agent in hand.
    void CargarLst(const QString &cuit = {});

    Ui::FrmLstTrans ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void ArmarMenu();
    void Conectar();
    void Tomar();
    void Agregar();
    void Modificar();
    void Eliminar();

    ListaConBusqueda lista_;
    std::vector<AgenteDeTransporte> agentes_;
};

/// Opens the list of agents; true when one was chosen.
bool ListarAgentes(QString &cuit, QString &nombre);
