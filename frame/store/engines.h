#pragma once
// The two engines behind a connection: opening, and running one translated statement. Failures raise
// Falla.

#include <QSet>
#include <QSqlDatabase>
#include <QString>
#include <QVariant>
#include <vector>

#include "frame/store/StoreProfiles.h"

namespace motores {

/// The rows of a statement, one cell after the other.
struct Filas {
    std::vector<QString> nombres;
    std::vector<QVariant> celdas;
};

/// Opens the entity's store with its neighbours in reach. `nombre` is the connection's name for Qt.
QSqlDatabase abrirArchivo(const Conexion::Datos &datos, const QString &nombre);
QSqlDatabase abrirServidor(const Conexion::Datos &datos, const QString &nombre);

/// The tables that keep an order of insertion, lower case.
QSet<QString> tablasOrdenadasDeArchivo(const QSqlDatabase &db);
QSet<QString> tablasOrdenadasDeServidor(const QSqlDatabase &db);

/// Runs `sql`; fills `filas` when it is given. Answers the rows touched by a command, or read.
qint64 correrEnArchivo(const QSqlDatabase &db, const QString &sql, Filas *filas);
qint64 correrEnServidor(const QSqlDatabase &db, const QString &sql, Filas *filas);

/// Not waiting for the disk at every statement (true), or durable again, with everything written so far
/// (false).
void escrituraLigeraEnArchivo(const QSqlDatabase &db, bool activa);
void escrituraLigeraEnServidor(const QSqlDatabase &db, bool activa);

}  // namespace motores
