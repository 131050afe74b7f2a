// Statements of the common data of the groups, of their folding and of the proration of values.

#include "tests/statements/casos.h"

namespace {

#define TOLERANCIA                                                                                        \
    "where interno = 'OP1' and \r\nncm = '8409.91.12.100G' and \r\nidpais = '203' and \r\nidpaisproc = "  \
    "'203' and "                                                                                          \
    "\r\nsufijos = 'AA01-' and \r\nidunidad = '01' and \r\nestadomerc = '1' and \r\nbiendeuso = 'N' and " \
    "\r\nestadistica = '01' and \r\nderesp = '' and \r\nLAPI = '' and \r\nitfiller = 'LISTA:314' and "    \
    "\r\ncancelaciones = 'OK' and \r\ncodigoean = '' and \r\ntipoitem = 'N' and \r\nONCCACategoria = '' " \
    "and "                                                                                                \
    "\r\nONCCACortes = '' and \r\npreciounitario between (10 - 0.0099) and (10 + 0.0099) "

const Caso comunes[] = {
    {"ForcedState", "update groupsubitems set EstadoMerc = '2' where interno = 'OP1'", Espera::Filas,
     "INTERNOS", "5"},
    {"State",
     "update groupsubitems set EstadoMerc = '2' where (EstadoMerc='' or EstadoMerc is null) and  interno = "
     "'OP1'",
     Espera::Filas, "INTERNOS", "3"},
    {"ForcedOrigin", "update groupsubitems set IdPais = '310' where interno = 'OP1'", Espera::Filas,
     "INTERNOS", "5"},
    {"Origin",
     "update groupsubitems set IdPais = '310' where (IdPais='' or IdPais is null) and interno = 'OP1'",
     Espera::Filas, "INTERNOS", "3"},
    {"Provenance",
     "update groupsubitems set IdPaisProc = '310' where (IdPaisProc='' or IdPaisProc is null) and interno = "
     "'OP1'",
     Espera::Filas, "INTERNOS", "3"},
    {"Category",
     "update groupsubitems set ONCCACategoria = '' where interno = 'OP1' and  (ONCCACategoria = '' or "
     "ONCCACategoria is "
     "null)",
     Espera::Filas, "INTERNOS", "5"},
    {"Cuts",
     "update groupsubitems set ONCCACortes = '' where interno = 'OP1' and  (ONCCACortes = '' or ONCCACortes "
     "is null)",
     Espera::Filas, "INTERNOS", "5"},
    {"NoProrationCode", "update groupsubitems set codprorrateo = '' where interno = 'OP1'", Espera::Filas,
     "INTERNOS", "5"},
    {"NullDescription",
     "update groupsubitems set descripcion = '' where descripcion is null and interno = 'OP1'", Espera::Filas,
     "INTERNOS", "1"},
    {"NoDescription", "update groupsubitems set descripcion = '' where interno = 'OP1'", Espera::Filas,
     "INTERNOS", "5"},
};
SENTENCIAS(CommonData, comunes);

const Caso plegado[] = {
    {"Candidates",
     "select * from groupsubitems as a where a.interno = 'OP1' and exists( select "
     "preciounitario,sufijos,idunidad,idpais,idpaisproc,ncm,descripcion,cancelaciones,codigoean, tipoitem, "
     "itfiller from "
     "groupsubitems as b where a.interno = 'OP1' and a.preciounitario = b.preciounitario and a.sufijos = "
     "b.sufijos and "
     "a.idunidad = b.idunidad and a.idpais = b.idpais and a.idpaisproc = b.idpaisproc and a.itfiller = "
     "b.itfiller and "
     "a.ncm = b.ncm and sufijos in (select sufijos from groupsubitems where interno = 'OP1' group by "
     "interno,ncm,descripcion,idpais,idpaisproc,sufijos,idunidad,estadomerc,biendeuso,estadistica,deresp,"
     "lapi,itfiller,"
     "cancelaciones,codigoean,tipoitem having count(*)>1) group by "
     "preciounitario,sufijos,idunidad,idpais,idpaisproc,ncm,descripcion,cancelaciones,codigoean,tipoitem,"
     "ONCCACategoria,"
     "ONCCACortes, itfiller) "},
    {"CandidatesOfTheDjai",
     "select * from groupsubitems as a where a.interno = 'OP1' and exists( select "
     "preciounitario,sufijos,idunidad,idpais,idpaisproc,ncm,descripcion,cancelaciones,codigoean, tipoitem, "
     "itfiller from "
     "groupsubitems as b where a.interno = 'OP1' and a.preciounitario = b.preciounitario and a.sufijos = "
     "b.sufijos and "
     "a.idunidad = b.idunidad and a.idpais = b.idpais and a.idpaisproc = b.idpaisproc and a.itfiller = "
     "b.itfiller and "
     "a.ncm = b.ncm and a.descripcion = b.descripcion and sufijos in (select sufijos from groupsubitems "
     "where interno = "
     "'OP1' group by "
     "interno,ncm,descripcion,idpais,idpaisproc,sufijos,idunidad,estadomerc,biendeuso,estadistica,deresp,"
     "lapi,itfiller,"
     "cancelaciones,codigoean,tipoitem having count(*)>1) group by "
     "preciounitario,sufijos,idunidad,idpais,idpaisproc,ncm,descripcion,cancelaciones,codigoean,tipoitem,"
     "ONCCACategoria,"
     "ONCCACortes, itfiller) "},
    {"RootsWithinTheTolerance",
     "select idsub, cancelaciones from groupsubitems " TOLERANCIA "order by idsub asc", Espera::Filas,
     "INTERNOS", "1|OK\n2|OK"},
    {"ArticlesWithinTheTolerance", "select distinct idarticulo,idcatalogo from groupsubitems " TOLERANCIA,
     Espera::Filas, "INTERNOS", "ART1|CAT\nART2|CAT"},
    // (150 + 150) / (15 + 15) = 10
    {"Merge",
     "select count(preciounitario) as reg,interno,ncm,descripcion,ROUND((sum(fob) / sum(cantidad)),5) as "
     "unitario,idpais,idpaisproc,sufijos,idunidad,estadomerc,biendeuso,sum(cantidad) as "
     "sumcantidad,estadistica,sum(valorrelacionestadistica) as valorestadistica,deresp,sum(valorderesp) as "
     "sumvalorderesp,lapi,sum(kgneto) as sumkgneto,sum(kgbruto) as sumkgbruto,sum(fob) as "
     "sumfob,itfiller,sum(insumostemp) as suminsumostemp,sum(insumosacons) as "
     "suminsumosacons,cancelaciones,codigoean,tipoitem, ONCCACategoria, ONCCACortes, sum(ajusteincluir) as "
     "tajusteincluir, sum(ajustededucir) as tajustededucir from groupsubitems " TOLERANCIA "group by "
     "interno,ncm,descripcion,idpais,idpaisproc,sufijos,idunidad,estadomerc,biendeuso,estadistica,deresp,"
     "lapi,"
     "itfiller,cancelaciones,codigoean,tipoitem,ONCCACategoria , ONCCACortes",
     Espera::Filas, "INTERNOS",
     "2|OP1|8409.91.12.100G|Bielas|10|203|203|AA01-|01|1|N|30|01|15||0||10|12|300|LISTA:314|12.5|3|OK||N|||1."
     "5|0"},
    {"MergedGroupsGo", "delete from groupsubitems " TOLERANCIA, Espera::Filas, "INTERNOS", "2"},
    {"MergedGroup",
     "INSERT INTO "
     "GROUPSUBITEMS(idcatalogo,idarticulo,idsub,interno,ncm,descripcion,preciounitario,idpais,idpaisproc,"
     "sufijos,idunidad,estadomerc,biendeuso,CANTIDAD,estadistica,valorrelacionestadistica,deresp,valorderesp,"
     "lapi,kgneto,"
     "kgbruto,fob,itfiller,insumostemp,insumosacons,cancelaciones,codigoean, tipoitem,ONCCACategoria , "
     "ONCCACortes, "
     "ajusteincluir, ajustededucir) values "
     "('CAT','agrupado!',1,'OP1','8409.91.12.100G','',10,'203','203','AA01-','01',"
     "'1','N',30,'01',15,'',0,'',10,12,300,'LISTA:314',12.5,3,'OK','','N','','',1.5,0)",
     Espera::Filas, "INTERNOS", "1"},
    {"ChainsOfLinks",
     "select idroot, idsub from idrel as a where a.interno = 'OP1' and exists (select idroot from idrel as b "
     "where  "
     "b.interno = 'OP1' and a.idsub = b.idroot)",
     Espera::Filas, "INTERNOS", "1|5"},
    {"ChainIsCut", "update idrel set idroot = 1 where interno = 'OP1' and idroot = 5", Espera::Filas,
     "INTERNOS", "1"},
    {"DescriptionsOfTheLines",
     "Update groupsubitems Set groupsubitems.Descripcion = SubItems.Descripcion from groupsubitems INNER "
     "JOIN subitems ON "
     "(groupsubitems.interno = subitems.Interno and groupsubitems.idsub = subitems.id) where "
     "groupsubitems.interno = "
     "'OP1'",
     Espera::Filas, "INTERNOS", "4"},
    {"MixedDescriptions",
     "SELECT id, dbo.groupsubitem_descripcion_select_concat( id, interno ) as descripcion From groupsubitems "
     "where "
     "interno = 'OP1'",
     Espera::Filas, "INTERNOS", "1|Bielas;bielas;\n1|Bielas;bielas;\n2|Sillas;\n<null>|\n<null>|"},
    {"MixedDescriptionIsWritten",
     "update item set descripcion = 'Máquinas Bielas;bielas'  where interno = 'OP1' and id = 1",
     Espera::Filas, "INTERNOS", "1"},
};
SENTENCIAS(Folding, plegado);

const Caso prorrateo[] = {
    // 150 + 150*50/1000 = 157.5; 100.005 rounds to 100.01, and 100.005 + 5.0005 = 105.0055
    {"Spread",
     "select distinct idsub,fob,cantidad,fob + ((  ROUND(fob,2) * 50) / 1000) as valor from groupsubitems "
     "where interno = "
     "'OP1'",
     Espera::Filas, "INTERNOS",
     "<null>|20.25|1|21.2625\n1|150|15|157.5\n2|150|15|157.5\n3|100.005|3|105.0055\n4|80|40|84"},
    {"SpreadIsWritten",
     "update groupsubitems set fob = 157.50, preciounitario = ROUND(157.50/cantidad,5)  where interno = "
     "'OP1' and  idsub "
     "= 1",
     Espera::Filas, "INTERNOS", "1"},
    {"RoundedFob", "update groupsubitems set fob = ROUND(fob,2) where interno = 'OP1'", Espera::Filas,
     "INTERNOS", "5"},
    {"TotalFob", "select sum(fob) as total from groupsubitems where interno = 'OP1'", Espera::Filas,
     "INTERNOS", "500.255"},
    {"FirstAboveTheDifference", "select * from groupsubitems WHERE INTERNO = 'OP1' and fob >0.010"},
    {"UnusedCodes",
     "select codigo, descripcion from prorrateo where interno = 'OP1' and codigo not in (select codprorrateo "
     "from "
     "groupsubitems where interno = 'OP1')",
     // The codes of the groups hold a null: nothing is known to be out of them.
     Espera::Nada},
    {"Codes", "select codigo,valor from prorrateo where interno = 'OP1'", Espera::Filas, "INTERNOS",
     "A|30\nZ|10.5"},
    {"FobOfACode", "select sum(fob) as valor from groupsubitems where interno = 'OP1' and codprorrateo = 'A'",
     Espera::Filas, "INTERNOS", "300"},
    {"SpreadOfACode",
     "select distinct fob,cantidad,fob + ((ROUND(fob,2) * 30) / 300) as valor from groupsubitems where "
     "interno = 'OP1' and "
     "codprorrateo = 'A'",
     Espera::Filas, "INTERNOS", "150|15|165"},
    {"SpreadOfACodeIsWritten",
     "update groupsubitems set fob = 165, preciounitario = ROUND(165/cantidad,5) where fob = 150 and "
     "cantidad = 15 and "
     "interno = 'OP1' and codprorrateo = 'A'",
     Espera::Filas, "INTERNOS", "2"},
    {"AmountsOfTheHeader", "select fobdivisas,fletedivisas,segurodivisas from caratula where interno = 'OP1'",
     Espera::Filas, "INTERNOS", "1000.5|100|10"},
    // 150 + 150 + 100.01 + 80 + 20.25
    {"TotalRounded", "select sum(ROUND(fob,2)) as total from groupsubitems where interno = 'OP1'",
     Espera::Filas, "INTERNOS", "500.26"},
    {"LowestOfTheCodes",
     "select * from groupsubitems WHERE INTERNO = 'OP1' and codprorrateo in(select codigo from prorrateo "
     "where "
     "groupsubitems.interno = prorrateo.interno) order by fob"},
    {"FreightOfTheItems", "update item set itFLETE = ROUND((FobTotal * 100)/480.26,2)  where interno = 'OP1'",
     Espera::Filas, "INTERNOS", "4"},
    {"FreightOverNothing", "update item set itFLETE = ROUND((FobTotal * 100)/0,2)  where interno = 'OP1'",
     Espera::Rechazo},
    {"TotalFreight", "select sum(itFLETE) as total from item where interno = 'OP1'", Espera::Filas,
     "INTERNOS", "101"},
    {"LargestFreight", "select top 2 * from item where interno = 'OP1' order by itflete desc"},
    {"InsuranceOfTheItems",
     "update item set itSEGURO = ROUND((FobTotal * 10)/480.26,2) where interno = 'OP1'", Espera::Filas,
     "INTERNOS", "4"},
    {"TotalInsurance", "select sum(itSEGURO) as total from item where interno = 'OP1'", Espera::Filas,
     "INTERNOS", "10"},
    {"LargestInsurance", "select top 2 * from item where interno = 'OP1' order by itseguro desc"},
    {"CommissionsOfTheItems",
     "update ITEM set ItComExt = ROUND((7.5 * FobTotal) / 480.26,2) where id<>0 and interno = 'OP1'",
     Espera::Filas, "INTERNOS", "3"},
    {"TotalCommissions", "select sum(itcomext) as totalcomext from item where id<>0 and interno = 'OP1'",
     Espera::Filas, "INTERNOS", "5"},
    {"LargestCommission",
     "select top 1 * from item where id<>0 and interno = 'OP1' and itcomext> -0.01 order by itcomext desc"},
    {"SmallestCommission", "select top 1 * from item where id<>0 and interno = 'OP1' order by itcomext asc"},
    {"CommissionOfTheOperation", "update item set itcomext = 7.5 where id=0 and interno = 'OP1'",
     Espera::Filas, "INTERNOS", "1"},
};
SENTENCIAS(Proration, prorrateo);

}  // namespace
