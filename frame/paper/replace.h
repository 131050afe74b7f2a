#pragma once
// Files that are written whole or not at all.

#include <QString>
#include <functional>

class QIODevice;

namespace papel {

/// Writes `archivo` through `escribir`, which answers a sentence's end that says why it could not, or the
/// empty text. The file is put in place when all of it is there; until then, and on any failure, one that was
/// there stays as it was. Empty when it was written, else a sentence that says what happened and what to do.
QString ReemplazarArchivo(const QString &archivo, const std::function<QString(QIODevice &)> &escribir);

/// The same with bytes that stand ready.
QString ReemplazarArchivo(const QString &archivo, const QByteArray &bytes);

/// "No se escribió FILE: WHY."
QString NoSeEscribio(const QString &archivo, const QString &porque);

}  // namespace papel
