// The run of item 0: every item through the calculator, the operation's totals, and the writing back.

#include <QRegularExpression>

#include "frame/base/numbers.h"
#include "tests/liquidation/operacion.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

class Recalculo : public OperacionDePrueba {};
EN_AMBOS_STORES(Recalculo);

const char *const cuatroEnCero =
    "###baseiva|<null>|0|<null>\n"
    "###baseimp|<null>|0|<null>\n"
    "###ajded|<null>|0|<null>\n"
    "###ajinc|<null>|0|<null>";

TEST_P(Recalculo, AnOperationWithoutItemsKeepsOnlyTheFourTotalsAtZero) {
    insertar(u"liqcero"_s, {{"interno", "'OP1'"}, {"idconcepto", "'010'"}, {"valor", "5"}});
    const ResultadoRecalculo r = recalcular();
    EXPECT_EQ(totales(), cuatroEnCero);
    EXPECT_TRUE(r.grilla.empty());
    EXPECT_TRUE(r.detalle.empty());
    EXPECT_EQ(r.totalP + r.totalG + r.totalC, 0);
    caratula({{"ajusteincluir", "100"}, {"ajustededucir", "50"}});
    recalcular();
    EXPECT_EQ(totales(), cuatroEnCero) << "there is nothing to spread an adjustment over";
    item(0);
    filas(0, {"010"});
    recalcular();
    EXPECT_EQ(totales(), cuatroEnCero) << "item 0 is no item";
}

TEST_P(Recalculo, AnOperationThatIsNotThereLeavesEverythingAlone) {
    insertar(u"liqcero"_s, {{"interno", "'NO'"}, {"idconcepto", "'010'"}, {"valor", "5"}});
    ClassLiquidacion c(*ctx, u"NO"_s);
    EXPECT_TRUE(RecalcularOperacion(*ctx, u"NO"_s, c).grilla.empty());
    EXPECT_EQ(f("select valor from liqcero where interno = 'NO'"), "5");
}

TEST_P(Recalculo, EveryConceptIsSummedOverTheItems) {
    catalogo();
    item(1);
    item(2);
    for (const int id : {1, 2}) filas(id, {"500", "424", "415", "010", "011"});
    const ResultadoRecalculo r = recalcular();
    // An item: duty 222.00, statistics 33.30, IVA 21 % of 1365.30 286.71, income tax 3 % 40.96. The order is
    // that of the codes of the first item.
    EXPECT_EQ(totales(),
              "010|DERECHOS|444|P\n"
              "011|ESTADISTICA|66.6|P\n"
              "415|IVA|573.42|P\n"
              "424|GANANCIAS|81.92|P\n"
              "500|ARANCEL SIM IMPO|10|P\n"
              "###baseiva|<null>|2730.6|<null>\n"
              "###baseimp|<null>|2220|<null>\n"
              "###ajded|<null>|0|<null>\n"
              "###ajinc|<null>|0|<null>");
    EXPECT_NEAR(r.totalP, 1175.94, 1e-9) << "444 + 66.60 + 573.42 + 81.92 + 10";
    EXPECT_EQ(r.totalG, 0);
    EXPECT_EQ(r.totalC, 0);
    EXPECT_NEAR(r.sumaBaseImponible, 2220, 1e-9);
    EXPECT_NEAR(r.sumaBaseIVA, 2730.60, 1e-9);
    ASSERT_EQ(r.grilla.size(), 5U);
    EXPECT_EQ(r.grilla[0].numero.toStdString(), "010");
    EXPECT_EQ(r.grilla[0].concepto.toStdString(), "DERECHOS");
    EXPECT_EQ(numeros::aNumero(r.grilla[0].total), 444);
    EXPECT_EQ(r.grilla[0].pgc.toStdString(), "P");
    EXPECT_TRUE(r.grilla[0].porcentaje.isEmpty() && r.grilla[0].base.isEmpty() &&
                r.grilla[0].motivo.isEmpty());
}

TEST_P(Recalculo, TheDetailHasOneEntryARowInTheOrderRead) {
    item(1);
    fila(1, "415", {{"pgc", "null"}, {"motivo", "' XX '"}});
    fila(1, "010", {{"pgc", "' G '"}});
    item(2);
    filas(2, {"011"});
    const ResultadoRecalculo r = recalcular();
    QStringList entradas;
    for (const DetalleLiq &d : r.detalle)
        entradas << QStringList{d.concepto, d.total, d.porcentaje, d.iditem, d.pgc, d.base, d.motivo}.join(
            QLatin1Char('|'));
    // Item 1 has no 011 row, so no statistics: an IVA base of 1332, of which 21 % are 279.72.
    EXPECT_EQ(entradas.join(QLatin1Char('\n')).toStdString(),
              "010|222.00|20.00|1|G|1110.00|\n"
              "415|279.72|21.00|1|P|1332.00|XX\n"
              "011|33.30|03.00|2|P|1110.00|");
}

TEST_P(Recalculo, TwoItemsWithTheSimFeeMakeOneLineOfTen) {
    item(1);
    item(2);
    filas(1, {"500"});
    filas(2, {"500"});
    const ResultadoRecalculo r = recalcular(true);
    EXPECT_EQ(r.totalP, 10);
    ASSERT_EQ(r.grilla.size(), 1U);
    EXPECT_EQ(r.grilla[0].total.toStdString(), "10.00");
    EXPECT_EQ(r.grilla[0].concepto.toStdString(), "ARANCEL SIM IMPO");
    EXPECT_EQ(f("select concepto,valor,pgc from liqcero where idconcepto = '500'"), "ARANCEL SIM IMPO|10|P");
    EXPECT_EQ(liq(1), "500|0|0|0|P") << "the rows themselves hold nothing";
}

TEST_P(Recalculo, TheSimFeeOfAnExportHasItsOwnName) {
    item(1);
    fila(1, "501", {{"pgc", "'G'"}});
    const ResultadoRecalculo r = recalcular();
    EXPECT_EQ(r.totalP, 10) << "to pay, whatever the row says";
    EXPECT_EQ(r.totalG, 0);
    EXPECT_EQ(r.grilla.at(0).concepto.toStdString(), "ARANCEL SIM EXPO");
    EXPECT_EQ(f("select concepto,valor,pgc from liqcero where idconcepto = '501'"), "ARANCEL SIM EXPO|10|P");
}

TEST_P(Recalculo, TheGridShowsTheCataloguesNameOfTheFeeAndTheTotalsTheirOwn) {
    catalogo();
    item(1);
    filas(1, {"500"});
    EXPECT_EQ(recalcular().grilla.at(0).concepto.toStdString(), "ARANCEL DEL CATALOGO");
    EXPECT_EQ(f("select concepto from liqcero where idconcepto = '500'"), "ARANCEL SIM IMPO");
}

TEST_P(Recalculo, ARowWithTotalZeroStandsInNeitherGridNorTotalsButStays) {
    item(1);
    filas(1, {"059", "900"});
    const ResultadoRecalculo r = recalcular(true);
    EXPECT_TRUE(r.grilla.empty());
    EXPECT_EQ(totales().find("059"), std::string::npos);
    EXPECT_EQ(liq(1), "059|0|0|0|P\n900|0|1110|0|P") << "without 010 and 011 rows the IVA base is 1110";
    EXPECT_TRUE(LeerLiquidacionDeItem(*ctx, L(clave), u"1"_s).empty());
}

TEST_P(Recalculo, PaymentKindsHaveTheirOwnTotals) {
    item(1);
    fila(1, "010", {{"pgc", "'G'"}});
    fila(1, "041", {{"pgc", "'C'"}});
    fila(1, "415", {{"pgc", "null"}});
    const ResultadoRecalculo r = recalcular();
    EXPECT_NEAR(r.totalG, 222, 1e-9);
    EXPECT_NEAR(r.totalC, 11.10, 1e-9);
    EXPECT_NEAR(r.totalP, 279.72, 1e-9) << "a null is to pay; 21 % of 1332";
    EXPECT_EQ(f("select idconcepto,concepto,pgc from liqcero where pgc is not null"),
              "010||G\n041||C\n415||P")
        << "without the catalogue the name is empty";
}

TEST_P(Recalculo, TheFirstRowOfAConceptDecidesItsPaymentKind) {
    item(1);
    item(2);
    fila(1, "010", {{"pgc", "'G'"}});
    filas(2, {"010"});
    const ResultadoRecalculo r = recalcular(true);
    EXPECT_EQ(r.totalG, 444);
    EXPECT_EQ(r.totalP, 0);
    EXPECT_EQ(liq(2), "010|20|1110|222|P") << "each row keeps its own";
}

TEST_P(Recalculo, TheConvergenceFactorHasALineOfItsOwnWithoutCatalogue) {
    item(1);
    fila(1, "FCV", {{"porcentaje", "5"}});
    const ResultadoRecalculo r = recalcular();
    ASSERT_EQ(r.grilla.size(), 1U);
    EXPECT_EQ(r.grilla[0].concepto.toStdString(), "(FCV) Factor de Convergencia");
    EXPECT_EQ(numeros::aNumero(r.grilla[0].total), 55.50);
    EXPECT_EQ(f("select concepto,valor,pgc from liqcero where idconcepto = 'FCV'"),
              "Factor de Convergencia|55.5|<null>");
    EXPECT_NEAR(r.totalP, 55.50, 1e-9);
}

TEST_P(Recalculo, TheConvergenceFactorStandsEvenAtZero) {
    item(1);
    filas(1, {"FCV"});
    EXPECT_EQ(recalcular().grilla.size(), 1U);
    EXPECT_EQ(f("select valor from liqcero where idconcepto = 'FCV'"), "0");
}

TEST_P(Recalculo, TheConvergenceFactorOfTheCatalogueIsAConceptLikeAnyOther) {
    insertar(u"tax"_s, {{"ctax", "'FCV'"}, {"ltaxabr", "'CONVERGENCIA'"}});
    item(1);
    fila(1, "FCV", {{"porcentaje", "5"}});
    EXPECT_EQ(recalcular().grilla.at(0).concepto.toStdString(), "CONVERGENCIA");
    EXPECT_EQ(f("select concepto,valor,pgc from liqcero where idconcepto = 'FCV'"), "CONVERGENCIA|55.5|P");
}

TEST_P(Recalculo, ANameWithAnApostropheReachesTheTotals) {
    insertar(u"tax"_s, {{"ctax", "'010'"}, {"ltaxabr", "'D''ERECHOS'"}});
    item(1);
    filas(1, {"010"});
    recalcular();
    EXPECT_EQ(f("select concepto from liqcero where idconcepto = '010'"), "D'ERECHOS");
}

TEST_P(Recalculo, OtherOperationsAreLeftAlone) {
    item(1);
    filas(1, {"010"});
    insertar(u"itemliq"_s, {{"interno", "'OP2'"}, {"iditem", "1"}, {"idconceptos", "'010'"}, {"total", "7"}});
    insertar(u"liqcero"_s, {{"interno", "'OP2'"}, {"idconcepto", "'010'"}, {"valor", "7"}});
    recalcular(true);
    EXPECT_EQ(f("select total,porcentaje from itemliq where interno = 'OP2'"), "7|<null>");
    EXPECT_EQ(f("select idconcepto,valor from liqcero where interno = 'OP2'"), "010|7");
}

// The pending flag

TEST_P(Recalculo, WithThePendingFlagClearAChangedRateChangesTheTotalsButNoRow) {
    item(1);
    filas(1, {"010", "415"});
    recalcular();
    EXPECT_EQ(f("select valor from liqcero where idconcepto = '010'"), "222");
    const std::string antes = liq(1);
    EXPECT_EQ(antes, "010|<null>|<null>|<null>|P\n415|<null>|<null>|<null>|P");
    ejecutar(u"update ncm set [015] = '10'"_s, u"NCM"_s);
    const ResultadoRecalculo r = recalcular();
    EXPECT_EQ(f("select valor from liqcero where idconcepto = '010'"), "111");
    EXPECT_FALSE(r.escrito);
    EXPECT_EQ(liq(1), antes);
    EXPECT_TRUE(estados.isEmpty());
}

TEST_P(Recalculo, WithThePendingFlagEveryRowIsWrittenAndTheFlagGoes) {
    item(1);
    item(2);
    for (const int id : {1, 2}) filas(id, {"010", "415"});
    const ResultadoRecalculo r = recalcular(true);
    EXPECT_TRUE(r.escrito);
    EXPECT_FALSE(ctx->LiquidacionPendiente);
    // Without an 011 row no statistics: an IVA base of 1332, 21 % of it 279.72.
    for (const int id : {1, 2}) EXPECT_EQ(liq(id), "010|20|1110|222|P\n415|21|1332|279.72|P");
    EXPECT_EQ(
        estados.join(QLatin1Char(';')).toStdString(),
        "Liquidando ITEM 1 ...;Liquidando ITEM 1 ...;Liquidando ITEM 2 ...;Liquidando ITEM 2 ...;LISTO");
}

TEST_P(Recalculo, TheScreenIsLetInOnceBeforeTheWritingAndThePointerComesBack) {
    item(1);
    item(2);
    for (const int id : {1, 2}) filas(id, {"010", "011"});
    int veces = 0;
    std::string escritoAntes;
    QList<bool> puntero;
    ctx->dialogos.atenderEventos = [&] {
        ++veces;
        escritoAntes = liq(1);
    };
    ctx->dialogos.reloj = [&](bool activo) { puntero << activo; };
    recalcular(false);
    EXPECT_EQ(veces, 0);
    recalcular(true);
    EXPECT_EQ(veces, 1);
    EXPECT_EQ(escritoAntes, "010|<null>|<null>|<null>|P\n011|<null>|<null>|<null>|P");
    EXPECT_EQ(puntero, (QList<bool>{true, false, true, false}));
}

TEST_P(Recalculo, AWrittenLiquidationOfWholeCentsRunsAgainToTheSameFigures) {
    caratula({{"idsubreg", "'IT14'"}});
    insertar(u"sysflag"_s, {{"interno", "'OP1'"}, {"flag", "'D1330/04A7'"}, {"valor", "'S'"}, {"item", "0"}});
    item(1, {{"fobtotal", "1234.57"}});
    filas(1, {"010", "011", "015", "016", "041", "061", "415", "422", "424", "500", "520", "900"});
    recalcular(true);
    const std::string una = liq(1);
    const std::string sumas = totales();
    EXPECT_NE(una.find("016|48|"), std::string::npos);
    recalcular(true);
    EXPECT_EQ(liq(1), una);
    EXPECT_EQ(totales(), sumas);
}

TEST_P(Recalculo, TheRefundsMarkTheLiquidationAndSoWriteIt) {
    caratula({{"idsubreg", "'EC01'"}});
    item(1);
    filas(1, {"601"});
    const ResultadoRecalculo r = recalcular(false);
    EXPECT_TRUE(r.escrito);
    EXPECT_FALSE(ctx->LiquidacionPendiente);
    EXPECT_EQ(liq(1), "601|5|1000|50|P");
}

TEST_P(Recalculo, AFailingStatementRaisesAndLeavesTheStepsDone) {
    item(1);
    filas(1, {"010"});
    // At 0 it takes no part in the totals, so that only its own writing fails.
    fila(1, "032", {{"pgc", "'G'''"}});
    EXPECT_THROW(recalcular(true), Falla);
    EXPECT_EQ(liq(1), "010|20|1110|222|P\n032|<null>|<null>|<null>|G'");
    EXPECT_EQ(f("select valor from liqcero where idconcepto = '010'"), "222");
    EXPECT_TRUE(ctx->LiquidacionPendiente) << "the writing did not end";
}

// Percentages fixed by hand

TEST_P(Recalculo, APercentageFixedByHandRunsOnTheRowsOwnBaseAndStays) {
    item(1);
    fila(1, "010", {{"porcentaje", "12"}, {"baseimp", "500"}});
    fila(1, "415", {{"porcentaje", "10.5"}, {"baseimp", "700"}});
    recalcular(true);
    EXPECT_EQ(liq(1), "010|12|500|60|P\n415|10.5|700|73.5|P");
    // The duty enters the IVA base at its rate on the item's own base: 1110 + 133.20.
    EXPECT_EQ(f("select valor from liqcero where idconcepto = '###baseiva'"), "1243.2");
}

TEST_P(Recalculo, APercentageWithoutABaseRunsOnTheSystems) {
    item(1);
    fila(1, "010", {{"porcentaje", "12"}});
    fila(1, "900", {{"porcentaje", "2.5"}, {"baseimp", "0"}});
    recalcular(true);
    EXPECT_EQ(liq(1), "010|12|1110|133.2|P\n900|2.5|1243.2|31.08|P");
}

TEST_P(Recalculo, AClearedPercentageReturnsToTheSystem) {
    item(1);
    fila(1, "010", {{"porcentaje", "0"}, {"baseimp", "500"}});
    fila(1, "011", {{"porcentaje", "null"}, {"baseimp", "500"}});
    recalcular(true);
    EXPECT_EQ(liq(1), "010|20|1110|222|P\n011|3|1110|33.3|P");
}

TEST_P(Recalculo, TheFiveTaxesWithTheirOwnRateTakeAZeroAsItStands) {
    // "Vacio" would give income tax its 3 %; a 0 in the row is a rate of 0.
    item(1);
    fila(1, "424", {{"porcentaje", "0"}});
    recalcular(true);
    EXPECT_EQ(liq(1), "424|0|1110|0|P");
    ejecutar(u"update itemliq set porcentaje = null"_s);
    recalcular(true);
    EXPECT_EQ(liq(1), "424|3|1110|33.3|P");
}

TEST_P(Recalculo, AdditionalIvaByTheExemptionOfThePosition) {
    // The percentages stand in the row: the first for general goods, the second for reduced ones.
    struct Caso {
        const char *marca, *esperado;
    };
    // IVA base 1110: no 010 and no 011 row.
    for (const auto &[marca, esperado] :
         {Caso{"'2'", "415|21|1110|233.1|P\n422|20|1110|222|P"},
          Caso{"'1'", "415|10.5|1110|116.55|P\n422|10|1110|111|P"},
          Caso{"'0'", "415|0|1110|0|P\n422|0|1110|0|P"}, Caso{"''", "415|0|1110|0|P\n422|0|1110|0|P"},
          Caso{"null", "415|0|1110|0|P\n422|0|1110|0|P"},
          Caso{"'3'", "415|21|1110|233.1|P\n422|20|1110|222|P"}}) {
        ejecutar(u"delete from itemliq"_s);
        ejecutar(u"delete from item"_s);
        ejecutar(u"update ncm set [048] = "_s + L(marca), u"NCM"_s);
        item(1);
        fila(1, "415");
        fila(1, "422", {{"porcentaje", "20"}, {"porcentajeb", "10"}});
        recalcular(true);
        EXPECT_EQ(liq(1), esperado) << marca;
    }
}

// Mercosur

TEST_P(Recalculo, AMercosurItemKeepsThePercentageOfItsIncomeTaxAndLosesItsDuty) {
    item(1, {{"lista", "'Mercosur'"}});
    fila(1, "010", {{"porcentaje", "12"}});
    fila(1, "011", {{"porcentaje", "0"}});
    fila(1, "422", {{"porcentaje", "20"}});
    fila(1, "424", {{"porcentaje", "6"}});
    fila(1, "415", {{"porcentaje", "10.5"}, {"baseimp", "500"}});
    recalcular(true);
    // 415 takes the default road with its own percentage, but the base is the system's: 10.5 % of 1110.
    EXPECT_EQ(liq(1),
              "010|0|0|0|P\n"
              "011|0|0|0|P\n"
              "415|10.5|1110|116.55|P\n"
              "422|20|1110|222|P\n"
              "424|6|1110|66.6|P");
}

TEST_P(Recalculo, AMercosurDutyIsZeroWhateverItsRowHolds) {
    for (const auto &[porcentaje, base] :
         {std::pair{"12", "500"}, std::pair{"12", "0"}, std::pair{"0", "500"}, std::pair{"null", "null"}}) {
        ejecutar(u"delete from itemliq"_s);
        ejecutar(u"delete from item"_s);
        item(1, {{"lista", "'MERCOSUR'"}});
        fila(1, "010", {{"porcentaje", L(porcentaje)}, {"baseimp", L(base)}});
        recalcular(true);
        EXPECT_EQ(liq(1), "010|0|0|0|P") << porcentaje << " " << base;
        EXPECT_EQ(f("select valor from liqcero where idconcepto = '###baseiva'"), "1110");
    }
}

// Separators and order

class RecalculoConComa : public Recalculo {
 protected:
    void SetUp() override {
        Recalculo::SetUp();
        ctx->SeparadorDecimal = QLatin1Char(',');
    }
};
EN_AMBOS_STORES(RecalculoConComa);

TEST_P(RecalculoConComa, TheStoresGetAPointAndTheScreenAComma) {
    caratula({{"idsubreg", "'EC01'"}});
    ctx->CalcularCoeficiente = true;
    item(1, {{"fobtotal", "1000.5"}});
    fila(1, "020");
    ResultadoRecalculo r;
    const QStringList escrituras = sentenciasDe("update", [&] { r = recalcular(true); });
    // 1 / 1.1 = 0.90909; 1000.5 * 0.90909 = 909.544545; 10 % 90.95
    EXPECT_EQ(escrituras.join(QLatin1Char('\n')).toStdString(),
              "update item set COFEXP = 0.90909 where interno = 'OP1' and id = 1\n"
              "update itemliq set baseimp = 909.54,porcentaje = 10.00,total = 90.95,pgc = 'P',"
              "motivo = '' "
              "where interno = 'OP1'   and iditem = 1  and idconceptos = '020'");
    EXPECT_EQ(r.grilla.at(0).total.toStdString(), "90,95");
    EXPECT_EQ(r.detalle.at(0).base.toStdString(), "909,54");
    const auto guardadas = LeerLiquidacionDeItem(*ctx, L(clave), u"1"_s);
    ASSERT_EQ(guardadas.size(), 1U);
    EXPECT_EQ(guardadas[0].porcentaje.toStdString(), "10,00");
    EXPECT_EQ(guardadas[0].base.toStdString(), "909,54");
    EXPECT_EQ(guardadas[0].total.toStdString(), "90,95");
}

TEST_P(Recalculo, TheStatementsOfARunComeInTheirOrder) {
    catalogo();
    item(1);
    filas(1, {"010", "500"});
    QStringList todas = sentenciasDe("", [&] { recalcular(true); });
    QStringList esperadas{
        "select * from caratula where interno = 'OP1'",
        "select sum(fob) as total from groupsubitems where interno = 'OP1'",
        "select sum(fobtotal) as total from item where interno = 'OP1' and tipoitem <> 'G'",
        "select flag,valor from sysflag where interno = 'OP1'",
        "select * from item where interno = 'OP1' and id<>0",
        "select SUM(fobtotal) as vfob,sum(itflete) as flete,sum(itseguro) as seguro "
        "from item "
        "where interno = 'OP1' and id = 1",
        "select [015],[016],[017],[018],[019],[020],[023],[026],[028],[053],[048],"
        "[059] as lapi "
        "from ncm "
        "where [001] = '7318.15.00' and [002] = '100'",
        "select porcentaje from itemliq where idconceptos = '010' and interno = 'OP1' and iditem = 1",
        "select porcentaje from itemliq where idconceptos = '011' and interno = 'OP1' and iditem = 1",
        "select decreto, tasa_nominal from impuestos_internos where ncm = '7318.15.00.100A'",
        "select diem from DIEMCHINA where ncm = '7318.15.00'",
        "select * from itemliq where iditem> 0 and interno = 'OP1' and iditem = 1 ORDER BY idconceptos",
        "delete from liqcero where interno = 'OP1'",
        "select LTAXABR as descripcion from tax where ctax = '010'",
        "insert into liqcero (idconcepto,concepto,valor,interno,pgc) "
        "values ('010','DERECHOS',222.00,'OP1','P')",
        "select LTAXABR as descripcion from tax where ctax = '500'",
        "insert into liqcero (idconcepto,concepto,valor,interno,pgc) "
        "values ('500','ARANCEL SIM IMPO',10,'OP1','P')",
        "insert into liqcero (idconcepto,valor,interno) values ('###baseiva',1332,'OP1')",
        "insert into liqcero (idconcepto,valor,interno) values ('###baseimp',1110,'OP1')",
        "insert into liqcero (idconcepto,valor,interno) values ('###ajded',0,'OP1')",
        "insert into liqcero (idconcepto,valor,interno) values ('###ajinc',0,'OP1')",
        "update itemliq set baseimp = 1110.00,porcentaje = 20.00,total = 222.00,pgc = 'P',"
        "motivo = '' "
        "where interno = 'OP1'   and iditem = 1  and idconceptos = '010'",
        "update itemliq set baseimp = 00.00,porcentaje = 00.00,total = 00.00,pgc = 'P',"
        "motivo = '' "
        "where interno = 'OP1'   and iditem = 1  and idconceptos = '500'"};
    if (QLatin1String(GetParam()) == "SQL"_L1) {
        // A server is asked ahead for what the items and the totals read; every write keeps its place.
        const auto escrituras = [](const QStringList &sentencias) {
            return sentencias.filter(QRegularExpression(u"^(insert|update|delete)"_s)).join(u'\n');
        };
        EXPECT_EQ(escrituras(todas).toStdString(), escrituras(esperadas).toStdString());
        todas.sort();
        esperadas.sort();
    }
    EXPECT_EQ(todas.join(u'\n').toStdString(), esperadas.join(u'\n').toStdString());
}

}  // namespace
