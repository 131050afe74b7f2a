#include "outputs/quotepdf.h"

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextTable>
#include <algorithm>
#include <cmath>

#include "frame/paper/replace.h"
#include "outputs/quote.h"
#include "outputs/quotepage.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int puntosDeLaPagina = 96;      ///< the density that a page's pixels are meant for
constexpr int margenDelPresupuesto = 15;  ///< millimetres
constexpr int letraComun = 12;            ///< pixels, of what the sheet of styles leaves without a size
constexpr int letraDelPie = 11;           ///< pixels
constexpr qreal altoDelPie = 24;          ///< pixels below the text, for the number of the page

/// What Qt's reader of HTML would drop: a text straight in a row, which browsers show. A row of nothing would
/// be one of its own height.
QString paraQt(QString pagina) {
    static const QRegularExpression sinCelda(u"<tr([^>]*)>([^<]*)</tr>"_s);
    qsizetype desde = 0;
    for (auto fila = sinCelda.match(pagina); fila.hasMatch(); fila = sinCelda.match(pagina, desde)) {
        const QString texto = fila.captured(2).trimmed();
        const QString nueva =
            texto.isEmpty() ? QString() : "<tr"_L1 + fila.captured(1) + "><td>"_L1 + texto + "</td></tr>"_L1;
        pagina.replace(fila.capturedStart(), fila.capturedLength(), nueva);
        desde = fila.capturedStart() + nueva.size();
    }
    return pagina;
}

/// Points of the sheet of styles as pixels of the page: points would be those of the screen at hand.
QString sinPuntos(const QString &pagina) {
    static const QRegularExpression hojaDeEstilos(u"<style[^>]*>.*?</style>"_s,
                                                  QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression puntos(u"(\\d+(?:\\.\\d+)?)pt\\b"_s);
    constexpr double puntosPorPulgada = 72;
    QString texto;
    qsizetype hasta = 0;
    for (auto hoja = hojaDeEstilos.globalMatch(pagina); hoja.hasNext();) {
        const QRegularExpressionMatch esta = hoja.next();
        texto += pagina.mid(hasta, esta.capturedStart() - hasta);
        hasta = esta.capturedStart();
        for (auto medida = puntos.globalMatch(esta.captured()); medida.hasNext();) {
            const QRegularExpressionMatch una = medida.next();
            const qsizetype comienzo = esta.capturedStart() + una.capturedStart();
            const double pixeles = una.captured(1).toDouble() * puntosDeLaPagina / puntosPorPulgada;
            texto += pagina.mid(hasta, comienzo - hasta) + QString::number(qRound(pixeles)) + "px"_L1;
            hasta = comienzo + una.capturedLength();
        }
    }
    return texto + pagina.mid(hasta);
}

/// Headings in the letter that the sheet of styles gives them; Qt would size them by the desktop's own.
void titulosComoSeDijo(QTextDocument &documento) {
    for (QTextBlock bloque = documento.begin(); bloque.isValid(); bloque = bloque.next()) {
        if (bloque.blockFormat().headingLevel() == 0) continue;
        for (auto i = bloque.begin(); !i.atEnd(); ++i) {
            QTextCharFormat formato = i.fragment().charFormat();
            if (!formato.hasProperty(QTextFormat::FontPixelSize)) continue;
            formato.clearProperty(QTextFormat::FontSizeAdjustment);
            QTextCursor cursor(bloque);
            cursor.setPosition(i.fragment().position());
            cursor.setPosition(i.fragment().position() + i.fragment().length(), QTextCursor::KeepAnchor);
            cursor.setCharFormat(formato);
        }
    }
}

/// The table that follows a heading; null when something else does.
QTextTable *tablaDetras(const QTextDocument &documento, const QTextBlock &titulo) {
    if (titulo.blockFormat().headingLevel() == 0 || !titulo.next().isValid()) return nullptr;
    QTextFrame *marco = documento.frameAt(titulo.next().position());
    while (marco != nullptr && marco->parentFrame() != documento.rootFrame()) marco = marco->parentFrame();
    return qobject_cast<QTextTable *>(marco);
}

/// A heading goes to the next page with its table, unless a good part of the table stands under it.
void partirEnHojas(QTextDocument &documento) {
    constexpr qreal partes = 4;
    const qreal alto = documento.pageSize().height();
    for (QTextBlock titulo = documento.begin(); titulo.isValid(); titulo = titulo.next()) {
        QTextTable *tabla = tablaDetras(documento, titulo);
        if (tabla == nullptr) continue;
        const QAbstractTextDocumentLayout *plano = documento.documentLayout();
        const qreal arriba = plano->blockBoundingRect(titulo).top();
        const QRectF marco = plano->frameBoundingRect(tabla);
        const qreal abajo = std::min(marco.bottom(), marco.top() + alto / partes);
        if (std::floor(arriba / alto) == std::floor(abajo / alto)) continue;
        QTextBlockFormat formato;
        formato.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
        QTextCursor(titulo).mergeBlockFormat(formato);
    }
}

void pintarPie(QPainter &pintor, QFont letra, const QRectF &hoja, int numero, int paginas) {
    if (paginas == 1) return;
    // In pixels of the page: points would be those of the paper, scaled once more.
    letra.setPixelSize(letraDelPie);
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
    QFont letra = documento.defaultFont();
    letra.setPixelSize(letraComun);
    documento.setDefaultFont(letra);
    documento.setDocumentMargin(0);
    documento.setMetaInformation(QTextDocument::CssMedia, u"print"_s);
    documento.setHtml(sinPuntos(paraQt(pagina)));
    titulosComoSeDijo(documento);
    documento.setPageSize(QSizeF(hoja.width(), hoja.height() - altoDelPie));
    partirEnHojas(documento);

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
        pintarPie(pintor, documento.lastBlock().charFormat().font(), hoja, n + 1, paginas);
    }
    pintor.end();
    return bytes.data();
}

QString EscribirPresupuestoPdf(AppContext &ctx, const Presupuesto &p, const QString &archivo) {
    const QDate hoy = QDate::currentDate();
    return papel::ReemplazarArchivo(
        archivo, PresupuestoEnPdf(PaginaDelPresupuesto(ctx, p, hoy), u"Presupuesto "_s + p.interno));
}
