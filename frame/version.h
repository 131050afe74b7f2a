#pragma once
// Which program this is, and when it was built.

#include <QString>

/// "3.5.1": each part as a plain number.
QString TextoDeVersion(int mayor = ZENDRA_VERSION_MAYOR, int menor = ZENDRA_VERSION_MENOR,
                       int revision = ZENDRA_VERSION_REVISION);
/// "Generado 21-11-2026": the day of the build.
QString TextoFechaZendra();
