// What the header keeps of numbers, codes and marks.

#include <gtest/gtest.h>

#include "header/automotive.h"
#include "tests/caratula/caratulas.h"
#include "tests/support/traza.h"

using namespace Qt::StringLiterals;

namespace {

class LoGuardado : public Caratulas {
 protected:
    std::string numeros() {
        return guardado(
            "fobdivisas,fobdivcambio,fletedivisas,seguroporcentaje,valoraprorratear,ajusteincluir,"
            "ajustededucir,factorconver,dckgneto,dccomext,gastos_anteriores_fob,gastos_posteriores_fob");
    }
    void marcar(const QString &pendiente) {
        ejecutar(u"update caratula set factura8 = '%1' where interno = 'OP 1'"_s.arg(pendiente));
        GuardarAEC(*ctx, interno, "R");
    }
    std::string marcas() { return guardado("factura8") + "/" + LeerAEC(*ctx, interno).toStdString(); }
};

// Numbers

TEST_P(LoGuardado, NumbersAreStoredAsTheyWereTypedUnderBothSeparators) {
    for (const char separador : {'.', ','}) {
        ctx->SeparadorDecimal = QLatin1Char(separador);
        llenar("IC01");
        c.poner("Txtfobdivisas", "1000,129");
        CampoPierdeFoco(*ctx, c, "Txtfobdivisas");
        c.poner("TxtDivValorFob", "1.08500041");
        c.poner("Txtfletedivisas", "100.129");
        CampoPierdeFoco(*ctx, c, "Txtfletedivisas");
        c.poner("txtPorc", "0,125");
        c.poner("TxtProrratear", "7,891");
        CampoPierdeFoco(*ctx, c, "TxtProrratear");
        c.poner("TxtAjustIncluir", "0.0625");
        c.poner("TxtAjustDeducir", "0,0625");
        c.poner("TxtFactCon", "2.75");
        c.poner("TxtKgNeto", "12,345");
        CampoPierdeFoco(*ctx, c, "TxtKgNeto");
        c.poner("txtGastosAnterioresFOB", "1,23456");
        c.poner("txtGastosPosterioresFOB", "-3");
        ASSERT_TRUE(esc().guardada) << ultimoMensaje();
        EXPECT_EQ(numeros(), "1000.13|1.08500041|100.13|0.125|7.891|0.0625|0.0625|2.75|12.345|0|1.23456|0");
    }
}

TEST_P(LoGuardado, AHeaderLoadedAndSavedKeepsWhatItsMasksDoNotShow) {
    llenar("EC16");
    c.poner("cboFacilidadPago", "S");
    ASSERT_TRUE(esc().guardada) << ultimoMensaje();
    ejecutar(
        "update caratula set fobdivisas = 1000.129,fobdivcambio = 1.08500041,fletedivisas = 0.001,"
        "seguroporcentaje = 0.125,valoraprorratear = 7.891,ajusteincluir = 0.0625,ajustededucir = 0.0625,"
        "factorconver = 2.75,dckgneto = 12.345,dccomext = 3.14159,gastos_anteriores_fob = 1.23456,"
        "gastos_posteriores_fob = 0.0004 where interno = 'OP 1'");
    const std::string antes = numeros();
    c = CaratulaVacia(interno);
    ASSERT_TRUE(CargarCaratula(*ctx, c));
    EXPECT_EQ(texto("txtPorc"), "00.13");
    EXPECT_EQ(texto("TxtKgNeto"), "12.35");
    for (const char *control : {"Txtfobdivisas", "Txtfletedivisas"}) CampoPierdeFoco(*ctx, c, control);
    ASSERT_TRUE(esc().guardada) << ultimoMensaje();
    EXPECT_EQ(numeros(), antes);
}

TEST_P(LoGuardado, WhatARuleWritesIsStoredAlsoWhereItLooksLikeWhatWasShown) {
    llenar("IC04");
    ASSERT_TRUE(esc().guardada);
    // One percent of 1,000.00 and 100.00 at a rate of 1 is 11.00.
    ejecutar("update caratula set seguroporcentaje = 1,segurodivisas = 11.004 where interno = 'OP 1'");
    c = CaratulaVacia(interno);
    ASSERT_TRUE(CargarCaratula(*ctx, c));
    EXPECT_EQ(texto("Txtsegurodivisas"), "11.00");
    PorcentajeTecla(*ctx, c);
    EXPECT_EQ(texto("Txtsegurodivisas"), "11.00");
    ASSERT_TRUE(esc().guardada);
    EXPECT_EQ(guardado("segurodivisas"), "11");
}

// Codes

TEST_P(LoGuardado, CodesAreNeverStoredInSmallLetters) {
    llenar("EC16");
    c.poner("cboFacilidadPago", "S");
    for (const char *control :
         {"TxtSubReg", "TxtCoddivfob", "TxtCodDivFlete", "TxtCodDivseguro", "Txtidcondventa", "TxtIdpais",
          "txtDCPaisOrigen", "txtDCPaisDest", "txtDCEstMerc"})
        c.poner(control, QString(QLatin1String("ec16")));
    ASSERT_TRUE(esc().guardada) << ultimoMensaje();
    EXPECT_EQ(
        guardado("idsubreg,fobcoddivisas,fletecoddivisas,segurocoddivisas,idcondiciondeventa,idpaisdestino,"
                 "dcpaisorigen,dcpaisdestino,dcestmerc"),
        "EC16|EC16|EC16|EC16|EC16|EC16|EC16|EC16|EC16");
}

TEST_P(LoGuardado, ARegimeInSmallLettersIsReadAsTheOneInCapitals) {
    llenar("DJAI");
    c.poner("txtDJAIFechaArriboAprox", "10/03/2026");
    c.poner("txtDJAIFechaEmbarqueAprox", "01/02/2026");
    ASSERT_TRUE(esc().guardada) << ultimoMensaje();
    ejecutar("update caratula set idsubreg = 'djai' where interno = 'OP 1'");
    c = CaratulaVacia(interno);
    ASSERT_TRUE(CargarCaratula(*ctx, c));
    EXPECT_EQ(texto("TxtSubReg"), "DJAI");
    EXPECT_TRUE(visible("txtDJAIFechaArriboAprox"));
    teclear("TxtSubReg", "ic01");
    EXPECT_EQ(texto("TxtSubReg"), "IC01") << "as it is entered too";
    EXPECT_TRUE(visible("txtNROTRANSINTER"));
}

TEST_P(LoGuardado, TheOneRegimeInMixedCaseKeepsIt) {
    llenar("IC04");
    ASSERT_TRUE(esc().guardada);
    ejecutar("update caratula set idsubreg = 'RnaE06' where interno = 'OP 1'");
    ejecutar("insert into sta (id,descripcion,cstaimpexp) values ('RnaE06','Zona','I')", "SYSTABLAS");
    c = CaratulaVacia(interno);
    ASSERT_TRUE(CargarCaratula(*ctx, c));
    EXPECT_EQ(texto("TxtSubReg"), "RnaE06");
}

// Invoices and marks

TEST_P(LoGuardado, TheLineOfInvoicesStaysWhenTheyAreGone) {
    llenar("EC01");
    ASSERT_TRUE(esc().guardada) << ultimoMensaje();
    EXPECT_EQ(guardado("factura1"), "A-1");
    Eliminar_Factura(*ctx, c, "A-1");
    const Traza traza;
    ASSERT_TRUE(esc().guardada) << ultimoMensaje();
    EXPECT_EQ(guardado("factura1"), "A-1");
    EXPECT_FALSE(traza.sentencias().join(u' ').contains("factura1 ="));
}

TEST_P(LoGuardado, AnInvoiceAddedOrTakenAwayMarksTheOperation) {
    marcar("N");
    teclear("TxtFactura", "A-1");
    EXPECT_EQ(marcas(), "S/");
    marcar("N");
    teclear("TxtFactura", "A-1");
    EXPECT_EQ(marcas(), "N/R") << "there already, nothing was added";
    Eliminar_Factura(*ctx, c, "A-1");
    EXPECT_EQ(marcas(), "S/");
}

// Names

TEST_P(LoGuardado, AControlThatTheHeaderDoesNotHaveIsAFailureWithItsName) {
    try {
        c["TxtNoExiste"].visible = true;
        FAIL() << "no failure was raised";
    } catch (const Falla &falla) {
        EXPECT_EQ(falla.descripcion.toStdString(),
                  "La carátula no tiene el campo \"TxtNoExiste\", revise el nombre.");
    }
    EXPECT_THROW(std::as_const(c).control(u"otro"_s), Falla);
}

EN_AMBOS_STORES(LoGuardado);

}  // namespace
