// The book of clients, by keyboard.

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

#include "frame/entities.h"
#include "frame/ui/Pantalla.h"
#include "header/FrmCliente.h"
#include "header/FrmClientes.h"
#include "header/FrmListado.h"
#include "tests/support/pantallas.h"

using namespace Qt::StringLiterals;

namespace {

using entidad::personal;

class LibroEnPantalla : public EnPantalla {
 protected:
    FrmClientes &mostrar() {
        auto &libro = Pantalla<FrmClientes>();
        libro.Mostrar();
        esperarVentana(libro.ventana.get());
        return libro;
    }
    /// Opens a record by a key of the list and drives it.
    static void enLaFicha(int cual, const std::function<void(FrmCliente &)> &hacer,
                          Qt::KeyboardModifiers con = Qt::NoModifier) {
        conPantallaModal<FrmCliente>(hacer);
        tecla(cual, con);
        EXPECT_FALSE(PantallaAbierta<FrmCliente>());
        esperarVentana(Pantalla<FrmClientes>().ventana.get());
    }
    /// ENTER as many times.
    static void enter(int veces) {
        for (int i = 0; i < veces; ++i) tecla(Qt::Key_Return);
    }
    QString ventajas(const QString &cuit) {
        return filas("select idventaja,idsubregimen,ncm from ventajasrel where cuit = '"_L1 + cuit +
                         "' order by idventaja"_L1,
                     personal);
    }
};

TEST_P(LibroEnPantalla, ANewClientIsKeyedWithEveryColumnByEnterAlone) {
    auto &libro = mostrar();
    enLaFicha(Qt::Key_Insert, [this](FrmCliente &ficha) {
        EXPECT_EQ(ficha.ventana->windowTitle(), u"Agregar cliente"_s);
        EXPECT_EQ(QApplication::focusWidget(), ficha.ui.TxtCuit);
        escribir(u"30-12345678-1"_s);
        enter(1);
        escribir(u"PEÑA D'ONOFRIO S.A."_s);
        enter(1);
        escribir(u"a@b.example"_s);
        enter(1);
        escribir(u"Calle 1"_s);
        enter(1);
        for (const char *porcentaje : {"1,5", "2", "3"}) {
            escribir(QString(QLatin1String(porcentaje)));
            enter(1);
        }
        EXPECT_EQ(QApplication::focusWidget(), ficha.ui.chkEximGan);
        tecla(Qt::Key_Space);
        enter(1);
        escribir(u"40"_s);
        enter(1);
        escribir(u"41"_s);
        enter(1);
        EXPECT_EQ(QApplication::focusWidget(), ficha.ui.chkIvaReduccion);
        tecla(Qt::Key_Space);
        enter(1);
        escribir(u"50"_s);
        enter(1);
        escribir(u"51"_s);
        enter(1);
        tecla(Qt::Key_Space);
        enter(1);
        EXPECT_EQ(QApplication::focusWidget(), ficha.ui.chkExcepLAPIAEC);
        tecla(Qt::Key_Space);
        enter(1);
        EXPECT_EQ(QApplication::focusWidget(), ficha.ui.TxtVentaja);
        escribir(u"vehiculopartes"_s);
        EXPECT_EQ(ficha.ui.LbVentaja->text(), u"Partes del régimen automotriz"_s);
        enter(1);
        escribir(u"ic04"_s);
        enter(1);
        EXPECT_EQ(ficha.ui.LbSubReg->text(), u"Importación definitiva para consumo"_s);
        escribir(u"8708"_s);
        enter(2);
        EXPECT_EQ(QApplication::focusWidget(), ficha.ui.TxtVentaja) << "ready for the next one";
        EXPECT_EQ(enMano(ficha.ui.GrdVentajas, 0), u"VEHICULOPARTES"_s);
        enter(4);
        EXPECT_EQ(QApplication::focusWidget(), ficha.ui.cmdGuardar) << "nothing to add goes on";
        enter(1);
    });
    EXPECT_EQ(enMano(libro.ui.Lst, 1), u"30123456781"_s) << "the new client is in hand";
    EXPECT_EQ(filas(u"select * from clientes where cuit = '30123456781'"_s, personal),
              u"30123456781|PEÑA D'ONOFRIO S.A.|Calle 1|a@b.example|1.5|2|S|40|41|S|50|51|S|3|S"_s);
    EXPECT_EQ(ventajas(u"30123456781"_s), u"VEHICULOPARTES|IC04|8708"_s);
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(LibroEnPantalla, TheListIsSearchedByNameAndByNumberAsOneTypes) {
    auto &libro = mostrar();
    EXPECT_EQ(libro.ui.Lst->rowCount(), 9);
    EXPECT_EQ(QApplication::focusWidget(), libro.ui.txtBuscar);
    escribir(u"tej"_s);
    EXPECT_EQ(enMano(libro.ui.Lst, 0), u"TEJEDURIA LOS ALERCES S.A."_s);
    tecla(Qt::Key_Tab);
    escribir(u"307145"_s);
    EXPECT_EQ(enMano(libro.ui.Lst, 0), u"AUTOPARTES QUILMES S.A."_s);
    tecla(Qt::Key_Escape);
    EXPECT_FALSE(PantallaAbierta<FrmClientes>());
}

TEST_P(LibroEnPantalla, AmongFiveThousandClientsTheOneTypedIsFound) {
    for (int lote = 0; lote < 5; ++lote) {
        QStringList filas;
        for (int n = 0; n < 1000; ++n) {
            const QString numero = QString::number(lote * 1000 + n).rightJustified(5, QLatin1Char('0'));
            filas << u"('300000%1','CLIENTE %1')"_s.arg(numero);
        }
        ejecutar("insert into clientes (cuit,nombre) values "_L1 + filas.join(QLatin1Char(',')), personal);
    }
    auto &libro = mostrar();
    EXPECT_EQ(libro.ui.Lst->rowCount(), 5009);
    escribir(u"cliente 04998"_s);
    EXPECT_EQ(enMano(libro.ui.Lst, 1), u"30000004998"_s);
}

TEST_P(LibroEnPantalla, PickingAnswersTheClientAndEscapeNone) {
    QString cuit;
    QString nombre;
    conPantallaModal<FrmClientes>([](FrmClientes &) {
        escribir(u"bod"_s);
        tecla(Qt::Key_Return);
    });
    EXPECT_TRUE(SeleccionarCliente(cuit, nombre));
    EXPECT_EQ(cuit, u"30693201582"_s);
    EXPECT_EQ(nombre, u"BODEGA PIEDRA CHICA S.R.L."_s);
    conPantallaModal<FrmClientes>([](FrmClientes &) { tecla(Qt::Key_Escape); });
    EXPECT_FALSE(SeleccionarCliente(cuit, nombre));
    EXPECT_EQ(cuit, u"30693201582"_s) << "left as it was";
}

TEST_P(LibroEnPantalla, ANumberThatWasNotFoundStartsTheNewClient) {
    QString cuit;
    QString nombre;
    conPantallaModal<FrmClientes>([](FrmClientes &libro) {
        conPantallaModal<FrmCliente>([](FrmCliente &ficha) {
            EXPECT_EQ(ficha.ui.TxtCuit->text(), u"30123456781"_s);
            EXPECT_EQ(QApplication::focusWidget(), ficha.ui.TxtNombre);
            escribir(u"NUEVO S.A."_s);
            atajo(Qt::Key_G);
        });
        tecla(Qt::Key_Insert);
        esperarVentana(libro.ventana.get());
        tecla(Qt::Key_Return);
    });
    EXPECT_TRUE(SeleccionarCliente(cuit, nombre, u"30123456781"_s));
    EXPECT_EQ(cuit, u"30123456781"_s);
    EXPECT_EQ(nombre, u"NUEVO S.A."_s);
}

TEST_P(LibroEnPantalla, ABookThatStandsOpenServesToPickToo) {
    mostrar();
    QString cuit;
    QString nombre;
    conPantallaModal<FrmClientes>([](FrmClientes &) { tecla(Qt::Key_Return); });
    EXPECT_TRUE(SeleccionarCliente(cuit, nombre));
    EXPECT_EQ(nombre, u"AGRO DEL LITORAL COOP. LTDA."_s);
}

TEST_P(LibroEnPantalla, EnterF6AndShiftEnterOpenTheRecordForAChange) {
    auto &libro = mostrar();
    escribir(u"auto"_s);
    for (const auto &[cual, con] :
         {std::pair(Qt::Key_Return, Qt::NoModifier), std::pair(Qt::Key_F6, Qt::NoModifier),
          std::pair(Qt::Key_Return, Qt::ShiftModifier)})
        enLaFicha(
            cual,
            [](FrmCliente &ficha) {
                EXPECT_EQ(ficha.ventana->windowTitle(), u"Modificar cliente"_s);
                EXPECT_EQ(ficha.ui.TxtCuit->text(), u"30714560200"_s);
                EXPECT_FALSE(ficha.ui.TxtCuit->isEnabled());
                tecla(Qt::Key_Escape);
            },
            con);
    enLaFicha(Qt::Key_F6, [](FrmCliente &ficha) {
        ficha.ui.TxtNombre->clear();
        escribir(u"ZARATE AUTOPARTES"_s);
        atajo(Qt::Key_G);
    });
    EXPECT_EQ(enMano(libro.ui.Lst, 0), u"ZARATE AUTOPARTES"_s) << "in hand at its new place";
    EXPECT_EQ(libro.ui.Lst->currentRow(), 8);
    EXPECT_TRUE(registro.preguntas.empty());
}

TEST_P(LibroEnPantalla, AWrongTaxNumberIsRefusedAndItsFieldIsShown) {
    mostrar();
    enLaFicha(Qt::Key_Insert, [this](FrmCliente &ficha) {
        escribir(u"30123456782"_s);
        ficha.ui.TxtNombre->setText(u"X"_s);
        atajo(Qt::Key_G);
        ASSERT_EQ(registro.mensajes.size(), 1U);
        EXPECT_EQ(registro.mensajes[0].icono, Icono::Exclamacion);
        EXPECT_EQ(registro.mensajes[0].titulo, u"Clientes"_s);
        EXPECT_EQ(registro.mensajes[0].texto,
                  u"El dígito verificador del CUIT 30123456782 no es correcto, revise el número."_s);
        EXPECT_EQ(QApplication::focusWidget(), ficha.ui.TxtCuit);
        EXPECT_EQ(ficha.ui.TxtCuit->selectedText(), u"30123456782"_s);
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(valor(u"select count(*) from clientes"_s, personal), u"9"_s);
}

TEST_P(LibroEnPantalla, EveryFaultTakesTheFocusToItsField) {
    mostrar();
    enLaFicha(Qt::Key_F6, [this](FrmCliente &ficha) {
        struct Caso {
            QLineEdit *campo;
            const char *malo;
        };
        const auto &ui = ficha.ui;
        for (const Caso &caso :
             {Caso{ui.TxtNombre, ""}, Caso{ui.TxtEmail, "sin arroba"}, Caso{ui.TxtRegalias, "x"},
              Caso{ui.TxtAjxVinc, "101"}, Caso{ui.TxtEximGan, "-1"}, Caso{ui.TxtEximGanTemp, "mucho"},
              Caso{ui.TxtIvaReduccion, "200"}, Caso{ui.TxtIvaReduccionTemp, "q"}, Caso{ui.TxtIngBru, "y"}}) {
            const QString bueno = caso.campo->text();
            caso.campo->setText(QLatin1String(caso.malo));
            ui.cmdGuardar->setFocus();
            registro.mensajes.clear();
            atajo(Qt::Key_G);
            EXPECT_EQ(registro.mensajes.size(), 1U) << caso.campo->objectName().toStdString();
            EXPECT_EQ(QApplication::focusWidget(), caso.campo) << caso.campo->objectName().toStdString();
            caso.campo->setText(bueno);
        }
        tecla(Qt::Key_Escape);
    });
    EXPECT_TRUE(registro.preguntas.empty()) << "with every text as it was there is nothing to ask";
}

TEST_P(LibroEnPantalla, EscapeWithChangesAsksAndStoresOnYesOnly) {
    mostrar();
    for (const bool guardar : {false, true}) {
        registro.respuestas.push_back(guardar);
        enLaFicha(Qt::Key_F6, [](FrmCliente &ficha) {
            ficha.ui.TxtDomicilio->setFocus();
            ficha.ui.TxtDomicilio->clear();
            escribir(u"Otro 1"_s);
            tecla(Qt::Key_Escape);
        });
        EXPECT_EQ(valor(u"select domicilio from clientes where cuit = '30504123770'"_s, personal),
                  guardar ? u"Otro 1"_s : u"Bv. Oroño 95, Rosario"_s);
    }
    ASSERT_EQ(registro.preguntas.size(), 2U);
    EXPECT_EQ(registro.preguntas[0].texto,
              u"Los cambios del cliente no están guardados.\r\n¿Desea guardarlos?"_s);
    EXPECT_FALSE(registro.preguntas[0].porDefectoNo);
}

TEST_P(LibroEnPantalla, ClosingTheRecordsWindowAsksLikeEscape) {
    mostrar();
    enLaFicha(Qt::Key_F6, [](FrmCliente &ficha) {
        ficha.ui.TxtNombre->setText(u"Z"_s);
        ficha.ventana->close();
    });
    EXPECT_EQ(registro.preguntas.size(), 1U);
    EXPECT_EQ(valor(u"select nombre from clientes where cuit = '30504123770'"_s, personal),
              u"AGRO DEL LITORAL COOP. LTDA."_s);
}

TEST_P(LibroEnPantalla, APercentageWithoutItsMarkIsDimmedAndKept) {
    mostrar();
    escribir(u"auto"_s);
    enLaFicha(Qt::Key_F6, [](FrmCliente &ficha) {
        EXPECT_TRUE(ficha.ui.TxtEximGan->isEnabled());
        EXPECT_FALSE(ficha.ui.TxtIvaReduccion->isEnabled());
        ficha.ui.chkEximGan->setFocus();
        tecla(Qt::Key_Space);
        EXPECT_FALSE(ficha.ui.TxtEximGan->isEnabled());
        atajo(Qt::Key_G);
    });
    EXPECT_EQ(filas(u"select eximgan,eximganvalor from clientes where cuit = '30714560200'"_s, personal),
              u"N|50"_s);
}

TEST_P(LibroEnPantalla, AdvantagesAreChangedAndTakenAwayInTheirGrid) {
    mostrar();
    escribir(u"auto"_s);
    enLaFicha(Qt::Key_F6, [](FrmCliente &ficha) {
        ficha.ui.GrdVentajas->setFocus();
        tecla(Qt::Key_Return);
        EXPECT_EQ(QApplication::focusWidget(), ficha.ui.TxtVentaja);
        EXPECT_EQ(ficha.ui.TxtVentaja->text(), u"VEHICULOPARTES"_s);
        EXPECT_EQ(ficha.ui.TxtNcm->text(), u"8708"_s);
        ficha.ui.TxtNcm->setFocus();
        escribir(u"8409"_s);
        enter(2);
        EXPECT_EQ(ficha.ui.GrdVentajas->rowCount(), 2) << "changed, not added";
        ficha.ui.GrdVentajas->setFocus();
        tecla(Qt::Key_End);
        tecla(Qt::Key_Delete);
        EXPECT_EQ(ficha.ui.GrdVentajas->rowCount(), 1);
        tecla(Qt::Key_Insert);
        EXPECT_EQ(QApplication::focusWidget(), ficha.ui.TxtVentaja);
        atajo(Qt::Key_G);
    });
    EXPECT_EQ(ventajas(u"30714560200"_s), u"VEHICULOPARTES||8409"_s);
}

TEST_P(LibroEnPantalla, AnAdvantageThatIsNotKeptIsRefusedAtOnce) {
    mostrar();
    enLaFicha(Qt::Key_F6, [this](FrmCliente &ficha) {
        const int habia = ficha.ui.GrdVentajas->rowCount();
        ficha.ui.TxtVentaja->setFocus();
        escribir(u"NADA"_s);
        enter(4);
        ASSERT_EQ(registro.mensajes.size(), 1U);
        EXPECT_TRUE(registro.mensajes[0].texto.startsWith(u"La ventaja NADA no existe"_s));
        EXPECT_EQ(QApplication::focusWidget(), ficha.ui.TxtVentaja);
        EXPECT_EQ(ficha.ui.GrdVentajas->rowCount(), habia);
        tecla(Qt::Key_Escape);
    });
}

TEST_P(LibroEnPantalla, F6ListsTheCatalogueOfAdvantages) {
    conDialogosDeVerdad();
    mostrar();
    enLaFicha(Qt::Key_F6, [](FrmCliente &ficha) {
        ficha.ui.TxtVentaja->setFocus();
        conPantallaModal<FrmListado>([](FrmListado &) {
            escribir(u"partes"_s);
            tecla(Qt::Key_Return);
        });
        tecla(Qt::Key_F6);
        EXPECT_EQ(ficha.ui.TxtVentaja->text(), u"VEHICULOPARTES"_s);
        esperarVentana(ficha.ventana.get());
        ficha.ui.TxtVentaja->clear();
        tecla(Qt::Key_Escape);
    });
}

TEST_P(LibroEnPantalla, DeleteInTheListAsksAndTakesTheClient) {
    ejecutar(u"delete from caratula where cuitcliente = '30714560200'"_s);
    auto &libro = mostrar();
    escribir(u"auto"_s);
    tecla(Qt::Key_Delete);
    EXPECT_TRUE(registro.preguntas.empty()) << "in the box the key only edits";
    libro.ui.Lst->setFocus();
    tecla(Qt::Key_Delete);
    ASSERT_EQ(registro.preguntas.size(), 1U);
    EXPECT_EQ(registro.preguntas[0].titulo, u"Eliminar cliente"_s);
    EXPECT_TRUE(registro.preguntas[0].porDefectoNo);
    EXPECT_EQ(libro.ui.Lst->rowCount(), 9) << "No keeps it";
    registro.respuestas.push_back(true);
    tecla(Qt::Key_Delete);
    EXPECT_EQ(libro.ui.Lst->rowCount(), 8);
    EXPECT_EQ(ventajas(u"30714560200"_s), QString());
}

TEST_P(LibroEnPantalla, AClientUsedByAnOperationIsToldInTheQuestion) {
    auto &libro = mostrar();
    escribir(u"hidr"_s);
    teclaEn(libro.ui.Lst, Qt::Key_Delete);
    ASSERT_EQ(registro.preguntas.size(), 1U);
    EXPECT_TRUE(registro.preguntas[0].texto.contains(u"está usado por una operación"_s));
    EXPECT_EQ(registro.preguntas[0].icono, Icono::Exclamacion);
    EXPECT_EQ(libro.ui.Lst->rowCount(), 9);
}

TEST_P(LibroEnPantalla, AnErrorOfTheStoreIsAMessageAndTheRecordStays) {
    mostrar();
    enLaFicha(Qt::Key_F6, [this](FrmCliente &ficha) {
        ejecutar(u"drop table clientes"_s, personal);
        ficha.ui.TxtNombre->setText(u"Z"_s);
        atajo(Qt::Key_G);
        ASSERT_FALSE(registro.mensajes.empty());
        EXPECT_EQ(registro.mensajes[0].icono, Icono::Critico);
        EXPECT_TRUE(ficha.ventana->isVisible());
        tecla(Qt::Key_Escape);
    });
}

EN_AMBOS_STORES(LibroEnPantalla);

}  // namespace
