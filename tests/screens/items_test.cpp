// The item screen: item 0's totals, the rows of each item, and its keys.

#include <gtest/gtest.h>

#include "tests/screens/items_pantalla.h"
#include "tests/support/marcas.h"

using namespace Qt::StringLiterals;

namespace {

class PantallaDeItems : public EnItems {};

TEST_P(PantallaDeItems, OpensOnItemZeroWithTheOperationsTotals) {
    auto &ui = mostrar().ui;
    EXPECT_EQ(ui.TxtItem->text(), u"0"_s);
    EXPECT_EQ(ui.sTab->currentIndex(), 3);
    EXPECT_EQ(ui.lbCantidadItems->text(), u"de 19"_s);
    // 35,950.00 at 1.097676... of its currency is the FOB in dollars; freight 2,350.00, and 410.00 of
    // insurance at 1.27: the sum of the three is the base.
    EXPECT_EQ(ui.LbFobUs->text(), u"39461,45"_s);
    EXPECT_EQ(ui.LbFleteUs->text(), u"2350,00"_s);
    EXPECT_EQ(ui.LbSeguroUS->text(), u"520,70"_s);
    EXPECT_EQ(ui.LbBaseImp->text(), u"42332,15"_s);
    // The grid of item 0 is the sum by concept; what is to pay is the total of its "P" rows.
    double suma = 0;
    for (int fila = 0; fila < ui.GrdLiq->rowCount(); ++fila) {
        ASSERT_EQ(ui.GrdLiq->item(fila, 5)->text(), u"P"_s);
        suma += ui.GrdLiq->item(fila, 4)->text().replace(QLatin1Char(','), QLatin1Char('.')).toDouble();
    }
    EXPECT_NEAR(ui.lbTOTALG->text().replace(QLatin1Char(','), QLatin1Char('.')).toDouble(), suma, 0.005);
    EXPECT_EQ(ui.lbTOTGAR->text(), u"0"_s);
    EXPECT_EQ(ui.lbTOTCOB->text(), u"0"_s);
    EXPECT_EQ(ui.lbEstado->text(), u"LISTO"_s);
}

TEST_P(PantallaDeItems, EnteringTheItemsWritesTheLiquidationBack) {
    EXPECT_EQ(valor(u"select count(*) from liqcero where interno = 'IC-2026-0001'"_s), u"0"_s);
    mostrar();
    EXPECT_FALSE(ctx->LiquidacionPendiente);
    EXPECT_NE(valor(u"select count(*) from liqcero where interno = 'IC-2026-0001'"_s), u"0"_s);
    EXPECT_EQ(
        valor(u"select total from itemliq where interno = 'IC-2026-0001' and iditem = 1 and idconceptos "
              "= '010'"_s),
        // 14 % of the base 7,924.83 of item 1.
        u"1109.48"_s);
}

TEST_P(PantallaDeItems, TheGridHasItsColumns) {
    const auto *grilla = mostrar().ui.GrdLiq;
    QStringList titulos;
    for (int c = 0; c < grilla->columnCount(); ++c) titulos << grilla->horizontalHeaderItem(c)->text();
    EXPECT_EQ(titulos, QStringList({u"Nro"_s, u"Concepto"_s, u"Porc. %"_s, u"Base Imp."_s, u"Total"_s,
                                    u"PGC"_s, u"Motivo"_s}));
}

TEST_P(PantallaDeItems, PageKeysWalkTheItemsAndStopAtTheEnds) {
    auto &ui = mostrar().ui;
    tecla(Qt::Key_PageUp);
    EXPECT_EQ(ui.TxtItem->text(), u"0"_s);
    tecla(Qt::Key_PageDown);
    EXPECT_EQ(ui.TxtItem->text(), u"1"_s);
    EXPECT_EQ(ui.LbPos->text(), u"8413.70.10.100L"_s);
    for (int n = 0; n < 30; ++n) tecla(Qt::Key_PageDown);
    EXPECT_EQ(ui.TxtItem->text(), u"19"_s);
    tecla(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(ui.TxtItem->text(), u"0"_s);
}

TEST_P(PantallaDeItems, ANumberTypedJumpsToThatItemAndAWrongOneStays) {
    auto &ui = mostrar().ui;
    ui.TxtItem->setFocus();
    escribir(u"7"_s);
    tecla(Qt::Key_Return);
    EXPECT_EQ(ui.Scr->value(), 7);
    EXPECT_EQ(ui.TxtItem->text(), u"7"_s);
    ui.TxtItem->setFocus();
    ui.TxtItem->selectAll();
    escribir(u"99"_s);
    tecla(Qt::Key_Return);
    EXPECT_EQ(ui.TxtItem->text(), u"7"_s);
}

TEST_P(PantallaDeItems, FunctionKeysChooseThePagesAndThoseOfHiddenOnesDoNothing) {
    auto &ui = mostrar().ui;
    const std::pair<int, int> teclas[] = {{Qt::Key_F1, 0}, {Qt::Key_F2, 1}, {Qt::Key_F3, 2},
                                          {Qt::Key_F5, 2}, {Qt::Key_F7, 2}, {Qt::Key_F4, 3}};
    for (const auto &[cual, solapa] : teclas) {
        tecla(cual);
        EXPECT_EQ(ui.sTab->currentIndex(), solapa);
    }
    EXPECT_EQ(QApplication::focusWidget(), ui.GrdLiq);
    EXPECT_EQ(ui.GrdLiq->currentRow(), 0);
}

TEST_P(PantallaDeItems, TheRegimeShowsThePagesOfCancellationsAndOfMeat) {
    struct Caso {
        const char *regimen;
        bool cancelaciones;
        bool oncca;
    };
    // EC03 takes inputs but has no such page, EC07 has the page but takes none; a code in small letters is
    // the one in capitals.
    for (const Caso &c : {Caso{"IC04", false, false}, Caso{"EC02", true, true}, Caso{"EC03", false, true},
                          Caso{"EC07", false, true}, Caso{"IC83", true, false}, Caso{"EG02", true, false},
                          Caso{"ec01", false, true}}) {
        ejecutar(u"update caratula set idsubreg = '%1' where interno = 'IC-2026-0001'"_s.arg(
            QLatin1String(c.regimen)));
        auto &ui = mostrar().ui;
        EXPECT_EQ(ui.sTab->isTabVisible(4), c.cancelaciones) << c.regimen;
        EXPECT_EQ(ui.sTab->isTabVisible(5), c.oncca) << c.regimen;
        const QString teclas = ui.lbTeclas->text();
        EXPECT_EQ(teclas.contains("F1-F5"_L1), c.cancelaciones) << c.regimen;
        EXPECT_EQ(teclas.contains("F7"_L1), c.oncca) << c.regimen;
        tecla(Qt::Key_F1);
        tecla(Qt::Key_F5);
        EXPECT_EQ(ui.sTab->currentIndex(), c.cancelaciones ? 4 : 0) << c.regimen;
        tecla(Qt::Key_F1);
        tecla(Qt::Key_F7);
        EXPECT_EQ(ui.sTab->currentIndex(), c.oncca ? 5 : 0) << c.regimen;
        ctx->LiquidacionPendiente = false;
        CerrarPantalla<FrmVerItem>();
    }
}

TEST_P(PantallaDeItems, AnItemShowsItsLinesItsRowsAndItsAdvantages) {
    auto &ui = mostrar().ui;
    tecla(Qt::Key_PageDown);
    ASSERT_EQ(ui.LstV->rowCount(), 2);
    EXPECT_EQ(ui.LstV->item(0, 0)->text(), u"NP-0750"_s);
    EXPECT_EQ(ui.LstV->item(1, 0)->text(), u"NP-1100"_s);
    ASSERT_EQ(ui.LstVentajas->count(), 1);
    EXPECT_EQ(ui.LstVentajas->item(0)->text(), u"BIENCAPITAL"_s);
    EXPECT_EQ(ui.GrdLiq->item(0, 0)->text(), u"010"_s);
    EXPECT_EQ(ui.GrdLiq->item(0, 2)->text(), u"14,00"_s);
}

TEST_P(PantallaDeItems, TheCancellationsOfAnItemAreListed) {
    ejecutar(
        u"insert into descargas "
        "(interno,iditem,dit,item,subitem,ncm,expctit,cantidad,factorponderacion) values "
        "('IC-2026-0001','1','26001IT01000123A','1','2','8413.70.10.100L','EXP-1',2.5,1)"_s);
    auto &ui = mostrar().ui;
    tecla(Qt::Key_PageDown);
    ASSERT_EQ(ui.lstVCancel->rowCount(), 1);
    QStringList textos;
    for (int c = 0; c < ui.lstVCancel->columnCount(); ++c) textos << ui.lstVCancel->item(0, c)->text();
    EXPECT_EQ(textos.join(QLatin1Char('|')).toStdString(),
              "26001IT01000123A|1|2|8413.70.10.100L|EXP-1|02,500|1");
}

TEST_P(PantallaDeItems, EscapeWithALiquidationPendingWarnsAndStays) {
    mostrar();
    tecla(Qt::Key_PageDown);
    ctx->LiquidacionPendiente = true;
    tecla(Qt::Key_Escape);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto,
              u"Se modifico algun concepto de liquidación, \r\ndebe ir al item 0 (cero) para "
              "calcular y actualizar los totales."_s);
    EXPECT_TRUE(PantallaAbierta<FrmVerItem>());
    tecla(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_FALSE(ctx->LiquidacionPendiente) << "item 0 calculates and writes back";
    tecla(Qt::Key_Escape);
    EXPECT_FALSE(PantallaAbierta<FrmVerItem>());
}

TEST_P(PantallaDeItems, ClosingRunsTheConsistencyReport) {
    // Item 1 and its group no longer agree with their lines.
    ejecutar(u"update item set idpais = '999' where interno = 'IC-2026-0001' and id = 1"_s);
    mostrar();
    tecla(Qt::Key_Escape);
    ASSERT_EQ(registro.informes.size(), 1U);
    EXPECT_TRUE(registro.informes[0].comoLista);
    EXPECT_TRUE(registro.informes[0].texto.contains("(Pais Origen ITEM=999)"_L1));
}

const QString cuatroTotales = u"###baseiva|0\n###baseimp|0\n###ajded|0\n###ajinc|0"_s;
const QString totalesDeLaOperacion = u"select idconcepto,valor from liqcero where interno = 'IC-2026-0001'"_s;

TEST_P(PantallaDeItems, AnOperationWithoutItemRowsIsRunWithNoneAndEscapeLeaves) {
    ejecutar(u"delete from item where interno = 'IC-2026-0001'"_s);
    ejecutar(u"insert into liqcero (interno,idconcepto,valor) values ('IC-2026-0001','010',5)"_s);
    auto &ui = mostrar().ui;
    EXPECT_EQ(ui.TxtItem->text(), u"0"_s);
    EXPECT_EQ(ui.lbCantidadItems->text(), u"de 0"_s);
    EXPECT_EQ(ui.lbTOTALG->text(), u"00,00"_s);
    EXPECT_EQ(ui.LbFobUs->text(), u"00,00"_s);
    EXPECT_EQ(ui.GrdLiq->rowCount(), 0);
    EXPECT_EQ(filas(totalesDeLaOperacion), cuatroTotales);
    EXPECT_FALSE(ctx->LiquidacionPendiente);
    tecla(Qt::Key_Escape);
    EXPECT_FALSE(PantallaAbierta<FrmVerItem>());
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(PantallaDeItems, ItemsWithoutTheRowOfItemZeroAreLiquidatedAndEscapeLeaves) {
    ejecutar(u"delete from item where interno = 'IC-2026-0001' and id = 0"_s);
    auto &ui = mostrar().ui;
    EXPECT_EQ(ui.TxtItem->text(), u"0"_s);
    EXPECT_EQ(ui.lbCantidadItems->text(), u"de 19"_s);
    EXPECT_GT(ui.GrdLiq->rowCount(), 3);
    EXPECT_FALSE(ctx->LiquidacionPendiente);
    tecla(Qt::Key_PageDown);
    EXPECT_EQ(ui.TxtItem->text(), u"1"_s);
    tecla(Qt::Key_Escape);
    EXPECT_FALSE(PantallaAbierta<FrmVerItem>());
}

TEST_P(PantallaDeItems, AnOperationThatIsGoneIsToldAndEscapeLeaves) {
    ejecutar(u"delete from caratula where interno = 'IC-2026-0001'"_s);
    mostrar();
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto,
              u"El interno IC-2026-0001 ya no existe: vuelva a buscarlo en la lista."_s);
    tecla(Qt::Key_Escape);
    EXPECT_FALSE(PantallaAbierta<FrmVerItem>());
}

TEST_P(PantallaDeItems, ARunThatTheStoreStopsIsToldAndEscapeLeavesItPending) {
    ejecutar(u"drop table liqcero"_s);
    mostrar();
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Critico);
    EXPECT_TRUE(ctx->LiquidacionPendiente) << "nothing was written back";
    tecla(Qt::Key_Escape);
    EXPECT_FALSE(PantallaAbierta<FrmVerItem>());
}

TEST_P(PantallaDeItems, WhatTheOperationHoldsIsShownAsItIsWritten) {
    ejecutar(u"update pais set descripcion = '<b>A&B</b>' where id = '310'"_s, u"SYSTABLAS"_s);
    ejecutar(
        u"update item set idpais = '310', idproc = '310', ncm = '8413.70.10.100L' where interno = "
        "'IC-2026-0001' and id = 1"_s);
    auto &items = mostrar();
    tecla(Qt::Key_PageDown);
    EXPECT_EQ(items.ui.LbDescPais->text(), u"<b>A&B</b>"_s);
    EXPECT_EQ(comoMarcas(items.ventana.get()).toStdString(), "");
    for (const QLabel *etiqueta : {items.ui.LbDescPais, items.ui.LbDest, items.ui.lbNCM, items.ui.LbEstMerc})
        EXPECT_EQ(etiqueta->textFormat(), Qt::PlainText) << etiqueta->objectName().toStdString();
}

EN_AMBOS_STORES(PantallaDeItems);

}  // namespace
