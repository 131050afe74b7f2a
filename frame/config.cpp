#include "frame/config.h"

#include <QFile>

#include "frame/base/ini.h"
#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/context.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

const QString general = u"GENERAL"_s;
const QString servidor = u"BASESERVER"_s;
const QString local = u"BASELOCAL"_s;
const QString zendra = u"ZENDRA"_s;

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
    const QString bases = u"BASES"_s;
    const auto leer = [&ctx](const QString &seccion, const char *clave) {
        return LeerIni(seccion, L(clave), ctx.ConfigFilePath);
    };
    ctx.ajustes.Guardar(zendra, bases, u"INTERNO"_s, TerminarEnBarra(leer(servidor, "INTERNO")));
    for (const char *clave : {"SYSTABLAS", "PERSONAL", "NCM", "ESTADO"})
        ctx.ajustes.Guardar(zendra, bases, L(clave),
                            leer(servidor, L(clave) == "SYSTABLAS"_L1 ? "INTERNO" : clave));
    ctx.ajustes.Guardar(zendra, bases, u"USUARIO"_s, leer(local, "USUARIO"));
    for (const Ubicacion &u : ubicaciones) {
        QString carpeta = LeerIni(L(u.seccion), L(u.clave), ctx.ConfigFilePath);
        if (carpeta.trimmed().isEmpty()) {
            carpeta = TerminarEnBarra(ctx.ProgramFolder + u"db"_s);
            EscribirIni(L(u.seccion), L(u.clave), carpeta, ctx.ConfigFilePath);
        }
        ctx.*u.ruta = carpeta + L(u.archivo);
    }
}

double leerTasa(const AppContext &ctx, const char *clave) {
    const QString texto = LeerIni(general, L(clave), ctx.ConfigFilePath);
    QString limpio = texto;
    if (limpio.isEmpty()) return 0;
    ReemplazarSeparadorDecimal(limpio, ctx.SeparadorDecimal);
    if (!numeros::esNumerico(limpio))
        throw Falla{13,
                    u"CargarConfiguracion"_s,
                    u"No coinciden los tipos: %1=%2 no es un número; corríjalo en %3."_s.arg(
                        L(clave), texto, ctx.ConfigFilePath),
                    {}};
    return numeros::aNumero(limpio);
}

void cargarOpciones(AppContext &ctx) {
    Opciones &o = ctx.opciones;
    const auto leer = [&ctx](const char *clave) { return LeerIni(general, L(clave), ctx.ConfigFilePath); };
    const auto si = [&leer](const char *clave) { return leer(clave) == "S"_L1; };
    const auto nivel = [&si](const char *clave) { return si(clave) ? 2 : 1; };
    const auto letra = [&leer](const char *clave) {
        return leer(clave).trimmed() == "S"_L1 ? u"S"_s : u"N"_s;
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
    o.VrySbtDup = si("VrySbtDup") ? u"S"_s : u"N"_s;
    o.SbtMantCodart = si("SbtMantCodart");
    o.SbtMantDatos = si("SbtMantDatos");
    o.SbtMostrarAsc = si("SbtMostrarAsc");
    o.FlgIdArtTOOtros = si("FlgIdArtTOOtros");
    o.SbtNroArtAI = si("SbtNroArtAI");
    o.NOCALCLIQU = si("NOCALCLIQU");
    o.EnviarComExt = si("EnviarComExt");
    o.SbtForzarNroArtAI = si("SbtForzarNroArtAI");
    o.VendedorOrderxNombre = si("VendedorOrderxNombre");
    o.SbtFuncionCargaPor = leer("SbtFuncionCargaPor") != "N"_L1;
    o.Responder_Opciones_Obligatorio = si("Responder_Opciones_Obligatorio");
    o.OperacionesMostrarTODO = si("OperacionesMostrarTODO");
    o.NoEnviarDescripcionAlITEM = si("NoEnviarDescripcionAlITEM");
    o.CancelManual = ctx.ajustes.Leer(general, u"OBJ"_s, u"CancelManual"_s, u"N"_s) == "S"_L1;
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
        o.TempInputsAvailable && ctx.ajustes.Leer(zendra, u"OBJ"_s, u"INSTMP.RestarPerMer"_s) == "S"_L1;
}

}  // namespace

QString ArchivoDelPerfil(const QString &ProfileIniPath) {
    return QString(ProfileIniPath).replace("ini"_L1, "cfg"_L1, Qt::CaseSensitive);
}

QString BuscarArchivoDeConfiguracion(const QString &ProfileIniPath, const QString &carpetaDelPrograma) {
    if (!ProfileIniPath.isEmpty() && QFile::exists(ArchivoDelPerfil(ProfileIniPath)))
        return ArchivoDelPerfil(ProfileIniPath);
    return carpetaDelPrograma + u"ZENDRA.ini"_s;
}

void CargarConfiguracion(AppContext &ctx) {
    ctx.ConfigFilePath = BuscarArchivoDeConfiguracion(ctx.ProfileIniPath, ctx.ProgramFolder);
    ctx.ajustes.Guardar(zendra, u"DEFAULT"_s, u"UBICACION"_s, ctx.ProgramFolder);
    cargarUbicaciones(ctx);
    cargarOpciones(ctx);
}
