#pragma once
// The key of an operation as its users choose it.

#include <QString>

/// The most that a key has, in characters.
constexpr qsizetype largoDeClave = 40;

/// Why no operation can begin under this key, one sentence; empty when one can. Whether one is there already
/// is not looked at. An apostrophe would break the statements that name the operation, and what cannot be
/// seen or ends a line makes two keys that read the same.
QString DefectoDeClaveNueva(const QString &clave);
