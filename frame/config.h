#pragma once
// The configuration file: where it lies, and the road of every option from it and back.

#include <QString>

#include "frame/optionrows.h"

struct AppContext;

/// The file that goes with a profile: its path with every "ini" (that spelling only) replaced by "cfg",
/// wherever it stands.
QString ArchivoDelPerfil(const QString &ProfileIniPath);
/// The configuration file for a profile path: its "ini" replaced by "cfg" wherever it stands, when that file
/// exists; else ZENDRA.ini in `carpetaDelPrograma`.
QString BuscarArchivoDeConfiguracion(const QString &ProfileIniPath, const QString &carpetaDelPrograma);

/// Finds the file, fills paths and options of `ctx` and writes the settings area's BASES. Raises Falla when
/// IVARIN or IVARNI is not a number, leaving the options after it unread.
void CargarConfiguracion(AppContext &ctx);

/// What the file or the settings area says of an option, as it stands; empty when it says nothing. A flag of
/// the temporary inputs is "N" while these are not there.
QString LeerOpcion(const AppContext &ctx, const FilaDeOpcion &fila);
/// Writes an option where it is kept. False when the file cannot be written.
bool EscribirOpcion(AppContext &ctx, const FilaDeOpcion &fila, const QString &texto);
