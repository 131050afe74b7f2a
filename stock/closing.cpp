#include "stock/closing.h"

#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"
#include "stock/stock.h"

using namespace Qt::StringLiterals;

namespace stock {

void DespedirOperacion(AppContext &ctx, const QString &interno) {
    DevolverTodo(ctx, interno);
    // A new operation under the same key must not find lines of its own here.
    Ejecutar(ctx, entidad::internos,
             "update stock "
             "set idlinea = 0 "
             "where interno = "_L1 +
                 EnComillas(interno));
}

}  // namespace stock
