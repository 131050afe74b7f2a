#include "operations/batchwork.h"

#include <optional>

#include "operations/lifecycle.h"

namespace lote {

int ConLaOperacion(const Trabajo &t, const std::function<int()> &hacer) {
    if (!ComprobarBloqueo(t.ctx, t.orden.clave)) return falla;
    const BanderasDeOperacion banderas = LeerBanderas(t.ctx, t.orden.clave);
    TomarBloqueo(t.ctx, t.orden.clave);
    int estado = falla;
    try {
        estado = hacer();
    } catch (...) {
        try {
            GuardarYLiberar(t.ctx, t.orden.clave, banderas, std::nullopt);
        } catch (const Falla &) {
            // The store is gone; the first failure is the one to tell.
        }
        throw;
    }
    GuardarYLiberar(t.ctx, t.orden.clave, banderas, std::nullopt);
    return estado;
}

}  // namespace lote
