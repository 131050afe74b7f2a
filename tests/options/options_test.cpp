// The option screens: what they show and what ESC stores.

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "frame/base/ini.h"
#include "frame/base/numbers.h"
#include "frame/config.h"
#include "frame/context.h"
#include "frame/options.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

class OpcionesEnPantalla : public ::testing::Test {
 protected:
    void SetUp() override {
        ctx.SeparadorDecimal = QLatin1Char('.');
        ctx.ajustes = Ajustes(dir.filePath(u"ajustes.ini"_s));
        ctx.dialogos = DialogosDePrueba(registro);
        ctx.ProgramFolder = dir.path() + u'/';
        CargarConfiguracion(ctx);
    }
    QString archivo() const { return ctx.ConfigFilePath; }
    std::string clave(const char *nombre, const char *seccion = "GENERAL") const {
        return LeerIni(QLatin1String(seccion), QLatin1String(nombre), archivo()).toStdString();
    }
    /// The keys of [GENERAL] in the order of the file.
    std::string orden() const {
        QFile f(archivo());
        EXPECT_TRUE(f.open(QIODevice::ReadOnly));
        const QStringList lineas = QString::fromUtf8(f.readAll()).split(u"\r\n"_s);
        QString texto;
        bool dentro = false;
        for (const QString &linea : lineas) {
            if (linea.startsWith(u'[')) dentro = linea == "[GENERAL]"_L1;
            if (dentro && linea.contains(u'='))
                texto += (texto.isEmpty() ? QString() : u" "_s) + linea.section(u'=', 0, 0);
        }
        return texto.toStdString();
    }
    std::string ajuste(const char *app, const char *seccion, const char *nombre) const {
        return ctx.ajustes.Leer(QLatin1String(app), QLatin1String(seccion), QLatin1String(nombre))
            .toStdString();
    }

    QTemporaryDir dir;
    AppContext ctx;
    Registro registro;
};

QString en(const char *control) {
    return QLatin1String(control);
}

/// The boxes of the screen that end in the file.
std::vector<FilaDeOpcion> casillas() {
    std::vector<FilaDeOpcion> todas;
    for (const FilaDeOpcion &fila : FilasDeOpciones()) {
        using C = ClaseDeOpcion;
        const bool casilla = fila.clase == C::Bandera || fila.clase == C::BanderaSalvoN ||
                             fila.clase == C::Nivel || fila.clase == C::Letra ||
                             fila.clase == C::LetraRecortada;
        if (casilla && *fila.control != '\0' && *fila.area == '\0') todas.push_back(fila);
    }
    return todas;
}

TEST_F(OpcionesEnPantalla, AnEmptyFileShowsTheDefaults) {
    const ValoresConGen v = LeerConGen(ctx, {u"HP"_s, u"EPSON"_s});
    EXPECT_EQ(v.rutaLabel, archivo());
    for (const FilaDeOpcion &casilla : casillas()) {
        const bool esLaQueEstaPuesta = QLatin1String(casilla.control) == "chSbtFuncionCargaPor"_L1;
        EXPECT_EQ(v[en(casilla.control)], esLaQueEstaPuesta ? u"S"_s : u"N"_s) << casilla.control;
    }
    EXPECT_EQ(v[u"opARMARITEM1"], u"N"_s);
    EXPECT_EQ(v[u"chCANCSinStock"], u"N"_s);
    EXPECT_EQ(v[u"cboListado"], u"0"_s);
    EXPECT_EQ(v[u"txtRIN"] + v[u"TxtRNI"], QString());
    EXPECT_EQ(v[u"txtIndMaxArancel"], u"35"_s);
    EXPECT_EQ(v[u"txtPrefPorc"], u"40"_s);
    EXPECT_EQ(v[u"LstImpresoras"], QString());
}

TEST_F(OpcionesEnPantalla, ABadPreferenceInTheFileShowsItsDefault) {
    EscribirIni(u"GENERAL"_s, u"DIEMCHINA-PrefPorc"_s, u"abc"_s, archivo());
    CargarConfiguracion(ctx);
    EXPECT_EQ(LeerConGen(ctx, {})[u"txtPrefPorc"], u"40"_s);
}

TEST_F(OpcionesEnPantalla, EscStoresEverythingInItsOrder) {
    ctx.opciones.TempInputsAvailable = true;
    ValoresConGen v = LeerConGen(ctx, {u"HP"_s});
    v[u"textIniciales"] = u"ab"_s;
    v[u"cboListado"] = u"1"_s;
    v[u"LstImpresoras"] = u"HP"_s;
    v[u"txtRIN"] = u"20"_s;
    v[u"TxtRNI"] = u"10,5"_s;
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

// Each box has a number of its own from 1 on; in the n-th save it is ticked when the n-th bit of its number
// is set. No two boxes go through the saves alike, so a key or a member that listened to another box would
// show.
TEST_F(OpcionesEnPantalla, EachBoxReachesItsKeyAndItsMemberAndComesBack) {
    const std::vector<FilaDeOpcion> todas = casillas();
    constexpr unsigned guardadas = 5;
    ASSERT_EQ(todas.size(), 19U);
    ASSERT_LT(todas.size(), 1U << guardadas);
    for (unsigned n = 0; n < guardadas; ++n) {
        const auto tildada = [n](std::size_t i) { return (((i + 1) >> n) & 1U) != 0 ? u"S"_s : u"N"_s; };
        ValoresConGen v = LeerConGen(ctx, {});
        for (std::size_t i = 0; i < todas.size(); ++i) v[en(todas[i].control)] = tildada(i);
        ASSERT_TRUE(GuardarConGen(ctx, v).ok);
        for (std::size_t i = 0; i < todas.size(); ++i) {
            EXPECT_EQ(clave(todas[i].clave), tildada(i).toStdString()) << todas[i].clave;
            EXPECT_EQ(TextoDeOpcion(todas[i], ctx.opciones), tildada(i)) << todas[i].clave;
        }
        ctx.opciones = Opciones();
        CargarConfiguracion(ctx);
        const ValoresConGen leido = LeerConGen(ctx, {});
        for (std::size_t i = 0; i < todas.size(); ++i)
            EXPECT_EQ(leido[en(todas[i].control)], tildada(i)) << todas[i].clave;
    }
}

TEST_F(OpcionesEnPantalla, TheOrderOfItemsIsOneOrTwo) {
    ValoresConGen v = LeerConGen(ctx, {});
    v[u"opARMARITEM1"] = u"S"_s;
    GuardarConGen(ctx, v);
    EXPECT_EQ(clave("ARMARITEM"), "1");
    EXPECT_EQ(ctx.opciones.ARMARITEM, 1);
    v[u"opARMARITEM1"] = u"N"_s;
    GuardarConGen(ctx, v);
    EXPECT_EQ(clave("ARMARITEM"), "2");
    EXPECT_EQ(ctx.opciones.ARMARITEM, 2);
}

TEST_F(OpcionesEnPantalla, TheInputsSettingsNeedTheirLibrary) {
    ValoresConGen v = LeerConGen(ctx, {});
    EXPECT_FALSE(v.insumosHabilitados);
    v[u"chINSTEMPPerMer"] = v[u"chINSTEMPVDE"] = u"S"_s;  // disabled boxes cannot be ticked; even so
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
    EXPECT_TRUE(v.insumosHabilitados && v[u"chINSTEMPPerMer"] + v[u"chINSTEMPVDE"] == u"SS"_s);
}

TEST_F(OpcionesEnPantalla, ManualCancellationIsASettingOfTheLiteralApplication) {
    ValoresConGen v = LeerConGen(ctx, {});
    v[u"chCANCSinStock"] = u"S"_s;
    GuardarConGen(ctx, v);
    EXPECT_EQ(ajuste("GENERAL", "OBJ", "CancelManual"), "S");
    EXPECT_TRUE(ctx.opciones.CancelManual);
    CargarConfiguracion(ctx);
    EXPECT_TRUE(LeerConGen(ctx, {})[u"chCANCSinStock"] == u"S"_s);
}

TEST_F(OpcionesEnPantalla, NoPrinterKeepsTheOldOne) {
    ctx.opciones.DEVICENAME = "HP"_L1;
    ctx.opciones.DRIVERNAME = "winspool"_L1;
    ctx.opciones.PORT = "LPT1"_L1;
    ValoresConGen v = LeerConGen(ctx, {u"EPSON"_s});
    EXPECT_EQ(v[u"LstImpresoras"], QString()) << "the stored one is not there any more";
    GuardarConGen(ctx, v);
    EXPECT_EQ(ctx.opciones.DEVICENAME.toStdString(), "HP");
    EXPECT_EQ(ctx.opciones.PORT.toStdString(), "LPT1");
    v[u"LstImpresoras"] = u"EPSON"_s;
    GuardarConGen(ctx, v);
    EXPECT_EQ(clave("DEVICENAME"), "EPSON");
    EXPECT_EQ(ctx.opciones.DRIVERNAME.toStdString() + ctx.opciones.PORT.toStdString(), "");
    EXPECT_EQ(LeerConGen(ctx, {u"EPSON"_s})[u"LstImpresoras"], u"EPSON"_s);
}

TEST_F(OpcionesEnPantalla, BlankRatesAreNotWritten) {
    ValoresConGen v = LeerConGen(ctx, {});
    v[u"txtRIN"] = u"21"_s;
    GuardarConGen(ctx, v);
    v[u"txtRIN"] = u"  "_s;
    GuardarConGen(ctx, v);
    EXPECT_EQ(clave("IVARIN"), "21");
    EXPECT_EQ(ctx.opciones.IVARIN, 21);
    EXPECT_EQ(clave("IVARNI"), "");
}

TEST_F(OpcionesEnPantalla, ABadDiemChinaValueStaysWhileTheRestIsStored) {
    ValoresConGen v = LeerConGen(ctx, {});
    v[u"chByArt"] = u"S"_s;
    v[u"txtIndMaxArancel"] = u"x"_s;
    v[u"txtPrefPorc"] = u"50"_s;
    Veredicto r = GuardarConGen(ctx, v);
    EXPECT_FALSE(r.ok);
    EXPECT_EQ(r.foco.toStdString(), "txtIndMaxArancel");
    EXPECT_EQ(registro.mensajes.back().texto.toStdString(),
              "El campo Indice Maximo Arancel debe tener un valor númerico");
    EXPECT_EQ(registro.mensajes.back().icono, Icono::Exclamacion);
    EXPECT_EQ(clave("GROUPBYART"), "S");
    EXPECT_EQ(clave("DIEMCHINA-PrefPorc"), "");
    v[u"txtIndMaxArancel"] = u"36,5"_s;
    v[u"txtPrefPorc"] = u""_s;
    r = GuardarConGen(ctx, v);
    EXPECT_EQ(r.foco.toStdString(), "txtPrefPorc");
    EXPECT_EQ(registro.mensajes.back().texto.toStdString(),
              "El campo Preferencia Porcentual debe tener un valor númerico");
    EXPECT_EQ(clave("DIEMCHINA-IndMaxArancel"), "") << "neither is written alone";
    v[u"txtPrefPorc"] = u"41"_s;
    EXPECT_TRUE(GuardarConGen(ctx, v).ok);
    EXPECT_EQ(ctx.opciones.DIEMCHINA_IndMaxArancel, 36.5);
    EXPECT_EQ(ctx.opciones.DIEMCHINA_PrefPorc, 41);
    CargarConfiguracion(ctx);
    EXPECT_EQ(ctx.opciones.DIEMCHINA_IndMaxArancel, 36.5);
}

TEST_F(OpcionesEnPantalla, AFileThatCannotBeWrittenIsTold) {
    ctx.ConfigFilePath = dir.filePath(u"no/hay/carpeta.ini"_s);
    EXPECT_FALSE(GuardarConGen(ctx, LeerConGen(ctx, {})).ok);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_TRUE(registro.mensajes[0].texto.contains(u"carpeta.ini"_s));
    EXPECT_FALSE(GuardarBase(ctx, {u"a/"_s, u"a/"_s, u"a/"_s, u"a/"_s, u"a/"_s}));
}

TEST_F(OpcionesEnPantalla, AControlThatNoOptionHasIsAFailureThatNamesIt) {
    ValoresConGen v = LeerConGen(ctx, {});
    try {
        v[u"Check5"] = u"S"_s;
        FAIL() << "taken";
    } catch (const Falla &e) {
        EXPECT_EQ(e.descripcion, u"Ninguna opción tiene el control Check5."_s);
    }
}

// Store locations

TEST_F(OpcionesEnPantalla, FoldersAreShownAndStoredWithTheirSeparator) {
    EscribirIni(u"BASESERVER"_s, u"INTERNO"_s, u"/datos/i"_s, archivo());
    EscribirIni(u"BASELOCAL"_s, u"USUARIO"_s, u"C:\\Zendra\\"_s, archivo());
    ValoresBase v = LeerBase(ctx);
    EXPECT_EQ(v.txtInterno.toStdString(), "/datos/i");
    EXPECT_EQ(v.TxtUsuario.toStdString(), "C:\\Zendra\\");
    v.TxtPersonal = "D:\\Personal"_L1;
    v.TxtNcm = "/datos/ncm/"_L1;
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
    EXPECT_TRUE(ctx.PathEstados.endsWith(u"estados.mdb"_s));
    EXPECT_EQ(ctx.PathSystablas, systablas) << "follows at the next start";
}

}  // namespace
