#pragma once
// What the stock is to the rest of the house: the link that lines, the assembly and the deletion of
// operations ask, and the one of the item's cancellations.

#include <QString>
#include <functional>
#include <optional>

#include "liquidation/cancellations.h"
#include "stock/stock.h"
#include "subitems/inputslink.h"

namespace stock {

/// The windows that the links open. A program without windows has none: its list is left without a choice,
/// and its cancellations are not plugged in.
struct Pantallas {
    /// The screen of taking for an operation: the article and what was chosen of it; nothing when it was
    /// left.
    std::function<std::optional<Elegido>(const QString &interno)> tomar;
    std::optional<cancelaciones::Enlace> cancelaciones;
};

/// The link over the stock of `ctx`, which it needs for its life.
insumos::Enlace CrearEnlace(AppContext &ctx, const Pantallas &pantallas = {});

/// Plugs both links in, for this process, and says that the inputs are there: their options are read from now
/// on. Before the options are loaded.
void Enchufar(AppContext &ctx, const Pantallas &pantallas = {});
/// Takes them out.
void Desenchufar();

}  // namespace stock
