#pragma once
// What every phase of one assembly run reads: the header once, the options, and the way to the screen.

#include <QString>
#include <QStringList>
#include <optional>
#include <utility>

#include "frame/context.h"
#include "subitems/inputslink.h"

/// How a phase ends: go on, or the run stops here (the phase has set ChequeoArmado and said its word).
enum class Fase { Sigue, Corta };

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

struct ContextoArmado {
    ContextoArmado(AppContext &contexto, QString clave) : ctx(contexto), interno(std::move(clave)) {}

    AppContext &ctx;
    QString interno;

    // header
    QString idsubreg;
    QString cstaimpexp;
    QString cuitcliente;
    double valoraprorratear = 0;
    double fobdivisas = 0;
    double fletedivisas = 0;
    double segurodivisas = 0;
    QString motivodestsuspensiva;
    QString DCEstMerc, DCPaisOrigen, DCPaisDestino, DCStandard, DCRegalias;
    bool DCForzarEstMerc = false;
    bool DCForzarPaisOrigen = false;
    double DCKgNeto = 0;
    double DCComExt = 0;
    QString ONCCAAcuerdo, ONCCAElaborador, ONCCAEspecie, ONCCAFaneador, ONCCAMatadero, ONCCAMeccoorgbio,
        ONCCARes3106, ONCCASisPro, ONCCACategoria, ONCCACortes;
    QString OpcionesIVA, OpcionesGanancias;
    QString DATOCOMPRADOR, NROTRANSINTER;
    bool descripcionForzada = false;  ///< DC_DJAI_ForzarDescripcionMercaderia
    QString DC_DJAI_DescripcionMercaderia;

    // options
    OpcionesDeArmado opciones;
    std::optional<insumos::Enlace> go_InputsLink;  ///< nothing while the library is absent

    // client (Personal), read at the proration step
    QString ClienteCuit;
    double ingbru = 0;
    bool cvdi = false;
    double eximgan = 0;
    double ivareduccion = 0;

    /// Declared FOB total, rounded to cents: what freight, insurance and commission divide by.
    double FobDeclarado = 0;

    /// The number of the step in hand, for the error box.
    int paso = 0;

    bool esDJAI() const { return idsubreg == QLatin1String("DJAI"); }
    bool esSQL() const {
        return ctx.DataManager.getDataConnectionTAG(QStringLiteral("INTERNOS")) == QLatin1String("SQL");
    }
    /// DJAI, with descriptions sent and none forced: lines group by description.
    bool condicionDescripcion() const { return esDJAI() && !opciones.sinDescripcion && !descripcionForzada; }

    Conexion &internos() const { return ctx.conexion(QStringLiteral("INTERNOS")); }
    /// A write on INTERNOS; rows touched.
    qint64 ejecutar(const QString &sql) const;
    /// A read on `entidad`; true when there is a row.
    bool consultar(const QString &sql, Recordset &rs,
                   const QString &entidad = QStringLiteral("INTERNOS")) const;
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
/// The captions of the ten steps.
const QStringList &TextosDePasos();
void MarcarCorriendo(ContextoArmado &r, PasoArmado paso);
void MarcarHecho(ContextoArmado &r, PasoArmado paso);

/// Fills `r` from the header of its operation, and lets a forced description overrule the choice of the
/// dashboard. Raises Falla, also when the operation has no header.
void LeerCaratula(ContextoArmado &r);
/// Sets the decree flags of the context and writes their rows. Raises Falla.
void FijarDecreto(ContextoArmado &r);

/// The one long run. Its result stands in ctx.ChequeoArmado, which the caller has set to "SI"; an unexpected
/// error shows its box and leaves the result as it is. What the run decides about ChCOEF stands in
/// ctx.CalcularCoeficiente. True when the screen is to be closed, false when it stays open (the road of an
/// unexpected failure). Whatever its end, all that it wrote is on the disk when it returns.
bool Generar(AppContext &ctx, const QString &interno, const OpcionesDeArmado &opciones);

// Phases, in the order of the run. Each raises Falla on a failing statement.
// normalise.cpp
void NormalizarLineas(ContextoArmado &r);
Fase ControlarDescripciones(ContextoArmado &r);
Fase RevalidarSufijos(ContextoArmado &r);
// grouping.cpp
void AgruparLineas(ContextoArmado &r);
/// Tells the input-records service that `plegadas` were folded into the line `raiz`. Without the service
/// nothing happens; its refusal raises Falla with source "go_InputsLink.EnviarGrupoIdSub".
void EnviarGrupo(const ContextoArmado &r, qint64 raiz, const QStringList &plegadas);
void AplicarDatosComunesAGrupos(ContextoArmado &r);
void MezclarDescripcionITEM(ContextoArmado &r, const QString &descripcion);
// duplicates.cpp
void lp_BuscarDuplicados(ContextoArmado &r);
void UnificarIdRELbyInterno(ContextoArmado &r);
// proration.cpp
Fase ProrratearValor(ContextoArmado &r);
void ProrratearFleteYSeguro(ContextoArmado &r);
void ProrratearComExt(ContextoArmado &r, double comision, double fobdeclarado);
// items.cpp
void ControlarKiloBruto(ContextoArmado &r);
void DividirItemsGrandes(ContextoArmado &r);
void GenerarItems(ContextoArmado &r);  ///< numbering by r.opciones.ARMARITEM, and the link of the groups
void AgregarItemCero(ContextoArmado &r);
void ControlarTiposGD(ContextoArmado &r);
void AgregarInformacionAdicional(ContextoArmado &r, qint64 iditem, const QString &idinfo,
                                 const QString &valor);
// liqrecords.cpp, advantages.cpp
void LeerCliente(ContextoArmado &r);
void ArmarRegistrosDeLiquidacion(ContextoArmado &r);
void GenerarLiq(ContextoArmado &r, const QString &conceptos, const QString &iditem, double &eximgan,
                double ivareduccion, bool cvdi, double porcentajeiva, double sbtrei, double &ingbru,
                const QString &itfiller);
void VentajasDelCliente(ContextoArmado &r);
void CierreDelRegimen(ContextoArmado &r);
void ProcesarVentajasVinculadas(ContextoArmado &r);
// kilos.cpp
void Prorratear_ItemCeroEx(ContextoArmado &r, double kilos);
QString VerificarIntegridad(ContextoArmado &r);  ///< "NO" when an item is reported, else "SI"
void MostrarSubItems(ContextoArmado &r, qint64 iditem);
// marks.cpp
void VerificarMarcasNcm(ContextoArmado &r);
