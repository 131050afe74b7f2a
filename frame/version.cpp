#include "frame/version.h"

#include "build_date.h"

using namespace Qt::StringLiterals;

QString TextoDeVersion(int mayor, int menor, int revision) {
    return u"%1.%2.%3"_s.arg(mayor).arg(menor).arg(revision);
}

QString TextoFechaZendra() {
    return u"Generado %1"_s.arg(QLatin1String(ZENDRA_FECHA_DE_GENERACION));
}
