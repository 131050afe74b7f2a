#include "tests/quote/presupuestos.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

void Presupuestos::SetUp() {
    EnAmbosStores::SetUp();
    ctx->SeparadorDecimal = u',';
    ctx->ConfigFilePath = tienda->carpeta() + "/Prueba.cfg"_L1;
    ponerSecciones();
    ponerPase("1000");
    ejecutar(
        u"insert into caratula (interno,idsubreg,cuitdespaduana,cuitcliente,fobdivcambio,fletedivisas,"
        "fletedivcambio,segurodivisas,segurodivcambio,ajusteincluir,ajustededucir) "
        "values ('OP 1','IC04','20167890122','30708123451',1.085,2350,1,410,1.27,0,0)"_s);
    ejecutar(u"insert into caratula (interno,factura6) values ('OTRA',7)"_s);
    ejecutar(u"insert into despadu (cuit,nombre) values ('20167890122','FERREYRA HORACIO')"_s, u"PERSONAL"_s);
    ejecutar(
        u"insert into clientes (cuit,nombre,domicilio,email) "
        "values ('30708123451','HIDRAULICA DEL PLATA S.A.','Juan B. Justo 4820','comex@hidraulica.example')"_s,
        u"PERSONAL"_s);
    for (const char *fob : {"1000.10", "500.155"})
        ejecutar(
            u"insert into groupsubitems (interno,id,fob) values ('OP 1',1,%1)"_s.arg(QLatin1String(fob)));
    for (const char *item : {"0,900,900", "1,20,10.5", "2,2,null"})
        ejecutar(u"insert into item (interno,id,ajusteinc,ajusteded) values ('OP 1',%1)"_s.arg(
            QLatin1String(item)));
    for (const char *fila :
         {"'010','DERECHOS',100,'P'", "'011','TASA ESTADISTICA',20.5,'P'", "'415','IVA',50.25,'G'",
          "'601','REINTEGRO',30,'C'", "'900','ARANCEL',10,null", "'020','SIN VALOR',null,'P'",
          "'###baseimp',null,4510.96,null", "'###baseiva',null,342.1,null"})
        ejecutar(u"insert into liqcero (interno,idconcepto,concepto,valor,pgc) values ('OP 1',%1)"_s.arg(
            QLatin1String(fila)));
}

void Presupuestos::ponerSecciones() {
    const QDir origen(CarpetaDeFuentes() + "/seccion"_L1);
    const QDir destino(ctx->ProgramFolder + "seccion"_L1);
    ASSERT_TRUE(destino.mkpath(u"."_s));
    const QStringList archivos = origen.entryList({u"*.cpl"_s}, QDir::Files);
    for (const QString &archivo : archivos)
        ASSERT_TRUE(QFile::copy(origen.filePath(archivo), destino.filePath(archivo)));
}

void Presupuestos::ponerPase(const char *pase) {
    ctx->ajustes.Guardar(u"ZENDRA"_s, u"PRESUPUESTO"_s, u"PASE"_s, QLatin1String(pase));
}

Presupuesto Presupuestos::cargar() {
    Presupuesto p;
    EXPECT_TRUE(CargarCaratula(*ctx, operacionPresupuestada, p));
    return p;
}

void Presupuestos::ponerConceptos() {
    AgregarGasto(*ctx, operacionPresupuestada, u"HONORARIOS"_s, u"1500,5"_s, false);
    AgregarGasto(*ctx, operacionPresupuestada, u"FLETE INTERNO"_s, u"12,25"_s, true);
    registro.textos = {u"CAP SAN MARTIN"_s};
    EXPECT_TRUE(AgregarReferencia(*ctx, operacionPresupuestada, u"BUQUE"_s));
}

std::string Presupuestos::ultimo() const {
    return registro.mensajes.empty() ? std::string() : registro.mensajes.back().texto.toStdString();
}
