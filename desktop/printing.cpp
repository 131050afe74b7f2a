#include "desktop/printing.h"

#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <algorithm>

#include "desktop/ClassPrinterOrientation.h"
#include "desktop/pageprogress.h"
#include "frame/context.h"

using namespace Qt::StringLiterals;

namespace {

const QString tituloDeImpresion = u"Imprimir"_s;

/// The current printer lies as the report does, and as before when the report is out.
class OrientacionDelReporte {
 public:
    explicit OrientacionDelReporte(papel::Orientacion orientacion) {
        habia_ = ClassPrinterOrientation::GetPrinterOrientation(ImpresoraActual(), antes_);
        // Without it printing goes on: the report carries its own.
        bool puesta = false;
        ClassPrinterOrientation::SetPrinterOrientation(static_cast<qint16>(orientacion), puesta);
    }
    ~OrientacionDelReporte() {
        bool puesta = false;
        if (habia_) ClassPrinterOrientation::SetPrinterOrientation(antes_, puesta);
    }
    OrientacionDelReporte(const OrientacionDelReporte &) = delete;
    OrientacionDelReporte &operator=(const OrientacionDelReporte &) = delete;

 private:
    qint16 antes_ = 0;
    bool habia_ = false;
};

QString noSeImprimio(const QPrinter &impresora, const QString &porque) {
    const QString nombre =
        impresora.printerName().isEmpty() ? impresora.outputFileName() : impresora.printerName();
    return u"No se imprimió en %1: %2."_s.arg(nombre, porque);
}

}  // namespace

QString ImprimirEn(QPrinter &impresora, const papel::Reporte &reporte, const papel::AlAvanzar &alAvanzar) {
    const bool acostado = reporte.orientacion == papel::Orientacion::Horizontal;
    impresora.setPageOrientation(acostado ? QPageLayout::Landscape : QPageLayout::Portrait);
    impresora.setFullPage(true);
    impresora.setDocName(reporte.titulo);
    const papel::Paginado paginado =
        papel::Paginar(reporte, impresora.pageLayout().fullRect(QPageLayout::Millimeter).size());
    const int hojas = static_cast<int>(paginado.hojas.size());
    int desde = 1;
    int hasta = hojas;
    if (impresora.printRange() == QPrinter::PageRange && impresora.fromPage() > 0) {
        desde = impresora.fromPage();
        hasta = std::min(hojas, impresora.toPage());
    }
    if (desde > hasta) return noSeImprimio(impresora, u"las hojas van de 1 a %1; elija otras"_s.arg(hojas));
    const int copias = impresora.supportsMultipleCopies() ? 1 : impresora.copyCount();
    const int total = copias * (hasta - desde + 1);
    const bool alReves = impresora.pageOrder() == QPrinter::LastPageFirst;

    QPainter pintor;
    if (!pintor.begin(&impresora))
        return noSeImprimio(impresora, u"la impresora no responde; revise que esté encendida y conectada"_s);
    const QRectF entera = impresora.paperRect(QPrinter::DevicePixel);
    for (int hecha = 0; hecha < total; ++hecha) {
        if (hecha > 0 && !impresora.newPage()) {
            impresora.abort();
            return noSeImprimio(impresora,
                                u"la impresora no tomó la hoja; revise el papel y vuelva a imprimir"_s);
        }
        const int cual = hecha % (hasta - desde + 1);
        papel::PintarHoja(pintor, QRectF(QPointF(), entera.size()), reporte, paginado,
                          static_cast<std::size_t>((alReves ? hasta - cual : desde + cual) - 1));
        if (alAvanzar && !alAvanzar(hecha + 1, total)) {
            impresora.abort();
            return noSeImprimio(impresora, u"se detuvo a su pedido; vuelva a imprimirlo cuando quiera"_s);
        }
    }
    if (!pintor.end() || impresora.printerState() == QPrinter::Error)
        return noSeImprimio(impresora, u"la impresora devolvió un error; revísela y vuelva a imprimir"_s);
    return {};
}

bool ImprimirDocumento(const papel::Documento &documento, QWidget *duenio) {
    const AppContext &ctx = Contexto();
    if (QPrinterInfo::availablePrinterNames().isEmpty()) {
        ctx.dialogos.advertir(
            u"No hay impresoras en este equipo; guarde el documento como PDF, o instale una impresora."_s,
            tituloDeImpresion);
        return false;
    }
    const papel::Reporte &reporte = documento.reporte;
    const OrientacionDelReporte orientacion(reporte.orientacion);
    QPrinter impresora(QPrinterInfo::printerInfo(ImpresoraActual()), QPrinter::HighResolution);
    impresora.setPageSize(QPageSize(QPageSize::A4));
    qint16 lado = 0;
    if (ClassPrinterOrientation::GetPrinterOrientation(impresora.printerName(), lado))
        impresora.setPageOrientation(static_cast<papel::Orientacion>(lado) == papel::Orientacion::Horizontal
                                         ? QPageLayout::Landscape
                                         : QPageLayout::Portrait);
    impresora.setDocName(reporte.titulo);
    const auto hojas =
        static_cast<int>(papel::Paginar(reporte, papel::MedidaDe(reporte.orientacion)).hojas.size());
    {
        QPrintDialog pedido(&impresora, duenio);
        pedido.setWindowTitle(tituloDeImpresion);
        pedido.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintPageRange |
                          QAbstractPrintDialog::PrintShowPageSize | QAbstractPrintDialog::PrintCollateCopies);
        pedido.setMinMax(1, hojas);
        pedido.setFromTo(1, hojas);
        pedido.setPrintRange(QAbstractPrintDialog::AllPages);
        if (pedido.exec() != QDialog::Accepted) return false;
    }
    QString aviso;
    {
        AvanceDeHojas avance(u"Imprimiendo"_s, duenio);
        aviso = ImprimirEn(impresora, reporte,
                           [&avance](int hechas, int total) { return avance.Seguir(hechas, total); });
    }
    if (!aviso.isEmpty()) ctx.dialogos.critico(aviso, tituloDeImpresion);
    return aviso.isEmpty();
}
