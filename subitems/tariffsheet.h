#pragma once
// The detail sheet "Detalles del Nomenclador" of a position, as plain data.

#include <QString>
#include <optional>
#include <vector>

struct AppContext;

/// A line of the sheet: what the column is, and what it says.
struct LineaDeHoja {
    QString etiqueta;
    QString valor;
};
/// A block of lines. Its grid closes with a row in the colour of the highlighted ones.
struct SeccionDeHoja {
    QString titulo;  ///< "Detalles del Nomenclador", "GRAVAMENES", "FUENTES", "POSEE"
    std::vector<LineaDeHoja> lineas;
};
/// A suffix row of the sheet.
struct SufijoDeHoja {
    QString sufijo;
    QString detalle;
    bool resaltado = false;  ///< it is the position's own, not its chapter's, heading's or subheading's
};
struct HojaDelNomenclador {
    QString encabezado;  ///< position, rule, own description, first upper level
    std::vector<SufijoDeHoja> sufijos;
    std::vector<SeccionDeHoja> secciones;
    QString letra;             ///< of the position; letraNoPosee without one
    QString descripcionLetra;  ///< what the letter says
};

/// The columns of the grid of suffixes, in the sheet's own units, and the colour of highlighted rows (the
/// platform's number: blue, green, red from the highest byte down).
constexpr int anchoDeSufijo = 900;
constexpr int anchoDeDetalle = 9000;
constexpr int colorResaltado = 14085590;

/// The sheet; nothing when the nomenclature lacks the position's first two keys. The third is not asked for:
/// the first row found, whatever its letter, feeds the sheet. Raises Falla.
std::optional<HojaDelNomenclador> DetalleNomenclador(AppContext &ctx, const QString &posicion);

/// The term for bringing in foreign currency behind the code of [071]; "ERROR" for an unknown code.
QString PlazoDeDivisas(const QString &codigo);
