#include "frame/base/values.h"

#include <QDateTime>
#include <QStringBuilder>
#include <cmath>

#include "frame/base/failure.h"
#include "frame/base/numbers.h"
#include "frame/base/texts.h"

using namespace Qt::StringLiterals;

namespace {

[[noreturn]] void negar(const QString &sentencia) {
    throw Falla{0, {}, sentencia, {}};
}

/// What no store keeps does not even begin to be a statement: behind a zero character both engines see
/// nothing, and one takes half of a pair together with the letter behind it, the closing quote perhaps.
void comprobarQueSeGuarda(const QString &texto) {
    if (const QString defecto = DefectoDeTexto(texto); !defecto.isEmpty()) negar(defecto);
}

}  // namespace

QString EsNull(const QVariant &valor) {
    if (valor.isNull()) return {};
    switch (valor.typeId()) {
        case QMetaType::QString:
            return valor.toString();
        case QMetaType::Double:
            return numeros::aTexto(valor.toDouble());
        case QMetaType::QDateTime:
            return valor.toDateTime().toString(u"yyyy-MM-dd HH:mm:ss"_s);
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
    static const QString punto = u"."_s;
    if (separador == punto && !valor.contains(QLatin1Char(',')) && numeros::esNumerico(valor))
        return valor.trimmed();
    // Thousands marks and all: a text counts as numeric here when it reads as one with either mark dropped.
    QString sinMarcas = valor.trimmed();
    if (!numeros::esNumerico(sinMarcas)) {
        const qsizetype ultima =
            std::max(sinMarcas.lastIndexOf(QLatin1Char(',')), sinMarcas.lastIndexOf(QLatin1Char('.')));
        if (ultima < 0) return u"0"_s;
        const QChar decimal = sinMarcas[ultima];
        sinMarcas.remove(decimal == QLatin1Char(',') ? QLatin1Char('.') : QLatin1Char(','));
        if (!numeros::esNumerico(sinMarcas)) return u"0"_s;
    }
    const QString limpio = separador.trimmed();
    const QString con = limpio.isEmpty() ? u"."_s : limpio;
    QString texto = valor.trimmed();
    texto.replace(QLatin1Char(','), con);
    texto.replace(QLatin1Char('.'), con);
    return texto;
}

QString ReemplazarSeparadorDecimal(QString &texto, QChar separador) {
    texto.replace(QLatin1Char('.'), separador);
    texto.replace(QLatin1Char(','), separador);
    return texto;
}

QString DoblarComillas(QString texto) {
    return texto.replace(QLatin1Char('\''), "''"_L1);
}

QString SinComillas(QString texto) {
    return texto.replace(QLatin1Char('\''), QLatin1Char(' '));
}

QString EnComillas(const QString &texto) {
    if (texto.contains(QLatin1Char('\'')))
        negar(u"El código \"%1\" tiene un apóstrofo, que un código no lleva; quítelo y vuelva a intentar."_s
                  .arg(Citado(texto)));
    comprobarQueSeGuarda(texto);
    return QLatin1Char('\'') % texto % QLatin1Char('\'');
}

QString TextoEnComillas(const QString &texto) {
    comprobarQueSeGuarda(texto);
    return QLatin1Char('\'') % DoblarComillas(texto) % QLatin1Char('\'');
}
