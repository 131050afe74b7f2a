#pragma once
// What the user hears of a failure.

#include <QString>

#include "frame/base/failure.h"

struct AppContext;

/// The engine's number and words; the words alone of a refusal of our own, which has no number, and of a
/// store that is gone.
QString TextoDeFalla(const Falla &e);

/// Tells it as a critical message: `texto`, or TextoDeFalla where none is given. One key may pass through
/// several handlers: that a store is gone is told by the first of them, and again behind the next key.
void ContarFalla(AppContext &ctx, const Falla &e, const QString &texto = {}, bool modalDeSistema = false);
