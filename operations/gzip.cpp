#include "operations/gzip.h"

#include <zlib.h>

#include <QIODevice>

namespace gzip {

namespace {

constexpr int conCabezaDeGzip = 15 + 16;  ///< the largest window, and the head and tail of gzip around it
constexpr int memoriaUsual = 8;
constexpr int trozo = 1 << 16;

Bytef *bytesDe(QByteArray &bytes) {
    return reinterpret_cast<Bytef *>(bytes.data());
}

}  // namespace

Escritor::Escritor(QIODevice &destino) : destino_(destino), z_(std::make_unique<z_stream_s>()) {
    deflateInit2(z_.get(), Z_DEFAULT_COMPRESSION, Z_DEFLATED, conCabezaDeGzip, memoriaUsual,
                 Z_DEFAULT_STRATEGY);
}

Escritor::~Escritor() {
    deflateEnd(z_.get());
}

bool Escritor::pasar(const QByteArray &bytes, int modo) {
    QByteArray entrada = bytes;
    QByteArray salida(trozo, Qt::Uninitialized);
    z_->next_in = bytesDe(entrada);
    z_->avail_in = static_cast<uInt>(entrada.size());
    do {
        z_->next_out = bytesDe(salida);
        z_->avail_out = trozo;
        deflate(z_.get(), modo);
        const auto hechos = static_cast<qint64>(trozo - z_->avail_out);
        if (destino_.write(salida.constData(), hechos) != hechos) return false;
    } while (z_->avail_out == 0);
    return true;
}

bool Escritor::escribir(const QByteArray &bytes) {
    return pasar(bytes, Z_NO_FLUSH);
}

bool Escritor::terminar() {
    return pasar({}, Z_FINISH);
}

Lector::Lector(QIODevice &origen) : origen_(origen), z_(std::make_unique<z_stream_s>()) {
    inflateInit2(z_.get(), conCabezaDeGzip);
}

Lector::~Lector() {
    inflateEnd(z_.get());
}

QByteArray Lector::leer() {
    QByteArray salida(trozo, Qt::Uninitialized);
    z_->next_out = bytesDe(salida);
    z_->avail_out = trozo;
    while (estado_ == Estado::Sigue && z_->avail_out > 0) {
        if (z_->avail_in == 0) {
            entrada_ = origen_.read(trozo);
            z_->next_in = bytesDe(entrada_);
            z_->avail_in = static_cast<uInt>(entrada_.size());
        }
        if (z_->avail_in == 0) {
            estado_ = Estado::Trunco;
            break;
        }
        const int paso = inflate(z_.get(), Z_NO_FLUSH);
        if (paso == Z_STREAM_END)
            // Something behind the end is none of ours.
            estado_ = z_->avail_in == 0 && origen_.atEnd() ? Estado::Entero : Estado::Danado;
        else if (paso != Z_OK)
            estado_ = Estado::Danado;
    }
    salida.truncate(trozo - static_cast<qsizetype>(z_->avail_out));
    return salida;
}

}  // namespace gzip
