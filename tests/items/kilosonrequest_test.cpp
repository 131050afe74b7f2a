// The spread over groups as the review asks for it, the floor of empty groups, the button, and a round at
// random.

#include <gtest/gtest.h>

#include <QRandomGenerator>
#include <numeric>

#include "frame/base/numbers.h"
#include "tests/items/kilosbyitem.h"
#include "tests/support/traza.h"

using namespace Qt::StringLiterals;

namespace {

const QString operacionPedida = u"OP1"_s;

class KilosPedidos : public KilosPorItem {
 protected:
    bool porGrupos(double kilos) { return Prorratear_ItemCeroEx(*ctx, operacionPedida, kilos); }
    void vacios() { Prorratear_ItemVacios(*ctx, operacionPedida); }
    std::string marcas() { return columna("flgkg"); }
};

// ---- over groups

TEST_P(KilosPedidos, OverGroupsTheItemsAndTheDeclarationTakeTheirSums) {
    // 60 - 20 = 40 over a FOB of 400 of the groups without kilos.
    grupos(1, u"0/25 0/75"_s);
    grupos(2, u"0/300 20/600"_s, u"07"_s, u"01"_s);
    itemDe(1, u"0"_s, u"100"_s);
    itemDe(2, u"20"_s, u"900"_s, u"07"_s, u"01"_s);
    itemCero();
    EXPECT_TRUE(porGrupos(60));
    EXPECT_EQ(kilos(1), "2.5 7.5");
    EXPECT_EQ(kilos(2), "30 20");
    EXPECT_EQ(columna("valorderesp", 2), "30 20");
    EXPECT_EQ(netos(), "0|60\n1|10\n2|50");
    EXPECT_EQ(mensajes(), "");
}

TEST_P(KilosPedidos, WithKilosOnAllGroupsTheReviewSaysHowToChangeTheTotal) {
    grupos(1, u"5/100 6/100"_s);
    itemDe(1, u"11"_s, u"200"_s);
    EXPECT_FALSE(porGrupos(20));
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].titulo.toStdString(), "PRORRATEO DE KILOS NETO..");
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Informacion);
    EXPECT_EQ(mensajes(),
              "No hay registros para prorratear!\r\n"
              "Si necesita cambiar el kilo total\r\n"
              "debe rearmar los item's, modifícando\r\n"
              "algún valor de carátula.");
    EXPECT_EQ(kilos(), "5 6");
    EXPECT_EQ(netos(), "1|11");
}

TEST_P(KilosPedidos, BelowTheGivenKilosTheReviewRefusesAsTheRunDoes) {
    grupos(1, u"5/100 6.25/100 0/100"_s);
    EXPECT_FALSE(porGrupos(11));
    EXPECT_EQ(mensajes(), "El kilo a prorratear (11) debe ser mayor a 11.25");
    EXPECT_EQ(marcas(), "<null> <null> <null>") << "not even a mark is changed";
}

TEST_P(KilosPedidos, EqualToTheGivenKilosTheHeaviestPaysTheFloor) {
    grupos(1, u"5/100 0/100 0/50"_s);
    EXPECT_TRUE(porGrupos(5));
    EXPECT_EQ(kilos(), "4.98 0.01 0.01");
}

TEST_P(KilosPedidos, AGroupWithoutFobFallsToTheFloor) {
    grupos(1, u"0/0 0/100"_s);
    EXPECT_TRUE(porGrupos(10));
    EXPECT_EQ(kilos(), "0.01 9.99");
}

TEST_P(KilosPedidos, AResidualThatFitsNowhereIsToldAndTheItemsStayUnwritten) {
    // 0.04 / 10 shows as 0.00: ten groups of 0.01 are 0.06 above the target.
    grupos(1, u"0/1 0/1 0/1 0/1 0/1 0/1 0/1 0/1 0/1 0/1"_s);
    itemDe(1, u"0"_s, u"10"_s);
    itemCero();
    EXPECT_FALSE(porGrupos(0.04));
    EXPECT_EQ(mensajes(),
              "Error al redondear prorrateo, no se encontro subitems con kilos mayor a 0.06\r\n"
              "No se puede continuar..");
    EXPECT_EQ(netos(), "0|0\n1|0");
}

TEST_P(KilosPedidos, AGroupThatNeverHadKilosIsMarkedByTheRunAlone) {
    for (const bool corre : {false, true}) {
        vaciar();
        grupos(1, u"0/1 0/3"_s);
        ejecutar(u"update groupsubitems set kgneto = null where idsub = 1"_s);
        const bool termina = corre ? Prorratear_ItemCeroEx(*corrida, 10) : porGrupos(10);
        EXPECT_TRUE(termina);
        EXPECT_EQ(marcas(), corre ? "* *" : " *");
        // 10 * 3 / 4, for the null counts: 7.5. The 2.5 that nobody got go to the heaviest marked one.
        EXPECT_EQ(kilos(), "<null> 10");
    }
}

TEST_P(KilosPedidos, ThePayerOfTheFloorIsComparedAsANumberAlthoughItGoesAsAText) {
    // 200 groups without FOB need 2.00. "10.5" is a text below "2" and a number above: the spread group pays,
    // not the heavier given one.
    QStringList vacias(200, u"0/0"_s);
    grupos(1, u"20/5 0/1 "_s + vacias.join(u' '));
    const Traza traza;
    EXPECT_TRUE(porGrupos(30.5));
    EXPECT_NE(
        traza.texto().find("where flgkg = '*' and interno = 'OP1' and kgneto > '2' order by kgneto desc"),
        std::string::npos);
    EXPECT_EQ(kilos().substr(0, 12), "20 8.5 0.01 ");
}

// ---- the floor

TEST_P(KilosPedidos, EmptyGroupsInKilosAreLiftedAndTheHeaviestOfTheirItemPays) {
    grupos(1, u"0/1 5/1 0/1 7/1"_s);
    grupos(2, u"0/1 3/1"_s, u"07"_s, u"01"_s);
    grupos(3, u"0/1 4/1"_s, u"07"_s);
    grupos(4, u"0/1 4/1"_s, u"01"_s, u"01"_s);
    vacios();
    EXPECT_EQ(kilos(1), "0.01 5 0.01 6.98");
    EXPECT_EQ(columna("valorrelacionestadistica", 1), "0.01 5 0.01 6.98");
    EXPECT_EQ(columna("valorderesp", 1), "7 7 7 7");
    EXPECT_EQ(kilos(2), "0.01 2.99");
    EXPECT_EQ(columna("valorderesp", 2), "0.01 2.99");
    EXPECT_EQ(columna("valorrelacionestadistica", 2), "7 7");
    EXPECT_EQ(kilos(3), "0 4") << "nothing of it is counted in kilos";
    EXPECT_EQ(kilos(4), "0.01 3.99");
    EXPECT_EQ(columna("valorrelacionestadistica", 4), "0.01 3.99");
    EXPECT_EQ(columna("valorderesp", 4), "0.01 3.99");
}

TEST_P(KilosPedidos, AGroupSoldByTheKiloIsLiftedToo) {
    grupos(1, u"0/1 4/1"_s, u"07"_s);
    ejecutar(u"update groupsubitems set idunidad = '01'"_s);
    vacios();
    EXPECT_EQ(kilos(), "0.01 3.99");
    EXPECT_EQ(columna("valorrelacionestadistica"), "7 7");
}

TEST_P(KilosPedidos, AnItemWithoutAGroupThatCouldPayStaysAsItIs) {
    // Two need 0.02, which is not more than 0.02; 0.03 is.
    grupos(1, u"0/1 0/1 0.02/1"_s);
    grupos(2, u"0/1 0/1 0.03/1"_s);
    vacios();
    EXPECT_EQ(kilos(1), "0 0 0.02");
    EXPECT_EQ(kilos(2), "0.01 0.01 0.01");
}

TEST_P(KilosPedidos, ThePayerIsFoundAsANumberAlthoughItsTestGoesAsAText) {
    // 200 empty groups need 2.00; the text "10" is below "2".
    grupos(1, u"10/1 "_s + QStringList(200, u"0/1"_s).join(u' '));
    const Traza traza;
    vacios();
    EXPECT_NE(traza.texto().find("where interno = 'OP1' and ID = 1 And kgneto > '2' order by kgneto desc"),
              std::string::npos);
    EXPECT_EQ(kilos().substr(0, 7), "8 0.01 ");
}

TEST_P(KilosPedidos, AnEmptyMeasureOfThePayerDoesNotFallBelowTheFloor) {
    grupos(1, u"0/1 5/1"_s);
    ejecutar(u"update groupsubitems set valorrelacionestadistica = 0"_s);
    vacios();
    EXPECT_EQ(kilos(), "0.01 4.99");
    EXPECT_EQ(columna("valorrelacionestadistica"), "0.01 0.01");
}

// ---- the button

TEST_P(KilosPedidos, TheButtonRefusesWhatIsNoNumberAndAZeroOfTheDeclaration) {
    grupos(1, u"0/1"_s);
    itemDe(1, u"0"_s, u"1"_s);
    itemCero();
    struct Caso {
        const char *item, *valor, *mensaje;
    };
    for (const Caso &c : {Caso{"0", "", "Debe ingresar un valor númerico"},
                          Caso{"0", "diez", "Debe ingresar un valor númerico"},
                          Caso{"0", "1.234,5", "Debe ingresar un valor númerico"},
                          Caso{"0", "0", "Los valores deben ser mayores a cero"},
                          Caso{"0", "0,004", "Los valores deben ser mayores a cero"},
                          Caso{"1", "", "El valor a prorratear debe ser numerico"},
                          Caso{"1", "x", "El valor a prorratear debe ser numerico"},
                          Caso{"1", "0",
                               "Item: 1\r\n\r\nEl valor ingresado a Prorratear (0) es menor o igual\r\n\r\n"
                               "al total de Kg ingresados en Subitem's (0)"},
                          Caso{"0", "-4",
                               "En la suma de Total Kg Neto en uno o mas items (0) resulta mayor al que "
                               "intenta prorratear"}}) {
        registro = {};
        const Veredicto v =
            ProrratearKilos(*ctx, operacionPedida, QString::fromUtf8(c.item), QString::fromUtf8(c.valor));
        EXPECT_FALSE(v.ok);
        EXPECT_EQ(v.foco.toStdString(), "TxtValor");
        EXPECT_EQ(mensajes(), c.mensaje);
        EXPECT_EQ(registro.mensajes.at(0).icono, Icono::Exclamacion);
    }
    EXPECT_EQ(netos(), "0|0\n1|0");
}

TEST_P(KilosPedidos, TheButtonSpreadsOverTheDeclarationOrOverTheItem) {
    for (const int id : {1, 2}) {
        grupos(id, u"0/1 2/1"_s);
        itemDe(id, u"0"_s, u"2"_s);
    }
    itemCero();
    // 9.255 shows as 9.26; 2 are there, and the group that has them keeps them.
    EXPECT_TRUE(ProrratearKilos(*ctx, operacionPedida, u"2"_s, u" 9,255 "_s).ok);
    EXPECT_EQ(kilos(2), "7.26 2");
    EXPECT_EQ(netos(), "0|0\n1|0\n2|9.26");
    // 12 - 9.26 = 2.74 for item 1, over both its groups: 1.37 each.
    EXPECT_TRUE(ProrratearKilos(*ctx, operacionPedida, u"0"_s, u"12"_s).ok);
    EXPECT_EQ(netos(), "0|12\n1|2.74\n2|9.26");
    EXPECT_EQ(kilos(1), "1.37 1.37");
    EXPECT_EQ(mensajes(), "");
}

EN_AMBOS_STORES(KilosPedidos);

// ---- at random

/// Cents drawn at random, so that sums can be told exactly.
class KilosAlAzar : public KilosPedidos {
 protected:
    struct Item {
        QString estadistica, deresp;
        int grupos = 0;
        int fob = 0;   ///< cents
        int dado = 0;  ///< cents of kilos
        bool enKilos() const { return estadistica == "01"_L1 || deresp == "01"_L1; }
    };
    static QString texto(int centavos) { return numeros::aTexto(centavos / 100.0); }
    int hasta(int tope) { return static_cast<int>(azar.bounded(tope + 1)); }

    /// One to six items, their groups with and without kilos.
    std::vector<Item> sortear() {
        static const std::pair<QString, QString> unidades[] = {
            {u"01"_s, {}}, {u"07"_s, u"01"_s}, {u"01"_s, u"01"_s}, {u"07"_s, {}}};
        std::vector<Item> items(static_cast<std::size_t>(1 + hasta(5)));
        for (std::size_t n = 0; n < items.size(); ++n) {
            Item &i = items[n];
            std::tie(i.estadistica, i.deresp) = unidades[azar.bounded(4)];
            i.grupos = 1 + hasta(6);
            const bool conKilos = hasta(2) == 0;
            QStringList filasDeGrupos;
            for (int g = 0; g < i.grupos; ++g) {
                const int fob = hasta(4) == 0 ? 0 : hasta(50000);
                const int dado = conKilos && hasta(1) == 0 ? hasta(3000) : 0;
                i.fob += fob;
                i.dado += dado;
                filasDeGrupos << texto(dado) + u'/' + texto(fob);
            }
            const int id = static_cast<int>(n) + 1;
            grupos(id, filasDeGrupos.join(u' '), i.estadistica, i.deresp);
            itemDe(id, texto(i.dado), texto(i.fob), i.estadistica, i.deresp);
        }
        itemCero();
        return items;
    }
    double suma(const QString &sql) { return numeros::redondear(numeros::aNumero(valor(sql)), 8); }
    /// What must hold of an item whose groups were given shares.
    void revisar(int id, const Item &i, double total) {
        const QString donde = u" where interno = 'OP1' and id = %1"_s.arg(id);
        if (i.estadistica == "01"_L1) {
            EXPECT_EQ(suma("select sum(valorrelacionestadistica) as t from groupsubitems"_L1 + donde), total);
            EXPECT_EQ(suma("select valorrelacionestadistica as t from item"_L1 + donde), total);
        }
        if (i.deresp == "01"_L1) {
            EXPECT_EQ(suma("select sum(valorderesp) as t from groupsubitems"_L1 + donde), total);
            EXPECT_EQ(suma("select valorderesp as t from item"_L1 + donde), total);
        }
        EXPECT_EQ(suma("select sum(kgneto) as t from groupsubitems"_L1 + donde), total);
        EXPECT_EQ(suma("select totalkneto as t from item"_L1 + donde), total);
    }

    QRandomGenerator azar{20261122};
};

TEST_P(KilosAlAzar, TheItemsSumUpToTheDeclarationAndTheGroupsToTheirItem) {
    int repartidos = 0;
    for (int vez = 0; vez < 300; ++vez) {
        SCOPED_TRACE(vez);
        vaciar();
        const std::vector<Item> items = sortear();
        const int dados =
            std::accumulate(items.begin(), items.end(), 0, [](int s, const Item &i) { return s + i.dado; });
        const int pedido = dados + 1 + hasta(hasta(3) == 0 ? 20 : 100000);
        const bool sePuede =
            std::none_of(items.begin(), items.end(), [](const Item &i) { return i.dado == 0; }) ||
            std::any_of(items.begin(), items.end(), [](const Item &i) { return i.dado == 0 && i.fob > 0; });
        ASSERT_EQ(cero(pedido / 100.0), sePuede) << mensajes();
        if (!sePuede) continue;
        ++repartidos;
        EXPECT_EQ(suma(u"select sum(totalkneto) as t from item where id > 0"_s), pedido / 100.0);
        EXPECT_EQ(suma(u"select totalkneto as t from item where id = 0"_s), pedido / 100.0);
        EXPECT_EQ(valor(u"select count(*) as n from item where totalkneto < 0"_s), u"0"_s);
        EXPECT_EQ(valor(u"select count(*) as n from groupsubitems where kgneto < 0 "
                        "or valorrelacionestadistica < 0 or valorderesp < 0"_s),
                  u"0"_s);
        for (std::size_t n = 0; n < items.size(); ++n) {
            const int id = static_cast<int>(n) + 1;
            const Item &i = items[n];
            const double total = suma(u"select totalkneto as t from item where id = %1"_s.arg(id));
            const bool repartido = i.dado == 0 || total != i.dado / 100.0;
            if (i.enKilos() && repartido) revisar(id, i, total);
            if (!repartido) {
                EXPECT_EQ(suma(u"select sum(kgneto) as t from groupsubitems where id = %1"_s.arg(id)), total);
            }
        }
    }
    EXPECT_GT(repartidos, 200);
}

TEST_P(KilosAlAzar, OneItemsGroupsSumUpToWhatWasAskedAndKeepTheirKilosButForTheLargest) {
    for (int vez = 0; vez < 300; ++vez) {
        SCOPED_TRACE(vez);
        vaciar();
        const std::vector<Item> items = sortear();
        const Item &i = items.front();
        const int pedido = i.dado + 1 + hasta(hasta(3) == 0 ? 5 : 100000);
        const auto modo = hasta(1) == 0 ? ModoDeReparto::Completar : ModoDeReparto::Rehacer;
        EXPECT_TRUE(ex(1, pedido / 100.0, modo));
        EXPECT_EQ(suma(u"select totalkneto as t from item where id = 1"_s), pedido / 100.0);
        if (i.enKilos()) revisar(1, i, pedido / 100.0);
    }
}

INSTANTIATE_TEST_SUITE_P(Stores, KilosAlAzar, ::testing::Values("ACCESS"),
                         [](const ::testing::TestParamInfo<const char *> &caso) {
                             return std::string(caso.param);
                         });

}  // namespace
