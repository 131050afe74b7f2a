// The frame and the main menu.

#include <gtest/gtest.h>

#include <QCloseEvent>

#include "desktop/FrmPrincipal.h"
#include "desktop/MenuP.h"
#include "desktop/fin.h"
#include "frame/startup.h"
#include "frame/ui/Pantalla.h"
#include "header/FrmClientes.h"
#include "operations/FrmExportarOperaciones.h"
#include "operations/FrmImportarOperaciones.h"
#include "operations/FrmInternoNew.h"
#include "subitems/FrmConsultas.h"
#include "tests/support/pantallas.h"

using namespace Qt::StringLiterals;

namespace {

class Marco : public EnPantalla {
 protected:
    void SetUp() override {
        EnPantalla::SetUp();
        anterior = TerminarPrograma;
        TerminarPrograma = [this] { ++terminados; };
        iniciarAnterior = iniciarPrograma;
        iniciarPrograma = [this](const QString &programa, const QStringList &) {
            iniciados << programa;
            return true;
        };
    }
    void TearDown() override {
        EnPantalla::TearDown();
        TerminarPrograma = anterior;
        iniciarPrograma = iniciarAnterior;
    }
    FrmPrincipal &mostrar() {
        auto &marco = Pantalla<FrmPrincipal>();
        marco.Mostrar();
        esperarVentana(marco.ventana.get());
        return marco;
    }
    std::function<void()> anterior;
    decltype(iniciarPrograma) iniciarAnterior;
    QStringList iniciados;
    int terminados = 0;
};

TEST_P(Marco, TheTitleNamesProfileVersionAndWorkstation) {
    EXPECT_TRUE(mostrar().ventana->windowTitle().startsWith("[Prueba] Zendra Windows - v3.5.001 - PC ["_L1))
        << mostrar().ventana->windowTitle().toStdString();
}

TEST_P(Marco, TheFrameKeepsItsSizeAndItsOwnControlsDoNotCloseIt) {
    auto &marco = mostrar();
    EXPECT_FALSE(marco.ventana->windowFlags().testFlag(Qt::WindowMaximizeButtonHint));
    EXPECT_FALSE(marco.ventana->windowFlags().testFlag(Qt::WindowCloseButtonHint));
    EXPECT_EQ(marco.ventana->minimumSize(), marco.ventana->maximumSize());
    EXPECT_EQ(marco.ventana->size(), marco.ventana->maximumSize());
}

TEST_P(Marco, TheMenuHasItsSevenEntriesAndTheFormsUnderTheirTitle) {
    mostrar();
    auto &menu = Pantalla<MenuP>();
    EXPECT_EQ(textosDe(menu.ui.GrdMenuMain, 1),
              QStringList({u"Operaciones"_s, u"Clientes"_s, u"Nomenclador"_s, u"Catálogos"_s,
                           u"Configuración"_s, u"Exportar Operaciones"_s, u"Importar Operaciones"_s}));
    EXPECT_EQ(menu.ui.GridFormularios->item(0, 0)->text(), u"Formularios"_s);
    EXPECT_FALSE(menu.ui.GridFormularios->item(0, 0)->flags().testFlag(Qt::ItemIsSelectable));
    EXPECT_EQ(textosDe(menu.ui.GridFormularios, 1).mid(1),
              QStringList({u"SENASA 19/02"_s, u"Boleta de Depósito"_s, u"Multinota"_s, u"OM-1993"_s,
                           u"Minería"_s, u"Solicitud Particular"_s, u"Hoja de Valoración"_s,
                           u"EDCADASSA - IMPO"_s, u"EDCADASSA - EXPO"_s, u"Certificados de Origen"_s}));
}

TEST_P(Marco, EntriesWithoutAScreenAreShownDisabled) {
    mostrar();
    const auto *grilla = Pantalla<MenuP>().ui.GrdMenuMain;
    const QStringList conPantalla{u"Operaciones"_s,         u"Clientes"_s,      u"Nomenclador"_s,
                                  u"Catálogos"_s,           u"Configuración"_s, u"Exportar Operaciones"_s,
                                  u"Importar Operaciones"_s};
    for (int fila = 0; fila < grilla->rowCount(); ++fila)
        EXPECT_EQ(grilla->item(fila, 1)->flags().testFlag(Qt::ItemIsEnabled),
                  conPantalla.contains(grilla->item(fila, 1)->text()))
            << fila;
    const auto *formularios = Pantalla<MenuP>().ui.GridFormularios;
    const QStringList conFormulario{u"Hoja de Valoración"_s, u"Certificados de Origen"_s};
    for (int fila = 1; fila < formularios->rowCount(); ++fila) {
        const QTableWidgetItem *celda = formularios->item(fila, 1);
        const bool esta = conFormulario.contains(celda->text());
        EXPECT_EQ(celda->flags().testFlag(Qt::ItemIsEnabled), esta) << fila;
        EXPECT_EQ(celda->toolTip(), esta ? QString() : u"Falta en este programa: %1."_s.arg(celda->text()));
    }
}

TEST_P(Marco, EnterOnTheFirstEntryShowsTheOperations) {
    mostrar();
    tecla(Qt::Key_Return);
    ASSERT_TRUE(PantallaAbierta<FrmInternoNew>());
    EXPECT_TRUE(Pantalla<FrmInternoNew>().ventana->isVisible());
}

TEST_P(Marco, TheLastTwoEntriesAreTheExchangeOfOperations) {
    mostrar();
    for (int fila = 0; fila < 5; ++fila) tecla(Qt::Key_Down);
    conPantallaModal<FrmExportarOperaciones>([](FrmExportarOperaciones &) { tecla(Qt::Key_Escape); });
    tecla(Qt::Key_Return);
    EXPECT_FALSE(PantallaAbierta<FrmExportarOperaciones>());
    esperarVentana(Pantalla<FrmPrincipal>().ventana.get());
    tecla(Qt::Key_Down);
    conPantallaModal<FrmImportarOperaciones>([](FrmImportarOperaciones &) { tecla(Qt::Key_Escape); });
    tecla(Qt::Key_Return);
    EXPECT_FALSE(PantallaAbierta<FrmImportarOperaciones>());
    EXPECT_TRUE(PantallaAbierta<MenuP>()) << "ESC goes back to it";
}

TEST_P(Marco, EnterOnTheSecondEntryShowsTheBookOfClients) {
    mostrar();
    tecla(Qt::Key_Down);
    tecla(Qt::Key_Return);
    ASSERT_TRUE(PantallaAbierta<FrmClientes>());
    EXPECT_TRUE(Pantalla<FrmClientes>().ventana->isVisible());
}

TEST_P(Marco, EnterOnTheThirdEntryShowsTheSearchOfTheNomenclature) {
    mostrar();
    tecla(Qt::Key_Down);
    tecla(Qt::Key_Down);
    tecla(Qt::Key_Return);
    ASSERT_TRUE(PantallaAbierta<FrmConsultas>());
    EXPECT_TRUE(Pantalla<FrmConsultas>().ventana->isVisible());
}

TEST_P(Marco, TheFramesOwnMenuShowsTheOperations) {
    mostrar().ui.mnuinternos->trigger();
    EXPECT_TRUE(PantallaAbierta<FrmInternoNew>());
}

TEST_P(Marco, EscapeOnTheMenuEndsTheProcessWithoutAQuestion) {
    mostrar();
    tecla(Qt::Key_Escape);
    EXPECT_EQ(terminados, 1);
    EXPECT_TRUE(registro.preguntas.empty());
}

TEST_P(Marco, ClosingTheFrameFromTheProgramEndsTheRun) {
    mostrar().ventana->close();
    EXPECT_EQ(terminados, 1);
}

TEST_P(Marco, TheLabelsTellVersionAndDates) {
    // The demonstration's nomenclature is of 5 January 2026, and so are its licence data.
    mostrar();
    const auto &ui = Pantalla<MenuP>().ui;
    EXPECT_EQ(ui.lbVersion->text(), u"3.5.1"_s);
    EXPECT_EQ(ui.lbNomenclador->text(), u"lunes, 5 de enero de 2026"_s);
    EXPECT_EQ(ui.lbFechaDatosLNAPI->text(), u"Fecha:  5/1/26"_s);
}

TEST_P(Marco, ANewEnoughStoreSaysNothing) {
    mostrar();
    EXPECT_TRUE(registro.mensajes.empty());
    EXPECT_TRUE(iniciados.isEmpty());
}

EN_AMBOS_STORES(Marco);

}  // namespace
