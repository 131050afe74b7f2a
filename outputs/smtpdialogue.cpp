#include "outputs/smtpdialogue.h"

#include <QDateTime>
#include <QStringConverter>
#include <algorithm>

#include "frame/startup.h"
#include "frame/version.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int ultimoPaso = 6;
/// Behind the message, ahead of its reply.
constexpr int pasoDelMensaje = 5;
const QByteArray finDeLinea = "\r\n";
/// No reply is that long; a server that never ends its line does not fill the memory.
constexpr qsizetype lineaMasLarga = 8192;
/// The same for a reply that never comes to its last line.
constexpr qsizetype respuestaMasLarga = 65536;

bool esAceptado(const QString &codigo) {
    return codigo == "220"_L1 || codigo == "250"_L1 || codigo == "354"_L1;
}

/// "250-": more lines of the same reply follow.
bool sigue(const QString &linea) {
    return linea.size() > 3 && linea[3] == u'-' &&
           std::all_of(linea.cbegin(), linea.cbegin() + 3, [](QChar c) { return c >= u'0' && c <= u'9'; });
}

/// The single-byte code page that the message declares; what it cannot say becomes "?".
QByteArray enLatin1(const QString &texto) {
    QByteArray bytes;
    bytes.reserve(texto.size());
    for (const char32_t letra : texto.toUcs4()) bytes += letra <= 0xFF ? static_cast<char>(letra) : '?';
    return bytes;
}

/// The same for markup, which has its own way to say any character.
QByteArray marcasEnLatin1(const QString &html) {
    QByteArray bytes;
    bytes.reserve(html.size());
    for (const char32_t letra : html.toUcs4()) {
        if (letra <= 0xFF)
            bytes += static_cast<char>(letra);
        else
            bytes += "&#" + QByteArray::number(static_cast<uint>(letra)) + ';';
    }
    return bytes;
}

/// The body as lines of the dialogue. A point at the beginning of a line is doubled: any server takes one
/// away there, and a line of one point alone would end the message in its middle.
QByteArray lineasDelCuerpo(const QString &html) {
    QByteArray texto = marcasEnLatin1(html);
    texto.replace("\r\n", "\n").replace('\r', '\n');
    if (texto.endsWith('\n')) texto.chop(1);
    QByteArray lineas;
    lineas.reserve(texto.size());
    for (const QByteArray &linea : texto.split('\n')) {
        if (linea.startsWith('.')) lineas += '.';
        lineas += linea + finDeLinea;
    }
    return lineas;
}

QString versionDelEnvio() {
    const auto dosCifras = [](int parte) { return QString::number(parte).rightJustified(2, u'0'); };
    return "ZENDRA SMTP v."_L1 + dosCifras(ZENDRA_VERSION_MAYOR) + u'.' + dosCifras(ZENDRA_VERSION_MENOR) +
           u'.' + dosCifras(ZENDRA_VERSION_REVISION);
}

}  // namespace

FinDeEnvio MailEnviado() {
    return {true, true, {u"Datos enviados."_s, u"ZENDRA/W"_s, Icono::Informacion}};
}

FinDeEnvio DatosIncompletos() {
    return {false,
            true,
            {u"Datos incompletos.\r\n\r\n"
             "Verifique los datos como e-mail de su cliente o configuración del "
             "sistema."_s,
             {},
             Icono::Exclamacion}};
}

FinDeEnvio EnvioInterrumpido(Alcance alcance) {
    switch (alcance) {
        case Alcance::Aceptado:
            return MailEnviado();
        case Alcance::SinRespuesta:
            return {false,
                    true,
                    {u"Interrumpió el envío antes de la respuesta del servidor: el mail pudo haber salido, "
                     "verifíquelo con su cliente antes de enviarlo otra vez."_s,
                     {},
                     Icono::Exclamacion}};
        case Alcance::NoSalio:
            break;
    }
    return {false, true, {u"Interrumpió el envío: el mail no salió."_s, {}, Icono::Exclamacion}};
}

QString ComienzoDelRegistro(const Correo &correo) {
    return "Enviando mail a : "_L1 + EnUnaLinea(correo.destinatario) + "\n\n"_L1 + "Fecha sistema : "_L1 +
           FechaLarga(QDateTime::currentDateTime()) + "\n"_L1 + versionDelEnvio() + "\n"_L1 +
           "Conectando...  (espere for favor)"_L1;
}

QString TextoDelServidor(const QByteArray &bytes) {
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString texto = utf8(bytes);
    return utf8.hasError() ? QString::fromLatin1(bytes) : texto;
}

DialogoSmtp::DialogoSmtp(Correo &correo, Salidas salidas) : correo_(correo), salidas_(std::move(salidas)) {}

void DialogoSmtp::Recibir(const QByteArray &datos) {
    pendiente_ += datos;
    while (!terminado_) {
        const qsizetype fin = pendiente_.indexOf('\n');
        if (fin < 0 && pendiente_.size() <= lineaMasLarga) return;
        QByteArray linea = pendiente_.left(fin < 0 ? lineaMasLarga : fin);
        pendiente_.remove(0, fin < 0 ? lineaMasLarga : fin + 1);
        if (linea.endsWith('\r')) linea.chop(1);
        const QString texto = TextoDelServidor(linea);
        salidas_.anotar(texto);
        respuesta_ += texto;
        if (sigue(texto) && respuesta_.size() <= respuestaMasLarga) {
            respuesta_ += u'\n';
            continue;
        }
        Responder(std::exchange(respuesta_, {}));
    }
}

bool DialogoSmtp::Cerrado() {
    if (terminado_) return true;
    // The last words of a server that hangs up may lack their line end.
    if (!pendiente_.isEmpty()) Recibir(finDeLinea);
    if (!terminado_ && paso_ == ultimoPaso) Terminar({});
    return terminado_;
}

Alcance DialogoSmtp::alcance() const {
    if (paso_ == ultimoPaso) return Alcance::Aceptado;
    return paso_ == pasoDelMensaje ? Alcance::SinRespuesta : Alcance::NoSalio;
}

void DialogoSmtp::Responder(const QString &respuesta) {
    // A server that says goodbye with an accepted code has nothing else to say either.
    if (!esAceptado(respuesta.left(3)) || paso_ == ultimoPaso) {
        Terminar(respuesta);
        return;
    }
    const QString remitente = EnUnaLinea(correo_.remitente);
    switch (paso_++) {
        case 0:
            Mandar("HELO " + enLatin1(remitente.left(remitente.indexOf(u'@'))));
            break;
        case 1:
            Mandar("MAIL FROM:" + enLatin1(remitente.trimmed()));
            break;
        case 2:
            Mandar("RCPT TO:<" + enLatin1(EnUnaLinea(correo_.destinatario).trimmed()) + '>');
            break;
        case 3:
            Mandar("DATA");
            break;
        case 4:
            MandarMensaje();
            break;
        default:
            Mandar("QUIT");
            break;
    }
}

void DialogoSmtp::Terminar(const QString &respuesta) {
    terminado_ = true;
    salidas_.terminar(
        paso_ == ultimoPaso
            ? MailEnviado()
            : FinDeEnvio{
                  false, true, {"Error de SMTP: "_L1 + respuesta, u"Error de SMTP"_s, Icono::Critico}});
}

void DialogoSmtp::Mandar(const QByteArray &linea) {
    salidas_.anotar(QString::fromLatin1(linea));
    salidas_.enviar(linea + finDeLinea);
}

void DialogoSmtp::MandarMensaje() {
    const QString asunto = EnUnaLinea(correo_.asunto);
    const auto persona = [](const QString &nombre, const QString &direccion) {
        return enLatin1(EnUnaLinea(nombre)) + " <" + enLatin1(EnUnaLinea(direccion)) + '>' + finDeLinea;
    };
    QByteArray mensaje = "Content-Type: text/html;Charset=\"iso-8859-1\"" + finDeLinea;
    mensaje += "From:" + persona(correo_.nombreDelRemitente, correo_.remitente);
    mensaje += "To:" + persona(correo_.nombreDelDestinatario, correo_.destinatario);
    mensaje += "Subject:" + enLatin1(asunto) + finDeLinea;
    // No empty line here: the readers that offices have take the body up from where its markup begins.
    mensaje += lineasDelCuerpo(correo_.cuerpo);
    mensaje += '.' + finDeLinea;
    salidas_.anotar("Subject: "_L1 + asunto);
    salidas_.enviar(mensaje);
    correo_.cuerpo.clear();
}
