// Lines over a line that loses answers.

#include "subitems/lines.h"
#include "tests/support/respuestaperdida.h"

using namespace Qt::StringLiterals;

namespace {

class LineaSinRespuesta : public RespuestaPerdida {};

TEST_F(LineaSinRespuesta, OneThatWasDeletedHasItsOperationArmedAgainByTheSecondKey) {
    SubItems s;
    s.interno = u"OP"_s;
    qint64 id = 0;
    const auto borrar = [&] {
        registro.respuestas = {true};
        return EliminarSubItem(*ctx, s, id);
    };
    const Accion accion{[&] {
                            for (const char *tabla : {"delete from subitems", "delete from caratula"})
                                ejecutar(tabla);
                            ejecutar("insert into caratula (interno,factura8) values ('OP','N')");
                            ejecutar("insert into subitems (interno,ncm) values ('OP','8413.70.10.100L')");
                            id = QString::fromStdString(valor("select id from subitems")).toLongLong();
                        },
                        borrar, [&] { return valor("select count(*) as n from subitems") == "0"; },
                        [&] {
                            borrar();
                            EXPECT_EQ(valor("select factura8 from caratula"), "S");
                        }};
    EXPECT_GT(cortarSiempre(accion), 0);
}

}  // namespace
