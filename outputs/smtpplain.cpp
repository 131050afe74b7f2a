#include "outputs/smtpplain.h"

#include <QNetworkProxy>
#include <algorithm>
#include <iterator>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// The numbers that help desks know these failures by.
struct ErrorDeSocket {
    QAbstractSocket::SocketError error;
    int numero;
    const char16_t *descripcion;
};
constexpr ErrorDeSocket erroresDeSocket[] = {
    {QAbstractSocket::ConnectionRefusedError, 10061,
     u"El servidor no acepta conexiones en ese puerto: verifique el servidor y el puerto."},
    {QAbstractSocket::RemoteHostClosedError, 10054, u"El servidor cerró la conexión antes de terminar."},
    {QAbstractSocket::HostNotFoundError, 11001,
     u"No se encuentra el servidor: verifique su nombre y la conexión a internet."},
    {QAbstractSocket::SocketTimeoutError, 10060, u"El servidor no responde."},
    {QAbstractSocket::NetworkError, 10051, u"No se llega al servidor: verifique la conexión a la red."},
    {QAbstractSocket::SocketAccessError, 10013, u"El sistema no permite la conexión con el servidor."}};

}  // namespace

EnvioSinCifrar::EnvioSinCifrar(Correo &correo, std::function<void(const QString &)> anotar,
                               std::function<void(const FinDeEnvio &)> terminar)
    : terminar_(std::move(terminar)),
      dialogo_(correo, {[this](const QByteArray &bytes) { Enviar(bytes); }, std::move(anotar),
                        [this](const FinDeEnvio &fin) { Acabar(fin); }}) {
    Winsock1_.setProxy(QNetworkProxy::NoProxy);
    QObject::connect(&Winsock1_, &QTcpSocket::readyRead, &Winsock1_,
                     [this] { dialogo_.Recibir(Winsock1_.readAll()); });
    QObject::connect(&Winsock1_, &QTcpSocket::errorOccurred, &Winsock1_,
                     [this](QAbstractSocket::SocketError error) { Winsock_Error(error); });
}

EnvioSinCifrar::~EnvioSinCifrar() {
    // Nobody hears what the line says while it goes.
    Winsock1_.disconnect();
}

void EnvioSinCifrar::Iniciar(const ServidorDeCorreo &servidor) {
    Winsock1_.connectToHost(servidor.host, servidor.puerto);
}

FinDeEnvio EnvioSinCifrar::Interrumpir() {
    terminar_ = nullptr;
    Winsock1_.abort();
    return EnvioInterrumpido(dialogo_.alcance());
}

void EnvioSinCifrar::Enviar(const QByteArray &bytes) {
    // The answer to what a server said while it hung up reaches nobody.
    if (!caida_) Winsock1_.write(bytes);
}

void EnvioSinCifrar::Winsock_Error(QAbstractSocket::SocketError error) {
    caida_ = true;
    // What came ahead of the end is heard first; behind the reply to the message nothing can fail any more.
    dialogo_.Recibir(Winsock1_.readAll());
    if (dialogo_.Cerrado()) return;
    const auto *const conocido = std::find_if(std::begin(erroresDeSocket), std::end(erroresDeSocket),
                                              [error](const ErrorDeSocket &e) { return e.error == error; });
    const bool esConocido = conocido != std::end(erroresDeSocket);
    const int numero = esConocido ? conocido->numero : static_cast<int>(error);
    const QString descripcion =
        esConocido ? QString::fromUtf16(conocido->descripcion) : Winsock1_.errorString();
    Acabar({false,
            false,
            {u"Winsock Error número "_s + QString::number(numero) + "\r\n"_L1 + descripcion,
             u"Error de Winsock"_s, Icono::Critico}});
}

void EnvioSinCifrar::Acabar(const FinDeEnvio &fin) {
    Winsock1_.close();
    // Whoever hears it may take this object away.
    if (const auto terminar = std::exchange(terminar_, nullptr)) terminar(fin);
}
