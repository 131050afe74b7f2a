// A regime that stands in the store in small letters is the one in capitals for all who read it.

#include <gtest/gtest.h>

#include "assembly/run.h"
#include "header/changes.h"
#include "liquidation/ClassLiquidacion.h"
#include "liquidation/review.h"
#include "operations/browser.h"
#include "operations/status.h"
#include "subitems/lines.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

class RegimenGuardado : public EnAmbosStores {
 protected:
    bool conDemostracion() const override { return true; }
    void enMinusculas() { ejecutar(u"update caratula set idsubreg = lower(idsubreg)"_s); }
    std::string armado(const QString &interno) {
        MarcarArmado(*ctx, interno, true);
        ctx->ChequeoArmado = u"SI"_s;
        Generar(*ctx, interno, {});
        EXPECT_EQ(ctx->ChequeoArmado.toStdString(), "SI") << interno.toStdString();
        return filas(u"select id,fobtotal from item where interno = '%1' order by id"_s.arg(interno))
                   .toStdString() +
               "\n" +
               filas(
                   u"select iditem,idconceptos,porcentaje,porcentajeb,pgc from itemliq where interno = '%1' "
                   "order by iditem,idconceptos"_s.arg(interno))
                   .toStdString();
    }
    std::string estado(const QString &interno) {
        const EstadoDeOperacion e = LeerEstado(*ctx, interno);
        return (e.idsubreg + u'|' + e.LbSubregimen + u'|' + e.tipo + u'|' + e.marca + u'|' +
                e.LbEstadoCaratula)
                   .toStdString() +
               (e.CmdHojaVal ? "|valor" : "") + (e.cmdExportINS ? "|INS" : "") + (e.CmdPrint ? "|print" : "");
    }
    const std::vector<QString> internos_{u"IC-2026-0001"_s, u"EC-2026-0002"_s, u"IT-2026-0003"_s,
                                         u"DJAI-2026-0004"_s};
};

TEST_P(RegimenGuardado, TheDashboardReadsItInCapitals) {
    for (const QString &interno : internos_) {
        const std::string antes = estado(interno);
        ejecutar(u"update caratula set idsubreg = lower(idsubreg) where interno = '%1'"_s.arg(interno));
        EXPECT_EQ(estado(interno), antes);
    }
}

TEST_P(RegimenGuardado, TheListOfOperationsShowsItInCapitals) {
    enMinusculas();
    const auto filas = LeerInternos(*ctx, {});
    ASSERT_FALSE(filas.empty());
    for (const FilaDeInterno &fila : filas) EXPECT_EQ(fila.SubRegimen, fila.SubRegimen.toUpper());
}

TEST_P(RegimenGuardado, TheLinesReadItInCapitals) {
    enMinusculas();
    SubItems s;
    AbrirSubItems(*ctx, s, u"DJAI-2026-0004"_s, {1, 1, 1, 1, 1, 1, 1, 1});
    EXPECT_EQ(s.idsubreg, u"DJAI"_s);
}

TEST_P(RegimenGuardado, TheAssemblyMakesTheSameRows) {
    for (const QString &interno : {u"IC-2026-0001"_s, u"DJAI-2026-0004"_s}) {
        const std::string antes = armado(interno);
        ASSERT_NE(antes, "\n");
        ejecutar(u"update caratula set idsubreg = lower(idsubreg) where interno = '%1'"_s.arg(interno));
        EXPECT_EQ(armado(interno), antes) << interno.toStdString();
    }
}

TEST_P(RegimenGuardado, TheLiquidationReadsItInCapitals) {
    enMinusculas();
    ClassLiquidacion calculo(*ctx, u"IT-2026-0003"_s);
    ASSERT_TRUE(CargarCaratulaEnCalculadora(*ctx, u"IT-2026-0003"_s, calculo));
    EXPECT_EQ(calculo.CaratulaSubRegimen, u"IT01"_s);
}

EN_AMBOS_STORES(RegimenGuardado);

}  // namespace
