// The transfer's window, by keyboard.

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFile>

#include "assembly/run.h"
#include "frame/ui/Pantalla.h"
#include "liquidation/review.h"
#include "operations/FrmDetalleInterno.h"
#include "outputs/FrmTransferencia.h"
#include "outputs/declarationxml.h"
#include "outputs/handedover.h"
#include "outputs/transfer.h"
#include "tests/support/claves.h"
#include "tests/support/pantallas.h"

using namespace Qt::StringLiterals;

namespace {

class PantallaDeTransferencia : public EnPantalla {
 protected:
    void SetUp() override {
        EnPantalla::SetUp();
        ctx->opciones.IVARIN = 21;
        ctx->opciones.IVARNI = 10.5;
        // Those linked to articles are the server's alone.
        ejecutar(u"delete from articulo_ventaja"_s, u"CATALOGOS"_s);
        armar(importacion);
        ctx->ajustes.Guardar(u"ZENDRA"_s, u"TRANSFERENCIA"_s, u"CARPETA"_s, tienda->carpeta());
    }
    void armar(const QString &interno) {
        ctx->ChequeoArmado = u"SI"_s;
        registro.respuestas.assign(20, true);
        ASSERT_TRUE(Generar(*ctx, interno, {}));
        ctx->LiquidacionPendiente = true;
        ClassLiquidacion calculo(*ctx, interno);
        RecalcularOperacion(*ctx, interno, calculo);
        registro = {};
    }
    void mostrar(const QString &interno, const std::function<void(FrmTransferencia &)> &hacer) {
        conPantallaModal<FrmTransferencia>([&hacer](FrmTransferencia &p) {
            hacer(p);
            tecla(Qt::Key_Escape);
        });
        Pantalla<FrmTransferencia>().Mostrar(interno);
        CerrarPantalla<FrmTransferencia>();
    }
    QString archivo(const char *nombre = "IC-2026-0001.xml") const {
        return tienda->carpeta() + u'/' + QLatin1String(nombre);
    }
    static QByteArray bytesDe(const QString &ruta) {
        QFile f(ruta);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArrayLiteral("<nada>");
    }
    static void escribirEn(const QString &ruta, const QByteArray &bytes) {
        QFile f(ruta);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(bytes);
    }
    /// A row of a grid, its cells joined by "|".
    static std::string fila(const QTableWidget *grilla, int cual) {
        QStringList celdas;
        for (int c = 0; c < grilla->columnCount(); ++c) celdas << grilla->item(cual, c)->text();
        return celdas.join(u'|').toStdString();
    }
};
EN_AMBOS_STORES(PantallaDeTransferencia);

TEST_P(PantallaDeTransferencia, ShowsTheHeaderTheCountsAndTheItemsToCheckByEye) {
    mostrar(importacion, [](FrmTransferencia &p) {
        EXPECT_EQ(p.ventana->windowTitle(), u"Transferencia al MARIA - Operación IC-2026-0001"_s);
        EXPECT_EQ(p.ui.LbSubregimen->text(), u"IC04"_s);
        EXPECT_EQ(p.ui.LbAduana->text(), u"001"_s);
        EXPECT_EQ(p.ui.LbCliente->text(), u"30708123451  HIDRAULICA DEL PLATA S.A."_s);
        EXPECT_EQ(p.ui.LbDespa->text(), u"20167890122  FERREYRA HORACIO DANIEL"_s);
        EXPECT_EQ(p.ui.LbFob->text(), u"35950,00 060"_s);
        EXPECT_EQ(p.ui.LbFlete->text(), u"2350,00 DOL"_s);
        EXPECT_EQ(p.ui.LbSeguro->text(), u"410,00 021"_s);
        EXPECT_FALSE(p.ui.LbNcmMayorFob->isVisible()) << "a DJAI's";
        // 35950 of the header and 420 of a code; duties 22105.85 without the fee of 10 of the operation:
        // 6873.12 + 608.23 + 8292.32 + 3779.07 + 1392.61 + 1160.50.
        EXPECT_EQ(fila(p.ui.GrPartes, 0), "Items|19|36370,00");
        EXPECT_EQ(fila(p.ui.GrPartes, 1), "Subitems|20|");
        EXPECT_EQ(fila(p.ui.GrPartes, 2), "Tributos|104|22105,85");
        EXPECT_EQ(fila(p.ui.GrPartes, 3), "Ventajas|10|");
        EXPECT_EQ(fila(p.ui.GrPartes, 6), "Bultos (kg)|14|2908,22");
        EXPECT_EQ(p.ui.LbAPagar->text(), u"22115,85"_s);
        EXPECT_EQ(p.ui.LbAGarantizar->text(), u"00,00"_s);
        EXPECT_EQ(p.ui.LbACobrar->text(), u"00,00"_s);
        ASSERT_EQ(p.ui.GrItems->rowCount(), 19);
        EXPECT_EQ(p.ui.GrItems->item(0, 0)->text(), u"1"_s);
        EXPECT_EQ(p.ui.LbPie->text(),
                  u"Items  19   ·   Kg netos  2673,20   ·   FOB  36370,00   ·   Flete  2350,00   ·   "
                  "Seguro  410,00   ·   Tributos  22105,85"_s);
        EXPECT_EQ(p.ui.LbAdvertencias->text(), u"Sin advertencias"_s);
        EXPECT_FALSE(p.ui.LstAdvertencias->isEnabled());
        EXPECT_EQ(QApplication::focusWidget(), p.ui.GrItems);
    });
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(PantallaDeTransferencia, F11WritesTheDocumentAndTellsWhereItIs) {
    ctx->ajustes.Guardar(u"ZENDRA"_s, u"TRANSFERENCIA"_s, u"CARPETA"_s, {});
    mostrar(importacion, [this](FrmTransferencia &p) {
        p.ui.TxtArchivo->setFocus();
        escribir(archivo());
        tecla(Qt::Key_F11);
        EXPECT_TRUE(p.ventana->isVisible()) << "ESC leaves";
    });
    const QByteArray escrito = bytesDe(archivo());
    EXPECT_EQ(escrito, DocumentoDe(LeerDeclaracion(*ctx, importacion)));
    EXPECT_EQ(DefectoDelDocumento(escrito), QString());
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto,
              u"Se escribió la declaración en %1 (%2 bytes)."_s.arg(archivo()).arg(escrito.size()));
    EXPECT_EQ(registro.mensajes[0].titulo, u"Transferencia al MARIA"_s);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Informacion);
    EXPECT_EQ(ctx->ajustes.Leer(u"ZENDRA"_s, u"TRANSFERENCIA"_s, u"CARPETA"_s), tienda->carpeta())
        << "the next one starts there";
}

TEST_P(PantallaDeTransferencia, WhatWasWrittenIsRememberedAndWhatWasNotIsNot) {
    escribirEn(archivo(), "anterior");
    mostrar(importacion, [this](FrmTransferencia &p) {
        registro.respuestas.push_back(false);
        tecla(Qt::Key_F11);
        EXPECT_EQ(valor(u"select count(*) as n from transferidas"_s), u"0"_s);
        registro.respuestas.push_back(true);
        tecla(Qt::Key_F11);
        EXPECT_TRUE(p.ventana->isVisible());
    });
    EXPECT_EQ(filas(u"select interno,maquina,archivo,suma from transferidas"_s),
              importacion + u"|PC1|"_s + archivo() + u'|' + SumaDeDocumento(bytesDe(archivo())));
    const auto entrega = EntregaDe(LeerEntregas(*ctx), importacion);
    ASSERT_TRUE(entrega.has_value());
    EXPECT_LT(entrega->fecha.secsTo(QDateTime::currentDateTime()), 60);
    EXPECT_FALSE(CambioDespues(*ctx, importacion, *entrega));
}

TEST_P(PantallaDeTransferencia, TheNameComesFromTheKeyInTheFolderOfTheLastTransfer) {
    ejecutar(u"insert into caratula (interno,idsubreg) values ('Ñ/1','IC04')"_s);
    mostrar(u"Ñ/1"_s, [this](FrmTransferencia &p) {
        EXPECT_EQ(p.ui.TxtArchivo->text(), tienda->carpeta() + u"/Ñ_1.xml"_s);
    });
}

TEST_P(PantallaDeTransferencia, AFileThatIsThereIsAskedAboutWithNoAsTheDefault) {
    escribirEn(archivo(), "anterior");
    mostrar(importacion, [this](FrmTransferencia &p) {
        tecla(Qt::Key_F11);
        EXPECT_EQ(bytesDe(archivo()), "anterior");
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtArchivo);
        EXPECT_EQ(p.ui.TxtArchivo->selectedText(), archivo());
        EXPECT_TRUE(registro.mensajes.empty());
        registro.respuestas = {true};
        tecla(Qt::Key_F11);
    });
    ASSERT_EQ(registro.preguntas.size(), 2U);
    EXPECT_EQ(registro.preguntas[0].texto, u"El archivo %1 ya existe, ¿desea reemplazarlo?"_s.arg(archivo()));
    EXPECT_EQ(registro.preguntas[0].titulo, u"Transferencia al MARIA"_s);
    EXPECT_TRUE(registro.preguntas[0].porDefectoNo);
    EXPECT_TRUE(bytesDe(archivo()).startsWith("<?xml"));
}

TEST_P(PantallaDeTransferencia, F6ChoosesTheFileAndLeavingTheDialogKeepsIt) {
    mostrar(importacion, [this](FrmTransferencia &p) {
        tecla(Qt::Key_F6);
        EXPECT_EQ(p.ui.TxtArchivo->text(), archivo());
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtArchivo);
        registro.archivos = {archivo("otro.xml")};
        tecla(Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.CmdElegir);
        tecla(Qt::Key_Space);
        EXPECT_EQ(p.ui.TxtArchivo->text(), archivo("otro.xml"));
        ASSERT_EQ(registro.pedidos.size(), 2U);
        for (const PedidoDeArchivo &pedido : registro.pedidos) {
            EXPECT_EQ(pedido.titulo, u"Documento de la declaración"_s);
            EXPECT_EQ(pedido.inicial, archivo());
            EXPECT_EQ(pedido.filtros, u"Documentos XML (*.xml)"_s);
        }
        tecla(Qt::Key_F11);
    });
    EXPECT_TRUE(QFile::exists(archivo("otro.xml")));
    EXPECT_FALSE(QFile::exists(archivo()));
}

TEST_P(PantallaDeTransferencia, ANameAloneLiesInTheFolderOfTheLastTransfer) {
    mostrar(importacion, [](FrmTransferencia &p) {
        p.ui.TxtArchivo->setFocus();
        escribir(u"solo.xml"_s);
        tecla(Qt::Key_Return);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.CmdElegir);
        atajo(Qt::Key_E);
    });
    EXPECT_TRUE(QFile::exists(archivo("solo.xml")));
}

TEST_P(PantallaDeTransferencia, WithoutAFileNothingIsWritten) {
    mostrar(importacion, [](FrmTransferencia &p) {
        p.ui.TxtArchivo->clear();
        tecla(Qt::Key_F11);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtArchivo);
    });
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto, u"Indique el archivo donde se escribe la declaración."_s);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Exclamacion);
}

TEST_P(PantallaDeTransferencia, AFolderInThePlaceOfTheFileIsToldAndTheFieldKeepsTheFocus) {
    ASSERT_TRUE(QDir().mkpath(archivo()));
    mostrar(importacion, [](FrmTransferencia &p) {
        tecla(Qt::Key_F11);
        EXPECT_TRUE(p.ventana->isVisible());
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtArchivo);
    });
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Critico);
    EXPECT_TRUE(registro.mensajes[0].texto.contains(u"es una carpeta"_s));
}

TEST_P(PantallaDeTransferencia, WarningsHaveTheFocusAndEnterGoesToTheirItem) {
    ejecutar(u"update item set idpais = '' where interno = 'IC-2026-0001' and id = 7"_s);
    ejecutar(u"update caratula set factura9 = '' where interno = 'IC-2026-0001'"_s);
    mostrar(importacion, [](FrmTransferencia &p) {
        EXPECT_EQ(p.ui.LbAdvertencias->text(), u"2 advertencias"_s);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.LstAdvertencias);
        EXPECT_EQ(p.ui.LstAdvertencias->currentItem()->text(),
                  u"Los bultos no están contestados; complételos en la pantalla de bultos."_s);
        tecla(Qt::Key_Return);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.LstAdvertencias) << "it is of no item";
        tecla(Qt::Key_Down);
        tecla(Qt::Key_Return);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.GrItems);
        EXPECT_EQ(p.ui.GrItems->item(p.ui.GrItems->currentRow(), 0)->text(), u"7"_s);
        tecla(Qt::Key_Return);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtArchivo);
        tecla(Qt::Key_F11);
    });
    EXPECT_TRUE(QFile::exists(archivo())) << "a warning is no refusal";
}

TEST_P(PantallaDeTransferencia, ADjaiTellsTheTermOfItsLargestPosition) {
    armar(djai);
    mostrar(djai, [this](FrmTransferencia &p) {
        EXPECT_TRUE(p.ui.LbNcmMayorFob->isVisible());
        const QByteArray documento = DocumentoDe(LeerDeclaracion(*ctx, djai));
        EXPECT_TRUE(documento.contains("ncmMayorFob=\"" + p.ui.LbNcmMayorFob->text().toUtf8() + '"'));
    });
}

TEST_P(PantallaDeTransferencia, AnOperationThatCannotBeReadIsToldAndShowsNothing) {
    ejecutar(u"drop table itemventaja"_s);
    Pantalla<FrmTransferencia>().Mostrar(importacion);
    EXPECT_FALSE(Pantalla<FrmTransferencia>().ventana->isVisible());
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Critico);
    CerrarPantalla<FrmTransferencia>();
}

TEST_P(PantallaDeTransferencia, TheDashboardOpensItBehindTheCheckAndItsQuestion) {
    FrmDetalleInterno &tablero = abrir(importacion);
    ASSERT_TRUE(tablero.ui.CmdTransMaria->isEnabled());
    bool vista = false;
    conPantallaModal<FrmTransferencia>([&vista](FrmTransferencia &p) {
        vista = true;
        EXPECT_EQ(p.ui.LbInterno->text(), importacion);
        tecla(Qt::Key_F11);
        tecla(Qt::Key_Escape);
    });
    teclaEn(tablero.ui.CmdTransMaria, Qt::Key_Space);
    EXPECT_TRUE(vista);
    EXPECT_TRUE(QFile::exists(archivo()));
    EXPECT_FALSE(PantallaAbierta<FrmTransferencia>());
    esperarVentana(tablero.ventana.get());
    EXPECT_EQ(QApplication::focusWidget(), tablero.ui.CmdTransMaria);
    // Differences are asked about first; No, the default, opens nothing.
    ejecutar(u"update item set idpais = '999' where interno = 'IC-2026-0001' and id = 1"_s);
    teclaEn(tablero.ui.CmdTransMaria, Qt::Key_Space);
    ASSERT_EQ(registro.preguntas.size(), 1U);
    EXPECT_FALSE(PantallaAbierta<FrmTransferencia>());
}

class CapturasDeTransferencia : public PantallaDeTransferencia {};
INSTANTIATE_TEST_SUITE_P(Stores, CapturasDeTransferencia, ::testing::Values("ACCESS"));

TEST_P(CapturasDeTransferencia, TheTransferWithWarningsAndWithout) {
    // A path as an office has it, so that the picture is the same everywhere.
    const auto conRuta = [](FrmTransferencia &p, const QString &clave) {
        p.ui.TxtArchivo->setText(u"/home/operador/Documentos/%1.xml"_s.arg(clave));
        p.ui.TxtArchivo->setCursorPosition(0);
    };
    mostrar(importacion, [&](FrmTransferencia &p) {
        conRuta(p, importacion);
        foto(p.ventana.get(), u"transferencia"_s);
        EXPECT_EQ(ordenDeTab(p.ventana.get()).join(u' '),
                  u"GrItems TxtArchivo CmdElegir CmdEscribir GrPartes"_s);
    });
    armar(temporal);
    mostrar(temporal, [&](FrmTransferencia &p) {
        conRuta(p, temporal);
        foto(p.ventana.get(), u"transferencia-advertencias"_s);
        EXPECT_EQ(ordenDeTab(p.ventana.get()).join(u' '),
                  u"LstAdvertencias GrItems TxtArchivo CmdElegir CmdEscribir GrPartes"_s);
    });
    armar(djai);
    mostrar(djai, [&](FrmTransferencia &p) {
        conRuta(p, djai);
        foto(p.ventana.get(), u"transferencia-djai"_s);
    });
}

}  // namespace
