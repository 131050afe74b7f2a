#pragma once
// How long a user waits, told as a row of the table and held against its limit.

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <algorithm>
#include <cstdio>
#include <ctime>

/// How many times slower than alone this process is being served: wall over processor time of a short count.
inline double Apretura() {
    QElapsedTimer reloj;
    reloj.start();
    const std::clock_t desde = std::clock();
    constexpr double segundos = 0.02;
    volatile unsigned cuenta = 0;
    while (std::clock() - desde < segundos * CLOCKS_PER_SEC) cuenta = cuenta + 1;
    const double procesador = static_cast<double>(std::clock() - desde) / CLOCKS_PER_SEC;
    return std::max(1.0, static_cast<double>(reloj.nsecsElapsed()) / 1e9 / procesador);
}

inline void NadaAntes() {}

/// The best of `veces` runs of `hacer`, in milliseconds of a machine of our own; `preparar` comes ahead of
/// each and is not counted. `deEspera` milliseconds of a run are no work of any machine.
template <class F, class P = void (*)()>
double MejorTiempo(F hacer, int veces = 7, P preparar = NadaAntes, double deEspera = 0) {
    double mejor = 1e9;
    for (int vez = 0; vez < veces; ++vez) {
        preparar();
        const double antes = Apretura();
        QElapsedTimer reloj;
        reloj.start();
        hacer();
        const double deTrabajo = static_cast<double>(reloj.nsecsElapsed()) / 1e6 - deEspera;
        // The milder of the two: a squeeze that ended must not excuse what came behind it.
        mejor = std::min(mejor, deEspera + deTrabajo / std::min(antes, Apretura()));
    }
    return mejor;
}

/// Prints "| what | store | under LIMIT ms | MS |"; above the limit the benchmark fails.
inline void Informar(const char *que, const char *store, double limite, double ms) {
    std::printf("| %s | %s | under %g ms | %.3g ms |\n", que, store, limite, ms);
    std::fflush(stdout);
    EXPECT_LT(ms, limite) << que;
}
