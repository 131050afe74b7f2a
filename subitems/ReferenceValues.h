#pragma once
// The seam to the reference values library, which is not part of this program.

#include <QString>
#include <functional>

namespace oReferenceValues {

/// The line whose price is held against the reference values of its position.
struct Consulta {
    QString interno;
    qint64 id = 0;  ///< the line
    QString posicion;
    QString unidad;
    QString origen;
    double cantidad = 0;
    double preciounitario = 0;
};

/// Looks the values up and shows what it finds; empty while the library is absent.
extern std::function<void(const Consulta &)> GetValoresCriterio;

}  // namespace oReferenceValues
