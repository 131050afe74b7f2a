#include "frame/options.h"

#include "frame/base/ini.h"
#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/config.h"
#include "frame/context.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;
using C = ClaseDeOpcion;

QString conSeparador(const AppContext &ctx, const FilaDeOpcion &fila) {
    QString texto = TextoDeOpcion(fila, ctx.opciones);
    return ReemplazarSeparadorDecimal(texto, ctx.SeparadorDecimal);
}

bool estaEnPantalla(const FilaDeOpcion &fila) {
    return *fila.control != '\0';
}

/// What the option's control shows.
QString enElControl(const AppContext &ctx, const FilaDeOpcion &fila, const QStringList &impresoras) {
    switch (fila.clase) {
        case C::Iniciales:
            return LeerOpcion(ctx, fila).left(2);
        case C::BanderaDeInsumos:
            return LeerOpcion(ctx, fila) == "S"_L1 ? u"S"_s : u"N"_s;
        case C::Lista:
            return ctx.opciones.LISTADO == 1 ? u"1"_s : u"0"_s;
        case C::Orden:
            // The button of the first of two orders; the other follows it.
            return TextoDeOpcion(fila, ctx.opciones) == "1"_L1 ? u"S"_s : u"N"_s;
        case C::Tasa:
            // A rate that the file does not tell stays blank, so that ESC writes none.
            return LeerOpcion(ctx, fila).trimmed().isEmpty() ? QString() : conSeparador(ctx, fila);
        case C::Numero:
            return conSeparador(ctx, fila);
        case C::Impresora:
            return impresoras.contains(ctx.opciones.DEVICENAME) ? ctx.opciones.DEVICENAME : QString();
        default:
            return TextoDeOpcion(fila, ctx.opciones);
    }
}

/// What the file is to say for what the control holds; null where it is to stay as it is.
QString paraElArchivo(const AppContext &ctx, const FilaDeOpcion &fila, const QString &valor) {
    switch (fila.clase) {
        case C::Iniciales:
            return valor.toUpper().left(2);
        case C::BanderaDeInsumos:
            return ctx.opciones.TempInputsAvailable ? valor : u"N"_s;
        case C::Orden:
            return valor == "S"_L1 ? u"1"_s : u"2"_s;
        case C::Tasa:
        case C::Numero:
            return valor.trimmed().isEmpty() ? QString() : valor.trimmed();
        case C::Impresora:
            return valor.isEmpty() ? QString() : valor;
        default:
            return valor;
    }
}

/// Stores one option into the file and the running context; false when the file cannot be written.
bool guardar(AppContext &ctx, const FilaDeOpcion &fila, const QString &valor) {
    const QString texto = paraElArchivo(ctx, fila, valor);
    if (texto.isNull()) return true;
    if (OpcionAdmite(fila, texto)) PonerOpcion(fila, ctx.opciones, texto);
    if (fila.clase == C::Impresora) {
        ctx.opciones.DRIVERNAME.clear();
        ctx.opciones.PORT.clear();
    }
    return EscribirOpcion(ctx, fila, texto);
}

void avisarArchivo(const AppContext &ctx) {
    ctx.dialogos.critico(
        u"No se pudo escribir el archivo de configuración %1: "
        "revise que la carpeta exista y permita guardar."_s.arg(ctx.ConfigFilePath));
}

template <class Controles>
auto &delControl(Controles &controles, QStringView control) {
    const auto hallado = controles.find(control.toString());
    if (hallado == controles.end())
        throw Falla{0, u"FrmConGen"_s, u"Ninguna opción tiene el control %1."_s.arg(control), {}};
    return hallado->second;
}

/// The percentages that have to be numbers: neither is stored while one is none.
Veredicto comprobarNumeros(const AppContext &ctx, const ValoresConGen &v) {
    for (const FilaDeOpcion &fila : FilasDeOpciones()) {
        if (fila.clase != C::Numero || numeros::esNumerico(v[QString(L(fila.control))])) continue;
        ctx.dialogos.advertir(u"El campo %1 debe tener un valor númerico"_s.arg(L(fila.enRechazos)));
        return Veredicto::mal(L(fila.control));
    }
    return Veredicto::bien();
}

}  // namespace

QString &ValoresConGen::operator[](QStringView control) {
    return delControl(controles, control);
}

const QString &ValoresConGen::operator[](QStringView control) const {
    return delControl(controles, control);
}

ValoresConGen LeerConGen(const AppContext &ctx, const QStringList &impresoras) {
    ValoresConGen v;
    v.rutaLabel = ctx.ConfigFilePath;
    v.insumosHabilitados = ctx.opciones.TempInputsAvailable;
    for (const FilaDeOpcion &fila : FilasDeOpciones())
        if (estaEnPantalla(fila)) v.controles[L(fila.control)] = enElControl(ctx, fila, impresoras);
    return v;
}

Veredicto GuardarConGen(AppContext &ctx, const ValoresConGen &v) {
    bool escrito = true;
    const auto guardarLas = [&](bool numeros) {
        for (const FilaDeOpcion &fila : FilasDeOpciones())
            if (estaEnPantalla(fila) && (fila.clase == C::Numero) == numeros)
                escrito = guardar(ctx, fila, v[QString(L(fila.control))]) && escrito;
    };
    guardarLas(false);
    Veredicto salida = comprobarNumeros(ctx, v);
    if (salida.ok) guardarLas(true);
    if (escrito) return salida;
    avisarArchivo(ctx);
    return Veredicto::mal(salida.foco);
}

ValoresBase LeerBase(const AppContext &ctx) {
    const auto leer = [&ctx](const char *seccion, const char *clave) {
        return LeerIni(L(seccion), L(clave), ctx.ConfigFilePath);
    };
    return {leer("BASESERVER", "INTERNO"), leer("BASESERVER", "PERSONAL"), leer("BASESERVER", "NCM"),
            leer("BASESERVER", "ESTADO"), leer("BASELOCAL", "USUARIO")};
}

bool GuardarBase(AppContext &ctx, const ValoresBase &v) {
    struct Carpeta {
        const char *seccion;
        const char *clave;
        QString ValoresBase::*campo;
        const char *archivo;
        QString AppContext::*ruta;
    };
    // systablas is not among them: its path follows that of the operations at the next start.
    static constexpr Carpeta carpetas[] = {
        {"BASESERVER", "INTERNO", &ValoresBase::txtInterno, "internos.mdb", &AppContext::PathInternos},
        {"BASESERVER", "PERSONAL", &ValoresBase::TxtPersonal, "personal.mdb", &AppContext::PathPersonal},
        {"BASESERVER", "NCM", &ValoresBase::TxtNcm, "ncm.mdb", &AppContext::PathNcm},
        {"BASELOCAL", "USUARIO", &ValoresBase::TxtUsuario, "usuario.mdb", &AppContext::PathUsuario},
        {"BASESERVER", "ESTADO", &ValoresBase::TxtEstado, "estados.mdb", &AppContext::PathEstados}};
    bool escrito = true;
    for (const Carpeta &c : carpetas) {
        const QString carpeta = TerminarEnBarra(v.*c.campo);
        escrito = EscribirIni(L(c.seccion), L(c.clave), carpeta, ctx.ConfigFilePath) && escrito;
        ctx.*c.ruta = carpeta + L(c.archivo);
    }
    if (!escrito) avisarArchivo(ctx);
    return escrito;
}
