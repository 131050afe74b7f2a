#pragma once
// The operations of the browser as a list for paper and spreadsheets.

#include <vector>

#include "operations/browser.h"
#include "outputs/lists.h"

/// The rows as the browser shows them, in their order, grouped as it groups them with a count for each group:
/// amounts in several currencies make no sum. `filtro` is what they were searched by, for the line below the
/// title. No rows make a list without rows.
papel::Tabla TablaDeInternos(AppContext &ctx, const std::vector<FilaDeInterno> &filas,
                             const FiltroDeInternos &filtro, const AgrupacionDeInternos &por);

/// That list, to be seen; without rows the sentence of ListaDeOperaciones.
void ListarInternos(AppContext &ctx, const std::vector<FilaDeInterno> &filas, const FiltroDeInternos &filtro,
                    const AgrupacionDeInternos &por);

/// lp_ImprimirList: the list of the transferred operations, to be seen; without any the sentence of
/// ListaDeTransferidas. Raises Falla.
void lp_ImprimirList(AppContext &ctx);

/// The list of the transferred operations, the latest first: when, where and into which file, and whether
/// they were changed since, for which every one of them is read.
const listas::Lista &ListaDeTransferidas();

/// The list of all operations, by key.
const listas::Lista &ListaDeOperaciones();
