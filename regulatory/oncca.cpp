#include "regulatory/oncca.h"

#include <algorithm>

#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"
#include "frame/escritura.h"
#include "header/changes.h"

using namespace Qt::StringLiterals;

namespace {

using entidad::internos;

QString deLaOperacionDeCarne(const QString &interno) {
    return "interno = "_L1 + EnComillas(interno);
}

std::vector<oncca::Linea> leerLineas(AppContext &ctx, const QString &interno) {
    std::vector<oncca::Linea> lineas;
    Recordset rs;
    Consultar(ctx, internos,
              "select id,idarticulo,ncm,descripcion,ONCCACategoria,ONCCACortes "
              "from subitems where "_L1 +
                  deLaOperacionDeCarne(interno) + " order by id asc"_L1,
              rs);
    for (; !rs.Eof(); rs.MoveNext())
        lineas.push_back({rs.Texto(u"id").toLongLong(), rs.Texto(u"idarticulo"), rs.Texto(u"ncm"),
                          rs.Texto(u"descripcion"), rs.Texto(u"ONCCACategoria"), rs.Texto(u"ONCCACortes")});
    return lineas;
}

/// Whether the line was written: it differs from the stored one, which is there.
bool guardarLinea(AppContext &ctx, const QString &interno, const std::vector<oncca::Linea> &guardadas,
                  const oncca::Linea &linea) {
    const auto guardada = std::find_if(guardadas.begin(), guardadas.end(),
                                       [&linea](const oncca::Linea &una) { return una.id == linea.id; });
    if (guardada == guardadas.end() ||
        (guardada->categoria == linea.categoria && guardada->corte == linea.corte))
        return false;
    Escritura e(ctx);
    e.texto("ONCCACategoria", linea.categoria).texto("ONCCACortes", linea.corte);
    Ejecutar(ctx, internos,
             e.actualizar(u"subitems"_s, u"id = %1 and "_s.arg(linea.id) + deLaOperacionDeCarne(interno)));
    return true;
}

}  // namespace

oncca::Datos oncca::CargarDatos(AppContext &ctx, const QString &interno) {
    Datos datos;
    Recordset rs;
    if (!Consultar(ctx, internos,
                   "select ONCCAHabilitado, ONCCAAcuerdo, ONCCACategoria, ONCCACortes, ONCCAElaborador, "
                   "ONCCAEspecie , ONCCAFaneador, ONCCAMeccoorgbio, ONCCAres3106, ONCCAsispro, ONCCAMatadero "
                   "from caratula where "_L1 +
                       deLaOperacionDeCarne(interno),
                   rs))
        return datos;
    datos.habilitado = rs.Texto(u"ONCCAHabilitado") == "S"_L1;
    for (std::size_t n = 0; n < cuantosCampos; ++n)
        datos.codigos.at(n) = rs.Texto(QString::fromLatin1(CamposConLista().at(n).columna));
    datos.lineas = leerLineas(ctx, interno);
    return datos;
}

bool oncca::GuardarDatos(AppContext &ctx, const QString &interno, const Datos &datos) {
    const Datos guardados = CargarDatos(ctx, interno);
    Escritura e(ctx);
    for (std::size_t n = 0; n < cuantosCampos; ++n)
        e.texto(CamposConLista().at(n).columna, datos.codigos.at(n));
    e.marca("ONCCAHabilitado", datos.habilitado);
    if (Ejecutar(ctx, internos, e.actualizar(u"caratula"_s, deLaOperacionDeCarne(interno))) == 0) {
        ctx.dialogos.advertir(u"El interno %1 ya no existe: vuelva a buscarlo en la lista."_s.arg(interno));
        return false;
    }
    bool cambio = datos.codigos != guardados.codigos;
    for (const Linea &linea : datos.lineas)
        if (guardarLinea(ctx, interno, guardados.lineas, linea)) cambio = true;
    if (cambio) AnotarCambio(ctx, interno);
    return true;
}
