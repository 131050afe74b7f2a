#include "header/comments.h"

#include "frame/base/values.h"
#include "frame/context.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

const QString systablas = u"SYSTABLAS"_s;

}  // namespace

QString LeerComentario(AppContext &ctx, const QString &interno) {
    Recordset rs;
    return Consultar(ctx, systablas, "select * from coment where interno = '"_L1 + interno + "'"_L1, rs)
               ? rs.Texto(u"coment")
               : QString();
}

bool GrabarComentario(AppContext &ctx, const QString &interno, const QString &texto) {
    try {
        const QString comentario = DoblarComillas(texto);
        Recordset rs;
        Consultar(ctx, systablas,
                  "select count(*) as cont from coment where interno = '"_L1 + interno + "'"_L1, rs);
        if (rs.Eof() || rs.Numero(u"cont") == 0)
            Ejecutar(ctx, systablas,
                     "insert into coment(interno,coment) values ('"_L1 + interno + "','"_L1 + comentario +
                         "')"_L1);
        else
            Ejecutar(
                ctx, systablas,
                "update coment set coment = '"_L1 + comentario + "' where interno = '"_L1 + interno + "'"_L1);
        return true;
    } catch (const Falla &e) {
        ctx.dialogos.critico(e.descripcion);
        return false;
    }
}
