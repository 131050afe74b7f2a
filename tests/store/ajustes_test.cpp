#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "frame/base/ini.h"
#include "frame/settings.h"

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
    QString archivo = dir.filePath("ajustes.ini");
    Ajustes ajustes{archivo};
};

TEST_F(AreaDeAjustes, WhatIsNotThereIsTheDefault) {
    EXPECT_EQ(ajustes.Leer("Zendra", "FLAGS", "x"), QString());
    EXPECT_EQ(ajustes.Leer("Zendra", "FLAGS", "x", "S").toStdString(), "S");
    ajustes.Borrar("Zendra", "FLAGS", "x");
    ajustes.Guardar("Zendra", "FLAGS", "x", "");
    // An empty value is a value.
    EXPECT_EQ(ajustes.Leer("Zendra", "FLAGS", "x", "S"), QString());
}

TEST_F(AreaDeAjustes, ApplicationSectionAndKeyEachTellApart) {
    ajustes.Guardar("Uno", "A", "k", "1");
    ajustes.Guardar("Dos", "A", "k", "2");
    ajustes.Guardar("Uno", "B", "k", "3");
    ajustes.Guardar("Uno", "A", "l", "4");
    EXPECT_EQ(ajustes.Leer("Uno", "A", "k").toStdString(), "1");
    EXPECT_EQ(ajustes.Leer("Dos", "A", "k").toStdString(), "2");
    EXPECT_EQ(ajustes.Leer("Uno", "B", "k").toStdString(), "3");
    EXPECT_EQ(ajustes.Leer("Uno", "A", "l").toStdString(), "4");
    ajustes.Guardar("Uno", "A", "k", "5");
    EXPECT_EQ(ajustes.Leer("Uno", "A", "k").toStdString(), "5");
    ajustes.Borrar("Uno", "A", "k");
    EXPECT_EQ(ajustes.Leer("Uno", "A", "k", "no").toStdString(), "no");
    EXPECT_EQ(ajustes.Leer("Uno", "A", "l").toStdString(), "4");
}

TEST_F(AreaDeAjustes, KeysWithSeparatorsAndAccentsSurviveAndStayApart) {
    // An operation's key may hold what a path, a URL or an INI file means something by.
    const QStringList raras{"OP/1", "OP\\1", "OP//1", "OP%2F1", "/OP", "OP/",     "Ñandú/áé", "[x]",
                            "a=b",  "a;b",   "#1",    " ",      " x ", "General", "%General", "a\nb",
                            "🚢",    "",      "a,b",   "\"q\"",  "%",   "..",      "@x"};
    for (const QString &rara : raras) {
        ajustes.Guardar("Zendra", rara, "k", "seccion " + rara);
        ajustes.Guardar("Zendra", "S", rara, "clave " + rara);
        ajustes.Guardar(rara, "S", "k", "aplicacion " + rara);
    }
    // A new start reads them from the file.
    const Ajustes otra(archivo);
    for (const Ajustes *a : std::initializer_list<const Ajustes *>{&ajustes, &otra})
        for (const QString &rara : raras) {
            EXPECT_EQ(a->Leer("Zendra", rara, "k").toStdString(), ("seccion " + rara).toStdString());
            EXPECT_EQ(a->Leer("Zendra", "S", rara).toStdString(), ("clave " + rara).toStdString());
            EXPECT_EQ(a->Leer(rara, "S", "k").toStdString(), ("aplicacion " + rara).toStdString());
        }
}

TEST_F(AreaDeAjustes, AnyValueSurvives) {
    const QStringList valores{"S",          "",      " blancos ",         "a,b,c", "C:\\ruta\\x", "á\nñ",
                              "@Invalid()", "\"x\"", QString(5000, u'ñ'), "1,50"};
    for (int i = 0; i < valores.size(); ++i) ajustes.Guardar("Zendra", "S", QString::number(i), valores[i]);
    const Ajustes otra(archivo);
    for (int i = 0; i < valores.size(); ++i)
        EXPECT_EQ(otra.Leer("Zendra", "S", QString::number(i)).toStdString(), valores[i].toStdString());
}

TEST_F(AreaDeAjustes, TwoProgramsOnOneAreaKeepEachOthersKeys) {
    Ajustes otra(archivo);
    ajustes.Guardar("Zendra", "A", "uno", "1");
    otra.Guardar("Zendra", "A", "dos", "2");
    ajustes.Guardar("Zendra", "A", "tres", "3");
    const Ajustes nueva(archivo);
    EXPECT_EQ(nueva.Leer("Zendra", "A", "uno").toStdString(), "1");
    EXPECT_EQ(nueva.Leer("Zendra", "A", "dos").toStdString(), "2");
    EXPECT_EQ(nueva.Leer("Zendra", "A", "tres").toStdString(), "3");
}

TEST_F(AreaDeAjustes, ARunWithAFileOfItsOwnTouchesNothingElse) {
    EXPECT_EQ(ajustes.archivo(), archivo);
    ajustes.Guardar("Zendra", "A", "k", "v");
    EXPECT_TRUE(QFile::exists(archivo));
    EXPECT_EQ(Ajustes(dir.filePath("otro.ini")).Leer("Zendra", "A", "k"), QString());
}

// The configuration file

class ArchivoIni : public ::testing::Test {
 protected:
    QString valor(const char *seccion, const char *clave) const {
        return LeerIni(QString::fromUtf8(seccion), QString::fromUtf8(clave), archivo);
    }
    QTemporaryDir dir;
    QString archivo = dir.filePath("ZENDRA.ini");
};

TEST_F(ArchivoIni, WhatIsMissingIsTheEmptyText) {
    EXPECT_EQ(valor("A", "k"), QString());
    escribir(archivo, "[A]\nk=1\n");
    EXPECT_EQ(valor("B", "k"), QString());
    EXPECT_EQ(valor("A", "l"), QString());
    EXPECT_EQ(LeerIni("A", "k", dir.path()), QString());
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
    EXPECT_TRUE(EscribirIni("a", "uno", "nuevo", archivo));
    EXPECT_TRUE(EscribirIni("A", "tres", "3", archivo));
    EXPECT_TRUE(EscribirIni("C", "cuatro", "á", archivo));
    EXPECT_EQ(leer(archivo).toStdString(),
              "; cabeza\r\n[A]\r\nUNO=nuevo\r\nTRES=3\r\n\r\n[B]\r\nDos=2\r\n[C]\r\nCUATRO=á\r\n");
    EXPECT_EQ(valor("C", "Cuatro").toStdString(), "á");
}

TEST_F(ArchivoIni, AFileThatIsNotThereIsMade) {
    EXPECT_TRUE(EscribirIni("A", "k", "v", archivo));
    EXPECT_EQ(leer(archivo).toStdString(), "[A]\r\nK=v\r\n");
}

TEST_F(ArchivoIni, AValueIsOneLine) {
    EXPECT_TRUE(EscribirIni("A", "k", "uno\r\n[B]\nk=2", archivo));
    EXPECT_EQ(valor("B", "k"), QString());
    EXPECT_EQ(valor("A", "k").toStdString(), "uno  [B] k=2");
}

TEST_F(ArchivoIni, WhatCannotBeWrittenIsTold) {
    EXPECT_FALSE(EscribirIni("A", "k", "v", dir.path()));
    EXPECT_FALSE(EscribirIni("A", "k", "v", dir.filePath("no/hay/carpeta.ini")));
}

TEST_F(ArchivoIni, APathEndsInItsSeparatorOnce) {
    EXPECT_EQ(TerminarEnBarra("C:\\datos").toStdString(), "C:\\datos\\");
    EXPECT_EQ(TerminarEnBarra("C:\\datos\\").toStdString(), "C:\\datos\\");
    EXPECT_EQ(TerminarEnBarra("/srv/datos").toStdString(), "/srv/datos/");
    EXPECT_EQ(TerminarEnBarra("/srv/datos/").toStdString(), "/srv/datos/");
    EXPECT_EQ(TerminarEnBarra("").toStdString(), "\\");
}

}  // namespace
