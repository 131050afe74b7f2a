#pragma once
// Loading and saving of the declaration header.

#include <QString>
#include <QStringList>

#include "header/caratula.h"

struct AppContext;

/// The state before a regime is known: all shown but what only some regimes have.
Caratula CaratulaVacia(const QString &interno);

/// CargarCaratula: fills the state in the order of the columns, through the ENTER rules of the coded fields,
/// with descriptions, visibility, invoices and the total of the proration codes. False with a message when
/// there is no row. The screen keeps the change flag off meanwhile. Raises Falla.
bool CargarCaratula(AppContext &ctx, Caratula &c);

/// How ESC ended.
struct SalidaDeCaratula {
    bool cierra = false;    ///< the screen closes and the dashboard refreshes the operation
    bool guardada = false;  ///< the row was written (the screen may stay all the same)
    QString foco;           ///< control to go to when it stays; empty: as it was
};
/// ESC: the checks in their order, the one update, and the questions of leaving. A store error is shown and
/// the screen stays.
SalidaDeCaratula GuardarCaratula(AppContext &ctx, Caratula &c);

/// The invoices as the column factura1 keeps them: each followed by a comma, cut to 80 characters, less the
/// last one, so that the last number may be truncated. The table of invoices keeps them whole. Empty without
/// invoices; the column then stays as it is.
QString FacturasEnUnaLinea(const QStringList &facturas);
