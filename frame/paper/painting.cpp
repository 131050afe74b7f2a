#include <QFontMetricsF>
#include <QPainter>

#include "frame/paper/layout.h"
#include "frame/paper/report.h"

using namespace Qt::StringLiterals;

namespace papel {

namespace {

// Greys and the house's colour print well in black too.
constexpr QRgb tintaDePapel = 0xff14181d;
constexpr QRgb grisDePapel = 0xff5b6470;
constexpr QRgb lineaDePapel = 0xffb8bec6;
constexpr QRgb reglaDePapel = 0xff006666;

/// Writes texts, each in the font of its use; a font is made once a page.
struct Pluma {
    QPainter &pintor;

    void escribir(const QFont &fuente, QRgb color, double x, double y, double alto, const QString &texto) {
        if (texto.isEmpty()) return;
        const QFontMetricsF medidas(fuente);
        pintor.setFont(fuente);
        pintor.setPen(QColor::fromRgb(color));
        pintor.drawText(QPointF(x, y + (alto - medidas.height()) / 2 + medidas.ascent()), texto);
    }
    void regla(QRgb color, double puntos, double x1, double x2, double y) {
        pintor.fillRect(QRectF(x1, y - puntos * unidadesPorPunto / 2, x2 - x1, puntos * unidadesPorPunto),
                        QColor::fromRgb(color));
    }
};

void pintarTitulo(Pluma &pluma, const Reporte &reporte, const Traza &t) {
    const double ancho = t.util.width();
    pluma.escribir(FuenteDe(Uso::Titulo), reglaDePapel, t.util.left(), t.titulo, t.subtitulo - t.titulo,
                   Acortado(reporte.titulo, Uso::Titulo, ancho));
    const QFont subtitulo = FuenteDe(Uso::Subtitulo);
    pluma.escribir(subtitulo, grisDePapel, t.util.left(), t.subtitulo, subtitulo.pixelSize() * 1.25,
                   Acortado(reporte.subtitulo, Uso::Subtitulo, ancho));
    pluma.regla(reglaDePapel, 1, t.util.left(), t.util.right(), t.regla);
}

void pintarFicha(Pluma &pluma, const Traza &t) {
    const double mitad = ColumnaDerecha(t);
    double y = t.ficha;
    const QFont rotulo = FuenteDe(Uso::Rotulo);
    const QFont dato = FuenteDe(Uso::Dato);
    for (const FilaDeFicha &fila : t.filas) {
        for (const auto &[x, par] :
             {std::pair(t.util.left(), &fila.izquierda), std::pair(mitad, &fila.derecha)}) {
            pluma.escribir(rotulo, grisDePapel, x, y, t.altoDeFicha, par->first);
            pluma.escribir(dato, tintaDePapel, x + t.anchoDeRotulo, y, t.altoDeFicha, par->second);
        }
        y += t.altoDeFicha;
    }
    if (!t.filas.empty()) pluma.regla(lineaDePapel, 0.5, t.util.left(), t.util.right(), t.reglaDeFicha);
}

void pintarPie(Pluma &pluma, const Reporte &reporte, const Paginado &paginado, const Traza &t,
               std::size_t hoja) {
    pluma.regla(lineaDePapel, 0.5, t.util.left(), t.util.right(), t.pie);
    const QFont fuente = FuenteDe(Uso::Pie);
    const QString hojas = TextoDeHojas(hoja, paginado.hojas.size());
    const double alto = t.util.bottom() - t.pie;
    const double y = t.pie + alto * 0.15;
    pluma.escribir(fuente, grisDePapel, t.util.left(), y, alto * 0.85, PieDe(reporte, paginado, hoja));
    pluma.escribir(fuente, grisDePapel, t.util.right() - QFontMetricsF(fuente).horizontalAdvance(hojas), y,
                   alto * 0.85, hojas);
}

}  // namespace

void PintarHoja(QPainter &pintor, const QRectF &donde, const Reporte &reporte, const Paginado &paginado,
                std::size_t hoja) {
    const Traza t = TrazaDe(reporte, paginado.medida, paginado.letra, hoja == 0);
    pintor.save();
    // A rule thinner than a pixel is pale, and not gone.
    pintor.setRenderHint(QPainter::Antialiasing);
    pintor.translate(donde.topLeft());
    pintor.scale(donde.width() / (paginado.medida.width() * unidadesPorMilimetro),
                 donde.height() / (paginado.medida.height() * unidadesPorMilimetro));
    Pluma pluma{pintor};
    pintarTitulo(pluma, reporte, t);
    pintarFicha(pluma, t);
    const QFont comun = FuenteDe(Uso::Renglon, paginado.letra);
    const QFont negrita = FuenteDe(Uso::RenglonNegrita, paginado.letra);
    double y = t.encabezado;
    for (const QString &linea : reporte.encabezado) {
        pluma.escribir(negrita, tintaDePapel, t.util.left(), y, t.altoDeRenglon, SinControles(linea));
        y += t.altoDeRenglon;
    }
    const Hoja &esta = paginado.hojas.at(hoja);
    for (std::size_t n = esta.desde; n < esta.hasta; ++n) {
        const Renglon &renglon = reporte.renglones[n];
        pluma.escribir(renglon.negrita ? negrita : comun, tintaDePapel, t.util.left(), y, t.altoDeRenglon,
                       SinControles(renglon.texto));
        y += t.altoDeRenglon;
    }
    pintarPie(pluma, reporte, paginado, t, hoja);
    pintor.restore();
}

QRectF LugarDe(const Reporte &reporte, const Paginado &paginado, std::size_t hoja, std::size_t renglon,
               qsizetype desde, qsizetype letras) {
    const Traza t = TrazaDe(reporte, paginado.medida, paginado.letra, hoja == 0);
    const double ancho = AnchoDeLetra(paginado.letra);
    const auto fila = static_cast<double>(renglon - paginado.hojas.at(hoja).desde);
    const QRectF lugar(t.util.left() + ancho * static_cast<double>(desde),
                       t.renglones + t.altoDeRenglon * fila, ancho * static_cast<double>(letras),
                       t.altoDeRenglon);
    return {lugar.topLeft() / unidadesPorMilimetro, lugar.size() / unidadesPorMilimetro};
}

}  // namespace papel
