#pragma once
// A port of the loopback address that nobody listens on.

#include <QHostAddress>
#include <QTcpServer>

/// 0 when the system gives none.
inline int PuertoLibre() {
    QTcpServer oido;
    return oido.listen(QHostAddress::LocalHost) ? oido.serverPort() : 0;
}
