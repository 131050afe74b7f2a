// The reports of licences and the notes of a position by keyboard, and the road to them.

#include <gtest/gtest.h>

#include <QFile>
#include <QFileDialog>
#include <QTest>

#include "frame/entities.h"
#include "subitems/FrmBuscarArticulosPorPA.h"
#include "subitems/FrmConsultas.h"
#include "subitems/FrmPosicion.h"
#include "tests/support/claves.h"
#include "tests/support/pantallas.h"

using namespace Qt::StringLiterals;

namespace {

/// Calls `hacer` with the system's dialog, as soon as it stands over the screen.
void conCajaDeArchivo(const std::function<void(QFileDialog *)> &hacer) {
    QTimer::singleShot(5, qApp, [hacer] {
        if (auto *caja = qobject_cast<QFileDialog *>(QApplication::activeModalWidget())) {
            esperarVentana(caja);
            hacer(caja);
        } else {
            conCajaDeArchivo(hacer);
        }
    });
}

class PantallaDeLicencias : public EnPantalla {
 protected:
    void SetUp() override {
        EnPantalla::SetUp();
        archivo_ = tienda->carpeta() + "/reporte.xls"_L1;
    }
    /// `hacer` in the screen, opened over a position when there is one.
    void conLicencias(const QString &posicion, const std::function<void(FrmBuscarArticulosPorPA &)> &hacer) {
        bool vista = false;
        conPantallaModal<FrmBuscarArticulosPorPA>([&](FrmBuscarArticulosPorPA &p) {
            vista = true;
            hacer(p);
            if (!p.ventana->isVisible()) return;
            esperarVentana(p.ventana.get());
            tecla(Qt::Key_Escape);
        });
        VerLicencias(posicion);
        EXPECT_TRUE(vista);
        EXPECT_FALSE(PantallaAbierta<FrmBuscarArticulosPorPA>());
    }
    QStringList textos() const {
        QStringList todos;
        for (const Mensaje &m : registro.mensajes) todos << m.texto;
        return todos;
    }
    QString generado() const {
        return u"Archivo generado, se procede a abrirse de la ubicación: "_s +
               QDir::toNativeSeparators(archivo_);
    }
    int lineasDelArchivo() const {
        QFile f(archivo_);
        return f.open(QIODevice::ReadOnly) ? static_cast<int>(f.readAll().count("\r\n")) : -1;
    }
    QString archivo_;
};
EN_AMBOS_STORES(PantallaDeLicencias);

TEST_P(PantallaDeLicencias, TheCaptionsAreThoseOfTheOffice) {
    conLicencias({}, [](FrmBuscarArticulosPorPA &p) {
        for (QPushButton *boton : {p.ui.cmdBuscarArticulosPorCodCat, p.ui.cmdBuscarArticulosPorCodArt,
                                   p.ui.cmdBuscarArticulosPorPA})
            EXPECT_EQ(boton->text().remove(u'&'), u"Generar y Abrir Excel"_s);
        EXPECT_EQ(p.ui.Command1->text().remove(u'&'), u"Mostrar  Aclaraciones"_s);
        EXPECT_EQ(p.ventana->windowTitle(), u"Licencias no automáticas"_s);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.txtCatalogoABuscar);
        EXPECT_TRUE(p.ui.Text1->isReadOnly());
        EXPECT_EQ(p.ui.labelCantidad->text() + p.ui.labelRegistro->text(), QString());
        EXPECT_EQ(p.ui.lbTeclas->text(),
                  u"ENTER  generar el reporte del campo   ·   F6  listado   ·   ALT+M  aclaraciones   ·   "
                  "ESC  salir"_s);
    });
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(PantallaDeLicencias, EnterInAFieldMakesItsReportAndTheFieldIsReadyForAnother) {
    conLicencias({}, [&](FrmBuscarArticulosPorPA &p) {
        registro.archivos = {archivo_, archivo_, archivo_};
        registro.respuestas = {true, true};
        escribir(u" hidplata "_s);
        tecla(Qt::Key_Return);
        EXPECT_EQ(lineasDelArchivo(), 21) << "the titles and 20 articles";
        EXPECT_EQ(p.ui.labelCantidad->text(), u"20"_s);
        EXPECT_EQ(p.ui.labelRegistro->text(), u"100 %"_s);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.txtCatalogoABuscar);
        EXPECT_TRUE(p.ui.txtCatalogoABuscar->hasSelectedText());
        tecla(Qt::Key_Down);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.txtArticuloABuscar);
        escribir(u"AMO-DE"_s);
        tecla(Qt::Key_Enter, Qt::KeypadModifier);
        // One article; its position has two norms.
        EXPECT_EQ(p.ui.labelCantidad->text(), u"1"_s);
        EXPECT_EQ(lineasDelArchivo(), 3);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.txtArticuloABuscar);
        tecla(Qt::Key_Down);
        tecla(Qt::Key_Down);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.txtPosiciónNcmABuscar) << "the last one";
        escribir(u"8708.29"_s);
        tecla(Qt::Key_Return);
        EXPECT_EQ(p.ui.labelCantidad->text(), u"2"_s);
        tecla(Qt::Key_Up);
        tecla(Qt::Key_Up);
        tecla(Qt::Key_Up);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.txtCatalogoABuscar);
    });
    EXPECT_EQ(textos(), (QStringList{generado(), generado(), generado()}));
    EXPECT_EQ(registro.abiertos, (std::vector<QString>{archivo_, archivo_, archivo_}));
}

TEST_P(PantallaDeLicencias, EachButtonMakesTheReportOfItsField) {
    conLicencias(u"8708.29.11.000R"_s, [&](FrmBuscarArticulosPorPA &p) {
        EXPECT_EQ(QApplication::focusWidget(), p.ui.txtPosiciónNcmABuscar);
        EXPECT_EQ(p.ui.txtPosiciónNcmABuscar->text(), u"8708.29.11.000R"_s);
        p.ui.txtCatalogoABuscar->setText(u"APQUIL"_s);
        p.ui.txtArticuloABuscar->setText(u"GUA-IZ"_s);
        const std::pair<int, QString> casos[] = {
            {Qt::Key_G, u"10"_s}, {Qt::Key_A, u"1"_s}, {Qt::Key_E, u"2"_s}};
        for (const auto &[letra, cuantos] : casos) {
            registro.archivos = {archivo_};
            registro.respuestas = {true};
            atajo(letra);
            EXPECT_EQ(p.ui.labelCantidad->text(), cuantos);
        }
        // And by TAB from a field.
        p.ui.txtArticuloABuscar->setFocus();
        tecla(Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.cmdBuscarArticulosPorCodArt);
        registro.archivos = {archivo_};
        registro.respuestas = {true};
        tecla(Qt::Key_Return);
        EXPECT_EQ(p.ui.labelCantidad->text(), u"1"_s);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.txtArticuloABuscar);
    });
    EXPECT_EQ(registro.abiertos.size(), 4U);
}

TEST_P(PantallaDeLicencias, WhatIsNotFoundIsToldAndTheFieldWaitsForAnotherValue) {
    conLicencias({}, [&](FrmBuscarArticulosPorPA &p) {
        registro.archivos = {archivo_};
        escribir(u"HIDPLATA"_s);
        tecla(Qt::Key_Return);
        registro.mensajes.clear();
        escribir(u"NADA"_s);
        EXPECT_EQ(p.ui.txtCatalogoABuscar->text(), u"NADA"_s) << "typed over the one before";
        tecla(Qt::Key_Return);
        EXPECT_EQ(textos(), QStringList{u"No se han encontrado los datos buscados"_s});
        EXPECT_EQ(p.ui.labelCantidad->text() + p.ui.labelRegistro->text(), QString());
        EXPECT_EQ(QApplication::focusWidget(), p.ui.txtCatalogoABuscar);
        registro.mensajes.clear();
        p.ui.txtPosiciónNcmABuscar->setFocus();
        escribir(u"8708"_s);
        tecla(Qt::Key_Return);
        EXPECT_EQ(textos(), QStringList{u"Ingrese al menos 5 caracteres"_s});
        EXPECT_EQ(QApplication::focusWidget(), p.ui.txtPosiciónNcmABuscar);
    });
    EXPECT_EQ(registro.pedidos.size(), 1U);
}

TEST_P(PantallaDeLicencias, AReportShowsHowFarItIsAndEscStopsIt) {
    conLicencias({}, [&](FrmBuscarArticulosPorPA &p) {
        QStringList vistos;
        ctx->dialogos.atenderEventos = [&] {
            vistos << p.ui.labelRegistro->text();
            EXPECT_EQ(p.ui.lbTeclas->text(), u"ESC  detener el reporte"_s);
            EXPECT_FALSE(p.ui.cmdBuscarArticulosPorPA->isEnabled());
            EXPECT_FALSE(p.ui.Command1->isEnabled());
            if (p.ui.labelRegistro->text() == u"10 %"_s) tecla(Qt::Key_Escape);
        };
        registro.archivos = {archivo_};
        escribir(u"HIDPLATA"_s);
        tecla(Qt::Key_Return);
        // 20 articles: one is 5 %.
        EXPECT_EQ(vistos, (QStringList{u"0 %"_s, u"5 %"_s, u"10 %"_s}));
        EXPECT_EQ(textos(),
                  QStringList{u"El reporte se detuvo a su pedido; no se escribió ningún archivo."_s});
        EXPECT_EQ(lineasDelArchivo(), -1);
        EXPECT_TRUE(p.ventana->isVisible());
        EXPECT_EQ(QApplication::focusWidget(), p.ui.txtCatalogoABuscar);
        EXPECT_TRUE(p.ui.cmdBuscarArticulosPorPA->isEnabled());
        EXPECT_TRUE(p.ui.lbTeclas->text().startsWith(u"ENTER"_s));
        ctx->dialogos.atenderEventos = [] {};
    });
}

TEST_P(PantallaDeLicencias, TheWindowIsNotClosedOverAReport) {
    conLicencias({}, [&](FrmBuscarArticulosPorPA &p) {
        ctx->dialogos.atenderEventos = [&p] {
            p.ventana->close();
            EXPECT_TRUE(p.ventana->isVisible());
        };
        registro.archivos = {archivo_};
        escribir(u"HIDPLATA"_s);
        tecla(Qt::Key_Return);
        ctx->dialogos.atenderEventos = [] {};
        EXPECT_EQ(lineasDelArchivo(), -1);
        EXPECT_TRUE(p.ventana->isVisible());
    });
}

TEST_P(PantallaDeLicencias, TheListsBehindF6GiveACatalogueAndAPosition) {
    conLicencias({}, [&](FrmBuscarArticulosPorPA &p) {
        registro.indices = {1};
        tecla(Qt::Key_F6);
        ASSERT_EQ(registro.elecciones.size(), 1U);
        EXPECT_EQ(registro.elecciones[0].titulo, u"Catálogos"_s);
        EXPECT_EQ(p.ui.txtCatalogoABuscar->text(), registro.elecciones[0].filas.value(1));
        EXPECT_FALSE(p.ui.txtCatalogoABuscar->text().isEmpty());
        tecla(Qt::Key_F6);
        EXPECT_EQ(p.ui.txtCatalogoABuscar->text(), registro.elecciones[0].filas.value(1)) << "left";
        p.ui.txtArticuloABuscar->setFocus();
        tecla(Qt::Key_F6);
        EXPECT_EQ(registro.elecciones.size(), 2U) << "an article has no list of its own";
        p.ui.txtPosiciónNcmABuscar->setFocus();
        escribir(u"8708.80"_s);
        conPantallaModal<FrmPosicion>([](FrmPosicion &) { tecla(Qt::Key_Return); });
        tecla(Qt::Key_F6);
        esperarVentana(p.ventana.get());
        EXPECT_EQ(p.ui.txtPosiciónNcmABuscar->text().left(7), u"8708.80"_s);
        EXPECT_EQ(p.ui.txtPosiciónNcmABuscar->text().size(), 15);
    });
}

TEST_P(PantallaDeLicencias, TheNotesOfThePositionAreShown) {
    conLicencias(u"8708.80.00.110K"_s, [&](FrmBuscarArticulosPorPA &p) {
        atajo(Qt::Key_M);
        EXPECT_EQ(p.ui.Text1->toPlainText().toStdString(),
                  "Aclaraciones para (1)\n"
                  "* Exceptuado cuando el importador es fabricante\n"
                  "* La licencia vale 90 días desde su aprobación\n"
                  "Aclaraciones para (2)\n"
                  "* No posee aclaraciones la posición\n");
        EXPECT_EQ(p.ui.lbAclaraciones->text(), u"8708.80.00.110K"_s);
        p.ui.txtPosiciónNcmABuscar->setFocus();
        escribir(u"0101.21.00"_s);
        atajo(Qt::Key_M);
        EXPECT_EQ(p.ui.Text1->toPlainText(), u"-1"_s);
        EXPECT_EQ(p.ui.lbAclaraciones->text(),
                  u"Ninguna licencia alcanza a los primeros 10 caracteres de la posición."_s);
        // ENTER in the notes begins nothing.
        p.ui.Text1->setFocus();
        tecla(Qt::Key_Return);
        EXPECT_TRUE(registro.mensajes.empty());
        EXPECT_TRUE(registro.pedidos.empty());
    });
}

TEST_P(PantallaDeLicencias, AStoreWithoutItsTablesIsTold) {
    ejecutar(u"drop table LNAPIPosicionesAfectadas"_s, entidad::ncm);
    conLicencias(u"8708.80.00.110K"_s, [&](FrmBuscarArticulosPorPA &p) {
        atajo(Qt::Key_M);
        ASSERT_EQ(registro.mensajes.size(), 1U);
        EXPECT_EQ(registro.mensajes[0].icono, Icono::Critico);
        registro.archivos = {archivo_};
        atajo(Qt::Key_E);
        ASSERT_EQ(registro.mensajes.size(), 2U);
        EXPECT_EQ(registro.mensajes[1].icono, Icono::Critico);
        EXPECT_EQ(p.ui.labelRegistro->text(), QString());
        EXPECT_EQ(QApplication::focusWidget(), p.ui.txtPosiciónNcmABuscar);
    });
    EXPECT_EQ(lineasDelArchivo(), -1);
}

TEST_P(PantallaDeLicencias, TheSystemsDialogWritesAWorkbookToo) {
    conDialogosDeVerdad();
    QString abierto;
    ctx->dialogos.abrirArchivo = [&abierto](const QString &archivo) {
        abierto = archivo;
        return true;
    };
    ctx->dialogos.mensaje = [this](const Mensaje &m) { registro.mensajes.push_back(m); };
    conLicencias({}, [&](FrmBuscarArticulosPorPA &) {
        escribir(u"HIDPLATA"_s);
        conCajaDeArchivo([&](QFileDialog *caja) {
            EXPECT_EQ(caja->windowTitle(), u"Guardar Reporte de catálogo"_s);
            EXPECT_EQ(caja->selectedNameFilter(), u"XLS Delimitado por comas (*.xls)"_s);
            auto *nombre = caja->findChild<QLineEdit *>(u"fileNameEdit"_s);
            ASSERT_NE(nombre, nullptr);
            EXPECT_EQ(nombre->text(), u"Reporte de catálogo HIDPLATA.xls"_s);
            const QString libro = caja->nameFilters().value(1);
            caja->selectNameFilter(libro);
            Q_EMIT caja->filterSelected(libro);
            nombre->setText(tienda->carpeta() + "/libro"_L1);
            QTest::keyClick(nombre, Qt::Key_Return);
        });
        tecla(Qt::Key_Return);
    });
    EXPECT_EQ(abierto, tienda->carpeta() + "/libro.xlsx"_L1);
    QFile f(abierto);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    EXPECT_EQ(f.read(2), "PK"_ba);
}

// The road

TEST_P(PantallaDeLicencias, TheNomenclatureOpensItOnThePositionInHand) {
    auto &consultas = Pantalla<FrmConsultas>();
    consultas.Mostrar();
    esperarVentana(consultas.ventana.get());
    const auto alAbrir = [](const QString &posicion) {
        conPantallaModal<FrmBuscarArticulosPorPA>([posicion](FrmBuscarArticulosPorPA &p) {
            EXPECT_EQ(p.ui.txtPosiciónNcmABuscar->text(), posicion);
            tecla(Qt::Key_Escape);
        });
    };
    alAbrir({});
    tecla(Qt::Key_F7);
    esperarVentana(consultas.ventana.get());
    escribir(u"8708.80"_s);
    alAbrir(u"8708.80"_s);
    tecla(Qt::Key_F7);
    esperarVentana(consultas.ventana.get());
    tecla(Qt::Key_Return);
    ASSERT_EQ(QApplication::focusWidget(), consultas.ui.LstResult);
    const QString enMano = ::enMano(consultas.ui.LstResult, 0);
    EXPECT_EQ(enMano.size(), 15);
    alAbrir(enMano);
    tecla(Qt::Key_F7);
    esperarVentana(consultas.ventana.get());
    alAbrir(enMano);
    atajo(Qt::Key_L);
    EXPECT_TRUE(consultas.ventana->isVisible());
    EXPECT_TRUE(consultas.ui.lbTeclas->text().contains(u"F7  licencias"_s));
}

}  // namespace
