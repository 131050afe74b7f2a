// The hand-over to the customs system.

#include "operations/handover.h"

#include <gtest/gtest.h>

#include "tests/support/tienda.h"

namespace {

using L = QLatin1String;

/// An operation of two items; the first one's country of origin is forced to another than the header's.
class Transferencia : public EnAmbosStores {
 protected:
    void SetUp() override {
        EnAmbosStores::SetUp();
        ejecutar(QStringLiteral(
            "insert into caratula (interno,dcpaisorigen,dcforzarpaisorigen,dcpaisdestino) values "
            "('A1','212','S','200')"));
        for (const char *id : {"1", "2"}) {
            ejecutar(L("insert into subitems (interno,idpais,idpaisproc) values ('A1','212','200')"));
            const QString linea = valor(QStringLiteral("select max(id) as n from subitems"));
            ejecutar(L("insert into groupsubitems (interno,id,idsub,idpais,idpaisproc) values ('A1',") +
                     L(id) + L(",") + linea + L(",'212','200')"));
            ejecutar(L("insert into item (interno,id,idpais,idproc) values ('A1',") + L(id) +
                     L(",'212','200')"));
        }
        salida::armarTransferencia = [this](AppContext &, const QString &interno, bool comisiones) {
            entregas << interno + (comisiones ? L(" con comisiones") : L(" sin comisiones"));
        };
    }
    void TearDown() override {
        salida::armarTransferencia = {};
        Conexion::fijarTraza({});
        EnAmbosStores::TearDown();
    }
    void desparejar() { ejecutar(QStringLiteral("update item set idpais = '105' where id = 1")); }

    QStringList entregas;
};

TEST_P(Transferencia, AnOperationThatAgreesGoesToTheBuilderWithoutAQuestion) {
    EXPECT_TRUE(TransferirAlMaria(*ctx, QStringLiteral("A1")));
    EXPECT_TRUE(registro.preguntas.empty());
    EXPECT_TRUE(registro.informes.empty());
    EXPECT_EQ(entregas.join(QLatin1Char('|')), L("A1 sin comisiones"));
    ctx->opciones.EnviarComExt = true;
    EXPECT_TRUE(TransferirAlMaria(*ctx, QStringLiteral("A1")));
    EXPECT_EQ(entregas.last(), L("A1 con comisiones"));
}

TEST_P(Transferencia, DifferencesAreShownAndAskedAboutWithNoAsTheDefault) {
    desparejar();
    EXPECT_FALSE(TransferirAlMaria(*ctx, QStringLiteral("A1")));
    ASSERT_EQ(registro.informes.size(), 1U);
    EXPECT_EQ(registro.informes[0].titulo, L("Zendra v3 - Reporte de Diferencias Encontradas."));
    EXPECT_TRUE(registro.informes[0].comoLista);
    ASSERT_EQ(registro.preguntas.size(), 1U);
    EXPECT_EQ(registro.preguntas[0].texto.toStdString(),
              "ADVERTENCIA IMPORTANTE!!!\r\n\r\nSe han encontrado diferencias entre la operacion cargada,\r\n"
              "y la informacion a enviar al SIM, ¿desea continuar?");
    EXPECT_EQ(registro.preguntas[0].titulo, L("Diferencias en Operacion - Confirmacion de la Operacion"));
    EXPECT_TRUE(registro.preguntas[0].porDefectoNo);
    EXPECT_TRUE(entregas.isEmpty());
    registro.respuestas = {true};
    EXPECT_TRUE(TransferirAlMaria(*ctx, QStringLiteral("A1")));
    EXPECT_EQ(entregas.size(), 1);
}

TEST_P(Transferencia, TheComparisonIsNeverSkippedForTheLevelIsTwo) {
    desparejar();
    EXPECT_EQ(Opciones().VERSION, 2);
    TransferirAlMaria(*ctx, QStringLiteral("A1"));
    EXPECT_EQ(registro.informes.size(), 1U);
    // A level of 1, which no configuration gives, would go without it.
    ctx->opciones.VERSION = 1;
    EXPECT_TRUE(TransferirAlMaria(*ctx, QStringLiteral("A1")));
    EXPECT_EQ(registro.informes.size(), 1U);
}

TEST_P(Transferencia, OneItemWhoseCountriesDisagreeIsHandedOverWithoutAQuestion) {
    ejecutar(QStringLiteral("delete from item where id = 2"));
    desparejar();
    EXPECT_TRUE(TransferirAlMaria(*ctx, QStringLiteral("A1")));
    EXPECT_TRUE(registro.preguntas.empty());
    EXPECT_EQ(entregas.size(), 1);
}

TEST_P(Transferencia, WithoutTheBuilderAWordSaysSo) {
    salida::armarTransferencia = {};
    EXPECT_FALSE(TransferirAlMaria(*ctx, QStringLiteral("A1")));
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_TRUE(registro.mensajes[0].texto.contains(QStringLiteral("no está instalado")));
}

TEST_P(Transferencia, AStoreThatFailsIsToldAndNothingIsHandedOver) {
    ejecutar(QStringLiteral("alter table groupsubitems rename to escondida"));
    EXPECT_FALSE(TransferirAlMaria(*ctx, QStringLiteral("A1")));
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Critico);
    EXPECT_TRUE(entregas.isEmpty());
}

EN_AMBOS_STORES(Transferencia);

}  // namespace
