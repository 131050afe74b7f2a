// What a written liquidation is to the run behind it. The writing leaves every base and percentage with two
// decimals in its row, and a row with a percentage is one that was fixed: the second run goes over what
// stands there, the first went over the item. Figures may move there, once; from the second run on they rest.

#include <array>
#include <vector>

#include "tests/liquidation/operacion.h"

using namespace Qt::StringLiterals;

namespace {

class SegundoRecalculo : public OperacionDePrueba {
 protected:
    /// The rows of an item after each of three written runs.
    std::array<std::string, 3> tresVeces(int id) {
        std::array<std::string, 3> escritas;
        for (std::string &una : escritas) {
            aPagar.push_back(recalcular(true).totalP);
            una = liq(id);
        }
        return escritas;
    }
    std::vector<double> aPagar;  ///< a run
};
EN_AMBOS_STORES(SegundoRecalculo);

/// FOB at 1.085 and insurance at 1.27, so that bases have more than two decimals.
const Fila cambiosFinos{{"fobdivcambio", "1.085"}, {"fletedivcambio", "1"}, {"segurodivcambio", "1.27"}};

TEST_P(SegundoRecalculo, GoesOverTheBaseAsItWasWrittenSoACentGoesOnceAndNoMore) {
    caratula(cambiosFinos);
    ejecutar(u"update ncm set [015] = '16'"_s, u"NCM"_s);
    item(1, {{"fobtotal", "1640.5"}, {"itflete", "106"}, {"itseguro", "18.49"}});
    filas(1, {"010", "011", "415"});
    // 1640.50 * 1.085 + 106 + 18.49 * 1.27 = 1779.9425 + 106 + 23.4823 = 1909.4248
    // 010  16 % 305.507968    011  3 % 57.282744    IVA base 1909.4248 + 305.51 + 57.28 = 2272.2148
    // 415  21 % of 2272.2148 = 477.165108, and of the 2272.21 that is written 477.1641
    const auto [primera, segunda, tercera] = tresVeces(1);
    EXPECT_EQ(primera, "010|16|1909.42|305.51|P\n011|3|1909.42|57.28|P\n415|21|2272.21|477.17|P");
    EXPECT_EQ(segunda, "010|16|1909.42|305.51|P\n011|3|1909.42|57.28|P\n415|21|2272.21|477.16|P");
    EXPECT_EQ(tercera, segunda);
    EXPECT_EQ(f("select valor from liqcero where idconcepto = '415'"), "477.16");
    EXPECT_EQ(f("select valor from liqcero where idconcepto = '###baseiva'"), "2272.2148")
        << "the operation's own bases are never rounded";
}

TEST_P(SegundoRecalculo, TheCentMayComeAsWell) {
    caratula(cambiosFinos);
    ejecutar(u"update ncm set [015] = '14'"_s, u"NCM"_s);
    item(1, {{"fobtotal", "456"}, {"itflete", "29.46"}, {"itseguro", "5.14"}});
    filas(1, {"010"});
    // 456 * 1.085 + 29.46 + 5.14 * 1.27 = 494.76 + 29.46 + 6.5278 = 530.7478, of which 14 % are 74.304692; of
    // 530.75 they are 74.305, and halves go up.
    const auto [primera, segunda, tercera] = tresVeces(1);
    EXPECT_EQ(primera, "010|14|530.75|74.3|P");
    EXPECT_EQ(segunda, "010|14|530.75|74.31|P");
    EXPECT_EQ(tercera, segunda);
}

TEST_P(SegundoRecalculo, WithoutAWritingTheTotalsMoveAndTheRowsDoNot) {
    caratula(cambiosFinos);
    ejecutar(u"update ncm set [015] = '14'"_s, u"NCM"_s);
    item(1, {{"fobtotal", "456"}, {"itflete", "29.46"}, {"itseguro", "5.14"}});
    filas(1, {"010"});
    recalcular(true);
    recalcular(false);
    EXPECT_EQ(liq(1), "010|14|530.75|74.3|P");
    EXPECT_EQ(f("select valor from liqcero where idconcepto = '010'"), "74.31");
}

// The rate of a duty that gave way to a specific amount is written beside a total of 0. Once it stands there
// it is a duty that was fixed, and is asked for beside the amount that had taken its place.

TEST_P(SegundoRecalculo, ADutyThatGaveWayToTheCappedAmountIsAskedForBesideIt) {
    // 4 a unit of 100 units are 400, more than 20 % of 1110; the cap of 30 % makes it 333.
    ejecutar(u"update ncm set [017] = '4'"_s, u"NCM"_s);
    item(1, {{"idpais", "'101'"}, {"valorderesp", "100"}});
    filas(1, {"010", "015", "059", "415"});
    // IVA base 1110 + 333 = 1443, 21 % of it 303.03. The second time 010 is 20 % of the 1110 in its row.
    const auto [primera, segunda, tercera] = tresVeces(1);
    EXPECT_EQ(primera, "010|20|1110|0|P\n015|0|0|0|P\n059|30|1110|333|P\n415|21|1443|303.03|P");
    EXPECT_EQ(segunda, "010|20|1110|222|P\n015|0|0|0|P\n059|30|1110|333|P\n415|21|1443|303.03|P");
    EXPECT_EQ(tercera, segunda);
    EXPECT_NEAR(aPagar[0], 636.03, 1e-9) << "333 + 303.03";
    EXPECT_NEAR(aPagar[1], 858.03, 1e-9) << "222 more";
}

TEST_P(SegundoRecalculo, ADutyThatGaveWayToTheWholeSpecificAmountToo) {
    // Country 400 is not capped: the 400 stand.
    ejecutar(u"update ncm set [017] = '4'"_s, u"NCM"_s);
    item(1, {{"valorderesp", "100"}});
    filas(1, {"010", "015"});
    const auto [primera, segunda, tercera] = tresVeces(1);
    EXPECT_EQ(primera, "010|20|1110|0|P\n015|0|400|400|P");
    EXPECT_EQ(segunda, "010|20|1110|222|P\n015|0|400|400|P");
    EXPECT_EQ(tercera, segunda);
    EXPECT_NEAR(aPagar[0], 400, 1e-9);
    EXPECT_NEAR(aPagar[1], 622, 1e-9);
}

TEST_P(SegundoRecalculo, InternalTaxesFallFromTheEffectiveRateToTheNominalOneInTheirRow) {
    // Nominal 20 is effective 2000 / 80 = 25. IVA base without an 011 row: 1110 + 222 = 1332.
    struct Caso {
        const char *decreto, *primera;
    };
    // Without decree 1332 * 1.3 * 25 % = 432.90, with the decree 1332 * 25 % = 333. Then 20 % of 1332,
    // 266.40.
    for (const auto &[decreto, esperada] :
         {Caso{"SINDEC", "417|20|1332|432.9|P"}, Caso{"DEC290_00", "417|20|1332|333|P"}}) {
        SCOPED_TRACE(decreto);
        for (const char *tabla : {"itemliq", "item"}) ejecutar("delete from "_L1 + QLatin1String(tabla));
        ejecutar(u"delete from impuestos_internos"_s, u"USUARIO"_s);
        insertar(u"impuestos_internos"_s,
                 {{"ncm", "'7318.15.00.100A'"},
                  {"decreto", u"'%1'"_s.arg(QLatin1String(decreto))},
                  {"tasa_nominal", "20"}},
                 u"USUARIO"_s);
        item(1);
        filas(1, {"010", "417"});
        const auto [primera, segunda, tercera] = tresVeces(1);
        EXPECT_EQ(primera, std::string("010|20|1110|222|P\n") + esperada);
        EXPECT_EQ(segunda, "010|20|1110|222|P\n417|20|1332|266.4|P");
        EXPECT_EQ(tercera, segunda);
    }
}

TEST_P(SegundoRecalculo, AReducedPercentageOfThreeDecimalsIsKeptWithTwo) {
    item(1);
    filas(1, {"010"});
    fila(1, "422", {{"porcentaje", "5.125"}});
    // IVA base 1332: 5.125 % are 68.265, 5.13 % are 68.3316.
    const auto [primera, segunda, tercera] = tresVeces(1);
    EXPECT_EQ(primera, "010|20|1110|222|P\n422|5.13|1332|68.27|P");
    EXPECT_EQ(segunda, "010|20|1110|222|P\n422|5.13|1332|68.33|P");
    EXPECT_EQ(tercera, segunda);
}

TEST_P(SegundoRecalculo, TheExportCoefficientOfTheFirstRunIsInTheOperationsBasesFromTheSecondOn) {
    caratula({{"idsubreg", "'EC01'"}});
    ctx->CalcularCoeficiente = true;
    item(1);
    filas(1, {"020"});
    // An export duty of 10 %: 1 / 1.10 = 0.90909, base 909.09, duty 90.909. The row reduces its base itself
    // the first time; then the item brings the coefficient along.
    recalcular(true);
    EXPECT_EQ(liq(1), "020|10|909.09|90.91|P");
    EXPECT_EQ(f("select cofexp from item where id = 1"), "0.90909");
    const char *const bases = "select idconcepto,valor from liqcero where idconcepto like '###base%'";
    EXPECT_EQ(f(bases), "###baseiva|1000\n###baseimp|1000");
    for (int vez = 2; vez <= 3; ++vez) {
        recalcular(true);
        EXPECT_EQ(liq(1), "020|10|909.09|90.91|P");
        EXPECT_EQ(f(bases), "###baseiva|909.09\n###baseimp|909.09") << vez;
    }
}

}  // namespace
