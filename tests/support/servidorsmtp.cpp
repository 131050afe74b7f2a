#include "tests/support/servidorsmtp.h"

#include <QTimer>
#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// A byte each turn of the event loop.
void decirDeABytes(QTcpSocket *linea, const std::shared_ptr<QByteArray> &queda) {
    if (queda->isEmpty()) return;
    linea->write(queda->left(1));
    linea->flush();
    queda->remove(0, 1);
    QTimer::singleShot(0, linea, [linea, queda] { decirDeABytes(linea, queda); });
}

}  // namespace

ServidorDeGuion::ServidorDeGuion(QList<QByteArray> respuestas, bool deABytes)
    : respuestas_(std::move(respuestas)), deABytes_(deABytes) {
    servidor_.listen(QHostAddress::LocalHost, 0);
    QObject::connect(&servidor_, &QTcpServer::newConnection, &servidor_, [this] {
        ++conexiones_;
        linea_ = servidor_.nextPendingConnection();
        QObject::connect(linea_, &QTcpSocket::readyRead, linea_, [this] { Atender(); });
        Decir();
    });
}

QString ServidorDeGuion::direccion() const {
    return "127.0.0.1:"_L1 + QString::number(servidor_.serverPort());
}

void ServidorDeGuion::Decir() {
    if (respuestas_.isEmpty()) return;
    const QByteArray respuesta = respuestas_.takeFirst();
    // The text of a last word that is not a whole line stands ahead of the mark.
    const bool cierra = respuesta.endsWith(cerrar);
    const QByteArray texto = cierra ? respuesta.chopped(cerrar.size()) : respuesta;
    if (deABytes_)
        decirDeABytes(linea_, std::make_shared<QByteArray>(texto));
    else
        linea_->write(texto);
    if (cierra) linea_->disconnectFromHost();
}

void ServidorDeGuion::Atender() {
    const QByteArray llegado = linea_->readAll();
    recibido_ += llegado;
    sinLeer_ += llegado;
    for (;;) {
        const QByteArray fin = enMensaje_ ? "\r\n.\r\n" : "\r\n";
        const qsizetype donde = sinLeer_.indexOf(fin);
        if (donde < 0) return;
        const QByteArray dicho = sinLeer_.left(donde);
        sinLeer_.remove(0, donde + fin.size());
        enMensaje_ = dicho == "DATA" && !enMensaje_;
        Decir();
    }
}

QList<QByteArray> RespuestasDeUnServidor() {
    return {"220 servidor\r\n", "250 hola\r\n",     "250 remitente\r\n", "250 destinatario\r\n",
            "354 diga\r\n",     "250 aceptado\r\n", "221 adios\r\n"};
}

quint16 PuertoSinNadie() {
    QTcpServer servidor;
    servidor.listen(QHostAddress::LocalHost, 0);
    return servidor.serverPort();
}
