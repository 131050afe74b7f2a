#pragma once
// The recalculation of an operation (item 0) and the reading of its stored liquidation.

#include <QString>
#include <functional>
#include <vector>

#include "frame/context.h"
#include "liquidation/ClassLiquidacion.h"

/// One entry of the detail list: a row of itemliq as the run leaves it, texts formatted "00.00".
struct DetalleLiq {
    QString concepto, total, porcentaje;
    QString iditem, pgc, base, motivo;
};
/// One row of the liquidation grid.
struct FilaLiq {
    QString numero, concepto, porcentaje, base, total, pgc, motivo;
};
/// What item 0 shows after a run.
struct ResultadoRecalculo {
    std::vector<DetalleLiq> detalle;
    std::vector<FilaLiq> grilla;
    double totalP = 0, totalG = 0, totalC = 0;
    double sumaBaseImponible = 0, sumaBaseIVA = 0, sumaAjusteInc = 0, sumaAjusteDed = 0;
    bool escrito = false;  ///< itemliq was written back
};

/// Loads the header values of the calculator from caratula, groups and items. False when the operation is not there.
/// Raises ErrorDeStore.
bool CargarCaratulaEnCalculadora(AppContext &ctx, const QString &interno, ClassLiquidacion &calculo);

/// The whole run for item 0. `estado` hears "Liquidando ITEM n ..." and "LISTO". Writes back only when
/// ctx.LiquidacionPendiente is set, and clears it then. Raises ErrorDeStore.
ResultadoRecalculo RecalcularOperacion(AppContext &ctx, const QString &interno, ClassLiquidacion &calculo,
                                       const std::function<void(const QString &)> &estado = {});

/// The stored rows of one item with a total above 0, for the grid. Raises ErrorDeStore.
std::vector<FilaLiq> LeerLiquidacionDeItem(AppContext &ctx, const QString &interno, const QString &item);
