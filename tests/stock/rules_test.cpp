// What the stock answers when it is asked: searches, terms, articles, and two workstations at once.

#include "frame/store/store.h"
#include "tests/stock/existencias.h"

using namespace Qt::StringLiterals;
using namespace stock;

namespace {

class Stock : public Existencias {
 protected:
    QStringList hallados(const Filtro &filtro) {
        QStringList dits;
        for (const Linea &l : Buscar(*ctx, filtro)) dits << l.dit;
        return dits;
    }
};
EN_AMBOS_STORES(Stock);

TEST_P(Stock, ALineExpiresBehindItsLastDayAndIsToldThirtyDaysAhead) {
    const QDate dia(2026, 11, 22);
    EXPECT_EQ(PlazoDe({}, dia), Plazo::SinVencimiento);
    EXPECT_EQ(PlazoDe(dia.addDays(-1), dia), Plazo::Vencido);
    EXPECT_EQ(PlazoDe(dia, dia), Plazo::PorVencer) << "the last day is still one";
    EXPECT_EQ(PlazoDe(dia.addDays(30), dia), Plazo::PorVencer);
    EXPECT_EQ(PlazoDe(dia.addDays(31), dia), Plazo::EnTermino);
    EXPECT_EQ(PalabraDePlazo(Plazo::Vencido), u"vencido"_s);
    EXPECT_EQ(PalabraDePlazo(Plazo::PorVencer), u"por vencer"_s);
    EXPECT_EQ(PalabraDePlazo(Plazo::EnTermino) + PalabraDePlazo(Plazo::SinVencimiento), QString());
}

TEST_P(Stock, ItIsFoundByClientDeclarationArticleAndPosition) {
    ejecutar(
        u"insert into clientes (cuit,nombre) values ('%1','TEJEDURÍA LOS ALERCES')"_s.arg(clienteDeStock),
        u"PERSONAL"_s);
    entrar({{u"dit"_s, u"'A1'"_s}, {u"vencimiento"_s, dia(9)}});
    entrar(
        {{u"dit"_s, u"'A2'"_s}, {u"cuitcliente"_s, u"'%1'"_s.arg(otroCliente)}, {u"vencimiento"_s, dia(8)}});
    entrar({{u"dit"_s, u"'B1'"_s},
            {u"ncm"_s, u"'3901.10.10.200N'"_s},
            {u"idarticulo"_s, u"'D''OR'"_s},
            {u"descripcion"_s, u"'Polietileno'"_s},
            {u"saldo"_s, u"0"_s},
            {u"vencimiento"_s, u"null"_s}});
    EXPECT_EQ(hallados({}), QStringList({u"A2"_s, u"A1"_s, u"B1"_s})) << "oldest expiry first, none last";
    EXPECT_EQ(hallados({.cliente = clienteDeStock}), QStringList({u"A1"_s, u"B1"_s}));
    EXPECT_EQ(hallados({.cliente = u"tejedurÍa"_s}), QStringList({u"A1"_s, u"B1"_s}));
    EXPECT_EQ(hallados({.declaracion = u"a"_s}), QStringList({u"A2"_s, u"A1"_s}));
    EXPECT_EQ(hallados({.articulo = u"d'or"_s}), QStringList{u"B1"_s});
    EXPECT_EQ(hallados({.articulo = u"polietil"_s}), QStringList{u"B1"_s});
    EXPECT_EQ(hallados({.articulo = u"hilados"_s}).size(), 3) << "the catalogue too";
    EXPECT_EQ(hallados({.posicion = u"3901.10"_s}), QStringList{u"B1"_s});
    EXPECT_EQ(hallados({.posicion = u"390110"_s}), QStringList{u"B1"_s});
    EXPECT_EQ(hallados({.posicion = u"52051100000A"_s}).size(), 2);
    EXPECT_EQ(hallados({.cliente = clienteDeStock, .conSaldo = true}), QStringList{u"A1"_s});
    EXPECT_EQ(NombreDeCliente(*ctx, clienteDeStock), u"TEJEDURÍA LOS ALERCES"_s);
    EXPECT_EQ(NombreDeCliente(*ctx, otroCliente), otroCliente);
}

TEST_P(Stock, ALineReadsAsItWasWritten) {
    const qint64 id = entrar({{u"sufijos"_s, u"'AA01-'"_s}, {u"merma"_s, u"2.5"_s}, {u"saldo"_s, u"60"_s}});
    const Linea l = LeerLinea(*ctx, id).value();
    EXPECT_EQ(l.dit, u"26001IT01000001A"_s);
    EXPECT_EQ(l.item, 1);
    EXPECT_EQ(l.idarticulo, u"HI-AL"_s);
    EXPECT_EQ(l.cantidad, 100);
    EXPECT_EQ(l.saldo, 60);
    EXPECT_EQ(l.preciounitario, 9.5);
    EXPECT_EQ(l.merma, 2.5);
    EXPECT_EQ(l.sufijos, u"AA01-"_s);
    EXPECT_EQ(l.fecha, hoy.addDays(-10));
    EXPECT_EQ(l.vencimiento, hoy.addDays(100));
    EXPECT_EQ(l.cuitcliente, clienteDeStock);
    EXPECT_EQ(l.interno, u"IT 1"_s);
    EXPECT_FALSE(LeerLinea(*ctx, id + 1));
}

TEST_P(Stock, TheArticlesOfTheClientShowTheirBalanceAndTheirNextExpiry) {
    entrar({{u"vencimiento"_s, dia(-1)}});
    entrar({{u"vencimiento"_s, dia(20)}, {u"saldo"_s, u"0.5"_s}});
    entrar({{u"vencimiento"_s, dia(40)}, {u"idarticulo"_s, u"'HI-PO'"_s}});
    entrar({{u"saldo"_s, u"0"_s}, {u"idarticulo"_s, u"'AGOTADO'"_s}});
    entrar({{u"cuitcliente"_s, u"'%1'"_s.arg(otroCliente)}, {u"idarticulo"_s, u"'AJENO'"_s}});
    const std::vector<ArticuloEnStock> todos = ArticulosDe(*ctx, exportacion);
    ASSERT_EQ(todos.size(), 2U);
    EXPECT_EQ(todos[0].idarticulo, u"HI-AL"_s);
    EXPECT_EQ(todos[0].saldo, 100.5);
    EXPECT_EQ(todos[0].lineas, 2);
    EXPECT_EQ(todos[0].vence, hoy.addDays(20)) << "what expired is not what comes next";
    EXPECT_EQ(todos[1].idarticulo, u"HI-PO"_s);
    EXPECT_EQ(ArticulosDe(*ctx, exportacion, u"-po"_s).size(), 1U);
    EXPECT_TRUE(ArticulosDe(*ctx, u"NO HAY"_s).empty());
}

// Both look at the same balance; between the look and the taking of the first, the second takes.
TEST_P(Stock, OfTwoWorkstationsTheSlowerOneIsToldAndTakesNothing) {
    const qint64 s = entrar();
    const qint64 lenta = linea();
    operacion(u"EX 2"_s);
    const qint64 rapida = linea({}, u"EX 2"_s);
    Registro otroRegistro;
    const auto otro = tienda->contexto(otroRegistro);
    otro->PcName = u"PC2"_s;
    // The connection of the other is open before it has to be quick.
    ASSERT_TRUE(LeerLinea(*otro, s));
    bool hecho = false;
    bool tomo = false;
    Conexion::fijarTraza([&](const TrazaDeSentencia &t) {
        if (hecho || !t.sentencia.startsWith("select id,dit"_L1)) return;
        hecho = true;
        tomo = Tomar(*otro, {u"EX 2"_s, rapida}, {{s, 95}}).ok;
    });
    const Resultado r = tomar(lenta, {{s, 10}});
    Conexion::fijarTraza({});
    EXPECT_TRUE(hecho && tomo);
    EXPECT_FALSE(r.ok);
    EXPECT_EQ(
        ultimo(),
        "Otra PC tomó antes de la declaración 26001IT01000001A, item 1, subitem 1: no se tomó nada; vuelva "
        "a elegir del stock.");
    EXPECT_EQ(saldo(s), u"5"_s);
    EXPECT_EQ(marca(lenta), u"|0"_s);
    EXPECT_EQ(marca(rapida), u"OK|950"_s);
    EXPECT_EQ(desacuerdos(), QString());
}

TEST_P(Stock, TwoWorkstationsThatGiveBackTheSameGiveItBackOnce) {
    const qint64 s = entrar();
    ASSERT_TRUE(tomar(linea(), {{s, 10}}).ok);
    Registro otroRegistro;
    const auto otro = tienda->contexto(otroRegistro);
    const auto vistas = TomasQueSiguen(*otro, exportacion);
    EXPECT_EQ(DevolverTodo(*ctx, exportacion), 1);
    EXPECT_EQ(Devolver(*otro, vistas), 0);
    EXPECT_EQ(saldo(s), u"100"_s);
}

}  // namespace
