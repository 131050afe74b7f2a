#include "frame/files.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <algorithm>

#include "frame/context.h"
#include "frame/entities.h"

using namespace Qt::StringLiterals;

namespace {

const QString claveDeLaCarpeta = u"CARPETA"_s;

/// What one system or another cannot have in the name of a file.
bool vedadoEnNombres(QChar letra) {
    return letra < u' ' || u"/\\:*?\"<>|"_s.contains(letra);
}

}  // namespace

QString NombreSeguro(const QString &texto) {
    QString nombre = texto;
    std::replace_if(nombre.begin(), nombre.end(), vedadoEnNombres, u'_');
    // A blank or a point at the end is dropped by some systems, and ahead it hides the file on others.
    while (nombre.endsWith(u' ') || nombre.endsWith(u'.')) nombre.chop(1);
    if (nombre.startsWith(u'.') || nombre.isEmpty()) nombre.prepend(u'_');
    return nombre;
}

QString CarpetaDeArchivos(const AppContext &ctx, const QString &seccion) {
    QString guardada = ctx.ajustes.Leer(ajuste::zendra, seccion, claveDeLaCarpeta);
    if (!guardada.isEmpty() && QFileInfo(guardada).isDir()) return guardada;
    return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
}

void RecordarCarpeta(AppContext &ctx, const QString &seccion, const QString &archivo) {
    ctx.ajustes.Guardar(ajuste::zendra, seccion, claveDeLaCarpeta, QFileInfo(archivo).absolutePath());
}

bool PuedeReemplazarse(const AppContext &ctx, const QString &archivo, const QString &titulo) {
    return !QFileInfo(archivo).isFile() ||
           ctx.dialogos.preguntar(
               {u"El archivo %1 ya existe, ¿desea reemplazarlo?"_s.arg(QDir::toNativeSeparators(archivo)),
                titulo, Icono::Pregunta, true});
}
