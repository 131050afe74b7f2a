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

using namespace Qt::StringLiterals;

namespace actualizacion {

namespace {

using esquema::Columna;
using esquema::Indice;
using esquema::Tabla;
using esquema::Tipo;

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
                "el programa que corresponde a ese store."_s.arg(donde)
                    .arg(version)
                    .arg(versionDelStore));
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
    revisarVersion(almacen.lista(u"select valor::text from %1 where lower(propiedad::text) = 'version'"_s.arg(
                       almacen.nombreDe(datos.esquema, u"version"_s))),
                   u"%1:%2/%3"_s.arg(datos.host).arg(datos.puerto).arg(datos.base));
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

QString definicion(const Almacen &a, const Columna &c) {
    return Almacen::comillas(c.nombre) + QLatin1Char(' ') + a.tipoDe(c.tipo);
}

/// Tables whose rows every run rewrites in place.
const QSet<QString> reescritas{u"subitems"_s, u"groupsubitems"_s, u"item"_s, u"itemliq"_s};

void crearTabla(const Almacen &a, const QString &esquemaDe, const Tabla &t, const QString &nombre) {
    QStringList partes;
    for (const Columna &c : t.columnas) partes << definicion(a, c);
    // The order of insertion, which the file store has by itself.
    if (a.servidor()) partes << u"zfila bigint generated always as identity"_s;
    // Room in every page for the next version of a row, so that an update touches no index: less than half
    // the time.
    const bool holgada = a.servidor() && reescritas.contains(t.nombre);
    a.ejecutar(u"create table %1 (%2)%3"_s.arg(a.nombreDe(esquemaDe, nombre), partes.join(", "_L1),
                                               holgada ? u" with (fillfactor = 50)"_s : QString()));
}

/// SQLite cannot add an identity to a table that is there: the rows go, in their order, through a new one.
/// Columns that are not ours go along.
void rehacerConIdentidad(const Almacen &a, const Tabla &t, const QHash<QString, ColumnaDelStore> &hay) {
    const QString provisoria = u"z_nueva_"_s + t.nombre;
    crearTabla(a, QString(), t, provisoria);
    QStringList comunes;
    for (auto c = hay.cbegin(); c != hay.cend(); ++c) {
        if (t.columna(c.key()) == nullptr)
            a.ejecutar(u"alter table main.%1 add column %2 %3"_s.arg(
                Almacen::comillas(provisoria), Almacen::comillas(c.key()), c.value().tipo));
        comunes << Almacen::comillas(c.key());
    }
    const QString lista = comunes.join(", "_L1);
    a.ejecutar(u"insert into main.%1 (%2) select %2 from main.%3 order by rowid"_s.arg(
        Almacen::comillas(provisoria), lista, Almacen::comillas(t.nombre)));
    a.ejecutar(u"drop table main.%1"_s.arg(Almacen::comillas(t.nombre)));
    a.ejecutar(u"alter table main.%1 rename to %2"_s.arg(Almacen::comillas(provisoria),
                                                         Almacen::comillas(t.nombre)));
}

/// The server's way: the column is made whole numbers, and numbering goes on behind the highest.
void ponerIdentidad(const Almacen &a, const QString &tabla, const QString &columna, const QString &tipo) {
    const QString nombre = Almacen::comillas(columna);
    if (tipo != "int8"_L1)
        a.ejecutar(
            u"alter table %1 alter column %2 type bigint using %2::numeric::bigint"_s.arg(tabla, nombre));
    a.ejecutar(
        u"update %1 set %2 = coalesce((select max(%2) from %1), 0) + s.n from (select ctid, "
        "row_number() over () as n from %1 where %2 is null) s where %1.ctid = s.ctid"_s.arg(tabla, nombre));
    a.ejecutar(u"alter table %1 alter column %2 set not null"_s.arg(tabla, nombre));
    a.ejecutar(u"alter table %1 alter column %2 add generated by default as identity"_s.arg(tabla, nombre));
    a.lista(
        u"select setval(pg_get_serial_sequence('%1', '%2'), coalesce((select max(%3) from %1), 0) + 1, "
        "false)"_s.arg(tabla, columna, nombre));
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
            a.ejecutar(u"alter table %1 add column %2"_s.arg(tabla, definicion(a, c)));
        }
        hay.insert(c.nombre, {u"int8"_s, true});
        m.cambio(u"%1: la columna %2 de %3 se numera sola"_s.arg(t.entidad, c.nombre, t.nombre));
    }
    for (const Columna &c : t.columnas) {
        if (!hay.contains(c.nombre)) {
            a.ejecutar(u"alter table %1 add column %2"_s.arg(tabla, definicion(a, c)));
            m.cambio(u"%1: se agregó la columna %2 a %3"_s.arg(t.entidad, c.nombre, t.nombre));
            continue;
        }
        // Plain text becomes the text that compares without regard to case: no value changes.
        static const QSet<QString> textosLlanos{u"text"_s, u"varchar"_s, u"bpchar"_s};
        if (a.servidor() && (c.tipo == Tipo::Texto || c.tipo == Tipo::TextoNumerico) &&
            textosLlanos.contains(hay.value(c.nombre).tipo)) {
            a.ejecutar(u"alter table %1 alter column %2 type %3 using %2::text"_s.arg(
                tabla, Almacen::comillas(c.nombre), a.tipoDe(c.tipo)));
            m.cambio(
                u"%1: la columna %2 de %3 ya no distingue mayúsculas"_s.arg(t.entidad, c.nombre, t.nombre));
        }
    }
    if (a.servidor() && !hay.contains(u"zfila"_s)) {
        a.ejecutar(u"alter table %1 add column zfila bigint generated always as identity"_s.arg(tabla));
        m.cambio(u"%1: %2 guarda el orden de carga"_s.arg(t.entidad, t.nombre));
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
    const QString propio = comoNumero ? i.nombre + "_numero"_L1 : i.nombre;
    if (hay.contains(propio)) return;
    QStringList columnas;
    for (const QString &c : i.columnas)
        columnas << (comoNumero && esGenerada(t, c) ? u"(%1::double precision)"_s.arg(Almacen::comillas(c))
                                                    : Almacen::comillas(c));
    // SQLite wants the store's name before the index, PostgreSQL before the table.
    const QString nombre = a.servidor() ? Almacen::comillas(propio) : a.nombreDe(esquemaDe, propio);
    const QString sobre = a.servidor() ? a.nombreDe(esquemaDe, t.nombre) : Almacen::comillas(t.nombre);
    a.ejecutar(u"create index %1 on %2 (%3)"_s.arg(nombre, sobre, columnas.join(", "_L1)));
    m.cambio(u"%1: se creó el índice %2"_s.arg(t.entidad, propio));
}

/// SQLite, told nothing of a store, takes "iditem> 0" for a narrower search than "iditem = 5" and walks every
/// row of the operation. What an index tells apart in a store of some size is told it once, in its own table;
/// a store that was analysed keeps what was found.
void ponerProporciones(const Almacen &a, const QString &entidad, Marcha &m) {
    const auto anotar = [&](const Tabla &t, const Indice &i, const QStringList &hay) {
        if (hay.contains(i.nombre)) return false;
        const bool deOperacion = t.columna(u"interno") != nullptr;
        QStringList numeros{deOperacion ? u"1000000"_s : u"10000"_s};
        // Rows that share the first column, the first two …: an operation's lines, an item's, one or two.
        const qsizetype columnas = i.columnas.size();
        if (columnas > 1) numeros << u"2000"_s;
        for (qsizetype c = 2; c < columnas; ++c) numeros << u"20"_s;
        numeros << (columnas == 1 && deOperacion ? u"20"_s : u"2"_s);
        a.ejecutar(u"insert into main.sqlite_stat1 (tbl, idx, stat) values ('%1', '%2', '%3')"_s.arg(
            t.nombre, i.nombre, numeros.join(QLatin1Char(' '))));
        return true;
    };
    // Makes the table when it is not there.
    a.ejecutar(u"analyze main.sqlite_schema"_s);
    const QStringList hay = a.lista(u"select idx from main.sqlite_stat1"_s);
    bool alguna = false;
    for (const Tabla &t : esquema::tablas())
        if (t.entidad == entidad)
            for (const Indice &i : t.indices) alguna = anotar(t, i, hay) || alguna;
    if (alguna) m.cambio(u"%1: se anotó qué distingue cada índice"_s.arg(entidad));
}

void ponerEntidad(const Almacen &a, const QString &entidad, const QString &esquemaDe, Marcha &m) {
    QStringList tablas = a.tablas(esquemaDe);
    for (const Tabla &t : esquema::tablas()) {
        if (t.entidad != entidad) continue;
        m.paso(u"%1: %2"_s.arg(entidad, t.nombre));
        if (tablas.contains(t.nombre)) {
            completarTabla(a, esquemaDe, t, m);
        } else {
            crearTabla(a, esquemaDe, t, t.nombre);
            m.cambio(u"%1: se creó la tabla %2"_s.arg(entidad, t.nombre));
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

void actualizarTodo(const QString &ruta, Marcha &m) {
    StoreProfiles::SPMain manager;
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
    try {
        actualizarTodo(rutaDelPerfil, marcha);
        resultado.ok = true;
    } catch (const Falla &e) {
        resultado.error = e.descripcion;
    }
    return resultado;
}

}  // namespace actualizacion
