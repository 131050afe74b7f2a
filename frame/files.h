#pragma once
// Where the user's files go: their names, the folder of the last one, the question ahead of replacing one.

#include <QString>

struct AppContext;

/// A name that every system takes for a file, made of any text; never empty. The end is the caller's.
QString NombreSeguro(const QString &texto);

/// The folder where the last file of a kind went, or the user's documents when there is none. `seccion` names
/// the kind in the settings area.
QString CarpetaDeArchivos(const AppContext &ctx, const QString &seccion);
/// Remembers the folder of a file that was written.
void RecordarCarpeta(AppContext &ctx, const QString &seccion, const QString &archivo);

/// False when a file is there and the user does not want it replaced.
bool PuedeReemplazarse(const AppContext &ctx, const QString &archivo, const QString &titulo);
