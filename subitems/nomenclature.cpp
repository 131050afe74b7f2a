#include "subitems/nomenclature.h"

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

std::vector<bool> ExistenPosiciones(AppContext &ctx, const QStringList &posiciones) {
    QStringList sentencias;
    for (const QString &posicion : posiciones) {
        const ClavesNcm claves = CortarPosicion(posicion);
        sentencias << "select [001] as pos "
                      "from ncm "
                      "where [001]='"_L1 +
                          claves.c001 + "' and [002]='"_L1 + claves.c002 + "'"_L1;
    }
    std::vector<bool> existen;
    existen.reserve(static_cast<std::size_t>(posiciones.size()));
    for (const Recordset &rs : ConsultarSeguidas(ctx, u"NCM"_s, sentencias)) existen.push_back(!rs.Eof());
    return existen;
}

bool ExistePosicion(AppContext &ctx, const QString &posicion) {
    return ExistenPosiciones(ctx, {posicion}).front();
}

std::vector<std::vector<FamiliaDelCatalogo>> LeerFamilias(AppContext &ctx, const QStringList &posiciones) {
    QStringList deFamilias;
    for (const QString &posicion : posiciones)
        deFamilias << "select distinct left(sufijo,2) as asufijo "
                      "from sufidos "
                      "where sim in "_L1 +
                          ListaDeClavesSim(posicion);
    std::vector<std::vector<FamiliaDelCatalogo>> leidas;
    leidas.reserve(static_cast<std::size_t>(posiciones.size()));
    QStringList deFilas;
    for (Recordset &rs : ConsultarSeguidas(ctx, u"NCM"_s, deFamilias)) {
        const QString lista = ListaDeClavesSim(posiciones.at(static_cast<qsizetype>(leidas.size())));
        std::vector<FamiliaDelCatalogo> &familias = leidas.emplace_back();
        for (; !rs.Eof(); rs.MoveNext()) {
            familias.push_back({rs.Texto(u"asufijo"), {}});
            deFilas << "select sufijo,detalle "
                       "from sufidos "
                       "where sim in "_L1 +
                           lista + " and left(sufijo,2) = '"_L1 + familias.back().codigo + "'"_L1;
        }
    }
    std::vector<Recordset> filas = ConsultarSeguidas(ctx, u"NCM"_s, deFilas);
    auto suyas = filas.begin();
    for (std::vector<FamiliaDelCatalogo> &familias : leidas) {
        for (FamiliaDelCatalogo &familia : familias) {
            for (; !suyas->Eof(); suyas->MoveNext())
                familia.filas.push_back({{}, suyas->Texto(u"sufijo"), suyas->Texto(u"detalle")});
            ++suyas;
        }
        std::erase_if(familias, [](const FamiliaDelCatalogo &f) { return f.filas.empty(); });
    }
    return leidas;
}

std::vector<FamiliaDelCatalogo> LeerFamilias(AppContext &ctx, const QString &posicion) {
    return LeerFamilias(ctx, QStringList{posicion}).front();
}

std::vector<MarcasNcm> LeerMarcasNcm(AppContext &ctx, const QStringList &posiciones) {
    QStringList sentencias;
    for (const QString &posicion : posiciones) {
        const ClavesNcm claves = CortarPosicion(posicion);
        sentencias << "select [028], [041] as estampillado, [059] as LAPI "
                      "from ncm "
                      "where [001] = '"_L1 +
                          claves.c001 + "' and [002] = '"_L1 + claves.c002 + "' and [003] = '"_L1 +
                          claves.c003 + "'"_L1;
    }
    const QLatin1String marca("*");
    std::vector<MarcasNcm> leidas;
    leidas.reserve(static_cast<std::size_t>(posiciones.size()));
    for (const Recordset &rs : ConsultarSeguidas(ctx, u"NCM"_s, sentencias)) {
        MarcasNcm &marcas = leidas.emplace_back();
        marcas.encontrada = !rs.Eof();
        if (!marcas.encontrada) continue;
        marcas.automotriz = rs.Texto(u"028").trimmed() == marca;
        marcas.estampillado = rs.Texto(u"estampillado").trimmed() == marca;
        marcas.lapi = rs.Texto(u"LAPI").trimmed() == marca;
    }
    return leidas;
}

MarcasNcm LeerMarcasNcm(AppContext &ctx, const QString &posicion) {
    return LeerMarcasNcm(ctx, QStringList{posicion}).front();
}
