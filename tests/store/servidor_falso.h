#pragma once
// A listener that speaks just enough of the server's protocol to ask for a password and to refuse it.

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QByteArray>
#include <array>
#include <thread>

class ServidorFalso {
 public:
    ServidorFalso() {
        oido_ = ::socket(AF_INET, SOCK_STREAM, 0);
        sockaddr_in donde{};
        donde.sin_family = AF_INET;
        donde.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t largo = sizeof donde;
        if (oido_ < 0 || ::bind(oido_, reinterpret_cast<sockaddr *>(&donde), largo) != 0 ||
            ::listen(oido_, 4) != 0 ||
            ::getsockname(oido_, reinterpret_cast<sockaddr *>(&donde), &largo) != 0)
            return;
        puerto_ = ntohs(donde.sin_port);
        hilo_ = std::thread([this] { atender(); });
    }
    ~ServidorFalso() { cerrar(); }
    ServidorFalso(const ServidorFalso &) = delete;
    ServidorFalso &operator=(const ServidorFalso &) = delete;

    int puerto() const { return puerto_; }
    /// Ends listening; from here on nobody answers at the port.
    void cerrar() {
        if (oido_ < 0) return;
        ::shutdown(oido_, SHUT_RDWR);
        ::close(oido_);
        oido_ = -1;
        if (hilo_.joinable()) hilo_.join();
    }
    /// What clients sent as their password; read after cerrar().
    const QByteArray &recibida() const { return recibida_; }

 private:
    static QByteArray entero(int n) {
        const quint32 red = htonl(static_cast<quint32>(n));
        return {reinterpret_cast<const char *>(&red), 4};
    }
    static bool leer(int cliente, QByteArray &a, int cuantos) {
        a.resize(cuantos);
        int hay = 0;
        while (hay < cuantos) {
            const ssize_t n = ::recv(cliente, a.data() + hay, static_cast<std::size_t>(cuantos - hay), 0);
            if (n <= 0) return false;
            hay += static_cast<int>(n);
        }
        return true;
    }
    static int aEntero(const QByteArray &a) {
        quint32 red = 0;
        std::memcpy(&red, a.constData(), 4);
        return static_cast<int>(ntohl(red));
    }
    static void decir(int cliente, const QByteArray &a) {
        (void)::send(cliente, a.constData(), static_cast<std::size_t>(a.size()), MSG_NOSIGNAL);
    }

    void conversar(int cliente) {
        QByteArray a;
        // Encryption is asked for first, perhaps twice; "N": not here.
        for (;;) {
            if (!leer(cliente, a, 8)) return;
            const int codigo = aEntero(a.mid(4));
            if (codigo != 80877103 && codigo != 80877104) break;
            decir(cliente, "N");
        }
        if (!leer(cliente, a, aEntero(a) - 8)) return;
        decir(cliente, "R" + entero(8) + entero(3));  // the password in clear text, please
        if (!leer(cliente, a, 5) || a[0] != 'p' || !leer(cliente, a, aEntero(a.mid(1)) - 4)) return;
        recibida_ = QByteArray(a.constData());
        QByteArray error("SFATAL\0VFATAL\0C28P01\0Mpassword authentication failed for user \"ana\"\0\0", 69);
        decir(cliente, "E" + entero(static_cast<int>(error.size()) + 4) + error);
    }
    void atender() {
        for (;;) {
            const int cliente = ::accept(oido_, nullptr, nullptr);
            if (cliente < 0) return;
            conversar(cliente);
            ::close(cliente);
        }
    }

    int oido_ = -1;
    int puerto_ = 0;
    QByteArray recibida_;
    std::thread hilo_;
};
