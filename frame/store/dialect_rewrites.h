#pragma once
// The rewrites of the translator. Each looks at tokens only and touches what its own rule names; an engine's
// grammar lists those it needs.

#include <QString>
#include <optional>

#include "frame/store/dialect_tokens.h"

namespace dialecto {

struct Ajustes;

/// `dbo.` goes: a routine is found by its bare name.
void quitarDbo(Tokens &t);
/// [Name] as "name", for an engine that takes no brackets and keeps its names in small letters.
void cambiarCorchetes(Tokens &t);
/// #date# as the text in which the file store keeps a moment.
void fechasComoTexto(Tokens &t);
/// #date# as a literal of the engine's own type of moments.
void fechasComoMomento(Tokens &t);
/// LEFT, RIGHT, SUBSTRING, LEN and CHARINDEX by the names they are registered under on the file store.
void cambiarFunciones(Tokens &t);
/// The "+" of a chain that holds a text which is no number joins texts, as "||"; the others add.
void cambiarConcatenaciones(Tokens &t);
/// Division is floating and refuses zero, for an engine that would do neither.
void guardarDivisores(Tokens &t);
/// Division is floating, for an engine that refuses zero by itself.
void dividirConDecimales(Tokens &t);
/// A SUM adds up exactly: its total does not hang on the order in which the engine meets the rows.
void cambiarSumas(Tokens &t);
/// No character of a LIKE pattern escapes another.
void cambiarLike(Tokens &t);
/// EXISTS over the one row that an outer column names, as IN: what the rows are named by is then worked out
/// once, and not again for every outer row.
void cambiarExistencias(Tokens &t);
/// TOP becomes LIMIT, nulls sort first, and what has no order, or ties in it, takes one that both engines
/// share. `conIdentidadDeFila` adds the row's identity to the first select.
void cambiarSelects(Tokens &t, const Ajustes &a, bool conIdentidadDeFila);
/// An update over a join, in either spelling, as UPDATE … FROM … WHERE; nothing when the statement is none.
std::optional<QString> cambiarUpdateConJoin(Tokens &t);
/// "exec Name 'a'" as the select of a function; nothing when the statement is none.
std::optional<QString> cambiarExec(const Tokens &t);

}  // namespace dialecto
