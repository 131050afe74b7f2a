#include "tests/caratula/caratulas.h"

#include "frame/base/numbers.h"

using namespace Qt::StringLiterals;

void Caratulas::SetUp() {
    EnAmbosStores::SetUp();
    ctx->SeparadorDecimal = QLatin1Char('.');
    ejecutar("insert into caratula (interno,factura8) values ('OP 1','N')");
    ejecutar("insert into caratula (interno,factura8,idsubreg) values ('OTRA','N','IC04')");
    for (const char *fila : {"'IC04','Consumo','I'", "'IC01','A la orden','I'", "'EC01','Exportación','E'",
                             "'EC16','Con facilidad','E'", "'DJAI','Anticipada','I'", "'LAPI','Licencia','I'",
                             "'TR01','Tránsito','I'", "'DIR6','Directo','I'", "'IC99','Sin reglas','I'",
                             "'RE01','Reembarco','E'"})
        ejecutar(u"insert into sta (id,descripcion,cstaimpexp) values (%1)"_s.arg(QString::fromUtf8(fila)),
                 "SYSTABLAS");
    ejecutar(
        "insert into dest (subreg,txtidaduana2,txtidpais,txtdccomiext,txtautdestsusp) values "
        "('IC04','x','x','x','x')",
        "USUARIO");
    ejecutar(
        "insert into dest (subreg,txtfletedivisas,txtsegurodivisas,txtanexo_vendedor,txtfechaembarque) "
        "values ('EC01','x','x','x','x')",
        "USUARIO");
    ejecutar("insert into dest (subreg,txtidvendedor,txtidcondventa) values ('DJAI','x','')", "USUARIO");
    ejecutar("insert into dest (subreg,txtfobdivisas) values ('LAPI','x')", "USUARIO");
    ejecutar("insert into dest (subreg) values ('EC16')", "USUARIO");
    ejecutar("insert into aduana (id,descripcion) values ('001','BUENOS AIRES')", "SYSTABLAS");
    ejecutar("insert into aduana (id,descripcion) values ('038','MENDOZA')", "SYSTABLAS");
    ejecutar("insert into pais (id,descripcion) values ('203','BRASIL')", "SYSTABLAS");
    ejecutar("insert into bancos (id,descripcion) values ('011','NACION')", "SYSTABLAS");
    ejecutar("insert into condiciondeventa (id,descripcion) values ('FOB','Franco a bordo')", "SYSTABLAS");
    ejecutar(
        "insert into mottmp (id,descripcion,dias,impexpo) values ('DTO.1439/96','Perfeccionamiento',720,'I')",
        "SYSTABLAS");
    ejecutar("insert into mottmp (id,descripcion,dias,impexpo) values ('SALIDA','Exposición',60,'E')",
             "SYSTABLAS");
    ejecutar("insert into divisas (id,descripcion,imp) values ('DOL','Dólar',1)");
    ejecutar("insert into divisas (id,descripcion,imp) values ('060','Euro',1.085)");
    ejecutar(
        "insert into clientes (cuit,nombre,regalias,ajxvinc_4102) values ('30708123451','HIDRAULICA',0,0)",
        "PERSONAL");
    ejecutar(
        "insert into clientes (cuit,nombre,regalias,ajxvinc_4102) values ('30714560200','L''AUTO',2.5,1.5)",
        "PERSONAL");
    ejecutar("insert into despadu (cuit,nombre) values ('20167890122','FERREYRA')", "PERSONAL");
    ejecutar("insert into vendedor (codigo,nombre) values ('V001','NORDPUMPEN')", "PERSONAL");
    c = CaratulaVacia(interno);
}

Veredicto Caratulas::teclear(const char *control, const QString &valorTecleado) {
    c.poner(control, valorTecleado);
    CampoCambia(*ctx, c, control);
    return CampoEnter(*ctx, c, control);
}

void Caratulas::llenar(const QString &regimen) {
    teclear("TxtSubReg", regimen);
    teclear("txtIdAduana1", "001");
    teclear("TxtCUITCliente", "30708123451");
    teclear("TxtCuitAduana", "20167890122");
    teclear("Txtidvendedor", "V001");
    teclear("Txtfobdivisas", "1000");
    teclear("TxtCoddivfob", "DOL");
    teclear("Txtfletedivisas", "100");
    teclear("TxtCodDivFlete", "DOL");
    teclear("Txtsegurodivisas", "10");
    teclear("TxtCodDivseguro", "DOL");
    teclear("Txtidcondventa", "FOB");
    teclear("TxtFactura", "A-1");
    registro = Registro();
}

std::string Caratulas::guardado(const QString &columnas) {
    return filas(u"select %1 from caratula where interno = 'OP 1'"_s.arg(columnas)).toStdString();
}

std::string Caratulas::ultimoMensaje() const {
    return registro.mensajes.empty() ? "<ninguno>" : registro.mensajes.back().texto.toStdString();
}
