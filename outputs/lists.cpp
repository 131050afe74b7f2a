#include "outputs/lists.h"

#include <QStringList>
#include <algorithm>

#include "forms/certificatelist.h"
#include "forms/valuationsheet.h"
#include "frame/context.h"
#include "outputs/listrows.h"

using namespace Qt::StringLiterals;

namespace listas {

namespace {

const QString listaDeCatalogo = u"catalogo"_s;
const QString listaDeBultos = u"bultos"_s;

/// One of the lists of the lines of an operation.
Lista DeLasLineas(const QString &nombre, const QString &rotulo, decltype(Lista::armar) armar) {
    return {.nombre = nombre,
            .rotulo = rotulo,
            .clave = Clave::Operacion,
            .sinFilas = u"La operación %1 no tiene líneas; cárguelas antes de pedir la lista."_s,
            .armar = armar};
}

}  // namespace

const std::vector<Lista> &Listas() {
    static const std::vector<Lista> todas{
        DeLasLineas(u"lineas"_s, u"Líneas, en hoja vertical"_s, LineasVertical),
        DeLasLineas(u"lineas-horizontal"_s, u"Líneas con todas sus columnas, en hoja horizontal"_s,
                    LineasHorizontal),
        DeLasLineas(u"posiciones"_s, u"Por posición con subtotales, en hoja vertical"_s, PosicionesVertical),
        DeLasLineas(u"posiciones-horizontal"_s,
                    u"Por posición con subtotales y todas sus columnas, en hoja horizontal"_s,
                    PosicionesHorizontal),
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
        {.nombre = u"certificados"_s,
         .clave = Clave::Operacion,
         .sinFilas = u"La operación %1 no tiene certificados de origen; cárguelos antes de pedir la lista."_s,
         .armar = certificados::TablaDeCertificados},
        {.nombre = u"valoracion"_s,
         .clave = Clave::Operacion,
         .sinFilas = u"La operación %1 no tiene hoja de valoración; llénela antes de pedir la lista."_s,
         .armar = valoracion::HojaDeOperacion,
         .hoja = valoracion::PapelDeHoja},
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
