#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>

#include "frame/store/StoreProfiles.h"
#include "frame/version.h"
#include "tests/support/tienda.h"
#include "upgrade/upgrade.h"

using namespace Qt::StringLiterals;

namespace {

QString programa() {
    return qEnvironmentVariable("ZENDRA_BIN", CarpetaDeConstruccion()) + u"/DbUpgrade3"_s;
}

struct Corrida {
    int estado = -1;
    QString salida, errores;
};

Corrida DbUpgrade3(const QStringList &argumentos) {
    QProcess p;
    p.start(programa(), argumentos);
    Corrida c;
    constexpr int paciencia = 120000;
    if (!p.waitForFinished(paciencia)) return c;
    c.estado = p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1;
    c.salida = QString::fromUtf8(p.readAllStandardOutput());
    c.errores = QString::fromUtf8(p.readAllStandardError());
    return c;
}

TEST(DbUpgrade3Program, AWrongUseIsOneSentenceThatNamesTheHelpAndStatusTwo) {
    struct Caso {
        QStringList argumentos;
        QString dice;
    };
    const Caso casos[] = {
        {{"--nada"}, u"No existe la opción --nada; vea DbUpgrade3 --ayuda."_s},
        {{"suelto"}, u"Sobra \"suelto\": DbUpgrade3 no lleva argumentos; vea DbUpgrade3 --ayuda."_s},
        {{"--perfil"}, u"A la opción --perfil le falta su valor; vea DbUpgrade3 --ayuda."_s},
        {{"--demostracion=si"}, u"La opción --demostracion no lleva valor; vea DbUpgrade3 --ayuda."_s},
        {{"--cargar", "sinigual"},
         u"--cargar no sirve: \"sinigual\" no es TABLA=ARCHIVO; vea DbUpgrade3 --ayuda."_s},
        {{"--crear-archivos", "a", "--crear-servidor", "h,1,b,u"},
         u"Las opciones --crear-archivos y --crear-servidor no van juntas; vea DbUpgrade3 --ayuda."_s},
        {{"--crear-servidor", "h,puerto,b,u"},
         u"--crear-servidor no sirve: \"h,puerto,b,u\" no es host,puerto,base,usuario; vea DbUpgrade3 "
         "--ayuda."_s},
        {{"--unidad", "01"}, u"La opción --unidad sólo sirve con --nomenclador; vea DbUpgrade3 --ayuda."_s},
        {{"--reemplazar"}, u"La opción --reemplazar sólo sirve con --cargar; vea DbUpgrade3 --ayuda."_s},
        {{"--respaldo", "a", "--restaurar", "b"},
         u"Las opciones --respaldo y --restaurar no van juntas; vea DbUpgrade3 --ayuda."_s},
        {{"--verificar", "--demostracion"},
         u"Las opciones --verificar y --demostracion no van juntas; vea DbUpgrade3 --ayuda."_s},
        {{"--roles", "a,b"}, u"La opción --roles sólo sirve con --crear-servidor; vea DbUpgrade3 --ayuda."_s},
        {{"--crear-servidor", "h,1,b,u", "--roles", "a"},
         u"--roles no sirve: \"a\" no es DUEÑO,TRABAJO; vea DbUpgrade3 --ayuda."_s},
        {{"--crear-servidor", "h,1,b,u", "--roles", "a,b", "--sin-roles"},
         u"Las opciones --sin-roles y --roles no van juntas; vea DbUpgrade3 --ayuda."_s},
        {{"--crear-servidor", "h,1,b,u", "--conexion", "clave=secreta"},
         u"--conexion no sirve: \"clave\" no es una palabra de la conexión (sslmode, sslrootcert, sslcert, sslkey, "
         "sslcrl, connect_timeout, tcp_user_timeout) con su valor; vea DbUpgrade3 --ayuda."_s},
        {{"--respaldo"}, u"A la opción --respaldo le falta su valor; vea DbUpgrade3 --ayuda."_s},
    };
    for (const Caso &caso : casos) {
        const Corrida c = DbUpgrade3(caso.argumentos);
        EXPECT_EQ(c.estado, 2) << caso.argumentos.join(' ').toStdString();
        EXPECT_EQ(c.errores.toStdString(), (caso.dice + '\n').toStdString());
        EXPECT_EQ(c.salida, QString());
    }
}

TEST(DbUpgrade3Program, TheHelpNamesEveryOptionAndMakesNothing) {
    const Corrida c = DbUpgrade3({"--perfil", "/no/hay.ini", "--ayuda"});
    EXPECT_EQ(c.estado, 0);
    EXPECT_EQ(c.errores, QString());
    for (const char *parte :
         {"Uso: DbUpgrade3 [opciones]", "--perfil ARCHIVO", "--crear-archivos CARPETA",
          "--crear-servidor DATOS", "--roles DUEÑO,TRABAJO", "--sin-roles", "--conexion PALABRA=VALOR",
          "--demostracion", "--cargar TABLA=ARCHIVO", "Puede repetirse.", "--reemplazar",
          "--nomenclador ARCHIVO", "--unidad CODIGO", "--version"})
        EXPECT_TRUE(c.salida.simplified().contains(QString::fromUtf8(parte)))
            << parte << " in " << c.salida.toStdString();
    EXPECT_EQ(DbUpgrade3({"-h"}).salida, c.salida);
}

TEST(DbUpgrade3Program, TheVersionIsTheProgramsWithTheDayOfItsBuild) {
    const Corrida c = DbUpgrade3({"--version"});
    EXPECT_EQ(c.estado, 0);
    EXPECT_EQ(c.salida, u"DbUpgrade3 %1 (%2)\n"_s.arg(TextoDeVersion(), TextoFechaZendra()));
    EXPECT_EQ(c.errores, QString());
}

TEST(DbUpgrade3Program, AFileThatDoesNotFitInMemoryIsToldAndTheProgramEndsInOrder) {
    QFile permiso(u"/proc/sys/vm/overcommit_memory"_s);
    if (permiso.open(QIODevice::ReadOnly) && permiso.readAll().startsWith('1'))
        GTEST_SKIP() << "this machine promises any amount of memory (vm.overcommit_memory = 1)";
    // A profile of four terabytes that takes no room on the disk; no machine reads it whole.
    QTemporaryDir dir;
    QFile enorme(dir.filePath("enorme.ini"));
    ASSERT_TRUE(enorme.open(QIODevice::WriteOnly));
    ASSERT_TRUE(enorme.resize(qint64(1) << 42));
    enorme.close();
    qputenv("ASAN_OPTIONS", "allocator_may_return_null=1");
    const Corrida c = DbUpgrade3({"--perfil", enorme.fileName()});
    qunsetenv("ASAN_OPTIONS");
    EXPECT_EQ(c.estado, 1);
    EXPECT_TRUE(c.errores.contains(u"La memoria de la PC no alcanza"_s)) << c.errores.toStdString();
}

TEST(DbUpgrade3Program, AMissingProfileIsStatusOne) {
    const Corrida c = DbUpgrade3({"--perfil", "/no/hay.ini"});
    EXPECT_EQ(c.estado, 1);
    EXPECT_TRUE(c.errores.contains(u"/no/hay.ini"_s)) << c.errores.toStdString();
}

TEST(DbUpgrade3Program, MakesFilesWithTheDemonstrationAndFindsThemDoneTheSecondTime) {
    QTemporaryDir dir;
    Corrida c = DbUpgrade3({"--crear-archivos", dir.filePath("db"), "--demostracion"});
    ASSERT_EQ(c.estado, 0) << c.errores.toStdString();
    const QString perfil = dir.filePath("db/zendra.perfil.ini");
    EXPECT_TRUE(c.salida.contains(perfil)) << c.salida.toStdString();
    EXPECT_TRUE(c.salida.contains(u"caratula: 8 filas"_s)) << c.salida.toStdString();
    c = DbUpgrade3({"--perfil", perfil});
    EXPECT_EQ(c.estado, 0) << c.errores.toStdString();
    EXPECT_TRUE(c.salida.contains(u"ya estaban en la versión 330"_s)) << c.salida.toStdString();
}

TEST(DbUpgrade3Program, LoadsFilesAndTellsTheLinesItDidNotUnderstand) {
    QTemporaryDir dir;
    QFile f(dir.filePath("v.csv"));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("id,descripcion\n1,a\n2\n3,c\n");
    f.close();
    Corrida c = DbUpgrade3({"--crear-archivos", dir.filePath("db"), "--cargar", "via=" + f.fileName()});
    EXPECT_EQ(c.estado, 0) << c.errores.toStdString();
    EXPECT_TRUE(c.salida.contains(u"línea 3"_s)) << c.salida.toStdString();
    EXPECT_TRUE(c.salida.contains(u"2 filas cargadas, 1 avisos"_s)) << c.salida.toStdString();
    c = DbUpgrade3({"--perfil", dir.filePath("db/zendra.perfil.ini"), "--cargar", "nohay=" + f.fileName()});
    EXPECT_EQ(c.estado, 1);
    EXPECT_TRUE(c.errores.contains(u"nohay"_s)) << c.errores.toStdString();
}

TEST(DbUpgrade3Program, ALoadThatIsKilledLeavesNothingAndCanBeRepeated) {
    QTemporaryDir dir;
    QFile f(dir.filePath("v.csv"));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("codigo,nombre,domicilio\n");
    constexpr int filasDelArchivo = 600000;
    for (int i = 0; i < filasDelArchivo; ++i) f.write(QByteArray::number(i) + ",NOMBRE,DOMICILIO\n");
    f.close();
    ASSERT_EQ(DbUpgrade3({"--crear-archivos", dir.filePath("db")}).estado, 0);
    const QString perfil = dir.filePath("db/zendra.perfil.ini");
    const QStringList carga{"--perfil", perfil, "--cargar", "vendedor=" + f.fileName()};

    QProcess p;
    p.start(programa(), carga);
    // Its first word of progress comes from the middle of the load.
    QByteArray dicho;
    while (!dicho.contains("Cargando vendedor") && p.waitForReadyRead(60000))
        dicho += p.readAllStandardOutput();
    ASSERT_TRUE(dicho.contains("Cargando vendedor")) << dicho.toStdString();
    p.kill();
    ASSERT_TRUE(p.waitForFinished(10000));

    StoreProfiles::SPMain manager;
    ASSERT_TRUE(manager.usarPerfil(perfil));
    Conexion &personal = manager.getDataConnectionByEntity(u"PERSONAL"_s);
    const auto cuantos = [&personal] {
        Recordset rs;
        personal.Sql = u"select count(*) as n from vendedor"_s;
        personal.crearrs(rs);
        const double n = rs.Numero(u"n");
        personal.cerrar();
        return n;
    };
    EXPECT_EQ(cuantos(), 0);
    const Corrida c = DbUpgrade3(carga);
    EXPECT_EQ(c.estado, 0) << c.errores.toStdString();
    EXPECT_EQ(cuantos(), filasDelArchivo);
}

TEST(DbUpgrade3Program, TwoUpgradesAtTheSameTimeDoNotCollide) {
    QTemporaryDir dir;
    const QString perfil = dir.filePath("dos.perfil.ini");
    ASSERT_TRUE(StoreProfiles::escribirPerfilDeArchivos(perfil, u"Dos"_s, dir.filePath("db")));
    QProcess uno;
    QProcess otro;
    for (QProcess *p : {&uno, &otro}) p->start(programa(), {"--perfil", perfil});
    for (QProcess *p : {&uno, &otro}) {
        ASSERT_TRUE(p->waitForFinished(60000));
        EXPECT_EQ(p->exitCode(), 0) << p->readAllStandardError().toStdString();
    }
    EXPECT_TRUE(DbUpgrade3({"--perfil", perfil}).salida.contains(u"ya estaban"_s));
}

TEST(DbUpgrade3Program, BacksUpChecksAndBringsBackWithItsExitStatus) {
    QTemporaryDir dir;
    const QString copia = dir.filePath("copia.zrespaldo");
    Corrida c = DbUpgrade3({"--crear-archivos", dir.filePath("uno"), "--demostracion"});
    ASSERT_EQ(c.estado, 0) << c.errores.toStdString();
    const QString uno = dir.filePath("uno/zendra.perfil.ini");
    c = DbUpgrade3({"--perfil", uno, "--verificar"});
    EXPECT_EQ(c.estado, 0) << c.salida.toStdString() << c.errores.toStdString();
    EXPECT_TRUE(c.salida.endsWith(u"Todo está bien.\n"_s)) << c.salida.toStdString();
    c = DbUpgrade3({"--perfil", uno, "--respaldo", copia});
    EXPECT_EQ(c.estado, 0) << c.errores.toStdString();
    EXPECT_TRUE(c.salida.contains("se escribió el respaldo " + copia)) << c.salida.toStdString();
    c = DbUpgrade3({"--crear-archivos", dir.filePath("dos"), "--restaurar", copia});
    EXPECT_EQ(c.estado, 0) << c.errores.toStdString();
    EXPECT_TRUE(c.salida.contains("se restauró INTERNOS")) << c.salida.toStdString();
    const QString dos = dir.filePath("dos/zendra.perfil.ini");
    c = DbUpgrade3({"--perfil", dos, "--restaurar", copia});
    EXPECT_EQ(c.estado, 1);
    EXPECT_TRUE(c.errores.contains(u"ya tiene datos"_s)) << c.errores.toStdString();
    // What hangs from nothing is a failure for whoever runs it at night.
    QFile::remove(dir.filePath("dos/catalogos.db"));
    c = DbUpgrade3({"--perfil", dos, "--verificar"});
    EXPECT_EQ(c.estado, 1);
    EXPECT_TRUE(c.errores.contains("catalogos.db")) << c.errores.toStdString();
}

TEST(DbUpgrade3Program, MakesABaseOnTheServer) {
    // The server of the other tests; a base of our own.
    QString host;
    QString puerto;
    QString usuario;
    for (const QString &palabra : qEnvironmentVariable("ZENDRA_PG").split(' ', Qt::SkipEmptyParts)) {
        if (palabra.startsWith("host=")) host = palabra.mid(5);
        if (palabra.startsWith("port=")) puerto = palabra.mid(5);
        if (palabra.startsWith("user=")) usuario = palabra.mid(5);
    }
    ASSERT_FALSE(host.isEmpty())
        << "ZENDRA_PG does not name the test server; start it with scripts/test-server";
    QTemporaryDir dir;
    const QString base = u"zendra_programa_%1"_s.arg(QCoreApplication::applicationPid());
    const QString perfil = dir.filePath("s.perfil.ini");
    Corrida c = DbUpgrade3(
        {"--perfil", perfil, "--crear-servidor", host + ',' + puerto + ',' + base + ',' + usuario});
    EXPECT_EQ(c.estado, 0) << c.errores.toStdString();
    EXPECT_TRUE(c.salida.contains(u"se crearon las funciones del servidor"_s)) << c.salida.toStdString();
    EXPECT_TRUE(QFile::exists(dir.filePath("usuario.db")));
    c = DbUpgrade3({"--perfil", perfil});
    EXPECT_TRUE(c.salida.contains(u"ya estaban"_s)) << c.salida.toStdString();
    QProcess p;
    p.start("psql", {"-h", host, "-p", puerto, "-U", usuario, "-d", "postgres", "-c", "drop database " + base,
                     "-c", "drop role " + base + "_dueno, " + base + "_trabajo"});
    p.waitForFinished();
    EXPECT_EQ(p.exitCode(), 0) << p.readAllStandardError().toStdString();
}

TEST(DbUpgrade3Program, APathWithPercentSignsStandsInEveryMessageAsItIs) {
    const QTemporaryDir dir;
    const QString carpeta = dir.filePath(u"dto %2 del 10%1, %3"_s);
    const QString perfil = carpeta + "/%2.perfil.ini"_L1;
    const QString bancos = carpeta + "/bancos %2 %3.csv"_L1;
    const QString copia = carpeta + "/copia %2.zrespaldo"_L1;
    const auto correr = [&perfil](const QStringList &demas) {
        return DbUpgrade3(QStringList{u"--perfil"_s, perfil} + demas);
    };
    const auto dice = [](const Corrida &c, const QString &frase) {
        EXPECT_TRUE((c.salida + c.errores).contains(frase + u'\n')) << frase.toStdString() << "\n in \n"
                                                                    << (c.salida + c.errores).toStdString();
    };
    ASSERT_TRUE(QDir().mkpath(carpeta));
    const Corrida creado = correr({u"--crear-archivos"_s, carpeta});
    EXPECT_EQ(creado.estado, 0) << creado.errores.toStdString();
    dice(creado, "Perfil: "_L1 + perfil);
    dice(creado, u"se creó el archivo "_s + carpeta + "/internos.db"_L1);

    QFile archivo(bancos);
    ASSERT_TRUE(archivo.open(QIODevice::WriteOnly));
    archivo.write("id,descripcion,raro\n1,UNO,x\n");
    archivo.close();
    const Corrida cargado = correr({u"--cargar"_s, u"bancos="_s + bancos});
    EXPECT_EQ(cargado.estado, 0) << cargado.errores.toStdString();
    dice(cargado, bancos + ": 1 filas cargadas, 1 avisos."_L1);
    dice(correr({u"--respaldo"_s, copia}), u"se escribió el respaldo "_s + copia + u" (7 stores)"_s);

    const QString internos = carpeta + "/internos.db"_L1;
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"porcientos"_s);
        db.setDatabaseName(internos);
        ASSERT_TRUE(db.open());
        QSqlQuery(db).exec(u"update version set valor = '999' where propiedad = 'version'"_s);
    }
    QSqlDatabase::removeDatabase(u"porcientos"_s);
    const Corrida vieja = correr({});
    EXPECT_EQ(vieja.estado, 1);
    dice(vieja,
         u"El store %1 es de la versión 999, más nueva que la %2 de este programa; instale el programa que "
         "corresponde a ese store."_s.arg(internos, QString::number(actualizacion::versionDelStore)));
}

}  // namespace
