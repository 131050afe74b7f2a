// An article of a catalogue by keyboard.

#include <gtest/gtest.h>

#include "frame/ui/Pantalla.h"
#include "subitems/FrmCatArticulosBuscar.h"
#include "subitems/FrmPosicion.h"
#include "subitems/FrmbArticulos.h"
#include "tests/screens/catalogos_pantalla.h"

using namespace Qt::StringLiterals;

namespace {

class ArticuloDeCatalogo : public EnCatalogos {};
EN_AMBOS_STORES(ArticuloDeCatalogo);

TEST_P(ArticuloDeCatalogo, EnterOpensAnArticleAndItsChangeIsSaved) {
    auto &p = catalogos();
    tecla(Qt::Key_Plus);
    tecla(Qt::Key_Down);
    tecla(Qt::Key_Return);
    EXPECT_FALSE(enLista(p));
    EXPECT_EQ(p.ui.lbTeclas->text(),
              u"[F6] LISTADOS - [F9] LISTA DE ARTICULO - [F11] IMPRIMIR - [ESC] SALIR"_s);
    EXPECT_EQ(p.ui.lbModo->text(), u"Modifica A-1 de ALFA"_s);
    EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtDescArticulos);
    EXPECT_FALSE(p.ui.TxtIdCatalogo->isEnabled());
    EXPECT_FALSE(p.ui.txtIdArticulo->isEnabled());
    EXPECT_EQ(p.ui.TxtUnitario->text().replace(u',', u'.'), u"118.40000"_s);
    EXPECT_TRUE(p.ui.txtNCMDesc->toPlainText().contains(u"Posición NCM: 8413.70.10.100L"_s));
    EXPECT_FALSE(p.ui.LbDescUnidad->text().isEmpty());
    teclear(p.ui.TxtDescArticulos, u"Bomba d'agua"_s);
    teclear(p.ui.TxtUnitario, u"120.5"_s);
    p.ui.ckBiendeUso->setFocus();
    tecla(Qt::Key_Space);
    // The suffixes are right: nothing is asked.
    atajo(Qt::Key_G);
    EXPECT_TRUE(registro.elecciones.empty());
    EXPECT_TRUE(enLista(p));
    EXPECT_EQ(enArbol(p), "ALFA/A-1") << "back where one came from";
    EXPECT_TRUE(registro.mensajes.empty()) << ultimoTexto();
    EXPECT_EQ(enCatalogos(u"select descripcion,preciounitario,biendeuso from catarticulos "
                          "where idcatalogo = 'ALFA' and idarticulo = 'A-1'"_s),
              u"Bomba d'agua|120.5|S"_s);
    EXPECT_EQ(p.ui.TvArticulos->currentIndex().siblingAtColumn(1).data().toString(), u"Bomba d'agua"_s);
    tecla(Qt::Key_Escape);
}

TEST_P(ArticuloDeCatalogo, ANewArticleIsKeyedAndTheCatalogueStaysChosen) {
    auto &p = catalogos();
    tecla(Qt::Key_Insert);
    EXPECT_EQ(p.ui.lbModo->text(), u"Artículo nuevo"_s);
    EXPECT_EQ(p.ui.TxtIdCatalogo->text(), u"ALFA"_s) << "the catalogue in hand";
    EXPECT_EQ(QApplication::focusWidget(), p.ui.txtIdArticulo);
    escribir(u"C-1"_s);
    tecla(Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtDescArticulos);
    teclearBomba(p);
    p.ui.CmdGuardar->setFocus();
    tecla(Qt::Key_Return);
    EXPECT_TRUE(registro.mensajes.empty()) << ultimoTexto();
    EXPECT_EQ(enCatalogos(u"select idcatalogo,descripcion,ncm,idunidad,preciounitario,sufijos,biendeuso "
                          "from catarticulos where idarticulo = 'C-1'"_s),
              u"ALFA|Electrobomba|8413.70.10.100L|07|118.4|AA01-AB(NP 750)-ZB(000750)-|N"_s);
    // The four names of the catalogue's block stay, the rest is empty for the next one.
    EXPECT_EQ(p.ui.TxtIdCatalogo->text(), u"ALFA"_s);
    EXPECT_EQ(p.ui.txtIdArticulo->text(), u"C-1"_s);
    for (const QLineEdit *campo :
         {p.ui.TxtDescArticulos, p.ui.TxtPosicion, p.ui.TxtUnidad, p.ui.TxtUnitario, p.ui.txtSufijos})
        EXPECT_EQ(campo->text(), QString()) << campo->objectName().toStdString();
    EXPECT_EQ(p.ui.LbDescUnidad->text(), QString());
    EXPECT_EQ(QApplication::focusWidget(), p.ui.txtIdArticulo);
    EXPECT_EQ(p.ui.txtIdArticulo->selectedText(), u"C-1"_s);
    EXPECT_EQ(p.ui.lbResultado->text(), u"Se agregó C-1 al catálogo ALFA"_s);
    tecla(Qt::Key_F9);
    EXPECT_EQ(enArbol(p), "ALFA/C-1") << "the list shows what was added";
    tecla(Qt::Key_F9);
    EXPECT_FALSE(enLista(p)) << "and back";
    tecla(Qt::Key_Escape);
    EXPECT_FALSE(PantallaAbierta<FrmCatArticulos>());
}

TEST_P(ArticuloDeCatalogo, WhatIsMissingIsToldWithTheFocusOnItsField) {
    auto &p = catalogos();
    tecla(Qt::Key_Insert);
    atajo(Qt::Key_G);
    EXPECT_EQ(ultimoTexto(), "Debe ingresar un Nombre o Código de Articulo");
    EXPECT_EQ(registro.mensajes.back().icono, Icono::Exclamacion);
    EXPECT_EQ(QApplication::focusWidget(), p.ui.txtIdArticulo);
    escribir(u"C-1"_s);
    atajo(Qt::Key_G);
    EXPECT_EQ(ultimoTexto(), "Debe ingresar el Codigo de UNIDAD");
    EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtUnidad);
    escribir(u"07"_s);
    atajo(Qt::Key_G);
    EXPECT_EQ(ultimoTexto(), "Debe ingresar un valor numeric en el campo VALOR UNITARIO");
    EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtUnitario);
    escribir(u"1"_s);
    atajo(Qt::Key_G);
    EXPECT_EQ(ultimoTexto(), "Debe ingresar una POSICION del Nomenclador");
    EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtPosicion);
    escribir(u"9999.99.99.999Z"_s);
    atajo(Qt::Key_G);
    EXPECT_EQ(ultimoTexto(), "No existe la posicion 9999.99.99.999Z en el nomenclador");
    EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtPosicion);
    teclear(p.ui.TxtPosicion, u"9999.99.99.999Z"_s);
    EXPECT_EQ(ultimoTexto(), "POSICIÓN INEXISTENTE, en el Nomenclador");
    EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtPosicion) << "ENTER stays on it";
    // The suffixes are asked for; left with ESC the article stays out.
    teclear(p.ui.TxtPosicion, u"8413.70.10.100L"_s);
    atajo(Qt::Key_G);
    EXPECT_EQ(ultimoTexto(), "Carga de SUFIJOS cancelada");
    EXPECT_EQ(QApplication::focusWidget(), p.ui.txtSufijos);
    EXPECT_EQ(articulos(), "ALFA|A-1\nALFA|A-2\nALFA|B-1\nBETA|A-1");
    tecla(Qt::Key_Escape);
}

TEST_P(ArticuloDeCatalogo, ACodeThatIsThereIsShownAndRefused) {
    auto &p = catalogos();
    tecla(Qt::Key_Insert);
    escribir(u"a-1"_s);
    tecla(Qt::Key_Return);
    EXPECT_EQ(p.ui.lbResultado->text(), u"a-1 ya está en el catálogo ALFA: F9 para modificarlo"_s);
    teclearBomba(p);
    atajo(Qt::Key_G);
    EXPECT_EQ(
        ultimoTexto(),
        "El artículo a-1 ya está en el catálogo ALFA.\r\nPara modificar un articulo debe presionar F9.");
    EXPECT_EQ(QApplication::focusWidget(), p.ui.txtIdArticulo);
    tecla(Qt::Key_Escape);
}

TEST_P(ArticuloDeCatalogo, TheFirstArticleOfAllMakesItsCatalogue) {
    ejecutar(u"delete from catarticulos"_s, u"CATALOGOS"_s);
    auto &p = catalogos();
    EXPECT_FALSE(enLista(p)) << "there is nothing to list";
    EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtIdCatalogo);
    escribir(u"NUEVO"_s);
    tecla(Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), p.ui.txtIdArticulo);
    escribir(u"C-1"_s);
    teclearBomba(p);
    atajo(Qt::Key_G);
    EXPECT_EQ(articulos(), "NUEVO|C-1");
    tecla(Qt::Key_F9);
    EXPECT_EQ(enArbol(p), "NUEVO/C-1");
    tecla(Qt::Key_Escape);
}

TEST_P(ArticuloDeCatalogo, AdvantagesAreLinkedToAnArticleThatIsKept) {
    auto &p = catalogos();
    tecla(Qt::Key_Insert);
    tecla(Qt::Key_F7);
    EXPECT_EQ(ultimoTexto(),
              "Solo se puede vincular ventajas a articulos ya existentes.\r\n"
              "Para modificar un articulo debe presionar F9.");
    tecla(Qt::Key_F9);
    tecla(Qt::Key_Plus);
    tecla(Qt::Key_Down);
    tecla(Qt::Key_Return);
    EXPECT_EQ(p.ui.LbDescUnidad->text().isEmpty(), false);
    p.ui.LstVentajas->setFocus();
    registro.indices = {0};
    tecla(Qt::Key_Insert);
    ASSERT_EQ(p.ui.LstVentajas->rowCount(), 1);
    const QString ventaja = p.ui.LstVentajas->item(0, 0)->text();
    EXPECT_EQ(enCatalogos(u"select * from articulo_ventaja"_s), "ALFA|A-1|"_L1 + ventaja);
    registro.respuestas = {true};
    tecla(Qt::Key_Delete);
    EXPECT_EQ(registro.preguntas.back().texto, "Confirma eliminar la ventaja "_L1 + ventaja +
                                                   u" asociada al articulo A-1 del catálogo ALFA"_s);
    EXPECT_EQ(p.ui.LstVentajas->rowCount(), 0);
    EXPECT_EQ(enCatalogos(u"select * from articulo_ventaja"_s), QString());
    tecla(Qt::Key_Escape);
}

TEST_P(ArticuloDeCatalogo, F6ListsWhatItsFieldTakes) {
    auto &p = catalogos();
    tecla(Qt::Key_Insert);
    p.ui.TxtIdCatalogo->setFocus();
    registro.indices = {1};
    tecla(Qt::Key_F6);
    EXPECT_EQ(p.ui.TxtIdCatalogo->text(), u"BETA"_s);
    EXPECT_EQ(registro.elecciones.back().titulo, u"Catálogos"_s);
    for (QLineEdit *campo :
         {p.ui.TxtUnidad, p.ui.TxtIdEstadoMercaderia, p.ui.TxtIdpais, p.ui.txtIdPaisProc}) {
        registro.indices = {0};
        teclaEn(campo, Qt::Key_F6);
        EXPECT_FALSE(campo->text().isEmpty()) << campo->objectName().toStdString();
    }
    p.ui.TxtPosicion->setText(u"8413.70.10.100L"_s);
    conPantallaModal<FrmPosicion>([](FrmPosicion &lista) {
        EXPECT_GT(lista.ui.LstNCM->count(), 0);
        lista.ui.LstNCM->setFocus();
        tecla(Qt::Key_Return);
    });
    teclaEn(p.ui.TxtPosicion, Qt::Key_F6);
    esperarVentana(p.ventana.get());
    EXPECT_EQ(p.ui.TxtPosicion->text(), u"8413.70.10.100L"_s);
    EXPECT_TRUE(p.ui.txtNCMDesc->toPlainText().contains(u"8413.70.10"_s));
    registro.indices = {1};
    registro.textos = {u"x"_s, u"1"_s};
    teclaEn(p.ui.txtSufijos, Qt::Key_F6);
    EXPECT_EQ(p.ui.txtSufijos->text(), u"AA01-AB(X)-ZB(000001)-"_s);
    conPantallaModal<FrmbArticulos>([](FrmbArticulos &lista) {
        lista.ui.Lst->setFocus();
        tecla(Qt::Key_Return);
    });
    teclaEn(p.ui.txtIdArticulo, Qt::Key_F6);
    esperarVentana(p.ventana.get());
    EXPECT_EQ(p.ui.lbModo->text(), u"Modifica A-1 de BETA"_s) << "an article picked from the list is changed";
    tecla(Qt::Key_Escape);
}

TEST_P(ArticuloDeCatalogo, ASearchByArticleFromAnArticleOpensTheOneFound) {
    auto &p = catalogos();
    tecla(Qt::Key_Insert);
    registro.textos = {u"b-1"_s};
    conPantallaModal<FrmCatArticulosBuscar>([](FrmCatArticulosBuscar &) { tecla(Qt::Key_Return); });
    tecla(Qt::Key_F3);
    EXPECT_EQ(registro.entradas.back().texto, u"Ingrese el código de artículo (completo) a buscar:"_s);
    esperarVentana(p.ventana.get());
    EXPECT_EQ(p.ui.lbModo->text(), u"Modifica B-1 de ALFA"_s);
    tecla(Qt::Key_Escape);
}

}  // namespace
