#include "frame/base/position.h"

#include "frame/base/values.h"

using namespace Qt::StringLiterals;

ClavesNcm CortarPosicion(const QString &posicion) {
    return {posicion.left(10), posicion.mid(11, 3), posicion.mid(14, 1)};
}

QString CondicionDePosicion(const ClavesNcm &claves) {
    return "[001] = "_L1 + TextoEnComillas(claves.c001) + " and [002] = "_L1 + TextoEnComillas(claves.c002) +
           " and [003] = "_L1 + TextoEnComillas(claves.c003);
}

QString ListaDeClavesSim(const QString &posicion) {
    return u'(' + TextoEnComillas(posicion.left(2) + "  .  .  .   "_L1) + u',' +
           TextoEnComillas(posicion.left(4) + ".  .  .   "_L1) + u',' +
           TextoEnComillas(posicion.left(7) + ".  .   "_L1) + u',' + TextoEnComillas(posicion.left(14)) +
           u')';
}
