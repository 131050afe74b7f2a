// The frame and the main menu.

#include <gtest/gtest.h>

#include <QCloseEvent>

#include "frame/FrmPrincipal.h"
#include "frame/MenuP.h"
#include "frame/startup.h"
#include "frame/ui/Pantalla.h"
#include "operations/FrmInternoNew.h"
#include "siblings/FrmClientes.h"
#include "subitems/FrmConsultas.h"
#include "tests/support/pantallas.h"

namespace {

class Marco : public EnPantalla {
 protected:
    void SetUp() override {
        EnPantalla::SetUp();
        anterior = FrmPrincipal::terminar;
        FrmPrincipal::terminar = [this] { ++terminados; };
        iniciarAnterior = iniciarPrograma;
        iniciarPrograma = [this](const QString &programa, const QStringList &) {
            iniciados << programa;
            return true;
        };
    }
    void TearDown() override {
        EnPantalla::TearDown();
        FrmPrincipal::terminar = anterior;
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

QStringList columna(const QTableWidget *grilla, int cual) {
    QStringList textos;
    for (int fila = 0; fila < grilla->rowCount(); ++fila) {
        const QTableWidgetItem *celda = grilla->item(fila, cual);
        textos << (celda == nullptr ? QString() : celda->text());
    }
    return textos;
}

TEST_P(Marco, TheTitleNamesProfileVersionAndWorkstation) {
    EXPECT_TRUE(mostrar().ventana->windowTitle().startsWith(
        QLatin1String("[Prueba] Zendra Windows - v3.5.001 - PC [")))
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
    EXPECT_EQ(
        columna(menu.ui.GrdMenuMain, 1),
        QStringList({QStringLiteral("Operaciones"), QStringLiteral("Clientes"), QStringLiteral("Nomenclador"),
                     QStringLiteral("Catálogos"), QStringLiteral("Configuración"),
                     QStringLiteral("Exportar Operaciones"), QStringLiteral("Importar Operaciones")}));
    EXPECT_EQ(menu.ui.GridFormularios->item(0, 0)->text(), QStringLiteral("Formularios"));
    EXPECT_FALSE(menu.ui.GridFormularios->item(0, 0)->flags().testFlag(Qt::ItemIsSelectable));
    EXPECT_EQ(columna(menu.ui.GridFormularios, 1).mid(1),
              QStringList({QStringLiteral("SENASA 19/02"), QStringLiteral("Boleta de Depósito"),
                           QStringLiteral("Multinota"), QStringLiteral("OM-1993"), QStringLiteral("Minería"),
                           QStringLiteral("Solicitud Particular"), QStringLiteral("Hoja de Valoración"),
                           QStringLiteral("EDCADASSA - IMPO"), QStringLiteral("EDCADASSA - EXPO"),
                           QStringLiteral("Certificados de Origen")}));
}

TEST_P(Marco, EntriesWithoutAScreenAreShownDisabled) {
    mostrar();
    const auto *grilla = Pantalla<MenuP>().ui.GrdMenuMain;
    const QStringList conPantalla{QStringLiteral("Operaciones"), QStringLiteral("Clientes"),
                                  QStringLiteral("Nomenclador"), QStringLiteral("Configuración")};
    for (int fila = 0; fila < grilla->rowCount(); ++fila)
        EXPECT_EQ(grilla->item(fila, 1)->flags().testFlag(Qt::ItemIsEnabled),
                  conPantalla.contains(grilla->item(fila, 1)->text()))
            << fila;
    const auto *formularios = Pantalla<MenuP>().ui.GridFormularios;
    for (int fila = 1; fila < formularios->rowCount(); ++fila)
        EXPECT_FALSE(formularios->item(fila, 1)->flags().testFlag(Qt::ItemIsEnabled)) << fila;
}

TEST_P(Marco, EnterOnTheFirstEntryShowsTheOperations) {
    mostrar();
    tecla(Qt::Key_Return);
    ASSERT_TRUE(PantallaAbierta<FrmInternoNew>());
    EXPECT_TRUE(Pantalla<FrmInternoNew>().ventana->isVisible());
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
    EXPECT_EQ(ui.lbVersion->text(), QStringLiteral("3.5.1"));
    EXPECT_EQ(ui.lbNomenclador->text(), QStringLiteral("lunes, 5 de enero de 2026"));
    EXPECT_EQ(ui.lbFechaDatosLNAPI->text(), QStringLiteral("Fecha:  5/1/26"));
}

TEST_P(Marco, ANewEnoughStoreSaysNothing) {
    mostrar();
    EXPECT_TRUE(registro.mensajes.empty());
    EXPECT_TRUE(iniciados.isEmpty());
}

EN_AMBOS_STORES(Marco);

}  // namespace
