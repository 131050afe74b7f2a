// Concepts by hand, and the pick lists of the item screen, by keyboard.

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

#include "frame/ui/Pantalla.h"
#include "header/FrmListado.h"
#include "liquidation/FrmAdCon.h"
#include "liquidation/FrmVentajas.h"
#include "liquidation/frmListadoItem.h"
#include "tests/support/pantallas.h"

using namespace Qt::StringLiterals;

namespace {

const QString operacionDeConceptos = u"IC-2026-0001"_s;
const QString itemDeConceptos = u"3"_s;

class PantallaDeConceptos : public EnPantalla {
 protected:
    void SetUp() override {
        EnPantalla::SetUp();
        ctx->LiquidacionPendiente = false;
        ejecutar(
            u"insert into itemliq (interno,iditem,idconceptos,conceptos,pgc,motivo,porcentaje,baseimp,total) "
            "values ('IC-2026-0001',3,'010','DERECHOS DE IMPORTACION','G','02',10,500,50)"_s);
    }
    bool agregar(const std::function<void(FrmAdCon &)> &hacer) {
        conPantallaModal<FrmAdCon>(hacer);
        const bool hecho = Pantalla<FrmAdCon>().Agregar(operacionDeConceptos, itemDeConceptos);
        CerrarPantalla<FrmAdCon>();
        return hecho;
    }
    bool modificar(const ConceptoEditado &fila, const std::function<void(FrmAdCon &)> &hacer) {
        conPantallaModal<FrmAdCon>(hacer);
        const bool hecho = Pantalla<FrmAdCon>().Modificar(operacionDeConceptos, itemDeConceptos, fila);
        CerrarPantalla<FrmAdCon>();
        return hecho;
    }
    static ConceptoEditado enLaGrilla() {
        return {u"010"_s, u"DERECHOS DE IMPORTACION"_s, u"G"_s, u"10,00"_s, u"500,00"_s, u"50,00"_s, u"02"_s};
    }
    std::string guardados() {
        return filas(
                   u"select idconceptos,conceptos,pgc,motivo,porcentaje,porcentajeb,baseimp,total,valor "
                   "from itemliq where interno = 'IC-2026-0001' and iditem = 3 order by idconceptos"_s)
            .toStdString();
    }
    /// What was told last, and that it was alone.
    std::string dicho() {
        EXPECT_EQ(registro.mensajes.size(), 1U);
        const QString texto = registro.mensajes.empty() ? QString() : registro.mensajes.back().texto;
        registro.mensajes.clear();
        return texto.toStdString();
    }
};
EN_AMBOS_STORES(PantallaDeConceptos);

const std::string elDeSiempre = "010|DERECHOS DE IMPORTACION|G|02|10|<null>|500|50|<null>";

TEST_P(PantallaDeConceptos, AConceptIsAddedFieldByField) {
    EXPECT_TRUE(agregar([](FrmAdCon &p) {
        EXPECT_EQ(p.ventana->windowTitle(), u"Agregar"_s);
        EXPECT_EQ(p.ui.Command1->text(), u"&Agregar"_s);
        EXPECT_EQ(p.ui.cbCONC->findData(u"010"_s), -1) << "the item shows it already";
        EXPECT_EQ(QApplication::focusWidget(), p.ui.cbCONC);
        EXPECT_EQ(p.ui.cbCONC->currentText(), QString());
        escribir(u"tasa de es"_s);
        EXPECT_EQ(p.ui.cbCONC->lineEdit()->text(), u"tasa de esTADISTICA (011)"_s);
        EXPECT_EQ(p.ui.cbCONC->lineEdit()->selectedText(), u"TADISTICA (011)"_s);
        tecla(Qt::Key_Return);
        EXPECT_EQ(p.ui.cbCONC->currentText(), u"TASA DE ESTADISTICA (011)"_s);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.cbPGC);
        EXPECT_EQ(p.ui.cbPGC->currentText(), u"P"_s);
        tecla(Qt::Key_Return);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.txtPorc);
        escribir(u"2,5"_s);
        tecla(Qt::Key_Return);
        EXPECT_EQ(p.ui.TxtValor->text(), QString()) << "no base yet";
        EXPECT_EQ(QApplication::focusWidget(), p.ui.txtBimp);
        escribir(u"1000"_s);
        EXPECT_EQ(p.ui.TxtValor->text(), u"25,00"_s);
        tecla(Qt::Key_Return);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtValor);
        tecla(Qt::Key_Return);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtMotivos);
        tecla(Qt::Key_Return);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.Command1);
        tecla(Qt::Key_Return);
    }));
    EXPECT_EQ(guardados(), elDeSiempre + "\n011|TASA DE ESTADISTICA|P||2.5|2.5|1000|25|1");
    EXPECT_TRUE(ctx->LiquidacionPendiente);
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(PantallaDeConceptos, TheConceptIsFoundByItsCodeAndByTheArrows) {
    agregar([](FrmAdCon &p) {
        escribir(u"42"_s);
        EXPECT_EQ(p.ui.cbCONC->lineEdit()->text(), u"424  IMPUESTO A LAS GANANCIAS"_s)
            << "ahead of IVA ADICIONAL, the 422";
        EXPECT_EQ(p.ui.cbCONC->currentData().toString(), u"424"_s);
        tecla(Qt::Key_Backspace);
        EXPECT_EQ(p.ui.cbCONC->lineEdit()->text(), u"42"_s) << "what was completed goes first";
        EXPECT_EQ(p.ui.cbCONC->currentData().toString(), u"424"_s);
        escribir(u"2"_s);
        EXPECT_EQ(p.ui.cbCONC->currentData().toString(), u"422"_s);
        escribir(u"zz"_s);
        EXPECT_EQ(p.ui.cbCONC->lineEdit()->text(), u"422zz"_s);
        EXPECT_EQ(p.ui.cbCONC->currentIndex(), -1);
        tecla(Qt::Key_Down);
        EXPECT_EQ(p.ui.cbCONC->currentIndex(), 0);
        tecla(Qt::Key_Down);
        EXPECT_EQ(p.ui.cbCONC->currentIndex(), 1);
        tecla(Qt::Key_Up);
        tecla(Qt::Key_Up);
        EXPECT_EQ(p.ui.cbCONC->currentIndex(), 0);
        tecla(Qt::Key_Escape);
    });
}

TEST_P(PantallaDeConceptos, EachRefusalKeepsTheScreenWithTheFocusOnItsField) {
    EXPECT_TRUE(agregar([this](FrmAdCon &p) {
        const auto aceptar = [&p] {
            atajo(Qt::Key_A);
            EXPECT_TRUE(p.ventana->isVisible());
            return QApplication::focusWidget();
        };
        EXPECT_EQ(aceptar(), p.ui.cbCONC);
        EXPECT_EQ(dicho(), "Debe seleccionar un concepto de la lista.");
        escribir(u"nada que haya"_s);
        EXPECT_EQ(aceptar(), p.ui.cbCONC);
        EXPECT_EQ(dicho(), "Debe seleccionar un concepto de la lista.");
        EXPECT_EQ(p.ui.cbCONC->lineEdit()->text(), u"nada que haya"_s) << "the values stay";
        p.ui.cbCONC->lineEdit()->selectAll();
        escribir(u"tasa"_s);
        p.ui.cbPGC->setFocus();
        escribir(u"g"_s);
        EXPECT_EQ(p.ui.cbPGC->currentText(), u"G"_s);
        EXPECT_EQ(p.ui.LbPGC->text(), u"Garantizado"_s);
        EXPECT_EQ(aceptar(), p.ui.TxtMotivos);
        EXPECT_EQ(dicho(), "Usted selecionó como Obligacion G, entonces debe seleccionar un MOTIVO");
        escribir(u"01"_s);
        EXPECT_EQ(p.ui.LbMotivo->text(), u"Garantía por falta de certificado de origen"_s);
        EXPECT_EQ(aceptar(), p.ui.txtPorc);
        EXPECT_EQ(dicho(), "Debe seleccionar un PORCENTAJE válido");
        escribir(u"10"_s);
        EXPECT_EQ(aceptar(), p.ui.txtBimp);
        EXPECT_EQ(dicho(), "Debe seleccionar una BASE IMPONIBLE válida");
        escribir(u"0"_s);
        EXPECT_EQ(p.ui.TxtValor->text(), u"00,00"_s);
        EXPECT_EQ(aceptar(), p.ui.TxtValor);
        EXPECT_EQ(dicho(), "Total debe ser mayor a cero.");
        EXPECT_FALSE(ctx->LiquidacionPendiente);
        escribir(u"7,5"_s);
        atajo(Qt::Key_A);
    }));
    EXPECT_EQ(guardados(), elDeSiempre + "\n011|TASA DE ESTADISTICA|G|01|10|10|0|7.5|1");
}

TEST_P(PantallaDeConceptos, ATypedTotalStaysUntilThePercentageOrTheBaseChange) {
    EXPECT_TRUE(modificar(enLaGrilla(), [](FrmAdCon &p) {
        EXPECT_EQ(p.ui.TxtValor->text(), u"50,00"_s);
        p.ui.TxtValor->setFocus();
        escribir(u"77"_s);
        p.ui.txtPorc->setFocus();
        tecla(Qt::Key_Return);
        tecla(Qt::Key_Return);
        EXPECT_EQ(p.ui.TxtValor->text(), u"77"_s) << "passing by changes nothing";
        p.ui.txtPorc->setFocus();
        escribir(u"20"_s);
        EXPECT_EQ(p.ui.TxtValor->text(), u"100,00"_s);
        p.ui.txtBimp->setFocus();
        escribir(u"x"_s);
        EXPECT_EQ(p.ui.TxtValor->text(), QString());
        tecla(Qt::Key_Backspace);
        EXPECT_EQ(p.ui.TxtValor->text(), QString());
        escribir(u"300"_s);
        EXPECT_EQ(p.ui.TxtValor->text(), u"60,00"_s);
        p.ui.TxtValor->setFocus();
        escribir(u"61"_s);
        atajo(Qt::Key_M);
    }));
    EXPECT_EQ(guardados(), "010|DERECHOS DE IMPORTACION|G|02|20|20|300|61|1");
}

TEST_P(PantallaDeConceptos, ARowIsChangedFromItsValues) {
    EXPECT_TRUE(modificar(enLaGrilla(), [](FrmAdCon &p) {
        EXPECT_EQ(p.ventana->windowTitle(), u"Modificar"_s);
        EXPECT_EQ(p.ui.Command1->text(), u"&Modificar"_s);
        EXPECT_EQ(p.ui.cbCONC->currentText(), u"DERECHOS DE IMPORTACION (010)"_s);
        EXPECT_EQ(p.ui.cbPGC->currentText(), u"G"_s);
        EXPECT_EQ(p.ui.txtPorc->text(), u"10,00"_s);
        EXPECT_EQ(p.ui.txtBimp->text(), u"500,00"_s);
        EXPECT_EQ(p.ui.TxtMotivos->text(), u"02"_s);
        EXPECT_EQ(p.ui.LbMotivo->text(), u"Garantía por valor en investigación"_s);
        EXPECT_GT(p.ui.cbCONC->count(), 20) << "every concept is offered";
        p.ui.cbPGC->setFocus();
        escribir(u"c"_s);
        atajo(Qt::Key_M);
    }));
    EXPECT_EQ(guardados(), "010|DERECHOS DE IMPORTACION|C||10|10|500|50|1")
        << "what is not guaranteed has no reason";
    EXPECT_TRUE(ctx->LiquidacionPendiente);
}

TEST_P(PantallaDeConceptos, AConceptThatLeftTheTableIsShownAndKept) {
    ejecutar(u"update itemliq set idconceptos = '999', conceptos = 'TASA VIEJA' where iditem = 3"_s);
    ConceptoEditado fila = enLaGrilla();
    fila.codigo = u"999"_s;
    fila.descripcion = u"TASA VIEJA"_s;
    EXPECT_TRUE(modificar(fila, [](FrmAdCon &p) {
        EXPECT_EQ(p.ui.cbCONC->currentText(), u"TASA VIEJA (999)"_s);
        p.ui.txtPorc->setFocus();
        escribir(u"30"_s);
        atajo(Qt::Key_M);
    }));
    EXPECT_EQ(guardados(), "999|TASA VIEJA|G|02|30|30|500|150|1");
}

TEST_P(PantallaDeConceptos, ReasonsAreListedOnlyForWhatIsGuaranteed) {
    conDialogosDeVerdad();
    std::vector<QString> avisos;
    ctx->dialogos.mensaje = [&avisos](const Mensaje &m) { avisos.push_back(m.texto); };
    agregar([&avisos](FrmAdCon &p) {
        p.ui.TxtMotivos->setFocus();
        tecla(Qt::Key_F6);
        ASSERT_EQ(avisos.size(), 1U);
        EXPECT_EQ(avisos[0], u"Para seleccionar un MOTIVO, obligación debe estar como G"_s);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtMotivos);
        p.ui.cbPGC->setFocus();
        escribir(u"g"_s);
        p.ui.TxtMotivos->setFocus();
        conPantallaModal<FrmListado>([](FrmListado &lista) {
            escribir(u"garantía por va"_s);
            EXPECT_EQ(lista.ui.LstCod->currentIndex().data().toString(),
                      u"Garantía por valor en investigación"_s);
            tecla(Qt::Key_Return);
        });
        tecla(Qt::Key_F6);
        esperarVentana(p.ventana.get());
        EXPECT_EQ(p.ui.TxtMotivos->text(), u"02"_s);
        EXPECT_EQ(p.ui.LbMotivo->text(), u"Garantía por valor en investigación"_s);
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(avisos.size(), 1U);
}

TEST_P(PantallaDeConceptos, EscapeDiscards) {
    EXPECT_FALSE(modificar(enLaGrilla(), [](FrmAdCon &p) {
        p.ui.txtPorc->setFocus();
        escribir(u"99"_s);
        tecla(Qt::Key_Escape);
    }));
    EXPECT_EQ(guardados(), elDeSiempre);
    EXPECT_FALSE(ctx->LiquidacionPendiente);
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(PantallaDeConceptos, ATotalThatIsNoNumberIsToldByTheStoreAndThenInWords) {
    EXPECT_FALSE(modificar(enLaGrilla(), [this](FrmAdCon &p) {
        p.ui.TxtValor->setFocus();
        escribir(u"cinco"_s);
        atajo(Qt::Key_M);
        ASSERT_EQ(registro.mensajes.size(), 2U);
        EXPECT_EQ(registro.mensajes[0].icono, Icono::Critico);
        EXPECT_TRUE(registro.mensajes[0].texto.contains(u"cinco"_s));
        EXPECT_EQ(registro.mensajes[1].texto, u"No se puede agregar el nuevo concepto."_s);
        EXPECT_TRUE(p.ventana->isVisible());
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtValor);
        tecla(Qt::Key_Escape);
    }));
    EXPECT_EQ(guardados(), elDeSiempre);
    EXPECT_FALSE(ctx->LiquidacionPendiente);
}

class ListaDeVentajas : public EnPantalla {
 protected:
    const QStringList lineas{u"AUTOLIQLIBREEXP "_s + u"Libre de exportación"_s,
                             u"VEHICULOPARTES  "_s + u"Partes de vehículos"_s,
                             u"ZONAFRANCA      "_s + u"Árbol franco"_s};
    QString seleccionar(const std::function<void(FrmVentajas &)> &hacer) {
        conPantallaModal<FrmVentajas>(hacer);
        const QString id = Pantalla<FrmVentajas>().Seleccionar(u"Ventajas"_s, lineas);
        CerrarPantalla<FrmVentajas>();
        return id;
    }
};
EN_AMBOS_STORES(ListaDeVentajas);

TEST_P(ListaDeVentajas, EnterTakesTheIDOfTheLineInHand) {
    EXPECT_EQ(seleccionar([](FrmVentajas &p) {
                  EXPECT_EQ(p.ventana->windowTitle(), u"Ventajas"_s);
                  EXPECT_EQ(QApplication::focusWidget(), p.ui.txtBuscarID);
                  EXPECT_EQ(enMano(p.ui.Lst, 0), u"AUTOLIQLIBREEXP"_s);
                  escribir(u"vehi"_s);
                  EXPECT_EQ(enMano(p.ui.Lst, 0), u"VEHICULOPARTES"_s);
                  EXPECT_EQ(enMano(p.ui.Lst, 1), u"Partes de vehículos"_s);
                  tecla(Qt::Key_Return);
              }),
              u"VEHICULOPARTES"_s);
}

TEST_P(ListaDeVentajas, TheDescriptionIsSearchedWhateverItsAccents) {
    EXPECT_EQ(seleccionar([](FrmVentajas &p) {
                  tecla(Qt::Key_Tab);
                  EXPECT_EQ(QApplication::focusWidget(), p.ui.txtBuscar);
                  escribir(u"arbol"_s);
                  tecla(Qt::Key_Return);
              }),
              u"ZONAFRANCA"_s);
}

TEST_P(ListaDeVentajas, ADoubleClickTakesTheLine) {
    EXPECT_EQ(seleccionar([](FrmVentajas &p) {
                  const QPoint lugar = p.ui.Lst->visualRect(p.ui.Lst->model()->index(2, 0)).center();
                  QTest::mouseClick(p.ui.Lst->viewport(), Qt::LeftButton, {}, lugar);
                  QTest::mouseDClick(p.ui.Lst->viewport(), Qt::LeftButton, {}, lugar);
              }),
              u"ZONAFRANCA"_s);
}

TEST_P(ListaDeVentajas, EscapeAndAnEmptySearchTakeNothing) {
    EXPECT_EQ(seleccionar([](FrmVentajas &p) {
                  escribir(u"zzz"_s);
                  tecla(Qt::Key_Return);
                  EXPECT_TRUE(p.ventana->isVisible()) << "there is no line in hand";
                  tecla(Qt::Key_Escape);
              }),
              QString());
}

class ListaDeItems : public EnPantalla {
 protected:
    void SetUp() override {
        EnPantalla::SetUp();
        ejecutar(u"insert into item (interno,id,ncm) values ('IC-2026-0001',0,null)"_s);
        for (int id = 1; id <= 12; ++id)
            ejecutar(
                u"insert into item (interno,id,ncm,idunidad,estadistica,deresp,estadomerc,idpais,idproc,"
                "itfiller,descripcion) values ('IC-2026-0001',%1,'8413.70.10.%2L','07','01','01','N','310',"
                "'212','F%1','BOMBA Nº %1')"_s.arg(id)
                    .arg(100 + id));
        ejecutar(u"insert into item (interno,id,ncm) values ('OTRA',13,'9999.99.99.999X')"_s);
    }
    QString elegir(const QString &actual, const std::function<void(frmListadoItem &)> &hacer) {
        conPantallaModal<frmListadoItem>(hacer);
        const QString id = Pantalla<frmListadoItem>().Elegir(operacionDeConceptos, actual);
        CerrarPantalla<frmListadoItem>();
        return id;
    }
};
EN_AMBOS_STORES(ListaDeItems);

TEST_P(ListaDeItems, ItStartsOnTheItemInHandAndAnswersItsNumber) {
    EXPECT_EQ(elegir(u"7"_s,
                     [](frmListadoItem &p) {
                         QStringList titulos;
                         QStringList celdas;
                         const QAbstractItemModel *modelo = p.ui.lstItem->model();
                         for (int c = 0; c < modelo->columnCount(); ++c) {
                             titulos << modelo->headerData(c, Qt::Horizontal).toString();
                             celdas << enMano(p.ui.lstItem, c);
                         }
                         EXPECT_EQ(
                             titulos.join(u'|').toStdString(),
                             "ITEM|NCM|Unidad|Estadistica|U. Especifico|Estado|Origen|Procedencia|Filler|"
                             "Descripción");
                         EXPECT_EQ(celdas.join(u'|').toStdString(),
                                   "007|8413.70.10.107L|07|01|01|N|310|212|F7|BOMBA Nº 7");
                         EXPECT_EQ(modelo->rowCount(), 12) << "neither item 0 nor another operation's";
                         tecla(Qt::Key_Return);
                     }),
              u"7"_s);
}

TEST_P(ListaDeItems, AnItemIsFoundByItsNumberWithZerosOrWithoutItsPositionAndItsDescription) {
    EXPECT_EQ(elegir(u"0"_s,
                     [](frmListadoItem &p) {
                         EXPECT_EQ(QApplication::focusWidget(), p.ui.txtBuscarItem);
                         EXPECT_EQ(enMano(p.ui.lstItem, 0), u"001"_s);
                         escribir(u"009"_s);
                         EXPECT_EQ(enMano(p.ui.lstItem, 0), u"009"_s);
                         p.ui.txtBuscarItem->selectAll();
                         escribir(u"11"_s);
                         EXPECT_EQ(enMano(p.ui.lstItem, 0), u"011"_s);
                         tecla(Qt::Key_Tab);
                         escribir(u"8413.70.10.105"_s);
                         EXPECT_EQ(enMano(p.ui.lstItem, 0), u"005"_s);
                         tecla(Qt::Key_Tab);
                         escribir(u"bomba nº 12"_s);
                         EXPECT_EQ(enMano(p.ui.lstItem, 0), u"012"_s);
                         tecla(Qt::Key_Return);
                     }),
              u"12"_s);
}

TEST_P(ListaDeItems, TheArrowsMoveFromTheItemInHand) {
    EXPECT_EQ(elegir(u"7"_s,
                     [](frmListadoItem &p) {
                         tecla(Qt::Key_Down);
                         EXPECT_EQ(enMano(p.ui.lstItem, 0), u"008"_s);
                         EXPECT_EQ(p.ui.txtBuscarItem->text(), u"8"_s);
                         tecla(Qt::Key_Return);
                     }),
              u"8"_s);
    EXPECT_EQ(elegir(u"7"_s, [](frmListadoItem &) { tecla(Qt::Key_Escape); }), QString());
}

TEST_P(ListaDeItems, ADoubleClickTakesTheItem) {
    EXPECT_EQ(elegir(u"1"_s,
                     [](frmListadoItem &p) {
                         const QPoint lugar =
                             p.ui.lstItem->visualRect(p.ui.lstItem->model()->index(3, 1)).center();
                         QTest::mouseClick(p.ui.lstItem->viewport(), Qt::LeftButton, {}, lugar);
                         QTest::mouseDClick(p.ui.lstItem->viewport(), Qt::LeftButton, {}, lugar);
                     }),
              u"4"_s);
}

class CapturasDeConceptos : public PantallaDeConceptos {};
INSTANTIATE_TEST_SUITE_P(Stores, CapturasDeConceptos, ::testing::Values("ACCESS"));

TEST_P(CapturasDeConceptos, TheConceptAddedAndChanged) {
    agregar([](FrmAdCon &p) {
        escribir(u"tasa"_s);
        foto(p.ventana.get(), u"concepto-nuevo"_s);
        EXPECT_EQ(ordenDeTab(p.ventana.get()).join(u' '),
                  u"cbCONC cbPGC txtPorc txtBimp TxtValor TxtMotivos Command1"_s);
        tecla(Qt::Key_Escape);
    });
    modificar(enLaGrilla(), [](FrmAdCon &p) {
        p.ui.TxtMotivos->setFocus();
        foto(p.ventana.get(), u"concepto"_s);
        tecla(Qt::Key_Escape);
    });
}

class CapturasDeListasDeItem : public ListaDeItems {};
INSTANTIATE_TEST_SUITE_P(Stores, CapturasDeListasDeItem, ::testing::Values("ACCESS"));

TEST_P(CapturasDeListasDeItem, TheItemsAndTheAdvantages) {
    elegir(u"7"_s, [](frmListadoItem &p) {
        foto(p.ventana.get(), u"lista-items"_s);
        EXPECT_EQ(ordenDeTab(p.ventana.get()).join(u' '),
                  u"txtBuscarItem txtBuscarNCM txtBuscarDescripcion lstItem"_s);
        tecla(Qt::Key_Escape);
    });
    conPantallaModal<FrmVentajas>([](FrmVentajas &p) {
        foto(p.ventana.get(), u"lista-ventajas"_s);
        EXPECT_EQ(ordenDeTab(p.ventana.get()).join(u' '), u"txtBuscarID txtBuscar Lst"_s);
        tecla(Qt::Key_Escape);
    });
    Recordset rs;
    QStringList lineas;
    for (Consultar(*ctx, u"SYSTABLAS"_s, u"select * from ventajas order by id"_s, rs); !rs.Eof();
         rs.MoveNext())
        lineas << rs.Texto(u"id").leftJustified(16) + rs.Texto(u"descripcion");
    Pantalla<FrmVentajas>().Seleccionar(u"Ventajas"_s, lineas);
    CerrarPantalla<FrmVentajas>();
}

}  // namespace
