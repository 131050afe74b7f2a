// Stores that are missing, that cannot be read, that do not answer: one sentence that says which and what to
// do, and nothing that should stay secret.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "frame/store/StoreProfiles.h"
#include "tests/store/servidor_falso.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

using StoreProfiles::SPMain;

const char *const secreta = "s3cr'eta \\ ñ;x=1";

void escribirEn(const QString &ruta, const QByteArray &texto) {
    QFile f(ruta);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate)) << ruta.toStdString();
    f.write(texto);
}

int permisos(const QString &ruta, mode_t modo) {
    return ::chmod(ruta.toLocal8Bit().constData(), modo);
}

/// What the first statement on an entity raises; empty when it runs.
Falla primeraSentencia(SPMain &sp, const QString &entidad = u"INTERNOS"_s) {
    try {
        Conexion &c = sp.getDataConnectionByEntity(entidad);
        c.Sql = "select 1"_L1;
        Recordset rs;
        c.crearrs(rs);
    } catch (const Falla &e) {
        return e;
    }
    return {};
}

class StoreDeArchivo : public ::testing::Test {
 protected:
    void SetUp() override {
        ASSERT_TRUE(StoreProfiles::escribirPerfilDeArchivos(perfil, u"Local"_s, u"."_s));
        QString error;
        ASSERT_TRUE(sp.usarPerfil(perfil, &error)) << error.toStdString();
    }
    std::string falla(const QString &entidad = u"INTERNOS"_s) {
        Falla e = primeraSentencia(sp, entidad);
        EXPECT_EQ(e.fuente, e.descripcion.isEmpty() ? QString() : entidad);
        return e.descripcion.replace(dir.path(), u"…"_s).toStdString();
    }
    QTemporaryDir dir;
    QString perfil = dir.filePath(u"local.perfil.ini"_s);
    SPMain sp;
};

TEST_F(StoreDeArchivo, AMissingFileIsNamedAndNotMade) {
    EXPECT_EQ(falla(),
              "No existe el archivo …/internos.db que nombra el perfil; corrija el perfil o créelo con "
              "DbUpgrade3.");
    EXPECT_FALSE(QFile::exists(dir.filePath(u"internos.db"_s)));
    // Once it is there the same connection goes on.
    escribirEn(dir.filePath(u"internos.db"_s), "");
    EXPECT_EQ(falla(), "");
}

TEST_F(StoreDeArchivo, AFolderInItsPlaceIsNamed) {
    ASSERT_TRUE(QDir(dir.path()).mkdir(u"internos.db"_s));
    EXPECT_EQ(falla(), "…/internos.db no es un archivo; corrija el perfil.");
}

TEST_F(StoreDeArchivo, AFileThatIsNoStoreIsNamedAndLeftAsItIs) {
    const QByteArray texto = "Esto es una planilla, no un store. " + QByteArray(5000, 'x');
    escribirEn(dir.filePath(u"internos.db"_s), texto);
    EXPECT_EQ(
        falla(),
        "El archivo …/internos.db no es un store legible (file is not a database); repóngalo de una copia "
        "de seguridad o corrija el perfil.");
    QFile f(dir.filePath(u"internos.db"_s));
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(f.readAll(), texto);
}

TEST_F(StoreDeArchivo, ADamagedStoreIsNamed) {
    {
        escribirEn(dir.filePath(u"internos.db"_s), "");
        Conexion &c = sp.getDataConnectionByEntity(u"INTERNOS"_s);
        for (const char *sql : {"create table a (x varchar(10))", "create table b (x varchar(10))"}) {
            c.Sql = QLatin1String(sql);
            c.Ejecutar();
        }
        sp.CloseAllDataConnection();
    }
    QFile f(dir.filePath(u"internos.db"_s));
    ASSERT_TRUE(f.open(QIODevice::ReadWrite));
    f.seek(100);
    f.write(QByteArray(1500, '\xA5'));
    f.close();
    EXPECT_EQ(
        falla(),
        "El archivo …/internos.db no es un store legible (database disk image is malformed); repóngalo de "
        "una copia de seguridad o corrija el perfil.");
}

TEST_F(StoreDeArchivo, ABrokenNeighbourIsNamedAndAMissingOneIsNot) {
    escribirEn(dir.filePath(u"internos.db"_s), "");
    EXPECT_EQ(falla(), "");
    sp.CloseAllDataConnection();
    escribirEn(dir.filePath(u"ncm.db"_s), QByteArray(5000, 'x'));
    EXPECT_EQ(
        falla(),
        "El archivo …/ncm.db no es un store legible (file is not a database); repóngalo de una copia de "
        "seguridad o corrija el perfil.");
}

/// Runs `falla` as a user who owns nothing here.
void comoNadie(StoreDeArchivo &, const std::function<std::string()> &falla) {
    if (::geteuid() == 0 && ::setuid(65534) != 0) _exit(3);
    std::fprintf(stderr, "%s\n", falla().c_str());
    _exit(0);
}

TEST_F(StoreDeArchivo, AFileWithoutPermissionIsNamed) {
    escribirEn(dir.filePath(u"internos.db"_s), "");
    ASSERT_EQ(permisos(dir.path(), 0777), 0);
    ASSERT_EQ(permisos(dir.filePath(u"internos.db"_s), 0444), 0);
    EXPECT_EXIT(
        comoNadie(*this, [this] { return falla(); }), ::testing::ExitedWithCode(0),
        "No se puede leer y escribir en el archivo .*/internos.db; revise sus permisos o corrija el perfil");
}

TEST_F(StoreDeArchivo, AFolderWithoutPermissionIsNamed) {
    escribirEn(dir.filePath(u"internos.db"_s), "");
    ASSERT_EQ(permisos(dir.filePath(u"internos.db"_s), 0666), 0);
    ASSERT_EQ(permisos(dir.path(), 0555), 0);
    EXPECT_EXIT(
        comoNadie(*this, [this] { return falla(); }), ::testing::ExitedWithCode(0),
        "No se puede escribir en la carpeta .*, donde está el archivo internos.db; revise sus permisos");
    ASSERT_EQ(permisos(dir.path(), 0700), 0);
}

TEST_F(StoreDeArchivo, AFileWithAnOddNameOpensLikeAnyOther) {
    for (const char *nombre : {"con blanco.db", "ñandú.db", "a%20b.db", "a#b?c=d.db", "a'b.db", "a&b;c.db"}) {
        const QString archivo = QString::fromUtf8(nombre);
        escribirEn(dir.filePath(archivo), "");
        escribirEn(dir.filePath("otro "_L1 + archivo), "");
        escribirEn(perfil, ("[INTERNOS]\ndriver=archivo\narchivo="_L1 + archivo +
                            "\n[NCM]\ndriver=archivo\narchivo=otro "_L1 + archivo + "\n"_L1)
                               .toUtf8());
        ASSERT_TRUE(sp.usarPerfil(perfil));
        EXPECT_EQ(falla(), "") << nombre;
        Conexion &c = sp.getDataConnectionByEntity(u"NCM"_s);
        c.Sql = "create table vecina (x varchar(10))"_L1;
        c.Ejecutar();
        sp.CloseAllDataConnection();
        Conexion &i = sp.getDataConnectionByEntity(u"INTERNOS"_s);
        i.Sql = "insert into vecina (x) values ('1')"_L1;
        EXPECT_EQ(i.Ejecutar(), 1) << nombre;
        sp.CloseAllDataConnection();
        EXPECT_GT(QFile(dir.filePath("otro "_L1 + archivo)).size(), 0) << nombre;
    }
}

// Servers

class StoreDeServidor : public ::testing::Test {
 protected:
    void usar(const QString &host, int puerto, const QByteArray &clave = {}) {
        const QString perfil = dir.filePath(u"central.perfil.ini"_s);
        escribirEn(perfil, "[INTERNOS]\ndriver=servidor\nhost=" + host.toUtf8() +
                               "\npuerto=" + QByteArray::number(puerto) + "\nbase=zendra\nusuario=ana\n" +
                               (clave.isEmpty() ? QByteArray() : "clave=" + clave + "\n"));
        QString error;
        ASSERT_TRUE(sp.usarPerfil(perfil, &error)) << error.toStdString();
        sp.LoadParameters();
    }
    QTemporaryDir dir;
    SPMain sp;
};

TEST_F(StoreDeServidor, AServerThatIsNotThereIsNamedAtTheFirstUse) {
    ServidorFalso cerrado;
    const int puerto = cerrado.puerto();
    ASSERT_GT(puerto, 0);
    cerrado.cerrar();
    usar(u"127.0.0.1"_s, puerto, secreta);
    const Falla e = primeraSentencia(sp);
    EXPECT_EQ(e.fuente.toStdString(), "INTERNOS");
    EXPECT_TRUE(e.descripcion.startsWith(
        u"No se puede conectar con la base \"zendra\" del servidor 127.0.0.1:%1 ("_s.arg(puerto)))
        << e.descripcion.toStdString();
    EXPECT_TRUE(e.descripcion.contains(u"Connection refused"_s)) << e.descripcion.toStdString();
    EXPECT_TRUE(
        e.descripcion.endsWith(u"); verifique que el servidor esté encendido y los datos del perfil."_s))
        << e.descripcion.toStdString();
    EXPECT_FALSE(e.descripcion.contains(u'\n'));
    EXPECT_FALSE(sp.getDataConnectionByEntity(u"INTERNOS"_s).abierta());
    // Asking again tries again.
    EXPECT_EQ(primeraSentencia(sp).descripcion, e.descripcion);
}

TEST_F(StoreDeServidor, ASocketFolderThatIsNotThereIsNamed) {
    usar(u"/tmp/no-hay-servidor-aqui"_s, 5432);
    const Falla e = primeraSentencia(sp);
    EXPECT_TRUE(e.descripcion.contains(u"del servidor /tmp/no-hay-servidor-aqui:5432 ("_s))
        << e.descripcion.toStdString();
}

TEST_F(StoreDeServidor, AWrongPasswordIsToldWithoutShowingIt) {
    std::vector<TrazaDeSentencia> traza;
    Conexion::fijarTraza([&](const TrazaDeSentencia &t) { traza.push_back(t); });
    ::testing::internal::CaptureStderr();
    ::testing::internal::CaptureStdout();
    ServidorFalso servidor;
    usar(u"127.0.0.1"_s, servidor.puerto(), secreta);
    const Falla e = primeraSentencia(sp);
    servidor.cerrar();
    Conexion::fijarTraza({});
    const std::string dicho =
        ::testing::internal::GetCapturedStderr() + ::testing::internal::GetCapturedStdout();
    // It did reach the server, every character of it.
    EXPECT_EQ(servidor.recibida().toStdString(), secreta);
    EXPECT_TRUE(e.descripcion.contains(u"password authentication failed for user \"ana\""_s))
        << e.descripcion.toStdString();
    for (const QString &texto : {e.descripcion, e.sentencia, e.fuente, QString::fromStdString(dicho)})
        EXPECT_FALSE(texto.contains(u"s3cr"_s)) << texto.toStdString();
    EXPECT_TRUE(traza.empty());
}

TEST_F(StoreDeServidor, WithoutAPasswordInTheProfileTheServersOwnFileAnswers) {
    ServidorFalso servidor;
    const QString archivo = dir.filePath(u"pgpass"_s);
    escribirEn(archivo, "127.0.0.1:" + QByteArray::number(servidor.puerto()) + ":zendra:ana:del archivo\n");
    ASSERT_EQ(permisos(archivo, 0600), 0);
    const QByteArray antes = qgetenv("PGPASSFILE");
    qputenv("PGPASSFILE", archivo.toLocal8Bit());
    usar(u"127.0.0.1"_s, servidor.puerto());
    const Falla e = primeraSentencia(sp);
    qputenv("PGPASSFILE", antes);
    if (antes.isEmpty()) qunsetenv("PGPASSFILE");
    servidor.cerrar();
    EXPECT_EQ(servidor.recibida().toStdString(), "del archivo");
    EXPECT_FALSE(e.descripcion.contains(u"del archivo"_s)) << e.descripcion.toStdString();
}

TEST_F(StoreDeServidor, NoPasswordAnywhereIsTold) {
    ServidorFalso servidor;
    qputenv("PGPASSFILE", "/nonexistent");
    usar(u"127.0.0.1"_s, servidor.puerto());
    const Falla e = primeraSentencia(sp);
    qunsetenv("PGPASSFILE");
    EXPECT_TRUE(e.descripcion.contains(u"no password supplied"_s)) << e.descripcion.toStdString();
}

/// On the real server of the tests.
class ServidorVivo : public ::testing::Test {
 protected:
    void SetUp() override {
        tienda = std::make_unique<Tienda>(u"SQL"_s);
        ctx = tienda->contexto(registro);
    }
    void TearDown() override {
        ctx.reset();
        tienda.reset();
    }
    std::unique_ptr<Tienda> tienda;
    Registro registro;
    std::unique_ptr<AppContext> ctx;
};

TEST_F(ServidorVivo, ABaseThatIsNotThereIsNamed) {
    QFile f(tienda->perfil());
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QString base = ctx->DataManager.datos(u"INTERNOS"_s)->base;
    escribirEn(tienda->carpeta() + "/otra.perfil.ini"_L1,
               QByteArray(f.readAll()).replace(base.toUtf8(), "no_hay"));
    SPMain sp;
    ASSERT_TRUE(sp.usarPerfil(tienda->carpeta() + "/otra.perfil.ini"_L1));
    const Falla e = primeraSentencia(sp);
    EXPECT_TRUE(e.descripcion.startsWith(u"No se puede conectar con la base \"no_hay\""_s))
        << e.descripcion.toStdString();
    EXPECT_TRUE(e.descripcion.contains(u"database \"no_hay\" does not exist"_s))
        << e.descripcion.toStdString();
}

TEST_F(ServidorVivo, AConnectionThatTheServerEndsIsMadeAgainWithoutAWord) {
    Ejecutar(*ctx, u"INTERNOS"_s, u"insert into divisas (id,imp) values ('DOL',1)"_s);
    Recordset rs;
    ASSERT_TRUE(Consultar(*ctx, u"INTERNOS"_s, u"select pg_backend_pid() as pid"_s, rs));
    const QString pid = rs.Texto(u"pid");
    Consultar(*ctx, u"NCM"_s, "select pg_terminate_backend("_L1 + pid + ",5000)"_L1, rs);
    EXPECT_EQ(Ejecutar(*ctx, u"INTERNOS"_s, u"update divisas set imp = 2"_s), 1);
    ASSERT_TRUE(Consultar(*ctx, u"INTERNOS"_s, u"select imp from divisas"_s, rs));
    EXPECT_EQ(rs.Numero(u"imp"), 2);
    ASSERT_TRUE(Consultar(*ctx, u"INTERNOS"_s, u"select pg_backend_pid() as pid"_s, rs));
    EXPECT_NE(rs.Texto(u"pid"), pid);
}

}  // namespace
