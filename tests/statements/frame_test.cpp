// Statements of the frame and of the operations' life, browser, dashboard and consistency report.

#include "tests/statements/casos.h"

namespace {

const Caso arranque[] = {
    {"NewestDateOfTheNomenclature", "select max(fecha) as vfecha from control_fecha", Espera::Filas, "NCM",
     "2026-02-01 08:00:00"},
    {"VersionOfTheStore", "select valor from version where propiedad = 'version'", Espera::Filas, "INTERNOS",
     "330"},
    {"DatesOfTheNomenclature", "select fecha from control_fecha order by fecha desc", Espera::Filas, "NCM",
     "2026-02-01 08:00:00\n2026-01-01 00:00:00"},
    {"DateOfTheLicences", "select fecha from LNAPIFechaDeDatos", Espera::Filas, "NCM", "2025-12-31 00:00:00"},
    {"NumbersBetweenQuotes",
     "update itemliq set porcentaje = '0',baseimp = '0', total = '0' where interno = 'OP1'", Espera::Filas,
     "INTERNOS", "7"},
};
SENTENCIAS(Start, arranque);

const Caso ciclo[] = {
    {"KindOfASubregime", "select CSTAIMPEXP from STA where id = 'IC04'", Espera::Filas, "SYSTABLAS", "I"},
    {"KeyExists", "select interno from caratula where interno = 'OP1'", Espera::Filas, "INTERNOS", "OP1"},
    {"KeyExistsInAnotherCase", "select interno from caratula where interno = 'Op1'", Espera::Filas,
     "INTERNOS", "OP1"},
    {"KeyIsFree", "select interno from caratula where interno = 'NUEVO'", Espera::Nada},
    {"KeyWithAQuoteIsRefused", "select interno from caratula where interno = 'O'P1'", Espera::Rechazo},
    {"NewOperation",
     "insert into caratula (interno, fechaalta, ONCCAHabilitado) values ('NUEVO',{2026-03-01 09:00:00},'N')",
     Espera::Filas, "INTERNOS", "1"},
    {"LockIsRead", "select interno,maquina,fecha from interno where interno = 'OP1'", Espera::Filas,
     "INTERNOS", "OP1|PC1|2026-02-10 11:00:01"},
    {"LockIsTaken",
     "insert into interno (interno,maquina,usuario,fecha) values ('OP3','PC1','',{2026-02-28 23:59:59})"},
    {"LockIsRemoved", "delete from interno where interno = 'OP1'", Espera::Filas, "INTERNOS", "1"},
    {"InputsOfTheLines", "select cancelaciones,idcatalogo,idarticulo,id from subitems where interno = 'OP1'"},
    {"DeleteSubitems", "delete from subitems where interno = 'OP1'", Espera::Filas, "INTERNOS", "6"},
    {"DeleteGroupsubitems", "delete from groupsubitems where interno = 'OP1'", Espera::Filas, "INTERNOS",
     "5"},
    {"DeleteItem", "delete from item where interno = 'OP1'", Espera::Filas, "INTERNOS", "4"},
    {"DeleteLiqcero", "delete from liqcero where interno = 'OP1'", Espera::Filas, "INTERNOS", "4"},
    {"DeleteItemventaja", "delete from itemventaja where interno = 'OP1'", Espera::Filas, "INTERNOS", "3"},
    {"DeleteItemref", "delete from itemref where interno = 'OP1'", Espera::Filas, "INTERNOS", "1"},
    {"DeleteItempresu", "delete from itempresu where interno = 'OP1'", Espera::Filas, "INTERNOS", "1"},
    {"DeleteItemliq", "delete from itemliq where interno = 'OP1'", Espera::Filas, "INTERNOS", "7"},
    {"DeleteIteminfo", "delete from iteminfo where interno = 'OP1'", Espera::Filas, "INTERNOS", "2"},
    {"DeleteCaratula", "delete from caratula where interno = 'OP1'", Espera::Filas, "INTERNOS", "1"},
    {"DeleteFacturas", "delete from facturas where interno = 'OP1'", Espera::Filas, "INTERNOS", "2"},
    {"DeleteProrrateo", "delete from prorrateo where interno = 'OP1'", Espera::Filas, "INTERNOS", "2"},
    {"DeleteDescargas", "delete from descargas where interno = 'OP1'", Espera::Filas, "INTERNOS", "3"},
    {"DeleteHval", "delete from hval where interno = 'OP1'", Espera::Filas, "SYSTABLAS", "1"},
    {"DeleteHvalexp", "delete from hvalexp where interno = 'OP1'", Espera::Filas, "SYSTABLAS", "1"},
};
SENTENCIAS(Lifecycle, ciclo);

const Caso navegador[] = {
    {"FirstFifty", "select top 50 * from caratula  order by interno"},
    {"FirstTwoByDate", "select top 2 * from caratula  order by fechaalta desc,interno"},
    {"Everything", "select * from caratula  order by fechaalta desc,interno"},
    {"OfAClient", "select top 50 * from caratula  where  cuitcliente = '30708123451'  order by interno"},
    {"OfAClientAndABroker",
     "select top 50 * from caratula  where  cuitcliente = '30708123451' and  cuitdespaduana = '20111111112'  "
     "order by "
     "interno"},
    {"OfAPeriod",
     "select * from caratula  where  ( FechaAlta between {2026-02-01} and {2026-02-28} ) order by fechaalta "
     "desc,interno"},
    {"OfAPeriodAndAPrefix",
     "select * from caratula  where  ( FechaAlta between {2026-01-01} and {2026-02-28} )and  interno like "
     "'op%'  order by "
     "fechaalta desc,interno"},
    {"ByPrefixInAnyCase", "select top 50 * from caratula  where  interno like 'oP2%'  order by interno"},
    {"ByPrefixOfNone", "select top 50 * from caratula  where  interno like 'P2%'  order by interno",
     Espera::Nada},
};
SENTENCIAS(Browser, navegador);

const Caso tablero[] = {
    {"Header", "select * from caratula where interno = 'OP1'"},
    {"Kind", "select cstaimpexp from sta where id = 'EC01'", Espera::Filas, "SYSTABLAS", "E\nE"},
    {"CountOfItems", "select count(*) as valor from item where id<>0 and interno = 'OP1'", Espera::Filas,
     "INTERNOS", "3"},
    {"CountOfGroups", "select count(*) as valor from groupsubitems where interno = 'OP1'", Espera::Filas,
     "INTERNOS", "5"},
    {"RulesOfTheRegime", "select * from dest where subreg = 'IC04'", Espera::Filas, "USUARIO"},
    {"TotalOfTheLines", "select sum(fob) as total from subitems where interno = 'OP1'", Espera::Filas,
     "INTERNOS", "331.01"},
    {"TotalWithoutLines", "select sum(fob) as total from subitems where interno = 'OP3'", Espera::Filas,
     "INTERNOS", "<null>"},
    {"ItemsThereAre", "select count(1) as cont from item where interno = 'OP1'", Espera::Filas, "INTERNOS",
     "4"},
    {"Packages", "select factura9,BULNRO,BULCOD,BULTIP,BULPES,BULDES from caratula where interno = 'OP1'",
     Espera::Filas, "INTERNOS", "1|N1|32|A|12.345|cajas"},
    {"LargestPosition",
     "select ncm, fobtotal From item where interno='OP1' and id <> 0 order by fobtotal DESC", Espera::Filas,
     "INTERNOS", "8409.91.12.100G|300\n9403.20.00.000A|100\n9403.20.00.000a|80"},
    {"CurrencyTermOfAPosition",
     "select [071] From NCM where [001]='8409.91.12' and [002]='100' and [003]='G'", Espera::Filas, "NCM",
     "2 Dólar"},
    {"HeaderOfTheReport",
     "Select DCPaisOrigen, DcForzarPaisOrigen, DcPaisDestino From Caratula Where Interno = 'OP1'",
     Espera::Filas, "INTERNOS", "203|S|200"},
    {"LinesGroupsAndItems",
     "Select SubItems.ID as SubItemsID,SubItems.IdPais as SubItemsIDPAIS,SubItems.IdPaisProc as "
     "SubItemsIDPAISPROC,"
     "GroupSubItems.ID as GroupSubItemsID, GroupSubItems.IdPais as GroupSubItemsIDPAIS, "
     "GroupSubItems.IdPaisProc as "
     "GroupSubItemsIDPROC,Item.IdPais as ItemIDPAIS, Item.IdProc as ItemIDPAISPROC From SubItems, "
     "GroupSubItems, Item "
     "Where GroupSubItems.ID = Item.ID AND SubItems.ID = GroupSubItems.IDSUB AND SubItems.Interno = "
     "GroupSubItems.Interno AND GroupSubItems.Interno = Item.Interno AND GroupSubItems.Interno = 'OP1' Order "
     "by "
     "GroupSubitems.ID, GroupSubItems.IDSub ",
     Espera::Filas, "INTERNOS",
     "1|203|203|1|203|203|203|203\n2|203|203|1|203|203|203|203\n3|<null>|<null>|2|<null>|<null>||"},
    {"ArmedAgain", "update caratula set factura8 = 'S' where interno = 'OP1'", Espera::Filas, "INTERNOS",
     "1"},
    {"Armed", "update caratula set factura8 = 'N' where interno = 'OP1'", Espera::Filas, "INTERNOS", "1"},
};
SENTENCIAS(Dashboard, tablero);

}  // namespace
