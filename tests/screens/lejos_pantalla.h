#pragma once
// Screens whose server is at the other end of a line.

#include "tests/screens/subitems_pantalla.h"
#include "tests/support/intermediario.h"

class EnLejos : public EnLineas {
 protected:
    void AlHacerLaTienda() override { tienda->PasarPor(linea); }

    /// The round trips of `hacer`.
    template <class F>
    qint64 viajes(F hacer) {
        linea.PonerEnCero();
        hacer();
        return linea.cuenta().viajes;
    }

    Intermediario linea;
};
/// Files have no line.
#define EN_UN_SERVIDOR(Fixture) \
    INSTANTIATE_TEST_SUITE_P(Stores, Fixture, ::testing::Values("SQL"), [](const auto &) { return "SQL"; })
