#include "frame/base/position.h"

using namespace Qt::StringLiterals;

ClavesNcm CortarPosicion(const QString &posicion) {
    return {posicion.left(10), posicion.mid(11, 3), posicion.mid(14, 1)};
}

QString ListaDeClavesSim(const QString &posicion) {
    return "('"_L1 + posicion.left(2) + "  .  .  .   ','"_L1 + posicion.left(4) + ".  .  .   ','"_L1 +
           posicion.left(7) + ".  .   ','"_L1 + posicion.left(14) + "')"_L1;
}
