// The first start of the desktop program on a machine that has no profile, as a process, by keys.

#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

#include "tests/escritorio/escritorio.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

class PrimerInicio : public ::testing::Test {
 protected:
    void empezar() {
        programa = std::make_unique<Escritorio>(dir.path());
        ASSERT_TRUE(programa->Empezar()) << programa->Errores().toStdString();
    }
    void esperar(const char *ventana) {
        ASSERT_TRUE(programa->Esperar(QLatin1String(ventana)))
            << ventana << ", not " << programa->Visto().toStdString();
    }
    void terminar(int estado = 0) {
        programa->Pulsar(Qt::Key_Escape);
        EXPECT_EQ(programa->EsperarFin(), estado);
        EXPECT_EQ(programa->Errores().toStdString(), "");
    }
    /// What stands in the program's folder beside the program.
    std::string hecho() const {
        return QDir(dir.path())
            .entryList({u"*.ini"_s, u"*.cfg"_s, u"db"_s, u".creando*"_s},
                       QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name)
            .join(QLatin1Char(' '))
            .toStdString();
    }
    int operaciones() const {
        AppContext ctx;
        EXPECT_TRUE(ctx.DataManager.usarPerfil(dir.filePath(u"ZENDRA3.perfil.ini"_s)));
        Recordset rs;
        Consultar(ctx, u"INTERNOS"_s, u"select interno from caratula"_s, rs);
        return rs.RecordCount();
    }

    QTemporaryDir dir;
    std::unique_ptr<Escritorio> programa;
};

TEST_F(PrimerInicio, EnterMakesTheDemonstrationAndGoesOnToTheMenu) {
    empezar();
    esperar("FrmPrimerInicio|LstStores");
    programa->Pulsar(Qt::Key_Return);
    esperar("FrmPrincipal|GrdMenuMain");
    terminar();
    EXPECT_EQ(hecho(), "ZENDRA3.perfil.cfg ZENDRA3.perfil.ini db");
    EXPECT_EQ(operaciones(), 8);
    // The next start has nothing to offer.
    empezar();
    esperar("FrmPrincipal|GrdMenuMain");
    terminar();
}

TEST_F(PrimerInicio, TheSecondChoiceMakesThemEmpty) {
    empezar();
    esperar("FrmPrimerInicio|LstStores");
    programa->Pulsar(Qt::Key_Down);
    programa->Pulsar(Qt::Key_Return);
    esperar("FrmPrincipal|GrdMenuMain");
    terminar();
    EXPECT_EQ(hecho(), "ZENDRA.ini ZENDRA3.perfil.ini db");
    EXPECT_EQ(operaciones(), 0);
}

TEST_F(PrimerInicio, EscapeLeavesInOrderAndTheNextStartOffersAgain) {
    for (int vez = 0; vez < 2; ++vez) {
        empezar();
        esperar("FrmPrimerInicio|LstStores");
        terminar();
        EXPECT_EQ(hecho(), "");
    }
}

TEST_F(PrimerInicio, EscapeWhileTheyAreMadeLeavesNothingBehind) {
    empezar();
    esperar("FrmPrimerInicio|LstStores");
    programa->Pulsar(Qt::Key_Return);
    terminar();
    EXPECT_EQ(hecho(), "");
}

TEST_F(PrimerInicio, AFolderThatCannotBeWrittenIsToldAndTheOfferStays) {
    // A file where the folder of the stores should be.
    QFile estorbo(dir.filePath(u"db"_s));
    ASSERT_TRUE(estorbo.open(QIODevice::WriteOnly));
    empezar();
    esperar("FrmPrimerInicio|LstStores");
    programa->Pulsar(Qt::Key_Return);
    esperar("No se puede escribir en la carpeta ");
    EXPECT_TRUE(programa->Visto().contains(dir.path())) << programa->Visto().toStdString();
    programa->Pulsar(Qt::Key_Return);
    esperar("FrmPrimerInicio|LstStores");
    terminar();
    EXPECT_EQ(hecho(), "db");
}

TEST_F(PrimerInicio, AProfileThatNamesAMissingFileIsToldAndEndsWithOne) {
    ASSERT_TRUE(
        StoreProfiles::escribirPerfilDeArchivos(dir.filePath(u"Uno.perfil.ini"_s), u"Uno"_s, u"db"_s));
    empezar();
    esperar("No existe el archivo ");
    terminar(1);
}

}  // namespace
