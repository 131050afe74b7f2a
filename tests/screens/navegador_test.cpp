// The operation browser, by keyboard.

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

#include "frame/ui/Pantalla.h"
#include "operations/FrmDetalleInterno.h"
#include "operations/FrmInternoNew.h"
#include "tests/support/pantallas.h"

using namespace Qt::StringLiterals;

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

const QStringList deMuestra{u"DJAI-2026-0004"_s, u"EC-2026-0002"_s,  u"EC-2026-0006"_s, u"EC-2026-0008"_s,
                            u"IC-2026-0001"_s,   u"ICR-2026-0005"_s, u"IT-2026-0003"_s, u"IT-2026-0007"_s};

TEST_P(Navegador, EnterInTheKeySearchesAndTakesTheFocusToTheGrid) {
    auto &navegador = mostrar();
    EXPECT_EQ(QApplication::focusWidget(), navegador.ui.txtInterno);
    tecla(Qt::Key_Return);
    EXPECT_EQ(claves(navegador), deMuestra);
    EXPECT_EQ(QApplication::focusWidget(), navegador.ui.lstInterno);
    EXPECT_EQ(navegador.InternoSeleccionado(), deMuestra.first());
}

TEST_P(Navegador, AnOfficeThatHasAllItsOperationsShownSeesThemAtOnce) {
    EXPECT_TRUE(claves(mostrar()).isEmpty()) << "without the option ENTER asks for them";
    CerrarPantalla<FrmInternoNew>();
    ctx->opciones.OperacionesMostrarTODO = true;
    auto &navegador = mostrar();
    EXPECT_EQ(claves(navegador), deMuestra);
    EXPECT_EQ(QApplication::focusWidget(), navegador.ui.txtInterno);
}

TEST_P(Navegador, TheKeyIsAPrefixAndIsRemembered) {
    mostrar();
    escribir(u"IC"_s);
    tecla(Qt::Key_Return);
    EXPECT_EQ(claves(Pantalla<FrmInternoNew>()), deMuestra.mid(4, 2));
    CerrarPantalla<FrmInternoNew>();
    EXPECT_EQ(mostrar().ui.txtInterno->text(), u"IC"_s);
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
    EXPECT_EQ(Pantalla<FrmDetalleInterno>().Interno(), deMuestra.at(1));
    EXPECT_EQ(valor(u"select maquina from interno where interno = 'EC-2026-0002'"_s), u"PC1"_s);
}

TEST_P(Navegador, TheListIsFreshAndOnTheSameRowWhenTheOperationIsLeft) {
    auto &navegador = mostrar();
    tecla(Qt::Key_Return);
    tecla(Qt::Key_Down);
    tecla(Qt::Key_Return);
    esperarVentana(Pantalla<FrmDetalleInterno>().ventana.get());
    ejecutar(u"update caratula set factura7 = 'OTRO NOMBRE' where interno = 'EC-2026-0002'"_s);
    tecla(Qt::Key_Escape);
    EXPECT_EQ(navegador.InternoSeleccionado(), deMuestra.at(1));
    EXPECT_EQ(navegador.ui.lstInterno->currentIndex().siblingAtColumn(4).data().toString(), u"OTRO NOMBRE"_s);
}

TEST_P(Navegador, ADoubleClickOnARowOpensTheOperation) {
    auto &navegador = mostrar();
    tecla(Qt::Key_Return);
    auto *lista = navegador.ui.lstInterno;
    const QPoint punto = lista->visualRect(lista->model()->index(2, 1)).center();
    QTest::mouseClick(lista->viewport(), Qt::LeftButton, Qt::NoModifier, punto);
    QTest::mouseDClick(lista->viewport(), Qt::LeftButton, Qt::NoModifier, punto);
    ASSERT_TRUE(PantallaAbierta<FrmDetalleInterno>());
    EXPECT_EQ(Pantalla<FrmDetalleInterno>().Interno(), deMuestra.at(2));
}

TEST_P(Navegador, ARowWithAnEmptyKeyIsNotOpened) {
    ejecutar(u"delete from caratula"_s);
    ejecutar(u"insert into caratula (interno) values (' ')"_s);
    mostrar();
    tecla(Qt::Key_Return);
    tecla(Qt::Key_Return);
    EXPECT_FALSE(PantallaAbierta<FrmDetalleInterno>());
}

TEST_P(Navegador, InsertCreatesAndShowsTheNewOperationWithoutOpeningIt) {
    auto &navegador = mostrar();
    registro.textos.emplace_back(u"  NUEVA 1 "_s);
    tecla(Qt::Key_Insert);
    ASSERT_EQ(registro.entradas.size(), 1U);
    EXPECT_EQ(registro.entradas[0].titulo, u"Crear nuevo interno"_s);
    EXPECT_EQ(registro.entradas[0].maximo, 40);
    EXPECT_EQ(claves(navegador), QStringList(u"NUEVA 1"_s));
    EXPECT_EQ(navegador.ui.txtInterno->text(), u"NUEVA 1"_s);
    EXPECT_FALSE(PantallaAbierta<FrmDetalleInterno>());
}

TEST_P(Navegador, CreatingAKeyThatIsThereWarns) {
    mostrar();
    registro.textos.emplace_back(u"IC-2026-0001 "_s);
    tecla(Qt::Key_Insert);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto, u"El Código de interno ya existe."_s);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Exclamacion);
}

TEST_P(Navegador, DeleteRemovesTheOperationAndItsRowAfterAYes) {
    auto &navegador = mostrar();
    tecla(Qt::Key_Return);
    tecla(Qt::Key_Delete);
    ASSERT_EQ(registro.preguntas.size(), 1U);
    EXPECT_EQ(registro.preguntas[0].texto, u"Confirma eliminar el interno DJAI-2026-0004"_s);
    EXPECT_EQ(claves(navegador), deMuestra) << "No keeps it";
    registro.respuestas.push_back(true);
    tecla(Qt::Key_Delete);
    EXPECT_EQ(claves(navegador), deMuestra.mid(1));
    EXPECT_EQ(valor(u"select count(*) from caratula"_s), u"7"_s);
    EXPECT_FALSE(navegador.ui.Pb->isVisible());
}

TEST_P(Navegador, F6CopiesTheOperationUnderTheKeyAsked) {
    auto &navegador = mostrar();
    tecla(Qt::Key_Return);
    registro.textos.emplace_back(u"COPIA"_s);
    tecla(Qt::Key_F6);
    EXPECT_EQ(valor(u"select count(*) from subitems where interno = 'COPIA'"_s),
              valor(u"select count(*) from subitems where interno = 'DJAI-2026-0004'"_s));
    EXPECT_EQ(valor(u"select factura8 from caratula where interno = 'COPIA'"_s),
              valor(u"select factura8 from caratula where interno = 'DJAI-2026-0004'"_s));
    EXPECT_EQ(navegador.InternoSeleccionado(), u"COPIA"_s);
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
    navegador.ui.txtCliente->setText(u"30708123451"_s);
    navegador.ui.lbCliente->setText(u"HIDRAULICA DEL PLATA S.A."_s);
    teclaEn(navegador.ui.txtCliente, Qt::Key_Delete);
    EXPECT_TRUE(navegador.ui.txtCliente->text().isEmpty());
    EXPECT_TRUE(navegador.ui.lbCliente->text().isEmpty());
}

TEST_P(Navegador, TheFiltersOfClientAndBrokerNarrowTheSearch) {
    auto &navegador = mostrar();
    navegador.ui.txtCliente->setText(u"30708123451"_s);
    teclaEn(navegador.ui.txtInterno, Qt::Key_Return);
    EXPECT_EQ(claves(navegador), QStringList(u"IC-2026-0001"_s));
    navegador.ui.txtDespachante->setText(u"20000000000"_s);
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
    ejecutar(u"delete from caratula"_s);
    navegador.ui.cboAgruparPor->setCurrentIndex(1);
    const auto *modelo = navegador.ui.lstInterno->model();
    ASSERT_EQ(modelo->rowCount(), 2);
    EXPECT_EQ(modelo->index(0, 0).data().toString(), u"Exportacion"_s);
    EXPECT_EQ(modelo->index(1, 0).data().toString(), u"Importacion"_s);
    EXPECT_EQ(modelo->rowCount(modelo->index(0, 0)), 3);
    EXPECT_EQ(modelo->rowCount(modelo->index(1, 0)), 5);
    navegador.ui.cboAgruparPor->setCurrentIndex(0);
    EXPECT_EQ(claves(navegador), deMuestra);
}

TEST_P(Navegador, GroupedRowsAreOpenedAndDeletedLikeOthers) {
    auto &navegador = mostrar();
    tecla(Qt::Key_Return);
    navegador.ui.cboAgruparPor->setCurrentIndex(1);
    // Nothing is plugged in here that would give its inputs back.
    ejecutar(u"update subitems set cancelaciones = '' where interno = 'EC-2026-0008'"_s);
    for (const QString &expo : {u"EC-2026-0002"_s, u"EC-2026-0006"_s, u"EC-2026-0008"_s}) {
        EXPECT_EQ(navegador.ui.lstInterno->model()->rowCount(), 2);
        ASSERT_TRUE(navegador.Seleccionar(expo));
        registro.respuestas.push_back(true);
        teclaEn(navegador.ui.lstInterno, Qt::Key_Delete);
    }
    EXPECT_EQ(navegador.ui.lstInterno->model()->rowCount(), 1) << "a group without rows goes";
}

TEST_P(Navegador, ARegimeThatIsNotInTheCatalogueIsOfTheOthers) {
    ejecutar(u"update caratula set idsubreg = 'ZZ99' where interno = 'IC-2026-0001'"_s);
    auto &navegador = mostrar();
    tecla(Qt::Key_Return);
    ASSERT_TRUE(navegador.Seleccionar(u"IC-2026-0001"_s));
    EXPECT_EQ(navegador.ui.lstInterno->currentIndex().siblingAtColumn(0).data(Qt::ToolTipRole).toString(),
              u"Otros"_s);
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
    ejecutar(u"drop table caratula"_s);
    mostrar();
    tecla(Qt::Key_Return);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Critico);
    EXPECT_TRUE(registro.mensajes[0].texto.contains("caratula"_L1));
    EXPECT_TRUE(PantallaAbierta<FrmInternoNew>());
}

EN_AMBOS_STORES(Navegador);

}  // namespace
