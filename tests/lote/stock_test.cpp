// The stock of temporary inputs by the batch program: the whole road of an import and an export.

#include <gtest/gtest.h>

#include "frame/base/numbers.h"

#include "tests/support/lote.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

class StockEnLote : public EnAmbosStores {
 protected:
    bool conDemostracion() const override { return true; }
    Corrida lote(const QStringList &orden) const {
        return Lote(tienda->carpeta(), QStringList{u"--perfil"_s, tienda->perfil(), u"--ajustes"_s,
                                                   tienda->carpeta() + u"/lote.ini"_s} +
                                           orden);
    }
    Corrida conSi(const QStringList &orden) const {
        return lote(QStringList{u"--respuestas"_s, Escribir(tienda->carpeta(), u"si.json"_s, R"(["Si"])")} +
                    orden);
    }
    QString linea(const QString &interno, const QString &articulo) {
        return valor(u"select min(id) as id from subitems where interno = '%1' and idarticulo = '%2'"_s.arg(
            interno, articulo));
    }
    Corrida cargar() const {
        return lote({u"stock"_s, u"cargar"_s, u"IT-2026-0003"_s, u"--declaracion"_s, u"26001IT01000123T"_s,
                     u"--fecha"_s, u"1/2/2026"_s, u"--vencimiento"_s, u"31/12/2033"_s, u"--merma"_s,
                     u"2,5"_s});
    }
};
EN_AMBOS_STORES(StockEnLote);

TEST_P(StockEnLote, AnImportIsLoadedOnceAndASecondTimeNeedsItsAnswer) {
    Corrida c = cargar();
    EXPECT_EQ(c.estado, 1);
    EXPECT_EQ(c.textos(), QStringList{u"La operación no está armada; arme los items y vuelva a cargarla."_s});
    ASSERT_EQ(lote({u"armar"_s, u"IT-2026-0003"_s}).estado, 0);
    c = cargar();
    EXPECT_EQ(c.estado, 0) << c.errores.toStdString();
    EXPECT_EQ(c.resultado(), (QJsonObject{{u"resultado"_s, u"stock cargar"_s},
                                          {u"interno"_s, u"IT-2026-0003"_s},
                                          {u"cargada"_s, true},
                                          {u"nuevas"_s, 6},
                                          {u"cambiadas"_s, 0},
                                          {u"quitadas"_s, 0},
                                          {u"negadas"_s, 0},
                                          {u"estado"_s, 0}}));
    EXPECT_EQ(
        filas(u"select distinct fecha,vencimiento,merma,expctit from stock where dit = '26001IT01000123T'"_s),
        u"2026-02-01 00:00:00|2033-12-31 00:00:00|2.5|CTIT 2026/0412"_s);
    EXPECT_EQ(valor(u"select count(*) from interno"_s), u"0"_s) << "the operation is given back";
    ejecutar(
        u"update subitems set cantidad = 2700 where id = %1"_s.arg(linea(u"IT-2026-0003"_s, u"NT-PE"_s)));
    const QStringList otraVez{u"stock"_s, u"cargar"_s, u"IT-2026-0003"_s, u"--declaracion"_s,
                              u"26001IT01000123T"_s};
    c = lote(otraVez);
    EXPECT_EQ(c.estado, 1);
    EXPECT_FALSE(c.resultado().value(u"cargada"_s).toBool());
    c = conSi(otraVez);
    EXPECT_EQ(c.estado, 0);
    EXPECT_EQ(c.resultado().value(u"cambiadas"_s).toInt(), 1);
    EXPECT_EQ(valor(u"select saldo from stock where dit = '26001IT01000123T' and idarticulo = 'NT-PE'"_s),
              u"2700"_s);
}

TEST_P(StockEnLote, ALineTakesAndGivesBack) {
    const QString tela = linea(u"EC-2026-0008"_s, u"NT-PE"_s);
    Corrida c = lote({u"stock"_s, u"tomar"_s, u"EC-2026-0008"_s, tela});
    EXPECT_EQ(c.estado, 1);
    EXPECT_EQ(
        c.textos(),
        QStringList{u"La línea %1 ya tomó del stock; devuelva lo que tomó para tomar de nuevo."_s.arg(tela)});
    c = lote({u"stock"_s, u"devolver"_s, u"EC-2026-0008"_s, tela});
    EXPECT_EQ(c.estado, 0);
    EXPECT_EQ(c.resultado().value(u"devueltas"_s).toInt(), 1);
    EXPECT_EQ(valor(u"select saldo from stock where idarticulo = 'NT-PE'"_s), u"2000"_s);
    EXPECT_EQ(valor(u"select factura8 from caratula where interno = 'EC-2026-0008'"_s), u"S"_s);
    const QString stock = valor(u"select id from stock where idarticulo = 'NT-PE'"_s);
    c = lote({u"stock"_s, u"tomar"_s, u"EC-2026-0008"_s, tela, u"--de"_s, stock + u":400"_s});
    EXPECT_EQ(c.estado, 0) << c.textos().join(u'\n').toStdString();
    EXPECT_EQ(c.resultado().value(u"linea"_s).toInt(), tela.toInt());
    EXPECT_EQ(numeros::aNumero(c.resultado().value(u"cif"_s).toString()), 4114.5);
    EXPECT_EQ(valor(u"select saldo from stock where idarticulo = 'NT-PE'"_s), u"1000"_s);
    c = lote({u"stock"_s, u"devolver"_s, u"EC-2026-0008"_s});
    EXPECT_EQ(c.resultado().value(u"devueltas"_s).toInt(), 3);
    EXPECT_EQ(valor(u"select count(*) from stock where saldo <> cantidad"_s), u"0"_s);
}

TEST_P(StockEnLote, WasteAndLossAreAnOptionOfTheRun) {
    const QString tela = linea(u"EC-2026-0008"_s, u"NT-PE"_s);
    ejecutar(u"update stock set merma = 10"_s);
    ASSERT_EQ(lote({u"stock"_s, u"devolver"_s, u"EC-2026-0008"_s, tela}).estado, 0);
    const QString opciones =
        Escribir(tienda->carpeta(), u"o.json"_s, R"({"INSTMP.RestarPerMer":"S","opVDE":"S"})");
    const Corrida c = lote({u"--opciones"_s, opciones, u"stock"_s, u"tomar"_s, u"EC-2026-0008"_s, tela});
    ASSERT_EQ(c.estado, 0) << c.errores.toStdString() << c.textos().join(u'\n').toStdString();
    EXPECT_EQ(
        filas(
            u"select cantidad,factor,descontado from stockmov where devuelta is null and idlinea = %1"_s.arg(
                tela)),
        u"1000|1.1|1100"_s);
}

TEST_P(StockEnLote, TheWholeStockIsToldLineByLine) {
    Corrida c = lote({u"stock"_s, u"listar"_s});
    EXPECT_EQ(c.estado, 0);
    EXPECT_EQ(c.resultado().value(u"cantidad"_s).toInt(), 5);
    ASSERT_EQ(c.mensajes().size(), 5U);
    EXPECT_EQ(c.mensajes()[0].value(u"plazo"_s).toString(), u"vencido"_s);
    EXPECT_EQ(c.mensajes()[1].value(u"plazo"_s).toString(), u"por vencer"_s);
    EXPECT_EQ(c.mensajes()[2].value(u"declaracion"_s).toString(), u"26001IT01001187C"_s);
    EXPECT_EQ(c.mensajes()[2].value(u"saldo"_s).toDouble(), 2000);
    c = lote({u"stock"_s, u"listar"_s, u"--articulo"_s, u"nt-pe"_s, u"--cliente"_s, u"alerces"_s,
              u"--posicion"_s, u"5603"_s, u"--declaracion"_s, u"26001"_s, u"--con-saldo"_s});
    EXPECT_EQ(c.resultado().value(u"cantidad"_s).toInt(), 1);
}

TEST_P(StockEnLote, WhatDoesNotAgreeIsToldAndMendedOnlyWhenAsked) {
    Corrida c = lote({u"stock"_s, u"revisar"_s});
    EXPECT_EQ(c.estado, 0) << c.textos().join(u'\n').toStdString();
    EXPECT_EQ(c.resultado().value(u"hallazgos"_s).toInt(), 0);
    ejecutar(u"update stock set saldo = 1 where idarticulo = 'NT-PE'"_s);
    c = lote({u"stock"_s, u"revisar"_s});
    EXPECT_EQ(c.estado, 1);
    ASSERT_EQ(c.mensajes().size(), 1U);
    EXPECT_EQ(c.mensajes()[0].value(u"clase"_s).toString(), u"saldo"_s);
    EXPECT_TRUE(c.mensajes()[0].value(u"reparable"_s).toBool());
    EXPECT_EQ(valor(u"select saldo from stock where idarticulo = 'NT-PE'"_s), u"1"_s);
    c = lote({u"stock"_s, u"revisar"_s, u"--reparar"_s});
    EXPECT_EQ(c.estado, 0);
    EXPECT_EQ(c.resultado().value(u"reparados"_s).toInt(), 1);
    EXPECT_EQ(valor(u"select saldo from stock where idarticulo = 'NT-PE'"_s), u"1000"_s);
}

TEST_P(StockEnLote, ADeletedOperationGivesBackWhatItTook) {
    ASSERT_EQ(conSi({u"borrar"_s, u"EC-2026-0008"_s}).estado, 0);
    EXPECT_EQ(valor(u"select count(*) from stock where saldo <> cantidad"_s), u"0"_s);
    EXPECT_EQ(lote({u"stock"_s, u"revisar"_s}).estado, 0);
}

TEST_P(StockEnLote, AWrongOrderIsOneSentence) {
    struct Caso {
        QStringList orden;
        QString dice;
    };
    const QString cola = u"; vea zendra_lote stock %1 --ayuda."_s;
    const Caso casos[] = {{{u"tomar"_s, u"A"_s, u"x"_s}, u"LINEA no sirve: \"x\" no es un número de línea"_s},
                          {{u"tomar"_s, u"A"_s, u"1"_s, u"--de"_s, u"3:"_s},
                           u"--de no sirve: \"3:\" no es una línea del stock (NUMERO o NUMERO:CANTIDAD)"_s},
                          {{u"cargar"_s, u"A"_s}, u"Falta --declaracion NUMERO"_s},
                          {{u"cargar"_s, u"A"_s, u"--declaracion"_s, u"1"_s, u"--fecha"_s, u"ayer"_s},
                           u"--fecha no sirve: \"ayer\" no es una fecha"_s},
                          {{u"cargar"_s, u"A"_s, u"--declaracion"_s, u"1"_s, u"--merma"_s, u"101"_s},
                           u"--merma no sirve: \"101\" no es un porcentaje"_s}};
    for (const Caso &caso : casos) {
        const Corrida c = lote(QStringList{u"stock"_s} + caso.orden);
        EXPECT_EQ(c.estado, 2);
        EXPECT_EQ(c.errores.trimmed().toStdString(),
                  (caso.dice + cola.arg(caso.orden.front())).toStdString());
    }
    const Corrida c = lote({u"stock"_s, u"devolver"_s, u"NO HAY"_s});
    EXPECT_EQ(c.estado, 1);
    EXPECT_EQ(c.textos(),
              QStringList{u"No se encontró el interno NO HAY; revise la clave o créelo primero."_s});
}

}  // namespace
