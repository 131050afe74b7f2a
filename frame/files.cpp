#include "frame/files.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <algorithm>

#include "frame/base/texts.h"
#include "frame/context.h"
#include "frame/entities.h"

using namespace Qt::StringLiterals;

namespace {

const QString claveDeLaCarpeta = u"CARPETA"_s;

/// What one system or another cannot have in the name of a file, and what nobody would see there: "fdp.exe"
/// behind a mark that turns the direction reads "exe.pdf".
bool vedadoEnNombres(QChar letra) {
    return (!letra.isPrint() && !letra.isSurrogate()) || letra == QChar::LineSeparator ||
           letra == QChar::ParagraphSeparator || u"/\\:*?\"<>|"_s.contains(letra);
}

/// Room for the end that the caller puts behind, among the 255 bytes that systems have for a name.
constexpr qsizetype bytesDeNombre = 200;

}  // namespace

QString NombreSeguro(const QString &texto) {
    QString nombre = Recortado(texto, bytesDeNombre);
    while (nombre.toUtf8().size() > bytesDeNombre) nombre = Recortado(nombre, nombre.size() - 1);
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
