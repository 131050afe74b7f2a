#pragma once
// What the document of a declaration carries, as data: one row a value, from its column to its place in the
// document. The reader, the writer and the test of the schema are loops over these rows.

#include <QString>
#include <vector>

/// How a value is read and spelled.
enum class ClaseDeDato {
    Codigo,      ///< a text without blanks around: an attribute
    Texto,       ///< a text as it was typed: an element of its own
    Marca,       ///< "S" or "N"
    Obligacion,  ///< "P" (paid), "G" (guaranteed) or "C" (collected)
    Fecha,       ///< "yyyy-MM-dd"
    Entero,
    Importe,   ///< 2 decimals
    Kilos,     ///< 3 decimals
    Cantidad,  ///< 5 decimals; unit prices too
    Tasa,      ///< 6 decimals: exchange rates, percentages, coefficients
};

/// Decimals that the document gives to a number; -1 for what is none.
int DecimalesDe(ClaseDeDato clase);

struct DatoDeParte {
    const char *grupo;    ///< child element that holds it; empty: the part's own element
    const char *nombre;   ///< of the attribute, or of the element for a text
    const char *columna;  ///< where it comes from
    ClaseDeDato clase;
    bool esComision = false;  ///< goes in only where the office sends commissions abroad
};

/// A part of the declaration: rows of one table. Within `datos` attributes stand ahead of texts, and the
/// values of a group together.
struct ParteDeDeclaracion {
    const char *elemento;  ///< one a row
    const char *lista;     ///< element around the rows of one owner; empty for none
    const char *nombre;    ///< what the user calls its rows ("los tributos")
    const char *tabla;
    const char *item;    ///< column that holds the item; empty for a part of the operation
    const char *orden;   ///< first key of the order, beside what `datos` tell; empty for none
    const char *filtro;  ///< what else the rows have to meet, SQL
    std::vector<DatoDeParte> datos;

    /// Position of a column among `datos`. Raises Falla for one that the part does not carry.
    std::size_t lugarDe(const char *columna) const;
};

enum class Parte {
    Caratula,
    Bultos,
    Factura,
    Prorrateo,
    Total,
    Item,
    Subitem,
    Tributo,
    Ventaja,
    Informacion,
    Cancelacion
};
/// Every part, in the order of the enumeration.
const std::vector<ParteDeDeclaracion> &PartesDeDeclaracion();
const ParteDeDeclaracion &DatosDe(Parte parte);
