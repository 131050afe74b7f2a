#pragma once

#include <QDialog>
#include <memory>

#include "frame/ui/ListaConBusqueda.h"
#include "header/ClientBook.h"
#include "ui_FrmClientes.h"

/// The book of clients: pick one, add, change and delete.
class FrmClientes {
 public:
    FrmClientes();

    /// Shows the book to be kept: ENTER opens the record of the row in hand.
    void Mostrar();
    /// Shows the book and waits: ENTER takes the row in hand, which ClientBook::Elegido() then holds. `cuit`
    /// is a number that was typed and not found: a new client starts with it.
    void Elegir(const QString &cuit = {});

    Ui::FrmClientes ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void ArmarMenu();
    void Conectar();
    bool Form_KeyDown(const QKeyEvent *tecla);
    void CargarLst(const QString &cuit = {});
    void Preparar(bool eligiendo);
    void Tomar();
    void Agregar();
    void Modificar();
    void Eliminar();

    ListaConBusqueda lista_;
    std::vector<ClientBook::Fila> filas_;
    QString buscado_;
    bool eligiendo_ = false;
};

/// Opens the book to pick a client; true when one was chosen. `buscado` as in FrmClientes::Elegir.
bool SeleccionarCliente(QString &cuit, QString &nombre, const QString &buscado = {});
