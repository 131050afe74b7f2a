// What a line takes of the stock, by keyboard, over the real link.

#include <gtest/gtest.h>

#include <QApplication>

#include "frame/ui/estilo.h"
#include "stock/FrmTomarInsumos.h"
#include "tests/screens/stock_pantalla.h"
#include "tests/screens/subitems_pantalla.h"

using namespace Qt::StringLiterals;

namespace {

class TomaDeInsumos : public ConStock<EnLineas> {
 protected:
    void SetUp() override {
        ConStock<EnLineas>::SetUp();
        ejecutar(
            u"update caratula set idsubreg = 'EC02', cuitcliente = '30708123451', fobcoddivisas = 'DOL' "
            "where interno = 'OP 1'"_s);
    }
    /// F8 on the lines; `hacer` in the screen of taking.
    static void tomar(const std::function<void(FrmTomarInsumos &)> &hacer) {
        bool vista = false;
        conPantallaModal<FrmTomarInsumos>([&](FrmTomarInsumos &p) {
            vista = true;
            hacer(p);
        });
        tecla(Qt::Key_F8);
        EXPECT_TRUE(vista) << "it was not opened";
        esperarVentana(Pantalla<FrmSubItems>().ventana.get());
    }
    /// What is proposed of each line of the article in hand.
    static std::string propuesto(const FrmTomarInsumos &p) {
        return textosDe(p.ui.LstLineas, 8).join(u'|').toStdString();
    }
    /// The line that the article filled, priced and saved.
    static void guardarCon(FrmSubItems &pantalla, const QString &cantidad) {
        llenarYSeguir(pantalla.ui.TxtCantidad, cantidad);
        llenarYSeguir(pantalla.ui.TxtFobTotal, u"3000"_s);
        tecla(Qt::Key_F11);
    }
    std::string tomado() {
        return filas(
                   u"select s.dit,m.cantidad,m.descontado,m.cif from stockmov m,stock s where m.idstock = s.id "
                   "and m.devuelta is null order by s.dit"_s)
            .toStdString();
    }
};
EN_AMBOS_STORES(TomaDeInsumos);

TEST_P(TomaDeInsumos, TheArticlesOfTheClientAreOfferedAndTheirLinesOldestExpiryFirst) {
    lineas();
    tomar([](FrmTomarInsumos &p) {
        EXPECT_EQ(p.ventana->windowTitle(), u"Tomar insumos del stock - Operación OP 1"_s);
        EXPECT_EQ(p.ui.lbCliente->text(), u"HIDRAULICA DEL PLATA S.A."_s);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtArticulo);
        // 100 + 50 + 30, the first that expires being that of the 20 days.
        ASSERT_EQ(p.ui.Lst->model()->rowCount(), 1)
            << "nothing is left of the other, and corks are another's";
        EXPECT_EQ(
            fila(p.ui.Lst, 0),
            "HIDPLATA|NP-0750|Electrobomba sumergible 750 W|8413.70.10.100L|07|180.00|" + textoDeDia(20));
        ASSERT_EQ(p.ui.LstLineas->rowCount(), 3);
        EXPECT_EQ(fila(p.ui.LstLineas, 0), std::string(porVencer) + "|1|1|" + textoDeDia(-100) + "|" +
                                               textoDeDia(20) + "|por vencer|50.00|50.00|");
        EXPECT_EQ(fila(p.ui.LstLineas, 2), std::string(vencida) + "|2|1|" + textoDeDia(-100) + "|" +
                                               textoDeDia(-10) + "|vencido|30.00|30.00|")
            << "behind the others";
        EXPECT_EQ(p.ui.LstLineas->item(2, 0)->foreground().color(), estilo::falta());
        EXPECT_EQ(p.ui.LstLineas->item(0, 0)->foreground().color(), estilo::aviso());
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(ultimoMensaje(), "<ninguno>");
    EXPECT_EQ(Pantalla<FrmSubItems>().ui.txtIdArticulo->text(), QString()) << "it was left";
}

TEST_P(TomaDeInsumos, EnterThreeTimesTakesAQuantityFromWhatExpiresFirst) {
    auto &pantalla = lineas();
    tomar([](FrmTomarInsumos &p) {
        escribir(u"0750"_s);
        tecla(Qt::Key_Return);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtCantidad);
        EXPECT_EQ(p.ui.lbUnidad->text(), u"07 UNIDAD"_s);
        escribir(u"60"_s);
        tecla(Qt::Key_Return);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.LstLineas);
        EXPECT_EQ(propuesto(p), "50.00|10.00|");
        EXPECT_TRUE(p.ui.lbResumen->text().startsWith(u"Se toman 60"_s));
        tecla(Qt::Key_Return);
    });
    auto &ui = pantalla.ui;
    EXPECT_EQ(ui.TxtIdCatalogo->text(), u"HIDPLATA"_s);
    EXPECT_EQ(ui.txtIdArticulo->text(), u"NP-0750"_s);
    EXPECT_EQ(ui.TxtPosicion->text(), bomba);
    EXPECT_EQ(ui.TxtUnidad->text(), u"07"_s);
    EXPECT_EQ(ui.TxtIdpais->text(), u"438"_s);
    EXPECT_EQ(ui.txtSufijos->text(), u"AA01-AB(NORDPUMPEN NP 0750)-ZB(000750)-"_s);
    EXPECT_FALSE(ui.txtIdArticulo->isEnabled());
    EXPECT_EQ(QApplication::focusWidget(), ui.TxtCantidad);
    EXPECT_EQ(ui.TxtCantidad->text(), u"60"_s) << "what was chosen, to be taken or changed";
    guardarCon(pantalla, u"60"_s);
    EXPECT_EQ(ultimoMensaje(), "<ninguno>");
    // 5500 x 50/50 and 10000 x 10/100.
    EXPECT_EQ(tomado(), "26001IT14000011A|10|10|1000\n26001IT14000012B|50|50|5500");
    EXPECT_EQ(saldos(), "90 0 30 0");
    EXPECT_EQ(linea("cancelaciones,insumostemp"), "OK|6500");
}

TEST_P(TomaDeInsumos, QuantitiesOfTheLinesAreKeyedAndAnExpiredOneIsAsked) {
    auto &pantalla = lineas();
    tomar([this](FrmTomarInsumos &p) {
        tecla(Qt::Key_Return);
        tecla(Qt::Key_Return);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.LstLineas) << "no quantity, nothing proposed";
        EXPECT_EQ(propuesto(p), "||");
        tecla(Qt::Key_Down);
        escribir(u"1"_s);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtDeLinea);
        escribir(u"2"_s);
        tecla(Qt::Key_Return);
        EXPECT_EQ(propuesto(p), "|12.00|");
        EXPECT_EQ(QApplication::focusWidget(), p.ui.LstLineas);
        EXPECT_EQ(p.ui.LstLineas->currentRow(), 2);
        escribir(u"8"_s);
        tecla(Qt::Key_Return);
        ASSERT_EQ(registro.preguntas.size(), 1U);
        EXPECT_EQ(registro.preguntas[0].texto.toStdString(),
                  "La línea de la declaración 25001IT14000003C venció el " + textoDeDia(-10) +
                      ". ¿Toma de ella igual?");
        EXPECT_TRUE(registro.preguntas[0].porDefectoNo);
        EXPECT_EQ(propuesto(p), "|12.00|") << "No takes none of it";
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtDeLinea);
        registro.respuestas = {true};
        tecla(Qt::Key_Return);
        EXPECT_EQ(propuesto(p), "|12.00|08.00");
        tecla(Qt::Key_Up);
        EXPECT_EQ(p.ui.TxtDeLinea->text(), u"12.00"_s);
        tecla(Qt::Key_Delete);
        EXPECT_EQ(propuesto(p), "||08.00");
        escribir(u"4"_s);
        tecla(Qt::Key_Return);
        atajo(Qt::Key_T);
    });
    guardarCon(pantalla, u"12"_s);
    EXPECT_EQ(ultimoMensaje(), "<ninguno>");
    // 10000 x 4/100; 2700 x 8/30.
    EXPECT_EQ(tomado(), "25001IT14000003C|8|8|720\n26001IT14000011A|4|4|400");
    EXPECT_EQ(saldos(), "96 50 22 0");
}

TEST_P(TomaDeInsumos, AQuantityThatCannotBeTakenIsToldAndTheKeyboardStaysOnIt) {
    lineas();
    tomar([this](FrmTomarInsumos &p) {
        tecla(Qt::Key_Return);
        const auto enCantidad = [&](const QString &texto, const std::string &aviso) {
            p.ui.TxtCantidad->selectAll();
            escribir(texto);
            tecla(Qt::Key_Return);
            EXPECT_EQ(ultimoMensaje(), aviso);
            EXPECT_EQ(registro.mensajes.back().icono, Icono::Exclamacion);
            EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtCantidad);
        };
        enCantidad(u"doce"_s, "La cantidad no es un número: escriba cuánto se toma del stock.");
        // Two decimals are what leaves the stock.
        enCantidad(
            u"0.004"_s,
            "La cantidad es menor que un centésimo, que es lo menos que se descuenta del stock; indique una "
            "mayor o encienda en las opciones \"Habilitar Modo: Valor Decimal Extendido\".");
        enCantidad(u"-3"_s, "La cantidad que se toma del stock debe ser mayor que cero.");
        enCantidad(
            u"160"_s,
            "Lo que no venció no alcanza: faltan 10.00 (unidad 07). Elija más de otras líneas o baje la cantidad.");
        EXPECT_EQ(propuesto(p), "50.00|100.00|");
        p.ui.LstLineas->setFocus();
        escribir(u"50.01"_s);
        tecla(Qt::Key_Return);
        EXPECT_EQ(ultimoMensaje(),
                  "La línea alcanza para 50.00 (unidad 07): escriba esa cantidad o una menor.");
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtDeLinea);
        EXPECT_EQ(p.ui.TxtDeLinea->selectedText(), u"50.01"_s);
        tecla(Qt::Key_Escape);
    });
}

TEST_P(TomaDeInsumos, AnArticleWithoutQuantitiesIsTakenByTheLineAsItIsSaved) {
    auto &pantalla = lineas();
    tomar([](FrmTomarInsumos &) { atajo(Qt::Key_T); });
    guardarCon(pantalla, u"55"_s);
    EXPECT_EQ(ultimoMensaje(), "<ninguno>");
    EXPECT_EQ(saldos(), "95 0 30 0");
}

TEST_P(TomaDeInsumos, AStockThatDoesNotReachLeavesNoLineAndSaysHowMuchThereIs) {
    auto &pantalla = lineas();
    tomar([](FrmTomarInsumos &) { atajo(Qt::Key_T); });
    guardarCon(pantalla, u"151"_s);
    EXPECT_EQ(cuantas(), 0);
    EXPECT_EQ(registro.mensajes.size(), 1U) << "one sentence";
    EXPECT_TRUE(registro.mensajes[0].texto.contains(u"no alcanza"_s));
    EXPECT_EQ(saldos(), "100 50 30 0");
    EXPECT_EQ(pantalla.ui.TxtCantidad->text(), u"151"_s) << "the line is still there to be mended";
}

// With waste and loss of 5 percent, 50 reach for 47.62: 47.62 x 1.05 = 50.001, which leaves as 50.00; 47.63
// would leave 50.01.
TEST_P(TomaDeInsumos, WasteAndLossMakeALineReachForLess) {
    ctx->opciones.RestarPerMer = true;
    lineas();
    tomar([](FrmTomarInsumos &p) {
        EXPECT_EQ(textosDe(p.ui.LstLineas, 7).first(), u"47.62"_s);
        tecla(Qt::Key_Return);
        escribir(u"48"_s);
        tecla(Qt::Key_Return);
        EXPECT_EQ(propuesto(p), "47.62|00.38|");
        tecla(Qt::Key_Escape);
    });
}

TEST_P(TomaDeInsumos, AClientWithoutInputsIsToldHowTheyComeIn) {
    ejecutar(u"update stock set saldo = 0"_s);
    auto &pantalla = lineas();
    tecla(Qt::Key_F8);
    EXPECT_FALSE(PantallaAbierta<FrmTomarInsumos>());
    EXPECT_EQ(
        ultimoMensaje(),
        "El cliente de la operación no tiene insumos con saldo en el stock: cárguelos desde la operación de "
        "importación temporal con \"Exportar Stock\".");
    EXPECT_TRUE(pantalla.ui.txtIdArticulo->isEnabled());
}

TEST_P(TomaDeInsumos, TheSearchNarrowsTheArticlesAndTheirLinesFollow) {
    ejecutar(u"update stock set saldo = 10 where idarticulo = 'NP-1100'"_s);
    lineas();
    tomar([](FrmTomarInsumos &p) {
        EXPECT_EQ(p.ui.Lst->model()->rowCount(), 2);
        escribir(u"1100"_s);
        hasta([&p] { return p.ui.Lst->model()->rowCount() == 1; });
        ASSERT_EQ(p.ui.LstLineas->rowCount(), 1);
        EXPECT_EQ(p.ui.LstLineas->item(0, 4)->text(), QString()) << "it does not expire";
        escribir(u"X"_s);
        hasta([&p] { return p.ui.Lst->model()->rowCount() == 0; });
        EXPECT_EQ(p.ui.LstLineas->rowCount(), 0);
        EXPECT_FALSE(p.ui.CmdTomar->isEnabled());
        tecla(Qt::Key_Return);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtArticulo);
        tecla(Qt::Key_Escape);
    });
}

TEST_P(TomaDeInsumos, DeletingTheLineGivesItsInputsBack) {
    auto &pantalla = lineas();
    tomar([](FrmTomarInsumos &) { atajo(Qt::Key_T); });
    guardarCon(pantalla, u"55"_s);
    ASSERT_EQ(saldos(), "95 0 30 0");
    registro.respuestas = {true, true};
    tecla(Qt::Key_F9);
    tecla(Qt::Key_Delete);
    EXPECT_EQ(cuantas(), 0);
    EXPECT_EQ(saldos(), "100 50 30 0");
    EXPECT_EQ(valor(u"select count(*) as n from descargas where interno = 'OP 1'"_s), u"0"_s);
}

}  // namespace
