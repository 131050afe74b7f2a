#pragma once

#include <QDialog>
#include <memory>

#include "forms/certificates.h"
#include "frame/ui/ListaConBusqueda.h"
#include "ui_FrmCertificados.h"

class QKeyEvent;

/// The certificates of origin of an operation: add, change and delete.
class FrmCertificados {
 public:
    FrmCertificados();

    /// Loads the operation's certificates, shows them and waits.
    void Mostrar(const QString &interno);

    Ui::FrmCertificados ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void ArmarMenu();
    void Conectar();
    bool Form_KeyDown(const QKeyEvent *tecla);
    /// Fills the list, with this certificate in hand; without one the row in hand stays.
    void CargarLst(qint64 id = 0);
    const certificados::Certificado *Elegido() const;
    void Agregar();
    void Modificar();
    void Eliminar();
    void Listar();

    ListaConBusqueda lista_;
    certificados::Legajo legajo_;
};

/// Opens the certificates of an operation over another screen, and waits.
void AbrirCertificados(const QString &interno);
