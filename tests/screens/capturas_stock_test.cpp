// Pictures of the stock's screens, and the order of TAB in each.

#include <gtest/gtest.h>

#include <QApplication>

#include "desktop/FrmVistaPrevia.h"
#include "operations/FrmDetalleInterno.h"
#include "stock/FrmCancelaciones.h"
#include "stock/FrmStock.h"
#include "stock/FrmTomarInsumos.h"
#include "tests/screens/items_pantalla.h"
#include "tests/screens/stock_pantalla.h"

using namespace Qt::StringLiterals;

namespace {

class CapturasDeStock : public ConStock<EnItems> {
 protected:
    void SetUp() override {
        ConStock<EnItems>::SetUp();
        const qint64 linea =
            valor(u"select min(id) as id from subitems where interno = 'IC-2026-0001'"_s).toLongLong();
        ASSERT_TRUE(stock::Tomar(*ctx, {importacion, linea}, {{stockDe(porVencer), 24}}).ok);
        ASSERT_EQ(stock::Devolver(*ctx, stock::TomasQueSiguen(*ctx, importacion)), 1);
        ASSERT_TRUE(stock::Tomar(*ctx, {importacion, linea}, {{stockDe(porVencer), 12}}).ok);
        ejecutar(u"update caratula set idsubreg = 'EC02' where interno = 'IC-2026-0001'"_s);
    }
    static std::string orden(QWidget *ventana) { return ordenDeTab(ventana).join(u' ').toStdString(); }
};

TEST_P(CapturasDeStock, TheStock) {
    auto &p = Pantalla<FrmStock>();
    p.Mostrar();
    esperarVentana(p.ventana.get());
    EXPECT_EQ(orden(p.ventana.get()),
              "TxtCliente TxtDeclaracion TxtArticulo TxtPosicion ChSaldo Lst LstMovimientos CmdActualizar "
              "CmdRevisar CmdInforme");
    atajo(Qt::Key_S);
    tecla(Qt::Key_Return);
    p.ui.Lst->setFocus();
    tecla(Qt::Key_Home);
    tecla(Qt::Key_Down);
    foto(p.ventana.get(), u"stock"_s);
}

TEST_P(CapturasDeStock, TheTaking) {
    conPantallaModal<FrmTomarInsumos>([](FrmTomarInsumos &p) {
        EXPECT_EQ(orden(p.ventana.get()), "TxtArticulo Lst TxtCantidad LstLineas TxtDeLinea CmdTomar");
        tecla(Qt::Key_Return);
        escribir(u"60"_s);
        tecla(Qt::Key_Return);
        foto(p.ventana.get(), u"stock-tomar"_s);
        tecla(Qt::Key_Escape);
    });
    TomarInsumos(importacion);
}

TEST_P(CapturasDeStock, TheCancellations) {
    ctx->opciones.CancelManual = true;
    conPantallaModal<FrmCancelaciones>([](FrmCancelaciones &p) {
        EXPECT_EQ(orden(p.ventana.get()), "TxtBuscar Lst TxtCantidad CmdGuardar ChManual");
        tecla(Qt::Key_Return);
        escribir(u"12,5"_s);
        foto(p.ventana.get(), u"stock-cancelacion"_s);
        atajo(Qt::Key_M);
        EXPECT_EQ(orden(p.ventana.get()),
                  "TxtDit TxtItem TxtSubitem TxtNcm TxtExpCtit TxtCantidad TxtFactor CmdGuardar ChManual");
        escribir(u"24001IT14000999Z"_s);
        foto(p.ventana.get(), u"stock-cancelacion-manual"_s);
        tecla(Qt::Key_Escape);
    });
    Pantalla<FrmCancelaciones>().Ingresar(importacion, u"1"_s);
    CerrarPantalla<FrmCancelaciones>();
}

TEST_P(CapturasDeStock, TheCancellationsOfAnItem) {
    for (const double cantidad : {12.0, 7.5}) {
        stock::Cancelacion c;
        c.idstock = stockDe(vigente);
        c.cantidad = cantidad;
        ASSERT_TRUE(stock::IngresarCancelacion(*ctx, importacion, u"1"_s, c));
    }
    auto &items = mostrarItem(1);
    tecla(Qt::Key_F5);
    foto(items.ventana.get(), u"item-cancelaciones"_s);
}

TEST_P(CapturasDeStock, TheReports) {
    conDialogosDeVerdad();
    const auto conVista = [](const QString &nombre, const std::function<void()> &abrir) {
        bool vista = false;
        conPantallaModal<FrmVistaPrevia>([&](FrmVistaPrevia &p) {
            vista = true;
            foto(p.ventana.get(), nombre);
            tecla(Qt::Key_Escape);
        });
        abrir();
        EXPECT_TRUE(vista) << nombre.toStdString();
    };
    auto &tablero = abrir(importacion);
    foto(tablero.ventana.get(), u"tablero-stock"_s);
    ASSERT_TRUE(tablero.ui.CmdPrint->isEnabled());
    conVista(u"stock-informe-insumos"_s, [] { atajo(Qt::Key_I); });
}

INSTANTIATE_TEST_SUITE_P(Stores, CapturasDeStock, ::testing::Values("ACCESS"),
                         [](const auto &caso) { return std::string(caso.param); });

}  // namespace
