// What a run does for one regime and not for another: decrees, the external tariff, the coefficient,
// descriptions, marks.

#include <gtest/gtest.h>

#include "header/automotive.h"
#include "liquidation/ClassLiquidacion.h"
#include "liquidation/review.h"
#include "tests/assembly/corrida.h"

using namespace Qt::StringLiterals;

namespace {

class CorridaPorRegimen : public ConCorridas {};
EN_AMBOS_STORES(CorridaPorRegimen);

}  // namespace

TEST_P(CorridaPorRegimen, ARegimeStoredInSmallLettersGivesTheItemsAndDutiesOfTheOneInCapitals) {
    // Duty 14 % of the position: an item of FOB 50, without freight or insurance, owes 50 * 14 % = 7.
    ejecutar(u"update ncm set [015] = 14"_s, u"NCM"_s);
    insertar(u"tax"_s,
             {{u"ctax"_s, u"'900'"_s}, {u"ltaxabr"_s, u"'ING.BRUTOS'"_s}, {u"ctaxpog"_s, u"'P'"_s}});
    ejecutar(u"update clientes set ingbru = 3 where cuit = '30'"_s, u"PERSONAL"_s);
    insertar(u"ventajasrel"_s,
             {{u"cuit"_s, u"'30'"_s}, {u"idsubregimen"_s, u"'IC04'"_s}, {u"idventaja"_s, u"'V1'"_s}},
             u"PERSONAL"_s);
    const auto armadaYCalculada = [this](const QString &clave) {
        EXPECT_TRUE(generar({}, clave));
        ctx->LiquidacionPendiente = true;
        ClassLiquidacion calculo(*ctx, clave);
        RecalcularOperacion(*ctx, clave, calculo);
        const QString donde = " where interno = '"_L1 + clave + "' order by "_L1;
        return filas("select id,ncm,idpais,cantidad,fobtotal from item"_L1 + donde + "id"_L1) + "\n--\n"_L1 +
               filas("select iditem,idconceptos,pgc,porcentaje,total from itemliq"_L1 + donde +
                     "iditem,idconceptos"_L1) +
               "\n--\n"_L1 +
               filas("select iditem,idventaja from itemventaja"_L1 + donde + "iditem,idventaja"_L1);
    };
    const Fila cambios{
        {u"fobdivcambio"_s, u"1"_s}, {u"fletedivcambio"_s, u"1"_s}, {u"segurodivcambio"_s, u"1"_s}};
    operacion(cambios, u"CAPITALES"_s);
    operacion(cambios, u"MINUSCULAS"_s);
    ejecutar(u"update caratula set idsubreg = 'ic04' where interno = 'MINUSCULAS'"_s);
    const QString esperado = armadaYCalculada(u"CAPITALES"_s);
    EXPECT_TRUE(esperado.contains("\n1|010|P|14|7\n"_L1)) << esperado.toStdString();
    EXPECT_TRUE(esperado.contains("|900|"_L1)) << "an IC regime's own";
    EXPECT_TRUE(esperado.contains("1|V1"_L1));
    EXPECT_EQ(armadaYCalculada(u"MINUSCULAS"_s), esperado);
}

TEST_P(CorridaPorRegimen, TheDecreeFlagsOfTheTable) {
    struct Caso {
        const char *regimen, *motivo, *banderas, *filas;
    };
    constexpr Caso casos[] = {
        {"IT01", "DTO.1439/96", "SNNNN", "1439/96|S|0"},
        {"IT01", " DTO.1439/96 ", "SNNNN", "1439/96|S|0"},
        {"ET01", "D1439/96-AI", "NSNNN", "1439/96A1|S|0"},
        {"IT01", "D1330/04-A6", "NNSNN", "D1330/04A6|S|0"},
        {"IT01", "D1330/04-A7", "NNNSN", "D1330/04A7|S|0"},
        {"IT01", "D1330/04-A8", "NNNNS", "D1330/04A8|S|0"},
        {"IT01", "FERIAS", "NNNNN", "1439/96|N|0\n1439/96A1|N|0"},
        {"IT01", "", "NNNNN", "1439/96|N|0\n1439/96A1|N|0"},
        {"IC04", "DTO.1439/96", "NNNNN", "1439/96|N|0\n1439/96A1|N|0"},
        {"IT02", "DTO.1439/96", "NNNNN", "1439/96|N|0\n1439/96A1|N|0"},
    };
    int n = 0;
    for (const Caso &caso : casos) {
        const QString clave = u"D%1"_s.arg(++n);
        caratula({{u"idsubreg"_s, '\''_L1 + QLatin1StringView(caso.regimen) + '\''_L1},
                  {u"motivodestsuspensiva"_s, '\''_L1 + QLatin1StringView(caso.motivo) + '\''_L1}},
                 clave);
        ContextoArmado r = corrida({}, clave);
        // What another operation left in the shared record must not stay.
        ctx->decreto = {u"S"_s, u"S"_s, u"S"_s, u"S"_s, u"S"_s};
        FijarDecreto(r);
        const MotivoDecreto &d = ctx->decreto;
        EXPECT_EQ(d.d1439_96 + d.d1439_96A1 + d.d1330_04A6 + d.d1330_04A7 + d.d1330_04A8,
                  QLatin1StringView(caso.banderas))
            << n;
        EXPECT_EQ(
            filas("select flag,valor,item from sysflag where interno = '"_L1 + clave + "' order by flag"_L1),
            QLatin1StringView(caso.filas))
            << n;
    }
}

TEST_P(CorridaPorRegimen, TheFlagsOfAnEarlierRunGo) {
    operacion({{u"idsubreg"_s, u"'IT01'"_s}, {u"motivodestsuspensiva"_s, u"'DTO.1439/96'"_s}});
    EXPECT_TRUE(generar());
    ejecutar(u"update caratula set motivodestsuspensiva = '' where interno = 'OP1'"_s);
    EXPECT_TRUE(generar());
    EXPECT_EQ(filas(u"select flag,valor from sysflag where interno = 'OP1' order by flag"_s),
              u"1439/96|N\n1439/96A1|N"_s);
}

TEST_P(CorridaPorRegimen, OutsideIcTheAnswerToTheExternalTariffIsNo) {
    operacion({{u"idsubreg"_s, u"'IT01'"_s}}, u"IT"_s);
    operacion({}, u"IC"_s);
    operacion({{u"idsubreg"_s, u"'ic04'"_s}}, u"MINUSCULA"_s);
    for (const QString &clave : {u"IT"_s, u"IC"_s, u"MINUSCULA"_s}) {
        GuardarAEC(*ctx, clave, u"R"_s);
        EXPECT_TRUE(generar({}, clave));
    }
    EXPECT_EQ(LeerAEC(*ctx, u"IT"_s), u"N"_s);
    EXPECT_EQ(LeerAEC(*ctx, u"IC"_s), u"R"_s);
    EXPECT_EQ(LeerAEC(*ctx, u"MINUSCULA"_s), u"R"_s);
}

TEST_P(CorridaPorRegimen, AnExportIsAskedForItsCoefficient) {
    for (const bool respuesta : {true, false}) {
        registro = {};
        registro.respuestas = {respuesta};
        const QString clave = respuesta ? u"SI"_s : u"NO"_s;
        operacion({{u"idsubreg"_s, u"'EC01'"_s}}, clave);
        EXPECT_TRUE(generar({.ChCOEF = !respuesta}, clave));
        ASSERT_EQ(registro.preguntas.size(), 1U);
        EXPECT_EQ(registro.preguntas.front().texto,
                  u"calculo del coeficiente de Exportación\r\n\r\n"
                  "¿Los derechos y demás tributos están incluidos en el precio FOB declarado?"_s);
        EXPECT_EQ(ctx->CalcularCoeficiente, respuesta);
    }
}

TEST_P(CorridaPorRegimen, EveryOtherRegimeLosesTheCoefficientUnasked) {
    ctx->CalcularCoeficiente = true;
    operacion();
    EXPECT_TRUE(generar({.ChCOEF = true}));
    EXPECT_TRUE(registro.preguntas.empty());
    EXPECT_FALSE(ctx->CalcularCoeficiente);
}

TEST_P(CorridaPorRegimen, TheWarningOfADjaiThatSendsNoDescriptions) {
    struct Caso {
        const char *regimen;
        OpcionesDeArmado opciones;
        const char *forzada;
        bool avisa;
    };
    const Caso casos[] = {
        {"DJAI", {.sinDescripcion = true}, "N", true},
        {"DJAI", {.modo = ModoDescripcion::Maria}, "N", false},
        {"DJAI", {.sinDescripcion = true, .modo = ModoDescripcion::Mezcla}, "N", false},
        {"DJAI", {.sinDescripcion = true}, "S", false},
        {"IC04", {.sinDescripcion = true}, "N", false},
    };
    int n = 0;
    for (const Caso &caso : casos) {
        registro = {};
        const QString clave = u"W%1"_s.arg(++n);
        operacion(
            {{u"idsubreg"_s, '\''_L1 + QLatin1StringView(caso.regimen) + '\''_L1},
             {u"dc_djai_forzardescripcionmercaderia"_s, '\''_L1 + QLatin1StringView(caso.forzada) + '\''_L1}},
            clave);
        EXPECT_TRUE(generar(caso.opciones, clave));
        int avisos = 0;
        for (const Mensaje &m : registro.mensajes) {
            if (!m.texto.startsWith("ADVERTENCIA: "_L1)) continue;
            ++avisos;
            EXPECT_EQ(m.texto,
                      u"ADVERTENCIA: El sistema no envía la descripción de mercadería, "
                      "ni lo tiene encuenta para el armado de ítems, requerido por DJAI.\r\n\r\n"
                      "Es su responsabilidad cargar la descripción correspondiente en el SIM."_s);
            EXPECT_EQ(m.icono, Icono::Informacion);
        }
        EXPECT_EQ(avisos, caso.avisa ? 1 : 0) << n;
    }
}

TEST_P(CorridaPorRegimen, TheDescriptionModesOfADjai) {
    // Lines 1 and 2 have one description for the customs system, line 3 another; those of the catalogue
    // differ all.
    struct Caso {
        OpcionesDeArmado opciones;
        QString grupos;  ///< cantidad, descripcion by quantity
    };
    const std::vector<Caso> casos{
        {{.sinDescripcion = true}, u"3|"_s},
        {{.modo = ModoDescripcion::Maria}, u"1|M2\n2|M1"_s},
        {{.modo = ModoDescripcion::Catalogo}, u"1|C1\n1|C2\n1|C3"_s},
    };
    int n = 0;
    for (const Caso &caso : casos) {
        const QString clave = u"MO%1"_s.arg(++n);
        caratula({{u"idsubreg"_s, u"'DJAI'"_s}}, clave);
        linea({{u"descripcion"_s, u"'C1'"_s}, {u"descripcion_maria"_s, u"'M1'"_s}}, clave);
        linea({{u"descripcion"_s, u"'C2'"_s}, {u"descripcion_maria"_s, u"'M1'"_s}}, clave);
        linea({{u"descripcion"_s, u"'C3'"_s}, {u"descripcion_maria"_s, u"'M2'"_s}}, clave);
        EXPECT_TRUE(generar(caso.opciones, clave));
        EXPECT_EQ(filas("select cantidad,descripcion from groupsubitems where interno = '"_L1 + clave +
                        "' order by cantidad,descripcion"_L1),
                  caso.grupos)
            << n;
    }
}

TEST_P(CorridaPorRegimen, TheMixedModeWritesTheItemsDescriptionsOnTheServerStoreAlone) {
    caratula({{u"idsubreg"_s, u"'DJAI'"_s}, {u"dc_djai_descripcionmercaderia"_s, u"'MUESTRAS'"_s}});
    linea({{u"descripcion"_s, u"'CANILLA'"_s}});
    linea({{u"descripcion"_s, u"'CANILLA'"_s}});
    EXPECT_TRUE(generar({.modo = ModoDescripcion::Mezcla}));
    EXPECT_EQ(valor(u"select descripcion from item where interno = 'OP1' and id = 1"_s),
              esSQL() ? u"MUESTRAS CANILLA"_s : u"PIEZA MARIA"_s);
}

TEST_P(CorridaPorRegimen, TheForcedDescriptionBeatsEveryDashboardChoice) {
    for (const auto modo : {ModoDescripcion::Ninguno, ModoDescripcion::Maria, ModoDescripcion::Catalogo,
                            ModoDescripcion::Mezcla}) {
        registro = {};
        const QString clave = u"F%1"_s.arg(static_cast<int>(modo));
        caratula({{u"idsubreg"_s, u"'DJAI'"_s},
                  {u"dc_djai_forzardescripcionmercaderia"_s, u"'S'"_s},
                  {u"dc_djai_descripcionmercaderia"_s, u"' GRIFERIA\r\nDE BRONCE '"_s}},
                 clave);
        linea({{u"descripcion_maria"_s, u"''"_s}}, clave);
        linea({{u"descripcion_maria"_s, u"'OTRA'"_s}}, clave);
        EXPECT_TRUE(generar({.modo = modo}, clave));
        EXPECT_TRUE(registro.preguntas.empty());
        EXPECT_EQ(filas("select id,descripcion from item where interno = '"_L1 + clave + "' order by id"_L1),
                  u"0|GRIFERIA DE BRONCE\n1|GRIFERIA DE BRONCE"_s);
        // The lines are not touched: mode 2 copies nothing.
        EXPECT_EQ(
            filas("select descripcion_maria from subitems where interno = '"_L1 + clave + "' order by id"_L1),
            u"\nOTRA"_s);
    }
}

TEST_P(CorridaPorRegimen, TheMarksOfThePositionsAreToldOnceEachInTheRegimesThatAsk) {
    posicion(u"2208.30.20.000Q"_s, {{u"041"_s, u"'*'"_s}, {u"059"_s, u"'*'"_s}});
    posicion(u"2208.30.20.000R"_s, {{u"041"_s, u"'*'"_s}, {u"059"_s, u"'*'"_s}});
    struct Caso {
        const char *regimen;
        bool pregunta;
    };
    constexpr Caso casos[] = {{"IC04", true}, {"LAPI", true},  {"DJAI", true}, {"ZFE1", true},
                              {"IG04", true}, {"IT01", false}, {"EC01", false}};
    for (const Caso &caso : casos) {
        registro = {};
        const QString clave = QLatin1StringView(caso.regimen);
        caratula({{u"idsubreg"_s, '\''_L1 + clave + '\''_L1}}, clave);
        linea({{u"ncm"_s, u"'2208.30.20.000Q'"_s}}, clave);
        linea({{u"ncm"_s, u"'2208.30.20.000R'"_s}}, clave);
        EXPECT_TRUE(generar({}, clave));
        QStringList dichos;
        for (const Mensaje &m : registro.mensajes)
            if (m.texto.startsWith("Se han encontrado"_L1) && m.icono == Icono::Informacion)
                dichos << m.texto;
        EXPECT_EQ(dichos.join('\n'_L1), caso.pregunta ? u"Se han encontrado posiciones con LAPI\n"
                                                        "Se han encontrado posiciones con ESTAMPILLAS"_s
                                                      : QString())
            << caso.regimen;
    }
}

TEST_P(CorridaPorRegimen, ATlr1KeepsNoAdvantages) {
    insertar(u"ventajasrel"_s, {{u"cuit"_s, u"'30'"_s}, {u"idventaja"_s, u"'V1'"_s}}, u"PERSONAL"_s);
    operacion({{u"idsubreg"_s, u"'TLR1'"_s}}, u"TLR"_s);
    operacion({}, u"IC"_s);
    EXPECT_TRUE(generar({}, u"IC"_s));
    EXPECT_TRUE(generar({}, u"TLR"_s));
    EXPECT_EQ(valor(u"select count(*) from itemventaja where interno = 'TLR'"_s), u"0"_s);
    EXPECT_NE(valor(u"select count(*) from itemventaja where interno = 'IC'"_s), u"0"_s);
}

TEST_P(CorridaPorRegimen, AnIcr3IsAskedForItsTlr1NumberAndRunsTheStoresProcedureInEitherCase) {
    int n = 0;
    for (const auto &[respuesta, info] : std::vector<std::pair<std::optional<QString>, QString>>{
             {u"26001'TLR1"_s, u"1|NRO.DECLAR-TLR1|26001 TLR1"_s},
             {u"   "_s, QString()},
             {std::nullopt, QString()}}) {
        registro = {};
        const QString clave = u"R%1"_s.arg(++n);
        operacion({{u"idsubreg"_s, u"'ICR3'"_s}}, clave);
        registro.textos = {respuesta};
        int procedimientos = 0;
        Conexion::fijarTraza([&](const TrazaDeSentencia &t) {
            procedimientos += t.sentencia == "exec ProcesarDescargasconTLR1 '"_L1 + clave + '\''_L1 ? 1 : 0;
        });
        EXPECT_TRUE(generar({}, clave));
        Conexion::fijarTraza({});
        EXPECT_EQ(procedimientos, 1);
        ASSERT_EQ(registro.entradas.size(), 1U);
        EXPECT_EQ(registro.entradas.front().titulo, u"NÚMERO TLR1"_s);
        EXPECT_EQ(registro.entradas.front().texto,
                  u"Por favor, ingrese el número de TLR1 (NRO.DECLAR-TLR1)"_s);
        EXPECT_EQ(filas("select iditem,idinfo,valor from iteminfo where interno = '"_L1 + clave + '\''_L1),
                  info);
    }
}
