#pragma once
// The state of an operation as the dashboard shows it: labels and what is enabled. No widget here.

#include <QString>

#include "frame/context.h"

struct EstadoDeOperacion {
    bool existe = false;
    bool Completo = true;
    QString idsubreg, tipo;  ///< tipo: cstaimpexp, or "N"
    QString marca;           ///< "T" or "P"
    // Labels. A status text is empty while it was never worked out: the label is as it was at design.
    QString LbEstadoCaratula, LbEstadoSubItem, LbEstadoItem, LbEstadoBultos;
    QString LbSubregimen, LbAduana, LbDespa, LbCliente, LbItem, LbSubItem;
    // enabled
    bool ChCOEF = false, cmdITEM = false, frmOrdenar = false, CmdBultos = false, cmdCertOrig = false,
         CmdTransMaria = false, cmdExportar = false, cmdExportINS = false, CmdPrint = false,
         CmdHojaVal = false, cmdONCCA = false;
    // shown
    bool frmOrdenarVisible = false, framDJAIVisible = false;
    /// The items were looked at this time: the choice of descriptions is restored for a DJAI, and only then.
    bool itemsMirados = false;
    QString opcionDJAI;  ///< "MARIA", "CATALOGO", "MEZCLA" or empty
    bool mezclarHabilitado = false;
};
/// Where the operation stands. A status, a box and a choice that this reading does not come to (an incomplete
/// header ends it) are those of `anterior`, what the dashboard shows now, and the buttons judge by them. An
/// operation that is not there answers a state without `existe`, with everything empty and off. Raises Falla.
EstadoDeOperacion LeerEstado(AppContext &ctx, const QString &interno, const EstadoDeOperacion &anterior = {});

/// What the dashboard does next on the road to the items: stay, open the run's screen, or go to the items.
enum class PasoDeArmado { NoSigue, Armar, YaArmado };
struct EleccionDelTablero {
    bool opOrdenxNCM = false;
    bool ChMulta = false, ChCOEF = false, chkCalcularServicioDigitalizacion = false;
    QString opcionDJAI;  ///< "NO", "MARIA", "CATALOGO", "MEZCLA", or empty: none selected
};
/// Before the run: the checks (a refusal has told its reason), the armed mark, the settings that are kept and
/// the shared flags. `opciones` is what Generar takes, filled for `Armar` alone. Raises Falla.
PasoDeArmado PrepararArmado(AppContext &ctx, const QString &interno, const EleccionDelTablero &eleccion,
                            struct OpcionesDeArmado &opciones);
/// After a run whose result is not "SI": the operation must be armed again. Raises Falla.
void ArmadoFallido(AppContext &ctx, const QString &interno);
