// Statements of the code tables, the header, packages and transport, and the parties.

#include "tests/statements/casos.h"

namespace {

const Caso codigos[] = {
    {"DescriptionOfAPort", "SELECT LPOR as descripcion FROM PUERTOS where cpor = 'ARBUE'", Espera::Filas,
     "INTERNOS", "Buenos Aires"},
    {"DescriptionOfASubregime", "select descripcion from STA where id ='IC04'", Espera::Filas, "SYSTABLAS",
     "Importación a consumo"},
    {"DescriptionOfACustomsOffice", "select descripcion from ADUANA where id ='001'", Espera::Filas,
     "SYSTABLAS"},
    {"DescriptionOfAPackageType", "select descripcion from TIPOEMB where id ='A'"},
    {"DescriptionOfAPackageCode", "select descripcion from CODEMB where id ='32'"},
    {"DescriptionOfAWay", "select descripcion from via where id ='8'", Espera::Filas, "INTERNOS", "ACUÁTICO"},
    {"DescriptionOfASaleCondition", "select descripcion from CONDICIONDEVENTA where id ='fob'", Espera::Filas,
     "SYSTABLAS", "Libre a bordo"},
    {"DescriptionOfACurrency", "select descripcion from DIVISAS where id ='DOL'"},
    {"DescriptionOfACountry", "select descripcion from PAIS where id ='203'", Espera::Filas, "SYSTABLAS",
     "BRASIL"},
    {"DescriptionOfAReason", "select descripcion from MOTIVO where id ='M1'", Espera::Filas, "SYSTABLAS"},
    {"DescriptionOfAState", "select descripcion from ESTADOMERCADERIA where id ='1'"},
    {"DescriptionOfAUnit", "select descripcion from UNIDADES where id ='01'"},
    {"IdOfASubregimeThroughTheOperations", "select id from STA where id ='IC04'", Espera::Filas, "INTERNOS",
     "IC04"},
    {"IdOfACustomsOfficeThroughTheOperations", "select id from ADUANA where id ='001'"},
    {"IdOfAPackageType", "select id from TIPOEMB where id ='a'", Espera::Filas, "INTERNOS", "A"},
    {"IdOfAPackageCode", "select id from CODEMB where id ='32'"},
    {"IdOfAWay", "select id from via where id ='8'"},
    {"IdOfASaleCondition", "select id from CONDICIONDEVENTA where id ='FOB'", Espera::Filas, "SYSTABLAS"},
    {"IdOfACurrency", "select id from DIVISAS where id ='DOL'"},
    {"IdOfACountry", "select id from PAIS where id ='203'", Espera::Filas, "SYSTABLAS"},
    {"IdOfAReason", "select id from MOTIVO where id ='M1'", Espera::Filas, "SYSTABLAS"},
    {"IdOfAState", "select id from ESTADOMERCADERIA where id ='1'"},
    {"IdOfAUnit", "select id from UNIDADES where id ='01'"},
    {"IdOfABank", "select id from BANCOS where id ='011'", Espera::Filas, "SYSTABLAS"},
    {"IdOfAPort", "select id from PUERTOS where id ='ARBUE'", Espera::Rechazo},
    {"CodeThatIsNone", "select descripcion from PAIS where id ='999'", Espera::Nada, "SYSTABLAS"},
    {"RateOfACurrency", "select * from divisas where id = 'DOL'", Espera::Filas, "INTERNOS",
     "DOL|Dólar estadounidense|1.25"},
    {"StoredRate", "select [imp] from divisas where id = 'dol'", Espera::Filas, "INTERNOS", "1.25"},
    {"RateIsStored", "update divisas set imp = 1.5 where id = 'DOL'", Espera::Filas, "INTERNOS", "1"},
    {"RateOfNoCurrency", "update divisas set imp = 1.5 where id = 'XXX'", Espera::Nada},
};
SENTENCIAS(Codes, codigos);

const Caso listas[] = {
    {"Subregimes", "select distinct id,descripcion from sta order by id,descripcion", Espera::Filas,
     "SYSTABLAS", "EC01|Exportación a consumo\nIC04|Importación a consumo"},
    {"CustomsOffices", "select * from ADUANA order by descripcion,id", Espera::Filas, "SYSTABLAS",
     "001|Buenos Aires\n033|La Plata"},
    {"PackageCodes", "select * from CODEMB order by descripcion,id", Espera::Filas, "INTERNOS",
     "32|Bultos\n05|Cajas"},
    {"PackageTypes", "select * from TIPOEMB order by descripcion,id"},
    {"Ways", "select * from via order by descripcion,id", Espera::Filas, "INTERNOS", "8|ACUÁTICO\n4|AÉREO"},
    {"SaleConditions", "select * from CONDICIONDEVENTA order by id,descripcion", Espera::Filas, "SYSTABLAS"},
    {"CountriesLongestCodeFirst", "select * from PAIS order by len(id) desc,descripcion", Espera::Filas,
     "SYSTABLAS", "203|BRASIL\n310|CHINA\nB|Bloque"},
    {"Banks", "select * from BANCOS order by descripcion", Espera::Filas, "SYSTABLAS"},
    {"Reasons", "select * from MOTIVOS order by descripcion", Espera::Filas, "SYSTABLAS"},
    {"ReasonsOfTemporaryImports",
     "select id,descripcion,dias from MOTTMP where impexpo = 'I' order by descripcion", Espera::Filas,
     "SYSTABLAS", "T1|Temporal|180"},
    {"ReasonsOfTemporaryExports",
     "select id,descripcion,dias from MOTTMP where impexpo = 'E' order by descripcion", Espera::Filas,
     "SYSTABLAS", "T2|Temporal|90"},
    {"StatesOfGoods", "select id , descripcion from ESTADOMERCADERIA order by id"},
    {"UnitsBeginWithABlank", "select id,' ' + descripcion AS descr from UNIDADES order by descripcion ",
     Espera::Filas, "SYSTABLAS", "01| KILOGRAMO\n07| UNIDAD"},
    {"Ports",
     "select cpor as id,lpor as descripcion from puertos where cpor is not null and lpor is not null  order "
     "by lpor",
     Espera::Filas, "INTERNOS", "ARBUE|Buenos Aires"},
    {"Currencies", "select * from DIVISAS order by descripcion,id", Espera::Filas, "INTERNOS",
     "DOL|Dólar estadounidense|1.25\n060|Euro|1.1"},
};
SENTENCIAS(PickLists, listas);

const Caso caratula[] = {
    {"TotalOfTheProrations", "select sum(valor) as tot from prorrateo where interno = 'OP1'", Espera::Filas,
     "INTERNOS", "40.5"},
    {"ClientOfTheHeader", "select nombre,regalias,ajxvinc_4102 from clientes where cuit = '30708123451'",
     Espera::Filas, "PERSONAL", "Cliente SA|1|2"},
    {"InvoiceExists", "select count(*) as cant from facturas where interno = 'OP1' and factura = 'f-1'",
     Espera::Filas, "INTERNOS", "1"},
    {"LastInvoice", "select Max(orden) as ord from facturas where interno = 'OP1'", Espera::Filas, "INTERNOS",
     "2"},
    {"LastInvoiceOfNone", "select Max(orden) as ord from facturas where interno = 'OP3'", Espera::Filas,
     "INTERNOS", "<null>"},
    {"NewInvoice", "insert into facturas(interno,orden,factura) values ('OP1',3,'F-3')", Espera::Filas,
     "INTERNOS", "1"},
    {"Invoices", "select factura from facturas where interno = 'OP1' order by orden", Espera::Filas,
     "INTERNOS", "F-1\nF-2"},
    {"InvoiceIsRemoved", "delete from facturas where interno = 'OP1' and factura = 'F-1'", Espera::Filas,
     "INTERNOS", "1"},
    {"HeaderIsSaved",
     "update caratula set idsubreg = 'DJAI',idaduana = '001',idaduanasal = '',cuitcliente = '30708123451',"
     "cuitdespaduana = '20111111112',factura1 = 'F-1,F-2',factura2 = 'O''Higgins',factura3 = '',factura5 = "
     "'',"
     "factura7 = 'Ñandú',idvendedor = 'V1',fobdivisas = 1000.25,fobcoddivisas = 'DOL',fobdivcambio = "
     "1.250000,"
     "fletedivisas = 0,fletecoddivisas = '',fletedivcambio = 0,Segurodivisas = 00.00,segurocoddivisas = '',"
     "segurodivcambio = 0,seguroporcentaje = 1.5,valoraprorratear = 0,ajusteincluir = 0,ajustededucir = 0,"
     "factorconver = 0,idcondiciondeventa = 'FOB',idpaisdestino = '200',motivodestsuspensiva = '',"
     "autorizdestsuspensiva = '',plazoautorizacion = '',cierreventa = '01/02/2026',facilidadpago = "
     "'N',DCComext = 0,"
     "DCEstMerc = '',DCForzarEstMerc = 'N',DCPaisOrigen = '',DCForzarPaisOrigen = 'N',DCPaisDestino = '',"
     "DCStandard = 'N',DCRegalias = 'N',DCBancos = '011',DCKgNeto = 12.5,DATOCOMPRADOR = '',NROTRANSINTER = "
     "'',"
     "OpcionesIVA = '',OpcionesGanancias = '',gastos_anteriores_fob = 00.000,gastos_posteriores_fob = 1.125,"
     "DJAI_FECHA_EMB_APROX = {2026-02-10},DJAI_FECHA_ARRIB_APROX = {2026-03-10},"
     "DC_DJAI_ForzarDescripcionMercaderia = 'S',DC_DJAI_DescripcionMercaderia = 'x',fechaembarque = '',"
     "anexo_vendedor = '' where interno = 'OP1'",
     Espera::Filas, "INTERNOS", "1"},
    {"Comment", "select * from coment where interno = 'OP1'", Espera::Filas, "SYSTABLAS"},
    {"CommentThereIs", "select count(*) as cont from coment where interno = 'OP1'", Espera::Filas,
     "SYSTABLAS", "1"},
    {"NewComment", "insert into coment(interno,coment) values ('OP2','uno\ndos ''tres''')", Espera::Filas,
     "SYSTABLAS", "1"},
    {"CommentIsChanged", "update coment set coment = 'otro' where interno = 'OP1'", Espera::Filas,
     "SYSTABLAS", "1"},
};
SENTENCIAS(Header, caratula);

const Caso bultos[] = {
    {"PackagesAndTransport",
     "select factura9,BULNRO,BULCOD,BULTIP,BULPES,BULDES,marcabul, via, trans, bandera, cuittrans "
     ",factura10, venemb from "
     "caratula where interno = 'OP1'"},
    {"PackagesAreNotTransferred", "update caratula set factura9 = '1' where interno = 'OP1'", Espera::Filas,
     "INTERNOS", "1"},
    {"PackagesAreSaved",
     "update caratula set marcabul = 'S/M ''x''',bulnro = '1',via = '8',trans = 'T',bandera = '200',"
     "cuittrans = '30500000001',factura9 = '1',factura10 = '',bulcod = '32',bultip = 'A',bulpes = "
     "12.50,buldes = 'cajas',"
     "venemb = '10-02-26' where interno = 'OP1'",
     Espera::Filas, "INTERNOS", "1"},
    {"NameOfAnAgent", "select nombre from transporte where cuit = '30500000001'", Espera::Filas, "PERSONAL",
     "Transporte"},
    {"Agents", "select * from transporte order by nombre", Espera::Filas, "PERSONAL"},
    {"AgentIsRemoved", "delete from transporte where cuit = '30500000001'", Espera::Filas, "PERSONAL", "1"},
    {"AgentThatIsNone", "delete from transporte where cuit = '1'", Espera::Nada, "PERSONAL"},
    {"NewAgent", "insert into transporte(cuit,nombre) values ('30500000002','Otro')", Espera::Filas,
     "PERSONAL", "1"},
    {"AgentIsChanged",
     "update transporte set cuit = '30500000003', nombre = 'Otro' where cuit = '30500000001'", Espera::Filas,
     "PERSONAL", "1"},
};
SENTENCIAS(Packages, bultos);

const Caso personas[] = {
    {"NameOfABroker", "select nombre from despadu where cuit = '20111111112'", Espera::Filas, "PERSONAL",
     "Despachante"},
    {"NameOfASeller", "select nombre from vendedor where codigo = 'v1'", Espera::Filas, "PERSONAL", "Zeta"},
    {"NameOfAClient", "select nombre from clientes where cuit = '30708123451'", Espera::Filas, "PERSONAL",
     "Cliente SA"},
    {"CountriesByCode", "select * from PAIS order by id", Espera::Filas, "SYSTABLAS",
     "203|BRASIL\n310|CHINA\nB|Bloque"},
    {"Seller", "select * from vendedor where codigo = 'V1'", Espera::Filas, "PERSONAL"},
    {"SellerIsChanged",
     "update vendedor set nombre = 'Zeta Dos', domicilio = 'Calle', paisdelexportador = '310' where codigo = "
     "'V1'",
     Espera::Filas, "PERSONAL", "1"},
    {"SellerExists", "select count(1) as cont from vendedor where codigo = 'V1'", Espera::Filas, "PERSONAL",
     "1"},
    {"NewSeller",
     "insert into vendedor (codigo,nombre,domicilio, paisdelexportador) values ('V3','Beta','','203')",
     Espera::Filas, "PERSONAL", "1"},
    {"SellersByName", "select * from vendedor order by nombre", Espera::Filas, "PERSONAL",
     "V2|alfa|Calle|310|<null>\nV1|Zeta|Calle|203|<null>"},
    {"SellersByCode", "select * from vendedor order by codigo", Espera::Filas, "PERSONAL",
     "V1|Zeta|Calle|203|<null>\nV2|alfa|Calle|310|<null>"},
    {"SellerIsRemoved", "delete from vendedor where codigo = 'V1'", Espera::Filas, "PERSONAL", "1"},
    {"Brokers", "select cuit,nombre from despadu order by nombre", Espera::Filas, "PERSONAL",
     "20111111112|Despachante\n20999999999|Álvarez"},
};
SENTENCIAS(Parties, personas);

}  // namespace
