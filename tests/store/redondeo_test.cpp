#include "tests/support/redondeo.h"

#include <gtest/gtest.h>

#include <QByteArray>
#include <cmath>
#include <random>

#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/sqltext.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

/// The rule of rounding where the stores apply it: the same table as the program's own.
class RedondeoDelStore : public EnAmbosStores {
 protected:
    void TearDown() override { EnAmbosStores::TearDown(); }
    /// Puts the value into a numeric column, all its 17 digits.
    void poner(double v) {
        ejecutar(u"delete from divisas"_s);
        ejecutar("insert into divisas (id,imp) values ('X',"_L1 + QString::number(v, 'g', 17) + ")"_L1);
    }
    double numero(const QString &sql) {
        Recordset rs;
        Consultar(*ctx, u"INTERNOS"_s, sql, rs);
        return EsNumero(rs.Fields(0).Value);
    }
};
EN_AMBOS_STORES(RedondeoDelStore);

TEST_P(RedondeoDelStore, RoundFollowsTheTableUnderEitherSeparator) {
    for (const QChar separador : {QChar(u'.'), QChar(u',')}) {
        ctx->SeparadorDecimal = separador;
        for (const CasoDeRedondeo &c : CasosDeRedondeo()) {
            poner(c.valor);
            const double r = numero(u"select round(imp,%1) from divisas"_s.arg(c.decimales));
            EXPECT_EQ(r, c.esperado) << QByteArray::number(c.valor, 'g', 17).constData() << " to "
                                     << c.decimales;
            EXPECT_FALSE(r == 0 && std::signbit(r));
            ejecutar(u"update divisas set imp = ROUND(imp,%1)"_s.arg(c.decimales));
            EXPECT_EQ(numero(u"select imp from divisas"_s), c.esperado);
            EXPECT_EQ(numeros::redondear(c.valor, c.decimales), c.esperado);
        }
    }
}

TEST_P(RedondeoDelStore, TheStoreAndTheProgramAgreeOnManyValues) {
    std::mt19937_64 azar(20261122);
    std::uniform_real_distribution<double> mantisa(-1, 1);
    std::uniform_int_distribution<int> escala(-6, 13);
    std::uniform_int_distribution<int> forma(0, 2);
    std::vector<double> valores;
    QString sql = u"insert into divisas (id,imp) values "_s;
    for (int i = 0; i < 3000; ++i) {
        double v = mantisa(azar) * std::pow(10.0, escala(azar));
        // Beside a half is where they could part.
        if (forma(azar) > 0) v = (std::floor(v * 100) + 0.5) / 100;
        if (forma(azar) == 2) v = std::nextafter(v, 0);
        valores.push_back(v);
        sql += (i == 0 ? u"('"_s : u",('"_s) + QString::number(i) + "',"_L1 + QString::number(v, 'g', 17) +
               ")"_L1;
    }
    ejecutar(sql);
    for (const int decimales : {0, 2, 3, 5}) {
        Recordset rs;
        Consultar(*ctx, u"INTERNOS"_s, u"select id,round(imp,%1) as r from divisas"_s.arg(decimales), rs);
        ASSERT_EQ(rs.RecordCount(), 3000);
        for (; !rs.Eof(); rs.MoveNext()) {
            const double v = valores[static_cast<std::size_t>(rs.Numero(u"id"))];
            ASSERT_EQ(rs.Numero(u"r"), numeros::redondear(v, decimales))
                << QByteArray::number(v, 'g', 17).constData() << " to " << decimales;
        }
    }
}

TEST_P(RedondeoDelStore, SqlRoundRoundsAnExpressionInsideTheStatement) {
    ejecutar(u"insert into divisas (id,imp) values ('X',1.005)"_s);
    ejecutar(u"insert into divisas (id,imp) values ('Y',2)"_s);
    const auto redondeo = [this](const char *expresion, QStringView mascara) {
        return SqlRound(*ctx, u"INTERNOS"_s, QLatin1String(expresion), mascara);
    };
    EXPECT_EQ(
        valor("select "_L1 + redondeo("imp", u"00.00") + " from divisas where id = 'X'"_L1).toStdString(),
        "1.01");
    EXPECT_EQ(valor("select "_L1 + redondeo("imp / 3", u"00.00000") + " from divisas where id = 'Y'"_L1)
                  .toStdString(),
              "0.66667");
    EXPECT_EQ(valor("select "_L1 + redondeo("sum(imp)", u"00.00") + " as s from divisas"_L1).toStdString(),
              "3.01");
    EXPECT_EQ(ejecutar("update divisas set imp = "_L1 + redondeo("imp * 1.5", u"00.000")), 2);
    // 1.005 by 1.5 is 1.5075, half a thousandth: up.
    EXPECT_EQ(filas(u"select imp from divisas"_s).toStdString(), "1.508\n3");
}

TEST_P(RedondeoDelStore, ANullRoundsToANull) {
    ejecutar(u"insert into divisas (id) values ('X')"_s);
    EXPECT_EQ(valor(u"select round(imp,2) from divisas"_s).toStdString(), "<null>");
}

TEST_P(RedondeoDelStore, WhatFormatWritesIsWhatTheStoreHolds) {
    for (const QChar separador : {QChar(u'.'), QChar(u',')}) {
        ctx->SeparadorDecimal = separador;
        for (const double v : {1.005, -2.675, 0.285, 123456.785, 99.995, -0.004, 1234567.125}) {
            // The usual road of a field: its text, the mask, the entity's separator.
            const QString texto = AStoreNumero(numeros::Format(v, u"00.00", separador),
                                               ctx->DataManager.getDecimalSeparatorbyEntity(u"INTERNOS"_s));
            ejecutar(u"delete from divisas"_s);
            ejecutar("insert into divisas (id,imp) values ('X',"_L1 + texto + ")"_L1);
            EXPECT_EQ(numero(u"select imp from divisas"_s), numeros::redondear(v, 2)) << texto.toStdString();
            poner(v);
            EXPECT_EQ(numeros::Format(numero(u"select round(imp,2) from divisas"_s), u"00.00", separador),
                      numeros::Format(v, u"00.00", separador));
        }
    }
}

TEST_P(RedondeoDelStore, DivisionIsFloatingAndRefusesZero) {
    ejecutar(u"insert into divisas (id,imp) values ('X',7)"_s);
    EXPECT_EQ(valor(u"select round(imp / 2,2) from divisas"_s).toStdString(), "3.5");
    EXPECT_EQ(valor(u"select 7 / 2 from divisas"_s).toStdString(), "3.5");
    EXPECT_EQ(valor(u"select imp * 5 / 100 from divisas"_s).toStdString(), "0.35");
    EXPECT_EQ(valor(u"select count(*) / 2 from divisas"_s).toStdString(), "0.5");
    EXPECT_THROW(valor(u"select imp / 0 from divisas"_s), Falla);
    EXPECT_THROW(valor(u"select imp / (imp - 7) from divisas"_s), Falla);
    EXPECT_EQ(valor(u"select imp / null from divisas"_s).toStdString(), "<null>");
}

}  // namespace
