#pragma once
// The file stores of a profile as they all are at one moment, while people go on working in them.

#include <QString>
#include <QStringList>

namespace instantanea {

/// Copies each of `archivos` to the path of the same place in `copias`, as one cut through all of them: what
/// was written together in two files is in both copies or in none. Whoever writes meanwhile waits for an
/// instant and goes on. Raises Falla.
void Tomar(const QStringList &archivos, const QStringList &copias);

}  // namespace instantanea
