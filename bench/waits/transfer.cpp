// A declaration of two thousand items, from the store to its document in place.

#include <QFile>

#include "bench/waits/tiempos.h"
#include "outputs/FrmTransferencia.h"
#include "outputs/declarationxml.h"
#include "outputs/transfer.h"
#include "tests/support/pantallas.h"

using namespace Qt::StringLiterals;

namespace {

class Transferencias : public EnPantalla {
 protected:
    /// Operation T1: `items` items with a subitem, ten duties, two advantages and an information each.
    void declarar(int items) {
        ejecutar(
            u"insert into caratula (interno,idsubreg,fobdivisas,factura8,factura9) "
            "values ('T1','IC04',100,'N','1')"_s);
        const QString numeros =
            u"with recursive n(i) as (select 1 union all select i + 1 from n where i < %1) "_s.arg(items);
        ejecutar(
            u"insert into item (interno,id,ncm,descripcion,idpais,idproc,idunidad,estadomerc,biendeuso,"
            "estadistica,valorrelacionestadistica,cantidad,fobtotal,totalkneto,totalkbruto,itflete,itseguro,"
            "ajusteinc,ajusteded,insumostemp,insumosacons,tipoitem,opcionesiva,opcionesganancias,regalias,"
            "standard) "_s +
            numeros +
            u"select 'T1',i,'8413.70.10.100L','UNA DESCRIPCION','438','438','07','2','N','07',i,i,i,i,i,0.5,0.25,"
            "0,0,0,0,'N','NO_VALIDA','COMERC','N','N' from n"_s);
        ejecutar(
            u"insert into groupsubitems (interno,id,idsub,idcatalogo,idarticulo,ncm,descripcion,idpais,"
            "idpaisproc,idunidad,estadomerc,biendeuso,cantidad,preciounitario,fob,estadistica,"
            "valorrelacionestadistica,kgneto,kgbruto,sufijos,tipoitem) "_s +
            numeros +
            u"select 'T1',i,i,'CATALOGO','ARTICULO','8413.70.10.100L','UNA DESCRIPCION','438','438','07','2',"
            "'N',i,1,i,'07',i,i,i,'AA01-AB(UNO)-ZB(000750)-','N' from n"_s);
        for (const char *concepto : {"010", "011", "415", "422", "424", "500", "501", "502", "503", "900"})
            ejecutar(
                u"insert into itemliq (interno,iditem,idconceptos,conceptos,pgc,porcentaje,baseimp,total) "_s +
                numeros +
                u"select 'T1',i,'%1','UN CONCEPTO','P',10,i,1.5 from n"_s.arg(QLatin1String(concepto)));
        for (const char *ventaja : {"BIENCAPITAL", "LICENCIAAUTOM"})
            ejecutar(u"insert into itemventaja (interno,iditem,idventaja) "_s + numeros +
                     u"select 'T1',i,'%1' from n"_s.arg(QLatin1String(ventaja)));
        ejecutar(u"insert into iteminfo (interno,iditem,idinfo,valor) "_s + numeros +
                 u"select 'T1',i,'DATO','UN VALOR' from n"_s);
    }
};

TEST_P(Transferencias, TwoThousandItemsFromTheStoreToTheDocumentInPlace) {
    declarar(2000);
    const QString archivo = tienda->carpeta() + u"/T1.xml"_s;
    DocumentoEscrito escrito;
    const double ms = MejorTiempo(
        [&] { escrito = EscribirTransferencia(PrepararTransferencia(*ctx, u"T1"_s).declaracion, archivo); },
        3);
    ASSERT_TRUE(escrito.hecho) << escrito.aviso.toStdString();
    Informar("a declaration of 2,000 items, read, looked over, validated and written", GetParam(), 2000, ms);
    const double pantalla = MejorTiempo(
        [] {
            conPantallaModal<FrmTransferencia>([](FrmTransferencia &p) {
                EXPECT_EQ(p.ui.GrItems->rowCount(), 2000);
                tecla(Qt::Key_Escape);
            });
            Pantalla<FrmTransferencia>().Mostrar(u"T1"_s);
            CerrarPantalla<FrmTransferencia>();
        },
        3);
    Informar("its window, from the key to ready and left", GetParam(), 1500, pantalla);
}

EN_AMBOS_STORES(Transferencias);

}  // namespace
