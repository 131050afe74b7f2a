// Connections that are lost: made again without a word where nothing of them is missed, one failure where
// something is, and never half of what was asked for.
#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QSqlQuery>
#include <chrono>
#include <thread>

#include "frame/store/engines.h"
#include "frame/transaction.h"
#include "tests/store/caidas.h"
#include "tests/support/intermediario.h"

using namespace Qt::StringLiterals;

namespace {

/// How a connection is lost while nobody uses it, and the server is there again.
enum class Perdida { Potencia, Rapida, Corte };

class PerdidaEnReposo : public Caidas, public ::testing::WithParamInterface<Perdida> {
 protected:
    void perder() {
        if (GetParam() == Perdida::Corte)
            servidor.cortarConexiones();
        else
            servidor.reiniciar(GetParam() == Perdida::Rapida ? ServidorPropio::Parada::Rapida
                                                             : ServidorPropio::Parada::Inmediata);
    }
};
std::string nombreDe(const ::testing::TestParamInfo<Perdida> &caso) {
    switch (caso.param) {
        case Perdida::Potencia:
            return "Potencia";
        case Perdida::Rapida:
            return "Rapida";
        default:
            return "Corte";
    }
}
INSTANTIATE_TEST_SUITE_P(Maneras, PerdidaEnReposo,
                         ::testing::Values(Perdida::Potencia, Perdida::Rapida, Perdida::Corte), nombreDe);

TEST_P(PerdidaEnReposo, EveryKindOfStatementGoesOnWithoutAWord) {
    ejecutar(u"insert into divisas (id,imp) values ('DOL',1)"_s);
    const std::pair<const char *, std::function<void()>> clases[] = {
        {"select", [&] { EXPECT_EQ(valor(u"select id from divisas"_s), "DOL"); }},
        {"command", [&] { EXPECT_EQ(ejecutar(u"update divisas set imp = imp + 1"_s), 1); }},
        {"commands together",
         [&] {
             internos().EjecutarSeguidas(
                 {u"update divisas set imp = imp + 1"_s, u"update divisas set imp = imp + 1"_s});
         }},
        {"commands sent",
         [&] {
             internos().MandarSeguidas(
                 {u"update divisas set imp = imp + 1"_s, u"update divisas set imp = imp + 1"_s});
             internos().Asentar();
         }},
        {"selects together",
         [&] {
             auto filas = internos().ConsultarSeguidas({u"select id from divisas"_s, u"select 7 as n"_s});
             ASSERT_EQ(filas.size(), 2U);
             EXPECT_EQ(filas[0].Texto(u"id").toStdString(), "DOL");
             EXPECT_EQ(filas[1].Numero(u"n"), 7);
         }},
        {"engine's handle",
         [&] {
             QSqlQuery consulta(internos().coneccion());
             ASSERT_TRUE(consulta.exec(u"update divisas set imp = imp + 1"_s));
         }},
        {"transaction",
         [&] {
             Transaccion t(internos());
             ejecutar(u"update divisas set imp = imp + 1"_s);
             t.Confirmar();
         }},
        {"table of one's own",
         [&] {
             const TablaPropia propia(internos(), u"divisas"_s);
             EXPECT_EQ(valor(u"select id from divisas"_s), "<nada>");
         }},
        {"light writing",
         [&] {
             EscrituraLigera ligera(internos());
             ejecutar(u"update divisas set imp = imp + 1"_s);
             ligera.Terminar();
         }},
    };
    // Each command once: command 1, together 2, sent 2, handle 1, transaction 1, light 1 = 8; the first is 1.
    for (const auto &[clase, hacer] : clases) {
        SCOPED_TRACE(clase);
        perder();
        EXPECT_EQ(textoDe(hacer), "");
    }
    EXPECT_EQ(valor(u"select imp from divisas"_s), "9");
}

TEST_P(PerdidaEnReposo, ARowReadBeforeIsChangedAfterwards) {
    ejecutar(u"insert into divisas (id,imp) values ('DOL',1)"_s);
    ejecutar(u"insert into divisas (id,imp) values ('DOL',1)"_s);
    Recordset rs;
    internos().Sql = u"select * from divisas"_s;
    ASSERT_TRUE(internos().crearrsActualizable(rs, u"divisas"_s));
    rs.MoveNext();
    rs.Poner(u"imp", 5);
    perder();
    EXPECT_EQ(textoDe([&] { rs.Update(); }), "");
    EXPECT_EQ(fuera(u"select string_agg(imp::text, ' ' order by imp) from internos.divisas"_s), "1 5");
}

TEST_P(PerdidaEnReposo, EveryEntityOfAProfileComesBack) {
    for (const char *entidad : {"INTERNOS", "NCM", "CATALOGOS", "SYSTABLAS"}) {
        Recordset rs;
        Consultar(*ctx, QLatin1String(entidad), u"select 1 as n"_s, rs);
    }
    perder();
    for (const char *entidad : {"INTERNOS", "NCM", "CATALOGOS", "SYSTABLAS"}) {
        Recordset rs;
        EXPECT_EQ(textoDe([&] {
                      Consultar(*ctx, QLatin1String(entidad), u"select count(*) as n from caratula"_s, rs);
                  }),
                  "")
            << entidad;
    }
}

TEST_P(PerdidaEnReposo, WhatATransactionHadWrittenIsOneFailureAndNothingOfItStays) {
    const auto contar = [&] { return fuera(u"select count(*) from internos.divisas"_s); };
    {
        Transaccion t(internos());
        ejecutar(u"insert into divisas (id,imp) values ('A',1)"_s);
        perder();
        const Falla e = fallaDe([&] { ejecutar(u"insert into divisas (id,imp) values ('B',1)"_s); });
        EXPECT_NE(e.descripcion, QString());
        EXPECT_EQ(e.fuente, u"INTERNOS"_s);
        EXPECT_EQ(contar(), "0") << "the second row alone would be half of what was asked for";
        EXPECT_NE(textoDe([&] { t.Confirmar(); }), "");
    }
    EXPECT_EQ(contar(), "0");
    // The next one is whole again.
    Transaccion t(internos());
    ejecutar(u"insert into divisas (id,imp) values ('A',1)"_s);
    ejecutar(u"insert into divisas (id,imp) values ('B',1)"_s);
    t.Confirmar();
    EXPECT_EQ(contar(), "2");
}

TEST_P(PerdidaEnReposo, ATransactionLostAheadOfItsConfirmationIsTold) {
    {
        Transaccion t(internos());
        ejecutar(u"insert into divisas (id,imp) values ('A',1)"_s);
        perder();
        EXPECT_NE(textoDe([&] { t.Confirmar(); }), "");
    }
    EXPECT_EQ(fuera(u"select count(*) from internos.divisas"_s), "0");
    EXPECT_EQ(ejecutar(u"insert into divisas (id,imp) values ('A',1)"_s), 1);
    EXPECT_EQ(fuera(u"select count(*) from internos.divisas"_s), "1") << "and it is not waiting for another";
}

TEST_P(PerdidaEnReposo, SelectsOfATransactionAreNotAskedElsewhere) {
    ejecutar(u"insert into divisas (id,imp) values ('A',1)"_s);
    Transaccion t(internos());
    ejecutar(u"update divisas set imp = 2"_s);
    perder();
    EXPECT_NE(textoDe([&] { valor(u"select imp from divisas"_s); }), "")
        << "outside of the transaction it would answer 1";
    EXPECT_NE(textoDe([&] { t.Confirmar(); }), "");
}

TEST_P(PerdidaEnReposo, ATableOfOnesOwnIsNotMistakenForEverybodys) {
    ejecutar(u"insert into divisas (id,imp) values ('DE TODOS',1)"_s);
    {
        const TablaPropia propia(internos(), u"divisas"_s);
        ejecutar(u"insert into divisas (id,imp) values ('MIA',1)"_s);
        perder();
        EXPECT_NE(textoDe([&] { valor(u"select id from divisas"_s); }), "");
        EXPECT_NE(textoDe([&] { ejecutar(u"delete from divisas"_s); }), "")
            << "until its owner gives it up: the next statement would find the other one as well";
    }
    EXPECT_EQ(valor(u"select id from divisas"_s), "DE TODOS");
    const TablaPropia propia(internos(), u"divisas"_s);
    EXPECT_EQ(valor(u"select id from divisas"_s), "<nada>");
}

// What was written lightly may be gone with the server that held it: a run that went on would miss it.
TEST_P(PerdidaEnReposo, ARunThatWritesLightlyIsToldOnceAndGoesOnLightly) {
    const auto sincronia = [&] { return valor(u"show synchronous_commit"_s); };
    {
        EscrituraLigera ligera(internos());
        for (int n = 0; n < 20; ++n) ejecutar(u"insert into divisas (id,imp) values ('A',1)"_s);
        perder();
        EXPECT_NE(textoDe([&] { ejecutar(u"insert into divisas (id,imp) values ('B',1)"_s); }), "");
        EXPECT_EQ(sincronia(), "off");
        ligera.Terminar();
    }
    EXPECT_EQ(sincronia(), "on");
    EXPECT_EQ(fuera(u"select count(*) from internos.divisas where id = 'B'"_s), "0");
}

TEST_P(PerdidaEnReposo, TheEndOfARunThatWritesLightlyTellsWhatWentAheadOfIt) {
    EscrituraLigera ligera(internos());
    ejecutar(u"insert into divisas (id,imp) values ('A',1)"_s);
    perder();
    EXPECT_NE(textoDe([&] { ligera.Terminar(); }), "");
    EXPECT_EQ(valor(u"show synchronous_commit"_s), "on");
}

TEST_F(Caidas, AServerThatStartsUpIsWaitedFor) {
    ejecutar(u"insert into divisas (id,imp) values ('DOL',1)"_s);
    for (int vez = 0; vez < 2; ++vez) {
        servidor.parar(ServidorPropio::Parada::Inmediata);
        servidor.arrancarDespacio();
        EXPECT_EQ(textoDe([&] { EXPECT_EQ(valor(u"select imp from divisas"_s), "1"); }), "");
    }
}

TEST_F(Caidas, ACommandThatWasRunningIsOneFailureAndTheNextStatementWorks) {
    ejecutar(u"insert into divisas (id,imp) values ('DOL',1)"_s);
    for (const bool conServidor : {false, true}) {
        std::thread otro([&] {
            std::this_thread::sleep_for(std::chrono::milliseconds(200));
            if (!conServidor) servidor.cortarConexiones();
        });
        const Falla e = fallaDe([&] {
            if (conServidor) servidor.parar(ServidorPropio::Parada::Inmediata);
            ejecutar(u"update divisas set imp = imp + 1 where pg_sleep(3) is not null"_s);
        });
        otro.join();
        servidor.arrancar();
        EXPECT_NE(e.descripcion, QString());
        EXPECT_EQ(e.fuente, u"INTERNOS"_s);
        EXPECT_FALSE(e.descripcion.contains(u'\n')) << e.descripcion.toStdString();
        EXPECT_EQ(valor(u"select imp from divisas"_s), "1");
    }
}

TEST_F(Caidas, CommandsThatWereSentAreToldByTheNextStatement) {
    ejecutar(u"insert into divisas (id,imp) values ('DOL',1)"_s);
    const QString lenta = u"update divisas set imp = imp + 1 where pg_sleep(3) is not null"_s;
    internos().MandarSeguidas({u"update divisas set imp = 7"_s, lenta});
    servidor.cortarConexiones();
    const Falla e = fallaDe([&] { valor(u"select imp from divisas"_s); });
    EXPECT_NE(e.descripcion, QString());
    EXPECT_EQ(e.fuente, u"INTERNOS"_s);
    EXPECT_FALSE(e.sentencia.isEmpty());
    EXPECT_EQ(valor(u"select imp from divisas"_s), "1") << "told once";
}

TEST_F(Caidas, AServerThatIsGoneIsOneSentenceAndTheNextTryWorksWhenItIsBack) {
    ejecutar(u"insert into divisas (id,imp) values ('DOL',1)"_s);
    servidor.parar(ServidorPropio::Parada::Rapida);
    for (int vez = 0; vez < 2; ++vez) {
        QElapsedTimer reloj;
        reloj.start();
        const std::string falla = textoDe([&] { ejecutar(u"update divisas set imp = imp + 1"_s); });
        EXPECT_LT(reloj.elapsed(), 5000);
        EXPECT_EQ(falla.find("No se puede conectar con la base "), 0U) << falla;
        EXPECT_NE(falla.find("verifique que el servidor esté encendido y los datos del perfil."),
                  std::string::npos)
            << falla;
        EXPECT_EQ(falla.find('\n'), std::string::npos) << falla;
    }
    servidor.arrancar();
    EXPECT_EQ(ejecutar(u"update divisas set imp = imp + 1"_s), 1);
    EXPECT_EQ(valor(u"select imp from divisas"_s), "2") << "what failed was not kept for later";
}

/// The line between, which may be bad without the server knowing.
class LineaMala : public Caidas {
 protected:
    void SetUp() override {
        Caidas::SetUp();
        tienda->PasarPor(linea);
        ctx = tienda->contexto(registro);
        ejecutar(u"insert into divisas (id,imp) values ('DOL',1)"_s);
    }
    Intermediario linea{0, ServidorDePaso().palabras()};
};

TEST_F(LineaMala, OneThatIsCutWhileNobodyUsesItIsMadeAgainWithoutAWord) {
    for (const auto como : {Intermediario::Corte::Fin, Intermediario::Corte::Rotura}) {
        linea.Cortar(como);
        EXPECT_EQ(textoDe([&] { valor(u"select imp from divisas"_s); }), "");
        linea.Cortar(como);
        EXPECT_EQ(textoDe([&] { ejecutar(u"update divisas set imp = imp + 1"_s); }), "");
    }
    EXPECT_EQ(valor(u"select imp from divisas"_s), "3");
}

TEST_F(LineaMala, CutOnTheWayOfACommandTheRowIsWrittenAtMostOnce) {
    using M = Intermediario::Medida;
    int fallas = 0;
    for (int bytes = 0; bytes < 60; bytes += 5) {
        for (const M medida : {M::BytesAlServidor, M::BytesAlCliente}) {
            const std::string antes = fuera(u"select count(*) from internos.divisas"_s);
            linea.CortarTras(medida, bytes);
            const std::string falla =
                textoDe([&] { ejecutar(u"insert into divisas (id,imp) values ('X',1)"_s); });
            linea.Seguir();
            const int escritas =
                std::stoi(fuera(u"select count(*) from internos.divisas"_s)) - std::stoi(antes);
            EXPECT_LE(escritas, 1) << bytes;
            // What is not told to have failed was done.
            EXPECT_GE(escritas, falla.empty() ? 1 : 0) << bytes;
            fallas += falla.empty() ? 0 : 1;
            EXPECT_EQ(textoDe([&] { valor(u"select 1 as n"_s); }), "") << bytes;
        }
    }
    EXPECT_GT(fallas, 8);
}

TEST_F(LineaMala, CutOnTheWayOfASelectItIsAskedAgain) {
    for (const int bytes : {1, 5, 17, 40, 90}) {
        linea.CortarTras(Intermediario::Medida::BytesAlCliente, bytes);
        EXPECT_EQ(textoDe([&] { EXPECT_EQ(valor(u"select imp from divisas where id = 'DOL'"_s), "1"); }), "")
            << bytes;
        linea.Seguir();
    }
}

TEST_F(Caidas, AJourneyNoneOfWhoseStatementsLeftCountsNone) {
    // Two statements in one text are refused before they leave; the line is found dead behind that.
    const QSqlDatabase db = internos().coneccion();
    servidor.cortarConexiones();
    std::vector<motores::Encargo> encargos{{u"select 1; select 2"_s}, {u"select 3"_s}};
    const motores::Llegada llegada = motores::servidor().mandar(db, encargos);
    std::optional<Falla> falla;
    EXPECT_EQ(llegada(encargos, falla), 0U);
    EXPECT_TRUE(falla.has_value());
}

TEST_F(LineaMala, NobodyAtTheOtherEndIsOneSentence) {
    linea.Rechazar();
    linea.Cortar();
    const std::string falla = textoDe([&] { valor(u"select imp from divisas"_s); });
    EXPECT_EQ(falla.find("No se puede conectar con la base "), 0U) << falla;
    linea.Seguir();
    EXPECT_EQ(valor(u"select imp from divisas"_s), "1");
}

}  // namespace
