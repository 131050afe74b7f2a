// Where the password of the mail is kept.

#include <QDir>
#include <QFile>
#include <map>
#include <optional>
#include <vector>

#include "frame/secrets.h"
#include "tests/mail/envio.h"

using namespace Qt::StringLiterals;

namespace {

constexpr QFileDevice::Permissions soloDelDuenio = QFileDevice::ReadOwner | QFileDevice::WriteOwner;
constexpr QFileDevice::Permissions todosLosPermisos =
    QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner | QFileDevice::ReadGroup |
    QFileDevice::WriteGroup | QFileDevice::ExeGroup | QFileDevice::ReadOther | QFileDevice::WriteOther |
    QFileDevice::ExeOther;

}  // namespace

class Guardado : public ::testing::Test {
 protected:
    Secretos secretos() const { return {llavero, ajustes}; }
    /// What an operation answered, which here is at once.
    Secreto leer() {
        Secreto leido{u"no answer"_s, u"no answer"_s};
        secretos().Leer(nombre, &quien, [&leido](const Secreto &s) { leido = s; });
        return leido;
    }
    QString guardar(const QString &valor) {
        QString falla = u"no answer"_s;
        secretos().Guardar(nombre, valor, &quien, [&falla](const Secreto &s) {
            EXPECT_EQ(s.valor, QString());
            falla = s.falla;
        });
        return falla;
    }
    QString olvidar() {
        QString falla = u"no answer"_s;
        secretos().Olvidar(nombre, &quien, [&falla](const Secreto &s) { falla = s.falla; });
        return falla;
    }
    /// A keyring that keeps what it is given, or answers with `estado` alone.
    void conLlavero(Llavero::Estado estado = Llavero::Estado::Bien) {
        llavero.leer = [this, estado](const QString &n, const Llavero::AlResponder &al) {
            const bool esta = enLlavero.count(n) != 0;
            al(estado != Llavero::Estado::Bien ? estado
               : esta                          ? estado
                                               : Llavero::Estado::NoEsta,
               estado == Llavero::Estado::Bien && esta ? enLlavero[n] : QString());
        };
        llavero.guardar = [this, estado](const QString &n, const QString &v, const Llavero::AlResponder &al) {
            if (estado == Llavero::Estado::Bien) enLlavero[n] = v;
            al(estado, {});
        };
        llavero.borrar = [this, estado](const QString &n, const Llavero::AlResponder &al) {
            const bool estaba = enLlavero.erase(n) != 0;
            al(estado != Llavero::Estado::Bien ? estado : estaba ? estado : Llavero::Estado::NoEsta, {});
        };
    }

    QTemporaryDir carpeta;
    Ajustes ajustes{carpeta.filePath(u"zendra/ajustes.ini"_s)};
    Llavero llavero;
    std::map<QString, QString> enLlavero;
    QObject quien;
    QString nombre = u"SMTP estudio@despacho.com.ar mail.x.com"_s;
};

TEST_F(Guardado, WithoutAKeyringAFileThatOnlyItsOwnerReadsKeepsIt) {
    EXPECT_EQ(leer().valor, QString());
    EXPECT_EQ(guardar(u"clavé ñ€"_s), QString());
    const QString archivo = secretos().archivo(nombre);
    EXPECT_TRUE(archivo.startsWith(carpeta.path())) << archivo.toStdString();
    const auto permisos = QFile::permissions(archivo);
    EXPECT_EQ(permisos & todosLosPermisos & ~(QFileDevice::ReadUser | QFileDevice::WriteUser), soloDelDuenio);
    EXPECT_EQ(leer().valor, u"clavé ñ€"_s);
    EXPECT_EQ(leer().falla, QString());
    // Nothing is left beside it, and its name tells no account.
    const QStringList dejados = QDir(QFileInfo(archivo).path()).entryList(QDir::Files);
    EXPECT_EQ(dejados, QStringList{QFileInfo(archivo).fileName()});
    EXPECT_FALSE(archivo.contains(u"estudio"_s));
}

TEST_F(Guardado, AFileThatOthersReadIsRefusedAndToldUntilItIsKeptAnew) {
    for (const auto de :
         {QFileDevice::ReadGroup, QFileDevice::WriteGroup, QFileDevice::ReadOther, QFileDevice::WriteOther}) {
        ASSERT_EQ(guardar(u"clave"_s), QString());
        const QString archivo = secretos().archivo(nombre);
        ASSERT_TRUE(QFile::setPermissions(archivo, soloDelDuenio | de));
        EXPECT_EQ(leer().valor, QString());
        EXPECT_EQ(
            leer().falla,
            u"Otras personas pueden leer el archivo %1, que guarda la contraseña: no se usa. Cambie la "
            "contraseña en su servidor y vuelva a cargarla aquí."_s.arg(QDir::toNativeSeparators(archivo)));
        ASSERT_EQ(guardar(u"nueva"_s), QString());
        EXPECT_EQ(leer().valor, u"nueva"_s);
        EXPECT_FALSE(QFile::permissions(archivo).testFlag(de));
    }
}

TEST_F(Guardado, AKeyringThatIsThereKeepsItAndNoFileDoes) {
    conLlavero();
    EXPECT_EQ(guardar(u"clave"_s), QString());
    EXPECT_EQ(enLlavero[nombre], u"clave"_s);
    EXPECT_FALSE(QFile::exists(secretos().archivo(nombre)));
    EXPECT_EQ(leer().valor, u"clave"_s);
}

TEST_F(Guardado, AKeyringThatComesLaterTakesItOverFromTheFile) {
    guardar(u"vieja"_s);
    conLlavero();
    EXPECT_EQ(leer().valor, u"vieja"_s) << "until it is kept anew";
    guardar(u"nueva"_s);
    EXPECT_FALSE(QFile::exists(secretos().archivo(nombre)));
    EXPECT_EQ(leer().valor, u"nueva"_s);
}

TEST_F(Guardado, WhatAFileKeepsIsNewerThanAKeyringThatDidNotAnswer) {
    conLlavero();
    guardar(u"vieja"_s);
    conLlavero(Llavero::Estado::SinLlavero);
    guardar(u"nueva"_s);
    conLlavero();
    EXPECT_EQ(leer().valor, u"nueva"_s);
}

TEST_F(Guardado, AClosedKeyringIsToldAndNoFileIsWritten) {
    conLlavero(Llavero::Estado::Negado);
    const QString cerrado =
        u"El llavero del sistema no dio acceso a la contraseña: ábralo y vuelva a intentar."_s;
    EXPECT_EQ(guardar(u"clave"_s), cerrado);
    EXPECT_FALSE(QFile::exists(secretos().archivo(nombre)));
    EXPECT_EQ(leer().falla, cerrado);
    EXPECT_EQ(olvidar(), cerrado);
}

TEST_F(Guardado, ForgettingTakesItFromBothAndNeedsNone) {
    EXPECT_EQ(olvidar(), QString());
    guardar(u"clave"_s);
    conLlavero();
    enLlavero[nombre] = u"otra"_s;
    EXPECT_EQ(olvidar(), QString());
    EXPECT_TRUE(enLlavero.empty());
    EXPECT_FALSE(QFile::exists(secretos().archivo(nombre)));
    EXPECT_EQ(leer().valor, QString());
}

TEST_F(Guardado, AnAnswerThatComesWhenNobodyWaitsIsDropped) {
    std::vector<Llavero::AlResponder> pendientes;
    llavero.leer = [&](const QString &, const Llavero::AlResponder &al) { pendientes.push_back(al); };
    bool llego = false;
    {
        QObject breve;
        secretos().Leer(nombre, &breve, [&llego](const Secreto &) { llego = true; });
    }
    ASSERT_EQ(pendientes.size(), 1U);
    pendientes[0](Llavero::Estado::Bien, u"clave"_s);
    EXPECT_FALSE(llego);
}

// The system's own road, in a session that has no bus to speak with a keyring by.
TEST_F(Guardado, ASessionWithoutAKeyringKeepsItInTheFile) {
    const QByteArray antes = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/no/esta");
    llavero = LlaveroDelSistema();
    const auto esperarRespuesta = [](const std::function<void(Secretos::AlSaber)> &pedir) {
        std::optional<Secreto> dicho;
        pedir([&dicho](const Secreto &s) { dicho = s; });
        esperarA([&dicho] { return dicho.has_value(); });
        return dicho.value_or(Secreto());
    };
    const Secreto guardado = esperarRespuesta(
        [this](const Secretos::AlSaber &al) { secretos().Guardar(nombre, u"clave"_s, &quien, al); });
    EXPECT_EQ(guardado.falla, QString());
    EXPECT_TRUE(QFile::exists(secretos().archivo(nombre)));
    EXPECT_EQ(leer().valor, u"clave"_s);
    const Secreto olvidado =
        esperarRespuesta([this](const Secretos::AlSaber &al) { secretos().Olvidar(nombre, &quien, al); });
    EXPECT_EQ(olvidado.falla, QString());
    const Secreto leido =
        esperarRespuesta([this](const Secretos::AlSaber &al) { secretos().Leer(nombre, &quien, al); });
    EXPECT_EQ(leido.valor, QString());
    EXPECT_EQ(leido.falla, QString());
    qputenv("DBUS_SESSION_BUS_ADDRESS", antes);
}

TEST_F(Guardado, AFolderThatCannotBeWrittenIsTold) {
    QFile enMedio(carpeta.filePath(u"zendra"_s));
    ASSERT_TRUE(enMedio.open(QIODevice::WriteOnly));
    const QString falla = guardar(u"clave"_s);
    EXPECT_TRUE(falla.startsWith(u"No se pudo guardar la contraseña en "_s)) << falla.toStdString();
    EXPECT_FALSE(falla.contains(u"clave"_s));
}

TEST(NombreDeSecreto, AnotherServerOrUserIsAnotherAccount) {
    const QString uno = NombreDelSecreto(u"juan"_s, u"mail.x.com:587"_s);
    EXPECT_EQ(uno, NombreDelSecreto(u" juan "_s, u"MAIL.x.com"_s)) << "the port and capitals do not count";
    EXPECT_NE(uno, NombreDelSecreto(u"juan"_s, u"mail.otro.com"_s));
    EXPECT_NE(uno, NombreDelSecreto(u"pedro"_s, u"mail.x.com"_s));
    EXPECT_EQ(NombreDelSecreto({}, u"mail.x.com"_s), QString());
    EXPECT_EQ(NombreDelSecreto(u"juan"_s, {}), QString());
}
