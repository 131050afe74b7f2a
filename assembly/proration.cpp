#include <cmath>

#include "assembly/run.h"
#include "frame/numbers.h"
#include "frame/values.h"

namespace {

using L = QLatin1String;
using numeros::Format;

const QString entidad = QStringLiteral("INTERNOS");

QString redondeado(const QString &expresion, QStringView mascara) { return SqlRound(entidad, expresion, mascara); }

/// A value through "00.00" and back: the comparison of header and sum is made on that text.
double centavos(double valor) { return numeros::redondear(valor, 2); }

QString interno(const ContextoArmado &r) { return QLatin1Char('\'') + r.interno + QLatin1Char('\''); }

double suma(ContextoArmado &r, const QString &sql, QStringView columna) {
    Recordset rs;
    return r.consultar(sql, rs) ? rs.Numero(columna) : 0;
}

/// The spread over all groups. The first row in store order that is larger than the difference takes the residual.
void prorratearSobreTodos(ContextoArmado &r) {
    const double v = r.valoraprorratear;
    Recordset rs;
    for (r.consultar(L("select distinct idsub,fob,cantidad,fob + ((  ") + redondeado(QStringLiteral("fob"), u"00.00") + L(" * ") + SqlNumber(v) + L(") / ") +
                         SqlNumber(r.fobdivisas) + L(") as valor from groupsubitems where interno = ") + interno(r),
                     rs);
         !rs.Eof(); rs.MoveNext()) {
        const QString valor = SqlNumber(Format(rs.Numero(u"Valor"), u"00.00"));
        r.ejecutar(L("update groupsubitems set fob = ") + valor + L(", preciounitario = ") + redondeado(valor + L("/cantidad"), u"00.00000") +
                   L("  where interno = ") + interno(r) + L(" and  idsub = ") + rs.Texto(u"IdSub"));
    }
    r.ejecutar(L("update groupsubitems set fob = ") + redondeado(QStringLiteral("fob"), u"00.00") + L(" where interno = ") + interno(r));
    const double total = suma(r, L("select sum(fob) as total from groupsubitems where interno = ") + interno(r), u"total");
    const double objetivo = centavos(r.fobdivisas + v);
    if (Format(total, u"00.00") != Format(objetivo, u"00.00")) {
        const double diferencia = numeros::redondear(objetivo - centavos(total), 3);
        r.internos().Sql = L("select * from groupsubitems WHERE INTERNO = ") + interno(r) + L(" and fob >") + PonerPuntoDecimal(std::fabs(diferencia));
        Recordset fila;
        if (r.internos().crearrsActualizable(fila, QStringLiteral("groupsubitems"))) {
            const double fob = centavos(centavos(fila.Numero(u"Fob")) + diferencia);
            fila.Poner(u"fob", fob);
            fila.Poner(u"preciounitario", numeros::redondear(fob / fila.Numero(u"Cantidad"), 5));
            fila.Update();
        }
    }
    r.FobDeclarado = objetivo;
}

/// Codes that no group carries stop the run.
Fase controlarCodigos(ContextoArmado &r) {
    Recordset rs;
    if (!r.consultar(L("select codigo, descripcion from prorrateo where interno = ") + interno(r) +
                         L(" and codigo not in (select codprorrateo from groupsubitems where interno = ") + interno(r) + L(")"),
                     rs))
        return Fase::Sigue;
    const QString raya(64, QLatin1Char('-'));
    QStringList lineas{raya, QStringLiteral("Se encontraron CODIGOS DE PRORRATEOS sin utilizar"), QStringLiteral("No se puede continuar con el armado."), raya};
    for (; !rs.Eof(); rs.MoveNext()) lineas << rs.Texto(u"Codigo").trimmed() + L(" - ") + rs.Texto(u"Descripcion").trimmed();
    r.ctx.dialogos.advertir(lineas.join(L("\r\n")));
    r.ctx.ChequeoArmado = QStringLiteral("NO");
    return Fase::Corta;
}

void prorratearCodigo(ContextoArmado &r, const QString &codigo, double valorDelCodigo) {
    const QString donde = L(" where interno = ") + interno(r) + L(" and codprorrateo = '") + codigo + L("'");
    Recordset rs;
    if (!r.consultar(L("select sum(fob) as valor from groupsubitems") + donde, rs) || rs.EsNulo(u"valor")) return;
    const double sumado = rs.Numero(u"valor");
    for (r.consultar(L("select distinct fob,cantidad,fob + ((") + redondeado(QStringLiteral("fob"), u"00.00") + L(" * ") + SqlNumber(valorDelCodigo) + L(") / ") +
                         SqlNumber(sumado) + L(") as valor from groupsubitems") + donde,
                     rs);
         !rs.Eof(); rs.MoveNext()) {
        const QString valor = SqlNumber(rs.Numero(u"Valor"));
        r.ejecutar(L("update groupsubitems set fob = ") + valor + L(", preciounitario = ") + redondeado(valor + L("/cantidad"), u"00.00000") +
                   L(" where fob = ") + SqlNumber(rs.Numero(u"Fob")) + L(" and cantidad = ") + SqlNumber(rs.Numero(u"Cantidad")) + L(" and interno = ") + interno(r) +
                   L(" and codprorrateo = '") + codigo + L("'"));
    }
}

/// The spread by codes. The coded row of lowest FOB takes the residual.
Fase prorratearPorCodigos(ContextoArmado &r) {
    if (controlarCodigos(r) == Fase::Corta) return Fase::Corta;
    double acumulado = 0;
    double ultimo = 0;
    Recordset codigos;
    const bool hay = r.consultar(L("select codigo,valor from prorrateo where interno = ") + interno(r), codigos);
    for (; !codigos.Eof(); codigos.MoveNext()) {
        ultimo = codigos.Numero(u"Valor");
        acumulado += ultimo;
        prorratearCodigo(r, codigos.Texto(u"codigo"), ultimo);
    }
    if (hay) {
        Recordset rs;
        if (r.consultar(L("select fobdivisas,fletedivisas,segurodivisas from caratula where interno = ") + interno(r), rs)) {
            r.fobdivisas = rs.Numero(u"fobdivisas");
            r.fletedivisas = rs.Numero(u"fletedivisas");
            r.segurodivisas = rs.Numero(u"segurodivisas");
        }
        const double total = suma(r, L("select sum(") + redondeado(QStringLiteral("fob"), u"00.00") + L(") as total from groupsubitems where interno = ") + interno(r), u"total");
        if (acumulado == 0 && ultimo > 0) acumulado = ultimo;
        if (Format(r.fobdivisas + acumulado, u"00.00") != Format(total, u"00.00")) {
            const double diferencia = centavos(total - (r.fobdivisas + acumulado));
            r.internos().Sql = L("select * from groupsubitems WHERE INTERNO = ") + interno(r) +
                               L(" and codprorrateo in(select codigo from prorrateo where groupsubitems.interno = prorrateo.interno) order by fob");
            Recordset fila;
            if (r.internos().crearrsActualizable(fila, QStringLiteral("groupsubitems"))) {
                const double fob = fila.Numero(u"Fob") - diferencia;
                fila.Poner(u"fob", fob);
                const double cantidad = fila.Numero(u"Cantidad");
                if (cantidad == 0) throw ErrorDeStore{11, QStringLiteral("INTERNOS"), QStringLiteral("División por cero"), {}};
                fila.Poner(u"preciounitario", fob / cantidad);
                fila.Update();
            }
        }
    }
    r.FobDeclarado = centavos(r.fobdivisas + acumulado);
    return Fase::Sigue;
}

/// A header amount over the items by FOB; the item with the largest share takes the residual.
void prorratearEnItems(ContextoArmado &r, const QString &columna, double importe, const char *cola, const char *orden) {
    r.ejecutar(L("update item set ") + columna + L(" = ") +
               redondeado(L("(FobTotal * ") + SqlNumber(importe) + L(")/") + SqlNumber(r.FobDeclarado), u"00.00") + L(cola) + interno(r));
    const double total = suma(r, L("select sum(") + columna + L(") as total from item where interno = ") + interno(r), u"total");
    const double diferencia = centavos(total - importe);
    if (diferencia == 0) return;
    r.internos().Sql = L("select top 2 * from item where interno = ") + interno(r) + L(" order by ") + L(orden) + L(" desc");
    Recordset fila;
    if (!r.internos().crearrsActualizable(fila, QStringLiteral("item"))) return;
    fila.Poner(QString(L(orden)), centavos(fila.Numero(QString(L(orden))) - diferencia));
    fila.Update();
}

}  // namespace

Fase ProrratearValor(ContextoArmado &r) {
    if (r.valoraprorratear == 0) return prorratearPorCodigos(r);
    prorratearSobreTodos(r);
    return Fase::Sigue;
}

void ProrratearFleteYSeguro(ContextoArmado &r) {
    prorratearEnItems(r, QStringLiteral("itFLETE"), r.fletedivisas, "  where interno = ", "itflete");
    prorratearEnItems(r, QStringLiteral("itSEGURO"), r.segurodivisas, " where interno = ", "itseguro");
}

void ProrratearComExt(ContextoArmado &r, double comision, double fobdeclarado) {
    const QString total = L("select sum(itcomext) as totalcomext from item where id<>0 and interno = ") + interno(r);
    r.ejecutar(L("update ITEM set ItComExt = ") + redondeado(L("(") + SqlNumber(comision) + L(" * FobTotal) / ") + SqlNumber(fobdeclarado), u"00.00") +
               L(" where id<>0 and interno = ") + interno(r));
    const double diferencia = centavos(comision - suma(r, total, u"totalcomext"));
    if (diferencia != 0) {
        r.internos().Sql = diferencia < 0 ? L("select top 1 * from item where id<>0 and interno = ") + interno(r) + L(" and itcomext> ") + SqlNumber(diferencia) +
                                                L(" order by itcomext desc")
                                          : L("select top 1 * from item where id<>0 and interno = ") + interno(r) + L(" order by itcomext asc");
        Recordset fila;
        if (r.internos().crearrsActualizable(fila, QStringLiteral("item"))) {
            fila.Poner(u"itcomext", centavos(fila.Numero(u"itcomext") + diferencia));
            fila.Update();
        }
    }
    r.ejecutar(L("update item set itcomext = ") + SqlNumber(suma(r, total, u"totalcomext")) + L(" where id=0 and interno = ") + interno(r));
}
