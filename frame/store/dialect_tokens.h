#pragma once
// A statement as tokens, and what is to be written in place of some of them. What is inside a quoted text is
// never looked into, except to tell a number.

#include <QString>
#include <QStringView>
#include <cstdint>
#include <vector>

namespace dialecto {

enum class Clase : std::uint8_t {
    Espacio,   ///< blanks and comments
    Palabra,   ///< a name or keyword
    Corchete,  ///< [name]
    Comillas,  ///< "name"
    Texto,     ///< 'text'
    Numero,
    Fecha,  ///< #date#
    Signo,  ///< anything else, one character or one of <> <= >= ||
};

/// The words and signs that a rewrite looks for. Every other token has `Ninguna`.
enum class Clave : std::uint8_t {
    Ninguna,
    // words
    All,
    And,
    As,
    Avg,
    Charindex,
    Count,
    Dbo,
    Desc,
    Distinct,
    Exec,
    Exists,
    From,
    Group,
    Having,
    Inner,
    Join,
    Left,
    Len,
    Like,
    Limit,
    Max,
    Min,
    On,
    Order,
    Right,
    Select,
    Set,
    Substring,
    Sum,
    Top,
    Union,
    Update,
    Where,
    // signs
    Abre,
    Cierra,
    Asterisco,
    Barra,
    Coma,
    Comparacion,
    Igual,
    Mas,
    Menos,
    Punto,
    PuntoYComa,
    Une,
    // classes that a rewrite looks for
    EsCorchete,
    EsFecha,
};

struct Token {
    QStringView vista;  ///< as it stands in the statement
    Clase clase = Clase::Signo;
    Clave clave = Clave::Ninguna;
    int par = -1;      ///< of a parenthesis: the one that belongs to it
    int edicion = -1;  ///< what is written around or instead of it, when something is

    bool es(Clave c) const { return clave == c; }
    bool esNombre() const {
        return clase == Clase::Palabra || clase == Clase::Corchete || clase == Clase::Comillas;
    }
    /// A number without point and exponent.
    bool esEntero() const;
};

/// The tokens of one statement, kept for the next one's: a statement is cut in microseconds, and finding room
/// for its tokens would take most of them.
class Tokens {
 public:
    /// Cuts `texto`, which has to outlive the tokens; false when a quoted text, a bracket or a parenthesis
    /// does not close.
    bool partir(QStringView texto);

    std::size_t size() const { return tokens_.size(); }
    const Token &operator[](std::size_t i) const { return tokens_[i]; }
    /// Whether the statement holds such a token anywhere.
    bool tiene(Clave c) const { return (claves_ & bit(c)) != 0; }

    /// Writes `texto` ahead of token `i` and of what was to be written there.
    void antes(std::size_t i, const QString &texto);
    /// Writes `texto` behind token `i` and behind what was to be written there.
    void detras(std::size_t i, const QString &texto);
    /// Writes `texto` in place of token `i`.
    void cambiar(std::size_t i, const QString &texto);
    /// Writes nothing of tokens `desde` to one ahead of `hasta`, nor of what was to be written around them.
    void quitar(std::size_t desde, std::size_t hasta);
    /// Whether anything is to be written otherwise than it stands.
    bool editado() const { return !ediciones_.empty(); }

    /// Tokens `desde` to one ahead of `hasta`, written out.
    QString escribir(std::size_t desde, std::size_t hasta) const;

    /// The same without the blanks and comments at both ends, behind which nothing could follow.
    QString escribirSinBordes(std::size_t desde, std::size_t hasta) const;

    /// The next token at or behind `i` that is no blank; size() at the end.
    std::size_t significativo(std::size_t i) const;
    /// The last one ahead of `i`; size() when there is none.
    std::size_t anterior(std::size_t i) const;
    /// The other parenthesis of the one at `i`.
    std::size_t par(std::size_t i) const { return static_cast<std::size_t>(tokens_[i].par); }
    /// Whether the next token behind `i` that is no blank is `c`.
    bool sigue(std::size_t i, Clave c) const;
    /// Whether a primary, its signs included, begins at or behind `i`.
    bool empiezaPrimario(std::size_t i) const;
    /// One behind the primary (literal, column, call, parenthesis) that begins at or behind `i`.
    std::size_t finDePrimario(std::size_t i) const;
    /// Where the primary that ends at `i` begins.
    std::size_t inicioDePrimario(std::size_t i) const;
    /// Where `c` stands outside parentheses between `desde` and `hasta`; `hasta` when it does not.
    std::size_t buscar(std::size_t desde, std::size_t hasta, Clave c) const;

 private:
    std::size_t trasLosSignos(std::size_t i) const;
    struct Edicion {
        QString antes, nuevo, detras;
        bool cambiado = false;
    };
    Edicion &edicion(std::size_t i);
    static std::uint64_t bit(Clave c) { return std::uint64_t{1} << static_cast<unsigned>(c); }

    std::vector<Token> tokens_;
    std::vector<Edicion> ediciones_;
    std::vector<int> abiertos_;
    std::uint64_t claves_ = 0;
};

}  // namespace dialecto
