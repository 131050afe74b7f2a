#include "outputs/fixedfield.h"

QString CampoFijo(const QString &texto, int ancho) {
    // A character outside the basic plane is two of the string's units, and is never cut in half.
    qsizetype hasta = 0;
    int letras = 0;
    while (hasta < texto.size() && letras < ancho) {
        const bool par =
            texto[hasta].isHighSurrogate() && hasta + 1 < texto.size() && texto[hasta + 1].isLowSurrogate();
        hasta += par ? 2 : 1;
        ++letras;
    }
    return texto.left(hasta) + QString(ancho - letras, u' ');
}
