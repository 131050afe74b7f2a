#pragma once
// The tariff nomenclature, as lines and assembly ask for it.

#include <QString>
#include <vector>

#include "frame/base/position.h"

struct AppContext;

/// A row of the suffix catalogue.
struct FilaDeSufijo {
    QString sim;  ///< the key under which it stands, 14 characters
    QString sufijo;
    QString detalle;
};
/// Every suffix row that applies to the position, in the order of the catalogue. Raises Falla.
std::vector<FilaDeSufijo> LeerSufijos(AppContext &ctx, const QString &posicion);

/// The licence mark and the stamps mark of a position, as the assembly asks for them.
struct MarcasNcm {
    bool encontrada = false;
    bool automotriz = false;    ///< [028] is "*"
    bool estampillado = false;  ///< [041] is "*"
    bool lapi = false;          ///< [059] is "*"
};
/// Raises Falla.
MarcasNcm LeerMarcasNcm(AppContext &ctx, const QString &posicion);
