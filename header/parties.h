#pragma once
// Parties of an operation: tax numbers and names.

#include <QString>

struct AppContext;

/// The check digit of an 11-digit tax number, with the weights 2 to 7 from the right; a remainder of 1 keeps
/// the digit 1. A text of another length, or with anything but digits, is invalid.
bool CUITValido(const QString &cuit);

/// The broker's trimmed name; false with a message for a number of another length or one that is not kept.
/// The check digit is not looked at. Raises ErrorDeStore.
bool BuscarDespachante(AppContext &ctx, const QString &cuit, QString &nombre);

/// The name behind a code of "clientes", "despadu" or "vendedor"; empty for any other table and for a code
/// that is not kept. Raises ErrorDeStore.
QString BuscarNombre(AppContext &ctx, const QString &tabla, const QString &codigo);
