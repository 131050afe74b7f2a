// The pick list of the code tables and the coded fields that open it, by keyboard.

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

#include "frame/base/numbers.h"
#include "frame/ui/Pantalla.h"
#include "header/FrmListado.h"
#include "tests/support/pantallas.h"

using namespace Qt::StringLiterals;

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
            if (QLatin1String(nombre) == "txtDCBancos"_L1) regla.servicio = ServicioDeCodigo::Id;
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
        escribir(u"bras"_s);
        EXPECT_EQ(enMano(lista), u"BRASIL"_s);
        tecla(Qt::Key_Return);
    });
    EXPECT_EQ(pais().text(), u"203"_s);
    EXPECT_EQ(rotulos[0]->text(), u"BRASIL"_s);
    EXPECT_EQ(QApplication::focusWidget(), &pais());
    EXPECT_FALSE(PantallaAbierta<FrmListado>());
    ASSERT_EQ(resueltos.size(), 1U);
    EXPECT_EQ(resueltos[0].codigo, u"203"_s);
}

TEST_P(CampoDeLista, EscapeLeavesTheFieldAsItWas) {
    escribir(u"200"_s);
    enLaLista([](FrmListado &) {
        escribir(u"bras"_s);
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(pais().text(), u"200"_s);
    EXPECT_EQ(rotulos[0]->text(), QString());
    EXPECT_TRUE(resueltos.empty());
}

TEST_P(CampoDeLista, TheSearchIgnoresCaseAndAccents) {
    divisa().setFocus();
    enLaLista([](FrmListado &lista) {
        escribir(u"DOLAR E"_s);
        EXPECT_EQ(enMano(lista), u"Dólar estadounidense"_s);
        lista.ui.TxtBs->clear();
        escribir(u"dólar e"_s);
        EXPECT_EQ(enMano(lista), u"Dólar estadounidense"_s);
    });
}

TEST_P(CampoDeLista, NoMatchLeavesNoSelectionAndEnterThenTakesNothing) {
    enLaLista([](FrmListado &lista) {
        escribir(u"bra"_s);
        escribir(u"ZZ"_s);
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
    escribir(u"203"_s);
    tecla(Qt::Key_Return);
    EXPECT_EQ(rotulos[0]->text(), u"BRASIL"_s);
    EXPECT_EQ(QApplication::focusWidget(), &divisa());
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(CampoDeLista, EnterOnACodeThatIsNotKeptWarnsEmptiesTheDescriptionAndGoesOn) {
    rotulos[0]->setText(u"BRASIL"_s);
    escribir(u"999"_s);
    tecla(Qt::Key_Return);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].titulo, u"Buscar PAIS"_s);
    EXPECT_EQ(registro.mensajes[0].texto,
              u"CODIGO INEXISTENTE DE PAIS\r\n\r\nNo se enconto DESCRIPCIÓN para esta "
              "CLAVE\r\n\r\n[CARATULA.BUSCARDESCRIPCION.PAIS]"_s);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Exclamacion);
    EXPECT_EQ(rotulos[0]->text(), QString());
    EXPECT_EQ(QApplication::focusWidget(), &divisa());
}

TEST_P(CampoDeLista, LeavingAChangedFieldByTabLooksItUpWithoutAWord) {
    escribir(u"203"_s);
    tecla(Qt::Key_Tab);
    EXPECT_EQ(rotulos[0]->text(), u"BRASIL"_s);
    teclaEn(&pais(), Qt::Key_Delete);
    escribir(u"999"_s);
    tecla(Qt::Key_Tab);
    EXPECT_EQ(rotulos[0]->text(), QString());
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(CampoDeLista, AnEmptiedFieldEmptiesItsDescriptionWithoutAMessage) {
    escribir(u"203"_s);
    tecla(Qt::Key_Return);
    teclaEn(&pais(), Qt::Key_Delete);
    tecla(Qt::Key_Return);
    EXPECT_EQ(rotulos[0]->text(), QString());
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(CampoDeLista, LettersAreUpperCasedAsTheyAreTyped) {
    regimen().setFocus();
    escribir(u"ic04"_s);
    EXPECT_EQ(regimen().text(), u"IC04"_s);
    tecla(Qt::Key_Home);
    escribir(u"x"_s);
    EXPECT_EQ(regimen().text(), u"XIC04"_s);
    EXPECT_EQ(regimen().cursorPosition(), 1);
}

TEST_P(CampoDeLista, ARegimeAnswersItsDirectionAndACurrencyItsRate) {
    regimen().setFocus();
    escribir(u"ic04"_s);
    tecla(Qt::Key_Return);
    ASSERT_EQ(resueltos.size(), 1U);
    EXPECT_EQ(resueltos[0].aux, u"I"_s);
    divisa().setFocus();
    enLaLista([](FrmListado &) {
        escribir(u"euro"_s);
        tecla(Qt::Key_Return);
    });
    ASSERT_EQ(resueltos.size(), 2U);
    EXPECT_EQ(resueltos[1].codigo, u"060"_s);
    EXPECT_EQ(resueltos[1].aux, numeros::Format(1.085, u"00.000000", ctx->SeparadorDecimal));
}

TEST_P(CampoDeLista, ShortNumbersOfCurrenciesAndBanksArePaddedWithZeros) {
    divisa().setFocus();
    escribir(u"60"_s);
    tecla(Qt::Key_Return);
    EXPECT_EQ(divisa().text(), u"060"_s);
    EXPECT_EQ(rotulos[1]->text(), u"Euro"_s);
    EXPECT_EQ(QApplication::focusWidget(), &banco());
    escribir(u"7"_s);
    tecla(Qt::Key_Return);
    EXPECT_EQ(banco().text(), u"007"_s) << "the service of codes is the one for banks";
    EXPECT_TRUE(registro.mensajes.empty());
    // A field of another name is not padded.
    pais().setFocus();
    escribir(u"7"_s);
    tecla(Qt::Key_Tab);
    EXPECT_EQ(pais().text(), u"7"_s);
}

TEST_P(CampoDeLista, ABankKeepsTheDescriptionThatItsListLeft) {
    banco().setFocus();
    enLaLista([](FrmListado &) {
        escribir(u"banco fr"_s);
        tecla(Qt::Key_Return);
    });
    EXPECT_EQ(banco().text(), u"017"_s);
    EXPECT_EQ(rotulos[2]->text(), u"BANCO FRANCES"_s);
    tecla(Qt::Key_Return);
    EXPECT_EQ(rotulos[2]->text(), u"BANCO FRANCES"_s);
    banco().setFocus();
    escribir(u"011"_s);
    tecla(Qt::Key_Return);
    EXPECT_EQ(rotulos[2]->text(), QString()) << "the name of another bank does not stay";
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(CampoDeLista, AnotherWindowThatComesBetweenIsNoLeaving) {
    escribir(u"203"_s);
    QWidget otra;
    otra.show();
    esperarVentana(&otra);
    EXPECT_EQ(rotulos[0]->text(), QString());
    otra.hide();
    esperarVentana(formulario.get());
    EXPECT_EQ(QApplication::focusWidget(), &pais());
    tecla(Qt::Key_Tab);
    EXPECT_EQ(rotulos[0]->text(), u"BRASIL"_s);
}

TEST_P(CampoDeLista, AKeyWithoutAListKeepsF6Silent) {
    pais().setProperty("tag", u"LL-MOTIVO#F6"_s);
    tecla(Qt::Key_F6);
    EXPECT_FALSE(PantallaAbierta<FrmListado>());
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(CampoDeLista, AmongTwentyThousandRowsTheOneTypedIsFoundAndTaken) {
    ejecutar(u"delete from puertos"_s);
    for (int lote = 0; lote < 20; ++lote) {
        QStringList filas;
        for (int n = 0; n < 1000; ++n) {
            const QString numero = QString::number(lote * 1000 + n).rightJustified(5, QLatin1Char('0'));
            filas << u"('%1','PUERTO %1')"_s.arg(numero);
        }
        ejecutar("insert into puertos (cpor,lpor) values "_L1 + filas.join(QLatin1Char(',')));
    }
    pais().setProperty("tag", u"LL-PUERTO#F6"_s);
    enLaLista([](FrmListado &lista) {
        EXPECT_EQ(lista.ui.LstCod->model()->rowCount(), 20000);
        escribir(u"puerto 19998"_s);
        tecla(Qt::Key_Return);
    });
    EXPECT_EQ(pais().text(), u"19998"_s);
}

TEST_P(CampoDeLista, AUnitIsFoundByItsNameThoughItsRowBeginsWithABlank) {
    pais().setProperty("tag", u"LL-UNIDADES#F6"_s);
    enLaLista([](FrmListado &lista) {
        escribir(u"kilog"_s);
        EXPECT_EQ(enMano(lista), u" KILOGRAMO"_s);
        tecla(Qt::Key_Return);
    });
    EXPECT_EQ(pais().text(), u"01"_s);
    EXPECT_EQ(rotulos[0]->text(), u"KILOGRAMO"_s);
}

TEST_P(CampoDeLista, ACurrencyWithADescriptionLongerThanItsWidthIsKeptAndTaken) {
    ejecutar(
        u"insert into divisas (id,descripcion,imp) values "
        "('XLA','Moneda de un nombre muy largo que no entra',2.5)"_s);
    divisa().setFocus();
    enLaLista([](FrmListado &) {
        escribir(u"moneda de un"_s);
        tecla(Qt::Key_Return);
    });
    EXPECT_EQ(divisa().text(), u"XLA"_s);
    EXPECT_EQ(rotulos[1]->text(), u"Moneda de un nombre muy largo que no entra"_s);
    EXPECT_EQ(resueltos.back().aux, numeros::Format(2.5, u"00.000000", ctx->SeparadorDecimal));
}

TEST_P(CampoDeLista, AStoreErrorInALookUpIsSwallowed) {
    ejecutar(u"drop table pais"_s, u"SYSTABLAS"_s);
    escribir(u"203"_s);
    tecla(Qt::Key_F6);
    EXPECT_FALSE(PantallaAbierta<FrmListado>());
    tecla(Qt::Key_Return);
    EXPECT_EQ(rotulos[0]->text(), QString());
    EXPECT_EQ(QApplication::focusWidget(), &divisa());
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(CampoDeLista, ARecordJustLoadedShowsItsDescriptionWithoutAWord) {
    regimen().setText(u"EC01"_s);
    QString direccion;
    MostrarDescripcion(&regimen(), rotulos[3], &direccion);
    EXPECT_EQ(direccion, u"E"_s);
    EXPECT_FALSE(rotulos[3]->text().isEmpty());
    regimen().setText(u"ZZ99"_s);
    MostrarDescripcion(&regimen(), rotulos[3], &direccion);
    EXPECT_EQ(direccion, QString());
    EXPECT_EQ(rotulos[3]->text(), QString());
    EXPECT_TRUE(registro.mensajes.empty());
}

EN_AMBOS_STORES(CampoDeLista);

}  // namespace
