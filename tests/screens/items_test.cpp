// The item screen: item 0's totals, the rows of each item, and its keys.

#include <gtest/gtest.h>

#include <QApplication>

#include "assembly/run.h"
#include "frame/ui/Pantalla.h"
#include "liquidation/FrmVerItem.h"
#include "tests/support/pantallas.h"

namespace {

const QString importacion = QStringLiteral("IC-2026-0001");

class PantallaDeItems : public EnPantalla {
 protected:
    void SetUp() override {
        EnPantalla::SetUp();
        ctx->ChequeoArmado = QStringLiteral("SI");
        ASSERT_TRUE(Generar(*ctx, importacion, {}));
        registro = {};
        ctx->LiquidacionPendiente = true;
    }
    FrmVerItem &mostrar() {
        auto &items = Pantalla<FrmVerItem>();
        items.Mostrar(importacion);
        esperarVentana(items.ventana.get());
        return items;
    }
};

TEST_P(PantallaDeItems, OpensOnItemZeroWithTheOperationsTotals) {
    auto &ui = mostrar().ui;
    EXPECT_EQ(ui.TxtItem->text(), QStringLiteral("0"));
    EXPECT_EQ(ui.sTab->currentIndex(), 3);
    EXPECT_EQ(ui.lbCantidadItems->text(), QStringLiteral("de 19"));
    // 35,950.00 at 1.097676... of its currency is the FOB in dollars; freight 2,350.00, and 410.00 of
    // insurance at 1.27: the sum of the three is the base.
    EXPECT_EQ(ui.LbFobUs->text(), QStringLiteral("39461,45"));
    EXPECT_EQ(ui.LbFleteUs->text(), QStringLiteral("2350,00"));
    EXPECT_EQ(ui.LbSeguroUS->text(), QStringLiteral("520,70"));
    EXPECT_EQ(ui.LbBaseImp->text(), QStringLiteral("42332,15"));
    // The grid of item 0 is the sum by concept; what is to pay is the total of its "P" rows.
    double suma = 0;
    for (int fila = 0; fila < ui.GrdLiq->rowCount(); ++fila) {
        ASSERT_EQ(ui.GrdLiq->item(fila, 5)->text(), QStringLiteral("P"));
        suma += ui.GrdLiq->item(fila, 4)->text().replace(QLatin1Char(','), QLatin1Char('.')).toDouble();
    }
    EXPECT_NEAR(ui.lbTOTALG->text().replace(QLatin1Char(','), QLatin1Char('.')).toDouble(), suma, 0.005);
    EXPECT_EQ(ui.lbTOTGAR->text(), QStringLiteral("0"));
    EXPECT_EQ(ui.lbTOTCOB->text(), QStringLiteral("0"));
    EXPECT_EQ(ui.lbEstado->text(), QStringLiteral("LISTO"));
}

TEST_P(PantallaDeItems, EnteringTheItemsWritesTheLiquidationBack) {
    EXPECT_EQ(valor(QStringLiteral("select count(*) from liqcero where interno = 'IC-2026-0001'")),
              QStringLiteral("0"));
    mostrar();
    EXPECT_FALSE(ctx->LiquidacionPendiente);
    EXPECT_NE(valor(QStringLiteral("select count(*) from liqcero where interno = 'IC-2026-0001'")),
              QStringLiteral("0"));
    EXPECT_EQ(valor(QStringLiteral(
                  "select total from itemliq where interno = 'IC-2026-0001' and iditem = 1 and idconceptos "
                  "= '010'")),
              // 14 % of the base 7,924.83 of item 1.
              QStringLiteral("1109.48"));
}

TEST_P(PantallaDeItems, TheGridHasItsColumns) {
    const auto *grilla = mostrar().ui.GrdLiq;
    QStringList titulos;
    for (int c = 0; c < grilla->columnCount(); ++c) titulos << grilla->horizontalHeaderItem(c)->text();
    EXPECT_EQ(titulos,
              QStringList({QStringLiteral("Nro"), QStringLiteral("Concepto"), QStringLiteral("Porc. %"),
                           QStringLiteral("Base Imp."), QStringLiteral("Total"), QStringLiteral("PGC"),
                           QStringLiteral("Motivo")}));
}

TEST_P(PantallaDeItems, PageKeysWalkTheItemsAndStopAtTheEnds) {
    auto &ui = mostrar().ui;
    tecla(Qt::Key_PageUp);
    EXPECT_EQ(ui.TxtItem->text(), QStringLiteral("0"));
    tecla(Qt::Key_PageDown);
    EXPECT_EQ(ui.TxtItem->text(), QStringLiteral("1"));
    EXPECT_EQ(ui.LbPos->text(), QStringLiteral("8413.70.10.100L"));
    for (int n = 0; n < 30; ++n) tecla(Qt::Key_PageDown);
    EXPECT_EQ(ui.TxtItem->text(), QStringLiteral("19"));
    tecla(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(ui.TxtItem->text(), QStringLiteral("0"));
}

TEST_P(PantallaDeItems, ANumberTypedJumpsToThatItemAndAWrongOneStays) {
    auto &ui = mostrar().ui;
    ui.TxtItem->setFocus();
    escribir(QStringLiteral("7"));
    tecla(Qt::Key_Return);
    EXPECT_EQ(ui.Scr->value(), 7);
    EXPECT_EQ(ui.TxtItem->text(), QStringLiteral("7"));
    ui.TxtItem->setFocus();
    ui.TxtItem->selectAll();
    escribir(QStringLiteral("99"));
    tecla(Qt::Key_Return);
    EXPECT_EQ(ui.TxtItem->text(), QStringLiteral("7"));
}

TEST_P(PantallaDeItems, FunctionKeysChooseThePages) {
    auto &ui = mostrar().ui;
    const std::pair<int, int> teclas[] = {{Qt::Key_F1, 0}, {Qt::Key_F2, 1}, {Qt::Key_F3, 2},
                                          {Qt::Key_F4, 3}, {Qt::Key_F5, 4}, {Qt::Key_F7, 5}};
    for (const auto &[cual, solapa] : teclas) {
        tecla(cual);
        EXPECT_EQ(ui.sTab->currentIndex(), solapa);
    }
    tecla(Qt::Key_F4);
    EXPECT_EQ(QApplication::focusWidget(), ui.GrdLiq);
    EXPECT_EQ(ui.GrdLiq->currentRow(), 0);
}

TEST_P(PantallaDeItems, AnItemShowsItsLinesItsRowsAndItsAdvantages) {
    auto &ui = mostrar().ui;
    tecla(Qt::Key_PageDown);
    ASSERT_EQ(ui.LstV->rowCount(), 2);
    EXPECT_EQ(ui.LstV->item(0, 0)->text(), QStringLiteral("NP-0750"));
    EXPECT_EQ(ui.LstV->item(1, 0)->text(), QStringLiteral("NP-1100"));
    ASSERT_EQ(ui.LstVentajas->count(), 1);
    EXPECT_EQ(ui.LstVentajas->item(0)->text(), QStringLiteral("BIENCAPITAL"));
    EXPECT_EQ(ui.GrdLiq->item(0, 0)->text(), QStringLiteral("010"));
    EXPECT_EQ(ui.GrdLiq->item(0, 2)->text(), QStringLiteral("14,00"));
}

TEST_P(PantallaDeItems, TheCancellationsOfAnItemAreListed) {
    ejecutar(
        QStringLiteral("insert into descargas "
                       "(interno,iditem,dit,item,subitem,ncm,expctit,cantidad,factorponderacion) values "
                       "('IC-2026-0001','1','26001IT01000123A','1','2','8413.70.10.100L','EXP-1',2.5,1)"));
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
              QStringLiteral("Se modifico algun concepto de liquidación, \r\ndebe ir al item 0 (cero) para "
                             "calcular y actualizar los totales."));
    EXPECT_TRUE(PantallaAbierta<FrmVerItem>());
    tecla(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_FALSE(ctx->LiquidacionPendiente) << "item 0 calculates and writes back";
    tecla(Qt::Key_Escape);
    EXPECT_FALSE(PantallaAbierta<FrmVerItem>());
}

TEST_P(PantallaDeItems, ClosingRunsTheConsistencyReport) {
    // Item 1 and its group no longer agree with their lines.
    ejecutar(QStringLiteral("update item set idpais = '999' where interno = 'IC-2026-0001' and id = 1"));
    mostrar();
    tecla(Qt::Key_Escape);
    ASSERT_EQ(registro.informes.size(), 1U);
    EXPECT_TRUE(registro.informes[0].comoLista);
    EXPECT_TRUE(registro.informes[0].texto.contains(QLatin1String("(Pais Origen ITEM=999)")));
}

EN_AMBOS_STORES(PantallaDeItems);

}  // namespace
