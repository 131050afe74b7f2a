#pragma once
// What every spread of kilos shares: cents, the unit, and which measure of a group is the kilo.

#include <QString>

#include "assembly/phases.h"

inline const QString unidadKilo = QStringLiteral("01");

/// What a group keeps at least, in kilos.
inline constexpr double pisoDeKilos = 0.01;

/// Kilos to the cent.
double Centavos(double kilos);
/// A sum as the store gives it, without the trace that binary arithmetic leaves on it.
double SinRastro(double suma);
/// `expresion` rounded to the cent by the store.
QString EnCentavos(const ContextoArmado &r, const QString &expresion);
/// A number as the user of this workstation writes it.
QString ParaLeer(const ContextoArmado &r, double valor);
/// Moves a progress bar of the screen, in percent, and lets its events run.
void MarcarBarra(const ContextoArmado &r, const QString &control, int porciento);

/// Which measure of an item is the kilo.
enum class Medida { Ninguna, Estadistica, Especifica, Ambas };
/// By the units `estadistica` and `deresp` of a row.
Medida MedidaDe(const Recordset &rs);
