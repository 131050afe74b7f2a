#include "frame/ui/iconos.h"

#include <QPainter>
#include <QPainterPath>

#include "frame/ui/estilo.h"

namespace {

/// All pictures are drawn on a square of 24 units.
constexpr int unidades = 24;

QPen pluma(const QColor &color, qreal ancho = 1.8) {
    return {color, ancho, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

void flecha(QPainter &p, bool haciaArriba) {
    p.drawPolyline(QPolygonF{{4, 15}, {4, 20}, {20, 20}, {20, 15}});
    p.drawLine(QPointF(12, 4), QPointF(12, 15));
    const qreal punta = haciaArriba ? 4 : 15;
    const qreal cola = haciaArriba ? 8.5 : 10.5;
    p.drawPolyline(QPolygonF{{7.5, cola}, {12, punta}, {16.5, cola}});
}

void pagina(QPainter &p, const QRectF &r) {
    p.drawRoundedRect(r, 1.5, 1.5);
    const int renglones = static_cast<int>((r.height() - 6.5) / 3.5) + 1;
    for (int n = 0; n < renglones; ++n) {
        const qreal y = r.top() + 4.5 + n * 3.5;
        p.drawLine(QPointF(r.left() + 3, y), QPointF(r.right() - 3, y));
    }
}

void dibujar(QPainter &p, Dibujo dibujo) {
    const QColor tinta = estilo::acento();
    p.setPen(pluma(tinta));
    p.setBrush(Qt::NoBrush);
    switch (dibujo) {
        case Dibujo::Operacion:
            p.setBrush(tinta.lighter(480));
            p.drawPolygon(QPolygonF{{3, 19.5}, {3, 5}, {9.5, 5}, {11.5, 7.5}, {21, 7.5}, {21, 19.5}});
            p.drawLine(QPointF(3, 11), QPointF(21, 11));
            break;
        case Dibujo::Clientes:
            p.drawEllipse(QPointF(9, 8.5), 3.6, 3.6);
            p.drawArc(QRectF(2.5, 14, 13, 13), 0, 180 * 16);
            p.drawArc(QRectF(12.5, 5, 7, 7), -110 * 16, 220 * 16);
            p.drawArc(QRectF(11.5, 14, 10, 13), 10 * 16, 75 * 16);
            break;
        case Dibujo::Nomenclador:
            p.drawPolyline(
                QPolygonF{{12, 6}, {4, 4.5}, {4, 18}, {12, 19.5}, {20, 18}, {20, 4.5}, {12, 6}, {12, 19.5}});
            break;
        case Dibujo::Catalogos:
            for (const qreal y : {6.0, 12.0, 18.0}) {
                p.drawPoint(QPointF(4.5, y));
                p.drawLine(QPointF(8.5, y), QPointF(20, y));
            }
            break;
        case Dibujo::Configuracion:
            for (const auto &[y, x] : {std::pair{6.0, 15.0}, {12.0, 8.0}, {18.0, 16.5}}) {
                p.drawLine(QPointF(3.5, y), QPointF(20.5, y));
                p.setBrush(Qt::white);
                p.drawEllipse(QPointF(x, y), 2.4, 2.4);
            }
            break;
        case Dibujo::Exportar:
            flecha(p, true);
            break;
        case Dibujo::Importar:
            flecha(p, false);
            break;
        case Dibujo::Formulario:
            pagina(p, QRectF(5, 3, 14, 18));
            break;
        case Dibujo::Otros:
            p.drawEllipse(QPointF(12, 12), 8, 8);
            p.drawLine(QPointF(7.5, 12), QPointF(16.5, 12));
            break;
        case Dibujo::Crear:
            p.setPen(pluma(tinta, 2.4));
            p.drawLine(QPointF(12, 5), QPointF(12, 19));
            p.drawLine(QPointF(5, 12), QPointF(19, 12));
            break;
        case Dibujo::Copiar:
            p.drawPolyline(QPolygonF{{15, 4}, {4, 4}, {4, 16}});
            p.drawRoundedRect(QRectF(8, 8, 12, 12), 1.5, 1.5);
            break;
        case Dibujo::Borrar:
            p.setPen(pluma(estilo::falta()));
            p.drawLine(QPointF(4, 6.5), QPointF(20, 6.5));
            p.drawPolyline(QPolygonF{{9, 6.5}, {9, 4}, {15, 4}, {15, 6.5}});
            p.drawPolyline(QPolygonF{{6, 6.5}, {7, 20.5}, {17, 20.5}, {18, 6.5}});
            break;
        case Dibujo::Buscar:
            p.drawEllipse(QPointF(10.5, 10.5), 6, 6);
            p.setPen(pluma(tinta, 2.4));
            p.drawLine(QPointF(15, 15), QPointF(20, 20));
            break;
        case Dibujo::Imprimir:
            p.drawPolyline(QPolygonF{{7, 9}, {7, 3.5}, {17, 3.5}, {17, 9}});
            p.drawRoundedRect(QRectF(3.5, 9, 17, 7.5), 1.5, 1.5);
            p.setBrush(Qt::white);
            p.drawRect(QRectF(7, 14, 10, 6.5));
            break;
        case Dibujo::PasoPendiente:
            p.setPen(pluma(QColor(176, 190, 197)));
            p.drawEllipse(QPointF(12, 12), 8.5, 8.5);
            break;
        case Dibujo::PasoCorriendo:
            p.setPen(pluma(QColor(207, 216, 220), 3));
            p.drawEllipse(QPointF(12, 12), 8, 8);
            p.setPen(pluma(tinta, 3));
            p.drawArc(QRectF(4, 4, 16, 16), 90 * 16, -130 * 16);
            break;
        case Dibujo::PasoHecho:
            p.setPen(Qt::NoPen);
            p.setBrush(estilo::bien());
            p.drawEllipse(QPointF(12, 12), 9.5, 9.5);
            p.setPen(pluma(Qt::white, 2.4));
            p.drawPolyline(QPolygonF{{7.5, 12.5}, {10.8, 15.8}, {16.8, 8.8}});
            break;
    }
}

}  // namespace

QPixmap Imagen(Dibujo dibujo, int lado, qreal escala) {
    QPixmap imagen(qRound(lado * escala), qRound(lado * escala));
    imagen.setDevicePixelRatio(escala);
    imagen.fill(Qt::transparent);
    QPainter p(&imagen);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(static_cast<qreal>(lado) / unidades, static_cast<qreal>(lado) / unidades);
    dibujar(p, dibujo);
    return imagen;
}

namespace {

QPixmap enBlanco(QPixmap imagen) {
    QPainter pintor(&imagen);
    pintor.setCompositionMode(QPainter::CompositionMode_SourceIn);
    pintor.fillRect(imagen.rect(), Qt::white);
    return imagen;
}

}  // namespace

QIcon IconoDe(Dibujo dibujo) {
    QIcon icono;
    for (const int lado : {16, 20, 24, 32})
        for (const qreal escala : {1.0, 2.0, 3.0}) {
            const QPixmap imagen = Imagen(dibujo, lado, escala);
            icono.addPixmap(imagen);
            // The row in hand has the colour that pictures are drawn in.
            icono.addPixmap(enBlanco(imagen), QIcon::Selected);
        }
    return icono;
}
