#pragma once
// Rows into one table, all of them or none.

#include <QStringList>

#include "frame/csv.h"
#include "upgrade/destino.h"
#include "upgrade/upgrade.h"

namespace actualizacion {

/// How often a long load says where it is, in rows.
constexpr qint64 filasPorAviso = 1000;

/// Loads a file that is already open into the table of `destino`; `archivo` is its name for messages.
void cargarLector(Destino &destino, csv::Lector &lector, const QString &archivo, bool reemplazar,
                  const QStringList &porDefecto, const Progreso &progreso, ResultadoCsv &resultado);

/// Sends numbering of a generated column behind the highest value there is.
void ponerAlDiaLaNumeracion(const Destino &destino);

}  // namespace actualizacion
