#include "operations/batch.h"

#include <QJsonArray>
#include <map>

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

/// Reads a JSON value into one option; false when it is of another kind.
using Poner = std::function<bool(const QJsonValue &, AppContext &, EleccionDelTablero &)>;

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

Poner flag(bool Opciones::*miembro) {
    return [miembro](const QJsonValue &v, AppContext &ctx, EleccionDelTablero &) {
        return leerFlag(v, ctx.opciones.*miembro);
    };
}
Poner control(bool EleccionDelTablero::*miembro) {
    return [miembro](const QJsonValue &v, AppContext &, EleccionDelTablero &t) {
        return leerFlag(v, t.*miembro);
    };
}
Poner letra(QString Opciones::*miembro) {
    return [miembro](const QJsonValue &v, AppContext &ctx, EleccionDelTablero &) {
        bool si = false;
        if (!leerFlag(v, si)) return false;
        ctx.opciones.*miembro = si ? u"S"_s : u"N"_s;
        return true;
    };
}
Poner nivel(int Opciones::*miembro) {
    return [miembro](const QJsonValue &v, AppContext &ctx, EleccionDelTablero &) {
        bool si = false;
        if (!leerFlag(v, si)) return false;
        ctx.opciones.*miembro = si ? 2 : 1;
        return true;
    };
}
Poner texto(QString Opciones::*miembro) {
    return [miembro](const QJsonValue &v, AppContext &ctx, EleccionDelTablero &) {
        ctx.opciones.*miembro = v.toString();
        return v.isString();
    };
}
bool leerNumero(const QJsonValue &v, double &donde) {
    if (v.isDouble())
        donde = v.toDouble();
    else if (v.isString() && numeros::esNumerico(v.toString()))
        donde = numeros::aNumero(v.toString());
    else
        return false;
    return true;
}
Poner numero(double Opciones::*miembro) {
    return [miembro](const QJsonValue &v, AppContext &ctx, EleccionDelTablero &) {
        return leerNumero(v, ctx.opciones.*miembro);
    };
}
Poner entero(int Opciones::*miembro) {
    return [miembro](const QJsonValue &v, AppContext &ctx, EleccionDelTablero &) {
        double valor = 0;
        if (!leerNumero(v, valor)) return false;
        ctx.opciones.*miembro = static_cast<int>(valor);
        return true;
    };
}

bool ponerOrden(const QJsonValue &v, AppContext &ctx, EleccionDelTablero &t) {
    double valor = 0;
    if (!leerNumero(v, valor)) return false;
    ctx.opciones.ARMARITEM = valor == 1 ? 1 : 2;
    t.opOrdenxNCM = valor == 1;
    return true;
}

bool ponerOrdenDeCarga(const QJsonValue &v, AppContext &, EleccionDelTablero &t) {
    bool si = false;
    if (!leerFlag(v, si)) return false;
    t.opOrdenxNCM = !si;
    return true;
}

/// Every value of this key means the same level.
bool ponerVersion(const QJsonValue &v, AppContext &, EleccionDelTablero &) {
    double valor = 0;
    return leerNumero(v, valor);
}

bool ponerDescripcion(const QJsonValue &v, AppContext &, EleccionDelTablero &t) {
    const QString modo = v.toString();
    if (!v.isString() ||
        !QStringList{QString(), u"NO"_s, u"MARIA"_s, u"CATALOGO"_s, u"MEZCLA"_s}.contains(modo))
        return false;
    t.opcionDJAI = modo.isEmpty() ? sinDescripciones : modo;
    return true;
}

const std::map<QString, Poner> &opcionesConocidas() {
    static const std::map<QString, Poner> todas{
        {u"QUINDEL"_s, flag(&Opciones::QUINDEL)},
        {u"QUINDELRAF"_s, flag(&Opciones::QUINDELRAF)},
        {u"NROSUFIJ"_s, texto(&Opciones::NROSUFIJ)},
        {u"MODIFCAT"_s, nivel(&Opciones::MODIFCAT)},
        {u"VALORCAT"_s, nivel(&Opciones::VALORCAT)},
        {u"PRIMR100"_s, nivel(&Opciones::PRIMR100)},
        {u"GROUPBYART"_s, flag(&Opciones::GROUPBYART)},
        {u"ARMARITEM"_s, ponerOrden},
        {u"MODARTSUB"_s, letra(&Opciones::MODARTSUB)},
        {u"VrySbtDup"_s, letra(&Opciones::VrySbtDup)},
        {u"SbtMantCodart"_s, flag(&Opciones::SbtMantCodart)},
        {u"SbtMantDatos"_s, flag(&Opciones::SbtMantDatos)},
        {u"SbtMostrarAsc"_s, flag(&Opciones::SbtMostrarAsc)},
        {u"FlgIdArtTOOtros"_s, flag(&Opciones::FlgIdArtTOOtros)},
        {u"SbtNroArtAI"_s, flag(&Opciones::SbtNroArtAI)},
        {u"NOCALCLIQU"_s, flag(&Opciones::NOCALCLIQU)},
        {u"EnviarComExt"_s, flag(&Opciones::EnviarComExt)},
        {u"SbtForzarNroArtAI"_s, flag(&Opciones::SbtForzarNroArtAI)},
        {u"VendedorOrderxNombre"_s, flag(&Opciones::VendedorOrderxNombre)},
        {u"SbtFuncionCargaPor"_s, flag(&Opciones::SbtFuncionCargaPor)},
        {u"Responder_Opciones_Obligatorio"_s, flag(&Opciones::Responder_Opciones_Obligatorio)},
        {u"OperacionesMostrarTODO"_s, flag(&Opciones::OperacionesMostrarTODO)},
        {u"NoEnviarDescripcionAlITEM"_s, flag(&Opciones::NoEnviarDescripcionAlITEM)},
        {u"CancelManual"_s, flag(&Opciones::CancelManual)},
        {u"LISTADO"_s, entero(&Opciones::LISTADO)},
        {u"IVARIN"_s, numero(&Opciones::IVARIN)},
        {u"IVARNI"_s, numero(&Opciones::IVARNI)},
        {u"DIEMCHINA-IndMaxArancel"_s, numero(&Opciones::DIEMCHINA_IndMaxArancel)},
        {u"DIEMCHINA-PrefPorc"_s, numero(&Opciones::DIEMCHINA_PrefPorc)},
        {u"DEVICENAME"_s, texto(&Opciones::DEVICENAME)},
        {u"DRIVERNAME"_s, texto(&Opciones::DRIVERNAME)},
        {u"PORT"_s, texto(&Opciones::PORT)},
        {u"VERSION"_s, ponerVersion},
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
    return todas;
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
        const auto conocida = opcionesConocidas().find(o.key());
        if (conocida == opcionesConocidas().end()) {
            error = u"La opción \"%1\" no existe; revise el archivo de opciones."_s.arg(o.key());
            return false;
        }
        if (!conocida->second(o.value(), ctx, tablero)) {
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
