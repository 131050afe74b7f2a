#pragma once
// What is missing in a declaration or would be refused, looked for ahead of writing it.

#include <vector>

#include "outputs/declaration.h"

/// The findings, those of the operation first and then by item, with the ones that reading left. None of them
/// keeps the document from being written. Codes are looked up in the tables that have rows. Raises Falla.
std::vector<Advertencia> ControlarDeclaracion(AppContext &ctx, const Declaracion &d);
