// What a subregime code means.

#include "header/regime.h"

#include <gtest/gtest.h>

#include <QSet>

#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

using Predicado = bool (*)(QStringView);

QStringList codigos(const char *texto) {
    return QString::fromLatin1(texto).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

const char *const temporales =
    "IT01 IT03 IT04 IT05 IT06 IT07 IT11 IT13 IT14 IT15 IT16 IT17 ET01 ET02 ETA1 ETE1 ETE2";
const char *const conInsumos =
    "EC02 EC03 EC04 EC05 EC06 EC16 EG02 EG03 IC81 IC82 IC83 DIR6 IC06 IC26 IC36 IG06 IT06 RnaE06 TG06 TG16 "
    "TR06 MARE IDT4";
const char *const conSolapa =
    "EC02 EC04 EC06 EC07 EC08 EC09 ECR1 ECR2 EG02 EG07 ET01 ET02 ETA1 ETE1 ETE2 IC31 IC33 IC34 IC35 IC41 "
    "IC44 "
    "IC45 IC83 ICR1 ICR2 ICR3 ICR4 ICRF IG34 IG35 IG83 RR01 ZFE1 ZFE2 ZFE3 ZFE4 ZFE5 ZFE6 ZFER ZFET ZFRE "
    "ZFTR";

/// Every code that some rule names, and codes that come close to one.
const char *const todos =
    "IC01 IC02 IC04 IC05 IC10 IC1 IC0 IG IG00 IG01 IG04 IG05 IG06 IG34 IGA1 TR TR01 TR06 TR20 T TG06 TG16 "
    "tg06 EC EC01 EC02 EC03 EC16 EC17 EG EG02 EG03 EG01 E DIR DIR6 DIR1 DI DIX IDA4 IDT4 ZFE1 ZFE2 ZFE3 ZFE5 "
    "ZFE7 ZFER ZFET ZFTR ZFRE ZF ZFI1 Z LAPI LAP LAPI2 DJAI DJA DJAI2 IT01 IT02 IT04 IT08 IT14 IT18 ET03 "
    "ETA2 ETE3 MARE MAR RnaE06 RNAE06 rnae06 RR01 RR02 RE01 ICR1 ICR5 ICRF ICRG IC81 IC82 IC84 IC36 IC35 "
    "ic01 it04 ec16 djai lapi TLR1 X";

struct Lista {
    const char *nombre;
    Predicado predicado;
    const char *codigos;
    int cuantos;
};
const Lista listas[] = {{"EsRegimenTemporal", EsRegimenTemporal, temporales, 17},
                        {"EsRegimenConInsumos", EsRegimenConInsumos, conInsumos, 23},
                        {"EsRegimenConSolapaInsumos", EsRegimenConSolapaInsumos, conSolapa, 42}};

TEST(RegimeLists, HoldTheirCodesAndNoOther) {
    const QStringList candidatos =
        codigos(todos) + codigos(temporales) + codigos(conInsumos) + codigos(conSolapa);
    for (const Lista &l : listas) {
        const QStringList dentro = codigos(l.codigos);
        EXPECT_EQ(QSet<QString>(dentro.begin(), dentro.end()).size(), l.cuantos) << l.nombre;
        for (const QString &codigo : candidatos)
            EXPECT_EQ(l.predicado(codigo), dentro.contains(codigo))
                << l.nombre << " " << codigo.toStdString();
    }
}

TEST(RegimeLists, CompareTheWholeCodeWithItsCase) {
    for (const Lista &l : listas)
        for (const QString &codigo : codigos(l.codigos)) {
            EXPECT_FALSE(l.predicado(codigo.left(codigo.size() - 1))) << codigo.toStdString();
            EXPECT_FALSE(l.predicado(codigo + QLatin1Char('0'))) << codigo.toStdString();
            EXPECT_FALSE(l.predicado(codigo.toLower())) << codigo.toStdString();
        }
    EXPECT_FALSE(EsRegimenConInsumos(u"RNAE06")) << "the mixed case is part of the code";
}

TEST(RegimeLists, OnlyTheTabListTrimsTheCode) {
    EXPECT_TRUE(EsRegimenConSolapaInsumos(u" EC02 "));
    EXPECT_FALSE(EsRegimenConInsumos(u" EC02 "));
    EXPECT_FALSE(EsRegimenTemporal(u"IT04 "));
}

struct Prefijo {
    const char *nombre;
    Predicado predicado;
    const char *si;  ///< of the codes in `todos`
};
const Prefijo prefijos[] = {
    {"EsIC0oIG", EsIC0oIG, "IC01 IC02 IC04 IC05 IC0 IG IG00 IG01 IG04 IG05 IG06 IG34 IGA1"},
    {"EsTransito", EsTransito, "TR TR01 TR06 TR20"},
    {"EsExportacionConsumo", EsExportacionConsumo, "EC EC01 EC02 EC03 EC16 EC17 EG EG02 EG03 EG01"},
    {"EsDirectoOZona", EsDirectoOZona,
     "DIR DIR6 DIR1 IG00 IG01 IG04 IG05 IG06 ZFE1 ZFE2 ZFE3 ZFE5 ZFE7 ZFER ZFET"},
    {"PreguntaOpcionesImpositivas", PreguntaOpcionesImpositivas,
     "IC01 IC02 IC04 IC05 IC10 IC1 IC0 IG IG00 IG01 IG04 IG05 IG06 IG34 IGA1 IDA4 IDT4 IT01 IT02 IT04 IT08 "
     "IT14 IT18 ICR1 ICR5 ICRF ICRG IC81 IC82 IC84 IC36 IC35 LAPI LAPI2 DJAI DJAI2"},
    {"EsDeclaracionDJAI", EsDeclaracionDJAI, "DJAI"},
    {"EsDeclaracionLAPI", EsDeclaracionLAPI, "LAPI"},
    {"EsEC16", EsEC16, "EC16"},
    // I, T, D, R by the first letter; LAPI whole; ZF but not ZFTR, ZFRE.
    {"RegimenUsaHojaValor", RegimenUsaHojaValor,
     "IC01 IC02 IC04 IC05 IC10 IC1 IC0 IG IG00 IG01 IG04 IG05 IG06 IG34 IGA1 TR TR01 TR06 TR20 T TG06 TG16 "
     "DIR DIR6 DIR1 DI DIX IDA4 IDT4 ZFE1 ZFE2 ZFE3 ZFE5 ZFE7 ZFER ZFET ZF ZFI1 LAPI DJAI DJA DJAI2 IT01 "
     "IT02 "
     "IT04 IT08 IT14 IT18 RnaE06 RNAE06 RR01 RR02 RE01 ICR1 ICR5 ICRF ICRG IC81 IC82 IC84 IC36 IC35 TLR1"}};

TEST(RegimePrefixes, EveryPredicateOverEveryCode) {
    for (const Prefijo &p : prefijos) {
        const QStringList si = codigos(p.si);
        for (const QString &codigo : codigos(todos))
            EXPECT_EQ(p.predicado(codigo), si.contains(codigo)) << p.nombre << " " << codigo.toStdString();
    }
}

TEST(RegimePrefixes, TheDeclarationTypeIsTForTGInAnyCase) {
    for (const QString &codigo : codigos(todos))
        EXPECT_EQ(TipoDeclaracion(codigo).toStdString(), codigo.toUpper().startsWith("TG"_L1) ? "T" : "P")
            << codigo.toStdString();
    EXPECT_EQ(TipoDeclaracion(u"tG16").toStdString(), "T");
    EXPECT_EQ(TipoDeclaracion(u"").toStdString(), "P");
}

TEST(RegimePrefixes, AnEmptyCodeAnswersFalseToEveryListAndPrefixTest) {
    for (const Lista &l : listas) EXPECT_FALSE(l.predicado(u"")) << l.nombre;
    for (const Prefijo &p : prefijos) EXPECT_FALSE(p.predicado(u"")) << p.nombre;
}

TEST(RegimePrefixes, DIR6IsDirectAndTakesInputsAtOnce) {
    EXPECT_TRUE(EsDirectoOZona(u"DIR6"));
    EXPECT_TRUE(EsRegimenConInsumos(u"DIR6"));
}

TEST(RegimePrefixes, IC01PassesTheBankTestAndIC10DoesNot) {
    EXPECT_TRUE(EsIC0oIG(u"IC01"));
    EXPECT_FALSE(EsIC0oIG(u"IC10"));
}

TEST(RegimePrefixes, ZonesByPrefixAndTheTwoThatStayOutside) {
    EXPECT_TRUE(EsDirectoOZona(u"ZFE1"));
    EXPECT_FALSE(EsDirectoOZona(u"ZFTR"));
    EXPECT_FALSE(EsDirectoOZona(u"ZFRE"));
    EXPECT_FALSE(RegimenUsaHojaValor(u"ZFTR"));
    EXPECT_FALSE(RegimenUsaHojaValor(u"ZFRE"));
    EXPECT_TRUE(RegimenUsaHojaValor(u"ZFET"));
}

TEST(TaxOptions, CodesTextsAndIndexesGoBothWays) {
    struct Caso {
        int indice;
        const char *codigo;
        const char *texto;
    };
    const Caso iva[] = {{0, "NOCONTESTA", "<No contestar>"},
                        {1, "NO_VALIDA", "Ninguno"},
                        {2, "IVAAD1", "Uso o Consumo Particular"},
                        {3, "IVAAD2", "Importación definitiva de cosas muebles"}};
    for (const Caso &c : iva) {
        EXPECT_EQ(OpcionIVACodigo(c.indice).toStdString(), c.codigo);
        EXPECT_EQ(OpcionIVATexto(c.indice).toStdString(), c.texto);
        EXPECT_EQ(OpcionIVAIndice(QLatin1String(c.codigo)), c.indice);
    }
    const Caso ganancias[] = {{0, "NOCONTESTA", "<No contestar>"},
                              {1, "NO_VALIDA", "Ninguno"},
                              {2, "COMERC", "Comercial"},
                              {3, "BDEUSO", "Bien de Uso"},
                              {4, "USOPAR", "Uso Particular"}};
    for (const Caso &c : ganancias) {
        EXPECT_EQ(OpcionGananciasCodigo(c.indice).toStdString(), c.codigo);
        EXPECT_EQ(OpcionGananciasTexto(c.indice).toStdString(), c.texto);
        EXPECT_EQ(OpcionGananciasIndice(QLatin1String(c.codigo)), c.indice);
    }
}

TEST(TaxOptions, OutsideTheirRangeNothingIsSelected) {
    for (const int indice : {-1, 4, 5}) EXPECT_TRUE(OpcionIVACodigo(indice).isEmpty()) << indice;
    for (const int indice : {-1, 5, 6}) EXPECT_TRUE(OpcionGananciasCodigo(indice).isEmpty()) << indice;
    for (const char *codigo : {"", "COMERC", "ivaad1", "X"})
        EXPECT_EQ(OpcionIVAIndice(QLatin1String(codigo)), -1);
    for (const char *codigo : {"", "IVAAD1", "comerc", "X"})
        EXPECT_EQ(OpcionGananciasIndice(QLatin1String(codigo)), -1);
}

TEST(ArticleInSuffix, AutomotivePositionsAreExemptAndTheOthersMustCarryTheArticle) {
    struct Caso {
        const char *posicion;
        const char *sufijos;
        const char *articulo;
        bool respuesta;
    };
    const Caso casos[] = {{"8407.10.00.000A", "", "X", true},
                          {"8408.20.10.000B", "", "X", true},
                          {"8701.10.00.100A", "SIN SUFIJOS", "X", true},
                          {"8702.10.00.100A", "", "X", true},
                          {"8703.23.10.100A", "", "X", true},
                          {"8704.21.10.100A", "", "X", true},
                          {"8706.00.10.100A", "", "X", true},
                          {"8707.10.00.100A", "", "X", true},
                          {"8705.10.00.100A", "", "X", false},
                          {"8708.10.00.100A", "", "X", false},
                          {"8409.91.12.100G", "", "X", true},
                          {"8409.99.12.100C", "", "X", true},
                          {"8409.91.12.100C", "", "X", false},
                          {"8409.99.12.100G", "", "X", false},
                          {"8409.91.12.100A", "AI(ABC DEF)-", "ABC-DEF", true},
                          {"8409.91.12.100A", "SIN SUFIJOS", "ABC-DEF", false},
                          {"8409.91.12.100A", "ab(abc def)-AA01-", "abc (def)", true},
                          {"8409.91.12.100A", "AI(ABC DEF)-", "  abc--((def  ", true},
                          {"8409.91.12.100A", "AI(ABC DEFG)-", "ABC DEF", false},
                          {"8409.91.12.100A", "AC(ABC DEF)-", "ABC DEF", false},
                          {"8409.91.12.100A", "AI(ABC-DEF)-", "ABC-DEF", false},
                          {"8409.91.12.100A", "AI()-", "", true},
                          {"8409.91.12.100A", "AI(ÑANDÚ)-", "ñandú", true}};
    for (const Caso &c : casos)
        EXPECT_EQ(SufijoContieneArticulo(QString::fromUtf8(c.posicion), QString::fromUtf8(c.sufijos),
                                         QString::fromUtf8(c.articulo)),
                  c.respuesta)
            << c.posicion << " " << c.sufijos << " " << c.articulo;
}

TEST(FreeText, IsTrimmedUppercasedCutAndCleaned) {
    struct Caso {
        const char *entrada;
        const char *salida;
    };
    const Caso casos[] = {
        {"", ""},
        {"   ", ""},
        {"  tornillo m8  ", "TORNILLO M8"},
        {"caño 1/2\" #3 & co., s.a.", "CAÑO 1/2  #3 & CO., S.A."},
        {"válvula-tipo_b (x)", "V LVULA TIPO B  X "},
        // The cut comes before the cleaning: 40 characters stay, whatever they are.
        {"0123456789012345678901234567890123456789resto", "0123456789012345678901234567890123456789"},
        {"-12345678901234567890123456789012345678-9", " 12345678901234567890123456789012345678 "}};
    for (const Caso &c : casos)
        EXPECT_EQ(NormalizarTexto(QString::fromUtf8(c.entrada)).toStdString(), c.salida) << c.entrada;
}

class Direccion : public EnAmbosStores {};

TEST_P(Direccion, ComesFromTheCodeTableAsText) {
    ejecutar(u"insert into sta (id,descripcion,cstaimpexp) values ('IC01','x','I')"_s, u"SYSTABLAS"_s);
    ejecutar(u"insert into sta (id,descripcion,cstaimpexp) values ('EC01','x','E')"_s, u"SYSTABLAS"_s);
    ejecutar(u"insert into sta (id,descripcion,cstaimpexp) values ('ZZ01','x',NULL)"_s, u"SYSTABLAS"_s);
    EXPECT_EQ(DireccionRegimen(*ctx, u"IC01"_s).toStdString(), "I");
    EXPECT_EQ(DireccionRegimen(*ctx, u"EC01"_s).toStdString(), "E");
    EXPECT_EQ(DireccionRegimen(*ctx, u"ZZ01"_s).toStdString(), "") << "a null";
    EXPECT_EQ(DireccionRegimen(*ctx, u"NOHAY"_s).toStdString(), "") << "no row";
}

TEST_P(Direccion, OfAnEmptyCodeIsEmptyWithoutTouchingTheStore) {
    int sentencias = 0;
    Conexion::fijarTraza([&sentencias](const TrazaDeSentencia &) { ++sentencias; });
    EXPECT_EQ(DireccionRegimen(*ctx, {}).toStdString(), "");
    EXPECT_EQ(sentencias, 0);
    DireccionRegimen(*ctx, u"IC01"_s);
    EXPECT_EQ(sentencias, 1);
    Conexion::fijarTraza({});
}

EN_AMBOS_STORES(Direccion);

}  // namespace
