// Keying new lines.

#include <gtest/gtest.h>

#include <QApplication>
#include <QTreeView>

#include "frame/ui/Pantalla.h"
#include "header/FrmLstProrrateo.h"
#include "header/automotive.h"
#include "operations/FrmDetalleInterno.h"
#include "subitems/FrmCatArticulos.h"
#include "subitems/FrmPosicion.h"
#include "subitems/FrmbArticulos.h"
#include "tests/screens/subitems_pantalla.h"

using namespace Qt::StringLiterals;

namespace {

class LineasNuevas : public EnLineas {
 protected:
    QString cargaPor() const { return ctx->ajustes.Leer(u"ZENDRA"_s, u"FLAGS"_s, u"CARGASBTPOR"_s); }
    void elegirCargaPor(const char *modo) {
        ctx->ajustes.Guardar(u"ZENDRA"_s, u"FLAGS"_s, u"CARGASBTPOR"_s, QLatin1String(modo));
    }
};

TEST_P(LineasNuevas, TheDashboardOpensThemAndIsFreshWhenTheyAreLeft) {
    ejecutar("delete from subitems where interno = 'IC-2026-0001'");
    auto &tablero = abrir(u"IC-2026-0001"_s);
    EXPECT_EQ(tablero.ui.LbSubItem->text(), u"0"_s);
    teclaEn(tablero.ui.CkFlag_6, Qt::Key_Space);
    teclaEn(tablero.ui.CmdSubItems, Qt::Key_Space);
    ASSERT_TRUE(PantallaAbierta<FrmSubItems>());
    auto &pantalla = Pantalla<FrmSubItems>();
    esperarVentana(pantalla.ventana.get());
    EXPECT_EQ(pantalla.ventana->windowTitle(), u"Carga de subitems - Operación IC-2026-0001"_s);
    EXPECT_FALSE(pantalla.ui.framKilos->isVisible()) << "the flags of the dashboard as they stand";
    EXPECT_EQ(QApplication::focusWidget(), pantalla.ui.TxtIdCatalogo);
    nuevaBomba(pantalla);
    tecla(Qt::Key_Escape);
    EXPECT_FALSE(PantallaAbierta<FrmSubItems>());
    esperarVentana(tablero.ventana.get());
    EXPECT_EQ(tablero.ui.LbEstadoSubItem->text(), u"INCOMPLETO"_s);
    EXPECT_TRUE(registro.mensajes.empty()) << ultimoMensaje();
}

TEST_P(LineasNuevas, AnArticleOfTheCatalogueFillsTheLineAndF11WritesIt) {
    elegirCargaPor("U");
    auto &pantalla = lineas();
    auto &ui = pantalla.ui;
    EXPECT_EQ(QApplication::focusWidget(), ui.TxtIdCatalogo);
    escribir(u"HIDPLATA"_s);
    tecla(Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), ui.txtIdArticulo) << "ENTER moves on";
    escribir(u"NP-0750"_s);
    tecla(Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), ui.TxtDescArticulos);
    EXPECT_EQ(ui.LbDescCatalogo->text(), u"NP-0750 - Electrobomba sumergible 750 W"_s);
    EXPECT_EQ(ui.TxtPosicion->text(), bomba);
    EXPECT_EQ(ui.TxtUnitario->text(), u"118.40000"_s);
    EXPECT_EQ(ui.txtKgUnitario->text(), u"9.80"_s.rightJustified(5, QLatin1Char('0')));
    EXPECT_EQ(ui.LbCodigoEstadistica->text(), u"07"_s);
    EXPECT_EQ(ui.LbDescPais->text(), u"ALEMANIA"_s);
    llenarYSeguir(ui.TxtCantidad, u"24"_s);
    EXPECT_EQ(ui.TxtFobTotal->text(), u"2841.60"_s);
    EXPECT_EQ(ui.TxtValorsobreestadistica->text(), u"24.00"_s);
    llenarYSeguir(ui.TxtKgBruto, u"251.67"_s);
    tecla(Qt::Key_F11);
    EXPECT_EQ(ultimoMensaje(), "<ninguno>");
    EXPECT_EQ(linea("idcatalogo,idarticulo,ncm,idunidad,cantidad,preciounitario,fob,estadistica,"
                    "valorrelacionestadistica,idpais,idpaisproc,estadomerc,sufijos,biendeuso,kgbruto"),
              "HIDPLATA|NP-0750|8413.70.10.100L|07|24|118.4|2841.6|07|24|438|438|2|"
              "AA01-AB(NORDPUMPEN NP 0750)-ZB(000750)-|N|251.67");
    // 3000 - 2841.60
    EXPECT_EQ(ui.LbTotal->text(), u"3000.00"_s);
    EXPECT_EQ(ui.LbTotSubitems->text(), u"2841.60"_s);
    EXPECT_EQ(ui.lbDIF->text(), u"158.40"_s);
    EXPECT_EQ(ui.LstArticulos->rowCount(), 1);
    EXPECT_EQ(celda(pantalla, 0, 0), "0001");
    EXPECT_EQ(celda(pantalla, 0, 6), "2841.60");
    EXPECT_EQ(ui.TxtIdCatalogo->text(), u"HIDPLATA"_s) << "the catalogue stays";
    EXPECT_EQ(ui.txtIdArticulo->text(), QString());
    EXPECT_EQ(ui.LbDescPais->text(), QString());
    EXPECT_EQ(QApplication::focusWidget(), ui.txtIdArticulo) << "ready for the next line";
}

TEST_P(LineasNuevas, F6ListsCataloguesArticlesPositionsUnitsAndCountries) {
    auto &pantalla = lineas();
    auto &ui = pantalla.ui;
    const auto elegir = [this](QWidget *campo, const QString &comienzo) {
        irA(campo);
        registro.elecciones.clear();
        ctx->dialogos.elegir = [this, comienzo](const Eleccion &e) {
            registro.elecciones.push_back(e);
            for (int n = 0; n < e.filas.size(); ++n)
                if (e.filas[n].trimmed().startsWith(comienzo)) return n;
            return -1;
        };
        tecla(Qt::Key_F6);
        EXPECT_EQ(registro.elecciones.size(), 1U) << campo->objectName().toStdString();
    };
    irA(ui.TxtIdCatalogo);
    conPantallaModal<FrmCatArticulos>([](FrmCatArticulos &catalogos) {
        const QTreeView *arbol = catalogos.ui.TvArticulos;
        for (int n = 0; n < 20 && !arbol->currentIndex().data().toString().startsWith("HIDPLATA"_L1); ++n)
            tecla(Qt::Key_Down);
        tecla(Qt::Key_Plus);
        tecla(Qt::Key_Down);
        tecla(Qt::Key_Return);
    });
    tecla(Qt::Key_F6);
    esperarVentana(pantalla.ventana.get());
    EXPECT_EQ(ui.TxtIdCatalogo->text(), u"HIDPLATA"_s);
    EXPECT_NE(ui.TxtDescArticulos->text(), QString()) << "the article that was taken there";
    irA(ui.txtIdArticulo);
    conPantallaModal<FrmbArticulos>([](FrmbArticulos &articulos) {
        EXPECT_EQ(articulos.ui.lbTituloArticulos->text(), u"Artículos de HIDPLATA"_s);
        escribir(u"NP-11"_s);
        tecla(Qt::Key_Return);
    });
    tecla(Qt::Key_F6);
    esperarVentana(pantalla.ventana.get());
    EXPECT_EQ(ui.TxtDescArticulos->text(), u"Electrobomba sumergible 1100 W"_s);
    llenarYSeguir(ui.TxtCantidad, u"2"_s);
    while (QApplication::focusWidget() != ui.TxtUnidad) tecla(Qt::Key_Backtab);
    EXPECT_EQ(ui.TxtValorsobreestadistica->text(), u"02.00"_s);
    elegir(ui.TxtUnidad, u"DOCENA"_s);
    EXPECT_EQ(ui.TxtUnidad->text(), u"09"_s);
    EXPECT_EQ(ui.LbDescUnidad->text(), u"DOCENA"_s);
    EXPECT_EQ(ui.TxtValorsobreestadistica->text(), u"24.00"_s) << "two dozens";
    elegir(ui.TxtIdpais, u"BRASIL"_s);
    EXPECT_EQ(ui.TxtIdpais->text(), u"203"_s);
    EXPECT_EQ(ui.LbDescPais->text(), u"BRASIL"_s);
}

TEST_P(LineasNuevas, F6OnThePositionTakesTheChoiceAndItsUnits) {
    auto &pantalla = lineas();
    auto &ui = pantalla.ui;
    llenar(ui.TxtPosicion, u"0402.21.10.190Y"_s);
    conPantallaModal<FrmPosicion>([this](FrmPosicion &busqueda) {
        EXPECT_EQ(busqueda.ui.TxtNcm->text(), u"0402.21.10"_s);
        EXPECT_EQ(busqueda.ui.LstNCM->currentItem()->text(), leche);
        tecla(Qt::Key_Return);
    });
    tecla(Qt::Key_F6);
    EXPECT_FALSE(PantallaAbierta<FrmPosicion>());
    EXPECT_EQ(ui.TxtPosicion->text(), leche);
    EXPECT_EQ(ui.LbCodigoEstadistica->text(), u"01"_s);
    EXPECT_EQ(ui.LbIdDerEsp->text(), u"01"_s);
    EXPECT_TRUE(ui.FramDerEsp->isEnabled());
    EXPECT_TRUE(ui.txtNCMDesc->toPlainText().contains(u"Posición NCM: 0402.21.10.110X"_s));
    esperarVentana(pantalla.ventana.get());
    conPantallaModal<FrmPosicion>([](FrmPosicion &) { tecla(Qt::Key_Escape); });
    tecla(Qt::Key_F6);
    EXPECT_EQ(ui.TxtPosicion->text(), leche) << "leaving the search changes nothing";
}

TEST_P(LineasNuevas, F6OnTheProrationCodeTakesItFromItsList) {
    auto &pantalla = lineas(u"IC-2026-0001"_s);
    irA(pantalla.ui.TxtCodProrrateo);
    conPantallaModal<FrmLstProrrateo>([](FrmLstProrrateo &) { tecla(Qt::Key_Return); });
    tecla(Qt::Key_F6);
    EXPECT_EQ(pantalla.ui.TxtCodProrrateo->text(), u"EMB"_s);
    EXPECT_FALSE(PantallaAbierta<FrmLstProrrateo>());
}

TEST_P(LineasNuevas, F6OnTheSuffixesAsksForThemAndGivingUpKeepsTheText) {
    auto &pantalla = lineas();
    auto &ui = pantalla.ui;
    llenarYSeguir(ui.TxtPosicion, bomba);
    irA(ui.txtSufijos);
    registro.indices = {2};  // none, AA01, AA02
    registro.textos = {u"Marca X"_s, u"750"_s};
    tecla(Qt::Key_F6);
    EXPECT_TRUE(ui.txtSufijos->text().startsWith(u"AA02-AB("_s)) << ui.txtSufijos->text().toStdString();
    const QString hechos = ui.txtSufijos->text();
    registro.indices = {-1};
    registro.respuestas = {true};
    tecla(Qt::Key_F6);
    EXPECT_EQ(ui.txtSufijos->text(), hechos);
}

TEST_P(LineasNuevas, APositionOfAWrongLengthOrNotKeptHoldsTheFocus) {
    auto &pantalla = lineas();
    auto &ui = pantalla.ui;
    llenarYSeguir(ui.TxtPosicion, u"8413.70"_s);
    EXPECT_EQ(ultimoMensaje(), "Longitud erronea del Posición");
    EXPECT_EQ(registro.mensajes.back().icono, Icono::Exclamacion);
    EXPECT_EQ(QApplication::focusWidget(), ui.TxtPosicion);
    escribir(u"1111.11.11.111A"_s);
    EXPECT_EQ(ui.TxtPosicion->text(), u"1111.11.11.111A"_s) << "the text was selected whole";
    tecla(Qt::Key_Return);
    EXPECT_EQ(ultimoMensaje(), "POSICIÓN INEXISTENTE, en el Nomenclador");
    EXPECT_EQ(QApplication::focusWidget(), ui.TxtPosicion);
}

// A line on a position with [020] empty and an old value on screen refuses to save until ENTER is pressed on
// the position.
TEST_P(LineasNuevas, AnOldSpecificUnitRefusesUntilEnterOnThePosition) {
    auto &pantalla = lineas();
    auto &ui = pantalla.ui;
    teclearHortalizas(pantalla);
    llenarYSeguir(ui.TxtPosicion, leche);
    EXPECT_EQ(ui.LbIdDerEsp->text(), u"01"_s);
    llenar(ui.TxtPosicion, hortaliza);
    tecla(Qt::Key_Tab);
    EXPECT_EQ(ui.LbIdDerEsp->text(), u"01"_s) << "TAB looks nothing up";
    tecla(Qt::Key_F11);
    EXPECT_EQ(ultimoMensaje(),
              "Esta posición no tiene Unidad del Derecho Especifico, pero en la pantalla tiene [ 01 ]\r\n"
              "Para refrescar las unidades del ncm presione ENTER en el campo posición");
    EXPECT_EQ(QApplication::focusWidget(), ui.TxtPosicion);
    EXPECT_EQ(cuantas(), 0);
    tecla(Qt::Key_Return);
    EXPECT_EQ(ui.LbIdDerEsp->text(), QString());
    EXPECT_FALSE(ui.FramDerEsp->isEnabled());
    registro.mensajes.clear();
    tecla(Qt::Key_F11);
    EXPECT_EQ(ultimoMensaje(), sinSufijos);
    EXPECT_EQ(linea("ncm,deresp"), "0709.60.00.000X|");
}

// Statistical unit "01" keys no statistical quantity: net kilos fill it.
TEST_P(LineasNuevas, KilogramsKeyNoStatisticalQuantity) {
    auto &pantalla = lineas();
    auto &ui = pantalla.ui;
    teclearHortalizas(pantalla);
    EXPECT_NE(QApplication::focusWidget(), ui.TxtValorsobreestadistica);
    EXPECT_EQ(QApplication::focusWidget(), ui.TxtIdpais) << "ENTER passes it by";
    EXPECT_EQ(ui.TxtValorsobreestadistica->text(), QString());
    tecla(Qt::Key_F11);
    EXPECT_EQ(ultimoMensaje(), sinSufijos);
    EXPECT_EQ(linea("estadistica,valorrelacionestadistica,kgneto,kgbruto,sufijos"),
              "01|40|40|45|SIN SUFIJOS");
    teclearBomba(pantalla);
    EXPECT_EQ(ui.TxtValorsobreestadistica->focusPolicy(), Qt::StrongFocus) << "units are keyed";
}

// Net kilos equal to gross kilos are refused.
TEST_P(LineasNuevas, EqualKilosAreRefusedWithTheFocusOnTheNetOnes) {
    auto &pantalla = lineas();
    teclearHortalizas(pantalla);
    llenar(pantalla.ui.TxtKgBruto, u"40"_s);
    tecla(Qt::Key_F11);
    EXPECT_EQ(ultimoMensaje(), "KG Neto debe ser Menor que KG Bruto");
    EXPECT_EQ(QApplication::focusWidget(), pantalla.ui.TxtKgNeto);
    EXPECT_EQ(cuantas(), 0);
}

TEST_P(LineasNuevas, ARefusedFieldTakesTheFocus) {
    auto &pantalla = lineas();
    auto &ui = pantalla.ui;
    const auto rechaza = [&](const char *texto, QWidget *foco) {
        registro.mensajes.clear();
        tecla(Qt::Key_F11);
        EXPECT_EQ(ultimoMensaje(), texto);
        EXPECT_EQ(QApplication::focusWidget(), foco) << texto;
    };
    rechaza("Falta unidad estadistica", ui.TxtPosicion);
    llenarYSeguir(ui.TxtPosicion, bomba);
    rechaza("Debe ingresar un valor mayor a cero en CANTIDA ESTADISTICA", ui.TxtValorsobreestadistica);
    llenar(ui.TxtValorsobreestadistica, u"24"_s);
    rechaza("Valor Invalido en CANTIDAD", ui.TxtCantidad);
    llenar(ui.TxtCantidad, u"20"_s);
    rechaza("Valor Invalido en PRECIO UNITARIO", ui.TxtFobTotal);
    llenar(ui.TxtFobTotal, u"10"_s);
    rechaza("Debe ingresar el Codigo de UNIDAD", ui.TxtUnidad);
    escribir(u"07"_s);
    EXPECT_EQ(ui.TxtValorsobreestadistica->text(), u"20.00"_s);
    llenar(ui.TxtValorsobreestadistica, u"24"_s);
    rechaza("La CANTIDAD DECLARADA ( 20 ) debe ser igual a CANTIDAD ESTADISTICA ( 24 )", ui.TxtCantidad);
    EXPECT_EQ(cuantas(), 0);
}

TEST_P(LineasNuevas, ByTheTotalThePriceFollowsAndByThePriceTheTotal) {
    auto &pantalla = lineas();
    auto &ui = pantalla.ui;
    EXPECT_TRUE(ui.opFobTotal->isChecked());
    EXPECT_FALSE(ui.TxtUnitario->isEnabled());
    llenarYSeguir(ui.TxtCantidad, u"3"_s);
    EXPECT_EQ(QApplication::focusWidget(), ui.TxtFobTotal) << "the field that does not lead is passed by";
    escribir(u"100"_s);
    EXPECT_EQ(ui.TxtUnitario->text(), u"33.33333"_s);
    tecla(Qt::Key_U, Qt::AltModifier);
    hasta([&ui] { return ui.opFobUnitario->isChecked(); });
    EXPECT_EQ(QApplication::focusWidget(), ui.TxtUnitario);
    EXPECT_FALSE(ui.TxtFobTotal->isEnabled());
    EXPECT_EQ(cargaPor(), u"U"_s);
    escribir(u"33.4"_s);
    EXPECT_EQ(ui.TxtFobTotal->text(), u"100.20"_s);
    tecla(Qt::Key_F, Qt::AltModifier);
    hasta([&ui] { return ui.opFobTotal->isChecked(); });
    EXPECT_TRUE(ui.TxtFobTotal->isEnabled());
    EXPECT_FALSE(ui.TxtUnitario->isEnabled());
    EXPECT_EQ(cargaPor(), u"F"_s);
}

TEST_P(LineasNuevas, WithoutTheOptionOfPricesBothFieldsAreOpen) {
    ctx->opciones.SbtFuncionCargaPor = false;
    auto &ui = lineas().ui;
    EXPECT_FALSE(ui.opFobTotal->isVisible());
    EXPECT_FALSE(ui.opFobUnitario->isVisible());
    EXPECT_TRUE(ui.TxtUnitario->isEnabled());
    EXPECT_TRUE(ui.TxtFobTotal->isEnabled());
}

TEST_P(LineasNuevas, LoadingMarksNothingAndATypedTextMarksTheOperation) {
    GuardarAEC(*ctx, u"OP 1"_s, u"P"_s);
    const auto marca = [this] { return valor("select factura8 from caratula where interno = 'OP 1'"); };
    auto &pantalla = lineas();
    EXPECT_EQ(marca(), u"N"_s);
    EXPECT_EQ(LeerAEC(*ctx, u"OP 1"_s), u"P"_s);
    llenar(pantalla.ui.txtOtros, u"a"_s);
    EXPECT_EQ(marca(), u"S"_s);
    EXPECT_EQ(LeerAEC(*ctx, u"OP 1"_s), QString());
    ejecutar("update caratula set factura8 = 'N'");
    llenar(pantalla.ui.txtDescripcionMaria, u"b"_s);
    EXPECT_EQ(marca(), u"S"_s) << "a box of several lines too";
    ejecutar("update caratula set factura8 = 'N'");
    tecla(Qt::Key_Escape);
    EXPECT_EQ(marca(), u"N"_s);
}

TEST_P(LineasNuevas, TheDescriptionForTheCustomsSystemTakesEnterAndIsStoredInOneLine) {
    auto &pantalla = lineas();
    auto &ui = pantalla.ui;
    llenarYSeguir(ui.txtDescripcionMaria, u"BOMBA"_s);
    EXPECT_EQ(QApplication::focusWidget(), ui.txtDescripcionMaria);
    escribir(u"DE O'HIGGINS"_s);
    teclearBomba(pantalla);
    tecla(Qt::Key_F11);
    EXPECT_EQ(linea("descripcion_maria"), "BOMBA DE O HIGGINS");
}

TEST_P(LineasNuevas, TheOptionsKeepTheArticleOrEveryText) {
    auto &pantalla = lineas();
    auto &ui = pantalla.ui;
    ctx->opciones.SbtMantDatos = true;
    llenar(ui.TxtIdpais, u"203"_s);
    nuevaBomba(pantalla);
    EXPECT_EQ(ui.TxtPosicion->text(), bomba);
    EXPECT_EQ(ui.TxtIdpais->text(), u"203"_s);
    ctx->opciones.SbtMantDatos = false;
    ctx->opciones.SbtMantCodart = true;
    llenar(ui.txtIdArticulo, u"B-1"_s);
    tecla(Qt::Key_F11);
    EXPECT_EQ(ultimoMensaje(), "<ninguno>");
    EXPECT_EQ(ui.txtIdArticulo->text(), u"B-1"_s);
    EXPECT_EQ(ui.TxtPosicion->text(), QString());
    EXPECT_EQ(cuantas(), 2);
}

TEST_P(LineasNuevas, InDescendingOrderTheNewLineStandsFirst) {
    ctx->opciones.SbtMostrarAsc = true;
    auto &pantalla = lineas();
    nuevaBomba(pantalla);
    teclearHortalizas(pantalla);
    tecla(Qt::Key_F11);
    EXPECT_EQ(celda(pantalla, 0, 0), "0002");
    EXPECT_EQ(celda(pantalla, 0, 1), "0709.60.00.000X");
    EXPECT_EQ(celda(pantalla, 1, 0), "0001");
}

TEST_P(LineasNuevas, TheEanFieldIsOnlyForTheRegimesThatCarryIt) {
    EXPECT_FALSE(lineas().ui.TxtCodigoEAN->isVisible());
    EXPECT_TRUE(lineas(u"EC-2026-0002"_s).ui.TxtCodigoEAN->isVisible());
}

TEST_P(LineasNuevas, TheLineAddedToFiveThousandStandsInTheList) {
    ejecutar(
        "insert into subitems (interno,ncm,idunidad,cantidad,preciounitario,fob,estadistica) "
        "with recursive n(i) as (select 1 union all select i + 1 from n where i < 5000) "
        "select 'OP 1','8413.70.10.100L','07',1,0.5,0.5,'07' from n");
    auto &pantalla = lineas();
    ASSERT_EQ(pantalla.ui.LstArticulos->rowCount(), 5000);
    nuevaBomba(pantalla);
    EXPECT_EQ(ultimoMensaje(), "<ninguno>");
    EXPECT_EQ(cuantas(), 5001);
    EXPECT_EQ(pantalla.ui.LstArticulos->rowCount(), 5001);
}

EN_AMBOS_STORES(LineasNuevas);

}  // namespace
