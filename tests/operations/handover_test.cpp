// The hand-over to the customs system.

#include "operations/handover.h"

#include <gtest/gtest.h>

#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

/// An operation of two items; the first one's country of origin is forced to another than the header's.
class Transferencia : public EnAmbosStores {
 protected:
    void SetUp() override {
        EnAmbosStores::SetUp();
        ejecutar(
            u"insert into caratula (interno,dcpaisorigen,dcforzarpaisorigen,dcpaisdestino) values "
            "('A1','212','S','200')"_s);
        for (const char *id : {"1", "2"}) {
            ejecutar("insert into subitems (interno,idpais,idpaisproc) values ('A1','212','200')"_L1);
            const QString linea = valor(u"select max(id) as n from subitems"_s);
            ejecutar("insert into groupsubitems (interno,id,idsub,idpais,idpaisproc) values ('A1',"_L1 +
                     L(id) + ","_L1 + linea + ",'212','200')"_L1);
            ejecutar("insert into item (interno,id,idpais,idproc) values ('A1',"_L1 + L(id) +
                     ",'212','200')"_L1);
        }
    }
    void desparejar() { ejecutar(u"update item set idpais = '105' where id = 1"_s); }
};

TEST_P(Transferencia, AnOperationThatAgreesGoesOnWithoutAQuestion) {
    EXPECT_TRUE(ConfirmarTransferencia(*ctx, u"A1"_s));
    EXPECT_TRUE(registro.preguntas.empty());
    EXPECT_TRUE(registro.informes.empty());
}

TEST_P(Transferencia, DifferencesAreShownAndAskedAboutWithNoAsTheDefault) {
    desparejar();
    EXPECT_FALSE(ConfirmarTransferencia(*ctx, u"A1"_s));
    ASSERT_EQ(registro.informes.size(), 1U);
    EXPECT_EQ(registro.informes[0].titulo, "Zendra v3 - Reporte de Diferencias Encontradas."_L1);
    EXPECT_TRUE(registro.informes[0].comoLista);
    ASSERT_EQ(registro.preguntas.size(), 1U);
    EXPECT_EQ(registro.preguntas[0].texto.toStdString(),
              "ADVERTENCIA IMPORTANTE!!!\r\n\r\nSe han encontrado diferencias entre la operacion cargada,\r\n"
              "y la informacion a enviar al SIM, ¿desea continuar?");
    EXPECT_EQ(registro.preguntas[0].titulo, "Diferencias en Operacion - Confirmacion de la Operacion"_L1);
    EXPECT_EQ(registro.preguntas[0].icono, Icono::Pregunta);
    EXPECT_TRUE(registro.preguntas[0].porDefectoNo);
    registro.respuestas = {true};
    EXPECT_TRUE(ConfirmarTransferencia(*ctx, u"A1"_s));
}

TEST_P(Transferencia, TheComparisonIsNeverSkippedForTheLevelIsTwo) {
    desparejar();
    EXPECT_EQ(Opciones().VERSION, 2);
    ConfirmarTransferencia(*ctx, u"A1"_s);
    EXPECT_EQ(registro.informes.size(), 1U);
    // A level of 1, which no configuration gives, would go without it.
    ctx->opciones.VERSION = 1;
    EXPECT_TRUE(ConfirmarTransferencia(*ctx, u"A1"_s));
    EXPECT_EQ(registro.informes.size(), 1U);
}

TEST_P(Transferencia, OneItemWhoseCountriesDisagreeIsHandedOverWithoutAQuestion) {
    ejecutar(u"delete from item where id = 2"_s);
    desparejar();
    EXPECT_TRUE(ConfirmarTransferencia(*ctx, u"A1"_s));
    EXPECT_TRUE(registro.preguntas.empty());
}

TEST_P(Transferencia, AStoreThatFailsStopsWithItsOwnWords) {
    ejecutar(u"alter table groupsubitems rename to escondida"_s);
    EXPECT_THROW(ConfirmarTransferencia(*ctx, u"A1"_s), Falla);
    EXPECT_TRUE(registro.preguntas.empty());
}

EN_AMBOS_STORES(Transferencia);

}  // namespace
