#pragma once
// Makes the stores of a profile at version 330 and brings older ones up.

#include <QString>
#include <QStringList>
#include <functional>

#include "frame/store/StoreProfiles.h"

namespace actualizacion {

constexpr int versionDelStore = 330;

/// Hears progress: what is being done, and how far (0 to total; total 0: unknown).
using Progreso = std::function<void(const QString &que, qint64 hecho, qint64 total)>;

struct Resultado {
    bool ok = false;
    QString error;        ///< one Spanish sentence, when not ok
    QStringList cambios;  ///< what was made or changed; empty on a second run
};

/// Makes what is missing in every store the profile names: files or schemas, tables, columns, indexes, the
/// server's functions and procedure, the version row. No row is lost, a second run changes nothing.
Resultado Actualizar(const QString &rutaDelPerfil, const Progreso &progreso = {});

struct ResultadoCsv {
    bool ok = false;
    QString error;
    qint64 cargadas = 0;
    QStringList avisos;  ///< "línea 12: …": what was not understood in a row; the rest was loaded
};
/// Loads a CSV file with a header row (frame/csv.h) into `tabla`; one file is one transaction. `reemplazar`
/// empties the table first. `porDefecto` gives "column=value" for columns the file lacks.
ResultadoCsv CargarCsv(const QString &rutaDelPerfil, const QString &tabla, const QString &archivo,
                       bool reemplazar, const QStringList &porDefecto = {}, const Progreso &progreso = {});
/// Loads a nomenclature file (posicion, descripcion, descripcion_superior, partida, aec, die, te,
/// intervencion, de, re, and if present unidad …) into ncm. `unidadPorDefecto` fills the statistical unit the
/// file lacks.
ResultadoCsv CargarNomenclador(const QString &rutaDelPerfil, const QString &archivo,
                               const QString &unidadPorDefecto, const Progreso &progreso = {});
/// Brings the stores up and loads the demonstration data built into the program into the tables that are
/// empty; a table that holds rows stays as it is.
Resultado CargarDemostracion(const QString &rutaDelPerfil, const Progreso &progreso = {});

}  // namespace actualizacion
