// The data of meat of an operation and of its lines, by keyboard, and the road from there to the items.

#include <gtest/gtest.h>

#include <QApplication>

#include "assembly/FrmArmarItem.h"
#include "assembly/run.h"
#include "header/FrmListado.h"
#include "liquidation/FrmVerItem.h"
#include "operations/FrmDetalleInterno.h"
#include "regulatory/frmONCCA.h"
#include "tests/support/claves.h"
#include "tests/support/pantallas.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

class PantallaDeONCCA : public EnPantalla {
 protected:
    void mostrar(const std::function<void(frmONCCA &)> &hacer, const QString &interno = carnes) {
        conPantallaModal<frmONCCA>(hacer);
        Pantalla<frmONCCA>().Mostrar(interno);
        CerrarPantalla<frmONCCA>();
    }
    std::string guardado(const QString &columnas) {
        return filas("select "_L1 + columnas + " from caratula where interno = '"_L1 + carnes + "'"_L1)
            .toStdString();
    }
    std::string lineas() {
        return filas("select onccacategoria,onccacortes from subitems where interno = '"_L1 + carnes +
                     "' order by id"_L1)
            .toStdString();
    }
    static QLineEdit *campoDe(const frmONCCA &p, const oncca::CampoConLista &dato) {
        return p.ventana->findChild<QLineEdit *>(L(dato.control));
    }
    static QPushButton *botonDe(const frmONCCA &p, const oncca::CampoConLista &dato) {
        return p.ventana->findChild<QPushButton *>(L(dato.boton));
    }
    static QString descripcionDe(const frmONCCA &p, const oncca::CampoConLista &dato) {
        return p.ventana->findChild<QLabel *>(L(dato.etiqueta))->text();
    }
    /// Puts a text in the field by keys.
    static void poner(QLineEdit *campo, const QString &texto) {
        campo->setFocus();
        campo->selectAll();
        tecla(Qt::Key_Delete);
        escribir(texto);
    }
};
EN_AMBOS_STORES(PantallaDeONCCA);

TEST_P(PantallaDeONCCA, TheFieldsShowTheCodesAndWhatTheyMean) {
    mostrar([](frmONCCA &p) {
        EXPECT_EQ(p.ventana->windowTitle(), u"ONCCA - Operación EC-2026-0006"_s);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.chONCCA);
        EXPECT_TRUE(p.ui.chONCCA->isChecked());
        EXPECT_EQ(p.ui.chONCCA->text().remove(u'&'), u"Habilitar ONCCA en esta operación"_s);
        const std::array<std::array<const char *, 3>, oncca::cuantosCampos> esperados{{
            {"Acuerdo", "06", "PROTOCOLO CON CHINA"},
            {"Categoría", "NO", "NOVILLO"},
            {"Corte", "101", "AGUJA"},
            {"Elaborador", "4203", "FRIGORIFICO PAMPA VERDE S.A."},
            {"Especie", "1", "BOVINO"},
            {"Faneador", "4203", "FRIGORIFICO PAMPA VERDE S.A."},
            {"Ecológico-Orgánico o Biológico", "N", "CONVENCIONAL"},
            {"RES31/06MEYP", "02", "CONVENIO ENTRE PAISES"},
            {"Sistema de producción", "P", "PASTORIL"},
            {"Matadero / Faneador", "4077", "FRIGORIFICO EL REJUNTE S.R.L."},
        }};
        for (std::size_t n = 0; n < esperados.size(); ++n) {
            const oncca::CampoConLista &dato = oncca::CamposConLista().at(n);
            const auto *rotulo = p.ventana->findChild<QLabel *>("rotulo_"_L1 + L(dato.control));
            EXPECT_EQ(rotulo->text().remove(u'&'), QString::fromUtf8(esperados.at(n)[0]));
            EXPECT_EQ(rotulo->buddy(), campoDe(p, dato));
            EXPECT_EQ(campoDe(p, dato)->text(), L(esperados.at(n)[1])) << dato.control;
            EXPECT_EQ(descripcionDe(p, dato), QString::fromUtf8(esperados.at(n)[2])) << dato.control;
            EXPECT_TRUE(botonDe(p, dato)->isEnabled()) << dato.boton;
        }
        tecla(Qt::Key_Escape);
    });
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(PantallaDeONCCA, EachListIsChosenFromByF6AndByItsButton) {
    mostrar([this](frmONCCA &p) {
        for (const oncca::CampoConLista &dato : oncca::CamposConLista()) {
            QLineEdit *campo = campoDe(p, dato);
            registro.elecciones.clear();
            registro.indices = {1, 0, -1};
            teclaEn(campo, Qt::Key_F6);
            ASSERT_EQ(registro.elecciones.size(), 1U) << dato.control;
            const QStringList vistas = registro.elecciones[0].filas;
            EXPECT_EQ(vistas.at(1), descripcionDe(p, dato) + " ("_L1 + campo->text() + u')');
            ASSERT_NE(p.ui.chONCCA, QApplication::focusWidget());
            botonDe(p, dato)->click();
            EXPECT_EQ(registro.elecciones.back().filas, vistas) << "the same list";
            EXPECT_EQ(vistas.at(0), descripcionDe(p, dato) + " ("_L1 + campo->text() + u')');
            EXPECT_EQ(QApplication::focusWidget(), campo) << "the keyboard is in the field again";
            tecla(Qt::Key_F6);
            EXPECT_EQ(vistas.at(0), descripcionDe(p, dato) + " ("_L1 + campo->text() + u')')
                << "left without a choice";
        }
        EXPECT_EQ(registro.elecciones.back().titulo, u"Faneadores y mataderos"_s);
        tecla(Qt::Key_Escape);
    });
}

TEST_P(PantallaDeONCCA, F11SavesAndTheScreenStays) {
    mostrar([this](frmONCCA &p) {
        poner(p.ui.txtAcuerdo, u"01"_s);
        tecla(Qt::Key_Return);
        EXPECT_EQ(p.ui.lbAcuerdo->text(), u"CUOTA HILTON - UNION EUROPEA"_s);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.txtCategoria);
        // What is still in the field goes along.
        poner(p.ui.txtMatadero, u"d'or"_s);
        tecla(Qt::Key_F11);
        EXPECT_TRUE(p.ventana->isVisible());
        EXPECT_EQ(p.ui.lbEstado->text(), u"Datos de ONCCA grabados"_s);
        EXPECT_EQ(guardado(u"onccaacuerdo,onccamatadero,onccahabilitado,factura8"_s), "01|D'OR|S|S");
        escribir(u"x"_s);
        EXPECT_EQ(p.ui.lbEstado->text(), QString()) << "what is typed now is not saved";
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(guardado(u"onccamatadero"_s), "D'OR");
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(PantallaDeONCCA, LeavingByEscapeAfterAListChoiceKeepsNothing) {
    const std::string antes = guardado(u"onccaacuerdo,onccacortes,factura8"_s);
    mostrar([this](frmONCCA &p) {
        registro.indices = {0, 0};
        teclaEn(p.ui.txtAcuerdo, Qt::Key_F6);
        EXPECT_EQ(p.ui.txtAcuerdo->text(), u"04"_s) << "the first by its name: with Chile";
        poner(p.ui.txtCorte, u"106"_s);
        p.ui.GrdLineas->setFocus();
        tecla(Qt::Key_Return);
        tecla(Qt::Key_F6);
        EXPECT_EQ(p.ui.lbCategoriaLinea->text(), u"CAPON"_s);
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(guardado(u"onccaacuerdo,onccacortes,factura8"_s), antes);
    EXPECT_EQ(lineas(), "|\n|\n|102\n|103\nVA|\n|102");
    EXPECT_TRUE(registro.mensajes.empty()) << "nothing is asked";
}

TEST_P(PantallaDeONCCA, ClosingTheWindowKeepsNothing) {
    mostrar([](frmONCCA &p) {
        poner(p.ui.txtAcuerdo, u"01"_s);
        p.ventana->close();
    });
    EXPECT_EQ(guardado(u"onccaacuerdo"_s), "06");
}

TEST_P(PantallaDeONCCA, WithoutTheMarkTheBoxIsClearAndTheButtonsAndTheirKeyAreOff) {
    for (const char *marca : {"null", "'N'", "'X'", "''"}) {
        ejecutar(u"update caratula set onccahabilitado = %1 where interno = 'EC-2026-0006'"_s.arg(L(marca)));
        registro = {};
        mostrar([this](frmONCCA &p) {
            EXPECT_FALSE(p.ui.chONCCA->isChecked());
            const auto botones = p.ventana->findChildren<QPushButton *>();
            for (const QPushButton *boton : botones)
                EXPECT_FALSE(boton->isEnabled()) << boton->objectName().toStdString();
            EXPECT_FALSE(p.ui.lbTeclas->text().contains("F6"_L1));
            registro.indices.assign(20, 0);
            for (const oncca::CampoConLista &dato : oncca::CamposConLista()) {
                const QString antes = campoDe(p, dato)->text();
                teclaEn(campoDe(p, dato), Qt::Key_F6);
                EXPECT_EQ(campoDe(p, dato)->text(), antes) << dato.control;
            }
            for (QLineEdit *campo : {p.ui.txtCategoriaLinea, p.ui.txtCorteLinea}) teclaEn(campo, Qt::Key_F6);
            EXPECT_TRUE(registro.elecciones.empty()) << "no list was opened";
            // The box gives them back, by its key.
            atajo(Qt::Key_H);
            EXPECT_TRUE(p.ui.chONCCA->isChecked());
            for (const QPushButton *boton : botones)
                EXPECT_TRUE(boton->isEnabled()) << boton->objectName().toStdString();
            EXPECT_TRUE(p.ui.lbTeclas->text().contains("F6"_L1));
            teclaEn(p.ui.txtCorte, Qt::Key_F6);
            EXPECT_EQ(registro.elecciones.size(), 1U);
            tecla(Qt::Key_Escape);
        });
        EXPECT_NE(guardado(u"onccahabilitado"_s), "S") << "it was not saved";
    }
}

TEST_P(PantallaDeONCCA, TheMarkIsSavedInBothSenses) {
    mostrar([](frmONCCA &p) {
        EXPECT_EQ(QApplication::focusWidget(), p.ui.chONCCA);
        tecla(Qt::Key_Space);
        tecla(Qt::Key_F11);
        EXPECT_EQ(p.ui.lbEstado->text(), u"Datos de ONCCA grabados"_s);
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(guardado(u"onccahabilitado,onccaacuerdo"_s), "N|06") << "the codes stay";
    mostrar([](frmONCCA &p) {
        EXPECT_FALSE(p.ui.chONCCA->isChecked());
        tecla(Qt::Key_Space);
        tecla(Qt::Key_F11);
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(guardado(u"onccahabilitado"_s), "S");
}

TEST_P(PantallaDeONCCA, EnterGoesThroughTheFieldsAndACodeThatIsNotKeptIsTold) {
    mostrar([this](frmONCCA &p) {
        tecla(Qt::Key_Return);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.txtAcuerdo);
        escribir(u"77"_s);
        tecla(Qt::Key_Return);
        ASSERT_EQ(registro.mensajes.size(), 1U);
        EXPECT_TRUE(registro.mensajes[0].texto.startsWith("CODIGO INEXISTENTE DE ONCCA_ACUERDO"_L1));
        EXPECT_EQ(registro.mensajes[0].titulo, u"Buscar ONCCA_ACUERDO"_s);
        EXPECT_EQ(p.ui.txtAcuerdo->text(), u"77"_s);
        EXPECT_EQ(p.ui.lbAcuerdo->text(), QString());
        EXPECT_EQ(QApplication::focusWidget(), p.ui.txtCategoria);
        for (QWidget *siguiente : std::initializer_list<QWidget *>{
                 p.ui.txtCorte, p.ui.txtElaborador, p.ui.txtEspecie, p.ui.txtFaneador, p.ui.txtEOC,
                 p.ui.txtRes3106, p.ui.txtSisProd, p.ui.txtMatadero, p.ui.GrdLineas, p.ui.txtCategoriaLinea,
                 p.ui.txtCorteLinea, p.ui.GrdLineas}) {
            tecla(Qt::Key_Return);
            EXPECT_EQ(QApplication::focusWidget(), siguiente) << siguiente->objectName().toStdString();
        }
        EXPECT_EQ(p.ui.GrdLineas->currentRow(), 1) << "the next line";
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(registro.mensajes.size(), 1U);
}

TEST_P(PantallaDeONCCA, ALineTakesItsOwnCategoryAndCut) {
    mostrar([this](frmONCCA &p) {
        QTableWidget *grilla = p.ui.GrdLineas;
        ASSERT_EQ(grilla->rowCount(), 6);
        EXPECT_EQ(textosDe(grilla, 0).join(u' '), u"0001 0002 0003 0004 0005 0006"_s);
        EXPECT_EQ(textosDe(grilla, 1).join(u' '), u"AGUJA AGUJA HUACHAL TAPA-AG AGUJA-V HUACHAL"_s);
        EXPECT_EQ(textosDe(grilla, 4).join(u','), u",,,,VA VACA,"_s);
        EXPECT_EQ(textosDe(grilla, 5).join(u','), u",,102 HUACHALOMO,103 TAPA DE AGUJA,,102 HUACHALOMO"_s);
        grilla->setFocus();
        tecla(Qt::Key_Down);
        EXPECT_EQ(grilla->currentRow(), 1);
        tecla(Qt::Key_Return);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.txtCategoriaLinea);
        escribir(u"nt"_s);
        tecla(Qt::Key_Return);
        EXPECT_EQ(enMano(grilla, 4), u"NT NOVILLITO"_s);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.txtCorteLinea);
        escribir(u"123"_s);
        tecla(Qt::Key_Return);
        EXPECT_EQ(QApplication::focusWidget(), grilla);
        EXPECT_EQ(grilla->currentRow(), 2);
        EXPECT_EQ(grilla->item(1, 5)->text(), u"123 ROSBIF"_s);
        EXPECT_EQ(p.ui.txtCorteLinea->text(), u"102"_s) << "the line in hand";
        EXPECT_EQ(p.ui.lbCorteLinea->text(), u"HUACHALOMO"_s);
        // From the list, and still in the field when it is saved.
        registro.indices = {0};
        teclaEn(p.ui.txtCategoriaLinea, Qt::Key_F6);
        EXPECT_EQ(enMano(grilla, 4), u"CP CAPON"_s);
        poner(p.ui.txtCorteLinea, u"106"_s);
        tecla(Qt::Key_F11);
        EXPECT_EQ(enMano(grilla, 5), u"106 LOMO"_s);
        // An emptied one takes the header's again.
        grilla->setCurrentCell(4, 0);
        poner(p.ui.txtCategoriaLinea, {});
        tecla(Qt::Key_Return);
        EXPECT_EQ(enMano(grilla, 4), QString());
        tecla(Qt::Key_F11);
        EXPECT_EQ(p.ui.lbEstado->text(), u"Datos de ONCCA grabados"_s);
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(lineas(), "|\nNT|123\nCP|106\n|103\n|\n|102");
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(PantallaDeONCCA, ACutOfALineThatIsNotKeptIsTold) {
    mostrar([this](frmONCCA &p) {
        poner(p.ui.txtCorteLinea, u"999"_s);
        tecla(Qt::Key_Return);
        ASSERT_EQ(registro.mensajes.size(), 1U);
        EXPECT_EQ(registro.mensajes[0].titulo, u"Buscar ONCCA_CORTES"_s);
        EXPECT_EQ(p.ui.GrdLineas->item(0, 5)->text(), u"999"_s);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.GrdLineas);
        tecla(Qt::Key_Escape);
    });
}

TEST_P(PantallaDeONCCA, AnOperationWithoutLinesHasOnlyItsHeader) {
    ejecutar(u"delete from subitems where interno = 'EC-2026-0006'"_s);
    mostrar([](frmONCCA &p) {
        EXPECT_EQ(p.ui.GrdLineas->rowCount(), 0);
        EXPECT_FALSE(p.ui.txtCategoriaLinea->isEnabled());
        EXPECT_FALSE(p.ui.txtCorteLinea->isEnabled());
        p.ui.GrdLineas->setFocus();
        tecla(Qt::Key_Return);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.GrdLineas);
        poner(p.ui.txtCorte, u"106"_s);
        tecla(Qt::Key_F11);
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(guardado(u"onccacortes"_s), "106");
}

TEST_P(PantallaDeONCCA, AStoreThatRefusesTheSaveIsToldAndTheScreenStays) {
    mostrar([this](frmONCCA &p) {
        const bool servidor = QLatin1String(GetParam()) == "SQL"_L1;
        ejecutar("drop table caratula"_L1 + (servidor ? " cascade"_L1 : ""_L1));
        poner(p.ui.txtCorte, u"106"_s);
        tecla(Qt::Key_F11);
        ASSERT_EQ(registro.mensajes.size(), 1U);
        EXPECT_EQ(registro.mensajes[0].icono, Icono::Critico);
        EXPECT_EQ(p.ui.lbEstado->text(), QString());
        EXPECT_TRUE(p.ventana->isVisible());
        EXPECT_EQ(p.ui.txtCorte->text(), u"106"_s) << "nothing that was typed is lost";
        tecla(Qt::Key_Escape);
    });
}

// The dashboard and the road to the items

TEST_P(PantallaDeONCCA, TheDashboardOpensThemForExportsAlone) {
    EXPECT_FALSE(abrir(importacion).ui.cmdONCCA->isEnabled());
    CerrarPantalla<FrmDetalleInterno>();
    EXPECT_TRUE(abrir(exportacion).ui.cmdONCCA->isEnabled());
    CerrarPantalla<FrmDetalleInterno>();
    // Data that stand in another regime can be looked at and taken away.
    ejecutar(u"update caratula set onccahabilitado = 'S' where interno = 'IC-2026-0001'"_s);
    EXPECT_TRUE(abrir(importacion).ui.cmdONCCA->isEnabled());
}

TEST_P(PantallaDeONCCA, TheKeyOfTheDashboardDoesNothingWhileItsButtonIsOff) {
    abrir(importacion);
    atajo(Qt::Key_R);
    EXPECT_FALSE(PantallaAbierta<frmONCCA>());
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(PantallaDeONCCA, FromTheHeaderThroughTheAssemblyToTheItemsByKeyboard) {
    FrmDetalleInterno &tablero = abrir(carnes);
    esperarVentana(tablero.ventana.get());
    EXPECT_EQ(tablero.ui.cmdONCCA->text().remove(u'&'), u"ONCCA, carnes"_s);
    conPantallaModal<frmONCCA>([](frmONCCA &p) {
        poner(p.ui.txtAcuerdo, u"05"_s);
        poner(p.ui.txtCategoria, u"NT"_s);
        poner(p.ui.txtMatadero, u"4622"_s);
        tecla(Qt::Key_F11);
        tecla(Qt::Key_Escape);
    });
    atajo(Qt::Key_R);
    EXPECT_FALSE(PantallaAbierta<frmONCCA>());
    esperarVentana(tablero.ventana.get());
    EXPECT_EQ(QApplication::focusWidget(), tablero.ui.cmdITEM) << "where it was";
    tablero.ui.opOrdenxNCM->setChecked(true);
    teclaEn(tablero.ui.cmdITEM, Qt::Key_Space);
    hasta([] { return !PantallaAbierta<FrmArmarItem>() && PantallaAbierta<FrmVerItem>(); });
    auto &items = Pantalla<FrmVerItem>();
    esperarVentana(items.ventana.get());
    items.ui.Scr->setValue(1);
    tecla(Qt::Key_F7);
    EXPECT_EQ(QApplication::focusWidget(), items.ui.txtAcuerdo);
    EXPECT_EQ(items.ui.txtAcuerdo->text(), u"05"_s);
    EXPECT_EQ(items.ui.lbAcuerdo->text(), u"ACUERDO CON ISRAEL - KOSHER"_s);
    EXPECT_EQ(items.ui.lbMatadero->text(), u"MATADERO MUNICIPAL DE PERGAMINO"_s);
    EXPECT_EQ(filas(u"select ncm,onccacategoria,onccacortes,onccaacuerdo from item "
                    "where interno = 'EC-2026-0006' and id > 0 order by ncm,onccacategoria"_s)
                  .toStdString(),
              "0202.30.00.111D|NT|101|05\n"
              "0202.30.00.111D|VA|101|05\n"
              "0202.30.00.112F|NT|102|05\n"
              "0202.30.00.113H|NT|103|05")
        << "a line's own codes stay, the others take the header's";
    tecla(Qt::Key_Escape);
    esperarVentana(tablero.ventana.get());
    EXPECT_EQ(tablero.ui.LbItem->text(), u"4"_s);

    // Changed again behind the assembly, the items are made again.
    conPantallaModal<frmONCCA>([](frmONCCA &p) {
        poner(p.ui.txtAcuerdo, u"06"_s);
        tecla(Qt::Key_F11);
        tecla(Qt::Key_Escape);
    });
    atajo(Qt::Key_R);
    esperarVentana(tablero.ventana.get());
    teclaEn(tablero.ui.cmdITEM, Qt::Key_Space);
    hasta([] { return !PantallaAbierta<FrmArmarItem>() && PantallaAbierta<FrmVerItem>(); });
    esperarVentana(Pantalla<FrmVerItem>().ventana.get());
    tecla(Qt::Key_Escape);
    EXPECT_EQ(valor(u"select distinct onccaacuerdo from item where interno = 'EC-2026-0006' and id > 0"_s)
                  .trimmed(),
              u"06"_s);
}

class CapturasDeONCCA : public PantallaDeONCCA {};
INSTANTIATE_TEST_SUITE_P(Stores, CapturasDeONCCA, ::testing::Values("ACCESS"),
                         [](const ::testing::TestParamInfo<const char *> &caso) {
                             return std::string(caso.param);
                         });

TEST_P(CapturasDeONCCA, TheDataOfMeatAndTheOrderOfTab) {
    mostrar([](frmONCCA &p) {
        p.ui.txtCorte->setFocus();
        foto(p.ventana.get(), u"oncca"_s);
        p.ui.chONCCA->setFocus();
        EXPECT_EQ(ordenDeTab(p.ventana.get()).join(u' ').toStdString(),
                  "chONCCA txtAcuerdo txtCategoria txtCorte txtElaborador txtEspecie txtFaneador txtEOC "
                  "txtRes3106 txtSisProd txtMatadero GrdLineas txtCategoriaLinea txtCorteLinea");
        p.ui.GrdLineas->setFocus();
        p.ui.GrdLineas->setCurrentCell(2, 0);
        foto(p.ventana.get(), u"oncca-subitem"_s);
        p.ui.chONCCA->setFocus();
        tecla(Qt::Key_Space);
        foto(p.ventana.get(), u"oncca-apagado"_s);
        tecla(Qt::Key_Escape);
    });
    foto(abrir(carnes).ventana.get(), u"operacion-carne"_s);
    CerrarPantalla<FrmDetalleInterno>();
    ctx->ChequeoArmado = u"SI"_s;
    ASSERT_TRUE(Generar(*ctx, carnes, {}));
    auto &items = Pantalla<FrmVerItem>();
    items.Mostrar(carnes);
    esperarVentana(items.ventana.get());
    items.ui.Scr->setValue(1);
    tecla(Qt::Key_F7);
    foto(items.ventana.get(), u"item-oncca-carne"_s);
    tecla(Qt::Key_Escape);
}

}  // namespace
