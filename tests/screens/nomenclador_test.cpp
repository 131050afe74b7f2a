// The nomenclature by keyboard: the search by position and by words, and the detail sheet.

#include <gtest/gtest.h>

#include <QApplication>
#include <QHeaderView>
#include <QPushButton>
#include <QTest>

#include "frame/entities.h"
#include "frame/ui/Pantalla.h"
#include "frame/ui/estilo.h"
#include "subitems/FrmConsultas.h"
#include "subitems/FrmDetalleNomenclador.h"
#include "subitems/FrmSufijos.h"
#include "tests/support/claves.h"
#include "tests/support/pantallas.h"
#include "tests/support/traza.h"

using namespace Qt::StringLiterals;

namespace {

using entidad::ncm;

std::string textoDe(const QTableWidget *grilla) {
    QStringList lineas;
    for (int fila = 0; fila < grilla->rowCount(); ++fila)
        lineas << grilla->item(fila, 0)->text() + u'|' + grilla->item(fila, 1)->text();
    return lineas.join(u'\n').toStdString();
}

std::string textoDe(const QTableView *vista) {
    QStringList lineas;
    for (int fila = 0; fila < vista->model()->rowCount(); ++fila)
        lineas << vista->model()->index(fila, 0).data().toString() + u'|' +
                      vista->model()->index(fila, 1).data().toString();
    return lineas.join(u'\n').toStdString();
}

class ConsultaDelNomenclador : public EnPantalla {
 protected:
    static FrmConsultas &mostrar() {
        auto &consultas = Pantalla<FrmConsultas>();
        consultas.Mostrar();
        esperarVentana(consultas.ventana.get());
        return consultas;
    }
    static FrmConsultas &porPosicion(const QString &texto) {
        auto &consultas = mostrar();
        escribir(texto);
        tecla(Qt::Key_Return);
        return consultas;
    }
    static FrmConsultas &porPalabras(const QString &texto) {
        auto &consultas = mostrar();
        consultas.ui.TxtDescripcion->setFocus();
        escribir(texto);
        tecla(Qt::Key_Return);
        return consultas;
    }
    /// ENTER on the row in hand, then `hacer` on the sheet; true when there was one.
    template <class T>
    static void enLaVentana(int cual, const std::function<void(T &)> &hacer) {
        bool vista = false;
        conVentanaModal([&](QWidget *modal) {
            vista = true;
            auto &pantalla = Pantalla<T>();
            ASSERT_EQ(modal, pantalla.ventana.get());
            esperarVentana(modal);
            hacer(pantalla);
            tecla(Qt::Key_Escape);
            EXPECT_FALSE(modal->isVisible());
        });
        tecla(cual);
        EXPECT_TRUE(vista);
        EXPECT_FALSE(PantallaAbierta<T>());
        esperarVentana(Pantalla<FrmConsultas>().ventana.get());
    }
    static void enLaHoja(const std::function<void(FrmDetalleNomenclador &)> &hacer) {
        enLaVentana<FrmDetalleNomenclador>(Qt::Key_Return, hacer);
    }
    std::string mensajes() const {
        QStringList textos;
        for (const Mensaje &m : registro.mensajes) textos << m.texto;
        return textos.join(u'|').toStdString();
    }
};

TEST_P(ConsultaDelNomenclador, ACommaInThePositionIsADot) {
    auto &consultas = porPosicion(u"8409,91"_s);
    const QString propia = valor(u"select [010] from ncm where [001] = '8409.91.20'"_s, ncm);
    const QString superior = valor(u"select [004] from ncm where [001] = '8409.91.20'"_s, ncm);
    const QAbstractItemModel &filas = *consultas.ui.LstResult->model();
    ASSERT_EQ(filas.rowCount(), 3);
    EXPECT_EQ(filas.index(0, 0).data().toString(), motor);
    EXPECT_EQ(filas.index(2, 0).data().toString(), u"8409.91.20.000W"_s);
    EXPECT_EQ(filas.index(2, 1).data().toString(), propia + " - - "_L1 + superior);
    EXPECT_EQ(consultas.ui.lbCantidad->text(), u"3 posiciones encontradas"_s);
    EXPECT_EQ(QApplication::focusWidget(), consultas.ui.LstResult);
    EXPECT_EQ(consultas.ui.LstResult->currentIndex().row(), 0);
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(ConsultaDelNomenclador, AnEmptyPositionIsAskedFor) {
    auto &consultas = mostrar();
    tecla(Qt::Key_Return);
    EXPECT_EQ(mensajes(), "Debe ingresar una posición");
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Exclamacion);
    EXPECT_EQ(QApplication::focusWidget(), consultas.ui.TxtSIM);
}

TEST_P(ConsultaDelNomenclador, ThreeCharactersAreEnoughForWordsAndTwoAreNot) {
    auto &consultas = porPalabras(u"pi"_s);
    EXPECT_EQ(mensajes(), "Debe ingresar al menos 3 caracteres para buscar una posición");
    EXPECT_EQ(QApplication::focusWidget(), consultas.ui.TxtDescripcion);
    EXPECT_EQ(consultas.ui.LstResult->model()->rowCount(), 0);
    registro.mensajes.clear();
    porPalabras(u"PIS"_s);
    EXPECT_EQ(mensajes(), "");
    EXPECT_GT(consultas.ui.LstResult->model()->rowCount(), 0) << "whatever the case";
    EXPECT_EQ(QApplication::focusWidget(), consultas.ui.LstResult);
}

TEST_P(ConsultaDelNomenclador, WordsJoinBothLevelsWithAnotherSeparator) {
    ejecutar(fijarEnMotor("010", "Bielas de prueba"), ncm);
    ejecutar(fijarEnMotor("004", "Partes de motores"), ncm);
    auto &consultas = porPalabras(u"las de prue"_s);
    EXPECT_EQ(textoDe(consultas.ui.LstResult), "8409.91.12.100G|Bielas de prueba -- Partes de motores");
    EXPECT_EQ(consultas.ui.lbCantidad->text(), u"1 posición encontrada"_s);
    CerrarPantalla<FrmConsultas>();
    EXPECT_EQ(textoDe(porPosicion(u"8409.91.12.1"_s).ui.LstResult), "") << "the first key alone is compared";
    CerrarPantalla<FrmConsultas>();
    EXPECT_TRUE(QString::fromStdString(textoDe(porPosicion(u"8409.91.12"_s).ui.LstResult))
                    .startsWith("8409.91.12.100G|Bielas de prueba - - Partes de motores\n"_L1));
}

TEST_P(ConsultaDelNomenclador, EachFieldMakesItsOwnButtonTheDefault) {
    auto &consultas = mostrar();
    EXPECT_TRUE(consultas.ui.CmdBuscar->isDefault());
    tecla(Qt::Key_Down);
    EXPECT_EQ(QApplication::focusWidget(), consultas.ui.TxtDescripcion);
    EXPECT_TRUE(consultas.ui.Command1->isDefault());
    EXPECT_FALSE(consultas.ui.CmdBuscar->isDefault());
    tecla(Qt::Key_Up);
    EXPECT_EQ(QApplication::focusWidget(), consultas.ui.TxtSIM);
    EXPECT_TRUE(consultas.ui.CmdBuscar->isDefault());
}

TEST_P(ConsultaDelNomenclador, NothingFoundEmptiesTheResultAndKeepsTheField) {
    auto &consultas = porPosicion(u"8409"_s);
    EXPECT_GT(consultas.ui.LstResult->model()->rowCount(), 0);
    porPosicion(u"zzzz"_s);
    EXPECT_EQ(consultas.ui.LstResult->model()->rowCount(), 0);
    EXPECT_EQ(consultas.ui.lbCantidad->text(), u"0 posiciones encontradas"_s);
    EXPECT_EQ(QApplication::focusWidget(), consultas.ui.TxtSIM);
    EXPECT_EQ(consultas.ui.TxtSIM->selectedText(), u"zzzz"_s);
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(ConsultaDelNomenclador, AClickOnAHeadingSortsAndKeepsTheRowInHand) {
    auto &consultas = porPosicion(u"84"_s);
    QTableView *vista = consultas.ui.LstResult;
    tecla(Qt::Key_Down);
    const QString enMano = vista->currentIndex().siblingAtColumn(0).data().toString();
    QHeaderView *titulos = vista->horizontalHeader();
    const QPoint enLaDescripcion(titulos->sectionViewportPosition(1) + 40, titulos->height() / 2);
    QTest::mouseClick(titulos->viewport(), Qt::LeftButton, Qt::NoModifier, enLaDescripcion);
    const auto textos = [vista](int columna) {
        QStringList lista;
        for (int fila = 0; fila < vista->model()->rowCount(); ++fila)
            lista << vista->model()->index(fila, columna).data().toString();
        return lista;
    };
    const auto ordenados = [](QStringList lista, bool alReves) {
        std::stable_sort(lista.begin(), lista.end(), [](const QString &a, const QString &b) {
            return QString::localeAwareCompare(a, b) < 0;
        });
        if (alReves) std::reverse(lista.begin(), lista.end());
        return lista;
    };
    EXPECT_EQ(textos(1), ordenados(textos(1), false));
    EXPECT_EQ(vista->currentIndex().siblingAtColumn(0).data().toString(), enMano);
    tecla(Qt::Key_F2);
    EXPECT_EQ(textos(0), ordenados(textos(0), false));
    tecla(Qt::Key_F2);
    EXPECT_EQ(textos(0), ordenados(textos(0), true)) << "the same key again turns the order round";
    EXPECT_EQ(vista->currentIndex().siblingAtColumn(0).data().toString(), enMano);
    tecla(Qt::Key_F3);
    EXPECT_EQ(textos(1), ordenados(textos(1), false));
    tecla(Qt::Key_End);
    EXPECT_EQ(vista->currentIndex().row(), vista->model()->rowCount() - 1);
    tecla(Qt::Key_Home);
    EXPECT_EQ(vista->currentIndex().row(), 0);
}

TEST_P(ConsultaDelNomenclador, EnterAndTheDoubleClickShowTheSheetOfTheRow) {
    auto &consultas = porPosicion(u"8409.91"_s);
    tecla(Qt::Key_Down);
    const auto mirar = [](FrmDetalleNomenclador &hoja) {
        EXPECT_EQ(hoja.ventana->windowTitle(), u"Detalles del Nomenclador"_s);
        EXPECT_TRUE(hoja.ui.LbEncabezado->text().startsWith(
            u"Posición Arancelaria: 8409.91.12.900A\n-----------------------------------------\n"_s))
            << hoja.ui.LbEncabezado->text().toStdString();
    };
    enLaHoja(mirar);
    esperarVentana(consultas.ventana.get());
    EXPECT_EQ(QApplication::focusWidget(), consultas.ui.LstResult);
    bool vista = false;
    conVentanaModal([&](QWidget *modal) {
        vista = true;
        mirar(Pantalla<FrmDetalleNomenclador>());
        modal->close();
    });
    const QPoint punto = consultas.ui.LstResult->visualRect(consultas.ui.LstResult->currentIndex()).center();
    QTest::mouseClick(consultas.ui.LstResult->viewport(), Qt::LeftButton, Qt::NoModifier, punto);
    QTest::mouseDClick(consultas.ui.LstResult->viewport(), Qt::LeftButton, Qt::NoModifier, punto);
    EXPECT_TRUE(vista);
}

TEST_P(ConsultaDelNomenclador, TheSheetTellsEachSectionInItsOrder) {
    for (const auto &[columna, valor] :
         {std::pair("012", "07"), std::pair("020", ""), std::pair("013", "General"),
          std::pair("015", "14.00"), std::pair("021", "0.00")})
        ejecutar(fijarEnMotor(columna, valor), ncm);
    porPosicion(u"8409.91.12"_s);
    enLaHoja([](FrmDetalleNomenclador &hoja) {
        EXPECT_EQ(textoDe(hoja.ui.GrdDetalles),
                  "Unidad Estadistica:|07\nUnidad del Derecho Especifico:|No posee\nRamo:|General\n|");
        const QString gravamenes = QString::fromStdString(textoDe(hoja.ui.GrdGravamenes));
        EXPECT_TRUE(gravamenes.startsWith(
            u"Derecho de Importación Extrazona:|14.00\nDerecho de Importación intrazona:|0.00\n"_s))
            << gravamenes.toStdString();
        EXPECT_EQ(hoja.ui.GrdGravamenes->rowCount(), 9);
        EXPECT_EQ(hoja.ui.GrdFuentes->rowCount(), 10);
        EXPECT_EQ(hoja.ui.marcoGravamenes->title(), u"GRAVAMENES"_s);
        EXPECT_EQ(hoja.ui.marcoFuentes->title(), u"FUENTES"_s);
        EXPECT_EQ(hoja.ui.marcoPosee->title(), u"POSEE"_s);
        EXPECT_EQ(hoja.ui.LbLetra->text(), u"Letra: F - Licencia no automática - Motores y autopartes"_s);
    });
}

TEST_P(ConsultaDelNomenclador, AnUnknownTermForForeignCurrencyShowsError) {
    ejecutar(fijarEnMotor("071", "5"), ncm);
    porPosicion(u"8409.91.12"_s);
    enLaHoja([](FrmDetalleNomenclador &hoja) {
        EXPECT_TRUE(QString::fromStdString(textoDe(hoja.ui.GrdPosee))
                        .endsWith("Plazo para Ingreso de Divisas:|ERROR\n|"_L1))
            << textoDe(hoja.ui.GrdPosee);
    });
}

TEST_P(ConsultaDelNomenclador, AColumnOfBlanksGivesNoLineOfWhatThePositionHas) {
    ejecutar(fijarEnMotor("043", "SENASA"), ncm);
    porPosicion(u"8409.91.12"_s);
    enLaHoja([](FrmDetalleNomenclador &hoja) {
        EXPECT_NE(textoDe(hoja.ui.GrdPosee).find("Intervención:|SENASA"), std::string::npos);
    });
    ejecutar(fijarEnMotor("043", "   "), ncm);
    enLaHoja([](FrmDetalleNomenclador &hoja) {
        EXPECT_EQ(textoDe(hoja.ui.GrdPosee).find("Intervención:"), std::string::npos);
    });
}

TEST_P(ConsultaDelNomenclador, ThePositionsOwnSuffixesAndTheEndOfEachSectionAreHighlighted) {
    porPosicion(u"8409.91.12"_s);
    enLaHoja([](FrmDetalleNomenclador &hoja) {
        // 14085590 = 214 * 65536 + 237 * 256 + 214: blue, green and red.
        const QColor verde(214, 237, 214);
        EXPECT_EQ(estilo::ColorDePlataforma(colorResaltado), verde);
        QStringList resaltados;
        QStringList llanos;
        for (int fila = 0; fila < hoja.ui.GrdSufijos->rowCount(); ++fila) {
            const QTableWidgetItem *celda = hoja.ui.GrdSufijos->item(fila, 0);
            (celda->background().color() == verde ? resaltados : llanos) << celda->text();
        }
        EXPECT_EQ(resaltados.join(u' ').toStdString(), "HA01 HA02");
        EXPECT_EQ(llanos.join(u' ').toStdString(), "AA01 AA02 AB");
        for (QTableWidget *grilla :
             {hoja.ui.GrdDetalles, hoja.ui.GrdGravamenes, hoja.ui.GrdFuentes, hoja.ui.GrdPosee}) {
            const int ultima = grilla->rowCount() - 1;
            EXPECT_EQ(grilla->item(ultima, 0)->background().color(), verde);
            EXPECT_EQ(grilla->item(ultima, 1)->background().color(), verde);
            for (int fila = 0; fila < ultima; ++fila)
                EXPECT_NE(grilla->item(fila, 0)->background().color(), verde);
        }
        EXPECT_EQ(hoja.ui.GrdSufijos->horizontalHeaderItem(0)->text(), u"SUFIJO"_s);
        EXPECT_EQ(hoja.ui.GrdSufijos->horizontalHeaderItem(1)->text(), u"DETALLE"_s);
        EXPECT_GE(hoja.ui.GrdSufijos->columnWidth(1), 600) << "9000 units";
    });
}

TEST_P(ConsultaDelNomenclador, AnotherLetterFeedsTheSheetAndAnUnknownPositionShowsNone) {
    bool vista = false;
    conVentanaModal([&](QWidget *modal) {
        vista = true;
        EXPECT_TRUE(Pantalla<FrmDetalleNomenclador>().ui.LbEncabezado->text().startsWith(
            u"Posición Arancelaria: 8409.91.12.100X\n"_s));
        modal->close();
    });
    VerDetalleNomenclador(u"8409.91.12.100X"_s);
    EXPECT_TRUE(vista);
    VerDetalleNomenclador(u"9999.99.99.999Z"_s);
    EXPECT_FALSE(PantallaAbierta<FrmDetalleNomenclador>());
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(ConsultaDelNomenclador, TheSheetTellsTheLetterOfThePositionAndWhatItSays) {
    for (const QString &dice :
         {u"Letra: F - Licencia no automática - Motores y autopartes"_s, u"Letra: NO POSEE"_s}) {
        conVentanaModal([&dice](QWidget *modal) {
            const auto &hoja = Pantalla<FrmDetalleNomenclador>();
            EXPECT_EQ(hoja.ui.LbLetra->text(), dice);
            EXPECT_TRUE(hoja.ui.LbLetra->isVisible());
            modal->close();
        });
        VerDetalleNomenclador(motor);
        ejecutar(u"delete from letrasncm"_s, ncm);
    }
    EXPECT_FALSE(PantallaAbierta<FrmDetalleNomenclador>());
}

TEST_P(ConsultaDelNomenclador, F6ShowsTheSuffixesOfTheRow) {
    porPosicion(u"8409.91"_s);
    enLaVentana<FrmSufijos>(Qt::Key_F6, [](FrmSufijos &sufijos) {
        EXPECT_EQ(sufijos.ui.LbPosicion->text(), motor);
        EXPECT_EQ(sufijos.ui.Grid->rowCount(), 5);
    });
}

TEST_P(ConsultaDelNomenclador, EscapeClosesTheSearch) {
    porPosicion(u"8409.91"_s);
    tecla(Qt::Key_Escape);
    EXPECT_FALSE(PantallaAbierta<FrmConsultas>());
}

TEST_P(ConsultaDelNomenclador, AFaultOfTheStoreIsToldAndTheScreenStays) {
    auto &consultas = mostrar();
    ejecutar(u"drop table ncm"_s, ncm);
    escribir(u"8409"_s);
    tecla(Qt::Key_Return);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Critico);
    EXPECT_TRUE(consultas.ventana->isVisible());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_P(ConsultaDelNomenclador, WordsOverThirtyThousandPositionsAreShown) {
    constexpr int posiciones = 30000;
    constexpr int porVez = 500;
    for (int desde = 0; desde < posiciones; desde += porVez) {
        QStringList valores;
        for (int i = desde; i < desde + porVez; ++i)
            valores << u"('%1.%2.%3','%4','A','Manufacturas y sus partes','%5, artículo %6')"_s
                           .arg(1000 + i / 1000)
                           .arg(i / 10 % 100, 2, 10, QLatin1Char('0'))
                           .arg(i % 10 * 10, 2, 10, QLatin1Char('0'))
                           .arg(i % 9 * 100, 3, 10, QLatin1Char('0'))
                           .arg(i % 7 == 0 ? u"Contrapesos de fundición"_s : u"Los demás"_s)
                           .arg(i);
        ejecutar(u"insert into ncm ([001],[002],[003],[004],[010]) values "_s + valores.join(u','), ncm);
    }
    auto &consultas = porPalabras(u"CONTRAPESOS"_s);
    // 30000 / 7 = 4285.7: the first of each seven begins with 0.
    EXPECT_EQ(consultas.ui.LstResult->model()->rowCount(), 4286);
}

EN_AMBOS_STORES(ConsultaDelNomenclador);

}  // namespace
