// The stock of the demonstration.

#include <gtest/gtest.h>

#include "assembly/run.h"
#include "stock/check.h"
#include "stock/link.h"
#include "stock/load.h"
#include "stock/report.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;
using namespace stock;

namespace {

class StockDeMuestra : public EnAmbosStores {
 protected:
    void SetUp() override {
        EnAmbosStores::SetUp();
        Enchufar(*ctx);
    }
    void TearDown() override {
        Desenchufar();
        EnAmbosStores::TearDown();
    }
    bool conDemostracion() const override { return true; }
    void armar(const QString &interno) {
        ctx->ChequeoArmado = u"SI"_s;
        ASSERT_TRUE(Generar(*ctx, interno, {}));
        ASSERT_EQ(ctx->ChequeoArmado, u"SI"_s) << interno.toStdString();
    }
};
EN_AMBOS_STORES(StockDeMuestra);

TEST_P(StockDeMuestra, ItAgreesWithItsMovements) {
    for (const Hallazgo &h : Revisar(*ctx)) ADD_FAILURE() << h.texto.toStdString();
}

TEST_P(StockDeMuestra, HalfOfADeclarationIsDischargedOneLineExpiredAndOneIsAboutTo) {
    const std::vector<Linea> lineas = Buscar(*ctx, {});
    ASSERT_EQ(lineas.size(), 5U);
    const QDate hoy = QDate::currentDate();
    EXPECT_EQ(PlazoDe(lineas[0].vencimiento, hoy), Plazo::Vencido);
    EXPECT_EQ(PlazoDe(lineas[1].vencimiento, hoy), Plazo::PorVencer);
    for (std::size_t i = 2; i < lineas.size(); ++i) {
        EXPECT_EQ(PlazoDe(lineas[i].vencimiento, hoy), Plazo::EnTermino);
        EXPECT_EQ(lineas[i].dit, u"26001IT01001187C"_s);
        EXPECT_EQ(lineas[i].saldo, lineas[i].cantidad / 2);
    }
}

// Its lines stand in the stock as the assembly makes its items: a second loading finds nothing to do.
TEST_P(StockDeMuestra, TheImportIsInTheStockAsItIsAssembled) {
    armar(u"IT-2026-0007"_s);
    const DatosDeDeclaracion datos = DatosPropuestos(*ctx, u"IT-2026-0007"_s, QDate::currentDate());
    EXPECT_EQ(datos.dit, u"26001IT01001187C"_s);
    for (const Diferencia &d : Diferencias(*ctx, u"IT-2026-0007"_s, datos))
        ADD_FAILURE() << d.texto.toStdString();
}

TEST_P(StockDeMuestra, TheExportIsAssembledAndItsInputsStandByItem) {
    armar(u"EC-2026-0008"_s);
    const papel::Tabla t = TablaDeInsumos(*ctx, u"EC-2026-0008"_s);
    QStringList rotulos;
    for (const papel::Fila &f : t.filas)
        if (f.tipo == papel::Fila::Tipo::Grupo) rotulos << f.rotulo;
    EXPECT_EQ(rotulos,
              QStringList({u"Tomado por el item 1"_s, u"Tomado por el item 2"_s, u"Tomado por el item 3"_s}));
    // The inputs leave the base of each item: 8651.00 of the cotton's FOB of 12000.00.
    EXPECT_EQ(filas(u"select insumostemp from item where interno = 'EC-2026-0008' and fobtotal = 12000"_s),
              u"8651"_s);
}

}  // namespace
