#pragma once
// A mail server of the distribution.

#include <QProcess>

#include "tests/mail/envio.h"
#include "tests/support/certificados.h"

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
