#pragma once
// Net kilos spread on request, from the review of items: over the declaration, one item, or its groups.

#include <QString>

#include "frame/base/verdict.h"

struct AppContext;

/// Spreads what `kilos` exceeds the given ones by over the groups that have none, by FOB, with a floor of
/// 0.01; items and item 0 take their sums. False, when it can't, after telling why. Raises Falla.
bool Prorratear_ItemCeroEx(AppContext &ctx, const QString &interno, double kilos);

/// Spreads what `kilos` (to the cent) exceeds those of the items by over the items that have none, by FOB,
/// and each share over the item's groups; item 0 takes `kilos`. False, with nothing changed, after telling
/// why. Raises Falla.
bool Prorratear_ItemCero(AppContext &ctx, const QString &interno, double kilos);

/// How an item's kilos meet those that its groups have already.
enum class ModoDeReparto {
    Completar = 0,  ///< the groups keep theirs; those that have none share the rest
    Rehacer = 1     ///< all groups share anew
};
/// Spreads an item's `kilos` over its own groups, by FOB, in the measures whose unit is the kilo; the item
/// takes the total. Groups without such a measure keep what they have, which is told, and the item takes the
/// total all the same. False, with nothing changed, when `kilos` do not exceed those that are to be kept,
/// which is told. Raises Falla.
bool Prorratear_ItemEx(AppContext &ctx, const QString &interno, qint64 iditem, double kilos,
                       ModoDeReparto modo);

/// Lifts the groups in kilos that have none to 0.01, item by item; the heaviest group of the item pays. An
/// item without a group that could pay stays as it is. Raises Falla.
void Prorratear_ItemVacios(AppContext &ctx, const QString &interno);

/// What the button of the screen does with the text `valor`: the whole declaration for item "0", else that
/// item, whose groups keep what they have. Ok when the kilos were spread; else a message was shown and the
/// field has the focus. Raises Falla.
Veredicto ProrratearKilos(AppContext &ctx, const QString &interno, const QString &item, const QString &valor);
