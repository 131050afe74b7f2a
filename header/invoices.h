#pragma once
// The invoices of the header.

#include <QString>
#include <QStringList>

#include "header/caratula.h"

struct AppContext;

/// The operation's invoices in their order. Raises Falla.
QStringList CargarFacturas(AppContext &ctx, const QString &interno);

/// Reloads LstFact; the list and ChFacturas are enabled only while it has rows. Raises Falla.
void RefrescarFacturas(AppContext &ctx, Caratula &c);

/// ENTER on TxtFactura with a text: adds the invoice behind the last, marks the operation, reloads the list
/// and empties the field. False with a message when the operation has it already. Raises Falla.
bool Agregar_Facturas(AppContext &ctx, Caratula &c, const QString &factura);

/// Delete on a row of LstFact: deletes the invoice, marks the operation and reloads the list. Raises Falla.
void Eliminar_Factura(AppContext &ctx, Caratula &c, const QString &factura);
