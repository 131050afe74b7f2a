// The operation browser, by keyboard.

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

#include "frame/ui/Pantalla.h"
#include "operations/FrmDetalleInterno.h"
#include "operations/FrmInternoNew.h"
#include "tests/support/pantallas.h"

namespace {

class Navegador : public EnPantalla {
 protected:
    FrmInternoNew &mostrar() {
        auto &navegador = Pantalla<FrmInternoNew>();
        navegador.Mostrar();
        esperarVentana(navegador.ventana.get());
        return navegador;
    }
    static QStringList claves(const FrmInternoNew &navegador) {
        QStringList todas;
        const QAbstractItemModel *modelo = navegador.ui.lstInterno->model();
        for (int fila = 0; fila < modelo->rowCount(); ++fila)
            todas << modelo->index(fila, 1).data().toString();
        return todas;
    }
};

const QStringList cinco{QStringLiteral("DJAI-2026-0004"), QStringLiteral("EC-2026-0002"),
                        QStringLiteral("IC-2026-0001"), QStringLiteral("ICR-2026-0005"),
                        QStringLiteral("IT-2026-0003")};

TEST_P(Navegador, EnterInTheKeySearchesAndTakesTheFocusToTheGrid) {
    auto &navegador = mostrar();
    EXPECT_EQ(QApplication::focusWidget(), navegador.ui.txtInterno);
    tecla(Qt::Key_Return);
    EXPECT_EQ(claves(navegador), cinco);
    EXPECT_EQ(QApplication::focusWidget(), navegador.ui.lstInterno);
    EXPECT_EQ(navegador.InternoSeleccionado(), cinco.first());
}

TEST_P(Navegador, TheKeyIsAPrefixAndIsRemembered) {
    mostrar();
    escribir(QStringLiteral("IC"));
    tecla(Qt::Key_Return);
    EXPECT_EQ(claves(Pantalla<FrmInternoNew>()), cinco.mid(2, 2));
    CerrarPantalla<FrmInternoNew>();
    EXPECT_EQ(mostrar().ui.txtInterno->text(), QStringLiteral("IC"));
}

TEST_P(Navegador, EscapeClosesTheScreen) {
    mostrar();
    tecla(Qt::Key_Escape);
    EXPECT_FALSE(PantallaAbierta<FrmInternoNew>());
}

TEST_P(Navegador, EnterOnARowOpensTheOperation) {
    mostrar();
    tecla(Qt::Key_Return);
    tecla(Qt::Key_Down);
    tecla(Qt::Key_Return);
    ASSERT_TRUE(PantallaAbierta<FrmDetalleInterno>());
    EXPECT_EQ(Pantalla<FrmDetalleInterno>().Interno(), cinco.at(1));
    EXPECT_EQ(valor(QStringLiteral("select maquina from interno where interno = 'EC-2026-0002'")),
              QStringLiteral("PC1"));
}

TEST_P(Navegador, TheListIsFreshAndOnTheSameRowWhenTheOperationIsLeft) {
    auto &navegador = mostrar();
    tecla(Qt::Key_Return);
    tecla(Qt::Key_Down);
    tecla(Qt::Key_Return);
    esperarVentana(Pantalla<FrmDetalleInterno>().ventana.get());
    ejecutar(QStringLiteral("update caratula set factura7 = 'OTRO NOMBRE' where interno = 'EC-2026-0002'"));
    tecla(Qt::Key_Escape);
    EXPECT_EQ(navegador.InternoSeleccionado(), cinco.at(1));
    EXPECT_EQ(navegador.ui.lstInterno->currentIndex().siblingAtColumn(4).data().toString(),
              QStringLiteral("OTRO NOMBRE"));
}

TEST_P(Navegador, ADoubleClickOnARowOpensTheOperation) {
    auto &navegador = mostrar();
    tecla(Qt::Key_Return);
    auto *lista = navegador.ui.lstInterno;
    const QPoint punto = lista->visualRect(lista->model()->index(2, 1)).center();
    QTest::mouseClick(lista->viewport(), Qt::LeftButton, Qt::NoModifier, punto);
    QTest::mouseDClick(lista->viewport(), Qt::LeftButton, Qt::NoModifier, punto);
    ASSERT_TRUE(PantallaAbierta<FrmDetalleInterno>());
    EXPECT_EQ(Pantalla<FrmDetalleInterno>().Interno(), cinco.at(2));
}

TEST_P(Navegador, ARowWithAnEmptyKeyIsNotOpened) {
    ejecutar(QStringLiteral("delete from caratula"));
    ejecutar(QStringLiteral("insert into caratula (interno) values (' ')"));
    mostrar();
    tecla(Qt::Key_Return);
    tecla(Qt::Key_Return);
    EXPECT_FALSE(PantallaAbierta<FrmDetalleInterno>());
}

TEST_P(Navegador, InsertCreatesAndShowsTheNewOperationWithoutOpeningIt) {
    auto &navegador = mostrar();
    registro.textos.emplace_back(QStringLiteral("  NUEVA 1 "));
    tecla(Qt::Key_Insert);
    ASSERT_EQ(registro.entradas.size(), 1U);
    EXPECT_EQ(registro.entradas[0].titulo, QStringLiteral("Crear nuevo interno"));
    EXPECT_EQ(registro.entradas[0].maximo, 40);
    EXPECT_EQ(claves(navegador), QStringList(QStringLiteral("NUEVA 1")));
    EXPECT_EQ(navegador.ui.txtInterno->text(), QStringLiteral("NUEVA 1"));
    EXPECT_FALSE(PantallaAbierta<FrmDetalleInterno>());
}

TEST_P(Navegador, CreatingAKeyThatIsThereWarns) {
    mostrar();
    registro.textos.emplace_back(QStringLiteral("IC-2026-0001 "));
    tecla(Qt::Key_Insert);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto, QStringLiteral("El Código de interno ya existe."));
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Exclamacion);
}

TEST_P(Navegador, DeleteRemovesTheOperationAndItsRowAfterAYes) {
    auto &navegador = mostrar();
    tecla(Qt::Key_Return);
    tecla(Qt::Key_Delete);
    ASSERT_EQ(registro.preguntas.size(), 1U);
    EXPECT_EQ(registro.preguntas[0].texto, QStringLiteral("Confirma eliminar el interno DJAI-2026-0004"));
    EXPECT_EQ(claves(navegador), cinco) << "No keeps it";
    registro.respuestas.push_back(true);
    tecla(Qt::Key_Delete);
    EXPECT_EQ(claves(navegador), cinco.mid(1));
    EXPECT_EQ(valor(QStringLiteral("select count(*) from caratula")), QStringLiteral("4"));
    EXPECT_FALSE(navegador.ui.Pb->isVisible());
}

TEST_P(Navegador, F6CopiesTheOperationUnderTheKeyAsked) {
    auto &navegador = mostrar();
    tecla(Qt::Key_Return);
    registro.textos.emplace_back(QStringLiteral("COPIA"));
    tecla(Qt::Key_F6);
    EXPECT_EQ(valor(QStringLiteral("select count(*) from subitems where interno = 'COPIA'")),
              valor(QStringLiteral("select count(*) from subitems where interno = 'DJAI-2026-0004'")));
    EXPECT_EQ(valor(QStringLiteral("select factura8 from caratula where interno = 'COPIA'")),
              QStringLiteral("<null>"));
    EXPECT_EQ(navegador.InternoSeleccionado(), QStringLiteral("COPIA"));
}

TEST_P(Navegador, TheToolbarCreatesCopiesAndDeletes) {
    auto &navegador = mostrar();
    tecla(Qt::Key_Return);
    navegador.botonCrear->trigger();
    navegador.botonCopiar->trigger();
    EXPECT_EQ(registro.entradas.size(), 2U);
    navegador.botonEliminar->trigger();
    EXPECT_EQ(registro.preguntas.size(), 1U);
}

TEST_P(Navegador, DeleteInAFilterClearsItAndItsName) {
    auto &navegador = mostrar();
    navegador.ui.txtCliente->setText(QStringLiteral("30708123451"));
    navegador.ui.lbCliente->setText(QStringLiteral("HIDRAULICA DEL PLATA S.A."));
    teclaEn(navegador.ui.txtCliente, Qt::Key_Delete);
    EXPECT_TRUE(navegador.ui.txtCliente->text().isEmpty());
    EXPECT_TRUE(navegador.ui.lbCliente->text().isEmpty());
}

TEST_P(Navegador, TheFiltersOfClientAndBrokerNarrowTheSearch) {
    auto &navegador = mostrar();
    navegador.ui.txtCliente->setText(QStringLiteral("30708123451"));
    teclaEn(navegador.ui.txtInterno, Qt::Key_Return);
    EXPECT_EQ(claves(navegador), QStringList(QStringLiteral("IC-2026-0001")));
    navegador.ui.txtDespachante->setText(QStringLiteral("20000000000"));
    teclaEn(navegador.ui.txtInterno, Qt::Key_Return);
    EXPECT_TRUE(claves(navegador).isEmpty());
}

TEST_P(Navegador, ThePeriodStartsWithTheMonthInHand) {
    auto &navegador = mostrar();
    const QDate hoy = QDate::currentDate();
    EXPECT_EQ(navegador.ui.DTP_Desde->date(), QDate(hoy.year(), hoy.month(), 1));
    EXPECT_EQ(navegador.ui.DTP_Hasta->date(), QDate(hoy.year(), hoy.month(), hoy.daysInMonth()));
    EXPECT_FALSE(navegador.ui.chkFiltroFecha->isChecked());
}

TEST_P(Navegador, GroupingRegroupsWithoutANewSearch) {
    auto &navegador = mostrar();
    tecla(Qt::Key_Return);
    ejecutar(QStringLiteral("delete from caratula"));
    navegador.ui.cboAgruparPor->setCurrentIndex(1);
    const auto *modelo = navegador.ui.lstInterno->model();
    ASSERT_EQ(modelo->rowCount(), 2);
    EXPECT_EQ(modelo->index(0, 0).data().toString(), QStringLiteral("Exportacion"));
    EXPECT_EQ(modelo->index(1, 0).data().toString(), QStringLiteral("Importacion"));
    EXPECT_EQ(modelo->rowCount(modelo->index(0, 0)), 1);
    EXPECT_EQ(modelo->rowCount(modelo->index(1, 0)), 4);
    navegador.ui.cboAgruparPor->setCurrentIndex(0);
    EXPECT_EQ(claves(navegador), cinco);
}

TEST_P(Navegador, GroupedRowsAreOpenedAndDeletedLikeOthers) {
    auto &navegador = mostrar();
    tecla(Qt::Key_Return);
    navegador.ui.cboAgruparPor->setCurrentIndex(1);
    ASSERT_TRUE(navegador.Seleccionar(QStringLiteral("EC-2026-0002")));
    registro.respuestas.push_back(true);
    teclaEn(navegador.ui.lstInterno, Qt::Key_Delete);
    EXPECT_EQ(navegador.ui.lstInterno->model()->rowCount(), 1) << "a group without rows goes";
}

TEST_P(Navegador, ARegimeThatIsNotInTheCatalogueIsOfTheOthers) {
    ejecutar(QStringLiteral("update caratula set idsubreg = 'ZZ99' where interno = 'IC-2026-0001'"));
    auto &navegador = mostrar();
    tecla(Qt::Key_Return);
    ASSERT_TRUE(navegador.Seleccionar(QStringLiteral("IC-2026-0001")));
    EXPECT_EQ(navegador.ui.lstInterno->currentIndex().siblingAtColumn(0).data(Qt::ToolTipRole).toString(),
              QStringLiteral("Otros"));
}

TEST_P(Navegador, ThePopupsEntriesActOnTheRow) {
    auto &navegador = mostrar();
    tecla(Qt::Key_Return);
    navegador.MnuVer->trigger();
    EXPECT_TRUE(PantallaAbierta<FrmDetalleInterno>());
    navegador.MnuEliminar->trigger();
    EXPECT_EQ(registro.preguntas.size(), 1U);
    navegador.MnuInsertar->trigger();
    EXPECT_EQ(registro.entradas.size(), 1U);
}

TEST_P(Navegador, AnErrorOfTheStoreIsAMessageAndTheScreenStays) {
    ejecutar(QStringLiteral("drop table caratula"));
    mostrar();
    tecla(Qt::Key_Return);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Critico);
    EXPECT_TRUE(registro.mensajes[0].texto.contains(QLatin1String("caratula")));
    EXPECT_TRUE(PantallaAbierta<FrmInternoNew>());
}

EN_AMBOS_STORES(Navegador);

}  // namespace
