#pragma once
// Which operation, where no list of them is at hand.

#include <QString>

struct AppContext;

/// Asks for an operation's key, offering the last one that was looked for: the whole key, or its beginning,
/// and then a pick of those that have it. Empty when the user left; none of that beginning is told. Raises
/// Falla.
QString PedirOperacion(AppContext &ctx, const QString &titulo);
