#pragma once
// The dialogue of outputs/smtpdialogue over a socket, without encryption.

#include <QTcpSocket>
#include <functional>

#include "outputs/mailsettings.h"
#include "outputs/smtpdialogue.h"

/// One message on its way; goes on by the event loop of its thread and never waits. No time-out runs: the
/// user ends what takes too long.
class EnvioSinCifrar {
 public:
    /// `correo` outlives it. `terminar` is called once at most, from the event loop, and this object stays
    /// until it has returned.
    EnvioSinCifrar(Correo &correo, std::function<void(const QString &)> anotar,
                   std::function<void(const FinDeEnvio &)> terminar);
    ~EnvioSinCifrar();
    EnvioSinCifrar(const EnvioSinCifrar &) = delete;
    EnvioSinCifrar &operator=(const EnvioSinCifrar &) = delete;

    void Iniciar(const ServidorDeCorreo &servidor);
    /// Closes the line; `terminar` is not called any more.
    FinDeEnvio Interrumpir();

 private:
    void Enviar(const QByteArray &bytes);
    void Winsock_Error(QAbstractSocket::SocketError error);
    void Acabar(const FinDeEnvio &fin);

    QTcpSocket Winsock1_;
    bool caida_ = false;  ///< the line is gone
    std::function<void(const FinDeEnvio &)> terminar_;
    DialogoSmtp dialogo_;
};
