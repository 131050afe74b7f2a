// What a sheet leaves out, what it replaces, and what it leaves as it was.

#include <gtest/gtest.h>

#include "liquidation/review.h"
#include "tests/sheet/hoja.h"
#include "tests/support/traza.h"

using namespace Qt::StringLiterals;

namespace {

class BordesDeHoja : public HojaDePrueba {
 protected:
    void SetUp() override {
        HojaDePrueba::SetUp();
        cargar(u"importacion"_s);
    }
    void TearDown() override {
        Conexion::fijarTraza({});
        HojaDePrueba::TearDown();
    }
    QStringList pagina(int item, bool subitems = false) { return lineasDe(imprimir(item, item, subitems)); }
    /// The lines of the page of the operation that tell an amount.
    QStringList importes() { return pagina(0).filter(u") "_s); }
};
EN_AMBOS_STORES(BordesDeHoja);

TEST_P(BordesDeHoja, AnItemWithoutListaSkipsTheTwoListLines) {
    const QStringList sin = pagina(1);
    EXPECT_TRUE(sin.filter(u"LISTA"_s).isEmpty());
    EXPECT_EQ(sin.at(19), u"------------"_s) << "line 20 goes on with the liquidation";
    const QStringList con = pagina(2);
    EXPECT_EQ(con.at(19), u"      LISTA: 306"_s);
    EXPECT_EQ(con.at(20), u" "_s);
    EXPECT_EQ(con.at(21), u"------------"_s);
    ejecutar(u"update item set lista = null where id = 2"_s);
    EXPECT_TRUE(pagina(2).filter(u"LISTA"_s).isEmpty()) << "null is no list";
}

TEST_P(BordesDeHoja, ATotalOfZeroIsAbsentFromTheItemsRowsAndFromTheOperationsPage) {
    EXPECT_TRUE(pagina(1).filter(u"(500)"_s).isEmpty());
    EXPECT_TRUE(importes().filter(u"(500)"_s).isEmpty());
    // 0 % of a base is worked out, and is nothing.
    ejecutar(u"update itemliq set porcentaje = 0 where idconceptos = '900'"_s);
    EXPECT_TRUE(importes().filter(u"(900)"_s).isEmpty());
    EXPECT_EQ(pagina(1).filter(u"(900)"_s).size(), 1) << "the item's page tells what is stored";
}

TEST_P(BordesDeHoja, AnInformationValueWithAQuotePrintsWithABacktick) {
    EXPECT_EQ(valor(u"select valor from iteminfo where idinfo = 'MARCA'"_s), u"D'Elia"_s);
    EXPECT_EQ(pagina(1).filter(u"MARCA"_s).value(0),
              u"MARCA                     D`Elia                        "_s);
}

TEST_P(BordesDeHoja, NoTextStopsTheSheetByItsQuotes) {
    ejecutar(u"update itemliq set motivo = 'D''x', conceptos = 'O''Higgins' where idconceptos = '010'"_s);
    ejecutar(u"update conceptos set descripcion = 'L''eau' where id = '010'"_s);
    ejecutar(u"update groupsubitems set sufijos = 'AA(d''or)-'''"_s);
    ejecutar(u"update item set lista = 'a''b''c' where id = 1"_s);
    ejecutar(u"insert into itemventaja (iditem,idventaja,interno) values (1,'V''V','IMPORTACION')"_s);
    const QStringList operacion = pagina(0, true);
    const QStringList item = pagina(1, true);
    EXPECT_EQ(operacion.filter(u"(010)"_s).value(0), u"209,79          (010) L`eau"_s);
    EXPECT_TRUE(item.contains(u"      LISTA: a`b`c"_s));
    EXPECT_TRUE(item.contains(u"V`V"_s));
    EXPECT_TRUE(item.contains(u"AA(d`or)-`"_s));
    EXPECT_TRUE(item.filter(u"O`Higgins (010)"_s).value(0).endsWith(u"D`x       "_s));
    EXPECT_TRUE((operacion + item).filter(u"'"_s).isEmpty());
}

TEST_P(BordesDeHoja, AConceptWithoutANameHasItsCodeAlone) {
    ejecutar(u"delete from conceptos where id = '900'"_s);
    EXPECT_EQ(importes().filter(u"(900)"_s).value(0), u"48,12           (900) "_s);
}

TEST_P(BordesDeHoja, ANegativeTotalIsOnTheOperationsPage) {
    ejecutar(u"update itemliq set porcentaje = -2.5 where idconceptos = '900'"_s);
    EXPECT_EQ(importes().filter(u"(900)"_s).value(0), u"-48,12          (900) INGRESOS BRUTOS"_s);
}

TEST_P(BordesDeHoja, TheRefusedTotalsPrintAsZeroWithoutAMessage) {
    ejecutar(u"insert into liqcero (idconcepto,valor,interno) values ('###baseiva',1283.16,'IMPORTACION')"_s);
    ejecutar(u"insert into liqcero (idconcepto,valor,interno) values ('###baseimp',1110,'IMPORTACION')"_s);
    const QStringList lineas = pagina(0);
    EXPECT_EQ(lineas.at(2), u"Base Imponible: 0"_s);
    EXPECT_EQ(lineas.at(3), u"Base Iva: 0"_s);
    EXPECT_TRUE(registro.mensajes.empty());
    EXPECT_EQ(lineas.last(), u"NRO.DJAI                  26001DJAI000012X              "_s)
        << "the sheet goes on";
}

TEST_P(BordesDeHoja, BlocksWithoutRowsAreNotThere) {
    for (const char *tabla : {"itemventaja", "iteminfo", "groupsubitems"})
        ejecutar(u"delete from "_s + QLatin1String(tabla));
    const QStringList item = pagina(1, true);
    EXPECT_EQ(item.size(), 29) << "19 lines of data, 4 of heading, 6 concepts";
    EXPECT_TRUE(item.last().startsWith(u"INGRESOS BRUTOS (900)"_s));
    EXPECT_TRUE(pagina(0, true).filter(u"S:"_s).isEmpty());
}

TEST_P(BordesDeHoja, AnItemWhosePositionIsNotThereGoesOnWithTheRatesOfTheOneBefore) {
    ejecutar(u"update item set ncm = '9999.99.99.999Z' where id = 2"_s);
    // 12,6 % of 555 is 69,93: the same rates, so the same total.
    EXPECT_EQ(importes().value(0), u"209,79          (010) DERECHOS DE IMPORTACION"_s);
    ejecutar(u"update item set ncm = 'rota' where id = 2"_s);
    EXPECT_EQ(importes().value(0), u"209,79          (010) DERECHOS DE IMPORTACION"_s);
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(BordesDeHoja, TheSeparatorIsTheWorkstations) {
    ctx->SeparadorDecimal = u'.';
    EXPECT_EQ(importes().value(0), u"209.79          (010) DERECHOS DE IMPORTACION"_s);
    EXPECT_EQ(pagina(1).at(9), u"   SEGURO 10              -  KG NETO 12.5           "_s);
}

TEST_P(BordesDeHoja, AnOperationThatIsNotThereIsTold) {
    interno = u"NINGUNA"_s;
    const HojaDeOperacion hoja = imprimir(0, 0);
    EXPECT_FALSE(hoja.hecha);
    EXPECT_FALSE(hoja.detenida);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto, u"No se encontro el interno en caratula"_s);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Exclamacion);
}

TEST_P(BordesDeHoja, AnOperationWithoutItemsHasItsPage) {
    for (const char *tabla : {"item", "itemliq", "groupsubitems", "iteminfo"})
        ejecutar(u"delete from "_s + QLatin1String(tabla));
    const HojaDeOperacion hoja = imprimir(0, 0, true);
    EXPECT_TRUE(hoja.hecha);
    EXPECT_EQ(lineasDe(hoja).size(), 10);
    EXPECT_EQ(hoja.documento.reporte.ficha.at(1).second, QString()) << "no item, no text";
}

TEST_P(BordesDeHoja, ARangeIsRefusedWhenTheFirstIsAboveTheLast) {
    EXPECT_EQ(DefectoDeRango(2, 1), u"El campo DESDE no puede ser mayor que HASTA"_s);
    EXPECT_EQ(DefectoDeRango(2, 2), QString());
    EXPECT_EQ(DefectoDeRango(0, 2), QString());
}

TEST_P(BordesDeHoja, TheHeaderIsLoadedWithItsOwnFobAndTheValueToProrate) {
    // FOB 1.000 + 200; 1 % of it and of the freight of 100 is the insurance, which is not there: 13,00.
    ejecutar(
        u"update caratula set fobdivisas = 1000, valoraprorratear = 200, fletedivisas = 100, "
        "segurodivisas = 0, seguroporcentaje = 1"_s);
    ClassLiquidacion calculo(*ctx, interno);
    ASSERT_TRUE(CargarCaratulaEnCalculadora(*ctx, interno, calculo, FobDeOperacion::DeSuCaratula));
    EXPECT_DOUBLE_EQ(calculo.CaratulaFobTotal, 1200);
    EXPECT_DOUBLE_EQ(calculo.CaratulaSeguroValor, 13);
    EXPECT_DOUBLE_EQ(calculo.CaratulaFobTotalSinG, 1500) << "the items' own";
}

}  // namespace
