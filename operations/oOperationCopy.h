#pragma once
// The copy of an operation under a new key.

#include <QString>

struct AppContext;

namespace oOperationCopy {

/// Asks for the new key and duplicates every table of the operation, valuation sheets and free comment
/// included. The armed mark goes over as it stands: with its items or without, the copy waits for an assembly
/// where the original does. The copy was created today, and its lines have identities of their own, which the
/// groups, the links of folded lines and the certificates follow. The lock row stays with the original, and
/// so does what it took from the stock and that it was handed over. Answers the new key; empty when the user
/// left, the original is gone, the key exists already ("El Código de interno ya existe.") or the store failed
/// (its words were shown).
QString Mostrar(AppContext &ctx, const QString &Numero_Interno);

/// The copy itself. `destino` must have no header; rows that a deletion left under it go first. The header is
/// written last, so a copy that stopped halfway does not exist. Raises Falla.
void Copiar(AppContext &ctx, const QString &origen, const QString &destino);

}  // namespace oOperationCopy
