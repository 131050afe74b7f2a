#include "subitems/nomenclature.h"

#include "frame/context.h"

ClavesNcm CortarPosicion(const QString &posicion) {
    return {posicion.left(10), posicion.mid(11, 3), posicion.mid(14, 1)};
}

QString ListaDeClavesSim(const QString &posicion) {
    return QLatin1String("('") + posicion.left(2) + QLatin1String("  .  .  .   ','") + posicion.left(4) +
           QLatin1String(".  .  .   ','") + posicion.left(7) + QLatin1String(".  .   ','") +
           posicion.left(14) + QLatin1String("')");
}

std::vector<FilaDeSufijo> LeerSufijos(AppContext &ctx, const QString &posicion) {
    std::vector<FilaDeSufijo> filas;
    Recordset rs;
    Consultar(ctx, QStringLiteral("NCM"),
              QLatin1String("select * from sufidos where sim in ") + ListaDeClavesSim(posicion), rs);
    for (; !rs.Eof(); rs.MoveNext())
        filas.push_back({rs.Texto(u"sim"), rs.Texto(u"sufijo"), rs.Texto(u"detalle")});
    return filas;
}

MarcasNcm LeerMarcasNcm(AppContext &ctx, const QString &posicion) {
    const ClavesNcm claves = CortarPosicion(posicion);
    Recordset rs;
    MarcasNcm marcas;
    marcas.encontrada = Consultar(
        ctx, QStringLiteral("NCM"),
        QStringLiteral("select [028], [041] as estampillado, [059] as LAPI from ncm where [001] = '") +
            claves.c001 + QStringLiteral("' and [002] = '") + claves.c002 +
            QStringLiteral("' and [003] = '") + claves.c003 + QStringLiteral("'"),
        rs);
    if (!marcas.encontrada) return marcas;
    const QLatin1String marca("*");
    marcas.automotriz = rs.Texto(u"028").trimmed() == marca;
    marcas.estampillado = rs.Texto(u"estampillado").trimmed() == marca;
    marcas.lapi = rs.Texto(u"LAPI").trimmed() == marca;
    return marcas;
}
