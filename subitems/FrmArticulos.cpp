#include "subitems/FrmArticulos.h"

#include "frame/context.h"
#include "frame/ui/ventana.h"

FrmArticulos::FrmArticulos() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    lista_.Preparar(
        {ventana.get(), ui.lbTituloArticulos, ui.CboCampo, ui.TxtValor, ui.CmdBuscar, ui.Lst, ui.lbCantidad},
        ArticulosConFecha(), [](const ArticuloElegido &a) { return EliminarArticuloDeLista(Contexto(), a); });
}

QString FrmArticulos::Elegir(const QString &idcatalogo, const QString &buscado) {
    return lista_.Elegir(idcatalogo, buscado);
}
