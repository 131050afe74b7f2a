#include "outputs/FrmReferencias.h"

#include "frame/ui/ventana.h"

FrmReferencias::FrmReferencias() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    lista_.Preparar(ventana.get(), ui.LstReferencias, ui.TxtRefencia, ListaDePresupuesto::Referencias);
}

void FrmReferencias::Cargar() {
    lista_.Cargar();
}

std::optional<QString> FrmReferencias::Elegir() {
    return lista_.Elegir();
}
