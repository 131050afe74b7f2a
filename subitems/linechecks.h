#pragma once
// What a line must be before it is written.

#include "subitems/lines.h"

/// The checks of a save, in their order, of a new line or of a change: the first that fails is told and names
/// the field that takes the focus. They put the fields in the form they are stored in: codes in capitals,
/// descriptions without apostrophes, the licence mark of the position, a finished suffix text (asked for). A
/// new line marks the operation as soon as its figures are right. Raises Falla.
Veredicto RevisarLinea(AppContext &ctx, SubItems &s, bool cambio);
