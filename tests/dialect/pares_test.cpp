// One fact of the translator a row.

#include "tests/dialect/casos.h"

namespace {

TEST_P(Pares, IsWrittenForBothEngines) {
    const Par &par = GetParam();
    EXPECT_EQ(enSQLite(par.texto).toStdString(), par.sqlite == nullptr ? par.texto : par.sqlite);
    EXPECT_EQ(enPostgreSQL(par.texto).toStdString(), par.postgresql == nullptr ? par.texto : par.postgresql);
}

const Par nombres[] = {
    {"ABracketNameIsQuotedOnTheServer", "update ncm set [071] = '1'", nullptr,
     "update ncm set \"071\" = '1'"},
    {"ABracketNameIsLowerCaseOnTheServer", "update subitems set [ID]= 5", nullptr,
     "update subitems set \"id\"= 5"},
    {"ABracketNameBehindItsTable", "delete from ncm where ncm.[059] = ''", nullptr,
     "delete from ncm where ncm.\"059\" = ''"},
    {"AQuoteInABracketNameIsDoubled", "delete from t where [a\"b] = 1", nullptr,
     "delete from t where \"a\"\"b\" = 1"},
    {"ABracketInsideATextStays", "update t set a = '[001]'", nullptr, nullptr},
    {"TheOwnerPrefixIsDropped", "delete from t where dbo.f( id, x ) = 1",
     "delete from t where f( id, x ) = 1", "delete from t where f( id, x ) = 1"},
    {"AColumnCalledLikeTheOwnerStays", "update t set dbo = 1", nullptr, nullptr},
};
INSTANTIATE_TEST_SUITE_P(Names, Pares, ::testing::ValuesIn(nombres), nombreDelPar);

const Par fechas[] = {
    {"ADateBetweenHashes", "update t set f = #02/28/2026#", "update t set f = '2026-02-28 00:00:00'",
     "update t set f = TIMESTAMP '2026-02-28 00:00:00'"},
    {"AMomentBetweenHashes", "update t set f = #12/31/2025 23:59:58#",
     "update t set f = '2025-12-31 23:59:58'", "update t set f = TIMESTAMP '2025-12-31 23:59:58'"},
    {"ADateWithShortNumbers", "update t set f = #1/5/2026#", "update t set f = '2026-01-05 00:00:00'",
     "update t set f = TIMESTAMP '2026-01-05 00:00:00'"},
    {"ADateThatIsNoneStays", "update t set f = #02/30/2026#", nullptr, nullptr},
    {"HashesInsideATextStay", "update t set f = '#02/28/2026#', g = '###baseiva'", nullptr, nullptr},
    {"ADateRightBehindATextStaysApart", "update t set f = ''#02/28/2026#",
     "update t set f = '' '2026-02-28 00:00:00'", "update t set f = ''TIMESTAMP '2026-02-28 00:00:00'"},
    {"ALoneHashStays", "update t set f = # 5", nullptr, nullptr},
    {"AQuotedMomentIsAText", "update t set f = '2026-02-28 10:00:00'", nullptr, nullptr},
};
INSTANTIATE_TEST_SUITE_P(Dates, Pares, ::testing::ValuesIn(fechas), nombreDelPar);

const Par funciones[] = {
    {"LeftIsAFunctionOnTheFileStore", "delete from item where left(itfiller,9) = 'X'",
     "delete from item where (zleft(itfiller,9) COLLATE NOCASE) = 'X'", nullptr},
    {"ABlankBeforeTheArguments", "delete from t where substring (a.ncm,12,3) = b",
     "delete from t where (zsubstring (a.ncm,12,3) COLLATE NOCASE) = b", nullptr},
    {"RightInUpperCase", "delete from t where RIGHT(a,1)<>'-'",
     "delete from t where (zright(a,1) COLLATE NOCASE)<>'-'", nullptr},
    {"LeftJoinIsNoFunction", "delete from t where a in (select a from u left join v on u.a = v.a)", nullptr,
     nullptr},
    {"AColumnCalledLenIsNoFunction", "update t set len = 5", nullptr, nullptr},
    {"LengthAndSearch", "delete from t where len(ncm)<>15 and charindex('()',sufijos)>0",
     "delete from t where zlen(ncm)<>15 and zcharindex('()',sufijos)>0", nullptr},
    {"FunctionsWithinFunctions", "update t set a = left(right(b,4),2)",
     "update t set a = (zleft((zright(b,4) COLLATE NOCASE),2) COLLATE NOCASE)", nullptr},
    {"FunctionsOfOneNameOnBothStay", "update t set a = ROUND(fob,2) where ISNUMERIC(b)=0", nullptr, nullptr},
    {"AFunctionNameInsideATextStays", "update t set a = 'left(b,2)'", nullptr, nullptr},
};
INSTANTIATE_TEST_SUITE_P(Functions, Pares, ::testing::ValuesIn(funciones), nombreDelPar);

const Par concatenaciones[] = {
    {"ATextInTheChainJoins", "update subitems set sufijos = sufijos+'-'",
     "update subitems set sufijos = sufijos||'-'", nullptr},
    {"EveryPlusOfTheChainJoins", "update ncm set a = [001]+ '.' +[002] + [003]",
     "update ncm set a = [001]|| '.' ||[002] || [003]", "update ncm set a = \"001\"+ '.' +\"002\" + \"003\""},
    {"ABlankTextJoins", "update t set a = ' ' + descripcion", "update t set a = ' ' || descripcion", nullptr},
    {"AnEmptyTextJoins", "update t set a = '' + b", "update t set a = '' || b", nullptr},
    {"ColumnsAdd", "update item set cantidad = cantidad + valor", nullptr, nullptr},
    {"ANumberBetweenQuotesAdds", "update item set cantidad = cantidad + '5'", nullptr, nullptr},
    {"ANegativeAmountAdds", "update item set cantidad = cantidad + -0.01 where idunidad = '01'", nullptr,
     nullptr},
    {"AComparisonEndsTheChain", "delete from t where a + b = 'x'", nullptr, nullptr},
    {"ATextWithinParenthesesJoins", "update t set a = (b + '-') + c", "update t set a = (b || '-') || c",
     nullptr},
    {"ASumWithinAChainOfTexts", "update t set a = 'n' + (b + c) + d", "update t set a = 'n' || (b + c) || d",
     nullptr},
    {"AChainWithinASum", "update t set a = 1 + len(b + 'x') + 2", "update t set a = 1 + zlen(b || 'x') + 2",
     nullptr},
    {"CutsOfTextsJoin", "update t set a = left(b,2) + right(b,1)",
     "update t set a = (zleft(b,2) COLLATE NOCASE) || (zright(b,1) COLLATE NOCASE)", nullptr},
    {"APlusInsideATextStays", "update t set a = 'b + ''c'''", nullptr, nullptr},
};
INSTANTIATE_TEST_SUITE_P(Concatenation, Pares, ::testing::ValuesIn(concatenaciones), nombreDelPar);

const Par divisiones[] = {
    {"AWholeDivisorIsFloating", "update t set a = b / 100", "update t set a = b / 100.0",
     "update t set a = b / 100::double precision"},
    {"AFloatingDivisor", "update t set a = b / 0.5", "update t set a = b / zdivisor(0.5)", nullptr},
    {"AColumnMayBeZero", "update t set a = 5/cantidad", "update t set a = 5/zdivisor(cantidad)", nullptr},
    {"AZeroIsRefused", "update t set a = b / 0", "update t set a = b / zdivisor(0)",
     "update t set a = b / 0::double precision"},
    {"ACallAsDivisor", "update t set a = sum(fob) / sum(cantidad)",
     "update t set a = sum(fob) / zdivisor(sum(cantidad))",
     "update t set a = zquince(sum(zexacto(fob))) / zquince(sum(zexacto(cantidad)))::double precision"},
    {"AParenthesisAsDivisor", "update t set a = b / ('100')", "update t set a = b / zdivisor(('100'))",
     "update t set a = b / ('100')::double precision"},
    {"ANegativeDivisor", "update t set a = b / -2", "update t set a = b / zdivisor(-2)",
     "update t set a = b / -2::double precision"},
    {"ADivisorBehindItsTable", "update t set a = b / c.[d]", "update t set a = b / zdivisor(c.[d])",
     "update t set a = b / c.\"d\""},
    {"ChainsOfDivisions", "update t set a = b / c / 4", "update t set a = b / zdivisor(c) / 4.0",
     "update t set a = b / c / 4::double precision"},
    {"ASlashInsideATextStays", "update item set LISTA = '314/R.AUTOMOTRIZ'", nullptr, nullptr},
    {"ASlashWithoutDivisorStays", "update t set a = (b / )", nullptr, nullptr},
    {"ACommentIsNoDivision", "update t set a = 1 /* b / c */", nullptr, nullptr},
};
INSTANTIATE_TEST_SUITE_P(Division, Pares, ::testing::ValuesIn(divisiones), nombreDelPar);

const Par sumas[] = {
    {"ASumIsExact", "update t set a = (select SUM ( b ) from u)", nullptr,
     "update t set a = (select zquince(SUM (zexacto( b ))) from u)"},
    {"ASumOfARound", "update t set a = sum(ROUND(b,2))", nullptr,
     "update t set a = zquince(sum(zexacto(ROUND(b,2))))"},
    {"ASumOfDistinctValuesStays", "update t set a = sum(distinct b)", nullptr, nullptr},
    {"AColumnCalledSumStays", "update t set sum = 5", nullptr, nullptr},
    {"ASumOfNothingStays", "update t set a = sum()", nullptr, nullptr},
};
INSTANTIATE_TEST_SUITE_P(Sums, Pares, ::testing::ValuesIn(sumas), nombreDelPar);

const Par parecidos[] = {
    {"APatternHasNoEscape", "delete from t where a like '84%'", nullptr,
     "delete from t where a like '84%' ESCAPE ''"},
    {"TwoPatterns", "delete from t where a LIKE '%x%' or b not like 'y'", nullptr,
     "delete from t where a LIKE '%x%' ESCAPE '' or b not like 'y' ESCAPE ''"},
    {"AJoinedPattern", "delete from t where a like b + '%' and c = 1",
     "delete from t where a like b || '%' and c = 1",
     "delete from t where a like b + '%' ESCAPE '' and c = 1"},
    {"ThePatternMayBeMissing", "delete from t where a like", nullptr, nullptr},
};
INSTANTIATE_TEST_SUITE_P(Patterns, Pares, ::testing::ValuesIn(parecidos), nombreDelPar);

const Par existencias[] = {
    {"AnExistsByOneOuterColumnIsLookedUp",
     "delete from a where exists (select (b.x + '-' + b.y) from b where b.z = '' and a.k = (b.x + '-' + b.y))",
     "delete from a where coalesce(a.k in (select (b.x || '-' || b.y) from b where b.z = ''), false)",
     "delete from a where coalesce(a.k in (select (b.x + '-' + b.y) from b where b.z = ''), false)"},
    {"AnExistsWhoseFirstConditionNamesTheRow",
     "delete from a where NOT EXISTS ( Select b.x From b Where a.k = b.x and b.z = 1 and b.y = 'left(x)' )",
     "delete from a where NOT coalesce(a.k in ( Select b.x From b Where b.z = 1 and b.y = 'left(x)' ), false)",
     "delete from a where NOT coalesce(a.k in ( Select b.x From b Where b.z = 1 and b.y = 'left(x)' ), "
     "false)"},
    {"AnExistsOfOneCondition", "delete from a where exists (select b.x from b where a.k = b.x)",
     "delete from a where coalesce(a.k in (select b.x from b), false)",
     "delete from a where coalesce(a.k in (select b.x from b), false)"},
    {"AnExistsByCutsTakesTheirRewritesAlong",
     "delete from a where exists (select left(b.x,2) from b where b.z = 0 and a.k = left(b.x,2)) and a.q = 1",
     "delete from a where coalesce(a.k in (select (zleft(b.x,2) COLLATE NOCASE) from b where b.z = 0), false) "
     "and a.q = 1",
     "delete from a where coalesce(a.k in (select left(b.x,2) from b where b.z = 0), false) and a.q = 1"},
    {"AnExistsThatListsSomethingElseStays", "delete from a where exists (select 1 from b where a.k = b.x)",
     nullptr, nullptr},
    {"AnExistsByItsOwnColumnsStays", "delete from a where exists (select b.x from b where b.k = b.x)",
     nullptr, nullptr},
    {"AnExistsWithAnAlternativeStays",
     "delete from a where exists (select b.x from b where b.z = 1 or b.y = 2 and a.k = b.x)", nullptr,
     nullptr},
    {"AnExistsBetweenStays",
     "delete from a where exists (select b.x from b where b.z between 1 and a.k = b.x)", nullptr, nullptr},
    {"AnExistsOfAnotherComparisonStays", "delete from a where exists (select b.x from b where a.k <> b.x)",
     nullptr, nullptr},
    {"AnExistsOverTwoTablesStays", "delete from a where exists (select b.x from b, c where a.k = b.x)",
     nullptr, nullptr},
    {"AnExistsOfGroupsStays", "delete from a where exists (select b.x from b where a.k = b.x group by b.x)",
     nullptr, nullptr},
    {"AnExistsWithoutConditionStays", "delete from a where exists (select b.x from b)", nullptr, nullptr},
    {"AnExistsOfNothingStays", "delete from a where exists () or exists (select) or exists", nullptr,
     nullptr},
    {"ATableCalledLikeItStays", "delete from exists where exists.a = 1", nullptr, nullptr},
};
INSTANTIATE_TEST_SUITE_P(Existence, Pares, ::testing::ValuesIn(existencias), nombreDelPar);

const Par comandos[] = {
    {"AProcedureIsSelected", "exec ProcesarDescargasconTLR1 'OP1'", "select ProcesarDescargasconTLR1('OP1')",
     "select ProcesarDescargasconTLR1('OP1')"},
    {"AProcedureWithItsOwner", "EXEC dbo.Hacer 'a', 5", "select Hacer('a', 5)", "select Hacer('a', 5)"},
    {"AProcedureAheadOfAComment", "exec Hacer 'a' -- fin", "select Hacer('a')", "select Hacer('a')"},
    {"AProcedureWithoutArguments", "execute Hacer", "select Hacer()", "select Hacer()"},
    {"AJoinedUpdateOfTheServer",
     "Update g Set g.ID = ITEM.ID from g INNER JOIN item on (g.interno = item.Interno and g.ncm = item.NCM) "
     "where g.interno = 'X'",
     "UPDATE g SET ID = ITEM.ID FROM item WHERE (g.interno = item.Interno and g.ncm = item.NCM) AND "
     "(g.interno = 'X')",
     "UPDATE g SET ID = ITEM.ID FROM item WHERE (g.interno = item.Interno and g.ncm = item.NCM) AND "
     "(g.interno = 'X')"},
    {"AJoinedUpdateOfTheFileStore",
     "Update g Inner Join item On (g.interno = item.Interno) Set g.ID = ITEM.ID, g.b = item.c where "
     "g.interno = 'X' or g.b = 1",
     "UPDATE g SET ID = ITEM.ID, b = item.c FROM item WHERE (g.interno = item.Interno) AND (g.interno = 'X' "
     "or g.b = 1)",
     "UPDATE g SET ID = ITEM.ID, b = item.c FROM item WHERE (g.interno = item.Interno) AND (g.interno = 'X' "
     "or g.b = 1)"},
    {"AJoinedUpdateOfAllRows", "Update g Inner Join s On (g.a = s.a) Set g.b = s.b",
     "UPDATE g SET b = s.b FROM s WHERE (g.a = s.a)", "UPDATE g SET b = s.b FROM s WHERE (g.a = s.a)"},
    {"AConditionWithoutParentheses",
     "Update g Set b = s.b from g inner join s on g.a = s.a or g.c = s.c where g.x = 1",
     "UPDATE g SET b = s.b FROM s WHERE (g.a = s.a or g.c = s.c) AND (g.x = 1)",
     "UPDATE g SET b = s.b FROM s WHERE (g.a = s.a or g.c = s.c) AND (g.x = 1)"},
    {"ARightSideKeepsItsTable",
     "Update g Inner Join s On (g.a = s.a) Set g.b = iif(g.c = s.c, s.d, g.e), g.f = s.f",
     "UPDATE g SET b = iif(g.c = s.c, s.d, g.e), f = s.f FROM s WHERE (g.a = s.a)",
     "UPDATE g SET b = iif(g.c = s.c, s.d, g.e), f = s.f FROM s WHERE (g.a = s.a)"},
    {"AnUpdateOfTwoJoinsIsLeftToTheEngine",
     "Update g Inner Join s On (g.a = s.a) inner join u on (s.b = u.b) Set g.b = u.b", nullptr, nullptr},
    {"AnUpdateOfAnotherTableIsLeftToTheEngine", "Update g Set b = s.b from h inner join s on (h.a = s.a)",
     nullptr, nullptr},
};
INSTANTIATE_TEST_SUITE_P(Commands, Pares, ::testing::ValuesIn(comandos), nombreDelPar);

const Par pasan[] = {
    {"AnInsert", "insert into idrel (interno,idroot,idsub) values ('OP1',12, 13)", nullptr, nullptr},
    {"ADelete", "delete from item where interno = 'OP1'", nullptr, nullptr},
    {"AForbiddenComparison", "delete from item where interno = 'X' and tipoitem = <> 'G'", nullptr, nullptr},
    {"AMissingAnd", "delete from liqcero where idconcepto = '###baseiva' interno = 'OP1'", nullptr, nullptr},
    {"AQuoteInAKey", "select * from caratula where interno = 'O'Brien'", nullptr, nullptr},
    {"AnOpenBracket", "select [001 from ncm where left(a,1) = 'x'", nullptr, nullptr},
    {"AnOpenParenthesis", "select top 1 * from ncm where (left(a,1) = 'x'", nullptr, nullptr},
    {"AnOpenComment", "select top 1 a / b /* from ncm", nullptr, nullptr},
    {"NothingAtAll", "", nullptr, nullptr},
    {"OnlyBlanks", "  \t ", nullptr, nullptr},
    {"NoStatement", "¿qué? ¡nada! {} ; ~ ^ & % $", nullptr, nullptr},
    {"DoubledQuotesAndAccents", "update t set a = 'D''Ángelo / Ñandú + [001] like #1/1/2026#'", nullptr,
     nullptr},
};
INSTANTIATE_TEST_SUITE_P(PassThrough, Pares, ::testing::ValuesIn(pasan), nombreDelPar);

}  // namespace
