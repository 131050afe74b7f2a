// Mail to a server of the distribution: plain, encrypted, with a login, and all that it may refuse.

#include <QDateTime>
#include <QFile>
#include <QJsonArray>
#include <QJsonObject>

#include "tests/mail/deverdad.h"

using namespace Qt::StringLiterals;

namespace {

/// No form in which the login was told to the server is in a text.
void sinContrasena(const QString &texto) {
    const QByteArray clave = u"clave ñ%1"_s.toUtf8();
    EXPECT_FALSE(texto.contains(u"clave ñ%1"_s));
    EXPECT_FALSE(texto.contains(QString::fromLatin1(clave.toBase64())));
    EXPECT_FALSE(texto.contains(
        QString::fromLatin1((QByteArray(1, '\0') + "juan@x.com" + QByteArray(1, '\0') + clave).toBase64())));
}

}  // namespace

TEST_F(EnvioDeVerdad, APlainServerTakesTheDialogueAsItStands) {
    servir({});
    const FinDeEnvio fin = enviar();
    EXPECT_TRUE(fin.enviado) << fin.mensaje.texto.toStdString() << log.toStdString();
    EXPECT_EQ(sobre(), "estudio@despacho.com.ar cliente@importa.com");
    EXPECT_EQ(tomado(), mensajeSinCifrar);
}

TEST_F(EnvioDeVerdad, PointsAtTheBeginningOfALineArriveAsTheyWere) {
    servir({});
    correo.cuerpo = u".uno\n.\n..\nfin"_s;
    EXPECT_TRUE(enviar().enviado);
    EXPECT_TRUE(tomado().endsWith("\r\n.uno\r\n.\r\n..\r\nfin\r\n")) << tomado().toStdString();
}

TEST_F(EnvioDeVerdad, StarttlsWithALoginTakesTheMessage) {
    servirConLogin(false);
    const FinDeEnvio fin = enviar();
    esEnviado(fin);
    EXPECT_EQ(sobre(), "estudio@despacho.com.ar cliente@importa.com");
    EXPECT_EQ(correo.cuerpo, QString());
    // The same log as without encryption: commands and replies, and of the login that there was one.
    for (const char *dicho : {"Enviando mail a : cliente@importa.com\n", "ZENDRA SMTP v.03.05.01\n", "\n220 ",
                              "\nSTARTTLS\n", "\nAUTH ", "********\n",
                              "\nMAIL FROM:<estudio@despacho.com.ar>", "\nRCPT TO:<cliente@importa.com>\n",
                              "\nDATA\n", "\nSubject: Presupuesto\n", "\n250 OK\n", "\nQUIT\n"})
        EXPECT_TRUE(log.contains(QLatin1String(dicho))) << dicho << "\n" << log.toStdString();
    sinContrasena(log);
}

TEST_F(EnvioDeVerdad, TlsFromTheBeginningWithALoginTakesTheMessage) {
    servirConLogin(true);
    const FinDeEnvio fin = enviar();
    EXPECT_TRUE(fin.enviado) << fin.mensaje.texto.toStdString() << log.toStdString();
    EXPECT_FALSE(log.contains(u"STARTTLS"_s));
    EXPECT_NE(tomado(), QByteArray());
    sinContrasena(log);
}

TEST_F(EnvioDeVerdad, EncryptionAloneTakesTheMessageToo) {
    const Certificados &c = CertificadosDePrueba();
    servir({u"--certificate"_s, c.bueno, u"--key"_s, c.clave});
    configurar("SEGURIDAD", u"STARTTLS"_s);
    configurar("CERTIFICADOS", c.autoridad);
    EXPECT_TRUE(enviar().enviado) << log.toStdString();
    EXPECT_FALSE(log.contains(u"\nAUTH "_s));
}

TEST_F(EnvioDeVerdad, TheMessageIsWellFormedAndReadAsItWasWritten) {
    servirConLogin(false);
    correo.asunto =
        u"Presupuesto sábado, 22 de noviembre de 2026: descripción larga del envío № 4711 € ñandú"_s;
    correo.nombreDelDestinatario = u"Peña, \"Hijos\" & Cía"_s;
    correo.cuerpo =
        u"<html>\r\n<p class=\"x\">Año € 1.000,00 = ñ</p>\n.\n"_s + QString(300, u'á') + u"</html>"_s;
    correo.texto = u"Año € 1.000,00\nDe: alguien\n.fin"_s;
    for (int byte = 0; byte < 1000; ++byte) correo.adjunto += static_cast<char>(byte);
    correo.nombreDelAdjunto = u"Presupuesto Ñandú 4711.pdf"_s;
    const QString html = QString(correo.cuerpo).replace("\r\n"_L1, "\n"_L1);
    ASSERT_TRUE(enviar().enviado) << log.toStdString();

    const QJsonObject mensaje = leido();
    EXPECT_TRUE(mensaje["ascii"_L1].toBool());
    EXPECT_EQ(mensaje["bare"_L1].toInt(), 0);
    EXPECT_LE(mensaje["longest"_L1].toInt(), 998);
    const QJsonObject cabeceras = mensaje["headers"_L1].toObject();
    EXPECT_EQ(cabeceras["from"_L1].toString(), u"Estudio Peña <estudio@despacho.com.ar>"_s);
    EXPECT_EQ(cabeceras["to"_L1].toString(), u"\"Peña, \\\"Hijos\\\" & Cía\" <cliente@importa.com>"_s);
    EXPECT_EQ(cabeceras["subject"_L1].toString(),
              u"Presupuesto sábado, 22 de noviembre de 2026: descripción larga del envío № 4711 € ñandú"_s);
    EXPECT_EQ(cabeceras["mime-version"_L1].toString(), u"1.0"_s);
    EXPECT_TRUE(cabeceras["message-id"_L1].toString().endsWith(u"@despacho.com.ar>"_s));
    EXPECT_NEAR(mensaje["date"_L1].toDouble(), static_cast<double>(QDateTime::currentSecsSinceEpoch()),
                300.0);

    const QJsonObject todo = mensaje["body"_L1].toObject();
    EXPECT_EQ(todo["type"_L1].toString(), u"multipart/mixed"_s);
    EXPECT_TRUE(todo["defects"_L1].toArray().isEmpty());
    const QJsonArray partes = todo["parts"_L1].toArray();
    ASSERT_EQ(partes.size(), 2);
    EXPECT_EQ(partes[0]["type"_L1].toString(), u"multipart/alternative"_s);
    const QJsonArray alternativas = partes[0]["parts"_L1].toArray();
    ASSERT_EQ(alternativas.size(), 2);
    EXPECT_EQ(alternativas[0]["type"_L1].toString(), u"text/plain"_s);
    EXPECT_EQ(alternativas[0]["charset"_L1].toString(), u"utf-8"_s);
    EXPECT_EQ(alternativas[0]["text"_L1].toString().trimmed(), correo.texto);
    EXPECT_EQ(alternativas[1]["type"_L1].toString(), u"text/html"_s);
    EXPECT_EQ(alternativas[1]["charset"_L1].toString(), u"utf-8"_s);
    EXPECT_EQ(alternativas[1]["text"_L1].toString().trimmed(), html);
    EXPECT_EQ(partes[1]["type"_L1].toString(), u"application/pdf"_s);
    EXPECT_EQ(partes[1]["disposition"_L1].toString(), u"attachment"_s);
    EXPECT_EQ(partes[1]["filename"_L1].toString(), u"Presupuesto Ñandú 4711.pdf"_s);
    EXPECT_EQ(partes[1]["hex"_L1].toString().toLatin1(), correo.adjunto.toHex());
}

TEST_F(EnvioDeVerdad, WithoutAnAttachmentTheAlternativesAreTheMessageAndTheTwinIsMadeFromTheHtml) {
    servirConLogin(true);
    correo.cuerpo = u"<html><body><p>Uno &amp; dos</p><p>Año</p></body></html>"_s;
    ASSERT_TRUE(enviar().enviado) << log.toStdString();
    const QJsonObject todo = leido()["body"_L1].toObject();
    EXPECT_EQ(todo["type"_L1].toString(), u"multipart/alternative"_s);
    const QJsonArray alternativas = todo["parts"_L1].toArray();
    ASSERT_EQ(alternativas.size(), 2);
    EXPECT_EQ(alternativas[0]["text"_L1].toString().trimmed(), u"Uno & dos\nAño"_s);
}

TEST_F(EnvioDeVerdad, LineEndsInAFieldBecomeNoHeaders) {
    servirConLogin(true);
    for (QString Correo::*campo : {&Correo::nombreDelRemitente, &Correo::asunto,
                                   &Correo::nombreDelDestinatario, &Correo::nombreDelAdjunto})
        correo.*campo += u"\r\nX-Malo: 1\r\n\r\ncuerpo"_s;
    correo.adjunto = "x";
    ASSERT_TRUE(enviar().enviado) << log.toStdString();
    const QJsonObject mensaje = leido();
    EXPECT_FALSE(mensaje["headers"_L1].toObject().contains("x-malo"_L1));
    EXPECT_EQ(mensaje["body"_L1]["parts"_L1].toArray().size(), 2);
}

TEST_F(EnvioDeVerdad, AWrongPasswordIsTold) {
    for (const bool tls : {false, true}) {
        servidor.closeWriteChannel();
        servidor.waitForFinished();
        servirConLogin(tls);
        conContrasena(u"otra clave"_s);
        const FinDeEnvio fin = falla(
            u"El servidor no aceptó el usuario juan@x.com o su contraseña: corríjalos en la configuración del mail."_s);
        EXPECT_TRUE(fin.mensaje.texto.contains(u"El servidor dijo: 535"_s))
            << fin.mensaje.texto.toStdString();
        EXPECT_FALSE((fin.mensaje.texto + log).contains(u"otra clave"_s));
        EXPECT_FALSE(
            (fin.mensaje.texto + log).contains(QString::fromLatin1(QByteArray("otra clave").toBase64())));
    }
}

TEST_F(EnvioDeVerdad, AServerThatWantsALoginAndGetsNoneIsTold) {
    servirConLogin(false);
    configurar("USUARIO", {});
    falla(u"El servidor pide un usuario y su contraseña: cárguelos en la configuración del mail."_s);
}

TEST_F(EnvioDeVerdad, AFullMailboxIsTold) {
    servirConLogin(false);
    for (const char *quien : {"llena", "excedida", "tarde"}) {
        correo.destinatario = QLatin1String(quien) + u"@importa.com"_s;
        const FinDeEnvio fin = falla(
            u"La casilla de %1 está llena: el mail no salió; avísele por otro medio y "
            "vuelva a enviarlo."_s.arg(correo.destinatario));
        EXPECT_TRUE(fin.mensaje.texto.contains(u"El servidor dijo: "_s));
    }
    correo.destinatario = u"dudosa@importa.com"_s;
    falla(u"La casilla de dudosa@importa.com está llena o el mail es demasiado grande: el mail no salió."_s);
}

TEST_F(EnvioDeVerdad, ARefusedRecipientIsTold) {
    servirConLogin(true);
    correo.destinatario = u"nadie@importa.com"_s;
    const FinDeEnvio fin =
        falla(u"El servidor no aceptó al destinatario nadie@importa.com: verifique su dirección."_s);
    EXPECT_TRUE(fin.mensaje.texto.endsWith(u"El servidor dijo: 550 5.1.1 No such user"_s));
}

TEST_F(EnvioDeVerdad, AMessageThatIsTooLargeIsTold) {
    const Certificados &c = CertificadosDePrueba();
    servir({u"--certificate"_s, c.bueno, u"--key"_s, c.clave, u"--size"_s, u"5000"_s});
    configurar("SEGURIDAD", u"STARTTLS"_s);
    configurar("CERTIFICADOS", c.autoridad);
    correo.adjunto = QByteArray(10'000, 'x');
    correo.nombreDelAdjunto = u"a.pdf"_s;
    falla(u"El mail es demasiado grande para el servidor: no salió."_s);
}

TEST_F(EnvioDeVerdad, AServerWithoutStarttlsGetsNothing) {
    servir({});
    configurar("SEGURIDAD", u"STARTTLS"_s);
    const FinDeEnvio fin = falla(
        u"El servidor 127.0.0.1 no ofrece STARTTLS en el puerto %1, y el mail no sale sin cifrar: verifique el "
        "puerto y la seguridad en la configuración del mail."_s.arg(correo.servidor.section(u':', 1)));
    EXPECT_FALSE(log.contains(u"MAIL FROM"_s));
}

TEST_F(EnvioDeVerdad, CertificatesAreAlwaysChecked) {
    const Certificados &c = CertificadosDePrueba();
    const QString deNadie =
        u"El certificado del servidor 127.0.0.1 no es de una autoridad conocida: el mail no salió; si el servidor "
        "es de su oficina, indique el archivo de su autoridad en Certificados."_s;
    const struct {
        QString certificado, autoridad, dice;
    } casos[] = {
        {c.bueno, {}, deNadie},
        {c.autofirmado, {}, deNadie},
        {c.autofirmado, c.autoridad, deNadie},
        {c.otroNombre, c.autoridad,
         u"El certificado no es del servidor 127.0.0.1: el mail no salió; verifique el nombre del servidor."_s},
        {c.vencido, c.autoridad,
         u"El certificado del servidor 127.0.0.1 venció: el mail no salió; avise a quien administra el servidor."_s}};
    for (const bool tls : {false, true})
        for (const auto &caso : casos) {
            SCOPED_TRACE(caso.certificado.toStdString());
            servidor.closeWriteChannel();
            servidor.waitForFinished();
            QStringList palabras{u"--certificate"_s, caso.certificado, u"--key"_s, c.clave};
            if (tls) palabras << u"--tls"_s;
            servir(palabras);
            configurar("SEGURIDAD", tls ? u"TLS"_s : u"STARTTLS"_s);
            configurar("CERTIFICADOS", caso.autoridad);
            falla(caso.dice);
            EXPECT_FALSE(log.contains(u"MAIL FROM"_s));
        }
    configurar("CERTIFICADOS", u"/no/esta.pem"_s);
    falla(
        u"No se puede leer el archivo de certificados /no/esta.pem: elija otro en la configuración del mail."_s);
}

TEST_F(EnvioDeVerdad, TlsToAPortThatSpeaksPlainIsTold) {
    servir({});
    configurar("SEGURIDAD", u"TLS"_s);
    falla(
        u"No se pudo cifrar la conexión con 127.0.0.1 en el puerto %1: verifique si ese puerto es de TLS o de "
        "STARTTLS."_s.arg(correo.servidor.section(u':', 1)));
}

TEST_F(EnvioDeVerdad, AServerThatNeverAnswersTheMessageIsGivenUpAndTheWindowGoesOn) {
    servirConLogin(true);
    correo.destinatario = u"nunca@importa.com"_s;
    const FinDeEnvio fin = enviar({std::chrono::seconds(10), std::chrono::seconds(1)});
    EXPECT_FALSE(fin.enviado);
    EXPECT_EQ(fin.mensaje.texto,
              u"El servidor 127.0.0.1 no respondió a tiempo: vuelva a intentar más tarde.\r\n\r\n"
              "El mail pudo haber salido: verifíquelo con su cliente antes de enviarlo otra vez."_s);
    EXPECT_GT(ticks, 10) << "the window stood still";
}

TEST_F(EnvioDeVerdad, WhoLeavesBehindTheMessageIsToldThatItMayHaveGone) {
    servirConLogin(true);
    correo.destinatario = u"nunca@importa.com"_s;
    // The message is short: it went out whole with its first piece.
    const FinDeEnvio fin = enviarEInterrumpir([this] { return log.contains(u"\nSubject: "_s); });
    EXPECT_FALSE(fin.enviado);
    EXPECT_TRUE(fin.mensaje.texto.startsWith(u"Interrumpió el envío"_s)) << fin.mensaje.texto.toStdString();
}

TEST_F(EnvioDeVerdad, AMessageThatIsStoppedInItsMiddleIsNotDelivered) {
    servirConLogin(true);
    correo.adjunto = QByteArray(15'000'000, 'x');
    correo.nombreDelAdjunto = u"a.pdf"_s;
    const FinDeEnvio fin = enviarEInterrumpir([this] { return log.contains(u"\nSubject: "_s); });
    EXPECT_EQ(fin.mensaje.texto, u"Interrumpió el envío: el mail no salió."_s);
    // The server is through with that one when it took another.
    correo.adjunto = "x";
    ASSERT_TRUE(enviar().enviado);
    EXPECT_LT(tomado().size(), 10'000);
    EXPECT_FALSE(QFile::exists(buzon.filePath(u"2.eml"_s)));
}
