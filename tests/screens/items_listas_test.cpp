// The lists of the item's page by keys: liquidation, information and advantages, cancellations.

#include <gtest/gtest.h>

#include "frame/ui/eventos.h"
#include "liquidation/FrmAdCon.h"
#include "liquidation/FrmVentajas.h"
#include "liquidation/cancellations.h"
#include "tests/screens/items_pantalla.h"

using namespace Qt::StringLiterals;

namespace {

class ListasDeItems : public EnItems {
 protected:
    FrmVerItem &liquidacionDe(int numero) {
        auto &items = mostrarItem(numero);
        tecla(Qt::Key_F4);
        return items;
    }
    FrmVerItem &extrasDe(int numero) {
        auto &items = mostrar();
        items.ui.Scr->setValue(numero);
        tecla(Qt::Key_F3);
        return items;
    }
    /// Chooses the line of an ID in the pick list that `abrirla` opens.
    static void elegir(const QString &id, const std::function<void()> &abrirla) {
        enHija<FrmVentajas>(abrirla, [id](FrmVentajas &lista) {
            lista.ui.txtBuscarID->setFocus();
            escribir(id);
            tecla(Qt::Key_Return);
        });
    }
    std::string deTabla(const char *sentencia) { return filas(QString::fromUtf8(sentencia)).toStdString(); }
};
EN_AMBOS_STORES(ListasDeItems);

// Liquidation

TEST_P(ListasDeItems, AFunctionKeyThatAPlatformGivesANullTextIsHeardFromAGrid) {
    QuitarTextosMudos(qApp);
    auto &ui = liquidacionDe(1).ui;
    ASSERT_EQ(QApplication::focusWidget(), ui.GrdLiq);
    QKeyEvent conNulo(QEvent::KeyPress, Qt::Key_F3, Qt::NoModifier, QString(QChar::Null));
    QApplication::sendEvent(ui.GrdLiq, &conNulo);
    EXPECT_EQ(ui.sTab->currentIndex(), 2);
}

TEST_P(ListasDeItems, DeleteRemovesTheConceptInHandAndTheGridKeepsItsPlace) {
    auto &ui = liquidacionDe(1).ui;
    const QStringList antes = textosDe(ui.GrdLiq, 0);
    ASSERT_GT(antes.size(), 3);
    ui.GrdLiq->setCurrentCell(1, 4);
    tecla(Qt::Key_Delete);
    QStringList despues = antes;
    despues.removeAt(1);
    EXPECT_EQ(textosDe(ui.GrdLiq, 0), despues);
    EXPECT_EQ(ui.GrdLiq->currentRow(), 1);
    EXPECT_EQ(ui.GrdLiq->currentColumn(), 4);
    EXPECT_TRUE(ctx->LiquidacionPendiente);
    EXPECT_TRUE(registro.preguntas.empty());
    EXPECT_EQ(valor(u"select count(*) from itemliq where interno = 'IC-2026-0001' and iditem = 1 and "
                    "idconceptos = '%1'"_s.arg(antes.at(1))),
              u"0"_s);
}

TEST_P(ListasDeItems, TheLastRowIsEmptiedAndStays) {
    ejecutar(u"delete from itemliq where interno = 'IC-2026-0001' and iditem = 1 and idconceptos <> '010'"_s);
    auto &ui = liquidacionDe(1).ui;
    ASSERT_EQ(ui.GrdLiq->rowCount(), 1);
    tecla(Qt::Key_Delete);
    ASSERT_EQ(ui.GrdLiq->rowCount(), 1);
    for (int c = 0; c < ui.GrdLiq->columnCount(); ++c) EXPECT_EQ(ui.GrdLiq->item(0, c)->text(), QString());
    tecla(Qt::Key_Delete);
    tecla(Qt::Key_Return);
    EXPECT_EQ(ui.GrdLiq->rowCount(), 1) << "there is nothing in it to delete or to change";
}

TEST_P(ListasDeItems, EnterF6AndTheDoubleClickOpenTheConceptInHand) {
    auto &ui = liquidacionDe(1).ui;
    ui.GrdLiq->setCurrentCell(0, 2);
    const std::function<void()> caminos[] = {[] { tecla(Qt::Key_Return); }, [] { tecla(Qt::Key_F6); },
                                             [&ui] { Q_EMIT ui.GrdLiq->cellDoubleClicked(0, 2); },
                                             [&ui] { ui.CmdModificarLiq->click(); }};
    int abiertas = 0;
    for (const auto &abrirConcepto : caminos) {
        ui.GrdLiq->setFocus();
        enHija<FrmAdCon>(abrirConcepto, [&](FrmAdCon &concepto) {
            ++abiertas;
            EXPECT_EQ(concepto.ui.txtPorc->text(), ui.GrdLiq->item(0, 2)->text());
            EXPECT_EQ(concepto.ui.txtBimp->text(), ui.GrdLiq->item(0, 3)->text());
            EXPECT_EQ(concepto.ui.TxtValor->text(), ui.GrdLiq->item(0, 4)->text());
            tecla(Qt::Key_Escape);
        });
    }
    EXPECT_EQ(abiertas, 4);
    EXPECT_FALSE(ctx->LiquidacionPendiente);
}

TEST_P(ListasDeItems, AConceptThatWasChangedIsShownInItsPlace) {
    auto &ui = liquidacionDe(1).ui;
    ui.GrdLiq->setCurrentCell(0, 2);
    enHija<FrmAdCon>([] { tecla(Qt::Key_Return); },
                     [](FrmAdCon &concepto) {
                         concepto.ui.txtPorc->setFocus();
                         concepto.ui.txtPorc->selectAll();
                         escribir(u"7"_s);
                         concepto.ui.Command1->click();
                         if (concepto.ventana->isVisible()) tecla(Qt::Key_Escape);
                     });
    EXPECT_EQ(ultimoMensaje(), "");
    EXPECT_EQ(ui.GrdLiq->item(0, 2)->text(), u"07,00"_s);
    EXPECT_EQ(ui.GrdLiq->currentRow(), 0);
    EXPECT_EQ(ui.GrdLiq->currentColumn(), 2);
    EXPECT_TRUE(ctx->LiquidacionPendiente);
}

TEST_P(ListasDeItems, InsertOpensANewConceptAndOnItemZeroTheKeysDoNothing) {
    auto &ui = liquidacionDe(1).ui;
    enHija<FrmAdCon>([] { tecla(Qt::Key_Insert); }, [](FrmAdCon &) { tecla(Qt::Key_Escape); });
    tecla(Qt::Key_Home, Qt::ControlModifier);
    ASSERT_EQ(ui.TxtItem->text(), u"0"_s);
    tecla(Qt::Key_F4);
    const QStringList antes = textosDe(ui.GrdLiq, 0);
    const std::string guardadas = deTabla("select count(*) from itemliq");
    for (const int cual : {Qt::Key_Insert, Qt::Key_Return, Qt::Key_F6, Qt::Key_Delete}) {
        tecla(cual);
        EXPECT_FALSE(PantallaAbierta<FrmAdCon>());
    }
    EXPECT_EQ(textosDe(ui.GrdLiq, 0), antes);
    EXPECT_EQ(deTabla("select count(*) from itemliq"), guardadas);
    for (const QPushButton *boton : {ui.CmdAgregarLiq, ui.CmdModificarLiq, ui.CmdEliminarLiq})
        EXPECT_FALSE(boton->isEnabled());
}

TEST_P(ListasDeItems, WhatWasTypedInThePageSurvivesAChangeOfTheGrid) {
    auto &ui = mostrarItem(1).ui;
    reemplazar(ui.TxtNaladisa, u"NUEVA"_s);
    tecla(Qt::Key_F4);
    tecla(Qt::Key_Delete);
    EXPECT_EQ(ui.TxtNaladisa->text(), u"NUEVA"_s);
    tecla(Qt::Key_PageDown);
    EXPECT_EQ(guardado("naladisa", 1), "NUEVA");
}

// Information and advantages

TEST_P(ListasDeItems, AnInformationIsPickedItsValueAskedAndItsRowShown) {
    auto &ui = extrasDe(1).ui;
    registro.textos = {u"ACME D'OR"_s};
    ASSERT_EQ(QApplication::focusWidget(), ui.GridInf);
    elegir(u"DATO-COMPRADOR"_s, [] { tecla(Qt::Key_Insert); });
    ASSERT_EQ(registro.entradas.size(), 1U);
    EXPECT_EQ(registro.entradas[0].texto, u"Ingrese el Valor de: Datos del comprador"_s);
    EXPECT_TRUE(textosDe(ui.GridInf, 0).contains(u"DATO-COMPRADOR"_s));
    EXPECT_TRUE(textosDe(ui.GridInf, 1).contains(u"ACME D'OR"_s));
    elegir(u"DATO-COMPRADOR"_s, [&ui] { ui.CmdAgregarInf->click(); });
    EXPECT_EQ(ultimoMensaje(), "Este item ya esta ingresado.");
}

TEST_P(ListasDeItems, ThePickListLeftOrTheValueNotGivenAddsNothing) {
    auto &ui = extrasDe(1).ui;
    const int antes = ui.GridInf->rowCount();
    enHija<FrmVentajas>([&ui] { ui.CmdAgregarInf->click(); }, [](FrmVentajas &) { tecla(Qt::Key_Escape); });
    EXPECT_TRUE(registro.entradas.empty());
    elegir(u"DATO-COMPRADOR"_s, [&ui] { ui.CmdAgregarInf->click(); });
    EXPECT_EQ(registro.entradas.size(), 1U);
    EXPECT_EQ(ui.GridInf->rowCount(), antes);
}

TEST_P(ListasDeItems, AnInformationValueOfItemZeroCannotBeDeletedFromItem5) {
    auto &ui = extrasDe(0).ui;
    registro.textos = {u"ACME"_s};
    elegir(u"DATO-COMPRADOR"_s, [] { tecla(Qt::Key_Insert); });
    EXPECT_EQ(deTabla("select count(*) from iteminfo where idinfo = 'DATO-COMPRADOR'"), "20");
    ui.Scr->setValue(5);
    tecla(Qt::Key_F3);
    const auto fila = textosDe(ui.GridInf, 0).indexOf(u"DATO-COMPRADOR"_s);
    ASSERT_GE(fila, 0);
    ui.GridInf->setCurrentCell(static_cast<int>(fila), 0);
    tecla(Qt::Key_Delete);
    EXPECT_EQ(ultimoMensaje(),
              "No se puede eliminar esta Información. Debe eliminar el mismo en el ITEM 0 (cero)");
    ui.Scr->setValue(0);
    ui.GridInf->setCurrentCell(static_cast<int>(textosDe(ui.GridInf, 0).indexOf(u"DATO-COMPRADOR"_s)), 0);
    ui.CmdEliminarInf->click();
    EXPECT_EQ(deTabla("select count(*) from iteminfo where idinfo = 'DATO-COMPRADOR'"), "0");
}

TEST_P(ListasDeItems, AnAdvantageOfSelfLiquidationShowsItsMarkAndTakesItAway) {
    ejecutar(u"delete from ventajas where id = 'AUTOLIQLIBREIMP'"_s, u"SYSTABLAS"_s);
    ejecutar(u"insert into ventajas (id,descripcion) values ('AUTOLIQLIBREIMP','Autoliquidación')"_s,
             u"SYSTABLAS"_s);
    auto &ui = extrasDe(1).ui;
    EXPECT_FALSE(ui.lbAutoliq->isVisible());
    elegir(u"AUTOLIQLIBREIMP"_s, [&ui] { teclaEn(ui.LstVentajas, Qt::Key_Insert); });
    EXPECT_TRUE(ui.lbAutoliq->isVisible());
    EXPECT_EQ(guardado("lman", 1), "M");
    ui.LstVentajas->setCurrentItem(ui.LstVentajas->findItems(u"AUTOLIQLIBREIMP"_s, Qt::MatchExactly).at(0));
    tecla(Qt::Key_Delete);
    EXPECT_FALSE(ui.lbAutoliq->isVisible());
    EXPECT_EQ(guardado("lman", 1), "");
}

TEST_P(ListasDeItems, AnAdvantageOfItemZeroCannotBeDeletedElsewhereAndTheListKeepsItsPlace) {
    auto &ui = extrasDe(0).ui;
    elegir(u"MUESTRAEXPO"_s, [&ui] { ui.CmdAgregarVen->click(); });
    EXPECT_EQ(deTabla("select count(*) from itemventaja where idventaja = 'MUESTRAEXPO'"), "20");
    ui.Scr->setValue(1);
    ASSERT_EQ(ui.LstVentajas->count(), 2);
    ui.LstVentajas->setCurrentRow(1);
    ui.CmdEliminarVen->click();
    EXPECT_EQ(ultimoMensaje(),
              "No se puede eliminar esta Ventaja. Debe eliminar la misma en el ITEM 0 (cero)");
    EXPECT_EQ(ui.LstVentajas->currentRow(), 1);
}

// Cancellations

class CancelacionesDeItems : public ListasDeItems {
 protected:
    void SetUp() override {
        ListasDeItems::SetUp();
        ejecutar(u"update caratula set idsubreg = 'EC02' where interno = 'IC-2026-0001'"_s);
        for (const char *dit : {"A", "B"})
            ejecutar(
                u"insert into descargas (interno,iditem,dit,item,subitem,cantidad,factorponderacion) "
                "values ('IC-2026-0001','1','%1','1','2',2.5,1)"_s.arg(QLatin1String(dit)));
        const auto anotar = [this](const char *que, const QString &interno, const QString &item,
                                   const QString &dit) {
            pedidos << QLatin1String(que) + QLatin1Char(' ') + interno + QLatin1Char(' ') + item +
                           QLatin1Char(' ') + dit;
        };
        enlace.Ingresar_Cancelaciones = [this, anotar](const QString &interno, const QString &item) {
            anotar("alta", interno, item, {});
            ejecutar(u"insert into descargas (interno,iditem,dit) values ('IC-2026-0001','1','C')"_s);
        };
        enlace.Modificar_Cancelacion = [this, anotar](const QString &interno, const QString &item,
                                                      const FilaDeCancelacion &fila) {
            anotar("cambio", interno, item, fila.dit);
            ejecutar("update descargas set dit = 'Z' where dit = '"_L1 + fila.dit + "'"_L1);
        };
        enlace.Eliminar_Articulo = [this, anotar](const QString &interno, const QString &item,
                                                  const FilaDeCancelacion &fila) {
            anotar("baja", interno, item, fila.dit);
            ejecutar("delete from descargas where dit = '"_L1 + fila.dit + "'"_L1);
        };
    }
    void TearDown() override {
        cancelaciones::enlace = nullptr;
        ListasDeItems::TearDown();
    }
    FrmVerItem &cancelacionesDe(int numero) {
        auto &items = mostrarItem(numero);
        tecla(Qt::Key_F5);
        return items;
    }
    cancelaciones::Enlace enlace;
    QStringList pedidos;
};
EN_AMBOS_STORES(CancelacionesDeItems);

TEST_P(CancelacionesDeItems, WithoutTheirLibraryEachKeySaysWhichIsMissing) {
    auto &ui = cancelacionesDe(1).ui;
    ASSERT_EQ(ui.lstVCancel->rowCount(), 2);
    for (const int cual : {Qt::Key_Insert, Qt::Key_Return, Qt::Key_F6, Qt::Key_Delete}) {
        registro = {};
        tecla(cual);
        ASSERT_EQ(registro.mensajes.size(), 1U);
        EXPECT_EQ(ultimoMensaje(),
                  "Las cancelaciones se cargan con la biblioteca oCancellations, que no está instalada.");
        EXPECT_EQ(registro.mensajes[0].icono, Icono::Informacion);
    }
}

TEST_P(CancelacionesDeItems, InsertEntersThemAndTheListIsReadAgain) {
    cancelaciones::enlace = &enlace;
    auto &ui = cancelacionesDe(1).ui;
    tecla(Qt::Key_Insert);
    EXPECT_EQ(pedidos, QStringList{u"alta IC-2026-0001 1 "_s});
    EXPECT_EQ(textosDe(ui.lstVCancel, 0), QStringList({u"A"_s, u"B"_s, u"C"_s}));
    ui.CmdInsertarCnl->setFocus();
    tecla(Qt::Key_Insert);
    EXPECT_EQ(pedidos.size(), 2) << "from anywhere on the page";
}

TEST_P(CancelacionesDeItems, EnterChangesTheRowInHandAndDeleteRemovesIt) {
    cancelaciones::enlace = &enlace;
    auto &ui = cancelacionesDe(1).ui;
    ui.lstVCancel->setCurrentCell(1, 0);
    tecla(Qt::Key_Return);
    EXPECT_EQ(textosDe(ui.lstVCancel, 0), QStringList({u"A"_s, u"Z"_s}));
    EXPECT_EQ(ui.lstVCancel->currentRow(), 1);
    tecla(Qt::Key_Delete);
    EXPECT_EQ(textosDe(ui.lstVCancel, 0), QStringList{u"A"_s});
    ui.CmdEliminarCnl->click();
    EXPECT_EQ(ui.lstVCancel->rowCount(), 0);
    tecla(Qt::Key_Delete);
    EXPECT_EQ(pedidos, QStringList({u"cambio IC-2026-0001 1 B"_s, u"baja IC-2026-0001 1 Z"_s,
                                    u"baja IC-2026-0001 1 A"_s}));
}

TEST_P(CancelacionesDeItems, AltPHandsTheirItemToThePrintout) {
    QString pedido;
    ctx->salidas.hoja = [&pedido](const QString &interno, const QString &item) {
        pedido = interno + u' ' + item;
    };
    cancelacionesDe(1);
    atajo(Qt::Key_P);
    EXPECT_EQ(pedido, u"IC-2026-0001 1"_s);
}

TEST_P(CancelacionesDeItems, ItemZeroHasNone) {
    cancelaciones::enlace = &enlace;
    auto &ui = cancelacionesDe(1).ui;
    ui.Scr->setValue(0);
    tecla(Qt::Key_F5);
    EXPECT_EQ(ui.lstVCancel->rowCount(), 0);
    tecla(Qt::Key_Insert);
    EXPECT_TRUE(pedidos.isEmpty());
}

}  // namespace
