#include "frame/values.h"

#include <gtest/gtest.h>

#include <QDateTime>
#include <QFile>
#include <QTemporaryDir>

#include "frame/context.h"
#include "frame/numbers.h"

namespace {

QString AStore(const char *valor, const char *separador) {
    return AStoreNumero(QString::fromUtf8(valor), QString::fromUtf8(separador));
}

TEST(AStoreNumero, ThousandsMarksAreReplacedBlindly) {
    EXPECT_EQ(AStore("1.234,56", ","), QStringLiteral("1,234,56"));
}

TEST(AStoreNumero, ATextThatIsNoNumberGivesZero) {
    EXPECT_EQ(AStore("abc", "."), QStringLiteral("0"));
    EXPECT_EQ(AStore("", "."), QStringLiteral("0"));
    EXPECT_EQ(AStore("12a", ","), QStringLiteral("0"));
}

TEST(AStoreNumero, ABlankSeparatorMeansAPoint) {
    EXPECT_EQ(AStore("12,5", ""), QStringLiteral("12.5"));
    EXPECT_EQ(AStore("12,5", "  "), QStringLiteral("12.5"));
}

TEST(AStoreNumero, EitherSeparatorBecomesTheEntitys) {
    EXPECT_EQ(AStore("12,5", "."), QStringLiteral("12.5"));
    EXPECT_EQ(AStore("12.5", ","), QStringLiteral("12,5"));
    EXPECT_EQ(AStore("12.5", " , "), QStringLiteral("12,5"));
    EXPECT_EQ(AStore("-7", "."), QStringLiteral("-7"));
    EXPECT_EQ(AStore("1.234,56", "."), QStringLiteral("1.234.56"));
}

TEST(EsNull, TheValueOrTheEmptyText) {
    EXPECT_EQ(EsNull({}), QString());
    EXPECT_EQ(EsNull(QVariant(QString())), QString());
    EXPECT_EQ(EsNull(QStringLiteral("ñandú")), QStringLiteral("ñandú"));
    EXPECT_EQ(EsNull(1.0), QStringLiteral("1"));
    EXPECT_EQ(EsNull(12.5), QStringLiteral("12.5"));
    EXPECT_EQ(EsNull(qlonglong(330)), QStringLiteral("330"));
    EXPECT_EQ(EsNull(QDateTime(QDate(2026, 3, 5), QTime(10, 20, 30))), QStringLiteral("2026-03-05 10:20:30"));
}

TEST(EsNumero, TheNumberOrZero) {
    EXPECT_EQ(EsNumero({}), 0);
    EXPECT_EQ(EsNumero(QStringLiteral("abc")), 0);
    EXPECT_EQ(EsNumero(QStringLiteral("")), 0);
    EXPECT_EQ(EsNumero(QStringLiteral("12,5")), 12.5);
    EXPECT_EQ(EsNumero(QStringLiteral("12.5")), 12.5);
    EXPECT_EQ(EsNumero(3.25), 3.25);
    EXPECT_EQ(EsNumero(qlonglong(7)), 7);
}

TEST(PonerPuntoDecimal, APointWhateverTheWorkstationSays) {
    const QChar antes = numeros::separadorDecimal();
    for (const QChar c : {QChar(u'.'), QChar(u',')}) {
        numeros::fijarSeparadorDecimal(c);
        EXPECT_EQ(PonerPuntoDecimal(1234.5), QStringLiteral("1234.5"));
    }
    numeros::fijarSeparadorDecimal(antes);
}

TEST(ReemplazarSeparadorDecimal, EitherSeparatorBecomesTheWorkstations) {
    const QChar antes = numeros::separadorDecimal();
    numeros::fijarSeparadorDecimal(u',');
    QString texto = QStringLiteral("21.5");
    EXPECT_EQ(ReemplazarSeparadorDecimal(texto), QStringLiteral("21,5"));
    EXPECT_EQ(texto, QStringLiteral("21,5"));
    numeros::fijarSeparadorDecimal(u'.');
    EXPECT_EQ(ReemplazarSeparadorDecimal(texto), QStringLiteral("21.5"));
    numeros::fijarSeparadorDecimal(antes);
}

TEST(DoblarComillas, EveryQuoteIsDoubled) {
    EXPECT_EQ(DoblarComillas(QStringLiteral("d'Or 5''")), QStringLiteral("d''Or 5''''"));
    EXPECT_EQ(DoblarComillas(QString()), QString());
}

/// A context whose profile gives INTERNOS one separator and NCM the other.
class ConPerfil : public ::testing::Test {
 protected:
    void SetUp() override {
        const QString perfil = dir.filePath(QStringLiteral("a.perfil.ini"));
        QFile f(perfil);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(
            "[INTERNOS]\ndriver=archivo\narchivo=i.db\nseparador=,\n[NCM]\ndriver=archivo\narchivo=n.db\n");
        f.close();
        QString error;
        ASSERT_TRUE(ctx.DataManager.usarPerfil(perfil, &error)) << error.toStdString();
        fijarContexto(&ctx);
    }
    void TearDown() override { fijarContexto(nullptr); }

    QTemporaryDir dir;
    AppContext ctx;
};

TEST_F(ConPerfil, SqlNumberTakesTheSeparatorOfInternos) {
    EXPECT_EQ(SqlNumber(12.5), QStringLiteral("12,5"));
    EXPECT_EQ(SqlNumber(-3), QStringLiteral("-3"));
    EXPECT_EQ(SqlNumber(QStringLiteral("7.25")), QStringLiteral("7,25"));
    EXPECT_EQ(SqlNumber(QStringLiteral("nada")), QStringLiteral("0"));
    EXPECT_EQ(SqlNumber(1e-7), QStringLiteral("0,0000001"));
}

TEST_F(ConPerfil, SqlRoundCountsTheMasksDecimals) {
    const QString entidad = QStringLiteral("INTERNOS");
    EXPECT_EQ(SqlRound(entidad, QStringLiteral("fob"), u"00.00"), QStringLiteral("ROUND(fob,2)"));
    EXPECT_EQ(SqlRound(entidad, QStringLiteral("(a / b)"), u"00.000"), QStringLiteral("ROUND((a / b),3)"));
    EXPECT_EQ(SqlRound(entidad, QStringLiteral("x"), u"00.00000"), QStringLiteral("ROUND(x,5)"));
    // An expression that holds the placeholder's text is put in once.
    EXPECT_EQ(SqlRound(entidad, QStringLiteral("999.999"), u"00.00"), QStringLiteral("ROUND(999.999,2)"));
}

TEST_F(ConPerfil, TheRoundingTextStandsAroundThePlaceholder) {
    EXPECT_EQ(
        ctx.DataManager.getNumberFormatbyEntity(2, QStringLiteral("999,999"), QStringLiteral("INTERNOS")),
        QStringLiteral("ROUND(999.999,2)"));
}

}  // namespace
