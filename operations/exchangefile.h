#pragma once
// The file that operations travel in: lines of JSON, compressed, with a checksum (docs/intercambio.md). A
// stream on both sides: no more than a line is in memory, whatever the operation holds.

#include <QByteArray>
#include <QCryptographicHash>
#include <QFile>
#include <QString>
#include <QStringList>
#include <memory>

#include "operations/gzip.h"
#include "operations/operationrows.h"

namespace intercambio {

/// The version that is written, and the highest that is read.
constexpr int versionDeFormato = 1;

/// What a Falla of the file, and not of a store, tells as its source.
inline const QString fuenteDeArchivo = QStringLiteral("intercambio");

/// Writes a file: an operation, its tables, their rows, the end of the operation, and so on. The same rows
/// give the same bytes. What the device does not take raises Falla.
class EscritorDeArchivo {
 public:
    EscritorDeArchivo(QIODevice &destino, int operaciones);

    void Operacion(const QString &clave);
    void Tabla(const QString &nombre, const QStringList &columnas);
    void Fila(const operacion::Fila &fila);
    void FinDeOperacion();
    /// The checksum and the end of the stream.
    void Cerrar();
    qint64 filas() const { return filas_; }

 private:
    void linea(const QByteArray &json);

    gzip::Escritor gzip_;
    QCryptographicHash suma_;
    QByteArray enEspera_;
    QString clave_;
    qint64 filas_ = 0, filasDeLaOperacion_ = 0;
};

enum class Registro { Operacion, Tabla, Fila, FinDeOperacion, Termino };

/// Reads a file. Everything that is wrong with it raises Falla with one sentence: a file of another program,
/// one that is not whole, a checksum that does not match, a later version.
class LectorDeArchivo {
 public:
    /// Opens it and reads its head. Raises Falla.
    explicit LectorDeArchivo(const QString &archivo);

    /// The next record, and Termino behind the last, once the checksum was found right. Raises Falla.
    Registro Siguiente();

    int operaciones() const { return operaciones_; }  ///< that the head tells
    const QString &clave() const { return clave_; }   ///< of the operation in hand
    const QString &tabla() const { return tabla_; }   ///< the table in hand, as the file names it
    const QStringList &columnas() const { return columnas_; }
    /// The row in hand, with a value for each column. Raises Falla.
    operacion::Fila fila() const;

 private:
    [[noreturn]] void fallar(const QString &sentencia) const;
    [[noreturn]] void malaForma() const;
    void leerCabeza();
    bool leerLinea();
    Registro registroDe(const QJsonObject &objeto);
    void comprobarSuma(const QJsonObject &objeto);

    QString archivo_;
    QFile f_;
    std::unique_ptr<gzip::Lector> gzip_;
    QCryptographicHash suma_;
    QByteArray pendiente_;
    qsizetype hasta_ = 0;  ///< what of `pendiente_` was handed over already
    QByteArray linea_;
    qint64 numeroDeLinea_ = 0;
    int operaciones_ = 0, leidas_ = 0;
    bool enOperacion_ = false;
    qint64 filas_ = 0;
    QString clave_, tabla_;
    QStringList columnas_;
};

}  // namespace intercambio
