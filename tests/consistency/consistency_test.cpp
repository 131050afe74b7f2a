// The report that says whether lines, groups, items and header agree on their countries.

#include "liquidation/consistency.h"

#include <gtest/gtest.h>

#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

/// SQL literals of the countries of one joined row.
struct Pais {
    const char *sub;
    const char *grupo;
    const char *item;
};

class Comprobacion : public EnAmbosStores {
 protected:
    void caratula(const char *origen, const char *forzar, const char *destino, const char *interno = "OP1") {
        ejecutar(
            u"insert into caratula (interno,dcpaisorigen,dcforzarpaisorigen,dcpaisdestino) values ('%1',"
            "%2,%3,%4)"_s.arg(QLatin1String(interno), QLatin1String(origen), QLatin1String(forzar),
                              QLatin1String(destino)));
    }
    void item(int id, const char *origen, const char *destino, const char *interno = "OP1") {
        ejecutar(u"insert into item (interno,id,idpais,idproc) values ('%1',%2,%3,%4)"_s
                     .arg(QLatin1String(interno))
                     .arg(id)
                     .arg(QLatin1String(origen), QLatin1String(destino)));
    }
    /// A line and the group that it represents, in item `id`.
    void grupo(int id, const Pais &origen, const Pais &destino, const char *interno = "OP1") {
        ejecutar(u"insert into subitems (interno,idpais,idpaisproc) values ('%1',%2,%3)"_s.arg(
            QLatin1String(interno), QLatin1String(origen.sub), QLatin1String(destino.sub)));
        ejecutar(u"insert into groupsubitems (interno,id,idsub,idpais,idpaisproc) values ('%1',%2,%3,%4,%5)"_s
                     .arg(QLatin1String(interno))
                     .arg(id)
                     .arg(valor(u"select max(id) as n from subitems"_s), QLatin1String(origen.grupo),
                          QLatin1String(destino.grupo)));
    }
    /// An item of one group.
    void todo(int id, const Pais &origen, const Pais &destino, const char *interno = "OP1") {
        item(id, origen.item, destino.item, interno);
        grupo(id, origen, destino, interno);
    }
    void vaciar() {
        for (const char *tabla : {"caratula", "subitems", "groupsubitems", "item"})
            ejecutar(u"delete from %1"_s.arg(QLatin1String(tabla)));
        registro = {};
    }
    /// The report, with "\n" for its line ends; sets `diferencias`.
    std::string reporte(const char *interno = "OP1") {
        diferencias = false;
        const QString texto = GenerarReporte(*ctx, QString::fromLatin1(interno), diferencias);
        EXPECT_TRUE(texto.isEmpty() || texto.endsWith("\r\n"_L1));
        return QString(texto).replace("\r\n"_L1, "\n"_L1).toStdString();
    }

    const Pais iguales{"'203'", "'203'", "'203'"};
    const Pais argentina{"'200'", "'200'", "'200'"};
    bool diferencias = false;
};

struct Caso {
    const char *que;
    const char *forzar;
    const char *CaratulaOrigen;
    const char *CaratulaDestino;
    Pais origen;
    Pais destino;
    const char *reporte;
};

const Caso casos[] = {
    {"forced, all agree",
     "'S'",
     "'203'",
     "'200'",
     {"'203'", "'203'", "'203'"},
     {"'200'", "'200'", "'200'"},
     ""},
    {"forced, the item is not the header's",
     "'S'",
     "'105'",
     "'200'",
     {"'203'", "'203'", "'203'"},
     {"'200'", "'200'", "'200'"},
     "Item: 1(Pais Origen ITEM=203) difiere de (Pais Origen Caratula=105) - Forzar ACTIVADO\n"},
    {"forced, the line is neither its group's nor its item's",
     "'S'",
     "'105'",
     "'200'",
     {"'203'", "'105'", "'105'"},
     {"'200'", "'200'", "'200'"},
     "Item:1(Pais Origen SUBITEM=203) difiere de (Pais Origen Grupo=105) - Forzar ACTIVADO\n"
     "Item:1(Pais Origen SUBITEM=203) difiere de (Pais Origen ITEM=105) - Forzar ACTIVADO\n"},
    {"forced, four different ones",
     "'S'",
     "'101'",
     "'200'",
     {"'102'", "'103'", "'104'"},
     {"'200'", "'200'", "'200'"},
     "Item: 1(Pais Origen ITEM=104) difiere de (Pais Origen Caratula=101) - Forzar ACTIVADO\n"
     "Item:1(Pais Origen SUBITEM=102) difiere de (Pais Origen Grupo=103) - Forzar ACTIVADO\n"
     "Item:1(Pais Origen SUBITEM=102) difiere de (Pais Origen ITEM=104) - Forzar ACTIVADO\n"},
    {"forced, a group that differs from the item alone is nobody's finding",
     "'S'",
     "'203'",
     "'200'",
     {"''", "'105'", "'203'"},
     {"'200'", "'200'", "'200'"},
     ""},
    {"forced, nothing anywhere",
     "'S'",
     "null",
     "'200'",
     {"null", "null", "null"},
     {"null", "null", "null"},
     ""},
    {"not forced, all agree; the header does not count",
     "'N'",
     "'105'",
     "'200'",
     {"'203'", "'203'", "'203'"},
     {"'200'", "'200'", "'200'"},
     ""},
    {"not forced, a null mark",
     "null",
     "'105'",
     "'200'",
     {"'203'", "'203'", "'203'"},
     {"'200'", "'200'", "'200'"},
     ""},
    {"not forced, the group differs",
     "'N'",
     "''",
     "'200'",
     {"'203'", "'105'", "'203'"},
     {"'200'", "'200'", "'200'"},
     "ERROR DE INCONGRUENCIA DE DATOS Item:1(Pais Origen SUBITEM=203) difiere de (Pais Origen Grupo=105) - "
     "Forzar DESACTIVADO\n"
     "Item:1(Pais Origen Grupo=105) difiere de (Pais Origen ITEM=203) - Forzar DESACTIVADO\n"},
    {"not forced, the item differs",
     "'N'",
     "''",
     "'200'",
     {"'203'", "'203'", "'105'"},
     {"'200'", "'200'", "'200'"},
     "Item:1(Pais Origen Grupo=203) difiere de (Pais Origen ITEM=105) - Forzar DESACTIVADO\n"
     "Item:1(Pais Origen SUBITEM=203) difiere de (Pais Origen ITEM=105) - Forzar DESACTIVADO\n"},
    {"not forced, three different ones",
     "'N'",
     "''",
     "'200'",
     {"'101'", "'102'", "'103'"},
     {"'200'", "'200'", "'200'"},
     "ERROR DE INCONGRUENCIA DE DATOS Item:1(Pais Origen SUBITEM=101) difiere de (Pais Origen Grupo=102) - "
     "Forzar DESACTIVADO\n"
     "Item:1(Pais Origen Grupo=102) difiere de (Pais Origen ITEM=103) - Forzar DESACTIVADO\n"
     "Item:1(Pais Origen SUBITEM=101) difiere de (Pais Origen ITEM=103) - Forzar DESACTIVADO\n"},
    {"not forced, no country on the line nor in the header",
     "'N'",
     "''",
     "'200'",
     {"null", "'105'", "'203'"},
     {"'200'", "'200'", "'200'"},
     "Advertencia! Item:1(Pais Origen SUBITEM no se ha completado) - Forzar DESACTIVADO\n"},
    {"not forced, no country on the line but in the header",
     "'N'",
     "'203'",
     "'200'",
     {"''", "'105'", "'101'"},
     {"'200'", "'200'", "'200'"},
     ""},
    // The test is on destinations, the two values shown are the origins.
    {"the group's destination differs",
     "'N'",
     "''",
     "'200'",
     {"'203'", "'203'", "'203'"},
     {"'200'", "'310'", "'200'"},
     "ERROR DE INCONGRUENCIA DE DATOS Item:1(Pais Destino SUBITEM=203) difiere de (Pais Destino "
     "Grupo=203)\n"},
    {"the item's destination differs",
     "'N'",
     "''",
     "''",
     {"'203'", "'203'", "'203'"},
     {"'200'", "'200'", "'310'"},
     "ERROR DE INCONGRUENCIA DE DATOS Item:1(Pais Destino SUBITEM=200) difiere de (Pais Destino ITEM=310)\n"},
    {"three different destinations, under a forced origin",
     "'S'",
     "'203'",
     "null",
     {"''", "'105'", "'203'"},
     {"'200'", "'310'", "'311'"},
     "ERROR DE INCONGRUENCIA DE DATOS Item:1(Pais Destino SUBITEM=) difiere de (Pais Destino Grupo=105)\n"
     "ERROR DE INCONGRUENCIA DE DATOS Item:1(Pais Destino SUBITEM=200) difiere de (Pais Destino ITEM=311)\n"},
    {"a line without destination is not compared",
     "'N'",
     "''",
     "''",
     {"'203'", "'203'", "'203'"},
     {"''", "'310'", "'200'"},
     ""},
    {"the header's destination alone silences the warning",
     "'N'",
     "''",
     "'200'",
     {"'203'", "'203'", "'203'"},
     {"''", "''", "''"},
     ""},
    {"no destination anywhere; the group's does not count",
     "'N'",
     "''",
     "''",
     {"'203'", "'203'", "'203'"},
     {"''", "'310'", "null"},
     "Advertencia! Item:1(Pais Destino SUBITEM/ITEM no se ha completado, No especificado en Caratula)\n"},
    {"both warnings at once",
     "'N'",
     "''",
     "''",
     {"''", "''", "''"},
     {"''", "''", "''"},
     "Advertencia! Item:1(Pais Origen SUBITEM no se ha completado) - Forzar DESACTIVADO\n"
     "Advertencia! Item:1(Pais Destino SUBITEM/ITEM no se ha completado, No especificado en Caratula)\n"},
};

TEST_P(Comprobacion, EveryComparisonOfOneRow) {
    for (const Caso &c : casos) {
        vaciar();
        caratula(c.CaratulaOrigen, c.forzar, c.CaratulaDestino);
        todo(1, c.origen, c.destino);
        EXPECT_EQ(reporte(), c.reporte) << c.que;
        EXPECT_FALSE(diferencias) << c.que << ": the item in hand at the end is not closed";
    }
}

TEST_P(Comprobacion, EveryFindingOfAnEarlierItemSetsTheResult) {
    for (const Caso &c : casos) {
        vaciar();
        caratula(c.CaratulaOrigen, c.forzar, c.CaratulaDestino);
        todo(1, c.origen, c.destino);
        todo(2, c.origen, c.destino);
        const std::string de1 = c.reporte;
        const std::string de2 = QString::fromUtf8(c.reporte)
                                    .replace("Item:1"_L1, "Item:2"_L1)
                                    .replace("Item: 1"_L1, "Item: 2"_L1)
                                    .toStdString();
        EXPECT_EQ(reporte(), (de1.empty() ? "Item: 1 Verificacion OK\n" : de1) + de2) << c.que;
        EXPECT_EQ(diferencias, !de1.empty()) << c.que;
    }
}

TEST_P(Comprobacion, OneItemWhoseCountriesDisagreeGivesNoReport) {
    caratula("''", "'N'", "'200'");
    todo(1, {"'203'", "'105'", "'105'"}, argentina);
    EXPECT_FALSE(ComprobarInterno(*ctx, u"OP1"_s));
    EXPECT_TRUE(registro.informes.empty());
    EXPECT_TRUE(registro.mensajes.empty());
    EXPECT_NE(reporte(), "") << "the finding stands in a text that nobody sees";
}

TEST_P(Comprobacion, OfTwoItemsTheFirstWithAFindingBringsTheFindingsOfBoth) {
    caratula("''", "'N'", "'200'");
    todo(1, {"'203'", "'203'", "'105'"}, argentina);
    todo(2, iguales, {"'200'", "'200'", "'310'"});
    EXPECT_TRUE(ComprobarInterno(*ctx, u"OP1"_s));
    ASSERT_EQ(registro.informes.size(), 1U);
    EXPECT_EQ(registro.informes[0].titulo.toStdString(), "Zendra v3 - Reporte de Diferencias Encontradas.");
    EXPECT_TRUE(registro.informes[0].comoLista);
    EXPECT_EQ(registro.informes[0].texto.toStdString(),
              "Item:1(Pais Origen Grupo=203) difiere de (Pais Origen ITEM=105) - Forzar DESACTIVADO\r\n"
              "Item:1(Pais Origen SUBITEM=203) difiere de (Pais Origen ITEM=105) - Forzar DESACTIVADO\r\n"
              "ERROR DE INCONGRUENCIA DE DATOS Item:2(Pais Destino SUBITEM=200) difiere de (Pais Destino "
              "ITEM=310)\r\n");
}

TEST_P(Comprobacion, OfTwoItemsTheSecondWithAFindingBringsNone) {
    caratula("''", "'N'", "'200'");
    todo(1, iguales, argentina);
    todo(2, {"'203'", "'203'", "'105'"}, argentina);
    EXPECT_FALSE(ComprobarInterno(*ctx, u"OP1"_s));
    EXPECT_TRUE(registro.informes.empty());
    EXPECT_EQ(reporte().substr(0, 24), "Item: 1 Verificacion OK\n");
}

TEST_P(Comprobacion, ItemsFollowTheirNumbersAndTheLastGetsNoLineOfItsOwn) {
    caratula("''", "'N'", "'200'");
    for (const int id : {10, 2, 3, 1})
        todo(id, id == 3 ? Pais{"'203'", "'203'", "'105'"} : iguales, argentina);
    EXPECT_EQ(reporte(),
              "Item: 1 Verificacion OK\nItem: 2 Verificacion OK\n"
              "Item:3(Pais Origen Grupo=203) difiere de (Pais Origen ITEM=105) - Forzar DESACTIVADO\n"
              "Item:3(Pais Origen SUBITEM=203) difiere de (Pais Origen ITEM=105) - Forzar DESACTIVADO\n");
    EXPECT_TRUE(diferencias);
}

TEST_P(Comprobacion, AFindingOfAnyRowOfAnItemIsAFindingOfTheItem) {
    caratula("''", "'N'", "'200'");
    item(1, "'203'", "'200'");
    grupo(1, {"'105'", "'203'", ""}, argentina);
    grupo(1, iguales, argentina);
    todo(2, iguales, argentina);
    EXPECT_EQ(reporte(),
              "ERROR DE INCONGRUENCIA DE DATOS Item:1(Pais Origen SUBITEM=105) difiere de (Pais Origen "
              "Grupo=203) - Forzar DESACTIVADO\n"
              "Item:1(Pais Origen SUBITEM=105) difiere de (Pais Origen ITEM=203) - Forzar DESACTIVADO\n");
    EXPECT_TRUE(diferencias);
}

TEST_P(Comprobacion, AForcedOriginWithAnEmptyLineIsComparedWithTheHeaderAlone) {
    caratula("'105'", "'S'", "'200'");
    todo(1, {"''", "'101'", "'203'"}, argentina);
    EXPECT_EQ(reporte(),
              "Item: 1(Pais Origen ITEM=203) difiere de (Pais Origen Caratula=105) - Forzar ACTIVADO\n");
}

TEST_P(Comprobacion, CountriesAreTrimmedAndUpperCased) {
    for (const char *forzar : {"'S'", "'N'"}) {
        vaciar();
        caratula("' ar'", forzar, "'br '");
        todo(1, {"'ar '", "'AR'", "' Ar '"}, {"'BR'", "'br '", "' bR'"});
        todo(2, {"'ar'", "'AR '", "'ar'"}, {"'br'", "'Br'", "'br'"});
        EXPECT_EQ(reporte(), "Item: 1 Verificacion OK\n") << forzar;
        EXPECT_FALSE(diferencias);
    }
    vaciar();
    caratula("' ar'", "'S'", "' '");
    todo(1, {"'  '", "'x '", "' br'"}, {"' '", "'ch'", "'  '"});
    EXPECT_EQ(reporte(),
              "Item: 1(Pais Origen ITEM=BR) difiere de (Pais Origen Caratula=AR) - Forzar ACTIVADO\n"
              "Advertencia! Item:1(Pais Destino SUBITEM/ITEM no se ha completado, No especificado en "
              "Caratula)\n")
        << "blanks alone are an empty country, and values are shown trimmed";
}

TEST_P(Comprobacion, AFailingItemWithSeveralRowsPrintsTheMessageOnceARow) {
    caratula("'105'", "'S'", "'200'");
    item(1, "'203'", "'200'");
    for (int n = 0; n < 3; ++n) grupo(1, {"''", "'203'", ""}, argentina);
    const std::string una =
        "Item: 1(Pais Origen ITEM=203) difiere de (Pais Origen Caratula=105) - Forzar ACTIVADO\n";
    EXPECT_EQ(reporte(), una + una + una);
}

TEST_P(Comprobacion, WithoutAHeaderTheErrorComesFirstAndTheRowsAreComparedAllTheSame) {
    todo(1, {"''", "'203'", "'203'"}, argentina);
    EXPECT_EQ(reporte(),
              "Error Buscando Interno en CARATULA\n"
              "Advertencia! Item:1(Pais Origen SUBITEM no se ha completado) - Forzar DESACTIVADO\n");
    EXPECT_TRUE(diferencias);
}

TEST_P(Comprobacion, AnOperationThatWasNeverArmedIsAnErrorOfTheReport) {
    caratula("'203'", "'S'", "'200'");
    item(0, "'203'", "'200'");
    EXPECT_EQ(reporte(), "Error Analizando Interno en Item/SubItems/GroupSubItems\n");
    EXPECT_TRUE(diferencias);
    EXPECT_TRUE(ComprobarInterno(*ctx, u"OP1"_s));
    EXPECT_EQ(registro.informes.size(), 1U);
}

TEST_P(Comprobacion, AKeyThatIsNowhereGivesBothErrors) {
    EXPECT_EQ(reporte("NADA"),
              "Error Buscando Interno en CARATULA\nError Analizando Interno en "
              "Item/SubItems/GroupSubItems\n");
    EXPECT_TRUE(diferencias);
}

TEST_P(Comprobacion, LinesWithoutGroupAndGroupsWithoutItemAreNotLookedAt) {
    caratula("''", "'N'", "'200'");
    todo(1, iguales, argentina);
    ejecutar(u"insert into subitems (interno,idpais) values ('OP1','999')"_s);
    grupo(7, {"'101'", "'102'", ""}, argentina);
    todo(2, iguales, argentina);
    EXPECT_EQ(reporte(), "Item: 1 Verificacion OK\n");
    EXPECT_FALSE(diferencias);
}

TEST_P(Comprobacion, AnotherOperationOfTheSameNumbersDoesNotCount) {
    caratula("''", "'N'", "'200'");
    caratula("''", "'N'", "'200'", "OP2");
    for (const int id : {1, 2}) {
        todo(id, iguales, argentina);
        todo(id, {"'101'", "'102'", "'103'"}, argentina, "OP2");
    }
    EXPECT_FALSE(ComprobarInterno(*ctx, u"OP1"_s));
    EXPECT_TRUE(ComprobarInterno(*ctx, u"OP2"_s));
}

TEST_P(Comprobacion, TheStatementsAreTheOnesThatStoresKnow) {
    caratula("''", "'N'", "'200'");
    QStringList textos;
    Conexion::fijarTraza([&textos](const TrazaDeSentencia &t) { textos << t.sentencia; });
    reporte();
    Conexion::fijarTraza({});
    ASSERT_EQ(textos.size(), 2);
    EXPECT_EQ(textos[0].toStdString(),
              "Select DCPaisOrigen, DcForzarPaisOrigen, DcPaisDestino From Caratula Where Interno = 'OP1'");
    EXPECT_EQ(textos[1].toStdString(),
              "Select SubItems.ID as SubItemsID,SubItems.IdPais as SubItemsIDPAIS,SubItems.IdPaisProc as "
              "SubItemsIDPAISPROC,GroupSubItems.ID as GroupSubItemsID, GroupSubItems.IdPais as "
              "GroupSubItemsIDPAIS, GroupSubItems.IdPaisProc as GroupSubItemsIDPROC,Item.IdPais as "
              "ItemIDPAIS, Item.IdProc as ItemIDPAISPROC From SubItems, GroupSubItems, Item Where "
              "GroupSubItems.ID = Item.ID AND SubItems.ID = GroupSubItems.IDSUB AND SubItems.Interno = "
              "GroupSubItems.Interno AND GroupSubItems.Interno = Item.Interno AND GroupSubItems.Interno = "
              "'OP1' Order by GroupSubitems.ID, GroupSubItems.IDSub ");
}

TEST_P(Comprobacion, AKeyWithAQuoteReachesTheCallerAsTheStoresError) {
    EXPECT_THROW(ComprobarInterno(*ctx, u"O'P"_s), Falla);
    EXPECT_TRUE(registro.informes.empty());
}

EN_AMBOS_STORES(Comprobacion);

}  // namespace
