#pragma once
// The rows of the stock as statements name them, for its own modules.

#include <QString>

#include "frame/context.h"
#include "stock/stock.h"

namespace stock {

constexpr int decimalesDeImporte = 2;
constexpr int decimalesDeSaldo = 6;

/// The columns that LineaDe reads.
QString ColumnasDeLinea();
Linea LineaDe(const Recordset &rs);
/// "id in (1,2,3)"; false in every row for none.
QString EntreIds(const QString &columna, const std::vector<qint64> &ids);
/// A day as SQL; null for none.
QString DiaEnSql(const AppContext &ctx, const QDate &dia);
/// Now, as SQL.
QString AhoraEnSql(const AppContext &ctx);
/// Lines as offers, expired ones behind the others; nothing is proposed.
std::vector<Oferta> OfertasDe(const AppContext &ctx, const std::vector<Linea> &lineas, const QDate &hoy);
/// The lines that `donde` finds, in the order of every list.
std::vector<Linea> LeerLineas(AppContext &ctx, const QString &donde);
/// The movements that `donde` finds, oldest first.
std::vector<Movimiento> LeerMovimientos(AppContext &ctx, const QString &donde);
/// The client of an operation; empty for one that is not there, or names none.
QString ClienteDe(AppContext &ctx, const QString &interno);
/// "columna like '%texto%'" for any of the columns, joined by or.
QString ContieneEnAlguna(const QStringList &columnas, const QString &texto);
/// A quantity as sentences tell it, with its unit.
QString CantidadDicha(const AppContext &ctx, double cantidad, const QString &unidad);

}  // namespace stock
