#pragma once
// The data of meat (ONCCA) of an operation: frmONCCA without the widgets. The assembly gives the header's
// codes to the items; a line's own category and cut stay, and the lines without them take the header's.

#include <QString>
#include <array>
#include <vector>

#include "regulatory/onccalists.h"

struct AppContext;

namespace oncca {

/// A line of the operation with its two codes.
struct Linea {
    qint64 id = 0;
    QString idarticulo;
    QString ncm;
    QString descripcion;
    QString categoria;  ///< empty: the header's
    QString corte;      ///< empty: the header's

    bool operator==(const Linea &otra) const = default;
};

struct Datos {
    bool habilitado = false;                     ///< chONCCA
    std::array<QString, cuantosCampos> codigos;  ///< in the order of CamposConLista
    std::vector<Linea> lineas;                   ///< in the order of loading

    bool operator==(const Datos &otros) const = default;
};

/// What the operation holds; everything empty and off for one that is not there. Raises Falla.
Datos CargarDatos(AppContext &ctx, const QString &interno);

/// Writes the header's codes and its switch, and the two codes of each line that changed them; the lines are
/// found by their id. What the items are made of changed with a code: the operation must then be armed again.
/// False when the operation is not there any more, which is told. Raises Falla.
bool GuardarDatos(AppContext &ctx, const QString &interno, const Datos &datos);

}  // namespace oncca
