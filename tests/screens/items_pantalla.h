#pragma once
// The item screen over the armed import of the demonstration: 19 items, 1 to 19, and item 0.

#include <QApplication>

#include "assembly/run.h"
#include "frame/ui/Pantalla.h"
#include "liquidation/FrmVerItem.h"
#include "tests/support/claves.h"
#include "tests/support/pantallas.h"

class EnItems : public EnPantalla {
 protected:
    void SetUp() override {
        EnPantalla::SetUp();
        armarOperacion(importacion);
    }
    void TearDown() override {
        Conexion::fijarTraza({});
        EnPantalla::TearDown();
    }
    void armarOperacion(const QString &interno) {
        ctx->ChequeoArmado = QStringLiteral("SI");
        ASSERT_TRUE(Generar(*ctx, interno, {}));
        registro = {};
        ctx->LiquidacionPendiente = true;
    }
    FrmVerItem &mostrar(const QString &interno = importacion) {
        auto &items = Pantalla<FrmVerItem>();
        items.Mostrar(interno);
        esperarVentana(items.ventana.get());
        return items;
    }
    /// The page of an item of the import, on the sheet of its fields.
    FrmVerItem &mostrarItem(int numero) {
        auto &items = mostrar();
        items.ui.Scr->setValue(numero);
        tecla(Qt::Key_F1);
        return items;
    }
    /// "columns" of an item of the import.
    std::string guardado(const char *columnas, int item) {
        return filas(QStringLiteral("select %1 from item where interno = 'IC-2026-0001' and id = %2")
                         .arg(QLatin1String(columnas))
                         .arg(item))
            .toStdString();
    }
    /// The text of the last message; empty without one.
    std::string ultimoMensaje() const {
        return registro.mensajes.empty() ? std::string() : registro.mensajes.back().texto.toStdString();
    }
    /// `hacer` in the screen T that `abrir` opens over the items, which have the keyboard again afterwards.
    template <class T>
    static void enHija(const std::function<void()> &abrir, const std::function<void(T &)> &hacer) {
        bool vista = false;
        conPantallaModal<T>([&](T &hija) {
            vista = true;
            hacer(hija);
        });
        abrir();
        EXPECT_TRUE(vista) << "it was not opened";
        esperarVentana(Pantalla<FrmVerItem>().ventana.get());
    }
    /// Puts a text in a field by keys.
    static void reemplazar(QLineEdit *campo, const QString &texto) {
        campo->setFocus();
        campo->selectAll();
        tecla(Qt::Key_Delete);
        escribir(texto);
    }
    /// The writes to table item that are sent while `hacer` runs.
    template <class Hacer>
    static QStringList grabaciones(Hacer hacer) {
        QStringList textos;
        Conexion::fijarTraza([&textos](const TrazaDeSentencia &t) {
            if (t.sentencia.startsWith(QLatin1String("update item set naladisa"))) textos << t.sentencia;
        });
        hacer();
        Conexion::fijarTraza({});
        return textos;
    }
};
