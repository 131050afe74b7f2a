// Concepts by hand over a line that loses answers.

#include "liquidation/conceptedit.h"
#include "tests/support/respuestaperdida.h"

using namespace Qt::StringLiterals;

namespace {

class ConceptoSinRespuesta : public RespuestaPerdida {
 protected:
    Accion accion(const char *filaPrevia, std::function<bool()> hacer, const char *escrito) {
        return {[this, filaPrevia] {
                    ejecutar("delete from itemliq");
                    if (*filaPrevia != '\0') ejecutar(filaPrevia);
                    ctx->LiquidacionPendiente = false;
                },
                std::move(hacer), [this, escrito] { return valor(escrito) == "1"; },
                [this] { EXPECT_TRUE(ctx->LiquidacionPendiente) << "the totals are not what the rows say"; }};
    }
    const ConceptoEditado nuevo{u"041"_s, u"MULTA"_s, u"P"_s, u"1"_s, u"1000"_s, u"10"_s, {}};
    static constexpr const char *fila =
        "insert into itemliq (interno,iditem,idconceptos,pgc,total) values ('OP',1,'041','P',5)";
};

TEST_F(ConceptoSinRespuesta, OneThatWasAddedLeavesTheLiquidationPending) {
    EXPECT_GT(cortarSiempre(accion(
                  "", [this] { return PF_Guardar(*ctx, u"OP"_s, u"1"_s, nuevo).ok; },
                  "select count(*) as n from itemliq")),
              0);
}

TEST_F(ConceptoSinRespuesta, OneThatWasChangedToo) {
    EXPECT_GT(cortarSiempre(accion(
                  fila, [this] { return PF_Modificar(*ctx, u"OP"_s, u"1"_s, u"041"_s, nuevo).ok; },
                  "select count(*) as n from itemliq where total = 10")),
              0);
}

TEST_F(ConceptoSinRespuesta, OneThatWasDeletedToo) {
    EXPECT_GT(cortarSiempre(accion(
                  fila, [this] { return EliminarConcepto(*ctx, u"OP"_s, u"1"_s, u"041"_s); },
                  "select 1 - count(*) as n from itemliq")),
              0);
}

}  // namespace
