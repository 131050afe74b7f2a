// Paper: the sheet of many items ready for preview, and a long list on its way to a file.

#include <QFile>

#include "bench/waits/tiempos.h"
#include "outputs/itemsheet.h"
#include "outputs/lists.h"
#include "tests/support/pantallas.h"

using namespace Qt::StringLiterals;

namespace {

class Papeles : public EnPantalla {
 protected:
    /// Operation P1: `items` items with ten duties, two advantages and an information each, and `lineas`
    /// lines, as many to an item.
    void llenar(int items, int lineas) {
        ejecutar(
            u"insert into caratula (interno,idsubreg,fobdivisas,fobdivcambio,factura8) "
            "values ('P1','IC04',100,1,'N')"_s);
        const auto numeros = [](int hasta) {
            return u"with recursive n(i) as (select 1 union all select i + 1 from n where i < %1) "_s.arg(
                hasta);
        };
        ejecutar(
            u"insert into item (interno,id,ncm,descripcion,idpais,idproc,idunidad,estadomerc,estadistica,"
            "valorrelacionestadistica,cantidad,fobtotal,totalkneto,itflete,itseguro,ajusteinc,ajusteded,tipoitem) "_s +
            numeros(items) +
            u"select 'P1',i,'8413.70.10.100L','UNA DESCRIPCION','438','438','07','2','07',i,i,i,i,0.5,0.25,0,0,"
            "'N' from n"_s);
        // Whole division: the engines spell it differently, a product of whole numbers they do not.
        for (int de = 0; de < lineas / items; ++de)
            ejecutar(
                u"insert into groupsubitems (interno,id,idsub,ncm,descripcion,idpais,idunidad,cantidad,"
                "preciounitario,fob,valorrelacionestadistica,valorderesp,kgneto,sufijos,tipoitem) "_s +
                numeros(items) +
                u"select 'P1',i,i * %1 + %2,'8413.70.10.100L','UNA DESCRIPCION','438','07',i,1,i,i,0,i,"
                "'AA01-AB(UNO)-ZB(000750)-','N' from n"_s.arg(lineas / items)
                    .arg(de));
        ejecutar(
            u"insert into subitems (interno,idcatalogo,idarticulo,ncm,descripcion,idpais,idunidad,"
            "estadomerc,cantidad,preciounitario,fob,kgneto,sufijos) "_s +
            numeros(lineas) +
            u"select 'P1','CATALOGO','ARTICULO','8413.70.10.100L','UNA DESCRIPCION','438','07','2',i,1,"
            "i,i,'AA01-AB(UNO)-ZB(000750)-' from n"_s);
        for (const char *concepto : {"010", "011", "415", "422", "424", "500", "501", "502", "503", "900"})
            ejecutar(
                u"insert into itemliq (interno,iditem,idconceptos,conceptos,pgc,porcentaje,baseimp,total) "_s +
                numeros(items) +
                u"select 'P1',i,'%1','UN CONCEPTO','P',10,i,1.5 from n"_s.arg(QLatin1String(concepto)));
        for (const char *ventaja : {"BIENCAPITAL", "LICENCIAAUTOM"})
            ejecutar(u"insert into itemventaja (interno,iditem,idventaja) "_s + numeros(items) +
                     u"select 'P1',i,'%1' from n"_s.arg(QLatin1String(ventaja)));
        ejecutar(u"insert into iteminfo (interno,iditem,idinfo,valor) "_s + numeros(items) +
                 u"select 'P1',i,'DATO','UN VALOR' from n"_s);
    }
};

TEST_P(Papeles, TheSheetOfFiveHundredItemsIsReadyForPreview) {
    llenar(500, 2500);
    HojaDeOperacion hoja;
    const double ms = MejorTiempo([&] { hoja = pr_ImprimirLiq(*ctx, {u"P1"_s, 0, 500, true}); }, 3);
    ASSERT_TRUE(hoja.hecha);
    papel::Paginado paginado;
    const double cortar = MejorTiempo(
        [&] {
            paginado = papel::Paginar(hoja.documento.reporte, papel::MedidaDe(papel::Orientacion::Vertical));
        },
        3);
    Informar("the sheet of 500 items with 2,500 subitems, cut into pages", GetParam(), 1000, ms + cortar);
    std::printf("(%zu lines on %zu pages)\n", hoja.documento.reporte.renglones.size(), paginado.hojas.size());
}

TEST_P(Papeles, AListOfTenThousandLinesLeaves) {
    llenar(500, 10000);
    const listas::Lista *lista = listas::BuscarLista(u"lineas-horizontal"_s);
    ASSERT_NE(lista, nullptr);
    for (const auto &[final, limite] :
         {std::pair(u".pdf"_s, 5000.0), {u".xlsx"_s, 3000.0}, {u".csv"_s, 3000.0}}) {
        const QString archivo = tienda->carpeta() + u"/lista"_s + final;
        QString defecto;
        const double ms = MejorTiempo(
            [&] {
                defecto = papel::Escribir(
                    listas::DocumentoDe(*lista, lista->armar(*ctx, u"P1"_s), ctx->SeparadorDecimal), archivo);
            },
            3);
        EXPECT_EQ(defecto, QString());
        EXPECT_GT(QFile(archivo).size(), 0);
        Informar(("a list of 10,000 lines, from the store to its " + final.mid(1).toStdString()).c_str(),
                 GetParam(), limite, ms);
    }
}

EN_AMBOS_STORES(Papeles);

}  // namespace
