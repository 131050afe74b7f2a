// A line added to an operation of five thousand, from the key to ready.

#include "bench/waits/tiempos.h"
#include "tests/screens/subitems_pantalla.h"

using namespace Qt::StringLiterals;

namespace {

class Lineas : public EnLineas {};

TEST_P(Lineas, F11OnFiveThousandLines) {
    ejecutar(
        u"insert into subitems (interno,ncm,idunidad,cantidad,preciounitario,fob,estadistica) "
        "with recursive n(i) as (select 1 union all select i + 1 from n where i < 5000) "
        "select 'OP 1','8413.70.10.100L','07',1,0.5,0.5,'07' from n"_s);
    auto &pantalla = lineas();
    ASSERT_EQ(pantalla.ui.LstArticulos->rowCount(), 5000);
    ctx->opciones.SbtMantDatos = true;
    teclearBomba(pantalla);
    constexpr int veces = 7;
    const double ms = MejorTiempo([] { tecla(Qt::Key_F11); }, veces);
    ASSERT_EQ(cuantas(), 5000 + veces) << ultimoMensaje();
    Informar("a line added to an operation of 5,000", GetParam(), 100, ms);
}

EN_AMBOS_STORES(Lineas);

}  // namespace
