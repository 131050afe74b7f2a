#include "tests/transfer/operacion.h"

#include <QFile>

using namespace Qt::StringLiterals;

void OperacionParaEnviar::SetUp() {
    EnAmbosStores::SetUp();
    const QString sentencias[] = {
        u"insert into caratula (interno,idsubreg,idaduana,cuitcliente,factura7,fobdivisas,fobcoddivisas,"
        "fobdivcambio,fletedivisas,segurodivisas,idcondiciondeventa,fechaembarque,factura8,factura9,bulnro,"
        "bulpes,buldes,venemb,dccomext) values ('A1','IC04','001','30708123451','ALFA S.A.',100,'DOL',1,10,1,"
        "'FOB','02/01/2026','N','1','3',12.5,'3 CAJAS','30-12-26',0)"_s,
        u"insert into facturas (interno,orden,factura) values ('A1',1,'F-1')"_s,
        u"insert into facturas (interno,orden,factura) values ('A1',2,'A-2')"_s,
        u"insert into item (interno,id,totalkneto) values ('A1',0,0)"_s,
        u"insert into item (interno,id,ncm,idpais,idproc,idunidad,cantidad,estadistica,"
        "valorrelacionestadistica,deresp,valorderesp,totalkneto,totalkbruto,fobtotal,itflete,itseguro,"
        "tipoitem) values ('A1',1,'8413.70.10.100L','438','438','07',3,'07',3,'',0,5,6,60,6,0.6,'N')"_s,
        u"insert into item (interno,id,ncm,idpais,idproc,idunidad,cantidad,totalkneto,totalkbruto,fobtotal,"
        "itflete,itseguro,tipoitem) values ('A1',2,'8482.10.10.111H','212','212','07',8,4.5,6.5,40,4,0.4,"
        "'N')"_s,
        u"insert into groupsubitems (interno,id,idsub,ncm,idarticulo,cantidad,preciounitario,fob,sufijos) "
        "values ('A1',1,11,'8413.70.10.100L','BOMBA',1,25.5,25.5,'AA01-AB(UNO)-')"_s,
        u"insert into groupsubitems (interno,id,idsub,ncm,idarticulo,cantidad,preciounitario,fob) "
        "values ('A1',1,12,'8413.70.10.100L','BOMBA 2',2,17.25,34.5)"_s,
        u"insert into groupsubitems (interno,id,idsub,ncm,idarticulo,cantidad,preciounitario,fob) "
        "values ('A1',2,13,'8482.10.10.111H','RULEMAN',8,5,40)"_s,
        u"insert into itemliq (interno,iditem,idconceptos,conceptos,pgc,porcentaje,baseimp,total) "
        "values ('A1',1,'010','DERECHOS DE IMPORTACION','P',10,66.6,6.66)"_s,
        u"insert into itemliq (interno,iditem,idconceptos,conceptos,pgc,porcentaje,baseimp,total) "
        "values ('A1',1,'011','TASA DE ESTADISTICA','P',0,66.6,0)"_s,
        u"insert into itemliq (interno,iditem,idconceptos,conceptos,pgc,porcentaje,baseimp,total,motivo) "
        "values ('A1',2,'010','DERECHOS DE IMPORTACION','G',10,44.4,4.44,'DTO.1')"_s,
        u"insert into liqcero (interno,idconcepto,concepto,valor,pgc) values ('A1','010','DERECHOS DE "
        "IMPORTACION',11.1,'P')"_s,
        u"insert into liqcero (interno,idconcepto,valor) values ('A1','###baseimp',111)"_s,
        u"insert into itemventaja (interno,iditem,idventaja) values ('A1',1,'BIENCAPITAL')"_s,
        u"insert into iteminfo (interno,iditem,idinfo,valor) values ('A1',2,'DATO','x < y & \"z\"')"_s,
        u"insert into iteminfo (interno,iditem,idinfo,valor) values ('A1',0,'GENERAL','Sí')"_s,
        u"insert into descargas (interno,iditem,dit,item,subitem,ncm,expctit,cantidad,factorponderacion) "
        "values ('A1','2','25001IT04000123A',1,2,'8482.10.10.111H','EXP-1',1.5,0.25)"_s,
    };
    for (const QString &sentencia : sentencias) ejecutar(sentencia);
}

QStringList OperacionParaEnviar::advertencias() {
    QStringList lineas;
    for (const Advertencia &a : PrepararTransferencia(*ctx, u"A1"_s).advertencias)
        lineas << QString::number(a.item) + u'|' + a.texto;
    return lineas;
}

QByteArray BytesDe(const QString &archivo) {
    QFile f(archivo);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArrayLiteral("<nada>");
}
