// What a select needs on both engines: its row limit, and an order that they share.

#include <QStringList>

#include "frame/store/dialect.h"
#include "frame/store/dialect_rewrites.h"

using namespace Qt::StringLiterals;

namespace dialecto {

namespace {

bool esSumario(const Tokens &t, std::size_t i) {
    switch (t[i].clave) {
        case Clave::Sum:
        case Clave::Count:
        case Clave::Max:
        case Clave::Min:
        case Clave::Avg:
            return t.sigue(i, Clave::Abre);
        default:
            return false;
    }
}

/// One of the words that end a table in a FROM or a clause.
bool esClausula(Clave c) {
    return c == Clave::Where || c == Clave::Group || c == Clave::Order || c == Clave::Having ||
           c == Clave::Union || c == Clave::Limit || c == Clave::PuntoYComa;
}

/// The parts of the select whose word stands at `select`, up to `fin` (its parenthesis, a union, the end).
struct Select {
    std::size_t select = 0;
    std::size_t from = 0;  ///< 0: none
    std::size_t groupBy = 0;
    std::size_t finDeGrupo = 0;
    std::size_t orderBy = 0;
    std::size_t fin = 0;
    bool distinct = false;
    bool sumario = false;
    bool deUnion = false;      ///< part of a union
    bool subconsulta = false;  ///< stands in a parenthesis
    QString tope;
    int columnas = 1;
    bool asterisco = false;
    QString tabla;  ///< the one table of the FROM, lower case; empty for none or several
    QString alias;
};

void leerTabla(const Tokens &t, Select &s) {
    std::size_t i = t.significativo(s.from + 1);
    if (i >= s.fin || t[i].clase != Clase::Palabra) return;
    const QStringView nombre = t[i].vista;
    QStringView alias = nombre;
    i = t.significativo(i + 1);
    if (i < s.fin && t[i].es(Clave::As)) i = t.significativo(i + 1);
    if (i < s.fin && t[i].clase == Clase::Palabra && !esClausula(t[i].clave) && !t[i].es(Clave::Inner) &&
        !t[i].es(Clave::Left) && !t[i].es(Clave::Join)) {
        alias = t[i].vista;
        i = t.significativo(i + 1);
    }
    if (i < s.fin && !esClausula(t[i].clave)) return;
    s.tabla = nombre.toString().toLower();
    s.alias = alias.toString();
}

/// "round(sum(x), 2)" answers one row like the sum itself; a sum of a subquery is its own.
bool hayUnSumario(const Tokens &t, std::size_t desde, std::size_t hasta) {
    for (std::size_t i = desde; i < hasta; ++i) {
        if (t[i].es(Clave::Select)) return false;
        if (esSumario(t, i)) return true;
    }
    return false;
}

/// DISTINCT and TOP, which stand ahead of the list; where the list begins.
std::size_t leerCabeza(Tokens &t, Select &s, std::size_t limite) {
    std::size_t i = t.significativo(s.select + 1);
    if (i < limite && (t[i].es(Clave::Distinct) || t[i].es(Clave::All))) {
        s.distinct = t[i].es(Clave::Distinct);
        i = t.significativo(i + 1);
    }
    if (i < limite && t[i].es(Clave::Top)) {
        const std::size_t cuantos = t.significativo(i + 1);
        if (cuantos < limite && t[cuantos].esEntero()) {
            s.tope = t[cuantos].vista.toString();
            t.cambiar(i, {});
            t.cambiar(cuantos, {});
            i = t.significativo(cuantos + 1);
        }
    }
    return i;
}

void leerLista(const Tokens &t, Select &s, std::size_t lista, std::size_t i) {
    if (t[i].es(Clave::Coma)) ++s.columnas;
    if (t[i].es(Clave::Asterisco) &&
        (i == lista || t[t.anterior(i)].es(Clave::Punto) || t[t.anterior(i)].es(Clave::Coma)))
        s.asterisco = true;
    if (esSumario(t, i)) s.sumario = true;
}

Select leerSelect(Tokens &t, std::size_t select, std::size_t limite) {
    Select s;
    s.select = select;
    s.fin = limite;
    const std::size_t lista = leerCabeza(t, s, limite);
    for (std::size_t i = lista; i < limite; ++i) {
        if (s.from == 0) leerLista(t, s, lista, i);
        switch (t[i].clave) {
            case Clave::Abre:
                if (s.from == 0) s.sumario = s.sumario || hayUnSumario(t, i, t.par(i));
                i = t.par(i);
                break;
            case Clave::From:
                if (s.from == 0) s.from = i;
                break;
            case Clave::Group:
                s.groupBy = i;
                break;
            case Clave::Having:
                if (s.finDeGrupo == 0) s.finDeGrupo = i;
                break;
            case Clave::Order:
                s.orderBy = i;
                if (s.finDeGrupo == 0) s.finDeGrupo = i;
                break;
            case Clave::Union:
                s.deUnion = true;
                [[fallthrough]];
            case Clave::PuntoYComa:
                s.fin = i;
                limite = i;
                break;
            default:
                break;
        }
    }
    if (s.finDeGrupo == 0) s.finDeGrupo = s.fin;
    if (s.from != 0) leerTabla(t, s);
    return s;
}

/// The last token of the select, to write behind it.
std::size_t ultimo(const Tokens &t, const Select &s) {
    return t.anterior(s.fin);
}

/// The first token behind "order by" or "group by".
std::size_t trasElBy(const Tokens &t, std::size_t palabra) {
    return t.significativo(t.significativo(palabra + 1) + 1);
}

const QString nulosPrimero = u" NULLS FIRST"_s;
const QString nulosUltimos = u" NULLS LAST"_s;

/// Tells where the nulls of every term of the order go: ahead of everything else, and behind it in a
/// descending one.
void ordenarNulos(Tokens &t, const Select &s) {
    std::size_t ultimoVisto = t.size();
    const auto marcar = [&] {
        if (ultimoVisto < s.fin)
            t.detras(ultimoVisto, t[ultimoVisto].es(Clave::Desc) ? nulosUltimos : nulosPrimero);
    };
    for (std::size_t i = trasElBy(t, s.orderBy); i < s.fin; ++i) {
        if (t[i].clase == Clase::Espacio) continue;
        if (t[i].es(Clave::Coma)) {
            marcar();
            continue;
        }
        if (t[i].es(Clave::Abre)) i = t.par(i);
        ultimoVisto = i;
    }
    marcar();
}

/// The order that both engines can give the rows of `s` beyond its own; empty when there is none.
QString ordenComun(const Tokens &t, const Select &s, const Ajustes &a) {
    if (s.deUnion) return {};
    const QString nulos = a.gramatica->nulosAlFinal ? nulosPrimero : QString();
    if (s.groupBy != 0) {
        const QString grupo = t.escribirSinBordes(trasElBy(t, s.groupBy), s.finDeGrupo);
        if (s.distinct || grupo.isEmpty() || grupo.contains(QLatin1Char('(')) ||
            grupo.contains(QLatin1Char('\'')))
            return {};
        return QString(grupo).replace(QLatin1Char(','), nulos + QLatin1Char(',')) + nulos;
    }
    if (s.sumario) return {};
    if (s.distinct) {
        if (s.asterisco || s.from == 0) return {};
        QStringList posiciones;
        for (int c = 1; c <= s.columnas; ++c) posiciones << QString::number(c) + nulos;
        return posiciones.join(QLatin1Char(','));
    }
    if (s.tabla.isEmpty() || !a.tablasOrdenadas.contains(s.tabla)) return {};
    return s.alias + QLatin1Char('.') + a.gramatica->ordenDeInsercion;
}

void ordenar(Tokens &t, const Select &s, const Ajustes &a) {
    // Inside a statement only a limit makes an order matter.
    if (s.subconsulta && s.tope.isEmpty()) return;
    const QString comun = ordenComun(t, s, a);
    if (s.orderBy != 0) {
        if (a.gramatica->nulosAlFinal) ordenarNulos(t, s);
        if (!comun.isEmpty()) t.detras(ultimo(t, s), ", "_L1 + comun);
    } else if (!comun.isEmpty()) {
        t.detras(ultimo(t, s), " ORDER BY "_L1 + comun);
    }
}

}  // namespace

void cambiarSelects(Tokens &t, const Ajustes &a, bool conIdentidadDeFila) {
    if (!t.tiene(Clave::Select)) return;
    std::vector<std::size_t> abiertos;
    bool primero = true;
    for (std::size_t i = 0; i < t.size(); ++i) {
        if (t[i].es(Clave::Abre))
            abiertos.push_back(i);
        else if (t[i].es(Clave::Cierra))
            abiertos.pop_back();
        if (!t[i].es(Clave::Select)) continue;
        Select s = leerSelect(t, i, abiertos.empty() ? t.size() : t.par(abiertos.back()));
        s.subconsulta = !abiertos.empty();
        const std::size_t previo = t.anterior(i);
        if (previo < t.size() && (t[previo].es(Clave::Union) || t[previo].es(Clave::All))) s.deUnion = true;
        if (primero && conIdentidadDeFila && s.from != 0) {
            const QString fila = a.gramatica->identidad(s.alias, a.tablasOrdenadas.contains(s.tabla));
            t.antes(s.from, ", "_L1 + fila + " as z_identidad "_L1);
        }
        primero = false;
        ordenar(t, s, a);
        if (!s.tope.isEmpty()) t.detras(ultimo(t, s), " LIMIT "_L1 + s.tope);
    }
}

}  // namespace dialecto
