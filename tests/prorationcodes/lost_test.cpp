// Proration codes over a line that loses answers.

#include "header/changes.h"
#include "header/prorationcodes.h"
#include "tests/support/respuestaperdida.h"

using namespace Qt::StringLiterals;

namespace {

class ProrrateoSinRespuesta : public RespuestaPerdida {
 protected:
    Accion accion(const char *filaPrevia, bool (*hacer)(AppContext &ctx), const char *quedan) {
        return {[this, filaPrevia] {
                    for (const char *tabla : {"delete from prorrateo", "delete from caratula"})
                        ejecutar(tabla);
                    ejecutar("insert into caratula (interno,factura8) values ('OP','N')");
                    if (*filaPrevia != '\0') ejecutar(filaPrevia);
                },
                [this, hacer] { return hacer(*ctx); },
                [this, quedan] { return valor("select count(*) as n from prorrateo") == quedan; },
                [this] {
                    EXPECT_EQ(valor("select factura8 from caratula"), "S")
                        << "the second key finds it done and marks nothing";
                }};
    }
};

TEST_F(ProrrateoSinRespuesta, ACodeThatWasAddedHasItsOperationArmedAgain) {
    EXPECT_GT(
        cortarSiempre(accion(
            "",
            [](AppContext &c) { return AgregarProrrateo(c, u"OP"_s, u"EMB"_s, u"EMBALAJE"_s, u"5"_s).ok; },
            "1")),
        0);
}

TEST_F(ProrrateoSinRespuesta, ACodeThatWasDeletedToo) {
    EXPECT_GT(cortarSiempre(accion(
                  "insert into prorrateo (interno,codigo,valor) values ('OP','EMB',5)",
                  [](AppContext &c) { return EliminarProrrateo(c, u"OP"_s, u"EMB"_s); }, "0")),
              0);
}

}  // namespace
