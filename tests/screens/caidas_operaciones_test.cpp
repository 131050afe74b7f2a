// The server goes under the screens of operations as such: their list, their dashboard, their exchange, the
// menu.

#include "desktop/FrmPrincipal.h"
#include "desktop/MenuP.h"
#include "desktop/fin.h"
#include "header/FrmClientes.h"
#include "header/FrmListadoDespachante.h"
#include "operations/FrmDetalleInterno.h"
#include "operations/FrmExportarOperaciones.h"
#include "operations/FrmImportarOperaciones.h"
#include "operations/FrmInternoNew.h"
#include "operations/exchange.h"
#include "tests/screens/caidas_acciones.h"
#include "tests/support/claves.h"

using namespace Qt::StringLiterals;

namespace {

QString operacionesEnLista(FrmInternoNew &p) {
    return celdasDe(p.ui.lstInterno);
}

void buscarLaImportacion(FrmInternoNew &p) {
    poner(p.ui.txtInterno, importacion);
    tecla(Qt::Key_Return);
}

}  // namespace

TEST_P(CaidasBajoPantallas, TheListOfOperations) {
    const Encima despachantes;
    probar({
        accionEn<FrmInternoNew>(
            "FrmInternoNew: buscar", {}, mostrar<FrmInternoNew>(),
            [](FrmInternoNew &p) { poner(p.ui.txtInterno, u"IC"_s); },
            [] { teclaEn(Pantalla<FrmInternoNew>().ui.txtInterno, Qt::Key_Return); }, operacionesEnLista),
        accionEn<FrmInternoNew>("FrmInternoNew: crear", {}, mostrar<FrmInternoNew>(), {},
                                [this] {
                                    registro.textos.assign(1, u"NUEVA 1"_s);
                                    tecla(Qt::Key_Insert);
                                }),
        accionEn<FrmInternoNew>(
            "FrmInternoNew: copiar", {}, mostrar<FrmInternoNew>(), buscarLaImportacion,
            [this] {
                registro.textos.assign(1, u"COPIA 1"_s);
                tecla(Qt::Key_F6);
            },
            operacionesEnLista),
        accionEn<FrmInternoNew>("FrmInternoNew: borrar", {}, mostrar<FrmInternoNew>(), buscarLaImportacion,
                                [this] {
                                    registro.respuestas.assign(1, true);
                                    tecla(Qt::Key_Delete);
                                }),
        accionEn<FrmInternoNew>("FrmInternoNew: despachantes", {}, mostrar<FrmInternoNew>(), {},
                                despachantes.abriendo<FrmListadoDespachante>(
                                    [] { teclaEn(Pantalla<FrmInternoNew>().ui.txtDespachante, Qt::Key_F6); },
                                    [](FrmListadoDespachante &p) { return celdasDe(p.ui.Lst); }),
                                despachantes.loVisto<FrmInternoNew>()),
    });
}

TEST_P(CaidasBajoPantallas, TheDashboardOfAnOperation) {
    const Encima tablero;
    const auto verTablero = [](FrmDetalleInterno &p) {
        return QStringList{p.ui.LbSubregimen->text(), p.ui.LbCliente->text(), p.ui.LbItem->text(),
                           p.ui.LbSubItem->text(), p.ui.LbEstadoBultos->text()}
            .join(u'|');
    };
    auto entrarYSalir = accionEn<FrmInternoNew>(
        "FrmDetalleInterno: entrar y salir", {}, mostrar<FrmInternoNew>(), buscarLaImportacion,
        tablero.abriendo<FrmDetalleInterno>(
            [] { teclaEn(Pantalla<FrmInternoNew>().ui.lstInterno, Qt::Key_Return); }, verTablero),
        tablero.loVisto<FrmInternoNew>());
    // Entering it is a key and leaving it another; what stayed open in between says so the next time.
    entrarYSalir.avisos = 2;
    entrarYSalir.admite = u"El estado de INTERNO indica que el mismo esta abierto."_s;
    probar({entrarYSalir});
}

TEST_P(CaidasBajoPantallas, TheExchangeOfOperations) {
    const auto enLaCarpeta = [this] {
        ctx->ajustes.Guardar(u"ZENDRA"_s, u"INTERCAMBIO"_s, u"CARPETA"_s, tienda->carpeta());
    };
    const auto conArchivo = [this, enLaCarpeta] {
        enLaCarpeta();
        ASSERT_TRUE(
            intercambio::Exportar(*ctx, {importacion, exportacion}, tienda->carpeta() + "/dos.zop"_L1).hecho);
        ejecutar(u"delete from subitems where interno = 'EC-2026-0002'"_s);
        ejecutar(u"delete from caratula where interno = 'EC-2026-0002'"_s);
    };
    const auto indicar = [this](FrmImportarOperaciones &p) {
        poner(p.ui.TxtArchivo, tienda->carpeta() + "/dos.zop"_L1);
    };
    const auto planes = [](FrmImportarOperaciones &p) { return celdasDe(p.ui.GrOperaciones); };
    probar({
        accionEn<FrmExportarOperaciones>(
            "FrmExportarOperaciones", enLaCarpeta, mostrarYCerrar<FrmExportarOperaciones>(),
            [](FrmExportarOperaciones &) {
                escribir(u"IC-"_s);
                tecla(Qt::Key_Return);
                tecla(Qt::Key_Space);
            },
            [this] {
                registro.respuestas.assign(4, true);
                tecla(Qt::Key_F11);
            }),
        accionEn<FrmImportarOperaciones>(
            "FrmImportarOperaciones: leer", conArchivo, mostrarYCerrar<FrmImportarOperaciones>(), indicar,
            [] { teclaEn(Pantalla<FrmImportarOperaciones>().ui.TxtArchivo, Qt::Key_Return); }, planes),
        accionEn<FrmImportarOperaciones>(
            "FrmImportarOperaciones: importar", conArchivo, mostrarYCerrar<FrmImportarOperaciones>(),
            [indicar](FrmImportarOperaciones &p) {
                indicar(p);
                tecla(Qt::Key_Return);
            },
            la(Qt::Key_F11)),
    });
}

TEST_P(CaidasBajoPantallas, TheMenu) {
    const Encima clientes;
    const auto terminarAntes =
        std::exchange(TerminarPrograma, [] { Pantalla<FrmPrincipal>().ventana->hide(); });
    probar({
        accionEn<FrmPrincipal>("MenuP", {}, mostrar<FrmPrincipal>(), {},
                               clientes.abriendo<FrmClientes>(
                                   [] {
                                       Pantalla<MenuP>().ui.GrdMenuMain->setCurrentCell(1, 1);
                                       teclaEn(Pantalla<MenuP>().ui.GrdMenuMain, Qt::Key_Return);
                                   },
                                   [](FrmClientes &p) { return celdasDe(p.ui.Lst); }),
                               clientes.loVisto<FrmPrincipal>()),
    });
    TerminarPrograma = terminarAntes;
}
