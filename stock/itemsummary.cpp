#include "stock/itemsummary.h"

#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"
#include "stock/itemcancel.h"

using namespace Qt::StringLiterals;

namespace stock {

ResumenDeItem LeerResumenDeItem(AppContext &ctx, const QString &interno, const QString &item) {
    ResumenDeItem r;
    Recordset rs;
    if (Consultar(ctx, entidad::internos,
                  "select ncm,idunidad,cantidad "
                  "from item "
                  "where interno = "_L1 +
                      EnComillas(interno) + " and id = "_L1 + item,
                  rs))
        r = {rs.Texto(u"ncm"), rs.Texto(u"idunidad"), rs.Numero(u"cantidad"), 0};
    for (const Cancelacion &c : CancelacionesDe(ctx, interno, item)) r.cancelada += c.cantidad;
    return r;
}

}  // namespace stock
