// Setting a server up: passwords, names, what fails, and the road from one user to two roles.

#include <gtest/gtest.h>

#include <QFile>

#include "tests/support/lote.h"
#include "tests/support/oficina.h"
#include "tests/support/servidortls.h"

using namespace Qt::StringLiterals;

namespace {

const QString laOperacion = u"IC-2026-0001"_s;

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
    EXPECT_EQ(Lote(o.carpeta(), {"--perfil", o.perfil(), "armar", laOperacion, "--forzar"}).estado, 0);
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
        EXPECT_TRUE(EsDeSuDuenoSolo(perfil));
        EXPECT_TRUE(Leido(perfil).contains("; de la oficina\r\n"));
        EXPECT_FALSE(Leido(perfil).contains("unica"));
    }
    const Corrida l = Lote(o.carpeta(), {"--perfil", o.perfil(), "armar", laOperacion, "--forzar"});
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
    const Corrida l = Lote(o.carpeta(), {"--perfil", deAntes(), "armar", laOperacion, "--forzar"});
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
