#pragma once

#include <QDialog>
#include <QString>
#include <optional>

#include "outputs/quotelists.h"

class QKeyEvent;
class QLineEdit;
class QListWidget;

/// The keys of a master list on a screen: ENTER takes the entry in hand, Delete removes it, and ENTER in the
/// box adds what was typed.
class ListaMaestra {
 public:
    /// Binds the widgets of a screen, which outlive this object's events.
    void Preparar(QDialog *ventana, QListWidget *lista, QLineEdit *nuevo, ListaDePresupuesto cual);
    /// Fills the list, with this entry in hand; false, told, where it could not be read: it stays as it is.
    bool Cargar(const QString &actual = {});
    /// Fills the list, shows the screen and waits; the entry taken, or nothing when the user left.
    std::optional<QString> Elegir();

 private:
    bool Lista_KeyDown(const QKeyEvent *tecla);
    bool Nuevo_KeyDown(const QKeyEvent *tecla);
    void Tomar();

    QDialog *ventana_ = nullptr;
    QListWidget *lista_ = nullptr;
    QLineEdit *nuevo_ = nullptr;
    ListaDePresupuesto cual_ = ListaDePresupuesto::Conceptos;
};
