#pragma once
// What is said with a mail server that asks neither for encryption nor for a login: a machine moved by the
// server's replies. No socket here: bytes come in, bytes go out.

#include <QByteArray>
#include <QString>
#include <functional>

#include "frame/dialogs.h"
#include "outputs/mail.h"

/// How a sending ended.
struct FinDeEnvio {
    bool enviado = false;
    bool cerrar =
        false;  ///< the window goes after the message; else it stays, with what was said, to be read
    Mensaje mensaje;
};

/// Each as the program says it.
FinDeEnvio MailEnviado();
FinDeEnvio DatosIncompletos();
/// Stopped by the user: what became of the message, as far as it is known.
enum class Alcance { NoSalio, SinRespuesta, Aceptado };
FinDeEnvio EnvioInterrumpido(Alcance alcance);

/// What the log begins with, up to the connection.
QString ComienzoDelRegistro(const Correo &correo);

/// What a server said, whatever its alphabet.
QString TextoDelServidor(const QByteArray &bytes);

/// The dialogue of one message, from the greeting to the reply to "QUIT".
class DialogoSmtp {
 public:
    struct Salidas {
        std::function<void(const QByteArray &)> enviar;
        std::function<void(const QString &)> anotar;       ///< one entry of the log, without its line end
        std::function<void(const FinDeEnvio &)> terminar;  ///< once, and nothing else after it
    };
    /// `correo` outlives the dialogue, which empties its body when it went out.
    DialogoSmtp(Correo &correo, Salidas salidas);

    /// Bytes of the server: a piece of a reply, one, or several.
    void Recibir(const QByteArray &datos);
    /// The server closed the line. True when that ended the dialogue; else nothing was decided.
    bool Cerrado();

    int paso() const { return paso_; }
    bool terminado() const { return terminado_; }
    Alcance alcance() const;

 private:
    void Responder(const QString &respuesta);
    void Terminar(const QString &respuesta);
    void Mandar(const QByteArray &linea);
    void MandarMensaje();

    Correo &correo_;
    Salidas salidas_;
    QByteArray pendiente_;  ///< a line whose end has not come
    QString respuesta_;     ///< the lines so far of a reply of several
    int paso_ = 0;
    bool terminado_ = false;
};
