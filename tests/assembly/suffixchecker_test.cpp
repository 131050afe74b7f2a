#include <gtest/gtest.h>

#include "subitems/SuffixChecker.h"
#include "subitems/nomenclature.h"
#include "tests/assembly/operacion.h"

using namespace Qt::StringLiterals;

namespace {

class Sufijos : public Armado {
 protected:
    int validar(const QString &posicionDeLinea, const QString &sufijos) {
        return SuffixCheckerClass(*ctx).Validar(posicionDeLinea, sufijos);
    }
};
EN_AMBOS_STORES(Sufijos);

struct CasoDeCorte {
    const char *posicion;
    const char *c001, *c002, *c003;
};
constexpr CasoDeCorte cortes[] = {
    {"8409.91.12.100G", "8409.91.12", "100", "G"},
    {"8409.91.12.100", "8409.91.12", "100", ""},
    {"8409.91.12.1", "8409.91.12", "1", ""},
    {"8409.91.12", "8409.91.12", "", ""},
    {"8409", "8409", "", ""},
    {"", "", "", ""},
};

}  // namespace

TEST(Nomenclatura, APositionIsCutIntoItsThreeKeysAndMissingPartsAreEmpty) {
    for (const CasoDeCorte &c : cortes) {
        const ClavesNcm claves = CortarPosicion(QLatin1StringView(c.posicion));
        EXPECT_EQ(claves.c001, QLatin1StringView(c.c001)) << c.posicion;
        EXPECT_EQ(claves.c002, QLatin1StringView(c.c002)) << c.posicion;
        EXPECT_EQ(claves.c003, QLatin1StringView(c.c003)) << c.posicion;
    }
}

TEST(Nomenclatura, TheFourSuffixKeysKeepTheirBlanks) {
    EXPECT_EQ(ListaDeClavesSim(posicionSinSufijos),
              u"('84  .  .  .   ','8409.  .  .   ','8409.91.  .   ','8409.91.12.100')"_s);
}

TEST_P(Sufijos, TheMarksOfAPositionAreReadThroughItsThreeKeys) {
    posicion(u"2208.30.20.000Q"_s, {{u"028"_s, u"' * '"_s}, {u"041"_s, u"'*'"_s}, {u"059"_s, u"'N'"_s}});
    posicion(u"2208.30.20.000R"_s, {{u"059"_s, u"'*'"_s}});
    const MarcasNcm q = LeerMarcasNcm(*ctx, u"2208.30.20.000Q"_s);
    EXPECT_TRUE(q.encontrada && q.automotriz && q.estampillado && !q.lapi);
    const MarcasNcm r = LeerMarcasNcm(*ctx, u"2208.30.20.000R"_s);
    EXPECT_TRUE(r.encontrada && !r.automotriz && !r.estampillado && r.lapi);
    EXPECT_FALSE(LeerMarcasNcm(*ctx, u"2208.30.20.000S"_s).encontrada);
}

TEST_P(Sufijos, APositionThatTheNomenclatureLacksAnswersOne) {
    EXPECT_EQ(validar(u"9999.99.99.999Z"_s, u"AA01-"_s), 1);
    EXPECT_EQ(validar(QString(), QString()), 1);
}

TEST_P(Sufijos, TheLetterOfAPositionDoesNotCount) {
    EXPECT_EQ(validar(u"8409.91.12.100X"_s, QString()), 0);
}

TEST_P(Sufijos, AnEmptyTextOnAPositionThatNeedsNoSuffixIsValid) {
    EXPECT_EQ(validar(posicionSinSufijos, QString()), 0);
    EXPECT_EQ(validar(posicionSinSufijos, u"SIN SUFIJOS"_s), 0);
}

TEST_P(Sufijos, TokensOfFamiliesThatAreNotRequiredDoNotMakeATextInvalid) {
    EXPECT_EQ(validar(posicionSinSufijos, u"ZZ99-QQ(X)-"_s), 0);
}

TEST_P(Sufijos, RequiredFamiliesAndWhatFitsThem) {
    // AA coded with two options, AB free text, ZB free number, BX of two letters but without a type, CCC too
    // long.
    sufijo(u"8409.91.12.100"_s, u"AA01"_s);
    sufijo(u"8409.91.12.100"_s, u"AA02"_s);
    sufijo(u"8409.91.  .   "_s, u"AB"_s);
    sufijo(u"8409.  .  .   "_s, u"ZB"_s);
    sufijo(u"84  .  .  .   "_s, u"BX"_s);
    sufijo(u"84  .  .  .   "_s, u"CCC"_s);
    sufijo(u"8410.  .  .   "_s, u"DD01"_s);
    struct Caso {
        QStringView texto;
        int respuesta;
    };
    constexpr Caso casos[] = {
        {u"AA01-AB(MARCA)-ZB(000750)-", 0},
        {u"AA02-AB(MARCA)-ZB(000750)", 0},  // the last dash may lack
        {u"ZB(1)-AA01-AB(X)-", 0},          // in any order
        {u"AA00-AB(X)-ZB(1)-", 0},          // "Ninguna opción"
        {u"aa01-ab(x)-zb(1)-", 0},          // either case
        {u"AA01-AB(X)-ZB(1)-QQ07-", 0},     // one more
        {u"AA01-AB(UNO-DOS)-ZB(1)-", 0},    // a dash of an imported value
        {u"AA03-AB(X)-ZB(1)-", 2},          // no such option
        {u"AA-AB(X)-ZB(1)-", 2},
        {u"AA01-AB()-ZB(1)-", 2},  // holds nothing
        {u"AA01-AB( )-ZB(1)-", 2},
        {u"AA01-AB(X-ZB(1)-", 2},  // does not close
        {u"AA01-ZB(1)-", 2},
        {u"AA01-AB01-ZB(1)-", 2},  // a code where a value is due
        {u"AB(X)-ZB(1)-", 2},
        {u"SIN SUFIJOS", 2},
        {u"", 2},
    };
    for (const Caso &caso : casos)
        EXPECT_EQ(validar(posicionSinSufijos, caso.texto.toString()), caso.respuesta)
            << caso.texto.toString().toStdString();
}

TEST_P(Sufijos, AFamilyAtChapterLevelAppliesToAllPositionsOfTheChapter) {
    posicion(u"8413.70.10.100L"_s);
    posicion(u"8501.52.10.190K"_s);
    sufijo(u"84  .  .  .   "_s, u"AB"_s);
    EXPECT_EQ(validar(u"8413.70.10.100L"_s, QString()), 2);
    EXPECT_EQ(validar(u"8413.70.10.100L"_s, u"AB(X)-"_s), 0);
    EXPECT_EQ(validar(u"8501.52.10.190K"_s, QString()), 0);
}

TEST_P(Sufijos, TheFirstRowOfAFamilyTellsItsKind) {
    // The catalogue mixes a free and a coded row of one family: the first loaded wins.
    sufijo(u"8409.91.12.100"_s, u"AC"_s);
    sufijo(u"8409.91.12.100"_s, u"AC01"_s);
    EXPECT_EQ(validar(posicionSinSufijos, u"AC(X)-"_s), 0);
    EXPECT_EQ(validar(posicionSinSufijos, u"AC01-"_s), 2);
}
