#include "upgrade/upgrade.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QSet>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>
#include <QVariant>
#include <algorithm>
#include <optional>

#include "upgrade/almacen.h"
#include "upgrade/schema.h"
#include "upgrade/servidor.h"

namespace actualizacion {

namespace {

using esquema::Columna;
using esquema::Indice;
using esquema::Tabla;
using esquema::Tipo;

const QString filaDeVersion = QStringLiteral("version");
const QString filaDeFunciones = QStringLiteral("funciones");

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
            throw Falla{QStringLiteral(
                            "El store %1 es de la versión %2, más nueva que la %3 de este programa; instale "
                            "el programa que corresponde a ese store.")
                            .arg(donde)
                            .arg(version)
                            .arg(versionDelStore)};
    }
}

/// Refuses a file that is no store or a store of a newer version, before anything is touched.
void revisarArchivo(const QString &archivo) {
    const QFileInfo info(archivo);
    if (!info.exists() || (info.isFile() && info.size() == 0)) return;
    QFile f(archivo);
    if (!info.isFile() || !f.open(QIODevice::ReadOnly))
        throw Falla{
            QStringLiteral("No se puede leer el archivo %1; revise los permisos o quítelo del perfil.")
                .arg(archivo)};
    if (!f.read(16).startsWith("SQLite format 3"))
        throw Falla{
            QStringLiteral("El archivo %1 no es un store de este programa; reemplácelo por una copia sana o "
                           "quítelo para que se cree uno nuevo.")
                .arg(archivo)};
    f.close();
    const QString conexion = QUuid::createUuid().toString(QUuid::WithoutBraces);
    QStringList versiones;
    QString error;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), conexion);
        db.setDatabaseName(archivo);
        db.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=5000"));
        if (!db.open()) error = db.lastError().databaseText();
        QSqlQuery consulta(db);
        // The text collation is not registered here, so names are compared outside the store.
        if (error.isEmpty() && !consulta.exec(QStringLiteral("select name from sqlite_master")))
            error = consulta.lastError().databaseText();
        if (error.isEmpty() && consulta.exec(QStringLiteral("select propiedad, valor from version")))
            while (consulta.next())
                if (consulta.value(0).toString().compare(filaDeVersion, Qt::CaseInsensitive) == 0)
                    versiones << consulta.value(1).toString();
        db.close();
    }
    QSqlDatabase::removeDatabase(conexion);
    if (!error.isEmpty())
        throw Falla{
            QStringLiteral(
                "El archivo %1 no se puede leer como store (%2); reemplácelo por una copia sana o quítelo "
                "para que se cree uno nuevo.")
                .arg(archivo, error.simplified())};
    revisarVersion(versiones, archivo);
}

void revisarServidor(const Almacen &almacen, const Conexion::Datos &datos) {
    if (!almacen.tablas(datos.esquema).contains(QLatin1String("version"))) return;
    revisarVersion(
        almacen.lista(QStringLiteral("select valor::text from %1 where lower(propiedad::text) = 'version'")
                          .arg(almacen.nombreDe(datos.esquema, QStringLiteral("version")))),
        QStringLiteral("%1:%2/%3").arg(datos.host).arg(datos.puerto).arg(datos.base));
}

/// One upgrade of a folder of files at a time: the second waits, and finds everything done. A fresh file
/// changes its journal when it is first opened, and two that do so at once refuse each other.
std::unique_ptr<QLockFile> tomarTurno(const QString &archivo) {
    QDir().mkpath(QFileInfo(archivo).absolutePath());
    auto turno = std::make_unique<QLockFile>(archivo + QStringLiteral(".actualizando"));
    constexpr int paciencia = 120000;
    turno->setStaleLockTime(0);
    // A folder that takes no lock file is told by what is done in it.
    if (!turno->tryLock(paciencia) && turno->error() == QLockFile::LockFailedError)
        throw Falla{
            QStringLiteral(
                "Otra actualización de %1 está en marcha; espere a que termine y vuelva a intentarlo.")
                .arg(archivo)};
    return turno;
}

void crearArchivo(const QString &archivo, Marcha &m) {
    const QFileInfo info(archivo);
    if (info.exists()) return;
    if (!QDir().mkpath(info.absolutePath()))
        throw Falla{
            QStringLiteral("No se puede crear la carpeta %1; elija otra en el perfil o revise los permisos.")
                .arg(info.absolutePath())};
    QFile f(archivo);
    if (!f.open(QIODevice::WriteOnly))
        throw Falla{QStringLiteral("No se puede crear el archivo %1; revise los permisos de su carpeta.")
                        .arg(archivo)};
    m.cambio(QStringLiteral("se creó el archivo %1").arg(archivo));
}

QString definicion(const Almacen &a, const Columna &c) {
    return Almacen::comillas(c.nombre) + QLatin1Char(' ') + a.tipoDe(c.tipo);
}

/// Tables whose rows every run rewrites in place.
const QSet<QString> reescritas{QStringLiteral("subitems"), QStringLiteral("groupsubitems"),
                               QStringLiteral("item"), QStringLiteral("itemliq")};

void crearTabla(const Almacen &a, const QString &esquemaDe, const Tabla &t, const QString &nombre) {
    QStringList partes;
    for (const Columna &c : t.columnas) partes << definicion(a, c);
    // The order of insertion, which the file store has by itself.
    if (a.servidor()) partes << QStringLiteral("zfila bigint generated always as identity");
    // Room in every page for the next version of a row, so that an update touches no index: less than half
    // the time.
    const bool holgada = a.servidor() && reescritas.contains(t.nombre);
    a.ejecutar(QStringLiteral("create table %1 (%2)%3")
                   .arg(a.nombreDe(esquemaDe, nombre), partes.join(QLatin1String(", ")),
                        holgada ? QStringLiteral(" with (fillfactor = 50)") : QString()));
}

/// SQLite cannot add an identity to a table that is there: the rows go, in their order, through a new one.
/// Columns that are not ours go along.
void rehacerConIdentidad(const Almacen &a, const Tabla &t, const QHash<QString, ColumnaDelStore> &hay) {
    const QString provisoria = QStringLiteral("z_nueva_") + t.nombre;
    crearTabla(a, QString(), t, provisoria);
    QStringList comunes;
    for (auto c = hay.cbegin(); c != hay.cend(); ++c) {
        if (t.columna(c.key()) == nullptr)
            a.ejecutar(QStringLiteral("alter table main.%1 add column %2 %3")
                           .arg(Almacen::comillas(provisoria), Almacen::comillas(c.key()), c.value().tipo));
        comunes << Almacen::comillas(c.key());
    }
    const QString lista = comunes.join(QLatin1String(", "));
    a.ejecutar(QStringLiteral("insert into main.%1 (%2) select %2 from main.%3 order by rowid")
                   .arg(Almacen::comillas(provisoria), lista, Almacen::comillas(t.nombre)));
    a.ejecutar(QStringLiteral("drop table main.%1").arg(Almacen::comillas(t.nombre)));
    a.ejecutar(QStringLiteral("alter table main.%1 rename to %2")
                   .arg(Almacen::comillas(provisoria), Almacen::comillas(t.nombre)));
}

/// The server's way: the column is made whole numbers, and numbering goes on behind the highest.
void ponerIdentidad(const Almacen &a, const QString &tabla, const QString &columna, const QString &tipo) {
    const QString nombre = Almacen::comillas(columna);
    if (tipo != QLatin1String("int8"))
        a.ejecutar(QStringLiteral("alter table %1 alter column %2 type bigint using %2::numeric::bigint")
                       .arg(tabla, nombre));
    a.ejecutar(
        QStringLiteral("update %1 set %2 = coalesce((select max(%2) from %1), 0) + s.n from (select ctid, "
                       "row_number() over () as n from %1 where %2 is null) s where %1.ctid = s.ctid")
            .arg(tabla, nombre));
    a.ejecutar(QStringLiteral("alter table %1 alter column %2 set not null").arg(tabla, nombre));
    a.ejecutar(QStringLiteral("alter table %1 alter column %2 add generated by default as identity")
                   .arg(tabla, nombre));
    a.lista(
        QStringLiteral(
            "select setval(pg_get_serial_sequence('%1', '%2'), coalesce((select max(%3) from %1), 0) + 1, "
            "false)")
            .arg(tabla, columna, nombre));
}

void completarTabla(const Almacen &a, const QString &esquemaDe, const Tabla &t, Marcha &m) {
    const QString tabla = a.nombreDe(esquemaDe, t.nombre);
    QHash<QString, ColumnaDelStore> hay = a.columnas(esquemaDe, t.nombre);
    for (const Columna &c : t.columnas) {
        if (c.tipo != Tipo::Generado || (hay.contains(c.nombre) && hay.value(c.nombre).generada)) continue;
        if (!a.servidor()) {
            rehacerConIdentidad(a, t, hay);
            hay = a.columnas(esquemaDe, t.nombre);
        } else if (hay.contains(c.nombre)) {
            ponerIdentidad(a, tabla, c.nombre, hay.value(c.nombre).tipo);
        } else {
            a.ejecutar(QStringLiteral("alter table %1 add column %2").arg(tabla, definicion(a, c)));
        }
        hay.insert(c.nombre, {QStringLiteral("int8"), true});
        m.cambio(QStringLiteral("%1: la columna %2 de %3 se numera sola").arg(t.entidad, c.nombre, t.nombre));
    }
    for (const Columna &c : t.columnas) {
        if (!hay.contains(c.nombre)) {
            a.ejecutar(QStringLiteral("alter table %1 add column %2").arg(tabla, definicion(a, c)));
            m.cambio(QStringLiteral("%1: se agregó la columna %2 a %3").arg(t.entidad, c.nombre, t.nombre));
            continue;
        }
        // Plain text becomes the text that compares without regard to case: no value changes.
        static const QSet<QString> textosLlanos{QStringLiteral("text"), QStringLiteral("varchar"),
                                                QStringLiteral("bpchar")};
        if (a.servidor() && (c.tipo == Tipo::Texto || c.tipo == Tipo::TextoNumerico) &&
            textosLlanos.contains(hay.value(c.nombre).tipo)) {
            a.ejecutar(QStringLiteral("alter table %1 alter column %2 type %3 using %2::text")
                           .arg(tabla, Almacen::comillas(c.nombre), a.tipoDe(c.tipo)));
            m.cambio(QStringLiteral("%1: la columna %2 de %3 ya no distingue mayúsculas")
                         .arg(t.entidad, c.nombre, t.nombre));
        }
    }
    if (a.servidor() && !hay.contains(QStringLiteral("zfila"))) {
        a.ejecutar(
            QStringLiteral("alter table %1 add column zfila bigint generated always as identity").arg(tabla));
        m.cambio(QStringLiteral("%1: %2 guarda el orden de carga").arg(t.entidad, t.nombre));
    }
}

bool esGenerada(const Tabla &t, const QString &columna) {
    const esquema::Columna *c = t.columna(columna);
    return c != nullptr && c->tipo == esquema::Tipo::Generado;
}

/// `comoNumero`: the line identity is a whole number on the server, the columns that name it are not; only an
/// index on the number finds a line through them.
void crearIndice(const Almacen &a, const QString &esquemaDe, const Tabla &t, const Indice &i, bool comoNumero,
                 const QStringList &hay, Marcha &m) {
    const QString propio = comoNumero ? i.nombre + QLatin1String("_numero") : i.nombre;
    if (hay.contains(propio)) return;
    QStringList columnas;
    for (const QString &c : i.columnas)
        columnas << (comoNumero && esGenerada(t, c)
                         ? QStringLiteral("(%1::double precision)").arg(Almacen::comillas(c))
                         : Almacen::comillas(c));
    // SQLite wants the store's name before the index, PostgreSQL before the table.
    const QString nombre = a.servidor() ? Almacen::comillas(propio) : a.nombreDe(esquemaDe, propio);
    const QString sobre = a.servidor() ? a.nombreDe(esquemaDe, t.nombre) : Almacen::comillas(t.nombre);
    a.ejecutar(
        QStringLiteral("create index %1 on %2 (%3)").arg(nombre, sobre, columnas.join(QLatin1String(", "))));
    m.cambio(QStringLiteral("%1: se creó el índice %2").arg(t.entidad, propio));
}

/// SQLite, told nothing of a store, takes "iditem> 0" for a narrower search than "iditem = 5" and walks every
/// row of the operation. What an index tells apart in a store of some size is told it once, in its own table;
/// a store that was analysed keeps what was found.
void ponerProporciones(const Almacen &a, const QString &entidad, Marcha &m) {
    const auto anotar = [&](const Tabla &t, const Indice &i, const QStringList &hay) {
        if (hay.contains(i.nombre)) return false;
        const bool deOperacion = t.columna(u"interno") != nullptr;
        QStringList numeros{deOperacion ? QStringLiteral("1000000") : QStringLiteral("10000")};
        // Rows that share the first column, the first two …: an operation's lines, an item's, one or two.
        const qsizetype columnas = i.columnas.size();
        if (columnas > 1) numeros << QStringLiteral("2000");
        for (qsizetype c = 2; c < columnas; ++c) numeros << QStringLiteral("20");
        numeros << (columnas == 1 && deOperacion ? QStringLiteral("20") : QStringLiteral("2"));
        a.ejecutar(QStringLiteral("insert into main.sqlite_stat1 (tbl, idx, stat) values ('%1', '%2', '%3')")
                       .arg(t.nombre, i.nombre, numeros.join(QLatin1Char(' '))));
        return true;
    };
    // Makes the table when it is not there.
    a.ejecutar(QStringLiteral("analyze main.sqlite_schema"));
    const QStringList hay = a.lista(QStringLiteral("select idx from main.sqlite_stat1"));
    bool alguna = false;
    for (const Tabla &t : esquema::tablas())
        if (t.entidad == entidad)
            for (const Indice &i : t.indices) alguna = anotar(t, i, hay) || alguna;
    if (alguna) m.cambio(QStringLiteral("%1: se anotó qué distingue cada índice").arg(entidad));
}

void ponerEntidad(const Almacen &a, const QString &entidad, const QString &esquemaDe, Marcha &m) {
    QStringList tablas = a.tablas(esquemaDe);
    for (const Tabla &t : esquema::tablas()) {
        if (t.entidad != entidad) continue;
        m.paso(QStringLiteral("%1: %2").arg(entidad, t.nombre));
        if (tablas.contains(t.nombre)) {
            completarTabla(a, esquemaDe, t, m);
        } else {
            crearTabla(a, esquemaDe, t, t.nombre);
            m.cambio(QStringLiteral("%1: se creó la tabla %2").arg(entidad, t.nombre));
        }
    }
    const QStringList indices = a.indices(esquemaDe);
    for (const Tabla &t : esquema::tablas()) {
        if (t.entidad != entidad) continue;
        for (const Indice &i : t.indices) {
            crearIndice(a, esquemaDe, t, i, false, indices, m);
            const bool generado = std::any_of(i.columnas.begin(), i.columnas.end(),
                                              [&t](const QString &c) { return esGenerada(t, c); });
            if (a.servidor() && generado) crearIndice(a, esquemaDe, t, i, true, indices, m);
        }
    }
    if (!a.servidor()) ponerProporciones(a, entidad, m);
}

/// Sets one row of `version`; true when it was not so already.
bool ponerPropiedad(const Almacen &a, const QString &esquemaDe, const QString &propiedad,
                    const QString &valor) {
    const QString tabla = a.nombreDe(esquemaDe, QStringLiteral("version"));
    const QString donde = QStringLiteral("lower(propiedad) = '%1'").arg(propiedad);
    const QStringList hay = a.lista(QStringLiteral("select valor from %1 where %2").arg(tabla, donde));
    if (!hay.isEmpty() && std::all_of(hay.begin(), hay.end(), [&](const QString &v) { return v == valor; }))
        return false;
    if (hay.isEmpty())
        a.ejecutar(QStringLiteral("insert into %1 (propiedad, valor) values ('%2', '%3')")
                       .arg(tabla, propiedad, valor));
    else
        a.ejecutar(QStringLiteral("update %1 set valor = '%2' where %3").arg(tabla, valor, donde));
    return true;
}

void ponerVersion(const Almacen &a, const QString &esquemaDe, Marcha &m) {
    if (ponerPropiedad(a, esquemaDe, filaDeVersion, QString::number(versionDelStore)))
        m.cambio(QStringLiteral("el store está en la versión %1").arg(versionDelStore));
}

void ponerFunciones(const Almacen &a, const QString &esquemaDe, Marcha &m) {
    const QString donde = Almacen::comillas(esquemaDe);
    if (!ponerPropiedad(a, esquemaDe, filaDeFunciones, servidor::Huella(donde, a.tipoTexto()))) return;
    m.paso(QStringLiteral("Funciones del servidor"));
    for (const QString &sentencia : servidor::Sentencias(donde, a.tipoTexto())) a.ejecutar(sentencia);
    m.cambio(QStringLiteral("se crearon las funciones del servidor"));
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

void actualizarTodo(const QString &ruta, Marcha &m) {
    StoreProfiles::SPMain manager;
    leerPerfil(manager, ruta);
    std::vector<const Conexion::Datos *> archivos;
    std::vector<const Conexion::Datos *> esquemas;
    for (const QString &entidad : StoreProfiles::entidades()) {
        const Conexion::Datos *datos = manager.datos(entidad);
        if (datos == nullptr) continue;
        (datos->servidor ? esquemas : archivos).push_back(datos);
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
                throw Falla{QStringLiteral(
                                "El perfil %1 reparte las entidades entre dos bases (%2 y %3); todas las del "
                                "servidor deben estar en la misma base, una por esquema.")
                                .arg(ruta, esquemas.front()->base, datos->base)};
            revisarServidor(*servidorUnico, *datos);
        }
    }

    for (const Conexion::Datos *datos : archivos) crearArchivo(datos->archivo, m);
    try {
        manager.LoadParameters();
    } catch (const ErrorDeStore &e) {
        throw Falla{e.descripcion};
    }

    if (servidorUnico) {
        Almacen &a = *servidorUnico;
        enTransaccion(a, m, [&] {
            // Two upgrades of one base at the same time: the second waits, and finds everything done.
            a.ejecutar(QStringLiteral("select pg_advisory_xact_lock(%1)").arg(versionDelStore));
            a.prepararServidor();
            const QStringList presentes =
                a.lista(QStringLiteral("select nspname::text from pg_catalog.pg_namespace"));
            for (const Conexion::Datos *datos : esquemas) {
                if (presentes.contains(datos->esquema)) continue;
                a.ejecutar(QStringLiteral("create schema %1").arg(Almacen::comillas(datos->esquema)));
                m.cambio(QStringLiteral("se creó el esquema %1").arg(datos->esquema));
            }
            for (const Conexion::Datos *datos : esquemas) {
                ponerEntidad(a, datos->entidad, datos->esquema, m);
                if (datos->entidad != QLatin1String("INTERNOS")) continue;
                ponerFunciones(a, datos->esquema, m);
                ponerVersion(a, datos->esquema, m);
            }
        });
    }
    for (const Conexion::Datos *datos : archivos) {
        const Almacen a(*datos, manager);
        enTransaccion(a, m, [&] {
            ponerEntidad(a, datos->entidad, QString(), m);
            if (datos->entidad == QLatin1String("INTERNOS")) ponerVersion(a, QString(), m);
        });
    }
    m.hecho = m.total;
    if (m.progreso) m.progreso(QStringLiteral("Listo"), m.total, m.total);
}

}  // namespace

Resultado Actualizar(const QString &rutaDelPerfil, const Progreso &progreso) {
    Resultado resultado;
    Marcha marcha{resultado, progreso};
    try {
        actualizarTodo(rutaDelPerfil, marcha);
        resultado.ok = true;
    } catch (const Falla &f) {
        resultado.error = f.mensaje;
    } catch (const ErrorDeStore &e) {
        resultado.error = e.descripcion;
    }
    return resultado;
}

}  // namespace actualizacion
