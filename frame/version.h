#pragma once
// Which program this is, and when it was built.

#include <QString>

/// "3.5.1": each part as a plain number.
QString TextoDeVersion(int mayor = ZENDRA_VERSION_MAYOR, int menor = ZENDRA_VERSION_MENOR,
                       int revision = ZENDRA_VERSION_REVISION);
/// The same as one number that grows with the version: 3.5.1 is 3005001. Each part behind the first is below
/// 1000.
constexpr quint32 NumeroDeVersion(int mayor = ZENDRA_VERSION_MAYOR, int menor = ZENDRA_VERSION_MENOR,
                                  int revision = ZENDRA_VERSION_REVISION) {
    constexpr int lugar = 1000;
    return static_cast<quint32>((mayor * lugar + menor) * lugar + revision);
}
/// "Generado 21-11-2026": the day of the build.
QString TextoFechaZendra();
