// A server that takes nobody without TLS, asked by the modules and by whole programs.

#include <gtest/gtest.h>

#include <QFile>

#include "frame/store/StoreProfiles.h"
#include "tests/support/certificados.h"
#include "tests/support/lote.h"
#include "tests/support/oficina.h"
#include "tests/support/servidortls.h"

using namespace Qt::StringLiterals;

namespace {

using Palabras = std::vector<std::pair<QString, QString>>;

class ConTls : public ::testing::Test {
 protected:
    static void SetUpTestSuite() {
        oficina = std::make_unique<Oficina>();
        puesta = oficina->poner();
    }
    static void TearDownTestSuite() { oficina.reset(); }
    void SetUp() override { ASSERT_EQ(puesta.estado, 0) << puesta.errores.toStdString(); }
    void TearDown() override {
        ServidorConTls().conTls(true);
        ServidorConTls().usarCertificado(CertificadosDePrueba().bueno);
    }

    /// The office's profile with other words; `host` and `base` where they are given.
    static QString perfil(const Palabras &palabras, const QString &host = "127.0.0.1",
                          const QString &base = {}) {
        QFile f(oficina->perfil());
        EXPECT_TRUE(f.open(QIODevice::ReadOnly));
        QString suyo;
        const QStringList lineas = QString::fromUtf8(f.readAll()).split("\r\n");
        for (QString linea : lineas) {
            if (linea.startsWith("ssl")) continue;
            if (linea.startsWith("host=")) linea = "host=" + host;
            if (linea.startsWith("base=") && !base.isEmpty()) linea = "base=" + base;
            suyo += linea + "\r\n";
            if (linea.startsWith("host="))
                for (const auto &[palabra, valor] : palabras) suyo += palabra + '=' + valor + "\r\n";
        }
        QString ruta = oficina->carpeta() + "/tls.ini";
        QFile::remove(ruta);
        QFile nueva(ruta);
        EXPECT_TRUE(nueva.open(QIODevice::WriteOnly));
        EXPECT_TRUE(nueva.setPermissions(QFile::ReadOwner | QFile::WriteOwner));
        nueva.write(suyo.toUtf8());
        return ruta;
    }
    /// "t" or "f": whether the module's connection is encrypted; else why there is none.
    static std::string cifrada(const QString &ruta) {
        StoreProfiles::SPMain manager;
        QString error;
        if (!manager.usarPerfil(ruta, &error)) return error.toStdString();
        Conexion &c = manager.getDataConnectionByEntity("INTERNOS");
        c.Sql =
            "select case when ssl then 't' else 'f' end as ssl from pg_catalog.pg_stat_ssl "
            "where pid = pg_catalog.pg_backend_pid()";
        try {
            Recordset rs;
            c.crearrs(rs);
            return rs.Texto(u"ssl").toStdString();
        } catch (const Falla &e) {
            return e.descripcion.toStdString();
        }
    }
    /// All three roads refuse, with these words in one sentence.
    static void seNiega(const QString &ruta, const char *porque) {
        const QString texto = QString::fromUtf8(porque);
        EXPECT_TRUE(QString::fromStdString(cifrada(ruta)).contains(texto)) << cifrada(ruta);
        const CorridaDeDb d = oficina->dbUpgrade3({"--perfil", ruta});
        EXPECT_EQ(d.estado, 1);
        EXPECT_TRUE(d.errores.contains(texto)) << d.errores.toStdString();
        EXPECT_EQ(d.errores.count('\n'), 1) << d.errores.toStdString();
        const Corrida l = Lote(oficina->carpeta(), {"--perfil", ruta, "listar"});
        EXPECT_EQ(l.estado, 1);
        ASSERT_EQ(l.textos().size(), 1);
        EXPECT_TRUE(l.textos()[0].contains(texto)) << l.textos()[0].toStdString();
    }
    static void entraCifrado(const QString &ruta) {
        EXPECT_EQ(cifrada(ruta), "t");
        const CorridaDeDb d = oficina->dbUpgrade3({"--perfil", ruta, "--respaldo", ruta + ".zrespaldo"});
        EXPECT_EQ(d.estado, 0) << d.errores.toStdString();
        const Corrida l = Lote(oficina->carpeta(), {"--perfil", ruta, "listar"});
        EXPECT_EQ(l.estado, 0) << l.textos().join('\n').toStdString();
    }
    static QString raiz() { return CertificadosDePrueba().autoridad; }

    static std::unique_ptr<Oficina> oficina;
    static CorridaDeDb puesta;
};
std::unique_ptr<Oficina> ConTls::oficina;
CorridaDeDb ConTls::puesta;

TEST_F(ConTls, AVerifiedCertificateOfTheRightAuthorityAndNameLetsEveryProgramIn) {
    entraCifrado(perfil({{"sslmode", "verify-full"}, {"sslrootcert", raiz()}}));
    entraCifrado(perfil({{"sslmode", "Verify-CA"}, {"sslrootcert", raiz()}}));
}

TEST_F(ConTls, AnotherAuthorityIsRefused) {
    const QString otra = CertificadosDePrueba().autofirmado;
    seNiega(perfil({{"sslmode", "verify-full"}, {"sslrootcert", otra}}), "certificate verify failed");
    seNiega(perfil({{"sslmode", "verify-ca"}, {"sslrootcert", otra}}), "certificate verify failed");
}

TEST_F(ConTls, AnotherNameIsRefusedWhereTheNameIsAskedForAndTakenWhereTheAuthorityIsEnough) {
    ServidorConTls().usarCertificado(CertificadosDePrueba().otroNombre);
    seNiega(perfil({{"sslmode", "verify-full"}, {"sslrootcert", raiz()}}), "does not match host name");
    entraCifrado(perfil({{"sslmode", "verify-ca"}, {"sslrootcert", raiz()}}));
}

TEST_F(ConTls, AVerifiedProfileWithoutARootNeverConnects) {
    // The client library's own place for it is empty in this home.
    qputenv("PGSSLROOTCERT", (oficina->carpeta() + "/no-hay.pem").toUtf8());
    seNiega(perfil({{"sslmode", "verify-full"}}), "root certificate file");
    qunsetenv("PGSSLROOTCERT");
}

TEST_F(ConTls, AServerWithoutTlsIsRefusedByWhoeverAsksForIt) {
    ServidorConTls().correr("drop database if exists abierta");
    ServidorConTls().correr("create database abierta");
    ServidorConTls().correr("grant connect on database abierta to public");
    ServidorConTls().conTls(false);
    for (const char *modo : {"require", "verify-ca", "verify-full"})
        seNiega(perfil({{"sslmode", modo}, {"sslrootcert", raiz()}}, "127.0.0.1", "abierta"),
                "server does not support SSL");
    // Who asks for nothing, or for TLS where there is some, comes in as before.
    for (const Palabras &palabras :
         {Palabras{}, Palabras{{"sslmode", "prefer"}}, Palabras{{"sslmode", "disable"}}})
        EXPECT_EQ(cifrada(perfil(palabras, "127.0.0.1", "abierta")), "f");
    ServidorConTls().conTls(true);
    ServidorConTls().correr("drop database abierta with (force)");
}

TEST_F(ConTls, WhoAsksForNothingIsEncryptedWhereTheServerCan) {
    for (const Palabras &palabras :
         {Palabras{}, Palabras{{"sslmode", "prefer"}}, Palabras{{"sslmode", "require"}}})
        EXPECT_EQ(cifrada(perfil(palabras)), "t");
    EXPECT_NE(cifrada(perfil({{"sslmode", "disable"}})).find("no encryption"), std::string::npos)
        << cifrada(perfil({{"sslmode", "disable"}}));
}

TEST_F(ConTls, ARootBesideTheProfileIsFoundWhateverItsNameHolds) {
    for (const char *nombre : {"raíz de 'la' oficina.pem", "a\\b=c \"d\".pem"}) {
        QFile::remove(oficina->carpeta() + '/' + nombre);
        ASSERT_TRUE(QFile::copy(raiz(), oficina->carpeta() + '/' + nombre));
        entraCifrado(perfil({{"sslmode", "verify-full"}, {"sslrootcert", nombre}}));
    }
}

TEST_F(ConTls, ThePasswordIsInNoWordOfARefusal) {
    const QString clave = Oficina::dice(oficina->perfil(), "clave");
    const QString ruta =
        perfil({{"sslmode", "verify-full"}, {"sslrootcert", CertificadosDePrueba().autofirmado}});
    EXPECT_EQ(QString::fromStdString(cifrada(ruta)).contains(clave), false);
    const CorridaDeDb d = oficina->dbUpgrade3({"--perfil", ruta});
    EXPECT_FALSE(d.todo().contains(clave));
    const Corrida l = Lote(oficina->carpeta(), {"--perfil", ruta, "listar"});
    EXPECT_FALSE((l.textos().join('\n') + l.errores).contains(clave));
}

TEST_F(ConTls, ASetUpThatCannotVerifyTheServerTouchesNothing) {
    ServidorConTls().usarCertificado(CertificadosDePrueba().otroNombre);
    const Oficina otra;
    const CorridaDeDb c = otra.poner();
    EXPECT_EQ(c.estado, 1);
    EXPECT_TRUE(c.errores.contains("does not match host name")) << c.errores.toStdString();
    EXPECT_EQ(
        ServidorConTls().correr("select count(*) from pg_roles where rolname like '" + otra.base() + "%'"),
        "0");
    EXPECT_FALSE(QFile::exists(otra.perfil()));
}

}  // namespace
