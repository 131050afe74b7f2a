#pragma once
// The seam to the library of cancellations, which owns the screens that enter, change and remove them. It is
// not part of this program: without it the item screen lists what is stored and says which library is
// missing.

#include <QString>
#include <functional>

struct FilaDeCancelacion;

namespace cancelaciones {

/// A library that was plugged in: every function is set. Each returns when its own screen has closed.
struct Enlace {
    std::function<void(const QString &interno, const QString &item)> Ingresar_Cancelaciones;
    std::function<void(const QString &interno, const QString &item, const FilaDeCancelacion &fila)>
        Modificar_Cancelacion;
    std::function<void(const QString &interno, const QString &item, const FilaDeCancelacion &fila)>
        Eliminar_Articulo;
};

/// Null while the library is absent. The one place that it is plugged into.
extern const Enlace *enlace;

}  // namespace cancelaciones
