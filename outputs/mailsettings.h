#pragma once
// Section SMTP of the configuration file: who sends, through which server, and how it is spoken with.

#include <QString>
#include <optional>

#include "frame/base/verdict.h"

struct AppContext;
struct Correo;

/// The section as it stands in the file; a key that is missing is empty.
struct AjustesDeCorreo {
    QString email;
    QString server;        ///< "host" or "host:port"
    QString seguridad;     ///< "", "STARTTLS" or "TLS", in capitals; anything else refuses to send
    QString usuario;       ///< empty with a password: the sender's address is the user
    QString certificados;  ///< file (PEM) of authorities that are trusted besides the system's
};

AjustesDeCorreo LeerAjustesDeCorreo(const AppContext &ctx);

/// Checks and writes the section; `conContrasena`: a password comes with it. What is refused was told, with
/// the field to go to.
Veredicto GuardarAjustesDeCorreo(AppContext &ctx, const AjustesDeCorreo &ajustes, bool conContrasena);

/// A server's text in its parts.
struct ServidorDeCorreo {
    QString host;
    quint16 puerto = 0;
};
/// Split at ":"; without one the port is `puertoPorDefecto`. An address of the sixth version stands in
/// brackets. Nothing when the host is empty or the port is none.
std::optional<ServidorDeCorreo> PartirServidor(const QString &servidor, quint16 puertoPorDefecto);

/// The name that the account's password is kept under: a changed server or user is another account, so that
/// no password is ever told to a server that it was not entered for. Empty when there is no account.
QString NombreDelSecreto(const QString &usuario, const QString &servidor);
/// The user of an account: USUARIO, else the sender's address.
QString UsuarioDelCorreo(const AjustesDeCorreo &ajustes, const QString &remitente);
