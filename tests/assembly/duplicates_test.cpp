#include <gtest/gtest.h>

#include "tests/assembly/operacion.h"
#include "tests/support/insumos.h"

using namespace Qt::StringLiterals;

namespace {

class Duplicados : public Armado {
 protected:
    /// A hundred units at `precio`.
    void cien(const QString &precio, const QString &fob, Fila cambios = {}) {
        cambios[u"preciounitario"_s] = precio;
        cambios[u"cantidad"_s] = u"100"_s;
        cambios[u"fob"_s] = fob;
        linea(cambios);
    }
    /// Groups as the fold finds them, then the fold.
    void plegar(ContextoArmado &r) {
        agrupar(r);
        AplicarDatosComunesAGrupos(r);
        lp_BuscarDuplicados(r);
    }
    QString grupos(const QString &columnas) {
        return filas("select "_L1 + columnas + " from groupsubitems where interno = 'OP1' order by idsub"_L1);
    }
    QString vinculos() {
        return filas(u"select idroot,idsub from idrel where interno = 'OP1' order by idroot,idsub"_s);
    }
    void vinculo(int raiz, int sub, const QString &interno = u"OP1"_s) {
        insertar(u"idrel"_s, {{u"interno"_s, '\''_L1 + interno + '\''_L1},
                              {u"idroot"_s, QString::number(raiz)},
                              {u"idsub"_s, QString::number(sub)}});
    }
};
EN_AMBOS_STORES(Duplicados);

}  // namespace

TEST_P(Duplicados, PricesLessThanACentApartFoldAndThePriceIsTheRoundedQuotient) {
    // FOB 100 + 100.99 over 200 units: 200.99 / 200 = 1.00495.
    caratula();
    cien(u"1"_s, u"100"_s);
    cien(u"1.0099"_s, u"100.99"_s);
    ContextoArmado r = corrida();
    plegar(r);
    const auto id = ids();
    EXPECT_EQ(grupos(u"idsub,preciounitario,cantidad,fob,idarticulo,idcatalogo"_s),
              u"%1|1.00495|200|200.99|ART|CAT"_s.arg(id[0]));
    EXPECT_EQ(vinculos(), u"%1|%2"_s.arg(id[0]).arg(id[1]));
}

TEST_P(Duplicados, PricesOneCentApartDoNotFold) {
    caratula();
    cien(u"1"_s, u"100"_s);
    cien(u"1.01"_s, u"101"_s);
    ContextoArmado r = corrida();
    plegar(r);
    EXPECT_EQ(grupos(u"preciounitario,cantidad"_s), u"1|100\n1.01|100"_s);
    EXPECT_EQ(vinculos(), QString());
}

TEST_P(Duplicados, AChainOfPricesFoldsInSteps) {
    // 1.0000 takes 1.0090; 1.0090 then reaches both what that made (1.0045) and 1.0180. 302.70 / 300 = 1.009.
    caratula();
    cien(u"1"_s, u"100"_s);
    cien(u"1.009"_s, u"100.9"_s);
    cien(u"1.018"_s, u"101.8"_s);
    ContextoArmado r = corrida();
    plegar(r);
    UnificarIdRELbyInterno(r);
    const auto id = ids();
    EXPECT_EQ(grupos(u"idsub,preciounitario,cantidad,fob"_s), u"%1|1.009|300|302.7"_s.arg(id[0]));
    EXPECT_EQ(vinculos(), u"%1|%2\n%1|%3"_s.arg(id[0]).arg(id[1]).arg(id[2]));
}

TEST_P(Duplicados, DifferentArticlesMakeBothArticleAndCatalogueAgrupado) {
    caratula();
    cien(u"1"_s, u"100"_s, {{u"idarticulo"_s, u"'A'"_s}});
    cien(u"1.005"_s, u"100.5"_s, {{u"idarticulo"_s, u"'B'"_s}});
    ContextoArmado r = corrida();
    plegar(r);
    EXPECT_EQ(grupos(u"idarticulo,idcatalogo"_s), u"agrupado!|agrupado!"_s);
}

TEST_P(Duplicados, AColumnOfTheFilterThatDiffersKeepsGroupsApart) {
    caratula();
    cien(u"1"_s, u"100"_s);
    cien(u"1.005"_s, u"100.5"_s, {{u"estadomerc"_s, u"'2'"_s}});
    ContextoArmado r = corrida();
    plegar(r);
    EXPECT_EQ(grupos(u"preciounitario,estadomerc"_s), u"1|1\n1.005|2"_s);
}

TEST_P(Duplicados, OnlyADjaiComparesDescriptions) {
    for (const QString &regimen : {u"DJAI"_s, u"IC04"_s}) {
        caratula({{u"idsubreg"_s, '\''_L1 + regimen + '\''_L1}}, regimen);
        linea({{u"descripcion_maria"_s, u"'UNA'"_s}}, regimen);
        linea({{u"descripcion_maria"_s, u"'OTRA'"_s}, {u"preciounitario"_s, u"10.005"_s}}, regimen);
        ContextoArmado r = corrida({.modo = ModoDescripcion::Maria}, regimen);
        agrupar(r);
        AplicarDatosComunesAGrupos(r);
        lp_BuscarDuplicados(r);
        EXPECT_EQ(valor("select count(*) from groupsubitems where interno = '"_L1 + regimen + '\''_L1),
                  regimen == "DJAI"_L1 ? u"2"_s : u"1"_s);
    }
}

TEST_P(Duplicados, EveryMeasureOfTheMergedGroupsIsSummed) {
    caratula();
    const Fila medidas{{u"kgneto"_s, u"1.25"_s},       {u"kgbruto"_s, u"1.5"_s},
                       {u"valorderesp"_s, u"2"_s},     {u"valorrelacionestadistica"_s, u"3"_s},
                       {u"insumostemp"_s, u"'4'"_s},   {u"insumosacons"_s, u"'5'"_s},
                       {u"ajusteincluir"_s, u"'6'"_s}, {u"ajustededucir"_s, u"'7'"_s},
                       {u"sufijos"_s, u"'AB(X)-'"_s},  {u"itfiller"_s, u"'LISTA:306'"_s}};
    cien(u"1"_s, u"100"_s, medidas);
    cien(u"1.005"_s, u"100.5"_s, medidas);
    ContextoArmado r = corrida();
    plegar(r);
    EXPECT_EQ(
        grupos(u"kgneto,kgbruto,valorderesp,valorrelacionestadistica,insumostemp,insumosacons,"
               "ajusteincluir,ajustededucir,sufijos,itfiller,tipoitem,biendeuso,ncm,idunidad,estadistica"_s),
        u"2.5|3|4|6|8|10|12|14|AB(X)-|LISTA:306|N|N|8409.91.12.100G|07|07"_s);
}

TEST_P(Duplicados, AFoldedCancellationIsToldToTheInputsLink) {
    caratula();
    cien(u"1"_s, u"100"_s, {{u"cancelaciones"_s, u"'OK'"_s}});
    cien(u"1.005"_s, u"100.5"_s, {{u"cancelaciones"_s, u"'OK'"_s}});
    const LibreriaDeInsumos libreria;
    ContextoArmado r = corrida();
    agrupar(r);
    AplicarDatosComunesAGrupos(r);
    lp_BuscarDuplicados(r);
    const auto id = ids();
    EXPECT_EQ(libreria.llamadas.value(0), u"EnviarGrupoIdSub OP1 %1 %2"_s.arg(id[0]).arg(id[1]));
}

TEST_P(Duplicados, EveryLinkEndsOnTheTopRoot) {
    vinculo(1, 2);
    vinculo(2, 3);
    vinculo(2, 3, u"OTRA"_s);
    vinculo(1, 2, u"OTRA"_s);
    ContextoArmado r{*ctx, u"OP1"_s};
    UnificarIdRELbyInterno(r);
    EXPECT_EQ(vinculos(), u"1|2\n1|3"_s);
    EXPECT_EQ(filas(u"select idroot,idsub from idrel where interno = 'OTRA' order by idroot,idsub"_s),
              u"1|2\n2|3"_s);
}

TEST_P(Duplicados, LongChainsOfLinksFlattenInAnyOrder) {
    vinculo(4, 5);
    vinculo(3, 4);
    vinculo(1, 2);
    vinculo(2, 3);
    vinculo(2, 6);
    ContextoArmado r{*ctx, u"OP1"_s};
    UnificarIdRELbyInterno(r);
    EXPECT_EQ(vinculos(), u"1|2\n1|3\n1|4\n1|5\n1|6"_s);
}
