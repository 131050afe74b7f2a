// The fields of the item's page: what can be typed where, look-ups, options, and what leaves the liquidation
// pending.

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QCompleter>
#include <QTest>

#include "header/FrmListadoeX.h"
#include "regulatory/onccalists.h"
#include "tests/screens/items_pantalla.h"

using namespace Qt::StringLiterals;

namespace {

class CamposDeItems : public EnItems {};
EN_AMBOS_STORES(CamposDeItems);

TEST_P(CamposDeItems, WhatASaveWritesCanBeTypedAndTheRestCannot) {
    auto &items = mostrarItem(1);
    for (const int item : {1, 0}) {
        items.ui.Scr->setValue(item);
        for (const CampoDeItem &campo : CamposDeItem()) {
            const auto *control = items.ventana->findChild<QWidget *>(QLatin1String(campo.control));
            ASSERT_NE(control, nullptr) << campo.control;
            const auto *linea = qobject_cast<const QLineEdit *>(control);
            const bool deCaratula = control == items.ui.TxtIdpais || control == items.ui.TxtEstadoMerc;
            const bool seEscribe = item == 0 ? campo.enCero && !deCaratula : campo.seGraba;
            EXPECT_EQ(linea != nullptr ? !linea->isReadOnly() : control->isEnabled(), seEscribe)
                << item << ' ' << campo.control;
        }
    }
}

TEST_P(CamposDeItems, CountriesAndTheStateOfTheGoodsAreLookedUpWithTheirNames) {
    auto &items = mostrarItem(1);
    reemplazar(items.ui.TxtIdpais, u"203"_s);
    tecla(Qt::Key_Return);
    EXPECT_EQ(items.ui.LbDescPais->text(), u"BRASIL"_s);
    EXPECT_EQ(QApplication::focusWidget(), items.ui.TxtIdproc);
    registro.indices = {0};
    tecla(Qt::Key_F6);
    ASSERT_EQ(registro.elecciones.size(), 1U);
    EXPECT_FALSE(items.ui.LbDest->text().isEmpty());
    reemplazar(items.ui.TxtEstadoMerc, u"4"_s);
    tecla(Qt::Key_Return);
    EXPECT_EQ(items.ui.LbEstMerc->text(), u"Usada, sin derecho a reintegro"_s);
    tecla(Qt::Key_F11);
    EXPECT_EQ(guardado("idpais,estadomerc", 1), "203|4");
}

TEST_P(CamposDeItems, OnItemZeroTheFieldsOfTheHeaderAnswerAndStayAsTheyAre) {
    auto &items = mostrar();
    tecla(Qt::Key_F1);
    const std::string pais =
        "Si desea establecer un PAIS ORIGEN para todos los item's , debe ingresarlo en Caratula";
    const std::string kilos = "Si desea prorratear Kilos Neto, debe ingresar el valor total en Caratula";
    for (const auto &[campo, respuesta] :
         {std::pair{items.ui.TxtIdpais, pais}, std::pair{items.ui.TxtEstadoMerc, pais},
          std::pair{items.ui.TxtTotKgNeto, kilos}}) {
        const QString antes = campo->text();
        for (const int cual : {Qt::Key_5, Qt::Key_F6, Qt::Key_Delete}) {
            registro = {};
            teclaEn(campo, cual);
            EXPECT_EQ(ultimoMensaje(), respuesta);
            ASSERT_EQ(registro.mensajes.size(), 1U);
            EXPECT_EQ(registro.mensajes[0].icono, Icono::Exclamacion);
            EXPECT_TRUE(registro.elecciones.empty());
            EXPECT_EQ(campo->text(), antes);
            EXPECT_EQ(QApplication::focusWidget(), campo);
        }
        registro = {};
        teclaEn(campo, Qt::Key_Return);
        EXPECT_TRUE(registro.mensajes.empty()) << "going through asks nothing";
    }
}

TEST_P(CamposDeItems, TheOptionsOfTheRegimeAreOfferedAndAnEmptyOneSelectsNothing) {
    ejecutar(
        u"update item set opcionesiva = '', opcionesganancias = 'BDEUSO' where interno = 'IC-2026-0001' "
        "and id = 1"_s);
    auto &ui = mostrarItem(1).ui;
    const auto textos = [](const QComboBox *combo) {
        QStringList filas;
        for (int n = 0; n < combo->count(); ++n)
            filas << combo->itemText(n) + QLatin1Char('=') + combo->itemData(n).toString();
        return filas.join(QLatin1Char('|')).toStdString();
    };
    EXPECT_EQ(textos(ui.cboOpcionIVA),
              "<No contestar>=NOCONTESTA|Ninguno=NO_VALIDA|Uso o Consumo Particular=IVAAD1|"
              "Importación definitiva de cosas muebles=IVAAD2");
    EXPECT_EQ(textos(ui.cboOpcionesGanancias),
              "<No contestar>=NOCONTESTA|Ninguno=NO_VALIDA|Comercial=COMERC|Bien de Uso=BDEUSO|"
              "Uso Particular=USOPAR");
    EXPECT_EQ(ui.cboOpcionIVA->currentIndex(), -1);
    EXPECT_EQ(ui.cboOpcionesGanancias->currentText(), u"Bien de Uso"_s);
    ui.cboOpcionesGanancias->setFocus();
    escribir(u"U"_s);
    tecla(Qt::Key_F11);
    EXPECT_EQ(guardado("opcionesiva,opcionesganancias", 1), "|USOPAR");
}

TEST_P(CamposDeItems, AnOptionThatTheRegimeDoesNotKnowStaysUntilAnotherIsChosen) {
    ejecutar(u"update item set opcionesiva = 'VIEJA' where interno = 'IC-2026-0001' and id = 1"_s);
    mostrarItem(1);
    tecla(Qt::Key_F11);
    EXPECT_EQ(guardado("opcionesiva", 1), "VIEJA");
}

TEST_P(CamposDeItems, TheMiningBoxAndTheAdjustmentsLeaveTheLiquidationPending) {
    auto &ui = mostrarItem(1).ui;
    ASSERT_FALSE(ctx->LiquidacionPendiente);
    reemplazar(ui.TxtNaladisa, u"8413"_s);
    EXPECT_FALSE(ctx->LiquidacionPendiente) << "any other field does not";
    teclaEn(ui.chkMineria, Qt::Key_Space);
    EXPECT_TRUE(ctx->LiquidacionPendiente);
    for (QLineEdit *campo : {ui.TxtAjusteInc, ui.txtAjusteDed}) {
        ctx->LiquidacionPendiente = false;
        teclaEn(campo, Qt::Key_Right);
        EXPECT_FALSE(ctx->LiquidacionPendiente) << "a key that changes nothing";
        escribir(u"7"_s);
        EXPECT_TRUE(ctx->LiquidacionPendiente);
    }
    tecla(Qt::Key_F11);
    EXPECT_EQ(guardado("mineria", 1), "S");
}

TEST_P(CamposDeItems, AKeyInTheListMarksItsItemAsTyped) {
    auto &ui = mostrarItem(2).ui;
    EXPECT_EQ(guardado("itmodif", 2), "");
    ui.TxtLista->setFocus();
    tecla(Qt::Key_Right);
    EXPECT_EQ(guardado("itmodif", 2), "");
    escribir(u"3"_s);
    EXPECT_EQ(guardado("itmodif", 2), "S");
    EXPECT_EQ(guardado("itmodif", 3), "");
    ui.Scr->setValue(3);
    teclaEn(ui.TxtLista, Qt::Key_Delete);
    EXPECT_EQ(guardado("itmodif", 3), "") << "no text was left";
    ui.Scr->setValue(0);
    teclaEn(ui.TxtLista, Qt::Key_3);
    EXPECT_EQ(guardado("itmodif", 0), "") << "item 0 is no item of the declaration";
}

TEST_P(CamposDeItems, TheListOffersThoseOfTheLiquidationAndThoseOfTheTable) {
    auto &ui = mostrarItem(2).ui;
    const QAbstractItemModel *oferta = ui.TxtLista->completer()->model();
    QStringList listas;
    for (int n = 0; n < oferta->rowCount(); ++n) listas << oferta->index(n, 0).data().toString();
    EXPECT_EQ(listas.mid(0, 2), QStringList({u"MERCOSUR"_s, u"314/R.AUTOMOTRIZ"_s}));
    EXPECT_TRUE(listas.contains(u"355"_s));
    EXPECT_EQ(listas.count(u"MERCOSUR"_s), 1);
    ui.TxtLista->setFocus();
    ui.TxtLista->selectAll();
    escribir(u"mer"_s);
    QWidget *lista = ui.TxtLista->completer()->popup();
    ASSERT_TRUE(lista->isVisible());
    QTest::keyClick(lista, Qt::Key_Down);
    QTest::keyClick(lista, Qt::Key_Return);
    EXPECT_EQ(ui.TxtLista->text(), u"MERCOSUR"_s);
    tecla(Qt::Key_F11);
    EXPECT_EQ(guardado("lista,itmodif", 2), "MERCOSUR|S");
}

TEST_P(CamposDeItems, TheOfferOfListsStandsInNobodysWay) {
    auto &items = mostrarItem(2);
    auto &ui = items.ui;
    const QWidget *oferta = ui.TxtLista->completer()->popup();
    const auto ofrecer = [&](const QString &texto) {
        // The window has the keyboard again a moment after the offer went.
        esperarVentana(items.ventana.get());
        reemplazar(ui.TxtLista, texto);
        ASSERT_TRUE(oferta->isVisible());
    };
    ofrecer(u"355"_s);
    tecla(Qt::Key_Return);
    EXPECT_FALSE(oferta->isVisible());
    EXPECT_EQ(QApplication::focusWidget(), ui.TxtIdpais);
    ofrecer(u"35"_s);
    tecla(Qt::Key_F11);
    EXPECT_FALSE(oferta->isVisible());
    EXPECT_EQ(guardado("lista", 2), "35");
    ofrecer(u"3"_s);
    tecla(Qt::Key_Escape);
    EXPECT_FALSE(oferta->isVisible());
    EXPECT_TRUE(PantallaAbierta<FrmVerItem>()) << "ESC closes the offer alone";
    esperarVentana(items.ventana.get());
    teclaEn(ui.TxtLista, Qt::Key_Down, Qt::AltModifier);
    EXPECT_TRUE(oferta->isVisible());
}

TEST_P(CamposDeItems, F6InTheListOpensTheTariffListsOfTheItemsCountries) {
    auto &ui = mostrarItem(2).ui;
    enHija<FrmListadoeX>([&ui] { teclaEn(ui.TxtLista, Qt::Key_F6); },
                         [](FrmListadoeX &listas) {
                             EXPECT_EQ(listas.ventana->windowTitle(), u"LISTAS"_s);
                             tecla(Qt::Key_Return);
                         });
    EXPECT_FALSE(ui.TxtLista->text().isEmpty());
    EXPECT_EQ(guardado("itmodif", 2), "S");
    ui.TxtIdpais->clear();
    ui.TxtIdproc->clear();
    teclaEn(ui.TxtLista, Qt::Key_F6);
    EXPECT_EQ(ultimoMensaje(), "No hay Países ingresados.");
}

TEST_P(CamposDeItems, CodesAreTypedInCapitalsAndYesOrNoIsOneLetter) {
    auto &ui = mostrarItem(1).ui;
    reemplazar(ui.TxtReg, u"sn"_s);
    reemplazar(ui.TxtStan, u"n"_s);
    reemplazar(ui.txtTipoItem, u"d"_s);
    EXPECT_EQ(ui.TxtReg->text(), u"S"_s);
    EXPECT_EQ(ui.TxtStan->text(), u"N"_s);
    EXPECT_EQ(ui.txtTipoItem->text(), u"D"_s);
    reemplazar(ui.TxtReg, u"xs"_s);
    EXPECT_EQ(ui.TxtReg->text(), u"S"_s) << "no other letter is taken";
}

TEST_P(CamposDeItems, AFieldIsSelectedWhenItIsEnteredAndTakesItsMaskWhenItIsSaved) {
    auto &ui = mostrarItem(1).ui;
    ui.txtItComExt->setFocus();
    EXPECT_EQ(ui.txtItComExt->selectedText(), u"00,00"_s);
    escribir(u"3,5"_s);
    tecla(Qt::Key_F11);
    EXPECT_EQ(ui.txtItComExt->text(), u"03,50"_s);
    EXPECT_EQ(ui.lbEstado->text(), u"Item 1 grabado"_s);
}

// Meat

class CamposDeCarne : public CamposDeItems {
 protected:
    void SetUp() override {
        CamposDeItems::SetUp();
        ejecutar(u"update caratula set idsubreg = 'EC01' where interno = 'IC-2026-0001'"_s);
    }
};
EN_AMBOS_STORES(CamposDeCarne);

TEST_P(CamposDeCarne, EachFieldHasItsListByKeyAndByButtonAndShowsWhatItsCodeMeans) {
    auto &items = mostrarItem(1);
    tecla(Qt::Key_F7);
    ASSERT_EQ(QApplication::focusWidget(), items.ui.txtAcuerdo);
    for (const oncca::CampoConLista &dato : oncca::CamposConLista()) {
        auto *campo = items.ventana->findChild<QLineEdit *>(QLatin1String(dato.control));
        auto *etiqueta = items.ventana->findChild<QLabel *>(QLatin1String(dato.etiqueta));
        EXPECT_EQ(campo->property("tag").toString(), "LL-"_L1 + QLatin1String(dato.clave) + "#F6"_L1);
        const auto fila = [&] { return etiqueta->text() + " ("_L1 + campo->text() + u')'; };
        registro.elecciones.clear();
        registro.indices = {1, 0, -1};
        teclaEn(campo, Qt::Key_F6);
        ASSERT_EQ(registro.elecciones.size(), 1U) << dato.control;
        const QStringList vistas = registro.elecciones[0].filas;
        EXPECT_EQ(fila(), vistas.at(1)) << dato.control;
        items.ventana->findChild<QPushButton *>(QLatin1String(dato.boton))->click();
        EXPECT_EQ(registro.elecciones.back().filas, vistas) << dato.control;
        EXPECT_EQ(fila(), vistas.at(0)) << dato.control;
        tecla(Qt::Key_F6);
        EXPECT_EQ(fila(), vistas.at(0)) << "left without a choice";
        EXPECT_EQ(QApplication::focusWidget(), campo);
    }
    tecla(Qt::Key_F11);
    // The first of each list by its name.
    EXPECT_EQ(guardado("onccaacuerdo,onccacategoria,onccacortes,onccasispro,onccafaneador,onccamatadero", 1),
              "04 |CP|101|C|4518|4518");
}

TEST_P(CamposDeCarne, ATypedCodeIsLookedUpAndAPageShowsWhatItsCodesMean) {
    auto &items = mostrarItem(1);
    tecla(Qt::Key_F7);
    reemplazar(items.ui.txtAcuerdo, u"02"_s);
    tecla(Qt::Key_Return);
    EXPECT_EQ(items.ui.lbAcuerdo->text(), u"CUOTA ESTADOS UNIDOS"_s);
    EXPECT_EQ(QApplication::focusWidget(), items.ui.txtCategoria);
    escribir(u"zz"_s);
    tecla(Qt::Key_Return);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].titulo, u"Buscar ONCCA_CATEGORIA"_s);
    EXPECT_EQ(items.ui.lbCategoria->text(), QString());
    // Read again, what was typed stays with its own words.
    reemplazar(items.ui.txtCorte, u"106"_s);
    tecla(Qt::Key_F3);
    tecla(Qt::Key_F7);
    EXPECT_EQ(items.ui.txtCorte->text(), u"106"_s);
    EXPECT_EQ(items.ui.lbCorte->text(), u"LOMO"_s);
    tecla(Qt::Key_PageDown);
    EXPECT_EQ(items.ui.lbAcuerdo->text(), QString());
    tecla(Qt::Key_PageUp);
    EXPECT_EQ(items.ui.lbAcuerdo->text(), u"CUOTA ESTADOS UNIDOS"_s);
    EXPECT_EQ(items.ui.lbCorte->text(), u"LOMO"_s);
    EXPECT_EQ(guardado("onccaacuerdo,onccacategoria,onccacortes", 1), "02 |ZZ|106");
}

TEST_P(CamposDeCarne, OnItemZeroTheListsAreOffAndTheirKeyToo) {
    ejecutar(u"update item set onccaacuerdo = '06' where interno = 'IC-2026-0001'"_s);
    auto &items = mostrarItem(0);
    tecla(Qt::Key_F7);
    registro.indices.assign(20, 0);
    for (const oncca::CampoConLista &dato : oncca::CamposConLista()) {
        auto *campo = items.ventana->findChild<QLineEdit *>(QLatin1String(dato.control));
        EXPECT_FALSE(items.ventana->findChild<QPushButton *>(QLatin1String(dato.boton))->isEnabled());
        const QString antes = campo->text();
        teclaEn(campo, Qt::Key_F6);
        EXPECT_EQ(campo->text(), antes) << dato.control;
    }
    EXPECT_TRUE(registro.elecciones.empty());
    EXPECT_EQ(items.ui.lbAcuerdo->text(), u"PROTOCOLO CON CHINA"_s) << "what it holds is described";
}

}  // namespace
