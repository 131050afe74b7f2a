#include "frame/csv.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

class LectorDeCsv : public ::testing::Test {
 protected:
    QString escribir(const QByteArray &datos) {
        QFile f(dir.filePath(u"datos.csv"_s));
        EXPECT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(datos);
        return f.fileName();
    }
    /// Every record as "line|a|b", after a good opening.
    QStringList leer(const QByteArray &datos) {
        QString error;
        EXPECT_TRUE(lector.abrir(escribir(datos), error)) << error.toStdString();
        QStringList todos;
        csv::Registro r;
        while (lector.siguiente(r))
            todos << QString::number(r.linea) + QLatin1Char('|') +
                         (r.defecto.isEmpty() ? r.campos.join(QLatin1Char('|')) : u"!"_s + r.defecto);
        return todos;
    }
    /// The rows with what is told beside them: "line|a|b" and then the notices.
    QStringList filas(const QByteArray &datos) {
        QString error;
        EXPECT_TRUE(lector.abrir(escribir(datos), error)) << error.toStdString();
        QStringList todas, avisos;
        csv::Registro r;
        while (lector.siguienteFila(r, avisos))
            todas << QString::number(r.linea) + QLatin1Char('|') + r.campos.join(QLatin1Char('|'));
        return todas + avisos;
    }
    QString rechazo(const QByteArray &datos) {
        QString error;
        EXPECT_FALSE(lector.abrir(escribir(datos), error));
        return error;
    }

    QTemporaryDir dir;
    csv::Lector lector;
};

TEST_F(LectorDeCsv, PlainRecordsKeepTheirLines) {
    EXPECT_EQ(leer("id,nombre\n1,uno\n2,dos\n"), (QStringList{"2|1|uno", "3|2|dos"}));
    EXPECT_EQ(lector.encabezado(), (QStringList{"id", "nombre"}));
}

TEST_F(LectorDeCsv, TheLastLineNeedsNoEnd) {
    EXPECT_EQ(leer("id\n1\n2"), (QStringList{"2|1", "3|2"}));
}

TEST_F(LectorDeCsv, WindowsLineEndsAreOneLine) {
    EXPECT_EQ(leer("id,n\r\n1,a\r\n2,b\r\n"), (QStringList{"2|1|a", "3|2|b"}));
}

TEST_F(LectorDeCsv, QuotesHoldSeparatorsQuotesAndLineEnds) {
    EXPECT_EQ(leer("id,n\n1,\"a,b\"\n2,\"di\"\"jo\"\n3,\"dos\nlineas\"\n4,fin\n"),
              (QStringList{"2|1|a,b", "3|2|di\"jo", "4|3|dos\nlineas", "6|4|fin"}));
}

TEST_F(LectorDeCsv, ASemicolonInTheHeaderMakesItTheSeparator) {
    EXPECT_EQ(leer("id;\"a,b\";c\n1;2,5;x\n"), (QStringList{"2|1|2,5|x"}));
    EXPECT_EQ(lector.separador(), QChar(QLatin1Char(';')));
    EXPECT_EQ(lector.encabezado(), (QStringList{"id", "a,b", "c"}));
}

TEST_F(LectorDeCsv, AByteOrderMarkIsNoPartOfTheFirstName) {
    leer("\xEF\xBB\xBFid,n\n1,a\n");
    EXPECT_EQ(lector.encabezado().front(), u"id"_s);
}

TEST_F(LectorDeCsv, BlankLinesArePassedOver) {
    EXPECT_EQ(leer("id,n\n\n1,a\n\r\n2,b\n\n"), (QStringList{"3|1|a", "5|2|b"}));
}

TEST_F(LectorDeCsv, BlanksAtTheEndsOfAFieldStay) {
    EXPECT_EQ(leer("sim,n\n84  .  .  .   , x\n"), (QStringList{"2|84  .  .  .   | x"}));
}

TEST_F(LectorDeCsv, AQuoteThatNeverClosesCostsItsLineAlone) {
    EXPECT_EQ(leer("id,n\n1,a\n2,\"b\n3,c\n4,d\n"),
              (QStringList{"2|1|a", "3|!hay una comilla sin cerrar", "4|3|c", "5|4|d"}));
    // The second one closes the first, and text follows: still a line each.
    EXPECT_EQ(leer("id,n\n1,\"a\n2,b\n3,\"c\n4,d\n"),
              (QStringList{"2|!hay texto detrás de una comilla de cierre", "3|2|b",
                           "4|!hay una comilla sin cerrar", "5|4|d"}));
}

TEST_F(LectorDeCsv, AQuoteLeftOpenInALongFileIsFoundWithoutReadingItAllAgain) {
    QByteArray datos("id,n\n");
    for (int i = 0; i < 50000; ++i) datos += "1,\"sin cerrar\n";
    datos += "2,\"nunca\n" + QByteArray("3,x\n").repeated(50000);
    QString error;
    ASSERT_TRUE(lector.abrir(escribir(datos), error));
    QStringList avisos;
    csv::Registro r;
    QElapsedTimer reloj;
    reloj.start();
    int bien = 0;
    while (lector.siguienteFila(r, avisos)) ++bien;
    EXPECT_EQ(bien, 50000);
    EXPECT_EQ(avisos.size(), 50001);
    EXPECT_LT(reloj.elapsed(), 20000);
}

TEST_F(LectorDeCsv, AQuoteInsideAFieldIsALetter) {
    EXPECT_EQ(leer("id,n\n1,Tornillo 1/2\" x 3\"\n2,'a'\n"),
              (QStringList{"2|1|Tornillo 1/2\" x 3\"", "3|2|'a'"}));
}

TEST_F(LectorDeCsv, TextBehindAClosingQuoteIsTold) {
    EXPECT_EQ(leer("id,n\n1,\"a\"b\n2,c\n"),
              (QStringList{"2|!hay texto detrás de una comilla de cierre", "3|2|c"}));
}

TEST_F(LectorDeCsv, ALineInWindows1252IsReadAndTold) {
    // 0xD1 is a capital N with tilde there, 0x80 the euro, 0x93 and 0x94 quotes that curl.
    EXPECT_EQ(filas("id,n\n1,ESPA\xC3\x91"
                    "A\n2,ESPA\xD1"
                    "A\n3,\x80 \x93x\x94\n"),
              (QStringList{"2|1|ESPAÑA", "3|2|ESPAÑA", "4|3|€ “x”",
                           "línea 3: no está en UTF-8; se lee como Windows-1252, revise sus acentos",
                           "línea 4: no está en UTF-8; se lee como Windows-1252, revise sus acentos"}));
}

TEST_F(LectorDeCsv, ByteThatNoEncodingKnowsIsToldWithWhatStandsForIt) {
    EXPECT_EQ(filas("id,n\n1,PING\x81INO\n"),
              (QStringList{u"2|1|PING\uFFFDINO"_s,
                           u"línea 2: no está en UTF-8 ni en Windows-1252; lo que no se "
                           "entiende se lee como \"\uFFFD\""_s}));
}

TEST_F(LectorDeCsv, TheHeaderAndABlankOrCutLineOfAnotherEncodingAreToldToo) {
    EXPECT_EQ(filas("\xEF\xBB\xBFid,descripci\xF3n\n1,a\n\xA0\n2,b\n\xA0,\xA0,\xA0"),
              (QStringList{"2|1|a", "4|2|b",
                           "línea 1: no está en UTF-8; se lee como Windows-1252, revise sus acentos",
                           "línea 3: no está en UTF-8; se lee como Windows-1252, revise sus acentos",
                           "línea 3: tiene 1 campos y el encabezado 2; la fila no se carga",
                           "línea 5: no está en UTF-8; se lee como Windows-1252, revise sus acentos",
                           "línea 5: tiene 3 campos y el encabezado 2; la fila no se carga"}));
    EXPECT_EQ(lector.encabezado(), (QStringList{"id", "descripción"}));
}

TEST_F(LectorDeCsv, Utf16WithItsMarkIsReadWithTabsAsSpreadsheetsWriteIt) {
    const QString texto = u"\uFEFFid\tn\r\n1\tESPAÑA\r\n"_s;
    QByteArray chico, grande;
    for (const QChar c : texto) {
        chico.append(static_cast<char>(c.unicode() & 0xFF)).append(static_cast<char>(c.unicode() >> 8));
        grande.append(static_cast<char>(c.unicode() >> 8)).append(static_cast<char>(c.unicode() & 0xFF));
    }
    EXPECT_EQ(filas(chico), QStringList{"2|1|ESPAÑA"});
    EXPECT_EQ(filas(grande), QStringList{"2|1|ESPAÑA"});
    EXPECT_TRUE(rechazo(chico.chopped(1)).contains(u"UTF-16"_s));
}

TEST_F(LectorDeCsv, WhatIsNoTextIsRefusedWithItsLine) {
    EXPECT_TRUE(rechazo(QByteArray("i\0d\0\n\0", 6)).contains(u"línea 1"_s));
    EXPECT_TRUE(rechazo(QByteArray("\0i\0d\0\n", 6)).contains(u"línea 1"_s));
    const QString error = rechazo(QByteArray("id,n\n1,a\nPK\3\4\0\xFF\n", 17));
    EXPECT_TRUE(error.contains(u"datos.csv"_s)) << error.toStdString();
    EXPECT_TRUE(error.contains(u"línea 3"_s)) << error.toStdString();
}

TEST_F(LectorDeCsv, RowsHaveTheFieldsOfTheHeaderAndEmptyOnesBehindAreNone) {
    EXPECT_EQ(filas("id,n\n1,a,,\n2\n3,c,x\n4,d\n"),
              (QStringList{"2|1|a", "5|4|d", "línea 3: tiene 1 campos y el encabezado 2; la fila no se carga",
                           "línea 4: tiene 3 campos y el encabezado 2; la fila no se carga"}));
}

TEST_F(LectorDeCsv, LoneCarriageReturnsEndLinesToo) {
    EXPECT_EQ(filas("id,n\r1,\xD1\r2,\"a\rb\"\r3,c"),
              (QStringList{"2|1|Ñ", "3|2|a\rb", "5|3|c",
                           "línea 2: no está en UTF-8; se lee como Windows-1252, revise sus acentos"}));
}

TEST_F(LectorDeCsv, AnEmptyFileHasNoHeader) {
    EXPECT_TRUE(rechazo("").contains(u"encabezado"_s));
    EXPECT_TRUE(rechazo("\n\n").contains(u"encabezado"_s));
}

TEST_F(LectorDeCsv, AMissingFileIsNamed) {
    QString error;
    EXPECT_FALSE(lector.abrir(dir.filePath(u"no.csv"_s), error));
    EXPECT_TRUE(error.contains(u"no.csv"_s));
}

TEST_F(LectorDeCsv, GarbageNeverStopsTheReader) {
    // A fixed walk over mixed bytes: whatever is accepted ends.
    quint32 semilla = 20260112;
    const QByteArray alfabeto("ab,;\"\n\r\xC3\xB1\xFF \0x", 14);
    for (int caso = 0; caso < 2000; ++caso) {
        QByteArray datos("h1,h2\n");
        for (int i = 0; i < 60; ++i) {
            semilla = semilla * 1664525U + 1013904223U;
            datos +=
                alfabeto.at(static_cast<qsizetype>((semilla >> 16U) % static_cast<quint32>(alfabeto.size())));
        }
        QString error;
        if (!lector.abrir(escribir(datos), error)) {
            EXPECT_FALSE(error.isEmpty());
            continue;
        }
        csv::Registro r;
        int filas = 0;
        while (lector.siguiente(r)) ++filas;
        EXPECT_LE(filas, 61);
    }
}

}  // namespace
