#include "liquidation/itemfields.h"

#include <algorithm>

#include "header/regime.h"

namespace {

using C = ClaseDeCampo;
constexpr const char *centavos = "00.00";
constexpr const char *seisDecimales = "00.000000";
// The operation's own are the header's.
constexpr const char *paisEnCaratula =
    "Si desea establecer un PAIS ORIGEN para todos los item's , debe ingresarlo en Caratula";
constexpr const char *kilosEnCaratula =
    "Si desea prorratear Kilos Neto, debe ingresar el valor total en Caratula";

}  // namespace

const std::vector<CampoDeItem> &CamposDeItem() {
    static const std::vector<CampoDeItem> campos{
        {.control = "TxtNaladisa",
         .columna = "naladisa",
         .nombre = "Naladisa",
         .clase = C::Codigo,
         .enCero = true},
        {.control = "TxtLista", .columna = "lista", .nombre = "Lista", .clase = C::Codigo, .enCero = true},
        {.control = "TxtEstadoMerc",
         .columna = "estadomerc",
         .nombre = "Estado de la mercadería",
         .clase = C::Codigo,
         .enCero = true,
         .respuestaEnCero = paisEnCaratula},
        // Kilos keep all their decimals: a page that is left is written back.
        {.control = "TxtTotKgNeto",
         .columna = "totalkneto",
         .nombre = "Kilos netos",
         .clase = C::Numero,
         .respuestaEnCero = kilosEnCaratula},
        {.control = "TxtIdpais",
         .columna = "idpais",
         .nombre = "País de origen",
         .clase = C::Codigo,
         .enCero = true,
         .respuestaEnCero = paisEnCaratula},
        {.control = "OLDTxtInsCons",
         .columna = "insumostemp",
         .nombre = "Insumos temporales",
         .clase = C::Numero,
         .mascara = centavos,
         .mascaraEnCero = seisDecimales},
        {.control = "txtConsumo",
         .columna = "insumosacons",
         .nombre = "Insumos a consumo",
         .clase = C::Numero,
         .mascara = centavos,
         .mascaraEnCero = seisDecimales},
        {.control = "TxtIdproc",
         .columna = "idproc",
         .nombre = "País de procedencia",
         .clase = C::Codigo,
         .enCero = true},
        {.control = "TxtAjusteInc",
         .columna = "ajusteinc",
         .nombre = "Ajuste a incluir",
         .clase = C::Numero,
         .mascara = centavos,
         .enCero = true,
         .vacioEsCero = true,
         .dejaPendiente = true},
        {.control = "txtAjusteDed",
         .columna = "ajusteded",
         .nombre = "Ajuste a deducir",
         .clase = C::Numero,
         .mascara = centavos,
         .enCero = true,
         .vacioEsCero = true,
         .dejaPendiente = true},
        {.control = "TxtReg",
         .columna = "regalias",
         .nombre = "Regalías",
         .clase = C::Codigo,
         .letras = "SN",
         .enCero = true},
        {.control = "txtTipoItem", .columna = "tipoitem", .nombre = "Tipo de item", .clase = C::Codigo},
        {.control = "TxtStan",
         .columna = "standard",
         .nombre = "Standard",
         .clase = C::Codigo,
         .letras = "SN",
         .enCero = true},
        {.control = "txtItComExt",
         .columna = "ItComExt",
         .nombre = "Comisiones al exterior",
         .clase = C::Numero,
         .mascara = centavos},
        {.control = "txtItemAsociado",
         .columna = "ItemAsociado",
         .nombre = "Item asociado",
         .clase = C::Codigo},
        {.control = "TxtCOEF", .columna = "COFEXP", .nombre = "Coeficiente", .clase = C::Numero},
        {.control = "txtAcuerdo",
         .columna = "ONCCAAcuerdo",
         .nombre = "Acuerdo",
         .clase = C::CodigoConBlanco},
        {.control = "txtCategoria", .columna = "ONCCACategoria", .nombre = "Categoría", .clase = C::Codigo},
        {.control = "txtCorte", .columna = "ONCCACortes", .nombre = "Corte", .clase = C::Codigo},
        {.control = "txtElaborador",
         .columna = "ONCCAElaborador",
         .nombre = "Elaborador",
         .clase = C::Codigo},
        {.control = "txtEspecie", .columna = "ONCCAEspecie", .nombre = "Especie", .clase = C::Codigo},
        {.control = "txtFaneador", .columna = "ONCCAFaneador", .nombre = "Faneador", .clase = C::Codigo},
        {.control = "txtEOC",
         .columna = "ONCCAMeccoorgbio",
         .nombre = "Ecológico-Orgánico o Biológico",
         .clase = C::Codigo},
        {.control = "txtRes3106", .columna = "ONCCAres3106", .nombre = "RES31/06MEYP", .clase = C::Codigo},
        {.control = "txtSisProd",
         .columna = "ONCCAsispro",
         .nombre = "Sistema de producción",
         .clase = C::Codigo},
        {.control = "txtMatadero",
         .columna = "ONCCAMatadero",
         .nombre = "Matadero / Faneador",
         .clase = C::Codigo},
        {.control = "chkMineria",
         .columna = "Mineria",
         .nombre = "Minería",
         .clase = C::Opcion,
         .dejaPendiente = true},
        {.control = "cboOpcionIVA",
         .columna = "OpcionesIVA",
         .nombre = "Opción de IVA",
         .clase = C::OpcionIVA},
        {.control = "cboOpcionesGanancias",
         .columna = "OpcionesGanancias",
         .nombre = "Opción de ganancias",
         .clase = C::OpcionGanancias},
        // Shown only
        {.control = "LbPos", .columna = "NCM", .nombre = "Posición", .clase = C::Codigo, .seGraba = false},
        {.control = "TxtKgBruto",
         .columna = "totalkbruto",
         .nombre = "Kilos brutos",
         .clase = C::Numero,
         .seGraba = false},
        {.control = "TxtCantidad",
         .columna = "Cantidad",
         .nombre = "Cantidad declarada",
         .clase = C::Numero,
         .mascara = centavos,
         .seGraba = false},
        {.control = "TxtUnidEst",
         .columna = "estadistica",
         .nombre = "Unidad estadística",
         .clase = C::Codigo,
         .seGraba = false},
        {.control = "Txt",
         .columna = "valorrelacionestadistica",
         .nombre = "Cantidad estadística",
         .clase = C::Numero,
         .mascara = centavos,
         .seGraba = false},
        {.control = "TxtDerEsp",
         .columna = "deresp",
         .nombre = "Unidad del derecho específico",
         .clase = C::Codigo,
         .seGraba = false},
        {.control = "TxtValorDerEsp",
         .columna = "valorderesp",
         .nombre = "Cantidad del derecho específico",
         .clase = C::Numero,
         .mascara = centavos,
         .seGraba = false},
        {.control = "TxtCodPror",
         .columna = "codprorrateo",
         .nombre = "Código de prorrateo",
         .clase = C::Codigo,
         .seGraba = false},
    };
    return campos;
}

const CampoDeItem *CampoDeColumna(const QString &columna) {
    const auto &campos = CamposDeItem();
    const auto hallado = std::find_if(campos.begin(), campos.end(), [&columna](const CampoDeItem &c) {
        return columna.compare(QLatin1String(c.columna), Qt::CaseInsensitive) == 0;
    });
    return hallado == campos.end() ? nullptr : &*hallado;
}

bool CampoAdmite(const CampoDeItem &campo, const QString &texto) {
    if (texto.isEmpty()) return true;
    switch (campo.clase) {
        case ClaseDeCampo::Opcion:
            return texto == QLatin1String("S") || texto == QLatin1String("N");
        case ClaseDeCampo::OpcionIVA:
            return OpcionIVAIndice(texto) >= 0;
        case ClaseDeCampo::OpcionGanancias:
            return OpcionGananciasIndice(texto) >= 0;
        default:
            return *campo.letras == '\0' ||
                   (texto.size() == 1 && QString::fromLatin1(campo.letras).contains(texto));
    }
}
