#include "desktop/salidasqt.h"

#include "frame/ui/Pantalla.h"
#include "outputs/FrmPrintItem.h"

Salidas SalidasQt() {
    Salidas salidas;
    salidas.hoja = [](const QString &interno, const QString &item) {
        Pantalla<FrmPrintItem>().Mostrar(interno, item);
        CerrarPantalla<FrmPrintItem>();
    };
    return salidas;
}
