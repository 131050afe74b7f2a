// Statements of the stock of inputs.

#include "tests/statements/casos.h"

namespace {

#define LINEAS_DE_STOCK                                                          \
    "select id,dit,item,subitem,ncm,idcatalogo,idarticulo,descripcion,idunidad," \
    "cantidad,saldo,cif,divisa,preciounitario,idpais,sufijos,merma,"             \
    "fecha,vencimiento,cuitcliente,expctit,interno,idlinea from stock where "
#define TOMAS_DE_STOCK                                                                  \
    "select id,idstock,interno,idlinea,iditem,paraitem,cantidad,factor,descontado,cif," \
    "fecha,maquina,devuelta,maquinadevuelta from stockmov where "

const Caso existencias[] = {
    {"OfAClientByHisName", LINEAS_DE_STOCK
     "(cuitcliente = 'ñandu' or cuitcliente in (select cuit from clientes where nombre like '%a%'))"},
    {"OfADeclaration", LINEAS_DE_STOCK "dit like '26it%'"},
    {"OfAnArticle", LINEAS_DE_STOCK
     "(idcatalogo like '%ñandú%' or idarticulo like '%ñandú%' or descripcion like '%ñandú%')"},
    {"OfAPositionWithoutItsDots", LINEAS_DE_STOCK "replace(ncm,'.','') like '8409%' and saldo > 0"},
    {"OfferedToAClient", LINEAS_DE_STOCK
     "cuitcliente = '30708123451' and saldo > 0 and idcatalogo = 'cat' and idarticulo = 'art1' and idunidad = "
     "'01'"},
    {"Everything", LINEAS_DE_STOCK "1 = 1"},
    {"NoneOfNone", LINEAS_DE_STOCK "1 = 0", Espera::Nada},
    {"LoadedByAnOperation", LINEAS_DE_STOCK "interno = 'OP3' and idlinea <> 0"},
    {"TakingsThatStand", TOMAS_DE_STOCK "interno = 'OP1' and devuelta is null order by id"},
    {"TakingsOfALine", TOMAS_DE_STOCK "interno = 'OP1' and idlinea = 1 and devuelta is null order by id"},
    {"TakingsOfAStockLine", TOMAS_DE_STOCK "idstock = 1 order by id"},
    {"TakingsOfSomeLines",
     TOMAS_DE_STOCK "interno = 'OP1' and devuelta is null and idlinea in (1,5,6) order by id"},
    {"Taken", "update stock set saldo = round(saldo - 2.5, 6) where id = 1 and saldo >= 2.5", Espera::Filas,
     "INTERNOS", "1"},
    {"OverdrawnIsNotTaken", "update stock set saldo = round(saldo - 7.51, 6) where id = 1 and saldo >= 7.51",
     Espera::Nada},
    {"GivenBack",
     "update stockmov set devuelta = {2026-02-12 10:00:00},maquinadevuelta = 'PC2' where id = 1 and devuelta is "
     "null",
     Espera::Filas, "INTERNOS", "1"},
    {"GivenBackOnce",
     "update stockmov set devuelta = {2026-02-12 10:00:00},maquinadevuelta = 'PC2' where id = 2 and devuelta is "
     "null",
     Espera::Nada},
    {"BalanceGivenBack", "update stock set saldo = round(saldo + 2.5, 6) where id = 1", Espera::Filas,
     "INTERNOS", "1"},
    {"SumThatStands", "select sum(cif) as tomado from stockmov where devuelta is null and idstock = 1",
     Espera::Filas, "INTERNOS", "25"},
    {"LastMovementOfALine",
     "select max(id) as id from stockmov where interno = 'OP1' and idlinea = 1 and idstock = 1",
     Espera::Filas, "INTERNOS", "1"},
    {"NewMovement",
     "insert into stockmov (idstock,interno,idlinea,iditem,paraitem,cantidad,factor,descontado,cif,fecha,maquina) "
     "values (1,'OP1',1,0,'N',2.5,1,2.5,25,{2026-02-10 10:20:30},'PC1')",
     Espera::Filas, "INTERNOS", "1"},
    {"NewDischarge",
     "insert into descargas (interno,dit,item,subitem,ncm,expctit,cantidad,factorponderacion,iditem,idexportacion,"
     "idext) values ('OP1','26IT1',1,2,'8409.91.12.100G','CT',2.5,1,'1',1,1)",
     Espera::Filas, "INTERNOS", "1"},
    {"DischargesOfMovements",
     "select idexportacion,dit,item,subitem,ncm,expctit,cantidad,factorponderacion from descargas where interno = "
     "'OP1' and idexportacion in (9,10) order by dit,item,subitem,idexportacion"},
    {"DischargeGone", "delete from descargas where interno = 'OP1' and idexportacion = 9", Espera::Filas,
     "INTERNOS", "1"},
    {"DischargesNumbered", "update descargas set iditem = '4' where interno = 'OP1' and idexportacion in (9)",
     Espera::Filas, "INTERNOS", "1"},
    {"DischargesOfAChangedLine",
     "update descargas set dit = 'X',item = 1,subitem = 1,ncm = '',expctit = '' where idexportacion <> 0 and "
     "idexportacion in (select id from stockmov where devuelta is null and idstock = 1)",
     Espera::Nada},
    {"QuantityOfALoadedLine",
     "update stock set cantidad = 12,saldo = round(saldo + (2), 6) where id = 1 and round(saldo + (2), 6) >= 0",
     Espera::Filas, "INTERNOS", "1"},
    {"QuantityBelowWhatWasTaken",
     "update stock set cantidad = 1,saldo = round(saldo + (-9), 6) where id = 1 and round(saldo + (-9), 6) >= 0",
     Espera::Nada},
    {"LineWithoutHistoryGoes",
     "delete from stock where saldo = cantidad and id = 2 and id not in (select idstock from stockmov where "
     "idstock = 2)",
     Espera::Filas, "INTERNOS", "1"},
    {"LineOfADeletedOperation", "update stock set idlinea = 0 where interno = 'OP3'", Espera::Filas,
     "INTERNOS", "1"},
    {"LineThatTakes",
     "select s.idcatalogo,s.idarticulo,s.idunidad,s.ncm,s.descripcion,s.cantidad,c.idsubreg from subitems "
     "s,caratula c where s.interno = c.interno and s.interno = 'OP1' and s.id = 1"},
    {"LinesThatTook",
     "select interno,id,cancelaciones from subitems where id in (select idlinea from stockmov)"},
    {"OperationsThatTook", "select interno from caratula where interno in (select interno from stockmov)"},
    {"ForeignDischargesOfACopy",
     "select * from descargas where interno = 'OP1' and (idexportacion is null or idexportacion not in (select id "
     "from stockmov where interno = 'OP1'))"},
    {"FirstLineOfAnItem", "select min(idsub) as id from groupsubitems where interno = 'OP1' and id = 1"},
    {"ItemsWithTheirFreight",
     "select id,fobtotal,itflete,itseguro,ajusteinc,ajusteded from item where interno = 'OP1' and id <> 0"},
};
SENTENCIAS(Existencias, existencias);

}  // namespace
