#include "outputs/mailsend.h"

#include <utility>

#include "frame/context.h"

using namespace Qt::StringLiterals;

namespace {

constexpr quint16 puertoSinCifrar = 25;
constexpr quint16 puertoStarttls = 587;
constexpr quint16 puertoTls = 465;

FinDeEnvio conAviso(const QString &texto) {
    return {false, false, {texto, u"Error de SMTP"_s, Icono::Critico}};
}

}  // namespace

EnvioDeCorreo::EnvioDeCorreo(AppContext &ctx, Correo &correo, Oyentes oyentes, const PlazosDeEnvio &plazos)
    : ctx_(ctx), correo_(correo), oyentes_(std::move(oyentes)), plazos_(plazos) {}

void EnvioDeCorreo::Iniciar() {
    const auto vacio = [](const QString &texto) { return texto.trimmed().isEmpty(); };
    // A server without a name or with a port that is none is as good as missing.
    if (vacio(correo_.destinatario) || vacio(correo_.remitente) ||
        !PartirServidor(correo_.servidor, puertoSinCifrar)) {
        AcabarDespues(DatosIncompletos());
        return;
    }
    oyentes_.anotar(ComienzoDelRegistro(correo_));
    ajustes_ = LeerAjustesDeCorreo(ctx_);
    const QString usuario = UsuarioDelCorreo(ajustes_, correo_.remitente);
    Secretos(ctx_.llavero, ctx_.ajustes)
        .Leer(NombreDelSecreto(usuario, correo_.servidor), &vivo_, [this](const Secreto &secreto) {
            if (secreto.falla.isEmpty())
                ConContrasena(secreto.valor);
            else
                AcabarDespues(conAviso(secreto.falla));
        });
}

void EnvioDeCorreo::ConContrasena(const QString &contrasena) {
    const auto terminar = [this](const FinDeEnvio &fin) { Acabar(fin); };
    if (ajustes_.seguridad.isEmpty() && ajustes_.usuario.isEmpty() && contrasena.isEmpty()) {
        sinCifrar_ = std::make_unique<EnvioSinCifrar>(correo_, oyentes_.anotar, terminar);
        sinCifrar_->Iniciar(*PartirServidor(correo_.servidor, puertoSinCifrar));
        return;
    }
    const bool tls = ajustes_.seguridad == "TLS"_L1;
    if (!tls && !ajustes_.seguridad.isEmpty() && ajustes_.seguridad != "STARTTLS"_L1) {
        AcabarDespues(
            conAviso(u"La seguridad %1 no es STARTTLS ni TLS: el mail no salió; corríjala en la "
                     "configuración del mail."_s.arg(ajustes_.seguridad)));
        return;
    }
    if (!ajustes_.usuario.isEmpty() && contrasena.isEmpty()) {
        AcabarDespues(
            conAviso(u"Falta la contraseña de %1 para el servidor %2: cárguela en la configuración del "
                     "mail."_s.arg(ajustes_.usuario, correo_.servidor)));
        return;
    }
    // A login is never told over a line that others can read: where only a user is set, encryption is
    // demanded.
    const auto servidor = PartirServidor(correo_.servidor, tls ? puertoTls : puertoStarttls);
    cifrado_ = std::make_unique<EnvioCifrado>(correo_, oyentes_.anotar, terminar);
    cifrado_->Iniciar(
        {*servidor, tls, UsuarioDelCorreo(ajustes_, correo_.remitente), contrasena, ajustes_.certificados},
        plazos_);
}

FinDeEnvio EnvioDeCorreo::Interrumpir() {
    oyentes_.terminar = nullptr;
    if (sinCifrar_) return sinCifrar_->Interrumpir();
    if (cifrado_) return cifrado_->Interrumpir();
    return EnvioInterrumpido(Alcance::NoSalio);
}

void EnvioDeCorreo::Acabar(const FinDeEnvio &fin) {
    if (const auto terminar = std::exchange(oyentes_.terminar, nullptr)) terminar(fin);
}

void EnvioDeCorreo::AcabarDespues(const FinDeEnvio &fin) {
    QMetaObject::invokeMethod(
        &vivo_, [this, fin] { Acabar(fin); }, Qt::QueuedConnection);
}
