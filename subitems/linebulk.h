#pragma once
// The changes of one column on all lines of an operation.

#include <QString>
#include <vector>

#include "subitems/lines.h"

struct AppContext;

/// A column that a change sets, and the control that shows it.
struct ColumnaMasiva {
    const char *columna;
    QString CamposSubItem::*campo;
    bool numero = false;  ///< set to 0; else to the value, or emptied
    /// Only where this other column says kilograms; with its control.
    const char *unidad = "";
    QString CamposSubItem::*campoDeUnidad = nullptr;
    QString CamposSubItem::*descripcion = nullptr;  ///< label of a country's code
};

/// One action over all lines. Its texts are UTF-8.
struct CambioMasivo {
    const char *nombre;    ///< also what the batch calls it
    const char *rotulo;    ///< as the menu says it, with its mnemonic
    const char *pregunta;  ///< the question that confirms it, or the prompt for its value
    const char *titulo;    ///< of the prompt; empty for an action without a value
    std::vector<ColumnaMasiva> columnas;

    bool pideValor() const { return *titulo != 0; }
};
const std::vector<CambioMasivo> &CambiosMasivos();
/// By its name, in any case; null for a text that is none.
const CambioMasivo *CambioDeNombre(const QString &nombre);

/// Asks what the action asks; `valor` takes what was typed. False for a No, and for an empty answer.
bool PedirCambioMasivo(AppContext &ctx, const CambioMasivo &cambio, QString &valor);

/// Changes all lines, whatever filter the list has, and notes the change of the operation when there is a
/// line; how many lines it has. Asks nothing. Raises Falla.
qint64 HacerCambioMasivo(AppContext &ctx, const QString &interno, const CambioMasivo &cambio,
                         const QString &valor);

/// The stored line in hand shows what became of it; a new line, which is none of them yet, stays as it is.
/// Raises Falla.
void SeguirCambioMasivo(AppContext &ctx, const CambioMasivo &cambio, const QString &valor, SubItems &s);
