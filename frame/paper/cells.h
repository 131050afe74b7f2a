#pragma once
// What a cell of a list says, for paper and for files.

#include <QDate>
#include <QDateTime>

#include "frame/paper/table.h"

namespace papel {

/// The number of a cell; nothing for an empty one, one of another kind of column, and a text that is none.
std::optional<double> NumeroDe(const Tabla &tabla, const Fila &fila, std::size_t columna);
/// The day of a cell; nothing for an empty one, one of another kind of column, and a text that is none.
std::optional<QDate> DiaDe(const Tabla &tabla, const Fila &fila, std::size_t columna);
/// The moment of a cell of days that tells its hour too (a QDateTime); nothing for any other, and for
/// midnight.
std::optional<QDateTime> MomentoDe(const Tabla &tabla, const Fila &fila, std::size_t columna);
/// The text of a cell, whatever its column; empty for none.
QString LibreDe(const Fila &fila, std::size_t columna);
/// What paper shows of a cell, whole.
QString TextoDeCelda(const Tabla &tabla, const Fila &fila, std::size_t columna, QChar separador);
/// A text as a file with separators has it: one that a spreadsheet would run ("=", "+", "-", "@" ahead, also
/// behind blanks) gets an apostrophe.
QString SinFormula(const QString &texto);

}  // namespace papel
