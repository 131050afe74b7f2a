#include "frame/paper/replace.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <QStorageInfo>

using namespace Qt::StringLiterals;

namespace papel {

namespace {

constexpr qint64 espacioEscaso = 1 << 20;  ///< bytes

/// Why a file could not be opened, told by what is there.
QString porqueNoSeAbre(const QFileInfo &archivo, const QString &delSistema) {
    const QFileInfo carpeta(archivo.absolutePath());
    const QString ruta = QDir::toNativeSeparators(carpeta.filePath());
    if (!carpeta.isDir()) return u"la carpeta %1 no existe; elija otra"_s.arg(ruta);
    if (archivo.exists() && !archivo.isWritable())
        return u"el archivo no admite cambios; elija otro nombre o revise sus permisos"_s;
    if (!carpeta.isWritable())
        return u"no tiene permiso para escribir en la carpeta %1; elija otra"_s.arg(ruta);
    return u"el sistema no lo permite (%1); elija otra carpeta"_s.arg(delSistema);
}

QString porqueNoSeTermina(const QFileInfo &archivo, const QString &delSistema) {
    const QStorageInfo disco(archivo.absolutePath());
    if (disco.isValid() && disco.bytesAvailable() < espacioEscaso)
        return u"el disco está lleno; libere espacio o elija otra carpeta"_s;
    return u"no se pudo terminar de escribir (%1); revise el disco o elija otra carpeta"_s.arg(delSistema);
}

}  // namespace

QString NoSeEscribio(const QString &archivo, const QString &porque) {
    return u"No se escribió %1: %2."_s.arg(QDir::toNativeSeparators(archivo), porque);
}

QString ReemplazarArchivo(const QString &archivo, const std::function<QString(QIODevice &)> &escribir) {
    if (archivo.trimmed().isEmpty()) return u"Indique el archivo donde se escribe."_s;
    const QFileInfo donde(archivo);
    if (donde.isDir()) return NoSeEscribio(archivo, u"es una carpeta; elija un archivo"_s);
    QSaveFile destino(archivo);
    // Without this a folder that takes no new file would have the old one overwritten in place.
    destino.setDirectWriteFallback(false);
    if (!destino.open(QIODevice::WriteOnly))
        return NoSeEscribio(archivo, porqueNoSeAbre(donde, destino.errorString()));
    const QString porque = escribir(destino);
    if (!porque.isEmpty()) {
        destino.cancelWriting();
        return NoSeEscribio(archivo, porque);
    }
    // A write that failed is kept until here.
    if (!destino.commit()) return NoSeEscribio(archivo, porqueNoSeTermina(donde, destino.errorString()));
    return {};
}

QString ReemplazarArchivo(const QString &archivo, const QByteArray &bytes) {
    return ReemplazarArchivo(archivo, [&bytes](QIODevice &destino) {
        return destino.write(bytes) == bytes.size() ? QString() : destino.errorString();
    });
}

}  // namespace papel
