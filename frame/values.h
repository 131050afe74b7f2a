#pragma once
// How values become SQL text and come back.

#include <QString>
#include <QVariant>

/// The field's text, or the empty text for null. A number reads as its shortest text ("1", "12.5"), a moment
/// as "yyyy-MM-dd HH:mm:ss".
QString EsNull(const QVariant &valor);

/// The field's number, or 0 when it is null or not a number (a numeric text counts as its number).
double EsNumero(const QVariant &valor);

/// The number's text with a point as decimal separator, whatever the workstation's.
QString PonerPuntoDecimal(double valor);

/// `valor` for SQL text: every "," and then every "." replaced by `separador` (trimmed; "." when blank).
/// "0" when `valor` is not numeric. Thousands marks are not understood: "1.234,56" with "," gives "1,234,56".
QString AStoreNumero(const QString &valor, const QString &separador);

/// AStoreNumero with the decimal separator of the entity INTERNOS: the form of every number in the assembly
/// and in the liquidation. A double is written with up to 15 significant digits.
QString SqlNumber(double valor);
QString SqlNumber(const QString &valor);

/// The store-side rounding of `expresion` to as many decimals as `mascara` has behind its "." ("00.000" gives
/// 3), in the words of the entity's store.
QString SqlRound(const QString &entidad, const QString &expresion, QStringView mascara);

/// Replaces "." and then "," by the workstation's decimal separator in the caller's text, and returns it.
QString ReemplazarSeparadorDecimal(QString &texto);

/// Free text for a SQL literal: every "'" doubled. Keys are not passed through this, by design.
QString DoblarComillas(QString texto);
