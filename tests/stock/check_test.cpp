// The whole stock counted again: every fault it can have, told and mended.

#include "stock/check.h"
#include "tests/stock/existencias.h"

using namespace Qt::StringLiterals;
using namespace stock;

namespace {

class Revision : public Existencias {
 protected:
    void SetUp() override {
        Existencias::SetUp();
        s = entrar();
        l = linea();
        ASSERT_TRUE(tomar(l, {{s, 10}}).ok);
        movimiento = valor(u"select id from stockmov"_s).toLongLong();
    }
    /// The one finding, mended or not as it says, and nothing behind it.
    void soloHalla(Hallazgo::Clase clase, const QString &texto, bool reparable = true) {
        const std::vector<Hallazgo> hallazgos = Revisar(*ctx);
        ASSERT_EQ(hallazgos.size(), 1U);
        EXPECT_EQ(hallazgos[0].clase, clase);
        EXPECT_EQ(hallazgos[0].texto, texto);
        EXPECT_EQ(hallazgos[0].reparable, reparable);
        EXPECT_EQ(Reparar(*ctx, hallazgos), reparable ? 1 : 0);
        EXPECT_EQ(Revisar(*ctx).size(), reparable ? 0U : 1U);
        if (reparable) {
            EXPECT_EQ(desacuerdos(), QString());
        }
    }
    qint64 s = 0;
    qint64 l = 0;
    qint64 movimiento = 0;
};
EN_AMBOS_STORES(Revision);

TEST_P(Revision, AStockThatAgreesHasNothingToTell) {
    EXPECT_TRUE(Revisar(*ctx).empty());
    DevolverTodo(*ctx, exportacion);
    EXPECT_TRUE(Revisar(*ctx).empty());
}

TEST_P(Revision, ABalanceThatIsNotWhatTheMovementsSayIsCountedAnew) {
    ejecutar(u"update stock set saldo = 95"_s);
    soloHalla(Hallazgo::Clase::Saldo,
              u"Declaración 26001IT01000001A, item 1, subitem 1: el saldo es 95.00 y la cuenta da 90.00."_s);
    EXPECT_EQ(saldo(s), u"90"_s);
}

TEST_P(Revision, AnOverdrawnLineIsToldForAPersonToMend) {
    ejecutar(u"update stock set cantidad = 4,saldo = 0"_s);
    soloHalla(Hallazgo::Clase::Sobregirada,
              u"Declaración 26001IT01000001A, item 1, subitem 1: se tomaron 06.00 (unidad 01) más que lo que "
              "entró; devuelva alguna toma."_s,
              false);
}

TEST_P(Revision, ATakingOfALineThatIsGoneIsGivenBack) {
    ejecutar(u"delete from subitems"_s);
    soloHalla(Hallazgo::Clase::MovimientoSinDueno,
              u"Sigue la toma %1 de la operación EX 1, línea %2, que ya no existe."_s.arg(movimiento).arg(l));
    EXPECT_EQ(saldo(s), u"100"_s);
}

TEST_P(Revision, ATakingOfAStockLineThatIsGoneIsGivenBack) {
    ejecutar(u"delete from stock"_s);
    soloHalla(Hallazgo::Clase::MovimientoSinStock,
              u"Sigue la toma %1 de la operación EX 1, línea %2, y su línea de stock ya no existe."_s
                  .arg(movimiento)
                  .arg(l));
    EXPECT_EQ(marca(l), u"|0"_s);
}

TEST_P(Revision, ATakingWithoutItsDischargeGetsItAgain) {
    ejecutar(u"delete from descargas"_s);
    soloHalla(
        Hallazgo::Clase::SinDescarga,
        u"Tiene 0 descargas la toma %1 de la operación EX 1, línea %2 y debe tener una."_s.arg(movimiento)
            .arg(l));
    EXPECT_EQ(filas(u"select dit,item,subitem,cantidad,idexportacion from descargas"_s),
              u"26001IT01000001A|1|1|10|%1"_s.arg(movimiento));
}

TEST_P(Revision, ATakingWithTwoDischargesKeepsOne) {
    ejecutar(u"insert into descargas (interno,dit,idexportacion) values ('EX 1','X',%1)"_s.arg(movimiento));
    soloHalla(
        Hallazgo::Clase::SinDescarga,
        u"Tiene 2 descargas la toma %1 de la operación EX 1, línea %2 y debe tener una."_s.arg(movimiento)
            .arg(l));
    EXPECT_EQ(filas(u"select dit from descargas"_s), u"26001IT01000001A"_s);
}

TEST_P(Revision, ADischargeOfATakingThatWasGivenBackGoesAndOneOfElsewhereStays) {
    DevolverTodo(*ctx, exportacion);
    ejecutar(
        u"insert into descargas (interno,dit,idexportacion) values ('EX 1','SUELTA',%1)"_s.arg(movimiento));
    ejecutar(u"insert into descargas (interno,dit,idexportacion) values ('EX 1','AJENA',987654)"_s);
    soloHalla(Hallazgo::Clase::DescargaSuelta,
              u"La operación EX 1 descarga la toma %1, que se devolvió."_s.arg(movimiento));
    EXPECT_EQ(filas(u"select dit from descargas"_s), u"AJENA"_s);
}

TEST_P(Revision, AMarkIsTakenAwayOnlyWhereThisStockOnceGaveIt) {
    DevolverTodo(*ctx, exportacion);
    ejecutar(u"update subitems set cancelaciones = 'OK',insumostemp = 5"_s);
    soloHalla(Hallazgo::Clase::MarcaSinToma,
              u"La línea %1 de la operación EX 1 lleva la marca OK y no tomó del stock."_s.arg(l));
    EXPECT_EQ(marca(l), u"|0"_s);
    const qint64 vieja = linea({{u"cancelaciones"_s, u"'OK'"_s}, {u"insumostemp"_s, u"8"_s}});
    soloHalla(Hallazgo::Clase::MarcaSinToma,
              u"La línea %1 de la operación EX 1 lleva la marca OK y no tomó del stock."_s.arg(vieja), false);
    EXPECT_EQ(marca(vieja), u"OK|8"_s);
}

TEST_P(Revision, ALineThatTookGetsItsMarkAgain) {
    ejecutar(u"update subitems set cancelaciones = '',insumostemp = 0"_s);
    soloHalla(Hallazgo::Clase::TomaSinMarca,
              u"La línea %1 de la operación EX 1 tomó del stock y no lleva la marca OK."_s.arg(l));
    EXPECT_EQ(marca(l), u"OK|100"_s);
}

}  // namespace
