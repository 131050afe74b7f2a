#include "frame/config.h"

#include <QFile>

#include "frame/base/ini.h"
#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

const QString general = u"GENERAL"_s;
const QString servidor = u"BASESERVER"_s;
const QString local = u"BASELOCAL"_s;
using ajuste::zendra;

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

/// The text of a rate, with either separator, as a number is read on this workstation.
QString tasaLegible(const AppContext &ctx, const FilaDeOpcion &fila, const QString &texto) {
    QString limpio = texto;
    ReemplazarSeparadorDecimal(limpio, ctx.SeparadorDecimal);
    if (!limpio.isEmpty() && !numeros::esNumerico(limpio))
        throw Falla{13,
                    u"CargarConfiguracion"_s,
                    u"No coinciden los tipos: %1=%2 no es un número; corríjalo en %3."_s.arg(
                        L(fila.clave), texto, ctx.ConfigFilePath),
                    {}};
    return limpio;
}

void cargarOpciones(AppContext &ctx) {
    using T = TurnoDeCarga;
    for (const T turno : {T::AntesDeLasTasas, T::Tasas, T::TrasLasTasas})
        for (const FilaDeOpcion &fila : FilasDeOpciones()) {
            if (fila.turno != turno) continue;
            const QString texto = LeerOpcion(ctx, fila);
            PonerOpcion(fila, ctx.opciones, turno == T::Tasas ? tasaLegible(ctx, fila, texto) : texto);
        }
}

QString aplicacion(const FilaDeOpcion &fila) {
    return QString(L(fila.area)).section(QLatin1Char('/'), 0, 0);
}
QString seccion(const FilaDeOpcion &fila) {
    return QString(L(fila.area)).section(QLatin1Char('/'), 1, 1);
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

QString LeerOpcion(const AppContext &ctx, const FilaDeOpcion &fila) {
    if (fila.clase == ClaseDeOpcion::BanderaDeInsumos && !ctx.opciones.TempInputsAvailable) return u"N"_s;
    if (*fila.area != '\0') return ctx.ajustes.Leer(aplicacion(fila), seccion(fila), L(fila.clave));
    return LeerIni(general, L(fila.clave), ctx.ConfigFilePath);
}

bool EscribirOpcion(AppContext &ctx, const FilaDeOpcion &fila, const QString &texto) {
    if (*fila.area == '\0') return EscribirIni(general, L(fila.clave), texto, ctx.ConfigFilePath);
    ctx.ajustes.Guardar(aplicacion(fila), seccion(fila), L(fila.clave), texto);
    return true;
}
