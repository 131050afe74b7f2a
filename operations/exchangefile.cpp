#include "operations/exchangefile.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "frame/base/failure.h"

using namespace Qt::StringLiterals;

namespace intercambio {

namespace {

const QString formatoDeOperaciones = u"zendra-operaciones"_s;
constexpr qsizetype bytesEnEspera = 1 << 16;
/// No row of ours comes near it; a line without an end is no reason to fill the memory.
constexpr qsizetype lineaMayor = 1 << 26;

const QString deOtroPrograma =
    u"El archivo %1 no es de operaciones exportadas por este programa; elija otro archivo."_s;
const QString incompleto =
    u"El archivo %1 está incompleto; vuelva a copiarlo o pida que lo exporten otra vez."_s;
const QString danado =
    u"El archivo %1 está dañado: su suma de control no coincide; vuelva a copiarlo o pida que lo exporten otra "
    "vez."_s;

QByteArray enJson(const QJsonObject &objeto) {
    return QJsonDocument(objeto).toJson(QJsonDocument::Compact);
}

}  // namespace

// EscritorDeArchivo

EscritorDeArchivo::EscritorDeArchivo(QIODevice &destino, int operaciones)
    : gzip_(destino), suma_(QCryptographicHash::Sha256) {
    linea(enJson({{u"formato"_s, formatoDeOperaciones},
                  {u"version"_s, versionDeFormato},
                  {u"operaciones"_s, operaciones}}));
}

void EscritorDeArchivo::linea(const QByteArray &json) {
    enEspera_ += json;
    enEspera_ += '\n';
    if (enEspera_.size() < bytesEnEspera) return;
    suma_.addData(enEspera_);
    if (!gzip_.escribir(enEspera_))
        throw Falla{
            0, fuenteDeArchivo, u"no se pudo escribir todo; revise el espacio o elija otra carpeta"_s, {}};
    enEspera_.clear();
}

void EscritorDeArchivo::Operacion(const QString &clave) {
    clave_ = clave;
    filasDeLaOperacion_ = 0;
    linea(enJson({{u"operacion"_s, clave}}));
}

void EscritorDeArchivo::Tabla(const QString &nombre, const QStringList &columnas) {
    linea(enJson({{u"tabla"_s, nombre}, {u"columnas"_s, QJsonArray::fromStringList(columnas)}}));
}

void EscritorDeArchivo::Fila(const operacion::Fila &fila) {
    QJsonArray valores;
    for (const QVariant &valor : fila) {
        if (valor.isNull())
            valores.append(QJsonValue::Null);
        else if (valor.typeId() == QMetaType::Double)
            valores.append(valor.toDouble());
        else
            valores.append(valor.toString());
    }
    linea(QJsonDocument(valores).toJson(QJsonDocument::Compact));
    ++filas_;
    ++filasDeLaOperacion_;
}

void EscritorDeArchivo::FinDeOperacion() {
    linea(enJson({{u"fin"_s, clave_}, {u"filas"_s, filasDeLaOperacion_}}));
}

void EscritorDeArchivo::Cerrar() {
    suma_.addData(enEspera_);
    enEspera_ += enJson({{u"suma"_s, QString::fromLatin1(suma_.result().toHex())}}) + '\n';
    if (!gzip_.escribir(enEspera_) || !gzip_.terminar())
        throw Falla{
            0, fuenteDeArchivo, u"no se pudo escribir todo; revise el espacio o elija otra carpeta"_s, {}};
}

// LectorDeArchivo

LectorDeArchivo::LectorDeArchivo(const QString &archivo)
    : archivo_(archivo), f_(archivo), suma_(QCryptographicHash::Sha256) {
    if (!f_.open(QIODevice::ReadOnly))
        fallar(u"No se puede leer el archivo %1; revise la ruta y los permisos."_s);
    gzip_ = std::make_unique<gzip::Lector>(f_);
    leerCabeza();
}

/// `sentencia` with the file in the place of "%1".
void LectorDeArchivo::fallar(const QString &sentencia) const {
    throw Falla{0, fuenteDeArchivo, sentencia.arg(QDir::toNativeSeparators(archivo_)), {}};
}

void LectorDeArchivo::malaForma() const {
    fallar(u"El archivo %1 no tiene la forma esperada en su línea "_s + QString::number(numeroDeLinea_) +
           u"; pida que lo vuelvan a exportar."_s);
}

/// False behind the last line of a whole stream.
bool LectorDeArchivo::leerLinea() {
    qsizetype fin = pendiente_.indexOf('\n', hasta_);
    while (fin < 0) {
        pendiente_.remove(0, hasta_);
        hasta_ = 0;
        const qsizetype visto = pendiente_.size();
        const QByteArray mas = gzip_->leer();
        if (mas.isEmpty()) {
            if (gzip_->estado() == gzip::Estado::Entero && pendiente_.isEmpty()) return false;
            if (gzip_->estado() == gzip::Estado::Danado) fallar(danado);
            // A whole stream without one line of ours.
            fallar(gzip_->estado() == gzip::Estado::Entero && numeroDeLinea_ == 0 ? deOtroPrograma
                                                                                  : incompleto);
        }
        pendiente_ += mas;
        if (pendiente_.size() > lineaMayor) fallar(numeroDeLinea_ == 0 ? deOtroPrograma : danado);
        fin = pendiente_.indexOf('\n', visto);
    }
    linea_ = pendiente_.mid(hasta_, fin - hasta_);
    hasta_ = fin + 1;
    ++numeroDeLinea_;
    return true;
}

void LectorDeArchivo::leerCabeza() {
    // Two bytes that every stream of the kind begins with: a text, a page or a picture is told for what it
    // is.
    const QByteArray magia = f_.peek(2);
    if (!magia.isEmpty() && !QByteArray("\x1f\x8b").startsWith(magia)) fallar(deOtroPrograma);
    if (!leerLinea()) fallar(deOtroPrograma);
    const QJsonObject cabeza = QJsonDocument::fromJson(linea_).object();
    if (cabeza.value(u"formato"_s).toString() != formatoDeOperaciones) fallar(deOtroPrograma);
    const int version = cabeza.value(u"version"_s).toInt();
    if (version > versionDeFormato)
        fallar(u"El archivo %1 es de la versión "_s + QString::number(version) +
               u" del formato y este programa lee hasta la "_s + QString::number(versionDeFormato) +
               u"; actualice el programa."_s);
    operaciones_ = cabeza.value(u"operaciones"_s).toInt(-1);
    if (version < 1 || operaciones_ < 0) malaForma();
    suma_.addData(linea_ + '\n');
}

Registro LectorDeArchivo::Siguiente() {
    if (!leerLinea()) fallar(incompleto);
    if (linea_.startsWith('[')) {
        if (!enOperacion_ || tabla_.isEmpty()) malaForma();
        ++filas_;
        suma_.addData(linea_ + '\n');
        return Registro::Fila;
    }
    const QJsonDocument documento = QJsonDocument::fromJson(linea_);
    if (!documento.isObject()) malaForma();
    return registroDe(documento.object());
}

Registro LectorDeArchivo::registroDe(const QJsonObject &objeto) {
    if (objeto.contains("suma"_L1)) {
        comprobarSuma(objeto);
        return Registro::Termino;
    }
    suma_.addData(linea_ + '\n');
    if (objeto.contains("operacion"_L1)) {
        clave_ = objeto.value("operacion"_L1).toString();
        if (enOperacion_ || clave_.isEmpty()) malaForma();
        enOperacion_ = true;
        tabla_.clear();
        filas_ = 0;
        ++leidas_;
        return Registro::Operacion;
    }
    if (!enOperacion_) malaForma();
    if (objeto.contains("tabla"_L1)) {
        tabla_ = objeto.value("tabla"_L1).toString();
        columnas_.clear();
        const QJsonArray columnas = objeto.value("columnas"_L1).toArray();
        for (const auto &columna : columnas) columnas_ << columna.toString();
        if (tabla_.isEmpty() || columnas_.isEmpty()) malaForma();
        return Registro::Tabla;
    }
    if (objeto.value("fin"_L1).toString() != clave_ || objeto.value("filas"_L1).toInteger(-1) != filas_)
        malaForma();
    enOperacion_ = false;
    return Registro::FinDeOperacion;
}

void LectorDeArchivo::comprobarSuma(const QJsonObject &objeto) {
    if (objeto.value("suma"_L1).toString() != QString::fromLatin1(suma_.result().toHex())) fallar(danado);
    // Behind the checksum there is nothing, and the stream is whole.
    if (enOperacion_ || leidas_ != operaciones_ || leerLinea()) malaForma();
}

operacion::Fila LectorDeArchivo::fila() const {
    const QJsonArray valores = QJsonDocument::fromJson(linea_).array();
    if (valores.size() != columnas_.size()) malaForma();
    operacion::Fila fila;
    fila.reserve(static_cast<std::size_t>(valores.size()));
    for (const auto &valor : valores) {
        if (valor.isNull())
            fila.emplace_back();
        else if (valor.isDouble())
            fila.emplace_back(valor.toDouble());
        else if (valor.isString())
            fila.emplace_back(valor.toString());
        else
            malaForma();
    }
    return fila;
}

}  // namespace intercambio
