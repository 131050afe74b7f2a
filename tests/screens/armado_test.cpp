// The screen of the run, and the read-only report.

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>

#include "assembly/FrmArmarItem.h"
#include "assembly/FrmMostrarDatos.h"
#include "assembly/run.h"
#include "frame/ui/Pantalla.h"
#include "tests/support/claves.h"
#include "tests/support/pantallas.h"

using namespace Qt::StringLiterals;

namespace {

class PantallaDeArmado : public EnPantalla {
 protected:
    FrmArmarItem &armar(const QString &interno) {
        ctx->ChequeoArmado = u"SI"_s;
        auto &armado = Pantalla<FrmArmarItem>();
        armado.alCerrar = [this] { ++cierres; };
        armado.Mostrar(interno, {});
        return armado;
    }
    int pasos(Avance::Tipo tipo) const {
        return static_cast<int>(std::count_if(registro.avances.begin(), registro.avances.end(),
                                              [&](const Avance &a) { return a.tipo == tipo; }));
    }
    int cierres = 0;
};

TEST_P(PantallaDeArmado, TenStepsAreShownTheLastOneHiddenUntilInputsAreUpdated) {
    auto &ui = Pantalla<FrmArmarItem>().ui;
    const QStringList textos{
        u"Revalidando sufijos..."_s, u"Agrupar SubItem's"_s,      u"Verificando y Generando Prorrateo"_s,
        u"Verificado Kilo Bruto"_s,  u"Generar Item's"_s,         u"Armar Registros de Liquidación"_s,
        u"Terminar Proceso"_s,       u"Verificando Integridad"_s, u"Verificando Marcas de NCM"_s,
        u"Actualizando Insumos"_s};
    const QList<QLabel *> pasosEnOrden{ui.Paso_0, ui.Paso_1, ui.Paso_2, ui.Paso_3, ui.Paso_4,
                                       ui.Paso_5, ui.Paso_6, ui.Paso_7, ui.Paso_8, ui.lbInsumos};
    for (int n = 0; n < pasosEnOrden.size(); ++n) EXPECT_EQ(pasosEnOrden.at(n)->text(), textos.at(n));
    EXPECT_TRUE(ui.lbInsumos->isHidden());
    EXPECT_TRUE(ui.Marca_9->isHidden());
    Avance mostrar;
    mostrar.tipo = Avance::Tipo::MostrarPaso;
    mostrar.paso = 9;
    Pantalla<FrmArmarItem>().Pintar(mostrar);
    EXPECT_FALSE(ui.lbInsumos->isHidden());
    EXPECT_FALSE(ui.Marca_9->isHidden());
}

TEST_P(PantallaDeArmado, TheRunStartsByItselfAndClosesTheScreen) {
    armar(importacion);
    hasta([this] { return cierres == 1; });
    EXPECT_FALSE(PantallaAbierta<FrmArmarItem>());
    EXPECT_EQ(ctx->ChequeoArmado, u"SI"_s);
    // Nine steps pass from running to done; without the library of inputs the tenth stays away.
    EXPECT_EQ(pasos(Avance::Tipo::PasoCorriendo), 9);
    EXPECT_EQ(pasos(Avance::Tipo::PasoHecho), 9);
    EXPECT_EQ(pasos(Avance::Tipo::MostrarPaso), 0);
}

TEST_P(PantallaDeArmado, ASecondActivationOfTheScreenDuringARunDoesNothing) {
    bool otra = false;
    ctx->dialogos.atenderEventos = [&otra] {
        if (otra || !PantallaAbierta<FrmArmarItem>()) return;
        otra = true;
        Pantalla<FrmArmarItem>().Form_Activate();
    };
    armar(importacion);
    hasta([this] { return cierres == 1; });
    EXPECT_TRUE(otra);
    EXPECT_EQ(pasos(Avance::Tipo::PasoCorriendo), 9);
}

TEST_P(PantallaDeArmado, BarsAndTheItemInHandAreShown) {
    auto &armado = Pantalla<FrmArmarItem>();
    Avance barra;
    barra.tipo = Avance::Tipo::Barra;
    barra.control = u"pbSUF"_s;
    barra.maximo = 20;
    barra.valor = 19;
    armado.Pintar(barra);
    EXPECT_EQ(armado.ui.pbSUF->maximum(), 20);
    EXPECT_EQ(armado.ui.pbSUF->value(), 19);
    Avance etiqueta;
    etiqueta.control = u"lbITM"_s;
    etiqueta.texto = u"Creando liquidación Item: 3"_s;
    armado.Pintar(etiqueta);
    EXPECT_EQ(armado.ui.lbITM->text(), etiqueta.texto);
}

TEST_P(PantallaDeArmado, AnUnexpectedErrorLeavesTheResultAndTheScreenAndEscapeIsTheWayOut) {
    ejecutar(u"drop table groupsubitems"_s);
    auto &armado = armar(importacion);
    hasta([this] { return !registro.mensajes.empty(); });
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Critico);
    EXPECT_TRUE(registro.mensajes[0].modalDeSistema);
    EXPECT_TRUE(registro.mensajes[0].texto.contains(" [ArmarItem.Generar]:"_L1));
    EXPECT_EQ(ctx->ChequeoArmado, u"SI"_s);
    EXPECT_TRUE(armado.ventana->isVisible());
    EXPECT_EQ(cierres, 0);
    tecla(Qt::Key_Escape);
    EXPECT_EQ(cierres, 1);
    EXPECT_FALSE(PantallaAbierta<FrmArmarItem>());
}

TEST_P(PantallaDeArmado, EscapeAndTheWindowsControlsDoNotStopARun) {
    bool probado = false;
    ctx->dialogos.atenderEventos = [&] {
        if (probado || !PantallaAbierta<FrmArmarItem>()) return;
        probado = true;
        auto &armado = Pantalla<FrmArmarItem>();
        armado.ventana->close();
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QApplication::sendEvent(armado.ventana.get(), &escape);
        EXPECT_TRUE(PantallaAbierta<FrmArmarItem>());
    };
    armar(importacion);
    hasta([this] { return cierres == 1; });
    EXPECT_TRUE(probado);
    EXPECT_EQ(pasos(Avance::Tipo::PasoHecho), 9);
}

TEST_P(PantallaDeArmado, TheReportIsCopiedFromItsMenuAndClosedByEscape) {
    auto &informe = Pantalla<FrmMostrarDatos>();
    informe.Cargar({u"Sufijos incorrectos"_s, u"linea 1\r\nlinea 2"_s, false});
    informe.ventana->show();
    esperarVentana(informe.ventana.get());
    EXPECT_EQ(informe.ventana->windowTitle(), u"Sufijos incorrectos"_s);
    EXPECT_TRUE(informe.ui.TxtDatos->isReadOnly());
    informe.mnucopiar->trigger();
    EXPECT_EQ(QApplication::clipboard()->text(), u"linea 1\nlinea 2"_s);
    tecla(Qt::Key_Escape);
    EXPECT_FALSE(informe.ventana->isVisible());
}

EN_AMBOS_STORES(PantallaDeArmado);

}  // namespace
