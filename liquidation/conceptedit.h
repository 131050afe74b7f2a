#pragma once
// Concepts of an item's liquidation by hand: what FrmAdCon does, without its widgets.

#include <QString>
#include <vector>

#include "frame/base/verdict.h"

struct AppContext;

/// A row of `itemliq` as the editor shows it: numbers as texts in the workstation's form.
struct ConceptoEditado {
    QString codigo;
    QString descripcion;
    QString pgc;  ///< "P", "G" or "C"
    QString porcentaje, base, total;
    QString motivo;
};

enum class ModoDeConcepto { ADD, MOD };

/// A concept that the editor offers.
struct ConceptoOfrecido {
    QString codigo;
    QString descripcion;
};
/// By description: with ADD those that the item does not show, with MOD all. Raises Falla.
std::vector<ConceptoOfrecido> ListarConceptos(AppContext &ctx, const QString &interno, const QString &item,
                                              ModoDeConcepto modo);

/// Base by percentage, with the mask "00.00"; empty when either is no number.
QString TotalDeConcepto(const AppContext &ctx, const QString &porcentaje, const QString &base);

/// Adds a concept to an item. A row of it without an amount is changed instead. Not ok: told, nothing
/// written, the answer names the control. Ok: the liquidation is pending. Raises Falla only where a read
/// fails; a write that the store refuses is told.
Veredicto PF_Guardar(AppContext &ctx, const QString &interno, const QString &item,
                     const ConceptoEditado &concepto);
/// Changes the item's row of `codigoAnterior`; the rest as PF_Guardar.
Veredicto PF_Modificar(AppContext &ctx, const QString &interno, const QString &item,
                       const QString &codigoAnterior, const ConceptoEditado &concepto);
/// Removes the item's row of a concept, which leaves the liquidation pending; false when there was none.
/// Raises Falla.
bool EliminarConcepto(AppContext &ctx, const QString &interno, const QString &item, const QString &codigo);

/// The reasons behind F6 (the code table MOTIVOS): true when `codigo` took one. Any obligation but "G" is
/// told that it takes none, and no list opens.
bool ElegirMotivo(AppContext &ctx, const QString &pgc, QString &codigo);
/// The reason's words for a label: never a message; empty for a text that is no code of the table.
QString DescripcionDeMotivo(AppContext &ctx, const QString &codigo);
