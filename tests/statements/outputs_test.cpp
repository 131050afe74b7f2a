// Statements of the item sheet, the quote, the listings, the food data and the licences.

#include "tests/statements/casos.h"

namespace {

#define ARTICULOS                                                                                          \
    "select idcatalogo, idarticulo, ncm, descripcion, naladisa, preciounitario, Idpais, sufijos, kgneto, " \
    "Descripcion_Maria, otros, usuario, fecha from catarticulos "

const Caso planilla[] = {
    {"Emptied", "delete from tabla", Espera::Filas, "PERSONAL", "2"},
    {"NewLine", "insert into tabla (linea) values ('Información `x`')", Espera::Filas, "PERSONAL", "1"},
    {"Lines", "select * from tabla order by idlin", Espera::Filas, "PERSONAL", "1|Línea 1\n2|Línea 2"},
    {"ItemsOfTheOperation",
     "select "
     "id,ajusteinc,ajusteded,estadistica,idproc,idpais,totalkneto,estadomerc,lista,naladisa,ncm,idunidad,"
     "cantidad,"
     "preciounitario,valorrelacionestadistica,valorderesp from item where id<>0 and interno = 'OP1'"},
    {"ItemsInTheOrderOfTheirPages", "select * from item where interno = 'OP1' and id<>0 order by id"},
    {"ItemsForTheCalculator", "select * from item where interno = 'OP1' and id<>0"},
    {"GroupsOfAnItem",
     "select valorderesp,valorrelacionestadistica,ncm,idunidad,cantidad,preciounitario,biendeuso,sufijos,fob "
     "as fobtotal "
     "from groupsubitems where id = 1 and interno = 'OP1' order by idsub"},
    {"GroupsOfTheOperation",
     "select valorderesp,valorrelacionestadistica,ncm,idunidad,cantidad,preciounitario,biendeuso,sufijos,fob "
     "as fobtotal "
     "from groupsubitems where interno = 'OP1' order by idsub"},
    {"ConceptsOfAnItem", "select * from itemliq where interno = 'OP1' and iditem = 1"},
    {"NameOfAConcept", "select descripcion from conceptos where id = '010'", Espera::Filas, "INTERNOS",
     "Derechos"},
    {"BaseOfVatWithoutAndIsRefused",
     "select valor from liqcero where idconcepto = '###baseiva' interno = 'OP1'", Espera::Rechazo},
    {"TaxableBaseWithoutAndIsRefused",
     "select valor from liqcero where idconcepto = '###baseimp' interno = 'OP1'", Espera::Rechazo},
    {"Advantages", "select * from itemventaja where interno = 'OP1' and iditem = 1", Espera::Filas,
     "INTERNOS", "1|VEHICULOPARTES|OP1\n1|AUTOLIQLIBREIMP|OP1"},
    {"Information", "select * from iteminfo where interno = 'OP1' and iditem = 0", Espera::Filas, "INTERNOS",
     "0|MARCA|Ñandú|OP1"},
    {"LinesOfTheOperation",
     "select ncm,idunidad,cantidad,preciounitario,cantidad * preciounitario as "
     "fobtotal,valorrelacionestadistica,valorderesp from groupsubitems where interno = 'OP1' order by idsub"},
    {"LinesOfAnItem",
     "select ncm,idunidad,cantidad,preciounitario,fob,sufijos,valorrelacionestadistica,valorderesp from "
     "groupsubitems "
     "where id = 1 and interno = 'OP1' order by idsub"},
    {"PageOfAnItem",
     "select "
     "fobtotal,itflete,itseguro,ajusteinc,ajusteded,estadistica,idproc,idpais,totalkneto,estadomerc,lista,"
     "naladisa,ncm,"
     "idunidad,cantidad,preciounitario,valorrelacionestadistica,valorderesp from item where id = 1 and "
     "interno = 'OP1'"},
    {"RatesOfThePage",
     "select [015], [016], [018], [028], [026] from ncm where [001] = '8409.91.12' and [002] = '100'",
     Espera::Filas, "NCM", "14|0|5|*|21"},
    {"DutiesOfThePage",
     "select * from itemliq where total>0 and interno = 'OP1' and iditem = 1 order by idconceptos"},
    {"ListOfItems",
     "select id,ncm, IdUnidad,estadistica,deresp, EstadoMerc, idpais, idproc, ITFILLER , descripcion from "
     "item where "
     "interno = 'OP1' and id >0 order by id"},
};
SENTENCIAS(Sheet, planilla);

const Caso presupuesto[] = {
    {"OnAccount", "update caratula set factura6 = 12.50 where interno = 'OP1'", Espera::Filas, "INTERNOS",
     "1"},
    {"Header", "select * from caratula where interno = 'OP1'"},
    {"Broker", "select nombre from despadu where cuit = '20111111112'", Espera::Filas, "PERSONAL",
     "Despachante"},
    {"Client", "select nombre,domicilio,email from clientes where cuit = '30708123451'", Espera::Filas,
     "PERSONAL", "Cliente SA|Calle 1|a@b.c"},
    {"Fob", "select sum(fob) as total from groupsubitems where interno = 'OP1'", Espera::Filas, "INTERNOS",
     "500.255"},
    {"Deductions",
     "select ajusteded as total from item where isnumeric(ajusteded)<>0 and id<>0 and interno = 'OP1'",
     Espera::Filas, "INTERNOS", "0"},
    {"Additions",
     "select ajusteinc as total from item where isnumeric(ajusteinc)<>0 and id<>0 and interno = 'OP1'",
     Espera::Filas, "INTERNOS", "1.5"},
    {"Duties",
     "select * from liqcero where LEFT(idconcepto,3) <> '###' and interno = 'OP1' order by pgc desc,concepto",
     Espera::Filas, "INTERNOS", "010|DERECHOS|42|OP1|P\n016|ADICIONAL|5.5|OP1|G\n900|ARANCEL|2|OP1|<null>"},
    {"BaseOfVat", "select valor from liqcero where idconcepto = '###baseiva' and interno = 'OP1'",
     Espera::Filas, "INTERNOS", "342.1"},
    {"ConceptThereIs",
     "select count(*) as cont from itempresu where interno = 'OP1' and  concepto = 'Honorarios'",
     Espera::Filas, "INTERNOS", "1"},
    {"NewConceptInPesos",
     "insert into itempresu (interno,concepto,valorpeso,valordolar) values ('OP1','Acarreo',1200.50,0)",
     Espera::Filas, "INTERNOS", "1"},
    {"NewConceptInPesosAsText",
     "insert into itempresu (interno,concepto,valorpeso,valordolar) values ('OP1','Depósito','1200.5',0)",
     Espera::Filas, "INTERNOS", "1"},
    {"NewConceptInDollars",
     "insert into itempresu (interno,concepto,valordolar,valorpeso) values ('OP1','Acarreo',12.5,0)",
     Espera::Filas, "INTERNOS", "1"},
    {"ConceptsOfTheQuote", "select * from itempresu where interno = 'OP1'"},
    {"ReferencesOfTheQuote", "select * from itemref where interno = 'OP1'"},
    {"NothingOnAccount", "update caratula set factura6 = 00.00 where interno = 'OP1'", Espera::Filas,
     "INTERNOS", "1"},
    {"ConceptIsRemoved", "delete from itempresu where interno = 'OP1' and concepto = 'HONORARIOS'",
     Espera::Filas, "INTERNOS", "1"},
    {"ReferenceThereIs",
     "select count(*) as cont from itemref where interno = 'OP1' and referencia = 'BUQUE'", Espera::Filas,
     "INTERNOS", "1"},
    {"NewReference", "insert into itemref (interno,referencia,valor) values ('OP1','Viaje','Nº 12')",
     Espera::Filas, "INTERNOS", "1"},
    {"ReferenceIsRemoved", "delete from itemref where interno = 'OP1' and referencia = 'Buque'",
     Espera::Filas, "INTERNOS", "1"},
    {"Comment", "select coment from coment where interno = 'OP1'", Espera::Filas, "SYSTABLAS"},
    {"Concepts", "select * from conpresu order by concepto", Espera::Filas, "INTERNOS",
     "Acarreo\nHONORARIOS"},
    {"References", "select referencia from referencias order by referencia", Espera::Filas, "INTERNOS",
     "Buque"},
    {"MasterConceptThereIs", "select count(*) as cont from conpresu where concepto = 'ACARREO'",
     Espera::Filas, "INTERNOS", "1"},
    {"NewMasterConcept", "insert into conpresu (concepto) values ('Depósito')", Espera::Filas, "INTERNOS",
     "1"},
    {"MasterReferenceThereIs", "select count(*) as cont from referencias where referencia = 'Buque'",
     Espera::Filas, "INTERNOS", "1"},
    {"NewMasterReference", "insert into referencias (referencia) values ('Viaje')", Espera::Filas, "INTERNOS",
     "1"},
    {"MasterConceptIsRemoved", "delete from conpresu where concepto = 'Acarreo'", Espera::Filas, "INTERNOS",
     "1"},
    {"MasterReferenceIsRemoved", "delete from referencias where referencia = 'Buque'", Espera::Filas,
     "INTERNOS", "1"},
};
SENTENCIAS(Quote, presupuesto);

const Caso regulatorio[] = {
    {"Lists", "select distinct id,descripcion from lista ", Espera::Filas, "SYSTABLAS",
     "306|Lista 306\nMERCOSUR|Mercosur"},
    {"FoodData",
     "select ONCCAHabilitado, ONCCAAcuerdo, ONCCACategoria, ONCCACortes, ONCCAElaborador, ONCCAEspecie , "
     "ONCCAFaneador, "
     "ONCCAMeccoorgbio, ONCCAres3106, ONCCAsispro, ONCCAMatadero from caratula where interno = 'OP1'",
     Espera::Filas, "INTERNOS", "S|AC|<null>|<null>|<null>|<null>|<null>|<null>|<null>|<null>|<null>"},
    {"FoodDataIsSaved",
     "update caratula set ONCCAAcuerdo = '1',ONCCACategoria = '2',ONCCACortes = '3',ONCCAElaborador = "
     "'4',ONCCAEspecie = "
     "'5',ONCCAFaneador = '6',ONCCAMeccoorgbio = '7',ONCCAres3106 = '8',ONCCAsispro = '9',ONCCAMatadero = "
     "'10',ONCCAHabilitado = 'S' where interno = 'OP1'",
     Espera::Filas, "INTERNOS", "1"},
    {"LinesOfFood",
     "select id,idarticulo,ncm,descripcion,ONCCACategoria,ONCCACortes from subitems where interno = 'OP2' "
     "order by id asc",
     Espera::Filas, "INTERNOS"},
    {"LineOfFoodIsSaved",
     "update subitems set ONCCACategoria = 'VA',ONCCACortes = '101' where id = 1 and interno = 'OP1'",
     Espera::Filas, "INTERNOS", "1"},
    {"CutsOfFood", "select * from ONCCA_CORTES order by descripcion,id", Espera::Filas, "SYSTABLAS",
     "101|AGUJA\n102|HUACHALOMO"},
    {"CutOfFood", "select descripcion from ONCCA_CORTES where id ='101'", Espera::Filas, "SYSTABLAS",
     "AGUJA"},
    {"NormsOfAPosition",
     "select lnapi, norma From LNAPIPosicionesAfectadas where posicion='8409.91.12' ORDER BY aclaraciones "
     "DESC",
     Espera::Filas, "NCM", "A|R 1\nB|R 2"},
    {"NormsOfNoPosition",
     "select lnapi, norma From LNAPIPosicionesAfectadas where posicion='0101' ORDER BY aclaraciones DESC",
     Espera::Nada, "NCM"},
    {"LetterOfAPosition",
     "select top 1 letra from letrasncm where posicion in ('8409.91.12.','8409.91.12','8409.91','8409') "
     "order by posicion desc",
     Espera::Filas, "NCM", "T"},
    {"LetterOfNoPosition",
     "select top 1 letra from letrasncm where posicion in ('01','010') order by posicion desc", Espera::Nada,
     "NCM"},
    {"TextOfALetter", "select descripcion from letras where letra = 't'", Espera::Filas, "NCM", "Bielas"},
    {"NoteByNumber", "select descripcion From LNAPIAclaraciones where aclaracion=1", Espera::Filas, "NCM",
     "Excepto usados"},
    {"NoteByWhatIsNoNumberIsRefused", "select descripcion From LNAPIAclaraciones where aclaracion=uno",
     Espera::Rechazo, "NCM"},
    {"NoteByNothingIsRefused", "select descripcion From LNAPIAclaraciones where aclaracion=", Espera::Rechazo,
     "NCM"},
    {"NotesOfAPosition",
     "select aclaraciones From LNAPIPosicionesAfectadas where posicion='8409.91.12' ORDER BY aclaraciones "
     "DESC",
     Espera::Filas, "NCM", "1 2\n<null>"},
    {"ArticlesOfACatalogue", ARTICULOS "where idcatalogo='cat' ORDER BY idarticulo", Espera::Filas,
     "CATALOGOS"},
    {"CountOfACatalogue",
     "select idcatalogo, COUNT(idcatalogo) AS Cantidad from catarticulos where idcatalogo='CAT' GROUP BY "
     "idcatalogo",
     Espera::Filas, "CATALOGOS", "CAT|2"},
    {"ArticlesByCode", ARTICULOS "where idarticulo='ART1' ORDER BY idcatalogo", Espera::Filas, "CATALOGOS"},
    {"CountByCode",
     "select idarticulo, COUNT(idarticulo) AS Cantidad from catarticulos where idarticulo='ART1' GROUP BY "
     "idarticulo",
     Espera::Filas, "CATALOGOS", "ART1|2"},
    {"ArticlesByPosition", ARTICULOS "where ncm like '%8409.%' ORDER BY idcatalogo", Espera::Filas,
     "CATALOGOS"},
    {"CountByPosition", "select COUNT(ncm) AS Cantidad from catarticulos where ncm like '%8409.%'",
     Espera::Filas, "CATALOGOS", "2"},
    {"ArticlesOfAnotherEntity", "select idarticulo from catarticulos where idcatalogo='OTRO'", Espera::Filas,
     "NCM", "ART1"},
};
SENTENCIAS(Regulatory, regulatorio);

}  // namespace
