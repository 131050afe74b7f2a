// The server goes under the stock of temporary inputs and what takes from it.

#include "liquidation/FrmVerItem.h"
#include "stock/FrmCancelaciones.h"
#include "stock/FrmStock.h"
#include "stock/FrmTomarInsumos.h"
#include "subitems/FrmSubItems.h"
#include "tests/screens/caidas_acciones.h"
#include "tests/screens/stock_pantalla.h"
#include "tests/support/claves.h"

using namespace Qt::StringLiterals;

namespace {

class CaidasBajoElStock : public ConStock<CaidasBajoPantallas> {
 protected:
    void SetUp() override {
        ConStock<CaidasBajoPantallas>::SetUp();
        ejecutar(
            u"insert into caratula (interno,idsubreg,fobdivisas,factura8,cuitcliente,fobcoddivisas) "
            "values ('OP 1','EC02',3000,'N','30708123451','DOL')"_s);
        registro = {};
    }
    static void mostrarLineas() { Pantalla<FrmSubItems>().Mostrar(u"OP 1"_s, {1, 1, 1, 1, 1, 1, 1, 1}); }
    void armarConInsumos() {
        armar();
        ejecutar(u"update caratula set idsubreg = 'EC02' where interno = 'IC-2026-0001'"_s);
        registro = {};
    }
};
INSTANTIATE_TEST_SUITE_P(Stores, CaidasBajoElStock, ::testing::Values("SQL"),
                         [](const ::testing::TestParamInfo<const char *> &caso) {
                             return std::string(caso.param);
                         });

QString lineasDeStock(FrmStock &p) {
    return celdasDe(p.ui.Lst);
}

}  // namespace

TEST_P(CaidasBajoElStock, TheStock) {
    const auto vaciarUna = [this] {
        ejecutar(u"update stock set saldo = 1 where dit = '26001IT14000012B'"_s);
    };
    auto revisar = accionEn<FrmStock>(
        "FrmStock: revisar", vaciarUna, mostrar<FrmStock>(QString()), {},
        [this] {
            registro.respuestas.assign(1, true);
            tecla(Qt::Key_F9);
        },
        lineasDeStock);
    // What was mended, and that it cannot be read again.
    revisar.avisos = 2;
    probar({
        accionEn<FrmStock>("FrmStock: actualizar", {}, mostrar<FrmStock>(QString()), {}, la(Qt::Key_F5),
                           lineasDeStock),
        revisar,
    });
}

TEST_P(CaidasBajoElStock, WhatTakesOfIt) {
    const Encima insumos;
    const auto cancelar = [](FrmCancelaciones &p) {
        p.ui.Lst->setFocus();
        p.ui.Lst->selectRow(1);
        poner(p.ui.TxtCantidad, u"2,5"_s);
    };
    const auto abrirItems = mostrar<FrmVerItem>(importacion);
    probar({
        accionEn<FrmSubItems>(
            "FrmTomarInsumos", {}, mostrarLineas, {},
            insumos.abriendo<FrmTomarInsumos>(la(Qt::Key_F8),
                                              [](FrmTomarInsumos &p) { return celdasDe(p.ui.LstLineas); }),
            insumos.loVisto<FrmSubItems>()),
        accionEn<FrmSubItems>(
            "FrmSubItems: guardar con insumos", {}, mostrarLineas,
            [](FrmSubItems &p) {
                conPantallaModal<FrmTomarInsumos>([](FrmTomarInsumos &toma) {
                    escribir(u"0750"_s);
                    tecla(Qt::Key_Return);
                    escribir(u"60"_s);
                    tecla(Qt::Key_Return);
                    toma.ui.LstLineas->setFocus();
                    tecla(Qt::Key_Return);
                });
                tecla(Qt::Key_F8);
                esperarVentana(p.ventana.get());
                poner(p.ui.TxtCantidad, u"60"_s);
                tecla(Qt::Key_Return);
                poner(p.ui.TxtFobTotal, u"3000"_s);
                tecla(Qt::Key_Return);
            },
            la(Qt::Key_F11)),
        accionEn<FrmCancelaciones>(
            "FrmCancelaciones", [this] { armarConInsumos(); },
            [] {
                Pantalla<FrmCancelaciones>().Ingresar(importacion, u"1"_s);
                CerrarPantalla<FrmCancelaciones>();
            },
            cancelar, alt(Qt::Key_G)),
        accionEn<FrmVerItem>(
            "FrmVerItem: borrar cancelación",
            [this] {
                armarConInsumos();
                stock::Cancelacion una;
                una.idstock = stockDe(porVencer);
                una.dit = QLatin1String(porVencer);
                una.item = una.subitem = 1;
                una.cantidad = 7;
                ASSERT_TRUE(stock::IngresarCancelacion(*ctx, importacion, u"1"_s, una));
            },
            abrirItems,
            [](FrmVerItem &p) {
                p.ui.Scr->setValue(1);
                tecla(Qt::Key_F5);
            },
            [this] {
                registro.respuestas.assign(1, true);
                teclaEn(Pantalla<FrmVerItem>().ui.lstVCancel, Qt::Key_Delete);
            },
            [](FrmVerItem &p) { return celdasDe(p.ui.lstVCancel); }),
    });
}
