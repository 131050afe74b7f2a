#include <libpq-fe.h>

#include <QDateTime>
#include <QFileInfo>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QStringList>

#include "frame/base/failure.h"
#include "frame/store/connectwords.h"
#include "frame/store/dialect_rewrites.h"
#include "frame/store/dialect_tokens.h"
#include "frame/store/engines.h"

using namespace Qt::StringLiterals;

namespace motores {

namespace enServidor {
namespace {

/// Unlike the place of a row it stays the row's for good; SQLite's own row numbers do both.
constexpr QLatin1String ordenDeInsercion("zfila");

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

/// The same, and it closes what it opens: it would take the beginning of the next one for its own end.
void comprobarQueEsUnaEntera(const QString &sql) {
    comprobarQueEsUna(sql);
    if (dialecto::Tokens t; !t.partir(sql))
        throw Falla{0, {}, u"ERROR:  unterminated text at the end of \"%1\""_s.arg(sql), {}};
}

QSqlDatabase abrir(const Datos &datos, const QString &nombre) {
    QSqlDatabase db = QSqlDatabase::addDatabase(u"QPSQL"_s, nombre);
    prepararConexion(datos, db);
    db.setNumericalPrecisionPolicy(QSql::LowPrecisionDouble);
    if (!db.open()) {
        const QString motivo = error(db.lastError()).descripcion.simplified();
        throw Falla{
            -1,
            {},
            u"No se puede conectar con la base \"%1\" del servidor %2:%3 (%4); "
            "verifique que el servidor esté encendido y los datos del perfil."_s.arg(datos.base, datos.host)
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

/// The answer that `consulta` stands on: the rows touched by a command, or read, into `filas` when it is
/// given.
qint64 leerRespuesta(QSqlQuery &consulta, Filas *filas) {
    if (!consulta.isSelect()) return std::max(0, consulta.numRowsAffected());
    std::vector<int> visibles;
    // Asked for the names, the driver also asks the server for the table of each column, in the middle of the
    // answers that are still to come. Of rows that only go forward it does not, so that is what it is told.
    consulta.setForwardOnly(true);
    const QSqlRecord registro = consulta.record();
    consulta.setForwardOnly(false);
    for (int c = 0; c < registro.count(); ++c)
        if (registro.fieldName(c) != ordenDeInsercion) visibles.push_back(c);
    if (filas != nullptr)
        for (const int c : visibles) filas->nombres.push_back(registro.fieldName(c));
    qint64 leidas = 0;
    while (consulta.next()) {
        ++leidas;
        if (filas == nullptr) continue;
        for (const int c : visibles) filas->celdas.push_back(celda(consulta.value(c)));
    }
    return leidas;
}

qint64 correr(const QSqlDatabase &db, const QString &sql, Filas *filas) {
    // The driver takes no statement at all for a mistake.
    QStringView algo = QStringView(sql).trimmed();
    while (algo.endsWith(QLatin1Char(';'))) algo = algo.chopped(1).trimmed();
    if (algo.isEmpty()) return 0;
    comprobarQueEsUna(sql);
    // Not forward-only: row by row the driver would tell a failure of a later row only at the end of the
    // walk.
    QSqlQuery consulta(db);
    if (!consulta.exec(sql)) throw error(consulta.lastError());
    return leerRespuesta(consulta, filas);
}

/// Several statements as one text; `hechas` counts those that may be sent. Raises Falla for one that may not.
QString enUnTexto(const QStringList &sentencias, qsizetype &hechas) {
    for (const QString &sentencia : sentencias) {
        comprobarQueEsUnaEntera(sentencia);
        ++hechas;
    }
    hechas = 0;
    return sentencias.join(u"\n;\n"_s);
}

qsizetype consultarSeguidas(const QSqlDatabase &db, const QStringList &sentencias, std::vector<Filas> &filas,
                            std::optional<Falla> &falla) {
    qsizetype hechas = 0;
    try {
        const QString texto = enUnTexto(sentencias, hechas);
        QSqlQuery consulta(db);
        // The server answers each by itself; the first that it refuses ends the answers.
        for (bool sigue = consulta.exec(texto); sigue; sigue = consulta.nextResult()) {
            leerRespuesta(consulta, &filas.emplace_back());
            ++hechas;
        }
        if (consulta.lastError().isValid()) throw error(consulta.lastError());
    } catch (const Falla &e) {
        falla = e;
    }
    return hechas;
}

/// The client library's own connection: Qt's driver waits for every answer.
PGconn *mango(const QSqlDatabase &db) {
    const QVariant v = db.driver()->handle();
    // Called by the name of the structure, or by that of its alias, as Qt is built.
    const QLatin1StringView tipo(v.typeName());
    return tipo == "pg_conn*"_L1 || tipo == "PGconn*"_L1 ? *static_cast<PGconn *const *>(v.constData())
                                                         : nullptr;
}

Falla errorDe(const char *mensaje, const char *codigo) {
    return {QByteArray(codigo).toInt(), {}, QString::fromUtf8(mensaje).trimmed(), {}};
}

/// Reads all answers that are on their way; the first failure is told.
qsizetype recoger(PGconn *conexion, std::optional<Falla> &falla) {
    qsizetype hechas = 0;
    while (PGresult *respuesta = PQgetResult(conexion)) {
        const ExecStatusType estado = PQresultStatus(respuesta);
        if (estado == PGRES_COMMAND_OK || estado == PGRES_TUPLES_OK)
            ++hechas;
        else if (estado != PGRES_EMPTY_QUERY && !falla)
            falla = errorDe(PQresultErrorMessage(respuesta), PQresultErrorField(respuesta, PG_DIAG_SQLSTATE));
        PQclear(respuesta);
    }
    return hechas;
}

Llegada mandarSeguidas(const QSqlDatabase &db, const QStringList &sentencias) {
    PGconn *conexion = mango(db);
    qsizetype hechas = 0;
    Falla defecto;
    try {
        const QByteArray texto = enUnTexto(sentencias, hechas).toUtf8();
        if (conexion != nullptr && PQsendQuery(conexion, texto.constData()) == 1)
            return [conexion](std::optional<Falla> &falla) { return recoger(conexion, falla); };
        defecto = errorDe(PQerrorMessage(conexion), "");
    } catch (const Falla &e) {
        defecto = e;
    }
    return [hechas, defecto](std::optional<Falla> &falla) {
        falla = defecto;
        return hechas;
    };
}

QSet<QString> tablasOrdenadas(const QSqlDatabase &db) {
    QSet<QString> tablas;
    Filas filas;
    correr(db,
           u"select distinct c.relname::text "
           "from pg_catalog.pg_attribute a "
           "join pg_catalog.pg_class c on c.oid = a.attrelid "
           "where a.attname = '%1' and c.relkind = 'r' and not a.attisdropped"_s.arg(ordenDeInsercion),
           &filas);
    for (const QVariant &nombre : filas.celdas) tablas.insert(nombre.toString());
    return tablas;
}

void escrituraLigera(const QSqlDatabase &db, bool activa) {
    correr(db, u"set synchronous_commit to %1"_s.arg(activa ? u"off"_s : u"on"_s), nullptr);
    // A commit that waits takes everything before it to the disk; it waits only when it has written something
    // itself.
    if (!activa) correr(db, u"select pg_catalog.pg_logical_emit_message(true, 'zendra', '')"_s, nullptr);
}

void quitarTablaPropia(const QSqlDatabase &db, const QString &tabla) {
    correr(db, u"drop table if exists pg_temp.%1"_s.arg(tabla), nullptr);
}

void hacerTablaPropia(const QSqlDatabase &db, const QString &tabla) {
    quitarTablaPropia(db, tabla);
    correr(db, u"create temporary table %1 (like %1 including all)"_s.arg(tabla), nullptr);
}

// What a profile says of a server

void leer(const Seccion &seccion, Datos &datos) {
    constexpr int puertoMayor = 65535;
    datos.host = seccion.valor("host");
    bool esNumero = false;
    datos.puerto = seccion.valor("puerto", u"5432"_s).toInt(&esNumero);
    if (!esNumero || datos.puerto < 1 || datos.puerto > puertoMayor)
        Seccion::rechazar(
            u"El perfil %1 dice puerto=%2 en la sección [%3]; escriba un número de puerto."_s.arg(
                seccion.ruta, seccion.valor("puerto"), seccion.entidad));
    datos.base = seccion.valor("base");
    datos.esquema = seccion.valor("esquema", seccion.entidad.toLower());
    datos.usuario = seccion.valor("usuario");
    datos.clave = seccion.valor("clave");
    if (datos.host.isEmpty() || datos.base.isEmpty())
        Seccion::rechazar(u"Al perfil %1 le falta el host o la base en la sección [%2]; complételos."_s.arg(
            seccion.ruta, seccion.entidad));
    tomarPalabras(
        {[&seccion](const QString &palabra) { return seccion.valor(palabra.toLatin1().constData()); },
         QFileInfo(seccion.ruta).absolutePath(),
         u"El perfil %1, en la sección [%2],"_s.arg(seccion.ruta, seccion.entidad)},
        datos);
}

bool juntos(const Datos &a, const Datos &b) {
    return a.host == b.host && a.puerto == b.puerto && a.base == b.base;
}

QString lugar(const Datos &datos) {
    return datos.esquema;
}

QString archivoQueFalta(const Datos &) {
    return {};
}

// The row in hand

bool vive(const QSqlDatabase &db) {
    if (!db.isOpen()) return false;
    QSqlQuery consulta(db);
    return consulta.exec(u"select 1"_s);
}

/// The row's place, and its line behind it where the table has lines: a place alone may be another row's by
/// the time of the update.
QString identidadDeFila(const QString &alias, bool ordenada) {
    const QString lugarDeFila = alias + ".ctid"_L1;
    return ordenada
               ? "concat("_L1 + lugarDeFila + ", "_L1 + alias + QLatin1Char('.') + ordenDeInsercion + ")"_L1
               : lugarDeFila + "::text"_L1;
}

qint64 cambiarFila(const Correr &correr, const QString &update, QVariant &identidad) {
    // The place finds the row at once, the number of its line tells that it still is that row. A row that
    // another statement wrote meanwhile has a new place; its line finds it there.
    const QString lugarYLinea = identidad.toString();
    const qsizetype fin = lugarYLinea.indexOf(QLatin1Char(')')) + 1;
    const QString linea = lugarYLinea.mid(fin);
    const QString esLaLinea = linea.isEmpty() ? QString() : ordenDeInsercion + " = "_L1 + linea;
    const auto intentar = [&](const QString &condicion) {
        Filas filas;
        const qint64 tocadas = correr(update + " where "_L1 + condicion + " returning ctid::text"_L1, &filas);
        if (tocadas == 1) identidad = filas.celdas.front().toString() + linea;
        return tocadas;
    };
    QString enSuLugar = u"ctid = '%1'::tid"_s.arg(lugarYLinea.left(fin));
    if (!linea.isEmpty()) enSuLugar += " and "_L1 + esLaLinea;
    const qint64 tocadas = intentar(enSuLugar);
    return tocadas != 0 || linea.isEmpty() ? tocadas : intentar(esLaLinea);
}

}  // namespace
}  // namespace enServidor

const Motor &servidor() {
    using namespace dialecto;
    using namespace enServidor;
    static const Motor motor{
        .driver = u"servidor"_s,
        .etiqueta = u"SQL"_s,
        .formaDeFecha = u"'yyyy-MM-dd HH:mm:ss'"_s,
        .gramatica = {.expresiones = {quitarDbo, cambiarCorchetes, fechasComoMomento, cambiarSumas,
                                      dividirConDecimales, cambiarLike, cambiarExistencias},
                      .ordenDeInsercion = ordenDeInsercion,
                      .nulosAlFinal = true,
                      .identidad = identidadDeFila},
        .leer = leer,
        .juntos = juntos,
        .lugar = lugar,
        .archivoQueFalta = archivoQueFalta,
        .abrir = abrir,
        .vive = vive,
        .tablasOrdenadas = tablasOrdenadas,
        .correr = correr,
        .consultarSeguidas = consultarSeguidas,
        .mandarSeguidas = mandarSeguidas,
        .cambiarFila = cambiarFila,
        .escrituraLigera = escrituraLigera,
        .hacerTablaPropia = hacerTablaPropia,
        .quitarTablaPropia = quitarTablaPropia,
    };
    return motor;
}

}  // namespace motores
