#include "outputs/fixedfield.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct CampoDeHoja {
    const char *caso;
    const char16_t *texto;
    int ancho;
    const char16_t *campo;
};
void PrintTo(const CampoDeHoja &campo, std::ostream *salida) {
    *salida << campo.caso;
}

class CamposFijos : public ::testing::TestWithParam<CampoDeHoja> {};

TEST_P(CamposFijos, AreCutOrFilledToTheirCharacters) {
    EXPECT_EQ(CampoFijo(QString::fromUtf16(GetParam().texto), GetParam().ancho),
              QString::fromUtf16(GetParam().campo));
}

INSTANTIATE_TEST_SUITE_P(
    Sheet, CamposFijos,
    ::testing::Values(CampoDeHoja{"ShorterIsFilled", u"IVA", 6, u"IVA   "},
                      CampoDeHoja{"AsLongAsTheColumn", u"Unidad", 6, u"Unidad"},
                      CampoDeHoja{"LongerIsCut", u"Derecho Especifico", 15, u"Derecho Especif"},
                      CampoDeHoja{"NothingIsBlanks", u"", 3, u"   "},
                      CampoDeHoja{"NoWidthIsNothing", u"IVA", 0, u""},
                      // Two bytes each.
                      CampoDeHoja{"AccentsCountOnce", u"Posición", 10, u"Posición  "},
                      CampoDeHoja{"AccentsAreCutByCharacters", u"ÑÑÑÑ", 3, u"ÑÑÑ"},
                      // Four bytes, and two units of the string.
                      CampoDeHoja{"ACharacterOfTwoUnitsCountsOnce", u"\U00020BB7A", 3, u"\U00020BB7A "},
                      CampoDeHoja{"ACharacterOfTwoUnitsIsNotCutInHalf", u"A\U00020BB7B", 2, u"A\U00020BB7"},
                      CampoDeHoja{"BlanksOfTheTextStay", u" a ", 4, u" a  "}),
    [](const ::testing::TestParamInfo<CampoDeHoja> &caso) { return std::string(caso.param.caso); });

}  // namespace
