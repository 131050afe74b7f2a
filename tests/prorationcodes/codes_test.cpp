// Proration codes of an operation.

#include <gtest/gtest.h>

#include "assembly/run.h"
#include "header/automotive.h"
#include "header/changes.h"
#include "header/prorationcodes.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

class CodigosDeProrrateo : public EnAmbosStores {
 protected:
    void SetUp() override {
        EnAmbosStores::SetUp();
        ctx->SeparadorDecimal = QLatin1Char('.');
    }
    Veredicto agregar(const QString &codigo, const QString &descripcion, const QString &valorTecleado) {
        return AgregarProrrateo(*ctx, interno, codigo, descripcion, valorTecleado);
    }
    std::string ultimoMensaje() const {
        return registro.mensajes.empty() ? "<ninguno>" : registro.mensajes.back().texto.toStdString();
    }
    std::string lista() {
        std::string texto;
        for (const Prorrateo &p : CargarProrrateos(*ctx, interno))
            texto += (p.Codigo + '|' + p.Descripcion + '|' + p.Valor + '\n').toStdString();
        return texto;
    }
    const QString interno = u"OP 1"_s;
};

TEST_P(CodigosDeProrrateo, ACodeIsAddedInCapitalsAndShownWithItsForm) {
    const Veredicto v = agregar(" emb ", "embalaje d'origen", "420,5");
    EXPECT_TRUE(v.ok);
    EXPECT_EQ(v.foco.toStdString(), "TxtCodigo");
    EXPECT_TRUE(agregar("A", "", "7").ok);
    EXPECT_EQ(lista(), "EMB|EMBALAJE D'ORIGEN|420.50\nA||07.00\n") << "in the order of entry";
}

TEST_P(CodigosDeProrrateo, ChecksSpeakInTheirOrder) {
    struct Caso {
        const char *codigo, *valor, *texto, *foco;
    };
    agregar("EMB", "x", "1");
    for (const Caso &c :
         {Caso{"  ", "x", "Debe ingresar un valor en el campo CODIGO", "TxtCodigo"},
          Caso{"A", "", "Debe ingresar un dato Númerico en el campo VALOR", "TxtValor"},
          Caso{"A", "uno", "Debe ingresar un dato Númerico en el campo VALOR", "TxtValor"},
          Caso{"EMB", "0.00", "El dato en el campo VALOR debe ser MAYOR A 0 (cero)", "TxtValor"},
          Caso{"emb", "5", "El codigo ya Existe", "TxtCodigo"}}) {
        const Veredicto v = agregar(c.codigo, "x", c.valor);
        EXPECT_FALSE(v.ok);
        EXPECT_EQ(ultimoMensaje(), c.texto);
        EXPECT_EQ(registro.mensajes.back().icono, Icono::Exclamacion);
        EXPECT_EQ(v.foco.toStdString(), c.foco);
    }
    EXPECT_EQ(CargarProrrateos(*ctx, interno).size(), 1U);
}

// A negative value passes the checks: only zero is refused, whatever the message says.
TEST_P(CodigosDeProrrateo, ANegativeValuePasses) {
    EXPECT_TRUE(agregar("NEG", "", "-3.5").ok);
    EXPECT_EQ(lista(), "NEG||-03.50\n");
}

TEST_P(CodigosDeProrrateo, AnotherOperationMayUseTheSameCode) {
    ejecutar("insert into prorrateo (interno,codigo,valor) values ('OTRA','EMB',9)");
    EXPECT_TRUE(agregar("EMB", "", "1").ok);
    EXPECT_TRUE(EliminarProrrateo(*ctx, interno, "EMB"));
    EXPECT_EQ(valor("select count(*) as n from prorrateo where interno = 'OTRA'").toStdString(), "1");
}

TEST_P(CodigosDeProrrateo, TheTotalIsSharedWithTheHeader) {
    EXPECT_EQ(TotalizarProrrateos(*ctx, interno), 0);
    agregar("A", "", "10.25");
    agregar("B", "", "-0.25");
    EXPECT_EQ(TotalizarProrrateos(*ctx, interno), 10);
    EXPECT_EQ(ctx->TotalProrrateado, 10);
}

TEST_P(CodigosDeProrrateo, TheScreenGoesBetweenItsStates) {
    EXPECT_EQ(EstadoDeProrrateos({}), EstadoProrrateos::Carga) << "with no codes it goes straight to entry";
    EXPECT_EQ(EstadoDeProrrateos({{"A", "", "1"}}), EstadoProrrateos::Lista);
    EXPECT_EQ(BarraDeProrrateos(EstadoProrrateos::Lista).toStdString(),
              "[INSERT] Agregar - [DELETE] Eliminar - [ESC] Cerrar");
    EXPECT_EQ(BarraDeProrrateos(EstadoProrrateos::Carga).toStdString(), "[F11] Agregar - [ESC] Cancelar");
    EXPECT_EQ(EscapeEnProrrateos(EstadoProrrateos::Carga, true), SalidaDeProrrateos::VuelveALista);
    EXPECT_EQ(EscapeEnProrrateos(EstadoProrrateos::Carga, false), SalidaDeProrrateos::Cierra);
    EXPECT_EQ(EscapeEnProrrateos(EstadoProrrateos::Lista, true), SalidaDeProrrateos::Cierra);
}

TEST_P(CodigosDeProrrateo, AnErrorOfTheStoreIsShown) {
    const QString conComilla = u"O'P"_s;
    EXPECT_FALSE(AgregarProrrateo(*ctx, conComilla, "A", "", "1").ok);
    EXPECT_EQ(registro.mensajes.back().icono, Icono::Critico);
    EXPECT_FALSE(EliminarProrrateo(*ctx, conComilla, "A"));
    EXPECT_TRUE(CargarProrrateos(*ctx, conComilla).empty());
    EXPECT_EQ(registro.mensajes.size(), 3U);
}

TEST_P(CodigosDeProrrateo, ACodeAddedOrDeletedMarksTheOperation) {
    ejecutar("insert into caratula (interno,factura8) values ('OP 1','N')");
    const auto marcas = [this] {
        const QString marca = valor("select factura8 from caratula where interno = 'OP 1'");
        return (marca + '/' + LeerAEC(*ctx, interno)).toStdString();
    };
    const auto sinMarcas = [this] {
        MarcarArmado(*ctx, interno, false);
        GuardarAEC(*ctx, interno, "R");
    };
    sinMarcas();
    EXPECT_FALSE(agregar("EMB", "", "0").ok);
    EXPECT_EQ(marcas(), "N/R") << "refused";
    EXPECT_TRUE(agregar("EMB", "", "5").ok);
    EXPECT_EQ(marcas(), "S/");
    sinMarcas();
    EXPECT_TRUE(EliminarProrrateo(*ctx, interno, "OTRO"));
    EXPECT_EQ(marcas(), "S/") << "a code that was in the list and is gone is a change, whoever made it";
    EXPECT_TRUE(EliminarProrrateo(*ctx, interno, "EMB"));
    EXPECT_EQ(marcas(), "S/");
}

EN_AMBOS_STORES(CodigosDeProrrateo);

/// The codes of a stored operation, and what the assembly makes of them.
class CodigosYArmado : public EnAmbosStores {
 protected:
    bool conDemostracion() const override { return true; }
    std::string armar() {
        MarcarArmado(*ctx, interno, true);
        ctx->ChequeoArmado = "SI";
        Generar(*ctx, interno, {});
        return ctx->ChequeoArmado.toStdString();
    }
    double repartido() {
        return valor("select sum(fobtotal) as n from item where interno = 'IC-2026-0001' and id <> 0")
            .toDouble();
    }
    const QString interno = u"IC-2026-0001"_s;
};

// A code can be deleted although lines carry it; the run then leaves those lines without a spread.
TEST_P(CodigosYArmado, ADeletedCodeLeavesItsLinesWithoutASpread) {
    ASSERT_EQ(armar(), "SI");
    const double con = repartido();
    ASSERT_NE(valor("select count(*) as n from subitems where codprorrateo = 'EMB'").toStdString(), "0");
    ASSERT_TRUE(EliminarProrrateo(*ctx, interno, "EMB"));
    ASSERT_EQ(armar(), "SI");
    // 420.00 of packing are no longer in the items.
    EXPECT_NEAR(con - repartido(), 420.00, 0.001);
}

// A code that no line carries stops the run with the list of unused codes.
TEST_P(CodigosYArmado, ACodeThatNoLineCarriesStopsTheRun) {
    ASSERT_TRUE(AgregarProrrateo(*ctx, interno, "SOLO", "SIN LINEAS", "10").ok);
    EXPECT_NE(armar(), "SI");
    bool nombrado = false;
    for (const Mensaje &m : registro.mensajes) nombrado |= m.texto.contains("SOLO");
    for (const Informe &i : registro.informes) nombrado |= i.texto.contains("SOLO");
    EXPECT_TRUE(nombrado);
}

EN_AMBOS_STORES(CodigosYArmado);

}  // namespace
