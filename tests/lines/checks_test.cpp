// The checks of a line, one by one and in their order.

#include <gtest/gtest.h>

#include <functional>

#include "header/automotive.h"
#include "tests/lines/lineas.h"

using namespace Qt::StringLiterals;

namespace {

class Controles : public Lineas {};

/// What is wrong with a good line, and what is said of it.
struct Caso {
    const char *nombre;
    std::function<void(SubItems &)> estropear;
    const char *texto;
    const char *foco;
};

std::vector<Caso> casos() {
    using C = CamposSubItem;
    const auto poner = [](QString C::*campo, const char *valor) {
        return [campo, valor](SubItems &s) { s.campos.*campo = QString::fromUtf8(valor); };
    };
    return {
        {"no statistical unit", poner(&C::LbCodigoEstadistica, ""), "Falta unidad estadistica",
         "TxtPosicion"},
        {"another statistical unit", poner(&C::LbCodigoEstadistica, "05"),
         "Error en Codigo de Estadistica debe ser [ 07 ]", "TxtPosicion"},
        {"an old specific unit", poner(&C::LbIdDerEsp, "01"),
         "Esta posición no tiene Unidad del Derecho Especifico, pero en la pantalla tiene [ 01 ]\r\nPara "
         "refrescar las unidades del ncm presione ENTER en el campo posición",
         "TxtPosicion"},
        {"no statistical quantity", poner(&C::TxtValorsobreestadistica, ""),
         "Debe ingresar un valor mayor a cero en CANTIDA ESTADISTICA", "TxtValorsobreestadistica"},
        {"a statistical quantity of zero", poner(&C::TxtValorsobreestadistica, "0.00"),
         "Debe ingresar un valor mayor a cero en CANTIDA ESTADISTICA", "TxtValorsobreestadistica"},
        {"no quantity", poner(&C::TxtCantidad, ""), "Valor Invalido en CANTIDAD", "TxtCantidad"},
        {"a quantity of zero", poner(&C::TxtCantidad, "0"), "Valor Invalido en CANTIDAD", "TxtCantidad"},
        {"the declared quantity is not the statistical one", poner(&C::TxtCantidad, "25"),
         "La CANTIDAD DECLARADA ( 25 ) debe ser igual a CANTIDAD ESTADISTICA ( 24 )", "TxtCantidad"},
        {"no price", poner(&C::TxtUnitario, ""), "Valor Invalido en PRECIO UNITARIO", "TxtUnitario"},
        {"a price of zero", poner(&C::TxtUnitario, "0.000"), "Valor Invalido en PRECIO UNITARIO",
         "TxtUnitario"},
        {"an unknown catalogue", poner(&C::TxtIdCatalogo, "NADA"),
         "Codigo de catalogo no esta en base de datos.", "TxtIdCatalogo"},
        {"no unit", poner(&C::TxtUnidad, ""), "Debe ingresar el Codigo de UNIDAD", "TxtUnidad"},
        {"a price that is no number", poner(&C::TxtUnitario, "diez"),
         "Debe ingresar un valor numerico en el campo VALOR UNITARIO", "TxtUnitario"},
        {"a total that is no number", poner(&C::TxtFobTotal, ""),
         "Debe ingresar un valor numerico en el campo FOB TOTAL", "TxtFobTotal"},
    };
}

TEST_P(Controles, EachOneTellsItsWordAndItsFieldAndWritesNothing) {
    s.opFobUnitario = true;
    s.opcionesDeFob = false;
    for (const Caso &caso : casos()) {
        SCOPED_TRACE(caso.nombre);
        registro = Registro();
        llenarBomba();
        caso.estropear(s);
        EXPECT_FALSE(grabar());
        ASSERT_EQ(registro.mensajes.size(), 1U);
        EXPECT_EQ(ultimoMensaje(), caso.texto);
        EXPECT_EQ(registro.mensajes.front().icono, Icono::Exclamacion);
        EXPECT_EQ(grabacion.foco.toStdString(), caso.foco);
        EXPECT_EQ(cuantas(), 0);
    }
}

TEST_P(Controles, AQuantityThatIsNoNumberIsToldAfterThePrice) {
    llenarBomba();
    s.campos.TxtUnidad =
        "09";  // another unit than the statistical one, so that their quantities are not compared
    s.campos.TxtCantidad = "dos";
    EXPECT_FALSE(grabar());
    EXPECT_EQ(ultimoMensaje(), "Debe ingresar un valor numerico en el campo CANTIDAD");
    EXPECT_EQ(grabacion.foco.toStdString(), "TxtCantidad");
}

TEST_P(Controles, TheUnknownCatalogueHasItsTitle) {
    llenarBomba();
    s.campos.TxtIdCatalogo = "NADA";
    grabar();
    EXPECT_EQ(registro.mensajes.back().titulo.toStdString(), "Advertencia: CATALOGO");
}

TEST_P(Controles, ACatalogueIsNotLookedForWhileItsBlockIsOff) {
    llenarBomba();
    s.campos.TxtIdCatalogo = "NADA";
    s.ofrece[static_cast<std::size_t>(BloqueDeLinea::Catalogos)] = false;
    EXPECT_TRUE(grabar()) << ultimoMensaje();
    EXPECT_EQ(grabacion.foco.toStdString(), "TxtPosicion")
        << "without the catalogue the position comes first";
}

TEST_P(Controles, APositionOutsideTheNomenclatureIsAWrongStatisticalUnit) {
    llenarBomba();
    s.campos.TxtPosicion = "1111.11.11.111A";
    EXPECT_FALSE(grabar());
    EXPECT_EQ(ultimoMensaje(), "Error en Codigo de Estadistica debe ser [  ]");
}

TEST_P(Controles, AnotherSpecificUnitIsTold) {
    llenarBomba();
    s.campos.TxtPosicion = posVino;
    s.campos.LbCodigoEstadistica = "05";
    s.campos.LbIdDerEsp = "07";
    EXPECT_FALSE(grabar());
    EXPECT_EQ(ultimoMensaje(),
              "Error en Codigo de Derecho Especifico debe ser [ 01 ]\r\nPara refrescar las unidades del ncm "
              "presione ENTER en el campo posición");
}

// A line on a position with no specific unit and an old value on screen refuses to save until ENTER is
// pressed on the position.
TEST_P(Controles, AnOldSpecificUnitRefusesToSaveUntilEnterOnThePosition) {
    llenarBomba();
    s.campos.LbIdDerEsp = "01";
    s.campos.TxtDerEsp = "3";
    EXPECT_FALSE(grabar());
    EXPECT_TRUE(CampoDeLineaEnter(*ctx, s, "TxtPosicion").ok);
    EXPECT_TRUE(grabar()) << ultimoMensaje();
    EXPECT_EQ(linea("deresp, valorderesp"), "|0");
}

TEST_P(Controles, NetKilosEqualToGrossKilosAreRefused) {
    llenarBomba();
    s.campos.TxtKgNeto = "10";
    s.campos.TxtKgBruto = "10.00";
    EXPECT_FALSE(grabar());
    EXPECT_EQ(ultimoMensaje(), "KG Neto debe ser Menor que KG Bruto");
    EXPECT_EQ(grabacion.foco.toStdString(), "TxtKgNeto");
    s.campos.TxtKgBruto = "10.01";
    EXPECT_TRUE(grabar()) << ultimoMensaje();
}

TEST_P(Controles, KilosAreNotComparedWhileOneOfThemIsMissing) {
    llenarBomba();
    s.campos.TxtKgNeto = "10";
    s.campos.TxtKgBruto = "0";
    EXPECT_TRUE(grabar()) << ultimoMensaje();
}

// 40 net kilos on a position measured in kilograms: the statistical quantity is 40.00 by itself.
TEST_P(Controles, TheStatisticalUnitOfKilogramsIsFilledFromTheNetKilos) {
    llenarPlastico();
    EXPECT_FALSE(s.pideCantidadEstadistica());
    EXPECT_TRUE(s.campos.TxtValorsobreestadistica.isEmpty());
    EXPECT_TRUE(grabar()) << ultimoMensaje();
    EXPECT_EQ(linea("valorrelacionestadistica, kgneto, sufijos"), "40|40|SIN SUFIJOS");
}

TEST_P(Controles, AStatisticalQuantityThatWasTypedStaysAboveTheNetKilos) {
    llenarPlastico();
    s.campos.TxtValorsobreestadistica = "39.5";
    EXPECT_TRUE(grabar()) << ultimoMensaje();
    EXPECT_EQ(linea("valorrelacionestadistica"), "39.5");
}

TEST_P(Controles, ALineOfGoodValuesMarksTheOperationAndEmptiesItsAnswer) {
    GuardarAEC(*ctx, interno, "R");
    GuardarAEC(*ctx, "OTRA", "P");
    llenarBomba();
    ASSERT_TRUE(grabar()) << ultimoMensaje();
    EXPECT_EQ(valor("select factura8 from caratula where interno = 'OP 1'").toStdString(), "S");
    EXPECT_EQ(valor("select factura8 from caratula where interno = 'OTRA'").toStdString(), "N");
    EXPECT_EQ(LeerAEC(*ctx, interno).toStdString(), "");
    EXPECT_EQ(LeerAEC(*ctx, "OTRA").toStdString(), "P");
}

TEST_P(Controles, ANewLineThatFailsAnEarlyCheckLeavesTheMarkAlone) {
    llenarBomba();
    s.campos.TxtCantidad = "0";
    grabar();
    EXPECT_EQ(valor("select factura8 from caratula where interno = 'OP 1'").toStdString(), "N");
    llenarBomba();
    s.campos.TxtUnidad = "";
    grabar();
    EXPECT_EQ(valor("select factura8 from caratula where interno = 'OP 1'").toStdString(), "S")
        << "the checks from the tenth on come behind the mark";
}

TEST_P(Controles, InTotalModeThePriceSendsTheFocusToTheTotal) {
    s.opcionesDeFob = true;
    s.opFobUnitario = false;
    llenarBomba();
    s.campos.TxtUnitario = "0";
    EXPECT_FALSE(grabar());
    EXPECT_EQ(ultimoMensaje(), "Valor Invalido en PRECIO UNITARIO");
    EXPECT_EQ(grabacion.foco.toStdString(), "TxtFobTotal");
}

// Suffixes

TEST_P(Controles, MissingSuffixesAreAskedForAndStored) {
    llenarBomba();
    s.campos.txtSufijos.clear();
    s.descripcionDefecto = "BOMBA";
    registro.indices = {1};  // behind "Ninguna opción" stands AA01
    registro.textos = {QString("np-750")};
    ASSERT_TRUE(grabar()) << ultimoMensaje();
    EXPECT_EQ(linea("sufijos"), "AA01-AB(NP 750)-");
    ASSERT_EQ(registro.entradas.size(), 1U);
    EXPECT_EQ(registro.entradas.front().inicial.toStdString(), "")
        << "AB offers the article, not offered here";
}

TEST_P(Controles, TheArticleIsOfferedForItsFamilyWithTheOption) {
    ctx->opciones.SbtNroArtAI = true;
    llenarBomba();
    s.campos.txtSufijos = "AA01-";
    s.campos.txtIdArticulo = "B-77";
    registro.textos = {QString("B-77")};
    ASSERT_TRUE(grabar()) << ultimoMensaje();
    EXPECT_EQ(registro.entradas.front().inicial.toStdString(), "B-77");
    EXPECT_EQ(linea("sufijos"), "AA01-AB(B 77)-");
}

TEST_P(Controles, GivingUpTheSuffixesWritesNothingAndKeepsTheText) {
    llenarBomba();
    s.campos.txtSufijos = "AB(X 1)-";
    EXPECT_FALSE(grabar());  // the list of AA is left
    EXPECT_EQ(ultimoMensaje(), "Carga de SUFIJOS cancelada");
    EXPECT_EQ(grabacion.foco.toStdString(), "txtSufijos");
    EXPECT_EQ(s.campos.txtSufijos.toStdString(), "AB(X 1)-");
    EXPECT_EQ(cuantas(), 0);
}

TEST_P(Controles, TheArticleMustStandInTheSuffixesWithTheOption) {
    ctx->opciones.QUINDEL = true;
    llenarBomba();
    s.campos.txtIdArticulo = "Z-9";
    EXPECT_FALSE(grabar());
    EXPECT_EQ(ultimoMensaje(), "Error sufijos AB invàlido AA01-AB(X 1)- codigo de articulo Z-9");
    s.campos.txtIdArticulo = "x-1";
    EXPECT_TRUE(grabar()) << ultimoMensaje();
}

TEST_P(Controles, TheArticleIsForcedIntoTheSuffixes) {
    ctx->opciones.SbtForzarNroArtAI = true;
    llenarBomba();
    s.campos.txtIdArticulo = "n(75)-b";
    ASSERT_TRUE(grabar()) << ultimoMensaje();
    EXPECT_EQ(linea("sufijos"), "AA01-AB(N 75 B)-");
}

TEST_P(Controles, WithoutAnArticleTheForcedSuffixesStayAsTheyAre) {
    ctx->opciones.SbtForzarNroArtAI = true;
    llenarBomba();
    s.campos.txtSufijos = "AA01-AB(NP 0750)-";
    ASSERT_TRUE(grabar()) << ultimoMensaje();
    EXPECT_EQ(linea("sufijos"), "AA01-AB(NP 0750)-");
}

TEST_P(Controles, LettersAloneMakeNoLineOfTheInputsLink) {
    llenarBomba();
    s.campos.TxtIdCatalogo = "INS";
    s.campos.txtIdArticulo = "INS-1";
    EXPECT_FALSE(grabar());
    EXPECT_EQ(ultimoMensaje(), "Codigo de catalogo no esta en base de datos.");
    EXPECT_EQ(cuantas(), 0);
}

// Rows of three characters, of five, and of a letter without a type: no family can be asked for.
TEST_P(Controles, APositionWhoseFamiliesAreAllSkippedIsALineWithoutSuffixes) {
    for (const char *fila : {"'3901.  .  .   ','BA1','Corto'", "'3901.  .  .   ','CAXYZ','Largo'",
                             "'3901.  .  .   ','MB','Sin tipo'"})
        ejecutar("insert into sufidos (sim,sufijo,detalle) values ("_L1 + QLatin1String(fila) + ")"_L1,
                 "NCM");
    llenarPlastico();
    ASSERT_TRUE(grabar()) << ultimoMensaje();
    EXPECT_EQ(linea("sufijos"), "SIN SUFIJOS");
    const qint64 id = grabacion.id;
    // And the line can be changed, also one that holds what was stored once.
    for (const char *guardado : {"SIN SUFIJOS", "-", "", "SIN SUFIJOS-"}) {
        ejecutar("update subitems set sufijos = '"_L1 + QLatin1String(guardado) + "'"_L1);
        ASSERT_TRUE(BuscarSubItem(*ctx, s, id));
        ASSERT_TRUE(grabar()) << guardado << ": " << ultimoMensaje();
        EXPECT_EQ(linea("sufijos"), "SIN SUFIJOS") << guardado;
    }
    EXPECT_TRUE(registro.mensajes.empty()) << ultimoMensaje();
}

EN_AMBOS_STORES(Controles);

}  // namespace
