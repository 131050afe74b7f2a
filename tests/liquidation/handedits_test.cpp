// The round of hand edits: what a person fixed in an item stays through the recalculation, what was not fixed
// follows the rates.

#include "liquidation/conceptedit.h"
#include "tests/liquidation/operacion.h"

using namespace Qt::StringLiterals;

namespace {

/// An item of 1110 to tax, whose liquidation was never written: no row has a percentage. At the rates of the
/// day, 20 % of duty and 3 % of statistics, the duty is 222.00, the statistics 33.30, the IVA base 1365.30,
/// IVA 286.71 and the income tax 40.96. When the hand is done the rates fall to 10 % and 2 %.
class RondaAMano : public OperacionDePrueba {
 public:
    void cambiar(const char *codigo, const ConceptoEditado &a) {
        ctx->LiquidacionPendiente = false;
        EXPECT_TRUE(PF_Modificar(*ctx, u"OP1"_s, u"1"_s, QLatin1String(codigo), a).ok);
        EXPECT_TRUE(ctx->LiquidacionPendiente);
    }
    void agregar(const ConceptoEditado &nuevo) {
        ctx->LiquidacionPendiente = false;
        EXPECT_TRUE(PF_Guardar(*ctx, u"OP1"_s, u"1"_s, nuevo).ok);
        EXPECT_TRUE(ctx->LiquidacionPendiente);
    }
    void quitar(const char *codigo) {
        ctx->LiquidacionPendiente = false;
        EXPECT_TRUE(EliminarConcepto(*ctx, u"OP1"_s, u"1"_s, QLatin1String(codigo)));
        EXPECT_TRUE(ctx->LiquidacionPendiente);
    }
    /// What the save of an item does with its list.
    void lista(const char *nueva) {
        const QString texto = QLatin1String(nueva);
        ejecutar(u"update item set lista = '%1' where id = 1 and interno = 'OP1'"_s.arg(texto));
        ejecutar(texto == "MERCOSUR"_L1
                     ? u"update itemliq set porcentaje = 0, total= '0' where interno = 'OP1' "
                       "and idconceptos in ('020','010','015','011') and iditem = 1"_s
                     : u"update itemliq set porcentaje = NULL where porcentaje = 0 and interno = 'OP1' "
                       "and idconceptos in ('020','010','015','011') and iditem = 1"_s);
    }
    void mineria(bool tildada) {
        ejecutar(u"update item set Mineria = '%1' where id = 1 and interno = 'OP1'"_s.arg(
            QLatin1String(tildada ? "S" : "N")));
    }
    void ajustes(const char *incluir, const char *deducir) {
        ejecutar(u"update item set ajusteinc = %1, ajusteded = %2 where id = 1 and interno = 'OP1'"_s.arg(
            QLatin1String(incluir), QLatin1String(deducir)));
    }
    void regimen(const char *subregimen) {
        caratula({{"idsubreg", QStringLiteral("'%1'").arg(QLatin1String(subregimen))}});
    }
    void tasas(const char *derecho, const char *estadistica) {
        ejecutar(u"update ncm set [015] = '%1', [016] = '%2'"_s.arg(QLatin1String(derecho),
                                                                    QLatin1String(estadistica)),
                 u"NCM"_s);
    }
    void correr() { recalcular(true); }

 protected:
    void empezar() {
        for (const char *tabla : {"itemliq", "item"}) ejecutar("delete from "_L1 + QLatin1String(tabla));
        regimen("IC01");
        tasas("20", "3");
        ejecutar(u"update ncm set [048] = '2'"_s, u"NCM"_s);
        item(1);
        filas(1, {"010", "011", "032", "415", "424", "500"});
    }
};
EN_AMBOS_STORES(RondaAMano);

ConceptoEditado derechosAMano(const char *porcentaje, const char *base, const char *total) {
    return {
        u"010"_s, u"DERECHOS"_s, u"P"_s, QLatin1String(porcentaje), QLatin1String(base), QLatin1String(total),
        {}};
}
ConceptoEditado otroConcepto(const char *codigo, const char *porcentaje, const char *base,
                             const char *total) {
    ConceptoEditado c = derechosAMano(porcentaje, base, total);
    c.codigo = QLatin1String(codigo);
    c.descripcion = u"OTRO"_s;
    return c;
}
ConceptoEditado garantizadoAMano(ConceptoEditado c) {
    c.pgc = u"G"_s;
    c.motivo = u"01"_s;
    return c;
}

struct Ronda {
    const char *nombre;
    void (*mano)(RondaAMano &r);
    const char *filas;  ///< "concepto|porcentaje|baseimp|total|pgc" a row, once the rates fell
    double pagar, garantizar;
};

// The fee of 10.00 is in every amount to pay.
const Ronda rondas[] = {
    // IVA base 1110 + 111 + 22.20 = 1243.20: IVA 261.072, income tax 37.296.
    {"nothing by hand: all follows the rates", [](RondaAMano &) {},
     "010|10|1110|111|P\n"
     "011|2|1110|22.2|P\n"
     "032|0|0|0|P\n"
     "415|21|1243.2|261.07|P\n"
     "424|3|1243.2|37.3|P\n"
     "500|0|0|0|P",
     441.57, 0},

    // 12 % of 1110 is 133.20; it enters the IVA base: 1110 + 133.20 + 22.20 = 1265.40, of which 21 % are
    // 265.734 and 3 % 37.962.
    {"a percentage stays on its base, and what hangs on it goes with it",
     [](RondaAMano &r) { r.cambiar("010", derechosAMano("12", "1110", "133,20")); },
     "010|12|1110|133.2|P\n"
     "011|2|1110|22.2|P\n"
     "032|0|0|0|P\n"
     "415|21|1265.4|265.73|P\n"
     "424|3|1265.4|37.96|P\n"
     "500|0|0|0|P",
     469.09, 0},

    // 5 % of 1110 is 55.50; IVA base 1110 + 111 + 55.50 = 1276.50: 268.065 and 38.295, halves away from zero.
    {"the statistics rate as well",
     [](RondaAMano &r) { r.cambiar("011", otroConcepto("011", "5", "1110", "55,50")); },
     "010|10|1110|111|P\n"
     "011|5|1110|55.5|P\n"
     "032|0|0|0|P\n"
     "415|21|1276.5|268.07|P\n"
     "424|3|1276.5|38.3|P\n"
     "500|0|0|0|P",
     482.87, 0},

    {"a base stays with its percentage",
     [](RondaAMano &r) { r.cambiar("415", otroConcepto("415", "21", "500", "105")); },
     "010|10|1110|111|P\n"
     "011|2|1110|22.2|P\n"
     "032|0|0|0|P\n"
     "415|21|500|105|P\n"
     "424|3|1243.2|37.3|P\n"
     "500|0|0|0|P",
     285.50, 0},

    // 3 % of 1000, whatever was typed beside it.
    {"a total typed by hand gives way to its percentage and base",
     [](RondaAMano &r) { r.cambiar("424", otroConcepto("424", "3", "1000", "99")); },
     "010|10|1110|111|P\n"
     "011|2|1110|22.2|P\n"
     "032|0|0|0|P\n"
     "415|21|1243.2|261.07|P\n"
     "424|3|1000|30|P\n"
     "500|0|0|0|P",
     434.27, 0},

    {"a total over a percentage of 0 goes back to the rates",
     [](RondaAMano &r) { r.cambiar("010", derechosAMano("0", "500", "70")); },
     "010|10|1110|111|P\n"
     "011|2|1110|22.2|P\n"
     "032|0|0|0|P\n"
     "415|21|1243.2|261.07|P\n"
     "424|3|1243.2|37.3|P\n"
     "500|0|0|0|P",
     441.57, 0},

    {"but income tax takes the 0 as its rate",
     [](RondaAMano &r) { r.cambiar("424", otroConcepto("424", "0", "0", "99")); },
     "010|10|1110|111|P\n"
     "011|2|1110|22.2|P\n"
     "032|0|0|0|P\n"
     "415|21|1243.2|261.07|P\n"
     "424|0|1243.2|0|P\n"
     "500|0|0|0|P",
     404.27, 0},

    // The duty of 222.00 stays fixed with its obligation: 1110 + 222 + 22.20 = 1354.20, 284.382 and 40.626.
    {"an obligation moves its amount to what is guaranteed",
     [](RondaAMano &r) { r.cambiar("010", garantizadoAMano(derechosAMano("20", "1110", "222"))); },
     "010|20|1110|222|G\n"
     "011|2|1110|22.2|P\n"
     "032|0|0|0|P\n"
     "415|21|1354.2|284.38|P\n"
     "424|3|1354.2|40.63|P\n"
     "500|0|0|0|P",
     357.21, 222},

    // Neither duty nor statistics: 21 % and 3 % of 1110.
    {"the list MERCOSUR takes the duty away, fixed or not",
     [](RondaAMano &r) {
         r.cambiar("010", derechosAMano("12", "1110", "133,20"));
         r.lista("MERCOSUR");
     },
     "010|0|0|0|P\n"
     "011|0|0|0|P\n"
     "032|0|0|0|P\n"
     "415|21|1110|233.1|P\n"
     "424|3|1110|33.3|P\n"
     "500|0|0|0|P",
     276.40, 0},

    {"MERCOSUR and back: what it zeroed follows the rates",
     [](RondaAMano &r) {
         r.cambiar("010", derechosAMano("12", "1110", "133,20"));
         r.lista("MERCOSUR");
         r.lista("");
     },
     "010|10|1110|111|P\n"
     "011|2|1110|22.2|P\n"
     "032|0|0|0|P\n"
     "415|21|1243.2|261.07|P\n"
     "424|3|1243.2|37.3|P\n"
     "500|0|0|0|P",
     441.57, 0},

    // 15 % of 1110 is 166.50; IVA base 1298.70: 272.727 and 38.961.
    {"a percentage typed under MERCOSUR stays when the list goes back",
     [](RondaAMano &r) {
         r.lista("MERCOSUR");
         r.cambiar("010", derechosAMano("15", "1110", "166,50"));
         r.lista("");
     },
     "010|15|1110|166.5|P\n"
     "011|2|1110|22.2|P\n"
     "032|0|0|0|P\n"
     "415|21|1298.7|272.73|P\n"
     "424|3|1298.7|38.96|P\n"
     "500|0|0|0|P",
     510.39, 0},

    // The run that was written fixed IVA and income tax on 1110.
    {"MERCOSUR, written, and back: only what stood at 0 follows the rates",
     [](RondaAMano &r) {
         r.lista("MERCOSUR");
         r.correr();
         r.lista("");
     },
     "010|10|1110|111|P\n"
     "011|2|1110|22.2|P\n"
     "032|0|0|0|P\n"
     "415|21|1110|233.1|P\n"
     "424|3|1110|33.3|P\n"
     "500|0|0|0|P",
     409.60, 0},

    // 1 % of 1110 in place of duty and statistics: IVA base 1121.10, 235.431 and 33.633.
    {"the mining box outranks a duty fixed by hand",
     [](RondaAMano &r) {
         r.cambiar("010", derechosAMano("12", "1110", "133,20"));
         r.mineria(true);
     },
     "010|0|0|0|P\n"
     "011|0|0|0|P\n"
     "032|1|1110|11.1|P\n"
     "415|21|1121.1|235.43|P\n"
     "424|3|1121.1|33.63|P\n"
     "500|0|0|0|P",
     290.16, 0},

    {"the mining box unticked: duty and statistics return, what was written stays",
     [](RondaAMano &r) {
         r.mineria(true);
         r.correr();
         r.mineria(false);
     },
     "010|10|1110|111|P\n"
     "011|2|1110|22.2|P\n"
     "032|0|0|0|P\n"
     "415|21|1121.1|235.43|P\n"
     "424|3|1121.1|33.63|P\n"
     "500|0|0|0|P",
     412.26, 0},

    // 1110 + 90 = 1200: 120.00 and 24.00, IVA base 1344: 282.24 and 40.32.
    {"an adjustment that is added moves every base", [](RondaAMano &r) { r.ajustes("90", "0"); },
     "010|10|1200|120|P\n"
     "011|2|1200|24|P\n"
     "032|0|0|0|P\n"
     "415|21|1344|282.24|P\n"
     "424|3|1344|40.32|P\n"
     "500|0|0|0|P",
     476.56, 0},

    // 1110 - 110 = 1000. The duty fixed on 1110 stays at 133.20; in the IVA base it counts with 12 % of 1000:
    // 1000 + 120 + 20 = 1140, 239.40 and 34.20.
    {"an adjustment that is deducted leaves the base fixed by hand",
     [](RondaAMano &r) {
         r.cambiar("010", derechosAMano("12", "1110", "133,20"));
         r.ajustes("0", "110");
     },
     "010|12|1110|133.2|P\n"
     "011|2|1000|20|P\n"
     "032|0|0|0|P\n"
     "415|21|1140|239.4|P\n"
     "424|3|1140|34.2|P\n"
     "500|0|0|0|P",
     436.80, 0},

    // 5 % of 300.
    {"a concept that was added stays on its own figures",
     [](RondaAMano &r) { r.agregar(garantizadoAMano(otroConcepto("065", "5", "300", "15"))); },
     "010|10|1110|111|P\n"
     "011|2|1110|22.2|P\n"
     "032|0|0|0|P\n"
     "065|5|300|15|G\n"
     "415|21|1243.2|261.07|P\n"
     "424|3|1243.2|37.3|P\n"
     "500|0|0|0|P",
     441.57, 15},

    {"a fixed fee is what it is", [](RondaAMano &r) { r.agregar(otroConcepto("520", "10", "500", "50")); },
     "010|10|1110|111|P\n"
     "011|2|1110|22.2|P\n"
     "032|0|0|0|P\n"
     "415|21|1243.2|261.07|P\n"
     "424|3|1243.2|37.3|P\n"
     "500|0|0|0|P\n"
     "520|100|22.14|22.14|P",
     463.71, 0},

    // The second percentage took the first one's value, so that reduced goods find it: 20 % of 1000. IVA at
    // 10.5 % of 1243.20 is 130.536.
    {"additional IVA by hand holds for reduced goods too",
     [](RondaAMano &r) {
         r.agregar(otroConcepto("422", "20", "1000", "200"));
         Ejecutar(Contexto(), u"NCM"_s, u"update ncm set [048] = '1'"_s);
     },
     "010|10|1110|111|P\n"
     "011|2|1110|22.2|P\n"
     "032|0|0|0|P\n"
     "415|10.5|1243.2|130.54|P\n"
     "422|20|1000|200|P\n"
     "424|3|1243.2|37.3|P\n"
     "500|0|0|0|P",
     511.04, 0},

    // The hand mark makes 10 % the additional rate: IVA base 1243.20 + 111 = 1354.20.
    {"an additional rate by hand enters the IVA base of an IC81",
     [](RondaAMano &r) {
         r.regimen("IC81");
         r.agregar(otroConcepto("016", "10", "1110", "111"));
     },
     "010|10|1110|111|P\n"
     "011|2|1110|22.2|P\n"
     "016|10|1110|111|P\n"
     "032|0|0|0|P\n"
     "415|21|1354.2|284.38|P\n"
     "424|3|1354.2|40.63|P\n"
     "500|0|0|0|P",
     579.21, 0},

    {"elsewhere it is a row like another",
     [](RondaAMano &r) { r.agregar(otroConcepto("016", "10", "1110", "111")); },
     "010|10|1110|111|P\n"
     "011|2|1110|22.2|P\n"
     "016|10|1110|111|P\n"
     "032|0|0|0|P\n"
     "415|21|1243.2|261.07|P\n"
     "424|3|1243.2|37.3|P\n"
     "500|0|0|0|P",
     552.57, 0},

    // No statistics without its row: IVA base 1221, 256.41 and 36.63.
    {"a concept that was removed takes its part of the base along", [](RondaAMano &r) { r.quitar("011"); },
     "010|10|1110|111|P\n"
     "032|0|0|0|P\n"
     "415|21|1221|256.41|P\n"
     "424|3|1221|36.63|P\n"
     "500|0|0|0|P",
     414.04, 0},

    {"a row that was made another concept's runs as that one",
     [](RondaAMano &r) { r.cambiar("424", otroConcepto("900", "2,5", "1000", "25")); },
     "010|10|1110|111|P\n"
     "011|2|1110|22.2|P\n"
     "032|0|0|0|P\n"
     "415|21|1243.2|261.07|P\n"
     "500|0|0|0|P\n"
     "900|2.5|1000|25|P",
     429.27, 0},
};

TEST_P(RondaAMano, WhatTheHandFixedStaysAndTheRestFollowsTheRates) {
    for (const Ronda &ronda : rondas) {
        SCOPED_TRACE(ronda.nombre);
        empezar();
        ronda.mano(*this);
        tasas("10", "2");
        const ResultadoRecalculo r = recalcular(true);
        EXPECT_EQ(liq(1), ronda.filas);
        EXPECT_NEAR(r.totalP, ronda.pagar, 1e-9);
        EXPECT_NEAR(r.totalG, ronda.garantizar, 1e-9);
        EXPECT_EQ(r.totalC, 0);
        EXPECT_FALSE(ctx->LiquidacionPendiente);
        // A written liquidation has its percentages: later rates pass it by.
        tasas("40", "1");
        recalcular(true);
        EXPECT_EQ(liq(1), ronda.filas) << "after the rates rose";
    }
}

TEST_P(RondaAMano, AReasonStaysWithItsObligation) {
    empezar();
    cambiar("010", garantizadoAMano(derechosAMano("20", "1110", "222")));
    recalcular(true);
    EXPECT_EQ(f("select pgc,motivo from itemliq where idconceptos = '010'"), "G|01");
    EXPECT_EQ(f("select valor,pgc from liqcero where idconcepto = '010'"), "222|G");
    cambiar("010", derechosAMano("20", "1110", "222"));
    recalcular(true);
    EXPECT_EQ(f("select pgc,motivo from itemliq where idconceptos = '010'"), "P|");
    EXPECT_EQ(f("select valor,pgc from liqcero where idconcepto = '010'"), "222|P");
}

TEST_P(RondaAMano, AddingAConceptWhoseRowStandsAtZeroFixesThatRow) {
    empezar();
    recalcular(true);
    EXPECT_EQ(f("select total,valor from itemliq where idconceptos = '032'"), "0|0");
    agregar(otroConcepto("032", "4", "200", "8"));
    EXPECT_EQ(f("select count(*) from itemliq where idconceptos = '032'"), "1");
    EXPECT_EQ(f("select porcentaje,baseimp,total,valor from itemliq where idconceptos = '032'"), "4|200|8|1");
    // Without the mining box the concept answers 0 whatever its row holds.
    recalcular(true);
    EXPECT_EQ(f("select porcentaje,baseimp,total,valor from itemliq where idconceptos = '032'"), "0|0|0|1");
}

}  // namespace
