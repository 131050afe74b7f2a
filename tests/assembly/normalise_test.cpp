#include <gtest/gtest.h>

#include "tests/assembly/operacion.h"

using namespace Qt::StringLiterals;

namespace {

class Normalizacion : public Armado {
 protected:
    QString linea1(const QString &columna) {
        return valor("select "_L1 + columna + " from subitems where interno = 'OP1'"_L1);
    }
};
EN_AMBOS_STORES(Normalizacion);

// One row a statement, in their order: what a line holds before, and what it holds behind.
struct CasoDeRelleno {
    const char *columna;
    const char *antes;  ///< SQL literal
    const char *despues;
};
constexpr CasoDeRelleno casosDeRelleno[] = {
    {"biendeuso", "''", "N"},
    {"biendeuso", "null", "N"},
    {"biendeuso", "'S'", "S"},
    {"tipoitem", "null", "N"},
    {"tipoitem", "''", "N"},
    {"tipoitem", "'G'", "G"},
    {"valorderesp", "null", "0"},
    {"valorderesp", "3.5", "3.5"},
    {"sufijos", "'SIN SUFIJOS'", ""},
    {"sufijos", "'sin sufijos'", ""},
    {"sufijos", "null", ""},
    {"idarticulo", "null", ""},
    {"idpais", "null", ""},
    {"descripcion_maria", "null", ""},
    {"descripcion", "null", ""},
    {"idpaisproc", "null", ""},
    {"estadomerc", "null", ""},
    {"codprorrateo", "null", ""},
    {"lapi", "null", ""},
    {"itfiller", "null", ""},
    {"deresp", "null", ""},
    {"cancelaciones", "null", ""},
    {"codigoean", "null", ""},
    {"sufijos", "'AA01-AB(X)'", "AA01-AB(X)-"},
    {"sufijos", "'AA01-'", "AA01-"},
    {"insumostemp", "'abc'", "0"},
    {"insumostemp", "''", "0"},
    {"insumostemp", "null", "0"},
    {"insumostemp", "'12.5'", "12.5"},
    {"insumosacons", "'1 kilo'", "0"},
    {"insumosacons", "null", "0"},
    {"kgneto", "null", "0"},
    {"onccacategoria", "null", ""},
    {"onccacortes", "null", ""},
    {"idexportacion", "null", "0"},
    {"idexportacion", "7", "7"},
    {"ajusteincluir", "'x'", "0"},
    {"ajusteincluir", "null", "0"},
    {"ajusteincluir", "'-3'", "-3"},
    {"ajustededucir", "''", "0"},
    {"ajustededucir", "null", "0"},
};

}  // namespace

TEST_P(Normalizacion, EveryFillOfTheTable) {
    caratula();
    int n = 0;
    for (const CasoDeRelleno &caso : casosDeRelleno) {
        const QString clave = u"T%1"_s.arg(++n);
        linea({{QLatin1StringView(caso.columna), QLatin1StringView(caso.antes)}}, clave);
        ContextoArmado r{*ctx, clave};
        NormalizarLineas(r);
        EXPECT_EQ(valor("select "_L1 + QLatin1StringView(caso.columna) +
                        " from subitems where interno = '"_L1 + clave + '\''_L1),
                  QLatin1StringView(caso.despues))
            << caso.columna << " = " << caso.antes;
    }
}

TEST_P(Normalizacion, TheLinksToExportRecordsOfTheCancellations) {
    // 28: null export 0; 29: an empty item becomes null; 30: a row with an item forgets its external record.
    insertar(u"descargas"_s,
             {{u"interno"_s, u"'OP1'"_s}, {u"dit"_s, u"1"_s}, {u"iditem"_s, u"''"_s}, {u"idext"_s, u"5"_s}});
    insertar(u"descargas"_s, {{u"interno"_s, u"'OP1'"_s},
                              {u"dit"_s, u"2"_s},
                              {u"iditem"_s, u"'3'"_s},
                              {u"idext"_s, u"6"_s},
                              {u"idexportacion"_s, u"9"_s}});
    ContextoArmado r{*ctx, u"OP1"_s};
    NormalizarLineas(r);
    EXPECT_EQ(
        filas(u"select dit,iditem,idexportacion,idext from descargas where interno = 'OP1' order by dit"_s),
        u"1|<null>|0|5\n2|3|9|<null>"_s);
}

TEST_P(Normalizacion, ASuffixTextSinSufijosEndsEmptyWithoutADash) {
    linea({{u"sufijos"_s, u"'SIN SUFIJOS'"_s}});
    ContextoArmado r{*ctx, u"OP1"_s};
    NormalizarLineas(r);
    EXPECT_EQ(linea1(u"sufijos"_s), QString());
}

TEST_P(Normalizacion, ALineWithEmptyBiendeusoBecomesN) {
    linea({{u"biendeuso"_s, u"''"_s}});
    ContextoArmado r{*ctx, u"OP1"_s};
    NormalizarLineas(r);
    EXPECT_EQ(linea1(u"biendeuso"_s), u"N"_s);
}

TEST_P(Normalizacion, ALineInKilosTakesItsQuantityAsNetKilosOnlyWhereItHasNone) {
    linea({{u"idunidad"_s, u"'01'"_s}, {u"cantidad"_s, u"12.5"_s}, {u"kgneto"_s, u"0"_s}}, u"A"_s);
    linea({{u"idunidad"_s, u"'01'"_s}, {u"cantidad"_s, u"12.5"_s}, {u"kgneto"_s, u"3"_s}}, u"B"_s);
    linea({{u"idunidad"_s, u"'01'"_s}, {u"cantidad"_s, u"12.5"_s}, {u"kgneto"_s, u"null"_s}}, u"C"_s);
    linea({{u"idunidad"_s, u"'07'"_s}, {u"cantidad"_s, u"12.5"_s}, {u"kgneto"_s, u"0"_s}}, u"D"_s);
    for (const auto &[clave, kilos] : std::vector<std::pair<QString, QString>>{
             {u"A"_s, u"12.5"_s}, {u"B"_s, u"3"_s}, {u"C"_s, u"12.5"_s}, {u"D"_s, u"0"_s}}) {
        ContextoArmado r{*ctx, clave};
        NormalizarLineas(r);
        EXPECT_EQ(valor("select kgneto from subitems where interno = '"_L1 + clave + '\''_L1), kilos);
    }
}

TEST_P(Normalizacion, TheStatisticalQuantityFollowsTheQuantityWhenTheUnitIsTheSame) {
    linea({{u"idunidad"_s, u"'07'"_s},
           {u"estadistica"_s, u"'07'"_s},
           {u"cantidad"_s, u"4"_s},
           {u"valorrelacionestadistica"_s, u"0"_s}},
          u"A"_s);
    linea({{u"idunidad"_s, u"'07'"_s},
           {u"estadistica"_s, u"'01'"_s},
           {u"cantidad"_s, u"4"_s},
           {u"valorrelacionestadistica"_s, u"0"_s}},
          u"B"_s);
    for (const auto &[clave, cantidad] :
         std::vector<std::pair<QString, QString>>{{u"A"_s, u"4"_s}, {u"B"_s, u"0"_s}}) {
        ContextoArmado r{*ctx, clave};
        NormalizarLineas(r);
        EXPECT_EQ(
            valor("select valorrelacionestadistica from subitems where interno = '"_L1 + clave + '\''_L1),
            cantidad);
    }
}

TEST_P(Normalizacion, InsumostempHoldingTextBecomesZeroAndItsRowStillGroups) {
    caratula();
    linea({{u"insumostemp"_s, u"'abc'"_s}});
    linea({{u"insumostemp"_s, u"'2.5'"_s}});
    ContextoArmado r = corrida();
    agrupar(r);
    EXPECT_EQ(filas(u"select cantidad,insumostemp from groupsubitems where interno = 'OP1'"_s), u"2|2.5"_s);
}

TEST_P(Normalizacion, TheCatalogueModeCopiesTheDescriptionInAnyRegime) {
    caratula();
    linea();
    ContextoArmado r = corrida({.modo = ModoDescripcion::Catalogo});
    NormalizarLineas(r);
    EXPECT_EQ(linea1(u"descripcion_maria"_s), u"PIEZA"_s);
}

TEST_P(Normalizacion, TheOtherModesLeaveTheDescriptionAlone) {
    for (const auto modo : {ModoDescripcion::Ninguno, ModoDescripcion::Maria, ModoDescripcion::Mezcla}) {
        const QString clave = u"M%1"_s.arg(static_cast<int>(modo));
        caratula({}, clave);
        linea({}, clave);
        ContextoArmado r = corrida({.modo = modo}, clave);
        NormalizarLineas(r);
        EXPECT_EQ(valor("select descripcion_maria from subitems where interno = '"_L1 + clave + '\''_L1),
                  u"PIEZA MARIA"_s);
    }
}

TEST_P(Normalizacion, TheQuestionAboutMissingDescriptionsIsAskedOnlyInADjaiOfModeOneOrTwo) {
    struct Caso {
        const char *regimen;
        ModoDescripcion modo;
        bool pregunta;
    };
    constexpr Caso casos[] = {
        {"DJAI", ModoDescripcion::Ninguno, false}, {"DJAI", ModoDescripcion::Maria, true},
        {"DJAI", ModoDescripcion::Catalogo, true}, {"DJAI", ModoDescripcion::Mezcla, false},
        {"IC04", ModoDescripcion::Maria, false},   {"IC04", ModoDescripcion::Catalogo, false},
    };
    int n = 0;
    for (const Caso &caso : casos) {
        const QString clave = u"Q%1"_s.arg(++n);
        caratula({{u"idsubreg"_s, '\''_L1 + QLatin1StringView(caso.regimen) + '\''_L1}}, clave);
        linea({{u"descripcion_maria"_s, u"null"_s}, {u"descripcion"_s, u"''"_s}}, clave);
        linea({{u"descripcion_maria"_s, u"''"_s}, {u"descripcion"_s, u"''"_s}}, clave);
        linea({}, clave);
        ContextoArmado r = corrida({.modo = caso.modo}, clave);
        NormalizarLineas(r);
        registro.preguntas.clear();
        registro.respuestas = {false};
        EXPECT_EQ(ControlarDescripciones(r), caso.pregunta ? Fase::Corta : Fase::Sigue) << n;
        ASSERT_EQ(registro.preguntas.size(), caso.pregunta ? 1U : 0U) << n;
        EXPECT_EQ(ctx->ChequeoArmado, caso.pregunta ? u"No"_s : u"SI"_s) << n;
        if (!caso.pregunta) continue;
        EXPECT_EQ(registro.preguntas.front().texto, u"Hay 2 articulos sin descripción, ¿desea continuar?"_s);
        EXPECT_EQ(registro.preguntas.front().icono, Icono::Pregunta);
        EXPECT_FALSE(registro.preguntas.front().porDefectoNo);
    }
}

TEST_P(Normalizacion, AnswerYesToMissingDescriptionsGoesOn) {
    caratula({{u"idsubreg"_s, u"'DJAI'"_s}});
    linea({{u"descripcion_maria"_s, u"null"_s}});
    ContextoArmado r = corrida({.modo = ModoDescripcion::Maria});
    NormalizarLineas(r);
    registro.respuestas = {true};
    EXPECT_EQ(ControlarDescripciones(r), Fase::Sigue);
    EXPECT_EQ(ctx->ChequeoArmado, u"SI"_s);
}

TEST_P(Normalizacion, AnEmptyOperationProducesNoReportAndGoesOn) {
    caratula();
    ContextoArmado r = corrida();
    EXPECT_EQ(RevalidarSufijos(r), Fase::Sigue);
    EXPECT_TRUE(registro.informes.empty());
    EXPECT_EQ(ctx->ChequeoArmado, u"SI"_s);
}

TEST_P(Normalizacion, TheReportOfInvalidSuffixesIsBuiltToTheCharacter) {
    // Position 8409.91.12.100G demands the coded family AA; 9999.99.99.999Z is not in the nomenclature.
    sufijo(u"8409.91.12.100"_s, u"AA01"_s);
    caratula();
    linea({{u"sufijos"_s, u"'BB01-'"_s}});
    linea({{u"sufijos"_s, u"'AA01-'"_s}});
    linea({{u"ncm"_s, u"'9999.99.99.999Z'"_s}, {u"sufijos"_s, u"''"_s}});
    ContextoArmado r = corrida();
    EXPECT_EQ(RevalidarSufijos(r), Fase::Corta);
    EXPECT_EQ(ctx->ChequeoArmado, u"No"_s);
    ASSERT_EQ(registro.informes.size(), 1U);
    const QString blancos(33, ' '_L1);
    EXPECT_EQ(registro.informes.front().texto,
              u"Se han encontrado subitem's inválidos\r\n"
              "-------------------------------------\r\n\r\n"
              "       Posición--------------- ---------- \r\n"
              "8409.91.12.100G"_s +
                  blancos +
                  u" - BB01-\r\n"
                  "Error: SUFIJO INVÁLIDOS\r\n\r\n"
                  "9999.99.99.999Z"_s +
                  blancos +
                  u" - \r\n"
                  "Error: POSICIÓN INVALIDA\r\n\r\n"_s);
    EXPECT_FALSE(registro.informes.front().comoLista);
}

TEST_P(Normalizacion, ANullPositionIsCheckedAsEmptyText) {
    caratula();
    linea({{u"ncm"_s, u"null"_s}});
    ContextoArmado r = corrida();
    EXPECT_EQ(RevalidarSufijos(r), Fase::Corta);
    ASSERT_EQ(registro.informes.size(), 1U);
    EXPECT_TRUE(registro.informes.front().texto.endsWith(QString(48, ' '_L1) + " - \r\n"_L1 +
                                                         u"Error: POSICIÓN INVALIDA\r\n\r\n"_s));
}

TEST_P(Normalizacion, TheRevalidationTellsItsProgressByDistinctPair) {
    // Three lines, two distinct pairs: the bar runs to 2, and the label tells the value that it had.
    caratula();
    linea();
    linea();
    linea({{u"sufijos"_s, u"'AB(X)-'"_s}});
    ContextoArmado r = corrida();
    registro.avances.clear();
    EXPECT_EQ(RevalidarSufijos(r), Fase::Sigue);
    QStringList barras;
    QStringList rotulos;
    for (const Avance &a : registro.avances) {
        if (a.control == "pbSUF"_L1) barras << u"%1/%2"_s.arg(a.valor).arg(a.maximo);
        if (a.control == "Label8"_L1) rotulos << a.texto;
    }
    EXPECT_EQ(barras.join(' '_L1), u"0/2 1/2 2/2"_s);
    EXPECT_EQ(rotulos.join('\n'_L1), u"Revalidando 0 de 2 Sufijos\nRevalidando 1 de 2 Sufijos"_s);
}

TEST_P(Normalizacion, APositionIsReadOnceForAllItsSuffixTexts) {
    sufijo(u"8409.91.12.100"_s, u"AB"_s);
    caratula();
    for (int n = 0; n < 20; ++n) linea({{u"sufijos"_s, u"'AB(%1)-'"_s.arg(n)}});
    ContextoArmado r = corrida();
    int alNomenclador = 0;
    Conexion::fijarTraza([&](const TrazaDeSentencia &t) { alNomenclador += t.entidad == "NCM"_L1 ? 1 : 0; });
    EXPECT_EQ(RevalidarSufijos(r), Fase::Sigue);
    Conexion::fijarTraza({});
    EXPECT_EQ(alNomenclador, 3);  // the position, its families, the rows of the one family
}
