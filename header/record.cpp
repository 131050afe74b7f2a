#include "header/record.h"

#include "frame/base/dates.h"
#include "frame/base/failure.h"
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

template <class Controles>
auto &controlDe(Controles &controles, const QString &nombre) {
    const auto i = controles.find(nombre);
    if (i == controles.end())
        throw Falla{0,
                    u"FrmCaratula"_s,
                    u"La carátula no tiene el campo \"%1\", revise el nombre."_s.arg(nombre),
                    {}};
    return i->second;
}

}  // namespace

const std::vector<DefinicionDeControl> &ControlesDeCaratula() {
    static const std::vector<DefinicionDeControl> controles{
        {"TxtSubReg", T::Texto, "SUBREG", "TxtSubRegDesc"},
        {"TxtSubRegDesc", T::Descripcion},
        {"txtIdAduana1", T::Texto, "ADUANA", "TxtAduana1"},
        {"TxtAduana1", T::Descripcion},
        {"TxtIdAduana2", T::Texto, "ADUANA", "TxtAduana2"},
        {"TxtAduana2", T::Descripcion},
        {"TxtCUITCliente", T::Texto},
        {"TxtNombre", T::Descripcion},
        {"TxtCuitAduana", T::Texto},
        {"TxtNombreadu", T::Descripcion},
        {"Txtidvendedor", T::Texto},
        {"TxtNombreven", T::Descripcion},
        {"txtAnexo_Vendedor", T::Texto},
        {"Txtfobdivisas", T::Texto},
        {"TxtCoddivfob", T::Texto, "DIVISAS", "TxtDivValorFob"},
        {"TxtDivValorFob", T::Texto},
        {"TxtDolFob", T::Descripcion},
        {"Txtfletedivisas", T::Texto},
        {"TxtCodDivFlete", T::Texto, "DIVISAS", "TxtDivValorFlete"},
        {"TxtDivValorFlete", T::Texto},
        {"TxtDolFlete", T::Descripcion},
        {"Txtsegurodivisas", T::Texto},
        {"TxtCodDivseguro", T::Texto, "DIVISAS", "TxtDivValorSeguro"},
        {"TxtDivValorSeguro", T::Texto},
        {"TxtDolSeguro", T::Descripcion},
        {"txtPorc", T::Texto},
        {"TxtProrratear", T::Texto},
        {"CmdProrrat", T::Boton},
        {"TxtAjustIncluir", T::Texto},
        {"TxtAjustDeducir", T::Texto},
        {"TxtFactCon", T::Texto},
        {"Txtidcondventa", T::Texto, "CODVENTA", "lbDescConven"},
        {"lbDescConven", T::Descripcion},
        {"TxtIdpais", T::Texto, "PAIS", "TxtdescPais"},
        {"TxtdescPais", T::Descripcion},
        {"Txtmotdestsusp", T::Texto},
        {"TxtautdestSusp", T::Texto},
        {"TxtPlazoaut", T::Texto},
        {"TxtCierreVenta", T::Texto},
        {"lbFacilidadPago", T::Descripcion},
        {"cboFacilidadPago", T::Opciones},
        {"TxtFactura", T::Texto},
        {"LstFact", T::Lista},
        {"ChFacturas", T::Casilla},
        {"txtDepAlm", T::Texto},
        {"txtDCEstMerc", T::Texto, "ESTADOMERCADERIA"},
        {"chkDCForzarEstMerc", T::Casilla},
        {"txtDCPaisOrigen", T::Texto, "PAIS"},
        {"chkDCForzarPaisOrigen", T::Casilla},
        {"txtDCPaisDest", T::Texto, "PAIS"},
        {"txtDCStandard", T::Texto, "", "", 1},
        {"TxtDCRegalias", T::Texto, "", "", 1},
        {"txtDCBancos", T::Texto, "BANCOS"},
        {"TxtKgNeto", T::Texto},
        {"txtDCComiExt", T::Texto},
        {"txtDATOCOMPRADOR", T::Texto},
        {"txtNROTRANSINTER", T::Texto},
        {"cboOpcionIVA", T::Opciones},
        {"cboOpcionesGanancias", T::Opciones},
        {"txtGastosAnterioresFOB", T::Texto},
        {"txtGastosPosterioresFOB", T::Texto},
        {"txtDJAIFechaEmbarqueAprox", T::Texto},
        {"txtDJAIFechaArriboAprox", T::Texto},
        {"chkDJAI_ForzarDescripcionMercaderia", T::Casilla},
        {"txtDJAI_ForzarDescripcion", T::Texto, "", "", 400},
        {"txtFechaEmbarque", T::Texto}};
    return controles;
}

const DefinicionDeControl *DefinicionDe(const QString &nombre) {
    static const std::map<QString, const DefinicionDeControl *, SinMayusculas> porNombre = [] {
        std::map<QString, const DefinicionDeControl *, SinMayusculas> todos;
        for (const DefinicionDeControl &d : ControlesDeCaratula()) todos[QString(L(d.nombre))] = &d;
        return todos;
    }();
    const auto i = porNombre.find(nombre);
    return i == porNombre.end() ? nullptr : i->second;
}

bool EsCampoDeCodigo(const DefinicionDeControl &definicion) {
    // The reason has two tables, by the direction of the regime, and so none of its own here.
    return *definicion.clave != 0 || L(definicion.nombre) == "Txtmotdestsusp"_L1;
}

ControlDeCaratula &Caratula::control(const QString &nombre) {
    return controlDe(controles, nombre);
}
const ControlDeCaratula &Caratula::control(const QString &nombre) const {
    return controlDe(controles, nombre);
}
ControlDeCaratula &Caratula::operator[](const char *nombre) {
    return control(QString(L(nombre)));
}
const ControlDeCaratula &Caratula::operator[](const char *nombre) const {
    return control(QString(L(nombre)));
}

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
