#pragma once
// The table that a load fills, and what its columns take.

#include <QString>
#include <QVariant>
#include <memory>
#include <optional>

#include "upgrade/almacen.h"

namespace actualizacion {

/// A profile opened for loading, and one table of it.
struct Destino {
    StoreProfiles::SPMain manager;
    std::unique_ptr<Almacen> almacen;
    const esquema::Tabla *tabla = nullptr;
    QString nombre;  ///< the table's full name in the engine
    QString esquemaDe;
};

/// Opens the store that holds `tabla`; raises Falla.
void abrirDestino(Destino &destino, const QString &rutaDelPerfil, const QString &tabla);

/// `texto` as a value of the column, ready to be bound: a number, a moment, a text, or a null of the right
/// kind for an empty number or moment. Nothing when the text is no value of that kind.
std::optional<QVariant> valorDe(const Almacen &almacen, const esquema::Columna &columna,
                                const QString &texto);

}  // namespace actualizacion
