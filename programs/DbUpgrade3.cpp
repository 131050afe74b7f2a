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

#include "frame/store/StoreProfiles.h"
#include "upgrade/upgrade.h"

using namespace Qt::StringLiterals;

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
    salida() << (total > 0 ? u"  %1 (%2 %)"_s.arg(que).arg(hecho * 100 / total) : u"  "_s + que) << Qt::endl;
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
        QSqlDatabase db = QSqlDatabase::addDatabase(u"QPSQL"_s, conexion);
        db.setHostName(s.host);
        db.setPort(s.puerto);
        db.setUserName(s.usuario);
        db.setDatabaseName(u"postgres"_s);
        if (!db.open()) {
            error =
                u"No se puede conectar con el servidor %1:%2 (%3). Verifique que esté encendido y que el "
                "usuario sea correcto."_s.arg(s.host)
                    .arg(s.puerto)
                    .arg(db.lastError().databaseText().simplified());
        } else {
            QSqlQuery q(db);
            q.prepare(u"select 1 from pg_database where datname = ?"_s);
            q.addBindValue(s.base);
            QString nombre = s.base;
            nombre.replace(QLatin1Char('"'), "\"\""_L1);
            if (q.exec() && !q.next()) {
                const QString crear =
                    u"create database \"%1\" template template0 encoding 'UTF8'"_s.arg(nombre);
                // The order by code point of the file store, where the server's system knows it.
                if (!q.exec(crear + u" lc_collate 'C.UTF-8' lc_ctype 'C.UTF-8'"_s) && !q.exec(crear))
                    error =
                        u"No se puede crear la base %1 (%2). Pida a quien administra el servidor que la "
                        "cree."_s.arg(s.base, q.lastError().databaseText().simplified());
            }
        }
        db.close();
    }
    QSqlDatabase::removeDatabase(conexion);
    return error;
}

/// Tells what a load did; the number of rows it did not understand does not make it a failure.
int contar(const QString &archivo, const actualizacion::ResultadoCsv &r) {
    for (const QString &aviso : r.avisos) salida() << u"  %1, %2"_s.arg(archivo, aviso) << Qt::endl;
    if (!r.ok) return falla(r.error);
    salida() << u"%1: %2 filas cargadas, %3 avisos."_s.arg(archivo).arg(r.cargadas).arg(r.avisos.size())
             << Qt::endl;
    return bien;
}

}  // namespace

int main(int argc, char **argv) {
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(u"DbUpgrade3"_s);

    QCommandLineParser args;
    args.setApplicationDescription(
        u"Crea los stores de un perfil, los lleva a la versión %1 y carga tablas en ellos."_s.arg(
            actualizacion::versionDelStore));
    const QCommandLineOption ayuda({u"h"_s, u"help"_s, u"ayuda"_s}, u"Muestra esta ayuda."_s);
    const QCommandLineOption perfil(u"perfil"_s, u"El perfil; sin él, el único que haya."_s, u"ARCHIVO"_s);
    const QCommandLineOption archivos(
        u"crear-archivos"_s, u"Escribe antes un perfil de stores de archivo en esa carpeta."_s, u"CARPETA"_s);
    const QCommandLineOption enServidor(
        u"crear-servidor"_s, u"Escribe antes un perfil de servidor: host,puerto,base,usuario."_s, u"DATOS"_s);
    const QCommandLineOption demostracion(u"demostracion"_s,
                                          u"Carga los datos de demostración en las tablas vacías."_s);
    const QCommandLineOption cargar(u"cargar"_s, u"Carga un CSV con encabezado en una tabla."_s,
                                    u"TABLA=ARCHIVO"_s);
    const QCommandLineOption nomenclador(u"nomenclador"_s, u"Carga un nomenclador en CSV con encabezado."_s,
                                         u"ARCHIVO"_s);
    const QCommandLineOption unidad(u"unidad"_s, u"Unidad estadística para lo que el nomenclador no diga."_s,
                                    u"CODIGO"_s);
    const QCommandLineOption reemplazar(u"reemplazar"_s, u"Vacía cada tabla antes de cargarla."_s);
    args.addOptions(
        {ayuda, perfil, archivos, enServidor, demostracion, cargar, nomenclador, unidad, reemplazar});
    if (!args.parse(QCoreApplication::arguments())) {
        const QStringList desconocidas = args.unknownOptionNames();
        return malUso(
            desconocidas.isEmpty()
                ? u"A una opción le falta su valor; vea DbUpgrade3 --ayuda."_s
                : u"No se conoce la opción \"%1\"; vea DbUpgrade3 --ayuda."_s.arg(desconocidas.front()));
    }
    if (args.isSet(ayuda)) {
        // Qt's own words around the options.
        salida() << args.helpText()
                        .replace(u"Usage:"_s, u"Uso:"_s)
                        .replace(u"[options]"_s, u"[opciones]"_s)
                        .replace(u"Options:"_s, u"Opciones:"_s)
                 << Qt::endl;
        return bien;
    }
    if (!args.positionalArguments().isEmpty())
        return malUso(
            u"No se entiende \"%1\"; vea DbUpgrade3 --ayuda."_s.arg(args.positionalArguments().front()));
    if (args.isSet(archivos) && args.isSet(enServidor))
        return malUso(u"--crear-archivos y --crear-servidor no van juntos; elija uno."_s);
    if (args.isSet(unidad) && !args.isSet(nomenclador))
        return malUso(u"--unidad sólo sirve con --nomenclador."_s);
    for (const QString &par : args.values(cargar))
        if (par.indexOf(QLatin1Char('=')) <= 0)
            return malUso(u"\"%1\" no sirve; --cargar lleva TABLA=ARCHIVO."_s.arg(par));

    QString ruta = args.value(perfil);
    if (args.isSet(archivos)) {
        const QString carpeta = QDir(args.value(archivos)).absolutePath();
        if (ruta.isEmpty()) ruta = carpeta + u"/zendra.perfil.ini"_s;
        if (!QDir().mkpath(carpeta) || !StoreProfiles::escribirPerfilDeArchivos(ruta, u"Local"_s, carpeta))
            return falla(
                u"No se puede escribir el perfil %1; revise los permisos de su carpeta."_s.arg(ruta));
        salida() << u"Perfil: %1"_s.arg(ruta) << Qt::endl;
    } else if (args.isSet(enServidor)) {
        const QStringList datos = args.value(enServidor).split(QLatin1Char(','));
        bool numero = false;
        const Servidor s{datos.value(0).trimmed(), datos.value(1).trimmed().toInt(&numero),
                         datos.value(2).trimmed(), datos.value(3).trimmed()};
        if (datos.size() != 4 || !numero || s.host.isEmpty() || s.base.isEmpty() || s.usuario.isEmpty())
            return malUso(u"--crear-servidor lleva host,puerto,base,usuario."_s);
        const QString local = QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation);
        if (ruta.isEmpty()) ruta = local + u"/servidor.perfil.ini"_s;
        const QString carpeta = QFileInfo(ruta).absolutePath();
        if (const QString error = crearBase(s); !error.isEmpty()) return falla(error);
        if (!QDir().mkpath(carpeta) || !StoreProfiles::escribirPerfilDeServidor(
                                           ruta, u"Servidor"_s, s.host, s.puerto, s.base, s.usuario, carpeta))
            return falla(
                u"No se puede escribir el perfil %1; revise los permisos de su carpeta."_s.arg(ruta));
        salida() << u"Perfil: %1"_s.arg(ruta) << Qt::endl;
    } else if (ruta.isEmpty()) {
        StoreProfiles::SPMain manager;
        manager.elegir = [](const std::vector<PerfilEncontrado> &) { return -1; };
        ruta = manager.seleccionarPerfil(u"Zendra"_s);
        if (ruta.isEmpty()) return malUso(u"Hay varios perfiles; indique uno con --perfil."_s);
        salida() << u"Perfil: %1"_s.arg(ruta) << Qt::endl;
    }

    const actualizacion::Resultado hecho = actualizacion::Actualizar(ruta, mostrarProgreso);
    if (!hecho.ok) return falla(hecho.error);
    for (const QString &cambio : hecho.cambios) salida() << cambio << Qt::endl;
    salida() << (hecho.cambios.isEmpty() ? u"Los stores ya estaban en la versión %1."_s
                                         : u"Los stores están en la versión %1."_s)
                    .arg(actualizacion::versionDelStore)
             << Qt::endl;

    if (args.isSet(demostracion)) {
        const actualizacion::Resultado demo = actualizacion::CargarDemostracion(ruta, {});
        if (!demo.ok) return falla(demo.error);
        for (const QString &cambio : demo.cambios) salida() << cambio << Qt::endl;
        salida() << u"Datos de demostración cargados."_s << Qt::endl;
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
