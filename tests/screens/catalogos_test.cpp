// The article catalogues by keyboard.

#include <gtest/gtest.h>

#include <QTest>

#include "desktop/MenuP.h"
#include "frame/ui/Pantalla.h"
#include "header/FrmListado.h"
#include "subitems/FrmArticulos.h"
#include "subitems/FrmCatArticulos.h"
#include "subitems/FrmCatArticulosBuscar.h"
#include "subitems/FrmPosicion.h"
#include "subitems/FrmbArticulos.h"
#include "tests/support/pantallas.h"

using namespace Qt::StringLiterals;

namespace {

const QString deCatalogos = u"CATALOGOS"_s;
/// What the suffixes of a pump are: brand known, its name, 750 W.
const QString sufijosTecleados = u"AA01-AB(NP 750)-ZB(000750)-"_s;

class PantallaDeCatalogos : public EnPantalla {
 protected:
    void SetUp() override {
        EnPantalla::SetUp();
        ejecutar(u"delete from catarticulos"_s, deCatalogos);
        ejecutar(u"delete from articulo_ventaja"_s, deCatalogos);
        for (const QString &clave : {u"'ALFA','A-1','Bomba chica'"_s, u"'ALFA','A-2','Bomba mediana'"_s,
                                     u"'ALFA','B-1','Bomba grande'"_s, u"'BETA','A-1','Otra bomba'"_s})
            ejecutar(
                u"insert into catarticulos "
                "(idcatalogo,idarticulo,descripcion,ncm,idunidad,preciounitario,sufijos,biendeuso) values ("_s +
                    clave + u",'8413.70.10.100L','07',118.4,'AA01-AB(NP 750)-ZB(000750)-','N')"_s,
                deCatalogos);
    }
    static FrmCatArticulos &catalogos() {
        auto &p = Pantalla<FrmCatArticulos>();
        p.Mostrar();
        esperarVentana(p.ventana.get());
        return p;
    }
    /// The row in hand of the tree, as "catalogue/article".
    static std::string enArbol(const FrmCatArticulos &p) {
        const QModelIndex celda = p.ui.TvArticulos->currentIndex().siblingAtColumn(0);
        const QString arriba = celda.parent().isValid() ? celda.parent().data().toString() + u'/' : QString();
        return (arriba + celda.data().toString()).toStdString();
    }
    static bool expandido(const FrmCatArticulos &p, int fila) {
        return p.ui.TvArticulos->isExpanded(p.ui.TvArticulos->model()->index(fila, 0));
    }
    static bool enLista(const FrmCatArticulos &p) { return p.ui.hojas->currentWidget() == p.ui.hojaLista; }
    /// The text in place of what the field holds, and ENTER.
    static void teclear(QLineEdit *campo, const QString &texto) {
        campo->setFocus();
        campo->selectAll();
        escribir(texto);
        tecla(Qt::Key_Return);
    }
    /// A new pump in the screen, but for its code.
    static void teclearBomba(FrmCatArticulos &p) {
        teclear(p.ui.TxtDescArticulos, u"Electrobomba"_s);
        teclear(p.ui.TxtPosicion, u"8413.70.10.100l"_s);
        teclear(p.ui.TxtUnidad, u"07"_s);
        teclear(p.ui.TxtUnitario, u"118.40"_s);
        teclear(p.ui.txtSufijos, sufijosTecleados);
    }
    std::string articulos(const QString &columnas = u"idcatalogo,idarticulo"_s) {
        return filas("select "_L1 + columnas + " from catarticulos order by idcatalogo,idarticulo"_L1,
                     deCatalogos)
            .toStdString();
    }
    std::string ultimoTexto() const {
        return registro.mensajes.empty() ? std::string() : registro.mensajes.back().texto.toStdString();
    }
};
EN_AMBOS_STORES(PantallaDeCatalogos);

TEST_P(PantallaDeCatalogos, TheMenuOpensTheListWithItsKeys) {
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

TEST_P(PantallaDeCatalogos, PlusExpandsACatalogueAndMinusContractsIt) {
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

TEST_P(PantallaDeCatalogos, EnterOpensAnArticleAndItsChangeIsSaved) {
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
    EXPECT_EQ(filas(u"select descripcion,preciounitario,biendeuso from catarticulos "
                    "where idcatalogo = 'ALFA' and idarticulo = 'A-1'"_s,
                    deCatalogos),
              u"Bomba d'agua|120.5|S"_s);
    EXPECT_EQ(p.ui.TvArticulos->currentIndex().siblingAtColumn(1).data().toString(), u"Bomba d'agua"_s);
    tecla(Qt::Key_Escape);
}

TEST_P(PantallaDeCatalogos, ANewArticleIsKeyedAndTheCatalogueStaysChosen) {
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
    EXPECT_EQ(filas(u"select idcatalogo,descripcion,ncm,idunidad,preciounitario,sufijos,biendeuso "
                    "from catarticulos where idarticulo = 'C-1'"_s,
                    deCatalogos),
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

TEST_P(PantallaDeCatalogos, WhatIsMissingIsToldWithTheFocusOnItsField) {
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

TEST_P(PantallaDeCatalogos, ACodeThatIsThereIsShownAndRefused) {
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

TEST_P(PantallaDeCatalogos, TheFirstArticleOfAllMakesItsCatalogue) {
    ejecutar(u"delete from catarticulos"_s, deCatalogos);
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

TEST_P(PantallaDeCatalogos, DeletionAsksAndPutsTheNextArticleInHand) {
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

TEST_P(PantallaDeCatalogos, CheckedArticlesMoveToAnotherCatalogue) {
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

TEST_P(PantallaDeCatalogos, AdvantagesAreLinkedToAnArticleThatIsKept) {
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
    EXPECT_EQ(filas(u"select * from articulo_ventaja"_s, deCatalogos), "ALFA|A-1|"_L1 + ventaja);
    registro.respuestas = {true};
    tecla(Qt::Key_Delete);
    EXPECT_EQ(registro.preguntas.back().texto, "Confirma eliminar la ventaja "_L1 + ventaja +
                                                   u" asociada al articulo A-1 del catálogo ALFA"_s);
    EXPECT_EQ(p.ui.LstVentajas->rowCount(), 0);
    EXPECT_EQ(filas(u"select * from articulo_ventaja"_s, deCatalogos), QString());
    tecla(Qt::Key_Escape);
}

TEST_P(PantallaDeCatalogos, F6ListsWhatItsFieldTakes) {
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

TEST_P(PantallaDeCatalogos, F6OfTheListSearchesTheCatalogueInHand) {
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

TEST_P(PantallaDeCatalogos, ASearchByPositionAcrossCataloguesAsksForFiveCharacters) {
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

TEST_P(PantallaDeCatalogos, ASearchByArticleFromAnArticleOpensTheOneFound) {
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

TEST_P(PantallaDeCatalogos, F11PrintsTheCatalogueInHand) {
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

TEST_P(PantallaDeCatalogos, ThePrintedCatalogueIsTheListOfItsArticles) {
    conDialogosDeVerdad();
    ctx->dialogos = DialogosDePrueba(registro);
    catalogos();
    tecla(Qt::Key_F11);
    ASSERT_EQ(registro.vistos.size(), 1U);
    EXPECT_EQ(registro.vistos[0].tabla->subtitulo, u"Catálogo ALFA - 3 artículos"_s);
    tecla(Qt::Key_Escape);
}

TEST_P(PantallaDeCatalogos, ALinePicksAnArticleWithEnterAndLeavesWithEscape) {
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

TEST_P(PantallaDeCatalogos, TheMenuWritesTheLicenceReports) {
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

TEST_P(PantallaDeCatalogos, MenusAndToolbarsOfferWhatTheModeHas) {
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
