#include "outputs/itemsheet.h"

#include <QScopeGuard>

#include "frame/base/numbers.h"
#include "frame/base/values.h"
#include "frame/context.h"
#include "frame/entities.h"
#include "header/automotive.h"
#include "outputs/itemsheetlines.h"

using namespace Qt::StringLiterals;

namespace {

const QString tablaDeLineas = u"tabla"_s;

/// The numbers of the items on the sheet, in order; item 0 is the operation's own and needs no row.
std::vector<int> itemsDelRango(Recordset &items, const PedidoDeHoja &pedido) {
    std::vector<int> numeros;
    if (pedido.desde == 0) numeros.push_back(0);
    for (; !items.Eof(); items.MoveNext())
        if (const int id = static_cast<int>(items.Numero(u"id")); id >= pedido.desde && id <= pedido.hasta)
            numeros.push_back(id);
    items.MoveFirst();
    return numeros;
}

/// What the table says, laid out as the run wrote it.
std::vector<papel::Renglon> leerLineas(AppContext &ctx, std::vector<papel::Renglon> marcas) {
    Recordset rs;
    Consultar(ctx, entidad::personal, u"select * from tabla order by idlin"_s, rs);
    std::vector<papel::Renglon> renglones = std::move(marcas);
    renglones.resize(static_cast<std::size_t>(rs.RecordCount()));
    for (papel::Renglon &renglon : renglones) {
        renglon.texto = rs.Texto(u"linea");
        rs.MoveNext();
    }
    return renglones;
}

papel::Reporte reporteDe(CorridaDeHoja &h) {
    papel::Reporte reporte;
    reporte.titulo = u"Zendra Para Windows"_s;
    reporte.subtitulo = u"Hoja de liquidación - Operación "_s + h.interno;
    reporte.nombre = u"Hoja "_s + h.interno;
    reporte.ficha = std::move(h.ficha);
    h.mandarLineas();
    reporte.renglones = leerLineas(h.ctx, std::move(h.marcas));
    reporte.pie = u"Operación "_s + h.interno;
    return reporte;
}

}  // namespace

QString DefectoDeRango(int desde, int hasta) {
    return desde > hasta ? u"El campo DESDE no puede ser mayor que HASTA"_s : QString();
}

HojaDeOperacion pr_ImprimirLiq(AppContext &ctx, const PedidoDeHoja &pedido,
                               const AlImprimirItem &alImprimir) {
    HojaDeOperacion hoja;
    const Reloj reloj(ctx.dialogos);
    // Two concepts ask for a recalculation to be written; nothing was changed here.
    const auto comoEstaba =
        qScopeGuard([&ctx, pendiente = ctx.LiquidacionPendiente] { ctx.LiquidacionPendiente = pendiente; });
    ClassLiquidacion calculo(ctx, pedido.interno);
    if (!CargarCaratulaEnCalculadora(ctx, pedido.interno, calculo, FobDeOperacion::DeSuCaratula)) {
        ctx.dialogos.advertir(u"No se encontro el interno en caratula"_s);
        return hoja;
    }
    ctx.CalculoAEC = LeerAEC(ctx, pedido.interno);
    Recordset items;
    Consultar(
        ctx, entidad::internos,
        "select * from item where interno = "_L1 + EnComillas(pedido.interno) + " and id<>0 order by id"_L1,
        items);
    const std::vector<int> numeros = itemsDelRango(items, pedido);
    AvanceDeHoja avance;
    avance.total = static_cast<int>(numeros.size());
    const auto seguir = [&] { return !alImprimir || alImprimir(avance); };
    CorridaDeHoja h{ctx, pedido.interno, pedido.subitems, calculo, seguir};
    const TablaPropia propia(ctx.conexion(entidad::personal), tablaDeLineas);
    Ejecutar(ctx, entidad::personal, u"delete from tabla"_s);
    for (const int numero : numeros) {
        avance.texto =
            "Item: "_L1 + h.conMascara(numero, u"00") + " de "_L1 + h.conMascara(pedido.hasta, u"00");
        hoja.detenida = !seguir();
        if (!hoja.detenida && numero == 0)
            hoja.detenida = !EscribirPaginaDeOperacion(h);
        else if (!hoja.detenida) {
            while (static_cast<int>(items.Numero(u"id")) != numero) items.MoveNext();
            EscribirPaginaDeItem(h, items);
        }
        if (hoja.detenida) return hoja;
        ++avance.hechos;
    }
    hoja.documento.reporte = reporteDe(h);
    hoja.items = avance.total;
    hoja.hecha = true;
    return hoja;
}
