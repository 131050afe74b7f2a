#include "upgrade/csv.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

class Csv : public ::testing::Test {
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
    QString rechazo(const QByteArray &datos) {
        QString error;
        EXPECT_FALSE(lector.abrir(escribir(datos), error));
        return error;
    }

    QTemporaryDir dir;
    csv::Lector lector;
};

TEST_F(Csv, PlainRecordsKeepTheirLines) {
    EXPECT_EQ(leer("id,nombre\n1,uno\n2,dos\n"), (QStringList{"2|1|uno", "3|2|dos"}));
    EXPECT_EQ(lector.encabezado(), (QStringList{"id", "nombre"}));
}

TEST_F(Csv, TheLastLineNeedsNoEnd) {
    EXPECT_EQ(leer("id\n1\n2"), (QStringList{"2|1", "3|2"}));
}

TEST_F(Csv, WindowsLineEndsAreOneLine) {
    EXPECT_EQ(leer("id,n\r\n1,a\r\n2,b\r\n"), (QStringList{"2|1|a", "3|2|b"}));
}

TEST_F(Csv, QuotesHoldSeparatorsQuotesAndLineEnds) {
    EXPECT_EQ(leer("id,n\n1,\"a,b\"\n2,\"di\"\"jo\"\n3,\"dos\nlineas\"\n4,fin\n"),
              (QStringList{"2|1|a,b", "3|2|di\"jo", "4|3|dos\nlineas", "6|4|fin"}));
}

TEST_F(Csv, ASemicolonInTheHeaderMakesItTheSeparator) {
    EXPECT_EQ(leer("id;\"a,b\";c\n1;2,5;x\n"), (QStringList{"2|1|2,5|x"}));
    EXPECT_EQ(lector.separador(), QChar(QLatin1Char(';')));
    EXPECT_EQ(lector.encabezado(), (QStringList{"id", "a,b", "c"}));
}

TEST_F(Csv, AByteOrderMarkIsNoPartOfTheFirstName) {
    leer("\xEF\xBB\xBFid,n\n1,a\n");
    EXPECT_EQ(lector.encabezado().front(), u"id"_s);
}

TEST_F(Csv, BlankLinesArePassedOver) {
    EXPECT_EQ(leer("id,n\n\n1,a\n\r\n2,b\n\n"), (QStringList{"3|1|a", "5|2|b"}));
}

TEST_F(Csv, BlanksAtTheEndsOfAFieldStay) {
    EXPECT_EQ(leer("sim,n\n84  .  .  .   , x\n"), (QStringList{"2|84  .  .  .   | x"}));
}

TEST_F(Csv, AQuoteThatNeverClosesIsTold) {
    const QStringList r = leer("id,n\n1,a\n2,\"b\n3,c\n");
    ASSERT_EQ(r.size(), 2);
    EXPECT_EQ(r.back(), u"3|!hay una comilla sin cerrar"_s);
}

TEST_F(Csv, TextBehindAClosingQuoteIsTold) {
    EXPECT_EQ(leer("id,n\n1,\"a\"b\n2,c\n"),
              (QStringList{"2|!hay texto detrás de una comilla de cierre", "3|2|c"}));
}

TEST_F(Csv, AnotherEncodingIsRefusedWithFileAndLine) {
    // 0xD1 is a capital N with tilde in the old one-byte encodings.
    const QString error = rechazo(
        "id,n\n1,ESPA\xC3\x91"
        "A\n2,ESPA\xD1"
        "A\n");
    EXPECT_TRUE(error.contains(u"datos.csv"_s)) << error.toStdString();
    EXPECT_TRUE(error.contains(u"línea 3"_s)) << error.toStdString();
}

TEST_F(Csv, TwoByteEncodingsAreRefusedInTheFirstLine) {
    EXPECT_TRUE(rechazo(QByteArray("\xFF\xFEi\0d\0\n\0", 8)).contains(u"línea 1"_s));
    EXPECT_TRUE(rechazo(QByteArray("\0i\0d\0\n", 6)).contains(u"línea 1"_s));
}

TEST_F(Csv, AnEmptyFileHasNoHeader) {
    EXPECT_TRUE(rechazo("").contains(u"encabezado"_s));
    EXPECT_TRUE(rechazo("\n\n").contains(u"encabezado"_s));
}

TEST_F(Csv, AMissingFileIsNamed) {
    QString error;
    EXPECT_FALSE(lector.abrir(dir.filePath(u"no.csv"_s), error));
    EXPECT_TRUE(error.contains(u"no.csv"_s));
}

TEST_F(Csv, GarbageNeverStopsTheReader) {
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
