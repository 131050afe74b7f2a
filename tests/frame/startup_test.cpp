// The road to the main menu: order, version, dates, title, and what a bad profile says.

#include "frame/startup.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QLocale>
#include <QProcess>
#include <QRegularExpression>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QTest>

#include "frame/base/ini.h"
#include "subitems/SuffixChecker.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

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

/// Starts a context of its own on the stores and answers it.
std::unique_ptr<AppContext> arrancado(const Tienda &tienda, Registro &registro) {
    auto nuevo = std::make_unique<AppContext>();
    nuevo->ajustes = Ajustes(tienda.carpeta() + "/otros.ini"_L1);
    nuevo->ProgramFolder = tienda.carpeta() + QLatin1Char('/');
    nuevo->dialogos = DialogosDePrueba(registro);
    nuevo->DataManager.carpetas = {tienda.carpeta()};
    Arrancar(*nuevo);
    return nuevo;
}

TEST_P(Arranque, AWorkstationWithoutADecimalSeparatorIsToldOnceAndHasTheComma) {
    const auto leer = numeros::leerSeparadorDelSistema;
    for (const char16_t *dicho : {u"", u"\u066b", u"·"}) {
        numeros::leerSeparadorDelSistema = [dicho] { return QString::fromUtf16(dicho); };
        registro = {};
        EXPECT_EQ(arrancado(*tienda, registro)->SeparadorDecimal, u',');
        QStringList textos;
        for (const Mensaje &m : registro.mensajes) textos << m.texto;
        EXPECT_EQ(textos.count(u"No se puedo obtener la información"_s), 1);
        EXPECT_EQ(textos.value(0), u"No se puedo obtener la información"_s);
    }
    numeros::leerSeparadorDelSistema = leer;
    // A locale that says so by itself.
    QLocale::setDefault(QLocale(QLocale::Arabic, QLocale::Egypt));
    registro = {};
    EXPECT_EQ(arrancado(*tienda, registro)->SeparadorDecimal, u',');
    ASSERT_FALSE(registro.mensajes.empty());
    EXPECT_EQ(registro.mensajes[0].texto, u"No se puedo obtener la información"_s);
}

TEST_P(Arranque, AWorkstationWithADecimalSeparatorHearsNothingOfIt) {
    const auto leer = numeros::leerSeparadorDelSistema;
    for (const char16_t dicho : {u'.', u','}) {
        numeros::leerSeparadorDelSistema = [dicho] { return QString(dicho); };
        registro = {};
        EXPECT_EQ(arrancado(*tienda, registro)->SeparadorDecimal, dicho);
        for (const Mensaje &m : registro.mensajes)
            EXPECT_NE(m.texto, u"No se puedo obtener la información"_s);
    }
    numeros::leerSeparadorDelSistema = leer;
}

TEST_P(Arranque, FillsTheContextAndSetsThePointerBack) {
    ejecutar(u"insert into control_fecha (fecha) values ('2026-01-12 00:00:00')"_s, u"NCM"_s);
    AppContext nuevo;
    nuevo.ajustes = Ajustes(tienda->carpeta() + "/otros.ini"_L1);
    nuevo.ProgramFolder = tienda->carpeta() + QLatin1Char('/');
    std::vector<bool> relojes;
    nuevo.dialogos.reloj = [&relojes](bool si) { relojes.push_back(si); };
    nuevo.DataManager.carpetas = {tienda->carpeta()};
    Arrancar(nuevo);
    EXPECT_EQ(nuevo.ProfileIniPath, tienda->perfil()) << "one profile is taken without a question";
    EXPECT_EQ(nuevo.ConnNcm, &nuevo.conexion(u"NCM"_s));
    EXPECT_EQ(nuevo.ConnInternos, &nuevo.conexion(u"INTERNOS"_s));
    EXPECT_EQ(nuevo.ConnCatalogos, &nuevo.conexion(u"CATALOGOS"_s));
    EXPECT_EQ(nuevo.ConnSystablas, &nuevo.conexion(u"SYSTABLAS"_s));
    const QString hoy =
        QDate::currentDate().toString(GetParam() == std::string("SQL") ? u"yyyy-MM-dd"_s : u"MM/dd/yyyy"_s);
    EXPECT_TRUE(nuevo.TodayInternos.contains(hoy)) << nuevo.TodayInternos.toStdString();
    EXPECT_EQ(nuevo.DateKeyPattern, "yyyyMMdd"_L1);
    EXPECT_EQ(nuevo.ConfigFilePath, tienda->carpeta() + "/ZENDRA.ini"_L1);
    EXPECT_EQ(nuevo.NomenclatureDate, u"lunes, 12 de enero de 2026"_s);
    ASSERT_FALSE(relojes.empty());
    EXPECT_TRUE(relojes.front());
    EXPECT_FALSE(relojes.back());
    EXPECT_EQ(SuffixCheckerClass(nuevo).Validar(u"0000.00.00.000A"_s, {}), 1) << "it has its manager";
}

TEST_P(Arranque, HandlesKeptInTheContextStayUsableAfterEveryConnectionWasClosed) {
    Conexion *antes = ctx->ConnNcm;
    ctx->DataManager.CloseAllDataConnection();
    EXPECT_EQ(&ctx->conexion(u"NCM"_s), antes);
    antes->Sql = u"select * from control_fecha"_s;
    Recordset rs;
    EXPECT_FALSE(antes->crearrs(rs));
}

TEST_P(Arranque, AnEmptyControlFechaLeavesNoNomenclatureDateAndTheLabelAsItWas) {
    EXPECT_TRUE(LeerFechaDelNomenclador(*ctx).isEmpty());
    EXPECT_EQ(TextoNomenclador(*ctx), "Leyendo Fecha...."_L1);
}

TEST_P(Arranque, TheNewestDateOfTheNomenclatureIsShownInLongForm) {
    for (const char *fecha : {"2026-01-12", "2026-03-05", "2025-12-31"})
        ejecutar("insert into control_fecha (fecha) values ('"_L1 + L(fecha) + " 00:00:00')"_L1, u"NCM"_s);
    EXPECT_EQ(LeerFechaDelNomenclador(*ctx), u"jueves, 5 de marzo de 2026"_s);
    EXPECT_EQ(TextoNomenclador(*ctx), u"jueves, 5 de marzo de 2026"_s);
}

TEST_P(Arranque, TheLicenceDataDateIsShownInShortFormBehindItsLabel) {
    EXPECT_EQ(TextoFechaDatosLNAPI(*ctx), "Fecha:  "_L1);
    ejecutar(u"insert into LNAPIFechaDeDatos (fecha) values ('2026-01-12 00:00:00')"_s, u"NCM"_s);
    EXPECT_EQ(TextoFechaDatosLNAPI(*ctx), "Fecha:  12/1/26"_L1);
}

TEST_P(Arranque, AStoreBelow330AsksForItsUpgradeAndStartsIt) {
    ejecutar(u"update version set valor = '329' where propiedad = 'version'"_s);
    EXPECT_EQ(ControlarVersionDelStore(*ctx), 329);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto, "Se necesita actualizar la base de datos"_L1);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Informacion);
    EXPECT_EQ(iniciados, QStringList{u"C:\\Programas\\Zendra\\DbUpgrade3.exe"_s});
    EXPECT_EQ(conArgumentos, (QStringList{u"--perfil"_s, tienda->perfil()}));
}

TEST_P(Arranque, AWorkstationThatOnlyWorksIsToldWhoUpgradesAndStartsNothing) {
    ASSERT_TRUE(EscribirIni(u"PERFIL"_s, u"dueno"_s, u"oficina_dueno"_s, tienda->perfil()));
    ASSERT_TRUE(ctx->DataManager.usarPerfil(tienda->perfil()));
    ctx->DataManager.LoadParameters();
    EXPECT_EQ(ControlarVersionDelStore(*ctx), 330);
    EXPECT_TRUE(registro.mensajes.empty());
    ejecutar(u"update version set valor = '329' where propiedad = 'version'"_s);
    EXPECT_EQ(ControlarVersionDelStore(*ctx), 329);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(
        registro.mensajes[0].texto.toStdString(),
        "Se necesita actualizar la base de datos; pida a quien la administra que ejecute DbUpgrade3 con el "
        "perfil de su dueño, el rol oficina_dueno (Prueba.dueno.ini, donde se creó la base).");
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Informacion);
    EXPECT_TRUE(iniciados.isEmpty());
}

TEST_P(Arranque, AProfileWithAPasswordThatOthersMayReadIsToldOnceAndTheStartGoesOn) {
    if (GetParam() == std::string("ACCESS")) GTEST_SKIP() << "a profile of files holds no password";
    ASSERT_TRUE(EscribirIni(u"INTERNOS"_s, u"clave"_s, u"secreta"_s, tienda->perfil()));
    ASSERT_TRUE(
        QFile::setPermissions(tienda->perfil(), QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup));
    Registro otro;
    EXPECT_NE(arrancado(*tienda, otro)->ConnInternos, nullptr);
    ASSERT_EQ(otro.mensajes.size(), 1U);
    EXPECT_EQ(
        otro.mensajes[0].texto,
        u"Otras personas de esta PC pueden leer el perfil %1, que guarda una contraseña; deje que sólo su "
        "dueño lo lea (chmod 600)."_s.arg(tienda->perfil()));
    EXPECT_EQ(otro.mensajes[0].icono, Icono::Exclamacion);
}

TEST_P(Arranque, AStoreWithoutAVersionRowCountsAsOlder) {
    ejecutar(u"delete from version"_s);
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
    ejecutar(u"drop table version"_s);
    EXPECT_EQ(ControlarVersionDelStore(*ctx), 300);
    EXPECT_TRUE(registro.mensajes.empty());
    EXPECT_TRUE(iniciados.isEmpty());
    EXPECT_THROW(LeerVersionDelStore(*ctx), Falla);
}

TEST_P(Arranque, AVersionRowThatIsNoNumberIsDroppedInSilence) {
    for (const char *valor : {"'abc'", "''", "null", "'3 30'", "'99999999999'"}) {
        ejecutar("update version set valor = "_L1 + L(valor) + " where propiedad = 'version'"_L1);
        EXPECT_EQ(ControlarVersionDelStore(*ctx), 300) << valor;
        EXPECT_THROW(LeerVersionDelStore(*ctx), Falla) << valor;
    }
    EXPECT_TRUE(registro.mensajes.empty());
    EXPECT_TRUE(iniciados.isEmpty());
}

TEST_P(Arranque, AnUpgradeProgramThatIsNotThereFallsUnderTheSameSilence) {
    iniciarPrograma = original;
    qputenv("ProgramFiles", QByteArray("/no/existe"));
    ejecutar(u"delete from version"_s);
    EXPECT_EQ(ControlarVersionDelStore(*ctx), 300);
    EXPECT_EQ(registro.mensajes.size(), 1U);
}

TEST_P(Arranque, TheUpgradeProgramIsFoundWhereTheInstallationPutIt) {
    QDir().mkpath(tienda->carpeta() + "/Programas/Zendra"_L1);
    const QString marca = tienda->carpeta() + "/marca"_L1;
    QFile programa(tienda->carpeta() + "/Programas/Zendra/DbUpgrade3"_L1);
    ASSERT_TRUE(programa.open(QIODevice::WriteOnly));
    programa.write("#!/bin/sh\necho \"$@\" > '" + marca.toUtf8() + ".parte'\nmv '" + marca.toUtf8() +
                   ".parte' '" + marca.toUtf8() + "'\n");
    programa.setPermissions(QFile::ReadOwner | QFile::ExeOwner | QFile::WriteOwner);
    programa.close();
    QString programas = tienda->carpeta() + "/Programas"_L1;
    qputenv("ProgramFiles", programas.replace(QLatin1Char('/'), QLatin1Char('\\')).toUtf8());
    iniciarPrograma = original;
    ejecutar(u"delete from version"_s);
    ControlarVersionDelStore(*ctx);
    ASSERT_TRUE(QTest::qWaitFor([&marca] { return QFile::exists(marca); }, 20000));
    QFile escrita(marca);
    ASSERT_TRUE(escrita.open(QIODevice::ReadOnly));
    EXPECT_EQ(QString::fromUtf8(escrita.readAll()).trimmed(), "--perfil "_L1 + tienda->perfil());
}

EN_AMBOS_STORES(Arranque);

TEST(ArranqueSinPerfil, AnEmptyAnswerGoesOnWithTheConfigurationBesideTheProgramAndTheStoresThere) {
    QLocale anterior;
    QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Argentina));
    const Tienda tienda(u"ACCESS"_s);
    // Two profiles to choose from, and none chosen; the stores lie in the folder "db" beside the program.
    const QString carpeta = tienda.carpeta();
    QDir().mkpath(carpeta + "/db"_L1);
    for (const QFileInfo &store : QDir(carpeta).entryInfoList({u"*.db"_s}))
        ASSERT_TRUE(QFile::copy(store.filePath(), carpeta + "/db/"_L1 + store.fileName()));
    ASSERT_TRUE(QFile::copy(tienda.perfil(), carpeta + "/Otro.perfil.ini"_L1));
    ASSERT_TRUE(EscribirIni(u"GENERAL"_s, u"LISTADO"_s, u"1"_s, carpeta + "/ZENDRA.ini"_L1));
    AppContext nuevo;
    nuevo.ajustes = Ajustes(carpeta + "/otros.ini"_L1);
    nuevo.ProgramFolder = carpeta + QLatin1Char('/');
    nuevo.DataManager.carpetas = {carpeta};
    nuevo.DataManager.elegir = [](const std::vector<PerfilEncontrado> &) { return -1; };
    Arrancar(nuevo);
    EXPECT_TRUE(nuevo.ProfileIniPath.isEmpty());
    EXPECT_EQ(nuevo.ConfigFilePath, carpeta + "/ZENDRA.ini"_L1);
    EXPECT_EQ(nuevo.opciones.LISTADO, 1);
    EXPECT_EQ(LeerVersionDelStore(nuevo), versionMinima);
    EXPECT_TRUE(nuevo.DataManager.obtenerNombreDePerfilSeleccionado().isEmpty());
    EXPECT_TRUE(TituloDelMarco(nuevo.DataManager.obtenerNombreDePerfilSeleccionado(), 3, 5, 1, u"PC1"_s)
                    .startsWith("Zendra Windows - v"_L1));
    // The upgrade program has no profile to be told.
    Ejecutar(nuevo, u"INTERNOS"_s, u"delete from version"_s);
    const auto original = iniciarPrograma;
    QStringList argumentos{u"?"_s};
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
    EXPECT_EQ(TituloDelMarco(u"Despachos"_s, 3, 4, 72, u"PC1"_s),
              "[Despachos] Zendra Windows - v3.4.072 - PC [PC1]"_L1);
}

TEST(TituloDelMarco, WithoutAProfileItStartsWithTheProgramsName) {
    EXPECT_EQ(TituloDelMarco({}, 3, 4, 5, u"PC1"_s), "Zendra Windows - v3.4.005 - PC [PC1]"_L1);
}

TEST(TituloDelMarco, ARevisionOf72IsThreeDigitsInTheTitleAndTwoInTheLabel) {
    EXPECT_TRUE(TituloDelMarco({}, 3, 4, 72, {}).contains("v3.4.072 "_L1));
    EXPECT_EQ(TextoDeVersion(3, 4, 72), "3.4.72"_L1);
}

TEST(Fechas, ATextThatIsNoDateStandsUnchanged) {
    EXPECT_TRUE(QRegularExpression(u"^Generado \\d\\d-\\d\\d-\\d{4}$"_s).match(TextoFechaZendra()).hasMatch())
        << TextoFechaZendra().toStdString();
    EXPECT_FALSE(AFecha(u"Generado 14-06-2012"_s).isValid());
}

TEST(Fechas, TheDayOfTheBuildIsTheOneThatTheBuildWrote) {
    QFile cabecera(CarpetaDeConstruccion() + "/generado/build_date.h"_L1);
    ASSERT_TRUE(cabecera.open(QIODevice::ReadOnly)) << cabecera.fileName().toStdString();
    EXPECT_EQ(QString::fromLatin1(cabecera.readAll()).section('"', 1, 1), TextoFechaZendra().section(' ', 1));
}

TEST(Fechas, ABuildThatIsToldItsDayBearsThatDayAndWritesItOnlyOnce) {
    QTemporaryDir dir;
    const QString cabecera = dir.filePath("fecha.h");
    const auto escribir = [&cabecera](const char *epoca) {
        QProcess p;
        QProcessEnvironment entorno = QProcessEnvironment::systemEnvironment();
        entorno.insert("SOURCE_DATE_EPOCH", L(epoca));
        p.setProcessEnvironment(entorno);
        p.start("cmake", {"-DARCHIVO=" + cabecera, "-P", CarpetaDeFuentes() + "/cmake/BuildDate.cmake"});
        ASSERT_TRUE(p.waitForFinished());
        EXPECT_EQ(p.exitCode(), 0) << p.readAllStandardError().toStdString();
    };
    const auto leida = [&cabecera] {
        QFile f(cabecera);
        return f.open(QIODevice::ReadOnly) ? f.readAll().toStdString() : std::string();
    };
    // 14 June 2012 at noon, and three hours later.
    escribir("1339675200");
    EXPECT_EQ(leida(), "#define ZENDRA_FECHA_DE_GENERACION \"14-06-2012\"\n");
    const QDateTime antes = QFileInfo(cabecera).lastModified();
    escribir("1339686000");
    EXPECT_EQ(QFileInfo(cabecera).lastModified(), antes) << "a build within the day compiles nothing again";
    escribir("0");
    EXPECT_EQ(leida(), "#define ZENDRA_FECHA_DE_GENERACION \"01-01-1970\"\n");
}

TEST(Fechas, TheNameOfTheWorkstationHasAtMost255Characters) {
    EXPECT_LE(NombreDeLaPC().size(), 255);
    EXPECT_FALSE(NombreDeLaPC().isEmpty());
}

/// A start on the profile at `ruta`; the text it ends with, or empty.
QString arrancarCon(const QString &ruta, const QString &carpeta) {
    AppContext nuevo;
    nuevo.ProgramFolder = carpeta + QLatin1Char('/');
    nuevo.ajustes = Ajustes(carpeta + "/ajustes.ini"_L1);
    QString error;
    if (!nuevo.DataManager.usarPerfil(ruta, &error)) return error;
    try {
        Arrancar(nuevo);
        return {};
    } catch (const Falla &e) {
        return e.descripcion;
    }
}

class PerfilMalo : public ::testing::Test {
 protected:
    QString escribir(const QString &texto) const {
        QFile f(dir.path() + "/malo.perfil.ini"_L1);
        EXPECT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(texto.toUtf8());
        return f.fileName();
    }
    QTemporaryDir dir;
};

TEST_F(PerfilMalo, AProfileThatNamesAMissingFileSaysWhich) {
    const QString texto =
        arrancarCon(escribir(u"[PERFIL]\nnombre=M\n[NCM]\ndriver=archivo\narchivo=falta.db\n"_s), dir.path());
    EXPECT_TRUE(texto.contains(dir.path() + "/falta.db"_L1)) << texto.toStdString();
    EXPECT_TRUE(texto.contains("DbUpgrade3"_L1)) << texto.toStdString();
}

TEST_F(PerfilMalo, AFileThatIsNoStoreSaysWhich) {
    QFile basura(dir.path() + "/basura.db"_L1);
    ASSERT_TRUE(basura.open(QIODevice::WriteOnly));
    basura.write(QByteArray(5000, 'x'));
    basura.close();
    QString perfil;
    for (const QString &entidad : StoreProfiles::entidades())
        perfil += "["_L1 + entidad + "]\ndriver=archivo\narchivo=basura.db\n"_L1;
    const QString texto = arrancarCon(escribir(perfil), dir.path());
    EXPECT_TRUE(texto.contains("basura.db"_L1)) << texto.toStdString();
    EXPECT_TRUE(texto.contains("no es un store legible"_L1)) << texto.toStdString();
}

TEST_F(PerfilMalo, AServerThatIsNotThereSaysWhich) {
    // A port that nobody listens on: taken and given back.
    QTcpServer libre;
    ASSERT_TRUE(libre.listen(QHostAddress::LocalHost));
    const int puerto = libre.serverPort();
    libre.close();
    QString perfil;
    for (const QString &entidad : StoreProfiles::entidades())
        perfil += "["_L1 + entidad +
                  "]\ndriver=servidor\nhost=127.0.0.1\nbase=zendra\nusuario=u\npuerto="_L1 +
                  QString::number(puerto) + QLatin1Char('\n');
    const QString texto = arrancarCon(escribir(perfil), dir.path());
    EXPECT_TRUE(texto.contains("127.0.0.1:"_L1 + QString::number(puerto))) << texto.toStdString();
    EXPECT_TRUE(texto.contains("verifique"_L1)) << texto.toStdString();
}

TEST_F(PerfilMalo, AFileThatIsNoProfileSaysSo) {
    const QString texto = arrancarCon(escribir(u"hola\n"_s), dir.path());
    EXPECT_TRUE(texto.contains("malo.perfil.ini"_L1)) << texto.toStdString();
}

TEST_F(PerfilMalo, LeavingTheChoiceOfAProfileEndsTheStartWithAWord) {
    QFile::copy(escribir(u"[PERFIL]\nnombre=A\n"_s), dir.path() + "/otro.perfil.ini"_L1);
    AppContext nuevo;
    nuevo.ProgramFolder = dir.path() + QLatin1Char('/');
    nuevo.ajustes = Ajustes(dir.path() + "/ajustes.ini"_L1);
    nuevo.DataManager.carpetas = {dir.path()};
    std::size_t ofrecidos = 0;
    nuevo.DataManager.elegir = [&ofrecidos](const std::vector<PerfilEncontrado> &perfiles) {
        ofrecidos = perfiles.size();
        return -1;
    };
    QString texto;
    try {
        Arrancar(nuevo);
    } catch (const Falla &e) {
        texto = e.descripcion;
    }
    EXPECT_EQ(ofrecidos, 2U);
    EXPECT_TRUE(nuevo.ProfileIniPath.isEmpty());
    EXPECT_TRUE(texto.contains("perfil"_L1)) << texto.toStdString();
}

}  // namespace
