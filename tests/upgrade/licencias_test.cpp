// The licence tables as an office gets them, with what such files get wrong.

#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>

#include "regulatory/lnapi.h"
#include "tests/support/tienda.h"
#include "upgrade/upgrade.h"

using namespace Qt::StringLiterals;

using actualizacion::ResultadoCsv;

namespace {

const QString enNcm = u"NCM"_s;

class CargaDeLicencias : public EnAmbosStores {
 protected:
    QString archivo(const QByteArray &datos, const char *nombre = "licencias.csv") {
        QFile f(tienda->carpeta() + QLatin1Char('/') + QLatin1String(nombre));
        EXPECT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(datos);
        return f.fileName();
    }
    /// The notices of a load that went well.
    std::string cargar(const char *tabla, const QByteArray &datos, bool reemplazar = false) {
        const ResultadoCsv r =
            actualizacion::CargarCsv(tienda->perfil(), QLatin1String(tabla), archivo(datos), reemplazar);
        EXPECT_TRUE(r.ok) << r.error.toStdString();
        return r.avisos.join(u'\n').toStdString();
    }
    std::string posiciones() {
        return filas(
                   "select posicion,lnapi,norma,aclaraciones from lnapiposicionesafectadas "
                   "order by posicion,norma",
                   enNcm)
            .toStdString();
    }
};

TEST_P(CargaDeLicencias, RowsThatAreRightLoadWithoutAWord) {
    EXPECT_EQ(
        cargar("lnapiaclaraciones", "aclaracion;descripcion\n1;Sólo nueva\n2;\"Ver \"\"anexo\"\"; d'or\"\n"),
        "");
    EXPECT_EQ(cargar("LNAPIPosicionesAfectadas",
                     "Posicion;LNAPI;Norma;Aclaraciones\n"
                     "3605.00.00;LNA FOSFOROS;RES.1;1 2\n"
                     "3605.00.00;LNA FOSFOROS;RES.2;\n"),
              "");
    EXPECT_EQ(cargar("lnapifechadedatos", "fecha\n05/01/2026\n"), "");
    EXPECT_EQ(ObtenerAclaraciones(*ctx, u"3605.00.00.100N"_s).toStdString(),
              "Aclaraciones para (1)\r\n* Sólo nueva\r\n* Ver \"anexo\"; d'or\r\n"
              "Aclaraciones para (2)\r\n* No posee aclaraciones la posición\r\n");
    EXPECT_EQ(valor("select fecha from lnapifechadedatos", enNcm), u"2026-01-05 00:00:00"_s);
}

TEST_P(CargaDeLicencias, APositionThatIsNotOfTenCharactersIsToldAndTheOthersLoad) {
    EXPECT_EQ(
        cargar("lnapiposicionesafectadas",
               "posicion,lnapi,norma,aclaraciones\n"
               "3605.00.00.100N,LNA,RES.1,\n"
               "3605.00,LNA,RES.1,\n"
               "36050000,LNA,RES.1,\n"
               ",LNA,RES.1,\n"
               " 3605.00.00 ,LNA,RES.1,\n"),
        "línea 2: \"3605.00.00.100N\" no es una posición de 10 caracteres, como 8413.70.10; la fila no se carga\n"
        "línea 3: \"3605.00\" no es una posición de 10 caracteres, como 8413.70.10; la fila no se carga\n"
        "línea 4: \"36050000\" no es una posición de 10 caracteres, como 8413.70.10; la fila no se carga\n"
        "línea 5: \"\" no es una posición de 10 caracteres, como 8413.70.10; la fila no se carga");
    EXPECT_EQ(posiciones(), "3605.00.00|LNA|RES.1|");
}

TEST_P(CargaDeLicencias, ANoteThatIsNoNumberOrIsNotThereIsTold) {
    cargar("lnapiaclaraciones", "aclaracion,descripcion\n1,Sólo nueva\n3,Noventa días\n");
    EXPECT_EQ(
        cargar("lnapiposicionesafectadas",
               "posicion,lnapi,norma,aclaraciones\n"
               "3605.00.00,LNA,RES.1,1  x 03 3,1\n"
               "3605.00.01,LNA,RES.1,1 7\n"
               "3605.00.02,LNA,RES.1,\"1,3\"\n"
               "3605.00.03,LNA,RES.1,0 -1 '\n"),
        "línea 2: tiene 5 campos y el encabezado 4; la fila no se carga\n"
        "línea 3: la aclaración 7 no está en lnapiaclaraciones; se carga igual, agréguela allí\n"
        "línea 4: \"1,3\" no es el número de una aclaración (van separados por un blanco); se carga sin ella\n"
        "línea 5: \"0\" no es el número de una aclaración (van separados por un blanco); se carga sin ella\n"
        "línea 5: \"-1\" no es el número de una aclaración (van separados por un blanco); se carga sin ella\n"
        "línea 5: \"'\" no es el número de una aclaración (van separados por un blanco); se carga sin ella");
    EXPECT_EQ(posiciones(), "3605.00.01|LNA|RES.1|1 7\n3605.00.02|LNA|RES.1|\n3605.00.03|LNA|RES.1|");
    EXPECT_EQ(ObtenerAclaraciones(*ctx, u"3605.00.01"_s).toStdString(),
              "Aclaraciones para (1)\r\n* Sólo nueva\r\n"
              "* No Posee Descripción la aclaración número: 7\r\n");
    EXPECT_EQ(
        cargar("lnapiposicionesafectadas",
               "posicion,lnapi,norma,aclaraciones\n3605.00.00,LNA,RES.1,1  x 03\n", true),
        "línea 2: \"x\" no es el número de una aclaración (van separados por un blanco); se carga sin ella");
    EXPECT_EQ(posiciones(), "3605.00.00|LNA|RES.1|1 3");
}

TEST_P(CargaDeLicencias, ACutLineAndAnotherEncodingAreToldAndTheRestLoads) {
    EXPECT_EQ(cargar("lnapiaclaraciones",
                     "aclaracion,descripcion\n"
                     "1\n"
                     "2,\"Sin cerrar\n"
                     "3,Declaraci\xF3n\n"
                     "4,Cuatro"),
              "línea 2: tiene 1 campos y el encabezado 2; la fila no se carga\n"
              "línea 3: hay una comilla sin cerrar; la fila no se carga\n"
              "línea 4: no está en UTF-8; se lee como Windows-1252, revise sus acentos");
    EXPECT_EQ(filas("select aclaracion,descripcion from lnapiaclaraciones order by aclaracion", enNcm)
                  .toStdString(),
              "3|Declaración\n4|Cuatro");
}

TEST_P(CargaDeLicencias, NotesHaveANumberOfTheirOwnAndAText) {
    cargar("lnapiaclaraciones", "aclaracion,descripcion\n1,Uno\n");
    EXPECT_EQ(cargar("lnapiaclaraciones",
                     "aclaracion,descripcion\n"
                     "1,Otra vez\nx,Equis\n,Nada\n2,\n3,Tres\n03,Tres más\n"),
              "línea 2: la aclaración 1 está repetida; queda la primera\n"
              "línea 3: \"x\" no es el número de una aclaración; la fila no se carga\n"
              "línea 4: \"\" no es el número de una aclaración; la fila no se carga\n"
              "línea 5: la aclaración 2 no tiene descripción; la fila no se carga\n"
              "línea 7: la aclaración 3 está repetida; queda la primera");
    EXPECT_EQ(filas("select aclaracion,descripcion from lnapiaclaraciones order by aclaracion", enNcm)
                  .toStdString(),
              "1|Uno\n3|Tres");
    EXPECT_EQ(cargar("lnapiaclaraciones", "aclaracion,descripcion\n1,Otra\n", true), "");
    EXPECT_EQ(filas("select aclaracion,descripcion from lnapiaclaraciones", enNcm).toStdString(), "1|Otra");
}

TEST_P(CargaDeLicencias, ALicenceThatIsThereAlreadyDoesNotShowTwice) {
    const QByteArray datos(
        "posicion,lnapi,norma,aclaraciones\n3605.00.00,LNA,RES.1,\n3605.00.00,LNA,RES.2,\n");
    EXPECT_EQ(cargar("lnapiposicionesafectadas", datos + "3605.00.00,lna,RES.1,\n"),
              "línea 4: la licencia de la posición 3605.00.00 está repetida; la fila no se carga");
    EXPECT_EQ(cargar("lnapiposicionesafectadas", datos),
              "línea 2: la licencia de la posición 3605.00.00 está repetida; la fila no se carga\n"
              "línea 3: la licencia de la posición 3605.00.00 está repetida; la fila no se carga");
    EXPECT_EQ(posiciones(), "3605.00.00|LNA|RES.1|\n3605.00.00|LNA|RES.2|");
    EXPECT_EQ(cargar("lnapiposicionesafectadas", datos, true), "");
}

TEST_P(CargaDeLicencias, APositionThatTheNomenclatureLacksIsToldAndLoads) {
    ejecutar("insert into ncm ([001],[002],[003]) values ('3605.00.00','100','N')", enNcm);
    EXPECT_EQ(cargar("lnapiposicionesafectadas", "posicion,lnapi\n3605.00.00,LNA\n3605.99.00,LNA\n"),
              "línea 3: la posición 3605.99.00 no está en el nomenclador; se carga igual, revísela");
    EXPECT_EQ(valor("select count(*) as n from lnapiposicionesafectadas", enNcm), u"2"_s);
}

TEST_P(CargaDeLicencias, ThereIsOneDateOfTheData) {
    EXPECT_EQ(cargar("lnapifechadedatos", "fecha\nayer\n\"\"\n2026-02-30\n2026-01-05\n2026-01-06\n"),
              "línea 2: \"ayer\" no es una fecha, como 2026-01-05; la fila no se carga\n"
              "línea 4: \"2026-02-30\" no es una fecha, como 2026-01-05; la fila no se carga\n"
              "línea 6: ya hay una fecha de los datos; esta no se carga, reemplace la tabla");
    EXPECT_EQ(cargar("lnapifechadedatos", "fecha\n2026-02-01\n"),
              "línea 2: ya hay una fecha de los datos; esta no se carga, reemplace la tabla");
    EXPECT_EQ(cargar("lnapifechadedatos", "fecha\n2026-02-01\n", true), "");
    EXPECT_EQ(filas("select fecha from lnapifechadedatos", enNcm).toStdString(), "2026-02-01 00:00:00");
}

TEST_P(CargaDeLicencias, AFileWithoutItsColumnsIsRefusedAndTheTableStays) {
    cargar("lnapiaclaraciones", "aclaracion,descripcion\n1,Uno\n");
    const ResultadoCsv r = actualizacion::CargarCsv(tienda->perfil(), u"lnapiaclaraciones"_s,
                                                    archivo("numero,descripcion\n2,Dos\n"), true);
    EXPECT_FALSE(r.ok);
    EXPECT_TRUE(r.error.contains(u"licencias.csv no tiene la columna aclaracion"_s)) << r.error.toStdString();
    EXPECT_EQ(valor("select descripcion from lnapiaclaraciones", enNcm), u"Uno"_s);
}

TEST_P(CargaDeLicencias, TheProgramTellsEachLineAndLoadsTheRest) {
    const QString notas = archivo("aclaracion,descripcion\n1,Uno\nx,Equis\n", "notas.csv");
    const QString filas =
        archivo("posicion,lnapi,norma,aclaraciones\n3605.00.00,LNA,RES.1,1\n3605,LNA,RES.1,1\n");
    QProcess p;
    p.start(qEnvironmentVariable("ZENDRA_BIN") + "/DbUpgrade3"_L1,
            {u"--perfil"_s, tienda->perfil(), u"--cargar"_s, u"LNAPIAclaraciones="_s + notas, u"--cargar"_s,
             u"LNAPIPosicionesAfectadas="_s + filas});
    ASSERT_TRUE(p.waitForFinished(60000));
    EXPECT_EQ(p.exitCode(), 0) << p.readAllStandardError().toStdString();
    const QString salida = QString::fromUtf8(p.readAllStandardOutput());
    for (
        const QString &linea :
        {u"  %1, línea 3: \"x\" no es el número de una aclaración; la fila no se carga"_s.arg(notas),
         u"%1: 1 filas cargadas, 1 avisos."_s.arg(notas),
         u"  %1, línea 3: \"3605\" no es una posición de 10 caracteres, como 8413.70.10; la fila no se carga"_s
             .arg(filas),
         u"%1: 1 filas cargadas, 1 avisos."_s.arg(filas)})
        EXPECT_TRUE(salida.contains(linea + u'\n')) << salida.toStdString();
}

EN_AMBOS_STORES(CargaDeLicencias);

}  // namespace
