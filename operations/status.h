#pragma once
// The state of an operation as the dashboard shows it: labels and what is enabled. No widget here.

#include <QString>

#include "frame/context.h"

struct EstadoDeOperacion {
    bool existe = false;
    bool Completo = true;
    QString idsubreg, tipo;  ///< tipo: cstaimpexp, or "N"
    QString marca;           ///< "T" or "P"
    // labels; an empty status text means: leave the label as it was at design
    QString LbEstadoCaratula, LbEstadoSubItem, LbEstadoItem, LbEstadoBultos;
    QString LbSubregimen, LbAduana, LbDespa, LbCliente, LbItem, LbSubItem;
    // enabled
    bool ChCOEF = false, cmdITEM = false, frmOrdenar = false, CmdBultos = false, cmdCertOrig = false,
         CmdTransMaria = false, cmdExportar = false, cmdExportINS = false, CmdPrint = false,
         CmdHojaVal = false;
    // shown
    bool frmOrdenarVisible = false, framDJAIVisible = false;
    QString opcionDJAI;  ///< "MARIA", "CATALOGO", "MEZCLA" or empty
    bool mezclarHabilitado = false;
};
/// Raises Falla.
EstadoDeOperacion LeerEstado(AppContext &ctx, const QString &interno);

/// Result of the assembly sequence up to the point where the run's screen opens.
enum class PasoDeArmado { NoSigue, Armar, YaArmado };
struct EleccionDelTablero {
    bool opOrdenxNCM = false;
    bool ChMulta = false, ChCOEF = false, chkCalcularServicioDigitalizacion = false;
    QString opcionDJAI;  ///< "NO", "MARIA", "CATALOGO", "MEZCLA", or empty: none selected
};
/// Steps 1 to 3 of the assembly sequence: checks, settings and shared flags; `opciones` is what Generar
/// takes.
PasoDeArmado PrepararArmado(AppContext &ctx, const QString &interno, const EleccionDelTablero &eleccion,
                            struct OpcionesDeArmado &opciones);
/// Step 4 for a result other than "SI": the operation must be armed again.
void ArmadoFallido(AppContext &ctx, const QString &interno);

/// The number in the first character of [071] of the item of largest FOB, if it is 1, 2, 3, 4 or 8, else -1.
int InformarNcmMayorFob(AppContext &ctx, const QString &interno);
