// The roads to the lists by keyboard: from the lines, the packages and the operations to the document that is
// shown.

#include <gtest/gtest.h>

#include <QApplication>
#include <QPushButton>
#include <QTest>

#include "desktop/salidasqt.h"
#include "frame/ui/Pantalla.h"
#include "header/FrmBultos.h"
#include "operations/FrmInternoNew.h"
#include "tests/screens/subitems_pantalla.h"
#include "tests/support/claves.h"

using namespace Qt::StringLiterals;

namespace {

template <class Base>
class ConListados : public Base {
 protected:
    void SetUp() override {
        Base::SetUp();
        this->ctx->salidas = SalidasQt();
        this->ctx->dialogos.vistaPrevia = [this](const papel::Documento &d) { vistos.push_back(d); };
    }
    /// The one document that was shown.
    papel::Documento visto() const {
        EXPECT_EQ(vistos.size(), 1U);
        return vistos.empty() ? papel::Documento{} : vistos.front();
    }
    QString mensaje() const {
        EXPECT_EQ(this->registro.mensajes.size(), 1U);
        return this->registro.mensajes.empty() ? QString() : this->registro.mensajes.back().texto;
    }
    std::vector<papel::Documento> vistos;
};

class ListadosDeLineas : public ConListados<EnLineas> {};
EN_AMBOS_STORES(ListadosDeLineas);

TEST_P(ListadosDeLineas, F12OffersThemAndShowsTheOnePickedWithTheLineInHandUntouched) {
    auto &pantalla = lineas(importacion);
    EXPECT_TRUE(pantalla.ui.lbTeclas->text().contains(u"F12  listas"_s));
    irA(pantalla.ui.TxtDescArticulos);
    escribir(u"Sin guardar"_s);
    registro.indices = {2};
    tecla(Qt::Key_F12);
    ASSERT_EQ(registro.elecciones.size(), 1U);
    EXPECT_EQ(registro.elecciones[0].titulo, u"Listados de la operación IC-2026-0001"_s);
    EXPECT_EQ(registro.elecciones[0].filas.size(), 4) << "no catalogue is in hand";
    const papel::Documento d = visto();
    EXPECT_EQ(d.reporte.titulo, u"Líneas por posición"_s);
    EXPECT_EQ(d.reporte.nombre, u"Posiciones IC-2026-0001"_s);
    ASSERT_TRUE(d.tabla.has_value());
    for (const papel::Renglon &r : d.reporte.renglones) EXPECT_FALSE(r.texto.contains(u"Sin guardar"_s));
    EXPECT_EQ(QApplication::focusWidget(), pantalla.ui.TxtDescArticulos);
    EXPECT_EQ(pantalla.ui.TxtDescArticulos->text(), u"Sin guardar"_s);
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(ListadosDeLineas, TheCatalogueOfTheLineInHandIsAmongThem) {
    auto &pantalla = lineas(importacion);
    irA(pantalla.ui.LstArticulos);
    tecla(Qt::Key_Return);
    ASSERT_EQ(pantalla.ui.TxtIdCatalogo->text(), u"HIDPLATA"_s);
    registro.indices = {4};
    tecla(Qt::Key_F12);
    EXPECT_EQ(registro.elecciones[0].filas.last(), u"Catálogo de artículos HIDPLATA"_s);
    EXPECT_EQ(visto().reporte.subtitulo, u"Catálogo HIDPLATA - 20 artículos"_s);
}

TEST_P(ListadosDeLineas, TheListAndTheButtonHearItToo) {
    auto &pantalla = lineas(importacion);
    irA(pantalla.ui.LstArticulos);
    registro.indices = {0};
    tecla(Qt::Key_F12);
    EXPECT_EQ(visto().reporte.titulo, u"Líneas de la operación"_s);
    EXPECT_EQ(QApplication::focusWidget(), pantalla.ui.LstArticulos);
    atajo(Qt::Key_O);
    EXPECT_EQ(registro.elecciones.size(), 2U);
    EXPECT_EQ(vistos.size(), 1U) << "the pick was left";
    EXPECT_TRUE(pantalla.ventana->isVisible());
}

TEST_P(ListadosDeLineas, WithoutLinesASentenceSaysSoAndTheFocusStays) {
    auto &pantalla = lineas();
    const QWidget *antes = QApplication::focusWidget();
    registro.indices = {1};
    tecla(Qt::Key_F12);
    EXPECT_EQ(mensaje(), u"La operación OP 1 no tiene líneas; cárguelas antes de pedir la lista."_s);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Informacion);
    EXPECT_TRUE(vistos.empty());
    EXPECT_EQ(QApplication::focusWidget(), antes);
    EXPECT_TRUE(pantalla.ventana->isVisible());
}

TEST_P(ListadosDeLineas, AProgramWithoutThemSaysSo) {
    ctx->salidas = {};
    lineas(importacion);
    tecla(Qt::Key_F12);
    EXPECT_EQ(mensaje(), u"Los listados no están en este programa."_s);
    EXPECT_TRUE(registro.elecciones.empty());
}

TEST_P(ListadosDeLineas, AFaultOfTheStoreIsToldAndTheScreenStays) {
    auto &pantalla = lineas(importacion);
    ejecutar("drop table subitems");
    registro.indices = {0};
    tecla(Qt::Key_F12);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Critico);
    EXPECT_TRUE(pantalla.ventana->isVisible());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

class ListadoDeBultos : public ConListados<EnPantalla> {
 protected:
    void mostrar(const std::function<void(FrmBultos &)> &hacer, const QString &interno = importacion) {
        conPantallaModal<FrmBultos>(hacer);
        Pantalla<FrmBultos>().Mostrar(interno);
        CerrarPantalla<FrmBultos>();
    }
    /// What the card tells of a label.
    QString dice(const QString &rotulo) const {
        for (const auto &[uno, texto] : visto().reporte.ficha)
            if (uno == rotulo) return texto;
        return u"<nada>"_s;
    }
};
EN_AMBOS_STORES(ListadoDeBultos);

TEST_P(ListadoDeBultos, F12ShowsThePackagesAsTheyAreKept) {
    // Its expiry has passed, which no look at it writes anew.
    ejecutar(u"update caratula set venemb = '30-12-20' where interno = 'IC-2026-0001'"_s);
    mostrar([this](FrmBultos &p) {
        EXPECT_TRUE(p.ui.lbTeclas->text().contains(u"F12  listado"_s));
        p.ui.TxtMarcaBul->setFocus();
        tecla(Qt::Key_F12);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtMarcaBul);
        EXPECT_TRUE(registro.mensajes.empty());
        p.ui.TxtVencimiento->clear();
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(visto().reporte.titulo, u"Bultos y transporte"_s);
    EXPECT_EQ(dice(u"Marcas"_s), u"HDP 1/14"_s);
    EXPECT_EQ(dice(u"Vencimiento de embarque"_s), u"30/12/2020"_s);
}

TEST_P(ListadoDeBultos, WhatWasKeyedIsSavedFirst) {
    mostrar([this](FrmBultos &p) {
        p.ui.TxtMarcaBul->setFocus();
        p.ui.TxtMarcaBul->selectAll();
        escribir(u"D'OR 7"_s);
        tecla(Qt::Key_F12);
        EXPECT_EQ(valor(u"select marcabul from caratula where interno = 'IC-2026-0001'"_s), u"D'OR 7"_s);
        tecla(Qt::Key_Escape);
    });
    EXPECT_EQ(dice(u"Marcas"_s), u"D'OR 7"_s);
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(ListadoDeBultos, WhatCannotBeSavedIsNotListed) {
    mostrar([this](FrmBultos &p) {
        p.ui.TxtVencimiento->setFocus();
        p.ui.TxtVencimiento->selectAll();
        escribir(u"1/1/2020"_s);
        p.ui.TxtNroBultos->setFocus();
        tecla(Qt::Key_F12);
        EXPECT_EQ(mensaje(), u"La fecha Vencimiento de Embarque debe ser superior a la del día."_s);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtVencimiento);
        p.ui.TxtVencimiento->clear();
        tecla(Qt::Key_Escape);
    });
    EXPECT_TRUE(vistos.empty());
}

TEST_P(ListadoDeBultos, AnOperationWithoutPackagesIsASentence) {
    ejecutar(u"update caratula set bulpes = null where interno = 'DJAI-2026-0004'"_s);
    mostrar(
        [this](FrmBultos &p) {
            tecla(Qt::Key_F12);
            EXPECT_EQ(mensaje(),
                      u"La operación DJAI-2026-0004 no tiene bultos ni transporte; cárguelos antes "
                      "de pedir la lista."_s);
            EXPECT_EQ(QApplication::focusWidget(), p.ui.chTransBultos);
            tecla(Qt::Key_Escape);
        },
        djai);
    EXPECT_TRUE(vistos.empty());
}

TEST_P(ListadoDeBultos, AProgramWithoutItSaysSo) {
    ctx->salidas = {};
    mostrar([this](FrmBultos &) {
        tecla(Qt::Key_F12);
        EXPECT_EQ(mensaje(), u"Los listados no están en este programa."_s);
        tecla(Qt::Key_Escape);
    });
}

class ListadoDeOperaciones : public ConListados<EnPantalla> {
 protected:
    FrmInternoNew &mostrar() {
        auto &navegador = Pantalla<FrmInternoNew>();
        navegador.Mostrar();
        esperarVentana(navegador.ventana.get());
        return navegador;
    }
    /// The rows shown: what stands in the first cell, or the label of a row that is no data.
    QStringList filasVistas() const {
        QStringList filas;
        for (const papel::Fila &f : visto().tabla.value_or(papel::Tabla{}).filas)
            filas << (f.tipo == papel::Fila::Tipo::Dato ? f.celdas[0].toString() : f.rotulo);
        return filas;
    }
};
EN_AMBOS_STORES(ListadoDeOperaciones);

TEST_P(ListadoDeOperaciones, F12ListsWhatTheGridShowsAndTellsItsFilters) {
    auto &navegador = mostrar();
    EXPECT_TRUE(navegador.ui.lbTeclas->text().contains(u"F12  listar"_s));
    escribir(u"IC"_s);
    tecla(Qt::Key_Return);
    // Keyed and not yet searched: no filter of what is shown.
    teclaEn(navegador.ui.txtCliente, Qt::Key_9);
    tecla(Qt::Key_F12);
    EXPECT_EQ(filasVistas(), (QStringList{importacion, u"ICR-2026-0005"_s, u"Total: 2 operaciones"_s}));
    EXPECT_EQ(visto().reporte.subtitulo, u"Interno IC… - 2 operaciones"_s);
    EXPECT_EQ(QApplication::focusWidget(), navegador.ui.txtCliente);
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(ListadoDeOperaciones, ItIsGroupedAsTheGridIs) {
    auto &navegador = mostrar();
    tecla(Qt::Key_Return);
    navegador.ui.cboAgruparPor->setFocus();
    tecla(Qt::Key_Down);
    navegador.ui.lstInterno->setFocus();
    tecla(Qt::Key_F12);
    EXPECT_EQ(filasVistas(),
              (QStringList{u"Exportacion"_s, exportacion, carnes, u"EC-2026-0008"_s, u"3 operaciones"_s,
                           u"Importacion"_s, djai, importacion, u"ICR-2026-0005"_s, temporal,
                           u"IT-2026-0007"_s, u"5 operaciones"_s, u"Total: 8 operaciones"_s}));
    EXPECT_EQ(visto().reporte.subtitulo, u"Sin filtros - Por Importacion / Exportacion - 8 operaciones"_s);
    EXPECT_EQ(QApplication::focusWidget(), navegador.ui.lstInterno);
}

TEST_P(ListadoDeOperaciones, TheToolbarAndThePopupHaveIt) {
    auto &navegador = mostrar();
    tecla(Qt::Key_Return);
    EXPECT_EQ(navegador.ui.TbMenu->actions().indexOf(navegador.botonListar), 3);
    EXPECT_EQ(navegador.botonListar->toolTip(), u"Ver en papel las operaciones de la grilla (F12)"_s);
    EXPECT_TRUE(navegador.popup->actions().contains(navegador.MnuListar));
    QTest::mouseClick(navegador.ui.TbMenu->widgetForAction(navegador.botonListar), Qt::LeftButton);
    navegador.popup->popup(navegador.ventana->pos());
    QTest::keyClick(navegador.popup.get(), Qt::Key_L);
    EXPECT_EQ(vistos.size(), 2U);
}

TEST_P(ListadoDeOperaciones, AnEmptyGridIsASentence) {
    auto &navegador = mostrar();
    tecla(Qt::Key_F12);
    EXPECT_EQ(mensaje(), u"No hay operaciones para listar; búsquelas con otros filtros o cree la primera."_s);
    EXPECT_TRUE(vistos.empty());
    EXPECT_EQ(QApplication::focusWidget(), navegador.ui.txtInterno);
}

}  // namespace
