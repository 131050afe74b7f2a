#pragma once
// The sheet of an operation: the page of its liquidation and those of its items, as lines of fixed width.

#include <QString>
#include <functional>

#include "frame/paper/table.h"

struct AppContext;

/// What is to be printed.
struct PedidoDeHoja {
    QString interno;
    int desde = 0;  ///< item 0 is the page of the operation
    int hasta = 0;
    bool subitems = false;  ///< with the lines of each page
};

/// The item that a run has come to.
struct AvanceDeHoja {
    QString texto;  ///< "Item: 01 de 12"
    int hechos = 0;
    int total = 0;
};
/// Hears each item ahead of its page; false stops the run.
using AlImprimirItem = std::function<bool(const AvanceDeHoja &)>;

/// A sheet that was made, or why there is none.
struct HojaDeOperacion {
    bool hecha = false;
    bool detenida = false;  ///< it was stopped; any other reason was told to the user
    papel::Documento documento;
    int items = 0;  ///< pages of items, the operation's among them
};

/// What is wrong with a range of items, as the sentence for the user; empty when nothing is.
QString DefectoDeRango(int desde, int hasta);

/// Makes the sheet of the items from `desde` to `hasta`, those that there are. Its lines go one by one into
/// `tabla`, on a table of this connection's own, so that two people never mix theirs, and the sheet is what
/// is read back from there; each item begins a page of paper. Nothing else is written, and what is left to
/// recalculate stays so. An operation that is not there is told. Raises Falla, with no sheet.
HojaDeOperacion pr_ImprimirLiq(AppContext &ctx, const PedidoDeHoja &pedido,
                               const AlImprimirItem &alImprimir = {});
