#include "header/comments.h"

#include "frame/context.h"
#include "frame/values.h"

namespace {

using L = QLatin1String;

const QString systablas = QStringLiteral("SYSTABLAS");

}  // namespace

QString LeerComentario(AppContext &ctx, const QString &interno) {
    Recordset rs;
    return Consultar(ctx, systablas, L("select * from coment where interno = '") + interno + L("'"), rs)
               ? rs.Texto(u"coment")
               : QString();
}

bool GrabarComentario(AppContext &ctx, const QString &interno, const QString &texto) {
    try {
        const QString comentario = DoblarComillas(texto);
        Recordset rs;
        Consultar(ctx, systablas,
                  L("select count(*) as cont from coment where interno = '") + interno + L("'"), rs);
        if (rs.Eof() || rs.Numero(u"cont") == 0)
            Ejecutar(ctx, systablas,
                     L("insert into coment(interno,coment) values ('") + interno + L("','") + comentario +
                         L("')"));
        else
            Ejecutar(
                ctx, systablas,
                L("update coment set coment = '") + comentario + L("' where interno = '") + interno + L("'"));
        return true;
    } catch (const ErrorDeStore &e) {
        ctx.dialogos.critico(e.descripcion);
        return false;
    }
}
