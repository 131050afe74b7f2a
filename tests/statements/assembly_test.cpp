// Statements of the assembly's driver, of the normalisation of the lines and of the grouping.

#include "tests/statements/casos.h"

namespace {

const Caso corrida[] = {
    {"HeaderOfTheRun",
     "SELECT "
     "idsubreg,cuitcliente,FOBDIVISAS,VALORAPRORRATEAR,fletedivisas,segurodivisas,motivodestsuspensiva,"
     "DCEstMerc, "
     "DCForzarEstMerc, DCPaisOrigen, DCForzarPaisOrigen, DCPaisDestino, DCStandard, DCRegalias, DCKgNeto, "
     "DCComExt, "
     "ONCCAAcuerdo, ONCCAElaborador, ONCCAEspecie, ONCCAFaneador, ONCCAMatadero, ONCCAMeccoorgbio, "
     "ONCCARes3106, "
     "ONCCASisPro, ONCCACategoria, ONCCACortes, OpcionesIVA, OpcionesGanancias, DATOCOMPRADOR, "
     "NROTRANSINTER, "
     "DC_DJAI_ForzarDescripcionMercaderia, DC_DJAI_DescripcionMercaderia  FROM CARATULA where interno = "
     "'OP1'"},
    {"KindOfTheRegime", "select cstaimpexp from sta where id = 'IC04'", Espera::Filas, "SYSTABLAS", "I"},
    {"FlagsAreDropped", "delete from SYSFLAG where interno = 'OP1'", Espera::Filas, "INTERNOS", "1"},
    {"NewFlag", "insert into SYSFLAG (flag,valor,item,interno) values ('1439/96','S',0,'OP1')", Espera::Filas,
     "INTERNOS", "1"},
    {"NewFlagWithANumberBetweenQuotes",
     "insert into SYSFLAG (flag,valor,item,interno) values ('1439/96','S','0','OP1')", Espera::Filas,
     "INTERNOS", "1"},
    {"GroupsAreDropped", "delete from groupsubitems where interno = 'op1'", Espera::Filas, "INTERNOS", "5"},
    {"LinksAreDropped", "delete from idrel where interno = 'OP1'", Espera::Filas, "INTERNOS", "2"},
    {"DutiesAreDropped", "delete from itemliq where interno = 'OP1'", Espera::Filas, "INTERNOS", "7"},
    {"AdvantagesAreDropped", "delete from itemventaja where interno = 'OP1'", Espera::Filas, "INTERNOS", "3"},
    {"InformationIsDropped", "delete from iteminfo where interno = 'OP1'", Espera::Filas, "INTERNOS", "2"},
    {"ItemsAreDropped", "delete from item where interno = 'OP1'", Espera::Filas, "INTERNOS", "4"},
    {"NoMarkOfEdition", "Update item set itmodif = '' where interno = 'OP1'", Espera::Filas, "INTERNOS", "4"},
    {"ItemsWithInputs", "select id from item where interno = 'OP1' and cancelaciones = 'OK'", Espera::Filas,
     "INTERNOS", "1"},
    {"RootsOfAnItem", "select idsub from groupsubitems where interno = 'OP1' and id = 1", Espera::Filas,
     "INTERNOS", "1\n2"},
    {"PositionsOfTheItems", "select distinct ncm from item where interno = 'OP1' and id <> 0", Espera::Filas,
     "INTERNOS", "8409.91.12.100G\n9403.20.00.000A"},
    {"Cancellations", "exec ProcesarDescargasconTLR1 'OP1'"},
};
SENTENCIAS(Run, corrida);

// A number in the answer is of lines; OP1 has six.
const Caso normalizacion[] = {
    {"01Biendeuso",
     "UPDATE SUBITEMS SET BIENDEUSO = 'N' WHERE INTERNO = 'OP1' and (BIENDEUSO='' or BIENDEUSO is null)",
     Espera::Filas, "INTERNOS", "3"},
    {"02Tipoitem",
     "update subitems set tipoitem = 'N' where interno = 'OP1' and (tipoitem = '' or tipoitem is null)",
     Espera::Filas, "INTERNOS", "2"},
    {"03Valorderesp", "update subitems set valorderesp = 0 where (valorderesp is null) and interno = 'OP1'",
     Espera::Filas, "INTERNOS", "3"},
    {"04SinSufijos", "update subitems set sufijos = '' where sufijos = 'SIN SUFIJOS' and interno = 'OP1'",
     Espera::Filas, "INTERNOS", "1"},
    {"05Sufijos", "update subitems set sufijos = '' where sufijos IS NULL and interno = 'OP1'", Espera::Filas,
     "INTERNOS", "1"},
    {"06Idarticulo", "update subitems set idarticulo = '' where idarticulo is null and interno = 'OP1'"},
    {"07Idpais", "update subitems set Idpais = '' where Idpais is null and interno = 'OP1'"},
    {"08DescripcionMaria",
     "update subitems set descripcion_maria = '' where descripcion_maria is null and interno = 'OP1'"},
    {"09Descripcion", "update subitems set descripcion = '' where descripcion is null and interno = 'OP2'"},
    {"10Idpaisproc", "update subitems set Idpaisproc = '' where Idpaisproc is null and interno = 'OP1'"},
    {"11Estadomerc", "update subitems set estadomerc = '' where estadomerc is null and interno = 'OP1'"},
    {"12Biendeuso", "update subitems set biendeuso = '' where biendeuso is null and interno = 'OP1'"},
    {"13Codprorrateo",
     "update subitems set codprorrateo = '' where codprorrateo is null and interno = 'OP1'"},
    {"14Lapi", "update subitems set LAPI = '' where LAPI is null and interno = 'OP1'"},
    {"15Itfiller", "update subitems set itfiller = '' where itfiller is null and interno = 'OP1'"},
    {"16Deresp", "update subitems set deresp = '' where deresp is null and interno = 'OP1'"},
    {"17Cancelaciones",
     "update subitems set cancelaciones = '' where cancelaciones is null and interno = 'OP1'"},
    {"18Codigoean", "update subitems set codigoean = '' where codigoean is null and interno =  'OP1'"},
    {"19GuionFinal",
     "Update SubItems set sufijos = sufijos+'-' where not (sufijos = 'SIN SUFIJOS' or sufijos = '' or "
     "sufijos is null) "
     "and right(sufijos,1)<>'-' and interno = 'OP1'",
     Espera::Filas, "INTERNOS", "2"},
    {"20Insumostemp",
     "Update SubItems set insumostemp = 0 where ISNUMERIC(insumostemp)=0 and interno =  'OP1'", Espera::Filas,
     "INTERNOS", "5"},
    {"21Insumostemp", "Update SubItems set insumostemp = 0 where insumostemp is null  and interno =  'OP1'",
     Espera::Filas, "INTERNOS", "3"},
    {"22Insumosacons",
     "Update SubItems set insumosacons = 0 where ISNUMERIC(insumosacons)=0  and interno =  'OP1'",
     Espera::Filas, "INTERNOS", "5"},
    {"23Insumosacons",
     "Update SubItems set insumosacons = 0 where insumosacons is null  and interno =  'OP1'", Espera::Filas,
     "INTERNOS", "4"},
    {"24Kgneto", "Update SubItems set kgneto = 0 where kgneto is null  and interno =  'OP1'", Espera::Filas,
     "INTERNOS", "2"},
    {"25ONCCACategoria",
     "Update SubItems set ONCCACategoria = '' where ONCCACategoria is null  and interno =  'OP1'",
     Espera::Filas, "INTERNOS", "4"},
    {"26ONCCACortes", "Update SubItems set ONCCACortes = '' where ONCCACortes is null  and interno =  'OP1'",
     Espera::Filas, "INTERNOS", "4"},
    {"27Idexportacion",
     "update subitems set idexportacion = 0 where interno = 'OP1' and idexportacion is null", Espera::Filas,
     "INTERNOS", "4"},
    {"28Idexportacion",
     "update descargas set idexportacion = 0 where interno = 'OP1' and idexportacion is null", Espera::Filas,
     "INTERNOS", "1"},
    {"29Iditem", "update descargas set iditem = NULL where interno = 'OP1' and iditem = ''", Espera::Filas,
     "INTERNOS", "1"},
    {"30Idext", "update descargas set idext = NULL where interno = 'OP1' and iditem is not null",
     Espera::Filas, "INTERNOS", "2"},
    {"31AjusteIncluir",
     "Update SubItems set AjusteIncluir = 0 where ISNUMERIC(AjusteIncluir)=0 and interno =  'OP1'",
     Espera::Filas, "INTERNOS", "5"},
    {"32AjusteIncluir",
     "Update SubItems set AjusteIncluir = 0 where AjusteIncluir is null  and interno =  'OP1'", Espera::Filas,
     "INTERNOS", "5"},
    {"33AjusteDeducir",
     "Update SubItems set AjusteDeducir = 0 where ISNUMERIC(AjusteDeducir)=0 and interno =  'OP1'",
     Espera::Filas, "INTERNOS", "6"},
    {"34AjusteDeducir",
     "Update SubItems set AjusteDeducir = 0 where AjusteDeducir is null  and interno =  'OP1'", Espera::Filas,
     "INTERNOS", "4"},
    {"35Estadistica",
     "update subitems set valorrelacionestadistica = cantidad where idunidad = estadistica and "
     "valorrelacionestadistica = 0 and interno = 'OP1'",
     Espera::Filas, "INTERNOS", "2"},
    {"36Kgneto",
     "update subitems set kgneto = cantidad where idunidad = '01' and kgneto = 0 and interno = 'OP1'",
     Espera::Filas, "INTERNOS", "2"},
    {"37DescripcionMaria", "update subitems set descripcion_maria = descripcion where interno = 'OP1'",
     Espera::Filas, "INTERNOS", "6"},
    {"38SinDescripcion",
     "select count(*) as total from subitems where interno = 'OP1' and descripcion_maria = ''", Espera::Filas,
     "INTERNOS", "1"},
    {"Revalidation", "select distinct ncm,sufijos from subitems where interno = 'OP1'"},
};
SENTENCIAS(Normalisation, normalizacion);

#define POR_DESCRIPCION                                                                                      \
    "INSERT INTO GROUPSUBITEMS (interno,ncm,preciounitario, Descripcion,idpais,idpaisproc,sufijos,idunidad," \
    "estadomerc,biendeuso,CANTIDAD,estadistica,valorrelacionestadistica,deresp,valorderesp,codprorrateo,"    \
    "kgneto,"                                                                                                \
    "kgbruto,fob,itfiller,insumostemp,insumosacons,cancelaciones,codigoean,tipoitem,ONCCACategoria,"         \
    "ONCCACortes, "                                                                                          \
    "ajusteincluir, ajustededucir) \r\n"                                                                     \
    "select "                                                                                                \
    "interno,ncm,preciounitario,Descripcion_Maria,idpais,idpaisproc,sufijos,idunidad,estadomerc,biendeuso,"  \
    "sum(cantidad) as sumcantidad,estadistica,sum(valorrelacionestadistica) as valorestadistica,deresp,"     \
    "sum(valorderesp) as "                                                                                   \
    "sumvalorderesp,codprorrateo,sum(kgneto),sum(kgbruto),sum(fob),itfiller,sum(insumostemp),"               \
    "sum(insumosacons),cancelaciones,codigoean,tipoitem,ONCCACategoria,ONCCACortes, sum(ajusteincluir), "    \
    "sum(ajustededucir)\r\n"                                                                                 \
    "from  (select "                                                                                         \
    "interno,ncm,preciounitario,Descripcion_Maria,idpais,idpaisproc,sufijos,idunidad,estadomerc,"            \
    "biendeuso,cantidad "                                                                                    \
    ",estadistica,valorrelacionestadistica,deresp,valorderesp,codprorrateo,kgneto,kgbruto,fob,"              \
    "itfiller,insumostemp,insumosacons,cancelaciones,codigoean,tipoitem,ONCCACategoria,ONCCACortes, "        \
    "ajusteincluir,"                                                                                         \
    " ajustededucir from subitems where interno = 'OP1') as a \r\n"                                          \
    "where interno = 'OP1' group by interno,ncm,preciounitario, Descripcion_Maria , "                        \
    "idpais,idpaisproc,sufijos,idunidad,estadomerc,biendeuso,estadistica,deresp,codprorrateo,itfiller,"      \
    "cancelaciones,codigoean,tipoitem,ONCCACategoria,ONCCACortes "
#define SIN_DESCRIPCION                                                                                   \
    "INSERT INTO GROUPSUBITEMS (interno,ncm,preciounitario,idpais,idpaisproc,sufijos,idunidad,"           \
    "estadomerc,biendeuso,CANTIDAD,estadistica,valorrelacionestadistica,deresp,valorderesp,codprorrateo," \
    "kgneto,"                                                                                             \
    "kgbruto,fob,itfiller,insumostemp,insumosacons,cancelaciones,codigoean,tipoitem,ONCCACategoria,"      \
    "ONCCACortes, "                                                                                       \
    "ajusteincluir, ajustededucir) \r\n"                                                                  \
    "select interno,ncm,preciounitario,idpais,idpaisproc,sufijos,idunidad,estadomerc,biendeuso,"          \
    "sum(cantidad) as sumcantidad,estadistica,sum(valorrelacionestadistica) as valorestadistica,deresp,"  \
    "sum(valorderesp) as "                                                                                \
    "sumvalorderesp,codprorrateo,sum(kgneto),sum(kgbruto),sum(fob),itfiller,sum(insumostemp),"            \
    "sum(insumosacons),cancelaciones,codigoean,tipoitem,ONCCACategoria,ONCCACortes, sum(ajusteincluir), " \
    "sum(ajustededucir)\r\n"                                                                              \
    "from  (select * from subitems where interno = 'OP1') as a \r\n"                                      \
    "where interno = 'OP1' group by interno,ncm,preciounitario,"                                          \
    "idpais,idpaisproc,sufijos,idunidad,estadomerc,biendeuso,estadistica,deresp,codprorrateo,itfiller,"   \
    "cancelaciones,codigoean,tipoitem,ONCCACategoria,ONCCACortes "
#define IGUALES                                                                                              \
    "groupsubitems.idpais = subitems.Idpais and groupsubitems.idpaisproc = subitems.Idpaisproc and "         \
    "groupsubitems.cantidad = subitems.cantidad and groupsubitems.preciounitario = subitems.preciounitario " \
    "and "                                                                                                   \
    "groupsubitems.sufijos = subitems.sufijos and groupsubitems.idunidad = subitems.idunidad and "           \
    "groupsubitems.estadomerc = subitems.estadomerc and groupsubitems.biendeuso = subitems.Biendeuso and "   \
    "groupsubitems.tipoitem = subitems.tipoitem and groupsubitems.itfiller = subitems.itfiller and "         \
    "groupsubitems.codigoean = subitems.codigoean and groupsubitems.codprorrateo = subitems.codprorrateo "   \
    "and "                                                                                                   \
    "groupsubitems.cancelaciones = subitems.cancelaciones)"
// The sample's lines and groups differ in their quantities: what links them is kept, the quantity is not.
#define POCOS_IGUALES                                                                                        \
    "groupsubitems.idpais = subitems.Idpais and groupsubitems.preciounitario = subitems.preciounitario and " \
    "groupsubitems.cancelaciones = subitems.cancelaciones)"
#define ENLACE_SERVIDOR                                                                                 \
    "Update groupsubitems Set groupsubitems.IDsub = SubItems.ID,groupsubitems.idcatalogo = "            \
    "SubItems.idcatalogo,groupsubitems.IdArticulo = SubItems.IdArticulo from groupsubitems INNER JOIN " \
    "subitems ON (groupsubitems.interno = subitems.Interno and groupsubitems.ncm = subitems.NCM and "
#define ENLACE_ARCHIVO                                                                           \
    "Update groupsubitems Inner Join subitems On (groupsubitems.interno = subitems.Interno and " \
    "groupsubitems.ncm = subitems.NCM and "

const Caso grupos[] = {
    {"GroupsWithDescription", POR_DESCRIPCION},
    {"Groups", SIN_DESCRIPCION},
    {"StatisticsFromTheQuantity",
     "update groupsubitems set valorrelacionestadistica = cantidad where idunidad = estadistica and "
     "valorrelacionestadistica = 0 and interno = 'OP1'",
     Espera::Filas, "INTERNOS", "1"},
    {"SpecificFromTheQuantity",
     "update groupsubitems set valorderesp = cantidad where idunidad = deresp and valorderesp = 0 and "
     "interno = 'OP1'",
     Espera::Filas, "INTERNOS", "1"},
    {"StatisticsFromTheSpecific",
     "update groupsubitems set valorrelacionestadistica = valorderesp where deresp = estadistica and "
     "valorrelacionestadistica = 0 and interno = 'OP1'",
     Espera::Filas, "INTERNOS", "1"},
    {"StatisticsFromTheKilos",
     "update groupsubitems set valorrelacionestadistica = kgneto where (estadistica = '01' and "
     "valorrelacionestadistica=0) and kgneto > 0 and interno = 'OP1'",
     Espera::Filas, "INTERNOS", "1"},
    {"KilosFromTheQuantity",
     "update groupsubitems set kgneto = cantidad where (idunidad = '01' and estadistica = '01' and "
     "cantidad>0) and kgneto "
     "= 0 and interno = 'OP1'",
     Espera::Nada},
    {"KilosFromTheQuantityOfAnotherMeasure",
     "update groupsubitems set kgneto = cantidad where (idunidad = '01' and estadistica <> '01'  and "
     "cantidad>0) and "
     "kgneto = 0 and interno = 'OP1'",
     Espera::Nada},
    {"KilosFromTheStatistics",
     "update groupsubitems set kgneto = valorrelacionestadistica where (estadistica = '01' and idunidad <> "
     "'01' and "
     "valorrelacionestadistica>0) and kgneto = 0 and interno = 'OP1'",
     Espera::Nada},
    {"NullArticle", "update groupsubitems set idarticulo = '' where idarticulo is null and interno = 'OP1'"},
    {"NullGrossKilosTakeAQuotedNumber",
     "update groupsubitems set kgbruto = '0' where kgbruto is null and interno = 'OP1'"},
    {"NullCountry", "update groupsubitems set Idpais = '' where Idpais is null and interno = 'OP1'"},
    {"NullProvenanceTestsTheCountry",
     "update groupsubitems set Idpaisproc = '' where Idpais is null and interno = 'OP1'"},
    {"NullSuffixes", "update groupsubitems set sufijos = '' where sufijos is null and interno = 'OP1'"},
    {"NullUnit", "update groupsubitems set idunidad = '' where idunidad is null and interno = 'OP2'"},
    {"NullState", "update groupsubitems set estadomerc = '' where estadomerc is null and interno = 'OP1'"},
    {"NullCapitalGood",
     "update groupsubitems set biendeuso = '' where biendeuso is null and interno = 'OP1'"},
    {"NullArticleAgain",
     "update groupsubitems set IdArticulo = '' where IdArticulo is null and interno = 'OP1'"},
    {"NullLicence", "update groupsubitems set lapi = '' where lapi is null and interno = 'OP1'"},
    {"NullCancellation",
     "update groupsubitems set cancelaciones = '' where cancelaciones is null and interno = 'OP1'"},
    {"LinkOfTheServer", ENLACE_SERVIDOR IGUALES " where groupsubitems.interno = 'OP1'", Espera::Nada},
    {"LinkOfTheServerWithDescription",
     ENLACE_SERVIDOR "groupsubitems.descripcion = Descripcion_Maria and " IGUALES
                     " where groupsubitems.interno = 'OP1'",
     Espera::Nada},
    {"LinkOfTheServerThatMeets", ENLACE_SERVIDOR POCOS_IGUALES " where groupsubitems.interno = 'OP1'",
     Espera::Filas, "INTERNOS", "1"},
    {"LinkOfTheFileStore",
     ENLACE_ARCHIVO IGUALES "Set groupsubitems.IDsub = SubItems.ID,  groupsubitems.idcatalogo = "
                            "SubItems.idcatalogo,  groupsubitems.idarticulo "
                            "= SubItems.idarticulo where groupsubitems.interno = 'OP1'",
     Espera::Nada},
    {"LinkOfTheFileStoreWithDescription",
     ENLACE_ARCHIVO
     "groupsubitems.descripcion = subitems.Descripcion_Maria and " IGUALES
     "Set groupsubitems.IDsub = SubItems.ID,  groupsubitems.idcatalogo = SubItems.idcatalogo,  "
     "groupsubitems.idarticulo = SubItems.otros where groupsubitems.interno = 'OP1'",
     Espera::Nada},
    {"LinkOfTheFileStoreThatMeets",
     ENLACE_ARCHIVO POCOS_IGUALES "Set groupsubitems.IDsub = SubItems.ID,  groupsubitems.idcatalogo = "
                                  "SubItems.idcatalogo,  groupsubitems.idarticulo "
                                  "= SubItems.otros where groupsubitems.interno = 'OP1'",
     Espera::Filas, "INTERNOS", "1"},
    {"GroupsWithoutRoot", "select * from groupsubitems where interno = 'OP1' and (idsub is null)"},
    {"LinesOfAGroup",
     "select id,idarticulo as fidarticulo,idcatalogo,cancelaciones,certorig, itfiller from subitems where "
     "interno = 'OP1' "
     " and ncm = '8409.91.12.100G' and Descripcion_Maria = 'BIELAS DJ'  and idpais ='203' and idpaisproc "
     "='203' and "
     "sufijos ='AA01-' and preciounitario = 10  and idunidad ='01' and estadomerc ='1' and codigoean ='' and "
     "tipoitem "
     "='N' and itfiller ='LISTA:314' and biendeuso ='N' order by id asc",
     Espera::Filas, "INTERNOS", "1|ART1|CAT|OK|CO1|LISTA:314\n2|ART2|CAT|||LISTA:314"},
    {"LinesOfAGroupByTheirOtherCode",
     "select id,otros as fidarticulo,idcatalogo,cancelaciones,certorig, itfiller from subitems where interno "
     "= 'OP1'  and "
     "ncm = '9403.20.00.000A' and idpais ='310' and idpaisproc ='' and sufijos ='SIN SUFIJOS' and "
     "preciounitario = "
     "2.00000  and idunidad ='01' and estadomerc ='' and tipoitem ='G' and biendeuso ='S' order by id asc",
     Espera::Filas, "INTERNOS", "4|<null>|CAT||<null>|<null>"},
    {"NewLink", "insert into idrel (interno,idroot,idsub) values ('OP1',1, 2)", Espera::Filas, "INTERNOS",
     "1"},
    {"RootOfAGroup",
     "update groupsubitems set idsub = 1, idarticulo = 'ART1' , idcatalogo = 'CAT'  where interno = 'OP1' "
     "and ncm = "
     "'8409.91.12.100G' and descripcion = 'BIELAS' and idpais ='203' and idpaisproc ='203' and sufijos "
     "='AA01-' and "
     "preciounitario = 10.00000 and idunidad ='01' and estadomerc ='1' and biendeuso ='N' and cancelaciones "
     "= 'OK' and "
     "codigoean = '' and tipoitem = 'N' and itfiller = 'LISTA:314' ",
     Espera::Filas, "INTERNOS", "1"},
    {"RootOfAGroupOfSeveralArticles",
     "update groupsubitems set idsub = 1, idarticulo = 'agrupado!'  where interno = 'OP1' and ncm = "
     "'8409.91.12.100G' and "
     "idpais ='203' and idpaisproc ='203' and sufijos ='AA01-' and preciounitario = 10.00500 and idunidad "
     "='01' and "
     "estadomerc ='1' and biendeuso ='N' and cancelaciones = 'OK' and codigoean = '' and tipoitem = 'N' and "
     "itfiller = "
     "'LISTA:314' ",
     Espera::Filas, "INTERNOS", "1"},
};
SENTENCIAS(Groups, grupos);

}  // namespace
