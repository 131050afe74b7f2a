// Sample rows of the tables of codes, of the nomenclature, the catalogue and the parties.

#include "tests/statements/muestra.h"

namespace {

const FilaDeMuestra codigosDeMuestra[] = {
    {"INTERNOS", "insert into divisas (id,descripcion,imp) values ('DOL','Dólar estadounidense',1.25)"},
    {"INTERNOS", "insert into divisas (id,descripcion,imp) values ('060','Euro',1.1)"},
    {"INTERNOS", "insert into conpresu (concepto) values ('HONORARIOS')"},
    {"INTERNOS", "insert into conpresu (concepto) values ('Acarreo')"},
    {"INTERNOS", "insert into referencias (referencia) values ('Buque')"},
    {"INTERNOS", "insert into conceptos (id,descripcion) values ('010','Derechos')"},
    {"INTERNOS", "insert into unidrel (unid1,unid2,pase) values ('07','01',2.5)"},
    {"INTERNOS", "insert into tax (ctax,ltaxabr,ctaxpog,porcentaje) values ('010','DERECHOS','P',10)"},
    {"INTERNOS", "insert into tax (ctax,ltaxabr,ctaxpog,porcentaje) values ('011','TASA ESTADISTICA','P',3)"},
    {"INTERNOS", "insert into tax (ctax,ltaxabr,ctaxpog,porcentaje) values ('415','IVA','P',21)"},
    {"INTERNOS", "insert into tax (ctax,ltaxabr,ctaxpog,porcentaje) values ('422','IVA','G',null)"},
    {"INTERNOS", "insert into tax (ctax,ltaxabr,ctaxpog,porcentaje) values ('415','IVA','P',21)"},
    {"INTERNOS", "insert into tipoemb (id,descripcion) values ('A','A granel')"},
    {"INTERNOS", "insert into codemb (id,descripcion) values ('32','Bultos')"},
    {"INTERNOS", "insert into codemb (id,descripcion) values ('05','Cajas')"},
    {"INTERNOS", "insert into via (id,descripcion) values ('8','ACUÁTICO')"},
    {"INTERNOS", "insert into via (id,descripcion) values ('4','AÉREO')"},
    {"INTERNOS", "insert into puertos (cpor,lpor) values ('ARBUE','Buenos Aires')"},
    {"INTERNOS", "insert into puertos (cpor,lpor) values ('XX',null)"},
    {"INTERNOS", "insert into estadomercaderia (id,descripcion) values ('1','NUEVO')"},
    {"INTERNOS", "insert into unidades (id,descripcion) values ('01','KILOGRAMO')"},
    {"INTERNOS", "insert into unidades (id,descripcion) values ('07','UNIDAD')"},
    {"SYSTABLAS", "insert into sta (id,descripcion,cstaimpexp) values ('IC04','Importación a consumo','I')"},
    {"SYSTABLAS", "insert into sta (id,descripcion,cstaimpexp) values ('EC01','Exportación a consumo','E')"},
    {"SYSTABLAS", "insert into sta (id,descripcion,cstaimpexp) values ('EC01','Exportación a consumo','E')"},
    {"SYSTABLAS", "insert into aduana (id,descripcion) values ('001','Buenos Aires')"},
    {"SYSTABLAS", "insert into aduana (id,descripcion) values ('033','La Plata')"},
    {"SYSTABLAS", "insert into condiciondeventa (id,descripcion) values ('FOB','Libre a bordo')"},
    {"SYSTABLAS", "insert into pais (id,descripcion) values ('203','BRASIL')"},
    {"SYSTABLAS", "insert into pais (id,descripcion) values ('B','Bloque')"},
    {"SYSTABLAS", "insert into pais (id,descripcion) values ('310','CHINA')"},
    {"SYSTABLAS", "insert into motivo (id,descripcion) values ('M1','Motivo')"},
    {"SYSTABLAS", "insert into motivos (id,descripcion) values ('M1','Motivo')"},
    {"SYSTABLAS", "insert into mottmp (id,descripcion,dias,impexpo) values ('T1','Temporal',180,'I')"},
    {"SYSTABLAS", "insert into mottmp (id,descripcion,dias,impexpo) values ('T2','Temporal',90,'E')"},
    {"SYSTABLAS", "insert into bancos (id,descripcion) values ('011','NACIÓN')"},
    {"SYSTABLAS", "insert into oncca_cortes (id,descripcion) values ('102','HUACHALOMO')"},
    {"SYSTABLAS", "insert into oncca_cortes (id,descripcion) values ('101','AGUJA')"},
    {"SYSTABLAS", "insert into coment (interno,coment) values ('OP1','Línea uno\nlínea ''dos''')"},
    {"SYSTABLAS", "insert into ean (subreg,item) values ('IC04','S')"},
    {"INTERNOS",
     "insert into certorigen (interno,numero,fecha,idpais,exportador,vencimiento,observaciones) values "
     "('OP1','CO-1',{2026-01-20 00:00:00},'203','ÑANDU',null,'')"},
    {"INTERNOS",
     "insert into certorigen (interno,numero,vencimiento) values ('OP1','co-2',{2026-07-19 00:00:00})"},
    {"SYSTABLAS", "insert into hval (interno,datos) values ('OP1','x')"},
    {"SYSTABLAS", "insert into hvalexp (interno,datos) values ('OP1','x')"},
    {"SYSTABLAS", "insert into diemchina (ncm,diem) values ('8409.91.12',3.5)"},
    {"SYSTABLAS", "insert into informacion (id,descripcion) values ('MARCA','Marca')"},
    {"SYSTABLAS", "insert into ventajas (id,descripcion) values ('VEHICULOPARTES','Autopartes')"},
    {"SYSTABLAS", "insert into lista (id,descripcion) values ('MERCOSUR','Mercosur')"},
    {"SYSTABLAS", "insert into lista (id,descripcion) values ('306','Lista 306')"},
    {"NCM",
     "insert into ncm "
     "([001],[002],[003],[004],[005],[010],[012],[015],[016],[017],[018],[019],[020],[026],[028],[041],"
     "[043],[044],[048],[052],[053],[059],[071]) values ('8409.91.12','100','G','Partes','Nivel','Bielas "
     "para ñandú',"
     "'01','14','0','0','5','2,5','01','21','*','*','','','0.5','*','','*','2 Dólar')"},
    {"NCM",
     "insert into ncm ([001],[002],[003],[004],[010],[012],[015],[020],[041],[059],[071]) values "
     "('9403.20.00','000','A','MUEBLES','Los demás','07','35','','','','X')"},
    {"NCM", "insert into ncm ([001],[002],[003],[010]) values ('8409.91.12','200','X','Ñandúes')"},
    {"NCM", "insert into sufidos (sim,sufijo,detalle) values ('84  .  .  .   ','ZB','Potencia')"},
    {"NCM", "insert into sufidos (sim,sufijo,detalle) values ('8409.91.12.100','AA01','Uno')"},
    {"NCM", "insert into sufidos (sim,sufijo,detalle) values ('8409.91.12.100','AA02','Dos')"},
    {"NCM", "insert into control_fecha (fecha) values ({2026-01-01})"},
    {"NCM", "insert into control_fecha (fecha) values ({2026-02-01 08:00:00})"},
    {"NCM", "insert into LNAPIFechaDeDatos (fecha) values ({2025-12-31})"},
    {"NCM",
     "insert into LNAPIPosicionesAfectadas (posicion,lnapi,norma,aclaraciones) values ('8409.91.12','A','R "
     "1','1 2')"},
    {"NCM",
     "insert into LNAPIPosicionesAfectadas (posicion,lnapi,norma,aclaraciones) values ('8409.91.12','B','R "
     "2',null)"},
    {"NCM", "insert into LNAPIAclaraciones (aclaracion,descripcion) values (1,'Excepto usados')"},
    {"NCM", "insert into letrasncm (posicion,letra) values ('8409','F')"},
    {"NCM", "insert into letrasncm (posicion,letra) values ('8409.91.12','T')"},
    {"NCM", "insert into letras (letra,descripcion) values ('T','Bielas')"},
    {"CATALOGOS",
     "insert into catarticulos "
     "(idcatalogo,idarticulo,ncm,descripcion,Descripcion_Maria,cantidad,preciounitario,Idpais,"
     "sufijos,kgneto,otros,usuario,fecha) values "
     "('CAT','ART1','8409.91.12.100G','Bielas','BIELAS',2,10.5,'203','AA01-',"
     "0.5,'O1','juan',{2026-01-31 12:00:00})"},
    {"CATALOGOS",
     "insert into catarticulos (idcatalogo,idarticulo,ncm,descripcion,preciounitario) values "
     "('CAT','art2','9403.20.00.000A','Sillas ñ',3)"},
    {"CATALOGOS",
     "insert into catarticulos (idcatalogo,idarticulo,ncm,descripcion) values "
     "('OTRO','ART1','8409.91.12.100G','Otra')"},
    {"CATALOGOS",
     "insert into articulo_ventaja (idcatalogo, idarticulo, ventaja) values ('CAT','ART1','VENTAJA1')"},
    {"CATALOGOS",
     "insert into articulo_ventaja (idcatalogo, idarticulo, ventaja) values ('CAT','ART3','VENTAJA3')"},
    {"PERSONAL",
     "insert into clientes "
     "(cuit,nombre,domicilio,email,regalias,ajxvinc_4102,eximgan,eximganvalor,eximganvalortemp,"
     "ivaareduccion,ivaareduccionvalor,ivaareduccionvalortemp,cvdi,ingbru,ExcepLAPIAEC) values "
     "('30708123451','Cliente SA','Calle 1','a@b.c',1,2,'S',50,0,'N',0,0,'S',2.5,'N')"},
    {"PERSONAL", "insert into despadu (cuit,nombre) values ('20111111112','Despachante')"},
    {"PERSONAL", "insert into despadu (cuit,nombre) values ('20999999999','Álvarez')"},
    {"PERSONAL",
     "insert into vendedor (codigo,nombre,domicilio, paisdelexportador) values ('V1','Zeta','Calle','203')"},
    {"PERSONAL",
     "insert into vendedor (codigo,nombre,domicilio, paisdelexportador) values ('V2','alfa','Calle','310')"},
    {"PERSONAL", "insert into transporte(cuit,nombre) values ('30500000001','Transporte')"},
    {"PERSONAL", "insert into tabla (linea) values ('Línea 1')"},
    {"PERSONAL", "insert into tabla (linea) values ('Línea 2')"},
    {"PERSONAL",
     "insert into VentajasRel (cuit,idSubRegimen,NCM,idventaja) values ('30708123451','IC04','8409','V1')"},
    {"PERSONAL",
     "insert into VentajasRel (cuit,idSubRegimen,NCM,idventaja) values ('30708123451','','9403','V2')"},
    {"PERSONAL",
     "insert into VentajasRel (cuit,idSubRegimen,NCM,idventaja) values ('30708123451',null,'','V3')"},
    {"USUARIO", "insert into dest (subreg,txtfobdivisas) values ('IC04','x')"},
    {"USUARIO", "insert into impuestos_internos (ncm,decreto,tasa_nominal) values ('8409.91.12','D1',17)"},
};

}  // namespace

const std::vector<FilaDeMuestra> &muestraDeOperaciones();

const std::vector<FilaDeMuestra> &muestra() {
    static const std::vector<FilaDeMuestra> todas = [] {
        std::vector<FilaDeMuestra> filas(std::begin(codigosDeMuestra), std::end(codigosDeMuestra));
        const auto &operaciones = muestraDeOperaciones();
        filas.insert(filas.end(), operaciones.begin(), operaciones.end());
        return filas;
    }();
    return todas;
}
