// The roads of lines, of the assembly and of the deletion of operations, with the stock behind the link.

#include "liquidation/itemsave.h"
#include "liquidation/itemview.h"
#include "operations/lifecycle.h"
#include "operations/oOperationCopy.h"
#include "stock/check.h"
#include "stock/itemcancel.h"
#include "tests/stock/ensayo.h"

using namespace Qt::StringLiterals;
using namespace stock;

namespace {

const QString telaSinTejer = u"NT-PE"_s;  // 2600 kilograms, one item of its own

class Caminos : public Ensayo {
 protected:
    void SetUp() override {
        Ensayo::SetUp();
        cargar();
        tela = stockDe(telaSinTejer);
        cif = valor(u"select cif from stock where id = %1"_s.arg(tela)).toDouble();
    }
    int lineas() { return valor(u"select count(*) from subitems where interno = 'EX 1'"_s).toInt(); }
    void nadaQueDecir() {
        for (const Hallazgo &h : Revisar(*ctx)) ADD_FAILURE() << h.texto.toStdString();
        EXPECT_EQ(desacuerdos(), QString());
    }
    qint64 tela = 0;
    double cif = 0;
};
EN_AMBOS_STORES(Caminos);

TEST_P(Caminos, AnArticleOfTheStockFillsTheLineThatTakesItsQuantity) {
    const Grabacion g = grabarLinea(telaSinTejer, 1300);
    ASSERT_TRUE(g.ok) << ultimo();
    EXPECT_EQ(pedidas, QStringList{exportacion});
    EXPECT_EQ(saldo(tela), u"1300"_s);
    // Half of what entered, half of its value.
    EXPECT_EQ(
        filas(u"select idcatalogo,idarticulo,ncm,idunidad,idpais,cancelaciones from subitems where id = %1"_s
                  .arg(g.id)),
        u"ALERCES|NT-PE|5603.12.30.100L|01|310|OK"_s);
    EXPECT_NEAR(valor(u"select insumostemp from subitems where id = %1"_s.arg(g.id)).toDouble(), cif / 2,
                0.006);
    // What every line says whose position has no suffixes.
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(ultimo(), "No se encontro Sufijo en el nomenclador");
    nadaQueDecir();
}

TEST_P(Caminos, AListThatIsLeftChoosesNothing) {
    EXPECT_FALSE(SelectINSUMOS(*ctx, s));
    EXPECT_EQ(pedidas.size(), 1);
    EXPECT_FALSE(s.VincularDatos);
    Desenchufar();
    Enchufar(*ctx);
    AbrirSubItems(*ctx, s, exportacion, {1, 1, 1, 1, 1, 1, 1, 1});
    EXPECT_FALSE(SelectINSUMOS(*ctx, s)) << "a program without windows has no list";
}

TEST_P(Caminos, ALineThatTheStockDoesNotReachIsToldAndGoes) {
    const Grabacion g = grabarLinea(telaSinTejer, 2600.01);
    EXPECT_FALSE(g.ok);
    EXPECT_TRUE(g.rechazada);
    EXPECT_EQ(lineas(), 0);
    ASSERT_EQ(registro.mensajes.size(), 2U) << "that it has no suffixes, and this";
    EXPECT_EQ(ultimo(),
              "El stock de ALERCES NT-PE no alcanza: se necesitan 2600.01 (unidad 01) y hay 2600.00.");
    EXPECT_EQ(saldo(tela), u"2600"_s);
}

TEST_P(Caminos, ATypedArticleOfTheStockTakesToo) {
    const Grabacion g = teclearLinea(telaSinTejer, 600);
    ASSERT_TRUE(g.ok) << ultimo();
    EXPECT_EQ(saldo(tela), u"2000"_s);
    EXPECT_EQ(valor(u"select cancelaciones from subitems where id = %1"_s.arg(g.id)), u"OK"_s);
}

TEST_P(Caminos, ALineThatHasNothingToDoWithTheStockIsSavedWithWhatWasTyped) {
    ejecutar(u"update stock set idarticulo = 'OTRO' where id = %1"_s.arg(tela));
    s.campos.TxtInsumosTemp = u"77"_s;
    const Grabacion g = teclearLinea(telaSinTejer, 600);
    ASSERT_TRUE(g.ok) << ultimo();
    EXPECT_EQ(marca(g.id), u"|0"_s);
    EXPECT_EQ(saldo(tela), u"2600"_s);
}

TEST_P(Caminos, ADeletedLineGivesBackWhatItTook) {
    const Grabacion g = grabarLinea(telaSinTejer, 1300);
    ASSERT_TRUE(g.ok);
    registro.respuestas = {true};
    ASSERT_TRUE(EliminarSubItem(*ctx, s, g.id)) << ultimo();
    EXPECT_EQ(saldo(tela), u"2600"_s);
    EXPECT_EQ(valor(u"select count(*) from descargas"_s), u"0"_s);
    nadaQueDecir();
}

TEST_P(Caminos, AnotherQuantityOfALineIsTakenAnew) {
    const Grabacion g = grabarLinea(telaSinTejer, 1300);
    ASSERT_TRUE(g.ok);
    ASSERT_TRUE(BuscarSubItem(*ctx, s, g.id));
    s.campos.TxtCantidad = s.campos.TxtValorsobreestadistica = s.campos.TxtKgNeto = u"650"_s;
    if (!s.campos.LbIdDerEsp.isEmpty()) s.campos.TxtDerEsp = u"650"_s;
    ASSERT_TRUE(Grabar(*ctx, s).ok) << ultimo();
    EXPECT_EQ(saldo(tela), u"1950"_s);
    EXPECT_NEAR(valor(u"select insumostemp from subitems where id = %1"_s.arg(g.id)).toDouble(), cif / 4,
                0.006);
    EXPECT_EQ(valor(u"select cancelaciones from subitems where id = %1"_s.arg(g.id)), u"OK"_s);
    nadaQueDecir();

    ASSERT_TRUE(BuscarSubItem(*ctx, s, g.id));
    s.campos.TxtCantidad = s.campos.TxtValorsobreestadistica = s.campos.TxtKgNeto = u"3000"_s;
    if (!s.campos.LbIdDerEsp.isEmpty()) s.campos.TxtDerEsp = u"3000"_s;
    const Grabacion negada = Grabar(*ctx, s);
    EXPECT_FALSE(negada.ok);
    EXPECT_EQ(negada.foco, u"TxtCantidad"_s);
    EXPECT_EQ(ultimo(),
              "El stock de ALERCES NT-PE no alcanza: se necesitan 3000.00 (unidad 01) y hay 2600.00.");
    EXPECT_EQ(saldo(tela), u"1950"_s);
    EXPECT_EQ(valor(u"select cantidad from subitems where id = %1"_s.arg(g.id)), u"650"_s);
}

TEST_P(Caminos, AChangeOfThePriceLeavesWhatWasTaken) {
    const Grabacion g = grabarLinea(telaSinTejer, 1300);
    ASSERT_TRUE(g.ok);
    const QString antes = filas(u"select id,cantidad,devuelta from stockmov"_s);
    ASSERT_TRUE(BuscarSubItem(*ctx, s, g.id));
    s.campos.TxtUnitario = u"9"_s;
    ASSERT_TRUE(Grabar(*ctx, s).ok) << ultimo();
    EXPECT_EQ(filas(u"select id,cantidad,devuelta from stockmov"_s), antes);
}

TEST_P(Caminos, TheAssemblyWritesTheItemIntoWhatItsLinesTook) {
    // Two equal lines are one group and one item, a third line is another.
    ASSERT_TRUE(grabarLinea(telaSinTejer, 100).ok) << ultimo();
    ASSERT_TRUE(grabarLinea(telaSinTejer, 200).ok) << ultimo();
    ASSERT_TRUE(grabarLinea(u"HI-AL"_s, 50).ok) << ultimo();
    ASSERT_TRUE(armar(exportacion)) << ultimo();
    const QString items = filas(
        u"select s.idarticulo,m.cantidad,m.iditem,d.iditem from stockmov m,stock s,descargas d "
        "where s.id = m.idstock and d.idexportacion = m.id order by m.id"_s);
    const QString deTela = valor(u"select id from item where interno = 'EX 1' and ncm = '5603.12.30.100L'"_s);
    const QString deHilado =
        valor(u"select id from item where interno = 'EX 1' and ncm = '5205.11.00.000A'"_s);
    EXPECT_NE(deTela, deHilado);
    EXPECT_EQ(items, u"NT-PE|100|%1|%1\nNT-PE|200|%1|%1\nHI-AL|50|%2|%2"_s.arg(deTela, deHilado));
    EXPECT_EQ(valor(u"select cancelaciones from item where interno = 'EX 1' and id = %1"_s.arg(deTela)),
              u"OK"_s);
    nadaQueDecir();
    // Without the first of them, and against the numbers.
    ejecutar(u"update descargas set iditem = '9'"_s);
    ejecutar(u"update stockmov set iditem = 9"_s);
    ASSERT_TRUE(armar(exportacion)) << ultimo();
    EXPECT_EQ(filas(u"select s.idarticulo,m.cantidad,m.iditem,d.iditem from stockmov m,stock s,descargas d "
                    "where s.id = m.idstock and d.idexportacion = m.id order by m.id"_s),
              items);
}

TEST_P(Caminos, TheItemShowsWhatItsLinesTookAndItsSaveLeavesIt) {
    ASSERT_TRUE(grabarLinea(telaSinTejer, 100).ok) << ultimo();
    ASSERT_TRUE(grabarLinea(telaSinTejer, 200).ok) << ultimo();
    ASSERT_TRUE(armar(exportacion)) << ultimo();
    ClassLiquidacion calculo(*ctx, exportacion);
    const VistaDeItem vista = VerDetalleITEM(*ctx, exportacion, u"1"_s, false, calculo);
    ASSERT_TRUE(vista.cargada) << vista.aviso.toStdString();
    EXPECT_TRUE(vista.esCancelacion);
    ASSERT_EQ(vista.cancelaciones.size(), 2U);
    EXPECT_EQ(vista.cancelaciones[0].dit, u"26001IT01000123T"_s);
    for (const FilaDeCancelacion &fila : vista.cancelaciones)
        EXPECT_TRUE(BuscarCancelacion(*ctx, exportacion, u"1"_s, fila)) << fila.cantidad.toStdString();
    const QString antes = filas(u"select * from stockmov order by id"_s);
    ASSERT_TRUE(GrabarItem(*ctx, exportacion, u"1"_s, vista.datos, calculo).ok) << ultimo();
    EXPECT_EQ(filas(u"select * from stockmov order by id"_s), antes);
    // A cancellation that is removed on the item leaves the line with what it still has.
    const Cancelacion c = *BuscarCancelacion(*ctx, exportacion, u"1"_s, vista.cancelaciones[0]);
    ASSERT_TRUE(EliminarCancelacion(*ctx, c)) << ultimo();
    EXPECT_EQ(valor(u"select factura8 from caratula where interno = 'EX 1'"_s), u"S"_s);
    nadaQueDecir();
}

TEST_P(Caminos, TheLinkKnowsItsOwnLinesOnly) {
    const Grabacion g = grabarLinea(telaSinTejer, 100);
    ASSERT_TRUE(g.ok);
    const insumos::Enlace e = CrearEnlace(*ctx);
    EXPECT_TRUE(e.EstadoConexion());
    EXPECT_TRUE(e.EnviarGrupoIdSub(exportacion, g.id, {}));
    EXPECT_FALSE(e.EnviarGrupoIdSub(exportacion, g.id, u"1"_s)) << "line 1 is of another operation";
    EXPECT_FALSE(e.EnviarNroItem(1, {}));
    EXPECT_FALSE(e.EnviarNroItem(1, u"987654"_s));
}

TEST_P(Caminos, ADeletedOperationGivesBackAndWhatItLoadedStays) {
    const Grabacion g = grabarLinea(telaSinTejer, 1300);
    ASSERT_TRUE(g.ok);
    ASSERT_TRUE(armar(exportacion)) << ultimo();
    Cancelacion c;
    c.idstock = stockDe(u"HI-AL"_s);
    c.cantidad = 5;
    ASSERT_TRUE(IngresarCancelacion(*ctx, exportacion, u"1"_s, c)) << ultimo();
    ejecutar(u"insert into transferidas (interno,archivo) values ('EX 1','x')"_s);
    ejecutar(u"insert into certorigen (interno,numero) values ('EX 1','x')"_s);
    ejecutar(u"insert into certorigenlinea (interno,idlinea) values ('EX 1',1)"_s);
    ASSERT_TRUE(EliminarSinPreguntar(*ctx, exportacion)) << ultimo();
    EXPECT_EQ(saldo(tela), u"2600"_s);
    EXPECT_EQ(valor(u"select count(*) from stock where saldo <> cantidad"_s), u"0"_s);
    for (const char *tabla : {"descargas", "transferidas", "certorigen", "certorigenlinea"})
        EXPECT_EQ(valor(u"select count(*) from %1 where interno = 'EX 1'"_s.arg(QLatin1StringView(tabla))),
                  u"0"_s)
            << tabla;
    ASSERT_TRUE(EliminarSinPreguntar(*ctx, importacionTemporal)) << ultimo();
    EXPECT_EQ(valor(u"select count(*) from stock"_s), u"6"_s) << "the declaration exists";
    EXPECT_EQ(valor(u"select count(*) from stock where idlinea <> 0"_s), u"0"_s);
    nadaQueDecir();
}

TEST_P(Caminos, ALineThatOnlyKeepsTheCancellationsOfItsItemGivesThemBackToo) {
    ejecutar(u"update stock set idarticulo = 'OTRO' where id = %1"_s.arg(tela));
    const Grabacion g = teclearLinea(telaSinTejer, 600);
    ASSERT_TRUE(g.ok) << ultimo();
    ASSERT_TRUE(armar(exportacion)) << ultimo();
    Cancelacion c;
    c.idstock = tela;
    c.cantidad = 300;
    ASSERT_TRUE(IngresarCancelacion(*ctx, exportacion, u"1"_s, c)) << ultimo();
    EXPECT_EQ(saldo(tela), u"2300"_s);
    registro.respuestas = {true};
    ASSERT_TRUE(EliminarSubItem(*ctx, s, g.id)) << ultimo();
    EXPECT_EQ(saldo(tela), u"2600"_s);
    nadaQueDecir();
}

TEST_P(Caminos, ACopyHasTakenNothing) {
    ASSERT_TRUE(grabarLinea(telaSinTejer, 1300).ok);
    ASSERT_TRUE(armar(exportacion)) << ultimo();
    ejecutar(u"insert into descargas (interno,dit,idexportacion) values ('EX 1','AJENA',0)"_s);
    oOperationCopy::Copiar(*ctx, exportacion, u"EX 2"_s);
    EXPECT_EQ(filas(u"select cancelaciones,insumostemp from subitems where interno = 'EX 2'"_s), u"|0"_s);
    EXPECT_EQ(filas(u"select cancelaciones,insumostemp from item where interno = 'EX 2' and id <> 0"_s),
              u"|0"_s);
    EXPECT_EQ(filas(u"select cancelaciones,insumostemp from groupsubitems where interno = 'EX 2'"_s),
              u"|0"_s);
    EXPECT_EQ(filas(u"select dit from descargas where interno = 'EX 2'"_s), u"AJENA"_s);
    EXPECT_EQ(valor(u"select factura8 from caratula where interno = 'EX 2'"_s), u"S"_s)
        << "it is armed again";
    EXPECT_EQ(saldo(tela), u"1300"_s);
    nadaQueDecir();
}

}  // namespace
