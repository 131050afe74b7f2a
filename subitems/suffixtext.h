#pragma once
// The text form of suffixes: tokens joined with "-" and closed with "-"; a coded option is four characters, a
// free value is family(value): "AA01-AB(XYZ)-ZB(000123)-".

#include <QString>
#include <vector>

namespace sufijos {

inline const QString sinSufijos = QStringLiteral("SIN SUFIJOS");     ///< the position needs none
inline const QString errorNcm = QStringLiteral("##ERRORNCM##");      ///< the position does not exist
inline const QString cancelado = QStringLiteral("###CANCELADO###");  ///< the list was left; never stored

/// A token of a suffix text.
struct Token {
    QString familia;       ///< its two letters, upper case
    QString codigo;        ///< a coded option, four characters, upper case; empty for a free value
    QString valor;         ///< what stands between the parentheses of a free value
    bool cerrado = false;  ///< a "-" follows it

    bool libre() const { return codigo.isEmpty(); }
    QString texto() const;
};

/// The tokens of a text, in their order. A "-" between parentheses belongs to the value. What is neither of
/// the two forms (a reserved text, a fragment, a free value of nothing) is left out.
std::vector<Token> Partir(const QString &texto);

/// The text of the tokens, closed; empty for none.
QString Componer(const std::vector<Token> &tokens);

/// True for a text that the engine could have finished: one or more tokens, all closed, and nothing else; or
/// "SIN SUFIJOS".
bool EsTextoTerminado(const QString &texto);

/// A typed free value as it is stored: "-", "(" and ")" become blanks, then NormalizarTexto, then double
/// blanks collapse.
QString NormalizarValor(const QString &valor);

/// A numeric free value, already normalised: its first 6 characters in the form "000000"; empty when it is
/// not a number.
QString NormalizarValorNumerico(const QString &valor);

/// `texto` with the value of each free token of `familia` replaced; as it is when there is none.
QString ReemplazarValor(const QString &texto, const QString &familia, const QString &valor);

/// The article's number put into a finished text: the normalised article replaces the value of the family
/// "AI" and then of "AB", when they are present. Without an article the text stays as it is.
QString ForzarArticulo(const QString &texto, const QString &articulo);

}  // namespace sufijos
