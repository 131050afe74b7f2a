// Whole shipments keyed line by line, and the lists as windows.

#include <gtest/gtest.h>

#include <QApplication>
#include <algorithm>

#include "frame/ui/Pantalla.h"
#include "header/FrmListado.h"
#include "subitems/FrmCargaSufijos.h"
#include "subitems/FrmCatArticulos.h"
#include "tests/screens/subitems_pantalla.h"

using namespace Qt::StringLiterals;

namespace {

class Embarque : public EnLineas {
 protected:
    std::string lineasDe(const QString &interno) { return linea(columnasDeLinea, interno); }
    void tecleaDeNuevo(const QString &interno) {
        ctx->ajustes.Guardar(u"ZENDRA"_s, u"FLAGS"_s, u"CARGASBTPOR"_s, u"U"_s);
        // A text that was never keyed is empty, not absent.
        QString antes = QString::fromStdString(lineasDe(interno)).replace("<null>"_L1, QString());
        // Nor does the entry leave the suffixes without a word.
        antes.replace("|2||N|"_L1, "|2|SIN SUFIJOS|N|"_L1);
        antes.replace("|2||S|"_L1, "|2|SIN SUFIJOS|S|"_L1);
        ejecutar(u"delete from subitems where interno = '%1'"_s.arg(interno));
        auto &pantalla = lineas(interno);
        int fila = 0;
        const auto renglones = antes.split(QLatin1Char('\n'));
        for (const QString &renglon : renglones) {
            teclearLinea(pantalla, renglon.split(QLatin1Char('|')));
            ASSERT_EQ(pantalla.ui.LstArticulos->rowCount(), ++fila)
                << renglon.toStdString() << ": " << ultimoMensaje();
        }
        EXPECT_EQ(lineasDe(interno), antes.toStdString());
        for (const Mensaje &m : registro.mensajes) EXPECT_EQ(m.texto.toStdString(), sinSufijos);
        EXPECT_TRUE(registro.elecciones.empty());
        EXPECT_EQ(pantalla.ui.lbDIF->text(), u"00.00"_s);
    }
};

TEST_P(Embarque, TheImportKeyedAgainHasTheSameTwentyFiveLines) {
    tecleaDeNuevo(u"IC-2026-0001"_s);
}

TEST_P(Embarque, TheExportKeyedAgainHasTheSameLines) {
    tecleaDeNuevo(u"EC-2026-0002"_s);
}

TEST_P(Embarque, AListOfCodesIsChosenFromByKeys) {
    conDialogosDeVerdad();
    auto &pantalla = lineas();
    auto &ui = pantalla.ui;
    irA(ui.TxtIdpais);
    conVentanaModal([](QWidget *modal) {
        esperarVentana(modal);
        escribir(u"bras"_s);
        tecla(Qt::Key_Return);
    });
    tecla(Qt::Key_F6);
    esperarVentana(pantalla.ventana.get());
    EXPECT_EQ(ui.TxtIdpais->text(), u"203"_s);
    EXPECT_EQ(ui.LbDescPais->text(), u"BRASIL"_s);
    EXPECT_EQ(QApplication::focusWidget(), ui.TxtIdpais);
    tecla(Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), ui.txtIdPaisProc);
}

TEST_P(Embarque, AnArticleIsChosenFromItsCatalogueByKeys) {
    conDialogosDeVerdad();
    auto &pantalla = lineas();
    auto &ui = pantalla.ui;
    conPantallaModal<FrmCatArticulos>([](FrmCatArticulos &p) {
        const auto enMano = [&p] { return p.ui.TvArticulos->currentIndex().data().toString(); };
        const auto bajarHasta = [&](const QString &codigo) {
            constexpr int pasos = 100;
            for (int n = 0; n < pasos && enMano() != codigo; ++n) tecla(Qt::Key_Down);
            ASSERT_EQ(enMano(), codigo);
        };
        tecla(Qt::Key_Home);
        bajarHasta(u"HIDPLATA"_s);
        tecla(Qt::Key_Plus);
        bajarHasta(u"NP-1100"_s);
        tecla(Qt::Key_Return);
    });
    tecla(Qt::Key_F6);
    esperarVentana(pantalla.ventana.get());
    EXPECT_EQ(ui.TxtIdCatalogo->text(), u"HIDPLATA"_s);
    EXPECT_EQ(ui.txtIdArticulo->text(), u"NP-1100"_s);
    EXPECT_EQ(ui.TxtPosicion->text(), bomba);
    EXPECT_EQ(valor("select factura8 from caratula where interno = 'OP 1'"), u"S"_s)
        << "what a list fills is a change too";
}

TEST_P(Embarque, SuffixesThatAreMissingAreAskedForBySavingAndGivingUpWritesNothing) {
    auto &pantalla = lineas();
    auto &ui = pantalla.ui;
    teclearBomba(pantalla);
    ui.txtSufijos->selectAll();
    tecla(Qt::Key_Delete);
    tecla(Qt::Key_F11);
    ASSERT_EQ(registro.elecciones.size(), 1U);
    EXPECT_EQ(registro.elecciones[0].titulo, u"SUFIJO AA"_s);
    EXPECT_EQ(ultimoMensaje(), "Carga de SUFIJOS cancelada");
    EXPECT_EQ(cuantas(), 0);
    EXPECT_EQ(QApplication::focusWidget(), ui.txtSufijos);
    registro.mensajes.clear();
    registro.indices = {1};
    registro.textos = {u"Nord 1"_s, u"750"_s};
    tecla(Qt::Key_F11);
    EXPECT_EQ(ultimoMensaje(), "<ninguno>");
    EXPECT_EQ(linea("sufijos"), "AA01-AB(NORD 1)-ZB(000750)-");
}

TEST_P(Embarque, TheSuffixesOfANewLineAreKeyedInTheirWindows) {
    conDialogosDeVerdad();
    auto &pantalla = lineas();
    auto &ui = pantalla.ui;
    llenarYSeguir(ui.TxtPosicion, bomba);
    irA(ui.txtSufijos);
    // The next window is waited for just ahead of the ENTER that brings it.
    const auto responder = [](const QString &texto, const std::function<void()> &despues) {
        conVentanaModal([texto, despues](QWidget *modal) {
            esperarVentana(modal);
            escribir(texto);
            despues();
            tecla(Qt::Key_Return);
        });
    };
    conPantallaModal<FrmCargaSufijos>([&](FrmCargaSufijos &) {
        tecla(Qt::Key_Down);
        responder(u"Nord 1"_s, [=] { responder(u"750"_s, [] {}); });
        tecla(Qt::Key_Return);
    });
    tecla(Qt::Key_F6);
    EXPECT_EQ(ui.txtSufijos->text(), u"AA01-AB(NORD 1)-ZB(000750)-"_s);
}

TEST_P(Embarque, TheArticleIsWhatTheQuestionForItsFamilyOffers) {
    ctx->opciones.SbtNroArtAI = true;
    auto &pantalla = lineas();
    llenar(pantalla.ui.txtIdArticulo, u"B-7"_s);
    teclearBomba(pantalla);
    pantalla.ui.txtSufijos->selectAll();
    tecla(Qt::Key_Delete);
    registro.indices = {1};
    registro.textos = {u"x"_s, u"1"_s};
    tecla(Qt::Key_F11);
    ASSERT_FALSE(registro.entradas.empty());
    EXPECT_EQ(registro.entradas[0].inicial, u"B-7"_s);
}

TEST_P(Embarque, TheListTakesHomeEndAndLetters) {
    auto &pantalla = lineas(u"IC-2026-0001"_s);
    auto &ui = pantalla.ui;
    tecla(Qt::Key_F9);
    tecla(Qt::Key_End);
    EXPECT_EQ(ui.LstArticulos->currentRow(), 24);
    tecla(Qt::Key_Home);
    EXPECT_EQ(ui.LstArticulos->currentRow(), 0);
    tecla(Qt::Key_PageDown);
    EXPECT_GT(ui.LstArticulos->currentRow(), 2);
    escribir(u"0003"_s);
    EXPECT_EQ(ui.LstArticulos->currentRow(), 2);
    tecla(Qt::Key_F9);
    EXPECT_EQ(QApplication::focusWidget(), ui.TxtIdCatalogo) << "and back to the field";
}

TEST_P(Embarque, TheMarksOfThePositionStandBesideIt) {
    ejecutar(
        "update ncm set [059] = '*', [052] = '*', [044] = '*', [019] = 0 where [001] = '0709.60.00' and "
        "[002] = '000' and [003] = 'X'",
        "NCM");
    auto &pantalla = lineas();
    auto &ui = pantalla.ui;
    const auto marcas = [&ui] {
        QStringList vistas;
        for (const QLabel *marca : {ui.LbLapi, ui.lbSegElect, ui.lbProhibicion, ui.lbREINT})
            if (marca->isVisible()) vistas << marca->text();
        return vistas.join(QLatin1Char(' ')).toStdString();
    };
    EXPECT_EQ(marcas(), "");
    llenarYSeguir(ui.TxtPosicion, hortaliza);
    EXPECT_EQ(marcas(), "LAPI SEG. ELÉCTRICA PROHIBICIÓN");
    EXPECT_EQ(recortados(pantalla.ventana.get()).join("; "_L1).toStdString(), "");
    EXPECT_TRUE(ui.txtNCMDesc->toPlainText().contains(u"Posee LAPI: Si"_s));
    llenarYSeguir(ui.TxtPosicion, bomba);
    EXPECT_EQ(marcas(), "REINTEGRO");
}

TEST_P(Embarque, TheKeysOfTheScreenWorkFromTheBoxOfSeveralLinesToo) {
    auto &pantalla = lineas();
    auto &ui = pantalla.ui;
    teclearBomba(pantalla);
    irA(ui.txtDescripcionMaria);
    tecla(Qt::Key_F11);
    EXPECT_EQ(cuantas(), 1);
    irA(ui.txtDescripcionMaria);
    tecla(Qt::Key_F9);
    EXPECT_EQ(QApplication::focusWidget(), ui.LstArticulos);
    tecla(Qt::Key_F9);
    EXPECT_EQ(QApplication::focusWidget(), ui.txtDescripcionMaria);
    escribir(u"x"_s);
    tecla(Qt::Key_Insert);
    EXPECT_EQ(ui.txtDescripcionMaria->toPlainText(), QString());
    irA(ui.txtDescripcionMaria);
    tecla(Qt::Key_Escape);
    EXPECT_FALSE(PantallaAbierta<FrmSubItems>());
}

TEST_P(Embarque, AHiddenFieldThatFailsIsToldAndTheFocusStays) {
    auto &pantalla = lineas(u"OP 1"_s, {1, 0, 1, 1, 1, 1, 1, 1});
    auto &ui = pantalla.ui;
    llenarYSeguir(ui.TxtPosicion, bomba);
    llenar(ui.TxtFiller, QString());
    tecla(Qt::Key_F11);
    EXPECT_EQ(ultimoMensaje(), "Debe ingresar un valor mayor a cero en CANTIDA ESTADISTICA");
    EXPECT_EQ(QApplication::focusWidget(), ui.TxtFiller);
}

TEST_P(Embarque, ACheckedLineStaysCheckedWhenItIsChanged) {
    auto &pantalla = lineas(u"IC-2026-0001"_s);
    auto &ui = pantalla.ui;
    tecla(Qt::Key_F9);
    tecla(Qt::Key_Space);
    tecla(Qt::Key_Return);
    tecla(Qt::Key_F11);
    EXPECT_EQ(ultimoMensaje(), "<ninguno>");
    EXPECT_EQ(ui.LstArticulos->item(0, 0)->checkState(), Qt::Checked);
}

EN_AMBOS_STORES(Embarque);

}  // namespace
