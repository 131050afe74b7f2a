// One rule a concept code: what it answers, and the base and the percentage that it leaves for the row.

#include "tests/liquidation/calculo.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

class Conceptos : public CalculoDePrueba {};

struct CasoDeConcepto {
    const char *nombre;
    const char *concepto;
    Pedido pedido;
    void (*preparar)(ClassLiquidacion &);  ///< before the bases; null for the usual item
    double total, base, lqPorc;
    const char *porcentaje;
};

void mercosur(ClassLiquidacion &c) {
    c.ItemLISTA_MERCOSUR = true;
    c.ItemLista = u"MERCOSUR"_s;
}
void agreementList(ClassLiquidacion &c) {
    c.ItemLista = u"314/R.AUTOMOTRIZ"_s;
    c.ncmValor_AEC = 18;
}
void mining(ClassLiquidacion &c) {
    c.ItemMineria = true;
}
void exempt(ClassLiquidacion &c) {
    c.ncmExencionReduccionIVA = 0;
}
void reduced(ClassLiquidacion &c) {
    c.ncmExencionReduccionIVA = 1;
}
void otherRate(ClassLiquidacion &c) {
    c.ncmExencionReduccionIVA = 7;
}
void it04(ClassLiquidacion &c) {
    c.CaratulaSubRegimen = u"IT04"_s;
}
void noStatistics(ClassLiquidacion &c) {
    c.NcmTasaEstadistica = 0;
}
void middle(ClassLiquidacion &c) {
    c.FOBTotalITEM = 90000 - 110;
}
void upper(ClassLiquidacion &c) {
    c.FOBTotalITEM = 100000 - 110;
}
void middleMercosur(ClassLiquidacion &c) {
    middle(c);
    mercosur(c);
}
void upperMercosur(ClassLiquidacion &c) {
    upper(c);
    mercosur(c);
}
void middleNoStatistics(ClassLiquidacion &c) {
    middle(c);
    noStatistics(c);
}
void specific(ClassLiquidacion &c) {
    c.ncmCantidadDerechoEspecifico = 3;
    c.ItemCantidadDerechoEspecifico = 100;
    c.NcmIndicadorMaximoArancel = 1;
}
void capped(ClassLiquidacion &c) {
    specific(c);
    c.ItemIdPais = u"101"_s;
}
void cappedMercosur(ClassLiquidacion &c) {
    capped(c);
    mercosur(c);
}
void specificMercosur(ClassLiquidacion &c) {
    specific(c);
    mercosur(c);
}
void cappedAtNothing(ClassLiquidacion &c) {
    capped(c);
    c.NcmIndicadorMaximoArancel = 0;
}
void china(ClassLiquidacion &c) {
    c.ItemIdPais = u" 310"_s;
}
void additional(ClassLiquidacion &c) {
    c.fijarNcmDerechoAdicional(u"24"_s);
}
void exportation(ClassLiquidacion &c) {
    c.CaratulaSubRegimen = u"EC01"_s;
    c.NcmDerechodeExpo = 10;
}

class TablaDeConceptos : public CalculoDePrueba, public ::testing::WithParamInterface<CasoDeConcepto> {};

TEST_P(TablaDeConceptos, Answers) {
    const CasoDeConcepto &k = GetParam();
    responderAEC("N");
    if (k.preparar) k.preparar(c);
    bases();
    const Respuesta r = pedir(k.concepto, k.pedido);
    esperar(r, k.total, k.base, k.lqPorc, k.porcentaje);
    EXPECT_FALSE(ctx.LiquidacionPendiente);
}

// Taxable base 1110, IVA base 1365.30 (duty 20 %: 222.00, statistics 3 %: 33.30), general IVA 21 %,
// reduced 10.5 %. "Vacio" in the last column: the text is left as it came.
INSTANTIATE_TEST_SUITE_P(
    Table, TablaDeConceptos,
    ::testing::Values(
        // 010
        CasoDeConcepto{"Duty", "010", con("Vacio", 5), nullptr, 222, 1110, 20, "20"},
        CasoDeConcepto{"DutyAtAGivenRate", "010", con("10"), nullptr, 111, 1110, 10, "10"},
        CasoDeConcepto{"DutyAtRateZero", "010", con("0"), nullptr, 0, 1110, 0, "0"},
        CasoDeConcepto{"DutyByHand", "010", manual("10", 500), nullptr, 50, 500, 10, "10"},
        CasoDeConcepto{"DutyOfAMercosurItem", "010", con("12", 500), mercosur, 0, 0, 0, "12"},
        CasoDeConcepto{"DutyByHandOfAMercosurItem", "010", manual("10", 500), mercosur, 50, 500, 10, "10"},
        CasoDeConcepto{"DutyOfTheAgreementList", "010", con("Vacio", 500), agreementList, 0, 0, 0, "Vacio"},
        CasoDeConcepto{"DutyOfAMiningItem", "010", con("12"), mining, 0, 0, 0, "12"},
        CasoDeConcepto{"DutyByHandOfAMiningItem", "010", manual("10", 500), mining, 0, 0, 0, "10"},
        CasoDeConcepto{"DutyUnderASpecificAmount", "010", con("Vacio"), specific, 0, 1110, 20, "20"},
        CasoDeConcepto{"DutyUnderACappedAmount", "010", con("Vacio"), capped, 0, 1110, 20, "20"},
        // 866
        CasoDeConcepto{"AutomotiveDuty", "866", con("Vacio"), agreementList, 149.85, 1110, 13.5, "13.5"},
        CasoDeConcepto{"AutomotiveDutyWithoutRule", "866", con("Vacio"), nullptr, 0, 1110, 0, "0"},
        CasoDeConcepto{"AutomotiveDutyAtAGivenRate", "866", con("10"), nullptr, 111, 1110, 10, "10"},
        CasoDeConcepto{"AutomotiveDutyIgnoresAManualBase", "866", manual("10", 500), nullptr, 111, 1110, 10,
                       "10"},
        CasoDeConcepto{"AutomotiveDutyOfAMercosurItem", "866", con("10"), mercosur, 0, 1110, 0, "0"},
        // 852, 854, 856: the second base is 149.85
        CasoDeConcepto{"SecondIva", "852", con("Vacio"), agreementList, 31.47, 149.85, 21, "21"},
        CasoDeConcepto{"SecondIvaAtAGivenRate", "852", con("10.5"), agreementList, 15.73, 149.85, 10.5,
                       "10.5"},
        CasoDeConcepto{"SecondIvaByHand", "852", manual("10", 500), agreementList, 50, 500, 10, "10"},
        CasoDeConcepto{"SecondIvaWithoutRule", "852", con("Vacio"), nullptr, 0, 0, 21, "21"},
        CasoDeConcepto{"SecondAdditionalIva", "854", con("20"), agreementList, 29.97, 149.85, 20, "20"},
        CasoDeConcepto{"SecondAdditionalIvaIgnoresAManualBase", "854", manual("20", 500), agreementList,
                       29.97, 149.85, 20, "20"},
        CasoDeConcepto{"SecondAdditionalIvaOfNothing", "854", con("Vacio"), agreementList, 0, 149.85, 0, "0"},
        CasoDeConcepto{"SecondIncomeTax", "856", con("Vacio"), agreementList, 4.50, 149.85, 3, "3"},
        CasoDeConcepto{"SecondIncomeTaxOf200IsAnExemption", "856", con("200"), agreementList, 0, 149.85, 0,
                       "0"},
        CasoDeConcepto{"SecondIncomeTaxIgnoresAManualBase", "856", manual("6", 500), agreementList, 8.99,
                       149.85, 6, "6"},
        // 059, 015: 300 of specific duty, cap of 333
        CasoDeConcepto{"CappedDuty", "059", con("Vacio"), capped, 300, 1110, 30, "Vacio"},
        CasoDeConcepto{"CappedDutyIgnoresRateAndManualBase", "059", manual("10", 500), capped, 300, 1110, 30,
                       "10"},
        CasoDeConcepto{"CappedDutyOfAMercosurItem", "059", con("Vacio", 5), cappedMercosur, 0, 0, 0, "Vacio"},
        CasoDeConcepto{"CappedDutyWithoutSpecificAmount", "059", con("5", 5), nullptr, 0, 0, 0, "5"},
        CasoDeConcepto{"CappedDutyWithoutIndicator", "059", con("Vacio", 5), cappedAtNothing, 0, 0, 0,
                       "Vacio"},
        CasoDeConcepto{"SpecificDuty", "015", con("Vacio"), specific, 300, 300, 0, "Vacio"},
        CasoDeConcepto{"SpecificDutyIgnoresRateAndManualBase", "015", manual("10", 500), specific, 300, 300,
                       0, "10"},
        CasoDeConcepto{"SpecificDutyStaysOfAMercosurItem", "015", con("Vacio"), specificMercosur, 300, 300, 0,
                       "Vacio"},
        CasoDeConcepto{"SpecificDutyOfNothingLeavesTheBase", "015", con("7", 5), nullptr, 0, 5, 0, "7"},
        CasoDeConcepto{"SpecificDutyUnderACap", "015", con("Vacio", 5), capped, 0, 5, 0, "Vacio"},
        // 016
        CasoDeConcepto{"AdditionalRate", "016", con("Vacio"), additional, 266.40, 1110, 24, "24"},
        CasoDeConcepto{"AdditionalRateOfNone", "016", con("Vacio"), nullptr, 0, 1110, 0, "0"},
        CasoDeConcepto{"AdditionalRateGiven", "016", con("10"), additional, 111, 1110, 10, "10"},
        CasoDeConcepto{"AdditionalRateByHand", "016", manual("10", 500), additional, 50, 500, 10, "10"},
        // 520
        CasoDeConcepto{"Digitalisation", "520", con("Vacio"), nullptr, 22.14, 22.14, 100, "100"},
        CasoDeConcepto{"DigitalisationByHand", "520", manual("5", 500), nullptr, 22.14, 22.14, 100, "100"},
        // 020 of an export: base 1000
        CasoDeConcepto{"ExportDuty", "020", con("Vacio"), exportation, 100, 1000, 10, "10"},
        CasoDeConcepto{"ExportDutyAtAGivenRate", "020", con("5"), exportation, 50, 1000, 5, "5"},
        CasoDeConcepto{"ExportDutyIgnoresAManualBase", "020", manual("5", 500), exportation, 50, 1000, 5,
                       "5"},
        // 032
        CasoDeConcepto{"MiningRate", "032", con("Vacio"), mining, 11.10, 1110, 1, "1"},
        CasoDeConcepto{"MiningRateGiven", "032", con("2"), mining, 22.20, 1110, 2, "2"},
        CasoDeConcepto{"MiningRateIgnoresAManualBase", "032", manual("2", 500), mining, 22.20, 1110, 2, "2"},
        CasoDeConcepto{"MiningRateOfAnyOtherItem", "032", manual("2", 500), nullptr, 0, 0, 0, "2"},
        // 065
        CasoDeConcepto{"ChinaMinimum", "065", con("7", 5), china, 0, 0, 0, "7"},
        CasoDeConcepto{"ChinaMinimumOfAnotherCountry", "065", con("7", 5), nullptr, 0, 0, 0, "7"},
        CasoDeConcepto{"ChinaMinimumByHand", "065", manual("7", 500), nullptr, 35, 500, 7, "7"},
        // 500, 501
        CasoDeConcepto{"FeeImport", "500", con("Vacio", 5), nullptr, 0, 0, 0, "0"},
        CasoDeConcepto{"FeeExportByHand", "501", manual("7", 500), nullptr, 0, 0, 0, "0"},
        // 011
        CasoDeConcepto{"Statistics", "011", con("Vacio"), nullptr, 33.30, 1110, 3, "3"},
        CasoDeConcepto{"StatisticsAtAGivenRate", "011", con("0.5"), nullptr, 5.55, 1110, 0.5, "0.5"},
        CasoDeConcepto{"StatisticsByHand", "011", manual("3", 500), nullptr, 15, 500, 3, "3"},
        CasoDeConcepto{"StatisticsByHandInTheMiddleBand", "011", manual("3", 500), middle, 15, 500, 3, "3"},
        CasoDeConcepto{"StatisticsByHandOfAMercosurItem", "011", manual("3", 500), mercosur, 15, 500, 3, "3"},
        CasoDeConcepto{"StatisticsOfAMercosurItem", "011", con("3", 5), mercosur, 0, 0, 0, "3"},
        CasoDeConcepto{"StatisticsOfTheAgreementList", "011", con("3", 5), agreementList, 0, 0, 0, "3"},
        CasoDeConcepto{"StatisticsInTheMiddleBand", "011", con("Vacio", 5), middle, 0, 0, 0, "Vacio"},
        CasoDeConcepto{"StatisticsInTheUpperBand", "011", con("Vacio", 5), upper, 0, 0, 0, "Vacio"},
        CasoDeConcepto{"StatisticsOfAMiningItem", "011", con("3", 5), mining, 0, 0, 0, "3"},
        CasoDeConcepto{"StatisticsByHandOfAMiningItem", "011", manual("3", 500), mining, 0, 0, 0, "3"},
        // 061, 062
        CasoDeConcepto{"MiddleBand", "061", con("Vacio", 5), middle, 400, 0, 0, "Vacio"},
        CasoDeConcepto{"MiddleBandInTheLowerOne", "061", con("Vacio", 5), nullptr, 0, 5, 0, "Vacio"},
        CasoDeConcepto{"MiddleBandInTheLowerOneWithARate", "061", con("10", 500), nullptr, 50, 500, 10, "10"},
        CasoDeConcepto{"MiddleBandInTheUpperOneByHand", "061", manual("10", 500), upper, 50, 500, 10, "10"},
        CasoDeConcepto{"MiddleBandByHandStillAFee", "061", manual("10", 500), middle, 400, 0, 0, "10"},
        CasoDeConcepto{"MiddleBandWithARateAndNoBase", "061", con("10", 0), nullptr, 0, 0, 0, "10"},
        CasoDeConcepto{"MiddleBandWithABaseAndNoRate", "061", con("0", 500), nullptr, 0, 500, 0, "0"},
        CasoDeConcepto{"MiddleBandOfAMercosurItem", "061", con("10", 500), middleMercosur, 0, 0, 0, "10"},
        CasoDeConcepto{"MiddleBandWithoutStatisticsRate", "061", con("10", 500), middleNoStatistics, 0, 0, 0,
                       "10"},
        CasoDeConcepto{"UpperBand", "062", con("Vacio", 5), upper, 500, 0, 0, "Vacio"},
        CasoDeConcepto{"UpperBandInTheMiddleOne", "062", con("Vacio", 5), middle, 0, 5, 0, "Vacio"},
        CasoDeConcepto{"UpperBandInTheLowerOneWithARate", "062", con("10", 500), nullptr, 50, 500, 10, "10"},
        CasoDeConcepto{"UpperBandOfAMercosurItem", "062", con("10", 500), upperMercosur, 0, 0, 0, "10"},
        CasoDeConcepto{"UpperBandWithoutStatisticsRate", "062", con("10", 500), noStatistics, 0, 0, 0, "10"},
        // 041
        CasoDeConcepto{"TaxableBaseRate", "041", con("Vacio"), nullptr, 11.10, 1110, 1, "1"},
        CasoDeConcepto{"TaxableBaseRateGiven", "041", con("0.5"), nullptr, 5.55, 1110, 0.5, "0.5"},
        CasoDeConcepto{"TaxableBaseRateIgnoresAManualBase", "041", manual("2", 500), nullptr, 22.20, 1110, 2,
                       "2"},
        // 415: 21 % of 1365.30 is 286.713
        CasoDeConcepto{"Iva", "415", con("Vacio", 5), nullptr, 286.71, 1365.30, 21, "21"},
        CasoDeConcepto{"IvaExempt", "415", con("Vacio"), exempt, 0, 1365.30, 0, "0"},
        CasoDeConcepto{"IvaReduced", "415", con("Vacio"), reduced, 143.36, 1365.30, 10.5, "10.5"},
        CasoDeConcepto{"IvaOfAnyOtherMark", "415", con("Vacio"), otherRate, 286.71, 1365.30, 21, "21"},
        CasoDeConcepto{"IvaGivenForExemptGoods", "415", con("10"), exempt, 136.53, 1365.30, 10, "10"},
        CasoDeConcepto{"IvaByHand", "415", manual("10.5", 500), nullptr, 52.50, 500, 10.5, "10.5"},
        CasoDeConcepto{"IvaOfAMercosurItem", "415", con("Vacio"), mercosur, 233.10, 1110, 21, "21"},
        // 422
        CasoDeConcepto{"AdditionalIva", "422", con("20", 5), nullptr, 273.06, 1365.30, 20, "20"},
        CasoDeConcepto{"AdditionalIvaExempt", "422", con("20", 0, "10"), exempt, 0, 1365.30, 0, "0"},
        CasoDeConcepto{"AdditionalIvaReducedTakesTheSecond", "422", con("20", 0, "10"), reduced, 136.53,
                       1365.30, 10, "10"},
        CasoDeConcepto{"AdditionalIvaReducedWithoutSecond", "422", con("20"), reduced, 0, 1365.30, 0, "0"},
        CasoDeConcepto{"AdditionalIvaOfNothing", "422", con("Vacio"), nullptr, 0, 1365.30, 0, "0"},
        CasoDeConcepto{"AdditionalIvaOfAText", "422", con("abc"), nullptr, 0, 1365.30, 0, "0"},
        CasoDeConcepto{"AdditionalIvaByHand", "422", manual("20", 500), nullptr, 100, 500, 20, "20"},
        CasoDeConcepto{"AdditionalIvaByHandReduced", "422", manual("20", 500, "10"), reduced, 50, 500, 10,
                       "10"},
        CasoDeConcepto{"AdditionalIvaOf200IsPlain", "422", con("200"), nullptr, 2730.60, 1365.30, 200, "200"},
        // 424
        CasoDeConcepto{"IncomeTax", "424", con("Vacio", 5), nullptr, 40.96, 1365.30, 3, "3"},
        CasoDeConcepto{"IncomeTaxAtAGivenRate", "424", con("6"), nullptr, 81.92, 1365.30, 6, "6"},
        CasoDeConcepto{"IncomeTaxOf200IsAnExemption", "424", con("200"), nullptr, 0, 1365.30, 0, "0"},
        CasoDeConcepto{"IncomeTaxOf200ByHandToo", "424", manual("200", 500), nullptr, 0, 500, 0, "0"},
        CasoDeConcepto{"IncomeTaxJustUnder200", "424", con("199.99"), nullptr, 2730.46, 1365.30, 199.99,
                       "199.99"},
        CasoDeConcepto{"IncomeTaxOfIT04", "424", con("6"), it04, 150.18, 1365.30, 11, "11"},
        CasoDeConcepto{"IncomeTaxOfIT04Outranks200", "424", con("200"), it04, 150.18, 1365.30, 11, "11"},
        CasoDeConcepto{"IncomeTaxOfIT04ByHand", "424", manual("6", 500), it04, 30, 500, 6, "6"},
        CasoDeConcepto{"IncomeTaxOfAMercosurItem", "424", con("6"), mercosur, 66.60, 1110, 6, "6"},
        // 900
        CasoDeConcepto{"GrossIncome", "900", con("2.5", 5), nullptr, 34.13, 1365.30, 2.5, "2.5"},
        CasoDeConcepto{"GrossIncomeOfNothing", "900", con("Vacio"), nullptr, 0, 1365.30, 0, "0"},
        CasoDeConcepto{"GrossIncomeByHand", "900", manual("2.5", 500), nullptr, 12.50, 500, 2.5, "2.5"},
        // 417 without a decree
        CasoDeConcepto{"InternalTaxesOfNoDecree", "417", con("7", 5), nullptr, 0, 5, 0, "7"},
        CasoDeConcepto{"InternalTaxesByHand", "417", manual("7", 500), nullptr, 35, 500, 7, "7"},
        // FCV and the rest
        CasoDeConcepto{"Convergence", "FCV", con("5"), nullptr, 55.50, 1110, 5, "5"},
        CasoDeConcepto{"ConvergenceOfNothing", "FCV", con("Vacio"), nullptr, 0, 1110, 0, "0"},
        CasoDeConcepto{"ConvergenceIgnoresAManualBase", "FCV", manual("5", 500), nullptr, 55.50, 1110, 5,
                       "5"},
        CasoDeConcepto{"AnyOther", "777", con("5"), nullptr, 55.50, 1110, 5, "5"},
        CasoDeConcepto{"AnyOtherOfNothing", "777", con("Vacio"), nullptr, 0, 1110, 0, "0"},
        CasoDeConcepto{"AnyOtherByHand", "777", manual("5", 500), nullptr, 25, 500, 5, "5"},
        CasoDeConcepto{"AnyOtherOf200IsPlain", "777", con("200"), nullptr, 2220, 1110, 200, "200"},
        CasoDeConcepto{"AShortCodeIsAnyOther", "10", con("Vacio"), nullptr, 0, 1110, 0, "0"},
        CasoDeConcepto{"ALongCodeIsAnyOther", "0010", con("5"), nullptr, 55.50, 1110, 5, "5"},
        CasoDeConcepto{"ACodeWithASignIsAnyOther", "+10", con("Vacio"), nullptr, 0, 1110, 0, "0"},
        CasoDeConcepto{"AnEmptyCodeIsAnyOther", "", con("Vacio"), nullptr, 0, 1110, 0, "0"},
        CasoDeConcepto{"ANegativeRateIsPlain", "777", con("-5"), nullptr, -55.50, 1110, -5, "-5"}),
    [](const ::testing::TestParamInfo<CasoDeConcepto> &caso) { return std::string(caso.param.nombre); });

// What the calls leave to each other

TEST_F(Conceptos, FromBrazilWithReplacementTheThreeQuartersRuleFillsTheSecondBase) {
    deBrasil();
    EXPECT_EQ(baseIVA, 1110);
    EXPECT_NEAR(c.BaseIVAAdicional(), 149.85, 1e-9);
    esperar(pedir("010"), 0, 1110, 0, "0");
    esperar(pedir("011"), 0, 1110, 0, "0");
    esperar(pedir("866"), 149.85, 1110, 13.5, "13.5");
    esperar(pedir("852"), 31.47, 149.85, 21, "21");
    esperar(pedir("854", con("20")), 29.97, 149.85, 20, "20");
    esperar(pedir("856"), 4.50, 149.85, 3, "3");
    esperar(pedir("415"), 233.10, 1110, 21, "21");
}

TEST_F(Conceptos, TheSecondAdditionalIvaFollowsTheExemptionMark) {
    deBrasil();
    c.ncmExencionReduccionIVA = 0;
    esperar(pedir("854", con("20", 0, "10")), 0, 149.85, 0, "0");
    esperar(pedir("852"), 0, 149.85, 0, "0");
    c.ncmExencionReduccionIVA = 1;
    esperar(pedir("854", con("20", 0, "10")), 14.99, 149.85, 10, "10");
    esperar(pedir("852"), 15.73, 149.85, 10.5, "10.5");
}

TEST_F(Conceptos, AMercosurItemAnswersZeroForTheDutiesButKeepsTheSpecificOne) {
    mercosur(c);
    specific(c);
    bases();
    EXPECT_EQ(baseIVA, 1110);
    for (const char *concepto : {"010", "011", "059", "061", "062"})
        EXPECT_EQ(pedir(concepto).total, 0) << concepto;
    EXPECT_EQ(pedir("015").total, 300);
}

TEST_F(Conceptos, OutsideTheListTheDutyIsZeroAndTheSpecificAmountAnswers) {
    specific(c);
    bases();
    EXPECT_EQ(pedir("010").total, 0);
    EXPECT_EQ(pedir("015").total, 300);
    EXPECT_EQ(pedir("059").total, 0);
}

TEST_F(Conceptos, AListedCountryPaysUnderTheCapWhichIndicatorZeroMakesNothing) {
    capped(c);
    c.ncmCantidadDerechoEspecifico = 4;
    bases();
    EXPECT_EQ(pedir("010").total, 0);
    EXPECT_EQ(pedir("015").total, 0);
    esperar(pedir("059"), 333, 1110, 30, "Vacio");
    c.NcmIndicadorMaximoArancel = 0;
    bases();
    EXPECT_EQ(pedir("059").total, 0);
}

TEST_F(Conceptos, ARateAskedOf010DecidesAgainBetweenAdValoremAndSpecific) {
    capped(c);
    bases();
    EXPECT_EQ(pedir("059").total, 300);
    // 28 % are 310.80, above the specific 300.
    esperar(pedir("010", con("28")), 310.80, 1110, 28, "28");
    EXPECT_EQ(pedir("059").total, 0);
    EXPECT_EQ(c.Aux_PORCENTAJE(), 28);
}

TEST_F(Conceptos, Only200OnTheTwoIncomeTaxesIsAnExemption) {
    deBrasil();
    EXPECT_EQ(pedir("424", con("200")).total, 0);
    EXPECT_EQ(pedir("856", con("200")).total, 0);
    EXPECT_NEAR(pedir("415", con("200")).total, 2220, 1e-9);
    EXPECT_NEAR(pedir("852", con("200")).total, 299.70, 1e-9);
    EXPECT_NEAR(pedir("866", con("200")).total, 2220, 1e-9);
    EXPECT_NEAR(pedir("900", con("200")).total, 2220, 1e-9);
}

TEST_F(Conceptos, TheBandsAnswerByTheBaseOfTheCall) {
    c.NcmDerechodeImportacionExtrazona = 0;
    struct Caso {
        double base, c011, c061, c062;
    };
    // 3 % of 79999 is 2399.97. The gaps keep the band before: the third case stays in band 1, the sixth in 2.
    for (const auto &[base, c011, c061, c062] :
         {Caso{50000, 1500, 0, 0}, Caso{79999, 2399.97, 0, 0}, Caso{79999.5, 2399.99, 0, 0},
          Caso{80000, 0, 400, 0}, Caso{99999, 0, 400, 0}, Caso{99999.5, 0, 400, 0},
          Caso{100000, 0, 0, 500}}) {
        conBase(base);
        EXPECT_NEAR(pedir("011").total, c011, 1e-9) << base;
        EXPECT_EQ(pedir("061").total, c061) << base;
        EXPECT_EQ(pedir("062").total, c062) << base;
    }
}

TEST_F(Conceptos, AFreshCalculatorInAGapIsInNoBand) {
    conBase(79999.5);
    EXPECT_EQ(pedir("011").total, 0);
    EXPECT_EQ(pedir("061").total, 0);
    EXPECT_EQ(pedir("062").total, 0);
}

TEST_F(Conceptos, TheValueArgumentIsNotUsed) {
    bases();
    QString porcentaje = u"10"_s;
    double base = 0;
    EXPECT_EQ(c.ObtenerValorConcepto(u"010"_s, porcentaje, 98765, base, {}, 0, false), 111);
}

TEST_F(Conceptos, AnyManualBaseOtherThanZeroLetsTheCallersBaseStand) {
    bases();
    QString porcentaje = u"10"_s;
    double base = 700;
    // The mark is only looked at for not being 0; the base is the caller's.
    EXPECT_EQ(c.ObtenerValorConcepto(u"415"_s, porcentaje, 0, base, {}, -1, false), 70);
    EXPECT_EQ(base, 700);
}

// 020

TEST_F(Conceptos, TheExportCoefficientTakesTheDutyOutOfTheValue) {
    exportation(c);
    c.ItemCalcularCoeficienteExportacion = true;
    bases();
    // 1 / 1.1 = 0.90909; 1000 * 0.90909 = 909.09, of which 10 % are 90.909.
    esperar(pedir("020"), 90.91, 909.09, 10, "10");
    EXPECT_EQ(c.ItemCoeficienteExportacion, 0.90909);
    EXPECT_NEAR(pedir("041").base, 909.09, 1e-9) << "the later concepts see the reduced base";
}

TEST_F(Conceptos, TwoExportDutiesOnOneBaseApplyTheCoefficientTwice) {
    exportation(c);
    c.ItemCalcularCoeficienteExportacion = true;
    bases();
    pedir("020");
    // 909.09 * 0.90909 = 826.4446281
    esperar(pedir("020"), 82.64, 826.4446281, 10, "10");
    // With the coefficient now there, the base of the item comes out reduced once already.
    EXPECT_NEAR(c.ObtenerBaseImponible(), 909.09, 1e-9);
    esperar(pedir("020"), 82.64, 826.4446281, 10, "10");
}

TEST_F(Conceptos, WithoutCoefficientInTheCallTheBaseStays) {
    exportation(c);
    c.ItemCalcularCoeficienteExportacion = true;
    bases();
    esperar(pedir("020", {u"10"_s, 5, {}, 5, true}), 100, 1000, 10, "10");
    EXPECT_EQ(c.ItemCoeficienteExportacion, 0.90909) << "worked out all the same";
}

TEST_F(Conceptos, AStoredCoefficientCountsWithoutTheBox) {
    exportation(c);
    c.ItemCoeficienteExportacion = 0.9;
    bases();
    EXPECT_EQ(baseImponible, 900);
    esperar(pedir("020"), 81, 810, 10, "10");
    EXPECT_EQ(c.ItemCoeficienteExportacion, 0.9);
}

TEST_F(Conceptos, ANegativeCoefficientIsNone) {
    exportation(c);
    c.ItemCoeficienteExportacion = -0.9;
    bases();
    esperar(pedir("020"), 100, 1000, 10, "10");
}

TEST_F(Conceptos, ARateOfMinus100HasNoCoefficient) {
    exportation(c);
    c.ItemCalcularCoeficienteExportacion = true;
    bases();
    EXPECT_THROW(pedir("020", con("-100")), Falla);
}

}  // namespace
