// Refunds, text forms, the minimum for country 310 and the internal taxes.

#include "frame/base/numbers.h"
#include "tests/liquidation/calculo.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

// 601 and 611

class Reintegros : public CalculoDePrueba {
 protected:
    void SetUp() override {
        CalculoDePrueba::SetUp();
        comoExportacion();
        c.AJUSTEINCLUIRtotalITEM = 50;
        c.AJUSTEDEDUCIRtotalITEM = 20;
        c.ItmImportacionTemporal = 100;
        c.ItmImportacionTmpCons = 30;
        c.ItmComsionesExt = 7;
        c.ncmReintegroFijo = 5;
        c.ncmReintFijoIntraZona = 2;
        bases();
        // a = 50 + 1000 - 20 - 30 - 7 - 100 = 893, b = 50 + 1000 - 20 - 100 = 930
    }
};

TEST_F(Reintegros, WithoutCoefficientTheDeductionIsAddedToTheBase) {
    // 50 + 1000 + 20 - 30 - 7 - 100 = 933; 5 % are 46.65
    esperar(pedir("601"), 46.65, 933, 5, "Vacio");
    EXPECT_TRUE(ctx.LiquidacionPendiente);
}

TEST_F(Reintegros, WhenTheInputsAreNegativeTheWholeValueIsTheBase) {
    c.ItmImportacionTmpCons = -30;
    // a = 953 is above b = 930: 50 + 1000 + 20 = 1070; 5 % are 53.50
    esperar(pedir("601"), 53.50, 1070, 5, "Vacio");
}

TEST_F(Reintegros, EqualValuesTakeTheInputsOut) {
    c.ItmImportacionTmpCons = -7;  // a = b = 930
    // 50 + 1000 + 20 + 7 - 7 - 100 = 970; 5 % are 48.50
    esperar(pedir("601"), 48.50, 970, 5, "Vacio");
}

TEST_F(Reintegros, AStoredPercentageOrBaseNeverSurvives) {
    esperar(pedir("601", manual("50", 500)), 46.65, 933, 5, "50");
    c.ItemCoeficienteExportacion = 0.9;
    esperar(pedir("611", manual("50", 500)), 41.85, 837, 5, "50");
}

TEST_F(Reintegros, InsideTheZoneTheOtherRateCounts) {
    for (const char *pais : {"203", "221", "225", " 225 "}) {
        c.ItemIdPais = L(pais);
        esperar(pedir("601"), 18.66, 933, 2, "Vacio");
    }
    for (const char *pais : {"", "400", "310"}) {
        c.ItemIdPais = L(pais);
        esperar(pedir("601"), 46.65, 933, 5, "Vacio");
    }
}

TEST_F(Reintegros, ACoefficientThatIsNotCoveredLeaves601AtZeroWithoutTheMark) {
    c.ItemCoeficienteExportacion = 0.9;
    esperar(pedir("601", con("7", 5)), 0, 0, 0, "7");
    EXPECT_FALSE(ctx.LiquidacionPendiente);
    c.ItemCoeficienteExportacion = -0.9;
    esperar(pedir("601", con("7", 5)), 0, 0, 0, "7");
    EXPECT_FALSE(ctx.LiquidacionPendiente) << "any coefficient but 0";
}

TEST_F(Reintegros, WithCoefficientTheLesserValueIsTheBase) {
    c.ItemCoeficienteExportacion = 0.9;
    esperar(pedir("611"), 41.85, 837, 5, "Vacio");  // 930 * 0.9 = 837, below 893
    EXPECT_TRUE(ctx.LiquidacionPendiente);
    c.ItemCoeficienteExportacion = 0.99;
    esperar(pedir("611"), 44.65, 893, 5, "Vacio");  // 930 * 0.99 = 920.70, above 893
}

TEST_F(Reintegros, WithoutCoefficient611IsZeroAndMarksAllTheSame) {
    for (const double coeficiente : {0.0, -0.9}) {
        ctx.LiquidacionPendiente = false;
        c.ItemCoeficienteExportacion = coeficiente;
        esperar(pedir("611", con("7", 5)), 0, 0, 0, "7");
        EXPECT_TRUE(ctx.LiquidacionPendiente);
    }
}

TEST_F(Reintegros, InputsAboveTheExportDutyTurnTheTwoConceptsRound) {
    c.ItemCoeficienteExportacion = 0.9;
    c.AJUSTEINCLUIRtotalITEM = c.AJUSTEDEDUCIRtotalITEM = 0;
    bases();  // 1000 * 0.9
    c.ItmComsionesExt = 60;
    c.ItmImportacionTmpCons = 21;  // 81, the very duty
    EXPECT_EQ(pedir("020").total, 81) << "900 * 0.9 = 810, of which 10 %";
    EXPECT_EQ(pedir("601").total, 0) << "not above: not covered";
    EXPECT_GT(pedir("611").total, 0);
    bases();
    c.ItmImportacionTmpCons = 21.01;
    EXPECT_EQ(pedir("020").total, 81);
    EXPECT_GT(pedir("601").total, 0);
    esperar(pedir("611", con("7", 5)), 0, 0, 0, "7");
    c.ItemCoeficienteExportacion = 0;
    bases();
    pedir("020");
    EXPECT_GT(pedir("601").total, 0) << "020 without coefficient clears it";
    c.ItemCoeficienteExportacion = 0.9;
    EXPECT_GT(pedir("611").total, 0);
}

// Texts and separators

class ConSeparador : public CalculoDePrueba, public ::testing::WithParamInterface<char> {
 protected:
    void SetUp() override {
        CalculoDePrueba::SetUp();
        ctx.SeparadorDecimal = QLatin1Char(GetParam());
    }

    /// The whole part, the separator under test and a five.
    static QString conComa(const char *entero) { return L(entero) + QLatin1Char(GetParam()) + u"5"_s; }
};

TEST_P(ConSeparador, ThePercentageComesBackInTheWorkstationsForm) {
    c.ncmExencionReduccionIVA = 1;
    bases();
    const QString esperado = conComa("10");
    const Respuesta r = pedir("415");
    EXPECT_EQ(r.porcentaje.toStdString(), esperado.toStdString());
    EXPECT_NEAR(r.total, 143.36, 1e-9);
    for (const char *texto : {"10.5", "10,5"})
        EXPECT_NEAR(pedir("415", con(texto)).total, 143.36, 1e-9) << texto;
    c.NcmDerechodeImportacionExtrazona = 12.5;
    EXPECT_EQ(pedir("010").porcentaje.toStdString(), conComa("12").toStdString());
}

TEST_P(ConSeparador, TheTextUtilityKnowsBothSeparators) {
    EXPECT_EQ(c.Obtener_Sep_Decim(), QString(QLatin1Char(GetParam())));
    EXPECT_EQ(c.ObtenerDecimal(), QString(QLatin1Char(GetParam())));
    for (const char *texto : {"12.5", "12,5"}) {
        QString t = L(texto);
        const QString vuelto = c.ReemplazarSeparadorDecimal(t);
        EXPECT_EQ(vuelto, conComa("12"));
        EXPECT_EQ(t, vuelto) << "the caller's own text changes";
    }
    QString varios = u"1.234,5"_s;
    const QString signo{QLatin1Char(GetParam())};
    EXPECT_EQ(c.ReemplazarSeparadorDecimal(varios), u"1"_s + signo + u"234"_s + signo + u"5"_s);
}

TEST_P(ConSeparador, TheAmountsAreTheSame) {
    bases();
    EXPECT_NEAR(baseIVA, 1365.30, 1e-9);
    EXPECT_EQ(pedir("010").total, 222);
    EXPECT_EQ(pedir("415").total, 286.71);
    comoExportacion();
    c.ItemCalcularCoeficienteExportacion = true;
    bases();
    EXPECT_EQ(pedir("020").total, 90.91);
    EXPECT_EQ(c.ItemCoeficienteExportacion, 0.90909);
}

INSTANTIATE_TEST_SUITE_P(Separators, ConSeparador, ::testing::Values('.', ','),
                         [](const ::testing::TestParamInfo<char> &caso) {
                             return std::string(caso.param == '.' ? "Point" : "Comma");
                         });

// Minimum specific duty for country 310

class MinimoDeChina : public CalculoDePrueba {
 protected:
    void SetUp() override {
        CalculoDePrueba::SetUp();
        c.ItemIdPais = u"310"_s;
        c.ncmCalculaDIEMCHINA = true;
        c.ncmDIEMCHINAValor = 2.5;
        c.ItemCantidadDerechoEspecifico = 40;
        c.ncmDIEMPREFPorcValor = 40;
        c.ncmDIEMIndMaxArancelValor = 35;
    }
};

TEST_F(MinimoDeChina, TakesThePreferenceOffWhatExceedsTheCap) {
    // a = 2.5 * 40 * 100 / 20 = 500; b = 465; 40 % of it 186.00; e = 465 - 186 + 35 = 314; 20 % are 62.80
    EXPECT_EQ(c.CalcularDiemCHINA(20), 62.80);
    // a = 2.5 * 40 * 100 / 7 = 1428.5714...; b = 1393.5714...; 40 % 557.43; e = 871.1414...; 7 % 60.9799
    EXPECT_EQ(c.CalcularDiemCHINA(7), 60.98);
}

TEST_F(MinimoDeChina, IsZeroForAnyOtherCountryAndPosition) {
    c.ItemIdPais = u"400"_s;
    EXPECT_EQ(c.CalcularDiemCHINA(20), 0);
    c.ItemIdPais = u" 310 "_s;
    EXPECT_EQ(c.CalcularDiemCHINA(20), 62.80);
    c.ncmCalculaDIEMCHINA = false;
    EXPECT_EQ(c.CalcularDiemCHINA(0), 0);
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_F(MinimoDeChina, APercentageOfZeroTellsTheUser) {
    EXPECT_EQ(c.CalcularDiemCHINA(0), 0);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto.toStdString(), "División por cero");
}

TEST_F(MinimoDeChina, IsNoPartOfConcept065) {
    bases();
    EXPECT_EQ(pedir("065").total, 0);
}

// Internal taxes

class ImpuestosInternos : public EnAmbosStores {
 protected:
    void SetUp() override {
        EnAmbosStores::SetUp();
        CalculoDeTienda();
    }
    void CalculoDeTienda() {
        c = std::make_unique<ClassLiquidacion>(*ctx, u"OP1"_s);
        c->CaratulaSubRegimen = u"IC01"_s;
        c->CaratulaDivisasFOB = 1;
        c->FOBTotalITEM = 1110;
        c->ItemIdPais = u"400"_s;
        c->NcmDerechodeImportacionExtrazona = 20;
        c->NcmTasaEstadistica = 3;
        c->ObtenerBaseImponible();
        c->ObtenerBaseIVA();  // 1365.30
    }
    void decreto(const char *ncm, const char *codigo, const char *tasa) {
        ejecutar(u"insert into impuestos_internos (ncm,decreto,tasa_nominal) values ('%1','%2',%3)"_s.arg(
                     L(ncm), L(codigo), L(tasa)),
                 u"USUARIO"_s);
    }
    Respuesta pedir417(const char *ncm, const char *texto = "Vacio", double base = 5, double baseManual = 0) {
        c->GetMarcaImpuestosInternos(L(ncm));
        Respuesta r;
        r.porcentaje = L(texto);
        r.base = base;
        r.total = c->ObtenerValorConcepto(u"417"_s, r.porcentaje, 0, r.base, {}, baseManual, false);
        r.lqPorc = c->ObtenerLqPorc();
        return r;
    }
    std::unique_ptr<ClassLiquidacion> c;
};

TEST_P(ImpuestosInternos, FollowTheDecreeOfThePosition) {
    decreto("2402.20.00.000X", " SINDEC ", "20");
    decreto("8703.23.10.100A", "DEC290_00", "20");
    decreto("2208.30.10.000B", "OTRO", "20");
    // A nominal 20 % is an effective 25 %: 1365.30 * 1.3 * 0.25 = 443.7225, and 1365.30 * 0.25 = 341.325. No
    // rounding.
    esperar(pedir417("2402.20.00.000X"), 443.7225, 1365.30, 20, "20");
    esperar(pedir417("8703.23.10.100A"), 341.325, 1365.30, 20, "20");
    esperar(pedir417("2208.30.10.000B"), 0, 1365.30, 20, "20");
    esperar(pedir417("2208.30.10.000B", "7"), 0, 1365.30, 20, "20");
    esperar(pedir417("0101.10.00.000A", "7"), 0, 5, 0, "7");
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(ImpuestosInternos, AManualBaseOutranksTheDecree) {
    decreto("2402.20.00.000X", "SINDEC", "20");
    esperar(pedir417("2402.20.00.000X", "7", 500, 500), 35, 500, 7, "7");
}

TEST_P(ImpuestosInternos, APositionWithoutOneClearsWhatTheLastOneLeft) {
    decreto("2402.20.00.000X", "SINDEC", "20");
    EXPECT_GT(pedir417("2402.20.00.000X").total, 0);
    EXPECT_EQ(pedir417("9999.99.99.999Z").total, 0);
}

TEST_P(ImpuestosInternos, ANominalRateOf100IsADivisionByZero) {
    decreto("2402.20.00.000X", "SINDEC", "100");
    try {
        pedir417("2402.20.00.000X");
        FAIL() << "no fault raised";
    } catch (const Falla &e) {
        EXPECT_EQ(e.descripcion.toStdString(), "División por cero");
    }
}

TEST_P(ImpuestosInternos, AFailingReadTellsTheUserAndLeavesNoDecree) {
    decreto("2402.20.00.000X", "SINDEC", "20");
    c->GetMarcaImpuestosInternos(u"2402.20.00.000X"_s);
    ejecutar(u"alter table impuestos_internos rename to escondida"_s, u"USUARIO"_s);
    EXPECT_EQ(pedir417("2402.20.00.000X", "7").total, 0);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_FALSE(registro.mensajes[0].texto.isEmpty());
}

EN_AMBOS_STORES(ImpuestosInternos);

}  // namespace
