// The items of an operation of two thousand: from one to the next, and saved.

#include "bench/waits/tiempos.h"
#include "frame/ui/Pantalla.h"
#include "liquidation/FrmVerItem.h"
#include "tests/support/pantallas.h"

using namespace Qt::StringLiterals;

namespace {

class DosMilItems : public EnPantalla {
 protected:
    void SetUp() override {
        EnPantalla::SetUp();
        const QString numeros =
            u"with recursive n(i) as (select %1 union all select i + 1 from n where i < 2000) "_s;
        const QString desdeUno = numeros.arg(1);
        ejecutar(u"delete from item where interno = 'IC-2026-0001'"_s);
        ejecutar(u"delete from groupsubitems where interno = 'IC-2026-0001'"_s);
        ejecutar(u"insert into item (interno,id,ncm,idpais,fobtotal,itflete,itseguro,lista,tipoitem) "_s +
                 numeros.arg(0) +
                 u"select 'IC-2026-0001',i,'8413.70.10.100L','438',100,10,1,'','N' from n"_s);
        ejecutar(u"insert into groupsubitems (interno,id,idsub,idarticulo,ncm,fob,cantidad) "_s + desdeUno +
                 u"select 'IC-2026-0001',i,i,'NP-0750','8413.70.10.100L',100,1 from n"_s);
        ejecutar(
            u"insert into itemliq (interno,iditem,idconceptos,conceptos,baseimp,porcentaje,total,pgc) "_s +
            desdeUno + u"select 'IC-2026-0001',i,'010','DERECHOS',111,14,15.54,'P' from n"_s);
    }
    FrmVerItem &mostrarSinCorrida() {
        auto &items = Pantalla<FrmVerItem>();
        items.Mostrar(u"IC-2026-0001"_s);
        esperarVentana(items.ventana.get());
        tecla(Qt::Key_F1);
        return items;
    }
    double limite() const { return QLatin1String(GetParam()) == "SQL"_L1 ? 100 : 50; }
};

TEST_P(DosMilItems, FromOneToTheNext) {
    auto &items = mostrarSinCorrida();
    ASSERT_EQ(items.ui.Scr->maximum(), 2000);
    const double ms = MejorTiempo([] { tecla(Qt::Key_PageDown); });
    Informar("from an item to the next, of 2,000", GetParam(), limite(), ms);
    tecla(Qt::Key_F4);
    const double enLiquidacion = MejorTiempo([] { tecla(Qt::Key_PageDown); });
    Informar("the same on the page of the liquidation", GetParam(), limite(), enLiquidacion);
}

TEST_P(DosMilItems, F11OnOne) {
    auto &items = mostrarSinCorrida();
    tecla(Qt::Key_PageDown);
    const double ms = MejorTiempo([] { tecla(Qt::Key_F11); });
    EXPECT_EQ(items.ui.lbEstado->text(), u"Item 1 grabado"_s);
    Informar("an item of 2,000 saved", GetParam(), limite(), ms);
}

EN_AMBOS_STORES(DosMilItems);

}  // namespace
