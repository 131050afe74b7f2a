#pragma once
// A case: a folder with the tables of an operation, what becomes of it, and a text that says why.
//
// NAME/caso.txt            what the case shows and how its figures were worked out
// NAME/TABLA.csv           rows that go into the store before the run
// NAME/opciones.csv        options of the configuration and of the dashboard
// NAME/respuestas.csv      what the user answers, in order
// NAME/cambios/TABLA.csv   what the user changes on the items between the assembly and the recalculation
// NAME/esperado/TABLA.csv  rows after the recalculation, only the columns that the case is about
// comun/TABLA.csv          rows that every case has

#include <QHash>
#include <QString>
#include <QStringList>
#include <vector>

struct AppContext;

namespace casos {

/// A CSV file in memory. Names of columns are in lower case.
struct Planilla {
    QStringList columnas;
    std::vector<QStringList> filas;

    /// The cell of a column, or the empty text where the file has no such column.
    QString celda(std::size_t fila, QStringView columna) const;
};
/// Reads `archivo`; what is wrong with it goes to `defectos`, a Spanish sentence each. A file that is not
/// there is an empty sheet.
Planilla LeerPlanilla(const QString &archivo, QStringList &defectos);

/// A row of the store: what the case's columns hold, in the text form of a sheet ("" for a null).
struct FilaDelStore {
    QHash<QString, QString> valores;
    bool enSilencio = false;  ///< a case need not name it: a concept without amount, item 0
};
/// What tells the rows of a table apart ("iditem", "idconceptos"); empty for a table of one row.
QStringList ClavesDe(const QString &tabla);
/// Cell by cell, what is otherwise than expected: one Spanish line a cell, a missing or a surplus row.
QStringList Comparar(const QString &tabla, const Planilla &esperado, std::vector<FilaDelStore> filas);

/// The folders of `raiz` that hold a case, by name.
QStringList CarpetasDeCasos(const QString &raiz);

/// Loads the case into fresh stores ("ACCESS" or "SQL"), assembles, changes, recalculates, compares; then
/// recalculates twice more, of which the last may change nothing. Empty when everything is as the case
/// expects it. Raises Falla and std::runtime_error.
QStringList CorrerCaso(const QString &carpeta, const QString &store);

}  // namespace casos
