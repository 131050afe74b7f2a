#include "outputs/quotepdf.h"

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
#include <QTextDocument>

#include "frame/paper/replace.h"
#include "outputs/quote.h"
#include "outputs/quotepage.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int puntosDeLaPagina = 96;      ///< the density that a page's pixels are meant for
constexpr int margenDelPresupuesto = 15;  ///< millimetres
constexpr qreal altoDelPie = 24;          ///< pixels below the text, for the number of the page

void pintarPie(QPainter &pintor, const QRectF &hoja, int numero, int paginas) {
    if (paginas == 1) return;
    QFont letra = pintor.font();
    letra.setPointSizeF(8);
    pintor.setFont(letra);
    pintor.setPen(QColor(0x5b, 0x6f, 0x76));
    pintor.drawText(hoja, Qt::AlignRight | Qt::AlignBottom, u"Página %1 de %2"_s.arg(numero).arg(paginas));
}

}  // namespace

QByteArray PresupuestoEnPdf(const QString &pagina, const QString &titulo) {
    QBuffer bytes;
    bytes.open(QIODevice::WriteOnly);
    QPdfWriter pdf(&bytes);
    pdf.setTitle(titulo);
    pdf.setCreator(u"Zendra"_s);
    pdf.setPageSize(QPageSize(QPageSize::A4));
    pdf.setPageMargins(
        QMarginsF(margenDelPresupuesto, margenDelPresupuesto, margenDelPresupuesto, margenDelPresupuesto),
        QPageLayout::Millimeter);
    // Pixels of the page are laid out as in a browser, and scaled to the paper.
    const qreal escala = static_cast<qreal>(pdf.resolution()) / puntosDeLaPagina;
    const QRectF hoja(0, 0, pdf.width() / escala, pdf.height() / escala);

    QTextDocument documento;
    documento.setUseDesignMetrics(true);
    documento.setDocumentMargin(0);
    documento.setMetaInformation(QTextDocument::CssMedia, u"print"_s);
    documento.setHtml(pagina);
    documento.setPageSize(QSizeF(hoja.width(), hoja.height() - altoDelPie));

    QPainter pintor(&pdf);
    pintor.scale(escala, escala);
    const int paginas = documento.pageCount();
    for (int n = 0; n < paginas; ++n) {
        if (n > 0) pdf.newPage();
        const QRectF vista(0, n * documento.pageSize().height(), hoja.width(), documento.pageSize().height());
        pintor.save();
        pintor.translate(0, -vista.top());
        QAbstractTextDocumentLayout::PaintContext contexto;
        contexto.clip = vista;
        contexto.palette.setColor(QPalette::Text, Qt::black);
        pintor.setClipRect(vista);
        documento.documentLayout()->draw(&pintor, contexto);
        pintor.restore();
        pintarPie(pintor, hoja, n + 1, paginas);
    }
    pintor.end();
    return bytes.data();
}

QString EscribirPresupuestoPdf(AppContext &ctx, const Presupuesto &p, const QString &archivo) {
    const QDate hoy = QDate::currentDate();
    const QByteArray pdf = PresupuestoEnPdf(PaginaDelPresupuesto(ctx, p, hoy), u"Presupuesto "_s + p.interno);
    return papel::ReemplazarArchivo(archivo, [&pdf](QIODevice &destino) {
        return destino.write(pdf) == pdf.size() ? QString() : destino.errorString();
    });
}
