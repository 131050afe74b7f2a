// The advantage VEHICULOPARTES in the course of a recalculation.

#include "liquidation/vehiculopartes.h"
#include "header/automotive.h"
#include "tests/liquidation/operacion.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

const char *const pregunta =
    "ADVERTENCIA: Hay Posiciones arancelarias con LAPI pero no pertenecen\r\n"
    "al régimen automotriz, desea agregarle igual la ventaja VEHICULOPARTES?";
const char *const aviso =
    "ADVERTENCIA: Hay posiciones con LAPI\r\n"
    "pero que no estan en el Regimen Automotriz.\r\n\r\n"
    "Verifique el subregimen del despacho.";

enum Efecto { nada, agrega, avisa, preguntaSi, preguntaNo, aMercosur };

struct CasoDeVentaja {
    const char *nombre;
    const char *regimen, *aec, *lista, *pais, *marca;
    bool lapi, quindel;
    Efecto efecto;
};

class VehiculoPartesTest : public OperacionDePrueba {
 protected:
    void responder(const char *valor) { GuardarAEC(*ctx, L(clave), L(valor)); }
    void regimen(const char *codigo) { caratula({{"idsubreg", u"'%1'"_s.arg(L(codigo))}}); }
    void posicionCon(const char *marca, bool lapi) {
        ejecutar(u"update ncm set [028] = '%1', [059] = '%2'"_s.arg(L(marca), L(lapi ? "*" : "")), u"NCM"_s);
    }
    std::string ventajas() {
        return f("select iditem,idventaja,interno from itemventaja order by interno,iditem,idventaja");
    }
};
EN_AMBOS_STORES(VehiculoPartesTest);

const CasoDeVentaja casos[] = {
    // Positions of the automotive regime
    {"ReplacementFromOutside", "IC01", "R", "", "400", "*", true, false, agrega},
    {"ReplacementWithoutLicence", "IC01", "R", "", "400", "*", false, false, nada},
    {"ReplacementFromBrazil", "IC01", "R", "", "203", "*", true, false, agrega},
    {"ReplacementOfNoCountry", "IC01", "R", "", "", "*", true, false, agrega},
    {"ProductionFromOutside", "IC01", "P", "", "400", "*", true, false, agrega},
    {"AgreementList", "IC01", "N", "314/R.AUTOMOTRIZ", "400", "*", true, false, agrega},
    {"AnotherImportOfTheFamily", "ICR5", "R", "", "400", "*", true, false, agrega},
    {"Icr1OfTheRegime", "ICR1", "R", "", "400", "*", true, false, agrega},
    // From the zone, or with another mark
    {"FromTheZoneYes", "IC01", "R", "", "225", "*", true, false, preguntaSi},
    {"FromTheZoneNo", "IC01", "R", "", "225", "*", true, false, preguntaNo},
    {"FromTheZoneWithoutLicence", "IC01", "R", "", "225", "*", false, false, nada},
    {"AnotherMarkFromOutside", "IC01", "P", "", "400", "x", true, false, preguntaSi},
    {"AnotherMarkOfNoCountry", "IC01", "P", "", "", "x", true, false, preguntaNo},
    {"NoMark", "IC01", "P", "", "400", "", true, false, nada},
    {"BlankMark", "IC01", "P", "", "400", "  ", true, false, nada},
    {"Icr3IsNotAsked", "ICR3", "P", "", "400", "x", true, false, nada},
    {"Icr1Warns", "ICR1", "P", "", "400", "x", true, false, avisa},
    {"Icr1FromTheZoneWarns", "ICR1", "R", "", "221", "*", true, false, avisa},
    {"Icr1WithoutLicence", "ICR1", "P", "", "400", "x", false, false, nada},
    {"Icr1FromBrazilWarns", "ICR1", "P", "", "203", "x", true, false, avisa},
    {"FromBrazilWithoutTheOption", "IC01", "P", "", "203", "x", true, false, nada},
    {"FromBrazilWithTheOption", "IC01", "P", "", "203", "x", true, true, aMercosur},
    {"FromBrazilWithTheOptionAndNoLicence", "IC01", "P", "", "203", "x", false, true, aMercosur},
    {"FromOutsideTheOptionDoesNothing", "IC01", "P", "", "400", "x", false, true, nada},
    // Not automotive
    {"IcrWithLicence", "ICR5", "N", "", "400", "*", true, false, agrega},
    {"IcrWithLicenceAndNoMark", "ICR5", "N", "", "400", "", true, false, agrega},
    {"Icr1WithLicence", "ICR1", "N", "", "225", "x", true, false, agrega},
    {"IcrWithoutLicence", "ICR5", "N", "", "400", "*", false, false, nada},
    {"PlainImport", "IC01", "N", "", "400", "*", true, false, nada},
    {"Export", "EC01", "R", "", "400", "*", true, false, nada},
    {"TemporaryImport", "IT01", "R", "", "400", "*", true, false, nada},
    {"Djai", "DJAI", "R", "", "400", "*", true, false, nada},
    {"Lapi", "LAPI", "R", "314/R.AUTOMOTRIZ", "400", "*", true, false, nada},
    // Never looked at
    {"Direct", "DIR1", "R", "314/R.AUTOMOTRIZ", "400", "*", true, false, nada},
    {"DirectPlain", "DIR5", "N", "", "400", "*", true, false, nada},
    {"Ida", "IDA1", "R", "", "400", "*", true, false, nada},
};

TEST_P(VehiculoPartesTest, GoesByRegimeZoneMarkAndLicence) {
    item(1);
    for (const CasoDeVentaja &k : casos) {
        SCOPED_TRACE(k.nombre);
        ejecutar(u"delete from itemventaja"_s);
        ejecutar(u"update item set lista = '%1', idpais = '%2'"_s.arg(L(k.lista), L(k.pais)));
        regimen(k.regimen);
        responder(k.aec);
        posicionCon(k.marca, k.lapi);
        ctx->opciones.QUINDELRAF = k.quindel;
        registro = {};
        registro.respuestas = {k.efecto == preguntaSi};
        recalcular();
        const bool conPregunta = k.efecto == preguntaSi || k.efecto == preguntaNo;
        ASSERT_EQ(registro.preguntas.size(), conPregunta ? 1U : 0U);
        if (conPregunta) {
            EXPECT_EQ(registro.preguntas[0].texto.toStdString(), pregunta);
        }
        EXPECT_EQ(ventajas(), k.efecto == agrega || k.efecto == preguntaSi ? "1|VEHICULOPARTES|OP1" : "");
        ASSERT_EQ(registro.mensajes.size(), k.efecto == avisa ? 1U : 0U);
        if (k.efecto == avisa) {
            EXPECT_EQ(registro.mensajes[0].texto.toStdString(), aviso);
            EXPECT_EQ(registro.mensajes[0].icono, Icono::Exclamacion);
        }
        EXPECT_EQ(f("select lista from item"), k.efecto == aMercosur ? "MERCOSUR" : k.lista);
    }
}

TEST_P(VehiculoPartesTest, AnAdvantageThatIsThereIsNotDoubled) {
    item(1);
    regimen("ICR5");
    responder("N");
    posicionCon("", true);
    recalcular();
    recalcular();
    EXPECT_EQ(ventajas(), "1|VEHICULOPARTES|OP1");
}

TEST_P(VehiculoPartesTest, TheQuestionIsAskedOnceAndItsAnswerHoldsForTheRun) {
    for (const int id : {1, 2, 3}) item(id);
    ejecutar(u"update item set ncm = '9999.99.99.999Z' where id = 2"_s);
    posicion("9999.99.99.999Z");  // no licence mark
    ejecutar(u"update ncm set [028] = 'x', [059] = '*' where [001] = '7318.15.00'"_s, u"NCM"_s);
    responder("P");
    registro.respuestas = {true, false, false};
    recalcular();
    EXPECT_EQ(registro.preguntas.size(), 1U);
    EXPECT_EQ(ventajas(), "1|VEHICULOPARTES|OP1\n3|VEHICULOPARTES|OP1");
    ejecutar(u"delete from itemventaja"_s);
    recalcular();
    EXPECT_EQ(registro.preguntas.size(), 2U) << "each run asks anew";
    EXPECT_EQ(ventajas(), "");
}

TEST_P(VehiculoPartesTest, TheWarningTakesTheAdvantageFromEveryItemOfTheOperation) {
    item(1);
    item(2, {{"ncm", "'9999.99.99.999Z'"}});
    posicion("9999.99.99.999Z", {{"[028]", "'*'"}, {"[059]", "'*'"}});
    ejecutar(u"update ncm set [028] = 'x', [059] = '*' where [001] = '7318.15.00'"_s, u"NCM"_s);
    regimen("ICR1");
    responder("P");
    insertar(u"itemventaja"_s, {{"interno", "'OP1'"}, {"iditem", "1"}, {"idventaja", "'OTRA'"}});
    insertar(u"itemventaja"_s, {{"interno", "'OP2'"}, {"iditem", "1"}, {"idventaja", "'VEHICULOPARTES'"}});
    recalcular();
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(ventajas(), "1|OTRA|OP1\n1|VEHICULOPARTES|OP2") << "item 2, which had a right to it, too";
}

TEST_P(VehiculoPartesTest, AListChangedToMercosurCountsInTheSameRun) {
    item(1, {{"idpais", "'203'"}});
    filas(1, {"010", "011"});
    posicionCon("x", false);
    responder("P");
    ctx->opciones.QUINDELRAF = true;
    recalcular(true);
    EXPECT_EQ(liq(1), "010|0|0|0|P\n011|0|0|0|P");
    EXPECT_EQ(f("select valor from liqcero where idconcepto = '###baseiva'"), "1110");
}

TEST_P(VehiculoPartesTest, AListTypedByTheUserIsShieldedFromMercosur) {
    posicionCon("x", false);
    responder("P");
    ctx->opciones.QUINDELRAF = true;
    for (const auto &[marca, lista] : {std::pair{"'S'", "MIA"}, std::pair{"'N'", "MERCOSUR"},
                                       std::pair{"''", "MERCOSUR"}, std::pair{"null", "MERCOSUR"}}) {
        ejecutar(u"delete from item"_s);
        item(1, {{"idpais", "'203'"}, {"lista", "'MIA'"}, {"itmodif", L(marca)}});
        const QStringList enviadas = sentenciasDe("UPDATE item", [&] { recalcular(); });
        EXPECT_EQ(f("select lista from item"), lista) << marca;
        EXPECT_EQ(calculo->ItemLISTA_MERCOSUR, std::string(lista) == "MERCOSUR") << marca;
        EXPECT_EQ(enviadas.value(0).toStdString(),
                  "UPDATE item set lista = 'MERCOSUR' "
                  "where id = 1 and interno = 'OP1' and (itmodif<>'S' or itmodif is null)");
    }
}

TEST_P(VehiculoPartesTest, APositionThatIsNotThereTakesNoPart) {
    item(1);
    item(2, {{"ncm", "'9999.99.99.999Z'"}});
    regimen("ICR5");
    responder("N");
    posicionCon("", true);
    recalcular();
    EXPECT_EQ(ventajas(), "1|VEHICULOPARTES|OP1") << "the licence mark of item 1 is none of item 2's";
}

TEST_P(VehiculoPartesTest, TheAnswerGivenInTheRunCountsFromTheNextRunOn) {
    // The advantage looks at the operation's answer as it was when the items were entered.
    item(1);
    item(2);
    posicionCon("*", true);
    registro.opciones = {{true, 1}};
    recalcular();
    EXPECT_EQ(ventajas(), "");
    EXPECT_EQ(LeerAEC(*ctx, L(clave)).toStdString(), "R");
    recalcular();
    EXPECT_EQ(ventajas(), "1|VEHICULOPARTES|OP1\n2|VEHICULOPARTES|OP1");
}

}  // namespace
