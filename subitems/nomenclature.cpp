#include "subitems/nomenclature.h"

#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"

using namespace Qt::StringLiterals;

namespace {

/// One question about each of several positions, in one journey.
std::vector<Recordset> preguntar(AppContext &ctx, const QStringList &posiciones,
                                 QString (*sentencia)(const QString &)) {
    QStringList sentencias;
    sentencias.reserve(posiciones.size());
    for (const QString &posicion : posiciones) sentencias << sentencia(posicion);
    return ConsultarSeguidas(ctx, entidad::ncm, sentencias);
}

/// The families that were read for each position, with their rows; one without any is none.
std::vector<std::vector<FamiliaDelCatalogo>> conSusFilas(AppContext &ctx, const QStringList &posiciones,
                                                         std::vector<Recordset> deFamilias) {
    std::vector<std::vector<FamiliaDelCatalogo>> leidas;
    leidas.reserve(deFamilias.size());
    QStringList deFilas;
    for (Recordset &rs : deFamilias) {
        const QString lista = ListaDeClavesSim(posiciones.at(static_cast<qsizetype>(leidas.size())));
        std::vector<FamiliaDelCatalogo> &familias = leidas.emplace_back();
        for (; !rs.Eof(); rs.MoveNext()) {
            familias.push_back({rs.Texto(u"asufijo"), {}});
            deFilas << "select sufijo,detalle "
                       "from sufidos "
                       "where sim in "_L1 +
                           lista + " and left(sufijo,2) = "_L1 + TextoEnComillas(familias.back().codigo);
        }
    }
    std::vector<Recordset> filas = ConsultarSeguidas(ctx, entidad::ncm, deFilas);
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

MarcasNcm marcasDe(const Recordset &rs) {
    MarcasNcm marcas;
    marcas.encontrada = !rs.Eof();
    if (!marcas.encontrada) return marcas;
    const QLatin1String marca("*");
    marcas.automotriz = rs.Texto(u"028").trimmed() == marca;
    marcas.estampillado = rs.Texto(u"estampillado").trimmed() == marca;
    marcas.lapi = rs.Texto(u"LAPI").trimmed() == marca;
    return marcas;
}

}  // namespace

std::vector<FilaDeSufijo> LeerSufijos(AppContext &ctx, const QString &posicion) {
    std::vector<FilaDeSufijo> filas;
    Recordset rs;
    Consultar(ctx, entidad::ncm,
              "select * "
              "from sufidos "
              "where sim in "_L1 +
                  ListaDeClavesSim(posicion),
              rs);
    for (; !rs.Eof(); rs.MoveNext())
        filas.push_back({rs.Texto(u"sim"), rs.Texto(u"sufijo"), rs.Texto(u"detalle")});
    return filas;
}

QString SentenciaDePosicion(const QString &posicion) {
    const ClavesNcm claves = CortarPosicion(posicion);
    return "select [001] as pos "
           "from ncm "
           "where [001]="_L1 +
           TextoEnComillas(claves.c001) + " and [002]="_L1 + TextoEnComillas(claves.c002);
}

std::vector<bool> ExistenPosiciones(AppContext &ctx, const QStringList &posiciones) {
    std::vector<bool> existen;
    existen.reserve(static_cast<std::size_t>(posiciones.size()));
    for (const Recordset &rs : preguntar(ctx, posiciones, SentenciaDePosicion)) existen.push_back(!rs.Eof());
    return existen;
}

bool ExistePosicion(AppContext &ctx, const QString &posicion) {
    Recordset rs;
    return Consultar(ctx, entidad::ncm, SentenciaDePosicion(posicion), rs);
}

QString SentenciaDeFamilias(const QString &posicion) {
    return "select distinct left(sufijo,2) as asufijo "
           "from sufidos "
           "where sim in "_L1 +
           ListaDeClavesSim(posicion);
}

std::vector<std::vector<FamiliaDelCatalogo>> LeerFamilias(AppContext &ctx, const QStringList &posiciones) {
    return conSusFilas(ctx, posiciones, preguntar(ctx, posiciones, SentenciaDeFamilias));
}

std::vector<FamiliaDelCatalogo> LeerFamilias(AppContext &ctx, const QString &posicion) {
    std::vector<Recordset> familias(1);
    Consultar(ctx, entidad::ncm, SentenciaDeFamilias(posicion), familias.front());
    return conSusFilas(ctx, {posicion}, std::move(familias)).front();
}

QString SentenciaDeMarcas(const QString &posicion) {
    return "select [028], [041] as estampillado, [059] as LAPI "
           "from ncm "
           "where "_L1 +
           CondicionDePosicion(CortarPosicion(posicion));
}

std::vector<MarcasNcm> LeerMarcasNcm(AppContext &ctx, const QStringList &posiciones) {
    std::vector<MarcasNcm> leidas;
    leidas.reserve(static_cast<std::size_t>(posiciones.size()));
    for (const Recordset &rs : preguntar(ctx, posiciones, SentenciaDeMarcas)) leidas.push_back(marcasDe(rs));
    return leidas;
}

MarcasNcm LeerMarcasNcm(AppContext &ctx, const QString &posicion) {
    Recordset rs;
    Consultar(ctx, entidad::ncm, SentenciaDeMarcas(posicion), rs);
    return marcasDe(rs);
}
