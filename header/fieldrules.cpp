#include "header/fieldrules.h"

#include "frame/base/dates.h"
#include "frame/base/numbers.h"
#include "frame/context.h"
#include "header/codes.h"
#include "header/invoices.h"
#include "header/parties.h"
#include "header/regime.h"
#include "header/visibility.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;
using numeros::aNumero;
using numeros::esNumerico;
using numeros::Format;

struct Importe {
    const char *importe, *divisa, *cotizacion, *dolares;
};
constexpr Importe importes[] = {{"Txtfobdivisas", "TxtCoddivfob", "TxtDivValorFob", "TxtDolFob"},
                                {"Txtfletedivisas", "TxtCodDivFlete", "TxtDivValorFlete", "TxtDolFlete"},
                                {"Txtsegurodivisas", "TxtCodDivseguro", "TxtDivValorSeguro", "TxtDolSeguro"}};

constexpr const char *mascaraDeCotizacion = "0.000000";

bool esNombre(const QString &nombre, const char *control) {
    return nombre.compare(L(control), Qt::CaseInsensitive) == 0;
}

QString cotizacion(const AppContext &ctx, const QString &aux) {
    return Format(aux, QString(L(mascaraDeCotizacion)), ctx.SeparadorDecimal);
}

/// The rate of a currency goes into its field when the currency is another than the one seen last, or when
/// the field has none: a rate that was typed on purpose stays.
void tomarCotizacion(const AppContext &ctx, Caratula &c, const DefinicionDeControl &d, const QString &divisa,
                     const QString &aux) {
    const QString nombre = L(d.nombre);
    QString &rate = c[d.descripcion].texto;
    const bool otra = c.divisaVista[nombre].compare(divisa, Qt::CaseInsensitive) != 0;
    if (!aux.isEmpty() && (otra || aNumero(rate) == 0)) {
        rate = cotizacion(ctx, aux);
        CampoCambia(ctx, c, L(d.descripcion));
    }
    c.divisaVista[nombre] = divisa;
}

bool conDescripcion(const DefinicionDeControl &d) {
    return *d.descripcion != 0 && L(d.clave) != "DIVISAS"_L1;
}

void tomarCodigo(const AppContext &ctx, Caratula &c, const DefinicionDeControl &d,
                 const CampoDeCodigo &campo) {
    c.poner(d.nombre, campo.codigo);
    if (conDescripcion(d)) c.poner(d.descripcion, campo.descripcion);
    if (L(d.clave) == "DIVISAS"_L1) tomarCotizacion(ctx, c, d, campo.codigo, campo.aux);
}

/// ENTER on a field with a code table.
void codigoEnter(AppContext &ctx, Caratula &c, const DefinicionDeControl &d) {
    const L clave(d.clave);
    QString codigo = c.texto(d.nombre);
    if (clave == "PAIS"_L1 || clave == "BANCOS"_L1 || clave == "DIVISAS"_L1) codigo = RellenarCodigo(codigo);
    CampoDeCodigo campo{codigo, {}, {}};
    // A country or a bank without a description beside it is only looked up for its code.
    const bool soloId = *d.descripcion == 0;
    const bool existe =
        ConfirmarCodigo(ctx, clave, campo, soloId ? ServicioDeCodigo::Id : ServicioDeCodigo::Descripcion);
    if (!existe) campo.aux.clear();
    tomarCodigo(ctx, c, d, campo);
}

bool revisarSN(AppContext &ctx, Caratula &c, const char *control) {
    const QString &texto = c.texto(control);
    if (texto.isEmpty() || texto.compare("S"_L1, Qt::CaseInsensitive) == 0 ||
        texto.compare("N"_L1, Qt::CaseInsensitive) == 0)
        return true;
    c.poner(control, {});
    ctx.dialogos.advertir(u"No ingresó valores válidos (S/N)"_s);
    return false;
}

/// The client's percentages fill what is added to the value and what is spread over the lines.
void fobEnter(const AppContext &ctx, Caratula &c) {
    const QString &valor = c.valor("Txtfobdivisas");
    if (!esNumerico(valor)) return;
    const double fob = aNumero(valor);
    constexpr double ciento = 100;
    if (c.regalias > 0)
        c.poner("TxtAjustIncluir", Format(fob * c.regalias / ciento, u"00.00", ctx.SeparadorDecimal));
    if (c.ajxvinc_4102 > 0)
        c.poner("TxtProrratear", Format(fob * c.ajxvinc_4102 / ciento, u"00.00", ctx.SeparadorDecimal));
    HabilitarProrrateo(c);
}

void despachanteEnter(AppContext &ctx, Caratula &c) {
    const QString &cuit = c.texto("TxtCuitAduana");
    QString nombre;
    if (esNumerico(cuit)) BuscarDespachante(ctx, cuit, nombre);
    c.poner("TxtNombreadu", nombre);
}

void vendedorEnter(AppContext &ctx, Caratula &c) {
    const QString &codigo = c.texto("Txtidvendedor");
    if (codigo.isEmpty()) return;
    QString nombre;
    BuscarVendedor(ctx, codigo, nombre, c.servicios.AgregarVendedor);
    c.poner("TxtNombreven", nombre);
}

}  // namespace

void RegimenEnter(AppContext &ctx, Caratula &c) {
    if (c.regimen().isEmpty()) return;
    c.poner("TxtSubReg", RegimenEnMayusculas(c.regimen()));
    CampoDeCodigo campo{c.regimen(), {}, c.cstaimpexp};
    ConfirmarCodigo(ctx, u"SUBREG"_s, campo);
    c.poner("TxtSubRegDesc", campo.descripcion);
    c.cstaimpexp = campo.aux;
    Mostrar(ctx, c, c.regimen());
    MostrarDireccion(c);
}

void ClienteEnter(AppContext &ctx, Caratula &c) {
    ClienteDeCaratula cliente;
    const BusquedaDeCliente busqueda = BuscarCliente(ctx, c.texto("TxtCUITCliente"), cliente);
    if (busqueda == BusquedaDeCliente::Encontrado) {
        c.poner("TxtNombre", cliente.nombre);
        c.regalias = cliente.regalias;
        c.ajxvinc_4102 = cliente.ajxvinc_4102;
        return;
    }
    if (busqueda == BusquedaDeCliente::FaltaCuit || !c.servicios.SeleccionarCliente) return;
    const QString elegido = c.servicios.SeleccionarCliente();
    if (elegido.isEmpty()) return;
    const bool otro = elegido != c.texto("TxtCUITCliente");
    c.poner("TxtCUITCliente", elegido);
    // A client that was just picked is in the store; asking once more for the same number would never end.
    if (otro) ClienteEnter(ctx, c);
}

void TomarDespachante(Caratula &c, const QString &cuit, const QString &nombre) {
    c.poner("TxtCuitAduana", cuit);
    c.poner("TxtNombreadu", nombre);
}

void TomarVendedor(Caratula &c, const QString &codigo, const QString &nombre) {
    c.poner("Txtidvendedor", codigo);
    c.poner("TxtNombreven", nombre);
}

QString ClaveDeMotivos(const Caratula &c) {
    return c.cstaimpexp == "E"_L1 ? u"MOTIVOSTEMPE"_s : u"MOTIVOSTEMPI"_s;
}

void TomarMotivo(Caratula &c, const QString &elegido) {
    c.poner("Txtmotdestsusp", elegido.section(QLatin1Char('|'), 0, 0));
    c.poner("TxtPlazoaut", elegido.section(QLatin1Char('|'), 1, 1));
}

void RecalcularDolar(const AppContext &ctx, Caratula &c, const char *importe, const char *tipoDeCambio,
                     const char *etiqueta) {
    const QString &valor = c.valor(importe);
    const QString &cambio = c.valor(tipoDeCambio);
    if (!esNumerico(valor) || !esNumerico(cambio)) {
        c.poner(etiqueta, {});
        return;
    }
    // To text and back: what the eye sees is what is used.
    const double producto = aNumero(numeros::aTexto(aNumero(valor) * aNumero(cambio)));
    c.poner(etiqueta, producto != 0 ? Format(producto, u"00.00", ctx.SeparadorDecimal) : u"0"_s);
}

void RecalcularDolares(const AppContext &ctx, Caratula &c) {
    for (const Importe &i : importes) RecalcularDolar(ctx, c, i.importe, i.cotizacion, i.dolares);
}

void HabilitarProrrateo(Caratula &c) {
    const QString &valor = c.valor("TxtProrratear");
    c["CmdProrrat"].habilitado = !esNumerico(valor) || aNumero(valor) == 0;
}

Veredicto CampoEnter(AppContext &ctx, Caratula &c, const QString &nombre) {
    if (esNombre(nombre, "TxtSubReg")) {
        RegimenEnter(ctx, c);
    } else if (esNombre(nombre, "TxtCUITCliente")) {
        ClienteEnter(ctx, c);
    } else if (esNombre(nombre, "TxtCuitAduana")) {
        despachanteEnter(ctx, c);
    } else if (esNombre(nombre, "Txtidvendedor")) {
        vendedorEnter(ctx, c);
    } else if (esNombre(nombre, "Txtfobdivisas")) {
        fobEnter(ctx, c);
    } else if (esNombre(nombre, "TxtFactura")) {
        const QString factura = c.texto("TxtFactura");
        // Another invoice may follow: the field keeps the focus until it is left empty.
        if (!factura.isEmpty()) {
            Agregar_Facturas(ctx, c, factura);
            return Veredicto::mal(u"TxtFactura"_s);
        }
    } else if (esNombre(nombre, "TxtDCRegalias") || esNombre(nombre, "txtDCStandard")) {
        const DefinicionDeControl *d = DefinicionDe(nombre);
        if (!revisarSN(ctx, c, d->nombre)) return Veredicto::mal(L(d->nombre));
    } else if (const DefinicionDeControl *d = DefinicionDe(nombre); d != nullptr && *d->clave != 0) {
        codigoEnter(ctx, c, *d);
    }
    return Veredicto::bien();
}

bool CampoF6(AppContext &ctx, Caratula &c, const QString &nombre) {
    if (esNombre(nombre, "Txtmotdestsusp")) {
        QString codigo;
        QString aux;
        if (Listar(ctx, ClaveDeMotivos(c), codigo, aux).isEmpty()) return false;
        TomarMotivo(c, codigo);
        return true;
    }
    const DefinicionDeControl *d = DefinicionDe(nombre);
    if (d == nullptr || *d->clave == 0) return false;
    const L clave(d->clave);
    CampoDeCodigo campo{c.texto(d->nombre), {}, clave == "DIVISAS"_L1 ? u"Div"_s : QString()};
    if (!ElegirCodigo(ctx, clave, campo)) return false;
    tomarCodigo(ctx, c, *d, campo);
    if (clave == "SUBREG"_L1) RegimenEnter(ctx, c);
    return true;
}

void CampoCambia(const AppContext &ctx, Caratula &c, const QString &nombre) {
    for (const Importe &i : importes)
        if (esNombre(nombre, i.importe) || esNombre(nombre, i.cotizacion))
            RecalcularDolar(ctx, c, i.importe, i.cotizacion, i.dolares);
    if (esNombre(nombre, "TxtProrratear")) HabilitarProrrateo(c);
}

void PorcentajeTecla(const AppContext &ctx, Caratula &c) {
    const QString &porcentaje = c.valor("txtPorc");
    if (porcentaje.isEmpty()) return;
    if (!esNumerico(porcentaje)) {
        c.poner("Txtsegurodivisas", {});
        c.poner("TxtDolSeguro", {});
        return;
    }
    const double tasa = aNumero(porcentaje);
    if (tasa == 0) return;
    const QString &fob = c.texto("TxtDolFob");
    const QString &flete = c.texto("TxtDolFlete");
    if (!esNumerico(fob) || !esNumerico(flete)) return;
    const QString &prorratear = c.valor("TxtProrratear");
    double base = aNumero(fob) + aNumero(flete);
    if (esNumerico(prorratear) || c.totalProrrateado > 0) base += aNumero(prorratear) + c.totalProrrateado;
    const QString dolares = Format(numeros::PorcentajeRedondeado(base, tasa), u"00.00", ctx.SeparadorDecimal);
    const QString &cambio = c.valor("TxtDivValorSeguro");
    if (esNumerico(cambio) && aNumero(cambio) > 0)
        c.poner("Txtsegurodivisas",
                Format(aNumero(dolares) / aNumero(cambio), u"00.00", ctx.SeparadorDecimal));
    c.poner("TxtDolSeguro", dolares);
}

void CampoPierdeFoco(AppContext &ctx, Caratula &c, const QString &nombre) {
    for (const Importe &i : importes) {
        if (esNombre(nombre, i.importe) && esNumerico(c.texto(i.importe))) {
            const QString conForma = Format(c.texto(i.importe), u"00.00", ctx.SeparadorDecimal);
            if (conForma != c.texto(i.importe)) c.poner(i.importe, conForma);
            CampoCambia(ctx, c, nombre);
        }
        // The rate stays the one that was typed, whatever the answer.
        if (esNombre(nombre, i.cotizacion)) ControlDivisa(ctx, c.texto(i.divisa), c.valor(i.cotizacion));
    }
    if (esNombre(nombre, "TxtPlazoaut"))
        if (const auto fecha = fechas::Leer(c.texto("TxtPlazoaut")))
            c.poner("TxtPlazoaut", fecha->toString(u"dd-MM-yyyy"_s));
}

void CasillaTildada(AppContext &ctx, const QString &nombre) {
    if (esNombre(nombre, "chkDCForzarEstMerc"))
        ctx.dialogos.advertir(
            u"Advertencia!: Esta opción establece a todos los articulos el mismo Estado de Mercaderia"_s);
    if (esNombre(nombre, "chkDCForzarPaisOrigen"))
        ctx.dialogos.advertir(
            u"Advertencia!: Esta opción establece a todos los articulos el mismo Pais de Origen"_s);
}
