// The run: what it writes, what stops it, and two people at once.

#include <gtest/gtest.h>

#include "tests/sheet/hoja.h"
#include "tests/support/traza.h"

using namespace Qt::StringLiterals;

namespace {

class CorridaDeHojas : public HojaDePrueba {
 protected:
    void SetUp() override {
        HojaDePrueba::SetUp();
        cargar(u"importacion"_s);
        ejecutar(u"insert into tabla (linea) values ('de otra persona')"_s, u"PERSONAL"_s);
    }
    void TearDown() override {
        Conexion::fijarTraza({});
        HojaDePrueba::TearDown();
    }
    /// The stored table as everyone else sees it.
    QString tablaGuardada() { return filas(u"select linea from tabla"_s, u"PERSONAL"_s); }
    /// The rows of every table that an operation has.
    QString todo() {
        QString texto;
        for (const char *tabla : {"caratula", "item", "itemliq", "liqcero", "itemventaja", "iteminfo",
                                  "sysflag", "groupsubitems", "subitems"})
            texto += QLatin1String(tabla) + u'\n' + filas(u"select * from "_s + QLatin1String(tabla)) + u'\n';
        return texto;
    }
    std::string esperada() const { return leer(u"importacion"_s, "hoja.txt"); }
};
EN_AMBOS_STORES(CorridaDeHojas);

TEST_P(CorridaDeHojas, TheTableIsEmptiedOnceAndTheLinesGoInOneByOneAsSpelled) {
    QStringList propias;
    HojaDeOperacion hoja;
    {
        const Traza traza;
        hoja = imprimir(0, 2, true);
        propias = traza.sentencias().filter(u"PERSONAL|"_s);
    }
    QStringList previstas{u"PERSONAL|delete from tabla"_s};
    for (const QString &linea : lineasDe(hoja))
        previstas << u"PERSONAL|insert into tabla (linea) values ('"_s + linea + u"')"_s;
    previstas << u"PERSONAL|select * from tabla order by idlin"_s;
    EXPECT_EQ(propias.join(u'\n').toStdString(), previstas.join(u'\n').toStdString());
}

TEST_P(CorridaDeHojas, NothingElseIsWritten) {
    const QString antes = todo();
    QStringList escritas;
    {
        const Traza traza;
        imprimir(0, 2, true);
        for (const QString &sentencia : traza.sentencias())
            if (!sentencia.section(u'|', 1).startsWith(u"select "_s) && !sentencia.startsWith(u"PERSONAL|"_s))
                escritas << sentencia;
    }
    EXPECT_EQ(escritas, QStringList());
    EXPECT_EQ(todo().toStdString(), antes.toStdString());
    EXPECT_EQ(tablaGuardada(), u"de otra persona"_s);
}

TEST_P(CorridaDeHojas, WhatIsLeftToRecalculateStaysSo) {
    // 601 and 611 ask for a recalculation to be written.
    cargar(u"exportacion"_s);
    for (const bool pendiente : {false, true}) {
        ctx->LiquidacionPendiente = pendiente;
        ASSERT_TRUE(imprimir(0, 1).hecha);
        EXPECT_EQ(ctx->LiquidacionPendiente, pendiente);
    }
}

TEST_P(CorridaDeHojas, ASecondRunBeginsWithAnEmptyTable) {
    ASSERT_TRUE(imprimir(1, 2, true).hecha);
    EXPECT_EQ(comoTexto(imprimir(0, 2, true)), esperada());
}

TEST_P(CorridaDeHojas, TwoPeopleAtOnceDoNotMixTheirLines) {
    Registro deLaOtra;
    const std::unique_ptr<AppContext> otra = tienda->contexto(deLaOtra);
    otra->SeparadorDecimal = u',';
    otra->opciones.IVARIN = 21;
    std::string hojaDeLaOtra;
    const HojaDeOperacion hoja = imprimir(0, 2, true, [&](const AvanceDeHoja &avance) {
        // The other one prints while this one is in the middle of its lines.
        if (avance.hechos == 1) hojaDeLaOtra = comoTexto(pr_ImprimirLiq(*otra, {interno, 2, 2, true}, {}));
        return true;
    });
    EXPECT_EQ(comoTexto(hoja), esperada());
    EXPECT_EQ(hojaDeLaOtra, esperada().substr(esperada().rfind("===")));
    EXPECT_EQ(tablaGuardada(), u"de otra persona"_s);
}

TEST_P(CorridaDeHojas, AFailingStatementStopsTheSheetWithItsText) {
    ejecutar(u"alter table itemventaja rename to ventajas_aparte"_s);
    ctx->LiquidacionPendiente = true;
    try {
        imprimir(0, 2);
        ADD_FAILURE() << "nothing was refused";
    } catch (const Falla &e) {
        EXPECT_TRUE(e.descripcion.contains(u"itemventaja"_s)) << e.descripcion.toStdString();
        EXPECT_EQ(e.fuente, u"INTERNOS"_s);
    }
    EXPECT_TRUE(ctx->LiquidacionPendiente);
    EXPECT_TRUE(registro.mensajes.empty()) << "whoever asked for the sheet tells it";
    ejecutar(u"alter table ventajas_aparte rename to itemventaja"_s);
    EXPECT_EQ(comoTexto(imprimir(0, 2, true)), esperada()) << "the connections are as good as before";
    EXPECT_EQ(tablaGuardada(), u"de otra persona"_s);
}

TEST_P(CorridaDeHojas, AStoreWithoutTheTableOfLinesSaysSo) {
    ejecutar(u"drop table tabla"_s, u"PERSONAL"_s);
    try {
        imprimir(0, 0);
        ADD_FAILURE() << "nothing was refused";
    } catch (const Falla &e) {
        EXPECT_TRUE(e.descripcion.contains(u"tabla"_s)) << e.descripcion.toStdString();
        EXPECT_EQ(e.fuente, u"PERSONAL"_s);
    }
}

TEST_P(CorridaDeHojas, AStopInTheMiddleLeavesNoSheetAndTheNextOneIsWhole) {
    for (const int hasta : {0, 1, 2}) {
        const HojaDeOperacion hoja =
            imprimir(0, 2, true, [hasta](const AvanceDeHoja &avance) { return avance.hechos < hasta; });
        EXPECT_TRUE(hoja.detenida);
        EXPECT_FALSE(hoja.hecha);
        EXPECT_TRUE(hoja.documento.reporte.renglones.empty());
    }
    EXPECT_EQ(comoTexto(imprimir(0, 2, true)), esperada());
    EXPECT_EQ(tablaGuardada(), u"de otra persona"_s);
}

TEST_P(CorridaDeHojas, TheSumOfTheOperationIsStoppedBetweenItsItems) {
    int preguntas = 0;
    const HojaDeOperacion hoja =
        imprimir(0, 0, false, [&preguntas](const AvanceDeHoja &) { return ++preguntas < 3; });
    EXPECT_TRUE(hoja.detenida);
    EXPECT_EQ(preguntas, 3) << "ahead of the page, and ahead of each of its two items";
}

}  // namespace
