#pragma once

#include <QDialog>
#include <memory>

#include "frame/ui/ListaConBusqueda.h"
#include "header/parties.h"
#include "ui_FrmListadoDespachante.h"

/// The list of customs brokers, to pick one.
class FrmListadoDespachante {
 public:
    FrmListadoDespachante();

    /// Shows the list and waits; the chosen broker is in DespachanteElegido(), which ESC empties.
    void Elegir();

    Ui::FrmListadoDespachante ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void Form_Load();
    void Conectar();
    void Tomar();

    ListaConBusqueda lista_;
    std::vector<Despachante> despachantes_;
};

/// Opens the list of brokers; true when one was chosen.
bool ListarDespachantes(QString &cuit, QString &nombre);
