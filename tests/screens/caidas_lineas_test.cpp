// The server goes under the lines of an operation, the nomenclature and the catalogues of articles.

#include <array>

#include "header/FrmLstProrrateo.h"
#include "subitems/FrmArticulos.h"
#include "subitems/FrmBuscarArticulosPorPA.h"
#include "subitems/FrmCatArticulos.h"
#include "subitems/FrmCatArticulosBuscar.h"
#include "subitems/FrmConsultas.h"
#include "subitems/FrmDetalleNomenclador.h"
#include "subitems/FrmPosicion.h"
#include "subitems/FrmSubItems.h"
#include "subitems/FrmSufijos.h"
#include "subitems/FrmbArticulos.h"
#include "tests/screens/caidas_acciones.h"
#include "tests/support/claves.h"
#include "tests/support/retrato.h"

using namespace Qt::StringLiterals;

namespace {

const QString bombas = u"8413.70.10.100L"_s;

std::function<void()> mostrarLineas() {
    return mostrar<FrmSubItems>(importacion, std::array{1, 1, 1, 1, 1, 1, 1, 1});
}

void seguirEn(QLineEdit *campo, const QString &texto) {
    poner(campo, texto);
    tecla(Qt::Key_Return);
}

QString lineasEnLista(FrmSubItems &p) {
    return celdasDe(p.ui.LstArticulos);
}

AccionDeUsuario lineaNueva() {
    const auto teclearBomba = [](FrmSubItems &p) {
        seguirEn(p.ui.TxtPosicion, bombas);
        seguirEn(p.ui.TxtUnidad, u"07"_s);
        seguirEn(p.ui.TxtCantidad, u"24"_s);
        seguirEn(p.ui.TxtFobTotal, u"2841,60"_s);
        poner(p.ui.txtSufijos, u"AA01-AB(X 1)-ZB(000750)-"_s);
    };
    return accionEn<FrmSubItems>("FrmSubItems: nueva", {}, mostrarLineas(), teclearBomba, la(Qt::Key_F11),
                                 lineasEnLista);
}

}  // namespace

TEST_P(CaidasBajoPantallas, ANewLineIsAddedOnceWhereverItsSaveIsCut) {
    const AccionDeUsuario accion = lineaNueva();
    const Hecho quieto = hacer(accion);
    // The insert is among the last of its statements.
    constexpr int ultimas = 5;
    ASSERT_GT(quieto.sentencias, ultimas);
    for (int n = quieto.sentencias - ultimas; n < quieto.sentencias; ++n) {
        SCOPED_TRACE(n);
        const Hecho caida = hacer(accion, MomentoDeCaida{n, false});
        EXPECT_EQ(DiferenciasDeRetratos(quieto.retrato, caida.retrato).toStdString(), "");
        EXPECT_EQ(caida.visto.toStdString(), quieto.visto.toStdString());
    }
}

TEST_P(CaidasBajoPantallas, TheLinesOfAnOperation) {
    const auto enLaLista = [](FrmSubItems &p) {
        p.ui.LstArticulos->setFocus();
        p.ui.LstArticulos->setCurrentCell(0, 0);
    };
    probar({
        lineaNueva(),
        accionEn<FrmSubItems>(
            "FrmSubItems: modificar", {}, mostrarLineas(),
            [enLaLista](FrmSubItems &p) {
                enLaLista(p);
                tecla(Qt::Key_Return);
                poner(p.ui.txtOtros, u"OTROS"_s);
            },
            la(Qt::Key_F11), lineasEnLista),
        accionEn<FrmSubItems>(
            "FrmSubItems: borrar", {}, mostrarLineas(), enLaLista,
            [this] {
                registro.respuestas.assign(2, true);
                teclaEn(Pantalla<FrmSubItems>().ui.LstArticulos, Qt::Key_Delete);
            },
            lineasEnLista),
        accionEn<FrmSubItems>(
            "FrmSubItems: tomar", {}, mostrarLineas(), enLaLista,
            [] { teclaEn(Pantalla<FrmSubItems>().ui.LstArticulos, Qt::Key_Return); },
            [](FrmSubItems &p) { return QString(p.ui.TxtPosicion->text() + p.ui.TxtFobTotal->text()); }),
    });
}

TEST_P(CaidasBajoPantallas, WhatALineIsChosenFrom) {
    const Encima posiciones;
    const Encima sufijos;
    const Encima articulos;
    const Encima prorrateos;
    const auto llave = [](QLineEdit *Ui::FrmSubItems::*campo, int cual) {
        return [campo, cual] { teclaEn(Pantalla<FrmSubItems>().ui.*campo, cual); };
    };
    probar({
        accionEn<FrmSubItems>(
            "FrmPosicion", {}, mostrarLineas(), [](FrmSubItems &p) { poner(p.ui.TxtPosicion, u"8413.70"_s); },
            posiciones.abriendo<FrmPosicion>(llave(&Ui::FrmSubItems::TxtPosicion, Qt::Key_F6),
                                             [](FrmPosicion &p) { return celdasDe(p.ui.LstNCM); }),
            posiciones.loVisto<FrmSubItems>()),
        accionEn<FrmSubItems>(
            "FrmSufijos", {}, mostrarLineas(), [](FrmSubItems &p) { poner(p.ui.TxtPosicion, bombas); },
            sufijos.abriendo<FrmSufijos>(llave(&Ui::FrmSubItems::TxtPosicion, Qt::Key_F7),
                                         [](FrmSufijos &p) { return celdasDe(p.ui.Grid); }),
            sufijos.loVisto<FrmSubItems>()),
        accionEn<FrmSubItems>(
            "FrmbArticulos", {}, mostrarLineas(),
            [](FrmSubItems &p) { poner(p.ui.TxtIdCatalogo, u"HIDPLATA"_s); },
            articulos.abriendo<FrmbArticulos>(llave(&Ui::FrmSubItems::txtIdArticulo, Qt::Key_F6),
                                              [](FrmbArticulos &p) { return celdasDe(p.ui.Lst); }),
            articulos.loVisto<FrmSubItems>()),
        accionEn<FrmSubItems>(
            "FrmLstProrrateo", {}, mostrarLineas(), {},
            prorrateos.abriendo<FrmLstProrrateo>(llave(&Ui::FrmSubItems::TxtCodProrrateo, Qt::Key_F6),
                                                 [](FrmLstProrrateo &p) { return celdasDe(p.ui.Lst); }),
            prorrateos.loVisto<FrmSubItems>()),
    });
}

TEST_P(CaidasBajoPantallas, TheNomenclature) {
    const Encima detalle;
    probar({
        accionEn<FrmConsultas>(
            "FrmConsultas", {}, mostrar<FrmConsultas>(), [](FrmConsultas &) { escribir(u"8413"_s); },
            [] { teclaEn(Pantalla<FrmConsultas>().ui.TxtSIM, Qt::Key_Return); },
            [](FrmConsultas &p) { return celdasDe(p.ui.LstResult); }),
        accionEn<FrmConsultas>(
            "FrmDetalleNomenclador", {}, mostrar<FrmConsultas>(),
            [](FrmConsultas &) {
                escribir(u"8413"_s);
                tecla(Qt::Key_Return);
            },
            detalle.abriendo<FrmDetalleNomenclador>(
                [] { teclaEn(Pantalla<FrmConsultas>().ui.LstResult, Qt::Key_Return); },
                [](FrmDetalleNomenclador &p) { return p.ventana->windowTitle(); }),
            detalle.loVisto<FrmConsultas>()),
        accionEn<FrmBuscarArticulosPorPA>(
            "FrmBuscarArticulosPorPA", {}, [] { VerLicencias(bombas); }, {},
            [this] {
                registro.informes.clear();
                registro.vistos.clear();
                teclaEn(Pantalla<FrmBuscarArticulosPorPA>().ui.txtPosiciónNcmABuscar, Qt::Key_Return);
            },
            [](FrmBuscarArticulosPorPA &p) { return p.ui.labelRegistro->text(); }),
    });
}

TEST_P(CaidasBajoPantallas, TheCatalogues) {
    const Encima busqueda;
    const Encima enTodos;
    const auto enElPrimero = [](FrmCatArticulos &p) {
        p.ui.TvArticulos->setFocus();
        tecla(Qt::Key_Home);
    };
    probar({
        accionEn<FrmCatArticulos>(
            "FrmCatArticulos: nuevo", {}, mostrar<FrmCatArticulos>(),
            [](FrmCatArticulos &p) {
                tecla(Qt::Key_Insert);
                poner(p.ui.TxtIdCatalogo, u"HIDPLATA"_s);
                poner(p.ui.txtIdArticulo, u"NUEVO-1"_s);
                poner(p.ui.TxtDescArticulos, u"Electrobomba"_s);
                poner(p.ui.TxtPosicion, bombas);
                poner(p.ui.TxtUnidad, u"07"_s);
                poner(p.ui.TxtUnitario, u"118,40"_s);
                poner(p.ui.txtSufijos, u"AA01-AB(NP 750)-ZB(000750)-"_s);
            },
            alt(Qt::Key_G)),
        accionEn<FrmCatArticulos>(
            "FrmCatArticulos: expandir", {}, mostrar<FrmCatArticulos>(), enElPrimero,
            [] { teclaEn(Pantalla<FrmCatArticulos>().ui.TvArticulos, Qt::Key_Plus); },
            [](FrmCatArticulos &p) {
                const QAbstractItemModel *arbol = p.ui.TvArticulos->model();
                return QString::number(arbol->rowCount(arbol->index(0, 0)));
            }),
        accionEn<FrmCatArticulos>("FrmArticulos", {}, mostrar<FrmCatArticulos>(), enElPrimero,
                                  busqueda.abriendo<FrmArticulos>(
                                      [] { teclaEn(Pantalla<FrmCatArticulos>().ui.TvArticulos, Qt::Key_F6); },
                                      [](FrmArticulos &p) { return celdasDe(p.ui.Lst); }),
                                  busqueda.loVisto<FrmCatArticulos>()),
        accionEn<FrmCatArticulos>("FrmCatArticulosBuscar", {}, mostrar<FrmCatArticulos>(), enElPrimero,
                                  enTodos.abriendo<FrmCatArticulosBuscar>(
                                      [this] {
                                          registro.textos.assign(1, u"NP-0750"_s);
                                          teclaEn(Pantalla<FrmCatArticulos>().ui.TvArticulos, Qt::Key_F3);
                                      },
                                      [](FrmCatArticulosBuscar &p) { return celdasDe(p.ui.Lst); }),
                                  enTodos.loVisto<FrmCatArticulos>()),
    });
}
