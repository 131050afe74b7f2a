#include "outputs/FrmConceptos.h"

#include "frame/ui/ventana.h"

FrmConceptos::FrmConceptos() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    lista_.Preparar(ventana.get(), ui.LstConceptos, ui.TxtConcepto, ListaDePresupuesto::Conceptos);
}

void FrmConceptos::Cargar() {
    lista_.Cargar();
}

std::optional<QString> FrmConceptos::Elegir() {
    return lista_.Elegir();
}
