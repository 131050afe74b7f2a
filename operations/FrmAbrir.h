#pragma once

#include <QString>

/// The one road into an operation, for every caller: the lock is looked at, the dashboard loaded, the lock
/// written, and the dashboard filled and shown. A refusal has told its reason and opens nothing. The
/// operation in hand is left first as by ESC; when it is this one, its window comes to the front and nothing
/// else happens.
void AbrirInterno(const QString &interno);
