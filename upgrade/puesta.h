#pragma once
// A server made ready for an office: the base, its two roles, and a profile for each.

#include <QString>
#include <QStringList>
#include <utility>
#include <vector>

#include "upgrade/roles.h"

namespace actualizacion {

struct PedidoDeServidor {
    QString ruta;  ///< the profile for work; one of the same base that is there keeps what else it says
    Conexion::Datos acceso;  ///< host, puerto, base, and the user who may make bases and roles
    bool conRoles = true;    ///< else one profile, of that user
    roles::Pareja roles;
    /// Words of the connection as the profiles are to say them (frame/store/connectwords.h).
    std::vector<std::pair<QString, QString>> palabras;
    roles::Claves claves;  ///< of the roles; an empty one is made up for a new role
};

struct ServidorPuesto {
    QString error;        ///< one Spanish sentence; empty when all was done
    QStringList cambios;  ///< what was made, and the profiles
    QString ruta;         ///< the profile to go on with: the owner's, who makes the tables
};

/// Makes the server ready and writes the profiles, readable by their owner alone when they hold passwords.
/// Over a base that one user owned and worked on it takes it apart for the two; a second time changes
/// nothing.
ServidorPuesto PonerServidor(const PedidoDeServidor &pedido);

}  // namespace actualizacion
