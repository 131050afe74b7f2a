#pragma once
// The server's own programs that write and read a copy of a base. Everything raises Falla.

#include <QString>
#include <QStringList>

#include "frame/store/StoreProfiles.h"

namespace volcado {

/// Writes the schemas of a base as they are at one moment; people go on working.
void Volcar(const Conexion::Datos &datos, const QStringList &esquemas, const QString &archivo);

/// Reads them back, all of it or nothing; they must not be there.
void Reponer(const Conexion::Datos &datos, const QString &archivo);

}  // namespace volcado
