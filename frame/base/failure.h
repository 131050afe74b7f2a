#pragma once
// The one kind of failure.

#include <QString>

/// What a failing statement, a number that cannot be reckoned or a store that cannot be reached raises. It
/// goes up to the handler of the routine that a screen or a program entered by, which shows `descripcion` and
/// leaves.
struct Falla {
    /// `numero` of a store that cannot be reached, or that went away.
    static constexpr int sinStore = -1;

    int numero =
        0;  ///< the engine's code, or the platform's for arithmetic (6 overflow, 11 division by zero)
    QString fuente;       ///< the entity of the store, or the routine
    QString descripcion;  ///< the engine's own words, or one Spanish sentence for the user
    QString sentencia;    ///< the statement as the module spelled it; empty when there was none
};
