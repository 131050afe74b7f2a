// The declaration header, by keyboard.

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

#include "frame/base/numbers.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/campos.h"
#include "header/FrmABMProrrateos.h"
#include "header/FrmCaratula.h"
#include "header/FrmClientes.h"
#include "header/FrmListado.h"
#include "header/FrmListadoDespachante.h"
#include "header/FrmLstDiv.h"
#include "header/FrmLstVendedores.h"
#include "operations/FrmDetalleInterno.h"
#include "tests/screens/caratula_pantalla.h"

using namespace Qt::StringLiterals;

namespace {

TEST_P(PantallaDeCaratula, TheDashboardOpensItAndGoesOnToTheLines) {
    ejecutar(u"update caratula set fobdivisas = 0 where interno = 'IC-2026-0001'"_s);
    auto &tablero = abrir(importacion);
    teclaEn(tablero.ui.cmdCaratula, Qt::Key_Space);
    ASSERT_TRUE(PantallaAbierta<FrmCaratula>());
    auto &ui = Pantalla<FrmCaratula>().ui;
    esperarVentana(Pantalla<FrmCaratula>().ventana.get());
    EXPECT_EQ(QApplication::focusWidget(), ui.TxtSubReg);
    teclear(ui.Txtfobdivisas, u"35950"_s);
    EXPECT_EQ(ui.Txtfobdivisas->text(), u"35950,00"_s);
    tecla(Qt::Key_Escape);
    EXPECT_FALSE(PantallaAbierta<FrmCaratula>());
    esperarVentana(tablero.ventana.get());
    EXPECT_EQ(tablero.ui.LbEstadoCaratula->text(), u"COMPLETO!"_s);
    EXPECT_EQ(QApplication::focusWidget(), tablero.ui.CmdSubItems);
    EXPECT_EQ(ultimo(), "<ninguno>");
}

TEST_P(PantallaDeCaratula, LoadingMarksNothingAndATypedLetterMarksTheOperation) {
    ejecutar(u"update caratula set factura8 = 'N' where interno = 'IC-2026-0001'"_s);
    auto &ui = mostrar().ui;
    EXPECT_EQ(guardado("factura8"), u"N"_s);
    EXPECT_EQ(ui.TxtNombre->text(), u"HIDRAULICA DEL PLATA S.A."_s);
    EXPECT_EQ(ui.TxtAduana1->text().trimmed(), u"BUENOS AIRES"_s);
    ui.txtAnexo_Vendedor->setFocus();
    escribir(u"A"_s);
    EXPECT_EQ(guardado("factura8"), u"S"_s);
}

TEST_P(PantallaDeCaratula, TheRegimeDecidesWhatIsShown) {
    auto &ui = mostrar(exportacion).ui;
    EXPECT_TRUE(ui.TxtIdpais->isVisible());
    EXPECT_TRUE(ui.txtDATOCOMPRADOR->isVisible());
    EXPECT_FALSE(ui.txtFechaEmbarque->isVisible());
    EXPECT_FALSE(ui.gbDJAI->isVisible());
    teclear(ui.TxtSubReg, u"IC04"_s);
    EXPECT_FALSE(ui.TxtIdpais->isVisible());
    EXPECT_FALSE(ui.rotulo_TxtIdpais->isVisible()) << "a label hides with its control";
    EXPECT_FALSE(ui.txtDATOCOMPRADOR->isVisible());
    EXPECT_TRUE(ui.txtFechaEmbarque->isVisible());
    EXPECT_TRUE(ui.txtDCBancos->isVisible());
    teclear(ui.TxtSubReg, u"DJAI"_s);
    EXPECT_TRUE(ui.gbDJAI->isVisible());
}

TEST_P(PantallaDeCaratula, ARegimeWithNoRowLeavesEveryControlAsTheLastRegimeLeftIt) {
    ejecutar(u"delete from dest where subreg = 'IC05'"_s, u"USUARIO"_s);
    auto &pantalla = mostrar();
    const auto visibles = [&pantalla] {
        QStringList nombres;
        for (const DefinicionDeControl &d : ControlesDeCaratula())
            if (auto *c = pantalla.ventana->findChild<QWidget *>(QLatin1String(d.nombre));
                c && c->isVisible())
                nombres << c->objectName();
        return nombres.join(QLatin1Char(' ')).toStdString();
    };
    const std::string antes = visibles();
    teclear(pantalla.ui.TxtSubReg, u"IC05"_s);
    EXPECT_EQ(visibles(), antes);
}

TEST_P(PantallaDeCaratula, AHiddenFieldWritesEmptyOrZeroSoAChangedRegimeDiscardsIt) {
    ASSERT_EQ(guardado("fletedivisas"), u"2350"_s);
    auto &ui = mostrar().ui;
    teclear(ui.TxtSubReg, u"EC01"_s);
    EXPECT_FALSE(ui.Txtfletedivisas->isVisible());
    EXPECT_FALSE(ui.rotulo_Txtfletedivisas->isVisible());
    tecla(Qt::Key_Escape);
    ASSERT_FALSE(PantallaAbierta<FrmCaratula>()) << ultimo();
    EXPECT_EQ(guardado("idsubreg"), u"EC01"_s);
    EXPECT_EQ(guardado("fletedivisas"), u"0"_s);
    EXPECT_EQ(guardado("fletecoddivisas"), QString());
    EXPECT_EQ(guardado("idvendedor"), QString());
}

TEST_P(PantallaDeCaratula, FiguresFollowWhileTyping) {
    auto &ui = mostrar().ui;
    ui.Txtfletedivisas->setFocus();
    ui.Txtfletedivisas->selectAll();
    escribir(u"100"_s);
    EXPECT_EQ(ui.TxtDolFlete->text(), u"100,00"_s) << "the dollar's rate is 1";
    // 35,950.00 at 1.085 is 39,005.75; with 100.00 of freight and 420.00 of proration codes the base is
    // 39,525.75: one percent is 395.26, which at 1.27 is 311.23.
    ui.txtPorc->setFocus();
    ui.txtPorc->selectAll();
    escribir(u"1"_s);
    EXPECT_EQ(ui.TxtDolSeguro->text(), u"395,26"_s);
    EXPECT_EQ(ui.Txtsegurodivisas->text(), u"311,23"_s);
}

TEST_P(PantallaDeCaratula, AValueToProrateTakesTheButtonOfTheCodesAway) {
    auto &ui = mostrar().ui;
    ui.TxtProrratear->setFocus();
    ui.TxtProrratear->selectAll();
    escribir(u"5"_s);
    EXPECT_FALSE(ui.CmdProrrat->isEnabled());
    ui.TxtProrratear->selectAll();
    escribir(u"0"_s);
    EXPECT_TRUE(ui.CmdProrrat->isEnabled());
}

TEST_P(PantallaDeCaratula, TheProrationCodesAreOpenedAndTheirTotalCounts) {
    auto &ui = mostrar().ui;
    conPantallaModal<FrmABMProrrateos>([](FrmABMProrrateos &codigos) {
        EXPECT_EQ(codigos.ui.Lst->rowCount(), 1);
        tecla(Qt::Key_Escape);
    });
    teclaEn(ui.CmdProrrat, Qt::Key_Space);
    EXPECT_DOUBLE_EQ(ctx->TotalProrrateado, 420);
    esperarVentana(Pantalla<FrmCaratula>().ventana.get());
    EXPECT_EQ(QApplication::focusWidget(), ui.CmdProrrat);
}

TEST_P(PantallaDeCaratula, F6OpensTheListsOfCodesAndOfParties) {
    conDialogosDeVerdad();
    auto &pantalla = mostrar();
    auto &ui = pantalla.ui;
    const auto f6 = [&pantalla](QLineEdit *campo) {
        esperarVentana(pantalla.ventana.get());
        teclaEn(campo, Qt::Key_F6);
        esperarVentana(pantalla.ventana.get());
    };
    conPantallaModal<FrmListado>([](FrmListado &) {
        escribir(u"mendoza"_s);
        tecla(Qt::Key_Return);
    });
    f6(ui.txtIdAduana1);
    EXPECT_EQ(ui.txtIdAduana1->text(), u"038"_s);
    EXPECT_EQ(ui.TxtAduana1->text().trimmed(), u"MENDOZA"_s);
    conPantallaModal<FrmListadoDespachante>([](FrmListadoDespachante &) {
        escribir(u"bian"_s);
        tecla(Qt::Key_Return);
    });
    f6(ui.TxtCuitAduana);
    EXPECT_EQ(ui.TxtNombreadu->text(), u"BIANCHI SILVIA NOEMI"_s);
    conPantallaModal<FrmClientes>([](FrmClientes &) {
        escribir(u"bodega"_s);
        tecla(Qt::Key_Return);
    });
    f6(ui.TxtCUITCliente);
    EXPECT_EQ(ui.TxtNombre->text(), u"BODEGA PIEDRA CHICA S.R.L."_s);
    conPantallaModal<FrmLstVendedores>([](FrmLstVendedores &) { tecla(Qt::Key_Escape); });
    f6(ui.Txtidvendedor);
    EXPECT_EQ(ui.Txtidvendedor->text(), u"V001"_s) << "left by ESC it stays";
    EXPECT_EQ(guardado("factura8"), u"S"_s);
}

TEST_P(PantallaDeCaratula, InvoicesAreAddedOnceAndDeletedFromTheirList) {
    auto &ui = mostrar().ui;
    teclear(ui.TxtFactura, u"NUEVA-1"_s);
    EXPECT_EQ(ui.LstFact->count(), 4);
    EXPECT_EQ(QApplication::focusWidget(), ui.TxtFactura) << "ready for the next one";
    teclear(ui.TxtFactura, u"NUEVA-1"_s);
    EXPECT_EQ(ultimo(), "Ya existe esta factura.");
    EXPECT_EQ(ui.LstFact->count(), 4);
    ui.LstFact->setCurrentRow(0);
    teclaEn(ui.LstFact, Qt::Key_Delete);
    EXPECT_EQ(filas(u"select factura from facturas where interno = 'IC-2026-0001' order by orden"_s),
              u"NP-88121\nTV-2026-014\nNUEVA-1"_s);
}

TEST_P(PantallaDeCaratula, WithoutInvoicesOnlyAnExportForConsumptionCloses) {
    ejecutar(u"delete from facturas"_s);
    mostrar(importacion);
    tecla(Qt::Key_Escape);
    EXPECT_EQ(ultimo(), "Faltan Facturas.");
    ASSERT_TRUE(PantallaAbierta<FrmCaratula>());
    CerrarPantalla<FrmCaratula>();
    registro.mensajes.clear();
    mostrar(exportacion);
    tecla(Qt::Key_Escape);
    EXPECT_EQ(ultimo(), "<ninguno>");
    EXPECT_FALSE(PantallaAbierta<FrmCaratula>());
}

TEST_P(PantallaDeCaratula, ARefusedSaveStaysOrAsksWhetherToLeave) {
    auto &ui = mostrar().ui;
    teclear(ui.TxtCuitAduana, QString());
    tecla(Qt::Key_Escape);
    EXPECT_EQ(ultimo(), "Debe ingresar el CUIT de DESPACHANTE");
    ASSERT_TRUE(PantallaAbierta<FrmCaratula>());
    teclear(ui.TxtCuitAduana, u"20167890122"_s);
    ui.Txtfobdivisas->setFocus();
    ui.Txtfobdivisas->selectAll();
    escribir(u"x"_s);
    tecla(Qt::Key_Escape);
    EXPECT_EQ(ultimo(), "El valor FOB debe ser un valor númerico");
    ASSERT_EQ(registro.preguntas.size(), 1U);
    EXPECT_EQ(registro.preguntas[0].texto.toStdString(),
              "desea SALIR de la caratula, sin guardar la información?");
    ASSERT_TRUE(PantallaAbierta<FrmCaratula>()) << "No stays";
    registro.respuestas.push_back(true);
    tecla(Qt::Key_Escape);
    EXPECT_FALSE(PantallaAbierta<FrmCaratula>());
    EXPECT_EQ(guardado("fobdivisas"), u"35950"_s) << "nothing was written";
    EXPECT_EQ(cierres, 1);
}

TEST_P(PantallaDeCaratula, UnderDjaiFreightAndInsuranceAreNotCheckedAndAnEmptyOneIsZero) {
    auto &ui = mostrar(djai).ui;
    if (ui.Txtfletedivisas->isVisible()) teclear(ui.Txtfletedivisas, QString());
    tecla(Qt::Key_Escape);
    EXPECT_EQ(ultimo(), "<ninguno>");
    EXPECT_FALSE(PantallaAbierta<FrmCaratula>());
    EXPECT_EQ(guardado("fletedivisas", djai), u"0"_s);
    EXPECT_EQ(guardado("segurodivisas", djai), u"0"_s);
}

TEST_P(PantallaDeCaratula, ManyInvoicesAreCutInTheRowAndWholeInTheTable) {
    auto &ui = mostrar().ui;
    for (int n = 0; n < 8; ++n) teclear(ui.TxtFactura, u"FACTURA-000%1"_s.arg(n));
    tecla(Qt::Key_Escape);
    ASSERT_FALSE(PantallaAbierta<FrmCaratula>()) << ultimo();
    // "NP-88120,NP-88121,TV-2026-014," is 30 characters; four more of 13 make 82, cut to 80 and then to 79.
    EXPECT_EQ(guardado("factura1"),
              u"NP-88120,NP-88121,TV-2026-014,FACTURA-0000,FACTURA-0001,FACTURA-0002,FACTURA-00"_s);
    EXPECT_EQ(valor(u"select count(*) from facturas where interno = 'IC-2026-0001'"_s), u"11"_s);
}

TEST_P(PantallaDeCaratula, TickingACommonDatumToForceItWarns) {
    auto &ui = mostrar().ui;
    teclaEn(ui.chkDCForzarEstMerc, Qt::Key_Space);
    EXPECT_EQ(ultimo(),
              "Advertencia!: Esta opción establece a todos los articulos el mismo Estado de Mercaderia");
    teclaEn(ui.chkDCForzarPaisOrigen, Qt::Key_Space);
    EXPECT_EQ(ultimo(), "Advertencia!: Esta opción establece a todos los articulos el mismo Pais de Origen");
    teclaEn(ui.chkDCForzarPaisOrigen, Qt::Key_Space);
    EXPECT_EQ(registro.mensajes.size(), 2U) << "taking it away says nothing";
}

TEST_P(PantallaDeCaratula, AWrongLetterOfRoyaltiesIsErased) {
    auto &ui = mostrar().ui;
    teclear(ui.TxtDCRegalias, u"X"_s);
    EXPECT_EQ(ultimo(), "No ingresó valores válidos (S/N)");
    EXPECT_TRUE(ui.TxtDCRegalias->text().isEmpty());
}

TEST_P(PantallaDeCaratula, TheCommentIsKeptWhenItsScreenCloses) {
    auto &pantalla = mostrar();
    conPantallaModal<FrmLstDiv>([](FrmLstDiv &comentario) {
        comentario.ui.TxtCom->selectAll();
        escribir(u"Revisar el seguro"_s);
        foto(comentario.ventana.get(), u"comentarios"_s);
        tecla(Qt::Key_Escape);
    });
    tecla(Qt::Key_F9);
    esperarVentana(pantalla.ventana.get());
    EXPECT_EQ(valor(u"select coment from coment where interno = 'IC-2026-0001'"_s, u"SYSTABLAS"_s),
              u"Revisar el seguro"_s);
}

TEST_P(PantallaDeCaratula, AnOperationWithoutAHeaderIsToldAndNothingOpens) {
    Pantalla<FrmCaratula>().Mostrar(u"NO ESTA"_s);
    EXPECT_EQ(ultimo(), "No se encontro Interno en base de datos");
    EXPECT_FALSE(PantallaAbierta<FrmCaratula>());
}

EN_AMBOS_STORES(PantallaDeCaratula);

class CapturasDeCaratula : public PantallaDeCaratula {};

TEST_P(CapturasDeCaratula, OfAnImportAnExportADjaiAndATemporaryImport) {
    for (const auto &[interno, nombre] :
         {std::pair(importacion, "caratula"), std::pair(exportacion, "caratula-expo"),
          std::pair(djai, "caratula-djai"), std::pair(u"IT-2026-0003"_s, "caratula-temporal")}) {
        auto &pantalla = mostrar(interno);
        foto(pantalla.ventana.get(), QLatin1String(nombre));
        CerrarPantalla<FrmCaratula>();
        QCoreApplication::processEvents();
    }
}

TEST_P(CapturasDeCaratula, TabFollowsTheWork) {
    auto &pantalla = mostrar();
    EXPECT_EQ(
        ordenDeTab(pantalla.ventana.get()).join(QLatin1Char(' ')).toStdString(),
        "TxtSubReg txtIdAduana1 TxtCUITCliente TxtCuitAduana Txtidvendedor txtAnexo_Vendedor Txtfobdivisas "
        "TxtCoddivfob TxtDivValorFob Txtfletedivisas TxtCodDivFlete TxtDivValorFlete Txtsegurodivisas "
        "TxtCodDivseguro TxtDivValorSeguro txtPorc TxtProrratear TxtAjustIncluir TxtAjustDeducir "
        "txtGastosAnterioresFOB txtGastosPosterioresFOB CmdProrrat Txtidcondventa TxtCierreVenta "
        "txtFechaEmbarque TxtFactura LstFact ChFacturas txtDCEstMerc chkDCForzarEstMerc txtDCPaisOrigen "
        "chkDCForzarPaisOrigen txtDCPaisDest txtDCStandard TxtDCRegalias txtDCBancos TxtKgNeto "
        "txtNROTRANSINTER cboOpcionIVA cboOpcionesGanancias cmdComentario");
}

INSTANTIATE_TEST_SUITE_P(Stores, CapturasDeCaratula, ::testing::Values("ACCESS"),
                         [](const ::testing::TestParamInfo<const char *> &caso) {
                             return std::string(caso.param);
                         });

}  // namespace
