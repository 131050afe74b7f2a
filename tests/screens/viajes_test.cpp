// What a screen may ask of a server that is far away: round trips, not milliseconds.

#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>

#include "frame/ui/Pantalla.h"
#include "header/FrmListado.h"
#include "liquidation/FrmVerItem.h"
#include "operations/FrmInternoNew.h"
#include "tests/screens/lejos_pantalla.h"

using namespace Qt::StringLiterals;

namespace {

class ViajesDePantallas : public EnLejos {
 protected:
    static void buscar() {
        auto &buscador = Pantalla<FrmInternoNew>();
        buscador.Mostrar();
        esperarVentana(buscador.ventana.get());
        tecla(Qt::Key_Return);
    }
    FrmVerItem &enElPrimerItem() {
        for (const int id : {1, 2, 3})
            ejecutar(
                u"insert into item (interno,id,ncm,idpais,idproc,idunidad,estadistica,estadomerc,fobtotal,"
                "itflete,itseguro,lista,tipoitem) "
                "values ('IC-2026-0001',%1,'8413.70.10.100L','438','438','07','07','2',100,10,1,'','N')"_s
                    .arg(id));
        auto &items = Pantalla<FrmVerItem>();
        items.Mostrar(u"IC-2026-0001"_s);
        esperarVentana(items.ventana.get());
        tecla(Qt::Key_F1);
        tecla(Qt::Key_PageDown);
        return items;
    }
};

TEST_P(ViajesDePantallas, TheBrowserPaysForItsRowsItsCodesAndItsHandOversHoweverManyThereAre) {
    ejecutar(
        u"insert into caratula (interno,idsubreg,idaduana) "
        "with recursive n(i) as (select 1 union all select i + 1 from n where i < 60) "
        "select 'A-' || i,case i % 3 when 0 then 'IC04' when 1 then 'EC01' else 'IT14' end,"
        "case i % 4 when 0 then '001' when 1 then '073' when 2 then '033' else '003' end from n"_s);
    buscar();
    CerrarPantalla<FrmInternoNew>();
    EXPECT_EQ(viajes(buscar), 3);
    EXPECT_EQ(Pantalla<FrmInternoNew>().ui.lstInterno->model()->rowCount(), 50);
}

TEST_P(ViajesDePantallas, AListOfCodesIsOne) {
    conDialogosDeVerdad();
    QWidget formulario;
    auto *columna = new QVBoxLayout(&formulario);
    auto *campo = new QLineEdit;
    campo->setProperty("tag", u"LL-PUERTO#F6"_s);
    columna->addWidget(campo);
    VincularCodigo(campo, nullptr, {});
    formulario.show();
    esperarVentana(&formulario);
    campo->setFocus();
    const auto verLista = [&formulario] {
        conVentanaModal([](QWidget *modal) {
            esperarVentana(modal);
            EXPECT_GT(Pantalla<FrmListado>().ui.LstCod->model()->rowCount(), 0);
            tecla(Qt::Key_Escape);
        });
        tecla(Qt::Key_F6);
        esperarVentana(&formulario);
        QTest::qWait(10);
    };
    verLista();
    EXPECT_EQ(viajes(verLista), 1);
}

TEST_P(ViajesDePantallas, ALineSavedIsSix) {
    auto &pantalla = lineas();
    ctx->opciones.SbtMantDatos = true;
    teclearBomba(pantalla);
    tecla(Qt::Key_F11);
    // The position with its families, the options of those, the header's mark; the row written, the number
    // that it got with the new total, and the row as the list shows it.
    EXPECT_EQ(viajes([] { tecla(Qt::Key_F11); }), 6);
    EXPECT_EQ(cuantas(), 2) << ultimoMensaje();
}

TEST_P(ViajesDePantallas, AnItemPagedIsFiveAndSavedTwoMore) {
    auto &items = enElPrimerItem();
    const QString desde = items.ui.TxtItem->text();
    // All that hangs on the item's number; its position; the minimum duty of that; units and countries.
    EXPECT_EQ(viajes([] { tecla(Qt::Key_PageDown); }), 5);
    EXPECT_NE(items.ui.TxtItem->text(), desde);
    EXPECT_EQ(viajes([] { tecla(Qt::Key_F11); }), 7);
    EXPECT_TRUE(items.ui.lbEstado->text().endsWith(u"grabado"_s));
}

EN_UN_SERVIDOR(ViajesDePantallas);

}  // namespace
