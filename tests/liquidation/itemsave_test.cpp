// The save of an item's page, field by field, and of the operation's own page with what it spreads.

#include "liquidation/itemsave.h"

#include "liquidation/itemview.h"
#include "tests/liquidation/operacion.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

class Grabado : public OperacionDePrueba {
 protected:
    VistaDeItem cargar(const char *item) {
        calculo = std::make_unique<ClassLiquidacion>(*ctx, L(clave));
        return VerDetalleITEM(*ctx, L(clave), L(item), false, *calculo);
    }
    Veredicto grabar(const char *item, const DatosDeItem &datos) {
        return GrabarItem(*ctx, L(clave), L(item), datos, *calculo);
    }
    /// The page of an item as it was loaded, with some fields changed, is saved.
    Veredicto cambiar(const char *item, const std::vector<std::pair<const char *, const char *>> &cambios) {
        DatosDeItem datos = cargar(item).datos;
        for (const auto &[columna, texto] : cambios) datos[L(columna)] = QString::fromUtf8(texto);
        return grabar(item, datos);
    }
    void tresItems() {
        item(0);
        item(1);
        item(2, {{"fobtotal", "2000"}});
        item(3, {{"fobtotal", "5000"}, {"tipoitem", "'G'"}});
    }
};
EN_AMBOS_STORES(Grabado);

// An item

TEST_P(Grabado, EachFieldOfAnItemIsSavedInItsColumn) {
    tresItems();
    struct Caso {
        const char *columna;
        const char *texto;
        const char *guardado;
    };
    const Caso casos[] = {
        {"naladisa", "8413.70", "8413.70"},
        {"lista", "355", "355"},
        {"estadomerc", "2", "2"},
        {"totalkneto", "12,3456", "12.3456"},
        {"idpais", "438", "438"},
        {"insumostemp", "1,25", "1.25"},
        {"insumosacons", "2.5", "2.5"},
        {"idproc", "203", "203"},
        {"ajusteinc", "3,5", "3.5"},
        {"ajusteded", "4.25", "4.25"},
        {"regalias", "S", "S"},
        {"tipoitem", "D", "D"},
        {"standard", "N", "N"},
        {"ItComExt", "7,75", "7.75"},
        {"ItemAsociado", "1", "1"},
        {"COFEXP", "0,90909", "0.90909"},
        {"ONCCAAcuerdo", "A1", "A1 "},
        {"ONCCACategoria", "C1", "C1"},
        {"ONCCACortes", "C2", "C2"},
        {"ONCCAElaborador", "E1", "E1"},
        {"ONCCAEspecie", "E2", "E2"},
        {"ONCCAFaneador", "F1", "F1"},
        {"ONCCAMeccoorgbio", "M1", "M1"},
        {"ONCCAres3106", "R1", "R1"},
        {"ONCCAsispro", "S1", "S1"},
        {"ONCCAMatadero", "M2", "M2"},
        {"Mineria", "S", "S"},
        {"OpcionesIVA", "IVAAD2", "IVAAD2"},
        {"OpcionesGanancias", "BDEUSO", "BDEUSO"},
    };
    std::size_t grabados = 0;
    for (const CampoDeItem &campo : CamposDeItem()) grabados += campo.seGraba ? 1U : 0U;
    ASSERT_EQ(std::size(casos), grabados);
    for (const Caso &c : casos) {
        ASSERT_TRUE(cambiar("2", {{c.columna, c.texto}}).ok) << c.columna;
        EXPECT_EQ(f(qPrintable("select "_L1 + L(c.columna) + " from item where id = 2"_L1)), c.guardado)
            << c.columna;
    }
    EXPECT_EQ(f("select naladisa,lista,idproc,totalkneto from item where id = 1"), "<null>||<null>|<null>");
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(Grabado, AnItemIsSavedByOneUpdateWithItsFieldsInTheirOrder) {
    tresItems();
    const QStringList sentencias = sentenciasDe("update item set", [&] {
        cambiar("1", {{"lista", "MERCOSUR"}});
    });
    ASSERT_EQ(sentencias.size(), 1);
    EXPECT_EQ(sentencias[0].toStdString(),
              "update item set naladisa = '',lista = 'MERCOSUR',estadomerc = '',totalkneto = 0,"
              "idpais = '400',insumostemp = 0,insumosacons = 0,idproc = '',ajusteinc = 0,"
              "ajusteded = 0,regalias = '',tipoitem = 'N',standard = '',ItComExt = 0,"
              "ItemAsociado = '',COFEXP = 0,ONCCAAcuerdo = ' ',ONCCACategoria = '',ONCCACortes = '',"
              "ONCCAElaborador = '',ONCCAEspecie = '',ONCCAFaneador = '',ONCCAMeccoorgbio = '',"
              "ONCCAres3106 = '',ONCCAsispro = '',ONCCAMatadero = '',Mineria = 'N',OpcionesIVA = '',"
              "OpcionesGanancias = '' where id = 1 and interno = 'OP1'");
}

TEST_P(Grabado, AMaskIsForShowingAloneWhatNobodyTouchedKeepsItsDecimals) {
    item(0);
    item(1, {{"insumostemp", "1.23456789"},
             {"insumosacons", "0.005"},
             {"totalkneto", "2.34567"},
             {"itcomext", "3.456"},
             {"ajusteinc", "0.125"},
             {"cofexp", "0.909090909"}});
    cambiar("1", {{"naladisa", "N"}});
    EXPECT_EQ(
        f("select insumostemp,insumosacons,totalkneto,itcomext,ajusteinc,cofexp from item where id = 1"),
        "1.23456789|0.005|2.34567|3.456|0.125|0.909090909");
}

TEST_P(Grabado, TheBlankBehindTheAgreementDoesNotGrow) {
    tresItems();
    for (int vez = 0; vez < 3; ++vez) cambiar("1", {});
    EXPECT_EQ(f("select onccaacuerdo from item where id = 1"), " ");
    cambiar("1", {{"ONCCAAcuerdo", "AC"}});
    EXPECT_EQ(cargar("1").datos.value(u"ONCCAAcuerdo"_s).toStdString(), "AC");
    cambiar("1", {});
    EXPECT_EQ(f("select onccaacuerdo from item where id = 1"), "AC ");
}

TEST_P(Grabado, TextsAreStoredAsTypedWhateverQuotesTheyHold) {
    tresItems();
    ASSERT_TRUE(cambiar("1", {{"naladisa", "O'H\"G''"}, {"ItemAsociado", "'"}}).ok);
    EXPECT_EQ(f("select naladisa,itemasociado from item where id = 1"), "O'H\"G''|'");
}

TEST_P(Grabado, AFieldThatHoldsNoNumberIsToldByItsNameAndNothingIsWritten) {
    tresItems();
    for (const auto &[columna, nombre, control] :
         {std::tuple{"totalkneto", "Kilos netos", "TxtTotKgNeto"},
          std::tuple{"insumostemp", "Insumos temporales", "OLDTxtInsCons"},
          std::tuple{"insumosacons", "Insumos a consumo", "txtConsumo"},
          std::tuple{"ajusteinc", "Ajuste a incluir", "TxtAjusteInc"},
          std::tuple{"ajusteded", "Ajuste a deducir", "txtAjusteDed"},
          std::tuple{"ItComExt", "Comisiones al exterior", "txtItComExt"},
          std::tuple{"COFEXP", "Coeficiente", "TxtCOEF"}}) {
        registro = {};
        DatosDeItem datos = cargar("1").datos;
        datos[L(columna)] = u"1.2.3"_s;
        Veredicto v;
        const QStringList escritas = sentenciasDe("update", [&] { v = grabar("1", datos); });
        EXPECT_FALSE(v.ok);
        EXPECT_EQ(v.foco, L(control));
        EXPECT_TRUE(escritas.isEmpty()) << columna;
        ASSERT_EQ(registro.mensajes.size(), 1U);
        EXPECT_EQ(registro.mensajes[0].texto,
                  u"\"%1\" no es un número: corríjalo y vuelva a grabar."_s.arg(QString::fromUtf8(nombre)));
        EXPECT_EQ(registro.mensajes[0].icono, Icono::Exclamacion);
    }
}

TEST_P(Grabado, AnEmptyAdjustmentGoesInAsNothingAndAnEmptyQuantityIsNoNumber) {
    tresItems();
    ejecutar(u"update item set ajusteinc = 5, ajusteded = 6 where id = 1"_s);
    EXPECT_TRUE(cambiar("1", {{"ajusteinc", ""}, {"ajusteded", " "}}).ok);
    EXPECT_EQ(f("select ajusteinc,ajusteded from item where id = 1"), "0|0");
    EXPECT_EQ(cambiar("1", {{"totalkneto", ""}}).foco, u"TxtTotKgNeto"_s);
}

TEST_P(Grabado, TheListMercosurZeroesTheFourConceptsAndAnotherListRestoresOnlyTheZeros) {
    tresItems();
    for (const char *concepto : {"010", "011", "015", "020", "415"})
        fila(1, concepto, {{"porcentaje", "12"}, {"total", "50"}});
    fila(2, "010", {{"porcentaje", "0"}});
    cambiar("1", {{"lista", "MERCOSUR"}});
    const char *deUno =
        "select idconceptos,porcentaje,total from itemliq where iditem = 1 order by idconceptos";
    EXPECT_EQ(f(deUno), "010|0|0\n011|0|0\n015|0|0\n020|0|0\n415|12|50");
    // A percentage typed meanwhile stays.
    ejecutar(u"update itemliq set porcentaje = 7 where iditem = 1 and idconceptos = '011'"_s);
    cambiar("1", {{"lista", "355"}});
    EXPECT_EQ(f(deUno), "010|<null>|0\n011|7|0\n015|<null>|0\n020|<null>|0\n415|12|50");
    EXPECT_EQ(f("select porcentaje from itemliq where iditem = 2"), "0") << "another item's row";
}

TEST_P(Grabado, AnItemThatIsGoneIsTold) {
    tresItems();
    const DatosDeItem datos = cargar("2").datos;
    ejecutar(u"delete from item where id = 2"_s);
    EXPECT_TRUE(grabar("2", datos).ok);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto, u"0 (cero) registros actualizados."_s);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Exclamacion);
}

TEST_P(Grabado, ATypedListIsMarkedOnItsItemAlone) {
    tresItems();
    MarcarListaTipeada(*ctx, L(clave), u"2"_s);
    EXPECT_EQ(f("select id,itmodif from item order by id"), "0|<null>\n1|<null>\n2|S\n3|<null>");
}

// Item 0

TEST_P(Grabado, WhatItemZeroSaysGoesToEveryItemAndAnEmptyFieldToItemZeroAlone) {
    struct Caso {
        const char *columna;
        const char *texto;
    };
    for (const Caso &c : {Caso{"naladisa", "84'13"}, Caso{"lista", "355"}, Caso{"idpais", "438"},
                          Caso{"estadomerc", "2"}, Caso{"regalias", "S"}, Caso{"standard", "S"}}) {
        ejecutar(u"delete from item"_s);
        tresItems();
        const QString columna = L(c.columna);
        ejecutar("update item set "_L1 + columna + " = 'X'"_L1);
        const std::string ver = ("select id,"_L1 + columna + " from item order by id"_L1).toStdString();
        ASSERT_TRUE(cambiar("0", {{c.columna, ""}}).ok);
        EXPECT_EQ(f(ver.c_str()), "0|\n1|X\n2|X\n3|X") << c.columna;
        ASSERT_TRUE(cambiar("0", {{c.columna, c.texto}}).ok);
        const std::string t = c.texto;
        EXPECT_EQ(f(ver.c_str()), "0|" + t + "\n1|" + t + "\n2|" + t + "\n3|" + t) << c.columna;
    }
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(Grabado, TheProcedenceOfItemZeroFillsOnlyTheEmptyOnesWhileItsOriginOverwrites) {
    tresItems();
    ejecutar(u"update item set idproc = '203' where id = 1"_s);
    ejecutar(u"update item set idproc = '' where id = 2"_s);
    cambiar("0", {{"idproc", "438"}, {"idpais", "310"}});
    EXPECT_EQ(f("select id,idproc,idpais from item order by id"),
              "0|438|310\n1|203|310\n2|438|310\n3|438|310");
}

TEST_P(Grabado, TheListOfItemZeroRulesTheConceptsOfTheWholeOperation) {
    tresItems();
    for (const int i : {1, 2}) fila(i, "010", {{"porcentaje", "12"}, {"total", "50"}});
    fila(2, "415", {{"porcentaje", "21"}});
    cambiar("0", {{"lista", "MERCOSUR"}});
    const char *conceptos =
        "select iditem,idconceptos,porcentaje,total from itemliq order by iditem,idconceptos";
    EXPECT_EQ(f(conceptos), "1|010|0|50\n2|010|0|50\n2|415|21|<null>") << "the totals stay";
    ejecutar(u"update itemliq set porcentaje = 9 where iditem = 1"_s);
    cambiar("0", {{"lista", ""}});
    EXPECT_EQ(f(conceptos), "1|010|9|50\n2|010|<null>|50\n2|415|21|<null>");
    EXPECT_EQ(f("select distinct lista from item where id <> 0"), "MERCOSUR");
}

TEST_P(Grabado, TheFieldsOfAnItemAloneAreNotSavedOnItemZero) {
    tresItems();
    ASSERT_TRUE(cambiar("0", {{"totalkneto", "x"}, {"tipoitem", "D"}, {"Mineria", "S"}}).ok);
    EXPECT_EQ(f("select totalkneto,tipoitem,mineria from item where id = 0"), "<null>|<null>|<null>");
}

TEST_P(Grabado, TheInclusionOfItemZeroIsSharedByFobWhereTheHeaderHasOne) {
    caratula({{"ajusteincluir", "90"}});
    tresItems();
    ASSERT_TRUE(cambiar("0", {{"ajusteinc", "100"}}).ok);
    // FOB without type G is 3000: 100 x 1000 / 3000 and 100 x 2000 / 3000.
    EXPECT_EQ(f("select id,ajusteinc from item order by id"), "0|100\n1|33.33\n2|66.67\n3|<null>");
}

TEST_P(Grabado, TheInclusionStaysOnItemZeroWhereTheHeaderHasNoneOrItIsZero) {
    tresItems();
    ASSERT_TRUE(cambiar("0", {{"ajusteinc", "100"}}).ok);
    EXPECT_EQ(f("select id,ajusteinc from item order by id"), "0|100\n1|<null>\n2|<null>\n3|<null>");
    caratula({{"ajusteincluir", "30"}});
    ASSERT_TRUE(cambiar("0", {{"ajusteinc", ""}}).ok);
    // The load before it has shared the header's 30.
    EXPECT_EQ(f("select id,ajusteinc from item order by id"), "0|0\n1|10\n2|20\n3|<null>");
}

TEST_P(Grabado, TheDeductionOfItemZeroIsSentAsSpelledItsRefusalToldOnceAndTheSaveIsDone) {
    caratula({{"ajustededucir", "30"}});
    tresItems();
    EXPECT_TRUE(cambiar("0", {{"ajusteded", "60"}, {"naladisa", "N"}}).ok);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Critico);
    EXPECT_TRUE(registro.mensajes[0].texto.contains("syntax"_L1, Qt::CaseInsensitive))
        << registro.mensajes[0].texto.toStdString();
    // 30 x 1000 / 3000 and 30 x 2000 / 3000, by the load.
    EXPECT_EQ(f("select id,ajusteded,naladisa from item order by id"), "0|60|N\n1|10|N\n2|20|N\n3|<null>|N");
    // The store goes on as before.
    EXPECT_TRUE(cambiar("1", {{"naladisa", "P"}}).ok);
    EXPECT_EQ(f("select naladisa from item where id = 1"), "P");
}

TEST_P(Grabado, WithoutADeductionInTheHeaderThatOfItemZeroIsNone) {
    tresItems();
    ASSERT_TRUE(cambiar("0", {{"ajusteded", "60"}}).ok);
    EXPECT_EQ(f("select ajusteded from item where id = 0"), "0");
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(Grabado, AnAdjustmentOfItemZeroThatIsNoNumberWritesNothing) {
    tresItems();
    const QStringList escritas = sentenciasDe("update", [&] {
        EXPECT_EQ(cambiar("0", {{"ajusteinc", "cien"}, {"naladisa", "N"}}).foco, u"TxtAjusteInc"_s);
    });
    EXPECT_TRUE(escritas.isEmpty());
    EXPECT_EQ(registro.mensajes.size(), 1U);
}

TEST(CamposDelItem, AColumnIsFoundInAnyCaseOfLetters) {
    ASSERT_NE(CampoDeColumna(u"itcomext"_s), nullptr);
    EXPECT_STREQ(CampoDeColumna(u"itcomext"_s)->control, "txtItComExt");
    EXPECT_EQ(CampoDeColumna(u"id"_s), nullptr);
}

}  // namespace
