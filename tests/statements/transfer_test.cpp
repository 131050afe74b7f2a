// Statements of the transfer: one a table, and the codes that it looks up.

#include "tests/statements/casos.h"

namespace {

const Caso transferencia[] = {
    {"Header",
     "select idsubreg,idaduana,idaduanasal,idcondiciondeventa,idpaisdestino,factura5,"
     "nrotransinter,opcionesiva,opcionesganancias,facilidadpago,cierreventa,fechaembarque,"
     "cuitcliente,factura7,cuitdespaduana,factura3,idvendedor,anexo_vendedor,factura2,datocomprador,"
     "fobdivisas,fobcoddivisas,fobdivcambio,fletedivisas,fletecoddivisas,fletedivcambio,"
     "segurodivisas,segurocoddivisas,segurodivcambio,seguroporcentaje,ajusteincluir,ajustededucir,"
     "valoraprorratear,factorconver,gastos_anteriores_fob,gastos_posteriores_fob,"
     "motivodestsuspensiva,autorizdestsuspensiva,plazoautorizacion,dccomext,dcestmerc,"
     "dcforzarestmerc,dcpaisorigen,dcforzarpaisorigen,dcpaisdestino,dcstandard,dcregalias,dcbancos,"
     "dckgneto,djai_fecha_emb_aprox,djai_fecha_arrib_aprox,dc_djai_forzardescripcionmercaderia,"
     "dc_djai_descripcionmercaderia,onccahabilitado,onccaacuerdo,onccacategoria,onccacortes,"
     "onccaelaborador,onccaespecie,onccafaneador,onccamatadero,onccameccoorgbio,onccares3106,"
     "onccasispro"
     " from caratula"
     " where interno = 'OP1'"},
    {"Packages",
     "select bulnro,bulcod,bultip,bulpes,via,trans,bandera,venemb,cuittrans,factura10,buldes,"
     "marcabul"
     " from caratula"
     " where interno = 'OP1'"},
    {"Marks",
     "select factura8,factura9"
     " from caratula"
     " where interno = 'OP1'"},
    {"InvoicesInTheirOrder",
     "select orden,factura"
     " from facturas"
     " where interno = 'OP1'"},
    {"ProrationCodes",
     "select codigo,valor,descripcion"
     " from prorrateo"
     " where interno = 'OP1'"},
    {"TotalsOfTheOperation",
     "select idconcepto,concepto,pgc,valor"
     " from liqcero"
     " where interno = 'OP1'"},
    {"Items",
     "select id,id,ncm,tipoitem,itemasociado,idpais,idproc,estadomerc,biendeuso,idunidad,cantidad,"
     "estadistica,valorrelacionestadistica,deresp,valorderesp,totalkneto,totalkbruto,fobtotal,"
     "itflete,itseguro,itcomext,ajusteinc,ajusteded,lista,naladisa,codprorrateo,lapi,regalias,"
     "standard,mineria,opcionesiva,opcionesganancias,cofexp,insumostemp,insumosacons,onccaacuerdo,"
     "onccacategoria,onccacortes,onccaelaborador,onccaespecie,onccafaneador,onccamatadero,"
     "onccameccoorgbio,onccares3106,onccasispro,descripcion"
     " from item"
     " where interno = 'OP1' and id <> 0"},
    {"Subitems",
     "select id,idsub,idcatalogo,idarticulo,codigoean,ncm,tipoitem,idpais,idpaisproc,estadomerc,"
     "biendeuso,idunidad,cantidad,preciounitario,fob,estadistica,valorrelacionestadistica,deresp,"
     "valorderesp,kgneto,kgbruto,ajusteincluir,ajustededucir,lapi,insumostemp,insumosacons,"
     "onccacategoria,onccacortes,descripcion,sufijos"
     " from groupsubitems"
     " where interno = 'OP1'"},
    {"Duties",
     "select iditem,idconceptos,conceptos,pgc,porcentaje,baseimp,total,motivo"
     " from itemliq"
     " where interno = 'OP1' and total <> 0"},
    {"Advantages",
     "select iditem,idventaja"
     " from itemventaja"
     " where interno = 'OP1'"},
    {"Information",
     "select iditem,idinfo,valor"
     " from iteminfo"
     " where interno = 'OP1'"},
    {"Cancellations",
     "select iditem,dit,item,subitem,ncm,expctit,cantidad,factorponderacion"
     " from descargas"
     " where interno = 'OP1'"},
    {"LinesOfTheGroups",
     "select idroot,idsub"
     " from idrel"
     " where interno = 'OP1'"},
    {"Certificates",
     "select id,certorig"
     " from subitems"
     " where interno = 'OP1' and certorig is not null and certorig <> ''"},
    {"Regimes", "select id from sta", Espera::Filas, "SYSTABLAS"},
    {"Countries", "select id from pais", Espera::Filas, "SYSTABLAS"},
    {"Customs", "select id from aduana", Espera::Filas, "SYSTABLAS"},
    {"SaleConditions", "select id from condiciondeventa", Espera::Filas, "SYSTABLAS"},
    {"Currencies", "select id from divisas"},
    {"Units", "select id from unidades"},
    {"StatesOfGoods", "select id from estadomercaderia"},
    {"PackageCodes", "select id from codemb"},
    {"PackageTypes", "select id from tipoemb"},
    {"Ways", "select id from via"},
};
SENTENCIAS(Transfer, transferencia);

}  // namespace
