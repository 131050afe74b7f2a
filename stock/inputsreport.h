#pragma once
// The reports of the stock in the hands of the user.

#include <QString>

#include "frame/paper/table.h"

struct AppContext;

namespace stock {

/// Shows a list, from where it is printed and saved; one without rows is told with `sinFilas` instead.
void VerTabla(AppContext &ctx, const papel::Tabla &tabla, const QString &sinFilas);
/// GenerarIMP: shows what the lines and items of an operation took of the stock. One that has to do with no
/// inputs is told. Raises Falla.
void GenerarIMP(AppContext &ctx, const QString &interno);

}  // namespace stock
