// The catalogues of articles without a screen: loaded from a file, listed, and their articles moved.

#include <algorithm>

#include "operations/batchwork.h"
#include "subitems/ArticleStore.h"
#include "subitems/catalogue.h"
#include "subitems/catalogueload.h"

using namespace Qt::StringLiterals;

namespace lote {

namespace {

/// The catalogue as the store spells it, or as it was asked for: one that is not there yet.
QString comoSeEscribe(const Trabajo &t, const QString &catalogo) {
    for (const QString &uno : ArticleStore::Catalogos(t.ctx))
        if (uno.compare(catalogo, Qt::CaseInsensitive) == 0) return uno;
    return catalogo;
}

/// The same for one that has to be there: empty, and told, when it is not.
QString catalogoPresente(const Trabajo &t, const QString &catalogo) {
    if (ArticleStore::ExisteCatalogo(t.ctx, catalogo)) return comoSeEscribe(t, catalogo);
    t.ctx.dialogos.critico(u"El catálogo %1 no tiene artículos; revise el código."_s.arg(catalogo));
    return {};
}

void decirCatalogos(const Trabajo &t) {
    const auto todos = ArticleStore::CatalogosContados(t.ctx);
    for (const ArticleStore::FilaDeCatalogo &c : todos)
        t.salida({{u"tipo"_s, u"catalogo"_s}, {u"catalogo"_s, c.idcatalogo}, {u"articulos"_s, c.articulos}});
    t.resultado[u"cantidad"_s] = static_cast<int>(todos.size());
}

void decirArticulos(const Trabajo &t, const QString &catalogo) {
    const auto todos = ArticleStore::Articulos(t.ctx, catalogo);
    for (const ArticleStore::FilaDeArticulo &a : todos)
        t.salida({{u"tipo"_s, u"articulo"_s},
                  {u"articulo"_s, a.idarticulo},
                  {u"descripcion"_s, a.descripcion},
                  {u"posicion"_s, a.ncm}});
    t.resultado[u"catalogo"_s] = catalogo;
    t.resultado[u"cantidad"_s] = static_cast<int>(todos.size());
}

/// The articles that the order names, or all of the catalogue, as the store spells them; those that are not
/// there are told.
QStringList articulosPorMover(const Trabajo &t, const QString &catalogo, bool &todosEstan) {
    QStringList presentes;
    for (const ArticleStore::FilaDeArticulo &a : ArticleStore::Articulos(t.ctx, catalogo))
        presentes << a.idarticulo;
    todosEstan = true;
    if (!t.orden.tiene("articulo")) return presentes;
    QStringList pedidos;
    for (const QString &codigo : t.orden.opciones.value(u"articulo"_s)) {
        const auto esta = std::find_if(presentes.begin(), presentes.end(), [&codigo](const QString &uno) {
            return uno.compare(codigo.trimmed(), Qt::CaseInsensitive) == 0;
        });
        if (esta == presentes.end()) {
            todosEstan = false;
            t.ctx.dialogos.advertir(
                u"El artículo %1 no está en el catálogo %2; revise el código."_s.arg(codigo, catalogo));
        } else if (!pedidos.contains(*esta)) {
            pedidos << *esta;
        }
    }
    return pedidos;
}

}  // namespace

QString DefectoDeCatalogo(const QString &catalogo) {
    constexpr qsizetype largo = 50;
    return catalogo.size() > largo ? u"el código de un catálogo tiene 50 caracteres como máximo"_s
                                   : QString();
}

int CargarCatalogoDeArchivo(const Trabajo &t) {
    const QString catalogo = t.orden.argumentos.value(0);
    const CargaDeCatalogo carga =
        CargarCatalogo(t.ctx, catalogo, t.orden.argumentos.value(1), t.orden.tiene("reemplazar"));
    t.resultado[u"catalogo"_s] = catalogo;
    if (!carga.ok) {
        t.ctx.dialogos.critico(carga.error);
        return falla;
    }
    for (const QString &aviso : carga.avisos) t.salida({{u"tipo"_s, u"aviso"_s}, {u"texto"_s, aviso}});
    t.resultado[u"agregados"_s] = carga.agregados;
    t.resultado[u"reemplazados"_s] = carga.reemplazados;
    t.resultado[u"iguales"_s] = carga.iguales;
    t.resultado[u"rechazadas"_s] = carga.rechazadas;
    return carga.rechazadas == 0 ? bien : falla;
}

int ListarCatalogos(const Trabajo &t) {
    const QString pedido = t.orden.argumentos.value(0);
    if (pedido.isEmpty()) {
        decirCatalogos(t);
        return bien;
    }
    const QString catalogo = catalogoPresente(t, pedido);
    if (catalogo.isEmpty()) return falla;
    decirArticulos(t, catalogo);
    return bien;
}

int MoverArticulos(const Trabajo &t) {
    const QString catalogo = catalogoPresente(t, t.orden.argumentos.value(0));
    t.resultado[u"movidos"_s] = 0;
    if (catalogo.isEmpty()) return falla;
    bool todosEstan = false;
    const QStringList articulos = articulosPorMover(t, catalogo, todosEstan);
    const int movidos = CambiarCatalogoByArticulosSeleccionados(
        t.ctx, articulos, catalogo, comoSeEscribe(t, t.orden.argumentos.value(1)));
    t.resultado[u"movidos"_s] = movidos;
    return todosEstan && movidos == articulos.size() ? bien : falla;
}

}  // namespace lote
