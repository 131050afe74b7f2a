#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QStringList>

#include "frame/store/dialect_tokens.h"
#include "frame/store/engines.h"

using namespace Qt::StringLiterals;

namespace motores {

namespace {

Falla error(const QSqlError &e) {
    QString texto = e.databaseText().trimmed();
    // The driver adds its own words behind the engine's.
    const qsizetype cola = texto.lastIndexOf("\n("_L1);
    if (cola > 0) texto.truncate(cola);
    return {e.nativeErrorCode().toInt(), {}, texto, {}};
}

QVariant celda(const QVariant &valor) {
    if (valor.isNull()) return {};
    switch (valor.typeId()) {
        case QMetaType::Double:
        case QMetaType::LongLong:
        case QMetaType::QString:
            return valor;
        case QMetaType::Int:
        case QMetaType::UInt:
        case QMetaType::ULongLong:
            return valor.toLongLong();
        case QMetaType::Bool:
            return static_cast<qlonglong>(valor.toBool());
        case QMetaType::QDateTime:
            // The same text as the file store keeps.
            return valor.toDateTime().toString(u"yyyy-MM-dd HH:mm:ss"_s);
        default:
            return valor.toString();
    }
}

/// The server runs every statement of a text; what a broken key smuggles in behind a semicolon is not run.
void comprobarQueEsUna(const QString &sql) {
    if (!sql.contains(QLatin1Char(';'))) return;
    dialecto::Tokens t;
    if (!t.partir(sql)) return;  // something does not close: the server refuses the whole text
    for (std::size_t i = 0; i < t.size(); ++i) {
        if (!t[i].es(dialecto::Clave::PuntoYComa)) continue;
        const std::size_t sigue = t.significativo(i + 1);
        if (sigue < t.size() && !t[sigue].es(dialecto::Clave::PuntoYComa))
            throw Falla{0, {}, u"ERROR:  syntax error at or near \"%1\""_s.arg(t[sigue].vista), {}};
    }
}

}  // namespace

QSqlDatabase abrirServidor(const Conexion::Datos &datos, const QString &nombre) {
    QSqlDatabase db = QSqlDatabase::addDatabase(u"QPSQL"_s, nombre);
    db.setHostName(datos.host);
    db.setPort(datos.puerto);
    db.setDatabaseName(datos.base);
    db.setUserName(datos.usuario);
    // An empty one leaves the answer to PostgreSQL's own password file.
    if (!datos.clave.isEmpty()) db.setPassword(datos.clave);
    db.setConnectOptions(u"connect_timeout=10"_s);
    db.setNumericalPrecisionPolicy(QSql::LowPrecisionDouble);
    if (!db.open()) {
        const QString motivo = error(db.lastError()).descripcion.simplified();
        throw Falla{
            -1,
            {},
            u"No se puede conectar con la base \"%1\" del servidor %2:%3 (%4); verifique que el servidor "
            "esté encendido y los datos del perfil."_s.arg(datos.base, datos.host)
                .arg(datos.puerto)
                .arg(motivo),
            {}};
    }
    QStringList camino{QLatin1Char('"') + datos.esquema + QLatin1Char('"')};
    for (const auto &vecino : datos.vecinos) camino << QLatin1Char('"') + vecino.second + QLatin1Char('"');
    camino << u"public"_s;
    QSqlQuery consulta(db);
    if (!consulta.exec(u"set search_path to %1"_s.arg(camino.join(QLatin1Char(',')))) ||
        !consulta.exec(u"set client_min_messages to warning"_s))
        throw error(consulta.lastError());
    return db;
}

qint64 correrEnServidor(const QSqlDatabase &db, const QString &sql, Filas *filas) {
    // The driver takes no statement at all for a mistake.
    QStringView algo = QStringView(sql).trimmed();
    while (algo.endsWith(QLatin1Char(';'))) algo = algo.chopped(1).trimmed();
    if (algo.isEmpty()) return 0;
    comprobarQueEsUna(sql);
    // Not forward-only: row by row the driver would tell a failure of a later row only at the end of the
    // walk.
    QSqlQuery consulta(db);
    if (!consulta.exec(sql)) throw error(consulta.lastError());
    if (!consulta.isSelect()) return std::max(0, consulta.numRowsAffected());
    const int columnas = consulta.record().count();
    if (filas != nullptr) {
        const QSqlRecord registro = consulta.record();
        for (int c = 0; c < columnas; ++c) filas->nombres.push_back(registro.fieldName(c));
    }
    qint64 leidas = 0;
    while (consulta.next()) {
        ++leidas;
        if (filas == nullptr) continue;
        for (int c = 0; c < columnas; ++c) filas->celdas.push_back(celda(consulta.value(c)));
    }
    return leidas;
}

QSet<QString> tablasOrdenadasDeServidor(const QSqlDatabase &db) {
    QSet<QString> tablas;
    Filas filas;
    correrEnServidor(
        db,
        u"select distinct c.relname::text from pg_catalog.pg_attribute a join pg_catalog.pg_class c on "
        "c.oid = a.attrelid where a.attname = 'zfila' and c.relkind = 'r' and not a.attisdropped"_s,
        &filas);
    for (const QVariant &nombre : filas.celdas) tablas.insert(nombre.toString());
    return tablas;
}

void escrituraLigeraEnServidor(const QSqlDatabase &db, bool activa) {
    correrEnServidor(db, u"set synchronous_commit to %1"_s.arg(activa ? u"off"_s : u"on"_s), nullptr);
    // A commit that waits takes everything before it to the disk; it waits only when it has written something
    // itself.
    if (!activa)
        correrEnServidor(db, u"select pg_catalog.pg_logical_emit_message(true, 'zendra', '')"_s, nullptr);
}

}  // namespace motores
