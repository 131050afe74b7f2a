// What a profile says of its connection to a server, and who may read a profile that holds a password.

#include <gtest/gtest.h>

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include "frame/base/ini.h"
#include "frame/base/privatefile.h"
#include "frame/store/StoreProfiles.h"
#include "frame/store/connectwords.h"

using namespace Qt::StringLiterals;

namespace {

class PalabrasDelPerfil : public ::testing::Test {
 protected:
    QString escribirPerfil(const QString &palabras, const QString &host = u"h"_s) const {
        QString ruta = dir.filePath(u"c.perfil.ini"_s);
        QFile f(ruta);
        EXPECT_TRUE(f.open(QIODevice::WriteOnly));
        f.write((u"[INTERNOS]\ndriver=servidor\nhost=%1\nbase=b\nusuario=u\nclave=secreta\n"_s.arg(host) +
                 palabras)
                    .toUtf8());
        return ruta;
    }
    /// The sentence that refuses these words; empty when they will do.
    std::string motivo(const QString &palabras, const QString &host = u"h"_s) {
        QString error;
        sp.usarPerfil(escribirPerfil(palabras, host), &error);
        EXPECT_FALSE(error.contains(u"secreta"_s));
        return error.replace(dir.path(), u"…"_s).toStdString();
    }
    QString tocar(const QString &nombre) const {
        QFile f(dir.filePath(nombre));
        EXPECT_TRUE(f.open(QIODevice::WriteOnly));
        return f.fileName();
    }

    QTemporaryDir dir;
    StoreProfiles::SPMain sp;
};

TEST_F(PalabrasDelPerfil, EveryMistakeIsOneSentence) {
    EXPECT_EQ(
        motivo(u"sslmode=verify_full\n"_s),
        "El perfil …/c.perfil.ini, en la sección [INTERNOS], pide sslmode=verify_full, que no existe; use "
        "disable, allow, prefer, require, verify-ca, verify-full.");
    EXPECT_EQ(
        motivo(u"sslmode=verify-full\nsslrootcert=no.pem\n"_s),
        "El perfil …/c.perfil.ini, en la sección [INTERNOS], nombra en sslrootcert el archivo …/no.pem, que no "
        "está o no se puede leer; corrija la ruta o cópielo ahí.");
    tocar(u"r.pem"_s);
    EXPECT_EQ(
        motivo(u"sslrootcert=r.pem\n"_s),
        "El perfil …/c.perfil.ini, en la sección [INTERNOS], nombra sslrootcert y no sslmode, sin el cual "
        "ningún certificado se verifica; agregue sslmode=verify-full.");
    tocar(u"a;b.pem"_s);
    EXPECT_EQ(
        motivo(u"sslmode=verify-ca\nsslrootcert=a;b.pem\n"_s),
        "El perfil …/c.perfil.ini, en la sección [INTERNOS], nombra en sslrootcert el archivo …/a;b.pem, y esa "
        "ruta tiene un punto y coma; cópielo a otra carpeta.");
    for (const char *modo : {"require", "verify-ca", "verify-full"})
        EXPECT_EQ(
            motivo(u"sslmode=%1\n"_s.arg(QLatin1StringView(modo)), u"x, /run/pg"_s),
            std::string("El perfil …/c.perfil.ini, en la sección [INTERNOS], pide sslmode=") + modo +
                " y su host /run/pg es una carpeta de esta PC, por donde nada se cifra; escriba el nombre del "
                "servidor o quite sslmode.");
    EXPECT_EQ(motivo(u"sslmode=prefer\n"_s, u"/run/pg"_s), "");
    EXPECT_EQ(
        motivo(u"sslmode=require\n[NCM]\ndriver=servidor\nhost=h\nbase=b\n"_s),
        "El perfil …/c.perfil.ini pide la conexión con la base b de dos maneras, en [INTERNOS] y en [NCM]; "
        "escriba las mismas palabras (sslmode, sslrootcert, sslcert, sslkey, sslcrl, connect_timeout, "
        "tcp_user_timeout) en las dos.");
}

TEST_F(PalabrasDelPerfil, ATimeTakesThePlaceOfTheFixedOneAndHasAnEnd) {
    EXPECT_EQ(motivo(u"connect_timeout= 025\ntcp_user_timeout=5000\n"_s), "");
    EXPECT_EQ(motores::textoDeConexion(*sp.datos(u"INTERNOS"_s)).toStdString(),
              "host='h' port='5432' dbname='b' user='u' keepalives='1' keepalives_idle='60' "
              "keepalives_interval='10' keepalives_count='3' application_name='zendra' "
              "connect_timeout='25' tcp_user_timeout='5000'");
    for (const char *valor : {"0", "1", "601", "-5", "2s", "2.5", "99999999999"})
        EXPECT_EQ(motivo(u"connect_timeout=%1\n"_s.arg(QLatin1StringView(valor))),
                  std::string("El perfil …/c.perfil.ini, en la sección [INTERNOS], pide connect_timeout=") +
                      valor + "; escriba cuántos segundos se espera, de 2 a 600.");
    EXPECT_EQ(motivo(u"tcp_user_timeout=0\n"_s),
              "El perfil …/c.perfil.ini, en la sección [INTERNOS], pide tcp_user_timeout=0; escriba cuántos "
              "milisegundos se espera, de 1000 a 600000.");
}

TEST_F(PalabrasDelPerfil, FilesAreRelativeToTheProfileAndEveryValueGoesWhole) {
    for (const char *nombre : {"r.pem", "la 'mía' \\ x.pem", "llave.pem", "revocados.pem"})
        tocar(QString::fromUtf8(nombre));
    EXPECT_EQ(motivo(u"sslmode=verify-full\nsslrootcert=r.pem\nsslcert=la 'mía' \\ x.pem\nsslkey=%1\n"
                     "sslcrl=./revocados.pem\n"_s.arg(dir.filePath(u"llave.pem"_s))),
              "");
    const Conexion::Datos &d = *sp.datos(u"INTERNOS"_s);
    QString texto = motores::textoDeConexion(d);
    EXPECT_EQ(
        texto.replace(dir.path(), u"…"_s).toStdString(),
        "host='h' port='5432' dbname='b' user='u' connect_timeout='10' keepalives='1' keepalives_idle='60' "
        "keepalives_interval='10' keepalives_count='3' tcp_user_timeout='30000' application_name='zendra' "
        "gssencmode='disable' sslmode='verify-full' sslrootcert='…/r.pem' sslcert='…/la \\'mía\\' \\\\ x.pem' "
        "sslkey='…/llave.pem' sslcrl='…/revocados.pem'");
}

// Who may read it

class PerfilesConClave : public PalabrasDelPerfil {
 protected:
    static constexpr auto deTodos =
        QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther;
    static constexpr auto propios = QFile::ReadOwner | QFile::WriteOwner;
};

TEST_F(PerfilesConClave, OneThatOthersMayReadIsToldAndOneWithoutAPasswordIsNot) {
    const QString ruta = escribirPerfil({});
    ASSERT_TRUE(QFile::setPermissions(ruta, deTodos));
    ASSERT_TRUE(sp.usarPerfil(ruta));
    EXPECT_EQ(sp.aviso().toStdString(),
              "Otras personas de esta PC pueden leer el perfil " + ruta.toStdString() +
                  ", que guarda una contraseña; deje que sólo su dueño lo lea (chmod 600).");
    ASSERT_TRUE(QFile::setPermissions(ruta, propios));
    EXPECT_EQ(sp.aviso(), QString());
    const QString sinClave = dir.filePath(u"s.perfil.ini"_s);
    ASSERT_TRUE(
        StoreProfiles::escribirPerfilDeServidor(sinClave, u"S"_s, u"h"_s, 5432, u"b"_s, u"u"_s, u"."_s));
    ASSERT_TRUE(QFile::setPermissions(sinClave, deTodos));
    ASSERT_TRUE(sp.usarPerfil(sinClave));
    EXPECT_EQ(sp.aviso(), QString());
}

TEST_F(PerfilesConClave, WhatIsWrittenWithAPasswordIsItsOwnersAloneEvenOverOneThatWasNot) {
    const QString ruta = escribirPerfil({});
    ASSERT_TRUE(QFile::setPermissions(ruta, deTodos));
    StoreProfiles::PerfilDeRol perfil;
    perfil.desde = ruta;
    perfil.servidor.host = u"h"_s;
    perfil.servidor.base = u"b"_s;
    perfil.servidor.motor = &motores::servidor();
    perfil.servidor.usuario = u"otro"_s;
    perfil.servidor.clave = u" con \"comillas' "_s;
    EXPECT_EQ(StoreProfiles::escribirPerfilDeRol(ruta, perfil), QString());
    EXPECT_FALSE(LoAlcanzanOtros(ruta));
    ASSERT_TRUE(sp.usarPerfil(ruta));
    EXPECT_EQ(sp.datos(u"INTERNOS"_s)->clave, perfil.servidor.clave);
    EXPECT_EQ(sp.datos(u"INTERNOS"_s)->usuario.toStdString(), "otro");
    EXPECT_EQ(sp.aviso(), QString());
}

TEST_F(PerfilesConClave, AKeyWrittenIntoAFileOfItsOwnerLeavesItHisAndALinkStaysALink) {
    const QString ruta = escribirPerfil({});
    ASSERT_TRUE(QFile::setPermissions(ruta, propios));
    const QString enlace = dir.filePath(u"enlace.ini"_s);
    ASSERT_TRUE(QFile::link(ruta, enlace));
    ASSERT_TRUE(EscribirIni(u"INTERNOS"_s, u"clave"_s, u"nueva"_s, enlace));
    EXPECT_TRUE(QFileInfo(enlace).isSymLink());
    EXPECT_FALSE(LoAlcanzanOtros(ruta));
    EXPECT_EQ(LeerIni(u"INTERNOS"_s, u"clave"_s, ruta).toStdString(), "nueva");
    // And one that everybody reads stays everybody's.
    ASSERT_TRUE(QFile::setPermissions(ruta, deTodos));
    ASSERT_TRUE(EscribirIni(u"INTERNOS"_s, u"puerto"_s, u"1"_s, ruta));
    EXPECT_TRUE(LoAlcanzanOtros(ruta));
}

}  // namespace
