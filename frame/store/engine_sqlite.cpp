// Qt opens the file and keeps the handle; statements go through SQLite's own interface on that handle. A run
// of ten thousand short statements would otherwise spend a third of its time between the two.
#include <sqlite3.h>

#include <QDir>
#include <QFileInfo>
#include <QSqlDriver>
#include <QSqlError>
#include <QUrl>

#include "frame/base/failure.h"
#include "frame/base/values.h"
#include "frame/store/dialect_rewrites.h"
#include "frame/store/engines.h"
#include "frame/store/sqlite_functions.h"

using namespace Qt::StringLiterals;

namespace motores {

namespace enArchivo {
namespace {

sqlite3 *mango(const QSqlDatabase &db) {
    const QVariant v = db.driver()->handle();
    return v.isValid() ? *static_cast<sqlite3 *const *>(v.constData()) : nullptr;
}

Falla error(sqlite3 *motor) {
    return {sqlite3_extended_errcode(motor), {}, QString::fromUtf8(sqlite3_errmsg(motor)), {}};
}

void mandar(sqlite3 *motor, const QString &sql) {
    if (sqlite3_exec(motor, sql.toUtf8().constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
        throw error(motor);
}

QString enUri(const QString &archivo) {
    return QString::fromUtf8(QUrl::fromLocalFile(archivo).toEncoded()) + "?mode=rw"_L1;
}

/// Closes the statement on every road.
class Sentencia {
 public:
    Sentencia(sqlite3 *motor, const char *sql, int largo, const char **resto) {
        if (sqlite3_prepare_v2(motor, sql, largo, &sentencia_, resto) != SQLITE_OK) throw error(motor);
    }
    ~Sentencia() { sqlite3_finalize(sentencia_); }
    Sentencia(const Sentencia &) = delete;
    Sentencia &operator=(const Sentencia &) = delete;
    sqlite3_stmt *operator*() const { return sentencia_; }

 private:
    sqlite3_stmt *sentencia_ = nullptr;
};

QVariant celda(sqlite3_stmt *s, int columna) {
    switch (sqlite3_column_type(s, columna)) {
        case SQLITE_FLOAT:
            return sqlite3_column_double(s, columna);
        case SQLITE_INTEGER:
            return static_cast<qlonglong>(sqlite3_column_int64(s, columna));
        case SQLITE_TEXT: {
            const auto *texto = reinterpret_cast<const char *>(sqlite3_column_text(s, columna));
            const int bytes = sqlite3_column_bytes(s, columna);
            // Most texts of a line are empty: no allocation for them.
            static const QString vacio = ""_L1;
            return bytes == 0 ? vacio : QString::fromUtf8(texto, bytes);
        }
        case SQLITE_BLOB:
            return QByteArray(static_cast<const char *>(sqlite3_column_blob(s, columna)),
                              sqlite3_column_bytes(s, columna));
        default:
            return {};
    }
}

[[noreturn]] void rechazar(const QString &descripcion) {
    throw Falla{SQLITE_CANTOPEN, {}, descripcion, {}};
}

[[noreturn]] void rechazarIlegible(const QString &archivo, const Falla &e) {
    rechazar(
        u"El archivo %1 no es un store legible (%2); "
        "repóngalo de una copia de seguridad o corrija el perfil."_s.arg(archivo, e.descripcion));
}

void comprobarArchivo(const QString &archivo) {
    const QFileInfo info(archivo);
    if (!info.exists())
        rechazar(
            u"No existe el archivo %1 que nombra el perfil; corrija el perfil o créelo con DbUpgrade3."_s.arg(
                archivo));
    if (!info.isFile()) rechazar(u"%1 no es un archivo; corrija el perfil."_s.arg(archivo));
    if (!info.isReadable() || !info.isWritable())
        rechazar(
            u"No se puede leer y escribir en el archivo %1; revise sus permisos o corrija el perfil."_s.arg(
                archivo));
    // The log of what is being written lies beside the file.
    if (!QFileInfo(info.absolutePath()).isWritable())
        rechazar(
            u"No se puede escribir en la carpeta %1, donde está el archivo %2; revise sus permisos."_s.arg(
                info.absolutePath(), info.fileName()));
}

QSqlDatabase abrir(const Datos &datos, const QString &nombre) {
    comprobarArchivo(datos.archivo);
    // Nobody asks the engine how much memory it holds, and counting it locks at every allocation. Only the
    // first of a process is in time to say so; the others are told no, and nothing changes.
    sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
    QSqlDatabase db = QSqlDatabase::addDatabase(u"QSQLITE"_s, nombre);
    db.setDatabaseName(enUri(datos.archivo));
    db.setConnectOptions(u"QSQLITE_OPEN_URI;QSQLITE_BUSY_TIMEOUT=10000"_s);
    if (!db.open())
        rechazar(u"No se puede abrir el archivo %1 (%2); revise sus permisos o corrija el perfil."_s.arg(
            datos.archivo, db.lastError().databaseText()));
    sqlite3 *motor = mango(db);
    sqlite::registrar(motor);
    // A name that no table has is a mistake, as on the server, and no text.
    sqlite3_db_config(motor, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(motor, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    try {
        // A long run writes the same pages over and over: they are folded back into the file seldom.
        mandar(motor,
               u"PRAGMA temp_store=MEMORY; "
               "PRAGMA cache_size=-65536; "
               "PRAGMA main.journal_mode=WAL; "
               "PRAGMA main.synchronous=FULL; "
               "PRAGMA wal_autocheckpoint=20000"_s);
        // A look inside: a file that is no store of ours says so here, and not in the middle of the work.
        mandar(motor, u"select count(*) from main.sqlite_master"_s);
    } catch (const Falla &e) {
        rechazarIlegible(datos.archivo, e);
    }
    for (const auto &[entidad, archivo] : datos.vecinos) {
        // A neighbour that is not there is told when its own connection is asked for.
        if (!QFileInfo::exists(archivo)) continue;
        try {
            mandar(motor,
                   u"ATTACH '%1' AS %2; "
                   "PRAGMA %2.journal_mode=WAL; "
                   "PRAGMA %2.synchronous=FULL"_s.arg(DoblarComillas(enUri(archivo)), entidad.toLower()));
        } catch (const Falla &e) {
            rechazarIlegible(archivo, e);
        }
    }
    return db;
}

qint64 correr(const QSqlDatabase &db, const QString &sql, Filas *filas) {
    sqlite3 *motor = mango(db);
    const QByteArray utf8 = sql.toUtf8();
    const char *resto = nullptr;
    const Sentencia sentencia(motor, utf8.constData(), static_cast<int>(utf8.size()) + 1, &resto);
    sqlite3_stmt *s = *sentencia;
    if (s == nullptr) return 0;
    // One statement a text: what a broken key smuggles in behind a semicolon is not run.
    for (const char *c = resto; c != nullptr && *c != '\0'; ++c)
        if (*c != ' ' && *c != ';' && *c != '\n' && *c != '\r' && *c != '\t')
            throw Falla{
                SQLITE_ERROR, {}, u"near \"%1\": syntax error"_s.arg(QString::fromUtf8(c).left(20)), {}};

    const int columnas = sqlite3_column_count(s);
    if (filas != nullptr) {
        filas->nombres.reserve(static_cast<std::size_t>(columnas));
        for (int c = 0; c < columnas; ++c)
            filas->nombres.push_back(QString::fromUtf8(sqlite3_column_name(s, c)));
        // Most answers are one row.
        filas->celdas.reserve(static_cast<std::size_t>(columnas));
    }
    const qint64 antes = sqlite3_total_changes64(motor);
    qint64 leidas = 0;
    int paso = SQLITE_ROW;
    while ((paso = sqlite3_step(s)) == SQLITE_ROW) {
        ++leidas;
        if (filas == nullptr) continue;
        for (int c = 0; c < columnas; ++c) filas->celdas.push_back(celda(s, c));
    }
    if (paso != SQLITE_DONE) throw error(motor);
    if (columnas > 0) return leidas;
    // A command that touches no row leaves the count of the one before it standing.
    return sqlite3_total_changes64(motor) == antes ? 0 : sqlite3_changes64(motor);
}

/// There is no journey: they run when their end is asked for.
Llegada mandar(const QSqlDatabase &db, const std::vector<Encargo> &) {
    return [db](std::vector<Encargo> &encargos, std::optional<Falla> &falla) {
        std::size_t hechas = 0;
        try {
            for (; hechas < encargos.size(); ++hechas) {
                Encargo &e = encargos[hechas];
                e.cuantas = correr(db, e.sql, e.filas);
            }
        } catch (const Falla &e) {
            falla = e;
        }
        return hechas;
    };
}

void escrituraLigera(const QSqlDatabase &db, bool activa) {
    sqlite3 *motor = mango(db);
    // NORMAL, not OFF: the log is synced ahead of each checkpoint, so that a power cut loses the latest rows
    // of the run but never breaks the file.
    mandar(motor, activa ? u"PRAGMA main.synchronous=NORMAL"_s : u"PRAGMA main.synchronous=FULL"_s);
    if (activa) return;
    // A commit that waits takes the whole log to the disk. Writing a number over itself is the smallest one.
    const Sentencia marca(motor, "PRAGMA main.user_version", -1, nullptr);
    const int version = sqlite3_step(*marca) == SQLITE_ROW ? sqlite3_column_int(*marca, 0) : 0;
    sqlite3_reset(*marca);
    mandar(motor, u"PRAGMA main.user_version=%1"_s.arg(version));
}

QSet<QString> tablasOrdenadas(const QSqlDatabase &db) {
    QSet<QString> tablas;
    Filas esquemas;
    correr(db, u"select name from pragma_database_list where name <> 'temp'"_s, &esquemas);
    for (const QVariant &esquema : esquemas.celdas) {
        Filas filas;
        correr(db,
               u"select lower(name) "
               "from %1.sqlite_master "
               "where type = 'table'"_s.arg(esquema.toString()),
               &filas);
        for (const QVariant &nombre : filas.celdas) tablas.insert(nombre.toString());
    }
    return tablas;
}

void quitarTablaPropia(const QSqlDatabase &db, const QString &tabla) {
    correr(db, u"drop table if exists temp.\"%1\""_s.arg(tabla), nullptr);
}

void hacerTablaPropia(const QSqlDatabase &db, const QString &tabla) {
    quitarTablaPropia(db, tabla);
    // The words that made the stored one, which the engine keeps with one head for all of them.
    static const QString cabeza = u"CREATE TABLE "_s;
    Filas filas;
    correr(db,
           u"select sql "
           "from main.sqlite_master "
           "where type = 'table' and lower(name) = lower('%1')"_s.arg(tabla),
           &filas);
    const QString sql = filas.celdas.empty() ? QString() : filas.celdas.front().toString();
    if (!sql.startsWith(cabeza)) throw Falla{SQLITE_ERROR, {}, u"no such table: %1"_s.arg(tabla), {}};
    correr(db, u"CREATE TEMP TABLE "_s + sql.mid(cabeza.size()), nullptr);
}

// What a profile says of a file

void leer(const Seccion &seccion, Datos &datos) {
    const QString archivo = seccion.valor("archivo");
    if (archivo.isEmpty())
        Seccion::rechazar(u"Al perfil %1 le falta el archivo en la sección [%2]; complételo."_s.arg(
            seccion.ruta, seccion.entidad));
    datos.archivo = QDir::cleanPath(
        QFileInfo(seccion.ruta).absoluteDir().absoluteFilePath(QDir::fromNativeSeparators(archivo)));
}

bool juntos(const Datos &, const Datos &) {
    return true;
}

QString lugar(const Datos &datos) {
    return datos.archivo;
}

QString archivoQueFalta(const Datos &datos) {
    return QFileInfo::exists(datos.archivo) ? QString() : datos.archivo;
}

// The row in hand

bool empieza(const Datos &) {
    return false;
}

bool vive(const QSqlDatabase &db) {
    return db.isOpen();
}

bool seFue(const QSqlDatabase &) {
    return false;
}

QString identidadDeFila(const QString &alias, bool) {
    return alias + ".rowid"_L1;
}

qint64 cambiarFila(const Correr &correr, const QString &update, QVariant &identidad) {
    return correr(update + u" where rowid = %1"_s.arg(identidad.toLongLong()), nullptr);
}

}  // namespace
}  // namespace enArchivo

const Motor &archivo() {
    using namespace dialecto;
    using namespace enArchivo;
    static const Motor motor{
        .driver = u"archivo"_s,
        .etiqueta = u"ACCESS"_s,
        .formaDeFecha = u"#MM/dd/yyyy HH:mm:ss#"_s,
        // Brackets it reads as they stand, and never takes an unknown name between them for a text.
        .gramatica = {.expresiones = {quitarDbo, fechasComoTexto, cambiarFunciones, cambiarConcatenaciones,
                                      guardarDivisores, cambiarExistencias},
                      .ordenDeInsercion = "rowid"_L1,
                      .nulosAlFinal = false,
                      .identidad = identidadDeFila},
        .leer = leer,
        .juntos = juntos,
        .lugar = lugar,
        .archivoQueFalta = archivoQueFalta,
        .abrir = abrir,
        .empieza = empieza,
        .vive = vive,
        .seFue = seFue,
        .tablasOrdenadas = tablasOrdenadas,
        .correr = correr,
        .mandar = mandar,
        .porViaje = 1,
        .cambiarFila = cambiarFila,
        .escrituraLigera = escrituraLigera,
        .hacerTablaPropia = hacerTablaPropia,
        .quitarTablaPropia = quitarTablaPropia,
    };
    return motor;
}

}  // namespace motores
