#include "header/visibility.h"

#include "frame/base/values.h"
#include "frame/context.h"
#include "header/regime.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

void mostrar(Caratula &c, const char *nombre, bool si = true) {
    c[nombre].visible = si;
}

void mostrarYHabilitar(Caratula &c, const char *nombre, bool si = true) {
    c[nombre].visible = c[nombre].habilitado = si;
}

void vaciarYOcultar(Caratula &c, const char *nombre) {
    c.poner(nombre, {});
    c[nombre].visible = false;
}

/// What an amount takes along when its regime has none.
void ocultarAcompanantes(Caratula &c, const QString &columna) {
    struct Importe {
        const char *columna;
        std::vector<const char *> acompanantes;
    };
    static const std::vector<Importe> importes{
        {"txtfobdivisas", {"TxtCoddivfob", "TxtDivValorFob"}},
        {"txtfletedivisas", {"TxtDivValorFlete", "TxtCodDivFlete", "TxtDolFlete"}},
        {"txtsegurodivisas", {"TxtDivValorSeguro", "TxtCodDivseguro", "txtPorc", "TxtDolSeguro"}}};
    for (const Importe &i : importes) {
        if (columna != L(i.columna)) continue;
        for (const char *nombre : i.acompanantes) vaciarYOcultar(c, nombre);
    }
}

void aplicarDest(Caratula &c, const QStringList &quita) {
    for (auto &[nombre, control] : c.controles) control.visible = true;
    mostrar(c, "TxtFactCon", false);
    for (const QString &columna : quita) {
        const QString nombre = columna.toLower();
        ocultarAcompanantes(c, nombre);
        if (DefinicionDe(nombre) == nullptr) continue;
        ControlDeCaratula &control = c.control(nombre);
        control.visible = false;
        control.poner({});
    }
}

void mostrarFacilidad(Caratula &c, const QString &regimen) {
    mostrar(c, "lbFacilidadPago", EsEC16(regimen));
    mostrar(c, "cboFacilidadPago", EsEC16(regimen));
}

void mostrarDJAI(Caratula &c, const QString &regimen) {
    for (const QString &nombre : ControlesDJAI()) c.control(nombre).visible = EsDeclaracionDJAI(regimen);
}

}  // namespace

const QStringList &ControlesDJAI() {
    static const QStringList nombres{u"txtDJAIFechaEmbarqueAprox"_s, u"txtDJAIFechaArriboAprox"_s,
                                     u"chkDJAI_ForzarDescripcionMercaderia"_s,
                                     u"txtDJAI_ForzarDescripcion"_s};
    return nombres;
}

std::optional<QStringList> ControlesQueQuita(AppContext &ctx, const QString &regimen) {
    Recordset rs;
    if (!Consultar(ctx, u"USUARIO"_s, "select * from dest where subreg = "_L1 + EnComillas(regimen), rs))
        return {};
    QStringList quita;
    for (int n = 0; n < rs.columnas(); ++n) {
        const QString nombre = rs.nombreDeColumna(n);
        if (nombre.compare("subreg"_L1, Qt::CaseInsensitive) != 0 && rs.Texto(nombre).trimmed() == "x"_L1)
            quita << nombre;
    }
    return quita;
}

void MostrarRegimen(Caratula &c, const QString &regimen, const std::optional<QStringList> &quita) {
    if (quita) aplicarDest(c, *quita);
    // Shown with everything else by a regime that has a row, although it belongs to one code alone.
    mostrarFacilidad(c, regimen);
    mostrar(c, "txtDCBancos", false);
    mostrar(c, "txtNROTRANSINTER", false);
    mostrar(c, "txtDATOCOMPRADOR", false);
    if (EsIC0oIG(regimen)) {
        mostrarYHabilitar(c, "txtDCBancos");
        mostrar(c, "txtNROTRANSINTER");
    }
    if (EsTransito(regimen)) mostrar(c, "txtNROTRANSINTER");
    if (EsExportacionConsumo(regimen)) {
        mostrar(c, "txtDATOCOMPRADOR");
        mostrar(c, "txtNROTRANSINTER", false);
        mostrarYHabilitar(c, "txtDCBancos");
        mostrarYHabilitar(c, "txtDCComiExt");
        mostrar(c, "txtFechaEmbarque", false);
    } else if (!EsDeclaracionDJAI(regimen)) {
        mostrar(c, "txtDATOCOMPRADOR", false);
        mostrar(c, "txtFechaEmbarque");
    } else {
        for (const char *nombre :
             {"txtDATOCOMPRADOR", "txtNROTRANSINTER", "txtDCBancos", "txtDCComiExt", "txtFechaEmbarque"})
            mostrar(c, nombre, false);
    }
    if (EsDirectoOZona(regimen)) mostrarYHabilitar(c, "txtDCBancos");
    mostrar(c, "cboOpcionesGanancias", PreguntaOpcionesImpositivas(regimen));
    mostrar(c, "cboOpcionIVA", PreguntaOpcionesImpositivas(regimen));
    mostrarDJAI(c, regimen);
}

void MostrarDireccion(Caratula &c) {
    const bool exporta = c.cstaimpexp == "E"_L1;
    mostrarYHabilitar(c, "txtDCBancos");
    for (const char *nombre : {"TxtAduana2", "TxtIdpais", "txtDCComiExt"})
        mostrarYHabilitar(c, nombre, exporta);
    if (exporta) {
        mostrarYHabilitar(c, "TxtIdAduana2");
    } else {
        c.poner("TxtAduana2", {});
        c.poner("TxtdescPais", {});
    }
    mostrarYHabilitar(c, "txtFechaEmbarque", !exporta);
    const QString &regimen = c.regimen();
    if (Left(regimen, 3) == "DIR"_L1 || Left(regimen, 3) == "IG0"_L1) mostrar(c, "txtDCBancos");
    mostrarDJAI(c, regimen);
}

void Mostrar(AppContext &ctx, Caratula &c, const QString &regimen) {
    MostrarRegimen(c, regimen, ControlesQueQuita(ctx, regimen));
}
