#pragma once
// The classic sections-and-keys text file. QSettings' INI form is another format (it escapes "\" and splits
// at ","), so the files people edit by hand are read here.

#include <QString>

/// The value of `clave` (any case) in `[seccion]`, at most 750 characters; empty when the file, the section
/// or the key is missing.
QString LeerIni(const QString &seccion, const QString &clave, const QString &archivo);

/// Writes the key in upper case, making file and section as needed; the rest of the file stays as it stands.
/// False when the file cannot be written.
bool EscribirIni(const QString &seccion, const QString &clave, const QString &valor, const QString &archivo);

/// Appends "\" (or "/" on a platform whose paths use it) unless the text already ends in a separator.
QString TerminarEnBarra(const QString &ruta);
