// The stock of temporary inputs by keyboard.

#include <gtest/gtest.h>

#include <QApplication>

#include "desktop/FrmPrincipal.h"
#include "desktop/MenuP.h"
#include "frame/ui/estilo.h"
#include "operations/FrmDetalleInterno.h"
#include "stock/FrmStock.h"
#include "tests/screens/stock_pantalla.h"

using namespace Qt::StringLiterals;

namespace {

class PantallaDeStock : public ConStock<EnPantalla> {
 protected:
    static FrmStock &mostrar(const QString &deCliente = {}) {
        auto &pantalla = Pantalla<FrmStock>();
        pantalla.Mostrar(deCliente);
        esperarVentana(pantalla.ventana.get());
        return pantalla;
    }
    static std::string declaraciones(const FrmStock &p) {
        return textosDe(p.ui.Lst, 0).join(u' ').toStdString();
    }
    static void esperarDeclaraciones(const FrmStock &p, const std::string &cuales) {
        hasta([&] { return declaraciones(p) == cuales; });
        EXPECT_EQ(declaraciones(p), cuales);
    }
    static QColor tinta(const FrmStock &p, int fila) {
        return qvariant_cast<QBrush>(p.ui.Lst->model()->index(fila, 0).data(Qt::ForegroundRole)).color();
    }
    /// What line 9 of an export took of a line of the stock.
    void tomar(const char *dit, double cantidad, const QString &devuelta = u"null"_s) {
        ejecutar(
            u"insert into stockmov (idstock,interno,idlinea,iditem,cantidad,factor,descontado,cif,fecha,"
            "maquina,devuelta,maquinadevuelta) values (%1,'EC-2026-0050',9,3,%2,1,%2,%3,%4,'PC-1',%5,'PC-2')"_s
                .arg(stockDe(dit))
                .arg(cantidad)
                .arg(cantidad * 100)
                .arg(momento("2026-02-03 10:20:00"), devuelta));
    }
    QString momento(const char *texto) const {
        return ctx->DataManager.getDateFormatbyEntity(
            u"INTERNOS"_s, QDateTime::fromString(QLatin1String(texto), u"yyyy-MM-dd HH:mm:ss"_s));
    }
};
EN_AMBOS_STORES(PantallaDeStock);

const std::string todasConSaldo = "25001IT14000003C 26001IT14000012B 26038IT14000020D 26001IT14000011A";

TEST_P(PantallaDeStock, AltKOfTheMenuShowsItOldestExpiryFirstWithoutWhatIsUsedUp) {
    auto &marco = Pantalla<FrmPrincipal>();
    marco.Mostrar();
    esperarVentana(marco.ventana.get());
    EXPECT_TRUE(Pantalla<MenuP>().ui.lbTeclas->text().contains(u"ALT+K  stock"_s));
    atajo(Qt::Key_K);
    ASSERT_TRUE(PantallaAbierta<FrmStock>());
    const auto &p = Pantalla<FrmStock>();
    esperarVentana(p.ventana.get());
    EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtCliente);
    EXPECT_EQ(declaraciones(p), todasConSaldo);
    EXPECT_EQ(p.ui.lbCantidad->text(), u"4 líneas, 1 vencida, 1 por vencer"_s);
    EXPECT_EQ(fila(p.ui.Lst, 1),
              "26001IT14000012B|1|1|HIDRAULICA DEL PLATA S.A.|HIDPLATA NP-0750|"
              "8413.70.10.100L|07|50,00|50,00|" +
                  textoDeDia(20) + "|por vencer");
    tecla(Qt::Key_Escape);
    EXPECT_FALSE(PantallaAbierta<FrmStock>());
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(PantallaDeStock, WhatExpiredAndWhatSoonWillIsMarkedByColourAndByAWord) {
    auto &p = mostrar();
    EXPECT_EQ(textosDe(p.ui.Lst, 10), QStringList({u"vencido"_s, u"por vencer"_s, QString(), QString()}));
    EXPECT_EQ(tinta(p, 0), estilo::falta());
    EXPECT_EQ(tinta(p, 1), estilo::aviso());
    EXPECT_FALSE(p.ui.Lst->model()->index(3, 0).data(Qt::ForegroundRole).isValid());
    // Also what is used up, behind all that expires.
    atajo(Qt::Key_S);
    EXPECT_EQ(p.ui.Lst->model()->rowCount(), 5);
    EXPECT_EQ(textosDe(p.ui.Lst, 10).last(), u"sin saldo"_s);
    EXPECT_EQ(tinta(p, 4), estilo::apagado());
}

// A line of the 30th day ahead is soon to expire, one of the 31st is not; one of today is within its term.
TEST_P(PantallaDeStock, TheWarningBeginsThirtyDaysAheadAndTheLastDayStillServes) {
    const std::pair<int, const char *> casos[] = {
        {-1, "vencido"}, {0, "por vencer"}, {30, "por vencer"}, {31, ""}};
    ejecutar(u"delete from stock"_s);
    for (const auto &[dias, palabra] : casos)
        lineaDeStock("26001IT14000011A|1|1|8413.70.10.100L|NP-0750|Bomba|1|1|1", dia(dias));
    const auto &p = mostrar();
    for (int n = 0; n < 4; ++n)
        EXPECT_EQ(p.ui.Lst->model()->index(n, 10).data().toString().toStdString(), casos[n].second)
            << casos[n].first;
}

TEST_P(PantallaDeStock, EachBoxNarrowsAsOneTypesAndAllOfThemTogether) {
    auto &p = mostrar();
    escribir(u"piedra"_s);
    esperarDeclaraciones(p, "26038IT14000020D");
    p.ui.TxtCliente->clear();
    esperarDeclaraciones(p, todasConSaldo);
    escribir(cliente);
    esperarDeclaraciones(p, "25001IT14000003C 26001IT14000012B 26001IT14000011A");
    tecla(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtDeclaracion);
    escribir(u"26001"_s);
    esperarDeclaraciones(p, "26001IT14000012B 26001IT14000011A");
    tecla(Qt::Key_Tab);
    escribir(u"sumergible"_s);
    esperarDeclaraciones(p, "26001IT14000012B 26001IT14000011A");
    tecla(Qt::Key_Tab);
    escribir(u"84137010"_s);
    esperarDeclaraciones(p, "26001IT14000012B 26001IT14000011A");
    escribir(u"9"_s);
    esperarDeclaraciones(p, "");
    EXPECT_EQ(p.ui.lbCantidad->text(), u"0 líneas"_s);
    EXPECT_EQ(p.ui.lbDetalle->text(), u"No hay líneas de stock que coincidan con lo buscado."_s);
    EXPECT_EQ(p.ui.LstMovimientos->rowCount(), 0);
}

TEST_P(PantallaDeStock, EnterGoesToTheListAndToTheMovementsOfTheLineInHand) {
    tomar(porVencer, 10);
    tomar(porVencer, 5, momento("2026-02-04 09:00:00"));
    auto &p = mostrar();
    tecla(Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), p.ui.Lst);
    EXPECT_EQ(p.ui.LstMovimientos->rowCount(), 0) << "of the expired line";
    tecla(Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), p.ui.Lst) << "nothing was taken of it";
    tecla(Qt::Key_Down);
    ASSERT_EQ(p.ui.LstMovimientos->rowCount(), 2);
    EXPECT_EQ(
        p.ui.lbDetalle->text(),
        u"Electrobomba sumergible 750 W   ·   CIF 5500,00 DOL   ·   Origen 438   ·   CTIT EX-2026-77   ·   "
        "Merma 5,00 %   ·   Entró el %1   ·   Operación IT-2026-0099"_s.arg(
            dia(-100).toString(u"dd/MM/yyyy"_s)));
    tecla(Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), p.ui.LstMovimientos);
    EXPECT_EQ(fila(p.ui.LstMovimientos, 0),
              "03/02/2026 10:20|EC-2026-0050|9|3|10,00|1,00|10,00|1000,00|tomado|PC-1");
    EXPECT_EQ(fila(p.ui.LstMovimientos, 1),
              "03/02/2026 10:20|EC-2026-0050|9|3|05,00|1,00|05,00|500,00|devuelto 04/02/2026 09:00|PC-2");
    EXPECT_EQ(p.ui.LstMovimientos->item(1, 0)->foreground().color(), estilo::apagado());
    tecla(Qt::Key_Escape);
    EXPECT_FALSE(PantallaAbierta<FrmStock>());
}

TEST_P(PantallaDeStock, F5ReadsItAgainAndKeepsTheLineInHand) {
    auto &p = mostrar();
    tecla(Qt::Key_Down);
    tecla(Qt::Key_Down);
    tecla(Qt::Key_Down);
    EXPECT_EQ(enMano(p.ui.Lst, 0), u"26001IT14000011A"_s);
    ejecutar(u"delete from stock where dit = '26001IT14000012B'"_s);
    ejecutar(u"update stock set saldo = 40 where dit = '26001IT14000011A' and subitem = 1"_s);
    tecla(Qt::Key_F5);
    EXPECT_EQ(p.ui.Lst->model()->rowCount(), 3);
    EXPECT_EQ(enMano(p.ui.Lst, 0), u"26001IT14000011A"_s);
    EXPECT_EQ(enMano(p.ui.Lst, 8), u"40,00"_s);
}

TEST_P(PantallaDeStock, F12OffersTheStockThatIsSeenTheMovementsAndTheInputsOfTheOperations) {
    tomar(porVencer, 10);
    ejecutar(u"update stock set saldo = 40 where dit = '26001IT14000012B'"_s);
    auto &p = mostrar();
    tecla(Qt::Key_Down);
    registro.indices = {0, 1};
    tecla(Qt::Key_F12);
    ASSERT_EQ(registro.elecciones.size(), 1U);
    EXPECT_EQ(registro.elecciones[0].titulo, u"Informe"_s);
    EXPECT_EQ(
        registro.elecciones[0].filas,
        QStringList({u"Stock: las líneas que se ven"_s, u"Movimientos de la línea elegida"_s,
                     u"Insumos de la operación IT-2026-0099"_s, u"Insumos de la operación EC-2026-0050"_s}));
    ASSERT_EQ(registro.vistos.size(), 1U);
    // As a workbook too, since its data come along.
    ASSERT_TRUE(registro.vistos[0].tabla);
    int datos = 0;
    for (const papel::Fila &f : registro.vistos[0].tabla->filas)
        datos += f.tipo == papel::Fila::Tipo::Dato ? 1 : 0;
    EXPECT_EQ(datos, 4);
    atajo(Qt::Key_I);
    ASSERT_EQ(registro.vistos.size(), 2U);
    EXPECT_NE(registro.vistos[1].tabla->titulo, registro.vistos[0].tabla->titulo);
    EXPECT_EQ(QApplication::activeWindow(), p.ventana.get());
    tecla(Qt::Key_F12);
    EXPECT_EQ(registro.vistos.size(), 2U) << "the list was left";
}

TEST_P(PantallaDeStock, AnEmptyListHasNoReport) {
    mostrar(u"99999999999"_s);
    tecla(Qt::Key_F12);
    EXPECT_EQ(ultimoAviso(), "No hay líneas de stock para el informe: cambie lo que busca.");
    EXPECT_TRUE(registro.elecciones.empty());
}

TEST_P(PantallaDeStock, F9SaysThatAllIsInOrder) {
    ejecutar(u"delete from stock where saldo = 0"_s);
    mostrar();
    tecla(Qt::Key_F9);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(ultimoAviso(), "El stock está en orden: cada saldo es lo que entró menos lo que está tomado.");
    EXPECT_EQ(registro.mensajes[0].titulo, u"Revisión del stock"_s);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Informacion);
}

TEST_P(PantallaDeStock, F9TellsWhatDoesNotAgreeAndRepairsOnlyWhenAsked) {
    ejecutar(u"delete from stock where saldo = 0"_s);
    ejecutar(u"update stock set saldo = 70 where dit = '26001IT14000011A'"_s);
    auto &p = mostrar();
    tecla(Qt::Key_F9);
    ASSERT_EQ(registro.informes.size(), 1U);
    EXPECT_TRUE(registro.informes[0].comoLista);
    EXPECT_TRUE(registro.informes[0].texto.contains(u"26001IT14000011A"_s));
    ASSERT_EQ(registro.preguntas.size(), 1U);
    EXPECT_EQ(registro.preguntas[0].texto, u"Una de las diferencias puede repararse. ¿La repara?"_s);
    EXPECT_TRUE(registro.preguntas[0].porDefectoNo);
    EXPECT_EQ(saldos(), "70 50 30") << "No leaves it";
    registro.respuestas = {true};
    atajo(Qt::Key_V);
    EXPECT_EQ(ultimoAviso(), "Se reparó una diferencia.");
    EXPECT_EQ(saldos(), "100 50 30");
    EXPECT_EQ(textosDe(p.ui.Lst, 8).last(), u"100,00"_s) << "read again";
}

TEST_P(PantallaDeStock, AltUOfTheDashboardShowsTheStockOfItsClient) {
    auto &tablero = abrir(importacion);
    const QWidget *antes = QApplication::focusWidget();
    atajo(Qt::Key_U);
    ASSERT_TRUE(PantallaAbierta<FrmStock>());
    const auto &p = Pantalla<FrmStock>();
    esperarVentana(p.ventana.get());
    EXPECT_EQ(p.ui.TxtCliente->text(), cliente);
    EXPECT_EQ(declaraciones(p), "25001IT14000003C 26001IT14000012B 26001IT14000011A");
    tecla(Qt::Key_Escape);
    esperarVentana(tablero.ventana.get());
    EXPECT_EQ(QApplication::focusWidget(), antes);
}

TEST_P(PantallaDeStock, AltIOfTheDashboardShowsWhatTheOperationTook) {
    ejecutar(
        u"update caratula set factura9 = '1', bulnro = '3', bulcod = '11', bultip = 'B', bulpes = 50, "
        "buldes = 'CAJAS' where interno = 'IC-2026-0001'"_s);
    auto &tablero = abrir(importacion);
    ASSERT_TRUE(tablero.ui.CmdPrint->isEnabled());
    const QWidget *antes = QApplication::focusWidget();
    atajo(Qt::Key_I);
    EXPECT_EQ(ultimoAviso(), "La operación IC-2026-0001 no tomó insumos del stock ni fue cargada en él.");
    EXPECT_TRUE(registro.vistos.empty());
    const qint64 linea =
        valor(u"select min(id) as id from subitems where interno = 'IC-2026-0001'"_s).toLongLong();
    ASSERT_TRUE(stock::Tomar(*ctx, {importacion, linea}, {{stockDe(porVencer), 24}}).ok);
    atajo(Qt::Key_I);
    ASSERT_EQ(registro.vistos.size(), 1U);
    const papel::Documento &informe = registro.vistos[0];
    for (const char *dicho : {"IC-2026-0001", "IC04", "001 ", "HIDRAULICA DEL PLATA S.A."})
        EXPECT_TRUE(informe.reporte.subtitulo.contains(QLatin1StringView(dicho))) << dicho;
    EXPECT_TRUE(informe.tabla) << "it leaves as a workbook too";
    EXPECT_TRUE(papel::TextoDe(informe.reporte).contains(u"26001IT14000012B"_s));
    esperarVentana(tablero.ventana.get());
    EXPECT_EQ(QApplication::focusWidget(), antes);
}

TEST_P(PantallaDeStock, TabGoesThroughTheBoxesTheListsAndTheButtons) {
    auto &p = mostrar();
    EXPECT_EQ(
        ordenDeTab(p.ventana.get()),
        QStringList({u"TxtCliente"_s, u"TxtDeclaracion"_s, u"TxtArticulo"_s, u"TxtPosicion"_s, u"ChSaldo"_s,
                     u"Lst"_s, u"LstMovimientos"_s, u"CmdActualizar"_s, u"CmdRevisar"_s, u"CmdInforme"_s}));
}

}  // namespace
