#include "subitems/inputslink.h"

#include "frame/base/failure.h"

std::function<insumos::Enlace()> insumos::crearEnlace;

std::optional<insumos::Enlace> insumos::Enlazar() {
    if (!crearEnlace) return {};
    try {
        return crearEnlace();
    } catch (const Falla &) {
        return {};
    }
}
