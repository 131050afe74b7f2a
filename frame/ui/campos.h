#pragma once
// The text of a field, whatever widget shows it.

#include <QString>

class QLineEdit;
class QWidget;

namespace campos {

/// What a field holds: its text; of a combo box the data of its row, of a tick box or an option button "S" or
/// "N", of a list the text of the row in hand (empty for none).
QString TextoDe(const QWidget *campo);
/// Puts a text into a field. False when the field shows it already, and then keeps its cursor.
bool PonerTexto(QWidget *campo, QString texto);
/// Letters typed or pasted into the field become capitals as they come.
void EnMayusculas(QLineEdit *campo);
/// Gives the focus to the field of that name. With an empty name, and where there is no such field or nobody
/// could type in it now, the focus stays where it is.
void Enfocar(const QWidget *ventana, const QString &nombre);

}  // namespace campos
