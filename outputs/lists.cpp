#include "outputs/lists.h"

#include <QStringList>
#include <algorithm>

#include "frame/context.h"
#include "outputs/listrows.h"

using namespace Qt::StringLiterals;

namespace listas {

namespace {

const QString listaDeCatalogo = u"catalogo"_s;
const QString listaDeBultos = u"bultos"_s;
const QString sinLineas = u"La operación %1 no tiene líneas; cárguelas antes de pedir la lista."_s;

}  // namespace

const std::vector<Lista> &Listas() {
    static const std::vector<Lista> todas{
        {.nombre = u"lineas"_s,
         .rotulo = u"Líneas, en hoja vertical"_s,
         .clave = Clave::Operacion,
         .sinFilas = sinLineas,
         .armar = LineasVertical},
        {.nombre = u"lineas-horizontal"_s,
         .rotulo = u"Líneas con todas sus columnas, en hoja horizontal"_s,
         .clave = Clave::Operacion,
         .sinFilas = sinLineas,
         .armar = LineasHorizontal},
        {.nombre = u"posiciones"_s,
         .rotulo = u"Por posición con subtotales, en hoja vertical"_s,
         .clave = Clave::Operacion,
         .sinFilas = sinLineas,
         .armar = PosicionesVertical},
        {.nombre = u"posiciones-horizontal"_s,
         .rotulo = u"Por posición con subtotales y todas sus columnas, en hoja horizontal"_s,
         .clave = Clave::Operacion,
         .sinFilas = sinLineas,
         .armar = PosicionesHorizontal},
        {.nombre = listaDeCatalogo,
         .rotulo = u"Catálogo de artículos"_s,
         .clave = Clave::Catalogo,
         .sinFilas = u"El catálogo %1 no tiene artículos; revise el código."_s,
         .armar = ArticulosDeCatalogo},
        {.nombre = listaDeBultos,
         .clave = Clave::Operacion,
         .sinFilas = u"La operación %1 no tiene bultos ni transporte; cárguelos antes de pedir la lista."_s,
         .armar = BultosDeOperacion,
         .hoja = FichaDe},
    };
    return todas;
}

const Lista *BuscarLista(const QString &nombre) {
    const std::vector<Lista> &todas = Listas();
    const auto lista =
        std::find_if(todas.begin(), todas.end(), [&nombre](const Lista &l) { return l.nombre == nombre; });
    return lista == todas.end() ? nullptr : &*lista;
}

papel::Documento DocumentoDe(const Lista &lista, const papel::Tabla &tabla, QChar separador) {
    return {lista.hoja(tabla, separador), tabla};
}

QString SinFilas(const Lista &lista, const QString &clave) {
    return QString(lista.sinFilas).replace("%1"_L1, clave);
}

void Ver(AppContext &ctx, const Lista &lista, const papel::Tabla &tabla, const QString &clave) {
    if (tabla.filas.empty())
        ctx.dialogos.informar(SinFilas(lista, clave));
    else
        ctx.dialogos.vistaPrevia(DocumentoDe(lista, tabla, ctx.SeparadorDecimal));
}

void VerLista(AppContext &ctx, const Lista &lista, const QString &clave) {
    papel::Tabla tabla;
    {
        const Reloj reloj(ctx.dialogos);
        tabla = lista.armar(ctx, clave);
    }
    Ver(ctx, lista, tabla, clave);
}

void ElegirListaDeLineas(AppContext &ctx, const QString &interno, const QString &catalogo) {
    struct Ofrecida {
        const Lista *lista;
        QString clave;
    };
    std::vector<Ofrecida> ofrecidas;
    Eleccion eleccion;
    eleccion.titulo = u"Listados de la operación "_s + interno;
    for (const Lista &l : Listas()) {
        const bool deCatalogo = l.clave == Clave::Catalogo;
        if (l.rotulo.isEmpty() || (deCatalogo && catalogo.isEmpty())) continue;
        ofrecidas.push_back({&l, deCatalogo ? catalogo : interno});
        eleccion.filas << (deCatalogo ? l.rotulo + QLatin1Char(' ') + catalogo : l.rotulo);
    }
    const int elegida = ctx.dialogos.elegir(eleccion);
    if (elegida < 0 || elegida >= static_cast<int>(ofrecidas.size())) return;
    const Ofrecida &o = ofrecidas[static_cast<std::size_t>(elegida)];
    VerLista(ctx, *o.lista, o.clave);
}

void VerListaDeCatalogo(AppContext &ctx, const QString &catalogo) {
    VerLista(ctx, *BuscarLista(listaDeCatalogo), catalogo);
}

void VerListaDeBultos(AppContext &ctx, const QString &interno) {
    VerLista(ctx, *BuscarLista(listaDeBultos), interno);
}

}  // namespace listas
