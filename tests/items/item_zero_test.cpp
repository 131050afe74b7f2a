// Item 0, the data common to the declaration, the tariff lists, and the types G and D.

#include <gtest/gtest.h>

#include "tests/items/armado.h"

using namespace Qt::StringLiterals;

namespace {

class ItemCero : public ArmadoDePrueba {};

TEST_P(ItemCero, AnOperationWithNoLinesHasItsRowAlone) {
    for (const int numeracion : {1, 2}) {
        ejecutar(u"delete from item where interno = 'OP1'"_s);
        corrida->opciones.ARMARITEM = numeracion;
        DividirItemsGrandes(*corrida);
        GenerarItems(*corrida);
        AgregarItemCero(*corrida);
        EXPECT_EQ(f("select id,totalkneto from item where interno = 'OP1'"), "0|0");
    }
}

TEST_P(ItemCero, NetKilosStayZeroUntilTheKiloProrationWritesTheTarget) {
    grupo({{"kgneto", "0"}});
    corrida->opciones.ARMARITEM = 2;
    GenerarItems(*corrida);
    AgregarItemCero(*corrida);
    EXPECT_EQ(f("select totalkneto from item where interno = 'OP1' and id = 0"), "0");
    Prorratear_ItemCeroEx(*corrida, 12.5);
    EXPECT_EQ(f("select id,totalkneto from item where interno = 'OP1' order by id"), "0|12.5\n1|12.5");
}

TEST_P(ItemCero, WithoutCommonDataTheItemsStayAsTheyAre) {
    item(1, {{"idproc", "''"}});
    AgregarItemCero(*corrida);
    EXPECT_EQ(f("select id,idproc,standard,regalias,estadomerc,idpais,onccaacuerdo,opcionesiva,"
                "opcionesganancias,descripcion,lista "
                "from item "
                "where interno = 'OP1' "
                "order by id"),
              "0|<null>|<null>|<null>|<null>|<null>|<null>|<null>|<null>|<null>|<null>\n"
              "1||<null>|<null>|1|<null>|<null>|<null>|<null>|<null>|<null>");
}

TEST_P(ItemCero, TheDestinationFillsOnlyBlanks) {
    item(1, {{"idproc", "'310'"}});
    item(2, {{"idproc", "''"}});
    item(3);
    corrida->DCPaisDestino = u"200"_s;
    AgregarItemCero(*corrida);
    EXPECT_EQ(f("select id,idproc from item where interno = 'OP1' order by id"),
              "0|200\n1|310\n2|200\n3|200");
}

TEST_P(ItemCero, CommonDataGoToEveryItem) {
    struct Caso {
        QString ContextoArmado::*campo;
        const char *columna;
    };
    const Caso casos[] = {{&ContextoArmado::DCStandard, "standard"},
                          {&ContextoArmado::DCRegalias, "regalias"},
                          {&ContextoArmado::OpcionesIVA, "opcionesiva"},
                          {&ContextoArmado::OpcionesGanancias, "opcionesganancias"}};
    item(1);
    for (const Caso &c : casos) (*corrida).*c.campo = "V-"_L1 + QLatin1String(c.columna);
    AgregarItemCero(*corrida);
    for (const Caso &c : casos) {
        const std::string v = std::string("V-") + c.columna;
        EXPECT_EQ(
            f(u"select id,%1 from item where interno = 'OP1' order by id"_s.arg(QLatin1String(c.columna))),
            "0|" + v + "\n1|" + v);
    }
}

TEST_P(ItemCero, StateAndOriginGoToItemZeroAndOnlyWhenForced) {
    item(1, {{"idpais", "'310'"}});
    corrida->DCEstMerc = u"2"_s;
    corrida->DCPaisOrigen = u"203"_s;
    AgregarItemCero(*corrida);
    EXPECT_EQ(f("select id,estadomerc,idpais from item where interno = 'OP1' order by id"),
              "0|<null>|<null>\n1|1|310");
    ejecutar(u"delete from item where interno = 'OP1' and id = 0"_s);
    corrida->DCForzarEstMerc = corrida->DCForzarPaisOrigen = true;
    AgregarItemCero(*corrida);
    EXPECT_EQ(f("select id,estadomerc,idpais from item where interno = 'OP1' order by id"),
              "0|2|203\n1|1|310");
}

TEST_P(ItemCero, WithoutAnAgreementTheOtherOnccaDataAreDropped) {
    const char *const columnas =
        "onccaacuerdo,onccaelaborador,onccaespecie,onccafaneador,"
        "onccamatadero,onccameccoorgbio,onccares3106,onccasispro";
    corrida->ONCCAElaborador = u"e"_s;
    corrida->ONCCAEspecie = u"s"_s;
    corrida->ONCCAFaneador = u"f"_s;
    corrida->ONCCAMatadero = u"m"_s;
    corrida->ONCCAMeccoorgbio = u"b"_s;
    corrida->ONCCARes3106 = u"r"_s;
    corrida->ONCCASisPro = u"p"_s;
    item(1);
    AgregarItemCero(*corrida);
    const QString sql =
        u"select %1 from item where interno = 'OP1' and id = 1"_s.arg(QLatin1String(columnas));
    EXPECT_EQ(f(sql), "<null>|<null>|<null>|<null>|<null>|<null>|<null>|<null>");
    corrida->ONCCAAcuerdo = u"a"_s;
    AgregarItemCero(*corrida);
    EXPECT_EQ(f(sql), "a|e|s|f|m|b|r|p");
}

TEST_P(ItemCero, AForcedDescriptionGoesToItemsAndGroups) {
    item(1, {{"descripcion", "'x'"}});
    grupo({{"descripcion", "'y'"}});
    corrida->descripcionForzada = true;
    corrida->DC_DJAI_DescripcionMercaderia = u"Caño d'agua"_s;
    AgregarItemCero(*corrida);
    EXPECT_EQ(f("select descripcion from item where interno = 'OP1' order by id"),
              "Caño d'agua\nCaño d'agua");
    EXPECT_EQ(f("select descripcion from groupsubitems where interno = 'OP1'"), "Caño d'agua");
}

TEST_P(ItemCero, TheMarkerOfTheLineBecomesTheTariffList) {
    struct Caso {
        const char *itfiller;
        const char *lista;
    };
    // The long ones test a prefix, so that a split item maps too; the others test equality, and a split one
    // does not.
    const Caso casos[] = {{"'LISTA:314'", "314/R.AUTOMOTRIZ"},
                          {"'LISTA:314/R.AUTOMOTRIZ'", "314/R.AUTOMOTRIZ"},
                          {"'LISTA:3141'", "314/R.AUTOMOTRIZ"},
                          {"'LISTA:MERCOSUR'", "MERCOSUR"},
                          {"'LISTA:MERCOSUR2'", "MERCOSUR"},
                          {"'lista:mercosur'", "MERCOSUR"},
                          {"'LISTA:904/1'", "904/1"},
                          {"'LISTA:904/13'", "904/1"},
                          {"'LISTA:306'", "306"},
                          {"'LISTA:3061'", "<null>"},
                          {"'LISTA:355'", "355"},
                          {"'LISTA:3551'", "<null>"},
                          {"'LISTA:357'", "357"},
                          {"'LISTA:3572'", "<null>"},
                          {"'LISTA:359/3'", "359/3"},
                          {"'LISTA:359/31'", "<null>"},
                          {"'LISTA:904'", "<null>"},
                          {"' LISTA:314'", "<null>"},
                          {"'314'", "<null>"},
                          {"''", "<null>"},
                          {"NULL", "<null>"}};
    std::string esperado;
    int id = 0;
    for (const Caso &c : casos) {
        item(++id, {{"itfiller", QString::fromLatin1(c.itfiller)}});
        esperado += (esperado.empty() ? "" : "\n") + std::to_string(id) + "|" + c.lista;
    }
    AgregarItemCero(*corrida);
    EXPECT_EQ(f("select id,lista from item where interno = 'OP1' and id > 0 order by id"), esperado);
}

TEST_P(ItemCero, AnotherOperationIsNotTouched) {
    item(1, {{"interno", "'OTRA'"}, {"itfiller", "'LISTA:306'"}});
    corrida->DCStandard = u"S"_s;
    corrida->DCPaisDestino = u"200"_s;
    AgregarItemCero(*corrida);
    EXPECT_EQ(f("select lista,standard,idproc from item where interno = 'OTRA'"), "<null>|<null>|<null>");
}

const char *const noSe = "\r\n\r\nNo se establecio el ITEM RELACIONADO!";

TEST_P(ItemCero, TypesGAndDAreRelatedByTheFirstItem) {
    struct Caso {
        const char *tipos;  ///< of items 1, 2, 3 ...
        std::string texto;
        Icono icono;
        const char *asociados;
    };
    const Caso casos[] = {
        {"NDN", "", Icono::Ninguno, "<null> <null> <null>"},
        {"GDND", "Se establecio como ITEM RELACIONADO el 001 en todos los items tipo D", Icono::Informacion,
         "<null> 001 <null> 001"},
        {"G", "Se establecio como ITEM RELACIONADO el 001 en todos los items tipo D", Icono::Informacion,
         "<null>"},
        {"NGD", std::string("ADVERTENCIA!: El Item tipo G debe ser el primer item") + noSe,
         Icono::Exclamacion, "<null> <null> <null>"},
        {"GGD",
         std::string("ADVERTENCIA!: Hay mas de 1 item tipo G, solo puede haber uno y ser el primer item") +
             noSe,
         Icono::Exclamacion, "<null> <null> <null>"},
    };
    for (const Caso &c : casos) {
        registro = {};
        ejecutar(u"delete from item where interno = 'OP1'"_s);
        int id = 0;
        for (const char tipo : std::string(c.tipos))
            item(++id, {{"tipoitem", u"'%1'"_s.arg(QLatin1Char(tipo))}});
        ControlarTiposGD(*corrida);
        ASSERT_EQ(registro.mensajes.size(), c.texto.empty() ? 0U : 1U) << c.tipos;
        if (!c.texto.empty()) {
            EXPECT_EQ(registro.mensajes[0].texto.toStdString(), c.texto);
            EXPECT_EQ(registro.mensajes[0].icono, c.icono);
        }
        EXPECT_EQ(filas(u"select itemasociado from item where interno = 'OP1' order by id"_s)
                      .replace(QLatin1Char('\n'), QLatin1Char(' '))
                      .toStdString(),
                  c.asociados)
            << c.tipos;
    }
}

TEST_P(ItemCero, InNcmOrderAnNItemComesBeforeTheGAndTheCheckWarns) {
    grupo({{"tipoitem", "'G'"}, {"ncm", "'0101.01.01.001A'"}});
    grupo({{"tipoitem", "'N'"}, {"ncm", "'9999.99.99.999Z'"}});
    corrida->opciones.ARMARITEM = 1;
    GenerarItems(*corrida);
    EXPECT_EQ(f("select id,tipoitem from item where interno = 'OP1' order by id"), "1|N\n2|G");
    ControlarTiposGD(*corrida);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto.toStdString(),
              std::string("ADVERTENCIA!: El Item tipo G debe ser el primer item") + noSe);
}

EN_AMBOS_STORES(ItemCero);

}  // namespace
