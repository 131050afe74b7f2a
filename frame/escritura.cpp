#include "frame/escritura.h"

#include <QStringBuilder>

#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/context.h"

using namespace Qt::StringLiterals;

namespace {

/// Puts each pair behind the one before it, a comma between them.
template <class Pares, class Poner>
void unirConComas(QString &texto, const Pares &pares, Poner poner) {
    bool primero = true;
    for (const auto &par : pares) {
        if (!primero) texto += u',';
        primero = false;
        poner(par);
    }
}

/// One of these is written for every concept of every item: the text is made once, at its length.
template <class Pares>
qsizetype largoDe(const Pares &pares) {
    constexpr qsizetype entreUnoYOtro = 4;
    qsizetype largo = 0;
    for (const auto &par : pares) largo += par.columna.size() + par.sql.size() + entreUnoYOtro;
    return largo;
}

}  // namespace

Escritura::Escritura(const AppContext &ctx, const QString &entidad)
    : separador_(ctx.DataManager.getDecimalSeparatorbyEntity(entidad)) {}

Escritura &Escritura::codigo(const char *columna, const QString &valor) {
    return crudo(columna, EnComillas(valor));
}

Escritura &Escritura::texto(const char *columna, const QString &valor) {
    return crudo(columna, TextoEnComillas(valor));
}

Escritura &Escritura::sinComillas(const char *columna, const QString &valor) {
    return crudo(columna, EnComillas(SinComillas(valor)));
}

Escritura &Escritura::numero(const char *columna, const QString &valor) {
    return crudo(columna, AStoreNumero(valor, separador_));
}

Escritura &Escritura::numero(const char *columna, double valor) {
    return numero(columna, numeros::aTexto(valor));
}

Escritura &Escritura::marca(const char *columna, bool valor) {
    return crudo(columna, valor ? u"'S'"_s : u"'N'"_s);
}

Escritura &Escritura::crudo(const char *columna, const QString &sql) {
    constexpr std::size_t usuales = 8;
    if (pares_.empty()) pares_.reserve(usuales);
    pares_.push_back({QLatin1String(columna), sql});
    return *this;
}

QString Escritura::columnas() const {
    QString texto;
    unirConComas(texto, pares_, [&texto](const Par &par) { texto += par.columna; });
    return texto;
}

QString Escritura::valores() const {
    QString texto;
    unirConComas(texto, pares_, [&texto](const Par &par) { texto += par.sql; });
    return texto;
}

QString Escritura::insertar(const QString &tabla) const {
    return "insert into "_L1 % tabla % " ("_L1 % columnas() % ") values ("_L1 % valores() % ")"_L1;
}

QString Escritura::actualizar(const QString &tabla, const QString &donde) const {
    QString texto;
    texto.reserve(largoDe(pares_) + tabla.size() + donde.size() + 20);
    texto += "update "_L1 % tabla % " set "_L1;
    unirConComas(texto, pares_, [&texto](const Par &par) {
        texto += par.columna;
        texto += " = "_L1;
        texto += par.sql;
    });
    texto += " where "_L1;
    texto += donde;
    return texto;
}
