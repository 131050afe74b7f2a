// The searches of articles by keyboard: in a catalogue, across all of them, and from a line.

#include <gtest/gtest.h>

#include <QApplication>
#include <QPushButton>
#include <QTest>

#include "frame/entities.h"
#include "frame/ui/Pantalla.h"
#include "subitems/FrmArticulos.h"
#include "subitems/FrmCatArticulosBuscar.h"
#include "subitems/FrmbArticulos.h"
#include "tests/support/pantallas.h"
#include "tests/support/traza.h"

using namespace Qt::StringLiterals;

namespace {

constexpr auto articulosDePrueba = {
    "'CAT','T-20','8413.70.10.100L','Turbina de 20',2,10.5",
    "'CAT','B-10','8413.70.10.100L','Bomba chica',1,7",
    "'CAT','B-20','8413.70.10.200R','Bomba de ñandú',1,8",
    "'CAT','A-5','2204.21.00.100X','Vino d''oro',1,4",
    "'CAT','K_1','8414.80.11.000W','Compresor de bomba',1,90",
    "'OTRO','B-10','8413.70.10.100L','La misma',1,12.25",
};

class PantallasDeArticulos : public EnPantalla {
 protected:
    void SetUp() override {
        EnPantalla::SetUp();
        ctx->SeparadorDecimal = u'.';
        ejecutar(u"delete from catarticulos"_s, entidad::catalogos);
        for (const char *valores : articulosDePrueba)
            ejecutar(
                u"insert into catarticulos (idcatalogo,idarticulo,ncm,descripcion,cantidad,"
                "preciounitario) values (%1)"_s.arg(QString::fromUtf8(valores)),
                entidad::catalogos);
    }
    /// Opens the screen on CAT, lets `hacer` work, and answers what was taken.
    template <class T>
    std::string elegir(const std::function<void(T &)> &hacer, const QString &buscado = {}) {
        conPantallaModal<T>(hacer);
        const QString elegido = Pantalla<T>().Elegir(u"CAT"_s, buscado);
        CerrarPantalla<T>();
        return elegido.toStdString();
    }
    template <class T>
    static std::string codigos(const T &pantalla) {
        return textosDe(pantalla.ui.Lst, 0).join(u' ').toStdString();
    }
    template <class T>
    static void esperarCodigos(const T &pantalla, const std::string &cuales) {
        hasta([&] { return codigos(pantalla) == cuales; });
    }
    template <class T>
    static std::string titulos(const T &pantalla) {
        QStringList textos;
        const QAbstractItemModel *filas = pantalla.ui.Lst->model();
        for (int columna = 0; columna < filas->columnCount(); ++columna)
            textos << filas->headerData(columna, Qt::Horizontal).toString();
        return textos.join(u'|').toStdString();
    }
    /// What the search across all catalogues leaves chosen.
    std::string enTodos(BusquedaEnCatalogos por, const QString &valor,
                        const std::function<void(FrmCatArticulosBuscar &)> &hacer) {
        conPantallaModal<FrmCatArticulosBuscar>(hacer);
        registro.textos = {valor};
        const auto elegido = BuscarEnTodosLosCatalogos(por);
        return elegido ? (elegido->idcatalogo + u'|' + elegido->idarticulo).toStdString() : "<nada>";
    }
};
EN_AMBOS_STORES(PantallasDeArticulos);

const char *const todosLosCodigos = "A-5 B-10 B-20 K_1 T-20";

TEST_P(PantallasDeArticulos, TheWholeCatalogueIsThereByItsCodesReadyToBeSearched) {
    const auto elegido = elegir<FrmbArticulos>([](FrmbArticulos &p) {
        EXPECT_EQ(p.ventana->windowTitle(), u"Artículos"_s);
        EXPECT_EQ(p.ui.lbTituloArticulos->text(), u"Artículos de CAT"_s);
        EXPECT_EQ(p.ui.CboCampo->currentText(), u"MOSTRAR TODO"_s);
        EXPECT_EQ(p.ui.CboCampo->count(), 4);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtValor);
        EXPECT_EQ(titulos(p), "IdArticulo|Descripcion|NCM|Total");
        EXPECT_EQ(codigos(p), todosLosCodigos);
        // 1 * 4, 1 * 7, 1 * 8, 1 * 90, 2 * 10.5
        EXPECT_EQ(textosDe(p.ui.Lst, 3).join(u' '), u"04.00 07.00 08.00 90.00 21.00"_s);
        EXPECT_EQ(enMano(p.ui.Lst, 0), u"A-5"_s);
        EXPECT_EQ(p.ui.lbCantidad->text(), u"5 artículos"_s);
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(elegido, "");
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(PantallasDeArticulos, TypingNarrowsTheListWithoutAskingTheStore) {
    const auto elegido = elegir<FrmbArticulos>([](FrmbArticulos &p) {
        const Traza traza;
        escribir(u"b-"_s);
        EXPECT_EQ(p.ui.CboCampo->currentText(), u"ARTICULO"_s) << "a text is looked for in the code";
        EXPECT_EQ(codigos(p), todosLosCodigos) << "not before the typing rests";
        esperarCodigos(p, "B-10 B-20");
        EXPECT_EQ(enMano(p.ui.Lst, 0), u"B-10"_s);
        EXPECT_EQ(p.ui.lbCantidad->text(), u"2 de 5 artículos"_s);
        EXPECT_EQ(traza.texto(), "");
        tecla(Qt::Key_Down);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtValor) << "the box keeps the keyboard";
        EXPECT_EQ(p.ui.TxtValor->text(), u"b-"_s);
        tecla(Qt::Key_Return);
    });
    EXPECT_EQ(elegido, "B-20");
}

TEST_P(PantallasDeArticulos, EnterTakesWhatTheTextLeavesHoweverFastItComes) {
    EXPECT_EQ(elegir<FrmbArticulos>([](FrmbArticulos &) {
                  escribir(u"t-2"_s);
                  tecla(Qt::Key_Return);
              }),
              "T-20");
    EXPECT_EQ(elegir<FrmArticulos>([](FrmArticulos &) {
                  escribir(u"20"_s);
                  tecla(Qt::Key_End);
                  tecla(Qt::Key_Return);
              }),
              "T-20")
        << "the last of B-20 and T-20";
}

TEST_P(PantallasDeArticulos, ArrowsHomeEndAndPagesMoveAmongTheRowsInSight) {
    elegir<FrmbArticulos>([](FrmbArticulos &p) {
        const auto en = [&p](int cual) {
            tecla(cual);
            return enMano(p.ui.Lst, 0).toStdString();
        };
        EXPECT_EQ(en(Qt::Key_Up), "A-5") << "no further";
        EXPECT_EQ(en(Qt::Key_End), "T-20");
        EXPECT_EQ(en(Qt::Key_Down), "T-20");
        EXPECT_EQ(en(Qt::Key_Home), "A-5");
        EXPECT_EQ(en(Qt::Key_PageDown), "T-20");
        EXPECT_EQ(en(Qt::Key_PageUp), "A-5");
        escribir(u"b"_s);
        EXPECT_EQ(en(Qt::Key_Down), "B-20");
        EXPECT_EQ(en(Qt::Key_End), "B-20");
        tecla(Qt::Key_Escape);
    });
}

TEST_P(PantallasDeArticulos, ATextThatIsNowhereLeavesNothingToTake) {
    elegir<FrmbArticulos>([](FrmbArticulos &p) {
        escribir(u"zzz"_s);
        esperarCodigos(p, "");
        EXPECT_EQ(p.ui.lbCantidad->text(), u"0 de 5 artículos"_s);
        tecla(Qt::Key_Return);
        tecla(Qt::Key_Down);
        EXPECT_TRUE(p.ventana->isVisible());
        for (int n = 0; n < 3; ++n) tecla(Qt::Key_Backspace);
        esperarCodigos(p, todosLosCodigos);
        EXPECT_EQ(enMano(p.ui.Lst, 0), u"A-5"_s);
        tecla(Qt::Key_Escape);
    });
}

TEST_P(PantallasDeArticulos, AnotherFieldSearchesTheSameText) {
    elegir<FrmbArticulos>([](FrmbArticulos &p) {
        escribir(u"bomba"_s);
        esperarCodigos(p, "");
        tecla(Qt::Key_C, Qt::AltModifier);
        ASSERT_EQ(QApplication::focusWidget(), p.ui.CboCampo);
        tecla(Qt::Key_D);
        EXPECT_EQ(p.ui.CboCampo->currentText(), u"DESCRIPCIÓN"_s);
        EXPECT_EQ(codigos(p), "B-10 B-20 K_1") << "at once";
        tecla(Qt::Key_T, Qt::AltModifier);
        escribir(u"NANDU"_s);
        esperarCodigos(p, "B-20");
        tecla(Qt::Key_Backtab);
        tecla(Qt::Key_End);
        EXPECT_EQ(p.ui.CboCampo->currentText(), u"POSICIÓN"_s);
        EXPECT_EQ(codigos(p), "");
        tecla(Qt::Key_Return);
        ASSERT_EQ(QApplication::focusWidget(), p.ui.TxtValor) << "ENTER goes on";
        escribir(u"2204"_s);
        esperarCodigos(p, "A-5");
        tecla(Qt::Key_Escape);
    });
}

TEST_P(PantallasDeArticulos, TheWholeCatalogueComesBackWithItsName) {
    elegir<FrmbArticulos>([](FrmbArticulos &p) {
        escribir(u"b-"_s);
        esperarCodigos(p, "B-10 B-20");
        tecla(Qt::Key_Backtab);
        tecla(Qt::Key_Home);
        EXPECT_EQ(p.ui.CboCampo->currentText(), u"MOSTRAR TODO"_s);
        EXPECT_EQ(p.ui.TxtValor->text(), QString());
        EXPECT_EQ(codigos(p), todosLosCodigos);
        EXPECT_EQ(p.ui.lbCantidad->text(), u"5 artículos"_s);
        tecla(Qt::Key_Escape);
    });
}

TEST_P(PantallasDeArticulos, TheButtonAsksTheStoreWithItsPatterns) {
    const auto elegido = elegir<FrmbArticulos>([this](FrmbArticulos &p) {
        // Another workstation's.
        ejecutar(
            u"insert into catarticulos (idcatalogo,idarticulo,descripcion) values ('CAT','B-15','Nueva')"_s,
            entidad::catalogos);
        escribir(u"B%0"_s);
        esperarCodigos(p, "");
        {
            const Traza traza;
            atajo(Qt::Key_B);
            EXPECT_EQ(traza.texto(),
                      "CATALOGOS|select idarticulo,descripcion,ncm,Cantidad*Preciounitario as total from "
                      "catarticulos where idcatalogo = 'CAT' and idarticulo like '%B%0%'");
        }
        EXPECT_EQ(codigos(p), "B-10 B-20");
        EXPECT_EQ(p.ui.lbCantidad->text(), u"2 artículos"_s);
        EXPECT_EQ(p.ui.TxtValor->text(), u"B%0"_s);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.Lst);
        EXPECT_EQ(enMano(p.ui.Lst, 0), u"B-10"_s);
        // A letter goes on searching, in the whole catalogue.
        tecla(Qt::Key_B);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtValor);
        EXPECT_EQ(p.ui.TxtValor->text(), u"b"_s);
        esperarCodigos(p, "B-10 B-15 B-20");
        EXPECT_EQ(p.ui.lbCantidad->text(), u"3 de 6 artículos"_s);
        escribir(u"-15"_s);
        tecla(Qt::Key_Return);
    });
    EXPECT_EQ(elegido, "B-15");
}

TEST_P(PantallasDeArticulos, ASearchOfTheStoreThatFindsNothingGoesBackToItsText) {
    elegir<FrmArticulos>([](FrmArticulos &p) {
        escribir(u"d'x"_s);
        tecla(Qt::Key_Tab);
        ASSERT_EQ(QApplication::focusWidget(), p.ui.CmdBuscar);
        tecla(Qt::Key_Return);
        EXPECT_EQ(codigos(p), "");
        EXPECT_EQ(p.ui.lbCantidad->text(), u"0 artículos"_s);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtValor);
        EXPECT_EQ(p.ui.TxtValor->selectedText(), u"d'x"_s);
        tecla(Qt::Key_Backtab);
        tecla(Qt::Key_D);
        EXPECT_EQ(p.ui.CboCampo->currentText(), u"DESCRIPCIÓN"_s);
        EXPECT_EQ(p.ui.lbCantidad->text(), u"0 de 5 artículos"_s) << "in the whole catalogue";
        tecla(Qt::Key_Escape);
    });
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(PantallasDeArticulos, ATextThatIsGivenIsSearchedFirst) {
    EXPECT_EQ(elegir<FrmbArticulos>(
                  [](FrmbArticulos &p) {
                      EXPECT_EQ(codigos(p), "B-10 B-20");
                      EXPECT_EQ(p.ui.TxtValor->selectedText(), u"B-"_s) << "the next letter takes its place";
                      tecla(Qt::Key_Return);
                  },
                  u"B-"_s),
              "B-10");
}

TEST_P(PantallasDeArticulos, TheListWithDatesDeletesAnArticleAfterAYes) {
    ejecutar(u"insert into articulo_ventaja (idcatalogo,idarticulo,ventaja) values ('CAT','B-10','V')"_s,
             entidad::catalogos);
    elegir<FrmArticulos>([this](FrmArticulos &p) {
        EXPECT_EQ(titulos(p), "IdArticulo|Descripcion|NCM|preciounitario|Usuario|Fecha");
        escribir(u"b"_s);
        esperarCodigos(p, "B-10 B-20");
        p.ui.Lst->setFocus();
        tecla(Qt::Key_Delete);
        ASSERT_EQ(registro.preguntas.size(), 1U);
        EXPECT_EQ(registro.preguntas[0].texto, u"Confima eliminar el articulo B-10"_s);
        EXPECT_EQ(codigos(p), "B-10 B-20");
        registro.respuestas = {true};
        tecla(Qt::Key_Delete);
        EXPECT_EQ(codigos(p), "B-20");
        EXPECT_EQ(enMano(p.ui.Lst, 0), u"B-20"_s);
        EXPECT_EQ(p.ui.lbCantidad->text(), u"1 de 4 artículos"_s);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.Lst);
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(filas(u"select idarticulo from catarticulos where idcatalogo = 'CAT' order by idarticulo"_s,
                    entidad::catalogos),
              u"A-5\nB-20\nK_1\nT-20"_s);
    EXPECT_EQ(valor(u"select count(*) from articulo_ventaja where idarticulo = 'B-10'"_s, entidad::catalogos),
              u"0"_s);
}

TEST_P(PantallasDeArticulos, TheListWithTotalsDeletesNothing) {
    elegir<FrmbArticulos>([](FrmbArticulos &p) {
        p.ui.Lst->setFocus();
        tecla(Qt::Key_Delete);
        EXPECT_EQ(codigos(p), todosLosCodigos);
        tecla(Qt::Key_Escape);
    });
    EXPECT_TRUE(registro.preguntas.empty());
}

TEST_P(PantallasDeArticulos, AFaultOfTheStoreIsToldAndTheListIsNotOpened) {
    ejecutar(u"drop table catarticulos"_s, entidad::catalogos);
    EXPECT_EQ(Pantalla<FrmbArticulos>().Elegir(u"CAT"_s, {}), QString());
    EXPECT_FALSE(Pantalla<FrmbArticulos>().ventana->isVisible());
    CerrarPantalla<FrmbArticulos>();
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Critico);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_P(PantallasDeArticulos, TheSearchAcrossCataloguesByCodeTakesOneOfThoseFound) {
    EXPECT_EQ(enTodos(BusquedaEnCatalogos::Articulo, u"b-10"_s,
                      [](FrmCatArticulosBuscar &p) {
                          EXPECT_EQ(p.ventana->windowTitle(), u"Buscar en todos los catálogos"_s);
                          EXPECT_EQ(p.ui.lbTituloBusqueda->text(), u"Artículo b-10"_s);
                          EXPECT_EQ(titulos(p), "Catálogo|Artículo|Descripción|Posición|Precio unitario");
                          EXPECT_EQ(codigos(p), "CAT OTRO");
                          EXPECT_EQ(textosDe(p.ui.Lst, 4).join(u' '), u"07.00000 12.25000"_s);
                          EXPECT_EQ(p.ui.lbCantidad->text(), u"2 artículos"_s);
                          EXPECT_EQ(QApplication::focusWidget(), p.ui.Lst);
                          tecla(Qt::Key_Down);
                          tecla(Qt::Key_Return);
                      }),
              "OTRO|B-10");
    EXPECT_FALSE(PantallaAbierta<FrmCatArticulosBuscar>());
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(PantallasDeArticulos, TheSearchAcrossCataloguesByPositionNarrowsByTheDescription) {
    EXPECT_EQ(enTodos(BusquedaEnCatalogos::Posicion, u"8413,"_s,
                      [](FrmCatArticulosBuscar &p) {
                          EXPECT_EQ(p.ui.lbTituloBusqueda->text(), u"Artículos de la posición 8413,"_s);
                          EXPECT_EQ(textosDe(p.ui.Lst, 1).join(u' '), u"B-10 B-20 T-20 B-10"_s);
                          // From the list, as in every list.
                          escribir(u"misma"_s);
                          EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtDescripcion);
                          hasta([&p] { return codigos(p) == "OTRO"; });
                          EXPECT_EQ(p.ui.lbCantidad->text(), u"1 de 4 artículos"_s);
                          tecla(Qt::Key_Return);
                      }),
              "OTRO|B-10");
    EXPECT_EQ(enTodos(BusquedaEnCatalogos::Posicion, u"8413."_s,
                      [](FrmCatArticulosBuscar &) { tecla(Qt::Key_Escape); }),
              "<nada>");
}

TEST_P(PantallasDeArticulos, ASearchAcrossCataloguesThatIsRefusedOrFindsNothingOpensNoScreen) {
    registro.textos = {u"8413"_s, u"NADA"_s};
    EXPECT_EQ(BuscarEnTodosLosCatalogos(BusquedaEnCatalogos::Posicion), std::nullopt);
    EXPECT_EQ(BuscarEnTodosLosCatalogos(BusquedaEnCatalogos::Articulo), std::nullopt);
    ASSERT_EQ(registro.mensajes.size(), 2U);
    EXPECT_EQ(registro.mensajes[0].texto, u"Ingrese al menos 5 caracteres"_s);
    EXPECT_EQ(registro.mensajes[1].texto,
              u"Ningún catálogo tiene el artículo NADA, revise el código completo."_s);
    EXPECT_FALSE(PantallaAbierta<FrmCatArticulosBuscar>());
}

}  // namespace
