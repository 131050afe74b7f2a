// The declaration header, by keyboard.

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

#include "assembly/FrmABMProrrateos.h"
#include "frame/numbers.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/campos.h"
#include "header/FrmCaratula.h"
#include "header/FrmListado.h"
#include "header/FrmListadoDespachante.h"
#include "header/FrmLstDiv.h"
#include "header/FrmLstVendedores.h"
#include "operations/FrmDetalleInterno.h"
#include "siblings/FrmClientes.h"
#include "tests/support/pantallas.h"

namespace {

const QString importacion = QStringLiteral("IC-2026-0001");
const QString exportacion = QStringLiteral("EC-2026-0002");
const QString djai = QStringLiteral("DJAI-2026-0004");

class PantallaDeCaratula : public EnPantalla {
 protected:
    void SetUp() override {
        EnPantalla::SetUp();
        numeros::fijarSeparadorDecimal(QLatin1Char(','));
    }
    FrmCaratula &mostrar(const QString &interno = importacion) {
        auto &pantalla = Pantalla<FrmCaratula>();
        pantalla.alCerrar = [this] { ++cierres; };
        pantalla.Mostrar(interno);
        esperarVentana(pantalla.ventana.get());
        return pantalla;
    }
    /// The text typed in place of what the field holds, and ENTER.
    static void teclear(QLineEdit *campo, const QString &texto) {
        campo->setFocus();
        campo->selectAll();
        if (texto.isEmpty())
            tecla(Qt::Key_Delete);
        else
            escribir(texto);
        tecla(Qt::Key_Return);
    }
    QString guardado(const char *columna, const QString &interno = importacion) {
        return valor(QStringLiteral("select %1 from caratula where interno = '%2'")
                         .arg(QLatin1String(columna), interno));
    }
    std::string ultimo() const {
        return registro.mensajes.empty() ? "<ninguno>" : registro.mensajes.back().texto.toStdString();
    }
    int cierres = 0;
};

TEST_P(PantallaDeCaratula, TheDashboardOpensItAndGoesOnToTheLines) {
    ejecutar(QStringLiteral("update caratula set fobdivisas = 0 where interno = 'IC-2026-0001'"));
    auto &tablero = abrir(importacion);
    teclaEn(tablero.ui.cmdCaratula, Qt::Key_Space);
    ASSERT_TRUE(PantallaAbierta<FrmCaratula>());
    auto &ui = Pantalla<FrmCaratula>().ui;
    esperarVentana(Pantalla<FrmCaratula>().ventana.get());
    EXPECT_EQ(QApplication::focusWidget(), ui.TxtSubReg);
    teclear(ui.Txtfobdivisas, QStringLiteral("35950"));
    EXPECT_EQ(ui.Txtfobdivisas->text(), QStringLiteral("35950,00"));
    tecla(Qt::Key_Escape);
    EXPECT_FALSE(PantallaAbierta<FrmCaratula>());
    esperarVentana(tablero.ventana.get());
    EXPECT_EQ(tablero.ui.LbEstadoCaratula->text(), QStringLiteral("COMPLETO!"));
    EXPECT_EQ(QApplication::focusWidget(), tablero.ui.CmdSubItems);
    EXPECT_EQ(ultimo(), "<ninguno>");
}

TEST_P(PantallaDeCaratula, LoadingMarksNothingAndATypedLetterMarksTheOperation) {
    ejecutar(QStringLiteral("update caratula set factura8 = 'N' where interno = 'IC-2026-0001'"));
    auto &ui = mostrar().ui;
    EXPECT_EQ(guardado("factura8"), QStringLiteral("N"));
    EXPECT_EQ(ui.TxtNombre->text(), QStringLiteral("HIDRAULICA DEL PLATA S.A."));
    EXPECT_EQ(ui.TxtAduana1->text().trimmed(), QStringLiteral("BUENOS AIRES"));
    ui.txtAnexo_Vendedor->setFocus();
    escribir(QStringLiteral("A"));
    EXPECT_EQ(guardado("factura8"), QStringLiteral("S"));
}

TEST_P(PantallaDeCaratula, TheRegimeDecidesWhatIsShown) {
    auto &ui = mostrar(exportacion).ui;
    EXPECT_TRUE(ui.TxtIdpais->isVisible());
    EXPECT_TRUE(ui.txtDATOCOMPRADOR->isVisible());
    EXPECT_FALSE(ui.txtFechaEmbarque->isVisible());
    EXPECT_FALSE(ui.gbDJAI->isVisible());
    teclear(ui.TxtSubReg, QStringLiteral("IC04"));
    EXPECT_FALSE(ui.TxtIdpais->isVisible());
    EXPECT_FALSE(ui.rotulo_TxtIdpais->isVisible()) << "a label hides with its control";
    EXPECT_FALSE(ui.txtDATOCOMPRADOR->isVisible());
    EXPECT_TRUE(ui.txtFechaEmbarque->isVisible());
    EXPECT_TRUE(ui.txtDCBancos->isVisible());
    teclear(ui.TxtSubReg, QStringLiteral("DJAI"));
    EXPECT_TRUE(ui.gbDJAI->isVisible());
}

TEST_P(PantallaDeCaratula, ARegimeWithNoRowLeavesEveryControlAsTheLastRegimeLeftIt) {
    ejecutar(QStringLiteral("delete from dest where subreg = 'IC05'"), QStringLiteral("USUARIO"));
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
    teclear(pantalla.ui.TxtSubReg, QStringLiteral("IC05"));
    EXPECT_EQ(visibles(), antes);
}

TEST_P(PantallaDeCaratula, AHiddenFieldWritesEmptyOrZeroSoAChangedRegimeDiscardsIt) {
    ASSERT_EQ(guardado("fletedivisas"), QStringLiteral("2350"));
    auto &ui = mostrar().ui;
    teclear(ui.TxtSubReg, QStringLiteral("EC01"));
    EXPECT_FALSE(ui.Txtfletedivisas->isVisible());
    EXPECT_FALSE(ui.rotulo_Txtfletedivisas->isVisible());
    tecla(Qt::Key_Escape);
    ASSERT_FALSE(PantallaAbierta<FrmCaratula>()) << ultimo();
    EXPECT_EQ(guardado("idsubreg"), QStringLiteral("EC01"));
    EXPECT_EQ(guardado("fletedivisas"), QStringLiteral("0"));
    EXPECT_EQ(guardado("fletecoddivisas"), QString());
    EXPECT_EQ(guardado("idvendedor"), QString());
}

TEST_P(PantallaDeCaratula, FiguresFollowWhileTyping) {
    auto &ui = mostrar().ui;
    ui.Txtfletedivisas->setFocus();
    ui.Txtfletedivisas->selectAll();
    escribir(QStringLiteral("100"));
    EXPECT_EQ(ui.TxtDolFlete->text(), QStringLiteral("100,00")) << "the dollar's rate is 1";
    // 35,950.00 at 1.085 is 39,005.75; with 100.00 of freight and 420.00 of proration codes the base is
    // 39,525.75: one percent is 395.26, which at 1.27 is 311.23.
    ui.txtPorc->setFocus();
    ui.txtPorc->selectAll();
    escribir(QStringLiteral("1"));
    EXPECT_EQ(ui.TxtDolSeguro->text(), QStringLiteral("395,26"));
    EXPECT_EQ(ui.Txtsegurodivisas->text(), QStringLiteral("311,23"));
}

TEST_P(PantallaDeCaratula, AValueToProrateTakesTheButtonOfTheCodesAway) {
    auto &ui = mostrar().ui;
    ui.TxtProrratear->setFocus();
    ui.TxtProrratear->selectAll();
    escribir(QStringLiteral("5"));
    EXPECT_FALSE(ui.CmdProrrat->isEnabled());
    ui.TxtProrratear->selectAll();
    escribir(QStringLiteral("0"));
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
        escribir(QStringLiteral("mendoza"));
        tecla(Qt::Key_Return);
    });
    f6(ui.txtIdAduana1);
    EXPECT_EQ(ui.txtIdAduana1->text(), QStringLiteral("038"));
    EXPECT_EQ(ui.TxtAduana1->text().trimmed(), QStringLiteral("MENDOZA"));
    conPantallaModal<FrmListadoDespachante>([](FrmListadoDespachante &) {
        escribir(QStringLiteral("bian"));
        tecla(Qt::Key_Return);
    });
    f6(ui.TxtCuitAduana);
    EXPECT_EQ(ui.TxtNombreadu->text(), QStringLiteral("BIANCHI SILVIA NOEMI"));
    conPantallaModal<FrmClientes>([](FrmClientes &) {
        escribir(QStringLiteral("bodega"));
        tecla(Qt::Key_Return);
    });
    f6(ui.TxtCUITCliente);
    EXPECT_EQ(ui.TxtNombre->text(), QStringLiteral("BODEGA PIEDRA CHICA S.R.L."));
    conPantallaModal<FrmLstVendedores>([](FrmLstVendedores &) { tecla(Qt::Key_Escape); });
    f6(ui.Txtidvendedor);
    EXPECT_EQ(ui.Txtidvendedor->text(), QStringLiteral("V001")) << "left by ESC it stays";
    EXPECT_EQ(guardado("factura8"), QStringLiteral("S"));
}

TEST_P(PantallaDeCaratula, InvoicesAreAddedOnceAndDeletedFromTheirList) {
    auto &ui = mostrar().ui;
    teclear(ui.TxtFactura, QStringLiteral("NUEVA-1"));
    EXPECT_EQ(ui.LstFact->count(), 4);
    EXPECT_EQ(QApplication::focusWidget(), ui.TxtFactura) << "ready for the next one";
    teclear(ui.TxtFactura, QStringLiteral("NUEVA-1"));
    EXPECT_EQ(ultimo(), "Ya existe esta factura.");
    EXPECT_EQ(ui.LstFact->count(), 4);
    ui.LstFact->setCurrentRow(0);
    teclaEn(ui.LstFact, Qt::Key_Delete);
    EXPECT_EQ(
        filas(QStringLiteral("select factura from facturas where interno = 'IC-2026-0001' order by orden")),
        QStringLiteral("NP-88121\nTV-2026-014\nNUEVA-1"));
}

TEST_P(PantallaDeCaratula, WithoutInvoicesOnlyAnExportForConsumptionCloses) {
    ejecutar(QStringLiteral("delete from facturas"));
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
    teclear(ui.TxtCuitAduana, QStringLiteral("20167890122"));
    ui.Txtfobdivisas->setFocus();
    ui.Txtfobdivisas->selectAll();
    escribir(QStringLiteral("x"));
    tecla(Qt::Key_Escape);
    EXPECT_EQ(ultimo(), "El valor FOB debe ser un valor númerico");
    ASSERT_EQ(registro.preguntas.size(), 1U);
    EXPECT_EQ(registro.preguntas[0].texto.toStdString(),
              "desea SALIR de la caratula, sin guardar la información?");
    ASSERT_TRUE(PantallaAbierta<FrmCaratula>()) << "No stays";
    registro.respuestas.push_back(true);
    tecla(Qt::Key_Escape);
    EXPECT_FALSE(PantallaAbierta<FrmCaratula>());
    EXPECT_EQ(guardado("fobdivisas"), QStringLiteral("35950")) << "nothing was written";
    EXPECT_EQ(cierres, 1);
}

TEST_P(PantallaDeCaratula, UnderDjaiFreightAndInsuranceAreNotCheckedAndAnEmptyOneIsZero) {
    auto &ui = mostrar(djai).ui;
    if (ui.Txtfletedivisas->isVisible()) teclear(ui.Txtfletedivisas, QString());
    tecla(Qt::Key_Escape);
    EXPECT_EQ(ultimo(), "<ninguno>");
    EXPECT_FALSE(PantallaAbierta<FrmCaratula>());
    EXPECT_EQ(guardado("fletedivisas", djai), QStringLiteral("0"));
    EXPECT_EQ(guardado("segurodivisas", djai), QStringLiteral("0"));
}

TEST_P(PantallaDeCaratula, ManyInvoicesAreCutInTheRowAndWholeInTheTable) {
    auto &ui = mostrar().ui;
    for (int n = 0; n < 8; ++n) teclear(ui.TxtFactura, QStringLiteral("FACTURA-000%1").arg(n));
    tecla(Qt::Key_Escape);
    ASSERT_FALSE(PantallaAbierta<FrmCaratula>()) << ultimo();
    // "NP-88120,NP-88121,TV-2026-014," is 30 characters; four more of 13 make 82, cut to 80 and then to 79.
    EXPECT_EQ(
        guardado("factura1"),
        QStringLiteral("NP-88120,NP-88121,TV-2026-014,FACTURA-0000,FACTURA-0001,FACTURA-0002,FACTURA-00"));
    EXPECT_EQ(valor(QStringLiteral("select count(*) from facturas where interno = 'IC-2026-0001'")),
              QStringLiteral("11"));
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
    teclear(ui.TxtDCRegalias, QStringLiteral("X"));
    EXPECT_EQ(ultimo(), "No ingresó valores válidos (S/N)");
    EXPECT_TRUE(ui.TxtDCRegalias->text().isEmpty());
}

TEST_P(PantallaDeCaratula, TheCommentIsKeptWhenItsScreenCloses) {
    auto &pantalla = mostrar();
    conPantallaModal<FrmLstDiv>([](FrmLstDiv &comentario) {
        comentario.ui.TxtCom->selectAll();
        escribir(QStringLiteral("Revisar el seguro"));
        foto(comentario.ventana.get(), QStringLiteral("comentarios"));
        tecla(Qt::Key_Escape);
    });
    tecla(Qt::Key_F9);
    esperarVentana(pantalla.ventana.get());
    EXPECT_EQ(valor(QStringLiteral("select coment from coment where interno = 'IC-2026-0001'"),
                    QStringLiteral("SYSTABLAS")),
              QStringLiteral("Revisar el seguro"));
}

TEST_P(PantallaDeCaratula, AnOperationWithoutAHeaderIsToldAndNothingOpens) {
    Pantalla<FrmCaratula>().Mostrar(QStringLiteral("NO ESTA"));
    EXPECT_EQ(ultimo(), "No se encontro Interno en base de datos");
    EXPECT_FALSE(PantallaAbierta<FrmCaratula>());
}

EN_AMBOS_STORES(PantallaDeCaratula);

class CapturasDeCaratula : public PantallaDeCaratula {};

TEST_P(CapturasDeCaratula, OfAnImportAnExportADjaiAndATemporaryImport) {
    for (const auto &[interno, nombre] :
         {std::pair(importacion, "caratula"), std::pair(exportacion, "caratula-expo"),
          std::pair(djai, "caratula-djai"), std::pair(QStringLiteral("IT-2026-0003"), "caratula-temporal")}) {
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
