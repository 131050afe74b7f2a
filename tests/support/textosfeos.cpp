#include "tests/support/textosfeos.h"

#include <algorithm>

using namespace Qt::StringLiterals;

const std::vector<TextoFeo> &TextosFeos() {
    static const std::vector<TextoFeo> todos{
        {"an apostrophe", u"O'Higgins"_s},
        {"apostrophes alone", u"''"_s},
        {"a condition that is always true", u"x' or '1'='1"_s},
        {"a second statement", u"x'; delete from caratula; --"_s},
        {"a second column", u"x', 'y"_s},
        {"a comment to the end", u"a--b"_s},
        {"a comment that does not end", u"a/*b"_s},
        {"the end of a comment", u"a*/b"_s},
        {"a hash", u"#a#b"_s},
        {"a moment between hashes", u"#1/2/2026#"_s},
        {"double quotes", u"\"a\"b"_s},
        {"a backtick", u"a`b`"_s},
        {"a backslash", u"a\\b"_s},
        {"a backslash at the end", u"a\\"_s},
        {"a backslash and an apostrophe", u"a\\'b"_s},
        {"a semicolon", u"a;b;"_s},
        {"wild cards", u"a%_b"_s},
        {"everything", u"%"_s},
        {"wild cards of other engines", u"a[*]?b"_s},
        {"brackets", u"[001]]"_s},
        {"dollars", u"$$a$1$$"_s},
        {"marks of parameters", u":a ?1 @b {0} %1 %2 %99"_s},
        {"words of SQL", u"select null from where union"_s},
        {"null", u"NULL"_s},
        {"a formula", u"=1+1"_s},
        {"a call", u"@SUM(A1:A9)"_s},
        {"markup", u"<b>&amp;</b>]]>"_s},
        {"a tag of the quote", u"###opdsc###"_s},
        {"a path", u"../x/..\\y"_s},
        {"an option", u"--perfil"_s},
        {"separators of a text file", u"a,b;c\td"_s},
        {"a tab", u"a\tb"_s},
        {"a line break", u"a\nb"_s},
        {"a line break of Windows", u"a\r\nBcc: x@y.com"_s},
        {"a bell", u"a\ab"_s},
        {"an escape", u"a\u001b[31mb"_s},
        {"a delete", u"a\u007fb"_s},
        {"a control character of the second row", u"a\u0085b"_s},
        {"a line separator", u"a\u2028b"_s},
        {"a form feed and an end of file", u"a\f\u001ab"_s},
        {"a mark of order", u"a\ufeffb"_s},
        {"a character that is none", QStringLiteral("a") + QChar(0xFFFE) + u'b'},
        {"half of a pair", u"a"_s + QChar(0xD83D)},
        {"the other half", u"a"_s + QChar(0xDEA2) + u'b'},
        {"half of a pair and an apostrophe", QString(QChar(0xD83D)) + u"' or 1=1 --"_s},
        {"a zero character", u"a"_s + QChar(0) + u'b'},
        {"a combining mark", u"e\u0301\u0323x"_s},
        {"right to left", u"a\u202eb\u200f"_s},
        {"Hebrew", u"שלום a"_s},
        {"an emoji", u"🚢a🏳️‍🌈"_s},
        {"letters that grow in capitals", u"ßŉİı"_s},
        {"accents", u"ÑandÚ Peña"_s},
        {"blanks that are none", u"a\u00a0\u200b\u3000b"_s},
        {"blanks around", u"  a  "_s},
        {"a very long one", QString(10000, u'ñ')},
        {"a very long one of apostrophes", QString(10000, u'\'')},
        {"a very long one of pairs", u"🚢"_s.repeated(5000)},
    };
    return todos;
}

bool CabeEnArgumento(const QString &texto) {
    return !texto.contains(QChar::Null) && texto.isValidUtf16();
}

QString Visto(const QString &texto) {
    constexpr qsizetype bastante = 120;
    QString visto;
    for (const QChar c : texto.left(bastante)) {
        const bool seVe = c.isPrint() && !c.isSurrogate();
        visto += seVe ? QString(c) : u"\\u"_s + QString::number(c.unicode(), 16).rightJustified(4, u'0');
    }
    return texto.size() > bastante ? visto + u"… (%1)"_s.arg(texto.size()) : visto;
}

bool TienePalabrasDeMotor(const QString &texto) {
    static const QStringList palabras{u"syntax error"_s,    u"unrecognized token"_s,
                                      u"near \""_s,         u"ERROR:"_s,
                                      u"Unable to"_s,       u"QPSQL"_s,
                                      u"QSQLITE"_s,         u"no such "_s,
                                      u"does not exist"_s,  u"unterminated"_s,
                                      u"invalid byte"_s,    u"La sentencia contiene"_s,
                                      u"LINE 1"_s,          u"multiple commands"_s,
                                      u"Parameter count"_s, u"invalid input syntax"_s};
    return std::any_of(palabras.begin(), palabras.end(),
                       [&texto](const QString &palabra) { return texto.contains(palabra); });
}

Azar::Azar() : semilla_(qEnvironmentVariable("ZENDRA_SEMILLA", u"20261122"_s).toUInt()), azar_(semilla_) {}

std::size_t Azar::menorQue(std::size_t n) {
    return std::uniform_int_distribution<std::size_t>(0, n - 1)(azar_);
}

QString Azar::mezcla() {
    constexpr std::size_t masPiezas = 3;
    constexpr qsizetype largo = 100;
    const auto &todos = TextosFeos();
    QString texto = menorQue(2) == 0 ? QString() : u"AB"_s;
    for (std::size_t n = 2 + menorQue(masPiezas); n > 0;) {
        const QString &pieza = todos[menorQue(todos.size())].texto;
        if (pieza.size() > largo) continue;
        texto += pieza;
        --n;
    }
    return texto;
}

QString Ronda::siguiente() {
    const auto &todos = TextosFeos();
    // Three of the table to one mixture.
    constexpr std::size_t turno = 4;
    ++vez_;
    if (vez_ % turno == 0) return azar_.mezcla();
    return todos[(vez_ - vez_ / turno - 1) % todos.size()].texto;
}
