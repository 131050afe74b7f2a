// A recalculation on a server that is far away: what it sends stays, what it waits for does not grow with it.

#include <gtest/gtest.h>

#include "liquidation/review.h"
#include "tests/support/intermediario.h"
#include "tests/support/tienda.h"
#include "tests/support/traza.h"

using namespace Qt::StringLiterals;

namespace {

class RecalculoALoLejos : public EnAmbosStores {
 protected:
    bool conDemostracion() const override { return true; }
    void AlHacerLaTienda() override { tienda->PasarPor(linea); }

    /// `cuantos` items with six concepts each.
    void conItems(int cuantos) {
        const QString hasta =
            u"with recursive n(i) as (select 1 union all select i + 1 from n where i < %1) "_s.arg(cuantos);
        ejecutar(u"delete from item where interno = 'IC-2026-0001'"_s);
        ejecutar(u"delete from itemliq where interno = 'IC-2026-0001'"_s);
        ejecutar(u"insert into item (interno,id,ncm,idpais,fobtotal,itflete,itseguro,lista,tipoitem) "_s +
                 hasta + u"select 'IC-2026-0001',i,'8413.70.10.100L','438',100,10,1,'','N' from n"_s);
        for (const auto *concepto : {u"010", u"011", u"415", u"422", u"424", u"900"})
            ejecutar(u"insert into itemliq (interno,iditem,idconceptos,conceptos,pgc) "_s + hasta +
                     u"select 'IC-2026-0001',i,'%1','x','P' from n"_s.arg(QString::fromUtf16(concepto)));
    }
    qint64 viajesDelRecalculo() {
        ClassLiquidacion calculo(*ctx, u"IC-2026-0001"_s);
        ctx->LiquidacionPendiente = true;
        linea.PonerEnCero();
        EXPECT_TRUE(RecalcularOperacion(*ctx, u"IC-2026-0001"_s, calculo).escrito);
        return linea.cuenta().viajes;
    }

    Intermediario linea;
};
INSTANTIATE_TEST_SUITE_P(Stores, RecalculoALoLejos, ::testing::Values("SQL"),
                         [](const auto &) { return "SQL"; });

TEST_P(RecalculoALoLejos, AThousandStatementsOfAHundredAndTwentyItemsAreTwentyRoundTrips) {
    conItems(120);
    viajesDelRecalculo();
    const Traza traza;
    // Reads: the header, the items, two stretches of sixty-four items on three connections, the concepts'
    // names. Writes: 720 rows, two hundred at a time. Light writing has its begin and its end.
    EXPECT_LE(viajesDelRecalculo(), 20);
    EXPECT_GT(traza.sentencias().size(), 1300);
}

TEST_P(RecalculoALoLejos, WhatFailsAmongTheRowsIsToldWithItsStatementAndWhatStoodAheadStaysDone) {
    conItems(3);
    ejecutar(u"alter table itemliq add constraint no_se_toca check (iditem <> 2 or total is null)"_s);
    ClassLiquidacion calculo(*ctx, u"IC-2026-0001"_s);
    ctx->LiquidacionPendiente = true;
    try {
        RecalcularOperacion(*ctx, u"IC-2026-0001"_s, calculo);
        ADD_FAILURE() << "nothing was told";
    } catch (const Falla &e) {
        EXPECT_TRUE(e.descripcion.contains(u"no_se_toca"_s)) << e.descripcion.toStdString();
        EXPECT_TRUE(e.sentencia.startsWith(u"update itemliq set"_s)) << e.sentencia.toStdString();
        EXPECT_TRUE(e.sentencia.contains(u"iditem = 2  and idconceptos = '010'"_s))
            << e.sentencia.toStdString();
    }
    EXPECT_TRUE(ctx->LiquidacionPendiente);
    EXPECT_EQ(valor(u"select count(*) as n from itemliq where iditem = 1 and total is not null"_s), u"6"_s);
    EXPECT_EQ(valor(u"select count(*) as n from itemliq where iditem > 1 and total is not null"_s), u"0"_s);
}

}  // namespace
