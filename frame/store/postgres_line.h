#pragma once
// The line to a PostgreSQL server, through its own client library: Qt's driver opens it, and would wait for
// every single answer.

#include <libpq-fe.h>

#include <QSqlDatabase>
#include <QString>
#include <vector>

#include "frame/store/engines.h"

namespace motores::linea {

/// The column that keeps the order of insertion, which no answer shows. Unlike the place of a row it stays
/// the row's for good; SQLite's own row numbers do both.
inline constexpr QLatin1String ordenDeInsercion("zfila");

/// The library's own connection behind Qt's; null when Qt gives none.
PGconn *Mango(const QSqlDatabase &db);

/// Whether a server is there and takes nobody yet, or no more. Its own words for it are in its own language.
bool Empieza(const QString &host, int puerto);
/// The library would write the server's remarks, its farewell among them, to the program's error output.
void Callar(PGconn *conexion);

/// Whether the server answers. Costs a journey.
bool Vive(PGconn *conexion);
/// Whether the server left while nothing was asked of it. Asks it nothing.
bool SeFue(PGconn *conexion);

/// What Motor::correr does for a server.
qint64 Correr(PGconn *conexion, const QString &sql, Filas *filas);
/// What Motor::mandar does for a server: the statements travel together, in one transaction. One that fails
/// undoes those ahead of it, which are run again then, one by one, up to the one that fails by itself.
Llegada Mandar(PGconn *conexion, const std::vector<Encargo> &encargos);

}  // namespace motores::linea
