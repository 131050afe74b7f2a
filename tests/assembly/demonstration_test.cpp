// The demonstration operations, assembled on both stores at once: every derived row must be the same.

#include <gtest/gtest.h>

#include <QRandomGenerator>

#include "assembly/run.h"
#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/sqltext.h"
#include "liquidation/review.h"
#include "tests/assembly/operacion.h"

using namespace Qt::StringLiterals;

namespace {

constexpr const char *operaciones[] = {"IC-2026-0001",  "EC-2026-0002", "IT-2026-0003", "DJAI-2026-0004",
                                       "ICR-2026-0005", "EC-2026-0006", "IT-2026-0007", "EC-2026-0008"};

// Tables and what keeps them in one order whatever the store. The advantages linked to articles are the
// server's alone, so they are left out.
struct Derivada {
    const char *tabla;
    const char *orden;
    const char *sin;
};
constexpr Derivada derivadas[] = {
    {"subitems", "id", ""},
    {"groupsubitems", "idsub,ncm,preciounitario", ""},
    {"idrel", "idroot,idsub", ""},
    {"item", "id", ""},
    {"itemliq", "iditem,idconceptos", ""},
    {"itemventaja", "iditem,idventaja", " and idventaja not in (select ventaja from articulo_ventaja)"},
    {"iteminfo", "iditem,idinfo", ""},
    {"sysflag", "flag", ""},
    {"liqcero", "idconcepto,pgc", ""},
};

QStringList leer(AppContext &ctx, const Derivada &d, const QString &interno) {
    Recordset rs;
    Consultar(ctx, u"INTERNOS"_s,
              "select * from "_L1 + QLatin1StringView(d.tabla) + " where interno = '"_L1 + interno + '\''_L1 +
                  QLatin1StringView(d.sin) + " order by "_L1 + QLatin1StringView(d.orden),
              rs);
    QStringList lineas;
    for (; !rs.Eof(); rs.MoveNext()) {
        QStringList celdas;
        for (int c = 0; c < rs.columnas(); ++c) {
            const QVariant valor = rs.Fields(c).Value;
            celdas << rs.nombreDeColumna(c).toLower() + '='_L1 +
                          (valor.isNull() ? u"<null>"_s : EsNull(valor));
        }
        lineas << celdas.join(' '_L1);
    }
    return lineas;
}

/// The recalculation as item 0 that follows a run.
void liquidar(AppContext &ctx, const QString &interno) {
    ctx.opciones.IVARIN = 21;
    ctx.opciones.IVARNI = 10.5;
    ctx.LiquidacionPendiente = true;
    ClassLiquidacion calculo(ctx, interno);
    EXPECT_TRUE(CargarCaratulaEnCalculadora(ctx, interno, calculo));
    EXPECT_TRUE(RecalcularOperacion(ctx, interno, calculo).escrito);
}

QStringList dichos(const Registro &registro) {
    QStringList lista;
    for (const Mensaje &m : registro.mensajes) lista << m.texto;
    for (const Pregunta &p : registro.preguntas) lista << p.texto;
    for (const Informe &i : registro.informes) lista << i.texto;
    return lista;
}

struct Variante {
    int ARMARITEM;
    const char *VrySbtDup;
    ModoDescripcion modo;
    bool sinDescripcion;
    bool multa;
};
constexpr Variante variantes[] = {
    {1, "N", ModoDescripcion::Maria, false, true},
    {2, "S", ModoDescripcion::Catalogo, false, false},
    {2, "N", ModoDescripcion::Ninguno, true, false},
};

/// Compares every derived row of `interno`; `a` is the file store's. Where lines that differ in the case of
/// their letters fold, each store keeps the spelling of a line of its own choice.
void comparar(AppContext &a, AppContext &s, const QString &interno) {
    for (const Derivada &d : derivadas) {
        const QStringList una = leer(a, d, interno);
        const QStringList otra = leer(s, d, interno);
        ASSERT_EQ(una.size(), otra.size()) << interno.toStdString() << ' ' << d.tabla;
        for (qsizetype n = 0; n < una.size(); ++n)
            EXPECT_EQ(una[n].toLower().toStdString(), otra[n].toLower().toStdString())
                << interno.toStdString() << ' ' << d.tabla;
    }
}

/// Lines as people leave them: nulls, blanks, accents, letters in either case, stray texts, repeated prices.
/// What the link back does not compare follows from what it does, so that one line answers for a group on
/// both stores.
QStringList lineasDesprolijas(const QString &interno, quint32 semilla) {
    QRandomGenerator azar(semilla);
    const auto uno = [&azar](std::initializer_list<const char16_t *> valores) {
        return QString::fromUtf16(valores.begin()[azar.bounded(static_cast<int>(valores.size()))]);
    };
    QStringList sentencias;
    for (int n = 0; n < 400; ++n) {
        const double precio = 1 + azar.bounded(40) * 0.005;
        const int cantidad = azar.bounded(1, 9);
        const bool enKilos = azar.bounded(4) == 0;
        const QString unidad = enKilos ? u"'01','01'"_s : u"'07','07'"_s;
        sentencias << u"insert into subitems (interno,ncm,idunidad,estadistica,cantidad,preciounitario,fob,"
                      "idarticulo,idcatalogo,descripcion,descripcion_maria,idpais,idpaisproc,estadomerc,"
                      "sufijos,biendeuso,tipoitem,itfiller,insumostemp,ajusteincluir,"
                      "valorrelacionestadistica,valorderesp,kgneto,kgbruto,codigoean) "
                      "values ('%1',%2,%3,%4,%5,%6,%7,'CAT','Válvula','VÁLVULA',%8,%9,%10,%11,%12,%13,%14,"
                      "%15,%16,%17,%18,%19,1.5,%20)"_s
                          .arg(interno,
                               uno({u"'8413.70.10.100L'", u"'8414.80.11.000W'", u"'8413.70.10.100l'"}),
                               unidad)
                          .arg(cantidad)
                          .arg(precio)
                          .arg(precio * cantidad, 0, 'f', 4)
                          .arg(uno({u"'A'", u"'B'", u"'Ñandú'", u"'ÑANDú'"}))
                          .arg(uno({u"'203'", u"'310'", u"null", u"''"}))
                          .arg(uno({u"'203'", u"null"}))
                          .arg(uno({u"'1'", u"'2'", u"null"}))
                          .arg(uno({u"'AA01-AB(Marca Ñ)-ZB(000750)'", u"'aa01-ab(MARCA Ñ)-zb(000750)-'"}))
                          .arg(uno({u"'N'", u"''", u"null", u"'S'"}))
                          .arg(uno({u"'N'", u"''", u"null"}))
                          .arg(uno({u"null", u"''", u"'LISTA:306'"}))
                          .arg(uno({u"null", u"'abc'", u"'0.5'"}))
                          .arg(uno({u"null", u"''", u"'2'"}))
                          .arg(uno({u"0", u"0"}))
                          .arg(uno({u"null", u"0"}))
                          .arg(uno({u"null", u"0", u"2.25"}))
                          .arg(uno({u"null", u"''"}));
    }
    return sentencias;
}

double total(AppContext &ctx, const QString &sql) {
    Recordset rs;
    return Consultar(ctx, u"INTERNOS"_s, sql, rs) ? EsNumero(rs.Fields(0).Value) : 0;
}

/// What must hold of any finished run, whatever its lines: amounts of the header are met to the cent, and no
/// measure is lost between lines, groups and items.
void cuadrar(AppContext &ctx, const QString &interno, double fobDeclarado, bool repartido) {
    const QString donde = " where interno = '"_L1 + interno + '\''_L1;
    const auto deItems = [&](const char *columna) {
        return total(ctx, "select sum("_L1 + QLatin1StringView(columna) + ") as t from item"_L1 + donde +
                              " and id <> 0"_L1);
    };
    const auto deGrupos = [&](const char *columna) {
        return total(ctx,
                     "select sum("_L1 + QLatin1StringView(columna) + ") as t from groupsubitems"_L1 + donde);
    };
    const auto deLineas = [&](const char *columna) {
        return total(ctx, "select sum("_L1 + QLatin1StringView(columna) + ") as t from subitems"_L1 + donde);
    };
    constexpr double menosDeMedioCentavo = 0.004;
    const std::string que = interno.toStdString();
    EXPECT_NEAR(deItems("itflete"), 333.33, menosDeMedioCentavo) << que;
    EXPECT_NEAR(deItems("itseguro"), 44.44, menosDeMedioCentavo) << que;
    EXPECT_NEAR(deItems("itcomext"), 77.77, menosDeMedioCentavo) << que;
    EXPECT_NEAR(total(ctx, "select itcomext from item"_L1 + donde + " and id = 0"_L1), 77.77,
                menosDeMedioCentavo)
        << que;
    EXPECT_NEAR(deItems("totalkneto"), 9000, menosDeMedioCentavo) << que;
    EXPECT_NEAR(deGrupos("kgneto"), 9000, menosDeMedioCentavo) << que;
    EXPECT_EQ(total(ctx, "select count(*) as n from groupsubitems"_L1 + donde + " and kgneto < 0.01"_L1), 0)
        << que;
    EXPECT_EQ(total(ctx, "select totalkneto from item"_L1 + donde + " and id = 0"_L1), 9000) << que;
    EXPECT_NEAR(deItems("fobtotal"), deGrupos("fob"), menosDeMedioCentavo) << que;
    if (repartido) {
        EXPECT_NEAR(deItems("fobtotal"), fobDeclarado, menosDeMedioCentavo) << que;
    }
    for (const char *columna : {"cantidad", "insumostemp"}) {
        EXPECT_NEAR(deGrupos(columna), deLineas(columna), 1e-6) << que << ' ' << columna;
        EXPECT_NEAR(deItems(columna), deLineas(columna), 1e-6) << que << ' ' << columna;
    }
    EXPECT_NEAR(deGrupos("ajusteincluir"), deLineas("ajusteincluir"), 1e-6) << que;
    EXPECT_NEAR(deItems("ajusteinc"), deLineas("ajusteincluir"), 1e-6) << que;
    EXPECT_NEAR(deItems("totalkbruto"), deLineas("kgbruto"), 1e-6) << que;
    // Every line is a root or was folded into one, and once only.
    EXPECT_EQ(total(ctx, "select count(*) as n from groupsubitems"_L1 + donde) +
                  total(ctx, "select count(*) as n from idrel"_L1 + donde),
              total(ctx, "select count(*) as n from subitems"_L1 + donde))
        << que;
    // Every group has its item, and items are numbered without gaps.
    EXPECT_EQ(total(ctx, "select count(*) as n from groupsubitems"_L1 + donde +
                             " and (id is null or id not in (select id from item"_L1 + donde + "))"_L1),
              0)
        << que;
    EXPECT_EQ(total(ctx, "select max(id) as n from item"_L1 + donde),
              total(ctx, "select count(*) as n from item"_L1 + donde + " and id <> 0"_L1))
        << que;
}

}  // namespace

TEST(DemostracionEnLosDosStores, UntidyLinesComeOutAlike) {
    const Tienda archivos(u"ACCESS"_s, true);
    const Tienda servidor(u"SQL"_s, true);
    Registro enArchivos;
    Registro enServidor;
    const auto a = archivos.contexto(enArchivos);
    const auto s = servidor.contexto(enServidor);
    for (const quint32 semilla : {1U, 2U, 3U}) {
        const QString interno = u"DESPROLIJA-%1"_s.arg(semilla);
        const double repartir = semilla == 1 ? 0 : 123.45;
        double fob = 0;
        const auto correr = [&](AppContext &ctx, Registro &registro) {
            fijarContexto(&ctx);
            registro = {};
            Ejecutar(ctx, u"INTERNOS"_s,
                     u"insert into caratula (interno,idsubreg,cuitcliente,fobdivisas,fletedivisas,"
                     "segurodivisas,valoraprorratear,dckgneto,dccomext,factura8) "
                     "values ('%1','IC04','30708123451',0,333.33,44.44,%2,9000,77.77,'S')"_s.arg(interno)
                         .arg(repartir));
            for (const QString &sql : lineasDesprolijas(interno, semilla)) Ejecutar(ctx, u"INTERNOS"_s, sql);
            fob = numeros::redondear(
                total(ctx, "select sum(fob) as t from subitems where interno = '"_L1 + interno + '\''_L1), 2);
            Ejecutar(ctx, u"INTERNOS"_s,
                     u"update caratula set fobdivisas = %1 where interno = '%2'"_s.arg(SqlNumber(ctx, fob),
                                                                                       interno));
            ctx.opciones.VrySbtDup = semilla == 3 ? u"S"_s : u"N"_s;
            ctx.ChequeoArmado = u"SI"_s;
            EXPECT_TRUE(Generar(ctx, interno, {.ARMARITEM = semilla == 2 ? 1 : 2}))
                << dichos(registro).join(" / "_L1).toStdString();
            EXPECT_EQ(ctx.ChequeoArmado, u"SI"_s) << dichos(registro).join(" / "_L1).toStdString();
            cuadrar(ctx, interno, fob + repartir, repartir != 0);
            liquidar(ctx, interno);
        };
        correr(*a, enArchivos);
        correr(*s, enServidor);
        EXPECT_EQ(dichos(enArchivos), dichos(enServidor)) << semilla;
        comparar(*a, *s, interno);
        EXPECT_GT(leer(*a, derivadas[1], interno).size(), 50) << semilla;
    }
    fijarContexto(nullptr);
}

TEST(DemostracionEnLosDosStores, EveryDerivedRowIsTheSame) {
    const Tienda archivos(u"ACCESS"_s, true);
    const Tienda servidor(u"SQL"_s, true);
    Registro enArchivos;
    Registro enServidor;
    const auto a = archivos.contexto(enArchivos);
    const auto s = servidor.contexto(enServidor);
    for (const Variante &v : variantes) {
        for (const char *operacion : operaciones) {
            const QString interno = QLatin1StringView(operacion);
            const auto correr = [&](AppContext &ctx, Registro &registro) {
                fijarContexto(&ctx);
                registro = {};
                registro.respuestas = {true, true, true};
                registro.textos = {u"26001TLR100001X"_s};
                ctx.opciones.VrySbtDup = QLatin1StringView(v.VrySbtDup);
                ctx.ChequeoArmado = u"SI"_s;
                EXPECT_TRUE(Generar(ctx, interno,
                                    {.ARMARITEM = v.ARMARITEM,
                                     .ChMulta = v.multa,
                                     .chkCalcularServicioDigitalizacion = v.multa,
                                     .sinDescripcion = v.sinDescripcion,
                                     .modo = v.modo}))
                    << operacion << ": " << dichos(registro).join(" / "_L1).toStdString();
                EXPECT_EQ(ctx.ChequeoArmado, u"SI"_s) << operacion;
                liquidar(ctx, interno);
            };
            // A workstation with a point beside one with a comma.
            a->SeparadorDecimal = u'.';
            correr(*a, enArchivos);
            s->SeparadorDecimal = u',';
            correr(*s, enServidor);
            EXPECT_EQ(dichos(enArchivos), dichos(enServidor)) << operacion;
            comparar(*a, *s, interno);
            EXPECT_GT(leer(*a, derivadas[3], interno).size(), 1) << operacion;
        }
    }
    fijarContexto(nullptr);
}
