#pragma once

#include <QDialog>
#include <memory>

#include "forms/certificates.h"
#include "frame/ui/ListaConBusqueda.h"
#include "ui_FrmCertificado.h"

class QKeyEvent;

/// One certificate of origin and the lines that it covers.
class FrmCertificado {
 public:
    FrmCertificado();

    /// Shows a certificate of the operation, or a new one (id 0), and waits. The identity of the saved one;
    /// of one that was left without saving, its own.
    qint64 Editar(const certificados::Legajo &legajo, const certificados::Certificado &certificado);
    /// Fills the screen without showing it.
    void Cargar(const certificados::Legajo &legajo, const certificados::Certificado &certificado);

    Ui::FrmCertificado ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void Conectar();
    bool Form_KeyDown(const QKeyEvent *tecla);
    bool GrdLineas_KeyDown(const QKeyEvent *tecla);
    void Fecha_LostFocus(QLineEdit *campo);
    certificados::Ficha Leer() const;
    bool Cambio() const;
    void Cubrir(int fila, bool cubre);
    void CambiarEnMano();
    void CmdDelPais_Click();
    void MarcarAlaVista(bool cubre);
    void Contar();
    void CmdGuardar_Click();
    void Salir();

    ListaConBusqueda lista_;
    certificados::Legajo legajo_;
    certificados::Ficha cargada_;
    std::set<qint64> cubiertas_;  ///< lines that are marked
    qint64 id_ = 0;
};
