#pragma once
// The keys of the demonstration: its operations, and the position that many tests look at.

#include <QString>

inline const QString importacion = QStringLiteral("IC-2026-0001");
inline const QString exportacion = QStringLiteral("EC-2026-0002");
inline const QString temporal = QStringLiteral("IT-2026-0003");
inline const QString djai = QStringLiteral("DJAI-2026-0004");
inline const QString carnes = QStringLiteral("EC-2026-0006");

/// The engine part: suffix families AA (coded) and AB (free) of its chapter, HA (coded) of its own.
inline const QString motor = QStringLiteral("8409.91.12.100G");
/// Sets a column of its row in the nomenclature.
inline QString fijarEnMotor(const char *columna, const char *valor) {
    return QStringLiteral("update ncm set [%1] = '%2' where [001] = '8409.91.12' and [002] = '100'")
        .arg(QString::fromUtf8(columna), QString::fromUtf8(valor));
}
