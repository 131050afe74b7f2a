// The broker's concepts, the references, and the two master lists behind them.

#include "outputs/quotelists.h"
#include "tests/quote/presupuestos.h"
#include "tests/support/traza.h"

using namespace Qt::StringLiterals;

namespace {

class QuoteItems : public Presupuestos {
 protected:
    std::string operativos() {
        return filas(u"select interno,concepto,valorpeso,valordolar from itempresu order by concepto"_s)
            .toStdString();
    }
    std::string referencias() {
        return filas(u"select interno,referencia,valor from itemref order by referencia"_s).toStdString();
    }
};
EN_AMBOS_STORES(QuoteItems);

TEST_P(QuoteItems, AConceptIsWrittenInTheCurrencyOfItsValue) {
    {
        const Traza traza;
        AgregarGasto(*ctx, operacionPresupuestada, u"HONORARIOS"_s, u"1500,5"_s, false);
        AgregarGasto(*ctx, operacionPresupuestada, u"D'Artagnan"_s, u"12.25"_s, true);
        EXPECT_EQ(traza.texto(),
                  "INTERNOS|insert into itempresu (interno,concepto,valorpeso,valordolar) values ('OP "
                  "1','HONORARIOS','1500.5',0)\n"
                  "INTERNOS|insert into itempresu (interno,concepto,valordolar,valorpeso) values ('OP "
                  "1','D''Artagnan',12.25,0)");
    }
    EXPECT_EQ(operativos(), "OP 1|D'Artagnan|0|12.25\nOP 1|HONORARIOS|1500.5|0");
}

TEST_P(QuoteItems, AConceptThatIsThereIsRefusedWhateverItsCase) {
    EXPECT_TRUE(ConceptoLibre(*ctx, operacionPresupuestada, u"HONORARIOS"_s));
    ponerConceptos();
    EXPECT_FALSE(ConceptoLibre(*ctx, operacionPresupuestada, u"Honorarios"_s));
    EXPECT_EQ(ultimo(), "Este concepto ya existe en el presupuesto.");
    EXPECT_TRUE(ConceptoLibre(*ctx, u"OTRA"_s, u"HONORARIOS"_s)) << "of another quote";
}

TEST_P(QuoteItems, AConceptIsTakenOutOfItsOwnQuote) {
    ponerConceptos();
    AgregarGasto(*ctx, u"OTRA"_s, u"HONORARIOS"_s, u"1"_s, true);
    QuitarGasto(*ctx, operacionPresupuestada, u"HONORARIOS"_s);
    EXPECT_EQ(operativos(), "OP 1|FLETE INTERNO|0|12.25\nOTRA|HONORARIOS|0|1");
}

TEST_P(QuoteItems, AReferenceAsksItsValueUntilThereIsOneOrTheUserGivesUp) {
    registro.textos = {std::nullopt, u"  "_s, u" Nº 12 'A' "_s};
    registro.respuestas = {false, false};
    EXPECT_TRUE(AgregarReferencia(*ctx, operacionPresupuestada, u"BUQUE"_s));
    EXPECT_EQ(referencias(), "OP 1|BUQUE|Nº 12 'A'");
    ASSERT_EQ(registro.entradas.size(), 3U);
    EXPECT_EQ(registro.entradas[0].texto, u"Ingrese el valor de BUQUE"_s);
    ASSERT_EQ(registro.preguntas.size(), 2U);
    EXPECT_EQ(registro.preguntas[0].texto, u"Desea cancelar la operación"_s);
    EXPECT_FALSE(registro.preguntas[0].porDefectoNo);
    registro.respuestas = {true};
    EXPECT_FALSE(AgregarReferencia(*ctx, operacionPresupuestada, u"ORDEN"_s));
    EXPECT_EQ(referencias(), "OP 1|BUQUE|Nº 12 'A'");
}

TEST_P(QuoteItems, AReferenceThatIsThereIsRefusedAndIsTakenOutOfItsOwnQuote) {
    ponerConceptos();
    EXPECT_FALSE(ReferenciaLibre(*ctx, operacionPresupuestada, u"buque"_s));
    EXPECT_EQ(ultimo(), "La Referencia ya Existe!");
    EXPECT_TRUE(ReferenciaLibre(*ctx, u"OTRA"_s, u"BUQUE"_s));
    QuitarReferencia(*ctx, u"OTRA"_s, u"BUQUE"_s);
    EXPECT_EQ(referencias(), "OP 1|BUQUE|CAP SAN MARTIN");
    QuitarReferencia(*ctx, operacionPresupuestada, u"BUQUE"_s);
    EXPECT_EQ(referencias(), "");
}

struct CasoDeLista {
    ListaDePresupuesto cual;
    const char *repetida;
    const char *sentencias;
};

TEST_P(QuoteItems, TheMasterListsAreReadAddedToAndTakenFrom) {
    const CasoDeLista casos[] = {
        {ListaDePresupuesto::Conceptos, "Ya existe este concepto.!",
         "INTERNOS|select count(*) as cont from conpresu where concepto = 'Depósito'\n"
         "INTERNOS|insert into conpresu (concepto) values ('Depósito')\n"
         "INTERNOS|select * from conpresu order by concepto\n"
         "INTERNOS|delete from conpresu where concepto = 'Depósito'"},
        {ListaDePresupuesto::Referencias, "Esta referencia ya existe",
         "INTERNOS|select count(*) as cont from referencias where referencia = 'Depósito'\n"
         "INTERNOS|insert into referencias (referencia) values ('Depósito')\n"
         "INTERNOS|select referencia from referencias order by referencia\n"
         "INTERNOS|delete from referencias where referencia = 'Depósito'"},
    };
    for (const CasoDeLista &caso : casos) {
        const QString texto = u"Depósito"_s;
        {
            const Traza traza;
            EXPECT_TRUE(AgregarALista(*ctx, caso.cual, texto));
            EXPECT_EQ(LeerLista(*ctx, caso.cual), QStringList{texto});
            QuitarDeLista(*ctx, caso.cual, texto);
            EXPECT_EQ(traza.texto(), caso.sentencias);
        }
        EXPECT_TRUE(LeerLista(*ctx, caso.cual).isEmpty());
        EXPECT_TRUE(AgregarALista(*ctx, caso.cual, u"Zona 'B'"_s));
        EXPECT_TRUE(AgregarALista(*ctx, caso.cual, texto));
        EXPECT_EQ(LeerLista(*ctx, caso.cual).join(u'|').toStdString(), "Depósito|Zona 'B'");
        EXPECT_FALSE(AgregarALista(*ctx, caso.cual, u"ZONA 'B'"_s));
        EXPECT_EQ(ultimo(), caso.repetida);
        EXPECT_FALSE(AgregarALista(*ctx, caso.cual, u" "_s));
        EXPECT_EQ(ultimo(), "Debe ingresar un Nombre valido para el nuevo concepto.");
    }
}

}  // namespace
