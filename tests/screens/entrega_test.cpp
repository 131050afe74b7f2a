// A declaration from its arming to its document: by keyboard, by the batch, on both stores, byte for byte.

#include <gtest/gtest.h>

#include <QFile>

#include "assembly/FrmProrKg.h"
#include "frame/ui/Pantalla.h"
#include "header/FrmBultos.h"
#include "liquidation/FrmAdCon.h"
#include "liquidation/FrmVentajas.h"
#include "liquidation/FrmVerItem.h"
#include "operations/FrmDetalleInterno.h"
#include "outputs/FrmTransferencia.h"
#include "outputs/declarationxml.h"
#include "tests/support/claves.h"
#include "tests/support/lote.h"
#include "tests/support/pantallas.h"

using namespace Qt::StringLiterals;

namespace {

class Entrega : public EnPantalla {
 protected:
    void SetUp() override {
        EnPantalla::SetUp();
        ctx->opciones.IVARIN = 21;
        ctx->opciones.IVARNI = 10.5;
        sembrar(*ctx);
        ctx->ajustes.Guardar(u"ZENDRA"_s, u"TRANSFERENCIA"_s, u"CARPETA"_s, tienda->carpeta());
    }
    /// The import of 25 lines; those of its first position come without kilos and count in them. Nothing is
    /// known of its packages.
    static void sembrar(AppContext &donde) {
        // Those linked to articles are the server's alone.
        Ejecutar(donde, u"CATALOGOS"_s, u"delete from articulo_ventaja"_s);
        Ejecutar(donde, u"INTERNOS"_s,
                 u"update subitems set estadistica = '01', valorrelacionestadistica = 0, kgneto = 0 "
                 "where interno = 'IC-2026-0001' and ncm = '8413.70.10.100L'"_s);
        Ejecutar(donde, u"INTERNOS"_s,
                 u"update caratula set dckgneto = 0, factura8 = 'S', factura9 = null, bulnro = null, "
                 "bulcod = null, bultip = null, bulpes = null, buldes = null, marcabul = null, via = null, "
                 "trans = null, bandera = null, cuittrans = null, factura10 = null, venemb = null "
                 "where interno = 'IC-2026-0001'"_s);
    }
    static QByteArray leido(const QString &ruta) {
        QFile f(ruta);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArrayLiteral("<nada>");
    }
    static void teclear(std::initializer_list<int> teclas) {
        for (const int una : teclas) tecla(una);
    }
    QByteArray porTeclado();
    QByteArray porLote() const;
};
EN_AMBOS_STORES(Entrega);

QByteArray Entrega::porTeclado() {
    registro.respuestas.assign(5, true);
    FrmDetalleInterno &tablero = abrir(importacion);
    teclaEn(tablero.ui.cmdITEM, Qt::Key_Space);
    hasta([] { return PantallaAbierta<FrmVerItem>() && Pantalla<FrmVerItem>().ventana->isVisible(); });
    FrmVerItem &items = Pantalla<FrmVerItem>();
    esperarVentana(items.ventana.get());

    // The duty of item 1 is guaranteed, at 20 %, for a reason.
    teclear({Qt::Key_PageDown, Qt::Key_F4});
    conPantallaModal<FrmAdCon>([](FrmAdCon &) {
        tecla(Qt::Key_Return);
        escribir(u"G"_s);
        tecla(Qt::Key_Return);
        escribir(u"20"_s);
        teclear({Qt::Key_Return, Qt::Key_Return, Qt::Key_Return});
        escribir(u"02"_s);
        teclear({Qt::Key_Return, Qt::Key_Return});
    });
    tecla(Qt::Key_Return);
    esperarVentana(items.ventana.get());
    EXPECT_TRUE(ctx->LiquidacionPendiente);
    tecla(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_FALSE(ctx->LiquidacionPendiente);

    // An advantage for all of them.
    tecla(Qt::Key_F3);
    conPantallaModal<FrmVentajas>([](FrmVentajas &) {
        escribir(u"licencia"_s);
        tecla(Qt::Key_Return);
    });
    teclaEn(items.ui.LstVentajas, Qt::Key_Insert);
    esperarVentana(items.ventana.get());

    // The kilos of item 1.
    tecla(Qt::Key_PageDown);
    conPantallaModal<FrmProrKg>([](FrmProrKg &) {
        escribir(u"600"_s);
        teclear({Qt::Key_Return, Qt::Key_Return});
    });
    tecla(Qt::Key_F9);
    esperarVentana(items.ventana.get());
    tecla(Qt::Key_Home, Qt::ControlModifier);
    tecla(Qt::Key_Escape);
    EXPECT_FALSE(PantallaAbierta<FrmVerItem>());
    esperarVentana(tablero.ventana.get());

    conPantallaModal<FrmBultos>([](FrmBultos &p) {
        const std::pair<QLineEdit *, QString> campos[] = {
            {p.ui.TxtNroBultos, u"14"_s}, {p.ui.TxtCodigo, u"05"_s},   {p.ui.TxtTipo, u"B"_s},
            {p.ui.TxtPeso, u"2908,22"_s}, {p.ui.TxtBultDesp, u"14"_s}, {p.ui.TxtMarcaBul, u"S/M 'x'"_s}};
        for (const auto &[campo, texto] : campos) {
            campo->setFocus();
            campo->selectAll();
            escribir(texto);
        }
        tecla(Qt::Key_Escape);
    });
    teclaEn(tablero.ui.CmdBultos, Qt::Key_Space);
    esperarVentana(tablero.ventana.get());

    conPantallaModal<FrmTransferencia>([](FrmTransferencia &) {
        tecla(Qt::Key_F11);
        tecla(Qt::Key_Escape);
    });
    teclaEn(tablero.ui.CmdTransMaria, Qt::Key_Space);
    return leido(tienda->carpeta() + "/IC-2026-0001.xml"_L1);
}

QByteArray Entrega::porLote() const {
    const Tienda otra(QString::fromLatin1(GetParam()), true);
    Registro suyo;
    sembrar(*otra.contexto(suyo));
    const QString carpeta = otra.carpeta();
    const QByteArray donde = carpeta.toUtf8() + '/';
    Escribir(carpeta, u"Prueba.perfil.cfg"_s,
             "[BASESERVER]\r\nINTERNO=" + donde + "\r\nPERSONAL=" + donde + "\r\nNCM=" + donde +
                 "\r\nESTADO=" + donde + "\r\n[BASELOCAL]\r\nUSUARIO=" + donde +
                 "\r\n[GENERAL]\r\nIVARIN=21\r\nIVARNI=10,5\r\n");
    const QString respuestas = Escribir(carpeta, u"respuestas.json"_s, R"(["Si","Si"])");
    const QString documento = carpeta + "/lote.xml"_L1;
    int numero = 0;
    const auto correr = [&](const QStringList &orden) {
        const Corrida c = Lote(carpeta, QStringList{u"--perfil"_s, otra.perfil(), u"--ajustes"_s,
                                                    carpeta + "/lote.ini"_L1, u"--respuestas"_s, respuestas} +
                                            orden);
        EXPECT_EQ(c.estado, 0) << orden.join(u' ').toStdString() << "\n"
                               << c.textos().join(u'\n').toStdString() << c.errores.toStdString();
    };
    const auto cambiar = [&](const QStringList &orden, const char *cambios) {
        correr(orden +
               QStringList{u"--cambios"_s, Escribir(carpeta, u"cambios%1.json"_s.arg(++numero), cambios)});
    };
    correr({u"armar"_s, importacion});
    correr({u"liquidar"_s, importacion});
    cambiar({u"item"_s, importacion, u"1"_s},
            R"({"conceptos":{"modificar":[{"codigo":"010","pgc":"G","porcentaje":20,"motivo":"02"}]}})");
    cambiar({u"item"_s, importacion, u"0"_s}, R"({"ventajas":{"agregar":["LICENCIAAUTOM"]}})");
    cambiar({u"item"_s, importacion, u"1"_s}, R"({"kilos":600})");
    cambiar({u"item"_s, importacion, u"0"_s}, R"({"campos":{}})");
    cambiar({u"bultos"_s, importacion}, R"({"campos":{"bulnro":"14","bulcod":"05","bultip":"B",
             "bulpes":2908.22,"buldes":"14","marcabul":"S/M 'x'"}})");
    correr({u"transferir"_s, importacion, u"--salida"_s, documento});
    return leido(documento);
}

TEST_P(Entrega, TheDocumentIsTheSameByKeyboardAndByBatchAndOnBothStores) {
    const QByteArray documento = porTeclado();
    ASSERT_EQ(registro.mensajes.size(), 2U);
    EXPECT_EQ(registro.mensajes[0].texto, u"Se han encontrado posiciones con LAPI"_s);
    EXPECT_TRUE(registro.mensajes[1].texto.startsWith(u"Se escribió la declaración"_s));
    EXPECT_EQ(DefectoDelDocumento(documento), QString());
    EXPECT_EQ(documento, porLote());
    static QByteArray elOtro;
    if (elOtro.isEmpty())
        elOtro = documento;
    else
        EXPECT_EQ(documento, elOtro);

    const QString texto = QString::fromUtf8(documento);
    // 20 % of the base of 7924.83 by hand, guaranteed.
    EXPECT_TRUE(texto.contains(u"1584.97"_s)) << texto.left(6000).toStdString();
    EXPECT_TRUE(texto.contains(u"S/M 'x'"_s));
    // The operation and its nineteen items.
    EXPECT_EQ(texto.count(u"LICENCIAAUTOM"_s), 20);
    EXPECT_EQ(valor(u"select totalkneto from item where interno = 'IC-2026-0001' and id = 1"_s), u"600"_s);
    EXPECT_EQ(valor(u"select sum(kgneto) from groupsubitems where interno = 'IC-2026-0001' and id = 1"_s),
              u"600"_s);
}

}  // namespace
