#include "operations/status.h"

#include <algorithm>

#include "assembly/run.h"
#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/entities.h"
#include "header/changes.h"
#include "header/parties.h"
#include "header/regime.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

using ajuste::flags;
using ajuste::zendra;
using entidad::internos;
const QString claveDJAI = u"DJAI_USAR_DESCRIPCION"_s;
const QString claveDigitalizacion = u"CALCULAR_SERVICIO_DIGITALIZACION"_s;

const QString completo = u"COMPLETO!"_s;
const QString incompleto = u"INCOMPLETO"_s;

QString donde(const QString &interno) {
    return " where interno = "_L1 + EnComillas(interno);
}

double contar(AppContext &ctx, const QString &sql) {
    Recordset rs;
    return Consultar(ctx, internos, sql, rs) ? rs.Numero(u"valor") : 0;
}

bool falta(const Recordset &rs, const char *columna) {
    return rs.Texto(QString(L(columna))).isEmpty();
}

/// An amount or a rate of the header: zero and empty are missing alike.
bool faltaValor(const Recordset &rs, const char *columna) {
    const QString texto = rs.Texto(QString(L(columna)));
    return texto.isEmpty() || (numeros::esNumerico(texto) && numeros::aNumero(texto) == 0);
}

template <std::size_t N>
bool faltaAlguno(const Recordset &rs, const char *const (&columnas)[N]) {
    return std::any_of(std::begin(columnas), std::end(columnas),
                       [&rs](const char *c) { return faltaValor(rs, c); });
}

/// Whether the regime keeps a field of the header: its column of dest is blank.
bool conserva(const Recordset &dest, const char *control) {
    return dest.Texto(QString(L(control))).trimmed().isEmpty();
}

/// The header's checks, in their order; the first that fails decides.
bool caratulaCompleta(AppContext &ctx, const Recordset &c, const QString &tipo) {
    const QString regimen = RegimenEnMayusculas(c.Texto(u"idsubreg"));
    if (c.Numero(u"fobdivisas") == 0) return false;
    Recordset dest;
    if (!Consultar(ctx, u"USUARIO"_s, "select * from dest where subreg = "_L1 + EnComillas(regimen), dest))
        return false;
    if (regimen.isEmpty()) return false;
    if (falta(c, "factura5") && regimen.endsWith("06"_L1)) return false;
    if (falta(c, "idaduana") || falta(c, "cuitcliente") || falta(c, "cuitdespaduana")) return false;
    if (falta(c, "idvendedor") && conserva(dest, "Txtidvendedor") && !EsDeclaracionDJAI(regimen))
        return false;
    if (faltaAlguno(c, {"fobdivisas", "fobcoddivisas", "fobdivcambio"})) return false;
    if (tipo == "I"_L1 && !EsDeclaracionLAPI(regimen) && !EsDeclaracionDJAI(regimen) &&
        faltaAlguno(c, {"fletedivisas", "fletecoddivisas", "fletedivcambio", "segurodivisas",
                        "segurocoddivisas", "segurodivcambio"}))
        return false;
    return !(falta(c, "idcondiciondeventa") && conserva(dest, "Txtidcondventa"));
}

void estadoDeItems(AppContext &ctx, const QString &interno, EstadoDeOperacion &e) {
    e.itemsMirados = true;
    Recordset rs;
    Consultar(ctx, internos, "select count(1) as cont from item"_L1 + donde(interno), rs);
    const bool generado = rs.Numero(u"cont") > 0;
    e.LbEstadoItem = generado ? u"GENERADO!"_s : u"SIN GENERAR"_s;
    e.frmOrdenarVisible = !generado;
    const bool djai = EsDeclaracionDJAI(e.idsubreg);
    e.framDJAIVisible = !generado && djai;
    if (djai) e.opcionDJAI = ctx.ajustes.Leer(zendra, flags, claveDJAI);
    e.mezclarHabilitado = ctx.DataManager.getDataConnectionTAG(internos) == "SQL"_L1;
}

QString estadoDeBultos(AppContext &ctx, const QString &interno) {
    Recordset rs;
    if (!Consultar(ctx, internos,
                   "select factura9,BULNRO,BULCOD,BULTIP,BULPES,BULDES from caratula"_L1 + donde(interno),
                   rs))
        return incompleto;
    if (rs.Texto(u"factura9").trimmed() != "1"_L1) return incompleto;
    const bool aGranel = rs.Texto(u"BULCOD") == "32"_L1 && rs.Texto(u"BULTIP") == "A"_L1;
    const bool pesoYTipo = !falta(rs, "BULTIP") && rs.Numero(u"bulpes") != 0;
    const bool resto = !falta(rs, "bulnro") && !falta(rs, "BULCOD") && !falta(rs, "buldes");
    return pesoYTipo && (aGranel || resto) ? u"COMPLETO"_s : incompleto;
}

void habilitar(EstadoDeOperacion &e) {
    const bool generado = e.LbEstadoItem == "GENERADO!"_L1;
    const bool bultos = e.LbEstadoBultos == "COMPLETO"_L1 && e.Completo;
    e.cmdITEM = e.LbEstadoCaratula == completo && e.LbEstadoSubItem == completo;
    e.frmOrdenar = e.LbEstadoItem == "SIN GENERAR"_L1 && e.Completo;
    e.CmdBultos = e.cmdCertOrig = generado && (e.tipo != "E"_L1 || e.Completo);
    e.CmdTransMaria = e.cmdExportar = e.cmdExportINS = e.CmdPrint = bultos;
    e.CmdHojaVal = RegimenUsaHojaValor(e.idsubreg) && e.Completo;
    // This one has no packages.
    if (e.idsubreg == "IDA4"_L1 && e.Completo)
        e.cmdExportar = e.CmdTransMaria = e.cmdExportINS = e.CmdPrint = generado;
}

}  // namespace

EstadoDeOperacion LeerEstado(AppContext &ctx, const QString &interno, const EstadoDeOperacion &anterior) {
    const Reloj reloj(ctx.dialogos);
    Recordset c;
    if (!Consultar(ctx, internos, "select * from caratula"_L1 + donde(interno), c)) return {};
    EstadoDeOperacion e = anterior;
    e.itemsMirados = false;
    e.existe = true;
    e.idsubreg = RegimenEnMayusculas(c.Texto(u"idsubreg"));
    e.LbSubregimen = e.idsubreg;
    e.tipo = DireccionRegimen(ctx, e.idsubreg);
    if (e.tipo.isEmpty()) e.tipo = u"N"_s;
    e.marca = TipoDeclaracion(e.idsubreg);
    e.ChCOEF = e.tipo == "E"_L1;
    // Data that a change of the regime left behind can be taken away.
    e.cmdONCCA = EsRegimenConONCCA(e.idsubreg) || c.Texto(u"onccahabilitado") == "S"_L1;
    e.LbAduana = c.Texto(u"idaduana");
    const QString despachante = c.Texto(u"cuitdespaduana");
    const QString cliente = c.Texto(u"cuitcliente");
    e.LbDespa = (despachante + QLatin1Char(' ') + BuscarNombre(ctx, u"despadu"_s, despachante)).trimmed();
    e.LbCliente = (cliente + QLatin1Char(' ') + BuscarNombre(ctx, u"clientes"_s, cliente)).trimmed();
    e.LbItem = numeros::aTexto(contar(
        ctx, "select count(*) as valor from item where id<>0 and interno = "_L1 + EnComillas(interno)));
    e.LbSubItem =
        numeros::aTexto(contar(ctx, "select count(*) as valor from groupsubitems"_L1 + donde(interno)));

    const bool caratula = caratulaCompleta(ctx, c, e.tipo);
    e.LbEstadoCaratula = caratula ? completo : incompleto;
    e.Completo = caratula;
    if (caratula) {
        Recordset rs;
        Consultar(ctx, internos, "select sum(fob) as total from subitems"_L1 + donde(interno), rs);
        const double total = rs.Numero(u"total");
        const bool iguales = numeros::iguales(total, c.Numero(u"fobdivisas"), 2) && total > 0;
        e.LbEstadoSubItem = iguales ? completo : incompleto;
        e.Completo = iguales;
        if (iguales) estadoDeItems(ctx, interno, e);
        e.LbEstadoBultos = estadoDeBultos(ctx, interno);
    }
    habilitar(e);
    return e;
}

PasoDeArmado PrepararArmado(AppContext &ctx, const QString &interno, const EleccionDelTablero &eleccion,
                            OpcionesDeArmado &opciones) {
    const bool esServidor = ctx.DataManager.getDataConnectionTAG(internos) == "SQL"_L1;
    if (eleccion.opcionDJAI == "MEZCLA"_L1 && !esServidor) {
        ctx.dialogos.advertir(
            u"No puede usar la opcion DJAI - MEZCLAR DESCRIPCIONES porque no tiene Zendra 3 "
            "version SQL Server"_s);
        return PasoDeArmado::NoSigue;
    }
    Recordset rs;
    Consultar(ctx, internos, "select idsubreg,factura8 from caratula"_L1 + donde(interno), rs);
    if (rs.Eof() || rs.Texto(u"factura8") != "S"_L1) return PasoDeArmado::YaArmado;
    const QString regimen = RegimenEnMayusculas(rs.Texto(u"idsubreg"));
    ctx.CalcularDigitalizacion = eleccion.chkCalcularServicioDigitalizacion;
    ctx.ajustes.Guardar(zendra, flags, claveDigitalizacion,
                        eleccion.chkCalcularServicioDigitalizacion ? u"S"_s : u"N"_s);
    opciones.sinDescripcion = ctx.opciones.NoEnviarDescripcionAlITEM;
    opciones.modo = ModoDescripcion::Ninguno;
    if (EsDeclaracionDJAI(regimen)) {
        if (eleccion.opcionDJAI.isEmpty() && !ctx.opciones.NoEnviarDescripcionAlITEM) {
            ctx.dialogos.advertir(
                u"Debe seleccionar una opción de Descripcion DJAI para el armado de item"_s);
            return PasoDeArmado::NoSigue;
        }
        struct Modo {
            const char *opcion;
            ModoDescripcion modo;
            bool sinDescripcion;
        };
        static constexpr Modo modos[] = {{"NO", ModoDescripcion::Ninguno, true},
                                         {"MARIA", ModoDescripcion::Maria, false},
                                         {"CATALOGO", ModoDescripcion::Catalogo, false},
                                         {"MEZCLA", ModoDescripcion::Mezcla, true}};
        for (const Modo &m : modos) {
            if (eleccion.opcionDJAI != L(m.opcion)) continue;
            opciones.modo = m.modo;
            opciones.sinDescripcion = m.sinDescripcion;
        }
        const QString guardada = eleccion.opcionDJAI == "NO"_L1 ? QString() : eleccion.opcionDJAI;
        ctx.ajustes.Guardar(zendra, flags, claveDJAI, guardada);
    }
    ctx.opciones.ARMARITEM = opciones.ARMARITEM = eleccion.opOrdenxNCM ? 1 : 2;
    ctx.CalcularMulta = opciones.ChMulta = eleccion.ChMulta;
    opciones.chkCalcularServicioDigitalizacion = eleccion.chkCalcularServicioDigitalizacion;
    opciones.ChCOEF = eleccion.ChCOEF;
    if (DireccionRegimen(ctx, regimen) == "E"_L1) ctx.CalcularCoeficiente = eleccion.ChCOEF;
    ctx.ChequeoArmado = u"SI"_s;
    return PasoDeArmado::Armar;
}

void ArmadoFallido(AppContext &ctx, const QString &interno) {
    AnotarCambio(ctx, interno);
}
