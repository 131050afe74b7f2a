// Statements that travel together: what nothing is asked of goes with what follows, what a loop will read is
// asked ahead of it. On a file nothing travels, and the answers are the same.
#include <gtest/gtest.h>

#include "frame/transaction.h"
#include "tests/support/tienda.h"
#include "tests/support/traza.h"

using namespace Qt::StringLiterals;

namespace {

class Viajes : public EnAmbosStores {
 protected:
    bool esServidor() const { return std::string(GetParam()) == "SQL"; }
    Conexion &internos() { return ctx->conexion(u"INTERNOS"_s); }
    void mandar(const QString &sql) { Mandar(*ctx, u"INTERNOS"_s, sql); }
    std::string divisas() { return filas(u"select id from divisas order by id"_s).toStdString(); }
    static QString alta(int id) { return u"insert into divisas (id,imp) values ('D%1',1)"_s.arg(id); }
    static QString mala() { return u"insert into divisas (columna) values (1)"_s; }
    /// What `hacer` raises.
    template <typename Hacer>
    static Falla loQueFalla(const Hacer &hacer) {
        try {
            hacer();
        } catch (const Falla &e) {
            return e;
        }
        ADD_FAILURE() << "nothing was told";
        return {};
    }
};
EN_AMBOS_STORES(Viajes);

TEST_P(Viajes, WithoutLightWritingACommandRunsAtOnceAndItsFailureIsItsOwn) {
    Registro otro;
    const auto segundo = tienda->contexto(otro);
    mandar(alta(1));
    Recordset rs;
    EXPECT_TRUE(Consultar(*segundo, u"INTERNOS"_s, u"select id from divisas"_s, rs));
    EXPECT_EQ(loQueFalla([&] { mandar(mala()); }).sentencia, mala());
}

TEST_P(Viajes, WhatWasToldHasRunWhenTheNextStatementReads) {
    EscrituraLigera ligera(internos());
    // More than one journey takes.
    for (int n = 100; n < 550; ++n) mandar(alta(n));
    EXPECT_EQ(valor(u"select count(*) from divisas"_s).toStdString(), "450");
    mandar(u"update divisas set imp = imp + 1 where id < 'D200'"_s);
    EXPECT_EQ(ejecutar(u"update divisas set imp = 5 where imp = 2"_s), 100);
    ligera.Terminar();
}

TEST_P(Viajes, WhatWasToldReachesTheStoreByTheEndOfLightWriting) {
    {
        EscrituraLigera ligera(internos());
        mandar(alta(1));
        ligera.Terminar();
    }
    {
        const EscrituraLigera ligera(internos());
        mandar(alta(2));
    }
    {
        const EscrituraLigera ligera(internos());
        mandar(alta(3));
        internos().cerrar();
    }
    EXPECT_EQ(divisas(), "D1\nD2\nD3");
}

TEST_P(Viajes, TheOneThatFailsIsToldWithItsWordsAndWhatStandsBehindItHasNotRun) {
    for (const int antes : {0, 3}) {
        ejecutar(u"delete from divisas"_s);
        EscrituraLigera ligera(internos());
        const Falla e = loQueFalla([&] {
            for (int n = 1; n <= antes; ++n) mandar(alta(n));
            mandar(mala());
            mandar(alta(8));
            valor(u"select count(*) from divisas"_s);
        });
        EXPECT_EQ(e.sentencia, mala());
        EXPECT_EQ(e.fuente, u"INTERNOS"_s);
        EXPECT_TRUE(e.descripcion.contains(u"columna"_s)) << e.descripcion.toStdString();
        EXPECT_EQ(divisas(), antes == 0 ? "" : "D1\nD2\nD3") << "what stands ahead of it stays done";
        mandar(alta(9));
        ligera.Terminar();
        EXPECT_TRUE(QString::fromStdString(divisas()).endsWith(u"D9"_s)) << "and the connection goes on";
    }
}

TEST_P(Viajes, AFailureInAJourneyThatNobodyWaitedForStopsTheNextOnes) {
    EscrituraLigera ligera(internos());
    const Falla e = loQueFalla([&] {
        mandar(mala());
        for (int n = 0; n < 1000; ++n) mandar(alta(n));
        ligera.Terminar();
    });
    EXPECT_EQ(e.sentencia, mala());
    EXPECT_EQ(divisas(), "");
}

TEST_P(Viajes, TheEndOfLightWritingTellsWhatFailed) {
    EscrituraLigera ligera(internos());
    const Falla e = loQueFalla([&] {
        mandar(alta(1));
        mandar(mala());
        ligera.Terminar();
    });
    EXPECT_EQ(e.sentencia, mala());
    EXPECT_EQ(divisas(), "D1");
    if (esServidor()) {
        EXPECT_EQ(valor(u"select current_setting('synchronous_commit')"_s).toStdString(), "on");
    }
}

TEST_P(Viajes, InsideATransactionWhatFailsTakesAllOfItAlong) {
    ejecutar(alta(1));
    {
        const EscrituraLigera ligera(internos());
        Transaccion transaccion(internos());
        const Falla e = loQueFalla([&] {
            mandar(alta(2));
            mandar(mala());
            mandar(alta(3));
            internos().Asentar();
        });
        EXPECT_EQ(e.sentencia, mala());
        EXPECT_TRUE(e.descripcion.contains(u"columna"_s)) << e.descripcion.toStdString();
    }
    EXPECT_EQ(divisas(), "D1");
}

TEST_P(Viajes, AnotherConnectionOfTheSameProcessFindsWhatWasTold) {
    const EscrituraLigera ligera(internos());
    mandar(alta(1));
    // The table of INTERNOS by its bare name.
    EXPECT_EQ(valor(u"select count(*) from divisas"_s, u"SYSTABLAS"_s).toStdString(), "1");
    mandar(alta(2));
    Registro otro;
    const auto segundo = tienda->contexto(otro);
    Recordset rs;
    Consultar(*segundo, u"INTERNOS"_s, u"select id from divisas"_s, rs);
    EXPECT_EQ(rs.RecordCount(), 2);
}

TEST_P(Viajes, TheTraceKeepsTheOrderInWhichTheModulesSpoke) {
    const EscrituraLigera ligera(internos());
    const Traza traza;
    mandar(alta(1));
    mandar(alta(2));
    valor(u"select count(*) from divisas"_s);
    EXPECT_EQ(traza.sentencias(), (QStringList{"INTERNOS|"_L1 + alta(1), "INTERNOS|"_L1 + alta(2),
                                               u"INTERNOS|select count(*) from divisas"_s}));
}

// What is asked ahead

TEST_P(Viajes, WhatWasAskedAheadAnswersEachTimeThatItWasAskedFor) {
    const QString cuantas = u"select count(*) as n from divisas"_s;
    ejecutar(alta(1));
    internos().Anticipar({cuantas, u"select id from divisas where id = 'no está'"_s, cuantas});
    ejecutar(alta(2));
    const std::string antes = esServidor() ? "1" : "2";
    EXPECT_EQ(valor(cuantas).toStdString(), antes);
    EXPECT_EQ(valor(cuantas).toStdString(), antes);
    EXPECT_EQ(valor(cuantas).toStdString(), "2") << "asked for a third time it is asked now";
    Recordset rs;
    EXPECT_FALSE(Consultar(*ctx, u"INTERNOS"_s, u"select id from divisas where id = 'no está'"_s, rs));
    EXPECT_EQ(rs.columnas(), 1);
}

TEST_P(Viajes, AnswersThatNobodyTookAreForgotten) {
    const QString cuantas = u"select count(*) as n from divisas"_s;
    internos().Anticipar({cuantas});
    ejecutar(alta(1));
    internos().OlvidarAnticipos();
    EXPECT_EQ(valor(cuantas).toStdString(), "1");
}

TEST_P(Viajes, ASelectThatFailsAheadIsToldToWhoAsksForIt) {
    const QString bien = u"select count(*) as n from divisas"_s;
    const QString mal = u"select columna from divisas"_s;
    const EscrituraLigera ligera(internos());
    mandar(alta(1));
    internos().Anticipar({bien, mal, u"select id from divisas"_s});
    EXPECT_EQ(valor(bien).toStdString(), "1");
    EXPECT_EQ(loQueFalla([&] { valor(mal); }).sentencia, mal);
    EXPECT_EQ(divisas(), "D1");
}

TEST_P(Viajes, ACommandThatFailsAheadOfThemIsToldAtOnce) {
    const EscrituraLigera ligera(internos());
    const Falla e = loQueFalla([&] {
        mandar(mala());
        internos().Anticipar({u"select id from divisas"_s});
        internos().Asentar();
    });
    EXPECT_EQ(e.sentencia, mala());
}

TEST_P(Viajes, ALoopReadsEveryTurnWhateverItsLength) {
    for (int n = 100; n < 250; ++n) ejecutar(alta(n));
    std::vector<QStringList> porVuelta;
    const auto sentencia = [](int n) { return u"select id from divisas where id = 'D%1'"_s.arg(n); };
    for (int n = 100; n < 250; ++n) porVuelta.push_back({sentencia(n), u"select 'x' as x"_s});
    LecturaAdelantada adelantada(internos(), porVuelta);
    for (int n = 100; n < 250; ++n) {
        adelantada.Vuelta();
        EXPECT_EQ(valor(sentencia(n)), u"D%1"_s.arg(n));
    }
    adelantada.Vuelta();
}

TEST_P(Viajes, TextsNumbersMomentsAndNullsComeBackAlikeAloneAndTogether) {
    ejecutar(
        u"insert into caratula (interno,fechaalta,fobdivisas,factura5) "
        "values ('Ñandú''s','2026-05-04 13:30:00',0.1,null)"_s);
    const QString sql = u"select interno,fechaalta,fobdivisas,factura5 from caratula"_s;
    Recordset sola;
    Consultar(*ctx, u"INTERNOS"_s, sql, sola);
    const std::vector<Recordset> juntas = internos().ConsultarSeguidas({sql, sql});
    for (const Recordset *rs : {&std::as_const(sola), &juntas.at(0), &juntas.at(1)}) {
        EXPECT_EQ(rs->Texto(u"interno"), u"Ñandú's"_s);
        EXPECT_EQ(rs->Texto(u"fechaalta"), u"2026-05-04 13:30:00"_s);
        EXPECT_EQ(rs->Fields(u"fobdivisas").Value, QVariant(0.1));
        EXPECT_TRUE(rs->EsNulo(u"factura5"));
    }
}

}  // namespace
