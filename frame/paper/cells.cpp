#include "frame/paper/cells.h"

#include <algorithm>
#include <cmath>

#include "frame/base/numbers.h"
#include "frame/paper/layout.h"

using namespace Qt::StringLiterals;

namespace papel {

std::optional<double> NumeroDe(const Tabla &tabla, const Fila &fila, std::size_t columna) {
    if (columna >= fila.celdas.size() || tabla.columnas[columna].clase != Clase::Numero) return {};
    const QVariant &celda = fila.celdas[columna];
    if (celda.isNull()) return {};
    if (celda.typeId() == QMetaType::QString) {
        const QString texto = celda.toString();
        if (!numeros::esNumerico(texto)) return {};
        return numeros::aNumero(texto);
    }
    bool esNumero = false;
    const double numero = celda.toDouble(&esNumero);
    if (!esNumero || !std::isfinite(numero)) return {};
    return numero;
}

std::optional<QDate> DiaDe(const Tabla &tabla, const Fila &fila, std::size_t columna) {
    if (columna >= fila.celdas.size() || tabla.columnas[columna].clase != Clase::Fecha) return {};
    const QDate dia = fila.celdas[columna].toDate();
    return dia.isValid() ? std::optional(dia) : std::nullopt;
}

std::optional<QDateTime> MomentoDe(const Tabla &tabla, const Fila &fila, std::size_t columna) {
    if (!DiaDe(tabla, fila, columna)) return {};
    const QVariant &celda = fila.celdas[columna];
    if (celda.typeId() != QMetaType::QDateTime || celda.toTime().msecsSinceStartOfDay() == 0) return {};
    return celda.toDateTime();
}

QString TextoDeCelda(const Tabla &tabla, const Fila &fila, std::size_t columna, QChar separador) {
    if (const auto numero = NumeroDe(tabla, fila, columna)) {
        const QString &mascara = tabla.columnas[columna].mascara;
        return mascara.isEmpty() ? numeros::aTexto(*numero).replace(u'.', separador)
                                 : numeros::Format(*numero, mascara, separador);
    }
    if (const auto momento = MomentoDe(tabla, fila, columna))
        return momento->toString(u"dd/MM/yyyy HH:mm:ss"_s);
    if (const auto dia = DiaDe(tabla, fila, columna)) return dia->toString(u"dd/MM/yyyy"_s);
    return LibreDe(fila, columna);
}

QString LibreDe(const Fila &fila, std::size_t columna) {
    if (columna >= fila.celdas.size() || fila.celdas[columna].isNull()) return {};
    const QVariant &celda = fila.celdas[columna];
    if (celda.typeId() == QMetaType::Double) return numeros::aTexto(celda.toDouble());
    return SinControles(celda.toString());
}

QString SinFormula(const QString &texto) {
    const auto primera =
        std::find_if(texto.begin(), texto.end(), [](QChar letra) { return !letra.isSpace(); });
    return primera != texto.end() && u"=+-@"_s.contains(*primera) ? u'\'' + texto : texto;
}

}  // namespace papel
