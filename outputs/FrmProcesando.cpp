#include "outputs/FrmProcesando.h"

#include "frame/ui/ventana.h"

FrmProcesando::FrmProcesando() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
}

bool FrmProcesando::Enviar(Correo &correo) {
    Q_UNUSED(correo)
    ventana->exec();
    return false;
}
