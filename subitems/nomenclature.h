#pragma once
// The tariff nomenclature: positions and their three keys.

#include <QString>
#include <vector>

struct AppContext;

/// The keys of a position text: [001] is characters 1 to 10, [002] is 12 to 14, [003] is 15; missing parts
/// empty.
struct ClavesNcm {
    QString c001;
    QString c002;
    QString c003;
};
ClavesNcm CortarPosicion(const QString &posicion);

/// The four keys under which suffix rows of a position may stand, as "('84  .  .  .   ','8409.…','…','…')".
QString ListaDeClavesSim(const QString &posicion);

/// A row of the suffix catalogue.
struct FilaDeSufijo {
    QString sim;  ///< the key under which it stands, 14 characters
    QString sufijo;
    QString detalle;
};
/// Every suffix row that applies to the position, in the order of the catalogue. Raises ErrorDeStore.
std::vector<FilaDeSufijo> LeerSufijos(AppContext &ctx, const QString &posicion);

/// The licence mark and the stamps mark of a position, as the assembly asks for them.
struct MarcasNcm {
    bool encontrada = false;
    bool automotriz = false;    ///< [028] is "*"
    bool estampillado = false;  ///< [041] is "*"
    bool lapi = false;          ///< [059] is "*"
};
/// Raises ErrorDeStore.
MarcasNcm LeerMarcasNcm(AppContext &ctx, const QString &posicion);
