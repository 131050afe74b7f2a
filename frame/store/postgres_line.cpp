#include "frame/store/postgres_line.h"

#include <poll.h>

#include <QByteArray>
#include <QSqlDriver>
#include <QVariant>
#include <limits>
#include <memory>

#include "frame/store/dialect_tokens.h"

using namespace Qt::StringLiterals;

namespace motores::linea {

namespace {

struct Soltar {
    void operator()(PGresult *respuesta) const { PQclear(respuesta); }
};
using Respuesta = std::unique_ptr<PGresult, Soltar>;

Falla errorDe(const char *mensaje, const char *codigo) {
    return {QByteArray(codigo).toInt(), {}, QString::fromUtf8(mensaje).trimmed(), {}};
}

Falla errorDe(const Respuesta &respuesta) {
    return errorDe(PQresultErrorMessage(respuesta.get()),
                   PQresultErrorField(respuesta.get(), PG_DIAG_SQLSTATE));
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

// Types, by the numbers that the server's catalogue gives them for good.
enum Tipo : Oid {
    booleano = 16,
    entero8 = 20,
    entero2 = 21,
    entero4 = 23,
    objeto = 26,
    flotante4 = 700,
    flotante8 = 701,
    momento = 1114,
    momentoConZona = 1184,
    exacto = 1700
};

double flotante(const QByteArray &texto) {
    if (texto == "Infinity") return std::numeric_limits<double>::infinity();
    if (texto == "-Infinity") return -std::numeric_limits<double>::infinity();
    return texto == "NaN" ? std::numeric_limits<double>::quiet_NaN() : texto.toDouble();
}

QVariant celda(const PGresult *respuesta, int fila, int columna) {
    if (PQgetisnull(respuesta, fila, columna) == 1) return {};
    const char *valor = PQgetvalue(respuesta, fila, columna);
    const QByteArray texto = QByteArray::fromRawData(valor, PQgetlength(respuesta, fila, columna));
    // "yyyy-MM-dd HH:mm:ss": the same text as the file store keeps.
    constexpr int largoDeMomento = 19;
    switch (PQftype(respuesta, columna)) {
        case booleano:
            return static_cast<qlonglong>(texto == "t");
        case entero2:
        case entero4:
        case entero8:
        case objeto:
            return texto.toLongLong();
        case flotante4:
        case flotante8:
        case exacto:
            return flotante(texto);
        case momento:
        case momentoConZona:
            return QString::fromLatin1(texto.left(largoDeMomento));
        default:
            return QString::fromUtf8(texto);
    }
}

/// The rows touched by a command, or read, into `filas` when it is given.
qint64 leer(const Respuesta &respuesta, Filas *filas) {
    const PGresult *r = respuesta.get();
    if (PQresultStatus(r) != PGRES_TUPLES_OK) return QByteArray(PQcmdTuples(respuesta.get())).toLongLong();
    const int leidas = PQntuples(r);
    if (filas == nullptr) return leidas;
    std::vector<int> visibles;
    const int columnas = PQnfields(r);
    visibles.reserve(static_cast<std::size_t>(columnas));
    for (int c = 0; c < columnas; ++c) {
        QString nombre = QString::fromUtf8(PQfname(r, c));
        if (nombre == ordenDeInsercion) continue;
        visibles.push_back(c);
        filas->nombres.push_back(std::move(nombre));
    }
    filas->celdas.reserve(visibles.size() * static_cast<std::size_t>(leidas));
    for (int f = 0; f < leidas; ++f)
        for (const int c : visibles) filas->celdas.push_back(celda(r, f, c));
    return leidas;
}

bool salioBien(ExecStatusType estado) {
    return estado == PGRES_COMMAND_OK || estado == PGRES_TUPLES_OK || estado == PGRES_EMPTY_QUERY;
}

/// How a journey ended.
struct Vuelta {
    std::size_t hechas = 0;
    std::optional<Falla> falla;

    void anotar(const Respuesta &respuesta) {
        if (!falla) falla = errorDe(respuesta);
    }
};

/// Reads what comes back of `mandados` statements and the end behind them.
Vuelta recibir(PGconn *conexion, std::vector<Encargo> &encargos, std::size_t mandados) {
    Vuelta v;
    for (std::size_t n = 0; n < mandados; ++n) {
        // Its answer, and the null that ends it.
        while (const Respuesta respuesta{PQgetResult(conexion)}) {
            if (!salioBien(PQresultStatus(respuesta.get()))) {
                v.anotar(respuesta);
            } else if (!v.falla) {
                encargos[n].cuantas = leer(respuesta, encargos[n].filas);
                ++v.hechas;
            }
        }
    }
    // The end: what was done is kept from here on.
    bool llego = false;
    while (const Respuesta respuesta{PQgetResult(conexion)}) {
        llego = PQresultStatus(respuesta.get()) == PGRES_PIPELINE_SYNC;
        if (llego) break;
        v.anotar(respuesta);
    }
    if (!llego && !v.falla) v.falla = errorDe(PQerrorMessage(conexion), "");
    if (v.falla && v.hechas == mandados && mandados > 0) --v.hechas;
    PQexitPipelineMode(conexion);
    return v;
}

/// One by one, up to the first that fails.
Vuelta repetir(PGconn *conexion, std::vector<Encargo> &encargos, std::size_t mandados) {
    Vuelta v;
    try {
        for (; v.hechas < mandados; ++v.hechas) {
            Encargo &e = encargos[v.hechas];
            if (e.filas != nullptr) *e.filas = Filas();
            e.cuantas = Correr(conexion, e.sql, e.filas);
        }
    } catch (const Falla &falla) {
        v.falla = falla;
    }
    return v;
}

}  // namespace

PGconn *Mango(const QSqlDatabase &db) {
    const QVariant v = db.driver()->handle();
    // Called by the name of the structure, or by that of its alias, as Qt is built.
    const QLatin1StringView tipo(v.typeName());
    return tipo == "pg_conn*"_L1 || tipo == "PGconn*"_L1 ? *static_cast<PGconn *const *>(v.constData())
                                                         : nullptr;
}

bool Empieza(const QString &host, int puerto) {
    const QByteArray donde = host.toUtf8();
    const QByteArray cual = QByteArray::number(puerto);
    const char *const palabras[] = {"host", "port", "connect_timeout", nullptr};
    const char *const valores[] = {donde.constData(), cual.constData(), "3", nullptr};
    return PQpingParams(palabras, valores, 0) == PQPING_REJECT;
}

void Callar(PGconn *conexion) {
    PQsetNoticeProcessor(
        conexion, [](void *, const char *) {}, nullptr);
}

bool Vive(PGconn *conexion) {
    const Respuesta respuesta{PQexec(conexion, "select 1")};
    return PQresultStatus(respuesta.get()) == PGRES_TUPLES_OK;
}

bool SeFue(PGconn *conexion) {
    if (PQstatus(conexion) != CONNECTION_OK) return true;
    // A server says farewell before it hangs up; a third look finds nothing that it could still have to say.
    constexpr int miradas = 3;
    pollfd mirar{PQsocket(conexion), POLLIN, 0};
    for (int n = 0; n<miradas && ::poll(&mirar, 1, 0)> 0; ++n)
        if (PQconsumeInput(conexion) == 0) return true;
    return PQstatus(conexion) != CONNECTION_OK;
}

qint64 Correr(PGconn *conexion, const QString &sql, Filas *filas) {
    comprobarQueEsUna(sql);
    const Respuesta respuesta{PQexec(conexion, sql.toUtf8().constData())};
    if (!respuesta) throw errorDe(PQerrorMessage(conexion), "");
    if (!salioBien(PQresultStatus(respuesta.get()))) throw errorDe(respuesta);
    return leer(respuesta, filas);
}

Llegada Mandar(PGconn *conexion, const std::vector<Encargo> &encargos) {
    // Inside a transaction that somebody opened what failed takes all of it along.
    const bool enTransaccion = PQtransactionStatus(conexion) != PQTRANS_IDLE;
    std::optional<Falla> defecto;
    std::size_t mandados = 0;
    try {
        if (PQenterPipelineMode(conexion) != 1) throw errorDe(PQerrorMessage(conexion), "");
        for (; mandados < encargos.size(); ++mandados) {
            const QString &sql = encargos[mandados].sql;
            comprobarQueEsUna(sql);
            if (PQsendQueryParams(conexion, sql.toUtf8().constData(), 0, nullptr, nullptr, nullptr, nullptr,
                                  0) != 1)
                throw errorDe(PQerrorMessage(conexion), "");
        }
    } catch (const Falla &e) {
        defecto = e;
    }
    PQpipelineSync(conexion);
    return [conexion, defecto, mandados, enTransaccion](std::vector<Encargo> &suyos,
                                                        std::optional<Falla> &falla) {
        Vuelta v = recibir(conexion, suyos, mandados);
        if (v.falla && v.hechas > 0 && !enTransaccion && !SeFue(conexion))
            v = repetir(conexion, suyos, mandados);
        falla = v.falla ? v.falla : defecto;
        return v.hechas;
    };
}

}  // namespace motores::linea
