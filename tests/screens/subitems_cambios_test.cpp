// Changing and deleting lines, the inputs link, and what the dashboard hides.

#include <gtest/gtest.h>

#include <QApplication>
#include <optional>

#include "frame/ui/Pantalla.h"
#include "subitems/FrmSufijos.h"
#include "tests/screens/subitems_pantalla.h"
#include "tests/support/claves.h"
#include "tests/support/insumos.h"

using namespace Qt::StringLiterals;

namespace {

class LineasCargadas : public EnLineas {
 protected:
    void conEnlace() {
        libreria.emplace();
        libreria->eleccion =
            insumos::Eleccion{u"INS01"_s, u"P-1"_s,  u"Bomba"_s, bomba,
                              u"07"_s,    u"10,5"_s, u"203"_s,   u"AA01-AB(X 1)-ZB(000750)-"_s};
        ejecutar("update caratula set idsubreg = 'EC02' where interno = 'OP 1'");
    }
    std::optional<LibreriaDeInsumos> libreria;
};

TEST_P(LineasCargadas, TheListShowsEveryLineAndTheTotals) {
    auto &pantalla = lineas(importacion);
    auto &ui = pantalla.ui;
    EXPECT_EQ(ui.LstArticulos->rowCount(), 25);
    EXPECT_EQ(celda(pantalla, 0, 0), "0001");
    EXPECT_EQ(celda(pantalla, 24, 0), "0025");
    EXPECT_EQ(celda(pantalla, 0, 1), "8413.70.10.100L");
    EXPECT_EQ(celda(pantalla, 0, 3), "24.00");
    EXPECT_EQ(celda(pantalla, 0, 5), "118.40000");
    EXPECT_EQ(celda(pantalla, 0, 8), "NP-0750");
    EXPECT_EQ(celda(pantalla, 0, 9), "NP-88120");
    EXPECT_EQ(ui.LbTotal->text(), u"35950.00"_s);
    EXPECT_EQ(ui.LbTotSubitems->text(), u"35950.00"_s);
    EXPECT_EQ(ui.lbDIF->text(), u"00.00"_s);
    EXPECT_EQ(ui.lbModo->text(), u"Línea nueva"_s);
}

TEST_P(LineasCargadas, F9EnterAndF11ChangeALine) {
    auto &pantalla = lineas(importacion);
    auto &ui = pantalla.ui;
    tecla(Qt::Key_F9);
    EXPECT_EQ(QApplication::focusWidget(), ui.LstArticulos);
    tecla(Qt::Key_Down);
    tecla(Qt::Key_Return);
    EXPECT_EQ(ui.lbModo->text(), u"Modifica la línea 0002"_s);
    EXPECT_EQ(ui.txtIdArticulo->text(), u"NP-1100"_s);
    EXPECT_FALSE(ui.txtIdArticulo->isEnabled()) << "a change writes no column of the article";
    EXPECT_EQ(QApplication::focusWidget(), ui.TxtDescArticulos);
    EXPECT_EQ(ui.TxtCodProrrateo->text(), u"EMB"_s);
    EXPECT_EQ(ui.TxtFobTotal->text(), u"2340.00"_s);
    EXPECT_EQ(ui.LbDescPais->text(), u"ALEMANIA"_s);
    llenar(ui.TxtFobTotal, u"2400"_s);
    tecla(Qt::Key_F11);
    EXPECT_EQ(ultimoMensaje(), "<ninguno>");
    // 2400 / 16
    EXPECT_EQ(filas("select preciounitario,fob,idarticulo,kgbruto from subitems where interno = "
                    "'IC-2026-0001' and idarticulo = 'NP-1100'")
                  .toStdString(),
              "150|2400|NP-1100|207.25");
    EXPECT_EQ(celda(pantalla, 1, 0), "0002");
    EXPECT_EQ(celda(pantalla, 1, 6), "2400.00");
    EXPECT_EQ(ui.LstArticulos->rowCount(), 25);
    // 35950 - 35950 - 60
    EXPECT_EQ(ui.lbDIF->text(), u"-60.00"_s);
    EXPECT_EQ(ui.lbModo->text(), u"Línea nueva"_s);
    EXPECT_TRUE(ui.txtIdArticulo->isEnabled());
}

TEST_P(LineasCargadas, WalkingOverALineWithEnterChangesNothingOfIt) {
    auto &pantalla = lineas(importacion);
    auto &ui = pantalla.ui;
    tecla(Qt::Key_F9);
    tecla(Qt::Key_Return);
    QStringList antes;
    const auto campos = ui.cuerpo_FrmSubItems->findChildren<QLineEdit *>();
    const auto anotar = [&](QStringList &textos) {
        // A position without a specific duty has no quantity in its unit: the stored zero goes empty.
        for (const QLineEdit *campo : campos)
            if (campo != ui.TxtDerEsp) textos << campo->objectName() + QLatin1Char('=') + campo->text();
    };
    anotar(antes);
    for (int n = 0; n < 60 && QApplication::focusWidget() != ui.cmdGrabar; ++n)
        tecla(QApplication::focusWidget() == ui.txtDescripcionMaria ? Qt::Key_Tab : Qt::Key_Return);
    QStringList despues;
    anotar(despues);
    EXPECT_EQ(despues.join(QLatin1Char('\n')).toStdString(), antes.join(QLatin1Char('\n')).toStdString());
    EXPECT_EQ(QApplication::focusWidget(), ui.cmdGrabar);
    tecla(Qt::Key_Return);
    EXPECT_EQ(ultimoMensaje(), "<ninguno>");
    EXPECT_EQ(ui.lbModo->text(), u"Línea nueva"_s) << "ENTER on the button saves";
}

TEST_P(LineasCargadas, InsertLeavesTheChangeForANewLine) {
    auto &pantalla = lineas(importacion);
    auto &ui = pantalla.ui;
    tecla(Qt::Key_F9);
    tecla(Qt::Key_Return);
    tecla(Qt::Key_Insert);
    EXPECT_EQ(ui.lbModo->text(), u"Línea nueva"_s);
    EXPECT_EQ(ui.TxtPosicion->text(), QString());
    EXPECT_EQ(QApplication::focusWidget(), ui.TxtIdCatalogo);
    EXPECT_EQ(cuantas(importacion), 25);
}

// A suffix "SIN SUFIJOS" passes ModificarSubItems.
TEST_P(LineasCargadas, ALineWithoutSuffixesPassesAChange) {
    auto &pantalla = lineas();
    auto &ui = pantalla.ui;
    teclearHortalizas(pantalla);
    tecla(Qt::Key_F11);
    tecla(Qt::Key_F9);
    tecla(Qt::Key_Return);
    EXPECT_EQ(ui.txtSufijos->text(), u"SIN SUFIJOS"_s);
    llenar(ui.TxtFobTotal, u"150"_s);
    tecla(Qt::Key_F11);
    EXPECT_EQ(ultimoMensaje(), sinSufijos);
    EXPECT_EQ(linea("fob,preciounitario,sufijos"), "150|30|SIN SUFIJOS");
}

TEST_P(LineasCargadas, DeleteAsksAndTakesTheLineInHand) {
    auto &pantalla = lineas(importacion);
    auto &ui = pantalla.ui;
    tecla(Qt::Key_F9);
    tecla(Qt::Key_Home);
    tecla(Qt::Key_Delete);
    ASSERT_EQ(registro.preguntas.size(), 1U);
    EXPECT_EQ(registro.preguntas[0].texto, u"Confirma eliminar SUBITEM seleccinado."_s);
    EXPECT_EQ(cuantas(importacion), 25) << "No keeps it";
    registro.respuestas = {true};
    tecla(Qt::Key_Delete);
    EXPECT_EQ(cuantas(importacion), 24);
    EXPECT_EQ(ui.LstArticulos->rowCount(), 24);
    EXPECT_EQ(celda(pantalla, 0, 8), "NP-1100");
    EXPECT_EQ(celda(pantalla, 0, 0), "0001") << "the lines are numbered again";
    EXPECT_EQ(ui.lbDIF->text(), u"2841.60"_s);
    EXPECT_EQ(QApplication::focusWidget(), ui.LstArticulos);
}

TEST_P(LineasCargadas, DeletingTheLineInChangeGoesBackToANewOne) {
    auto &pantalla = lineas(importacion);
    tecla(Qt::Key_F9);
    tecla(Qt::Key_Return);
    tecla(Qt::Key_F9);
    registro.respuestas = {true};
    tecla(Qt::Key_Delete);
    EXPECT_EQ(pantalla.ui.lbModo->text(), u"Línea nueva"_s);
    EXPECT_EQ(pantalla.ui.TxtPosicion->text(), QString());
}

TEST_P(LineasCargadas, SpaceChecksLinesAndDeleteTakesThemAllAfterOneQuestion) {
    auto &pantalla = lineas(importacion);
    auto &ui = pantalla.ui;
    tecla(Qt::Key_F9);
    tecla(Qt::Key_Space);
    tecla(Qt::Key_Down);
    tecla(Qt::Key_Down);
    tecla(Qt::Key_Space);
    tecla(Qt::Key_End);
    registro.respuestas = {true};
    tecla(Qt::Key_Delete);
    ASSERT_EQ(registro.preguntas.size(), 1U);
    EXPECT_EQ(registro.preguntas[0].texto, u"Confirma eliminar el o los subitems seleccionado"_s);
    EXPECT_EQ(cuantas(importacion), 23);
    EXPECT_EQ(ui.LstArticulos->rowCount(), 23);
    EXPECT_EQ(celda(pantalla, 0, 8), "NP-1100") << "the first and the third are gone";
    // 35950 - 2841.60 - 2048.00
    EXPECT_EQ(ui.LbTotSubitems->text(), u"31060.40"_s);
    EXPECT_EQ(valor("select factura8 from caratula where interno = 'IC-2026-0001'"), u"S"_s);
}

TEST_P(LineasCargadas, ALineThatTookInputsStaysWhenTheLinkRefuses) {
    conEnlace();
    auto &pantalla = lineas();
    tecla(Qt::Key_F8);
    llenar(pantalla.ui.TxtCantidad, u"24"_s);
    llenar(pantalla.ui.TxtFobTotal, u"252"_s);
    tecla(Qt::Key_F11);
    EXPECT_EQ(linea("idcatalogo,idarticulo,insumostemp,cancelaciones"), "INS01|P-1|12.75|OK");
    libreria->acepta = false;
    registro.respuestas = {true};
    tecla(Qt::Key_F9);
    tecla(Qt::Key_Delete);
    EXPECT_EQ(ultimoMensaje(), "Error en eliminar la relacion con insumos");
    EXPECT_EQ(cuantas(), 1);
    EXPECT_EQ(pantalla.ui.LstArticulos->rowCount(), 1);
}

TEST_P(LineasCargadas, TheNoOfTheLinkAmongManyCheckedLinesStopsThere) {
    conEnlace();
    auto &pantalla = lineas();
    auto &ui = pantalla.ui;
    for (int n = 0; n < 3; ++n) {
        tecla(Qt::Key_F8);
        llenar(ui.TxtCantidad, u"24"_s);
        llenar(ui.TxtFobTotal, u"252"_s);
        tecla(Qt::Key_F11);
    }
    ASSERT_EQ(ultimoMensaje(), "<ninguno>");
    ejecutar("update caratula set factura8 = 'N' where interno = 'OP 1'");
    const QStringList ids = filas("select id from subitems where interno = 'OP 1' order by id").split(u'\n');
    ASSERT_EQ(ids.size(), 3);
    libreria->retenidas = {ids[1].toLongLong()};
    tecla(Qt::Key_F9);
    tecla(Qt::Key_Home);
    for (int n = 0; n < 3; ++n) {
        tecla(Qt::Key_Space);
        tecla(Qt::Key_Down);
    }
    registro.respuestas = {true};
    tecla(Qt::Key_Delete);
    EXPECT_EQ(ultimoMensaje(), "Error en eliminar la relacion con insumos");
    EXPECT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(linea("id"), ids[1].toStdString() + "\n" + ids[2].toStdString());
    EXPECT_EQ(ui.LstArticulos->rowCount(), 2);
    // Two of 252 stay.
    EXPECT_EQ(ui.LbTotSubitems->text(), u"504.00"_s);
    EXPECT_EQ(valor("select factura8 from caratula where interno = 'OP 1'"), u"S"_s);
}

// On an inputs regime, an insert that the link refuses leaves no row, and the user sees no separate message.
TEST_P(LineasCargadas, ALineThatTheLinkRefusesLeavesNoRowAndNoMessage) {
    conEnlace();
    libreria->acepta = false;
    auto &pantalla = lineas();
    auto &ui = pantalla.ui;
    EXPECT_TRUE(ui.cmdInsumos->isVisible());
    tecla(Qt::Key_F8);
    EXPECT_EQ(ui.txtIdArticulo->text(), u"P-1"_s);
    EXPECT_FALSE(ui.txtIdArticulo->isEnabled());
    EXPECT_EQ(ui.LbDescPais->text(), u"BRASIL"_s);
    EXPECT_EQ(QApplication::focusWidget(), ui.TxtCantidad);
    llenar(ui.TxtCantidad, u"24"_s);
    llenar(ui.TxtFobTotal, u"252"_s);
    tecla(Qt::Key_F11);
    EXPECT_EQ(cuantas(), 0);
    EXPECT_EQ(ui.LstArticulos->rowCount(), 0);
    EXPECT_EQ(ultimoMensaje(), "<ninguno>");
    EXPECT_EQ(ui.TxtCantidad->text(), u"24"_s) << "the line is still there to be mended";
}

TEST_P(LineasCargadas, WithoutTheLinkF8DoesNothing) {
    auto &pantalla = lineas();
    EXPECT_FALSE(pantalla.ui.cmdInsumos->isVisible());
    tecla(Qt::Key_F8);
    EXPECT_EQ(pantalla.ui.txtIdArticulo->text(), QString());
    EXPECT_EQ(ultimoMensaje(), "<ninguno>");
}

TEST_P(LineasCargadas, EachFlagOfTheDashboardHidesItsBlock) {
    struct Caso {
        const char *bandera;
        std::vector<const char *> controles;
    };
    const std::array<Caso, 8> casos{
        {{"catalogues", {"TxtIdCatalogo", "txtIdArticulo", "LbDescCatalogo"}},
         {"statistical quantity", {"TxtValorsobreestadistica"}},
         {"origin", {"TxtIdpais", "rotuloPais"}},
         {"condition", {"TxtIdEstadoMercaderia", "rotuloEstado"}},
         {"proration", {"TxtCodProrrateo", "rotuloCodProrrateo"}},
         {"capital goods", {"cboBiendeUso", "rotuloBiendeUso"}},
         {"kilos", {"txtKgUnitario", "TxtKgNeto", "TxtKgBruto"}},
         {"cancellations", {"TxtCanelaciones", "TxtCancCantidad", "txtNroItem", "TxtNroSubitem"}}}};
    for (std::size_t oculto = 0; oculto < casos.size(); ++oculto) {
        std::array<int, 8> banderas{1, 1, 1, 1, 1, 1, 1, 1};
        banderas.at(oculto) = 0;
        auto &pantalla = lineas(importacion, banderas);
        for (std::size_t n = 0; n < casos.size(); ++n)
            for (const char *control : casos.at(n).controles)
                EXPECT_EQ(pantalla.ventana->findChild<QWidget *>(QLatin1String(control))->isVisible(),
                          n != oculto)
                    << control << " without " << casos.at(oculto).bandera;
        tecla(Qt::Key_Escape);
    }
}

TEST_P(LineasCargadas, WithoutCataloguesTheFirstFieldIsTheDescriptionAndAfterASaveThePosition) {
    auto &pantalla = lineas(u"OP 1"_s, {0, 1, 1, 1, 1, 1, 1, 1});
    EXPECT_EQ(QApplication::focusWidget(), pantalla.ui.TxtDescArticulos);
    nuevaBomba(pantalla);
    EXPECT_EQ(QApplication::focusWidget(), pantalla.ui.TxtPosicion);
}

TEST_P(LineasCargadas, F7ShowsTheSuffixesOfTheLine) {
    auto &pantalla = lineas(importacion);
    tecla(Qt::Key_F9);
    tecla(Qt::Key_Return);
    QStringList visto;
    conPantallaModal<FrmSufijos>([&](FrmSufijos &sufijos) {
        for (int fila = 0; fila < sufijos.ui.Grid2->rowCount(); ++fila)
            visto << sufijos.ui.Grid2->item(fila, 0)->text();
        tecla(Qt::Key_Escape);
    });
    tecla(Qt::Key_F7);
    EXPECT_EQ(visto.join(QLatin1Char(' ')).toStdString(), "AA01 AB(NORDPUMPEN NP 0750) ZB(000750)");
    EXPECT_EQ(pantalla.ui.lbModo->text(), u"Modifica la línea 0001"_s);
}

TEST_P(LineasCargadas, ALineThatAnotherWorkstationDeletedIsTold) {
    auto &pantalla = lineas(importacion);
    ejecutar("delete from subitems where interno = 'IC-2026-0001' and idarticulo = 'NP-0750'");
    tecla(Qt::Key_F9);
    tecla(Qt::Key_Return);
    EXPECT_EQ(ultimoMensaje(), "El subitem ya no está en la operación, otro puesto lo eliminó.");
    EXPECT_EQ(pantalla.ui.LstArticulos->rowCount(), cuantas(importacion));
    EXPECT_EQ(pantalla.ui.lbModo->text(), u"Línea nueva"_s);
}

// Pictures, and the order of TAB.

TEST_P(LineasCargadas, PictureOfAnImport) {
    auto &pantalla = lineas(importacion);
    tecla(Qt::Key_F9);
    tecla(Qt::Key_Down);
    tecla(Qt::Key_Down);
    tecla(Qt::Key_Return);
    llenarYSeguir(pantalla.ui.TxtPosicion, pantalla.ui.TxtPosicion->text());
    foto(pantalla.ventana.get(), u"subitems-importacion"_s);
}

TEST_P(LineasCargadas, PictureOfAnExport) {
    auto &pantalla = lineas(u"EC-2026-0002"_s);
    auto &ui = pantalla.ui;
    llenarYSeguir(ui.TxtIdCatalogo, u"PIEDRACH"_s);
    llenarYSeguir(ui.txtIdArticulo, u"MALB23"_s);
    llenarYSeguir(ui.TxtCantidad, u"750"_s);
    foto(pantalla.ventana.get(), u"subitems-exportacion"_s);
}

TEST_P(LineasCargadas, PictureWithEveryBlockHidden) {
    auto &pantalla = lineas(importacion, {0, 0, 0, 0, 0, 0, 0, 0});
    foto(pantalla.ventana.get(), u"subitems-minimo"_s);
}

TEST_P(LineasCargadas, TabFollowsTheOrderOfTheWork) {
    auto &pantalla = lineas(u"EC-2026-0002"_s);
    EXPECT_EQ(
        ordenDeTab(pantalla.ventana.get()).join(QLatin1Char(' ')).toStdString(),
        "TxtIdCatalogo txtIdArticulo TxtDescArticulos txtDescripcionMaria txtOtros TxtPosicion TxtUnidad "
        "TxtCantidad TxtFobTotal txtKgUnitario TxtKgNeto TxtKgBruto TxtValorsobreestadistica TxtIdpais "
        "txtIdPaisProc TxtIdEstadoMercaderia cboBiendeUso TxtCodProrrateo txtSufijos TxtNaladisa "
        "TxtCodigoEAN TxtFiller txtCertOrig TxtInsumosTemp TxtInsumCons TxtCanelaciones TxtCancCantidad "
        "txtNroItem TxtNroSubitem cmdGrabar LstArticulos cmdEliminar cmdVerSufijos cmdListas cmdNuevo");
}

EN_AMBOS_STORES(LineasCargadas);

}  // namespace
