#include "frame/ui/Pantalla.h"

#include <QPointer>
#include <vector>

namespace {

/// Rides on the event loop's own rule for late deletion, which knows nested loops.
class Portador : public QObject {
 public:
    explicit Portador(std::shared_ptr<void> carga) : carga_(std::move(carga)) {}

 private:
    std::shared_ptr<void> carga_;
};

std::vector<std::function<void()>> &destructores() {
    static std::vector<std::function<void()>> lista;
    return lista;
}

QPointer<QWidget> &ventanaDelMarco() {
    static QPointer<QWidget> ventana;
    return ventana;
}

}  // namespace

void pantallas::anotar(std::function<void()> destruir) {
    destructores().push_back(std::move(destruir));
}

void pantallas::destruirDespues(std::shared_ptr<void> carga) {
    (new Portador(std::move(carga)))->deleteLater();
}

void pantallas::CerrarTodas() {
    while (!destructores().empty()) {
        const auto destruir = std::move(destructores().back());
        destructores().pop_back();
        destruir();
    }
}

QWidget *pantallas::marco() {
    return ventanaDelMarco();
}

void pantallas::fijarMarco(QWidget *ventana) {
    ventanaDelMarco() = ventana;
}
