// The dialogue with a server that asks for nothing, against one that says what the test tells it to.

#include <QDateTime>

#include "frame/startup.h"
#include "tests/mail/envio.h"

using namespace Qt::StringLiterals;

namespace {

/// The whole dialogue of the fixture's message.
const QByteArray dialogoEntero =
    "HELO estudio\r\n"
    "MAIL FROM:estudio@despacho.com.ar\r\n"
    "RCPT TO:<cliente@importa.com>\r\n"
    "DATA\r\n" +
    mensajeSinCifrar +
    ".\r\n"
    "QUIT\r\n";

void esErrorDeSmtp(const FinDeEnvio &fin, const QString &respuesta) {
    EXPECT_FALSE(fin.enviado);
    EXPECT_TRUE(fin.cerrar);
    EXPECT_EQ(fin.mensaje.texto, "Error de SMTP: "_L1 + respuesta);
    EXPECT_EQ(fin.mensaje.titulo, u"Error de SMTP"_s);
    EXPECT_EQ(fin.mensaje.icono, Icono::Critico);
}

}  // namespace

class Dialogo : public Envio {
 protected:
    FinDeEnvio contra(ServidorDeGuion &servidor) {
        correo.servidor = servidor.direccion();
        return enviar();
    }
    /// The same with one reply of a good server changed.
    FinDeEnvio conRespuesta(qsizetype cual, const QByteArray &respuesta) {
        QList<QByteArray> respuestas = RespuestasDeUnServidor();
        respuestas[cual] = respuesta;
        ServidorDeGuion servidor(respuestas);
        const FinDeEnvio fin = contra(servidor);
        recibido = servidor.recibido();
        return fin;
    }
    QByteArray recibido;
};

TEST_F(Dialogo, EveryByteIsAsTold) {
    ServidorDeGuion servidor(RespuestasDeUnServidor());
    esEnviado(contra(servidor));
    EXPECT_EQ(servidor.recibido(), dialogoEntero);
    EXPECT_EQ(correo.cuerpo, QString()) << "the body stays behind";
}

TEST_F(Dialogo, TheLogTellsCommandsAndRepliesInTheirOrder) {
    ServidorDeGuion servidor(RespuestasDeUnServidor());
    contra(servidor);
    EXPECT_EQ(log,
              "Enviando mail a : cliente@importa.com\n"
              "\n"
              "Fecha sistema : "_L1 +
                  FechaLarga(QDateTime::currentDateTime()) +
                  "\n"
                  "ZENDRA SMTP v.03.05.01\n"
                  "Conectando...  (espere for favor)\n"
                  "220 servidor\n"
                  "HELO estudio\n"
                  "250 hola\n"
                  "MAIL FROM:estudio@despacho.com.ar\n"
                  "250 remitente\n"
                  "RCPT TO:<cliente@importa.com>\n"
                  "250 destinatario\n"
                  "DATA\n"
                  "354 diga\n"
                  "Subject: Presupuesto\n"
                  "250 aceptado\n"
                  "QUIT\n"
                  "221 adios\n"_L1);
}

TEST_F(Dialogo, AReplyOf354ToTheSenderIsAcceptedAsWell) {
    esEnviado(conRespuesta(2, "354 siga\r\n"));
    EXPECT_EQ(recibido, dialogoEntero);
}

TEST_F(Dialogo, A220BehindTheMessageMovesOnAsAnyAcceptedCode) {
    esEnviado(conRespuesta(5, "220 otra vez\r\n"));
    EXPECT_EQ(recibido, dialogoEntero);
}

TEST_F(Dialogo, AServerWithANumberBehindAColonIsCalledAtThatPort) {
    ServidorDeGuion servidor(RespuestasDeUnServidor());
    ASSERT_TRUE(servidor.direccion().contains(u':'));
    contra(servidor);
    EXPECT_EQ(servidor.conexiones(), 1);
    EXPECT_EQ(PartirServidor(u"mail.x.com:2525"_s, 25)->puerto, 2525);
    EXPECT_EQ(PartirServidor(u"mail.x.com:2525"_s, 25)->host, u"mail.x.com"_s);
    EXPECT_EQ(PartirServidor(u"mail.x.com"_s, 25)->puerto, 25);
}

TEST_F(Dialogo, EveryOtherCodeEndsItWithTheReply) {
    for (const char *codigo :
         {"221", "251", "334", "421", "450", "500", "554", "999", "000", "22", "", "hola"})
        for (qsizetype cual = 0; cual < 6; ++cual) {
            SCOPED_TRACE(std::string(codigo) + " to " + std::to_string(cual));
            correo.cuerpo = u"x"_s;
            const QByteArray respuesta = QByteArray(codigo) + " no quiero";
            esErrorDeSmtp(conRespuesta(cual, respuesta + "\r\n"), QString::fromLatin1(respuesta));
            EXPECT_FALSE(recibido.contains("QUIT"));
        }
}

TEST_F(Dialogo, TheReplyToTheGoodbyeIsSuccessWhateverItSays) {
    for (const char *respuesta :
         {"221 adios\r\n", "250 bien\r\n", "500 no\r\n", "\r\n", "<cerrar>", "221<cerrar>"}) {
        SCOPED_TRACE(respuesta);
        correo.cuerpo = u"x"_s;
        esEnviado(conRespuesta(6, respuesta));
    }
}

TEST_F(Dialogo, AServerThatSpeaksAByteAtATimeIsHeardOut) {
    ServidorDeGuion servidor(RespuestasDeUnServidor(), true);
    esEnviado(contra(servidor));
    EXPECT_EQ(servidor.recibido(), dialogoEntero);
}

TEST_F(Dialogo, SeveralRepliesAtOnceMoveItSeveralTimes) {
    ServidorDeGuion servidor({"220 a\r\n250 b\r\n250 c\r\n250 d\r\n354 e\r\n250 f\r\n221 g\r\n"});
    esEnviado(contra(servidor));
    EXPECT_EQ(servidor.conexiones(), 1);
}

TEST_F(Dialogo, AReplyOfSeveralLinesIsOneReply) {
    QList<QByteArray> respuestas = RespuestasDeUnServidor();
    respuestas[0] = "220-servidor\r\n220-de correo\r\n220 listo\r\n";
    respuestas[1] = "250-hola\n250 SIZE\n";
    ServidorDeGuion servidor(respuestas);
    esEnviado(contra(servidor));
    EXPECT_EQ(servidor.recibido(), dialogoEntero);
    esErrorDeSmtp(conRespuesta(3, "550-no\r\n550 nadie\r\n"), u"550-no\n550 nadie"_s);
}

TEST_F(Dialogo, AReplyWithoutEndIsNotWaitedForForever) {
    // A line of 8192 characters at most is one reply, and 65536 of them in lines that say that more follow.
    EXPECT_FALSE(conRespuesta(0, QByteArray(20'000, 'x')).enviado);
    EXPECT_FALSE(conRespuesta(0, QByteArray("599-x\r\n").repeated(20'000)).enviado);
}

TEST_F(Dialogo, TheWordsOfAServerAreReadInEitherAlphabet) {
    esErrorDeSmtp(conRespuesta(1, "550 identificaci\xC3\xB3n\r\n"), u"550 identificación"_s);
    correo.cuerpo = u"x"_s;
    esErrorDeSmtp(conRespuesta(1, "550 identificaci\xF3n\r\n"), u"550 identificación"_s);
}

TEST_F(Dialogo, WhatIsMissingIsToldAheadOfAnyConnection) {
    ServidorDeGuion servidor(RespuestasDeUnServidor());
    const Correo entero = correo;
    const std::pair<QString Correo::*, QString> faltas[] = {
        {&Correo::destinatario, {}},      {&Correo::destinatario, u"  "_s},
        {&Correo::remitente, {}},         {&Correo::servidor, {}},
        {&Correo::servidor, u":25"_s},    {&Correo::servidor, u"x:puerto"_s},
        {&Correo::servidor, u"x:70000"_s}};
    for (const auto &[campo, valor] : faltas) {
        correo = entero;
        correo.servidor = servidor.direccion();
        correo.*campo = valor;
        const FinDeEnvio fin = enviar();
        EXPECT_FALSE(fin.enviado);
        EXPECT_TRUE(fin.cerrar);
        EXPECT_EQ(
            fin.mensaje.texto,
            u"Datos incompletos.\r\n\r\nVerifique los datos como e-mail de su cliente o configuración del "
            "sistema."_s);
        EXPECT_EQ(correo.cuerpo, entero.cuerpo);
    }
    EXPECT_EQ(servidor.conexiones(), 0);
    EXPECT_EQ(log, QString());
}

TEST_F(Dialogo, ALineOfOnePointDoesNotCutTheMessage) {
    correo.cuerpo = u"uno\n.\nMAIL FROM:otro@x.com\n..dos\n.clase {}"_s;
    ServidorDeGuion servidor(RespuestasDeUnServidor());
    esEnviado(contra(servidor));
    EXPECT_TRUE(
        servidor.recibido().endsWith("Subject:Presupuesto\r\n"
                                     "uno\r\n"
                                     "..\r\n"
                                     "MAIL FROM:otro@x.com\r\n"
                                     "...dos\r\n"
                                     "..clase {}\r\n"
                                     ".\r\n"
                                     "QUIT\r\n"))
        << servidor.recibido().toStdString();
}

TEST_F(Dialogo, LineEndsInAFieldBecomeNoCommands) {
    const QString malo = u"\r\nRCPT TO:<otro@x.com>\r\nX-Malo: 1"_s;
    for (QString Correo::*campo : {&Correo::nombreDelRemitente, &Correo::remitente, &Correo::asunto,
                                   &Correo::destinatario, &Correo::nombreDelDestinatario})
        correo.*campo += malo;
    ServidorDeGuion servidor(RespuestasDeUnServidor());
    esEnviado(contra(servidor));
    const QByteArray dicho = servidor.recibido();
    EXPECT_FALSE(dicho.contains("\nRCPT TO:<otro"));
    EXPECT_FALSE(dicho.contains("\nX-Malo"));
    // Five commands, four headers, the three lines of the body and its point.
    EXPECT_EQ(dicho.count("\r\n"), 5 + 4 + 3 + 1);
    EXPECT_EQ(dicho.count('\n'), dicho.count("\r\n"));
}

TEST_F(Dialogo, WhatTheAlphabetCannotSayIsAReferenceInTheBodyAndAQuestionMarkInTheHeaders) {
    correo.asunto = u"€ 100 “ñ” 😀"_s;
    correo.cuerpo = u"€ ñ 😀"_s;
    ServidorDeGuion servidor(RespuestasDeUnServidor());
    esEnviado(contra(servidor));
    EXPECT_TRUE(servidor.recibido().contains("Subject:? 100 ?\xF1? ?\r\n&#8364; \xF1 &#128512;\r\n.\r\n"))
        << servidor.recibido().toStdString();
}

TEST_F(Dialogo, ARefusedConnectionIsAnErrorOfWinsockAndTheWindowStays) {
    correo.servidor = "127.0.0.1:"_L1 + QString::number(PuertoSinNadie());
    const FinDeEnvio fin = enviar();
    EXPECT_FALSE(fin.enviado);
    EXPECT_FALSE(fin.cerrar);
    EXPECT_EQ(fin.mensaje.titulo, u"Error de Winsock"_s);
    EXPECT_EQ(fin.mensaje.texto,
              u"Winsock Error número 10061\r\nEl servidor no acepta conexiones en ese puerto: verifique el "
              "servidor y el puerto."_s);
}

TEST_F(Dialogo, AServerThatHangsUpIsAnErrorOfWinsock) {
    for (qsizetype cual = 0; cual < 6; ++cual) {
        correo.cuerpo = u"x"_s;
        const FinDeEnvio fin = conRespuesta(cual, ServidorDeGuion::cerrar);
        EXPECT_FALSE(fin.enviado);
        EXPECT_FALSE(fin.cerrar);
        EXPECT_EQ(fin.mensaje.titulo, u"Error de Winsock"_s);
        EXPECT_EQ(fin.mensaje.texto,
                  u"Winsock Error número 10054\r\nEl servidor cerró la conexión antes de terminar."_s);
    }
}

TEST_F(Dialogo, LastWordsWithoutALineEndAreHeard) {
    esErrorDeSmtp(conRespuesta(1, "421 cerrado<cerrar>"), u"421 cerrado"_s);
    // The server's yes to the message counts, whatever comes behind it.
    correo.cuerpo = u"x"_s;
    esEnviado(conRespuesta(5, "250 aceptado<cerrar>"));
}

TEST_F(Dialogo, AServerThatNeverAnswersIsWaitedForUntilTheUserLeaves) {
    ServidorDeGuion servidor({"220 hola\r\n"});
    correo.servidor = servidor.direccion();
    const FinDeEnvio fin = enviarEInterrumpir([&] { return servidor.recibido() == "HELO estudio\r\n"; });
    EXPECT_FALSE(fin.enviado);
    EXPECT_EQ(fin.mensaje.texto, u"Interrumpió el envío: el mail no salió."_s);
    EXPECT_EQ(correo.cuerpo, u"<html>\n<p>Año</p>\n</html>\n"_s);
}

TEST_F(Dialogo, WhoLeavesBehindTheMessageIsToldThatItMayHaveGone) {
    QList<QByteArray> respuestas = RespuestasDeUnServidor().mid(0, 5);
    ServidorDeGuion servidor(respuestas);
    correo.servidor = servidor.direccion();
    const FinDeEnvio fin = enviarEInterrumpir([&] { return servidor.recibido().endsWith("\r\n.\r\n"); });
    EXPECT_FALSE(fin.enviado);
    EXPECT_EQ(
        fin.mensaje.texto,
        u"Interrumpió el envío antes de la respuesta del servidor: el mail pudo haber salido, verifíquelo "
        "con su cliente antes de enviarlo otra vez."_s);
}

TEST_F(Dialogo, WhoLeavesBehindTheServersYesHasSent) {
    ServidorDeGuion servidor(RespuestasDeUnServidor().mid(0, 6));
    correo.servidor = servidor.direccion();
    esEnviado(enviarEInterrumpir([&] { return servidor.recibido().endsWith("QUIT\r\n"); }));
}
