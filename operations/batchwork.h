#pragma once
// What the commands of the batch share: a command is a routine over a Trabajo, and a row of the table in
// batch.cpp.

#include <functional>

#include "operations/batch.h"

namespace lote {

/// What a command works on.
struct Trabajo {
    AppContext &ctx;
    const Orden &orden;
    const EleccionDelTablero &tablero;
    const SalidaDeObjetos &salida;
    QJsonObject &resultado;
};

/// Work on an operation that is held like a dashboard would hold it: locked first, given back on every road.
/// Answers what `hacer` answers, `falla` when another workstation holds it, which was told. Raises Falla.
int ConLaOperacion(const Trabajo &t, const std::function<int()> &hacer);

}  // namespace lote
