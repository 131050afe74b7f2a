// Section SMTP of the configuration file.

#include <QFile>

#include "tests/mail/envio.h"

using namespace Qt::StringLiterals;

class AjustesSmtp : public Envio {
 protected:
    QString archivo() const {
        QFile f(ctx.ConfigFilePath);
        return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()) : QString();
    }
    AjustesDeCorreo buenos() const {
        return {u"estudio@despacho.com.ar"_s, u"mail.x.com:587"_s, u"STARTTLS"_s, u"estudio"_s, {}};
    }
};

TEST_F(AjustesSmtp, AreReadAsTheyStandInAnyCaseOfTheKeys) {
    QFile f(ctx.ConfigFilePath);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("[smtp]\r\nemail= a@b.com \r\nServer=mail:26\r\nSEGURIDAD=starttls\r\n");
    f.close();
    const AjustesDeCorreo leidos = LeerAjustesDeCorreo(ctx);
    EXPECT_EQ(leidos.email, u"a@b.com"_s);
    EXPECT_EQ(leidos.server, u"mail:26"_s);
    EXPECT_EQ(leidos.seguridad, u"STARTTLS"_s);
    EXPECT_EQ(leidos.usuario, QString());
    EXPECT_EQ(leidos.certificados, QString());
}

TEST_F(AjustesSmtp, AreWrittenIntoTheirSectionAndTheRestOfTheFileStays) {
    QFile f(ctx.ConfigFilePath);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("; de la oficina\r\n[GENERAL]\r\nLISTADO=1\r\n");
    f.close();
    EXPECT_TRUE(GuardarAjustesDeCorreo(ctx, buenos(), true).ok);
    EXPECT_TRUE(registro.mensajes.empty());
    const AjustesDeCorreo leidos = LeerAjustesDeCorreo(ctx);
    EXPECT_EQ(leidos.email, buenos().email);
    EXPECT_EQ(leidos.server, buenos().server);
    EXPECT_EQ(leidos.seguridad, buenos().seguridad);
    EXPECT_EQ(leidos.usuario, buenos().usuario);
    EXPECT_TRUE(archivo().contains(u"[SMTP]"_s));
    EXPECT_TRUE(archivo().startsWith(u"; de la oficina\r\n[GENERAL]\r\nLISTADO=1\r\n"_s));
}

TEST_F(AjustesSmtp, WhatCannotBeIsRefusedWithItsField) {
    struct Caso {
        AjustesDeCorreo ajustes;
        bool conContrasena;
        QString texto, foco;
    };
    AjustesDeCorreo email = buenos();
    email.email = u"peña@x.com"_s;
    AjustesDeCorreo server = buenos();
    server.server = u"mail:puerto"_s;
    AjustesDeCorreo seguridad = buenos();
    seguridad.seguridad = u"SSL"_s;
    AjustesDeCorreo sinCifrar = buenos();
    sinCifrar.seguridad = QString();
    AjustesDeCorreo soloClave = sinCifrar;
    soloClave.usuario = QString();
    AjustesDeCorreo sinServer = buenos();
    sinServer.server = QString();
    AjustesDeCorreo sinCuenta = buenos();
    sinCuenta.email = sinCuenta.usuario = QString();
    AjustesDeCorreo certificados = buenos();
    certificados.certificados = u"/no/esta.pem"_s;
    const QString noSale = u"El usuario y su contraseña no salen sin cifrar: elija STARTTLS o TLS."_s;
    const QString cuenta = u"Para guardar la contraseña complete el servidor, y el email o el usuario."_s;
    const Caso casos[] = {
        {email, false, u"La dirección peña@x.com no es válida: corríjala."_s, u"TxtEmail"_s},
        {server, false,
         u"El servidor mail:puerto no es válido: escriba el nombre, o el nombre, dos puntos y el puerto."_s,
         u"TxtServer"_s},
        {seguridad, false, u"La seguridad SSL no existe: elija STARTTLS o TLS."_s, u"CbSeguridad"_s},
        {sinCifrar, false, noSale, u"CbSeguridad"_s},
        {soloClave, true, noSale, u"CbSeguridad"_s},
        {sinServer, true, cuenta, u"TxtServer"_s},
        {sinCuenta, true, cuenta, u"TxtUsuario"_s},
        {certificados, false,
         u"No se encuentra el archivo de certificados /no/esta.pem: elija otro o deje el campo vacío."_s,
         u"TxtCertificados"_s}};
    for (const Caso &caso : casos) {
        registro = {};
        const Veredicto v = GuardarAjustesDeCorreo(ctx, caso.ajustes, caso.conContrasena);
        EXPECT_FALSE(v.ok);
        EXPECT_EQ(v.foco, caso.foco);
        ASSERT_EQ(registro.mensajes.size(), 1U);
        EXPECT_EQ(registro.mensajes[0].texto, caso.texto);
        EXPECT_EQ(registro.mensajes[0].icono, Icono::Exclamacion);
    }
    EXPECT_EQ(archivo(), QString());
}

TEST_F(AjustesSmtp, TheOfficesOwnAddressMayEndInALongWord) {
    AjustesDeCorreo ajustes = buenos();
    ajustes.email = u"yo+mail@despacho.online"_s;
    EXPECT_TRUE(GuardarAjustesDeCorreo(ctx, ajustes, false).ok);
    EXPECT_EQ(LeerAjustesDeCorreo(ctx).email, ajustes.email);
}

TEST_F(AjustesSmtp, AFileThatCannotBeWrittenIsTold) {
    ctx.ConfigFilePath = carpeta.filePath(u"no/esta/ZENDRA.ini"_s);
    EXPECT_FALSE(GuardarAjustesDeCorreo(ctx, buenos(), false).ok);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto,
              u"No se pudo escribir %1: los ajustes del mail no se guardaron."_s.arg(ctx.ConfigFilePath));
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Critico);
}

TEST(Servidor, IsSplitAtTheColon) {
    EXPECT_EQ(PartirServidor(u" mail.x.com : 26 "_s, 25)->puerto, 26);
    EXPECT_EQ(PartirServidor(u"[::1]:26"_s, 25)->host, u"::1"_s);
    EXPECT_EQ(PartirServidor(u"[::1]:26"_s, 25)->puerto, 26);
    EXPECT_EQ(PartirServidor(u"[::1]"_s, 25)->puerto, 25);
    for (const QString &malo : {u""_s, u":25"_s, u"x:"_s, u"x:0"_s, u"x:65536"_s, u"x:a"_s, u"x:25:26"_s,
                                u"[::1"_s, u"[::1]x"_s, u"x y"_s, u"x/y"_s, u"[]:25"_s})
        EXPECT_FALSE(PartirServidor(malo, 25).has_value()) << malo.toStdString();
}

TEST_F(AjustesSmtp, AWordThatIsNoSecurityStopsTheMail) {
    ServidorDeGuion servidor(RespuestasDeUnServidor());
    correo.servidor = servidor.direccion();
    configurar("SEGURIDAD", u"SSL"_s);
    const FinDeEnvio fin = enviar();
    EXPECT_FALSE(fin.enviado);
    EXPECT_EQ(fin.mensaje.texto,
              u"La seguridad SSL no es STARTTLS ni TLS: el mail no salió; corríjala en la configuración del "
              "mail."_s);
    EXPECT_EQ(servidor.conexiones(), 0);
}

TEST_F(AjustesSmtp, AUserWithoutAPasswordStopsTheMail) {
    ServidorDeGuion servidor(RespuestasDeUnServidor());
    correo.servidor = servidor.direccion();
    configurar("USUARIO", u"juan"_s);
    configurar("SEGURIDAD", u"TLS"_s);
    const FinDeEnvio fin = enviar();
    EXPECT_FALSE(fin.enviado);
    EXPECT_EQ(
        fin.mensaje.texto,
        u"Falta la contraseña de juan para el servidor %1: cárguela en la configuración del mail."_s.arg(
            servidor.direccion()));
    EXPECT_EQ(servidor.conexiones(), 0);
}

// A password is never told over a line that others can read: encryption is demanded of the server.
TEST_F(AjustesSmtp, APasswordAloneDemandsEncryption) {
    ServidorDeGuion servidor({"220 hola\r\n", "250-hola\r\n250 AUTH PLAIN LOGIN\r\n", "221 adios\r\n"});
    correo.servidor = servidor.direccion();
    conContrasena(u"secreta1"_s);
    const FinDeEnvio fin = enviar();
    EXPECT_FALSE(fin.enviado);
    EXPECT_TRUE(fin.mensaje.texto.contains(u"no ofrece STARTTLS"_s)) << fin.mensaje.texto.toStdString();
    EXPECT_FALSE(servidor.recibido().contains("AUTH"));
    EXPECT_FALSE(servidor.recibido().contains("MAIL"));
}

TEST_F(AjustesSmtp, APasswordFileThatOthersReadStopsTheMail) {
    ServidorDeGuion servidor(RespuestasDeUnServidor());
    correo.servidor = servidor.direccion();
    conContrasena(u"secreta1"_s);
    const Secretos secretos(ctx.llavero, ctx.ajustes);
    const QString ruta = secretos.archivo(NombreDelSecreto(correo.remitente, correo.servidor));
    ASSERT_TRUE(QFile::setPermissions(ruta, QFile::permissions(ruta) | QFileDevice::ReadOther));
    const FinDeEnvio fin = enviar();
    EXPECT_FALSE(fin.enviado);
    EXPECT_TRUE(fin.mensaje.texto.startsWith(u"Otras personas pueden leer el archivo "_s));
    EXPECT_EQ(servidor.conexiones(), 0);
}
