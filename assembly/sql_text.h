#pragma once
// Small words of the statements that the phases build.

#include <QString>

/// `texto` between single quotes, as it stands: keys and codes. A quote in it breaks the statement, by
/// design.
inline QString EnComillas(const QString &texto) {
    return QLatin1Char('\'') + texto + QLatin1Char('\'');
}

/// What ends most statements of the run: the operation's key and its closing quote.
inline QString ConClave(const char *texto, const QString &interno) {
    return QLatin1String(texto) + interno + QLatin1Char('\'');
}
