// Pictures of the screens of the sheet, and the order of TAB in them.

#include <gtest/gtest.h>

#include "liquidation/Frm_ListaCeoItem.h"
#include "outputs/FrmPrintItem.h"
#include "tests/screens/items_pantalla.h"

using namespace Qt::StringLiterals;

namespace {

class CapturasDeImpresion : public EnItems {};
INSTANTIATE_TEST_SUITE_P(Stores, CapturasDeImpresion, ::testing::Values("ACCESS"));

TEST_P(CapturasDeImpresion, TheSheetsScreen) {
    auto &impresion = Pantalla<FrmPrintItem>();
    ASSERT_TRUE(impresion.Cargar(importacion, u"0"_s));
    impresion.ventana->show();
    esperarVentana(impresion.ventana.get());
    impresion.ui.cbDesde->setFocus();
    EXPECT_EQ(ordenDeTab(impresion.ventana.get()).join(u' '),
              u"cbDesde CbHasta ChSubitems ChVistaPrel CmdPrint"_s);
    impresion.ui.cbDesde->setFocus();
    foto(impresion.ventana.get(), u"impresion"_s);
    impresion.ui.CmdPrint->click();
    foto(impresion.ventana.get(), u"impresion-terminada"_s);
}

TEST_P(CapturasDeImpresion, TheCertificatesOfOrigin) {
    auto &lista = Pantalla<Frm_ListaCeoItem>();
    lista.Cargar({u"CO-2026-000123"_s, u"CO-2026-000124"_s, u"ACE14-BR-77810"_s});
    lista.ventana->show();
    esperarVentana(lista.ventana.get());
    foto(lista.ventana.get(), u"certificados"_s);
    EXPECT_EQ(ordenDeTab(lista.ventana.get()), QStringList{u"GrdCeo"_s});
}

}  // namespace
