// The suffix engine: what it asks, in which order, and what it makes of the answers.

#include <gtest/gtest.h>

#include "subitems/SuffixChecker.h"
#include "subitems/suffixes.h"
#include "subitems/suffixtext.h"
#include "tests/support/tienda.h"
#include "tests/support/traza.h"

using namespace Qt::StringLiterals;

namespace {

const QString ncm = u"NCM"_s;
const QString motor = u"8409.91.12.100G"_s;

class Sufijos : public EnAmbosStores {
 protected:
    void SetUp() override {
        EnAmbosStores::SetUp();
        ejecutar(
            u"insert into ncm ([001],[002],[003]) values ('8409.91.12','100','G'),"
            "('9503.00.10','000','D')"_s,
            ncm);
    }
    void sufijo(const char *sim, const char *codigo, const char *detalle = "Detalle") {
        ejecutar(u"insert into sufidos (sim,sufijo,detalle) values ('%1','%2','%3')"_s.arg(
                     QString::fromUtf8(sim), QString::fromUtf8(codigo), QString::fromUtf8(detalle)),
                 ncm);
    }
    /// A coded family AA at chapter level, the free AB at heading level and the number ZB at the position's.
    void tresFamilias() {
        sufijo("84  .  .  .   ", "AA01", " Con marca ");
        sufijo("84  .  .  .   ", "AA02", "Sin marca");
        sufijo("8409.  .  .   ", "AB", " Marca y modelo ");
        sufijo("8409.91.12.100", "ZB", "Potencia");
    }
    std::string validar(const char *actual, ModoDeSufijos modo, const char *articulo = "",
                        const char *descripcion = "") {
        return ValidarSufijos(*ctx, motor, QString::fromUtf8(actual), modo, QString::fromUtf8(articulo),
                              QString::fromUtf8(descripcion))
            .toStdString();
    }
    std::string construir(const char *actual = "") { return validar(actual, ModoDeSufijos::Construir); }
    std::string mensajes() const {
        QStringList lista;
        for (const Mensaje &m : registro.mensajes) lista << m.texto;
        return lista.join(u'\n').toStdString();
    }
    void olvidar() {
        registro.mensajes.clear();
        registro.elecciones.clear();
        registro.entradas.clear();
        registro.preguntas.clear();
    }
    std::size_t preguntado() const { return registro.elecciones.size() + registro.entradas.size(); }
};

TEST_P(Sufijos, AsksEachFamilyInOrderAndComposesTheText) {
    tresFamilias();
    registro.indices = {1};
    registro.textos = {u"bosch x-1"_s, u"75"_s};
    EXPECT_EQ(construir(), "AA01-AB(BOSCH X 1)-ZB(000075)-");
    ASSERT_EQ(registro.elecciones.size(), 1U);
    EXPECT_EQ(registro.elecciones[0].filas.join(u'|').toStdString(),
              "AA00 - Ninguna opción|AA01 - Con marca|AA02 - Sin marca");
    EXPECT_EQ(registro.elecciones[0].tipo, Eleccion::Tipo::Sufijos);
    ASSERT_EQ(registro.entradas.size(), 2U);
    EXPECT_EQ(registro.entradas[0].texto.toStdString(), "SUFIJO AB");
    EXPECT_EQ(registro.entradas[0].titulo.toStdString(), "Marca y modelo");
    EXPECT_EQ(registro.entradas[1].texto.toStdString(), "SUFIJO ZB");
    EXPECT_EQ(mensajes(), "");
}

TEST_P(Sufijos, SendsTheStatementsOfTheDerivation) {
    sufijo("84  .  .  .   ", "AA01");
    registro.indices = {1};
    const Traza traza;
    construir();
    EXPECT_EQ(traza.texto(),
              "NCM|select [001] as pos from ncm where [001]='8409.91.12' and [002]='100'\n"
              "NCM|select distinct left(sufijo,2) as asufijo from sufidos where sim in ('84  .  .  .   ',"
              "'8409.  .  .   ','8409.91.  .   ','8409.91.12.100')\n"
              "NCM|select sufijo,detalle from sufidos where sim in ('84  .  .  .   ','8409.  .  .   ',"
              "'8409.91.  .   ','8409.91.12.100') and left(sufijo,2) = 'AA'");
}

TEST_P(Sufijos, NoneOfTheOptionsIsATokenToo) {
    sufijo("84  .  .  .   ", "AA01");
    registro.indices = {0};
    EXPECT_EQ(construir(), "AA00-");
    olvidar();
    EXPECT_EQ(validar("AA00-", ModoDeSufijos::Reconfirmar), "AA00-");
    EXPECT_EQ(construir("AA00-"), "AA00-");
    EXPECT_EQ(preguntado(), 0U);
}

TEST_P(Sufijos, APositionWhoseFourKeysHaveNoRowYieldsSinSufijosWithAPlainMessage) {
    sufijo("85  .  .  .   ", "AA01");
    sufijo("8409.91.12.900", "AA01");
    EXPECT_EQ(construir(), "SIN SUFIJOS");
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto.toStdString(), "No se encontro Sufijo en el nomenclador");
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Ninguno);
    EXPECT_TRUE(SufijosAceptados(u"SIN SUFIJOS"_s));
    EXPECT_TRUE(sufijos::EsTextoTerminado(u"SIN SUFIJOS"_s));
}

TEST_P(Sufijos, APositionThatIsNotThereIsARefusal) {
    EXPECT_EQ(ValidarSufijos(*ctx, u"8499.00.00.000X"_s, {}, ModoDeSufijos::Construir).toStdString(),
              "##ERRORNCM##");
    EXPECT_EQ(mensajes(), "No existe la posicion 8499.00.00.000X en el nomenclador");
    EXPECT_FALSE(SufijosAceptados(u"##ERRORNCM##"_s));
}

TEST_P(Sufijos, TheLetterOfThePositionIsNotAskedFor) {
    sufijo("84  .  .  .   ", "AA01");
    registro.indices = {1, 1};
    EXPECT_EQ(ValidarSufijos(*ctx, motor.left(14), {}, ModoDeSufijos::Construir).toStdString(), "AA01-");
    EXPECT_EQ(ValidarSufijos(*ctx, motor.left(14) + u'Q', {}, ModoDeSufijos::Construir).toStdString(),
              "AA01-");
}

TEST_P(Sufijos, AFamilyPresentOnlyAtChapterLevelAppliesToAllPositionsOfTheChapter) {
    sufijo("84  .  .  .   ", "AA01");
    ejecutar(u"insert into ncm ([001],[002],[003]) values ('8471.30.12','000','A')"_s, ncm);
    registro.indices = {1, 1};
    EXPECT_EQ(construir(), "AA01-");
    EXPECT_EQ(ValidarSufijos(*ctx, u"8471.30.12.000A"_s, {}, ModoDeSufijos::Construir).toStdString(),
              "AA01-");
    EXPECT_EQ(ValidarSufijos(*ctx, u"9503.00.10.000D"_s, {}, ModoDeSufijos::Construir).toStdString(),
              "SIN SUFIJOS");
}

TEST_P(Sufijos, EachLevelOfTheKeyCounts) {
    sufijo("84  .  .  .   ", "AA01");
    sufijo("8409.  .  .   ", "BA01");
    sufijo("8409.91.  .   ", "CA01");
    sufijo("8409.91.12.100", "DA01");
    sufijo("8409.99.  .   ", "EA01");
    registro.indices = {1, 1, 1, 1};
    EXPECT_EQ(construir(), "AA01-BA01-CA01-DA01-");
}

TEST_P(Sufijos, AFreeValueIsStoredWithoutTheThreeMarks) {
    sufijo("84  .  .  .   ", "AB");
    registro.textos = {u"ABC-(1)"_s};
    EXPECT_EQ(construir(), "AB(ABC 1)-");
}

TEST_P(Sufijos, ANumberIsCutAndFilled) {
    sufijo("84  .  .  .   ", "ZB");
    // The input box limits to six; what comes from elsewhere is cut too.
    ctx->dialogos.pedirTexto = [](const Entrada &) { return std::optional<QString>(u"1234567"_s); };
    EXPECT_EQ(construir(), "ZB(123456)-");
    ctx->dialogos.pedirTexto = [](const Entrada &) { return std::optional<QString>(u"12"_s); };
    EXPECT_EQ(construir(), "ZB(000012)-");
}

TEST_P(Sufijos, AValueThatIsNoNumberIsToldAndAskedAgain) {
    sufijo("84  .  .  .   ", "ZB");
    registro.textos = {u"doce"_s, u"()"_s, u"12"_s};
    EXPECT_EQ(construir(), "ZB(000012)-");
    EXPECT_EQ(mensajes(), "Debe Ingresar un Valor Númerico\nDebe Ingresar un Valor Númerico");
    EXPECT_EQ(registro.entradas.size(), 3U);
}

TEST_P(Sufijos, ATextOfNothingButMarksIsAskedAgain) {
    sufijo("84  .  .  .   ", "AB");
    registro.textos = {u"()-"_s, u"  "_s, u"x"_s};
    EXPECT_EQ(construir(), "AB(X)-");
    EXPECT_EQ(mensajes(), "");
    EXPECT_TRUE(registro.preguntas.empty());
}

TEST_P(Sufijos, AnEmptyAnswerAsksWhetherToCancel) {
    sufijo("84  .  .  .   ", "AB");
    registro.textos = {QString(), u"x"_s};
    registro.respuestas = {false};
    EXPECT_EQ(construir(), "AB(X)-");
    ASSERT_EQ(registro.preguntas.size(), 1U);
    EXPECT_EQ(registro.preguntas[0].texto.toStdString(), "Desea cancelar la operación");
    EXPECT_EQ(registro.entradas.size(), 2U);

    olvidar();
    registro.textos = {std::nullopt};
    registro.respuestas = {true};
    EXPECT_EQ(construir(), "");
    EXPECT_EQ(registro.entradas.size(), 1U);
    EXPECT_FALSE(SufijosAceptados(QString()));
}

TEST_P(Sufijos, LeavingTheListStopsTheWholeProcess) {
    tresFamilias();
    registro.indices = {-1};
    EXPECT_EQ(construir(), "");
    EXPECT_EQ(mensajes(), "Carga de SUFIJOS cancelada");
    EXPECT_TRUE(registro.entradas.empty());
}

TEST_P(Sufijos, AListThatAnswersNothingIsAnError) {
    tresFamilias();
    registro.indices = {-2};
    EXPECT_EQ(construir(), "");
    EXPECT_EQ(mensajes(), "Error en generar sufijos");
    EXPECT_TRUE(registro.entradas.empty());
}

TEST_P(Sufijos, LimitsAndDefaultsFollowTheFamily) {
    struct Caso {
        const char *familia;
        int maximo;
        const char *inicial;
    };
    const Caso casos[] = {
        {"AB", 20, "ARTICULO"},
        {"AI", 20, "ARTICULO"},
        {"AS", 40, "DESCRIPCION"},
        {"AC", 20, "DESCRIPCION"},
        // No more than fits.
        {"ZA", 6, "DESCRI"},
    };
    for (const Caso &c : casos) sufijo("84  .  .  .   ", c.familia);
    ctx->dialogos.pedirTexto = [this](const Entrada &e) {
        registro.entradas.push_back(e);
        return std::optional<QString>(u"1"_s);
    };
    EXPECT_EQ(validar("", ModoDeSufijos::Construir, "ARTICULO", "DESCRIPCION"),
              "AB(1)-AC(1)-AI(1)-AS(1)-ZA(000001)-");
    ASSERT_EQ(registro.entradas.size(), 5U);
    for (const Caso &c : casos) {
        const auto entrada = std::find_if(
            registro.entradas.begin(), registro.entradas.end(),
            [&c](const Entrada &e) { return e.texto == u"SUFIJO "_s + QString::fromUtf8(c.familia); });
        ASSERT_NE(entrada, registro.entradas.end()) << c.familia;
        EXPECT_EQ(entrada->maximo, c.maximo) << c.familia;
        EXPECT_EQ(entrada->inicial.toStdString(), c.inicial) << c.familia;
    }
}

TEST_P(Sufijos, FamiliesOfAnotherLengthOrWithoutATypeAreSkipped) {
    sufijo("84  .  .  .   ", "AA01");
    sufijo("84  .  .  .   ", "BA1");
    sufijo("84  .  .  .   ", "CAXYZ");
    sufijo("84  .  .  .   ", "MB");
    registro.indices = {1};
    EXPECT_EQ(construir(), "AA01-");
    EXPECT_EQ(preguntado(), 1U);
}

TEST_P(Sufijos, ATextWithoutTokensIsTheEmptyText) {
    sufijo("84  .  .  .   ", "BA1");
    sufijo("84  .  .  .   ", "MB");
    EXPECT_EQ(construir(), "");
    EXPECT_EQ(validar("", ModoDeSufijos::Reconfirmar), "");
    EXPECT_EQ(validar("-", ModoDeSufijos::Reconfirmar), "");
    EXPECT_EQ(validar("SIN SUFIJOS", ModoDeSufijos::Reconfirmar), "SIN SUFIJOS")
        << "told, it stands unclosed";
    EXPECT_EQ(preguntado(), 0U);
    EXPECT_EQ(mensajes(), "");
}

TEST_P(Sufijos, ReRunningOnAFinishedTextAsksNothing) {
    tresFamilias();
    const char *const terminado = "AA02-AB(BOSCH)-ZB(000075)-";
    EXPECT_EQ(validar(terminado, ModoDeSufijos::Reconfirmar), terminado);
    EXPECT_EQ(construir(terminado), terminado);
    EXPECT_EQ(preguntado(), 0U);
    EXPECT_EQ(mensajes(), "");
}

TEST_P(Sufijos, AValidTextThatLacksItsCloseIsClosed) {
    tresFamilias();
    EXPECT_EQ(validar("AA02-AB(BOSCH)-ZB(000075)", ModoDeSufijos::Reconfirmar), "AA02-AB(BOSCH)-ZB(000075)-");
    EXPECT_EQ(preguntado(), 0U);
}

TEST_P(Sufijos, EveryTokenThatStillFitsIsKeptAndTheRestAskedFor) {
    tresFamilias();
    // AA09 is no option any more; ZB is missing; CC01 is not demanded.
    registro.indices = {2};
    registro.textos = {u"7"_s};
    EXPECT_EQ(validar("AA09-AB(BOSCH)-CC01-", ModoDeSufijos::Reconfirmar), "AA02-AB(BOSCH)-ZB(000007)-");
    EXPECT_EQ(mensajes(), "Se encontro diferencias entre los Sufijos de Subitem y el nomenclador.");
    EXPECT_EQ(registro.elecciones.size(), 1U);
    EXPECT_EQ(registro.elecciones[0].inicial, 0);
    EXPECT_EQ(registro.entradas.size(), 1U);
}

TEST_P(Sufijos, AFamilyInsideAnothersValueIsNoTokenOfItsOwn) {
    sufijo("84  .  .  .   ", "AA01");
    sufijo("84  .  .  .   ", "AB");
    registro.indices = {1};
    EXPECT_EQ(construir("AB(X AA01)-"), "AA01-AB(X AA01)-");
    EXPECT_EQ(registro.elecciones.size(), 1U);
}

TEST_P(Sufijos, ATokenThatNoMarkClosesIsAskedForAgain) {
    tresFamilias();
    registro.textos = {u"7"_s};
    EXPECT_EQ(construir("AA01-AB(BOSCH)-ZB(000075)"), "AA01-AB(BOSCH)-ZB(000007)-");
    EXPECT_EQ(registro.entradas.size(), 1U);
}

TEST_P(Sufijos, Mode1IgnoresTheTextInTheCheckOnly) {
    tresFamilias();
    ctx->ReconfirmarSufijos = true;
    registro.indices = {1};
    registro.textos = {u"7"_s};
    // No check and so no message, but AB is kept.
    EXPECT_EQ(construir("AB(BOSCH)-"), "AA01-AB(BOSCH)-ZB(000007)-");
    EXPECT_EQ(mensajes(), "");
    EXPECT_FALSE(ctx->ReconfirmarSufijos);
}

TEST_P(Sufijos, TheReconfirmationFlagTellsFirstAndGoesOff) {
    tresFamilias();
    ctx->ReconfirmarSufijos = true;
    registro.textos = {u"7"_s};
    EXPECT_EQ(validar("AA01-AB(BOSCH)-", ModoDeSufijos::Reconfirmar), "AA01-AB(BOSCH)-ZB(000007)-");
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].titulo.toStdString(), "Verificación de Sufijos");
    EXPECT_EQ(
        registro.mensajes[0].texto.toStdString(),
        "Se encontró diferencias, entre los sufijos de su ARTICULO y la posición del nomenclador\r\n\r\n"
        "Se procederá a reconfirmarlos.");
    EXPECT_FALSE(ctx->ReconfirmarSufijos);

    // An empty text has nothing to be reconfirmed.
    olvidar();
    ctx->ReconfirmarSufijos = true;
    registro.indices = {-1};
    validar("", ModoDeSufijos::Reconfirmar);
    EXPECT_EQ(mensajes(), "Carga de SUFIJOS cancelada");
    EXPECT_FALSE(ctx->ReconfirmarSufijos);
}

TEST_P(Sufijos, AStoreErrorGivesTheEmptyTextWithThePointerRestored) {
    tresFamilias();
    ejecutar(u"drop table sufidos"_s, ncm);
    bool reloj = false;
    ctx->dialogos.reloj = [&reloj](bool puesto) { reloj = puesto; };
    ctx->ReconfirmarSufijos = true;
    EXPECT_EQ(construir(), "");
    EXPECT_FALSE(reloj);
    EXPECT_FALSE(ctx->ReconfirmarSufijos);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Critico);
}

TEST_P(Sufijos, ALineKeepsItsTextWhenTheEngineGivesNone) {
    tresFamilias();
    registro.indices = {-1};
    EXPECT_EQ(ActuSufijos(*ctx, motor, u"AB(BOSCH)-"_s).toStdString(), "AB(BOSCH)-");
    EXPECT_EQ(ActuSufijos(*ctx, u"8499.00.00.000X"_s, u"AB(BOSCH)-"_s).toStdString(), "AB(BOSCH)-");
    registro.indices = {1};
    registro.textos = {u"7"_s};
    EXPECT_EQ(ActuSufijos(*ctx, motor, u"AB(BOSCH)-"_s).toStdString(), "AA01-AB(BOSCH)-ZB(000007)-");
}

TEST_P(Sufijos, WhatTheEngineMakesPassesTheSilentCheck) {
    tresFamilias();
    sufijo("84  .  .  .   ", "AS", "Descripción");
    registro.indices = {0};
    registro.textos = {u"Bosch (azul)"_s, u"ñandú - 3"_s, u"9"_s};
    const std::string texto = construir();
    EXPECT_EQ(texto, "AA00-AB(BOSCH AZUL)-AS(ÑAND 3)-ZB(000009)-");
    EXPECT_EQ(SuffixCheckerClass(*ctx).Validar(motor, QString::fromStdString(texto)), 0);
}

TEST_P(Sufijos, TheScreenOfSuffixesShowsTheCatalogueAndTheLine) {
    tresFamilias();
    const DatosDeSufijos datos = LeerDatosDeSufijos(*ctx, motor, u"AA01-AB(BOSCH)-CC01-"_s);
    ASSERT_EQ(datos.catalogo.size(), 4U);
    EXPECT_EQ(datos.catalogo[2].sufijo.toStdString(), "AB");
    ASSERT_EQ(datos.linea.size(), 3U);
    EXPECT_EQ(datos.linea[0].token.toStdString(), "AA01");
    EXPECT_EQ(datos.linea[0].detalle.toStdString(), "Con marca");
    EXPECT_EQ(datos.linea[1].token.toStdString(), "AB(BOSCH)");
    EXPECT_EQ(datos.linea[1].detalle.toStdString(), "Marca y modelo");
    EXPECT_TRUE(datos.linea[2].detalle.isEmpty());
    EXPECT_EQ(datos.estado.toStdString(), "Familias pedidas: 3. Faltan sufijos");
    EXPECT_EQ(LeerDatosDeSufijos(*ctx, motor, u"AA01-AB(X)-ZB(000001)-"_s).estado.toStdString(),
              "Familias pedidas: 3. Sufijos completos");
    EXPECT_EQ(LeerDatosDeSufijos(*ctx, u"9503.00.10.000D"_s, {}).estado.toStdString(),
              "La posición no pide sufijos");
    EXPECT_EQ(LeerDatosDeSufijos(*ctx, u"8499.00.00.000X"_s, {}).estado.toStdString(),
              "La posición no existe en el nomenclador");
}

EN_AMBOS_STORES(Sufijos);

class SufijosDeLaDemostracion : public EnAmbosStores {
    bool conDemostracion() const override { return true; }
};

TEST_P(SufijosDeLaDemostracion, EveryLineIsReconfirmedWithoutAQuestion) {
    Recordset rs;
    ASSERT_TRUE(Consultar(*ctx, u"INTERNOS"_s, u"select ncm,sufijos from subitems order by id"_s, rs));
    int lineas = 0;
    for (; !rs.Eof(); rs.MoveNext()) {
        const QString texto = rs.Texto(u"sufijos");
        if (texto.isEmpty() || SuffixCheckerClass(*ctx).Validar(rs.Texto(u"ncm"), texto) != 0) continue;
        ++lineas;
        const QString nuevo = ValidarSufijos(*ctx, rs.Texto(u"ncm"), texto, ModoDeSufijos::Reconfirmar);
        EXPECT_TRUE(sufijos::EsTextoTerminado(nuevo)) << nuevo.toStdString();
    }
    EXPECT_GE(lineas, 20);
    EXPECT_TRUE(registro.elecciones.empty());
    EXPECT_TRUE(registro.entradas.empty());
}

EN_AMBOS_STORES(SufijosDeLaDemostracion);

}  // namespace
