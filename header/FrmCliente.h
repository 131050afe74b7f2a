#pragma once

#include <QDialog>
#include <memory>

#include "frame/ui/ListaConBusqueda.h"
#include "header/ClientBook.h"
#include "ui_FrmCliente.h"

/// One client of the book with its advantages: a new one, or the change of one that is kept.
class FrmCliente {
 public:
    FrmCliente();

    /// Asks for a new client and waits, with the tax number filled in. The saved number, or empty.
    QString Agregar(const QString &cuit = {});
    /// The same for a client that is kept; one that is gone is told. Raises Falla.
    QString Modificar(const QString &cuit);
    /// Fills the screen without showing it.
    void Cargar(const ClientBook::Ficha &ficha, bool nuevo);

    Ui::FrmCliente ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void Form_Load();
    void Conectar();
    bool Form_KeyDown(const QKeyEvent *tecla);
    QString Mostrar();
    void HabilitarPorcentajes();
    ClientBook::Ficha Leer() const;
    void cmdGuardar_Click();
    void Salir();
    void IrA(const ClientBook::Falta &falta);

    void MostrarVentajas(int actual);
    bool TxtVentaja_KeyDown(const QKeyEvent *tecla);
    void ElegirVentaja();
    void cmdAgregarVentaja_Click();
    void ModificarVentaja();
    void QuitarVentaja();
    void VaciarVentaja();
    QString DescripcionDeVentaja(const QString &id) const;

    ListaConBusqueda lista_;
    std::vector<ClientBook::VentajaDeCatalogo> catalogo_;
    ClientBook::Ficha cargada_;                  ///< as it was when the screen opened
    std::vector<ClientBook::Ventaja> ventajas_;  ///< the rows of the grid
    int modificando_ = -1;                       ///< the row of the grid that the fields hold, or -1
    bool nuevo_ = true;
};
