#pragma once
// The rules of the calculator, one a concept code, with the calculator's own values in reach.
//
// Read with them: "base" is the taxable base (CalcularBaseImponible), "IVA base" and "second base" are what
// CalcularBaseIVA left; amounts are in the customs currency, rates in percent, and "rate % of" an amount is
// rounded to the cent, halves away from zero. Under a manual base (`baseManual` other than 0) a rule that
// does not say "by hand or not" runs the row's own rate on the row's own base. The worked figures go on from
// one another: a base of 1000.00, a duty of 20 %, a statistics rate of 3 %, hence an IVA base of 1230.00.

#include "liquidation/ClassLiquidacion.h"

/// One question to the calculator. The members are ObtenerValorConcepto's own arguments.
struct Conceptos {
    ClassLiquidacion &c;
    const QString &concepto;
    QString &porcentaje;
    double &base;
    const QString &porcentajeB;
    double baseManual;
    bool sinCoeficiente;

    /// The total of `concepto`: by its rule, or by the plain rate for a code that has none.
    double responder();

    // Import

    /// 010, ad valorem import duty: rate % of the base, unless the specific duty is higher (see
    /// ClassLiquidacion::CalcularDerechos). Without a rate of its own: that of the position, or the one that
    /// CalcularBaseIVA put in its place; no rate is 0. Nothing in lists MERCOSUR and 314, nothing for mining.
    /// 20 % of 1000.00 is 200.00.
    /// Ley 22.415 (Código Aduanero), derechos de importación, arts. 635 and following.
    double derechoDeImportacion();

    /// 011, statistics rate: rate % of the base in the first band, nothing in the others, where 061 or 062
    /// takes its place. Without a rate of its own: that of the position; no rate is 0. Nothing in lists
    /// MERCOSUR and 314, nothing for mining. 3 % of 1000.00 is 30.00.
    /// Ley 22.415 (Código Aduanero), tasa de estadística, arts. 762 and following.
    double estadistica();

    /// 061 and 062, statistics fee of the second and of the third band: the amount of the table of fees,
    /// without base or rate. Out of its band: the row's own rate on its own base, 0 when either is missing. A
    /// position without statistics rate, and list MERCOSUR, have none. A base of 90000.00 gives 400.00 in 061
    /// and 0 in 062.
    double estadisticaFija();

    /// 015, specific duty: duty per unit x units, where that is more than the ad valorem duty and the country
    /// has no cap; for country 310, the cap where the specific duty stays below it. What CalcularDerechos
    /// left last; 0 when the position has no specific duty or the item no units. 30 units at 9.50 against
    /// 200.00 ad valorem are 285.00. Ley 22.415 (Código Aduanero), derechos de importación, arts. 635 and
    /// following.
    double especifico();

    /// 059, specific duty under the cap of the country: the lower of the specific duty and 30 or 35 % of the
    /// base (no indicator: 0). Its base is the taxable one, its rate the cap. 50 units at 9.50 are 475.00,
    /// more than 200.00 ad valorem; 35 % of 1000.00 caps them at 350.00.
    double especificoConTope();

    /// 016, additional duty of temporary imports: rate % of the base. Without a rate of its own: 24, 48 or 72
    /// by the decree that the header gives as its reason (Decretos 1439/96 and 1330/04), 0 without one. 24 %
    /// of 1000.00 is 240.00.
    double adicional();

    /// 032, mining rate: rate % of the base, 1 unless told, for goods marked as mining ones, which pay
    /// neither duty nor statistics rate; nothing for any other. 1 % of 1000.00 is 10.00. Of the exemption
    /// itself: Ley 24.196 (Inversiones Mineras), art. 21.
    double mineria();

    /// 041, fine: rate % of the base, by hand or not; 1 unless told. 1 % of 1000.00 is 10.00.
    double multa();

    /// 065, specific minimum for goods of country 310: rate % of a manual base. Without one it is 0: the
    /// minimum of the table DIEMCHINA is not part of the liquidation. 5 % of a base of 1000.00 by hand is
    /// 50.00.
    double minimoChina();

    // Export

    /// 020, export duty: rate % of the base; without a rate of its own, that of the position. A duty that
    /// lies inside the declared price is taken out of it first: coefficient = 1 / (1 + rate / 100), to five
    /// decimals, and the base times the coefficient is the base of this concept and of those behind it. An
    /// item that already has a coefficient keeps it; `sinCoeficiente` leaves the base alone. 5 % of 42000.00
    /// is 2100.00; inside the price, 42000.00 x 0.95238 = 39999.96 and 2000.00. It also settles whether the
    /// inputs and the commission exceed the duty, which is what decides between 601 and 611.
    /// Ley 22.415 (Código Aduanero), derechos de exportación, arts. 724 and following.
    double derechoDeExportacion();

    /// 601, refund of an item without coefficient, or whose duty its inputs cover: the position's rate
    /// (inside the zone the other one) of FOB with adjustments less commission and inputs, in the FOB's
    /// currency. The row's own rate is never used. A missing input counts as 0. FOB 30000.00 less inputs of
    /// 4000.00 and 1000.00 and a commission of 600.00 is 24400.00; 6 % of it, 1464.00. Ley 22.415 (Código
    /// Aduanero), reintegros, arts. 825 and following.
    double reintegroSinCoeficiente();

    /// 611, refund of an item with coefficient whose duty its inputs do not cover: the same rate on the
    /// lesser of the value times the coefficient and the value less inputs and commission. FOB 42000.00 at
    /// 0.95238 is 39999.96; 3.5 % of it, 1400.00. Ley 22.415 (Código Aduanero), reintegros, arts. 825 and
    /// following.
    double reintegroConCoeficiente();

    // Taxes

    /// 415, IVA: rate % of the IVA base. Without a rate of its own: 0 for an exempt position, IVARNI for a
    /// reduced one, IVARIN for any other; an option that is missing is 0. 21 % of 1230.00 is 258.30.
    /// Ley 23.349 (IVA, t.o. 1997), arts. 25 (base of imports) and 28 (rates).
    double iva() { return ivaSobre(c.baseIVA_); }

    /// 422, additional IVA: rate % of the IVA base. A reduced position takes the second rate
    /// (`porcentajeB`), an exempt one 0; a rate that is missing or no number is 0. 10 % of 1230.00 is 123.00.
    double ivaAdicional();

    /// 424, advance income tax: rate % of the IVA base, 3 unless told, 11 in IT04; a rate of exactly 200
    /// stands for an exemption and is 0. 3 % of 1230.00 is 36.90.
    double ganancias();

    /// 900, gross income tax: rate % of the IVA base; without a rate, 0. 2.5 % of 1230.00 is 30.75.
    double ingresosBrutos() { return tasaLlana(c.baseIVA_); }

    /// 417, internal taxes: IVA base x effective rate, the nominal rate on what remains of 100: nominal x 100
    /// / (100 - nominal). Positions without a decree (SINDEC) take 1.3 times the base, those of DEC290_00 the
    /// base; any other decree, and a position that is not in the table, nothing. The one amount that is not
    /// rounded here. Nominal 20 is 25 % effective; 1230.00 x 1.3 x 25 % is 399.75.
    /// Ley 24.674 (Impuestos Internos).
    double impuestosInternos();

    // Parts under the automotive agreement: guaranteed on a second base of their own

    /// 866, automotive duty: three quarters of the common tariff % of the base, 0 where that rule does not
    /// run; nothing in list MERCOSUR. A tariff of 14 gives 10.5 % of 1000.00, 105.00.
    double derechoAutomotriz();

    /// 852, IVA of the second base; rates as in 415. 21 % of 105.00 is 22.05.
    double ivaAutomotriz() { return ivaSobre(c.baseIVAAdicional_); }

    /// 854, additional IVA of the second base, by hand or not; rates as in 422. 10 % of 105.00 is 10.50.
    double ivaAdicionalAutomotriz() { return sobre(c.baseIVAAdicional_, tasaAdicional()); }

    /// 856, advance income tax of the second base, by hand or not; rates as in 424, IT04 like any other. 3 %
    /// of 105.00 is 3.15.
    double gananciasAutomotriz() { return sobre(c.baseIVAAdicional_, tasaDeGanancias()); }

    // Fees and other rates

    /// 500 and 501, fee of the customs system: nothing an item, whatever its row holds. The fee stands once
    /// in the operation's totals: 10.00 for two items or for one.
    double arancelSim();

    /// 520, digitalisation service: the amount of the table of fees, which is its base too, at 100 %.
    double digitalizacion();

    /// FCV, convergence factor: rate % of the base, by hand or not; without a rate, 0. 2 % of 1000.00
    /// is 20.00.
    double factorDeConvergencia() { return sobre(c.baseImponible_, tasa(0)); }

    /// Any other code: rate % of the base; without a rate, 0. 2 % of 1000.00 is 20.00.
    double cualquierOtro() { return tasaLlana(c.baseImponible_); }

 private:
    bool manual() const { return baseManual != 0; }
    /// The rate; "Vacio" takes `defecto` first.
    double tasa(double defecto);
    double nada();
    /// `t` percent of `nuevaBase`, which becomes the row's base; `t` becomes its rate.
    double sobre(double nuevaBase, double t);
    double sobreLaManual();
    /// The row's rate on its own base, or on `baseDelConcepto`; 0 unless told.
    double tasaLlana(double baseDelConcepto);
    double ivaSobre(double baseDelConcepto);
    double tasaAdicional();
    double tasaDeGanancias();
    double valorSinTemporales() const;
    double valorAgregado() const;
    double reintegro();
};
