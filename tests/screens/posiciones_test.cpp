// Positions by their beginning, by keyboard.

#include <gtest/gtest.h>

#include <QApplication>

#include "frame/entities.h"
#include "frame/ui/Pantalla.h"
#include "subitems/FrmPosicion.h"
#include "tests/support/claves.h"
#include "tests/support/pantallas.h"
#include "tests/support/traza.h"

using namespace Qt::StringLiterals;

namespace {

using entidad::ncm;

std::string textoDe(const QListWidget *lista) {
    QStringList lineas;
    for (int fila = 0; fila < lista->count(); ++fila) lineas << lista->item(fila)->text();
    return lineas.join(u' ').toStdString();
}

class Posiciones : public EnPantalla {
 protected:
    /// Opens the search and does `hacer` in it; what it answered.
    static std::string elegir(const std::function<void(FrmPosicion &)> &hacer, const QString &buscado = {}) {
        bool vista = false;
        conVentanaModal([&](QWidget *modal) {
            vista = true;
            auto &pantalla = Pantalla<FrmPosicion>();
            ASSERT_EQ(modal, pantalla.ventana.get());
            esperarVentana(modal);
            hacer(pantalla);
            if (modal->isVisible()) tecla(Qt::Key_Escape);
        });
        const QString elegida = ElegirPosicion(buscado);
        EXPECT_TRUE(vista);
        return elegida.toStdString();
    }
    static void buscar(const char *texto) {
        escribir(QString::fromUtf8(texto));
        tecla(Qt::Key_Return);
    }
};

TEST_P(Posiciones, ADotOfTheTextStandsForAnythingInTheMiddle) {
    ejecutar(u"insert into ncm ([001],[002],[003]) values ('8471.60.09','000','Z')"_s, ncm);
    elegir([](FrmPosicion &p) {
        const Traza traza;
        buscar("84.09");
        EXPECT_TRUE(traza.sentencias().value(0).contains("where [001] like '84%09%'"_L1)) << traza.texto();
        EXPECT_EQ(textoDe(p.ui.LstNCM),
                  "8409.91.12.100G 8409.91.12.900A 8409.91.20.000W 8409.99.12.100C 8409.99.69.000Z "
                  "8471.60.09.000Z");
    });
}

TEST_P(Posiciones, WhatIsFoundIsListedWithTheFirstRowInHand) {
    elegir([](FrmPosicion &p) {
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtNcm);
        buscar("8409.91");
        EXPECT_EQ(QApplication::focusWidget(), p.ui.LstNCM);
        EXPECT_EQ(p.ui.LstNCM->currentRow(), 0);
        EXPECT_EQ(p.ui.lbCantidad->text(), u"3 posiciones"_s);
        EXPECT_EQ(p.ui.LbDescripcion->text().count(u'\n'), 1) << "own description, then the first level";
        EXPECT_EQ(p.ui.LstSufijos->rowCount(), 5);
        EXPECT_EQ(p.ui.LstSufijos->item(0, 0)->text(), u"AA01"_s);
        EXPECT_FALSE(p.ui.LstSufijos->item(0, 1)->text().isEmpty());
    });
}

TEST_P(Posiciones, EveryArrowShowsTheRowItGoesTo) {
    const QString propia = valor(
        u"select [010] from ncm where [001] = '8409.91.12' and "
        "[002] = '900'"_s,
        ncm);
    elegir([&](FrmPosicion &p) {
        buscar("8409.91");
        const QString primera = p.ui.LbDescripcion->text();
        tecla(Qt::Key_Down);
        EXPECT_TRUE(p.ui.LbDescripcion->text().startsWith(propia))
            << p.ui.LbDescripcion->text().toStdString();
        EXPECT_EQ(p.ui.LstSufijos->rowCount(), 3) << "its own suffixes are gone";
        tecla(Qt::Key_Up);
        EXPECT_EQ(p.ui.LbDescripcion->text(), primera);
        tecla(Qt::Key_Right);
        EXPECT_TRUE(p.ui.LbDescripcion->text().startsWith(propia));
        tecla(Qt::Key_Left);
        EXPECT_EQ(p.ui.LbDescripcion->text(), primera);
        tecla(Qt::Key_Left);
        EXPECT_EQ(p.ui.LstNCM->currentRow(), 0) << "left stops at the first row";
        tecla(Qt::Key_End);
        tecla(Qt::Key_Right);
        EXPECT_EQ(p.ui.LstNCM->currentRow(), 2) << "right stops at the last row";
        tecla(Qt::Key_Home);
        EXPECT_EQ(p.ui.LbDescripcion->text(), primera);
    });
}

TEST_P(Posiciones, EnterChoosesThePositionWithItsUnitsAndFlags) {
    for (const auto &[columna, valor] :
         {std::pair("012", "07"), std::pair("020", "01"), std::pair("059", " * "), std::pair("052", "*"),
          std::pair("044", "*"), std::pair("019", "2.5")})
        ejecutar(fijarEnMotor(columna, valor), ncm);
    EXPECT_EQ(elegir([](FrmPosicion &p) {
                  buscar("8409.91");
                  EXPECT_EQ(p.ui.lbUnidades->text(),
                            u"Unidad estadística: 07   ·   Derecho específico: 01   ·   LAPI   ·   "
                            "Reintegro   ·   Seguridad eléctrica   ·   Prohibición"_s);
                  tecla(Qt::Key_Return);
                  EXPECT_FALSE(p.ventana->isVisible());
              }),
              motor.toStdString());
    EXPECT_EQ(ctx->posicion.posicion, motor);
    EXPECT_EQ(ctx->posicion.estadistica, u"07"_s);
    EXPECT_EQ(ctx->posicion.deresp, u"01"_s);
    EXPECT_TRUE(ctx->posicion.lapi && ctx->posicion.seguridad && ctx->posicion.prohibicion &&
                ctx->posicion.reintegro);
    for (const auto &[columna, valor] : {std::pair("020", ""), std::pair("059", ""), std::pair("052", ""),
                                         std::pair("044", ""), std::pair("019", "0")})
        ejecutar(fijarEnMotor(columna, valor), ncm);
    elegir([](FrmPosicion &p) {
        buscar("8409.91");
        EXPECT_EQ(p.ui.lbUnidades->text(), u"Unidad estadística: 07   ·   Derecho específico: No posee"_s);
        tecla(Qt::Key_Return);
    });
    EXPECT_FALSE(ctx->posicion.lapi || ctx->posicion.seguridad || ctx->posicion.prohibicion ||
                 ctx->posicion.reintegro);
}

TEST_P(Posiciones, EscapeLeavesTheChosenPositionEmpty) {
    ctx->posicion.posicion = motor;
    EXPECT_EQ(elegir([](FrmPosicion &p) {
                  buscar("8409.91");
                  tecla(Qt::Key_Down);
                  tecla(Qt::Key_Escape);
                  EXPECT_FALSE(p.ventana->isVisible());
              }),
              "");
    EXPECT_EQ(ctx->posicion.posicion, QString());
    elegir([](FrmPosicion &) { tecla(Qt::Key_Escape); });
    EXPECT_EQ(ctx->posicion.posicion, QString()) << "from the search box too";
    EXPECT_FALSE(PantallaAbierta<FrmPosicion>());
}

TEST_P(Posiciones, NothingFoundIsToldAndTheBoxKeepsTheKeyboard) {
    elegir([this](FrmPosicion &p) {
        buscar("8409");
        EXPECT_TRUE(registro.mensajes.empty());
        p.ui.TxtNcm->setFocus();
        buscar("zz");
        ASSERT_EQ(registro.mensajes.size(), 1U);
        EXPECT_EQ(registro.mensajes[0].texto, u"Posición no encontrada."_s);
        EXPECT_EQ(registro.mensajes[0].icono, Icono::Informacion);
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtNcm);
        EXPECT_EQ(p.ui.LstNCM->count(), 0);
        EXPECT_EQ(p.ui.LbDescripcion->text(), QString());
        EXPECT_EQ(p.ui.LstSufijos->rowCount(), 0);
    });
}

TEST_P(Posiciones, TheSearchFromOutsideHasItsOwnWordsForNothing) {
    elegir([](FrmPosicion &p) { EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtNcm); }, u"zz"_s);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto, u"Posición no Encontrada."_s);
    EXPECT_EQ(elegir(
                  [](FrmPosicion &p) {
                      EXPECT_EQ(QApplication::focusWidget(), p.ui.LstNCM);
                      tecla(Qt::Key_Return);
                  },
                  u"8409.99.12"_s),
              "8409.99.12.100C");
}

TEST_P(Posiciones, ABlankTextSearchesNothing) {
    elegir([this](FrmPosicion &p) {
        const Traza traza;
        tecla(Qt::Key_Return);
        buscar("   ");
        EXPECT_EQ(traza.texto(), "");
        EXPECT_TRUE(registro.mensajes.empty());
        EXPECT_EQ(QApplication::focusWidget(), p.ui.TxtNcm);
    });
}

EN_AMBOS_STORES(Posiciones);

}  // namespace
