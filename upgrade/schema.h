#pragma once
// The schema of every store as data: which table lies in which entity, its columns and its indexes.

#include <QString>
#include <QStringList>
#include <QStringView>
#include <vector>

namespace esquema {

/// What a column holds. Texto compares without regard to case; TextoNumerico is a text that should hold a
/// number but may hold stray text, so it is stored as text; Generado is the line identity that the store
/// assigns.
enum class Tipo { Texto, Numero, Fecha, Generado, TextoNumerico };

struct Columna {
    QString nombre;
    Tipo tipo = Tipo::Texto;
};

struct Indice {
    QString nombre;
    QStringList columnas;
};

/// All names are lower case.
struct Tabla {
    QString nombre;
    QString entidad;
    std::vector<Columna> columnas;
    std::vector<Indice> indices;

    /// Null when the table has no such column; the name in any case.
    const Columna *columna(QStringView nombreDeColumna) const;
};

/// Every table, in a fixed order.
const std::vector<Tabla> &tablas();
/// The table of this name (any case), or null.
const Tabla *buscarTabla(QStringView nombre);
/// Names of the tables of an entity, in order.
QStringList tablasDe(const QString &entidad);

}  // namespace esquema
