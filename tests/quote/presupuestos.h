#pragma once
// An operation with all that a quote shows, worked out by hand.

#include <QDate>

#include "outputs/quote.h"
#include "tests/support/tienda.h"

inline const QString operacionPresupuestada = QStringLiteral("OP 1");
inline const QDate diaDelPresupuesto(2026, 11, 21);

/// FOB 1000.10 + 500.155 = 1500.255, shown 1500.26, at 1.085; freight 2350 at 1; insurance 410 at 1.27;
/// additions 20 + 2 = 22 and deductions 10.5 of the items. Base: 1500.26·1.085 + 2350 + 410·1.27 +
/// 22·1.085 - 10.5·1.085 = 1627.7821 + 2350 + 520.7 + 23.87 - 11.3925 = 4510.9596.
/// Duties at 1000 pesos a dollar: P 100 + 20.5, G 50.25, C 30, and 10 of no kind.
class Presupuestos : public EnAmbosStores {
 protected:
    void SetUp() override;
    /// Copies the templates beside the stores, where this context has its program.
    void ponerSecciones();
    void ponerPase(const char *pase);
    Presupuesto cargar();
    /// Puts the broker's concepts and the references of a whole quote.
    void ponerConceptos();
    std::string ultimo() const;
};
