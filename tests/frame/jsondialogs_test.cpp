// The user of a program without a screen: lines out, answers in.

#include "frame/jsondialogs.h"

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

using L = QLatin1String;

struct Sesion {
    std::vector<QString> lineas;
    Dialogos d;
    explicit Sesion(const QStringList &respuestas = {})
        : d(DialogosJson([this](const QString &linea) { lineas.push_back(linea); }, respuestas)) {}
    QJsonObject ultima() const { return QJsonDocument::fromJson(lineas.back().toUtf8()).object(); }
};

TEST(DialogosJson, AMessageIsOneCompactLineWithItsFiveMembers) {
    Sesion s;
    s.d.advertir(u"línea uno\r\n\"dos\""_s, u"Título"_s);
    ASSERT_EQ(s.lineas.size(), 1U);
    EXPECT_FALSE(s.lineas[0].contains(QLatin1Char('\n')));
    EXPECT_EQ(s.lineas[0].toStdString(),
              "{\"icono\":\"exclamacion\",\"respuesta\":null,\"texto\":\"línea "
              "uno\\r\\n\\\"dos\\\"\",\"tipo\":\"mensaje\","
              "\"titulo\":\"Título\"}");
}

TEST(DialogosJson, EveryIconHasItsName) {
    Sesion s;
    const std::pair<Icono, const char *> casos[] = {{Icono::Ninguno, ""},
                                                    {Icono::Informacion, "informacion"},
                                                    {Icono::Exclamacion, "exclamacion"},
                                                    {Icono::Critico, "critico"},
                                                    {Icono::Pregunta, "pregunta"}};
    for (const auto &[icono, nombre] : casos) {
        s.d.mensaje({u"x"_s, {}, icono, false});
        EXPECT_EQ(s.ultima().value("icono"_L1).toString().toStdString(), nombre);
    }
}

TEST(DialogosJson, YesIsSaidInFourWaysAndAnyCaseAndEverythingElseIsNo) {
    const std::pair<const char *, bool> casos[] = {
        {"Si", true},   {"SI", true},  {"sí", true}, {"SÍ", true},       {"s", true},       {"Yes", true},
        {" si ", true}, {"No", false}, {"", false},  {"Tal vez", false}, {"siempre", false}};
    for (const auto &[dicho, esperado] : casos) {
        Sesion s({QString::fromUtf8(dicho)});
        EXPECT_EQ(s.d.preguntar({u"¿?"_s, {}, Icono::Pregunta, false}), esperado) << dicho;
        EXPECT_EQ(s.ultima().value("respuesta"_L1).toString(), esperado ? "Si"_L1 : "No"_L1) << dicho;
    }
}

TEST(DialogosJson, AnswersAreConsumedInOrderAndBehindTheLastStandNoAndTheEmptyText) {
    Sesion s({u"Si"_s, u"26001IC04000123A"_s, u"No"_s});
    EXPECT_TRUE(s.d.preguntar({u"1"_s, {}, Icono::Pregunta, false}));
    EXPECT_EQ(s.d.pedirTexto({u"t"_s, u"2"_s, 40, {}}).value_or("<nada>"_L1), "26001IC04000123A"_L1);
    EXPECT_FALSE(s.d.preguntar({u"3"_s, {}, Icono::Pregunta, false}));
    EXPECT_FALSE(s.d.preguntar({u"4"_s, {}, Icono::Pregunta, false}));
    EXPECT_EQ(s.d.pedirTexto({u"t"_s, u"5"_s, 40, {}}).value_or("<nada>"_L1), ""_L1);
    EXPECT_EQ(s.lineas.size(), 5U);
}

TEST(DialogosJson, AnInputBoxStopsAtItsLength) {
    Sesion s({u"ñandúes"_s});
    EXPECT_EQ(s.d.pedirTexto({u"t"_s, u"p"_s, 3, {}}).value_or(QString()), u"ñan"_s);
    EXPECT_EQ(s.ultima().value("tipo"_L1).toString(), "entrada"_L1);
    EXPECT_EQ(s.ultima().value("respuesta"_L1).toString(), u"ñan"_s);
}

TEST(DialogosJson, TheAutomotiveQuestionTakesReplacementProductionOrNo) {
    struct Caso {
        const char *dicho;
        bool si;
        int opcion;
    };
    const Caso casos[] = {{"R", true, 1}, {"p", true, 0}, {"N", false, 0}, {"Si", true, 0}, {"", false, 0}};
    for (const Caso &caso : casos) {
        Sesion s({L(caso.dicho)});
        const RespuestaConOpciones r = s.d.preguntarConOpciones(
            {u"¿?"_s, u"T"_s, u"M"_s, {u"Producción"_s, u"Reposición"_s}, u"&Si"_s, u"&No"_s});
        EXPECT_EQ(r.si, caso.si) << caso.dicho;
        if (caso.si) {
            EXPECT_EQ(r.opcion, caso.opcion) << caso.dicho;
        }
        EXPECT_EQ(s.ultima().value("tipo"_L1).toString(), "pregunta"_L1);
    }
}

TEST(DialogosJson, AReportAndAPickAreLinesToo) {
    Sesion s({u"dos"_s});
    s.d.informe({u"Título"_s, u"a\r\nb"_s, true});
    EXPECT_EQ(s.ultima().value("tipo"_L1).toString(), "informe"_L1);
    EXPECT_EQ(s.ultima().value("texto"_L1).toString(), "a\r\nb"_L1);
    EXPECT_EQ(s.d.elegir({u"t"_s, {u"uno"_s, u"dos"_s}, 0}), 1);
    EXPECT_EQ(s.ultima().value("tipo"_L1).toString(), "eleccion"_L1);
    EXPECT_EQ(s.ultima().value("respuesta"_L1).toString(), "dos"_L1);
    EXPECT_EQ(s.d.elegir({u"t"_s, {u"uno"_s}, 0}), -1);
}

}  // namespace
