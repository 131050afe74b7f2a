// Where an operation stands: the labels of the dashboard, what it enables, and the road to the assembly.

#include "operations/status.h"

#include <gtest/gtest.h>

#include "assembly/run.h"
#include "frame/base/numbers.h"
#include "tests/support/tienda.h"

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

/// An operation "A1" whose header is complete: an import by IC04 with FOB 100, without lines.
class Tablero : public EnAmbosStores {
 protected:
    void SetUp() override {
        EnAmbosStores::SetUp();
        ctx->SeparadorDecimal = QLatin1Char('.');
        for (const char *fila : {"'IC04','I'", "'EC01','E'", "'LAPI','I'", "'DJAI','I'", "'IDA4','I'",
                                 "'IC06','I'", "'TG01','I'"})
            ejecutar("insert into sta (id,cstaimpexp) values ("_L1 + L(fila) + ")"_L1, u"SYSTABLAS"_s);
        for (const char *regimen : {"IC04", "EC01", "LAPI", "DJAI", "IDA4", "IC06", "TG01", "ZZ99"})
            ejecutar("insert into dest (subreg) values ('"_L1 + L(regimen) + "')"_L1, u"USUARIO"_s);
        ejecutar(
            u"insert into caratula "
            "(interno,idsubreg,idaduana,cuitcliente,cuitdespaduana,idvendedor,fobdivisas,fobcoddivisas,"
            "fobdivcambio,fletedivisas,fletecoddivisas,fletedivcambio,segurodivisas,segurocoddivisas,"
            "segurodivcambio,idcondiciondeventa,factura8) values "
            "('A1','IC04','001','30111111118','20222222223','V1',100,'DOL',1,10,'DOL',1,2,'DOL',1,'FOB',"
            "'S')"_s);
    }
    void TearDown() override { EnAmbosStores::TearDown(); }

    void poner(const QString &asignaciones) {
        ejecutar("update caratula set "_L1 + asignaciones + " where interno = 'A1'"_L1);
    }
    void linea(const char *fob) {
        ejecutar("insert into subitems (interno,fob) values ('A1',"_L1 + L(fob) + ")"_L1);
    }
    void item(int id, const char *ncm = "", const char *fob = "0") {
        ejecutar("insert into item (interno,id,ncm,fobtotal) values ('A1',"_L1 + QString::number(id) +
                 ",'"_L1 + L(ncm) + "',"_L1 + L(fob) + ")"_L1);
    }
    void bultos() { poner(u"factura9='1',bulnro='3',bulcod='11',bultip='B',bulpes=50,buldes='CAJAS'"_s); }
    EstadoDeOperacion estado() { return LeerEstado(*ctx, u"A1"_s); }
    QString caratula() { return estado().LbEstadoCaratula; }
    QString dashboard(const QString &clave) const {
        return ctx->ajustes.Leer(u"ZENDRA"_s, u"FLAGS"_s, clave, u"<nada>"_s);
    }
    PasoDeArmado preparar(const EleccionDelTablero &eleccion) {
        return PrepararArmado(*ctx, u"A1"_s, eleccion, opciones);
    }

    QChar separador;
    OpcionesDeArmado opciones;
};

TEST_P(Tablero, AnOperationWithoutFobdivisasIsIncompleteAndTheOtherLabelsStayAsTheyWere) {
    bultos();
    linea("100");
    item(1);
    for (const char *fob : {"0", "null"}) {
        poner("fobdivisas = "_L1 + L(fob));
        const EstadoDeOperacion e = estado();
        EXPECT_EQ(e.LbEstadoCaratula, "INCOMPLETO"_L1);
        EXPECT_TRUE(e.LbEstadoSubItem.isEmpty());
        EXPECT_TRUE(e.LbEstadoItem.isEmpty());
        EXPECT_TRUE(e.LbEstadoBultos.isEmpty());
        EXPECT_FALSE(e.Completo);
    }
}

TEST_P(Tablero, EveryCheckOfTheHeaderMakesItIncomplete) {
    ASSERT_EQ(caratula(), "COMPLETO!"_L1);
    struct Caso {
        const char *cambio, *vuelta;
    };
    const Caso casos[] = {
        {"idaduana = ''", "idaduana = '001'"},
        {"cuitcliente = null", "cuitcliente = '30111111118'"},
        {"cuitdespaduana = ''", "cuitdespaduana = '20222222223'"},
        {"idvendedor = ''", "idvendedor = 'V1'"},
        {"fobcoddivisas = ''", "fobcoddivisas = 'DOL'"},
        {"fobdivcambio = 0", "fobdivcambio = 1"},
        {"fletedivisas = 0", "fletedivisas = 10"},
        {"fletecoddivisas = null", "fletecoddivisas = 'DOL'"},
        {"fletedivcambio = null", "fletedivcambio = 1"},
        {"segurodivisas = 0", "segurodivisas = 2"},
        {"segurocoddivisas = ''", "segurocoddivisas = 'DOL'"},
        {"segurodivcambio = 0", "segurodivcambio = 1"},
        {"idcondiciondeventa = ''", "idcondiciondeventa = 'FOB'"},
        // No row in dest.
        {"idsubreg = 'IC99'", "idsubreg = 'IC04'"},
        {"idsubreg = ''", "idsubreg = 'IC04'"},
        // A withdrawal from a depot names the declaration it comes from.
        {"idsubreg = 'IC06', factura5 = ''", "idsubreg = 'IC04'"},
    };
    for (const Caso &caso : casos) {
        poner(L(caso.cambio));
        EXPECT_EQ(caratula(), "INCOMPLETO"_L1) << caso.cambio;
        poner(L(caso.vuelta));
        EXPECT_EQ(caratula(), "COMPLETO!"_L1) << caso.vuelta;
    }
    poner(u"idsubreg = 'IC06', factura5 = '26001IC04000001A'"_s);
    EXPECT_EQ(caratula(), "COMPLETO!"_L1);
}

TEST_P(Tablero, ASubregimeWithoutCodeFailsEvenWhenDestHoldsARowForIt) {
    ejecutar(u"insert into dest (subreg) values ('')"_s, u"USUARIO"_s);
    poner(u"idsubreg = ''"_s);
    EXPECT_EQ(caratula(), "INCOMPLETO"_L1);
}

TEST_P(Tablero, SellerAndSaleConditionAreAskedForOnlyWhereTheRegimeKeepsThem) {
    struct Caso {
        const char *campo, *columna;
    };
    for (const Caso &caso :
         {Caso{"idvendedor", "txtidvendedor"}, Caso{"idcondiciondeventa", "txtidcondventa"}}) {
        poner(L(caso.campo) + " = ''"_L1);
        EXPECT_EQ(caratula(), "INCOMPLETO"_L1) << caso.campo;
        ejecutar("update dest set "_L1 + L(caso.columna) + " = '  ' where subreg = 'IC04'"_L1, u"USUARIO"_s);
        EXPECT_EQ(caratula(), "INCOMPLETO"_L1) << caso.campo << ": blanks are blank";
        ejecutar("update dest set "_L1 + L(caso.columna) + " = 'x' where subreg = 'IC04'"_L1, u"USUARIO"_s);
        EXPECT_EQ(caratula(), "COMPLETO!"_L1) << caso.campo;
    }
}

TEST_P(Tablero, FreightAndInsuranceAreAskedForOnImportsThatAreNeitherLapiNorDjai) {
    poner(
        u"fletedivisas=0,fletecoddivisas='',fletedivcambio=0,segurodivisas=0,segurocoddivisas="
        "'',segurodivcambio=0"_s);
    const std::pair<const char *, const char *> casos[] = {{"IC04", "INCOMPLETO"}, {"IDA4", "INCOMPLETO"},
                                                           {"LAPI", "COMPLETO!"},  {"DJAI", "COMPLETO!"},
                                                           {"EC01", "COMPLETO!"},  {"ZZ99", "COMPLETO!"}};
    for (const auto &[regimen, esperado] : casos) {
        poner("idsubreg = '"_L1 + L(regimen) + "'"_L1);
        EXPECT_EQ(caratula().toStdString(), esperado) << regimen;
    }
    poner(u"idsubreg = 'DJAI', idvendedor = ''"_s);
    EXPECT_EQ(caratula(), "COMPLETO!"_L1) << "no seller either";
    poner(u"idsubreg = 'LAPI'"_s);
    EXPECT_EQ(caratula(), "INCOMPLETO"_L1);
}

TEST_P(Tablero, LinesOf100Point004AreCompleteForAHeaderOf100AndOf100Point006AreNot) {
    linea("60");
    linea("40.004");
    EXPECT_EQ(estado().LbEstadoSubItem, "COMPLETO!"_L1);
    ejecutar(u"update subitems set fob = 40.006 where fob = 40.004"_s);
    const EstadoDeOperacion e = estado();
    EXPECT_EQ(e.LbEstadoSubItem, "INCOMPLETO"_L1);
    EXPECT_FALSE(e.Completo);
    EXPECT_TRUE(e.LbEstadoItem.isEmpty()) << "not looked at";
}

TEST_P(Tablero, EqualTotalsThatAreNotAboveZeroAreNotComplete) {
    poner(u"fobdivisas = 0.001"_s);
    EXPECT_EQ(estado().LbEstadoSubItem, "INCOMPLETO"_L1) << "no line: the sum is null";
    poner(u"fobdivisas = -5"_s);
    linea("-5");
    EXPECT_EQ(estado().LbEstadoSubItem, "INCOMPLETO"_L1);
}

TEST_P(Tablero, TheLabelsNameTheOperationsPartsAndCountItsRows) {
    ejecutar(u"insert into clientes (cuit,nombre) values ('30111111118','  Añelo S.A. ')"_s, u"PERSONAL"_s);
    item(0);
    item(1);
    item(2);
    for (int n = 0; n < 3; ++n) ejecutar(u"insert into groupsubitems (interno) values ('A1')"_s);
    const EstadoDeOperacion e = estado();
    EXPECT_EQ(e.LbSubregimen, "IC04"_L1);
    EXPECT_EQ(e.LbAduana, "001"_L1);
    EXPECT_EQ(e.LbCliente, u"30111111118 Añelo S.A."_s);
    EXPECT_EQ(e.LbDespa, "20222222223"_L1);
    EXPECT_EQ(e.LbItem, "2"_L1) << "item 0 is no item";
    EXPECT_EQ(e.LbSubItem, "3"_L1);
}

TEST_P(Tablero, TheKindComesFromStaAndTheCoefficientIsForExportsOnly) {
    struct Caso {
        const char *regimen, *tipo, *marca;
        bool coeficiente;
    };
    for (const Caso &caso : {Caso{"IC04", "I", "P", false}, Caso{"EC01", "E", "P", true},
                             Caso{"ZZ99", "N", "P", false}, Caso{"TG01", "I", "T", false}}) {
        poner("idsubreg = '"_L1 + L(caso.regimen) + "'"_L1);
        const EstadoDeOperacion e = estado();
        EXPECT_EQ(e.tipo, L(caso.tipo)) << caso.regimen;
        EXPECT_EQ(e.marca, L(caso.marca)) << caso.regimen;
        EXPECT_EQ(e.ChCOEF, caso.coeficiente) << caso.regimen;
    }
}

TEST_P(Tablero, ItemsAreGeneratedOrNotAndTheOrderBoxShowsUntilThen) {
    linea("100");
    EstadoDeOperacion e = estado();
    EXPECT_EQ(e.LbEstadoItem, "SIN GENERAR"_L1);
    EXPECT_TRUE(e.frmOrdenarVisible);
    EXPECT_TRUE(e.frmOrdenar);
    EXPECT_FALSE(e.framDJAIVisible);
    EXPECT_TRUE(e.cmdITEM);
    item(0);
    e = estado();
    EXPECT_EQ(e.LbEstadoItem, "GENERADO!"_L1) << "item 0 counts here";
    EXPECT_FALSE(e.frmOrdenarVisible);
    EXPECT_FALSE(e.frmOrdenar);
    EXPECT_TRUE(e.cmdITEM);
}

TEST_P(Tablero, TheDescriptionBoxIsForADjaiAndMixingForTheServer) {
    linea("100");
    poner(u"idsubreg = 'DJAI'"_s);
    EstadoDeOperacion e = estado();
    EXPECT_TRUE(e.framDJAIVisible);
    EXPECT_TRUE(e.opcionDJAI.isEmpty()) << "nothing kept: no descriptions";
    EXPECT_EQ(e.mezclarHabilitado, GetParam() == std::string("SQL"));
    ctx->ajustes.Guardar(u"ZENDRA"_s, u"FLAGS"_s, u"DJAI_USAR_DESCRIPCION"_s, u"CATALOGO"_s);
    EXPECT_EQ(estado().opcionDJAI, "CATALOGO"_L1);
    item(1);
    EXPECT_FALSE(estado().framDJAIVisible);
}

TEST_P(Tablero, PackagesAreCompleteWhenTheirScreenSaidSoAndNothingIsMissing) {
    EXPECT_EQ(estado().LbEstadoBultos, "INCOMPLETO"_L1) << "never filled";
    bultos();
    EXPECT_EQ(estado().LbEstadoBultos, "COMPLETO"_L1);
    for (const char *cambio : {"factura9 = '0'", "factura9 = null", "bulnro = ''", "bulnro = null",
                               "bulcod = ''", "bultip = ''", "bulpes = 0", "bulpes = null", "buldes = ''"}) {
        bultos();
        poner(L(cambio));
        EXPECT_EQ(estado().LbEstadoBultos, "INCOMPLETO"_L1) << cambio;
    }
    bultos();
    poner(u"factura9 = ' 1 '"_s);
    EXPECT_EQ(estado().LbEstadoBultos, "COMPLETO"_L1);
}

TEST_P(Tablero, LooseCargoNeedsNoNumberOfPackages) {
    bultos();
    poner(u"bulcod = '32', bultip = 'A', bulnro = '', buldes = ''"_s);
    EXPECT_EQ(estado().LbEstadoBultos, "COMPLETO"_L1);
    poner(u"bulpes = 0"_s);
    EXPECT_EQ(estado().LbEstadoBultos, "INCOMPLETO"_L1) << "its weight is needed";
    poner(u"bulpes = 5, bultip = 'B'"_s);
    EXPECT_EQ(estado().LbEstadoBultos, "INCOMPLETO"_L1) << "the exception is for both codes together";
}

TEST_P(Tablero, EachButtonIsEnabledByItsOwnRule) {
    const auto ver = [this] {
        const EstadoDeOperacion e = estado();
        QString letras;
        const std::pair<bool, char> botones[] = {
            {e.cmdITEM, 'I'},     {e.CmdBultos, 'B'},    {e.cmdCertOrig, 'C'}, {e.CmdTransMaria, 'T'},
            {e.cmdExportar, 'X'}, {e.cmdExportINS, 'S'}, {e.CmdPrint, 'P'},    {e.CmdHojaVal, 'V'}};
        for (const auto &[si, letra] : botones)
            if (si) letras += QLatin1Char(letra);
        return letras.toStdString();
    };
    EXPECT_EQ(ver(), "") << "a header without lines";
    linea("100");
    EXPECT_EQ(ver(), "IV");
    item(1);
    EXPECT_EQ(ver(), "IBCV");
    bultos();
    EXPECT_EQ(ver(), "IBCTXSPV");
    poner(u"idsubreg = 'EC01'"_s);
    EXPECT_EQ(ver(), "IBCTXSP") << "no valuation sheet for this export";
    poner(u"idsubreg = 'IC04', fobdivisas = 99"_s);
    EXPECT_EQ(ver(), "") << "items whose lines no longer match";
}

TEST_P(Tablero, TheDepositRegimeHasNoPackagesAndHandsOverOnItsItemsAlone) {
    poner(u"idsubreg = 'IDA4'"_s);
    linea("100");
    EXPECT_FALSE(estado().CmdTransMaria);
    item(1);
    EstadoDeOperacion e = estado();
    EXPECT_EQ(e.LbEstadoBultos, "INCOMPLETO"_L1);
    EXPECT_TRUE(e.CmdTransMaria && e.cmdExportar && e.cmdExportINS && e.CmdPrint);
    poner(u"fobdivisas = 99"_s);
    e = estado();
    EXPECT_FALSE(e.CmdTransMaria || e.cmdExportar || e.cmdExportINS || e.CmdPrint);
}

TEST_P(Tablero, WhatTheRoutineDoesNotReachStaysAsItWasAndTheButtonsJudgeByIt) {
    linea("100");
    item(1);
    bultos();
    const EstadoDeOperacion antes = estado();
    ASSERT_EQ(antes.LbEstadoItem, "GENERADO!"_L1);
    ASSERT_EQ(antes.LbEstadoBultos, "COMPLETO"_L1);
    poner(u"fobdivisas = 0"_s);
    EstadoDeOperacion e = LeerEstado(*ctx, u"A1"_s, antes);
    EXPECT_EQ(e.LbEstadoCaratula, "INCOMPLETO"_L1);
    EXPECT_EQ(e.LbEstadoSubItem, "COMPLETO!"_L1);
    EXPECT_EQ(e.LbEstadoItem, "GENERADO!"_L1);
    EXPECT_EQ(e.LbEstadoBultos, "COMPLETO"_L1);
    EXPECT_FALSE(e.Completo);
    EXPECT_FALSE(e.itemsMirados);
    EXPECT_FALSE(e.cmdITEM) << "the header itself is not complete";
    EXPECT_TRUE(e.CmdBultos && e.cmdCertOrig) << "of an import: by its items alone";
    EXPECT_FALSE(e.CmdTransMaria || e.CmdPrint || e.CmdHojaVal);
    // Lines that no longer match leave the items' label behind them too, while the packages are read.
    poner(u"fobdivisas = 99, factura9 = '0'"_s);
    e = LeerEstado(*ctx, u"A1"_s, e);
    EXPECT_EQ(e.LbEstadoSubItem, "INCOMPLETO"_L1);
    EXPECT_EQ(e.LbEstadoItem, "GENERADO!"_L1);
    EXPECT_EQ(e.LbEstadoBultos, "INCOMPLETO"_L1);
    EXPECT_TRUE(e.CmdBultos);
    // An export asks for all of it.
    poner(u"idsubreg = 'EC01'"_s);
    EXPECT_FALSE(LeerEstado(*ctx, u"A1"_s, e).CmdBultos);
}

TEST_P(Tablero, TheBoxesOfOrderAndDescriptionsStayWhileTheItemsAreNotLookedAt) {
    linea("100");
    poner(u"idsubreg = 'DJAI'"_s);
    const EstadoDeOperacion antes = estado();
    ASSERT_TRUE(antes.itemsMirados && antes.frmOrdenarVisible && antes.framDJAIVisible);
    poner(u"fobdivisas = 0"_s);
    const EstadoDeOperacion e = LeerEstado(*ctx, u"A1"_s, antes);
    EXPECT_FALSE(e.itemsMirados);
    EXPECT_TRUE(e.frmOrdenarVisible);
    EXPECT_TRUE(e.framDJAIVisible);
    EXPECT_EQ(e.mezclarHabilitado, antes.mezclarHabilitado);
    EXPECT_FALSE(e.frmOrdenar) << "to be seen, not to be used";
}

TEST_P(Tablero, AnOperationThatIsNotThereHasNoState) {
    EXPECT_FALSE(LeerEstado(*ctx, u"B9"_s).existe);
    EXPECT_TRUE(estado().existe);
}

// ---- the road to the assembly

TEST_P(Tablero, MixedDescriptionsNeedTheServer) {
    poner(u"idsubreg = 'DJAI'"_s);
    EleccionDelTablero eleccion;
    eleccion.opcionDJAI = u"MEZCLA"_s;
    const bool servidor = GetParam() == std::string("SQL");
    EXPECT_EQ(preparar(eleccion), servidor ? PasoDeArmado::Armar : PasoDeArmado::NoSigue);
    if (servidor) {
        EXPECT_TRUE(registro.mensajes.empty());
        EXPECT_EQ(opciones.modo, ModoDescripcion::Mezcla);
    } else {
        ASSERT_EQ(registro.mensajes.size(), 1U);
        EXPECT_EQ(registro.mensajes[0].texto,
                  "No puede usar la opcion DJAI - MEZCLAR DESCRIPCIONES porque no tiene Zendra 3 version SQL "
                  "Server"_L1);
    }
}

TEST_P(Tablero, OnlyTheArmedMarkSArmsAgain) {
    for (const char *marca : {"'N'", "''", "null", "'s'"}) {
        poner("factura8 = "_L1 + L(marca));
        ctx->ChequeoArmado = u"?"_s;
        EXPECT_EQ(preparar({}), PasoDeArmado::YaArmado) << marca;
        EXPECT_EQ(ctx->ChequeoArmado, "?"_L1) << marca;
        EXPECT_EQ(dashboard(u"CALCULAR_SERVICIO_DIGITALIZACION"_s), "<nada>"_L1) << marca;
    }
    poner(u"factura8 = 'S'"_s);
    EXPECT_EQ(preparar({}), PasoDeArmado::Armar);
    EXPECT_EQ(ctx->ChequeoArmado, "SI"_L1);
}

TEST_P(Tablero, TheChoicesOfTheDashboardReachTheRunAndTheSettings) {
    EleccionDelTablero eleccion;
    eleccion.opOrdenxNCM = true;
    eleccion.ChMulta = true;
    eleccion.ChCOEF = true;
    eleccion.chkCalcularServicioDigitalizacion = true;
    ctx->CalcularCoeficiente = false;
    EXPECT_EQ(preparar(eleccion), PasoDeArmado::Armar);
    EXPECT_EQ(opciones.ARMARITEM, 1);
    EXPECT_EQ(ctx->opciones.ARMARITEM, 1);
    EXPECT_TRUE(ctx->CalcularMulta);
    EXPECT_TRUE(ctx->CalcularDigitalizacion);
    EXPECT_FALSE(ctx->CalcularCoeficiente) << "an import";
    EXPECT_EQ(dashboard(u"CALCULAR_SERVICIO_DIGITALIZACION"_s), "S"_L1);
    EXPECT_EQ(dashboard(u"DJAI_USAR_DESCRIPCION"_s), "<nada>"_L1) << "not a DJAI";

    poner(u"idsubreg = 'EC01'"_s);
    EXPECT_EQ(preparar(eleccion), PasoDeArmado::Armar);
    EXPECT_TRUE(ctx->CalcularCoeficiente);
    EXPECT_EQ(preparar({}), PasoDeArmado::Armar);
    EXPECT_EQ(opciones.ARMARITEM, 2);
    EXPECT_FALSE(ctx->CalcularCoeficiente);
    EXPECT_FALSE(ctx->CalcularMulta);
    EXPECT_EQ(dashboard(u"CALCULAR_SERVICIO_DIGITALIZACION"_s), "N"_L1);
}

TEST_P(Tablero, ADjaiNeedsAChoiceOfDescriptionsUnlessNoneAreSent) {
    poner(u"idsubreg = 'DJAI'"_s);
    EXPECT_EQ(preparar({}), PasoDeArmado::NoSigue);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto,
              u"Debe seleccionar una opción de Descripcion DJAI para el armado de item"_s);
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Exclamacion);
    ctx->opciones.NoEnviarDescripcionAlITEM = true;
    EXPECT_EQ(preparar({}), PasoDeArmado::Armar);
    EXPECT_TRUE(opciones.sinDescripcion);
    EXPECT_EQ(opciones.modo, ModoDescripcion::Ninguno);
}

TEST_P(Tablero, EachChoiceOfDescriptionsHasItsModeItsFlagAndItsStoredWord) {
    poner(u"idsubreg = 'DJAI'"_s);
    struct Caso {
        const char *eleccion;
        ModoDescripcion modo;
        bool sinDescripcion;
        const char *guardada;
    };
    for (const Caso &caso : {Caso{"MARIA", ModoDescripcion::Maria, false, "MARIA"},
                             Caso{"CATALOGO", ModoDescripcion::Catalogo, false, "CATALOGO"},
                             Caso{"NO", ModoDescripcion::Ninguno, true, ""}}) {
        EleccionDelTablero eleccion;
        eleccion.opcionDJAI = L(caso.eleccion);
        EXPECT_EQ(preparar(eleccion), PasoDeArmado::Armar) << caso.eleccion;
        EXPECT_EQ(opciones.modo, caso.modo) << caso.eleccion;
        EXPECT_EQ(opciones.sinDescripcion, caso.sinDescripcion) << caso.eleccion;
        EXPECT_EQ(dashboard(u"DJAI_USAR_DESCRIPCION"_s), L(caso.guardada)) << caso.eleccion;
    }
}

TEST_P(Tablero, ARunThatDidNotEndWellIsToBeArmedAgainAndAsksForTheExternalTariffAnew) {
    poner(u"factura8 = 'N'"_s);
    ctx->ajustes.Guardar(u"ZENDRA"_s, u"AEC"_s, u"A1"_s, u"R"_s);
    ArmadoFallido(*ctx, u"A1"_s);
    EXPECT_EQ(valor(u"select factura8 from caratula"_s), "S"_L1);
    EXPECT_EQ(ctx->ajustes.Leer(u"ZENDRA"_s, u"AEC"_s, u"A1"_s, u"<nada>"_s), ""_L1);
}

EN_AMBOS_STORES(Tablero);

}  // namespace
