#pragma once
// From the two dialects the modules speak to an engine's own SQL. Text in, text out; data is only ever
// tokens.

#include <QSet>
#include <QString>
#include <QStringList>

namespace dialecto {

enum class Motor { SQLite, PostgreSQL };

/// What the translator may know of the store besides the text.
struct Ajustes {
    Motor motor = Motor::SQLite;
    /// Lower-case names of the tables that keep an order of insertion (column rowid / zfila): a select over
    /// one such table without an order takes that order, one with an order takes it as the last word.
    QSet<QString> tablasOrdenadas;
};

/// `texto` as the engine takes it. Text that is not understood passes through as it stands, so that the
/// engine's own error reaches the caller; nothing inside a quoted text is ever changed.
QString traducir(const QString &texto, const Ajustes &ajustes);

/// `texto`, a select over one table, with the engine's row identity as an added last column "z_identidad".
QString conIdentidad(const QString &texto, const Ajustes &ajustes);

}  // namespace dialecto
