#include "operations/operationkey.h"

#include "frame/base/texts.h"

using namespace Qt::StringLiterals;

QString DefectoDeClaveNueva(const QString &clave) {
    if (!clave.trimmed().isEmpty() && clave.size() <= largoDeClave && !clave.contains(u'\'') &&
        EnUnRenglon(clave) == clave)
        return {};
    return u"La clave de una operación tiene entre 1 y 40 caracteres, sin apóstrofos ni caracteres de control; "
           "elija otra."_s;
}
