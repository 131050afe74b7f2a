#pragma once
// The recalculation of an operation (item 0) and the reading of its stored liquidation.

#include <QString>
#include <functional>
#include <vector>

#include "frame/context.h"
#include "liquidation/ClassLiquidacion.h"
#include "liquidation/readpositions.h"

/// One entry of the detail list: a row of itemliq as the run leaves it, amounts and rates formatted "00.00".
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

/// Where the FOB of the whole operation is taken from: the sum of its lines, or what its header tells with
/// the value to be prorated.
enum class FobDeOperacion { DeSusLineas, DeSuCaratula };
/// Loads the header values of the calculator from caratula, groups and items, and the operation's decree
/// flags. False when the operation is not there. Raises Falla.
bool CargarCaratulaEnCalculadora(AppContext &ctx, const QString &interno, ClassLiquidacion &calculo,
                                 FobDeOperacion fob = FobDeOperacion::DeSusLineas);
/// What it asks of INTERNOS, to be asked ahead.
QStringList LecturasDeCaratula(const QString &interno, FobDeOperacion fob = FobDeOperacion::DeSusLineas);

/// One concept code of an operation, in order of first appearance.
struct ResumenLiq {
    QString concepto;
    QString total;  ///< carried as text, added as numbers
    QString pgc;    ///< of the first row seen
};
/// Adds an amount, formatted "00.00", to its concept.
void SumarAlResumen(const AppContext &ctx, std::vector<ResumenLiq> &resumen, const QString &concepto,
                    const QString &total, const QString &pgc);

/// How the position of an item was met.
enum class CargaDePosicion { Encontrada, NoEsta, MalFormada };
/// Loads item and position values of the row in hand of `item` into the calculator. `paraVer` is the item
/// screen's own reading, where a percentage kept in the 010 row also forces the duty. `posiciones` answers
/// for the position, with what it has read already. When the position is not met, all that hangs on it,
/// `lapi` too, stays as the item before left it. Raises Falla.
CargaDePosicion CargarItemEnCalculadora(AppContext &ctx, const QString &interno, const Recordset &item,
                                        ClassLiquidacion &calculo, bool paraVer, bool &lapi,
                                        PosicionesLeidas &posiciones);
/// What it asks of INTERNOS for item `id` of an operation of that regime, in capitals, to be asked ahead.
QStringList LecturasDeItem(const QString &interno, const QString &id, const QString &regimen);

/// Spreads the header's two adjustments over the items by FOB, to the cent and without settling the residual;
/// items of type G take none, and a header's adjustment of 0 changes nothing. Part of every load of item 0.
/// Raises Falla, also when there is an adjustment and the items' FOB is 0.
void RepartirAjustesDeCaratula(AppContext &ctx, const QString &interno, const ClassLiquidacion &calculo);

/// The whole run for item 0: header adjustments spread, every item recalculated, liqcero rebuilt. `estado`
/// hears "Liquidando ITEM n ..." and "LISTO". Writes itemliq back only when ctx.LiquidacionPendiente is set,
/// and clears it then. An operation without items is run like any other: liqcero keeps its four totals at 0,
/// and the mark goes. One that is not there changes nothing. Raises Falla.
ResultadoRecalculo RecalcularOperacion(AppContext &ctx, const QString &interno, ClassLiquidacion &calculo,
                                       const std::function<void(const QString &)> &estado = {});

/// What the last run left in liqcero, with no detail: what item 0 shows when it is loaded without a run.
/// Raises Falla.
ResultadoRecalculo LeerUltimoRecalculo(AppContext &ctx, const QString &interno);
/// What it asks of INTERNOS, to be asked ahead.
QString SentenciaDeUltimoRecalculo(const QString &interno);

/// The stored rows of one item with a total above 0, for the grid; a percentage or a base that is not there
/// is empty. Raises Falla.
std::vector<FilaLiq> LeerLiquidacionDeItem(AppContext &ctx, const QString &interno, const QString &item);
/// What it asks of INTERNOS, to be asked ahead.
QString SentenciaDeLiquidacion(const AppContext &ctx, const QString &interno, const QString &item);
