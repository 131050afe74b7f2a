// The server goes under the header of an operation and the screens beside it.

#include "forms/FrmCertificado.h"
#include "forms/FrmCertificados.h"
#include "forms/FrmHojaValoracion.h"
#include "header/FrmABMProrrateos.h"
#include "header/FrmBultos.h"
#include "header/FrmCaratula.h"
#include "header/FrmLstDiv.h"
#include "header/FrmLstTrans.h"
#include "header/FrmLstVendedores.h"
#include "regulatory/frmONCCA.h"
#include "tests/screens/caidas_acciones.h"
#include "tests/support/claves.h"

using namespace Qt::StringLiterals;

namespace {

/// Of the demonstration: eleven lines, eight of Brazil under BR-2026-1188, three of Germany under STG-77120.
const QString conCertificados = u"ICR-2026-0005"_s;

}  // namespace

TEST_P(CaidasBajoPantallas, TheHeader) {
    const Encima vendedores;
    auto caratula = accionEn<FrmCaratula>(
        "FrmCaratula", {}, mostrar<FrmCaratula>(importacion),
        [](FrmCaratula &p) { poner(p.ui.Txtfletedivisas, u"100"_s); }, la(Qt::Key_Escape));
    // The loss, and whether to leave without what could not be saved.
    caratula.avisos = 2;
    probar({
        caratula,
        accionEn<FrmCaratula>("FrmLstVendedores", {}, mostrar<FrmCaratula>(importacion), {},
                              vendedores.abriendo<FrmLstVendedores>(
                                  [] { teclaEn(Pantalla<FrmCaratula>().ui.Txtidvendedor, Qt::Key_F6); },
                                  [](FrmLstVendedores &p) { return celdasDe(p.ui.Lst); }),
                              vendedores.loVisto<FrmCaratula>()),
        accionEn<FrmABMProrrateos>(
            "FrmABMProrrateos", {}, mostrarYCerrar<FrmABMProrrateos>(importacion),
            [](FrmABMProrrateos &p) {
                tecla(Qt::Key_Insert);
                poner(p.ui.TxtCodigo, u"Q1"_s);
                poner(p.ui.TxtDescripcion, u"Otro"_s);
                poner(p.ui.TxtValor, u"12,5"_s);
            },
            la(Qt::Key_F11)),
        accionEn<FrmLstDiv>(
            "FrmLstDiv", {}, mostrarYCerrar<FrmLstDiv>(importacion),
            [](FrmLstDiv &p) {
                p.ui.TxtCom->setFocus();
                escribir(u"Urgente"_s);
            },
            la(Qt::Key_Escape)),
    });
}

TEST_P(CaidasBajoPantallas, ThePackagesAndTheMeat) {
    const Encima agentes;
    probar({
        accionEn<FrmBultos>(
            "FrmBultos", {}, mostrarYCerrar<FrmBultos>(importacion),
            [](FrmBultos &p) { poner(p.ui.TxtMarcaBul, u"S/M"_s); }, la(Qt::Key_Escape)),
        accionEn<FrmBultos>(
            "FrmLstTrans", {}, mostrarYCerrar<FrmBultos>(importacion), {},
            agentes.abriendo<FrmLstTrans>([] { teclaEn(Pantalla<FrmBultos>().ui.TxtCuit, Qt::Key_F6); },
                                          [](FrmLstTrans &p) { return celdasDe(p.ui.Lst); }),
            agentes.loVisto<FrmBultos>()),
        accionEn<frmONCCA>(
            "frmONCCA: grabar", {}, mostrarYCerrar<frmONCCA>(carnes),
            [](frmONCCA &p) { poner(p.ui.txtAcuerdo, u"07"_s); }, la(Qt::Key_F11)),
        accionEn<frmONCCA>(
            "frmONCCA: lista", {}, mostrarYCerrar<frmONCCA>(carnes), {},
            [this] {
                registro.elecciones.clear();
                teclaEn(Pantalla<frmONCCA>().ui.txtAcuerdo, Qt::Key_F6);
            },
            [this](frmONCCA &) {
                return registro.elecciones.empty() ? QString() : registro.elecciones.back().filas.join(u'\n');
            }),
    });
}

TEST_P(CaidasBajoPantallas, TheSheetsAndCertificates) {
    probar({
        accionEn<FrmHojaValoracion>(
            "FrmHojaValoracion", {}, [] { AbrirHojaValoracion(importacion); },
            [](FrmHojaValoracion &p) {
                poner(qobject_cast<QLineEdit *>(p.Control(u"contrato"_s)), u"C-7"_s);
            },
            alt(Qt::Key_G)),
        accionEn<FrmCertificado>(
            "FrmCertificado", {},
            [this] {
                Pantalla<FrmCertificado>().Editar(certificados::Leer(*ctx, conCertificados), {});
                CerrarPantalla<FrmCertificado>();
            },
            [](FrmCertificado &p) {
                poner(p.ui.TxtNumero, u"BR-1"_s);
                poner(p.ui.TxtFecha, u"05/02/2026"_s);
                poner(p.ui.TxtIdPais, u"203"_s);
                p.ui.GrdLineas->setFocus();
                tecla(Qt::Key_Space);
            },
            alt(Qt::Key_G)),
        accionEn<FrmCertificados>(
            "FrmCertificados", {}, [] { AbrirCertificados(conCertificados); },
            [](FrmCertificados &p) { p.ui.Lst->setFocus(); },
            [this] {
                registro.respuestas.assign(1, true);
                tecla(Qt::Key_Delete);
            },
            [](FrmCertificados &p) { return celdasDe(p.ui.Lst); }),
    });
}
