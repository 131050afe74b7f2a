// What the header takes as it is typed, what it keeps, and what marks its operation.

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QTest>

#include "frame/ui/Pantalla.h"
#include "header/FrmABMProrrateos.h"
#include "header/FrmListado.h"
#include "tests/screens/caratula_pantalla.h"

using namespace Qt::StringLiterals;

namespace {

class CambiosDeCaratula : public PantallaDeCaratula {
 protected:
    /// The text typed in place of what the field holds, without leaving it.
    static void llenar(QLineEdit *campo, const QString &texto) {
        campo->setFocus();
        campo->selectAll();
        escribir(texto);
    }
    void cerrar() {
        tecla(Qt::Key_Escape);
        ASSERT_FALSE(PantallaAbierta<FrmCaratula>()) << ultimo();
    }
};

// Letters

TEST_P(CambiosDeCaratula, LettersOfACodeAreUpperCasedAsTheyAreTypedAndTheRegimeKeepsItsFields) {
    ejecutar(u"update caratula set nrotransinter = 'MIC 1' where interno = 'IC-2026-0001'"_s);
    auto &ui = mostrar().ui;
    llenar(ui.TxtSubReg, u"ic04"_s);
    EXPECT_EQ(ui.TxtSubReg->text(), u"IC04"_s);
    tecla(Qt::Key_Return);
    EXPECT_TRUE(ui.txtNROTRANSINTER->isVisible());
    llenar(ui.TxtCodDivFlete, u"dol"_s);
    EXPECT_EQ(ui.TxtCodDivFlete->text(), u"DOL"_s);
    llenar(ui.Txtidcondventa, u"cfr"_s);
    EXPECT_EQ(ui.Txtidcondventa->text(), u"CFR"_s);
    llenar(ui.txtDCEstMerc, u"nu"_s);
    EXPECT_EQ(ui.txtDCEstMerc->text(), u"NU"_s);
    llenar(ui.txtAnexo_Vendedor, u"anexo"_s);
    EXPECT_EQ(ui.txtAnexo_Vendedor->text(), u"anexo"_s) << "free text stays as it is typed";
    cerrar();
    EXPECT_EQ(guardado("idsubreg"), u"IC04"_s);
    EXPECT_EQ(guardado("nrotransinter"), u"MIC 1"_s);
}

TEST_P(CambiosDeCaratula, TheReasonIsUpperCasedToo) {
    auto &ui = mostrar(temporal).ui;
    llenar(ui.Txtmotdestsusp, u"dto.1439/96"_s);
    EXPECT_EQ(ui.Txtmotdestsusp->text(), u"DTO.1439/96"_s);
}

TEST_P(CambiosDeCaratula, ARegimeStoredInSmallLettersIsTheOneInCapitals) {
    ejecutar(u"update caratula set idsubreg = 'djai' where interno = 'DJAI-2026-0004'"_s);
    auto &ui = mostrar(djai).ui;
    EXPECT_EQ(ui.TxtSubReg->text(), u"DJAI"_s);
    EXPECT_TRUE(ui.gbDJAI->isVisible());
    cerrar();
    EXPECT_EQ(guardado("idsubreg", djai), u"DJAI"_s);
    EXPECT_EQ(guardado("djai_fecha_arrib_aprox", djai), u"2026-04-20 00:00:00"_s);
}

TEST_P(CambiosDeCaratula, ACodeThatItsTableHasInSmallLettersIsTakenInCapitals) {
    conDialogosDeVerdad();
    ejecutar(u"insert into divisas (id,descripcion,imp) values ('zlt','Zloty',0.25)"_s);
    auto &pantalla = mostrar();
    conPantallaModal<FrmListado>([](FrmListado &) {
        escribir(u"zloty"_s);
        tecla(Qt::Key_Return);
    });
    teclaEn(pantalla.ui.TxtCodDivFlete, Qt::Key_F6);
    esperarVentana(pantalla.ventana.get());
    EXPECT_EQ(pantalla.ui.TxtCodDivFlete->text(), u"ZLT"_s);
    EXPECT_EQ(pantalla.ui.TxtDivValorFlete->text(), u"0,250000"_s);
}

// The insurance

// 35,950.00 at 1.085 is 39,005.75; with 100.00 of freight and 420.00 of proration codes one percent of
// 39,525.75 is 395.26, which at 1.27 is 311.23. A value of 10,000.00 is 10,850.00: one percent of 11,370.00
// is 113.70, and at 1.27 it is 89.53.
TEST_P(CambiosDeCaratula, TheInsuranceFollowsAnyKeyReleasedInItsPercentage) {
    auto &ui = mostrar().ui;
    llenar(ui.Txtfletedivisas, u"100"_s);
    llenar(ui.txtPorc, u"1"_s);
    EXPECT_EQ(ui.Txtsegurodivisas->text(), u"311,23"_s);
    llenar(ui.Txtfobdivisas, u"10000"_s);
    EXPECT_EQ(ui.Txtsegurodivisas->text(), u"311,23"_s);
    teclaEn(ui.txtPorc, Qt::Key_Right);
    EXPECT_EQ(ui.TxtDolSeguro->text(), u"113,70"_s);
    EXPECT_EQ(ui.Txtsegurodivisas->text(), u"89,53"_s);
    cerrar();
    EXPECT_EQ(guardado("segurodivisas"), u"89.53"_s);
}

TEST_P(CambiosDeCaratula, TheTabThatArrivesAtThePercentageIsReleasedThere) {
    auto &ui = mostrar().ui;
    llenar(ui.Txtfletedivisas, u"100"_s);
    llenar(ui.txtPorc, u"1"_s);
    llenar(ui.Txtfobdivisas, u"10000"_s);
    teclaEn(ui.TxtDivValorSeguro, Qt::Key_Tab);
    ASSERT_EQ(QApplication::focusWidget(), ui.txtPorc);
    EXPECT_EQ(ui.Txtsegurodivisas->text(), u"89,53"_s);
}

// Numbers

TEST_P(CambiosDeCaratula, WhatIsTypedIsStoredAndAnAmountAsItIsFormed) {
    registro.respuestas = {false};
    auto &ui = mostrar().ui;
    teclear(ui.TxtKgNeto, u"12,345"_s);
    EXPECT_EQ(ui.TxtKgNeto->text(), u"12,345"_s);
    teclear(ui.TxtDivValorFob, u"1,08500041"_s);
    EXPECT_EQ(ui.TxtDivValorFob->text(), u"1,08500041"_s);
    teclear(ui.TxtAjustIncluir, u"0,125"_s);
    teclear(ui.txtPorc, u"0,125"_s);
    teclear(ui.Txtfletedivisas, u"100,129"_s);
    EXPECT_EQ(ui.Txtfletedivisas->text(), u"100,13"_s);
    cerrar();
    EXPECT_EQ(filas(u"select dckgneto,fobdivcambio,ajusteincluir,seguroporcentaje,fletedivisas from caratula "
                    "where interno = 'IC-2026-0001'"_s),
              u"12.345|1.08500041|0.125|0.125|100.13"_s);
}

TEST_P(CambiosDeCaratula, AMaskOnlyShowsWhatIsStored) {
    ejecutar(
        u"update caratula set fobdivisas = 100.129,fobdivcambio = 1.08500041,dckgneto = 12.345,"
        "seguroporcentaje = 0.125,gastos_anteriores_fob = 1.23456 where interno = 'IC-2026-0001'"_s);
    auto &ui = mostrar().ui;
    EXPECT_EQ(ui.Txtfobdivisas->text(), u"100,13"_s);
    EXPECT_EQ(ui.TxtKgNeto->text(), u"12,35"_s);
    EXPECT_EQ(ui.txtPorc->text(), u"00,13"_s);
    teclaEn(ui.Txtfobdivisas, Qt::Key_Tab);
    teclaEn(ui.TxtKgNeto, Qt::Key_Return);
    cerrar();
    const QString columnas =
        u"select fobdivisas,fobdivcambio,dckgneto,seguroporcentaje,gastos_anteriores_fob from caratula where "
        "interno = 'IC-2026-0001'"_s;
    EXPECT_EQ(filas(columnas), u"100.129|1.08500041|12.345|0.125|1.23456"_s);
    auto &otra = mostrar().ui;
    llenar(otra.TxtKgNeto, u"12,35"_s);
    cerrar();
    EXPECT_EQ(guardado("dckgneto"), u"12.35"_s) << "typed, it is what was typed";
}

// A percentage of 0.125 shown as 00,13: of 39,005.75 and 2,350.00 and 420.00 it is 52.22, which at 1.27
// is 41.12.
TEST_P(CambiosDeCaratula, APercentageIsReckonedWithAsItIsStored) {
    ejecutar(u"update caratula set seguroporcentaje = 0.125 where interno = 'IC-2026-0001'"_s);
    auto &ui = mostrar().ui;
    teclaEn(ui.txtPorc, Qt::Key_Right);
    EXPECT_EQ(ui.TxtDolSeguro->text(), u"52,22"_s);
    EXPECT_EQ(ui.Txtsegurodivisas->text(), u"41,12"_s);
}

// Marks

TEST_P(CambiosDeCaratula, LookingAtAHeaderMarksNothing) {
    for (const QString &interno : {importacion, exportacion, temporal, djai}) {
        SCOPED_TRACE(interno.toStdString());
        sinMarcas(interno);
        mostrar(interno);
        cerrar();
        EXPECT_EQ(marcas(interno), "N/R");
    }
}

TEST_P(CambiosDeCaratula, ARefusedEscLeavesTheScreenListening) {
    auto &ui = mostrar().ui;
    teclear(ui.TxtCuitAduana, {});
    tecla(Qt::Key_Escape);
    ASSERT_TRUE(PantallaAbierta<FrmCaratula>());
    sinMarcas();
    llenar(ui.txtAnexo_Vendedor, u"A"_s);
    EXPECT_EQ(marcas(), "S/");
}

TEST_P(CambiosDeCaratula, AProrationCodeAddedOrRemovedMarksTheOperation) {
    auto &ui = mostrar().ui;
    sinMarcas();
    conPantallaModal<FrmABMProrrateos>([](FrmABMProrrateos &codigos) {
        tecla(Qt::Key_Insert);
        escribir(u"flete"_s);
        codigos.ui.TxtValor->setFocus();
        escribir(u"10"_s);
        tecla(Qt::Key_F11);
        tecla(Qt::Key_Escape);
        tecla(Qt::Key_Escape);
    });
    teclaEn(ui.CmdProrrat, Qt::Key_Space);
    EXPECT_DOUBLE_EQ(ctx->TotalProrrateado, 430);
    EXPECT_EQ(marcas(), "S/");
    esperarVentana(Pantalla<FrmCaratula>().ventana.get());
    sinMarcas();
    conPantallaModal<FrmABMProrrateos>([](FrmABMProrrateos &) { tecla(Qt::Key_Escape); });
    teclaEn(ui.CmdProrrat, Qt::Key_Space);
    EXPECT_EQ(marcas(), "N/R") << "looked at";
    esperarVentana(Pantalla<FrmCaratula>().ventana.get());
    conPantallaModal<FrmABMProrrateos>([](FrmABMProrrateos &codigos) {
        teclaEn(codigos.ui.Lst, Qt::Key_Delete);
        tecla(Qt::Key_Escape);
    });
    teclaEn(ui.CmdProrrat, Qt::Key_Space);
    EXPECT_EQ(marcas(), "S/");
}

TEST_P(CambiosDeCaratula, AnInvoiceTakenAwayMarksTheOperation) {
    auto &ui = mostrar().ui;
    sinMarcas();
    ui.LstFact->setCurrentRow(0);
    teclaEn(ui.LstFact, Qt::Key_Delete);
    EXPECT_EQ(marcas(), "S/");
}

// Leaving a field

TEST_P(CambiosDeCaratula, ARateIsHeldAgainstTheTableOnEveryRoadOutOfItsField) {
    ejecutar(u"update divisas set imp = 1.1 where id = '060'"_s);
    auto &pantalla = mostrar();
    auto &ui = pantalla.ui;
    sinMarcas();
    const auto preguntas = [this] { return registro.preguntas.size(); };
    teclaEn(ui.TxtDivValorFob, Qt::Key_Return);
    EXPECT_EQ(preguntas(), 1U) << "by ENTER, once";
    teclaEn(ui.TxtDivValorFob, Qt::Key_Tab);
    EXPECT_EQ(preguntas(), 2U) << "by TAB";
    teclaEn(ui.TxtDivValorFob, Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(preguntas(), 3U);
    teclaEn(ui.TxtDivValorFob, Qt::Key_Down);
    EXPECT_EQ(preguntas(), 4U) << "by an arrow";
    ui.TxtDivValorFob->setFocus();
    QTest::mouseClick(ui.txtAnexo_Vendedor, Qt::LeftButton);
    QCoreApplication::processEvents();
    EXPECT_EQ(preguntas(), 5U) << "by the mouse";
    EXPECT_EQ(
        registro.preguntas[1].texto.toStdString(),
        "El valor ingresado por usted es 1,085000 este valor no corresponde al que tiene guardado en la "
        "tabla de Divisas que es 1,100000, desea guardar el nuevo valor como predeterminado.");
    EXPECT_EQ(marcas(), "N/R") << "the rate is the one it was";
    llenar(ui.TxtDivValorFob, u"1,2"_s);
    tecla(Qt::Key_Tab);
    EXPECT_EQ(preguntas(), 6U);
    EXPECT_EQ(marcas(), "S/");
}

TEST_P(CambiosDeCaratula, ATermTakesTheFormOfADateOnEveryRoadOutOfItsField) {
    ejecutar(u"update caratula set plazoautorizacion = '3/2/2026' where interno = 'IT-2026-0003'"_s);
    auto &ui = mostrar(temporal).ui;
    teclaEn(ui.TxtPlazoaut, Qt::Key_Tab);
    EXPECT_EQ(ui.TxtPlazoaut->text(), u"03-02-2026"_s);
    ui.TxtPlazoaut->setFocus();
    ui.TxtPlazoaut->setText(u"4/2/2026"_s);
    QTest::mouseClick(ui.txtAnexo_Vendedor, Qt::LeftButton);
    QCoreApplication::processEvents();
    EXPECT_EQ(ui.TxtPlazoaut->text(), u"04-02-2026"_s);
}

// Labels

TEST_P(CambiosDeCaratula, ANameThatLooksLikeMarkupReadsAsItIsTyped) {
    ejecutar(u"update clientes set nombre = '<b>A&B</b>' where cuit = '30708123451'"_s, u"PERSONAL"_s);
    ejecutar(u"update caratula set factura7 = '<b>A&B</b>' where interno = 'IC-2026-0001'"_s);
    auto &pantalla = mostrar();
    EXPECT_EQ(pantalla.ui.TxtNombre->text(), u"<b>A&B</b>"_s);
    for (const DefinicionDeControl &d : ControlesDeCaratula()) {
        const auto *rotulo = pantalla.ventana->findChild<QLabel *>(QLatin1String(d.nombre));
        if (d.tipo != TipoDeControl::Descripcion || rotulo == nullptr) continue;
        EXPECT_EQ(rotulo->textFormat(), Qt::PlainText) << d.nombre;
    }
}

EN_AMBOS_STORES(CambiosDeCaratula);

}  // namespace
