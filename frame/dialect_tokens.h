#pragma once
// A statement as tokens. What is inside a quoted text is never looked into, except to tell a number.

#include <QString>
#include <QStringView>
#include <optional>
#include <vector>

namespace dialecto {

enum class Clase {
    Espacio,   ///< blanks and comments
    Palabra,   ///< a name or keyword
    Corchete,  ///< [name]
    Comillas,  ///< "name"
    Texto,     ///< 'text'
    Numero,
    Fecha,  ///< #date#
    Signo,  ///< anything else, one character or one of <> <= >= ||
};

struct Token {
    Clase clase = Clase::Signo;
    QStringView vista;  ///< as it stands in the statement
    QString antes;      ///< written ahead of it
    QString nuevo;      ///< written in its place when `cambiado`
    QString detras;     ///< written behind it
    bool cambiado = false;

    bool es(const char *palabra) const {
        return clase == Clase::Palabra && vista.compare(QLatin1String(palabra), Qt::CaseInsensitive) == 0;
    }
    bool es(char16_t signo) const { return clase == Clase::Signo && vista.size() == 1 && vista.front() == signo; }
    void cambiar(const QString &por) {
        nuevo = por;
        cambiado = true;
    }
};

using Tokens = std::vector<Token>;

/// The statement's tokens; nothing when a quoted text, a bracket or a parenthesis does not close.
std::optional<Tokens> partir(QStringView texto);

/// The tokens written out.
QString escribir(const Tokens &tokens, std::size_t desde, std::size_t hasta);

/// The next token at or behind `i` that is no blank; tokens.size() at the end.
std::size_t significativo(const Tokens &t, std::size_t i);
/// The last one ahead of `i`; tokens.size() when there is none.
std::size_t anterior(const Tokens &t, std::size_t i);
/// The closing parenthesis of the opening one at `i`.
std::size_t cierre(const Tokens &t, std::size_t i);
/// The opening parenthesis of the closing one at `i`.
std::size_t apertura(const Tokens &t, std::size_t i);
/// One behind the primary (literal, column, call, parenthesis) that begins at or behind `i`.
std::size_t finDePrimario(const Tokens &t, std::size_t i);
/// Where the primary that ends at `i` begins.
std::size_t inicioDePrimario(const Tokens &t, std::size_t i);

}  // namespace dialecto
