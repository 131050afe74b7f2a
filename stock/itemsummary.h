#pragma once
// What the screen of cancellations says of its item.

#include <QString>

struct AppContext;

namespace stock {

struct ResumenDeItem {
    QString ncm, idunidad;
    double cantidad = 0;   ///< declared
    double cancelada = 0;  ///< of the cancellations that stand
};
/// All empty for an item that is not there. Raises Falla.
ResumenDeItem LeerResumenDeItem(AppContext &ctx, const QString &interno, const QString &item);

}  // namespace stock
