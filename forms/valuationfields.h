#pragma once
// The valuation sheets as data: every field of an import's and of an export's, its column, its words and the
// rule that asks for it. The screen, the store, the sums and the paper are loops over it.

#include <QString>
#include <vector>

namespace valoracion {

/// Which sheet: an import's is kept in `hval`, an export's in `hvalexp`.
enum class Clase { Importacion, Exportacion };

/// The parts of a sheet, in their order.
enum class Seccion {
    Operacion,       ///< what kind of deal it is
    Circunstancias,  ///< questions on the price
    Vinculacion,     ///< questions on the relation of the parties
    Precio,          ///< what the price is
    Incluir,         ///< amounts that are added to it
    Deducir          ///< amounts that are taken from it
};

enum class Tipo {
    Texto,
    Fecha,
    Lista,   ///< one of `opciones`; empty: not chosen
    SiNo,    ///< "S", "N"; empty: not answered
    Importe  ///< in the currency of the sheet, never negative
};

/// A choice of a list: what is kept and what is read.
struct Opcion {
    QString codigo;
    QString texto;
};

struct CampoDeHoja {
    QString columna;
    QString rotulo;
    QString norma;  ///< the rule that asks for it, short; empty for what only describes the deal
    Seccion seccion = Seccion::Operacion;
    Tipo tipo = Tipo::Texto;
    int largo = 0;                      ///< of a text, in characters
    std::vector<Opcion> opciones = {};  ///< of a list

    /// The text behind a code of the list; empty for another.
    QString textoDe(const QString &codigo) const;
    bool esImporte() const { return tipo == Tipo::Importe; }
};

/// The fields of a sheet, by section and in the order of the work.
const std::vector<CampoDeHoja> &Campos(Clase clase);
/// The one of a column; null when the sheet has none.
const CampoDeHoja *BuscarCampo(Clase clase, const QString &columna);

/// The title of a section.
QString TituloDe(Seccion seccion);

/// The table that keeps the sheets of a class.
QString TablaDe(Clase clase);

}  // namespace valoracion
