#pragma once
// The rows of each list. Every one is a statement or a few, whatever the number of rows, and is put in its
// order in memory by what it shows, so that neither a collation nor an order of insertion has a say.

#include <QString>

#include "frame/paper/table.h"

struct AppContext;

namespace listas {

// The lines of an operation; `interno` is its key. Raise Falla.

/// In the order of their keying: what fits across a sheet, or everything on one that lies.
papel::Tabla LineasVertical(AppContext &ctx, const QString &interno);
papel::Tabla LineasHorizontal(AppContext &ctx, const QString &interno);
/// By position, with its quantity, net kilos and FOB. A quantity of several units is no sum, and is left
/// empty.
papel::Tabla PosicionesVertical(AppContext &ctx, const QString &interno);
papel::Tabla PosicionesHorizontal(AppContext &ctx, const QString &interno);

/// The articles of one catalogue, by code. Raises Falla.
papel::Tabla ArticulosDeCatalogo(AppContext &ctx, const QString &catalogo);

/// The packages and the transport of an operation: one row, or none when nothing was keyed. Raises Falla.
papel::Tabla BultosDeOperacion(AppContext &ctx, const QString &interno);
/// That row as a card: a label and its text a line.
papel::Reporte FichaDe(const papel::Tabla &tabla, QChar separador);

}  // namespace listas
