#pragma once
// The stock in words, as its screens show it.

#include <QDate>
#include <QString>

#include "stock/stock.h"

namespace stock {

/// A quantity with the decimals of quantities, and with more where the balance has them.
QString TextoDeCantidad(const AppContext &ctx, double cantidad);
/// The unit with its name: "07 UNIDAD"; empty for none. Without the name where it cannot be read.
QString TextoDeUnidad(AppContext &ctx, const QString &idunidad);
/// An amount with its currency: "1250,00 DOL".
QString TextoDeImporte(const AppContext &ctx, double importe, const QString &divisa);
/// "dd/MM/yyyy"; empty for none.
QString TextoDeDia(const QDate &dia);
/// "dd/MM/yyyy HH:mm"; empty for none.
QString TextoDeMomento(const QDateTime &momento);
/// One word for how a line stands: nothing left, expired, soon to expire; empty for the others.
QString EstadoDeLinea(const Linea &linea, const QDate &hoy);
/// Everything of a line that its row does not say, on one line.
QString DetalleDeLinea(const AppContext &ctx, const Linea &linea);
/// How many lines there are, and how many of them expired or will soon; a line without a balance is neither.
QString CuantasLineas(const std::vector<Linea> &lineas, const QDate &hoy);
/// The typed quantity; nothing for a text that is no number.
std::optional<double> CantidadEscrita(const QString &texto);
/// Whether the user takes of a line that expired; No is what ENTER answers.
bool PreguntarVencida(const AppContext &ctx, const Linea &linea);

}  // namespace stock
