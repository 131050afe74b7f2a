// The check of a typed rate against the stored one.

#include <gtest/gtest.h>

#include "frame/base/numbers.h"
#include "header/codes.h"
#include "tests/support/tienda.h"
#include "tests/support/traza.h"

using namespace Qt::StringLiterals;

namespace {

class Cotizaciones : public EnAmbosStores {
 protected:
    void SetUp() override {
        EnAmbosStores::SetUp();
        ctx->SeparadorDecimal = QLatin1Char('.');
        ejecutar(u"insert into divisas (id,descripcion,imp) values ('060','Euro',1.085)"_s);
    }
    std::string controlar(const char *divisa, const char *valor) {
        return ControlDivisa(*ctx, QString::fromUtf8(divisa), QString::fromUtf8(valor)).toStdString();
    }
    std::string guardado() { return valor(u"select imp from divisas where id = '060'"_s).toStdString(); }
};

TEST_P(Cotizaciones, AnEmptyCurrencyReturnsAtOnce) {
    const Traza traza;
    EXPECT_EQ(controlar("", "5"), "5");
    EXPECT_EQ(traza.texto(), "");
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(Cotizaciones, TwoRatesThatDifferOnlyBeyondSixDecimalsCountAsEqual) {
    // 1.0850004 rounds to 1.085000.
    EXPECT_EQ(controlar("060", "1.0850004"), "1.0850004");
    EXPECT_TRUE(registro.preguntas.empty());
    EXPECT_EQ(guardado(), "1.085");
}

TEST_P(Cotizaciones, OnNoTheTypedRateStaysAndTheStoredOneToo) {
    EXPECT_EQ(controlar("060", "1.2"), "1.2");
    ASSERT_EQ(registro.preguntas.size(), 1U);
    EXPECT_EQ(
        registro.preguntas[0].texto.toStdString(),
        "El valor ingresado por usted es 1.200000 este valor no corresponde al que tiene guardado en la "
        "tabla de Divisas que es 1.085000, desea guardar el nuevo valor como predeterminado.");
    EXPECT_EQ(guardado(), "1.085");
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(Cotizaciones, OnYesTheTypedRateIsStoredAsTheDefault) {
    registro.respuestas = {true};
    const Traza traza;
    EXPECT_EQ(controlar("060", "1,2"), "1,2");
    EXPECT_EQ(traza.texto(),
              "INTERNOS|select [imp] from divisas where id = '060'\n"
              "INTERNOS|update divisas set imp = 1.2 where id = '060'");
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto.toStdString(), "Valor Guardado Correctamente.");
    EXPECT_EQ(guardado(), "1.2");
}

TEST_P(Cotizaciones, ARateThatChangesNoRowIsTold) {
    ctx->dialogos.preguntar = [this](const Pregunta &) {
        ejecutar(u"delete from divisas"_s);
        return true;
    };
    EXPECT_EQ(controlar("060", "2"), "2");
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto.toStdString(), "No se puede guardar valor");
}

TEST_P(Cotizaciones, ACurrencyThatIsNotKeptIsTold) {
    EXPECT_EQ(controlar("999", "2"), "2");
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto.toStdString(), "No se encontro codigo de DIVISAS en base.");
    EXPECT_TRUE(registro.preguntas.empty());
}

EN_AMBOS_STORES(Cotizaciones);

}  // namespace
