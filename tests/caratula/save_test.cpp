// ESC on the header: the checks in their order, the update, and the ways out.

#include <gtest/gtest.h>

#include "frame/base/numbers.h"
#include "tests/caratula/caratulas.h"
#include "tests/support/traza.h"

using namespace Qt::StringLiterals;

namespace {

class Guardado : public Caratulas {
 protected:
    const std::string sinGuardar = "desea SALIR de la caratula, sin guardar la información?";

    /// One check: what is spoilt, what is said, where the focus goes, and whether leaving is asked.
    struct Caso {
        const char *control;
        const char *valor;
        const char *texto;
        bool pregunta;
        const char *foco = nullptr;  ///< the control itself unless told
    };
    void probar(const QString &regimen, const std::vector<Caso> &casos) {
        llenar(regimen);
        const Caratula buena = c;
        for (const Caso &caso : casos) {
            SCOPED_TRACE(caso.texto);
            c = buena;
            registro = Registro();
            c.poner(caso.control, caso.valor);
            const SalidaDeCaratula salida = esc();
            EXPECT_FALSE(salida.cierra);
            EXPECT_FALSE(salida.guardada);
            EXPECT_EQ(ultimoMensaje(), caso.texto);
            EXPECT_EQ(salida.foco.toStdString(), caso.foco == nullptr ? caso.control : caso.foco);
            ASSERT_EQ(registro.preguntas.size(), caso.pregunta ? 1U : 0U);
            if (caso.pregunta) {
                EXPECT_EQ(registro.preguntas[0].texto.toStdString(), sinGuardar);
            }
            EXPECT_EQ(guardado("idsubreg"), "<null>") << "nothing was written";
        }
        c = buena;
        registro = Registro();
    }
};

TEST_P(Guardado, AGoodHeaderIsWrittenAndCloses) {
    llenar("IC04");
    teclear("txtIdAduana1", "038");
    const SalidaDeCaratula salida = esc();
    EXPECT_TRUE(salida.cierra) << ultimoMensaje();
    EXPECT_TRUE(salida.guardada);
    EXPECT_EQ(guardado("idsubreg,idaduana,idaduanasal,cuitcliente,cuitdespaduana,factura1,factura2,factura3,"
                       "factura7,idvendedor"),
              "IC04|038||30708123451|20167890122|A-1|NORDPUMPEN|FERREYRA|HIDRAULICA|V001");
    EXPECT_EQ(guardado("fobdivisas,fobcoddivisas,fobdivcambio,fletedivisas,segurodivisas,idcondiciondeventa"),
              "1000|DOL|1|100|10|FOB");
    EXPECT_EQ(valor("select factura2 from caratula where interno = 'OTRA'").toStdString(), "<null>");
}

TEST_P(Guardado, ChecksOfAnImport) {
    probar(
        "IC04",
        {{"TxtCierreVenta", "30/02/2026",
          "El valor ingresado en el campo CIERRE DE VENTA no es una FECHA valida. Corrija el Valor o deje "
          "vacio el campo.",
          false},
         {"TxtCuitAduana", "", "Debe ingresar el CUIT de DESPACHANTE", false},
         {"Txtidvendedor", "", "Debe seleccionar vendedor", false},
         {"Txtidcondventa", "", "Debe ingresar Condición de venta", true},
         {"txtFechaEmbarque", "mañana", "Debe ingresar una fecha válida en Fecha de Embarque (dd/mm/yyyy)",
          true},
         {"Txtfobdivisas", "", "El valor FOB debe ser un valor númerico", true},
         {"TxtCoddivfob", "", "Codigo de divisa no ingresado", true},
         {"TxtDivValorFob", "x", "El tipo de cambio debe ser un valor numerico valido", true},
         {"Txtfletedivisas", "x", "El valor FLETE debe ser un valor númerico", true},
         {"TxtCodDivFlete", "", "Codigo de divisa en FLETE no ingresado", true},
         {"TxtDivValorFlete", "", "El tipo de cambio en FLETE debe ser un valor numerico valido", true},
         {"Txtsegurodivisas", "x", "El valor SEGURO debe ser un valor númerico", true},
         {"TxtCodDivseguro", "", "Codigo de divisa en SEGURO no ingresado", true},
         {"TxtDivValorSeguro", "", "El tipo de cambio en SEGURO debe ser un valor numerico valido", true}});
}

TEST_P(Guardado, TheFirstFailingCheckSpeaksAlone) {
    llenar("IC04");
    for (const char *control : {"TxtCuitAduana", "Txtidvendedor", "Txtidcondventa", "Txtfobdivisas"})
        c.poner(control, {});
    esc();
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(ultimoMensaje(), "Debe ingresar el CUIT de DESPACHANTE");
}

TEST_P(Guardado, LeavingWithoutSavingClosesWithYes) {
    llenar("IC04");
    c.poner("Txtidcondventa", {});
    registro.respuestas = {true};
    const SalidaDeCaratula salida = esc();
    EXPECT_TRUE(salida.cierra);
    EXPECT_FALSE(salida.guardada);
    EXPECT_EQ(guardado("idsubreg"), "<null>");
}

// Freight and insurance are not validated under "DJAI" and "LAPI", but an empty field is still written as 0.
TEST_P(Guardado, FreightAndInsuranceAreNotValidatedUnderTwoRegimesButAnEmptyOneIsZero) {
    for (const char *regimen : {"DJAI", "LAPI"}) {
        SCOPED_TRACE(regimen);
        llenar(regimen);
        c.poner("Txtfletedivisas", {});
        c.poner("TxtCodDivFlete", {});
        c.poner("Txtsegurodivisas", "no es número");
        c.poner("txtDJAIFechaArriboAprox", "10/03/2026");
        c.poner("txtDJAIFechaEmbarqueAprox", "01/02/2026");
        if (c["Txtfobdivisas"].visible) c.poner("Txtfobdivisas", "5");
        const SalidaDeCaratula salida = esc();
        EXPECT_TRUE(salida.guardada) << ultimoMensaje();
        EXPECT_EQ(texto("Txtfletedivisas"), "0");
        EXPECT_EQ(guardado("fletedivisas,segurodivisas"), "0|0");
    }
}

TEST_P(Guardado, ADjaiNeedsItsDatesAndItsForcedDescription) {
    llenar("DJAI");
    EXPECT_FALSE(visible("Txtidvendedor"));
    EXPECT_FALSE(esc().cierra);
    EXPECT_EQ(ultimoMensaje(), "Fecha de Arribo Aproximado debe tener una fecha válida");
    c.poner("txtDJAIFechaArriboAprox", "10/03/2026");
    EXPECT_EQ(esc().foco.toStdString(), "txtDJAIFechaEmbarqueAprox");
    EXPECT_EQ(ultimoMensaje(), "Fecha de Embarque Aproximado debe tener una fecha válida");
    c.poner("txtDJAIFechaEmbarqueAprox", "1-2-26");
    c.poner("chkDJAI_ForzarDescripcionMercaderia", "S");
    EXPECT_EQ(esc().foco.toStdString(), "txtDJAI_ForzarDescripcion");
    EXPECT_EQ(ultimoMensaje(), "Debe escribir descripcion de mercaderia");
    EXPECT_TRUE(registro.preguntas.empty()) << "none of these asks whether to leave";
    c.poner("txtDJAI_ForzarDescripcion", "L'agua " + QString(500, 'x'));
    const SalidaDeCaratula salida = esc();
    EXPECT_TRUE(salida.cierra) << ultimoMensaje();
    EXPECT_EQ(guardado("djai_fecha_emb_aprox,djai_fecha_arrib_aprox,dc_djai_forzardescripcionmercaderia"),
              "2026-02-01 00:00:00|2026-03-10 00:00:00|S");
    const QString descripcion =
        valor("select dc_djai_descripcionmercaderia from caratula where interno='OP 1'");
    EXPECT_EQ(descripcion.size(), 400);
    EXPECT_TRUE(descripcion.startsWith("L agua x"));
    // Nor in the middle of a character.
    c.poner("txtDJAI_ForzarDescripcion", QString(399, 'x') + u"🚢"_s);
    EXPECT_TRUE(esc().cierra) << ultimoMensaje();
    EXPECT_EQ(valor("select dc_djai_descripcionmercaderia from caratula where interno='OP 1'"),
              QString(399, 'x'));
}

TEST_P(Guardado, OtherRegimesDoNotWriteTheColumnsOfADjai) {
    ejecutar("update caratula set dc_djai_forzardescripcionmercaderia = 'S' where interno = 'OP 1'");
    llenar("IC04");
    ASSERT_TRUE(esc().guardada);
    EXPECT_EQ(guardado("dc_djai_forzardescripcionmercaderia,djai_fecha_emb_aprox"), "S|<null>");
}

TEST_P(Guardado, TheTaxQuestionsAreDemandedWithTheirOption) {
    ctx->opciones.Responder_Opciones_Obligatorio = true;
    llenar("IC04");
    EXPECT_EQ(esc().foco.toStdString(), "cboOpcionIVA");
    EXPECT_EQ(ultimoMensaje(), "Debe seleccionar alguna opción en IVA y Ganancias");
    EXPECT_TRUE(registro.preguntas.empty());
    c.cboOpcionIVA = 3;
    EXPECT_EQ(esc().foco.toStdString(), "cboOpcionIVA") << "both lists";
    c.cboOpcionesGanancias = 2;
    ASSERT_TRUE(esc().guardada) << ultimoMensaje();
    EXPECT_EQ(guardado("opcionesiva,opcionesganancias"), "IVAAD2|COMERC");
}

TEST_P(Guardado, ARegimeWithoutTheTaxQuestionsIsNotHeldUp) {
    ctx->opciones.Responder_Opciones_Obligatorio = true;
    llenar("EC01");
    c.cboOpcionIVA = 3;
    EXPECT_TRUE(esc().guardada) << ultimoMensaje();
    EXPECT_EQ(guardado("opcionesiva,opcionesganancias"), "|") << "a hidden list writes empty";
}

TEST_P(Guardado, ThePaymentFacilityIsDemandedWhereItIsShown) {
    llenar("EC16");
    ASSERT_TRUE(visible("cboFacilidadPago"));
    const SalidaDeCaratula salida = esc();
    EXPECT_FALSE(salida.cierra);
    EXPECT_EQ(salida.foco.toStdString(), "cboFacilidadPago");
    EXPECT_EQ(ultimoMensaje(), "Debe seleccionar S/N en Facilidad de Pago");
    EXPECT_TRUE(registro.preguntas.empty());
    EXPECT_EQ(guardado("idsubreg"), "<null>") << "nothing has been written";
    c.poner("cboFacilidadPago", "N");
    EXPECT_TRUE(esc().cierra) << ultimoMensaje();
    EXPECT_EQ(guardado("facilidadpago"), "N");
    llenar("IC04");
    ASSERT_TRUE(esc().guardada);
    EXPECT_EQ(guardado("facilidadpago"), "N") << "only written while it is shown";
}

TEST_P(Guardado, TheShipmentDateIsRewritten) {
    llenar("IC04");
    c.poner("txtFechaEmbarque", "5-1-26");
    ASSERT_TRUE(esc().guardada);
    EXPECT_EQ(texto("txtFechaEmbarque"), "05/01/2026");
    EXPECT_EQ(guardado("fechaembarque"), "05/01/2026");
    c.poner("txtFechaEmbarque", {});
    ASSERT_TRUE(esc().guardada);
    EXPECT_EQ(guardado("fechaembarque"), "<null>") << "an empty date is none";
}

TEST_P(Guardado, TheClosingDateIsWrittenOnlyWhenItIsADate) {
    llenar("IC04");
    c.poner("TxtCierreVenta", "15/12/2025");
    ASSERT_TRUE(esc().guardada);
    EXPECT_EQ(guardado("cierreventa"), "15/12/2025");
    c.poner("TxtCierreVenta", {});
    ASSERT_TRUE(esc().guardada);
    EXPECT_EQ(guardado("cierreventa"), "15/12/2025");
}

TEST_P(Guardado, TheRegimeIsUpperCasedAndLettersOfYesAndNoToo) {
    llenar("IC04");
    c.poner("TxtSubReg", "ic04");
    c.poner("TxtDCRegalias", "s");
    c.poner("txtDCStandard", "n");
    ASSERT_TRUE(esc().guardada);
    EXPECT_EQ(guardado("idsubreg,dcregalias,dcstandard"), "IC04|S|N");
}

TEST_P(Guardado, ApostrophesBecomeBlanksOrAreKept) {
    teclear("TxtSubReg", "EC01");
    llenar("EC01");
    teclear("TxtCUITCliente", "30714560200");
    c.poner("txtDATOCOMPRADOR", "O'Neil");
    c.poner("TxtNombreven", "D'Angelo");
    c.poner("TxtautdestSusp", "N'1");
    ASSERT_TRUE(esc().guardada) << ultimoMensaje();
    EXPECT_EQ(guardado("factura7,datocomprador,factura2,autorizdestsuspensiva"),
              "L AUTO|O Neil|D'Angelo|N'1");
}

// A hidden field writes empty, or 0, so changing the regime discards the data of fields that the new regime
// lacks.
TEST_P(Guardado, AHiddenFieldWritesEmptyOrZero) {
    llenar("EC01");
    c.poner("TxtIdAduana2", "038");
    c.poner("TxtIdpais", "203");
    c.poner("txtDCComiExt", "12");
    c.poner("txtDATOCOMPRADOR", "Blue");
    c.poner("TxtautdestSusp", "AUT");
    ASSERT_TRUE(esc().guardada) << ultimoMensaje();
    EXPECT_EQ(guardado("idaduanasal,idpaisdestino,dccomext,datocomprador,autorizdestsuspensiva,fletedivisas"),
              "038|203|12|Blue|AUT|0");
    teclear("TxtSubReg", "IC04");
    teclear("TxtCodDivFlete", "DOL");
    teclear("TxtCodDivseguro", "DOL");
    ASSERT_TRUE(esc().guardada) << ultimoMensaje();
    EXPECT_EQ(guardado("idaduanasal,idpaisdestino,dccomext,datocomprador,autorizdestsuspensiva"), "||0||");
}

// factura1 with many invoices is cut at 80 characters and loses one more character.
TEST_P(Guardado, ManyInvoicesAreCutInTheHeaderAndWholeInTheirTable) {
    llenar("IC04");
    QString todas = "A-1,";
    for (int n = 2; n <= 12; ++n) {
        const QString factura = u"FACT-%1"_s.arg(n, 4, 10, QLatin1Char('0'));
        teclear("TxtFactura", factura);
        todas += factura + ',';
    }
    ASSERT_GT(todas.size(), 80);
    ASSERT_TRUE(esc().guardada);
    const QString guardada = valor("select factura1 from caratula where interno = 'OP 1'");
    EXPECT_EQ(guardada.size(), 79);
    EXPECT_EQ(guardada, todas.left(79));
    EXPECT_EQ(CargarFacturas(*ctx, interno).size(), 12);
}

TEST(FacturasEnUnaLineaTest, EachLosesItsCommaAndNothingStaysEmpty) {
    EXPECT_EQ(FacturasEnUnaLinea({}).toStdString(), "");
    EXPECT_EQ(FacturasEnUnaLinea({"A"}).toStdString(), "A");
    EXPECT_EQ(FacturasEnUnaLinea({"A", "B"}).toStdString(), "A,B");
    // 79 characters and the comma are 80: nothing is cut
    EXPECT_EQ(FacturasEnUnaLinea({QString(79, 'x')}).size(), 79);
    EXPECT_EQ(FacturasEnUnaLinea({QString(80, 'x')}).size(), 79);
}

// ESC on an export "EC" operation with no invoices closes the screen; on any other regime with an enabled
// invoice box it stays with "Faltan Facturas.".
TEST_P(Guardado, OnlyExportsToConsumptionLeaveWithoutInvoices) {
    llenar("IC04");
    Eliminar_Factura(*ctx, c, "A-1");
    SalidaDeCaratula salida = esc();
    EXPECT_FALSE(salida.cierra);
    EXPECT_TRUE(salida.guardada) << "the row is written all the same";
    EXPECT_EQ(ultimoMensaje(), "Faltan Facturas.");
    EXPECT_EQ(salida.foco.toStdString(), "TxtFactura");
    EXPECT_EQ(guardado("idsubreg,factura1"), "IC04|<null>") << "a column without invoices stays as it is";

    c["TxtFactura"].habilitado = false;
    EXPECT_TRUE(esc().cierra);
    c["TxtFactura"].habilitado = true;

    teclear("TxtSubReg", "RE01");
    registro = Registro();
    EXPECT_FALSE(esc().cierra) << "an export, but not EC";
    teclear("TxtSubReg", "EC01");
    registro = Registro();
    salida = esc();
    EXPECT_TRUE(salida.cierra) << ultimoMensaje();
    EXPECT_TRUE(registro.mensajes.empty());
}

TEST_P(Guardado, LeavingWithoutSavingNeedsInvoicesToo) {
    llenar("IC04");
    Eliminar_Factura(*ctx, c, "A-1");
    c.poner("Txtidcondventa", {});
    registro.respuestas = {true};
    EXPECT_FALSE(esc().cierra);
    EXPECT_EQ(ultimoMensaje(), "Faltan Facturas.");
}

TEST_P(Guardado, AHeaderThatWentAwayIsAskedAbout) {
    llenar("IC04");
    ejecutar("delete from caratula where interno = 'OP 1'");
    EXPECT_FALSE(esc().cierra);
    EXPECT_EQ(registro.preguntas.back().texto.toStdString(),
              "Los datos no pueden ser guardados, desea SALIR de caratula?");
    registro.respuestas = {true};
    const SalidaDeCaratula salida = esc();
    EXPECT_TRUE(salida.cierra);
    EXPECT_FALSE(salida.guardada);
}

TEST_P(Guardado, AnErrorOfTheStoreIsShownAndTheScreenStays) {
    llenar("IC04");
    c.poner("TxtCUITCliente", "30'1");
    const SalidaDeCaratula salida = esc();
    EXPECT_FALSE(salida.cierra);
    EXPECT_FALSE(salida.guardada);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Critico);
    EXPECT_TRUE(registro.mensajes[0].texto.contains(" - seccion[ZENDRA.FrmCaratula.CmdGuardar Linea 13 ]::"))
        << ultimoMensaje();
}

TEST_P(Guardado, TheUpdateIsOneStatementWithItsColumnsInOrder) {
    llenar("DJAI");
    c.poner("txtDJAIFechaArriboAprox", "10/03/2026");
    c.poner("txtDJAIFechaEmbarqueAprox", "01/02/2026");
    c.poner("TxtCierreVenta", "15/12/2025");
    QString sentencia;
    {
        Traza traza;
        ASSERT_TRUE(esc().guardada) << ultimoMensaje();
        ASSERT_EQ(traza.sentencias().size(), 1);
        sentencia = traza.sentencias().front();
    }
    ASSERT_TRUE(sentencia.startsWith("INTERNOS|update caratula set idsubreg = 'DJAI',"));
    EXPECT_TRUE(sentencia.endsWith(" where interno = 'OP 1'"));
    const QString orden =
        "idsubreg idaduana idaduanasal cuitcliente cuitdespaduana factura1 factura2 factura3 factura5 "
        "factura7 "
        "idvendedor fobdivisas fobcoddivisas fobdivcambio fletedivisas fletecoddivisas fletedivcambio "
        "Segurodivisas segurocoddivisas segurodivcambio seguroporcentaje valoraprorratear ajusteincluir "
        "ajustededucir factorconver idcondiciondeventa idpaisdestino motivodestsuspensiva "
        "autorizdestsuspensiva plazoautorizacion cierreventa DCComext DCEstMerc DCForzarEstMerc DCPaisOrigen "
        "DCForzarPaisOrigen DCPaisDestino DCStandard DCRegalias DCBancos DCKgNeto DATOCOMPRADOR "
        "NROTRANSINTER "
        "OpcionesIVA OpcionesGanancias gastos_anteriores_fob gastos_posteriores_fob DJAI_FECHA_EMB_APROX "
        "DJAI_FECHA_ARRIB_APROX DC_DJAI_ForzarDescripcionMercaderia DC_DJAI_DescripcionMercaderia "
        "fechaembarque anexo_vendedor";
    qsizetype donde = 0;
    for (const QString &columna : orden.split(' ')) {
        const qsizetype aqui = sentencia.indexOf(columna + " = ", donde);
        ASSERT_GE(aqui, donde) << columna.toStdString();
        donde = aqui + columna.size();
    }
    EXPECT_FALSE(sentencia.contains("facilidadpago"));
}

// Loading

TEST_P(Guardado, LoadingBringsBackWhatWasSaved) {
    llenar("IC04");
    teclear("TxtCUITCliente", "30714560200");
    c.poner("txtPorc", "1.5");
    c.poner("txtFechaEmbarque", "05/01/2026");
    c.poner("TxtKgNeto", "40");
    c.poner("chkDCForzarEstMerc", "S");
    c.poner("txtDCEstMerc", "2");
    c.cboOpcionIVA = 2;
    c.cboOpcionesGanancias = 4;
    ASSERT_TRUE(esc().guardada);
    ejecutar("insert into prorrateo (interno,codigo,valor) values ('OP 1','A',12.5)");
    ejecutar("update caratula set facturas = 'S',factura8 = 'N' where interno = 'OP 1'");
    registro = Registro();
    Caratula otra = CaratulaVacia(interno);
    ASSERT_TRUE(CargarCaratula(*ctx, otra));
    EXPECT_TRUE(registro.mensajes.empty());
    c = otra;
    EXPECT_EQ(texto("TxtSubRegDesc"), "Consumo");
    EXPECT_EQ(texto("TxtAduana1"), "BUENOS AIRES");
    EXPECT_EQ(texto("TxtNombre"), "L AUTO") << "the name as stored";
    EXPECT_EQ(c.ajxvinc_4102, 1.5);
    EXPECT_EQ(texto("Txtfobdivisas"), "1000.00");
    EXPECT_EQ(texto("TxtDivValorFob"), "1.000000");
    EXPECT_EQ(texto("TxtDolFob"), "1000.00");
    EXPECT_EQ(texto("txtPorc"), "01.50");
    EXPECT_EQ(texto("txtFechaEmbarque"), "05/01/2026");
    EXPECT_EQ(texto("TxtKgNeto"), "40.00");
    EXPECT_EQ(texto("chkDCForzarEstMerc"), "S");
    EXPECT_EQ(texto("chkDCForzarPaisOrigen"), "N");
    EXPECT_EQ(texto("ChFacturas"), "S");
    EXPECT_EQ(c.cboOpcionIVA, 2);
    EXPECT_EQ(c.cboOpcionesGanancias, 4);
    EXPECT_EQ(c.LstFact.join(',').toStdString(), "A-1");
    EXPECT_EQ(c.totalProrrateado, 12.5);
    EXPECT_EQ(ctx->TotalProrrateado, 12.5);
    EXPECT_FALSE(visible("TxtIdpais"));
    EXPECT_EQ(guardado("factura8"), "N") << "loading changes nothing";
}

TEST_P(Guardado, ANewOperationLoadsWithoutAWord) {
    ASSERT_TRUE(CargarCaratula(*ctx, c));
    EXPECT_TRUE(registro.mensajes.empty());
    EXPECT_EQ(texto("Txtfobdivisas"), "00.00");
    EXPECT_EQ(texto("TxtDivValorFob"), "0.000000");
    EXPECT_EQ(texto("txtPorc"), "") << "shown only when it is not zero";
    EXPECT_EQ(texto("txtDCStandard"), "N");
    EXPECT_EQ(texto("TxtDCRegalias"), "N");
    EXPECT_EQ(c.cboOpcionIVA, -1);
    EXPECT_TRUE(c.LstFact.isEmpty());
}

TEST_P(Guardado, AnOperationThatIsNotThereIsTold) {
    c = CaratulaVacia("NADA");
    EXPECT_FALSE(CargarCaratula(*ctx, c));
    EXPECT_EQ(ultimoMensaje(), "No se encontro Interno en base de datos");
}

TEST_P(Guardado, AStoredRateStaysAtLoading) {
    llenar("IC04");
    teclear("TxtCoddivfob", "060");
    c.poner("TxtDivValorFob", "1.200000");
    ASSERT_TRUE(esc().guardada);
    c = CaratulaVacia(interno);
    ASSERT_TRUE(CargarCaratula(*ctx, c));
    EXPECT_EQ(texto("TxtDivValorFob"), "1.200000");
    teclear("TxtCoddivfob", "060");
    EXPECT_EQ(texto("TxtDivValorFob"), "1.200000") << "nor by ENTER on the currency as it is";
}

EN_AMBOS_STORES(Guardado);

}  // namespace
