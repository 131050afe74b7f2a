// Sellers, brokers and the general list, by keyboard.

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

#include "frame/entities.h"
#include "frame/ui/Pantalla.h"
#include "header/FrmClientes.h"
#include "header/FrmListadoDespachante.h"
#include "header/FrmListadoeX.h"
#include "header/FrmLstVendedores.h"
#include "header/FrmNewVendedor.h"
#include "operations/FrmInternoNew.h"
#include "tests/support/pantallas.h"

using namespace Qt::StringLiterals;

namespace {

using entidad::personal;

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
        return filas(
            "select codigo,nombre,domicilio,paisdelexportador from vendedor where "
            "codigo = '"_L1 +
                codigo + QLatin1Char('\''),
            personal);
    }
};

TEST_P(PantallasDeVendedores, TypingANameTakesItsRowAndEnterChoosesIt) {
    EXPECT_EQ(listar([](FrmLstVendedores &lista) {
                  EXPECT_EQ(QApplication::focusWidget(), lista.ui.txtBuscar);
                  EXPECT_EQ(textosDe(lista.ui.Lst, 1).first(), u"V001"_s) << "by code";
                  escribir(u"off"_s);
                  EXPECT_EQ(enMano(lista.ui.Lst, 1), u"V002"_s);
                  tecla(Qt::Key_Return);
              }),
              u"V002|OFFICINE TREVISANI S.P.A."_s);
}

TEST_P(PantallasDeVendedores, TheOtherBoxSearchesByCode) {
    EXPECT_EQ(listar([](FrmLstVendedores &lista) {
                  tecla(Qt::Key_Tab);
                  EXPECT_EQ(QApplication::focusWidget(), lista.ui.txtBuscarPorCodigo);
                  escribir(u"v004"_s);
                  tecla(Qt::Key_Return);
              }),
              u"V004|SHUNDA TEXTILE CO."_s);
}

TEST_P(PantallasDeVendedores, NoMatchLeavesNoRowAndEnterThenTakesNothing) {
    listar([](FrmLstVendedores &lista) {
        escribir(u"zz"_s);
        EXPECT_EQ(lista.ui.Lst->currentRow(), -1);
        tecla(Qt::Key_Return);
        EXPECT_TRUE(lista.ventana->isVisible());
        tecla(Qt::Key_F6);
        EXPECT_FALSE(PantallaAbierta<FrmNewVendedor>());
        tecla(Qt::Key_Escape);
    });
}

TEST_P(PantallasDeVendedores, EscapeClosesWithNothingChosen) {
    VendedorElegido() = {u"V001"_s, u"de antes"_s};
    EXPECT_EQ(listar([](FrmLstVendedores &) {
                  escribir(u"off"_s);
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
              u"V003|AUTOPECAS PAULISTA LTDA."_s);
}

TEST_P(PantallasDeVendedores, TheListIsMovedFromTheBoxAndFromTheGrid) {
    listar([](FrmLstVendedores &lista) {
        tecla(Qt::Key_Down);
        EXPECT_EQ(enMano(lista.ui.Lst, 1), u"V002"_s);
        EXPECT_EQ(lista.ui.txtBuscar->text(), u"OFFICINE TREVISANI S.P.A."_s);
        tecla(Qt::Key_End);
        EXPECT_EQ(enMano(lista.ui.Lst, 1), u"V006"_s);
        tecla(Qt::Key_Home);
        EXPECT_EQ(enMano(lista.ui.Lst, 1), u"V001"_s);
        tecla(Qt::Key_PageDown);
        EXPECT_EQ(enMano(lista.ui.Lst, 1), u"V006"_s);
        tecla(Qt::Key_PageUp);
        EXPECT_EQ(enMano(lista.ui.Lst, 1), u"V001"_s);
        lista.ui.Lst->setFocus();
        tecla(Qt::Key_End);
        EXPECT_EQ(enMano(lista.ui.Lst, 1), u"V006"_s);
        tecla(Qt::Key_Up);
        EXPECT_EQ(enMano(lista.ui.Lst, 1), u"V005"_s);
        tecla(Qt::Key_Home);
        EXPECT_EQ(enMano(lista.ui.Lst, 1), u"V001"_s);
        escribir(u"sh"_s);
        EXPECT_EQ(QApplication::focusWidget(), lista.ui.txtBuscar) << "a letter searches";
        EXPECT_EQ(lista.ui.txtBuscar->text(), u"sh"_s);
        EXPECT_EQ(enMano(lista.ui.Lst, 1), u"V004"_s);
        tecla(Qt::Key_Escape);
    });
}

TEST_P(PantallasDeVendedores, TheOptionSortsTheListByName) {
    ctx->opciones.VendedorOrderxNombre = true;
    listar([](FrmLstVendedores &lista) {
        QStringList nombres = textosDe(lista.ui.Lst, 0);
        EXPECT_EQ(nombres.first(), u"AUTOPECAS PAULISTA LTDA."_s);
        EXPECT_EQ(nombres.size(), 6);
        tecla(Qt::Key_Escape);
    });
}

TEST_P(PantallasDeVendedores, F6AndShiftEnterOpenTheRowForEditing) {
    for (const bool conF6 : {true, false}) {
        listar([&](FrmLstVendedores &lista) {
            escribir(u"nord"_s);
            conPantallaModal<FrmNewVendedor>([&](FrmNewVendedor &vendedor) {
                EXPECT_EQ(vendedor.ui.TxtCodigo->text(), u"V001"_s);
                EXPECT_FALSE(vendedor.ui.TxtCodigo->isEnabled());
                EXPECT_EQ(QApplication::focusWidget(), vendedor.ui.TxtNombre);
                EXPECT_EQ(vendedor.ui.cboPais->currentText().left(3), u"438"_s);
                tecla(Qt::Key_Return);
                vendedor.ui.TxtDomicilio->clear();
                escribir(conF6 ? u"Kai d'Ouest 1"_s : u"Kai 2"_s);
                atajo(Qt::Key_G);
            });
            if (conF6)
                tecla(Qt::Key_F6);
            else
                tecla(Qt::Key_Return, Qt::ShiftModifier);
            EXPECT_EQ(enMano(lista.ui.Lst, 2), conF6 ? u"Kai d'Ouest 1"_s : u"Kai 2"_s);
            esperarVentana(lista.ventana.get());
            tecla(Qt::Key_Escape);
        });
    }
    EXPECT_EQ(vendedor(u"V001"_s), u"V001|NORDPUMPEN GMBH|Kai 2|438"_s);
    EXPECT_EQ(valor(u"select nivel from vendedor where codigo = 'V001'"_s, personal), u"COMERCIAL"_s);
    EXPECT_TRUE(registro.mensajes.empty()) << "a change says nothing";
}

TEST_P(PantallasDeVendedores, InsertAddsASellerByKeysAlone) {
    listar([this](FrmLstVendedores &lista) {
        conPantallaModal<FrmNewVendedor>([](FrmNewVendedor &vendedor) {
            EXPECT_EQ(QApplication::focusWidget(), vendedor.ui.TxtCodigo);
            EXPECT_EQ(vendedor.ui.cboPais->currentIndex(), -1);
            escribir(u"V100"_s);
            tecla(Qt::Key_Return);
            escribir(u"ÑANDÚ S.A."_s);
            tecla(Qt::Key_Return);
            escribir(u"Ruta 3"_s);
            tecla(Qt::Key_Return);
            EXPECT_EQ(QApplication::focusWidget(), vendedor.ui.cboPais);
            escribir(u"203"_s);
            EXPECT_EQ(vendedor.ui.cboPais->currentText(), u"203 - BRASIL"_s);
            tecla(Qt::Key_Return);
            EXPECT_EQ(QApplication::focusWidget(), vendedor.ui.Command1);
            tecla(Qt::Key_Return);
        });
        tecla(Qt::Key_Insert);
        EXPECT_EQ(enMano(lista.ui.Lst, 1), u"V100"_s) << "the new one is in hand";
        esperarVentana(lista.ventana.get());
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(vendedor(u"V100"_s), u"V100|ÑANDÚ S.A.|Ruta 3|203"_s);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto, u"Datos ingresados correctamente."_s);
}

TEST_P(PantallasDeVendedores, WithoutCodeOrNameAndWithACodeThatExistsTheFieldIsShownAgain) {
    conPantallaModal<FrmNewVendedor>([this](FrmNewVendedor &vendedor) {
        atajo(Qt::Key_G);
        EXPECT_EQ(QApplication::focusWidget(), vendedor.ui.TxtCodigo);
        escribir(u"V001"_s);
        atajo(Qt::Key_G);
        EXPECT_EQ(QApplication::focusWidget(), vendedor.ui.TxtNombre);
        escribir(u"OTRO"_s);
        atajo(Qt::Key_G);
        EXPECT_EQ(QApplication::focusWidget(), vendedor.ui.TxtCodigo);
        ASSERT_EQ(registro.mensajes.size(), 3U);
        EXPECT_EQ(registro.mensajes[2].texto, u"El codigo ya existe.!"_s);
        tecla(Qt::Key_Escape);
    });
    AgregarVendedor({});
    EXPECT_EQ(vendedor(u"V001"_s), u"V001|NORDPUMPEN GMBH|Hafenstrasse 12, Hamburg|438"_s);
}

TEST_P(PantallasDeVendedores, DeleteInTheGridDeletesWithoutAQuestionAndInABoxOnlyEdits) {
    listar([this](FrmLstVendedores &lista) {
        escribir(u"off"_s);
        tecla(Qt::Key_Delete);
        EXPECT_EQ(lista.ui.Lst->rowCount(), 6);
        lista.ui.Lst->setFocus();
        tecla(Qt::Key_Delete);
        EXPECT_EQ(textosDe(lista.ui.Lst, 1).join(QLatin1Char(' ')).toStdString(), "V001 V003 V004 V005 V006");
        EXPECT_EQ(enMano(lista.ui.Lst, 1), u"V003"_s) << "the row in its place is in hand";
        tecla(Qt::Key_Escape);
    });
    EXPECT_TRUE(registro.preguntas.empty());
    EXPECT_EQ(vendedor(u"V002"_s), QString());
}

TEST_P(PantallasDeVendedores, AnEmptyBookIsToldAndTakesANewSeller) {
    ejecutar(u"delete from vendedor"_s, personal);
    listar([this](FrmLstVendedores &lista) {
        ASSERT_EQ(registro.mensajes.size(), 1U);
        EXPECT_EQ(registro.mensajes[0].texto, u"No hay vendedores en la Base"_s);
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
        EXPECT_EQ(vendedor.ui.TxtCodigo->text(), u"V777"_s);
        EXPECT_EQ(QApplication::focusWidget(), vendedor.ui.TxtNombre);
        escribir(u"NUEVO"_s);
        atajo(Qt::Key_G);
    });
    QString nombre;
    EXPECT_TRUE(BuscarVendedor(*ctx, u"V777"_s, nombre, AgregarVendedor));
    EXPECT_EQ(nombre, u"NUEVO"_s);
    ASSERT_EQ(registro.preguntas.size(), 1U);
    EXPECT_EQ(registro.preguntas[0].texto,
              u"No se encontro este codigo en la lista de VENDEDORES.\r\nDesea AGREGARLO a la lista"_s);

    registro.respuestas.push_back(true);
    conPantallaModal<FrmNewVendedor>([](FrmNewVendedor &) { tecla(Qt::Key_Escape); });
    EXPECT_FALSE(BuscarVendedor(*ctx, u"V778"_s, nombre, AgregarVendedor));
}

TEST_P(PantallasDeVendedores, ACountryThatTheTableDoesNotHoldStaysAsItWasStored) {
    ejecutar(u"update vendedor set paisdelexportador = '999' where codigo = 'V001'"_s, personal);
    auto &pantalla = Pantalla<FrmNewVendedor>();
    conPantallaModal<FrmNewVendedor>([](FrmNewVendedor &vendedor) {
        EXPECT_EQ(vendedor.ui.cboPais->currentIndex(), -1);
        atajo(Qt::Key_G);
    });
    EXPECT_EQ(pantalla.Modificar(u"V001"_s), u"V001"_s);
    EXPECT_EQ(valor(u"select paisdelexportador from vendedor where codigo = 'V001'"_s, personal), u"999"_s);
}

TEST_P(PantallasDeVendedores, ASellerThatAnotherWorkstationDeletedIsTold) {
    listar([this](FrmLstVendedores &lista) {
        ejecutar(u"delete from vendedor where codigo = 'V001'"_s, personal);
        tecla(Qt::Key_F6);
        ASSERT_EQ(registro.mensajes.size(), 1U);
        EXPECT_EQ(registro.mensajes[0].texto,
                  u"El vendedor V001 ya no está en la base, otro puesto lo eliminó."_s);
        EXPECT_EQ(lista.ui.Lst->rowCount(), 5);
        tecla(Qt::Key_Escape);
    });
}

TEST_P(PantallasDeVendedores, AnErrorOfTheStoreIsAMessageAndTheListStays) {
    listar([this](FrmLstVendedores &lista) {
        ejecutar(u"drop table vendedor"_s, personal);
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
                  EXPECT_EQ(textosDe(lista.ui.Lst, 1).first(), u"ACOSTA RUBEN OSCAR"_s);
                  escribir(u"bian"_s);
                  tecla(Qt::Key_Return);
              }),
              u"27234567816|BIANCHI SILVIA NOEMI"_s);
    EXPECT_EQ(DespachanteElegido().codigo, u"27234567816"_s);
    EXPECT_EQ(listar([](FrmListadoDespachante &lista) {
                  lista.ui.txtBuscarPorCuit->setFocus();
                  escribir(u"2016"_s);
                  tecla(Qt::Key_Return);
              }),
              u"20167890122|FERREYRA HORACIO DANIEL"_s);
}

TEST_P(ListaDeDespachantes, EscapeClosesAndEmptiesTheSlots) {
    DespachanteElegido() = {u"1"_s, u"de antes"_s};
    EXPECT_EQ(listar([](FrmListadoDespachante &) { tecla(Qt::Key_Escape); }), QString());
    EXPECT_EQ(DespachanteElegido().codigo, QString());
}

TEST_P(ListaDeDespachantes, ItOnlyPicks) {
    listar([this](FrmListadoDespachante &lista) {
        lista.ui.Lst->setFocus();
        for (const int otra : {Qt::Key_Insert, Qt::Key_Delete, Qt::Key_F6}) tecla(otra);
        EXPECT_EQ(lista.ui.Lst->rowCount(), 3);
        EXPECT_EQ(valor(u"select count(*) from despadu"_s, personal), u"3"_s);
        tecla(Qt::Key_Escape);
    });
}

TEST_P(ListaDeDespachantes, F6InTheBrowsersFilterWritesTheNumberAndTheName) {
    auto &navegador = Pantalla<FrmInternoNew>();
    navegador.Mostrar();
    esperarVentana(navegador.ventana.get());
    navegador.ui.txtDespachante->setFocus();
    conPantallaModal<FrmListadoDespachante>([](FrmListadoDespachante &) {
        escribir(u"ferr"_s);
        tecla(Qt::Key_Return);
    });
    tecla(Qt::Key_F6);
    EXPECT_EQ(navegador.ui.txtDespachante->text(), u"20167890122"_s);
    EXPECT_EQ(navegador.ui.lbDespachante->text(), u"FERREYRA HORACIO DANIEL"_s);
    esperarVentana(navegador.ventana.get());
    EXPECT_EQ(QApplication::focusWidget(), navegador.ui.txtDespachante);
    conPantallaModal<FrmListadoDespachante>([](FrmListadoDespachante &) { tecla(Qt::Key_Escape); });
    tecla(Qt::Key_F6);
    EXPECT_EQ(navegador.ui.txtDespachante->text(), u"20167890122"_s) << "ESC changes nothing";
}

TEST_P(ListaDeDespachantes, F6InTheBrowsersClientFilterWritesTheNumberAndTheName) {
    auto &navegador = Pantalla<FrmInternoNew>();
    navegador.Mostrar();
    esperarVentana(navegador.ventana.get());
    navegador.ui.txtCliente->setFocus();
    conPantallaModal<FrmClientes>([](FrmClientes &) {
        escribir(u"hidr"_s);
        tecla(Qt::Key_Return);
    });
    tecla(Qt::Key_F6);
    EXPECT_EQ(navegador.ui.txtCliente->text(), u"30708123451"_s);
    EXPECT_EQ(navegador.ui.lbCliente->text(), u"HIDRAULICA DEL PLATA S.A."_s);
    esperarVentana(navegador.ventana.get());
    teclaEn(navegador.ui.txtInterno, Qt::Key_Return);
    EXPECT_EQ(navegador.InternoSeleccionado(), u"IC-2026-0001"_s);
}

EN_AMBOS_STORES(ListaDeDespachantes);

class ListaGeneral : public EnPantalla {
 protected:
    const std::vector<FilaDeListado> listas{
        {u"A1"_s, u"Régimen automotriz"_s}, {u"B2"_s, u"Mercosur"_s}, {u"C3"_s, u"Otro régimen"_s}};
    QString elegir(const std::function<void(FrmListadoeX &)> &hacer) {
        auto &listado = Pantalla<FrmListadoeX>();
        conPantallaModal<FrmListadoeX>(hacer);
        return listado.Elegir(u"LISTAS"_s, listas);
    }
};

TEST_P(ListaGeneral, EnterTakesTheRowAndEscapeNone) {
    EXPECT_EQ(elegir([](FrmListadoeX &listado) {
                  EXPECT_EQ(listado.ventana->windowTitle(), u"LISTAS"_s);
                  EXPECT_EQ(QApplication::focusWidget(), listado.ui.Lst);
                  tecla(Qt::Key_End);
                  tecla(Qt::Key_Up);
                  tecla(Qt::Key_Return);
              }),
              u"B2"_s);
    EXPECT_EQ(elegir([](FrmListadoeX &) { tecla(Qt::Key_Escape); }), QString());
}

TEST_P(ListaGeneral, TheToolbarSearchesFromTheRowInHand) {
    elegir([this](FrmListadoeX &listado) {
        // The first row holds the text too, but the search goes on from it.
        registro.textos.emplace_back(u"REGIMEN"_s);
        tecla(Qt::Key_D, Qt::AltModifier);
        ASSERT_EQ(registro.entradas.size(), 1U);
        EXPECT_EQ(registro.entradas[0].texto, u"Ingrese el texto a buscar en DESCRIPCIÓN"_s);
        EXPECT_EQ(enMano(listado.ui.Lst, 0), u"C3"_s);
        tecla(Qt::Key_Home);
        registro.textos.emplace_back(u"2"_s);
        tecla(Qt::Key_C, Qt::AltModifier);
        EXPECT_EQ(registro.entradas[1].texto, u"Ingrese el texto a buscar en CODIGO"_s);
        EXPECT_EQ(enMano(listado.ui.Lst, 0), u"B2"_s);
        EXPECT_TRUE(registro.mensajes.empty());
        tecla(Qt::Key_Escape);
    });
}

TEST_P(ListaGeneral, ATextThatIsNowhereIsToldAndTheRowStays) {
    elegir([this](FrmListadoeX &listado) {
        tecla(Qt::Key_Down);
        registro.textos.emplace_back(u"zzz"_s);
        tecla(Qt::Key_C, Qt::AltModifier);
        ASSERT_EQ(registro.mensajes.size(), 1U);
        EXPECT_EQ(registro.mensajes[0].texto, u"Cadena no encontrada"_s);
        EXPECT_EQ(enMano(listado.ui.Lst, 0), u"B2"_s);
        EXPECT_EQ(QApplication::focusWidget(), listado.ui.Lst);
        tecla(Qt::Key_Escape);
    });
}

TEST_P(ListaGeneral, TypingALetterGoesToTheCodeThatBeginsWithIt) {
    elegir([](FrmListadoeX &listado) {
        escribir(u"c"_s);
        EXPECT_EQ(enMano(listado.ui.Lst, 0), u"C3"_s);
        tecla(Qt::Key_Escape);
    });
}

EN_AMBOS_STORES(ListaGeneral);

}  // namespace
