#include "upgrade/upgrade.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>
#include <QVariant>
#include <algorithm>

#include "upgrade/almacen.h"
#include "upgrade/roles.h"
#include "upgrade/schema.h"
#include "upgrade/servidor.h"
#include "upgrade/tablas.h"

using namespace Qt::StringLiterals;

namespace actualizacion {

namespace {

using esquema::Tabla;

const QString filaDeVersion = u"version"_s;
const QString filaDeFunciones = u"funciones"_s;

/// What goes along the whole upgrade.
struct Marcha {
    Resultado &resultado;
    const Progreso &progreso;
    qint64 hecho = 0;
    qint64 total = 0;

    void cambio(const QString &texto) const { resultado.cambios << texto; }
    void paso(const QString &que) {
        if (progreso) progreso(que, hecho, total);
        ++hecho;
    }
};

void revisarVersion(const QStringList &filas, const QString &donde) {
    for (const QString &valor : filas) {
        bool numero = false;
        const int version = valor.trimmed().toInt(&numero);
        if (numero && version > versionDelStore)
            Detener(
                u"El store %1 es de la versión %2, más nueva que la %3 de este programa; instale "
                "el programa que corresponde a ese store."_s.arg(donde, QString::number(version),
                                                                 QString::number(versionDelStore)));
    }
}

/// Refuses a file that is no store or a store of a newer version, before anything is touched.
void revisarArchivo(const QString &archivo) {
    const QFileInfo info(archivo);
    if (!info.exists() || (info.isFile() && info.size() == 0)) return;
    QFile f(archivo);
    if (!info.isFile() || !f.open(QIODevice::ReadOnly))
        Detener(u"No se puede leer el archivo %1; revise los permisos o quítelo del perfil."_s.arg(archivo));
    if (!f.read(16).startsWith("SQLite format 3"))
        Detener(
            u"El archivo %1 no es un store de este programa; reemplácelo por una copia sana o "
            "quítelo para que se cree uno nuevo."_s.arg(archivo));
    f.close();
    const QString conexion = QUuid::createUuid().toString(QUuid::WithoutBraces);
    QStringList versiones;
    QString error;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(u"QSQLITE"_s, conexion);
        db.setDatabaseName(archivo);
        db.setConnectOptions(u"QSQLITE_BUSY_TIMEOUT=5000"_s);
        if (!db.open()) error = db.lastError().databaseText();
        QSqlQuery consulta(db);
        // The text collation is not registered here, so names are compared outside the store.
        if (error.isEmpty() && !consulta.exec(u"select name from sqlite_master"_s))
            error = consulta.lastError().databaseText();
        if (error.isEmpty() && consulta.exec(u"select propiedad, valor from version"_s))
            while (consulta.next())
                if (consulta.value(0).toString().compare(filaDeVersion, Qt::CaseInsensitive) == 0)
                    versiones << consulta.value(1).toString();
        db.close();
    }
    QSqlDatabase::removeDatabase(conexion);
    if (!error.isEmpty())
        Detener(
            u"El archivo %1 no se puede leer como store (%2); reemplácelo por una copia sana o quítelo "
            "para que se cree uno nuevo."_s.arg(archivo, error.simplified()));
    revisarVersion(versiones, archivo);
}

void revisarServidor(const Almacen &almacen, const Conexion::Datos &datos) {
    if (!almacen.tablas(datos.esquema).contains("version"_L1)) return;
    const QString versiones =
        u"select valor::text "
        "from %1 "
        "where lower(propiedad::text) = 'version'"_s.arg(almacen.nombreDe(datos.esquema, filaDeVersion));
    revisarVersion(almacen.lista(versiones),
                   u"%1:%2/%3"_s.arg(datos.host, QString::number(datos.puerto), datos.base));
}

/// One upgrade of a folder of files at a time: the second waits, and finds everything done. A fresh file
/// changes its journal when it is first opened, and two that do so at once refuse each other.
std::unique_ptr<QLockFile> tomarTurno(const QString &archivo) {
    QDir().mkpath(QFileInfo(archivo).absolutePath());
    auto turno = std::make_unique<QLockFile>(archivo + u".actualizando"_s);
    constexpr int paciencia = 120000;
    turno->setStaleLockTime(0);
    // A folder that takes no lock file is told by what is done in it.
    if (!turno->tryLock(paciencia) && turno->error() == QLockFile::LockFailedError)
        Detener(u"Otra actualización de %1 está en marcha; espere a que termine y vuelva a intentarlo."_s.arg(
            archivo));
    return turno;
}

void crearArchivo(const QString &archivo, Marcha &m) {
    const QFileInfo info(archivo);
    if (info.exists()) return;
    if (!QDir().mkpath(info.absolutePath()))
        Detener(u"No se puede crear la carpeta %1; elija otra en el perfil o revise los permisos."_s.arg(
            info.absolutePath()));
    QFile f(archivo);
    if (!f.open(QIODevice::WriteOnly))
        Detener(u"No se puede crear el archivo %1; revise los permisos de su carpeta."_s.arg(archivo));
    m.cambio(u"se creó el archivo %1"_s.arg(archivo));
}

void ponerEntidad(const Almacen &a, const QString &entidad, const QString &esquemaDe, Marcha &m) {
    const QStringList tablas = a.tablas(esquemaDe);
    for (const Tabla &t : esquema::tablas()) {
        if (t.entidad != entidad) continue;
        m.paso(u"%1: %2"_s.arg(entidad, t.nombre));
        if (tablas.contains(t.nombre)) {
            completarTabla(a, esquemaDe, t, m.resultado.cambios);
        } else {
            crearTabla(a, esquemaDe, t);
            m.cambio(u"%1: se creó la tabla %2"_s.arg(entidad, t.nombre));
        }
    }
    const QStringList indices = a.indices(esquemaDe);
    for (const Tabla &t : esquema::tablas())
        if (t.entidad == entidad) ponerIndices(a, esquemaDe, t, indices, m.resultado.cambios);
    ponerProporciones(a, entidad, m.resultado.cambios);
}

/// Sets one row of `version`; true when it was not so already.
bool ponerPropiedad(const Almacen &a, const QString &esquemaDe, const QString &propiedad,
                    const QString &valor) {
    const QString tabla = a.nombreDe(esquemaDe, u"version"_s);
    const QString donde = u"lower(propiedad) = '%1'"_s.arg(propiedad);
    const QStringList hay = a.lista(u"select valor from %1 where %2"_s.arg(tabla, donde));
    if (!hay.isEmpty() && std::all_of(hay.begin(), hay.end(), [&](const QString &v) { return v == valor; }))
        return false;
    if (hay.isEmpty())
        a.ejecutar(u"insert into %1 (propiedad, valor) values ('%2', '%3')"_s.arg(tabla, propiedad, valor));
    else
        a.ejecutar(u"update %1 set valor = '%2' where %3"_s.arg(tabla, valor, donde));
    return true;
}

void ponerVersion(const Almacen &a, const QString &esquemaDe, Marcha &m) {
    if (ponerPropiedad(a, esquemaDe, filaDeVersion, QString::number(versionDelStore)))
        m.cambio(u"el store está en la versión %1"_s.arg(versionDelStore));
}

void ponerFunciones(const Almacen &a, const QString &esquemaDe, Marcha &m) {
    const QString donde = Almacen::comillas(esquemaDe);
    if (!ponerPropiedad(a, esquemaDe, filaDeFunciones, servidor::Huella(donde, a.tipoTexto()))) return;
    m.paso(u"Funciones del servidor"_s);
    for (const QString &sentencia : servidor::Sentencias(donde, a.tipoTexto())) a.ejecutar(sentencia);
    m.cambio(u"se crearon las funciones del servidor"_s);
}

/// All or nothing: what `cambios` tells is what stays.
template <typename Trabajo>
void enTransaccion(const Almacen &a, Marcha &m, Trabajo trabajo) {
    const QStringList antes = m.resultado.cambios;
    a.comenzar();
    try {
        trabajo();
        a.confirmar();
    } catch (...) {
        a.deshacer();
        m.resultado.cambios = antes;
        throw;
    }
}

QStringList nombresDe(const std::vector<const Conexion::Datos *> &esquemas) {
    QStringList nombres;
    for (const Conexion::Datos *datos : esquemas) nombres << datos->esquema;
    nombres.removeDuplicates();
    return nombres;
}

void actualizarTodo(const QString &ruta, StoreProfiles::SPMain &manager, Marcha &m) {
    leerPerfil(manager, ruta);
    std::vector<const Conexion::Datos *> archivos;
    std::vector<const Conexion::Datos *> esquemas;
    for (const QString &entidad : StoreProfiles::entidades()) {
        const Conexion::Datos *datos = manager.datos(entidad);
        if (datos == nullptr) continue;
        (datos->motor == &motores::servidor() ? esquemas : archivos).push_back(datos);
        m.total += esquema::tablasDe(entidad).size();
    }

    std::unique_ptr<QLockFile> turno;
    if (!archivos.empty()) turno = tomarTurno(archivos.front()->archivo);

    // First look, then touch: a refused store leaves every other as it was.
    for (const Conexion::Datos *datos : archivos) revisarArchivo(datos->archivo);
    std::unique_ptr<Almacen> servidorUnico;
    if (!esquemas.empty()) {
        servidorUnico = std::make_unique<Almacen>(*esquemas.front(), manager);
        for (const Conexion::Datos *datos : esquemas) {
            if (datos->host != esquemas.front()->host || datos->puerto != esquemas.front()->puerto ||
                datos->base != esquemas.front()->base)
                Detener(
                    u"El perfil %1 reparte las entidades entre dos bases (%2 y %3); todas las del "
                    "servidor deben estar en la misma base, una por esquema."_s.arg(
                        ruta, esquemas.front()->base, datos->base));
            revisarServidor(*servidorUnico, *datos);
        }
    }

    for (const Conexion::Datos *datos : archivos) crearArchivo(datos->archivo, m);
    manager.LoadParameters();

    if (servidorUnico) {
        Almacen &a = *servidorUnico;
        enTransaccion(a, m, [&] {
            // Two upgrades of one base at the same time: the second waits, and finds everything done.
            a.ejecutar(u"select pg_advisory_xact_lock(%1)"_s.arg(versionDelStore));
            a.prepararServidor();
            const QStringList presentes = a.lista(u"select nspname::text from pg_catalog.pg_namespace"_s);
            for (const Conexion::Datos *datos : esquemas) {
                if (presentes.contains(datos->esquema)) continue;
                a.ejecutar(u"create schema %1"_s.arg(Almacen::comillas(datos->esquema)));
                m.cambio(u"se creó el esquema %1"_s.arg(datos->esquema));
            }
            for (const Conexion::Datos *datos : esquemas) {
                ponerEntidad(a, datos->entidad, datos->esquema, m);
                if (datos->entidad != "INTERNOS"_L1) continue;
                ponerFunciones(a, datos->esquema, m);
                ponerVersion(a, datos->esquema, m);
            }
            if (!manager.rolDeTrabajo().isEmpty())
                roles::Conceder(a, nombresDe(esquemas), manager.rolDeTrabajo(), m.resultado.cambios);
        });
    }
    for (const Conexion::Datos *datos : archivos) {
        const Almacen a(*datos, manager);
        enTransaccion(a, m, [&] {
            ponerEntidad(a, datos->entidad, QString(), m);
            if (datos->entidad == "INTERNOS"_L1) ponerVersion(a, QString(), m);
        });
    }
    m.hecho = m.total;
    if (m.progreso) m.progreso(u"Listo"_s, m.total, m.total);
}

}  // namespace

Resultado Actualizar(const QString &rutaDelPerfil, const Progreso &progreso) {
    Resultado resultado;
    Marcha marcha{resultado, progreso};
    StoreProfiles::SPMain manager;
    try {
        actualizarTodo(rutaDelPerfil, manager, marcha);
        resultado.ok = true;
    } catch (const Falla &e) {
        resultado.error = e.descripcion;
        // A role of daily work finds out only by trying: all that it may do is to see that nothing is
        // missing.
        if (e.numero == faltaPermiso && !manager.rolDueno().isEmpty())
            resultado.error =
                u"Los stores del perfil %1 necesitan actualizarse y su rol de trabajo no puede; ejecute %2."_s
                    .arg(rutaDelPerfil, manager.comoActualizar());
    }
    return resultado;
}

}  // namespace actualizacion
