#pragma once

#include <QDialog>
#include <array>
#include <functional>
#include <memory>

#include "operations/lifecycle.h"
#include "operations/status.h"
#include "ui_FrmDetalleInterno.h"

/// The hub of one open operation: where it stands, and the way to every working screen.
class FrmDetalleInterno {
 public:
    FrmDetalleInterno();

    /// Puts the operation's key and its flags on the screen.
    void Cargar(const QString &interno, const BanderasDeOperacion &banderas);
    /// Fills everything else; called after opening and after every return from a working screen.
    void VerDatos();
    void TomarFoco();
    const QString &Interno() const { return interno_; }
    /// What ESC does: keeps the flags, gives the lock back and closes. A store that cannot take the lock back
    /// is told and the screen closes all the same; the next opening finds the lock.
    void CerrarInterno();
    /// Called when the screen has closed.
    std::function<void()> alCerrar;

    Ui::FrmDetalleInterno ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void Form_Load();
    void Conectar();
    bool Form_KeyDown(const QKeyEvent *tecla);
    void Form_GotFocus();
    void Form_Unload();
    void cmdITEM_Click();
    /// The run speaks of a control of this screen.
    void SeguirCorrida(const Avance &avance);
    /// Goes on where the run's screen has closed.
    void SeguirArmado();
    void AbrirItems();
    void CmdBultos_Click();
    void CmdPresupuesto_Click();
    void cmdONCCA_Click();
    /// Both buttons put the lines of a temporary import into the stock.
    void ExportarStock();
    void CmdPrint_Click();
    void CmdHojaVal_Click();
    void cmdCertOrig_Click();
    void cmdCaratula_Click();
    void CmdSubItems_Click();
    void CmdTransMaria_Click();
    void opDJAI_MezclarDescripciones_Click();
    void opDJAI_Usar_Descripcion_Catalogo_Click();
    void PintarEstado();
    void HabilitarBotones();
    void ElegirOpcionDJAI();
    EleccionDelTablero LeerEleccion() const;
    BanderasDeOperacion LeerBanderas() const;

    std::array<QCheckBox *, 8> CkFlag{};
    QString interno_;
    EstadoDeOperacion estado_;  ///< what the screen shows
    bool enItems_ = false;      ///< from the assembly button until the item screen has closed
};
