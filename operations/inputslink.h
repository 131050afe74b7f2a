#pragma once
// The seam to the input-records library. It is not part of this program: without it nothing is linked, and an
// operation whose lines took inputs cannot be deleted.

#include <QString>
#include <functional>

namespace insumos {

struct Enlace {
    /// Gives the inputs of one line back to stock.
    std::function<bool(const QString &Interno, const QString &CATNRO, const QString &PRDNRO, qint64 SUBITEM)>
        EliminarInsumo;
};

/// Makes a fresh link; empty while the library is absent.
extern std::function<Enlace()> crearEnlace;

}  // namespace insumos
