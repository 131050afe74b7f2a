#pragma once
// One instance of each screen: made on first use, destroyed when another part closes it.

#include <QObject>
#include <QWidget>
#include <functional>
#include <memory>
#include <utility>

namespace pantallas {

template <class T>
std::unique_ptr<T> &casilla() {
    static std::unique_ptr<T> una;
    return una;
}

/// Remembers how a screen is destroyed, in the order of their making.
void anotar(std::function<void()> destruir);
/// Destroys `carga` when the events in hand have been served: a screen may close from within its own handler.
void destruirDespues(std::shared_ptr<void> carga);
/// Destroys every screen, the last made first. Called once, before the application object goes.
void CerrarTodas();

/// The window the other screens stand over: the frame, while there is one.
QWidget *marco();
void fijarMarco(QWidget *ventana);

}  // namespace pantallas

template <class T>
bool PantallaAbierta() {
    return pantallas::casilla<T>() != nullptr;
}

/// The only instance of a screen.
template <class T>
T &Pantalla() {
    auto &una = pantallas::casilla<T>();
    if (!una) {
        una = std::make_unique<T>();
        pantallas::anotar([] { pantallas::casilla<T>().reset(); });
    }
    return *una;
}

/// Hides the screen and destroys it; the next Pantalla<T>() makes a new one.
template <class T>
void CerrarPantalla() {
    auto &una = pantallas::casilla<T>();
    if (!una) return;
    una->ventana->hide();
    pantallas::destruirDespues(std::shared_ptr<T>(std::move(una)));
}
