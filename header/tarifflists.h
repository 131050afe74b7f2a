#pragma once
// The tariff lists that an item may take.

#include <QString>
#include <vector>

#include "frame/picklist.h"

struct AppContext;

/// The lists for an item's countries, each code once. Every list is offered whatever the countries are, but
/// one of them must be known. Nothing to offer is told, and the answer is empty. Raises Falla.
std::vector<FilaDeListado> ListarListasDePaises(AppContext &ctx, const QString &paisOrigen,
                                                const QString &paisProcedencia);
