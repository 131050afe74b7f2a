// The server goes under the books: sellers, transport agents, clients.

#include "header/FrmABMAgTrans.h"
#include "header/FrmCliente.h"
#include "header/FrmClientes.h"
#include "header/FrmLstTrans.h"
#include "header/FrmLstVendedores.h"
#include "header/FrmNewVendedor.h"
#include "tests/screens/caidas_acciones.h"

using namespace Qt::StringLiterals;

namespace {

void teclearFicha(const QStringList &textos) {
    for (const QString &texto : textos) {
        escribir(texto);
        tecla(Qt::Key_Return);
    }
}

}  // namespace

TEST_P(CaidasBajoPantallas, TheBooksOfSellersAndAgents) {
    const auto borrar = [this] {
        registro.respuestas.assign(1, true);
        tecla(Qt::Key_Delete);
    };
    probar({
        accionEn<FrmNewVendedor>(
            "FrmNewVendedor", {}, [] { AgregarVendedor({}); },
            [](FrmNewVendedor &) {
                teclearFicha({u"V100"_s, u"VENDEDOR S.A."_s, u"Ruta 3"_s, u"203"_s});
            },
            alt(Qt::Key_G)),
        accionEn<FrmLstVendedores>(
            "FrmLstVendedores: borrar", {},
            [] {
                QString codigo;
                QString nombre;
                ListarVendedores(codigo, nombre);
            },
            [](FrmLstVendedores &p) { p.ui.Lst->setFocus(); }, borrar,
            [](FrmLstVendedores &p) { return celdasDe(p.ui.Lst); }),
        accionEn<FrmABMAgTrans>(
            "FrmABMAgTrans", {}, [] { AgregarAgente({}); },
            [](FrmABMAgTrans &) {
                teclearFicha({u"30500000011"_s, u"NAVIERA S.A."_s});
            },
            alt(Qt::Key_G)),
        accionEn<FrmLstTrans>(
            "FrmLstTrans: borrar", {},
            [] {
                QString cuit;
                QString nombre;
                ListarAgentes(cuit, nombre);
            },
            [](FrmLstTrans &p) { p.ui.Lst->setFocus(); }, borrar,
            [](FrmLstTrans &p) { return celdasDe(p.ui.Lst); }),
    });
}

TEST_P(CaidasBajoPantallas, TheBookOfClients) {
    probar({
        accionEn<FrmClientes>(
            "FrmClientes: borrar", {}, mostrar<FrmClientes>(), [](FrmClientes &p) { p.ui.Lst->setFocus(); },
            [this] {
                registro.respuestas.assign(1, true);
                tecla(Qt::Key_Delete);
            },
            [](FrmClientes &p) { return celdasDe(p.ui.Lst); }),
        accionEn<FrmCliente>(
            "FrmCliente", {},
            [] {
                Pantalla<FrmCliente>().Agregar();
                CerrarPantalla<FrmCliente>();
            },
            [](FrmCliente &p) {
                teclearFicha({u"30-12345678-1"_s, u"PEÑA S.A."_s});
                poner(p.ui.TxtVentaja, u"VEHICULOPARTES"_s);
                atajo(Qt::Key_A);
            },
            alt(Qt::Key_G)),
    });
}
