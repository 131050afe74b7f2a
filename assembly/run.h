#pragma once
// The assembly as the rest of the program sees it.

#include "assembly/options.h"

struct AppContext;

/// The one long run. Its result stands in ctx.ChequeoArmado, which the caller has set to "SI"; an unexpected
/// error shows its box and leaves the result as it is. What the run decides about ChCOEF stands in
/// ctx.CalcularCoeficiente. True when the screen is to be closed, false when it stays open (the road of an
/// unexpected failure). Whatever its end, all that it wrote is on the disk when it returns.
bool Generar(AppContext &ctx, const QString &interno, const OpcionesDeArmado &opciones);
