// Net kilos spread on request: over the declaration, over one item, over the groups of all.

#include "tests/items/kilosbyitem.h"

#include <gtest/gtest.h>

#include "frame/base/numbers.h"
#include "tests/support/traza.h"

using namespace Qt::StringLiterals;

namespace {

constexpr auto sinCampos = "En los subitem's no se encontro campos para prorratear";

// ---- one item

struct RepartoDeUnItem {
    const char *que;
    const char *grupos;
    double kilos;
    ModoDeReparto modo;
    const char *resultado;
};
const RepartoDeUnItem repartosDeUnItem[] = {
    // 25 less 5 given are 20, over a FOB of 400: 100 takes 5, 300 takes 15.
    {"in proportion to the FOB of those that have none", "0/100 0/300 5/600", 25, ModoDeReparto::Completar,
     "5 15 5"},
    // 3.33 each is 9.99: the largest, the first of equals, takes the cent.
    {"the residual goes to the largest", "0/1 0/1 0/1", 10, ModoDeReparto::Completar, "3.34 3.33 3.33"},
    // 6.67 each is 20.01: the first of equals gives the cent back.
    {"a residual below zero too", "0/1 0/1 0/1", 20, ModoDeReparto::Completar, "6.66 6.67 6.67"},
    // 0.02 / 3 rounds to 0.01, a cent too much, and none is above a cent: the first gives what it has.
    {"the largest gives as far as it has", "0/1 0/1 0/1", 0.02, ModoDeReparto::Completar, "0 0.01 0.01"},
    // 0.04 / 10 rounds to 0.00: the first takes all.
    {"shares that round to nothing", "0/1 0/1 0/1 0/1 0/1 0/1 0/1 0/1 0/1 0/1", 0.04,
     ModoDeReparto::Completar, "0.04 0 0 0 0 0 0 0 0 0"},
    {"a group without FOB gets no share", "0/0 0/50", 8, ModoDeReparto::Completar, "0 8"},
    {"without any FOB the first takes all", "0/0 0/0", 8, ModoDeReparto::Completar, "8 0"},
    // Nobody is without: 30 - 25 = 5 go to the largest.
    {"where all have kilos the largest takes the rest", "10/1 15/1", 30, ModoDeReparto::Completar, "10 20"},
    // 7.006 shows as 7.01.
    {"to the cent", "0/1", 7.006, ModoDeReparto::Completar, "7.01"},
    // All share anew: 8 over a FOB of 4.
    {"anew", "9/1 1/3", 8, ModoDeReparto::Rehacer, "2 6"},
    {"anew with nothing", "9/1 1/3", 0, ModoDeReparto::Rehacer, "0 0"},
};

TEST_P(KilosPorItem, AreSpreadOverTheItemsOwnGroupsInWhicheverMeasureIsTheKilo) {
    struct Unidades {
        QString estadistica, deresp;
        const char *medidas;  ///< of the item: what it had is 70 and 80
    };
    const Unidades casos[] = {
        {u"01"_s, u"07"_s, "T|80"}, {u"07"_s, u"01"_s, "70|T"}, {u"01"_s, u"01"_s, "T|T"}};
    for (const Unidades &u : casos)
        for (const RepartoDeUnItem &c : repartosDeUnItem) {
            SCOPED_TRACE(std::string(c.que) + ' ' + u.medidas);
            vaciar();
            grupos(1, QString::fromLatin1(c.grupos), u.estadistica, u.deresp);
            grupos(2, u"3/1"_s);
            itemDe(1, u"0"_s, u"1"_s, u.estadistica, u.deresp);
            itemDe(2, u"3"_s, u"1"_s);
            EXPECT_TRUE(ex(1, c.kilos, c.modo));
            EXPECT_EQ(mensajes(), "");
            EXPECT_EQ(kilos(), c.resultado);
            const bool estadistica = u.estadistica == "01"_L1;
            const bool especifica = u.deresp == "01"_L1;
            // Pieces stay pieces.
            const QString piezas =
                QStringList(QString::fromLatin1(c.grupos).count(u' ') + 1, u"7"_s).join(u' ');
            EXPECT_EQ(columna("valorrelacionestadistica"), estadistica ? c.resultado : piezas.toStdString());
            EXPECT_EQ(columna("valorderesp"), especifica ? c.resultado : piezas.toStdString());
            const QString total = numeros::aTexto(numeros::redondear(c.kilos, 2));
            EXPECT_EQ(
                f("select totalkneto,valorrelacionestadistica,valorderesp from item "
                  "where interno = 'OP1' and id = 1"),
                u"%1|%2"_s.arg(total, QString::fromLatin1(u.medidas).replace(u'T', total)).toStdString());
            EXPECT_EQ(kilos(2), "3") << "another item is not touched";
        }
}

TEST_P(KilosPorItem, AnItemWhoseOwnUnitIsNotTheKiloKeepsItsQuantities) {
    grupos(1, u"0/1 0/1"_s);
    itemDe(1, u"0"_s, u"2"_s, u"07"_s);
    EXPECT_TRUE(ex(1, 6));
    EXPECT_EQ(f("select totalkneto,valorrelacionestadistica,valorderesp from item where id = 1"), "6|70|80");
}

TEST_P(KilosPorItem, KilosThatDoNotExceedTheGivenOnesAreRefusedAndNothingChanges) {
    grupos(1, u"5/100 6.25/100 0/100"_s);
    itemDe(1, u"11.25"_s, u"300"_s);
    for (const QChar separador : {u'.', u','}) {
        ctx->SeparadorDecimal = separador;
        for (const auto &[pedido, texto] : {std::pair{11.25, u"11.25"_s}, std::pair{4.5, u"4.5"_s}}) {
            registro = {};
            EXPECT_FALSE(ex(1, pedido));
            ASSERT_EQ(registro.mensajes.size(), 1U);
            EXPECT_EQ(registro.mensajes[0].icono, Icono::Exclamacion);
            EXPECT_EQ(mensajes(),
                      u"Item: 1\r\n\r\n"
                      "El valor ingresado a Prorratear (%1) es menor o igual\r\n\r\n"
                      "al total de Kg ingresados en Subitem's (%2)"_s
                          .arg(QString(texto).replace(u'.', separador), u"11.25"_s.replace(u'.', separador))
                          .toStdString());
        }
    }
    EXPECT_EQ(kilos(), "5 6.25 0");
    EXPECT_EQ(netos(), "1|11.25");
}

TEST_P(KilosPorItem, WithoutAMeasureInKilosItIsToldAndTheItemTakesTheTotalAllTheSame) {
    grupos(1, u"0/100 0/300"_s, u"07"_s, u"02"_s);
    itemDe(1, u"0"_s, u"400"_s, u"07"_s);
    EXPECT_TRUE(ex(1, 12));
    EXPECT_EQ(mensajes(), sinCampos);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Informacion);
    EXPECT_EQ(kilos(), "0 0");
    EXPECT_EQ(netos(), "1|12");
    // Nothing is given, and nothing is not above nothing.
    registro = {};
    EXPECT_FALSE(ex(1, 0));
    EXPECT_FALSE(ex(1, -3));
    EXPECT_EQ(registro.mensajes.size(), 2U);
    EXPECT_EQ(netos(), "1|12");
}

TEST_P(KilosPorItem, GroupsInOtherUnitsOfTheItemGetNoShare) {
    // 6 over the two in kilos, of FOB 1 and 2.
    grupos(1, u"0/1"_s, u"01"_s);
    grupos(1, u"0/100"_s, u"07"_s);
    grupos(1, u"0/2"_s, u"01"_s);
    itemDe(1, u"0"_s, u"103"_s);
    EXPECT_TRUE(ex(1, 6));
    EXPECT_EQ(kilos(), "2 0 4");
    EXPECT_EQ(columna("valorrelacionestadistica"), "2 7 4");
}

TEST_P(KilosPorItem, ADemandOfOneItemLeavesOtherOperationsAlone) {
    grupos(1, u"0/1"_s);
    itemDe(1, u"0"_s, u"1"_s);
    ejecutar(
        u"insert into groupsubitems (interno,id,idsub,kgneto,fob,estadistica,valorrelacionestadistica) "
        "values ('OTRA',1,900,0,1000,'01',0)"_s);
    ejecutar(u"insert into item (interno,id,totalkneto) values ('OTRA',1,0)"_s);
    EXPECT_TRUE(ex(1, 6));
    EXPECT_EQ(kilos(), "6");
    EXPECT_EQ(f("select kgneto from groupsubitems where interno = 'OTRA'"), "0");
    EXPECT_EQ(f("select totalkneto from item where interno = 'OTRA'"), "0");
}

// ---- the whole declaration

TEST_P(KilosPorItem, OfTheDeclarationAreSpreadOverTheItemsThatLackThem) {
    // 60 less 20 given are 40; the FOB of the groups is 1000, less 600 of the item that has kilos is 400: 10
    // and
    // 30. Within item 1: 10 * 25 / 100 and 10 * 75 / 100.
    grupos(1, u"0/25 0/75"_s);
    grupos(2, u"0/300"_s, u"07"_s, u"01"_s);
    grupos(3, u"20/600"_s);
    itemDe(1, u"0"_s, u"100"_s);
    itemDe(2, u"0"_s, u"300"_s, u"07"_s, u"01"_s);
    itemDe(3, u"20"_s, u"600"_s);
    itemCero();
    EXPECT_TRUE(cero(60));
    EXPECT_EQ(mensajes(), "");
    EXPECT_EQ(netos(), "0|60\n1|10\n2|30\n3|20");
    EXPECT_EQ(kilos(1), "2.5 7.5");
    EXPECT_EQ(kilos(2), "30");
    EXPECT_EQ(f("select id,valorrelacionestadistica,valorderesp from item where id > 0 order by id"),
              "1|10|80\n2|70|30\n3|70|80");
}

TEST_P(KilosPorItem, TheFirstItemInOrderOfInsertionTakesTheDifference) {
    // 3.33 each is 9.99: a cent is missing. 6.67 each is 20.01: a cent is too much.
    for (const auto &[total, primero] : {std::pair{10.0, "3.34"}, std::pair{20.0, "6.66"}}) {
        vaciar();
        for (const int id : {3, 1, 2}) {
            grupos(id, u"0/1"_s);
            itemDe(id, u"0"_s, u"1"_s);
        }
        ejecutar(u"update item set idunidad = '01', cantidad = 5 where interno = 'OP1'"_s);
        itemCero();
        EXPECT_TRUE(cero(total));
        EXPECT_EQ(f("select totalkneto from item where id = 3"), primero);
        EXPECT_EQ(kilos(3), primero);
        EXPECT_EQ(f("select valorrelacionestadistica from item where id = 3"), primero);
        EXPECT_EQ(f("select sum(totalkneto) as t from item where id > 0"),
                  numeros::aTexto(total).toStdString());
        // Its quantity is counted in kilos: it takes the difference alone.
        EXPECT_EQ(f("select id,cantidad from item where id > 0 order by id"),
                  total < 15 ? "1|5\n2|5\n3|5.01" : "1|5\n2|5\n3|4.99");
    }
}

TEST_P(KilosPorItem, TheQuantityOfAnItemInOtherUnitsDoesNotFollowTheDifference) {
    for (const int id : {1, 2, 3}) {
        grupos(id, u"0/1"_s, u"07"_s);
        itemDe(id, u"0"_s, u"1"_s, u"07"_s);
    }
    itemCero();
    EXPECT_TRUE(cero(10));
    EXPECT_EQ(f("select totalkneto,cantidad,valorrelacionestadistica,valorderesp from item where id = 1"),
              "3.34|1|70|80");
}

TEST_P(KilosPorItem, TheItemThatTakesTheDifferenceSharesAnewAlsoWhatItsGroupsWereGiven) {
    // 15 less 5 given over three of FOB 1: 3.33 each, a cent short. Item 1 is the first: 5.01 over two of
    // equal FOB is 2.51 (2.505) each, a cent too much, which the first of equals gives back.
    grupos(1, u"1/1 4/1"_s);
    itemDe(1, u"5"_s, u"2"_s);
    for (const int id : {2, 3, 4}) {
        grupos(id, u"0/1"_s);
        itemDe(id, u"0"_s, u"1"_s);
    }
    itemCero();
    EXPECT_TRUE(cero(15));
    EXPECT_EQ(netos(), "0|15\n1|5.01\n2|3.33\n3|3.33\n4|3.33");
    EXPECT_EQ(kilos(1), "2.5 2.51");
}

TEST_P(KilosPorItem, ADifferenceThatShowsAsZeroChangesNothing) {
    // 10.004 shows as 10.00, which two equal items share without a rest.
    for (const int id : {1, 2}) {
        grupos(id, u"0/1"_s);
        itemDe(id, u"0"_s, u"1"_s);
    }
    itemCero();
    EXPECT_TRUE(cero(10.004));
    EXPECT_EQ(netos(), "0|10\n1|5\n2|5");
}

TEST_P(KilosPorItem, NoItemIsLeftWithoutKilosToPayADifference) {
    // 2 over a FOB of 2000: 0.005 shows as 0.01, 0.995 as 1.00, and 1.00: a cent too much. The first item is
    // above -0.01 but has nothing to spare: the heaviest pays.
    const std::vector<std::pair<int, QString>> fobs{{1, u"5"_s}, {2, u"995"_s}, {3, u"1000"_s}};
    for (const auto &[id, fob] : fobs) {
        grupos(id, "0/"_L1 + fob);
        itemDe(id, u"0"_s, fob);
    }
    itemCero();
    EXPECT_TRUE(cero(2));
    EXPECT_EQ(netos(), "0|2\n1|0.01\n2|0.99\n3|1");
}

TEST_P(KilosPorItem, ADifferenceAboveEveryItemGoesToTheHeaviest) {
    // 0.04 / 10 shows as 0.00: nobody has more than the 0.04 that are missing.
    for (int id = 1; id <= 10; ++id) {
        grupos(id, u"0/1"_s);
        itemDe(id, u"0"_s, u"1"_s);
    }
    itemCero();
    EXPECT_TRUE(cero(0.04));
    EXPECT_EQ(f("select id,totalkneto from item where id < 3 order by id"), "0|0.04\n1|0.04\n2|0");
    EXPECT_EQ(f("select sum(totalkneto) as t from item where id > 0"), "0.04");
}

TEST_P(KilosPorItem, TheDifferenceIsComparedAsANumberAlthoughItGoesAsAText) {
    // 100 less 90 given, and no item lacks kilos: 10 are missing. "9" is a text above "10" and a number
    // below.
    itemDe(1, u"9"_s, u"1"_s);
    grupos(1, u"9/1"_s);
    itemDe(2, u"81"_s, u"1"_s);
    grupos(2, u"81/1"_s);
    itemCero();
    const Traza traza;
    EXPECT_TRUE(cero(100));
    EXPECT_NE(traza.texto().find("where totalkneto>'10' and id>0 and interno = 'OP1'"), std::string::npos);
    EXPECT_EQ(netos(), "0|100\n1|9\n2|91");
}

TEST_P(KilosPorItem, AtOrBelowTheKilosOfTheItemsAreRefusedAndNothingChanges) {
    itemDe(1, u"0.1"_s, u"1"_s);
    itemDe(2, u"0.2"_s, u"1"_s);
    itemDe(3, u"0"_s, u"1"_s);
    itemCero();
    ctx->SeparadorDecimal = u',';
    // 0.1 + 0.2 carries a trace of the binary arithmetic, which is no kilo.
    for (const double pedido : {0.3, 0.1, -5.0}) {
        registro = {};
        EXPECT_FALSE(cero(pedido));
        EXPECT_EQ(
            mensajes(),
            "En la suma de Total Kg Neto en uno o mas items (0,3) resulta mayor al que intenta prorratear");
        EXPECT_EQ(registro.mensajes[0].icono, Icono::Exclamacion);
    }
    EXPECT_EQ(netos(), "0|0\n1|0.1\n2|0.2\n3|0");
}

TEST_P(KilosPorItem, ItemsWithoutFobCannotShareAndNothingChanges) {
    grupos(1, u"5/100"_s);
    grupos(2, u"0/0"_s);
    itemDe(1, u"5"_s, u"100"_s);
    itemDe(2, u"0"_s, u"0"_s);
    itemCero();
    EXPECT_FALSE(cero(20));
    EXPECT_EQ(mensajes(),
              "Los items sin kilos no tienen FOB por el cual prorratear; cargue los kilos en cada item.");
    EXPECT_EQ(netos(), "0|0\n1|5\n2|0");
}

TEST_P(KilosPorItem, AnOperationWithoutItemsHasNobodyToTakeThem) {
    itemCero();
    EXPECT_FALSE(cero(20));
    EXPECT_EQ(mensajes(), "La operación no tiene items; ármela para prorratear los kilos.");
    EXPECT_EQ(netos(), "0|0");
}

TEST_P(KilosPorItem, ThatTheSubitemsHaveNoFieldIsToldOnceForTheWholeDeclaration) {
    for (const int id : {1, 2}) {
        grupos(id, u"0/1"_s, u"07"_s);
        itemDe(id, u"0"_s, u"1"_s, u"07"_s);
    }
    itemCero();
    EXPECT_TRUE(cero(10));
    EXPECT_EQ(mensajes(), sinCampos);
    EXPECT_EQ(netos(), "0|10\n1|5\n2|5");
    EXPECT_EQ(kilos(1), "0");
}

TEST_P(KilosPorItem, EmptyGroupsOfTheDeclarationAreLiftedToTheFloor) {
    // All 10 go to the group of FOB, which then pays 0.01.
    grupos(1, u"0/0 0/50"_s);
    itemDe(1, u"0"_s, u"50"_s);
    itemCero();
    EXPECT_TRUE(cero(10));
    EXPECT_EQ(kilos(), "0.01 9.99");
    EXPECT_EQ(columna("valorrelacionestadistica"), "0.01 9.99");
    EXPECT_EQ(netos(), "0|10\n1|10");
}

TEST_P(KilosPorItem, TheBarsFollowTheItemsAndTheGroups) {
    for (const int id : {1, 2}) {
        grupos(id, u"0/1"_s);
        itemDe(id, u"0"_s, u"1"_s);
    }
    itemCero();
    EXPECT_TRUE(cero(10));
    QStringList marcas;
    for (const Avance &a : registro.avances) marcas << a.control + u' ' + QString::number(a.valor);
    EXPECT_EQ(marcas.join(u", "_s).toStdString(),
              "Pb2 0, Pb2 50, Pb2 100, Pb1 50, Pb2 0, Pb2 50, Pb2 100, Pb1 100");
}

EN_AMBOS_STORES(KilosPorItem);

}  // namespace
