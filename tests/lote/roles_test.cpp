// The two roles of a server, each through the programs that work as it.

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QThread>

#include "frame/base/ini.h"
#include "frame/store/StoreProfiles.h"
#include "tests/support/lote.h"
#include "tests/support/oficina.h"
#include "tests/support/servidortls.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

const QString unaOperacion = u"IC-2026-0001"_s;

/// One office with its demonstration for the tests that leave it as it was.
class DosRoles : public ::testing::Test {
 protected:
    static void SetUpTestSuite() {
        oficina = std::make_unique<Oficina>();
        puesta = oficina->poner({"--demostracion"});
    }
    static void TearDownTestSuite() { oficina.reset(); }
    void SetUp() override { ASSERT_EQ(puesta.estado, 0) << puesta.errores.toStdString(); }

    static Corrida lote(const QStringList &orden) {
        return Lote(
            oficina->carpeta(),
            QStringList{"--perfil", oficina->perfil(), "--ajustes", oficina->carpeta() + "/a.ini"} + orden);
    }

    static std::unique_ptr<Oficina> oficina;
    static CorridaDeDb puesta;
};
std::unique_ptr<Oficina> DosRoles::oficina;
CorridaDeDb DosRoles::puesta;

TEST_F(DosRoles, TheSetUpWritesAProfileForEachThatOnlyItsOwnerReads) {
    const QString trabajo = oficina->perfil();
    const QString dueno = oficina->perfilDelDueno();
    EXPECT_TRUE(EsDeSuDuenoSolo(trabajo));
    EXPECT_TRUE(EsDeSuDuenoSolo(dueno));
    EXPECT_EQ(Oficina::dice(trabajo, "usuario"), oficina->trabajo());
    EXPECT_EQ(Oficina::dice(dueno, "usuario"), oficina->dueno());
    EXPECT_EQ(LeerIni("PERFIL", "dueno", trabajo), oficina->dueno());
    EXPECT_EQ(LeerIni("PERFIL", "trabajo", dueno), oficina->trabajo());
    EXPECT_EQ(Oficina::dice(trabajo, "sslmode").toStdString(), "verify-full");
    const QString claveDeTrabajo = Oficina::dice(trabajo, "clave");
    const QString claveDelDueno = Oficina::dice(dueno, "clave");
    EXPECT_EQ(claveDeTrabajo.size(), 32);
    EXPECT_EQ(claveDelDueno.size(), 32);
    EXPECT_NE(claveDeTrabajo, claveDelDueno);
    for (const QString &clave : {claveDeTrabajo, claveDelDueno, ServidorTls::clave()})
        EXPECT_FALSE(puesta.todo().contains(clave));
    // No program offers the owner's for work.
    StoreProfiles::SPMain manager;
    manager.carpetas = {oficina->carpeta()};
    EXPECT_EQ(manager.seleccionarPerfil("ZENDRA3"), trabajo);
    EXPECT_TRUE(puesta.salida.contains("Perfil: " + trabajo + " (usuario " + oficina->trabajo() + ")"))
        << puesta.salida.toStdString();
}

TEST_F(DosRoles, TheRatesOfTheDemonstrationStandWhereTheWorkReadsThem) {
    const QString suya = QString(oficina->perfil()).replace("ini", "cfg");
    EXPECT_EQ(LeerIni("GENERAL", "IVARIN", suya).toStdString(), "21");
    EXPECT_EQ(LeerIni("GENERAL", "IVARNI", suya).toStdString(), "10.5");
}

TEST(PerfilSinNombre, ASetUpWithoutAPathWritesWhereTheProgramsLook) {
    const Oficina otra;
    const QString casa = otra.carpeta() + "/casa";
    const CorridaDeDb puesta = CorrerDbUpgrade3(
        casa,
        {"--crear-servidor",
         QStringList{"127.0.0.1", ServidorConTls().puerto(), otra.base(), ServidorTls::administrador()}.join(
             ','),
         "--conexion", "sslmode=require"},
        {{"PGPASSWORD", ServidorTls::clave()}, {"XDG_CONFIG_HOME", casa + "/.config"}});
    EXPECT_EQ(puesta.estado, 0) << puesta.todo().toStdString();
    EXPECT_TRUE(EsDeSuDuenoSolo(casa + "/.config/zendra/servidor.perfil.ini"));
    // No profile told: the only one that there is.
    const CorridaDeDb mirada =
        CorrerDbUpgrade3(casa, {"--verificar"}, {{"XDG_CONFIG_HOME", casa + "/.config"}});
    EXPECT_EQ(mirada.estado, 0) << mirada.todo().toStdString();
    EXPECT_TRUE(mirada.salida.startsWith("Perfil: " + casa + "/.config/zendra/servidor.perfil.ini\n"))
        << mirada.salida.toStdString();
}

TEST_F(DosRoles, TheSetUpAgainChangesNothing) {
    const QByteArray trabajo = Leido(oficina->perfil());
    const QByteArray dueno = Leido(oficina->perfilDelDueno());
    const CorridaDeDb c = oficina->poner();
    EXPECT_EQ(c.estado, 0) << c.errores.toStdString();
    // Without what a slow machine tells of its progress.
    QStringList dicho = c.salida.split('\n');
    dicho.removeIf([](const QString &linea) { return linea.startsWith("  "); });
    EXPECT_EQ(
        dicho.join('\n').toStdString(),
        QString(
            "Perfil: %1 (usuario %2)\nPerfil: %3 (usuario %4)\nLos stores ya estaban en la versión 330.\n")
            .arg(oficina->perfilDelDueno(), oficina->dueno(), oficina->perfil(), oficina->trabajo())
            .toStdString());
    EXPECT_EQ(Leido(oficina->perfil()), trabajo);
    EXPECT_EQ(Leido(oficina->perfilDelDueno()), dueno);
}

TEST_F(DosRoles, DailyWorkGoesOnAsBefore) {
    Corrida c = lote({"armar", unaOperacion, "--forzar"});
    EXPECT_EQ(c.estado, 0) << c.textos().join('\n').toStdString() << c.errores.toStdString();
    EXPECT_GT(c.resultado()["items"].toInt(), 0);
    // Its scratch table is one of its own.
    const QString hoja = oficina->carpeta() + "/hoja.txt";
    c = lote({"imprimir", unaOperacion, "--desde", "0", "--hasta", "1", "--salida", hoja});
    EXPECT_EQ(c.estado, 0) << c.textos().join('\n').toStdString() << c.errores.toStdString();
    EXPECT_GT(Leido(hoja).size(), 100);
    c = lote({"crear", "ROL-1"});
    EXPECT_EQ(c.estado, 0) << c.textos().join('\n').toStdString();
    Escribir(oficina->carpeta(), "si.json", R"(["Si"])");
    c = lote({"--respuestas", oficina->carpeta() + "/si.json", "borrar", "ROL-1"});
    EXPECT_EQ(c.estado, 0) << c.textos().join('\n').toStdString();
    EXPECT_EQ(oficina->correr("select count(*) from internos.caratula where interno = 'ROL-1'").toStdString(),
              "0");
}

TEST_F(DosRoles, RowsAreReadAndChangedAndNothingElse) {
    const ComoElPerfil yo(oficina->perfil());
    EXPECT_EQ(yo.celda("select current_user::text"), oficina->trabajo());
    for (const char *sql :
         {"insert into internos.caratula (interno) values ('R-9')",
          "update internos.caratula set factura7 = 'x' where interno = 'R-9'",
          "delete from internos.caratula where interno = 'R-9'",
          "insert into internos.subitems (interno) values ('R-9')",
          "delete from internos.subitems where interno = 'R-9'", "select internos.isnumeric('1'::text)",
          "create temporary table tabla (like personal.tabla including all)", "drop table pg_temp.tabla",
          "set synchronous_commit to off", "select pg_logical_emit_message(true, 'zendra', '')",
          "select valor from internos.version", "select public.citext('a') = 'A'"})
        EXPECT_EQ(yo.correr(sql), "") << sql;
    const std::string negado = "42501";
    for (const char *sql :
         {"create table internos.x (a integer)",
          "create table public.x (a integer)",
          "alter table internos.caratula add column x integer",
          "alter table internos.caratula rename to y",
          "drop table internos.caratula",
          "truncate internos.caratula",
          "create schema x",
          "drop schema internos cascade",
          "create index x on internos.caratula (interno)",
          "drop index internos.ix_caratula_interno",
          "create view internos.x as select 1",
          "create function internos.x() returns integer language sql as 'select 1'",
          "create or replace function internos.len(texto text) returns integer language sql as 'select 1'",
          "drop function internos.len(text)",
          "create trigger x before insert on internos.caratula "
          "for each row execute function suppress_redundant_updates_trigger()",
          "update internos.version set valor = '1'",
          "insert into internos.version (propiedad) values ('x')",
          "delete from internos.version",

          "create role x",
          "create database x",
          "create extension hstore",
          "alter database postgres set work_mem = 1",
          "copy internos.caratula to '/tmp/x'",
          "select setval('internos.subitems_id_seq', 1)"})
        EXPECT_EQ(yo.correr(sql), negado) << sql;
}

TEST_F(DosRoles, WhatALaterUpgradeMakesNeedsNoFurtherGrant) {
    {
        const ComoElPerfil dueno(oficina->perfilDelDueno());
        EXPECT_EQ(
            dueno.correr("create table internos.nueva (id bigint generated by default as identity, x text)"),
            "");
        EXPECT_EQ(
            dueno.correr("create function internos.nueva_f() returns integer language sql as 'select 7'"),
            "");
    }
    const ComoElPerfil yo(oficina->perfil());
    EXPECT_EQ(yo.correr("insert into internos.nueva (x) values ('a')"), "");
    EXPECT_EQ(yo.celda("select internos.nueva_f()"), "7");
    EXPECT_EQ(yo.correr("truncate internos.nueva"), "42501");
    oficina->correr("create role z_curioso_" + oficina->base());
    EXPECT_EQ(oficina->correr("select has_function_privilege('z_curioso_" + oficina->base() +
                              "', 'internos.nueva_f()', 'execute')"),
              "false")
        << "a new function is nobody else's";
    oficina->correr("drop role z_curioso_" + oficina->base());
    oficina->correr("drop table internos.nueva");
    oficina->correr("drop function internos.nueva_f()");
}

TEST_F(DosRoles, NothingOfAnotherBaseIsReached) {
    const Oficina otra;
    const CorridaDeDb c = otra.poner();
    ASSERT_EQ(c.estado, 0) << c.errores.toStdString();
    const QString intruso = oficina->carpeta() + "/intruso.ini";
    QByteArray texto = Leido(oficina->perfil());
    texto.replace("base=" + oficina->base().toUtf8() + "\r", "base=" + otra.base().toUtf8() + "\r");
    QFile f(intruso);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    ASSERT_TRUE(f.setPermissions(QFile::ReadOwner | QFile::WriteOwner));
    f.write(texto);
    f.close();
    const CorridaDeDb v = oficina->dbUpgrade3({"--perfil", intruso, "--verificar"});
    EXPECT_EQ(v.estado, 1);
    EXPECT_TRUE(v.errores.contains("permission denied for database")) << v.errores.toStdString();
    EXPECT_FALSE(v.todo().contains(Oficina::dice(oficina->perfil(), "clave")));
}

TEST_F(DosRoles, ChecksAndBackupsAreWorkForBothAndRestoringIsTheOwners) {
    for (const QString &perfil : {oficina->perfil(), oficina->perfilDelDueno()}) {
        const CorridaDeDb v = oficina->dbUpgrade3({"--perfil", perfil, "--verificar"});
        EXPECT_EQ(v.estado, 0) << v.todo().toStdString();
        const CorridaDeDb r = oficina->dbUpgrade3({"--perfil", perfil, "--respaldo", perfil + ".zrespaldo"});
        EXPECT_EQ(r.estado, 0) << r.todo().toStdString();
    }
    const QString copia = oficina->perfil() + ".zrespaldo";
    const QString filas = "select count(*) from internos.caratula";
    Oficina otra;
    ASSERT_EQ(otra.poner().estado, 0);
    CorridaDeDb c = otra.dbUpgrade3({"--perfil", otra.perfil(), "--restaurar", copia});
    EXPECT_EQ(c.estado, 1);
    EXPECT_EQ(c.errores.count('\n'), 1) << c.errores.toStdString();
    EXPECT_TRUE(
        c.errores.startsWith("El usuario " + otra.trabajo() + " no tiene permiso para esto en el store ") &&
        c.errores.endsWith("; ejecute DbUpgrade3 --perfil " + otra.perfilDelDueno() + ".\n"))
        << c.errores.toStdString();
    EXPECT_EQ(otra.correr(filas).toStdString(), "0");
    c = otra.dbUpgrade3({"--perfil", otra.perfilDelDueno(), "--restaurar", copia});
    EXPECT_EQ(c.estado, 0) << c.todo().toStdString();
    EXPECT_EQ(otra.correr(filas), oficina->correr(filas));
    // The schemas are new ones; who works on them still may.
    const Corrida armado =
        Lote(otra.carpeta(), {"--perfil", otra.perfil(), "armar", unaOperacion, "--forzar"});
    EXPECT_EQ(armado.estado, 0) << armado.textos().join('\n').toStdString();
    EXPECT_EQ(ComoElPerfil(otra.perfil()).correr("truncate internos.caratula"), "42501");
}

TEST_F(DosRoles, WhereOnlyTheOwnersProfileCanHelpItIsNamedInOneSentence) {
    Oficina vieja;
    ASSERT_EQ(vieja.poner().estado, 0);
    vieja.correr("update internos.version set valor = '329' where propiedad = 'version'");
    vieja.correr("alter table internos.caratula drop column factura7");
    CorridaDeDb c = vieja.dbUpgrade3({"--perfil", vieja.perfil()});
    EXPECT_EQ(c.estado, 1);
    EXPECT_EQ(c.errores.toStdString(),
              QString("Los stores del perfil %1 necesitan actualizarse y su rol de trabajo no puede; ejecute "
                      "DbUpgrade3 --perfil %2.\n")
                  .arg(vieja.perfil(), vieja.perfilDelDueno())
                  .toStdString());
    Corrida l = Lote(vieja.carpeta(), {"--perfil", vieja.perfil(), "listar"});
    EXPECT_EQ(l.estado, 1);
    ASSERT_EQ(l.textos().size(), 1);
    EXPECT_TRUE(
        l.textos()[0].endsWith("actualícelos con DbUpgrade3 --perfil " + vieja.perfilDelDueno() + "."))
        << l.textos()[0].toStdString();
    // On another workstation that profile is not at hand.
    QDir().mkdir(vieja.carpeta() + "/pc2");
    const QString enOtraPc = vieja.carpeta() + "/pc2/oficina.perfil.ini";
    ASSERT_TRUE(QFile::copy(vieja.perfil(), enOtraPc));
    c = vieja.dbUpgrade3({"--perfil", enOtraPc});
    EXPECT_EQ(c.estado, 1);
    EXPECT_TRUE(c.errores.endsWith("ejecute DbUpgrade3 con el perfil de su dueño, el rol " + vieja.dueno() +
                                   " (oficina.dueno.ini, donde se creó la base).\n"))
        << c.errores.toStdString();

    c = vieja.dbUpgrade3({"--perfil", vieja.perfilDelDueno()});
    EXPECT_EQ(c.estado, 0) << c.errores.toStdString();
    c = vieja.dbUpgrade3({"--perfil", vieja.perfil()});
    EXPECT_EQ(c.estado, 0) << c.errores.toStdString();
    EXPECT_TRUE(c.salida.contains("ya estaban")) << c.salida.toStdString();
    l = Lote(vieja.carpeta(), {"--perfil", vieja.perfil(), "listar"});
    EXPECT_EQ(l.estado, 0) << l.textos().join('\n').toStdString();
}

/// The arguments of every process, as anybody may list them.
QByteArray argumentosDeTodos() {
    QByteArray todos;
    const QStringList procesos = QDir("/proc").entryList(QDir::Dirs);
    for (const QString &p : procesos) {
        QFile f("/proc/" + p + "/cmdline");
        if (p.at(0).isDigit() && f.open(QIODevice::ReadOnly)) todos += f.readAll().replace('\0', ' ') + '\n';
    }
    return todos;
}

TEST_F(DosRoles, NoListOfProcessesShowsAPasswordWhileTheServersOwnProgramsRun) {
    const QString clave = Oficina::dice(oficina->perfil(), "clave");
    // The dump waits for a table that somebody holds.
    const ComoElPerfil dueno(oficina->perfilDelDueno());
    ASSERT_EQ(dueno.correr("begin"), "");
    ASSERT_EQ(dueno.correr("lock table internos.caratula in access exclusive mode"), "");
    QProcess p;
    p.start(qEnvironmentVariable("ZENDRA_BIN", CarpetaDeConstruccion()) + "/DbUpgrade3",
            {"--perfil", oficina->perfil(), "--respaldo", oficina->carpeta() + "/lista.zrespaldo"});
    QByteArray vistos;
    for (int n = 0; n < 600 && !vistos.contains("pg_dump"); ++n) {
        QThread::msleep(50);
        vistos = argumentosDeTodos();
    }
    EXPECT_TRUE(vistos.contains("pg_dump")) << "it was caught at work";
    EXPECT_TRUE(vistos.contains("sslmode='verify-full'")) << "and speaks with the server as the profile says";
    EXPECT_FALSE(vistos.contains(clave.toUtf8()));
    EXPECT_EQ(dueno.correr("rollback"), "");
    ASSERT_TRUE(p.waitForFinished(120000));
    EXPECT_EQ(p.exitCode(), 0) << p.readAllStandardError().toStdString();
    EXPECT_FALSE(p.readAllStandardOutput().contains(clave.toUtf8()));
}

TEST_F(DosRoles, NoTraceHoldsAPassword) {
    const QString traza = oficina->carpeta() + "/traza.txt";
    const Corrida c = lote({"--traza", traza, "listar"});
    EXPECT_EQ(c.estado, 0) << c.textos().join('\n').toStdString();
    const QByteArray escrita = Leido(traza);
    EXPECT_GT(escrita.size(), 0);
    EXPECT_FALSE(escrita.contains(Oficina::dice(oficina->perfil(), "clave").toUtf8()));
}

TEST_F(DosRoles, AProfileThatOthersMayReadIsToldAndTheWorkGoesOn) {
    const QString abierto = oficina->carpeta() + "/abierto.perfil.ini";
    QFile::remove(abierto);
    ASSERT_TRUE(QFile::copy(oficina->perfil(), abierto));
    ASSERT_TRUE(QFile::setPermissions(abierto, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther));
    const QString aviso = "Otras personas de esta PC pueden leer el perfil " + abierto +
                          ", que guarda una contraseña; deje que sólo su dueño lo lea (chmod 600).";
    const CorridaDeDb d = oficina->dbUpgrade3({"--perfil", abierto, "--verificar"});
    EXPECT_EQ(d.estado, 0) << d.todo().toStdString();
    EXPECT_EQ(d.errores.toStdString(), (aviso + '\n').toStdString());
    const Corrida l =
        Lote(oficina->carpeta(), {"--perfil", abierto, "--ajustes", oficina->carpeta() + "/a.ini", "listar"});
    EXPECT_EQ(l.estado, 0);
    EXPECT_TRUE(l.textos().contains(aviso)) << l.textos().join('\n').toStdString();
    // And nothing is told of one that is its owner's alone.
    EXPECT_FALSE(lote({"listar"}).textos().join('\n').contains("Otras personas"));
    QFile::remove(abierto);
}

}  // namespace
