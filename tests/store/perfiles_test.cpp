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
            donde, QLatin1String(nombre) + ".perfil.ini"_L1,
            QByteArray("[PERFIL]\nnombre=") + titulo +
                "\n[INTERNOS]\ndriver=archivo\narchivo=i.db\n[NCM]\ndriver=archivo\narchivo=n.db\n");
    }
    /// The sentence that refuses this text as a profile.
    std::string motivo(const QByteArray &texto) {
        QString error;
        EXPECT_FALSE(sp.usarPerfil(escribir(uno, u"malo.perfil.ini"_s, texto), &error));
        error.replace(uno.path(), u"…"_s);
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
    EXPECT_EQ(sp.seleccionarPerfil(u"ZENDRA3"_s), ruta);
    EXPECT_EQ(sp.obtenerNombreDePerfilSeleccionado().toStdString(), "Despachos");
    EXPECT_EQ(sp.rutaDelPerfil(), ruta);
    EXPECT_FALSE(sp.perfilRecienHecho());
    EXPECT_EQ(sp.getDataConnectionTAG(u"INTERNOS"_s).toStdString(), "ACCESS");
}

TEST_F(Perfiles, SeveralAreAskedForBesideTheProgramFirst) {
    const QString zeta = perfil(uno, "zeta", "Zeta");
    const QString alfa = perfil(uno, "alfa", "");
    const QString otro = perfil(dos, "ñandú", "Ñandú");
    escribir(uno, u"ZENDRA.ini"_s, "[ITEM]\n");  // a configuration file is no profile
    sp.elegir = [this](const std::vector<PerfilEncontrado> &p) {
        vistos = p;
        return 2;
    };
    EXPECT_EQ(sp.seleccionarPerfil(u"ZENDRA3"_s), otro);
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
        EXPECT_EQ(sp.seleccionarPerfil(u"ZENDRA3"_s), QString());
        EXPECT_EQ(sp.obtenerNombreDePerfilSeleccionado(), QString());
    }
    sp.elegir = nullptr;
    EXPECT_EQ(sp.seleccionarPerfil(u"ZENDRA3"_s), QString());
}

TEST_F(Perfiles, WithoutAProfileTheEmbeddedStoresAnswer) {
    ASSERT_TRUE(QDir(dos.path()).mkdir(u"db"_s));
    for (const char *archivo :
         {"internos", "systablas", "ncm", "catalogos", "personal", "usuario", "estados"})
        escribir(dos, u"db/%1.db"_s.arg(QLatin1String(archivo)), "");
    sp.LoadParameters();
    EXPECT_EQ(sp.rutaDelPerfil(), QString());
    EXPECT_EQ(sp.obtenerNombreDePerfilSeleccionado(), QString());
    EXPECT_EQ(sp.getDataConnectionTAG(u"INTERNOS"_s).toStdString(), "ACCESS");
    ASSERT_NE(sp.datos(u"ESTADO"_s), nullptr);
    EXPECT_EQ(sp.datos(u"ESTADO"_s)->archivo, dos.filePath(u"db/estados.db"_s));
}

TEST_F(Perfiles, WithoutAProfileAndWithoutEmbeddedStoresTheMissingFileIsNamed) {
    try {
        sp.LoadParameters();
        FAIL() << "no error";
    } catch (const Falla &e) {
        EXPECT_TRUE(e.descripcion.contains(uno.path() + "/db/"_L1)) << e.descripcion.toStdString();
        EXPECT_TRUE(e.descripcion.contains(u"el perfil incorporado"_s));
        EXPECT_TRUE(e.descripcion.endsWith(u"créelo con DbUpgrade3."_s)) << e.descripcion.toStdString();
    }
}

TEST_F(Perfiles, NoneFoundMakesTheEmbeddedDefault) {
    const QString ruta = sp.seleccionarPerfil(u"ZENDRA3"_s);
    EXPECT_EQ(ruta, uno.filePath(u"ZENDRA3.perfil.ini"_s));
    EXPECT_TRUE(QFile::exists(ruta));
    EXPECT_TRUE(sp.perfilRecienHecho());
    EXPECT_EQ(sp.obtenerNombreDePerfilSeleccionado().toStdString(), "ZENDRA3");
    EXPECT_EQ(sp.datos(u"INTERNOS"_s)->archivo, uno.filePath(u"db/internos.db"_s));
    EXPECT_EQ(sp.datos(u"ESTADO"_s)->archivo, uno.filePath(u"db/estados.db"_s));
    // The next start finds it.
    SPMain otro;
    otro.carpetas = sp.carpetas;
    EXPECT_EQ(otro.seleccionarPerfil(u"ZENDRA3"_s), ruta);
    EXPECT_FALSE(otro.perfilRecienHecho());
}

TEST_F(Perfiles, WhereTheProgramsFolderCannotBeWrittenTheUsersOwnTakesTheDefault) {
    // A file where a folder should be: nothing can be made in it.
    sp.carpetas = {escribir(uno, u"programa"_s, ""), dos.path()};
    EXPECT_EQ(sp.seleccionarPerfil(u"ZENDRA3"_s), dos.filePath(u"ZENDRA3.perfil.ini"_s));
    sp.carpetas = {uno.filePath(u"programa"_s)};
    EXPECT_EQ(sp.seleccionarPerfil(u"ZENDRA3"_s), QString());
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
    const QString ruta = escribir(uno, u"a.perfil.ini"_s,
                                  "; a comment\r\n[perfil]\r\nNOMBRE = \"Casa central\"\r\n\r\n"
                                  "[internos]\r\nDriver=Servidor\r\nhost=/run/pg\r\npuerto=5433\r\nbase=z\r\n"
                                  "esquema=ops\r\nusuario=ana\r\nclave=s3cr3t;=x\r\nseparador=,\r\n"
                                  "fecha=#dd/MM/yyyy#\r\n"
                                  "[NCM]\r\ndriver=servidor\r\nhost=otro\r\nbase=z\r\n"
                                  "[USUARIO]\r\ndriver=archivo\r\narchivo=sub/usuario.db\r\n");
    QString error;
    ASSERT_TRUE(sp.usarPerfil(ruta, &error)) << error.toStdString();
    EXPECT_EQ(sp.obtenerNombreDePerfilSeleccionado().toStdString(), "Casa central");
    const Conexion::Datos &i = *sp.datos(u"INTERNOS"_s);
    EXPECT_EQ(i.motor, &motores::servidor());
    EXPECT_EQ(i.entidad.toStdString(), "INTERNOS");
    EXPECT_EQ(i.host.toStdString(), "/run/pg");
    EXPECT_EQ(i.puerto, 5433);
    EXPECT_EQ(i.base.toStdString(), "z");
    EXPECT_EQ(i.esquema.toStdString(), "ops");
    EXPECT_EQ(i.usuario.toStdString(), "ana");
    EXPECT_EQ(i.clave.toStdString(), "s3cr3t;=x");
    EXPECT_EQ(sp.getDecimalSeparatorbyEntity(u"INTERNOS"_s).toStdString(), ",");
    const QDateTime momento(QDate(2026, 3, 5), QTime(1, 2, 3));
    EXPECT_EQ(sp.getDateFormatbyEntity(u"INTERNOS"_s, momento).toStdString(), "#05/03/2026#");
    // What is left out: the usual port, a schema by the entity's name, a point, the engine's own date form.
    const Conexion::Datos &n = *sp.datos(u"NCM"_s);
    EXPECT_EQ(n.puerto, 5432);
    EXPECT_EQ(n.esquema.toStdString(), "ncm");
    EXPECT_EQ(sp.getDecimalSeparatorbyEntity(u"NCM"_s).toStdString(), ".");
    EXPECT_EQ(sp.getDateFormatbyEntity(u"NCM"_s, momento).toStdString(), "'2026-03-05 01:02:03'");
    EXPECT_EQ(sp.getDataConnectionTAG(u"NCM"_s).toStdString(), "SQL");
    // A file stands beside its profile unless told otherwise.
    EXPECT_EQ(sp.datos(u"USUARIO"_s)->archivo, uno.filePath(u"sub/usuario.db"_s));
    EXPECT_EQ(sp.getDataConnectionTAG(u"USUARIO"_s).toStdString(), "ACCESS");
    EXPECT_EQ(sp.getDateFormatbyEntity(u"USUARIO"_s, momento).toStdString(), "#03/05/2026 01:02:03#");
    // Only stores of one engine and one base see each other.
    EXPECT_TRUE(i.vecinos.empty());
    EXPECT_EQ(sp.datos(u"PERSONAL"_s), nullptr);
}

TEST_F(Perfiles, ADateFormWithoutItsDelimitersGetsQuotes) {
    QString error;
    ASSERT_TRUE(sp.usarPerfil(escribir(uno, u"a.perfil.ini"_s,
                                       "[INTERNOS]\ndriver=archivo\narchivo=i.db\nfecha='yyyy-MM-dd'\n"
                                       "[NCM]\ndriver=archivo\narchivo=n.db\nfecha=dd/MM/yyyy\n"),
                              &error))
        << error.toStdString();
    const QDateTime momento(QDate(2026, 3, 5), QTime(1, 2, 3));
    EXPECT_EQ(sp.getDateFormatbyEntity(u"INTERNOS"_s, momento).toStdString(), "'2026-03-05'");
    EXPECT_EQ(sp.getDateFormatbyEntity(u"NCM"_s, momento).toStdString(), "'05/03/2026'");
}

TEST_F(Perfiles, WhatAServerProfileWritesReadsBackTheSame) {
    const QString ruta = uno.filePath(u"central.perfil.ini"_s);
    ASSERT_TRUE(StoreProfiles::escribirPerfilDeServidor(ruta, u"Central"_s, u"pg.oficina"_s, 5433,
                                                        u"zendra"_s, u"ana"_s, u"local"_s));
    QString error;
    ASSERT_TRUE(sp.usarPerfil(ruta, &error)) << error.toStdString();
    for (const QString &entidad : StoreProfiles::entidades().mid(0, 7)) {
        const Conexion::Datos *d = sp.datos(entidad);
        ASSERT_NE(d, nullptr) << entidad.toStdString();
        if (entidad == "USUARIO"_L1) {
            EXPECT_EQ(d->motor, &motores::archivo());
            EXPECT_EQ(d->archivo, uno.filePath(u"local/usuario.db"_s));
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
    const QString ruta = uno.filePath(u"sub/carpeta/local.perfil.ini"_s);
    ASSERT_TRUE(StoreProfiles::escribirPerfilDeArchivos(ruta, u"Ñ \"local\""_s, u"../db"_s));
    QString error;
    ASSERT_TRUE(sp.usarPerfil(ruta, &error)) << error.toStdString();
    EXPECT_EQ(sp.obtenerNombreDePerfilSeleccionado().toStdString(), "Ñ \"local\"");
    EXPECT_EQ(sp.datos(u"INTERNOS"_s)->archivo, uno.filePath(u"sub/db/internos.db"_s));
    EXPECT_EQ(sp.datos(u"INTERNOS"_s)->vecinos.size(), 6U);
    EXPECT_EQ(sp.datos(u"INTERNOS"_s)->vecinos.front().first.toStdString(), "SYSTABLAS");
    EXPECT_FALSE(StoreProfiles::escribirPerfilDeArchivos(uno.path(), u"x"_s, u"db"_s));
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
    EXPECT_FALSE(sp.usarPerfil(uno.filePath(u"noexiste.ini"_s), &error));
    EXPECT_EQ(error.replace(uno.path(), u"…"_s).toStdString(),
              "No existe el perfil …/noexiste.ini; corrija la ruta o créelo con DbUpgrade3.");
    EXPECT_FALSE(sp.usarPerfil(uno.path(), &error));
    EXPECT_TRUE(error.startsWith(u"No se puede leer el perfil"_s)) << error.toStdString();
}

TEST_F(Perfiles, AProfileThatCannotBeUsedStopsTheStart) {
    escribir(uno, u"malo.perfil.ini"_s, "[INTERNOS]\ndriver=odbc\n");
    EXPECT_EQ(sp.seleccionarPerfil(u"ZENDRA3"_s), uno.filePath(u"malo.perfil.ini"_s));
    try {
        sp.LoadParameters();
        FAIL() << "no error";
    } catch (const Falla &e) {
        EXPECT_TRUE(e.descripcion.contains(u"driver=odbc"_s)) << e.descripcion.toStdString();
    }
}

TEST_F(Perfiles, AMissingFileOfTheProfileIsNamedWithItsEntity) {
    escribir(uno, u"i.db"_s, "");
    ASSERT_TRUE(sp.usarPerfil(perfil(uno, "a", "A")));
    try {
        sp.LoadParameters();
        FAIL() << "no error";
    } catch (const Falla &e) {
        EXPECT_EQ(
            QString(e.descripcion).replace(uno.path(), u"…"_s).toStdString(),
            "No existe el archivo …/n.db que el perfil …/a.perfil.ini nombra para NCM; corrija el perfil "
            "o créelo con DbUpgrade3.");
    }
}

TEST_F(Perfiles, AnEntityThatTheProfileDoesNotNameIsTold) {
    ASSERT_TRUE(sp.usarPerfil(perfil(uno, "a", "A")));
    for (const auto &pedir : std::vector<std::function<void()>>{
             [this] { sp.getDataConnectionByEntity(u"PERSONAL"_s); },
             [this] { sp.getDataConnectionTAG(u"PERSONAL"_s); },
             [this] { sp.getDecimalSeparatorbyEntity(u"PERSONAL"_s); },
             [this] { sp.getDateFormatbyEntity(u"PERSONAL"_s, QDateTime::currentDateTime()); }}) {
        try {
            pedir();
            ADD_FAILURE() << "no error";
        } catch (const Falla &e) {
            EXPECT_EQ(QString(e.descripcion).replace(uno.path(), u"…"_s).toStdString(),
                      "El perfil …/a.perfil.ini no dice dónde está el store PERSONAL; agregue la sección "
                      "[PERSONAL].");
        }
    }
}

TEST_F(Perfiles, AnotherProfileTakesThePlaceOfTheFirstWhole) {
    ASSERT_TRUE(sp.usarPerfil(perfil(uno, "a", "A")));
    EXPECT_EQ(sp.getDataConnectionByEntity(u"NCM"_s).etiqueta().toStdString(), "ACCESS");
    ASSERT_TRUE(
        sp.usarPerfil(escribir(uno, u"b.perfil.ini"_s,
                               "[INTERNOS]\ndriver=servidor\nhost=h\nbase=b\n[ESTADO]\ndriver=archivo\n"
                               "archivo=e.db\n")));
    EXPECT_EQ(sp.getDataConnectionByEntity(u"INTERNOS"_s).etiqueta().toStdString(), "SQL");
    EXPECT_EQ(sp.datos(u"NCM"_s), nullptr);
    // One that cannot be read leaves the profile in use as it is.
    EXPECT_FALSE(sp.usarPerfil(uno.filePath(u"noexiste"_s)));
    EXPECT_EQ(sp.obtenerNombreDePerfilSeleccionado().toStdString(), "b.perfil");
}

TEST_F(Perfiles, TheRoundingTextIsTheSameOnEveryEntity) {
    ASSERT_TRUE(sp.usarPerfil(perfil(uno, "a", "A")));
    for (const int decimales : {0, 2, 3, 5})
        EXPECT_EQ(sp.getNumberFormatbyEntity(decimales, u"999,999"_s, u"INTERNOS"_s),
                  u"ROUND(999.999,%1)"_s.arg(decimales));
}

/// The two entities that only other programs' forms use, and stores of two kinds in one profile.
TEST_F(Perfiles, EveryEntityMayHaveAnEngineOfItsOwn) {
    QByteArray texto;
    for (const QString &entidad : StoreProfiles::entidades())
        texto += "[" + entidad.toUtf8() + "]\ndriver=archivo\narchivo=" + entidad.toUtf8() + ".db\n";
    ASSERT_TRUE(sp.usarPerfil(escribir(uno, u"todas.perfil.ini"_s, texto)));
    for (const QString &entidad : StoreProfiles::entidades()) {
        escribir(uno, entidad + ".db"_L1, "");
        EXPECT_EQ(sp.datos(entidad)->vecinos.size(), 8U);
    }
    // Nine files on one connection: the engine's limit of neighbours is ten.
    Conexion &c = sp.getDataConnectionByEntity(u"BOLDEP"_s);
    c.Sql = "select 1"_L1;
    Recordset rs;
    EXPECT_TRUE(c.crearrs(rs));
}

}  // namespace
