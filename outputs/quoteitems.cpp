// The broker's concepts and the references of a quote.

#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"
#include "frame/sqltext.h"
#include "outputs/quote.h"

using namespace Qt::StringLiterals;

namespace {

using entidad::internos;

/// Whether the count of a statement is above 0; `aviso` is told then.
bool yaEsta(AppContext &ctx, const QString &sentencia, const QString &aviso) {
    Recordset rs;
    Consultar(ctx, internos, sentencia, rs);
    if (rs.Numero(u"cont") <= 0) return false;
    ctx.dialogos.advertir(aviso);
    return true;
}

}  // namespace

bool ConceptoLibre(AppContext &ctx, const QString &interno, const QString &concepto) {
    return !yaEsta(ctx,
                   "select count(*) as cont from itempresu "
                   "where interno = "_L1 +
                       EnComillas(interno) + " and  concepto = "_L1 + TextoEnComillas(concepto),
                   u"Este concepto ya existe en el presupuesto."_s);
}

bool ReferenciaLibre(AppContext &ctx, const QString &interno, const QString &referencia) {
    return !yaEsta(ctx,
                   "select count(*) as cont from itemref "
                   "where interno = "_L1 +
                       EnComillas(interno) + " and referencia = "_L1 + TextoEnComillas(referencia),
                   u"La Referencia ya Existe!"_s);
}

void AgregarGasto(AppContext &ctx, const QString &interno, const QString &concepto, const QString &valor,
                  bool enDolares) {
    const QString clave = EnComillas(interno) + u',' + TextoEnComillas(concepto) + u',';
    const QString numero = SqlNumber(ctx, valor);
    if (enDolares)
        Ejecutar(ctx, internos,
                 "insert into itempresu (interno,concepto,valordolar,valorpeso) "
                 "values ("_L1 +
                     clave + numero + ",0)"_L1);
    else
        Ejecutar(ctx, internos,
                 "insert into itempresu (interno,concepto,valorpeso,valordolar) "
                 "values ("_L1 +
                     clave + EnComillas(numero) + ",0)"_L1);
}

void QuitarGasto(AppContext &ctx, const QString &interno, const QString &concepto) {
    Ejecutar(ctx, internos,
             "delete from itempresu where interno = "_L1 + EnComillas(interno) + " and concepto = "_L1 +
                 TextoEnComillas(concepto));
}

bool AgregarReferencia(AppContext &ctx, const QString &interno, const QString &referencia) {
    QString valor;
    while (valor.isEmpty()) {
        const Entrada entrada{{}, u"Ingrese el valor de "_s + referencia, 255, {}};
        valor = ctx.dialogos.pedirTexto(entrada).value_or(QString()).trimmed();
        if (valor.isEmpty() &&
            ctx.dialogos.preguntar({u"Desea cancelar la operación"_s, {}, Icono::Pregunta, false}))
            return false;
    }
    Ejecutar(ctx, internos,
             "insert into itemref (interno,referencia,valor) "
             "values ("_L1 +
                 EnComillas(interno) + u',' + TextoEnComillas(referencia) + u',' + TextoEnComillas(valor) +
                 u')');
    return true;
}

void QuitarReferencia(AppContext &ctx, const QString &interno, const QString &referencia) {
    Ejecutar(ctx, internos,
             "delete from itemref where interno = "_L1 + EnComillas(interno) + " and referencia = "_L1 +
                 TextoEnComillas(referencia));
}
