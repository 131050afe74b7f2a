// The encrypted road against servers that do not answer as they should.

#include "tests/mail/envio.h"

using namespace Qt::StringLiterals;

class Cifrado : public Envio {
 protected:
    void SetUp() override { configurar("SEGURIDAD", u"STARTTLS"_s); }
    static constexpr PlazosDeEnvio cortos{std::chrono::seconds(2), std::chrono::seconds(1)};
};

TEST_F(Cifrado, AHostThatDoesNotExistIsTold) {
    correo.servidor = u"no-existe.invalid:587"_s;
    EXPECT_EQ(
        enviar().mensaje.texto,
        u"No se encuentra el servidor no-existe.invalid: verifique su nombre y la conexión a internet."_s);
}

TEST_F(Cifrado, ARefusedConnectionIsTold) {
    const QString puerto = QString::number(PuertoSinNadie());
    correo.servidor = u"127.0.0.1:"_s + puerto;
    EXPECT_EQ(
        enviar().mensaje.texto,
        u"El servidor 127.0.0.1 no acepta conexiones en el puerto %1: verifique el servidor y el puerto."_s
            .arg(puerto));
}

TEST_F(Cifrado, AServerThatNeverAnswersIsGivenUpAndTheWindowGoesOn) {
    for (const QList<QByteArray> &respuestas : {QList<QByteArray>{}, {"220 hola\r\n"}}) {
        ServidorDeGuion servidor(respuestas);
        correo.servidor = servidor.direccion();
        ticks = 0;
        const FinDeEnvio fin = enviar(cortos);
        EXPECT_FALSE(fin.enviado);
        EXPECT_FALSE(fin.cerrar);
        EXPECT_EQ(fin.mensaje.texto,
                  u"El servidor 127.0.0.1 no respondió a tiempo: vuelva a intentar más tarde."_s);
        EXPECT_GT(ticks, 10) << "the window stood still";
    }
}

TEST_F(Cifrado, AServerThatHangsUpIsTold) {
    for (const QList<QByteArray> &respuestas :
         {QList<QByteArray>{ServidorDeGuion::cerrar}, {"220 hola\r\n", ServidorDeGuion::cerrar}}) {
        ServidorDeGuion servidor(respuestas);
        correo.servidor = servidor.direccion();
        EXPECT_EQ(
            enviar().mensaje.texto,
            u"El servidor 127.0.0.1 cerró la conexión antes de terminar: vuelva a intentar más tarde."_s);
    }
}

TEST_F(Cifrado, AServerThatIsBusyIsTold) {
    ServidorDeGuion servidor({"421 mas tarde\r\n"});
    correo.servidor = servidor.direccion();
    EXPECT_EQ(enviar().mensaje.texto,
              u"El servidor 127.0.0.1 no atiende en este momento: el mail no salió; vuelva a intentar más "
              "tarde.\r\n\r\nEl servidor dijo: 421 mas tarde"_s);
}

TEST_F(Cifrado, ARefusedStarttlsSendsNothing) {
    ServidorDeGuion servidor(
        {"220 hola\r\n", "250-hola\r\n250 STARTTLS\r\n", "454 ahora no\r\n", "221 adios\r\n"});
    correo.servidor = servidor.direccion();
    EXPECT_TRUE(enviar().mensaje.texto.contains(u"no ofrece STARTTLS"_s));
    EXPECT_FALSE(servidor.recibido().contains("MAIL"));
}

TEST_F(Cifrado, WhoLeavesWhileTheServerIsSilentIsToldAtOnce) {
    ServidorDeGuion servidor({"220 hola\r\n"});
    correo.servidor = servidor.direccion();
    const FinDeEnvio fin = enviarEInterrumpir([&] { return servidor.recibido().startsWith("EHLO "); });
    EXPECT_FALSE(fin.enviado);
    EXPECT_EQ(fin.mensaje.texto, u"Interrumpió el envío: el mail no salió."_s);
    EXPECT_NE(correo.cuerpo, QString());
}

namespace {

struct CasoDeFin {
    FaseDeEnvio fase;
    const char *respuesta;
    const char16_t *dice;
};

}  // namespace

// The replies that no server of the distribution gives when asked.
TEST(FinDeUnEnvio, EveryRefusalHasItsSentence) {
    const CuentaDeCorreo cuenta{{u"mail.x.com"_s, 587}, false, u"juan"_s, u"secreta1"_s, {}};
    Correo correo;
    correo.remitente = u"yo@x.com"_s;
    correo.destinatario = u"vos@y.com"_s;
    using F = FaseDeEnvio;
    constexpr const char16_t *llena = u"La casilla de vos@y.com está llena: ";
    constexpr const char16_t *grande = u"El mail es demasiado grande para el servidor: ";
    const CasoDeFin casos[] = {
        {F::Conexion, "554 no", u"El servidor mail.x.com no aceptó el mail: no salió."},
        {F::Login, "454 4.7.0 luego", u"El servidor no aceptó el usuario juan o su contraseña"},
        {F::Login, "535 no", u"El servidor no aceptó el usuario juan o su contraseña"},
        {F::Remitente, "550 no", u"El servidor no aceptó al remitente yo@x.com"},
        {F::Remitente, "552 no", grande},
        {F::Remitente, "452 4.3.1 sin lugar", u"El servidor no aceptó al remitente yo@x.com"},
        {F::Remitente, "530 5.7.0 login", u"El servidor pide un usuario y su contraseña"},
        {F::Destinatario, "452 no", llena},
        {F::Destinatario, "552 no", llena},
        {F::Destinatario, "450 4.2.2 no", llena},
        {F::Destinatario, "550 no", u"El servidor no aceptó al destinatario vos@y.com"},
        {F::Datos, "554 no", u"El servidor mail.x.com no aceptó el mail: no salió."},
        {F::SinRespuesta, "452 no", llena},
        {F::SinRespuesta, "552 5.3.4 no", grande},
        {F::SinRespuesta, "552 5.2.2 no", llena},
        {F::SinRespuesta, "552 no", u"La casilla de vos@y.com está llena o el mail es demasiado grande"},
        {F::SinRespuesta, "554 5.7.1 spam", u"El servidor mail.x.com no aceptó el mail: no salió."}};
    for (const CasoDeFin &caso : casos) {
        const QString respuesta = QLatin1String(caso.respuesta);
        const FinDeEnvio fin =
            FinDeResultado({caso.fase, respuesta.left(3).toInt(), respuesta, 55, 0, {}}, cuenta, correo);
        EXPECT_FALSE(fin.enviado);
        EXPECT_TRUE(fin.mensaje.texto.startsWith(QString::fromUtf16(caso.dice)))
            << caso.respuesta << ": " << fin.mensaje.texto.toStdString();
        EXPECT_TRUE(fin.mensaje.texto.endsWith("El servidor dijo: "_L1 + respuesta));
        EXPECT_FALSE(fin.mensaje.texto.contains(cuenta.contrasena));
    }
}

TEST(FinDeUnEnvio, ALineThatBreaksBehindTheMessageLeavesItOpenWhetherItWent) {
    constexpr int seCorto = 56;
    const FinDeEnvio fin = FinDeResultado({FaseDeEnvio::SinRespuesta, 0, {}, seCorto, 0, {}}, {}, {});
    EXPECT_FALSE(fin.enviado);
    EXPECT_TRUE(fin.mensaje.texto.endsWith(
        u"El mail pudo haber salido: verifíquelo con su cliente antes de enviarlo otra vez."_s));
    EXPECT_TRUE(FinDeResultado({FaseDeEnvio::Aceptado, 0, {}, seCorto, 0, {}}, {}, {}).enviado);
}
