// What the batch program says of a wrong command line and of stores that it cannot work on.

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTcpServer>
#include <QTemporaryDir>

#include "frame/store/StoreProfiles.h"
#include "tests/support/lote.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

class Argumentos : public ::testing::Test {
 protected:
    QString perfil(const QByteArray &texto) const { return Escribir(dir.path(), u"p.perfil.ini"_s, texto); }
    Corrida lote(const QStringList &argumentos) const { return Lote(dir.path(), argumentos); }

    /// One line on standard error, nothing on standard output, status 2.
    void esperarPedidoMalo(const QStringList &argumentos, const char *dice) const {
        const Corrida c = lote(argumentos);
        EXPECT_EQ(c.estado, 2) << argumentos.join(' ').toStdString();
        EXPECT_EQ(c.errores.count('\n'), 1) << c.errores.toStdString();
        EXPECT_TRUE(c.errores.contains(QString::fromUtf8(dice)))
            << argumentos.join(' ').toStdString() << ": " << c.errores.toStdString();
        EXPECT_TRUE(c.lineas.empty() && c.ilegibles.isEmpty());
    }
    /// One message with all of `dice`, then the result; nothing on standard error, status 1.
    void esperarFalla(const QStringList &argumentos, const QStringList &dice) const {
        const Corrida c = lote(argumentos);
        EXPECT_EQ(c.estado, 1);
        EXPECT_EQ(c.errores, QString());
        EXPECT_TRUE(c.ilegibles.isEmpty());
        ASSERT_EQ(c.lineas.size(), 2U);
        const QString texto = c.textos().value(0);
        EXPECT_FALSE(texto.contains('\n')) << texto.toStdString();
        for (const QString &parte : dice)
            EXPECT_TRUE(texto.contains(parte)) << parte.toStdString() << " in " << texto.toStdString();
        EXPECT_EQ(c.lineas[0].value("icono"_L1).toString(), "critico"_L1);
        EXPECT_EQ(c.resultado().value("estado"_L1).toInt(), 1);
    }

    QTemporaryDir dir;
};

TEST_F(Argumentos, AWrongArgumentIsOneClearLineAndStatusTwo) {
    const QString p = perfil("[PERFIL]\nnombre=x\n");
    struct Caso {
        QStringList argumentos;
        const char *dice;
    };
    const Caso casos[] = {
        {{}, "Falta --perfil"},
        {{"listar"}, "Falta --perfil"},
        {{"--perfil"}, "le falta su valor"},
        {{"--perfil", p}, "Falta el comando"},
        {{"--perfil", p, "volar", "A1"}, "No existe el comando \"volar\""},
        {{"--perfil", p, "ARMAR", "A1"}, "No existe el comando \"ARMAR\""},
        {{"--perfil", p, "armar"}, "la clave de una operación"},
        {{"--perfil", p, "armar", "  "}, "la clave de una operación"},
        {{"--perfil", p, "armar", "A1", "A2"}, "la clave de una operación"},
        {{"--perfil", p, "listar", "A1"}, "no lleva argumentos"},
        {{"--perfil", p, "crear", QString(41, 'k')}, "40 caracteres"},
        {{"--perfil", p, "--volar", "listar"}, "No existe la opción --volar"},
        {{"--perfil", "/no/hay.perfil.ini", "listar"}, "/no/hay.perfil.ini"},
        {{"--perfil", p, "--opciones", "/no/hay.json", "listar"}, "/no/hay.json"},
        {{"--perfil", p, "--respuestas", "/no/hay.json", "listar"}, "/no/hay.json"},
        {{"--perfil", p, "--traza", "/no/hay/traza.txt", "listar"}, "/no/hay/traza.txt"},
    };
    for (const Caso &caso : casos) esperarPedidoMalo(caso.argumentos, caso.dice);
}

TEST_F(Argumentos, OptionsAndAnswersThatCannotBeUnderstoodAreRefusedBeforeAnyStoreIsTouched) {
    const QString p = perfil("[PERFIL]\nnombre=x\n");
    struct Caso {
        const char *argumento, *json, *dice;
    };
    const Caso casos[] = {
        {"--opciones", "{", "no es JSON"},
        {"--opciones", "[]", "debe ser un objeto"},
        {"--opciones", R"({"ARMARITEMS":1})", "\"ARMARITEMS\" no existe"},
        {"--opciones", R"({"armaritem":1})", "\"armaritem\" no existe"},
        {"--opciones", R"({"ARMARITEM":true})", "\"ARMARITEM\" no admite"},
        {"--opciones", R"({"VrySbtDup":"Si"})", "\"VrySbtDup\" no admite"},
        {"--opciones", R"({"ChMulta":1})", "\"ChMulta\" no admite"},
        {"--opciones", R"({"IVARIN":"veintiuno"})", "\"IVARIN\" no admite"},
        {"--opciones", R"({"DJAI_USAR_DESCRIPCION":"OTRA"})", "\"DJAI_USAR_DESCRIPCION\" no admite"},
        {"--opciones", R"({"DJAI_USAR_DESCRIPCION":null})", "\"DJAI_USAR_DESCRIPCION\" no admite"},
        {"--respuestas", "no", "no es JSON"},
        {"--respuestas", "{}", "lista de textos"},
        {"--respuestas", "[true]", "lista de textos"},
    };
    for (const Caso &caso : casos) {
        const QString archivo = Escribir(dir.path(), u"a.json"_s, caso.json);
        esperarPedidoMalo({"--perfil", p, L(caso.argumento), archivo, "armar", "A1"}, caso.dice);
    }
}

TEST_F(Argumentos, AFileThatIsNoProfileSaysWhich) {
    const QString p = perfil("hola\n");
    esperarFalla({"--perfil", p, "--ajustes", dir.filePath("a.ini"), "listar"}, {p, "no es un perfil"});
    const QString sinMotor = perfil("[INTERNOS]\ndriver=otro\n");
    esperarFalla({"--perfil", sinMotor, "--ajustes", dir.filePath("a.ini"), "listar"}, {sinMotor, "otro"});
}

TEST_F(Argumentos, AProfileThatNamesAMissingFileSaysWhichAndWhatToDo) {
    const QString p = perfil("[INTERNOS]\ndriver=archivo\narchivo=falta.db\n");
    esperarFalla({"--perfil", p, "--ajustes", dir.filePath("a.ini"), "armar", "A1"},
                 {dir.filePath("falta.db"), "DbUpgrade3"});
    EXPECT_FALSE(QFile::exists(dir.filePath("falta.db"))) << "it is not made";
}

TEST_F(Argumentos, AFileThatIsNoStoreSaysWhich) {
    Escribir(dir.path(), u"basura.db"_s, QByteArray(5000, 'x'));
    QByteArray texto;
    for (const QString &entidad : StoreProfiles::entidades())
        texto += "[" + entidad.toUtf8() + "]\ndriver=archivo\narchivo=basura.db\n";
    esperarFalla({"--perfil", perfil(texto), "--ajustes", dir.filePath("a.ini"), "listar"},
                 {dir.filePath("basura.db"), "no es un store legible"});
}

TEST_F(Argumentos, AServerThatIsNotThereSaysWhich) {
    QTcpServer libre;
    ASSERT_TRUE(libre.listen(QHostAddress::LocalHost));
    const int puerto = libre.serverPort();
    libre.close();
    const QString p = dir.filePath("s.perfil.ini");
    ASSERT_TRUE(StoreProfiles::escribirPerfilDeServidor(p, u"S"_s, u"127.0.0.1"_s, puerto, u"zendra"_s,
                                                        u"u"_s, dir.path()));
    Escribir(dir.path(), u"usuario.db"_s, {});
    esperarFalla({"--perfil", p, "--ajustes", dir.filePath("a.ini"), "listar"},
                 {"127.0.0.1:"_L1 + QString::number(puerto), "verifique"});
}

class Version : public EnAmbosStores {};

TEST_P(Version, AConfigurationThatCannotBeReadSaysWhichFileAndWhatToDo) {
    Escribir(tienda->carpeta(), u"Prueba.perfil.cfg"_s, "[GENERAL]\r\nIVARIN=veintiuno\r\n");
    const Corrida c = Lote(tienda->carpeta(), {"--perfil", tienda->perfil(), "--ajustes",
                                               tienda->carpeta() + "/a.ini", "listar"});
    EXPECT_EQ(c.estado, 1);
    EXPECT_EQ(c.textos(), QStringList{u"No coinciden los tipos: IVARIN=veintiuno no es un "
                                      "número; corríjalo en %1/Prueba.perfil.cfg."_s.arg(tienda->carpeta())});
}

TEST_P(Version, StoresOfAnotherVersionAreLeftAloneAndTheUpgradeIsNamed) {
    for (const char *cambio : {"update version set valor = '329' where propiedad = 'version'",
                               "delete from version where propiedad = 'version'", "drop table version"}) {
        ejecutar(L(cambio));
        for (const QStringList &orden : {QStringList{"listar"}, {"crear", "A1"}, {"armar", "A1"}}) {
            const Corrida c = Lote(
                tienda->carpeta(),
                QStringList{"--perfil", tienda->perfil(), "--ajustes", tienda->carpeta() + "/a.ini"} + orden);
            EXPECT_EQ(c.estado, 1);
            ASSERT_EQ(c.lineas.size(), 2U) << c.errores.toStdString();
            const QString texto = c.textos()[0];
            EXPECT_TRUE(texto.contains(tienda->perfil()) && texto.contains("330"_L1) &&
                        texto.contains("DbUpgrade3 --perfil"_L1))
                << texto.toStdString();
        }
    }
    EXPECT_EQ(valor(u"select count(*) as n from caratula"_s), "0"_L1);
}

TEST_P(Version, StoresWithoutTablesAreToldTheSameWay) {
    ejecutar(u"drop table version"_s);
    ejecutar(u"drop table control_fecha"_s, u"NCM"_s);
    const Corrida c = Lote(tienda->carpeta(), {"--perfil", tienda->perfil(), "--ajustes",
                                               tienda->carpeta() + "/a.ini", "listar"});
    EXPECT_EQ(c.estado, 1);
    ASSERT_EQ(c.textos().size(), 1);
    EXPECT_TRUE(c.textos()[0].contains("DbUpgrade3 --perfil"_L1)) << c.textos()[0].toStdString();
}

EN_AMBOS_STORES(Version);

}  // namespace
