// What an address is.

#include <gtest/gtest.h>

#include "outputs/mail.h"

using namespace Qt::StringLiterals;

namespace {

struct CasoDeDireccion {
    const char16_t *texto;
    bool valida;
};

void probarDirecciones(std::initializer_list<CasoDeDireccion> casos) {
    for (const CasoDeDireccion &caso : casos) {
        const QString texto = QString::fromUtf16(caso.texto);
        EXPECT_EQ(EsDireccionValida(texto), caso.valida) << texto.toStdString();
    }
}

}  // namespace

TEST(Direccion, AnEnyeOrAnotherCharacterOutsideTheListIsRefused) {
    probarDirecciones({{u"peña@x.com", false},
                       {u"pena@peña.com", false},
                       {u"a b@x.com", false},
                       {u"a+b@x.com", false},
                       {u"á@x.com", false},
                       {u"a@x.com\n", false},
                       {u"a,b@x.com", false},
                       {u"'a@x.com", false},
                       {u"a@x.com>", false}});
}

TEST(Direccion, LastLabelsOfTwoToFourCharactersAreValidAndOfOneOrFiveAreNot) {
    probarDirecciones({{u"a@x.a", false},
                       {u"a@x.ar", true},
                       {u"a@x.com", true},
                       {u"a@x.info", true},
                       {u"a@x.museo", false},
                       {u"a@x.com.ar", true},
                       {u"a@x.", false}});
}

TEST(Direccion, DoubledDotsAndALeadingOrAClosingDotAreRefused) {
    probarDirecciones({{u"a..b@x.com", false},
                       {u"a@x..com", false},
                       {u".a@x.com", false},
                       {u"a.@x.com", false},
                       {u"a@.x.com", false},
                       {u"a@x.com.", false},
                       {u"a.b@x.com", true}});
}

TEST(Direccion, ThereAreTwoPartsAndNeitherIsEmpty) {
    probarDirecciones({{u"", false},
                       {u"@", false},
                       {u"a@", false},
                       {u"@x.com", false},
                       {u"ax.com", false},
                       {u"a@b@x.com", false},
                       {u"a@xcom", false},
                       {u"a@x.com@", false}});
}

TEST(Direccion, DigitsCapitalsAndTheThreeSignsPass) {
    probarDirecciones({{u"JUAN.Perez_1-2@Mi-Casa.COM", true}, {u"0@0.00", true}, {u"_@-.zz", true}});
}

TEST(Direccion, TheSoftHyphenPasses) {
    probarDirecciones(
        {{u"a\u00ADb@x.com", true}, {u"ab@x.c\u00AD", true}, {u"\u00AD@\u00AD.\u00AD\u00AD", true}});
}

TEST(Direccion, AFieldOfOneLineStaysOneLine) {
    EXPECT_EQ(EnUnaLinea(u"a\r\nb\nc\rd\te\u2028f\u0000g"_s), u"a b c d e f g"_s);
    EXPECT_EQ(EnUnaLinea(u"Peña & Cía."_s), u"Peña & Cía."_s);
}
