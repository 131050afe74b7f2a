#pragma once
// The quote as a PDF of A4 pages.

#include <QByteArray>
#include <QString>

/// The page of a quote on paper, its text selectable; the pages are numbered when there are several. Needs a
/// QGuiApplication.
QByteArray PresupuestoEnPdf(const QString &pagina, const QString &titulo);
