#include "subitems/nomenclature.h"

#include "frame/context.h"

using namespace Qt::StringLiterals;

std::vector<FilaDeSufijo> LeerSufijos(AppContext &ctx, const QString &posicion) {
    std::vector<FilaDeSufijo> filas;
    Recordset rs;
    Consultar(ctx, u"NCM"_s, "select * from sufidos where sim in "_L1 + ListaDeClavesSim(posicion), rs);
    for (; !rs.Eof(); rs.MoveNext())
        filas.push_back({rs.Texto(u"sim"), rs.Texto(u"sufijo"), rs.Texto(u"detalle")});
    return filas;
}

MarcasNcm LeerMarcasNcm(AppContext &ctx, const QString &posicion) {
    const ClavesNcm claves = CortarPosicion(posicion);
    Recordset rs;
    MarcasNcm marcas;
    marcas.encontrada = Consultar(
        ctx, u"NCM"_s,
        u"select [028], [041] as estampillado, [059] as LAPI from ncm where [001] = '"_s + claves.c001 +
            u"' and [002] = '"_s + claves.c002 + u"' and [003] = '"_s + claves.c003 + u"'"_s,
        rs);
    if (!marcas.encontrada) return marcas;
    const QLatin1String marca("*");
    marcas.automotriz = rs.Texto(u"028").trimmed() == marca;
    marcas.estampillado = rs.Texto(u"estampillado").trimmed() == marca;
    marcas.lapi = rs.Texto(u"LAPI").trimmed() == marca;
    return marcas;
}
