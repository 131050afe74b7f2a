// The user of a program without a screen: lines out, answers in.

#include "frame/jsondialogs.h"

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <vector>

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
    s.d.advertir(QStringLiteral("línea uno\r\n\"dos\""), QStringLiteral("Título"));
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
        s.d.mensaje({QStringLiteral("x"), {}, icono, false});
        EXPECT_EQ(s.ultima().value(L("icono")).toString().toStdString(), nombre);
    }
}

TEST(DialogosJson, YesIsSaidInFourWaysAndAnyCaseAndEverythingElseIsNo) {
    const std::pair<const char *, bool> casos[] = {
        {"Si", true},   {"SI", true},  {"sí", true}, {"SÍ", true},       {"s", true},       {"Yes", true},
        {" si ", true}, {"No", false}, {"", false},  {"Tal vez", false}, {"siempre", false}};
    for (const auto &[dicho, esperado] : casos) {
        Sesion s({QString::fromUtf8(dicho)});
        EXPECT_EQ(s.d.preguntar({QStringLiteral("¿?"), {}, Icono::Pregunta, false}), esperado) << dicho;
        EXPECT_EQ(s.ultima().value(L("respuesta")).toString(), esperado ? L("Si") : L("No")) << dicho;
    }
}

TEST(DialogosJson, AnswersAreConsumedInOrderAndBehindTheLastStandNoAndTheEmptyText) {
    Sesion s({QStringLiteral("Si"), QStringLiteral("26001IC04000123A"), QStringLiteral("No")});
    EXPECT_TRUE(s.d.preguntar({QStringLiteral("1"), {}, Icono::Pregunta, false}));
    EXPECT_EQ(s.d.pedirTexto({QStringLiteral("t"), QStringLiteral("2"), 40, {}}).value_or(L("<nada>")),
              L("26001IC04000123A"));
    EXPECT_FALSE(s.d.preguntar({QStringLiteral("3"), {}, Icono::Pregunta, false}));
    EXPECT_FALSE(s.d.preguntar({QStringLiteral("4"), {}, Icono::Pregunta, false}));
    EXPECT_EQ(s.d.pedirTexto({QStringLiteral("t"), QStringLiteral("5"), 40, {}}).value_or(L("<nada>")),
              L(""));
    EXPECT_EQ(s.lineas.size(), 5U);
}

TEST(DialogosJson, AnInputBoxStopsAtItsLength) {
    Sesion s({QStringLiteral("ñandúes")});
    EXPECT_EQ(s.d.pedirTexto({QStringLiteral("t"), QStringLiteral("p"), 3, {}}).value_or(QString()),
              QStringLiteral("ñan"));
    EXPECT_EQ(s.ultima().value(L("tipo")).toString(), L("entrada"));
    EXPECT_EQ(s.ultima().value(L("respuesta")).toString(), QStringLiteral("ñan"));
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
        const RespuestaConOpciones r =
            s.d.preguntarConOpciones({QStringLiteral("¿?"),
                                      QStringLiteral("T"),
                                      QStringLiteral("M"),
                                      {QStringLiteral("Producción"), QStringLiteral("Reposición")},
                                      QStringLiteral("&Si"),
                                      QStringLiteral("&No")});
        EXPECT_EQ(r.si, caso.si) << caso.dicho;
        if (caso.si) {
            EXPECT_EQ(r.opcion, caso.opcion) << caso.dicho;
        }
        EXPECT_EQ(s.ultima().value(L("tipo")).toString(), L("pregunta"));
    }
}

TEST(DialogosJson, AReportAndAPickAreLinesToo) {
    Sesion s({QStringLiteral("dos")});
    s.d.informe({QStringLiteral("Título"), QStringLiteral("a\r\nb"), true});
    EXPECT_EQ(s.ultima().value(L("tipo")).toString(), L("informe"));
    EXPECT_EQ(s.ultima().value(L("texto")).toString(), L("a\r\nb"));
    EXPECT_EQ(s.d.elegir({QStringLiteral("t"), {QStringLiteral("uno"), QStringLiteral("dos")}, 0}), 1);
    EXPECT_EQ(s.ultima().value(L("tipo")).toString(), L("eleccion"));
    EXPECT_EQ(s.ultima().value(L("respuesta")).toString(), L("dos"));
    EXPECT_EQ(s.d.elegir({QStringLiteral("t"), {QStringLiteral("uno")}, 0}), -1);
}

}  // namespace
