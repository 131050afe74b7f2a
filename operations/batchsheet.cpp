// The sheet of an operation without a screen.

#include <QDir>
#include <QFileInfo>

#include "frame/paper/table.h"
#include "liquidation/itemview.h"
#include "operations/batchwork.h"
#include "outputs/itemsheet.h"

using namespace Qt::StringLiterals;

namespace lote {

namespace {

/// What stands in the way of the sheet, one sentence; empty when nothing does. Asked before the first line is
/// written, so that a long run is not made in vain.
QString defectoDelPedido(const Trabajo &t, const PedidoDeHoja &pedido, const QString &archivo) {
    if (QString defecto = DefectoDeRango(pedido.desde, pedido.hasta); !defecto.isEmpty()) return defecto;
    const QString final = QFileInfo(archivo).suffix().toLower();
    if (final != "pdf"_L1 && final != "txt"_L1)
        return u"La hoja se escribe en un archivo .pdf o .txt, y %1 no termina así; cámbiele el nombre."_s
            .arg(archivo);
    const QStringList items = ItemsDeOperacion(t.ctx, pedido.interno);
    for (const int numero : {pedido.desde, pedido.hasta})
        if (!items.contains(QString::number(numero)))
            return u"La operación %1 no tiene el item %2; sus items van del 0 al %3."_s.arg(
                pedido.interno, QString::number(numero), items.last());
    return {};
}

}  // namespace

int Imprimir(const Trabajo &t) {
    t.resultado[u"impreso"_s] = false;
    const QString archivo = QFileInfo(t.orden.valor("salida")).absoluteFilePath();
    const PedidoDeHoja pedido{t.orden.clave, t.orden.valor("desde").toInt(), t.orden.valor("hasta").toInt(),
                              t.orden.tiene("subitems")};
    const auto rechazar = [&t](const QString &defecto) {
        t.ctx.dialogos.critico(defecto);
        return falla;
    };
    if (const QString defecto = defectoDelPedido(t, pedido, archivo); !defecto.isEmpty())
        return rechazar(defecto);
    const HojaDeOperacion hoja = pr_ImprimirLiq(t.ctx, pedido);
    if (!hoja.hecha) return falla;
    const papel::Reporte &reporte = hoja.documento.reporte;
    if (const QString defecto = papel::Escribir(hoja.documento, archivo); !defecto.isEmpty())
        return rechazar(defecto);
    t.resultado[u"impreso"_s] = true;
    t.resultado[u"archivo"_s] = archivo;
    t.resultado[u"items"_s] = hoja.items;
    t.resultado[u"renglones"_s] = static_cast<int>(reporte.renglones.size());
    t.resultado[u"hojas"_s] =
        static_cast<int>(papel::Paginar(reporte, papel::MedidaDe(reporte.orientacion)).hojas.size());
    return bien;
}

}  // namespace lote
