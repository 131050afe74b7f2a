#pragma once
// The hand-over to the customs system.

#include <QString>
#include <functional>

#include "frame/context.h"

namespace salida {

/// The output builder: takes the operation and writes the transfer by itself. It is not part of this program;
/// empty while it is absent.
extern std::function<void(AppContext &ctx, const QString &NumeroInterno, bool TransferirComsionesExt)>
    armarTransferencia;

}  // namespace salida

/// The consistency check, the question when there are differences (No by default), and the builder. False
/// when the user stopped, or when the builder is absent, which a message says.
bool TransferirAlMaria(AppContext &ctx, const QString &interno);
