#include "header/comments.h"

#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"
#include "frame/failures.h"

using namespace Qt::StringLiterals;

namespace {

using entidad::systablas;

}  // namespace

QString LeerComentario(AppContext &ctx, const QString &interno) {
    Recordset rs;
    return Consultar(ctx, systablas, "select * from coment where interno = "_L1 + EnComillas(interno), rs)
               ? rs.Texto(u"coment")
               : QString();
}

bool GrabarComentario(AppContext &ctx, const QString &interno, const QString &texto) {
    try {
        const QString clave = EnComillas(interno);
        const QString comentario = TextoEnComillas(texto);
        Recordset rs;
        Consultar(ctx, systablas, "select count(*) as cont from coment where interno = "_L1 + clave, rs);
        if (rs.Eof() || rs.Numero(u"cont") == 0)
            Ejecutar(ctx, systablas,
                     "insert into coment(interno,coment) values ("_L1 + clave + u',' + comentario + u')');
        else
            Ejecutar(ctx, systablas,
                     "update coment set coment = "_L1 + comentario + " where interno = "_L1 + clave);
        return true;
    } catch (const Falla &e) {
        ContarFalla(ctx, e, e.descripcion);
        return false;
    }
}
