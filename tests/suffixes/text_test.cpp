// The text form of suffixes.

#include <gtest/gtest.h>

#include <QStringList>

#include "header/regime.h"
#include "subitems/suffixtext.h"

using namespace Qt::StringLiterals;

namespace {

/// "AA01 | AB(XYZ) | ZB(1)?": the tokens, with "?" behind one that no "-" closes.
std::string partido(const char *texto) {
    QStringList lista;
    for (const sufijos::Token &t : sufijos::Partir(QString::fromUtf8(texto)))
        lista << t.texto() + (t.cerrado ? QString() : u"?"_s);
    return lista.join(u" | "_s).toStdString();
}

TEST(TextoDeSufijos, IsCutIntoItsTokens) {
    struct Caso {
        const char *texto;
        const char *tokens;
    };
    const Caso casos[] = {
        {"AA01-AB(XYZ)-ZB(000123)-", "AA01 | AB(XYZ) | ZB(000123)"},
        {"aa01-ab(xyz)-", "AA01 | AB(xyz)"},
        {"AA01", "AA01?"},
        {"AA01-AB(X)", "AA01 | AB(X)?"},
        // A "-" between parentheses belongs to the value.
        {"AI(ABC-123)-AA01-", "AI(ABC-123) | AA01"},
        {" AA01 - AB( X ) -", "AA01 | AB( X )"},
        {"", ""},
        {"-", ""},
        {"SIN SUFIJOS", ""},
        {"##ERRORNCM##", ""},
        {"AB()-", ""},
        {"AB(X-", ""},
        {"AA0-AA012-AA01-", "AA01"},
    };
    for (const Caso &c : casos) EXPECT_EQ(partido(c.texto), c.tokens) << c.texto;
}

TEST(TextoDeSufijos, IsComposedAndClosed) {
    const QString texto = u"AA01-AB(XYZ)-ZB(000123)-"_s;
    EXPECT_EQ(sufijos::Componer(sufijos::Partir(texto)).toStdString(), texto.toStdString());
    EXPECT_EQ(sufijos::Componer({}).toStdString(), "");
}

TEST(TextoDeSufijos, AFinishedTextIsTokensAllClosedAndNothingElse) {
    const std::pair<const char *, bool> casos[] = {
        {"AA01-", true},         {"AA01-AB(X Y)-", true}, {"SIN SUFIJOS", true},      {"", false},
        {"AA01", false},         {"AA01-AB(X)", false},   {"##ERRORNCM##", false},    {"-", false},
        {"AA01-basura-", false}, {"AA01--", false},       {"###CANCELADO###", false}, {"AB(X-", false},
        {"AB( )-", false}};
    for (const auto &[texto, terminado] : casos)
        EXPECT_EQ(sufijos::EsTextoTerminado(QString::fromUtf8(texto)), terminado) << texto;
}

TEST(ValoresLibres, AreStoredWithoutTheTextsOwnMarks) {
    struct Caso {
        const char *tecleado;
        const char *guardado;
    };
    const Caso casos[] = {
        // The three characters become blanks and double blanks collapse.
        {"ABC-(1)", "ABC 1"},
        {"  abc  123 ", "ABC 123"},
        {"Señal/ok.,#&", "SEÑAL/OK.,#&"},
        {"motor 2\" @ía", "MOTOR 2 A"},
        {"()-", ""},
        // 40 characters.
        {"1234567890123456789012345678901234567890X", "1234567890123456789012345678901234567890"},
    };
    for (const Caso &c : casos)
        EXPECT_EQ(sufijos::NormalizarValor(QString::fromUtf8(c.tecleado)).toStdString(), c.guardado)
            << c.tecleado;
}

TEST(ValoresLibres, ANumberIsCutToSixCharactersAndFilledWithZeros) {
    struct Caso {
        const char *valor;
        const char *guardado;
    };
    const Caso casos[] = {
        {"1234567", "123456"},
        {"12", "000012"},
        {"0", "000000"},
        // 12.5 rounds away from zero.
        {"12.5", "000013"},
        {"12,4", "000012"},
        // Its first six characters, "99999.", read 99999.
        {"99999.9", "099999"},
        {"1E9", "100000"},
        {"12A", ""},
        {"1 2", ""},
        {"", ""},
    };
    for (const Caso &c : casos)
        EXPECT_EQ(sufijos::NormalizarValorNumerico(QString::fromUtf8(c.valor)).toStdString(), c.guardado)
            << c.valor;
}

TEST(ArticuloForzado, ReplacesTheValuesOfAIAndAB) {
    struct Caso {
        const char *texto;
        const char *articulo;
        const char *salida;
    };
    const Caso casos[] = {
        {"AA01-AI(VIEJO)-AB(VIEJO)-ZB(000001)-", "Nro-(7)", "AA01-AI(NRO 7)-AB(NRO 7)-ZB(000001)-"},
        {"AI(VIEJO)-", "abc", "AI(ABC)-"},
        {"AA01-ZB(000001)-", "abc", "AA01-ZB(000001)-"},
        {"SIN SUFIJOS", "abc", "SIN SUFIJOS"},
        {"", "abc", ""},
        // No article, and one of marks alone: nothing to put in.
        {"AA01-AI(VIEJO)-AB(OTRO)-", "", "AA01-AI(VIEJO)-AB(OTRO)-"},
        {"AA01-AI(VIEJO)-AB(OTRO)-", "(-)", "AA01-AI(VIEJO)-AB(OTRO)-"},
    };
    for (const Caso &c : casos)
        EXPECT_EQ(
            sufijos::ForzarArticulo(QString::fromUtf8(c.texto), QString::fromUtf8(c.articulo)).toStdString(),
            c.salida)
            << c.texto;
}

TEST(ArticuloForzado, PassesTheTestOfTheArticleInTheSuffixes) {
    for (const char *articulo : {"ABC-DEF", "a (1) - b", "X"}) {
        const QString texto = sufijos::ForzarArticulo(u"AI(OTRO)-"_s, QString::fromUtf8(articulo));
        EXPECT_TRUE(SufijoContieneArticulo(u"8409.91.12.100A"_s, texto, QString::fromUtf8(articulo)))
            << articulo;
    }
}

}  // namespace
