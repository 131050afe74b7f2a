#pragma once
// The certificates of origin of an operation as a list.

#include <QString>

#include "frame/paper/table.h"

struct AppContext;

namespace certificados {

/// A group a certificate, with its data in the title, and its lines with the sum of their FOB; without rows
/// when the operation has none. Raises Falla.
papel::Tabla TablaDeCertificados(AppContext &ctx, const QString &interno);

}  // namespace certificados
