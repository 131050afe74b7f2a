// The configuration file: where it is looked for, what every key fills, and what stands when it is silent.

#include "frame/config.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <functional>

#include "frame/base/ini.h"
#include "frame/base/numbers.h"
#include "frame/context.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

class Configuracion : public ::testing::Test {
 protected:
    void SetUp() override {
        carpeta = dir.path() + QLatin1Char('/');
        ctx.ProgramFolder = carpeta;
        ctx.ajustes = Ajustes(carpeta + "ajustes.ini"_L1);
    }
    void TearDown() override { ctx.SeparadorDecimal = separador; }

    QString archivo() const { return carpeta + "ZENDRA.ini"_L1; }
    void escribir(const QString &texto, const QString &ruta = {}) const {
        QFile f(ruta.isEmpty() ? archivo() : ruta);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(texto.toUtf8());
    }
    void general(const QString &lineas) const { escribir("[GENERAL]\r\n"_L1 + lineas + "\r\n"_L1); }
    QString base(const char *clave) const {
        return ctx.ajustes.Leer(u"ZENDRA"_s, u"BASES"_s, L(clave), u"<nada>"_s);
    }

    QTemporaryDir dir;
    QString carpeta;
    AppContext ctx;
    QChar separador;
};

TEST_F(Configuracion, AProfilesIniIsTriedAsCfg) {
    QDir().mkpath(carpeta + "Perfiles"_L1);
    const QString cfg = carpeta + "Perfiles/Zendra.cfg"_L1;
    escribir("[GENERAL]\r\n"_L1, cfg);
    EXPECT_EQ(BuscarArchivoDeConfiguracion(carpeta + "Perfiles/Zendra.ini"_L1, carpeta), cfg);
}

TEST_F(Configuracion, IniElsewhereInThePathIsReplacedToo) {
    QDir().mkpath(carpeta + "Mcfg"_L1);
    const QString cfg = carpeta + "Mcfg/a.cfg"_L1;
    escribir("[GENERAL]\r\n"_L1, cfg);
    EXPECT_EQ(BuscarArchivoDeConfiguracion(carpeta + "Mini/a.ini"_L1, carpeta), cfg);
}

TEST_F(Configuracion, OnlyTheLowerCaseSpellingOfIniIsReplaced) {
    QDir().mkpath(carpeta + "Perfiles"_L1);
    escribir("[GENERAL]\r\n"_L1, carpeta + "Perfiles/Zendra.cfg"_L1);
    // The path stands as it is, and that file exists: it is its own candidate.
    escribir("[GENERAL]\r\n"_L1, carpeta + "Perfiles/Zendra.INI"_L1);
    EXPECT_EQ(BuscarArchivoDeConfiguracion(carpeta + "Perfiles/Zendra.INI"_L1, carpeta),
              carpeta + "Perfiles/Zendra.INI"_L1);
}

TEST_F(Configuracion, AMissingCfgOrNoProfileMeansTheFileBesideTheProgram) {
    EXPECT_EQ(BuscarArchivoDeConfiguracion(carpeta + "Perfiles/Zendra.ini"_L1, carpeta), archivo());
    EXPECT_EQ(BuscarArchivoDeConfiguracion({}, carpeta), archivo());
}

TEST_F(Configuracion, TheChosenFileIsKeptAndRead) {
    const QString cfg = carpeta + "z.cfg"_L1;
    escribir("[GENERAL]\r\nLISTADO=1\r\n"_L1, cfg);
    ctx.ProfileIniPath = carpeta + "z.ini"_L1;
    CargarConfiguracion(ctx);
    EXPECT_EQ(ctx.ConfigFilePath, cfg);
    EXPECT_EQ(ctx.opciones.LISTADO, 1);
}

TEST_F(Configuracion, WithoutAGeneralSectionEveryOptionTakesTheDefaultOfTheTable) {
    CargarConfiguracion(ctx);
    const Opciones &o = ctx.opciones;
    EXPECT_TRUE(o.SbtFuncionCargaPor);
    EXPECT_EQ(o.ARMARITEM, 2);
    EXPECT_EQ(o.MODIFCAT, 1);
    EXPECT_EQ(o.VALORCAT, 1);
    EXPECT_EQ(o.PRIMR100, 1);
    EXPECT_EQ(o.VERSION, 2);
    EXPECT_EQ(o.MODARTSUB, "N"_L1);
    EXPECT_EQ(o.VrySbtDup, "N"_L1);
    for (const bool Opciones::*bandera :
         {&Opciones::QUINDEL, &Opciones::QUINDELRAF, &Opciones::GROUPBYART, &Opciones::SbtMantCodart,
          &Opciones::SbtMantDatos, &Opciones::SbtMostrarAsc, &Opciones::FlgIdArtTOOtros,
          &Opciones::SbtNroArtAI, &Opciones::NOCALCLIQU, &Opciones::EnviarComExt,
          &Opciones::SbtForzarNroArtAI, &Opciones::VendedorOrderxNombre,
          &Opciones::Responder_Opciones_Obligatorio, &Opciones::OperacionesMostrarTODO,
          &Opciones::NoEnviarDescripcionAlITEM, &Opciones::CancelManual, &Opciones::TempInputsAvailable,
          &Opciones::RestarPerMer})
        EXPECT_FALSE(o.*bandera);
    EXPECT_EQ(o.LISTADO, 0);
    EXPECT_EQ(o.IVARIN, 0);
    EXPECT_EQ(o.IVARNI, 0);
    EXPECT_EQ(o.DIEMCHINA_IndMaxArancel, 35);
    EXPECT_EQ(o.DIEMCHINA_PrefPorc, 40);
    EXPECT_TRUE(o.NROSUFIJ.isEmpty() && o.DEVICENAME.isEmpty() && o.DRIVERNAME.isEmpty() && o.PORT.isEmpty());
}

/// A line of the file, and what it makes of the member it fills.
struct CasoDeOpcion {
    const char *linea;
    std::function<bool(const Opciones &)> cumple;
};

TEST_F(Configuracion, EveryKeyFillsItsMemberByItsRule) {
    const auto flag = [](const char *linea, bool Opciones::*m, bool valor) {
        return CasoDeOpcion{linea, [m, valor](const Opciones &o) { return o.*m == valor; }};
    };
    const auto entero = [](const char *linea, int Opciones::*m, int valor) {
        return CasoDeOpcion{linea, [m, valor](const Opciones &o) { return o.*m == valor; }};
    };
    const auto numero = [](const char *linea, double Opciones::*m, double valor) {
        return CasoDeOpcion{linea, [m, valor](const Opciones &o) { return o.*m == valor; }};
    };
    const auto texto = [](const char *linea, QString Opciones::*m, const char *valor) {
        return CasoDeOpcion{linea, [m, valor](const Opciones &o) { return o.*m == L(valor); }};
    };
    const CasoDeOpcion casos[] = {
        flag("QUINDEL=S", &Opciones::QUINDEL, true),
        flag("QUINDEL=s", &Opciones::QUINDEL, false),
        flag("quindelraf=S", &Opciones::QUINDELRAF, true),
        texto("NROSUFIJ=abc", &Opciones::NROSUFIJ, "abc"),
        entero("MODIFCAT=S", &Opciones::MODIFCAT, 2),
        entero("MODIFCAT=N", &Opciones::MODIFCAT, 1),
        entero("VALORCAT=S", &Opciones::VALORCAT, 2),
        entero("PRIMR100=S", &Opciones::PRIMR100, 2),
        flag("GROUPBYART=S", &Opciones::GROUPBYART, true),
        entero("ARMARITEM=1", &Opciones::ARMARITEM, 1),
        entero("ARMARITEM=2", &Opciones::ARMARITEM, 2),
        entero("ARMARITEM=S", &Opciones::ARMARITEM, 2),
        texto("MODARTSUB=S", &Opciones::MODARTSUB, "S"),
        texto("MODARTSUB= S ", &Opciones::MODARTSUB, "S"),
        texto("MODARTSUB=Z", &Opciones::MODARTSUB, "N"),
        entero("VERSION=0", &Opciones::VERSION, 2),
        entero("VERSION=1", &Opciones::VERSION, 2),
        texto("VRYSBTDUP=S", &Opciones::VrySbtDup, "S"),
        texto("VRYSBTDUP=x", &Opciones::VrySbtDup, "N"),
        flag("SBTMANTCODART=S", &Opciones::SbtMantCodart, true),
        flag("SBTMANTDATOS=S", &Opciones::SbtMantDatos, true),
        flag("SBTMOSTRARASC=S", &Opciones::SbtMostrarAsc, true),
        flag("FLGIDARTTOOTROS=S", &Opciones::FlgIdArtTOOtros, true),
        flag("SBTNROARTAI=S", &Opciones::SbtNroArtAI, true),
        flag("NOCALCLIQU=S", &Opciones::NOCALCLIQU, true),
        flag("ENVIARCOMEXT=S", &Opciones::EnviarComExt, true),
        flag("SBTFORZARNROARTAI=S", &Opciones::SbtForzarNroArtAI, true),
        flag("VENDEDORORDERXNOMBRE=S", &Opciones::VendedorOrderxNombre, true),
        flag("SBTFUNCIONCARGAPOR=N", &Opciones::SbtFuncionCargaPor, false),
        flag("SBTFUNCIONCARGAPOR=x", &Opciones::SbtFuncionCargaPor, true),
        flag("RESPONDER_OPCIONES_OBLIGATORIO=S", &Opciones::Responder_Opciones_Obligatorio, true),
        flag("OPERACIONESMOSTRARTODO=S", &Opciones::OperacionesMostrarTODO, true),
        flag("NOENVIARDESCRIPCIONALITEM=S", &Opciones::NoEnviarDescripcionAlITEM, true),
        // The settings area holds this one; the file is not asked.
        flag("CANCELMANUAL=S", &Opciones::CancelManual, false),
        entero("LISTADO=1", &Opciones::LISTADO, 1),
        numero("IVARIN=21", &Opciones::IVARIN, 21),
        numero("IVARNI=10.5", &Opciones::IVARNI, 10.5),
        numero("IVARNI=10,5", &Opciones::IVARNI, 10.5),
        texto("DEVICENAME=HP", &Opciones::DEVICENAME, "HP"),
        texto("DRIVERNAME=winspool", &Opciones::DRIVERNAME, "winspool"),
        texto("PORT=LPT1:", &Opciones::PORT, "LPT1:"),
        numero("DIEMCHINA-INDMAXARANCEL=22.5", &Opciones::DIEMCHINA_IndMaxArancel, 22.5),
        numero("DIEMCHINA-INDMAXARANCEL=abc", &Opciones::DIEMCHINA_IndMaxArancel, 35),
        numero("DIEMCHINA-PREFPORC=15", &Opciones::DIEMCHINA_PrefPorc, 15),
        // A preference that is no number reads as 40.
        numero("DIEMCHINA-PREFPORC=abc", &Opciones::DIEMCHINA_PrefPorc, 40),
    };
    for (const CasoDeOpcion &caso : casos) {
        general(L(caso.linea));
        ctx.opciones = {};
        CargarConfiguracion(ctx);
        EXPECT_TRUE(caso.cumple(ctx.opciones)) << caso.linea;
    }
}

TEST_F(Configuracion, TheVatRatesTakeEitherSeparatorUnderEitherWorkstation) {
    for (const char sistema : {'.', ','}) {
        ctx.SeparadorDecimal = QLatin1Char(sistema);
        for (const char *escrito : {"10.5", "10,5"}) {
            general("IVARIN="_L1 + L(escrito));
            CargarConfiguracion(ctx);
            EXPECT_EQ(ctx.opciones.IVARIN, 10.5) << escrito << " under " << sistema;
        }
    }
}

TEST_F(Configuracion, AVatRateThatIsNoNumberEndsTheLoadAndLeavesTheRestUnread) {
    for (const char *clave : {"IVARIN", "IVARNI"}) {
        general("LISTADO=1\r\n"_L1 + L(clave) + "=veintiuno\r\nDEVICENAME=HP\r\nDIEMCHINA-PREFPORC=50"_L1);
        ctx.opciones = {};
        QString dicho;
        try {
            CargarConfiguracion(ctx);
        } catch (const Falla &falla) {
            dicho = falla.descripcion;
        }
        EXPECT_EQ(dicho, "No coinciden los tipos: "_L1 + L(clave) +
                             u"=veintiuno no es un número; corríjalo en "_s + archivo() + QLatin1Char('.'));
        EXPECT_EQ(ctx.opciones.LISTADO, 1) << "read before";
        EXPECT_TRUE(ctx.opciones.DEVICENAME.isEmpty());
        EXPECT_EQ(ctx.opciones.DIEMCHINA_PrefPorc, 40);
    }
}

TEST_F(Configuracion, ManualCancellationComesFromTheSettingsOfTheGeneralApplication) {
    ctx.ajustes.Guardar(u"GENERAL"_s, u"OBJ"_s, u"CancelManual"_s, u"S"_s);
    CargarConfiguracion(ctx);
    EXPECT_TRUE(ctx.opciones.CancelManual);
}

TEST_F(Configuracion, ShrinkageIsOffWithoutTheTemporaryInputsLibraryAndFollowsItsSettingWithIt) {
    ctx.ajustes.Guardar(u"ZENDRA"_s, u"OBJ"_s, u"INSTMP.RestarPerMer"_s, u"S"_s);
    CargarConfiguracion(ctx);
    EXPECT_FALSE(ctx.opciones.RestarPerMer);
    ctx.opciones.TempInputsAvailable = true;
    CargarConfiguracion(ctx);
    EXPECT_TRUE(ctx.opciones.RestarPerMer);
}

TEST_F(Configuracion, BlankStoreFoldersBecomeTheProgramsAndAreWrittenBack) {
    escribir("[BASESERVER]\r\nPERSONAL=   \r\n"_L1);
    CargarConfiguracion(ctx);
    const QString db = carpeta + "db/"_L1;
    EXPECT_EQ(ctx.PathInternos, db + "internos.mdb"_L1);
    EXPECT_EQ(ctx.PathSystablas, db + "systablas.mdb"_L1);
    EXPECT_EQ(ctx.PathPersonal, db + "personal.mdb"_L1);
    EXPECT_EQ(ctx.PathNcm, db + "ncm.mdb"_L1);
    EXPECT_EQ(ctx.PathUsuario, db + "usuario.mdb"_L1);
    EXPECT_EQ(ctx.PathEstados, db + "estados.mdb"_L1);
    for (const char *clave : {"INTERNO", "PERSONAL", "NCM", "ESTADO"})
        EXPECT_EQ(LeerIni(u"BASESERVER"_s, L(clave), archivo()), db) << clave;
    EXPECT_EQ(LeerIni(u"BASELOCAL"_s, u"USUARIO"_s, archivo()), db);
    // systablas has no key of its own.
    EXPECT_TRUE(LeerIni(u"BASESERVER"_s, u"SYSTABLAS"_s, archivo()).isEmpty());
}

TEST_F(Configuracion, APathIsFolderPlusFileNameWithNoSeparatorAdded) {
    escribir("[BASESERVER]\r\nINTERNO=C:\\Zendra\\db\r\nNCM=C:\\Zendra\\db\\\r\n"_L1);
    CargarConfiguracion(ctx);
    EXPECT_EQ(ctx.PathInternos, "C:\\Zendra\\dbinternos.mdb"_L1);
    EXPECT_EQ(ctx.PathSystablas, "C:\\Zendra\\dbsystablas.mdb"_L1);
    EXPECT_EQ(ctx.PathNcm, "C:\\Zendra\\db\\ncm.mdb"_L1);
}

TEST_F(Configuracion, TheSettingsAreaTakesTheFoldersAsReadAndInternoWithItsClosingSeparator) {
    escribir(
        "[BASESERVER]\r\nINTERNO=C:\\Datos\r\nPERSONAL=C:\\P\r\nNCM=C:\\N\\\r\nESTADO=\r\n[BASELOCAL]"
        "\r\nUSUARIO=C:\\U\r\n"_L1);
    CargarConfiguracion(ctx);
    EXPECT_EQ(base("INTERNO"), "C:\\Datos\\"_L1);
    EXPECT_EQ(base("SYSTABLAS"), "C:\\Datos"_L1);
    EXPECT_EQ(base("PERSONAL"), "C:\\P"_L1);
    EXPECT_EQ(base("NCM"), "C:\\N\\"_L1);
    // Copied before the default takes the place of what is blank.
    EXPECT_EQ(base("ESTADO"), ""_L1);
    EXPECT_EQ(base("USUARIO"), "C:\\U"_L1);
}

TEST_F(Configuracion, EveryStartWritesWhereTheProgramLies) {
    CargarConfiguracion(ctx);
    EXPECT_EQ(ctx.ajustes.Leer(u"ZENDRA"_s, u"DEFAULT"_s, u"UBICACION"_s), carpeta);
}

}  // namespace
