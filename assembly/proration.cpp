// Amounts of the header are spread by a rule of three on FOB, in cents. The header's total is law: one row
// always takes what the rounded shares leave over.

#include <QLocale>
#include <cmath>

#include "assembly/phases.h"
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

// Over all groups

/// The first group above the difference takes it.
void ajustarGrupos(const ContextoArmado &r, double objetivo) {
    const double suma =
        r.numero("select sum(fob) as total from groupsubitems where interno = "_L1 + r.clave(), u"total");
    if (iguales(suma, objetivo, decimalesDeImporte)) return;
    const double diferencia =
        redondear(objetivo - redondear(suma, decimalesDeImporte), decimalesDeDiferencia);
    Recordset uno;
    if (!r.abrirActualizable(
            u"select * from groupsubitems "
            "WHERE INTERNO = %1 and fob >%2"_s.arg(r.clave(), PonerPuntoDecimal(std::abs(diferencia))),
            uno, u"groupsubitems"_s))
        return;
    const double fob = redondear(uno.Numero(u"fob"), decimalesDeImporte) + diferencia;
    uno.Poner(u"fob", fob);
    uno.Poner(u"preciounitario", redondear(cociente(fob, uno.Numero(u"cantidad")), decimalesDeUnitario));
    uno.Update();
}

void repartirEntreTodos(ContextoArmado &r) {
    const double objetivo = redondear(r.fobdivisas + r.valoraprorratear, decimalesDeImporte);
    Recordset grupos;
    r.consultar(
        u"select distinct idsub,fob,cantidad,fob + ((  %1 * %2) / %3) as valor "
        "from groupsubitems "
        "where interno = %4"_s.arg(redondeo(r, u"fob"_s, centavos), SqlNumber(r.ctx, r.valoraprorratear),
                                   SqlNumber(r.ctx, r.fobdivisas), r.clave()),
        grupos);
    for (; !grupos.Eof(); grupos.MoveNext()) {
        const QString valor =
            SqlNumber(r.ctx, numeros::Format(grupos.Numero(u"valor"), centavos, r.ctx.SeparadorDecimal));
        r.mandar(
            u"update groupsubitems set fob = %1, preciounitario = %2  "
            "where interno = %3 and  idsub = %4"_s.arg(valor, redondeo(r, valor + "/cantidad"_L1, unitario),
                                                       r.clave(), grupos.Texto(u"idsub")));
    }
    r.mandar(
        u"update groupsubitems set fob = %1 "
        "where interno = %2"_s.arg(redondeo(r, u"fob"_s, centavos), r.clave()));
    ajustarGrupos(r, objetivo);
    r.FobDeclarado = objetivo;
}

// By proration codes

/// Codes that no group carries stop the run: their amount would vanish.
Fase controlarCodigosSinUso(ContextoArmado &r) {
    Recordset rs;
    if (!r.consultar(
            u"select codigo, descripcion from prorrateo "
            "where interno = %1 "
            "and codigo not in (select codprorrateo from groupsubitems where interno = %1)"_s.arg(r.clave()),
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
    const QString donde = u" interno = %1 and codprorrateo = %2"_s.arg(r.clave(), EnComillas(codigo));
    Recordset suma;
    r.consultar(
        "select sum(fob) as valor from groupsubitems "
        "where"_L1 +
            donde,
        suma);
    if (suma.EsNulo(u"valor")) return;
    Recordset grupos;
    r.consultar(
        u"select distinct fob,cantidad,fob + ((%1 * %2) / %3) as valor "
        "from groupsubitems "
        "where%4"_s.arg(redondeo(r, u"fob"_s, centavos), SqlNumber(r.ctx, valor),
                        SqlNumber(r.ctx, suma.Numero(u"valor")), donde),
        grupos);
    for (; !grupos.Eof(); grupos.MoveNext()) {
        const QString nuevo = SqlNumber(r.ctx, grupos.Numero(u"valor"));
        r.mandar(
            u"update groupsubitems set fob = %1, preciounitario = %2 "
            "where fob = %3 and cantidad = %4 and%5"_s.arg(
                nuevo, redondeo(r, nuevo + "/cantidad"_L1, unitario), numeroExacto(r, grupos.Numero(u"fob")),
                numeroExacto(r, grupos.Numero(u"cantidad")), donde));
    }
}

/// The first group of a code, by FOB, takes what the rounded shares leave.
void ajustarCodigos(ContextoArmado &r, double suma) {
    const double hay = r.numero(
        u"select sum(%1) as total from groupsubitems "
        "where interno = %2"_s.arg(redondeo(r, u"fob"_s, centavos), r.clave()),
        u"total");
    if (iguales(r.fobdivisas + suma, hay, decimalesDeImporte)) return;
    const double diferencia = redondear(hay - (r.fobdivisas + suma), decimalesDeImporte);
    Recordset uno;
    if (!r.abrirActualizable(u"select * from groupsubitems "
                             "WHERE INTERNO = %1 "
                             "and codprorrateo in(select codigo from prorrateo "
                             "where groupsubitems.interno = prorrateo.interno) "
                             "order by fob"_s.arg(r.clave()),
                             uno, u"groupsubitems"_s))
        return;
    const double fob = uno.Numero(u"fob") - diferencia;
    uno.Poner(u"fob", fob);
    uno.Poner(u"preciounitario", cociente(fob, uno.Numero(u"cantidad")));
    uno.Update();
}

Fase repartirPorCodigos(ContextoArmado &r) {
    if (controlarCodigosSinUso(r) == Fase::Corta) return Fase::Corta;
    double suma = 0;
    double ultimo = 0;
    Recordset codigos;
    const bool hay =
        r.consultar("select codigo,valor from prorrateo where interno = "_L1 + r.clave(), codigos);
    for (; !codigos.Eof(); codigos.MoveNext()) {
        ultimo = codigos.Numero(u"valor");
        suma += ultimo;
        repartirCodigo(r, codigos.Texto(u"codigo"), ultimo);
    }
    if (hay) {
        Recordset caratula;
        r.consultar(
            "select fobdivisas,fletedivisas,segurodivisas from caratula "
            "where interno = "_L1 +
                r.clave(),
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
    const double suma = r.numero(
        u"select sum(%1) as total from item "
        "where interno = %2"_s.arg(columna, r.clave()),
        u"total");
    if (iguales(suma, importe, decimalesDeImporte)) return;
    Recordset uno;
    if (!r.abrirActualizable(u"select top 2 * from item "
                             "where interno = %1 order by %2 desc"_s.arg(r.clave(), enOrden),
                             uno, u"item"_s))
        return;
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
    const auto porFob = [&r](double importe) {
        return redondeo(
            r, u"(FobTotal * %1)/%2"_s.arg(SqlNumber(r.ctx, importe), SqlNumber(r.ctx, r.FobDeclarado)),
            centavos);
    };
    r.mandar(
        u"update item set itFLETE = %1  "
        "where interno = %2"_s.arg(porFob(r.fletedivisas), r.clave()));
    ajustarItems(r, "itFLETE"_L1, "itflete"_L1, r.fletedivisas);
    r.mandar(
        u"update item set itSEGURO = %1 "
        "where interno = %2"_s.arg(porFob(r.segurodivisas), r.clave()));
    ajustarItems(r, "itSEGURO"_L1, "itseguro"_L1, r.segurodivisas);
}

void ProrratearComExt(ContextoArmado &r, double comision, double fobdeclarado) {
    const QString clave = r.clave();
    r.mandar(
        u"update ITEM set ItComExt = %1 "
        "where id<>0 and interno = %2"_s.arg(
            redondeo(
                r, u"(%1 * FobTotal) / %2"_s.arg(SqlNumber(r.ctx, comision), SqlNumber(r.ctx, fobdeclarado)),
                centavos),
            clave));
    const auto sumaDeItems = [&r, &clave] {
        return r.numero(
            "select sum(itcomext) as totalcomext from item "
            "where id<>0 and interno = "_L1 +
                clave,
            u"totalcomext");
    };
    const double diferencia = redondear(comision - sumaDeItems(), decimalesDeImporte);
    if (diferencia != 0) {
        const QString elQueToma = diferencia < 0
                                      ? u"select top 1 * from item "
                                        "where id<>0 and interno = %1 and itcomext> %2 "
                                        "order by itcomext desc"_s.arg(clave, SqlNumber(r.ctx, diferencia))
                                      : u"select top 1 * from item "
                                        "where id<>0 and interno = %1 "
                                        "order by itcomext asc"_s.arg(clave);
        Recordset uno;
        if (r.abrirActualizable(elQueToma, uno, u"item"_s)) {
            uno.Poner(u"itcomext", uno.Numero(u"itcomext") + diferencia);
            uno.Update();
        }
    }
    // Each store adds in an order of its own, and a sum of cents carries a trace of that, which is no amount.
    constexpr int decimalesSeguros = 8;
    r.mandar(
        u"update item set itcomext = %1 "
        "where id=0 and interno = %2"_s.arg(SqlNumber(r.ctx, redondear(sumaDeItems(), decimalesSeguros)),
                                            clave));
}
