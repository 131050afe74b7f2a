#pragma once
// Time limits that hold on a machine that others use too.

#include <QElapsedTimer>
#include <algorithm>
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

/// How much slower the sanitizers make what they watch; they look for faults, the limits are for users.
#if defined(__SANITIZE_ADDRESS__)
constexpr double vigilancia = 5;
#else
constexpr double vigilancia = 1;
#endif

/// The best of a few runs of `hacer`, in milliseconds of a machine of our own.
template <class F>
double MejorTiempo(F hacer, int veces = 7) {
    double mejor = 1e9;
    for (int vez = 0; vez < veces; ++vez) {
        const double antes = Apretura();
        QElapsedTimer reloj;
        reloj.start();
        hacer();
        const double ms = static_cast<double>(reloj.nsecsElapsed()) / 1e6;
        // The milder of the two: a squeeze that ended must not excuse what came behind it.
        mejor = std::min(mejor, ms / std::min(antes, Apretura()) / vigilancia);
    }
    return mejor;
}
