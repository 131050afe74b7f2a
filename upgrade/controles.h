#pragma once
// What some tables ask of their rows beyond the kinds of the columns.

#include <QHash>
#include <QStringList>
#include <functional>

#include "frame/csv.h"
#include "upgrade/destino.h"

namespace actualizacion {

/// A row that is about to go in.
struct FilaPorCargar {
    qint64 linea;
    QStringList &campos;
    const QHash<QString, qsizetype> &lugares;  ///< of the file's columns among the fields
    QStringList &avisos;

    bool tiene(const QString &columna) const { return lugares.contains(columna); }
    /// The field of a column that the file has.
    QString &campo(const QString &columna) { return campos[lugares.value(columna)]; }
    void avisar(const QString &texto) { avisos << csv::AvisoDeLinea(linea, texto); }
};

/// Judges a row, and may mend its fields; what it finds is told. False: the row does not go in.
using ControlDeFilas = std::function<bool(FilaPorCargar &)>;

/// The control of a table's rows; one that takes all of them for a table that asks nothing. `reemplazar`: the
/// rows that are there will be gone. Raises Falla for a file without a column that the control needs.
ControlDeFilas ControlDe(const Destino &destino, const QHash<QString, qsizetype> &lugares,
                         const QString &archivo, bool reemplazar);

}  // namespace actualizacion
