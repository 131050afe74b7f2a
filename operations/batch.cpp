#include "operations/batch.h"

#include <QJsonArray>
#include <map>
#include <optional>
#include <variant>

#include "assembly/run.h"
#include "frame/base/numbers.h"
#include "frame/jsondialogs.h"
#include "frame/startup.h"
#include "header/changes.h"
#include "liquidation/consistency.h"
#include "liquidation/review.h"
#include "operations/browser.h"
#include "operations/lifecycle.h"

using namespace Qt::StringLiterals;

namespace lote {

namespace {

using L = QLatin1String;

const QString internos = u"INTERNOS"_s;
const QString zendra = u"ZENDRA"_s;
const QString flags = u"FLAGS"_s;
const QString sinDescripciones = u"NO"_s;

/// Reads a JSON value into a control of the dashboard; false when it is of another kind.
using Poner = std::function<bool(const QJsonValue &, EleccionDelTablero &)>;

/// A flag is written as in the configuration file ("S", "N") or as a truth value.
bool leerFlag(const QJsonValue &v, bool &donde) {
    if (v.isBool()) {
        donde = v.toBool();
        return true;
    }
    const QString texto = v.toString();
    if (!v.isString() || (texto != "S"_L1 && texto != "N"_L1)) return false;
    donde = texto == "S"_L1;
    return true;
}

Poner control(bool EleccionDelTablero::*miembro) {
    return [miembro](const QJsonValue &v, EleccionDelTablero &t) { return leerFlag(v, t.*miembro); };
}

bool ponerOrdenDeCarga(const QJsonValue &v, EleccionDelTablero &t) {
    bool si = false;
    if (!leerFlag(v, si)) return false;
    t.opOrdenxNCM = !si;
    return true;
}

bool ponerDescripcion(const QJsonValue &v, EleccionDelTablero &t) {
    const QString modo = v.toString();
    if (!v.isString() ||
        !QStringList{QString(), u"NO"_s, u"MARIA"_s, u"CATALOGO"_s, u"MEZCLA"_s}.contains(modo))
        return false;
    t.opcionDJAI = modo.isEmpty() ? sinDescripciones : modo;
    return true;
}

const std::map<QString, Poner> &controlesDelTablero() {
    static const std::map<QString, Poner> todos{
        {u"opOrdenxCarga"_s, ponerOrdenDeCarga},
        {u"opOrdenxNCM"_s, control(&EleccionDelTablero::opOrdenxNCM)},
        {u"ChMulta"_s, control(&EleccionDelTablero::ChMulta)},
        {u"ChCOEF"_s, control(&EleccionDelTablero::ChCOEF)},
        {u"chkCalcularServicioDigitalizacion"_s,
         control(&EleccionDelTablero::chkCalcularServicioDigitalizacion)},
        {u"CALCULAR_SERVICIO_DIGITALIZACION"_s,
         control(&EleccionDelTablero::chkCalcularServicioDigitalizacion)},
        {u"DJAI_USAR_DESCRIPCION"_s, ponerDescripcion},
    };
    return todos;
}

/// A JSON value as the configuration file spells it; nothing for one that is no flag, number or text.
std::optional<QString> comoEnElArchivo(const QJsonValue &v) {
    if (v.isBool()) return v.toBool() ? u"S"_s : u"N"_s;
    if (v.isDouble()) return numeros::aTexto(v.toDouble());
    if (v.isString()) return v.toString();
    return std::nullopt;
}

/// Takes the value of an option; false when it is of another kind.
bool ponerOpcion(const FilaDeOpcion &fila, const QJsonValue &v, AppContext &ctx, EleccionDelTablero &t) {
    const std::optional<QString> texto = comoEnElArchivo(v);
    const bool esTexto = fila.clase == ClaseDeOpcion::Texto || fila.clase == ClaseDeOpcion::Impresora;
    if (!texto || (esTexto && !v.isString()) || !OpcionAdmite(fila, *texto)) return false;
    PonerOpcion(fila, ctx.opciones, *texto);
    // The dashboard starts on the order that the options tell.
    if (fila.clase == ClaseDeOpcion::Orden) t.opOrdenxNCM = ctx.opciones.ARMARITEM == 1;
    return true;
}

bool existe(AppContext &ctx, const QString &clave) {
    Recordset rs;
    return Consultar(ctx, internos, "select interno from caratula where interno = '"_L1 + clave + "'"_L1, rs);
}

double contar(AppContext &ctx, const QString &tabla, const QString &clave, const char *cola = "") {
    Recordset rs;
    Consultar(
        ctx, internos,
        "select count(*) as valor from "_L1 + tabla + " where interno = '"_L1 + clave + "'"_L1 + L(cola), rs);
    return rs.Numero(u"valor");
}

int armar(AppContext &ctx, const Orden &orden, const EleccionDelTablero &t, QJsonObject &resultado) {
    if (orden.forzar) MarcarArmado(ctx, orden.clave, true);
    OpcionesDeArmado opciones;
    const PasoDeArmado paso = PrepararArmado(ctx, orden.clave, t, opciones);
    bool entera = true;
    if (paso == PasoDeArmado::Armar) {
        entera = Generar(ctx, orden.clave, opciones);
        if (ctx.ChequeoArmado != "SI"_L1) ArmadoFallido(ctx, orden.clave);
    } else {
        ctx.ChequeoArmado = paso == PasoDeArmado::YaArmado ? u"SI"_s : u"NO"_s;
    }
    resultado[u"armado"_s] = ctx.ChequeoArmado;
    resultado[u"corrida"_s] = paso == PasoDeArmado::Armar;
    resultado[u"items"_s] = contar(ctx, u"item"_s, orden.clave, " and id<>0");
    resultado[u"grupos"_s] = contar(ctx, u"groupsubitems"_s, orden.clave);
    return entera ? bien : falla;
}

int liquidar(AppContext &ctx, const Orden &orden, const EleccionDelTablero &t, QJsonObject &resultado) {
    if (contar(ctx, u"item"_s, orden.clave) == 0) {
        ctx.dialogos.critico(u"El interno %1 no tiene items; ármelo antes de liquidarlo."_s.arg(orden.clave));
        return falla;
    }
    ctx.CalcularCoeficiente = t.ChCOEF;
    ctx.LiquidacionPendiente = true;
    ClassLiquidacion calculo(ctx, orden.clave);
    const ResultadoRecalculo r = RecalcularOperacion(ctx, orden.clave, calculo);
    QJsonArray grilla;
    for (const FilaLiq &f : r.grilla)
        grilla.append(QJsonObject{
            {u"numero"_s, f.numero}, {u"concepto"_s, f.concepto}, {u"total"_s, f.total}, {u"pgc"_s, f.pgc}});
    resultado[u"totalP"_s] = numeros::Format(r.totalP, u"00.00", ctx.SeparadorDecimal);
    resultado[u"totalG"_s] = numeros::Format(r.totalG, u"00.00", ctx.SeparadorDecimal);
    resultado[u"totalC"_s] = numeros::Format(r.totalC, u"00.00", ctx.SeparadorDecimal);
    resultado[u"baseImponible"_s] = numeros::Format(r.sumaBaseImponible, u"00.00", ctx.SeparadorDecimal);
    resultado[u"baseIVA"_s] = numeros::Format(r.sumaBaseIVA, u"00.00", ctx.SeparadorDecimal);
    resultado[u"conceptos"_s] = grilla;
    return bien;
}

/// Work on an operation that is held like a dashboard would hold it.
int conLaOperacion(AppContext &ctx, const Orden &orden, const std::function<int()> &trabajo) {
    if (!ComprobarBloqueo(ctx, orden.clave)) return falla;
    const BanderasDeOperacion banderas = LeerBanderas(ctx, orden.clave);
    TomarBloqueo(ctx, orden.clave);
    int estado = falla;
    try {
        estado = trabajo();
    } catch (...) {
        try {
            GuardarYLiberar(ctx, orden.clave, banderas, std::nullopt);
        } catch (const Falla &) {
            // The store is gone; the first failure is the one to tell.
        }
        throw;
    }
    GuardarYLiberar(ctx, orden.clave, banderas, std::nullopt);
    return estado;
}

int listar(AppContext &ctx, const SalidaDeObjetos &salida, QJsonObject &resultado) {
    // All of them: the screen's fifty are a matter of the screen.
    ctx.opciones.OperacionesMostrarTODO = true;
    const std::vector<FilaDeInterno> filas = LeerInternos(ctx, {});
    for (const FilaDeInterno &f : filas)
        salida({{u"tipo"_s, u"operacion"_s},
                {u"interno"_s, f.Interno},
                {u"clase"_s, f.tipo},
                {u"subregimen"_s, f.SubRegimen},
                {u"cliente"_s, f.Cliente},
                {u"despachante"_s, f.Despachante},
                {u"vendedor"_s, f.Vendedor},
                {u"detalle"_s, f.detalle}});
    resultado[u"cantidad"_s] = static_cast<int>(filas.size());
    return bien;
}

int correr(AppContext &ctx, const Orden &orden, const EleccionDelTablero &tablero,
           const SalidaDeObjetos &salida, QJsonObject &resultado) {
    const QString &c = orden.comando;
    if (c == "listar"_L1) return listar(ctx, salida, resultado);
    if (c == "crear"_L1) {
        const bool hecho = CrearInterno(ctx, orden.clave);
        resultado[u"creado"_s] = hecho;
        return hecho ? bien : falla;
    }
    if (!existe(ctx, orden.clave)) {
        ctx.dialogos.critico(
            u"No se encontró el interno %1; revise la clave o créelo primero."_s.arg(orden.clave));
        return falla;
    }
    if (c == "borrar"_L1) {
        // The screen's own question: without a "Si" among the answers nothing is removed.
        const bool confirmado = ConfirmarEliminacion(ctx, orden.clave);
        const bool hecho = confirmado && EliminarSinPreguntar(ctx, orden.clave);
        resultado[u"borrado"_s] = hecho;
        return hecho || !confirmado ? bien : falla;
    }
    if (c == "comprobar"_L1) {
        resultado[u"diferencias"_s] = ComprobarInterno(ctx, orden.clave);
        return bien;
    }
    return conLaOperacion(ctx, orden, [&] {
        return c == "armar"_L1 ? armar(ctx, orden, tablero, resultado)
                               : liquidar(ctx, orden, tablero, resultado);
    });
}

}  // namespace

const QStringList &Comandos() {
    static const QStringList todos{u"armar"_s, u"liquidar"_s, u"comprobar"_s,
                                   u"crear"_s, u"borrar"_s,   u"listar"_s};
    return todos;
}

EleccionDelTablero TableroInicial(AppContext &ctx) {
    EleccionDelTablero t;
    t.opOrdenxNCM = ctx.opciones.ARMARITEM == 1;
    t.chkCalcularServicioDigitalizacion =
        ctx.ajustes.Leer(zendra, flags, u"CALCULAR_SERVICIO_DIGITALIZACION"_s, u"N"_s) == "S"_L1;
    // With nothing kept, the dashboard starts on "no descriptions".
    const QString guardada = ctx.ajustes.Leer(zendra, flags, u"DJAI_USAR_DESCRIPCION"_s);
    t.opcionDJAI = guardada.isEmpty() ? sinDescripciones : guardada;
    return t;
}

bool AplicarOpciones(const QJsonObject &opciones, AppContext &ctx, EleccionDelTablero &tablero,
                     QString &error) {
    for (auto o = opciones.constBegin(); o != opciones.constEnd(); ++o) {
        const auto control = controlesDelTablero().find(o.key());
        const FilaDeOpcion *fila = BuscarOpcion(o.key());
        // What the run does not keep, and what hangs on a library that it does not have, is no option of it.
        const bool conocida = fila != nullptr && !std::holds_alternative<std::monostate>(fila->miembro) &&
                              fila->clase != ClaseDeOpcion::BanderaDeInsumos;
        if (!conocida && control == controlesDelTablero().end()) {
            error = u"La opción \"%1\" no existe; revise el archivo de opciones."_s.arg(o.key());
            return false;
        }
        if (!(conocida ? ponerOpcion(*fila, o.value(), ctx, tablero) : control->second(o.value(), tablero))) {
            error = u"La opción \"%1\" no admite ese valor; revise el archivo de opciones."_s.arg(o.key());
            return false;
        }
    }
    return true;
}

bool VersionAdecuada(AppContext &ctx) {
    // What cannot be reached or read tells so by itself.
    Recordset rs;
    Consultar(ctx, internos, u"select 1 as uno"_s, rs);
    int version = 0;
    try {
        version = LeerVersionDelStore(ctx);
    } catch (const Falla &) {
        // Without a table of versions it is no store of ours, or one of long ago.
    }
    if (version >= versionMinima) return true;
    ctx.dialogos.critico(
        u"Los stores del perfil %1 son anteriores a la versión %2, que se necesita; actualícelos "
        "con DbUpgrade3 --perfil %1."_s.arg(ctx.DataManager.rutaDelPerfil())
            .arg(versionMinima));
    return false;
}

int Ejecutar(AppContext &ctx, const Orden &orden, const EleccionDelTablero &tablero,
             const SalidaDeObjetos &salida, QJsonObject &resultado) {
    resultado[u"resultado"_s] = orden.comando;
    if (!orden.clave.isEmpty()) resultado[u"interno"_s] = orden.clave;
    try {
        return correr(ctx, orden, tablero, salida, resultado);
    } catch (const Falla &e) {
        ctx.dialogos.critico(e.descripcion);
        return falla;
    }
}

}  // namespace lote
