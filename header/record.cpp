#include "header/record.h"

#include "frame/base/dates.h"
#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/context.h"
#include "header/fieldrules.h"
#include "header/invoices.h"
#include "header/prorationcodes.h"
#include "header/regime.h"
#include "header/visibility.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;
using T = TipoDeControl;

/// How a column becomes the text of its control.
enum class Carga { Texto, Numero, SoN, Marca, Fecha, NoCero, SinoVacio };

struct ColumnaDeCarga {
    const char *columna;
    const char *control;
    Carga modo = Carga::Texto;
    const char16_t *mascara = u"00.00";
    bool conEnter = false;  ///< the field's ENTER runs when it is filled
};

/// In the order in which the screen is filled.
const std::vector<ColumnaDeCarga> columnas{
    {"idsubreg", "TxtSubReg", Carga::Texto, u"", true},
    {"idaduana", "txtIdAduana1", Carga::Texto, u"", true},
    {"idaduanasal", "TxtIdAduana2", Carga::Texto, u"", true},
    {"cuitcliente", "TxtCUITCliente", Carga::Texto, u"", true},
    {"cuitdespaduana", "TxtCuitAduana", Carga::Texto, u"", true},
    {"idvendedor", "Txtidvendedor", Carga::Texto, u"", true},
    {"Anexo_Vendedor", "txtAnexo_Vendedor"},
    {"fobdivisas", "Txtfobdivisas", Carga::Numero},
    {"fobcoddivisas", "TxtCoddivfob"},
    {"fobdivcambio", "TxtDivValorFob", Carga::Numero, u"0.000000"},
    {"fletedivisas", "Txtfletedivisas", Carga::Numero},
    {"fletecoddivisas", "TxtCodDivFlete"},
    {"fletedivcambio", "TxtDivValorFlete", Carga::Numero, u"0.000000"},
    {"segurodivisas", "Txtsegurodivisas", Carga::Numero},
    {"segurocoddivisas", "TxtCodDivseguro"},
    {"segurodivcambio", "TxtDivValorSeguro", Carga::Numero, u"0.000000"},
    {"seguroporcentaje", "txtPorc", Carga::NoCero},
    // Behind the percentage the rules of the regime run again.
    {"", "TxtSubReg", Carga::Texto, u"", true},
    {"valoraprorratear", "TxtProrratear", Carga::Numero},
    {"ajusteincluir", "TxtAjustIncluir", Carga::Numero},
    {"ajustededucir", "TxtAjustDeducir", Carga::Numero},
    {"factorconver", "TxtFactCon"},
    {"idcondiciondeventa", "Txtidcondventa", Carga::Texto, u"", true},
    {"idpaisdestino", "TxtIdpais", Carga::Texto, u"", true},
    {"motivodestsuspensiva", "Txtmotdestsusp"},
    {"autorizdestsuspensiva", "TxtautdestSusp"},
    {"plazoautorizacion", "TxtPlazoaut"},
    {"cierreventa", "TxtCierreVenta"},
    {"facilidadpago", "cboFacilidadPago", Carga::SoN},
    {"facturas", "ChFacturas", Carga::Marca},
    {"factura2", "TxtNombreven", Carga::SinoVacio},
    {"factura3", "TxtNombreadu", Carga::SinoVacio},
    {"factura5", "txtDepAlm"},
    {"factura7", "TxtNombre", Carga::SinoVacio},
    {"DCEstMerc", "txtDCEstMerc"},
    {"DCForzarEstMerc", "chkDCForzarEstMerc", Carga::Marca},
    {"DCPaisOrigen", "txtDCPaisOrigen"},
    {"DCForzarPaisOrigen", "chkDCForzarPaisOrigen", Carga::Marca},
    {"DCPaisDestino", "txtDCPaisDest"},
    {"DCStandard", "txtDCStandard"},
    {"DCRegalias", "TxtDCRegalias"},
    {"DCBancos", "txtDCBancos"},
    {"DCKgNeto", "TxtKgNeto", Carga::Numero},
    {"DCComext", "txtDCComiExt", Carga::Numero},
    {"DATOCOMPRADOR", "txtDATOCOMPRADOR"},
    {"NROTRANSINTER", "txtNROTRANSINTER"},
    {"gastos_anteriores_fob", "txtGastosAnterioresFOB", Carga::Numero, u"00.000"},
    {"gastos_posteriores_fob", "txtGastosPosterioresFOB", Carga::Numero, u"00.000"},
    {"DJAI_FECHA_EMB_APROX", "txtDJAIFechaEmbarqueAprox", Carga::Fecha},
    {"DJAI_FECHA_ARRIB_APROX", "txtDJAIFechaArriboAprox", Carga::Fecha},
    {"DC_DJAI_ForzarDescripcionMercaderia", "chkDJAI_ForzarDescripcionMercaderia", Carga::Marca},
    {"DC_DJAI_DescripcionMercaderia", "txtDJAI_ForzarDescripcion"},
    {"fechaembarque", "txtFechaEmbarque", Carga::Fecha},
};

void cargarColumna(const AppContext &ctx, Caratula &c, const Recordset &rs, const ColumnaDeCarga &columna) {
    const QString nombre = L(columna.columna);
    ControlDeCaratula &control = c[columna.control];
    QString &texto = control.texto;
    const QString valor = rs.Texto(nombre);
    switch (columna.modo) {
        case Carga::Texto:
            texto = valor;
            break;
        case Carga::Numero:
        case Carga::NoCero: {
            const double numero = rs.Numero(nombre);
            const bool vacio = columna.modo == Carga::NoCero && numero == 0;
            texto = vacio ? QString() : numeros::Format(numero, columna.mascara, ctx.SeparadorDecimal);
            control.mostrado = texto;
            control.cargado = vacio ? QString() : numeros::aTexto(numero);
            break;
        }
        case Carga::SoN:
            texto = valor == "S"_L1 || valor == "N"_L1 ? valor : QString();
            break;
        case Carga::Marca:
            texto = valor == "S"_L1 ? u"S"_s : u"N"_s;
            break;
        case Carga::Fecha: {
            const auto fecha = fechas::Leer(valor);
            texto = fecha ? fecha->toString(u"dd/MM/yyyy"_s) : valor;
            break;
        }
        case Carga::SinoVacio:
            // The name that the look-up found stays when none was stored.
            if (!valor.isEmpty()) texto = valor;
            break;
    }
}

}  // namespace

Caratula CaratulaVacia(const QString &interno) {
    Caratula c;
    c.interno = interno;
    for (const DefinicionDeControl &d : ControlesDeCaratula()) {
        ControlDeCaratula control;
        if (d.tipo == T::Casilla) control.texto = u"N"_s;
        c.controles[QString(L(d.nombre))] = control;
    }
    for (const char *oculto :
         {"TxtFactCon", "lbFacilidadPago", "cboFacilidadPago", "cboOpcionIVA", "cboOpcionesGanancias"})
        c[oculto].visible = false;
    for (const QString &oculto : ControlesDJAI()) c.control(oculto).visible = false;
    c["LstFact"].habilitado = c["ChFacturas"].habilitado = false;
    c.poner("txtDCStandard", u"N"_s);
    c.poner("TxtDCRegalias", u"N"_s);
    return c;
}

bool CargarCaratula(AppContext &ctx, Caratula &c) {
    const Reloj reloj(ctx.dialogos);
    Recordset rs;
    if (!Consultar(ctx, u"INTERNOS"_s, "select * from caratula where interno = "_L1 + EnComillas(c.interno),
                   rs)) {
        ctx.dialogos.advertir(u"No se encontro Interno en base de datos"_s);
        return false;
    }
    for (const ColumnaDeCarga &columna : columnas) {
        const QString nombre = L(columna.control);
        if (*columna.columna != 0) cargarColumna(ctx, c, rs, columna);
        // A rate that is stored is not filled again from the table of currencies.
        const DefinicionDeControl *d = DefinicionDe(nombre);
        if (L(d->clave) == "DIVISAS"_L1) c.divisaVista[nombre] = c.control(nombre).texto;
        if (!columna.conEnter) continue;
        if (nombre == "TxtCUITCliente"_L1 && c.control(nombre).texto.isEmpty()) continue;
        CampoEnter(ctx, c, nombre);
    }
    for (const char *nombre : {"txtDCStandard", "TxtDCRegalias"})
        if (c.texto(nombre).isEmpty()) c.poner(nombre, u"N"_s);
    c.cboOpcionIVA = OpcionIVAIndice(rs.Texto(u"OpcionesIVA"));
    c.cboOpcionesGanancias = OpcionGananciasIndice(rs.Texto(u"OpcionesGanancias"));
    c.totalProrrateado = TotalizarProrrateos(ctx, c.interno);
    RefrescarFacturas(ctx, c);
    RecalcularDolares(ctx, c);
    HabilitarProrrateo(c);
    return true;
}
