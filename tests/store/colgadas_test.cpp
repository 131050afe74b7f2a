// A line that is there and carries nothing: what can be given up is given up in time, in one sentence, and
// what merely takes long is not.
#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QFile>
#include <chrono>
#include <thread>

#include "frame/base/ini.h"
#include "frame/transaction.h"
#include "tests/store/caidas.h"
#include "tests/support/intermediario.h"

using namespace Qt::StringLiterals;

namespace {

/// A line whose profile waits for a greeting two seconds at most, and one for what nobody acknowledges.
class LineaColgada : public Caidas {
 protected:
    void SetUp() override {
        Caidas::SetUp();
        tienda->PasarPor(linea);
        decirPlazos();
        ctx = tienda->contexto(registro);
        ejecutar(u"insert into divisas (id,imp) values ('DOL',1)"_s);
    }
    void TearDown() override {
        linea.Seguir();
        Caidas::TearDown();
    }

    void decirPlazos() {
        QStringList lineas = LeerLineasDeIni(tienda->perfil());
        for (const QString &entidad : StoreProfiles::entidades()) {
            if (LeerIni(entidad, u"driver"_s, tienda->perfil()) != "servidor"_L1) continue;
            PonerEnIni(lineas, entidad, u"connect_timeout"_s, u"2"_s);
            PonerEnIni(lineas, entidad, u"tcp_user_timeout"_s, u"1000"_s);
        }
        QFile archivo(tienda->perfil());
        ASSERT_TRUE(archivo.open(QIODevice::WriteOnly | QIODevice::Truncate));
        archivo.write(BytesDeIni(lineas));
    }

    /// Milliseconds that `hacer` takes.
    static qint64 tarda(const std::function<void()> &hacer) {
        QElapsedTimer reloj;
        reloj.start();
        hacer();
        return reloj.elapsed();
    }
    void noSeConecta() {
        std::string falla;
        EXPECT_LT(tarda([&] { falla = textoDe([&] { valor(u"select imp from divisas"_s); }); }), 5000);
        EXPECT_EQ(falla.find("No se puede conectar con la base "), 0U) << falla;
        EXPECT_NE(falla.find("verifique que el servidor esté encendido y los datos del perfil."),
                  std::string::npos)
            << falla;
        EXPECT_EQ(falla.find('\n'), std::string::npos) << falla;
    }
    void sePerdio(const std::function<void()> &hacer) {
        Falla falla;
        EXPECT_LT(tarda([&] { falla = fallaDe(hacer); }), 6000);
        EXPECT_EQ(falla.numero, Falla::sinStore);
        EXPECT_EQ(falla.descripcion.toStdString(),
                  "Se perdió la conexión con la base \"" +
                      ctx->DataManager.datos(u"INTERNOS"_s)->base.toStdString() +
                      "\" del servidor 127.0.0.1:" + std::to_string(linea.puerto()) + "; vuelva a intentar.");
    }
    static std::thread luego(int ms, std::function<void()> hacer) {
        return std::thread([ms, hacer = std::move(hacer)] {
            std::this_thread::sleep_for(std::chrono::milliseconds(ms));
            hacer();
        });
    }

    Intermediario linea{0, ServidorDePaso().palabras()};
};

// The greeting

TEST_F(LineaColgada, AGreetingThatNeverComesIsOneSentenceAndTheNextTryWorks) {
    ctx = tienda->contexto(registro);
    linea.Colgar();
    noSeConecta();
    linea.Seguir();
    EXPECT_EQ(valor(u"select imp from divisas"_s), "1");
}

TEST_F(LineaColgada, AMachineThatIsGoneIsOneSentenceAndTheNextTryWorks) {
    ctx = tienda->contexto(registro);
    linea.Enmudecer();
    noSeConecta();
    linea.Seguir();
    EXPECT_EQ(valor(u"select imp from divisas"_s), "1");
}

TEST_F(LineaColgada, AServerThatTakesNobodyAnyMoreIsOneSentenceForWhoComesAndNoneForWhoIsIn) {
    servidor.congelar();
    EXPECT_EQ(ejecutar(u"update divisas set imp = imp + 1"_s), 1);
    ctx = tienda->contexto(registro);
    noSeConecta();
    servidor.reanimar();
    EXPECT_EQ(valor(u"select imp from divisas"_s), "2");
}

// A statement

TEST_F(LineaColgada, WhatNobodyAcknowledgesIsOneFailureInTimeAndTheNextTryWorks) {
    linea.Enmudecer();
    sePerdio([&] { ejecutar(u"update divisas set imp = imp + 1"_s); });
    linea.Seguir();
    EXPECT_EQ(ejecutar(u"update divisas set imp = imp + 1"_s), 1);
    EXPECT_EQ(valor(u"select imp from divisas"_s), "2");
}

TEST_F(LineaColgada, ALineThatIsBackInTimeGoesOnAsIfNothingHadBeen) {
    linea.Enmudecer();
    std::thread otro = luego(500, [this] { linea.Seguir(); });
    EXPECT_EQ(textoDe([&] { EXPECT_EQ(ejecutar(u"update divisas set imp = imp + 1"_s), 1); }), "");
    otro.join();
    EXPECT_EQ(valor(u"select imp from divisas"_s), "2");
}

TEST_F(LineaColgada, ASelectThatNobodyAcknowledgesIsAskedAgainOverANewLine) {
    linea.Enmudecer();
    std::thread otro = luego(1800, [this] {
        linea.Cortar();
        linea.Seguir();
    });
    EXPECT_EQ(textoDe([&] { EXPECT_EQ(valor(u"select imp from divisas"_s), "1"); }), "");
    otro.join();
}

TEST_F(LineaColgada, ARunThatWritesLightlyIsToldOnce) {
    EscrituraLigera ligera(internos());
    for (int n = 0; n < 20; ++n) {
        internos().Sql = u"insert into divisas (id,imp) values ('A',1)"_s;
        internos().Mandar();
    }
    linea.Enmudecer();
    sePerdio([&] { internos().Asentar(); });
    EXPECT_LT(tarda([&] { EXPECT_EQ(textoDe([&] { ligera.Terminar(); }), ""); }), 500) << "what was told";
    EXPECT_EQ(fuera(u"select count(*) from internos.divisas where id = 'A'"_s), "0");
}

TEST_F(LineaColgada, ATransactionIsOneFailureAndIsNotWaitedForTwice) {
    Falla deLaConfirmacion;
    {
        Transaccion t(internos());
        ejecutar(u"insert into divisas (id,imp) values ('A',1)"_s);
        linea.Enmudecer();
        sePerdio([&] { ejecutar(u"insert into divisas (id,imp) values ('B',1)"_s); });
        EXPECT_LT(tarda([&] { deLaConfirmacion = fallaDe([&] { t.Confirmar(); }); }), 500);
    }
    EXPECT_EQ(deLaConfirmacion.numero, Falla::sinStore);
    linea.Cortar();
    linea.Seguir();
    EXPECT_EQ(valor(u"select count(*) from divisas"_s), "1");
}

TEST_F(LineaColgada, ATransactionThatCannotBeginOrEndIsOneFailureToo) {
    linea.Enmudecer();
    sePerdio([&] { const Transaccion t(internos()); });
    linea.Seguir();
    Transaccion t(internos());
    ejecutar(u"update divisas set imp = imp + 1"_s);
    linea.Enmudecer();
    sePerdio([&] { t.Confirmar(); });
}

TEST_F(LineaColgada, AStatementThatMerelyTakesLongIsNeverCutOff) {
    EXPECT_EQ(textoDe([&] {
                  EXPECT_EQ(ejecutar(u"update divisas set imp = imp + 1 where pg_sleep(2.5) is not null"_s),
                            1);
              }),
              "");
    EXPECT_EQ(valor(u"select imp from divisas"_s), "2");
}

// Somebody on the way acknowledges in the server's name: from here that is a statement that takes long.
TEST_F(LineaColgada, WhatIsAcknowledgedIsWaitedForAndItsAnswerArrivesWhenTheLineGoesOn) {
    linea.Colgar();
    std::thread otro = luego(2500, [this] { linea.Seguir(); });
    EXPECT_EQ(textoDe([&] { EXPECT_EQ(ejecutar(u"update divisas set imp = imp + 1"_s), 1); }), "");
    otro.join();
    EXPECT_EQ(valor(u"select imp from divisas"_s), "2");
}

TEST_F(LineaColgada, WhatIsAcknowledgedIsToldWhenTheLineEnds) {
    linea.Colgar();
    std::thread otro = luego(500, [this] { linea.Cortar(); });
    sePerdio([&] { ejecutar(u"update divisas set imp = imp + 1"_s); });
    otro.join();
    linea.Seguir();
    EXPECT_EQ(valor(u"select imp from divisas"_s), "1");
}

// Ahead of a statement, and behind the last

TEST_F(LineaColgada, TheLookAtTheLineAndTheLeaveFromItWaitForNobody) {
    for (const auto &quedarMudo :
         {std::function([this] { linea.Colgar(); }), std::function([this] { linea.Enmudecer(); })}) {
        EXPECT_EQ(valor(u"select imp from divisas"_s), "1");
        quedarMudo();
        EXPECT_LT(tarda([&] { internos().coneccion(); }), 500);
        EXPECT_LT(tarda([&] { ctx->DataManager.CloseAllDataConnection(); }), 500);
        linea.Cortar();
        linea.Seguir();
    }
}

}  // namespace
