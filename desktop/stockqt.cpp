#include "desktop/stockqt.h"

#include "stock/FrmCancelaciones.h"
#include "stock/FrmTomarInsumos.h"

stock::Pantallas PantallasDeStock() {
    return {TomarInsumos, EnlaceDeCancelaciones()};
}
