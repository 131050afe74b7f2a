#pragma once
// The save of an item's page, and of the operation's own page with what it spreads over the items.

#include "frame/base/verdict.h"
#include "liquidation/ClassLiquidacion.h"
#include "liquidation/itemfields.h"

/// Saves the page of `item`. `datos` holds every field that is saved; `calculo` the header values of the last
/// load. An item other than 0 takes one update, and its duties what its list asks of them; "0 (cero)
/// registros actualizados." is told when no row was there. Item 0 saves field by field, and spreads over the
/// items what its page rules. Not ok: a number that is none, told by its field's name, the answer names the
/// control, and nothing was written. Raises Falla.
Veredicto GrabarItem(AppContext &ctx, const QString &interno, const QString &item, const DatosDeItem &datos,
                     const ClassLiquidacion &calculo);

/// A typed list: the mark that shields it from the automatic change to MERCOSUR. Raises Falla.
void MarcarListaTipeada(AppContext &ctx, const QString &interno, const QString &item);
