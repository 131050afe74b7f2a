#pragma once
// What the end of an encrypted sending means for the user.

#include <QString>

#include "outputs/mailsettings.h"
#include "outputs/smtpdialogue.h"

/// Where a message goes and as whom.
struct CuentaDeCorreo {
    ServidorDeCorreo servidor;
    bool tlsDesdeElComienzo = false;  ///< else STARTTLS, which is then demanded
    QString usuario;
    QString contrasena;    ///< empty: no login
    QString certificados;  ///< file of authorities besides the system's; empty: those alone
};

/// How far a conversation came.
enum class FaseDeEnvio { Conexion, Cifrado, Login, Remitente, Destinatario, Datos, SinRespuesta, Aceptado };

struct ResultadoDeEnvio {
    FaseDeEnvio fase = FaseDeEnvio::Conexion;
    int codigo = 0;         ///< of the reply to the last command; 0: none came
    QString respuesta;      ///< that reply
    int curl = 0;           ///< the library's own verdict
    long verificacion = 0;  ///< what was wrong with the certificate, as the TLS library numbers it
    QString tecnico;        ///< the library's words, in English
};

/// What is told: one sentence, and what the server said.
FinDeEnvio FinDeResultado(const ResultadoDeEnvio &resultado, const CuentaDeCorreo &cuenta,
                          const Correo &correo);
