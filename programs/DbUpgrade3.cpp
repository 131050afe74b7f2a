// Makes the stores of a profile, brings older ones up, and loads tables into them.

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QStandardPaths>
#include <QTextStream>
#include <QUuid>

#include "siblings/StoreProfiles.h"
#include "upgrade/upgrade.h"

namespace {

enum Salida { bien = 0, fallo = 1, malLlamado = 2 };

QTextStream &salida() {
    static QTextStream s(stdout);
    return s;
}
QTextStream &errores() {
    static QTextStream s(stderr);
    return s;
}

int malUso(const QString &texto) {
    errores() << texto << Qt::endl;
    return malLlamado;
}
int falla(const QString &texto) {
    errores() << texto << Qt::endl;
    return fallo;
}

/// What is being done and how far, four times a second at most: short work says nothing.
void mostrarProgreso(const QString &que, qint64 hecho, qint64 total) {
    constexpr int pausa = 250;
    static QElapsedTimer reloj = [] {
        QElapsedTimer r;
        r.start();
        return r;
    }();
    if (reloj.elapsed() < pausa) return;
    reloj.restart();
    salida() << (total > 0 ? QStringLiteral("  %1 (%2 %)").arg(que).arg(hecho * 100 / total)
                           : QStringLiteral("  ") + que)
             << Qt::endl;
}

struct Servidor {
    QString host;
    int puerto = 0;
    QString base;
    QString usuario;
};

/// Makes the base when the server has none of that name; an empty text, or what is wrong.
QString crearBase(const Servidor &s) {
    const QString conexion = QUuid::createUuid().toString(QUuid::WithoutBraces);
    QString error;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QPSQL"), conexion);
        db.setHostName(s.host);
        db.setPort(s.puerto);
        db.setUserName(s.usuario);
        db.setDatabaseName(QStringLiteral("postgres"));
        if (!db.open()) {
            error =
                QStringLiteral(
                    "No se puede conectar con el servidor %1:%2 (%3). Verifique que esté encendido y que el "
                    "usuario sea correcto.")
                    .arg(s.host)
                    .arg(s.puerto)
                    .arg(db.lastError().databaseText().simplified());
        } else {
            QSqlQuery q(db);
            q.prepare(QStringLiteral("select 1 from pg_database where datname = ?"));
            q.addBindValue(s.base);
            QString nombre = s.base;
            nombre.replace(QLatin1Char('"'), QLatin1String("\"\""));
            if (q.exec() && !q.next()) {
                const QString crear =
                    QStringLiteral("create database \"%1\" template template0 encoding 'UTF8'").arg(nombre);
                // The order by code point of the file store, where the server's system knows it.
                if (!q.exec(crear + QStringLiteral(" lc_collate 'C.UTF-8' lc_ctype 'C.UTF-8'")) &&
                    !q.exec(crear))
                    error =
                        QStringLiteral(
                            "No se puede crear la base %1 (%2). Pida a quien administra el servidor que la "
                            "cree.")
                            .arg(s.base, q.lastError().databaseText().simplified());
            }
        }
        db.close();
    }
    QSqlDatabase::removeDatabase(conexion);
    return error;
}

/// Tells what a load did; the number of rows it did not understand does not make it a failure.
int contar(const QString &archivo, const actualizacion::ResultadoCsv &r) {
    for (const QString &aviso : r.avisos)
        salida() << QStringLiteral("  %1, %2").arg(archivo, aviso) << Qt::endl;
    if (!r.ok) return falla(r.error);
    salida() << QStringLiteral("%1: %2 filas cargadas, %3 avisos.")
                    .arg(archivo)
                    .arg(r.cargadas)
                    .arg(r.avisos.size())
             << Qt::endl;
    return bien;
}

}  // namespace

int main(int argc, char **argv) {
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("DbUpgrade3"));

    QCommandLineParser args;
    args.setApplicationDescription(
        QStringLiteral("Crea los stores de un perfil, los lleva a la versión %1 y carga tablas en ellos.")
            .arg(actualizacion::versionDelStore));
    const QCommandLineOption ayuda({QStringLiteral("h"), QStringLiteral("help"), QStringLiteral("ayuda")},
                                   QStringLiteral("Muestra esta ayuda."));
    const QCommandLineOption perfil(QStringLiteral("perfil"),
                                    QStringLiteral("El perfil; sin él, el único que haya."),
                                    QStringLiteral("ARCHIVO"));
    const QCommandLineOption archivos(
        QStringLiteral("crear-archivos"),
        QStringLiteral("Escribe antes un perfil de stores de archivo en esa carpeta."),
        QStringLiteral("CARPETA"));
    const QCommandLineOption enServidor(
        QStringLiteral("crear-servidor"),
        QStringLiteral("Escribe antes un perfil de servidor: host,puerto,base,usuario."),
        QStringLiteral("DATOS"));
    const QCommandLineOption demostracion(
        QStringLiteral("demostracion"),
        QStringLiteral("Carga los datos de demostración en las tablas vacías."));
    const QCommandLineOption cargar(QStringLiteral("cargar"),
                                    QStringLiteral("Carga un CSV con encabezado en una tabla."),
                                    QStringLiteral("TABLA=ARCHIVO"));
    const QCommandLineOption nomenclador(QStringLiteral("nomenclador"),
                                         QStringLiteral("Carga un nomenclador en CSV con encabezado."),
                                         QStringLiteral("ARCHIVO"));
    const QCommandLineOption unidad(QStringLiteral("unidad"),
                                    QStringLiteral("Unidad estadística para lo que el nomenclador no diga."),
                                    QStringLiteral("CODIGO"));
    const QCommandLineOption reemplazar(QStringLiteral("reemplazar"),
                                        QStringLiteral("Vacía cada tabla antes de cargarla."));
    args.addOptions(
        {ayuda, perfil, archivos, enServidor, demostracion, cargar, nomenclador, unidad, reemplazar});
    if (!args.parse(QCoreApplication::arguments())) {
        const QStringList desconocidas = args.unknownOptionNames();
        return malUso(desconocidas.isEmpty()
                          ? QStringLiteral("A una opción le falta su valor; vea DbUpgrade3 --ayuda.")
                          : QStringLiteral("No se conoce la opción \"%1\"; vea DbUpgrade3 --ayuda.")
                                .arg(desconocidas.front()));
    }
    if (args.isSet(ayuda)) {
        // Qt's own words around the options.
        salida() << args.helpText()
                        .replace(QStringLiteral("Usage:"), QStringLiteral("Uso:"))
                        .replace(QStringLiteral("[options]"), QStringLiteral("[opciones]"))
                        .replace(QStringLiteral("Options:"), QStringLiteral("Opciones:"))
                 << Qt::endl;
        return bien;
    }
    if (!args.positionalArguments().isEmpty())
        return malUso(QStringLiteral("No se entiende \"%1\"; vea DbUpgrade3 --ayuda.")
                          .arg(args.positionalArguments().front()));
    if (args.isSet(archivos) && args.isSet(enServidor))
        return malUso(QStringLiteral("--crear-archivos y --crear-servidor no van juntos; elija uno."));
    if (args.isSet(unidad) && !args.isSet(nomenclador))
        return malUso(QStringLiteral("--unidad sólo sirve con --nomenclador."));
    for (const QString &par : args.values(cargar))
        if (par.indexOf(QLatin1Char('=')) <= 0)
            return malUso(QStringLiteral("\"%1\" no sirve; --cargar lleva TABLA=ARCHIVO.").arg(par));

    QString ruta = args.value(perfil);
    if (args.isSet(archivos)) {
        const QString carpeta = QDir(args.value(archivos)).absolutePath();
        if (ruta.isEmpty()) ruta = carpeta + QStringLiteral("/zendra.perfil.ini");
        if (!QDir().mkpath(carpeta) ||
            !StoreProfiles::escribirPerfilDeArchivos(ruta, QStringLiteral("Local"), carpeta))
            return falla(
                QStringLiteral("No se puede escribir el perfil %1; revise los permisos de su carpeta.")
                    .arg(ruta));
        salida() << QStringLiteral("Perfil: %1").arg(ruta) << Qt::endl;
    } else if (args.isSet(enServidor)) {
        const QStringList datos = args.value(enServidor).split(QLatin1Char(','));
        bool numero = false;
        const Servidor s{datos.value(0).trimmed(), datos.value(1).trimmed().toInt(&numero),
                         datos.value(2).trimmed(), datos.value(3).trimmed()};
        if (datos.size() != 4 || !numero || s.host.isEmpty() || s.base.isEmpty() || s.usuario.isEmpty())
            return malUso(QStringLiteral("--crear-servidor lleva host,puerto,base,usuario."));
        const QString local = QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
        if (ruta.isEmpty()) ruta = local + QStringLiteral("/servidor.perfil.ini");
        const QString carpeta = QFileInfo(ruta).absolutePath();
        if (const QString error = crearBase(s); !error.isEmpty()) return falla(error);
        if (!QDir().mkpath(carpeta) ||
            !StoreProfiles::escribirPerfilDeServidor(ruta, QStringLiteral("Servidor"), s.host, s.puerto,
                                                     s.base, s.usuario, carpeta))
            return falla(
                QStringLiteral("No se puede escribir el perfil %1; revise los permisos de su carpeta.")
                    .arg(ruta));
        salida() << QStringLiteral("Perfil: %1").arg(ruta) << Qt::endl;
    } else if (ruta.isEmpty()) {
        StoreProfiles::SPMain manager;
        manager.elegir = [](const std::vector<PerfilEncontrado> &) { return -1; };
        ruta = manager.seleccionarPerfil(QStringLiteral("Zendra"));
        if (ruta.isEmpty()) return malUso(QStringLiteral("Hay varios perfiles; indique uno con --perfil."));
        salida() << QStringLiteral("Perfil: %1").arg(ruta) << Qt::endl;
    }

    const actualizacion::Resultado hecho = actualizacion::Actualizar(ruta, mostrarProgreso);
    if (!hecho.ok) return falla(hecho.error);
    for (const QString &cambio : hecho.cambios) salida() << cambio << Qt::endl;
    salida() << (hecho.cambios.isEmpty() ? QStringLiteral("Los stores ya estaban en la versión %1.")
                                         : QStringLiteral("Los stores están en la versión %1."))
                    .arg(actualizacion::versionDelStore)
             << Qt::endl;

    if (args.isSet(demostracion)) {
        const actualizacion::Resultado demo = actualizacion::CargarDemostracion(ruta, {});
        if (!demo.ok) return falla(demo.error);
        for (const QString &cambio : demo.cambios) salida() << cambio << Qt::endl;
        salida() << QStringLiteral("Datos de demostración cargados.") << Qt::endl;
    }
    int estado = bien;
    for (const QString &par : args.values(cargar)) {
        const qsizetype igual = par.indexOf(QLatin1Char('='));
        const QString archivo = par.mid(igual + 1);
        estado = std::max(
            estado, contar(archivo, actualizacion::CargarCsv(ruta, par.left(igual), archivo,
                                                             args.isSet(reemplazar), {}, mostrarProgreso)));
    }
    if (args.isSet(nomenclador)) {
        const QString archivo = args.value(nomenclador);
        estado = std::max(estado, contar(archivo, actualizacion::CargarNomenclador(
                                                      ruta, archivo, args.value(unidad), mostrarProgreso)));
    }
    return estado;
}
