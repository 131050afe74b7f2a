// What a user hears of a failure: the engine's number where there is one, and of a lost store once a key.

#include "frame/failures.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

#include "frame/context.h"

using namespace Qt::StringLiterals;

namespace {

struct OyenteDeFallas {
    OyenteDeFallas() {
        ctx.dialogos.mensaje = [this](const Mensaje &m) { dichos.push_back(m); };
    }
    AppContext ctx;
    std::vector<Mensaje> dichos;
};

const Falla perdida{Falla::sinStore, u"INTERNOS"_s, u"Se perdió la conexión."_s, {}};

}  // namespace

TEST(Failures, TheEnginesNumberStandsAheadOfItsWordsAndNoOther) {
    const struct {
        Falla falla;
        const char *texto;
    } casos[] = {
        {{19, u"INTERNOS"_s, u"UNIQUE constraint failed"_s, u"insert"_s}, "19 - UNIQUE constraint failed"},
        {{0, u"INTERNOS"_s, u"La clave no puede llevar comillas."_s, {}},
         "La clave no puede llevar comillas."},
        {perdida, "Se perdió la conexión."},
    };
    for (const auto &caso : casos) EXPECT_EQ(TextoDeFalla(caso.falla).toStdString(), caso.texto);
}

TEST(Failures, AMessageIsCriticalAndTakesTheHandlersOwnText) {
    OyenteDeFallas oyente;
    ContarFalla(oyente.ctx, {19, {}, u"no"_s, {}}, u"[ARTICULOS.AGREGAR] 19 - no"_s, true);
    ASSERT_EQ(oyente.dichos.size(), 1U);
    EXPECT_EQ(oyente.dichos[0].texto.toStdString(), "[ARTICULOS.AGREGAR] 19 - no");
    EXPECT_EQ(oyente.dichos[0].icono, Icono::Critico);
    EXPECT_TRUE(oyente.dichos[0].modalDeSistema);
}

TEST(Failures, ThatTheStoreIsGoneIsToldByTheFirstHandlerOfAKeyAndAgainBehindTheNextKey) {
    OyenteDeFallas oyente;
    ContarFalla(oyente.ctx, perdida);
    ContarFalla(oyente.ctx, perdida, u"otro texto"_s);
    ContarFalla(oyente.ctx, {19, {}, u"no"_s, {}});
    ASSERT_EQ(oyente.dichos.size(), 2U);
    EXPECT_EQ(oyente.dichos[0].texto.toStdString(), "Se perdió la conexión.");
    EXPECT_EQ(oyente.dichos[1].texto.toStdString(), "19 - no");
    QCoreApplication::processEvents();
    ContarFalla(oyente.ctx, perdida);
    EXPECT_EQ(oyente.dichos.size(), 3U);
}
