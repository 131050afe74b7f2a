#include "frame/values.h"

#include <QDateTime>
#include <cmath>

#include "frame/context.h"
#include "frame/numbers.h"

QString EsNull(const QVariant &valor) {
    if (valor.isNull()) return {};
    switch (valor.typeId()) {
        case QMetaType::QString:
            return valor.toString();
        case QMetaType::Double:
            return numeros::aTexto(valor.toDouble());
        case QMetaType::QDateTime:
            return valor.toDateTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
        default:
            return valor.toString();
    }
}

double EsNumero(const QVariant &valor) {
    if (valor.isNull()) return 0;
    switch (valor.typeId()) {
        case QMetaType::Double:
        case QMetaType::LongLong:
        case QMetaType::Int:
            return valor.toDouble();
        default:
            return numeros::aNumero(valor.toString());
    }
}

QString PonerPuntoDecimal(double valor) {
    return numeros::aTexto(valor);
}

QString AStoreNumero(const QString &valor, const QString &separador) {
    // The usual case: nothing to replace.
    static const QString punto = QStringLiteral(".");
    if (separador == punto && !valor.contains(QLatin1Char(',')) && numeros::esNumerico(valor))
        return valor.trimmed();
    // Thousands marks and all: a text counts as numeric here when it reads as one with either mark dropped.
    QString sinMarcas = valor.trimmed();
    if (!numeros::esNumerico(sinMarcas)) {
        const qsizetype ultima =
            std::max(sinMarcas.lastIndexOf(QLatin1Char(',')), sinMarcas.lastIndexOf(QLatin1Char('.')));
        if (ultima < 0) return QStringLiteral("0");
        const QChar decimal = sinMarcas[ultima];
        sinMarcas.remove(decimal == QLatin1Char(',') ? QLatin1Char('.') : QLatin1Char(','));
        if (!numeros::esNumerico(sinMarcas)) return QStringLiteral("0");
    }
    const QString limpio = separador.trimmed();
    const QString con = limpio.isEmpty() ? QStringLiteral(".") : limpio;
    QString texto = valor.trimmed();
    texto.replace(QLatin1Char(','), con);
    texto.replace(QLatin1Char('.'), con);
    return texto;
}

QString SqlNumber(double valor) {
    static const QString entidad = QStringLiteral("INTERNOS");
    const QString separador = Contexto().DataManager.getDecimalSeparatorbyEntity(entidad);
    const QString texto = numeros::aTexto(valor);
    return std::isfinite(valor) && separador.size() == 1 && separador.front() == QLatin1Char('.')
               ? texto
               : AStoreNumero(texto, separador);
}

QString SqlNumber(const QString &valor) {
    static const QString entidad = QStringLiteral("INTERNOS");
    return AStoreNumero(valor, Contexto().DataManager.getDecimalSeparatorbyEntity(entidad));
}

QString SqlRound(const QString &entidad, const QString &expresion, QStringView mascara) {
    const qsizetype punto = mascara.indexOf(QLatin1Char('.'));
    const int decimales = punto < 0 ? 0 : static_cast<int>(mascara.size() - punto - 1);
    QString texto =
        Contexto().DataManager.getNumberFormatbyEntity(decimales, QStringLiteral("999,999"), entidad);
    return texto.replace(QLatin1String("999.999"), expresion);
}

QString ReemplazarSeparadorDecimal(QString &texto) {
    const QChar separador = numeros::separadorDecimal();
    texto.replace(QLatin1Char('.'), separador);
    texto.replace(QLatin1Char(','), separador);
    return texto;
}

QString DoblarComillas(QString texto) {
    return texto.replace(QLatin1Char('\''), QLatin1String("''"));
}
