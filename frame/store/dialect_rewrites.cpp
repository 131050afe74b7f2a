// Rewrites inside an expression, and of whole commands.

#include "frame/store/dialect_rewrites.h"

#include <QDateTime>
#include <algorithm>
#include <array>

#include "frame/base/numbers.h"

using namespace Qt::StringLiterals;

namespace dialecto {

namespace {

// What a function of the statements is called on the file store; LEFT and RIGHT are words of joins there. A
// function that answers text keeps comparing without regard to case.
struct Funcion {
    Clave clave;
    const char *enArchivo;
    bool texto;
};
constexpr std::array<Funcion, 5> funciones{{
    {Clave::Left, "zleft", true},
    {Clave::Right, "zright", true},
    {Clave::Substring, "zsubstring", true},
    {Clave::Len, "zlen", false},
    {Clave::Charindex, "zcharindex", false},
}};

const Funcion *funcion(Clave clave) {
    for (const Funcion &f : funciones)
        if (f.clave == clave) return &f;
    return nullptr;
}

// The forms a date between hashes is written in, by the profile's date form of an entity.
constexpr std::array<const char *, 6> formasDeFecha{
    "MM/dd/yyyy HH:mm:ss", "MM/dd/yyyy", "M/d/yyyy H:m:s", "M/d/yyyy", "yyyy-MM-dd HH:mm:ss", "yyyy-MM-dd"};

QDateTime momentoEntreNumerales(QStringView vista) {
    const QString dentro = vista.mid(1, vista.size() - 2).trimmed().toString();
    for (const char *forma : formasDeFecha) {
        QDateTime momento = QDateTime::fromString(dentro, QLatin1String(forma));
        if (momento.isValid()) return momento;
    }
    return {};
}

/// Every #date# as its moment between quotes, behind `palabra`.
void cambiarFechas(Tokens &t, QLatin1String palabra) {
    if (!t.tiene(Clave::EsFecha)) return;
    for (std::size_t i = 0; i < t.size(); ++i) {
        if (!t[i].es(Clave::EsFecha)) continue;
        const QDateTime momento = momentoEntreNumerales(t[i].vista);
        // A date that is none goes on as it stands, for the engine to refuse.
        if (!momento.isValid()) continue;
        t.cambiar(
            i, palabra + QLatin1Char('\'') + momento.toString(u"yyyy-MM-dd HH:mm:ss"_s) + QLatin1Char('\''));
    }
}

bool textoQueNoEsNumero(const Token &t) {
    return t.clase == Clase::Texto && !numeros::esNumerico(t.vista.mid(1, t.vista.size() - 2));
}

bool esLlamadaDeTexto(const Tokens &t, std::size_t i) {
    const Funcion *f = funcion(t[i].clave);
    return f != nullptr && f->texto && t.sigue(i, Clave::Abre);
}

/// Whether the expression between `desde` and `hasta` answers a text, as far as its own words tell.
bool contieneTexto(const Tokens &t, std::size_t desde, std::size_t hasta) {
    for (std::size_t i = desde; i < hasta; ++i) {
        const Token &k = t[i];
        if (textoQueNoEsNumero(k) || esLlamadaDeTexto(t, i)) return true;
        if (k.es(Clave::Select) || k.es(Clave::Igual) || k.es(Clave::Comparacion)) return false;
        // What a function is given does not tell what it answers; a bare parenthesis is looked into.
        if (k.es(Clave::Abre) && t.anterior(i) < t.size() && t[t.anterior(i)].clase == Clase::Palabra)
            i = t.par(i);
    }
    return false;
}

}  // namespace

void quitarDbo(Tokens &t) {
    if (!t.tiene(Clave::Dbo)) return;
    for (std::size_t i = 0; i < t.size(); ++i) {
        if (!t[i].es(Clave::Dbo) || !t.sigue(i, Clave::Punto)) continue;
        t.cambiar(i, {});
        t.cambiar(t.significativo(i + 1), {});
    }
}

void cambiarCorchetes(Tokens &t) {
    if (!t.tiene(Clave::EsCorchete)) return;
    for (std::size_t i = 0; i < t.size(); ++i) {
        if (!t[i].es(Clave::EsCorchete)) continue;
        QString nombre = t[i].vista.mid(1, t[i].vista.size() - 2).toString().toLower();
        t.cambiar(i, QLatin1Char('"') + nombre.replace(QLatin1Char('"'), "\"\""_L1) + QLatin1Char('"'));
    }
}

void fechasComoTexto(Tokens &t) {
    cambiarFechas(t, {});
}

void fechasComoMomento(Tokens &t) {
    cambiarFechas(t, "TIMESTAMP "_L1);
}

void cambiarFunciones(Tokens &t) {
    if (std::none_of(funciones.begin(), funciones.end(), [&t](const Funcion &f) { return t.tiene(f.clave); }))
        return;
    for (std::size_t i = 0; i < t.size(); ++i) {
        const Funcion *f = t[i].clave == Clave::Ninguna ? nullptr : funcion(t[i].clave);
        if (f == nullptr || !t.sigue(i, Clave::Abre)) continue;
        t.cambiar(i, QLatin1String(f->enArchivo));
        if (!f->texto) continue;
        t.antes(i, u"("_s);
        t.detras(t.par(t.significativo(i + 1)), u" COLLATE NOCASE)"_s);
    }
}

void cambiarConcatenaciones(Tokens &t) {
    if (!t.tiene(Clave::Mas)) return;
    std::vector<std::size_t> cadena;
    for (std::size_t i = 0; i < t.size(); ++i) {
        if (!t[i].es(Clave::Mas)) continue;
        const std::size_t izquierda = t.anterior(i);
        if (izquierda >= t.size()) continue;
        cadena.clear();
        bool une = contieneTexto(t, t.inicioDePrimario(izquierda), izquierda + 1);
        std::size_t mas = i;
        while (mas < t.size() && t[mas].es(Clave::Mas)) {
            cadena.push_back(mas);
            const std::size_t operando = t.significativo(mas + 1);
            if (operando >= t.size()) break;
            const std::size_t fin = t.finDePrimario(operando);
            une = une || contieneTexto(t, operando, fin);
            mas = t.significativo(fin);
        }
        if (une)
            for (const std::size_t m : cadena) t.cambiar(m, u"||"_s);
        // Not past a parenthesis: it may hold a chain of its own.
        const std::size_t parentesis = t.buscar(i + 1, cadena.back(), Clave::Abre);
        while (cadena.size() > 1 && cadena.back() > parentesis) cadena.pop_back();
        i = cadena.back();
    }
}

namespace {

/// Calls `tratar` with the first and the last token of every divisor.
template <class Tratar>
void porCadaDivisor(const Tokens &t, Tratar tratar) {
    if (!t.tiene(Clave::Barra)) return;
    for (std::size_t i = 0; i < t.size(); ++i) {
        if (!t[i].es(Clave::Barra)) continue;
        const std::size_t divisor = t.significativo(i + 1);
        if (t.empiezaPrimario(divisor)) tratar(divisor, t.finDePrimario(divisor) - 1);
    }
}

}  // namespace

void guardarDivisores(Tokens &t) {
    porCadaDivisor(t, [&t](std::size_t divisor, std::size_t ultimo) {
        const Token &d = t[divisor];
        if (d.esEntero() && d.vista.count(u'0') < d.vista.size()) {
            t.detras(divisor, u".0"_s);
        } else {
            t.antes(divisor, u"zdivisor("_s);
            t.detras(ultimo, u")"_s);
        }
    });
}

void dividirConDecimales(Tokens &t) {
    porCadaDivisor(t, [&t](std::size_t divisor, std::size_t ultimo) {
        // A column is floating already; whatever else could be whole is told not to be.
        const bool columna = t[divisor].esNombre() && !t[ultimo].es(Clave::Cierra);
        const bool flotante = t[divisor].clase == Clase::Numero && !t[divisor].esEntero();
        if (!columna && !flotante) t.detras(ultimo, u"::double precision"_s);
    });
}

void cambiarSumas(Tokens &t) {
    if (!t.tiene(Clave::Sum)) return;
    for (std::size_t i = 0; i < t.size(); ++i) {
        if (!t[i].es(Clave::Sum) || !t.sigue(i, Clave::Abre)) continue;
        const std::size_t abre = t.significativo(i + 1);
        if (!t.empiezaPrimario(abre + 1) || t.sigue(abre, Clave::Distinct) || t.sigue(abre, Clave::All))
            continue;
        t.antes(i, u"zquince("_s);
        t.detras(abre, u"zexacto("_s);
        t.antes(t.par(abre), u")"_s);
        t.detras(t.par(abre), u")"_s);
    }
}

void cambiarLike(Tokens &t) {
    if (!t.tiene(Clave::Like)) return;
    for (std::size_t i = 0; i < t.size(); ++i) {
        if (!t[i].es(Clave::Like) || !t.empiezaPrimario(i + 1)) continue;
        std::size_t fin = t.finDePrimario(i + 1);
        for (std::size_t j = t.significativo(fin);
             j < t.size() && (t[j].es(Clave::Mas) || t[j].es(Clave::Une)); j = t.significativo(fin)) {
            if (!t.empiezaPrimario(j + 1)) break;
            fin = t.finDePrimario(j + 1);
        }
        t.detras(fin - 1, u" ESCAPE ''"_s);
    }
}

namespace {

/// "A = B" between `desde` and `hasta`, and nothing else.
struct Igualdad {
    std::size_t izquierda = 0, finDeIzquierda = 0;
    std::size_t derecha = 0, finDeDerecha = 0;
};

std::optional<Igualdad> leerIgualdad(const Tokens &t, std::size_t desde, std::size_t hasta) {
    if (!t.empiezaPrimario(desde)) return std::nullopt;
    Igualdad e;
    e.izquierda = t.significativo(desde);
    e.finDeIzquierda = t.finDePrimario(desde);
    const std::size_t igual = t.significativo(e.finDeIzquierda);
    if (igual >= hasta || !t[igual].es(Clave::Igual) || !t.empiezaPrimario(igual + 1)) return std::nullopt;
    e.derecha = t.significativo(igual + 1);
    e.finDeDerecha = t.finDePrimario(igual + 1);
    return t.significativo(e.finDeDerecha) == hasta ? std::optional(e) : std::nullopt;
}

bool mismasPalabras(const Tokens &t, std::size_t a, std::size_t finDeA, std::size_t b, std::size_t finDeB) {
    for (;;) {
        a = t.significativo(a);
        b = t.significativo(b);
        if (a >= finDeA || b >= finDeB) return a >= finDeA && b >= finDeB;
        if (t[a++].vista.compare(t[b++].vista, Qt::CaseInsensitive) != 0) return false;
    }
}

/// "alias.column" of another table than `tabla`.
bool esColumnaDeAfuera(const Tokens &t, std::size_t desde, std::size_t hasta, const Token &tabla) {
    return t[desde].clase == Clase::Palabra && t.sigue(desde, Clave::Punto) &&
           t.significativo(t.significativo(desde + 1) + 1) + 1 == hasta &&
           t[desde].vista.compare(tabla.vista, Qt::CaseInsensitive) != 0;
}

/// The select between the parentheses at `abre` and its end: what it lists, and the condition, one of several
/// equalities, by which an outer column names its rows.
struct Existencia {
    Igualdad nombra;
    std::size_t conjuncion = 0;  ///< what stands ahead of that condition: its AND, or the WHERE
};

std::optional<Existencia> leerExistencia(const Tokens &t, std::size_t abre) {
    const std::size_t cierra = t.par(abre);
    const std::size_t select = t.significativo(abre + 1);
    if (select >= cierra || !t[select].es(Clave::Select)) return std::nullopt;
    const std::size_t from = t.buscar(select, cierra, Clave::From);
    const std::size_t tabla = t.significativo(from + 1);
    if (tabla >= cierra || t[tabla].clase != Clase::Palabra || !t.sigue(tabla, Clave::Where))
        return std::nullopt;
    std::optional<Existencia> hallada;
    std::size_t conjuncion = t.significativo(tabla + 1);
    while (conjuncion < cierra) {
        const std::size_t fin = t.buscar(conjuncion + 1, cierra, Clave::And);
        const auto igualdad = leerIgualdad(t, conjuncion + 1, fin);
        if (!igualdad) return std::nullopt;
        if (esColumnaDeAfuera(t, igualdad->izquierda, igualdad->finDeIzquierda, t[tabla]) &&
            mismasPalabras(t, igualdad->derecha, igualdad->finDeDerecha, select + 1, from))
            hallada = Existencia{*igualdad, conjuncion};
        conjuncion = fin;
    }
    return hallada;
}

}  // namespace

void cambiarExistencias(Tokens &t) {
    if (!t.tiene(Clave::Exists)) return;
    for (std::size_t i = 0; i < t.size(); ++i) {
        if (!t[i].es(Clave::Exists) || !t.sigue(i, Clave::Abre)) continue;
        const std::size_t abre = t.significativo(i + 1);
        const auto e = leerExistencia(t, abre);
        if (!e) continue;
        t.cambiar(i, "coalesce("_L1 + t.escribir(e->nombra.izquierda, e->nombra.finDeIzquierda) + " in"_L1);
        t.detras(t.par(abre), u", false)"_s);
        // The first condition leaves the WHERE to the one behind it.
        const std::size_t sigue = t.significativo(e->nombra.finDeDerecha);
        if (t[e->conjuncion].es(Clave::Where) && t[sigue].es(Clave::And))
            t.quitar(e->nombra.izquierda, t.significativo(sigue + 1));
        else
            t.quitar(t.anterior(e->conjuncion) + 1, e->nombra.finDeDerecha);
    }
}

// Updates over a join, in both spellings

namespace {

/// Target columns of a SET lose their table's name.
void desnudarAsignaciones(Tokens &t, std::size_t desde, std::size_t hasta) {
    bool izquierda = true;
    for (std::size_t i = desde; i < hasta; ++i) {
        if (t[i].es(Clave::Abre)) {
            i = t.par(i);
        } else if (t[i].es(Clave::Coma)) {
            izquierda = true;
        } else if (t[i].es(Clave::Igual)) {
            izquierda = false;
        } else if (izquierda && t[i].clase == Clase::Palabra && t.sigue(i, Clave::Punto)) {
            t.cambiar(i, {});
            i = t.significativo(i + 1);
            t.cambiar(i, {});
        }
    }
}

/// Parts of "… inner join TABLE on CONDITION …": tokens from the first word of each to one behind it.
struct Union {
    std::size_t tabla = 0, finDeTabla = 0;
    std::size_t condicion = 0, finDeCondicion = 0;
};

/// Reads the join at `inner` whose condition ends ahead of `fin`.
std::optional<Union> leerUnion(const Tokens &t, std::size_t inner, Clave fin) {
    Union u;
    if (inner >= t.size() || !t[inner].es(Clave::Inner) || !t.sigue(inner, Clave::Join)) return std::nullopt;
    u.tabla = t.significativo(t.significativo(inner + 1) + 1);
    u.finDeTabla = t.buscar(u.tabla, t.size(), Clave::On);
    if (u.finDeTabla >= t.size()) return std::nullopt;
    u.condicion = t.significativo(u.finDeTabla + 1);
    u.finDeCondicion = t.buscar(u.condicion, t.size(), fin);
    // A second join is no statement of ours: the engine is to speak of it.
    if (t.buscar(u.condicion, u.finDeCondicion, Clave::Join) < u.finDeCondicion) return std::nullopt;
    return u;
}

QString entreParentesis(const Tokens &t, std::size_t desde, std::size_t hasta) {
    const QString texto = t.escribirSinBordes(desde, hasta);
    const bool estan = desde < hasta && t[desde].es(Clave::Abre) && t.par(desde) == t.anterior(hasta);
    return estan ? texto : QLatin1Char('(') + texto + QLatin1Char(')');
}

}  // namespace

std::optional<QString> cambiarUpdateConJoin(Tokens &t) {
    const std::size_t update = t.significativo(0);
    if (update >= t.size() || !t[update].es(Clave::Update) || !t.tiene(Clave::Join)) return std::nullopt;
    const std::size_t tabla = t.significativo(update + 1);
    if (tabla >= t.size() || t[tabla].clase != Clase::Palabra) return std::nullopt;
    const std::size_t sigue = t.significativo(tabla + 1);
    if (sigue >= t.size()) return std::nullopt;

    std::optional<Union> u;
    std::size_t set = sigue;
    std::size_t finDeSet = 0;
    std::size_t where = 0;
    if (t[sigue].es(Clave::Inner)) {
        u = leerUnion(t, sigue, Clave::Set);
        if (!u || u->finDeCondicion >= t.size()) return std::nullopt;
        set = u->finDeCondicion;
        where = t.buscar(set, t.size(), Clave::Where);
        finDeSet = where;
    } else {
        finDeSet = t.buscar(set, t.size(), Clave::From);
        if (!t[set].es(Clave::Set) || finDeSet >= t.size()) return std::nullopt;
        const std::size_t mismo = t.significativo(finDeSet + 1);
        if (mismo >= t.size() || t[mismo].vista.compare(t[tabla].vista, Qt::CaseInsensitive) != 0)
            return std::nullopt;
        u = leerUnion(t, t.significativo(mismo + 1), Clave::Where);
        if (!u) return std::nullopt;
        where = u->finDeCondicion;
    }
    desnudarAsignaciones(t, set + 1, finDeSet);
    QString texto = "UPDATE "_L1 + t[tabla].vista.toString() + " SET "_L1 +
                    t.escribirSinBordes(set + 1, finDeSet) + " FROM "_L1 +
                    t.escribirSinBordes(u->tabla, u->finDeTabla) + " WHERE "_L1 +
                    entreParentesis(t, u->condicion, u->finDeCondicion);
    if (where < t.size()) texto += " AND ("_L1 + t.escribirSinBordes(where + 1, t.size()) + QLatin1Char(')');
    return texto;
}

std::optional<QString> cambiarExec(const Tokens &t) {
    const std::size_t exec = t.significativo(0);
    if (exec >= t.size() || !t[exec].es(Clave::Exec)) return std::nullopt;
    std::size_t nombre = t.significativo(exec + 1);
    if (nombre < t.size() && t[nombre].es(Clave::Dbo) && t.sigue(nombre, Clave::Punto))
        nombre = t.significativo(t.significativo(nombre + 1) + 1);
    if (nombre >= t.size() || t[nombre].clase != Clase::Palabra) return std::nullopt;
    return "select "_L1 + t[nombre].vista.toString() + QLatin1Char('(') +
           t.escribirSinBordes(nombre + 1, t.size()) + QLatin1Char(')');
}

}  // namespace dialecto
