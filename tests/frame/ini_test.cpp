// The sections-and-keys file, as its readers and its writer see it.

#include "frame/base/ini.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

class Ini : public ::testing::Test {
 protected:
    QString ruta() const { return dir.path() + "/z.ini"_L1; }
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
    EXPECT_EQ(leer("LISTADO"), ""_L1);
    escribir("[GENERAL]\r\nLISTADO=1\r\n");
    EXPECT_EQ(leer("OTRA"), ""_L1);
    EXPECT_EQ(leer("LISTADO", "SMTP"), ""_L1);
    EXPECT_EQ(leer("LISTADO"), "1"_L1);
}

TEST_F(Ini, KeysAndSectionsAreFoundInAnyCase) {
    escribir("[General]\nListado=1\n");
    EXPECT_EQ(leer("LISTADO"), "1"_L1);
    EXPECT_EQ(leer("listado", "GENERAL"), "1"_L1);
}

TEST_F(Ini, AValueHasAtMost750Characters) {
    escribir("[GENERAL]\nX=" + QByteArray("\xC3\xB1").repeated(800) + "\n");
    EXPECT_EQ(leer("X"), QString(750, QChar(0xF1)));
}

TEST_F(Ini, ValuesLoseTheirOuterBlanksAndTheirQuotesAndKeepTheRest) {
    escribir("[GENERAL]\nA=  uno dos  \nB=\"  con blancos  \"\nC='x'\nD=a=b;c\nE=\n;F=comentario\n");
    EXPECT_EQ(leer("A"), "uno dos"_L1);
    EXPECT_EQ(leer("B"), "  con blancos  "_L1);
    EXPECT_EQ(leer("C"), "x"_L1);
    EXPECT_EQ(leer("D"), "a=b;c"_L1);
    EXPECT_EQ(leer("E"), ""_L1);
    EXPECT_EQ(leer("F"), ""_L1);
}

TEST_F(Ini, FilesOfOlderWorkstationsAreReadToo) {
    escribir("\xEF\xBB\xBF[GENERAL]\nNOMBRE=A\xC3\xB1o\n");
    EXPECT_EQ(leer("NOMBRE"), u"Año"_s);
    escribir("[GENERAL]\nNOMBRE=A\xF1o\n");
    EXPECT_EQ(leer("NOMBRE"), u"Año"_s);
}

TEST_F(Ini, WritingMakesTheFileTheSectionAndTheKeyInUpperCase) {
    EXPECT_TRUE(EscribirIni("BASESERVER"_L1, "interno"_L1, "C:\\db\\"_L1, ruta()));
    EXPECT_EQ(contenido(), "[BASESERVER]\r\nINTERNO=C:\\db\\\r\n");
}

TEST_F(Ini, WritingChangesItsOwnLineOnly) {
    escribir("; nota\r\n[GENERAL]\r\nA=1\r\nb=2\r\n\r\n[SMTP]\r\nA=3\r\n");
    EXPECT_TRUE(EscribirIni("general"_L1, "B"_L1, u"ñ"_s, ruta()));
    EXPECT_TRUE(EscribirIni("GENERAL"_L1, "c"_L1, "4"_L1, ruta()));
    EXPECT_EQ(contenido(), "; nota\r\n[GENERAL]\r\nA=1\r\nB=\xC3\xB1\r\nC=4\r\n\r\n[SMTP]\r\nA=3\r\n");
}

TEST_F(Ini, AValueOfSeveralLinesStaysOneLine) {
    EXPECT_TRUE(EscribirIni("GENERAL"_L1, "A"_L1, "uno\r\n[SMTP]"_L1, ruta()));
    EXPECT_EQ(leer("A"), "uno  [SMTP]"_L1);
    EXPECT_EQ(leer("A", "SMTP"), ""_L1);
}

TEST(RutasConBarra, EndInOneSeparatorOfTheirOwnKind) {
    EXPECT_EQ(TerminarEnBarra("C:\\Zendra"_L1), "C:\\Zendra\\"_L1);
    EXPECT_EQ(TerminarEnBarra("C:\\Zendra\\"_L1), "C:\\Zendra\\"_L1);
    EXPECT_EQ(TerminarEnBarra(""_L1), "\\"_L1);
    EXPECT_EQ(TerminarEnBarra("/opt/zendra"_L1), "/opt/zendra/"_L1);
    EXPECT_EQ(TerminarEnBarra("/opt/zendra/"_L1), "/opt/zendra/"_L1);
}

}  // namespace
