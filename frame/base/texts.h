#pragma once
// What of a text can be kept, and how it is told where it could do harm.

#include <QString>

/// Why no store can keep a text, one sentence (a zero character, half of a pair); empty when they can.
QString DefectoDeTexto(const QString &texto);

/// The first characters of a text, one less where half of a pair would stand at the end.
QString Recortado(const QString &texto, qsizetype caracteres);

/// A text as it can stand in the middle of a sentence: short, and with a mark in the place of what cannot be
/// seen.
QString Citado(const QString &texto);

/// The same at its whole length, for a terminal: what cannot be seen as "\\u001b".
QString EnUnRenglon(const QString &texto);
