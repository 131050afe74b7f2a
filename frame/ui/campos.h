#pragma once
// The text of a field, whatever widget shows it.

#include <QString>

class QLineEdit;
class QWidget;

namespace campos {

/// What a field holds: its text; of a combo box the data of its row, of a tick box "S" or "N".
QString TextoDe(const QWidget *campo);
/// Puts a text into a field. False when the field shows it already, and then keeps its cursor.
bool PonerTexto(QWidget *campo, QString texto);
/// Letters typed or pasted into the field become capitals as they come.
void EnMayusculas(QLineEdit *campo);

}  // namespace campos
