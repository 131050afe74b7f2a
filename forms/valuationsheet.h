#pragma once
// The valuation sheet as it leaves the office: as data, and as the paper that is signed.

#include <QString>

#include "forms/valuation.h"
#include "frame/paper/table.h"

namespace valoracion {

/// A row a field, with the rule that asks for it, what was answered or its amount; the head of the operation
/// first, what comes of it last.
papel::Tabla TablaDeHoja(const AppContext &ctx, const Hoja &hoja);
/// That table as a sheet to be signed: the head as a record, the rest by section.
papel::Reporte PapelDeHoja(const papel::Tabla &tabla, QChar separador);

/// The saved sheet of an operation as data; without rows when there is none. Raises Falla.
papel::Tabla HojaDeOperacion(AppContext &ctx, const QString &interno);

}  // namespace valoracion
