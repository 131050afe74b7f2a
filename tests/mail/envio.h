#pragma once
// A message, a workstation without stores to send it from, and what became of it.

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <optional>

#include "frame/context.h"
#include "outputs/mailsend.h"
#include "tests/support/servidorsmtp.h"
#include "tests/support/tienda.h"

class Envio : public ::testing::Test {
 protected:
    Envio();

    /// Writes a key of section SMTP.
    void configurar(const char *clave, const QString &valor);
    /// Keeps the password of the account that is set, as the screen does.
    void conContrasena(const QString &contrasena);
    /// Sends and serves events until it ends; fails after half a minute.
    FinDeEnvio enviar(const PlazosDeEnvio &plazos = {});
    /// Sends; the user leaves as soon as `cuando` answers true.
    FinDeEnvio enviarEInterrumpir(const std::function<bool()> &cuando);

    QTemporaryDir carpeta;
    AppContext ctx;
    Registro registro;
    Correo correo;
    QString log;    ///< each entry with its line end
    int ticks = 0;  ///< of a timer of 20 ms that runs while the message is on its way
};

/// The message of the fixture as it leaves without encryption. "ñ" is 0xF1 in the declared alphabet; no empty
/// line stands between the headers and the body.
inline const QByteArray mensajeSinCifrar =
    "Content-Type: text/html;Charset=\"iso-8859-1\"\r\n"
    "From:Estudio Pe\xF1"
    "a <estudio@despacho.com.ar>\r\n"
    "To:Importa S.A. <cliente@importa.com>\r\n"
    "Subject:Presupuesto\r\n"
    "<html>\r\n"
    "<p>A\xF1"
    "o</p>\r\n"
    "</html>\r\n";

/// A message that was sent: its words, its title, and the window that closes.
void esEnviado(const FinDeEnvio &fin);

/// Serves events until `listo`; fails after half a minute.
void esperarA(const std::function<bool()> &listo);
