// Statements of the valuation sheet and of the certificates of origin.

#include "tests/statements/casos.h"

namespace {

const Caso deFormularios[] = {
    {"HeadOfTheCertificates",
     "select idsubreg,fechaalta,factura2,dcpaisorigen,dcforzarpaisorigen,dcpaisdestino from caratula where "
     "interno = 'OP1'"},
    {"CertificatesOfTheOperation",
     "select id,numero,fecha,idpais,exportador,vencimiento,observaciones from certorigen where interno = "
     "'OP1' order by numero, id",
     Espera::Filas, "INTERNOS",
     "1|CO-1|2026-01-20 00:00:00|203|ÑANDU|<null>|\n2|co-2|<null>|<null>|<null>|2026-07-19 00:00:00|<null>"},
    {"LinesOfTheCertificates",
     "select id,idarticulo,ncm,descripcion,cantidad,idunidad,fob,idpais,idpaisproc,certorig from subitems "
     "where interno = 'OP1' order by id"},
    {"LastCertificate", "select max(id) as id from certorigen where interno = 'OP1'", Espera::Filas,
     "INTERNOS", "2"},
    {"NewCertificate",
     "insert into certorigen (numero,fecha,idpais,exportador,vencimiento,observaciones,interno) values "
     "('CO-3',{2026-02-10 00:00:00},'203','D''OR',null,'','OP1')",
     Espera::Filas, "INTERNOS", "1"},
    {"ChangedCertificate",
     "update certorigen set numero = 'CO-9',fecha = {2026-02-10 00:00:00},idpais = '203',exportador = "
     "'',vencimiento = null,observaciones = '' where interno = 'OP1' and id = 1",
     Espera::Filas, "INTERNOS", "1"},
    {"CertificateOfAnotherOperation",
     "update certorigen set numero = 'CO-9' where interno = 'OTRA' and id = 1", Espera::Nada},
    {"NumberOnLines", "update subitems set certorig = 'CO-1' where interno = 'OP1' and id in (1,2)"},
    {"NumberOffLines", "update subitems set certorig = '' where interno = 'OP1' and id in (1)"},
    {"DeleteCertificate", "delete from certorigen where interno = 'OP1' and id = 2", Espera::Filas,
     "INTERNOS", "1"},
    {"DeleteCertificates", "delete from certorigen where interno = 'OP1'", Espera::Filas, "INTERNOS", "2"},
    {"HeadOfTheSheet",
     "select idsubreg,idaduana,fechaalta,cuitcliente,idvendedor,factura2,factura3,factura7,datocomprador,"
     "idcondiciondeventa,fobdivisas,fobcoddivisas,fobdivcambio,valoraprorratear,fletedivisas,fletedivcambio,"
     "segurodivisas,segurodivcambio,seguroporcentaje,ajusteincluir,ajustededucir from caratula where interno "
     "= 'OP1'"},
    {"ClientOfTheSheet", "select nombre,domicilio from clientes where cuit = '30708123451'", Espera::Filas,
     "PERSONAL"},
    {"SheetOfAnImport", "select * from hval where interno = 'OP1'", Espera::Filas, "SYSTABLAS"},
    {"SheetOfAnExport", "select * from hvalexp where interno = 'OP1'", Espera::Filas, "SYSTABLAS"},
    {"ChangedSheet",
     "update hval set divisa = '060',cambio = 1.085,metodo = '1',contrato = 'D''OR',fechacontrato = "
     "{2025-11-14 00:00:00},restricciones = 'N',precio = 35950,flete = 2165.9 where interno = 'OP1'",
     Espera::Filas, "SYSTABLAS", "1"},
    {"NewSheet",
     "insert into hvalexp (divisa,cambio,naturaleza,fechacontrato,precio,interno) values "
     "('DOL',1,'V',null,107467.5,'OP2')",
     Espera::Filas, "SYSTABLAS", "1"},
    {"OperationByKey", "select interno from caratula where interno = 'op1'", Espera::Filas, "INTERNOS",
     "OP1"},
    {"OperationsByBeginning",
     "select top 200 interno,idsubreg,factura7 from caratula where interno like 'OP%' order by interno"},
};
SENTENCIAS(Forms, deFormularios);

}  // namespace
