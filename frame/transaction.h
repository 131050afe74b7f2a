#pragma once
// Many statements that are kept together or not at all. A run has none: the next one rebuilds what it left
// half done. A file that is loaded has: whoever loads it again must not find half of it there.

#include "frame/store/store.h"

/// The statements of one connection, for its own life: kept by Confirmar, undone without it. One at a time on
/// a connection, and nothing else of that connection in between.
class Transaccion {
 public:
    /// Raises Falla.
    explicit Transaccion(Conexion &conexion);
    /// Undoes what was not confirmed; silent when the store is gone, and its statements with it.
    ~Transaccion();
    /// Raises Falla, and then nothing is kept.
    void Confirmar();
    Transaccion(const Transaccion &) = delete;
    Transaccion &operator=(const Transaccion &) = delete;

 private:
    Conexion &conexion_;
    bool abierta_ = true;
};
