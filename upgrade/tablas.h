#pragma once
// Tables and indexes as each engine makes and completes them; the engines' own words for rows and their order
// stand here and nowhere else in the upgrade. Everything raises Falla.

#include <QString>
#include <QStringList>

#include "upgrade/almacen.h"
#include "upgrade/schema.h"

namespace actualizacion {

/// The column that keeps the order of insertion on a server.
inline const QString columnaDeOrden = QStringLiteral("zfila");

/// Makes a table that is not there. `esquemaDe` is the entity's schema on a server, empty for a file; so
/// below.
void crearTabla(const Almacen &a, const QString &esquemaDe, const esquema::Tabla &t);

/// Adds what a table that is there lacks: columns, numbering, the text type, the order of insertion. No row
/// is lost. Every change is a sentence more in `cambios`.
void completarTabla(const Almacen &a, const QString &esquemaDe, const esquema::Tabla &t,
                    QStringList &cambios);

/// Makes the indexes of the table that are not among `hay`.
void ponerIndices(const Almacen &a, const QString &esquemaDe, const esquema::Tabla &t, const QStringList &hay,
                  QStringList &cambios);

/// SQLite, told nothing of a store, takes "iditem> 0" for a narrower search than "iditem = 5" and walks every
/// row of the operation. What an index tells apart in a store of some size is told it once, in its own table;
/// a store that was analysed keeps what was found. Nothing to do on a server.
void ponerProporciones(const Almacen &a, const QString &entidad, QStringList &cambios);

}  // namespace actualizacion
