#pragma once
// Sheets of operations that are written by hand, as CSV: casos/NAME holds the rows, what its sheet says, and
// the arithmetic (cuenta.txt).

#include "outputs/itemsheet.h"
#include "tests/support/tienda.h"

class HojaDePrueba : public EnAmbosStores {
 protected:
    void SetUp() override;

    /// Puts a case into the store; its key is its name in capitals, which is answered.
    QString cargar(const QString &caso);
    /// The sheet of the operation in hand.
    HojaDeOperacion imprimir(int desde, int hasta, bool subitems = false,
                             const AlImprimirItem &alImprimir = {}) {
        return pr_ImprimirLiq(*ctx, {interno, desde, hasta, subitems}, alImprimir);
    }
    /// The lines as casos/NAME/hoja.txt has them: "===" ahead of each page, each line closed by a bar, so
    /// that its blanks are seen.
    static std::string comoTexto(const HojaDeOperacion &hoja);
    static QStringList lineasDe(const HojaDeOperacion &hoja);
    static std::string leer(const QString &caso, const char *archivo);

    QString interno;
};
