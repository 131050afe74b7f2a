#include "subitems/suffixtext.h"

#include <QStringList>

#include "frame/base/numbers.h"
#include "header/regime.h"

using namespace Qt::StringLiterals;

namespace sufijos {

namespace {

constexpr qsizetype largoDeFamilia = 2;
constexpr qsizetype largoDeCodigo = 4;

/// A piece of the text ahead of its "-".
struct Trozo {
    QString texto;
    bool cerrado = false;
};

std::vector<Trozo> cortar(const QString &texto) {
    std::vector<Trozo> trozos;
    QString trozo;
    bool dentro = false;
    for (const QChar c : texto) {
        if (c == u'-' && !dentro) {
            trozos.push_back({trozo.trimmed(), true});
            trozo.clear();
            continue;
        }
        if (c == u'(') dentro = true;
        if (c == u')') dentro = false;
        trozo += c;
    }
    if (!trozo.trimmed().isEmpty()) trozos.push_back({trozo.trimmed(), false});
    return trozos;
}

bool esToken(const Trozo &trozo, Token &token) {
    const QString &t = trozo.texto;
    token = {t.left(largoDeFamilia).toUpper(), {}, {}, trozo.cerrado};
    if (t.size() > largoDeFamilia + 1 && t[largoDeFamilia] == u'(' && t.endsWith(u')')) {
        token.valor = t.mid(largoDeFamilia + 1, t.size() - largoDeFamilia - 2);
        return !token.valor.trimmed().isEmpty();
    }
    if (t.size() != largoDeCodigo || t.contains(u'(') || t.contains(u')')) return false;
    token.codigo = t.toUpper();
    return true;
}

}  // namespace

QString Token::texto() const {
    return libre() ? familia + QLatin1Char('(') + valor + QLatin1Char(')') : codigo;
}

std::vector<Token> Partir(const QString &texto) {
    std::vector<Token> tokens;
    Token token;
    for (const Trozo &trozo : cortar(texto))
        if (esToken(trozo, token)) tokens.push_back(token);
    return tokens;
}

QString Componer(const std::vector<Token> &tokens) {
    QString texto;
    for (const Token &t : tokens) texto += t.texto() + QLatin1Char('-');
    return texto;
}

bool EsTextoTerminado(const QString &texto) {
    if (texto == sinSufijos) return true;
    const std::vector<Trozo> trozos = cortar(texto);
    if (trozos.empty()) return false;
    Token token;
    for (const Trozo &trozo : trozos)
        if (!trozo.cerrado || !esToken(trozo, token)) return false;
    return true;
}

QString NormalizarValor(const QString &valor) {
    QString limpio = valor;
    for (const char16_t marca : {u'-', u'(', u')'}) limpio.replace(QChar(marca), QLatin1Char(' '));
    return NormalizarTexto(limpio).simplified();
}

QString NormalizarValorNumerico(const QString &valor) {
    constexpr int cifras = 6;
    if (!numeros::esNumerico(valor)) return {};
    return numeros::Format(valor.left(cifras), u"000000", u'.').left(cifras);
}

QString ReemplazarValor(const QString &texto, const QString &familia, const QString &valor) {
    std::vector<Token> tokens = Partir(texto);
    bool cambio = false;
    for (Token &t : tokens) {
        if (!t.libre() || t.familia.compare(familia, Qt::CaseInsensitive) != 0) continue;
        t.valor = valor;
        cambio = true;
    }
    return cambio ? Componer(tokens) : texto;
}

QString ForzarArticulo(const QString &texto, const QString &articulo) {
    const QString valor = NormalizarValor(articulo);
    if (valor.isEmpty()) return texto;
    return ReemplazarValor(ReemplazarValor(texto, u"AI"_s, valor), u"AB"_s, valor);
}

}  // namespace sufijos
