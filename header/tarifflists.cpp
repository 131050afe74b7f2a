#include "header/tarifflists.h"

#include "frame/context.h"
#include "frame/entities.h"

using namespace Qt::StringLiterals;

std::vector<FilaDeListado> ListarListasDePaises(AppContext &ctx, const QString &paisOrigen,
                                                const QString &paisProcedencia) {
    if (paisOrigen.trimmed().isEmpty() && paisProcedencia.trimmed().isEmpty()) {
        ctx.dialogos.advertir(u"No hay Países ingresados."_s);
        return {};
    }
    std::vector<FilaDeListado> listas;
    Recordset rs;
    for (Consultar(ctx, entidad::systablas, u"select distinct id,descripcion from lista "_s, rs); !rs.Eof();
         rs.MoveNext())
        listas.push_back({rs.Texto(u"id").trimmed(), rs.Texto(u"descripcion").trimmed()});
    if (listas.empty()) ctx.dialogos.advertir(u"No hay LISTA para mostrar con los Países ingresados"_s);
    return listas;
}
