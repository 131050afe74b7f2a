#include "frame/transaction.h"

#include <QSqlError>

using namespace Qt::StringLiterals;

namespace {

[[noreturn]] void fallar(const Conexion &conexion, const QSqlDatabase &db, const QString &sentencia) {
    throw Falla{0, conexion.entidad(), db.lastError().databaseText().simplified(), sentencia};
}

}  // namespace

Transaccion::Transaccion(Conexion &conexion) : conexion_(conexion) {
    QSqlDatabase db = conexion_.coneccion();
    if (!db.transaction()) fallar(conexion_, db, u"begin"_s);
    conexion_.retenerSesion(true);
}

Transaccion::~Transaccion() {
    try {
        if (abierta_ && conexion_.abierta()) conexion_.coneccion().rollback();
    } catch (const Falla &) {
        // What was still on its way failed. A connection that closes undoes the rest.
        conexion_.cerrar();
    }
    conexion_.retenerSesion(false);
}

void Transaccion::Confirmar() {
    // A connection that was closed in between has lost them; a new one would confirm nothing and say so.
    if (!conexion_.abierta())
        throw Falla{0, conexion_.entidad(), u"se perdió la conexión con el store"_s, u"commit"_s};
    QSqlDatabase db = conexion_.coneccion();
    if (!db.commit()) fallar(conexion_, db, u"commit"_s);
    abierta_ = false;
}
