// Looking the nomenclature up by position and by words.

#include <gtest/gtest.h>

#include "frame/entities.h"
#include "subitems/tariffsearch.h"
#include "tests/support/tienda.h"
#include "tests/support/traza.h"

using namespace Qt::StringLiterals;

namespace {

using entidad::ncm;

std::string texto(const std::vector<FilaDeConsulta> &filas) {
    QStringList lineas;
    for (const FilaDeConsulta &f : filas) lineas << f.posicion + u'|' + f.texto;
    return lineas.join(u'\n').toStdString();
}

class Consultas : public EnAmbosStores {
 protected:
    void SetUp() override {
        EnAmbosStores::SetUp();
        ejecutar(
            u"insert into ncm ([001],[002],[003],[004],[010]) values "
            "('8409.91.12','900','A','Partes de motores','Las demás'),"
            "('8409.91.12','100','G','Partes de motores','Bielas'),"
            "('8501.10.19','000','C','Motores eléctricos','Los demás ÓPTICOS'),"
            "('9503.00.10','000','D',null,'Muñecas d''oro')"_s,
            ncm);
    }
    std::string ultimoMensaje() const {
        return registro.mensajes.empty() ? "<none>" : registro.mensajes.back().texto.toStdString();
    }
};

TEST_P(Consultas, ByPositionACommaBecomesADot) {
    const Traza traza;
    EXPECT_EQ(texto(ConsultarPorPosicion(*ctx, u"8409,91"_s)),
              "8409.91.12.100G|Bielas - - Partes de motores\n"
              "8409.91.12.900A|Las demás - - Partes de motores");
    EXPECT_EQ(traza.texto(),
              "NCM|select [001],[002],[003],[004],[010] from ncm where [001] like '8409.91%' order by "
              "[001],[002],[003]");
}

TEST_P(Consultas, AnEmptyPositionIsTold) {
    const Traza traza;
    EXPECT_TRUE(ConsultarPorPosicion(*ctx, QString()).empty());
    EXPECT_EQ(ultimoMensaje(), "Debe ingresar una posición");
    EXPECT_EQ(traza.texto(), "");
}

TEST_P(Consultas, ByWordsLooksInBothLevelsAndJoinsThemOtherwise) {
    const Traza traza;
    EXPECT_EQ(texto(ConsultarPorPalabras(*ctx, u"motores"_s)),
              "8409.91.12.100G|Bielas -- Partes de motores\n"
              "8409.91.12.900A|Las demás -- Partes de motores\n"
              "8501.10.19.000C|Los demás ÓPTICOS -- Motores eléctricos");
    EXPECT_EQ(traza.texto(),
              "NCM|select [001],[002],[003],[004],[010] from ncm where [010] like '%motores%' or [004] like "
              "'%motores%' order by [001],[002],[003]");
    // Case does not matter, with accents either.
    EXPECT_EQ(ConsultarPorPalabras(*ctx, u"BIELAS"_s).size(), 1U);
    EXPECT_EQ(ConsultarPorPalabras(*ctx, u"ópticos"_s).size(), 1U);
    EXPECT_EQ(ConsultarPorPalabras(*ctx, u"MUÑECAS"_s).size(), 1U);
}

TEST_P(Consultas, ThreeCharactersExactlyAreEnoughTwoShowTheMessage) {
    EXPECT_EQ(ConsultarPorPalabras(*ctx, u"mot"_s).size(), 3U);
    EXPECT_TRUE(registro.mensajes.empty());
    EXPECT_TRUE(ConsultarPorPalabras(*ctx, u"mo"_s).empty());
    EXPECT_EQ(ultimoMensaje(), "Debe ingresar al menos 3 caracteres para buscar una posición");
    registro.mensajes.clear();
    // Characters, not bytes: "ñé" is two.
    EXPECT_TRUE(ConsultarPorPalabras(*ctx, u"ñé"_s).empty());
    EXPECT_EQ(registro.mensajes.size(), 1U);
}

TEST_P(Consultas, AQuoteIsLookedForAsTyped) {
    EXPECT_EQ(texto(ConsultarPorPalabras(*ctx, u"d'oro"_s)), "9503.00.10.000D|Muñecas d'oro -- ");
}

TEST_P(Consultas, NothingFoundIsAnEmptyListWithoutAWord) {
    EXPECT_TRUE(ConsultarPorPalabras(*ctx, u"zzz"_s).empty());
    EXPECT_TRUE(ConsultarPorPosicion(*ctx, u"99"_s).empty());
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(Consultas, WordsOverThirtyThousandPositionsFindTheirOwn) {
    constexpr int posiciones = 30000;
    constexpr int porVez = 500;
    static const char *const bienes[] = {"Bombas para líquidos",
                                         "Válvulas de retención",
                                         "Tejidos de punto",
                                         "Neumáticos nuevos de caucho",
                                         "Motores eléctricos de corriente alterna",
                                         "Aparatos de óptica",
                                         "Preparaciones alimenticias compuestas"};
    static const char *const clases[] = {"de fundición", "de acero inoxidable", "de materia plástica",
                                         "con un peso inferior o igual a 5 kg", "los demás"};
    for (int desde = 0; desde < posiciones; desde += porVez) {
        QStringList valores;
        for (int i = desde; i < desde + porVez; ++i)
            valores << u"('%1.%2.%3','%4','A','%5 y sus partes','%5 %6, artículo %7')"_s.arg(1000 + i / 1000)
                           .arg(i / 10 % 100, 2, 10, QLatin1Char('0'))
                           .arg(i % 10 * 10, 2, 10, QLatin1Char('0'))
                           .arg(i % 9 * 100, 3, 10, QLatin1Char('0'))
                           .arg(QString::fromUtf8(bienes[i % 7]), QString::fromUtf8(clases[i % 5]))
                           .arg(i);
        ejecutar(u"insert into ncm ([001],[002],[003],[004],[010]) values "_s + valores.join(u','), ncm);
    }
    struct Caso {
        const char *palabras;
        std::size_t filas;
    };
    // "artículo 12345" is one row; "neumáticos" one of seven kinds: 30000 / 7 = 4285.7, kinds 0 to 4 get
    // 4286.
    const Caso casos[] = {{"artículo 12345", 1}, {"NEUMÁTICOS", 4286}, {"nada de esto", 0}};
    for (const Caso &c : casos)
        EXPECT_EQ(ConsultarPorPalabras(*ctx, QString::fromUtf8(c.palabras)).size(), c.filas) << c.palabras;
}

EN_AMBOS_STORES(Consultas);

}  // namespace
