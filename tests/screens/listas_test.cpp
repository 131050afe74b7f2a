// The tariff lists for an item's countries, on the general list.

#include <gtest/gtest.h>

#include <QScreen>

#include "frame/ui/Pantalla.h"
#include "header/ClListadoEx.h"
#include "header/FrmListadoeX.h"
#include "tests/support/pantallas.h"

using namespace Qt::StringLiterals;

namespace {

class ListasDePaises : public EnPantalla {
 protected:
    QString ejecutarLista(int tipo, const QString &origen, const QString &procedencia,
                          const QString &antes = {}) {
        QString resultado = antes;
        ClListadoEx lista;
        lista.TipoLista = tipo;
        lista.EjecutarLista(resultado, origen, procedencia);
        return resultado;
    }
};
EN_AMBOS_STORES(ListasDePaises);

TEST_P(ListasDePaises, WithOneCountryGivenTheListOpensAndHoldsAllEntries) {
    conPantallaModal<FrmListadoeX>([this](FrmListadoeX &lista) {
        EXPECT_EQ(lista.ventana->windowTitle(), u"LISTAS"_s);
        EXPECT_EQ(QString::number(lista.ui.Lst->rowCount()),
                  valor(u"select count(*) from lista"_s, u"SYSTABLAS"_s));
        escribir(u"mer"_s);
        tecla(Qt::Key_Return);
    });
    EXPECT_EQ(ejecutarLista(6, u"203"_s, {}), u"MERCOSUR"_s);
    EXPECT_FALSE(PantallaAbierta<FrmListadoeX>());
}

TEST_P(ListasDePaises, EscapeLeavesTheResultAlone) {
    conPantallaModal<FrmListadoeX>([](FrmListadoeX &) { tecla(Qt::Key_Escape); });
    EXPECT_EQ(ejecutarLista(6, {}, u"203"_s), QString());
    conPantallaModal<FrmListadoeX>([](FrmListadoeX &) { tecla(Qt::Key_Escape); });
    EXPECT_EQ(ejecutarLista(6, {}, u"203"_s, u"306"_s), u"306"_s);
}

TEST_P(ListasDePaises, AnotherKindShowsNothingAndEmptiesNothing) {
    EXPECT_EQ(ClListadoEx().TipoLista, 0);
    for (const int tipo : {0, 5, 7}) EXPECT_EQ(ejecutarLista(tipo, u"203"_s, u"203"_s, u"306"_s), u"306"_s);
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(ListasDePaises, WithoutCountriesOrWithoutListsItIsTold) {
    EXPECT_EQ(ejecutarLista(6, {}, {}), QString());
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto, u"No hay Países ingresados."_s);
    ejecutar(u"delete from lista"_s, u"SYSTABLAS"_s);
    EXPECT_EQ(ejecutarLista(6, u"203"_s, u"203"_s), QString());
    ASSERT_EQ(registro.mensajes.size(), 2U);
    EXPECT_EQ(registro.mensajes[1].texto, u"No hay LISTA para mostrar con los Países ingresados"_s);
}

TEST_P(ListasDePaises, ItStandsAtItsPlaceFromTheFrameAndNeverOffTheScreen) {
    QWidget marco;
    marco.setGeometry(20, 10, 200, 100);
    pantallas::fijarMarco(&marco);
    marco.show();
    const QRect pantalla = marco.screen()->availableGeometry();
    conPantallaModal<FrmListadoeX>([](FrmListadoeX &lista) {
        const QRect lugar = lista.ventana->frameGeometry();
        // 2,000 twips are 133 pixels.
        EXPECT_EQ(lugar.topLeft(), QPoint(20 + 133, 10 + 133));
        tecla(Qt::Key_Escape);
    });
    ejecutarLista(6, u"203"_s, {});
    marco.move(pantalla.bottomRight());
    conPantallaModal<FrmListadoeX>([&pantalla](FrmListadoeX &lista) {
        const QRect lugar = lista.ventana->frameGeometry();
        EXPECT_TRUE(pantalla.contains(lugar)) << lugar.x() << ' ' << lugar.y();
        tecla(Qt::Key_Escape);
    });
    ejecutarLista(6, u"203"_s, {});
    // The frame outlives the screens over it.
    hasta([&marco] { return marco.findChildren<QDialog *>().isEmpty(); });
    pantallas::fijarMarco(nullptr);
}

}  // namespace
