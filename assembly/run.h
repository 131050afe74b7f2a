#pragma once
// The assembly as the rest of the program sees it: what it is asked with, its steps, and the run itself.

#include <QString>
#include <QStringList>
#include <functional>

struct AppContext;

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

/// The link to the input-records service. Absent by default: no function set.
struct EnlaceDeInsumos {
    /// Tells the root line and its "|"-joined folded lines; false on failure.
    std::function<bool(const QString &interno, qint64 idroot, const QString &idsublist)> EnviarGrupoIdSub;
    std::function<bool(qint64 iditem, const QString &idsublist)> EnviarNroItem;
    bool presente() const { return static_cast<bool>(EnviarGrupoIdSub) || static_cast<bool>(EnviarNroItem); }
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

/// The one long run. Its result stands in ctx.ChequeoArmado, which the caller has set to "SI"; an unexpected
/// error shows its box and leaves the result as it is. What the run decides about ChCOEF stands in
/// ctx.CalcularCoeficiente. True when the screen is to be closed, false when it stays open (the road of an
/// unexpected failure). Whatever its end, all that it wrote is on the disk when it returns.
bool Generar(AppContext &ctx, const QString &interno, const OpcionesDeArmado &opciones,
             const EnlaceDeInsumos &enlace = {});
