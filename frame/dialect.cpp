#include "frame/dialect.h"

#include <QDateTime>
#include <array>

#include "frame/dialect_tokens.h"
#include "frame/numbers.h"

namespace dialecto {

namespace {

// What a function of the statements is called on the file store; LEFT and RIGHT are words of joins there. A function
// that answers text keeps comparing without regard to case.
struct Funcion {
    const char *nombre;
    const char *enArchivo;
    bool texto;
};
constexpr std::array<Funcion, 5> funciones{{
    {"left", "zleft", true},
    {"right", "zright", true},
    {"substring", "zsubstring", true},
    {"len", "zlen", false},
    {"charindex", "zcharindex", false},
}};

constexpr std::array<const char *, 5> sumarias{"sum", "count", "max", "min", "avg"};

bool esSumaria(const Token &t) {
    for (const char *s : sumarias)
        if (t.es(s)) return true;
    return false;
}

bool esSumarioLlamado(const Tokens &t, std::size_t i) {
    if (!esSumaria(t[i])) return false;
    const std::size_t j = significativo(t, i + 1);
    return j < t.size() && t[j].es(u'(');
}

/// One of the words that end a table in a FROM or a clause.
bool esClausula(const Token &t) {
    return t.es("where") || t.es("group") || t.es("order") || t.es("having") || t.es("union") || t.es("limit");
}

// Names, dates, functions

void cambiarNombres(Tokens &t, const Ajustes &a) {
    for (std::size_t i = 0; i < t.size(); ++i) {
        Token &k = t[i];
        if (k.clase == Clase::Corchete) {
            QString nombre = k.vista.mid(1, k.vista.size() - 2).toString().toLower();
            k.cambiar(QLatin1Char('"') + nombre.replace(QLatin1Char('"'), QLatin1String("\"\"")) + QLatin1Char('"'));
        } else if (k.clase == Clase::Fecha) {
            const QString dentro = k.vista.mid(1, k.vista.size() - 2).trimmed().toString();
            QDateTime momento;
            for (const char *forma : {"MM/dd/yyyy HH:mm:ss", "MM/dd/yyyy", "M/d/yyyy H:m:s", "M/d/yyyy", "yyyy-MM-dd HH:mm:ss", "yyyy-MM-dd"}) {
                momento = QDateTime::fromString(dentro, QLatin1String(forma));
                if (momento.isValid()) break;
            }
            // A date that is none goes on as it stands, for the engine to refuse.
            if (!momento.isValid()) continue;
            const QString texto = QLatin1Char('\'') + momento.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")) + QLatin1Char('\'');
            k.cambiar(a.motor == Motor::PostgreSQL ? QLatin1String("TIMESTAMP ") + texto : texto);
        } else if (k.es("dbo")) {
            const std::size_t punto = significativo(t, i + 1);
            if (punto < t.size() && t[punto].es(u'.')) {
                k.cambiar({});
                t[punto].cambiar({});
            }
        } else if (k.clase == Clase::Palabra && a.motor == Motor::SQLite) {
            for (const Funcion &f : funciones) {
                if (!k.es(f.nombre)) continue;
                const std::size_t abre = significativo(t, i + 1);
                if (abre >= t.size() || !t[abre].es(u'(')) break;
                k.cambiar(QLatin1String(f.enArchivo));
                if (!f.texto) break;
                k.antes += QLatin1Char('(');
                t[cierre(t, abre)].detras += QLatin1String(" COLLATE ZCI)");
                break;
            }
        }
    }
}

// Concatenation

bool textoQueNoEsNumero(const Token &t) {
    return t.clase == Clase::Texto && !numeros::esNumerico(t.vista.mid(1, t.vista.size() - 2));
}

/// The "+" of a chain that holds a text which is no number join texts; the others add.
void cambiarConcatenaciones(Tokens &t) {
    std::vector<std::size_t> cadena;
    for (std::size_t i = 0; i < t.size(); ++i) {
        if (!t[i].es(u'+') || t[i].cambiado) continue;
        const std::size_t izquierda = anterior(t, i);
        if (izquierda >= t.size()) continue;
        cadena.clear();
        bool une = textoQueNoEsNumero(t[izquierda]);
        std::size_t mas = i;
        while (mas < t.size() && t[mas].es(u'+')) {
            cadena.push_back(mas);
            const std::size_t operando = significativo(t, mas + 1);
            if (operando >= t.size()) break;
            une = une || textoQueNoEsNumero(t[operando]);
            mas = significativo(t, finDePrimario(t, operando));
        }
        if (une)
            for (const std::size_t m : cadena) t[m].cambiar(QStringLiteral("||"));
        i = cadena.back();
    }
}

// Division

bool esEntero(const Token &t) {
    return t.clase == Clase::Numero && !t.vista.contains(u'.') && !t.vista.contains(u'e') && !t.vista.contains(u'E');
}

/// Division is floating on both engines and refuses zero on both: PostgreSQL does so by itself.
void cambiarDivisiones(Tokens &t, Motor motor) {
    for (std::size_t i = 0; i < t.size(); ++i) {
        if (!t[i].es(u'/')) continue;
        const std::size_t divisor = significativo(t, i + 1);
        if (divisor >= t.size()) continue;
        if (esEntero(t[divisor])) {
            if (motor == Motor::PostgreSQL)
                t[divisor].detras += QLatin1String("::double precision");
            else if (t[divisor].vista.count(u'0') == t[divisor].vista.size())
                t[divisor].cambiar(QStringLiteral("zdivisor(0)"));
            else
                t[divisor].detras += QLatin1String(".0");
            continue;
        }
        if (motor == Motor::PostgreSQL) continue;
        const std::size_t fin = finDePrimario(t, divisor);
        t[divisor].antes.prepend(QLatin1String("zdivisor("));
        t[fin - 1].detras += QLatin1Char(')');
    }
}

/// No character of a pattern escapes another.
void cambiarLike(Tokens &t) {
    for (std::size_t i = 0; i < t.size(); ++i) {
        if (!t[i].es("like")) continue;
        const std::size_t fin = finDePrimario(t, i + 1);
        if (fin > i + 1 && fin <= t.size() && t[fin - 1].clase != Clase::Espacio) t[fin - 1].detras += QLatin1String(" ESCAPE ''");
    }
}

// One select: row limit, order

/// The parts of the select whose word stands at `select`, up to `fin` (its parenthesis, a union, the end).
struct Select {
    std::size_t select = 0;
    std::size_t lista = 0;  ///< first token of the select list
    std::size_t from = 0;   ///< 0: none
    std::size_t groupBy = 0;
    std::size_t orderBy = 0;
    std::size_t fin = 0;
    bool distinct = false;
    bool sumario = false;
    bool union_ = false;  ///< part of a union
    bool subconsulta = false;
    QString tope;
    int columnas = 1;
    bool asterisco = false;
    QString tabla;  ///< the one table of the FROM, lower case; empty for none or several
    QString alias;
};

void leerTabla(const Tokens &t, Select &s) {
    std::size_t i = significativo(t, s.from + 1);
    if (i >= s.fin || t[i].clase != Clase::Palabra) return;
    const QString nombre = t[i].vista.toString().toLower();
    QString alias = t[i].vista.toString();
    i = significativo(t, i + 1);
    if (i < s.fin && t[i].es("as")) i = significativo(t, i + 1);
    if (i < s.fin && t[i].clase == Clase::Palabra && !esClausula(t[i]) && !t[i].es("inner") && !t[i].es("left") && !t[i].es("join")) {
        alias = t[i].vista.toString();
        i = significativo(t, i + 1);
    }
    if (i < s.fin && !esClausula(t[i])) return;
    s.tabla = nombre;
    s.alias = alias;
}

/// "round(sum(x), 2)" answers one row like the sum itself; a sum of a subquery is its own.
bool hayUnSumario(const Tokens &t, std::size_t desde, std::size_t hasta) {
    for (std::size_t i = desde; i < hasta; ++i) {
        if (t[i].es("select")) return false;
        if (esSumarioLlamado(t, i)) return true;
    }
    return false;
}

Select leerSelect(Tokens &t, std::size_t select, std::size_t limite) {
    Select s;
    s.select = select;
    s.fin = limite;
    std::size_t i = significativo(t, select + 1);
    if (i < limite && (t[i].es("distinct") || t[i].es("all"))) {
        s.distinct = t[i].es("distinct");
        i = significativo(t, i + 1);
    }
    if (i < limite && t[i].es("top")) {
        const std::size_t cuantos = significativo(t, i + 1);
        if (cuantos < limite && esEntero(t[cuantos])) {
            s.tope = t[cuantos].vista.toString();
            t[i].cambiar({});
            t[cuantos].cambiar({});
            i = significativo(t, cuantos + 1);
        }
    }
    s.lista = i;
    for (; i < limite; ++i) {
        if (t[i].es(u'(')) {
            const std::size_t fin = cierre(t, i);
            if (s.from == 0) s.sumario = s.sumario || hayUnSumario(t, i, fin);
            i = fin;
            continue;
        }
        if (t[i].es(u';')) {
            s.fin = i;
            break;
        }
        if (s.from == 0) {
            if (t[i].es(u',')) ++s.columnas;
            if (t[i].es(u'*') && (i == s.lista || t[anterior(t, i)].es(u'.') || t[anterior(t, i)].es(u','))) s.asterisco = true;
            if (esSumarioLlamado(t, i)) s.sumario = true;
        }
        if (t[i].es("from") && s.from == 0)
            s.from = i;
        else if (t[i].es("group"))
            s.groupBy = i;
        else if (t[i].es("order"))
            s.orderBy = i;
        else if (t[i].es("union")) {
            s.fin = i;
            s.union_ = true;
            break;
        }
    }
    if (s.from != 0) leerTabla(t, s);
    return s;
}

/// The end of what stands ahead of `fin`, to write behind it.
Token &ultimo(Tokens &t, std::size_t fin) { return t[anterior(t, fin)]; }

/// "group by a, b" gives "a, b".
QString listaDeGrupo(const Tokens &t, const Select &s) {
    const std::size_t desde = significativo(t, significativo(t, s.groupBy + 1) + 1);
    std::size_t hasta = s.fin;
    for (std::size_t i = desde; i < s.fin; ++i) {
        if (t[i].es(u'(')) {
            i = cierre(t, i);
        } else if (t[i].es("having") || t[i].es("order")) {
            hasta = i;
            break;
        }
    }
    return escribir(t, desde, hasta).trimmed();
}

/// PostgreSQL sets nulls behind everything else unless told; SQLite sets them first.
void ordenarNulos(Tokens &t, const Select &s) {
    std::size_t i = significativo(t, significativo(t, s.orderBy + 1) + 1);
    std::size_t ultimoVisto = i;
    const auto marcar = [&](std::size_t en) {
        t[en].detras += t[en].es("desc") ? QLatin1String(" NULLS LAST") : QLatin1String(" NULLS FIRST");
    };
    for (; i < s.fin; ++i) {
        if (t[i].clase == Clase::Espacio) continue;
        if (t[i].es(u',')) {
            marcar(ultimoVisto);
            continue;
        }
        if (t[i].es(u'(')) i = cierre(t, i);
        ultimoVisto = i;
    }
    if (ultimoVisto < s.fin) marcar(ultimoVisto);
}

QString nulosPrimero(QString lista) {
    return lista.replace(QLatin1Char(','), QLatin1String(" NULLS FIRST,")) + QLatin1String(" NULLS FIRST");
}

void ordenar(Tokens &t, const Select &s, const Ajustes &a) {
    const bool pg = a.motor == Motor::PostgreSQL;
    const QString natural = s.alias + (pg ? QLatin1String(".zfila") : QLatin1String(".rowid"));
    const bool unaTabla = !s.tabla.isEmpty() && a.tablasOrdenadas.contains(s.tabla);
    const bool porFilas = unaTabla && !s.distinct && !s.sumario && s.groupBy == 0 && !s.union_;
    if (s.orderBy != 0) {
        if (pg && !s.subconsulta) ordenarNulos(t, s);
        if (porFilas && !s.subconsulta) ultimo(t, s.fin).detras += QLatin1String(", ") + natural;
        return;
    }
    if (s.subconsulta && s.tope.isEmpty()) return;
    if (porFilas) {
        ultimo(t, s.fin).detras += QLatin1String(" ORDER BY ") + natural;
    } else if (s.groupBy != 0 && !s.union_ && !s.distinct) {
        const QString grupo = listaDeGrupo(t, s);
        if (!grupo.contains(QLatin1Char('('))) ultimo(t, s.fin).detras += QLatin1String(" ORDER BY ") + (pg ? nulosPrimero(grupo) : grupo);
    } else if (s.distinct && !s.asterisco && !s.union_ && s.from != 0) {
        QStringList posiciones;
        for (int c = 1; c <= s.columnas; ++c) posiciones << QString::number(c);
        const QString todas = posiciones.join(QLatin1Char(','));
        ultimo(t, s.fin).detras += QLatin1String(" ORDER BY ") + (pg ? nulosPrimero(todas) : todas);
    }
}

void cambiarSelects(Tokens &t, const Ajustes &a, bool conIdentidadDeFila) {
    std::vector<std::size_t> abiertos;
    bool primero = true;
    for (std::size_t i = 0; i < t.size(); ++i) {
        if (t[i].es(u'('))
            abiertos.push_back(i);
        else if (t[i].es(u')') && !abiertos.empty())
            abiertos.pop_back();
        if (!t[i].es("select")) continue;
        const std::size_t limite = abiertos.empty() ? t.size() : cierre(t, abiertos.back());
        Select s = leerSelect(t, i, limite);
        s.subconsulta = !abiertos.empty();
        const std::size_t previo = anterior(t, i);
        if (previo < t.size() && (t[previo].es("union") || t[previo].es("all"))) s.union_ = true;
        if (primero && conIdentidadDeFila && s.from != 0) {
            const QString fila = a.motor == Motor::PostgreSQL ? s.alias + QLatin1String(".ctid::text") : s.alias + QLatin1String(".rowid");
            t[s.from].antes.prepend(QLatin1String(", ") + fila + QLatin1String(" as z_identidad "));
        }
        primero = false;
        ordenar(t, s, a);
        if (!s.tope.isEmpty()) ultimo(t, s.fin).detras += QLatin1String(" LIMIT ") + s.tope;
    }
}

// Updates over a join, in both spellings

/// Where `palabra` stands outside parentheses, from `desde` on; t.size() when it does not.
std::size_t buscar(const Tokens &t, std::size_t desde, const char *palabra) {
    for (std::size_t i = desde; i < t.size(); ++i) {
        if (t[i].es(u'('))
            i = cierre(t, i);
        else if (t[i].es(palabra))
            return i;
    }
    return t.size();
}

/// Target columns of a SET lose their table's name.
void desnudarAsignaciones(Tokens &t, std::size_t desde, std::size_t hasta) {
    bool izquierda = true;
    for (std::size_t i = desde; i < hasta; ++i) {
        if (t[i].es(u'(')) {
            i = cierre(t, i);
        } else if (t[i].es(u',')) {
            izquierda = true;
        } else if (t[i].es(u'=')) {
            izquierda = false;
        } else if (izquierda && t[i].clase == Clase::Palabra) {
            const std::size_t punto = significativo(t, i + 1);
            if (punto < hasta && t[punto].es(u'.')) {
                t[i].cambiar({});
                t[punto].cambiar({});
                i = punto;
            }
        }
    }
}

/// The join's table and condition, from "inner" on; false when it reads otherwise.
struct Union {
    QString tabla;
    std::size_t condicion = 0;  ///< its opening parenthesis
    std::size_t fin = 0;        ///< one behind the closing one
};
bool leerUnion(const Tokens &t, std::size_t inner, Union &u) {
    std::size_t i = inner;
    if (i >= t.size() || !t[i].es("inner")) return false;
    i = significativo(t, i + 1);
    if (i >= t.size() || !t[i].es("join")) return false;
    i = significativo(t, i + 1);
    if (i >= t.size() || t[i].clase != Clase::Palabra) return false;
    u.tabla = t[i].vista.toString();
    i = significativo(t, i + 1);
    if (i >= t.size() || !t[i].es("on")) return false;
    u.condicion = significativo(t, i + 1);
    if (u.condicion >= t.size() || !t[u.condicion].es(u'(')) return false;
    u.fin = cierre(t, u.condicion) + 1;
    return true;
}

/// The statement with its join as UPDATE … FROM … WHERE, or nothing when it is no such update.
std::optional<QString> cambiarUpdateConJoin(Tokens &t) {
    std::size_t i = significativo(t, 0);
    if (i >= t.size() || !t[i].es("update")) return std::nullopt;
    const std::size_t tabla = significativo(t, i + 1);
    if (tabla >= t.size() || t[tabla].clase != Clase::Palabra) return std::nullopt;
    const std::size_t sigue = significativo(t, tabla + 1);
    if (sigue >= t.size()) return std::nullopt;

    Union u;
    std::size_t set = 0;
    std::size_t finDeSet = 0;
    std::size_t where = 0;
    if (t[sigue].es("inner")) {
        if (!leerUnion(t, sigue, u)) return std::nullopt;
        set = significativo(t, u.fin);
        if (set >= t.size() || !t[set].es("set")) return std::nullopt;
        where = buscar(t, set, "where");
        finDeSet = where;
    } else if (t[sigue].es("set")) {
        set = sigue;
        finDeSet = buscar(t, set, "from");
        if (finDeSet >= t.size()) return std::nullopt;
        const std::size_t mismo = significativo(t, finDeSet + 1);
        if (mismo >= t.size() || t[mismo].vista.compare(t[tabla].vista, Qt::CaseInsensitive) != 0) return std::nullopt;
        if (!leerUnion(t, significativo(t, mismo + 1), u)) return std::nullopt;
        where = significativo(t, u.fin);
        if (where < t.size() && !t[where].es("where")) return std::nullopt;
    } else {
        return std::nullopt;
    }
    desnudarAsignaciones(t, set + 1, finDeSet);
    QString texto = QLatin1String("UPDATE ") + t[tabla].vista.toString() + QLatin1String(" SET ") + escribir(t, set + 1, finDeSet).trimmed() +
                    QLatin1String(" FROM ") + u.tabla + QLatin1String(" WHERE ") + escribir(t, u.condicion, u.fin);
    if (where < t.size()) texto += QLatin1String(" AND (") + escribir(t, where + 1, t.size()).trimmed() + QLatin1Char(')');
    return texto;
}

/// "exec Name 'a', 'b'" as a select of a function.
std::optional<QString> cambiarExec(const Tokens &t) {
    const std::size_t exec = significativo(t, 0);
    if (exec >= t.size() || !(t[exec].es("exec") || t[exec].es("execute"))) return std::nullopt;
    const std::size_t nombre = significativo(t, exec + 1);
    if (nombre >= t.size() || t[nombre].clase != Clase::Palabra) return std::nullopt;
    return QLatin1String("select ") + t[nombre].vista.toString() + QLatin1Char('(') + escribir(t, nombre + 1, t.size()).trimmed() + QLatin1Char(')');
}

QString traducirCon(const QString &texto, const Ajustes &ajustes, bool conIdentidadDeFila) {
    std::optional<Tokens> partido = partir(texto);
    // Something does not close: the engine is to say so of the text as it stands.
    if (!partido) return texto;
    Tokens &t = *partido;
    cambiarNombres(t, ajustes);
    if (const auto exec = cambiarExec(t)) return *exec;
    if (ajustes.motor == Motor::SQLite) cambiarConcatenaciones(t);
    cambiarDivisiones(t, ajustes.motor);
    if (ajustes.motor == Motor::PostgreSQL) cambiarLike(t);
    if (const auto update = cambiarUpdateConJoin(t)) return *update;
    cambiarSelects(t, ajustes, conIdentidadDeFila);
    return escribir(t, 0, t.size());
}

}  // namespace

QString traducir(const QString &texto, const Ajustes &ajustes) { return traducirCon(texto, ajustes, false); }

QString conIdentidad(const QString &texto, const Ajustes &ajustes) { return traducirCon(texto, ajustes, true); }

}  // namespace dialecto
