#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "frame/base/ini.h"
#include "frame/settings.h"

using namespace Qt::StringLiterals;

namespace {

QByteArray leer(const QString &archivo) {
    QFile f(archivo);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<no file>");
}

void escribir(const QString &archivo, const QByteArray &texto) {
    QFile f(archivo);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
    f.write(texto);
}

// The settings area

class AreaDeAjustes : public ::testing::Test {
 protected:
    QTemporaryDir dir;
    QString archivo = dir.filePath(u"ajustes.ini"_s);
    Ajustes ajustes{archivo};
};

TEST_F(AreaDeAjustes, WhatIsNotThereIsTheDefault) {
    EXPECT_EQ(ajustes.Leer(u"Zendra"_s, u"FLAGS"_s, u"x"_s), QString());
    EXPECT_EQ(ajustes.Leer(u"Zendra"_s, u"FLAGS"_s, u"x"_s, u"S"_s).toStdString(), "S");
    ajustes.Borrar(u"Zendra"_s, u"FLAGS"_s, u"x"_s);
    ajustes.Guardar(u"Zendra"_s, u"FLAGS"_s, u"x"_s, u""_s);
    // An empty value is a value.
    EXPECT_EQ(ajustes.Leer(u"Zendra"_s, u"FLAGS"_s, u"x"_s, u"S"_s), QString());
}

TEST_F(AreaDeAjustes, ApplicationSectionAndKeyEachTellApart) {
    ajustes.Guardar(u"Uno"_s, u"A"_s, u"k"_s, u"1"_s);
    ajustes.Guardar(u"Dos"_s, u"A"_s, u"k"_s, u"2"_s);
    ajustes.Guardar(u"Uno"_s, u"B"_s, u"k"_s, u"3"_s);
    ajustes.Guardar(u"Uno"_s, u"A"_s, u"l"_s, u"4"_s);
    EXPECT_EQ(ajustes.Leer(u"Uno"_s, u"A"_s, u"k"_s).toStdString(), "1");
    EXPECT_EQ(ajustes.Leer(u"Dos"_s, u"A"_s, u"k"_s).toStdString(), "2");
    EXPECT_EQ(ajustes.Leer(u"Uno"_s, u"B"_s, u"k"_s).toStdString(), "3");
    EXPECT_EQ(ajustes.Leer(u"Uno"_s, u"A"_s, u"l"_s).toStdString(), "4");
    ajustes.Guardar(u"Uno"_s, u"A"_s, u"k"_s, u"5"_s);
    EXPECT_EQ(ajustes.Leer(u"Uno"_s, u"A"_s, u"k"_s).toStdString(), "5");
    ajustes.Borrar(u"Uno"_s, u"A"_s, u"k"_s);
    EXPECT_EQ(ajustes.Leer(u"Uno"_s, u"A"_s, u"k"_s, u"no"_s).toStdString(), "no");
    EXPECT_EQ(ajustes.Leer(u"Uno"_s, u"A"_s, u"l"_s).toStdString(), "4");
}

TEST_F(AreaDeAjustes, KeysWithSeparatorsAndAccentsSurviveAndStayApart) {
    // An operation's key may hold what a path, a URL or an INI file means something by.
    const QStringList raras{u"OP/1"_s,     u"OP\\1"_s,   u"OP//1"_s,    u"OP%2F1"_s, u"/OP"_s, u"OP/"_s,
                            u"Ñandú/áé"_s, u"[x]"_s,     u"a=b"_s,      u"a;b"_s,    u"#1"_s,  u" "_s,
                            u" x "_s,      u"General"_s, u"%General"_s, u"a\nb"_s,   u"🚢"_s,   u""_s,
                            u"a,b"_s,      u"\"q\""_s,   u"%"_s,        u".."_s,     u"@x"_s};
    for (const QString &rara : raras) {
        ajustes.Guardar(u"Zendra"_s, rara, u"k"_s, "seccion "_L1 + rara);
        ajustes.Guardar(u"Zendra"_s, u"S"_s, rara, "clave "_L1 + rara);
        ajustes.Guardar(rara, u"S"_s, u"k"_s, "aplicacion "_L1 + rara);
    }
    // A new start reads them from the file.
    const Ajustes otra(archivo);
    for (const Ajustes *a : std::initializer_list<const Ajustes *>{&ajustes, &otra})
        for (const QString &rara : raras) {
            EXPECT_EQ(a->Leer(u"Zendra"_s, rara, u"k"_s).toStdString(), ("seccion "_L1 + rara).toStdString());
            EXPECT_EQ(a->Leer(u"Zendra"_s, u"S"_s, rara).toStdString(), ("clave "_L1 + rara).toStdString());
            EXPECT_EQ(a->Leer(rara, u"S"_s, u"k"_s).toStdString(), ("aplicacion "_L1 + rara).toStdString());
        }
}

TEST_F(AreaDeAjustes, AnyValueSurvives) {
    const QStringList valores{
        u"S"_s,    u""_s,           u" blancos "_s, u"a,b,c"_s,          u"C:\\ruta\\x"_s,
        u"á\nñ"_s, u"@Invalid()"_s, u"\"x\""_s,     QString(5000, u'ñ'), u"1,50"_s};
    for (int i = 0; i < valores.size(); ++i)
        ajustes.Guardar(u"Zendra"_s, u"S"_s, QString::number(i), valores[i]);
    const Ajustes otra(archivo);
    for (int i = 0; i < valores.size(); ++i)
        EXPECT_EQ(otra.Leer(u"Zendra"_s, u"S"_s, QString::number(i)).toStdString(), valores[i].toStdString());
}

TEST_F(AreaDeAjustes, TwoProgramsOnOneAreaKeepEachOthersKeys) {
    Ajustes otra(archivo);
    ajustes.Guardar(u"Zendra"_s, u"A"_s, u"uno"_s, u"1"_s);
    otra.Guardar(u"Zendra"_s, u"A"_s, u"dos"_s, u"2"_s);
    ajustes.Guardar(u"Zendra"_s, u"A"_s, u"tres"_s, u"3"_s);
    const Ajustes nueva(archivo);
    EXPECT_EQ(nueva.Leer(u"Zendra"_s, u"A"_s, u"uno"_s).toStdString(), "1");
    EXPECT_EQ(nueva.Leer(u"Zendra"_s, u"A"_s, u"dos"_s).toStdString(), "2");
    EXPECT_EQ(nueva.Leer(u"Zendra"_s, u"A"_s, u"tres"_s).toStdString(), "3");
}

TEST_F(AreaDeAjustes, ARunWithAFileOfItsOwnTouchesNothingElse) {
    EXPECT_EQ(ajustes.archivo(), archivo);
    ajustes.Guardar(u"Zendra"_s, u"A"_s, u"k"_s, u"v"_s);
    EXPECT_TRUE(QFile::exists(archivo));
    EXPECT_EQ(Ajustes(dir.filePath(u"otro.ini"_s)).Leer(u"Zendra"_s, u"A"_s, u"k"_s), QString());
}

// The configuration file

class ArchivoIni : public ::testing::Test {
 protected:
    QString valor(const char *seccion, const char *clave) const {
        return LeerIni(QString::fromUtf8(seccion), QString::fromUtf8(clave), archivo);
    }
    QTemporaryDir dir;
    QString archivo = dir.filePath(u"ZENDRA.ini"_s);
};

TEST_F(ArchivoIni, WhatIsMissingIsTheEmptyText) {
    EXPECT_EQ(valor("A", "k"), QString());
    escribir(archivo, "[A]\nk=1\n");
    EXPECT_EQ(valor("B", "k"), QString());
    EXPECT_EQ(valor("A", "l"), QString());
    EXPECT_EQ(LeerIni(u"A"_s, u"k"_s, dir.path()), QString());
}

TEST_F(ArchivoIni, SectionsAndKeysAreFoundInAnyCaseAndBlanksAroundAreDropped) {
    escribir(archivo,
             "suelta=0\r\n; k=comentario\r\n[ OtraSección ]\r\nk=9\r\n[Ítem]\r\n  Clave Uno =  un valor  \r\n"
             ";k=no\r\nk=1\r\nk=2\r\nvacía=\r\nsin igual\r\n=sin clave\r\n[a]\r\nx=\"  entre comillas \"\r\n"
             "y='simple'\r\nz=\"abierta\r\nw=a=b\r\n");
    EXPECT_EQ(valor("ÍTEM", "CLAVE UNO").toStdString(), "un valor");
    EXPECT_EQ(valor("ítem", "clave uno").toStdString(), "un valor");
    // The first of two equal keys answers.
    EXPECT_EQ(valor("Ítem", "k").toStdString(), "1");
    EXPECT_EQ(valor("Ítem", "vacía"), QString());
    EXPECT_EQ(valor("OtraSección", "k").toStdString(), "9");
    EXPECT_EQ(valor("A", "x").toStdString(), "  entre comillas ");
    EXPECT_EQ(valor("A", "y").toStdString(), "simple");
    EXPECT_EQ(valor("A", "z").toStdString(), "\"abierta");
    EXPECT_EQ(valor("A", "w").toStdString(), "a=b");
    EXPECT_EQ(valor("A", "suelta"), QString());
}

TEST_F(ArchivoIni, BackslashesAndCommasAreText) {
    escribir(archivo, "[PATH]\nINTERNOS=C:\\datos\\nuevos, viejos\\\n");
    EXPECT_EQ(valor("PATH", "INTERNOS").toStdString(), "C:\\datos\\nuevos, viejos\\");
}

TEST_F(ArchivoIni, AnOlderFilesCodePageIsRead) {
    escribir(archivo, "[A]\nk=Exportaci\xF3n a\xF1o\n");
    EXPECT_EQ(valor("A", "k").toStdString(), "Exportación año");
    escribir(archivo, "\xEF\xBB\xBF[A]\nk=año\n");
    EXPECT_EQ(valor("A", "k").toStdString(), "año");
}

TEST_F(ArchivoIni, AValueIsCutAtSevenHundredAndFiftyCharacters) {
    escribir(archivo, "[A]\nk=" + QByteArray(800, 'x') + "\n");
    EXPECT_EQ(valor("A", "k").size(), 750);
}

TEST_F(ArchivoIni, WritingKeepsTheRestAsItStands) {
    escribir(archivo, "; cabeza\r\n[A]\r\nUno=1\r\n\r\n[B]\r\nDos=2\r\n");
    EXPECT_TRUE(EscribirIni(u"a"_s, u"uno"_s, u"nuevo"_s, archivo));
    EXPECT_TRUE(EscribirIni(u"A"_s, u"tres"_s, u"3"_s, archivo));
    EXPECT_TRUE(EscribirIni(u"C"_s, u"cuatro"_s, u"á"_s, archivo));
    EXPECT_EQ(leer(archivo).toStdString(),
              "; cabeza\r\n[A]\r\nUNO=nuevo\r\nTRES=3\r\n\r\n[B]\r\nDos=2\r\n[C]\r\nCUATRO=á\r\n");
    EXPECT_EQ(valor("C", "Cuatro").toStdString(), "á");
}

TEST_F(ArchivoIni, AFileThatIsNotThereIsMade) {
    EXPECT_TRUE(EscribirIni(u"A"_s, u"k"_s, u"v"_s, archivo));
    EXPECT_EQ(leer(archivo).toStdString(), "[A]\r\nK=v\r\n");
}

TEST_F(ArchivoIni, AValueIsOneLine) {
    EXPECT_TRUE(EscribirIni(u"A"_s, u"k"_s, u"uno\r\n[B]\nk=2"_s, archivo));
    EXPECT_EQ(valor("B", "k"), QString());
    EXPECT_EQ(valor("A", "k").toStdString(), "uno  [B] k=2");
}

TEST_F(ArchivoIni, WhatCannotBeWrittenIsTold) {
    EXPECT_FALSE(EscribirIni(u"A"_s, u"k"_s, u"v"_s, dir.path()));
    EXPECT_FALSE(EscribirIni(u"A"_s, u"k"_s, u"v"_s, dir.filePath(u"no/hay/carpeta.ini"_s)));
}

TEST_F(ArchivoIni, APathEndsInItsSeparatorOnce) {
    EXPECT_EQ(TerminarEnBarra(u"C:\\datos"_s).toStdString(), "C:\\datos\\");
    EXPECT_EQ(TerminarEnBarra(u"C:\\datos\\"_s).toStdString(), "C:\\datos\\");
    EXPECT_EQ(TerminarEnBarra(u"/srv/datos"_s).toStdString(), "/srv/datos/");
    EXPECT_EQ(TerminarEnBarra(u"/srv/datos/"_s).toStdString(), "/srv/datos/");
    EXPECT_EQ(TerminarEnBarra(u""_s).toStdString(), "\\");
}

}  // namespace
