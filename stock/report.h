#pragma once
// The stock on paper and as files.

#include <QDate>
#include <QString>

#include "frame/paper/table.h"
#include "stock/stock.h"

namespace stock {

/// The lines that a search shows, with what entered, what is left and until when, grouped by client.
papel::Tabla TablaDeStock(AppContext &ctx, const Filtro &filtro, const QDate &hoy);
/// The inputs report of an operation: what its lines and items took, grouped by item; for one that was loaded
/// into the stock, its lines with what is left of them. No rows when it has to do with neither.
papel::Tabla TablaDeInsumos(AppContext &ctx, const QString &interno);
/// The movements of one line of the stock.
papel::Tabla TablaDeMovimientos(AppContext &ctx, qint64 idstock);
/// A list as a document that is seen, printed and saved.
papel::Documento DocumentoDe(const AppContext &ctx, const papel::Tabla &tabla);

}  // namespace stock
