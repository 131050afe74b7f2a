#pragma once
// The cancellations of an item: takings for an item as such. They hang on the first line of the item, so that
// they follow it when items are numbered again.

#include <QString>
#include <optional>
#include <vector>

#include "stock/stock.h"

struct FilaDeCancelacion;

namespace stock {

/// A cancellation as its screen shows it; with idstock 0 one by hand, whose texts are typed.
struct Cancelacion {
    qint64 id = 0;       ///< movement; 0: a new one
    qint64 idstock = 0;  ///< 0: by hand, without stock
    QString dit;
    int item = 0;
    int subitem = 0;
    QString ncm, expctit;
    double cantidad = 0;  ///< declared, in the unit of the stock line
    double factor = 1;
};

/// The cancellations of an item that stand: its own takings, and what its lines took.
std::vector<Cancelacion> CancelacionesDe(AppContext &ctx, const QString &interno, const QString &item);
/// The cancellation behind a row of the item's list; nothing for a row that came from elsewhere.
std::optional<Cancelacion> BuscarCancelacion(AppContext &ctx, const QString &interno, const QString &item,
                                             const FilaDeCancelacion &fila);
/// The lines of the stock that an item may take from: those of the client with a balance, in any unit, oldest
/// expiry first; `texto` is a part of declaration, catalogue, article, description or position.
std::vector<Oferta> OfertasParaItem(AppContext &ctx, const QString &interno, const QString &texto,
                                    const QDate &hoy);
/// Enters a cancellation. False with a sentence told: no item, no quantity, a balance that does not reach, or
/// one by hand without the option (CancelManual) or without declaration.
bool IngresarCancelacion(AppContext &ctx, const QString &interno, const QString &item, const Cancelacion &c);
/// Changes one, as a return and a new taking in one. The same refusals; then the old one stands.
bool ModificarCancelacion(AppContext &ctx, const QString &interno, const QString &item, const Cancelacion &c);
/// Gives one back. False with a sentence told when it does not stand any more.
bool EliminarCancelacion(AppContext &ctx, const Cancelacion &c);

}  // namespace stock
