#include "frame/store/dialect_tokens.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace dialecto {

namespace {

struct PalabraClave {
    const char *palabra;
    Clave clave;
};
// In alphabetical order: a word is looked for among those with its first letter.
constexpr std::array<PalabraClave, 34> palabras{{
    {"all", Clave::All},
    {"and", Clave::And},
    {"as", Clave::As},
    {"avg", Clave::Avg},
    {"charindex", Clave::Charindex},
    {"count", Clave::Count},
    {"dbo", Clave::Dbo},
    {"desc", Clave::Desc},
    {"distinct", Clave::Distinct},
    {"exec", Clave::Exec},
    {"execute", Clave::Exec},
    {"exists", Clave::Exists},
    {"from", Clave::From},
    {"group", Clave::Group},
    {"having", Clave::Having},
    {"inner", Clave::Inner},
    {"join", Clave::Join},
    {"left", Clave::Left},
    {"len", Clave::Len},
    {"like", Clave::Like},
    {"limit", Clave::Limit},
    {"max", Clave::Max},
    {"min", Clave::Min},
    {"on", Clave::On},
    {"order", Clave::Order},
    {"right", Clave::Right},
    {"select", Clave::Select},
    {"set", Clave::Set},
    {"substring", Clave::Substring},
    {"sum", Clave::Sum},
    {"top", Clave::Top},
    {"union", Clave::Union},
    {"update", Clave::Update},
    {"where", Clave::Where},
}};

constexpr std::size_t letras = 26;
/// For each letter, where its words begin in `palabras`; one more for the end.
constexpr std::array<std::uint8_t, letras + 1> comienzos = [] {
    std::array<std::uint8_t, letras + 1> c{};
    std::size_t k = 0;
    for (std::size_t letra = 0; letra <= letras; ++letra) {
        while (k < palabras.size() && static_cast<std::size_t>(palabras[k].palabra[0] - 'a') < letra) ++k;
        c[letra] = static_cast<std::uint8_t>(k);
    }
    return c;
}();

constexpr char16_t aMinuscula = 0x20;

Clave claveDePalabra(QStringView v) {
    const auto letra = static_cast<char16_t>((v.front().unicode() | aMinuscula) - u'a');
    if (letra >= letras) return Clave::Ninguna;
    const std::size_t fin = comienzos[letra + std::size_t{1}];
    for (std::size_t k = comienzos[letra]; k < fin; ++k) {
        const char *p = palabras[k].palabra;
        qsizetype i = 0;
        while (i < v.size() && p[i] != '\0' && (v[i].unicode() | aMinuscula) == static_cast<char16_t>(p[i]))
            ++i;
        if (i == v.size() && p[i] == '\0') return palabras[k].clave;
    }
    return Clave::Ninguna;
}

Clave claveDeSigno(QChar c) {
    switch (c.unicode()) {
        case u'(':
            return Clave::Abre;
        case u')':
            return Clave::Cierra;
        case u'*':
            return Clave::Asterisco;
        case u'/':
            return Clave::Barra;
        case u',':
            return Clave::Coma;
        case u'<':
        case u'>':
            return Clave::Comparacion;
        case u'=':
            return Clave::Igual;
        case u'+':
            return Clave::Mas;
        case u'-':
            return Clave::Menos;
        case u'.':
            return Clave::Punto;
        case u';':
            return Clave::PuntoYComa;
        default:
            return Clave::Ninguna;
    }
}

bool cifra(QChar c) {
    return c >= u'0' && c <= u'9';
}
bool letraAscii(QChar c) {
    const char16_t m = c.unicode() | aMinuscula;
    return m >= u'a' && m <= u'z';
}
bool empiezaNombre(QChar c) {
    return letraAscii(c) || c == u'_' || c == u'@' || (c.unicode() > 0x7F && c.isLetter());
}
bool sigueNombre(QChar c) {
    return letraAscii(c) || cifra(c) || c == u'_' || c == u'@' || c == u'$' ||
           (c.unicode() > 0x7F && c.isLetterOrNumber());
}

/// One behind the quoted run that begins at `i`, where a doubled `fin` is part of it; -1 when it does not
/// close.
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
    constexpr qsizetype masLarga = 24;
    for (qsizetype j = i + 1; j < t.size() && j < i + masLarga; ++j) {
        if (t[j] == u'#') return j > i + 1 ? j + 1 : -1;
        if (!cifra(t[j]) && t[j] != u'/' && t[j] != u'-' && t[j] != u':' && t[j] != u' ') return -1;
    }
    return -1;
}

/// What the token at `i` is, and one behind it: -1 when it does not close.
qsizetype leer(QStringView t, qsizetype i, Token &token) {
    const QChar c = t[i];
    const QChar d = i + 1 < t.size() ? t[i + 1] : QChar();
    qsizetype fin = i + 1;
    if (empiezaNombre(c)) {
        token.clase = Clase::Palabra;
        while (fin < t.size() && sigueNombre(t[fin])) ++fin;
        token.clave = claveDePalabra(t.mid(i, fin - i));
        return fin;
    }
    if (c.isSpace()) {
        token.clase = Clase::Espacio;
        while (fin < t.size() && t[fin].isSpace()) ++fin;
        return fin;
    }
    if (cifra(c) || (c == u'.' && cifra(d))) {
        token.clase = Clase::Numero;
        return finDeNumero(t, i);
    }
    if (c == u'\'' || c == u'"') {
        token.clase = c == u'\'' ? Clase::Texto : Clase::Comillas;
        return finDeCita(t, i, c.unicode());
    }
    if (c == u'[') {
        token.clase = Clase::Corchete;
        token.clave = Clave::EsCorchete;
        return finDeCita(t, i, u']');
    }
    if (c == u'-' && d == u'-') {
        token.clase = Clase::Espacio;
        while (fin < t.size() && t[fin] != u'\n') ++fin;
        return fin;
    }
    if (c == u'/' && d == u'*') {
        token.clase = Clase::Espacio;
        const qsizetype cierra = t.indexOf("*/"_L1, i + 2);
        return cierra < 0 ? -1 : cierra + 2;
    }
    if (c == u'#' && finDeFecha(t, i) > 0) {
        token.clase = Clase::Fecha;
        token.clave = Clave::EsFecha;
        return finDeFecha(t, i);
    }
    token.clave = claveDeSigno(c);
    if ((c == u'<' && (d == u'>' || d == u'=')) || (c == u'>' && d == u'=')) return i + 2;
    if (c == u'|' && d == u'|') {
        token.clave = Clave::Une;
        return i + 2;
    }
    return fin;
}

}  // namespace

bool Token::esEntero() const {
    return clase == Clase::Numero &&
           std::all_of(vista.begin(), vista.end(), [](QChar c) { return cifra(c); });
}

bool Tokens::partir(QStringView texto) {
    tokens_.clear();
    ediciones_.clear();
    abiertos_.clear();
    claves_ = 0;
    for (qsizetype i = 0; i < texto.size();) {
        Token token;
        const qsizetype fin = leer(texto, i, token);
        if (fin < 0) return false;
        if (token.clave == Clave::Abre) {
            abiertos_.push_back(static_cast<int>(tokens_.size()));
        } else if (token.clave == Clave::Cierra) {
            if (abiertos_.empty()) return false;
            token.par = abiertos_.back();
            tokens_[static_cast<std::size_t>(token.par)].par = static_cast<int>(tokens_.size());
            abiertos_.pop_back();
        }
        token.vista = texto.mid(i, fin - i);
        claves_ |= bit(token.clave);
        tokens_.push_back(token);
        i = fin;
    }
    return abiertos_.empty();
}

Tokens::Edicion &Tokens::edicion(std::size_t i) {
    if (tokens_[i].edicion < 0) {
        tokens_[i].edicion = static_cast<int>(ediciones_.size());
        ediciones_.emplace_back();
    }
    return ediciones_[static_cast<std::size_t>(tokens_[i].edicion)];
}

void Tokens::antes(std::size_t i, const QString &texto) {
    edicion(i).antes.prepend(texto);
}
void Tokens::detras(std::size_t i, const QString &texto) {
    edicion(i).detras += texto;
}
void Tokens::cambiar(std::size_t i, const QString &texto) {
    Edicion &e = edicion(i);
    e.nuevo = texto;
    e.cambiado = true;
}
void Tokens::quitar(std::size_t desde, std::size_t hasta) {
    for (std::size_t i = desde; i < hasta; ++i) edicion(i) = {{}, {}, {}, true};
}

QString Tokens::escribir(std::size_t desde, std::size_t hasta) const {
    qsizetype largo = 0;
    for (std::size_t i = desde; i < hasta; ++i) largo += tokens_[i].vista.size();
    for (const Edicion &e : ediciones_) largo += e.antes.size() + e.nuevo.size() + e.detras.size();
    QString texto;
    texto.reserve(largo);
    // Two quotes side by side would be one inside a text: none of the statement's own texts stand so.
    const auto agregar = [&texto](QStringView trozo) {
        if (trozo.startsWith(u'\'') && texto.endsWith(u'\'')) texto += u' ';
        texto += trozo;
    };
    for (std::size_t i = desde; i < hasta; ++i) {
        const Token &t = tokens_[i];
        if (t.edicion < 0) {
            agregar(t.vista);
            continue;
        }
        const Edicion &e = ediciones_[static_cast<std::size_t>(t.edicion)];
        agregar(e.antes);
        agregar(e.cambiado ? QStringView(e.nuevo) : t.vista);
        agregar(e.detras);
    }
    return texto;
}

QString Tokens::escribirSinBordes(std::size_t desde, std::size_t hasta) const {
    while (desde < hasta && tokens_[desde].clase == Clase::Espacio) ++desde;
    while (hasta > desde && tokens_[hasta - 1].clase == Clase::Espacio) --hasta;
    return escribir(desde, hasta);
}

std::size_t Tokens::significativo(std::size_t i) const {
    while (i < tokens_.size() && tokens_[i].clase == Clase::Espacio) ++i;
    return i;
}

std::size_t Tokens::anterior(std::size_t i) const {
    while (i > 0)
        if (tokens_[--i].clase != Clase::Espacio) return i;
    return tokens_.size();
}

bool Tokens::sigue(std::size_t i, Clave c) const {
    const std::size_t j = significativo(i + 1);
    return j < tokens_.size() && tokens_[j].es(c);
}

/// A sign belongs to its number or column.
std::size_t Tokens::trasLosSignos(std::size_t i) const {
    i = significativo(i);
    while (i < tokens_.size() && (tokens_[i].es(Clave::Menos) || tokens_[i].es(Clave::Mas)))
        i = significativo(i + 1);
    return i;
}

bool Tokens::empiezaPrimario(std::size_t i) const {
    i = trasLosSignos(i);
    if (i >= tokens_.size()) return false;
    const Token &t = tokens_[i];
    return t.esNombre() || t.es(Clave::Abre) || t.clase == Clase::Texto || t.clase == Clase::Numero ||
           t.clase == Clase::Fecha;
}

std::size_t Tokens::finDePrimario(std::size_t i) const {
    const std::size_t n = tokens_.size();
    i = trasLosSignos(i);
    if (i >= n) return n;
    if (tokens_[i].es(Clave::Abre)) return par(i) + 1;
    if (!tokens_[i].esNombre()) return i + 1;
    std::size_t fin = i + 1;
    for (;;) {
        const std::size_t punto = significativo(fin);
        if (punto < n && tokens_[punto].es(Clave::Punto) && significativo(punto + 1) < n) {
            fin = significativo(punto + 1) + 1;
            continue;
        }
        if (punto < n && tokens_[punto].es(Clave::Abre) && tokens_[fin - 1].clase == Clase::Palabra)
            return par(punto) + 1;
        return fin;
    }
}

std::size_t Tokens::inicioDePrimario(std::size_t i) const {
    const std::size_t n = tokens_.size();
    std::size_t inicio = i;
    if (tokens_[i].es(Clave::Cierra)) {
        inicio = par(i);
        const std::size_t nombre = anterior(inicio);
        // A word right ahead of the parenthesis is the function's name.
        if (nombre >= n || nombre + 1 != inicio || tokens_[nombre].clase != Clase::Palabra) return inicio;
        inicio = nombre;
    }
    for (;;) {
        const std::size_t punto = anterior(inicio);
        if (punto >= n || !tokens_[punto].es(Clave::Punto)) return inicio;
        const std::size_t nombre = anterior(punto);
        if (nombre >= n || !tokens_[nombre].esNombre()) return inicio;
        inicio = nombre;
    }
}

std::size_t Tokens::buscar(std::size_t desde, std::size_t hasta, Clave c) const {
    for (std::size_t i = desde; i < hasta; ++i) {
        if (tokens_[i].es(c)) return i;
        if (tokens_[i].es(Clave::Abre)) i = par(i);
    }
    return hasta;
}

}  // namespace dialecto
