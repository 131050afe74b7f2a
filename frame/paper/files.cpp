#include <QIODevice>
#include <QMarginsF>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>

#include "frame/paper/layout.h"
#include "frame/paper/replace.h"
#include "frame/paper/report.h"

using namespace Qt::StringLiterals;

namespace papel {

QString EscribirPdf(const Reporte &reporte, const QString &archivo, const AlAvanzar &alAvanzar) {
    return ReemplazarArchivo(archivo, [&](QIODevice &destino) -> QString {
        const Paginado paginado = Paginar(reporte, MedidaDe(reporte.orientacion));
        QPdfWriter escritor(&destino);
        escritor.setTitle(reporte.subtitulo.isEmpty() ? reporte.titulo
                                                      : reporte.titulo + u" - "_s + reporte.subtitulo);
        escritor.setCreator(u"Zendra"_s);
        escritor.setResolution(static_cast<int>(72 * unidadesPorPunto));
        escritor.setPageLayout(
            {QPageSize(QPageSize::A4),
             reporte.orientacion == Orientacion::Horizontal ? QPageLayout::Landscape : QPageLayout::Portrait,
             {}});
        QPainter pintor;
        if (!pintor.begin(&escritor)) return u"no se pudo armar el PDF; vuelva a intentarlo"_s;
        const QRectF papelEntero(QPointF(), paginado.medida * unidadesPorMilimetro);
        const std::size_t hojas = paginado.hojas.size();
        for (std::size_t hoja = 0; hoja < hojas; ++hoja) {
            if (hoja > 0 && !escritor.newPage()) return u"no se pudo agregar una hoja; revise el disco"_s;
            PintarHoja(pintor, papelEntero, reporte, paginado, hoja);
            if (alAvanzar && !alAvanzar(static_cast<int>(hoja) + 1, static_cast<int>(hojas)))
                return u"se detuvo a su pedido; vuelva a guardarlo cuando quiera"_s;
        }
        pintor.end();
        return {};
    });
}

QString EscribirTexto(const Reporte &reporte, const QString &archivo) {
    return ReemplazarArchivo(archivo, [&](QIODevice &destino) {
        destino.write(TextoDe(reporte).toUtf8());
        return QString();
    });
}

}  // namespace papel
