// Keying new lines.

#include <gtest/gtest.h>

#include <QApplication>

#include "assembly/FrmLstProrrateo.h"
#include "frame/ui/Pantalla.h"
#include "header/automotive.h"
#include "operations/FrmDetalleInterno.h"
#include "subitems/FrmPosicion.h"
#include "tests/screens/subitems_pantalla.h"
#include "tests/support/tiempos.h"

namespace {

class LineasNuevas : public EnLineas {
 protected:
    QString cargaPor() const {
        return ctx->ajustes.Leer(QStringLiteral("ZENDRA"), QStringLiteral("FLAGS"),
                                 QStringLiteral("CARGASBTPOR"));
    }
    void elegirCargaPor(const char *modo) {
        ctx->ajustes.Guardar(QStringLiteral("ZENDRA"), QStringLiteral("FLAGS"), QStringLiteral("CARGASBTPOR"),
                             QLatin1String(modo));
    }
};

TEST_P(LineasNuevas, TheDashboardOpensThemAndIsFreshWhenTheyAreLeft) {
    ejecutar("delete from subitems where interno = 'IC-2026-0001'");
    auto &tablero = abrir(QStringLiteral("IC-2026-0001"));
    EXPECT_EQ(tablero.ui.LbSubItem->text(), QStringLiteral("0"));
    teclaEn(tablero.ui.CkFlag_6, Qt::Key_Space);
    teclaEn(tablero.ui.CmdSubItems, Qt::Key_Space);
    ASSERT_TRUE(PantallaAbierta<FrmSubItems>());
    auto &pantalla = Pantalla<FrmSubItems>();
    esperarVentana(pantalla.ventana.get());
    EXPECT_EQ(pantalla.ventana->windowTitle(), QStringLiteral("Carga de subitems - Operación IC-2026-0001"));
    EXPECT_FALSE(pantalla.ui.framKilos->isVisible()) << "the flags of the dashboard as they stand";
    EXPECT_EQ(QApplication::focusWidget(), pantalla.ui.TxtIdCatalogo);
    nuevaBomba(pantalla);
    tecla(Qt::Key_Escape);
    EXPECT_FALSE(PantallaAbierta<FrmSubItems>());
    esperarVentana(tablero.ventana.get());
    EXPECT_EQ(tablero.ui.LbEstadoSubItem->text(), QStringLiteral("INCOMPLETO"));
    EXPECT_TRUE(registro.mensajes.empty()) << ultimoMensaje();
}

TEST_P(LineasNuevas, AnArticleOfTheCatalogueFillsTheLineAndF11WritesIt) {
    elegirCargaPor("U");
    auto &pantalla = lineas();
    auto &ui = pantalla.ui;
    EXPECT_EQ(QApplication::focusWidget(), ui.TxtIdCatalogo);
    escribir(QStringLiteral("HIDPLATA"));
    tecla(Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), ui.txtIdArticulo) << "ENTER moves on";
    escribir(QStringLiteral("NP-0750"));
    tecla(Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), ui.TxtDescArticulos);
    EXPECT_EQ(ui.LbDescCatalogo->text(), QStringLiteral("NP-0750 - Electrobomba sumergible 750 W"));
    EXPECT_EQ(ui.TxtPosicion->text(), bomba);
    EXPECT_EQ(ui.TxtUnitario->text(), QStringLiteral("118.40000"));
    EXPECT_EQ(ui.txtKgUnitario->text(), QStringLiteral("9.80").rightJustified(5, QLatin1Char('0')));
    EXPECT_EQ(ui.LbCodigoEstadistica->text(), QStringLiteral("07"));
    EXPECT_EQ(ui.LbDescPais->text(), QStringLiteral("ALEMANIA"));
    llenarYSeguir(ui.TxtCantidad, QStringLiteral("24"));
    EXPECT_EQ(ui.TxtFobTotal->text(), QStringLiteral("2841.60"));
    EXPECT_EQ(ui.TxtValorsobreestadistica->text(), QStringLiteral("24.00"));
    llenarYSeguir(ui.TxtKgBruto, QStringLiteral("251.67"));
    tecla(Qt::Key_F11);
    EXPECT_EQ(ultimoMensaje(), "<ninguno>");
    EXPECT_EQ(linea("idcatalogo,idarticulo,ncm,idunidad,cantidad,preciounitario,fob,estadistica,"
                    "valorrelacionestadistica,idpais,idpaisproc,estadomerc,sufijos,biendeuso,kgbruto"),
              "HIDPLATA|NP-0750|8413.70.10.100L|07|24|118.4|2841.6|07|24|438|438|2|"
              "AA01-AB(NORDPUMPEN NP 0750)-ZB(000750)-|N|251.67");
    // 3000 - 2841.60
    EXPECT_EQ(ui.LbTotal->text(), QStringLiteral("3000.00"));
    EXPECT_EQ(ui.LbTotSubitems->text(), QStringLiteral("2841.60"));
    EXPECT_EQ(ui.lbDIF->text(), QStringLiteral("158.40"));
    EXPECT_EQ(ui.LstArticulos->rowCount(), 1);
    EXPECT_EQ(celda(pantalla, 0, 0), "0001");
    EXPECT_EQ(celda(pantalla, 0, 6), "2841.60");
    EXPECT_EQ(ui.TxtIdCatalogo->text(), QStringLiteral("HIDPLATA")) << "the catalogue stays";
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
    elegir(ui.TxtIdCatalogo, QStringLiteral("HIDPLATA"));
    EXPECT_EQ(ui.TxtIdCatalogo->text(), QStringLiteral("HIDPLATA"));
    elegir(ui.txtIdArticulo, QStringLiteral("NP-1100"));
    EXPECT_EQ(ui.TxtDescArticulos->text(), QStringLiteral("Electrobomba sumergible 1100 W"));
    llenarYSeguir(ui.TxtCantidad, QStringLiteral("2"));
    while (QApplication::focusWidget() != ui.TxtUnidad) tecla(Qt::Key_Backtab);
    EXPECT_EQ(ui.TxtValorsobreestadistica->text(), QStringLiteral("02.00"));
    elegir(ui.TxtUnidad, QStringLiteral("DOCENA"));
    EXPECT_EQ(ui.TxtUnidad->text(), QStringLiteral("09"));
    EXPECT_EQ(ui.LbDescUnidad->text(), QStringLiteral("DOCENA"));
    EXPECT_EQ(ui.TxtValorsobreestadistica->text(), QStringLiteral("24.00")) << "two dozens";
    elegir(ui.TxtIdpais, QStringLiteral("BRASIL"));
    EXPECT_EQ(ui.TxtIdpais->text(), QStringLiteral("203"));
    EXPECT_EQ(ui.LbDescPais->text(), QStringLiteral("BRASIL"));
}

TEST_P(LineasNuevas, F6OnThePositionTakesTheChoiceAndItsUnits) {
    auto &pantalla = lineas();
    auto &ui = pantalla.ui;
    llenar(ui.TxtPosicion, QStringLiteral("0402.21.10.190Y"));
    conPantallaModal<FrmPosicion>([this](FrmPosicion &busqueda) {
        EXPECT_EQ(busqueda.ui.TxtNcm->text(), QStringLiteral("0402.21.10"));
        EXPECT_EQ(busqueda.ui.LstNCM->currentItem()->text(), leche);
        tecla(Qt::Key_Return);
    });
    tecla(Qt::Key_F6);
    EXPECT_FALSE(PantallaAbierta<FrmPosicion>());
    EXPECT_EQ(ui.TxtPosicion->text(), leche);
    EXPECT_EQ(ui.LbCodigoEstadistica->text(), QStringLiteral("01"));
    EXPECT_EQ(ui.LbIdDerEsp->text(), QStringLiteral("01"));
    EXPECT_TRUE(ui.FramDerEsp->isEnabled());
    EXPECT_TRUE(ui.txtNCMDesc->toPlainText().contains(QStringLiteral("Posición NCM: 0402.21.10.110X")));
    esperarVentana(pantalla.ventana.get());
    conPantallaModal<FrmPosicion>([](FrmPosicion &) { tecla(Qt::Key_Escape); });
    tecla(Qt::Key_F6);
    EXPECT_EQ(ui.TxtPosicion->text(), leche) << "leaving the search changes nothing";
}

TEST_P(LineasNuevas, F6OnTheProrationCodeTakesItFromItsList) {
    auto &pantalla = lineas(QStringLiteral("IC-2026-0001"));
    irA(pantalla.ui.TxtCodProrrateo);
    conPantallaModal<FrmLstProrrateo>([](FrmLstProrrateo &) { tecla(Qt::Key_Return); });
    tecla(Qt::Key_F6);
    EXPECT_EQ(pantalla.ui.TxtCodProrrateo->text(), QStringLiteral("EMB"));
    EXPECT_FALSE(PantallaAbierta<FrmLstProrrateo>());
}

TEST_P(LineasNuevas, F6OnTheSuffixesAsksForThemAndGivingUpKeepsTheText) {
    auto &pantalla = lineas();
    auto &ui = pantalla.ui;
    llenarYSeguir(ui.TxtPosicion, bomba);
    irA(ui.txtSufijos);
    registro.indices = {2};  // none, AA01, AA02
    registro.textos = {QStringLiteral("Marca X"), QStringLiteral("750")};
    tecla(Qt::Key_F6);
    EXPECT_TRUE(ui.txtSufijos->text().startsWith(QStringLiteral("AA02-AB(")))
        << ui.txtSufijos->text().toStdString();
    const QString hechos = ui.txtSufijos->text();
    registro.indices = {-1};
    registro.respuestas = {true};
    tecla(Qt::Key_F6);
    EXPECT_EQ(ui.txtSufijos->text(), hechos);
}

TEST_P(LineasNuevas, APositionOfAWrongLengthOrNotKeptHoldsTheFocus) {
    auto &pantalla = lineas();
    auto &ui = pantalla.ui;
    llenarYSeguir(ui.TxtPosicion, QStringLiteral("8413.70"));
    EXPECT_EQ(ultimoMensaje(), "Longitud erronea del Posición");
    EXPECT_EQ(registro.mensajes.back().icono, Icono::Exclamacion);
    EXPECT_EQ(QApplication::focusWidget(), ui.TxtPosicion);
    escribir(QStringLiteral("1111.11.11.111A"));
    EXPECT_EQ(ui.TxtPosicion->text(), QStringLiteral("1111.11.11.111A")) << "the text was selected whole";
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
    EXPECT_EQ(ui.LbIdDerEsp->text(), QStringLiteral("01"));
    llenar(ui.TxtPosicion, hortaliza);
    tecla(Qt::Key_Tab);
    EXPECT_EQ(ui.LbIdDerEsp->text(), QStringLiteral("01")) << "TAB looks nothing up";
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
    llenar(pantalla.ui.TxtKgBruto, QStringLiteral("40"));
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
    llenar(ui.TxtValorsobreestadistica, QStringLiteral("24"));
    rechaza("Valor Invalido en CANTIDAD", ui.TxtCantidad);
    llenar(ui.TxtCantidad, QStringLiteral("20"));
    rechaza("Valor Invalido en PRECIO UNITARIO", ui.TxtFobTotal);
    llenar(ui.TxtFobTotal, QStringLiteral("10"));
    rechaza("Debe ingresar el Codigo de UNIDAD", ui.TxtUnidad);
    escribir(QStringLiteral("07"));
    EXPECT_EQ(ui.TxtValorsobreestadistica->text(), QStringLiteral("20.00"));
    llenar(ui.TxtValorsobreestadistica, QStringLiteral("24"));
    rechaza("La CANTIDAD DECLARADA ( 20 ) debe ser igual a CANTIDAD ESTADISTICA ( 24 )", ui.TxtCantidad);
    EXPECT_EQ(cuantas(), 0);
}

TEST_P(LineasNuevas, ByTheTotalThePriceFollowsAndByThePriceTheTotal) {
    auto &pantalla = lineas();
    auto &ui = pantalla.ui;
    EXPECT_TRUE(ui.opFobTotal->isChecked());
    EXPECT_FALSE(ui.TxtUnitario->isEnabled());
    llenarYSeguir(ui.TxtCantidad, QStringLiteral("3"));
    EXPECT_EQ(QApplication::focusWidget(), ui.TxtFobTotal) << "the field that does not lead is passed by";
    escribir(QStringLiteral("100"));
    EXPECT_EQ(ui.TxtUnitario->text(), QStringLiteral("33.33333"));
    tecla(Qt::Key_U, Qt::AltModifier);
    hasta([&ui] { return ui.opFobUnitario->isChecked(); });
    EXPECT_EQ(QApplication::focusWidget(), ui.TxtUnitario);
    EXPECT_FALSE(ui.TxtFobTotal->isEnabled());
    EXPECT_EQ(cargaPor(), QStringLiteral("U"));
    escribir(QStringLiteral("33.4"));
    EXPECT_EQ(ui.TxtFobTotal->text(), QStringLiteral("100.20"));
    tecla(Qt::Key_F, Qt::AltModifier);
    hasta([&ui] { return ui.opFobTotal->isChecked(); });
    EXPECT_TRUE(ui.TxtFobTotal->isEnabled());
    EXPECT_FALSE(ui.TxtUnitario->isEnabled());
    EXPECT_EQ(cargaPor(), QStringLiteral("F"));
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
    GuardarAEC(*ctx, QStringLiteral("OP 1"), QStringLiteral("P"));
    const auto marca = [this] { return valor("select factura8 from caratula where interno = 'OP 1'"); };
    auto &pantalla = lineas();
    EXPECT_EQ(marca(), QStringLiteral("N"));
    EXPECT_EQ(LeerAEC(*ctx, QStringLiteral("OP 1")), QStringLiteral("P"));
    llenar(pantalla.ui.txtOtros, QStringLiteral("a"));
    EXPECT_EQ(marca(), QStringLiteral("S"));
    EXPECT_EQ(LeerAEC(*ctx, QStringLiteral("OP 1")), QString());
    ejecutar("update caratula set factura8 = 'N'");
    llenar(pantalla.ui.txtDescripcionMaria, QStringLiteral("b"));
    EXPECT_EQ(marca(), QStringLiteral("S")) << "a box of several lines too";
    ejecutar("update caratula set factura8 = 'N'");
    tecla(Qt::Key_Escape);
    EXPECT_EQ(marca(), QStringLiteral("N"));
}

TEST_P(LineasNuevas, TheDescriptionForTheCustomsSystemTakesEnterAndIsStoredInOneLine) {
    auto &pantalla = lineas();
    auto &ui = pantalla.ui;
    llenarYSeguir(ui.txtDescripcionMaria, QStringLiteral("BOMBA"));
    EXPECT_EQ(QApplication::focusWidget(), ui.txtDescripcionMaria);
    escribir(QStringLiteral("DE O'HIGGINS"));
    teclearBomba(pantalla);
    tecla(Qt::Key_F11);
    EXPECT_EQ(linea("descripcion_maria"), "BOMBA DE O HIGGINS");
}

TEST_P(LineasNuevas, TheOptionsKeepTheArticleOrEveryText) {
    auto &pantalla = lineas();
    auto &ui = pantalla.ui;
    ctx->opciones.SbtMantDatos = true;
    llenar(ui.TxtIdpais, QStringLiteral("203"));
    nuevaBomba(pantalla);
    EXPECT_EQ(ui.TxtPosicion->text(), bomba);
    EXPECT_EQ(ui.TxtIdpais->text(), QStringLiteral("203"));
    ctx->opciones.SbtMantDatos = false;
    ctx->opciones.SbtMantCodart = true;
    llenar(ui.txtIdArticulo, QStringLiteral("B-1"));
    tecla(Qt::Key_F11);
    EXPECT_EQ(ultimoMensaje(), "<ninguno>");
    EXPECT_EQ(ui.txtIdArticulo->text(), QStringLiteral("B-1"));
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
    EXPECT_TRUE(lineas(QStringLiteral("EC-2026-0002")).ui.TxtCodigoEAN->isVisible());
}

// From the key to ready, on an operation of 5,000 lines.
TEST_P(LineasNuevas, AddingToFiveThousandLinesIsReadyInATenthOfASecond) {
    ejecutar(
        "insert into subitems (interno,ncm,idunidad,cantidad,preciounitario,fob,estadistica) "
        "with recursive n(i) as (select 1 union all select i + 1 from n where i < 5000) "
        "select 'OP 1','8413.70.10.100L','07',1,0.5,0.5,'07' from n");
    auto &pantalla = lineas();
    ASSERT_EQ(pantalla.ui.LstArticulos->rowCount(), 5000);
    ctx->opciones.SbtMantDatos = true;
    teclearBomba(pantalla);
    const double ms = MejorTiempo([] { tecla(Qt::Key_F11); });
    EXPECT_EQ(ultimoMensaje(), "<ninguno>");
    EXPECT_EQ(cuantas(), 5007);
    EXPECT_EQ(pantalla.ui.LstArticulos->rowCount(), 5007);
    EXPECT_LT(ms, 100);
}

EN_AMBOS_STORES(LineasNuevas);

}  // namespace
