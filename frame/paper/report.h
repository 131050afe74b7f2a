#pragma once
// What leaves the office on paper: lines of text in a monospaced font, and what stands around them on every
// page.

#include <QRectF>
#include <QSizeF>
#include <QString>
#include <QStringList>
#include <functional>
#include <utility>
#include <vector>

class QPainter;

namespace papel {

/// The values are those of the platform's page setup.
enum class Orientacion { Vertical = 1, Horizontal = 2 };

/// A line of a report, printed as it stands.
struct Renglon {
    QString texto;
    bool negrita = false;
    bool hojaNueva = false;       ///< begins a page of paper
    bool conElSiguiente = false;  ///< never the last line of a page, unless a page holds nothing else
};

/// A report: its lines are the truth, the rest is the furniture of its pages.
struct Reporte {
    QString titulo;     ///< on top of every page
    QString subtitulo;  ///< below it: the operation, the filters; empty for none
    QString nombre;     ///< a file's name without its end, for whoever saves it
    Orientacion orientacion = Orientacion::Vertical;
    std::vector<std::pair<QString, QString>> ficha;  ///< labels and their texts, ahead of the first line
    QStringList encabezado;                          ///< lines repeated ahead of the lines of each page
    std::vector<Renglon> renglones;
    QString pie;  ///< left end of the footer; the right one tells the page and how many there are
};

/// The lines of one page: the first one and the one behind the last.
struct Hoja {
    std::size_t desde = 0;
    std::size_t hasta = 0;
};

/// A report cut into pages of a size; at least one page, also without lines.
struct Paginado {
    QSizeF medida;       ///< of the paper, in millimetres, as it lies
    double letra = 0;    ///< size of the font, in points: the widest line fits
    double renglon = 0;  ///< height of a line, in millimetres
    std::vector<Hoja> hojas;
};

/// A4, as the report lies.
QSizeF MedidaDe(Orientacion orientacion);

/// Cuts a report into pages. No line is cut: a page ends ahead of one that does not fit. The font starts at a
/// size that reads well and becomes smaller until the widest line fits; a line that does not fit even in the
/// smallest is printed beyond the margin. Needs fonts (a QGuiApplication).
Paginado Paginar(const Reporte &reporte, const QSizeF &medida);

/// Paints one page into `donde`, whose size may be any: what is painted is scaled to it.
void PintarHoja(QPainter &pintor, const QRectF &donde, const Reporte &reporte, const Paginado &paginado,
                std::size_t hoja);

/// Where some characters of a line stand on its page, in millimetres from the corner of the paper. `renglon`
/// counts in the whole report.
QRectF LugarDe(const Reporte &reporte, const Paginado &paginado, std::size_t hoja, std::size_t renglon,
               qsizetype desde, qsizetype letras);

/// The lines of the page's furniture and its own, as text: what is painted on it, from top to bottom.
QStringList TextoDeHoja(const Reporte &reporte, const Paginado &paginado, std::size_t hoja);

/// The whole report as text, without pages: the title, the heading, the lines; a form feed ahead of each line
/// that begins a page.
QString TextoDe(const Reporte &reporte);

/// Hears how far long work is (pages done, pages in all); false stops it.
using AlAvanzar = std::function<bool(int hechas, int total)>;

/// Writes the report as a PDF with text that can be selected and searched. Empty when it was written, else a
/// sentence that says why not (also when `alAvanzar` stopped it); a file that was there stays as it was then.
QString EscribirPdf(const Reporte &reporte, const QString &archivo, const AlAvanzar &alAvanzar = {});
/// Writes the report as UTF-8 text. Empty when it was written, else a sentence that says why not.
QString EscribirTexto(const Reporte &reporte, const QString &archivo);

}  // namespace papel
