#pragma once
// A text in a column of a fixed width.

#include <QString>

/// `texto` cut to `ancho` characters, or followed by blanks up to them.
QString CampoFijo(const QString &texto, int ancho);
