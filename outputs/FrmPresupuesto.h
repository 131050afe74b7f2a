#pragma once

#include <QDialog>
#include <memory>

#include "outputs/quote.h"
#include "ui_FrmPresupuesto.h"

class QKeyEvent;

/// The quote of an operation: its duties, the broker's concepts, the references; from here it is seen, saved
/// and sent. ESC keeps the amount on account and leaves.
class FrmPresupuesto {
 public:
    FrmPresupuesto();

    /// Loads the quote of an operation, shows it and waits. Without such an operation nothing is shown.
    void Mostrar(const QString &interno);
    /// The page in the system's browser.
    void SENDPREVW();
    /// Asks and sends the page to the client.
    void SENDEMAIL();

    Ui::FrmPresupuesto ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void Preparar();
    void Conectar();
    void Escribir();
    void EscribirTotales();
    void MostrarGastos();
    void MostrarOperativos(const QString &actual = {});
    void MostrarReferencias(const QString &actual = {});
    void Leer();
    bool Form_KeyDown(const QKeyEvent *tecla);
    void Form_Escape();
    bool GrdLiq_KeyDown(const QKeyEvent *tecla);
    void GrdLiq_Enter();
    bool Grd_KeyDown(const QKeyEvent *tecla);
    void Grd_Insert();
    void Grd_Delete();
    bool Grd2_KeyDown(const QKeyEvent *tecla);
    void Grd2_Insert();
    void Grd2_Delete();
    void TxtPase_LostFocus();
    void cmdComentario_Click();
    void CmdCorreo_Click();
    void CmdPDF_Click();
    bool ExigirPase();
    void Abrir(const QString &archivo);

    Presupuesto p_;
};
