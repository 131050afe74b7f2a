#pragma once
// What an engine is: its words, its grammar, and what it does for a connection. Two of them; which one
// answers for an entity is settled once, when the profile is read.

#include <QSet>
#include <QSqlDatabase>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "frame/base/failure.h"
#include "frame/store/dialect.h"

namespace motores {

struct Motor;

/// What a profile says of one entity. File store: `archivo` is the SQLite file. Server store: host (a path is
/// a socket folder), puerto, base, esquema, usuario, clave (empty: PostgreSQL's own password file answers).
struct Datos {
    QString entidad;
    const Motor *motor = nullptr;  ///< never null once read
    QString archivo;
    QString host;
    int puerto = 5432;
    QString base;
    QString esquema;
    QString usuario;
    QString clave;
    /// What the section asks of the server's client library (connectwords.h), files with their whole path.
    std::vector<std::pair<QString, QString>> palabras;
    QString separadorDecimal = QStringLiteral(".");
    /// Pattern of QDateTime between the literal's own delimiters, e.g. "#MM/dd/yyyy HH:mm:ss#".
    QString formaDeFecha;
    /// The other entities of the profile that live on the same engine, in profile order: their tables are
    /// found by bare name. (entity, what Motor::lugar answers for it)
    std::vector<std::pair<QString, QString>> vecinos;
    /// What Motor::tablasOrdenadas said to the first of the entities on one server, for all of them; none
    /// where every connection asks for itself.
    std::shared_ptr<std::optional<QSet<QString>>> tablasOrdenadas;
};

/// One section of a profile, as an engine reads it.
struct Seccion {
    QString ruta;     ///< the profile's file
    QString entidad;  ///< the section's name

    /// The text of a key; `defecto` when it is missing or blank.
    QString valor(const char *clave, const QString &defecto = {}) const;
    /// Raises Falla with `texto`, one Spanish sentence for the user.
    [[noreturn]] static void rechazar(const QString &texto);
};

/// The rows of a statement, one cell after the other.
struct Filas {
    std::vector<QString> nombres;
    std::vector<QVariant> celdas;

    qint64 cuantas() const {
        return nombres.empty() ? 0 : static_cast<qint64>(celdas.size() / nombres.size());
    }
};

/// Runs one text for a connection, with its trace and its failures: see Motor::correr.
using Correr = std::function<qint64(const QString &sql, Filas *filas)>;

/// One statement of several that go together, the engine's own.
struct Encargo {
    QString sql;
    Filas *filas = nullptr;  ///< takes its rows, where it is given
    qint64 cuantas = 0;      ///< once it has run: what Motor::correr answers
};

/// Waits for the end of what was sent and fills the very statements that were: how many stood ahead of the
/// first that failed, which is in `falla` then.
using Llegada = std::function<std::size_t(std::vector<Encargo> &encargos, std::optional<Falla> &falla)>;

/// One engine. What fails raises Falla with the engine's words.
struct Motor {
    QString driver;    ///< the profile's word for it
    QString etiqueta;  ///< the dialect's name for the modules: "SQL" for a server store, "ACCESS" for a file
    QString formaDeFecha;  ///< of date literals, where the profile tells none; delimiters included
    dialecto::Gramatica gramatica;

    /// Takes from a profile's section what this engine has to know. Raises Falla for what is missing or
    /// wrong.
    void (*leer)(const Seccion &seccion, Datos &datos);
    /// Whether one connection reaches the tables of both.
    bool (*juntos)(const Datos &a, const Datos &b);
    /// Where the entity lies, as a connection of its neighbours has to be told: its file or its schema.
    QString (*lugar)(const Datos &datos);
    /// The file that has to be there before the first statement and is not; empty when there is none to miss.
    QString (*archivoQueFalta)(const Datos &datos);

    /// Opens the entity's store with its neighbours in reach. `nombre` is the connection's name for Qt.
    QSqlDatabase (*abrir)(const Datos &datos, const QString &nombre);
    /// Whether the store is there and takes nobody yet: a server that starts up.
    bool (*empieza)(const Datos &datos);
    /// Whether statements still reach the store behind an open handle.
    bool (*vive)(const QSqlDatabase &db);
    /// Whether the store went away behind an open handle that nothing was asked of. Asks it nothing.
    bool (*seFue)(const QSqlDatabase &db);
    /// The tables that keep an order of insertion, lower case.
    QSet<QString> (*tablasOrdenadas)(const QSqlDatabase &db);
    /// Runs `sql`, one statement of the engine's own; fills `filas` when it is given. Answers the rows
    /// touched by a command, or read. The column that keeps the order of insertion is the engine's own
    /// business: `*` does not show it.
    qint64 (*correr)(const QSqlDatabase &db, const QString &sql, Filas *filas);
    /// Begins to run statements, one after the other, and answers what waits for their end, which has to be
    /// asked ahead of anything else on `db`. What stands ahead of one that fails is done, what stands behind
    /// it is not. Raises nothing.
    Llegada (*mandar)(const QSqlDatabase &db, const std::vector<Encargo> &encargos);
    /// How many statements one journey takes at most; 1 where there is no journey to save.
    std::size_t porViaje;
    /// Runs `update` ("update t set …", without a condition) on the one row that `identidad` tells, which a
    /// select with Gramatica::identidad answered; renews `identidad` where the row moved. Answers the rows
    /// touched: 0 when the row is gone.
    qint64 (*cambiarFila)(const Correr &correr, const QString &update, QVariant &identidad);
    /// Not waiting for the disk at every statement (true), or durable again, with everything written so far
    /// (false).
    void (*escrituraLigera)(const QSqlDatabase &db, bool activa);
    /// Gives the connection an empty table of its own with the columns of the stored `tabla`, which
    /// statements find ahead of that one until it is taken away; in place of one that it had.
    void (*hacerTablaPropia)(const QSqlDatabase &db, const QString &tabla);
    /// Takes it away; without one nothing happens.
    void (*quitarTablaPropia)(const QSqlDatabase &db, const QString &tabla);
};

/// SQLite: a file an entity.
const Motor &archivo();
/// PostgreSQL: a schema an entity.
const Motor &servidor();
/// The engine that a profile calls `driver`, in any case; null for a word that names none.
const Motor *porDriver(const QString &driver);

}  // namespace motores
