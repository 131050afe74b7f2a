#include "frame/store/sqlite_functions.h"

#include <sqlite3.h>

#include <QString>
#include <algorithm>
#include <cmath>
#include <cstring>

#include "frame/base/numbers.h"

namespace sqlite {

namespace {

constexpr int deterministica = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;

bool esAscii(const char *texto, int largo) {
    return std::none_of(texto, texto + largo,
                        [](char c) { return (static_cast<unsigned char>(c) & 0x80U) != 0; });
}

int minusculaAscii(char c) {
    return c >= 'A' && c <= 'Z' ? c + 32 : static_cast<unsigned char>(c);
}

int cotejo(void *, int largoA, const void *a, int largoB, const void *b) {
    return comparar(static_cast<const char *>(a), largoA, static_cast<const char *>(b), largoB);
}

QString texto(sqlite3_value *valor) {
    // SQLite itself would write a whole floating number as "3.0".
    if (sqlite3_value_type(valor) == SQLITE_FLOAT) return numeros::aTexto(sqlite3_value_double(valor));
    return QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_value_text(valor)),
                             sqlite3_value_bytes(valor));
}

void responder(sqlite3_context *contexto, const QString &respuesta) {
    const QByteArray utf8 = respuesta.toUtf8();
    sqlite3_result_text(contexto, utf8.constData(), static_cast<int>(utf8.size()), SQLITE_TRANSIENT);
}

bool algunNulo(int cuantos, sqlite3_value **valores) {
    return std::any_of(valores, valores + cuantos,
                       [](sqlite3_value *v) { return sqlite3_value_type(v) == SQLITE_NULL; });
}

void fRound(sqlite3_context *contexto, int cuantos, sqlite3_value **valores) {
    if (algunNulo(cuantos, valores)) return;
    sqlite3_result_double(contexto, numeros::redondear(sqlite3_value_double(valores[0]),
                                                       cuantos > 1 ? sqlite3_value_int(valores[1]) : 0));
}

/// `valor` as its fifteen significant decimal digits say it.
double aQuinceDigitos(double valor) {
    // A sum of amounts is within a hair of a number with few decimals, which is then what the digits say.
    constexpr double conPocosDecimales = 1e5;
    constexpr double hasta = 1e9;
    constexpr double pelo = 4e-16;
    const double cercano = std::nearbyint(valor * conPocosDecimales) / conPocosDecimales;
    if (std::fabs(valor) < hasta && std::fabs(cercano - valor) <= pelo * std::fabs(valor)) return cercano;
    constexpr int todosLosDecimales = 400;
    return numeros::redondear(valor, todosLosDecimales);
}

/// A running sum and what it lost so far, so that the order of the rows does not show in the total.
struct Suma {
    double total;
    double perdido;
    sqlite3_int64 cuantos;
};

void sumar(sqlite3_context *contexto, int, sqlite3_value **valores) {
    if (sqlite3_value_type(valores[0]) == SQLITE_NULL) return;
    auto *suma = static_cast<Suma *>(sqlite3_aggregate_context(contexto, sizeof(Suma)));
    if (suma == nullptr) return sqlite3_result_error_nomem(contexto);
    const double valor = sqlite3_value_double(valores[0]);
    const double nuevo = suma->total + valor;
    suma->perdido += std::fabs(suma->total) >= std::fabs(valor) ? (suma->total - nuevo) + valor
                                                                : (valor - nuevo) + suma->total;
    suma->total = nuevo;
    ++suma->cuantos;
}

void terminarSuma(sqlite3_context *contexto) {
    const auto *suma = static_cast<Suma *>(sqlite3_aggregate_context(contexto, 0));
    if (suma == nullptr || suma->cuantos == 0) return;
    sqlite3_result_double(
        contexto, std::isfinite(suma->total) ? aQuinceDigitos(suma->total + suma->perdido) : suma->total);
}

void fIsnumeric(sqlite3_context *contexto, int, sqlite3_value **valores) {
    int si = 0;
    switch (sqlite3_value_type(valores[0])) {
        case SQLITE_INTEGER:
        case SQLITE_FLOAT:
            si = 1;
            break;
        case SQLITE_TEXT:
            si = numeros::esNumerico(texto(valores[0])) ? 1 : 0;
            break;
        default:
            break;
    }
    sqlite3_result_int(contexto, si);
}

/// Refuses a zero divisor, which SQLite would answer with a null, and makes the division floating.
void fDivisor(sqlite3_context *contexto, int, sqlite3_value **valores) {
    if (sqlite3_value_type(valores[0]) == SQLITE_NULL) return;
    const double divisor = sqlite3_value_double(valores[0]);
    if (divisor == 0)
        sqlite3_result_error(contexto, "división por cero", -1);
    else
        sqlite3_result_double(contexto, divisor);
}

/// Where in `t` the character number `caracter` (from 0) begins; its size when it has no such character.
/// Characters beyond the basic plane are two units of a QString.
qsizetype unidadDe(const QString &t, qint64 caracter) {
    qsizetype i = 0;
    for (; caracter > 0 && i < t.size(); --caracter) i += t[i].isHighSurrogate() && i + 1 < t.size() ? 2 : 1;
    return i;
}

qint64 caracteres(QStringView t) {
    return t.size() - std::count_if(t.begin(), t.end(), [](QChar c) { return c.isLowSurrogate(); });
}

QString cortar(const QString &t, qint64 desde, qint64 hasta) {
    const qsizetype primero = unidadDe(t, std::max<qint64>(0, desde));
    return hasta <= desde ? QString() : t.mid(primero, unidadDe(t, hasta) - primero);
}

/// A length below zero counts from the other end, as on the server.
void fLeft(sqlite3_context *contexto, int cuantos, sqlite3_value **valores) {
    if (algunNulo(cuantos, valores)) return;
    const QString t = texto(valores[0]);
    const qint64 largo = sqlite3_value_int64(valores[1]);
    responder(contexto, cortar(t, 0, largo < 0 ? caracteres(t) + largo : largo));
}

void fRight(sqlite3_context *contexto, int cuantos, sqlite3_value **valores) {
    if (algunNulo(cuantos, valores)) return;
    const QString t = texto(valores[0]);
    const qint64 todos = caracteres(t);
    const qint64 largo = sqlite3_value_int64(valores[1]);
    responder(contexto, cortar(t, std::max<qint64>(0, largo < 0 ? -largo : todos - largo), todos));
}

void fSubstring(sqlite3_context *contexto, int cuantos, sqlite3_value **valores) {
    if (algunNulo(cuantos, valores)) return;
    // A start before the first character eats into the length, as on the server.
    const qint64 desde = sqlite3_value_int64(valores[1]) - 1;
    const qint64 largo = sqlite3_value_int64(valores[2]);
    if (largo < 0) return sqlite3_result_error(contexto, "negative substring length not allowed", -1);
    responder(contexto, cortar(texto(valores[0]), std::max<qint64>(0, desde), desde + largo));
}

void fLen(sqlite3_context *contexto, int cuantos, sqlite3_value **valores) {
    if (!algunNulo(cuantos, valores)) sqlite3_result_int64(contexto, caracteres(texto(valores[0])));
}

void fCharindex(sqlite3_context *contexto, int cuantos, sqlite3_value **valores) {
    if (algunNulo(cuantos, valores)) return;
    const QString donde = texto(valores[1]).toLower();
    const qsizetype en = donde.indexOf(texto(valores[0]).toLower());
    sqlite3_result_int64(contexto, en < 0 ? 0 : caracteres(QStringView(donde).left(en)) + 1);
}

/// LIKE without an escape character. Both texts are lower case already.
bool encaja(const char16_t *patron, const char16_t *finPatron, const char16_t *t, const char16_t *fin) {
    const char16_t *vuelta = nullptr;
    const char16_t *desde = nullptr;
    while (t != fin) {
        if (patron != finPatron && *patron == '%') {
            vuelta = ++patron;
            desde = t;
        } else if (patron != finPatron && *patron == '_') {
            ++patron;
            t += QChar::isHighSurrogate(*t) && t + 1 != fin ? 2 : 1;
        } else if (patron != finPatron && *patron == *t) {
            ++patron;
            ++t;
        } else if (vuelta != nullptr) {
            patron = vuelta;
            t = ++desde;
        } else {
            return false;
        }
    }
    while (patron != finPatron && *patron == '%') ++patron;
    return patron == finPatron;
}

void fLike(sqlite3_context *contexto, int cuantos, sqlite3_value **valores) {
    if (algunNulo(cuantos, valores)) return;
    const QString patron = texto(valores[0]).toLower();
    const QString donde = texto(valores[1]).toLower();
    const auto *p = reinterpret_cast<const char16_t *>(patron.utf16());
    const auto *d = reinterpret_cast<const char16_t *>(donde.utf16());
    sqlite3_result_int(contexto, encaja(p, p + patron.size(), d, d + donde.size()) ? 1 : 0);
}

sqlite3_stmt *preparar(sqlite3_context *contexto, const char *sql) {
    sqlite3_stmt *sentencia = nullptr;
    sqlite3 *motor = sqlite3_context_db_handle(contexto);
    if (sqlite3_prepare_v2(motor, sql, -1, &sentencia, nullptr) != SQLITE_OK) {
        sqlite3_result_error(contexto, sqlite3_errmsg(motor), -1);
        return nullptr;
    }
    return sentencia;
}

void fDescripciones(sqlite3_context *contexto, int, sqlite3_value **valores) {
    sqlite3_stmt *s = preparar(contexto,
                               "select coalesce(descripcion, '') "
                               "from groupsubitems "
                               "where id = ?1 and interno = ?2 "
                               "order by rowid");
    if (s == nullptr) return;
    sqlite3_bind_value(s, 1, valores[0]);
    sqlite3_bind_value(s, 2, valores[1]);
    QByteArray todas;
    int paso = SQLITE_ROW;
    while ((paso = sqlite3_step(s)) == SQLITE_ROW) {
        todas +=
            QByteArray(reinterpret_cast<const char *>(sqlite3_column_text(s, 0)), sqlite3_column_bytes(s, 0));
        todas += ';';
    }
    if (paso != SQLITE_DONE)
        sqlite3_result_error(contexto, sqlite3_errmsg(sqlite3_context_db_handle(contexto)), -1);
    sqlite3_finalize(s);
    if (paso != SQLITE_DONE) return;
    sqlite3_result_text(contexto, todas.constData(), static_cast<int>(todas.size()), SQLITE_TRANSIENT);
}

void fDescargas(sqlite3_context *contexto, int, sqlite3_value **valores) {
    // Each unload takes the item of its line: the line's own, or that of the group it was folded into.
    sqlite3_stmt *s = preparar(contexto,
                               "update descargas "
                               "set iditem = ("
                               "select cast(cast(g.id as integer) as text) "
                               "from subitems s "
                               "join groupsubitems g "
                               "on g.interno = s.interno and (g.idsub = s.id or exists ("
                               "select 1 from idrel r "
                               "where r.interno = s.interno and r.idroot = g.idsub and r.idsub = s.id)) "
                               "where s.interno = ?1 and s.idexportacion = descargas.idexportacion "
                               "and g.id is not null "
                               "order by s.id limit 1) "
                               "where interno = ?1 and (iditem is null or iditem = '') "
                               "and idexportacion <> 0");
    if (s == nullptr) return;
    sqlite3 *motor = sqlite3_context_db_handle(contexto);
    sqlite3_bind_value(s, 1, valores[0]);
    if (sqlite3_step(s) == SQLITE_DONE)
        sqlite3_result_int(contexto, sqlite3_changes(motor));
    else
        sqlite3_result_error(contexto, sqlite3_errmsg(motor), -1);
    sqlite3_finalize(s);
}

}  // namespace

int comparar(const char *a, int largoA, const char *b, int largoB) {
    const int comun = std::min(largoA, largoB);
    int i = 0;
    // Equal bytes and ASCII letters need no decoding; the first other byte does.
    for (; i < comun; ++i) {
        const auto x = static_cast<unsigned char>(a[i]);
        const auto y = static_cast<unsigned char>(b[i]);
        if ((x | y) & 0x80U) break;
        const int d = minusculaAscii(a[i]) - minusculaAscii(b[i]);
        if (d != 0) return d;
    }
    if (i == comun && esAscii(a + i, largoA - i) && esAscii(b + i, largoB - i)) return largoA - largoB;
    const QByteArray x = QString::fromUtf8(a + i, largoA - i).toLower().toUtf8();
    const QByteArray y = QString::fromUtf8(b + i, largoB - i).toLower().toUtf8();
    const int d =
        std::memcmp(x.constData(), y.constData(), static_cast<std::size_t>(std::min(x.size(), y.size())));
    return d != 0 ? d : static_cast<int>(x.size() - y.size());
}

void registrar(sqlite3 *motor) {
    sqlite3_create_collation_v2(motor, "ZCI", SQLITE_UTF8, nullptr, cotejo, nullptr);
    struct Funcion {
        const char *nombre;
        int argumentos;
        int banderas;
        void (*hacer)(sqlite3_context *, int, sqlite3_value **);
    };
    static const Funcion funciones[] = {
        {"round", 1, deterministica, fRound},
        {"round", 2, deterministica, fRound},
        {"isnumeric", 1, deterministica, fIsnumeric},
        {"zdivisor", 1, deterministica, fDivisor},
        {"zleft", 2, deterministica, fLeft},
        {"zright", 2, deterministica, fRight},
        {"zsubstring", 3, deterministica, fSubstring},
        {"zlen", 1, deterministica, fLen},
        {"zcharindex", 2, deterministica, fCharindex},
        {"like", 2, deterministica, fLike},
        {"groupsubitem_descripcion_select_concat", 2, SQLITE_UTF8, fDescripciones},
        {"procesardescargascontlr1", 1, SQLITE_UTF8, fDescargas},
    };
    for (const Funcion &f : funciones)
        sqlite3_create_function_v2(motor, f.nombre, f.argumentos, f.banderas, nullptr, f.hacer, nullptr,
                                   nullptr, nullptr);
    sqlite3_create_function_v2(motor, "sum", 1, deterministica, nullptr, nullptr, sumar, terminarSuma,
                               nullptr);
}

}  // namespace sqlite
