#pragma once
// The entries that a taking and a return make, for the modules that put them together. What writes here runs
// within a transaction of its caller, whose first statement it is: a store that reads first may refuse to
// write after another workstation did.

#include <QString>
#include <vector>

#include "stock/stock.h"

namespace stock {

/// A part of a taking that was judged.
struct Asiento {
    Linea linea;
    double cantidad = 0;
    double factor = 1;
    double descontado = 0;
};

/// Who takes.
struct Tomador {
    QString interno;
    qint64 idlinea = 0;
    int iditem = 0;         ///< 0: not armed yet
    bool paraItem = false;  ///< a cancellation of the item
};

/// Judges parts: what is wrong with them as one sentence, or empty with `asientos` in the order of the
/// stock's lines, one a line.
QString Preparar(AppContext &ctx, const QString &interno, const std::vector<Parte> &partes,
                 std::vector<Asiento> &asientos);
/// What is said of a quantity that rounds to nothing, or is none; empty for one that can be taken.
QString DefectoDeCantidad(const AppContext &ctx, double cantidad);

/// Enters a taking; empty, or the sentence for the one whose balance does not reach any more, and then the
/// caller keeps nothing.
QString AsentarToma(AppContext &ctx, const Tomador &tomador, const std::vector<Asiento> &asientos);
/// Enters the row of descargas of a movement.
void AsentarDescarga(AppContext &ctx, const Movimiento &movimiento, const Linea &linea);
/// Enters returns; how many there were to give back.
int AsentarDevolucion(AppContext &ctx, std::vector<Movimiento> movimientos);
/// The line's mark and value by what it took for itself and still has; the value.
double AsentarMarca(AppContext &ctx, const QString &interno, qint64 idlinea);

}  // namespace stock
