#include "operations/batch.h"

#include <QJsonArray>
#include <map>

#include "assembly/run.h"
#include "frame/jsondialogs.h"
#include "frame/numbers.h"
#include "frame/startup.h"
#include "liquidation/review.h"
#include "operations/browser.h"
#include "operations/consistency.h"
#include "operations/lifecycle.h"

namespace lote {

namespace {

using L = QLatin1String;

const QString internos = QStringLiteral("INTERNOS");
const QString zendra = QStringLiteral("ZENDRA");
const QString flags = QStringLiteral("FLAGS");
const QString sinDescripciones = QStringLiteral("NO");

/// Reads a JSON value into one option; false when it is of another kind.
using Poner = std::function<bool(const QJsonValue &, AppContext &, EleccionDelTablero &)>;

/// A flag is written as in the configuration file ("S", "N") or as a truth value.
bool leerFlag(const QJsonValue &v, bool &donde) {
    if (v.isBool()) {
        donde = v.toBool();
        return true;
    }
    const QString texto = v.toString();
    if (!v.isString() || (texto != L("S") && texto != L("N"))) return false;
    donde = texto == L("S");
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
        ctx.opciones.*miembro = si ? QStringLiteral("S") : QStringLiteral("N");
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
    if (!v.isString() || !QStringList{QString(), QStringLiteral("NO"), QStringLiteral("MARIA"),
                                      QStringLiteral("CATALOGO"), QStringLiteral("MEZCLA")}
                              .contains(modo))
        return false;
    t.opcionDJAI = modo.isEmpty() ? sinDescripciones : modo;
    return true;
}

const std::map<QString, Poner> &opcionesConocidas() {
    static const std::map<QString, Poner> todas{
        {QStringLiteral("QUINDEL"), flag(&Opciones::QUINDEL)},
        {QStringLiteral("QUINDELRAF"), flag(&Opciones::QUINDELRAF)},
        {QStringLiteral("NROSUFIJ"), texto(&Opciones::NROSUFIJ)},
        {QStringLiteral("MODIFCAT"), nivel(&Opciones::MODIFCAT)},
        {QStringLiteral("VALORCAT"), nivel(&Opciones::VALORCAT)},
        {QStringLiteral("PRIMR100"), nivel(&Opciones::PRIMR100)},
        {QStringLiteral("GROUPBYART"), flag(&Opciones::GROUPBYART)},
        {QStringLiteral("ARMARITEM"), ponerOrden},
        {QStringLiteral("MODARTSUB"), letra(&Opciones::MODARTSUB)},
        {QStringLiteral("VrySbtDup"), letra(&Opciones::VrySbtDup)},
        {QStringLiteral("SbtMantCodart"), flag(&Opciones::SbtMantCodart)},
        {QStringLiteral("SbtMantDatos"), flag(&Opciones::SbtMantDatos)},
        {QStringLiteral("SbtMostrarAsc"), flag(&Opciones::SbtMostrarAsc)},
        {QStringLiteral("FlgIdArtTOOtros"), flag(&Opciones::FlgIdArtTOOtros)},
        {QStringLiteral("SbtNroArtAI"), flag(&Opciones::SbtNroArtAI)},
        {QStringLiteral("NOCALCLIQU"), flag(&Opciones::NOCALCLIQU)},
        {QStringLiteral("EnviarComExt"), flag(&Opciones::EnviarComExt)},
        {QStringLiteral("SbtForzarNroArtAI"), flag(&Opciones::SbtForzarNroArtAI)},
        {QStringLiteral("VendedorOrderxNombre"), flag(&Opciones::VendedorOrderxNombre)},
        {QStringLiteral("SbtFuncionCargaPor"), flag(&Opciones::SbtFuncionCargaPor)},
        {QStringLiteral("Responder_Opciones_Obligatorio"), flag(&Opciones::Responder_Opciones_Obligatorio)},
        {QStringLiteral("OperacionesMostrarTODO"), flag(&Opciones::OperacionesMostrarTODO)},
        {QStringLiteral("NoEnviarDescripcionAlITEM"), flag(&Opciones::NoEnviarDescripcionAlITEM)},
        {QStringLiteral("CancelManual"), flag(&Opciones::CancelManual)},
        {QStringLiteral("LISTADO"), entero(&Opciones::LISTADO)},
        {QStringLiteral("IVARIN"), numero(&Opciones::IVARIN)},
        {QStringLiteral("IVARNI"), numero(&Opciones::IVARNI)},
        {QStringLiteral("DIEMCHINA-IndMaxArancel"), numero(&Opciones::DIEMCHINA_IndMaxArancel)},
        {QStringLiteral("DIEMCHINA-PrefPorc"), numero(&Opciones::DIEMCHINA_PrefPorc)},
        {QStringLiteral("DEVICENAME"), texto(&Opciones::DEVICENAME)},
        {QStringLiteral("DRIVERNAME"), texto(&Opciones::DRIVERNAME)},
        {QStringLiteral("PORT"), texto(&Opciones::PORT)},
        {QStringLiteral("VERSION"), ponerVersion},
        {QStringLiteral("opOrdenxCarga"), ponerOrdenDeCarga},
        {QStringLiteral("opOrdenxNCM"), control(&EleccionDelTablero::opOrdenxNCM)},
        {QStringLiteral("ChMulta"), control(&EleccionDelTablero::ChMulta)},
        {QStringLiteral("ChCOEF"), control(&EleccionDelTablero::ChCOEF)},
        {QStringLiteral("chkCalcularServicioDigitalizacion"),
         control(&EleccionDelTablero::chkCalcularServicioDigitalizacion)},
        {QStringLiteral("CALCULAR_SERVICIO_DIGITALIZACION"),
         control(&EleccionDelTablero::chkCalcularServicioDigitalizacion)},
        {QStringLiteral("DJAI_USAR_DESCRIPCION"), ponerDescripcion},
    };
    return todas;
}

bool existe(AppContext &ctx, const QString &clave) {
    Recordset rs;
    return Consultar(ctx, internos, L("select interno from caratula where interno = '") + clave + L("'"), rs);
}

double contar(AppContext &ctx, const QString &tabla, const QString &clave, const char *cola = "") {
    Recordset rs;
    Consultar(
        ctx, internos,
        L("select count(*) as valor from ") + tabla + L(" where interno = '") + clave + L("'") + L(cola), rs);
    return rs.Numero(u"valor");
}

int armar(AppContext &ctx, const Orden &orden, const EleccionDelTablero &t, QJsonObject &resultado) {
    if (orden.forzar) MarcarArmado(ctx, orden.clave, true);
    OpcionesDeArmado opciones;
    const PasoDeArmado paso = PrepararArmado(ctx, orden.clave, t, opciones);
    bool entera = true;
    if (paso == PasoDeArmado::Armar) {
        entera = Generar(ctx, orden.clave, opciones);
        if (ctx.ChequeoArmado != L("SI")) ArmadoFallido(ctx, orden.clave);
    } else {
        ctx.ChequeoArmado = paso == PasoDeArmado::YaArmado ? QStringLiteral("SI") : QStringLiteral("NO");
    }
    resultado[QStringLiteral("armado")] = ctx.ChequeoArmado;
    resultado[QStringLiteral("corrida")] = paso == PasoDeArmado::Armar;
    resultado[QStringLiteral("items")] = contar(ctx, QStringLiteral("item"), orden.clave, " and id<>0");
    resultado[QStringLiteral("grupos")] = contar(ctx, QStringLiteral("groupsubitems"), orden.clave);
    return entera ? bien : falla;
}

int liquidar(AppContext &ctx, const Orden &orden, const EleccionDelTablero &t, QJsonObject &resultado) {
    if (contar(ctx, QStringLiteral("item"), orden.clave) == 0) {
        ctx.dialogos.critico(
            QStringLiteral("El interno %1 no tiene items; ármelo antes de liquidarlo.").arg(orden.clave));
        return falla;
    }
    ctx.CalcularCoeficiente = t.ChCOEF;
    ctx.LiquidacionPendiente = true;
    ClassLiquidacion calculo(ctx, orden.clave);
    const ResultadoRecalculo r = RecalcularOperacion(ctx, orden.clave, calculo);
    QJsonArray grilla;
    for (const FilaLiq &f : r.grilla)
        grilla.append(QJsonObject{{QStringLiteral("numero"), f.numero},
                                  {QStringLiteral("concepto"), f.concepto},
                                  {QStringLiteral("total"), f.total},
                                  {QStringLiteral("pgc"), f.pgc}});
    resultado[QStringLiteral("totalP")] = numeros::Format(r.totalP, u"00.00");
    resultado[QStringLiteral("totalG")] = numeros::Format(r.totalG, u"00.00");
    resultado[QStringLiteral("totalC")] = numeros::Format(r.totalC, u"00.00");
    resultado[QStringLiteral("baseImponible")] = numeros::Format(r.sumaBaseImponible, u"00.00");
    resultado[QStringLiteral("baseIVA")] = numeros::Format(r.sumaBaseIVA, u"00.00");
    resultado[QStringLiteral("conceptos")] = grilla;
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
        } catch (const ErrorDeStore &) {
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
        salida({{QStringLiteral("tipo"), QStringLiteral("operacion")},
                {QStringLiteral("interno"), f.Interno},
                {QStringLiteral("clase"), f.tipo},
                {QStringLiteral("subregimen"), f.SubRegimen},
                {QStringLiteral("cliente"), f.Cliente},
                {QStringLiteral("despachante"), f.Despachante},
                {QStringLiteral("vendedor"), f.Vendedor},
                {QStringLiteral("detalle"), f.detalle}});
    resultado[QStringLiteral("cantidad")] = static_cast<int>(filas.size());
    return bien;
}

int correr(AppContext &ctx, const Orden &orden, const EleccionDelTablero &tablero,
           const SalidaDeObjetos &salida, QJsonObject &resultado) {
    const QString &c = orden.comando;
    if (c == L("listar")) return listar(ctx, salida, resultado);
    if (c == L("crear")) {
        const bool hecho = CrearInterno(ctx, orden.clave);
        resultado[QStringLiteral("creado")] = hecho;
        return hecho ? bien : falla;
    }
    if (!existe(ctx, orden.clave)) {
        ctx.dialogos.critico(QStringLiteral("No se encontró el interno %1; revise la clave o créelo primero.")
                                 .arg(orden.clave));
        return falla;
    }
    if (c == L("borrar")) {
        // The screen's own question: without a "Si" among the answers nothing is removed.
        const bool confirmado = ConfirmarEliminacion(ctx, orden.clave);
        const bool hecho = confirmado && EliminarSinPreguntar(ctx, orden.clave);
        resultado[QStringLiteral("borrado")] = hecho;
        return hecho || !confirmado ? bien : falla;
    }
    if (c == L("comprobar")) {
        resultado[QStringLiteral("diferencias")] = ComprobarInterno(ctx, orden.clave);
        return bien;
    }
    return conLaOperacion(ctx, orden, [&] {
        return c == L("armar") ? armar(ctx, orden, tablero, resultado)
                               : liquidar(ctx, orden, tablero, resultado);
    });
}

}  // namespace

const QStringList &Comandos() {
    static const QStringList todos{QStringLiteral("armar"),     QStringLiteral("liquidar"),
                                   QStringLiteral("comprobar"), QStringLiteral("crear"),
                                   QStringLiteral("borrar"),    QStringLiteral("listar")};
    return todos;
}

EleccionDelTablero TableroInicial(AppContext &ctx) {
    EleccionDelTablero t;
    t.opOrdenxNCM = ctx.opciones.ARMARITEM == 1;
    t.chkCalcularServicioDigitalizacion =
        ctx.ajustes.Leer(zendra, flags, QStringLiteral("CALCULAR_SERVICIO_DIGITALIZACION"),
                         QStringLiteral("N")) == L("S");
    // With nothing kept, the dashboard starts on "no descriptions".
    const QString guardada = ctx.ajustes.Leer(zendra, flags, QStringLiteral("DJAI_USAR_DESCRIPCION"));
    t.opcionDJAI = guardada.isEmpty() ? sinDescripciones : guardada;
    return t;
}

bool AplicarOpciones(const QJsonObject &opciones, AppContext &ctx, EleccionDelTablero &tablero,
                     QString &error) {
    for (auto o = opciones.constBegin(); o != opciones.constEnd(); ++o) {
        const auto conocida = opcionesConocidas().find(o.key());
        if (conocida == opcionesConocidas().end()) {
            error = QStringLiteral("La opción \"%1\" no existe; revise el archivo de opciones.").arg(o.key());
            return false;
        }
        if (!conocida->second(o.value(), ctx, tablero)) {
            error = QStringLiteral("La opción \"%1\" no admite ese valor; revise el archivo de opciones.")
                        .arg(o.key());
            return false;
        }
    }
    return true;
}

bool VersionAdecuada(AppContext &ctx) {
    // What cannot be reached or read tells so by itself.
    Recordset rs;
    Consultar(ctx, internos, QStringLiteral("select 1 as uno"), rs);
    int version = 0;
    try {
        version = LeerVersionDelStore(ctx);
    } catch (const ErrorDeStore &) {
        // Without a table of versions it is no store of ours, or one of long ago.
    }
    if (version >= versionMinima) return true;
    ctx.dialogos.critico(
        QStringLiteral(
            "Los stores del perfil %1 son anteriores a la versión %2, que se necesita; actualícelos "
            "con DbUpgrade3 --perfil %1.")
            .arg(ctx.DataManager.rutaDelPerfil())
            .arg(versionMinima));
    return false;
}

int Ejecutar(AppContext &ctx, const Orden &orden, const EleccionDelTablero &tablero,
             const SalidaDeObjetos &salida, QJsonObject &resultado) {
    resultado[QStringLiteral("resultado")] = orden.comando;
    if (!orden.clave.isEmpty()) resultado[QStringLiteral("interno")] = orden.clave;
    try {
        return correr(ctx, orden, tablero, salida, resultado);
    } catch (const ErrorDeStore &e) {
        ctx.dialogos.critico(e.descripcion);
        return falla;
    }
}

}  // namespace lote
