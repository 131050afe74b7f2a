// The road to the main menu: order, version, dates, title, and what a bad profile says.

#include "frame/startup.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QLocale>
#include <QRegularExpression>
#include <QTcpServer>
#include <QTest>

#include "frame/ini.h"
#include "tests/support/tienda.h"

namespace {

using L = QLatin1String;

/// Dates of a workstation in Argentina; the upgrade program is not started but noted.
class Arranque : public EnAmbosStores {
 protected:
    void SetUp() override {
        EnAmbosStores::SetUp();
        QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Argentina));
        original = iniciarPrograma;
        iniciarPrograma = [this](const QString &programa, const QStringList &argumentos) {
            iniciados << programa;
            conArgumentos << argumentos;
            return true;
        };
        qputenv("ProgramFiles", "C:\\Programas");
    }
    void TearDown() override {
        iniciarPrograma = original;
        QLocale::setDefault(anterior);
        EnAmbosStores::TearDown();
    }

    std::function<bool(const QString &, const QStringList &)> original;
    QLocale anterior;
    QStringList iniciados, conArgumentos;
};

TEST_P(Arranque, FillsTheContextAndSetsThePointerBack) {
    ejecutar(QStringLiteral("insert into control_fecha (fecha) values ('2026-01-12 00:00:00')"),
             QStringLiteral("NCM"));
    AppContext nuevo;
    nuevo.ajustes = Ajustes(tienda->carpeta() + L("/otros.ini"));
    nuevo.ProgramFolder = tienda->carpeta() + QLatin1Char('/');
    std::vector<bool> relojes;
    nuevo.dialogos.reloj = [&relojes](bool si) { relojes.push_back(si); };
    nuevo.DataManager.carpetas = {tienda->carpeta()};
    Arrancar(nuevo);
    EXPECT_EQ(nuevo.ProfileIniPath, tienda->perfil()) << "one profile is taken without a question";
    EXPECT_EQ(nuevo.ConnNcm, &nuevo.conexion(QStringLiteral("NCM")));
    EXPECT_EQ(nuevo.ConnInternos, &nuevo.conexion(QStringLiteral("INTERNOS")));
    EXPECT_EQ(nuevo.ConnCatalogos, &nuevo.conexion(QStringLiteral("CATALOGOS")));
    EXPECT_EQ(nuevo.ConnSystablas, &nuevo.conexion(QStringLiteral("SYSTABLAS")));
    const QString hoy = QDate::currentDate().toString(
        GetParam() == std::string("SQL") ? QStringLiteral("yyyy-MM-dd") : QStringLiteral("MM/dd/yyyy"));
    EXPECT_TRUE(nuevo.TodayInternos.contains(hoy)) << nuevo.TodayInternos.toStdString();
    EXPECT_EQ(nuevo.DateKeyPattern, L("yyyyMMdd"));
    EXPECT_EQ(nuevo.ConfigFilePath, tienda->carpeta() + L("/ZENDRA.ini"));
    EXPECT_EQ(nuevo.NomenclatureDate, QStringLiteral("lunes, 12 de enero de 2026"));
    ASSERT_FALSE(relojes.empty());
    EXPECT_TRUE(relojes.front());
    EXPECT_FALSE(relojes.back());
    EXPECT_EQ(nuevo.SuffixChecker.Validar(QStringLiteral("0000.00.00.000A"), {}), 1) << "it has its manager";
}

TEST_P(Arranque, HandlesKeptInTheContextStayUsableAfterEveryConnectionWasClosed) {
    Conexion *antes = ctx->ConnNcm;
    ctx->DataManager.CloseAllDataConnection();
    EXPECT_EQ(&ctx->conexion(QStringLiteral("NCM")), antes);
    antes->Sql = QStringLiteral("select * from control_fecha");
    Recordset rs;
    EXPECT_FALSE(antes->crearrs(rs));
}

TEST_P(Arranque, AnEmptyControlFechaLeavesNoNomenclatureDateAndTheLabelAsItWas) {
    EXPECT_TRUE(LeerFechaDelNomenclador(*ctx).isEmpty());
    EXPECT_EQ(TextoNomenclador(*ctx), L("Leyendo Fecha...."));
}

TEST_P(Arranque, TheNewestDateOfTheNomenclatureIsShownInLongForm) {
    for (const char *fecha : {"2026-01-12", "2026-03-05", "2025-12-31"})
        ejecutar(L("insert into control_fecha (fecha) values ('") + L(fecha) + L(" 00:00:00')"),
                 QStringLiteral("NCM"));
    EXPECT_EQ(LeerFechaDelNomenclador(*ctx), QStringLiteral("jueves, 5 de marzo de 2026"));
    EXPECT_EQ(TextoNomenclador(*ctx), QStringLiteral("jueves, 5 de marzo de 2026"));
}

TEST_P(Arranque, TheLicenceDataDateIsShownInShortFormBehindItsLabel) {
    EXPECT_EQ(TextoFechaDatosLNAPI(*ctx), L("Fecha:  "));
    ejecutar(QStringLiteral("insert into LNAPIFechaDeDatos (fecha) values ('2026-01-12 00:00:00')"),
             QStringLiteral("NCM"));
    EXPECT_EQ(TextoFechaDatosLNAPI(*ctx), L("Fecha:  12/1/26"));
}

TEST_P(Arranque, AStoreBelow330AsksForItsUpgradeAndStartsIt) {
    ejecutar(QStringLiteral("update version set valor = '329' where propiedad = 'version'"));
    EXPECT_EQ(ControlarVersionDelStore(*ctx), 329);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto, L("Se necesita actualizar la base de datos"));
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Informacion);
    EXPECT_EQ(iniciados, QStringList{QStringLiteral("C:\\Programas\\Zendra\\DbUpgrade3.exe")});
    EXPECT_EQ(conArgumentos, (QStringList{QStringLiteral("--perfil"), tienda->perfil()}));
}

TEST_P(Arranque, AStoreWithoutAVersionRowCountsAsOlder) {
    ejecutar(QStringLiteral("delete from version"));
    EXPECT_EQ(ControlarVersionDelStore(*ctx), 300);
    EXPECT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(iniciados.size(), 1);
}

TEST_P(Arranque, AStoreOfExactly330SaysNothing) {
    EXPECT_EQ(ControlarVersionDelStore(*ctx), 330);
    EXPECT_TRUE(registro.mensajes.empty());
    EXPECT_TRUE(iniciados.isEmpty());
}

TEST_P(Arranque, AFailingVersionQueryIsDroppedInSilence) {
    ejecutar(QStringLiteral("drop table version"));
    EXPECT_EQ(ControlarVersionDelStore(*ctx), 300);
    EXPECT_TRUE(registro.mensajes.empty());
    EXPECT_TRUE(iniciados.isEmpty());
    EXPECT_THROW(LeerVersionDelStore(*ctx), ErrorDeStore);
}

TEST_P(Arranque, AnUpgradeProgramThatIsNotThereFallsUnderTheSameSilence) {
    iniciarPrograma = original;
    qputenv("ProgramFiles", QByteArray("/no/existe"));
    ejecutar(QStringLiteral("delete from version"));
    EXPECT_EQ(ControlarVersionDelStore(*ctx), 300);
    EXPECT_EQ(registro.mensajes.size(), 1U);
}

TEST_P(Arranque, TheUpgradeProgramIsFoundWhereTheInstallationPutIt) {
    QDir().mkpath(tienda->carpeta() + L("/Programas/Zendra"));
    const QString marca = tienda->carpeta() + L("/marca");
    QFile programa(tienda->carpeta() + L("/Programas/Zendra/DbUpgrade3"));
    ASSERT_TRUE(programa.open(QIODevice::WriteOnly));
    programa.write("#!/bin/sh\necho \"$@\" > '" + marca.toUtf8() + ".parte'\nmv '" + marca.toUtf8() +
                   ".parte' '" + marca.toUtf8() + "'\n");
    programa.setPermissions(QFile::ReadOwner | QFile::ExeOwner | QFile::WriteOwner);
    programa.close();
    QString programas = tienda->carpeta() + L("/Programas");
    qputenv("ProgramFiles", programas.replace(QLatin1Char('/'), QLatin1Char('\\')).toUtf8());
    iniciarPrograma = original;
    ejecutar(QStringLiteral("delete from version"));
    ControlarVersionDelStore(*ctx);
    ASSERT_TRUE(QTest::qWaitFor([&marca] { return QFile::exists(marca); }, 20000));
    QFile escrita(marca);
    ASSERT_TRUE(escrita.open(QIODevice::ReadOnly));
    EXPECT_EQ(QString::fromUtf8(escrita.readAll()).trimmed(), L("--perfil ") + tienda->perfil());
}

EN_AMBOS_STORES(Arranque);

TEST(ArranqueSinPerfil, AnEmptyAnswerGoesOnWithTheConfigurationBesideTheProgramAndTheStoresThere) {
    QLocale anterior;
    QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Argentina));
    const Tienda tienda(QStringLiteral("ACCESS"));
    // Two profiles to choose from, and none chosen; the stores lie in the folder "db" beside the program.
    const QString carpeta = tienda.carpeta();
    QDir().mkpath(carpeta + L("/db"));
    for (const QFileInfo &store : QDir(carpeta).entryInfoList({QStringLiteral("*.db")}))
        ASSERT_TRUE(QFile::copy(store.filePath(), carpeta + L("/db/") + store.fileName()));
    ASSERT_TRUE(QFile::copy(tienda.perfil(), carpeta + L("/Otro.perfil.ini")));
    ASSERT_TRUE(EscribirIni(QStringLiteral("GENERAL"), QStringLiteral("LISTADO"), QStringLiteral("1"),
                            carpeta + L("/ZENDRA.ini")));
    AppContext nuevo;
    nuevo.ajustes = Ajustes(carpeta + L("/otros.ini"));
    nuevo.ProgramFolder = carpeta + QLatin1Char('/');
    nuevo.DataManager.carpetas = {carpeta};
    nuevo.DataManager.elegir = [](const std::vector<PerfilEncontrado> &) { return -1; };
    Arrancar(nuevo);
    EXPECT_TRUE(nuevo.ProfileIniPath.isEmpty());
    EXPECT_EQ(nuevo.ConfigFilePath, carpeta + L("/ZENDRA.ini"));
    EXPECT_EQ(nuevo.opciones.LISTADO, 1);
    EXPECT_EQ(LeerVersionDelStore(nuevo), versionMinima);
    EXPECT_TRUE(nuevo.DataManager.obtenerNombreDePerfilSeleccionado().isEmpty());
    EXPECT_TRUE(
        TituloDelMarco(nuevo.DataManager.obtenerNombreDePerfilSeleccionado(), 3, 5, 1, QStringLiteral("PC1"))
            .startsWith(L("Zendra Windows - v")));
    // The upgrade program has no profile to be told.
    Ejecutar(nuevo, QStringLiteral("INTERNOS"), QStringLiteral("delete from version"));
    const auto original = iniciarPrograma;
    QStringList argumentos{QStringLiteral("?")};
    iniciarPrograma = [&argumentos](const QString &, const QStringList &a) {
        argumentos = a;
        return true;
    };
    ControlarVersionDelStore(nuevo);
    iniciarPrograma = original;
    EXPECT_TRUE(argumentos.isEmpty());
    QLocale::setDefault(anterior);
}

TEST(TituloDelMarco, NamesProfileVersionAndWorkstation) {
    EXPECT_EQ(TituloDelMarco(QStringLiteral("Despachos"), 3, 4, 72, QStringLiteral("PC1")),
              L("[Despachos] Zendra Windows - v3.4.072 - PC [PC1]"));
}

TEST(TituloDelMarco, WithoutAProfileItStartsWithTheProgramsName) {
    EXPECT_EQ(TituloDelMarco({}, 3, 4, 5, QStringLiteral("PC1")), L("Zendra Windows - v3.4.005 - PC [PC1]"));
}

TEST(TituloDelMarco, ARevisionOf72IsThreeDigitsInTheTitleAndTwoInTheLabel) {
    EXPECT_TRUE(TituloDelMarco({}, 3, 4, 72, {}).contains(L("v3.4.072 ")));
    EXPECT_EQ(TextoDeVersion(3, 4, 72), L("3.4.72"));
}

TEST(Fechas, ATextThatIsNoDateStandsUnchanged) {
    EXPECT_TRUE(QRegularExpression(QStringLiteral("^Generado \\d\\d-\\d\\d-\\d{4}$"))
                    .match(TextoFechaZendra())
                    .hasMatch())
        << TextoFechaZendra().toStdString();
    EXPECT_FALSE(AFecha(QStringLiteral("Generado 14-06-2012")).isValid());
}

TEST(Fechas, TheNameOfTheWorkstationHasAtMost255Characters) {
    EXPECT_LE(NombreDeLaPC().size(), 255);
    EXPECT_FALSE(NombreDeLaPC().isEmpty());
}

/// A start on the profile at `ruta`; the text it ends with, or empty.
QString arrancarCon(const QString &ruta, const QString &carpeta) {
    AppContext nuevo;
    nuevo.ProgramFolder = carpeta + QLatin1Char('/');
    nuevo.ajustes = Ajustes(carpeta + L("/ajustes.ini"));
    QString error;
    if (!nuevo.DataManager.usarPerfil(ruta, &error)) return error;
    try {
        Arrancar(nuevo);
        return {};
    } catch (const ErrorDeStore &e) {
        return e.descripcion;
    } catch (const QString &texto) {
        return texto;
    }
}

class PerfilMalo : public ::testing::Test {
 protected:
    QString escribir(const QString &texto) const {
        QFile f(dir.path() + L("/malo.perfil.ini"));
        EXPECT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(texto.toUtf8());
        return f.fileName();
    }
    QTemporaryDir dir;
};

TEST_F(PerfilMalo, AProfileThatNamesAMissingFileSaysWhich) {
    const QString texto =
        arrancarCon(escribir(QStringLiteral("[PERFIL]\nnombre=M\n[NCM]\ndriver=archivo\narchivo=falta.db\n")),
                    dir.path());
    EXPECT_TRUE(texto.contains(dir.path() + L("/falta.db"))) << texto.toStdString();
    EXPECT_TRUE(texto.contains(L("DbUpgrade3"))) << texto.toStdString();
}

TEST_F(PerfilMalo, AFileThatIsNoStoreSaysWhich) {
    QFile basura(dir.path() + L("/basura.db"));
    ASSERT_TRUE(basura.open(QIODevice::WriteOnly));
    basura.write(QByteArray(5000, 'x'));
    basura.close();
    QString perfil;
    for (const QString &entidad : StoreProfiles::entidades())
        perfil += L("[") + entidad + L("]\ndriver=archivo\narchivo=basura.db\n");
    const QString texto = arrancarCon(escribir(perfil), dir.path());
    EXPECT_TRUE(texto.contains(L("basura.db"))) << texto.toStdString();
    EXPECT_TRUE(texto.contains(L("no es un store legible"))) << texto.toStdString();
}

TEST_F(PerfilMalo, AServerThatIsNotThereSaysWhich) {
    // A port that nobody listens on: taken and given back.
    QTcpServer libre;
    ASSERT_TRUE(libre.listen(QHostAddress::LocalHost));
    const int puerto = libre.serverPort();
    libre.close();
    QString perfil;
    for (const QString &entidad : StoreProfiles::entidades())
        perfil += L("[") + entidad +
                  L("]\ndriver=servidor\nhost=127.0.0.1\nbase=zendra\nusuario=u\npuerto=") +
                  QString::number(puerto) + QLatin1Char('\n');
    const QString texto = arrancarCon(escribir(perfil), dir.path());
    EXPECT_TRUE(texto.contains(L("127.0.0.1:") + QString::number(puerto))) << texto.toStdString();
    EXPECT_TRUE(texto.contains(L("verifique"))) << texto.toStdString();
}

TEST_F(PerfilMalo, AFileThatIsNoProfileSaysSo) {
    const QString texto = arrancarCon(escribir(QStringLiteral("hola\n")), dir.path());
    EXPECT_TRUE(texto.contains(L("malo.perfil.ini"))) << texto.toStdString();
}

TEST_F(PerfilMalo, LeavingTheChoiceOfAProfileEndsTheStartWithAWord) {
    QFile::copy(escribir(QStringLiteral("[PERFIL]\nnombre=A\n")), dir.path() + L("/otro.perfil.ini"));
    AppContext nuevo;
    nuevo.ProgramFolder = dir.path() + QLatin1Char('/');
    nuevo.ajustes = Ajustes(dir.path() + L("/ajustes.ini"));
    nuevo.DataManager.carpetas = {dir.path()};
    std::size_t ofrecidos = 0;
    nuevo.DataManager.elegir = [&ofrecidos](const std::vector<PerfilEncontrado> &perfiles) {
        ofrecidos = perfiles.size();
        return -1;
    };
    QString texto;
    try {
        Arrancar(nuevo);
    } catch (const ErrorDeStore &e) {
        texto = e.descripcion;
    }
    EXPECT_EQ(ofrecidos, 2U);
    EXPECT_TRUE(nuevo.ProfileIniPath.isEmpty());
    EXPECT_TRUE(texto.contains(L("perfil"))) << texto.toStdString();
}

}  // namespace
