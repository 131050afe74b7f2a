#pragma once

#include <QDialog>
#include <memory>
#include <optional>

#include "header/transportagents.h"
#include "ui_FrmABMAgTrans.h"

/// One transport agent: a new one, or the change of one that is kept.
class FrmABMAgTrans {
 public:
    FrmABMAgTrans();

    /// Asks for a new agent and waits, with the number filled in. The saved agent, or nothing.
    std::optional<AgenteDeTransporte> Agregar(const QString &cuit = {});
    /// The same for an agent that is kept.
    std::optional<AgenteDeTransporte> Modificar(const AgenteDeTransporte &agente);
    /// Fills the screen without showing it.
    void Cargar(const AgenteDeTransporte &agente, bool editando);

    Ui::FrmABMAgTrans ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void Conectar();
    std::optional<AgenteDeTransporte> Mostrar();
    void CmdGuardar_Click();

    AgenteDeTransporte agente_;
    bool editando_ = false;
};

/// The screen for a new agent over another screen; the saved agent, or nothing.
std::optional<AgenteDeTransporte> AgregarAgente(const QString &cuit);
