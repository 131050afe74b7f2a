#pragma once
// The keys of the demonstration's operations.

#include <QString>

inline const QString importacion = QStringLiteral("IC-2026-0001");
inline const QString exportacion = QStringLiteral("EC-2026-0002");
inline const QString temporal = QStringLiteral("IT-2026-0003");
inline const QString djai = QStringLiteral("DJAI-2026-0004");
