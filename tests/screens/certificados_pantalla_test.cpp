// The certificates of origin of an operation, by keyboard.

#include <gtest/gtest.h>

#include <QApplication>

#include "forms/FrmCertificado.h"
#include "forms/FrmCertificados.h"
#include "frame/ui/Pantalla.h"
#include "liquidation/FrmVerItem.h"
#include "operations/FrmDetalleInterno.h"
#include "tests/support/pantallas.h"

using namespace Qt::StringLiterals;

namespace {

/// Of the demonstration: eleven lines, eight of Brazil under BR-2026-1188, three of Germany under STG-77120.
const QString opDelBrasil = u"ICR-2026-0005"_s;

class PantallaDeCertificados : public EnPantalla {
 protected:
    void mostrar(const std::function<void(FrmCertificados &)> &hacer) {
        conPantallaModal<FrmCertificados>(hacer);
        AbrirCertificados(opDelBrasil);
        EXPECT_FALSE(PantallaAbierta<FrmCertificados>());
    }
    /// Opens a card over the list by a key.
    static void enFicha(FrmCertificados &lista, int llave,
                        const std::function<void(FrmCertificado &)> &hacer) {
        conPantallaModal<FrmCertificado>(hacer);
        tecla(llave);
        esperarVentana(lista.ventana.get());
    }
    std::string lineasDe(const QString &numero) {
        return valor(
                   u"select count(*) from subitems where interno = 'ICR-2026-0005' and certorig = '%1'"_s.arg(
                       numero))
            .toStdString();
    }
};
EN_AMBOS_STORES(PantallaDeCertificados);

TEST_P(PantallaDeCertificados, TheListTellsEachWithItsLines) {
    mostrar([](FrmCertificados &p) {
        EXPECT_EQ(QApplication::focusWidget(), p.ui.txtBuscar);
        EXPECT_EQ(textosDe(p.ui.Lst, 0), (QStringList{u"BR-2026-1188"_s, u"STG-77120"_s}));
        EXPECT_EQ(textosDe(p.ui.Lst, 5), (QStringList{u"8"_s, u"3"_s}));
        EXPECT_EQ(textosDe(p.ui.Lst, 6), (QStringList{QString(), QString()}));
        EXPECT_FALSE(p.ui.LbSueltos->isVisible());
        escribir(u"stg"_s);
        EXPECT_EQ(enMano(p.ui.Lst, 0), u"STG-77120"_s);
        tecla(Qt::Key_Escape);
    });
}

TEST_P(PantallaDeCertificados, OneIsKeyedWithItsLinesByTheKeyboardAlone) {
    ejecutar(u"update subitems set certorig = null where interno = 'ICR-2026-0005'"_s);
    ejecutar(u"delete from certorigen"_s);
    ejecutar(u"update caratula set factura8 = 'N'"_s);
    mostrar([](FrmCertificados &p) {
        enFicha(p, Qt::Key_Insert, [](FrmCertificado &f) {
            EXPECT_EQ(QApplication::focusWidget(), f.ui.TxtNumero);
            EXPECT_EQ(f.ui.TxtExportador->text(), u"AUTOPECAS PAULISTA LTDA."_s) << "the seller is offered";
            EXPECT_EQ(f.ui.LbCubiertas->text(), u"0 de 11 líneas"_s);
            escribir(u"BR-1"_s);
            tecla(Qt::Key_Return);
            escribir(u"5-2-26"_s);
            tecla(Qt::Key_Return);
            EXPECT_EQ(f.ui.TxtFecha->text(), u"05/02/2026"_s);
            escribir(u"203"_s);
            tecla(Qt::Key_Return);
            EXPECT_EQ(f.ui.LbPais->text().trimmed(), u"BRASIL"_s);
            EXPECT_EQ(QApplication::focusWidget(), f.ui.TxtVencimiento);
            // Those of the country, then one less and one of the others more.
            atajo(Qt::Key_M);
            EXPECT_EQ(f.ui.LbCubiertas->text(), u"8 de 11 líneas"_s);
            f.ui.GrdLineas->setFocus();
            EXPECT_EQ(enMano(f.ui.GrdLineas, 0), u"SÍ"_s);
            tecla(Qt::Key_Space);
            EXPECT_EQ(enMano(f.ui.GrdLineas, 0), QString());
            EXPECT_EQ(f.ui.LbCubiertas->text(), u"7 de 11 líneas"_s);
            tecla(Qt::Key_Return);
            EXPECT_EQ(f.ui.LbCubiertas->text(), u"8 de 11 líneas"_s);
            atajo(Qt::Key_G);
        });
        EXPECT_EQ(textosDe(p.ui.Lst, 0), QStringList{u"BR-1"_s});
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(lineasDe(u"BR-1"_s), "8");
    EXPECT_EQ(valor(u"select factura8 from caratula where interno = 'ICR-2026-0005'"_s), u"S"_s);
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(PantallaDeCertificados, LinesAreFoundByPositionAndArticleAndMarkedTogether) {
    mostrar([](FrmCertificados &p) {
        enFicha(p, Qt::Key_F6, [](FrmCertificado &f) {
            EXPECT_EQ(QApplication::focusWidget(), f.ui.TxtFecha) << "its number stands";
            f.ui.txtBuscarPosicion->setFocus();
            escribir(u"8708.80"_s);
            hasta([&f] { return f.ui.GrdLineas->model()->rowCount() == 2; });
            EXPECT_EQ(f.ui.LbCubiertas->text(), u"8 de 11 líneas, 2 a la vista"_s);
            atajo(Qt::Key_Q);
            EXPECT_EQ(f.ui.LbCubiertas->text(), u"6 de 11 líneas, 2 a la vista"_s);
            EXPECT_EQ(textosDe(f.ui.GrdLineas, 0), (QStringList{QString(), QString()}));
            atajo(Qt::Key_T);
            EXPECT_EQ(f.ui.LbCubiertas->text(), u"8 de 11 líneas, 2 a la vista"_s);
            f.ui.txtBuscarPosicion->clear();
            f.ui.txtBuscarArticulo->setFocus();
            escribir(u"faro"_s);
            // What was typed is searched at once when a key takes the row.
            tecla(Qt::Key_Return);
            EXPECT_EQ(f.ui.LbCubiertas->text(), u"7 de 11 líneas, 1 a la vista"_s);
            atajo(Qt::Key_G);
        });
        EXPECT_EQ(textosDe(p.ui.Lst, 5), (QStringList{u"7"_s, u"3"_s}));
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(lineasDe(u"BR-2026-1188"_s), "7");
    EXPECT_EQ(
        valor(u"select certorig from subitems where interno = 'ICR-2026-0005' and idarticulo = 'FAR-H4'"_s),
        QString());
}

TEST_P(PantallaDeCertificados, TheCountryComesBeforeItsLinesAreAskedFor) {
    mostrar([this](FrmCertificados &p) {
        enFicha(p, Qt::Key_Insert, [this](FrmCertificado &f) {
            atajo(Qt::Key_M);
            EXPECT_EQ(QApplication::focusWidget(), f.ui.TxtIdPais);
            ASSERT_EQ(registro.mensajes.size(), 1U);
            EXPECT_EQ(registro.mensajes[0].texto, u"Ingrese primero el país de origen del certificado."_s);
            EXPECT_EQ(registro.mensajes[0].icono, Icono::Informacion);
            tecla(Qt::Key_Escape);
        });
        tecla(Qt::Key_Escape);
    });
}

TEST_P(PantallaDeCertificados, TheLinesOfTheCountryComeBackAfterAllWereTakenAway) {
    mostrar([](FrmCertificados &p) {
        enFicha(p, Qt::Key_F6, [](FrmCertificado &f) {
            atajo(Qt::Key_Q);
            EXPECT_EQ(f.ui.LbCubiertas->text(), u"0 de 11 líneas"_s);
            atajo(Qt::Key_M);
            EXPECT_EQ(f.ui.LbCubiertas->text(), u"8 de 11 líneas"_s);
            tecla(Qt::Key_Escape);
        });
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(lineasDe(u"BR-2026-1188"_s), "8");
}

TEST_P(PantallaDeCertificados, WithoutAFreeLineOfTheCountryASentenceSaysSo) {
    mostrar([this](FrmCertificados &p) {
        enFicha(p, Qt::Key_Insert, [this](FrmCertificado &f) {
            f.ui.TxtIdPais->setFocus();
            escribir(u"203"_s);
            registro = {};
            atajo(Qt::Key_M);
            EXPECT_EQ(f.ui.LbCubiertas->text(), u"0 de 11 líneas"_s);
            ASSERT_EQ(registro.mensajes.size(), 1U);
            EXPECT_EQ(
                registro.mensajes[0].texto,
                u"A la vista no hay líneas de ese país sin certificado; marque con ESPACIO las que pasan "
                "de otro a éste."_s);
            registro.respuestas.assign(4, false);
            tecla(Qt::Key_Escape);
        });
        tecla(Qt::Key_Escape);
    });
}

TEST_P(PantallaDeCertificados, ARefusalKeepsTheCardWithTheFocusOnItsField) {
    mostrar([this](FrmCertificados &p) {
        enFicha(p, Qt::Key_Insert, [this](FrmCertificado &f) {
            escribir(u"X"_s);
            atajo(Qt::Key_G);
            EXPECT_TRUE(f.ventana->isVisible());
            EXPECT_EQ(QApplication::focusWidget(), f.ui.TxtFecha);
            ASSERT_EQ(registro.mensajes.size(), 1U);
            tecla(Qt::Key_Escape);
        });
        tecla(Qt::Key_Escape);
    });
    ASSERT_EQ(registro.preguntas.size(), 1U) << "left with No";
    EXPECT_EQ(registro.preguntas[0].texto,
              u"Los cambios del certificado no están guardados.\r\n¿Desea guardarlos?"_s);
    EXPECT_EQ(valor(u"select count(*) from certorigen"_s), u"2"_s);
}

TEST_P(PantallaDeCertificados, ACardLeftAsItCameAsksNothing) {
    mostrar([](FrmCertificados &p) {
        enFicha(p, Qt::Key_Return, [](FrmCertificado &) { tecla(Qt::Key_Escape); });
        tecla(Qt::Key_Escape);
    });
    EXPECT_TRUE(registro.preguntas.empty());
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(PantallaDeCertificados, ANumberThatLinesBearIsOfferedWithThem) {
    ejecutar(u"delete from certorigen where numero = 'STG-77120'"_s);
    mostrar([](FrmCertificados &p) {
        EXPECT_EQ(p.ui.LbSueltos->text(),
                  u"Números en las líneas sin su certificado (INSERT los ofrece): STG-77120"_s);
        enFicha(p, Qt::Key_Insert, [](FrmCertificado &f) {
            EXPECT_EQ(f.ui.TxtNumero->text(), u"STG-77120"_s);
            EXPECT_EQ(QApplication::focusWidget(), f.ui.TxtFecha);
            EXPECT_EQ(f.ui.LbCubiertas->text(), u"3 de 11 líneas"_s);
            escribir(u"8/1/2026"_s);
            tecla(Qt::Key_Return);
            escribir(u"438"_s);
            atajo(Qt::Key_G);
        });
        EXPECT_EQ(p.ui.Lst->rowCount(), 2);
        EXPECT_EQ(enMano(p.ui.Lst, 0), u"STG-77120"_s);
        EXPECT_FALSE(p.ui.LbSueltos->isVisible());
        tecla(Qt::Key_Escape);
    });
}

TEST_P(PantallaDeCertificados, SuprDeletesTheOneInHandAfterAQuestion) {
    registro.respuestas = {true};
    mostrar([](FrmCertificados &p) {
        p.ui.Lst->setFocus();
        tecla(Qt::Key_Delete);
        EXPECT_EQ(textosDe(p.ui.Lst, 0), QStringList{u"STG-77120"_s});
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(lineasDe(u"BR-2026-1188"_s), "0");
}

TEST_P(PantallaDeCertificados, F12ShowsThemAsAListAndTellsWhenThereAreNone) {
    mostrar([this](FrmCertificados &p) {
        tecla(Qt::Key_F12);
        ASSERT_EQ(registro.vistos.size(), 1U);
        EXPECT_EQ(registro.vistos[0].reporte.titulo, u"Certificados de origen"_s);
        EXPECT_TRUE(registro.vistos[0].tabla.has_value());
        p.ui.Lst->setFocus();
        registro.respuestas = {true, true};
        tecla(Qt::Key_Delete);
        tecla(Qt::Key_Delete);
        registro.mensajes.clear();
        tecla(Qt::Key_F12);
        EXPECT_EQ(registro.vistos.size(), 1U);
        ASSERT_EQ(registro.mensajes.size(), 1U);
        EXPECT_EQ(registro.mensajes[0].texto,
                  u"La operación ICR-2026-0005 no tiene certificados de origen, agréguelos con INSERT."_s);
        tecla(Qt::Key_Escape);
    });
}

TEST_P(PantallaDeCertificados, TheDashboardOpensThemAndKeepsTheKeyboard) {
    ejecutar(u"insert into item (interno,id) values ('ICR-2026-0005',0)"_s);
    FrmDetalleInterno &tablero = abrir(opDelBrasil);
    ASSERT_TRUE(tablero.ui.cmdCertOrig->isEnabled()) << "the items are made";
    conPantallaModal<FrmCertificados>([](FrmCertificados &p) {
        EXPECT_EQ(p.ventana->windowTitle(), u"Certificados de origen - Operación ICR-2026-0005"_s);
        tecla(Qt::Key_Escape);
    });
    atajo(Qt::Key_E);
    esperarVentana(tablero.ventana.get());
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(PantallaDeCertificados, TheItemsOfTheLinesTellThem) {
    FrmDetalleInterno &tablero = abrir(opDelBrasil);
    registro.opciones = {RespuestaConOpciones{false, 0}};
    tablero.ui.cmdITEM->setFocus();
    tecla(Qt::Key_Space);
    hasta([] { return PantallaAbierta<FrmVerItem>() && Pantalla<FrmVerItem>().ventana->isVisible(); });
    auto &ui = Pantalla<FrmVerItem>().ui;
    QStringList vistos;
    for (int item = 1; item <= 20 && vistos.size() < 2; ++item) {
        ui.TxtItem->setFocus();
        escribir(QString::number(item));
        tecla(Qt::Key_Return);
        for (int fila = 0; fila < ui.lstCertOrig->count(); ++fila)
            if (const QString c = ui.lstCertOrig->item(fila)->text(); !vistos.contains(c)) vistos << c;
    }
    vistos.sort();
    EXPECT_EQ(vistos, (QStringList{u"BR-2026-1188"_s, u"STG-77120"_s}));
}

class CapturasDeCertificados : public PantallaDeCertificados {};
INSTANTIATE_TEST_SUITE_P(Stores, CapturasDeCertificados, ::testing::Values("ACCESS"));

TEST_P(CapturasDeCertificados, TheListAndTheCard) {
    ejecutar(
        u"update certorigen set vencimiento = '2026-01-30 00:00:00', idpais = '203' where numero = "
        "'STG-77120'"_s);
    ejecutar(
        u"update subitems set certorig = 'BR-2026-1201' where interno = 'ICR-2026-0005' and idarticulo = "
        "'PIS-16'"_s);
    mostrar([](FrmCertificados &p) {
        foto(p.ventana.get(), u"certificados"_s);
        EXPECT_EQ(ordenDeTab(p.ventana.get()).join(u' '), u"txtBuscar Lst"_s);
        enFicha(p, Qt::Key_Return, [](FrmCertificado &f) {
            foto(f.ventana.get(), u"certificado"_s);
            f.ui.TxtNumero->setFocus();
            EXPECT_EQ(
                ordenDeTab(f.ventana.get()).join(u' ').toStdString(),
                "TxtNumero TxtFecha TxtIdPais TxtVencimiento TxtExportador TxtObservaciones "
                "txtBuscarPosicion txtBuscarArticulo GrdLineas CmdDelPais CmdTodas CmdNinguna CmdGuardar");
            tecla(Qt::Key_Escape);
        });
        tecla(Qt::Key_Escape);
    });
}

}  // namespace
