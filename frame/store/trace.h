#pragma once
// What a run sent, for those who look closer.

#include <QString>
#include <functional>

/// One statement as the trace sees it.
struct TrazaDeSentencia {
    QString entidad;
    QString sentencia;  ///< as spelled by the module
    QString traducida;  ///< as sent to the engine
    /// Its own time; of statements that travelled together an equal share of the journey each.
    qint64 microsegundos = 0;
    qint64 filas = 0;  ///< rows read or touched
};

/// Called after every statement when set. Process-wide.
inline std::function<void(const TrazaDeSentencia &)> &TrazaDelProceso() {
    static std::function<void(const TrazaDeSentencia &)> actual;
    return actual;
}
