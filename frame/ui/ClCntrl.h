#pragma once
// The field helper of all screens.

#include <QColor>
#include <QString>
#include <QStringList>
#include <functional>

class QComboBox;
class QListWidget;
class QWidget;

/// What a bound field does by itself: ENTER goes on like TAB, the arrows go to the next and the previous
/// field, the numeric keypad's decimal key writes the workstation's separator, the field in hand has its
/// colour and its text selected. The dynamic property "tag" of the field steers it: "NOENTER" leaves ENTER
/// and the arrows to the field, a tag ending in "#F6" has a list behind F6 and a colour of its own, a tag
/// beginning "BB" keeps its colour.
namespace ClCntrl {

/// Binds one field: a line edit, a box of several lines, a list or a combo box.
void Vincular(QWidget *campo);

/// Hears every text change of a bound field while the shared change flag is on (the operation must then be
/// armed again, and its answer to the tariff question asked again).
void alCambiar(QWidget *campo, std::function<void()> hacer);
bool &banderaDeCambios();
/// While on, the arrows stay in the field.
bool &bloqueoDeNavegacion();

/// Background of a field in hand with a list behind F6, and of any other.
QColor colorF6();
QColor colorEnFoco();

/// Selects the first row that begins with `texto`; none clears the selection.
void LstBuscarStr(QListWidget *lista, const QString &texto);
void BuscarCBO(QComboBox *combo, const QString &texto);
/// Empties every text field of a form, but those named in `salvo` (in capitals).
void VaciarTxt(QWidget *formulario, const QStringList &salvo = {});

}  // namespace ClCntrl
