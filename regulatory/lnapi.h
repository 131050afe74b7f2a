#pragma once
// Non-automatic import licences: the norm behind a position and its clarifying notes.

#include <QString>
#include <vector>

struct AppContext;

/// A licence that reaches a position.
struct NormaLnapi {
    QString lnapi;
    QString norma;
};

/// The licences of the position's first 10 characters; empty when there is none. Raises Falla.
std::vector<NormaLnapi> ObtenerNormaLnapi(AppContext &ctx, const QString &posicion);

/// The text of a note; a sentence that says so when it has none. Raises Falla.
QString ObtenerDescripcionAclaracion(AppContext &ctx, const QString &numero);

/// What ObtenerAclaraciones answers for a position that is in no row.
inline const QString sinAclaraciones = QStringLiteral("-1");

/// The notes of every row of the position, one a line; sinAclaraciones when it is in none. Raises Falla.
QString ObtenerAclaraciones(AppContext &ctx, const QString &posicion);

/// The text that the screen of suffixes shows: licences and norms, then the notes. Without a norm it says
/// whether the position has a letter. Raises Falla.
QString DetalleLnapi(AppContext &ctx, const QString &posicion);
