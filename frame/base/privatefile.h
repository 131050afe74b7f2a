#pragma once
// Files that hold a secret: nobody but their owner reaches them, at no moment of their life.

#include <QByteArray>
#include <QString>

/// Whether anybody but the owner may read, write or run the file. False for one that is not there.
bool LoAlcanzanOtros(const QString &ruta);

/// Writes the file so that only its owner reads and writes it: it is made so under another name, and takes
/// the place of the old one whole (of what a link points to, where `ruta` is one). Makes its folder. Empty
/// when it was written, else why not in the system's words.
QString EscribirPrivado(const QString &ruta, const QByteArray &bytes);
