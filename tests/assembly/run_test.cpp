#include <gtest/gtest.h>

#include <QRegularExpression>
#include <QSqlQuery>

#include "header/changes.h"
#include "tests/assembly/corrida.h"
#include "tests/support/insumos.h"

using namespace Qt::StringLiterals;

namespace {

class Corrida : public ConCorridas {};
EN_AMBOS_STORES(Corrida);

}  // namespace

TEST(Pasos, TheTenCaptionsInTheirOrder) {
    EXPECT_EQ(TextosDePasos().join('|'_L1),
              u"Revalidando sufijos...|Agrupar SubItem's|Verificando y Generando "
              "Prorrateo|Verificado Kilo Bruto|Generar Item's|Armar Registros de "
              "Liquidación|Terminar Proceso|Verificando Integridad|Verificando Marcas de "
              "NCM|Actualizando Insumos"_s);
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
              u"> Verificando Integridad\n"
              "# Verificando Integridad\n"
              "> Actualizando Insumos\n"
              "# Actualizando Insumos\n"
              "> Verificando Marcas de NCM\n"
              "# Verificando Marcas de NCM"_s);
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
    // A spread over a header without FOB fails in the store; the box tells where the run stood.
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
              u"0 - go_InputsLink.EnviarGrupoIdSub [ArmarItem.Generar]:10 : Error en enviar "
              "vinculación de subitems a insumos"_s);
}

TEST_P(Corrida, AnOperationWithoutHeaderEndsInTheErrorBox) {
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
        // The armed mark is written by then; the dashboard writes 'S' over it.
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
