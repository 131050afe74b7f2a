// Where an operation stands: the labels of the dashboard, what it enables, and the road to the assembly.

#include "operations/status.h"

#include <gtest/gtest.h>

#include "assembly/run.h"
#include "frame/numbers.h"
#include "tests/support/tienda.h"

namespace {

using L = QLatin1String;

/// An operation "A1" whose header is complete: an import by IC04 with FOB 100, without lines.
class Tablero : public EnAmbosStores {
 protected:
    void SetUp() override {
        EnAmbosStores::SetUp();
        separador = numeros::separadorDecimal();
        numeros::fijarSeparadorDecimal(QLatin1Char('.'));
        for (const char *fila : {"'IC04','I'", "'EC01','E'", "'LAPI','I'", "'DJAI','I'", "'IDA4','I'",
                                 "'IC06','I'", "'TG01','I'"})
            ejecutar(L("insert into sta (id,cstaimpexp) values (") + L(fila) + L(")"),
                     QStringLiteral("SYSTABLAS"));
        for (const char *regimen : {"IC04", "EC01", "LAPI", "DJAI", "IDA4", "IC06", "TG01", "ZZ99"})
            ejecutar(L("insert into dest (subreg) values ('") + L(regimen) + L("')"),
                     QStringLiteral("USUARIO"));
        ejecutar(QStringLiteral(
            "insert into caratula "
            "(interno,idsubreg,idaduana,cuitcliente,cuitdespaduana,idvendedor,fobdivisas,fobcoddivisas,"
            "fobdivcambio,fletedivisas,fletecoddivisas,fletedivcambio,segurodivisas,segurocoddivisas,"
            "segurodivcambio,idcondiciondeventa,factura8) values "
            "('A1','IC04','001','30111111118','20222222223','V1',100,'DOL',1,10,'DOL',1,2,'DOL',1,'FOB',"
            "'S')"));
    }
    void TearDown() override {
        numeros::fijarSeparadorDecimal(separador);
        EnAmbosStores::TearDown();
    }

    void poner(const QString &asignaciones) {
        ejecutar(L("update caratula set ") + asignaciones + L(" where interno = 'A1'"));
    }
    void linea(const char *fob) {
        ejecutar(L("insert into subitems (interno,fob) values ('A1',") + L(fob) + L(")"));
    }
    void item(int id, const char *ncm = "", const char *fob = "0") {
        ejecutar(L("insert into item (interno,id,ncm,fobtotal) values ('A1',") + QString::number(id) +
                 L(",'") + L(ncm) + L("',") + L(fob) + L(")"));
    }
    void bultos() {
        poner(QStringLiteral("factura9='1',bulnro='3',bulcod='11',bultip='B',bulpes=50,buldes='CAJAS'"));
    }
    EstadoDeOperacion estado() { return LeerEstado(*ctx, QStringLiteral("A1")); }
    QString caratula() { return estado().LbEstadoCaratula; }
    QString dashboard(const QString &clave) const {
        return ctx->ajustes.Leer(QStringLiteral("ZENDRA"), QStringLiteral("FLAGS"), clave,
                                 QStringLiteral("<nada>"));
    }
    PasoDeArmado preparar(const EleccionDelTablero &eleccion) {
        return PrepararArmado(*ctx, QStringLiteral("A1"), eleccion, opciones);
    }

    QChar separador;
    OpcionesDeArmado opciones;
};

TEST_P(Tablero, AnOperationWithoutFobdivisasIsIncompleteAndTheOtherLabelsStayAsTheyWere) {
    bultos();
    linea("100");
    item(1);
    for (const char *fob : {"0", "null"}) {
        poner(L("fobdivisas = ") + L(fob));
        const EstadoDeOperacion e = estado();
        EXPECT_EQ(e.LbEstadoCaratula, L("INCOMPLETO"));
        EXPECT_TRUE(e.LbEstadoSubItem.isEmpty());
        EXPECT_TRUE(e.LbEstadoItem.isEmpty());
        EXPECT_TRUE(e.LbEstadoBultos.isEmpty());
        EXPECT_FALSE(e.Completo);
    }
}

TEST_P(Tablero, EveryCheckOfTheHeaderMakesItIncomplete) {
    ASSERT_EQ(caratula(), L("COMPLETO!"));
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
        EXPECT_EQ(caratula(), L("INCOMPLETO")) << caso.cambio;
        poner(L(caso.vuelta));
        EXPECT_EQ(caratula(), L("COMPLETO!")) << caso.vuelta;
    }
    poner(QStringLiteral("idsubreg = 'IC06', factura5 = '26001IC04000001A'"));
    EXPECT_EQ(caratula(), L("COMPLETO!"));
}

TEST_P(Tablero, ASubregimeWithoutCodeFailsEvenWhenDestHoldsARowForIt) {
    ejecutar(QStringLiteral("insert into dest (subreg) values ('')"), QStringLiteral("USUARIO"));
    poner(QStringLiteral("idsubreg = ''"));
    EXPECT_EQ(caratula(), L("INCOMPLETO"));
}

TEST_P(Tablero, SellerAndSaleConditionAreAskedForOnlyWhereTheRegimeKeepsThem) {
    struct Caso {
        const char *campo, *columna;
    };
    for (const Caso &caso :
         {Caso{"idvendedor", "txtidvendedor"}, Caso{"idcondiciondeventa", "txtidcondventa"}}) {
        poner(L(caso.campo) + L(" = ''"));
        EXPECT_EQ(caratula(), L("INCOMPLETO")) << caso.campo;
        ejecutar(L("update dest set ") + L(caso.columna) + L(" = '  ' where subreg = 'IC04'"),
                 QStringLiteral("USUARIO"));
        EXPECT_EQ(caratula(), L("INCOMPLETO")) << caso.campo << ": blanks are blank";
        ejecutar(L("update dest set ") + L(caso.columna) + L(" = 'x' where subreg = 'IC04'"),
                 QStringLiteral("USUARIO"));
        EXPECT_EQ(caratula(), L("COMPLETO!")) << caso.campo;
    }
}

TEST_P(Tablero, FreightAndInsuranceAreAskedForOnImportsThatAreNeitherLapiNorDjai) {
    poner(
        QStringLiteral("fletedivisas=0,fletecoddivisas='',fletedivcambio=0,segurodivisas=0,segurocoddivisas="
                       "'',segurodivcambio=0"));
    const std::pair<const char *, const char *> casos[] = {{"IC04", "INCOMPLETO"}, {"IDA4", "INCOMPLETO"},
                                                           {"LAPI", "COMPLETO!"},  {"DJAI", "COMPLETO!"},
                                                           {"EC01", "COMPLETO!"},  {"ZZ99", "COMPLETO!"}};
    for (const auto &[regimen, esperado] : casos) {
        poner(L("idsubreg = '") + L(regimen) + L("'"));
        EXPECT_EQ(caratula().toStdString(), esperado) << regimen;
    }
    poner(QStringLiteral("idsubreg = 'DJAI', idvendedor = ''"));
    EXPECT_EQ(caratula(), L("COMPLETO!")) << "no seller either";
    poner(QStringLiteral("idsubreg = 'LAPI'"));
    EXPECT_EQ(caratula(), L("INCOMPLETO"));
}

TEST_P(Tablero, LinesOf100Point004AreCompleteForAHeaderOf100AndOf100Point006AreNot) {
    linea("60");
    linea("40.004");
    EXPECT_EQ(estado().LbEstadoSubItem, L("COMPLETO!"));
    ejecutar(QStringLiteral("update subitems set fob = 40.006 where fob = 40.004"));
    const EstadoDeOperacion e = estado();
    EXPECT_EQ(e.LbEstadoSubItem, L("INCOMPLETO"));
    EXPECT_FALSE(e.Completo);
    EXPECT_TRUE(e.LbEstadoItem.isEmpty()) << "not looked at";
}

TEST_P(Tablero, EqualTotalsThatAreNotAboveZeroAreNotComplete) {
    poner(QStringLiteral("fobdivisas = 0.001"));
    EXPECT_EQ(estado().LbEstadoSubItem, L("INCOMPLETO")) << "no line: the sum is null";
    poner(QStringLiteral("fobdivisas = -5"));
    linea("-5");
    EXPECT_EQ(estado().LbEstadoSubItem, L("INCOMPLETO"));
}

TEST_P(Tablero, TheLabelsNameTheOperationsPartsAndCountItsRows) {
    ejecutar(QStringLiteral("insert into clientes (cuit,nombre) values ('30111111118','  Añelo S.A. ')"),
             QStringLiteral("PERSONAL"));
    item(0);
    item(1);
    item(2);
    for (int n = 0; n < 3; ++n) ejecutar(QStringLiteral("insert into groupsubitems (interno) values ('A1')"));
    const EstadoDeOperacion e = estado();
    EXPECT_EQ(e.LbSubregimen, L("IC04"));
    EXPECT_EQ(e.LbAduana, L("001"));
    EXPECT_EQ(e.LbCliente, QStringLiteral("30111111118 Añelo S.A."));
    EXPECT_EQ(e.LbDespa, L("20222222223"));
    EXPECT_EQ(e.LbItem, L("2")) << "item 0 is no item";
    EXPECT_EQ(e.LbSubItem, L("3"));
}

TEST_P(Tablero, TheKindComesFromStaAndTheCoefficientIsForExportsOnly) {
    struct Caso {
        const char *regimen, *tipo, *marca;
        bool coeficiente;
    };
    for (const Caso &caso : {Caso{"IC04", "I", "P", false}, Caso{"EC01", "E", "P", true},
                             Caso{"ZZ99", "N", "P", false}, Caso{"TG01", "I", "T", false}}) {
        poner(L("idsubreg = '") + L(caso.regimen) + L("'"));
        const EstadoDeOperacion e = estado();
        EXPECT_EQ(e.tipo, L(caso.tipo)) << caso.regimen;
        EXPECT_EQ(e.marca, L(caso.marca)) << caso.regimen;
        EXPECT_EQ(e.ChCOEF, caso.coeficiente) << caso.regimen;
    }
}

TEST_P(Tablero, ItemsAreGeneratedOrNotAndTheOrderBoxShowsUntilThen) {
    linea("100");
    EstadoDeOperacion e = estado();
    EXPECT_EQ(e.LbEstadoItem, L("SIN GENERAR"));
    EXPECT_TRUE(e.frmOrdenarVisible);
    EXPECT_TRUE(e.frmOrdenar);
    EXPECT_FALSE(e.framDJAIVisible);
    EXPECT_TRUE(e.cmdITEM);
    item(0);
    e = estado();
    EXPECT_EQ(e.LbEstadoItem, L("GENERADO!")) << "item 0 counts here";
    EXPECT_FALSE(e.frmOrdenarVisible);
    EXPECT_FALSE(e.frmOrdenar);
    EXPECT_TRUE(e.cmdITEM);
}

TEST_P(Tablero, TheDescriptionBoxIsForADjaiAndMixingForTheServer) {
    linea("100");
    poner(QStringLiteral("idsubreg = 'DJAI'"));
    EstadoDeOperacion e = estado();
    EXPECT_TRUE(e.framDJAIVisible);
    EXPECT_TRUE(e.opcionDJAI.isEmpty()) << "nothing kept: no descriptions";
    EXPECT_EQ(e.mezclarHabilitado, GetParam() == std::string("SQL"));
    ctx->ajustes.Guardar(QStringLiteral("ZENDRA"), QStringLiteral("FLAGS"),
                         QStringLiteral("DJAI_USAR_DESCRIPCION"), QStringLiteral("CATALOGO"));
    EXPECT_EQ(estado().opcionDJAI, L("CATALOGO"));
    item(1);
    EXPECT_FALSE(estado().framDJAIVisible);
}

TEST_P(Tablero, PackagesAreCompleteWhenTheirScreenSaidSoAndNothingIsMissing) {
    EXPECT_EQ(estado().LbEstadoBultos, L("INCOMPLETO")) << "never filled";
    bultos();
    EXPECT_EQ(estado().LbEstadoBultos, L("COMPLETO"));
    for (const char *cambio : {"factura9 = '0'", "factura9 = null", "bulnro = ''", "bulnro = null",
                               "bulcod = ''", "bultip = ''", "bulpes = 0", "bulpes = null", "buldes = ''"}) {
        bultos();
        poner(L(cambio));
        EXPECT_EQ(estado().LbEstadoBultos, L("INCOMPLETO")) << cambio;
    }
    bultos();
    poner(QStringLiteral("factura9 = ' 1 '"));
    EXPECT_EQ(estado().LbEstadoBultos, L("COMPLETO"));
}

TEST_P(Tablero, LooseCargoNeedsNoNumberOfPackages) {
    bultos();
    poner(QStringLiteral("bulcod = '32', bultip = 'A', bulnro = '', buldes = ''"));
    EXPECT_EQ(estado().LbEstadoBultos, L("COMPLETO"));
    poner(QStringLiteral("bulpes = 0"));
    EXPECT_EQ(estado().LbEstadoBultos, L("INCOMPLETO")) << "its weight is needed";
    poner(QStringLiteral("bulpes = 5, bultip = 'B'"));
    EXPECT_EQ(estado().LbEstadoBultos, L("INCOMPLETO")) << "the exception is for both codes together";
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
    poner(QStringLiteral("idsubreg = 'EC01'"));
    EXPECT_EQ(ver(), "IBCTXSP") << "no valuation sheet for this export";
    poner(QStringLiteral("idsubreg = 'IC04', fobdivisas = 99"));
    EXPECT_EQ(ver(), "") << "items whose lines no longer match";
}

TEST_P(Tablero, TheDepositRegimeHasNoPackagesAndHandsOverOnItsItemsAlone) {
    poner(QStringLiteral("idsubreg = 'IDA4'"));
    linea("100");
    EXPECT_FALSE(estado().CmdTransMaria);
    item(1);
    EstadoDeOperacion e = estado();
    EXPECT_EQ(e.LbEstadoBultos, L("INCOMPLETO"));
    EXPECT_TRUE(e.CmdTransMaria && e.cmdExportar && e.cmdExportINS && e.CmdPrint);
    poner(QStringLiteral("fobdivisas = 99"));
    e = estado();
    EXPECT_FALSE(e.CmdTransMaria || e.cmdExportar || e.cmdExportINS || e.CmdPrint);
}

TEST_P(Tablero, AnOperationThatIsNotThereHasNoState) {
    EXPECT_FALSE(LeerEstado(*ctx, QStringLiteral("B9")).existe);
    EXPECT_TRUE(estado().existe);
}

// ---- the road to the assembly

TEST_P(Tablero, MixedDescriptionsNeedTheServer) {
    poner(QStringLiteral("idsubreg = 'DJAI'"));
    EleccionDelTablero eleccion;
    eleccion.opcionDJAI = QStringLiteral("MEZCLA");
    const bool servidor = GetParam() == std::string("SQL");
    EXPECT_EQ(preparar(eleccion), servidor ? PasoDeArmado::Armar : PasoDeArmado::NoSigue);
    if (servidor) {
        EXPECT_TRUE(registro.mensajes.empty());
        EXPECT_EQ(opciones.modo, ModoDescripcion::Mezcla);
    } else {
        ASSERT_EQ(registro.mensajes.size(), 1U);
        EXPECT_EQ(
            registro.mensajes[0].texto,
            L("No puede usar la opcion DJAI - MEZCLAR DESCRIPCIONES porque no tiene Zendra 3 version SQL "
              "Server"));
    }
}

TEST_P(Tablero, OnlyTheArmedMarkSArmsAgain) {
    for (const char *marca : {"'N'", "''", "null", "'s'"}) {
        poner(L("factura8 = ") + L(marca));
        ctx->ChequeoArmado = QStringLiteral("?");
        EXPECT_EQ(preparar({}), PasoDeArmado::YaArmado) << marca;
        EXPECT_EQ(ctx->ChequeoArmado, L("?")) << marca;
        EXPECT_EQ(dashboard(QStringLiteral("CALCULAR_SERVICIO_DIGITALIZACION")), L("<nada>")) << marca;
    }
    poner(QStringLiteral("factura8 = 'S'"));
    EXPECT_EQ(preparar({}), PasoDeArmado::Armar);
    EXPECT_EQ(ctx->ChequeoArmado, L("SI"));
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
    EXPECT_EQ(dashboard(QStringLiteral("CALCULAR_SERVICIO_DIGITALIZACION")), L("S"));
    EXPECT_EQ(dashboard(QStringLiteral("DJAI_USAR_DESCRIPCION")), L("<nada>")) << "not a DJAI";

    poner(QStringLiteral("idsubreg = 'EC01'"));
    EXPECT_EQ(preparar(eleccion), PasoDeArmado::Armar);
    EXPECT_TRUE(ctx->CalcularCoeficiente);
    EXPECT_EQ(preparar({}), PasoDeArmado::Armar);
    EXPECT_EQ(opciones.ARMARITEM, 2);
    EXPECT_FALSE(ctx->CalcularCoeficiente);
    EXPECT_FALSE(ctx->CalcularMulta);
    EXPECT_EQ(dashboard(QStringLiteral("CALCULAR_SERVICIO_DIGITALIZACION")), L("N"));
}

TEST_P(Tablero, ADjaiNeedsAChoiceOfDescriptionsUnlessNoneAreSent) {
    poner(QStringLiteral("idsubreg = 'DJAI'"));
    EXPECT_EQ(preparar({}), PasoDeArmado::NoSigue);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto,
              QStringLiteral("Debe seleccionar una opción de Descripcion DJAI para el armado de item"));
    EXPECT_EQ(registro.mensajes[0].icono, Icono::Exclamacion);
    ctx->opciones.NoEnviarDescripcionAlITEM = true;
    EXPECT_EQ(preparar({}), PasoDeArmado::Armar);
    EXPECT_TRUE(opciones.sinDescripcion);
    EXPECT_EQ(opciones.modo, ModoDescripcion::Ninguno);
}

TEST_P(Tablero, EachChoiceOfDescriptionsHasItsModeItsFlagAndItsStoredWord) {
    poner(QStringLiteral("idsubreg = 'DJAI'"));
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
        EXPECT_EQ(dashboard(QStringLiteral("DJAI_USAR_DESCRIPCION")), L(caso.guardada)) << caso.eleccion;
    }
}

TEST_P(Tablero, ARunThatDidNotEndWellIsToBeArmedAgainAndAsksForTheExternalTariffAnew) {
    poner(QStringLiteral("factura8 = 'N'"));
    ctx->ajustes.Guardar(QStringLiteral("ZENDRA"), QStringLiteral("AEC"), QStringLiteral("A1"),
                         QStringLiteral("R"));
    ArmadoFallido(*ctx, QStringLiteral("A1"));
    EXPECT_EQ(valor(QStringLiteral("select factura8 from caratula")), L("S"));
    EXPECT_EQ(ctx->ajustes.Leer(QStringLiteral("ZENDRA"), QStringLiteral("AEC"), QStringLiteral("A1"),
                                QStringLiteral("<nada>")),
              L(""));
}

// ---- largest position

TEST_P(Tablero, WithoutItemsThereIsNoLargestPosition) {
    item(0, "8409.91.12.10G", "500");
    EXPECT_EQ(InformarNcmMayorFob(*ctx, QStringLiteral("A1")), -1);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes[0].texto, L("No se encuentra el Interno con sus items armados "));
    EXPECT_EQ(registro.mensajes[0].titulo, L("Informar NCM de mayor FOB en Items"));
}

TEST_P(Tablero, TheLargestPositionIsReadByTwoCharactersOfItsSecondKey) {
    const auto posicion = [this](const char *uno, const char *dos, const char *tres, const char *plazo) {
        ejecutar(L("insert into ncm ([001],[002],[003],[071]) values ('") + L(uno) + L("','") + L(dos) +
                     L("','") + L(tres) + L("','") + L(plazo) + L("')"),
                 QStringLiteral("NCM"));
    };
    posicion("8409.91.12", "10", "G", "4 meses");
    posicion("8483.10.11", "100", "A", "2 meses");
    item(1, "8483.10.11.100A", "900");
    item(2, "8409.91.12.100G", "300");
    // The second key has three characters in the nomenclature and two in the question: the larger item finds
    // nothing.
    EXPECT_EQ(InformarNcmMayorFob(*ctx, QStringLiteral("A1")), 4);
    EXPECT_TRUE(registro.mensajes.empty());
    for (const auto &[plazo, esperado] : {std::pair{"1", 1}, std::pair{"8x", 8}, std::pair{"5", -1},
                                          std::pair{"", -1}, std::pair{"x4", -1}}) {
        ejecutar(L("update ncm set [071] = '") + L(plazo) + L("' where [002] = '10'"), QStringLiteral("NCM"));
        EXPECT_EQ(InformarNcmMayorFob(*ctx, QStringLiteral("A1")), esperado) << plazo;
    }
}

EN_AMBOS_STORES(Tablero);

}  // namespace
