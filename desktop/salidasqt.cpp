#include "desktop/salidasqt.h"

#include "frame/context.h"
#include "outputs/lists.h"

Salidas SalidasQt() {
    Salidas salidas;
    salidas.lineas = [](const QString &interno, const QString &catalogo) {
        listas::ElegirListaDeLineas(Contexto(), interno, catalogo);
    };
    salidas.bultos = [](const QString &interno) { listas::VerListaDeBultos(Contexto(), interno); };
    return salidas;
}
