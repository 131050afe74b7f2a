#pragma once

#include <QString>

/// The page setup of printers, with the platform's values: 1 portrait, 2 landscape. The print systems of
/// today keep none that a program could change for a report, so what is set here holds for this process, and
/// each report carries its own.
class ClassPrinterOrientation {
 public:
    /// Sets the orientation of the current printer; `resultado` is false when it is not there.
    static void SetPrinterOrientation(qint16 orientacion, bool &resultado);
    /// The present orientation of a printer; false, with nothing changed, when it is not there.
    static bool GetPrinterOrientation(const QString &impresora, qint16 &orientacion);
};

/// The printer that reports go to: the one of the options while it is there, else the system's; empty for
/// none.
QString ImpresoraActual();
