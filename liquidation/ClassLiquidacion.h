#pragma once
// The duty and tax engine of one declaration item.

#include <QString>

struct AppContext;

/// "M" for 225 and 221, "B" for 203, empty for an empty code, "E" for any other.
QString ZonaDePais(const QString &codigo);
/// Whether the country's imports are capped (129 codes); a code that is no number is not.
bool PaisConTopeArancelario(const QString &codigo);

/// Holds the header, nomenclature and item values of one item, derives the two taxable bases, and answers
/// concept by concept. Amounts are in the currency of their field, bases and totals in the customs currency,
/// rates in percent. One instance serves one item at a time and goes from item to item: nothing is reset
/// between items but what an operation says it resets. The caller fills the members, then asks for
/// ObtenerBaseImponible and ObtenerBaseIVA, in that order, then for the concepts.
class ClassLiquidacion {
 public:
    /// `interno` is the key under which the answer to the common external tariff question is kept.
    ClassLiquidacion(AppContext &ctx, QString interno);

    // Header
    QString CaratulaSubRegimen;
    double CaratulaFobTotal = 0;
    double CaratulaFobTotalSinG = 0;
    double CaratulaFleteTotal = 0;
    double CaratulaSeguroValor = 0;
    double CaratulaAjusteIncluir = 0;
    double CaratulaAjusteDeducir = 0;
    double CaratulaDivisasFOB = 0;
    double CaratulaDivisasFlete = 0;
    double CaratulaDivisasSeguro = 0;
    double CaratulaFactordeConvergencia = 0;
    /// Writing the percentage fills CaratulaSeguroValor when that is 0: the value is written first.
    void fijarCaratulaSeguroProcent(double porcentaje);
    double CaratulaSeguroProcent() const { return seguroProcent_; }

    // Item
    double FOBTotalITEM = 0;
    double FLETETotalITEM = 0;
    double SEGUROTotalITEM = 0;
    double AJUSTEINCLUIRtotalITEM = 0;
    double AJUSTEDEDUCIRtotalITEM = 0;
    double ItemCantidadDerechoEspecifico = 0;
    QString ItemIdPais;
    QString ItemEstadoMercaderia;
    QString ItemLista;
    double ItemCoeficienteExportacion = 0;
    bool ItemLISTA_MERCOSUR = false;
    bool ItemCalcularCoeficienteExportacion = false;
    bool ItemMineria = false;
    double ItmImportacionTemporal = 0;
    double ItmImportacionTmpCons = 0;
    double ItmComsionesExt = 0;
    void fijarItemCantidad(double cantidad) { cantidad_ = cantidad; }
    /// Always 0; nothing reads it.
    static double ItemCantidad() { return 0; }
    void ItemxItmCOFEXP() {}

    // Nomenclature
    double NcmDerechodeImportacionExtrazona = 0;
    double NcmTasaEstadistica = 0;
    double ncmCantidadDerechoEspecifico = 0;
    double NcmDerechodeExpo = 0;
    double ncmReintegroFijo = 0;
    QString NcmUnidadDerechoEspecifico;
    double ncmReintFijoIntraZona = 0;
    double ncmValor_AEC = 0;
    QString ncm_AEC;
    int ncmExencionReduccionIVA = 0;  ///< 0 exempt, 1 reduced, other general
    double NcmIndicadorMaximoArancel = 0;
    double ncmMineriaTasaLey = 0;
    double ncmDIEMCHINAValor = 0;
    bool ncmCalculaDIEMCHINA = false;
    bool NcmDerechodeImportacionExtrazonaForce = false;  ///< the row's own duty outranks the common tariff
    double ncmDIEMPREFPorcValor = 0;
    double ncmDIEMIndMaxArancelValor = 0;
    /// Takes the text of the additional rate; a text that is no number is 0.
    void fijarNcmDerechoAdicional(const QString &tasa);

    QString CalculoAEC;
    void ResetAEC() { CalculoAEC.clear(); }

    /// The taxable base: FOB, freight and insurance of the item, each at the rate of its currency, plus and
    /// less its adjustments at the FOB's. An export leaves freight and insurance out; a regime that consumes
    /// inputs takes those under temporary import off and adds the foreign commission. A missing amount or
    /// rate is 0. Nothing is rounded. FOB 600.00 at 1.10, freight 60.00 at 1, insurance 12.00 at 1.25,
    /// adjustments 30.00 and 6.00: 660 + 60 + 15 + 33 - 6.60 = 761.40. An overflow is told, and leaves the
    /// sum as far as it got.
    void CalcularBaseImponible();
    /// The base of IVA, additional IVA, income taxes and internal taxes: the taxable base plus import duty,
    /// statistics rate or fee, mining rate and the additional duty of a decree, as far as each runs. For
    /// parts under the automotive agreement (list 314; from country 203 when the answer is replacement) the
    /// second base instead: three quarters of the common tariff. Asks the automotive question when the
    /// position carries its mark and the operation has no answer yet. Needs CalcularBaseImponible before it.
    /// 1000.00 with a duty of 20 % and a statistics rate of 3 % is 1230.00. Mining, and the rule of the
    /// agreement, set the duty and the statistics rate of this object to 0. An overflow is told, and leaves
    /// 0.
    void CalcularBaseIVA();
    /// CalcularBaseImponible, times the export coefficient when that is above 0.
    double ObtenerBaseImponible();
    /// CalcularBaseIVA.
    double ObtenerBaseIVA();
    double ObtenerFobItemUS() const { return CaratulaDivisasFOB * FOBTotalITEM; }
    double ObtenerFLETEItemUs() const { return CaratulaDivisasFlete * FLETETotalITEM; }
    double ObtenerSEGUROItemUs() const { return CaratulaDivisasSeguro * SEGUROTotalITEM; }
    double ObtenerAjusteIncUs() const { return CaratulaDivisasFOB * AJUSTEINCLUIRtotalITEM; }
    double ObtenerAjusteDedUs() const { return CaratulaDivisasFOB * AJUSTEDEDUCIRtotalITEM; }

    /// The total of a concept. `porcentaje` "Vacio" asks for its default, and may be replaced; `valor` is not
    /// used; `base` goes in and out; a `baseManual` other than 0 lets `base` stand; `sinCoeficiente` leaves
    /// the export coefficient out of concept 020. ObtenerLqPorc tells the percentage to keep. Concepts 601
    /// and 611 set AppContext::LiquidacionPendiente. Raises Falla on an overflow and on a division by
    /// zero (020 with a rate of -100 and a coefficient to be worked out, 417 with a nominal rate of 100).
    double ObtenerValorConcepto(const QString &concepto, QString &porcentaje, double valor, double &base,
                                const QString &porcentajeB, double baseManual, bool sinCoeficiente);
    double ObtenerLqPorc() const { return LqPorc; }

    /// Ad valorem duty (`porcentaje` of the taxable base) against specific duty (duty per unit x units; 0
    /// when either is missing). The ad valorem duty stands unless it is the lower one; then
    /// - a country without a cap pays the specific duty;
    /// - one inside the zone pays neither, and the position's duty becomes 0;
    /// - any other pays the specific duty up to the cap, 30 or 35 % of the base by the position's indicator,
    /// 0
    ///   without one; country 310 the other way round, the cap unless the specific duty is higher than it.
    /// On 1000.00 at 20 % against 50 units at 9.50: 475.00 from country 400, 350.00 from 212 with indicator
    /// 2, nothing from 203. An overflow is told, and leaves what was worked out before it.
    void CalcularDerechos(double porcentaje);
    /// The percentage of the last CalcularDerechos, or the cap that took its place.
    double Aux_PORCENTAJE() const { return auxPorcentaje_; }
    /// Minimum specific duty for goods of country 310 whose position is in the table of minimums; 0 for any
    /// other. a = minimum x units x 100 / porcentaje; what exceeds the cap is lowered by the preference, and
    /// `porcentaje` of the whole is the duty, to the cent. Minimum 9.50, 50 units, 35 %, cap 35, preference
    /// 40: a = 1357.1428..., 1322.1428... less 528.86 and plus 35 is 828.2828..., 35 % of it 289.90. A
    /// `porcentaje` of 0 and an overflow are told and give 0.
    double CalcularDiemCHINA(double porcentaje);
    /// Reads the decree and the nominal rate of the position's internal taxes; clears them when there are
    /// none.
    void GetMarcaImpuestosInternos(const QString &ncm);

    QString Obtener_Sep_Decim() const;
    QString ObtenerDecimal() const { return Obtener_Sep_Decim(); }
    QString ReemplazarSeparadorDecimal(QString &texto) const;

    /// The band of the last base seen: 1 to 79999, 2 from 80000 to 99999, 3 from 100000; in the gaps between
    /// them it keeps what it was.
    int BandaEstadistica() const { return bandaEstadistica_; }
    double ImporteDIEM() const { return importeDIEM_; }
    double ImporteEspecifico() const { return importeEspecifico_; }
    double ImporteAdValorem() const { return importeAdValorem_; }
    double BaseIVAAdicional() const { return baseIVAAdicional_; }
    double DerechoAutomotriz() const { return derechoAutomotriz_; }

 private:
    friend struct Conceptos;

    bool esExportacion() const { return CaratulaSubRegimen.startsWith(QLatin1Char('E')); }
    bool es314() const { return ItemLista == QLatin1String("314/R.AUTOMOTRIZ"); }
    double porcentajeDe(double porcentaje) const;
    void sumarDerechos();
    void sumarConRegimenAutomotriz(const QString &zona);
    void aplicarReglaBrasil();
    /// What the statistics rate adds to a base: the rate, a fee, or nothing in the gaps between the bands.
    double tramoDeEstadistica() const;
    double tasaIVA(const QString &porcentaje) const;
    void avisar(const QString &descripcion) const;

    AppContext &ctx_;
    QString interno_;
    double seguroProcent_ = 0;
    double cantidad_ = 0;
    double derechoAdicional_ = 0;

    double baseImponible_ = 0;
    double baseIVA_ = 0;
    double baseIVAAdicional_ = 0;
    double derechoAutomotriz_ = 0;
    double importeAdValorem_ = 0;
    double importeDIEM_ = 0;
    double importeEspecifico_ = 0;
    double importeDIEMChina_ = 0;
    int bandaEstadistica_ = 0;
    bool derechoExpoCubierto_ = false;
    QString impInternoDecreto_;
    double impInternoTasaNominal_ = 0;
    double impInternoTasaEfectiva_ = 0;
    double LqPorc = 0;
    double auxPorcentaje_ = 0;
};
