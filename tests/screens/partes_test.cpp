// Sellers, brokers and the general list, by keyboard.

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

#include "frame/ui/Pantalla.h"
#include "header/FrmListadoDespachante.h"
#include "header/FrmListadoeX.h"
#include "header/FrmLstVendedores.h"
#include "header/FrmNewVendedor.h"
#include "operations/FrmInternoNew.h"
#include "siblings/FrmClientes.h"
#include "tests/support/pantallas.h"

namespace {

const QString personal = QStringLiteral("PERSONAL");

QString enMano(const QTableWidget *grilla, int columna) {
    const int fila = grilla->currentRow();
    return fila < 0 ? QString() : grilla->item(fila, columna)->text();
}

QStringList columna(const QTableWidget *grilla, int cual) {
    QStringList textos;
    for (int fila = 0; fila < grilla->rowCount(); ++fila) textos << grilla->item(fila, cual)->text();
    return textos;
}

class PantallasDeVendedores : public EnPantalla {
 protected:
    /// Opens the list, drives it and answers what it left chosen: "code|name", or empty.
    QString listar(const std::function<void(FrmLstVendedores &)> &hacer) {
        conPantallaModal<FrmLstVendedores>(hacer);
        QString codigo;
        QString nombre;
        const bool elegido = ListarVendedores(codigo, nombre);
        EXPECT_FALSE(PantallaAbierta<FrmLstVendedores>());
        return elegido ? codigo + QLatin1Char('|') + nombre : QString();
    }
    QString vendedor(const QString &codigo) {
        return filas(QLatin1String("select codigo,nombre,domicilio,paisdelexportador from vendedor where "
                                   "codigo = '") +
                         codigo + QLatin1Char('\''),
                     personal);
    }
};

TEST_P(PantallasDeVendedores, TypingANameTakesItsRowAndEnterChoosesIt) {
    EXPECT_EQ(listar([](FrmLstVendedores &lista) {
                  EXPECT_EQ(QApplication::focusWidget(), lista.ui.txtBuscar);
                  EXPECT_EQ(columna(lista.ui.Lst, 1).first(), QStringLiteral("V001")) << "by code";
                  escribir(QStringLiteral("off"));
                  EXPECT_EQ(enMano(lista.ui.Lst, 1), QStringLiteral("V002"));
                  tecla(Qt::Key_Return);
              }),
              QStringLiteral("V002|OFFICINE TREVISANI S.P.A."));
}

TEST_P(PantallasDeVendedores, TheOtherBoxSearchesByCode) {
    EXPECT_EQ(listar([](FrmLstVendedores &lista) {
                  tecla(Qt::Key_Tab);
                  EXPECT_EQ(QApplication::focusWidget(), lista.ui.txtBuscarPorCodigo);
                  escribir(QStringLiteral("v004"));
                  tecla(Qt::Key_Return);
              }),
              QStringLiteral("V004|SHUNDA TEXTILE CO."));
}

TEST_P(PantallasDeVendedores, NoMatchLeavesNoRowAndEnterThenTakesNothing) {
    listar([](FrmLstVendedores &lista) {
        escribir(QStringLiteral("zz"));
        EXPECT_EQ(lista.ui.Lst->currentRow(), -1);
        tecla(Qt::Key_Return);
        EXPECT_TRUE(lista.ventana->isVisible());
        tecla(Qt::Key_F6);
        EXPECT_FALSE(PantallaAbierta<FrmNewVendedor>());
        tecla(Qt::Key_Escape);
    });
}

TEST_P(PantallasDeVendedores, EscapeClosesWithNothingChosen) {
    VendedorElegido() = {QStringLiteral("V001"), QStringLiteral("de antes")};
    EXPECT_EQ(listar([](FrmLstVendedores &) {
                  escribir(QStringLiteral("off"));
                  tecla(Qt::Key_Escape);
              }),
              QString());
    EXPECT_EQ(VendedorElegido().codigo, QString());
}

TEST_P(PantallasDeVendedores, ADoubleClickOnARowChoosesIt) {
    EXPECT_EQ(listar([](FrmLstVendedores &lista) {
                  const QPoint punto = lista.ui.Lst->visualItemRect(lista.ui.Lst->item(2, 0)).center();
                  QTest::mouseClick(lista.ui.Lst->viewport(), Qt::LeftButton, Qt::NoModifier, punto);
                  EXPECT_TRUE(lista.ventana->isVisible()) << "one click only takes the row in hand";
                  QTest::mouseDClick(lista.ui.Lst->viewport(), Qt::LeftButton, Qt::NoModifier, punto);
              }),
              QStringLiteral("V003|AUTOPECAS PAULISTA LTDA."));
}

TEST_P(PantallasDeVendedores, TheListIsMovedFromTheBoxAndFromTheGrid) {
    listar([](FrmLstVendedores &lista) {
        tecla(Qt::Key_Down);
        EXPECT_EQ(enMano(lista.ui.Lst, 1), QStringLiteral("V002"));
        EXPECT_EQ(lista.ui.txtBuscar->text(), QStringLiteral("OFFICINE TREVISANI S.P.A."));
        tecla(Qt::Key_End);
        EXPECT_EQ(enMano(lista.ui.Lst, 1), QStringLiteral("V006"));
        tecla(Qt::Key_Home);
        EXPECT_EQ(enMano(lista.ui.Lst, 1), QStringLiteral("V001"));
        tecla(Qt::Key_PageDown);
        EXPECT_EQ(enMano(lista.ui.Lst, 1), QStringLiteral("V006"));
        tecla(Qt::Key_PageUp);
        EXPECT_EQ(enMano(lista.ui.Lst, 1), QStringLiteral("V001"));
        lista.ui.Lst->setFocus();
        tecla(Qt::Key_End);
        EXPECT_EQ(enMano(lista.ui.Lst, 1), QStringLiteral("V006"));
        tecla(Qt::Key_Up);
        EXPECT_EQ(enMano(lista.ui.Lst, 1), QStringLiteral("V005"));
        tecla(Qt::Key_Home);
        EXPECT_EQ(enMano(lista.ui.Lst, 1), QStringLiteral("V001"));
        escribir(QStringLiteral("sh"));
        EXPECT_EQ(QApplication::focusWidget(), lista.ui.txtBuscar) << "a letter searches";
        EXPECT_EQ(lista.ui.txtBuscar->text(), QStringLiteral("sh"));
        EXPECT_EQ(enMano(lista.ui.Lst, 1), QStringLiteral("V004"));
        tecla(Qt::Key_Escape);
    });
}

TEST_P(PantallasDeVendedores, TheOptionSortsTheListByName) {
    ctx->opciones.VendedorOrderxNombre = true;
    listar([](FrmLstVendedores &lista) {
        QStringList nombres = columna(lista.ui.Lst, 0);
        EXPECT_EQ(nombres.first(), QStringLiteral("AUTOPECAS PAULISTA LTDA."));
        EXPECT_EQ(nombres.size(), 6);
        tecla(Qt::Key_Escape);
    });
}

TEST_P(PantallasDeVendedores, F6AndShiftEnterOpenTheRowForEditing) {
    for (const bool conF6 : {true, false}) {
        listar([&](FrmLstVendedores &lista) {
            escribir(QStringLiteral("nord"));
            conPantallaModal<FrmNewVendedor>([&](FrmNewVendedor &vendedor) {
                EXPECT_EQ(vendedor.ui.TxtCodigo->text(), QStringLiteral("V001"));
                EXPECT_FALSE(vendedor.ui.TxtCodigo->isEnabled());
                EXPECT_EQ(QApplication::focusWidget(), vendedor.ui.TxtNombre);
                EXPECT_EQ(vendedor.ui.cboPais->currentText().left(3), QStringLiteral("438"));
                tecla(Qt::Key_Return);
                vendedor.ui.TxtDomicilio->clear();
                escribir(conF6 ? QStringLiteral("Kai d'Ouest 1") : QStringLiteral("Kai 2"));
                atajo(Qt::Key_G);
            });
            if (conF6)
                tecla(Qt::Key_F6);
            else
                tecla(Qt::Key_Return, Qt::ShiftModifier);
            EXPECT_EQ(enMano(lista.ui.Lst, 2),
                      conF6 ? QStringLiteral("Kai d'Ouest 1") : QStringLiteral("Kai 2"));
            esperarVentana(lista.ventana.get());
            tecla(Qt::Key_Escape);
        });
    }
    EXPECT_EQ(vendedor(QStringLiteral("V001")), QStringLiteral("V001|NORDPUMPEN GMBH|Kai 2|438"));
    EXPECT_EQ(valor(QStringLiteral("select nivel from vendedor where codigo = 'V001'"), personal),
              QStringLiteral("COMERCIAL"));
    EXPECT_TRUE(registro.mensajes.empty()) << "a change says nothing";
}

TEST_P(PantallasDeVendedores, InsertAddsASellerByKeysAlone) {
    listar([this](FrmLstVendedores &lista) {
        conPantallaModal<FrmNewVendedor>([](FrmNewVendedor &vendedor) {
            EXPECT_EQ(QApplication::focusWidget(), vendedor.ui.TxtCodigo);
            EXPECT_EQ(vendedor.ui.cboPais->currentIndex(), -1);
            escribir(QStringLiteral("V100"));
            tecla(Qt::Key_Return);
            escribir(QStringLiteral("ÑANDÚ S.A."));
            tecla(Qt::Key_Return);
            escribir(QStringLiteral("Ruta 3"));
            tecla(Qt::Key_Return);
            EXPECT_EQ(QApplication::focusWidget(), vendedor.ui.cboPais);
            escribir(QStringLiteral("203"));
            EXPECT_EQ(vendedor.ui.cboPais->currentText(), QStringLiteral("203 - BRASIL"));
            tecla(Qt::Key_Return);
            EXPECT_EQ(QApplication::focusWidget(), vendedor.ui.Command1);
            tecla(Qt::Key_Return);
        });
        tecla(Qt::Key_Insert);
        EXPECT_EQ(enMano(lista.ui.Lst, 1), QStringLiteral("V100")) << "the new one is in hand";
        esperarVentana(lista.ventana.get());
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(vendedor(QStringLiteral("V100")), QStringLiteral("V100|ÑANDÚ S.A.|Ruta 3|203"));
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto, QStringLiteral("Datos ingresados correctamente."));
}

TEST_P(PantallasDeVendedores, WithoutCodeOrNameAndWithACodeThatExistsTheFieldIsShownAgain) {
    conPantallaModal<FrmNewVendedor>([this](FrmNewVendedor &vendedor) {
        atajo(Qt::Key_G);
        EXPECT_EQ(QApplication::focusWidget(), vendedor.ui.TxtCodigo);
        escribir(QStringLiteral("V001"));
        atajo(Qt::Key_G);
        EXPECT_EQ(QApplication::focusWidget(), vendedor.ui.TxtNombre);
        escribir(QStringLiteral("OTRO"));
        atajo(Qt::Key_G);
        EXPECT_EQ(QApplication::focusWidget(), vendedor.ui.TxtCodigo);
        ASSERT_EQ(registro.mensajes.size(), 3U);
        EXPECT_EQ(registro.mensajes[2].texto, QStringLiteral("El codigo ya existe.!"));
        tecla(Qt::Key_Escape);
    });
    AgregarVendedor({});
    EXPECT_EQ(vendedor(QStringLiteral("V001")),
              QStringLiteral("V001|NORDPUMPEN GMBH|Hafenstrasse 12, Hamburg|438"));
}

TEST_P(PantallasDeVendedores, DeleteInTheGridDeletesWithoutAQuestionAndInABoxOnlyEdits) {
    listar([this](FrmLstVendedores &lista) {
        escribir(QStringLiteral("off"));
        tecla(Qt::Key_Delete);
        EXPECT_EQ(lista.ui.Lst->rowCount(), 6);
        lista.ui.Lst->setFocus();
        tecla(Qt::Key_Delete);
        EXPECT_EQ(columna(lista.ui.Lst, 1).join(QLatin1Char(' ')).toStdString(), "V001 V003 V004 V005 V006");
        EXPECT_EQ(enMano(lista.ui.Lst, 1), QStringLiteral("V003")) << "the row in its place is in hand";
        tecla(Qt::Key_Escape);
    });
    EXPECT_TRUE(registro.preguntas.empty());
    EXPECT_EQ(vendedor(QStringLiteral("V002")), QString());
}

TEST_P(PantallasDeVendedores, AnEmptyBookIsToldAndTakesANewSeller) {
    ejecutar(QStringLiteral("delete from vendedor"), personal);
    listar([this](FrmLstVendedores &lista) {
        ASSERT_EQ(registro.mensajes.size(), 1U);
        EXPECT_EQ(registro.mensajes[0].texto, QStringLiteral("No hay vendedores en la Base"));
        for (const int inutil : {Qt::Key_Down, Qt::Key_End, Qt::Key_F6, Qt::Key_Return}) tecla(inutil);
        lista.ui.Lst->setFocus();
        for (const int inutil : {Qt::Key_Down, Qt::Key_End, Qt::Key_Delete, Qt::Key_Return}) tecla(inutil);
        EXPECT_TRUE(lista.ventana->isVisible());
        tecla(Qt::Key_Escape);
    });
}

TEST_P(PantallasDeVendedores, AnUnknownCodeIsAddedOnYesAndThenFound) {
    registro.respuestas.push_back(true);
    conPantallaModal<FrmNewVendedor>([](FrmNewVendedor &vendedor) {
        EXPECT_EQ(vendedor.ui.TxtCodigo->text(), QStringLiteral("V777"));
        EXPECT_EQ(QApplication::focusWidget(), vendedor.ui.TxtNombre);
        escribir(QStringLiteral("NUEVO"));
        atajo(Qt::Key_G);
    });
    QString nombre;
    EXPECT_TRUE(BuscarVendedor(*ctx, QStringLiteral("V777"), nombre, AgregarVendedor));
    EXPECT_EQ(nombre, QStringLiteral("NUEVO"));
    ASSERT_EQ(registro.preguntas.size(), 1U);
    EXPECT_EQ(registro.preguntas[0].texto,
              QStringLiteral(
                  "No se encontro este codigo en la lista de VENDEDORES.\r\nDesea AGREGARLO a la lista"));

    registro.respuestas.push_back(true);
    conPantallaModal<FrmNewVendedor>([](FrmNewVendedor &) { tecla(Qt::Key_Escape); });
    EXPECT_FALSE(BuscarVendedor(*ctx, QStringLiteral("V778"), nombre, AgregarVendedor));
}

TEST_P(PantallasDeVendedores, ACountryThatTheTableDoesNotHoldStaysAsItWasStored) {
    ejecutar(QStringLiteral("update vendedor set paisdelexportador = '999' where codigo = 'V001'"), personal);
    auto &pantalla = Pantalla<FrmNewVendedor>();
    conPantallaModal<FrmNewVendedor>([](FrmNewVendedor &vendedor) {
        EXPECT_EQ(vendedor.ui.cboPais->currentIndex(), -1);
        atajo(Qt::Key_G);
    });
    EXPECT_EQ(pantalla.Modificar(QStringLiteral("V001")), QStringLiteral("V001"));
    EXPECT_EQ(valor(QStringLiteral("select paisdelexportador from vendedor where codigo = 'V001'"), personal),
              QStringLiteral("999"));
}

TEST_P(PantallasDeVendedores, ASellerThatAnotherWorkstationDeletedIsTold) {
    listar([this](FrmLstVendedores &lista) {
        ejecutar(QStringLiteral("delete from vendedor where codigo = 'V001'"), personal);
        tecla(Qt::Key_F6);
        ASSERT_EQ(registro.mensajes.size(), 1U);
        EXPECT_EQ(registro.mensajes[0].texto,
                  QStringLiteral("El vendedor V001 ya no está en la base, otro puesto lo eliminó."));
        EXPECT_EQ(lista.ui.Lst->rowCount(), 5);
        tecla(Qt::Key_Escape);
    });
}

TEST_P(PantallasDeVendedores, AnErrorOfTheStoreIsAMessageAndTheListStays) {
    listar([this](FrmLstVendedores &lista) {
        ejecutar(QStringLiteral("drop table vendedor"), personal);
        teclaEn(lista.ui.Lst, Qt::Key_Delete);
        ASSERT_EQ(registro.mensajes.size(), 1U);
        EXPECT_EQ(registro.mensajes[0].icono, Icono::Critico);
        EXPECT_EQ(lista.ui.Lst->rowCount(), 6);
        tecla(Qt::Key_Escape);
    });
}

EN_AMBOS_STORES(PantallasDeVendedores);

class ListaDeDespachantes : public EnPantalla {
 protected:
    QString listar(const std::function<void(FrmListadoDespachante &)> &hacer) {
        conPantallaModal<FrmListadoDespachante>(hacer);
        QString cuit;
        QString nombre;
        return ListarDespachantes(cuit, nombre) ? cuit + QLatin1Char('|') + nombre : QString();
    }
};

TEST_P(ListaDeDespachantes, ARowIsFoundByNameOrNumberAndFillsTheSlots) {
    EXPECT_EQ(listar([](FrmListadoDespachante &lista) {
                  EXPECT_EQ(columna(lista.ui.Lst, 1).first(), QStringLiteral("ACOSTA RUBEN OSCAR"));
                  escribir(QStringLiteral("bian"));
                  tecla(Qt::Key_Return);
              }),
              QStringLiteral("27234567816|BIANCHI SILVIA NOEMI"));
    EXPECT_EQ(DespachanteElegido().codigo, QStringLiteral("27234567816"));
    EXPECT_EQ(listar([](FrmListadoDespachante &lista) {
                  lista.ui.txtBuscarPorCuit->setFocus();
                  escribir(QStringLiteral("2016"));
                  tecla(Qt::Key_Return);
              }),
              QStringLiteral("20167890122|FERREYRA HORACIO DANIEL"));
}

TEST_P(ListaDeDespachantes, EscapeClosesAndEmptiesTheSlots) {
    DespachanteElegido() = {QStringLiteral("1"), QStringLiteral("de antes")};
    EXPECT_EQ(listar([](FrmListadoDespachante &) { tecla(Qt::Key_Escape); }), QString());
    EXPECT_EQ(DespachanteElegido().codigo, QString());
}

TEST_P(ListaDeDespachantes, ItOnlyPicks) {
    listar([this](FrmListadoDespachante &lista) {
        lista.ui.Lst->setFocus();
        for (const int otra : {Qt::Key_Insert, Qt::Key_Delete, Qt::Key_F6}) tecla(otra);
        EXPECT_EQ(lista.ui.Lst->rowCount(), 3);
        EXPECT_EQ(valor(QStringLiteral("select count(*) from despadu"), personal), QStringLiteral("3"));
        tecla(Qt::Key_Escape);
    });
}

TEST_P(ListaDeDespachantes, F6InTheBrowsersFilterWritesTheNumberAndTheName) {
    auto &navegador = Pantalla<FrmInternoNew>();
    navegador.Mostrar();
    esperarVentana(navegador.ventana.get());
    navegador.ui.txtDespachante->setFocus();
    conPantallaModal<FrmListadoDespachante>([](FrmListadoDespachante &) {
        escribir(QStringLiteral("ferr"));
        tecla(Qt::Key_Return);
    });
    tecla(Qt::Key_F6);
    EXPECT_EQ(navegador.ui.txtDespachante->text(), QStringLiteral("20167890122"));
    EXPECT_EQ(navegador.ui.lbDespachante->text(), QStringLiteral("FERREYRA HORACIO DANIEL"));
    esperarVentana(navegador.ventana.get());
    EXPECT_EQ(QApplication::focusWidget(), navegador.ui.txtDespachante);
    conPantallaModal<FrmListadoDespachante>([](FrmListadoDespachante &) { tecla(Qt::Key_Escape); });
    tecla(Qt::Key_F6);
    EXPECT_EQ(navegador.ui.txtDespachante->text(), QStringLiteral("20167890122")) << "ESC changes nothing";
}

TEST_P(ListaDeDespachantes, F6InTheBrowsersClientFilterWritesTheNumberAndTheName) {
    auto &navegador = Pantalla<FrmInternoNew>();
    navegador.Mostrar();
    esperarVentana(navegador.ventana.get());
    navegador.ui.txtCliente->setFocus();
    conPantallaModal<FrmClientes>([](FrmClientes &) {
        escribir(QStringLiteral("hidr"));
        tecla(Qt::Key_Return);
    });
    tecla(Qt::Key_F6);
    EXPECT_EQ(navegador.ui.txtCliente->text(), QStringLiteral("30708123451"));
    EXPECT_EQ(navegador.ui.lbCliente->text(), QStringLiteral("HIDRAULICA DEL PLATA S.A."));
    esperarVentana(navegador.ventana.get());
    teclaEn(navegador.ui.txtInterno, Qt::Key_Return);
    EXPECT_EQ(navegador.InternoSeleccionado(), QStringLiteral("IC-2026-0001"));
}

EN_AMBOS_STORES(ListaDeDespachantes);

class ListaGeneral : public EnPantalla {
 protected:
    const std::vector<FilaDeListado> listas{{QStringLiteral("A1"), QStringLiteral("Régimen automotriz")},
                                            {QStringLiteral("B2"), QStringLiteral("Mercosur")},
                                            {QStringLiteral("C3"), QStringLiteral("Otro régimen")}};
    QString elegir(const std::function<void(FrmListadoeX &)> &hacer) {
        auto &listado = Pantalla<FrmListadoeX>();
        conPantallaModal<FrmListadoeX>(hacer);
        return listado.Elegir(QStringLiteral("LISTAS"), listas);
    }
};

TEST_P(ListaGeneral, EnterTakesTheRowAndEscapeNone) {
    EXPECT_EQ(elegir([](FrmListadoeX &listado) {
                  EXPECT_EQ(listado.ventana->windowTitle(), QStringLiteral("LISTAS"));
                  EXPECT_EQ(QApplication::focusWidget(), listado.ui.Lst);
                  tecla(Qt::Key_End);
                  tecla(Qt::Key_Up);
                  tecla(Qt::Key_Return);
              }),
              QStringLiteral("B2"));
    EXPECT_EQ(elegir([](FrmListadoeX &) { tecla(Qt::Key_Escape); }), QString());
}

TEST_P(ListaGeneral, TheToolbarSearchesFromTheRowInHand) {
    elegir([this](FrmListadoeX &listado) {
        // The first row holds the text too, but the search goes on from it.
        registro.textos.emplace_back(QStringLiteral("REGIMEN"));
        tecla(Qt::Key_D, Qt::AltModifier);
        ASSERT_EQ(registro.entradas.size(), 1U);
        EXPECT_EQ(registro.entradas[0].texto, QStringLiteral("Ingrese el texto a buscar en DESCRIPCIÓN"));
        EXPECT_EQ(enMano(listado.ui.Lst, 0), QStringLiteral("C3"));
        tecla(Qt::Key_Home);
        registro.textos.emplace_back(QStringLiteral("2"));
        tecla(Qt::Key_C, Qt::AltModifier);
        EXPECT_EQ(registro.entradas[1].texto, QStringLiteral("Ingrese el texto a buscar en CODIGO"));
        EXPECT_EQ(enMano(listado.ui.Lst, 0), QStringLiteral("B2"));
        EXPECT_TRUE(registro.mensajes.empty());
        tecla(Qt::Key_Escape);
    });
}

TEST_P(ListaGeneral, ATextThatIsNowhereIsToldAndTheRowStays) {
    elegir([this](FrmListadoeX &listado) {
        tecla(Qt::Key_Down);
        registro.textos.emplace_back(QStringLiteral("zzz"));
        tecla(Qt::Key_C, Qt::AltModifier);
        ASSERT_EQ(registro.mensajes.size(), 1U);
        EXPECT_EQ(registro.mensajes[0].texto, QStringLiteral("Cadena no encontrada"));
        EXPECT_EQ(enMano(listado.ui.Lst, 0), QStringLiteral("B2"));
        EXPECT_EQ(QApplication::focusWidget(), listado.ui.Lst);
        tecla(Qt::Key_Escape);
    });
}

TEST_P(ListaGeneral, TypingALetterGoesToTheCodeThatBeginsWithIt) {
    elegir([](FrmListadoeX &listado) {
        escribir(QStringLiteral("c"));
        EXPECT_EQ(enMano(listado.ui.Lst, 0), QStringLiteral("C3"));
        tecla(Qt::Key_Escape);
    });
}

EN_AMBOS_STORES(ListaGeneral);

}  // namespace
