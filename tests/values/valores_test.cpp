#include "frame/base/values.h"
#include "frame/sqltext.h"

#include <gtest/gtest.h>

#include <QDateTime>
#include <QFile>
#include <QTemporaryDir>

#include "frame/base/numbers.h"
#include "frame/context.h"

using namespace Qt::StringLiterals;

namespace {

QString AStore(const char *valor, const char *separador) {
    return AStoreNumero(QString::fromUtf8(valor), QString::fromUtf8(separador));
}

TEST(AStoreNumero, ThousandsMarksAreReplacedBlindly) {
    EXPECT_EQ(AStore("1.234,56", ","), u"1,234,56"_s);
}

TEST(AStoreNumero, ATextThatIsNoNumberGivesZero) {
    EXPECT_EQ(AStore("abc", "."), u"0"_s);
    EXPECT_EQ(AStore("", "."), u"0"_s);
    EXPECT_EQ(AStore("12a", ","), u"0"_s);
}

TEST(AStoreNumero, ABlankSeparatorMeansAPoint) {
    EXPECT_EQ(AStore("12,5", ""), u"12.5"_s);
    EXPECT_EQ(AStore("12,5", "  "), u"12.5"_s);
}

TEST(AStoreNumero, EitherSeparatorBecomesTheEntitys) {
    EXPECT_EQ(AStore("12,5", "."), u"12.5"_s);
    EXPECT_EQ(AStore("12.5", ","), u"12,5"_s);
    EXPECT_EQ(AStore("12.5", " , "), u"12,5"_s);
    EXPECT_EQ(AStore("-7", "."), u"-7"_s);
    EXPECT_EQ(AStore("1.234,56", "."), u"1.234.56"_s);
}

TEST(EsNull, TheValueOrTheEmptyText) {
    EXPECT_EQ(EsNull({}), QString());
    EXPECT_EQ(EsNull(QVariant(QString())), QString());
    EXPECT_EQ(EsNull(u"ñandú"_s), u"ñandú"_s);
    EXPECT_EQ(EsNull(1.0), u"1"_s);
    EXPECT_EQ(EsNull(12.5), u"12.5"_s);
    EXPECT_EQ(EsNull(qlonglong(330)), u"330"_s);
    EXPECT_EQ(EsNull(QDateTime(QDate(2026, 3, 5), QTime(10, 20, 30))), u"2026-03-05 10:20:30"_s);
}

TEST(EsNumero, TheNumberOrZero) {
    EXPECT_EQ(EsNumero({}), 0);
    EXPECT_EQ(EsNumero(u"abc"_s), 0);
    EXPECT_EQ(EsNumero(u""_s), 0);
    EXPECT_EQ(EsNumero(u"12,5"_s), 12.5);
    EXPECT_EQ(EsNumero(u"12.5"_s), 12.5);
    EXPECT_EQ(EsNumero(3.25), 3.25);
    EXPECT_EQ(EsNumero(qlonglong(7)), 7);
}

TEST(PonerPuntoDecimal, APointWhateverTheWorkstationSays) {
    EXPECT_EQ(PonerPuntoDecimal(1234.5), u"1234.5"_s);
}

TEST(ReemplazarSeparadorDecimal, EitherSeparatorBecomesTheWorkstations) {
    QString texto = u"21.5"_s;
    EXPECT_EQ(ReemplazarSeparadorDecimal(texto, u','), u"21,5"_s);
    EXPECT_EQ(texto, u"21,5"_s);
    EXPECT_EQ(ReemplazarSeparadorDecimal(texto, u'.'), u"21.5"_s);
}

TEST(DoblarComillas, EveryQuoteIsDoubled) {
    EXPECT_EQ(DoblarComillas(u"d'Or 5''"_s), u"d''Or 5''''"_s);
    EXPECT_EQ(DoblarComillas(QString()), QString());
}

/// A context whose profile gives INTERNOS one separator and NCM the other.
class ConPerfil : public ::testing::Test {
 protected:
    void SetUp() override {
        const QString perfil = dir.filePath(u"a.perfil.ini"_s);
        QFile f(perfil);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(
            "[INTERNOS]\ndriver=archivo\narchivo=i.db\nseparador=,\n[NCM]\ndriver=archivo\narchivo=n.db\n");
        f.close();
        QString error;
        ASSERT_TRUE(ctx.DataManager.usarPerfil(perfil, &error)) << error.toStdString();
    }

    QTemporaryDir dir;
    AppContext ctx;
};

TEST_F(ConPerfil, SqlNumberTakesTheSeparatorOfInternos) {
    EXPECT_EQ(SqlNumber(ctx, 12.5), u"12,5"_s);
    EXPECT_EQ(SqlNumber(ctx, -3), u"-3"_s);
    EXPECT_EQ(SqlNumber(ctx, u"7.25"_s), u"7,25"_s);
    EXPECT_EQ(SqlNumber(ctx, u"nada"_s), u"0"_s);
    EXPECT_EQ(SqlNumber(ctx, 1e-7), u"0,0000001"_s);
}

TEST_F(ConPerfil, SqlRoundCountsTheMasksDecimals) {
    const QString entidad = u"INTERNOS"_s;
    EXPECT_EQ(SqlRound(ctx, entidad, u"fob"_s, u"00.00"), u"ROUND(fob,2)"_s);
    EXPECT_EQ(SqlRound(ctx, entidad, u"(a / b)"_s, u"00.000"), u"ROUND((a / b),3)"_s);
    EXPECT_EQ(SqlRound(ctx, entidad, u"x"_s, u"00.00000"), u"ROUND(x,5)"_s);
    // An expression that holds the placeholder's text is put in once.
    EXPECT_EQ(SqlRound(ctx, entidad, u"999.999"_s, u"00.00"), u"ROUND(999.999,2)"_s);
}

TEST_F(ConPerfil, TheRoundingTextStandsAroundThePlaceholder) {
    EXPECT_EQ(ctx.DataManager.getNumberFormatbyEntity(2, u"999,999"_s, u"INTERNOS"_s), u"ROUND(999.999,2)"_s);
}

}  // namespace
