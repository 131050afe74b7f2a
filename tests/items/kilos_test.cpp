// Net kilos spread over the groups that lack them, and the check that no item mixes.

#include <gtest/gtest.h>

#include "frame/base/numbers.h"
#include "tests/items/armado.h"

using namespace Qt::StringLiterals;

namespace {

class Kilos : public ArmadoDePrueba {
 protected:
    /// Groups of the given kilos and FOB, as "kilos/fob kilos/fob ...", all in item 1.
    void grupos(const char *texto) {
        for (const QString &uno : QString::fromLatin1(texto).split(QLatin1Char(' ')))
            grupo({{"id", "1"},
                   {"kgneto", uno.section(QLatin1Char('/'), 0, 0)},
                   {"fob", uno.section(QLatin1Char('/'), 1)}});
    }
    /// The kilos of the groups in the order of their lines, joined by blanks.
    std::string kilos() {
        return filas(u"select kgneto from groupsubitems where interno = 'OP1' order by idsub"_s)
            .replace(QLatin1Char('\n'), QLatin1Char(' '))
            .toStdString();
    }
    std::string marcas() {
        return filas(u"select flgkg from groupsubitems where interno = 'OP1' order by idsub"_s)
            .replace(QLatin1Char('\n'), QLatin1Char('|'))
            .toStdString();
    }
    std::string netos() { return f("select id,totalkneto from item where interno = 'OP1' order by id"); }
    std::string unMensaje() {
        return registro.mensajes.size() == 1 ? registro.mensajes[0].texto.toStdString()
                                             : std::to_string(registro.mensajes.size()) + " messages";
    }
};

struct Reparto {
    const char *que;
    const char *grupos;
    double total;
    const char *kilos;
    const char *mensaje;
};
const Reparto repartos[] = {
    // 25 less 5 given are 20, over a FOB of 400: 100 takes 5, 300 takes 15.
    {"in proportion to FOB", "0/100 0/300 5/600", 25, "5 15 5", ""},
    // 3.33 each is 9.99: the heaviest, the first of equals, takes the cent.
    {"the residual goes to the heaviest", "0/1 0/1 0/1", 10, "3.34 3.33 3.33", ""},
    // 10 * 1/3 = 3.33, 10 * 2/3 = 6.67: nothing is left over.
    {"no residual", "0/1 0/2", 10, "3.33 6.67", ""},
    // Nothing to spread: two groups need 0.02, which the given row pays.
    {"kilos equal to the given ones", "5/100 0/100 0/50", 5, "4.98 0.01 0.01", ""},
    // Without FOB no share; the floor of 0.01 comes out of the heaviest spread group.
    {"a group without FOB falls to the floor", "0/0 0/100", 10, "0.01 9.99", ""},
    // 0.01 each needs 0.04. 0.03 does not reach: 0.04 - 0.03 + 0.01 = 0.02 stay to be taken and the row gives
    // 0.02;
    // 0.02 does not exceed 0.02: 0.02 - 0.02 + 0.01 = 0.01 stay, and the row gives 0.01. No row is above the
    // floor
    // any more. 0.01 * 6 = 0.06 is 0.01 above the target, and no spread group is heavy enough.
    {"the floor is taken from row after row", "0.03/1 0.02/1 0/100 0/100 0/100 0/100", 0.05,
     "0.01 0.01 0.01 0.01 0.01 0.01",
     "Error al redondear prorrateo, no se encontro subitems con kilos mayor a 0.01\r\n"
     "No se puede continuar.."},
    // 0.10 asked, 0.03 there: 0.08 stay and the row falls to -0.05, which the floor lifts. Eleven rows of
    // 0.01.
    {"a row that falls below zero is lifted too", "0.03/1 0/9 0/9 0/9 0/9 0/9 0/9 0/9 0/9 0/9 0/9", 0.03,
     "0.01 0.01 0.01 0.01 0.01 0.01 0.01 0.01 0.01 0.01 0.01",
     "Error al redondear prorrateo, no se encontro subitems con kilos mayor a 0.08\r\n"
     "No se puede continuar.."},
    // 0.04 / 10 rounds to 0.00: ten rows of 0.01 are 0.06 above the target.
    {"a residual larger than any spread group", "0/1 0/1 0/1 0/1 0/1 0/1 0/1 0/1 0/1 0/1", 0.04,
     "0.01 0.01 0.01 0.01 0.01 0.01 0.01 0.01 0.01 0.01",
     "Error al redondear prorrateo, no se encontro subitems con kilos mayor a 0.06\r\n"
     "No se puede continuar.."},
    // No FOB among the empty ones: the total of 100 divides, and 0 * 8 / 100 is 0. 2 - 0.01 pays the floor.
    {"without FOB among the empty ones the total divides", "2/100 0/0", 10, "1.99 0.01",
     "Error al redondear prorrateo, no se encontro subitems con kilos mayor a 8\r\nNo se puede continuar.."},
    // 0.1 + 0.2 is a trace above 0.3 in binary: still the given kilos.
    {"a sum of cents carries no trace of binary", "0.1/1 0.2/1 0/1", 0.3, "0.1 0.19 0.01", ""},
    // 7 - (-3) = 10 over both: 5 each. Their sum is 3 above the target, which the first of equals gives back.
    {"negative kilos count as none", "-3/100 0/100", 7, "2 5", ""},
    {"below the given kilos nothing changes", "5/100 6.25/100 0/100", 11, "5 6.25 0",
     "El kilo a prorratear (11) debe ser mayor a 11.25"},
    {"all have kilos", "5/100 6/100", 20, "5 6",
     "No hay registros para prorratear!\r\n"
     "ya que todos los articulos tienen cargado kilo neto.\r\n"
     "Si desea prorratear debe poner los kilos en 0 (cero)\r\n"
     "En Carga de Subitems"},
};

TEST_P(Kilos, AreSpreadOverTheGroupsThatLackThem) {
    for (const Reparto &c : repartos) {
        registro = {};
        linea = 0;
        ejecutar(u"delete from groupsubitems where interno = 'OP1'"_s);
        ejecutar(u"delete from item where interno = 'OP1'"_s);
        grupos(c.grupos);
        item(1, {{"totalkneto", "77"}});
        item(0, {{"totalkneto", "0"}});
        Prorratear_ItemCeroEx(*corrida, c.total);
        EXPECT_EQ(kilos(), c.kilos) << c.que;
        if (*c.mensaje) {
            EXPECT_EQ(unMensaje(), c.mensaje) << c.que;
            EXPECT_EQ(netos(), "0|0\n1|77") << c.que << ": item totals unwritten";
        } else {
            EXPECT_TRUE(registro.mensajes.empty()) << c.que << ": " << unMensaje();
            const QString total = numeros::aTexto(c.total);
            EXPECT_EQ(netos(), u"0|%1\n1|%1"_s.arg(total).toStdString()) << c.que;
        }
    }
}

TEST_P(Kilos, ATargetBelowTheSumChangesNothingNotEvenAMark) {
    grupos("5/100 6.25/100 0/100");
    Prorratear_ItemCeroEx(*corrida, 11);
    EXPECT_EQ(marcas(), "<null>|<null>|<null>");
}

TEST_P(Kilos, WithKilosOnAllGroupsTheBoxHasItsTitleAndNothingChanges) {
    grupos("5/100 6/100");
    item(1, {{"totalkneto", "11"}});
    Prorratear_ItemCeroEx(*corrida, 20);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].titulo.toStdString(), "PRORRATEO DE KILOS NETO..");
    EXPECT_EQ(kilos(), "5 6");
    EXPECT_EQ(netos(), "1|11");
}

TEST_P(Kilos, MessagesShowNumbersAsTheWorkstationWritesThem) {
    grupos("5/100 6.25/100 0/100");
    for (const QChar separador : {QLatin1Char('.'), QLatin1Char(',')}) {
        ctx->SeparadorDecimal = separador;
        registro = {};
        Prorratear_ItemCeroEx(*corrida, 11.1);
        EXPECT_EQ(unMensaje(), separador == QLatin1Char('.')
                                   ? "El kilo a prorratear (11.1) debe ser mayor a 11.25"
                                   : "El kilo a prorratear (11,1) debe ser mayor a 11,25");
    }
    // 8.75 short of the target, which the only spread group, of no FOB and 0.01 kilos, cannot take.
    ejecutar(u"update groupsubitems set fob = 0 where kgneto = 0"_s);
    registro = {};
    Prorratear_ItemCeroEx(*corrida, 20);
    EXPECT_EQ(unMensaje(),
              "Error al redondear prorrateo, no se encontro subitems con kilos mayor a 8,75\r\n"
              "No se puede continuar..");
}

TEST_P(Kilos, SpreadGroupsAreMarkedAndOldMarksOfOthersStay) {
    grupos("0/100 5/100");
    Prorratear_ItemCeroEx(*corrida, 15);
    EXPECT_EQ(marcas(), "*|");
    EXPECT_EQ(kilos(), "10 5");
    // A second pass finds all groups with kilos; the mark of the first stays.
    Prorratear_ItemCeroEx(*corrida, 15);
    EXPECT_EQ(marcas(), "*|");
}

TEST_P(Kilos, MeasuresInKilosFollowAndItemsTakeTheirSums) {
    grupo({{"id", "1"},
           {"kgneto", "0"},
           {"fob", "10"},
           {"estadistica", "'01'"},
           {"valorrelacionestadistica", "9"}});
    grupo({{"id", "1"},
           {"kgneto", "0"},
           {"fob", "30"},
           {"estadistica", "'01'"},
           {"valorrelacionestadistica", "9"}});
    grupo({{"id", "2"}, {"kgneto", "0"}, {"fob", "20"}, {"deresp", "'01'"}, {"valorderesp", "9"}});
    grupo({{"id", "3"}, {"kgneto", "4"}, {"fob", "40"}, {"valorrelacionestadistica", "9"}});
    item(1, {{"estadistica", "'01'"}, {"valorrelacionestadistica", "18"}, {"valorderesp", "6"}});
    item(2, {{"deresp", "'01'"}, {"valorderesp", "9"}, {"valorrelacionestadistica", "6"}});
    item(3, {{"valorrelacionestadistica", "9"}, {"valorderesp", "6"}});
    item(0, {{"totalkneto", "0"}});
    // 64 - 4 = 60 over a FOB of 60: 10, 30, 20.
    Prorratear_ItemCeroEx(*corrida, 64);
    EXPECT_EQ(f("select kgneto,valorrelacionestadistica,valorderesp "
                "from groupsubitems "
                "where interno = 'OP1' "
                "order by idsub"),
              "10|10|0\n30|30|0\n20|1|20\n4|9|0");
    EXPECT_EQ(f("select id,totalkneto,valorrelacionestadistica,valorderesp "
                "from item "
                "where interno = 'OP1' and id > 0 "
                "order by id"),
              "1|40|40|6\n2|20|6|20\n3|4|9|6");
    EXPECT_EQ(f("select totalkneto from item where interno = 'OP1' and id = 0"), "64");
}

TEST_P(Kilos, TheResidualChangesOneRowAmongEqualOnes) {
    for (int n = 0; n < 3; ++n)
        insertar(u"groupsubitems"_s,
                 {{"interno", "'OP1'"}, {"id", "1"}, {"idsub", "1"}, {"kgneto", "0"}, {"fob", "1"}});
    Prorratear_ItemCeroEx(*corrida, 10);
    EXPECT_EQ(f("select kgneto,count(*) as n "
                "from groupsubitems "
                "where interno = 'OP1' "
                "group by kgneto "
                "order by kgneto"),
              "3.33|2\n3.34|1");
}

TEST_P(Kilos, TheBarPassesItsMarks) {
    grupos("0/100");
    Prorratear_ItemCeroEx(*corrida, 5);
    QStringList marcasDeBarra;
    for (const Avance &a : registro.avances) {
        EXPECT_EQ(a.control.toStdString(), "Pb1");
        marcasDeBarra << QString::number(a.valor);
    }
    EXPECT_EQ(marcasDeBarra.join(QLatin1Char(' ')).toStdString(), "10 20 30 40 50 70 80 100");
}

TEST_P(Kilos, WithoutAnyFobTheStoreRefusesTheDivision) {
    grupos("0/0");
    EXPECT_THROW(Prorratear_ItemCeroEx(*corrida, 5), Falla);
}

TEST_P(Kilos, AnotherOperationIsNotTouched) {
    grupos("0/100");
    ejecutar(u"insert into groupsubitems (interno,id,idsub,kgneto,fob) values ('OTRA',1,900,0,1000)"_s);
    Prorratear_ItemCeroEx(*corrida, 5);
    EXPECT_EQ(kilos(), "5");
    EXPECT_EQ(f("select kgneto,flgkg from groupsubitems where interno = 'OTRA'"), "0|<null>");
}

TEST_P(Kilos, AfterAResidualThatFitsNowhereTheRunGoesOn) {
    entornoDeCorrida();
    ejecutar(u"update caratula set dckgneto = 0.04 where interno = 'OP1'"_s);
    for (int n = 1; n <= 10; ++n) renglon({{"preciounitario", QString::number(n)}, {"fob", "10"}});
    ctx->ChequeoArmado = u"SI"_s;
    EXPECT_TRUE(Generar(*ctx, u"OP1"_s, {}));
    EXPECT_EQ(ctx->ChequeoArmado.toStdString(), "SI");
    EXPECT_EQ(unMensaje(),
              "Error al redondear prorrateo, no se encontro subitems con kilos mayor a 0.06\r\n"
              "No se puede continuar..");
    EXPECT_EQ(netos(), "0|0\n1|0") << "item totals unwritten";
    EXPECT_EQ(f("select factura8 from caratula where interno = 'OP1'"), "N");
    EXPECT_TRUE(registro.avances.back().tipo != Avance::Tipo::PasoCorriendo);
}

// The check of integrity.

class Integridad : public Kilos {
 protected:
    std::string verificar() {
        registro = {};
        return VerificarIntegridad(*corrida).toStdString();
    }
    std::size_t informados() const { return registro.informes.size(); }
};

TEST_P(Integridad, AnItemOutsideKilosThatMixesIsReportedAndEndsTheCheck) {
    item(1, {{"totalkneto", "5"}});
    item(2, {{"totalkneto", "5"}});
    for (const char *id : {"1", "2"}) {
        grupo({{"id", QString::fromLatin1(id)}, {"kgneto", "5"}});
        grupo({{"id", QString::fromLatin1(id)}, {"kgneto", "0"}});
    }
    EXPECT_EQ(verificar(), "NO");
    EXPECT_EQ(informados(), 1U) << "the second is not reached";
}

TEST_P(Integridad, AllKilosOrNoneIsInOrder) {
    item(1, {{"totalkneto", "10"}});
    grupo({{"id", "1"}, {"kgneto", "5"}});
    grupo({{"id", "1"}, {"kgneto", "5"}});
    item(2, {{"totalkneto", "0"}});
    grupo({{"id", "2"}, {"kgneto", "0"}});
    EXPECT_EQ(verificar(), "SI");
    EXPECT_EQ(informados(), 0U);
}

TEST_P(Integridad, TheMeasureInKilosBecomesTheItemsNetKilos) {
    struct Caso {
        const char *estadistica;
        const char *deresp;
        const char *neto;
    };
    // Statistical 3 + 4.005 -> 7.01 at two decimals; specific 5 + 6 = 11. With both, the statistical one.
    for (const Caso &c :
         {Caso{"'01'", "''", "7.01"}, Caso{"'07'", "'01'", "11"}, Caso{"'01'", "'01'", "7.01"}}) {
        ejecutar(u"delete from item where interno = 'OP1'"_s);
        ejecutar(u"delete from groupsubitems where interno = 'OP1'"_s);
        const Fila unidades{{"id", "1"},
                            {"estadistica", QString::fromLatin1(c.estadistica)},
                            {"deresp", QString::fromLatin1(c.deresp)}};
        item(1, con(unidades, {{"totalkneto", "99"}, {"valorrelacionestadistica", "1"}}));
        grupo(con(unidades, {{"valorrelacionestadistica", "3"}, {"valorderesp", "5"}}));
        grupo(con(unidades, {{"valorrelacionestadistica", "4.005"}, {"valorderesp", "6"}}));
        EXPECT_EQ(verificar(), "SI") << c.estadistica;
        EXPECT_EQ(netos(), std::string("1|") + c.neto);
    }
}

TEST_P(Integridad, AnItemInKilosThatMixesIsReportedLosesItsNetKilosAndTheCheckGoesOn) {
    for (const char *id : {"1", "2"}) {
        const QString n = QString::fromLatin1(id);
        item(n.toInt(), {{"estadistica", "'01'"}, {"valorrelacionestadistica", "5"}, {"totalkneto", "5"}});
        grupo({{"id", n}, {"estadistica", "'01'"}, {"valorrelacionestadistica", "5"}});
        grupo({{"id", n}, {"estadistica", "'01'"}, {"valorrelacionestadistica", "0"}});
    }
    EXPECT_EQ(verificar(), "NO");
    EXPECT_EQ(informados(), 2U);
    // The empty groups' sum is written behind the full ones'.
    EXPECT_EQ(netos(), "1|0\n2|0");
}

TEST_P(Integridad, TheSpecificMeasureIsCheckedLikewise) {
    item(1, {{"deresp", "'01'"}, {"valorderesp", "5"}});
    grupo({{"id", "1"}, {"deresp", "'01'"}, {"valorderesp", "5"}});
    grupo({{"id", "1"}, {"deresp", "'01'"}, {"valorderesp", "0"}});
    EXPECT_EQ(verificar(), "NO");
    EXPECT_EQ(informados(), 1U);
}

TEST_P(Integridad, WithBothMeasuresInKilosThereIsNoEmptyGroup) {
    item(1, {{"estadistica", "'01'"}, {"deresp", "'01'"}, {"valorrelacionestadistica", "5"}});
    grupo({{"id", "1"},
           {"estadistica", "'01'"},
           {"deresp", "'01'"},
           {"valorrelacionestadistica", "5"},
           {"valorderesp", "5"}});
    grupo({{"id", "1"},
           {"estadistica", "'01'"},
           {"deresp", "'01'"},
           {"valorrelacionestadistica", "0"},
           {"valorderesp", "0"}});
    EXPECT_EQ(verificar(), "SI");
    EXPECT_EQ(netos(), "1|5");
}

TEST_P(Integridad, AnItemWhoseGroupsHoldNoMeasureIsReportedAndEndsTheCheck) {
    item(1, {{"estadistica", "'01'"}, {"valorrelacionestadistica", "5"}, {"totalkneto", "5"}});
    item(2, {{"estadistica", "'01'"}, {"valorrelacionestadistica", "5"}, {"totalkneto", "5"}});
    EXPECT_EQ(verificar(), "NO");
    EXPECT_EQ(informados(), 1U);
    EXPECT_EQ(netos(), "1|5\n2|5") << "nothing was measured, nothing is written";
}

TEST_P(Integridad, GroupsInOtherUnitsAreNoKilos) {
    item(1, {{"estadistica", "'01'"}, {"valorrelacionestadistica", "5"}, {"totalkneto", "5"}});
    grupo({{"id", "1"}, {"estadistica", "'07'"}, {"valorrelacionestadistica", "500"}});
    EXPECT_EQ(verificar(), "NO");
    EXPECT_EQ(netos(), "1|5") << "500 pieces are not 500 kilos";
}

TEST_P(Integridad, AnItemWithoutMeasureIsNotLookedAt) {
    item(1, {{"estadistica", "'01'"}, {"valorrelacionestadistica", "0"}, {"valorderesp", "0"}});
    item(0, {{"estadistica", "NULL"}, {"deresp", "NULL"}, {"totalkneto", "50"}});
    grupo({{"id", "1"}, {"estadistica", "'01'"}, {"valorrelacionestadistica", "0"}});
    EXPECT_EQ(verificar(), "SI");
}

TEST_P(Integridad, TheReportShowsTheGroupsInColumnsUnderBothSeparators) {
    grupo({{"id", "7"},
           {"cantidad", "12.5"},
           {"preciounitario", "3"},
           {"estadistica", "'01'"},
           {"valorrelacionestadistica", "1234.567"},
           {"deresp", "''"},
           {"kgneto", "0"}});
    grupo({{"id", "7"},
           {"ncm", "'99'"},
           {"idunidad", "'1'"},
           {"estadistica", "NULL"},
           {"deresp", "'02'"},
           {"fob", "1"}});
    for (const QChar separador : {QLatin1Char('.'), QLatin1Char(',')}) {
        ctx->SeparadorDecimal = separador;
        registro = {};
        MostrarSubItems(*corrida, 7);
        ASSERT_EQ(informados(), 1U);
        EXPECT_FALSE(registro.informes[0].comoLista);
        QString esperado =
            u"Verificación de Subitem's:\r\n"
            "--------------------------\r\n\r\n"
            "Los siguientes subitem's deberán tener cargados todos kilogramos o ninguno.\r\n"
            "Por favor revise los campos ESTADÍSTICA si es 01, DERECHO ESPECIFICO si es 01\r\n"
            "y Kilogramos Neto.\r\n\r\n"
            "UE = UNIDAD ESTADISTICA, UDE = UNIDAD DE DERECHO ESPECIFICO\r\n\r\n"
            "NCM             UD   CANTIDAD PRE. UNIT. UE   CANT. UE UDE  CANT UDE.    KG NETO\r\n"
            "--------------- -- ---------- ---------- -- ---------- --- ---------- ----------\r\n"_s;
        const QString renglones =
            u"7318.15.00.100A 07      12.50      03.00 01    1234.57          00.00      00.00\r\n"
            "99              1       01.00      01.00         01.00 02       00.00      01.00"_s;
        esperado += separador == QLatin1Char('.') ? renglones : [&] {
            // The dots of the position are no decimal marks.
            QString con = renglones;
            for (const char *numero : {"12.50", "03.00", "1234.57", "00.00", "01.00"}) {
                QString coma = QString::fromLatin1(numero);
                con.replace(coma, QString(coma).replace(QLatin1Char('.'), QLatin1Char(',')));
            }
            return con;
        }();
        EXPECT_EQ(registro.informes[0].texto.toStdString(), esperado.toStdString());
    }
}

EN_AMBOS_STORES(Kilos);
EN_AMBOS_STORES(Integridad);

}  // namespace
