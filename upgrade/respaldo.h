#pragma once
// A backup of all stores of a profile, and its way back.

#include <QString>

#include "upgrade/upgrade.h"

namespace actualizacion {

/// Writes one compressed file with every store of the profile as it is at this moment; people go on working.
/// The file holds everything that the office has, so only its owner may read it.
Resultado Respaldar(const QString &rutaDelPerfil, const QString &archivo, const Progreso &progreso = {});

/// Brings the stores of a backup into a profile of the same kind whose stores are missing or hold no row, and
/// up to this version. Nothing is touched unless the whole file is sound and every store is empty.
Resultado Restaurar(const QString &rutaDelPerfil, const QString &archivo, const Progreso &progreso = {});

}  // namespace actualizacion
