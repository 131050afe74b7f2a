// The field helper of all screens.

#include "frame/ui/ClCntrl.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTest>
#include <QVBoxLayout>

#include "frame/numbers.h"
#include "tests/support/pantallas.h"

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
    uno.setProperty("tag", QStringLiteral("NOENTER"));
    tecla(Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), &uno);
}

TEST_F(Campos, TheKeypadsDecimalKeyWritesTheWorkstationsSeparator) {
    const QChar anterior = numeros::separadorDecimal();
    numeros::fijarSeparadorDecimal(QLatin1Char(','));
    escribir(QStringLiteral("12"));
    tecla(Qt::Key_Period, Qt::KeypadModifier);
    escribir(QStringLiteral("5"));
    EXPECT_EQ(uno.text(), QStringLiteral("12,5"));
    numeros::fijarSeparadorDecimal(anterior);
}

TEST_F(Campos, TheFieldInHandHasItsColourAndItsTextSelected) {
    dos.setText(QStringLiteral("abc"));
    tecla(Qt::Key_Return);
    EXPECT_EQ(dos.selectedText(), QStringLiteral("abc"));
    EXPECT_EQ(fondo(dos), ClCntrl::colorEnFoco());
    EXPECT_EQ(fondo(uno), QApplication::palette().color(QPalette::Base));
}

TEST_F(Campos, AFieldWithAListHasItsOwnColour) {
    dos.setProperty("tag", QStringLiteral("LL-PAIS#F6"));
    tecla(Qt::Key_Return);
    EXPECT_EQ(fondo(dos), ClCntrl::colorF6());
    // 14083326 is D6 E4 FE, blue first.
    EXPECT_EQ(ClCntrl::colorF6(), QColor(0xfe, 0xe4, 0xd6));
}

TEST_F(Campos, AFieldTaggedWithBbKeepsItsColour) {
    dos.setProperty("tag", QStringLiteral("BBKG"));
    const QColor antes = fondo(dos);
    tecla(Qt::Key_Return);
    EXPECT_EQ(fondo(dos), antes);
}

TEST_F(Campos, ChangesAreHeardOnlyWhileTheFlagIsOn) {
    int cambios = 0;
    ClCntrl::alCambiar(&uno, [&cambios] { ++cambios; });
    uno.setText(QStringLiteral("a"));
    EXPECT_EQ(cambios, 0);
    ClCntrl::banderaDeCambios() = true;
    escribir(QStringLiteral("b"));
    EXPECT_EQ(cambios, 1);
}

TEST_F(Campos, APrefixFindsItsRowWithoutRegardToCase) {
    QListWidget lista;
    lista.addItems({QStringLiteral("ALEMANIA"), QStringLiteral("BRASIL"), QStringLiteral("BRUNEI")});
    ClCntrl::LstBuscarStr(&lista, QStringLiteral("br"));
    EXPECT_EQ(lista.currentRow(), 1);
    ClCntrl::LstBuscarStr(&lista, QStringLiteral("bru"));
    EXPECT_EQ(lista.currentRow(), 2);
    ClCntrl::LstBuscarStr(&lista, QStringLiteral("x"));
    EXPECT_EQ(lista.currentRow(), -1);
    QComboBox caja;
    caja.addItems({QStringLiteral("FOB"), QStringLiteral("CIF")});
    ClCntrl::BuscarCBO(&caja, QStringLiteral("CI"));
    EXPECT_EQ(caja.currentIndex(), 1);
}

TEST_F(Campos, ABoxOfSeveralLinesIsSelectedInHandAndHeardWhenItChanges) {
    QPlainTextEdit varias(QStringLiteral("c\nd"), &formulario);
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
    varias.setPlainText(QStringLiteral("e"));
    EXPECT_EQ(cambios, 0);
    ClCntrl::banderaDeCambios() = true;
    varias.setPlainText(QStringLiteral("f"));
    EXPECT_EQ(cambios, 1);
    ClCntrl::banderaDeCambios() = false;
}

TEST_F(Campos, EveryTextOfAFormIsEmptied) {
    uno.setText(QStringLiteral("a"));
    tres.setText(QStringLiteral("b"));
    QPlainTextEdit varias(QStringLiteral("c\nd"), &formulario);
    ClCntrl::VaciarTxt(&formulario);
    EXPECT_TRUE(varias.toPlainText().isEmpty());
    EXPECT_TRUE(uno.text().isEmpty());
    EXPECT_TRUE(tres.text().isEmpty());
}

}  // namespace
