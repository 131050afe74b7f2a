#pragma once
// Life of an operation: create, lock, open, close, copy, delete.

#include <QString>
#include <array>

#include "frame/context.h"

/// The eight flags of the box "Ocultar campos", as the dashboard's CkFlag shows them.
using BanderasDeOperacion = std::array<int, 8>;

/// Asks for the key and creates the operation. The new key, or empty when nothing was created (a message has
/// told why, or the user left).
QString NuevoInterno(AppContext &ctx);
/// Creates without asking; false with a warning when the key exists.
bool CrearInterno(AppContext &ctx, const QString &clave);

/// What the dashboard needs of an opened operation.
struct Apertura {
    bool abierta = false;
    BanderasDeOperacion banderas{1, 1, 1, 1, 1, 1, 1, 1};
};
/// The check of the lock row, before the dashboard is loaded: refuses another workstation's lock, breaks a
/// stale one of this workstation. True when the operation may be opened.
bool ComprobarBloqueo(AppContext &ctx, const QString &interno);
BanderasDeOperacion LeerBanderas(AppContext &ctx, const QString &interno);
/// Writes the lock row of this workstation.
void TomarBloqueo(AppContext &ctx, const QString &interno);
/// The three above in their order, for callers without a screen.
Apertura AbrirSinPantalla(AppContext &ctx, const QString &interno);

/// Stores the flags (and `coefexpo` when it is set) and removes the lock row.
void GuardarYLiberar(AppContext &ctx, const QString &interno, const BanderasDeOperacion &banderas,
                     std::optional<int> coefexpo);

/// Deletes everything of the key after the question; true when it ran to its end.
bool EliminarInterno(AppContext &ctx, const QString &interno);
/// Its two halves: the question, and the work.
bool ConfirmarEliminacion(AppContext &ctx, const QString &interno);
bool EliminarSinPreguntar(AppContext &ctx, const QString &interno);

/// Asks for the new key and duplicates every table of the operation. The new key, or empty (a message has
/// told why, or the user left).
QString CopiarInterno(AppContext &ctx, const QString &interno);

/// `cstaimpexp` of a subregime by the browser's own statement; empty when there is no row.
QString getTypeOPfromSubReg(AppContext &ctx, const QString &idsubreg);
/// What it asks of SYSTABLAS, to be asked ahead.
QString SentenciaDeDireccion(const QString &idsubreg);
