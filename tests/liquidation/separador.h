#pragma once

#include "frame/numbers.h"

/// A decimal point for the life of a test, whatever the workstation's locale; a test may put another in its
/// place.
class SeparadorDePrueba {
 public:
    SeparadorDePrueba() { numeros::fijarSeparadorDecimal(QLatin1Char('.')); }
    ~SeparadorDePrueba() { numeros::fijarSeparadorDecimal(antes_); }
    SeparadorDePrueba(const SeparadorDePrueba &) = delete;
    SeparadorDePrueba &operator=(const SeparadorDePrueba &) = delete;

 private:
    QChar antes_ = numeros::separadorDecimal();
};
