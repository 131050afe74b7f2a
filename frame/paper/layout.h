#pragma once
// Where things stand on a page. Lengths are twentieths of a point: fonts have whole sizes there, so that what
// is measured is what every device paints.

#include <QFont>
#include <QRectF>

#include "frame/paper/report.h"

namespace papel {

constexpr double unidadesPorPunto = 20;
constexpr double puntosPorMilimetro = 72 / 25.4;
constexpr double unidadesPorMilimetro = unidadesPorPunto * puntosPorMilimetro;

/// What a piece of text is for.
enum class Uso { Titulo, Subtitulo, Rotulo, Dato, Renglon, RenglonNegrita, Pie };

/// The font of a use; `letra`, in points, counts for lines alone.
QFont FuenteDe(Uso uso, double letra = 0);

/// A line of the record on the first page: one pair that takes it whole, or two side by side. A text that
/// does not fit goes on in rows without a label.
struct FilaDeFicha {
    std::pair<QString, QString> izquierda;
    std::pair<QString, QString> derecha;
};

/// A page's blocks from top to bottom.
struct Traza {
    QRectF util;  ///< within the margins
    double titulo = 0;
    double subtitulo = 0;
    double regla = 0;  ///< the rule under the title
    double ficha = 0;
    double reglaDeFicha = 0;  ///< below zero: none
    double encabezado = 0;
    double renglones = 0;
    double fin = 0;  ///< lines end ahead of it
    double pie = 0;  ///< the rule over the footer
    double altoDeFicha = 0;
    double altoDeRenglon = 0;
    double anchoDeRotulo = 0;
    std::vector<FilaDeFicha> filas;  ///< of the record; on the first page alone
};
Traza TrazaDe(const Reporte &reporte, const QSizeF &medida, double letra, bool primera);

/// Left of the second pair of a line of the record.
double ColumnaDerecha(const Traza &traza);

/// The size of the lines, in points: the widest one fits, unless it does not in the smallest.
double LetraDe(const Reporte &reporte, const QSizeF &medida);
/// The width of a character of the lines.
double AnchoDeLetra(double letra);

/// A text without line ends, tabs and other marks that would move what stands behind them.
QString SinControles(QString texto);
/// A text as it is painted in one line of `ancho`: one that does not fit ends in an ellipsis.
QString Acortado(const QString &texto, Uso uso, double ancho);
/// The right end of the footer.
QString TextoDeHojas(std::size_t hoja, std::size_t hojas);

/// The left one, as wide as the right one lets it.
QString PieDe(const Reporte &reporte, const Paginado &paginado, std::size_t hoja);

}  // namespace papel
