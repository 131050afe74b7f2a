// Groups become items: gross kilos, splits, both numberings, the link of groups.

#include <gtest/gtest.h>

#include "frame/base/values.h"
#include "tests/items/armado.h"

using namespace Qt::StringLiterals;

namespace {

class Items : public ArmadoDePrueba {
 protected:
    void gruposIguales(int cuantos, const Fila &cambios = {}) {
        for (int n = 0; n < cuantos; ++n) grupo(con(cambios, {{"preciounitario", QString::number(n + 1)}}));
    }
    void generar(int numeracion) {
        corrida->opciones.ARMARITEM = numeracion;
        GenerarItems(*corrida);
    }
};

TEST_P(Items, GrossKilosAreCheckedByWhatTheGroupsHold) {
    struct Caso {
        const char *kilos;
        const char *bulpes;
        bool aviso;
    };
    // BULPES stands at 7 before each check.
    const Caso casos[] = {{"10.5 2", "12.5", false}, {"3", "3", false},     {"0 0", "0", false},
                          {"10 0", "7", true},       {"", "7", true},       {"NULL", "7", true},
                          {"NULL 5", "5", false},    {"NULL 0", "0", false}};
    for (const Caso &c : casos) {
        registro = {};
        ejecutar(u"delete from groupsubitems where interno = 'OP1'"_s);
        ejecutar(u"update caratula set bulpes = 7 where interno = 'OP1'"_s);
        for (const QString &k : QString::fromLatin1(c.kilos).split(QLatin1Char(' '), Qt::SkipEmptyParts))
            grupo({{"kgbruto", k}});
        ControlarKiloBruto(*corrida);
        EXPECT_EQ(valor(u"select bulpes from caratula where interno = 'OP1'"_s).toStdString(), c.bulpes)
            << c.kilos;
        ASSERT_EQ(registro.mensajes.size(), c.aviso ? 1U : 0U) << c.kilos;
        if (!c.aviso) continue;
        EXPECT_EQ(registro.mensajes[0].titulo.toStdString(), "KG BRUTOS (BULTOS)");
        EXPECT_EQ(registro.mensajes[0].texto.toStdString(),
                  "Hay Subitem's que no tiene ingresado el KG Bruto.\r\n\r\n"
                  "Por favor verifique los mismos en la opcion CARGA DE SUBITEMS");
        EXPECT_EQ(registro.mensajes[0].icono, Icono::Informacion);
    }
}

TEST_P(Items, ThreeHundredAndOneEqualGroupsMakeTwoItemsOf300And1) {
    for (const int numeracion : {1, 2}) {
        ejecutar(u"delete from groupsubitems where interno = 'OP1'"_s);
        ejecutar(u"delete from item where interno = 'OP1'"_s);
        gruposIguales(301, {{"itfiller", numeracion == 1 ? "'LISTA:314'" : "NULL"}});
        DividirItemsGrandes(*corrida);
        generar(numeracion);
        const std::string prefijo = numeracion == 1 ? "LISTA:314" : "";
        EXPECT_EQ(f("select id,itfiller,cantidad from item where interno = 'OP1' order by id"),
                  "1|" + prefijo + "1|300\n2|" + prefijo + "2|1");
        EXPECT_EQ(
            f("select id,count(*) as n from groupsubitems where interno = 'OP1' group by id order by id"),
            "1|300\n2|1");
        EXPECT_TRUE(registro.mensajes.empty());
    }
}

TEST_P(Items, ThreeHundredGroupsAreNotSplitAnd601MakeThreeParts) {
    gruposIguales(300);
    DividirItemsGrandes(*corrida);
    EXPECT_EQ(f("select itfiller,count(*) as n from groupsubitems where interno = 'OP1' group by itfiller"),
              "|300");
    gruposIguales(301);
    DividirItemsGrandes(*corrida);
    EXPECT_EQ(f("select itfiller,count(*) as n "
                "from groupsubitems "
                "where interno = 'OP1' "
                "group by itfiller "
                "order by itfiller"),
              "1|300\n2|300\n3|1");
}

TEST_P(Items, ASplitLeavesTheGroupsOfAnotherOperationAlone) {
    gruposIguales(301);
    ejecutar(u"update groupsubitems set interno = 'OTRA' where interno = 'OP1' and preciounitario > 300"_s);
    grupo({{"preciounitario", "301"}});
    DividirItemsGrandes(*corrida);
    EXPECT_EQ(f("select itfiller from groupsubitems where interno = 'OTRA'"), "");
    EXPECT_EQ(f("select itfiller from groupsubitems where interno = 'OP1' and preciounitario = 301"), "2");
}

TEST_P(Items, InADeclarationTheSplitKeepsDescriptionsApart) {
    nuevaCorrida(u"DJAI"_s);
    gruposIguales(301, {{"descripcion", "'Caño d''agua  '"}});
    gruposIguales(2, {{"descripcion", "'otra'"}});
    DividirItemsGrandes(*corrida);
    EXPECT_EQ(f("select descripcion,itfiller,count(*) as n "
                "from groupsubitems "
                "where interno = 'OP1' "
                "group by descripcion,itfiller "
                "order by descripcion,itfiller"),
              "Caño d'agua  |1|300\nCaño d'agua  |2|1\notra||2");
}

TEST_P(Items, NumberingByAppearanceFollowsTheLinesAndSumsItsGroups) {
    grupo({{"ncm", "'9999.99.99.999Z'"}, {"cantidad", "2"}, {"fob", "10.25"}, {"kgneto", "1.005"}});
    grupo({{"ncm", "'0101.01.01.001A'"}, {"idpais", "'310'"}, {"idpaisproc", "'200'"}, {"fob", "5"}});
    grupo({{"ncm", "'9999.99.99.999Z'"},
           {"cantidad", "3"},
           {"fob", "20.50"},
           {"kgneto", "2"},
           {"kgbruto", "4"},
           {"insumostemp", "1.5"},
           {"insumosacons", "2.5"},
           {"ajusteincluir", "3"},
           {"ajustededucir", "4"}});
    generar(2);
    // 1.005 rounds to 1.01 before the sum: 1.01 + 2 = 3.01.
    EXPECT_EQ(f("select id,ncm,cantidad,fobtotal,totalkneto,totalkbruto,insumostemp,insumosacons,"
                "ajusteinc,ajusteded "
                "from item "
                "where interno = 'OP1' "
                "order by id"),
              "1|9999.99.99.999Z|5|30.75|3.01|5|1.5|2.5|3|4\n2|0101.01.01.001A|1|5|1|1|0|0|0|0");
    EXPECT_EQ(f("select idsub,id from groupsubitems where interno = 'OP1' order by idsub"), "1|1\n2|2\n3|1");
    EXPECT_EQ(f("select idpais,idproc,idunidad,estadomerc,biendeuso,estadistica,"
                "valorrelacionestadistica,deresp,valorderesp,tipoitem "
                "from item "
                "where interno = 'OP1' and id = 2"),
              "310|200|07|1|N|07|1||0|N");
}

TEST_P(Items, NumberingByAppearanceLetsUnitsAndTypesDifferWithinAnItem) {
    grupo({{"estadistica", "'07'"}, {"tipoitem", "'G'"}, {"lapi", "'S'"}, {"deresp", "'02'"}});
    grupo({{"estadistica", "'01'"}, {"tipoitem", "'N'"}, {"lapi", "''"}, {"deresp", "'03'"}});
    generar(2);
    // The key columns come from the first group.
    EXPECT_EQ(f("select id,estadistica,tipoitem,lapi,deresp,cantidad from item where interno = 'OP1'"),
              "1|07|G|S|02|2");
    ejecutar(u"delete from item where interno = 'OP1'"_s);
    generar(1);
    EXPECT_EQ(f("select count(*) as n from item where interno = 'OP1'"), "2") << "in NCM order they split it";
}

TEST_P(Items, EveryKeyColumnOfTheAppearanceSplitsAnItem) {
    const char *const columnas[] = {
        "ncm",        "idunidad",  "idpais",        "idpaisproc",     "itfiller",
        "estadomerc", "biendeuso", "cancelaciones", "onccacategoria", "onccacortes"};
    grupo();
    for (const char *columna : columnas) grupo({{QString::fromLatin1(columna), "'X'"}});
    grupo({{"sufijos", "'AA01-'"}, {"preciounitario", "9"}, {"codigoean", "'1'"}, {"codprorrateo", "'1'"}});
    generar(2);
    EXPECT_EQ(f("select count(*) as n from item where interno = 'OP1'"), "11");
    EXPECT_EQ(f("select id from groupsubitems where interno = 'OP1' and idsub = 12"), "1")
        << "suffix, price and codes do not split";
}

TEST_P(Items, AGroupWithNullCountryTakesTheIsNullClause) {
    grupo({{"idpais", "NULL"}});
    grupo({{"idpais", "''"}});
    grupo({{"idpais", "NULL"}, {"preciounitario", "2"}});
    const QStringList sentencias = sentenciasDe([this] { generar(2); });
    EXPECT_EQ(f("select idsub,id from groupsubitems where interno = 'OP1' order by idsub"), "1|1\n2|2\n3|1");
    EXPECT_EQ(f("select id,idpais,cantidad from item where interno = 'OP1' order by id"), "1||2\n2||1")
        << "the item takes an empty value";
    EXPECT_EQ(sentencias.filter(u"update groupsubitems set id = "_s)[0].toStdString(),
              "update groupsubitems set id = 1 "
              "where interno = 'OP1' and ncm = '7318.15.00.100A' and idunidad = '07' "
              "and idpais is null and idpaisproc = '203' and itfiller = '' and estadomerc = '1' "
              "and biendeuso = 'N' and cancelaciones = '' and ONCCACategoria = '' "
              "and ONCCACortes = '' ");
}

TEST_P(Items, NumberingByAppearanceSendsFourStatementsAnItem) {
    for (int n = 0; n < 5; ++n) grupo({{"ncm", u"'%1'"_s.arg(n)}});
    // Pick, number, sum, insert; and the pick that finds nothing. A server is asked once for all groups, so
    // that the others can travel together.
    const int adelantada = std::string(GetParam()) == "SQL" ? 1 : 0;
    EXPECT_EQ(sentenciasDe([this] { generar(2); }).size(), 5 * 4 + 1 + adelantada);
}

TEST_P(Items, OutsideADeclarationTheItemDescriptionIsEmpty) {
    grupo({{"descripcion", "'uno'"}});
    grupo({{"descripcion", "'dos'"}});
    for (const int numeracion : {1, 2}) {
        ejecutar(u"delete from item where interno = 'OP1'"_s);
        ejecutar(u"update groupsubitems set id = NULL where interno = 'OP1'"_s);
        generar(numeracion);
        EXPECT_EQ(f("select id,descripcion,cantidad from item where interno = 'OP1'"), "1||2") << numeracion;
    }
}

TEST_P(Items, InADeclarationTheDescriptionMakesTheItem) {
    for (const int numeracion : {1, 2}) {
        nuevaCorrida(u"DJAI"_s);
        ejecutar(u"delete from item where interno = 'OP1'"_s);
        ejecutar(u"delete from groupsubitems where interno = 'OP1'"_s);
        grupo({{"descripcion", "'Caño d''agua'"}});
        grupo({{"descripcion", "'Bulón'"}});
        grupo({{"descripcion", "'CAñO d''agua'"}});
        generar(numeracion);
        EXPECT_EQ(f("select count(*) as n from item where interno = 'OP1'"), "2") << numeracion;
        EXPECT_EQ(f("select descripcion from item where interno = 'OP1' and cantidad = 2").substr(4),
                  "o d'agua")
            << numeracion;
        EXPECT_EQ(f("select count(*) as n from groupsubitems where interno = 'OP1' and id is null"), "0")
            << numeracion;
    }
}

TEST_P(Items, ADescriptionWithEndBlanksIsNumberedToo) {
    nuevaCorrida(u"DJAI"_s);
    grupo({{"descripcion", "'Bulón  '"}});
    grupo({{"descripcion", "' Bulón'"}});
    grupo({{"descripcion", "'Bulón  '"}, {"preciounitario", "2"}});
    generar(2);
    EXPECT_EQ(f("select idsub,id from groupsubitems where interno = 'OP1' order by idsub"), "1|1\n2|2\n3|1");
}

TEST_P(Items, AGroupThatNoKeyMeetsEndsTheRunInsteadOfTurningForEver) {
    grupo({{"ncm", "NULL"}});
    EXPECT_THROW(generar(2), Falla);
    EXPECT_EQ(f("select count(*) as n from item where interno = 'OP1'"), "0");
}

TEST_P(Items, NumberingByNcmPutsNBeforeGBeforeDAndPositionsInOrder) {
    grupo({{"tipoitem", "'D'"}, {"ncm", "'1111.11.11.111A'"}});
    grupo({{"tipoitem", "'G'"}, {"ncm", "'2222.22.22.222B'"}});
    grupo({{"tipoitem", "'N'"}, {"ncm", "'9999.99.99.999Z'"}});
    grupo({{"tipoitem", "'N'"}, {"ncm", "'3333.33.33.333C'"}, {"itfiller", "'B'"}});
    grupo({{"tipoitem", "'N'"}, {"ncm", "'3333.33.33.333C'"}, {"itfiller", "'A'"}});
    generar(1);
    EXPECT_EQ(f("select id,tipoitem,ncm,itfiller from item where interno = 'OP1' order by id"),
              "1|N|3333.33.33.333C|A\n2|N|3333.33.33.333C|B\n3|N|9999.99.99.999Z|\n"
              "4|G|2222.22.22.222B|\n5|D|1111.11.11.111A|");
    EXPECT_EQ(f("select idsub,id from groupsubitems where interno = 'OP1' order by idsub"),
              "1|5\n2|4\n3|3\n4|2\n5|1");
}

TEST_P(Items, TheLinkByNcmIsSpelledForEachStore) {
    grupo();
    const QString enlace = sentenciasDe([this] { generar(1); }).filter(u"ITEM.ID"_s).value(0);
    const QString comparaciones =
        u"(groupsubitems.interno = item.Interno and "
        "groupsubitems.ncm = item.NCM and "
        "(groupsubitems.idpais = item.Idpais or groupsubitems.idpais is null) and "
        "(groupsubitems.idpaisproc = item.Idproc or groupsubitems.idpaisproc is null) and "
        "groupsubitems.idunidad = item.idunidad and "
        "(groupsubitems.itfiller = item.itfiller or groupsubitems.itfiller is null) and "
        "(groupsubitems.estadomerc = item.estadomerc or groupsubitems.estadomerc is null) and "
        "groupsubitems.biendeuso = item.Biendeuso and "
        "groupsubitems.cancelaciones = item.cancelaciones and "
        "groupsubitems.tipoitem = item.tipoitem)"_s;
    const QString donde = u" where groupsubitems.interno = 'OP1'"_s;
    const QString esperada = corrida->esSQL()
                                 ? u"Update groupsubitems Set groupsubitems.ID = ITEM.ID "
                                   "from groupsubitems "
                                   "INNER JOIN item on "_s +
                                       comparaciones + donde
                                 : u"Update groupsubitems Inner Join item On "_s + comparaciones +
                                       u" Set groupsubitems.ID = ITEM.ID"_s + donde;
    EXPECT_EQ(enlace.toStdString(), esperada.toStdString());
}

TEST_P(Items, ALinkThatTouchesNoRowIsToldAndTheRunGoesOn) {
    grupo({{"biendeuso", "NULL"}});  // a null equals nothing, not even the item made of it
    generar(1);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto.toStdString(), "Error en Agrupar Subitems");
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Critico);
    EXPECT_EQ(f("select count(*) as n from item where interno = 'OP1'"), "1");
}

TEST_P(Items, TheBuyerDatumIsWrittenInNcmOrderAlone) {
    corrida->DATOCOMPRADOR = u"O'Higgins"_s;
    grupo();
    grupo({{"ncm", "'9999.99.99.999Z'"}});
    generar(2);
    EXPECT_EQ(f("select count(*) as n from iteminfo where interno = 'OP1'"), "0");
    ejecutar(u"delete from item where interno = 'OP1'"_s);
    generar(1);
    EXPECT_EQ(f("select iditem,idinfo,valor from iteminfo where interno = 'OP1' order by iditem"),
              "1|DATO-COMPRADOR|O Higgins\n2|DATO-COMPRADOR|O Higgins");
}

TEST_P(Items, AdditionalInformationBlanksEveryQuote) {
    AgregarInformacionAdicional(*corrida, 7, u"X"_s, u"'a''b'"_s);
    EXPECT_EQ(f("select iditem,idinfo,valor from iteminfo where interno = 'OP1'"), "7|X| a  b ");
}

EN_AMBOS_STORES(Items);

}  // namespace
