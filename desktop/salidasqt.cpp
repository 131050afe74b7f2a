#include "desktop/salidasqt.h"

#include "frame/context.h"
#include "frame/ui/Pantalla.h"
#include "outputs/FrmPrintItem.h"
#include "outputs/lists.h"

Salidas SalidasQt() {
    Salidas salidas;
    salidas.hoja = [](const QString &interno, const QString &item) {
        Pantalla<FrmPrintItem>().Mostrar(interno, item);
        CerrarPantalla<FrmPrintItem>();
    };
    salidas.lineas = [](const QString &interno, const QString &catalogo) {
        listas::ElegirListaDeLineas(Contexto(), interno, catalogo);
    };
    salidas.catalogo = [](const QString &catalogo) { listas::VerListaDeCatalogo(Contexto(), catalogo); };
    salidas.bultos = [](const QString &interno) { listas::VerListaDeBultos(Contexto(), interno); };
    return salidas;
}
