#include "outputs/FrmCorreo.h"

#include "frame/ui/ventana.h"

FrmCorreo::FrmCorreo() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
}

void FrmCorreo::Mostrar() {
    ventana->exec();
}
