#include "desktop/fin.h"

#include <fcntl.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QObject>
#include <QSocketNotifier>
#include <array>
#include <csignal>
#include <utility>

namespace {

// A handler may do next to nothing: it leaves a mark, and a byte that wakes the event loop.
std::array<int, 2> despertador{-1, -1};
volatile std::sig_atomic_t finPedido = 0;

void alRecibir(int) {
    finPedido = 1;
    const char marca = 1;
    [[maybe_unused]] const auto escritos = write(despertador[1], &marca, 1);
}

}  // namespace

std::function<void()> TerminarPrograma = [] { QCoreApplication::exit(); };

void AlPedirFin(QObject *contexto, std::function<void()> hacer) {
    if (pipe2(despertador.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
    auto *aviso = new QSocketNotifier(despertador[0], QSocketNotifier::Read, contexto);
    QObject::connect(aviso, &QSocketNotifier::activated, contexto, [hacer = std::move(hacer)] {
        std::array<char, 16> marcas{};
        [[maybe_unused]] const auto leidos = read(despertador[0], marcas.data(), marcas.size());
        hacer();
    });
    struct sigaction accion {};
    accion.sa_handler = alRecibir;
    accion.sa_flags = SA_RESTART;
    for (const int cual : {SIGTERM, SIGINT, SIGHUP}) sigaction(cual, &accion, nullptr);
}

bool SePidioFin() {
    return finPedido != 0;
}
