#pragma once
// The quote as a PDF of A4 pages.

#include <QByteArray>
#include <QString>

struct AppContext;
struct Presupuesto;

/// The page of a quote on paper, its text selectable; the pages are numbered when there are several. Needs a
/// QGuiApplication.
QByteArray PresupuestoEnPdf(const QString &pagina, const QString &titulo);

/// Writes the quote of today into `archivo`, which is replaced. Empty when it was written, else a sentence
/// that says what happened. Raises Falla without one of the templates.
QString EscribirPresupuestoPdf(AppContext &ctx, const Presupuesto &p, const QString &archivo);
