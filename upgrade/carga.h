#pragma once
// Rows into one table, all of them or none.

#include <QDateTime>
#include <QSet>
#include <QStringList>
#include <QVariant>
#include <functional>
#include <optional>

#include "frame/csv.h"
#include "upgrade/almacen.h"
#include "upgrade/upgrade.h"

namespace actualizacion {

/// A profile opened for loading, and one table of it.
struct Destino {
    StoreProfiles::SPMain manager;
    std::unique_ptr<Almacen> almacen;
    const esquema::Tabla *tabla = nullptr;
    QString nombre;  ///< the table's full name in the engine
    QString esquemaDe;
};

/// How often a long load says where it is, in rows.
constexpr qint64 filasPorAviso = 1000;

/// Opens the store that holds `tabla`; raises Falla.
void abrirDestino(Destino &destino, const QString &rutaDelPerfil, const QString &tabla);

/// `texto` as a value of the column, ready to be bound: a number, a moment, a text, or a null of the right
/// kind for an empty number or moment. Nothing when the text is no value of that kind.
std::optional<QVariant> valorDe(const Almacen &almacen, const esquema::Columna &columna,
                                const QString &texto);

/// Loads a file that is already open into the table of `destino`; `archivo` is its name for messages.
void cargarLector(Destino &destino, csv::Lector &lector, const QString &archivo, bool reemplazar,
                  const QStringList &porDefecto, const Progreso &progreso, ResultadoCsv &resultado);

/// Sends numbering of a generated column behind the highest value there is.
void ponerAlDiaLaNumeracion(const Destino &destino);

}  // namespace actualizacion
