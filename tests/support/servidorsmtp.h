#pragma once
// A mail server that says what the test tells it to, on this thread's event loop.

#include <QByteArray>
#include <QList>
#include <QTcpServer>
#include <QTcpSocket>

/// What a client says comes as lines, its message as one piece behind "DATA"; each is answered by the next
/// reply. The first reply is the greeting. Replies are sent as they stand; past the last one nothing is said
/// any more.
class ServidorDeGuion {
 public:
    /// Sent instead of a reply: the line is closed.
    static inline const QByteArray cerrar = QByteArrayLiteral("<cerrar>");

    explicit ServidorDeGuion(QList<QByteArray> respuestas, bool deABytes = false);

    /// "127.0.0.1:PORT".
    QString direccion() const;
    const QByteArray &recibido() const { return recibido_; }
    int conexiones() const { return conexiones_; }

 private:
    void Atender();
    void Decir();

    QTcpServer servidor_;
    QTcpSocket *linea_ = nullptr;
    QList<QByteArray> respuestas_;
    bool deABytes_;
    bool enMensaje_ = false;
    QByteArray recibido_, sinLeer_;
    int conexiones_ = 0;
};

/// The replies of a server that takes the message.
QList<QByteArray> RespuestasDeUnServidor();
/// A port of the loopback where nobody listens.
quint16 PuertoSinNadie();
