#pragma once
// The free comment of an operation: FrmLstDiv.

#include <QString>

struct AppContext;

/// What TxtCom shows; empty without a comment. Raises Falla.
QString LeerComentario(AppContext &ctx, const QString &interno);

/// Grabar, run when the screen closes. False when the store failed (its words were shown).
bool GrabarComentario(AppContext &ctx, const QString &interno, const QString &texto);
