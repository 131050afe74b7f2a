#include "outputs/smtpoutcome.h"

#include <curl/curl.h>

#include <QRegularExpression>
#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

constexpr int sinFaltaEnLaCadena = 1;
constexpr int primerRechazo = 400;
constexpr int servidorSeVa = 421;
constexpr int faltaElLogin = 530;
constexpr int sinLugar = 452;
constexpr int excedido = 552;

/// What the TLS library finds wrong with a chain; its header is not needed for five numbers.
struct FaltaDelCertificado {
    long numero;
    const char16_t *texto;
};
const char16_t *const desconocido =
    u"El certificado del servidor %1 no es de una autoridad conocida: el mail no salió; si el servidor es de su "
    u"oficina, indique el archivo de su autoridad en Certificados.";
constexpr const char16_t *vencido =
    u"El certificado del servidor %1 venció: el mail no salió; avise a quien administra el servidor.";
const FaltaDelCertificado faltasDelCertificado[] = {
    {9,
     u"El certificado del servidor %1 todavía no es válido: el mail no salió; verifique la fecha de esta PC."},
    {10, vencido},
    {18, desconocido},
    {19, desconocido},
    {20, desconocido},
    {21, desconocido}};

QString textoDelCertificado(long numero) {
    const auto *const falta =
        std::find_if(std::begin(faltasDelCertificado), std::end(faltasDelCertificado),
                     [numero](const FaltaDelCertificado &f) { return f.numero == numero; });
    if (falta != std::end(faltasDelCertificado)) return QString::fromUtf16(falta->texto);
    // Nothing wrong with the chain, or not looked at any more: it is another server's.
    if (numero <= sinFaltaEnLaCadena)
        return u"El certificado no es del servidor %1: el mail no salió; verifique el nombre del servidor."_s;
    return u"El certificado del servidor %1 no es válido: el mail no salió; avise a quien lo administra."_s;
}

/// "5.2.2" of a reply that has such a code behind its first one; else empty.
QString codigoDetallado(const QString &respuesta) {
    static const QRegularExpression forma(u"^\\d{3}[ -](\\d\\.\\d{1,3}\\.\\d{1,3})\\b"_s);
    return forma.match(respuesta).captured(1);
}

const QString casillaLlena =
    u"La casilla de %1 está llena: el mail no salió; avísele por otro medio y vuelva a enviarlo."_s;
const QString demasiadoGrande = u"El mail es demasiado grande para el servidor: no salió."_s;

/// A reply that says no, by what it was said to. Empty: its code alone is told.
QString textoDelRechazo(const ResultadoDeEnvio &r, const CuentaDeCorreo &cuenta, const Correo &correo) {
    const QString detallado = codigoDetallado(r.respuesta);
    if (detallado.endsWith(".2.2"_L1)) return casillaLlena.arg(correo.destinatario);
    if (detallado.endsWith(".3.4"_L1)) return demasiadoGrande;
    if (r.codigo == servidorSeVa)
        return u"El servidor %1 no atiende en este momento: el mail no salió; vuelva a intentar más tarde."_s
            .arg(cuenta.servidor.host);
    const bool sinEspacio = r.codigo == sinLugar || r.codigo == excedido;
    switch (r.fase) {
        case FaseDeEnvio::Login:
            return u"El servidor no aceptó el usuario %1 o su contraseña: corríjalos en la configuración del mail."_s
                .arg(cuenta.usuario);
        case FaseDeEnvio::Remitente:
            if (r.codigo == excedido) return demasiadoGrande;
            if (r.codigo == faltaElLogin)
                return u"El servidor pide un usuario y su contraseña: cárguelos en la configuración del mail."_s;
            return u"El servidor no aceptó al remitente %1: verifique la configuración del mail."_s.arg(
                correo.remitente);
        case FaseDeEnvio::Destinatario:
            if (sinEspacio) return casillaLlena.arg(correo.destinatario);
            return u"El servidor no aceptó al destinatario %1: verifique su dirección."_s.arg(
                correo.destinatario);
        case FaseDeEnvio::Datos:
        case FaseDeEnvio::SinRespuesta:
            if (r.codigo == sinLugar) return casillaLlena.arg(correo.destinatario);
            if (r.codigo == excedido)
                return u"La casilla de %1 está llena o el mail es demasiado grande: el mail no salió."_s.arg(
                    correo.destinatario);
            break;
        default:
            break;
    }
    return u"El servidor %1 no aceptó el mail: no salió."_s.arg(cuenta.servidor.host);
}

/// What the line itself failed of.
QString textoDeLaLinea(const ResultadoDeEnvio &r, const CuentaDeCorreo &cuenta) {
    const QString host = cuenta.servidor.host;
    const QString puerto = QString::number(cuenta.servidor.puerto);
    switch (r.curl) {
        case CURLE_URL_MALFORMAT:
        case CURLE_COULDNT_RESOLVE_HOST:
            return u"No se encuentra el servidor %1: verifique su nombre y la conexión a internet."_s.arg(
                host);
        case CURLE_COULDNT_CONNECT:
            return u"El servidor %1 no acepta conexiones en el puerto %2: verifique el servidor y el puerto."_s
                .arg(host, puerto);
        case CURLE_OPERATION_TIMEDOUT:
            return u"El servidor %1 no respondió a tiempo: vuelva a intentar más tarde."_s.arg(host);
        case CURLE_LOGIN_DENIED:
            return u"El servidor %1 no ofrece una forma de identificarse que este programa conozca: avise a quien "
                   "lo administra."_s.arg(host);
        case CURLE_USE_SSL_FAILED:
            return u"El servidor %1 no ofrece STARTTLS en el puerto %2, y el mail no sale sin cifrar: verifique el "
                   "puerto y la seguridad en la configuración del mail."_s.arg(host, puerto);
        case CURLE_PEER_FAILED_VERIFICATION:
            return textoDelCertificado(r.verificacion).arg(host);
        case CURLE_SSL_CACERT_BADFILE:
            return u"No se puede leer el archivo de certificados %1: elija otro en la configuración del mail."_s
                .arg(cuenta.certificados);
        case CURLE_SSL_CONNECT_ERROR:
            return u"No se pudo cifrar la conexión con %1 en el puerto %2: verifique si ese puerto es de TLS o de "
                   "STARTTLS."_s.arg(host, puerto);
        case CURLE_SEND_ERROR:
        case CURLE_RECV_ERROR:
        case CURLE_GOT_NOTHING:
        case CURLE_WEIRD_SERVER_REPLY:
            return u"El servidor %1 cerró la conexión antes de terminar: vuelva a intentar más tarde."_s.arg(
                host);
        default:
            return u"No se pudo enviar el mail por %1 (%2)."_s.arg(host, r.tecnico);
    }
}

}  // namespace

FinDeEnvio FinDeResultado(const ResultadoDeEnvio &resultado, const CuentaDeCorreo &cuenta,
                          const Correo &correo) {
    // What fails behind the server's yes is its goodbye.
    if (resultado.fase == FaseDeEnvio::Aceptado || resultado.curl == CURLE_OK) return MailEnviado();
    const bool rechazado = resultado.codigo >= primerRechazo && resultado.curl != CURLE_USE_SSL_FAILED;
    QString texto =
        rechazado ? textoDelRechazo(resultado, cuenta, correo) : textoDeLaLinea(resultado, cuenta);
    if (rechazado)
        texto += "\r\n\r\nEl servidor dijo: "_L1 + resultado.respuesta;
    else if (resultado.fase == FaseDeEnvio::SinRespuesta)
        texto +=
            u"\r\n\r\nEl mail pudo haber salido: verifíquelo con su cliente antes de enviarlo otra vez."_s;
    return {false, false, {texto, u"Error de SMTP"_s, Icono::Critico}};
}
