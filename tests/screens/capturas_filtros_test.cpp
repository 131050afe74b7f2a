// Pictures of the filters of the lines and of their menu.

#include <gtest/gtest.h>

#include <QApplication>

#include "tests/screens/subitems_pantalla.h"
#include "tests/support/claves.h"

using namespace Qt::StringLiterals;

namespace {

class CapturasDeFiltros : public EnLineas {
 protected:
    void SetUp() override {
        EnLineas::SetUp();
        ejecutar(
            u"update subitems set idpais = '' where interno = 'IC-2026-0001' and idarticulo = 'NP-1100'"_s);
    }
};

TEST_P(CapturasDeFiltros, PictureOfAFilter) {
    auto &pantalla = lineas(importacion);
    registro.textos = {u"8482"_s};
    menu(0, Qt::Key_P);
    tecla(Qt::Key_Down);
    tecla(Qt::Key_Return);
    foto(pantalla.ventana.get(), u"subitems-filtro"_s);
}

TEST_P(CapturasDeFiltros, PictureOfTheMenus) {
    auto &pantalla = lineas(importacion);
    menu(0, Qt::Key_G);
    EXPECT_GT(pantalla.ui.LstArticulos->rowCount(), 0);
    tecla(Qt::Key_F10);
    foto(QApplication::activePopupWidget(), u"subitems-menu-filtros"_s);
    tecla(Qt::Key_Right);
    foto(QApplication::activePopupWidget(), u"subitems-menu-cambios"_s);
    tecla(Qt::Key_Escape);
    tecla(Qt::Key_Escape);
    EXPECT_TRUE(pantalla.ventana->isVisible());
}

TEST_P(CapturasDeFiltros, ALongValueLeavesTheWindowAsWideAsItWas) {
    auto &pantalla = lineas(importacion);
    registro.textos = {QString(255, u'w')};
    menu(0, Qt::Key_X);
    EXPECT_TRUE(pantalla.ui.lbFiltroCual->text().endsWith(u"… (0 líneas)"_s));
    foto(pantalla.ventana.get(), u"subitems-filtro-largo"_s);
}

EN_AMBOS_STORES(CapturasDeFiltros);

}  // namespace
