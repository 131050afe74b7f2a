// The sheet of an operation by keyboard, and the roads to it from the items.

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QCloseEvent>

#include "desktop/salidasqt.h"
#include "liquidation/Frm_ListaCeoItem.h"
#include "outputs/FrmPrintItem.h"
#include "tests/screens/items_pantalla.h"

using namespace Qt::StringLiterals;

namespace {

class ImpresionDeItems : public EnItems {
 protected:
    void SetUp() override {
        EnItems::SetUp();
        ctx->salidas = SalidasQt();
        ctx->dialogos.vistaPrevia = [this](const papel::Documento &d) { vistas.push_back(d.reporte); };
        ctx->dialogos.imprimir = [this](const papel::Documento &d) {
            impresas.push_back(d.reporte);
            return true;
        };
    }
    /// `hacer` in the screen that is opened over `item`.
    void imprimir(const char *item, const std::function<void(FrmPrintItem &)> &hacer) {
        bool vista = false;
        conPantallaModal<FrmPrintItem>([&](FrmPrintItem &p) {
            vista = true;
            hacer(p);
            if (p.ventana->isVisible()) tecla(Qt::Key_Escape);
        });
        ctx->salidas.hoja(importacion, QLatin1String(item));
        EXPECT_TRUE(vista);
        EXPECT_FALSE(PantallaAbierta<FrmPrintItem>());
    }
    /// The numbers of the items whose pages a report has.
    static QString itemsDe(const papel::Reporte &reporte) {
        QStringList numeros;
        for (const papel::Renglon &r : reporte.renglones) {
            if (r.texto.startsWith(u"Interno: "_s)) numeros << u"000"_s;
            if (r.texto.startsWith(u"     ITEM "_s)) numeros << r.texto.mid(10);
        }
        return numeros.join(u' ');
    }
    /// Lets `hacer` run when a statement that begins with `comienzo` has been sent, once.
    static void alMandar(const QString &comienzo, std::function<void()> hacer) {
        Conexion::fijarTraza([comienzo, hacer = std::move(hacer)](const TrazaDeSentencia &t) {
            if (t.sentencia.startsWith(comienzo)) hacer();
        });
    }

    std::vector<papel::Reporte> vistas, impresas;
};
EN_AMBOS_STORES(ImpresionDeItems);

// The screen

TEST_P(ImpresionDeItems, TheOperationIsOfferedWholeAndAnItemAlone) {
    imprimir("0", [](FrmPrintItem &p) {
        EXPECT_EQ(p.ventana->windowTitle(), u"Impresión de items - Operación IC-2026-0001"_s);
        EXPECT_EQ(p.ui.LbInterno->text(), u"IC-2026-0001"_s);
        EXPECT_EQ(p.ui.cbDesde->count(), 20) << "item 0 and 19 more";
        EXPECT_EQ(p.ui.cbDesde->currentText(), u"0"_s);
        EXPECT_EQ(p.ui.CbHasta->currentText(), u"19"_s);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.cbDesde);
        EXPECT_EQ(p.ui.ChSubitems->text().remove(u'&'), u"Imprimir SubItems"_s);
        EXPECT_EQ(p.ui.ChVistaPrel->text().remove(u'&'), u"Vista Preliminar"_s);
        EXPECT_EQ(p.ui.CmdPrint->text().remove(u'&'), u"Imprimir"_s);
        EXPECT_FALSE(p.ui.ChSubitems->isChecked());
        EXPECT_TRUE(p.ui.ChVistaPrel->isChecked());
    });
    imprimir("7", [](FrmPrintItem &p) {
        EXPECT_EQ(p.ui.cbDesde->currentText(), u"7"_s);
        EXPECT_EQ(p.ui.CbHasta->currentText(), u"7"_s);
    });
    EXPECT_TRUE(vistas.empty());
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(ImpresionDeItems, TheKeyboardAlonePreviewsARangeWithItsSubitems) {
    imprimir("0", [&](FrmPrintItem &p) {
        escribir(u"3"_s);
        tecla(Qt::Key_Return);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.CbHasta);
        escribir(u"5"_s);
        tecla(Qt::Key_Return);
        tecla(Qt::Key_Space);
        tecla(Qt::Key_Return);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.ChVistaPrel);
        tecla(Qt::Key_Return);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.CmdPrint);
        EXPECT_TRUE(vistas.empty());
        tecla(Qt::Key_Return);
        ASSERT_EQ(vistas.size(), 1U);
        EXPECT_EQ(itemsDe(vistas[0]), u"003 004 005"_s);
        EXPECT_EQ(vistas[0].titulo, u"Zendra Para Windows"_s);
        EXPECT_EQ(p.ui.LbDesc->text(), u"Item: 05 de 05"_s);
        EXPECT_EQ(p.ui.PB->value(), 3);
        EXPECT_EQ(p.ui.PB->maximum(), 3);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.CmdPrint);
        EXPECT_TRUE(p.ventana->isVisible()) << "another range may follow";
    });
    EXPECT_TRUE(impresas.empty());
    EXPECT_TRUE(registro.mensajes.empty());
    bool subitems = false;
    for (const papel::Renglon &r : vistas.at(0).renglones) subitems = subitems || r.texto == u"SUBITEMS:"_s;
    EXPECT_TRUE(subitems);
}

TEST_P(ImpresionDeItems, ANumberTypedIsThatItem) {
    imprimir("5", [&](FrmPrintItem &p) {
        escribir(u"1"_s);
        EXPECT_EQ(p.ui.cbDesde->currentText(), u"1"_s) << "and not the next one that begins so";
        escribir(u"2"_s);
        EXPECT_EQ(p.ui.cbDesde->currentText(), u"12"_s);
        escribir(u"0"_s);
        EXPECT_EQ(p.ui.cbDesde->currentText(), u"0"_s) << "there is no item 120";
        tecla(Qt::Key_Return);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.CbHasta);
        escribir(u"19"_s);
        EXPECT_EQ(p.ui.CbHasta->currentText(), u"19"_s);
        tecla(Qt::Key_F12);
        EXPECT_EQ(p.ui.LbDesc->text(), u"Item: 19 de 19"_s);
        p.ui.CbHasta->setFocus();
        escribir(u"3"_s);
        EXPECT_EQ(p.ui.CbHasta->currentText(), u"3"_s);
        p.ui.cbDesde->setFocus();
        escribir(u"9"_s);
        tecla(Qt::Key_F12);
        EXPECT_EQ(registro.mensajes.back().texto, u"El campo DESDE no puede ser mayor que HASTA"_s);
        EXPECT_EQ(p.ui.LbDesc->text(), QString()) << "what the run before did is not this one's";
        EXPECT_EQ(p.ui.PB->value(), 0);
    });
}

TEST_P(ImpresionDeItems, WithoutThePreviewItGoesToThePrinter) {
    imprimir("0", [&](FrmPrintItem &p) {
        p.ui.ChVistaPrel->setFocus();
        tecla(Qt::Key_Space);
        tecla(Qt::Key_F12);
    });
    ASSERT_EQ(impresas.size(), 1U);
    EXPECT_TRUE(vistas.empty());
    EXPECT_EQ(itemsDe(impresas[0]),
              u"000 001 002 003 004 005 006 007 008 009 010 011 012 013 014 015 016 017 018 019"_s)
        << "one document holds all pages";
}

TEST_P(ImpresionDeItems, TheBoxesAreAsTheLastRunLeftThem) {
    imprimir("1", [](FrmPrintItem &p) {
        p.ui.ChSubitems->setChecked(true);
        p.ui.ChVistaPrel->setChecked(false);
        tecla(Qt::Key_F12);
    });
    imprimir("1", [](FrmPrintItem &p) {
        EXPECT_TRUE(p.ui.ChSubitems->isChecked());
        EXPECT_FALSE(p.ui.ChVistaPrel->isChecked());
    });
}

TEST_P(ImpresionDeItems, AFirstItemAboveTheLastIsRefused) {
    imprimir("7", [&](FrmPrintItem &p) {
        p.ui.CbHasta->setFocus();
        escribir(u"6"_s);
        tecla(Qt::Key_F12);
        ASSERT_EQ(registro.mensajes.size(), 1U);
        EXPECT_EQ(registro.mensajes[0].texto, u"El campo DESDE no puede ser mayor que HASTA"_s);
        EXPECT_EQ(registro.mensajes[0].icono, Icono::Exclamacion);
        EXPECT_EQ(registro.mensajes[0].titulo, QString());
        EXPECT_EQ(QApplication::focusWidget(), p.ui.cbDesde);
    });
    EXPECT_TRUE(vistas.empty());
}

TEST_P(ImpresionDeItems, AnOperationThatIsGoneIsTold) {
    imprimir("1", [&](FrmPrintItem &p) {
        ejecutar(u"delete from caratula where interno = 'IC-2026-0001'"_s);
        tecla(Qt::Key_F12);
        EXPECT_TRUE(p.ventana->isVisible());
    });
    EXPECT_EQ(ultimoMensaje(), "No se encontro el interno en caratula");
    EXPECT_TRUE(vistas.empty());
}

TEST_P(ImpresionDeItems, AFailureOfTheStoreIsShownWithItsWordsAndTheScreenWorksOn) {
    imprimir("1", [&](FrmPrintItem &p) {
        ejecutar(u"alter table itemventaja rename to ventajas_aparte"_s);
        tecla(Qt::Key_F12);
        ASSERT_EQ(registro.mensajes.size(), 1U);
        EXPECT_TRUE(registro.mensajes[0].texto.contains(u"itemventaja"_s));
        EXPECT_EQ(registro.mensajes[0].icono, Icono::Critico);
        EXPECT_TRUE(p.ui.CmdPrint->isEnabled());
        EXPECT_EQ(p.ui.PB->value(), 0);
        ejecutar(u"alter table ventajas_aparte rename to itemventaja"_s);
        tecla(Qt::Key_F12);
    });
    ASSERT_EQ(vistas.size(), 1U);
    EXPECT_EQ(itemsDe(vistas[0]), u"001"_s);
}

TEST_P(ImpresionDeItems, EscapeStopsARunAndThenLeaves) {
    ctx->dialogos.atenderEventos = [] { QCoreApplication::processEvents(); };
    imprimir("0", [&](FrmPrintItem &p) {
        bool pedido = false;
        alMandar(u"select fobtotal,itflete"_s, [&] {
            if (std::exchange(pedido, true)) return;
            EXPECT_FALSE(p.ui.CmdPrint->isEnabled());
            EXPECT_EQ(p.ui.lbTeclas->text(), u"ESC  detener"_s);
            QCoreApplication::postEvent(p.ventana.get(),
                                        new QKeyEvent(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier));
        });
        tecla(Qt::Key_F12);
        Conexion::fijarTraza({});
        EXPECT_TRUE(pedido);
        ASSERT_EQ(registro.mensajes.size(), 1U);
        EXPECT_EQ(registro.mensajes[0].texto, u"La impresión se detuvo; no se imprimió ninguna hoja."_s);
        EXPECT_EQ(registro.mensajes[0].icono, Icono::Informacion);
        EXPECT_TRUE(p.ventana->isVisible());
        EXPECT_EQ(QApplication::focusWidget(), p.ui.CmdPrint);
        EXPECT_EQ(p.ui.PB->value(), 0);
        EXPECT_EQ(p.ui.lbTeclas->text(),
                  u"CIFRAS  elegir el item   ·   ENTER  seguir   ·   F12  imprimir   ·   ESC  salir"_s);
        tecla(Qt::Key_Escape);
        EXPECT_FALSE(p.ventana->isVisible());
    });
    EXPECT_TRUE(vistas.empty());
}

TEST_P(ImpresionDeItems, ClosingTheWindowInTheMiddleOfARunStopsIt) {
    ctx->dialogos.atenderEventos = [] { QCoreApplication::processEvents(); };
    imprimir("0", [&](FrmPrintItem &p) {
        bool pedido = false;
        alMandar(u"delete from tabla"_s, [&] {
            if (!std::exchange(pedido, true)) QCoreApplication::postEvent(p.ventana.get(), new QCloseEvent);
        });
        tecla(Qt::Key_F12);
        Conexion::fijarTraza({});
        EXPECT_TRUE(p.ventana->isVisible());
    });
    EXPECT_EQ(ultimoMensaje(), "La impresión se detuvo; no se imprimió ninguna hoja.");
    EXPECT_TRUE(vistas.empty());
}

// The roads

TEST_P(ImpresionDeItems, F12TheButtonAndAltPOpenTheSheetOnTheItemInHand) {
    auto &items = mostrarItem(4);
    const std::function<void()> caminos[] = {[] { tecla(Qt::Key_F12); }, [&] { items.ui.CmdPrint->click(); },
                                             [] { atajo(Qt::Key_P); }};
    for (const auto &camino : caminos)
        enHija<FrmPrintItem>(camino, [](FrmPrintItem &p) {
            EXPECT_EQ(p.ui.cbDesde->currentText(), u"4"_s);
            EXPECT_EQ(p.ui.CbHasta->currentText(), u"4"_s);
            tecla(Qt::Key_Escape);
        });
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(ImpresionDeItems, ThePageIsSavedAheadOfItsSheet) {
    auto &ui = mostrarItem(1).ui;
    reemplazar(ui.TxtNaladisa, u"1234.56.78"_s);
    enHija<FrmPrintItem>([] { tecla(Qt::Key_F12); }, [](FrmPrintItem &) { tecla(Qt::Key_Escape); });
    EXPECT_EQ(guardado("naladisa", 1), "1234.56.78");
    const QStringList otraVez = grabaciones([this] {
        enHija<FrmPrintItem>([] { tecla(Qt::Key_F12); }, [](FrmPrintItem &) { tecla(Qt::Key_Escape); });
    });
    EXPECT_EQ(otraVez, QStringList()) << "nothing was typed since";
}

TEST_P(ImpresionDeItems, AnUncalculatedChangeIsToldAheadOfTheSheet) {
    mostrarItem(1);
    ctx->LiquidacionPendiente = true;
    enHija<FrmPrintItem>([] { tecla(Qt::Key_F12); }, [](FrmPrintItem &) { tecla(Qt::Key_Escape); });
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(
        registro.mensajes[0].texto,
        u"Hay cambios de liquidación sin calcular: la hoja sale con los importes de antes. Vaya al item 0 "
        "(cero) para actualizarlos."_s);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Exclamacion);
    EXPECT_TRUE(ctx->LiquidacionPendiente);
    ctx->LiquidacionPendiente = false;
}

TEST_P(ImpresionDeItems, WithoutAScreenForItTheButtonSaysSo) {
    ctx->salidas = {};
    mostrarItem(1);
    tecla(Qt::Key_F12);
    EXPECT_EQ(ultimoMensaje(), "Esta opción todavía no está disponible en esta versión.");
}

// Certificates of origin

TEST_P(ImpresionDeItems, TheCertificatesOfAnItemOpenInAGridOfTheirOwn) {
    const QString linea =
        valor(u"select idsub from groupsubitems where interno = 'IC-2026-0001' and id = 1 order by idsub"_s);
    ejecutar(u"update subitems set certorig = 'CO-77' where interno = 'IC-2026-0001' and id = "_s + linea);
    auto &ui = mostrarItem(1).ui;
    tecla(Qt::Key_F2);
    ASSERT_EQ(ui.lstCertOrig->count(), 1);
    ui.lstCertOrig->setFocus();
    const std::function<void()> caminos[] = {
        [] { tecla(Qt::Key_Return); }, [] { tecla(Qt::Key_F6); },
        [&ui] { Q_EMIT ui.lstCertOrig->itemDoubleClicked(ui.lstCertOrig->item(0)); }};
    for (const auto &camino : caminos)
        enHija<Frm_ListaCeoItem>(camino, [](Frm_ListaCeoItem &lista) {
            EXPECT_EQ(lista.ventana->windowTitle(), u"Certificados de Origen"_s);
            EXPECT_EQ(textosDe(lista.ui.GrdCeo, 0), QStringList{u"CO-77"_s});
            EXPECT_EQ(QApplication::focusWidget(), lista.ui.GrdCeo);
            tecla(Qt::Key_Escape);
        });
    EXPECT_EQ(QApplication::focusWidget(), ui.lstCertOrig);
}

TEST_P(ImpresionDeItems, AnItemWithoutCertificatesOpensNothing) {
    auto &ui = mostrarItem(1).ui;
    tecla(Qt::Key_F2);
    ui.lstCertOrig->setFocus();
    tecla(Qt::Key_Return);
    EXPECT_FALSE(PantallaAbierta<Frm_ListaCeoItem>());
}

}  // namespace
