// The two screens of the mail: the sending, against a server that says what the test tells it to, and its
// settings.

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QTest>

#include "frame/base/ini.h"
#include "outputs/FrmCorreo.h"
#include "outputs/FrmProcesando.h"
#include "tests/support/pantallas.h"
#include "tests/support/servidorsmtp.h"

using namespace Qt::StringLiterals;

class EnvioEnPantalla : public EnPantalla {
 protected:
    void SetUp() override {
        EnPantalla::SetUp();
        ctx->ConfigFilePath = tienda->carpeta() + "/Correo.ini"_L1;
        correo.nombreDelRemitente = u"Estudio"_s;
        correo.remitente = u"estudio@despacho.com.ar"_s;
        correo.asunto = u"Presupuesto"_s;
        correo.cuerpo = u"<html></html>"_s;
        correo.destinatario = u"cliente@importa.com"_s;
        correo.nombreDelDestinatario = u"Importa"_s;
    }
    bool enviar() {
        const bool enviado = Pantalla<FrmProcesando>().Enviar(correo);
        EXPECT_FALSE(Pantalla<FrmProcesando>().ventana->isVisible());
        CerrarPantalla<FrmProcesando>();
        return enviado;
    }
    /// What was said, alone.
    Mensaje mensaje() const {
        EXPECT_EQ(registro.mensajes.size(), 1U);
        return registro.mensajes.empty() ? Mensaje() : registro.mensajes.front();
    }

    Correo correo;
};
EN_AMBOS_STORES(EnvioEnPantalla);

TEST_P(EnvioEnPantalla, AServerThatTakesTheMailClosesTheWindow) {
    ServidorDeGuion servidor(RespuestasDeUnServidor());
    correo.servidor = servidor.direccion();
    QString visto;
    ctx->dialogos.mensaje = [&](const Mensaje &m) {
        registro.mensajes.push_back(m);
        visto = Pantalla<FrmProcesando>().ui.TxtMen->toPlainText();
        EXPECT_EQ(QApplication::activeModalWidget(), Pantalla<FrmProcesando>().ventana.get());
    };
    EXPECT_TRUE(enviar());
    EXPECT_EQ(mensaje().texto, u"Datos enviados."_s);
    EXPECT_EQ(mensaje().titulo, u"ZENDRA/W"_s);
    EXPECT_EQ(mensaje().icono, Icono::Informacion);
    EXPECT_TRUE(visto.startsWith(u"Enviando mail a : cliente@importa.com\n\nFecha sistema : "_s));
    EXPECT_TRUE(
        visto.contains(u"\nZENDRA SMTP v.03.05.01\nConectando...  (espere for favor)\n220 servidor\nHELO "
                       "estudio\n"_s));
    EXPECT_TRUE(visto.endsWith(u"\nSubject: Presupuesto\n250 aceptado\nQUIT\n221 adios"_s));
    EXPECT_EQ(correo.cuerpo, QString());
}

TEST_P(EnvioEnPantalla, ARefusalIsToldAndClosesTheWindow) {
    ServidorDeGuion servidor({"220 hola\r\n", "250 hola\r\n", "550 no lo conozco\r\n"});
    correo.servidor = servidor.direccion();
    EXPECT_FALSE(enviar());
    EXPECT_EQ(mensaje().texto, u"Error de SMTP: 550 no lo conozco"_s);
    EXPECT_EQ(mensaje().titulo, u"Error de SMTP"_s);
    EXPECT_EQ(mensaje().icono, Icono::Critico);
}

TEST_P(EnvioEnPantalla, WithoutARecipientNothingIsAskedOfTheServer) {
    ServidorDeGuion servidor(RespuestasDeUnServidor());
    correo.servidor = servidor.direccion();
    correo.destinatario.clear();
    EXPECT_FALSE(enviar());
    EXPECT_EQ(
        mensaje().texto,
        u"Datos incompletos.\r\n\r\nVerifique los datos como e-mail de su cliente o configuración del sistema."_s);
    EXPECT_EQ(mensaje().icono, Icono::Exclamacion);
    EXPECT_EQ(servidor.conexiones(), 0);
}

TEST_P(EnvioEnPantalla, AnErrorOfTheLineLeavesTheWindowUntilEscape) {
    correo.servidor = "127.0.0.1:"_L1 + QString::number(PuertoSinNadie());
    conPantallaModal<FrmProcesando>([this](FrmProcesando &f) {
        EXPECT_EQ(f.ui.lbProceso->text(), u"Proceso de envío"_s);
        hasta([this] { return !registro.mensajes.empty(); });
        EXPECT_EQ(f.ui.lbTeclas->text(), u"ESC  salir"_s);
        EXPECT_TRUE(f.ventana->isVisible());
        tecla(Qt::Key_Escape);
    });
    EXPECT_FALSE(enviar());
    EXPECT_EQ(mensaje().titulo, u"Error de Winsock"_s);
    EXPECT_TRUE(mensaje().texto.startsWith(u"Winsock Error número 10061\r\n"_s))
        << mensaje().texto.toStdString();
    EXPECT_EQ(mensaje().icono, Icono::Critico);
}

TEST_P(EnvioEnPantalla, EscapeStopsAServerThatIsSilentAndTheWindowGoesOnUntilThen) {
    ServidorDeGuion servidor({"220 hola\r\n"});
    correo.servidor = servidor.direccion();
    int ticks = 0;
    QTimer reloj;
    QObject::connect(&reloj, &QTimer::timeout, &reloj, [&ticks] { ++ticks; });
    reloj.start(5);
    conPantallaModal<FrmProcesando>([&](FrmProcesando &f) {
        hasta([&] { return servidor.recibido() == "HELO estudio\r\n"; });
        const int antes = ticks;
        hasta([&] { return ticks > antes + 10; });
        EXPECT_EQ(f.ui.lbTeclas->text(), u"ESC  interrumpir el envío"_s);
        EXPECT_TRUE(f.ui.TxtMen->hasFocus());
        tecla(Qt::Key_Escape);
    });
    EXPECT_FALSE(enviar());
    EXPECT_EQ(mensaje().texto, u"Interrumpió el envío: el mail no salió."_s);
    EXPECT_EQ(mensaje().icono, Icono::Exclamacion);
    EXPECT_EQ(correo.cuerpo, u"<html></html>"_s);
}

class CapturasDelEnvio : public EnvioEnPantalla {};
EN_AMBOS_STORES(CapturasDelEnvio);

TEST_P(CapturasDelEnvio, AMailOnItsWay) {
    ServidorDeGuion servidor(RespuestasDeUnServidor().mid(0, 5));
    correo.servidor = servidor.direccion();
    conPantallaModal<FrmProcesando>([&](FrmProcesando &f) {
        hasta([&] { return servidor.recibido().endsWith("\r\n.\r\n"); });
        foto(f.ventana.get(), u"correo-envio"_s);
        tecla(Qt::Key_Escape);
    });
    EXPECT_FALSE(enviar());
    EXPECT_TRUE(mensaje().texto.contains(u"el mail pudo haber salido"_s));
}

TEST_P(EnvioEnPantalla, EscapeBehindTheServersYesIsAMailThatWasSent) {
    ServidorDeGuion servidor(RespuestasDeUnServidor().mid(0, 6));
    correo.servidor = servidor.direccion();
    conPantallaModal<FrmProcesando>([&](FrmProcesando &) {
        hasta([&] { return servidor.recibido().endsWith("QUIT\r\n"); });
        tecla(Qt::Key_Escape);
    });
    EXPECT_TRUE(enviar());
    EXPECT_EQ(mensaje().texto, u"Datos enviados."_s);
}

TEST_P(EnvioEnPantalla, AnEncryptedSendingFailsInTheSameWindowWhichStays) {
    ServidorDeGuion servidor({"220 hola\r\n", "250 hola\r\n", "221 adios\r\n"});
    correo.servidor = servidor.direccion();
    EscribirIni(u"SMTP"_s, u"SEGURIDAD"_s, u"STARTTLS"_s, ctx->ConfigFilePath);
    conPantallaModal<FrmProcesando>([this](FrmProcesando &f) {
        hasta([this] { return !registro.mensajes.empty(); });
        EXPECT_TRUE(f.ventana->isVisible());
        EXPECT_TRUE(f.ui.TxtMen->toPlainText().contains(u"\n220 hola\nEHLO "_s));
        tecla(Qt::Key_Escape);
    });
    EXPECT_FALSE(enviar());
    EXPECT_TRUE(mensaje().texto.contains(u"no ofrece STARTTLS"_s)) << mensaje().texto.toStdString();
    EXPECT_EQ(mensaje().titulo, u"Error de SMTP"_s);
}

class AjustesEnPantalla : public EnPantalla {
 protected:
    void SetUp() override {
        EnPantalla::SetUp();
        ctx->ConfigFilePath = tienda->carpeta() + "/Correo.ini"_L1;
    }
    void abrir(const std::function<void(FrmCorreo &)> &hacer) {
        conPantallaModal<FrmCorreo>(hacer);
        Pantalla<FrmCorreo>().Mostrar();
        CerrarPantalla<FrmCorreo>();
    }
    QString clave(const char *nombre) const {
        return LeerIni(u"SMTP"_s, QLatin1String(nombre), ctx->ConfigFilePath);
    }
    QString contrasena(const QString &usuario, const QString &servidor) const {
        QObject quien;
        QString valor;
        Secretos(ctx->llavero, ctx->ajustes)
            .Leer(NombreDelSecreto(usuario, servidor), &quien,
                  [&valor](const Secreto &s) { valor = s.valor; });
        return valor;
    }
    /// Types the whole of a good account, as a user does: field by field with ENTER.
    static void escribirCuenta() {
        for (const char *texto : {"estudio@despacho.com.ar", "mail.despacho.com.ar"}) {
            escribir(QLatin1String(texto));
            tecla(Qt::Key_Return);
        }
        escribir(u"S"_s);  // Sin cifrar, then STARTTLS
        escribir(u"S"_s);
        tecla(Qt::Key_Return);
        escribir(u"estudio"_s);
        tecla(Qt::Key_Return);
        escribir(u"clave secreta"_s);
    }
};
EN_AMBOS_STORES(AjustesEnPantalla);

TEST_P(AjustesEnPantalla, AreEnteredByKeyboardAloneAndSavedWithThePasswordApart) {
    abrir([](FrmCorreo &f) {
        EXPECT_EQ(QApplication::focusWidget(), f.ui.TxtEmail);
        EXPECT_EQ(f.ui.LbContrasena->text(), u"No hay contraseña guardada."_s);
        escribirCuenta();
        EXPECT_EQ(f.ui.TxtContrasena->text(), u"clave secreta"_s);
        EXPECT_EQ(f.ui.TxtContrasena->echoMode(), QLineEdit::Password);
        atajo(Qt::Key_R);
        EXPECT_FALSE(f.ventana->isVisible());
    });
    EXPECT_TRUE(registro.mensajes.empty());
    EXPECT_EQ(clave("EMAIL"), u"estudio@despacho.com.ar"_s);
    EXPECT_EQ(clave("SERVER"), u"mail.despacho.com.ar"_s);
    EXPECT_EQ(clave("SEGURIDAD"), u"STARTTLS"_s);
    EXPECT_EQ(clave("USUARIO"), u"estudio"_s);
    EXPECT_EQ(contrasena(u"estudio"_s, u"mail.despacho.com.ar"_s), u"clave secreta"_s);
    QFile archivo(ctx->ConfigFilePath);
    ASSERT_TRUE(archivo.open(QIODevice::ReadOnly));
    EXPECT_FALSE(archivo.readAll().contains("secreta"));
}

class CapturasDeAjustesDelCorreo : public AjustesEnPantalla {};
EN_AMBOS_STORES(CapturasDeAjustesDelCorreo);

TEST_P(CapturasDeAjustesDelCorreo, TheSettings) {
    abrir([](FrmCorreo &f) {
        escribirCuenta();
        foto(f.ventana.get(), u"correo-ajustes"_s);
        tecla(Qt::Key_Escape);
    });
}

TEST_P(AjustesEnPantalla, AnEmptyPasswordKeepsTheOneThatIsThereAndItIsNeverShown) {
    abrir([](FrmCorreo &) {
        escribirCuenta();
        atajo(Qt::Key_R);
    });
    abrir([](FrmCorreo &f) {
        EXPECT_EQ(f.ui.TxtServer->text(), u"mail.despacho.com.ar"_s);
        EXPECT_EQ(f.ui.CbSeguridad->currentText(), u"STARTTLS"_s);
        EXPECT_EQ(f.ui.TxtContrasena->text(), QString());
        EXPECT_EQ(f.ui.LbContrasena->text(),
                  u"Hay una contraseña guardada para esta cuenta: déjela vacía para conservarla."_s);
        atajo(Qt::Key_R);
    });
    EXPECT_EQ(contrasena(u"estudio"_s, u"mail.despacho.com.ar"_s), u"clave secreta"_s);
}

TEST_P(AjustesEnPantalla, AnotherServerHasNoPasswordYet) {
    abrir([](FrmCorreo &) {
        escribirCuenta();
        atajo(Qt::Key_R);
    });
    abrir([](FrmCorreo &f) {
        tecla(Qt::Key_Return);
        escribir(u"mail.otro.com"_s);
        tecla(Qt::Key_Return);
        EXPECT_EQ(f.ui.LbContrasena->text(), u"No hay contraseña guardada para esta cuenta."_s);
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(clave("SERVER"), u"mail.despacho.com.ar"_s) << "ESC saved it";
}

TEST_P(AjustesEnPantalla, ThePasswordIsForgottenAfterAQuestion) {
    abrir([](FrmCorreo &) {
        escribirCuenta();
        atajo(Qt::Key_R);
    });
    registro.respuestas = {false, true};
    abrir([this](FrmCorreo &f) {
        atajo(Qt::Key_O);
        EXPECT_EQ(contrasena(u"estudio"_s, u"mail.despacho.com.ar"_s), u"clave secreta"_s);
        EXPECT_EQ(QApplication::focusWidget(), f.ui.TxtContrasena);
        atajo(Qt::Key_O);
        EXPECT_EQ(f.ui.LbContrasena->text(), u"No hay contraseña guardada para esta cuenta."_s);
        EXPECT_FALSE(f.ui.CmdOlvidar->isEnabled());
        tecla(Qt::Key_Escape);
    });
    ASSERT_EQ(registro.preguntas.size(), 2U);
    EXPECT_EQ(registro.preguntas[0].texto, u"¿Desea olvidar la contraseña guardada para esta cuenta?"_s);
    EXPECT_TRUE(registro.preguntas[0].porDefectoNo);
    EXPECT_EQ(contrasena(u"estudio"_s, u"mail.despacho.com.ar"_s), QString());
}

TEST_P(AjustesEnPantalla, WhatIsRefusedIsToldAndItsFieldTakesTheKeyboard) {
    abrir([this](FrmCorreo &f) {
        escribir(u"peña@x.com"_s);
        atajo(Qt::Key_R);
        EXPECT_TRUE(f.ventana->isVisible());
        ASSERT_EQ(registro.mensajes.size(), 1U);
        EXPECT_EQ(registro.mensajes[0].texto, u"La dirección peña@x.com no es válida: corríjala."_s);
        EXPECT_EQ(registro.mensajes[0].icono, Icono::Exclamacion);
        EXPECT_EQ(QApplication::focusWidget(), f.ui.TxtEmail);
        f.ui.TxtEmail->clear();
        f.ui.TxtUsuario->setFocus();
        escribir(u"juan"_s);
        atajo(Qt::Key_R);
        ASSERT_EQ(registro.mensajes.size(), 2U);
        EXPECT_EQ(registro.mensajes[1].texto,
                  u"El usuario y su contraseña no salen sin cifrar: elija STARTTLS o TLS."_s);
        EXPECT_EQ(QApplication::focusWidget(), f.ui.CbSeguridad);
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(clave("USUARIO"), QString());
}

TEST_P(AjustesEnPantalla, AKeyringThatIsClosedIsToldAndTheWindowStays) {
    Llavero::AlResponder responder;
    ctx->llavero.guardar = [&](const QString &, const QString &, const Llavero::AlResponder &al) {
        responder = al;
    };
    abrir([&](FrmCorreo &f) {
        escribirCuenta();
        atajo(Qt::Key_R);
        EXPECT_FALSE(f.ui.CmdGuardar->isEnabled()) << "while the keyring is asked";
        ASSERT_TRUE(responder);
        responder(Llavero::Estado::Negado, {});
        EXPECT_TRUE(f.ui.CmdGuardar->isEnabled());
        EXPECT_EQ(QApplication::focusWidget(), f.ui.TxtContrasena);
        ASSERT_EQ(registro.mensajes.size(), 1U);
        EXPECT_EQ(registro.mensajes[0].texto,
                  u"El llavero del sistema no dio acceso a la contraseña: ábralo y vuelva a intentar."_s);
        tecla(Qt::Key_Escape);
    });
}

TEST_P(AjustesEnPantalla, TheFileOfCertificatesIsChosenByF6) {
    const QString pem = tienda->carpeta() + "/autoridad.pem"_L1;
    QFile archivo(pem);
    ASSERT_TRUE(archivo.open(QIODevice::WriteOnly));
    abrir([&](FrmCorreo &f) {
        QString ofrecido = u"no"_s;
        f.elegirArchivo = [&](const QString &inicial) {
            ofrecido = inicial;
            return pem;
        };
        teclaEn(f.ui.TxtCertificados, Qt::Key_F6);
        EXPECT_EQ(ofrecido, QString());
        EXPECT_EQ(f.ui.TxtCertificados->text(), pem);
        atajo(Qt::Key_R);
    });
    EXPECT_EQ(clave("CERTIFICADOS"), pem);
}

TEST_P(AjustesEnPantalla, TabGoesInTheOrderOfTheWork) {
    abrir([](FrmCorreo &f) {
        EXPECT_EQ(ordenDeTab(f.ventana.get()),
                  QStringList({u"TxtEmail"_s, u"TxtServer"_s, u"CbSeguridad"_s, u"TxtUsuario"_s,
                               u"TxtContrasena"_s, u"TxtCertificados"_s, u"CmdElegir"_s, u"CmdGuardar"_s}));
        tecla(Qt::Key_Escape);
    });
}
