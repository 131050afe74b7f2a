#include "tests/lines/lineas.h"

#include "frame/base/numbers.h"
#include "subitems/ReferenceValues.h"

using namespace Qt::StringLiterals;

void Lineas::SetUp() {
    EnAmbosStores::SetUp();
    ctx->SeparadorDecimal = QLatin1Char('.');
    ejecutar(
        "insert into caratula (interno,idsubreg,fobdivisas,factura8,onccahabilitado) values "
        "('OP 1','IC04',1000,'N','S')");
    ejecutar("insert into caratula (interno,idsubreg,fobdivisas,factura8) values ('OTRA','IC04',50,'N')");
    const char *const posiciones[] = {
        "'8413.70.10','100','L','Bombas para líquidos','Máquinas','Las demás','07','12.00','5.00','2.50','',"
        "'*','','','*'",
        "'2204.21.00','100','X','Vino de uvas','Bebidas','En envases','05','20.00','0','0','01','','*','',''",
        "'3901.10.10','000','A','Polietileno','Plásticos','Lineal','01','14.00','0','0','','','','',''",
        "'9999.00.00','000','Z','Varios','Varios','Varios','','0','0','0','','','','',''"};
    for (const char *valores : posiciones)
        ejecutar(
            u"insert into ncm "
            "([001],[002],[003],[004],[005],[010],[012],[015],[018],[019],[020],[052],[044],"
            "[043],[059]) values (%1)"_s.arg(QString::fromUtf8(valores)),
            "NCM");
    for (const char *fila : {"'8413.70.10.100','AA01','Nueva'", "'8413.70.10.100','AA02','Usada'",
                             "'8413.  .  .   ','AB','Modelo'", "'2204.  .  .   ','BA01','Tinto'"})
        ejecutar(u"insert into sufidos (sim,sufijo,detalle) values (%1)"_s.arg(QLatin1String(fila)), "NCM");
    for (const char *fila : {"'09','07',12", "'29','01',1000", "'14','01',0.001"})
        ejecutar(u"insert into unidrel (unid1,unid2,pase) values (%1)"_s.arg(QLatin1String(fila)));
    for (const char *fila : {"'01','KILOGRAMO'", "'07','UNIDAD'", "'09','DOCENA'", "'05','LITRO'"})
        ejecutar(u"insert into unidades (id,descripcion) values (%1)"_s.arg(QLatin1String(fila)));
    ejecutar("insert into pais (id,descripcion) values ('203','BRASIL')", "SYSTABLAS");
    ejecutar("insert into estadomercaderia (id,descripcion) values ('2','Nueva')");
    ejecutar(
        "insert into catarticulos (idcatalogo,idarticulo,ncm,descripcion,descripcion_maria,idunidad,idpais,"
        "idpaisproc,estadomerc,biendeuso,sufijos,preciounitario,kgneto,otros,codigoean,itfiller,naladisa,"
        "cantidad,usuario) values ('CAT','B-1','8413.70.10.100L','Bomba chica','BOMBA CHICA','07','203',"
        "'203','2','S','AA01-AB(X 1)-',10.5,9.8,'OT','779','F','8413.70',1,'OTRA PC')",
        "CATALOGOS");
    AbrirSubItems(*ctx, s, interno, {1, 1, 1, 1, 1, 1, 1, 1});
    registro = Registro();
}

void Lineas::TearDown() {
    oReferenceValues::GetValoresCriterio = nullptr;
    EnAmbosStores::TearDown();
}

void Lineas::abrirCon(const QString &regimen) {
    ejecutar(u"update caratula set idsubreg = '%1' where interno = 'OP 1'"_s.arg(regimen));
    AbrirSubItems(*ctx, s, interno, {1, 1, 1, 1, 1, 1, 1, 1});
}

void Lineas::llenarBomba() {
    s.campos = CamposSubItem();
    s.campos.TxtPosicion = posBomba;
    BuscarNCM(*ctx, s);
    s.campos.TxtUnidad = "07";
    s.campos.TxtCantidad = "24";
    s.campos.TxtValorsobreestadistica = "24";
    s.campos.TxtUnitario = "10.5";
    s.campos.TxtFobTotal = "252.00";
    s.campos.txtSufijos = "AA01-AB(X 1)-";
}

void Lineas::llenarPlastico() {
    s.campos = CamposSubItem();
    s.campos.TxtPosicion = posPlastico;
    BuscarNCM(*ctx, s);
    s.campos.TxtUnidad = "07";
    s.campos.TxtCantidad = "5";
    s.campos.TxtUnitario = "20";
    s.campos.TxtFobTotal = "100";
    s.campos.TxtKgNeto = "40";
}

bool Lineas::grabar() {
    grabacion = Grabar(*ctx, s);
    return grabacion.ok;
}

std::string Lineas::ultimoMensaje() const {
    return registro.mensajes.empty() ? "<ninguno>" : registro.mensajes.back().texto.toStdString();
}

std::string Lineas::linea(const QString &columnas, qint64 id) {
    QString sql = u"select %1 from subitems where interno = 'OP 1'"_s.arg(columnas);
    if (id != 0) sql += u" and id = %1"_s.arg(id);
    return filas(sql).toStdString();
}

int Lineas::cuantas() {
    return valor("select count(*) as n from subitems where interno = 'OP 1'").toInt();
}
