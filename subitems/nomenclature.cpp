#include "subitems/nomenclature.h"

#include "frame/base/values.h"
#include "frame/context.h"

using namespace Qt::StringLiterals;

std::vector<FilaDeSufijo> LeerSufijos(AppContext &ctx, const QString &posicion) {
    std::vector<FilaDeSufijo> filas;
    Recordset rs;
    Consultar(ctx, u"NCM"_s,
              "select * "
              "from sufidos "
              "where sim in "_L1 +
                  ListaDeClavesSim(posicion),
              rs);
    for (; !rs.Eof(); rs.MoveNext())
        filas.push_back({rs.Texto(u"sim"), rs.Texto(u"sufijo"), rs.Texto(u"detalle")});
    return filas;
}

bool ExistePosicion(AppContext &ctx, const QString &posicion) {
    const ClavesNcm claves = CortarPosicion(posicion);
    Recordset rs;
    return Consultar(ctx, u"NCM"_s,
                     "select [001] as pos "
                     "from ncm "
                     "where [001]="_L1 +
                         TextoEnComillas(claves.c001) + " and [002]="_L1 + TextoEnComillas(claves.c002),
                     rs);
}

std::vector<FamiliaDelCatalogo> LeerFamilias(AppContext &ctx, const QString &posicion) {
    const QString lista = ListaDeClavesSim(posicion);
    std::vector<FamiliaDelCatalogo> familias;
    Recordset rs;
    Consultar(ctx, u"NCM"_s,
              "select distinct left(sufijo,2) as asufijo "
              "from sufidos "
              "where sim in "_L1 +
                  lista,
              rs);
    for (; !rs.Eof(); rs.MoveNext()) {
        FamiliaDelCatalogo familia{rs.Texto(u"asufijo"), {}};
        Recordset filas;
        Consultar(ctx, u"NCM"_s,
                  "select sufijo,detalle "
                  "from sufidos "
                  "where sim in "_L1 +
                      lista + " and left(sufijo,2) = "_L1 + TextoEnComillas(familia.codigo),
                  filas);
        for (; !filas.Eof(); filas.MoveNext())
            familia.filas.push_back({{}, filas.Texto(u"sufijo"), filas.Texto(u"detalle")});
        if (!familia.filas.empty()) familias.push_back(std::move(familia));
    }
    return familias;
}

MarcasNcm LeerMarcasNcm(AppContext &ctx, const QString &posicion) {
    const ClavesNcm claves = CortarPosicion(posicion);
    Recordset rs;
    MarcasNcm marcas;
    marcas.encontrada = Consultar(ctx, u"NCM"_s,
                                  "select [028], [041] as estampillado, [059] as LAPI "
                                  "from ncm "
                                  "where "_L1 +
                                      CondicionDePosicion(claves),
                                  rs);
    if (!marcas.encontrada) return marcas;
    const QLatin1String marca("*");
    marcas.automotriz = rs.Texto(u"028").trimmed() == marca;
    marcas.estampillado = rs.Texto(u"estampillado").trimmed() == marca;
    marcas.lapi = rs.Texto(u"LAPI").trimmed() == marca;
    return marcas;
}
