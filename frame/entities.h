#pragma once
// The names that every statement is sent under, and the application that owns the settings.

#include <QString>

namespace entidad {
inline const QString internos = QStringLiteral("INTERNOS");
inline const QString systablas = QStringLiteral("SYSTABLAS");
inline const QString personal = QStringLiteral("PERSONAL");
inline const QString ncm = QStringLiteral("NCM");
inline const QString catalogos = QStringLiteral("CATALOGOS");
inline const QString usuario = QStringLiteral("USUARIO");
}  // namespace entidad

namespace ajuste {
inline const QString zendra = QStringLiteral("ZENDRA");  ///< application
inline const QString flags = QStringLiteral("FLAGS");    ///< section
}  // namespace ajuste
