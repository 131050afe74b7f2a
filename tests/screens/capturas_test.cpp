// A picture of every screen with the demonstration data in it, and what a glance at them must not find:
// clipped texts, fields that TAB does not reach. Runs at 100 % and, with QT_SCALE_FACTOR=2, at 200 %.

#include <gtest/gtest.h>

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include "assembly/FrmArmarItem.h"
#include "assembly/FrmMostrarDatos.h"
#include "assembly/run.h"
#include "desktop/FrmPerfiles.h"
#include "desktop/FrmPrimerInicio.h"
#include "desktop/FrmPrincipal.h"
#include "desktop/dialogosqt.h"
#include "frame/ui/Pantalla.h"
#include "header/FrmABMClientes.h"
#include "header/automotive.h"
#include "liquidation/FrmVerItem.h"
#include "liquidation/Frm_ComprobacionErrores.h"
#include "operations/FrmDetalleInterno.h"
#include "operations/FrmInternoNew.h"
#include "tests/support/claves.h"
#include "tests/support/pantallas.h"

using namespace Qt::StringLiterals;

namespace {

class Capturas : public EnPantalla {
 protected:
    void SetUp() override {
        EnPantalla::SetUp();
        // The rates of VAT that an office has in its configuration.
        ctx->opciones.IVARIN = 21;
        ctx->opciones.IVARNI = 10.5;
    }
    void armar(const QString &interno) {
        ctx->ChequeoArmado = u"SI"_s;
        ASSERT_TRUE(Generar(*ctx, interno, {}));
        ctx->LiquidacionPendiente = true;
    }
};

TEST_P(Capturas, Menu) {
    auto &marco = Pantalla<FrmPrincipal>();
    marco.Mostrar();
    esperarVentana(marco.ventana.get());
    foto(marco.ventana.get(), u"menu"_s);
}

TEST_P(Capturas, Operations) {
    auto &navegador = Pantalla<FrmInternoNew>();
    navegador.Mostrar();
    esperarVentana(navegador.ventana.get());
    tecla(Qt::Key_Return);
    foto(navegador.ventana.get(), u"operaciones"_s);
    navegador.ui.cboAgruparPor->setCurrentIndex(1);
    foto(navegador.ventana.get(), u"operaciones-agrupadas"_s);
}

TEST_P(Capturas, OperationOfAnImportAnExportAndADjai) {
    for (const auto &[interno, nombre] :
         {std::pair(importacion, "operacion"), std::pair(exportacion, "operacion-expo"),
          std::pair(djai, "operacion-djai")}) {
        auto &tablero = abrir(interno);
        foto(tablero.ventana.get(), QLatin1String(nombre));
        tecla(Qt::Key_Escape);
    }
}

TEST_P(Capturas, Assembly) {
    bool tomada = false;
    ctx->dialogos.atenderEventos = [&] {
        if (tomada || !PantallaAbierta<FrmArmarItem>() || registro.avances.empty()) return;
        const Avance &ultimo = registro.avances.back();
        if (ultimo.tipo != Avance::Tipo::PasoCorriendo || ultimo.paso != 6) return;
        tomada = true;
        foto(Pantalla<FrmArmarItem>().ventana.get(), u"armado"_s);
    };
    ctx->ChequeoArmado = u"SI"_s;
    Pantalla<FrmArmarItem>().Mostrar(importacion, {});
    hasta([] { return !PantallaAbierta<FrmArmarItem>(); });
    EXPECT_TRUE(tomada);
}

TEST_P(Capturas, ItemsAndLiquidation) {
    for (const auto &[interno, sufijo] : {std::pair(importacion, ""), std::pair(exportacion, "-expo")}) {
        armar(interno);
        auto &items = Pantalla<FrmVerItem>();
        items.Mostrar(interno);
        esperarVentana(items.ventana.get());
        const QLatin1String cola(sufijo);
        foto(items.ventana.get(), u"liquidacion"_s + cola);
        tecla(Qt::Key_F1);
        foto(items.ventana.get(), u"item-cero"_s + cola);
        tecla(Qt::Key_PageDown);
        tecla(Qt::Key_F4);
        foto(items.ventana.get(), u"liquidacion-item"_s + cola);
        const std::pair<int, const char *> solapas[] = {{Qt::Key_F2, "item-subitems"},
                                                        {Qt::Key_F3, "item-informacion"},
                                                        {Qt::Key_F7, "item-oncca"},
                                                        {Qt::Key_F1, "item"}};
        for (const auto &[cual, nombre] : solapas) {
            tecla(cual);
            foto(items.ventana.get(), QLatin1String(nombre) + cola);
        }
        if (interno == importacion) {
            EXPECT_EQ(ordenDeTab(items.ventana.get()).join(QLatin1Char(' ')).toStdString(),
                      "TxtNaladisa TxtLista TxtIdpais TxtIdproc TxtEstadoMerc TxtTotKgNeto txtTipoItem "
                      "txtItemAsociado TxtReg TxtStan TxtAjusteInc txtAjusteDed OLDTxtInsCons txtConsumo "
                      "txtItComExt TxtCOEF cboOpcionIVA cboOpcionesGanancias chkMineria cmdProrKg CmdPrint "
                      "cmdGrabar TxtItem cmdBuscarItem Scr qt_tabwidget_tabbar");
        }
        tecla(Qt::Key_Escape);
    }
}

TEST_P(Capturas, CancellationsOfAnItem) {
    ejecutar(u"update caratula set idsubreg = 'EC02' where interno = 'EC-2026-0002'"_s);
    armar(exportacion);
    ejecutar(
        u"insert into descargas (interno,iditem,dit,item,subitem,ncm,expctit,cantidad,factorponderacion) "
        "values ('EC-2026-0002','1','26001IT01000123A','1','2','8413.70.10.100L','EXP-1',2.5,0.75)"_s);
    auto &items = Pantalla<FrmVerItem>();
    items.Mostrar(exportacion);
    esperarVentana(items.ventana.get());
    tecla(Qt::Key_PageDown);
    tecla(Qt::Key_F5);
    foto(items.ventana.get(), u"item-cancelaciones"_s);
}

TEST_P(Capturas, Reports) {
    auto &datos = Pantalla<FrmMostrarDatos>();
    datos.Cargar({u"Posiciones con sufijos incorrectos"_s,
                  u"8413.70.10.100L   XX99-\r\n8481.80.92.000P   AA07-\r\n"_s, false});
    datos.ventana->show();
    esperarVentana(datos.ventana.get());
    foto(datos.ventana.get(), u"informe"_s);
    tecla(Qt::Key_Escape);
    auto &diferencias = Pantalla<Frm_ComprobacionErrores>();
    diferencias.Cargar({u"Zendra v3 - Reporte de Diferencias Encontradas."_s,
                        u"Item: 1 Verificacion OK\r\nItem: 2(Pais Origen ITEM=203) difiere de (Pais Origen "
                        "Caratula=438) - Forzar ACTIVADO"_s,
                        true});
    diferencias.ventana->show();
    esperarVentana(diferencias.ventana.get());
    foto(diferencias.ventana.get(), u"diferencias"_s);
    tecla(Qt::Key_Escape);
}

TEST_P(Capturas, ChoiceOfProfileAndAutomotiveQuestion) {
    auto &perfiles = Pantalla<FrmPerfiles>();
    perfiles.Cargar({{u"Local"_s, u"/home/despachos/Local.perfil.ini"_s},
                     {u"Oficina"_s, u"/home/despachos/Oficina.perfil.ini"_s}});
    perfiles.ventana->show();
    esperarVentana(perfiles.ventana.get());
    foto(perfiles.ventana.get(), u"perfiles"_s);
    tecla(Qt::Key_Escape);
    bool vista = false;
    ctx->dialogos.preguntarConOpciones = [&](const PreguntaConOpciones &pregunta) {
        auto &automotriz = Pantalla<FrmABMClientes>();
        automotriz.Cargar(pregunta);
        automotriz.ventana->show();
        esperarVentana(automotriz.ventana.get());
        foto(automotriz.ventana.get(), u"automotriz"_s);
        vista = true;
        tecla(Qt::Key_Escape);
        return RespuestaConOpciones();
    };
    // Asked where the liquidation of the automotive import is first calculated.
    armar(u"ICR-2026-0005"_s);
    Pantalla<FrmVerItem>().Mostrar(u"ICR-2026-0005"_s);
    EXPECT_TRUE(vista);
}

TEST_P(Capturas, FirstStart) {
    FrmPrimerInicio inicio;
    inicio.Cargar(u"/home/despachos/.config/zendra"_s, u"ZENDRA3"_s);
    inicio.ventana->show();
    esperarVentana(inicio.ventana.get());
    foto(inicio.ventana.get(), u"primer-inicio"_s);
    EXPECT_EQ(ordenDeTab(inicio.ventana.get()).join(QLatin1Char(' ')), u"LstStores cmdCrear cmdSalir"_s);
    // In the middle of the work, on stores that are given up there.
    QTemporaryDir dir;
    inicio.Cargar(dir.path(), u"ZENDRA3"_s);
    bool tomada = false;
    ctx->dialogos.atenderEventos = [&] {
        if (tomada || inicio.ui.pbAvance->value() < 60) return;
        tomada = true;
        foto(inicio.ventana.get(), u"primer-inicio-creando"_s);
        tecla(Qt::Key_Escape);
    };
    tecla(Qt::Key_Return);
    EXPECT_TRUE(tomada);
    EXPECT_FALSE(inicio.ventana->isVisible());
    EXPECT_EQ(inicio.ventana->result(), QDialog::Rejected);
    EXPECT_TRUE(QDir(dir.path()).isEmpty());
}

TEST_P(Capturas, MessageAndQuestion) {
    conDialogosDeVerdad();
    conVentanaModal([](QWidget *modal) {
        foto(modal, u"mensaje"_s);
        QTest::keyClick(modal, Qt::Key_Escape);
    });
    ctx->dialogos.informar(u"Se han encontrado posiciones con LAPI"_s);
    conVentanaModal([](QWidget *modal) {
        foto(modal, u"pregunta"_s);
        QTest::keyClick(modal, Qt::Key_Escape);
    });
    Pregunta pregunta;
    pregunta.titulo = u"Diferencias en Operacion - Confirmacion de la Operacion"_s;
    pregunta.texto =
        u"ADVERTENCIA IMPORTANTE!!!\r\n\r\nSe han encontrado diferencias entre la operacion cargada,\r\ny la "
        "informacion a enviar al SIM, ¿desea continuar?"_s;
    pregunta.porDefectoNo = true;
    ctx->dialogos.preguntar(pregunta);
}

TEST_P(Capturas, TabReachesEveryFieldInTheOrderOfTheWork) {
    auto &navegador = Pantalla<FrmInternoNew>();
    navegador.Mostrar();
    esperarVentana(navegador.ventana.get());
    EXPECT_EQ(ordenDeTab(navegador.ventana.get()).join(QLatin1Char(' ')).toStdString(),
              "txtInterno txtCliente txtDespachante chkFiltroFecha DTP_Desde DTP_Hasta cboAgruparPor "
              "lstInterno");
    CerrarPantalla<FrmInternoNew>();
    auto &tablero = abrir(importacion);
    tablero.ui.cmdCaratula->setFocus();
    EXPECT_EQ(
        ordenDeTab(tablero.ventana.get()).join(QLatin1Char(' ')).toStdString(),
        "cmdCaratula CmdSubItems cmdITEM CmdTransMaria ChMulta chkCalcularServicioDigitalizacion "
        "opOrdenxNCM CmdPresupuesto CmdPrint CmdHojaVal cmdExportar cmdExportINS Command1 Command4 cmdStock "
        "CkFlag_0 CkFlag_1 CkFlag_2 CkFlag_3 CkFlag_4 CkFlag_5 CkFlag_6 CkFlag_7");
}

// Pictures of one store are enough: the screens are the same.
INSTANTIATE_TEST_SUITE_P(Stores, Capturas, ::testing::Values("ACCESS"),
                         [](const ::testing::TestParamInfo<const char *> &caso) {
                             return std::string(caso.param);
                         });

}  // namespace
