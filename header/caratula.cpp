#include "header/caratula.h"

#include "frame/base/failure.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;
using T = TipoDeControl;

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
