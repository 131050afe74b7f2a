#include "subitems/largestposition.h"

#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"

using namespace Qt::StringLiterals;

int InformarNcmMayorFob(AppContext &ctx, const QString &interno) {
    Recordset rs;
    if (!Consultar(ctx, entidad::internos,
                   "select ncm, fobtotal From item "
                   "where interno="_L1 +
                       EnComillas(interno) +
                       " and id <> 0 "
                       "order by fobtotal DESC"_L1,
                   rs)) {
        ctx.dialogos.informar(u"No se encuentra el Interno con sus items armados "_s,
                              u"Informar NCM de mayor FOB en Items"_s);
        return -1;
    }
    for (; !rs.Eof(); rs.MoveNext()) {
        const QString ncm = rs.Texto(u"ncm");
        Recordset plazo;
        if (!Consultar(ctx, entidad::ncm,
                       "select [071] From NCM "
                       "where [001]="_L1 +
                           EnComillas(ncm.left(10)) + " and [002]="_L1 + EnComillas(ncm.mid(11, 2)) +
                           " and [003]="_L1 + EnComillas(ncm.right(1)),
                       plazo))
            continue;
        const QString codigo = plazo.Texto(u"071").left(1);
        if (!codigo.isEmpty() && QStringView(u"12348").contains(codigo)) return codigo.toInt();
    }
    return -1;
}
