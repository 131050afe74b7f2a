#include "liquidation/conceptedit.h"

#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"
#include "frame/escritura.h"
#include "frame/failures.h"
#include "header/ListadoCodigos.h"
#include "header/codes.h"

using namespace Qt::StringLiterals;

namespace {

using entidad::internos;

const QString claveDeMotivos = u"MOTIVOS"_s;

QString conMascaraDeImporte(const AppContext &ctx, const QString &texto) {
    return numeros::Format(texto, u"00.00", ctx.SeparadorDecimal);
}

Veredicto rechazarConcepto(const AppContext &ctx, const QString &texto, const QString &control) {
    ctx.dialogos.advertir(texto);
    return Veredicto::mal(control);
}

/// The checks of both actions, and the masks. A reason is kept only for what is guaranteed.
Veredicto revisarConcepto(const AppContext &ctx, ConceptoEditado &c) {
    if (c.codigo.isEmpty())
        return rechazarConcepto(ctx, u"Debe seleccionar un concepto de la lista."_s, u"cbCONC"_s);
    const bool garantizado = c.pgc == "G"_L1;
    if (garantizado && c.motivo.trimmed().isEmpty())
        return rechazarConcepto(ctx,
                                u"Usted selecionó como Obligacion G, entonces debe seleccionar un MOTIVO"_s,
                                u"TxtMotivos"_s);
    if (!garantizado) c.motivo.clear();
    if (!numeros::esNumerico(c.porcentaje))
        return rechazarConcepto(ctx, u"Debe seleccionar un PORCENTAJE válido"_s, u"txtPorc"_s);
    if (!numeros::esNumerico(c.base))
        return rechazarConcepto(ctx, u"Debe seleccionar una BASE IMPONIBLE válida"_s, u"txtBimp"_s);
    if (numeros::esNumerico(c.total) && numeros::aNumero(c.total) <= 0)
        return rechazarConcepto(ctx, u"Total debe ser mayor a cero."_s, u"TxtValor"_s);
    for (QString *texto : {&c.porcentaje, &c.base, &c.total}) *texto = conMascaraDeImporte(ctx, *texto);
    return Veredicto::bien();
}

/// A total for the statement. One that is no number is written as the name of a column that no table has: the
/// text of the user cannot be one, nor end the name, and both engines refuse the statement and tell it.
QString totalParaSentencia(const QString &total) {
    if (numeros::esNumerico(total)) return AStoreNumero(total, u"."_s);
    QString nombre = total;
    nombre.removeIf([](QChar c) { return u"[]\"'`"_s.contains(c) || !c.isPrint(); });
    return u"[%1 no es un número]"_s.arg(nombre);
}

QString delConcepto(const QString &interno, const QString &item, const QString &codigo) {
    return "interno = "_L1 + EnComillas(interno) + " and idconceptos = "_L1 + EnComillas(codigo) +
           " and iditem = "_L1 + item;
}

bool hayConcepto(AppContext &ctx, const QString &condicion) {
    Recordset rs;
    return Consultar(ctx, internos, "select count(idconceptos) as cont from itemliq where "_L1 + condicion,
                     rs) &&
           rs.Numero(u"cont") > 0;
}

/// Sends a write of itemliq; the rows that it touched. Should the store go away it may have been done all the
/// same, and the totals with it are no longer what the rows say.
qint64 escribirFilas(AppContext &ctx, const QString &sentencia) {
    try {
        return Ejecutar(ctx, internos, sentencia);
    } catch (const Falla &) {
        if (!ctx.conexion(internos).abierta()) ctx.LiquidacionPendiente = true;
        throw;
    }
}

/// Sends a write; a refusal is told in the store's words and then in the user's, and leaves everything as it
/// was. Of a store that is gone its own words tell enough.
Veredicto escribirConcepto(AppContext &ctx, const ConceptoEditado &c, const QString &sentencia) {
    qint64 filas = 0;
    try {
        filas = escribirFilas(ctx, sentencia);
    } catch (const Falla &e) {
        ContarFalla(ctx, e);
        if (!ctx.conexion(internos).abierta()) return Veredicto::mal();
    }
    if (filas == 0) {
        ctx.dialogos.advertir(u"No se puede agregar el nuevo concepto."_s);
        return Veredicto::mal(numeros::esNumerico(c.total) ? QString() : u"TxtValor"_s);
    }
    ctx.LiquidacionPendiente = true;
    return Veredicto::bien();
}

Veredicto cambiarConcepto(AppContext &ctx, const QString &interno, const QString &item,
                          const QString &codigoAnterior, const ConceptoEditado &c) {
    return escribirConcepto(ctx, c,
                            Escritura(ctx)
                                .codigo("idconceptos", c.codigo)
                                .texto("conceptos", c.descripcion)
                                .codigo("pgc", c.pgc)
                                .texto("motivo", c.motivo)
                                .numero("porcentaje", c.porcentaje)
                                .numero("porcentajeB", c.porcentaje)
                                .numero("baseimp", c.base)
                                .crudo("total", totalParaSentencia(c.total))
                                .crudo("valor", u"1"_s)
                                .actualizar(u"itemliq"_s, delConcepto(interno, item, codigoAnterior)));
}

}  // namespace

std::vector<ConceptoOfrecido> ListarConceptos(AppContext &ctx, const QString &interno, const QString &item,
                                              ModoDeConcepto modo) {
    QString sentencia = u"select distinct CTAX,LTAXABR from tax"_s;
    if (modo == ModoDeConcepto::ADD)
        sentencia +=
            " where not exists("
            "select idconceptos,conceptos from itemliq"
            " where idconceptos = CTAX and iditem = "_L1 +
            item + " and interno = "_L1 + EnComillas(interno) + " and total > 0)"_L1;
    std::vector<ConceptoOfrecido> conceptos;
    Recordset rs;
    for (Consultar(ctx, internos, sentencia + " order by LTAXABR"_L1, rs); !rs.Eof(); rs.MoveNext())
        conceptos.push_back({rs.Texto(u"CTAX").trimmed(), rs.Texto(u"LTAXABR").trimmed()});
    return conceptos;
}

QString TotalDeConcepto(const AppContext &ctx, const QString &porcentaje, const QString &base) {
    if (!numeros::esNumerico(porcentaje) || !numeros::esNumerico(base)) return {};
    return numeros::Format(numeros::aNumero(base) * numeros::aNumero(porcentaje) / 100, u"00.00",
                           ctx.SeparadorDecimal);
}

Veredicto PF_Guardar(AppContext &ctx, const QString &interno, const QString &item,
                     const ConceptoEditado &concepto) {
    ConceptoEditado c = concepto;
    if (Veredicto v = revisarConcepto(ctx, c); !v.ok) return v;
    if (hayConcepto(ctx, "total >0 and "_L1 + delConcepto(interno, item, c.codigo)))
        return rechazarConcepto(ctx, u"El concepto ya esta ingresado en la liquidación"_s, u"cbCONC"_s);
    // A row that never took an amount is offered like one at 0.
    if (hayConcepto(ctx, "(total=0 or total is null) and "_L1 + delConcepto(interno, item, c.codigo)))
        return cambiarConcepto(ctx, interno, item, c.codigo, c);
    return escribirConcepto(ctx, c,
                            Escritura(ctx)
                                .crudo("iditem", item)
                                .codigo("idconceptos", c.codigo)
                                .texto("conceptos", c.descripcion)
                                .codigo("interno", interno)
                                .codigo("PGC", c.pgc)
                                .texto("motivo", c.motivo)
                                .numero("porcentaje", c.porcentaje)
                                .numero("porcentajeb", c.porcentaje)
                                .numero("baseimp", c.base)
                                .crudo("total", totalParaSentencia(c.total))
                                .crudo("valor", u"1"_s)
                                .insertar(u"ITEMLIQ"_s));
}

Veredicto PF_Modificar(AppContext &ctx, const QString &interno, const QString &item,
                       const QString &codigoAnterior, const ConceptoEditado &concepto) {
    ConceptoEditado c = concepto;
    if (Veredicto v = revisarConcepto(ctx, c); !v.ok) return v;
    return cambiarConcepto(ctx, interno, item, codigoAnterior, c);
}

bool EliminarConcepto(AppContext &ctx, const QString &interno, const QString &item, const QString &codigo) {
    if (escribirFilas(ctx, "delete from itemliq where interno = "_L1 + EnComillas(interno) +
                               " and iditem = "_L1 + item + " and idconceptos = "_L1 + EnComillas(codigo)) ==
        0)
        return false;
    ctx.LiquidacionPendiente = true;
    return true;
}

bool ElegirMotivo(AppContext &ctx, const QString &pgc, QString &codigo) {
    if (pgc != "G"_L1) {
        ctx.dialogos.advertir(u"Para seleccionar un MOTIVO, obligación debe estar como G"_s);
        return false;
    }
    CampoDeCodigo motivo;
    if (!ElegirCodigo(ctx, claveDeMotivos, motivo)) return false;
    codigo = motivo.codigo;
    return true;
}

QString DescripcionDeMotivo(AppContext &ctx, const QString &codigo) {
    if (codigo.isEmpty()) return {};
    try {
        for (const FilaDeCodigo &fila : ListadoCodigosClass(ctx).Listado(claveDeMotivos).filas)
            if (fila.codigo.compare(codigo, Qt::CaseInsensitive) == 0) return fila.descripcion;
    } catch (const Falla &) {
        // As every look-up for a label: never a message.
    }
    return {};
}
