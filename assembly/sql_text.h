#pragma once
// Small words of the statements that the phases build.

#include <QString>

#include "frame/base/values.h"

/// What ends most statements of the run: the operation's key and its closing quote.
inline QString ConClave(const char *texto, const QString &interno) {
    return QLatin1String(texto) + interno + QLatin1Char('\'');
}
