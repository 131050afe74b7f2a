// What a quote shows, and the arithmetic of its totals.

#include <gmock/gmock.h>

#include "frame/base/ini.h"
#include "tests/quote/presupuestos.h"
#include "tests/support/traza.h"

using namespace Qt::StringLiterals;

namespace {

class Quote : public Presupuestos {
 protected:
    std::string monto(double valor) const {
        return numeros::Format(valor, u"00.00", ctx->SeparadorDecimal).toStdString();
    }
    /// "concept|kind|pesos|dollars", a line a duty.
    std::string gastos(const Presupuesto &p) const {
        std::string texto;
        for (const GastoDeDespacho &g : p.gastos)
            texto += g.concepto.toStdString() + '|' + g.pgc.toStdString() + '|' + monto(g.pesos) + '|' +
                     monto(g.dolares) + '\n';
        return texto;
    }
    /// "P pesos/dollars G ... C ...".
    std::string totales(const Presupuesto &p) const {
        std::string texto;
        for (const auto &[nombre, total] :
             {std::pair{"P ", p.totalP}, std::pair{" G ", p.totalG}, std::pair{" C ", p.totalC}})
            texto += nombre + monto(total.pesos) + '/' + monto(total.dolares);
        return texto;
    }
    std::string acuentaGuardada() {
        return filas(u"select factura6 from caratula order by interno"_s).toStdString();
    }
};
EN_AMBOS_STORES(Quote);

TEST_P(Quote, ShowsTheOperationItsPartiesAndItsValues) {
    const Presupuesto p = cargar();
    EXPECT_EQ(p.LbDespachante, u"FERREYRA HORACIO"_s);
    EXPECT_EQ(p.LbCliente, u"HIDRAULICA DEL PLATA S.A."_s);
    EXPECT_EQ(p.LbCLIDOM, u"Juan B. Justo 4820"_s);
    EXPECT_EQ(p.TxtEmail, u"comex@hidraulica.example"_s);
    EXPECT_EQ(p.LbFOB, u"1500,26"_s);
    EXPECT_EQ(p.LbPaseFob, u"01,085000"_s);
    EXPECT_EQ(p.LbFlete, u"2350,00"_s);
    EXPECT_EQ(p.LbPaseFlete, u"01,000000"_s);
    EXPECT_EQ(p.LbSeguro, u"410,00"_s);
    EXPECT_EQ(p.LbPaseSeguro, u"01,270000"_s);
    EXPECT_EQ(p.LbAjInc, u"22,00"_s) << "the items but that of the operation";
    EXPECT_EQ(p.LbAjDed, u"10,50"_s);
    EXPECT_EQ(p.LbBaseImp, u"4510,96"_s);
    EXPECT_EQ(p.LbBaseIVA, u"342,10"_s);
    EXPECT_EQ(p.TxtPase, u"1000,000000"_s);
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(Quote, SendsItsStatementsAsTheyAreSpelled) {
    const Traza traza;
    cargar();
    EXPECT_EQ(
        traza.texto(),
        "INTERNOS|select * from caratula where interno = 'OP 1'\n"
        "PERSONAL|select nombre from despadu where cuit = '20167890122'\n"
        "PERSONAL|select nombre,domicilio,email from clientes where cuit = '30708123451'\n"
        "INTERNOS|select sum(fob) as total from groupsubitems where interno = 'OP 1'\n"
        "INTERNOS|select ajusteded as total from item where isnumeric(ajusteded)<>0 and id<>0 and interno = "
        "'OP 1'\n"
        "INTERNOS|select ajusteinc as total from item where isnumeric(ajusteinc)<>0 and id<>0 and interno = "
        "'OP 1'\n"
        "INTERNOS|select * from liqcero where LEFT(idconcepto,3) <> '###' and interno = 'OP 1' order by pgc "
        "desc,concepto\n"
        "INTERNOS|select valor from liqcero where idconcepto = '###baseiva' and interno = 'OP 1'\n"
        "INTERNOS|select * from itempresu where interno = 'OP 1'\n"
        "INTERNOS|select * from itemref where interno = 'OP 1'");
}

TEST_P(Quote, AnOperationThatIsNotThereIsTold) {
    Presupuesto p;
    EXPECT_FALSE(CargarCaratula(*ctx, u"NADA"_s, p));
    EXPECT_EQ(ultimo(), "No se encontro interno!");
}

TEST_P(Quote, AnEmptyOperationHasNoLinesAndTotalsOfNothing) {
    Presupuesto p;
    ASSERT_TRUE(CargarCaratula(*ctx, u"OTRA"_s, p));
    EXPECT_TRUE(p.gastos.empty());
    EXPECT_EQ(totales(p), "P 00,00/00,00 G 00,00/00,00 C 00,00/00,00");
    EXPECT_EQ(p.LbFOB, u"00,00"_s);
    EXPECT_EQ(p.LbPaseFob, u"00,000000"_s);
    EXPECT_EQ(p.LbBaseImp, u"00,00"_s);
    EXPECT_EQ(p.LbBaseIVA, u"00,00"_s);
    EXPECT_EQ(monto(Resumir(p).subtotal), "00,00");
    EXPECT_EQ(monto(Resumir(p).totalGeneral), "-07,00");
    ctx->SeparadorDecimal = u'.';
    ASSERT_TRUE(CargarCaratula(*ctx, u"OTRA"_s, p));
    EXPECT_EQ(p.LbFOB, u"00.00"_s) << "the workstation's separator";
}

// The duties at 1000 pesos a dollar, by kind from behind and by name; what has no value is left out.
TEST_P(Quote, TheDutiesHaveTheirTotalsByKind) {
    const Presupuesto p = cargar();
    EXPECT_EQ(gastos(p),
              "DERECHOS|P|100000,00|100,00\n"
              "TASA ESTADISTICA|P|20500,00|20,50\n"
              "IVA|G|50250,00|50,25\n"
              "REINTEGRO|C|30000,00|30,00\n"
              "ARANCEL||10000,00|10,00\n");
    EXPECT_EQ(totales(p), "P 120500,00/120,50 G 50250,00/50,25 C 30000,00/30,00");
}

TEST_P(Quote, RowsOfLiqceroWhoseCodeBeginsWithThreeMarksNeverReachItsLines) {
    ejecutar(
        u"update liqcero set concepto = 'BASE', pgc = 'P' where interno = 'OP 1' and idconcepto like '%base%'"_s);
    const Presupuesto p = cargar();
    EXPECT_EQ(p.gastos.size(), 5U);
    EXPECT_EQ(totales(p), "P 120500,00/120,50 G 50250,00/50,25 C 30000,00/30,00");
}

struct CasoDeBase {
    const char *cambio;  ///< of the header
    const char *base;
};

// From 1627.7821 + 2350 + 520.7 + 23.87 - 11.3925 = 4510.9596.
TEST_P(Quote, TheTaxableBaseFollowsRegimeAndAdjustments) {
    const CasoDeBase casos[] = {
        {"idsubreg = 'IC04'", "4510,96"},
        {"idsubreg = 'EC01'", "1640,26"},  // without freight and insurance: 1640.2596
        {"idsubreg = 'eg02'", "1640,26"},
        {"idsubreg = 'E'", "4510,96"},
        {"idsubreg = null", "4510,96"},
        {"idsubreg = 'IC04', ajusteincluir = 100", "4595,59"},  // 100·1.085 for 22·1.085: + 84.63
        {"ajusteincluir = 0, ajustededucir = 100", "4413,85"},  // 100·1.085 for 10.5·1.085: - 97.1075
        {"ajusteincluir = null, ajustededucir = null", "4510,96"},
    };
    for (const CasoDeBase &caso : casos) {
        ejecutar("update caratula set "_L1 + QLatin1String(caso.cambio) + " where interno = 'OP 1'"_L1);
        EXPECT_EQ(cargar().LbBaseImp.toStdString(), caso.base) << caso.cambio;
    }
}

TEST_P(Quote, AChangeOfTheRateAndAReloadChangeAllPesosAndTheDollarsStay) {
    Presupuesto p = cargar();
    CambiarPase(*ctx, p, u"1.250,5"_s);
    EXPECT_EQ(p.TxtPase, u"1.250,5"_s) << "no number";
    EXPECT_FALSE(HayPase(p));
    CambiarPase(*ctx, p, u"2000"_s);
    EXPECT_EQ(p.TxtPase, u"2000,000000"_s);
    const std::string doble =
        "DERECHOS|P|200000,00|100,00\n"
        "TASA ESTADISTICA|P|41000,00|20,50\n"
        "IVA|G|100500,00|50,25\n"
        "REINTEGRO|C|60000,00|30,00\n"
        "ARANCEL||20000,00|10,00\n";
    const std::string totalesDobles = "P 241000,00/120,50 G 100500,00/50,25 C 60000,00/30,00";
    EXPECT_EQ(gastos(p), doble);
    EXPECT_EQ(totales(p), totalesDobles);
    p = cargar();
    EXPECT_EQ(p.TxtPase, u"2000,000000"_s) << "it was kept";
    EXPECT_EQ(gastos(p), doble);
    EXPECT_EQ(totales(p), totalesDobles);
}

TEST_P(Quote, TheRateStartsAsItIsSetAndFollowsTheSeparator) {
    ctx->ajustes.Borrar(u"ZENDRA"_s, u"PRESUPUESTO"_s, u"PASE"_s);
    EXPECT_EQ(cargar().TxtPase, u"01,400000"_s);
    ponerPase("abc");
    const Presupuesto p = cargar();
    EXPECT_EQ(p.TxtPase, u"abc"_s);
    EXPECT_FALSE(HayPase(p));
    EXPECT_EQ(totales(p), "P 00,00/120,50 G 00,00/50,25 C 00,00/30,00");
    ponerPase("1000.5");
    ctx->SeparadorDecimal = u'.';
    EXPECT_EQ(cargar().TxtPase, u"1000.500000"_s);
}

TEST_P(Quote, AChangedDutyTakesItsOldAmountsOutOfItsTotalAndPutsTheNewOnes) {
    Presupuesto p = cargar();
    CambiarGasto(p, 0, EnAmbasMonedas(p, 150, true));
    EXPECT_EQ(totales(p), "P 170500,00/170,50 G 50250,00/50,25 C 30000,00/30,00");
    CambiarGasto(p, 2, EnAmbasMonedas(p, 25125, false));
    EXPECT_EQ(totales(p), "P 170500,00/170,50 G 25125,00/25,13 C 30000,00/30,00");
    CambiarGasto(p, 4, EnAmbasMonedas(p, 99, true));
    EXPECT_EQ(totales(p), "P 170500,00/170,50 G 25125,00/25,13 C 30000,00/30,00")
        << "a kind without a total touches nothing";
    EXPECT_EQ(p.gastos[4].pesos, 99000);
}

TEST_P(Quote, TheDerivedAmountOfAConceptIsShownAndNeverAdded) {
    ponerConceptos();
    Presupuesto p = cargar();
    ASSERT_EQ(p.operativos.size(), 2U);
    EXPECT_EQ(monto(ImporteMostrado(p, p.operativos[0]).pesos), "1500,50");
    EXPECT_EQ(monto(ImporteMostrado(p, p.operativos[0]).dolares), "01,50");
    EXPECT_EQ(monto(ImporteMostrado(p, p.operativos[1]).pesos), "12250,00");
    EXPECT_EQ(monto(ImporteMostrado(p, p.operativos[1]).dolares), "12,25");
    const ResumenDePresupuesto r = Resumir(p);
    EXPECT_EQ(monto(r.operativos.pesos), "1500,50");
    EXPECT_EQ(monto(r.operativos.dolares), "12,25");
    // 120500 + 12.25·1000 + 1500.50
    EXPECT_EQ(monto(r.subtotal), "134250,50");
    CambiarPase(*ctx, p, u"0"_s);
    EXPECT_EQ(monto(ImporteMostrado(p, p.operativos[0]).dolares), "00,00") << "no division by a rate of 0";
}

TEST_P(Quote, AnAmountOnAccountIsTakenOffTheTotal) {
    ponerConceptos();
    const std::pair<const char *, const char *> casos[] = {
        {"", "134250,50"},       {"0", "134250,50"},     {"250,50", "134000,00"},
        {"250.50", "134000,00"}, {"no sé", "134250,50"}, {"-100", "134350,50"},
    };
    Presupuesto p = cargar();
    for (const auto &[texto, total] : casos) {
        p.txtAcuenta = QString::fromUtf8(texto);
        EXPECT_EQ(monto(Resumir(p).totalGeneral), total) << texto;
        EXPECT_EQ(monto(Resumir(p).subtotal), "134250,50");
    }
}

TEST_P(Quote, TheAmountOnAccountIsWrittenWithTwoDecimalsAndAPointForThisOperationAlone) {
    Presupuesto p = cargar();
    EXPECT_EQ(p.txtAcuenta, QString());
    const std::pair<const char *, const char *> casos[] = {
        {"12,5", "12.50"}, {"12.345", "12.35"}, {"", "00.00"}, {"nada", "00.00"}, {"-5", "-05.00"}};
    for (const auto &[texto, escrito] : casos) {
        p.txtAcuenta = QLatin1String(texto);
        const Traza traza;
        GrabarACuenta(*ctx, p);
        EXPECT_EQ(traza.texto(), std::string("INTERNOS|update caratula set factura6 = ") + escrito +
                                     " where interno = 'OP 1'");
    }
    EXPECT_EQ(acuentaGuardada(), "-5\n7");
    EXPECT_EQ(cargar().txtAcuenta, u"-5"_s);
    ejecutar(u"update caratula set factura6 = 12.5 where interno = 'OP 1'"_s);
    EXPECT_EQ(cargar().txtAcuenta, u"12,5"_s) << "with the workstation's separator";
}

TEST_P(Quote, TheRoadOfTheMailAndTheBlankLinesAreKept) {
    Presupuesto p = cargar();
    EXPECT_FALSE(p.porOutlook);
    EXPECT_EQ(p.lineasEnBlanco, 0);
    p.porOutlook = true;
    GrabarACuenta(*ctx, p);
    EXPECT_EQ(ctx->ajustes.Leer(u"ZENDRA"_s, u"FLAGS"_s, u"XOUTLOOK"_s), u"S"_s);
    GuardarLineas(*ctx, 3);
    p = cargar();
    EXPECT_TRUE(p.porOutlook);
    EXPECT_EQ(p.lineasEnBlanco, 3);
    p.porOutlook = false;
    GrabarACuenta(*ctx, p);
    EXPECT_EQ(ctx->ajustes.Leer(u"ZENDRA"_s, u"FLAGS"_s, u"XOUTLOOK"_s), u"N"_s);
}

TEST_P(Quote, SenderAndServerAreReadAtEachLoad) {
    EXPECT_EQ(cargar().remitente, QString());
    ASSERT_TRUE(EscribirIni(u"SMTP"_s, u"EMAIL"_s, u"yo@estudio.example"_s, ctx->ConfigFilePath));
    ASSERT_TRUE(EscribirIni(u"SMTP"_s, u"SERVER"_s, u"correo.example:587"_s, ctx->ConfigFilePath));
    const Presupuesto p = cargar();
    EXPECT_EQ(p.remitente, u"yo@estudio.example"_s);
    EXPECT_EQ(p.servidor, u"correo.example:587"_s);
}

TEST_P(Quote, AFailingStatementGoesUpWithTheEnginesWords) {
    ejecutar(u"drop table liqcero"_s);
    Presupuesto p;
    EXPECT_THROW(CargarCaratula(*ctx, operacionPresupuestada, p), Falla);
}

}  // namespace
