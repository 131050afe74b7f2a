// The tree of catalogues by keyboard.

#include <gtest/gtest.h>

#include "desktop/MenuP.h"
#include "frame/ui/Pantalla.h"
#include "subitems/FrmArticulos.h"
#include "subitems/FrmCatArticulosBuscar.h"
#include "tests/screens/catalogos_pantalla.h"

using namespace Qt::StringLiterals;

namespace {

class ArbolDeCatalogos : public EnCatalogos {};
EN_AMBOS_STORES(ArbolDeCatalogos);

TEST_P(ArbolDeCatalogos, TheMenuOpensTheListWithItsKeys) {
    auto &menu = Pantalla<MenuP>();
    menu.ventana->show();
    esperarVentana(menu.ventana.get());
    menu.ui.GrdMenuMain->setFocus();
    for (int n = 0; n < 3; ++n) tecla(Qt::Key_Down);
    tecla(Qt::Key_Return);
    ASSERT_TRUE(PantallaAbierta<FrmCatArticulos>());
    auto &p = Pantalla<FrmCatArticulos>();
    esperarVentana(p.ventana.get());
    EXPECT_EQ(QApplication::focusWidget(), p.ui.TvArticulos);
    EXPECT_EQ(p.ui.lbTeclas->text(),
              u"[ENTER] SELECCIONAR ARTICULO - [+] EXPANDIR - [-] CONTRAER - [F6] BUSCAR - [F9] VOLVER - "
              "[ESC] SALIR"_s);
    EXPECT_EQ(enArbol(p), "ALFA");
    EXPECT_EQ(p.ui.lbCantidad->text(), u"2 catálogos"_s);
    tecla(Qt::Key_Escape);
    EXPECT_FALSE(PantallaAbierta<FrmCatArticulos>());
}

TEST_P(ArbolDeCatalogos, PlusExpandsACatalogueAndMinusContractsIt) {
    auto &p = catalogos();
    EXPECT_FALSE(expandido(p, 0));
    EXPECT_EQ(p.ui.TvArticulos->model()->rowCount(p.ui.TvArticulos->currentIndex()), 0)
        << "nothing is read yet";
    tecla(Qt::Key_Plus);
    EXPECT_TRUE(expandido(p, 0));
    EXPECT_FALSE(expandido(p, 1));
    tecla(Qt::Key_Down);
    tecla(Qt::Key_Down);
    EXPECT_EQ(enArbol(p), "ALFA/A-2");
    tecla(Qt::Key_Minus);
    EXPECT_FALSE(expandido(p, 0));
    EXPECT_EQ(enArbol(p), "ALFA") << "the catalogue of the article comes into hand";
    tecla(Qt::Key_Return);
    EXPECT_TRUE(expandido(p, 0)) << "ENTER on a catalogue does both";
    tecla(Qt::Key_Return);
    EXPECT_FALSE(expandido(p, 0));
    tecla(Qt::Key_Asterisk);
    EXPECT_FALSE(expandido(p, 1));
    tecla(Qt::Key_Escape);
}

TEST_P(ArbolDeCatalogos, DeletionAsksAndPutsTheNextArticleInHand) {
    auto &p = catalogos();
    tecla(Qt::Key_Delete);
    EXPECT_EQ(ultimoTexto(), "Falta parametros.!") << "a catalogue is no article";
    EXPECT_TRUE(registro.preguntas.empty());
    tecla(Qt::Key_Plus);
    tecla(Qt::Key_Down);
    tecla(Qt::Key_Delete);
    ASSERT_EQ(registro.preguntas.size(), 1U);
    EXPECT_EQ(registro.preguntas[0].texto, u"Confirma eliminar el articulo: A-1 del catalogo: ALFA"_s);
    EXPECT_EQ(enArbol(p), "ALFA/A-1") << "No";
    registro.respuestas = {true};
    tecla(Qt::Key_Delete);
    EXPECT_EQ(articulos(), "ALFA|A-2\nALFA|B-1\nBETA|A-1");
    EXPECT_EQ(enArbol(p), "ALFA/A-2");
    EXPECT_TRUE(expandido(p, 0));
    EXPECT_EQ(QApplication::focusWidget(), p.ui.TvArticulos);
    tecla(Qt::Key_Escape);
}

TEST_P(ArbolDeCatalogos, CheckedArticlesMoveToAnotherCatalogue) {
    auto &p = catalogos();
    tecla(Qt::Key_F7);
    EXPECT_EQ(ultimoTexto(), "Marque con ESPACIO los artículos que cambian de catálogo.");
    tecla(Qt::Key_Plus);
    tecla(Qt::Key_Down);
    tecla(Qt::Key_Space);
    tecla(Qt::Key_Down);
    tecla(Qt::Key_Space);
    EXPECT_EQ(p.ui.lbCantidad->text(), u"2 catálogos   ·   2 artículos marcados"_s);
    registro.indices = {0};
    registro.respuestas = {true};
    tecla(Qt::Key_F7);
    EXPECT_EQ(registro.elecciones.back().filas, (QStringList{u"BETA"_s, u"(un catálogo nuevo)"_s}));
    EXPECT_EQ(registro.preguntas.back().texto,
              u"¿Confirma cambiar 2 articulos seleccionados del catálogo [ ALFA ] al catálogo [ BETA ]?"_s);
    EXPECT_EQ(ultimoTexto(), "Quedan en el catálogo [ ALFA ] los artículos que [ BETA ] ya tiene: A-1");
    EXPECT_EQ(articulos(), "ALFA|A-1\nALFA|B-1\nBETA|A-1\nBETA|A-2");
    EXPECT_EQ(p.ui.lbCantidad->text(), u"2 catálogos   ·   1 artículo marcado"_s)
        << "what stayed is still checked";
    EXPECT_TRUE(expandido(p, 0));
    tecla(Qt::Key_Escape);
}

TEST_P(ArbolDeCatalogos, F6OfTheListSearchesTheCatalogueInHand) {
    auto &p = catalogos();
    tecla(Qt::Key_Down);
    EXPECT_EQ(enArbol(p), "BETA");
    conPantallaModal<FrmArticulos>([](FrmArticulos &lista) {
        lista.ui.Lst->setFocus();
        tecla(Qt::Key_Return);
    });
    tecla(Qt::Key_F6);
    esperarVentana(p.ventana.get());
    EXPECT_EQ(enArbol(p), "BETA/A-1");
    tecla(Qt::Key_Escape);
}

TEST_P(ArbolDeCatalogos, ASearchByPositionAcrossCataloguesAsksForFiveCharacters) {
    auto &p = catalogos();
    registro.textos = {u"8413"_s};
    tecla(Qt::Key_F4);
    ASSERT_FALSE(registro.entradas.empty());
    EXPECT_EQ(registro.entradas.back().titulo, u"Buscar en TODOS los catálogos por posición arancelaria"_s);
    EXPECT_EQ(registro.entradas.back().texto,
              u"Ingrese la posición arancelaria (completa o incompleta) a buscar:"_s);
    EXPECT_EQ(ultimoTexto(), "Ingrese al menos 5 caracteres");
    registro.textos = {u"8413."_s};
    conPantallaModal<FrmCatArticulosBuscar>([](FrmCatArticulosBuscar &) {
        tecla(Qt::Key_End);
        tecla(Qt::Key_Return);
    });
    tecla(Qt::Key_F4);
    esperarVentana(p.ventana.get());
    EXPECT_EQ(enArbol(p), "BETA/A-1") << "the last of all";
    tecla(Qt::Key_Escape);
}

TEST_P(ArbolDeCatalogos, F11PrintsTheCatalogueInHand) {
    QStringList impresos;
    auto &p = catalogos();
    ctx->salidas.catalogo = [&impresos](const QString &catalogo) { impresos << catalogo; };
    tecla(Qt::Key_F11);
    tecla(Qt::Key_Down);
    tecla(Qt::Key_Insert);
    tecla(Qt::Key_F11);
    EXPECT_EQ(impresos, (QStringList{u"ALFA"_s, u"BETA"_s}));
    p.ui.TxtIdCatalogo->clear();
    tecla(Qt::Key_F11);
    EXPECT_EQ(ultimoTexto(), "Elija el catálogo que quiere imprimir.");
    tecla(Qt::Key_Escape);
}

TEST_P(ArbolDeCatalogos, ThePrintedCatalogueIsTheListOfItsArticles) {
    conDialogosDeVerdad();
    ctx->dialogos = DialogosDePrueba(registro);
    catalogos();
    tecla(Qt::Key_F11);
    ASSERT_EQ(registro.vistos.size(), 1U);
    EXPECT_EQ(registro.vistos[0].tabla->subtitulo, u"Catálogo ALFA - 3 artículos"_s);
    tecla(Qt::Key_Escape);
}

TEST_P(ArbolDeCatalogos, ALinePicksAnArticleWithEnterAndLeavesWithEscape) {
    conPantallaModal<FrmCatArticulos>([](FrmCatArticulos &p) {
        EXPECT_EQ(p.ui.lbModo->text(), u"Elija un artículo"_s);
        EXPECT_EQ(enArbol(p), "BETA/A-1") << "the catalogue of the line stands expanded";
        tecla(Qt::Key_Return);
    });
    EXPECT_EQ(SeleccionarArticulo(u"beta"_s), (ArticuloElegido{u"BETA"_s, u"A-1"_s}));
    conPantallaModal<FrmCatArticulos>([](FrmCatArticulos &p) {
        EXPECT_EQ(enArbol(p), "ALFA");
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(SeleccionarArticulo({}), std::nullopt);
}

TEST_P(ArbolDeCatalogos, TheMenuWritesTheLicenceReports) {
    auto &p = catalogos();
    const auto delMenu = [](int letra) {
        tecla(Qt::Key_L, Qt::AltModifier);
        tecla(letra);
    };
    registro.archivos = {tienda->carpeta() + "/uno.xls"_L1, tienda->carpeta() + "/dos.xls"_L1};
    delMenu(Qt::Key_C);
    registro.textos = {u"a-1"_s, u"8413"_s};
    delMenu(Qt::Key_A);
    EXPECT_EQ(registro.entradas.back().texto, u"Ingrese el código de artículo (completo) a buscar:"_s);
    EXPECT_EQ(registro.abiertos,
              (std::vector<QString>{tienda->carpeta() + "/uno.xls"_L1, tienda->carpeta() + "/dos.xls"_L1}));
    delMenu(Qt::Key_P);
    EXPECT_EQ(registro.entradas.back().titulo, u"Buscar en TODOS los catálogos por posición arancelaria"_s);
    EXPECT_EQ(ultimoTexto(), "Ingrese al menos 5 caracteres");
    esperarVentana(p.ventana.get());
    tecla(Qt::Key_Escape);
}

TEST_P(ArbolDeCatalogos, WhileALineWaitsAnArticleIsAddedAndPicked) {
    conPantallaModal<FrmCatArticulos>([](FrmCatArticulos &p) {
        tecla(Qt::Key_F9);
        EXPECT_EQ(p.ui.TxtIdCatalogo->text(), u"BETA"_s);
        escribir(u"Z-9"_s);
        tecla(Qt::Key_Return);
        teclearBomba(p);
        atajo(Qt::Key_G);
        tecla(Qt::Key_F9);
        EXPECT_EQ(enArbol(p), "BETA/Z-9");
        tecla(Qt::Key_Return);
    });
    EXPECT_EQ(SeleccionarArticulo(u"BETA"_s), (ArticuloElegido{u"BETA"_s, u"Z-9"_s}));
    EXPECT_TRUE(registro.mensajes.empty()) << ultimoTexto();
}

TEST_P(ArbolDeCatalogos, ACatalogueThatCannotBeReadIsToldOnceAndStaysContracted) {
    auto &p = catalogos();
    ejecutar(u"alter table catarticulos rename to catarticulos_aparte"_s, u"CATALOGOS"_s);
    tecla(Qt::Key_Plus);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Critico);
    EXPECT_FALSE(expandido(p, 0));
    ejecutar(u"alter table catarticulos_aparte rename to catarticulos"_s, u"CATALOGOS"_s);
    tecla(Qt::Key_Plus);
    EXPECT_TRUE(expandido(p, 0)) << "read at the next key";
    tecla(Qt::Key_Escape);
}

TEST_P(ArbolDeCatalogos, WhatAnotherWorkstationTookAwayIsToldAndLeavesTheList) {
    auto &p = catalogos();
    tecla(Qt::Key_Plus);
    tecla(Qt::Key_Down);
    ejecutar(u"delete from catarticulos where idcatalogo = 'ALFA' and idarticulo = 'A-1'"_s, u"CATALOGOS"_s);
    tecla(Qt::Key_Return);
    EXPECT_EQ(ultimoTexto(),
              "El artículo A-1 ya no está en el catálogo ALFA, otro puesto lo eliminó o lo movió.");
    EXPECT_TRUE(enLista(p));
    EXPECT_EQ(enArbol(p), "ALFA");
    EXPECT_EQ(p.ui.TvArticulos->model()->rowCount(p.ui.TvArticulos->currentIndex()), 2);
    tecla(Qt::Key_Escape);
}

TEST_P(ArbolDeCatalogos, MenusAndToolbarsOfferWhatTheModeHas) {
    auto &p = catalogos();
    const auto visibles = [](const QWidget *donde) {
        QStringList textos;
        for (const QAction *accion : donde->actions())
            if (accion->isVisible()) textos << accion->iconText();
        return textos;
    };
    EXPECT_EQ(visibles(p.ui.TbLista).join(u'|'),
              u"Agregar|Modificar|Eliminar|Cambiar catálogo|Imprimir|Buscar|En todos, por artículo|"
              "En todos, por posición"_s);
    tecla(Qt::Key_F9);
    EXPECT_EQ(visibles(p.ui.TbEdicion).join(u'|'),
              u"Agregar|Eliminar|Vincular ventaja|Imprimir|Lista|En todos, por artículo|"
              "En todos, por posición"_s);
    EXPECT_EQ(p.ui.TbEdicion->actions().at(5)->toolTip(),
              u"Buscar en TODOS los catálogos por código de artículo (F3)"_s);
    tecla(Qt::Key_Escape);
}

class CapturasDeCatalogos : public EnPantalla {};
INSTANTIATE_TEST_SUITE_P(Stores, CapturasDeCatalogos, ::testing::Values("ACCESS"));

TEST_P(CapturasDeCatalogos, TheTreeAndTheArticle) {
    auto &p = Pantalla<FrmCatArticulos>();
    p.Mostrar();
    esperarVentana(p.ventana.get());
    tecla(Qt::Key_Down);
    tecla(Qt::Key_Plus);
    for (int n = 0; n < 3; ++n) tecla(Qt::Key_Down);
    tecla(Qt::Key_Space);
    foto(p.ventana.get(), u"catalogos"_s);
    EXPECT_EQ(ordenDeTab(p.ventana.get()).join(u' '), u"TvArticulos"_s);
    registro.textos = {u"NP-4000"_s};
    tecla(Qt::Key_F9);
    foto(p.ventana.get(), u"articulo-nuevo"_s);
    conPantallaModal<FrmCatArticulosBuscar>([](FrmCatArticulosBuscar &) { tecla(Qt::Key_Return); });
    tecla(Qt::Key_F3);
    esperarVentana(p.ventana.get());
    foto(p.ventana.get(), u"articulo"_s);
    EXPECT_EQ(
        ordenDeTab(p.ventana.get()).join(u' '),
        u"TxtDescArticulos txtDescripcionMaria TxtPosicion TxtUnitario TxtUnidad txtKgUnitario txtSufijos "
        "TxtIdpais txtIdPaisProc TxtIdEstadoMercaderia ckBiendeUso TxtNaladisa TxtCodigoEAN TxtFiller "
        "txtOtros CmdGuardar LstVentajas cmdVincularVentaja cmdQuitarVentaja CmdNuevo"_s);
    tecla(Qt::Key_Escape);
}

}  // namespace
