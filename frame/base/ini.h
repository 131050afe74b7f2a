#pragma once
// The classic sections-and-keys text file. QSettings' INI form is another format (it escapes "\" and splits
// at ","), so the files people edit by hand are read here.

#include <QByteArray>
#include <QString>
#include <QStringList>

/// The value of `clave` (any case) in `[seccion]`, at most 750 characters; empty when the file, the section
/// or the key is missing.
QString LeerIni(const QString &seccion, const QString &clave, const QString &archivo);

/// Writes the key in upper case, making file and section as needed; the rest of the file stays as it stands,
/// and so does who may read it. False when the file cannot be written.
bool EscribirIni(const QString &seccion, const QString &clave, const QString &valor, const QString &archivo);

// A file in hand, for several keys at one writing.

/// The file's lines without their ends; none when it is missing or cannot be read. `legible`, when given,
/// tells a file that is there but cannot be read (false) from one that is missing.
QStringList LeerLineasDeIni(const QString &archivo, bool *legible = nullptr);
/// Sets a key (found in any case, written as it is given), making its section as needed; takes its line away
/// when `valor` is null.
void PonerEnIni(QStringList &lineas, const QString &seccion, const QString &clave, const QString &valor);
/// The lines as the file keeps them.
QByteArray BytesDeIni(const QStringList &lineas);

/// Appends "\" (or "/" on a platform whose paths use it) unless the text already ends in a separator.
QString TerminarEnBarra(const QString &ruta);
