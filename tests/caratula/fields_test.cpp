// The fields of the header while they are keyed.

#include <gtest/gtest.h>

#include "header/comments.h"
#include "tests/caratula/caratulas.h"

using namespace Qt::StringLiterals;

namespace {

class CamposDeCaratula : public Caratulas {};

TEST_P(CamposDeCaratula, CodesShowTheirDescriptions) {
    EXPECT_TRUE(teclear("txtIdAduana1", "001").ok);
    EXPECT_EQ(texto("TxtAduana1"), "BUENOS AIRES");
    teclear("txtIdAduana1", "777");
    EXPECT_EQ(texto("TxtAduana1"), "");
    EXPECT_EQ(registro.mensajes.back().titulo.toStdString(), "Buscar ADUANA");
    teclear("Txtidcondventa", "FOB");
    EXPECT_EQ(texto("lbDescConven"), "Franco a bordo");
    teclear("TxtIdpais", "203");
    EXPECT_EQ(texto("TxtdescPais"), "BRASIL");
    teclear("txtIdAduana1", "");
    EXPECT_EQ(registro.mensajes.size(), 1U) << "an empty code is not looked for";
}

TEST_P(CamposDeCaratula, NumericCodesArePadded) {
    teclear("txtDCBancos", "11");
    EXPECT_EQ(texto("txtDCBancos"), "011");
    teclear("TxtCodDivFlete", "60");
    EXPECT_EQ(texto("TxtCodDivFlete"), "060");
    EXPECT_EQ(texto("TxtDivValorFlete"), "1.085000");
    teclear("txtDCPaisOrigen", "203");
    EXPECT_EQ(texto("txtDCPaisOrigen"), "203");
    teclear("txtDCPaisDest", "9");
    EXPECT_EQ(texto("txtDCPaisDest"), "009");
    EXPECT_EQ(ultimoMensaje(),
              "CODIGO INEXISTENTE DE PAIS\r\n\r\nNo se enconto DESCRIPCIÓN para esta CLAVE\r\n\r\n"
              "[CARATULA.BuscarId.PAIS]");
}

TEST_P(CamposDeCaratula, TheListsGiveTheirCodes) {
    registro.indices = {0, 1, 0};
    EXPECT_TRUE(CampoF6(*ctx, c, "txtIdAduana1"));
    EXPECT_EQ(texto("txtIdAduana1") + texto("TxtAduana1"), "001BUENOS AIRES");
    EXPECT_TRUE(CampoF6(*ctx, c, "TxtCoddivfob"));
    EXPECT_EQ(texto("TxtCoddivfob"), "060") << "by description: Dólar, Euro";
    EXPECT_EQ(texto("TxtDivValorFob"), "1.085000");
    EXPECT_TRUE(CampoF6(*ctx, c, "TxtSubReg")) << "DIR6 is the first";
    EXPECT_EQ(texto("TxtSubReg"), "DIR6");
    EXPECT_EQ(c.cstaimpexp.toStdString(), "I");
    EXPECT_TRUE(visible("txtDCBancos")) << "the rules of the regime ran";
    EXPECT_FALSE(CampoF6(*ctx, c, "txtIdAduana1")) << "left";
    EXPECT_FALSE(CampoF6(*ctx, c, "TxtKgNeto"));
}

TEST_P(CamposDeCaratula, ATypedRateSurvivesEnterOnTheSameCurrency) {
    teclear("TxtCoddivfob", "060");
    c.poner("TxtDivValorFob", "1.100000");
    teclear("TxtCoddivfob", "060");
    EXPECT_EQ(texto("TxtDivValorFob"), "1.100000");
    teclear("TxtCoddivfob", "DOL");
    EXPECT_EQ(texto("TxtDivValorFob"), "1.000000");
}

// Parties

TEST_P(CamposDeCaratula, TheClientBringsNameAndPercentages) {
    teclear("TxtCUITCliente", "30714560200");
    EXPECT_EQ(texto("TxtNombre"), "L'AUTO");
    EXPECT_EQ(c.regalias, 2.5);
    EXPECT_EQ(c.ajxvinc_4102, 1.5);
    teclear("TxtCUITCliente", "30708123451");
    EXPECT_EQ(c.regalias, 0);
    teclear("TxtCUITCliente", "");
    EXPECT_EQ(ultimoMensaje(), "Falta ingresar CUIT como parametro");
}

TEST_P(CamposDeCaratula, AnUnknownClientOpensTheBookOfClients) {
    int abierto = 0;
    c.servicios.SeleccionarCliente = [&abierto] {
        ++abierto;
        return u"30708123451"_s;
    };
    teclear("TxtCUITCliente", "99");
    EXPECT_EQ(abierto, 1);
    EXPECT_EQ(texto("TxtCUITCliente"), "30708123451");
    EXPECT_EQ(texto("TxtNombre"), "HIDRAULICA");
    c.servicios.SeleccionarCliente = [] { return QString(); };
    teclear("TxtCUITCliente", "98");
    EXPECT_EQ(texto("TxtCUITCliente"), "98") << "left without a choice";
}

TEST_P(CamposDeCaratula, BrokerAndSellerFillTheirNames) {
    teclear("TxtCuitAduana", "20167890122");
    EXPECT_EQ(texto("TxtNombreadu"), "FERREYRA");
    teclear("TxtCuitAduana", "123");
    EXPECT_EQ(ultimoMensaje(), "Cuit Invalido");
    EXPECT_EQ(texto("TxtNombreadu"), "");
    teclear("TxtCuitAduana", "sin numero");
    EXPECT_EQ(registro.mensajes.size(), 1U);
    teclear("Txtidvendedor", "V001");
    EXPECT_EQ(texto("TxtNombreven"), "NORDPUMPEN");
    teclear("Txtidvendedor", "");
    EXPECT_EQ(texto("TxtNombreven"), "NORDPUMPEN") << "an empty code is not looked for";
    registro.respuestas = {true};
    c.servicios.AgregarVendedor = [this](const QString &codigo) {
        ejecutar(u"insert into vendedor (codigo,nombre) values ('%1','NUEVO')"_s.arg(codigo), "PERSONAL");
    };
    teclear("Txtidvendedor", "V9");
    EXPECT_EQ(texto("TxtNombreven"), "NUEVO");
    TomarVendedor(c, "V001", "NORDPUMPEN");
    TomarDespachante(c, "20167890122", "FERREYRA");
    EXPECT_EQ(texto("Txtidvendedor") + texto("TxtNombreadu"), "V001FERREYRA");
}

// Derived figures

TEST_P(CamposDeCaratula, DollarsAreAmountTimesRate) {
    teclear("TxtCoddivfob", "060");
    teclear("Txtfobdivisas", "1000.5");
    // 1000.5 x 1.085 = 1085.5425
    EXPECT_EQ(texto("TxtDolFob"), "1085.54");
    c.poner("TxtDivValorFob", "0");
    CampoCambia(*ctx, c, "TxtDivValorFob");
    EXPECT_EQ(texto("TxtDolFob"), "0");
    c.poner("TxtDivValorFob", "uno");
    CampoCambia(*ctx, c, "TxtDivValorFob");
    EXPECT_EQ(texto("TxtDolFob"), "");
}

TEST_P(CamposDeCaratula, FobBringsRoyaltiesAndLinkedAdjustment) {
    teclear("TxtCUITCliente", "30714560200");
    teclear("Txtfobdivisas", "1234.56");
    // 1234.56 x 2.5 % = 30.864; x 1.5 % = 18.5184
    EXPECT_EQ(texto("TxtAjustIncluir"), "30.86");
    EXPECT_EQ(texto("TxtProrratear"), "18.52");
    EXPECT_FALSE(c["CmdProrrat"].habilitado);
    teclear("TxtCUITCliente", "30708123451");
    teclear("Txtfobdivisas", "2000");
    EXPECT_EQ(texto("TxtAjustIncluir"), "30.86") << "a client without percentages changes nothing";
    teclear("Txtfobdivisas", "mil");
    EXPECT_EQ(texto("TxtProrratear"), "18.52");
}

TEST_P(CamposDeCaratula, AnAmountTakesItsFormWhenLeft) {
    c.poner("Txtfobdivisas", "7,5");
    CampoPierdeFoco(*ctx, c, "Txtfobdivisas");
    EXPECT_EQ(texto("Txtfobdivisas"), "07.50");
    c.poner("Txtfobdivisas", "siete");
    CampoPierdeFoco(*ctx, c, "Txtfobdivisas");
    EXPECT_EQ(texto("Txtfobdivisas"), "siete");
}

TEST_P(CamposDeCaratula, ARateIsHeldAgainstTheTable) {
    c.poner("TxtCodDivFlete", "060");
    c.poner("TxtDivValorFlete", "1.2");
    CampoPierdeFoco(*ctx, c, "TxtDivValorFlete");
    ASSERT_EQ(registro.preguntas.size(), 1U);
    EXPECT_EQ(texto("TxtDivValorFlete"), "1.2");
    EXPECT_EQ(guardado("factura8"), "N") << "what was typed has marked the operation as it was typed";
}

TEST_P(CamposDeCaratula, ADateOfTheTermTakesItsForm) {
    c.poner("TxtPlazoaut", "3/2/2026");
    CampoPierdeFoco(*ctx, c, "TxtPlazoaut");
    EXPECT_EQ(texto("TxtPlazoaut"), "03-02-2026");
    c.poner("TxtPlazoaut", "720");
    CampoPierdeFoco(*ctx, c, "TxtPlazoaut");
    EXPECT_EQ(texto("TxtPlazoaut"), "720");
}

TEST_P(CamposDeCaratula, InsuranceFromItsPercentage) {
    const auto fijar = [this](const char *fob, const char *flete, const char *prorratear, double total,
                              const char *cambio, const char *porcentaje) {
        c.poner("TxtDolFob", fob);
        c.poner("TxtDolFlete", flete);
        c.poner("TxtProrratear", prorratear);
        c.totalProrrateado = total;
        c.poner("TxtDivValorSeguro", cambio);
        c.poner("Txtsegurodivisas", "previo");
        c.poner("TxtDolSeguro", "previo");
        c.poner("txtPorc", porcentaje);
        PorcentajeTecla(*ctx, c);
        return texto("TxtDolSeguro") + "/" + texto("Txtsegurodivisas");
    };
    // (1000 + 100) x 1.5 % = 16.5; at 1.1: 15
    EXPECT_EQ(fijar("1000", "100", "", 0, "1.1", "1.5"), "16.50/15.00");
    // (1000 + 100 + 50 + 20) x 1.5 % = 17.55
    EXPECT_EQ(fijar("1000", "100", "50", 20, "1", "1.5"), "17.55/17.55");
    // without a value to prorate the codes count alone: (1100 + 20) x 1.5 % = 16.8
    EXPECT_EQ(fijar("1000", "100", "", 20, "1", "1.5"), "16.80/16.80");
    EXPECT_EQ(fijar("1000", "100", "", 0, "0", "1.5"), "16.50/previo") << "a rate of zero leaves the amount";
    EXPECT_EQ(fijar("1000", "100", "", 0, "x", "1.5"), "16.50/previo");
    EXPECT_EQ(fijar("1000", "100", "", 0, "1", ""), "previo/previo") << "empty: nothing";
    EXPECT_EQ(fijar("1000", "100", "", 0, "1", "0"), "previo/previo") << "zero: nothing";
    EXPECT_EQ(fijar("1000", "100", "", 0, "1", "x"), "/") << "no number: both are emptied";
    EXPECT_EQ(fijar("", "100", "", 0, "1", "1.5"), "previo/previo") << "a dollar label is missing";
}

TEST_P(CamposDeCaratula, AValueToProrateDisablesTheCodes) {
    for (const auto &[valor, habilitado] :
         {std::pair{"", true}, {"0.00", true}, {"abc", true}, {"5", false}, {"-1", false}}) {
        c.poner("TxtProrratear", valor);
        CampoCambia(*ctx, c, "TxtProrratear");
        EXPECT_EQ(c["CmdProrrat"].habilitado, habilitado) << valor;
    }
}

TEST_P(CamposDeCaratula, ForcingACommonDatumWarns) {
    CasillaTildada(*ctx, "chkDCForzarEstMerc");
    EXPECT_EQ(ultimoMensaje(),
              "Advertencia!: Esta opción establece a todos los articulos el mismo Estado de Mercaderia");
    CasillaTildada(*ctx, "chkDCForzarPaisOrigen");
    EXPECT_EQ(ultimoMensaje(),
              "Advertencia!: Esta opción establece a todos los articulos el mismo Pais de Origen");
    EXPECT_EQ(registro.mensajes.size(), 2U);
}

TEST_P(CamposDeCaratula, YesAndNoTakeNothingElse) {
    for (const char *control : {"TxtDCRegalias", "txtDCStandard"}) {
        for (const char *bueno : {"S", "s", "N", "n", ""}) {
            EXPECT_TRUE(teclear(control, bueno).ok);
            EXPECT_EQ(texto(control), bueno);
        }
        const Veredicto v = teclear(control, "X");
        EXPECT_FALSE(v.ok);
        EXPECT_EQ(v.foco.toStdString(), control);
        EXPECT_EQ(texto(control), "");
        EXPECT_EQ(ultimoMensaje(), "No ingresó valores válidos (S/N)");
    }
}

TEST_P(CamposDeCaratula, TheReasonBringsItsDays) {
    teclear("TxtSubReg", "IC04");
    EXPECT_EQ(ClaveDeMotivos(c).toStdString(), "MOTIVOSTEMPI");
    registro.indices = {0, 0};
    EXPECT_TRUE(CampoF6(*ctx, c, "Txtmotdestsusp"));
    EXPECT_EQ(texto("Txtmotdestsusp") + "/" + texto("TxtPlazoaut"), "DTO.1439/96/720");
    teclear("TxtSubReg", "EC01");
    EXPECT_EQ(ClaveDeMotivos(c).toStdString(), "MOTIVOSTEMPE");
    EXPECT_TRUE(CampoF6(*ctx, c, "Txtmotdestsusp"));
    EXPECT_EQ(texto("Txtmotdestsusp") + "/" + texto("TxtPlazoaut"), "SALIDA/60");
    EXPECT_FALSE(CampoF6(*ctx, c, "Txtmotdestsusp"));
    EXPECT_EQ(texto("Txtmotdestsusp"), "SALIDA");
}

// Invoices

TEST_P(CamposDeCaratula, InvoicesAreAddedOnceInOrderAndDeleted) {
    EXPECT_FALSE(c["LstFact"].habilitado);
    EXPECT_EQ(teclear("TxtFactura", "B-2").foco.toStdString(), "TxtFactura");
    teclear("TxtFactura", "A-1");
    EXPECT_EQ(c.LstFact.join(',').toStdString(), "B-2,A-1");
    EXPECT_EQ(texto("TxtFactura"), "") << "ready for the next one";
    EXPECT_TRUE(c["LstFact"].habilitado);
    EXPECT_TRUE(c["ChFacturas"].habilitado);
    teclear("TxtFactura", "a-1");
    EXPECT_EQ(ultimoMensaje(), "Ya existe esta factura.");
    EXPECT_EQ(c.LstFact.size(), 2);
    EXPECT_TRUE(teclear("TxtFactura", "").ok) << "left empty the focus moves on";
    EXPECT_EQ(filas("select interno,orden,factura from facturas order by orden").toStdString(),
              "OP 1|1|B-2\nOP 1|2|A-1");
    Eliminar_Factura(*ctx, c, "B-2");
    EXPECT_EQ(c.LstFact.join(',').toStdString(), "A-1");
    teclear("TxtFactura", "C-3");
    EXPECT_EQ(valor("select orden from facturas where factura = 'C-3'").toStdString(), "3")
        << "behind the highest there is";
    Eliminar_Factura(*ctx, c, "A-1");
    Eliminar_Factura(*ctx, c, "C-3");
    EXPECT_FALSE(c["ChFacturas"].habilitado);
}

TEST_P(CamposDeCaratula, AnotherOperationMayHaveTheSameInvoice) {
    ejecutar("insert into facturas (interno,orden,factura) values ('OTRA',8,'A-1')");
    teclear("TxtFactura", "A-1");
    EXPECT_TRUE(registro.mensajes.empty());
    EXPECT_EQ(valor("select orden from facturas where interno = 'OP 1'").toStdString(), "1");
}

// Comments

TEST_P(CamposDeCaratula, TheCommentIsAddedAndThenReplaced) {
    EXPECT_EQ(LeerComentario(*ctx, interno).toStdString(), "");
    EXPECT_TRUE(GrabarComentario(*ctx, interno, "Canal 'verde'"));
    EXPECT_EQ(LeerComentario(*ctx, interno).toStdString(), "Canal 'verde'");
    EXPECT_TRUE(GrabarComentario(*ctx, interno, "Otro"));
    EXPECT_EQ(LeerComentario(*ctx, interno).toStdString(), "Otro");
    EXPECT_EQ(valor("select count(*) as n from coment", "SYSTABLAS").toStdString(), "1");
}

EN_AMBOS_STORES(CamposDeCaratula);

}  // namespace
