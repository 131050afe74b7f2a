#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include "frame/store/StoreProfiles.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

using StoreProfiles::SPMain;

/// Two folders to look for profiles in, and a manager that looks nowhere else.
class Perfiles : public ::testing::Test {
 protected:
    void SetUp() override { sp.carpetas = {uno.path(), dos.path()}; }

    static QString escribir(const QTemporaryDir &donde, const QString &nombre, const QByteArray &texto) {
        QString ruta = donde.filePath(nombre);
        QFile f(ruta);
        EXPECT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(texto);
        return ruta;
    }
    static QString perfil(const QTemporaryDir &donde, const char *nombre, const char *titulo) {
        return escribir(
            donde, QLatin1String(nombre) + ".perfil.ini",
            QByteArray("[PERFIL]\nnombre=") + titulo +
                "\n[INTERNOS]\ndriver=archivo\narchivo=i.db\n[NCM]\ndriver=archivo\narchivo=n.db\n");
    }
    /// The sentence that refuses this text as a profile.
    std::string motivo(const QByteArray &texto) {
        QString error;
        EXPECT_FALSE(sp.usarPerfil(escribir(uno, "malo.perfil.ini", texto), &error));
        error.replace(uno.path(), "…");
        return error.toStdString();
    }

    QTemporaryDir uno, dos;
    SPMain sp;
    std::vector<PerfilEncontrado> vistos;
};

// Looking for profiles

TEST_F(Perfiles, OneIsTakenWithoutAQuestion) {
    const QString ruta = perfil(dos, "oficina", "Despachos");
    sp.elegir = [](const auto &) {
        ADD_FAILURE() << "asked";
        return -1;
    };
    EXPECT_EQ(sp.seleccionarPerfil("ZENDRA3"), ruta);
    EXPECT_EQ(sp.obtenerNombreDePerfilSeleccionado().toStdString(), "Despachos");
    EXPECT_EQ(sp.rutaDelPerfil(), ruta);
    EXPECT_FALSE(sp.perfilRecienHecho());
    EXPECT_EQ(sp.getDataConnectionTAG("INTERNOS").toStdString(), "ACCESS");
}

TEST_F(Perfiles, SeveralAreAskedForBesideTheProgramFirst) {
    const QString zeta = perfil(uno, "zeta", "Zeta");
    const QString alfa = perfil(uno, "alfa", "");
    const QString otro = perfil(dos, "ñandú", "Ñandú");
    escribir(uno, "ZENDRA.ini", "[ITEM]\n");  // a configuration file is no profile
    sp.elegir = [this](const std::vector<PerfilEncontrado> &p) {
        vistos = p;
        return 2;
    };
    EXPECT_EQ(sp.seleccionarPerfil("ZENDRA3"), otro);
    ASSERT_EQ(vistos.size(), 3U);
    EXPECT_EQ(vistos[0].ruta, alfa);
    // Without a name of its own the file's name stands.
    EXPECT_EQ(vistos[0].nombre.toStdString(), "alfa");
    EXPECT_EQ(vistos[1].ruta, zeta);
    EXPECT_EQ(vistos[1].nombre.toStdString(), "Zeta");
    EXPECT_EQ(vistos[2].nombre.toStdString(), "Ñandú");
    EXPECT_EQ(sp.obtenerNombreDePerfilSeleccionado().toStdString(), "Ñandú");
}

TEST_F(Perfiles, ACancelledChoiceAnswersTheEmptyTextAndNoName) {
    perfil(uno, "a", "A");
    perfil(uno, "b", "B");
    for (const int respuesta : {-1, 2, 99}) {
        sp.elegir = [respuesta](const auto &) { return respuesta; };
        EXPECT_EQ(sp.seleccionarPerfil("ZENDRA3"), QString());
        EXPECT_EQ(sp.obtenerNombreDePerfilSeleccionado(), QString());
    }
    sp.elegir = nullptr;
    EXPECT_EQ(sp.seleccionarPerfil("ZENDRA3"), QString());
}

TEST_F(Perfiles, WithoutAProfileTheEmbeddedStoresAnswer) {
    ASSERT_TRUE(QDir(dos.path()).mkdir("db"));
    for (const char *archivo :
         {"internos", "systablas", "ncm", "catalogos", "personal", "usuario", "estados"})
        escribir(dos, u"db/%1.db"_s.arg(QLatin1String(archivo)), "");
    sp.LoadParameters();
    EXPECT_EQ(sp.rutaDelPerfil(), QString());
    EXPECT_EQ(sp.obtenerNombreDePerfilSeleccionado(), QString());
    EXPECT_EQ(sp.getDataConnectionTAG("INTERNOS").toStdString(), "ACCESS");
    ASSERT_NE(sp.datos("ESTADO"), nullptr);
    EXPECT_EQ(sp.datos("ESTADO")->archivo, dos.filePath("db/estados.db"));
}

TEST_F(Perfiles, WithoutAProfileAndWithoutEmbeddedStoresTheMissingFileIsNamed) {
    try {
        sp.LoadParameters();
        FAIL() << "no error";
    } catch (const Falla &e) {
        EXPECT_TRUE(e.descripcion.contains(uno.path() + "/db/")) << e.descripcion.toStdString();
        EXPECT_TRUE(e.descripcion.contains("el perfil incorporado"));
        EXPECT_TRUE(e.descripcion.endsWith("créelo con DbUpgrade3.")) << e.descripcion.toStdString();
    }
}

TEST_F(Perfiles, NoneFoundMakesTheEmbeddedDefault) {
    const QString ruta = sp.seleccionarPerfil("ZENDRA3");
    EXPECT_EQ(ruta, uno.filePath("ZENDRA3.perfil.ini"));
    EXPECT_TRUE(QFile::exists(ruta));
    EXPECT_TRUE(sp.perfilRecienHecho());
    EXPECT_EQ(sp.obtenerNombreDePerfilSeleccionado().toStdString(), "ZENDRA3");
    EXPECT_EQ(sp.datos("INTERNOS")->archivo, uno.filePath("db/internos.db"));
    EXPECT_EQ(sp.datos("ESTADO")->archivo, uno.filePath("db/estados.db"));
    // The next start finds it.
    SPMain otro;
    otro.carpetas = sp.carpetas;
    EXPECT_EQ(otro.seleccionarPerfil("ZENDRA3"), ruta);
    EXPECT_FALSE(otro.perfilRecienHecho());
}

TEST_F(Perfiles, WhereTheProgramsFolderCannotBeWrittenTheUsersOwnTakesTheDefault) {
    // A file where a folder should be: nothing can be made in it.
    sp.carpetas = {escribir(uno, "programa", ""), dos.path()};
    EXPECT_EQ(sp.seleccionarPerfil("ZENDRA3"), dos.filePath("ZENDRA3.perfil.ini"));
    sp.carpetas = {uno.filePath("programa")};
    EXPECT_EQ(sp.seleccionarPerfil("ZENDRA3"), QString());
}

TEST_F(Perfiles, AFirstStartIsOneWithoutAProfileAndWithoutStores) {
    EXPECT_TRUE(sp.primerInicio());
    ASSERT_TRUE(QDir(dos.path()).mkdir("db"));
    escribir(dos, "db/internos.db", "");
    EXPECT_FALSE(sp.primerInicio()) << "stores without a profile are there to be used";
    QFile::remove(dos.filePath("db/internos.db"));
    escribir(dos, "a.perfil.ini", "[PERFIL]\r\n");
    EXPECT_FALSE(sp.primerInicio());
}

TEST_F(Perfiles, TheDefaultIsMadeInTheFirstFolderThatCanBeWritten) {
    EXPECT_EQ(sp.carpetaDelDefecto(), uno.path());
    const QString archivo = escribir(uno, "programa", "");
    sp.carpetas = {archivo, dos.filePath("nueva/zendra")};
    EXPECT_EQ(sp.carpetaDelDefecto(), dos.filePath("nueva/zendra"));
    EXPECT_FALSE(QFile::exists(dos.filePath("nueva"))) << "nothing is made by asking";
    sp.carpetas = {archivo};
    EXPECT_EQ(sp.carpetaDelDefecto(), archivo);
}

TEST_F(Perfiles, TheDefaultNamesTheStoresThatAreThereAlready) {
    ASSERT_TRUE(QDir(dos.path()).mkdir("db"));
    escribir(dos, "db/internos.db", "");
    EXPECT_EQ(sp.seleccionarPerfil("ZENDRA3"), uno.filePath("ZENDRA3.perfil.ini"));
    EXPECT_EQ(sp.datos("INTERNOS")->archivo, dos.filePath("db/internos.db"));
}

// The file's form

TEST_F(Perfiles, EveryWordOfAProfileIsRead) {
    const QString ruta = escribir(uno, "a.perfil.ini",
                                  "; a comment\r\n[perfil]\r\nNOMBRE = \"Casa central\"\r\n\r\n"
                                  "[internos]\r\nDriver=Servidor\r\nhost=/run/pg\r\npuerto=5433\r\nbase=z\r\n"
                                  "esquema=ops\r\nusuario=ana\r\nclave=s3cr3t;=x\r\nseparador=,\r\n"
                                  "fecha=#dd/MM/yyyy#\r\n"
                                  "[NCM]\r\ndriver=servidor\r\nhost=otro\r\nbase=z\r\n"
                                  "[USUARIO]\r\ndriver=archivo\r\narchivo=sub/usuario.db\r\n");
    QString error;
    ASSERT_TRUE(sp.usarPerfil(ruta, &error)) << error.toStdString();
    EXPECT_EQ(sp.obtenerNombreDePerfilSeleccionado().toStdString(), "Casa central");
    const Conexion::Datos &i = *sp.datos("INTERNOS");
    EXPECT_TRUE(i.servidor);
    EXPECT_EQ(i.entidad.toStdString(), "INTERNOS");
    EXPECT_EQ(i.host.toStdString(), "/run/pg");
    EXPECT_EQ(i.puerto, 5433);
    EXPECT_EQ(i.base.toStdString(), "z");
    EXPECT_EQ(i.esquema.toStdString(), "ops");
    EXPECT_EQ(i.usuario.toStdString(), "ana");
    EXPECT_EQ(i.clave.toStdString(), "s3cr3t;=x");
    EXPECT_EQ(sp.getDecimalSeparatorbyEntity("INTERNOS").toStdString(), ",");
    const QDateTime momento(QDate(2026, 3, 5), QTime(1, 2, 3));
    EXPECT_EQ(sp.getDateFormatbyEntity("INTERNOS", momento).toStdString(), "#05/03/2026#");
    // What is left out: the usual port, a schema by the entity's name, a point, the engine's own date form.
    const Conexion::Datos &n = *sp.datos("NCM");
    EXPECT_EQ(n.puerto, 5432);
    EXPECT_EQ(n.esquema.toStdString(), "ncm");
    EXPECT_EQ(sp.getDecimalSeparatorbyEntity("NCM").toStdString(), ".");
    EXPECT_EQ(sp.getDateFormatbyEntity("NCM", momento).toStdString(), "'2026-03-05 01:02:03'");
    EXPECT_EQ(sp.getDataConnectionTAG("NCM").toStdString(), "SQL");
    // A file stands beside its profile unless told otherwise.
    EXPECT_EQ(sp.datos("USUARIO")->archivo, uno.filePath("sub/usuario.db"));
    EXPECT_EQ(sp.getDataConnectionTAG("USUARIO").toStdString(), "ACCESS");
    EXPECT_EQ(sp.getDateFormatbyEntity("USUARIO", momento).toStdString(), "#03/05/2026 01:02:03#");
    // Only stores of one engine and one base see each other.
    EXPECT_TRUE(i.vecinos.empty());
    EXPECT_EQ(sp.datos("PERSONAL"), nullptr);
}

TEST_F(Perfiles, ADateFormWithoutItsDelimitersGetsQuotes) {
    QString error;
    ASSERT_TRUE(sp.usarPerfil(escribir(uno, "a.perfil.ini",
                                       "[INTERNOS]\ndriver=archivo\narchivo=i.db\nfecha='yyyy-MM-dd'\n"
                                       "[NCM]\ndriver=archivo\narchivo=n.db\nfecha=dd/MM/yyyy\n"),
                              &error))
        << error.toStdString();
    const QDateTime momento(QDate(2026, 3, 5), QTime(1, 2, 3));
    EXPECT_EQ(sp.getDateFormatbyEntity("INTERNOS", momento).toStdString(), "'2026-03-05'");
    EXPECT_EQ(sp.getDateFormatbyEntity("NCM", momento).toStdString(), "'05/03/2026'");
}

TEST_F(Perfiles, WhatAServerProfileWritesReadsBackTheSame) {
    const QString ruta = uno.filePath("central.perfil.ini");
    ASSERT_TRUE(StoreProfiles::escribirPerfilDeServidor(ruta, "Central", "pg.oficina", 5433, "zendra", "ana",
                                                        "local"));
    QString error;
    ASSERT_TRUE(sp.usarPerfil(ruta, &error)) << error.toStdString();
    for (const QString &entidad : StoreProfiles::entidades().mid(0, 7)) {
        const Conexion::Datos *d = sp.datos(entidad);
        ASSERT_NE(d, nullptr) << entidad.toStdString();
        if (entidad == "USUARIO") {
            EXPECT_FALSE(d->servidor);
            EXPECT_EQ(d->archivo, uno.filePath("local/usuario.db"));
            EXPECT_TRUE(d->vecinos.empty());
        } else {
            EXPECT_EQ(d->host.toStdString(), "pg.oficina");
            EXPECT_EQ(d->puerto, 5433);
            EXPECT_EQ(d->esquema, entidad.toLower());
            EXPECT_EQ(d->vecinos.size(), 5U);
        }
        EXPECT_TRUE(d->clave.isEmpty());
    }
    QFile f(ruta);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_FALSE(f.readAll().contains("clave"));
}

TEST_F(Perfiles, WhatAFileProfileWritesReadsBackTheSame) {
    const QString ruta = uno.filePath("sub/carpeta/local.perfil.ini");
    ASSERT_TRUE(StoreProfiles::escribirPerfilDeArchivos(ruta, "Ñ \"local\"", "../db"));
    QString error;
    ASSERT_TRUE(sp.usarPerfil(ruta, &error)) << error.toStdString();
    EXPECT_EQ(sp.obtenerNombreDePerfilSeleccionado().toStdString(), "Ñ \"local\"");
    EXPECT_EQ(sp.datos("INTERNOS")->archivo, uno.filePath("sub/db/internos.db"));
    EXPECT_EQ(sp.datos("INTERNOS")->vecinos.size(), 6U);
    EXPECT_EQ(sp.datos("INTERNOS")->vecinos.front().first.toStdString(), "SYSTABLAS");
    EXPECT_FALSE(StoreProfiles::escribirPerfilDeArchivos(uno.path(), "x", "db"));
}

// What is wrong with a profile

TEST_F(Perfiles, EveryMistakeOfAProfileIsOneSentence) {
    EXPECT_EQ(motivo(""),
              "El archivo …/malo.perfil.ini no es un perfil: no nombra ningún store; corrija la ruta o sus "
              "secciones.");
    EXPECT_EQ(motivo("\x89PNG\r\n\x1a\n\0\0\0"),
              "El archivo …/malo.perfil.ini no es un perfil: no nombra ningún store; corrija la ruta o sus "
              "secciones.");
    EXPECT_EQ(motivo("[INTERNOS]\ndriver=odbc\n"),
              "El perfil …/malo.perfil.ini dice driver=odbc en la sección [INTERNOS]; use \"archivo\" o "
              "\"servidor\".");
    EXPECT_EQ(motivo("[NCM]\ndriver=archivo\n"),
              "Al perfil …/malo.perfil.ini le falta el archivo en la sección [NCM]; complételo.");
    EXPECT_EQ(
        motivo("[INTERNOS]\ndriver=servidor\nhost=h\n"),
        "Al perfil …/malo.perfil.ini le falta el host o la base en la sección [INTERNOS]; complételos.");
    for (const char *puerto : {"abc", "0", "65536", "-1"})
        EXPECT_EQ(motivo(QByteArray("[INTERNOS]\ndriver=servidor\nhost=h\nbase=b\nclave=secreta\npuerto=") +
                         puerto + "\n"),
                  std::string("El perfil …/malo.perfil.ini dice puerto=") + puerto +
                      " en la sección [INTERNOS]; escriba un número de puerto.");
    QString error;
    EXPECT_FALSE(sp.usarPerfil(uno.filePath("noexiste.ini"), &error));
    EXPECT_EQ(error.replace(uno.path(), "…").toStdString(),
              "No existe el perfil …/noexiste.ini; corrija la ruta o créelo con DbUpgrade3.");
    EXPECT_FALSE(sp.usarPerfil(uno.path(), &error));
    EXPECT_TRUE(error.startsWith("No se puede leer el perfil")) << error.toStdString();
}

TEST_F(Perfiles, AProfileThatCannotBeUsedStopsTheStart) {
    escribir(uno, "malo.perfil.ini", "[INTERNOS]\ndriver=odbc\n");
    EXPECT_EQ(sp.seleccionarPerfil("ZENDRA3"), uno.filePath("malo.perfil.ini"));
    try {
        sp.LoadParameters();
        FAIL() << "no error";
    } catch (const Falla &e) {
        EXPECT_TRUE(e.descripcion.contains("driver=odbc")) << e.descripcion.toStdString();
    }
}

TEST_F(Perfiles, AMissingFileOfTheProfileIsNamedWithItsEntity) {
    escribir(uno, "i.db", "");
    ASSERT_TRUE(sp.usarPerfil(perfil(uno, "a", "A")));
    try {
        sp.LoadParameters();
        FAIL() << "no error";
    } catch (const Falla &e) {
        EXPECT_EQ(
            QString(e.descripcion).replace(uno.path(), "…").toStdString(),
            "No existe el archivo …/n.db que el perfil …/a.perfil.ini nombra para NCM; corrija el perfil "
            "o créelo con DbUpgrade3.");
    }
}

TEST_F(Perfiles, AnEntityThatTheProfileDoesNotNameIsTold) {
    ASSERT_TRUE(sp.usarPerfil(perfil(uno, "a", "A")));
    for (const auto &pedir : std::vector<std::function<void()>>{
             [this] { sp.getDataConnectionByEntity("PERSONAL"); },
             [this] { sp.getDataConnectionTAG("PERSONAL"); },
             [this] { sp.getDecimalSeparatorbyEntity("PERSONAL"); },
             [this] { sp.getDateFormatbyEntity("PERSONAL", QDateTime::currentDateTime()); }}) {
        try {
            pedir();
            ADD_FAILURE() << "no error";
        } catch (const Falla &e) {
            EXPECT_EQ(QString(e.descripcion).replace(uno.path(), "…").toStdString(),
                      "El perfil …/a.perfil.ini no dice dónde está el store PERSONAL; agregue la sección "
                      "[PERSONAL].");
        }
    }
}

TEST_F(Perfiles, AnotherProfileTakesThePlaceOfTheFirstWhole) {
    ASSERT_TRUE(sp.usarPerfil(perfil(uno, "a", "A")));
    EXPECT_EQ(sp.getDataConnectionByEntity("NCM").etiqueta().toStdString(), "ACCESS");
    ASSERT_TRUE(
        sp.usarPerfil(escribir(uno, "b.perfil.ini",
                               "[INTERNOS]\ndriver=servidor\nhost=h\nbase=b\n[ESTADO]\ndriver=archivo\n"
                               "archivo=e.db\n")));
    EXPECT_EQ(sp.getDataConnectionByEntity("INTERNOS").etiqueta().toStdString(), "SQL");
    EXPECT_EQ(sp.datos("NCM"), nullptr);
    // One that cannot be read leaves the profile in use as it is.
    EXPECT_FALSE(sp.usarPerfil(uno.filePath("noexiste")));
    EXPECT_EQ(sp.obtenerNombreDePerfilSeleccionado().toStdString(), "b.perfil");
}

TEST_F(Perfiles, TheRoundingTextIsTheSameOnEveryEntity) {
    ASSERT_TRUE(sp.usarPerfil(perfil(uno, "a", "A")));
    for (const int decimales : {0, 2, 3, 5})
        EXPECT_EQ(sp.getNumberFormatbyEntity(decimales, "999,999", "INTERNOS"),
                  u"ROUND(999.999,%1)"_s.arg(decimales));
}

/// The two entities that only other programs' forms use, and stores of two kinds in one profile.
TEST_F(Perfiles, EveryEntityMayHaveAnEngineOfItsOwn) {
    QByteArray texto;
    for (const QString &entidad : StoreProfiles::entidades())
        texto += "[" + entidad.toUtf8() + "]\ndriver=archivo\narchivo=" + entidad.toUtf8() + ".db\n";
    ASSERT_TRUE(sp.usarPerfil(escribir(uno, "todas.perfil.ini", texto)));
    for (const QString &entidad : StoreProfiles::entidades()) {
        escribir(uno, entidad + ".db", "");
        EXPECT_EQ(sp.datos(entidad)->vecinos.size(), 8U);
    }
    // Nine files on one connection: the engine's limit of neighbours is ten.
    Conexion &c = sp.getDataConnectionByEntity("BOLDEP");
    c.Sql = "select 1";
    Recordset rs;
    EXPECT_TRUE(c.crearrs(rs));
}

}  // namespace
