#pragma once
// Every screen of the program by the road that users take to it, and out again by ESC.

#include <QPointer>
#include <functional>
#include <memory>
#include <vector>

#include "desktop/fin.h"
#include "frame/startup.h"
#include "tests/support/pantallas.h"

/// A screen, the road by which users come to it (which may wait until it is closed), and whether it stands.
struct Salida {
    const char *nombre;
    std::function<void()> abrir;
    std::function<bool()> abierta;
    std::function<void()> completar;  ///< keys in what the screen asks for before it lets go
};

/// A choice among "A", "B" and "C".
Eleccion tresFilas(Eleccion::Tipo tipo);

/// The screens over an operation "VACIA" that is only a header.
class EnTodasLasPantallas : public EnPantalla {
 protected:
    void SetUp() override;
    void TearDown() override;

    std::vector<Salida> todas() const;
    /// Opens the screen and leaves it by ESC.
    void entrarYSalir(const Salida &salida);

    int bastantesEscapes = 4;          ///< as often as a user would try
    std::function<void()> alAbrir;     ///< done once, when the first window stands
    std::function<void()> alQuedarse;  ///< done once, when a window does not let go
    std::function<void()> alSalir;  ///< done once the screen is gone, ahead of what was said being forgotten
    /// The window that keys are on their way to: no ESC between them. Others that come over it are left.
    QPointer<QWidget> enManos;
    int escapesEncima = 0;  ///< ESCs that those others were given

 private:
    /// Presses ESC as often as a user would try, wherever the keyboard is; what still stands then is told and
    /// closed by force, so that the test goes on.
    void pulsarEscape(const std::shared_ptr<int> &veces, const std::shared_ptr<bool> &listo,
                      const std::function<void()> &completar);

    decltype(TerminarPrograma) terminarAntes;
    decltype(iniciarPrograma) iniciarAntes;
};
