#pragma once
// Numbers and their text forms: one rounding rule and one mask rule for the whole program.

#include <QString>
#include <functional>

namespace numeros {

/// How the workstation's decimal separator is read; tests replace it.
extern std::function<QString()> leerSeparadorDelSistema;

/// The workstation's decimal separator, "." or ",", as its locale tells it; "," where it tells neither.
QChar separadorDelSistema();
/// False where the locale tells no separator, or one that numbers are not read back with.
bool haySeparadorDelSistema();

/// `valor` rounded to `decimales` places, halves away from zero, judged on its rendering with 15 significant
/// decimal digits: 1.005 is 1.01 although its binary value lies below. Never answers negative zero.
/// `decimales` below zero rounds to tens, hundreds and so on. The same rule stands in the stores as ROUND;
/// one table of cases tests all three.
double redondear(double valor, int decimales);

/// `valor` through a mask such as "00.00", "000.000000", "00" or "0000": rounded by redondear to the mask's
/// decimals, with at least the mask's integer digits, a leading "-" for negatives ("-00.50"), no sign for a
/// value that rounds to zero, and `separador` before the decimals.
QString Format(double valor, QStringView mascara, QChar separador);

/// The same for a text that reads as a number in either separator; a text that does not comes back unchanged,
/// as the platform's own format does.
QString Format(const QString &texto, QStringView mascara, QChar separador);

/// `valor` through the mask when nothing is lost by it, else its shortest text with `separador`: what a field
/// shows and a save reads back.
QString FormatSinPerdida(double valor, QStringView mascara, QChar separador);

/// Whether two amounts are the same once they are rounded to `decimales` places.
bool iguales(double a, double b, int decimales);

/// True for a text that reads as one number: optional sign, digits, at most one "." or ",", optional
/// exponent, blanks around allowed. False for empty text. The store's ISNUMERIC is the same rule.
bool esNumerico(QStringView texto);

/// The number a text says, in either separator; 0 when it says none.
double aNumero(QStringView texto);

/// The shortest usual text of a number, with "." ("1", "12.5", "0.1") and never an exponent: at most 15
/// significant digits. What is no number ("nan") stands for an engine to refuse.
QString aTexto(double valor);

/// `a` times `b` divided by 100, through the mask "00.00" and back: an amount, rounded to the cent.
double PorcentajeRedondeado(double a, double b);

}  // namespace numeros
