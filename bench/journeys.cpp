// What the way to a server costs: an operation is armed and recalculated on a server store behind a line of
// a settable length, and what waited is told as milliseconds and as round trips.
//
//   bench_journeys [--lineas 500,5000] [--ms 0,1,20] [--repeticiones 3] [--sentencias 40]
//
// ZENDRA_PG says the server. "straight" is without the line between; 0 ms is through it, so that from there
// on the length alone differs. With --sentencias the forms of statements sent most often, their engine time
// and their round trips are listed on standard error.
#include <QCoreApplication>
#include <QElapsedTimer>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <map>
#include <optional>
#include <vector>

#include "bench/operacion.h"
#include "tests/support/intermediario.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

struct Pedido {
    QStringList lineas{u"500"_s, u"5000"_s};
    QStringList milisegundos{u"0"_s, u"1"_s, u"20"_s};
    int repeticiones = 3;
    int listadas = 0;
};

Pedido leerPedido() {
    Pedido p;
    const QStringList argumentos = QCoreApplication::arguments();
    for (int i = 1; i + 1 < argumentos.size(); i += 2) {
        const QString &valor = argumentos[i + 1];
        if (argumentos[i] == "--lineas"_L1) p.lineas = valor.split(u',');
        if (argumentos[i] == "--ms"_L1) p.milisegundos = valor.split(u',');
        if (argumentos[i] == "--repeticiones"_L1) p.repeticiones = valor.toInt();
        if (argumentos[i] == "--sentencias"_L1) p.listadas = valor.toInt();
    }
    return p;
}

struct Medida {
    double ms = 1e18;
    qint64 viajes = 0;
    qint64 sentencias = 0;
};

/// The statements of one form.
struct Forma {
    qint64 veces = 0;
    qint64 viajes = 0;
    qint64 microsegundos = 0;
};

class Cuaderno {
 public:
    explicit Cuaderno(const Intermediario &linea) : linea_(linea), antes_(linea.cuenta().viajes) {
        Conexion::fijarTraza([this](const TrazaDeSentencia &t) {
            const qint64 ahora = linea_.cuenta().viajes;
            Forma &f = formas_[t.entidad + ": "_L1 + formaDe(t.sentencia.simplified())];
            ++f.veces;
            f.viajes += ahora - antes_;
            f.microsegundos += t.microsegundos;
            antes_ = ahora;
        });
    }
    ~Cuaderno() { Conexion::fijarTraza({}); }
    Cuaderno(const Cuaderno &) = delete;
    Cuaderno &operator=(const Cuaderno &) = delete;

    void Listar(const QString &trabajo, int cuantas) const {
        std::vector<std::pair<QString, Forma>> orden(formas_.begin(), formas_.end());
        std::sort(orden.begin(), orden.end(),
                  [](const auto &a, const auto &b) { return a.second.veces > b.second.veces; });
        std::fprintf(stderr, "\n%s: times, round trips, ms, form\n", qPrintable(trabajo));
        constexpr int ancho = 300;
        for (std::size_t n = 0; n < orden.size() && static_cast<int>(n) < cuantas; ++n)
            std::fprintf(stderr, "%6lld %6lld %9.1f  %s\n", static_cast<long long>(orden[n].second.veces),
                         static_cast<long long>(orden[n].second.viajes),
                         static_cast<double>(orden[n].second.microsegundos) / 1000,
                         qPrintable(orden[n].first.left(ancho)));
    }

 private:
    const Intermediario &linea_;
    qint64 antes_;
    std::map<QString, Forma> formas_;
};

/// One server store with the operation, and the line that leads to it.
class Banco {
 public:
    explicit Banco(int lineas) : tienda_(u"SQL"_s, true) {
        const auto ctx = abrir();
        sembrar(*ctx, lineas, formaSurtida);
        fijarContexto(nullptr);
    }

    /// Through the line, or straight without one; the best of `repeticiones`. The lines to the server are
    /// open ahead of the work, as they are when a user asks for it.
    Medida Medir(const std::function<void(AppContext &)> &trabajo, std::optional<double> ms,
                 int repeticiones) {
        Medida m;
        Intermediario linea(0);
        if (ms) tienda_.PasarPor(linea);
        for (int vez = 0; vez < repeticiones; ++vez) {
            const auto ctx = abrir();
            linea.IdaYVuelta(ms.value_or(0));
            linea.PonerEnCero();
            QElapsedTimer reloj;
            reloj.start();
            trabajo(*ctx);
            m.ms = std::min(m.ms, static_cast<double>(reloj.nsecsElapsed()) / 1e6);
            m.viajes = linea.cuenta().viajes;
            linea.IdaYVuelta(0);
            fijarContexto(nullptr);
        }
        tienda_.IrDerecho();
        return m;
    }

    void Listar(const QString &nombre, const std::function<void(AppContext &)> &trabajo, int cuantas) {
        if (cuantas <= 0) return;
        Intermediario linea(0);
        tienda_.PasarPor(linea);
        {
            const auto ctx = abrir();
            const Cuaderno cuaderno(linea);
            trabajo(*ctx);
            cuaderno.Listar(nombre, cuantas);
            fijarContexto(nullptr);
        }
        tienda_.IrDerecho();
    }

 private:
    std::unique_ptr<AppContext> abrir() {
        registro_ = {};
        auto ctx = tienda_.contexto(registro_);
        fijarContexto(ctx.get());
        for (const char *entidad : {"INTERNOS", "NCM", "PERSONAL", "CATALOGOS", "SYSTABLAS"})
            (void)ctx->conexion(QLatin1String(entidad)).coneccion();
        return ctx;
    }

    Registro registro_;
    Tienda tienda_;
};

void informar(const QString &trabajo, const QString &linea, const Medida &m, double cero) {
    const QString veces = cero > 0 ? QString::number(m.ms / cero, 'f', 2) : QString();
    std::printf("| %s | %s | %.0f | %lld | %s |\n", qPrintable(trabajo), qPrintable(linea), m.ms,
                static_cast<long long>(m.viajes), qPrintable(veces));
    std::fflush(stdout);
}

void medirUno(Banco &banco, const Pedido &p, const QString &nombre,
              const std::function<void(AppContext &)> &trabajo) {
    banco.Listar(nombre, trabajo, p.listadas);
    informar(nombre, u"straight"_s, banco.Medir(trabajo, {}, p.repeticiones), 0);
    double cero = 0;
    for (const QString &ms : p.milisegundos) {
        const Medida m = banco.Medir(trabajo, ms.toDouble(), p.repeticiones);
        if (ms.toDouble() == 0) cero = m.ms;
        informar(nombre, ms + " ms"_L1, m, cero);
    }
}

}  // namespace

int main(int argc, char **argv) {
    const QCoreApplication app(argc, argv);
    const Pedido p = leerPedido();
    try {
        std::printf(
            "| work | round trip | ms | round trips | over 0 ms |\n"
            "|---|---|---|---|---|\n");
        for (const QString &lineas : p.lineas) {
            Banco banco(lineas.toInt());
            const QString items = QString::number(itemsDe(lineas.toInt(), formaSurtida));
            medirUno(banco, p, "assembly of "_L1 + lineas + " lines"_L1, armar);
            medirUno(banco, p, "the same as entered, near prices folded"_L1, armarComoSeCargo);
            medirUno(banco, p, "recalculation of those "_L1 + items + " items"_L1, recalcular);
        }
    } catch (const Falla &e) {
        terminar(e.descripcion + u'\n' + e.sentencia);
    } catch (const std::exception &e) {
        terminar(QString::fromUtf8(e.what()));
    }
    return 0;
}
