#pragma once
// The lines of a temporary import as the stock would hold them.

#include <QString>
#include <vector>

#include "stock/load.h"

namespace stock {

/// What the stock would hold of an armed operation, by items and subitems; none for one that is not there.
std::vector<Linea> LineasDeOperacion(AppContext &ctx, const QString &interno,
                                     const DatosDeDeclaracion &datos);
/// What the stock holds of it already.
std::vector<Linea> LineasCargadas(AppContext &ctx, const QString &interno);

}  // namespace stock
