// The options of a run of the batch: those of the configuration file, and the controls of the dashboard.

#include <map>
#include <optional>
#include <variant>

#include "frame/base/numbers.h"
#include "frame/entities.h"
#include "operations/batch.h"

using namespace Qt::StringLiterals;

namespace lote {

namespace {

using ajuste::flags;
using ajuste::zendra;
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

}  // namespace

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
        // What the run does not keep is no option of it.
        const bool conocida = fila != nullptr && !std::holds_alternative<std::monostate>(fila->miembro);
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

}  // namespace lote
