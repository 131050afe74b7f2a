// The sections-and-keys file, as its readers and its writer see it.

#include "frame/ini.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

namespace {

using L = QLatin1String;

class Ini : public ::testing::Test {
 protected:
    QString ruta() const { return dir.path() + L("/z.ini"); }
    void escribir(const QByteArray &bytes) const {
        QFile f(ruta());
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(bytes);
    }
    QString leer(const char *clave, const char *seccion = "GENERAL") const {
        return LeerIni(L(seccion), L(clave), ruta());
    }
    QByteArray contenido() const {
        QFile f(ruta());
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }
    QTemporaryDir dir;
};

TEST_F(Ini, AMissingKeyASectionOrAFileReadAsTheEmptyText) {
    EXPECT_EQ(leer("LISTADO"), L(""));
    escribir("[GENERAL]\r\nLISTADO=1\r\n");
    EXPECT_EQ(leer("OTRA"), L(""));
    EXPECT_EQ(leer("LISTADO", "SMTP"), L(""));
    EXPECT_EQ(leer("LISTADO"), L("1"));
}

TEST_F(Ini, KeysAndSectionsAreFoundInAnyCase) {
    escribir("[General]\nListado=1\n");
    EXPECT_EQ(leer("LISTADO"), L("1"));
    EXPECT_EQ(leer("listado", "GENERAL"), L("1"));
}

TEST_F(Ini, AValueHasAtMost750Characters) {
    escribir("[GENERAL]\nX=" + QByteArray("\xC3\xB1").repeated(800) + "\n");
    EXPECT_EQ(leer("X"), QString(750, QChar(0xF1)));
}

TEST_F(Ini, ValuesLoseTheirOuterBlanksAndTheirQuotesAndKeepTheRest) {
    escribir("[GENERAL]\nA=  uno dos  \nB=\"  con blancos  \"\nC='x'\nD=a=b;c\nE=\n;F=comentario\n");
    EXPECT_EQ(leer("A"), L("uno dos"));
    EXPECT_EQ(leer("B"), L("  con blancos  "));
    EXPECT_EQ(leer("C"), L("x"));
    EXPECT_EQ(leer("D"), L("a=b;c"));
    EXPECT_EQ(leer("E"), L(""));
    EXPECT_EQ(leer("F"), L(""));
}

TEST_F(Ini, FilesOfOlderWorkstationsAreReadToo) {
    escribir("\xEF\xBB\xBF[GENERAL]\nNOMBRE=A\xC3\xB1o\n");
    EXPECT_EQ(leer("NOMBRE"), QStringLiteral("Año"));
    escribir("[GENERAL]\nNOMBRE=A\xF1o\n");
    EXPECT_EQ(leer("NOMBRE"), QStringLiteral("Año"));
}

TEST_F(Ini, WritingMakesTheFileTheSectionAndTheKeyInUpperCase) {
    EXPECT_TRUE(EscribirIni(L("BASESERVER"), L("interno"), L("C:\\db\\"), ruta()));
    EXPECT_EQ(contenido(), "[BASESERVER]\r\nINTERNO=C:\\db\\\r\n");
}

TEST_F(Ini, WritingChangesItsOwnLineOnly) {
    escribir("; nota\r\n[GENERAL]\r\nA=1\r\nb=2\r\n\r\n[SMTP]\r\nA=3\r\n");
    EXPECT_TRUE(EscribirIni(L("general"), L("B"), QStringLiteral("ñ"), ruta()));
    EXPECT_TRUE(EscribirIni(L("GENERAL"), L("c"), L("4"), ruta()));
    EXPECT_EQ(contenido(), "; nota\r\n[GENERAL]\r\nA=1\r\nB=\xC3\xB1\r\nC=4\r\n\r\n[SMTP]\r\nA=3\r\n");
}

TEST_F(Ini, AValueOfSeveralLinesStaysOneLine) {
    EXPECT_TRUE(EscribirIni(L("GENERAL"), L("A"), L("uno\r\n[SMTP]"), ruta()));
    EXPECT_EQ(leer("A"), L("uno  [SMTP]"));
    EXPECT_EQ(leer("A", "SMTP"), L(""));
}

TEST(RutasConBarra, EndInOneSeparatorOfTheirOwnKind) {
    EXPECT_EQ(TerminarEnBarra(L("C:\\Zendra")), L("C:\\Zendra\\"));
    EXPECT_EQ(TerminarEnBarra(L("C:\\Zendra\\")), L("C:\\Zendra\\"));
    EXPECT_EQ(TerminarEnBarra(L("")), L("\\"));
    EXPECT_EQ(TerminarEnBarra(L("/opt/zendra")), L("/opt/zendra/"));
    EXPECT_EQ(TerminarEnBarra(L("/opt/zendra/")), L("/opt/zendra/"));
}

}  // namespace
