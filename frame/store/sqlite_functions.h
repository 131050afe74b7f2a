#pragma once

#include <QString>

struct sqlite3;

namespace sqlite {

/// Registers on a connection what the statements expect of the file store: ROUND, ISNUMERIC, cuts and
/// searches of text, LIKE, the guarded divisor, and the two routines that the server store keeps itself; and
/// the collation ZCI, which the columns of older files ask for until they are upgraded.
void registrar(sqlite3 *motor);

/// The order of two texts under ZCI: by code point of the lower-cased texts.
int comparar(const char *a, int largoA, const char *b, int largoB);

}  // namespace sqlite
