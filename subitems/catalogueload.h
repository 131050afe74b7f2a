#pragma once
// A catalogue of articles from a CSV file: what can be kept is kept, everything else is told with its line.

#include <QString>
#include <QStringList>

struct AppContext;

/// What a load did.
struct CargaDeCatalogo {
    bool ok = false;
    QString error;  ///< one Spanish sentence when not ok; nothing was kept then
    int agregados = 0;
    int reemplazados = 0;
    int iguales = 0;     ///< articles that the catalogue has as the file tells them; they were left alone
    int rechazadas = 0;  ///< rows that were not kept, each with its line among `avisos`
    QStringList avisos;  ///< "línea 12: …", in the order of the file
};

/// Loads the file (frame/csv.h) into a catalogue, which begins to be with its first article. Its columns are
/// those of the article's record or the usual words for them (docs/lote.md); the checks are those of the
/// screen. An article that the catalogue has already is told, or with `reemplazar` takes the columns that the
/// file has and keeps the others. One file is one transaction.
CargaDeCatalogo CargarCatalogo(AppContext &ctx, const QString &idcatalogo, const QString &archivo,
                               bool reemplazar);
