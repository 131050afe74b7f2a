#include <gtest/gtest.h>

#include "tests/assembly/operacion.h"
#include "tests/support/insumos.h"

using namespace Qt::StringLiterals;

namespace {

class Agrupacion : public Armado {
 protected:
    QString grupos(const QString &columnas) {
        return filas("select "_L1 + columnas + " from groupsubitems where interno = 'OP1'"_L1);
    }
    QString vinculos() {
        return filas(u"select idroot,idsub from idrel where interno = 'OP1' order by idroot,idsub"_s);
    }
    void grupo(const Fila &fila) {
        Fila completa{{u"interno"_s, u"'OP1'"_s}};
        for (const auto &[columna, literal] : fila) completa[columna] = literal;
        insertar(u"groupsubitems"_s, completa);
    }
};
EN_AMBOS_STORES(Agrupacion);

/// A column of the key, and a value that differs from the default line's.
constexpr std::pair<const char *, const char *> claveDelGrupo[] = {
    {"ncm", "'8409.91.12.200A'"}, {"preciounitario", "11"},  {"idpais", "'310'"},
    {"idpaisproc", "'310'"},      {"sufijos", "'AB(X)-'"},   {"idunidad", "'01'"},
    {"estadomerc", "'2'"},        {"biendeuso", "'S'"},      {"estadistica", "'01'"},
    {"deresp", "'01'"},           {"codprorrateo", "'EMB'"}, {"itfiller", "'F'"},
    {"cancelaciones", "'OK'"},    {"codigoean", "'779'"},    {"tipoitem", "'G'"},
    {"onccacategoria", "'C'"},    {"onccacortes", "'K'"},
};

}  // namespace

TEST_P(Agrupacion, EveryColumnOfTheKeyKeepsTwoLinesApart) {
    int n = 0;
    for (const auto &[columna, literal] : claveDelGrupo) {
        const QString clave = u"K%1"_s.arg(++n);
        caratula({}, clave);
        linea({}, clave);
        linea({{QLatin1StringView(columna), QLatin1StringView(literal)}}, clave);
        ContextoArmado r = corrida({}, clave);
        agrupar(r);
        EXPECT_EQ(valor("select count(*) from groupsubitems where interno = '"_L1 + clave + '\''_L1), u"2"_s)
            << columna;
    }
}

TEST_P(Agrupacion, TheCaseOfAnEnglishLetterIsNoDifferenceAndThatOfAnotherOneIsInAFile) {
    caratula();
    linea({{u"sufijos"_s, u"'AB(Peña)-'"_s}});
    linea({{u"sufijos"_s, u"'ab(PEñA)-'"_s}});
    linea({{u"sufijos"_s, u"'AB(PEÑA)-'"_s}});
    ContextoArmado r = corrida();
    agrupar(r);
    const auto id = ids();
    const bool enArchivo = GetParam() == std::string("ACCESS");
    EXPECT_EQ(filas(u"select idsub,cantidad from groupsubitems order by idsub"_s),
              enArchivo ? u"%1|2\n%2|1"_s.arg(id[0]).arg(id[2]) : u"%1|3"_s.arg(id[0]));
}

TEST_P(Agrupacion, MeasuresAndAmountsOfAGroupAreSummed) {
    caratula();
    linea({{u"cantidad"_s, u"2"_s},
           {u"fob"_s, u"20"_s},
           {u"kgneto"_s, u"1.5"_s},
           {u"kgbruto"_s, u"2"_s},
           {u"valorrelacionestadistica"_s, u"2"_s},
           {u"valorderesp"_s, u"4"_s},
           {u"insumostemp"_s, u"'1'"_s},
           {u"insumosacons"_s, u"'0.5'"_s},
           {u"ajusteincluir"_s, u"'3'"_s},
           {u"ajustededucir"_s, u"'1'"_s}});
    linea({{u"cantidad"_s, u"3"_s},
           {u"fob"_s, u"30"_s},
           {u"kgneto"_s, u"2.5"_s},
           {u"kgbruto"_s, u"3"_s},
           {u"valorrelacionestadistica"_s, u"3"_s},
           {u"valorderesp"_s, u"6"_s},
           {u"insumostemp"_s, u"'2'"_s},
           {u"insumosacons"_s, u"'1'"_s},
           {u"ajusteincluir"_s, u"'0.25'"_s},
           {u"ajustededucir"_s, u"null"_s}});
    ContextoArmado r = corrida();
    agrupar(r);
    EXPECT_EQ(grupos(u"cantidad,fob,kgneto,kgbruto,valorrelacionestadistica,valorderesp,"
                     "insumostemp,insumosacons,ajusteincluir,ajustededucir"_s),
              u"5|50|4|5|5|10|3|1.5|3.25|1"_s);
}

TEST_P(Agrupacion, LapiIsNotInsertedAndArrivesEmpty) {
    caratula();
    linea({{u"lapi"_s, u"'S'"_s}});
    ContextoArmado r = corrida();
    agrupar(r);
    EXPECT_EQ(grupos(u"lapi"_s), QString());
    EXPECT_EQ(valor(u"select count(*) from groupsubitems where lapi = ''"_s), u"1"_s);
}

TEST_P(Agrupacion, LinesEqualInEveryKeyColumnWithDifferentArticlesAreOneGroupWithoutCatalogue) {
    caratula();
    linea({{u"idarticulo"_s, u"'A'"_s}});
    linea({{u"idarticulo"_s, u"'B'"_s}});
    ContextoArmado r = corrida();
    agrupar(r);
    const auto id = ids();
    EXPECT_EQ(grupos(u"idsub,idarticulo,idcatalogo"_s), u"%1|agrupado!|<null>"_s.arg(id[0]));
    EXPECT_EQ(vinculos(), u"%1|%2"_s.arg(id[0]).arg(id[1]));
}

TEST_P(Agrupacion, LinesOfOneArticleKeepItAndItsCatalogueFromTheFirstLine) {
    caratula();
    linea({{u"idarticulo"_s, u"'A'"_s}});
    linea({{u"idarticulo"_s, u"'A '"_s}, {u"idcatalogo"_s, u"'OTRO'"_s}});
    linea({{u"idarticulo"_s, u"'A'"_s}});
    ContextoArmado r = corrida();
    agrupar(r);
    const auto id = ids();
    EXPECT_EQ(grupos(u"idsub,idarticulo,idcatalogo"_s), u"%1|A|CAT"_s.arg(id[0]));
    EXPECT_EQ(vinculos(), u"%1|%2\n%1|%3"_s.arg(id[0]).arg(id[1]).arg(id[2]));
}

TEST_P(Agrupacion, PercentSignsInTheTextsOfALineAreText) {
    caratula();
    for (int n = 0; n < 2; ++n)
        linea(
            {{u"idarticulo"_s, u"'%1-100%'"_s}, {u"idcatalogo"_s, u"'%2 %3'"_s}, {u"itfiller"_s, u"'%4'"_s}});
    ContextoArmado r = corrida();
    agrupar(r);
    EXPECT_EQ(grupos(u"cantidad,idarticulo,idcatalogo,itfiller"_s), u"2|%1-100%|%2 %3|%4"_s);
}

TEST_P(Agrupacion, AOneLineGroupIsLinkedByTheFirstPassAndHasNoIdrelRow) {
    caratula();
    linea();
    ContextoArmado r = corrida();
    NormalizarLineas(r);
    int lecturasDeLineas = 0;
    Conexion::fijarTraza([&](const TrazaDeSentencia &t) {
        lecturasDeLineas += t.sentencia.startsWith("select id,"_L1) ? 1 : 0;
    });
    AgruparLineas(r);
    Conexion::fijarTraza({});
    EXPECT_EQ(lecturasDeLineas, 0);
    EXPECT_EQ(grupos(u"idsub,idarticulo,idcatalogo"_s), u"%1|ART|CAT"_s.arg(ids()[0]));
    EXPECT_EQ(vinculos(), QString());
}

TEST_P(Agrupacion, AGroupWhoseSumEqualsOneLinesQuantityIsLinkedToThatLineAndTheOtherGetsNoIdrelRow) {
    caratula();
    linea({{u"cantidad"_s, u"0"_s}, {u"fob"_s, u"0"_s}});
    linea({{u"cantidad"_s, u"5"_s}, {u"fob"_s, u"50"_s}});
    ContextoArmado r = corrida();
    agrupar(r);
    EXPECT_EQ(grupos(u"idsub,cantidad"_s), u"%1|5"_s.arg(ids()[1]));
    EXPECT_EQ(vinculos(), QString());
}

TEST_P(Agrupacion, TheFirstPassTouchesNoOtherOperation) {
    caratula();
    linea();
    insertar(u"groupsubitems"_s, {{u"interno"_s, u"'OTRA'"_s},
                                  {u"ncm"_s, '\''_L1 + posicionSinSufijos + '\''_L1},
                                  {u"preciounitario"_s, u"10"_s},
                                  {u"cantidad"_s, u"1"_s}});
    linea({}, u"OTRA"_s);
    ContextoArmado otra{*ctx, u"OTRA"_s};
    NormalizarLineas(otra);
    ContextoArmado r = corrida();
    agrupar(r);
    EXPECT_EQ(valor(u"select idsub from groupsubitems where interno = 'OTRA'"_s), u"<null>"_s);
}

TEST_P(Agrupacion, InADjaiWithTheNoDescriptionFlagOnDifferentDescriptionsFallIntoOneGroup) {
    caratula({{u"idsubreg"_s, u"'DJAI'"_s}});
    linea({{u"descripcion_maria"_s, u"'UNA'"_s}});
    linea({{u"descripcion_maria"_s, u"'OTRA'"_s}});
    ContextoArmado r = corrida({.sinDescripcion = true});
    agrupar(r);
    EXPECT_EQ(grupos(u"cantidad,descripcion"_s), u"2|<null>"_s);
}

TEST_P(Agrupacion, InADjaiWithDescriptionsTheyKeepLinesApartAndArePutOnTheGroup) {
    caratula({{u"idsubreg"_s, u"'DJAI'"_s}});
    linea({{u"descripcion_maria"_s, u"'UNA'"_s}});
    linea({{u"descripcion_maria"_s, u"'O''TRA'"_s}});
    linea({{u"descripcion_maria"_s, u"'O''TRA'"_s}});
    ContextoArmado r = corrida({.modo = ModoDescripcion::Maria});
    agrupar(r);
    const auto id = ids();
    EXPECT_EQ(
        filas(u"select descripcion,cantidad,idsub from groupsubitems where interno = 'OP1' order by idsub"_s),
        u"UNA|1|%1\nO'TRA|2|%2"_s.arg(id[0]).arg(id[1]));
    EXPECT_EQ(vinculos(), u"%1|%2"_s.arg(id[1]).arg(id[2]));
}

TEST_P(Agrupacion, AnArticleWithAQuoteIsLinkedAsItWasTyped) {
    caratula();
    linea({{u"idarticulo"_s, u"'CODO 1'''"_s}});
    linea({{u"idarticulo"_s, u"'CODO 1'''"_s}});
    ContextoArmado r = corrida();
    agrupar(r);
    EXPECT_EQ(grupos(u"idarticulo"_s), u"CODO 1'"_s);
}

TEST_P(Agrupacion, OtrosForTheArticleIsHonouredByTheFileStoreInTheFirstPassAndByBothInTheWalk) {
    ctx->opciones.FlgIdArtTOOtros = true;
    caratula();
    linea();
    caratula({}, u"OP2"_s);
    linea({}, u"OP2"_s);
    linea({}, u"OP2"_s);
    ContextoArmado uno = corrida();
    agrupar(uno);
    ContextoArmado varios = corrida({}, u"OP2"_s);
    agrupar(varios);
    EXPECT_EQ(grupos(u"idarticulo"_s), esSQL() ? u"ART"_s : u"OTRO"_s);
    EXPECT_EQ(valor(u"select idarticulo from groupsubitems where interno = 'OP2'"_s), u"OTRO"_s);
}

TEST_P(Agrupacion, AGroupWhoseLinesAreNotFoundInTheWalkKeepsANullRoot) {
    // A price of six decimals is looked for with five.
    caratula();
    linea({{u"preciounitario"_s, u"1.234567"_s}});
    linea({{u"preciounitario"_s, u"1.234567"_s}});
    ContextoArmado r = corrida();
    agrupar(r);
    EXPECT_EQ(grupos(u"cantidad,idsub"_s), u"2|<null>"_s);
    EXPECT_EQ(vinculos(), QString());
}

TEST_P(Agrupacion, TheFillsOfTheGroupsMeasures) {
    struct Caso {
        Fila antes;
        QString despues;  ///< valorrelacionestadistica|valorderesp|kgneto
    };
    const auto fila = [](const char *ud, const char *ue, const char *de, const char *cant, const char *vue,
                         const char *vde, const char *kg) {
        return Fila{{u"idunidad"_s, '\''_L1 + QLatin1StringView(ud) + '\''_L1},
                    {u"estadistica"_s, '\''_L1 + QLatin1StringView(ue) + '\''_L1},
                    {u"deresp"_s, '\''_L1 + QLatin1StringView(de) + '\''_L1},
                    {u"cantidad"_s, QLatin1StringView(cant)},
                    {u"valorrelacionestadistica"_s, QLatin1StringView(vue)},
                    {u"valorderesp"_s, QLatin1StringView(vde)},
                    {u"kgneto"_s, QLatin1StringView(kg)}};
    };
    const std::vector<Caso> casos{
        {fila("07", "07", "", "4", "0", "0", "0"), u"4|0|0"_s},        // 1: same unit
        {fila("07", "07", "", "4", "3", "0", "0"), u"3|0|0"_s},        // what was given stays
        {fila("07", "05", "07", "4", "0", "0", "0"), u"0|4|0"_s},      // 2: the specific unit
        {fila("07", "05", "05", "4", "0", "9", "0"), u"9|9|0"_s},      // 3: from the specific quantity
        {fila("07", "01", "", "4", "0", "0", "2.5"), u"2.5|0|2.5"_s},  // 4: statistical kilos from net kilos
        {fila("01", "01", "", "4", "7", "0", "0"), u"7|0|4"_s},        // 5: net kilos from the quantity
        {fila("01", "07", "", "4", "7", "0", "0"), u"7|0|4"_s},  // 6: the same under another statistical unit
        {fila("07", "01", "", "4", "6", "0", "0"), u"6|0|6"_s},  // 7: net kilos from statistical kilos
    };
    int n = 0;
    for (const Caso &caso : casos) {
        Fila completa = caso.antes;
        const QString clave = u"M%1"_s.arg(++n);
        completa[u"interno"_s] = '\''_L1 + clave + '\''_L1;
        insertar(u"groupsubitems"_s, completa);
        ContextoArmado r{*ctx, clave};
        AgruparLineas(r);
        EXPECT_EQ(
            filas(
                "select valorrelacionestadistica,valorderesp,kgneto from groupsubitems where interno = '"_L1 +
                clave + '\''_L1),
            caso.despues)
            << n;
    }
}

TEST_P(Agrupacion, TheFillOfTheCountryOfProvenanceTestsTheOtherCountryAndFillsNothing) {
    grupo({{u"idpais"_s, u"null"_s}, {u"idpaisproc"_s, u"null"_s}});
    ContextoArmado r{*ctx, u"OP1"_s};
    AgruparLineas(r);
    EXPECT_EQ(
        grupos(
            u"idpais,idpaisproc,idarticulo,kgbruto,sufijos,idunidad,estadomerc,biendeuso,lapi,cancelaciones"_s),
        u"|<null>||0||||||"_s);
}

TEST_P(Agrupacion, FoldedLinesOfACancellationAreToldToTheInputsLink) {
    caratula();
    for (int n = 0; n < 3; ++n) linea({{u"cancelaciones"_s, u"'OK'"_s}});
    linea({{u"preciounitario"_s, u"11"_s}});
    linea({{u"preciounitario"_s, u"11"_s}});
    const LibreriaDeInsumos libreria;
    ContextoArmado r = corrida();
    agrupar(r);
    const auto id = ids();
    EXPECT_EQ(libreria.pedidos("EnviarGrupoIdSub"),
              u"OP1 %1 %2|%3"_s.arg(id[0]).arg(id[1]).arg(id[2]).toStdString());
}

TEST_P(Agrupacion, ARefusalOfTheInputsLinkRaisesItsError) {
    caratula();
    linea({{u"cancelaciones"_s, u"'OK'"_s}});
    linea({{u"cancelaciones"_s, u"'OK'"_s}});
    LibreriaDeInsumos libreria;
    libreria.acepta = false;
    ContextoArmado r = corrida();
    NormalizarLineas(r);
    try {
        AgruparLineas(r);
        FAIL() << "no error";
    } catch (const Falla &e) {
        EXPECT_EQ(e.fuente, u"go_InputsLink.EnviarGrupoIdSub"_s);
        EXPECT_EQ(e.descripcion, u"Error en enviar vinculación de subitems a insumos"_s);
    }
}

TEST_P(Agrupacion, TheHeaderDefaultsOfTheTable) {
    struct Caso {
        Fila caratula;
        Fila grupo;
        const char *columna;
        const char *despues;
    };
    const std::vector<Caso> casos{
        {{{u"DCEstMerc"_s, u"'2'"_s}, {u"DCForzarEstMerc"_s, u"'S'"_s}},
         {{u"estadomerc"_s, u"'1'"_s}},
         "estadomerc",
         "2"},
        {{{u"DCEstMerc"_s, u"'2'"_s}, {u"DCForzarEstMerc"_s, u"'N'"_s}},
         {{u"estadomerc"_s, u"'1'"_s}},
         "estadomerc",
         "1"},
        {{{u"DCEstMerc"_s, u"'2'"_s}}, {{u"estadomerc"_s, u"''"_s}}, "estadomerc", "2"},
        {{{u"DCEstMerc"_s, u"'2'"_s}}, {{u"estadomerc"_s, u"null"_s}}, "estadomerc", "2"},
        {{{u"DCForzarEstMerc"_s, u"'S'"_s}}, {{u"estadomerc"_s, u"'1'"_s}}, "estadomerc", "1"},
        {{{u"DCPaisOrigen"_s, u"'310'"_s}, {u"DCForzarPaisOrigen"_s, u"'S'"_s}},
         {{u"idpais"_s, u"'203'"_s}},
         "idpais",
         "310"},
        {{{u"DCPaisOrigen"_s, u"'310'"_s}}, {{u"idpais"_s, u"'203'"_s}}, "idpais", "203"},
        {{{u"DCPaisOrigen"_s, u"'310'"_s}}, {{u"idpais"_s, u"''"_s}}, "idpais", "310"},
        {{{u"DCPaisOrigen"_s, u"'310'"_s}}, {{u"idpais"_s, u"null"_s}}, "idpais", "310"},
        {{{u"DCPaisDestino"_s, u"'200'"_s}}, {{u"idpaisproc"_s, u"'203'"_s}}, "idpaisproc", "203"},
        {{{u"DCPaisDestino"_s, u"'200'"_s}}, {{u"idpaisproc"_s, u"null"_s}}, "idpaisproc", "200"},
        {{}, {{u"idpaisproc"_s, u"null"_s}}, "idpaisproc", "<null>"},
        {{{u"ONCCACategoria"_s, u"'C'"_s}}, {{u"onccacategoria"_s, u"''"_s}}, "onccacategoria", "C"},
        {{{u"ONCCACategoria"_s, u"'C'"_s}}, {{u"onccacategoria"_s, u"'X'"_s}}, "onccacategoria", "X"},
        {{}, {{u"onccacategoria"_s, u"null"_s}}, "onccacategoria", ""},
        {{{u"ONCCACortes"_s, u"'K'"_s}}, {{u"onccacortes"_s, u"null"_s}}, "onccacortes", "K"},
        {{}, {{u"onccacortes"_s, u"null"_s}}, "onccacortes", ""},
        {{}, {{u"codprorrateo"_s, u"'EMB'"_s}}, "codprorrateo", ""},
        {{}, {{u"descripcion"_s, u"'TEXTO'"_s}}, "descripcion", ""},
        {{{u"idsubreg"_s, u"'DJAI'"_s}}, {{u"descripcion"_s, u"'TEXTO'"_s}}, "descripcion", "TEXTO"},
        {{{u"idsubreg"_s, u"'DJAI'"_s}}, {{u"descripcion"_s, u"null"_s}}, "descripcion", ""},
    };
    int n = 0;
    for (const Caso &caso : casos) {
        const QString clave = u"D%1"_s.arg(++n);
        caratula(caso.caratula, clave);
        Fila fila = caso.grupo;
        fila[u"interno"_s] = '\''_L1 + clave + '\''_L1;
        insertar(u"groupsubitems"_s, fila);
        ContextoArmado r = corrida({}, clave);
        AplicarDatosComunesAGrupos(r);
        EXPECT_EQ(valor("select "_L1 + QLatin1StringView(caso.columna) +
                        " from groupsubitems where interno = '"_L1 + clave + '\''_L1),
                  QLatin1StringView(caso.despues))
            << n << ' ' << caso.columna;
    }
}

TEST_P(Agrupacion, TheMixedDescriptionJoinsTheHeadersTextAndThoseOfTheItem) {
    caratula({{u"idsubreg"_s, u"'DJAI'"_s}});
    linea({{u"descripcion"_s, u"'CANILLA  DE   1/2'''"_s}});
    linea({{u"descripcion"_s, u"'LLAVE'"_s}, {u"preciounitario"_s, u"20"_s}});
    linea({{u"descripcion"_s, u"'MANGO'"_s}, {u"preciounitario"_s, u"30"_s}});
    ContextoArmado r = corrida({.modo = ModoDescripcion::Mezcla});
    agrupar(r);
    ejecutar(u"update groupsubitems set id = 1 where interno = 'OP1' and preciounitario < 25"_s);
    ejecutar(u"update groupsubitems set id = 2 where interno = 'OP1' and preciounitario > 25"_s);
    insertar(u"item"_s, {{u"interno"_s, u"'OP1'"_s}, {u"id"_s, u"1"_s}});
    insertar(u"item"_s, {{u"interno"_s, u"'OP1'"_s}, {u"id"_s, u"2"_s}});
    MezclarDescripcionITEM(r, u"GRIFERIA"_s);
    EXPECT_EQ(filas(u"select id,descripcion from item where interno = 'OP1' order by id"_s),
              u"1|GRIFERIA CANILLA DE 1/2';LLAVE\n2|GRIFERIA MANGO"_s);
}

TEST_P(Agrupacion, TheMixedDescriptionKeepsFourHundredCharacters) {
    caratula({{u"idsubreg"_s, u"'DJAI'"_s}});
    linea({{u"descripcion"_s, '\''_L1 + QString(500, u'Ñ') + '\''_L1}});
    ContextoArmado r = corrida({.modo = ModoDescripcion::Mezcla});
    agrupar(r);
    ejecutar(u"update groupsubitems set id = 1 where interno = 'OP1'"_s);
    insertar(u"item"_s, {{u"interno"_s, u"'OP1'"_s}, {u"id"_s, u"1"_s}});
    MezclarDescripcionITEM(r, u"A"_s);
    EXPECT_EQ(valor(u"select descripcion from item where interno = 'OP1'"_s), "A "_L1 + QString(398, u'Ñ'));
}
