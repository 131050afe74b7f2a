#pragma once
// What the tables of actions share that meet the falls of a server, one file a family of screens.

#include <QAbstractItemView>
#include <QLineEdit>
#include <memory>
#include <utility>
#include <vector>

#include "tests/screens/caidas_pantalla.h"

/// An action on screen T.
template <class T>
AccionDeUsuario accionEn(const char *nombre, std::function<void()> preparar, std::function<void()> abrir,
                         std::function<void(T &)> teclear, std::function<void()> llave,
                         std::function<QString(T &)> visto = {}) {
    return {nombre,
            std::move(preparar),
            std::move(abrir),
            []() -> QWidget * { return PantallaAbierta<T>() ? Pantalla<T>().ventana.get() : nullptr; },
            [teclear] {
                if (teclear) teclear(Pantalla<T>());
            },
            std::move(llave),
            1,
            {},
            visto ? [visto] { return PantallaAbierta<T>() ? visto(Pantalla<T>()) : QString(); }
                  : std::function<QString()>()};
}

/// Shows T as its callers do, and closes it when it is left.
template <class T, class... Que>
std::function<void()> mostrar(Que... que) {
    return [que...] { Pantalla<T>().Mostrar(que...); };
}
template <class T, class... Que>
std::function<void()> mostrarYCerrar(Que... que) {
    return [que...] {
        Pantalla<T>().Mostrar(que...);
        CerrarPantalla<T>();
    };
}

/// What a screen that a key opens over the one in hand showed, and how the key is pressed: the screen is
/// looked at once and left by ESC.
struct Encima {
    std::shared_ptr<QString> visto = std::make_shared<QString>();

    template <class T>
    std::function<void()> abriendo(std::function<void()> llave, std::function<QString(T &)> ver) const {
        return [visto = visto, llave = std::move(llave), ver = std::move(ver)] {
            visto->clear();
            QWidget *debajo = QApplication::activeWindow();
            const auto listo = std::make_shared<bool>(false);
            mirar<T>(listo, [visto, ver](T &p) {
                *visto = ver(p);
                tecla(Qt::Key_Escape);
            });
            llave();
            // One that is shown and not waited for.
            hasta([] { return !PantallaAbierta<T>() || !Pantalla<T>().ventana->isVisible(); });
            *listo = true;
            if (debajo != nullptr && debajo->isVisible()) esperarVentana(debajo);
        };
    }
    /// For AccionDeUsuario::visto.
    template <class T>
    std::function<QString(T &)> loVisto() const {
        return [visto = visto](T &) { return *visto; };
    }

 private:
    template <class T>
    static void mirar(const std::shared_ptr<bool> &listo, const std::function<void(T &)> &hacer) {
        constexpr int momento = 5;  // milliseconds
        QTimer::singleShot(momento, qApp, [listo, hacer] {
            if (*listo) return;
            if (!PantallaAbierta<T>() || !Pantalla<T>().ventana->isActiveWindow()) {
                mirar<T>(listo, hacer);
                return;
            }
            hacer(Pantalla<T>());
        });
    }
};

/// The cells of a list's rows, for what an action shows.
QString celdasDe(const QAbstractItemView *vista);

/// The key, and ALT with the letter.
std::function<void()> la(int cual);
std::function<void()> alt(int letra);
/// The text in place of what the field holds.
void poner(QLineEdit *campo, const QString &texto);

/// Actions whose key works, or tells once that the server went and works then.
class CaidasBajoPantallas : public EnCaidas {
 protected:
    /// Every action undisturbed, after a rest that the server did not survive, and with a fall in the middle.
    void probar(const std::vector<AccionDeUsuario> &acciones);
    /// The operation of the demonstration with its items.
    void armar();

 private:
    void probarUna(const AccionDeUsuario &accion, std::size_t turno, std::uint32_t azar);
};
