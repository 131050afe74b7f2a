#pragma once
// Information and advantages of an item, one by one or, from item 0, for the whole operation.

#include <QString>
#include <functional>
#include <optional>
#include <vector>

struct AppContext;

/// A row of the tables `informacion` and `ventajas`.
struct ExtraDeItem {
    QString id;
    QString descripcion;
};
/// What can be added, in the order of the codes. Raises Falla.
std::vector<ExtraDeItem> ListarInformacion(AppContext &ctx);
std::vector<ExtraDeItem> ListarVentajas(AppContext &ctx);

/// How the value of an information is asked for; nothing when the user leaves.
using PedirValor = std::function<std::optional<QString>()>;
/// Adds an information to an item, from item 0 also to all that lack it. One that is there is told, and
/// `pedir` is not asked. False when nothing was added. Raises Falla.
bool AgregarInformacion(AppContext &ctx, const QString &interno, const QString &item, const QString &id,
                        const PedirValor &pedir);
/// The same for an advantage; one of self-liquidation marks the items that got it. Raises Falla.
bool AgregarVentajaAItem(AppContext &ctx, const QString &interno, const QString &item, const QString &id);

/// Removes an information from an item, or from item 0 from all. What item 0 holds cannot be removed
/// elsewhere, and what is not there neither, which is told: false. Raises Falla.
bool EliminarInformacion(AppContext &ctx, const QString &interno, const QString &item, const QString &id);
/// The same for an advantage; one of self-liquidation takes the mark away. Raises Falla.
bool EliminarVentajaDeItem(AppContext &ctx, const QString &interno, const QString &item, const QString &id);
