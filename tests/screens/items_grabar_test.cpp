// Moving among the items and leaving them: what is saved, and what keeps the page.

#include <gtest/gtest.h>

#include "assembly/FrmProrKg.h"
#include "liquidation/frmListadoItem.h"
#include "tests/screens/items_pantalla.h"

using namespace Qt::StringLiterals;

namespace {

class GrabadoDeItems : public EnItems {};
EN_AMBOS_STORES(GrabadoDeItems);

TEST_P(GrabadoDeItems, APageThatWasChangedIsSavedBeforeAnotherIsShown) {
    auto &ui = mostrarItem(1).ui;
    reemplazar(ui.TxtNaladisa, u"A'1"_s);
    tecla(Qt::Key_PageDown);
    EXPECT_EQ(ui.TxtItem->text(), u"2"_s);
    EXPECT_EQ(guardado("naladisa", 1), "A'1");
    reemplazar(ui.TxtNaladisa, u"A2"_s);
    ui.TxtItem->setFocus();
    ui.TxtItem->selectAll();
    escribir(u"9"_s);
    tecla(Qt::Key_Return);
    EXPECT_EQ(ui.Scr->value(), 9);
    EXPECT_EQ(guardado("naladisa", 2), "A2");
    reemplazar(ui.TxtNaladisa, u"A9"_s);
    ui.Scr->setFocus();
    tecla(Qt::Key_Right);
    EXPECT_EQ(ui.TxtItem->text(), u"10"_s);
    EXPECT_EQ(guardado("naladisa", 9), "A9");
    tecla(Qt::Key_Left);
    EXPECT_EQ(ui.TxtItem->text(), u"9"_s);
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(GrabadoDeItems, AnUnchangedPageSendsNoSave) {
    mostrarItem(1);
    const QStringList enviadas = grabaciones([] {
        for (int n = 0; n < 4; ++n) tecla(Qt::Key_PageDown);
        tecla(Qt::Key_PageUp);
    });
    EXPECT_TRUE(enviadas.isEmpty()) << enviadas.join(u'\n').toStdString();
}

TEST_P(GrabadoDeItems, ASaveThatFailsKeepsThePageTellsWhyAndMovesNothing) {
    auto &ui = mostrarItem(1).ui;
    reemplazar(ui.TxtTotKgNeto, u"12a"_s);
    tecla(Qt::Key_F4);
    tecla(Qt::Key_PageDown);
    EXPECT_EQ(ultimoMensaje(), "\"Kilos netos\" no es un número: corríjalo y vuelva a grabar.");
    EXPECT_EQ(ui.TxtItem->text(), u"1"_s);
    EXPECT_EQ(ui.Scr->value(), 1);
    EXPECT_EQ(ui.sTab->currentIndex(), 0) << "where the field is";
    EXPECT_EQ(QApplication::focusWidget(), ui.TxtTotKgNeto);
    EXPECT_EQ(ui.TxtTotKgNeto->selectedText(), u"12a"_s);
    escribir(u"12"_s);
    tecla(Qt::Key_PageDown);
    EXPECT_EQ(ui.TxtItem->text(), u"2"_s);
    EXPECT_EQ(guardado("totalkneto", 1), "12");
    EXPECT_EQ(registro.mensajes.size(), 1U);
}

TEST_P(GrabadoDeItems, F11SavesThePageInHand) {
    auto &ui = mostrarItem(3).ui;
    reemplazar(ui.txtItComExt, u"4,25"_s);
    const QStringList enviadas = grabaciones([] { tecla(Qt::Key_F11); });
    EXPECT_EQ(enviadas.size(), 1);
    EXPECT_EQ(guardado("itcomext", 3), "4.25");
    EXPECT_EQ(QApplication::focusWidget(), ui.txtItComExt);
    EXPECT_EQ(grabaciones([] { tecla(Qt::Key_PageDown); }).size(), 0) << "it is saved already";
}

TEST_P(GrabadoDeItems, LeavingSavesThePageThatIsShownAlsoAnUnchangedOne) {
    mostrarItem(2);
    const QStringList enviadas = grabaciones([] { tecla(Qt::Key_Escape); });
    ASSERT_EQ(enviadas.size(), 1);
    EXPECT_TRUE(enviadas[0].endsWith(u"where id = 2 and interno = 'IC-2026-0001'"_s));
    EXPECT_FALSE(PantallaAbierta<FrmVerItem>());
}

TEST_P(GrabadoDeItems, LeavingChangesNothingThatWasNotTyped) {
    const QString todo = u"select * from item where interno = 'IC-2026-0001' and id = 1"_s;
    ejecutar(
        u"update item set insumostemp = 1.23456, itcomext = 0.005 where interno = 'IC-2026-0001' and id = 1"_s);
    // What was never filled is filled with nothing, once.
    mostrarItem(1);
    tecla(Qt::Key_Escape);
    EXPECT_EQ(guardado("insumostemp,itcomext", 1), "1.23456|0.005") << "a mask is for showing alone";
    const QString antes = filas(todo);
    mostrarItem(1);
    tecla(Qt::Key_Escape);
    EXPECT_EQ(filas(todo), antes);
}

TEST_P(GrabadoDeItems, ASaveThatFailsOnLeavingKeepsTheScreenOnceAndASecondEscapeLeaves) {
    auto &ui = mostrarItem(1).ui;
    reemplazar(ui.TxtCOEF, u"uno"_s);
    tecla(Qt::Key_Escape);
    ASSERT_TRUE(PantallaAbierta<FrmVerItem>());
    EXPECT_EQ(ultimoMensaje(), "\"Coeficiente\" no es un número: corríjalo y vuelva a grabar.");
    EXPECT_EQ(QApplication::focusWidget(), ui.TxtCOEF);
    tecla(Qt::Key_Escape);
    EXPECT_FALSE(PantallaAbierta<FrmVerItem>());
    EXPECT_EQ(registro.mensajes.size(), 1U);
}

TEST_P(GrabadoDeItems, AFieldThatWasCorrectedIsSavedByTheNextEscape) {
    auto &ui = mostrarItem(1).ui;
    reemplazar(ui.TxtCOEF, u"uno"_s);
    tecla(Qt::Key_Escape);
    ui.TxtCOEF->selectAll();
    escribir(u"0,5"_s);
    tecla(Qt::Key_Escape);
    EXPECT_FALSE(PantallaAbierta<FrmVerItem>());
    EXPECT_EQ(guardado("cofexp", 1), "0.5");
}

TEST_P(GrabadoDeItems, AStoreThatRefusesThePageLetsTheUserOutByTheSecondEscape) {
    auto &ui = mostrarItem(1).ui;
    teclaEn(ui.chkMineria, Qt::Key_Space);
    ejecutar(u"drop table item"_s);
    tecla(Qt::Key_PageDown);
    EXPECT_EQ(ui.TxtItem->text(), u"1"_s);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Critico);
    tecla(Qt::Key_Escape);
    EXPECT_TRUE(PantallaAbierta<FrmVerItem>());
    EXPECT_EQ(registro.mensajes.size(), 2U) << "why is told again";
    tecla(Qt::Key_Escape);
    EXPECT_FALSE(PantallaAbierta<FrmVerItem>());
}

TEST_P(GrabadoDeItems, WhatItemZeroSaysIsSavedWhenItIsLeft) {
    auto &ui = mostrar().ui;
    tecla(Qt::Key_F1);
    reemplazar(ui.TxtNaladisa, u"TODOS"_s);
    tecla(Qt::Key_PageDown);
    EXPECT_EQ(ui.TxtNaladisa->text(), u"TODOS"_s);
    EXPECT_EQ(valor(u"select count(*) from item where interno = 'IC-2026-0001' and naladisa = 'TODOS'"_s),
              u"20"_s);
}

TEST_P(GrabadoDeItems, TheRunOfItemZeroCountsWithWhatWasTypedThere) {
    ejecutar(u"update caratula set ajusteincluir = 0.01 where interno = 'IC-2026-0001'"_s);
    auto &ui = mostrar().ui;
    tecla(Qt::Key_F1);
    reemplazar(ui.TxtAjusteInc, u"100"_s);
    EXPECT_TRUE(ctx->LiquidacionPendiente);
    const QStringList repartos = [&] {
        QStringList textos;
        Conexion::fijarTraza([&](const TrazaDeSentencia &t) {
            if (t.sentencia.contains("* '100'"_L1)) textos << t.sentencia;
        });
        tecla(Qt::Key_F4);
        Conexion::fijarTraza({});
        return textos;
    }();
    EXPECT_EQ(repartos.size(), 1);
    EXPECT_FALSE(ctx->LiquidacionPendiente);
    EXPECT_EQ(guardado("ajusteinc", 0), "100");
}

TEST_P(GrabadoDeItems, ReadingTheItemAgainKeepsWhatWasTyped) {
    auto &ui = mostrarItem(1).ui;
    reemplazar(ui.TxtNaladisa, u"NUEVA"_s);
    ejecutar(u"update item set standard = 'S' where interno = 'IC-2026-0001' and id = 1"_s);
    tecla(Qt::Key_F3);
    EXPECT_EQ(ui.TxtNaladisa->text(), u"NUEVA"_s);
    EXPECT_EQ(ui.TxtStan->text(), u"S"_s) << "read again";
}

TEST_P(GrabadoDeItems, TheListOfItemsGoesToTheChosenOne) {
    auto &ui = mostrarItem(1).ui;
    reemplazar(ui.TxtNaladisa, u"UNO"_s);
    enHija<frmListadoItem>([] { tecla(Qt::Key_F8); },
                           [](frmListadoItem &) {
                               tecla(Qt::Key_Down);
                               tecla(Qt::Key_Return);
                           });
    EXPECT_EQ(ui.TxtItem->text(), u"2"_s);
    EXPECT_EQ(guardado("naladisa", 1), "UNO");
    enHija<frmListadoItem>([&ui] { ui.cmdBuscarItem->click(); },
                           [](frmListadoItem &) { tecla(Qt::Key_Escape); });
    EXPECT_EQ(ui.TxtItem->text(), u"2"_s);
}

TEST_P(GrabadoDeItems, TheKilosOfTheItemAreSpreadFromItsPage) {
    auto &ui = mostrarItem(1).ui;
    reemplazar(ui.TxtTotKgNeto, u"50"_s);
    enHija<FrmProrKg>([] { tecla(Qt::Key_F9); },
                      [](FrmProrKg &kilos) {
                          EXPECT_EQ(kilos.ui.TxtValor->text(), u"50"_s);
                          kilos.ui.TxtValor->setFocus();
                          kilos.ui.TxtValor->selectAll();
                          escribir(u"80"_s);
                          kilos.ui.CmdPror->click();
                          if (kilos.ventana->isVisible()) tecla(Qt::Key_Escape);
                      });
    EXPECT_EQ(guardado("totalkneto", 1), "80");
    EXPECT_EQ(ui.TxtTotKgNeto->text(), u"80"_s) << "the page is read again";
}

}  // namespace
