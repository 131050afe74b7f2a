#pragma once

#include <QDialog>
#include <memory>
#include <optional>

#include "ui_FrmDatos.h"

/// An amount in one currency.
struct ValorDelPresupuesto {
    QString valor;  ///< as typed: a number
    bool enDolares = true;
};

/// Asks the value of a concept of the quote, in dollars or in pesos.
class FrmDatos {
 public:
    FrmDatos();

    /// Asks with `inicial` filled in and waits; the typed value, or nothing when the user left.
    std::optional<ValorDelPresupuesto> Pedir(const QString &concepto, const ValorDelPresupuesto &inicial);

    Ui::FrmDatos ui;
    std::unique_ptr<QDialog> ventana;

 private:
    void Conectar();
    void CmdAceptar_Click();
};

/// The screen over another one.
std::optional<ValorDelPresupuesto> PedirImporte(const QString &concepto,
                                                const ValorDelPresupuesto &inicial = {});
