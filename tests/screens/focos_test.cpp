// A save that the store refused leaves the keyboard in the field that one was typing in.

#include <gtest/gtest.h>

#include "assembly/run.h"
#include "header/FrmABMAgTrans.h"
#include "header/FrmABMProrrateos.h"
#include "liquidation/FrmAdCon.h"
#include "liquidation/FrmVerItem.h"
#include "tests/support/claves.h"
#include "tests/support/pantallas.h"

using namespace Qt::StringLiterals;

namespace {

class FocoTrasLaFalla : public EnPantalla {
 protected:
    /// Takes the table away under the screen, presses the key, and gives it back.
    void fallar(const QString &entidad, const QString &tabla, const std::function<void()> &llave) {
        const QWidget *antes = QApplication::focusWidget();
        ASSERT_NE(antes, nullptr);
        const QString otra = tabla + u"_otra"_s;
        const QString cambiar = u"alter table %1 rename to %2"_s;
        Ejecutar(*ctx, entidad, cambiar.arg(tabla, otra));
        registro.mensajes.clear();
        llave();
        Ejecutar(*ctx, entidad, cambiar.arg(otra, tabla));
        ASSERT_EQ(registro.mensajes.size(), 1U);
        EXPECT_EQ(registro.mensajes[0].icono, Icono::Critico);
        EXPECT_EQ(QApplication::focusWidget(), antes)
            << (QApplication::focusWidget() == nullptr
                    ? "none"
                    : QApplication::focusWidget()->objectName().toStdString());
    }
    void armar() {
        ctx->ChequeoArmado = u"SI"_s;
        registro.respuestas.assign(20, true);
        ASSERT_TRUE(Generar(*ctx, importacion, {}));
    }
};
EN_AMBOS_STORES(FocoTrasLaFalla);

TEST_P(FocoTrasLaFalla, TransportAgent) {
    conPantallaModal<FrmABMAgTrans>([&](FrmABMAgTrans &) {
        escribir(u"30500000011"_s);
        tecla(Qt::Key_Return);
        escribir(u"NAVIERA S.A."_s);
        fallar(u"PERSONAL"_s, u"transporte"_s, [] { atajo(Qt::Key_G); });
        tecla(Qt::Key_Escape);
    });
    AgregarAgente({});
}

TEST_P(FocoTrasLaFalla, ProrationCode) {
    conPantallaModal<FrmABMProrrateos>([&](FrmABMProrrateos &p) {
        tecla(Qt::Key_Insert);
        for (QLineEdit *campo : {p.ui.TxtCodigo, p.ui.TxtDescripcion, p.ui.TxtValor}) {
            campo->setFocus();
            escribir(u"1"_s);
        }
        fallar(u"INTERNOS"_s, u"prorrateo"_s, [] { tecla(Qt::Key_F11); });
        tecla(Qt::Key_Escape);
        tecla(Qt::Key_Escape);
    });
    Pantalla<FrmABMProrrateos>().Mostrar(importacion);
    CerrarPantalla<FrmABMProrrateos>();
}

TEST_P(FocoTrasLaFalla, ConceptOfAnItem) {
    armar();
    conPantallaModal<FrmAdCon>([&](FrmAdCon &p) {
        escribir(u"42"_s);
        tecla(Qt::Key_Return);
        for (QLineEdit *campo : {p.ui.txtPorc, p.ui.txtBimp, p.ui.TxtValor}) {
            campo->setFocus();
            campo->selectAll();
            escribir(u"6"_s);
        }
        fallar(u"INTERNOS"_s, u"itemliq"_s, [] { atajo(Qt::Key_A); });
        tecla(Qt::Key_Escape);
    });
    Pantalla<FrmAdCon>().Agregar(importacion, u"3"_s);
    CerrarPantalla<FrmAdCon>();
}

TEST_P(FocoTrasLaFalla, PageOfAnItem) {
    armar();
    auto &p = Pantalla<FrmVerItem>();
    p.Mostrar(importacion);
    esperarVentana(p.ventana.get());
    p.ui.Scr->setValue(1);
    tecla(Qt::Key_F1);
    p.ui.TxtLista->setFocus();
    escribir(u"1"_s);
    fallar(u"INTERNOS"_s, u"itemliq"_s, [] { tecla(Qt::Key_F11); });
}

}  // namespace
