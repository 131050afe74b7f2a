// Statements of the exchange of operations and of what was handed over.

#include "tests/statements/casos.h"

namespace {

const Caso intercambios[] = {
    {"LinesOfAPage", "select top 2000 * from subitems where interno = 'OP1' order by id"},
    {"LinesOfTheNextPage", "select top 2 * from subitems where interno = 'OP1' and id > 1 order by id"},
    {"OrderOfTheGroups", "select idsub from groupsubitems where interno = 'OP1'"},
    {"GroupsOfAPage", "select * from groupsubitems where interno = 'OP1' and idsub >= 1 and idsub <= 3"},
    {"ArticlesOfTheLines",
     "select idcatalogo,idarticulo from subitems where interno = 'OP1' group by idcatalogo,idarticulo"},
    {"ColumnsOfATable", "select * from facturas where interno = ''", Espera::Nada},
    {"Comment", "select * from coment where interno = 'OP1'", Espera::Filas, "SYSTABLAS"},
    {"StandingTakings", "select top 1 id from stockmov where interno = 'OP1' and devuelta is null"},
    {"LoadedIntoTheStock", "select top 1 id from stock where interno = 'OP1'", Espera::Nada},
};
SENTENCIAS(Exchange, intercambios);

const Caso entregas[] = {
    {"ARowOfAHandOver",
     "insert into transferidas (interno,fecha,maquina,archivo,suma) values ('OP1',{2026-02-10},'PC1','a.xml','00')",
     Espera::Filas, "INTERNOS", "1"},
    {"HandOversOfSome",
     "select interno,fecha,maquina,archivo,suma from transferidas where interno in ('OP1','OP2')",
     Espera::Nada},
    {"HandOversOfAll", "select interno,fecha,maquina,archivo,suma from transferidas", Espera::Nada},
    {"Pending",
     "select top 50 * from caratula  where  interno not in (select interno from transferidas)  order by interno"},
    {"HandedOver",
     "select top 50 * from caratula  where  interno in (select interno from transferidas)  order by interno",
     Espera::Nada},
    {"LinesToCompare", "select count(*) as n from groupsubitems where interno = 'OP1'"},
};
SENTENCIAS(HandOvers, entregas);

}  // namespace
