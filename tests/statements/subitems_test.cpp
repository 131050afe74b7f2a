// Statements of the nomenclature, the suffixes, the lines, their filters and bulk changes, the catalogue.

#include "tests/statements/casos.h"

namespace {

#define CLAVES "('84  .  .  .   ','8409.  .  .   ','8409.91.  .   ','8409.91.12.100')"

const Caso nomenclador[] = {
    {"Position",
     "select [001]+ '.' +[002] + [003] as ncm,[012] as estadistica,[020] as deresp from ncm where [001] like "
     "'8409%91%' "
     "order by [001],[002],[003]",
     Espera::Filas, "NCM", "8409.91.12.100G|01|01\n8409.91.12.200X|<null>|<null>"},
    {"PositionThatIsNone",
     "select [001]+ '.' +[002] + [003] as ncm,[012] as estadistica,[020] as deresp from ncm where [001] like "
     "'01%' order by "
     "[001],[002],[003]",
     Espera::Nada, "NCM"},
    {"DataOfAPosition",
     "Select [010] as descrip,[004] as descrip1, [012] as estadistica,[020] as deresp, [059],[019] as rein, "
     "[052] as "
     "segelect, [044] as prohibicion from ncm where [001] = '8409.91.12' and [002] = '100' and [003] = 'G'",
     Espera::Filas, "NCM", "Bielas para ñandú|Partes|01|01|*|2,5|*|"},
    {"SearchByPosition",
     "select [001],[002],[003],[004],[010] from ncm where [001] like '8409.91%' order by [001],[002],[003]",
     Espera::Filas, "NCM"},
    {"SearchByWords",
     "select [001],[002],[003],[004],[010] from ncm where [010] like '%ÑAND%' or [004] like '%ÑAND%' order "
     "by "
     "[001],[002],[003]",
     Espera::Filas, "NCM", "8409.91.12|100|G|Partes|Bielas para ñandú\n8409.91.12|200|X|<null>|Ñandúes"},
    {"SheetOfAPosition", "select * from ncm where [001] = '8409.91.12' and [002] = '100'", Espera::Filas,
     "NCM"},
    {"UnitRelation", "select pase from unidrel where unid1 = '07' and unid2 = '01'", Espera::Filas,
     "INTERNOS", "2.5"},
    {"SubregimeWithEan", "select item from EAN where subreg = 'IC04'", Espera::Filas, "SYSTABLAS", "S"},
    {"SpecificDutyOfChina", "select diem from DIEMCHINA where ncm = '8409.91.12'", Espera::Filas, "SYSTABLAS",
     "3.5"},
    {"InternalTaxes", "select decreto, tasa_nominal from impuestos_internos where ncm = '8409.91.12'",
     Espera::Filas, "USUARIO", "D1|17"},
    {"WholeNomenclature", "select * from ncm", Espera::Filas, "NCM"},
};
SENTENCIAS(Nomenclature, nomenclador);

const Caso sufijos[] = {
    {"PositionExists", "select [001] as pos from ncm where [001]='8409.91.12' and [002]='100'", Espera::Filas,
     "NCM", "8409.91.12"},
    {"Families", "select distinct left(sufijo,2) as asufijo from sufidos where sim in " CLAVES, Espera::Filas,
     "NCM", "AA\nZB"},
    {"OptionsOfAFamily",
     "select sufijo,detalle from sufidos where sim in " CLAVES " and left(sufijo,2) = 'AA'", Espera::Filas,
     "NCM", "AA01|Uno\nAA02|Dos"},
    {"OptionsOfAFamilyInAnotherCase",
     "select sufijo,detalle from sufidos where sim in " CLAVES " and left(sufijo,2) = 'aa'", Espera::Filas,
     "NCM", "AA01|Uno\nAA02|Dos"},
    {"DetailGrid", "select * from sufidos where sim in " CLAVES, Espera::Filas, "NCM"},
};
SENTENCIAS(Suffixes, sufijos);

const Caso renglones[] = {
    {"HeaderOfTheLines", "select idsubreg,fobdivisas,ONCCAHabilitado from caratula where interno = 'OP1'",
     Espera::Filas, "INTERNOS", "IC04|1000.5|S"},
    {"PositionOfALine",
     "select [001],[002],[003],[004],[010],[012],[015],[018],[019],[020],[052],[044],[043],[059] from ncm "
     "where [001] = "
     "'8409.91.12' and [002] = '100' and [003] = 'G'",
     Espera::Filas, "NCM", "8409.91.12|100|G|Partes|Bielas para ñandú|01|14|5|2,5|01|*|||*"},
    {"UpperLevels",
     "select [004], [005], [006], [007], [008], [009], [010] from ncm where [001] = '8409.91.12' and [002] = "
     "'100' and "
     "[003] = 'G'",
     Espera::Filas, "NCM"},
    {"UnitsOfAPosition",
     "select [012],[020] from ncm where [001] = '8409.91.12' and [002] = '100' and [003] = 'G'",
     Espera::Filas, "NCM", "01|01"},
    {"NewLine",
     "insert into subitems (IdCatalogo,IdArticulo,ncm,IdUnidad,Cantidad,Preciounitario,fob,Estadistica,"
     "valorrelacionestadistica,IdPais,EstadoMerc,Sufijos,Biendeuso,codprorrateo,insumostemp,insumosacons,"
     "cancelaciones,"
     "cancCantidad,cancnroitem,cancnrosubitem,deresp,valorderesp,lapi,kgneto,kgbruto,descripcion,Descripcion_"
     "Maria,"
     "interno,otros,itfiller,certorig,ONCCACategoria, ONCCACortes,IdPaisProc,naladisa,codigoean) values "
     "('CAT','ART1',"
     "'8409.91.12.100G','01',1.50,2.12345,3.19,'01',1.50,'203','1','AA01-','N','',0,0,'','','','','',0,'N',1."
     "50,0,"
     "'Descripción','', 'OP1','','','','','','203','','')",
     Espera::Filas, "INTERNOS", "1"},
    {"NewestLineOfAnArticle",
     "select top 2 * from subitems where interno = 'OP1' and IdCatalogo='CAT' and IDARTICULO='ART1' order by "
     "id desc"},
    {"InputsAreTaken",
     "update subitems set insumostemp = 12.5,cancelaciones = 'OK' where interno = 'OP1'  and id = 2",
     Espera::Filas, "INTERNOS", "1"},
    {"InputsAreRefused", "delete from subitems where interno = 'OP1'  and id = 2", Espera::Filas, "INTERNOS",
     "1"},
    {"LineIsChanged",
     "update subitems set ncm = '8409.91.12.100G',idunidad = '01',cantidad = 2,preciounitario = 3,fob = "
     "6,estadistica = "
     "'01',valorrelacionestadistica = 2,idpais = '203',idpaisproc = '203',estadomerc = '1',sufijos = "
     "'AA01-',biendeuso = "
     "'N',otros = '',certorig = '',codprorrateo = '',insumostemp = 0,insumosacons = '',cancelaciones = "
     "'',canccantidad = "
     "'',cancnroitem = '',lapi = 'N',SBTREI = 0.00,kgneto = 2,kgbruto = 0,deresp = '',valorderesp = "
     "0,descripcion = 'x',"
     "codigoean = '',naladisa = '',Descripcion_Maria = '',cancnrosubitem = '',itfiller = '' where id = 3 and "
     "interno = "
     "'OP1'",
     Espera::Filas, "INTERNOS", "1"},
    {"LineToRemove",
     "select cancelaciones,idcatalogo,idarticulo,id from subitems where interno = 'OP1' and id = 1",
     Espera::Filas, "INTERNOS", "OK|CAT|ART1|1"},
    {"LineIsRemoved", "delete from subitems where interno = 'OP1' and id = 3", Espera::Filas, "INTERNOS",
     "1"},
};
SENTENCIAS(Lines, renglones);

#define RENGLONES                                                                                          \
    "select "                                                                                              \
    "interno,estadomerc,sufijos,idpais,kgneto,id,ncm,idunidad,cantidad,preciounitario,fob,idarticulo,"     \
    "cancelaciones, itfiller, descripcion as descr, descripcion_maria, idcatalogo, naladisa, factura_nro " \
    "from "                                                                                                \
    "subitems as a where interno = 'OP1"
#define SIN_INTERNO                                                                                        \
    "select "                                                                                              \
    "interno,estadomerc,sufijos,idpais,kgneto,id,ncm,idunidad,cantidad,preciounitario,fob,idarticulo,"     \
    "cancelaciones, itfiller, descripcion as descr, descripcion_maria, idcatalogo, naladisa, factura_nro " \
    "from "                                                                                                \
    "subitems as a "

const Caso filtros[] = {
    {"NoFilter", RENGLONES "' order by a.id desc"},
    {"WithKilos", RENGLONES "' and (kgneto>0)  order by a.id desc"},
    {"WithoutKilos", RENGLONES "' and (kgneto=0)  order by a.id asc"},
    {"WithCountry", RENGLONES "' and not (idpais = '' or idpais is null)  order by a.id desc"},
    {"WithoutCountry", RENGLONES "' and (idpais = '' or idpais is null)  order by a.id desc"},
    {"WithState", RENGLONES "' and not (estadomerc = '' or estadomerc is null)  order by a.id desc"},
    {"WithoutState", RENGLONES "' and (estadomerc = '' or estadomerc is null)  order by a.id desc"},
    {"ByPosition", RENGLONES "' and ncm like '8409.91%'  order by a.id desc"},
    {"PositionsOfAnotherLength", RENGLONES "' and len(ncm)<>15  order by a.id desc"},
    {"WithoutSuffixes", RENGLONES "' and (sufijos='' or sufijos is null) order by a.id desc"},
    {"WithoutStatistics", RENGLONES "' and valorrelacionestadistica = 0 order by a.id desc"},
    {"EmptyParentheses", RENGLONES "' and charindex('()',sufijos)>0  order by a.id desc"},
    {"OfACountry", RENGLONES "' and idpais = '203'  order by a.id desc"},
    {"ByDescription", RENGLONES "' and descripcion like '%POSICIÓN%'  order by a.id desc"},
    {"WithoutLicence", SIN_INTERNO
     "where NOT EXISTS (select  (ncm.[001] + '.' + ncm.[002] + ncm.[003]) from ncm where ncm.[059] = '' and "
     "a.ncm = (ncm.[001] + '.' + ncm.[002] + ncm.[003])) and a.interno = 'OP1' order by a.id desc"},
    {"WithLicence", SIN_INTERNO
     "where EXISTS (select  (ncm.[001] + '.' + ncm.[002] + ncm.[003]) from ncm where ncm.[059] = '' and "
     "a.ncm = (ncm.[001] + '.' + ncm.[002] + ncm.[003])) and a.interno = 'OP1' order by a.id desc"},
    {"NotInTheNomenclature", SIN_INTERNO
     "where NOT EXISTS (select  1 From NCM where left(a.ncm,10) = ncm.[001] and  substring (a.ncm,12,3) = "
     "ncm.[002] and right(a.ncm,1) = ncm.[003]) and a.interno = 'OP1' order by a.id desc"},
    {"BySuffixText", RENGLONES "' and charindex('ai(X',sufijos)>0  order by a.id asc"},
};
SENTENCIAS(Filters, filtros);

const Caso masivas[] = {
    {"NoKilos", "update subitems set kgneto = 0 where interno = 'OP1'", Espera::Filas, "INTERNOS", "6"},
    {"NoStatistics",
     "update subitems set valorrelacionestadistica = 0 where estadistica = '01' and interno = 'OP1'",
     Espera::Filas, "INTERNOS", "4"},
    {"NoSpecific", "update subitems set valorderesp = 0 where deresp = '01' and interno = 'OP1'",
     Espera::Filas, "INTERNOS", "1"},
    {"NoCountry", "update subitems set idpais = '' where interno = 'OP1'", Espera::Filas, "INTERNOS", "6"},
    {"NoFiller", "update subitems set itfiller = '' where interno = 'OP1'", Espera::Filas, "INTERNOS", "6"},
    {"NoProration", "update subitems set codprorrateo = '' where interno = 'OP1'", Espera::Filas, "INTERNOS",
     "6"},
    {"Filler", "update subitems set itfiller = 'LISTA:306' where interno = 'OP1'", Espera::Filas, "INTERNOS",
     "6"},
    {"Country", "update subitems set idpais = '310' where interno = 'OP1'", Espera::Filas, "INTERNOS", "6"},
    {"Provenance", "update subitems set idpaisproc = '310' where interno = 'OP1'", Espera::Filas, "INTERNOS",
     "6"},
};
SENTENCIAS(BulkChanges, masivas);

const Caso articulos[] = {
    {"ArticleMoves",
     "update CATARTICULOS set IDCATALOGO = 'OTRO' where IDCATALOGO = 'CAT' and IDARTICULO = 'ART2'",
     Espera::Filas, "CATALOGOS", "1"},
    {"AdvantagesMove",
     "update articulo_ventaja set IDCATALOGO = 'OTRO' where IDCATALOGO = 'CAT' and IDARTICULO = 'ART3'",
     Espera::Filas, "CATALOGOS", "1"},
    {"CataloguesCounted",
     "select idcatalogo, COUNT(idcatalogo) AS Cantidad from catarticulos group by idcatalogo order by "
     "idcatalogo",
     Espera::Filas, "CATALOGOS", "CAT|2\nOTRO|1"},
    {"ArticleIsDeleted", "delete from catarticulos where idcatalogo = 'CAT' and idarticulo = 'ART2'",
     Espera::Filas, "CATALOGOS", "1"},
    {"ArticleExists", "select idarticulo from catarticulos where idcatalogo = 'CAT' and idarticulo = 'ART1'",
     Espera::Filas, "CATALOGOS", "ART1"},
    {"NewAdvantage",
     "insert into articulo_ventaja (idcatalogo, idarticulo, ventaja) values ('CAT','ART1','OTRA')",
     Espera::Filas, "CATALOGOS", "1"},
    {"Advantages", "select ventaja from articulo_ventaja where idcatalogo = 'CAT' and idarticulo = 'ART1'",
     Espera::Filas, "CATALOGOS", "VENTAJA1"},
    {"AdvantageIsRemoved",
     "delete from articulo_ventaja where idcatalogo = 'CAT' and idarticulo = 'ART1' and ventaja  = "
     "'VENTAJA1'",
     Espera::Filas, "CATALOGOS", "1"},
    {"SearchByArticle",
     "select idarticulo,descripcion,ncm,Cantidad*Preciounitario as total from catarticulos where idcatalogo "
     "= 'CAT' and "
     "idarticulo like '%art%'",
     Espera::Filas, "CATALOGOS", "ART1|Bielas|8409.91.12.100G|21\nart2|Sillas ñ|9403.20.00.000A|<null>"},
    {"SearchByDescription",
     "select idarticulo,descripcion,ncm,Cantidad*Preciounitario as total from catarticulos where idcatalogo "
     "= 'CAT' and "
     "descripcion like '%Ñ%'",
     Espera::Filas, "CATALOGOS", "art2|Sillas ñ|9403.20.00.000A|<null>"},
    {"SearchByPosition",
     "select idarticulo,ncm,descripcion,cantidad,preciounitario,usuario, fecha from catarticulos where "
     "idcatalogo = 'CAT' "
     "and ncm like '%8409%'",
     Espera::Filas, "CATALOGOS", "ART1|8409.91.12.100G|Bielas|2|10.5|juan|2026-01-31 12:00:00"},
    {"ArticleAcrossCatalogues",
     "select idcatalogo,idarticulo,descripcion,ncm,preciounitario from catarticulos where idarticulo = 'art1' "
     "order by idcatalogo,idarticulo",
     Espera::Filas, "CATALOGOS"},
    {"PositionAcrossCatalogues",
     "select idcatalogo,idarticulo,descripcion,ncm,preciounitario from catarticulos where ncm like '8409.%' "
     "order by idcatalogo,idarticulo",
     Espera::Filas, "CATALOGOS"},
    {"ArticleGoes", "delete from catarticulos where idcatalogo = 'CAT' and idarticulo = 'ART1'",
     Espera::Filas, "CATALOGOS", "1"},
    {"WholeCatalogue", "select * from catarticulos where idcatalogo = 'CAT'", Espera::Filas, "CATALOGOS"},
};
SENTENCIAS(Catalogue, articulos);

}  // namespace
