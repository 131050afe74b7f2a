#include "outputs/quote.h"

#include <algorithm>
#include <utility>

#include "frame/base/ini.h"
#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"

using namespace Qt::StringLiterals;

namespace {

using ajuste::flags;
using ajuste::zendra;
using entidad::internos;
using entidad::personal;
using L = QLatin1String;

const QString seccionDePresupuesto = u"PRESUPUESTO"_s;
const QString claveDePase = u"PASE"_s;
const QString claveDeLineas = u"LINEA"_s;
const QString claveDeCorreo = u"XOUTLOOK"_s;
constexpr QStringView mascaraDeImporte = u"00.00";
constexpr QStringView mascaraDePase = u"00.000000";

QString montoMostrado(const AppContext &ctx, double valor) {
    return numeros::Format(valor, mascaraDeImporte, ctx.SeparadorDecimal);
}

QString paseMostrado(const AppContext &ctx, double valor) {
    return numeros::Format(valor, mascaraDePase, ctx.SeparadorDecimal);
}

QString deEsteInterno(const QString &interno) {
    return "interno = "_L1 + EnComillas(interno);
}

/// A rate as it is shown; a text that is no number stays as it stands.
QString paseTecleado(const AppContext &ctx, const QString &texto) {
    return numeros::Format(texto, mascaraDePase, ctx.SeparadorDecimal);
}

void leerNombres(AppContext &ctx, const Recordset &caratula, Presupuesto &p) {
    Recordset rs;
    if (Consultar(
            ctx, personal,
            "select nombre from despadu where cuit = "_L1 + EnComillas(caratula.Texto(u"cuitdespaduana")),
            rs))
        p.LbDespachante = rs.Texto(u"nombre");
    if (!Consultar(ctx, personal,
                   "select nombre,domicilio,email from clientes where cuit = "_L1 +
                       EnComillas(caratula.Texto(u"cuitcliente")),
                   rs))
        return;
    p.LbCliente = rs.Texto(u"nombre");
    p.LbCLIDOM = rs.Texto(u"domicilio");
    p.TxtEmail = rs.Texto(u"email");
}

/// An adjustment of the header, or without one the sum over the items.
double ajusteDe(AppContext &ctx, const Recordset &caratula, QStringView deCaratula, L deItem,
                const QString &interno) {
    const double propio = caratula.Numero(deCaratula);
    if (propio != 0) return propio;
    double suma = 0;
    Recordset rs;
    for (Consultar(ctx, internos,
                   "select "_L1 + deItem + " as total from item where isnumeric("_L1 + deItem +
                       ")<>0 and id<>0 and "_L1 + deEsteInterno(interno),
                   rs);
         !rs.Eof(); rs.MoveNext())
        suma += rs.Numero(u"total");
    return suma;
}

void leerValores(AppContext &ctx, const Recordset &caratula, Presupuesto &p) {
    Recordset rs;
    Consultar(ctx, internos,
              "select sum(fob) as total from groupsubitems where "_L1 + deEsteInterno(p.interno), rs);
    p.LbFOB = montoMostrado(ctx, rs.Eof() ? 0 : rs.Numero(u"total"));
    p.LbPaseFob = paseMostrado(ctx, caratula.Numero(u"fobdivcambio"));
    p.LbFlete = montoMostrado(ctx, caratula.Numero(u"fletedivisas"));
    p.LbPaseFlete = paseMostrado(ctx, caratula.Numero(u"fletedivcambio"));
    p.LbSeguro = montoMostrado(ctx, caratula.Numero(u"segurodivisas"));
    p.LbPaseSeguro = paseMostrado(ctx, caratula.Numero(u"segurodivcambio"));
    p.LbAjDed = montoMostrado(ctx, ajusteDe(ctx, caratula, u"ajustededucir", "ajusteded"_L1, p.interno));
    p.LbAjInc = montoMostrado(ctx, ajusteDe(ctx, caratula, u"ajusteincluir", "ajusteinc"_L1, p.interno));
}

/// What the labels show is what is reckoned with, so that the reader can follow it.
QString baseImponible(const AppContext &ctx, const Presupuesto &p) {
    const auto n = [](const QString &texto) { return numeros::aNumero(texto); };
    double base = n(p.LbFOB) * n(p.LbPaseFob);
    const QString clase = p.subregimen.left(2).toUpper();
    if (clase != "EG"_L1 && clase != "EC"_L1)
        base += n(p.LbFlete) * n(p.LbPaseFlete) + n(p.LbSeguro) * n(p.LbPaseSeguro);
    base += n(p.LbAjInc) * n(p.LbPaseFob);
    base -= n(p.LbAjDed) * n(p.LbPaseFob);
    return montoMostrado(ctx, base);
}

/// The total that a duty is in; null for a payment kind that has none.
EnDosMonedas *totalDe(Presupuesto &p, const QString &pgc) {
    if (pgc == "P"_L1) return &p.totalP;
    if (pgc == "C"_L1) return &p.totalC;
    if (pgc == "G"_L1) return &p.totalG;
    return nullptr;
}

void leerGastos(AppContext &ctx, Presupuesto &p) {
    p.gastos.clear();
    p.totalP = p.totalG = p.totalC = {};
    const double cambio = PaseDe(p);
    Recordset rs;
    for (Consultar(ctx, internos,
                   "select * from liqcero "
                   "where LEFT(idconcepto,3) <> '###' and "_L1 +
                       deEsteInterno(p.interno) + " order by pgc desc,concepto"_L1,
                   rs);
         !rs.Eof(); rs.MoveNext()) {
        if (rs.EsNulo(u"valor")) continue;
        const double valor = rs.Numero(u"valor");
        const GastoDeDespacho gasto{rs.Texto(u"concepto"), rs.Texto(u"pgc"), valor * cambio, valor};
        if (EnDosMonedas *total = totalDe(p, gasto.pgc)) {
            total->pesos += gasto.pesos;
            total->dolares += gasto.dolares;
        }
        p.gastos.push_back(gasto);
    }
    Consultar(ctx, internos,
              "select valor from liqcero where idconcepto = '###baseiva' and "_L1 + deEsteInterno(p.interno),
              rs);
    p.LbBaseIVA = montoMostrado(ctx, rs.Eof() ? 0 : rs.Numero(u"valor"));
}

}  // namespace

bool CargarCaratula(AppContext &ctx, const QString &interno, Presupuesto &p) {
    p = {};
    p.interno = interno;
    Recordset caratula;
    if (!Consultar(ctx, internos, "select * from caratula where "_L1 + deEsteInterno(interno), caratula)) {
        ctx.dialogos.advertir(u"No se encontro interno!"_s);
        return false;
    }
    LeerDatosDelCorreo(ctx, p);
    p.subregimen = caratula.Texto(u"idsubreg");
    p.txtAcuenta = caratula.Texto(u"factura6");
    ReemplazarSeparadorDecimal(p.txtAcuenta, ctx.SeparadorDecimal);
    p.TxtPase = ctx.ajustes.Leer(zendra, seccionDePresupuesto, claveDePase, u"1.40"_s);
    p.TxtPase = paseTecleado(ctx, p.TxtPase.replace(u'.', ctx.SeparadorDecimal));
    p.lineasEnBlanco =
        std::max(0, ctx.ajustes.Leer(zendra, seccionDePresupuesto, claveDeLineas, u"0"_s).toInt());
    p.porOutlook = ctx.ajustes.Leer(zendra, flags, claveDeCorreo, u"N"_s) == "S"_L1;
    leerNombres(ctx, caratula, p);
    leerValores(ctx, caratula, p);
    p.LbBaseImp = baseImponible(ctx, p);
    leerGastos(ctx, p);
    Cargar(ctx, p);
    Cargar2(ctx, p);
    return true;
}

void LeerDatosDelCorreo(const AppContext &ctx, Presupuesto &p) {
    p.remitente = LeerIni(u"SMTP"_s, u"EMAIL"_s, ctx.ConfigFilePath);
    p.servidor = LeerIni(u"SMTP"_s, u"SERVER"_s, ctx.ConfigFilePath);
}

void Cargar(AppContext &ctx, Presupuesto &p) {
    Recordset rs;
    Consultar(ctx, internos, "select * from itempresu where "_L1 + deEsteInterno(p.interno), rs);
    // Only now: what cannot be read again stays.
    p.operativos.clear();
    for (; !rs.Eof(); rs.MoveNext())
        p.operativos.push_back({rs.Texto(u"concepto"), rs.Numero(u"valorpeso"), rs.Numero(u"valordolar")});
}

void Cargar2(AppContext &ctx, Presupuesto &p) {
    Recordset rs;
    Consultar(ctx, internos, "select * from itemref where "_L1 + deEsteInterno(p.interno), rs);
    // Only now: what cannot be read again stays.
    p.referencias.clear();
    for (; !rs.Eof(); rs.MoveNext()) p.referencias.push_back({rs.Texto(u"referencia"), rs.Texto(u"valor")});
}

bool HayPase(const Presupuesto &p) {
    return numeros::esNumerico(p.TxtPase);
}

double PaseDe(const Presupuesto &p) {
    return numeros::aNumero(p.TxtPase);
}

void CambiarPase(AppContext &ctx, Presupuesto &p, const QString &texto) {
    p.TxtPase = paseTecleado(ctx, texto);
    if (!HayPase(p)) return;
    // With a point, whatever the workstation's separator is when it is read again.
    ctx.ajustes.Guardar(zendra, seccionDePresupuesto, claveDePase,
                        numeros::Format(PaseDe(p), mascaraDePase, u'.'));
    for (std::size_t n = 0; n < p.gastos.size(); ++n)
        CambiarGasto(p, n, EnAmbasMonedas(p, p.gastos[n].dolares, true));
}

void CambiarGasto(Presupuesto &p, std::size_t cual, const EnDosMonedas &nuevo) {
    GastoDeDespacho &gasto = p.gastos.at(cual);
    if (EnDosMonedas *total = totalDe(p, gasto.pgc)) {
        total->pesos += nuevo.pesos - gasto.pesos;
        total->dolares += nuevo.dolares - gasto.dolares;
    }
    gasto.pesos = nuevo.pesos;
    gasto.dolares = nuevo.dolares;
}

EnDosMonedas EnAmbasMonedas(const Presupuesto &p, double valor, bool enDolares) {
    const double cambio = PaseDe(p);
    if (enDolares) return {valor * cambio, valor};
    return {valor, cambio == 0 ? 0 : valor / cambio};
}

EnDosMonedas ImporteMostrado(const Presupuesto &p, const GastoOperativo &gasto) {
    if (gasto.pesos != 0 && gasto.dolares != 0) return {gasto.pesos, gasto.dolares};
    return gasto.dolares != 0 ? EnAmbasMonedas(p, gasto.dolares, true)
                              : EnAmbasMonedas(p, gasto.pesos, false);
}

ResumenDePresupuesto Resumir(const Presupuesto &p) {
    ResumenDePresupuesto r;
    for (const GastoOperativo &gasto : p.operativos) {
        r.operativos.pesos += gasto.pesos;
        r.operativos.dolares += gasto.dolares;
    }
    r.subtotal = p.totalP.pesos + r.operativos.dolares * PaseDe(p) + r.operativos.pesos;
    r.aCuenta = numeros::aNumero(p.txtAcuenta);
    r.totalGeneral = r.subtotal - r.aCuenta;
    return r;
}

void GrabarACuenta(AppContext &ctx, const Presupuesto &p) {
    ctx.ajustes.Guardar(zendra, flags, claveDeCorreo, p.porOutlook ? u"S"_s : u"N"_s);
    Ejecutar(ctx, internos,
             "update caratula set factura6 = "_L1 +
                 numeros::Format(numeros::aNumero(p.txtAcuenta), mascaraDeImporte, u'.') + " where "_L1 +
                 deEsteInterno(p.interno));
}

void GuardarLineas(AppContext &ctx, int lineas) {
    ctx.ajustes.Guardar(zendra, seccionDePresupuesto, claveDeLineas, QString::number(lineas));
}
