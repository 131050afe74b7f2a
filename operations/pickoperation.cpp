#include "operations/pickoperation.h"

#include <algorithm>

#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"
#include "operations/operationkey.h"

using namespace Qt::StringLiterals;

namespace {

/// The key as the store spells it; empty when there is no such operation.
QString claveGuardada(AppContext &ctx, const QString &clave) {
    Recordset rs;
    return Consultar(ctx, entidad::internos,
                     "select interno from caratula where interno = "_L1 + EnComillas(clave), rs)
               ? rs.Texto(u"interno")
               : QString();
}

}  // namespace

QString PedirOperacion(AppContext &ctx, const QString &titulo) {
    const auto escrito = ctx.dialogos.pedirTexto(
        {titulo, u"Ingrese el número de INTERNO/CARPETA, o su comienzo"_s, int(largoDeClave),
         ctx.ajustes.Leer(ajuste::zendra, u"APLICACION"_s, u"INTERNO_NRO"_s)});
    const QString clave = escrito.value_or(QString()).trimmed();
    if (clave.isEmpty()) return {};
    if (QString guardada = claveGuardada(ctx, clave); !guardada.isEmpty()) return guardada;
    Recordset rs;
    Consultar(ctx, entidad::internos,
              "select top 200 interno,idsubreg,factura7 from caratula where interno like "_L1 +
                  EnComillas(clave + u'%') + " order by interno"_L1,
              rs);
    Eleccion eleccion;
    eleccion.titulo = titulo;
    eleccion.tipo = Eleccion::Tipo::Codigos;
    QStringList claves;
    for (; !rs.Eof(); rs.MoveNext()) {
        claves << rs.Texto(u"interno");
        eleccion.filas
            << QStringList{rs.Texto(u"interno"), rs.Texto(u"idsubreg"), rs.Texto(u"factura7")}.join("  "_L1);
    }
    if (claves.isEmpty()) {
        ctx.dialogos.informar(u"No hay operaciones que empiecen con %1, revise el número."_s.arg(clave));
        return {};
    }
    return claves.value(ctx.dialogos.elegir(eleccion));
}
