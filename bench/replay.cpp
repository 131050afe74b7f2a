// What the program adds to the engine's own work: an operation is assembled and recalculated on the embedded
// store, then the very statements it sent are sent again through SQLite's C interface, on the same starting
// files, and the two times are divided. Both are measured in one run, so the machine's speed drops out.
//
//   bench_replay [--lineas 1000,10000,50000] [--repeticiones 3] [--sentencias 20] [--solo armado|recalculo]
//
// The second ratio is that of the processor's time: it holds on a machine that is busy with something else.
// With --sentencias the statements that took most of the time are listed by their form on standard error.
#include <sqlite3.h>
#include <sys/resource.h>

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QSqlDriver>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <map>
#include <vector>

#include "bench/operacion.h"
#include "frame/startup.h"
#include "upgrade/upgrade.h"

using namespace Qt::StringLiterals;

namespace {

// Five lines a group, four groups an item.
constexpr FormaDeOperacion forma{5, 25};

void copiarCarpeta(const QString &de, const QString &a) {
    QDir().mkpath(a);
    const QStringList archivos = QDir(de).entryList(QDir::Files);
    for (const QString &nombre : archivos) {
        QFile::remove(a + QLatin1Char('/') + nombre);
        QFile::copy(de + QLatin1Char('/') + nombre, a + QLatin1Char('/') + nombre);
    }
}

/// A context on the stores of `carpeta`, started as a program would.
std::unique_ptr<AppContext> abrir(const QString &carpeta) {
    auto ctx = std::make_unique<AppContext>();
    ctx->ajustes = Ajustes(carpeta + u"/ajustes.ini"_s);
    QString error;
    if (!ctx->DataManager.usarPerfil(carpeta + u"/banco.perfil.ini"_s, &error)) terminar(error);
    fijarContexto(ctx.get());
    Arrancar(*ctx);
    ctx->dialogos.mensaje = [](const Mensaje &m) {
        std::fprintf(stderr, "mensaje: %s\n", qPrintable(m.texto));
    };
    return ctx;
}

struct Sentencia {
    QString entidad;
    QByteArray texto;
};

/// Milliseconds by the clock and of the processor; a busy machine stretches the first alone.
struct Tiempo {
    double reloj = 0;
    double procesador = 0;
    void menor(const Tiempo &otro) {
        reloj = std::min(reloj, otro.reloj);
        procesador = std::min(procesador, otro.procesador);
    }
};

double procesador() {
    rusage uso{};
    getrusage(RUSAGE_SELF, &uso);
    const auto ms = [](const timeval &t) {
        return static_cast<double>(t.tv_sec) * 1e3 + static_cast<double>(t.tv_usec) / 1e3;
    };
    return ms(uso.ru_utime) + ms(uso.ru_stime);
}

template <typename Trabajo>
Tiempo cronometrar(Trabajo trabajo) {
    const double antes = procesador();
    QElapsedTimer reloj;
    reloj.start();
    trabajo();
    return {static_cast<double>(reloj.nsecsElapsed()) / 1e6, procesador() - antes};
}

struct Medida {
    Tiempo programa{1e18, 1e18};
    Tiempo motor{1e18, 1e18};
    qint64 sentencias = 0;
    double razon() const { return programa.reloj / motor.reloj; }
    double razonDeProcesador() const { return programa.procesador / motor.procesador; }
};

/// The same statements through the C interface, with the same settings of the run.
Tiempo repetir(AppContext &ctx, const std::vector<Sentencia> &sentencias) {
    std::map<QString, sqlite3 *> motores;
    for (const Sentencia &s : sentencias) {
        if (motores.contains(s.entidad)) continue;
        const QVariant mango = ctx.conexion(s.entidad).coneccion().driver()->handle();
        motores[s.entidad] = *static_cast<sqlite3 *const *>(mango.data());
    }
    return cronometrar([&] {
        const EscrituraLigera ligera(ctx.conexion(u"INTERNOS"_s));
        for (const Sentencia &s : sentencias) {
            sqlite3 *motor = motores.at(s.entidad);
            sqlite3_stmt *preparada = nullptr;
            if (sqlite3_prepare_v2(motor, s.texto.constData(), static_cast<int>(s.texto.size()), &preparada,
                                   nullptr) != SQLITE_OK)
                terminar(QString::fromUtf8(s.texto) + ": "_L1 + QString::fromUtf8(sqlite3_errmsg(motor)));
            int paso = SQLITE_ROW;
            while ((paso = sqlite3_step(preparada)) == SQLITE_ROW) {
                const int columnas = sqlite3_column_count(preparada);
                for (int c = 0; c < columnas; ++c) {
                    switch (sqlite3_column_type(preparada, c)) {
                        case SQLITE_FLOAT:
                            (void)sqlite3_column_double(preparada, c);
                            break;
                        case SQLITE_INTEGER:
                            (void)sqlite3_column_int64(preparada, c);
                            break;
                        case SQLITE_TEXT:
                            (void)sqlite3_column_text(preparada, c);
                            break;
                        default:
                            break;
                    }
                }
            }
            if (paso != SQLITE_DONE)
                terminar(QString::fromUtf8(s.texto) + ": "_L1 + QString::fromUtf8(sqlite3_errmsg(motor)));
            sqlite3_finalize(preparada);
        }
    });
}

double memoriaMaximaMB() {
    rusage uso{};
    getrusage(RUSAGE_SELF, &uso);
    return static_cast<double>(uso.ru_maxrss) / 1024;
}

/// The statements of one form: numbers and texts left out.
struct Forma {
    qint64 microsegundos = 0;
    qint64 veces = 0;
    qint64 filas = 0;
};

void listar(const std::map<QString, Forma> &formas, int cuantas) {
    std::vector<std::pair<QString, Forma>> orden(formas.begin(), formas.end());
    std::sort(orden.begin(), orden.end(),
              [](const auto &a, const auto &b) { return a.second.microsegundos > b.second.microsegundos; });
    for (std::size_t n = 0; n < orden.size() && static_cast<int>(n) < cuantas; ++n)
        std::fprintf(stderr, "%9.1f ms %7lld times %8lld rows  %s\n",
                     static_cast<double>(orden[n].second.microsegundos) / 1000,
                     static_cast<long long>(orden[n].second.veces),
                     static_cast<long long>(orden[n].second.filas), qPrintable(orden[n].first.left(200)));
}

/// Measures `trabajo` on a copy of `semilla` and the engine on another copy, in turns, so that a machine busy
/// with something else is busy for both. The best of the repetitions of each.
Medida medir(const QString &semilla, const QString &banco, int repeticiones, int sentenciasListadas,
             const std::function<void(AppContext &)> &trabajo) {
    Medida m;
    std::vector<Sentencia> sentencias;
    std::map<QString, Forma> formas;
    copiarCarpeta(semilla, banco);
    {
        auto ctx = abrir(banco);
        Conexion::fijarTraza([&](const TrazaDeSentencia &t) {
            sentencias.push_back({t.entidad, t.traducida.toUtf8()});
            if (sentenciasListadas <= 0) return;
            Forma &f = formas[formaDe(t.sentencia)];
            f.microsegundos += t.microsegundos;
            f.filas += t.filas;
            ++f.veces;
        });
        trabajo(*ctx);
        Conexion::fijarTraza({});
        fijarContexto(nullptr);
    }
    listar(formas, sentenciasListadas);
    m.sentencias = static_cast<qint64>(sentencias.size());
    for (int r = 0; r < repeticiones; ++r) {
        copiarCarpeta(semilla, banco);
        {
            auto ctx = abrir(banco);
            m.programa.menor(cronometrar([&] { trabajo(*ctx); }));
            fijarContexto(nullptr);
        }
        copiarCarpeta(semilla, banco);
        auto ctx = abrir(banco);
        m.motor.menor(repetir(*ctx, sentencias));
        fijarContexto(nullptr);
    }
    return m;
}

}  // namespace

void informar(const QString &trabajo, const Medida &m) {
    std::printf("| %s | %lld | %.0f | %.0f | %.2f | %.2f | %.0f |\n", qPrintable(trabajo),
                static_cast<long long>(m.sentencias), m.programa.reloj, m.motor.reloj, m.razon(),
                m.razonDeProcesador(), memoriaMaximaMB());
    std::fflush(stdout);
}

int main(int argc, char **argv) {
    QCoreApplication app(argc, argv);
    QStringList lineas{u"1000"_s, u"10000"_s, u"50000"_s};
    int repeticiones = 3;
    int listadas = 0;
    QString solo;
    const QStringList argumentos = QCoreApplication::arguments();
    for (int i = 1; i + 1 < argumentos.size(); i += 2) {
        if (argumentos[i] == "--lineas"_L1) lineas = argumentos[i + 1].split(QLatin1Char(','));
        if (argumentos[i] == "--repeticiones"_L1) repeticiones = argumentos[i + 1].toInt();
        if (argumentos[i] == "--sentencias"_L1) listadas = argumentos[i + 1].toInt();
        if (argumentos[i] == "--solo"_L1) solo = argumentos[i + 1];
    }

    try {
        std::printf(
            "| work | statements | program ms | engine ms | ratio | ratio (processor) "
            "| peak memory MB |\n"
            "|---|---|---|---|---|---|---|\n");
        double diezMil = 0;
        for (const QString &cuantas : lineas) {
            QTemporaryDir carpeta;
            const QString semilla = carpeta.path() + u"/semilla"_s;
            const QString banco = carpeta.path() + u"/banco"_s;
            QDir().mkpath(semilla);
            const QString perfil = semilla + u"/banco.perfil.ini"_s;
            // Relative files: the copy of the folder is a profile of its own.
            if (!StoreProfiles::escribirPerfilDeArchivos(perfil, u"Banco"_s, u"."_s))
                terminar(u"no profile"_s);
            const auto hecho = actualizacion::CargarDemostracion(perfil);
            if (!hecho.ok) terminar(hecho.error);
            {
                auto ctx = abrir(semilla);
                sembrar(*ctx, cuantas.toInt(), forma);
                ctx->DataManager.CloseAllDataConnection();
                fijarContexto(nullptr);
            }
            if (solo != "recalculo"_L1) {
                const Medida armado = medir(semilla, banco, repeticiones, listadas, armar);
                informar(u"assembly, %1 lines"_s.arg(cuantas), armado);
                if (cuantas == "10000"_L1) diezMil = armado.programa.reloj;
                if (cuantas == "50000"_L1 && diezMil > 0)
                    std::printf("| 50,000 lines over 10,000 | | | | %.2f times | | |\n",
                                armado.programa.reloj / diezMil);
            }
            if (solo == "armado"_L1) continue;

            copiarCarpeta(semilla, banco);
            {
                auto ctx = abrir(banco);
                armar(*ctx);
                ctx->DataManager.CloseAllDataConnection();
                fijarContexto(nullptr);
            }
            copiarCarpeta(banco, semilla);
            informar(u"recalculation of those %1 items"_s.arg(itemsDe(cuantas.toInt(), forma)),
                     medir(semilla, banco, repeticiones, listadas, recalcular));
        }
    } catch (const Falla &e) {
        terminar(e.descripcion + "\n"_L1 + e.sentencia);
    }
    return 0;
}
