#pragma once
// A line to the test server that is as long, and as bad, as a test wants it: a proxy on the loopback address,
// on a thread of its own.

#include <QString>
#include <memory>

class Intermediario {
 public:
    /// Listens on a free port of 127.0.0.1 and passes on to the server of `palabras` ("host=… port=… user=…",
    /// a host with a slash is a folder of sockets); empty: of ZENDRA_PG. Raises std::runtime_error.
    explicit Intermediario(double idaYVueltaMs = 0, const QString &palabras = {});
    ~Intermediario();
    Intermediario(const Intermediario &) = delete;
    Intermediario &operator=(const Intermediario &) = delete;

    int puerto() const;
    /// The same words with this proxy as the server: what ZENDRA_PG says to reach the server through it.
    QString palabras() const;

    /// The round trip from now on, in milliseconds; each direction takes half of it. What is delayed is only
    /// the arrival: any amount may be on its way at once.
    void IdaYVuelta(double ms);

    struct Cuenta {
        /// Times that a client sent something after an answer had reached it, and the opening of a line.
        qint64 viajes = 0;
        qint64 bytesAlServidor = 0;
        qint64 bytesAlCliente = 0;
        qint64 conexiones = 0;
    };
    /// Since the beginning, or since the counters were set to zero.
    Cuenta cuenta() const;
    void PonerEnCero();
    /// Lines open at this moment.
    int abiertas() const;

    enum class Corte {
        Fin,    ///< in order, as a server that is stopped does
        Rotura  ///< a reset, as a router that forgot the line does
    };
    /// Cuts every open line; new ones are accepted.
    void Cortar(Corte como = Corte::Rotura);

    enum class Medida { Viajes, BytesAlServidor, BytesAlCliente };
    /// Lets `cuanto` more pass, on all lines together, and then cuts all of them, once. Of round trips the
    /// next one does not leave; of bytes exactly so many arrive, in the middle of a message perhaps.
    void CortarTras(Medida medida, qint64 cuanto, Corte como = Corte::Rotura);
    /// Whether a cut that was asked for is still to come.
    bool cortePendiente() const;

    /// Nobody listens at the port: open lines stay.
    void Rechazar();
    /// A line that dropped without a word: new ones are accepted, and nothing passes on any.
    void Colgar();
    /// A machine that is gone: not even what arrives is acknowledged, on open lines or on new ones. A line
    /// that its client gave up meanwhile stays open here until the next cut.
    void Enmudecer();
    /// Ends Rechazar, Colgar, Enmudecer and a cut that is still to come; what waited is passed on.
    void Seguir();

 private:
    struct Interno;
    std::unique_ptr<Interno> i_;
};
