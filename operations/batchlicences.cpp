// The reports of licences without a screen.

#include <QFileInfo>

#include "operations/batchwork.h"
#include "regulatory/lnapireports.h"

using namespace Qt::StringLiterals;

namespace lote {

namespace {

/// The option that asks for each report.
struct ReportePedido {
    const char *opcion;
    BusquedaDeReporte busqueda;
};
constexpr ReportePedido reportesPedidos[] = {{"catalogo", BusquedaDeReporte::Catalogo},
                                             {"articulo", BusquedaDeReporte::Articulo},
                                             {"posicion", BusquedaDeReporte::Posicion}};

}  // namespace

QString DefectoDePosicionBuscada(const QString &posicion) {
    return posicion.trimmed().size() >= minimoDePosicionBuscada
               ? QString()
               : u"\"%1\" tiene menos de %2 caracteres"_s.arg(posicion,
                                                              QString::number(minimoDePosicionBuscada));
}

QString DefectoDeSalidaDeLicencias(const QString &archivo) {
    static const QStringList clases{u"xls"_s, u"xlsx"_s};
    return clases.contains(QFileInfo(archivo).suffix().toLower())
               ? QString()
               : u"\"%1\" no termina en .xls o .xlsx"_s.arg(archivo);
}

int EscribirLicencias(const Trabajo &t) {
    AppContext &ctx = t.ctx;
    for (const ReportePedido &pedido : reportesPedidos) {
        if (!t.orden.tiene(pedido.opcion)) continue;
        const QString valor = t.orden.valor(pedido.opcion);
        t.resultado[QLatin1String(pedido.opcion)] = valor.trimmed();
        auto articulos = BuscarArticulosDeReporte(ctx, pedido.busqueda, valor);
        if (!articulos) return falla;
        const QString archivo = QFileInfo(t.orden.valor("salida")).absoluteFilePath();
        const ReporteDeLicencias reporte = EscribirReporte(ctx, *articulos, archivo);
        if (!reporte.hecho) {
            ctx.dialogos.critico(reporte.porque);
            return falla;
        }
        t.resultado[u"archivo"_s] = archivo;
        t.resultado[u"articulos"_s] = articulos->cantidad;
        t.resultado[u"filas"_s] = reporte.filas;
    }
    return bien;
}

}  // namespace lote
