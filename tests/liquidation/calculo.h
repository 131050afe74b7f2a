#pragma once
// A calculator with an item in hand, for the rules that need no store.

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "header/automotive.h"
#include "liquidation/ClassLiquidacion.h"
#include "tests/support/tienda.h"

/// What a concept answers and what it leaves in its arguments.
struct Respuesta {
    double total = 0, base = 0, lqPorc = 0;
    QString porcentaje;
};
/// The arguments of ObtenerValorConcepto that a row gives.
struct Pedido {
    QString porcentaje = QStringLiteral("Vacio");
    double base = 0;
    QString porcentajeB;
    double baseManual = 0;
    bool sinCoeficiente = false;
};

/// A row whose base is the system's, and one whose base was fixed by hand.
Pedido con(const char *porcentaje, double base = 0, const char *porcentajeB = "");
Pedido manual(const char *porcentaje, double base, const char *porcentajeB = "");
/// Checks all that comes out of a call.
void esperar(const Respuesta &r, double total, double base, double lqPorc, const char *porcentaje);

/// The item of nearly every test: FOB 1000, freight 100 and insurance 10, all at a rate of 1, so a taxable
/// base of 1110; duty of 20 % (222.00) and statistics of 3 % (33.30), so an IVA base of 1365.30. Country 400
/// is outside the zone and its imports are not capped.
class CalculoDePrueba : public ::testing::Test {
 protected:
    void SetUp() override;
    static void cargar(ClassLiquidacion &c);

    Respuesta pedir(const char *concepto, const Pedido &pedido = {});
    /// Both bases, in the order the callers keep.
    void bases() {
        baseImponible = c.ObtenerBaseImponible();
        baseIVA = c.ObtenerBaseIVA();
    }
    /// A taxable base of exactly `monto`.
    void conBase(double monto) {
        c.FLETETotalITEM = c.SEGUROTotalITEM = 0;
        c.FOBTotalITEM = monto;
        bases();
    }
    /// The operation's stored answer to the question on the common external tariff.
    void responderAEC(const char *valor) { GuardarAEC(ctx, QStringLiteral("OP1"), QLatin1String(valor)); }
    /// Parts from Brazil under the automotive agreement: common tariff of 18 %, three quarters are 13.50 %,
    /// so a second base of 149.85; duty and statistics go to 0, so the IVA base stays at 1110.
    void deBrasil();

    /// A consumption export with a duty of 10 %.
    void comoExportacion() {
        c.CaratulaSubRegimen = QStringLiteral("EC01");
        c.NcmDerechodeExpo = 10;
    }

    double baseImponible = 0, baseIVA = 0;
    QTemporaryDir dir;
    Registro registro;
    AppContext ctx;
    ClassLiquidacion c{ctx, QStringLiteral("OP1")};
};
