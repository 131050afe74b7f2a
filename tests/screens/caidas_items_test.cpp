// The server goes under the items of an operation and what is opened from them.

#include "assembly/FrmProrKg.h"
#include "liquidation/FrmAdCon.h"
#include "liquidation/FrmVentajas.h"
#include "liquidation/FrmVerItem.h"
#include "liquidation/frmListadoItem.h"
#include "tests/screens/caidas_acciones.h"
#include "tests/support/claves.h"

using namespace Qt::StringLiterals;

namespace {

void irAlItemUno(FrmVerItem &p) {
    p.ui.Scr->setValue(1);
    tecla(Qt::Key_F1);
}

void cambiarElItemUno(FrmVerItem &p) {
    irAlItemUno(p);
    poner(p.ui.TxtNaladisa, u"A1"_s);
}

QString paginaEnMano(FrmVerItem &p) {
    return p.ui.TxtItem->text() + u'|' + p.ui.lbNCM->text() + u'|' + p.ui.TxtNaladisa->text();
}

}  // namespace

TEST_P(CaidasBajoPantallas, TheItemsOfAnOperation) {
    const auto armada = [this] { armar(); };
    const auto abrir = mostrar<FrmVerItem>(importacion);
    probar({
        accionEn<FrmVerItem>("FrmVerItem: grabar", armada, abrir, cambiarElItemUno, la(Qt::Key_F11),
                             paginaEnMano),
        accionEn<FrmVerItem>("FrmVerItem: pasar", armada, abrir, cambiarElItemUno, la(Qt::Key_PageDown),
                             paginaEnMano),
        accionEn<FrmVerItem>("FrmVerItem: salir", armada, abrir, cambiarElItemUno, la(Qt::Key_Escape)),
    });
}

TEST_P(CaidasBajoPantallas, WhatIsOpenedFromAnItem) {
    const Encima ventajas;
    const Encima items;
    const auto armada = [this] { armar(); };
    const auto abrir = mostrar<FrmVerItem>(importacion);
    probar({
        accionEn<FrmVerItem>(
            "FrmVentajas", armada, abrir,
            [](FrmVerItem &p) {
                irAlItemUno(p);
                tecla(Qt::Key_F3);
            },
            ventajas.abriendo<FrmVentajas>([] { teclaEn(Pantalla<FrmVerItem>().ui.GridInf, Qt::Key_Insert); },
                                           [](FrmVentajas &p) { return celdasDe(p.ui.Lst); }),
            ventajas.loVisto<FrmVerItem>()),
        accionEn<FrmVerItem>("frmListadoItem", armada, abrir, irAlItemUno,
                             items.abriendo<frmListadoItem>(
                                 la(Qt::Key_F8), [](frmListadoItem &p) { return celdasDe(p.ui.lstItem); }),
                             items.loVisto<FrmVerItem>()),
        accionEn<FrmAdCon>(
            "FrmAdCon", armada,
            [] {
                Pantalla<FrmAdCon>().Agregar(importacion, u"3"_s);
                CerrarPantalla<FrmAdCon>();
            },
            [](FrmAdCon &p) {
                escribir(u"42"_s);
                tecla(Qt::Key_Return);
                poner(p.ui.txtPorc, u"6"_s);
                poner(p.ui.txtBimp, u"100"_s);
                poner(p.ui.TxtValor, u"6"_s);
            },
            alt(Qt::Key_A)),
        accionEn<FrmProrKg>(
            "FrmProrKg",
            [this] {
                armar();
                ejecutar(
                    u"update groupsubitems set estadistica = '01' where interno = 'IC-2026-0001' and id = 1"_s);
            },
            mostrarYCerrar<FrmProrKg>(importacion, u"1"_s, u"07.50"_s),
            [](FrmProrKg &) { escribir(u"10"_s); }, alt(Qt::Key_P)),
    });
}
