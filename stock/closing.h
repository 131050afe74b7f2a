#pragma once
// What a deleted operation leaves in the stock.

#include <QString>

struct AppContext;

namespace stock {

/// An operation is gone: what still stands of its takings is given back. What it loaded stays, since its
/// declaration exists, and belongs to no line any more. Raises Falla.
void DespedirOperacion(AppContext &ctx, const QString &interno);

}  // namespace stock
