// What is taken of the stock and what is given back, line by line of the balance.

#include "tests/stock/existencias.h"

using namespace Qt::StringLiterals;
using namespace stock;

namespace {

class Tomas : public Existencias {
 protected:
    QString movimientos(const QString &columnas = u"idlinea,cantidad,factor,descontado,cif,maquina"_s) {
        return filas(u"select %1 from stockmov order by id"_s.arg(columnas));
    }
    QString descargas() {
        return filas(
            u"select interno,dit,item,subitem,ncm,expctit,cantidad,factorponderacion,iditem,idext "
            "from descargas order by idexportacion"_s);
    }
};
EN_AMBOS_STORES(Tomas);

TEST_P(Tomas, ATakingLowersTheBalanceAndLeavesItsMovementItsDischargeAndTheMarkOfTheLine) {
    const qint64 s = entrar();
    const qint64 l = linea();
    const Resultado r = tomar(l, {{s, 10}});
    ASSERT_TRUE(r.ok) << ultimo();
    // 1000.00 of CIF for 100 kilograms: 100.00 for ten.
    EXPECT_EQ(r.CIF, 100);
    EXPECT_EQ(saldo(s), u"90"_s);
    EXPECT_EQ(movimientos(), u"%1|10|1|10|100|PC1"_s.arg(l));
    EXPECT_EQ(movimientos(u"idstock,interno,iditem,paraitem,devuelta"_s), u"%1|EX 1|0|N|<null>"_s.arg(s));
    EXPECT_EQ(descargas(), u"EX 1|26001IT01000001A|1|1|5205.11.00.000A|CTIT 7|10|1|<null>|%1"_s.arg(l));
    EXPECT_EQ(valor(u"select idexportacion from descargas"_s), valor(u"select id from stockmov"_s));
    EXPECT_EQ(marca(l), u"OK|100"_s);
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(Tomas, OfSeveralLinesEachGivesItsPartAndTheValueIsTheirSum) {
    const qint64 a = entrar();
    const qint64 b = entrar({{u"cif"_s, u"500"_s}});
    const qint64 l = linea();
    const Resultado r = tomar(l, {{b, 3}, {a, 4}, {b, 3}});
    ASSERT_TRUE(r.ok) << ultimo();
    // 4 at 10.00 and 6 at 5.00.
    EXPECT_EQ(r.CIF, 70);
    EXPECT_EQ(saldo(a), u"96"_s);
    EXPECT_EQ(saldo(b), u"94"_s);
    EXPECT_EQ(movimientos(u"idstock,cantidad"_s), u"%1|4\n%2|6"_s.arg(a).arg(b)) << "one a line of stock";
}

TEST_P(Tomas, WhatEmptiesALineTakesAllThatIsLeftOfItsValue) {
    const qint64 s = entrar({{u"cantidad"_s, u"3"_s}, {u"cif"_s, u"100"_s}});
    // A third is 33.33; the last one takes the cent.
    for (const double cif : {33.33, 33.33, 33.34}) EXPECT_EQ(tomar(linea(), {{s, 1}}).CIF, cif);
    EXPECT_EQ(saldo(s), u"0"_s);
}

TEST_P(Tomas, TheValueIsTurnedIntoTheCurrencyOfTheOperationsFob) {
    const qint64 s = entrar({{u"divisa"_s, u"'060'"_s}});
    const qint64 l = linea();
    // 100.00 euros at 1.10 dollars; the movement keeps the euros.
    EXPECT_EQ(tomar(l, {{s, 10}}).CIF, 110);
    EXPECT_EQ(marca(l), u"OK|110"_s);
    EXPECT_EQ(movimientos(u"cif"_s), u"100"_s);
    EXPECT_EQ(EnDivisa(*ctx, 100, u"PES"_s, u"060"_s), 0.09) << "100 at 0.001 over 1.10";
    EXPECT_EQ(EnDivisa(*ctx, 100, u"XXX"_s, u"060"_s), 100) << "a currency that nobody knows";
}

TEST_P(Tomas, ABalanceThatDoesNotReachIsToldAndNothingIsTaken) {
    const qint64 a = entrar();
    const qint64 b = entrar({{u"cantidad"_s, u"5"_s}, {u"item"_s, u"2"_s}});
    const qint64 l = linea();
    EXPECT_FALSE(tomar(l, {{a, 10}, {b, 5.01}}).ok);
    EXPECT_EQ(ultimo(),
              "De la declaración 26001IT01000001A, item 2, subitem 1 quedan 05.00 (unidad 01) y se "
              "descontarían 05.01; indique una cantidad menor o agregue otra línea.");
    EXPECT_EQ(registro.mensajes.back().icono, Icono::Exclamacion);
    EXPECT_EQ(saldo(a), u"100"_s);
    EXPECT_EQ(movimientos(), QString());
    EXPECT_EQ(descargas(), QString());
    EXPECT_EQ(marca(l), u"|0"_s);
}

TEST_P(Tomas, TheStockOfAnotherClientIsNotTaken) {
    const qint64 s = entrar({{u"cuitcliente"_s, u"'%1'"_s.arg(otroCliente)}});
    EXPECT_FALSE(tomar(linea(), {{s, 1}}).ok);
    EXPECT_EQ(
        ultimo(),
        "El stock de la declaración 26001IT01000001A, item 1, subitem 1 es de otro cliente; elija uno de "
        "la operación.");
    EXPECT_FALSE(tomar(linea(), {{s + 100, 1}}).ok);
    EXPECT_EQ(ultimo(), "La línea de stock elegida ya no existe; vuelva a buscarla.");
}

TEST_P(Tomas, AQuantityThatRoundsToNothingIsRefusedWithTheNameOfTheOption) {
    const qint64 s = entrar();
    EXPECT_FALSE(tomar(linea(), {{s, 0.004}}).ok);
    EXPECT_EQ(
        ultimo(),
        "La cantidad es menor que un centésimo, que es lo menos que se descuenta del stock; indique una "
        "mayor o encienda en las opciones \"Habilitar Modo: Valor Decimal Extendido\".");
    ctx->opciones.opVDE = true;
    ASSERT_TRUE(tomar(linea(), {{s, 0.004}}).ok);
    EXPECT_EQ(saldo(s), u"99.996"_s);
    EXPECT_FALSE(tomar(linea(), {{s, 0.0000004}}).ok);
    EXPECT_EQ(
        ultimo(),
        "La cantidad es menor que un millonésimo, que es lo menos que se descuenta del stock; indique una "
        "mayor.");
    for (const double nada : {0.0, -1.0}) {
        EXPECT_FALSE(tomar(linea(), {{s, nada}}).ok);
        EXPECT_EQ(ultimo(), "La cantidad que se toma del stock debe ser mayor que cero.");
    }
}

TEST_P(Tomas, WasteAndLossLeaveTheBalanceTooWhereTheOptionSaysSo) {
    const qint64 s = entrar({{u"merma"_s, u"5.5"_s}});
    ctx->opciones.RestarPerMer = true;
    const Linea l = LeerLinea(*ctx, s).value();
    EXPECT_EQ(FactorDe(*ctx, l), 1.055);
    // 10 x 1.055 = 10.55; its value 1000 x 10.55 / 100 = 105.50.
    EXPECT_EQ(tomar(linea(), {{s, 10}}).CIF, 105.5);
    EXPECT_EQ(saldo(s), u"89.45"_s);
    EXPECT_EQ(movimientos(u"cantidad,factor,descontado"_s), u"10|1.055|10.55"_s);
    EXPECT_EQ(valor(u"select factorponderacion from descargas"_s), u"1.055"_s);
    // 89.45 / 1.055 = 84.7867: 84.79 x 1.055 = 89.45345 rounds to 89.45, 84.80 would ask for 89.46.
    EXPECT_EQ(LoQueAlcanza(*ctx, LeerLinea(*ctx, s).value()), 84.79);
    ASSERT_TRUE(tomar(linea(), {{s, 84.79}}).ok) << ultimo();
    EXPECT_EQ(saldo(s), u"0"_s);
}

TEST_P(Tomas, GivingBackPutsEverythingAsItWasAndKeepsTheMovement) {
    const qint64 s = entrar();
    const qint64 l = linea();
    ASSERT_TRUE(tomar(l, {{s, 10}}).ok);
    ctx->PcName = u"PC2"_s;
    const std::vector<Movimiento> tomas = TomasQueSiguen(*ctx, exportacion, l);
    EXPECT_EQ(Devolver(*ctx, tomas), 1);
    EXPECT_EQ(saldo(s), u"100"_s);
    EXPECT_EQ(descargas(), QString());
    EXPECT_EQ(marca(l), u"|0"_s);
    const std::vector<Movimiento> todos = MovimientosDe(*ctx, s);
    ASSERT_EQ(todos.size(), 1U);
    EXPECT_FALSE(todos[0].sigue());
    EXPECT_EQ(todos[0].maquina, u"PC1"_s);
    EXPECT_EQ(todos[0].maquinadevuelta, u"PC2"_s);
    EXPECT_EQ(Devolver(*ctx, tomas), 0) << "it was given back already";
    EXPECT_EQ(saldo(s), u"100"_s);
}

TEST_P(Tomas, RowsOfDischargeFromElsewhereAreNeverTouched) {
    ejecutar(u"insert into descargas (interno,dit,idexportacion) values ('EX 1','AJENA',0)"_s);
    ejecutar(u"insert into descargas (interno,dit,idexportacion) values ('EX 1','VIEJA',null)"_s);
    const qint64 s = entrar();
    ASSERT_TRUE(tomar(linea(), {{s, 10}}).ok);
    EXPECT_EQ(DevolverTodo(*ctx, exportacion), 1);
    EXPECT_EQ(filas(u"select dit from descargas order by dit"_s), u"AJENA\nVIEJA"_s);
}

TEST_P(Tomas, AQuantityIsTakenFromTheOldestExpiryFirstAndNeverFromAnExpiredLineByItself) {
    const qint64 sinPlazo = entrar({{u"vencimiento"_s, u"null"_s}});
    const qint64 lejos = entrar({{u"vencimiento"_s, dia(400)}, {u"cantidad"_s, u"4"_s}});
    const qint64 cerca = entrar({{u"vencimiento"_s, dia(0)}, {u"cantidad"_s, u"3"_s}});
    const qint64 vencida = entrar({{u"vencimiento"_s, dia(-1)}});
    std::vector<qint64> orden;
    for (const Oferta &o : Ofertas(*ctx, pedido(), hoy)) orden.push_back(o.linea.id);
    EXPECT_EQ(orden, (std::vector<qint64>{cerca, lejos, sinPlazo, vencida}));
    ASSERT_TRUE(TomarCantidad(*ctx, {exportacion, linea()}, pedido(), 10).ok) << ultimo();
    EXPECT_EQ(movimientos(u"idstock,cantidad"_s), u"%1|3\n%2|4\n%3|3"_s.arg(sinPlazo).arg(lejos).arg(cerca))
        << "entered in the order of the lines";
    EXPECT_FALSE(TomarCantidad(*ctx, {exportacion, linea()}, pedido(), 98).ok);
    EXPECT_EQ(
        ultimo(),
        "El stock de HILADOS HI-AL no alcanza: se necesitan 98.00 (unidad 01) y hay 97.00, y otros 100.00 "
        "vencidos, que sólo se toman si se eligen.");
    ASSERT_TRUE(TomarCantidad(*ctx, {exportacion, linea()}, pedido(), 98, {{vencida, 50}}).ok) << ultimo();
    EXPECT_EQ(saldo(vencida), u"50"_s);
    EXPECT_EQ(saldo(sinPlazo), u"49"_s) << "97 less what the chosen line did not give: 97 - 48";
    EXPECT_EQ(desacuerdos(), QString());
}

TEST_P(Tomas, WhatWasChosenGoesAheadOfWhatExpiresFirst) {
    const qint64 cerca = entrar({{u"vencimiento"_s, dia(5)}});
    const qint64 lejos = entrar({{u"vencimiento"_s, dia(50)}});
    ASSERT_TRUE(TomarCantidad(*ctx, {exportacion, linea()}, pedido(), 10, {{lejos, 4}}).ok);
    EXPECT_EQ(saldo(cerca), u"94"_s);
    EXPECT_EQ(saldo(lejos), u"96"_s);
    ASSERT_TRUE(TomarCantidad(*ctx, {exportacion, linea()}, pedido(), 10, {{lejos, 0}}).ok);
    EXPECT_EQ(saldo(lejos), u"86"_s) << "without a quantity as much as is needed";
    ASSERT_TRUE(TomarCantidad(*ctx, {exportacion, linea()}, pedido(), 10, {{lejos, 20}}).ok);
    EXPECT_EQ(saldo(lejos), u"76"_s) << "never more than the line declares";
}

TEST_P(Tomas, OnlyTheClientsLinesOfTheArticleInItsUnitWithABalanceAreOffered) {
    const qint64 s = entrar();
    entrar({{u"cuitcliente"_s, u"'%1'"_s.arg(otroCliente)}});
    entrar({{u"idunidad"_s, u"'07'"_s}});
    entrar({{u"idarticulo"_s, u"'HI-PO'"_s}});
    entrar({{u"saldo"_s, u"0"_s}});
    const std::vector<Oferta> ofertas = Ofertas(*ctx, pedido(), hoy);
    ASSERT_EQ(ofertas.size(), 1U);
    EXPECT_EQ(ofertas[0].linea.id, s);
    EXPECT_EQ(ofertas[0].alcanza, 100);
}

TEST_P(Tomas, GoodsWithoutACodeAreToldApartByPositionAndDescription) {
    const qint64 s = entrar({{u"idcatalogo"_s, u"''"_s}, {u"idarticulo"_s, u"''"_s}});
    entrar({{u"idcatalogo"_s, u"''"_s}, {u"idarticulo"_s, u"''"_s}, {u"descripcion"_s, u"'Otra cosa'"_s}});
    Pedido p = pedido();
    p.idcatalogo = p.idarticulo = QString();
    p.ncm = u"5205.11.00.000A"_s;
    p.descripcion = u"Hilado de algodón"_s;
    const std::vector<Oferta> ofertas = Ofertas(*ctx, p, hoy);
    ASSERT_EQ(ofertas.size(), 1U);
    EXPECT_EQ(ofertas[0].linea.id, s);
    EXPECT_EQ(ArticulosDe(*ctx, exportacion).size(), 2U);
}

TEST_P(Tomas, AProposalGoesOverTheOffersInTheirOrderAndTellsWhatIsMissing) {
    entrar({{u"vencimiento"_s, dia(-5)}});
    entrar({{u"vencimiento"_s, dia(5)}, {u"cantidad"_s, u"3"_s}});
    entrar({{u"vencimiento"_s, dia(50)}, {u"cantidad"_s, u"4"_s}});
    std::vector<Oferta> ofertas = Ofertas(*ctx, pedido(), hoy);
    ASSERT_EQ(ofertas.size(), 3U);
    EXPECT_EQ(Repartir(*ctx, ofertas, 5), 0);
    EXPECT_EQ((std::vector<double>{ofertas[0].cantidad, ofertas[1].cantidad, ofertas[2].cantidad}),
              (std::vector<double>{3, 2, 0}));
    EXPECT_EQ(ofertas[0].plazo, Plazo::PorVencer);
    EXPECT_EQ(Repartir(*ctx, ofertas, 20), 13);
    EXPECT_EQ(ofertas[2].cantidad, 0) << "it expired";
}

TEST_P(Tomas, AChangedQuantityIsTakenAnewFromWhereItWasAndARefusalLeavesWhatStood) {
    const qint64 cerca = entrar({{u"vencimiento"_s, dia(5)}});
    const qint64 lejos = entrar({{u"vencimiento"_s, dia(50)}, {u"cantidad"_s, u"20"_s}});
    const qint64 l = linea();
    ASSERT_TRUE(TomarCantidad(*ctx, {exportacion, l}, pedido(), 10, {{lejos, 10}}).ok);
    const Resultado menos = RetomarCantidad(*ctx, {exportacion, l}, pedido(), 8);
    ASSERT_TRUE(menos.ok) << ultimo();
    EXPECT_EQ(saldo(lejos), u"12"_s);
    EXPECT_EQ(saldo(cerca), u"100"_s);
    // 8 of 20 kilograms of 1000.00.
    EXPECT_EQ(marca(l), u"OK|400"_s);
    EXPECT_FALSE(RetomarCantidad(*ctx, {exportacion, l}, pedido(), 121).ok);
    EXPECT_EQ(ultimo(),
              "El stock de HILADOS HI-AL no alcanza: se necesitan 121.00 (unidad 01) y hay 120.00.");
    EXPECT_EQ(saldo(lejos), u"12"_s);
    EXPECT_EQ(marca(l), u"OK|400"_s);
    EXPECT_EQ(desacuerdos(), QString());
    EXPECT_EQ(TomasQueSiguen(*ctx, exportacion).size(), 1U);
}

TEST_P(Tomas, AStoredLineTakesItsQuantityOnceAndTheOperationAsksForANewAssembly) {
    const qint64 s = entrar();
    const qint64 l = linea();
    const Resultado r = TomarParaLinea(*ctx, exportacion, l);
    ASSERT_TRUE(r.ok) << ultimo();
    EXPECT_EQ(saldo(s), u"90"_s);
    EXPECT_EQ(valor(u"select factura8 from caratula where interno = 'EX 1'"_s), u"S"_s);
    EXPECT_FALSE(TomarParaLinea(*ctx, exportacion, l).ok);
    EXPECT_EQ(QString::fromStdString(ultimo()),
              u"La línea %1 ya tomó del stock; devuelva lo que tomó para tomar de nuevo."_s.arg(l));
    EXPECT_FALSE(TomarParaLinea(*ctx, exportacion, l + 50).ok);
    EXPECT_EQ(QString::fromStdString(ultimo()),
              u"La operación EX 1 no tiene la línea %1; revise su número."_s.arg(l + 50));
    operacion(u"IC 1"_s, {{u"idsubreg"_s, u"'IC04'"_s}});
    EXPECT_FALSE(TomarParaLinea(*ctx, u"IC 1"_s, linea({}, u"IC 1"_s)).ok);
    EXPECT_EQ(ultimo(), "El régimen IC04 no descarga insumos del stock.");
}

}  // namespace
