// What a recalculation reads ahead of the concepts: rates of the header, the position and the rows' own ones,
// additional rates of the decrees, adjustments of the header.

#include "tests/liquidation/operacion.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

class Lectura : public OperacionDePrueba {
 protected:
    void vaciar() {
        for (const char *tabla : {"item", "itemliq", "sysflag"}) ejecutar(u"delete from "_s + L(tabla));
    }
    /// Totals of the run of one concept.
    std::string de(const char *concepto) {
        return valor(u"select valor from liqcero where idconcepto = '%1'"_s.arg(L(concepto))).toStdString();
    }
};
EN_AMBOS_STORES(Lectura);

// Header

TEST_P(Lectura, EachAmountGoesAtTheRateOfItsOwnCurrency) {
    caratula({{"fobdivcambio", "1.1"}, {"fletedivcambio", "2"}, {"segurodivcambio", "3"}});
    item(1, {{"ajusteinc", "50"}, {"ajusteded", "20"}});
    filas(1, {"041"});
    const ResultadoRecalculo r = recalcular();
    // 1000 * 1.1 + 100 * 2 + 10 * 3 + 50 * 1.1 - 20 * 1.1
    EXPECT_NEAR(r.sumaBaseImponible, 1363, 1e-9);
    EXPECT_EQ(de("041"), "13.63");
    EXPECT_NEAR(r.sumaAjusteInc, 50, 1e-9) << "in their own currency";
    EXPECT_NEAR(r.sumaAjusteDed, 20, 1e-9);
    EXPECT_EQ(de("###ajinc"), "50");
    EXPECT_EQ(de("###ajded"), "20");
}

TEST_P(Lectura, ARateThatIsNotThereIsZero) {
    caratula({{"fletedivcambio", "null"}, {"segurodivcambio", "null"}});
    item(1);
    EXPECT_NEAR(recalcular().sumaBaseImponible, 1000, 1e-9);
}

TEST_P(Lectura, TheHeaderFillsTheCalculator) {
    caratula({{"fobdivisas", "900"},
              {"fletedivisas", "100"},
              {"segurodivisas", "0"},
              {"seguroporcentaje", "1.5"},
              {"factorconver", "0.25"},
              {"ajusteincluir", "7"},
              {"ajustededucir", "8"}});
    item(0);
    item(1);
    item(2, {{"fobtotal", "500"}, {"tipoitem", "'G'"}});
    insertar(u"groupsubitems"_s, {{"interno", "'OP1'"}, {"id", "1"}, {"idsub", "1"}, {"fob", "950"}});
    insertar(u"groupsubitems"_s, {{"interno", "'OP1'"}, {"id", "2"}, {"idsub", "2"}, {"fob", "500"}});
    ClassLiquidacion c(*ctx, L(clave));
    ASSERT_TRUE(CargarCaratulaEnCalculadora(*ctx, L(clave), c));
    EXPECT_EQ(c.CaratulaSeguroValor, 15) << "1.5 % of 100 and 900, the header's own FOB";
    EXPECT_EQ(c.CaratulaSeguroProcent(), 1.5);
    EXPECT_EQ(c.CaratulaFleteTotal, 100);
    EXPECT_EQ(c.CaratulaFactordeConvergencia, 0.25);
    EXPECT_EQ(c.CaratulaAjusteIncluir, 7);
    EXPECT_EQ(c.CaratulaAjusteDeducir, 8);
    EXPECT_EQ(c.CaratulaFobTotal, 1450) << "then that of the groups";
    EXPECT_EQ(c.CaratulaFobTotalSinG, 1000) << "and of the items that are not G";
    EXPECT_FALSE(CargarCaratulaEnCalculadora(*ctx, u"NO"_s, c));
}

// The position

TEST_P(Lectura, APositionOf14CharactersIsMetToo) {
    item(1, {{"ncm", "'7318.15.00.100'"}});
    filas(1, {"010"});
    recalcular();
    EXPECT_EQ(de("010"), "222");
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(Lectura, ANullPositionIsAllZeros) {
    posicion("0000.00.00.000D", {{"[015]", "'7'"}});
    item(1, {{"ncm", "null"}});
    filas(1, {"010"});
    recalcular();
    EXPECT_EQ(de("010"), "77.7");
}

TEST_P(Lectura, APositionOfAnotherLengthIsToldAndTheItemGoesOn) {
    item(1);
    item(2, {{"ncm", "'7318.15'"}, {"fobtotal", "2000"}});
    filas(1, {"010"});
    filas(2, {"010"});
    recalcular(true);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto.toStdString(), "Estructura de NCM incorrecta");
    EXPECT_EQ(liq(2), "010|20|2110|422|P") << "with the rates of the item before";
}

TEST_P(Lectura, AnUnknownPositionGoesOnWithTheRatesOfTheItemBefore) {
    item(1);
    fila(1, "010", {{"porcentaje", "12"}});
    fila(1, "415");
    item(2, {{"ncm", "'9999.99.99.999Z'"}, {"fobtotal", "2000"}});
    filas(2, {"010", "011", "415"});
    recalcular(true);
    // 12 % of 2110 are 253.20, the rate of item 1; its statistics rate was 0, for it has no 011 row. IVA 21 %
    // of 2363.20.
    EXPECT_EQ(liq(2), "010|12|2110|253.2|P\n011|0|2110|0|P\n415|21|2363.2|496.27|P");
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(Lectura, AFirstItemOfUnknownPositionHasNoRates) {
    item(1, {{"ncm", "'9999.99.99.999Z'"}});
    filas(1, {"010", "011", "415"});
    recalcular(true);
    EXPECT_EQ(liq(1), "010|0|1110|0|P\n011|0|1110|0|P\n415|0|1110|0|P");
}

TEST_P(Lectura, RatesOfTheNomenclatureReadWithEitherSeparator) {
    ejecutar(u"update ncm set [015] = '12,5', [016] = ' 0.5'"_s, u"NCM"_s);
    item(1);
    filas(1, {"010", "011"});
    recalcular(true);
    EXPECT_EQ(liq(1), "010|12.5|1110|138.75|P\n011|0.5|1110|5.55|P");
}

// Percentages of the rows that enter the bases

struct CasoDeTasa {
    const char *derecho, *estadistica;  ///< percentage of the 010 and 011 rows; empty: no row
    const char *baseIVA;
};

TEST_P(Lectura, TheRowsOfDutyAndStatisticsOverrideThePosition) {
    // Base 1110; duty 20 % 222.00, 12 % 133.20; statistics 3 % 33.30, 1 % 11.10.
    for (const auto &[derecho, estadistica, baseIVA] :
         {CasoDeTasa{"null", "null", "1365.3"}, CasoDeTasa{"0", "0", "1365.3"},
          CasoDeTasa{"12", "1", "1254.3"}, CasoDeTasa{"", "", "1110"}, CasoDeTasa{"", "null", "1143.3"},
          CasoDeTasa{"null", "", "1332"}, CasoDeTasa{"-5", "null", "1365.3"},
          CasoDeTasa{"null", "-1", "1332"}}) {
        vaciar();
        item(1);
        if (*derecho) fila(1, "010", {{"porcentaje", L(derecho)}});
        if (*estadistica) fila(1, "011", {{"porcentaje", L(estadistica)}});
        recalcular();
        EXPECT_EQ(de("###baseiva"), baseIVA) << derecho << " / " << estadistica;
    }
}

// Additional rates

const char *const temporales[] = {"IT01", "IT03", "IT04", "IT05", "IT06", "IT07", "IT11", "IT13", "IT14",
                                  "IT15", "IT16", "IT17", "ET01", "ET02", "ETA1", "ETE1", "ETE2"};

TEST_P(Lectura, OnlyTheTemporaryRegimesAndIC81TakeAnAdditionalRate) {
    item(1);
    filas(1, {"016"});
    insertar(u"sysflag"_s, {{"interno", "'OP1'"}, {"flag", "'1439/96'"}, {"valor", "'S'"}, {"item", "0"}});
    const auto tasa = [&](const char *regimen) {
        caratula({{"idsubreg", u"'%1'"_s.arg(L(regimen))}});
        const ResultadoRecalculo r = recalcular();
        return r.detalle.at(0).porcentaje.left(2).toStdString();
    };
    for (const char *regimen : temporales) EXPECT_EQ(tasa(regimen), "24") << regimen;
    EXPECT_EQ(tasa("IC81"), "24");
    for (const char *regimen : {"IC01", "IT02", "IT08", "IT18", "ET03", "IC82", "IG06", "EC01", "DJAI", ""})
        EXPECT_EQ(tasa(regimen), "00") << regimen;
}

TEST_P(Lectura, TheDecreesGiveTheirRateFirstMatchFirst) {
    item(1);
    filas(1, {"016"});
    caratula({{"idsubreg", "'IT01'"}});
    struct Caso {
        QStringList banderas;
        const char *tasa;
    };
    const Caso casos[] = {{{}, "00"},
                          {{"1439/96"}, "24"},
                          {{"1439/96A1"}, "48"},
                          {{"D1330/04A6"}, "24"},
                          {{"D1330/04A7"}, "48"},
                          {{"D1330/04A8"}, "72"},
                          {{"1439/96A1", "1439/96"}, "24"},
                          {{"D1330/04A8", "D1330/04A7"}, "48"},
                          {{"D1330/04A6", "1439/96A1"}, "48"},
                          {{"OTRA"}, "00"}};
    for (const Caso &k : casos) {
        ejecutar(u"delete from sysflag"_s);
        for (const QString &bandera : k.banderas)
            insertar(
                u"sysflag"_s,
                {{"interno", "'OP1'"}, {"flag", u"'%1'"_s.arg(bandera)}, {"valor", "'S'"}, {"item", "0"}});
        EXPECT_EQ(recalcular().detalle.at(0).porcentaje.left(2).toStdString(), k.tasa)
            << k.banderas.join(QLatin1Char(' ')).toStdString();
    }
}

TEST_P(Lectura, AFlagThatIsNotSetGivesNoRate) {
    item(1);
    filas(1, {"016"});
    caratula({{"idsubreg", "'IT01'"}});
    insertar(u"sysflag"_s, {{"interno", "'OP1'"}, {"flag", "'1439/96'"}, {"valor", "'N'"}, {"item", "0"}});
    insertar(u"sysflag"_s, {{"interno", "'OP2'"}, {"flag", "'1439/96A1'"}, {"valor", "'S'"}, {"item", "0"}});
    EXPECT_EQ(recalcular().detalle.at(0).porcentaje.left(2).toStdString(), "00");
}

TEST_P(Lectura, ARateGivenByHandOutranksTheDecrees) {
    item(1);
    caratula({{"idsubreg", "'IC81'"}});
    fila(1, "016", {{"porcentaje", "10"}, {"valor", "1"}});
    recalcular();
    EXPECT_EQ(de("###baseiva"), "1221") << "1110 + 10 %";
    EXPECT_EQ(de("016"), "111");
    ejecutar(u"update itemliq set valor = 0"_s);
    recalcular();
    EXPECT_EQ(de("###baseiva"), "1110") << "without the mark, no decree either: nothing";
    EXPECT_EQ(de("016"), "111") << "the row still runs on its own percentage";
}

TEST_P(Lectura, AMarkedRateOutsideTheListGivesNoAdditionalRateButTheRowComputes) {
    item(1);
    insertar(u"sysflag"_s, {{"interno", "'OP1'"}, {"flag", "'1439/96'"}, {"valor", "'S'"}, {"item", "0"}});
    fila(1, "016", {{"porcentaje", "10"}, {"valor", "1"}});
    recalcular(true);
    EXPECT_EQ(de("###baseiva"), "1110");
    EXPECT_EQ(liq(1), "016|10|1110|111|P");
}

TEST_P(Lectura, ADecreeEntersTheIvaBaseByTheRegime) {
    // 24 % of 1110 are 266.40, 48 % 532.80, 72 % 799.20.
    for (const auto &[regimen, bandera, base] :
         {std::tuple{"IT01", "1439/96", "1376.4"}, std::tuple{"IT01", "1439/96A1", "1642.8"},
          std::tuple{"IT14", "D1330/04A6", "1376.4"}, std::tuple{"IT14", "D1330/04A7", "1642.8"},
          std::tuple{"IT14", "D1330/04A8", "1909.2"}, std::tuple{"IT15", "D1330/04A8", "1110"}}) {
        vaciar();
        item(1);
        caratula({{"idsubreg", u"'%1'"_s.arg(L(regimen))}});
        insertar(
            u"sysflag"_s,
            {{"interno", "'OP1'"}, {"flag", u"'%1'"_s.arg(L(bandera))}, {"valor", "'S'"}, {"item", "0"}});
        recalcular();
        EXPECT_EQ(de("###baseiva"), base) << regimen << " " << bandera;
    }
}

TEST_P(Lectura, AnIT04PaysElevenPercentOfIncomeTax) {
    caratula({{"idsubreg", "'IT04'"}});
    item(1);
    fila(1, "424", {{"porcentaje", "0"}});
    recalcular(true);
    EXPECT_EQ(liq(1), "424|11|1110|122.1|P");
    ejecutar(u"update itemliq set porcentaje = 6, baseimp = 500"_s);
    recalcular(true);
    EXPECT_EQ(liq(1), "424|6|500|30|P") << "but not over a hand";
}

// Specific duties, internal taxes, gross income, statistics of the bands

TEST_P(Lectura, SpecificDutiesUseTheItemsOwnQuantity) {
    ejecutar(u"update ncm set [017] = '3', [053] = '2'"_s, u"NCM"_s);
    item(1, {{"valorderesp", "100"}});
    item(2, {{"valorderesp", "100"}, {"idpais", "'101'"}});
    for (const int id : {1, 2}) filas(id, {"010", "015", "059"});
    recalcular(true);
    EXPECT_EQ(liq(1), "010|20|1110|0|P\n015|0|300|300|P\n059|0|0|0|P");
    EXPECT_EQ(liq(2), "010|20|1110|0|P\n015|0|0|0|P\n059|35|1110|300|P");
}

TEST_P(Lectura, TheInternalTaxesOfThePositionAreRoundedOnlyWhenWritten) {
    insertar(u"impuestos_internos"_s,
             {{"ncm", "'7318.15.00.100A'"}, {"decreto", "'SINDEC'"}, {"tasa_nominal", "20"}}, u"USUARIO"_s);
    item(1);
    filas(1, {"010", "011", "417"});
    recalcular(true);
    // 1365.30 * 1.3 * 25 % = 443.7225
    EXPECT_EQ(f("select porcentaje,baseimp,total from itemliq where idconceptos = '417'"),
              "20|1365.3|443.72");
}

TEST_P(Lectura, GrossIncomeRunsOnTheIvaBase) {
    item(1);
    filas(1, {"010", "011"});
    fila(1, "900", {{"porcentaje", "2.5"}});
    recalcular(true);
    EXPECT_EQ(f("select porcentaje,baseimp,total from itemliq where idconceptos = '900'"),
              "2.5|1365.3|34.13");
}

TEST_P(Lectura, TheStatisticsFeeReplacesTheRateByBands) {
    item(1, {{"fobtotal", "89890"}});
    item(2, {{"fobtotal", "99890"}});
    for (const int id : {1, 2}) filas(id, {"011", "061", "062"});
    recalcular(true);
    EXPECT_EQ(liq(1), "011|0|0|0|P\n061|0|0|400|P\n062|0|0|0|P");
    EXPECT_EQ(liq(2), "011|0|0|0|P\n061|0|0|0|P\n062|0|0|500|P");
    EXPECT_EQ(de("###baseiva"), "190900") << "90000 + 400 + 100000 + 500";
}

TEST_P(Lectura, AMiningItemPaysItsOwnRateInPlaceOfDutyAndStatistics) {
    item(1, {{"mineria", "'S'"}});
    filas(1, {"010", "011", "032"});
    recalcular(true);
    EXPECT_EQ(liq(1), "010|0|0|0|P\n011|0|0|0|P\n032|1|1110|11.1|P");
    EXPECT_EQ(de("###baseiva"), "1121.1");
}

// Exports

TEST_P(Lectura, TheCoefficientIsWorkedOutForAnExportWithTheBoxAndWrittenAtOnce) {
    caratula({{"idsubreg", "'EC01'"}});
    item(1);
    item(2, {{"fobtotal", "2000"}});
    filas(1, {"020", "041"});
    filas(2, {"020"});
    ctx->CalcularCoeficiente = true;
    recalcular(false);
    // 1 / 1.1; no pending flag, so the rows stay.
    EXPECT_EQ(f("select id,cofexp from item order by id"), "1|0.90909\n2|0.90909");
    EXPECT_EQ(liq(2), "020|<null>|<null>|<null>|P");
    // 1000 * 0.90909 = 909.09, 10 % 90.91; 2000: 1818.18, 181.82. 041 sees the reduced base: 9.09.
    EXPECT_EQ(de("020"), "272.73");
    EXPECT_EQ(de("041"), "9.09");
    EXPECT_EQ(de("###baseimp"), "3000") << "summed before the concepts";
}

TEST_P(Lectura, WithoutTheBoxOrOnAnImportTheCoefficientStays) {
    item(1);
    filas(1, {"020"});
    caratula({{"idsubreg", "'EC01'"}});
    recalcular();
    EXPECT_EQ(f("select cofexp from item"), "0") << "written all the same";
    EXPECT_EQ(de("020"), "100");
    caratula({{"idsubreg", "'IC01'"}});
    ctx->CalcularCoeficiente = true;
    recalcular();
    EXPECT_EQ(f("select cofexp from item"), "0");
}

TEST_P(Lectura, ARegimeInSmallLettersIsTheExportThatItIsInCapitals) {
    caratula({{"idsubreg", "'ec01'"}});
    item(1);
    filas(1, {"020"});
    ctx->CalcularCoeficiente = true;
    recalcular();
    EXPECT_EQ(f("select cofexp from item"), "0.90909");
    EXPECT_EQ(de("###baseimp"), "1000") << "freight and insurance do not enter, as under EC01";
}

TEST_P(Lectura, TheRefundsOfAnExportFollowTheInputs) {
    caratula({{"idsubreg", "'EC01'"}});
    item(1, {{"insumostemp", "100"}, {"insumosacons", "30"}, {"itcomext", "7"}, {"idpais", "'203'"}});
    filas(1, {"020", "601", "611"});
    recalcular();
    // 1000 - 30 - 7 - 100 = 863, of which 2 % inside the zone
    EXPECT_EQ(de("601"), "17.26");
    EXPECT_EQ(de("611"), "<nada>");
    EXPECT_EQ(liq(1), "020|10|1000|100|P\n601|2|863|17.26|P\n611|0|0|0|P");
}

// The header's adjustments

TEST_P(Lectura, TheHeadersAdjustmentsAreSpreadByFobAndTheCentIsNotSettled) {
    caratula({{"ajusteincluir", "100"}, {"ajustededucir", "50"}});
    for (const int id : {1, 2, 3}) item(id);
    item(4, {{"fobtotal", "500"}, {"tipoitem", "'G'"}, {"ajusteinc", "7"}});
    const QStringList sentencias = sentenciasDe("as valor from item", [&] { recalcular(); });
    EXPECT_EQ(f("select id,ajusteinc,ajusteded from item order by id"),
              "1|33.33|16.67\n2|33.33|16.67\n3|33.33|16.67\n4|7|<null>");
    EXPECT_EQ(de("###ajinc"), "106.99");
    EXPECT_EQ(de("###ajded"), "50.01");
    EXPECT_EQ(sentencias.join(QLatin1Char('\n')).toStdString(),
              "select id,(FOBtotal * 100) / (3000) as valor "
              "from item "
              "where id<>0 and interno = 'OP1' and tipoitem <> 'G'\n"
              "select id,(FOBtotal * 50) / (3000) as valor "
              "from item "
              "where id<>0 and interno = 'OP1' and tipoitem<>'G'");
}

TEST_P(Lectura, AHeaderWithoutAdjustmentsLeavesThoseOfTheItems) {
    caratula({{"ajusteincluir", "0"}, {"ajustededucir", "null"}});
    item(1, {{"ajusteinc", "50"}, {"ajusteded", "20"}});
    recalcular();
    EXPECT_EQ(f("select ajusteinc,ajusteded from item"), "50|20");
    EXPECT_EQ(de("###baseimp"), "1140");
}

TEST_P(Lectura, AnAdjustmentOverNoFobIsTheStoresError) {
    caratula({{"ajusteincluir", "100"}});
    item(1, {{"fobtotal", "0"}});
    EXPECT_THROW(recalcular(), Falla);
}

// The automotive question and the exemption flags of the run

TEST_P(Lectura, TheAutomotiveQuestionIsAskedOnceInARun) {
    ejecutar(u"update ncm set [028] = '*'"_s, u"NCM"_s);
    item(1);
    item(2);
    filas(1, {"010"});
    filas(2, {"010"});
    registro.opciones = {{true, 1}};
    recalcular(true);
    EXPECT_EQ(registro.conOpciones.size(), 1U);
    // Replacement from outside: the common tariff of 18 % takes the duty's place.
    EXPECT_EQ(liq(1), "010|18|1110|199.8|P");
    EXPECT_EQ(liq(2), "010|18|1110|199.8|P");
    EXPECT_EQ(de("###baseiva"), "2619.6") << "2 * 1309.80: no 011 row, no statistics";
    recalcular(true);
    EXPECT_EQ(registro.conOpciones.size(), 1U);
}

TEST_P(Lectura, TheAgreementListFillsTheSecondBase) {
    item(1, {{"lista", "'314/R.AUTOMOTRIZ'"}, {"idpais", "'203'"}});
    filas(1, {"010", "011", "415", "852", "854", "856", "866"});
    ejecutar(u"update itemliq set porcentaje = 20 where idconceptos = '854'"_s);
    recalcular(true);
    // Three quarters of 18 % are 13.50 %: 149.85, on which IVA 31.47, additional 29.97, income tax 4.50.
    EXPECT_EQ(liq(1),
              "010|0|0|0|P\n"
              "011|0|0|0|P\n"
              "415|21|1110|233.1|P\n"
              "852|21|149.85|31.47|P\n"
              "854|20|149.85|29.97|P\n"
              "856|3|149.85|4.5|P\n"
              "866|13.5|1110|149.85|P");
}

}  // namespace
