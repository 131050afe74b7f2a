#include "tests/support/intermediario.h"

#include <linux/filter.h>
#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QStringList>
#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <cstring>
#include <deque>
#include <functional>
#include <list>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

using RelojDeLinea = std::chrono::steady_clock;
using Medida = Intermediario::Medida;

constexpr std::size_t bocado = 256 * 1024;
/// What may wait in one direction: more than a loopback carries in a second.
constexpr std::size_t enCaminoComoMucho = std::size_t{64} * 1024 * 1024;

[[noreturn]] void fallarCon(const std::string &que) {
    throw std::runtime_error("Intermediario: " + que + ": " + std::strerror(errno));
}

/// A descriptor that goes with its object.
class Descriptor {
 public:
    explicit Descriptor(int numero = -1) : numero_(numero) {}
    ~Descriptor() { Cerrar(); }
    Descriptor(Descriptor &&otro) noexcept : numero_(std::exchange(otro.numero_, -1)) {}
    Descriptor &operator=(Descriptor &&otro) noexcept {
        std::swap(numero_, otro.numero_);
        return *this;
    }
    int numero() const { return numero_; }
    void Cerrar() {
        if (numero_ >= 0) close(std::exchange(numero_, -1));
    }

 private:
    int numero_;
};

void sinEsperas(int socket) {
    const int si = 1;
    // A socket of a folder has no such option, and no need of it.
    (void)setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &si, sizeof si);
}

/// Where the server is, from the words of ZENDRA_PG.
struct Destino {
    std::string host, puerto = "5432";
    QStringList resto;  ///< the other words as they stand

    explicit Destino(const QString &palabras) {
        const QStringList todas = palabras.split(u' ', Qt::SkipEmptyParts);
        for (const QString &palabra : todas) {
            const QString clave = palabra.section(u'=', 0, 0);
            const std::string valor = palabra.section(u'=', 1).toStdString();
            if (clave == "host"_L1)
                host = valor;
            else if (clave == "port"_L1)
                puerto = valor;
            else
                resto << palabra;
        }
        if (host.empty())
            throw std::runtime_error(
                "Intermediario: no server to pass on to; ZENDRA_PG says it (scripts/test-server start prints "
                "the words).");
    }

    /// An empty one when nobody answers there.
    Descriptor Llamar() const {
        if (host.front() == '/') {
            Descriptor s(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
            sockaddr_un donde{};
            donde.sun_family = AF_UNIX;
            const std::string ruta = host + "/.s.PGSQL." + puerto;
            if (ruta.size() >= sizeof donde.sun_path) return Descriptor();
            std::copy(ruta.begin(), ruta.end(), static_cast<char *>(donde.sun_path));
            if (::connect(s.numero(), reinterpret_cast<const sockaddr *>(&donde), sizeof donde) != 0)
                return Descriptor();
            return s;
        }
        addrinfo pedido{};
        pedido.ai_socktype = SOCK_STREAM;
        addrinfo *lista = nullptr;
        if (getaddrinfo(host.c_str(), puerto.c_str(), &pedido, &lista) != 0) return Descriptor();
        Descriptor hallado;
        for (const addrinfo *uno = lista; uno != nullptr && hallado.numero() < 0; uno = uno->ai_next) {
            Descriptor s(socket(uno->ai_family, uno->ai_socktype | SOCK_CLOEXEC, uno->ai_protocol));
            if (s.numero() >= 0 && ::connect(s.numero(), uno->ai_addr, uno->ai_addrlen) == 0)
                hallado = std::move(s);
        }
        freeaddrinfo(lista);
        if (hallado.numero() >= 0) sinEsperas(hallado.numero());
        return hallado;
    }
};

/// 127.0.0.1; port 0 takes a free one.
Descriptor escuchar(int puerto) {
    Descriptor s(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    const int si = 1;
    (void)setsockopt(s.numero(), SOL_SOCKET, SO_REUSEADDR, &si, sizeof si);
    sockaddr_in donde{};
    donde.sin_family = AF_INET;
    donde.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    donde.sin_port = htons(static_cast<in_port_t>(puerto));
    if (bind(s.numero(), reinterpret_cast<const sockaddr *>(&donde), sizeof donde) != 0 ||
        listen(s.numero(), SOMAXCONN) != 0)
        fallarCon("listen");
    return s;
}

/// The kernel throws away what arrives there, ahead of looking at it.
void noOir(const Descriptor &s) {
    sock_filter nada{BPF_RET | BPF_K, 0, 0, 0};
    const sock_fprog filtro{1, &nada};
    if (setsockopt(s.numero(), SOL_SOCKET, SO_ATTACH_FILTER, &filtro, sizeof filtro) != 0)
        fallarCon("SO_ATTACH_FILTER");
}
void oirDeNuevo(const Descriptor &s) {
    const int sinUso = 0;
    if (setsockopt(s.numero(), SOL_SOCKET, SO_DETACH_FILTER, &sinUso, sizeof sinUso) != 0 && errno != ENOENT)
        fallarCon("SO_DETACH_FILTER");
}

int puertoDe(const Descriptor &s) {
    sockaddr_in donde{};
    socklen_t largo = sizeof donde;
    if (getsockname(s.numero(), reinterpret_cast<sockaddr *>(&donde), &largo) != 0) fallarCon("getsockname");
    return ntohs(donde.sin_port);
}

/// One direction of a line.
struct Sentido {
    struct Trozo {
        RelojDeLinea::time_point llega;
        std::string bytes;  ///< empty: the end of what this side has to say
    };
    std::deque<Trozo> enCamino;
    std::size_t cuanto = 0;
    bool terminado = false;  ///< the side that speaks has ended
};

/// A client's line: 0 is the way to the server, 1 the way back; lado[n] is who speaks on way n.
struct Linea {
    std::array<Descriptor, 2> lado;
    std::array<Sentido, 2> sentido;
    RelojDeLinea::time_point abierta;  ///< before this nothing of the client can have arrived
    bool respondida = true;            ///< the client was reached since it last spoke
    bool cortada = false;
};

void cortarLinea(Linea &linea, Intermediario::Corte como) {
    linea.cortada = true;
    if (como == Intermediario::Corte::Rotura) {
        const linger nada{1, 0};
        (void)setsockopt(linea.lado[0].numero(), SOL_SOCKET, SO_LINGER, &nada, sizeof nada);
    }
    for (Descriptor &uno : linea.lado) uno.Cerrar();
}

}  // namespace

struct Intermediario::Interno {
    explicit Interno(const QString &palabras)
        : destino(palabras), aviso(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)), oido(escuchar(0)) {
        puerto = puertoDe(oido);
    }

    Destino destino;
    Descriptor aviso, oido;
    int puerto = 0;
    std::thread hilo;
    std::list<Linea> lineas;
    RelojDeLinea::duration mitad{};
    bool colgado = false, terminar = false;
    struct CortePedido {
        Medida medida;
        qint64 queda;
        Corte como;
    };
    std::optional<CortePedido> corte;
    Cuenta cuenta;

    /// What the callers ask for is done by the thread, which owns all of the above; they wait for it.
    mutable std::mutex candado;
    std::condition_variable hecho;
    const std::function<void()> *pedido = nullptr;

    void Pedir(const std::function<void()> &que) {
        static std::mutex deAUno;
        const std::lock_guard solo(deAUno);
        std::unique_lock guardia(candado);
        pedido = &que;
        const std::uint64_t uno = 1;
        if (write(aviso.numero(), &uno, sizeof uno) < 0) fallarCon("eventfd");
        hecho.wait(guardia, [this] { return pedido == nullptr; });
    }

    void Atender() {
        std::uint64_t cuantos = 0;
        (void)!read(aviso.numero(), &cuantos, sizeof cuantos);
        const std::lock_guard guardia(candado);
        if (pedido == nullptr) return;
        (*pedido)();
        pedido = nullptr;
        hecho.notify_all();
    }

    void CortarTodas(Corte como) {
        for (Linea &linea : lineas) cortarLinea(linea, como);
        lineas.clear();
    }

    void Aceptar() {
        for (;;) {
            Descriptor cliente(accept4(oido.numero(), nullptr, nullptr, SOCK_CLOEXEC));
            if (cliente.numero() < 0) return;
            sinEsperas(cliente.numero());
            Descriptor servidor = destino.Llamar();
            Linea linea;
            linea.lado = {std::move(cliente), std::move(servidor)};
            if (linea.lado[1].numero() < 0) {
                cortarLinea(linea, Corte::Rotura);
                continue;
            }
            // The kernel has said yes at once; over a long line that alone would have been a round trip.
            linea.abierta = RelojDeLinea::now() + 2 * mitad;
            ++cuenta.conexiones;
            ++cuenta.viajes;
            lineas.push_back(std::move(linea));
        }
    }

    /// How much of `leido` may pass; a cut that falls due is told in `cortar`.
    std::size_t dejarPasar(Linea &linea, std::size_t lado, std::size_t leido, bool &cortar) {
        const bool viaje = lado == 0 && linea.respondida;
        if (corte && corte->medida == Medida::Viajes && viaje && corte->queda-- == 0) {
            cortar = true;
            return 0;
        }
        if (viaje) {
            ++cuenta.viajes;
            linea.respondida = false;
        }
        std::size_t pasa = leido;
        if (corte && corte->medida == (lado == 0 ? Medida::BytesAlServidor : Medida::BytesAlCliente)) {
            cortar = corte->queda <= static_cast<qint64>(leido);
            if (cortar) pasa = static_cast<std::size_t>(corte->queda);
            corte->queda -= static_cast<qint64>(pasa);
        }
        (lado == 0 ? cuenta.bytesAlServidor : cuenta.bytesAlCliente) += static_cast<qint64>(pasa);
        return pasa;
    }

    void Leer(Linea &linea, std::size_t lado) {
        Sentido &sentido = linea.sentido[lado];
        std::string bytes(bocado, '\0');
        const ssize_t leido = recv(linea.lado[lado].numero(), bytes.data(), bytes.size(), MSG_DONTWAIT);
        if (leido < 0) {
            if (errno != EAGAIN && errno != EINTR) cortarLinea(linea, Corte::Rotura);
            return;
        }
        RelojDeLinea::time_point llega = RelojDeLinea::now() + mitad;
        if (lado == 0) llega = std::max(llega, linea.abierta + mitad);
        // A shorter way set meanwhile does not let the later overtake the earlier.
        if (!sentido.enCamino.empty()) llega = std::max(llega, sentido.enCamino.back().llega);
        sentido.terminado = leido == 0;
        bool cortar = false;
        bytes.resize(leido == 0 ? 0 : dejarPasar(linea, lado, static_cast<std::size_t>(leido), cortar));
        if (leido == 0 || !bytes.empty()) {
            sentido.cuanto += bytes.size();
            sentido.enCamino.push_back({cortar ? RelojDeLinea::time_point() : llega, std::move(bytes)});
        }
        if (!cortar) return;
        // What was let pass arrives ahead of the cut.
        for (Sentido::Trozo &trozo : sentido.enCamino) trozo.llega = {};
        Entregar(linea, lado, RelojDeLinea::now());
        const Corte como = corte->como;
        corte.reset();
        for (Linea &otra : lineas) cortarLinea(otra, como);
    }

    /// Passes on what has arrived; the socket may take a part only.
    void Entregar(Linea &linea, std::size_t lado, RelojDeLinea::time_point ahora) {
        Sentido &sentido = linea.sentido[lado];
        const int a = linea.lado[1 - lado].numero();
        while (!sentido.enCamino.empty() && sentido.enCamino.front().llega <= ahora) {
            Sentido::Trozo &trozo = sentido.enCamino.front();
            if (trozo.bytes.empty()) {
                shutdown(a, SHUT_WR);
                sentido.enCamino.pop_front();
                continue;
            }
            const ssize_t ido = send(a, trozo.bytes.data(), trozo.bytes.size(), MSG_DONTWAIT | MSG_NOSIGNAL);
            if (ido < 0) {
                if (errno != EAGAIN && errno != EINTR) cortarLinea(linea, Corte::Rotura);
                return;
            }
            if (lado == 1) linea.respondida = true;
            sentido.cuanto -= static_cast<std::size_t>(ido);
            if (static_cast<std::size_t>(ido) < trozo.bytes.size()) {
                trozo.bytes.erase(0, static_cast<std::size_t>(ido));
                return;
            }
            sentido.enCamino.pop_front();
        }
    }

    /// What the loop waits for, and until when.
    struct Espera {
        struct Punta {
            Linea *linea;
            std::size_t lado;
        };
        std::vector<pollfd> puntas;
        std::vector<Punta> de;  ///< of those behind the first two
        std::optional<RelojDeLinea::time_point> hasta;
    };

    Espera preparar() {
        Espera e;
        e.puntas.push_back({aviso.numero(), POLLIN, 0});
        e.puntas.push_back({oido.numero(), POLLIN, 0});
        const RelojDeLinea::time_point ahora = RelojDeLinea::now();
        for (Linea &linea : lineas) {
            for (std::size_t lado = 0; lado < 2 && !colgado; ++lado) {
                const Sentido &habla = linea.sentido[lado];
                const Sentido &oye = linea.sentido[1 - lado];
                short que = 0;
                if (!habla.terminado && habla.cuanto < enCaminoComoMucho) que |= POLLIN;
                if (!oye.enCamino.empty()) {
                    const RelojDeLinea::time_point llega = oye.enCamino.front().llega;
                    if (llega <= ahora)
                        que |= POLLOUT;
                    else
                        e.hasta = e.hasta ? std::min(*e.hasta, llega) : llega;
                }
                if (que == 0) continue;
                e.puntas.push_back({linea.lado[lado].numero(), que, 0});
                e.de.push_back({&linea, lado});
            }
        }
        return e;
    }

    static void Esperar(Espera &e) {
        timespec cuanto{};
        if (e.hasta) {
            constexpr qint64 nanosPorSegundo = 1'000'000'000;
            const auto falta = *e.hasta - RelojDeLinea::now();
            const qint64 nanos =
                std::max<qint64>(0, std::chrono::duration_cast<std::chrono::nanoseconds>(falta).count());
            cuanto = {nanos / nanosPorSegundo, nanos % nanosPorSegundo};
        }
        (void)ppoll(e.puntas.data(), e.puntas.size(), e.hasta ? &cuanto : nullptr, nullptr);
    }

    void Pasar() {
        // By default the kernel may wake a sleeper 50 microseconds late.
        (void)prctl(PR_SET_TIMERSLACK, 1UL, 0UL, 0UL, 0UL);
        while (!terminar) {
            Espera e = preparar();
            Esperar(e);
            for (std::size_t n = 0; n < e.de.size(); ++n) {
                const auto [linea, lado] = e.de[n];
                const short hay = e.puntas[n + 2].revents;
                if (!linea->cortada && !linea->sentido[lado].terminado &&
                    (hay & (POLLIN | POLLHUP | POLLERR)) != 0)
                    Leer(*linea, lado);
            }
            const RelojDeLinea::time_point ahora = RelojDeLinea::now();
            for (Linea &linea : lineas)
                for (std::size_t lado = 0; lado < 2 && !colgado && !linea.cortada; ++lado)
                    Entregar(linea, lado, ahora);
            lineas.remove_if([](const Linea &linea) {
                const auto callado = [](const Sentido &s) { return s.terminado && s.enCamino.empty(); };
                return linea.cortada || (callado(linea.sentido[0]) && callado(linea.sentido[1]));
            });
            if (e.puntas[1].revents != 0) Aceptar();
            if (e.puntas[0].revents != 0) Atender();
        }
    }
};

Intermediario::Intermediario(double idaYVueltaMs, const QString &palabras)
    : i_(std::make_unique<Interno>(palabras.isEmpty() ? qEnvironmentVariable("ZENDRA_PG") : palabras)) {
    i_->hilo = std::thread([this] { i_->Pasar(); });
    IdaYVuelta(idaYVueltaMs);
}

Intermediario::~Intermediario() {
    i_->Pedir([this] { i_->terminar = true; });
    i_->hilo.join();
}

int Intermediario::puerto() const {
    return i_->puerto;
}

QString Intermediario::palabras() const {
    QStringList todas{u"host=127.0.0.1"_s, u"port=%1"_s.arg(i_->puerto)};
    return (todas << i_->destino.resto).join(u' ');
}

void Intermediario::IdaYVuelta(double ms) {
    const std::chrono::duration<double, std::milli> medio(ms / 2);
    i_->Pedir([&] { i_->mitad = std::chrono::duration_cast<RelojDeLinea::duration>(medio); });
}

Intermediario::Cuenta Intermediario::cuenta() const {
    Cuenta copia;
    i_->Pedir([&] { copia = i_->cuenta; });
    return copia;
}

void Intermediario::PonerEnCero() {
    i_->Pedir([this] { i_->cuenta = {}; });
}

int Intermediario::abiertas() const {
    int cuantas = 0;
    i_->Pedir([&] { cuantas = static_cast<int>(i_->lineas.size()); });
    return cuantas;
}

void Intermediario::Cortar(Corte como) {
    i_->Pedir([&] { i_->CortarTodas(como); });
}

void Intermediario::CortarTras(Medida medida, qint64 cuanto, Corte como) {
    i_->Pedir([&] { i_->corte = Interno::CortePedido{medida, cuanto, como}; });
}

bool Intermediario::cortePendiente() const {
    bool pendiente = false;
    i_->Pedir([&] { pendiente = i_->corte.has_value(); });
    return pendiente;
}

void Intermediario::Rechazar() {
    i_->Pedir([this] { i_->oido.Cerrar(); });
}

void Intermediario::Colgar() {
    i_->Pedir([this] { i_->colgado = true; });
}

void Intermediario::Enmudecer() {
    i_->Pedir([this] {
        noOir(i_->oido);
        for (const Linea &linea : i_->lineas) noOir(linea.lado[0]);
    });
}

void Intermediario::Seguir() {
    i_->Pedir([this] {
        i_->colgado = false;
        i_->corte.reset();
        if (i_->oido.numero() < 0) i_->oido = escuchar(i_->puerto);
        oirDeNuevo(i_->oido);
        for (const Linea &linea : i_->lineas) oirDeNuevo(linea.lado[0]);
    });
}
