// What is looked over ahead of sending: one change to an operation that agrees, one sentence.

#include <gtest/gtest.h>

#include "tests/transfer/operacion.h"

using namespace Qt::StringLiterals;

namespace {

class ControlesDeDeclaracion : public OperacionParaEnviar {};
EN_AMBOS_STORES(ControlesDeDeclaracion);

TEST_P(ControlesDeDeclaracion, AnOperationThatAgreesHasNothingToTell) {
    EXPECT_EQ(advertencias().join(u'\n').toStdString(), "");
}

struct CambioYAviso {
    const char *cambio;  ///< "%1" is " where interno = 'A1'"
    const char *avisos;
};

// Sums are the operation's own: see OperacionParaEnviar.
const CambioYAviso cambios[] = {
    {"update item set idpais = '' %1 and id = 2",
     "2|El item 2 no tiene país de origen; complételo en la pantalla de items."},
    {"update item set idproc = null %1 and id = 2",
     "2|El item 2 no tiene país de procedencia; complételo en la pantalla de items."},
    {"update item set ncm = null %1 and id = 1",
     "1|El item 1 no tiene posición; corrija sus subitems y vuelva a armar la operación."},
    {"update item set idunidad = ' ' %1 and id = 1",
     "1|El item 1 no tiene unidad; corrija sus subitems y vuelva a armar la operación."},
    {"update item set cantidad = null %1 and id = 1",
     "1|El item 1 no tiene cantidad; corrija sus subitems y vuelva a armar la operación."},
    {"update item set valorrelacionestadistica = 0 %1 and id = 1",
     "1|El item 1 tiene unidad estadística sin cantidad; complétela en la pantalla de items."},
    {"update item set deresp = '07' %1 and id = 1",
     "1|El item 1 tiene unidad de derecho específico sin cantidad; complétela en la pantalla de items."},
    {"update item set totalkneto = 0 %1 and id = 1",
     "1|El item 1 no tiene kilos netos; complételos en la pantalla de items."},
    {"update item set totalkbruto = 4.99 %1 and id = 1",
     "1|El item 1 pesa menos en bruto que en neto; revise sus kilos."},
    {"update caratula set bulpes = 9.4 %1",
     "0|El peso de los bultos, 09.40, es menor que los kilos netos de los items, 09.50; revise los kilos."},
    {"update item set fobtotal = 60.01 %1 and id = 1",
     "0|El FOB de los items suma 100.01 y el de la carátula es 100.00; vuelva a armar la operación.\n"
     "1|El item 1 tiene un FOB que no es la suma del de sus subitems; vuelva a armar la operación."},
    {"update groupsubitems set fob = 34.49 %1 and idsub = 12",
     "1|El item 1 tiene un FOB que no es la suma del de sus subitems; vuelva a armar la operación."},
    {"update caratula set fletedivisas = 10.01 %1",
     "0|El flete de los items suma 10.00 y el de la carátula es 10.01; vuelva a armar la operación."},
    {"update item set itseguro = 0.41 %1 and id = 2",
     "0|El seguro de los items suma 01.01 y el de la carátula es 01.00; vuelva a armar la operación."},
    {"update itemliq set total = 6.67 %1 and iditem = 1 and idconceptos = '010'",
     "0|El concepto 010 suma 11.11 en los items y 11.10 en el total de la operación; recalcule la "
     "liquidación."},
    {"insert into itemliq (interno,iditem,idconceptos,total) values ('A1',1,'415',5)",
     "0|El concepto 415 suma 05.00 en los items y 00.00 en el total de la operación; recalcule la "
     "liquidación."},
    {"delete from liqcero %1", "0|La operación no tiene liquidación; recalcúlela en la pantalla de items."},
    {"update caratula set factura8 = 'S' %1",
     "0|La operación cambió desde su último armado; vuelva a armarla antes de enviar."},
    {"update caratula set factura9 = '' %1",
     "0|Los bultos no están contestados; complételos en la pantalla de bultos."},
    {"update itemliq set motivo = ' ' %1 and iditem = 2",
     "2|El item 2 tiene un tributo en garantía sin motivo; complételo en su liquidación."},
    {"insert into itemventaja (interno,iditem,idventaja) values ('A1',1,'BIENCAPITAL')",
     "1|El item 1 tiene una ventaja repetida; quítela y agréguela una vez en la pantalla de items."},
    {"update groupsubitems set id = null %1 and idsub = 13",
     "0|Quedan afuera los subitems sin item (1); vuelva a armar la operación antes de enviar.\n"
     "2|El item 2 no tiene subitems; vuelva a armar la operación."},
    {"update itemventaja set iditem = 9 %1",
     "0|Quedan afuera las ventajas sin item (1); vuelva a armar la operación antes de enviar."},
};

TEST_P(ControlesDeDeclaracion, EveryFaultIsOneSentenceWithItsItem) {
    for (const CambioYAviso &c : cambios) {
        SCOPED_TRACE(c.cambio);
        TearDown();
        SetUp();
        const QString cambio = QString::fromUtf8(c.cambio);
        EXPECT_GT(ejecutar(cambio.contains("%1"_L1) ? cambio.arg(u"where interno = 'A1'"_s) : cambio), 0);
        EXPECT_EQ(advertencias().join(u'\n').toStdString(), c.avisos);
        // A warning keeps nobody from writing.
        EXPECT_EQ(DefectoDelDocumento(documento()), QString());
    }
}

TEST_P(ControlesDeDeclaracion, WhatTheHeaderSpreadsIsPartOfTheFobOfItsItems) {
    // 60 + 45 of the items are 100 of the header and 5 of a code.
    ejecutar(u"update item set fobtotal = 45 where interno = 'A1' and id = 2"_s);
    ejecutar(u"update groupsubitems set fob = 45 where interno = 'A1' and id = 2"_s);
    EXPECT_EQ(advertencias().size(), 1);
    ejecutar(u"insert into prorrateo (interno,codigo,valor) values ('A1','EMB',5)"_s);
    EXPECT_EQ(advertencias(), QStringList());
    // A value for all lines holds in the place of the codes.
    ejecutar(u"update caratula set valoraprorratear = 4 where interno = 'A1'"_s);
    EXPECT_EQ(
        advertencias().join(u'\n').toStdString(),
        "0|El FOB de los items suma 105.00 y el de la carátula es 104.00; vuelva a armar la operación.");
}

TEST_P(ControlesDeDeclaracion, AFeeOfTheOperationIsNoSumOfItsItems) {
    ejecutar(u"insert into liqcero (interno,idconcepto,valor,pgc) values ('A1','500',10,'P')"_s);
    EXPECT_EQ(advertencias(), QStringList());
}

TEST_P(ControlesDeDeclaracion, ALiquidationThatIsPendingIsTold) {
    ctx->LiquidacionPendiente = true;
    EXPECT_EQ(advertencias(),
              QStringList{u"0|La liquidación está pendiente; recalcúlela en la pantalla de items."_s});
}

TEST_P(ControlesDeDeclaracion, TheRegimeWithoutPackagesIsNotAskedForThem) {
    ejecutar(u"update caratula set factura9 = null, idsubreg = 'IDA4' where interno = 'A1'"_s);
    EXPECT_EQ(advertencias(), QStringList());
}

TEST_P(ControlesDeDeclaracion, CodesAreLookedUpOnlyWhereTheirTableHasRows) {
    ejecutar(u"insert into pais (id,descripcion) values ('438','ALEMANIA')"_s, u"SYSTABLAS"_s);
    ejecutar(u"insert into divisas (id,descripcion) values ('dol','DOLAR')"_s);
    EXPECT_EQ(advertencias().join(u'\n').toStdString(),
              "2|En el item 2, el país \"212\" no está en su tabla; corrija el código.\n"
              "2|En el item 2, el país \"212\" no está en su tabla; corrija el código.");
    ejecutar(u"insert into pais (id,descripcion) values ('212','EEUU')"_s, u"SYSTABLAS"_s);
    ejecutar(u"insert into aduana (id,descripcion) values ('038','MENDOZA')"_s, u"SYSTABLAS"_s);
    EXPECT_EQ(advertencias().join(u'\n').toStdString(),
              "0|En la carátula, la aduana \"001\" no está en su tabla; corrija el código.");
}

TEST_P(ControlesDeDeclaracion, AmountsAreToldWithTheWorkstationsSeparator) {
    ctx->SeparadorDecimal = u',';
    ejecutar(u"update caratula set fletedivisas = 10.01 where interno = 'A1'"_s);
    EXPECT_EQ(
        advertencias().join(u'\n').toStdString(),
        "0|El flete de los items suma 10,00 y el de la carátula es 10,01; vuelva a armar la operación.");
}

}  // namespace
