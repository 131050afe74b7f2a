#include "liquidation/fees.h"

#include <algorithm>
#include <iterator>
#include <limits>

namespace {

constexpr double infinito = std::numeric_limits<double>::infinity();

// A base between 79999 and 80000, or between 99999 and 100000, is in no band: the gaps are the rule's own.
constexpr Arancel aranceles[] = {
    {"011", 1, -infinito, 79999, 0, ""},
    {"061", 2, 80000, 99999, 400, ""},
    {"062", 3, 100000, infinito, 500, ""},
    {"500", 0, -infinito, infinito, 10, "ARANCEL SIM IMPO"},
    {"501", 0, -infinito, infinito, 10, "ARANCEL SIM EXPO"},
    {"520", 0, -infinito, infinito, 22.14, ""},
};

template <typename Condicion>
const Arancel *primero(Condicion condicion) {
    const Arancel *a = std::find_if(std::begin(aranceles), std::end(aranceles), condicion);
    return a == std::end(aranceles) ? nullptr : a;
}

}  // namespace

const Arancel *ArancelDe(const QString &concepto) {
    return primero([&](const Arancel &a) { return concepto == QLatin1StringView(a.concepto); });
}

const Arancel *TramoDeEstadistica(double base) {
    return primero([&](const Arancel &a) { return a.banda > 0 && base >= a.desde && base <= a.hasta; });
}
