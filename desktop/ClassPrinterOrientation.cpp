#include "desktop/ClassPrinterOrientation.h"

#include <QPrinter>
#include <QPrinterInfo>
#include <map>

#include "frame/context.h"

namespace {

/// What was set in this process, by printer.
std::map<QString, qint16> &orientacionesPuestas() {
    static std::map<QString, qint16> puestas;
    return puestas;
}

constexpr qint16 ladoVertical = static_cast<qint16>(papel::Orientacion::Vertical);
constexpr qint16 ladoHorizontal = static_cast<qint16>(papel::Orientacion::Horizontal);

}  // namespace

QString ImpresoraActual() {
    const QString &elegida = Contexto().opciones.DEVICENAME;
    return QPrinterInfo::availablePrinterNames().contains(elegida) ? elegida
                                                                   : QPrinterInfo::defaultPrinterName();
}

void ClassPrinterOrientation::SetPrinterOrientation(qint16 orientacion, bool &resultado) {
    const QString impresora = ImpresoraActual();
    resultado = !impresora.isEmpty() && (orientacion == ladoVertical || orientacion == ladoHorizontal);
    if (resultado) orientacionesPuestas()[impresora] = orientacion;
}

bool ClassPrinterOrientation::GetPrinterOrientation(const QString &impresora, qint16 &orientacion) {
    const QPrinterInfo info = QPrinterInfo::printerInfo(impresora);
    if (info.isNull()) return false;
    const auto puesta = orientacionesPuestas().find(impresora);
    if (puesta != orientacionesPuestas().end()) {
        orientacion = puesta->second;
        return true;
    }
    const QPrinter deFabrica(info);
    orientacion =
        deFabrica.pageLayout().orientation() == QPageLayout::Landscape ? ladoHorizontal : ladoVertical;
    return true;
}
