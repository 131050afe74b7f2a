#include "upgrade/volcado.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStandardPaths>
#include <algorithm>

#include "frame/store/connectwords.h"
#include "upgrade/almacen.h"

using namespace Qt::StringLiterals;

using actualizacion::Detener;

namespace volcado {

namespace {

/// The program's path; the newest where the distribution keeps one for each version of the server.
QString buscar(const QString &programa) {
    if (QString enCamino = QStandardPaths::findExecutable(programa); !enCamino.isEmpty()) return enCamino;
    const QDir versiones(u"/usr/lib/postgresql"_s);
    QStringList carpetas = versiones.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    std::sort(carpetas.begin(), carpetas.end(),
              [](const QString &a, const QString &b) { return a.toInt() > b.toInt(); });
    for (const QString &carpeta : carpetas) {
        QString ruta = versiones.filePath(carpeta + "/bin/"_L1 + programa);
        if (QFileInfo(ruta).isExecutable()) return ruta;
    }
    Detener(
        u"No se encuentra %1, el programa del servidor que hace falta; instale los programas de cliente de "
        "PostgreSQL."_s.arg(programa));
}

void correr(const Conexion::Datos &datos, const QString &programa, const QStringList &argumentos,
            const QString &queHace) {
    QProcess p;
    QProcessEnvironment entorno = QProcessEnvironment::systemEnvironment();
    // Not among the arguments, which a list of processes shows.
    if (!datos.clave.isEmpty()) entorno.insert(u"PGPASSWORD"_s, datos.clave);
    // Its complaints go into our sentences as they are.
    entorno.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
    p.setProcessEnvironment(entorno);
    p.start(buscar(programa),
            QStringList{u"--no-password"_s, u"--dbname"_s, motores::textoDeConexion(datos)} + argumentos);
    constexpr int sinLimite = -1;
    const bool termino = p.waitForFinished(sinLimite);
    const QString queja = QString::fromUtf8(p.readAllStandardError()).simplified();
    if (!termino || p.exitStatus() != QProcess::NormalExit || p.exitCode() != 0)
        Detener(u"El servidor no pudo %1 la base %2 (%3)."_s.arg(queHace, datos.base, queja));
}

}  // namespace

void Volcar(const Conexion::Datos &datos, const QStringList &esquemas, const QString &archivo) {
    // It compresses by itself what goes; the archive around it finds nothing more to gain.
    QStringList argumentos{u"--format=custom"_s, u"--no-owner"_s, u"--no-privileges"_s, u"--file"_s, archivo};
    for (const QString &esquema : esquemas)
        argumentos << u"--schema"_s << u'"' + QString(esquema).replace(u'"', "\"\""_L1) + u'"';
    correr(datos, u"pg_dump"_s, argumentos, u"respaldar"_s);
}

void Reponer(const Conexion::Datos &datos, const QString &archivo) {
    correr(datos, u"pg_restore"_s,
           {u"--no-owner"_s, u"--no-privileges"_s, u"--exit-on-error"_s, u"--single-transaction"_s, archivo},
           u"restaurar"_s);
}

}  // namespace volcado
