// The dashboard of an operation, by keyboard.

#include <gtest/gtest.h>

#include <QApplication>

#include "assembly/FrmArmarItem.h"
#include "frame/ui/ClCntrl.h"
#include "frame/ui/Pantalla.h"
#include "liquidation/FrmVerItem.h"
#include "operations/FrmAbrir.h"
#include "operations/FrmDetalleInterno.h"
#include "outputs/FrmPresupuesto.h"
#include "subitems/FrmConsultas.h"
#include "tests/support/claves.h"
#include "tests/support/marcas.h"
#include "tests/support/pantallas.h"

using namespace Qt::StringLiterals;

namespace {

class Tablero : public EnPantalla {
 protected:
    QString bloqueo(const QString &interno) {
        return valor(u"select maquina from interno where interno = '"_s + interno + QLatin1Char('\''));
    }
    /// Presses the assembly button and waits until the item screen stands.
    FrmVerItem &armar(FrmDetalleInterno &tablero) {
        esperarVentana(tablero.ventana.get());
        teclaEn(tablero.ui.cmdITEM, Qt::Key_Space);
        hasta([] { return !PantallaAbierta<FrmArmarItem>() && PantallaAbierta<FrmVerItem>(); });
        esperarVentana(Pantalla<FrmVerItem>().ventana.get());
        return Pantalla<FrmVerItem>();
    }
};

TEST_P(Tablero, AnOperationReadyToArmShowsItsState) {
    auto &ui = abrir(importacion).ui;
    EXPECT_EQ(ui.LbInterno->text(), importacion);
    EXPECT_EQ(ui.LbSubregimen->text(), u"IC04"_s);
    EXPECT_EQ(ui.LbAduana->text(), u"001"_s);
    EXPECT_EQ(ui.LbCliente->text(), u"30708123451 HIDRAULICA DEL PLATA S.A."_s);
    EXPECT_EQ(ui.LbDespa->text(), u"20167890122 FERREYRA HORACIO DANIEL"_s);
    EXPECT_EQ(ui.LbItem->text(), u"0"_s);
    EXPECT_EQ(ui.LbSubItem->text(), u"0"_s);
    EXPECT_EQ(ui.LbEstadoCaratula->text(), u"COMPLETO!"_s);
    EXPECT_EQ(ui.LbEstadoSubItem->text(), u"COMPLETO!"_s);
    EXPECT_EQ(ui.LbEstadoItem->text(), u"SIN GENERAR"_s);
    EXPECT_TRUE(ui.cmdITEM->isEnabled());
    EXPECT_TRUE(ui.frmOrdenar->isVisible());
    EXPECT_FALSE(ui.CmdBultos->isEnabled());
    EXPECT_FALSE(ui.ChCOEF->isEnabled()) << "the coefficient is for exports";
    EXPECT_EQ(QApplication::focusWidget(), ui.cmdITEM);
}

TEST_P(Tablero, AHeaderWithoutFobLeavesTheOtherThreeLabelsAsTheyWereAtDesign) {
    ejecutar(u"update caratula set fobdivisas = 0 where interno = 'IC-2026-0001'"_s);
    auto &ui = abrir(importacion).ui;
    EXPECT_EQ(ui.LbEstadoCaratula->text(), u"INCOMPLETO"_s);
    for (const QLabel *etiqueta : {ui.LbEstadoSubItem, ui.LbEstadoItem, ui.LbEstadoBultos})
        EXPECT_EQ(etiqueta->text(), u"—"_s) << etiqueta->objectName().toStdString();
    EXPECT_FALSE(ui.cmdITEM->isEnabled());
}

TEST_P(Tablero, OnAWorkstationThatNeverSawTheOperationAllEightFlagsAreChecked) {
    auto &ui = abrir(importacion).ui;
    for (const QCheckBox *bandera : {ui.CkFlag_0, ui.CkFlag_1, ui.CkFlag_2, ui.CkFlag_3, ui.CkFlag_4,
                                     ui.CkFlag_5, ui.CkFlag_6, ui.CkFlag_7})
        EXPECT_TRUE(bandera->isChecked()) << bandera->text().toStdString();
}

TEST_P(Tablero, EscapeStoresTheFlagsAndReleasesTheLock) {
    auto &tablero = abrir(exportacion);
    EXPECT_EQ(bloqueo(exportacion), u"PC1"_s);
    teclaEn(tablero.ui.CkFlag_3, Qt::Key_Space);
    teclaEn(tablero.ui.ChCOEF, Qt::Key_Space);
    tecla(Qt::Key_Escape);
    EXPECT_FALSE(PantallaAbierta<FrmDetalleInterno>());
    EXPECT_EQ(bloqueo(exportacion), u"<nada>"_s);
    const auto ajuste = [this](const char *clave) {
        return ctx->ajustes.Leer(u"ZENDRA"_s, exportacion, QLatin1String(clave));
    };
    EXPECT_EQ(ajuste("FLAG2"), u"1"_s);
    EXPECT_EQ(ajuste("FLAG3"), u"0"_s);
    EXPECT_EQ(ajuste("COEFEXPO"), u"1"_s);
    auto &ui = abrir(exportacion).ui;
    EXPECT_FALSE(ui.CkFlag_3->isChecked());
    EXPECT_TRUE(ui.CkFlag_2->isChecked());
    EXPECT_FALSE(ui.ChCOEF->isChecked()) << "written on closing, read nowhere";
}

TEST_P(Tablero, ClosedByItsWindowTheLockStaysAndTheNextOpeningWarnsAndTakesIt) {
    abrir(importacion).ventana->close();
    EXPECT_EQ(bloqueo(importacion), u"PC1"_s);
    abrir(importacion);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_TRUE(registro.mensajes[0].texto.startsWith(
        u"El estado de INTERNO indica que el mismo esta abierto.\r\n\r\nSe procedera a cambiar "
        "el estado.\r\n\r\nUltimo Acceso: "_s));
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Critico);
    EXPECT_EQ(valor(u"select count(*) from interno where interno = 'IC-2026-0001'"_s), u"1"_s);
}

TEST_P(Tablero, AnOperationOpenOnAnotherWorkstationStaysClosed) {
    ejecutar(
        u"insert into interno (interno,maquina,usuario,fecha) values ('IC-2026-0001',"
        "'OTRA','',null)"_s);
    AbrirInterno(importacion);
    EXPECT_FALSE(PantallaAbierta<FrmDetalleInterno>());
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_TRUE(registro.mensajes[0].texto.startsWith(
        u"Este interno esta abierto por la PC: OTRA\r\n\r\nAccedido el "_s));
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Informacion);
}

TEST_P(Tablero, FromTheAssemblyButtonToTheItemsAndBackByKeyboard) {
    auto &tablero = abrir(importacion);
    auto &items = armar(tablero);
    EXPECT_FALSE(PantallaAbierta<FrmArmarItem>());
    EXPECT_EQ(items.ui.TxtItem->text(), u"0"_s);
    EXPECT_GT(items.ui.GrdLiq->rowCount(), 3);
    EXPECT_FALSE(ctx->LiquidacionPendiente) << "entering the items has written the liquidation back";
    tecla(Qt::Key_Escape);
    EXPECT_FALSE(PantallaAbierta<FrmVerItem>());
    esperarVentana(tablero.ventana.get());
    EXPECT_EQ(tablero.ui.LbEstadoItem->text(), u"GENERADO!"_s);
    EXPECT_FALSE(tablero.ui.frmOrdenar->isVisible());
    EXPECT_TRUE(tablero.ui.CmdBultos->isEnabled());
    EXPECT_EQ(valor(u"select factura8 from caratula where interno = 'IC-2026-0001'"_s), u"N"_s);
}

TEST_P(Tablero, AnArmedOperationGoesStraightToItsItems) {
    auto &tablero = abrir(importacion);
    armar(tablero);
    tecla(Qt::Key_Escape);
    registro.avances.clear();
    armar(tablero);
    EXPECT_TRUE(registro.avances.empty()) << "no step ran again";
}

TEST_P(Tablero, AnOperationThatWasNeverTouchedDoesNotArm) {
    ejecutar(u"update caratula set factura8 = null where interno = 'IC-2026-0001'"_s);
    auto &tablero = abrir(importacion);
    armar(tablero);
    EXPECT_TRUE(registro.avances.empty());
    EXPECT_EQ(tablero.ui.LbItem->text(), u"0"_s);
}

TEST_P(Tablero, ARunThatStopsOnPurposeLeavesTheOperationToBeArmedAgain) {
    ejecutar(u"update subitems set sufijos = 'XX99-' where interno = 'IC-2026-0001'"_s);
    auto &tablero = abrir(importacion);
    teclaEn(tablero.ui.cmdITEM, Qt::Key_Space);
    hasta([] { return !PantallaAbierta<FrmArmarItem>(); });
    EXPECT_FALSE(PantallaAbierta<FrmVerItem>());
    EXPECT_EQ(ctx->ChequeoArmado, u"No"_s);
    EXPECT_EQ(registro.informes.size(), 1U);
    EXPECT_EQ(valor(u"select factura8 from caratula where interno = 'IC-2026-0001'"_s), u"S"_s);
    EXPECT_TRUE(tablero.ventana->isVisible());
}

TEST_P(Tablero, TheCoefficientOfAnExportFollowsTheQuestionOfTheRun) {
    auto &tablero = abrir(exportacion);
    EXPECT_TRUE(tablero.ui.ChCOEF->isEnabled());
    registro.respuestas.push_back(true);
    armar(tablero);
    EXPECT_TRUE(tablero.ui.ChCOEF->isChecked());
    EXPECT_TRUE(ctx->CalcularCoeficiente);
    tecla(Qt::Key_Escape);
    EXPECT_FALSE(ctx->CalcularCoeficiente) << "cleared when the items close";
}

TEST_P(Tablero, ADjaiOffersItsDescriptionsAndMixingOnlyOnTheServer) {
    auto &ui = abrir(djai).ui;
    const bool servidor = QString::fromLatin1(GetParam()) == "SQL"_L1;
    EXPECT_TRUE(ui.framDJAI->isVisible());
    EXPECT_TRUE(ui.opDJAI_No_Usar_Descripcion->isChecked());
    EXPECT_EQ(ui.opDJAI_MezclarDescripciones->isEnabled(), servidor);
}

TEST_P(Tablero, TheStoredDescriptionChoiceIsRestored) {
    ctx->ajustes.Guardar(u"ZENDRA"_s, u"FLAGS"_s, u"DJAI_USAR_DESCRIPCION"_s, u"CATALOGO"_s);
    EXPECT_TRUE(abrir(djai).ui.opDJAI_Usar_Descripcion_Catalogo->isChecked());
}

TEST_P(Tablero, MixingOutsideTheServerIsExplainedAndTakenAway) {
    auto &ui = abrir(djai).ui;
    ui.opDJAI_MezclarDescripciones->setEnabled(true);
    ui.opDJAI_MezclarDescripciones->click();
    if (QString::fromLatin1(GetParam()) == "SQL"_L1) {
        EXPECT_TRUE(registro.mensajes.empty());
        EXPECT_TRUE(ui.opDJAI_MezclarDescripciones->isChecked());
        return;
    }
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto,
              u"DJAI - MEZCLAR DESCRIPCIONES - Opción valida para Zendra v3 SQL Server"_s);
    EXPECT_FALSE(ui.opDJAI_MezclarDescripciones->isChecked());
}

TEST_P(Tablero, TakingTheCataloguesDescriptionIsExplained) {
    abrir(djai).ui.opDJAI_Usar_Descripcion_Catalogo->click();
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto,
              u"Esta opción REEMPLAZA el campo DESCRIPCION_MARIA por DESCRIPCION (del "
              "catálogo) en la carga de subitems."_s);
}

TEST_P(Tablero, TheOrderOfItemsComesFromTheOption) {
    ctx->opciones.ARMARITEM = 1;
    EXPECT_TRUE(abrir(importacion).ui.opOrdenxNCM->isChecked());
    CerrarPantalla<FrmDetalleInterno>();
    ctx->opciones.ARMARITEM = 2;
    EXPECT_TRUE(abrir(importacion).ui.opOrdenxCarga->isChecked());
}

TEST_P(Tablero, TheButtonsSayWhatTheyOpen) {
    auto &ui = abrir(importacion).ui;
    for (const auto &[boton, palabras] :
         {std::pair{ui.cmdCaratula, "CARATULA"}, std::pair{ui.CmdSubItems, "CARGA DE SUBITEMS"},
          std::pair{ui.cmdITEM, "ARMADO DE ITEMS"}, std::pair{ui.CmdBultos, "BULTOS"},
          std::pair{ui.CmdTransMaria, "TRANSFERENCIA AL MARIA"}, std::pair{ui.CmdPresupuesto, "Presupuesto"},
          std::pair{ui.CmdPrint, "Impresión"}, std::pair{ui.CmdHojaVal, "Hoja de Valoración"},
          std::pair{ui.cmdCertOrig, "Certificado de Origen"}, std::pair{ui.cmdExportar, "Exportar a Stock"},
          std::pair{ui.cmdExportINS, "Exportar Stock"}, std::pair{ui.Command1, "Información Extra"},
          std::pair{ui.Command4, "Nomenclador"}})
        EXPECT_EQ(boton->text().remove(u'&').toStdString(), palabras);
}

TEST_P(Tablero, AButtonOfAClosedLibraryNamesTheLibraryThatIsMissing) {
    auto &tablero = abrir(importacion);
    armar(tablero);
    tecla(Qt::Key_Escape);
    esperarVentana(tablero.ventana.get());
    ejecutar(
        u"update caratula set factura9 = '1', bulnro = '3', bulcod = '11', bultip = 'B', bulpes = 50, "
        "buldes = 'CAJAS' where interno = 'IC-2026-0001'"_s);
    tablero.VerDatos();
    registro = {};
    auto &ui = tablero.ui;
    for (const auto &[boton, biblioteca, opcion] :
         {std::tuple{ui.CmdHojaVal, "oValuationSheet", "Hoja de Valoración"},
          std::tuple{ui.cmdCertOrig, "OriginCerts", "Certificado de Origen"},
          std::tuple{ui.Command1, "LnaOutputBuilder", "Información Extra"}}) {
        registro.mensajes.clear();
        teclaEn(boton, Qt::Key_Space);
        ASSERT_EQ(registro.mensajes.size(), 1U) << opcion;
        EXPECT_EQ(registro.mensajes[0].texto.toStdString(),
                  std::string("La biblioteca ") + biblioteca +
                      " no está instalada en esta PC; instálela para usar la opción " + opcion + '.');
        EXPECT_EQ(registro.mensajes[0].icono, Icono::Informacion);
        EXPECT_EQ(QApplication::focusWidget(), boton);
    }
}

TEST_P(Tablero, BothExportButtonsPutATemporaryImportIntoTheStockOnce) {
    auto &tablero = abrir(u"IT-2026-0003"_s);
    armar(tablero);
    tecla(Qt::Key_Escape);
    esperarVentana(tablero.ventana.get());
    ejecutar(u"delete from stock"_s);
    registro = {};
    const auto contestar = [this] {
        registro.textos = {u"26001IT01000123T"_s, u"1/2/2026"_s, u"31/12/2033"_s, u"CTIT 7"_s, u"0"_s};
    };
    contestar();
    teclaEn(tablero.ui.cmdExportINS, Qt::Key_Space);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto,
              u"La declaración 26001IT01000123T está en el stock; líneas: 6 nuevas."_s);
    EXPECT_EQ(valor(u"select count(*) from stock where saldo = cantidad and expctit = 'CTIT 7'"_s), u"6"_s);
    EXPECT_EQ(QApplication::focusWidget(), tablero.ui.cmdExportINS);
    contestar();
    teclaEn(tablero.ui.cmdExportar, Qt::Key_Space);
    EXPECT_EQ(registro.mensajes.back().texto, u"El stock ya tiene la operación tal como está."_s);
    EXPECT_TRUE(registro.preguntas.empty());
    registro = {};
    teclaEn(tablero.ui.cmdExportar, Qt::Key_Space);
    EXPECT_EQ(registro.entradas.size(), 1U) << "the first box was left";
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(Tablero, TheButtonOfTheQuoteOpensItAndKeepsTheKeyboard) {
    ctx->ConfigFilePath = tienda->carpeta() + "/Prueba.cfg"_L1;
    auto &tablero = abrir(importacion);
    conPantallaModal<FrmPresupuesto>([](FrmPresupuesto &p) {
        EXPECT_EQ(p.ui.LbInterno->text(), importacion);
        tecla(Qt::Key_Escape);
    });
    teclaEn(tablero.ui.CmdPresupuesto, Qt::Key_Space);
    EXPECT_FALSE(PantallaAbierta<FrmPresupuesto>());
    EXPECT_TRUE(registro.mensajes.empty());
    esperarVentana(tablero.ventana.get());
    EXPECT_EQ(QApplication::focusWidget(), tablero.ui.CmdPresupuesto);
}

TEST_P(Tablero, OpeningAnOperationTakesTheFlagOfChangesAway) {
    ClCntrl::banderaDeCambios() = true;
    abrir(importacion);
    EXPECT_FALSE(ClCntrl::banderaDeCambios());
}

TEST_P(Tablero, TheButtonOfTheNomenclatureShowsItsSearch) {
    auto &tablero = abrir(importacion);
    teclaEn(tablero.ui.Command4, Qt::Key_Space);
    ASSERT_TRUE(PantallaAbierta<FrmConsultas>());
    esperarVentana(Pantalla<FrmConsultas>().ventana.get());
    tecla(Qt::Key_Escape);
    EXPECT_FALSE(PantallaAbierta<FrmConsultas>());
    EXPECT_TRUE(PantallaAbierta<FrmDetalleInterno>());
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(Tablero, TheFocusTakesTheCoefficientFlagAway) {
    auto &tablero = abrir(exportacion);
    ctx->CalcularCoeficiente = true;
    QEvent foco(QEvent::WindowActivate);
    QApplication::sendEvent(tablero.ventana.get(), &foco);
    EXPECT_FALSE(ctx->CalcularCoeficiente);
}

// ---- labels keep what the routine does not reach

TEST_P(Tablero, ALabelThatTheRoutineDoesNotReachKeepsWhatItShowedAndTheButtonsJudgeByIt) {
    auto &tablero = abrir(importacion);
    armar(tablero);
    tecla(Qt::Key_Escape);
    esperarVentana(tablero.ventana.get());
    auto &ui = tablero.ui;
    ASSERT_EQ(ui.LbEstadoItem->text(), u"GENERADO!"_s);
    const QString bultos = ui.LbEstadoBultos->text();
    ejecutar(u"update caratula set fobdivisas = 0 where interno = 'IC-2026-0001'"_s);
    tablero.VerDatos();
    EXPECT_EQ(ui.LbEstadoCaratula->text(), u"INCOMPLETO"_s);
    EXPECT_EQ(ui.LbEstadoSubItem->text(), u"COMPLETO!"_s);
    EXPECT_EQ(ui.LbEstadoItem->text(), u"GENERADO!"_s);
    EXPECT_EQ(ui.LbEstadoBultos->text(), bultos);
    EXPECT_FALSE(ui.cmdITEM->isEnabled());
    EXPECT_TRUE(ui.CmdBultos->isEnabled()) << "its items are generated";
    EXPECT_FALSE(ui.frmOrdenar->isVisible());
    EXPECT_FALSE(ui.CmdTransMaria->isEnabled());
}

TEST_P(Tablero, TheOrderBoxStaysAsItWasWhileTheItemsAreNotLookedAt) {
    auto &tablero = abrir(importacion);
    ASSERT_TRUE(tablero.ui.frmOrdenar->isVisible());
    ejecutar(u"update caratula set fobdivisas = 0 where interno = 'IC-2026-0001'"_s);
    tablero.VerDatos();
    EXPECT_TRUE(tablero.ui.frmOrdenar->isVisible());
    EXPECT_FALSE(tablero.ui.frmOrdenar->isEnabled());
    EXPECT_EQ(tablero.ui.LbEstadoItem->text(), u"SIN GENERAR"_s);
}

TEST_P(Tablero, ADescriptionChosenForADjaiIsStillChosenWhenItsHeaderIsNotComplete) {
    auto &tablero = abrir(djai);
    tablero.ui.opDJAI_Usar_Descripcion_Maria->click();
    ejecutar(u"update caratula set fobdivisas = 0 where interno = 'DJAI-2026-0004'"_s);
    tablero.VerDatos();
    EXPECT_TRUE(tablero.ui.framDJAI->isVisible());
    EXPECT_TRUE(tablero.ui.opDJAI_Usar_Descripcion_Maria->isChecked());
}

// ---- the box of the fines

TEST_P(Tablero, TheBoxOfTheFinesFollowsTheAnswerOfTheRun) {
    ejecutar(u"update caratula set idsubreg = 'IDA4' where interno = 'IC-2026-0001'"_s);
    for (const bool respuesta : {true, false}) {
        auto &tablero = abrir(importacion);
        // As the user left it before: the answer decides, either way.
        tablero.ui.ChMulta->setChecked(!respuesta);
        ejecutar(u"update caratula set factura8 = 'S' where interno = 'IC-2026-0001'"_s);
        registro = {};
        registro.respuestas.push_back(respuesta);
        armar(tablero);
        ASSERT_EQ(registro.preguntas.size(), 1U);
        EXPECT_EQ(registro.preguntas[0].texto, u"Desea calcular multas?"_s);
        EXPECT_EQ(tablero.ui.ChMulta->isChecked(), respuesta) << "while the items stand over it";
        EXPECT_EQ(valor(u"select count(*) from itemliq where interno = 'IC-2026-0001' and idconceptos = "
                        "'041' and iditem > 0"_s) != u"0"_s,
                  respuesta);
        tecla(Qt::Key_Escape);
        EXPECT_EQ(tablero.ui.ChMulta->isChecked(), respuesta) << "and when they have closed";
        esperarVentana(tablero.ventana.get());
        tecla(Qt::Key_Escape);
    }
}

// ---- one operation at a time

TEST_P(Tablero, OpeningAnotherOperationClosesTheFirstAsByEscape) {
    auto &primera = abrir(exportacion);
    teclaEn(primera.ui.CkFlag_3, Qt::Key_Space);
    int cerradas = 0;
    primera.alCerrar = [&cerradas] { ++cerradas; };
    auto &segunda = abrir(importacion);
    EXPECT_EQ(segunda.Interno(), importacion);
    EXPECT_EQ(segunda.ui.LbInterno->text(), importacion);
    EXPECT_EQ(filas(u"select interno,maquina from interno"_s), u"IC-2026-0001|PC1"_s);
    EXPECT_EQ(ctx->ajustes.Leer(u"ZENDRA"_s, exportacion, u"FLAG3"_s), u"0"_s);
    EXPECT_TRUE(segunda.ui.CkFlag_3->isChecked()) << "the flags are each operation's own";
    EXPECT_EQ(cerradas, 1);
    EXPECT_TRUE(registro.mensajes.empty());
    tecla(Qt::Key_Escape);
    EXPECT_EQ(valor(u"select count(*) from interno"_s), u"0"_s);
}

TEST_P(Tablero, OpeningTheSameOperationAgainBringsItsWindowToTheFront) {
    auto &tablero = abrir(importacion);
    teclaEn(tablero.ui.CkFlag_3, Qt::Key_Space);
    for (const QString &clave : {importacion, importacion.toLower()}) {
        tablero.ventana->lower();
        AbrirInterno(clave);
        ASSERT_EQ(&Pantalla<FrmDetalleInterno>(), &tablero);
        EXPECT_FALSE(tablero.ui.CkFlag_3->isChecked()) << "nothing is read anew";
        EXPECT_EQ(tablero.Interno(), importacion);
        EXPECT_TRUE(tablero.ventana->isVisible());
        EXPECT_TRUE(registro.mensajes.empty());
        EXPECT_EQ(filas(u"select interno,maquina from interno"_s), u"IC-2026-0001|PC1"_s);
    }
}

TEST_P(Tablero, AStoreThatCannotTakeTheLockBackKeepsNobodyInTheOperation) {
    abrir(importacion);
    ejecutar(u"drop table interno"_s);
    tecla(Qt::Key_Escape);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Critico);
    EXPECT_FALSE(PantallaAbierta<FrmDetalleInterno>());
}

// ---- what is shown is what was keyed

TEST_P(Tablero, KeysAndNamesAreShownAsTheyWereKeyed) {
    const QString clave = u"<b>A&B</b>"_s;
    ejecutar(
        u"insert into caratula (interno,idsubreg,idaduana,cuitcliente,cuitdespaduana) values "
        "('<b>A&B</b>','<i>R</i>','<u>1</u>','<s>30</s>','<s>20</s>')"_s);
    auto &tablero = abrir(clave);
    EXPECT_EQ(tablero.ui.LbInterno->text(), clave);
    EXPECT_EQ(tablero.ventana->windowTitle(), u"Operación <b>A&B</b>"_s);
    EXPECT_EQ(comoMarcas(tablero.ventana.get()).toStdString(), "");
    const QFontMetrics letra(tablero.ui.LbInterno->font());
    EXPECT_GE(tablero.ui.LbInterno->sizeHint().width(), letra.horizontalAdvance(clave)) << "every sign of it";
}

TEST_P(Tablero, ARegimeStoredInSmallLettersIsReadAsTheOneInCapitals) {
    for (const char *regimen : {"djai", "DJAI"}) {
        ejecutar("update caratula set idsubreg = '"_L1 + QLatin1String(regimen) +
                 "' where interno = 'DJAI-2026-0004'"_L1);
        auto &ui = abrir(djai).ui;
        EXPECT_EQ(ui.LbSubregimen->text(), u"DJAI"_s) << regimen;
        EXPECT_EQ(ui.LbEstadoCaratula->text(), u"COMPLETO!"_s) << regimen;
        EXPECT_TRUE(ui.framDJAI->isVisible()) << regimen;
        tecla(Qt::Key_Escape);
    }
}

EN_AMBOS_STORES(Tablero);

}  // namespace
