#pragma once
// The sending of a message by the road that section SMTP asks for.

#include <QObject>
#include <functional>
#include <memory>

#include "outputs/smtpplain.h"
#include "outputs/smtpsecure.h"

struct AppContext;

/// One message on its way: by the plain dialogue when section SMTP tells a server and nothing else and no
/// password is kept for it, else encrypted. Never waits.
class EnvioDeCorreo {
 public:
    struct Oyentes {
        std::function<void(const QString &)> anotar;  ///< an entry of the log, to end with a line end
        /// Once at most, from the event loop; the sending stays until it has returned.
        std::function<void(const FinDeEnvio &)> terminar;
    };
    /// `ctx` and `correo` outlive it.
    EnvioDeCorreo(AppContext &ctx, Correo &correo, Oyentes oyentes, const PlazosDeEnvio &plazos = {});

    void Iniciar();
    /// The user leaves: the line is closed, and what is known of the message answered. `terminar` is not
    /// called any more.
    FinDeEnvio Interrumpir();

 private:
    void ConContrasena(const QString &contrasena);
    void Acabar(const FinDeEnvio &fin);
    void AcabarDespues(const FinDeEnvio &fin);

    AppContext &ctx_;
    Correo &correo_;
    Oyentes oyentes_;
    PlazosDeEnvio plazos_;
    AjustesDeCorreo ajustes_;
    QObject vivo_;  ///< what comes later finds it, or is dropped
    std::unique_ptr<EnvioSinCifrar> sinCifrar_;
    std::unique_ptr<EnvioCifrado> cifrado_;
};
