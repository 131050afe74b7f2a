// Statements of the items, of their duty rows, of the kilos and of the proration codes.

#include "tests/statements/casos.h"

namespace {

#define PARTES_DE(descripcion)                                                                               \
    "select count(*),interno,ncm,estadistica," descripcion                                                   \
    "idpais,idpaisproc,idunidad,estadomerc,biendeuso,sum(valorrelacionestadistica) as valrel,deresp,"        \
    "sum(valorderesp) as valder,sum(cantidad) as cant,lapi,sum(FOB) as fobtotal, sum(kgneto) as rkgneto, "   \
    "sum(kgbruto) as rkgbruto,itfiller,cancelaciones,codigoean,tipoitem From groupsubitems where interno = " \
    "'OP1' group by interno,ncm,estadistica," descripcion                                                    \
    "idpais,idpaisproc,idunidad,estadomerc,deresp,biendeuso,lapi,itfiller,cancelaciones,codigoean,tipoitem " \
    "having count(*)>"
#define POR_POSICION(descripcion)                                                                            \
    "select interno,ncm," descripcion                                                                        \
    "estadistica,idpais,idpaisproc,idunidad,estadomerc,biendeuso,sum(ROUND(valorrelacionestadistica,2)) as " \
    "valrel,deresp,sum(ROUND(valorderesp,2)) as valder,sum(cantidad) as cant,lapi,sum(FOB) as fobtotal, "    \
    "sum(ROUND(kgneto,2)) as rkgneto, sum(kgbruto) as rkgbruto,itfiller,sum(insumostemp) as tinsumostemp, "  \
    "sum(insumosacons) as tinsumosacons,cancelaciones, tipoitem,ONCCACategoria,ONCCACortes, "                \
    "sum(ajusteincluir) "                                                                                    \
    "as tajusteincluir,sum(ajustededucir) as tajustededucir  from groupsubitems where interno = 'OP1' "      \
    "group by "                                                                                              \
    "interno,ncm,descripcion,estadistica,idpais,idpaisproc,idunidad,estadomerc,deresp,biendeuso,lapi,"       \
    "itfiller,"                                                                                              \
    "cancelaciones,tipoitem,ONCCACategoria,ONCCACortes order by tipoitem desc, ncm, itfiller"
#define COMPARACIONES(descripcion)                                                                           \
    "(groupsubitems.interno = item.Interno and groupsubitems.ncm = item.NCM and " descripcion                \
    "(groupsubitems.idpais = item.Idpais or groupsubitems.idpais is null) and (groupsubitems.idpaisproc = "  \
    "item.Idproc or groupsubitems.idpaisproc is null) and groupsubitems.idunidad = item.idunidad and "       \
    "(groupsubitems.itfiller = item.itfiller or groupsubitems.itfiller is null) and "                        \
    "(groupsubitems.estadomerc = "                                                                           \
    "item.estadomerc or groupsubitems.estadomerc is null) and groupsubitems.biendeuso = item.Biendeuso and " \
    "groupsubitems.cancelaciones = item.cancelaciones and groupsubitems.tipoitem = item.tipoitem)"
#define DJAI "(groupsubitems.descripcion = item.descripcion or groupsubitems.descripcion is null) and "

const Caso items[] = {
    {"GroupsWithGrossKilos",
     "select count(*) as cant from groupsubitems where interno = 'OP1' and kgbruto > 0", Espera::Filas,
     "INTERNOS", "2"},
    {"GroupsWithoutGrossKilos",
     "select count(*) as cant from groupsubitems where interno = 'OP1' and kgbruto = 0", Espera::Filas,
     "INTERNOS", "1"},
    {"GrossKilos", "select sum(kgbruto) as total from groupsubitems where interno = 'OP1'", Espera::Filas,
     "INTERNOS", "15"},
    {"GrossKilosOfThePackages", "update caratula set BULPES= 15 where interno = 'OP1'", Espera::Filas,
     "INTERNOS", "1"},
    {"NoGrossKilosOfThePackages", "update caratula set BULPES = 0 where interno = 'OP1'", Espera::Filas,
     "INTERNOS", "1"},
    {"LargeItems", PARTES_DE("") "300", Espera::Nada},
    {"LargeItemsOfTheDjai", PARTES_DE("descripcion,") "300", Espera::Nada},
    {"ItemsOfMoreThanOne", PARTES_DE("") "1"},
    {"ItemsOfMoreThanOneOfTheDjai", PARTES_DE("descripcion,") "1"},
    {"GroupsOfALargeItem",
     "select * from groupsubitems where interno = 'OP1' and ncm = '8409.91.12.100G' and idunidad = '01' and "
     "idpais = '203' "
     "and idpaisproc = '203' and itfiller = 'LISTA:314' and estadomerc = '1' and biendeuso = 'N' and "
     "cancelaciones = 'OK' "
     "and codigoean = '' and tipoitem = 'N' "},
    {"GroupsOfALargeItemWithNulls",
     "select * from groupsubitems where interno = 'OP1' and ncm = '9403.20.00.000A' and idunidad = '01' and "
     "Descripcion = "
     "'Mesas ''grandes''' and idpais is null and idpaisproc is null and itfiller is null and estadomerc is "
     "null and "
     "biendeuso = 'S' and cancelaciones is null and codigoean is null and tipoitem = 'G' "},
    {"FirstGroupWithoutItem",
     "select top 1 * from groupsubitems where interno = 'OP1' and id is null order by idsub"},
    {"GroupsTakeTheirItem",
     "update groupsubitems set id = 3 where interno = 'OP1' and ncm = '9403.20.00.000A' and idunidad = '01' "
     "and idpais is "
     "null and idpaisproc is null and itfiller is null and estadomerc is null and biendeuso = 'S' and "
     "cancelaciones is "
     "null and ONCCACategoria is null and ONCCACortes is null ",
     Espera::Filas, "INTERNOS", "1"},
    // 15 + 0; 0 + 0; 15 + 15; 150 + 150; 5 + 5; 12 + 0; 12.5 + 0; 3 + 0; 1.5 + 0; 0 + 0
    {"SumsOfAnItem",
     "select sum(ROUND(valorrelacionestadistica,2)) as valrel, sum(ROUND(valorderesp,2)) as valder, "
     "sum(cantidad) as cant, "
     "sum(FOB) as fobtotal, sum(ROUND(kgneto,2)) as rkgneto, sum(kgbruto) As rkgbruto, sum(insumostemp) As "
     "tinsumostemp, "
     "sum(insumosacons) As tinsumosacons, sum(ajusteincluir) As tajusteincluir, sum(ajustededucir) As "
     "tajustededucir from "
     "groupsubitems where id = 1 and interno = 'OP1'",
     Espera::Filas, "INTERNOS", "15|0|30|300|10|12|12.5|3|1.5|0"},
    {"ItemsByPosition", POR_POSICION("")},
    {"ItemsByPositionOfTheDjai", POR_POSICION("descripcion,")},
    {"NewItem",
     "insert into item "
     "(interno,ncm,descripcion,idpais,idproc,idunidad,estadomerc,biendeuso,estadistica,"
     "valorrelacionestadistica,deresp,"
     "valorderesp,id,cantidad,totalkneto,fobtotal,totalkbruto,lapi,itfiller,insumostemp,insumosacons,"
     "cancelaciones,"
     "tipoitem,ONCCACategoria,ONCCACortes, ajusteinc, ajusteded) values "
     "('OP1','8409.91.12.100G','','203','203','01','1',"
     "'N','01',15,'',0,4,30,10.01,300.25,12,'','LISTA:314',12.5,3,'OK','N','','',1.5,0)",
     Espera::Filas, "INTERNOS", "1"},
    {"GroupsMeetTheirItems",
     "Update groupsubitems Set groupsubitems.ID = ITEM.ID from groupsubitems INNER JOIN item "
     "on " COMPARACIONES("") " where groupsubitems.interno = 'OP1'",
     Espera::Filas, "INTERNOS", "2"},
    {"GroupsMeetTheirItemsOfTheDjai",
     "Update groupsubitems Set groupsubitems.ID = ITEM.ID from groupsubitems INNER JOIN item "
     "on " COMPARACIONES(DJAI) " where groupsubitems.interno = 'OP1'",
     Espera::Filas, "INTERNOS", "2"},
    {"GroupsMeetTheirItemsOnTheFileStore",
     "Update groupsubitems Inner Join item On " COMPARACIONES(
         "") " Set groupsubitems.ID = ITEM.ID where groupsubitems.interno = 'OP1'",
     Espera::Filas, "INTERNOS", "2"},
    {"GroupsMeetTheirItemsOfTheDjaiOnTheFileStore",
     "Update groupsubitems Inner Join item On " COMPARACIONES(
         DJAI) " Set groupsubitems.ID = ITEM.ID where groupsubitems.interno = 'OP1'",
     Espera::Filas, "INTERNOS", "2"},
    {"ItemZero", "INSERT INTO item (id,interno,totalkneto) values (0,'OP3',0)", Espera::Filas, "INTERNOS",
     "1"},
    {"Provenance", "update item set idproc = '310' where interno = 'OP1' and (idproc = '' or idproc is null)",
     Espera::Filas, "INTERNOS", "3"},
    {"Standard", "update item set standard = 'S' where interno = 'OP1'", Espera::Filas, "INTERNOS", "4"},
    {"Royalties", "update item set regalias = 'S' where interno = 'OP1'", Espera::Filas, "INTERNOS", "4"},
    {"StateOfItemZero", "update item set EstadoMerc = '1' where id=0 and interno = 'OP1'", Espera::Filas,
     "INTERNOS", "1"},
    {"OriginOfItemZero", "update item set IdPais = '203' where id=0 and interno = 'OP1'", Espera::Filas,
     "INTERNOS", "1"},
    {"Acuerdo", "update item set ONCCAAcuerdo = '1' where interno = 'OP1'", Espera::Filas, "INTERNOS", "4"},
    {"Elaborador", "update item set ONCCAElaborador = '1' where interno = 'OP1'", Espera::Filas, "INTERNOS",
     "4"},
    {"Especie", "update item set ONCCAEspecie = '1' where interno = 'OP1'", Espera::Filas, "INTERNOS", "4"},
    {"Faneador", "update item set ONCCAFaneador = '1' where interno = 'OP1'", Espera::Filas, "INTERNOS", "4"},
    {"Matadero", "update item set ONCCAMatadero = '1' where interno = 'OP1'", Espera::Filas, "INTERNOS", "4"},
    {"Meccoorgbio", "update item set ONCCAMeccoorgbio = '1' where interno = 'OP1'", Espera::Filas, "INTERNOS",
     "4"},
    {"Res3106", "update item set ONCCARes3106 = '1' where interno = 'OP1'", Espera::Filas, "INTERNOS", "4"},
    {"SisPro", "update item set ONCCASisPro = '1' where interno = 'OP1'", Espera::Filas, "INTERNOS", "4"},
    {"OptionsOfVat", "update item set OpcionesIVA = 'A' where interno = 'OP1'", Espera::Filas, "INTERNOS",
     "4"},
    {"OptionsOfIncomeTax", "update item set OpcionesGanancias = 'A' where interno = 'OP1'", Espera::Filas,
     "INTERNOS", "4"},
    {"ForcedDescription", "update item set descripcion = 'Máquinas' where interno = 'OP1'", Espera::Filas,
     "INTERNOS", "4"},
    {"ForcedDescriptionOfTheGroups",
     "update groupsubitems set descripcion = 'Máquinas' where interno = 'OP1'", Espera::Filas, "INTERNOS",
     "5"},
    {"ListOfTheCars",
     "update item set LISTA = '314/R.AUTOMOTRIZ' where interno = 'OP1' and left(itfiller,9) = 'LISTA:314'",
     Espera::Filas, "INTERNOS", "1"},
    {"ListMercosur",
     "update item set LISTA = 'MERCOSUR' where interno = 'OP1' and left(itfiller,14) = 'LISTA:MERCOSUR'",
     Espera::Filas, "INTERNOS", "1"},
    {"List904", "update item set LISTA = '904/1' where interno = 'OP1' and left(itfiller,11) = 'LISTA:904/1'",
     Espera::Nada},
    {"List306", "update item set LISTA = '306' where interno = 'OP1' and itfiller = 'LISTA:306'",
     Espera::Filas, "INTERNOS", "1"},
    {"List355", "update item set LISTA = '355' where interno = 'OP1' and itfiller = 'LISTA:355'",
     Espera::Nada},
    {"List357", "update item set LISTA = '357' where interno = 'OP1' and itfiller = 'LISTA:357'",
     Espera::Nada},
    {"List359", "update item set LISTA = '359/3' where interno = 'OP1' and itfiller = 'LISTA:359/3'",
     Espera::Nada},
    {"NewInformation",
     "insert into ITEMINFO (INTERNO, IDITEM, IDINFO, VALOR) values ('OP1',1,'DATO-COMPRADOR','Juan  Ñandú')",
     Espera::Filas, "INTERNOS", "1"},
    {"ItemsOfTypeG", "select id from item where interno = 'OP1' and tipoitem = 'G'", Espera::Filas,
     "INTERNOS", "2"},
    {"RelatedItem", "Update item set itemasociado = '001' where interno = 'OP1' and tipoitem='D'",
     Espera::Filas, "INTERNOS", "1"},
};
SENTENCIAS(Items, items);

#define LISTA "('010','011','415','422','424','500')"

const Caso registros[] = {
    {"Client",
     "select cuit, "
     "eximgan,eximganvalor,eximganvalortemp,ivaareduccion,ivaareduccionvalor,cvdi,ivaareduccionvalortemp,"
     "ingbru,"
     "ExcepLAPIAEC from clientes where cuit = '30708123451'",
     Espera::Filas, "PERSONAL", "30708123451|S|50|0|N|0|S|0|2.5|N"},
    {"ItemsOfTheOperation", "select * from item where interno = 'OP1' and id<>0"},
    // 415 stands twice in the catalogue
    {"NewDuties",
     "insert into itemliq (PGC,iditem,idconceptos,interno,conceptos,porcentaje) select distinct "
     "CTAXPOG,2,ctax,'OP1',ltaxabr,porcentaje from tax where ctax in " LISTA,
     Espera::Filas, "INTERNOS", "4"},
    {"NewDutiesOfItemZero",
     "insert into itemliq (PGC,iditem,idconceptos,interno,conceptos,porcentaje) select distinct "
     "CTAXPOG,0,ctax,'OP1',ltaxabr,porcentaje from tax where ctax in ('010')",
     Espera::Filas, "INTERNOS", "1"},
    {"DutiesWithoutRate",
     "update itemliq set porcentaje = '0',baseimp = '0', total = '0' where interno = 'OP1' and iditem = 1 "
     "and idconceptos "
     "in " LISTA,
     Espera::Filas, "INTERNOS", "4"},
    {"ReducedVat",
     "update itemliq set porcentaje = 10.5 where idconceptos in ('415','852') and interno = 'OP1' and iditem "
     "= 1",
     Espera::Filas, "INTERNOS", "1"},
    {"GrossIncome",
     "update itemliq set porcentaje = 1.5 where idconceptos = '900' and interno = 'OP1' and iditem = 1",
     Espera::Filas, "INTERNOS", "1"},
    {"AdditionalVatFree",
     "update itemliq set porcentaje = 0.00001 where idconceptos in ('422','854') and interno = 'OP1' and "
     "iditem = 1",
     Espera::Filas, "INTERNOS", "1"},
    {"AdditionalVat",
     "update itemliq set porcentajeb = '5', porcentaje='10' where idconceptos in ('422','854') and interno = "
     "'OP1' and "
     "iditem = 1",
     Espera::Filas, "INTERNOS", "1"},
    {"AdditionalVatReduced",
     "update itemliq set porcentaje = ROUND((porcentaje * 2) - ((50 * (porcentaje * 2)) / 100),3) where "
     "idconceptos in "
     "('422','854') and interno = 'OP1' and iditem = 1",
     Espera::Filas, "INTERNOS", "1"},
    {"SecondAdditionalVatReduced",
     "update itemliq set porcentajeb = ROUND(((porcentajeb) * 2) - ((50 * (porcentajeb * 2)) / 100),3) where "
     "idconceptos "
     "in ('422','854') and interno = 'OP1' and iditem = 1",
     Espera::Filas, "INTERNOS", "1"},
    {"AdvantageOfAdditionalVat",
     "insert into itemventaja (iditem,interno,idventaja) values (1,'OP1','IVAADREDUCCION')", Espera::Filas,
     "INTERNOS", "1"},
    {"AdditionalVatOfTransit",
     "update itemliq set porcentajeb = '20', porcentaje='20' where idconceptos in ('422','854') and interno "
     "= 'OP1' and "
     "iditem = 1",
     Espera::Filas, "INTERNOS", "1"},
    {"AdditionalVatWithFactor",
     "update itemliq set porcentaje = porcentaje * 2, porcentajeb = porcentajeb * 2 where idconceptos in "
     "('422','854') and "
     "interno = 'OP1' and iditem = 1",
     Espera::Filas, "INTERNOS", "1"},
    {"IncomeTaxReduced",
     "update itemliq set porcentaje = ROUND((3 * 2) - ((50 * 3 * 2) / 100),2) where idconceptos in "
     "('424','856') and "
     "interno = 'OP1' and iditem = 1",
     Espera::Filas, "INTERNOS", "1"},
    {"AdvantageOfIncomeTax",
     "insert into itemventaja (iditem,interno,idventaja) values (1,'OP1','GANANEXIMICION')", Espera::Filas,
     "INTERNOS", "1"},
    {"IncomeTax",
     "update itemliq set porcentaje = 3 * 2 where idconceptos in ('424','856') and interno = 'OP1' and "
     "iditem = 1",
     Espera::Filas, "INTERNOS", "1"},
    {"IncomeTaxOfADecree",
     "update itemliq set porcentaje = 11 where idconceptos = '424' and interno = 'OP1' and iditem = 1",
     Espera::Filas, "INTERNOS", "1"},
    {"GuaranteedInTransit", "update itemliq set pgc = 'G' where interno = 'OP1' and iditem = 1",
     Espera::Filas, "INTERNOS", "6"},
    {"AdvantageOfSamples",
     "insert into itemventaja (iditem,interno,idventaja) values (1,'OP1','MUESTRAEXPO')", Espera::Filas,
     "INTERNOS", "1"},
    {"NoHandMark", "update itemliq set valor = 0 where interno = 'OP1'", Espera::Filas, "INTERNOS", "7"},
    {"GuaranteedByADecree",
     "update itemliq set pgc = 'G' where idconceptos not in ('900','500') and interno = 'OP1'", Espera::Filas,
     "INTERNOS", "6"},
    {"AdvantagesOfTheClient",
     "select * from VentajasRel where cuit = '30708123451' and (idSubRegimen = 'IC04' or (idSubRegimen = '' "
     "or "
     "idSubRegimen is null))",
     Espera::Filas, "PERSONAL", "30708123451|IC04|8409|V1\n30708123451||9403|V2\n30708123451|<null>||V3"},
    {"AdvantagesWithoutSubregime",
     "select * from VentajasRel where cuit = '30708123451' and (idSubRegimen = '' or idSubRegimen is null)",
     Espera::Filas, "PERSONAL", "30708123451||9403|V2\n30708123451|<null>||V3"},
    {"ItemsOfAPosition", "select id from item where interno = 'OP1' and id<>0 and ncm like '9403%'",
     Espera::Filas, "INTERNOS", "2\n3"},
    {"ItemsWithoutPosition", "select id from item where interno = 'OP1' and id<>0", Espera::Filas, "INTERNOS",
     "1\n2\n3"},
    {"AdvantageOfTheClient", "insert into itemventaja (iditem,interno,idventaja) values (1,'OP1','V1')",
     Espera::Filas, "INTERNOS", "1"},
    {"PositionsOfTheItems", "select distinct ncm from item where interno = 'OP1' and id<>0", Espera::Filas,
     "INTERNOS", "8409.91.12.100G\n9403.20.00.000A"},
    {"StampsAndLicenceOfAPosition",
     "select [028], [041] as estampillado, [059] as LAPI from ncm where [001] = '8409.91.12' and [002] = "
     "'100'",
     Espera::Filas, "NCM", "*|*|*"},
    {"PositionWithItsLetterIsNone",
     "select [028], [041] as estampillado, [059] as LAPI from ncm where [001] = '8409.91.12' and [002] = "
     "'100G'",
     Espera::Nada, "NCM"},
    {"Stamps",
     "insert into ITEMINFO (IDITEM, IDINFO, VALOR, INTERNO) select id,'CANT.ESTAMPILLAS',cantidad,'OP1' from "
     "item where "
     "interno = 'OP1' and ncm = '9403.20.00.000A' and idunidad = '07'",
     Espera::Filas, "INTERNOS", "1"},
    {"CarParts",
     "insert into itemventaja (iditem,idventaja,interno) select id, 'VEHICULOPARTES', interno from item "
     "where interno = "
     "'OP1' and ncm = '9403.20.00.000A'",
     Espera::Filas, "INTERNOS", "2"},
    {"ItemsInOrder", "select id from item where interno = 'OP1' order by id", Espera::Filas, "INTERNOS",
     "0\n1\n2\n3"},
    {"AdvantagesOfTheArticles",
     " insert into itemventaja (iditem, idventaja, interno)  select distinct 1, ventaja, 'OP1' from "
     "articulo_ventaja as v "
     "where exists(      select ventaja from subitems as a      where interno = 'OP1' and  id in (          "
     "select idsub "
     "from groupsubitems where interno = 'OP1' and [id]= 1         Union          select idsub from idrel "
     "where interno = "
     "'OP1' and idroot in (select idsub from groupsubitems where interno = 'OP1' and [id]= 1)     )      and "
     "a.idcatalogo "
     "= v.idcatalogo      and a.idarticulo = v.idarticulo  ) ",
     Espera::Filas, "INTERNOS", "1"},
    {"NoAdvantages", "delete from itemventaja where interno = 'OP1'", Espera::Filas, "INTERNOS", "3"},
};
SENTENCIAS(Duties, registros);

}  // namespace
