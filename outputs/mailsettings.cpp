#include "outputs/mailsettings.h"

#include <QFileInfo>
#include <QStringList>
#include <algorithm>

#include "frame/base/ini.h"
#include "frame/context.h"
#include "header/ClientBook.h"

using namespace Qt::StringLiterals;

namespace {

const QString seccionDeCorreo = u"SMTP"_s;
const QStringList seguridadesDeCorreo = {u""_s, u"STARTTLS"_s, u"TLS"_s};

/// A key and its member.
struct ClaveDeCorreo {
    const char *clave;
    QString AjustesDeCorreo::*valor;
};
constexpr ClaveDeCorreo clavesDeCorreo[] = {{"EMAIL", &AjustesDeCorreo::email},
                                            {"SERVER", &AjustesDeCorreo::server},
                                            {"SEGURIDAD", &AjustesDeCorreo::seguridad},
                                            {"USUARIO", &AjustesDeCorreo::usuario},
                                            {"CERTIFICADOS", &AjustesDeCorreo::certificados}};

struct FaltaDeCorreo {
    QString texto;  ///< empty: nothing is missing
    QString control;
};

bool esAscii(const QString &texto) {
    return std::all_of(texto.cbegin(), texto.cend(), [](QChar c) { return c > u' ' && c <= u'~'; });
}

FaltaDeCorreo primeraFalta(const AjustesDeCorreo &a, bool conContrasena) {
    // Less is asked of the office's own address than of a client's: today's domains end in longer words.
    if (!a.email.isEmpty() && !(ClientBook::PareceCorreo(a.email) && esAscii(a.email)))
        return {u"La dirección %1 no es válida: corríjala."_s.arg(a.email), u"TxtEmail"_s};
    if (!a.server.isEmpty() && !PartirServidor(a.server, 1))
        return {u"El servidor %1 no es válido: escriba el nombre, o el nombre, dos puntos y el puerto."_s.arg(
                    a.server),
                u"TxtServer"_s};
    if (!seguridadesDeCorreo.contains(a.seguridad))
        return {u"La seguridad %1 no existe: elija STARTTLS o TLS."_s.arg(a.seguridad), u"CbSeguridad"_s};
    if (a.seguridad.isEmpty() && (conContrasena || !a.usuario.isEmpty()))
        return {u"El usuario y su contraseña no salen sin cifrar: elija STARTTLS o TLS."_s, u"CbSeguridad"_s};
    if (conContrasena && NombreDelSecreto(UsuarioDelCorreo(a, a.email), a.server).isEmpty())
        return {u"Para guardar la contraseña complete el servidor, y el email o el usuario."_s,
                a.server.isEmpty() ? u"TxtServer"_s : u"TxtUsuario"_s};
    if (!a.certificados.isEmpty() && !QFileInfo(a.certificados).isFile())
        return {u"No se encuentra el archivo de certificados %1: elija otro o deje el campo vacío."_s.arg(
                    a.certificados),
                u"TxtCertificados"_s};
    return {};
}

}  // namespace

AjustesDeCorreo LeerAjustesDeCorreo(const AppContext &ctx) {
    AjustesDeCorreo leidos;
    for (const ClaveDeCorreo &c : clavesDeCorreo)
        leidos.*c.valor = LeerIni(seccionDeCorreo, QLatin1String(c.clave), ctx.ConfigFilePath).trimmed();
    leidos.seguridad = leidos.seguridad.toUpper();
    return leidos;
}

Veredicto GuardarAjustesDeCorreo(AppContext &ctx, const AjustesDeCorreo &ajustes, bool conContrasena) {
    if (const FaltaDeCorreo falta = primeraFalta(ajustes, conContrasena); !falta.texto.isEmpty()) {
        ctx.dialogos.advertir(falta.texto);
        return Veredicto::mal(falta.control);
    }
    for (const ClaveDeCorreo &c : clavesDeCorreo) {
        if (EscribirIni(seccionDeCorreo, QLatin1String(c.clave), ajustes.*c.valor, ctx.ConfigFilePath))
            continue;
        ctx.dialogos.critico(
            u"No se pudo escribir %1: los ajustes del mail no se guardaron."_s.arg(ctx.ConfigFilePath));
        return Veredicto::mal();
    }
    return Veredicto::bien();
}

std::optional<ServidorDeCorreo> PartirServidor(const QString &servidor, quint16 puertoPorDefecto) {
    const QString texto = servidor.trimmed();
    qsizetype finDelHost = texto.indexOf(u':');
    QString host = texto.left(finDelHost);
    if (texto.startsWith(u'[')) {
        const qsizetype corchete = texto.indexOf(u']');
        if (corchete < 0) return {};
        host = texto.mid(1, corchete - 1);
        finDelHost = texto.indexOf(u':', corchete);
        if (finDelHost < 0 ? corchete + 1 != texto.size() : finDelHost != corchete + 1) return {};
    }
    host = host.trimmed();
    if (host.isEmpty() || host.contains(u' ') || host.contains(u'/')) return {};
    if (finDelHost < 0) return ServidorDeCorreo{host, puertoPorDefecto};
    bool esNumero = false;
    const quint16 puerto = texto.mid(finDelHost + 1).trimmed().toUShort(&esNumero);
    if (!esNumero || puerto == 0) return {};
    return ServidorDeCorreo{host, puerto};
}

QString NombreDelSecreto(const QString &usuario, const QString &servidor) {
    const auto partes = PartirServidor(servidor, 1);
    if (!partes || usuario.trimmed().isEmpty()) return {};
    return "SMTP "_L1 + usuario.trimmed() + " "_L1 + partes->host.toLower();
}

QString UsuarioDelCorreo(const AjustesDeCorreo &ajustes, const QString &remitente) {
    return ajustes.usuario.isEmpty() ? remitente.trimmed() : ajustes.usuario;
}
