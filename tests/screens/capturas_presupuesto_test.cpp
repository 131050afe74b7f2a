// Pictures of the quote and of its forms, and the order of TAB in each.

#include <gtest/gtest.h>

#include <QApplication>

#include "outputs/FrmConceptos.h"
#include "outputs/FrmDatos.h"
#include "outputs/FrmReferencias.h"
#include "tests/screens/presupuesto_pantalla.h"

using namespace Qt::StringLiterals;

namespace {

class CapturasDelPresupuesto : public EnElPresupuesto {
 protected:
    static std::string orden(QWidget *ventana, QWidget *primero) {
        primero->setFocus();
        return ordenDeTab(ventana).join(u' ').toStdString();
    }
};

TEST_P(CapturasDelPresupuesto, TheQuote) {
    const QString interno = u"IC-2026-0001"_s;
    for (const char *concepto : {"011','TASA DE ESTADISTICA',608.23,'P'", "062','IVA ADICIONAL',3779.07,'P'",
                                 "424','IMPUESTO A LAS GANANCIAS',1392.61,'P'"})
        ejecutar("insert into liqcero (interno,idconcepto,concepto,valor,pgc) values ('IC-2026-0001','"_L1 +
                 QLatin1String(concepto) + ")"_L1);
    AgregarGasto(*ctx, interno, u"HONORARIOS"_s, u"850"_s, true);
    AgregarGasto(*ctx, interno, u"GASTOS OPERATIVOS"_s, u"185000"_s, false);
    AgregarGasto(*ctx, interno, u"FLETE INTERNO"_s, u"420"_s, true);
    registro.textos = {u"CAP SAN MARTIN"_s, u"HLCUHAM260104417"_s};
    for (const QString &referencia : {u"BUQUE"_s, u"CONOCIMIENTO"_s})
        AgregarReferencia(*ctx, interno, referencia);
    mostrar([](FrmPresupuesto &p) {
        p.ui.Grd->setFocus();
        tecla(Qt::Key_F12);
        foto(p.ventana.get(), u"presupuesto"_s);
        EXPECT_EQ(orden(p.ventana.get(), p.ui.TxtEmail),
                  "TxtEmail TxtPase txtAcuenta GrdLiq Grd Grd2 cmdComentario opSMTP CbLineas CmdCorreo "
                  "CmdPDF CmdVista CmdEnviar");
        conPantallaModal<FrmConceptos>([](FrmConceptos &c) {
            foto(c.ventana.get(), u"presupuesto-conceptos"_s);
            EXPECT_EQ(orden(c.ventana.get(), c.ui.LstConceptos), "LstConceptos TxtConcepto");
            c.ui.LstConceptos->setFocus();
            c.ui.LstConceptos->setCurrentRow(2);
            tecla(Qt::Key_Escape);
        });
        p.ui.Grd->setFocus();
        tecla(Qt::Key_Insert);
        esperarVentana(p.ventana.get());
        conPantallaModal<FrmReferencias>([](FrmReferencias &r) {
            foto(r.ventana.get(), u"presupuesto-referencias"_s);
            EXPECT_EQ(orden(r.ventana.get(), r.ui.LstReferencias), "LstReferencias TxtRefencia");
            tecla(Qt::Key_Escape);
        });
        p.ui.Grd2->setFocus();
        tecla(Qt::Key_Insert);
        esperarVentana(p.ventana.get());
        conPantallaModal<FrmDatos>([](FrmDatos &d) {
            foto(d.ventana.get(), u"presupuesto-valor"_s);
            EXPECT_EQ(orden(d.ventana.get(), d.ui.TxtValor), "TxtValor opDolar CmdAceptar CmdCancelar");
            tecla(Qt::Key_Escape);
        });
        p.ui.GrdLiq->setFocus();
        tecla(Qt::Key_Return);
        esperarVentana(p.ventana.get());
        tecla(Qt::Key_Escape);
    });
}

INSTANTIATE_TEST_SUITE_P(Stores, CapturasDelPresupuesto, ::testing::Values("ACCESS"),
                         [](const auto &caso) { return std::string(caso.param); });

}  // namespace
