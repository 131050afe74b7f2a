#pragma once
// The text form of a tariff position, "8409.91.12.100G", and its cuts.

#include <QString>

/// The keys of a position text: [001] is characters 1 to 10, [002] is 12 to 14, [003] is 15; missing parts
/// empty.
struct ClavesNcm {
    QString c001;
    QString c002;
    QString c003;
};
ClavesNcm CortarPosicion(const QString &posicion);
/// The three keys as a condition: "[001] = '…' and [002] = '…' and [003] = '…'".
QString CondicionDePosicion(const ClavesNcm &claves);

/// The four keys under which suffix rows of a position may stand, as "('84  .  .  .   ','8409.…','…','…')".
QString ListaDeClavesSim(const QString &posicion);
