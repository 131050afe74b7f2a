// Sample rows of the operations: OP1 has everything, OP2 is an export with little, OP3 is only a header.

#include "tests/statements/muestra.h"

namespace {

const FilaDeMuestra operaciones[] = {
    {"INTERNOS",
     "insert into caratula "
     "(interno,fechaalta,idsubreg,idaduana,idaduanasal,cuitcliente,cuitdespaduana,idvendedor,"
     "factura1,factura2,factura3,factura5,factura6,factura7,factura8,factura9,fobdivisas,fletedivisas,"
     "segurodivisas,"
     "fobcoddivisas,fobdivcambio,fletedivcambio,segurodivcambio,valoraprorratear,ajusteincluir,ajustededucir,"
     "motivodestsuspensiva,DCEstMerc,DCPaisOrigen,DCForzarPaisOrigen,DCPaisDestino,bulpes,bulnro,bulcod,"
     "bultip,buldes,"
     "ONCCAHabilitado,ONCCAAcuerdo,DC_DJAI_DescripcionMercaderia,DATOCOMPRADOR) values "
     "('OP1',{2026-02-10 10:20:30},'IC04','001','033','30708123451','20111111112','V1','F-1,F-2','Vendedor "
     "Ñandú',"
     "'Despachante','DEP',12.5,'Cliente','S','1',1000.5,100,10,'DOL',1.25,1.3,1.35,50,5,0,'D1330/"
     "04-A6','1','203','S',"
     "'200',12.345,'N1','32','A','cajas','S','AC','Máquinas','Juan')"},
    {"INTERNOS",
     "insert into caratula (interno,fechaalta,idsubreg,cuitcliente,cuitdespaduana,fobdivisas,factura2) "
     "values "
     "('op2',{2026-01-05},'EC01','30500000000','20111111112',300,'vendedor ñandú')"},
    {"INTERNOS",
     "insert into caratula (interno,fechaalta,ONCCAHabilitado) values ('OP3',{2026-02-10 10:20:30},'N')"},
    // Lines. The second differs from the first by its case only; the third has nulls; the sixth a short
    // position.
    {"INTERNOS",
     "insert into subitems "
     "(interno,IdCatalogo,IdArticulo,otros,ncm,descripcion,Descripcion_Maria,IdUnidad,Cantidad,"
     "Preciounitario,fob,Estadistica,valorrelacionestadistica,deresp,valorderesp,IdPais,IdPaisProc,"
     "EstadoMerc,Sufijos,"
     "Biendeuso,codprorrateo,insumostemp,insumosacons,cancelaciones,lapi,kgneto,kgbruto,itfiller,certorig,"
     "ONCCACategoria,ONCCACortes,AjusteIncluir,AjusteDeducir,tipoitem,idexportacion,codigoean,factura_nro) "
     "values "
     "('OP1','CAT','ART1','OTRO1','8409.91.12.100G','Bielas','BIELAS "
     "DJ','01',10,10,100,'01',10,'',0,'203','203','1',"
     "'AA01-','N','A','12.5','',  'OK','',5,6,'LISTA:314','CO1','','','1.5','x','N',7,'','F-1')"},
    {"INTERNOS",
     "insert into subitems "
     "(interno,IdCatalogo,IdArticulo,otros,ncm,descripcion,Descripcion_Maria,IdUnidad,Cantidad,"
     "Preciounitario,fob,Estadistica,valorrelacionestadistica,deresp,valorderesp,IdPais,IdPaisProc,"
     "EstadoMerc,Sufijos,"
     "Biendeuso,codprorrateo,insumostemp,insumosacons,cancelaciones,lapi,kgneto,kgbruto,itfiller,certorig,"
     "ONCCACategoria,ONCCACortes,AjusteIncluir,AjusteDeducir,tipoitem,codigoean,factura_nro) values "
     "('OP1','CAT','ART2','OTRO2','8409.91.12.100g','bielas','bielas "
     "dj','01',5,10,50,'01',5,'',0,'203','203','1',"
     "'aa01-','N','A','','3',  '','',0,6,'LISTA:314','','','',null,'','N','','F-2')"},
    {"INTERNOS",
     "insert into subitems (interno,ncm,descripcion,IdUnidad,Cantidad,Preciounitario,fob,Estadistica,"
     "valorrelacionestadistica,valorderesp,Sufijos,kgneto,insumostemp) values "
     "('OP1','9403.20.00.000A','Sillas','07',3,33.33333,100,'07',0,null,null,null,'abc')"},
    {"INTERNOS",
     "insert into subitems "
     "(interno,IdCatalogo,IdArticulo,ncm,descripcion,descripcion_maria,IdUnidad,Cantidad,"
     "Preciounitario,fob,Estadistica,valorrelacionestadistica,deresp,valorderesp,IdPais,IdPaisProc,"
     "EstadoMerc,Sufijos,"
     "Biendeuso,kgneto,tipoitem,cancelaciones,idexportacion) values "
     "('OP1','CAT','ART3','9403.20.00.000A','','','01',40,2,80,'01',0,'01',0,'310','','','SIN "
     "SUFIJOS','S',0,'G','',9)"},
    {"INTERNOS",
     "insert into subitems (interno,ncm,descripcion,IdUnidad,Cantidad,Preciounitario,fob,Estadistica,"
     "valorrelacionestadistica,IdPais,Sufijos,kgneto,tipoitem) values "
     "('OP1','9999.99.99.999Z','Sin posición','08',1,1,1,'01',0,'','AB()-AI(x)',1.25,'D')"},
    {"INTERNOS",
     "insert into subitems "
     "(interno,ncm,descripcion,IdUnidad,Cantidad,Preciounitario,fob,Sufijos,Biendeuso,idpais) "
     "values ('OP1','8409','Corta','07',2,0.005,0.01,'AA01','','203')"},
    {"INTERNOS",
     "insert into subitems (interno,ncm,IdUnidad,Cantidad,Preciounitario,fob,kgneto,sufijos) values "
     "('OP2','8409.91.12.100G','01',1,300,300,1,'AA01-')"},
    // Groups
    {"INTERNOS",
     "insert into groupsubitems "
     "(id,idsub,interno,idcatalogo,idarticulo,ncm,descripcion,preciounitario,idpais,"
     "idpaisproc,sufijos,idunidad,estadomerc,biendeuso,CANTIDAD,estadistica,valorrelacionestadistica,deresp,"
     "valorderesp,codprorrateo,lapi,kgneto,kgbruto,fob,itfiller,insumostemp,insumosacons,cancelaciones,"
     "codigoean,"
     "tipoitem,ONCCACategoria,ONCCACortes,ajusteincluir,ajustededucir,flgkg) values "
     "(1,1,'OP1','CAT','ART1','8409.91.12.100G','Bielas',10,'203','203','AA01-','01','1','N',15,'01',15,'',0,"
     "'A','',"
     "5,12,150,'LISTA:314',12.5,3,'OK','','N','','',1.5,0,'*')"},
    {"INTERNOS",
     "insert into groupsubitems "
     "(id,idsub,interno,idcatalogo,idarticulo,ncm,descripcion,preciounitario,idpais,"
     "idpaisproc,sufijos,idunidad,estadomerc,biendeuso,CANTIDAD,estadistica,valorrelacionestadistica,deresp,"
     "valorderesp,codprorrateo,lapi,kgneto,kgbruto,fob,itfiller,insumostemp,insumosacons,cancelaciones,"
     "codigoean,"
     "tipoitem,ONCCACategoria,ONCCACortes,ajusteincluir,ajustededucir,flgkg) values "
     "(1,2,'OP1','CAT','ART2','8409.91.12.100g','bielas',10.005,'203','203','aa01-','01','1','N',15,'01',0,''"
     ",0,'A','',"
     "5,0,150,'LISTA:314',0,0,'OK','','N','','',0,0,'*')"},
    {"INTERNOS",
     "insert into groupsubitems "
     "(id,idsub,interno,ncm,descripcion,preciounitario,idunidad,CANTIDAD,estadistica,"
     "valorrelacionestadistica,deresp,valorderesp,kgneto,fob,sufijos,estadomerc,biendeuso,codprorrateo,"
     "cancelaciones,"
     "tipoitem,flgkg) values "
     "(2,3,'OP1','9403.20.00.000A','Sillas',33.33333,'07',3,'01',0,'01',0,0,100.005,'','','','B','','N','')"},
    {"INTERNOS",
     "insert into groupsubitems (idsub,interno,ncm,descripcion,preciounitario,idunidad,CANTIDAD,estadistica,"
     "valorrelacionestadistica,deresp,valorderesp,kgneto,kgbruto,fob,sufijos,estadomerc,biendeuso,itfiller,"
     "tipoitem) "
     "values (4,'OP1','9403.20.00.000A','Mesas "
     "''grandes''',2,'01',40,'08',0,'01',0,-1,3,80,null,null,'S',null,'G')"},
    {"INTERNOS",
     "insert into groupsubitems "
     "(interno,ncm,preciounitario,idunidad,CANTIDAD,estadistica,valorrelacionestadistica,"
     "fob,kgneto,codprorrateo,tipoitem) values ('OP1','9999.99.99.999Z',1,'08',1,'01',7,20.25,1,'','D')"},
    {"INTERNOS",
     "insert into groupsubitems (id,idsub,interno,ncm,preciounitario,CANTIDAD,fob,kgneto,sufijos) values "
     "(1,7,'OP2','8409.91.12.100G',300,1,300,1,'AA01-')"},
    // Items
    {"INTERNOS", "insert into item (id,interno,totalkneto) values (0,'OP1',30)"},
    {"INTERNOS",
     "insert into item (interno,ncm,descripcion,idpais,idproc,idunidad,estadomerc,biendeuso,estadistica,"
     "valorrelacionestadistica,deresp,valorderesp,id,cantidad,preciounitario,totalkneto,fobtotal,totalkbruto,"
     "itflete,"
     "itseguro,itcomext,ajusteinc,ajusteded,lapi,itfiller,cancelaciones,tipoitem,lista) values "
     "('OP1','8409.91.12.100G','Bielas','203','203','01','1','N','01',15,'',0,1,30,10,10,300,12,60.5,6,3,1.5,"
     "0,'',"
     "'LISTA:314','OK','N','MERCOSUR')"},
    {"INTERNOS",
     "insert into item (interno,ncm,descripcion,idpais,idproc,idunidad,estadomerc,biendeuso,estadistica,"
     "valorrelacionestadistica,deresp,valorderesp,id,cantidad,totalkneto,fobtotal,itflete,itseguro,itcomext,"
     "ajusteinc,"
     "itfiller,cancelaciones,tipoitem,itmodif) values "
     "('OP1','9403.20.00.000A','','','','07','','','07',3,'01',0,2,3,0,100,20.25,2,1,null,'LISTA:MERCOSUR1','"
     "','G','S')"},
    {"INTERNOS",
     "insert into item "
     "(interno,ncm,idunidad,estadistica,deresp,id,cantidad,totalkneto,fobtotal,itflete,itseguro,"
     "itcomext,itfiller,tipoitem) values "
     "('OP1','9403.20.00.000a','01','08','08',3,40,20,80,20.25,2,1,'LISTA:306','D')"},
    {"INTERNOS",
     "insert into item (id,interno,ncm,fobtotal,itflete) values (1,'OP2','8409.91.12.100G',300,1)"},
    // Duties
    {"INTERNOS",
     "insert into itemliq "
     "(iditem,interno,idconceptos,conceptos,PGC,motivo,porcentaje,porcentajeb,baseimp,total,valor) "
     "values (1,'OP1','010','DERECHOS','P','',14,14,300,42,0)"},
    {"INTERNOS",
     "insert into itemliq "
     "(iditem,interno,idconceptos,conceptos,PGC,motivo,porcentaje,porcentajeb,baseimp,total,valor) "
     "values (1,'OP1','016','ADICIONAL','G','M1',24,24,300,0,1)"},
    {"INTERNOS",
     "insert into itemliq (iditem,interno,idconceptos,conceptos,PGC,porcentaje,porcentajeb,total) values "
     "(1,'OP1','422','IVA AD','P',20,20,60.123)"},
    {"INTERNOS",
     "insert into itemliq (iditem,interno,idconceptos,conceptos,PGC,porcentaje,total) values "
     "(1,'OP1','415','IVA','P',null,0)"},
    {"INTERNOS",
     "insert into itemliq (iditem,interno,idconceptos,conceptos,PGC,porcentaje,total) values "
     "(1,'OP1','424','GAN','P',0,0)"},
    {"INTERNOS",
     "insert into itemliq (iditem,interno,idconceptos,conceptos,PGC,porcentaje,total) values "
     "(1,'OP1','900','IB','P',2.5,7.5)"},
    {"INTERNOS",
     "insert into itemliq (iditem,interno,idconceptos,conceptos,PGC,porcentaje,total) values "
     "(2,'OP1','010','DERECHOS','P',0,0)"},
    {"INTERNOS", "insert into itemliq (iditem,interno,idconceptos,porcentaje) values (1,'OP2','010',5)"},
    {"INTERNOS", "insert into itemventaja (iditem,idventaja,interno) values (1,'VEHICULOPARTES','OP1')"},
    {"INTERNOS", "insert into itemventaja (iditem,idventaja,interno) values (1,'AUTOLIQLIBREIMP','OP1')"},
    {"INTERNOS", "insert into itemventaja (iditem,idventaja,interno) values (2,'VEHICULOPARTES','OP1')"},
    {"INTERNOS", "insert into iteminfo (iditem,idinfo,valor,interno) values (0,'MARCA','Ñandú','OP1')"},
    {"INTERNOS", "insert into iteminfo (iditem,idinfo,valor,interno) values (1,'MARCA','Ñandú','OP1')"},
    {"INTERNOS",
     "insert into liqcero (idconcepto,concepto,valor,interno,pgc) values ('010','DERECHOS',42,'OP1','P')"},
    {"INTERNOS",
     "insert into liqcero (idconcepto,concepto,valor,interno,pgc) values ('016','ADICIONAL',5.5,'OP1','G')"},
    {"INTERNOS",
     "insert into liqcero (idconcepto,concepto,valor,interno,pgc) values ('900','ARANCEL',2,'OP1',null)"},
    {"INTERNOS", "insert into liqcero (idconcepto,valor,interno) values ('###baseiva',342.1,'OP1')"},
    {"INTERNOS", "insert into sysflag (flag,valor,item,interno) values ('D1330/04A6','S',0,'OP1')"},
    {"INTERNOS", "insert into idrel (interno,idroot,idsub) values ('OP1',1,5)"},
    {"INTERNOS", "insert into idrel (interno,idroot,idsub) values ('OP1',5,6)"},
    {"INTERNOS",
     "insert into descargas "
     "(interno,dit,item,subitem,ncm,cantidad,factorponderacion,iditem,idexportacion,idext) values "
     "('OP1',26,1,1,'8409.91.12.100G',1.5,0.5,'',7,4)"},
    {"INTERNOS",
     "insert into descargas (interno,dit,item,subitem,cantidad,iditem,idext) values ('OP1',26,1,2,2,'1',5)"},
    {"INTERNOS", "insert into descargas (interno,dit,iditem,idexportacion) values ('OP1',25,null,9)"},
    // The stock: a line that OP1 took of, twice, and gave back once; and one of another client.
    {"INTERNOS",
     "insert into stock (dit,item,subitem,ncm,idcatalogo,idarticulo,descripcion,idunidad,cantidad,saldo,cif,"
     "divisa,preciounitario,idpais,sufijos,merma,fecha,vencimiento,cuitcliente,expctit,interno,idlinea) values "
     "('26IT1',1,2,'8409.91.12.100G','CAT','ART1','Bielas','01',10,7.5,100,'DOL',9.5,'203','',5,"
     "{2026-01-05},{2026-03-01},'30708123451','CT','OP3',3)"},
    {"INTERNOS",
     "insert into stock (dit,item,subitem,ncm,idcatalogo,idarticulo,descripcion,idunidad,cantidad,saldo,cif,"
     "cuitcliente,interno,idlinea) values "
     "('26IT2',1,1,'9403.20.00.000A','','','Ñandú','07',1,1,10,'30500000000','OP9',0)"},
    {"INTERNOS",
     "insert into stockmov (idstock,interno,idlinea,iditem,paraitem,cantidad,factor,descontado,cif,fecha,maquina) "
     "values (1,'OP1',1,1,'N',2.5,1,2.5,25,{2026-02-10 10:20:30},'PC1')"},
    {"INTERNOS",
     "insert into stockmov (idstock,interno,idlinea,iditem,paraitem,cantidad,factor,descontado,cif,fecha,maquina,"
     "devuelta,maquinadevuelta) values (1,'OP1',5,0,'S',1,1,1,10,{2026-02-10 10:20:30},'PC1',"
     "{2026-02-11 10:20:30},'PC2')"},
    {"INTERNOS", "insert into facturas(interno,orden,factura) values ('OP1',1,'F-1')"},
    {"INTERNOS", "insert into facturas(interno,orden,factura) values ('OP1',2,'F-2')"},
    {"INTERNOS",
     "Insert into prorrateo (interno,codigo,descripcion,valor) values ('OP1','A','Flete interno',30)"},
    {"INTERNOS",
     "Insert into prorrateo (interno,codigo,descripcion,valor) values ('OP1','Z','Sin uso',10.5)"},
    {"INTERNOS",
     "insert into itempresu (interno,concepto,valorpeso,valordolar) values ('OP1','HONORARIOS',1500.5,0)"},
    {"INTERNOS", "insert into itemref (interno,referencia,valor) values ('OP1','Buque','Ñandú ''A''')"},
    {"INTERNOS",
     "insert into interno (interno,maquina,usuario,fecha) values ('OP1','PC1','',{2026-02-10 11:00:01})"},
};

}  // namespace

const std::vector<FilaDeMuestra> &muestraDeOperaciones() {
    static const std::vector<FilaDeMuestra> filas(std::begin(operaciones), std::end(operaciones));
    return filas;
}
