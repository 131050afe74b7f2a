// The pick list of the code tables and the coded fields that open it, by keyboard.

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

#include "frame/numbers.h"
#include "frame/ui/Pantalla.h"
#include "header/FrmListado.h"
#include "tests/support/pantallas.h"
#include "tests/support/tiempos.h"

namespace {

/// A form with one field of each kind that the look-ups treat in their own way.
class CampoDeLista : public EnPantalla {
 protected:
    void SetUp() override {
        EnPantalla::SetUp();
        conDialogosDeVerdad();
        advertencias();
        formulario = std::make_unique<QWidget>();
        auto *columna = new QVBoxLayout(formulario.get());
        for (const auto &[nombre, tag] :
             {std::pair("TxtPais", "LL-PAIS#F6"), std::pair("TxtCoddivfob", "LL-DIVISAS#F6"),
              std::pair("txtDCBancos", "LL-BANCOS#F6"), std::pair("TxtSubReg", "LL-SUBREG#F6")}) {
            auto *campo = new QLineEdit;
            campo->setObjectName(QLatin1String(nombre));
            campo->setProperty("tag", QLatin1String(tag));
            auto *rotulo = new QLabel;
            columna->addWidget(campo);
            columna->addWidget(rotulo);
            campos.push_back(campo);
            rotulos.push_back(rotulo);
            ReglaDeCodigo regla;
            if (QLatin1String(nombre) == QLatin1String("txtDCBancos")) regla.servicio = ServicioDeCodigo::Id;
            regla.alResolver = [this](const CampoDeCodigo &leido) { resueltos.push_back(leido); };
            VincularCodigo(campo, rotulo, regla);
        }
        formulario->show();
        esperarVentana(formulario.get());
        pais().setFocus();
    }
    void TearDown() override {
        formulario.reset();
        EnPantalla::TearDown();
    }
    /// Messages go to the record, lists stand as windows.
    void advertencias() {
        ctx->dialogos.mensaje = [this](const Mensaje &m) { registro.mensajes.push_back(m); };
    }
    /// F6, then `teclas` in the list's window.
    void enLaLista(const std::function<void(FrmListado &)> &hacer) {
        bool vista = false;
        conVentanaModal([&](QWidget *modal) {
            vista = true;
            auto &lista = Pantalla<FrmListado>();
            ASSERT_EQ(modal, lista.ventana.get());
            esperarVentana(modal);
            hacer(lista);
            if (modal->isVisible()) tecla(Qt::Key_Escape);
        });
        tecla(Qt::Key_F6);
        EXPECT_TRUE(vista);
        esperarVentana(formulario.get());
    }
    QLineEdit &pais() { return *campos[0]; }
    QLineEdit &divisa() { return *campos[1]; }
    QLineEdit &banco() { return *campos[2]; }
    QLineEdit &regimen() { return *campos[3]; }

    std::unique_ptr<QWidget> formulario;
    std::vector<QLineEdit *> campos;
    std::vector<QLabel *> rotulos;
    std::vector<CampoDeCodigo> resueltos;
};

QString enMano(const FrmListado &lista) {
    return lista.ui.LstCod->currentIndex().data().toString();
}

TEST_P(CampoDeLista, F6TypingAPrefixAndEnterWriteTheCodeAndItsDescription) {
    enLaLista([](FrmListado &lista) {
        EXPECT_EQ(QApplication::focusWidget(), lista.ui.TxtBs);
        EXPECT_EQ(enMano(lista), QString()) << "nothing is chosen before the user types";
        escribir(QStringLiteral("bras"));
        EXPECT_EQ(enMano(lista), QStringLiteral("BRASIL"));
        tecla(Qt::Key_Return);
    });
    EXPECT_EQ(pais().text(), QStringLiteral("203"));
    EXPECT_EQ(rotulos[0]->text(), QStringLiteral("BRASIL"));
    EXPECT_EQ(QApplication::focusWidget(), &pais());
    EXPECT_FALSE(PantallaAbierta<FrmListado>());
    ASSERT_EQ(resueltos.size(), 1U);
    EXPECT_EQ(resueltos[0].codigo, QStringLiteral("203"));
}

TEST_P(CampoDeLista, EscapeLeavesTheFieldAsItWas) {
    escribir(QStringLiteral("200"));
    enLaLista([](FrmListado &) {
        escribir(QStringLiteral("bras"));
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(pais().text(), QStringLiteral("200"));
    EXPECT_EQ(rotulos[0]->text(), QString());
    EXPECT_TRUE(resueltos.empty());
}

TEST_P(CampoDeLista, TheSearchIgnoresCaseAndAccents) {
    divisa().setFocus();
    enLaLista([](FrmListado &lista) {
        escribir(QStringLiteral("DOLAR E"));
        EXPECT_EQ(enMano(lista), QStringLiteral("Dólar estadounidense"));
        lista.ui.TxtBs->clear();
        escribir(QStringLiteral("dólar e"));
        EXPECT_EQ(enMano(lista), QStringLiteral("Dólar estadounidense"));
    });
}

TEST_P(CampoDeLista, NoMatchLeavesNoSelectionAndEnterThenTakesNothing) {
    enLaLista([](FrmListado &lista) {
        escribir(QStringLiteral("bra"));
        escribir(QStringLiteral("ZZ"));
        EXPECT_FALSE(lista.ui.LstCod->selectionModel()->hasSelection());
        tecla(Qt::Key_Return);
        EXPECT_TRUE(lista.ventana->isVisible());
    });
    EXPECT_EQ(pais().text(), QString());
}

TEST_P(CampoDeLista, TheArrowsMoveWithinTheListAndWriteTheRowIntoTheBox) {
    enLaLista([](FrmListado &lista) {
        const QAbstractItemModel &filas = *lista.ui.LstCod->model();
        const QString primera = filas.index(0, 0).data().toString();
        const QString segunda = filas.index(1, 0).data().toString();
        tecla(Qt::Key_Up);
        EXPECT_EQ(enMano(lista), QString()) << "up takes none when none is in hand";
        tecla(Qt::Key_Down);
        tecla(Qt::Key_Up);
        EXPECT_EQ(enMano(lista), primera) << "up stops at the first row";
        tecla(Qt::Key_Down);
        EXPECT_EQ(enMano(lista), segunda);
        EXPECT_EQ(lista.ui.TxtBs->text(), segunda);
        EXPECT_EQ(lista.ui.TxtBs->cursorPosition(), segunda.size());
        tecla(Qt::Key_End);
        const QString ultima = filas.index(filas.rowCount() - 1, 0).data().toString();
        EXPECT_EQ(enMano(lista), ultima);
        tecla(Qt::Key_Down);
        EXPECT_EQ(enMano(lista), ultima) << "down stops at the last row";
        tecla(Qt::Key_Home);
        EXPECT_EQ(enMano(lista), primera);
        tecla(Qt::Key_PageDown);
        const int pagina = lista.ui.LstCod->currentIndex().row();
        EXPECT_GT(pagina, 5);
        tecla(Qt::Key_PageUp);
        EXPECT_EQ(enMano(lista), primera);
    });
}

TEST_P(CampoDeLista, AClickTakesTheRow) {
    enLaLista([](FrmListado &lista) {
        const QPoint punto = lista.ui.LstCod->visualRect(lista.ui.LstCod->model()->index(2, 0)).center();
        QTest::mouseClick(lista.ui.LstCod->viewport(), Qt::LeftButton, Qt::NoModifier, punto);
        EXPECT_FALSE(lista.ventana->isVisible());
    });
    EXPECT_FALSE(pais().text().isEmpty());
    EXPECT_FALSE(rotulos[0]->text().isEmpty());
}

TEST_P(CampoDeLista, EnterFillsTheDescriptionAndGoesOn) {
    escribir(QStringLiteral("203"));
    tecla(Qt::Key_Return);
    EXPECT_EQ(rotulos[0]->text(), QStringLiteral("BRASIL"));
    EXPECT_EQ(QApplication::focusWidget(), &divisa());
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(CampoDeLista, EnterOnACodeThatIsNotKeptWarnsEmptiesTheDescriptionAndGoesOn) {
    rotulos[0]->setText(QStringLiteral("BRASIL"));
    escribir(QStringLiteral("999"));
    tecla(Qt::Key_Return);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].titulo, QStringLiteral("Buscar PAIS"));
    EXPECT_EQ(registro.mensajes[0].texto,
              QStringLiteral("CODIGO INEXISTENTE DE PAIS\r\n\r\nNo se enconto DESCRIPCIÓN para esta "
                             "CLAVE\r\n\r\n[CARATULA.BUSCARDESCRIPCION.PAIS]"));
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Exclamacion);
    EXPECT_EQ(rotulos[0]->text(), QString());
    EXPECT_EQ(QApplication::focusWidget(), &divisa());
}

TEST_P(CampoDeLista, LeavingAChangedFieldByTabLooksItUpWithoutAWord) {
    escribir(QStringLiteral("203"));
    tecla(Qt::Key_Tab);
    EXPECT_EQ(rotulos[0]->text(), QStringLiteral("BRASIL"));
    teclaEn(&pais(), Qt::Key_Delete);
    escribir(QStringLiteral("999"));
    tecla(Qt::Key_Tab);
    EXPECT_EQ(rotulos[0]->text(), QString());
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(CampoDeLista, AnEmptiedFieldEmptiesItsDescriptionWithoutAMessage) {
    escribir(QStringLiteral("203"));
    tecla(Qt::Key_Return);
    teclaEn(&pais(), Qt::Key_Delete);
    tecla(Qt::Key_Return);
    EXPECT_EQ(rotulos[0]->text(), QString());
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(CampoDeLista, LettersAreUpperCasedAsTheyAreTyped) {
    regimen().setFocus();
    escribir(QStringLiteral("ic04"));
    EXPECT_EQ(regimen().text(), QStringLiteral("IC04"));
    tecla(Qt::Key_Home);
    escribir(QStringLiteral("x"));
    EXPECT_EQ(regimen().text(), QStringLiteral("XIC04"));
    EXPECT_EQ(regimen().cursorPosition(), 1);
}

TEST_P(CampoDeLista, ARegimeAnswersItsDirectionAndACurrencyItsRate) {
    regimen().setFocus();
    escribir(QStringLiteral("ic04"));
    tecla(Qt::Key_Return);
    ASSERT_EQ(resueltos.size(), 1U);
    EXPECT_EQ(resueltos[0].aux, QStringLiteral("I"));
    divisa().setFocus();
    enLaLista([](FrmListado &) {
        escribir(QStringLiteral("euro"));
        tecla(Qt::Key_Return);
    });
    ASSERT_EQ(resueltos.size(), 2U);
    EXPECT_EQ(resueltos[1].codigo, QStringLiteral("060"));
    EXPECT_EQ(resueltos[1].aux, numeros::Format(1.085, u"00.000000"));
}

TEST_P(CampoDeLista, ShortNumbersOfCurrenciesAndBanksArePaddedWithZeros) {
    divisa().setFocus();
    escribir(QStringLiteral("60"));
    tecla(Qt::Key_Return);
    EXPECT_EQ(divisa().text(), QStringLiteral("060"));
    EXPECT_EQ(rotulos[1]->text(), QStringLiteral("Euro"));
    EXPECT_EQ(QApplication::focusWidget(), &banco());
    escribir(QStringLiteral("7"));
    tecla(Qt::Key_Return);
    EXPECT_EQ(banco().text(), QStringLiteral("007")) << "the service of codes is the one for banks";
    EXPECT_TRUE(registro.mensajes.empty());
    // A field of another name is not padded.
    pais().setFocus();
    escribir(QStringLiteral("7"));
    tecla(Qt::Key_Tab);
    EXPECT_EQ(pais().text(), QStringLiteral("7"));
}

TEST_P(CampoDeLista, ABankKeepsTheDescriptionThatItsListLeft) {
    banco().setFocus();
    enLaLista([](FrmListado &) {
        escribir(QStringLiteral("banco fr"));
        tecla(Qt::Key_Return);
    });
    EXPECT_EQ(banco().text(), QStringLiteral("017"));
    EXPECT_EQ(rotulos[2]->text(), QStringLiteral("BANCO FRANCES"));
    tecla(Qt::Key_Return);
    EXPECT_EQ(rotulos[2]->text(), QStringLiteral("BANCO FRANCES"));
    banco().setFocus();
    escribir(QStringLiteral("011"));
    tecla(Qt::Key_Return);
    EXPECT_EQ(rotulos[2]->text(), QString()) << "the name of another bank does not stay";
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(CampoDeLista, AnotherWindowThatComesBetweenIsNoLeaving) {
    escribir(QStringLiteral("203"));
    QWidget otra;
    otra.show();
    esperarVentana(&otra);
    EXPECT_EQ(rotulos[0]->text(), QString());
    otra.hide();
    esperarVentana(formulario.get());
    EXPECT_EQ(QApplication::focusWidget(), &pais());
    tecla(Qt::Key_Tab);
    EXPECT_EQ(rotulos[0]->text(), QStringLiteral("BRASIL"));
}

TEST_P(CampoDeLista, AKeyWithoutAListKeepsF6Silent) {
    pais().setProperty("tag", QStringLiteral("LL-MOTIVO#F6"));
    tecla(Qt::Key_F6);
    EXPECT_FALSE(PantallaAbierta<FrmListado>());
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(CampoDeLista, TwentyThousandRowsOpenAtOnceAndAreSearchedAsOneTypes) {
    ejecutar(QStringLiteral("delete from puertos"));
    for (int lote = 0; lote < 20; ++lote) {
        QStringList filas;
        for (int n = 0; n < 1000; ++n) {
            const QString numero = QString::number(lote * 1000 + n).rightJustified(5, QLatin1Char('0'));
            filas << QStringLiteral("('%1','PUERTO %1')").arg(numero);
        }
        ejecutar(QLatin1String("insert into puertos (cpor,lpor) values ") + filas.join(QLatin1Char(',')));
    }
    pais().setProperty("tag", QStringLiteral("LL-PUERTO#F6"));
    // The list as F6 opens it, up to the first picture of it.
    const double abrir = MejorTiempo([&] {
        conVentanaModal([](QWidget *modal) {
            esperarVentana(modal);
            tecla(Qt::Key_Escape);
        });
        tecla(Qt::Key_F6);
        esperarVentana(formulario.get());
    });
    EXPECT_LT(abrir, 200);
    enLaLista([](FrmListado &lista) {
        EXPECT_EQ(lista.ui.LstCod->model()->rowCount(), 20000);
        const double escribiendo = MejorTiempo([&] {
            lista.ui.TxtBs->clear();
            escribir(QStringLiteral("puerto 19998"));
        });
        EXPECT_LT(escribiendo, 200) << "twelve letters";
        tecla(Qt::Key_Return);
    });
    EXPECT_EQ(pais().text(), QStringLiteral("19998"));
}

TEST_P(CampoDeLista, AUnitIsFoundByItsNameThoughItsRowBeginsWithABlank) {
    pais().setProperty("tag", QStringLiteral("LL-UNIDADES#F6"));
    enLaLista([](FrmListado &lista) {
        escribir(QStringLiteral("kilog"));
        EXPECT_EQ(enMano(lista), QStringLiteral(" KILOGRAMO"));
        tecla(Qt::Key_Return);
    });
    EXPECT_EQ(pais().text(), QStringLiteral("01"));
    EXPECT_EQ(rotulos[0]->text(), QStringLiteral("KILOGRAMO"));
}

TEST_P(CampoDeLista, ACurrencyWithADescriptionLongerThanItsWidthIsKeptAndTaken) {
    ejecutar(
        QStringLiteral("insert into divisas (id,descripcion,imp) values "
                       "('XLA','Moneda de un nombre muy largo que no entra',2.5)"));
    divisa().setFocus();
    enLaLista([](FrmListado &) {
        escribir(QStringLiteral("moneda de un"));
        tecla(Qt::Key_Return);
    });
    EXPECT_EQ(divisa().text(), QStringLiteral("XLA"));
    EXPECT_EQ(rotulos[1]->text(), QStringLiteral("Moneda de un nombre muy largo que no entra"));
    EXPECT_EQ(resueltos.back().aux, numeros::Format(2.5, u"00.000000"));
}

TEST_P(CampoDeLista, AStoreErrorInALookUpIsSwallowed) {
    ejecutar(QStringLiteral("drop table pais"), QStringLiteral("SYSTABLAS"));
    escribir(QStringLiteral("203"));
    tecla(Qt::Key_F6);
    EXPECT_FALSE(PantallaAbierta<FrmListado>());
    tecla(Qt::Key_Return);
    EXPECT_EQ(rotulos[0]->text(), QString());
    EXPECT_EQ(QApplication::focusWidget(), &divisa());
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(CampoDeLista, ARecordJustLoadedShowsItsDescriptionWithoutAWord) {
    regimen().setText(QStringLiteral("EC01"));
    QString direccion;
    MostrarDescripcion(&regimen(), rotulos[3], &direccion);
    EXPECT_EQ(direccion, QStringLiteral("E"));
    EXPECT_FALSE(rotulos[3]->text().isEmpty());
    regimen().setText(QStringLiteral("ZZ99"));
    MostrarDescripcion(&regimen(), rotulos[3], &direccion);
    EXPECT_EQ(direccion, QString());
    EXPECT_EQ(rotulos[3]->text(), QString());
    EXPECT_TRUE(registro.mensajes.empty());
}

EN_AMBOS_STORES(CampoDeLista);

}  // namespace
