// Statements of the proration of kilos and of the proration codes.

#include "tests/statements/casos.h"

namespace {

const Caso kilos[] = {
    {"TotalFob", "select sum(fob) as total from groupsubitems where interno = 'OP1'", Espera::Filas,
     "INTERNOS", "500.255"},
    {"TotalKilos", "select sum(kgneto) as total from groupsubitems where interno = 'OP1'", Espera::Filas,
     "INTERNOS", "10"},
    {"Marked",
     "update groupsubitems set flgkg = '*' where interno = 'OP1' and (kgneto <= 0 or kgneto is null)",
     Espera::Filas, "INTERNOS", "2"},
    {"NotMarked",
     "update groupsubitems set flgkg = '' where (flgkg is null or flgkg<>'*') and interno = 'OP1'",
     Espera::Filas, "INTERNOS", "3"},
    {"WithoutKilos",
     "select sum(fob) as fobtotal,count(fob) as cantidad from groupsubitems where interno = 'OP1' and "
     "(kgneto <= 0 or "
     "kgneto is null)",
     Espera::Filas, "INTERNOS", "180.005|2"},
    {"KilosByFob",
     "Update groupsubitems set kgneto = ROUND(((fob * 20) / 180.005),2) where interno = 'OP1' and kgneto <= "
     "0 and "
     "flgkg='*'",
     Espera::Nada},
    {"KilosByFobOfTheMarked",
     "Update groupsubitems set kgneto = ROUND(((fob * 20) / 180.005),2) where interno = 'OP1' and kgneto > 0 "
     "and "
     "flgkg='*'",
     Espera::Filas, "INTERNOS", "2"},
    {"BelowTheFloor", "select count(1) as cantidad from groupsubitems where kgneto <= 0 and interno = 'OP1'",
     Espera::Filas, "INTERNOS", "2"},
    {"MarkedByTheReview", "update groupsubitems set flgkg = '*' where interno = 'OP1' and kgneto <= 0",
     Espera::Filas, "INTERNOS", "2"},
    {"HeaviestOfTheMarkedAboveAQuotedNumber",
     "select * from groupsubitems where flgkg = '*' and interno = 'OP1' and kgneto > '0.02' order by kgneto "
     "desc"},
    {"HeaviestOfTheMarked",
     "select * from groupsubitems where flgkg = '*' and interno = 'OP1' and kgneto >  0.02 order by kgneto "
     "desc"},
    {"Heaviest",
     "select top 1 * from groupsubitems where interno = 'OP1' and kgneto > 0.01 order by kgneto desc"},
    {"Floor", "update groupsubitems set kgneto = 0.01  where interno = 'OP1' and kgneto <= 0", Espera::Filas,
     "INTERNOS", "2"},
    {"HeaviestForTheResidual",
     "select top 2 * from groupsubitems where flgkg = '*' and interno = 'OP1' and kgneto > 0.05 order by "
     "kgneto desc"},
    {"StatisticsInKilos",
     "update groupsubitems set valorrelacionestadistica = kgneto where interno = 'OP1' and estadistica = "
     "'01'",
     Espera::Filas, "INTERNOS", "4"},
    {"SpecificInKilos",
     "update groupsubitems set valorderesp = kgneto where interno = 'OP1' and deresp = '01'", Espera::Filas,
     "INTERNOS", "2"},
    {"KilosOfTheItems",
     "select id,estadistica,deresp,ROUND(sum(kgneto),2) as totalkg from groupsubitems where interno = 'OP1' "
     "group by "
     "id,estadistica,deresp",
     Espera::Filas, "INTERNOS", "<null>|01|<null>|1\n<null>|08|01|-1\n1|01||10\n2|01|01|0"},
    {"KilosOfAnItem",
     "update item set totalkneto = 10 , valorrelacionestadistica = 10  where interno = 'OP1' and id = 1",
     Espera::Filas, "INTERNOS", "1"},
    {"KilosOfTheOperation", "update item set totalkneto = 30 where interno = 'OP1' and id = 0", Espera::Filas,
     "INTERNOS", "1"},
    {"FobOfTheGroups", "select sum(fob) as total from groupsubitems where interno = 'OP1' and id <> 0",
     Espera::Filas, "INTERNOS", "400.005"},
    {"FobAndKilosOfTheItems",
     "select sum(fobtotal) as total,sum(totalkneto) as totalk from item where interno = 'OP1' and id <> 0 "
     "and totalkneto > "
     "0",
     Espera::Filas, "INTERNOS", "380|30"},
    // 100 * 20 / 480 = 4.1666...
    {"SpreadOverTheItems",
     "select id,ROUND(((fobtotal * 20) / 480),2) as valor from item where id <> 0 and totalkneto = 0 and "
     "interno = 'OP1'",
     Espera::Filas, "INTERNOS", "2|4.17"},
    {"KilosOfTheItemSpread", "update item set totalkneto = 4.17 where id = 2 and interno = 'OP1'",
     Espera::Filas, "INTERNOS", "1"},
    {"KilosOfAllItems", "select sum(totalkneto) as totalk from item where id>0 and interno = 'OP1'",
     Espera::Filas, "INTERNOS", "30"},
    {"FirstAboveAQuotedNumber",
     "select top 1 id,totalkneto from item where totalkneto>'10' and id>0 and interno = 'OP1'", Espera::Filas,
     "INTERNOS", "3|20"},
    {"FirstAboveANegativeQuotedNumber",
     "select top 1 id,totalkneto from item where totalkneto>'-0.01' and id>0 and interno = 'OP1'",
     Espera::Filas, "INTERNOS", "1|10"},
    {"ResidualOfTheQuantity",
     "update item set cantidad = cantidad + 0.01 where idunidad = '01' and id = 1 and interno = 'OP1'",
     Espera::Filas, "INTERNOS", "1"},
    {"NegativeResidualOfTheQuantity",
     "update item set cantidad = cantidad + -0.01 where idunidad = '01' and id = 1 and interno = 'OP1'",
     Espera::Filas, "INTERNOS", "1"},
    {"ResidualOfTheStatistics",
     "update item set valorrelacionestadistica = valorrelacionestadistica + 0.01 where estadistica = '01' "
     "and id = 1 and "
     "interno = 'OP1'",
     Espera::Filas, "INTERNOS", "1"},
    {"ResidualOfTheSpecific",
     "update item set valorderesp = valorderesp + 0.01 where deresp = '01' and id = 2 and interno = 'OP1'",
     Espera::Filas, "INTERNOS", "1"},
    {"MeasuresOfAnItem",
     "select sum(fob) as total,sum(valorrelacionestadistica) as ue, sum(valorderesp) as "
     "ude,estadistica,deresp from "
     "groupsubitems where (estadistica = '01' or deresp = '01') and (valorrelacionestadistica > 0 or "
     "valorderesp > 0) and "
     "interno = 'OP1' and id = 1 group by estadistica,deresp",
     Espera::Filas, "INTERNOS", "150|15|0|01|"},
    {"EmptyMeasuresOfAnItem",
     "select sum(fob) as total,sum(valorrelacionestadistica) as ue, sum(valorderesp) as "
     "ude,estadistica,deresp from "
     "groupsubitems where (estadistica = '01' or deresp = '01') and (valorrelacionestadistica = 0 or "
     "valorderesp = 0) and "
     "interno = 'OP1' and id = 2 group by estadistica,deresp",
     Espera::Filas, "INTERNOS", "100.005|0|0|01|01"},
    {"MeasureIsEmptied",
     "update groupsubitems set valorrelacionestadistica = 0 where estadistica = '01' and id = 1 and interno "
     "= 'OP1'",
     Espera::Filas, "INTERNOS", "2"},
    {"MeasureAndKilosOfTheGroups",
     "update groupsubitems set kgneto = ROUND(((fob * 5) / 300),2), valorrelacionestadistica = ROUND(((fob * "
     "5) / 300),2) where estadistica = '01' and valorrelacionestadistica = 0 and id = 1 and interno = 'OP1'",
     Espera::Filas, "INTERNOS", "1"},
    {"BothMeasuresAreEmptied",
     "update groupsubitems set valorrelacionestadistica = 0, valorderesp = 0 where estadistica = '01' and "
     "deresp = '01' and id = 2 and interno = 'OP1'",
     Espera::Filas, "INTERNOS", "1"},
    {"FobOfTheGroupsThatShare",
     "select sum(fob) as total from groupsubitems where estadistica = '01' and valorrelacionestadistica = 0 "
     "and id = 1 and interno = 'OP1'"},
    {"SumOfAMeasure",
     "select sum(valorrelacionestadistica) as total from groupsubitems where estadistica = '01' and id = 1 and "
     "interno = 'OP1'",
     Espera::Filas, "INTERNOS", "15"},
    {"LargestMeasureOfAll",
     "select top 1 * from groupsubitems where interno = 'OP1' and id = 1 and estadistica = '01' order by "
     "valorrelacionestadistica desc"},
    {"RoundedSumOfAMeasure",
     "select ROUND(sum(valorrelacionestadistica),2) as total from groupsubitems where id = 1 and interno = "
     "'OP1'",
     Espera::Filas, "INTERNOS", "15"},
    {"OwnMeasureOfAnItem",
     "update item set valorrelacionestadistica = 15 where estadistica = '01' and id = 1 and interno = 'OP1'",
     Espera::Filas, "INTERNOS", "1"},
    {"HeaviestItems",
     "select id,totalkneto from item where id>0 and interno = 'OP1' order by totalkneto desc", Espera::Filas,
     "INTERNOS", "3|20\n1|10\n2|0"},
    {"ItemsWithoutKilos",
     "select count(*) as cant from item where id <> 0 and totalkneto = 0 and interno = 'OP1'", Espera::Filas,
     "INTERNOS", "1"},
    {"LargestMeasureForTheResidual",
     "select top 1 * from groupsubitems where interno = 'OP1' and id = 1 and estadistica = '01' and "
     "valorrelacionestadistica > 0.01 order by valorrelacionestadistica desc"},
    {"EmptyGroupsByItem",
     "select id,COUNT(*) as cant from groupsubitems where kgneto = 0 and (estadistica = '01' or deresp = "
     "'01' or idunidad "
     "= '01') and interno = 'OP1' GROUP BY ID",
     Espera::Filas, "INTERNOS", "2|1"},
    {"HeavyGroupAboveAQuotedNumber",
     "select top 1 * from groupsubitems where interno = 'OP1' and ID = 1 And kgneto > '0.01' order by kgneto "
     "desc"},
    {"FloorOfTheStatistics",
     "update groupsubitems set valorrelacionestadistica = 0.01 where estadistica = '01' and "
     "valorrelacionestadistica = 0 "
     "and interno = 'OP1' and id = 2",
     Espera::Filas, "INTERNOS", "1"},
    {"FloorOfTheSpecific",
     "update groupsubitems set valorderesp = 0.01 where deresp = '01' and valorderesp = 0 and interno = "
     "'OP1' and id = 2",
     Espera::Filas, "INTERNOS", "1"},
    {"FloorOfTheKilos",
     "update groupsubitems set kgneto = 0.01 where kgneto = 0 and interno = 'OP1' and id = 2", Espera::Filas,
     "INTERNOS", "1"},
    {"ItemsOfOtherMeasures",
     "select id from item where (estadistica<>'01' and deresp<>'01') and totalkneto > 0 and interno = 'OP1'",
     Espera::Filas, "INTERNOS", "3"},
    {"EmptyGroupsOfAnItem",
     "select count(*) as cant from groupsubitems where kgneto = 0 and id = 2 and interno = 'OP1'",
     Espera::Filas, "INTERNOS", "1"},
    {"ItemsInKilos",
     "select id from item where (estadistica='01' or deresp = '01') and interno = 'OP1' and "
     "(valorrelacionestadistica > 0 "
     "or valorderesp > 0)",
     Espera::Filas, "INTERNOS", "1\n2"},
    {"FilledMeasures",
     "select estadistica,deresp,ROUND(sum(valorrelacionestadistica),2) as est,ROUND(sum(valorderesp),2) as "
     "esp from "
     "groupsubitems where (valorrelacionestadistica > 0 or valorderesp > 0) and id = 1 and interno= 'OP1' "
     "group by "
     "estadistica,deresp",
     Espera::Filas, "INTERNOS", "01||15|0"},
    {"NetKilosFromTheMeasure", "update item set totalkneto = 15 where id = 1 and interno = 'OP1'",
     Espera::Filas, "INTERNOS", "1"},
    {"EmptyStatistics",
     "select estadistica,deresp,ROUND(sum(valorrelacionestadistica),2) as est,ROUND(sum(valorderesp),2) as "
     "esp from "
     "groupsubitems where valorrelacionestadistica = 0 and id = 1 and interno= 'OP1' group by "
     "estadistica,deresp",
     Espera::Filas, "INTERNOS", "01||0|0"},
    {"EmptySpecific",
     "select estadistica,deresp,ROUND(sum(valorrelacionestadistica),2) as est,ROUND(sum(valorderesp),2) as "
     "esp from "
     "groupsubitems where valorderesp = 0 and id = 2 and interno= 'OP1' group by estadistica,deresp",
     Espera::Filas, "INTERNOS", "01|01|0|0"},
    {"NoEmptyMeasure",
     "select estadistica,deresp,ROUND(sum(valorrelacionestadistica),2) as est,ROUND(sum(valorderesp),2) as "
     "esp from "
     "groupsubitems where (valorrelacionestadistica = 123456 or valorderesp = 123456) and id = 1 and "
     "interno= 'OP1' group "
     "by estadistica,deresp",
     Espera::Nada},
    {"GroupsOfTheReport",
     "select "
     "ncm,idunidad,cantidad,preciounitario,estadistica,valorrelacionestadistica,deresp,valorderesp,kgneto "
     "from "
     "groupsubitems where id = 1 and interno = 'OP1'",
     Espera::Filas, "INTERNOS",
     "8409.91.12.100G|01|15|10|01|15||0|5\n8409.91.12.100g|01|15|10.005|01|0||0|5"},
};
SENTENCIAS(Kilos, kilos);

const Caso codigosDeProrrateo[] = {
    {"Codes", "select * from prorrateo where interno = 'OP1'", Espera::Filas, "INTERNOS",
     "OP1|A|Flete interno|30\nOP1|Z|Sin uso|10.5"},
    {"TotalOfTheCodes", "select sum(valor) as tot from prorrateo where interno = 'OP1'", Espera::Filas,
     "INTERNOS", "40.5"},
    {"CodeExists", "select count(1) as cont from prorrateo where codigo = 'a' and interno = 'OP1'",
     Espera::Filas, "INTERNOS", "1"},
    {"NewCode", "Insert into prorrateo (interno,codigo,descripcion,valor) values ('OP1','B','Otro',-2.5)",
     Espera::Filas, "INTERNOS", "1"},
    {"CodeIsRemoved", "delete from prorrateo where interno = 'OP1' and codigo = 'A'", Espera::Filas,
     "INTERNOS", "1"},
};
SENTENCIAS(ProrationCodes, codigosDeProrrateo);

}  // namespace
