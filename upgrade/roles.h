#pragma once
// Who may do what on a server: one role owns the base and upgrades it, another one works on its rows.

#include <QString>
#include <QStringList>

#include "upgrade/almacen.h"

namespace roles {

/// The two roles by name.
struct Pareja {
    QString dueno;
    QString trabajo;
};
/// The names that a base gives its roles unless told others.
Pareja DeLaBase(const QString &base);

/// Their passwords; empty ones are none.
struct Claves {
    QString dueno;
    QString trabajo;
};

/// What a base has to be made ready for.
struct Pedido {
    Conexion::Datos acceso;  ///< the base, and the user who may make bases and roles
    bool conRoles = true;    ///< else that user owns the base and works on it
    Pareja roles;
    QStringList esquemas;  ///< of an existing base: what passes to the owner
    Claves nuevas;         ///< to be given to the roles
    Claves sabidas;        ///< what the profiles say today
};

struct Preparada {
    QString error;        ///< one Spanish sentence; empty when the base is there
    QStringList cambios;  ///< what was made or changed
    Claves claves;  ///< for the profiles; empty for a role that was there and whose password nobody told
};

/// Makes the base and the roles that are missing, gives the owner what is there, and takes from everybody
/// else what the server gives everybody. A password is made up for a new role that has none; one that is
/// there keeps its own unless told. Passwords leave this program only scrambled. A second time changes
/// nothing.
Preparada Preparar(const Pedido &pedido);

/// As the owner: gives `trabajo` the rows of the schemas, also of tables still to be made, and nothing else.
/// The version of the stores (in the first of `esquemas` that has one) is read and not written. Raises Falla.
void Conceder(const actualizacion::Almacen &a, const QStringList &esquemas, const QString &trabajo,
              QStringList &cambios);

}  // namespace roles
