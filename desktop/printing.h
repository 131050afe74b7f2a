#pragma once
// Reports on their way to a printer.

#include "frame/paper/table.h"

class QPrinter;
class QWidget;

/// Prints the pages that `impresora` is told to (all of them when it is told none), as the report lies, on
/// the paper that it has. Empty when they were sent, else a sentence that says why not; stopped, nothing is
/// printed.
QString ImprimirEn(QPrinter &impresora, const papel::Reporte &reporte,
                   const papel::AlAvanzar &alAvanzar = {});

/// Asks for printer, pages and copies, and prints. False when the user left or nothing was printed, which is
/// told.
bool ImprimirDocumento(const papel::Documento &documento, QWidget *duenio);
