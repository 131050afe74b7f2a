#pragma once
// An operation whose header is keyed.

#include "header/fieldrules.h"
#include "header/invoices.h"
#include "header/record.h"
#include "header/visibility.h"
#include "tests/support/tienda.h"

class Caratulas : public EnAmbosStores {
 protected:
    void SetUp() override;

    /// Types a text into a field and presses ENTER, as the screen does.
    Veredicto teclear(const char *control, const QString &texto);
    /// A header that passes every check under the regime in hand: parties, sale condition, three amounts in
    /// dollars, one invoice.
    void llenar(const QString &regimen);
    /// ESC.
    SalidaDeCaratula esc() { return GuardarCaratula(*ctx, c); }
    std::string guardado(const QString &columnas);
    std::string ultimoMensaje() const;
    bool visible(const char *control) const { return c[control].visible; }
    std::string texto(const char *control) const { return c.texto(control).toStdString(); }

    Caratula c;
    const QString interno = QStringLiteral("OP 1");
};
