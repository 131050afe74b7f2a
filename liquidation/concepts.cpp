// What each rule is for, and a worked figure, stand in concepts.h.
#include "liquidation/concepts.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/context.h"
#include "liquidation/fees.h"

using namespace Qt::StringLiterals;

using numeros::aNumero;
using numeros::PorcentajeRedondeado;
using numeros::redondear;

namespace {

const QString cero = u"0"_s;

/// Codes are exact: "10" or "0010" is no duty.
struct Regla {
    const char *concepto;
    double (Conceptos::*responder)();
};
constexpr Regla reglas[] = {
    {"010", &Conceptos::derechoDeImportacion},
    {"011", &Conceptos::estadistica},
    {"015", &Conceptos::especifico},
    {"016", &Conceptos::adicional},
    {"020", &Conceptos::derechoDeExportacion},
    {"032", &Conceptos::mineria},
    {"041", &Conceptos::multa},
    {"059", &Conceptos::especificoConTope},
    {"061", &Conceptos::estadisticaFija},
    {"062", &Conceptos::estadisticaFija},
    {"065", &Conceptos::minimoChina},
    {"415", &Conceptos::iva},
    {"417", &Conceptos::impuestosInternos},
    {"422", &Conceptos::ivaAdicional},
    {"424", &Conceptos::ganancias},
    {"500", &Conceptos::arancelSim},
    {"501", &Conceptos::arancelSim},
    {"520", &Conceptos::digitalizacion},
    {"601", &Conceptos::reintegroSinCoeficiente},
    {"611", &Conceptos::reintegroConCoeficiente},
    {"852", &Conceptos::ivaAutomotriz},
    {"854", &Conceptos::ivaAdicionalAutomotriz},
    {"856", &Conceptos::gananciasAutomotriz},
    {"866", &Conceptos::derechoAutomotriz},
    {"900", &Conceptos::ingresosBrutos},
    {"FCV", &Conceptos::factorDeConvergencia},
};

/// A rate as the platform writes it: the workstation's separator.
QString comoTexto(double numero, QChar separador) {
    QString texto = numeros::aTexto(numero);
    return ReemplazarSeparadorDecimal(texto, separador);
}

/// A fault inside a rule has no handler here: it reaches the routine that asked for the concept.
[[noreturn]] void fallar(int numero, const QString &descripcion) {
    throw Falla{numero, u"ClassLiquidacion"_s, descripcion, {}};
}
[[noreturn]] void divisionPorCero() {
    fallar(11, u"División por cero"_s);
}

}  // namespace

double Conceptos::responder() {
    const auto *regla = std::find_if(std::begin(reglas), std::end(reglas), [this](const Regla &r) {
        return concepto == QLatin1StringView(r.concepto);
    });
    return regla == std::end(reglas) ? cualquierOtro() : (this->*regla->responder)();
}

double Conceptos::tasa(double defecto) {
    if (porcentaje != "Vacio"_L1) return aNumero(porcentaje);
    porcentaje = comoTexto(defecto, c.ctx_.SeparadorDecimal);
    return defecto;
}

double Conceptos::nada() {
    base = 0;
    c.LqPorc = 0;
    return 0;
}

double Conceptos::sobre(double nuevaBase, double t) {
    base = nuevaBase;
    c.LqPorc = t;
    return PorcentajeRedondeado(base, t);
}

double Conceptos::sobreLaManual() {
    return sobre(base, aNumero(porcentaje));
}

double Conceptos::tasaLlana(double baseDelConcepto) {
    return manual() ? sobreLaManual() : sobre(baseDelConcepto, tasa(0));
}

// Import

double Conceptos::derechoDeImportacion() {
    double total = 0;
    if (manual()) {
        total = sobreLaManual();
    } else if (c.es314() || c.ItemLISTA_MERCOSUR) {
        base = c.LqPorc = 0;
    } else {
        const double t = tasa(c.NcmDerechodeImportacionExtrazona);
        c.CalcularDerechos(t);
        base = c.baseImponible_;
        c.LqPorc = t;
        total = c.importeAdValorem_;
    }
    return c.ItemMineria ? nada() : total;
}

double Conceptos::estadistica() {
    double total = 0;
    if (manual())
        total = sobreLaManual();
    else if (c.es314() || c.ItemLISTA_MERCOSUR || c.bandaEstadistica_ != ArancelDe(concepto)->banda)
        total = nada();
    else
        total = sobre(c.baseImponible_, tasa(c.NcmTasaEstadistica));
    return c.ItemMineria ? nada() : total;
}

double Conceptos::estadisticaFija() {
    if (c.NcmTasaEstadistica == 0 || c.ItemLISTA_MERCOSUR) return nada();
    const Arancel *arancel = ArancelDe(concepto);
    if (c.bandaEstadistica_ == arancel->banda) {
        base = c.LqPorc = 0;
        return arancel->importe;
    }
    const double t = aNumero(porcentaje);
    return base > 0 && t > 0 ? sobre(base, t) : 0;
}

double Conceptos::especifico() {
    if (c.importeEspecifico_ > 0) {
        base = c.importeEspecifico_;
        c.LqPorc = 0;
    }
    return c.importeEspecifico_;
}

double Conceptos::especificoConTope() {
    if (c.ItemLISTA_MERCOSUR || c.importeDIEM_ <= 0) {
        base = c.LqPorc = 0;
        return 0;
    }
    base = c.baseImponible_;
    c.LqPorc = c.auxPorcentaje_;
    return c.importeDIEM_;
}

double Conceptos::adicional() {
    return sobre(manual() ? base : c.baseImponible_, tasa(c.derechoAdicional_));
}

double Conceptos::mineria() {
    return c.ItemMineria ? sobre(c.baseImponible_, tasa(c.ncmMineriaTasaLey)) : nada();
}

double Conceptos::multa() {
    return sobre(c.baseImponible_, tasa(1));
}

double Conceptos::minimoChina() {
    if (manual()) return sobreLaManual();
    if (c.ItemIdPais.trimmed() != "310"_L1) return nada();
    base = c.LqPorc = 0;
    return c.importeDIEMChina_;
}

// Export

double Conceptos::derechoDeExportacion() {
    c.derechoExpoCubierto_ = false;
    const double t = tasa(c.NcmDerechodeExpo);
    if (c.ItemCalcularCoeficienteExportacion) {
        const double divisor = 1 + t / 100;
        if (divisor == 0) divisionPorCero();
        c.ItemCoeficienteExportacion = redondear(1 / divisor, 5);
    }
    if (c.ItemCoeficienteExportacion <= 0) return sobre(c.baseImponible_, t);
    const double nueva = sinCoeficiente ? c.baseImponible_ : c.baseImponible_ * c.ItemCoeficienteExportacion;
    const double total = sobre(nueva, t);
    c.baseImponible_ = nueva;
    c.derechoExpoCubierto_ = c.ItmComsionesExt + c.ItmImportacionTmpCons > total;
    return total;
}

double Conceptos::valorSinTemporales() const {
    return c.AJUSTEINCLUIRtotalITEM + c.FOBTotalITEM - c.AJUSTEDEDUCIRtotalITEM - c.ItmImportacionTemporal;
}

double Conceptos::valorAgregado() const {
    return valorSinTemporales() - c.ItmImportacionTmpCons - c.ItmComsionesExt;
}

double Conceptos::reintegro() {
    const QString zona = ZonaDePais(c.ItemIdPais);
    c.LqPorc = zona == "B"_L1 || zona == "M"_L1 ? c.ncmReintFijoIntraZona : c.ncmReintegroFijo;
    return PorcentajeRedondeado(base, c.LqPorc);
}

double Conceptos::reintegroSinCoeficiente() {
    if (c.ItemCoeficienteExportacion != 0 && !c.derechoExpoCubierto_) return nada();
    c.ctx_.LiquidacionPendiente = true;
    // The deduction is added here and subtracted in the comparison: the asymmetry is the rule's own.
    base = c.AJUSTEINCLUIRtotalITEM + c.FOBTotalITEM + c.AJUSTEDEDUCIRtotalITEM;
    if (valorSinTemporales() >= valorAgregado())
        base = base - c.ItmImportacionTmpCons - c.ItmComsionesExt - c.ItmImportacionTemporal;
    return reintegro();
}

double Conceptos::reintegroConCoeficiente() {
    c.ctx_.LiquidacionPendiente = true;
    if (c.ItemCoeficienteExportacion <= 0 || c.derechoExpoCubierto_) return nada();
    base = std::min(valorSinTemporales() * c.ItemCoeficienteExportacion, valorAgregado());
    return reintegro();
}

// Taxes

double Conceptos::ivaSobre(double baseDelConcepto) {
    const double t = c.tasaIVA(porcentaje);
    porcentaje = comoTexto(t, c.ctx_.SeparadorDecimal);
    return sobre(manual() ? base : baseDelConcepto, t);
}

double Conceptos::tasaAdicional() {
    if (c.ncmExencionReduccionIVA == 0)
        porcentaje = cero;
    else if (c.ncmExencionReduccionIVA == 1)
        porcentaje = porcentajeB;
    if (!numeros::esNumerico(porcentaje)) porcentaje = cero;
    return aNumero(porcentaje);
}

double Conceptos::ivaAdicional() {
    const double t = tasaAdicional();
    return sobre(manual() ? base : c.baseIVA_, t);
}

double Conceptos::tasaDeGanancias() {
    const double t = tasa(3);
    if (t != 200) return t;
    porcentaje = cero;
    return 0;
}

double Conceptos::ganancias() {
    if (!manual() && c.CaratulaSubRegimen == "IT04"_L1) porcentaje = u"11"_s;
    const double t = tasaDeGanancias();
    return sobre(manual() ? base : c.baseIVA_, t);
}

double Conceptos::impuestosInternos() {
    if (manual()) return sobreLaManual();
    if (c.impInternoDecreto_.isEmpty()) {
        c.LqPorc = 0;
        return 0;
    }
    const double resto = 100 - c.impInternoTasaNominal_;
    if (resto == 0) divisionPorCero();
    c.impInternoTasaEfectiva_ = c.impInternoTasaNominal_ * 100 / resto;
    double total = 0;
    if (c.impInternoDecreto_ == "SINDEC"_L1)
        total = c.baseIVA_ * 1.3 * c.impInternoTasaEfectiva_ / 100;
    else if (c.impInternoDecreto_ == "DEC290_00"_L1)
        total = c.baseIVA_ * c.impInternoTasaEfectiva_ / 100;
    porcentaje = comoTexto(c.impInternoTasaNominal_, c.ctx_.SeparadorDecimal);
    base = c.baseIVA_;
    c.LqPorc = c.impInternoTasaNominal_;
    return total;
}

// Automotive

double Conceptos::derechoAutomotriz() {
    if (c.ItemLISTA_MERCOSUR) porcentaje = cero;
    return sobre(c.baseImponible_, tasa(c.derechoAutomotriz_));
}

// Fees

double Conceptos::arancelSim() {
    porcentaje = cero;
    return nada();
}

double Conceptos::digitalizacion() {
    porcentaje = u"100"_s;
    c.LqPorc = 100;
    base = ArancelDe(concepto)->importe;
    return base;
}

double ClassLiquidacion::ObtenerValorConcepto(const QString &concepto, QString &porcentaje, double /*valor*/,
                                              double &base, const QString &porcentajeB, double baseManual,
                                              bool sinCoeficiente) {
    // In a gap between two bands the one of the base before stands.
    if (const Arancel *tramo = TramoDeEstadistica(baseImponible_)) bandaEstadistica_ = tramo->banda;
    LqPorc = 0;
    const double total =
        Conceptos{*this, concepto, porcentaje, base, porcentajeB, baseManual, sinCoeficiente}.responder();
    if (!std::isfinite(total)) fallar(6, u"Desbordamiento"_s);
    return total;
}
