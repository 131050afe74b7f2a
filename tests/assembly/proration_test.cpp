#include <gtest/gtest.h>

#include "frame/base/numbers.h"
#include "tests/assembly/operacion.h"

using namespace Qt::StringLiterals;

namespace {

class Prorrateo : public Armado {
 protected:
    void codigo(const QString &nombre, const QString &importe, const QString &descripcion = u"GASTO"_s) {
        insertar(u"prorrateo"_s, {{u"interno"_s, u"'OP1'"_s},
                                  {u"codigo"_s, '\''_L1 + nombre + '\''_L1},
                                  {u"descripcion"_s, '\''_L1 + descripcion + '\''_L1},
                                  {u"valor"_s, importe}});
    }
    /// A line of `cantidad` units; what tells groups apart is the country.
    void de(const QString &pais, const QString &cantidad, const QString &precio, const QString &fob,
            const QString &codigoDeProrrateo = {}) {
        linea({{u"idpais"_s, '\''_L1 + pais + '\''_L1},
               {u"cantidad"_s, cantidad},
               {u"preciounitario"_s, precio},
               {u"fob"_s, fob},
               {u"codprorrateo"_s, '\''_L1 + codigoDeProrrateo + '\''_L1}});
    }
    QString grupos() {
        return filas(
            u"select idpais,fob,preciounitario from groupsubitems where interno = 'OP1' order by idpais"_s);
    }
    void item(int id, const QString &fob) {
        insertar(u"item"_s,
                 {{u"interno"_s, u"'OP1'"_s}, {u"id"_s, QString::number(id)}, {u"fobtotal"_s, fob}});
    }
    QString items(const QString &columna) {
        return filas("select id,"_L1 + columna + " from item where interno = 'OP1' order by id"_L1);
    }
};
EN_AMBOS_STORES(Prorrateo);

}  // namespace

TEST_P(Prorrateo, NothingToSpreadLeavesTheLinesFobsAndDeclaresTheHeadersEvenWhenTheyDiffer) {
    caratula({{u"fobdivisas"_s, u"100"_s}});
    de(u"1"_s, u"1"_s, u"30"_s, u"30"_s);
    ContextoArmado r = corrida();
    agrupar(r);
    EXPECT_EQ(ProrratearValor(r), Fase::Sigue);
    EXPECT_EQ(grupos(), u"1|30|30"_s);
    EXPECT_EQ(r.FobDeclarado, 100);
}

TEST_P(Prorrateo, ACodeWithNoGroupStopsTheRunWithTheListBeforeAnyRowChanges) {
    caratula();
    codigo(u" EMB "_s, u"5"_s, u" EMBALAJE "_s);
    codigo(u"INL"_s, u"7"_s, u"FLETE INTERNO"_s);
    codigo(u"USO"_s, u"1"_s);
    de(u"1"_s, u"1"_s, u"30"_s, u"30"_s, u"USO"_s);
    ContextoArmado r = corrida();
    agrupar(r);
    EXPECT_EQ(ProrratearValor(r), Fase::Corta);
    EXPECT_EQ(ctx->ChequeoArmado, u"NO"_s);
    EXPECT_EQ(grupos(), u"1|30|30"_s);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    const QString raya(64, '-'_L1);
    EXPECT_EQ(registro.mensajes.front().texto, raya +
                                                   u"\r\n"
                                                   "Se encontraron CODIGOS DE PRORRATEOS sin utilizar\r\n"
                                                   "No se puede continuar con el armado.\r\n"_s +
                                                   raya + u"\r\nEMB - EMBALAJE\r\nINL - FLETE INTERNO"_s);
    EXPECT_EQ(registro.mensajes.front().icono, Icono::Exclamacion);
}

TEST_P(Prorrateo, ACodesAmountIsSpreadOverItsGroupsByFob) {
    // 5 over 10 and 20: 10 + 10*5/30 = 11.666…, 20 + 20*5/30 = 23.333…; 11.67 + 23.33 + 70 = 105.00, no
    // residual.
    caratula();
    codigo(u"EMB"_s, u"5"_s);
    de(u"1"_s, u"1"_s, u"10"_s, u"10"_s, u"EMB"_s);
    de(u"2"_s, u"2"_s, u"10"_s, u"20"_s, u"EMB"_s);
    de(u"3"_s, u"7"_s, u"10"_s, u"70"_s);
    ContextoArmado r = corrida();
    agrupar(r);
    EXPECT_EQ(ProrratearValor(r), Fase::Sigue);
    EXPECT_EQ(filas(u"select idpais,round(fob,6),preciounitario from groupsubitems "
                    "where interno = 'OP1' order by idpais"_s),
              u"1|11.666667|11.66667\n2|23.333333|11.66667\n3|70|10"_s);
    EXPECT_EQ(r.FobDeclarado, 105);
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(Prorrateo, GroupsOfOneCodeWithTheSameFobAndQuantityAreTreatedAsOneAndTheLowestFobTakesTheResidual) {
    // 1 over three groups of 10: 10.333… each, 3 * 10.33 + 70 = 100.99, one cent short of 101. The first of
    // the three takes it, alone: 10.333… + 0.01 over 2 units is 5.171666….
    caratula();
    codigo(u"EMB"_s, u"1"_s);
    for (const QString &pais : {u"1"_s, u"2"_s, u"3"_s}) de(pais, u"2"_s, u"5"_s, u"10"_s, u"EMB"_s);
    de(u"4"_s, u"7"_s, u"10"_s, u"70"_s);
    ContextoArmado r = corrida();
    agrupar(r);
    EXPECT_EQ(ProrratearValor(r), Fase::Sigue);
    EXPECT_EQ(filas(u"select idpais,round(fob,6),round(preciounitario,6) "
                    "from groupsubitems "
                    "where interno = 'OP1' "
                    "order by idpais"_s),
              u"1|10.343333|5.171667\n2|10.333333|5.16667\n3|10.333333|5.16667\n4|70|10"_s);
    EXPECT_EQ(r.FobDeclarado, 101);
    EXPECT_EQ(valor(u"select sum(round(fob,2)) from groupsubitems where interno = 'OP1'"_s), u"101"_s);
}

TEST_P(Prorrateo, ASumOfLinesThatIsNotExactInBinaryIsStillItsOwnGroup) {
    // 0.1 + 0.2 is 0.30000000000000004: the group of the two lines must take its share. 3 over 0.30 and 99.70
    // of one code: 0.309 and 102.691, in cents 0.31 and 102.69, together 103.00.
    caratula();
    codigo(u"EMB"_s, u"3"_s);
    de(u"1"_s, u"1"_s, u"0.15"_s, u"0.1"_s, u"EMB"_s);
    de(u"1"_s, u"1"_s, u"0.15"_s, u"0.2"_s, u"EMB"_s);
    de(u"2"_s, u"1"_s, u"99.7"_s, u"99.7"_s, u"EMB"_s);
    ContextoArmado r = corrida();
    agrupar(r);
    EXPECT_EQ(ProrratearValor(r), Fase::Sigue);
    EXPECT_EQ(filas(u"select idpais,round(fob,3) from groupsubitems where interno = 'OP1' order by idpais"_s),
              u"1|0.309\n2|102.691"_s);
}

TEST_P(Prorrateo, AGroupWhoseCodeIsNotInProrrateoKeepsItsFob) {
    // As after a code was deleted although lines carry it.
    caratula();
    de(u"1"_s, u"1"_s, u"30"_s, u"30"_s, u"VIEJO"_s);
    de(u"2"_s, u"1"_s, u"70"_s, u"70"_s, u"EMB"_s);
    codigo(u"EMB"_s, u"7"_s);
    ContextoArmado r = corrida();
    agrupar(r);
    EXPECT_EQ(ProrratearValor(r), Fase::Sigue);
    EXPECT_EQ(grupos(), u"1|30|30\n2|77|77"_s);
    EXPECT_EQ(r.FobDeclarado, 107);
}

TEST_P(Prorrateo, ANegativeAmountOfACodeIsSpreadLikeAnyOther) {
    caratula();
    de(u"1"_s, u"1"_s, u"100"_s, u"100"_s, u"DTO"_s);
    codigo(u"DTO"_s, u"-10"_s);
    ContextoArmado r = corrida();
    agrupar(r);
    EXPECT_EQ(ProrratearValor(r), Fase::Sigue);
    EXPECT_EQ(grupos(), u"1|90|90"_s);
    EXPECT_EQ(r.FobDeclarado, 90);
}

TEST_P(Prorrateo, TheHeadersValueIsSpreadOverAllGroupsAndTheFirstRowAboveTheDifferenceTakesTheResidual) {
    // V 10 over F 100: 33.33 -> 36.663 -> 36.66, twice; 33.34 -> 36.674 -> 36.67: 109.99, one cent short of
    // 110. The groups stand in the order of their price: the one of 3 units at 11.11 is first, 36.67 / 3
    // = 12.22333.
    caratula({{u"valoraprorratear"_s, u"10"_s}});
    de(u"1"_s, u"1"_s, u"33.33"_s, u"33.33"_s);
    de(u"2"_s, u"3"_s, u"11.11"_s, u"33.33"_s);
    de(u"3"_s, u"1"_s, u"33.34"_s, u"33.34"_s);
    ContextoArmado r = corrida();
    agrupar(r);
    EXPECT_EQ(ProrratearValor(r), Fase::Sigue);
    EXPECT_EQ(grupos(), u"1|36.66|36.66\n2|36.67|12.22333\n3|36.67|36.67"_s);
    EXPECT_EQ(r.FobDeclarado, 110);
}

TEST_P(Prorrateo, TheResidualChangesExactlyOneOfSeveralEqualRows) {
    // V 0.10 over F 90, three equal groups of 30: 30.0333 -> 30.03, 90.09 against 90.10.
    caratula({{u"fobdivisas"_s, u"90"_s}, {u"valoraprorratear"_s, u"0.1"_s}});
    for (const QString &pais : {u"1"_s, u"2"_s, u"3"_s}) de(pais, u"1"_s, u"30"_s, u"30"_s);
    ContextoArmado r = corrida();
    agrupar(r);
    ProrratearValor(r);
    EXPECT_EQ(grupos(), u"1|30.04|30.04\n2|30.03|30.03\n3|30.03|30.03"_s);
}

TEST_P(Prorrateo, WithoutARowAboveTheDifferenceNothingIsCorrected) {
    // The lines hold 1, the header says 100: the spread gives 1.10, and no row is above the missing 108.90.
    caratula({{u"valoraprorratear"_s, u"10"_s}});
    de(u"1"_s, u"1"_s, u"1"_s, u"1"_s);
    ContextoArmado r = corrida();
    agrupar(r);
    EXPECT_EQ(ProrratearValor(r), Fase::Sigue);
    EXPECT_EQ(grupos(), u"1|1.1|1.1"_s);
    EXPECT_EQ(r.FobDeclarado, 110);
}

TEST_P(Prorrateo, ATotalEqualAtTwoDecimalsLeavesNoResidual) {
    // By codes the groups keep their thousandths: 50.004 + 49.998 with 0.00 … 5 more is 105.002, "105.00" as
    // the header.
    caratula();
    de(u"1"_s, u"1"_s, u"50.004"_s, u"50.004"_s);
    de(u"2"_s, u"1"_s, u"50"_s, u"50"_s, u"EMB"_s);
    codigo(u"EMB"_s, u"5"_s);
    ContextoArmado r = corrida();
    agrupar(r);
    ProrratearValor(r);
    EXPECT_EQ(grupos(), u"1|50.004|50.004\n2|55|55"_s);
}

TEST_P(Prorrateo, AZeroFobInTheHeaderFailsInTheStore) {
    caratula({{u"fobdivisas"_s, u"0"_s}, {u"valoraprorratear"_s, u"10"_s}});
    de(u"1"_s, u"1"_s, u"1"_s, u"1"_s);
    ContextoArmado r = corrida();
    agrupar(r);
    EXPECT_THROW(ProrratearValor(r), Falla);
}

TEST_P(Prorrateo, NumbersOfStatementsStayRightUnderACommaOfTheWorkstation) {
    ctx->SeparadorDecimal = ','_L1;
    caratula({{u"valoraprorratear"_s, u"10.5"_s}});
    de(u"1"_s, u"3"_s, u"33.33333"_s, u"99.99999"_s);
    linea({{u"idpais"_s, u"'1'"_s},
           {u"cantidad"_s, u"3"_s},
           {u"preciounitario"_s, u"33.33333"_s},
           {u"fob"_s, u"0"_s}});
    ContextoArmado r = corrida();
    agrupar(r);
    EXPECT_EQ(valor(u"select count(*) from groupsubitems where interno = 'OP1' and idsub is null"_s), u"0"_s);
    ProrratearValor(r);
    // 99.99999 + 100.00 * 10.5 / 100 = 110.49999 -> 110.50; over 6 units 18.41667.
    EXPECT_EQ(grupos(), u"1|110.5|18.41667"_s);
    EXPECT_EQ(r.FobDeclarado, 110.5);
}

TEST_P(Prorrateo, AFreightOfZeroMakesEveryShareZeroAndNoResidual) {
    caratula();
    item(1, u"40"_s);
    item(2, u"60"_s);
    ContextoArmado r = corrida();
    r.FobDeclarado = 100;
    ProrratearFleteYSeguro(r);
    EXPECT_EQ(items(u"itflete"_s), u"1|0\n2|0"_s);
    EXPECT_EQ(items(u"itseguro"_s), u"1|0\n2|0"_s);
}

TEST_P(Prorrateo, TheLargestShareTakesWhatFreightAndInsuranceLeave) {
    // Freight 10: 3.333, 3.333, 3.334 -> 3.33 each, 9.99; the first of the largest takes the cent.
    // Insurance 1.00 over 33.33, 33.33, 33.34: 0.3333, 0.3333, 0.3334 -> 0.33 each, 0.99.
    caratula({{u"fletedivisas"_s, u"10"_s}, {u"segurodivisas"_s, u"1"_s}});
    item(1, u"33.33"_s);
    item(2, u"33.33"_s);
    item(3, u"33.34"_s);
    ContextoArmado r = corrida();
    r.FobDeclarado = 100;
    ProrratearFleteYSeguro(r);
    EXPECT_EQ(items(u"itflete"_s), u"1|3.34\n2|3.33\n3|3.33"_s);
    EXPECT_EQ(items(u"itseguro"_s), u"1|0.34\n2|0.33\n3|0.33"_s);
}

TEST_P(Prorrateo, SharesThatExceedTheTotalGiveBack) {
    // Freight 0.05 over ten items of 10: 0.005 -> 0.01 each, 0.10; the first gives back 0.05.
    caratula({{u"fletedivisas"_s, u"0.05"_s}});
    for (int n = 1; n <= 10; ++n) item(n, u"10"_s);
    ContextoArmado r = corrida();
    r.FobDeclarado = 100;
    ProrratearFleteYSeguro(r);
    EXPECT_EQ(valor(u"select itflete from item where interno = 'OP1' and id = 1"_s), u"-0.04"_s);
    EXPECT_EQ(valor(u"select round(sum(itflete),2) from item where interno = 'OP1'"_s), u"0.05"_s);
}

TEST_P(Prorrateo, ASingleItemTakesTheFreightsResidual) {
    // 90 of a declared 100 gives 9 of 10; the only item takes the rest.
    caratula({{u"fletedivisas"_s, u"10"_s}});
    item(1, u"90"_s);
    ContextoArmado r = corrida();
    r.FobDeclarado = 100;
    ProrratearFleteYSeguro(r);
    EXPECT_EQ(items(u"itflete"_s), u"1|10"_s);
}

TEST_P(Prorrateo, TheCommissionGoesOverTheItemsAndItemZeroGetsTheTotalOnlyAtTheEnd) {
    // 10 over 33.33, 33.33, 33.34: 3.33 each; the smallest (the first of the three) takes the cent.
    caratula();
    item(0, u"null"_s);
    item(1, u"33.33"_s);
    item(2, u"33.33"_s);
    item(3, u"33.34"_s);
    ContextoArmado r = corrida();
    ProrratearComExt(r, 10, 100);
    EXPECT_EQ(items(u"itcomext"_s), u"0|10\n1|3.34\n2|3.33\n3|3.33"_s);
}

TEST_P(Prorrateo, ACommissionOverSpreadIsTakenFromTheLargest) {
    // 0.06 over 1, 1, 1 and 4 of 7 … 0.0086 -> 0.01 thrice, 0.0343 -> 0.03: 0.06. With 0.07 of 8: 0.00875 ->
    // 0.01 * 4, 0.035 -> 0.04: 0.08, one cent above; the largest gives it back.
    caratula();
    item(0, u"null"_s);
    for (int n = 1; n <= 4; ++n) item(n, u"1"_s);
    item(5, u"4"_s);
    ContextoArmado r = corrida();
    ProrratearComExt(r, 0.07, 8);
    EXPECT_EQ(items(u"itcomext"_s), u"0|0.07\n1|0.01\n2|0.01\n3|0.01\n4|0.01\n5|0.03"_s);
}
