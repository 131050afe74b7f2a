// What the published document says, which version is installed, and where the document is looked for.

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>

#include "frame/base/ini.h"
#include "frame/base/web.h"
#include "frame/context.h"
#include "frame/version.h"
#include "regulatory/updatecheck.h"
#include "tests/support/certificados.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

const QString rayaEsperada(117, u'-');
const QStringList sinComparar = {u"Versión Actual : 30"_s, rayaEsperada};
const QStringList alDia =
    sinComparar + QStringList{u"La Versión Actual está Actualizada. No necesita Actualizar."_s};

/// What is said of a document by whoever has version 30, which is not one of those that can be read.
void malFormado(const QByteArray &documento, const QString &falta) {
    SCOPED_TRACE(documento.toStdString());
    const Comparacion c = CompararVersiones(30, documento);
    EXPECT_EQ(c.lineas, sinComparar);
    EXPECT_EQ(c.enlace, QString());
    EXPECT_EQ(c.falta.toStdString(), falta.toStdString());
}

class OrigenDeVersiones : public ::testing::Test {
 protected:
    OrigenDeVersiones() {
        ctx.ConfigFilePath = carpeta.filePath(u"ZENDRA.ini"_s);
        ctx.ajustesDeLaMaquina = Ajustes(carpeta.filePath(u"maquina.ini"_s));
    }
    void configurar(const QString &clave, const QString &valor) {
        ASSERT_TRUE(EscribirIni(u"ACTUALIZACION"_s, clave, valor, ctx.ConfigFilePath));
    }
    std::string direccion() const {
        return LeerOrigenDeActualizacion(ctx).direccion.toString().toStdString();
    }

    QTemporaryDir carpeta;
    AppContext ctx;
};

}  // namespace

TEST(DocumentoDeVersiones, ANewerVersionIsOfferedWithItsLink) {
    const Comparacion c = CompararVersiones(30, "31</>https://ejemplo.com/zendra31.exe");
    EXPECT_EQ(c.lineas,
              sinComparar + QStringList({u" "_s, u"Existe una Actualización Disponible."_s,
                                         u"Versión Disponible para Actualizar : 31"_s, rayaEsperada,
                                         u"¿Procede a DESCARGAR e INSTALAR la Actualización?"_s,
                                         u"-> Haga CLIC en el botón ACTUALIZAR si desea hacerlo ahora"_s}));
    EXPECT_EQ(c.enlace, u"https://ejemplo.com/zendra31.exe"_s);
    EXPECT_EQ(c.falta, QString());
}

TEST(DocumentoDeVersiones, PublishedAndInstalledVersionsEqualMakeNoOffer) {
    const Comparacion c = CompararVersiones(30, "30</>https://ejemplo.com/");
    EXPECT_EQ(c.lineas, alDia);
    EXPECT_EQ(c.enlace, QString());
    EXPECT_EQ(c.falta, QString());
}

TEST(DocumentoDeVersiones, AnOlderPublishedVersionMakesNoOffer) {
    EXPECT_EQ(CompararVersiones(30, "29</>https://ejemplo.com/").lineas, alDia);
    EXPECT_EQ(CompararVersiones(30, "0</>https://ejemplo.com/").lineas, alDia);
    EXPECT_EQ(CompararVersiones(30, "-31</>https://ejemplo.com/").lineas, alDia);
}

TEST(DocumentoDeVersiones, ADocumentWithoutItsSeparatorFailsAtTheSecondPiece) {
    const QString falta =
        u"El servidor respondió con algo que no es el documento de actualizaciones: verifique la dirección."_s;
    for (const char *documento : {"31", "31 https://ejemplo.com/", "31</ >https://ejemplo.com/",
                                  "<html><body>Ingrese su clave</body></html>", "31</https://ejemplo.com/"})
        malFormado(documento, falta);
    // Two bytes a letter, as some editors save.
    malFormado(QByteArray("3\0001\0<\0/\0>\0h\0", 12), falta);
}

TEST(DocumentoDeVersiones, AnEmptyDocumentIsToldAsEmpty) {
    for (const char *documento : {"", "\r\n", "  \n"})
        malFormado(
            documento,
            u"El servidor de actualizaciones respondió con un documento vacío: avise a quien lo administra."_s);
}

TEST(DocumentoDeVersiones, AVersionThatIsNoWholeNumberIsTold) {
    const auto falta = [](const QByteArray &version) {
        return u"La versión publicada, \"%1\", no es un número entero: avise a quien administra las actualizaciones."_s
            .arg(QString::fromUtf8(version));
    };
    for (const char *version :
         {"", "3.5.1", "3,5", "v31", "31 beta", "0x31", "treinta", "99999999999999999999"})
        malFormado(QByteArray(version) + "</>https://ejemplo.com/", falta(version));
    // A page of a hundred lines is not shown whole, nor on lines of its own.
    malFormado("<html>\n" + QByteArray(100, 'x') + "</>https://ejemplo.com/",
               falta("<html> " + QByteArray(33, 'x')));
}

TEST(DocumentoDeVersiones, ANewerVersionWithoutAWebAddressIsToldAndNotOffered) {
    for (const char *enlace :
         {"", " ", "zendra31.exe", "ejemplo.com/zendra31.exe", "ftp://ejemplo.com/zendra31.exe",
          "file:///etc/passwd", "javascript:alert(1)", "https://", "https:///zendra31.exe",
          "https://ejemplo.com/a b", "https://ejemplo.com/\nhttps://otro.com/", "//ejemplo.com/zendra31.exe"})
        malFormado(
            QByteArray("31</>") + enlace,
            u"La versión 31 está publicada sin una dirección http o https de donde descargarla: avise a quien "
            "administra las actualizaciones."_s);
    // Whoever has that version already needs no address.
    EXPECT_EQ(CompararVersiones(30, "30</>").lineas, alDia);
    EXPECT_EQ(CompararVersiones(30, "30</>").falta, QString());
}

TEST(DocumentoDeVersiones, BlanksLineEndsAndAMarkOfTheEncodingDoNotCount) {
    for (const char *documento : {"31</>https://ejemplo.com/z", "31\r\n</>\r\nhttps://ejemplo.com/z\r\n",
                                  "\xEF\xBB\xBF 31 </> https://ejemplo.com/z \n"})
        EXPECT_EQ(CompararVersiones(30, documento).enlace, u"https://ejemplo.com/z"_s) << documento;
}

TEST(DocumentoDeVersiones, WhatStandsBehindAnotherSeparatorDoesNotCount) {
    EXPECT_EQ(CompararVersiones(30, "31</>http://ejemplo.com/z</>https://otro.com/").enlace,
              u"http://ejemplo.com/z"_s);
}

TEST(DocumentoDeVersiones, VersionsBeyondTheInstalledOnesRangeAreCompared) {
    EXPECT_EQ(CompararVersiones(4294967295, "4294967296</>https://ejemplo.com/").enlace,
              u"https://ejemplo.com/"_s);
    EXPECT_EQ(CompararVersiones(4294967295, "4294967295</>https://ejemplo.com/").enlace, QString());
}

TEST(DireccionesDeLaWeb, OnlyHttpAndHttpsWithAHostAre) {
    EXPECT_EQ(DireccionDeLaWeb(u" HTTPS://Ejemplo.com:8443/a?b=c#d "_s),
              QUrl(u"https://ejemplo.com:8443/a?b=c#d"_s));
    EXPECT_EQ(DireccionDeLaWeb(u"http://[::1]/"_s).host(), u"::1"_s);
    for (const char16_t *texto : {u"", u"ejemplo.com", u"http:", u"mailto:a@ejemplo.com", u"file:///tmp/a",
                                  u"http://ejemplo.com:puerto/", u"http://a b/"})
        EXPECT_EQ(DireccionDeLaWeb(QString::fromUtf16(texto)), QUrl());
}

TEST_F(OrigenDeVersiones, TheInstallationsOwnWordComesFirst) {
    const auto instalar = [this](const QString &valor) {
        ctx.ajustesDeLaMaquina.Guardar(u"ZENDRA"_s, u"INSTALACION"_s, u"version"_s, valor);
    };
    // 3.5.1: 3 * 1,000,000 + 5 * 1,000 + 1.
    EXPECT_EQ(VersionInstalada(ctx), 3005001U);
    for (const auto &[valor, version] :
         {std::pair(u"30"_s, 30U), std::pair(u" 4294967295 "_s, 4294967295U), std::pair(u"0"_s, 0U)}) {
        instalar(valor);
        EXPECT_EQ(VersionInstalada(ctx), version);
    }
    for (const QString &valor : {u"3.5.1"_s, u"treinta"_s, u"4294967296"_s, u"-1"_s, QString()}) {
        instalar(valor);
        EXPECT_EQ(VersionInstalada(ctx), 3005001U) << valor.toStdString();
    }
}

TEST_F(OrigenDeVersiones, AnInstallationWritesOneFileForTheWholeMachine) {
    // As docs/opciones.md tells it to whoever makes a package.
    QSettings::setPath(QSettings::IniFormat, QSettings::SystemScope, carpeta.path());
    ASSERT_TRUE(QDir(carpeta.path()).mkpath(u"Zendra"_s));
    QFile f(carpeta.filePath(u"Zendra/ajustes.ini"_s));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("[Ajustes]\nZENDRA\\INSTALACION\\version=3006000\n");
    f.close();
    ctx.ajustesDeLaMaquina = Ajustes::DeLaMaquina();
    EXPECT_EQ(VersionInstalada(ctx), 3006000U);
}

TEST(NumeroDeLaVersion, GrowsWithEachPart) {
    static_assert(NumeroDeVersion(3, 5, 1) == 3005001);
    static_assert(NumeroDeVersion(3, 5, 2) > NumeroDeVersion(3, 5, 1));
    static_assert(NumeroDeVersion(3, 6, 0) > NumeroDeVersion(3, 5, 999));
    static_assert(NumeroDeVersion(4, 0, 0) > NumeroDeVersion(3, 12, 0));
    EXPECT_EQ(LineaDeLaVersion(NumeroDeVersion(4, 0, 12)), u"Versión Actual : 4000012"_s);
}

TEST_F(OrigenDeVersiones, WithoutAnAddressItSaysWhereToWriteOne) {
    const OrigenDeActualizacion o = LeerOrigenDeActualizacion(ctx);
    EXPECT_TRUE(o.direccion.isEmpty());
    EXPECT_EQ(
        o.falta,
        u"No hay una dirección para buscar actualizaciones: escríbala en DIRECCION, sección [ACTUALIZACION] de %1."_s
            .arg(ctx.ConfigFilePath));
}

TEST_F(OrigenDeVersiones, AServerAloneStandsForTheDocumentsUsualPlace) {
    for (const auto &[escrita, leida] :
         {std::pair("https://ejemplo.com",
                    "https://ejemplo.com/sistemas/ZENDRA3/actualizaciones/VersionApp.xml"),
          std::pair("http://ejemplo.com:8080/",
                    "http://ejemplo.com:8080/sistemas/ZENDRA3/actualizaciones/VersionApp.xml"),
          std::pair("https://ejemplo.com/propia/version.txt", "https://ejemplo.com/propia/version.txt")}) {
        configurar(u"DIRECCION"_s, QLatin1String(escrita));
        EXPECT_EQ(direccion(), leida);
        EXPECT_EQ(LeerOrigenDeActualizacion(ctx).falta, QString());
    }
}

TEST_F(OrigenDeVersiones, AnAddressThatIsNoneIsTold) {
    for (const QString &mala : {u"ejemplo.com"_s, u"ftp://ejemplo.com"_s, u"file:///tmp/version"_s}) {
        configurar(u"DIRECCION"_s, mala);
        EXPECT_EQ(direccion(), "");
        EXPECT_EQ(
            LeerOrigenDeActualizacion(ctx).falta,
            u"La dirección %1 no es válida: escriba http:// o https:// y el servidor en DIRECCION, sección "
            "[ACTUALIZACION] de %2."_s.arg(mala, ctx.ConfigFilePath));
    }
}

TEST_F(OrigenDeVersiones, AFileWithoutCertificatesIsTold) {
    const Certificados &c = CertificadosDePrueba();
    ASSERT_EQ(c.error, QString());
    configurar(u"DIRECCION"_s, u"https://ejemplo.com"_s);
    configurar(u"CERTIFICADOS"_s, c.autoridad);
    EXPECT_EQ(LeerOrigenDeActualizacion(ctx).certificados, c.autoridad);
    // A key holds none.
    for (const QString &archivo : {c.clave, carpeta.filePath(u"nada.pem"_s)}) {
        configurar(u"CERTIFICADOS"_s, archivo);
        EXPECT_EQ(direccion(), "");
        EXPECT_EQ(
            LeerOrigenDeActualizacion(ctx).falta,
            u"No se pueden leer certificados en %1: corrija CERTIFICADOS, sección [ACTUALIZACION] de %2."_s
                .arg(archivo, ctx.ConfigFilePath));
    }
}
