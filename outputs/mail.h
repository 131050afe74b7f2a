#pragma once
// A message to one recipient, and what an address is.

#include <QByteArray>
#include <QString>

/// What is sent, all of it set by the caller.
struct Correo {
    QString nombreDelRemitente;
    QString remitente;  ///< address: EMAIL of section SMTP
    QString servidor;   ///< "host" or "host:port": SERVER of section SMTP
    QString asunto;
    QString cuerpo;  ///< HTML; emptied once it was sent
    QString destinatario;
    QString nombreDelDestinatario;

    // For servers that are told SEGURIDAD, USUARIO or a password: the message has these parts too.
    QString texto;  ///< the body for readers without HTML
    QByteArray adjunto;
    QString nombreDelAdjunto;  ///< empty: nothing is attached
};

/// Whether a text is an address: two parts around one "@", of digits, letters a to z and "_", "-", ".", no
/// part empty or with a "." at an end, no two dots together, and behind the last dot 2 to 4 characters. The
/// soft hyphen passes as well. Case does not matter.
bool EsDireccionValida(const QString &texto);

/// A field of one line: line ends and other control characters become blanks, so that no text of a user can
/// end a line of the dialogue or of the headers.
QString EnUnaLinea(const QString &texto);
