#pragma once
// What a store holds, in words that two stores can be compared by, row by row.

#include <QString>
#include <QStringList>

#include "frame/context.h"

/// Every row of an operation in every table it has but those of what befell it, one a line under the table's
/// name, in the order of their insertion. What the store numbers is told by its place; numbers have twelve
/// digits, since a server sums rows in the order they lie in. Raises Falla.
QString RetratoDeOperacion(AppContext &ctx, const QString &interno);

/// Every operation, and every other table that people write, sorted, without the numbers that the store gives
/// out, the moments, and the locks. Raises Falla.
QString Retrato(AppContext &ctx);

/// The first lines of either that the other has not; empty when both are the same.
QString DiferenciasDeRetratos(const QString &uno, const QString &otro);
