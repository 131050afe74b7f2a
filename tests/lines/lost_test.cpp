// Lines over a line that loses answers.

#include <optional>

#include "subitems/lines.h"
#include "tests/lines/lineas.h"
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

/// New lines over a line to the server that is cut.
class LineaDudosa : public Lineas {
 protected:
    void TearDown() override {
        Lineas::TearDown();
        proxy.reset();
    }
    void AlHacerLaTienda() override {
        proxy.emplace();
        tienda->PasarPor(*proxy);
    }
    /// The save with the line cut behind so many bytes of its answers; whether it was, or would have been.
    bool grabarCortada(qint64 bytes) {
        grabacion = {};
        proxy->CortarTras(Intermediario::Medida::BytesAlCliente, bytes);
        try {
            grabar();
        } catch (const Falla &) {
            // Told by the screen.
        }
        const bool entera = proxy->cortePendiente();
        proxy->Seguir();
        return !entera;
    }
    /// As a screen that shows no line yet.
    void vaciarLista() {
        ejecutar(u"delete from subitems where interno = 'OP 1'"_s);
        VaciarCampos(*ctx, s);
        s.ultimaVista = valor(u"select max(id) as id from subitems"_s).toLongLong();
    }
    std::optional<Intermediario> proxy;
};
INSTANTIATE_TEST_SUITE_P(Stores, LineaDudosa, ::testing::Values("SQL"),
                         [](const ::testing::TestParamInfo<const char *> &caso) {
                             return std::string(caso.param);
                         });

TEST_P(LineaDudosa, ANewLineIsAddedOnceWhereverItsSaveWasCutAndTakesWhatIsTypedThen) {
    constexpr int paso = 24;
    ejecutar(u"insert into subitems (interno,ncm) values ('OTRA','8413.70.10.100L')"_s);
    int quedadas = 0;
    for (int bytes = 0;; bytes += paso) {
        SCOPED_TRACE(bytes);
        vaciarLista();
        llenarBomba();
        const bool cortada = grabarCortada(bytes);
        if (!cortada) break;
        // A read that was cut is asked again.
        if (grabacion.ok) continue;
        quedadas += cuantas();
        s.campos.TxtFobTotal = "300";
        s.campos.TxtUnitario = "12.5";
        EXPECT_TRUE(grabar()) << ultimoMensaje();
        EXPECT_EQ(linea(u"cantidad,fob"_s), "24|300");
        EXPECT_FALSE(s.enDuda.has_value());
    }
    EXPECT_GT(quedadas, 0) << "one was kept without the screen's knowing";
}

TEST_P(LineaDudosa, OneThatTheUserGaveUpIsNotTakenForTheNext) {
    constexpr int paso = 24;
    for (int bytes = 0; cuantas() == 0 || !s.enDuda; bytes += paso) {
        vaciarLista();
        llenarBomba();
        ASSERT_TRUE(grabarCortada(bytes)) << "no cut left a line behind";
    }
    VaciarCampos(*ctx, s);
    llenarPlastico();
    EXPECT_TRUE(grabar()) << ultimoMensaje();
    EXPECT_EQ(cuantas(), 2);
}

}  // namespace
