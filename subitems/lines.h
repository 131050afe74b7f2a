#pragma once
// The entry of invoiced lines as FrmSubItems holds it: its fields, and every rule behind its keys. The screen
// copies its widgets into the state, calls the routine of the event, and copies the state back. Every routine
// raises Falla unless told.

#include <QString>
#include <array>
#include <optional>
#include <vector>

#include "frame/base/verdict.h"
#include "subitems/articlesearch.h"
#include "subitems/inputslink.h"

struct AppContext;

/// The unit code of the kilogram; many rules turn on it.
inline const QString kilogramo = QStringLiteral("01");

/// The texts of the screen, each named as its control.
struct CamposSubItem {
    QString TxtIdCatalogo, TxtCatalogo, TxtDescCatalogo, txtIdArticulo, TxtDescArticulos, txtDescripcionMaria;
    QString TxtPosicion, TxtUnidad, TxtCantidad, TxtUnitario, TxtFobTotal, TxtValorsobreestadistica,
        TxtDerEsp;
    QString TxtIdpais, txtIdPaisProc, TxtIdEstadoMercaderia, txtSufijos, TxtCodProrrateo;
    QString TxtKgNeto, TxtKgBruto, txtKgUnitario;
    QString TxtInsumosTemp, TxtInsumCons, TxtCanelaciones, TxtCancCantidad, txtNroItem, TxtNroSubitem;
    QString txtOtros, TxtFiller, txtCertOrig, TxtNaladisa, TxtCodigoEAN;
    QString cboBiendeUso = QStringLiteral("N");  ///< "S" or "N"
    // labels
    QString LbCodigoEstadistica;  ///< statistical unit of the position
    QString LbIdDerEsp;           ///< unit of the specific duty
    QString txtNCMDesc;           ///< the text block on the position
    QString LbDescCatalogo;       ///< "article - description" of the catalogue's article
    QString LbDescUnidad, LbDescPais, LbDescPaisProc, LbDescEstado;
    // marks, shown or not
    bool LbLapi = false, lbSegElect = false, lbProhibicion = false, lbREINT = false;
};

enum class TipoDeCampo { Texto, Opciones, Descripcion };
/// A control of the screen and its member, so that a screen copies them all in one loop; in the order of the
/// work.
struct DefinicionDeCampo {
    const char *control;
    QString CamposSubItem::*campo;
    TipoDeCampo tipo = TipoDeCampo::Texto;
    const char *clave = "";  ///< code table of a coded field
    QString CamposSubItem::*descripcion = nullptr;

    /// Its letters are capitals: a field with a code table, the position, the proration code.
    bool esCodigo() const {
        return *clave != 0 || campo == &CamposSubItem::TxtPosicion ||
               campo == &CamposSubItem::TxtCodProrrateo;
    }
};
const std::vector<DefinicionDeCampo> &CamposDeSubItem();
/// Null for a name that is not one of them; in any case.
const DefinicionDeCampo *CampoDeSubItem(const QString &control);

/// What the dashboard's box "Ocultar campos" decides, in the order of its flags: a flag of 1 offers the
/// block.
enum class BloqueDeLinea {
    Catalogos,
    CantidadEstadistica,
    PaisDeOrigen,
    EstadoMercaderia,
    CodigosDeProrrateo,
    BienDeUso,
    Kilos,
    Cancelaciones
};

/// A new line's save that did not come to its end.
struct AltaEnDuda {
    qint64 tras = 0;    ///< the highest line ahead of it
    QString sentencia;  ///< the insert that was sent
};

struct SubItems {
    QString interno;
    int modo = 1;   ///< 1 new line, 2 change of the line `id`
    qint64 id = 0;  ///< the line in hand in mode 2
    QString idsubreg;
    double fobdivisas = 0;  ///< FOB that the header declares
    bool ONCCAHabilitado = false;
    bool eanHabilitado = false;                                                  ///< TxtCodigoEAN is on
    std::array<bool, 8> ofrece{true, true, true, true, true, true, true, true};  ///< by BloqueDeLinea
    bool opcionesDeFob = false;  ///< opFobTotal and opFobUnitario are shown
    bool opFobUnitario = true;   ///< which of the two leads; else opFobTotal
    bool FramDerEsp = false;     ///< the specific duty's frame is enabled
    bool articuloFijo = false;   ///< the article's fields are locked
    bool VincularDatos = false;  ///< the line comes from the inputs link, whose own catalogue it names
    bool marcaERR = false;       ///< the link flagged the line
    double SBTREI = 0;           ///< the line's refund value, kept by a change
    QString descripcionDefecto;  ///< text kept with LbDescCatalogo, what suffix questions offer
    QString LbTotal;             ///< FOB that the header declares, "##.00"
    QString LbTotSubitems;       ///< sum of the lines' FOB, "00.00"
    QString lbDIF;               ///< what is missing, "00.00"
    std::optional<insumos::Enlace> enlace;  ///< nothing while the library is absent
    std::optional<qint64> ultimaVista;      ///< the highest line that the screen knows of
    /// The next save looks whether the store kept this one, and then goes on with it instead of adding it
    /// again.
    std::optional<AltaEnDuda> enDuda;
    CamposSubItem campos;

    bool bloque(BloqueDeLinea b) const { return ofrece.at(static_cast<std::size_t>(b)); }
    /// FramCatalogo is on.
    bool FramCatalogo() const { return bloque(BloqueDeLinea::Catalogos); }
    /// Enabled: with the options shown, only the one that leads; else both.
    bool TxtFobTotalHabilitado() const { return !opcionesDeFob || !opFobUnitario; }
    bool TxtUnitarioHabilitado() const { return !opcionesDeFob || opFobUnitario; }
    /// Kilograms fill the statistical quantity by themselves.
    bool pideCantidadEstadistica() const { return campos.LbCodigoEstadistica != QLatin1String("01"); }
};

/// On loading the screen: mode 1, options, header, EAN, the libraries that are there, totals. `banderas` are
/// the eight flags of the dashboard.
void AbrirSubItems(AppContext &ctx, SubItems &s, const QString &interno, const std::array<int, 8> &banderas);

/// A click on opFobUnitario or opFobTotal: kept for the workstation.
void ElegirCargaPor(AppContext &ctx, SubItems &s, bool unitario);

/// Mode 1 with every text field empty, but those that the options keep, as after a line was saved.
void VaciarCampos(AppContext &ctx, SubItems &s);

/// SelectINSUMOS: the link's own list, on a regime with inputs and with a live link. True when the fields
/// were taken from it.
bool SelectINSUMOS(AppContext &ctx, SubItems &s);

/// ENTER in TxtPosicion: units, marks and the text block of the position, and the statistical quantity where
/// it follows the declared one; false with a message when its length is wrong or the nomenclature does not
/// have it. Kilos stay as they are.
Veredicto BuscarNCM(AppContext &ctx, SubItems &s);

/// A quantity or a unit changed: the relations between units, the unit weight and the price mode.
void CantidadCambia(AppContext &ctx, SubItems &s);
/// The relations alone: statistical quantity and net kilos from the declared quantity, where `unidrel` knows
/// the pair.
void CalcularUnidades(AppContext &ctx, SubItems &s);
/// Net kilos (and what is measured in them) from the unit weight. Sends nothing to the store.
void CalcularKgUnitario(const AppContext &ctx, SubItems &s);
/// The price or the total from the other, by the mode. Sends nothing to the store.
void CalcularFob(const AppContext &ctx, SubItems &s);

/// ENTER on a field: the position (BuscarNCM), the article (BuscarArticuloSobreCat, unless it is locked), or
/// the description of a coded field. Walking over a line with ENTER recalculates nothing.
Veredicto CampoDeLineaEnter(AppContext &ctx, SubItems &s, const QString &control);
/// F6 on a coded field. False when nothing was chosen, and for a field without a list here: the article, the
/// position and the proration code have screens of their own.
bool CampoDeLineaF6(AppContext &ctx, SubItems &s, const QString &control);
/// The user changed a text: the figures that follow it (units, kilos, and the price or the total, by the
/// mode). Not for texts that the program sets.
void CampoDeLineaCambia(AppContext &ctx, SubItems &s, const QString &control);

/// What a search of articles left chosen goes into the line: its catalogue, and the article, which fills it.
/// False, with nothing changed, when nothing was chosen and while the article is locked.
bool TomarArticulo(AppContext &ctx, SubItems &s, const ArticuloElegido &elegido);

/// Looks the article of TxtIdCatalogo and txtIdArticulo up in the article store and fills the line from it;
/// its suffixes are to be reconfirmed. False, with the description emptied and nothing told, when the store
/// does not have it.
bool BuscarArticuloSobreCat(AppContext &ctx, SubItems &s);

/// The suffixes of the line in hand asked for again; the field keeps its text when the user gives up.
void ActuSufijos(AppContext &ctx, SubItems &s);

/// Takes a stored line into the fields: mode 2. False when there is no such line.
bool BuscarSubItem(AppContext &ctx, SubItems &s, qint64 id);

/// How a save ended.
struct Grabacion {
    bool ok = false;         ///< a line was written and stays
    bool rechazada = false;  ///< the inputs link refused it: no row stayed, nothing was told here
    QString foco;            ///< control that takes the focus
    qint64 id = 0;           ///< the line
};
/// The one save entry: GrabarSubItems in mode 1, ModificarSubItems in mode 2.
Grabacion Grabar(AppContext &ctx, SubItems &s);
Grabacion GrabarSubItems(AppContext &ctx, SubItems &s);
Grabacion ModificarSubItems(AppContext &ctx, SubItems &s);

/// Deletes one line, after a question. A line that took inputs gives them back first; when the link refuses,
/// or is absent, it stays, with a message. True when it is gone.
bool EliminarSubItem(AppContext &ctx, SubItems &s, qint64 id);
/// Deletes the checked lines, after one question, up to the first that the inputs link refuses; the number of
/// lines deleted. What was deleted stays deleted.
int lpEliminar(AppContext &ctx, SubItems &s, const std::vector<qint64> &ids);

/// LbTotal, LbTotSubitems and lbDIF.
void RefrescarTotales(AppContext &ctx, SubItems &s);
/// What it asks of INTERNOS, to be asked ahead.
QString SentenciaDeTotal(const QString &interno);
