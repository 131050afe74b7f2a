// What the statements lean on without saying so: conversions between texts and numbers, case, blanks and
// nulls.

#include "tests/statements/casos.h"

using namespace Qt::StringLiterals;

namespace {

const Caso conversiones[] = {
    {"NumberBetweenQuotesIntoANumber", "update item set cantidad = '12.5' where interno = 'OP1' and id = 1",
     Espera::Filas, "INTERNOS", "1"},
    {"NumberBetweenQuotesComparedWithANumber",
     "select id from item where interno = 'OP1' and fobtotal = '300'", Espera::Filas, "INTERNOS", "1"},
    {"NumberBetweenQuotesIsNotComparedAsText",
     "select id from item where interno = 'OP1' and fobtotal > '90'", Espera::Filas, "INTERNOS", "1\n2"},
    {"NumberBetweenQuotesOnTheLeft", "select id from item where interno = 'OP1' and '90' < fobtotal",
     Espera::Filas, "INTERNOS", "1\n2"},
    {"NumberBetweenQuotesInAList", "select id from item where interno = 'OP1' and id in ('1','3')",
     Espera::Filas, "INTERNOS", "1\n3"},
    {"NumberBetweenQuotesWithinLimits",
     "select id from item where interno = 'OP1' and fobtotal between '90' and '310'", Espera::Filas,
     "INTERNOS", "1\n2"},
    {"NumberBetweenQuotesInASum", "select cantidad + '0.5' as c from item where interno = 'OP1' and id = 1",
     Espera::Filas, "INTERNOS", "30.5"},
    {"NumberBetweenQuotesInAProduct",
     "select fobtotal * '0.5' as c from item where interno = 'OP1' and id = 1", Espera::Filas, "INTERNOS",
     "150"},
    {"WholeNumbersDivide", "select 7 / 2 as c from version where propiedad = 'version'", Espera::Filas,
     "INTERNOS", "3.5"},
    {"WholeNumberIntoAText", "update subitems set insumostemp = 0 where interno = 'OP1'", Espera::Filas,
     "INTERNOS", "6"},
    {"NumberIntoAText", "update subitems set insumostemp = 12.5 where interno = 'OP1'", Espera::Filas,
     "INTERNOS", "6"},
    {"SmallNumberIntoAText", "update subitems set otros = 0.1 where interno = 'OP1'", Espera::Filas,
     "INTERNOS", "6"},
    {"NumericColumnIntoAText", "update subitems set otros = cantidad where interno = 'OP1'", Espera::Filas,
     "INTERNOS", "6"},
    {"EmptyTextIntoATextOfNumbers", "update subitems set insumosacons = '' where interno = 'OP1'",
     Espera::Filas, "INTERNOS", "6"},
    {"TextComparedWithAWholeNumber", "select dit from descargas where interno = 'OP1' and iditem = 1",
     Espera::Filas, "INTERNOS", "26"},
    {"TextComparedWithANumber", "select id from subitems where interno = 'OP1' and insumostemp = 12.5",
     Espera::Filas, "INTERNOS", "1"},
    {"TextComparedWithAnotherNumber",
     "select id from subitems where interno = 'OP1' and insumostemp <> 12.5"},
    {"TextColumnComparedWithANumericColumn",
     "select d.dit from descargas d, item i where d.interno = 'OP1' and i.interno = d.interno and d.iditem = "
     "i.id",
     Espera::Filas, "INTERNOS", "26"},
    {"TextInAListOfNumbers", "select dit from descargas where interno = 'OP1' and iditem in (1,2)",
     Espera::Filas, "INTERNOS", "26"},
    {"IsnumericOfATextColumn", "select id from subitems where interno = 'OP1' and ISNUMERIC(insumostemp)=1",
     Espera::Filas, "INTERNOS", "1"},
    {"IsnumericOfANumericColumn", "select id from subitems where interno = 'OP1' and isnumeric(kgneto)<>0",
     Espera::Filas, "INTERNOS", "1\n2\n4\n5"},
    {"IsnumericOfADate", "select interno from caratula where isnumeric(fechaalta)=0 order by interno",
     Espera::Filas, "INTERNOS", "OP1\nop2\nOP3"},
    {"IsnumericOfTexts",
     "select isnumeric('1') as a, isnumeric('-1.5') as b, isnumeric('1,5') as c, isnumeric('1e3') as d, "
     "isnumeric('+2') "
     "as e, isnumeric('') as f, isnumeric('x') as g, isnumeric('1.2.3') as h, isnumeric('-') as i, "
     "isnumeric(null) as j, "
     "isnumeric('1 2') as k, isnumeric('.') as l from version where propiedad = 'version'",
     Espera::Filas, "INTERNOS", "1|1|1|1|1|0|0|0|0|0|0|0"},
    {"IsnumericOfNumbers",
     "select isnumeric(1) as a, isnumeric(1.5) as b, isnumeric(-1) as c from version where "
     "propiedad = 'version'",
     Espera::Filas, "INTERNOS", "1|1|1"},
    {"IsnumericOfASum", "select isnumeric(sum(fob)) as a from subitems where interno = 'OP3'", Espera::Filas,
     "INTERNOS", "0"},
    {"SumOfATextOfNumbers", "select sum(insumostemp) as t from subitems where interno = 'OP1'", Espera::Filas,
     "INTERNOS", "12.5"},
    {"LengthOfANumber", "select len(id) as l from item where interno = 'OP1' and id = 3", Espera::Filas,
     "INTERNOS"},
    {"LengthCountsCharacters", "select len(valor) as l from iteminfo where interno = 'OP1' and iditem = 1",
     Espera::Filas, "INTERNOS", "5"},
    {"CutsCountCharacters",
     "select left(valor,2) as a, right(valor,2) as b, substring(valor,2,3) as c, charindex('DÚ',valor) as d "
     "from iteminfo "
     "where interno = 'OP1' and iditem = 1",
     Espera::Filas, "INTERNOS", "Ña|dú|and|4"},
    {"CutsOfANumber", "select left(fobtotal,2) as a from item where interno = 'OP1' and id = 1",
     Espera::Filas, "INTERNOS", "30"},
    {"CutsOfAWholeNumber",
     "select left(id,1) as a, right(id,1) as b, substring(id,1,1) as c from subitems where interno = 'OP2'",
     Espera::Filas, "INTERNOS", "7|7|7"},
    {"CutsOfADecimal",
     "select left(itflete,3) as a, right(itflete,2) as b, substring(itflete,2,2) as c, "
     "charindex('.',itflete) as d from item where interno = 'OP1' and id = 1",
     Espera::Filas, "INTERNOS", "60.|.5|0.|3"},
    {"LengthOfNumbers",
     "select len(fobtotal) as a, len(itflete) as b, len(id) as c, len(fobtotal / 3) as d, len(1) as e, "
     "len(0.5) as f from item where interno = 'OP1' and id = 1",
     Espera::Filas, "INTERNOS", "3|4|1|3|1|3"},
    {"PatternOfAnIdentity", "select id from subitems where id like '7%' and interno = 'OP2'", Espera::Filas,
     "INTERNOS", "7"},
    {"IsnumericOfWholeNumbers",
     "select isnumeric(id) as a, isnumeric(count(*)) as b from subitems where interno = 'OP2' group by id",
     Espera::Filas, "INTERNOS", "1|1"},
    {"SumWithADustOfBinaryReadsAsItsDigits",
     "select len(0.1 + 0.2) as a, left(fobtotal / 7,6) as b from item where interno = 'OP1' and id = 1",
     Espera::Filas, "INTERNOS", "3|42.857"},
    {"TextOfANumberComparesAsText", "select id from subitems where interno = 'OP1' and insumostemp > 9",
     Espera::Filas, "INTERNOS", "3"},
    {"BlanksAroundAQuotedNumber", "update item set cantidad = ' 12.5 ' where interno = 'OP1' and id = 1",
     Espera::Filas, "INTERNOS", "1"},
    {"TextsCompareWithoutCase", "select id from subitems where interno = 'op1' and sufijos = 'AA01-'",
     Espera::Filas, "INTERNOS", "1\n2"},
    {"SearchesFoldAccentedLetters",
     "select interno from caratula where factura2 like 'VENDEDOR ÑANDÚ' order by interno", Espera::Filas,
     "INTERNOS", "OP1\nop2"},
    {"BlanksAtTheEndCount", "select interno from caratula where interno = 'OP1 '", Espera::Nada},
    {"PatternsHaveNoEscape", "select id from subitems where interno = 'OP1' and ncm like '8409\\%'",
     Espera::Nada},
    {"PatternsKnowOneCharacter", "select id from subitems where interno = 'OP1' and ncm like '8_09'",
     Espera::Filas, "INTERNOS", "6"},
    {"PatternOfANumber", "select id from item where interno = 'OP1' and fobtotal like '3%'", Espera::Filas,
     "INTERNOS"},
    {"NullsComeFirst", "select id from groupsubitems where interno = 'OP1' order by id", Espera::Filas,
     "INTERNOS", "<null>\n<null>\n1\n1\n2"},
    {"NullsComeLastBackwards", "select id from groupsubitems where interno = 'OP1' order by id desc",
     Espera::Filas, "INTERNOS", "2\n1\n1\n<null>\n<null>"},
    {"NullJoinsToNull", "select descripcion + '-' as d from item where interno = 'OP1' and id = 0",
     Espera::Filas, "INTERNOS", "<null>"},
    {"NumberJoinsAText", "select 'Item ' + idunidad + '.' as d from item where interno = 'OP1' and id = 1",
     Espera::Filas, "INTERNOS", "Item 01."},
    {"HalvesGoAwayFromZero",
     "select ROUND(0.125,2) as a, ROUND(-0.125,2) as b, ROUND(1.005,2) as c, ROUND(2.5,0) as d, "
     "ROUND(1.115,2) as e from "
     "version where propiedad = 'version'",
     Espera::Filas, "INTERNOS", "0.13|-0.13|1.01|3|1.12"},
    {"RoundOfAText", "select ROUND(insumostemp,0) as a from subitems where interno = 'OP1' and id = 1",
     Espera::Filas, "INTERNOS", "13"},
    {"ExtremesOfTexts", "select max(ncm) as a, min(ncm) as b from subitems where interno = 'OP1'",
     Espera::Filas, "INTERNOS", "9999.99.99.999Z|8409"},
    {"MomentAsText", "select interno from caratula where fechaalta = '2026-02-10 10:20:30' order by interno",
     Espera::Filas, "INTERNOS", "OP1\nOP3"},
    {"ATableThatIsNoneIsRefused", "select * from inexistente", Espera::Rechazo},
    {"AColumnThatIsNoneIsRefused", "select inexistente from caratula", Espera::Rechazo},
    {"AColumnInBracketsThatIsNoneIsRefused", "select [072] from ncm", Espera::Rechazo, "NCM"},
    {"TwoStatementsAreRefused", "delete from interno where interno = 'OP1'; delete from caratula",
     Espera::Rechazo},
    {"DivisionByAColumnOfZeros", "select fob / kgbruto as p from groupsubitems where interno = 'OP1'",
     Espera::Rechazo},
    {"DivisionByNull", "select fobtotal / totalkbruto as p from item where interno = 'OP1' and id = 2",
     Espera::Filas, "INTERNOS", "<null>"},
};
SENTENCIAS(Conversions, conversiones);

// The sums of a column do not depend on the order in which the engine meets its rows.
TEST(Sums, AreExactToFifteenDigits) {
    const LosDos r = correrEnLosDos(
        u"select sum(itflete) as a, sum(itflete + 0.1) as b, "
        "sum(0.1) as c from item where interno = 'OP1'"_s,
        u"INTERNOS"_s);
    EXPECT_EQ(r.archivos.sinComillas().toStdString(), "101|101.3|0.4");
    EXPECT_EQ(r.servidor.sinComillas().toStdString(), "101|101.3|0.4");
}

}  // namespace
