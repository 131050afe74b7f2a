// The server goes under what leaves the house: the transfer, the quote, the sheet.

#include "liquidation/ClassLiquidacion.h"
#include "liquidation/review.h"
#include "outputs/FrmConceptos.h"
#include "outputs/FrmPresupuesto.h"
#include "outputs/FrmPrintItem.h"
#include "outputs/FrmReferencias.h"
#include "outputs/FrmTransferencia.h"
#include "tests/screens/caidas_acciones.h"
#include "tests/support/claves.h"

using namespace Qt::StringLiterals;

TEST_P(CaidasBajoPantallas, TheTransfer) {
    const auto liquidada = [this] {
        armar();
        ClassLiquidacion calculo(*ctx, importacion);
        RecalcularOperacion(*ctx, importacion, calculo);
        ctx->ajustes.Guardar(u"ZENDRA"_s, u"TRANSFERENCIA"_s, u"CARPETA"_s, tienda->carpeta());
    };
    probar({
        accionEn<FrmTransferencia>("FrmTransferencia", liquidada,
                                   mostrarYCerrar<FrmTransferencia>(importacion), {},
                                   [this] {
                                       registro.respuestas.assign(1, true);
                                       tecla(Qt::Key_F11);
                                   }),
    });
}

TEST_P(CaidasBajoPantallas, TheQuote) {
    const auto conceptos = [](FrmConceptos &p) { return celdasDe(p.ui.LstConceptos); };
    const auto abrir = mostrarYCerrar<FrmPresupuesto>(importacion);
    const auto elegirConceptos = [] {
        Pantalla<FrmConceptos>().Elegir();
        CerrarPantalla<FrmConceptos>();
    };
    probar({
        accionEn<FrmPresupuesto>(
            "FrmPresupuesto: salir", {}, abrir, [](FrmPresupuesto &p) { poner(p.ui.txtAcuenta, u"150"_s); },
            la(Qt::Key_Escape)),
        accionEn<FrmPresupuesto>(
            "FrmPresupuesto: quitar gasto",
            [this] {
                ejecutar(
                    u"insert into itempresu (interno,concepto,valorpeso,valordolar) "
                    "values ('IC-2026-0001','FLETE INTERNO',100,0)"_s);
            },
            abrir,
            [](FrmPresupuesto &p) {
                p.ui.Grd->setFocus();
                p.ui.Grd->setCurrentCell(0, 0);
            },
            [this] {
                registro.respuestas.assign(1, true);
                teclaEn(Pantalla<FrmPresupuesto>().ui.Grd, Qt::Key_Delete);
            },
            [](FrmPresupuesto &p) { return celdasDe(p.ui.Grd); }),
        accionEn<FrmConceptos>(
            "FrmConceptos: agregar", {}, elegirConceptos,
            [](FrmConceptos &p) { poner(p.ui.TxtConcepto, u"VIATICOS"_s); },
            [] { teclaEn(Pantalla<FrmConceptos>().ui.TxtConcepto, Qt::Key_Return); }, conceptos),
        accionEn<FrmConceptos>(
            "FrmConceptos: quitar", {}, elegirConceptos,
            [](FrmConceptos &p) { p.ui.LstConceptos->setFocus(); }, la(Qt::Key_Delete), conceptos),
        accionEn<FrmReferencias>(
            "FrmReferencias", {},
            [] {
                Pantalla<FrmReferencias>().Elegir();
                CerrarPantalla<FrmReferencias>();
            },
            [](FrmReferencias &p) { poner(p.ui.TxtRefencia, u"ZZ GUIA"_s); },
            [] { teclaEn(Pantalla<FrmReferencias>().ui.TxtRefencia, Qt::Key_Return); },
            [](FrmReferencias &p) { return celdasDe(p.ui.LstReferencias); }),
    });
}

TEST_P(CaidasBajoPantallas, TheSheet) {
    probar({
        accionEn<FrmPrintItem>(
            "FrmPrintItem", [this] { armar(); }, mostrarYCerrar<FrmPrintItem>(importacion, u"1"_s), {},
            [this] {
                registro.vistos.clear();
                registro.impresos.clear();
                tecla(Qt::Key_F12);
            },
            [this](FrmPrintItem &) {
                return QString::number(registro.vistos.size() + registro.impresos.size());
            }),
    });
}
