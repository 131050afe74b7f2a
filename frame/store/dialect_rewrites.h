#pragma once
// The rewrites of the translator. Each looks at tokens only and touches what its own rule names.

#include <QString>
#include <optional>

#include "frame/store/dialect.h"
#include "frame/store/dialect_tokens.h"

namespace dialecto {

/// [Name] is "name" on the server, `dbo.` goes, #date# becomes a quoted moment, functions get the file
/// store's names.
void cambiarNombres(Tokens &t, Motor motor);
/// The "+" of a chain that holds a text which is no number join texts on the file store; the others add.
void cambiarConcatenaciones(Tokens &t);
/// Division is floating on both engines and refuses zero on both: PostgreSQL does the latter by itself.
void cambiarDivisiones(Tokens &t, Motor motor);
/// A SUM adds up exactly on the server, as the file store's own does: its total does not hang on the order in
/// which an engine meets the rows.
void cambiarSumas(Tokens &t);
/// No character of a LIKE pattern escapes another on the server.
void cambiarLike(Tokens &t);
/// TOP becomes LIMIT, nulls sort first, and what has no order, or ties in it, takes one that both engines
/// share. `conIdentidadDeFila` adds the row's identity to the first select.
void cambiarSelects(Tokens &t, const Ajustes &a, bool conIdentidadDeFila);
/// An update over a join, in either spelling, as UPDATE … FROM … WHERE; nothing when the statement is none.
std::optional<QString> cambiarUpdateConJoin(Tokens &t);
/// "exec Name 'a'" as the select of a function; nothing when the statement is none.
std::optional<QString> cambiarExec(const Tokens &t);

}  // namespace dialecto
