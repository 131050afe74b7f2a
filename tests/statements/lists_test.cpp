// Statements of the lists.

#include "tests/statements/casos.h"

namespace {

const Caso deListas[] = {
    {"LinesOfTheOperation",
     "select idarticulo,descripcion,ncm,idunidad,cantidad,preciounitario,fob,kgneto,idpais,estadomerc,"
     "valorrelacionestadistica,estadistica,factura_nro from subitems where interno = 'OP1' order by id"},
    {"LinesOfNoOperation",
     "select idarticulo,descripcion,ncm,idunidad,cantidad,preciounitario,fob,kgneto,idpais,estadomerc,"
     "valorrelacionestadistica,estadistica,factura_nro from subitems where interno = 'NO' order by id",
     Espera::Nada},
    {"HeadOfTheOperation", "select idsubreg,factura7,fobcoddivisas from caratula where interno = 'OP1'"},
    {"PackagesOfTheOperation",
     "select bulnro,buldes,bulcod,bultip,bulpes,marcabul,via,trans,bandera,cuittrans,factura10,venemb from "
     "caratula where interno = 'OP1'"},
    {"ArticlesOfTheCatalogue",
     "select idarticulo,descripcion,ncm,idunidad,preciounitario,idpais from catarticulos where idcatalogo = "
     "'cat'",
     Espera::Filas, "CATALOGOS",
     "ART1|Bielas|8409.91.12.100G|<null>|10.5|203\nart2|Sillas ñ|9403.20.00.000A|<null>|3|<null>"},
    {"EveryOperation", "select * from caratula  order by interno"},
};
SENTENCIAS(Lists, deListas);

}  // namespace
