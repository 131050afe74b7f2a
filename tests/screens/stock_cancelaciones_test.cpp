// The cancellations of an item over the real stock, by keyboard.

#include <gtest/gtest.h>

#include <QApplication>

#include "stock/FrmCancelaciones.h"
#include "tests/screens/items_pantalla.h"
#include "tests/screens/stock_pantalla.h"

using namespace Qt::StringLiterals;

namespace {

class CancelacionesConStock : public ConStock<EnItems> {
 protected:
    void SetUp() override {
        ConStock<EnItems>::SetUp();
        ejecutar(u"update caratula set idsubreg = 'EC02' where interno = 'IC-2026-0001'"_s);
    }
    /// The cancellations of item 1.
    FrmVerItem &cancelaciones() {
        auto &items = mostrarItem(1);
        tecla(Qt::Key_F5);
        return items;
    }
    void enCancelacion(int abrir, const std::function<void(FrmCancelaciones &)> &hacer) {
        enHija<FrmCancelaciones>([abrir] { tecla(abrir); }, hacer);
    }
    /// Enters one of the first line that is offered.
    void ingresar(const QString &cantidad) {
        enCancelacion(Qt::Key_Insert, [&](FrmCancelaciones &) {
            tecla(Qt::Key_Return);
            escribir(cantidad);
            atajo(Qt::Key_G);
        });
    }
    static std::string filasDe(const FrmVerItem &items) {
        QStringList textos;
        for (int n = 0; n < items.ui.lstVCancel->rowCount(); ++n)
            textos << QString::fromStdString(fila(items.ui.lstVCancel, n));
        return textos.join(u'\n').toStdString();
    }
};
EN_AMBOS_STORES(CancelacionesConStock);

TEST_P(CancelacionesConStock, InsertTakesForTheItemFromTheLineThatIsChosen) {
    auto &items = cancelaciones();
    enCancelacion(Qt::Key_Insert, [](FrmCancelaciones &p) {
        EXPECT_EQ(p.ventana->windowTitle(), u"Agregar cancelación - Operación IC-2026-0001"_s);
        EXPECT_EQ(p.ui.lbTitulo->text(), u"Agregar cancelación del item 1"_s);
        EXPECT_FALSE(p.ui.lbPosicion->text().isEmpty());
        EXPECT_EQ(p.ui.lbCancelada->text(), u"00,00"_s);
        EXPECT_FALSE(p.ui.ChManual->isVisible()) << "only with its option";
        EXPECT_FALSE(p.ui.TxtFactor->isEnabled());
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtBuscar);
        EXPECT_EQ(p.ui.lbCuantas->text(), u"3 líneas con saldo"_s);
        EXPECT_EQ(textosDe(p.ui.Lst, 0),
                  QStringList({u"26001IT14000012B"_s, u"26001IT14000011A"_s, u"25001IT14000003C"_s}));
        EXPECT_EQ(textosDe(p.ui.Lst, 9), QStringList({u"por vencer"_s, QString(), u"vencido"_s}));
        escribir(u"000011"_s);
        hasta([&p] { return p.ui.Lst->model()->rowCount() == 1; });
        tecla(Qt::Key_Return);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtCantidad);
        escribir(u"2,5"_s);
        EXPECT_EQ(p.ui.lbDescuenta->text(), u"descuenta 02,50"_s);
        EXPECT_EQ(p.ui.lbUnidad->text(), u"07 UNIDAD"_s);
        tecla(Qt::Key_Return);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.CmdGuardar);
        tecla(Qt::Key_Return);
    });
    EXPECT_EQ(ultimoAviso(), "<ninguno>");
    EXPECT_EQ(filasDe(items), "26001IT14000011A|1|1|8413.70.10.100L|EX-2026-77|02,500|1");
    EXPECT_EQ(saldos(), "97.5 50 30 0");
    EXPECT_EQ(valor(u"select iditem from descargas where interno = 'IC-2026-0001'"_s), u"1"_s);
}

// With waste and loss of 5 percent, 10 take 10.50 of 50.
TEST_P(CancelacionesConStock, WasteAndLossWeighACancellation) {
    ctx->opciones.RestarPerMer = true;
    auto &items = cancelaciones();
    enCancelacion(Qt::Key_Insert, [](FrmCancelaciones &p) {
        tecla(Qt::Key_Return);
        escribir(u"10"_s);
        EXPECT_EQ(p.ui.TxtFactor->text(), u"1,05"_s);
        EXPECT_EQ(p.ui.lbDescuenta->text(), u"descuenta 10,50"_s);
        atajo(Qt::Key_G);
    });
    EXPECT_EQ(saldos(), "100 39.5 30 0");
    EXPECT_EQ(filasDe(items), "26001IT14000012B|1|1|8413.70.10.100L|EX-2026-77|10,000|1,05");
}

TEST_P(CancelacionesConStock, EnterChangesTheQuantityOfTheRowInHand) {
    auto &items = cancelaciones();
    ingresar(u"50"_s);
    ASSERT_EQ(saldos(), "100 0 30 0");
    enCancelacion(Qt::Key_Return, [](FrmCancelaciones &p) {
        EXPECT_EQ(p.ui.lbTitulo->text(), u"Modificar cancelación del item 1"_s);
        EXPECT_EQ(p.ui.lbCancelada->text(), u"50,00"_s);
        // Its own line is there although nothing is left of it.
        EXPECT_EQ(enMano(p.ui.Lst, 0), u"26001IT14000012B"_s);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtCantidad);
        EXPECT_EQ(p.ui.TxtCantidad->selectedText(), u"50,00"_s);
        escribir(u"12"_s);
        atajo(Qt::Key_G);
    });
    EXPECT_EQ(ultimoAviso(), "<ninguno>");
    EXPECT_EQ(saldos(), "100 38 30 0");
    EXPECT_EQ(filasDe(items), "26001IT14000012B|1|1|8413.70.10.100L|EX-2026-77|12,000|1");
}

TEST_P(CancelacionesConStock, DeleteAsksAndGivesItBack) {
    auto &items = cancelaciones();
    ingresar(u"7"_s);
    tecla(Qt::Key_Delete);
    ASSERT_EQ(registro.preguntas.size(), 1U);
    EXPECT_EQ(registro.preguntas[0].texto,
              u"¿Elimina la cancelación de la declaración 26001IT14000012B y devuelve 07,00 al stock?"_s);
    EXPECT_TRUE(registro.preguntas[0].porDefectoNo);
    EXPECT_EQ(saldos(), "100 43 30 0");
    registro.respuestas = {true};
    tecla(Qt::Key_Delete);
    EXPECT_EQ(saldos(), "100 50 30 0");
    EXPECT_EQ(items.ui.lstVCancel->rowCount(), 0);
    EXPECT_EQ(valor(u"select count(*) as n from descargas where interno = 'IC-2026-0001'"_s), u"0"_s);
    EXPECT_EQ(QApplication::focusWidget(), items.ui.lstVCancel);
}

TEST_P(CancelacionesConStock, MoreThanIsLeftIsRefusedAndTheScreenStays) {
    cancelaciones();
    enCancelacion(Qt::Key_Insert, [this](FrmCancelaciones &p) {
        tecla(Qt::Key_Return);
        const auto guardar = [&](const QString &texto) {
            p.ui.TxtCantidad->selectAll();
            escribir(texto);
            atajo(Qt::Key_G);
            EXPECT_TRUE(p.ventana->isVisible());
            EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtCantidad);
            EXPECT_EQ(p.ui.TxtCantidad->selectedText(), texto);
        };
        guardar(u"50,01"_s);
        EXPECT_EQ(registro.mensajes.size(), 1U);
        guardar(u"0"_s);
        EXPECT_EQ(ultimoAviso(), "La cantidad que se toma del stock debe ser mayor que cero.");
        guardar(u"x"_s);
        EXPECT_EQ(ultimoAviso(), "La cantidad no es un número: escriba cuánto se cancela.");
        // Another workstation takes of the line meanwhile: its balance is read again.
        ejecutar(u"update stock set saldo = 5 where dit = '26001IT14000012B'"_s);
        guardar(u"50"_s);
        EXPECT_EQ(enMano(p.ui.Lst, 7), u"05,00"_s);
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(valor(u"select count(*) as n from stockmov"_s), u"0"_s);
}

// 50 less 0.000125.
TEST_P(CancelacionesConStock, VerySmallQuantitiesNeedTheirOption) {
    cancelaciones();
    enCancelacion(Qt::Key_Insert, [this](FrmCancelaciones &p) {
        tecla(Qt::Key_Return);
        escribir(u"0,000125"_s);
        atajo(Qt::Key_G);
        EXPECT_TRUE(
            registro.mensajes.back().texto.contains(u"\"Habilitar Modo: Valor Decimal Extendido\""_s));
        EXPECT_TRUE(p.ventana->isVisible());
        ctx->opciones.opVDE = true;
        atajo(Qt::Key_G);
    });
    EXPECT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(saldos(), "100 49.999875 30 0");
}

TEST_P(CancelacionesConStock, AnExpiredLineIsAskedAndNoIsTheDefault) {
    cancelaciones();
    enCancelacion(Qt::Key_Insert, [this](FrmCancelaciones &p) {
        tecla(Qt::Key_End);
        tecla(Qt::Key_Return);
        escribir(u"3"_s);
        atajo(Qt::Key_G);
        ASSERT_EQ(registro.preguntas.size(), 1U);
        EXPECT_TRUE(registro.preguntas[0].porDefectoNo);
        EXPECT_EQ(registro.preguntas[0].titulo, u"Insumo vencido"_s);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtBuscar);
        registro.respuestas = {true};
        atajo(Qt::Key_G);
    });
    EXPECT_EQ(saldos(), "100 50 27 0");
}

TEST_P(CancelacionesConStock, WithItsOptionOneIsKeyedByHandWithoutStock) {
    ctx->opciones.CancelManual = true;
    auto &items = cancelaciones();
    enCancelacion(Qt::Key_Insert, [this](FrmCancelaciones &p) {
        atajo(Qt::Key_M);
        EXPECT_TRUE(p.ui.ChManual->isChecked());
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtDit);
        EXPECT_EQ(p.ui.TxtFactor->text(), u"1"_s);
        atajo(Qt::Key_G);
        EXPECT_EQ(ultimoAviso(), "Ingrese el número de la declaración que se cancela.");
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtDit);
        for (const char *texto : {"24001IT14000999Z", "uno", "3", "8413.70.10.100L", "EX-9", "4,5", "1,1"}) {
            escribir(QString::fromLatin1(texto));
            tecla(Qt::Key_Return);
        }
        EXPECT_EQ(QApplication::focusWidget(), p.ui.CmdGuardar);
        tecla(Qt::Key_Return);
        EXPECT_EQ(ultimoAviso(), "El item de la declaración es un número entero: corríjalo.");
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtItem);
        escribir(u"2"_s);
        atajo(Qt::Key_G);
    });
    EXPECT_EQ(filasDe(items), "24001IT14000999Z|2|3|8413.70.10.100L|EX-9|04,500|1,1");
    EXPECT_EQ(saldos(), "100 50 30 0");
    EXPECT_EQ(valor(u"select idstock from stockmov where interno = 'IC-2026-0001'"_s), u"0"_s);
    // It is changed as it was keyed, and goes without anything to give back.
    enCancelacion(Qt::Key_F6, [](FrmCancelaciones &p) {
        EXPECT_EQ(p.ui.TxtDit->text(), u"24001IT14000999Z"_s);
        EXPECT_EQ(p.ui.TxtItem->text(), u"2"_s);
        EXPECT_EQ(p.ui.TxtFactor->text(), u"1,10"_s);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtCantidad);
        escribir(u"6"_s);
        atajo(Qt::Key_G);
    });
    EXPECT_EQ(filasDe(items), "24001IT14000999Z|2|3|8413.70.10.100L|EX-9|06,000|1,1");
    registro.respuestas = {true};
    tecla(Qt::Key_Delete);
    EXPECT_EQ(registro.preguntas.back().texto,
              u"¿Elimina la cancelación de la declaración 24001IT14000999Z?"_s);
    EXPECT_EQ(items.ui.lstVCancel->rowCount(), 0);
}

TEST_P(CancelacionesConStock, ARowOfElsewhereIsToldAndStays) {
    ejecutar(
        u"insert into descargas (interno,iditem,dit,item,subitem,cantidad,factorponderacion) "
        "values ('IC-2026-0001','1','VIEJA','1','2',2.5,1)"_s);
    auto &items = cancelaciones();
    for (const int cual : {Qt::Key_Return, Qt::Key_Delete}) {
        registro = {};
        tecla(cual);
        EXPECT_EQ(
            ultimoAviso(),
            "La cancelación de la declaración VIEJA no se tomó de este stock: no se cambia ni se elimina acá.");
        EXPECT_EQ(registro.mensajes[0].titulo, u"Cancelaciones"_s);
    }
    EXPECT_EQ(items.ui.lstVCancel->rowCount(), 1);
}

TEST_P(CancelacionesConStock, EscapeWritesNothing) {
    auto &items = cancelaciones();
    enCancelacion(Qt::Key_Insert, [](FrmCancelaciones &) {
        tecla(Qt::Key_Return);
        escribir(u"3"_s);
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(items.ui.lstVCancel->rowCount(), 0);
    EXPECT_EQ(saldos(), "100 50 30 0");
    EXPECT_EQ(QApplication::focusWidget(), items.ui.lstVCancel);
}

}  // namespace
