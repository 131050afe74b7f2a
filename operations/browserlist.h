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

/// lp_ImprimirList: that list, to be seen; without rows the sentence of ListaDeOperaciones.
void lp_ImprimirList(AppContext &ctx, const std::vector<FilaDeInterno> &filas, const FiltroDeInternos &filtro,
                     const AgrupacionDeInternos &por);

/// The list of all operations, by key.
const listas::Lista &ListaDeOperaciones();
