#pragma once
// The screen of the header over the demonstration data, by keyboard.

#include <QLineEdit>

#include "header/FrmCaratula.h"
#include "header/automotive.h"
#include "tests/support/claves.h"
#include "tests/support/pantallas.h"

/// The headers of the demonstration data on their screen.
class PantallaDeCaratula : public EnPantalla {
 protected:
    void SetUp() override {
        EnPantalla::SetUp();
        ctx->SeparadorDecimal = u',';
    }
    FrmCaratula &mostrar(const QString &interno = importacion) {
        auto &pantalla = Pantalla<FrmCaratula>();
        pantalla.alCerrar = [this] { ++cierres; };
        pantalla.Mostrar(interno);
        esperarVentana(pantalla.ventana.get());
        return pantalla;
    }
    /// The text typed in place of what the field holds, and ENTER.
    static void teclear(QLineEdit *campo, const QString &texto) {
        campo->setFocus();
        campo->selectAll();
        if (texto.isEmpty())
            tecla(Qt::Key_Delete);
        else
            escribir(texto);
        tecla(Qt::Key_Return);
    }
    QString guardado(const char *columna, const QString &interno = importacion) {
        return valor(QStringLiteral("select %1 from caratula where interno = '%2'")
                         .arg(QLatin1String(columna), interno));
    }
    std::string ultimo() const {
        return registro.mensajes.empty() ? "<ninguno>" : registro.mensajes.back().texto.toStdString();
    }
    /// Whether the operation must be armed again, and its answer to the tariff question: "N/R" when nothing
    /// was marked since `sinMarcas`.
    std::string marcas(const QString &interno = importacion) {
        return (guardado("factura8", interno) + u'/' + LeerAEC(*ctx, interno)).toStdString();
    }
    void sinMarcas(const QString &interno = importacion) {
        ejecutar(QStringLiteral("update caratula set factura8 = 'N' where interno = '%1'").arg(interno));
        GuardarAEC(*ctx, interno, QStringLiteral("R"));
    }
    int cierres = 0;
};
