// Concepts by hand: what the editor offers, its checks in their order, and what it writes.

#include "liquidation/conceptedit.h"

#include "frame/base/numbers.h"
#include "tests/liquidation/operacion.h"

using namespace Qt::StringLiterals;

namespace {

const QString operacionEditada = u"OP1"_s;
const QString itemEditado = u"1"_s;

/// A guaranteed duty of 10 % on 500, with a reason.
ConceptoEditado derechoGarantizado() {
    return {u"010"_s, u"DERECHOS"_s, u"G"_s, u"10"_s, u"500"_s, u"50"_s, u"01"_s};
}

class ConceptosAMano : public OperacionDePrueba {
 protected:
    void SetUp() override {
        OperacionDePrueba::SetUp();
        catalogo();
        item(1);
        ctx->LiquidacionPendiente = false;
    }
    Veredicto guardar(const ConceptoEditado &c) { return PF_Guardar(*ctx, operacionEditada, itemEditado, c); }
    Veredicto modificar(const QString &codigo, const ConceptoEditado &c) {
        return PF_Modificar(*ctx, operacionEditada, itemEditado, codigo, c);
    }
    std::string ofrecidos(ModoDeConcepto modo) {
        QStringList codigos;
        for (const ConceptoOfrecido &c : ListarConceptos(*ctx, operacionEditada, itemEditado, modo))
            codigos << c.codigo;
        return codigos.join(u' ').toStdString();
    }
    /// The item's rows, whole.
    std::string guardados() {
        return f(
            "select idconceptos,conceptos,pgc,motivo,porcentaje,porcentajeb,baseimp,total,valor"
            " from itemliq where interno = 'OP1' and iditem = 1 order by idconceptos");
    }
    /// The texts of what was told since the last look.
    std::string dicho() {
        QStringList textos;
        for (const Mensaje &m : registro.mensajes) textos << m.texto;
        registro.mensajes.clear();
        return textos.join(u'\n').toStdString();
    }
};
EN_AMBOS_STORES(ConceptosAMano);

TEST_P(ConceptosAMano, AddingOffersByNameWhatTheItemDoesNotShow) {
    fila(1, "010", {{"total", "5"}});
    fila(1, "011", {{"total", "0"}});
    fila(1, "415", {{"total", "null"}});
    insertar(u"itemliq"_s,
             {{"interno", "'OTRA'"}, {"iditem", "1"}, {"idconceptos", "'424'"}, {"total", "9"}});
    fila(2, "500", {{"total", "9"}});
    EXPECT_EQ(ofrecidos(ModoDeConcepto::ADD), "500 011 424 415")
        << "ARANCEL, ESTADISTICA, GANANCIAS, IVA: another operation's rows and another item's hide nothing, "
           "nor does an amount of 0 or none";
    EXPECT_EQ(ofrecidos(ModoDeConcepto::MOD), "500 010 011 424 415");
}

TEST_P(ConceptosAMano, TheListIsAskedForInOneStatement) {
    const QStringList sentencias = sentenciasDe("from tax", [this] { ofrecidos(ModoDeConcepto::ADD); });
    ASSERT_EQ(sentencias.size(), 1);
    EXPECT_EQ(
        sentencias[0].toStdString(),
        "select distinct CTAX,LTAXABR from tax where not exists(select idconceptos,conceptos from itemliq "
        "where idconceptos = CTAX and iditem = 1 and interno = 'OP1' and total > 0) order by LTAXABR");
}

TEST_P(ConceptosAMano, TheTotalIsTheBaseByThePercentage) {
    EXPECT_EQ(TotalDeConcepto(*ctx, u"10"_s, u"500"_s), u"50.00"_s);
    // 33.335 · 10 / 100 = 3.3335.
    EXPECT_EQ(TotalDeConcepto(*ctx, u"10"_s, u"33.335"_s), u"03.33"_s);
    // 100.5 · 1 / 100 = 1.005, halves away from zero.
    EXPECT_EQ(TotalDeConcepto(*ctx, u"1"_s, u"100,5"_s), u"01.01"_s);
    EXPECT_EQ(TotalDeConcepto(*ctx, u""_s, u"500"_s), QString());
    EXPECT_EQ(TotalDeConcepto(*ctx, u"10"_s, u"mil"_s), QString());
    ctx->SeparadorDecimal = u',';
    EXPECT_EQ(TotalDeConcepto(*ctx, u"2,5"_s, u"10"_s), u"00,25"_s);
}

TEST_P(ConceptosAMano, TheChecksGoInTheirOrderAndNameTheirField) {
    ConceptoEditado c{{}, {}, u"G"_s, u"x"_s, u"y"_s, u"0"_s, {}};
    struct Paso {
        const char *texto;
        const char *control;
        std::function<void()> corregir;
    };
    const Paso pasos[] = {
        {"Debe seleccionar un concepto de la lista.", "cbCONC", [&c] { c.codigo = u"010"_s; }},
        {"Usted selecionó como Obligacion G, entonces debe seleccionar un MOTIVO", "TxtMotivos",
         [&c] { c.motivo = u"01"_s; }},
        {"Debe seleccionar un PORCENTAJE válido", "txtPorc", [&c] { c.porcentaje = u"10"_s; }},
        {"Debe seleccionar una BASE IMPONIBLE válida", "txtBimp", [&c] { c.base = u"500"_s; }},
        {"Total debe ser mayor a cero.", "TxtValor", [&c] { c.total = u"50"_s; }},
    };
    for (const bool agrega : {true, false}) {
        const ConceptoEditado alEmpezar = c;
        for (const Paso &paso : pasos) {
            const Veredicto v = agrega ? guardar(c) : modificar(u"010"_s, c);
            EXPECT_FALSE(v.ok);
            EXPECT_EQ(v.foco, QLatin1String(paso.control));
            ASSERT_EQ(registro.mensajes.size(), 1U);
            EXPECT_EQ(registro.mensajes[0].icono, Icono::Exclamacion);
            EXPECT_EQ(dicho(), paso.texto);
            paso.corregir();
        }
        EXPECT_EQ(guardados(), "");
        c = alEmpezar;
    }
    EXPECT_FALSE(ctx->LiquidacionPendiente);
}

TEST_P(ConceptosAMano, ANegativeTotalIsRefusedAsATotalOfExactlyZeroIs) {
    ConceptoEditado c = derechoGarantizado();
    for (const QString &total : {u"0"_s, u"0,00"_s, u"-1"_s}) {
        c.total = total;
        EXPECT_EQ(guardar(c).foco, u"TxtValor"_s);
        EXPECT_EQ(dicho(), "Total debe ser mayor a cero.");
    }
    EXPECT_EQ(guardados(), "");
}

TEST_P(ConceptosAMano, AConceptIsAddedWithItsHandMarkAndTheLiquidationIsPending) {
    ConceptoEditado c = derechoGarantizado();
    c.porcentaje = u"12,5"_s;
    c.total = u"62.504"_s;
    EXPECT_TRUE(guardar(c).ok);
    EXPECT_EQ(guardados(), "010|DERECHOS|G|01|12.5|12.5|500|62.5|1")
        << "both percentages take the same value; the total its two decimals";
    EXPECT_TRUE(ctx->LiquidacionPendiente);
    EXPECT_EQ(dicho(), "");
}

TEST_P(ConceptosAMano, TheColumnsOfBothStatementsStandInTheirOrder) {
    const QStringList altas = sentenciasDe("insert into", [this] { guardar(derechoGarantizado()); });
    ASSERT_EQ(altas.size(), 1);
    EXPECT_EQ(altas[0].toStdString(),
              "insert into ITEMLIQ (iditem,idconceptos,conceptos,interno,PGC,motivo,porcentaje,porcentajeb,"
              "baseimp,total,valor) values (1,'010','DERECHOS','OP1','G','01',10.00,10.00,500.00,50.00,1)");
    const QStringList cambios =
        sentenciasDe("update itemliq", [this] { modificar(u"010"_s, derechoGarantizado()); });
    ASSERT_EQ(cambios.size(), 1);
    EXPECT_EQ(cambios[0].toStdString(),
              "update itemliq set idconceptos = '010',conceptos = 'DERECHOS',pgc = 'G',motivo = '01',"
              "porcentaje = 10.00,porcentajeB = 10.00,baseimp = 500.00,total = 50.00,valor = 1 "
              "where interno = 'OP1' and idconceptos = '010' and iditem = 1");
}

TEST_P(ConceptosAMano, AReasonIsKeptOnlyForWhatIsGuaranteed) {
    ConceptoEditado c = derechoGarantizado();
    c.pgc = u"P"_s;
    EXPECT_TRUE(guardar(c).ok);
    EXPECT_EQ(guardados(), "010|DERECHOS|P||10|10|500|50|1");
}

TEST_P(ConceptosAMano, AddingAConceptWhoseRowStandsAtZeroChangesThatRow) {
    fila(1, "010", {{"total", "0"}, {"porcentaje", "3"}});
    EXPECT_TRUE(guardar(derechoGarantizado()).ok);
    EXPECT_EQ(guardados(), "010|DERECHOS|G|01|10|10|500|50|1");
    EXPECT_TRUE(ctx->LiquidacionPendiente);
}

TEST_P(ConceptosAMano, ARowThatNeverTookAnAmountCountsAsOneAtZero) {
    fila(1, "010", {{"total", "null"}});
    EXPECT_TRUE(guardar(derechoGarantizado()).ok);
    EXPECT_EQ(guardados(), "010|DERECHOS|G|01|10|10|500|50|1");
}

TEST_P(ConceptosAMano, AddingAConceptThatHasAnAmountIsRefused) {
    fila(1, "010", {{"total", "5"}, {"conceptos", "'X'"}});
    const Veredicto v = guardar(derechoGarantizado());
    EXPECT_FALSE(v.ok);
    EXPECT_EQ(v.foco, u"cbCONC"_s);
    EXPECT_EQ(dicho(), "El concepto ya esta ingresado en la liquidación");
    EXPECT_EQ(guardados(), "010|X|P||<null>|<null>|<null>|5|0");
    EXPECT_FALSE(ctx->LiquidacionPendiente);
}

TEST_P(ConceptosAMano, AConceptMayTakeTheOneOfAnotherRow) {
    fila(1, "010", {{"total", "5"}});
    fila(2, "010", {{"total", "7"}});
    ConceptoEditado c = derechoGarantizado();
    c.codigo = u"065"_s;
    c.descripcion = u"MINIMO"_s;
    EXPECT_TRUE(modificar(u"010"_s, c).ok);
    EXPECT_EQ(guardados(), "065|MINIMO|G|01|10|10|500|50|1");
    EXPECT_EQ(f("select idconceptos,total from itemliq where iditem = 2"), "010|7") << "of its item alone";
}

TEST_P(ConceptosAMano, ABaseOfZeroPassesOnlyWithATotalTypedByHand) {
    ConceptoEditado c = derechoGarantizado();
    c.base = u"0"_s;
    c.total = TotalDeConcepto(*ctx, c.porcentaje, c.base);
    EXPECT_EQ(c.total, u"00.00"_s);
    EXPECT_FALSE(guardar(c).ok);
    EXPECT_EQ(dicho(), "Total debe ser mayor a cero.");
    c.total = u"15"_s;
    EXPECT_TRUE(guardar(c).ok);
    EXPECT_EQ(guardados(), "010|DERECHOS|G|01|10|10|0|15|1");
}

TEST_P(ConceptosAMano, ATotalThatIsNoNumberPassesTheChecksAndFailsInTheStatement) {
    fila(1, "011", {{"total", "0"}, {"conceptos", "'TASA'"}});
    fila(1, "415", {{"total", "5"}, {"conceptos", "'IVA'"}});
    const std::string antes = guardados();
    // Whatever is typed: nothing, words, the name of a column, SQL, what an engine reads as a number.
    const QStringList tipeados{QString(),
                               u"cinco"_s,
                               u"baseimp"_s,
                               u"[baseimp]"_s,
                               u"1]--"_s,
                               u"1'"_s,
                               u"\""_s,
                               u"1, valor = 7"_s,
                               u"NaN"_s,
                               u"Infinity"_s,
                               u"0x10"_s,
                               u"1 000"_s,
                               u"1); delete from itemliq where (1=1"_s,
                               u"?"_s,
                               u":uno"_s,
                               u"$1"_s};
    for (const bool pendiente : {false, true}) {
        ctx->LiquidacionPendiente = pendiente;
        for (const QString &total : tipeados) {
            SCOPED_TRACE(total.toStdString());
            for (const char *codigo : {"010", "011"}) {
                ConceptoEditado c = derechoGarantizado();
                c.codigo = QLatin1String(codigo);
                c.total = total;
                const Veredicto v = guardar(c);
                EXPECT_FALSE(v.ok);
                EXPECT_EQ(v.foco, u"TxtValor"_s);
                ASSERT_EQ(registro.mensajes.size(), 2U);
                EXPECT_EQ(registro.mensajes[0].icono, Icono::Critico);
                EXPECT_TRUE(registro.mensajes[0].texto.contains(u"no es un número"_s))
                    << registro.mensajes[0].texto.toStdString();
                EXPECT_EQ(registro.mensajes[1].texto, u"No se puede agregar el nuevo concepto."_s);
                registro.mensajes.clear();
            }
            ConceptoEditado c = derechoGarantizado();
            c.total = total;
            EXPECT_FALSE(modificar(u"415"_s, c).ok);
            EXPECT_EQ(registro.mensajes.size(), 2U);
            registro.mensajes.clear();
        }
        EXPECT_EQ(guardados(), antes);
        EXPECT_EQ(ctx->LiquidacionPendiente, pendiente) << "the mark stays as it was";
    }
}

TEST_P(ConceptosAMano, ARowThatWentMeanwhileIsTold) {
    const Veredicto v = modificar(u"010"_s, derechoGarantizado());
    EXPECT_FALSE(v.ok);
    EXPECT_EQ(dicho(), "No se puede agregar el nuevo concepto.");
    EXPECT_FALSE(ctx->LiquidacionPendiente);
}

TEST_P(ConceptosAMano, AReasonAndADescriptionKeepTheirQuotes) {
    ConceptoEditado c = derechoGarantizado();
    c.motivo = u"N'01 \"x\""_s;
    c.descripcion = u"DERECHO D'ORO"_s;
    EXPECT_TRUE(guardar(c).ok);
    EXPECT_EQ(guardados(), "010|DERECHO D'ORO|G|N'01 \"x\"|10|10|500|50|1");
    c.motivo += u"''"_s;
    EXPECT_TRUE(modificar(u"010"_s, c).ok);
    EXPECT_EQ(guardados(), "010|DERECHO D'ORO|G|N'01 \"x\"''|10|10|500|50|1");
    // The reason goes round through the recalculation too.
    recalcular(true);
    EXPECT_EQ(f("select motivo from itemliq where idconceptos = '010'"), "N'01 \"x\"''");
}

TEST_P(ConceptosAMano, RemovingAConceptTakesItsRowAndLeavesTheLiquidationPending) {
    fila(1, "010", {{"total", "5"}});
    fila(1, "415", {{"total", "7"}});
    fila(2, "010", {{"total", "9"}});
    EXPECT_TRUE(EliminarConcepto(*ctx, operacionEditada, itemEditado, u"010"_s));
    EXPECT_EQ(f("select iditem,idconceptos from itemliq order by iditem"), "1|415\n2|010");
    EXPECT_TRUE(ctx->LiquidacionPendiente);
    ctx->LiquidacionPendiente = false;
    EXPECT_FALSE(EliminarConcepto(*ctx, operacionEditada, itemEditado, u"010"_s));
    EXPECT_FALSE(ctx->LiquidacionPendiente) << "nothing was there";
}

TEST_P(ConceptosAMano, AReasonIsLookedUpOnlyForWhatIsGuaranteed) {
    insertar(u"motivos"_s, {{"id", "'01'"}, {"descripcion", "'Sin certificado'"}}, u"SYSTABLAS"_s);
    QString codigo = u"previo"_s;
    EXPECT_FALSE(ElegirMotivo(*ctx, u"P"_s, codigo));
    EXPECT_EQ(dicho(), "Para seleccionar un MOTIVO, obligación debe estar como G");
    EXPECT_TRUE(registro.elecciones.empty());
    registro.indices = {0};
    EXPECT_TRUE(ElegirMotivo(*ctx, u"G"_s, codigo));
    EXPECT_EQ(codigo, u"01"_s);
    ASSERT_EQ(registro.elecciones.size(), 1U);
    EXPECT_EQ(registro.elecciones[0].filas, QStringList{u"Sin certificado"_s});
    EXPECT_FALSE(ElegirMotivo(*ctx, u"G"_s, codigo)) << "the list was left";
    EXPECT_EQ(codigo, u"01"_s);
    EXPECT_EQ(DescripcionDeMotivo(*ctx, u"01"_s), u"Sin certificado"_s);
    EXPECT_EQ(DescripcionDeMotivo(*ctx, u"99"_s), QString());
    EXPECT_EQ(DescripcionDeMotivo(*ctx, {}), QString());
}

}  // namespace
