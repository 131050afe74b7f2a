#pragma once
// How values become SQL text and come back, and how text is quoted.

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

/// Replaces "." and then "," by `separador`, the workstation's, in the caller's text, and returns it.
QString ReemplazarSeparadorDecimal(QString &texto, QChar separador);

/// Free text for a SQL literal: every "'" doubled. Keys are not passed through this, by design.
QString DoblarComillas(QString texto);
/// A text that may not hold a "'": each becomes a blank.
QString SinComillas(QString texto);
/// `texto` between single quotes, as it stands: keys and codes. One with a quote would break the statement:
/// it raises Falla, and so does, here and below, what DefectoDeTexto tells (frame/base/texts.h).
QString EnComillas(const QString &texto);
/// Free text between single quotes, its own quotes doubled.
QString TextoEnComillas(const QString &texto);
