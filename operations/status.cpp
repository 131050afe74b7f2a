#include "operations/status.h"

#include <algorithm>

#include "assembly/run.h"
#include "frame/numbers.h"
#include "header/parties.h"
#include "header/regime.h"
#include "operations/changes.h"
#include "subitems/nomenclature.h"

namespace {

using L = QLatin1String;
using numeros::Format;

const QString internos = QStringLiteral("INTERNOS");
const QString zendra = QStringLiteral("ZENDRA");
const QString flags = QStringLiteral("FLAGS");
const QString claveDJAI = QStringLiteral("DJAI_USAR_DESCRIPCION");
const QString claveDigitalizacion = QStringLiteral("CALCULAR_SERVICIO_DIGITALIZACION");

const QString completo = QStringLiteral("COMPLETO!");
const QString incompleto = QStringLiteral("INCOMPLETO");

QString donde(const QString &interno) {
    return L(" where interno = '") + interno + L("'");
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
    const QString regimen = c.Texto(u"idsubreg");
    if (c.Numero(u"fobdivisas") == 0) return false;
    Recordset dest;
    if (!Consultar(ctx, QStringLiteral("USUARIO"),
                   L("select * from dest where subreg = '") + regimen + L("'"), dest))
        return false;
    if (regimen.isEmpty()) return false;
    if (falta(c, "factura5") && regimen.endsWith(L("06"))) return false;
    if (falta(c, "idaduana") || falta(c, "cuitcliente") || falta(c, "cuitdespaduana")) return false;
    if (falta(c, "idvendedor") && conserva(dest, "Txtidvendedor") && !EsDeclaracionDJAI(regimen))
        return false;
    if (faltaAlguno(c, {"fobdivisas", "fobcoddivisas", "fobdivcambio"})) return false;
    if (tipo == L("I") && !EsDeclaracionLAPI(regimen) && !EsDeclaracionDJAI(regimen) &&
        faltaAlguno(c, {"fletedivisas", "fletecoddivisas", "fletedivcambio", "segurodivisas",
                        "segurocoddivisas", "segurodivcambio"}))
        return false;
    return !(falta(c, "idcondiciondeventa") && conserva(dest, "Txtidcondventa"));
}

void estadoDeItems(AppContext &ctx, const QString &interno, EstadoDeOperacion &e) {
    Recordset rs;
    Consultar(ctx, internos, L("select count(1) as cont from item") + donde(interno), rs);
    const bool generado = rs.Numero(u"cont") > 0;
    e.LbEstadoItem = generado ? QStringLiteral("GENERADO!") : QStringLiteral("SIN GENERAR");
    e.frmOrdenarVisible = !generado;
    const bool djai = EsDeclaracionDJAI(e.idsubreg);
    e.framDJAIVisible = !generado && djai;
    if (djai) e.opcionDJAI = ctx.ajustes.Leer(zendra, flags, claveDJAI);
    e.mezclarHabilitado = ctx.DataManager.getDataConnectionTAG(internos) == L("SQL");
}

QString estadoDeBultos(AppContext &ctx, const QString &interno) {
    Recordset rs;
    if (!Consultar(ctx, internos,
                   L("select factura9,BULNRO,BULCOD,BULTIP,BULPES,BULDES from caratula") + donde(interno),
                   rs))
        return incompleto;
    if (rs.Texto(u"factura9").trimmed() != L("1")) return incompleto;
    const bool aGranel = rs.Texto(u"BULCOD") == L("32") && rs.Texto(u"BULTIP") == L("A");
    const bool pesoYTipo = !falta(rs, "BULTIP") && rs.Numero(u"bulpes") != 0;
    const bool resto = !falta(rs, "bulnro") && !falta(rs, "BULCOD") && !falta(rs, "buldes");
    return pesoYTipo && (aGranel || resto) ? QStringLiteral("COMPLETO") : incompleto;
}

void habilitar(EstadoDeOperacion &e) {
    const bool generado = e.LbEstadoItem == L("GENERADO!");
    const bool bultos = e.LbEstadoBultos == L("COMPLETO") && e.Completo;
    e.cmdITEM = e.LbEstadoCaratula == completo && e.LbEstadoSubItem == completo;
    e.frmOrdenar = e.LbEstadoItem == L("SIN GENERAR") && e.Completo;
    e.CmdBultos = e.cmdCertOrig = generado && (e.tipo != L("E") || e.Completo);
    e.CmdTransMaria = e.cmdExportar = e.cmdExportINS = e.CmdPrint = bultos;
    e.CmdHojaVal = RegimenUsaHojaValor(e.idsubreg) && e.Completo;
    // This one has no packages.
    if (e.idsubreg == L("IDA4") && e.Completo)
        e.cmdExportar = e.CmdTransMaria = e.cmdExportINS = e.CmdPrint = generado;
}

}  // namespace

EstadoDeOperacion LeerEstado(AppContext &ctx, const QString &interno) {
    const Reloj reloj(ctx.dialogos);
    EstadoDeOperacion e;
    Recordset c;
    if (!Consultar(ctx, internos, L("select * from caratula") + donde(interno), c)) return e;
    e.existe = true;
    e.idsubreg = c.Texto(u"idsubreg");
    e.LbSubregimen = e.idsubreg;
    e.tipo = DireccionRegimen(ctx, e.idsubreg);
    if (e.tipo.isEmpty()) e.tipo = QStringLiteral("N");
    e.marca = TipoDeclaracion(e.idsubreg);
    e.ChCOEF = e.tipo == L("E");
    e.LbAduana = c.Texto(u"idaduana");
    const QString despachante = c.Texto(u"cuitdespaduana");
    const QString cliente = c.Texto(u"cuitcliente");
    e.LbDespa = (despachante + QLatin1Char(' ') + BuscarNombre(ctx, QStringLiteral("despadu"), despachante))
                    .trimmed();
    e.LbCliente =
        (cliente + QLatin1Char(' ') + BuscarNombre(ctx, QStringLiteral("clientes"), cliente)).trimmed();
    e.LbItem = numeros::aTexto(
        contar(ctx, L("select count(*) as valor from item where id<>0 and interno = '") + interno + L("'")));
    e.LbSubItem =
        numeros::aTexto(contar(ctx, L("select count(*) as valor from groupsubitems") + donde(interno)));

    const bool caratula = caratulaCompleta(ctx, c, e.tipo);
    e.LbEstadoCaratula = caratula ? completo : incompleto;
    e.Completo = caratula;
    if (caratula) {
        Recordset rs;
        Consultar(ctx, internos, L("select sum(fob) as total from subitems") + donde(interno), rs);
        const double total = rs.Numero(u"total");
        const bool iguales =
            Format(total, u"00.00") == Format(c.Numero(u"fobdivisas"), u"00.00") && total > 0;
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
    const bool esServidor = ctx.DataManager.getDataConnectionTAG(internos) == L("SQL");
    if (eleccion.opcionDJAI == L("MEZCLA") && !esServidor) {
        ctx.dialogos.advertir(
            QStringLiteral("No puede usar la opcion DJAI - MEZCLAR DESCRIPCIONES porque no tiene Zendra 3 "
                           "version SQL Server"));
        return PasoDeArmado::NoSigue;
    }
    Recordset rs;
    Consultar(ctx, internos, L("select idsubreg,factura8 from caratula") + donde(interno), rs);
    if (rs.Eof() || rs.Texto(u"factura8") != L("S")) return PasoDeArmado::YaArmado;
    const QString regimen = rs.Texto(u"idsubreg");
    ctx.CalcularDigitalizacion = eleccion.chkCalcularServicioDigitalizacion;
    ctx.ajustes.Guardar(
        zendra, flags, claveDigitalizacion,
        eleccion.chkCalcularServicioDigitalizacion ? QStringLiteral("S") : QStringLiteral("N"));
    opciones.sinDescripcion = ctx.opciones.NoEnviarDescripcionAlITEM;
    opciones.modo = ModoDescripcion::Ninguno;
    if (EsDeclaracionDJAI(regimen)) {
        if (eleccion.opcionDJAI.isEmpty() && !ctx.opciones.NoEnviarDescripcionAlITEM) {
            ctx.dialogos.advertir(
                QStringLiteral("Debe seleccionar una opción de Descripcion DJAI para el armado de item"));
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
        const QString guardada = eleccion.opcionDJAI == L("NO") ? QString() : eleccion.opcionDJAI;
        ctx.ajustes.Guardar(zendra, flags, claveDJAI, guardada);
    }
    ctx.opciones.ARMARITEM = opciones.ARMARITEM = eleccion.opOrdenxNCM ? 1 : 2;
    ctx.CalcularMulta = opciones.ChMulta = eleccion.ChMulta;
    opciones.chkCalcularServicioDigitalizacion = eleccion.chkCalcularServicioDigitalizacion;
    opciones.ChCOEF = eleccion.ChCOEF;
    if (DireccionRegimen(ctx, regimen) == L("E")) ctx.CalcularCoeficiente = eleccion.ChCOEF;
    ctx.ChequeoArmado = QStringLiteral("SI");
    return PasoDeArmado::Armar;
}

void ArmadoFallido(AppContext &ctx, const QString &interno) {
    AnotarCambio(ctx, interno);
}

int InformarNcmMayorFob(AppContext &ctx, const QString &interno) {
    Recordset rs;
    if (!Consultar(ctx, internos,
                   L("select ncm, fobtotal From item where interno='") + interno +
                       L("' and id <> 0 order by fobtotal DESC"),
                   rs)) {
        ctx.dialogos.informar(QStringLiteral("No se encuentra el Interno con sus items armados "),
                              QStringLiteral("Informar NCM de mayor FOB en Items"));
        return -1;
    }
    for (; !rs.Eof(); rs.MoveNext()) {
        const QString ncm = rs.Texto(u"ncm");
        Recordset plazo;
        if (!Consultar(ctx, QStringLiteral("NCM"),
                       L("select [071] From NCM where [001]='") + ncm.left(10) + L("' and [002]='") +
                           ncm.mid(11, 2) + L("' and [003]='") + ncm.right(1) + L("'"),
                       plazo))
            continue;
        const QString codigo = plazo.Texto(u"071").left(1);
        if (!codigo.isEmpty() && QStringView(u"12348").contains(codigo)) return codigo.toInt();
    }
    return -1;
}
