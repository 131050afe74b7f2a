#pragma once
// The amounts that are no rate, and the bands of the statistics rate: one table.

#include <QString>

/// A fixed amount of a concept, in the customs currency, and the taxable bases it goes with.
struct Arancel {
    const char *concepto;
    int banda;           ///< of the statistics rate, 1 to 3; 0: no band
    double desde;        ///< lowest base, included
    double hasta;        ///< highest base, included
    double importe;      ///< 0: no fee, the concept's rate holds in this band
    const char *nombre;  ///< of a fee of the operation's totals; empty: a fee of its items

    /// Whether it stands once in the totals, whatever the items hold.
    bool esDeLaOperacion() const { return *nombre != 0; }
};

/// The row of a concept; null for a concept without fee or band.
const Arancel *ArancelDe(const QString &concepto);
/// The band of the statistics rate that a base falls in; null in the gaps between them.
const Arancel *TramoDeEstadistica(double base);
