// The two taxable bases, and ad valorem against specific duty.

#include <cmath>

#include "frame/base/numbers.h"
#include "tests/liquidation/calculo.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

class Bases : public CalculoDePrueba {};

// The taxable base

TEST_F(Bases, AnImportAddsFreightAndInsuranceAtTheirOwnRates) {
    c.CaratulaDivisasFOB = 1.1;
    c.CaratulaDivisasFlete = 2;
    c.CaratulaDivisasSeguro = 3;
    c.AJUSTEINCLUIRtotalITEM = 50;
    c.AJUSTEDEDUCIRtotalITEM = 20;
    // 1000 * 1.1 + 100 * 2 + 10 * 3 + 50 * 1.1 - 20 * 1.1 = 1100 + 200 + 30 + 55 - 22
    EXPECT_NEAR(c.ObtenerBaseImponible(), 1363, 1e-9);
    EXPECT_NEAR(c.ObtenerFobItemUS(), 1100, 1e-9);
    EXPECT_NEAR(c.ObtenerFLETEItemUs(), 200, 1e-9);
    EXPECT_NEAR(c.ObtenerSEGUROItemUs(), 30, 1e-9);
    EXPECT_NEAR(c.ObtenerAjusteIncUs(), 55, 1e-9);
    EXPECT_NEAR(c.ObtenerAjusteDedUs(), 22, 1e-9);
    c.CaratulaSubRegimen = u"EC01"_s;
    EXPECT_NEAR(c.ObtenerBaseImponible(), 1133, 1e-9) << "an export takes neither freight nor insurance";
    for (const char *regimen : {"", "RE01", "DJAI", "IE01"}) {
        c.CaratulaSubRegimen = L(regimen);
        EXPECT_NEAR(c.ObtenerBaseImponible(), 1363, 1e-9) << "only a first E is an export: " << regimen;
    }
}

TEST_F(Bases, ARegimeWithInputsTakesThemOutAndAddsTheCommissions) {
    c.ItmImportacionTemporal = 100;
    c.ItmComsionesExt = 7;
    c.ItmImportacionTmpCons = 40;  // no part of the base
    for (const char *regimen :
         {"EC02", "EC03", "EC04", "EC05", "EC06", "EC16",   "EG02", "EG03", "IC81", "IC82", "IC83", "DIR6",
          "IC06", "IC26", "IC36", "IG06", "IT06", "RnaE06", "TG06", "TG16", "TR06", "MARE", "IDT4"}) {
        c.CaratulaSubRegimen = L(regimen);
        // 1110, or 1000 for an export; less 100, plus 7.
        EXPECT_EQ(c.ObtenerBaseImponible(), *regimen == 'E' ? 907 : 1017) << regimen;
    }
    for (const char *regimen :
         {"IC01", "IC80", "IT01", "EC01", "EC07", "EG04", "DIR5", "RNAE0", "", "IDT5"}) {
        c.CaratulaSubRegimen = L(regimen);
        EXPECT_EQ(c.ObtenerBaseImponible(), *regimen == 'E' ? 1000 : 1110) << regimen;
    }
}

TEST_F(Bases, TheTaxableBaseIsNotRounded) {
    c.FOBTotalITEM = 0.001;
    c.FLETETotalITEM = 0.0001;
    c.SEGUROTotalITEM = 0;
    EXPECT_DOUBLE_EQ(c.ObtenerBaseImponible(), 0.0011);
}

TEST_F(Bases, OnlyACoefficientAboveZeroMultipliesTheBase) {
    c.ItemCoeficienteExportacion = 0.9;
    EXPECT_DOUBLE_EQ(c.ObtenerBaseImponible(), 999);
    EXPECT_DOUBLE_EQ(c.ObtenerBaseImponible(), 999) << "each call begins anew";
    c.ItemCoeficienteExportacion = 0;
    EXPECT_EQ(c.ObtenerBaseImponible(), 1110);
    c.ItemCoeficienteExportacion = -0.5;
    EXPECT_EQ(c.ObtenerBaseImponible(), 1110);
}

TEST_F(Bases, TheInsurancePercentageFillsOnlyAValueOfZero) {
    c.CaratulaFleteTotal = 100;
    c.CaratulaFobTotal = 1000;
    c.CaratulaSeguroValor = 0;
    c.fijarCaratulaSeguroProcent(1.5);
    EXPECT_EQ(c.CaratulaSeguroValor, 16.5) << "1.5 % of 1100";
    EXPECT_EQ(c.CaratulaSeguroProcent(), 1.5);
    c.fijarCaratulaSeguroProcent(50);
    EXPECT_EQ(c.CaratulaSeguroValor, 16.5) << "a value that is there stands";
    EXPECT_EQ(c.CaratulaSeguroProcent(), 50);
}

TEST_F(Bases, TheQuantityAlwaysReadsAsZeroAndTheHookDoesNothing) {
    c.fijarItemCantidad(12);
    c.ItemxItmCOFEXP();
    EXPECT_EQ(ClassLiquidacion::ItemCantidad(), 0);
    c.CalculoAEC = u"R"_s;
    c.ResetAEC();
    EXPECT_TRUE(c.CalculoAEC.isEmpty());
}

TEST_F(Bases, AnOverflowLeavesTheSumAsFarAsItGotAndTellsTheUser) {
    c.FOBTotalITEM = 1e308;
    c.FLETETotalITEM = 1.5e308;
    EXPECT_EQ(c.ObtenerBaseImponible(), 1e308);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto.toStdString(), "Desbordamiento");
    registro = {};
    c.FLETETotalITEM = 0;
    c.SEGUROTotalITEM = 0;
    c.CaratulaDivisasFOB = 10;
    EXPECT_EQ(c.ObtenerBaseImponible(), 1e308) << "the base of before stands";
    EXPECT_EQ(registro.mensajes.size(), 1U);
}

// Duties

struct CasoDeDerechos {
    const char *nombre;
    const char *pais;
    double porUnidad, cantidad, indicador;
    double adValorem, diem, especifico, auxPorcentaje;
    double derecho;  ///< what becomes of the position's rate
};

class Derechos : public CalculoDePrueba, public ::testing::WithParamInterface<CasoDeDerechos> {};

TEST_P(Derechos, AreThoseOfTheRule) {
    const CasoDeDerechos &k = GetParam();
    c.ItemIdPais = L(k.pais);
    c.ncmCantidadDerechoEspecifico = k.porUnidad;
    c.ItemCantidadDerechoEspecifico = k.cantidad;
    c.NcmIndicadorMaximoArancel = k.indicador;
    c.ObtenerBaseImponible();
    c.CalcularDerechos(20);
    EXPECT_NEAR(c.ImporteAdValorem(), k.adValorem, 1e-9);
    EXPECT_NEAR(c.ImporteDIEM(), k.diem, 1e-9);
    EXPECT_NEAR(c.ImporteEspecifico(), k.especifico, 1e-9);
    EXPECT_EQ(c.Aux_PORCENTAJE(), k.auxPorcentaje);
    EXPECT_EQ(c.NcmDerechodeImportacionExtrazona, k.derecho);
}

// Base 1110, so 20 % is 222, a cap of 30 % is 333 and one of 35 % 388.50. Country 101 is capped and lies
// outside the zone; 400 is not capped.
INSTANTIATE_TEST_SUITE_P(
    Table, Derechos,
    ::testing::Values(
        CasoDeDerechos{"NoSpecificDuty", "400", 0, 100, 0, 222, 0, 0, 20, 20},
        CasoDeDerechos{"ASpecificAmountBelowTheAdValoremChangesNothing", "101", 2, 100, 1, 222, 0, 0, 20, 20},
        CasoDeDerechos{"ASpecificAmountEqualToTheAdValoremChangesNothing", "101", 2, 111, 1, 222, 0, 0, 20,
                       20},
        CasoDeDerechos{"OutsideTheListTheSpecificAmountStands", "400", 3, 100, 1, 0, 0, 300, 20, 20},
        CasoDeDerechos{"OutsideTheListItIsNotRounded", "400", 3.00125, 100, 1, 0, 0, 300.125, 20, 20},
        CasoDeDerechos{"AnEmptyCountryIsNotListed", "", 3, 100, 1, 0, 0, 300, 20, 20},
        CasoDeDerechos{"FromTheZoneTheDutyGoes", "225", 3, 100, 1, 0, 0, 0, 20, 0},
        CasoDeDerechos{"FromTheOtherCountryOfTheZoneToo", "221", 3, 100, 1, 0, 0, 0, 20, 0},
        CasoDeDerechos{"FromBrazilToo", "203", 3, 100, 2, 0, 0, 0, 20, 0},
        CasoDeDerechos{"UnderTheCapTheSpecificAmountIsRounded", "101", 3.00125, 100, 1, 0, 300.13, 0, 30, 20},
        CasoDeDerechos{"OverTheCapOf30", "101", 4, 100, 1, 0, 333, 0, 30, 20},
        CasoDeDerechos{"ExactlyAtTheCap", "101", 3, 111, 1, 0, 333, 0, 30, 20},
        CasoDeDerechos{"UnderTheCapOf35", "101", 3.5, 100, 2, 0, 350, 0, 35, 20},
        CasoDeDerechos{"OverTheCapOf35", "101", 4, 100, 2, 0, 388.5, 0, 35, 20},
        CasoDeDerechos{"IndicatorZeroCapsAtNothing", "101", 4, 100, 0, 0, 0, 0, 0, 20},
        CasoDeDerechos{"AnyOtherIndicatorToo", "101", 4, 100, 3, 0, 0, 0, 0, 20},
        CasoDeDerechos{"Country310UnderTheCapPaysTheCapAsSpecific", "310", 3, 100, 1, 0, 0, 333, 30, 20},
        CasoDeDerechos{"Country310IsReadTrimmed", " 310 ", 3, 100, 2, 0, 0, 388.5, 35, 20},
        CasoDeDerechos{"Country310OverTheCap", "310", 4, 100, 1, 0, 333, 0, 30, 20},
        CasoDeDerechos{"Country310AtTheCap", "310", 3, 111, 1, 0, 333, 0, 30, 20},
        CasoDeDerechos{"Country310WithoutIndicator", "310", 4, 100, 0, 0, 0, 0, 0, 20}),
    [](const ::testing::TestParamInfo<CasoDeDerechos> &caso) { return std::string(caso.param.nombre); });

TEST_F(Bases, ForCountry310TheCapAsMinimumIsRoundedAndAsMaximumIsNot) {
    c.ItemIdPais = u"310"_s;
    c.NcmIndicadorMaximoArancel = 1;
    c.ncmCantidadDerechoEspecifico = 1;
    c.ItemCantidadDerechoEspecifico = 300;
    conBase(1111.11);  // 30 % are 333.333, 20 % are 222.222
    c.CalcularDerechos(20);
    EXPECT_DOUBLE_EQ(c.ImporteEspecifico(), 333.33);
    c.ItemCantidadDerechoEspecifico = 400;
    c.CalcularDerechos(20);
    EXPECT_NEAR(c.ImporteDIEM(), 333.333, 1e-12);
    EXPECT_NEAR(pedir("059").total, 333.333, 1e-12);
}

TEST_F(Bases, AnOverflowOfTheSpecificAmountTellsTheUserAndKeepsTheAdValorem) {
    c.ItemIdPais = u"400"_s;
    c.ncmCantidadDerechoEspecifico = c.ItemCantidadDerechoEspecifico = 1e200;
    c.ObtenerBaseImponible();
    c.CalcularDerechos(20);
    EXPECT_EQ(c.ImporteAdValorem(), 222);
    EXPECT_EQ(c.ImporteEspecifico(), 0);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto.toStdString(), "Desbordamiento");
}

// The IVA base

TEST_F(Bases, DutyAndStatisticsMakeTheIvaBase) {
    bases();
    EXPECT_EQ(baseImponible, 1110);
    EXPECT_NEAR(baseIVA, 1365.30, 1e-9) << "1110 + 222.00 + 33.30";
    EXPECT_EQ(c.BaseIVAAdicional(), 0);
    EXPECT_EQ(c.DerechoAutomotriz(), 0);
}

TEST_F(Bases, EachPartOfTheIvaBaseIsRoundedByItself) {
    conBase(100.33);
    // 20 % 20.066: 20.07; 3 % 3.0099: 3.01
    EXPECT_NEAR(baseIVA, 123.41, 1e-9);
    conBase(100.125);
    // 20 % 20.025: 20.03, halves away from zero; 3 % 3.00375: 3.00
    EXPECT_NEAR(baseIVA, 123.155, 1e-9);
}

TEST_F(Bases, ACappedSpecificAmountTakesTheDutysPlaceButAPlainOneDoesNot) {
    c.ncmCantidadDerechoEspecifico = 3;
    c.ItemCantidadDerechoEspecifico = 100;
    c.NcmIndicadorMaximoArancel = 1;
    c.ItemIdPais = u"101"_s;
    bases();
    EXPECT_NEAR(baseIVA, 1443.30, 1e-9) << "1110 + 300.00 under the cap + 33.30";
    c.ItemIdPais = u"400"_s;
    bases();
    EXPECT_NEAR(baseIVA, 1365.30, 1e-9) << "the ad valorem of 222.00, although 015 will answer 300";
    c.ItemIdPais = u"310"_s;
    bases();
    EXPECT_NEAR(baseIVA, 1365.30, 1e-9);
    c.ItemIdPais = u"203"_s;
    bases();
    EXPECT_NEAR(baseIVA, 1143.30, 1e-9) << "the duty has gone";
}

TEST_F(Bases, AMercosurItemTakesNeitherDutyNorStatistics) {
    c.ItemLISTA_MERCOSUR = true;
    bases();
    EXPECT_EQ(baseIVA, 1110);
    c.ItemMineria = true;
    bases();
    EXPECT_EQ(baseIVA, 1110) << "nor the mining rate";
    EXPECT_EQ(c.NcmDerechodeImportacionExtrazona, 0) << "the two rates go all the same";
    EXPECT_EQ(c.NcmTasaEstadistica, 0);
}

TEST_F(Bases, AMiningItemLosesBothRatesAndTakesItsOwn) {
    c.ItemMineria = true;
    c.ncmMineriaTasaLey = 1;
    bases();
    EXPECT_NEAR(baseIVA, 1121.10, 1e-9) << "1110 + 11.10";
    EXPECT_EQ(c.NcmDerechodeImportacionExtrazona, 0);
    EXPECT_EQ(c.NcmTasaEstadistica, 0);
    c.ncmMineriaTasaLey = 0;
    bases();
    EXPECT_EQ(baseIVA, 1110);
}

struct Tramo {
    double base, suma;
    int banda;
};

// With no duty, what the statistics rule adds; the band is that of the calculator afterwards, which stood at
// 2 before the two gaps.
TEST_F(Bases, TheStatisticsRuleHasThreeBandsAndTwoGaps) {
    c.NcmDerechodeImportacionExtrazona = 0;
    for (const auto &[base, suma, banda] :
         {Tramo{0, 0, 1}, Tramo{79998.99, 2399.97, 1}, Tramo{79999, 2399.97, 1}, Tramo{79999.5, 0, 2},
          Tramo{79999.01, 0, 2}, Tramo{80000, 400, 2}, Tramo{99999, 400, 2}, Tramo{99999.5, 0, 2},
          Tramo{99999.99, 0, 2}, Tramo{100000, 500, 3}, Tramo{5e6, 500, 3}}) {
        conBase(90000);
        pedir("041");
        ASSERT_EQ(c.BandaEstadistica(), 2);
        c.NcmTasaEstadistica = 3;
        conBase(base);
        EXPECT_NEAR(baseIVA - base, suma, 1e-9) << base;
        EXPECT_EQ(c.BandaEstadistica(), 2) << "the bases leave the band alone";
        pedir("041");
        EXPECT_EQ(c.BandaEstadistica(), banda) << base;
    }
}

TEST_F(Bases, WithoutAStatisticsRateNoBandAddsAnything) {
    c.NcmDerechodeImportacionExtrazona = c.NcmTasaEstadistica = 0;
    for (const double base : {1000.0, 90000.0, 200000.0}) {
        conBase(base);
        EXPECT_EQ(baseIVA, base);
    }
}

TEST_F(Bases, InTheGapsTheBandOfThePreviousCallStands) {
    conBase(200000);
    pedir("900");
    ASSERT_EQ(c.BandaEstadistica(), 3);
    conBase(79999.5);
    pedir("011");
    EXPECT_EQ(c.BandaEstadistica(), 3);
    conBase(50000);
    pedir("011");
    conBase(99999.5);
    pedir("011");
    EXPECT_EQ(c.BandaEstadistica(), 1);
}

// Decrees

struct CasoDeDecreto {
    const char *regimen, *bandera;
    double suma;  ///< what an additional rate of 24 % adds to the IVA base of 1365.30
};

TEST_F(Bases, TheAdditionalRateEntersByTheDecreeOrTheRegime) {
    constexpr double veinticuatro = 266.40;  // 24 % of 1110
    for (const auto &[regimen, bandera, suma] :
         {CasoDeDecreto{"IC01", "", 0}, CasoDeDecreto{"IT01", "", 0},
          CasoDeDecreto{"IT01", "1439/96", veinticuatro}, CasoDeDecreto{"IC01", "1439/96", veinticuatro},
          CasoDeDecreto{"IT01", "1439/96A1", veinticuatro}, CasoDeDecreto{"IC81", "", veinticuatro},
          CasoDeDecreto{"IC81", "1439/96", veinticuatro}, CasoDeDecreto{"IT14", "", 0},
          CasoDeDecreto{"IT14", "D1330/04A6", veinticuatro},
          CasoDeDecreto{"IT14", "D1330/04A7", veinticuatro},
          CasoDeDecreto{"IT14", "D1330/04A8", veinticuatro}, CasoDeDecreto{"IT15", "D1330/04A6", 0},
          CasoDeDecreto{"IC81", "D1330/04A6", veinticuatro}}) {
        MotivoDecreto d;
        const QString si = u"S"_s;
        if (bandera == "1439/96"_L1) d.d1439_96 = si;
        if (bandera == "1439/96A1"_L1) d.d1439_96A1 = si;
        if (bandera == "D1330/04A6"_L1) d.d1330_04A6 = si;
        if (bandera == "D1330/04A7"_L1) d.d1330_04A7 = si;
        if (bandera == "D1330/04A8"_L1) d.d1330_04A8 = si;
        ctx.decreto = d;
        c.CaratulaSubRegimen = L(regimen);
        c.fijarNcmDerechoAdicional(u"24"_s);
        bases();
        EXPECT_NEAR(baseIVA - c.ObtenerBaseImponible(), 255.30 + suma, 1e-9) << regimen << " " << bandera;
    }
}

TEST_F(Bases, TwoDecreesOnIT14AddTheRateTwice) {
    ctx.decreto.d1439_96 = ctx.decreto.d1330_04A6 = u"S"_s;
    c.CaratulaSubRegimen = u"IT14"_s;
    c.fijarNcmDerechoAdicional(u"24"_s);
    bases();
    EXPECT_NEAR(baseIVA, 1365.30 + 2 * 266.40, 1e-9);
}

TEST_F(Bases, AnAdditionalRateThatIsNoNumberIsZero) {
    c.CaratulaSubRegimen = u"IC81"_s;
    c.ItmComsionesExt = c.ItmImportacionTemporal = 0;
    for (const char *texto : {"", "abc", "Vacio"}) {
        c.fijarNcmDerechoAdicional(L(texto));
        bases();
        EXPECT_NEAR(baseIVA, 1365.30, 1e-9) << texto;
    }
    c.fijarNcmDerechoAdicional(u"10,5"_s);
    bases();
    EXPECT_NEAR(baseIVA, 1365.30 + 116.55, 1e-9) << "either separator";
}

// The common external tariff

struct CasoDeAEC {
    const char *nombre, *respuesta, *lista, *pais, *aec;
    bool mercosur, forzado;
    double diem;  ///< capped specific amount, 0 for none; asks for country 101
    double baseIVA, adicional, automotriz, derecho, estadistica;
};

class ArancelExternoComun : public CalculoDePrueba, public ::testing::WithParamInterface<CasoDeAEC> {};

TEST_P(ArancelExternoComun, GivesTheTwoBases) {
    const CasoDeAEC &k = GetParam();
    responderAEC(k.respuesta);
    c.ItemLista = L(k.lista);
    c.ItemIdPais = L(k.pais);
    c.ncm_AEC = L(k.aec);
    c.ncmValor_AEC = 18;
    c.ItemLISTA_MERCOSUR = k.mercosur;
    c.NcmDerechodeImportacionExtrazonaForce = k.forzado;
    if (k.diem > 0) {
        c.NcmIndicadorMaximoArancel = 1;
        c.ncmCantidadDerechoEspecifico = k.diem;
        c.ItemCantidadDerechoEspecifico = 1;
    }
    bases();
    EXPECT_NEAR(baseIVA, k.baseIVA, 1e-9);
    EXPECT_NEAR(c.BaseIVAAdicional(), k.adicional, 1e-9);
    EXPECT_EQ(c.DerechoAutomotriz(), k.automotriz);
    EXPECT_EQ(c.NcmDerechodeImportacionExtrazona, k.derecho);
    EXPECT_EQ(c.NcmTasaEstadistica, k.estadistica);
    EXPECT_EQ(c.CalculoAEC.toStdString(), k.respuesta);
    EXPECT_TRUE(registro.conOpciones.empty());
}

// Base 1110. Common tariff of 18 %: 199.80; its three quarters 13.50 %: 149.85. Own duty of 20 %: 222.00.
// Statistics 33.30.
INSTANTIATE_TEST_SUITE_P(
    Table, ArancelExternoComun,
    ::testing::Values(
        CasoDeAEC{"ReplacementFromOutside", "R", "", "400", "*", false, false, 0, 1343.10, 0, 0, 18, 3},
        CasoDeAEC{"ReplacementWithAForcedDuty", "R", "", "400", "*", false, true, 0, 1365.30, 0, 0, 20, 3},
        CasoDeAEC{"ReplacementOfNoCountry", "R", "", "", "*", false, false, 0, 1343.10, 0, 0, 18, 3},
        CasoDeAEC{"ReplacementFromBrazil", "R", "", "203", "*", false, false, 0, 1110, 149.85, 13.5, 0, 0},
        CasoDeAEC{"ReplacementFromTheZone", "R", "", "225", "*", false, false, 0, 1365.30, 0, 0, 20, 3},
        CasoDeAEC{"ReplacementFromTheZoneMercosur", "R", "MERCOSUR", "225", "*", true, false, 0, 1110, 0, 0,
                  20, 3},
        CasoDeAEC{"ReplacementMercosurFromOutside", "R", "MERCOSUR", "400", "*", true, false, 0, 1309.80, 0,
                  0, 18, 3},
        CasoDeAEC{"ReplacementWithoutMark", "R", "", "400", "", false, false, 0, 1365.30, 0, 0, 20, 3},
        CasoDeAEC{"ReplacementWithoutMarkCapped", "R", "", "101", "", false, false, 300, 1443.30, 0, 0, 20,
                  3},
        CasoDeAEC{"ReplacementOfTheAgreementList", "R", "314/R.AUTOMOTRIZ", "400", "", false, false, 0,
                  1365.30, 0, 0, 20, 3},
        CasoDeAEC{"ProductionAddsNoDuty", "P", "", "400", "*", false, false, 0, 1143.30, 0, 0, 20, 3},
        CasoDeAEC{"ProductionOfTheAgreementList", "P", "314/R.AUTOMOTRIZ", "203", "*", false, false, 0,
                  1143.30, 0, 0, 20, 3},
        CasoDeAEC{"NoneOfTheAgreementList", "N", "314/R.AUTOMOTRIZ", "400", "*", false, false, 0, 1110,
                  149.85, 13.5, 0, 0},
        CasoDeAEC{"NoneAsAnyOther", "N", "", "400", "*", false, false, 0, 1365.30, 0, 0, 20, 3},
        CasoDeAEC{"NoneCapped", "N", "", "101", "*", false, false, 300, 1443.30, 0, 0, 20, 3},
        CasoDeAEC{"NoneMercosurCapped", "N", "MERCOSUR", "101", "*", true, false, 300, 1110, 0, 0, 20, 3},
        CasoDeAEC{"AnUnknownAnswerCountsAsNone", "X", "", "400", "*", false, false, 0, 1365.30, 0, 0, 20, 3}),
    [](const ::testing::TestParamInfo<CasoDeAEC> &caso) { return std::string(caso.param.nombre); });

TEST_F(Bases, ThreeQuartersOfTheCommonTariffAreRoundedToTheCent) {
    responderAEC("N");
    c.ItemLista = u"314/R.AUTOMOTRIZ"_s;
    c.ncmValor_AEC = 17.3;
    bases();
    EXPECT_EQ(c.DerechoAutomotriz(), 12.98) << "12.975";
    EXPECT_NEAR(c.BaseIVAAdicional(), 144.08, 1e-9) << "144.078";
}

TEST_F(Bases, TheAutomotiveQuestionIsAskedOnceAndItsAnswerIsKept) {
    c.ncm_AEC = u"*"_s;
    c.ncmValor_AEC = 18;
    registro.opciones = {{true, 1}};
    bases();
    ASSERT_EQ(registro.conOpciones.size(), 1U);
    EXPECT_TRUE(registro.conOpciones[0].texto.startsWith(
        u"Se han encontrado posiciones arancelarias pertenecientes al régimen automotriz"_s));
    EXPECT_EQ(registro.conOpciones[0].marco.toStdString(), "Destino del repuesto");
    EXPECT_EQ(registro.conOpciones[0].si.toStdString(), "&Si");
    EXPECT_EQ(registro.conOpciones[0].no.toStdString(), "&No");
    EXPECT_EQ(c.CalculoAEC.toStdString(), "R");
    EXPECT_NEAR(baseIVA, 1343.10, 1e-9) << "the answer counts at once";
    EXPECT_EQ(LeerAEC(ctx, u"OP1"_s).toStdString(), "R");
    bases();
    EXPECT_EQ(registro.conOpciones.size(), 1U) << "a stored answer is not asked again";
}

TEST_F(Bases, TheAnswerIsReplacementProductionOrNo) {
    c.ncm_AEC = u"*"_s;
    for (const auto &[respuesta, valor] :
         {std::pair{RespuestaConOpciones{true, 1}, "R"}, std::pair{RespuestaConOpciones{true, 0}, "P"},
          std::pair{RespuestaConOpciones{false, 1}, "N"}}) {
        responderAEC("");
        registro.opciones = {respuesta};
        bases();
        EXPECT_EQ(c.CalculoAEC.toStdString(), valor);
        EXPECT_EQ(LeerAEC(ctx, u"OP1"_s).toStdString(), valor);
    }
}

TEST_F(Bases, WithoutTheMarkNothingIsAsked) {
    c.CalculoAEC = u"R"_s;
    bases();
    EXPECT_TRUE(registro.conOpciones.empty());
    EXPECT_TRUE(c.CalculoAEC.isEmpty()) << "the mode is read again from the setting each time";
}

TEST_F(Bases, AnOverflowOfTheIvaBaseLeavesItAtZeroAndTellsTheUser) {
    c.FLETETotalITEM = c.SEGUROTotalITEM = 0;
    c.FOBTotalITEM = 1e308;
    c.NcmDerechodeImportacionExtrazona = 99;
    c.NcmTasaEstadistica = 0;
    bases();
    EXPECT_EQ(baseIVA, 0);
    ASSERT_FALSE(registro.mensajes.empty());
    EXPECT_EQ(registro.mensajes.back().texto.toStdString(), "Desbordamiento");
}

TEST_F(Bases, AllAtZeroGivesTotalsOfZero) {
    c.FOBTotalITEM = c.FLETETotalITEM = c.SEGUROTotalITEM = 0;
    bases();
    EXPECT_EQ(baseImponible, 0);
    EXPECT_EQ(baseIVA, 0);
    for (const char *concepto :
         {"010", "011", "015", "016", "020", "032", "041", "059", "061", "062", "065", "415", "417",
          "422", "424", "500", "501", "601", "611", "852", "854", "856", "866", "900", "FCV", "777"}) {
        const double total = pedir(concepto).total;
        EXPECT_TRUE(numeros::iguales(total, 0, 2)) << concepto;
        EXPECT_FALSE(std::signbit(total)) << concepto;
    }
}

}  // namespace
