#include "subitems/positions.h"

#include "frame/base/values.h"
#include "frame/context.h"

using namespace Qt::StringLiterals;

using L = QLatin1String;

std::vector<PosicionEncontrada> BuscarPosiciones(AppContext &ctx, const QString &texto,
                                                 OrigenDeBusqueda origen) {
    std::vector<PosicionEncontrada> posiciones;
    QString buscado = texto.trimmed();
    if (buscado.isEmpty()) return posiciones;
    buscado.replace(QLatin1Char('.'), QLatin1Char('%'));
    const Reloj reloj(ctx.dialogos);
    Recordset rs;
    if (!Consultar(ctx, u"NCM"_s,
                   "select [001]+ '.' +[002] + [003] as ncm,[012] as estadistica,[020] as deresp "
                   "from ncm "
                   "where [001] like "_L1 +
                       TextoEnComillas(buscado + u'%') +
                       " "
                       "order by [001],[002],[003]"_L1,
                   rs)) {
        ctx.dialogos.informar(origen == OrigenDeBusqueda::Pantalla ? u"Posición no encontrada."_s
                                                                   : u"Posición no Encontrada."_s);
        return posiciones;
    }
    posiciones.reserve(static_cast<std::size_t>(rs.RecordCount()));
    for (; !rs.Eof(); rs.MoveNext())
        posiciones.push_back({rs.Texto(u"ncm"), rs.Texto(u"estadistica"), rs.Texto(u"deresp")});
    return posiciones;
}

QStringList TextosDePosiciones(const std::vector<PosicionEncontrada> &posiciones) {
    QStringList textos;
    textos.reserve(static_cast<qsizetype>(posiciones.size()));
    for (const PosicionEncontrada &p : posiciones) textos << p.ncm;
    return textos;
}

DatosDePosicion MostrarDatos(AppContext &ctx, const QString &posicion) {
    DatosDePosicion datos;
    const QString elegida = ctx.posicion.posicion;
    ctx.posicion = {};
    ctx.posicion.posicion = elegida;
    const ClavesNcm claves = CortarPosicion(posicion);
    Recordset rs;
    datos.encontrada =
        Consultar(ctx, u"NCM"_s,
                  "Select [010] as descrip,[004] as descrip1, [012] as estadistica,[020] as deresp, "
                  "[059],[019] as rein, [052] as segelect, [044] as prohibicion "
                  "from ncm "
                  "where "_L1 +
                      CondicionDePosicion(claves),
                  rs);
    if (!datos.encontrada) return datos;
    const L marca("*");
    datos.descripcion = rs.Texto(u"descrip") + "\r\n"_L1 + rs.Texto(u"descrip1");
    ctx.posicion.estadistica = rs.Texto(u"estadistica");
    ctx.posicion.deresp = rs.Texto(u"deresp");
    ctx.posicion.lapi = rs.Texto(u"059").trimmed() == marca;
    ctx.posicion.reintegro = rs.Numero(u"rein") > 0;
    ctx.posicion.seguridad = rs.Texto(u"segelect") == marca;
    ctx.posicion.prohibicion = rs.Texto(u"prohibicion") == marca;
    datos.sufijos = LeerSufijos(ctx, posicion);
    return datos;
}

void SeleccionarPosicion(AppContext &ctx, const QString &posicion) {
    ctx.posicion.posicion = posicion;
}

void DejarPosicion(AppContext &ctx) {
    ctx.posicion.posicion.clear();
}
