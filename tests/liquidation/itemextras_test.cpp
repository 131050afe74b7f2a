// Information and advantages by hand: of one item, and from item 0 of all.

#include "liquidation/itemextras.h"

#include "tests/liquidation/operacion.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

class Extras : public OperacionDePrueba {
 protected:
    void SetUp() override {
        OperacionDePrueba::SetUp();
        for (const int id : {0, 1, 2}) item(id);
    }
    bool informar(const char *item, const char *id, const char *valor = "V") {
        return AgregarInformacion(*ctx, L(clave), L(item), L(id), [this, valor] {
            ++pedidos;
            return std::optional(QString::fromUtf8(valor));
        });
    }
    bool otorgar(const char *item, const char *id) {
        return AgregarVentajaAItem(*ctx, L(clave), L(item), L(id));
    }
    std::string informacion() { return f("select iditem,idinfo,valor from iteminfo order by iditem,idinfo"); }
    std::string ventajas() { return f("select iditem,idventaja from itemventaja order by iditem,idventaja"); }
    std::string marcas() { return f("select id,lman from item order by id"); }
    int pedidos = 0;
};
EN_AMBOS_STORES(Extras);

TEST_P(Extras, WhatCanBeAddedComesInTheOrderOfTheCodes) {
    for (const auto &[tabla, id] : {std::pair{"informacion", "B"}, std::pair{"informacion", "A"},
                                    std::pair{"ventajas", "Z"}, std::pair{"ventajas", "Y"}})
        insertar(L(tabla), {{"id", "'"_L1 + L(id) + "'"_L1}, {"descripcion", "'De "_L1 + L(id) + "'"_L1}},
                 u"SYSTABLAS"_s);
    const auto informaciones = ListarInformacion(*ctx);
    ASSERT_EQ(informaciones.size(), 2U);
    EXPECT_EQ(informaciones[0].id.toStdString(), "A");
    EXPECT_EQ(informaciones[1].descripcion.toStdString(), "De B");
    const auto deVentajas = ListarVentajas(*ctx);
    ASSERT_EQ(deVentajas.size(), 2U);
    EXPECT_EQ(deVentajas[0].id.toStdString(), "Y");
}

TEST_P(Extras, AnInformationIsAddedToItsItemAlone) {
    EXPECT_TRUE(informar("1", "MARCA", "ACME"));
    EXPECT_EQ(informacion(), "1|MARCA|ACME");
}

TEST_P(Extras, OneThatIsThereIsToldAndItsValueNotAsked) {
    informar("1", "MARCA");
    EXPECT_FALSE(informar("1", "MARCA", "OTRA"));
    EXPECT_EQ(pedidos, 1);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto, u"Este item ya esta ingresado."_s);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Exclamacion);
    EXPECT_EQ(informacion(), "1|MARCA|V");
}

TEST_P(Extras, AValueThatIsNotGivenAddsNothing) {
    EXPECT_FALSE(AgregarInformacion(*ctx, L(clave), u"1"_s, u"MARCA"_s, [] { return std::nullopt; }));
    EXPECT_EQ(informacion(), "");
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(Extras, AQuoteInAnInformationValueIsStoredAsTyped) {
    informar("0", "MARCA", "O'HIGGINS \"X\"");
    EXPECT_EQ(informacion(), "0|MARCA|O'HIGGINS \"X\"\n1|MARCA|O'HIGGINS \"X\"\n2|MARCA|O'HIGGINS \"X\"");
}

TEST_P(Extras, AValueOnItemZeroGoesToAllItemsThatLackIt) {
    informar("2", "MARCA", "PROPIA");
    EXPECT_TRUE(informar("0", "MARCA", "ACME"));
    EXPECT_EQ(informacion(), "0|MARCA|ACME\n1|MARCA|ACME\n2|MARCA|PROPIA");
}

TEST_P(Extras, AnInformationOfItemZeroCannotBeDeletedFromAnotherItem) {
    informar("0", "MARCA");
    EXPECT_FALSE(EliminarInformacion(*ctx, L(clave), u"1"_s, u"MARCA"_s));
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto,
              u"No se puede eliminar esta Información. Debe eliminar el mismo en el ITEM 0 (cero)"_s);
    EXPECT_EQ(informacion(), "0|MARCA|V\n1|MARCA|V\n2|MARCA|V");
    EXPECT_TRUE(EliminarInformacion(*ctx, L(clave), u"0"_s, u"MARCA"_s));
    EXPECT_EQ(informacion(), "");
}

TEST_P(Extras, AnInformationOfOneItemIsDeletedFromItAlone) {
    informar("1", "MARCA");
    informar("2", "MARCA");
    informar("1", "MODELO");
    EXPECT_TRUE(EliminarInformacion(*ctx, L(clave), u"1"_s, u"MARCA"_s));
    EXPECT_EQ(informacion(), "1|MODELO|V\n2|MARCA|V");
    EXPECT_FALSE(EliminarInformacion(*ctx, L(clave), u"1"_s, u"MARCA"_s)) << "there was none";
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto, u"El item 1 ya no tiene MARCA; vuelva a mirar la lista."_s);
}

TEST_P(Extras, AnAdvantageIsAddedOnceAndFromItemZeroToAll) {
    EXPECT_TRUE(otorgar("1", "BIENCAPITAL"));
    EXPECT_FALSE(otorgar("1", "BIENCAPITAL"));
    EXPECT_EQ(registro.mensajes.at(0).texto, u"Este item ya esta ingresado."_s);
    EXPECT_TRUE(otorgar("0", "BIENCAPITAL"));
    EXPECT_EQ(ventajas(), "0|BIENCAPITAL\n1|BIENCAPITAL\n2|BIENCAPITAL");
    EXPECT_EQ(marcas(), "0|<null>\n1|<null>\n2|<null>") << "no mark";
}

TEST_P(Extras, AnAdvantageOfItemZeroCannotBeDeletedFromAnotherItem) {
    otorgar("0", "BIENCAPITAL");
    EXPECT_FALSE(EliminarVentajaDeItem(*ctx, L(clave), u"2"_s, u"BIENCAPITAL"_s));
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto,
              u"No se puede eliminar esta Ventaja. Debe eliminar la misma en el ITEM 0 (cero)"_s);
    EXPECT_TRUE(EliminarVentajaDeItem(*ctx, L(clave), u"0"_s, u"BIENCAPITAL"_s));
    EXPECT_EQ(ventajas(), "");
}

TEST_P(Extras, AnAdvantageOfSelfLiquidationMarksItsItemAndItsDeletionTakesTheMark) {
    for (const char *id : {"AUTOLIQLIBREEXP", "AUTOLIQLIBREIMP"}) {
        EXPECT_TRUE(otorgar("1", id));
        EXPECT_EQ(marcas(), "0|<null>\n1|M\n2|<null>");
        EXPECT_TRUE(EliminarVentajaDeItem(*ctx, L(clave), u"1"_s, L(id)));
        EXPECT_EQ(marcas(), "0|<null>\n1|\n2|<null>");
        ejecutar(u"update item set lman = null"_s);
    }
}

TEST_P(Extras, FromItemZeroSelfLiquidationMarksTheItemsThatGotItAndItsDeletionClearsAll) {
    insertar(u"itemventaja"_s, {{"interno", "'OP1'"}, {"iditem", "1"}, {"idventaja", "'AUTOLIQLIBREIMP'"}});
    EXPECT_TRUE(otorgar("0", "AUTOLIQLIBREIMP"));
    EXPECT_EQ(marcas(), "0|M\n1|<null>\n2|M") << "item 1 had it already";
    ejecutar(u"update item set lman = 'M' where id = 1"_s);
    EXPECT_TRUE(EliminarVentajaDeItem(*ctx, L(clave), u"0"_s, u"AUTOLIQLIBREIMP"_s));
    EXPECT_EQ(marcas(), "0|\n1|\n2|");
}

TEST_P(Extras, AnotherOperationsRowsCountForNothing) {
    insertar(u"iteminfo"_s, {{"interno", "'OP2'"}, {"iditem", "0"}, {"idinfo", "'MARCA'"}});
    EXPECT_TRUE(informar("1", "MARCA"));
    EXPECT_TRUE(EliminarInformacion(*ctx, L(clave), u"1"_s, u"MARCA"_s));
    EXPECT_EQ(f("select interno from iteminfo"), "OP2");
}

}  // namespace
