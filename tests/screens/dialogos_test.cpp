// The seam to the user as windows: what a message, a question and an input box show, and their keys.

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollBar>
#include <QStyleOptionToolButton>
#include <QTest>
#include <QToolButton>
#include <QWindow>
#include <stdexcept>

#include "desktop/FrmPerfiles.h"
#include "desktop/dialogosqt.h"
#include "frame/lasthandler.h"
#include "header/FrmABMClientes.h"
#include "liquidation/Frm_ComprobacionErrores.h"
#include "tests/support/pantallas.h"

using namespace Qt::StringLiterals;

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
            EXPECT_EQ(caja->text(), u"uno\n<b>dos</b>"_s) << "never taken for markup";
            EXPECT_EQ(caja->textFormat(), Qt::PlainText);
            EXPECT_EQ(caja->windowTitle(), u"Zendra"_s);
            ASSERT_EQ(caja->buttons().size(), 1);
            EXPECT_EQ(caja->buttons().first()->text(), u"&Aceptar"_s);
            visto = true;
            QTest::keyClick(caja, Qt::Key_Return);
        });
        ctx->dialogos.mensaje({u"uno\r\n<b>dos</b>"_s, {}, caso.icono, false});
        EXPECT_TRUE(visto);
    }
}

TEST_P(Ventanas, AMessageOverAScreenIsAWindowOfItsOwn) {
    QDialog pantalla;
    pantalla.show();
    esperarVentana(&pantalla);
    conVentanaModal([](QWidget *modal) {
        // A sheet, which is what a box modal to one window becomes, is never given the keyboard everywhere.
        EXPECT_EQ(modal->windowHandle()->type(), Qt::Dialog);
        QTest::keyClick(modal, Qt::Key_Return);
    });
    ctx->dialogos.informar(u"hola"_s);
}

TEST_P(Ventanas, AQuestionAnswersByItsDefaultOnEnterAndNoOnEscape) {
    const auto responder = [this](bool porDefectoNo, int cual) {
        conVentanaModal([cual, porDefectoNo](QWidget *modal) {
            auto *caja = qobject_cast<QMessageBox *>(modal);
            ASSERT_NE(caja, nullptr);
            ASSERT_EQ(caja->buttons().size(), 2);
            EXPECT_EQ(caja->defaultButton()->text(), porDefectoNo ? u"&No"_s : u"&Sí"_s);
            QTest::keyClick(caja, static_cast<Qt::Key>(cual));
        });
        Pregunta pregunta;
        pregunta.texto = u"¿desea continuar?"_s;
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
        EXPECT_EQ(modal->windowTitle(), u"Crear nuevo interno"_s);
        QTest::keyClicks(campo, QString(41, QLatin1Char('A')));
        QTest::keyClick(campo, Qt::Key_Return);
    });
    Entrada entrada;
    entrada.titulo = u"Crear nuevo interno"_s;
    entrada.texto = u"Ingrese el nuevo número de INTERNO/CARPETA"_s;
    entrada.maximo = 40;
    const auto texto = ctx->dialogos.pedirTexto(entrada);
    ASSERT_TRUE(texto.has_value());
    EXPECT_EQ(*texto, QString(40, QLatin1Char('A')));
}

TEST_P(Ventanas, AnInputBoxShowsALongTextWhole) {
    conVentanaModal([](QWidget *modal) {
        auto *campo = modal->findChild<QLineEdit *>();
        ASSERT_NE(campo, nullptr);
        EXPECT_GT(campo->contentsRect().width(), campo->fontMetrics().horizontalAdvance(campo->text()));
        QTest::keyClick(campo, Qt::Key_Escape);
    });
    Entrada entrada;
    entrada.texto = u"Ingrese el valor"_s;
    entrada.inicial = u"OC 4500-1187 / BOMBAS SUMERGIBLES, DOS ENTREGAS"_s;
    ctx->dialogos.pedirTexto(entrada);
}

TEST_P(Ventanas, AnInputBoxLeftByEscapeAnswersNothing) {
    conVentanaModal([](QWidget *modal) { QTest::keyClick(modal, Qt::Key_Escape); });
    Entrada entrada;
    entrada.inicial = u"X"_s;
    EXPECT_FALSE(ctx->dialogos.pedirTexto(entrada).has_value());
}

TEST_P(Ventanas, AListShowsItsLongestRowWhole) {
    conVentanaModal([](QWidget *modal) {
        auto *lista = modal->findChild<QListWidget *>();
        ASSERT_NE(lista, nullptr);
        EXPECT_EQ(lista->horizontalScrollBar()->maximum(), 0);
        QTest::keyClick(lista, Qt::Key_Escape);
    });
    Eleccion eleccion;
    eleccion.filas = {u"una"_s, u"Por posición con subtotales y todas sus columnas, en hoja horizontal"_s +
                                    u", para el archivo de la oficina"_s};
    ctx->dialogos.elegir(eleccion);
}

TEST_P(Ventanas, TheToolsOfTheBoxForFilesAreSeen) {
    conVentanaModal([](QWidget *modal) {
        const auto herramientas = modal->findChildren<QToolButton *>();
        int vistas = 0;
        for (const QToolButton *herramienta : herramientas) {
            if (!herramienta->isVisible() || herramienta->icon().isNull()) continue;
            ++vistas;
            // What the sheet puts around an icon has to fit into the little that the box leaves.
            QStyleOptionToolButton opcion;
            opcion.initFrom(herramienta);
            const QSize icono = herramienta->iconSize();
            const QSize entero =
                herramienta->style()->sizeFromContents(QStyle::CT_ToolButton, &opcion, icono, herramienta);
            constexpr int marcoDelEstilo = 8;
            EXPECT_LE(entero.width(), icono.width() + marcoDelEstilo)
                << herramienta->objectName().toStdString();
        }
        EXPECT_GT(vistas, 0);
        QTest::keyClick(modal, Qt::Key_Escape);
    });
    EXPECT_TRUE(ctx->dialogos.guardarComo({{}, tienda->carpeta() + "/a.pdf"_L1, u"PDF (*.pdf)"_s}).isEmpty());
}

TEST_P(Ventanas, AListAnswersTheRowChosenByEnter) {
    conVentanaModal([](QWidget *modal) {
        auto *lista = modal->findChild<QListWidget *>();
        ASSERT_NE(lista, nullptr);
        QTest::keyClick(lista, Qt::Key_Down);
        QTest::keyClick(lista, Qt::Key_Return);
    });
    EXPECT_EQ(ctx->dialogos.elegir({{}, {u"uno"_s, u"dos"_s}, 0}), 1);
    conVentanaModal([](QWidget *modal) { QTest::keyClick(modal, Qt::Key_Escape); });
    EXPECT_EQ(ctx->dialogos.elegir({{}, {u"uno"_s}, 0}), -1);
}

TEST_P(Ventanas, TheAutomotiveQuestionAnswersWithItsUse) {
    PreguntaConOpciones pregunta;
    pregunta.texto = u"¿calcular?"_s;
    pregunta.marco = u"Destino del repuesto"_s;
    pregunta.opciones = {u"Producción"_s, u"Reposición"_s};
    pregunta.si = u"&Si"_s;
    pregunta.no = u"&No"_s;
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
        auto *lista = modal->findChild<QListWidget *>(u"LstReporte"_s);
        ASSERT_NE(lista, nullptr);
        EXPECT_EQ(modal->windowTitle(), u"Zendra v3 - Reporte de Diferencias Encontradas."_s);
        EXPECT_EQ(lista->count(), 2);
        QTest::keyClick(modal, Qt::Key_Escape);
    });
    ctx->dialogos.informe({u"Zendra v3 - Reporte de Diferencias Encontradas."_s, u"uno\r\ndos"_s, true});
}

TEST_P(Ventanas, TheHourglassIsSetBackWhileABoxWaits) {
    ctx->dialogos.reloj(true);
    EXPECT_NE(QApplication::overrideCursor(), nullptr);
    conVentanaModal([](QWidget *modal) {
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        QTest::keyClick(modal, Qt::Key_Escape);
    });
    ctx->dialogos.informar(u"texto"_s);
    EXPECT_NE(QApplication::overrideCursor(), nullptr);
    ctx->dialogos.reloj(false);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_P(Ventanas, OfSeveralProfilesTheUserTakesOneByKeyboard) {
    const std::vector<PerfilEncontrado> perfiles{{u"Local"_s, u"/a/Local.perfil.ini"_s},
                                                 {u"Oficina"_s, u"/a/Of.perfil.ini"_s}};
    FrmPerfiles eleccion;
    conVentanaModal([&eleccion](QWidget *) {
        EXPECT_EQ(eleccion.ui.LstPerfiles->item(1, 0)->text(), u"Oficina"_s);
        QTest::keyClick(eleccion.ui.LstPerfiles, Qt::Key_Down);
        QTest::keyClick(eleccion.ui.LstPerfiles, Qt::Key_Return);
    });
    EXPECT_EQ(eleccion.Elegir(perfiles), 1);
    conVentanaModal([](QWidget *modal) { QTest::keyClick(modal, Qt::Key_Escape); });
    EXPECT_EQ(eleccion.Elegir(perfiles), -1);
}

TEST_P(Ventanas, WhatNobodyCaughtInTheEventLoopIsToldInABoxAndEndsWithOne) {
    bool dicho = false;
    const int estado = CorrerConUltimaDefensa(
        [] {
            QTimer::singleShot(0, qApp, [] { throw std::runtime_error("vector::at"); });
            return QApplication::exec();
        },
        [&](const QString &texto) {
            conVentanaModal([&](QWidget *modal) {
                auto *caja = qobject_cast<QMessageBox *>(modal);
                ASSERT_NE(caja, nullptr);
                EXPECT_EQ(caja->icon(), QMessageBox::Critical);
                EXPECT_TRUE(caja->text().contains("vector::at"_L1)) << caja->text().toStdString();
                dicho = true;
                QTest::keyClick(caja, Qt::Key_Return);
            });
            ctx->dialogos.critico(texto);
        });
    EXPECT_TRUE(dicho);
    EXPECT_EQ(estado, EXIT_FAILURE);
}

EN_AMBOS_STORES(Ventanas);

}  // namespace
