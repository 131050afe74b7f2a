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
    void CerrarInterno();
    void cmdITEM_Click();
    /// Goes on where the run's screen has closed.
    void SeguirArmado();
    void AbrirItems();
    void cmdCaratula_Click();
    void CmdSubItems_Click();
    void CmdTransMaria_Click();
    void opDJAI_MezclarDescripciones_Click();
    void opDJAI_Usar_Descripcion_Catalogo_Click();
    void PintarEstado(const EstadoDeOperacion &estado);
    void HabilitarBotones(const EstadoDeOperacion &estado);
    void ElegirOpcionDJAI(const EstadoDeOperacion &estado);
    EleccionDelTablero LeerEleccion() const;
    BanderasDeOperacion LeerBanderas() const;

    std::array<QCheckBox *, 8> CkFlag{};
    QString interno_;
    bool enItems_ = false;  ///< from the assembly button until the item screen has closed
};
