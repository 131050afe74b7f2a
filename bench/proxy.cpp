// A far server for a look by hand: listens on the loopback address, delays what passes, tells what passed.
//
//   bench_proxy [--ida-y-vuelta 20]      (ZENDRA_PG says the server: "host=… port=… user=…")
//
// Prints the words that ZENDRA_PG has to say to reach the server through it; every line on its standard input
// prints the counts since the line before; the end of it ends the program.
#include <QCoreApplication>
#include <cstdio>
#include <exception>
#include <iostream>
#include <string>

#include "tests/support/intermediario.h"

using namespace Qt::StringLiterals;

int main(int argc, char **argv) {
    const QCoreApplication app(argc, argv);
    double milisegundos = 0;
    const QStringList argumentos = QCoreApplication::arguments();
    for (int i = 1; i + 1 < argumentos.size(); i += 2)
        if (argumentos[i] == "--ida-y-vuelta"_L1) milisegundos = argumentos[i + 1].toDouble();
    try {
        Intermediario linea(milisegundos);
        std::printf("%s\n", qPrintable(linea.palabras()));
        std::fflush(stdout);
        for (std::string orden; std::getline(std::cin, orden);) {
            const auto cuenta = linea.cuenta();
            linea.PonerEnCero();
            std::printf("%lld round trips, %lld bytes there, %lld back, %lld connections\n",
                        static_cast<long long>(cuenta.viajes), static_cast<long long>(cuenta.bytesAlServidor),
                        static_cast<long long>(cuenta.bytesAlCliente),
                        static_cast<long long>(cuenta.conexiones));
            std::fflush(stdout);
        }
    } catch (const std::exception &e) {
        std::fprintf(stderr, "%s\n", e.what());
        return 1;
    }
    return 0;
}
