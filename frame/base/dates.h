#pragma once
// Dates as people type them.

#include <QDate>
#include <QString>
#include <optional>

namespace fechas {

/// The date that a text says: day, month and year with "/", "-" or "." between them (a year of two digits is
/// 1930 to 2029), or a year first; a time of day behind it is passed over. Nothing for anything else.
std::optional<QDate> Leer(const QString &texto);

/// Whether a text says a date.
bool EsFecha(const QString &texto);

}  // namespace fechas
