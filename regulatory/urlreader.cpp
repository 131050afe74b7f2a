#include "regulatory/urlreader.h"

#include <QNetworkProxy>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslError>
#include <QSslSocket>
#include <algorithm>
#include <iterator>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int redireccionesSeguidas = 5;
constexpr int primerRechazoDeHttp = 400;

/// %1 is the server, %2 its port, %3 the path.
struct MotivoDeRed {
    QNetworkReply::NetworkError error;
    const char16_t *texto;
};
constexpr MotivoDeRed motivosDeRed[] = {
    {QNetworkReply::HostNotFoundError,
     u"No se encuentra el servidor %1: verifique la dirección y la conexión a internet."},
    {QNetworkReply::ConnectionRefusedError,
     u"El servidor %1 no acepta conexiones en el puerto %2: verifique la dirección."},
    {QNetworkReply::RemoteHostClosedError,
     u"El servidor %1 cerró la conexión antes de terminar: vuelva a intentar más tarde."},
    {QNetworkReply::TemporaryNetworkFailureError,
     u"No se llega al servidor %1: verifique la conexión a la red."},
    {QNetworkReply::SslHandshakeFailedError,
     u"No se pudo cifrar la conexión con %1 en el puerto %2: verifique si la dirección es http o https."},
    {QNetworkReply::TooManyRedirectsError,
     u"El servidor %1 manda de una dirección a otra sin fin: avise a quien lo administra."},
    {QNetworkReply::InsecureRedirectError,
     u"El servidor %1 manda de una dirección cifrada a una sin cifrar, y no se la siguió: avise a quien lo "
     u"administra."},
    {QNetworkReply::ProtocolUnknownError,
     u"El servidor %1 manda a un lugar que no es una dirección http ni https, y no se lo siguió: avise a quien lo "
     u"administra."},
    {QNetworkReply::ContentNotFoundError,
     u"El servidor %1 no tiene el documento %3: verifique la dirección."},
    {QNetworkReply::ContentGoneError, u"El servidor %1 no tiene el documento %3: verifique la dirección."},
    {QNetworkReply::AuthenticationRequiredError,
     u"El servidor %1 no permite leer el documento %3: avise a quien lo administra."},
    {QNetworkReply::ContentAccessDenied,
     u"El servidor %1 no permite leer el documento %3: avise a quien lo administra."}};

/// The same for certificates.
struct MotivoDelCertificado {
    QSslError::SslError error;
    const char16_t *texto;
};
constexpr const char16_t *autoridadDesconocida =
    u"El certificado del servidor %1 no es de una autoridad conocida: si el servidor es de su oficina, indique el "
    u"archivo de su autoridad en CERTIFICADOS.";
constexpr MotivoDelCertificado motivosDelCertificado[] = {
    {QSslError::HostNameMismatch,
     u"El certificado no es del servidor %1: verifique el nombre en la dirección."},
    {QSslError::CertificateExpired,
     u"El certificado del servidor %1 venció: avise a quien administra el servidor."},
    {QSslError::CertificateNotYetValid,
     u"El certificado del servidor %1 todavía no es válido: verifique la fecha de esta PC."},
    {QSslError::SelfSignedCertificate, autoridadDesconocida},
    {QSslError::SelfSignedCertificateInChain, autoridadDesconocida},
    {QSslError::UnableToGetLocalIssuerCertificate, autoridadDesconocida},
    {QSslError::UnableToVerifyFirstCertificate, autoridadDesconocida}};

/// The row of a table for an error; null for one that has none.
template <class Fila, class Error>
const char16_t *textoDe(const Fila &filas, Error error) {
    const auto *const fila =
        std::find_if(std::begin(filas), std::end(filas), [error](const auto &f) { return f.error == error; });
    return fila == std::end(filas) ? nullptr : fila->texto;
}

QString motivoDelCertificado(const QList<QSslError> &errores, const QString &servidor) {
    if (errores.isEmpty()) return {};
    const char16_t *texto = textoDe(motivosDelCertificado, errores.first().error());
    return (texto != nullptr
                ? QString::fromUtf16(texto)
                : u"El certificado del servidor %1 no es válido: avise a quien administra el servidor."_s)
        .arg(servidor);
}

QString motivoDe(const QNetworkReply &respuesta) {
    // A redirection to no server at all is as good as one out of the web: of the server that was asked.
    const bool aNadie = respuesta.url().host().isEmpty();
    const QUrl url = aNadie ? respuesta.request().url() : respuesta.url();
    const QString servidor = url.host();
    if (url.scheme() == "https"_L1 && !QSslSocket::supportsSsl())
        return u"Esta PC no tiene la biblioteca de cifrado que piden las direcciones https: instale OpenSSL."_s;
    if (const char16_t *texto =
            textoDe(motivosDeRed, aNadie ? QNetworkReply::ProtocolUnknownError : respuesta.error())) {
        // One by one, since no text has all three; the path, which may hold anything, last.
        const int deFabrica = url.scheme() == "https"_L1 ? 443 : 80;
        return QString::fromUtf16(texto)
            .replace("%1"_L1, servidor)
            .replace("%2"_L1, QString::number(url.port(deFabrica)))
            .replace("%3"_L1, url.path());
    }
    const int codigo = respuesta.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (codigo >= primerRechazoDeHttp)
        return u"El servidor %1 respondió con el error %2: vuelva a intentar más tarde."_s.arg(
            servidor, QString::number(codigo));
    return u"No se pudo leer el documento de %1 (%2)."_s.arg(servidor, respuesta.errorString());
}

}  // namespace

LectorDeUrl::LectorDeUrl(std::chrono::milliseconds plazo) : plazo_(plazo) {
    red_.setProxy(QNetworkProxy::NoProxy);
    vencimiento_.setSingleShot(true);
    QObject::connect(&vencimiento_, &QTimer::timeout, &red_, [this] {
        Fallar(u"El servidor %1 no respondió a tiempo: vuelva a intentar más tarde."_s.arg(
            respuesta_->url().host()));
    });
}

LectorDeUrl::~LectorDeUrl() {
    Cancelar();
}

void LectorDeUrl::LeerUrl(const QUrl &url, const QString &certificados,
                          std::function<void(const LecturaDeUrl &)> terminar) {
    Cancelar();
    terminar_ = std::move(terminar);
    Pedir(url, certificados);
    vencimiento_.start(plazo_);
}

void LectorDeUrl::Pedir(const QUrl &url, const QString &certificados) {
    QNetworkRequest pedido(url);
    pedido.setHeader(QNetworkRequest::UserAgentHeader, u"ZENDRA"_s);
    // As it is: unpacking would let a small answer become a large one.
    pedido.setRawHeader("Accept-Encoding", "identity");
    pedido.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    pedido.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    pedido.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    pedido.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    pedido.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    pedido.setMaximumRedirectsAllowed(redireccionesSeguidas);
    if (!certificados.isEmpty()) {
        QSslConfiguration cifrado = QSslConfiguration::defaultConfiguration();
        cifrado.addCaCertificates(QSslCertificate::fromPath(certificados));
        pedido.setSslConfiguration(cifrado);
    }
    certificado_.clear();
    abierta_ = false;
    respuesta_ = red_.get(pedido);
    respuesta_->setReadBufferSize(tope + 1);
    QObject::connect(respuesta_, &QNetworkReply::finished, &red_, [this] { Terminada(); });
    QObject::connect(respuesta_, &QNetworkReply::readyRead, &red_, [this] { MirarTamano(); });
    QObject::connect(respuesta_, &QNetworkReply::requestSent, &red_, [this] { abierta_ = true; });
    QObject::connect(respuesta_, &QNetworkReply::sslErrors, &red_, [this](const QList<QSslError> &errores) {
        certificado_ = motivoDelCertificado(errores, respuesta_->url().host());
    });
}

void LectorDeUrl::Cancelar() {
    terminar_ = nullptr;
    vencimiento_.stop();
    if (respuesta_ == nullptr) return;
    QNetworkReply *ida = std::exchange(respuesta_, nullptr);
    ida->disconnect(&red_);
    ida->abort();
    ida->deleteLater();
}

void LectorDeUrl::Acabar(const LecturaDeUrl &lectura) {
    // Whoever hears it may ask again, or take this object away.
    const auto terminar = std::exchange(terminar_, nullptr);
    Cancelar();
    if (terminar) terminar(lectura);
}

void LectorDeUrl::Fallar(const QString &motivo) {
    Acabar({{}, abierta_ ? u"Error opening Web page"_s : u"Error opening Internet connection"_s, motivo});
}

void LectorDeUrl::MirarTamano() {
    if (respuesta_->bytesAvailable() > tope)
        Fallar(u"El documento del servidor %1 es demasiado grande: verifique la dirección."_s.arg(
            respuesta_->url().host()));
}

void LectorDeUrl::Terminada() {
    if (!certificado_.isEmpty())
        Fallar(certificado_);
    else if (respuesta_->error() != QNetworkReply::NoError)
        Fallar(motivoDe(*respuesta_));
    else
        Acabar({respuesta_->readAll(), {}, {}});
}
