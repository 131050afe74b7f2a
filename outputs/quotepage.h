#pragma once
// The pages of a quote: the HTML that its templates make, the same as text, and where they are written.

#include <QByteArray>
#include <QDate>
#include <QString>

struct AppContext;
struct Presupuesto;

/// "Presupuesto " and the day in long form: the subject of the mail.
QString AsuntoDelPresupuesto(const QDate &dia);

/// The whole page. Texts of users are escaped, and what is not ASCII is written as a reference, so that the
/// bytes are the same in every encoding that a file or a mail declares. Raises Falla without one of the
/// templates, which lie in the folder `seccion` of the program's folder.
QString PaginaDelPresupuesto(AppContext &ctx, const Presupuesto &p, const QDate &dia);

/// The same for readers without HTML. Raises Falla.
QString TextoDelPresupuesto(AppContext &ctx, const Presupuesto &p, const QDate &dia);

/// Writes the page into `archivo`, which is replaced. False without a name, and for a file that cannot be
/// written, which was told. Raises Falla.
bool LP_ArmarRep(AppContext &ctx, const Presupuesto &p, const QString &archivo);

/// Writes "vista.htm", or "Presupuesto.eml" with the page as a mail that was not sent, into the program's
/// folder when it takes them, else into the user's documents. The whole path; empty when neither took it,
/// which was told. Both raise Falla.
QString EscribirVista(AppContext &ctx, const Presupuesto &p);
QString EscribirEml(AppContext &ctx, const Presupuesto &p);
