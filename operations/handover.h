#pragma once
// The hand-over to the customs system: what stands ahead of showing and writing the document.

#include <QString>

#include "frame/context.h"

/// The consistency check, and the question when there are differences (No by default). False when the user
/// stops there. Raises Falla.
bool ConfirmarTransferencia(AppContext &ctx, const QString &interno);
