#pragma once
// The rows that the statements are run over.

#include <vector>

struct FilaDeMuestra {
    const char *entidad;
    const char *texto;
};

/// Inserts, in order: two operations with everything an operation can have, one with nothing but its header,
/// and a few rows in every table of codes.
const std::vector<FilaDeMuestra> &muestra();
