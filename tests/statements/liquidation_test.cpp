// Statements of the liquidation, of the edition of concepts and of the item screen.

#include "tests/statements/casos.h"

namespace {

const Caso recalculo[] = {
    {"StoredConcepts",
     "select idconceptos,conceptos,ROUND(porcentaje,2),baseimp,total,pgc,motivo from itemliq where total>0 "
     "and interno = "
     "'OP1' and iditem = 1 order by idconceptos",
     Espera::Filas, "INTERNOS",
     "010|DERECHOS|14|300|42|P|\n422|IVA AD|20|<null>|60.123|P|<null>\n900|IB|2.5|<null>|7.5|P|<null>"},
    {"Header", "select * from caratula where interno = 'OP1'"},
    {"FobOfTheGroups", "select sum(fob) as total from groupsubitems where interno = 'OP1'", Espera::Filas,
     "INTERNOS", "500.255"},
    {"FobWithoutTypeG", "select sum(fobtotal) as total from item where interno = 'OP1' and tipoitem <> 'G'",
     Espera::Filas, "INTERNOS", "380"},
    {"Items", "select * from item where interno = 'OP1' and id<>0"},
    {"AmountsOfAnItem",
     "select SUM(fobtotal) as vfob,sum(itflete) as flete,sum(itseguro) as seguro from item where interno = "
     "'OP1' and id = "
     "1",
     Espera::Filas, "INTERNOS", "300|60.5|6"},
    {"AmountsOfTheOperation",
     "select SUM(fobtotal) as vfob,sum(itflete) as flete,sum(itseguro) as seguro from item where interno = "
     "'OP1' and id <> "
     "0",
     Espera::Filas, "INTERNOS", "480|101|10"},
    {"RatesOfAPosition",
     "select [015],[016],[017],[018],[019],[020],[023],[026],[028],[053],[048],[059] as lapi from ncm where "
     "[001] = "
     "'8409.91.12' and [002] = '100'",
     Espera::Filas, "NCM", "14|0|0|5|2,5|01|<null>|21|*||0.5|*"},
    {"RatesOfNoPosition",
     "select [015],[016],[017],[018],[019],[020],[023],[026],[028],[053],[048],[059] as lapi from ncm where "
     "[001] = "
     "'0000.00.00' and [002] = '000'",
     Espera::Nada, "NCM"},
    {"OwnRateOfTheDuty",
     "select porcentaje from itemliq where idconceptos = '010' and interno = 'OP1' and iditem = 1",
     Espera::Filas, "INTERNOS", "14"},
    {"OwnRateOfTheAdditional",
     "select porcentaje from itemliq where idconceptos = '016' and interno = 'OP1' and iditem = 1 and valor "
     "= 1",
     Espera::Filas, "INTERNOS", "24"},
    {"NoOwnRateOfTheAdditional",
     "select porcentaje from itemliq where idconceptos = '016' and interno = 'OP1' and iditem = 2 and valor "
     "= 1",
     Espera::Nada},
    {"SpecificOfChina", "select diem from DIEMCHINA where ncm = '8409.91.12'", Espera::Filas, "SYSTABLAS",
     "3.5"},
    {"ConceptsOfAnItem",
     "select * from itemliq where iditem> 0 and interno = 'OP1' and iditem = 1 ORDER BY idconceptos"},
    {"ExportCoefficient", "update item set COFEXP = 0.98765 where interno = 'OP1' and id = 1", Espera::Filas,
     "INTERNOS", "1"},
    {"NoCarParts", "delete from itemventaja where interno = 'OP1' and idventaja = 'VEHICULOPARTES'",
     Espera::Filas, "INTERNOS", "2"},
    {"NoTotals", "delete from liqcero where interno = 'OP1'", Espera::Filas, "INTERNOS", "4"},
    {"NameOfAConcept", "select LTAXABR as descripcion from tax where ctax = '010'", Espera::Filas, "INTERNOS",
     "DERECHOS"},
    {"NewTotal",
     "insert into liqcero (idconcepto,concepto,valor,interno,pgc) values ('501','ARANCEL SIM "
     "EXPO',10.00,'OP1','P')",
     Espera::Filas, "INTERNOS", "1"},
    {"BaseOfVat", "insert into liqcero (idconcepto,valor,interno) values ('###baseiva',342.1,'OP1')",
     Espera::Filas, "INTERNOS", "1"},
    {"TaxableBase", "insert into liqcero (idconcepto,valor,interno) values ('###baseimp',300,'OP1')",
     Espera::Filas, "INTERNOS", "1"},
    {"Deductions", "insert into liqcero (idconcepto,valor,interno) values ('###ajded',0,'OP1')",
     Espera::Filas, "INTERNOS", "1"},
    {"Additions", "insert into liqcero (idconcepto,valor,interno) values ('###ajinc',1.5,'OP1')",
     Espera::Filas, "INTERNOS", "1"},
    {"ConceptIsWrittenBack",
     "update itemliq set baseimp = 300,porcentaje = 14,total = 42.01,pgc = 'P',motivo = '' where interno = "
     "'OP1'   and "
     "iditem = 1  and idconceptos = '010'",
     Espera::Filas, "INTERNOS", "1"},
    {"CarPartsThereAre",
     "select idventaja from itemventaja where iditem = 1 and idventaja = 'VEHICULOPARTES' and interno = "
     "'OP1'",
     Espera::Filas, "INTERNOS", "VEHICULOPARTES"},
    {"NewCarParts", "insert into itemventaja (iditem,idventaja,interno) values (3,'VEHICULOPARTES','OP1')",
     Espera::Filas, "INTERNOS", "1"},
    {"ListOfAnUntouchedItem",
     "UPDATE item set lista = 'MERCOSUR' where id = 1 and interno = 'OP1' and (itmodif<>'S' or itmodif is "
     "null)",
     Espera::Filas, "INTERNOS", "1"},
    {"ListOfATouchedItem",
     "UPDATE item set lista = 'MERCOSUR' where id = 2 and interno = 'OP1' and (itmodif<>'S' or itmodif is "
     "null)",
     Espera::Nada},
    {"InternalTaxes", "select decreto, tasa_nominal from impuestos_internos where ncm = '8409.91.12'",
     Espera::Filas, "USUARIO", "D1|17"},
};
SENTENCIAS(Recalculation, recalculo);

const Caso edicion[] = {
    {"ConceptsToAdd",
     "select distinct CTAX,LTAXABR from tax where not exists(select idconceptos,conceptos from itemliq where "
     "idconceptos = CTAX and iditem = 1 and interno = 'OP1' and total > 0) order by LTAXABR",
     Espera::Filas, "INTERNOS", "415|IVA\n011|TASA ESTADISTICA"},
    {"AllConcepts", "select distinct CTAX,LTAXABR from tax order by LTAXABR", Espera::Filas, "INTERNOS",
     "010|DERECHOS\n415|IVA\n422|IVA\n011|TASA ESTADISTICA"},
    {"ConceptWithTotal",
     "select count(idconceptos) as cont from itemliq where total >0 and interno = 'OP1' and idconceptos = "
     "'010' and iditem "
     "= 1",
     Espera::Filas, "INTERNOS", "1"},
    {"ConceptWithoutTotal",
     "select count(idconceptos) as cont from itemliq where (total=0 or total is null) and interno = 'OP1' "
     "and idconceptos = '415' and iditem = 1",
     Espera::Filas, "INTERNOS", "1"},
    {"NewConcept",
     "insert into ITEMLIQ "
     "(iditem,idconceptos,conceptos,interno,PGC,motivo,porcentaje,porcentajeb,baseimp,total,valor) "
     "values (1,'011','TASA ESTADISTICA','OP1','P','',3,3,300,9,1)",
     Espera::Filas, "INTERNOS", "1"},
    {"ConceptIsChanged",
     "update itemliq set idconceptos = '011',conceptos = 'TASA',pgc = 'G',motivo = 'M',porcentaje = "
     "3,porcentajeB = "
     "3,baseimp = 300,total = 9, valor = 1 where interno = 'OP1' and idconceptos = '010' and iditem = 1",
     Espera::Filas, "INTERNOS", "1"},
    {"TotalThatIsNoNumberIsRefused",
     "update itemliq set idconceptos = '011',conceptos = 'TASA',pgc = 'G',motivo = 'M',porcentaje = "
     "3,porcentajeB = "
     "3,baseimp = 300,total = [baseimp no es un número],valor = 1 where interno = 'OP1' and idconceptos = "
     "'010' and iditem = 1",
     Espera::Rechazo},
    {"NewTotalThatIsNoNumberIsRefused",
     "insert into ITEMLIQ "
     "(iditem,idconceptos,conceptos,interno,PGC,motivo,porcentaje,porcentajeb,baseimp,total,valor) "
     "values (1,'011','TASA ESTADISTICA','OP1','P','',3,3,300,[9; no es un número],1)",
     Espera::Rechazo},
};
SENTENCIAS(Concepts, edicion);

const Caso pantalla[] = {
    {"ConceptIsRemoved", "delete from itemliq where interno = 'OP1' and iditem = 1 and idconceptos = '010'",
     Espera::Filas, "INTERNOS", "1"},
    {"GroupsOfAnItem",
     "select "
     "idarticulo,ncm,descripcion,idunidad,cantidad,preciounitario,fob,sufijos,estadistica,"
     "valorrelacionestadistica "
     "from groupsubitems where id = 1 and interno = 'OP1'  ORDER BY idsub",
     Espera::Filas, "INTERNOS",
     "ART1|8409.91.12.100G|Bielas|01|15|10|150|AA01-|01|15\nART2|8409.91.12.100g|bielas|01|15|10.005|150|"
     "aa01-|01|0"},
    {"CertificatesOfOrigin",
     "select certorig from subitems where interno = 'OP1' and  (certorig is not null and certorig<>'') and  "
     "id in ( select "
     "* from (  select idsub from groupsubitems where interno = 'OP1' and id = 1 Union  select idsub from "
     "idrel where "
     "interno = 'OP1' and idroot in (  select idsub from groupsubitems where interno = 'OP1'  and id = 1)) "
     "as tino ) ",
     Espera::Filas, "INTERNOS", "CO1"},
    {"Information", "select * from iteminfo where iditem = 1 and interno = 'OP1'", Espera::Filas, "INTERNOS",
     "1|MARCA|Ñandú|OP1"},
    {"Advantages", "select * from itemventaja where iditem = 1 and interno ='OP1' order by idventaja",
     Espera::Filas, "INTERNOS", "1|AUTOLIQLIBREIMP|OP1\n1|VEHICULOPARTES|OP1"},
    {"AmountsOfItemZero",
     "select sum(fobtotal) as fob,sum(itflete) as flete,sum(itseguro) as seguro from item where interno = "
     "'OP1' and id<>0",
     Espera::Filas, "INTERNOS", "480|101|10"},
    {"CancellationsOfAnItem",
     "select dit,item,subitem,ncm,expctit,cantidad,factorponderacion from descargas where interno = 'OP1' "
     "and iditem =  1 "
     "order by dit, item, subitem",
     Espera::Filas, "INTERNOS", "26|1|2|<null>|<null>|2|<null>"},
    {"CancellationsOfAnItemAndOfItsLines",
     "select dit,item,subitem,ncm,expctit,cantidad,factorponderacion from descargas where interno = 'OP1' "
     "and (iditem =  1 or (iditem is null and idexportacion<>0 and idexportacion in (select idexportacion from "
     "subitems where interno = 'OP1' and id in ( select * from (  select idsub from groupsubitems where "
     "interno = 'OP1' and id = 1 Union  select idsub from idrel where interno = 'OP1' and idroot in (  select "
     "idsub from groupsubitems where interno = 'OP1'  and id = 1)) as tino )))) order by dit, item, subitem"},
    {"ListsOfAnItem", "select distinct id from lista order by id", Espera::Filas, "SYSTABLAS"},
    {"NumberOfItems", "select count(*) as cont from item where interno = 'OP1' and id<>0"},
    {"PageIsSaved",
     "update item set naladisa = '8409', lista = 'MERCOSUR', estadomerc = '1', totalkneto = 10.5, idpais = "
     "'203', "
     "insumostemp = 0,insumosacons = 0,idproc = '203', ajusteinc = 00.00, ajusteded = 00.00, regalias = 'N', "
     "tipoitem = "
     "'N', standard = 'N',ItComExt = 3,ItemAsociado = '',COFEXP = 0,ONCCAAcuerdo = ' ',ONCCACategoria = "
     "'',ONCCACortes= '',ONCCAElaborador = '',ONCCAEspecie = '',ONCCAFaneador = '',ONCCAMeccoorgbio = "
     "'',ONCCAres3106 = "
     "'',ONCCAsispro = '',ONCCAMatadero = '',Mineria = 'N',OpcionesIVA = '',OpcionesGanancias = ''  where id "
     "= 1 and "
     "interno = 'OP1'",
     Espera::Filas, "INTERNOS", "1"},
    {"NoDutiesOfMercosur",
     "update itemliq set porcentaje = 0, total= '0' where interno = 'OP1' and idconceptos in "
     "('020','010','015','011') and "
     "iditem = 1",
     Espera::Filas, "INTERNOS", "1"},
    {"DutiesOfAnotherList",
     "update itemliq set porcentaje = NULL where porcentaje = 0 and interno = 'OP1' and idconceptos in "
     "('020','010','015','011') and iditem = 2",
     Espera::Filas, "INTERNOS", "1"},
    {"NaladisaOfItemZero", "update item set naladisa = '8409' where id = 0 and interno = 'OP1'",
     Espera::Filas, "INTERNOS", "1"},
    {"NaladisaOfAllItems", "update item set naladisa = '8409' where interno = 'OP1'", Espera::Filas,
     "INTERNOS", "4"},
    {"NoDutiesOfMercosurOfAllItems",
     "update itemliq set porcentaje = 0 where interno = 'OP1' and idconceptos in ('020','010','015','011')",
     Espera::Filas, "INTERNOS", "2"},
    {"DutiesOfAnotherListOfAllItems",
     "update itemliq set porcentaje = NULL where porcentaje = 0 and interno = 'OP1' and idconceptos in "
     "('020','010','015','011')",
     Espera::Filas, "INTERNOS", "1"},
    {"AdditionsOfItemZero", "update item set ajusteinc = 5.25 where id = 0 and interno = 'OP1'",
     Espera::Filas, "INTERNOS", "1"},
    // 300 * 5.25 / 380 and 80 * 5.25 / 380
    {"AdditionsByQuotedNumbers",
     "select id,((fobtotal) * '5.25') / ('380') as valor from item where id<> 0 and interno = 'OP1' and "
     "tipoitem <> 'G'",
     Espera::Filas, "INTERNOS", "1|4.14473684210526\n3|1.10526315789474"},
    {"AdditionsOverAQuotedZeroAreRefused",
     "select id,((fobtotal) * '5.25') / ('0') as valor from item where id<> 0 and interno = 'OP1' and "
     "tipoitem <> 'G'",
     Espera::Rechazo},
    {"AdditionOfAnItemAsText", "update item set ajusteinc ='4.14' where id = 1 and interno = 'OP1'",
     Espera::Filas, "INTERNOS", "1"},
    {"AdditionOfItemZeroAlone", "update item set ajusteinc = 5 where id=0 and interno = 'OP1'", Espera::Filas,
     "INTERNOS", "1"},
    {"DeductionsWithTwoOperatorsAreRefused",
     "select id,((fobtotal) * '5.25') / ('380') as valor from item where id<> 0 and interno = 'OP1' and "
     "tipoitem = <> 'G'",
     Espera::Rechazo},
    {"DeductionOfAnItemAsText", "update item set ajusteded ='4.14' where id = 1  and interno = 'OP1'",
     Espera::Filas, "INTERNOS", "1"},
    {"NoDeduction", "update item set ajusteded = 0 where id = 0  and interno = 'OP1'", Espera::Filas,
     "INTERNOS", "1"},
    {"AdditionsOnLoading",
     "select id,(FOBtotal * 5) / (380) as valor from item where id<>0 and interno = 'OP1' and tipoitem <> "
     "'G'",
     Espera::Filas, "INTERNOS", "1|3.94736842105263\n3|1.05263157894737"},
    {"AdditionsOverNothingAreRefused",
     "select id,(FOBtotal * 5) / (0) as valor from item where id<>0 and interno = 'OP1' and tipoitem <> 'G'",
     Espera::Rechazo},
    {"AdditionOnLoading", "update item set ajusteinc = 3.95 where id = 1 and interno = 'OP1'", Espera::Filas,
     "INTERNOS", "1"},
    {"DeductionsOnLoading",
     "select id,(FOBtotal * 7) / (380) as valor from item where id<>0 and interno = 'OP1' and tipoitem<>'G'",
     Espera::Filas, "INTERNOS", "1|5.52631578947368\n3|1.47368421052632"},
    {"CatalogueOfInformation", "select * from informacion order by id", Espera::Filas, "SYSTABLAS",
     "MARCA|Marca"},
    {"CatalogueOfAdvantages", "select * from ventajas order by id", Espera::Filas, "SYSTABLAS",
     "VEHICULOPARTES|Autopartes"},
    {"InformationThereIs",
     "select count(*) as c from iteminfo where iditem =1 and idinfo = 'MARCA' and interno = 'OP1'",
     Espera::Filas, "INTERNOS", "1"},
    {"NewInformation", "insert into iteminfo (iditem,idinfo,valor,interno) values (1,'MODELO','X 1','OP1')",
     Espera::Filas, "INTERNOS", "1"},
    {"ItemsThatTakeIt", "select id from item where id<>0 and interno = 'OP1'", Espera::Filas, "INTERNOS",
     "1\n2\n3"},
    {"InformationOfItemZeroThereIs",
     "select count(*) as cont from iteminfo where iditem = 0 and idinfo  = 'MARCA' and interno = 'OP1'",
     Espera::Filas, "INTERNOS", "1"},
    {"MarkOfFreeLiquidation", "update item set lman = 'M' where interno = 'OP1' and id = 1", Espera::Filas,
     "INTERNOS", "1"},
    {"AdvantageThereIs",
     "select count(*) as c from itemventaja where iditem =1 and idventaja = 'vehiculopartes' and interno = "
     "'OP1'",
     Espera::Filas, "INTERNOS", "1"},
    {"InformationIsRemoved", "delete from iteminfo where iditem = 1 and idinfo = 'MARCA' and interno = 'OP1'",
     Espera::Filas, "INTERNOS", "1"},
    {"InformationIsRemovedFromAll", "delete from iteminfo where idinfo = 'MARCA' and interno = 'OP1'",
     Espera::Filas, "INTERNOS", "2"},
    {"AdvantageIsRemovedFromAll",
     "delete from itemventaja where idventaja = 'VEHICULOPARTES' and interno = 'OP1'", Espera::Filas,
     "INTERNOS", "2"},
    {"NoMarkOfFreeLiquidation", "update item set lman = '' where interno = 'OP1' and id = 1", Espera::Filas,
     "INTERNOS", "1"},
    {"TouchedList", "update item set itmodif = 'S' where interno = 'OP1' and id = 1", Espera::Filas,
     "INTERNOS", "1"},
};
SENTENCIAS(ItemScreen, pantalla);

}  // namespace
