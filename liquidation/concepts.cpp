// One short rule a concept code. Codes are those of the customs system's liquidation; the rates come from the
// nomenclature, from the row itself, or from the configuration.
#include <algorithm>
#include <cmath>

#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/context.h"
#include "liquidation/ClassLiquidacion.h"

using namespace Qt::StringLiterals;

using numeros::aNumero;
using numeros::PorcentajeRedondeado;
using numeros::redondear;

namespace {

using L = QLatin1String;

const QString cero = u"0"_s;

bool esVacio(const QString &texto) {
    return texto == "Vacio"_L1;
}

/// A rate as the platform writes it: the workstation's separator.
QString comoTexto(double numero, QChar separador) {
    QString texto = numeros::aTexto(numero);
    return ReemplazarSeparadorDecimal(texto, separador);
}

/// A fault inside a rule has no handler here: it reaches the routine that asked for the concept.
[[noreturn]] void fallar(int numero, const char *descripcion) {
    throw Falla{numero, u"ClassLiquidacion"_s, QString::fromUtf8(descripcion), {}};
}
[[noreturn]] void divisionPorCero() {
    fallar(11, "División por cero");
}

}  // namespace

/// The rules, with the calculator's own values in reach.
struct Conceptos {
    ClassLiquidacion &c;
    QString &porcentaje;
    double &base;
    const QString &porcentajeB;
    double baseManual;
    bool sinCoeficiente;

    bool manual() const { return baseManual != 0; }

    /// The rate; "Vacio" takes `defecto` first.
    double tasa(double defecto) {
        if (!esVacio(porcentaje)) return aNumero(porcentaje);
        porcentaje = comoTexto(defecto, c.ctx_.SeparadorDecimal);
        return defecto;
    }
    double nada() {
        base = 0;
        c.LqPorc = 0;
        return 0;
    }
    /// `tasa` on `sobre`, which becomes the row's base.
    double sobre(double nuevaBase, double t) {
        base = nuevaBase;
        c.LqPorc = t;
        return PorcentajeRedondeado(base, t);
    }
    double sobreLaManual() { return sobre(base, aNumero(porcentaje)); }

    // 010: ad valorem import duty.
    double derechoDeImportacion() {
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

    // 866: automotive duty.
    double derechoAutomotriz() {
        if (c.ItemLISTA_MERCOSUR) porcentaje = cero;
        return sobre(c.baseImponible_, tasa(c.derechoAutomotriz_));
    }

    // 415 and 852: VAT, on its own base or on that of the automotive rule.
    double iva(double baseDelConcepto) {
        const double t = c.tasaIVA(porcentaje);
        porcentaje = comoTexto(t, c.ctx_.SeparadorDecimal);
        return sobre(manual() ? base : baseDelConcepto, t);
    }

    // 422 and 854: additional VAT; exempt goods pay none, reduced ones the second percentage.
    double tasaAdicional() {
        if (c.ncmExencionReduccionIVA == 0)
            porcentaje = cero;
        else if (c.ncmExencionReduccionIVA == 1)
            porcentaje = porcentajeB;
        if (!numeros::esNumerico(porcentaje)) porcentaje = cero;
        return aNumero(porcentaje);
    }

    // 424 and 856: advance income tax. A rate of exactly 200 stands for an exemption.
    double tasaDeGanancias() {
        double t = tasa(3);
        if (t == 200) {
            porcentaje = cero;
            t = 0;
        }
        return t;
    }
    double ganancias() {
        if (!manual() && c.CaratulaSubRegimen == "IT04"_L1) porcentaje = u"11"_s;
        const double t = tasaDeGanancias();
        return sobre(manual() ? base : c.baseIVA_, t);
    }

    // 059: specific duty under the cap of the country.
    double especificoConTope() {
        if (c.ItemLISTA_MERCOSUR || c.importeDIEM_ <= 0) {
            base = c.LqPorc = 0;
            return 0;
        }
        base = c.baseImponible_;
        c.LqPorc = c.auxPorcentaje_;
        return c.importeDIEM_;
    }

    // 015: specific duty.
    double especifico() {
        if (c.importeEspecifico_ > 0) {
            base = c.importeEspecifico_;
            c.LqPorc = 0;
        }
        return c.importeEspecifico_;
    }

    // 016: additional rate of a decree.
    double adicional() { return sobre(manual() ? base : c.baseImponible_, tasa(c.derechoAdicional_)); }

    // 520: digitalisation service, a fixed fee.
    double digitalizacion() {
        constexpr double importe = 22.14;
        porcentaje = u"100"_s;
        c.LqPorc = 100;
        base = importe;
        return importe;
    }

    // 032: mining rate.
    double mineria() { return c.ItemMineria ? sobre(c.baseImponible_, tasa(c.ncmMineriaTasaLey)) : nada(); }

    // 065: specific minimum for country 310.
    double minimoChina() {
        if (manual()) return sobreLaManual();
        if (c.ItemIdPais.trimmed() != "310"_L1) return nada();
        base = c.LqPorc = 0;
        return c.importeDIEMChina_;
    }

    // 011: statistics rate, lower band.
    double estadistica() {
        double total = 0;
        if (manual())
            total = sobreLaManual();
        else if (c.es314() || c.ItemLISTA_MERCOSUR || c.bandaEstadistica_ != 1)
            total = nada();
        else
            total = sobre(c.baseImponible_, tasa(c.NcmTasaEstadistica));
        return c.ItemMineria ? nada() : total;
    }

    // 061 and 062: statistics fee of the middle and of the upper band.
    double estadisticaFija(int banda, double importe) {
        if (c.NcmTasaEstadistica == 0 || c.ItemLISTA_MERCOSUR) return nada();
        if (c.bandaEstadistica_ == banda) {
            base = c.LqPorc = 0;
            return importe;
        }
        const double t = aNumero(porcentaje);
        return base > 0 && t > 0 ? sobre(base, t) : 0;
    }

    // 020: export duty, which can lie inside the declared value: the coefficient takes it out.
    double derechoDeExportacion() {
        c.derechoExpoCubierto_ = false;
        const double t = tasa(c.NcmDerechodeExpo);
        if (c.ItemCalcularCoeficienteExportacion) {
            const double divisor = 1 + t / 100;
            if (divisor == 0) divisionPorCero();
            c.ItemCoeficienteExportacion = redondear(1 / divisor, 5);
        }
        if (c.ItemCoeficienteExportacion <= 0) return sobre(c.baseImponible_, t);
        const double nueva =
            sinCoeficiente ? c.baseImponible_ : c.baseImponible_ * c.ItemCoeficienteExportacion;
        const double total = sobre(nueva, t);
        c.baseImponible_ = nueva;
        c.derechoExpoCubierto_ = c.ItmComsionesExt + c.ItmImportacionTmpCons > total;
        return total;
    }

    // Refunds, 601 and 611.
    double valorAgregado() const {
        return valorSinTemporales() - c.ItmImportacionTmpCons - c.ItmComsionesExt;
    }
    double valorSinTemporales() const {
        return c.AJUSTEINCLUIRtotalITEM + c.FOBTotalITEM - c.AJUSTEDEDUCIRtotalITEM -
               c.ItmImportacionTemporal;
    }
    double reintegro() {
        const QString zona = ZonaDePais(c.ItemIdPais);
        c.LqPorc = zona == "B"_L1 || zona == "M"_L1 ? c.ncmReintFijoIntraZona : c.ncmReintegroFijo;
        return PorcentajeRedondeado(base, c.LqPorc);
    }
    double reintegroSinCoeficiente() {
        if (c.ItemCoeficienteExportacion != 0 && !c.derechoExpoCubierto_) return nada();
        c.ctx_.LiquidacionPendiente = true;
        // The deduction is added here and subtracted in the comparison: the asymmetry is the rule's own.
        base = c.AJUSTEINCLUIRtotalITEM + c.FOBTotalITEM + c.AJUSTEDEDUCIRtotalITEM;
        if (valorSinTemporales() >= valorAgregado())
            base = base - c.ItmImportacionTmpCons - c.ItmComsionesExt - c.ItmImportacionTemporal;
        return reintegro();
    }
    double reintegroConCoeficiente() {
        c.ctx_.LiquidacionPendiente = true;
        if (c.ItemCoeficienteExportacion <= 0 || c.derechoExpoCubierto_) return nada();
        base = std::min(valorSinTemporales() * c.ItemCoeficienteExportacion, valorAgregado());
        return reintegro();
    }

    // 417: internal taxes, by the decree that names the position. The one amount that is not rounded.
    double impuestosInternos() {
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

    /// A plain rate on `baseDelConcepto`, 0 unless told.
    double tasaLlana(double baseDelConcepto) {
        return manual() ? sobreLaManual() : sobre(baseDelConcepto, tasa(0));
    }

    double responder(int codigo, bool factorDeConvergencia) {
        switch (codigo) {
            case 10:
                return derechoDeImportacion();
            case 11:
                return estadistica();
            case 15:
                return especifico();
            case 16:
                return adicional();
            case 20:
                return derechoDeExportacion();
            case 32:
                return mineria();
            case 41:
                return sobre(c.baseImponible_, tasa(1));
            case 59:
                return especificoConTope();
            case 61:
                return estadisticaFija(2, 400);
            case 62:
                return estadisticaFija(3, 500);
            case 65:
                return minimoChina();
            case 415:
                return iva(c.baseIVA_);
            case 417:
                return impuestosInternos();
            case 422: {
                const double t = tasaAdicional();
                return sobre(manual() ? base : c.baseIVA_, t);
            }
            case 424:
                return ganancias();
            case 500:
            case 501:
                // The fee is one line of the operation's totals.
                porcentaje = cero;
                return nada();
            case 520:
                return digitalizacion();
            case 601:
                return reintegroSinCoeficiente();
            case 611:
                return reintegroConCoeficiente();
            case 852:
                return iva(c.baseIVAAdicional_);
            case 854:
                return sobre(c.baseIVAAdicional_, tasaAdicional());
            case 856:
                return sobre(c.baseIVAAdicional_, tasaDeGanancias());
            case 866:
                return derechoAutomotriz();
            case 900:
                return tasaLlana(c.baseIVA_);
            default:
                return factorDeConvergencia ? sobre(c.baseImponible_, tasa(0)) : tasaLlana(c.baseImponible_);
        }
    }
};

double ClassLiquidacion::ObtenerValorConcepto(const QString &concepto, QString &porcentaje, double /*valor*/,
                                              double &base, const QString &porcentajeB, double baseManual,
                                              bool sinCoeficiente) {
    if (baseImponible_ <= 79999)
        bandaEstadistica_ = 1;
    else if (baseImponible_ >= 80000 && baseImponible_ <= 99999)
        bandaEstadistica_ = 2;
    else if (baseImponible_ >= 100000)
        bandaEstadistica_ = 3;
    LqPorc = 0;
    // Codes are exactly three digits: "10" or "0010" is no duty.
    int codigo = -1;
    if (concepto.size() == 3) {
        codigo = 0;
        for (const QChar letra : concepto)
            codigo =
                codigo >= 0 && letra >= u'0' && letra <= u'9' ? codigo * 10 + (letra.unicode() - u'0') : -1;
    }
    const double total =
        Conceptos{*this, porcentaje, base, porcentajeB, baseManual, sinCoeficiente}.responder(
            codigo, concepto == "FCV"_L1);
    if (!std::isfinite(total)) fallar(6, "Desbordamiento");
    return total;
}
