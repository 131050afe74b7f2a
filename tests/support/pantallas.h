#pragma once
// Screens over fresh stores, driven by key events.

#include <QApplication>
#include <QDialog>
#include <QString>
#include <QStringList>
#include <QTableView>
#include <QTimer>
#include <QWidget>
#include <functional>

#include "frame/ui/Pantalla.h"
#include "tests/support/tienda.h"

/// The demonstration data behind the screens; every screen is gone after each test.
class EnPantalla : public EnAmbosStores {
 protected:
    void SetUp() override;
    void TearDown() override;
    bool conDemostracion() const override { return true; }

    /// Puts the real dialogs in place of the recorder's.
    void conDialogosDeVerdad();
    /// Shows the operation's dashboard by the one road into an operation.
    class FrmDetalleInterno &abrir(const QString &interno);
};

/// Waits until the window has the keyboard, or fails.
void esperarVentana(QWidget *ventana);
/// A key to the widget that has the focus in the active window.
void tecla(int tecla, Qt::KeyboardModifiers con = Qt::NoModifier);
/// ALT with a letter: the button's press is seen for a moment before it is let go, so it waits for that.
void atajo(int letra);
/// The same to one widget, which takes the focus first.
void teclaEn(QWidget *campo, int tecla, Qt::KeyboardModifiers con = Qt::NoModifier);
/// Types a text into the widget that has the focus.
void escribir(const QString &texto);
/// Serves events until `listo` answers true; fails after ten seconds.
void hasta(const std::function<bool()> &listo);
/// A cell of the row in hand; empty for no row.
QString enMano(const QTableView *vista, int columna);
/// The cells of a column, from above.
QStringList textosDe(const QTableView *vista, int columna);

/// Calls `hacer` with the next modal window, as soon as one stands.
void conVentanaModal(const std::function<void(QWidget *)> &hacer);

/// Calls `hacer` with screen T as soon as it stands as the modal window in hand; a screen that `hacer` leaves
/// open fails the test and is closed.
template <class T>
void conPantallaModal(const std::function<void(T &)> &hacer) {
    QTimer::singleShot(5, qApp, [hacer] {
        if (!PantallaAbierta<T>() || QApplication::activeModalWidget() != Pantalla<T>().ventana.get()) {
            conPantallaModal<T>(hacer);
            return;
        }
        esperarVentana(Pantalla<T>().ventana.get());
        hacer(Pantalla<T>());
        if (!PantallaAbierta<T>() || !Pantalla<T>().ventana->isVisible()) return;
        ADD_FAILURE() << "the screen was left open";
        Pantalla<T>().ventana->done(0);
    });
}

/// What a reader would not see whole: the names and texts of visible labels, buttons and headings that are
/// narrower or lower than their text, and of labels that take their text for markup.
QStringList recortados(QWidget *ventana);
/// Saves a picture of the window as screenshots/<scale>x/<nombre>.png of the build folder; fails on clipped
/// texts and on a window that is larger than 1280 by 720.
void foto(QWidget *ventana, const QString &nombre);
/// The names of the enabled widgets that TAB reaches from the first one, in its order, until it comes round.
QStringList ordenDeTab(QWidget *ventana);
