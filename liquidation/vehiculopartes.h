#pragma once

#include "frame/context.h"
#include "liquidation/ClassLiquidacion.h"

/// What one recalculation remembers of the advantage VEHICULOPARTES.
struct VehiculoPartes {
    bool advertir = false;    ///< a licence mark outside the automotive regime under ICR1
    bool preguntado = false;  ///< the question is asked once a run
    bool respuesta = false;
};

/// Adds the advantage to an item where the regime, the zone and the licence mark say so; may set the item's
/// list to MERCOSUR. `lapi` is the position's licence mark. Raises Falla.
void RevisarVehiculoPartes(AppContext &ctx, const QString &interno, const QString &iditem, bool lapi,
                           ClassLiquidacion &calculo, VehiculoPartes &memoria);
/// What it may ask of INTERNOS for the row in hand of `item`, to be asked ahead; nothing where the regime and
/// the item's list rule the advantage out.
QStringList LecturasDeVehiculoPartes(const AppContext &ctx, const QString &interno, const Recordset &item,
                                     const QString &regimen);
/// The closing warning of a run, with the removal of the advantage from every item, when it is due.
void CerrarVehiculoPartes(AppContext &ctx, const QString &interno, const VehiculoPartes &memoria);
