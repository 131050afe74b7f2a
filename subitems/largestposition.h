#pragma once
// The term of the largest position of an operation, which a DJAI is told.

#include <QString>

struct AppContext;

/// The number in the first character of [071] of the item of largest FOB that has one of 1, 2, 3, 4 and 8;
/// -1 when none has, and without items, which a message tells. Raises Falla.
int InformarNcmMayorFob(AppContext &ctx, const QString &interno);
