// The valuation sheet of an operation, by keyboard.

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>

#include "desktop/FrmPrincipal.h"
#include "desktop/MenuP.h"
#include "forms/FrmCertificados.h"
#include "forms/FrmHojaValoracion.h"
#include "frame/ui/Pantalla.h"
#include "operations/FrmDetalleInterno.h"
#include "tests/support/claves.h"
#include "tests/support/pantallas.h"

using namespace Qt::StringLiterals;

namespace {

class PantallaDeHoja : public EnPantalla {
 protected:
    void mostrar(const QString &interno, const std::function<void(FrmHojaValoracion &)> &hacer) {
        conPantallaModal<FrmHojaValoracion>(hacer);
        AbrirHojaValoracion(interno);
        EXPECT_FALSE(PantallaAbierta<FrmHojaValoracion>());
    }
    static QString texto(const FrmHojaValoracion &p, const char *columna) {
        const QWidget *control = p.Control(QString::fromLatin1(columna));
        if (const auto *combo = qobject_cast<const QComboBox *>(control))
            return combo->currentData().toString();
        return qobject_cast<const QLineEdit *>(control)->text();
    }
    static void escribirEn(FrmHojaValoracion &p, const char *columna, const QString &texto) {
        p.Control(QString::fromLatin1(columna))->setFocus();
        escribir(texto);
    }
    static QStringList observaciones(const FrmHojaValoracion &p) {
        QStringList todas;
        for (int n = 0; n < p.ui.lstObservaciones->count(); ++n)
            todas << p.ui.lstObservaciones->item(n)->text();
        return todas;
    }
    void sinHojas() { ejecutar(u"delete from hval"_s, u"SYSTABLAS"_s); }
    std::string guardado(const QString &columnas, const QString &tabla = u"hval"_s) {
        return filas(u"select %1 from %2 where interno = '%3'"_s.arg(
                         columnas, tabla, tabla == "hval"_L1 ? importacion : exportacion),
                     u"SYSTABLAS"_s)
            .toStdString();
    }
    void enElMenu(const QString &rotulo) {
        auto &marco = Pantalla<FrmPrincipal>();
        marco.Mostrar();
        esperarVentana(marco.ventana.get());
        auto *grilla = Pantalla<MenuP>().ui.GridFormularios;
        tecla(Qt::Key_Tab);
        ASSERT_TRUE(grilla->hasFocus());
        while (grilla->item(grilla->currentRow(), 1)->text() != rotulo) {
            const int antes = grilla->currentRow();
            tecla(Qt::Key_Down);
            ASSERT_NE(grilla->currentRow(), antes) << "the arrow does not reach it";
        }
        tecla(Qt::Key_Return);
    }
};
EN_AMBOS_STORES(PantallaDeHoja);

TEST_P(PantallaDeHoja, TheSheetOfTheDemonstrationIsShownWithWhatComesOfIt) {
    mostrar(importacion, [](FrmHojaValoracion &p) {
        EXPECT_EQ(QApplication::focusWidget(), p.Control(u"metodo"_s));
        EXPECT_EQ(texto(p, "contrato"), u"NP-2025-31"_s);
        EXPECT_EQ(texto(p, "fechacontrato"), u"14/11/2025"_s);
        EXPECT_FALSE(p.Control(u"vinculocaso"_s)->isEnabled()) << "the parties are not related";
        tecla(Qt::Key_F2);
        EXPECT_EQ(QApplication::focusWidget(), p.Control(u"precio"_s));
        // 35950 + 2165.90 + 479.91 = 38595.81; x 1.085 = 41876.4539
        EXPECT_EQ(p.ui.LbValor->text().replace(u',', u'.'), u"38595.81"_s);
        EXPECT_EQ(p.ui.LbDolares->text().replace(u',', u'.'), u"41876.45"_s);
        EXPECT_EQ(observaciones(p), QStringList{u"Sin observaciones."_s});
        tecla(Qt::Key_Escape);
    });
    EXPECT_TRUE(registro.mensajes.empty() && registro.preguntas.empty());
}

TEST_P(PantallaDeHoja, ASaveThatFailsOnLeavingKeepsTheSheetOnceAndASecondEscapeLeaves) {
    const std::string antes = guardado(u"contrato"_s);
    mostrar(importacion, [this](FrmHojaValoracion &p) {
        auto *contrato = qobject_cast<QLineEdit *>(p.Control(u"contrato"_s));
        contrato->setText(QString(u"🚢"_s).left(1));
        tecla(Qt::Key_Escape);
        ASSERT_TRUE(p.ventana->isVisible()) << "what was typed is still there";
        EXPECT_EQ(registro.mensajes.size(), 1U);
        // Corrected it is saved.
        contrato->setText(u"NP-2026-1"_s);
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(guardado(u"contrato"_s), "NP-2026-1");
    EXPECT_EQ(registro.mensajes.size(), 1U);
    EXPECT_NE(antes, "NP-2026-1");
    mostrar(importacion, [](FrmHojaValoracion &p) {
        qobject_cast<QLineEdit *>(p.Control(u"contrato"_s))->setText(QString(u"🚢"_s).left(1));
        tecla(Qt::Key_Escape);
        ASSERT_TRUE(p.ventana->isVisible());
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(registro.mensajes.size(), 3U);
    EXPECT_EQ(guardado(u"contrato"_s), "NP-2026-1");
}

TEST_P(PantallaDeHoja, ItIsFilledByTheKeyboardAloneAndEscapeSaves) {
    sinHojas();
    mostrar(importacion, [](FrmHojaValoracion &p) {
        EXPECT_FALSE(p.ui.CmdEliminar->isEnabled()) << "there is none to delete";
        EXPECT_EQ(texto(p, "metodo"), u"1"_s);
        for (int n = 0; n < 3; ++n) tecla(Qt::Key_Return);
        EXPECT_EQ(QApplication::focusWidget(), p.Control(u"contrato"_s));
        escribir(u"D'OR 7"_s);
        tecla(Qt::Key_Return);
        escribir(u"1-2-26"_s);
        tecla(Qt::Key_Return);
        EXPECT_EQ(texto(p, "fechacontrato"), u"01/02/2026"_s);
        tecla(Qt::Key_Return);
        // Four questions and their detail, then whether the parties are related.
        for (const char16_t respuesta : {u'n', u'n', u's', u'n'}) {
            escribir(QString(QChar(respuesta)));
            tecla(Qt::Key_Return);
        }
        escribir(u"Marca registrada"_s);
        tecla(Qt::Key_Return);
        EXPECT_EQ(QApplication::focusWidget(), p.Control(u"vinculacion"_s));
        escribir(u"n"_s);
        // The last answer goes on with the amounts, on the other page.
        tecla(Qt::Key_Return);
        EXPECT_EQ(p.ui.sTab->currentIndex(), 1);
        EXPECT_EQ(QApplication::focusWidget(), p.Control(u"precio"_s));
        EXPECT_EQ(observaciones(p), QStringList{u"Falta el importe: cánones."_s});
        tecla(Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_EQ(QApplication::focusWidget(), p.Control(u"vinculacion"_s)) << "and back";
        tecla(Qt::Key_Return);
        escribirEn(p, "canones", u"100"_s);
        tecla(Qt::Key_Return);
        EXPECT_EQ(texto(p, "canones").replace(u',', u'.'), u"100.00"_s);
        EXPECT_EQ(p.ui.LbValor->text().replace(u',', u'.'), u"38695.81"_s) << "38595.81 + 100";
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(
        guardado(u"metodo,naturaleza,contrato,restricciones,pagacanones,explicacion,vinculacion,influencia,"
                 "precio,canones,flete,seguro,divisa,cambio"_s),
        "1|V|D'OR 7|N|S|Marca registrada|N||35950|100|2165.9|479.91|060|1.085");
    EXPECT_TRUE(registro.mensajes.empty() && registro.preguntas.empty());
}

TEST_P(PantallaDeHoja, AProposalThatNobodyTouchedIsNotASheet) {
    sinHojas();
    mostrar(importacion, [](FrmHojaValoracion &) { tecla(Qt::Key_Escape); });
    EXPECT_EQ(valor(u"select count(*) from hval"_s, u"SYSTABLAS"_s), u"0"_s);
    mostrar(importacion, [](FrmHojaValoracion &) { atajo(Qt::Key_G); });
    EXPECT_EQ(valor(u"select count(*) from hval"_s, u"SYSTABLAS"_s), u"1"_s) << "saved by its button it is";
}

TEST_P(PantallaDeHoja, AWrongAmountKeepsTheScreenWithTheFocusOnIt) {
    mostrar(importacion, [this](FrmHojaValoracion &p) {
        escribirEn(p, "contrato", u"X"_s);
        tecla(Qt::Key_F2);
        escribirEn(p, "tributos", u"mil"_s);
        tecla(Qt::Key_F1);
        tecla(Qt::Key_Escape);
        EXPECT_TRUE(p.ventana->isVisible());
        EXPECT_EQ(p.ui.sTab->currentIndex(), 1);
        EXPECT_EQ(QApplication::focusWidget(), p.Control(u"tributos"_s));
        ASSERT_EQ(registro.mensajes.size(), 1U);
        EXPECT_EQ(registro.mensajes[0].texto,
                  u"Derechos y tributos en el país: no es un número, corríjalo."_s);
        escribir(u"0"_s);
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(guardado(u"contrato,tributos"_s), "X|0");
}

TEST_P(PantallaDeHoja, ARelationOpensItsQuestions) {
    mostrar(importacion, [](FrmHojaValoracion &p) {
        p.Control(u"vinculacion"_s)->setFocus();
        escribir(u"s"_s);
        EXPECT_EQ(observaciones(p),
                  (QStringList{u"Faltan contestar 2 preguntas."_s, u"Falta el caso de vinculación."_s}));
        tecla(Qt::Key_Return);
        EXPECT_EQ(QApplication::focusWidget(), p.Control(u"vinculocaso"_s));
        escribir(u"e"_s);
        tecla(Qt::Key_Return);
        escribir(u"n"_s);
        tecla(Qt::Key_Return);
        escribir(u"s"_s);
        EXPECT_EQ(observaciones(p), QStringList{u"Sin observaciones."_s});
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(guardado(u"vinculacion,vinculocaso,influencia,criterio"_s), "S|e|N|S");
}

TEST_P(PantallaDeHoja, TheHeadersAmountsAreProposedAgainByTheirButton) {
    ejecutar(u"update caratula set fobdivisas = 36000, ajusteincluir = 25 where interno = 'IC-2026-0001'"_s);
    mostrar(importacion, [](FrmHojaValoracion &p) {
        EXPECT_EQ(observaciones(p).size(), 2) << "the price and the adjustments";
        atajo(Qt::Key_P);
        EXPECT_EQ(QApplication::focusWidget(), p.Control(u"precio"_s));
        EXPECT_EQ(observaciones(p), QStringList{u"Sin observaciones."_s});
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(guardado(u"precio,otrosincluir,contrato"_s), "36000|25|NP-2025-31");
}

TEST_P(PantallaDeHoja, F12ShowsThePaperOfASheetWithoutObservationsAtOnce) {
    mostrar(importacion, [this](FrmHojaValoracion &) {
        tecla(Qt::Key_F12);
        ASSERT_EQ(registro.vistos.size(), 1U);
        EXPECT_EQ(registro.vistos[0].reporte.titulo, u"Hoja de valoración de importación"_s);
        EXPECT_EQ(registro.vistos[0].reporte.nombre, u"Hoja de valoración IC-2026-0001"_s);
        EXPECT_TRUE(registro.vistos[0].tabla.has_value());
        tecla(Qt::Key_Escape);
    });
    EXPECT_TRUE(registro.preguntas.empty());
}

TEST_P(PantallaDeHoja, ObservationsAreAskedAboutBeforeThePaper) {
    sinHojas();
    registro.respuestas = {false, true};
    mostrar(importacion, [this](FrmHojaValoracion &p) {
        tecla(Qt::Key_F12);
        ASSERT_EQ(registro.preguntas.size(), 1U);
        EXPECT_EQ(registro.preguntas[0].texto,
                  u"La hoja tiene una observación.\r\n¿Desea imprimirla igual?"_s);
        EXPECT_TRUE(registro.preguntas[0].porDefectoNo);
        EXPECT_TRUE(registro.vistos.empty());
        EXPECT_EQ(QApplication::focusWidget(), p.ui.lstObservaciones);
        atajo(Qt::Key_I);
        EXPECT_EQ(registro.vistos.size(), 1U);
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(guardado(u"precio"_s), "35950") << "what is on paper is kept";
}

TEST_P(PantallaDeHoja, TheSheetIsDeletedByItsButton) {
    registro.respuestas = {true};
    mostrar(importacion, [](FrmHojaValoracion &) { atajo(Qt::Key_E); });
    EXPECT_EQ(guardado(u"precio"_s), "");
    ASSERT_EQ(registro.preguntas.size(), 1U);
}

TEST_P(PantallaDeHoja, AnExportHasItsOwnFields) {
    mostrar(exportacion, [](FrmHojaValoracion &p) {
        EXPECT_EQ(p.ventana->windowTitle(), u"Hoja de valoración de exportación - Operación EC-2026-0002"_s);
        EXPECT_EQ(p.ui.rotuloVendedor->text(), u"Comprador"_s);
        EXPECT_EQ(p.ui.LbVendedor->text(), u"BLUE ORCHARD WINES INC - NEW YORK"_s);
        EXPECT_EQ(p.Control(u"metodo"_s), nullptr);
        EXPECT_EQ(QApplication::focusWidget(), p.Control(u"naturaleza"_s));
        tecla(Qt::Key_F2);
        escribirEn(p, "gastosanteriores", u"12.5"_s);
        EXPECT_EQ(p.ui.LbValor->text().replace(u',', u'.'), u"107480.00"_s) << "107467.50 + 12.50";
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(guardado(u"precio,gastosanteriores"_s, u"hvalexp"_s), "107467.5|12.5");
}

TEST_P(PantallaDeHoja, TheDashboardOpensItForACompleteOperation) {
    FrmDetalleInterno &tablero = abrir(importacion);
    ASSERT_TRUE(tablero.ui.CmdHojaVal->isEnabled());
    conPantallaModal<FrmHojaValoracion>([](FrmHojaValoracion &) { tecla(Qt::Key_Escape); });
    tablero.ui.CmdHojaVal->setFocus();
    tecla(Qt::Key_Space);
    esperarVentana(tablero.ventana.get());
    EXPECT_EQ(QApplication::focusWidget(), tablero.ui.CmdHojaVal);
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(PantallaDeHoja, TheMenuAsksForTheOperationAndHoldsItMeanwhile) {
    registro.textos = {u" ic-2026-0001 "_s};
    bool abierta = false;
    conPantallaModal<FrmHojaValoracion>([&](FrmHojaValoracion &) {
        abierta = true;
        EXPECT_EQ(filas(u"select interno from interno"_s), importacion) << "held";
        tecla(Qt::Key_Escape);
    });
    enElMenu(u"Hoja de Valoración"_s);
    EXPECT_TRUE(abierta);
    ASSERT_EQ(registro.entradas.size(), 1U);
    EXPECT_EQ(registro.entradas[0].titulo, u"Hoja de Valoración"_s);
    EXPECT_EQ(registro.entradas[0].texto, u"Ingrese el número de INTERNO/CARPETA, o su comienzo"_s);
    EXPECT_EQ(filas(u"select interno from interno"_s), QString()) << "let go";
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(PantallaDeHoja, TheMenuOffersTheOperationsOfABeginning) {
    registro.textos = {u"IC"_s};
    registro.indices = {1};
    bool abierta = false;
    conPantallaModal<FrmCertificados>([&](FrmCertificados &p) {
        abierta = true;
        EXPECT_EQ(p.ventana->windowTitle(), u"Certificados de origen - Operación ICR-2026-0005"_s);
        tecla(Qt::Key_Escape);
    });
    enElMenu(u"Certificados de Origen"_s);
    EXPECT_TRUE(abierta);
    ASSERT_EQ(registro.elecciones.size(), 1U);
    EXPECT_EQ(registro.elecciones[0].filas.join(u'\n').toStdString(),
              "IC-2026-0001  IC04  HIDRAULICA DEL PLATA S.A.\nICR-2026-0005  ICR3  AUTOPARTES QUILMES S.A.");
}

TEST_P(PantallaDeHoja, TheMenuTellsWhatItDoesNotOpen) {
    registro.textos = {u"XX"_s};
    enElMenu(u"Hoja de Valoración"_s);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto, u"No hay operaciones que empiecen con XX, revise el número."_s);
    ejecutar(u"insert into interno (interno,maquina) values ('IC-2026-0001','PC9')"_s);
    registro.mensajes.clear();
    registro.textos = {importacion};
    tecla(Qt::Key_Return);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_TRUE(registro.mensajes[0].texto.startsWith("Este interno esta abierto por la PC: PC9"_L1));
    EXPECT_FALSE(PantallaAbierta<FrmHojaValoracion>());
    EXPECT_EQ(filas(u"select maquina from interno"_s), u"PC9"_s);
}

TEST_P(PantallaDeHoja, AnOperationThatIsGoneIsTold) {
    AbrirHojaValoracion(u"NO"_s);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto, u"La operación NO ya no existe: vuelva a buscarla en la lista."_s);
}

class CapturasDeHojaDeValoracion : public PantallaDeHoja {};
INSTANTIATE_TEST_SUITE_P(Stores, CapturasDeHojaDeValoracion, ::testing::Values("ACCESS"));

TEST_P(CapturasDeHojaDeValoracion, TheMenuWithAFormInHand) {
    auto &marco = Pantalla<FrmPrincipal>();
    marco.Mostrar();
    esperarVentana(marco.ventana.get());
    const auto &ui = Pantalla<MenuP>().ui;
    EXPECT_TRUE(ui.GridFormularios->selectedItems().isEmpty()) << "one row in hand, where the keyboard is";
    tecla(Qt::Key_Tab);
    EXPECT_TRUE(ui.GrdMenuMain->selectedItems().isEmpty());
    EXPECT_EQ(ui.GridFormularios->selectedItems().size(), 2);
    foto(marco.ventana.get(), u"menu-formularios"_s);
}

TEST_P(CapturasDeHojaDeValoracion, BothPagesOfBothSheets) {
    mostrar(u"ICR-2026-0005"_s, [](FrmHojaValoracion &p) {
        foto(p.ventana.get(), u"valoracion-circunstancias"_s);
        EXPECT_EQ(ordenDeTab(p.ventana.get()).join(u' ').toStdString(),
                  "cboMetodo cboNaturaleza cboNivelcomercial TxtContrato TxtFechacontrato TxtFormadepago "
                  "cboRestricciones cboCondiciones cboPagacanones cboReversion TxtExplicacion "
                  "cboVinculacion cboVinculocaso cboInfluencia cboCriterio TxtVinculodetalle TxtPrecio "
                  "TxtPagosindirectos TxtComisiones TxtEnvases TxtEmbalaje TxtMateriales TxtHerramientas "
                  "TxtConsumidos TxtIngenieria TxtCanones TxtProducto TxtOtrosincluir TxtFlete TxtCarga "
                  "TxtSeguro TxtMontaje TxtTransporteinterno TxtTributos TxtIntereses TxtOtrosdeducir "
                  "lstObservaciones CmdProponer CmdEliminar CmdImprimir CmdGuardar");
        tecla(Qt::Key_F2);
        foto(p.ventana.get(), u"valoracion-valores"_s);
        tecla(Qt::Key_Escape);
    });
    sinHojas();
    mostrar(u"IC-2026-0001"_s, [](FrmHojaValoracion &p) {
        tecla(Qt::Key_F2);
        escribirEn(p, "comisiones", u"150"_s);
        foto(p.ventana.get(), u"valoracion-observaciones"_s);
        tecla(Qt::Key_Escape);
    });
    mostrar(exportacion, [](FrmHojaValoracion &p) {
        foto(p.ventana.get(), u"valoracion-expo-circunstancias"_s);
        tecla(Qt::Key_F2);
        foto(p.ventana.get(), u"valoracion-expo-valores"_s);
        tecla(Qt::Key_Escape);
    });
}

}  // namespace
