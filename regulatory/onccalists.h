#pragma once
// The coded data of meat (ONCCA): each field of the header and of the item with its column and the code table
// behind it. The tables are this system's own, looked up and listed as every other code (header/codes.h).

#include <QString>
#include <array>

struct AppContext;

namespace oncca {

constexpr std::size_t cuantosCampos = 10;

/// A field of the screens that hold the data of meat, which name their controls alike.
struct CampoConLista {
    const char *control;
    const char *columna;   ///< of `caratula`
    const char *boton;     ///< opens the list
    const char *etiqueta;  ///< the label of its description
    const char *clave;     ///< of its code table
};
/// Every field, in the order of the save. A slaughterhouse is one of the packing houses, so two fields share
/// their table.
const std::array<CampoConLista, cuantosCampos> &CamposConLista();

/// The code tables of the two data that a line may have of its own.
inline const QString claveDeCategoria = QStringLiteral("ONCCA_CATEGORIA");
inline const QString claveDeCorte = QStringLiteral("ONCCA_CORTES");

/// What a code means, without a word; empty for an empty code, for one that the table does not have and on a
/// store error.
QString Describir(AppContext &ctx, const QString &clave, const QString &codigo);

}  // namespace oncca
