#include "subitems/FrmbArticulos.h"

#include "frame/ui/ventana.h"

FrmbArticulos::FrmbArticulos() : ventana(HacerDialogo()) {
    ui.setupUi(ventana.get());
    lista_.Preparar(
        {ventana.get(), ui.lbTituloArticulos, ui.CboCampo, ui.TxtValor, ui.CmdBuscar, ui.Lst, ui.lbCantidad},
        ArticulosConTotal());
}

QString FrmbArticulos::Elegir(const QString &idcatalogo, const QString &buscado) {
    return lista_.Elegir(idcatalogo, buscado);
}
