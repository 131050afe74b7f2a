#include <gtest/gtest.h>

#include <QFile>
#include <QSqlError>
#include <QSqlQuery>

#include "tests/support/tienda.h"
#include "upgrade/upgrade.h"

using namespace Qt::StringLiterals;

using actualizacion::CargarCsv;
using actualizacion::CargarNomenclador;
using actualizacion::ResultadoCsv;

namespace {

class Carga : public EnAmbosStores {
 protected:
    QString archivo(const QByteArray &datos, const char *nombre = "datos.csv") {
        QFile f(tienda->carpeta() + QLatin1Char('/') + QLatin1String(nombre));
        EXPECT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(datos);
        return f.fileName();
    }
    ResultadoCsv cargar(const char *tabla, const QByteArray &datos, bool reemplazar = false,
                        const QStringList &porDefecto = {}) {
        return CargarCsv(tienda->perfil(), QLatin1String(tabla), archivo(datos), reemplazar, porDefecto);
    }
    ResultadoCsv nomenclador(const QByteArray &datos, const char *unidad = "01") {
        return CargarNomenclador(tienda->perfil(), archivo(datos), QLatin1String(unidad));
    }
};

TEST_P(Carga, RowsGoInWithTheirValues) {
    const ResultadoCsv r =
        cargar("divisas", "id,descripcion,imp\nDOL,Dólar,1\n060,\"Euro, Europa\",\"1,085\"\n012,Real,\n");
    ASSERT_TRUE(r.ok) << r.error.toStdString();
    EXPECT_EQ(r.cargadas, 3);
    EXPECT_EQ(r.avisos, QStringList());
    EXPECT_EQ(filas("select id,descripcion,imp from divisas order by id").toStdString(),
              "012|Real|<null>\n060|Euro, Europa|1.085\nDOL|Dólar|1");
}

TEST_P(Carga, TheLettersOfAnOfficeReplaceThoseThatWereThere) {
    const QString ncm = u"NCM"_s;
    ejecutar("insert into letrasncm (posicion,letra) values ('8409','F')", ncm);
    const ResultadoCsv r = cargar("letrasncm", "posicion;letra\n61;B\n6109.10.00.110Y;\n62;B;sobra\n", true);
    ASSERT_TRUE(r.ok) << r.error.toStdString();
    EXPECT_EQ(r.avisos, QStringList{u"línea 4: tiene 3 campos y el encabezado 2; la fila no se carga"_s});
    EXPECT_EQ(filas("select posicion,letra from letrasncm order by posicion", ncm).toStdString(),
              "61|B\n6109.10.00.110Y|");
    EXPECT_EQ(cargar("letras", "letra,descripcion\nB,\"Textiles, e indumentaria\"\n").cargadas, 1);
    EXPECT_EQ(valor("select descripcion from letras where letra = 'B'", ncm).toStdString(),
              "Textiles, e indumentaria");
}

TEST_P(Carga, TheListsOfMeatOfAnOfficeReplaceThoseThatWereThere) {
    const QString codigos = u"SYSTABLAS"_s;
    for (const char *lista : {"acuerdo", "categoria", "cortes", "elaborador", "especie", "faneador",
                              "mecoorgbio", "res3106", "sispro"}) {
        const QString tabla = "oncca_"_L1 + QLatin1String(lista);
        ejecutar(u"insert into %1 (id,descripcion) values ('1','DE ANTES')"_s.arg(tabla), codigos);
        const ResultadoCsv r =
            cargar(tabla.toLatin1().constData(),
                   "id;descripcion\n101;AGUJA\nX-2911;\"FRIGORIFICO D'OR; ANEXO\"\n102\n", true);
        ASSERT_TRUE(r.ok) << r.error.toStdString();
        EXPECT_EQ(r.avisos, QStringList{u"línea 4: tiene 1 campos y el encabezado 2; la fila no se carga"_s});
        EXPECT_EQ(filas("select id,descripcion from "_L1 + tabla + " order by id"_L1, codigos).toStdString(),
                  "101|AGUJA\nX-2911|FRIGORIFICO D'OR; ANEXO");
    }
}

TEST_P(Carga, AnUnknownColumnIsToldOnceAndTheRestLoads) {
    const ResultadoCsv r =
        cargar("pais", "id;continente;descripcion\n200;América;Argentina\n203;América;Brasil\n");
    ASSERT_TRUE(r.ok) << r.error.toStdString();
    ASSERT_EQ(r.avisos.size(), 1);
    EXPECT_TRUE(r.avisos.front().startsWith(u"línea 1: "_s)) << r.avisos.front().toStdString();
    EXPECT_TRUE(r.avisos.front().contains(u"continente"_s));
    EXPECT_EQ(filas("select id,descripcion from pais order by id", "SYSTABLAS").toStdString(),
              "200|Argentina\n203|Brasil");
}

TEST_P(Carga, AValueThatIsNoneIsToldWithItsLineAndStaysEmpty) {
    const ResultadoCsv r = cargar("divisas", "id,descripcion,imp\nDOL,a,1\nPES,b,caro\n");
    ASSERT_TRUE(r.ok) << r.error.toStdString();
    ASSERT_EQ(r.avisos.size(), 1);
    EXPECT_EQ(r.avisos.front().toStdString(),
              "línea 3: \"caro\" no sirve para la columna imp; se carga vacía");
    EXPECT_EQ(filas("select id,imp from divisas order by id").toStdString(), "DOL|1\nPES|<null>");
}

TEST_P(Carga, ARaggedRowIsToldAndTheOthersLoad) {
    const ResultadoCsv r = cargar("pais", "id,descripcion\n1\n2,dos\n3,tres,4\n5,cinco,\n");
    ASSERT_TRUE(r.ok) << r.error.toStdString();
    ASSERT_EQ(r.avisos.size(), 2);
    EXPECT_TRUE(r.avisos.at(0).startsWith(u"línea 2: "_s));
    EXPECT_TRUE(r.avisos.at(1).startsWith(u"línea 4: "_s));
    EXPECT_EQ(filas("select id,descripcion from pais order by id", "SYSTABLAS").toStdString(),
              "2|dos\n5|cinco");
}

TEST_P(Carga, ARefusedStatementLeavesNothingLoaded) {
    QSqlQuery q(ctx->conexion("SYSTABLAS").coneccion());
    ASSERT_TRUE(q.exec("create unique index unico on pais (id)")) << q.lastError().text().toStdString();
    ejecutar("insert into pais (id,descripcion) values ('200','ARGENTINA')", "SYSTABLAS");
    ctx->DataManager.CloseAllDataConnection();
    const ResultadoCsv r = cargar("pais", "id,descripcion\n201,a\n202,b\n202,c\n", true);
    EXPECT_FALSE(r.ok);
    EXPECT_EQ(r.cargadas, 0);
    EXPECT_TRUE(r.error.contains(u"línea 4"_s)) << r.error.toStdString();
    EXPECT_TRUE(r.error.contains(u"datos.csv"_s)) << r.error.toStdString();
    // The emptying of the table belongs to the same transaction.
    EXPECT_EQ(filas("select id from pais", "SYSTABLAS").toStdString(), "200");
}

TEST_P(Carga, ReplacingEmptiesTheTableFirst) {
    ASSERT_TRUE(cargar("via", "id,descripcion\n1,a\n2,b\n").ok);
    ASSERT_TRUE(cargar("via", "id,descripcion\n3,c\n", true).ok);
    EXPECT_EQ(filas("select id from via").toStdString(), "3");
    ASSERT_TRUE(cargar("via", "id,descripcion\n4,d\n").ok);
    EXPECT_EQ(filas("select id from via order by id").toStdString(), "3\n4");
}

TEST_P(Carga, DefaultsFillColumnsThatTheFileLacks) {
    const ResultadoCsv r =
        cargar("mottmp", "id,descripcion,impexpo\nX,equis,E\n", false, {"dias=30", "impexpo=I"});
    ASSERT_TRUE(r.ok) << r.error.toStdString();
    EXPECT_EQ(filas("select id,dias,impexpo from mottmp", "SYSTABLAS").toStdString(), "X|30|E");
    EXPECT_FALSE(cargar("mottmp", "id\nY\n", false, {"dias=muchos"}).ok);
    EXPECT_FALSE(cargar("mottmp", "id\nY\n", false, {"nada=1"}).ok);
}

TEST_P(Carga, DatesAreReadInBothForms) {
    const ResultadoCsv r = cargar("control_fecha", "fecha\n2026-01-05\n31/12/2025\n2025-02-30\n");
    ASSERT_TRUE(r.ok) << r.error.toStdString();
    ASSERT_EQ(r.avisos.size(), 1);
    EXPECT_TRUE(r.avisos.front().startsWith(u"línea 4: "_s));
    EXPECT_EQ(
        filas("select fecha from control_fecha where fecha is not null order by fecha", "NCM").toStdString(),
        "2025-12-31 00:00:00\n2026-01-05 00:00:00");
}

TEST_P(Carga, GivenIdentitiesStayAndNumberingGoesOnBehindThem) {
    ASSERT_TRUE(cargar("subitems", "id,interno,ncm\n50,A,x\n7,A,y\n").ok);
    ejecutar("insert into subitems (interno,ncm) values ('A','z')");
    EXPECT_EQ(filas("select id,ncm from subitems order by id").toStdString(), "7|y\n50|x\n51|z");
}

TEST_P(Carga, BlanksAtTheEndsOfATextStay) {
    ASSERT_TRUE(cargar("sufidos", "sim,sufijo,detalle\n84  .  .  .   ,AA01,x\n").ok);
    EXPECT_EQ(valor("select count(*) as n from sufidos where sim in ('84  .  .  .   ')", "NCM").toStdString(),
              "1");
}

TEST_P(Carga, WhatCannotBeLoadedIsSaid) {
    EXPECT_TRUE(cargar("nohay", "id\n1\n").error.contains(u"nohay"_s));
    EXPECT_TRUE(cargar("pais", "x,y\n1,2\n").error.contains(u"pais"_s));
    EXPECT_TRUE(cargar("pais", QByteArray("id,descripcion\n1,Espa\0a\n", 23)).error.contains(u"línea 2"_s));
    EXPECT_EQ(valor("select count(*) as n from pais", "SYSTABLAS").toStdString(), "0");
}

TEST_P(Carga, ALineInAnotherEncodingIsToldAndLoads) {
    const ResultadoCsv r = cargar("pais",
                                  "id,descripcion\n410,ESPA\xD1"
                                  "A\n406,B\xC3\x89LGICA\n");
    ASSERT_TRUE(r.ok) << r.error.toStdString();
    EXPECT_EQ(r.avisos,
              QStringList{u"línea 2: no está en UTF-8; se lee como Windows-1252, revise sus acentos"_s});
    EXPECT_EQ(filas("select id,descripcion from pais order by id", "SYSTABLAS").toStdString(),
              "406|BÉLGICA\n410|ESPAÑA");
}

TEST_P(Carga, ALongLoadTellsHowFarItIs) {
    QByteArray datos("codigo,nombre\n");
    for (int i = 0; i < 2500; ++i) datos += QByteArray::number(i) + ",n\n";
    QList<qint64> marcas;
    const ResultadoCsv r = CargarCsv(tienda->perfil(), "vendedor", archivo(datos), false, {},
                                     [&](const QString &, qint64 hecho, qint64 total) {
                                         EXPECT_EQ(total, 2500);
                                         marcas << hecho;
                                     });
    ASSERT_TRUE(r.ok) << r.error.toStdString();
    EXPECT_EQ(marcas, (QList<qint64>{0, 1000, 2000, 2500}));
}

TEST_P(Carga, ANomenclatureFileFillsTheNumberedColumns) {
    const ResultadoCsv r = nomenclador(
        "posicion,descripcion,descripcion_superior,partida,aec,die,te,intervencion,de,re\n"
        "0101.21.00.100W,De carrera,De raza pura,CABALLOS,0.00,\"2,50\",3.00,LA,9.00,0.50\n"
        "8409.91.12.100G,Bloques,\"Bloques, culatas\",PARTES,16,16,3,LNA,3,5\n");
    ASSERT_TRUE(r.ok) << r.error.toStdString();
    EXPECT_EQ(r.cargadas, 2);
    EXPECT_EQ(
        filas("select [001],[002],[003],[004],[005],[010],[012],[015],[016],[018],[019],[026],[043],[059] "
              "from ncm order by [001]",
              "NCM")
            .toStdString(),
        "0101.21.00|100|W|CABALLOS|De raza pura|De carrera|01|2.50|3.00|9.00|0.50|0.00|LA|\n"
        "8409.91.12|100|G|PARTES|Bloques, culatas|Bloques|01|16|3|3|5|16|LNA|*");
}

TEST_P(Carga, WhatANomenclatureRowGetsWrongIsToldAndTheRestLoads) {
    const ResultadoCsv r = nomenclador(
        "posicion,descripcion,die,intervencion,color\n"
        "0101.21.00,corta,2,LA,x\n"
        "0102.21.00.100W,buena,dos,3.00     LA,x\n"
        "0102.21.00.100W,otra vez,4,LA,x\n"
        "0103.21.00.100A,sin campos\n");
    ASSERT_TRUE(r.ok) << r.error.toStdString();
    ASSERT_EQ(r.avisos.size(), 6) << r.avisos.join('\n').toStdString();
    EXPECT_TRUE(r.avisos.at(0).startsWith(u"línea 1: "_s));
    EXPECT_TRUE(r.avisos.at(1).startsWith(u"línea 2: "_s));
    EXPECT_TRUE(r.avisos.at(2).startsWith(u"línea 3: "_s));
    EXPECT_TRUE(r.avisos.at(3).startsWith(u"línea 3: "_s));
    EXPECT_TRUE(r.avisos.at(4).startsWith(u"línea 4: "_s));
    EXPECT_TRUE(r.avisos.at(5).startsWith(u"línea 5: "_s));
    EXPECT_EQ(filas("select [001],[010],[015],[043] from ncm", "NCM").toStdString(),
              "0102.21.00|otra vez|4|LA");
}

TEST_P(Carga, APositionThatIsThereKeepsTheColumnsTheFileDoesNotSpeakOf) {
    ejecutar(
        "insert into ncm ([001],[002],[003],[010],[012],[028]) values "
        "('8708.10.00','000','C','vieja','07','*')",
        "NCM");
    const ResultadoCsv r = nomenclador("posicion,descripcion,die\n8708.10.00.000C,nueva,18.00\n");
    ASSERT_TRUE(r.ok) << r.error.toStdString();
    EXPECT_EQ(filas("select [010],[012],[015],[028] from ncm", "NCM").toStdString(), "nueva|07|18.00|*");
}

TEST_P(Carga, ANomenclatureWithoutUnitNeedsOne) {
    EXPECT_TRUE(nomenclador("posicion,descripcion\n0101.21.00.100W,x\n", "").error.contains(u"--unidad"_s));
    const ResultadoCsv r = nomenclador("posicion,unidad\n0101.21.00.100W,07\n0101.21.00.200B,\n");
    ASSERT_TRUE(r.ok) << r.error.toStdString();
    EXPECT_EQ(filas("select [012] from ncm order by [002]", "NCM").toStdString(), "07\n01");
}

TEST_P(Carga, ThePublishedTablesLoad) {
    const QString carpeta = qEnvironmentVariable("ZENDRA_DATOS");
    if (carpeta.isEmpty() || !QFile::exists(carpeta + "/nomenclador.csv"))
        GTEST_SKIP()
            << "ZENDRA_DATOS does not name the folder with the published tables (nomenclador.csv and others)";
    ResultadoCsv r = CargarNomenclador(tienda->perfil(), carpeta + "/nomenclador.csv", "01");
    ASSERT_TRUE(r.ok) << r.error.toStdString();
    EXPECT_EQ(r.cargadas, 33145);
    EXPECT_EQ(r.avisos.size(), 96);
    EXPECT_EQ(valor("select count(*) as n from ncm", "NCM").toStdString(), "33145");
    r = CargarCsv(tienda->perfil(), "pais", carpeta + "/paises.csv", true);
    ASSERT_TRUE(r.ok) << r.error.toStdString();
    EXPECT_EQ(r.cargadas, 255);
    r = CargarCsv(tienda->perfil(), "divisas", carpeta + "/divisas.csv", true, {"imp=1"});
    ASSERT_TRUE(r.ok) << r.error.toStdString();
    EXPECT_EQ(r.cargadas, 48);
    r = CargarCsv(tienda->perfil(), "unidades", carpeta + "/unidades.csv", true);
    EXPECT_EQ(r.cargadas, 31);
}

EN_AMBOS_STORES(Carga);

}  // namespace
