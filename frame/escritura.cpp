#include "frame/escritura.h"

#include <QStringBuilder>

#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/context.h"

using namespace Qt::StringLiterals;

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
    constexpr int usual = 256;
    const QLatin1String nombre(columna);
    if (columnas_.isEmpty()) {
        for (QString *parte : {&columnas_, &valores_, &pares_}) parte->reserve(usual);
    } else {
        for (QString *parte : {&columnas_, &valores_, &pares_}) *parte += u',';
    }
    columnas_ += nombre;
    valores_ += sql;
    pares_ += nombre;
    pares_ += " = "_L1;
    pares_ += sql;
    return *this;
}

QString Escritura::insertar(const QString &tabla) const {
    return "insert into "_L1 % tabla % " ("_L1 % columnas_ % ") values ("_L1 % valores_ % ")"_L1;
}

QString Escritura::actualizar(const QString &tabla, const QString &donde) const {
    return "update "_L1 % tabla % " set "_L1 % pares_ % " where "_L1 % donde;
}
