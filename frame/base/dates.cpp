#include "frame/base/dates.h"

#include <QStringList>

namespace {

/// A year of two digits lies in the hundred years that end with 2029.
int anioCompleto(const QString &texto, int anio) {
    if (texto.size() != 2) return anio;
    constexpr int ultimoDelSiglo = 29;
    return anio <= ultimoDelSiglo ? 2000 + anio : 1900 + anio;
}

}  // namespace

std::optional<QDate> fechas::Leer(const QString &texto) {
    QString dia = texto.trimmed();
    const qsizetype hora =
        dia.indexOf(QLatin1Char(' ')) >= 0 ? dia.indexOf(QLatin1Char(' ')) : dia.indexOf(QLatin1Char('T'));
    if (hora > 0) dia.truncate(hora);
    dia.replace(QLatin1Char('-'), QLatin1Char('/')).replace(QLatin1Char('.'), QLatin1Char('/'));
    const QStringList partes = dia.split(QLatin1Char('/'));
    if (partes.size() != 3) return {};
    int numeros[3] = {};
    for (qsizetype i = 0; i < 3; ++i) {
        bool ok = false;
        numeros[i] = partes[i].toInt(&ok);
        if (!ok || partes[i].size() > 4 || numeros[i] < 0) return {};
    }
    const bool anioPrimero = partes[0].size() == 4;
    if (!anioPrimero && (partes[2].size() == 1 || partes[2].size() == 3)) return {};
    const QDate fecha = anioPrimero ? QDate(numeros[0], numeros[1], numeros[2])
                                    : QDate(anioCompleto(partes[2], numeros[2]), numeros[1], numeros[0]);
    return fecha.isValid() ? std::optional<QDate>(fecha) : std::nullopt;
}

bool fechas::EsFecha(const QString &texto) {
    return Leer(texto).has_value();
}
