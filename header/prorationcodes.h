#pragma once
// Proration codes of an operation: the rules of FrmABMProrrateos (their maintenance) and of FrmLstProrrateo
// (their pick list).

#include <QString>
#include <vector>

#include "frame/base/verdict.h"

struct AppContext;

/// One code as the lists show it.
struct Prorrateo {
    QString Codigo;
    QString Descripcion;
    QString Valor;  ///< "00.00"
};

/// CargarList: the codes of the operation in order of entry; shows the error and answers none when the store
/// fails.
std::vector<Prorrateo> CargarProrrateos(AppContext &ctx, const QString &interno);

/// The two states of FrmABMProrrateos.
enum class EstadoProrrateos { Lista, Carga };
/// With no codes the screen goes straight to entry.
EstadoProrrateos EstadoDeProrrateos(const std::vector<Prorrateo> &codigos);
/// Status bar of each state.
QString BarraDeProrrateos(EstadoProrrateos estado);

/// What Escape does: from entry back to the list, or out of the screen (from the list, or with no codes).
enum class SalidaDeProrrateos { VuelveALista, Cierra };
SalidaDeProrrateos EscapeEnProrrateos(EstadoProrrateos estado, bool hayCodigos);

/// Agregar (F11): the checks in their order, then the row. True: the screen reloads its list, empties the
/// three fields and puts the focus on TxtCodigo; the operation is marked as changed. A store error is shown
/// and refuses. Only a value of zero is refused: a negative one passes.
Veredicto AgregarProrrateo(AppContext &ctx, const QString &interno, const QString &TxtCodigo,
                           const QString &TxtDescripcion, const QString &TxtValor);
/// Eliminar, also when lines carry the code; what was deleted marks the operation as changed. False when the
/// store failed (its words were shown).
bool EliminarProrrateo(AppContext &ctx, const QString &interno, const QString &codigo);

/// The sum of the operation's codes, put into the shared total (AppContext::TotalProrrateado) too: run when
/// the codes are left and when the header is loaded. Raises Falla.
double TotalizarProrrateos(AppContext &ctx, const QString &interno);
