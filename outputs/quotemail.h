#pragma once
// The quote as a message to the client.

#include "outputs/mail.h"

class QDate;
struct AppContext;
struct Presupuesto;

/// The name of the quote's file as PDF: "Presupuesto KEY.pdf", without what a file's name cannot hold.
QString NombreDelPdf(const QString &interno);

/// The message of a quote: subject, page, text and PDF, from the mail's sender to TxtEmail. Needs a
/// QGuiApplication. Raises Falla.
Correo EnviarMail(AppContext &ctx, const Presupuesto &p, const QDate &dia);
