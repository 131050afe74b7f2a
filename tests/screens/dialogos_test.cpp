// The seam to the user as windows: what a message, a question and an input box show, and their keys.

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include "frame/FrmPerfiles.h"
#include "frame/ui/dialogosqt.h"
#include "header/FrmABMClientes.h"
#include "operations/Frm_ComprobacionErrores.h"
#include "tests/support/pantallas.h"

namespace {

class Ventanas : public EnPantalla {
 protected:
    void SetUp() override {
        EnPantalla::SetUp();
        conDialogosDeVerdad();
    }
};

TEST_P(Ventanas, AMessageHasItsTextIconTitleAndOneButton) {
    struct Caso {
        Icono icono;
        QMessageBox::Icon esperado;
    };
    for (const Caso &caso :
         {Caso{Icono::Informacion, QMessageBox::Information}, Caso{Icono::Exclamacion, QMessageBox::Warning},
          Caso{Icono::Critico, QMessageBox::Critical}, Caso{Icono::Ninguno, QMessageBox::NoIcon}}) {
        bool visto = false;
        conVentanaModal([&](QWidget *modal) {
            auto *caja = qobject_cast<QMessageBox *>(modal);
            ASSERT_NE(caja, nullptr);
            EXPECT_EQ(caja->icon(), caso.esperado);
            EXPECT_EQ(caja->text(), QStringLiteral("uno\n<b>dos</b>")) << "never taken for markup";
            EXPECT_EQ(caja->textFormat(), Qt::PlainText);
            EXPECT_EQ(caja->windowTitle(), QStringLiteral("Zendra"));
            ASSERT_EQ(caja->buttons().size(), 1);
            EXPECT_EQ(caja->buttons().first()->text(), QStringLiteral("&Aceptar"));
            visto = true;
            QTest::keyClick(caja, Qt::Key_Return);
        });
        ctx->dialogos.mensaje({QStringLiteral("uno\r\n<b>dos</b>"), {}, caso.icono, false});
        EXPECT_TRUE(visto);
    }
}

TEST_P(Ventanas, AQuestionAnswersByItsDefaultOnEnterAndNoOnEscape) {
    const auto responder = [this](bool porDefectoNo, int cual) {
        conVentanaModal([cual, porDefectoNo](QWidget *modal) {
            auto *caja = qobject_cast<QMessageBox *>(modal);
            ASSERT_NE(caja, nullptr);
            ASSERT_EQ(caja->buttons().size(), 2);
            EXPECT_EQ(caja->defaultButton()->text(),
                      porDefectoNo ? QStringLiteral("&No") : QStringLiteral("&Sí"));
            QTest::keyClick(caja, static_cast<Qt::Key>(cual));
        });
        Pregunta pregunta;
        pregunta.texto = QStringLiteral("¿desea continuar?");
        pregunta.porDefectoNo = porDefectoNo;
        return ctx->dialogos.preguntar(pregunta);
    };
    EXPECT_TRUE(responder(false, Qt::Key_Return));
    EXPECT_FALSE(responder(true, Qt::Key_Return));
    EXPECT_FALSE(responder(false, Qt::Key_Escape));
    EXPECT_FALSE(responder(true, Qt::Key_Escape));
}

TEST_P(Ventanas, AnInputBoxTakesNoMoreThanItsLength) {
    conVentanaModal([](QWidget *modal) {
        auto *campo = modal->findChild<QLineEdit *>();
        ASSERT_NE(campo, nullptr);
        EXPECT_EQ(modal->windowTitle(), QStringLiteral("Crear nuevo interno"));
        QTest::keyClicks(campo, QString(41, QLatin1Char('A')));
        QTest::keyClick(campo, Qt::Key_Return);
    });
    Entrada entrada;
    entrada.titulo = QStringLiteral("Crear nuevo interno");
    entrada.texto = QStringLiteral("Ingrese el nuevo número de INTERNO/CARPETA");
    entrada.maximo = 40;
    const auto texto = ctx->dialogos.pedirTexto(entrada);
    ASSERT_TRUE(texto.has_value());
    EXPECT_EQ(*texto, QString(40, QLatin1Char('A')));
}

TEST_P(Ventanas, AnInputBoxLeftByEscapeAnswersNothing) {
    conVentanaModal([](QWidget *modal) { QTest::keyClick(modal, Qt::Key_Escape); });
    Entrada entrada;
    entrada.inicial = QStringLiteral("X");
    EXPECT_FALSE(ctx->dialogos.pedirTexto(entrada).has_value());
}

TEST_P(Ventanas, AListAnswersTheRowChosenByEnter) {
    conVentanaModal([](QWidget *modal) {
        auto *lista = modal->findChild<QListWidget *>();
        ASSERT_NE(lista, nullptr);
        QTest::keyClick(lista, Qt::Key_Down);
        QTest::keyClick(lista, Qt::Key_Return);
    });
    EXPECT_EQ(ctx->dialogos.elegir({{}, {QStringLiteral("uno"), QStringLiteral("dos")}, 0}), 1);
    conVentanaModal([](QWidget *modal) { QTest::keyClick(modal, Qt::Key_Escape); });
    EXPECT_EQ(ctx->dialogos.elegir({{}, {QStringLiteral("uno")}, 0}), -1);
}

TEST_P(Ventanas, TheAutomotiveQuestionAnswersWithItsUse) {
    PreguntaConOpciones pregunta;
    pregunta.texto = QStringLiteral("¿calcular?");
    pregunta.marco = QStringLiteral("Destino del repuesto");
    pregunta.opciones = {QStringLiteral("Producción"), QStringLiteral("Reposición")};
    pregunta.si = QStringLiteral("&Si");
    pregunta.no = QStringLiteral("&No");
    conVentanaModal([](QWidget *modal) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
        QTest::keyClick(modal->windowHandle(), Qt::Key_S, Qt::AltModifier);
    });
    RespuestaConOpciones respuesta = ctx->dialogos.preguntarConOpciones(pregunta);
    EXPECT_TRUE(respuesta.si);
    EXPECT_EQ(respuesta.opcion, 1);
    conVentanaModal([](QWidget *modal) { QTest::keyClick(modal, Qt::Key_Escape); });
    respuesta = ctx->dialogos.preguntarConOpciones(pregunta);
    EXPECT_FALSE(respuesta.si);
}

TEST_P(Ventanas, TheConsistencyReportIsAListALineARow) {
    conVentanaModal([](QWidget *modal) {
        auto *lista = modal->findChild<QListWidget *>(QStringLiteral("LstReporte"));
        ASSERT_NE(lista, nullptr);
        EXPECT_EQ(modal->windowTitle(), QStringLiteral("Zendra v3 - Reporte de Diferencias Encontradas."));
        EXPECT_EQ(lista->count(), 2);
        QTest::keyClick(modal, Qt::Key_Escape);
    });
    ctx->dialogos.informe({QStringLiteral("Zendra v3 - Reporte de Diferencias Encontradas."),
                           QStringLiteral("uno\r\ndos"), true});
}

TEST_P(Ventanas, TheHourglassIsSetBackWhileABoxWaits) {
    ctx->dialogos.reloj(true);
    EXPECT_NE(QApplication::overrideCursor(), nullptr);
    conVentanaModal([](QWidget *modal) {
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        QTest::keyClick(modal, Qt::Key_Escape);
    });
    ctx->dialogos.informar(QStringLiteral("texto"));
    EXPECT_NE(QApplication::overrideCursor(), nullptr);
    ctx->dialogos.reloj(false);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_P(Ventanas, OfSeveralProfilesTheUserTakesOneByKeyboard) {
    const std::vector<PerfilEncontrado> perfiles{
        {QStringLiteral("Local"), QStringLiteral("/a/Local.perfil.ini")},
        {QStringLiteral("Oficina"), QStringLiteral("/a/Of.perfil.ini")}};
    FrmPerfiles eleccion;
    conVentanaModal([&eleccion](QWidget *) {
        EXPECT_EQ(eleccion.ui.LstPerfiles->item(1, 0)->text(), QStringLiteral("Oficina"));
        QTest::keyClick(eleccion.ui.LstPerfiles, Qt::Key_Down);
        QTest::keyClick(eleccion.ui.LstPerfiles, Qt::Key_Return);
    });
    EXPECT_EQ(eleccion.Elegir(perfiles), 1);
    conVentanaModal([](QWidget *modal) { QTest::keyClick(modal, Qt::Key_Escape); });
    EXPECT_EQ(eleccion.Elegir(perfiles), -1);
}

EN_AMBOS_STORES(Ventanas);

}  // namespace
