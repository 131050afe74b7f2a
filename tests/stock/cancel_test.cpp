// The cancellations of an item.

#include "liquidation/itemview.h"
#include "stock/itemcancel.h"
#include "stock/link.h"
#include "tests/stock/existencias.h"

using namespace Qt::StringLiterals;
using namespace stock;

namespace {

class Cancelaciones : public Existencias {
 protected:
    void SetUp() override {
        Existencias::SetUp();
        s = entrar();
        primera = linea();
        segunda = linea();
        ejecutar(u"insert into groupsubitems (interno,id,idsub) values ('EX 1',4,%1)"_s.arg(primera));
        ejecutar(
            u"insert into idrel (interno,idroot,idsub) values ('EX 1',%1,%2)"_s.arg(primera).arg(segunda));
    }
    bool ingresar(double cantidad, qint64 deQue) {
        Cancelacion c;
        c.idstock = deQue;
        c.cantidad = cantidad;
        return IngresarCancelacion(*ctx, exportacion, u"4"_s, c);
    }
    QString descargas() {
        return filas(
            u"select dit,item,subitem,ncm,expctit,cantidad,factorponderacion,iditem from descargas "
            "order by idexportacion"_s);
    }
    qint64 s = 0;
    qint64 primera = 0;
    qint64 segunda = 0;
};
EN_AMBOS_STORES(Cancelaciones);

TEST_P(Cancelaciones, OneIsATakingForTheItemThatItsFirstLineKeepsWithoutAMark) {
    ASSERT_TRUE(ingresar(7, s)) << ultimo();
    EXPECT_EQ(saldo(s), u"93"_s);
    EXPECT_EQ(filas(u"select idlinea,iditem,paraitem,cantidad,cif from stockmov"_s),
              u"%1|4|S|7|70"_s.arg(primera));
    EXPECT_EQ(descargas(), u"26001IT01000001A|1|1|5205.11.00.000A|CTIT 7|7|1|4"_s);
    EXPECT_EQ(marca(primera), u"|0"_s);
    const auto todas = CancelacionesDe(*ctx, exportacion, u"4"_s);
    ASSERT_EQ(todas.size(), 1U);
    EXPECT_EQ(todas[0].idstock, s);
    EXPECT_EQ(todas[0].cantidad, 7);
    EXPECT_TRUE(CancelacionesDe(*ctx, exportacion, u"5"_s).empty());
}

TEST_P(Cancelaciones, TheStockIsOfferedInAnyUnitForTheUnitOfAnItemIsThatOfTheProduct) {
    entrar({{u"idunidad"_s, u"'07'"_s}, {u"dit"_s, u"'B2'"_s}});
    EXPECT_EQ(OfertasParaItem(*ctx, exportacion, {}, hoy).size(), 2U);
    const auto una = OfertasParaItem(*ctx, exportacion, u"b2"_s, hoy);
    ASSERT_EQ(una.size(), 1U);
    EXPECT_EQ(una[0].linea.idunidad, u"07"_s);
}

TEST_P(Cancelaciones, OneByHandNeedsTheOptionAndTakesFromNoStock) {
    Cancelacion c;
    c.dit = u"25073IT14000009Z"_s;
    c.item = 3;
    c.subitem = 2;
    c.ncm = u"3901.10.10.200N"_s;
    c.cantidad = 12.5;
    c.factor = 1.02;
    EXPECT_FALSE(IngresarCancelacion(*ctx, exportacion, u"4"_s, c));
    EXPECT_EQ(
        ultimo(),
        "Para cancelar sin stock encienda en las opciones \"Carga manual sin Stock\", o elija una línea del "
        "stock.");
    ctx->opciones.CancelManual = true;
    ASSERT_TRUE(IngresarCancelacion(*ctx, exportacion, u"4"_s, c)) << ultimo();
    EXPECT_EQ(descargas(), u"25073IT14000009Z|3|2|3901.10.10.200N||12.5|1.02|4"_s);
    EXPECT_EQ(filas(u"select idstock,descontado,cif from stockmov"_s), u"0|0|0"_s);
    EXPECT_EQ(saldo(s), u"100"_s);
    c.dit = u" "_s;
    EXPECT_FALSE(IngresarCancelacion(*ctx, exportacion, u"4"_s, c));
    EXPECT_EQ(ultimo(), "Falta el número de la declaración que se cancela.");
}

TEST_P(Cancelaciones, AChangeTakesAnewAndARefusedOneLeavesTheOld) {
    ASSERT_TRUE(ingresar(7, s));
    Cancelacion c = CancelacionesDe(*ctx, exportacion, u"4"_s).front();
    c.cantidad = 9;
    ASSERT_TRUE(ModificarCancelacion(*ctx, exportacion, u"4"_s, c)) << ultimo();
    EXPECT_EQ(saldo(s), u"91"_s);
    EXPECT_FALSE(ModificarCancelacion(*ctx, exportacion, u"4"_s, c));
    EXPECT_EQ(ultimo(), "La cancelación ya no está: se devolvió desde otra pantalla u otra PC.");
    c = CancelacionesDe(*ctx, exportacion, u"4"_s).front();
    c.cantidad = 101;
    EXPECT_FALSE(ModificarCancelacion(*ctx, exportacion, u"4"_s, c));
    EXPECT_EQ(
        ultimo(),
        "De la declaración 26001IT01000001A, item 1, subitem 1 quedan 100.00 (unidad 01) y se descontarían "
        "101.00; indique una cantidad menor o agregue otra línea.");
    EXPECT_EQ(saldo(s), u"91"_s);
    EXPECT_EQ(descargas(), u"26001IT01000001A|1|1|5205.11.00.000A|CTIT 7|9|1|4"_s);
    EXPECT_EQ(desacuerdos(), QString());
}

TEST_P(Cancelaciones, ARemovedOneIsGivenBack) {
    ASSERT_TRUE(ingresar(7, s));
    const Cancelacion c = CancelacionesDe(*ctx, exportacion, u"4"_s).front();
    EXPECT_TRUE(EliminarCancelacion(*ctx, c));
    EXPECT_EQ(saldo(s), u"100"_s);
    EXPECT_EQ(descargas(), QString());
    EXPECT_FALSE(EliminarCancelacion(*ctx, c));
    EXPECT_EQ(ultimo(), "La cancelación ya no está: se devolvió desde otra pantalla u otra PC.");
    EXPECT_EQ(valor(u"select factura8 from caratula where interno = 'EX 1'"_s), u"N"_s)
        << "the figures of the items do not hang on it";
}

TEST_P(Cancelaciones, ARowOfTheItemsListIsFoundAgainUnlessItCameFromElsewhere) {
    ejecutar(
        u"insert into descargas (interno,dit,item,subitem,ncm,expctit,cantidad,factorponderacion,iditem,"
        "idexportacion) values ('EX 1','26001IT01000001A',9,9,'x','',1,1,'4',0)"_s);
    ASSERT_TRUE(ingresar(7, s));
    FilaDeCancelacion fila{u"26001IT01000001A"_s, u"1"_s,      u"1"_s, u"5205.11.00.000A"_s,
                           u"CTIT 7"_s,           u"07.000"_s, u"1"_s};
    EXPECT_TRUE(BuscarCancelacion(*ctx, exportacion, u"4"_s, fila));
    fila.item = fila.subitem = u"9"_s;
    EXPECT_FALSE(BuscarCancelacion(*ctx, exportacion, u"4"_s, fila));
}

TEST_P(Cancelaciones, AnItemWithoutLinesHasNoneAndAQuantityTooSmallIsRefused) {
    Cancelacion c;
    c.idstock = s;
    c.cantidad = 1;
    EXPECT_FALSE(IngresarCancelacion(*ctx, exportacion, u"9"_s, c));
    EXPECT_EQ(ultimo(), "El item 9 no tiene líneas; arme la operación antes de cargar cancelaciones.");
    EXPECT_FALSE(ingresar(0.001, s));
    EXPECT_TRUE(QString::fromStdString(ultimo()).contains("Valor Decimal Extendido"_L1));
}

TEST_P(Cancelaciones, TheyFollowTheirLineWhenItemsAreNumberedAnew) {
    ASSERT_TRUE(ingresar(7, s));
    const insumos::Enlace enlace = CrearEnlace(*ctx);
    ejecutar(u"update groupsubitems set id = 2"_s);
    enlace.ReubicarItems(exportacion);
    EXPECT_EQ(filas(u"select iditem from stockmov"_s), u"2"_s);
    EXPECT_EQ(filas(u"select iditem from descargas"_s), u"2"_s);
    // The line that kept it is folded into another now.
    ejecutar(u"delete from idrel"_s);
    ejecutar(u"update groupsubitems set id = 6,idsub = %1"_s.arg(segunda));
    ejecutar(u"insert into idrel (interno,idroot,idsub) values ('EX 1',%1,%2)"_s.arg(segunda).arg(primera));
    enlace.ReubicarItems(exportacion);
    EXPECT_EQ(filas(u"select iditem from descargas"_s), u"6"_s);
}

TEST_P(Cancelaciones, AWholeLineGivesBackItsOwnAndThoseOfItsItem) {
    ASSERT_TRUE(ingresar(7, s));
    ASSERT_TRUE(tomar(primera, {{s, 10}}).ok);
    const insumos::Enlace enlace = CrearEnlace(*ctx);
    EXPECT_EQ(enlace.QueTomo(exportacion, primera), insumos::Tomado::Propio);
    EXPECT_EQ(enlace.QueTomo(exportacion, segunda), insumos::Tomado::Nada);
    EXPECT_TRUE(enlace.EliminarInsumo(exportacion, u"HILADOS"_s, u"HI-AL"_s, primera));
    EXPECT_EQ(saldo(s), u"100"_s);
    EXPECT_TRUE(enlace.EliminarInsumo(exportacion, u"HILADOS"_s, u"HI-AL"_s, primera)) << "nothing stood";
}

}  // namespace
