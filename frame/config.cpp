#include "frame/config.h"

#include <QFile>

#include "frame/context.h"
#include "frame/ini.h"
#include "frame/numbers.h"
#include "liquidation/ClassLiquidacion.h"

namespace {

using L = QLatin1String;

const QString general = QStringLiteral("GENERAL");
const QString servidor = QStringLiteral("BASESERVER");
const QString local = QStringLiteral("BASELOCAL");
const QString zendra = QStringLiteral("ZENDRA");

/// Where one store's file lies for the libraries that open it themselves.
struct Ubicacion {
    const char *seccion;
    const char *clave;
    const char *archivo;
    QString AppContext::*ruta;
};
// systablas has no key of its own: it lies with the operations.
constexpr Ubicacion ubicaciones[] = {{"BASESERVER", "INTERNO", "internos.mdb", &AppContext::PathInternos},
                                     {"BASESERVER", "INTERNO", "systablas.mdb", &AppContext::PathSystablas},
                                     {"BASESERVER", "PERSONAL", "personal.mdb", &AppContext::PathPersonal},
                                     {"BASESERVER", "NCM", "ncm.mdb", &AppContext::PathNcm},
                                     {"BASELOCAL", "USUARIO", "usuario.mdb", &AppContext::PathUsuario},
                                     {"BASESERVER", "ESTADO", "estados.mdb", &AppContext::PathEstados}};

void cargarUbicaciones(AppContext &ctx) {
    const QString bases = QStringLiteral("BASES");
    const auto leer = [&ctx](const QString &seccion, const char *clave) {
        return LeerIni(seccion, L(clave), ctx.ConfigFilePath);
    };
    ctx.ajustes.Guardar(zendra, bases, QStringLiteral("INTERNO"), TerminarEnBarra(leer(servidor, "INTERNO")));
    for (const char *clave : {"SYSTABLAS", "PERSONAL", "NCM", "ESTADO"})
        ctx.ajustes.Guardar(zendra, bases, L(clave),
                            leer(servidor, L(clave) == L("SYSTABLAS") ? "INTERNO" : clave));
    ctx.ajustes.Guardar(zendra, bases, QStringLiteral("USUARIO"), leer(local, "USUARIO"));
    for (const Ubicacion &u : ubicaciones) {
        QString carpeta = LeerIni(L(u.seccion), L(u.clave), ctx.ConfigFilePath);
        if (carpeta.trimmed().isEmpty()) {
            carpeta = TerminarEnBarra(ctx.ProgramFolder + QStringLiteral("db"));
            EscribirIni(L(u.seccion), L(u.clave), carpeta, ctx.ConfigFilePath);
        }
        ctx.*u.ruta = carpeta + L(u.archivo);
    }
}

double leerTasa(const AppContext &ctx, const char *clave) {
    const QString texto = LeerIni(general, L(clave), ctx.ConfigFilePath);
    QString limpio = texto;
    if (limpio.isEmpty()) return 0;
    ClassLiquidacion::ReemplazarSeparadorDecimal(limpio);
    if (!numeros::esNumerico(limpio))
        throw QStringLiteral("No coinciden los tipos: %1=%2 no es un número; corríjalo en %3.")
            .arg(L(clave), texto, ctx.ConfigFilePath);
    return numeros::aNumero(limpio);
}

void cargarOpciones(AppContext &ctx) {
    Opciones &o = ctx.opciones;
    const auto leer = [&ctx](const char *clave) { return LeerIni(general, L(clave), ctx.ConfigFilePath); };
    const auto si = [&leer](const char *clave) { return leer(clave) == L("S"); };
    const auto nivel = [&si](const char *clave) { return si(clave) ? 2 : 1; };
    const auto letra = [&leer](const char *clave) {
        return leer(clave).trimmed() == L("S") ? QStringLiteral("S") : QStringLiteral("N");
    };
    const auto numero = [&leer](const char *clave, double defecto) {
        const QString texto = leer(clave);
        return numeros::esNumerico(texto) ? numeros::aNumero(texto) : defecto;
    };
    o.QUINDEL = si("QUINDEL");
    o.QUINDELRAF = si("QUINDELRAF");
    o.NROSUFIJ = leer("NROSUFIJ");
    o.MODIFCAT = nivel("MODIFCAT");
    o.VALORCAT = nivel("VALORCAT");
    o.PRIMR100 = nivel("PRIMR100");
    o.GROUPBYART = si("GROUPBYART");
    o.ARMARITEM = numero("ARMARITEM", 2) == 1 ? 1 : 2;
    o.MODARTSUB = letra("MODARTSUB");
    // The key is read for its own sake: every value of it means level 2.
    o.VERSION = 2;
    o.VrySbtDup = si("VrySbtDup") ? QStringLiteral("S") : QStringLiteral("N");
    o.SbtMantCodart = si("SbtMantCodart");
    o.SbtMantDatos = si("SbtMantDatos");
    o.SbtMostrarAsc = si("SbtMostrarAsc");
    o.FlgIdArtTOOtros = si("FlgIdArtTOOtros");
    o.SbtNroArtAI = si("SbtNroArtAI");
    o.NOCALCLIQU = si("NOCALCLIQU");
    o.EnviarComExt = si("EnviarComExt");
    o.SbtForzarNroArtAI = si("SbtForzarNroArtAI");
    o.VendedorOrderxNombre = si("VendedorOrderxNombre");
    o.SbtFuncionCargaPor = leer("SbtFuncionCargaPor") != L("N");
    o.Responder_Opciones_Obligatorio = si("Responder_Opciones_Obligatorio");
    o.OperacionesMostrarTODO = si("OperacionesMostrarTODO");
    o.NoEnviarDescripcionAlITEM = si("NoEnviarDescripcionAlITEM");
    o.CancelManual = ctx.ajustes.Leer(general, QStringLiteral("OBJ"), QStringLiteral("CancelManual"),
                                      QStringLiteral("N")) == L("S");
    o.LISTADO = static_cast<int>(numero("LISTADO", 0));
    o.IVARIN = leerTasa(ctx, "IVARIN");
    o.IVARNI = leerTasa(ctx, "IVARNI");
    o.DEVICENAME = leer("DEVICENAME");
    o.DRIVERNAME = leer("DRIVERNAME");
    o.PORT = leer("PORT");
    o.DIEMCHINA_IndMaxArancel = numero("DIEMCHINA-IndMaxArancel", 35);
    o.DIEMCHINA_PrefPorc = numero("DIEMCHINA-PrefPorc", 40);
    // The temporary inputs library is a seam; without it the shrinkage option has no meaning.
    o.RestarPerMer =
        o.TempInputsAvailable &&
        ctx.ajustes.Leer(zendra, QStringLiteral("OBJ"), QStringLiteral("INSTMP.RestarPerMer")) == L("S");
}

}  // namespace

QString ArchivoDelPerfil(const QString &ProfileIniPath) {
    return QString(ProfileIniPath).replace(L("ini"), L("cfg"), Qt::CaseSensitive);
}

QString BuscarArchivoDeConfiguracion(const QString &ProfileIniPath, const QString &carpetaDelPrograma) {
    if (!ProfileIniPath.isEmpty() && QFile::exists(ArchivoDelPerfil(ProfileIniPath)))
        return ArchivoDelPerfil(ProfileIniPath);
    return carpetaDelPrograma + QStringLiteral("ZENDRA.ini");
}

void CargarConfiguracion(AppContext &ctx) {
    ctx.ConfigFilePath = BuscarArchivoDeConfiguracion(ctx.ProfileIniPath, ctx.ProgramFolder);
    ctx.ajustes.Guardar(zendra, QStringLiteral("DEFAULT"), QStringLiteral("UBICACION"), ctx.ProgramFolder);
    cargarUbicaciones(ctx);
    cargarOpciones(ctx);
}
