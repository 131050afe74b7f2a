#pragma once
// What every change of a header, of a line or of a proration code does to its operation.

#include <QString>

struct AppContext;

/// The operation must be armed again, and its answer to the common external tariff question is asked again:
/// sets the armed mark and empties the stored answer. A screen calls it at each change of a field made by the
/// user, never while it loads. Raises Falla.
void AnotarCambio(AppContext &ctx, const QString &interno);

/// Writes the armed mark: 'S' (must be armed again) when `pendiente`, else 'N'. Raises Falla.
void MarcarArmado(AppContext &ctx, const QString &interno, bool pendiente);
