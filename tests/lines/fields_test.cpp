// The fields of a line while it is keyed: opening, position, units, prices, article, codes, list.

#include <gtest/gtest.h>

#include "frame/base/numbers.h"
#include "subitems/linelist.h"
#include "tests/lines/lineas.h"

using namespace Qt::StringLiterals;

namespace {

class CamposDeLinea : public Lineas {};

TEST_P(CamposDeLinea, OpeningReadsTheHeaderTheFlagsAndTheMode) {
    ejecutar("insert into ean (subreg,item) values ('EC01','S')", "SYSTABLAS");
    AbrirSubItems(*ctx, s, interno, {0, 1, 1, 1, 1, 0, 1, 1});
    EXPECT_EQ(s.modo, 1);
    EXPECT_EQ(s.idsubreg.toStdString(), "IC04");
    EXPECT_EQ(s.fobdivisas, 1000);
    EXPECT_TRUE(s.ONCCAHabilitado);
    EXPECT_FALSE(s.FramCatalogo());
    EXPECT_FALSE(s.bloque(BloqueDeLinea::BienDeUso));
    EXPECT_TRUE(s.bloque(BloqueDeLinea::Kilos));
    EXPECT_FALSE(s.eanHabilitado);
    abrirCon("EC01");
    EXPECT_TRUE(s.eanHabilitado);
}

TEST_P(CamposDeLinea, TheEntryModeIsKeptForTheWorkstation) {
    EXPECT_TRUE(s.opcionesDeFob);
    EXPECT_FALSE(s.opFobUnitario) << "any value but U is the total";
    EXPECT_TRUE(s.TxtFobTotalHabilitado());
    EXPECT_FALSE(s.TxtUnitarioHabilitado());
    ElegirCargaPor(*ctx, s, true);
    EXPECT_EQ(ctx->ajustes.Leer("ZENDRA", "FLAGS", "CARGASBTPOR").toStdString(), "U");
    EXPECT_FALSE(s.TxtFobTotalHabilitado());
    EXPECT_TRUE(s.TxtUnitarioHabilitado());
    abrirCon("IC04");
    EXPECT_TRUE(s.opFobUnitario);
    ElegirCargaPor(*ctx, s, false);
    EXPECT_EQ(ctx->ajustes.Leer("ZENDRA", "FLAGS", "CARGASBTPOR").toStdString(), "F");
}

TEST_P(CamposDeLinea, WithoutTheOptionThePriceLeadsAndBothFieldsAreOpen) {
    ctx->opciones.SbtFuncionCargaPor = false;
    abrirCon("IC04");
    EXPECT_FALSE(s.opcionesDeFob);
    EXPECT_TRUE(s.opFobUnitario);
    EXPECT_TRUE(s.TxtFobTotalHabilitado());
    EXPECT_TRUE(s.TxtUnitarioHabilitado());
}

// Position

TEST_P(CamposDeLinea, APositionOfAnotherLengthIsRefused) {
    for (const char *posicion : {"", "8413", "8413.70.10.", "8413.70.10.100LL"}) {
        s.campos.TxtPosicion = posicion;
        const Veredicto v = BuscarNCM(*ctx, s);
        EXPECT_FALSE(v.ok);
        EXPECT_EQ(v.foco.toStdString(), "TxtPosicion");
        EXPECT_EQ(ultimoMensaje(), "Longitud erronea del Posición");
    }
}

TEST_P(CamposDeLinea, AShorterPositionLacksItsKeys) {
    ejecutar("insert into ncm ([001],[002],[003],[012]) values ('1001.00.00','100','','07')", "NCM");
    ejecutar("insert into ncm ([001],[002],[003],[012]) values ('1002.00.00','','','01')", "NCM");
    s.campos.TxtPosicion = "1001.00.00.100";
    EXPECT_TRUE(BuscarNCM(*ctx, s).ok);
    EXPECT_EQ(s.campos.LbCodigoEstadistica.toStdString(), "07");
    s.campos.TxtPosicion = "1002.00.00";
    EXPECT_TRUE(BuscarNCM(*ctx, s).ok);
    EXPECT_EQ(s.campos.LbCodigoEstadistica.toStdString(), "01");
    s.campos.TxtPosicion = "8413.70.10.100";
    EXPECT_FALSE(BuscarNCM(*ctx, s).ok) << "its letter is part of the key";
    EXPECT_EQ(ultimoMensaje(), "POSICIÓN INEXISTENTE, en el Nomenclador");
}

TEST_P(CamposDeLinea, ThePositionFillsUnitsMarksAndTheTextBlock) {
    s.campos.TxtPosicion = posBomba;
    ASSERT_TRUE(CampoDeLineaEnter(*ctx, s, "TxtPosicion").ok);
    EXPECT_EQ(s.campos.LbCodigoEstadistica.toStdString(), "07");
    EXPECT_EQ(s.campos.LbIdDerEsp.toStdString(), "");
    EXPECT_FALSE(s.FramDerEsp);
    EXPECT_TRUE(s.campos.LbLapi);
    EXPECT_TRUE(s.campos.lbSegElect);
    EXPECT_FALSE(s.campos.lbProhibicion);
    EXPECT_TRUE(s.campos.lbREINT);
    EXPECT_EQ(s.campos.txtNCMDesc.toStdString(),
              "  Información de la Posición\r\n  ----------------------------\r\n"
              "  Posición NCM: 8413.70.10.100L\r\n  Unidad Estadistica: 07\r\n  Unidad Der. Esp.: \r\n"
              "  Posee LAPI: Si\r\n  Derecho de Importación ExtraZona: 12.00\r\n"
              "  Derecho de Exportación: 5.00\r\n  Reintegro Extrazona: 2.50\r\n"
              "  Bombas para líquidos\r\n  Máquinas\r\n  Las demás");
    s.campos.TxtPosicion = posVino;
    ASSERT_TRUE(BuscarNCM(*ctx, s).ok);
    EXPECT_TRUE(s.FramDerEsp);
    EXPECT_EQ(s.campos.LbIdDerEsp.toStdString(), "01");
    EXPECT_FALSE(s.campos.LbLapi);
    EXPECT_TRUE(s.campos.lbProhibicion);
    EXPECT_FALSE(s.campos.lbREINT);
    EXPECT_TRUE(s.campos.txtNCMDesc.contains("Posee LAPI: No"));
}

// Units

TEST_P(CamposDeLinea, RelationsFillTheStatisticalQuantityAndTheKilos) {
    s.campos.TxtPosicion = posBomba;
    ASSERT_TRUE(BuscarNCM(*ctx, s).ok);
    s.campos.TxtUnidad = "09";
    s.campos.TxtCantidad = "2.5";
    CampoDeLineaCambia(*ctx, s, "TxtCantidad");
    EXPECT_EQ(s.campos.TxtValorsobreestadistica.toStdString(), "30.00") << "2.5 dozens";
    EXPECT_EQ(s.campos.TxtKgNeto.toStdString(), "") << "dozens have no weight";
    s.campos.TxtUnidad = "14";
    s.campos.TxtCantidad = "2500";
    CalcularUnidades(*ctx, s);
    EXPECT_EQ(s.campos.TxtKgNeto.toStdString(), "02.50") << "2500 grams";
    EXPECT_EQ(s.campos.TxtValorsobreestadistica.toStdString(), "30.00") << "no relation to units: as it was";
}

TEST_P(CamposDeLinea, ARelationIsReadUnderACommaToo) {
    ctx->SeparadorDecimal = QLatin1Char(',');
    s.campos.LbCodigoEstadistica = "01";
    s.campos.TxtUnidad = "14";
    s.campos.TxtCantidad = "1250,5";
    CalcularUnidades(*ctx, s);
    // 1250.5 grams are 1.2505 kilograms
    EXPECT_EQ(s.campos.TxtValorsobreestadistica.toStdString(), "01,25");
    EXPECT_EQ(s.campos.TxtKgNeto.toStdString(), "01,25");
}

TEST_P(CamposDeLinea, AQuantityThatIsNoNumberChangesNothing) {
    s.campos.LbCodigoEstadistica = "07";
    s.campos.TxtUnidad = "09";
    s.campos.TxtCantidad = "dos";
    s.campos.TxtValorsobreestadistica = "8";
    CantidadCambia(*ctx, s);
    EXPECT_EQ(s.campos.TxtValorsobreestadistica.toStdString(), "8");
}

TEST_P(CamposDeLinea, KilogramsDeclaredAreKilogramsOfTheStatistics) {
    s.campos.TxtPosicion = posPlastico;
    s.campos.TxtUnidad = "01";
    s.campos.TxtCantidad = "75";
    ASSERT_TRUE(BuscarNCM(*ctx, s).ok);
    EXPECT_EQ(s.campos.TxtValorsobreestadistica.toStdString(), "75.00");
}

TEST_P(CamposDeLinea, EnterOnThePositionLeavesTheNetKilosThatWereTyped) {
    s.campos.TxtPosicion = posPlastico;
    s.campos.TxtUnidad = "29";  // a tonne
    s.campos.TxtCantidad = "2";
    CampoDeLineaCambia(*ctx, s, "TxtCantidad");
    EXPECT_EQ(s.campos.TxtKgNeto.toStdString(), "2000.00");
    s.campos.TxtKgNeto = "1985.50";  // as weighed
    ASSERT_TRUE(CampoDeLineaEnter(*ctx, s, "TxtPosicion").ok);
    EXPECT_EQ(s.campos.TxtKgNeto.toStdString(), "1985.50");
    EXPECT_EQ(s.campos.TxtValorsobreestadistica.toStdString(), "2000.00") << "it follows the declared one";
}

TEST_P(CamposDeLinea, TheUnitWeightFillsWhatIsMeasuredInKilograms) {
    s.campos.TxtPosicion = posVino;
    ASSERT_TRUE(BuscarNCM(*ctx, s).ok);
    s.campos.TxtUnidad = "05";
    s.campos.TxtCantidad = "12";
    s.campos.txtKgUnitario = "1.25";
    CalcularKgUnitario(*ctx, s);
    EXPECT_EQ(s.campos.TxtKgNeto.toStdString(), "15.00");
    EXPECT_EQ(s.campos.TxtDerEsp.toStdString(), "15.00") << "the specific duty is by kilogram";
    EXPECT_EQ(s.campos.TxtValorsobreestadistica.toStdString(), "") << "the statistics are in litres";
    s.campos.LbCodigoEstadistica = "01";
    CalcularKgUnitario(*ctx, s);
    EXPECT_EQ(s.campos.TxtValorsobreestadistica.toStdString(), "15.00");
}

TEST_P(CamposDeLinea, SomeUnitsHaveNoUnitWeight) {
    for (const char *unidad : {"08", "02", "07"}) {
        s.campos = CamposSubItem();
        s.campos.TxtUnidad = unidad;
        s.campos.TxtCantidad = "12";
        s.campos.txtKgUnitario = "2";
        CalcularKgUnitario(*ctx, s);
        EXPECT_EQ(s.campos.TxtKgNeto.toStdString(), "") << unidad;
    }
    s.campos.TxtUnidad = "05";
    s.campos.txtKgUnitario = "0";
    CalcularKgUnitario(*ctx, s);
    EXPECT_EQ(s.campos.TxtKgNeto.toStdString(), "");
}

// Prices

TEST_P(CamposDeLinea, ThePriceMakesTheTotalOrTheTotalThePrice) {
    ElegirCargaPor(*ctx, s, true);
    s.campos.TxtCantidad = "3";
    s.campos.TxtUnitario = "10.335";
    CampoDeLineaCambia(*ctx, s, "TxtUnitario");
    // 31.005 rounds away from zero
    EXPECT_EQ(s.campos.TxtFobTotal.toStdString(), "31.01");
    ElegirCargaPor(*ctx, s, false);
    s.campos.TxtFobTotal = "100";
    CampoDeLineaCambia(*ctx, s, "TxtFobTotal");
    EXPECT_EQ(s.campos.TxtUnitario.toStdString(), "33.33333");
    s.campos.TxtCantidad = "0";
    CalcularFob(*ctx, s);
    EXPECT_EQ(s.campos.TxtUnitario.toStdString(), "33.33333") << "nothing is divided by zero";
}

TEST_P(CamposDeLinea, WalkingOverALineWithEnterChangesNoFigure) {
    ElegirCargaPor(*ctx, s, true);
    llenarBomba();
    s.campos.TxtFobTotal = "251.99";  // the invoice rounds in its own way
    s.campos.TxtUnidad = "09";
    const CamposSubItem antes = s.campos;
    for (const DefinicionDeCampo &d : CamposDeSubItem()) {
        if (d.tipo != TipoDeCampo::Texto) continue;
        EXPECT_TRUE(CampoDeLineaEnter(*ctx, s, d.control).ok) << d.control;
    }
    for (const DefinicionDeCampo &d : CamposDeSubItem()) {
        if (d.tipo != TipoDeCampo::Texto) continue;
        EXPECT_EQ(s.campos.*d.campo, antes.*d.campo) << d.control;
    }
}

TEST_P(CamposDeLinea, ALockedArticleIsNotTakenFromTheCatalogueAgain) {
    llenarBomba();
    s.campos.TxtIdCatalogo = "CAT";
    s.campos.txtIdArticulo = "B-1";
    s.articuloFijo = true;
    s.campos.TxtDescArticulos = "a mano";
    CampoDeLineaEnter(*ctx, s, "txtIdArticulo");
    EXPECT_EQ(s.campos.TxtDescArticulos.toStdString(), "a mano");
}

TEST_P(CamposDeLinea, TheFieldThatFollowsDoesNotMoveTheOneThatLeads) {
    ElegirCargaPor(*ctx, s, true);
    s.campos.TxtCantidad = "3";
    s.campos.TxtUnitario = "10";
    s.campos.TxtFobTotal = "31";
    CampoDeLineaCambia(*ctx, s, "TxtFobTotal");
    EXPECT_EQ(s.campos.TxtUnitario.toStdString(), "10");
    EXPECT_EQ(s.campos.TxtFobTotal.toStdString(), "31");
}

// Article

TEST_P(CamposDeLinea, AnArticleFillsTheLine) {
    s.eanHabilitado = true;
    s.campos.TxtIdCatalogo = "CAT";
    s.campos.txtIdArticulo = "B-1";
    s.campos.TxtCantidad = "2";
    ElegirCargaPor(*ctx, s, true);
    ASSERT_TRUE(CampoDeLineaEnter(*ctx, s, "txtIdArticulo").ok);
    const CamposSubItem &c = s.campos;
    EXPECT_EQ(c.LbDescCatalogo.toStdString(), "B-1 - Bomba chica");
    EXPECT_EQ(s.descripcionDefecto.toStdString(), "Bomba chica");
    EXPECT_EQ(c.TxtDescArticulos.toStdString(), "Bomba chica");
    EXPECT_EQ(c.TxtUnitario.toStdString(), "10.50000");
    EXPECT_EQ(c.txtKgUnitario.toStdString(), "09.80");
    EXPECT_EQ(c.TxtFobTotal.toStdString(), "21.00");
    EXPECT_EQ(c.TxtPosicion, posBomba);
    EXPECT_EQ(c.LbCodigoEstadistica.toStdString(), "07");
    EXPECT_EQ(c.LbDescPais.toStdString(), "BRASIL");
    EXPECT_EQ(c.txtSufijos.toStdString(), "AA01-AB(X 1)-");
    EXPECT_EQ(c.cboBiendeUso.toStdString(), "S");
    EXPECT_EQ(c.TxtCodigoEAN.toStdString(), "779");
    EXPECT_EQ(c.TxtFiller.toStdString(), "F");
    EXPECT_EQ(c.TxtKgNeto.toStdString(), "") << "units have no unit weight";
}

TEST_P(CamposDeLinea, AnUnknownArticleEmptiesTheDescriptionInSilence) {
    s.campos.TxtIdCatalogo = "CAT";
    s.campos.txtIdArticulo = "NADA";
    s.campos.LbDescCatalogo = "B-1 - Bomba chica";
    EXPECT_FALSE(BuscarArticuloSobreCat(*ctx, s));
    EXPECT_EQ(s.campos.LbDescCatalogo.toStdString(), "");
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(CamposDeLinea, AnArticleThatWasChosenFillsTheLine) {
    s.campos.TxtIdCatalogo = "ABC";
    EXPECT_FALSE(TomarArticulo(*ctx, s, {})) << "left";
    EXPECT_EQ(s.campos.TxtIdCatalogo.toStdString(), "ABC");
    EXPECT_TRUE(TomarArticulo(*ctx, s, {"CAT", "B-1"}));
    EXPECT_EQ(s.campos.TxtIdCatalogo.toStdString(), "CAT");
    EXPECT_EQ(s.campos.txtIdArticulo.toStdString(), "B-1");
    EXPECT_EQ(s.campos.TxtPosicion, posBomba);
    EXPECT_EQ(s.campos.LbDescCatalogo.toStdString(), "B-1 - Bomba chica");
    EXPECT_TRUE(TomarArticulo(*ctx, s, {"OTRO", {}})) << "the catalogue alone";
    EXPECT_EQ(s.campos.TxtIdCatalogo.toStdString(), "OTRO");
    EXPECT_EQ(s.campos.txtIdArticulo.toStdString(), "B-1");
    s.articuloFijo = true;
    EXPECT_FALSE(TomarArticulo(*ctx, s, {"CAT", "B-1"}));
    EXPECT_EQ(s.campos.TxtIdCatalogo.toStdString(), "OTRO");
}

// Codes

TEST_P(CamposDeLinea, CodedFieldsShowTheirDescriptions) {
    s.campos.TxtUnidad = "07";
    CampoDeLineaEnter(*ctx, s, "TxtUnidad");
    EXPECT_EQ(s.campos.LbDescUnidad.toStdString(), "UNIDAD");
    s.campos.TxtIdpais = "203";
    CampoDeLineaEnter(*ctx, s, "TxtIdpais");
    EXPECT_EQ(s.campos.LbDescPais.toStdString(), "BRASIL");
    s.campos.txtIdPaisProc = "999";
    CampoDeLineaEnter(*ctx, s, "txtIdPaisProc");
    EXPECT_EQ(s.campos.LbDescPaisProc.toStdString(), "");
    EXPECT_EQ(registro.mensajes.back().titulo.toStdString(), "Buscar PAIS");
    registro.indices = {0};
    EXPECT_TRUE(CampoDeLineaF6(*ctx, s, "TxtIdEstadoMercaderia"));
    EXPECT_EQ(s.campos.TxtIdEstadoMercaderia.toStdString(), "2");
    EXPECT_EQ(s.campos.LbDescEstado.toStdString(), "Nueva");
    for (const char *control : {"TxtPosicion", "TxtIdCatalogo", "txtIdArticulo"})
        EXPECT_FALSE(CampoDeLineaF6(*ctx, s, control)) << "a screen of its own";
}

TEST_P(CamposDeLinea, SuffixesAskedForAgainKeepTheirTextWhenOneGivesUp) {
    llenarBomba();
    s.campos.txtSufijos = "AB(X 1)-";
    ActuSufijos(*ctx, s);
    EXPECT_EQ(s.campos.txtSufijos.toStdString(), "AB(X 1)-");
    registro.indices = {2};
    ActuSufijos(*ctx, s);
    EXPECT_EQ(s.campos.txtSufijos.toStdString(), "AA02-AB(X 1)-");
}

TEST_P(CamposDeLinea, AnArticleOfTheCatalogueHasItsSuffixesReconfirmed) {
    ejecutar("update catarticulos set sufijos = 'AB(X 1)-'", "CATALOGOS");
    s.campos.TxtIdCatalogo = "CAT";
    s.campos.txtIdArticulo = "B-1";
    ASSERT_TRUE(CampoDeLineaEnter(*ctx, s, "txtIdArticulo").ok);
    registro.indices = {2};
    ActuSufijos(*ctx, s);
    EXPECT_EQ(s.campos.txtSufijos.toStdString(), "AA02-AB(X 1)-");
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].titulo.toStdString(), "Verificación de Sufijos");
}

TEST_P(CamposDeLinea, ALineThatWasLeftAsksForNoReconfirmationOfTheNext) {
    llenarBomba();
    ASSERT_TRUE(grabar()) << ultimoMensaje();
    const auto tomar = [this] {
        s.campos.TxtIdCatalogo = "CAT";
        s.campos.txtIdArticulo = "B-1";
        ASSERT_TRUE(BuscarArticuloSobreCat(*ctx, s));
        ASSERT_TRUE(ctx->ReconfirmarSufijos);
    };
    tomar();
    VaciarCampos(*ctx, s);
    EXPECT_FALSE(ctx->ReconfirmarSufijos) << "begun anew";
    tomar();
    ASSERT_TRUE(BuscarSubItem(*ctx, s, grabacion.id));
    EXPECT_FALSE(ctx->ReconfirmarSufijos) << "another line taken in hand";
    VaciarCampos(*ctx, s);
    tomar();
    abrirCon("IC04");
    EXPECT_FALSE(ctx->ReconfirmarSufijos) << "the screen opened again";
}

// List

TEST_P(CamposDeLinea, TheListTellsTheLinesInTheOrderOfTheOption) {
    llenarBomba();
    ASSERT_TRUE(grabar());
    const qint64 a = grabacion.id;
    llenarPlastico();
    ASSERT_TRUE(grabar());
    const qint64 b = grabacion.id;
    ejecutar(u"update subitems set cancelaciones = 'OK', factura_nro = 'F 1' where id = %1"_s.arg(b));
    const auto filas = GetRsSubtiems(*ctx, interno);
    ASSERT_EQ(filas.size(), 2U);
    EXPECT_EQ(filas[0].id, a);
    EXPECT_EQ(filas[0].numero.toStdString(), "0001");
    EXPECT_EQ(filas[0].NCM, posBomba);
    EXPECT_EQ(filas[0].idunidad.toStdString(), "07");
    EXPECT_EQ(filas[0].preciounitario.toStdString(), "10.50000");
    EXPECT_FALSE(filas[0].marcada);
    EXPECT_EQ(filas[1].factura_nro.toStdString(), "F 1");
    EXPECT_TRUE(filas[1].marcada);
    EXPECT_EQ(filas[1].celdas().size(), ColumnasDeSubItems().size());
    ctx->opciones.SbtMostrarAsc = true;
    const auto alReves = GetRsSubtiems(*ctx, interno);
    EXPECT_EQ(alReves[0].id, b);
    EXPECT_EQ(alReves[0].numero.toStdString(), "0002");
    EXPECT_TRUE(GetRsSubtiems(*ctx, "NADA").empty());
}

EN_AMBOS_STORES(CamposDeLinea);

}  // namespace
