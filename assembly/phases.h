#pragma once
// What the phases of one run share: the header read once, the options, and the way to the screen. Only this
// folder and its tests come here; everyone else asks for the run itself.

#include <QString>
#include <QStringList>
#include <optional>
#include <utility>

#include "assembly/options.h"
#include "frame/base/values.h"
#include "frame/context.h"
#include "subitems/inputslink.h"

/// How a phase ends: go on, or the run stops here (the phase has set ChequeoArmado and said its word).
enum class Fase { Sigue, Corta };

struct ContextoArmado {
    ContextoArmado(AppContext &contexto, QString operacion) : ctx(contexto), interno(std::move(operacion)) {}

    AppContext &ctx;
    QString interno;

    // header
    QString idsubreg;  ///< as the predicates spell it
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

    // client
    QString ClienteCuit;
    double ingbru = 0;        ///< percentage
    bool cvdi = false;        ///< without it the percentages of advances double
    double eximgan = 0;       ///< percentage; 0: no exclusion
    double ivareduccion = 0;  ///< percentage; 0: no exclusion

    /// Declared FOB total, rounded to cents: what freight, insurance and commission divide by.
    double FobDeclarado = 0;

    /// The number of the step in hand, for the error box; see entrar.
    int paso = 0;

    bool esDJAI() const { return idsubreg == QLatin1String("DJAI"); }
    bool esSQL() const {
        return ctx.DataManager.getDataConnectionTAG(QStringLiteral("INTERNOS")) == QLatin1String("SQL");
    }
    /// DJAI, with descriptions sent and none forced: lines group by description.
    bool condicionDescripcion() const { return esDJAI() && !opciones.sinDescripcion && !descripcionForzada; }

    /// The operation's key between quotes, as every statement of the run has it.
    QString clave() const { return EnComillas(interno); }
    Conexion &internos() const { return ctx.conexion(QStringLiteral("INTERNOS")); }
    /// A write on INTERNOS; rows touched. Raises Falla.
    qint64 ejecutar(const QString &sql) const;
    /// A write on INTERNOS that nothing is asked of: it may travel with what follows, whose routine then
    /// hears of its failure. Raises Falla.
    void mandar(const QString &sql) const;
    /// Waits for what was told so far: ahead of what the user hears or is asked. Raises Falla.
    void asentar() const;
    /// Begins the step `numero`: what fails of the one before is told with that one's number. Raises Falla.
    void entrar(int numero);
    /// A read on `entidad`; true when there is a row. Raises Falla.
    bool consultar(const QString &sql, Recordset &rs,
                   const QString &entidad = QStringLiteral("INTERNOS")) const;
    /// The number in `columna` of the first row of a read on INTERNOS; 0 without a row, and for a null.
    /// Raises Falla.
    double numero(const QString &sql, QStringView columna) const;
    /// Opens on `tabla` rows that will be changed one by one; true when there is a row. Raises Falla.
    bool abrirActualizable(const QString &sql, Recordset &rs, const QString &tabla) const;
};

void MarcarCorriendo(ContextoArmado &r, PasoArmado paso);
void MarcarHecho(ContextoArmado &r, PasoArmado paso);

// The phases, in the order of the run. Each raises Falla on a failing statement.

// opening.cpp

/// Fills `r` from the header of its operation, and lets a forced description overrule the choice of the
/// dashboard. Raises Falla, also when the operation has no header.
void LeerCaratula(ContextoArmado &r);
/// Sets the decree flags of the context and writes their rows.
void FijarDecreto(ContextoArmado &r);
/// A DJAI that sends no descriptions is told so; the run goes on.
void AdvertirSinDescripcion(const ContextoArmado &r);
/// Asks an export for its coefficient, clears it for every other regime, and tells the dashboard.
void PreguntarCoeficiente(ContextoArmado &r);
/// Deletes what earlier runs derived, but for the items, which go when the new ones are made.
void BorrarDerivados(const ContextoArmado &r);

// normalise.cpp

/// Gives a value to every column of the lines that a group's key compares.
void NormalizarLineas(ContextoArmado &r);
/// Asks whether a DJAI with lines without description goes on; Corta on No.
Fase ControlarDescripciones(ContextoArmado &r);
/// Checks every distinct pair of position and suffixes; reports the invalid ones, which end the run.
Fase RevalidarSufijos(ContextoArmado &r);

// grouping.cpp

/// Folds the lines into groups, and links each group with its lines.
void AgruparLineas(ContextoArmado &r);
/// Remembers that the line `plegada` was folded into the line `raiz`.
void RecordarPlegada(const ContextoArmado &r, const QString &raiz, const QString &plegada);
/// Tells the input-records service that `plegadas` were folded into the line `raiz`. Without the service
/// nothing happens; its refusal raises Falla with source "go_InputsLink.EnviarGrupoIdSub".
void EnviarGrupo(const ContextoArmado &r, qint64 raiz, const QStringList &plegadas);
/// Writes what the header fixes for all, or for those that have none, into the groups.
void AplicarDatosComunesAGrupos(ContextoArmado &r);
/// Writes `descripcion` and those of an item's lines, at most 400 characters, as the item's. Server store
/// only: its procedure joins the texts.
void MezclarDescripcionITEM(ContextoArmado &r, const QString &descripcion);

// duplicates.cpp

/// Folds the groups that differ by less than a cent in their price.
void lp_BuscarDuplicados(ContextoArmado &r);
/// Flattens the chains of folded lines: every line hangs on a root that hangs on none.
void UnificarIdRELbyInterno(ContextoArmado &r);

// proration.cpp

/// Spreads the header's value over all groups, or that of each proration code over its own. Sets
/// FobDeclarado. Corta when a code has no group.
Fase ProrratearValor(ContextoArmado &r);
/// Spreads freight and insurance over the items, by FOB.
void ProrratearFleteYSeguro(ContextoArmado &r);
/// Spreads `comision` over the items, by their share of `fobdeclarado`; item 0 takes the total.
void ProrratearComExt(ContextoArmado &r, double comision, double fobdeclarado);

// items.cpp

/// Writes the gross kilos of the groups into the header when all have them, or 0 when none has; tells when
/// some have and others not.
void ControlarKiloBruto(ContextoArmado &r);
/// Parts what would be an item of more than 300 groups.
void DividirItemsGrandes(ContextoArmado &r);
/// Makes and numbers the items as r.opciones.ARMARITEM says, and gives each group its item's number.
void GenerarItems(ContextoArmado &r);
/// Adds the row of the whole declaration, and writes what the header fixes into the items.
void AgregarItemCero(ContextoArmado &r);
/// Relates the items of type D to item 1 when that is the only one of type G; tells when it is not.
void ControlarTiposGD(ContextoArmado &r);
/// Adds a row of information to an item; a quote in `valor` becomes a blank.
void AgregarInformacionAdicional(ContextoArmado &r, qint64 iditem, const QString &idinfo,
                                 const QString &valor);

// liqrecords.cpp

/// Reads the operation's client; one that is not found leaves the values of `r` as they are.
void LeerCliente(ContextoArmado &r);
/// Chooses the concepts of each item and writes their rows, without amounts.
void ArmarRegistrosDeLiquidacion(ContextoArmado &r);
/// The rows of one item for the concepts of a list separated by commas, with the percentages of the client.
/// Rewrites `eximgan` and `ingbru`, which the caller keeps for the later items. `sbtrei` is not used.
void GenerarLiq(ContextoArmado &r, const QString &conceptos, const QString &iditem, double &eximgan,
                double ivareduccion, bool cvdi, double porcentajeiva, double sbtrei, double &ingbru,
                const QString &itfiller);

// advantages.cpp

/// Adds an advantage to an item.
void AgregarVentaja(const ContextoArmado &r, const QString &iditem, const QString &idventaja);
/// Adds the client's advantages to the items of their positions.
void VentajasDelCliente(ContextoArmado &r);
/// What the regime asks of its positions at the end: stamps, the automotive question, vehicle parts.
void CierreDelRegimen(ContextoArmado &r);
/// Adds to each item the advantages of every article folded into it. Server store only.
void ProcesarVentajasVinculadas(ContextoArmado &r);

// kilos.cpp

/// What the run and the review of items do differently in one spread over groups.
struct RepartoPorGrupos {
    QString sinKilos;           ///< the test of the groups that are marked as spread
    bool pedidoComoTexto;       ///< the kilos that a heavy group must exceed go as a quoted text
    QString nadaQueProrratear;  ///< what is told when every group has kilos

    static const RepartoPorGrupos &DelArmado();
    static const RepartoPorGrupos &DeLaRevision();
};
/// Spreads `kilos` over the groups that have none, by FOB, with a floor of 0.01. False, when it can't, after
/// telling why.
bool Prorratear_ItemCeroEx(ContextoArmado &r, double kilos,
                           const RepartoPorGrupos &reparto = RepartoPorGrupos::DelArmado());
/// Looks for items that mix groups with kilos and groups without, and reports them: "NO" when there is one,
/// else "SI".
QString VerificarIntegridad(ContextoArmado &r);
/// Reports the groups of an item with their measures.
void MostrarSubItems(ContextoArmado &r, qint64 iditem);

// marks.cpp

/// Tells which marks the positions of the items carry, in the regimes that ask for it.
void VerificarMarcasNcm(ContextoArmado &r);
