#pragma once
// The input-records library as the tests play it.

#include <QStringList>
#include <set>

#include "subitems/inputslink.h"

/// A library that answers as it is told and remembers what it was asked. It is there as long as the object
/// lives; every link that is made meanwhile speaks to it.
class LibreriaDeInsumos {
 public:
    LibreriaDeInsumos();
    ~LibreriaDeInsumos();
    LibreriaDeInsumos(const LibreriaDeInsumos &) = delete;
    LibreriaDeInsumos &operator=(const LibreriaDeInsumos &) = delete;

    bool conectada = true;
    bool acepta = true;          ///< what it answers to whatever is taken, given back or told
    QString seNiegaA;            ///< the one function that it answers false to
    std::set<qint64> retenidas;  ///< lines whose inputs it does not take back
    double CIFDescontado = 12.75;
    std::optional<insumos::Eleccion> eleccion;  ///< what its list hands over; nothing: it is left
    int enlaces = 0;                            ///< links made
    QStringList llamadas;                       ///< what was asked, "EnviarNroItem 1 5|7"

    /// What was asked of one function, without its name, joined by ";".
    std::string pedidos(const char *funcion) const;
};
