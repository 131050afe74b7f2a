// The line that the tests of a far server stand on: as long as it says, counted right, cut when told.

#include "tests/support/intermediario.h"

#include <gtest/gtest.h>
#include <libpq-fe.h>

#include <QElapsedTimer>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

using Enlace = std::unique_ptr<PGconn, decltype(&PQfinish)>;

Enlace llamar(const Intermediario &linea) {
    return {PQconnectdb((linea.palabras() + " dbname=postgres sslmode=disable connect_timeout=2"_L1)
                            .toUtf8()
                            .constData()),
            &PQfinish};
}

/// The first cell; "<falla>" when the statement fails.
std::string pedir(const Enlace &enlace, const char *sql) {
    const std::unique_ptr<PGresult, decltype(&PQclear)> r(PQexec(enlace.get(), sql), &PQclear);
    if (PQresultStatus(r.get()) != PGRES_TUPLES_OK) return "<falla>";
    return PQgetvalue(r.get(), 0, 0);
}

double milisegundos(const QElapsedTimer &reloj) {
    return static_cast<double>(reloj.nsecsElapsed()) / 1e6;
}

class LineaAlServidor : public ::testing::Test {
 protected:
    Intermediario linea;
    Enlace enlace = llamar(linea);
    void SetUp() override {
        ASSERT_EQ(PQstatus(enlace.get()), CONNECTION_OK) << PQerrorMessage(enlace.get());
    }
};

TEST_F(LineaAlServidor, EachAnswerWaitedForIsOneRoundTrip) {
    linea.PonerEnCero();
    for (int n = 0; n < 5; ++n) EXPECT_EQ(pedir(enlace, "select 7"), "7");
    EXPECT_EQ(linea.cuenta().viajes, 5);
    EXPECT_GT(linea.cuenta().bytesAlServidor, 0);
    EXPECT_GT(linea.cuenta().bytesAlCliente, 0);
    EXPECT_EQ(linea.cuenta().conexiones, 0);
    EXPECT_EQ(linea.abiertas(), 1);
}

TEST_F(LineaAlServidor, AnAnswerTakesARoundTripHoweverMuchItBrings) {
    linea.IdaYVuelta(40);
    QElapsedTimer reloj;
    reloj.start();
    // Four megabytes: a line that waited for each piece would take many round trips.
    EXPECT_EQ(pedir(enlace, "select repeat('x', 4000000)").size(), 4'000'000U);
    EXPECT_GE(milisegundos(reloj), 40);
    EXPECT_LT(milisegundos(reloj), 400);
}

TEST_F(LineaAlServidor, AShorterLineLetsNothingOvertake) {
    linea.IdaYVuelta(60);
    ASSERT_EQ(PQsendQuery(enlace.get(), "select 1; select 2"), 1);
    linea.IdaYVuelta(0);
    std::string dichos;
    while (PGresult *r = PQgetResult(enlace.get())) {
        dichos += PQgetvalue(r, 0, 0);
        PQclear(r);
    }
    EXPECT_EQ(dichos, "12");
}

TEST_F(LineaAlServidor, ACutEndsWhatIsOpenAndLeavesTheWayFree) {
    for (const auto como : {Intermediario::Corte::Rotura, Intermediario::Corte::Fin}) {
        linea.Cortar(como);
        EXPECT_EQ(linea.abiertas(), 0);
        EXPECT_EQ(pedir(enlace, "select 1"), "<falla>");
        EXPECT_EQ(PQstatus(enlace.get()), CONNECTION_BAD);
        enlace = llamar(linea);
        EXPECT_EQ(pedir(enlace, "select 1"), "1");
    }
}

TEST_F(LineaAlServidor, ACutAfterTwoRoundTripsKeepsTheThirdFromTheServer) {
    linea.CortarTras(Intermediario::Medida::Viajes, 2);
    EXPECT_EQ(pedir(enlace, "select 1"), "1");
    EXPECT_EQ(pedir(enlace, "select 2"), "2");
    EXPECT_TRUE(linea.cortePendiente());
    EXPECT_EQ(pedir(enlace, "select 3"), "<falla>");
    EXPECT_FALSE(linea.cortePendiente());
}

TEST_F(LineaAlServidor, ACutAfterSomeBytesComesInTheMiddleOfAnAnswer) {
    linea.PonerEnCero();
    linea.CortarTras(Intermediario::Medida::BytesAlCliente, 1000, Intermediario::Corte::Fin);
    EXPECT_EQ(pedir(enlace, "select repeat('x', 4000)"), "<falla>");
    EXPECT_EQ(linea.cuenta().bytesAlCliente, 1000);
    EXPECT_EQ(linea.abiertas(), 0);
}

TEST_F(LineaAlServidor, NobodyListensWhileItRefusesAndWhatIsOpenStays) {
    linea.Rechazar();
    EXPECT_EQ(PQstatus(llamar(linea).get()), CONNECTION_BAD);
    EXPECT_EQ(pedir(enlace, "select 1"), "1");
    linea.Seguir();
    EXPECT_EQ(PQstatus(llamar(linea).get()), CONNECTION_OK);
}

TEST_F(LineaAlServidor, ADroppedLineSaysNothingUntilItGoesOn) {
    linea.Colgar();
    ASSERT_EQ(PQsendQuery(enlace.get(), "select 5"), 1);
    // Connected at once, and then nothing: the client gives up by itself.
    EXPECT_EQ(PQstatus(llamar(linea).get()), CONNECTION_BAD);
    EXPECT_EQ(PQconsumeInput(enlace.get()), 1);
    EXPECT_EQ(PQisBusy(enlace.get()), 1);
    linea.Seguir();
    PGresult *r = PQgetResult(enlace.get());
    EXPECT_STREQ(PQgetvalue(r, 0, 0), "5");
    PQclear(r);
}

}  // namespace
