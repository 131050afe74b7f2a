// The article of a line, searched from its field.

#include <gtest/gtest.h>

#include <QApplication>

#include "frame/entities.h"
#include "subitems/FrmCatArticulos.h"
#include "subitems/FrmCatArticulosBuscar.h"
#include "subitems/FrmbArticulos.h"
#include "tests/screens/subitems_pantalla.h"

using namespace Qt::StringLiterals;

namespace {

class ArticuloDeLinea : public EnLineas {
 protected:
    void SetUp() override {
        EnLineas::SetUp();
        ejecutar(u"delete from catarticulos"_s, entidad::catalogos);
        for (const char *valores : {"'CAT','B-10','8413.70.10.100L','Bomba chica','07',7",
                                    "'CAT','B-20','8413.70.10.100L','Bomba grande','07',8.5",
                                    "'OTRO','B-10','8413.70.10.100L','La misma','07',12.25"})
            ejecutar(
                u"insert into catarticulos (idcatalogo,idarticulo,ncm,descripcion,idunidad,"
                "preciounitario) values (%1)"_s.arg(QString::fromUtf8(valores)),
                entidad::catalogos);
    }
    /// F6, and back on the lines when what it opened is gone.
    static void buscar() {
        tecla(Qt::Key_F6);
        esperarVentana(Pantalla<FrmSubItems>().ventana.get());
    }
};
EN_AMBOS_STORES(ArticuloDeLinea);

TEST_P(ArticuloDeLinea, ItIsSearchedInTheCatalogueAndFillsTheLine) {
    auto &ui = lineas().ui;
    llenar(ui.TxtIdCatalogo, u"CAT"_s);
    irA(ui.txtIdArticulo);
    conPantallaModal<FrmbArticulos>([](FrmbArticulos &p) {
        EXPECT_EQ(p.ui.lbTituloArticulos->text(), u"Artículos de CAT"_s);
        EXPECT_EQ(p.ui.lbCantidad->text(), u"2 artículos"_s);
        escribir(u"20"_s);
        tecla(Qt::Key_Return);
    });
    buscar();
    EXPECT_FALSE(PantallaAbierta<FrmbArticulos>());
    EXPECT_EQ(ui.txtIdArticulo->text(), u"B-20"_s);
    EXPECT_EQ(ui.LbDescCatalogo->text(), u"B-20 - Bomba grande"_s);
    EXPECT_EQ(ui.TxtPosicion->text(), bomba);
    EXPECT_EQ(ui.TxtUnidad->text(), u"07"_s);
    EXPECT_EQ(ui.TxtUnitario->text(), u"08.50000"_s);
    EXPECT_EQ(QApplication::focusWidget(), ui.txtIdArticulo) << "ENTER goes on from here";
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(ArticuloDeLinea, WhatIsTypedIsSearchedFirstAndEscapeLeavesTheLineAlone) {
    auto &ui = lineas().ui;
    llenar(ui.TxtIdCatalogo, u"CAT"_s);
    llenar(ui.txtIdArticulo, u"B-1"_s);
    conPantallaModal<FrmbArticulos>([](FrmbArticulos &p) {
        EXPECT_EQ(p.ui.TxtValor->text(), u"B-1"_s);
        EXPECT_EQ(p.ui.lbCantidad->text(), u"1 de 2 artículos"_s);
        tecla(Qt::Key_Escape);
    });
    buscar();
    EXPECT_EQ(ui.TxtIdCatalogo->text(), u"CAT"_s);
    EXPECT_EQ(ui.txtIdArticulo->text(), u"B-1"_s);
    EXPECT_EQ(ui.TxtPosicion->text(), QString());
}

TEST_P(ArticuloDeLinea, F6OnTheCatalogueGoesThroughAllOfThemAndFillsTheLine) {
    auto &ui = lineas().ui;
    llenar(ui.TxtIdCatalogo, u"OTRO"_s);
    conPantallaModal<FrmCatArticulos>([](FrmCatArticulos &) {
        // The catalogue of the field stands open, its first article in hand.
        tecla(Qt::Key_Return);
    });
    buscar();
    EXPECT_FALSE(PantallaAbierta<FrmCatArticulos>());
    EXPECT_EQ(ui.TxtIdCatalogo->text(), u"OTRO"_s);
    EXPECT_EQ(ui.txtIdArticulo->text(), u"B-10"_s);
    EXPECT_EQ(ui.TxtDescArticulos->text(), u"La misma"_s);
    EXPECT_EQ(QApplication::focusWidget(), ui.TxtIdCatalogo);
    conPantallaModal<FrmCatArticulos>([](FrmCatArticulos &) { tecla(Qt::Key_Escape); });
    buscar();
    EXPECT_EQ(ui.txtIdArticulo->text(), u"B-10"_s) << "left";
}

TEST_P(ArticuloDeLinea, WithNeitherCatalogueNorCodeTheCataloguesAreShown) {
    auto &ui = lineas().ui;
    irA(ui.txtIdArticulo);
    conPantallaModal<FrmCatArticulos>([](FrmCatArticulos &) {
        tecla(Qt::Key_Plus);
        tecla(Qt::Key_Down);
        tecla(Qt::Key_Down);
        tecla(Qt::Key_Return);
    });
    buscar();
    EXPECT_EQ(ui.TxtIdCatalogo->text(), u"CAT"_s);
    EXPECT_EQ(ui.txtIdArticulo->text(), u"B-20"_s);
    EXPECT_EQ(ui.TxtPosicion->text(), bomba);
}

TEST_P(ArticuloDeLinea, WithoutACatalogueItsCodeIsSearchedInAllOfThem) {
    auto &ui = lineas().ui;
    llenar(ui.txtIdArticulo, u"B-10"_s);
    conPantallaModal<FrmCatArticulosBuscar>([](FrmCatArticulosBuscar &p) {
        EXPECT_EQ(p.ui.lbCantidad->text(), u"2 artículos"_s);
        tecla(Qt::Key_End);
        tecla(Qt::Key_Return);
    });
    buscar();
    EXPECT_EQ(ui.TxtIdCatalogo->text(), u"OTRO"_s);
    EXPECT_EQ(ui.txtIdArticulo->text(), u"B-10"_s);
    EXPECT_EQ(ui.TxtDescArticulos->text(), u"La misma"_s);
    EXPECT_TRUE(registro.entradas.empty()) << "the code is there already";
}

TEST_P(ArticuloDeLinea, ACodeThatNoCatalogueHasIsTold) {
    auto &ui = lineas().ui;
    llenar(ui.txtIdArticulo, u"NADA"_s);
    buscar();
    EXPECT_EQ(ultimoMensaje(), "Ningún catálogo tiene el artículo NADA, revise el código completo.");
    EXPECT_EQ(ui.txtIdArticulo->text(), u"NADA"_s);
    EXPECT_EQ(QApplication::focusWidget(), ui.txtIdArticulo);
}

}  // namespace
