#pragma once
// One look for all screens.

#include <QColor>
#include <QString>
#include <QStringList>

class QApplication;
class QDialog;
class QLabel;
class QTableView;
class QTableWidget;

namespace estilo {

QColor acento();
QColor bien();
QColor falta();
/// What is not wrong yet but will be soon.
QColor aviso();
/// What is over.
QColor apagado();
/// The second line under an operation of the browser, and the rows of a group.
QColor detalle();
QColor grupo();

/// Style, palette and sheet of the application. The font stays the system's.
void Aplicar(QApplication &aplicacion);

/// A label that tells a state: its colour follows the text (complete, missing, or neither).
void PintarEstado(QLabel *etiqueta, const QString &texto);

/// The colour behind a number of the platform: blue in the highest byte, then green, then red.
QColor ColorDePlataforma(int numero);

/// A read-only table of whole rows, over a model of its own.
void PrepararVista(QTableView *vista);
/// The same as a grid of cells, with these headings (none: no heading).
void PrepararGrilla(QTableWidget *grilla, const QStringList &columnas);
/// A cell of such a table; numbers stand to the right.
void PonerCelda(QTableWidget *grilla, int fila, int columna, const QString &texto, bool numero = false);

}  // namespace estilo
