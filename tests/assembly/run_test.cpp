#include <gtest/gtest.h>

#include <QRegularExpression>
#include <QSqlQuery>

#include "header/automotive.h"
#include "header/changes.h"
#include "tests/assembly/operacion.h"
#include "tests/support/insumos.h"

using namespace Qt::StringLiterals;

namespace {

class Corrida : public Armado {
 protected:
    void SetUp() override {
        Armado::SetUp();
        for (const char *codigo : {"IC04", "IC81", "ICR3", "IT01", "IG04", "DJAI", "LAPI", "TLR1", "ZFE1"})
            subregimen(QLatin1StringView(codigo), u"I"_s);
        for (const char *codigo : {"EC01", "EC03", "ET01"}) subregimen(QLatin1StringView(codigo), u"E"_s);
        insertar(u"clientes"_s, {{u"cuit"_s, u"'30'"_s}, {u"cvdi"_s, u"'S'"_s}}, u"PERSONAL"_s);
        for (const char *concepto : {"010", "011", "415", "500", "501"})
            insertar(u"tax"_s, {{u"ctax"_s, '\''_L1 + QLatin1StringView(concepto) + '\''_L1},
                                {u"ltaxabr"_s, u"'CONCEPTO'"_s},
                                {u"ctaxpog"_s, u"'P'"_s},
                                {u"porcentaje"_s, u"1"_s}});
    }

    void subregimen(const QString &codigo, const QString &direccion) {
        insertar(u"sta"_s,
                 {{u"id"_s, '\''_L1 + codigo + '\''_L1}, {u"cstaimpexp"_s, '\''_L1 + direccion + '\''_L1}},
                 u"SYSTABLAS"_s);
    }
    /// An operation of ten lines at 10, two items: five lines of Brazil and five of China.
    void operacion(const Fila &cambios = {}, const QString &interno = u"OP1"_s) {
        caratula(cambios, interno);
        for (int n = 0; n < 10; ++n) linea({{u"idpais"_s, n % 2 == 0 ? u"'203'"_s : u"'310'"_s}}, interno);
    }
    QStringList marcas() const {
        QStringList lista;
        for (const Avance &a : registro.avances) {
            if (a.tipo == Avance::Tipo::PasoCorriendo) lista << "> "_L1 + a.texto;
            if (a.tipo == Avance::Tipo::PasoHecho) lista << "# "_L1 + a.texto;
        }
        return lista;
    }
    /// Every derived row of an operation.
    QString derivados(const QString &interno = u"OP1"_s) {
        QStringList todo;
        for (const char *tabla :
             {"groupsubitems", "idrel", "item", "itemliq", "itemventaja", "iteminfo", "sysflag"})
            todo << filas("select * from "_L1 + QLatin1StringView(tabla) + " where interno = '"_L1 + interno +
                          '\''_L1);
        return todo.join("\n--\n"_L1);
    }
    QString armada(const QString &interno = u"OP1"_s) {
        return valor("select factura8 from caratula where interno = '"_L1 + interno + '\''_L1);
    }
};
EN_AMBOS_STORES(Corrida);

}  // namespace

TEST(Pasos, TheTenCaptionsInTheirOrder) {
    EXPECT_EQ(
        TextosDePasos().join('|'_L1),
        u"Revalidando sufijos...|Agrupar SubItem's|Verificando y Generando Prorrateo|Verificado Kilo Bruto|"
        "Generar Item's|Armar Registros de Liquidación|Terminar Proceso|Verificando Integridad|"
        "Verificando Marcas de NCM|Actualizando Insumos"_s);
}

TEST_P(Corrida, AFinishedRunCountsAsArmedAndPassesItsMarksFromTopToBottom) {
    operacion();
    EXPECT_TRUE(generar());
    EXPECT_EQ(ctx->ChequeoArmado, u"SI"_s);
    EXPECT_EQ(armada(), u"N"_s);
    EXPECT_TRUE(registro.mensajes.size() <= 1U);  // the gross kilos are told
    QStringList esperadas;
    for (int n = 0; n < 9; ++n) esperadas << "> "_L1 + TextosDePasos()[n] << "# "_L1 + TextosDePasos()[n];
    EXPECT_EQ(marcas(), esperadas);
    EXPECT_EQ(filas(u"select id,cantidad,fobtotal,idpais from item where interno = 'OP1' order by id"_s),
              u"0|<null>|<null>|<null>\n1|5|50|203\n2|5|50|310"_s);
}

TEST_P(Corrida, EventsAreAttendedAtEveryMark) {
    operacion();
    int atendidos = 0;
    ctx->dialogos.atenderEventos = [&] { ++atendidos; };
    EXPECT_TRUE(generar());
    EXPECT_GE(atendidos, 18);
}

TEST_P(Corrida, TheHourglassIsSetBackOnEveryRoad) {
    QString pasos;
    ctx->dialogos.reloj = [&](bool activo) { pasos += activo ? '+'_L1 : '-'_L1; };
    operacion();
    EXPECT_TRUE(generar());
    EXPECT_EQ(pasos, u"+-"_s);
    EXPECT_FALSE(generar({}, u"NADA"_s));
    EXPECT_EQ(pasos, u"+-+-"_s);
}

TEST_P(Corrida, ASecondRunRebuildsTheSameRows) {
    operacion();
    EXPECT_TRUE(generar());
    const QString primero = derivados();
    EXPECT_TRUE(generar());
    EXPECT_EQ(derivados(), primero);
}

TEST_P(Corrida, ARunLeavesTheRowsOfOtherOperationsAlone) {
    operacion({}, u"OTRA"_s);
    EXPECT_TRUE(generar({}, u"OTRA"_s));
    const QString otra = derivados(u"OTRA"_s);
    operacion({{u"DCEstMerc"_s, u"'2'"_s}, {u"DCForzarEstMerc"_s, u"'S'"_s}});
    EXPECT_TRUE(generar());
    EXPECT_EQ(derivados(u"OTRA"_s), otra);
}

TEST_P(Corrida, EverythingWrittenIsDurableOnEveryRoadOut) {
    const auto sincronia = [&] {
        QSqlQuery consulta(ctx->conexion(u"INTERNOS"_s).coneccion());
        EXPECT_TRUE(consulta.exec(esSQL() ? u"show synchronous_commit"_s : u"pragma synchronous"_s) &&
                    consulta.next());
        return consulta.value(0).toString();
    };
    // A test server may be told to be quick.
    if (esSQL()) ejecutar(u"set synchronous_commit to on"_s);
    const QString plena = sincronia();
    EXPECT_EQ(plena, esSQL() ? u"on"_s : u"2"_s);
    operacion();
    QString durante;
    ctx->dialogos.atenderEventos = [&] {
        if (durante.isEmpty()) durante = sincronia();
    };
    EXPECT_TRUE(generar());
    EXPECT_NE(durante, plena);
    EXPECT_EQ(sincronia(), plena);
    EXPECT_FALSE(generar({}, u"NADA"_s));
    EXPECT_EQ(sincronia(), plena);
}

TEST_P(Corrida, WithoutTheInputsLibraryTheRunCompletesAndItsStepStaysHidden) {
    operacion({{u"idsubreg"_s, u"'IC81'"_s}});
    ejecutar(u"update subitems set cancelaciones = 'OK' where interno = 'OP1'"_s);
    EXPECT_TRUE(generar());
    EXPECT_EQ(ctx->ChequeoArmado, u"SI"_s);
    for (const Avance &a : registro.avances) EXPECT_NE(a.tipo, Avance::Tipo::MostrarPaso);
    EXPECT_EQ(marcas().size(), 18);
}

TEST_P(Corrida, TheInputsLinkHearsTheLinesOfEachItemThatConsumesInputs) {
    operacion({{u"idsubreg"_s, u"'IC81'"_s}});
    ejecutar(u"update subitems set cancelaciones = 'OK' where interno = 'OP1' and idpais = '310'"_s);
    linea({{u"idpais"_s, u"'310'"_s}, {u"preciounitario"_s, u"20"_s}, {u"cancelaciones"_s, u"'OK'"_s}});
    const LibreriaDeInsumos libreria;
    EXPECT_TRUE(generar({.ARMARITEM = 1}));
    EXPECT_EQ(ctx->ChequeoArmado, u"SI"_s);
    const auto id = ids();
    EXPECT_EQ(libreria.pedidos("EnviarGrupoIdSub"),
              u"OP1 %1 %2|%3|%4|%5"_s.arg(id[1]).arg(id[3]).arg(id[5]).arg(id[7]).arg(id[9]).toStdString());
    const QString consume =
        valor(u"select id from item where interno = 'OP1' and cancelaciones = 'OK' and id <> 0"_s);
    EXPECT_EQ(libreria.pedidos("EnviarNroItem"),
              u"%1 %2|%3"_s.arg(consume).arg(id[1]).arg(id[10]).toStdString());
    EXPECT_EQ(marcas().mid(14, 6).join('\n'_L1),
              u"> Verificando Integridad\n# Verificando Integridad\n> Actualizando Insumos\n# Actualizando "
              u"Insumos\n"
              "> Verificando Marcas de NCM\n# Verificando Marcas de NCM"_s);
}

TEST_P(Corrida, OutsideTheRegimesWithInputsNoItemIsToldButTheStepShows) {
    operacion();
    ejecutar(u"update subitems set cancelaciones = 'OK' where interno = 'OP1'"_s);
    const LibreriaDeInsumos libreria;
    EXPECT_TRUE(generar());
    EXPECT_EQ(libreria.pedidos("EnviarNroItem"), "");
    EXPECT_EQ(marcas().size(), 20);
}

TEST_P(Corrida, WithNoLiquidationItemsExistItemliqStaysEmptyAndTheClientsAdvantagesAreWritten) {
    ctx->opciones.NOCALCLIQU = true;
    insertar(u"ventajasrel"_s,
             {{u"cuit"_s, u"'30'"_s}, {u"idsubregimen"_s, u"'IC04'"_s}, {u"idventaja"_s, u"'V1'"_s}},
             u"PERSONAL"_s);
    operacion();
    EXPECT_TRUE(generar());
    EXPECT_EQ(valor(u"select count(*) from item where interno = 'OP1' and id <> 0"_s), u"2"_s);
    EXPECT_EQ(valor(u"select count(*) from itemliq where interno = 'OP1'"_s), u"0"_s);
    EXPECT_EQ(filas(u"select iditem,idventaja from itemventaja where interno = 'OP1' order by iditem"_s),
              u"1|V1\n2|V1"_s);
}

TEST_P(Corrida, AnUnexpectedErrorLeavesTheResultSiTheScreenOpenAndTheRowsAsFarAsTheyGot) {
    // A spread over a header without FOB fails in the store, in step 11.
    operacion({{u"fobdivisas"_s, u"0"_s}, {u"valoraprorratear"_s, u"10"_s}});
    EXPECT_FALSE(generar());
    EXPECT_EQ(ctx->ChequeoArmado, u"SI"_s);
    EXPECT_EQ(armada(), u"S"_s);
    EXPECT_EQ(valor(u"select count(*) from groupsubitems where interno = 'OP1'"_s), u"2"_s);
    EXPECT_EQ(marcas().last(), u"> Verificando y Generando Prorrateo"_s);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    const Mensaje &m = registro.mensajes.front();
    EXPECT_EQ(m.icono, Icono::Critico);
    EXPECT_TRUE(m.modalDeSistema);
    static const QRegularExpression forma(u"^-?\\d+ - INTERNOS \\[ArmarItem\\.Generar\\]:11 : .+"_s);
    EXPECT_TRUE(forma.match(m.texto).hasMatch()) << m.texto.toStdString();
}

TEST_P(Corrida, ARefusedLinkOfLinesEndsInTheErrorBoxWithItsOwnSource) {
    operacion();
    ejecutar(u"update subitems set cancelaciones = 'OK' where interno = 'OP1'"_s);
    LibreriaDeInsumos libreria;
    libreria.acepta = false;
    EXPECT_FALSE(generar());
    EXPECT_EQ(ctx->ChequeoArmado, u"SI"_s);
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_EQ(registro.mensajes.front().texto,
              u"0 - go_InputsLink.EnviarGrupoIdSub [ArmarItem.Generar]:10 : "
              "Error en enviar vinculación de subitems a insumos"_s);
}

TEST_P(Corrida, AnOperationWithoutHeaderEndsInTheErrorBoxOfStepTwo) {
    EXPECT_FALSE(generar({}, u"NADA"_s));
    ASSERT_EQ(registro.mensajes.size(), 1U);
    EXPECT_TRUE(registro.mensajes.front().texto.contains(" [ArmarItem.Generar]:2 : "_L1));
}

TEST_P(Corrida, AKeyWithAQuoteIsRefusedByTheStoreWithoutHarm) {
    operacion();
    EXPECT_TRUE(generar());
    const QString antes = derivados();
    EXPECT_FALSE(generar({}, u"x'; delete from item where '1' = '1"_s));
    EXPECT_EQ(registro.mensajes.back().icono, Icono::Critico);
    EXPECT_EQ(derivados(), antes);
}

TEST_P(Corrida, TheEarlyEnds) {
    // Lines without description, invalid suffixes, unused codes, a refusal of the item's number.
    operacion({{u"idsubreg"_s, u"'DJAI'"_s}}, u"SIN"_s);
    ejecutar(u"update subitems set descripcion_maria = '' where interno = 'SIN'"_s);
    operacion({}, u"SUF"_s);
    ejecutar(u"update subitems set ncm = '0000' where interno = 'SUF'"_s);
    operacion({}, u"COD"_s);
    insertar(u"prorrateo"_s, {{u"interno"_s, u"'COD'"_s}, {u"codigo"_s, u"'EMB'"_s}, {u"valor"_s, u"1"_s}});
    operacion({{u"idsubreg"_s, u"'IC81'"_s}}, u"ENL"_s);
    ejecutar(u"update subitems set cancelaciones = 'OK' where interno = 'ENL'"_s);
    LibreriaDeInsumos libreria;
    libreria.seNiegaA = u"EnviarNroItem"_s;

    struct Caso {
        QString clave;
        QString resultado;
        std::size_t preguntas, informes, advertencias;
        QString ultimaMarca;
        QString armada;
    };
    const std::vector<Caso> casos{
        {u"SIN"_s, u"No"_s, 1, 0, 0, u"> Revalidando sufijos..."_s, u"S"_s},
        {u"SUF"_s, u"No"_s, 0, 1, 0, u"> Revalidando sufijos..."_s, u"S"_s},
        {u"COD"_s, u"NO"_s, 0, 0, 1, u"> Verificando y Generando Prorrateo"_s, u"S"_s},
        // The mark of step 17 is written by then; the dashboard writes 'S' over it.
        {u"ENL"_s, u"NO"_s, 0, 0, 0, u"> Actualizando Insumos"_s, u"N"_s},
    };
    for (const Caso &caso : casos) {
        registro = {};
        EXPECT_TRUE(generar({.modo = ModoDescripcion::Maria}, caso.clave)) << caso.clave.toStdString();
        EXPECT_EQ(ctx->ChequeoArmado, caso.resultado) << caso.clave.toStdString();
        EXPECT_EQ(registro.preguntas.size(), caso.preguntas) << caso.clave.toStdString();
        EXPECT_EQ(registro.informes.size(), caso.informes) << caso.clave.toStdString();
        std::size_t advertencias = 0;
        for (const Mensaje &m : registro.mensajes) advertencias += m.icono == Icono::Exclamacion ? 1 : 0;
        EXPECT_EQ(advertencias, caso.advertencias) << caso.clave.toStdString();
        EXPECT_EQ(marcas().last(), caso.ultimaMarca);
        EXPECT_EQ(armada(caso.clave), caso.armada) << caso.clave.toStdString();
    }
}

TEST_P(Corrida, ARunStoppedByItsSuffixesKeepsTheNormalisationOfItsLines) {
    operacion();
    ejecutar(u"update subitems set ncm = '0000', biendeuso = null where interno = 'OP1'"_s);
    EXPECT_TRUE(generar());
    EXPECT_EQ(valor(u"select count(*) from subitems where interno = 'OP1' and biendeuso = 'N'"_s), u"10"_s);
}

TEST_P(Corrida, TheDecreeFlagsOfTheTable) {
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

TEST_P(Corrida, TheFlagsOfAnEarlierRunGo) {
    operacion({{u"idsubreg"_s, u"'IT01'"_s}, {u"motivodestsuspensiva"_s, u"'DTO.1439/96'"_s}});
    EXPECT_TRUE(generar());
    ejecutar(u"update caratula set motivodestsuspensiva = '' where interno = 'OP1'"_s);
    EXPECT_TRUE(generar());
    EXPECT_EQ(filas(u"select flag,valor from sysflag where interno = 'OP1' order by flag"_s),
              u"1439/96|N\n1439/96A1|N"_s);
}

TEST_P(Corrida, OutsideIcTheAnswerToTheExternalTariffIsNo) {
    operacion({{u"idsubreg"_s, u"'IT01'"_s}}, u"IT"_s);
    operacion({}, u"IC"_s);
    operacion({{u"idsubreg"_s, u"'ic04'"_s}}, u"MINUSCULA"_s);
    for (const QString &clave : {u"IT"_s, u"IC"_s, u"MINUSCULA"_s}) GuardarAEC(*ctx, clave, u"R"_s);
    for (const QString &clave : {u"IT"_s, u"IC"_s}) EXPECT_TRUE(generar({}, clave));
    EXPECT_EQ(LeerAEC(*ctx, u"IT"_s), u"N"_s);
    EXPECT_EQ(LeerAEC(*ctx, u"IC"_s), u"R"_s);
}

TEST_P(Corrida, AnExportIsAskedForItsCoefficient) {
    for (const bool respuesta : {true, false}) {
        registro = {};
        registro.respuestas = {respuesta};
        const QString clave = respuesta ? u"SI"_s : u"NO"_s;
        operacion({{u"idsubreg"_s, u"'EC01'"_s}}, clave);
        EXPECT_TRUE(generar({.ChCOEF = !respuesta}, clave));
        ASSERT_EQ(registro.preguntas.size(), 1U);
        EXPECT_EQ(registro.preguntas.front().texto,
                  u"calculo del coeficiente de Exportación\r\n\r\n¿Los derechos y demás tributos están "
                  u"incluidos en el "
                  "precio FOB declarado?"_s);
        EXPECT_EQ(ctx->CalcularCoeficiente, respuesta);
    }
}

TEST_P(Corrida, EveryOtherRegimeLosesTheCoefficientUnasked) {
    ctx->CalcularCoeficiente = true;
    operacion();
    EXPECT_TRUE(generar({.ChCOEF = true}));
    EXPECT_TRUE(registro.preguntas.empty());
    EXPECT_FALSE(ctx->CalcularCoeficiente);
}

TEST_P(Corrida, TheWarningOfADjaiThatSendsNoDescriptions) {
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
            EXPECT_EQ(
                m.texto,
                u"ADVERTENCIA: El sistema no envía la descripción de mercadería, ni lo tiene encuenta para "
                u"el "
                "armado de ítems, requerido por DJAI.\r\n\r\nEs su responsabilidad cargar la descripción "
                "correspondiente en el SIM."_s);
            EXPECT_EQ(m.icono, Icono::Informacion);
        }
        EXPECT_EQ(avisos, caso.avisa ? 1 : 0) << n;
    }
}

TEST_P(Corrida, TheDescriptionModesOfADjai) {
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

TEST_P(Corrida, TheMixedModeWritesTheItemsDescriptionsOnTheServerStoreAlone) {
    caratula({{u"idsubreg"_s, u"'DJAI'"_s}, {u"dc_djai_descripcionmercaderia"_s, u"'MUESTRAS'"_s}});
    linea({{u"descripcion"_s, u"'CANILLA'"_s}});
    linea({{u"descripcion"_s, u"'CANILLA'"_s}});
    EXPECT_TRUE(generar({.modo = ModoDescripcion::Mezcla}));
    EXPECT_EQ(valor(u"select descripcion from item where interno = 'OP1' and id = 1"_s),
              esSQL() ? u"MUESTRAS CANILLA"_s : u"PIEZA MARIA"_s);
}

TEST_P(Corrida, TheForcedDescriptionBeatsEveryDashboardChoice) {
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

TEST_P(Corrida, TheMarksOfThePositionsAreToldOnceEachInTheRegimesThatAsk) {
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

TEST_P(Corrida, ATlr1KeepsNoAdvantages) {
    insertar(u"ventajasrel"_s, {{u"cuit"_s, u"'30'"_s}, {u"idventaja"_s, u"'V1'"_s}}, u"PERSONAL"_s);
    operacion({{u"idsubreg"_s, u"'TLR1'"_s}}, u"TLR"_s);
    operacion({}, u"IC"_s);
    EXPECT_TRUE(generar({}, u"IC"_s));
    EXPECT_TRUE(generar({}, u"TLR"_s));
    EXPECT_EQ(valor(u"select count(*) from itemventaja where interno = 'TLR'"_s), u"0"_s);
    EXPECT_NE(valor(u"select count(*) from itemventaja where interno = 'IC'"_s), u"0"_s);
}

TEST_P(Corrida, AnIcr3IsAskedForItsTlr1NumberAndRunsTheStoresProcedureInEitherCase) {
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

TEST_P(Corrida, TheDuplicateFoldRunsOnlyWhenItsOptionSaysSo) {
    for (const QString &opcion : {u"N"_s, u"S"_s}) {
        ctx->opciones.VrySbtDup = opcion;
        caratula({}, opcion);
        linea({}, opcion);
        linea({{u"preciounitario"_s, u"10.005"_s}}, opcion);
        EXPECT_TRUE(generar({}, opcion));
        EXPECT_EQ(valor("select count(*) from groupsubitems where interno = '"_L1 + opcion + '\''_L1),
                  opcion == "S"_L1 ? u"1"_s : u"2"_s);
    }
}

TEST_P(Corrida, AnOperationWithNoLinesEndsWithTheRowOfItemZero) {
    caratula();
    EXPECT_TRUE(generar());
    EXPECT_EQ(filas(u"select id from item where interno = 'OP1'"_s), u"0"_s);
    EXPECT_EQ(armada(), u"N"_s);
}

TEST_P(Corrida, TheArmedMarkIsWrittenByOneRoutine) {
    caratula();
    MarcarArmado(*ctx, u"OP1"_s, false);
    EXPECT_EQ(armada(), u"N"_s);
    MarcarArmado(*ctx, u"OP1"_s, true);
    EXPECT_EQ(armada(), u"S"_s);
}
