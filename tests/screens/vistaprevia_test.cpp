// The preview of a document, by keyboard: read, searched, saved, printed.

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QProgressDialog>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>

#include "desktop/FrmVistaPrevia.h"
#include "tests/support/pantallas.h"

using namespace Qt::StringLiterals;

namespace {

/// 37 lines a page when it lies; some of them hold a word to look for.
papel::Documento documentoDe(int renglones) {
    papel::Reporte r;
    r.titulo = u"Líneas de la operación"_s;
    r.subtitulo = u"Operación IC-2026-0001"_s;
    r.nombre = u"lineas/IC-2026-0001"_s;
    r.orientacion = papel::Orientacion::Horizontal;
    for (int n = 1; n <= renglones; ++n)
        r.renglones.push_back({u"%1  8413.70.10.100L  BOMBA CENTRÍFUGA"_s.arg(n, 4, 10, QLatin1Char('0')) +
                               (n % 100 == 50 ? u"  Válvula"_s : QString())});
    return {r};
}

papel::Documento listaDe(int filas) {
    papel::Tabla t;
    t.titulo = u"Líneas"_s;
    t.nombre = u"lineas"_s;
    t.columnas = {{u"N"_s, papel::Clase::Numero, 5}};
    for (int n = 0; n < filas; ++n) t.filas.push_back({{double(n)}});
    return {papel::ReporteDe(t, u','), t};
}

class VistaPrevia : public EnPantalla {
 protected:
    void SetUp() override {
        EnPantalla::SetUp();
        ctx->ajustes.Guardar(u"ZENDRA"_s, u"VISTAPREVIA"_s, u"CARPETA"_s, tienda->carpeta());
    }
    void mostrar(const papel::Documento &documento, const std::function<void(FrmVistaPrevia &)> &hacer) {
        bool visto = false;
        conPantallaModal<FrmVistaPrevia>([&](FrmVistaPrevia &p) {
            hacer(p);
            visto = true;
            tecla(Qt::Key_Escape);
        });
        Pantalla<FrmVistaPrevia>().Mostrar(documento);
        CerrarPantalla<FrmVistaPrevia>();
        EXPECT_TRUE(visto);
    }
    QString archivo(const QString &nombre) const { return tienda->carpeta() + u'/' + nombre; }
    static QByteArray principioDe(const QString &ruta) {
        QFile f(ruta);
        return f.open(QIODevice::ReadOnly) ? f.read(5) : QByteArrayLiteral("<nada>");
    }
    static int valor(const FrmVistaPrevia &p) { return p.ui.ZonaHojas->verticalScrollBar()->value(); }
};
INSTANTIATE_TEST_SUITE_P(Stores, VistaPrevia, ::testing::Values("ACCESS"),
                         [](const auto &caso) { return std::string(caso.param); });

TEST_P(VistaPrevia, OpensOnTheFirstPageAsWideAsTheWindow) {
    mostrar(documentoDe(400), [](FrmVistaPrevia &p) {
        EXPECT_EQ(p.ventana->windowTitle(), u"Vista preliminar"_s);
        EXPECT_EQ(p.ui.LbTitulo->text(), u"Líneas de la operación"_s);
        EXPECT_EQ(p.ui.LbSubtitulo->text(), u"Operación IC-2026-0001"_s);
        EXPECT_EQ(p.ui.TxtHoja->text(), u"1"_s);
        EXPECT_EQ(p.ui.LbHojas->text(), u"de 11"_s);  // 400 lines by 37
        EXPECT_EQ(QApplication::focusWidget(), p.ui.ZonaHojas);
        EXPECT_EQ(valor(p), 0);
        EXPECT_EQ(p.ui.ZonaHojas->horizontalScrollBar()->maximum(), 0) << "all of its width is seen";
    });
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(VistaPrevia, NoWidthOfTheWindowLeavesAScrollBarUnderAPageThatIsSeenInItsWidth) {
    mostrar(listaDe(200), [](FrmVistaPrevia &p) {
        for (int ancho = 1000; ancho < 1040; ++ancho) {
            p.ventana->resize(ancho, 700);
            QCoreApplication::processEvents();
            EXPECT_EQ(p.ui.ZonaHojas->horizontalScrollBar()->maximum(), 0) << ancho;
        }
    });
}

TEST_P(VistaPrevia, TheKeysAreToldOnOneLineInTheLetterOfACommonDesktop) {
    QFont letra = QApplication::font();
    letra.setPixelSize(13);
    mostrar(documentoDe(3), [&letra](FrmVistaPrevia &p) {
        const int margenes = p.ui.lbTeclas->width() - p.ui.lbTeclas->contentsRect().width();
        EXPECT_LT(QFontMetrics(letra).horizontalAdvance(p.ui.lbTeclas->text()) + margenes,
                  p.ui.lbTeclas->width());
    });
}

TEST_P(VistaPrevia, TheKeysGoThroughThePages) {
    mostrar(documentoDe(400), [](FrmVistaPrevia &p) {
        tecla(Qt::Key_Down);
        const int flecha = valor(p);
        EXPECT_GT(flecha, 0);
        tecla(Qt::Key_PageDown);
        EXPECT_GT(valor(p), flecha + p.ui.ZonaHojas->viewport()->height() / 2);
        tecla(Qt::Key_PageUp);
        tecla(Qt::Key_Up);
        EXPECT_EQ(valor(p), 0);
        tecla(Qt::Key_PageDown, Qt::ControlModifier);
        EXPECT_EQ(p.ui.TxtHoja->text(), u"2"_s);
        tecla(Qt::Key_PageDown, Qt::ControlModifier);
        EXPECT_EQ(p.ui.TxtHoja->text(), u"3"_s);
        tecla(Qt::Key_PageUp, Qt::ControlModifier);
        EXPECT_EQ(p.ui.TxtHoja->text(), u"2"_s);
        tecla(Qt::Key_End);
        EXPECT_EQ(p.ui.TxtHoja->text(), u"11"_s);
        EXPECT_EQ(valor(p), p.ui.ZonaHojas->verticalScrollBar()->maximum());
        tecla(Qt::Key_Home);
        EXPECT_EQ(p.ui.TxtHoja->text(), u"1"_s);
    });
}

TEST_P(VistaPrevia, AWholePageIsFollowedByTheNextOne) {
    mostrar(documentoDe(400), [](FrmVistaPrevia &p) {
        tecla(Qt::Key_E);
        EXPECT_LE(p.ui.Hojas->height() / 11, p.ui.ZonaHojas->viewport()->height()) << "a page is seen whole";
        for (const QString &hoja : {u"2"_s, u"3"_s, u"4"_s}) {
            tecla(Qt::Key_PageDown);
            EXPECT_EQ(p.ui.TxtHoja->text(), hoja);
        }
    });
}

TEST_P(VistaPrevia, AWholePageIsTheOneInHandFromWhereverOneWasInIt) {
    mostrar(documentoDe(400), [](FrmVistaPrevia &p) {
        tecla(Qt::Key_3);
        tecla(Qt::Key_Return);
        tecla(Qt::Key_Down);
        tecla(Qt::Key_Down);
        tecla(Qt::Key_E);
        EXPECT_EQ(p.ui.TxtHoja->text(), u"3"_s);
        // A page and the strip between two are one step.
        const int paso = (p.ui.Hojas->height() - 16) / 11;
        EXPECT_NEAR(valor(p) % paso, 0, 11) << "its head is the head of the view";
        EXPECT_NEAR(valor(p), 2 * paso, 11);
    });
}

TEST_P(VistaPrevia, ANumberGoesToItsPage) {
    mostrar(documentoDe(400), [](FrmVistaPrevia &p) {
        tecla(Qt::Key_1);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtHoja);
        escribir(u"0"_s);
        tecla(Qt::Key_Return);
        EXPECT_EQ(p.ui.TxtHoja->text(), u"10"_s);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.ZonaHojas);
        EXPECT_GT(valor(p), 0);
        tecla(Qt::Key_9);
        escribir(u"9"_s);
        tecla(Qt::Key_Return);
        EXPECT_EQ(p.ui.TxtHoja->text(), u"11"_s) << "the last one for a number beyond";
    });
}

TEST_P(VistaPrevia, PlusAndMinusZoomAndTheReadingStaysInView) {
    mostrar(documentoDe(400), [](FrmVistaPrevia &p) {
        tecla(Qt::Key_5);
        tecla(Qt::Key_Return);
        const int ancho = p.ui.Hojas->width();
        tecla(Qt::Key_Plus);
        tecla(Qt::Key_Plus);
        EXPECT_GT(p.ui.Hojas->width(), ancho);
        EXPECT_EQ(p.ui.TxtHoja->text(), u"5"_s);
        for (int n = 0; n < 20; ++n) tecla(Qt::Key_Plus);
        EXPECT_EQ(p.ui.LbZoom->text(), u"400 %"_s);
        for (int n = 0; n < 30; ++n) tecla(Qt::Key_Minus);
        EXPECT_EQ(p.ui.LbZoom->text(), u"20 %"_s);
        tecla(Qt::Key_A);
        EXPECT_EQ(p.ui.Hojas->width(), ancho);
        EXPECT_EQ(p.ui.TxtHoja->text(), u"5"_s);
        QWheelEvent rueda(QPointF(10, 10), p.ui.ZonaHojas->mapToGlobal(QPointF(10, 10)), {}, QPoint(0, 120),
                          Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(p.ui.ZonaHojas->viewport(), &rueda);
        EXPECT_GT(p.ui.Hojas->width(), ancho);
    });
}

TEST_P(VistaPrevia, FindsAsOneTypesGoesOnWithF3AndComesRound) {
    mostrar(documentoDe(400), [](FrmVistaPrevia &p) {
        tecla(Qt::Key_F, Qt::ControlModifier);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtBuscar);
        escribir(u"valvula"_s);  // lines 50, 150, 250 and 350, on pages 2, 5, 7 and 10
        EXPECT_EQ(p.ui.LbHallazgos->text(), u"1 de 4"_s);
        tecla(Qt::Key_Return);
        EXPECT_EQ(p.ui.LbHallazgos->text(), u"2 de 4"_s);
        EXPECT_EQ(p.ui.TxtHoja->text(), u"5"_s);
        tecla(Qt::Key_F3);
        tecla(Qt::Key_F3);
        EXPECT_EQ(p.ui.LbHallazgos->text(), u"4 de 4"_s);
        EXPECT_EQ(p.ui.TxtHoja->text(), u"10"_s);
        tecla(Qt::Key_F3);
        EXPECT_EQ(p.ui.LbHallazgos->text(), u"1 de 4"_s) << "round the end";
        EXPECT_EQ(p.ui.TxtHoja->text(), u"2"_s);
        tecla(Qt::Key_F3, Qt::ShiftModifier);
        EXPECT_EQ(p.ui.LbHallazgos->text(), u"4 de 4"_s) << "and round the beginning";
    });
}

TEST_P(VistaPrevia, WhatIsFoundIsPaintedInItsColour) {
    mostrar(documentoDe(60), [](FrmVistaPrevia &p) {
        const auto conMarca = [&p] {
            const QImage imagen = p.ui.ZonaHojas->viewport()->grab().toImage();
            int marcados = 0;
            for (int y = 0; y < imagen.height(); y += 2)
                for (int x = 0; x < imagen.width(); x += 2)
                    if (imagen.pixel(x, y) == 0xffffc233) ++marcados;
            return marcados;
        };
        EXPECT_EQ(conMarca(), 0);
        tecla(Qt::Key_B);
        escribir(u"Válvula"_s);
        EXPECT_EQ(p.ui.LbHallazgos->text(), u"1 de 1"_s);
        EXPECT_GT(conMarca(), 20);
    });
}

TEST_P(VistaPrevia, WhatIsNotThereIsTold) {
    mostrar(documentoDe(60), [](FrmVistaPrevia &p) {
        tecla(Qt::Key_F3);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtBuscar) << "nothing to look for yet";
        escribir(u"xyz"_s);
        EXPECT_EQ(p.ui.LbHallazgos->text(), u"No se encontró"_s);
        EXPECT_EQ(p.ui.LbHallazgos->property("estado").toString(), u"falta"_s);
        tecla(Qt::Key_F3);
        EXPECT_EQ(p.ui.LbHallazgos->text(), u"No se encontró"_s);
        for (int n = 0; n < 3; ++n) tecla(Qt::Key_Backspace);
        EXPECT_EQ(p.ui.LbHallazgos->text(), QString());
    });
}

TEST_P(VistaPrevia, F11SavesWhereTheUserSaysAndOffersToOpenIt) {
    registro.archivos = {archivo(u"sub.pdf"_s), archivo(u"sub.txt"_s)};
    registro.respuestas = {true, false};
    mostrar(documentoDe(60), [](FrmVistaPrevia &p) {
        tecla(Qt::Key_F11);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.ZonaHojas);
        atajo(Qt::Key_G);
    });
    ASSERT_EQ(registro.pedidos.size(), 2U);
    EXPECT_EQ(registro.pedidos[0].titulo, u"Guardar como"_s);
    EXPECT_EQ(registro.pedidos[0].inicial, archivo(u"lineas_IC-2026-0001.pdf"_s)) << "a name for any system";
    EXPECT_EQ(registro.pedidos[0].filtros, u"Documento PDF (*.pdf);;Texto (*.txt)"_s);
    EXPECT_EQ(principioDe(archivo(u"sub.pdf"_s)), "%PDF-");
    EXPECT_EQ(principioDe(archivo(u"sub.txt"_s)), QString(u"Líne"_s).toUtf8());
    ASSERT_EQ(registro.preguntas.size(), 2U);
    EXPECT_EQ(registro.preguntas[0].texto, u"Se guardó en %1, ¿desea abrirlo?"_s.arg(archivo(u"sub.pdf"_s)));
    EXPECT_EQ(registro.preguntas[0].titulo, u"Vista preliminar"_s);
    EXPECT_TRUE(registro.preguntas[0].porDefectoNo);
    EXPECT_EQ(registro.abiertos, std::vector<QString>{archivo(u"sub.pdf"_s)});
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(VistaPrevia, AListLeavesAlsoAsAWorkbookAndTheFolderIsRemembered) {
    ASSERT_TRUE(QDir(tienda->carpeta()).mkdir(u"listas"_s));
    registro.archivos = {archivo(u"listas/l.xlsx"_s), archivo(u"listas/l.csv"_s)};
    mostrar(listaDe(3), [](FrmVistaPrevia &) {
        tecla(Qt::Key_F11);
        tecla(Qt::Key_F11);
    });
    ASSERT_EQ(registro.pedidos.size(), 2U);
    EXPECT_EQ(registro.pedidos[0].filtros,
              u"Documento PDF (*.pdf);;Planilla de cálculo (*.xlsx);;Valores separados por comas (*.csv);;"
              "Texto (*.txt)"_s);
    EXPECT_EQ(registro.pedidos[1].inicial, archivo(u"listas/lineas.pdf"_s));
    EXPECT_TRUE(principioDe(archivo(u"listas/l.xlsx"_s)).startsWith("PK"));
    EXPECT_EQ(principioDe(archivo(u"listas/l.csv"_s)), "N\r\n0\r");
}

TEST_P(VistaPrevia, AFileThatIsThereIsAskedAboutAndAFailureIsTold) {
    registro.archivos = {archivo(u"a.pdf"_s), archivo(u"a.pdf"_s), archivo(u"no/a.pdf"_s), QString()};
    registro.respuestas = {false, true, true};
    QFile f(archivo(u"a.pdf"_s));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("anterior");
    f.close();
    registro.hayPrograma = false;
    mostrar(documentoDe(3), [this](FrmVistaPrevia &) {
        tecla(Qt::Key_F11);
        EXPECT_EQ(principioDe(archivo(u"a.pdf"_s)), "anter");
        tecla(Qt::Key_F11);
        EXPECT_EQ(principioDe(archivo(u"a.pdf"_s)), "%PDF-");
        tecla(Qt::Key_F11);
        tecla(Qt::Key_F11);
    });
    EXPECT_EQ(registro.preguntas[0].texto,
              u"El archivo %1 ya existe, ¿desea reemplazarlo?"_s.arg(archivo(u"a.pdf"_s)));
    EXPECT_TRUE(registro.preguntas[0].porDefectoNo);
    ASSERT_EQ(registro.mensajes.size(), 2U);
    EXPECT_EQ(registro.mensajes[0].texto,
              u"No hay un programa que abra %1; ábralo desde su carpeta."_s.arg(archivo(u"a.pdf"_s)));
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Exclamacion);
    EXPECT_EQ(registro.mensajes[1].texto, u"No se escribió %1: la carpeta %2 no existe; elija otra."_s.arg(
                                              archivo(u"no/a.pdf"_s), archivo(u"no"_s)));
    EXPECT_EQ(registro.mensajes[1].icono, Icono::Critico);
    EXPECT_EQ(registro.mensajes[1].titulo, u"Vista preliminar"_s);
}

/// Presses ESC once the window of the progress stands.
void detenerElAvance(const std::shared_ptr<bool> &visto) {
    QTimer::singleShot(5, qApp, [visto] {
        auto *caja = qobject_cast<QProgressDialog *>(QApplication::activeModalWidget());
        if (caja == nullptr || !caja->isVisible()) {
            detenerElAvance(visto);
            return;
        }
        *visto = true;
        EXPECT_TRUE(caja->labelText().startsWith(u"Guardando la hoja "_s)) << caja->labelText().toStdString();
        QTest::keyClick(caja, Qt::Key_Escape);
    });
}

TEST_P(VistaPrevia, EscStopsALongSaveAndTheScreenStays) {
    registro.archivos = {archivo(u"largo.pdf"_s)};
    const auto visto = std::make_shared<bool>(false);
    mostrar(documentoDe(37 * 4000), [&](FrmVistaPrevia &p) {
        detenerElAvance(visto);
        tecla(Qt::Key_F11);
        EXPECT_TRUE(p.ventana->isVisible());
        esperarVentana(p.ventana.get());
    });
    EXPECT_TRUE(*visto);
    EXPECT_FALSE(QFile::exists(archivo(u"largo.pdf"_s)));
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_TRUE(registro.mensajes[0].texto.contains(u"se detuvo a su pedido"_s));
}

TEST_P(VistaPrevia, FiveHundredPagesArePaintedOnlyWhereTheyAreSeen) {
    mostrar(documentoDe(37 * 500), [](FrmVistaPrevia &p) {
        EXPECT_EQ(p.ui.LbHojas->text(), u"de 500"_s);
        tecla(Qt::Key_End);
        EXPECT_EQ(p.ui.TxtHoja->text(), u"500"_s);
        EXPECT_FALSE(p.ui.ZonaHojas->viewport()->grab().isNull());
    });
}

TEST_P(VistaPrevia, F12AndPPrint) {
    mostrar(documentoDe(3), [](FrmVistaPrevia &) {
        tecla(Qt::Key_F12);
        tecla(Qt::Key_P);
        atajo(Qt::Key_I);
    });
    ASSERT_EQ(registro.impresos.size(), 3U);
    EXPECT_EQ(registro.impresos[0].reporte.titulo, u"Líneas de la operación"_s);
}

TEST_P(VistaPrevia, LettersInTheSearchBoxAreText) {
    mostrar(documentoDe(3), [](FrmVistaPrevia &p) {
        tecla(Qt::Key_B);
        escribir(u"a+p-eg5"_s);
        EXPECT_EQ(p.ui.TxtBuscar->text(), u"a+p-eg5"_s);
    });
    EXPECT_TRUE(registro.impresos.empty());
    EXPECT_TRUE(registro.pedidos.empty());
}

TEST_P(VistaPrevia, TabGoesInTheOrderOfTheWork) {
    mostrar(documentoDe(3), [](FrmVistaPrevia &p) {
        EXPECT_EQ(
            ordenDeTab(p.ventana.get()).join(u' ').toStdString(),
            "ZonaHojas TxtBuscar TxtHoja CmdAlejar CmdAcercar CmdAncho CmdEntera CmdImprimir CmdGuardar");
    });
}

// The dialogs of the desktop.

TEST_P(VistaPrevia, TheSeamShowsTheDocument) {
    conDialogosDeVerdad();
    bool visto = false;
    conPantallaModal<FrmVistaPrevia>([&visto](FrmVistaPrevia &p) {
        EXPECT_EQ(p.ui.LbHojas->text(), u"de 2"_s);
        visto = true;
        tecla(Qt::Key_Escape);
    });
    ctx->dialogos.vistaPrevia(documentoDe(60));
    EXPECT_TRUE(visto);
    EXPECT_FALSE(PantallaAbierta<FrmVistaPrevia>());
}

TEST_P(VistaPrevia, TheSystemsDialogGivesANameItsEnd) {
    conDialogosDeVerdad();
    const QString filtros = u"Documento PDF (*.pdf);;Planilla de cálculo (*.xlsx)"_s;
    struct Caso {
        QString escrito, filtro, esperado;
    };
    for (const Caso &caso : {Caso{u"uno"_s, {}, u"uno.pdf"_s}, Caso{u"uno.txt"_s, {}, u"uno.txt"_s},
                             Caso{u"uno"_s, u"Planilla de cálculo (*.xlsx)"_s, u"uno.xlsx"_s}}) {
        bool visto = false;
        conVentanaModal([&](QWidget *modal) {
            auto *caja = qobject_cast<QFileDialog *>(modal);
            ASSERT_NE(caja, nullptr);
            visto = true;
            EXPECT_EQ(caja->windowTitle(), u"Guardar como"_s);
            auto *nombre = caja->findChild<QLineEdit *>(u"fileNameEdit"_s);
            ASSERT_NE(nombre, nullptr);
            EXPECT_EQ(nombre->text(), u"lineas.pdf"_s);
            if (!caso.filtro.isEmpty()) {
                caja->selectNameFilter(caso.filtro);
                Q_EMIT caja->filterSelected(caso.filtro);
            }
            nombre->setText(caso.escrito);
            QTest::keyClick(nombre, Qt::Key_Return);
        });
        EXPECT_EQ(ctx->dialogos.guardarComo({u"Guardar como"_s, archivo(u"lineas.pdf"_s), filtros}),
                  archivo(caso.esperado));
        EXPECT_TRUE(visto);
    }
}

TEST_P(VistaPrevia, LeavingTheSystemsDialogGivesNoName) {
    conDialogosDeVerdad();
    conVentanaModal([](QWidget *modal) { QTest::keyClick(modal, Qt::Key_Escape); });
    EXPECT_EQ(ctx->dialogos.guardarComo({u"Guardar"_s, archivo(u"a.pdf"_s), u"PDF (*.pdf)"_s}), QString());
}

}  // namespace
