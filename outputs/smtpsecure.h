#pragma once
// A message to a server that wants encryption and a login, by libcurl.

#include <QString>
#include <chrono>
#include <functional>
#include <memory>

#include "outputs/smtpoutcome.h"

/// How long a server may take.
struct PlazosDeEnvio {
    std::chrono::seconds conexion{30};   ///< until the line stands, encrypted, and the login is done
    std::chrono::seconds respuesta{60};  ///< for each reply, and for a message that does not move on
};

/// One message on its way, in a thread of its own: the library waits in places (for the reply to a message,
/// to the goodbye), and a window must not.
class EnvioCifrado {
 public:
    /// `correo` outlives it, and its body is emptied once the server took the message. Both functions are
    /// called from the event loop of the thread that made it; `terminar` once at most, and this object stays
    /// until it has returned.
    EnvioCifrado(Correo &correo, std::function<void(const QString &)> anotar,
                 std::function<void(const FinDeEnvio &)> terminar);
    /// Waits for a moment when the conversation was not over.
    ~EnvioCifrado();
    EnvioCifrado(const EnvioCifrado &) = delete;
    EnvioCifrado &operator=(const EnvioCifrado &) = delete;

    void Iniciar(const CuentaDeCorreo &cuenta, const PlazosDeEnvio &plazos = {});
    /// Closes the line; `terminar` is not called any more.
    FinDeEnvio Interrumpir();

 private:
    struct Interior;
    std::unique_ptr<Interior> interior_;
};
