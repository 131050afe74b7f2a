// The menu of the lines by keyboard: filters of the list, and changes of all lines.

#include <gtest/gtest.h>

#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <set>

#include "header/automotive.h"
#include "tests/screens/subitems_pantalla.h"
#include "tests/support/claves.h"

using namespace Qt::StringLiterals;

namespace {

class FiltrosEnPantalla : public EnLineas {
 protected:
    void SetUp() override {
        EnLineas::SetUp();
        ejecutar(u"update caratula set factura8 = 'N' where interno = 'IC-2026-0001'"_s);
        ejecutar(
            u"update subitems set idpais = '' where interno = 'IC-2026-0001' and idarticulo in "
            "('NP-1100','NP-4000')"_s);
    }
    static std::string lista(const FrmSubItems &pantalla) {
        QStringList todas;
        for (int fila = 0; fila < pantalla.ui.LstArticulos->rowCount(); ++fila)
            todas << QString::fromStdString(celda(pantalla, fila, 0) + " " + celda(pantalla, fila, 8));
        return todas.join(u", "_s).toStdString();
    }
};

TEST_P(FiltrosEnPantalla, F10OpensTheMenuOnTheFilterThatIsOnAndEscapeGoesBackToTheField) {
    auto &pantalla = lineas(importacion);
    auto &ui = pantalla.ui;
    EXPECT_FALSE(ui.lbFiltro->isVisible());
    EXPECT_EQ(ui.lbFiltroCual->text(), QString());
    irA(ui.TxtPosicion);
    escribir(u"84"_s);
    tecla(Qt::Key_F10);
    const auto *abierto = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    ASSERT_NE(abierto, nullptr);
    ASSERT_NE(abierto->activeAction(), nullptr);
    EXPECT_EQ(abierto->activeAction()->text(), u"&Todas las líneas"_s);
    EXPECT_TRUE(abierto->activeAction()->isChecked());
    tecla(Qt::Key_Escape);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    tecla(Qt::Key_Escape);
    ASSERT_TRUE(pantalla.ventana->isVisible());
    EXPECT_EQ(QApplication::focusWidget(), ui.TxtPosicion);
    EXPECT_EQ(ui.TxtPosicion->text(), u"84"_s);
    EXPECT_EQ(ui.LstArticulos->rowCount(), 25);
}

TEST_P(FiltrosEnPantalla, AFilterNarrowsTheListMarksTheScreenAndTakesTheKeyboardThere) {
    auto &pantalla = lineas(importacion);
    auto &ui = pantalla.ui;
    irA(ui.TxtPosicion);
    menu(0, Qt::Key_G);
    EXPECT_EQ(lista(pantalla), "0002 NP-1100, 0003 NP-4000") << "each keeps its number";
    EXPECT_TRUE(ui.lbFiltro->isVisible());
    EXPECT_EQ(ui.lbFiltro->text(), u"Filtro Activado"_s);
    EXPECT_EQ(ui.lbFiltroCual->text(), u"Sin país de origen (2 líneas)"_s);
    EXPECT_EQ(ui.LbTotSubitems->text(), u"35950.00"_s) << "the totals are the operation's";
    EXPECT_EQ(QApplication::focusWidget(), ui.LstArticulos);
    EXPECT_EQ(ui.LstArticulos->currentRow(), 0);
    tecla(Qt::Key_F9);
    EXPECT_EQ(QApplication::focusWidget(), ui.TxtPosicion);
    // The menu opens on the filter that is on; "Todas las líneas" takes it off.
    tecla(Qt::Key_F10);
    EXPECT_EQ(qobject_cast<QMenu *>(QApplication::activePopupWidget())->activeAction()->text(),
              u"Sin país de ori&gen"_s);
    tecla(Qt::Key_T);
    EXPECT_EQ(ui.LstArticulos->rowCount(), 25);
    EXPECT_FALSE(ui.lbFiltro->isVisible());
    EXPECT_EQ(ui.lbFiltroCual->text(), QString());
    EXPECT_EQ(QApplication::focusWidget(), ui.TxtPosicion);
    EXPECT_TRUE(registro.mensajes.empty());
    EXPECT_EQ(valor(u"select factura8 from caratula where interno = 'IC-2026-0001'"_s), u"N"_s)
        << "looking changes nothing";
}

TEST_P(FiltrosEnPantalla, EveryEntryOfTheMenuIsReachedByItsOwnLetter) {
    auto &pantalla = lineas(importacion);
    ASSERT_EQ(pantalla.ui.barraDeMenu->actions().size(), 2);
    for (const QAction *titulo : pantalla.ui.barraDeMenu->actions()) {
        std::set<QChar> letras;
        int entradas = 0;
        for (const QAction *entrada : titulo->menu()->actions()) {
            if (entrada->isSeparator()) continue;
            ++entradas;
            const qsizetype marca = entrada->text().indexOf(u'&');
            ASSERT_GE(marca, 0) << entrada->text().toStdString();
            EXPECT_TRUE(letras.insert(entrada->text().at(marca + 1).toUpper()).second)
                << entrada->text().toStdString();
        }
        EXPECT_EQ(entradas, titulo->menu()->objectName() == "mnuFiltros"_L1 ? 18 : 7);
    }
}

TEST_P(FiltrosEnPantalla, AFilterWithAValueAsksOnceAndAnEmptyAnswerShowsAllLinesAgain) {
    auto &pantalla = lineas(importacion);
    auto &ui = pantalla.ui;
    registro.textos = {u"8413.70.10.2"_s};
    menu(0, Qt::Key_P);
    ASSERT_EQ(registro.entradas.size(), 1U);
    EXPECT_EQ(registro.entradas[0].texto,
              u"Ingrese la posición arancelaria (completa o incompleta) a buscar:"_s);
    EXPECT_EQ(registro.entradas[0].titulo, u"Filtro por Posición ..."_s);
    EXPECT_EQ(lista(pantalla), "0003 NP-4000");
    EXPECT_EQ(ui.lbFiltroCual->text(), u"Por posición arancelaria: 8413.70.10.2 (1 línea)"_s);
    // What is done with the line asks for nothing again.
    tecla(Qt::Key_Return);
    llenar(ui.TxtFobTotal, u"2052"_s);
    tecla(Qt::Key_F11);
    EXPECT_EQ(ultimoMensaje(), "<ninguno>");
    EXPECT_EQ(registro.entradas.size(), 1U);
    EXPECT_EQ(celda(pantalla, 0, 6), "2052.00");
    registro.textos = {std::nullopt};
    menu(0, Qt::Key_P);
    EXPECT_EQ(registro.entradas.back().inicial, u"8413.70.10.2"_s);
    EXPECT_EQ(ui.LstArticulos->rowCount(), 25);
    EXPECT_FALSE(ui.lbFiltro->isVisible());
    tecla(Qt::Key_F10);
    EXPECT_EQ(qobject_cast<QMenu *>(QApplication::activePopupWidget())->activeAction()->text(),
              u"&Todas las líneas"_s);
    tecla(Qt::Key_Escape);
}

TEST_P(FiltrosEnPantalla, AFilterWithoutLinesLeavesTheKeyboardWhereItWas) {
    auto &pantalla = lineas(importacion);
    auto &ui = pantalla.ui;
    irA(ui.TxtCantidad);
    registro.textos = {u"no está"_s};
    menu(0, Qt::Key_D);
    EXPECT_EQ(ui.LstArticulos->rowCount(), 0);
    EXPECT_EQ(ui.lbFiltroCual->text(), u"Por descripción del artículo: no está (0 líneas)"_s);
    EXPECT_EQ(QApplication::focusWidget(), ui.TxtCantidad);
    nuevaBomba(pantalla);
    EXPECT_EQ(ui.LstArticulos->rowCount(), 0) << "a new line is not of the filter by being new";
    EXPECT_EQ(cuantas(importacion), 26);
    menu(0, Qt::Key_T);
    EXPECT_EQ(celda(pantalla, 25, 0), "0026");
}

TEST_P(FiltrosEnPantalla, ALineThatIsMendedLeavesTheFilterThatFoundIt) {
    auto &pantalla = lineas(importacion);
    auto &ui = pantalla.ui;
    menu(0, Qt::Key_G);
    tecla(Qt::Key_Down);
    tecla(Qt::Key_Return);
    EXPECT_EQ(ui.lbModo->text(), u"Modifica la línea 0003"_s);
    llenarYSeguir(ui.TxtIdpais, u"438"_s);
    tecla(Qt::Key_F11);
    EXPECT_EQ(ultimoMensaje(), "<ninguno>");
    EXPECT_EQ(lista(pantalla), "0002 NP-1100");
    EXPECT_EQ(ui.lbFiltroCual->text(), u"Sin país de origen (1 línea)"_s);
    EXPECT_EQ(ui.lbModo->text(), u"Línea nueva"_s);
}

TEST_P(FiltrosEnPantalla, TheLineInHandKeepsItsNumberWhenAFilterHidesIt) {
    auto &pantalla = lineas(importacion);
    auto &ui = pantalla.ui;
    tecla(Qt::Key_F9);
    tecla(Qt::Key_End);
    tecla(Qt::Key_Return);
    EXPECT_EQ(ui.lbModo->text(), u"Modifica la línea 0025"_s);
    menu(0, Qt::Key_G);
    EXPECT_EQ(ui.lbModo->text(), u"Modifica la línea 0025"_s);
    registro.respuestas = {true};
    tecla(Qt::Key_Delete);
    EXPECT_EQ(lista(pantalla), "0002 NP-4000");
    EXPECT_EQ(ui.lbModo->text(), u"Modifica la línea 0024"_s) << "one ahead of it is gone";
    const QString fob = ui.TxtFobTotal->text();
    llenar(ui.TxtFobTotal, u"99"_s);
    tecla(Qt::Key_F11);
    EXPECT_EQ(ultimoMensaje(), "<ninguno>");
    EXPECT_NE(fob, u"99.00"_s);
    EXPECT_EQ(linea("fob", importacion).substr(linea("fob", importacion).rfind('\n') + 1), "99");
}

TEST_P(FiltrosEnPantalla, WhatIsCheckedAndNotSeenIsNotDeleted) {
    auto &pantalla = lineas(importacion);
    tecla(Qt::Key_F9);
    tecla(Qt::Key_Space);  // 0001
    tecla(Qt::Key_Down);
    tecla(Qt::Key_Space);  // 0002
    menu(0, Qt::Key_G);
    EXPECT_EQ(pantalla.ui.LstArticulos->item(0, 0)->checkState(), Qt::Checked) << "0002 is seen";
    registro.respuestas = {true};
    tecla(Qt::Key_Delete);
    EXPECT_EQ(registro.preguntas.back().texto, u"Confirma eliminar el o los subitems seleccionado"_s);
    EXPECT_EQ(cuantas(importacion), 24);
    EXPECT_EQ(lista(pantalla), "0002 NP-4000");
    menu(0, Qt::Key_T);
    EXPECT_EQ(celda(pantalla, 0, 8), "NP-0750");
    EXPECT_EQ(pantalla.ui.LstArticulos->item(0, 0)->checkState(), Qt::Unchecked);
}

TEST_P(FiltrosEnPantalla, AnotherOperationOpensWithoutTheFilterOfTheOneBefore) {
    lineas(importacion);
    menu(0, Qt::Key_G);
    tecla(Qt::Key_Escape);
    auto &pantalla = lineas(exportacion);
    EXPECT_FALSE(pantalla.ui.lbFiltro->isVisible());
    EXPECT_EQ(pantalla.ui.LstArticulos->rowCount(), cuantas(exportacion));
}

TEST_P(FiltrosEnPantalla, AFilterThatTheStoreCannotReadLeavesTheOneThatIsOn) {
    auto &pantalla = lineas(importacion);
    menu(0, Qt::Key_G);
    const QString nombre = QLatin1String(GetParam()) == "SQL"_L1 ? u"ncm.ncm"_s : u"ncm"_s;
    ejecutar(u"alter table %1 rename to otra"_s.arg(nombre), u"NCM"_s);
    menu(0, Qt::Key_R);
    EXPECT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(lista(pantalla), "0002 NP-1100, 0003 NP-4000");
    EXPECT_EQ(pantalla.ui.lbFiltroCual->text(), u"Sin país de origen (2 líneas)"_s);
    tecla(Qt::Key_F10);
    EXPECT_EQ(qobject_cast<QMenu *>(QApplication::activePopupWidget())->activeAction()->text(),
              u"Sin país de ori&gen"_s);
    tecla(Qt::Key_Escape);
}

TEST_P(FiltrosEnPantalla, AChangeOfAllLinesAsksAndReloadsTheList) {
    auto &pantalla = lineas(importacion);
    auto &ui = pantalla.ui;
    GuardarAEC(*ctx, importacion, u"S"_s);
    irA(ui.TxtCantidad);
    menu(1, Qt::Key_K);
    ASSERT_EQ(registro.preguntas.size(), 1U);
    EXPECT_EQ(registro.preguntas[0].texto,
              u"CONFIRMA DEJAR EN 0 (cero), KG NETO, ESTADISTICA, ESPECIFICO en todos los subitems"_s);
    EXPECT_EQ(celda(pantalla, 2, 4), "154.00") << "No leaves them";
    EXPECT_EQ(LeerAEC(*ctx, importacion), u"S"_s);
    registro.respuestas = {true};
    menu(1, Qt::Key_K);
    for (int fila = 0; fila < 25; ++fila) EXPECT_EQ(celda(pantalla, fila, 4), "00.00");
    EXPECT_EQ(QApplication::focusWidget(), ui.TxtCantidad);
    EXPECT_EQ(valor(u"select factura8 from caratula where interno = 'IC-2026-0001'"_s), u"S"_s);
    EXPECT_EQ(LeerAEC(*ctx, importacion), QString());
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(FiltrosEnPantalla, AValueForAllLinesMendsThoseOfTheFilterAndTheLineInHand) {
    auto &pantalla = lineas(importacion);
    auto &ui = pantalla.ui;
    menu(0, Qt::Key_G);
    tecla(Qt::Key_Return);
    EXPECT_EQ(ui.TxtIdpais->text(), QString());
    llenar(ui.TxtDescArticulos, u"a medio escribir"_s);
    registro.textos = {u"203"_s};
    menu(1, Qt::Key_O);
    EXPECT_EQ(registro.entradas.back().titulo, u"Establecer País De Origen"_s);
    EXPECT_EQ(registro.entradas.back().texto,
              u"Ingrese el valor (código) de País De Origen para todos los subitems:"_s);
    EXPECT_EQ(ui.LstArticulos->rowCount(), 0) << "none is without a country now";
    EXPECT_EQ(ui.TxtIdpais->text(), u"203"_s);
    EXPECT_EQ(ui.LbDescPais->text(), u"BRASIL"_s);
    EXPECT_EQ(ui.TxtDescArticulos->text(), u"a medio escribir"_s);
    EXPECT_EQ(ui.lbModo->text(), u"Modifica la línea 0002"_s);
    EXPECT_EQ(QApplication::focusWidget(), ui.TxtDescArticulos);
    EXPECT_EQ(
        valor(u"select count(*) as n from subitems where interno = 'IC-2026-0001' and idpais = '203'"_s),
        u"25"_s);
}

EN_AMBOS_STORES(FiltrosEnPantalla);

}  // namespace
