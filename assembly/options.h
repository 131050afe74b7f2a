#pragma once
// What a run is asked with, and the steps it shows.

#include <QString>
#include <QStringList>

/// The source of descriptions for a DJAI.
enum class ModoDescripcion { Ninguno = 0, Maria = 1, Catalogo = 2, Mezcla = 3 };

/// The choices of the dashboard at the moment the run starts.
struct OpcionesDeArmado {
    int ARMARITEM = 2;  ///< 1: items in NCM order; 2: in order of first appearance
    bool ChMulta = false;
    bool ChCOEF = false;
    bool chkCalcularServicioDigitalizacion = false;
    bool sinDescripcion = false;  ///< the no-description flag
    ModoDescripcion modo = ModoDescripcion::Ninguno;
};

/// The steps in the order the screen shows them.
enum class PasoArmado {
    RevalidandoSufijos,
    AgruparSubItems,
    VerificandoProrrateo,
    VerificadoKiloBruto,
    GenerarItems,
    ArmarLiquidacion,
    TerminarProceso,
    VerificandoIntegridad,
    VerificandoMarcas,
    ActualizandoInsumos
};
/// Their captions, in the same order.
const QStringList &TextosDePasos();
