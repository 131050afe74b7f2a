#pragma once
// The licence letter of a position and what it says: two tables that the office edits (letrasncm, letras).
//
// They stand beside the nomenclature and not in a column of it, since that table is loaded anew with every
// customs data set, and since a letter is mostly told of a heading or a subheading: a row names the beginning
// of its positions, and of several the longest speaks.

#include <QString>

struct AppContext;

/// What stands for the letter of a position without one.
inline const QString letraNoPosee = QStringLiteral("NO POSEE");

/// The letter of a position, by the longest row of letrasncm that the position begins with; letraNoPosee
/// without a row, and where that row's letter is blank, which takes a position out of its heading's. Raises
/// Falla.
QString obtenerDelNcmLaLetraDeUnaPADada(AppContext &ctx, const QString &posicion);

/// What the letter says: itself for letraNoPosee, a sentence that says so for one without a description.
/// Raises Falla.
QString obtenerDescripcionAPartirDeLaLetra(AppContext &ctx, const QString &letra);
