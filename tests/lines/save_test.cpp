// What a save writes, and what follows it.

#include <gtest/gtest.h>

#include "frame/base/numbers.h"
#include "header/changes.h"
#include "subitems/ReferenceValues.h"
#include "subitems/linelist.h"
#include "tests/lines/lineas.h"
#include "tests/support/traza.h"

using namespace Qt::StringLiterals;

namespace {

class Grabado : public Lineas {};

TEST_P(Grabado, EveryFieldReachesItsColumn) {
    abrirCon("IC04");
    s.eanHabilitado = true;
    llenarBomba();
    CamposSubItem &c = s.campos;
    c.TxtIdCatalogo = "CAT";
    c.txtIdArticulo = "B-2";
    c.TxtDescArticulos = "Bomba d'agua";
    c.txtDescripcionMaria = "BOMBA\r\nD'AGUA";
    c.TxtIdpais = "203";
    c.txtIdPaisProc = "212";
    c.TxtIdEstadoMercaderia = "2";
    c.cboBiendeUso = "S";
    c.TxtCodProrrateo = "EMB";
    c.TxtInsumosTemp = "1,5";
    c.TxtInsumCons = "2.25";
    c.TxtCancCantidad = "3";
    c.txtNroItem = "4";
    c.TxtNroSubitem = "5";
    c.TxtKgNeto = "10,129";
    c.TxtKgBruto = "11";
    c.txtOtros = "OTROS";
    c.TxtFiller = "FIL";
    c.txtCertOrig = "CO";
    c.TxtNaladisa = "8413,70'1";
    c.TxtCodigoEAN = "7791234567890";
    c.TxtCanelaciones = "no se escribe";
    ASSERT_TRUE(grabar()) << ultimoMensaje();
    EXPECT_EQ(linea("IdCatalogo,IdArticulo,ncm,IdUnidad,Cantidad,Preciounitario,fob,Estadistica,"
                    "valorrelacionestadistica"),
              "CAT|B-2|8413.70.10.100L|07|24|10.5|252|07|24");
    EXPECT_EQ(
        linea("IdPais,EstadoMerc,Sufijos,Biendeuso,codprorrateo,insumostemp,insumosacons,cancelaciones"),
        "203|2|AA01-AB(X 1)-|S|EMB|1.5|2.25|");
    // Net kilos go through "00.00": 10.129 is 10.13.
    EXPECT_EQ(linea("cancCantidad,cancnroitem,cancnrosubitem,deresp,valorderesp,lapi,kgneto,kgbruto"),
              "3|4|5||0|S|10.13|11");
    EXPECT_EQ(
        linea("descripcion,Descripcion_Maria,interno,otros,itfiller,certorig,ONCCACategoria,ONCCACortes,"
              "IdPaisProc,naladisa,codigoean"),
        "Bomba d agua|BOMBA D AGUA|OP 1|OTROS|FIL|CO|||212|8413.70 1|7791234567890");
    EXPECT_EQ(grabacion.id, valor("select id from subitems where interno = 'OP 1'").toLongLong());
}

TEST_P(Grabado, ApostrophesInAnyFieldBreakNoStatement) {
    s.eanHabilitado = true;
    llenarBomba();
    CamposSubItem &c = s.campos;
    c.txtIdArticulo = "O'1";
    for (QString CamposSubItem::*campo :
         {&CamposSubItem::TxtDescArticulos, &CamposSubItem::txtDescripcionMaria, &CamposSubItem::txtOtros,
          &CamposSubItem::TxtFiller, &CamposSubItem::txtCertOrig, &CamposSubItem::TxtCodigoEAN,
          &CamposSubItem::TxtCancCantidad, &CamposSubItem::txtNroItem, &CamposSubItem::TxtNroSubitem,
          &CamposSubItem::TxtCodProrrateo, &CamposSubItem::TxtIdpais})
        c.*campo = "a'b";
    ASSERT_TRUE(grabar()) << ultimoMensaje();
    EXPECT_EQ(linea("idarticulo,descripcion,descripcion_maria,otros,codprorrateo"), "O'1|a b|a b|a'b|A'B");
    ASSERT_TRUE(BuscarSubItem(*ctx, s, grabacion.id));
    ASSERT_TRUE(grabar()) << ultimoMensaje();
    EXPECT_EQ(linea("otros,certorig,cancnrosubitem"), "a'b|a'b|a'b");
}

// Under a comma: 3 x 10.335 = 31.005, rounded away from zero.
TEST_P(Grabado, ACommaAsSeparatorWritesTheSameNumbers) {
    ctx->SeparadorDecimal = QLatin1Char(',');
    ElegirCargaPor(*ctx, s, true);
    llenarBomba();
    s.campos.TxtCantidad = "3";
    s.campos.TxtValorsobreestadistica = "3,00";
    s.campos.TxtUnitario = "10,335";
    CampoDeLineaCambia(*ctx, s, "TxtUnitario");
    EXPECT_EQ(s.campos.TxtFobTotal.toStdString(), "31,01");
    ASSERT_TRUE(grabar()) << ultimoMensaje();
    EXPECT_EQ(linea("cantidad,preciounitario,fob,valorrelacionestadistica"), "3|10.335|31.01|3");
    EXPECT_EQ(s.lbDIF.toStdString(), "968,99");
    ASSERT_TRUE(BuscarSubItem(*ctx, s, grabacion.id));
    EXPECT_EQ(s.campos.TxtUnitario.toStdString(), "10,33500");
    ASSERT_TRUE(grabar()) << ultimoMensaje();
    EXPECT_EQ(linea("preciounitario,fob"), "10.335|31.01");
}

TEST_P(Grabado, TheEanCodeIsEmptyWhileItsFieldIsOff) {
    llenarBomba();
    s.campos.TxtCodigoEAN = "779";
    ASSERT_TRUE(grabar());
    EXPECT_EQ(linea("codigoean"), "");
}

TEST_P(Grabado, FieldsAreEmptiedButTheCatalogue) {
    s.campos = CamposSubItem();
    llenarBomba();
    s.campos.TxtIdCatalogo = "CAT";
    s.campos.txtIdArticulo = "B-1";
    s.campos.TxtCatalogo = "Cliente";
    s.campos.cboBiendeUso = "S";
    ASSERT_TRUE(grabar()) << ultimoMensaje();
    for (const DefinicionDeCampo &d : CamposDeSubItem()) {
        const std::string control = d.control;
        const std::string texto = (s.campos.*d.campo).toStdString();
        if (control == "TxtIdCatalogo")
            EXPECT_EQ(texto, "CAT");
        else if (control == "cboBiendeUso")
            EXPECT_EQ(texto, "S") << "a list is no text field";
        else
            EXPECT_EQ(texto, "") << control;
    }
    EXPECT_FALSE(s.campos.LbLapi);
    EXPECT_EQ(s.modo, 1);
    EXPECT_EQ(grabacion.foco.toStdString(), "txtIdArticulo");
}

TEST_P(Grabado, TheArticleStaysWithItsOption) {
    ctx->opciones.SbtMantCodart = true;
    llenarBomba();
    s.campos.TxtIdCatalogo = "CAT";
    s.campos.txtIdArticulo = "B-1";
    s.campos.TxtCatalogo = "Cliente";
    s.campos.TxtDescCatalogo = "Bombas";
    ASSERT_TRUE(grabar()) << ultimoMensaje();
    EXPECT_EQ(s.campos.txtIdArticulo.toStdString(), "B-1");
    EXPECT_EQ(s.campos.TxtCatalogo.toStdString(), "Cliente");
    EXPECT_EQ(s.campos.TxtDescCatalogo.toStdString(), "Bombas");
    EXPECT_EQ(s.campos.TxtPosicion.toStdString(), "");
}

TEST_P(Grabado, EverythingStaysWithItsOption) {
    ctx->opciones.SbtMantDatos = true;
    llenarBomba();
    ASSERT_TRUE(grabar());
    EXPECT_EQ(s.campos.TxtPosicion, posBomba);
    ASSERT_TRUE(grabar()) << "the next line begins with the same values";
    EXPECT_EQ(cuantas(), 2);
}

// Header FOB 1000; lines of 252 and 100: what is missing is 648.
TEST_P(Grabado, TotalsFollowEveryLine) {
    EXPECT_EQ(s.LbTotal.toStdString(), "1000.00");
    EXPECT_EQ(s.LbTotSubitems.toStdString(), "00.00");
    EXPECT_EQ(s.lbDIF.toStdString(), "1000.00");
    llenarBomba();
    ASSERT_TRUE(grabar());
    EXPECT_EQ(s.lbDIF.toStdString(), "748.00");
    llenarPlastico();
    ASSERT_TRUE(grabar());
    EXPECT_EQ(s.LbTotSubitems.toStdString(), "352.00");
    EXPECT_EQ(s.lbDIF.toStdString(), "648.00");
}

TEST_P(Grabado, AHeaderWithoutFobShowsNoForcedDigits) {
    ejecutar("update caratula set fobdivisas = 0.5 where interno = 'OP 1'");
    abrirCon("IC04");
    EXPECT_EQ(s.LbTotal.toStdString(), ".50");
    EXPECT_EQ(s.lbDIF.toStdString(), "00.50");
}

// The licence mark

TEST_P(Grabado, TheLicenceMarkIsThatOfThePositionAtTheMomentOfSaving) {
    // The same units as the pump, without its mark.
    ejecutar(
        "insert into ncm ([001],[002],[003],[012],[020],[059]) values ('8413.70.10','200','R','07','','')",
        "NCM");
    llenarBomba();
    s.campos.TxtPosicion = "8413.70.10.200R";  // typed over, without ENTER
    s.campos.txtSufijos = "AB(X 1)-";
    ASSERT_TRUE(grabar()) << ultimoMensaje();
    EXPECT_EQ(linea("ncm,lapi"), "8413.70.10.200R|N");
    ASSERT_TRUE(BuscarSubItem(*ctx, s, grabacion.id));
    s.campos.TxtPosicion = posBomba;
    s.campos.txtSufijos = "AA01-AB(X 1)-";
    ASSERT_TRUE(grabar()) << ultimoMensaje();
    EXPECT_EQ(linea("ncm,lapi"), "8413.70.10.100L|S");
}

TEST_P(Grabado, ALineWhoseMarkWasNeverStoredTakesItWithAChange) {
    llenarBomba();
    ASSERT_TRUE(grabar()) << ultimoMensaje();
    ejecutar("update subitems set lapi = ''");
    ASSERT_TRUE(BuscarSubItem(*ctx, s, grabacion.id));
    ASSERT_TRUE(grabar()) << ultimoMensaje();
    EXPECT_EQ(linea("lapi"), "S");
}

// Codes

TEST_P(Grabado, CodesAreStoredInCapitalsWhereverTheyCameFrom) {
    llenarBomba();
    s.campos.TxtPosicion = "8413.70.10.100l";
    s.campos.TxtUnidad = "kg";
    s.campos.TxtIdpais = "ar";
    s.campos.txtIdPaisProc = "br";
    s.campos.TxtIdEstadoMercaderia = "u";
    ASSERT_TRUE(grabar()) << ultimoMensaje();
    EXPECT_EQ(linea("ncm,idunidad,idpais,idpaisproc,estadomerc"), "8413.70.10.100L|KG|AR|BR|U");
    ejecutar("update subitems set ncm = '8413.70.10.100l', idpais = 'ar'");
    ASSERT_TRUE(BuscarSubItem(*ctx, s, grabacion.id));
    ASSERT_TRUE(grabar()) << ultimoMensaje();
    EXPECT_EQ(linea("ncm,idpais"), "8413.70.10.100L|AR");
}

// Changes

TEST_P(Grabado, AChangeIsWrittenOnce) {
    EXPECT_EQ(valor("select factura8 from caratula where interno = 'OP 1'").toStdString(), "N");
    {
        Traza traza;
        AnotarCambio(*ctx, interno);
        EXPECT_EQ(traza.sentencias().filter("update").size(), 1);
    }
    EXPECT_EQ(valor("select factura8 from caratula where interno = 'OP 1'").toStdString(), "S");
    Traza traza;
    AnotarCambio(*ctx, interno);
    EXPECT_EQ(traza.sentencias().filter("update").size(), 0) << "typing on writes nothing more";
}

// Reference values

TEST_P(Grabado, ReferenceValuesRunOnlyUnderTheirRegime) {
    std::vector<oReferenceValues::Consulta> consultas;
    oReferenceValues::GetValoresCriterio = [&](const auto &c) { consultas.push_back(c); };
    llenarBomba();
    ASSERT_TRUE(grabar());
    EXPECT_TRUE(consultas.empty());
    abrirCon("IC01");
    llenarBomba();
    s.campos.TxtIdpais = "203";
    ASSERT_TRUE(grabar());
    ASSERT_EQ(consultas.size(), 1U);
    EXPECT_EQ(consultas[0].posicion, posBomba);
    EXPECT_EQ(consultas[0].unidad.toStdString(), "07");
    EXPECT_EQ(consultas[0].origen.toStdString(), "203");
    EXPECT_EQ(consultas[0].id, grabacion.id);
    const qint64 id = grabacion.id;
    ASSERT_TRUE(BuscarSubItem(*ctx, s, id));
    ASSERT_TRUE(grabar()) << ultimoMensaje();
    ASSERT_EQ(consultas.size(), 2U);
    EXPECT_EQ(consultas[1].id, id);
}

TEST_P(Grabado, TheLineAddedToFiveThousandHasTheLastNumber) {
    ejecutar(
        "insert into subitems (interno,ncm,idunidad,cantidad,preciounitario,fob,kgneto) "
        "with recursive n(i) as (select 1 union all select i + 1 from n where i < 5000) "
        "select 'OP 1','8413.70.10.100L','07',1,0.01,0.01,0 from n");
    ASSERT_EQ(cuantas(), 5000);
    llenarBomba();
    ASSERT_TRUE(grabar()) << ultimoMensaje();
    const auto fila = FilaDeSubItem(*ctx, interno, grabacion.id, 5001);
    ASSERT_TRUE(fila);
    EXPECT_EQ(fila->numero.toInt(), 5001);
}

EN_AMBOS_STORES(Grabado);

}  // namespace
