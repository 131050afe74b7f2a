#pragma once
// From the two dialects the modules speak to an engine's own SQL. Text in, text out; data is only ever
// tokens.

#include <QSet>
#include <QString>
#include <QStringList>
#include <vector>

namespace dialecto {

class Tokens;

/// What an engine wants said otherwise than the modules say it.
struct Gramatica {
    /// The rewrites inside expressions that it needs, in their order (see dialect_rewrites.h).
    std::vector<void (*)(Tokens &)> expresiones;
    /// The column in which a table keeps the order of insertion.
    QLatin1String ordenDeInsercion;
    /// Whether nulls go behind everything else unless each term of an order tells their place.
    bool nulosAlFinal = false;
    /// The expression that tells one row of the table `alias` from every other; `ordenada`: the table keeps
    /// an order of insertion.
    QString (*identidad)(const QString &alias, bool ordenada) = nullptr;
};

/// What the translator may know of the store besides the text.
struct Ajustes {
    const Gramatica *gramatica = nullptr;  ///< never null when translating
    /// Lower-case names of the tables that keep an order of insertion: a select over one such table without
    /// an order takes that order, one with an order takes it as the last word.
    QSet<QString> tablasOrdenadas;
};

/// `texto` as the engine takes it. Text that is not understood passes through as it stands, so that the
/// engine's own error reaches the caller; nothing inside a quoted text is ever changed.
QString traducir(const QString &texto, const Ajustes &ajustes);

/// `texto`, a select over one table, with the engine's row identity as an added last column "z_identidad".
QString conIdentidad(const QString &texto, const Ajustes &ajustes);

}  // namespace dialecto
