#pragma once
// A stream in the gzip form (RFC 1952), so that what leaves can be looked at with the tools that every system
// has.

#include <QByteArray>
#include <memory>

class QIODevice;
struct z_stream_s;

namespace gzip {

/// Compresses into a device. The same bytes give the same file: no clock and no name is in it.
class Escritor {
 public:
    /// `destino` has to outlive it.
    explicit Escritor(QIODevice &destino);
    ~Escritor();
    Escritor(const Escritor &) = delete;
    Escritor &operator=(const Escritor &) = delete;

    /// False when the device does not take it.
    bool escribir(const QByteArray &bytes);
    /// Writes what is still inside; nothing may follow. False when the device does not take it.
    bool terminar();

 private:
    bool pasar(const QByteArray &bytes, int modo);
    QIODevice &destino_;
    std::unique_ptr<z_stream_s> z_;
};

/// Where a reading stands: in the middle, at the end of a whole stream, at the end of a file that stops ahead
/// of it, or at bytes that are none of a stream.
enum class Estado { Sigue, Entero, Trunco, Danado };

/// Expands a device, a piece at a time.
class Lector {
 public:
    /// `origen` has to outlive it.
    explicit Lector(QIODevice &origen);
    ~Lector();
    Lector(const Lector &) = delete;
    Lector &operator=(const Lector &) = delete;

    /// The next piece; empty when there is none, and estado() says why.
    QByteArray leer();
    Estado estado() const { return estado_; }

 private:
    QIODevice &origen_;
    std::unique_ptr<z_stream_s> z_;
    QByteArray entrada_;
    Estado estado_ = Estado::Sigue;
};

}  // namespace gzip
