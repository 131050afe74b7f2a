#pragma once
// The list of an operation's items, for picking one by what it is.

#include <QString>
#include <vector>

struct AppContext;

/// An item as the list shows it. Texts are as stored, empty for null.
struct ItemDeLista {
    QString id;      ///< its number, "7"
    QString numero;  ///< the same with the mask "000"
    QString ncm;
    QString idunidad, estadistica, deresp;
    QString estadomerc, idpais, idproc;
    QString itfiller, descripcion;
};

/// Every item of the operation by its number; item 0 is none. Raises Falla.
std::vector<ItemDeLista> ListarItems(AppContext &ctx, const QString &interno);
