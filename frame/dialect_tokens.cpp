#include "frame/dialect_tokens.h"

namespace dialecto {

namespace {

bool empiezaNombre(QChar c) { return c.isLetter() || c == u'_' || c == u'@'; }
bool sigueNombre(QChar c) { return c.isLetterOrNumber() || c == u'_' || c == u'@' || c == u'$'; }
bool cifra(QChar c) { return c >= u'0' && c <= u'9'; }

/// One behind the quoted run that begins at `i`, where a doubled `fin` is part of it; -1 when it does not close.
qsizetype finDeCita(QStringView t, qsizetype i, char16_t fin) {
    for (qsizetype j = i + 1; j < t.size(); ++j) {
        if (t[j] != fin) continue;
        if (j + 1 < t.size() && t[j + 1] == fin && fin != u']')
            ++j;
        else
            return j + 1;
    }
    return -1;
}

qsizetype finDeNumero(QStringView t, qsizetype i) {
    while (i < t.size() && cifra(t[i])) ++i;
    if (i < t.size() && t[i] == u'.') {
        ++i;
        while (i < t.size() && cifra(t[i])) ++i;
    }
    if (i < t.size() && (t[i] == u'e' || t[i] == u'E')) {
        qsizetype j = i + 1;
        if (j < t.size() && (t[j] == u'+' || t[j] == u'-')) ++j;
        if (j < t.size() && cifra(t[j])) {
            while (j < t.size() && cifra(t[j])) ++j;
            i = j;
        }
    }
    return i;
}

/// One behind the #date# at `i`, or -1: only digits and the marks of a date stand between the hashes.
qsizetype finDeFecha(QStringView t, qsizetype i) {
    for (qsizetype j = i + 1; j < t.size() && j < i + 24; ++j) {
        if (t[j] == u'#') return j > i + 1 ? j + 1 : -1;
        if (!cifra(t[j]) && t[j] != u'/' && t[j] != u'-' && t[j] != u':' && t[j] != u' ') return -1;
    }
    return -1;
}

bool esNombre(const Token &t) { return t.clase == Clase::Palabra || t.clase == Clase::Corchete || t.clase == Clase::Comillas; }

}  // namespace

std::optional<Tokens> partir(QStringView t) {
    Tokens tokens;
    tokens.reserve(static_cast<std::size_t>(t.size() / 3 + 4));
    int abiertos = 0;
    qsizetype i = 0;
    while (i < t.size()) {
        const QChar c = t[i];
        const QChar d = i + 1 < t.size() ? t[i + 1] : QChar();
        Clase clase = Clase::Signo;
        qsizetype fin = i + 1;
        if (c.isSpace()) {
            clase = Clase::Espacio;
            while (fin < t.size() && t[fin].isSpace()) ++fin;
        } else if (c == u'-' && d == u'-') {
            clase = Clase::Espacio;
            while (fin < t.size() && t[fin] != u'\n') ++fin;
        } else if (c == u'/' && d == u'*') {
            clase = Clase::Espacio;
            const qsizetype cierra = t.indexOf(QLatin1String("*/"), i + 2);
            if (cierra < 0) return std::nullopt;
            fin = cierra + 2;
        } else if (empiezaNombre(c)) {
            clase = Clase::Palabra;
            while (fin < t.size() && sigueNombre(t[fin])) ++fin;
        } else if (cifra(c) || (c == u'.' && cifra(d))) {
            clase = Clase::Numero;
            fin = finDeNumero(t, i);
        } else if (c == u'\'' || c == u'"' || c == u'[') {
            clase = c == u'\'' ? Clase::Texto : (c == u'"' ? Clase::Comillas : Clase::Corchete);
            fin = finDeCita(t, i, c == u'[' ? u']' : c.unicode());
            if (fin < 0) return std::nullopt;
        } else if (c == u'#' && finDeFecha(t, i) > 0) {
            clase = Clase::Fecha;
            fin = finDeFecha(t, i);
        } else if ((c == u'<' && (d == u'>' || d == u'=')) || (c == u'>' && d == u'=') || (c == u'|' && d == u'|')) {
            fin = i + 2;
        } else if (c == u'(') {
            ++abiertos;
        } else if (c == u')') {
            if (--abiertos < 0) return std::nullopt;
        }
        Token token;
        token.clase = clase;
        token.vista = t.mid(i, fin - i);
        tokens.push_back(std::move(token));
        i = fin;
    }
    if (abiertos != 0) return std::nullopt;
    return tokens;
}

QString escribir(const Tokens &tokens, std::size_t desde, std::size_t hasta) {
    qsizetype largo = 0;
    for (std::size_t i = desde; i < hasta; ++i)
        largo += tokens[i].vista.size() + tokens[i].antes.size() + tokens[i].detras.size() + tokens[i].nuevo.size();
    QString texto;
    texto.reserve(largo);
    for (std::size_t i = desde; i < hasta; ++i) {
        const Token &t = tokens[i];
        texto += t.antes;
        if (t.cambiado)
            texto += t.nuevo;
        else
            texto += t.vista;
        texto += t.detras;
    }
    return texto;
}

std::size_t significativo(const Tokens &t, std::size_t i) {
    while (i < t.size() && t[i].clase == Clase::Espacio) ++i;
    return i;
}

std::size_t anterior(const Tokens &t, std::size_t i) {
    while (i > 0)
        if (t[--i].clase != Clase::Espacio) return i;
    return t.size();
}

std::size_t cierre(const Tokens &t, std::size_t i) {
    int abiertos = 0;
    for (; i < t.size(); ++i) {
        if (t[i].es(u'('))
            ++abiertos;
        else if (t[i].es(u')') && --abiertos == 0)
            return i;
    }
    return t.size();
}

std::size_t apertura(const Tokens &t, std::size_t i) {
    int abiertos = 0;
    for (std::size_t j = i + 1; j-- > 0;) {
        if (t[j].es(u')'))
            ++abiertos;
        else if (t[j].es(u'(') && --abiertos == 0)
            return j;
    }
    return t.size();
}

std::size_t finDePrimario(const Tokens &t, std::size_t i) {
    i = significativo(t, i);
    if (i >= t.size()) return i;
    // A sign belongs to its number or column.
    if (t[i].es(u'-') || t[i].es(u'+')) i = significativo(t, i + 1);
    if (i >= t.size()) return i;
    if (t[i].es(u'(')) return std::min(cierre(t, i) + 1, t.size());
    if (!esNombre(t[i])) return i + 1;
    std::size_t fin = i + 1;
    for (;;) {
        const std::size_t punto = significativo(t, fin);
        if (punto < t.size() && t[punto].es(u'.') && significativo(t, punto + 1) < t.size()) {
            fin = significativo(t, punto + 1) + 1;
            continue;
        }
        if (punto < t.size() && t[punto].es(u'(') && t[fin - 1].clase == Clase::Palabra) return std::min(cierre(t, punto) + 1, t.size());
        return fin;
    }
}

std::size_t inicioDePrimario(const Tokens &t, std::size_t i) {
    std::size_t inicio = i;
    if (t[i].es(u')')) {
        inicio = apertura(t, i);
        if (inicio >= t.size()) return i;
        const std::size_t nombre = anterior(t, inicio);
        // A word right ahead of the parenthesis is the function's name.
        if (nombre >= t.size() || nombre + 1 != inicio || t[nombre].clase != Clase::Palabra) return inicio;
        inicio = nombre;
    }
    while (true) {
        const std::size_t punto = anterior(t, inicio);
        if (punto >= t.size() || !t[punto].es(u'.')) return inicio;
        const std::size_t nombre = anterior(t, punto);
        if (nombre >= t.size() || !esNombre(t[nombre])) return inicio;
        inicio = nombre;
    }
}

}  // namespace dialecto
