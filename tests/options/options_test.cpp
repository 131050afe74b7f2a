// The option screens: what they show and what ESC stores.

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "frame/base/ini.h"
#include "frame/base/numbers.h"
#include "frame/context.h"
#include "frame/options.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

class OpcionesEnPantalla : public ::testing::Test {
 protected:
    void SetUp() override {
        ctx.SeparadorDecimal = QLatin1Char('.');
        ctx.ajustes = Ajustes(dir.filePath("ajustes.ini"));
        ctx.dialogos = DialogosDePrueba(registro);
        ctx.ProgramFolder = dir.path() + '/';
        CargarConfiguracion(ctx);
    }
    QString archivo() const { return ctx.ConfigFilePath; }
    std::string clave(const char *nombre, const char *seccion = "GENERAL") const {
        return LeerIni(seccion, nombre, archivo()).toStdString();
    }
    /// The keys of [GENERAL] in the order of the file.
    std::string orden() const {
        QFile f(archivo());
        EXPECT_TRUE(f.open(QIODevice::ReadOnly));
        const QStringList lineas = QString::fromUtf8(f.readAll()).split("\r\n");
        QString texto;
        bool dentro = false;
        for (const QString &linea : lineas) {
            if (linea.startsWith('[')) dentro = linea == "[GENERAL]";
            if (dentro && linea.contains('='))
                texto += (texto.isEmpty() ? "" : " ") + linea.section('=', 0, 0);
        }
        return texto.toStdString();
    }
    std::string ajuste(const char *app, const char *seccion, const char *nombre) const {
        return ctx.ajustes.Leer(app, seccion, nombre).toStdString();
    }

    QTemporaryDir dir;
    AppContext ctx;
    Registro registro;
};

TEST_F(OpcionesEnPantalla, AnEmptyFileShowsTheDefaults) {
    const ValoresConGen v = LeerConGen(ctx, {"HP", "EPSON"});
    EXPECT_EQ(v.rutaLabel, archivo());
    EXPECT_TRUE(v.chSbtFuncionCargaPor) << "the one that is on when absent";
    EXPECT_FALSE(v.opARMARITEM1);
    EXPECT_FALSE(v.Check1 || v.Check2 || v.Check3 || v.Check4 || v.chByArt || v.chVfySbtDup);
    EXPECT_EQ(v.cboListado, 0);
    EXPECT_EQ(v.txtRIN.toStdString() + v.TxtRNI.toStdString(), "");
    EXPECT_EQ(v.txtIndMaxArancel.toStdString(), "35");
    EXPECT_EQ(v.txtPrefPorc.toStdString(), "40");
    EXPECT_EQ(v.LstImpresoras.toStdString(), "");
}

TEST_F(OpcionesEnPantalla, ABadPreferenceInTheFileShowsItsDefault) {
    EscribirIni("GENERAL", "DIEMCHINA-PrefPorc", "abc", archivo());
    CargarConfiguracion(ctx);
    EXPECT_EQ(LeerConGen(ctx, {}).txtPrefPorc.toStdString(), "40");
}

TEST_F(OpcionesEnPantalla, EscStoresEverythingInItsOrder) {
    ctx.opciones.TempInputsAvailable = true;
    ValoresConGen v = LeerConGen(ctx, {"HP"});
    v.textIniciales = "ab";
    v.cboListado = 1;
    v.LstImpresoras = "HP";
    v.txtRIN = "20";
    v.TxtRNI = "10,5";
    EXPECT_TRUE(GuardarConGen(ctx, v).ok);
    EXPECT_EQ(orden(),
              "INICIALES LISTADO GROUPBYART MODIFCAT PRIMR100 VALORCAT FLGIDARTTOOTROS ARMARITEM VRYSBTDUP "
              "SBTNROARTAI NOCALCLIQU DEVICENAME IVARIN IVARNI MODARTSUB SBTMANTCODART SBTMANTDATOS "
              "SBTMOSTRARASC ENVIARCOMEXT SBTFORZARNROARTAI VENDEDORORDERXNOMBRE SBTFUNCIONCARGAPOR "
              "OPERACIONESMOSTRARTODO RESPONDER_OPCIONES_OBLIGATORIO NOENVIARDESCRIPCIONALITEM "
              "DIEMCHINA-INDMAXARANCEL DIEMCHINA-PREFPORC");
    EXPECT_EQ(clave("INICIALES"), "AB");
    EXPECT_EQ(ctx.opciones.LISTADO, 1);
    EXPECT_EQ(ctx.opciones.IVARNI, 10.5);
}

/// A tick box, its key, and the member of the running options.
struct Casilla {
    bool ValoresConGen::*control;
    const char *clave;
    std::function<bool(const Opciones &)> puesta;
};

std::vector<Casilla> casillas() {
    using V = ValoresConGen;
    using O = Opciones;
    const auto bandera = [](bool O::*m) { return [m](const O &o) { return o.*m; }; };
    const auto nivel = [](int O::*m) { return [m](const O &o) { return o.*m == 2; }; };
    const auto letra = [](QString O::*m) { return [m](const O &o) { return o.*m == "S"_L1; }; };
    return {{&V::chByArt, "GROUPBYART", bandera(&O::GROUPBYART)},
            {&V::Check1, "MODIFCAT", nivel(&O::MODIFCAT)},
            {&V::Check2, "PRIMR100", nivel(&O::PRIMR100)},
            {&V::Check3, "VALORCAT", nivel(&O::VALORCAT)},
            {&V::Check4, "FlgIdArtTOOtros", bandera(&O::FlgIdArtTOOtros)},
            {&V::chVfySbtDup, "VrySbtDup", letra(&O::VrySbtDup)},
            {&V::chSbtNroArtAI, "SbtNroArtAI", bandera(&O::SbtNroArtAI)},
            {&V::Chk_NoCalcularLiquidacion, "NOCALCLIQU", bandera(&O::NOCALCLIQU)},
            {&V::chFlgArtModSub, "MODARTSUB", letra(&O::MODARTSUB)},
            {&V::chSbtMantCodart, "SbtMantCodart", bandera(&O::SbtMantCodart)},
            {&V::chSbtMantDatos, "SbtMantDatos", bandera(&O::SbtMantDatos)},
            {&V::chSbtMostrarAsc, "SbtMostrarAsc", bandera(&O::SbtMostrarAsc)},
            {&V::chkEnviarComExt, "EnviarComExt", bandera(&O::EnviarComExt)},
            {&V::chkSBTForzarARTenAI, "SbtForzarNroArtAI", bandera(&O::SbtForzarNroArtAI)},
            {&V::chVendedorxNombre, "VendedorOrderxNombre", bandera(&O::VendedorOrderxNombre)},
            {&V::chSbtFuncionCargaPor, "SbtFuncionCargaPor", bandera(&O::SbtFuncionCargaPor)},
            {&V::chkMostrarOperaciones, "OperacionesMostrarTODO", bandera(&O::OperacionesMostrarTODO)},
            {&V::chResponderOpcionesObligatorio, "Responder_Opciones_Obligatorio",
             bandera(&O::Responder_Opciones_Obligatorio)},
            {&V::chkNoMandarDescripcionenITEM, "NoEnviarDescripcionAlITEM",
             bandera(&O::NoEnviarDescripcionAlITEM)}};
}

// Each box has a number of its own from 1 on; in the n-th save it is ticked when the n-th bit of its number
// is set. No two boxes go through the saves alike, so a key or a member that listened to another box would
// show.
TEST_F(OpcionesEnPantalla, EachBoxReachesItsKeyAndItsMemberAndComesBack) {
    const std::vector<Casilla> todas = casillas();
    constexpr unsigned guardadas = 5;
    ASSERT_LT(todas.size(), 1U << guardadas);
    for (unsigned n = 0; n < guardadas; ++n) {
        const auto tildada = [n](std::size_t i) { return (((i + 1) >> n) & 1U) != 0; };
        ValoresConGen v = LeerConGen(ctx, {});
        for (std::size_t i = 0; i < todas.size(); ++i) v.*todas[i].control = tildada(i);
        ASSERT_TRUE(GuardarConGen(ctx, v).ok);
        for (std::size_t i = 0; i < todas.size(); ++i) {
            EXPECT_EQ(clave(todas[i].clave), tildada(i) ? "S" : "N") << todas[i].clave;
            EXPECT_EQ(todas[i].puesta(ctx.opciones), tildada(i)) << todas[i].clave;
        }
        ctx.opciones = Opciones();
        CargarConfiguracion(ctx);
        const ValoresConGen leido = LeerConGen(ctx, {});
        for (std::size_t i = 0; i < todas.size(); ++i)
            EXPECT_EQ(leido.*todas[i].control, tildada(i)) << todas[i].clave;
    }
}

TEST_F(OpcionesEnPantalla, TheOrderOfItemsIsOneOrTwo) {
    ValoresConGen v = LeerConGen(ctx, {});
    v.opARMARITEM1 = true;
    GuardarConGen(ctx, v);
    EXPECT_EQ(clave("ARMARITEM"), "1");
    EXPECT_EQ(ctx.opciones.ARMARITEM, 1);
    v.opARMARITEM1 = false;
    GuardarConGen(ctx, v);
    EXPECT_EQ(clave("ARMARITEM"), "2");
    EXPECT_EQ(ctx.opciones.ARMARITEM, 2);
}

TEST_F(OpcionesEnPantalla, TheInputsSettingsNeedTheirLibrary) {
    ValoresConGen v = LeerConGen(ctx, {});
    EXPECT_FALSE(v.insumosHabilitados);
    v.chINSTEMPPerMer = v.chINSTEMPVDE = true;  // disabled boxes cannot be ticked; even so
    GuardarConGen(ctx, v);
    EXPECT_EQ(ajuste("ZENDRA", "OBJ", "INSTMP.RestarPerMer"), "N");
    EXPECT_EQ(ajuste("oInputsLink", "CONFIG", "opVDE"), "N");
    EXPECT_FALSE(ctx.opciones.RestarPerMer);
    ctx.opciones.TempInputsAvailable = true;
    GuardarConGen(ctx, v);
    EXPECT_EQ(ajuste("ZENDRA", "OBJ", "INSTMP.RestarPerMer"), "S");
    EXPECT_EQ(ajuste("oInputsLink", "CONFIG", "opVDE"), "S");
    EXPECT_TRUE(ctx.opciones.RestarPerMer);
    v = LeerConGen(ctx, {});
    EXPECT_TRUE(v.insumosHabilitados && v.chINSTEMPPerMer && v.chINSTEMPVDE);
}

TEST_F(OpcionesEnPantalla, ManualCancellationIsASettingOfTheLiteralApplication) {
    ValoresConGen v = LeerConGen(ctx, {});
    v.chCANCSinStock = true;
    GuardarConGen(ctx, v);
    EXPECT_EQ(ajuste("GENERAL", "OBJ", "CancelManual"), "S");
    EXPECT_TRUE(ctx.opciones.CancelManual);
    CargarConfiguracion(ctx);
    EXPECT_TRUE(LeerConGen(ctx, {}).chCANCSinStock);
}

TEST_F(OpcionesEnPantalla, NoPrinterKeepsTheOldOne) {
    ctx.opciones.DEVICENAME = "HP";
    ctx.opciones.DRIVERNAME = "winspool";
    ctx.opciones.PORT = "LPT1";
    ValoresConGen v = LeerConGen(ctx, {"EPSON"});
    EXPECT_EQ(v.LstImpresoras.toStdString(), "") << "the stored one is not there any more";
    GuardarConGen(ctx, v);
    EXPECT_EQ(ctx.opciones.DEVICENAME.toStdString(), "HP");
    EXPECT_EQ(ctx.opciones.PORT.toStdString(), "LPT1");
    v.LstImpresoras = "EPSON";
    GuardarConGen(ctx, v);
    EXPECT_EQ(clave("DEVICENAME"), "EPSON");
    EXPECT_EQ(ctx.opciones.DRIVERNAME.toStdString() + ctx.opciones.PORT.toStdString(), "");
    EXPECT_EQ(LeerConGen(ctx, {"EPSON"}).LstImpresoras.toStdString(), "EPSON");
}

TEST_F(OpcionesEnPantalla, BlankRatesAreNotWritten) {
    ValoresConGen v = LeerConGen(ctx, {});
    v.txtRIN = "21";
    GuardarConGen(ctx, v);
    v.txtRIN = "  ";
    GuardarConGen(ctx, v);
    EXPECT_EQ(clave("IVARIN"), "21");
    EXPECT_EQ(ctx.opciones.IVARIN, 21);
    EXPECT_EQ(clave("IVARNI"), "");
}

TEST_F(OpcionesEnPantalla, ABadDiemChinaValueStaysWhileTheRestIsStored) {
    ValoresConGen v = LeerConGen(ctx, {});
    v.chByArt = true;
    v.txtIndMaxArancel = "x";
    v.txtPrefPorc = "50";
    Veredicto r = GuardarConGen(ctx, v);
    EXPECT_FALSE(r.ok);
    EXPECT_EQ(r.foco.toStdString(), "txtIndMaxArancel");
    EXPECT_EQ(registro.mensajes.back().texto.toStdString(),
              "El campo Indice Maximo Arancel debe tener un valor númerico");
    EXPECT_EQ(registro.mensajes.back().icono, Icono::Exclamacion);
    EXPECT_EQ(clave("GROUPBYART"), "S");
    EXPECT_EQ(clave("DIEMCHINA-PrefPorc"), "");
    v.txtIndMaxArancel = "36,5";
    v.txtPrefPorc = "";
    r = GuardarConGen(ctx, v);
    EXPECT_EQ(r.foco.toStdString(), "txtPrefPorc");
    EXPECT_EQ(registro.mensajes.back().texto.toStdString(),
              "El campo Preferencia Porcentual debe tener un valor númerico");
    EXPECT_EQ(clave("DIEMCHINA-IndMaxArancel"), "") << "neither is written alone";
    v.txtPrefPorc = "41";
    EXPECT_TRUE(GuardarConGen(ctx, v).ok);
    EXPECT_EQ(ctx.opciones.DIEMCHINA_IndMaxArancel, 36.5);
    EXPECT_EQ(ctx.opciones.DIEMCHINA_PrefPorc, 41);
    CargarConfiguracion(ctx);
    EXPECT_EQ(ctx.opciones.DIEMCHINA_IndMaxArancel, 36.5);
}

TEST_F(OpcionesEnPantalla, AFileThatCannotBeWrittenIsTold) {
    ctx.ConfigFilePath = dir.filePath("no/hay/carpeta.ini");
    EXPECT_FALSE(GuardarConGen(ctx, LeerConGen(ctx, {})).ok);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_TRUE(registro.mensajes[0].texto.contains("carpeta.ini"));
    EXPECT_FALSE(GuardarBase(ctx, {"a/", "a/", "a/", "a/", "a/"}));
}

// Store locations

TEST_F(OpcionesEnPantalla, FoldersAreShownAndStoredWithTheirSeparator) {
    EscribirIni("BASESERVER", "INTERNO", "/datos/i", archivo());
    EscribirIni("BASELOCAL", "USUARIO", "C:\\Zendra\\", archivo());
    ValoresBase v = LeerBase(ctx);
    EXPECT_EQ(v.txtInterno.toStdString(), "/datos/i");
    EXPECT_EQ(v.TxtUsuario.toStdString(), "C:\\Zendra\\");
    v.TxtPersonal = "D:\\Personal";
    v.TxtNcm = "/datos/ncm/";
    const QString systablas = ctx.PathSystablas;
    EXPECT_TRUE(GuardarBase(ctx, v));
    EXPECT_EQ(clave("INTERNO", "BASESERVER"), "/datos/i/");
    EXPECT_EQ(clave("PERSONAL", "BASESERVER"), "D:\\Personal\\");
    EXPECT_EQ(clave("NCM", "BASESERVER"), "/datos/ncm/");
    EXPECT_EQ(clave("USUARIO", "BASELOCAL"), "C:\\Zendra\\");
    EXPECT_EQ(ctx.PathInternos.toStdString(), "/datos/i/internos.mdb");
    EXPECT_EQ(ctx.PathPersonal.toStdString(), "D:\\Personal\\personal.mdb");
    EXPECT_EQ(ctx.PathNcm.toStdString(), "/datos/ncm/ncm.mdb");
    EXPECT_EQ(ctx.PathUsuario.toStdString(), "C:\\Zendra\\usuario.mdb");
    EXPECT_TRUE(ctx.PathEstados.endsWith("estados.mdb"));
    EXPECT_EQ(ctx.PathSystablas, systablas) << "follows at the next start";
}

}  // namespace
