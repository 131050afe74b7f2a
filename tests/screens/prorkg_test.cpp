// Asking for the net kilos and spreading them, by keyboard.

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QProgressBar>

#include "assembly/FrmProrKg.h"
#include "assembly/run.h"
#include "frame/ui/Pantalla.h"
#include "tests/support/claves.h"
#include "tests/support/pantallas.h"

using namespace Qt::StringLiterals;

namespace {

/// The demonstration's import, armed, with none of its groups in kilos; then two of item 1 are, of FOB 1
/// and 3.
class PantallaDeKilos : public EnPantalla {
 protected:
    void SetUp() override {
        EnPantalla::SetUp();
        ctx->ChequeoArmado = u"SI"_s;
        ASSERT_TRUE(Generar(*ctx, importacion, {}));
        ejecutar(
            u"update groupsubitems set kgneto = 0, estadistica = '07', deresp = '', idunidad = '07' "
            "where interno = 'IC-2026-0001'"_s);
        ejecutar(u"update item set totalkneto = 0 where interno = 'IC-2026-0001'"_s);
        ejecutar(u"delete from groupsubitems where interno = 'IC-2026-0001' and id = 1"_s);
        for (const char *fob : {"1", "3"})
            ejecutar(
                "insert into groupsubitems "
                "(interno,id,idsub,fob,kgneto,estadistica,valorrelacionestadistica,deresp,valorderesp) "
                "values ('IC-2026-0001',1,1,"_L1 +
                QLatin1String(fob) + ",0,'01',0,'',0)"_L1);
        registro = {};
    }
    /// What the screen answered while `hacer` had it.
    bool mostrar(const QString &item, const QString &kilos, const std::function<void(FrmProrKg &)> &hacer) {
        conPantallaModal<FrmProrKg>(hacer);
        const bool prorrateo = Pantalla<FrmProrKg>().Mostrar(importacion, item, kilos);
        CerrarPantalla<FrmProrKg>();
        return prorrateo;
    }
    std::string neto(int item) {
        return valor(u"select totalkneto from item where interno = 'IC-2026-0001' and id = %1"_s.arg(item))
            .toStdString();
    }
    std::string gruposDelUno() {
        return filas(
                   u"select kgneto from groupsubitems where interno = 'IC-2026-0001' and id = 1 order by fob"_s)
            .toStdString();
    }
};

TEST_P(PantallaDeKilos, TheFieldStartsWithTheKilosAndTheButtonSpreadsThemOverTheItem) {
    const bool prorrateo = mostrar(u"1"_s, u"07.50"_s, [](FrmProrKg &p) {
        EXPECT_EQ(p.ventana->windowTitle(), u"Porrateo Total Kg Total Neto"_s);
        EXPECT_EQ(p.ui.rotulo_TxtValor->text().remove(u'&'), u"Total Kg Neto a Prorratear:"_s);
        EXPECT_EQ(p.ui.rotulo_LbItem->text(), u"Item Nro.:"_s);
        EXPECT_EQ(p.ui.CmdPror->text().remove(u'&'), u"Procesar"_s);
        EXPECT_EQ(p.ui.LbItem->text(), u"1"_s);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtValor);
        EXPECT_EQ(p.ui.TxtValor->selectedText(), u"07.50"_s);
        escribir(u"10"_s);
        tecla(Qt::Key_Return);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.CmdPror);
        tecla(Qt::Key_Return);
        EXPECT_FALSE(p.ventana->isVisible());
    });
    EXPECT_TRUE(prorrateo);
    EXPECT_TRUE(registro.mensajes.empty());
    // 10 over a FOB of 4.
    EXPECT_EQ(gruposDelUno(), "2.5\n7.5");
    EXPECT_EQ(neto(1), "10");
}

TEST_P(PantallaDeKilos, ItemZeroSpreadsOverTheWholeDeclarationByItsShortcut) {
    const bool prorrateo = mostrar(u"0"_s, u"100"_s, [](FrmProrKg &p) {
        atajo(Qt::Key_P);
        EXPECT_FALSE(p.ventana->isVisible());
    });
    EXPECT_TRUE(prorrateo);
    EXPECT_EQ(neto(0), "100");
    EXPECT_EQ(valor(u"select sum(totalkneto) as t from item where interno = 'IC-2026-0001' and id > 0"_s),
              u"100"_s);
    ASSERT_EQ(registro.mensajes.size(), 1U) << "the other items are not counted in kilos, which is told once";
    EXPECT_EQ(registro.mensajes[0].texto, u"En los subitem's no se encontro campos para prorratear"_s);
}

TEST_P(PantallaDeKilos, ARefusedValueKeepsTheScreenWithTheFocusOnIt) {
    struct Caso {
        const char *item, *valor, *mensaje;
    };
    for (const Caso &c : {Caso{"0", "x", "Debe ingresar un valor númerico"},
                          Caso{"0", "0", "Los valores deben ser mayores a cero"},
                          Caso{"1", "x", "El valor a prorratear debe ser numerico"}}) {
        registro = {};
        const bool prorrateo = mostrar(QLatin1String(c.item), QLatin1String(c.valor), [](FrmProrKg &p) {
            atajo(Qt::Key_P);
            EXPECT_TRUE(p.ventana->isVisible());
            EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtValor);
            EXPECT_EQ(p.ui.TxtValor->selectedText(), p.ui.TxtValor->text());
            tecla(Qt::Key_Escape);
        });
        EXPECT_FALSE(prorrateo);
        ASSERT_EQ(registro.mensajes.size(), 1U) << c.mensaje;
        EXPECT_EQ(registro.mensajes[0].texto, QString::fromUtf8(c.mensaje));
        EXPECT_EQ(registro.mensajes[0].icono, Icono::Exclamacion);
    }
    EXPECT_EQ(neto(1), "0");
}

TEST_P(PantallaDeKilos, AfterARefusalTheNextValueIsTaken) {
    const bool prorrateo = mostrar(u"1"_s, {}, [](FrmProrKg &p) {
        atajo(Qt::Key_P);
        EXPECT_TRUE(p.ventana->isVisible());
        escribir(u"8"_s);
        atajo(Qt::Key_P);
        EXPECT_FALSE(p.ventana->isVisible());
    });
    EXPECT_TRUE(prorrateo);
    EXPECT_EQ(gruposDelUno(), "2\n6");
}

TEST_P(PantallaDeKilos, EscapeLeavesWithoutTouchingAnything) {
    const bool prorrateo = mostrar(u"1"_s, u"10"_s, [](FrmProrKg &p) {
        tecla(Qt::Key_Escape);
        EXPECT_FALSE(p.ventana->isVisible());
    });
    EXPECT_FALSE(prorrateo);
    EXPECT_EQ(neto(1), "0");
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(PantallaDeKilos, AStoreThatRefusesIsToldAndTheCallerReadsAnew) {
    ejecutar(u"drop table groupsubitems"_s);
    const bool prorrateo = mostrar(u"1"_s, u"10"_s, [](FrmProrKg &p) {
        atajo(Qt::Key_P);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtValor);
        EXPECT_TRUE(p.ui.CmdPror->isEnabled());
        tecla(Qt::Key_Escape);
    });
    EXPECT_TRUE(prorrateo) << "what was written before the refusal is written";
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Critico);
}

TEST_P(PantallaDeKilos, WhileASpreadRunsNothingElseBeginsAndItIsNotLeft) {
    int vistas = 0;
    ctx->dialogos.atenderEventos = [&vistas] {
        auto &p = Pantalla<FrmProrKg>();
        ++vistas;
        EXPECT_FALSE(p.ui.CmdPror->isEnabled());
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QApplication::sendEvent(p.ventana.get(), &escape);
        p.ventana->close();
        EXPECT_TRUE(p.ventana->isVisible());
    };
    EXPECT_TRUE(mostrar(u"0"_s, u"100"_s, [](FrmProrKg &p) {
        atajo(Qt::Key_P);
        EXPECT_EQ(p.ui.Pb1->value(), 100);
        EXPECT_EQ(p.ui.Pb2->value(), 100);
    }));
    EXPECT_GT(vistas, 0);
    EXPECT_EQ(neto(0), "100");
}

TEST_P(PantallaDeKilos, TabGoesFromTheFieldToTheButton) {
    mostrar(u"1"_s, u"10"_s, [](FrmProrKg &p) {
        EXPECT_EQ(ordenDeTab(p.ventana.get()), (QStringList{u"TxtValor"_s, u"CmdPror"_s}));
        tecla(Qt::Key_Escape);
    });
}

EN_AMBOS_STORES(PantallaDeKilos);

class CapturasDeKilos : public PantallaDeKilos {};
INSTANTIATE_TEST_SUITE_P(Stores, CapturasDeKilos, ::testing::Values("ACCESS"));

TEST_P(CapturasDeKilos, OfAnItemAndOfTheDeclaration) {
    for (const auto &[item, kilos, nombre] :
         {std::tuple{u"1"_s, u"12.50"_s, u"kilos"_s}, std::tuple{u"0"_s, u"1234.00"_s, u"kilos-operacion"_s}})
        mostrar(item, kilos, [&nombre = nombre](FrmProrKg &p) {
            foto(p.ventana.get(), nombre);
            tecla(Qt::Key_Escape);
        });
}

}  // namespace
