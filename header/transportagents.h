#pragma once
// The book of transport agents.

#include <QString>
#include <optional>
#include <vector>

#include "frame/base/verdict.h"

struct AppContext;

struct AgenteDeTransporte {
    QString cuit;
    QString nombre;
};

/// Every agent by name. Raises Falla.
std::vector<AgenteDeTransporte> CargarAgentes(AppContext &ctx);

/// ENTER on an agent's tax number.
enum class BusquedaDeAgente {
    Vacio,         ///< nothing was typed
    CuitInvalido,  ///< the check digit is wrong, which was told: the field is to be emptied
    Encontrado,    ///< `nombre` is filled
    NoEncontrado,  ///< a valid number that is not kept: the screen of a new agent opens with it
};
/// Raises Falla.
BusquedaDeAgente BuscarAgente(AppContext &ctx, const QString &cuit, QString &nombre);

/// CmdGuardar of FrmABMAgTrans: a new agent, or with `cuitAnterior` the change of that one. What is missing,
/// a wrong number and one that exists already are told; the answer names the field to go to. Raises Falla.
Veredicto GuardarAgente(AppContext &ctx, const AgenteDeTransporte &agente,
                        const std::optional<QString> &cuitAnterior);

/// Asks and deletes; false when the user says No or the agent was gone already (which is told). Raises Falla.
bool EliminarAgente(AppContext &ctx, const QString &cuit);

/// What the list left chosen; a list left with ESC empties it.
AgenteDeTransporte &AgenteElegido();
