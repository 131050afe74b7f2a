#include "liquidation/ClassLiquidacion.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/context.h"
#include "header/automotive.h"
#include "header/regime.h"
#include "liquidation/fees.h"

using namespace Qt::StringLiterals;

using numeros::PorcentajeRedondeado;
using numeros::redondear;

namespace {

// The countries whose imports are capped, in ascending order.
constexpr std::array<int, 129> paisesConTope{
    101, 103, 104, 105, 107, 108, 111, 112, 113, 115, 116, 117, 118, 120, 121, 124, 125, 126, 127,
    128, 129, 130, 131, 132, 133, 134, 135, 137, 139, 140, 141, 142, 144, 149, 151, 153, 156, 158,
    159, 200, 201, 202, 203, 204, 205, 206, 208, 209, 210, 211, 212, 213, 214, 215, 216, 217, 218,
    219, 220, 221, 222, 224, 225, 226, 232, 233, 234, 235, 236, 237, 238, 240, 303, 304, 307, 308,
    309, 312, 315, 316, 319, 320, 322, 323, 326, 327, 329, 331, 332, 333, 335, 341, 344, 345, 346,
    405, 406, 407, 409, 410, 411, 412, 413, 414, 415, 416, 417, 418, 419, 420, 422, 423, 424, 425,
    426, 427, 429, 430, 435, 436, 438, 448, 449, 451, 501, 504, 512, 513, 518};

constexpr auto china = "310"_L1;
constexpr auto conDecreto = "S"_L1;

const QString desbordamiento = u"Desbordamiento"_s;
const QString sinDivisor = u"División por cero"_s;

}  // namespace

QString ZonaDePais(const QString &codigo) {
    const QString limpio = codigo.trimmed();
    if (limpio.isEmpty()) return {};
    if (limpio == "225"_L1 || limpio == "221"_L1) return u"M"_s;
    return limpio == "203"_L1 ? u"B"_s : u"E"_s;
}

bool PaisConTopeArancelario(const QString &codigo) {
    const double numero = numeros::aNumero(codigo);
    return std::fabs(numero) < 1e6 && std::binary_search(paisesConTope.begin(), paisesConTope.end(),
                                                         static_cast<int>(std::trunc(numero)));
}

ClassLiquidacion::ClassLiquidacion(AppContext &ctx, QString interno)
    : ctx_(ctx), interno_(std::move(interno)) {}

void ClassLiquidacion::fijarCaratulaSeguroProcent(double porcentaje) {
    seguroProcent_ = porcentaje;
    if (CaratulaSeguroValor == 0)
        CaratulaSeguroValor = PorcentajeRedondeado(CaratulaFleteTotal + CaratulaFobTotal, porcentaje);
}

void ClassLiquidacion::fijarNcmDerechoAdicional(const QString &tasa) {
    derechoAdicional_ = numeros::aNumero(tasa);
}

QString ClassLiquidacion::Obtener_Sep_Decim() const {
    return QString(ctx_.SeparadorDecimal);
}

QString ClassLiquidacion::ReemplazarSeparadorDecimal(QString &texto) const {
    return ::ReemplazarSeparadorDecimal(texto, ctx_.SeparadorDecimal);
}

void ClassLiquidacion::avisar(const QString &descripcion) const {
    ctx_.dialogos.advertir(descripcion);
}

double ClassLiquidacion::porcentajeDe(double porcentaje) const {
    return PorcentajeRedondeado(baseImponible_, porcentaje);
}

void ClassLiquidacion::CalcularBaseImponible() {
    // Step by step: an overflow leaves the sum as far as it got.
    const auto sumar = [this](double monto) {
        if (!std::isfinite(baseImponible_ + monto)) return false;
        baseImponible_ += monto;
        return true;
    };
    const auto calcular = [&] {
        if (!std::isfinite(FOBTotalITEM * CaratulaDivisasFOB)) return false;
        baseImponible_ = FOBTotalITEM * CaratulaDivisasFOB;
        if (!esExportacion() &&
            !(sumar(CaratulaDivisasFlete * FLETETotalITEM) && sumar(CaratulaDivisasSeguro * SEGUROTotalITEM)))
            return false;
        if (!sumar(AJUSTEINCLUIRtotalITEM * CaratulaDivisasFOB)) return false;
        if (!sumar(-(AJUSTEDEDUCIRtotalITEM * CaratulaDivisasFOB))) return false;
        return !EsRegimenConInsumos(CaratulaSubRegimen) ||
               (sumar(-ItmImportacionTemporal) && sumar(ItmComsionesExt));
    };
    if (!calcular()) avisar(desbordamiento);
}

void ClassLiquidacion::CalcularDerechos(double porcentaje) {
    importeAdValorem_ = importeDIEM_ = importeEspecifico_ = importeDIEMChina_ = 0;
    const double adValorem = porcentajeDe(porcentaje);
    if (!std::isfinite(adValorem)) return avisar(desbordamiento);
    importeAdValorem_ = adValorem;
    auxPorcentaje_ = porcentaje;
    const double especifico = ncmCantidadDerechoEspecifico * ItemCantidadDerechoEspecifico;
    if (!std::isfinite(especifico)) return avisar(desbordamiento);
    if (importeAdValorem_ >= especifico) return;

    const bool esChina = ItemIdPais.trimmed() == china;
    importeAdValorem_ = 0;
    if (!esChina && !PaisConTopeArancelario(ItemIdPais)) {
        importeEspecifico_ = especifico;
        return;
    }
    if (ZonaDePais(ItemIdPais) != "E"_L1) {
        NcmDerechodeImportacionExtrazona = 0;
        return;
    }
    // Without an indicator the cap is 0, and so is the duty.
    const double tope = NcmIndicadorMaximoArancel == 1 ? 30 : (NcmIndicadorMaximoArancel == 2 ? 35 : 0);
    const double x = tope * baseImponible_ / 100;
    auxPorcentaje_ = tope;
    if (!esChina) {
        importeDIEM_ = redondear(x > especifico ? especifico : x, 2);
    } else if (especifico < x) {
        // The other way round than above, as the rule for this country stands.
        importeEspecifico_ = redondear(x, 2);
    } else {
        importeDIEM_ = x;
    }
}

double ClassLiquidacion::tramoDeEstadistica() const {
    const Arancel *tramo = TramoDeEstadistica(baseImponible_);
    if (tramo == nullptr) return 0;
    return tramo->importe > 0 ? tramo->importe : porcentajeDe(NcmTasaEstadistica);
}

/// Parts from Brazil under the automotive agreement: no duty and no statistics rate, three quarters of the
/// common tariff.
void ClassLiquidacion::aplicarReglaBrasil() {
    NcmDerechodeImportacionExtrazona = 0;
    NcmTasaEstadistica = 0;
    derechoAutomotriz_ = PorcentajeRedondeado(ncmValor_AEC, 75);
    baseIVAAdicional_ += porcentajeDe(derechoAutomotriz_);
}

void ClassLiquidacion::sumarConRegimenAutomotriz(const QString &zona) {
    if (zona == "B"_L1) {
        aplicarReglaBrasil();
        return;
    }
    if (!NcmDerechodeImportacionExtrazonaForce) NcmDerechodeImportacionExtrazona = ncmValor_AEC;
    baseIVA_ += porcentajeDe(NcmDerechodeImportacionExtrazona);
    baseIVAAdicional_ = derechoAutomotriz_ = 0;
}

void ClassLiquidacion::sumarDerechos() {
    if (CalculoAEC == "R"_L1) {
        const QString zona = ZonaDePais(ItemIdPais);
        if (zona != "M"_L1 && ncm_AEC == "*"_L1) {
            sumarConRegimenAutomotriz(zona);
        } else if (!ItemLISTA_MERCOSUR) {
            if (importeDIEM_ == 0)
                baseIVA_ += porcentajeDe(NcmDerechodeImportacionExtrazona);
            else if (importeDIEMChina_ == 0)
                baseIVA_ += importeDIEM_;
        }
        return;
    }
    if (CalculoAEC == "P"_L1) return;
    if (es314()) {
        aplicarReglaBrasil();
    } else if (!ItemLISTA_MERCOSUR) {
        if (importeDIEM_ == 0 && importeDIEMChina_ == 0)
            baseIVA_ += porcentajeDe(NcmDerechodeImportacionExtrazona);
        else if (importeDIEM_ == 0)
            baseIVA_ += importeDIEMChina_;
        else if (importeDIEMChina_ == 0)
            baseIVA_ += importeDIEM_;
    }
}

void ClassLiquidacion::CalcularBaseIVA() {
    baseIVA_ = baseImponible_;
    baseIVAAdicional_ = 0;
    if (ItemMineria) NcmDerechodeImportacionExtrazona = NcmTasaEstadistica = 0;
    CalcularDerechos(NcmDerechodeImportacionExtrazona);
    CalculoAEC = LeerAEC(ctx_, interno_);
    if (CalculoAEC.isEmpty() && ncm_AEC == "*"_L1) {
        PreguntarRegimenAutomotriz(ctx_, interno_);
        CalculoAEC = LeerAEC(ctx_, interno_, u"N"_s);
    }
    baseIVAAdicional_ = derechoAutomotriz_ = 0;
    sumarDerechos();
    if (derechoAutomotriz_ > 0 && NcmTasaEstadistica > 0) baseIVAAdicional_ += tramoDeEstadistica();
    if (!ItemLISTA_MERCOSUR) {
        if (NcmTasaEstadistica > 0) baseIVA_ += tramoDeEstadistica();
        if (ncmMineriaTasaLey > 0 && ItemMineria) baseIVA_ += porcentajeDe(ncmMineriaTasaLey);
    }
    const MotivoDecreto &d = ctx_.decreto;
    if (d.d1439_96 == conDecreto || d.d1439_96A1 == conDecreto || CaratulaSubRegimen == "IC81"_L1)
        baseIVA_ += porcentajeDe(derechoAdicional_);
    if ((d.d1330_04A6 == conDecreto || d.d1330_04A7 == conDecreto || d.d1330_04A8 == conDecreto) &&
        CaratulaSubRegimen == "IT14"_L1)
        baseIVA_ += porcentajeDe(derechoAdicional_);
    if (!std::isfinite(baseIVA_) || !std::isfinite(baseIVAAdicional_)) {
        baseIVA_ = 0;
        avisar(desbordamiento);
    }
}

double ClassLiquidacion::ObtenerBaseImponible() {
    CalcularBaseImponible();
    if (ItemCoeficienteExportacion > 0) baseImponible_ *= ItemCoeficienteExportacion;
    return baseImponible_;
}

double ClassLiquidacion::ObtenerBaseIVA() {
    CalcularBaseIVA();
    return baseIVA_;
}

double ClassLiquidacion::tasaIVA(const QString &porcentaje) const {
    if (porcentaje != "Vacio"_L1) return numeros::aNumero(porcentaje);
    if (ncmExencionReduccionIVA == 0) return 0;
    return ncmExencionReduccionIVA == 1 ? ctx_.opciones.IVARNI : ctx_.opciones.IVARIN;
}

double ClassLiquidacion::CalcularDiemCHINA(double porcentaje) {
    if (ItemIdPais.trimmed() != china || !ncmCalculaDIEMCHINA) return 0;
    if (porcentaje == 0) {
        avisar(sinDivisor);
        return 0;
    }
    const double a = ncmDIEMCHINAValor * ItemCantidadDerechoEspecifico * 100 / porcentaje;
    const double b = a - ncmDIEMIndMaxArancelValor;
    const double e = b - PorcentajeRedondeado(b, ncmDIEMPREFPorcValor) + ncmDIEMIndMaxArancelValor;
    const double total = e * porcentaje / 100;
    if (!std::isfinite(total)) {
        avisar(desbordamiento);
        return 0;
    }
    return redondear(total, 2);
}

void ClassLiquidacion::GetMarcaImpuestosInternos(const QString &ncm) {
    impInternoDecreto_.clear();
    impInternoTasaNominal_ = impInternoTasaEfectiva_ = 0;
    try {
        Recordset rs;
        if (!Consultar(ctx_, u"USUARIO"_s,
                       "select decreto, tasa_nominal "
                       "from impuestos_internos "
                       "where ncm = "_L1 +
                           TextoEnComillas(ncm),
                       rs))
            return;
        impInternoDecreto_ = rs.Texto(u"decreto").trimmed();
        impInternoTasaNominal_ = rs.Numero(u"tasa_nominal");
    } catch (const Falla &e) {
        if (e.numero == Falla::sinStore) throw;
        avisar(e.descripcion);
    }
}
