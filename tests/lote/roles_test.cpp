// The two roles of a server, each through the programs that work as it.

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QThread>

#include "frame/base/ini.h"
#include "frame/store/StoreProfiles.h"
#include "frame/store/connectwords.h"
#include "tests/support/lote.h"
#include "tests/support/oficina.h"
#include "tests/support/servidortls.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

const QString unaOperacion = u"IC-2026-0001"_s;

QByteArray leido(const QString &ruta) {
    QFile f(ruta);
    EXPECT_TRUE(f.open(QIODevice::ReadOnly)) << ruta.toStdString();
    return f.readAll();
}

bool esDeSuDuenoSolo(const QString &ruta) {
    constexpr auto deOtros = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther |
                             QFile::WriteOther | QFile::ExeOther;
    return QFile::exists(ruta) && !(QFile::permissions(ruta) & deOtros);
}

/// A connection to the base as a profile says, past the program.
class ComoElPerfil {
 public:
    explicit ComoElPerfil(const QString &ruta) {
        StoreProfiles::SPMain manager;
        EXPECT_TRUE(manager.usarPerfil(ruta));
        db_ = QSqlDatabase::addDatabase("QPSQL", "como-el-perfil");
        motores::prepararConexion(*manager.datos("INTERNOS"), db_);
        EXPECT_TRUE(db_.open()) << db_.lastError().text().toStdString();
    }
    ~ComoElPerfil() {
        db_ = QSqlDatabase();
        QSqlDatabase::removeDatabase("como-el-perfil");
    }
    /// The engine's code of the failure; empty for none.
    std::string correr(const QString &sql) const {
        QSqlQuery consulta(db_);
        return consulta.exec(sql) ? std::string() : consulta.lastError().nativeErrorCode().toStdString();
    }
    QString celda(const QString &sql) const {
        QSqlQuery consulta(db_);
        return consulta.exec(sql) && consulta.next() ? consulta.value(0).toString() : "<nada>";
    }

 private:
    QSqlDatabase db_;
};

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
    EXPECT_TRUE(esDeSuDuenoSolo(trabajo));
    EXPECT_TRUE(esDeSuDuenoSolo(dueno));
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

TEST_F(DosRoles, TheSetUpAgainChangesNothing) {
    const QByteArray trabajo = leido(oficina->perfil());
    const QByteArray dueno = leido(oficina->perfilDelDueno());
    const CorridaDeDb c = oficina->poner();
    EXPECT_EQ(c.estado, 0) << c.errores.toStdString();
    EXPECT_EQ(
        c.salida.toStdString(),
        QString(
            "Perfil: %1 (usuario %2)\nPerfil: %3 (usuario %4)\nLos stores ya estaban en la versión 330.\n")
            .arg(oficina->perfilDelDueno(), oficina->dueno(), oficina->perfil(), oficina->trabajo())
            .toStdString());
    EXPECT_EQ(leido(oficina->perfil()), trabajo);
    EXPECT_EQ(leido(oficina->perfilDelDueno()), dueno);
}

TEST_F(DosRoles, DailyWorkGoesOnAsBefore) {
    Corrida c = lote({"armar", unaOperacion, "--forzar"});
    EXPECT_EQ(c.estado, 0) << c.textos().join('\n').toStdString() << c.errores.toStdString();
    EXPECT_GT(c.resultado()["items"].toInt(), 0);
    // Its scratch table is one of its own.
    const QString hoja = oficina->carpeta() + "/hoja.txt";
    c = lote({"imprimir", unaOperacion, "--desde", "0", "--hasta", "1", "--salida", hoja});
    EXPECT_EQ(c.estado, 0) << c.textos().join('\n').toStdString() << c.errores.toStdString();
    EXPECT_GT(leido(hoja).size(), 100);
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
    QByteArray texto = leido(oficina->perfil());
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
    const QByteArray escrita = leido(traza);
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

// Passwords and names

TEST(Puesta, TakesThePasswordsOfTheEnvironmentAndTheNamesThatItIsTold) {
    const Oficina o;
    const QString rara = "  d'ue\\ño \"; --  ";
    const CorridaDeDb c = o.poner({"--roles", o.dueno() + "," + o.trabajo()},
                                  {{"ZENDRA_CLAVE_DUENO", rara}, {"ZENDRA_CLAVE_TRABAJO", "trabajo=1"}});
    EXPECT_EQ(c.estado, 0) << c.errores.toStdString();
    EXPECT_EQ(Oficina::dice(o.perfilDelDueno(), "clave"), rara);
    EXPECT_EQ(Oficina::dice(o.perfil(), "clave").toStdString(), "trabajo=1");
    EXPECT_FALSE(c.todo().contains(rara.trimmed()));
    // The server keeps no word of it.
    EXPECT_TRUE(o.correr("select rolpassword from pg_authid where rolname = '" + o.dueno() + "'")
                    .startsWith("SCRAM-SHA-256$"));
    const CorridaDeDb otra = o.poner({}, {{"ZENDRA_CLAVE_TRABAJO", "nueva"}});
    EXPECT_EQ(otra.estado, 0) << otra.errores.toStdString();
    EXPECT_EQ(Oficina::dice(o.perfil(), "clave").toStdString(), "nueva");
    EXPECT_EQ(Lote(o.carpeta(), {"--perfil", o.perfil(), "listar"}).estado, 0);
    const CorridaDeDb mala = o.poner({}, {{"ZENDRA_CLAVE_TRABAJO", "a\nb"}});
    EXPECT_EQ(mala.estado, 1);
    EXPECT_EQ(
        mala.errores.toStdString(),
        "Una contraseña de los roles lleva un carácter de control, que un perfil no guarda; dé otra.\n");
}

TEST(Puesta, NeedsNobodyWhoCanDoMoreThanMakeBasesAndRoles) {
    const Oficina o;
    const ServidorTls &s = ServidorConTls();
    const QString instalador = o.base() + "_instalador";
    s.correr("create role " + instalador + " login createdb createrole password 'x'");
    for (int vez = 0; vez < 2; ++vez) {
        const CorridaDeDb c = o.poner({}, {{"PGPASSWORD", "x"}}, instalador);
        EXPECT_EQ(c.estado, 0) << c.errores.toStdString();
    }
    EXPECT_EQ(Lote(o.carpeta(), {"--perfil", o.perfil(), "listar"}).estado, 0);
    EXPECT_EQ(s.correr("select pg_has_role('" + instalador + "', '" + o.dueno() + "', 'member')"), "false")
        << "it was the owner for a moment only";
    s.correr("drop role " + instalador);
}

TEST(Puesta, ThatFailsHalfwayLeavesNoRoleWhosePasswordNobodyKnows) {
    const Oficina o;
    const ServidorTls &s = ServidorConTls();
    const QString instalador = o.base() + "_instalador";
    s.correr("create role " + instalador + " login createdb createrole password 'x'");
    // Somebody else's, which he may not give away.
    s.correr("create database " + o.base());
    CorridaDeDb c = o.poner({}, {{"PGPASSWORD", "x"}}, instalador);
    EXPECT_EQ(c.estado, 1);
    EXPECT_TRUE(c.errores.contains("must be owner of database")) << c.errores.toStdString();
    EXPECT_EQ(s.correr("select count(*) from pg_roles where rolname in ('" + o.dueno() + "', '" +
                       o.trabajo() + "')"),
              "0");
    EXPECT_FALSE(QFile::exists(o.perfil()));
    c = o.poner();
    EXPECT_EQ(c.estado, 0) << c.errores.toStdString();
    s.correr("drop role " + instalador);
}

TEST(Puesta, WhatCannotBeMadeReadyIsOneSentence) {
    const Oficina o;
    CorridaDeDb c = o.poner({}, {{"PGPASSWORD", "equivocada"}});
    EXPECT_EQ(c.estado, 1);
    EXPECT_TRUE(c.errores.contains("password authentication failed")) << c.errores.toStdString();
    EXPECT_FALSE(c.todo().contains("equivocada"));
    EXPECT_FALSE(QFile::exists(o.perfil()));
    c = o.poner({"--roles", "uno,uno"});
    EXPECT_EQ(c.errores.toStdString(),
              "El dueño y el rol de trabajo no pueden ser el mismo (uno); dé dos con --roles.\n");
    c = o.poner({"--roles", o.dueno() + ",zendra"});
    EXPECT_EQ(
        c.errores.toStdString(),
        "El rol zendra puede más que trabajar en la base (crea bases o roles, o es miembro de otro); dé otro "
        "nombre con --roles.\n");
    c = o.poner({"--roles", QString(64, 'x') + ",y"});
    EXPECT_TRUE(c.errores.contains("son entre 1 y 63 letras")) << c.errores.toStdString();
    const ServidorTls &s = ServidorConTls();
    const QString simple = o.base() + "_simple";
    s.correr("create role " + simple + " login password 'x'");
    c = o.poner({}, {{"PGPASSWORD", "x"}}, simple);
    EXPECT_EQ(c.estado, 1);
    EXPECT_EQ(
        c.errores.toStdString(),
        QString(
            "El usuario %1 no pudo preparar la base %2 (ERROR: permission denied to create role (42501)); dé en "
            "--crear-servidor uno que pueda crear bases y roles, o agregue --sin-roles.\n")
            .arg(simple, o.base())
            .toStdString());
    s.correr("drop role " + simple);
    // What looks like a password among the arguments is not repeated.
    c = o.dbUpgrade3({"--crear-servidor", "h,1,b,u,secreta"});
    EXPECT_EQ(c.estado, 2);
    EXPECT_EQ(
        c.errores.toStdString(),
        "--crear-servidor no sirve: son cuatro datos, host,puerto,base,usuario, y ninguna contraseña; vea "
        "DbUpgrade3 --ayuda.\n");
    c = o.poner({"--conexion", "password=secreta"});
    EXPECT_EQ(c.estado, 2);
    EXPECT_FALSE(c.todo().contains("secreta")) << c.todo().toStdString();
}

// The road from one user to two roles

class UnUsuario : public ::testing::Test {
 protected:
    void SetUp() override {
        unico = o.base() + "_unico";
        ServidorConTls().correr("create role " + unico + " login password 'unica'");
        ServidorConTls().correr("create database " + o.base() + " owner " + unico);
        const CorridaDeDb c = o.poner({"--sin-roles", "--demostracion"}, {{"PGPASSWORD", "unica"}}, unico);
        ASSERT_EQ(c.estado, 0) << c.errores.toStdString();
        ASSERT_EQ(Oficina::dice(o.perfil(), "usuario"), unico);
        // As an administrator would write it, with a word of his own.
        QFile f(o.perfil());
        ASSERT_TRUE(f.open(QIODevice::ReadOnly));
        QByteArray texto = f.readAll();
        f.close();
        texto.replace("usuario=", "clave=unica\r\n; de la oficina\r\nUsuario = ");
        ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
        f.write(texto);
        f.close();
        ASSERT_TRUE(QFile::copy(o.perfil(), deAntes()));
    }
    void TearDown() override {
        o.correr("reassign owned by " + unico + " to zendra");
        o.correr("drop owned by " + unico);
        ServidorConTls().correr("drop role " + unico);
    }
    QString deAntes() const { return o.carpeta() + "/antes.ini"; }
    /// Whom what lies in the schemas belongs to.
    QString duenos() const {
        return o.correr(
            "select string_agg(distinct pg_get_userbyid(q), ' ') from ("
            "select relowner q from pg_class c where c.relnamespace::regnamespace::text in ('internos', 'ncm') "
            "union select proowner from pg_proc where pronamespace = 'internos'::regnamespace "
            "union select oprowner from pg_operator where oprnamespace = 'internos'::regnamespace "
            "union select nspowner from pg_namespace where nspname in ('internos', 'ncm') "
            "union select datdba from pg_database where datname = current_database()) t");
    }

    Oficina o;
    QString unico;
};

TEST_F(UnUsuario, GoesOnWorkingAsLongAsNobodyTakesTheRoad) {
    EXPECT_EQ(o.dbUpgrade3({"--perfil", o.perfil()}).estado, 0);
    EXPECT_EQ(Lote(o.carpeta(), {"--perfil", o.perfil(), "armar", unaOperacion, "--forzar"}).estado, 0);
    EXPECT_EQ(duenos(), unico);
}

TEST_F(UnUsuario, PassesToTwoRolesByTheSetUpAndTheProfileKeepsWhatElseItSays) {
    const QString filas = o.correr("select count(*) from internos.subitems");
    const CorridaDeDb c = o.poner();
    ASSERT_EQ(c.estado, 0) << c.errores.toStdString();
    EXPECT_EQ(duenos(), o.dueno());
    EXPECT_EQ(o.correr("select count(*) from internos.subitems"), filas);
    EXPECT_EQ(Oficina::dice(o.perfil(), "usuario"), o.trabajo());
    EXPECT_EQ(Oficina::dice(o.perfilDelDueno(), "usuario"), o.dueno());
    for (const QString &perfil : {o.perfil(), o.perfilDelDueno()}) {
        EXPECT_TRUE(esDeSuDuenoSolo(perfil));
        EXPECT_TRUE(leido(perfil).contains("; de la oficina\r\n"));
        EXPECT_FALSE(leido(perfil).contains("unica"));
    }
    const Corrida l = Lote(o.carpeta(), {"--perfil", o.perfil(), "armar", unaOperacion, "--forzar"});
    EXPECT_EQ(l.estado, 0) << l.textos().join('\n').toStdString();
    // The user of before owned all and is nobody now.
    EXPECT_EQ(Lote(o.carpeta(), {"--perfil", deAntes(), "listar"}).estado, 1);
    const CorridaDeDb otra = o.poner();
    EXPECT_EQ(otra.estado, 0) << otra.errores.toStdString();
    EXPECT_FALSE(otra.salida.contains("son del rol") || otra.salida.contains("se creó"))
        << otra.salida.toStdString();
}

TEST_F(UnUsuario, MayBeTheOwner) {
    const CorridaDeDb c = o.poner({"--roles", unico + "," + o.trabajo()});
    ASSERT_EQ(c.estado, 0) << c.errores.toStdString();
    EXPECT_EQ(duenos(), unico);
    EXPECT_EQ(Oficina::dice(o.perfilDelDueno(), "clave").toStdString(), "unica");
    EXPECT_EQ(Oficina::dice(o.perfil(), "usuario"), o.trabajo());
    EXPECT_EQ(Lote(o.carpeta(), {"--perfil", o.perfil(), "listar"}).estado, 0);
    EXPECT_EQ(ComoElPerfil(o.perfil()).correr("drop table internos.caratula"), "42501");
}

TEST_F(UnUsuario, MayBeTheRoleOfDailyWorkSoThatTheProfilesOfBeforeGoOn) {
    const CorridaDeDb c = o.poner({"--roles", o.dueno() + "," + unico});
    ASSERT_EQ(c.estado, 0) << c.errores.toStdString();
    EXPECT_EQ(duenos(), o.dueno());
    const Corrida l = Lote(o.carpeta(), {"--perfil", deAntes(), "armar", unaOperacion, "--forzar"});
    EXPECT_EQ(l.estado, 0) << l.textos().join('\n').toStdString();
    EXPECT_EQ(ComoElPerfil(deAntes()).correr("drop table internos.caratula"), "42501");
    EXPECT_EQ(Oficina::dice(o.perfil(), "clave").toStdString(), "unica");
    // It knows no owner's profile, and still one sentence says what is missing.
    o.correr("drop index internos.ix_caratula_interno");
    const CorridaDeDb v = o.dbUpgrade3({"--perfil", deAntes()});
    EXPECT_EQ(v.estado, 1);
    EXPECT_TRUE(v.errores.contains("El usuario " + unico + " no tiene permiso para esto en el store ") &&
                v.errores.contains("; ejecute DbUpgrade3 con el perfil del dueño de la base.\n"))
        << v.errores.toStdString();
}

}  // namespace
