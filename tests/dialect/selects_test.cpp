// Row limits and orders that both engines share.

#include "tests/dialect/casos.h"

namespace {

class Selects : public Pares {};

TEST_P(Selects, TakeTheirLimitAndTheirOrder) {
    const Par &par = GetParam();
    EXPECT_EQ(enSQLite(par.texto).toStdString(), par.sqlite == nullptr ? par.texto : par.sqlite);
    EXPECT_EQ(enPostgreSQL(par.texto).toStdString(), par.postgresql == nullptr ? par.texto : par.postgresql);
}

const Par topes[] = {
    {"TheLimitStandsAtTheEnd", "select top 50 * from caratula  order by interno",
     "select   * from caratula  order by interno LIMIT 50",
     "select   * from caratula  order by interno NULLS FIRST LIMIT 50"},
    {"TheLimitOfADistinct", "select distinct top 3 a from t", "select distinct   a from t ORDER BY 1 LIMIT 3",
     "select distinct   a from t ORDER BY 1 NULLS FIRST LIMIT 3"},
    {"TheLimitOfASubselect", "delete from t where a in (select top 1 b from u where c = 1 ) and d = 2",
     "delete from t where a in (select   b from u where c = 1 LIMIT 1 ) and d = 2",
     "delete from t where a in (select   b from u where c = 1 LIMIT 1 ) and d = 2"},
    {"ALimitedSubselectTakesAnOrder",
     "delete from t where a in (select top 1 id from item order by fob desc)",
     "delete from t where a in (select   id from item order by fob desc, item.rowid LIMIT 1)",
     "delete from t where a in (select   id from item order by fob desc NULLS LAST, item.zfila LIMIT 1)"},
    {"AColumnCalledTopIsNoLimit", "select top from t", nullptr, nullptr},
    {"ALimitBeforeTheSemicolon", "select top 1 a from t;", "select   a from t LIMIT 1;",
     "select   a from t LIMIT 1;"},
};
INSTANTIATE_TEST_SUITE_P(Limits, Selects, ::testing::ValuesIn(topes), nombreDelPar);

const Par ordenes[] = {
    {"OneTableTakesTheOrderOfInsertion", "select * from item where interno = 'X'",
     "select * from item where interno = 'X' ORDER BY item.rowid",
     "select * from item where interno = 'X' ORDER BY item.zfila"},
    {"TheOrderIsNamedByTheAlias", "select * from groupsubitems as a where a.interno = 'X'",
     "select * from groupsubitems as a where a.interno = 'X' ORDER BY a.rowid",
     "select * from groupsubitems as a where a.interno = 'X' ORDER BY a.zfila"},
    {"TheTableMayBeInCapitals", "SELECT id From ITEM", "SELECT id From ITEM ORDER BY ITEM.rowid",
     "SELECT id From ITEM ORDER BY ITEM.zfila"},
    {"ATableWithoutAnOrderTakesNone", "select * from pg_tables", nullptr, nullptr},
    {"TwoTablesTakeNone", "select a.id from item a, subitems b", nullptr, nullptr},
    {"ATieIsBrokenByTheOrderOfInsertion", "select * from item order by itflete desc",
     "select * from item order by itflete desc, item.rowid",
     "select * from item order by itflete desc NULLS LAST, item.zfila"},
    {"EveryColumnOfAnOrderHasItsNulls", "select * from t order by len(id) desc,descripcion",
     "select * from t order by zlen(id) desc,descripcion",
     "select * from t order by len(id) desc NULLS LAST,descripcion NULLS FIRST"},
    {"ASumAnswersOneRow", "select sum(fob) as total from item", nullptr,
     "select zquince(sum(zexacto(fob))) as total from item"},
    {"ASumInsideAFunctionAnswersOneRow", "select round(sum(fob),2) as total from item", nullptr,
     "select round(zquince(sum(zexacto(fob))),2) as total from item"},
    {"ASumOfASubselectIsItsOwn", "select (select sum(a) from t) as x from item",
     "select (select sum(a) from t) as x from item ORDER BY item.rowid",
     "select (select zquince(sum(zexacto(a))) from t) as x from item ORDER BY item.zfila"},
    {"GroupsComeInTheOrderOfTheirColumns",
     "select a, sum(b) from item where c = 1 group by a,d having count(*)>1",
     "select a, sum(b) from item where c = 1 group by a,d having count(*)>1 ORDER BY a,d",
     "select a, zquince(sum(zexacto(b))) from item where c = 1 group by a,d having count(*)>1 ORDER BY a "
     "NULLS FIRST,d NULLS "
     "FIRST"},
    {"ATieBetweenGroupsIsBrokenByTheirColumns", "select a, sum(b) from item group by a,d order by d desc",
     "select a, sum(b) from item group by a,d order by d desc, a,d",
     "select a, zquince(sum(zexacto(b))) from item group by a,d order by d desc NULLS LAST, a NULLS FIRST,d "
     "NULLS FIRST"},
    {"DistinctRowsComeInTheOrderOfTheirColumns", "select distinct ncm,sufijos from subitems",
     "select distinct ncm,sufijos from subitems ORDER BY 1,2",
     "select distinct ncm,sufijos from subitems ORDER BY 1 NULLS FIRST,2 NULLS FIRST"},
    {"ATieBetweenDistinctRowsIsBrokenByTheirColumns",
     "select distinct CTAX,LTAXABR from tax order by LTAXABR",
     "select distinct CTAX,LTAXABR from tax order by LTAXABR, 1,2",
     "select distinct CTAX,LTAXABR from tax order by LTAXABR NULLS FIRST, 1 NULLS FIRST,2 NULLS FIRST"},
    {"AUnionTakesNoOrder", "select a from item union all select a from subitems", nullptr, nullptr},
    {"TheOrderOfAUnionHasItsNulls", "select a from item union select a from subitems order by a", nullptr,
     "select a from item union select a from subitems order by a NULLS FIRST"},
    {"ASubselectTakesNoOrder", "delete from t where exists (select 1 From ncm where a = b)", nullptr,
     nullptr},
    {"AnInsertFromASelectTakesAnOrder", "insert into iteminfo (iditem) select id from item where ncm = 'x'",
     "insert into iteminfo (iditem) select id from item where ncm = 'x' ORDER BY item.rowid",
     "insert into iteminfo (iditem) select id from item where ncm = 'x' ORDER BY item.zfila"},
};
INSTANTIATE_TEST_SUITE_P(Orders, Selects, ::testing::ValuesIn(ordenes), nombreDelPar);

QString conIdentidadEn(const motores::Motor &motor, const char *texto) {
    return dialecto::conIdentidad(QString::fromUtf8(texto), ajustesDePrueba(motor));
}

TEST(RowIdentity, IsTheLastColumnOfTheSelect) {
    const char *texto = "select top 2 * from item where interno = 'X' order by itflete desc";
    EXPECT_EQ(conIdentidadEn(motores::archivo(), texto).toStdString(),
              "select   * , item.rowid as z_identidad from item where interno = 'X' order by itflete desc, "
              "item.rowid LIMIT 2");
    EXPECT_EQ(conIdentidadEn(motores::servidor(), texto).toStdString(),
              "select   * , concat(item.ctid, item.zfila) as z_identidad from item where interno = 'X' order "
              "by itflete "
              "desc NULLS LAST, item.zfila LIMIT 2");
}

TEST(RowIdentity, IsOfTheOuterSelectAlone) {
    EXPECT_EQ(
        conIdentidadEn(motores::archivo(), "select a,b from item as i where a in (select a from subitems)")
            .toStdString(),
        "select a,b , i.rowid as z_identidad from item as i where a in (select a from subitems) ORDER "
        "BY i.rowid");
}

}  // namespace
