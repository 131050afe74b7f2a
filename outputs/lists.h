#pragma once
// The lists that leave the house: a table of them, and the one road from a list to paper or a file.

#include <QString>
#include <vector>

#include "frame/paper/table.h"

struct AppContext;

namespace listas {

/// What a list is made of.
enum class Clave { Ninguna, Operacion, Catalogo };

struct Lista {
    QString nombre;       ///< how the batch asks for it: "lineas"
    QString rotulo = {};  ///< how a pick calls it; empty for a list that is in none
    Clave clave = Clave::Ninguna;
    QString sinFilas = {};  ///< the sentence for a list without rows; "%1" stands for the key
    /// Its rows, in an order that does not depend on the store; `clave` is as typed. Raises Falla.
    papel::Tabla (*armar)(AppContext &ctx, const QString &clave) = nullptr;
    /// How it lies on paper.
    papel::Reporte (*hoja)(const papel::Tabla &tabla, QChar separador) = papel::ReporteDe;
};

/// The lists of an operation and of a catalogue. The one of operations stands where their browser is.
const std::vector<Lista> &Listas();
/// The one of a name; null when there is none.
const Lista *BuscarLista(const QString &nombre);

/// The list made: on paper, and as data for a spreadsheet.
papel::Documento DocumentoDe(const Lista &lista, const papel::Tabla &tabla, QChar separador);

/// The sentence of a list without rows.
QString SinFilas(const Lista &lista, const QString &clave);
/// Hands a list over to be seen; one without rows is told with its sentence instead.
void Ver(AppContext &ctx, const Lista &lista, const papel::Tabla &tabla, const QString &clave);
/// Makes a list, and the same. Raises Falla.
void VerLista(AppContext &ctx, const Lista &lista, const QString &clave);

/// The lists of the lines of an operation, and that of `catalogo` unless it is empty: a pick of them, and the
/// one picked in preview. Raises Falla.
void ElegirListaDeLineas(AppContext &ctx, const QString &interno, const QString &catalogo);

/// The articles of a catalogue, in preview. Raises Falla.
void VerListaDeCatalogo(AppContext &ctx, const QString &catalogo);
/// The packages and the transport of an operation, in preview. Raises Falla.
void VerListaDeBultos(AppContext &ctx, const QString &interno);

}  // namespace listas
