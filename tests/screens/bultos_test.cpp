// The packages and the book of transport agents, by keyboard.

#include <gtest/gtest.h>

#include <QApplication>

#include "frame/ui/Pantalla.h"
#include "header/FrmABMAgTrans.h"
#include "header/FrmBultos.h"
#include "header/FrmLstTrans.h"
#include "operations/FrmDetalleInterno.h"
#include "tests/support/pantallas.h"

using namespace Qt::StringLiterals;

namespace {

const QString operacionDeBultos = u"IC-2026-0001"_s;
/// The check digit of 3050000001 is 1.
const QString cuitDeNaviera = u"30500000011"_s;

class PantallaDeBultos : public EnPantalla {
 protected:
    void SetUp() override {
        EnPantalla::SetUp();
        ejecutar(
            u"update caratula set factura9 = null, bulnro = null, marcabul = null, bulcod = null, "
            "bultip = null, buldes = null, venemb = null, cuittrans = null, factura10 = null "
            "where interno = 'IC-2026-0001'"_s);
        ejecutar(u"delete from transporte"_s, u"PERSONAL"_s);
        ejecutar(u"insert into transporte (cuit,nombre) values ('30500000011','NAVIERA DEL PLATA')"_s,
                 u"PERSONAL"_s);
    }
    void mostrar(const std::function<void(FrmBultos &)> &hacer) {
        conPantallaModal<FrmBultos>(hacer);
        Pantalla<FrmBultos>().Mostrar(operacionDeBultos);
        CerrarPantalla<FrmBultos>();
    }
    std::string guardado(const QString &columnas) {
        return filas("select "_L1 + columnas + " from caratula where interno = '"_L1 + operacionDeBultos +
                     "'"_L1)
            .toStdString();
    }
};
EN_AMBOS_STORES(PantallaDeBultos);

TEST_P(PantallaDeBultos, EnterGoesThroughTheFieldsAndEscapeSaves) {
    mostrar([](FrmBultos &p) {
        EXPECT_EQ(QApplication::focusWidget(), p.ui.chTransBultos);
        EXPECT_TRUE(p.ui.chTransBultos->isChecked());
        tecla(Qt::Key_Return);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtNroBultos);
        escribir(u"12"_s);
        tecla(Qt::Key_Return);
        escribir(u"12"_s);
        tecla(Qt::Key_Return);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtCodigo);
        p.ui.TxtMarcaBul->setFocus();
        escribir(u"S/M"_s);
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(guardado(u"factura9,bulnro,buldes,marcabul"_s), "1|12|12|S/M");
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(PantallaDeBultos, AnUntickedBoxDiscardsWhatWasTyped) {
    mostrar([](FrmBultos &p) {
        p.ui.TxtNroBultos->setFocus();
        escribir(u"99"_s);
        p.ui.chTransBultos->setFocus();
        tecla(Qt::Key_Space);
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(guardado(u"factura9,bulnro"_s), "1|<null>");
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto, u"Eligio no transferir bultos, los datos no seran guardados"_s);
}

TEST_P(PantallaDeBultos, AWrongExpiryKeepsTheScreenWithTheFocusOnIt) {
    mostrar([](FrmBultos &p) {
        p.ui.TxtVencimiento->setFocus();
        escribir(u"31/2/27"_s);
        tecla(Qt::Key_Escape);
        EXPECT_TRUE(p.ventana->isVisible());
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtVencimiento);
        p.ui.TxtVencimiento->clear();
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(guardado(u"factura9,venemb"_s), "1|<null>");
}

TEST_P(PantallaDeBultos, ADateTakesItsFormWhenItsFieldIsLeft) {
    mostrar([](FrmBultos &p) {
        p.ui.TxtVencimiento->setFocus();
        escribir(u"5-1-30"_s);
        tecla(Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_EQ(p.ui.TxtVencimiento->text(), u"05/01/1930"_s)
            << "two digits from 30 on are of the last century";
        p.ui.TxtVencimiento->clear();
        tecla(Qt::Key_Escape);
    });
}

TEST_P(PantallaDeBultos, AKnownAgentFillsItsNameAndAWrongNumberEmptiesTheField) {
    mostrar([](FrmBultos &p) {
        p.ui.TxtCuit->setFocus();
        escribir(u"30500000012"_s);
        tecla(Qt::Key_Return);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtCuit);
        EXPECT_TRUE(p.ui.TxtCuit->text().isEmpty());
        escribir(cuitDeNaviera);
        tecla(Qt::Key_Return);
        EXPECT_EQ(p.ui.TxtNombreTrans->text(), u"NAVIERA DEL PLATA"_s);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtNombreTrans);
        tecla(Qt::Key_Escape);
    });
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto, u"CUIT Incorrecto, ingreselo nuevamente"_s);
    EXPECT_EQ(guardado(u"cuittrans,factura10"_s), "30500000011|NAVIERA DEL PLATA");
}

TEST_P(PantallaDeBultos, AnAgentThatIsNotKeptIsOfferedToBeAdded) {
    // 3·5 + 5·3 + 2·2 = 34; 34 mod 11 = 1, which keeps the digit 1.
    mostrar([](FrmBultos &p) {
        p.ui.TxtCuit->setFocus();
        escribir(u"30500000021"_s);
        conPantallaModal<FrmABMAgTrans>([](FrmABMAgTrans &agente) {
            EXPECT_EQ(agente.ui.TxtCuit->text(), u"30500000021"_s);
            EXPECT_EQ(QApplication::focusWidget(), agente.ui.TxtNombre);
            escribir(u"OTRA NAVIERA"_s);
            atajo(Qt::Key_G);
        });
        tecla(Qt::Key_Return);
        esperarVentana(p.ventana.get());
        EXPECT_EQ(p.ui.TxtNombreTrans->text(), u"OTRA NAVIERA"_s);
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(valor(u"select nombre from transporte where cuit = '30500000021'"_s, u"PERSONAL"_s),
              u"OTRA NAVIERA"_s);
}

TEST_P(PantallaDeBultos, TheListOfAgentsIsOpenedByF6AndKept) {
    mostrar([this](FrmBultos &p) {
        p.ui.TxtCuit->setFocus();
        conPantallaModal<FrmLstTrans>([this](FrmLstTrans &lista) {
            EXPECT_EQ(lista.ui.Lst->rowCount(), 1);
            conPantallaModal<FrmABMAgTrans>([](FrmABMAgTrans &agente) {
                EXPECT_EQ(QApplication::focusWidget(), agente.ui.TxtCuit);
                escribir(u"30500000021"_s);
                tecla(Qt::Key_Return);
                escribir(u"ALFA"_s);
                atajo(Qt::Key_G);
            });
            tecla(Qt::Key_Insert);
            esperarVentana(lista.ventana.get());
            EXPECT_EQ(lista.ui.Lst->rowCount(), 2);
            EXPECT_EQ(lista.ui.Lst->item(lista.ui.Lst->currentRow(), 1)->text(), u"ALFA"_s);
            registro.respuestas = {true};
            lista.ui.Lst->setFocus();
            tecla(Qt::Key_Delete);
            EXPECT_EQ(lista.ui.Lst->rowCount(), 1);
            tecla(Qt::Key_Return);
        });
        tecla(Qt::Key_F6);
        esperarVentana(p.ventana.get());
        EXPECT_EQ(p.ui.TxtCuit->text(), cuitDeNaviera);
        EXPECT_EQ(p.ui.TxtNombreTrans->text(), u"NAVIERA DEL PLATA"_s);
        tecla(Qt::Key_Escape);
    });
}

TEST_P(PantallaDeBultos, AListLeftWithEscapeChangesNothing) {
    mostrar([](FrmBultos &p) {
        p.ui.TxtCuit->setFocus();
        conPantallaModal<FrmLstTrans>([](FrmLstTrans &) { tecla(Qt::Key_Escape); });
        tecla(Qt::Key_F6);
        esperarVentana(p.ventana.get());
        EXPECT_TRUE(p.ui.TxtCuit->text().isEmpty());
        tecla(Qt::Key_Escape);
    });
}

TEST_P(PantallaDeBultos, TheDashboardOpensThemAndThenTellsThatTheyAreComplete) {
    ejecutar(u"insert into item (interno,id) values ('IC-2026-0001',0)"_s);
    FrmDetalleInterno &tablero = abrir(operacionDeBultos);
    EXPECT_EQ(tablero.ui.LbEstadoBultos->text(), u"INCOMPLETO"_s);
    ASSERT_TRUE(tablero.ui.CmdBultos->isEnabled()) << "the items are made";
    tablero.ui.CmdBultos->setFocus();
    conPantallaModal<FrmBultos>([](FrmBultos &p) {
        p.ui.TxtNroBultos->setText(u"12"_s);
        p.ui.TxtBultDesp->setText(u"12"_s);
        p.ui.TxtCodigo->setText(u"05"_s);
        p.ui.TxtTipo->setText(u"B"_s);
        p.ui.TxtPeso->setText(u"100"_s);
        tecla(Qt::Key_Escape);
    });
    atajo(Qt::Key_B);
    EXPECT_EQ(tablero.ui.LbEstadoBultos->text(), u"COMPLETO"_s);
    EXPECT_TRUE(tablero.ui.CmdTransMaria->isEnabled());
}

class CapturasDeBultos : public PantallaDeBultos {};
INSTANTIATE_TEST_SUITE_P(Stores, CapturasDeBultos, ::testing::Values("ACCESS"));

TEST_P(CapturasDeBultos, ThePackagesAndTheirAgents) {
    mostrar([](FrmBultos &p) {
        p.ui.TxtNroBultos->setText(u"12"_s);
        p.ui.TxtBultDesp->setText(u"12"_s);
        p.ui.TxtMarcaBul->setText(u"S/M"_s);
        p.ui.TxtCuit->setText(cuitDeNaviera);
        p.ui.TxtNombreTrans->setText(u"NAVIERA DEL PLATA"_s);
        foto(p.ventana.get(), u"bultos"_s);
        EXPECT_EQ(
            ordenDeTab(p.ventana.get()).join(u' '),
            u"chTransBultos TxtNroBultos TxtBultDesp TxtCodigo TxtTipo TxtPeso TxtMarcaBul TxtVia TxtNomTrans "
            "TxtBandera TxtCuit TxtNombreTrans TxtVencimiento"_s);
        p.ui.TxtCuit->setFocus();
        conPantallaModal<FrmLstTrans>([](FrmLstTrans &lista) {
            foto(lista.ventana.get(), u"agentes"_s);
            conPantallaModal<FrmABMAgTrans>([](FrmABMAgTrans &agente) {
                foto(agente.ventana.get(), u"agente"_s);
                tecla(Qt::Key_Escape);
            });
            tecla(Qt::Key_F6);
            esperarVentana(lista.ventana.get());
            tecla(Qt::Key_Escape);
        });
        tecla(Qt::Key_F6);
        esperarVentana(p.ventana.get());
        tecla(Qt::Key_Escape);
    });
}

}  // namespace
