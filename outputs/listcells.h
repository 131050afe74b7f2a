#pragma once
// What the lists share: cells, orders and the line below a title.

#include <QString>
#include <QVariant>

#include "frame/paper/table.h"

struct AppContext;
class Recordset;

namespace listas {

// Columns: their title and width in characters; the mask of a number, and whether it is summed.

papel::Columna DeTexto(const QString &titulo, int ancho);
papel::Columna DeNumero(const QString &titulo, int ancho, const QString &mascara, bool suma = false);
papel::Columna DeDia(const QString &titulo);

/// A column of the row in hand as a cell: a number or a day as such, a text without blanks around it. What is
/// null, and a text that is no day in a column of days, is empty.
QVariant Celda(const Recordset &rs, const QString &columna, papel::Clase clase);

/// Makes each column of texts as wide as its widest one, and no wider than it is told.
void AjustarAnchos(papel::Tabla &tabla);

/// The order of codes in a list: without regard to case, and as they are spelled where that is the same.
bool vaAntes(const QString &a, const QString &b);

/// "1 línea", "19 líneas".
QString Contadas(int cuantas, const QString &una, const QString &varias);

/// "Operación IC-2026-0001 - IC04 - HIDRAULICA DEL PLATA S.A.", and the currency of the FOB behind it when
/// there are amounts below: what the operation has of it; the key alone for one that is not there. Raises
/// Falla.
QString EncabezadoDeOperacion(AppContext &ctx, const QString &interno, bool conImportes);

}  // namespace listas
