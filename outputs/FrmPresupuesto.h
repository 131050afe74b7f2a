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
    /// Takes the concept in hand out of the quote.
    void LP_DEL_CONCEPTO();

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
    /// Takes what the fields hold; a changed rate changes what is shown.
    void Leer();
    bool Form_KeyDown(const QKeyEvent *tecla);
    void Form_Escape();
    bool GrdLiq_KeyDown(const QKeyEvent *tecla);
    void GrdLiq_Enter();
    bool Grd_KeyDown(const QKeyEvent *tecla);
    void Grd_Insert();
    bool Grd2_KeyDown(const QKeyEvent *tecla);
    void Grd2_Insert();
    void Grd2_Delete();
    void cmdComentario_Click();
    void CmdCorreo_Click();
    void CmdPDF_Click();
    bool ExigirPase();
    /// Writes a file, tells where it is and opens it.
    void Abrir(QString (*escribir)(AppContext &, const Presupuesto &));
    QString conDosDecimales(double valor) const;

    Presupuesto p_;
    QString dicho_;  ///< the file outside the program's folder that was told of
};
