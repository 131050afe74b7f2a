#include "frame/transaction.h"

#include <QSqlError>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// With the engine's `palabras`, unless the store went away.
[[noreturn]] void fallar(Conexion &conexion, const QString &sentencia, const QString &palabras) {
    Falla falla = conexion.perdida().value_or(Falla{0, conexion.entidad(), palabras, {}});
    falla.sentencia = sentencia;
    throw Falla(std::move(falla));
}

/// The engine's words for what it would not do; nothing when it did.
std::optional<QString> pedir(Conexion &conexion, bool (QSqlDatabase::*que)()) {
    QSqlDatabase db = conexion.coneccion();
    if ((db.*que)()) return std::nullopt;
    return db.lastError().databaseText().simplified();
}

}  // namespace

Transaccion::Transaccion(Conexion &conexion) : conexion_(conexion) {
    if (const auto porque = pedir(conexion_, &QSqlDatabase::transaction))
        fallar(conexion_, u"begin"_s, *porque);
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
    if (!conexion_.abierta()) fallar(conexion_, u"commit"_s, u"La conexión con el store se cerró."_s);
    if (const auto porque = pedir(conexion_, &QSqlDatabase::commit)) fallar(conexion_, u"commit"_s, *porque);
    abierta_ = false;
}
