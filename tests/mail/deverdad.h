#pragma once
// A mail server of the distribution, with certificates of the test's own.

#include <QProcess>

#include "tests/mail/envio.h"

/// Certificates made once a process, in PEM files of a folder that goes with it.
struct Certificados {
    QString autoridad;    ///< the authority of "bueno", "otro" and "vencido"
    QString bueno;        ///< for 127.0.0.1
    QString otroNombre;   ///< for another host
    QString vencido;      ///< until yesterday
    QString autofirmado;  ///< its own authority
    QString clave;        ///< the key of them all
    QString error;        ///< why they could not be made
};
const Certificados &CertificadosDePrueba();

class EnvioDeVerdad : public Envio {
 protected:
    ~EnvioDeVerdad() override;
    /// Starts the server with these words behind its folder; the message is for it from then on.
    void servir(const QStringList &palabras);
    /// The same with the good certificate and a login, and section SMTP set to go with it.
    void servirConLogin(bool tls);
    /// What the server took: the message's bytes, empty for none; its sender and recipient.
    QByteArray tomado() const;
    QByteArray sobre() const;
    /// The message as a reader of the distribution understands it.
    QJsonObject leido() const;
    FinDeEnvio falla(const QString &comienzo);

    QTemporaryDir buzon;
    QProcess servidor;
};
