// The quote by keyboard: its fields, its grids and the forms that they open.

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

#include "header/FrmLstDiv.h"
#include "outputs/FrmConceptos.h"
#include "outputs/FrmDatos.h"
#include "outputs/FrmReferencias.h"
#include "tests/screens/presupuesto_pantalla.h"

using namespace Qt::StringLiterals;

namespace {

class PantallaDelPresupuesto : public EnElPresupuesto {
 protected:
    std::string operativos() {
        return filas(
                   u"select concepto,valorpeso,valordolar from itempresu where interno = 'IC-2026-0001' "
                   "order by concepto"_s)
            .toStdString();
    }
    std::string aCuenta() {
        return valor(u"select factura6 from caratula where interno = 'IC-2026-0001'"_s).toStdString();
    }
    static std::string fila(const QTableWidget *grilla) {
        std::string texto;
        for (int n = 0; n < grilla->columnCount(); ++n)
            texto += (n > 0 ? "|" : "") + enMano(grilla, n).toStdString();
        return texto;
    }
};
EN_AMBOS_STORES(PantallaDelPresupuesto);

TEST_P(PantallaDelPresupuesto, ShowsTheOperationAndStartsOnTheRate) {
    mostrar([](FrmPresupuesto &p) {
        EXPECT_EQ(p.ventana->windowTitle(), u"Presupuesto - Operación IC-2026-0001"_s);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtPase);
        EXPECT_EQ(p.ui.TxtPase->selectedText(), u"1000,000000"_s);
        EXPECT_EQ(p.ui.LbCliente->text(), u"HIDRAULICA DEL PLATA S.A."_s);
        EXPECT_EQ(p.ui.LbDespachante->text(), u"FERREYRA HORACIO DANIEL"_s);
        EXPECT_EQ(p.ui.TxtEmail->text(), u"comex@hidraulicadelplata.test"_s);
        EXPECT_TRUE(p.ui.opSMTP->isChecked());
        EXPECT_EQ(p.ui.CbLineas->currentText(), u"0"_s);
        EXPECT_EQ(p.ui.GrdLiq->rowCount(), 3);
        EXPECT_EQ(fila(p.ui.GrdLiq), "DERECHOS|P|100000,00|100,00");
        EXPECT_EQ(p.ui.LbGastosDespachoPeso->text(), u"100000,00"_s);
        EXPECT_EQ(p.ui.LbGastosDespacho->text(), u"100,00"_s);
        EXPECT_EQ(p.ui.lbTotalGARPes->text(), u"50000,00"_s);
        EXPECT_EQ(p.ui.lbTOTALGARDol->text(), u"50,00"_s);
        EXPECT_EQ(p.ui.lbTOTALCOBPes->text(), u"00,00"_s);
        EXPECT_EQ(p.ui.lbTOTALCOBDol->text(), u"00,00"_s);
        EXPECT_EQ(p.ui.Grd->rowCount(), 0);
        EXPECT_EQ(p.ui.LbGastosOperativos->text(), u"00,00"_s);
        EXPECT_EQ(p.ui.LbTotalGeneral->text(), u"100000,00"_s);
        tecla(Qt::Key_Escape);
    });
    EXPECT_TRUE(registro.mensajes.empty());
}

/// The right edge of a column's texts, and that of what a label shows, both on the screen.
int bordeDe(const QTableWidget *grilla, int columna) {
    constexpr int aireDeCelda = 8;
    const int derecha = grilla->columnViewportPosition(columna) + grilla->columnWidth(columna) - aireDeCelda;
    return grilla->viewport()->mapToGlobal(QPoint(derecha, 0)).x();
}
int bordeDe(const QLabel *etiqueta) {
    return etiqueta->mapToGlobal(QPoint(etiqueta->width(), 0)).x();
}

TEST_P(PantallaDelPresupuesto, NamesOfDutiesAreReadWholeAndSumsStandUnderTheirColumns) {
    ejecutar(u"delete from liqcero"_s);
    for (const char *fila :
         {"'424','IMPUESTO A LAS GANANCIAS',13926.10,'P'", "'010','DERECHOS DE IMPORTACION',68731.20,'P'"})
        ejecutar("insert into liqcero (interno,idconcepto,concepto,valor,pgc) values ('IC-2026-0001',"_L1 +
                 QLatin1String(fila) + ")"_L1);
    registro.textos = {u"HLCUHAM260104417"_s};
    AgregarReferencia(*ctx, u"IC-2026-0001"_s, u"REFERENCIA DEL CLIENTE"_s);
    // The letter of a common desktop.
    const QFont antes = QApplication::font();
    QFont letra = antes;
    letra.setPixelSize(13);
    QApplication::setFont(letra);
    mostrar([](FrmPresupuesto &p) {
        QTableWidget *liq = p.ui.GrdLiq;
        for (int fila = 0; fila < liq->rowCount(); ++fila)
            for (int columna = 0; columna < liq->columnCount(); ++columna) {
                const QTableWidgetItem *celda = liq->item(fila, columna);
                EXPECT_LE(liq->fontMetrics().horizontalAdvance(celda->text()), liq->columnWidth(columna) - 10)
                    << celda->text().toStdString();
            }
        const int valor = p.ui.Grd2->columnWidth(1);
        EXPECT_GT(valor - 10, p.ui.Grd2->fontMetrics().horizontalAdvance(u"HLCUHAM260104417"_s));
        EXPECT_NEAR(bordeDe(p.ui.LbGastosDespacho), bordeDe(liq, 3), 3);
        EXPECT_NEAR(bordeDe(p.ui.LbGastosDespachoPeso), bordeDe(liq, 2), 3);
        EXPECT_NEAR(bordeDe(p.ui.LbGastosOperativosDol), bordeDe(p.ui.Grd, 2), 3);
        EXPECT_NEAR(bordeDe(p.ui.LbGastosOperativos), bordeDe(p.ui.Grd, 1), 3);
        for (const int columna : {1, 2})
            EXPECT_TRUE(p.ui.Grd->horizontalHeaderItem(columna)->textAlignment() & Qt::AlignRight)
                << "headings of amounts stand at the right also over nothing";
        tecla(Qt::Key_Escape);
    });
    QApplication::setFont(antes);
}

TEST_P(PantallaDelPresupuesto, AnAmountHasFifteenCharactersAndAThousandMillionsFitTheScreen) {
    mostrar([](FrmPresupuesto &p) {
        const QString largo(30, u'9');
        for (QLineEdit *campo : {p.ui.TxtPase, p.ui.txtAcuenta}) {
            campo->setFocus();
            campo->selectAll();
            escribir(largo);
            EXPECT_EQ(campo->text().size(), 15);
            campo->setText(u"1500,5"_s);
        }
        p.ui.GrdLiq->setFocus();
        conPantallaModal<FrmDatos>([&largo](FrmDatos &d) {
            escribir(largo);
            EXPECT_EQ(d.ui.TxtValor->text().size(), 15);
            d.ui.TxtValor->selectAll();
            escribir(u"999999999,99"_s);
            tecla(Qt::Key_Return);
        });
        tecla(Qt::Key_Return);
        esperarVentana(p.ventana.get());
        EXPECT_EQ(p.ui.LbGastosDespacho->text(), u"999999999,99"_s);
        EXPECT_LE(p.ventana->width(), 1280);
        tecla(Qt::Key_Escape);
    });
}

TEST_P(PantallaDelPresupuesto, AnOperationThatIsNotThereOpensNothing) {
    Pantalla<FrmPresupuesto>().Mostrar(u"NADA"_s);
    EXPECT_FALSE(Pantalla<FrmPresupuesto>().ventana->isVisible());
    CerrarPantalla<FrmPresupuesto>();
    EXPECT_EQ(ultimo(), "No se encontro interno!");
}

TEST_P(PantallaDelPresupuesto, ANewRateTakesItsMaskAndAllPesosFollow) {
    mostrar([](FrmPresupuesto &p) {
        AgregarGasto(Contexto(), p.ui.LbInterno->text(), u"HONORARIOS"_s, u"10"_s, true);
        escribir(u"2000,5"_s);
        tecla(Qt::Key_Return);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.txtAcuenta);
        EXPECT_EQ(p.ui.TxtPase->text(), u"2000,500000"_s);
        EXPECT_EQ(fila(p.ui.GrdLiq), "DERECHOS|P|200050,00|100,00");
        EXPECT_EQ(p.ui.LbGastosDespachoPeso->text(), u"200050,00"_s);
        EXPECT_EQ(p.ui.LbGastosDespacho->text(), u"100,00"_s);
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(ctx->ajustes.Leer(u"ZENDRA"_s, u"PRESUPUESTO"_s, u"PASE"_s), u"2000.500000"_s);
    mostrar([](FrmPresupuesto &p) {
        EXPECT_EQ(p.ui.TxtPase->text(), u"2000,500000"_s);
        EXPECT_EQ(p.ui.Grd->rowCount(), 1);
        EXPECT_EQ(p.ui.LbGastosOperativosDol->text(), u"10,00"_s);
        EXPECT_EQ(p.ui.LbGastosOperativos->text(), u"00,00"_s) << "what is derived is not added";
        tecla(Qt::Key_Escape);
    });
}

TEST_P(PantallaDelPresupuesto, TheAmountOnAccountIsTakenOffAndKeptByEscape) {
    mostrar([](FrmPresupuesto &p) {
        p.ui.txtAcuenta->setFocus();
        escribir(u"250,5"_s);
        tecla(Qt::Key_Return);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.GrdLiq);
        EXPECT_EQ(p.ui.LbACuenta->text(), u"250,50"_s);
        EXPECT_EQ(p.ui.LbTotalGeneral->text(), u"99749,50"_s);
        EXPECT_EQ(p.ui.LbSubtotal->text(), u"100000,00"_s);
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(aCuenta(), "250.5");
    mostrar([](FrmPresupuesto &p) {
        p.ui.txtAcuenta->setFocus();
        escribir(u"nada"_s);
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(aCuenta(), "0");
    mostrar([](FrmPresupuesto &p) {
        p.ui.txtAcuenta->setFocus();
        escribir(u"7"_s);
        p.ventana->close();
    });
    EXPECT_EQ(aCuenta(), "7") << "also from the window's own button";
}

TEST_P(PantallaDelPresupuesto, EnterOnADutyGivesItAnotherAmount) {
    mostrar([](FrmPresupuesto &p) {
        p.ui.GrdLiq->setFocus();
        conPantallaModal<FrmDatos>([](FrmDatos &d) {
            EXPECT_EQ(d.ui.LbConcepto->text(), u"DERECHOS"_s);
            EXPECT_EQ(d.ui.TxtValor->text(), u"100,00"_s);
            EXPECT_TRUE(d.ui.opDolar->isChecked());
            EXPECT_EQ(QApplication::focusWidget(), d.ui.TxtValor);
            escribir(u"150000"_s);
            // ENTER follows at once, as fast hands type it.
            tecla(Qt::Key_P, Qt::AltModifier);
            EXPECT_TRUE(d.ui.opPeso->isChecked());
            tecla(Qt::Key_Return);
        });
        tecla(Qt::Key_Return);
        esperarVentana(p.ventana.get());
        EXPECT_EQ(fila(p.ui.GrdLiq), "DERECHOS|P|150000,00|150,00");
        EXPECT_EQ(p.ui.LbGastosDespacho->text(), u"150,00"_s);
        EXPECT_EQ(p.ui.LbTotalGeneral->text(), u"150000,00"_s);
        conPantallaModal<FrmDatos>([](FrmDatos &) { tecla(Qt::Key_Escape); });
        tecla(Qt::Key_Return);
        esperarVentana(p.ventana.get());
        EXPECT_EQ(fila(p.ui.GrdLiq), "DERECHOS|P|150000,00|150,00");
        tecla(Qt::Key_Escape);
    });
}

TEST_P(PantallaDelPresupuesto, InsertTakesAConceptOfTheListAndAsksItsValue) {
    mostrar([this](FrmPresupuesto &p) {
        p.ui.Grd->setFocus();
        conPantallaModal<FrmConceptos>([](FrmConceptos &c) {
            EXPECT_EQ(QApplication::focusWidget(), c.ui.LstConceptos);
            EXPECT_EQ(c.ui.LstConceptos->count(), 4);
            EXPECT_EQ(c.ui.LstConceptos->currentItem()->text(), u"FLETE INTERNO"_s);
            tecla(Qt::Key_Down);
            conPantallaModal<FrmDatos>([](FrmDatos &d) {
                EXPECT_EQ(d.ui.LbConcepto->text(), u"GASTOS OPERATIVOS"_s);
                EXPECT_TRUE(d.ui.TxtValor->text().isEmpty());
                EXPECT_TRUE(d.ui.opDolar->isChecked());
                tecla(Qt::Key_Return);
                EXPECT_TRUE(d.ventana->isVisible()) << "no number";
                escribir(u"1500,5"_s);
                atajo(Qt::Key_P);
                tecla(Qt::Key_Return);
            });
            tecla(Qt::Key_Return);
        });
        tecla(Qt::Key_Insert);
        esperarVentana(p.ventana.get());
        EXPECT_EQ(ultimo(), "El valor no es un número, corríjalo.");
        EXPECT_EQ(fila(p.ui.Grd), "GASTOS OPERATIVOS|1500,50|01,50");
        EXPECT_EQ(p.ui.LbGastosOperativos->text(), u"1500,50"_s);
        EXPECT_EQ(p.ui.LbGastosOperativosDol->text(), u"00,00"_s);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.Grd);

        conPantallaModal<FrmConceptos>([](FrmConceptos &) {
            tecla(Qt::Key_Down);
            tecla(Qt::Key_Return);
        });
        tecla(Qt::Key_Insert);
        EXPECT_EQ(ultimo(), "Este concepto ya existe en el presupuesto.");
        EXPECT_EQ(p.ui.Grd->rowCount(), 1);
        esperarVentana(p.ventana.get());
        tecla(Qt::Key_Delete);
        EXPECT_EQ(p.ui.Grd->rowCount(), 0);
        tecla(Qt::Key_Delete);
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(operativos(), "");
}

TEST_P(PantallaDelPresupuesto, ADoubleClickOnAnEmptyGridAddsToo) {
    mostrar([](FrmPresupuesto &p) {
        conPantallaModal<FrmConceptos>([](FrmConceptos &) { tecla(Qt::Key_Escape); });
        QTest::mouseDClick(p.ui.Grd->viewport(), Qt::LeftButton);
        esperarVentana(p.ventana.get());
        conPantallaModal<FrmReferencias>([](FrmReferencias &) { tecla(Qt::Key_Escape); });
        QTest::mouseDClick(p.ui.Grd2->viewport(), Qt::LeftButton);
        esperarVentana(p.ventana.get());
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(operativos(), "");
    EXPECT_TRUE(registro.entradas.empty());
}

TEST_P(PantallaDelPresupuesto, AReferenceIsTakenAskedForAndRemoved) {
    mostrar([this](FrmPresupuesto &p) {
        p.ui.Grd2->setFocus();
        const auto tomarPrimera = [](FrmReferencias &r) {
            EXPECT_EQ(r.ui.LstReferencias->currentItem()->text(), u"BUQUE"_s);
            tecla(Qt::Key_Return);
        };
        conPantallaModal<FrmReferencias>(tomarPrimera);
        registro.textos = {u""_s, u"CAP SAN MARTIN"_s};
        registro.respuestas = {false};
        tecla(Qt::Key_Insert);
        esperarVentana(p.ventana.get());
        EXPECT_EQ(fila(p.ui.Grd2), "BUQUE|CAP SAN MARTIN");
        conPantallaModal<FrmReferencias>(tomarPrimera);
        tecla(Qt::Key_Insert);
        EXPECT_EQ(ultimo(), "La Referencia ya Existe!");
        esperarVentana(p.ventana.get());
        tecla(Qt::Key_Delete);
        EXPECT_EQ(p.ui.Grd2->rowCount(), 0);
        tecla(Qt::Key_Escape);
    });
    ASSERT_EQ(registro.preguntas.size(), 1U);
    EXPECT_EQ(registro.preguntas[0].texto, u"Desea cancelar la operación"_s);
}

TEST_P(PantallaDelPresupuesto, TheMasterListsGrowAndShrinkByTheirKeys) {
    const auto revisar = [this](QDialog *ventana, QListWidget *lista, QLineEdit *nuevo,
                                const char *repetida) {
        const int habia = lista->count();
        nuevo->setFocus();
        tecla(Qt::Key_Return);
        EXPECT_EQ(ultimo(), "Debe ingresar un Nombre valido para el nuevo concepto.");
        EXPECT_TRUE(ventana->isVisible());
        escribir(u"ZZZ"_s);
        tecla(Qt::Key_Return);
        EXPECT_EQ(lista->count(), habia + 1);
        EXPECT_EQ(lista->currentItem()->text(), u"ZZZ"_s);
        EXPECT_TRUE(nuevo->text().isEmpty());
        EXPECT_EQ(QApplication::focusWidget(), lista);
        nuevo->setFocus();
        escribir(u"zzz"_s);
        tecla(Qt::Key_Return);
        EXPECT_EQ(ultimo(), repetida);
        EXPECT_EQ(QApplication::focusWidget(), nuevo);
        EXPECT_EQ(nuevo->selectedText(), u"zzz"_s);
        lista->setFocus();
        tecla(Qt::Key_Delete);
        EXPECT_EQ(lista->count(), habia);
        EXPECT_EQ(lista->currentRow(), habia - 1);
        tecla(Qt::Key_Escape);
    };
    mostrar([&](FrmPresupuesto &p) {
        conPantallaModal<FrmConceptos>([&](FrmConceptos &c) {
            revisar(c.ventana.get(), c.ui.LstConceptos, c.ui.TxtConcepto, "Ya existe este concepto.!");
        });
        p.ui.Grd->setFocus();
        tecla(Qt::Key_Insert);
        esperarVentana(p.ventana.get());
        conPantallaModal<FrmReferencias>([&](FrmReferencias &r) {
            revisar(r.ventana.get(), r.ui.LstReferencias, r.ui.TxtRefencia, "Esta referencia ya existe");
        });
        p.ui.Grd2->setFocus();
        tecla(Qt::Key_Insert);
        esperarVentana(p.ventana.get());
        tecla(Qt::Key_Escape);
    });
}

TEST_P(PantallaDelPresupuesto, AnEmptyListIsThereToBeFilled) {
    ejecutar(u"delete from conpresu"_s);
    mostrar([](FrmPresupuesto &p) {
        p.ui.Grd->setFocus();
        conPantallaModal<FrmConceptos>([](FrmConceptos &c) {
            EXPECT_EQ(QApplication::focusWidget(), c.ui.TxtConcepto);
            escribir(u"HONORARIOS"_s);
            tecla(Qt::Key_Return);
            conPantallaModal<FrmDatos>([](FrmDatos &) {
                escribir(u"10"_s);
                tecla(Qt::Key_Return);
            });
            tecla(Qt::Key_Return);
        });
        tecla(Qt::Key_Insert);
        esperarVentana(p.ventana.get());
        EXPECT_EQ(fila(p.ui.Grd), "HONORARIOS|10000,00|10,00");
        tecla(Qt::Key_Escape);
    });
}

TEST_P(PantallaDelPresupuesto, TheCommentIsWrittenFromHere) {
    mostrar([](FrmPresupuesto &p) {
        conPantallaModal<FrmLstDiv>([](FrmLstDiv &c) {
            c.ui.TxtCom->selectAll();
            escribir(u"Canal verde"_s);
            tecla(Qt::Key_Escape);
        });
        tecla(Qt::Key_F9);
        esperarVentana(p.ventana.get());
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(valor(u"select coment from coment where interno = 'IC-2026-0001'"_s, u"SYSTABLAS"_s),
              u"Canal verde"_s);
}

TEST_P(PantallaDelPresupuesto, BlankLinesAndTheRoadOfTheMailAreKept) {
    mostrar([](FrmPresupuesto &p) {
        p.ui.CbLineas->setFocus();
        tecla(Qt::Key_3);
        EXPECT_EQ(p.ui.CbLineas->currentText(), u"3"_s);
        p.ui.opSMTP->setFocus();
        tecla(Qt::Key_Right);
        EXPECT_TRUE(p.ui.opOutLook->isChecked());
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(ctx->ajustes.Leer(u"ZENDRA"_s, u"PRESUPUESTO"_s, u"LINEA"_s), u"3"_s);
    EXPECT_EQ(ctx->ajustes.Leer(u"ZENDRA"_s, u"FLAGS"_s, u"XOUTLOOK"_s), u"S"_s);
    mostrar([](FrmPresupuesto &p) {
        EXPECT_EQ(p.ui.CbLineas->currentText(), u"3"_s);
        EXPECT_TRUE(p.ui.opOutLook->isChecked());
        tecla(Qt::Key_Escape);
    });
}

TEST_P(PantallaDelPresupuesto, OneOperationBehindAnotherLeavesNothingBehind) {
    ejecutar(u"insert into caratula (interno,factura6) values ('VACIA',5)"_s);
    AgregarGasto(*ctx, u"IC-2026-0001"_s, u"HONORARIOS"_s, u"10"_s, true);
    registro.textos = {u"CAP SAN MARTIN"_s};
    ASSERT_TRUE(AgregarReferencia(*ctx, u"IC-2026-0001"_s, u"BUQUE"_s));
    const auto ver = [](const char *interno, int gastos, int operativos, const char *total) {
        conPantallaModal<FrmPresupuesto>([=](FrmPresupuesto &p) {
            EXPECT_EQ(p.ui.LbInterno->text(), QLatin1String(interno));
            EXPECT_EQ(p.ui.GrdLiq->rowCount(), gastos);
            EXPECT_EQ(p.ui.Grd->rowCount(), operativos);
            EXPECT_EQ(p.ui.Grd2->rowCount(), operativos);
            EXPECT_EQ(p.ui.LbTotalGeneral->text(), QLatin1String(total));
            EXPECT_TRUE(p.ui.LbArchivo->text().isEmpty());
            tecla(Qt::Key_F12);
            tecla(Qt::Key_Escape);
        });
        Pantalla<FrmPresupuesto>().Mostrar(QLatin1String(interno));
    };
    ver("IC-2026-0001", 3, 1, "110000,00");
    ver("VACIA", 0, 0, "-05,00");
    ver("IC-2026-0001", 3, 1, "110000,00");
    CerrarPantalla<FrmPresupuesto>();
    EXPECT_EQ(valor(u"select factura6 from caratula where interno = 'VACIA'"_s), u"5"_s);
    EXPECT_EQ(aCuenta(), "0");
}

TEST_P(PantallaDelPresupuesto, AFailingStoreIsToldAndTheScreenStillCloses) {
    mostrar([this](FrmPresupuesto &) {
        ejecutar(u"drop table caratula"_s);
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Critico);
}

}  // namespace
