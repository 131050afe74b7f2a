// A document of the web, read from real servers on the loopback.

#include <gtest/gtest.h>

#include <QDeadlineTimer>
#include <QFile>
#include <QTest>
#include <optional>

#include "regulatory/urlreader.h"
#include "tests/support/certificados.h"
#include "tests/support/servidorhttp.h"
#include "tests/support/servidorsmtp.h"

using namespace Qt::StringLiterals;

namespace {

const QString sinConexion = u"Error opening Internet connection"_s;
const QString sinPagina = u"Error opening Web page"_s;
const QString lugarPublicado = u"/sistemas/ZENDRA3/actualizaciones/VersionApp.xml"_s;
constexpr std::chrono::seconds plazoLargo{15};

/// Reads an address and serves events until it ends; fails after half a minute.
LecturaDeUrl leer(const QString &direccion, const QString &certificados = {},
                  std::chrono::milliseconds plazo = plazoLargo) {
    LectorDeUrl lector(plazo);
    std::optional<LecturaDeUrl> fin;
    lector.LeerUrl(QUrl(direccion), certificados, [&fin](const LecturaDeUrl &lectura) {
        EXPECT_FALSE(fin.has_value()) << "it ended twice";
        fin = lectura;
    });
    EXPECT_FALSE(fin.has_value()) << "it ended while it was asked";
    const QDeadlineTimer espera(30'000);
    while (!fin && !espera.hasExpired()) QTest::qWait(1);
    EXPECT_TRUE(fin.has_value()) << "it never came: " << direccion.toStdString();
    // What comes too late is heard here.
    QTest::qWait(5);
    return fin.value_or(LecturaDeUrl());
}

void falla(const LecturaDeUrl &lectura, const QString &mensaje, const QString &motivo) {
    EXPECT_EQ(lectura.documento, QByteArray());
    EXPECT_EQ(lectura.mensaje, mensaje);
    EXPECT_EQ(lectura.motivo.toStdString(), motivo.toStdString());
}

std::string leida(const LecturaDeUrl &lectura) {
    EXPECT_EQ(lectura.mensaje, QString());
    EXPECT_EQ(lectura.motivo.toStdString(), "");
    return lectura.documento.toStdString();
}

quint16 puertoDe(const ServidorHttp &servidor) {
    return static_cast<quint16>(QUrl(servidor.direccion()).port());
}

QString escapada(const QString &direccion) {
    return QString::fromLatin1(QUrl::toPercentEncoding(direccion));
}

}  // namespace

TEST(LecturaDeDocumentos, ADocumentIsReadAsItCame) {
    ServidorHttp servidor;
    servidor.publicar(lugarPublicado, "31</>https://ejemplo.com/\xF1\r\n");
    EXPECT_EQ(leida(leer(servidor.direccion(lugarPublicado))), "31</>https://ejemplo.com/\xF1\r\n");
}

TEST(LecturaDeDocumentos, TheServerIsToldTheProgramsNameAndPastItsCaches) {
    ServidorHttp servidor;
    servidor.publicar(u"/v"_s, "31");
    leida(leer(servidor.direccion(u"/v"_s)));
    const QList<QJsonObject> pedidos = servidor.pedidos();
    ASSERT_EQ(pedidos.size(), 1);
    const QJsonObject &pedido = pedidos.first();
    EXPECT_EQ(pedido[u"path"_s].toString(), u"/v"_s);
    EXPECT_EQ(pedido[u"User-Agent"_s].toString(), u"ZENDRA"_s);
    EXPECT_EQ(pedido[u"Cache-Control"_s].toString(), u"no-cache"_s);
    EXPECT_EQ(pedido[u"Accept-Encoding"_s].toString(), u"identity"_s);
    EXPECT_FALSE(pedido.contains(u"Cookie"_s));
}

TEST(LecturaDeDocumentos, ADocumentThatChangesIsReadAnew) {
    ServidorHttp servidor;
    LectorDeUrl lector;
    for (const QByteArray &publicado : {QByteArray("30"), QByteArray("31")}) {
        servidor.publicar(u"/v"_s, publicado);
        std::optional<LecturaDeUrl> fin;
        lector.LeerUrl(QUrl(servidor.direccion(u"/v"_s)), {},
                       [&fin](const LecturaDeUrl &lectura) { fin = lectura; });
        while (!fin) QTest::qWait(1);
        EXPECT_EQ(fin->documento, publicado);
    }
}

TEST(LecturaDeDocumentos, AnEmptyDocumentIsNoFailure) {
    ServidorHttp servidor;
    servidor.publicar(u"/v"_s, "");
    EXPECT_EQ(leida(leer(servidor.direccion(u"/v"_s))), "");
    EXPECT_EQ(leida(leer(servidor.direccion(u"/codigo/204"_s))), "");
}

TEST(LecturaDeDocumentos, WhereNobodyListensThereIsNoConnection) {
    const quint16 puerto = PuertoSinNadie();
    falla(
        leer(u"http://127.0.0.1:%1/v"_s.arg(puerto)), sinConexion,
        u"El servidor 127.0.0.1 no acepta conexiones en el puerto %1: verifique la dirección."_s.arg(puerto));
}

TEST(LecturaDeDocumentos, AServerThatDoesNotExistIsNoConnection) {
    falla(
        leer(u"http://servidor.invalid/v"_s), sinConexion,
        u"No se encuentra el servidor servidor.invalid: verifique la dirección y la conexión a internet."_s);
}

TEST(LecturaDeDocumentos, ADocumentThatIsNotThereIsTold) {
    ServidorHttp servidor;
    falla(leer(servidor.direccion(lugarPublicado)), sinPagina,
          u"El servidor 127.0.0.1 no tiene el documento /sistemas/ZENDRA3/actualizaciones/VersionApp.xml: "
          "verifique la dirección."_s);
    falla(leer(servidor.direccion(u"/codigo/410"_s)), sinPagina,
          u"El servidor 127.0.0.1 no tiene el documento /codigo/410: verifique la dirección."_s);
}

TEST(LecturaDeDocumentos, AServerThatRefusesOrFailsIsToldByItsNumber) {
    ServidorHttp servidor;
    for (const char *codigo : {"401", "403"})
        falla(leer(servidor.direccion("/codigo/"_L1 + QLatin1String(codigo))), sinPagina,
              u"El servidor 127.0.0.1 no permite leer el documento /codigo/%1: avise a quien lo administra."_s
                  .arg(QLatin1String(codigo)));
    for (const char *codigo : {"400", "418", "500", "503"})
        falla(leer(servidor.direccion("/codigo/"_L1 + QLatin1String(codigo))), sinPagina,
              u"El servidor 127.0.0.1 respondió con el error %1: vuelva a intentar más tarde."_s.arg(
                  QLatin1String(codigo)));
}

TEST(LecturaDeDocumentos, AServerThatSaysNothingIsGivenUp) {
    ServidorHttp servidor;
    falla(leer(servidor.direccion(u"/calla"_s), {}, std::chrono::milliseconds(200)), sinPagina,
          u"El servidor 127.0.0.1 no respondió a tiempo: vuelva a intentar más tarde."_s);
}

TEST(LecturaDeDocumentos, AServerThatGivesByteByByteIsGivenUpToo) {
    ServidorHttp servidor;
    falla(leer(servidor.direccion(u"/gotea"_s), {}, std::chrono::milliseconds(400)), sinPagina,
          u"El servidor 127.0.0.1 no respondió a tiempo: vuelva a intentar más tarde."_s);
}

TEST(LecturaDeDocumentos, AnEncryptionThatNeverBeginsIsNoConnection) {
    const ServidorDeGuion mudo({});
    falla(leer("https://"_L1 + mudo.direccion() + "/v"_L1, {}, std::chrono::milliseconds(200)), sinConexion,
          u"El servidor 127.0.0.1 no respondió a tiempo: vuelva a intentar más tarde."_s);
}

TEST(LecturaDeDocumentos, ADocumentThatIsCutIsNotRead) {
    ServidorHttp servidor;
    falla(leer(servidor.direccion(u"/corta"_s)), sinPagina,
          u"El servidor 127.0.0.1 cerró la conexión antes de terminar: vuelva a intentar más tarde."_s);
}

TEST(LecturaDeDocumentos, AnAnswerThatIsNoHttpIsTold) {
    ServidorHttp servidor;
    falla(leer(servidor.direccion(u"/otro"_s)), sinPagina,
          u"El servidor 127.0.0.1 cerró la conexión antes de terminar: vuelva a intentar más tarde."_s);
}

TEST(LecturaDeDocumentos, ADocumentOfTheLargestSizeIsReadAndALargerOneIsNot) {
    ServidorHttp servidor;
    servidor.publicar(u"/justo"_s, QByteArray(LectorDeUrl::tope, 'x'));
    EXPECT_EQ(leida(leer(servidor.direccion(u"/justo"_s))).size(), LectorDeUrl::tope);
    servidor.publicar(u"/uno-mas"_s, QByteArray(LectorDeUrl::tope + 1, 'x'));
    for (const char *camino : {"/uno-mas", "/grande"})
        falla(leer(servidor.direccion(QLatin1String(camino))), sinPagina,
              u"El documento del servidor 127.0.0.1 es demasiado grande: verifique la dirección."_s);
}

TEST(LecturaDeDocumentos, ARedirectionIsFollowed) {
    ServidorHttp servidor;
    ServidorHttp otro;
    servidor.publicar(u"/v"_s, "31");
    otro.publicar(u"/v"_s, "32");
    EXPECT_EQ(leida(leer(servidor.direccion(u"/ir/%2Fv"_s))), "31") << "on the same server";
    EXPECT_EQ(leida(leer(servidor.direccion("/ir/"_L1 + escapada(otro.direccion(u"/v"_s))))), "32");
}

TEST(LecturaDeDocumentos, TheServerThatARedirectionLeadsToIsTheOneThatFails) {
    ServidorHttp servidor;
    const quint16 puerto = PuertoSinNadie();
    const LecturaDeUrl lectura =
        leer(servidor.direccion("/ir/"_L1 + escapada(u"http://localhost:%1/v"_s.arg(puerto))));
    EXPECT_EQ(
        lectura.motivo,
        u"El servidor localhost no acepta conexiones en el puerto %1: verifique la dirección."_s.arg(puerto));
}

TEST(LecturaDeDocumentos, RedirectionsInARingAreGivenUp) {
    ServidorHttp servidor;
    falla(leer(servidor.direccion(u"/ronda"_s)), sinPagina,
          u"El servidor 127.0.0.1 manda de una dirección a otra sin fin: avise a quien lo administra."_s);
    // The first and the five that are followed; one that finds the line hung up is sent again.
    constexpr int pedidos = 6;
    EXPECT_GE(servidor.pedidos().size(), pedidos);
    EXPECT_LE(servidor.pedidos().size(), 2 * pedidos);
}

TEST(LecturaDeDocumentos, ARedirectionOutOfTheWebOrToNowhereIsNotFollowed) {
    ServidorHttp servidor;
    for (const QString &a :
         {u"file:///etc/hostname"_s, u"ftp://127.0.0.1/v"_s, u"data:,31"_s, u"http://"_s, QString()})
        falla(
            leer(servidor.direccion("/ir/"_L1 + escapada(a))), sinPagina,
            u"El servidor 127.0.0.1 manda a un lugar que no es una dirección http ni https, y no se lo siguió: "
            "avise a quien lo administra."_s);
}

TEST(LecturaDeDocumentos, ACancelledReadingSaysNothingAnyMore) {
    ServidorHttp servidor;
    int veces = 0;
    LectorDeUrl lector(std::chrono::milliseconds(100));
    lector.LeerUrl(QUrl(servidor.direccion(u"/calla"_s)), {}, [&veces](const LecturaDeUrl &) { ++veces; });
    EXPECT_EQ(servidor.pedidos().size(), 1);
    lector.Cancelar();
    QTest::qWait(200);
    EXPECT_EQ(veces, 0);
}

TEST(LecturaDeDocumentos, ANewReadingTakesThePlaceOfTheOneBefore) {
    ServidorHttp servidor;
    servidor.publicar(u"/v"_s, "31");
    QByteArrayList dichos;
    LectorDeUrl lector;
    const auto anotar = [&dichos](const LecturaDeUrl &lectura) { dichos << lectura.documento; };
    lector.LeerUrl(QUrl(servidor.direccion(u"/calla"_s)), {}, anotar);
    lector.LeerUrl(QUrl(servidor.direccion(u"/v"_s)), {}, anotar);
    while (dichos.isEmpty()) QTest::qWait(1);
    QTest::qWait(20);
    EXPECT_EQ(dichos, QByteArrayList{"31"});
}

TEST(LecturaDeDocumentos, WhoeverHearsTheEndMayTakeTheReaderAway) {
    ServidorHttp servidor;
    servidor.publicar(u"/v"_s, "31");
    for (const char *camino : {"/v", "/grande", "/codigo/500"}) {
        auto lector = std::make_unique<LectorDeUrl>();
        lector->LeerUrl(QUrl(servidor.direccion(QLatin1String(camino))), {},
                        [&lector](const LecturaDeUrl &) { lector.reset(); });
        while (lector) QTest::qWait(1);
        QTest::qWait(5);
    }
}

class LecturaCifrada : public ::testing::Test {
 protected:
    void SetUp() override { ASSERT_EQ(c.error, QString()); }
    const Certificados &c = CertificadosDePrueba();
};

TEST_F(LecturaCifrada, AServerOfATrustedAuthorityIsRead) {
    ServidorHttp servidor(c.bueno, c.clave);
    servidor.publicar(u"/v"_s, "31</>https://ejemplo.com/");
    EXPECT_EQ(leida(leer(servidor.direccion(u"/v"_s), c.autoridad)), "31</>https://ejemplo.com/");
    EXPECT_EQ(servidor.pedidos().size(), 1);
}

TEST_F(LecturaCifrada, ACertificateThatCannotBeTrustedIsToldAndNothingIsAsked) {
    const QString deQuien =
        u"El certificado del servidor 127.0.0.1 no es de una autoridad conocida: si el servidor es de su oficina, "
        "indique el archivo de su autoridad en CERTIFICADOS."_s;
    const struct {
        QString certificado, autoridad, motivo;
    } casos[] = {{c.bueno, {}, deQuien},
                 {c.autofirmado, {}, deQuien},
                 {c.otroNombre, c.autoridad,
                  u"El certificado no es del servidor 127.0.0.1: verifique el nombre en la dirección."_s},
                 {c.vencido, c.autoridad,
                  u"El certificado del servidor 127.0.0.1 venció: avise a quien administra el servidor."_s}};
    for (const auto &caso : casos) {
        ServidorHttp servidor(caso.certificado, c.clave);
        falla(leer(servidor.direccion(u"/v"_s), caso.autoridad), sinConexion, caso.motivo);
    }
}

TEST_F(LecturaCifrada, HttpsIsNeverLeftForHttpAndTheOtherWayIsFollowed) {
    ServidorHttp cifrado(c.bueno, c.clave);
    ServidorHttp plano;
    cifrado.publicar(u"/v"_s, "31");
    plano.publicar(u"/v"_s, "32");
    EXPECT_EQ(leida(leer(plano.direccion("/ir/"_L1 + escapada(cifrado.direccion(u"/v"_s))), c.autoridad)),
              "31");
    falla(
        leer(cifrado.direccion("/ir/"_L1 + escapada(plano.direccion(u"/v"_s))), c.autoridad), sinPagina,
        u"El servidor 127.0.0.1 manda de una dirección cifrada a una sin cifrar, y no se la siguió: avise a quien "
        "lo administra."_s);
    for (const QJsonObject &pedido : plano.pedidos())
        EXPECT_TRUE(pedido[u"path"_s].toString().startsWith("/ir/"_L1))
            << "only what led to the other was asked";
}

TEST_F(LecturaCifrada, APlainServerIsNotSpokenToInSecret) {
    const ServidorHttp plano;
    const QString direccion = plano.direccion(u"/v"_s).replace(u"http:"_s, u"https:"_s);
    falla(
        leer(direccion, c.autoridad), sinConexion,
        u"No se pudo cifrar la conexión con 127.0.0.1 en el puerto %1: verifique si la dirección es http o https."_s
            .arg(puertoDe(plano)));
}
