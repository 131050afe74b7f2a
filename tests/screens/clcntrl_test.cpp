// The field helper of all screens.

#include "frame/ui/ClCntrl.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTest>
#include <QVBoxLayout>

#include "frame/context.h"
#include "tests/support/pantallas.h"

using namespace Qt::StringLiterals;

namespace {

class Campos : public ::testing::Test {
 protected:
    void SetUp() override {
        auto *columna = new QVBoxLayout(&formulario);
        for (QLineEdit *campo : {&uno, &dos, &tres}) {
            columna->addWidget(campo);
            ClCntrl::Vincular(campo);
        }
        formulario.show();
        esperarVentana(&formulario);
        uno.setFocus();
    }
    void TearDown() override {
        ClCntrl::banderaDeCambios() = false;
        ClCntrl::bloqueoDeNavegacion() = false;
    }
    static QColor fondo(const QLineEdit &campo) { return campo.palette().color(QPalette::Base); }

    // The form is theirs before it goes: a form deletes its children.
    QWidget formulario;
    QLineEdit uno{&formulario}, dos{&formulario}, tres{&formulario};
};

TEST_F(Campos, EnterGoesOnLikeTab) {
    tecla(Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), &dos);
    tecla(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(QApplication::focusWidget(), &tres);
}

TEST_F(Campos, TheArrowsGoToTheNeighbours) {
    tecla(Qt::Key_Down);
    EXPECT_EQ(QApplication::focusWidget(), &dos);
    tecla(Qt::Key_Up);
    EXPECT_EQ(QApplication::focusWidget(), &uno);
}

TEST_F(Campos, WhileNavigationIsBlockedTheArrowsStay) {
    ClCntrl::bloqueoDeNavegacion() = true;
    tecla(Qt::Key_Down);
    EXPECT_EQ(QApplication::focusWidget(), &uno);
    tecla(Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), &dos) << "ENTER goes on all the same";
}

TEST_F(Campos, AFieldTaggedNoenterKeepsItsKeys) {
    uno.setProperty("tag", u"NOENTER"_s);
    tecla(Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), &uno);
}

TEST_F(Campos, TheKeypadsDecimalKeyWritesTheWorkstationsSeparator) {
    AppContext ctx;
    ctx.SeparadorDecimal = QLatin1Char(',');
    fijarContexto(&ctx);
    escribir(u"12"_s);
    tecla(Qt::Key_Period, Qt::KeypadModifier);
    escribir(u"5"_s);
    EXPECT_EQ(uno.text(), u"12,5"_s);
    fijarContexto(nullptr);
}

TEST_F(Campos, TheFieldInHandHasItsColourAndItsTextSelected) {
    dos.setText(u"abc"_s);
    tecla(Qt::Key_Return);
    EXPECT_EQ(dos.selectedText(), u"abc"_s);
    EXPECT_EQ(fondo(dos), ClCntrl::colorEnFoco());
    EXPECT_EQ(fondo(uno), QApplication::palette().color(QPalette::Base));
}

TEST_F(Campos, AFieldWithAListHasItsOwnColour) {
    dos.setProperty("tag", u"LL-PAIS#F6"_s);
    tecla(Qt::Key_Return);
    EXPECT_EQ(fondo(dos), ClCntrl::colorF6());
    // 14083326 is D6 E4 FE, blue first.
    EXPECT_EQ(ClCntrl::colorF6(), QColor(0xfe, 0xe4, 0xd6));
}

TEST_F(Campos, AFieldTaggedWithBbKeepsItsColour) {
    dos.setProperty("tag", u"BBKG"_s);
    const QColor antes = fondo(dos);
    tecla(Qt::Key_Return);
    EXPECT_EQ(fondo(dos), antes);
}

TEST_F(Campos, ChangesAreHeardOnlyWhileTheFlagIsOn) {
    int cambios = 0;
    ClCntrl::alCambiar(&uno, [&cambios] { ++cambios; });
    uno.setText(u"a"_s);
    EXPECT_EQ(cambios, 0);
    ClCntrl::banderaDeCambios() = true;
    escribir(u"b"_s);
    EXPECT_EQ(cambios, 1);
}

TEST_F(Campos, APrefixFindsItsRowWithoutRegardToCase) {
    QListWidget lista;
    lista.addItems({u"ALEMANIA"_s, u"BRASIL"_s, u"BRUNEI"_s});
    ClCntrl::LstBuscarStr(&lista, u"br"_s);
    EXPECT_EQ(lista.currentRow(), 1);
    ClCntrl::LstBuscarStr(&lista, u"bru"_s);
    EXPECT_EQ(lista.currentRow(), 2);
    ClCntrl::LstBuscarStr(&lista, u"x"_s);
    EXPECT_EQ(lista.currentRow(), -1);
    QComboBox caja;
    caja.addItems({u"FOB"_s, u"CIF"_s});
    ClCntrl::BuscarCBO(&caja, u"CI"_s);
    EXPECT_EQ(caja.currentIndex(), 1);
}

TEST_F(Campos, ABoxOfSeveralLinesIsSelectedInHandAndHeardWhenItChanges) {
    QPlainTextEdit varias(u"c\nd"_s, &formulario);
    varias.setProperty("tag", "NOENTER");
    int cambios = 0;
    ClCntrl::Vincular(&varias);
    ClCntrl::alCambiar(&varias, [&] { ++cambios; });
    varias.show();
    varias.setFocus();
    EXPECT_EQ(varias.textCursor().selectedText().size(), 3);
    EXPECT_EQ(varias.palette().color(QPalette::Base), ClCntrl::colorEnFoco());
    uno.setFocus();
    EXPECT_FALSE(varias.textCursor().hasSelection());
    varias.setPlainText(u"e"_s);
    EXPECT_EQ(cambios, 0);
    ClCntrl::banderaDeCambios() = true;
    varias.setPlainText(u"f"_s);
    EXPECT_EQ(cambios, 1);
    ClCntrl::banderaDeCambios() = false;
}

TEST_F(Campos, ALetterWithAltChoosesBeforeTheNextKey) {
    QRadioButton pesos(u"&Pesos"_s, &formulario);
    QCheckBox subitems(u"&SubItems"_s, &formulario);
    for (QWidget *opcion : {static_cast<QWidget *>(&pesos), static_cast<QWidget *>(&subitems)}) {
        ClCntrl::Vincular(opcion);
        opcion->show();
    }
    tecla(Qt::Key_P, Qt::AltModifier);
    EXPECT_TRUE(pesos.isChecked());
    EXPECT_EQ(QApplication::focusWidget(), &pesos);
    tecla(Qt::Key_S, Qt::AltModifier);
    EXPECT_TRUE(subitems.isChecked());
    tecla(Qt::Key_S, Qt::AltModifier);
    EXPECT_FALSE(subitems.isChecked());
}

TEST_F(Campos, EveryTextOfAFormIsEmptied) {
    uno.setText(u"a"_s);
    tres.setText(u"b"_s);
    QPlainTextEdit varias(u"c\nd"_s, &formulario);
    ClCntrl::VaciarTxt(&formulario);
    EXPECT_TRUE(varias.toPlainText().isEmpty());
    EXPECT_TRUE(uno.text().isEmpty());
    EXPECT_TRUE(tres.text().isEmpty());
}

}  // namespace
