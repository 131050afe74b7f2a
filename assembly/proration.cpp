// Amounts of the header are spread by a rule of three on FOB, in cents. The header's total is law: one row
// always takes what the rounded shares leave over.

#include <QLocale>
#include <cmath>

#include "assembly/run.h"
#include "assembly/sql_text.h"
#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/sqltext.h"

using namespace Qt::StringLiterals;

using numeros::iguales;
using numeros::redondear;

namespace {

constexpr QStringView centavos = u"00.00";
constexpr QStringView unitario = u"00.00000";
constexpr int decimalesDeImporte = 2;
constexpr int decimalesDeUnitario = 5;
constexpr int decimalesDeDiferencia = 3;

QString redondeo(const ContextoArmado &r, const QString &expresion, QStringView mascara) {
    return SqlRound(r.ctx, u"INTERNOS"_s, expresion, mascara);
}

/// A number of the store for a test of equality: SqlNumber keeps 15 digits, and a sum may hold more.
QString numeroExacto(const ContextoArmado &r, double valor) {
    QString corto = SqlNumber(r.ctx, valor);
    if (numeros::aNumero(corto) == valor) return corto;
    return QString::number(valor, 'g', QLocale::FloatingPointShortest);
}

double cociente(double a, double b) {
    if (b == 0) throw Falla{11, u"ArmarItem"_s, u"División por cero"_s, {}};
    return a / b;
}

double total(const ContextoArmado &r, const QString &sql, QStringView columna) {
    Recordset rs;
    return r.consultar(sql, rs) ? rs.Numero(columna) : 0;
}

// Over all groups

void repartirEntreTodos(ContextoArmado &r) {
    const QString clave = EnComillas(r.interno);
    const double objetivo = redondear(r.fobdivisas + r.valoraprorratear, decimalesDeImporte);
    Recordset grupos;
    r.consultar("select distinct idsub,fob,cantidad,fob + ((  "_L1 + redondeo(r, u"fob"_s, centavos) +
                    " * "_L1 + SqlNumber(r.ctx, r.valoraprorratear) + ") / "_L1 +
                    SqlNumber(r.ctx, r.fobdivisas) + ") as valor from groupsubitems where interno = "_L1 +
                    clave,
                grupos);
    for (; !grupos.Eof(); grupos.MoveNext()) {
        const QString valor =
            SqlNumber(r.ctx, numeros::Format(grupos.Numero(u"valor"), centavos, r.ctx.SeparadorDecimal));
        r.ejecutar("update groupsubitems set fob = "_L1 + valor + ", preciounitario = "_L1 +
                   redondeo(r, valor + "/cantidad"_L1, unitario) + "  where interno = "_L1 + clave +
                   " and  idsub = "_L1 + grupos.Texto(u"idsub"));
    }
    r.ejecutar("update groupsubitems set fob = "_L1 + redondeo(r, u"fob"_s, centavos) +
               " where interno = "_L1 + clave);
    const double suma =
        total(r, "select sum(fob) as total from groupsubitems where interno = "_L1 + clave, u"total");
    if (!iguales(suma, objetivo, decimalesDeImporte)) {
        const double diferencia =
            redondear(objetivo - redondear(suma, decimalesDeImporte), decimalesDeDiferencia);
        Recordset uno;
        Conexion &internos = r.internos();
        internos.Sql = "select * from groupsubitems WHERE INTERNO = "_L1 + clave + " and fob >"_L1 +
                       PonerPuntoDecimal(std::abs(diferencia));
        if (internos.crearrsActualizable(uno, u"groupsubitems"_s)) {
            const double fob = redondear(uno.Numero(u"fob"), decimalesDeImporte) + diferencia;
            uno.Poner(u"fob", fob);
            uno.Poner(u"preciounitario",
                      redondear(cociente(fob, uno.Numero(u"cantidad")), decimalesDeUnitario));
            uno.Update();
        }
    }
    r.FobDeclarado = objetivo;
}

// By proration codes

/// Codes that no group carries stop the run: their amount would vanish.
Fase controlarCodigosSinUso(ContextoArmado &r) {
    const QString clave = EnComillas(r.interno);
    Recordset rs;
    if (!r.consultar("select codigo, descripcion from prorrateo where interno = "_L1 + clave +
                         " and codigo not in (select codprorrateo from groupsubitems where interno = "_L1 +
                         clave + ')'_L1,
                     rs))
        return Fase::Sigue;
    const QString raya(64, '-'_L1);
    QStringList lineas{raya, u"Se encontraron CODIGOS DE PRORRATEOS sin utilizar"_s,
                       u"No se puede continuar con el armado."_s, raya};
    for (; !rs.Eof(); rs.MoveNext())
        lineas << rs.Texto(u"codigo").trimmed() + " - "_L1 + rs.Texto(u"descripcion").trimmed();
    r.ctx.dialogos.advertir(lineas.join("\r\n"_L1));
    r.ctx.ChequeoArmado = u"NO"_s;
    return Fase::Corta;
}

void repartirCodigo(const ContextoArmado &r, const QString &codigo, double valor) {
    const QString donde =
        " interno = "_L1 + EnComillas(r.interno) + " and codprorrateo = "_L1 + EnComillas(codigo);
    Recordset suma;
    r.consultar("select sum(fob) as valor from groupsubitems where"_L1 + donde, suma);
    if (suma.EsNulo(u"valor")) return;
    Recordset grupos;
    r.consultar("select distinct fob,cantidad,fob + (("_L1 + redondeo(r, u"fob"_s, centavos) + " * "_L1 +
                    SqlNumber(r.ctx, valor) + ") / "_L1 + SqlNumber(r.ctx, suma.Numero(u"valor")) +
                    ") as valor from groupsubitems where"_L1 + donde,
                grupos);
    for (; !grupos.Eof(); grupos.MoveNext()) {
        const QString nuevo = SqlNumber(r.ctx, grupos.Numero(u"valor"));
        r.ejecutar("update groupsubitems set fob = "_L1 + nuevo + ", preciounitario = "_L1 +
                   redondeo(r, nuevo + "/cantidad"_L1, unitario) + " where fob = "_L1 +
                   numeroExacto(r, grupos.Numero(u"fob")) + " and cantidad = "_L1 +
                   numeroExacto(r, grupos.Numero(u"cantidad")) + " and"_L1 + donde);
    }
}

void ajustarCodigos(ContextoArmado &r, double suma) {
    const QString clave = EnComillas(r.interno);
    const double hay = total(r,
                             "select sum("_L1 + redondeo(r, u"fob"_s, centavos) +
                                 ") as total from groupsubitems where interno = "_L1 + clave,
                             u"total");
    if (iguales(r.fobdivisas + suma, hay, decimalesDeImporte)) return;
    const double diferencia = redondear(hay - (r.fobdivisas + suma), decimalesDeImporte);
    Recordset uno;
    Conexion &internos = r.internos();
    internos.Sql = "select * from groupsubitems WHERE INTERNO = "_L1 + clave +
                   " and codprorrateo in(select codigo from prorrateo where groupsubitems.interno = "
                   "prorrateo.interno) order by fob"_L1;
    if (!internos.crearrsActualizable(uno, u"groupsubitems"_s)) return;
    const double fob = uno.Numero(u"fob") - diferencia;
    uno.Poner(u"fob", fob);
    uno.Poner(u"preciounitario", cociente(fob, uno.Numero(u"cantidad")));
    uno.Update();
}

Fase repartirPorCodigos(ContextoArmado &r) {
    if (controlarCodigosSinUso(r) == Fase::Corta) return Fase::Corta;
    const QString clave = EnComillas(r.interno);
    double suma = 0;
    double ultimo = 0;
    Recordset codigos;
    const bool hay = r.consultar("select codigo,valor from prorrateo where interno = "_L1 + clave, codigos);
    for (; !codigos.Eof(); codigos.MoveNext()) {
        ultimo = codigos.Numero(u"valor");
        suma += ultimo;
        repartirCodigo(r, codigos.Texto(u"codigo"), ultimo);
    }
    if (hay) {
        Recordset caratula;
        r.consultar("select fobdivisas,fletedivisas,segurodivisas from caratula where interno = "_L1 + clave,
                    caratula);
        r.fobdivisas = caratula.Numero(u"fobdivisas");
        r.fletedivisas = caratula.Numero(u"fletedivisas");
        r.segurodivisas = caratula.Numero(u"segurodivisas");
        if (suma == 0 && ultimo > 0) suma = ultimo;
        ajustarCodigos(r, suma);
    }
    r.FobDeclarado = redondear(r.fobdivisas + suma, decimalesDeImporte);
    return Fase::Sigue;
}

// Over the items

/// The item with the largest share gives back, or takes, what the rounded shares leave.
void ajustarItems(const ContextoArmado &r, QLatin1StringView columna, QLatin1StringView enOrden,
                  double importe) {
    const QString clave = EnComillas(r.interno);
    const double suma =
        total(r, "select sum("_L1 + columna + ") as total from item where interno = "_L1 + clave, u"total");
    if (iguales(suma, importe, decimalesDeImporte)) return;
    Recordset uno;
    Conexion &internos = r.internos();
    internos.Sql =
        "select top 2 * from item where interno = "_L1 + clave + " order by "_L1 + enOrden + " desc"_L1;
    if (!internos.crearrsActualizable(uno, u"item"_s)) return;
    const QString nombre = QString(enOrden);
    uno.Poner(nombre, uno.Numero(nombre) - redondear(suma - importe, decimalesDeImporte));
    uno.Update();
}

}  // namespace

Fase ProrratearValor(ContextoArmado &r) {
    if (r.valoraprorratear == 0) return repartirPorCodigos(r);
    repartirEntreTodos(r);
    return Fase::Sigue;
}

void ProrratearFleteYSeguro(ContextoArmado &r) {
    const QString clave = EnComillas(r.interno);
    const auto porFob = [&r](double importe) {
        return redondeo(
            r, "(FobTotal * "_L1 + SqlNumber(r.ctx, importe) + ")/"_L1 + SqlNumber(r.ctx, r.FobDeclarado),
            centavos);
    };
    r.ejecutar("update item set itFLETE = "_L1 + porFob(r.fletedivisas) + "  where interno = "_L1 + clave);
    ajustarItems(r, "itFLETE"_L1, "itflete"_L1, r.fletedivisas);
    r.ejecutar("update item set itSEGURO = "_L1 + porFob(r.segurodivisas) + " where interno = "_L1 + clave);
    ajustarItems(r, "itSEGURO"_L1, "itseguro"_L1, r.segurodivisas);
}

void ProrratearComExt(ContextoArmado &r, double comision, double fobdeclarado) {
    const QString clave = EnComillas(r.interno);
    r.ejecutar(
        "update ITEM set ItComExt = "_L1 +
        redondeo(r,
                 "("_L1 + SqlNumber(r.ctx, comision) + " * FobTotal) / "_L1 + SqlNumber(r.ctx, fobdeclarado),
                 centavos) +
        " where id<>0 and interno = "_L1 + clave);
    const QString sumar =
        "select sum(itcomext) as totalcomext from item where id<>0 and interno = "_L1 + clave;
    const double diferencia = redondear(comision - total(r, sumar, u"totalcomext"), decimalesDeImporte);
    if (diferencia != 0) {
        Conexion &internos = r.internos();
        internos.Sql = diferencia < 0 ? "select top 1 * from item where id<>0 and interno = "_L1 + clave +
                                            " and itcomext> "_L1 + SqlNumber(r.ctx, diferencia) +
                                            " order by itcomext desc"_L1
                                      : "select top 1 * from item where id<>0 and interno = "_L1 + clave +
                                            " order by itcomext asc"_L1;
        Recordset uno;
        if (internos.crearrsActualizable(uno, u"item"_s)) {
            uno.Poner(u"itcomext", uno.Numero(u"itcomext") + diferencia);
            uno.Update();
        }
    }
    // Each store adds in an order of its own, and a sum of cents carries a trace of that, which is no amount.
    constexpr int decimalesSeguros = 8;
    r.ejecutar("update item set itcomext = "_L1 +
               SqlNumber(r.ctx, numeros::redondear(total(r, sumar, u"totalcomext"), decimalesSeguros)) +
               " where id=0 and interno = "_L1 + clave);
}
