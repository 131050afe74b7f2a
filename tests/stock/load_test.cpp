// A temporary import goes into the stock, once.

#include "frame/base/numbers.h"
#include "operations/lifecycle.h"
#include "stock/check.h"
#include "stock/report.h"
#include "tests/stock/ensayo.h"

using namespace Qt::StringLiterals;
using namespace stock;

namespace {

class Cargas : public Ensayo {
 protected:
    DatosDeDeclaracion datos() const {
        return {u"26001IT01000123T"_s, hoy.addDays(-5), hoy.addDays(200), u"CTIT 2026/0412"_s, 2.5};
    }
    QString linea(const QString &articulo) {
        return valor(
            u"select min(id) as id from subitems where interno = 'IT-2026-0003' and idarticulo = '%1'"_s.arg(
                articulo));
    }
};
EN_AMBOS_STORES(Cargas);

TEST_P(Cargas, ADeclarationNumberInSmallLettersIsKeptInCapitals) {
    ASSERT_TRUE(armar(importacionTemporal)) << ultimo();
    DatosDeDeclaracion enChicas = datos();
    enChicas.dit = u" 26001it01000123t "_s;
    ASSERT_TRUE(CargarConDatos(*ctx, importacionTemporal, enChicas).ok) << ultimo();
    EXPECT_EQ(valor(u"select distinct dit from stock"_s), u"26001IT01000123T"_s);
    EXPECT_EQ(ultimo(), "La declaración 26001IT01000123T está en el stock; líneas: 6 nuevas.");
}

TEST_P(Cargas, EveryLineOfTheArmedImportBecomesOneOfTheStock) {
    ASSERT_TRUE(armar(importacionTemporal)) << ultimo();
    registro = Registro();
    const ResultadoDeCarga r = CargarConDatos(*ctx, importacionTemporal, datos());
    ASSERT_TRUE(r.ok) << ultimo();
    EXPECT_EQ(r.nuevas, 6);
    EXPECT_EQ(ultimo(), "La declaración 26001IT01000123T está en el stock; líneas: 6 nuevas.");
    EXPECT_EQ(registro.mensajes.back().icono, Icono::Informacion);
    EXPECT_TRUE(registro.preguntas.empty());
    // FOB 128630.00, freight 6480.00, insurance 515.00, all in dollars at 1: 135625.00.
    EXPECT_EQ(numeros::redondear(valor(u"select sum(cif) as c from stock"_s).toDouble(), 2), 135625);
    // The two lines of raw polyester are one item: 44280.00 and 7020.00 of its FOB of 51300.00.
    const QString item = valor(u"select item from stock where cantidad = 8200"_s);
    EXPECT_EQ(valor(u"select item from stock where cantidad = 1300"_s), item);
    EXPECT_EQ(
        filas(
            u"select subitem,cantidad,saldo,idunidad,idarticulo,divisa,merma,cuitcliente,expctit,dit,interno "
            "from stock where item = %1 order by subitem"_s.arg(item)),
        u"1|8200|8200|01|PE-CR|DOL|2.5|30709988111|CTIT 2026/0412|26001IT01000123T|IT-2026-0003\n"
        "2|1300|1300|01|PE-CR|DOL|2.5|30709988111|CTIT 2026/0412|26001IT01000123T|IT-2026-0003"_s);
    const double deItem = valor(
                              u"select fobtotal + itflete + itseguro as cif from item "
                              "where interno = 'IT-2026-0003' and id = %1"_s.arg(item))
                              .toDouble();
    EXPECT_EQ(valor(u"select cif from stock where cantidad = 8200"_s).toDouble(),
              numeros::redondear(deItem * 44280 / 51300, 2));
    EXPECT_EQ(LeerLinea(*ctx, stockDe(u"HI-AL"_s)).value().vencimiento, hoy.addDays(200));
    EXPECT_EQ(valor(u"select idlinea from stock where idarticulo = 'HI-AL'"_s), linea(u"HI-AL"_s));
    EXPECT_TRUE(Revisar(*ctx).empty());
}

TEST_P(Cargas, FreightAndInsuranceInOtherCurrenciesAreTurnedIntoTheOneOfTheFob) {
    ejecutar(
        u"update caratula set fobdivcambio = 1.10,fobcoddivisas = '060',segurodivcambio = 1.10 "
        "where interno = 'IT-2026-0003'"_s);
    ASSERT_TRUE(armar(importacionTemporal)) << ultimo();
    ASSERT_TRUE(CargarConDatos(*ctx, importacionTemporal, datos()).ok) << ultimo();
    // 128630.00 + 515.00 euros, and 6480.00 dollars of freight at 1 / 1.10 = 5890.91: 135035.91; each item is
    // rounded by itself.
    EXPECT_NEAR(valor(u"select sum(cif) as c from stock"_s).toDouble(), 135035.91, 0.03);
    EXPECT_EQ(valor(u"select min(divisa) as d from stock"_s), u"060"_s);
}

TEST_P(Cargas, OnlyAnArmedTemporaryImportIsLoaded) {
    EXPECT_EQ(DefectoParaCargar(*ctx, u"NO HAY"_s),
              u"La operación NO HAY ya no existe; vuelva a buscarla."_s);
    EXPECT_EQ(DefectoParaCargar(*ctx, u"IC-2026-0001"_s),
              u"El stock se carga con importaciones temporales y el régimen IC04 no lo es."_s);
    operacion(u"ET 1"_s, {{u"idsubreg"_s, u"'ET01'"_s}});
    EXPECT_EQ(DefectoParaCargar(*ctx, u"ET 1"_s),
              u"El stock se carga con importaciones temporales y el régimen ET01 no lo es."_s);
    EXPECT_FALSE(CargarPreguntando(*ctx, importacionTemporal, hoy));
    EXPECT_EQ(ultimo(), "La operación no está armada; arme los items y vuelva a cargarla.");
    EXPECT_TRUE(registro.entradas.empty());
    ejecutar(u"update caratula set cuitcliente = '' where interno = 'IT-2026-0003'"_s);
    EXPECT_EQ(DefectoParaCargar(*ctx, importacionTemporal),
              u"La operación no tiene cliente y el stock es de un cliente; complete la carátula."_s);
}

TEST_P(Cargas, WhatIsAskedIsProposedFromTheHeader) {
    ASSERT_TRUE(armar(importacionTemporal)) << ultimo();
    registro = Registro();
    registro.textos = {u"26001IT01000123T"_s, u"15/1/2026"_s, u"nunca"_s,
                       u"31/12/2030"_s,       u"CTIT 9"_s,    u"1,5"_s};
    ASSERT_TRUE(CargarPreguntando(*ctx, importacionTemporal, hoy)) << ultimo();
    ASSERT_EQ(registro.entradas.size(), 6U);
    EXPECT_EQ(registro.entradas[0].titulo, u"Cargar en el stock"_s);
    EXPECT_EQ(registro.entradas[0].texto, u"Ingrese el número de la declaración de importación temporal"_s);
    EXPECT_EQ(registro.entradas[0].inicial, QString());
    EXPECT_EQ(registro.entradas[1].inicial, hoy.toString(u"dd/MM/yyyy"_s));
    // The header's term is 720 days.
    EXPECT_EQ(registro.entradas[2].inicial, hoy.addDays(720).toString(u"dd/MM/yyyy"_s));
    EXPECT_EQ(registro.mensajes[0].texto, u"\"nunca\" no es una fecha; escríbala como día, mes y año."_s);
    EXPECT_EQ(registro.entradas[3].inicial, u"nunca"_s);
    EXPECT_EQ(registro.entradas[4].inicial, u"CTIT 2026/0412"_s);
    EXPECT_EQ(registro.entradas[5].inicial, u"00.00"_s);
    const Linea l = LeerLinea(*ctx, stockDe(u"HI-AL"_s)).value();
    EXPECT_EQ(l.fecha, QDate(2026, 1, 15));
    EXPECT_EQ(l.vencimiento, QDate(2030, 12, 31));
    EXPECT_EQ(l.expctit, u"CTIT 9"_s);
    EXPECT_EQ(l.merma, 1.5);
    EXPECT_EQ(DatosPropuestos(*ctx, importacionTemporal, hoy).dit, u"26001IT01000123T"_s) << "as it was told";
}

TEST_P(Cargas, DataThatMakeNoSenseAreToldAndAskedAgainUntilTheBoxIsLeft) {
    ASSERT_TRUE(armar(importacionTemporal)) << ultimo();
    registro = Registro();
    registro.textos = {QString(), u"1/2/2026"_s, u"1/1/2026"_s, QString(), u"0"_s};
    EXPECT_FALSE(CargarPreguntando(*ctx, importacionTemporal, hoy));
    EXPECT_EQ(ultimo(), "Falta el número de la declaración; el stock se busca por él.");
    EXPECT_EQ(registro.entradas.size(), 6U) << "and then it was left";
    DatosDeDeclaracion d = datos();
    d.vencimiento = d.fecha.addDays(-1);
    EXPECT_EQ(DefectoDeDatos(d), u"El vencimiento es anterior a la fecha de la declaración; corríjalo."_s);
    d = datos();
    d.merma = 100.5;
    EXPECT_EQ(DefectoDeDatos(d), u"El porcentaje de mermas y pérdidas va de 0 a 100; corríjalo."_s);
    EXPECT_EQ(valor(u"select count(*) from stock"_s), u"0"_s);
}

TEST_P(Cargas, ASecondTimeShowsTheDifferencesAndAsks) {
    cargar();
    const DatosDeDeclaracion mismos = DatosPropuestos(*ctx, importacionTemporal, hoy);
    EXPECT_TRUE(CargarConDatos(*ctx, importacionTemporal, mismos).ok);
    EXPECT_EQ(ultimo(), "El stock ya tiene la operación tal como está.");
    EXPECT_TRUE(registro.preguntas.empty());

    const qint64 tela = stockDe(u"NT-PE"_s);
    ASSERT_TRUE(grabarLinea(u"NT-PE"_s, 600).ok) << ultimo();
    ejecutar(u"update subitems set cantidad = 3000 where id = %1"_s.arg(linea(u"NT-PE"_s)));
    ejecutar(u"delete from subitems where id = %1"_s.arg(linea(u"HI-AL"_s)));
    registro = Registro();
    EXPECT_FALSE(CargarConDatos(*ctx, importacionTemporal, mismos).ok);
    ASSERT_EQ(registro.informes.size(), 1U);
    EXPECT_TRUE(registro.informes[0].comoLista);
    EXPECT_EQ(registro.informes[0].titulo, u"Diferencias con el stock"_s);
    const QString textos = registro.informes[0].texto;
    EXPECT_TRUE(textos.contains(u"ALERCES NT-PE: cambia cantidad 2600.00 → 3000.00"_s))
        << textos.toStdString();
    EXPECT_TRUE(textos.contains(u"ALERCES HI-AL: ya no está en la operación"_s)) << textos.toStdString();
    ASSERT_EQ(registro.preguntas.size(), 1U);
    EXPECT_EQ(registro.preguntas[0].texto,
              u"La operación ya está en el stock, con diferencias. ¿Las lleva al stock?"_s);
    EXPECT_TRUE(registro.preguntas[0].porDefectoNo);
    EXPECT_EQ(saldo(tela), u"2000"_s) << "No keeps everything";

    registro.respuestas = {true};
    const ResultadoDeCarga r = CargarConDatos(*ctx, importacionTemporal, mismos);
    ASSERT_TRUE(r.ok) << ultimo();
    EXPECT_EQ(r.cambiadas, 1);
    EXPECT_EQ(r.quitadas, 1);
    EXPECT_EQ(ultimo(), "La declaración 26001IT01000123T está en el stock; líneas: 1 cambiada, 1 quitada.");
    // 3000 entered, 600 are taken.
    EXPECT_EQ(saldo(tela), u"2400"_s);
    EXPECT_EQ(valor(u"select count(*) from stock"_s), u"5"_s);
    EXPECT_TRUE(Revisar(*ctx).empty());
}

TEST_P(Cargas, LessThanWhatWasTakenIsRefusedAndTheRestGoesIn) {
    cargar();
    const qint64 tela = stockDe(u"NT-PE"_s);
    ASSERT_TRUE(grabarLinea(u"NT-PE"_s, 600).ok) << ultimo();
    ejecutar(u"update subitems set cantidad = 599 where id = %1"_s.arg(linea(u"NT-PE"_s)));
    registro = Registro();
    DatosDeDeclaracion d = DatosPropuestos(*ctx, importacionTemporal, hoy);
    EXPECT_FALSE(CargarConDatos(*ctx, importacionTemporal, d).ok);
    EXPECT_TRUE(registro.preguntas.empty()) << "there is nothing to take over";
    EXPECT_TRUE(registro.informes[0].texto.contains(
        u"no se cambia, porque ya se tomaron 600.00 (unidad 01) (cantidad 2600.00 → 599.00)"_s))
        << registro.informes[0].texto.toStdString();
    ejecutar(u"delete from subitems where id = %1"_s.arg(linea(u"NT-PE"_s)));
    EXPECT_FALSE(CargarConDatos(*ctx, importacionTemporal, d).ok);
    EXPECT_TRUE(registro.informes[1].texto.contains(
        u"ya no está en la operación y queda en el stock, porque se tomaron 600.00 (unidad 01)"_s));
    EXPECT_EQ(saldo(tela), u"2000"_s);
}

TEST_P(Cargas, AnotherNumberOfTheDeclarationReachesTheDischarges) {
    cargar();
    ASSERT_TRUE(grabarLinea(u"NT-PE"_s, 600).ok) << ultimo();
    DatosDeDeclaracion d = DatosPropuestos(*ctx, importacionTemporal, hoy);
    d.dit = u"26001IT01000999X"_s;
    registro.respuestas = {true};
    const ResultadoDeCarga r = CargarConDatos(*ctx, importacionTemporal, d);
    EXPECT_EQ(r.cambiadas, 6);
    EXPECT_EQ(filas(u"select dit from descargas"_s), u"26001IT01000999X"_s);
}

TEST_P(Cargas, ALineWithAHistoryStaysWithNothingInIt) {
    cargar();
    const Grabacion g = grabarLinea(u"NT-PE"_s, 600);
    ASSERT_TRUE(g.ok) << ultimo();
    DevolverTodo(*ctx, exportacion);
    const qint64 tela = stockDe(u"NT-PE"_s);
    ejecutar(u"delete from subitems where id = %1"_s.arg(linea(u"NT-PE"_s)));
    registro.respuestas = {true};
    const DatosDeDeclaracion d = DatosPropuestos(*ctx, importacionTemporal, hoy);
    EXPECT_EQ(CargarConDatos(*ctx, importacionTemporal, d).quitadas, 1);
    EXPECT_EQ(filas(u"select cantidad,saldo from stock where id = %1"_s.arg(tela)), u"0|0"_s);
    EXPECT_TRUE(Diferencias(*ctx, importacionTemporal, d).empty()) << "it is not told again";
    EXPECT_EQ(MovimientosDe(*ctx, tela).size(), 1U);
}

TEST_P(Cargas, ANewOperationUnderAnOldKeyHasNothingToDoWithWhatTheOldOneLoaded) {
    cargar();
    ASSERT_TRUE(EliminarSinPreguntar(*ctx, importacionTemporal)) << ultimo();
    operacion(importacionTemporal, {{u"idsubreg"_s, u"'IT01'"_s}});
    EXPECT_TRUE(Diferencias(*ctx, importacionTemporal, datos()).empty());
}

// ---- what is printed

TEST_P(Cargas, TheReportOfAnExportTellsWhatItTookByItem) {
    cargar();
    ASSERT_TRUE(grabarLinea(u"NT-PE"_s, 600).ok) << ultimo();
    papel::Tabla t = TablaDeInsumos(*ctx, exportacion);
    ASSERT_EQ(t.filas.size(), 2U);
    EXPECT_EQ(t.filas[0].rotulo, u"Tomado por líneas sin armar"_s);
    ASSERT_TRUE(armar(exportacion)) << ultimo();
    t = TablaDeInsumos(*ctx, exportacion);
    ASSERT_EQ(t.filas.size(), 2U);
    EXPECT_EQ(t.filas[0].rotulo, u"Tomado por el item 1"_s);
    EXPECT_EQ(t.filas[1].celdas[0].toString(), u"26001IT01000123T"_s);
    EXPECT_EQ(t.filas[1].celdas[5].toString(), u"ALERCES NT-PE"_s);
    EXPECT_EQ(t.filas[1].celdas[7].toDouble(), 600);
    EXPECT_EQ(t.filas[1].celdas[10].toDouble(), 2000) << "what is left";
    EXPECT_EQ(t.titulo, u"Insumos temporales"_s);
    EXPECT_TRUE(t.subtitulo.startsWith(u"Operación EX 1 - EC02"_s)) << t.subtitulo.toStdString();
    EXPECT_TRUE(t.subtitulo.endsWith("TEJEDURIA LOS ALERCES S.A."_L1)) << t.subtitulo.toStdString();
    const papel::Documento d = DocumentoDe(*ctx, t);
    EXPECT_EQ(d.reporte.titulo, t.titulo);
    ASSERT_TRUE(d.tabla);
}

TEST_P(Cargas, TheReportOfAnImportTellsWhatIsLeftOfEachLine) {
    cargar();
    ASSERT_TRUE(grabarLinea(u"NT-PE"_s, 600).ok) << ultimo();
    const papel::Tabla t = TablaDeInsumos(*ctx, importacionTemporal);
    ASSERT_EQ(t.filas.size(), 7U);
    EXPECT_EQ(t.filas[0].rotulo, u"Entró al stock con esta operación"_s);
    EXPECT_TRUE(TablaDeInsumos(*ctx, u"IC-2026-0001"_s).filas.empty());
}

TEST_P(Cargas, TheListOfTheStockStandsByClientAndMarksWhatExpires) {
    entrar({{u"vencimiento"_s, dia(-3)}});
    entrar({{u"vencimiento"_s, dia(3)}, {u"saldo"_s, u"40"_s}});
    entrar({{u"cuitcliente"_s, u"'%1'"_s.arg(otroCliente)}});
    const papel::Tabla t = TablaDeStock(*ctx, {}, hoy);
    ASSERT_EQ(t.filas.size(), 5U);
    EXPECT_EQ(t.filas[0].rotulo, u"TEJEDURIA LOS ALERCES S.A. (30709988111)"_s);
    EXPECT_EQ(t.filas[1].celdas.back().toString(), u"vencido"_s);
    EXPECT_EQ(t.filas[2].celdas.back().toString(), u"por vencer"_s);
    EXPECT_EQ(t.filas[2].celdas[8].toDouble(), 60) << "taken";
    EXPECT_EQ(t.filas[4].celdas.back().toString(), QString());
    EXPECT_TRUE(TablaDeStock(*ctx, {.declaracion = u"X"_s}, hoy).filas.empty());
    EXPECT_TRUE(TablaDeStock(*ctx, {.conSaldo = true}, hoy).subtitulo.startsWith("Con saldo - al "_L1));
}

TEST_P(Cargas, TheMovementsOfALineTellWhoTookAndWhoGaveBack) {
    const qint64 id = entrar();
    EXPECT_TRUE(TablaDeMovimientos(*ctx, id).filas.empty());
    ASSERT_TRUE(tomar(Existencias::linea(), {{id, 10}}).ok);
    DevolverTodo(*ctx, exportacion);
    const papel::Tabla t = TablaDeMovimientos(*ctx, id);
    ASSERT_EQ(t.filas.size(), 1U);
    EXPECT_EQ(t.filas[0].celdas[1].toString(), exportacion);
    EXPECT_EQ(t.filas[0].celdas[7].toString(), u"PC1"_s);
    EXPECT_EQ(t.filas[0].celdas[9].toString(), u"PC1"_s);
}

}  // namespace
